// Stands in for the product's plug-in and writes a document with an error in it.

#include "ZORBridgeLib.h"
#include "ZORFile.h"

namespace {

const ZORTextLiteral NOTHING("NOTHING", "");
const ZORBridgeOptionLiteral FILE_OPTION("BP_FILE", "File", "File", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral MODEL("BP_MODEL", "Model", "String", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral DBM_TYPES("BP_DBM_TYPESET", "DBM TypeSet", "String", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral ERD_TYPES("BP_ERD_TYPESET", "ERD TypeSet", "String", "", nullptr, NOTHING);

class FaultyBridge : public ZORBridgeExportInterface {
  public:
    bool run(const ZORString& /*fileName*/, ZORModel& /*model*/, ZOROptionList& options,
             ZORLog& /*log*/) override {
        ZORFile file;
        file.setPath(options.getValue("File"));
        if (!file.openForOutput()) {
            return false;
        }
        file.printLine("<oim:Transfer/>");
        file.close();
        return true;
    }
    void getOptionList(ZOROptionList& list) override {
        list.removeAll();
        for (const ZORBridgeOptionLiteral* option : {&FILE_OPTION, &MODEL, &DBM_TYPES, &ERD_TYPES}) {
            list.append(generateOption(*option));
        }
    }
    void getSpecification(const ZORString& /*bridgeId*/, ZORBridgeSpecification& /*specification*/) override {
    }
    ZORString getMappingSpecificationXmlFile() override { return {}; }
};

}  // namespace

extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface();

extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface() {
    static FaultyBridge bridge;
    return &bridge;
}
