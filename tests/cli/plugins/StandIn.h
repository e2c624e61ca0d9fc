// What the stand-ins for the product's plug-in share: the options that the program sets.
#pragma once

#include "ZORBridgeLib.h"

class StandInBridge : public ZORBridgeExportInterface {
  public:
    void getOptionList(ZOROptionList& list) override {
        static constexpr ZORTextLiteral NOTHING("NOTHING"_text, ""_text);
        static constexpr ZORBridgeOptionLiteral FILE_OPTION("BP_FILE"_text, "File"_text, "File"_text, ""_text,
                                                            nullptr, NOTHING);
        static constexpr ZORBridgeOptionLiteral MODEL("BP_MODEL"_text, "Model"_text, "String"_text, ""_text,
                                                      nullptr, NOTHING);
        static constexpr ZORBridgeOptionLiteral DBM_TYPES("BP_DBM_TYPESET"_text, "DBM TypeSet"_text,
                                                          "String"_text, ""_text, nullptr, NOTHING);
        static constexpr ZORBridgeOptionLiteral ERD_TYPES("BP_ERD_TYPESET"_text, "ERD TypeSet"_text,
                                                          "String"_text, ""_text, nullptr, NOTHING);
        list.removeAll();
        for (const ZORBridgeOptionLiteral* option : {&FILE_OPTION, &MODEL, &DBM_TYPES, &ERD_TYPES}) {
            list.append(generateOption(*option));
        }
    }
    void getSpecification(const ZORString& /*bridgeId*/, ZORBridgeSpecification& /*specification*/) override {
    }
    ZORString getMappingSpecificationXmlFile() override { return {}; }
};

/// The one symbol of a plug-in.
extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface();
