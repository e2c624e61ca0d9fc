// The literals that describe the bridge's options: names, types, defaults, permitted values, descriptions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QLT_SQMDC.h"
#include "TypeSetTexts.h"

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

struct OptionRow {
    const ZORBridgeOptionLiteral& literal;
    const char* name;
    const char* displayName;
    const char* type;
    const ZORBridgeOptionEnumerationLiteral* enumeration;
    const ZORTextLiteral& defaultLiteral;
    const char* defaultValue;
};

const OptionRow OPTIONS[] = {
    {QLT_SQMDC::BP_FILE, "BP_FILE", "File", "File", nullptr, QLT_SQMDC::BP_FILE_DEFAULT, ""},
    {QLT_SQMDC::BP_MODEL, "BP_MODEL", "Model", "Enumerated", &QLT_SQMDC::BP_MODEL_ENUM,
     QLT_SQMDC::BP_MODEL_ENUM_UML, "UML"},
    {QLT_SQMDC::BP_MS_REPOSITORY, "BP_MS_REPOSITORY", "MS Repository", "Boolean", &QLCM::BOOLEAN_ENUM,
     QLCM::BOOLEAN_ENUM_VALUE_TRUE, "True"},
    {QLT_SQMDC::BP_UML_1_3_SUPPORT, "BP_UML_1_3_SUPPORT", "UML 1.3 Support", "Enumerated",
     &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM, QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_DEFAULT, "Default"},
    {QLT_SQMDC::BP_ERD_TYPESET, "BP_ERD_TYPESET", "ERD TypeSet", "Enumerated",
     &QLT_SQMDC::BP_ERD_TYPESET_ENUM, QLT_SQMDC::BP_ERD_TYPESET_ENUM_DEFAULT, "Default"},
    {QLT_SQMDC::BP_ERD_TYPESET_NAME, "BP_ERD_TYPESET_NAME", "ERD TypeSet Name", "String", nullptr,
     QLT_SQMDC::BP_ERD_TYPESET_NAME_DEFAULT, ""},
    {QLT_SQMDC::BP_ERD_TYPESET_VERSION, "BP_ERD_TYPESET_VERSION", "ERD TypeSet Version", "String", nullptr,
     QLT_SQMDC::BP_ERD_TYPESET_VERSION_DEFAULT, ""},
    {QLT_SQMDC::BP_DBM_TYPESET, "BP_DBM_TYPESET", "DBM TypeSet", "Enumerated",
     &QLT_SQMDC::BP_DBM_TYPESET_ENUM, QLT_SQMDC::BP_DBM_TYPESET_ENUM_DEFAULT, "Default"},
    {QLT_SQMDC::BP_DBM_TYPESET_NAME, "BP_DBM_TYPESET_NAME", "DBM TypeSet Name", "String", nullptr,
     QLT_SQMDC::BP_DBM_TYPESET_NAME_DEFAULT, ""},
    {QLT_SQMDC::BP_DBM_TYPESET_VERSION, "BP_DBM_TYPESET_VERSION", "DBM TypeSet Version", "String", nullptr,
     QLT_SQMDC::BP_DBM_TYPESET_VERSION_DEFAULT, ""},
    {QLT_SQMDC::BP_XML_INDENTATION__PRETTY_PRINTING_, "BP_XML_INDENTATION__PRETTY_PRINTING_",
     "XML Indentation (pretty printing)", "String", nullptr,
     QLT_SQMDC::BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT, ""},
};

std::vector<std::string> texts(const ZORBridgeOptionEnumerationLiteral& enumeration) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < enumeration.size(); ++i) {
        texts.emplace_back(enumeration[i].getText().view());
    }
    return texts;
}

TEST(OptionLiterals, HaveTheirNamesTypesAndDefaults) {
    for (const OptionRow& row : OPTIONS) {
        EXPECT_EQ(row.literal.getKey(), row.name);
        EXPECT_EQ(row.literal.getDisplayName(), row.displayName) << row.name;
        EXPECT_EQ(row.literal.getType(), row.type) << row.name;
        EXPECT_EQ(row.literal.getEnumeration(), row.enumeration) << row.name;
        EXPECT_EQ(&row.literal.getDefault(), &row.defaultLiteral) << row.name;
        EXPECT_EQ(row.literal.getDefault().getText(), row.defaultValue) << row.name;
    }
}

TEST(OptionLiterals, DefaultOfTheRepositoryModeIsWhatTheBridgeTakesForTrue) {
    EXPECT_EQ(QLT_SQMDC::BP_MS_REPOSITORY.getDefault().getText(), BLIB::BOOLEAN_ENUM_VALUE_TRUE.getText());
    EXPECT_THAT(texts(QLCM::BOOLEAN_ENUM), ElementsAre("True", "False"));
}

TEST(OptionLiterals, EnumerationsHaveTheirValuesInOrder) {
    EXPECT_THAT(texts(QLT_SQMDC::BP_MODEL_ENUM), ElementsAre("UML", "ERD", "DBM", "ERD and DBM"));
    EXPECT_THAT(texts(QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM),
                ElementsAre("Default", "Enabled", "Partial", "Disabled"));
}

TEST(OptionLiterals, BothTypeSetOptionsHaveTheSame57Choices) {
    EXPECT_THAT(texts(QLT_SQMDC::BP_ERD_TYPESET_ENUM), ElementsAreArray(TYPE_SET_TEXTS));
    EXPECT_THAT(texts(QLT_SQMDC::BP_DBM_TYPESET_ENUM), ElementsAreArray(TYPE_SET_TEXTS));
    EXPECT_EQ(QLT_SQMDC::TYPESET_CHOICES, 57U);
}

