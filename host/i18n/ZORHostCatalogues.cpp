#include "ZORHostCatalogues.h"

namespace {

const ZORString PREFIX("QLCM");

}  // namespace

const ZORMessageLiteralOf<ZORString> QLCM::BRIDGE_UNEXPECTED_ERROR(
    "BRIDGE_UNEXPECTED_ERROR", PREFIX, "1", "An unexpected error occurred in the bridge '{0}'", "FATAL");
const ZORMessageLiteralOf<ZORString, ZORString> QLCM::ICU_CONVERSION_ERROR(
    "ICU_CONVERSION_ERROR", PREFIX, "2",
    "characters that an XML document cannot hold were replaced: {0}, in this many texts of the model: {1}",
    "WARNING");
const ZORMessageLiteralOf<ZORString, ZORString> QLCM::FILE_WRITE_ERROR("FILE_WRITE_ERROR", PREFIX, "3",
                                                                       "Unable to write file '{0}': {1}",
                                                                       "FATAL");

const ZORBridgeEnumValueLiteral QLCM::BOOLEAN_ENUM_VALUE_TRUE("BOOLEAN_ENUM_VALUE_TRUE", "True");
const ZORBridgeEnumValueLiteral QLCM::BOOLEAN_ENUM_VALUE_FALSE("BOOLEAN_ENUM_VALUE_FALSE", "False");

namespace {

const ZORBridgeEnumValueLiteral* const BOOLEAN_VALUES[] = {&QLCM::BOOLEAN_ENUM_VALUE_TRUE,
                                                           &QLCM::BOOLEAN_ENUM_VALUE_FALSE, nullptr};

}  // namespace

const ZORBridgeOptionEnumerationLiteral QLCM::BOOLEAN_ENUM("BOOLEAN_ENUM", BOOLEAN_VALUES);

const ZORBridgeEnumValueLiteral BLIB::BOOLEAN_ENUM_VALUE_TRUE("BOOLEAN_ENUM_VALUE_TRUE", "True");
const ZORBridgeEnumValueLiteral BLIB::BOOLEAN_ENUM_VALUE_FALSE("BOOLEAN_ENUM_VALUE_FALSE", "False");

const ZORBridgeSpecificationLiteral QLLST::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT(
    "MicrosoftSqlServerMdsMdcExport", "MicrosoftSqlServerMdsMdcExportDescription",
    "http://www.microsoft.com/sql", "Microsoft", "SQL Server Meta Data Services", "7.0 to 2000",
    "Relational databases, data modeling and object modeling, through the Open Information Model");

const ZORBridgeSpecificationLiteral* QLLST::findBridgeSpecification(const ZORString& bridgeId) noexcept {
    const auto& known = BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT;
    return bridgeId == known.getKey() ? &known : nullptr;
}
