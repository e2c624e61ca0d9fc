#include "QLT_SQMDC.h"

// Nothing is built when the library is loaded: what is defined here is constant, and takes no memory that the
// loader's program might lack.

constexpr ZORString QLT_SQMDC::DOCUMENT_ID = "ZORMicrosoftSqlServerMdsMdcExport"_text;
constexpr ZORString QLT_SQMDC::PREFIX = "QLT_SQMDC"_text;

namespace {

using Values = const ZORBridgeEnumValueLiteral* const[];

constexpr Values MODEL_VALUES = {&QLT_SQMDC::BP_MODEL_ENUM_UML, &QLT_SQMDC::BP_MODEL_ENUM_ERD,
                                 &QLT_SQMDC::BP_MODEL_ENUM_DBM, &QLT_SQMDC::BP_MODEL_ENUM_ERD_AND_DBM,
                                 nullptr};
constexpr Values UML_1_3_SUPPORT_VALUES = {
    &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_DEFAULT, &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_ENABLED,
    &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_PARTIAL, &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_DISABLED, nullptr};

#define LIST_ERD_CHOICE(name, text) &QLT_SQMDC::BP_ERD_TYPESET_ENUM_##name,
#define LIST_DBM_CHOICE(name, text) &QLT_SQMDC::BP_DBM_TYPESET_ENUM_##name,
constexpr Values ERD_TYPESET_VALUES = {QLT_SQMDC_TYPESET_CHOICES(LIST_ERD_CHOICE) nullptr};
constexpr Values DBM_TYPESET_VALUES = {QLT_SQMDC_TYPESET_CHOICES(LIST_DBM_CHOICE) nullptr};

}  // namespace

#define LITERAL(Class, name, ...) constexpr Class QLT_SQMDC::name(#name ""_text, __VA_ARGS__)

constexpr QLT_SQMDC::TextInstance QLT_SQMDC::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT_DESCRIPTION(
    "MicrosoftSqlServerMdsMdcExportDescription"_text, ""_text);

LITERAL(QLT_SQMDC::TextInstance, BP_FILE_DEFAULT, ""_text);
LITERAL(ZORBridgeOptionLiteral, BP_FILE, "File"_text, "File"_text,
        "Use the 'Repository Browser' tool to load the generated MDC file into the\n"
        "     Microsoft Repository.\n"
        "     \n"
        "     "_text,
        nullptr, BP_FILE_DEFAULT);

LITERAL(ZORBridgeEnumValueLiteral, BP_MODEL_ENUM_UML, "UML"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_MODEL_ENUM_ERD, "ERD"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_MODEL_ENUM_DBM, "DBM"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_MODEL_ENUM_ERD_AND_DBM, "ERD and DBM"_text);
LITERAL(ZORBridgeOptionEnumerationLiteral, BP_MODEL_ENUM, MODEL_VALUES);
LITERAL(ZORBridgeOptionLiteral, BP_MODEL, "Model"_text, "Enumerated"_text,
        "Specifies the target Open Information Model.\n"
        "  'UML' - Export a UML view of the model.\n"
        "  'ERD' - Export an ERD view of the model.\n"
        "  'DBM' - Export a DBM view of the model.\n"
        "  'ERD and DBM' - Combines ERD and DBM to produce a unified view of the model.\n"
        " "_text,
        &BP_MODEL_ENUM, BP_MODEL_ENUM_UML);

LITERAL(ZORBridgeOptionLiteral, BP_MS_REPOSITORY, "MS Repository"_text, "Boolean"_text,
        "If true then the bridge generates a simplified file for use with Microsoft Repository 3."_text,
        &QLCM::BOOLEAN_ENUM, QLCM::BOOLEAN_ENUM_VALUE_TRUE);

LITERAL(ZORBridgeEnumValueLiteral, BP_UML_1_3_SUPPORT_ENUM_DEFAULT, "Default"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_UML_1_3_SUPPORT_ENUM_ENABLED, "Enabled"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_UML_1_3_SUPPORT_ENUM_PARTIAL, "Partial"_text);
LITERAL(ZORBridgeEnumValueLiteral, BP_UML_1_3_SUPPORT_ENUM_DISABLED, "Disabled"_text);
LITERAL(ZORBridgeOptionEnumerationLiteral, BP_UML_1_3_SUPPORT_ENUM, UML_1_3_SUPPORT_VALUES);
LITERAL(ZORBridgeOptionLiteral, BP_UML_1_3_SUPPORT, "UML 1.3 Support"_text, "Enumerated"_text,
        "UML 1.3 defines standard stereotypes and tagged values that can be used to store extra information. "
        "This allows you to specify whether the bridge should take advantage of this.\n"
        "  'Default' - Automatically use the appropriate default for the selected tool.\n"
        "  'Enabled' - Use both UML 1.3's standard stereotypes and tagged values.\n"
        "  'Partial' - Only use UML 1.3's standard tagged values.\n"
        "  'Disabled' - Don't use UML 1.3's standard extensions."_text,
        &BP_UML_1_3_SUPPORT_ENUM, BP_UML_1_3_SUPPORT_ENUM_DEFAULT);

