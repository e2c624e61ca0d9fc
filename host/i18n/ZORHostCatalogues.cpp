#include "ZORHostCatalogues.h"

constexpr ZORMessageLiteralOf<ZORString> QLCM::BRIDGE_UNEXPECTED_ERROR(
    "BRIDGE_UNEXPECTED_ERROR"_text, "QLCM"_text, "1"_text,
    "An unexpected error occurred in the bridge '{0}'"_text, "FATAL"_text);
constexpr ZORMessageLiteralOf<ZORString, ZORString> QLCM::ICU_CONVERSION_ERROR(
    "ICU_CONVERSION_ERROR"_text, "QLCM"_text, "2"_text,
    "characters that an XML document cannot hold were replaced: {0}, in this many texts of the model: {1}"_text,
    "WARNING"_text);
constexpr ZORMessageLiteralOf<ZORString, ZORString> QLCM::FILE_WRITE_ERROR(
    "FILE_WRITE_ERROR"_text, "QLCM"_text, "3"_text, "Unable to write file '{0}': {1}"_text, "FATAL"_text);

constexpr ZORBridgeEnumValueLiteral QLCM::BOOLEAN_ENUM_VALUE_TRUE("BOOLEAN_ENUM_VALUE_TRUE"_text,
                                                                  "True"_text);
constexpr ZORBridgeEnumValueLiteral QLCM::BOOLEAN_ENUM_VALUE_FALSE("BOOLEAN_ENUM_VALUE_FALSE"_text,
                                                                   "False"_text);

namespace {

constexpr const ZORBridgeEnumValueLiteral* BOOLEAN_VALUES[] = {&QLCM::BOOLEAN_ENUM_VALUE_TRUE,
                                                               &QLCM::BOOLEAN_ENUM_VALUE_FALSE, nullptr};

}  // namespace

constexpr ZORBridgeOptionEnumerationLiteral QLCM::BOOLEAN_ENUM("BOOLEAN_ENUM"_text, BOOLEAN_VALUES);

constexpr ZORBridgeEnumValueLiteral BLIB::BOOLEAN_ENUM_VALUE_TRUE("BOOLEAN_ENUM_VALUE_TRUE"_text,
                                                                  "True"_text);
constexpr ZORBridgeEnumValueLiteral BLIB::BOOLEAN_ENUM_VALUE_FALSE("BOOLEAN_ENUM_VALUE_FALSE"_text,
                                                                   "False"_text);

constexpr ZORBridgeSpecificationLiteral QLLST::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT(
    "MicrosoftSqlServerMdsMdcExport"_text, "MicrosoftSqlServerMdsMdcExportDescription"_text,
    "http://www.microsoft.com/sql"_text, "Microsoft"_text, "SQL Server Meta Data Services"_text,
    "7.0 to 2000"_text,
    "Relational databases, data modeling and object modeling, through the Open Information Model"_text);

const ZORBridgeSpecificationLiteral* QLLST::findBridgeSpecification(const ZORString& bridgeId) noexcept {
    const auto& known = BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT;
    return bridgeId == known.getKey() ? &known : nullptr;
}