TEST(OptionLiterals, ValuesAreNamedAfterTheirEnumerationAndText) {
    const ZORBridgeOptionEnumerationLiteral* const enumerations[] = {
        &QLT_SQMDC::BP_MODEL_ENUM, &QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM, &QLT_SQMDC::BP_ERD_TYPESET_ENUM,
        &QLT_SQMDC::BP_DBM_TYPESET_ENUM};
    for (const ZORBridgeOptionEnumerationLiteral* enumeration : enumerations) {
        const std::string name(enumeration->getKey().view());
        EXPECT_THAT(name, ::testing::EndsWith("_ENUM"));
        for (std::size_t i = 0; i < enumeration->size(); ++i) {
            const ZORBridgeEnumValueLiteral& value = (*enumeration)[i];
            EXPECT_EQ(value.getKey(), valueName(name, value.getText().c_str()).c_str());
            EXPECT_EQ(QLT_SQMDC::findTextLiteral(value.getKey()), &value);
        }
    }
}

TEST(OptionLiterals, ValuesCanBeNamedInCode) {
    EXPECT_EQ(QLT_SQMDC::BP_MODEL_ENUM_ERD_AND_DBM.getText(), "ERD and DBM");
    EXPECT_EQ(QLT_SQMDC::BP_ERD_TYPESET_ENUM_AS_400_4_X.getText(), "AS/400 4.x");
    EXPECT_EQ(QLT_SQMDC::BP_DBM_TYPESET_ENUM_SQL_SERVER_7_X.getText(), "SQL Server 7.x");
}

struct DescriptionRow {
    const ZORBridgeOptionLiteral& literal;
    const char* text;
};

// The line feeds, and the blanks behind the last ones, belong to the texts.
const DescriptionRow DESCRIPTIONS[] = {
    {QLT_SQMDC::BP_FILE,
     "Use the 'Repository Browser' tool to load the generated MDC file into the\n     Microsoft Repository.\n"
     "     \n     "},
    {QLT_SQMDC::BP_MODEL,
     "Specifies the target Open Information Model.\n  'UML' - Export a UML view of the model.\n"
     "  'ERD' - Export an ERD view of the model.\n  'DBM' - Export a DBM view of the model.\n"
     "  'ERD and DBM' - Combines ERD and DBM to produce a unified view of the model.\n "},
    {QLT_SQMDC::BP_MS_REPOSITORY,
     "If true then the bridge generates a simplified file for use with Microsoft Repository 3."},
    {QLT_SQMDC::BP_UML_1_3_SUPPORT,
     "UML 1.3 defines standard stereotypes and tagged values that can be used to store extra information. "
     "This "
     "allows you to specify whether the bridge should take advantage of this.\n  'Default' - Automatically "
     "use "
     "the appropriate default for the selected tool.\n  'Enabled' - Use both UML 1.3's standard stereotypes "
     "and "
     "tagged values.\n  'Partial' - Only use UML 1.3's standard tagged values.\n  'Disabled' - Don't use UML "
     "1.3's standard extensions."},
    {QLT_SQMDC::BP_ERD_TYPESET,
     "Used for ERD exports:\n Specifies the TypeSet, i.e. the naming convention, to adopt to convey the "
     "datatype "
     "of ERD Domains.\n The default is to use the 'XML Datatypes' conventions. If set to 'None' then the "
     "datatype "
     "information is not exported."},
    {QLT_SQMDC::BP_ERD_TYPESET_NAME,
     "Used for ERD exports:\n If not empty, this field overrides the default name associated to the TypeSet "
     "specified by 'ERD TypeSet'."},
    {QLT_SQMDC::BP_ERD_TYPESET_VERSION,
     "Used for ERD exports:\n If not empty, this field overrides the default version associated to the "
     "TypeSet "
     "specified by 'ERD TypeSet'."},
    {QLT_SQMDC::BP_DBM_TYPESET,
     "Used for DBM exports:\n Specifies the TypeSet, usually a database specific naming convention, to use "
     "when "
     "defining the datatype of columns.\n The default is to use the same target database as in the source "
     "model "
     "or 'SQL Server 7.x' if none was specified,\n If set to 'None' then the datatype information is not "
     "exported."},
    {QLT_SQMDC::BP_DBM_TYPESET_NAME,
     "Used for DBM exports:\n If not empty, this field overrides the default name associated to the TypeSet "
     "specified by 'DBM TypeSet'."},
    {QLT_SQMDC::BP_DBM_TYPESET_VERSION,
     "Used for DBM exports:\n If not empty, this field overrides the default version associated to the "
     "TypeSet "
     "specified by 'DBM TypeSet'."},
    {QLT_SQMDC::BP_XML_INDENTATION__PRETTY_PRINTING_,
     "This option controls the pretty printing of the XML, for the purpose of opening the generated file in "
     "a "
     "text editor.\n For example, specify here a tabulation character, or some space characters.\n By "
     "default, "
     "there is no indentation which leads to a more compact file.\n "},
};

TEST(OptionLiterals, AreDescribedToTheCharacter) {
    for (const DescriptionRow& row : DESCRIPTIONS) {
        EXPECT_EQ(row.literal.getDescription(), row.text) << row.literal.getKey().view();
    }
    EXPECT_EQ(std::size(DESCRIPTIONS), std::size(OPTIONS));
}

}  // namespace