#define DEFINE_ERD_CHOICE(name, text) \
    LITERAL(ZORBridgeEnumValueLiteral, BP_ERD_TYPESET_ENUM_##name, text ""_text);
QLT_SQMDC_TYPESET_CHOICES(DEFINE_ERD_CHOICE)
LITERAL(ZORBridgeOptionEnumerationLiteral, BP_ERD_TYPESET_ENUM, ERD_TYPESET_VALUES);
LITERAL(
    ZORBridgeOptionLiteral, BP_ERD_TYPESET, "ERD TypeSet"_text, "Enumerated"_text,
    "Used for ERD exports:\n"
    " Specifies the TypeSet, i.e. the naming convention, to adopt to convey the datatype of ERD Domains.\n"
    " The default is to use the 'XML Datatypes' conventions. If set to 'None' then the datatype information "
    "is "
    "not exported."_text,
    &BP_ERD_TYPESET_ENUM, BP_ERD_TYPESET_ENUM_DEFAULT);
LITERAL(QLT_SQMDC::TextInstance, BP_ERD_TYPESET_NAME_DEFAULT, ""_text);
LITERAL(ZORBridgeOptionLiteral, BP_ERD_TYPESET_NAME, "ERD TypeSet Name"_text, "String"_text,
        "Used for ERD exports:\n"
        " If not empty, this field overrides the default name associated to the TypeSet specified by "
        "'ERD TypeSet'."_text,
        nullptr, BP_ERD_TYPESET_NAME_DEFAULT);
LITERAL(QLT_SQMDC::TextInstance, BP_ERD_TYPESET_VERSION_DEFAULT, ""_text);
LITERAL(ZORBridgeOptionLiteral, BP_ERD_TYPESET_VERSION, "ERD TypeSet Version"_text, "String"_text,
        "Used for ERD exports:\n"
        " If not empty, this field overrides the default version associated to the TypeSet specified by "
        "'ERD TypeSet'."_text,
        nullptr, BP_ERD_TYPESET_VERSION_DEFAULT);

#define DEFINE_DBM_CHOICE(name, text) \
    LITERAL(ZORBridgeEnumValueLiteral, BP_DBM_TYPESET_ENUM_##name, text ""_text);
QLT_SQMDC_TYPESET_CHOICES(DEFINE_DBM_CHOICE)
LITERAL(ZORBridgeOptionEnumerationLiteral, BP_DBM_TYPESET_ENUM, DBM_TYPESET_VALUES);
LITERAL(
    ZORBridgeOptionLiteral, BP_DBM_TYPESET, "DBM TypeSet"_text, "Enumerated"_text,
    "Used for DBM exports:\n"
    " Specifies the TypeSet, usually a database specific naming convention, to use when defining the "
    "datatype "
    "of columns.\n"
    " The default is to use the same target database as in the source model or 'SQL Server 7.x' if none was "
    "specified,\n"
    " If set to 'None' then the datatype information is not exported."_text,
    &BP_DBM_TYPESET_ENUM, BP_DBM_TYPESET_ENUM_DEFAULT);
LITERAL(QLT_SQMDC::TextInstance, BP_DBM_TYPESET_NAME_DEFAULT, ""_text);
LITERAL(ZORBridgeOptionLiteral, BP_DBM_TYPESET_NAME, "DBM TypeSet Name"_text, "String"_text,
        "Used for DBM exports:\n"
        " If not empty, this field overrides the default name associated to the TypeSet specified by "
        "'DBM TypeSet'."_text,
        nullptr, BP_DBM_TYPESET_NAME_DEFAULT);
LITERAL(QLT_SQMDC::TextInstance, BP_DBM_TYPESET_VERSION_DEFAULT, ""_text);
LITERAL(ZORBridgeOptionLiteral, BP_DBM_TYPESET_VERSION, "DBM TypeSet Version"_text, "String"_text,
        "Used for DBM exports:\n"
        " If not empty, this field overrides the default version associated to the TypeSet specified by "
        "'DBM TypeSet'."_text,
        nullptr, BP_DBM_TYPESET_VERSION_DEFAULT);

LITERAL(QLT_SQMDC::TextInstance, BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT, ""_text);
LITERAL(
    ZORBridgeOptionLiteral, BP_XML_INDENTATION__PRETTY_PRINTING_, "XML Indentation (pretty printing)"_text,
    "String"_text,
    "This option controls the pretty printing of the XML, for the purpose of opening the generated file in a "
    "text editor.\n"
    " For example, specify here a tabulation character, or some space characters.\n"
    " By default, there is no indentation which leads to a more compact file.\n"
    " "_text,
    nullptr, BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT);

LITERAL(QLT_SQMDC::MessageInstance_String, MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE, "2"_text,
        "Unable to open or create output file '{0}'"_text, "FATAL"_text);
LITERAL(QLT_SQMDC::MessageInstance, MDC_E_INPUT_MODEL_PARAMETER_IS_NULL, "3"_text,
        "Input model pointer is null"_text, "FATAL"_text);
LITERAL(QLT_SQMDC::MessageInstance_String_String, MDC_E_UNKNOWN_TYPESET, "5"_text,
        "The typeset '{0}' was not found. Using the default '{1}' instead"_text, "ERROR"_text);
LITERAL(QLT_SQMDC::MessageInstance_String_String_String, MDC_E_NAME_CLASH, "6"_text,
        "Renaming the {0} '{1}' to '{2}' to avoid a name clash"_text, "WARNING"_text);
LITERAL(QLT_SQMDC::MessageInstance, MDC_E_MULTIPLE_CATALOGS_DETECTED, "7"_text,
        "This bridge does not support multiple catalogs. The source model has multiple catalogs."_text,
        "WARNING"_text);

const ZORTextLiteral* const* QLT_SQMDC::getAllLiterals() noexcept {
    static constexpr const ZORTextLiteral* ALL_LITERALS[] = {
        &BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT_DESCRIPTION,
        &BP_FILE_DEFAULT,
        &BP_FILE,
        &BP_MODEL_ENUM_UML,
        &BP_MODEL_ENUM_ERD,
        &BP_MODEL_ENUM_DBM,
        &BP_MODEL_ENUM_ERD_AND_DBM,
        &BP_MODEL_ENUM,
        &BP_MODEL,
        &BP_MS_REPOSITORY,
        &BP_UML_1_3_SUPPORT_ENUM_DEFAULT,
        &BP_UML_1_3_SUPPORT_ENUM_ENABLED,
        &BP_UML_1_3_SUPPORT_ENUM_PARTIAL,
        &BP_UML_1_3_SUPPORT_ENUM_DISABLED,
        &BP_UML_1_3_SUPPORT_ENUM,
        &BP_UML_1_3_SUPPORT,
        QLT_SQMDC_TYPESET_CHOICES(LIST_ERD_CHOICE) & BP_ERD_TYPESET_ENUM,
        &BP_ERD_TYPESET,
        &BP_ERD_TYPESET_NAME_DEFAULT,
        &BP_ERD_TYPESET_NAME,
        &BP_ERD_TYPESET_VERSION_DEFAULT,
        &BP_ERD_TYPESET_VERSION,
        QLT_SQMDC_TYPESET_CHOICES(LIST_DBM_CHOICE) & BP_DBM_TYPESET_ENUM,
        &BP_DBM_TYPESET,
        &BP_DBM_TYPESET_NAME_DEFAULT,
        &BP_DBM_TYPESET_NAME,
        &BP_DBM_TYPESET_VERSION_DEFAULT,
        &BP_DBM_TYPESET_VERSION,
        &BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT,
        &BP_XML_INDENTATION__PRETTY_PRINTING_,
        &MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE,
        &MDC_E_INPUT_MODEL_PARAMETER_IS_NULL,
        &MDC_E_UNKNOWN_TYPESET,
        &MDC_E_NAME_CLASH,
        &MDC_E_MULTIPLE_CATALOGS_DETECTED,
        nullptr};
    return ALL_LITERALS;
}

const ZORTextLiteral* QLT_SQMDC::findTextLiteral(const ZORString& key) noexcept {
    const ZORTextLiteral* const* literal = getAllLiterals();
    while (*literal != nullptr && !((*literal)->getKey() == key)) {
        ++literal;
    }
    return *literal;
}
