// Stands in for the product's plug-in and looks at a model for as long as its user wants.

#include <unistd.h>

#include "ZORBridgeLib.h"
#include "ZORXMLWriter.h"

namespace {

const ZORTextLiteral NOTHING("NOTHING", "");
const ZORBridgeOptionLiteral FILE_OPTION("BP_FILE", "File", "File", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral MODEL("BP_MODEL", "Model", "String", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral DBM_TYPES("BP_DBM_TYPESET", "DBM TypeSet", "String", "", nullptr, NOTHING);
const ZORBridgeOptionLiteral ERD_TYPES("BP_ERD_TYPESET", "ERD TypeSet", "String", "", nullptr, NOTHING);

class ManyElements : public ZORXMLWriter {
  public:
    ManyElements() {
        for (int i = 0; i < 10'000; ++i) {
            countElement();
        }
    }
};

class PatientBridge : public ZORBridgeExportInterface, public ZORBridgeInspectionInterface {
  public:
    bool run(const ZORString& /*fileName*/, ZORModel& /*model*/, ZOROptionList& /*options*/,
             ZORLog& /*log*/) override {
        return false;
    }
    /// Ends with standard input.
    void inspect(ZORModel& /*model*/, ZOROptionList& /*options*/, ZORLog& /*log*/,
                 ZORExportObserver& /*observer*/) override {
        const ManyElements elements;
        char byte = 0;
        while (::read(STDIN_FILENO, &byte, 1) > 0) {
        }
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
    static PatientBridge bridge;
    return &bridge;
}
