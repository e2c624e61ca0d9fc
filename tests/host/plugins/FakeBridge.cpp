// A bridge that does what its option "Behaviour" says. FAKE_FACTORY names the function that it exports;
// FAKE_RESULT, where it is defined, is what that function gives back in place of the bridge.

#include <stdexcept>

#include "ZORBridgeLib.h"

namespace {

const ZORTextLiteral COMPLETE("COMPLETE", "complete");
const ZORBridgeOptionLiteral BEHAVIOUR("BP_BEHAVIOUR", "Behaviour", "String", "", nullptr, COMPLETE);
const ZORBridgeOptionLiteral FILE_OPTION("BP_FILE", "File", "File", "", nullptr, COMPLETE);

class FakeBridge : public ZORBridgeExportInterface {
  public:
    bool run(const ZORString& fileName, ZORModel& /*model*/, ZOROptionList& options, ZORLog& log) override {
        const ZORString behaviour = options.getValue("Behaviour");
        log.log(ZORLogEvent("running into " + fileName, "FAKE_I0001", ZORSeverity::INFORMATION, {}));
        if (behaviour == "host exception") {
            throw ZORException("the bridge's own words");
        }
        if (behaviour == "standard exception") {
            throw std::runtime_error("not for users");
        }
        if (behaviour == "number") {
            throw 42;
        }
        return behaviour == "complete";
    }
    void getOptionList(ZOROptionList& list) override {
        list.removeAll();
        list.append(generateOption(FILE_OPTION));
        list.append(generateOption(BEHAVIOUR));
    }
    void getSpecification(const ZORString& bridgeId, ZORBridgeSpecification& specification) override {
        specification.toolName = "tool of " + bridgeId;
    }
    ZORString getMappingSpecificationXmlFile() override { throw std::runtime_error("there is none"); }
};

}  // namespace

extern int missing;

extern "C" ZORBridgeExportInterface* FAKE_FACTORY();

extern "C" ZORBridgeExportInterface* FAKE_FACTORY() {
#if defined(FAKE_NULL)
    return nullptr;
#elif defined(FAKE_THROWS)
    throw 1;
#elif defined(FAKE_UNRESOLVED)
    return reinterpret_cast<ZORBridgeExportInterface*>(&missing);
#else
    static FakeBridge bridge;
    return &bridge;
#endif
}
