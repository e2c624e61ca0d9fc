// The plug-in as a host sees it before a run: its options and its specification.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

ZORBridgeExportInterface& plugin() {
    return *getZORMicrosoftSqlServerMdsMdcExportInterface();
}

TEST(Interface, IsOneObject) {
    EXPECT_EQ(getZORMicrosoftSqlServerMdsMdcExportInterface(), &plugin());
}

struct OptionRow {
    const char* name;
    const char* displayName;
    const char* type;
    const char* defaultValue;
    std::size_t permittedValues;
};

constexpr OptionRow OPTION_ROWS[] = {
    {"BP_FILE", "File", "File", "", 0},
    {"BP_MODEL", "Model", "Enumerated", "UML", 4},
    {"BP_MS_REPOSITORY", "MS Repository", "Boolean", "True", 2},
    {"BP_UML_1_3_SUPPORT", "UML 1.3 Support", "Enumerated", "Default", 4},
    {"BP_ERD_TYPESET", "ERD TypeSet", "Enumerated", "Default", 57},
    {"BP_ERD_TYPESET_NAME", "ERD TypeSet Name", "String", "", 0},
    {"BP_ERD_TYPESET_VERSION", "ERD TypeSet Version", "String", "", 0},
    {"BP_DBM_TYPESET", "DBM TypeSet", "Enumerated", "Default", 57},
    {"BP_DBM_TYPESET_NAME", "DBM TypeSet Name", "String", "", 0},
    {"BP_DBM_TYPESET_VERSION", "DBM TypeSet Version", "String", "", 0},
    {"BP_XML_INDENTATION__PRETTY_PRINTING_", "XML Indentation (pretty printing)", "String", "", 0},
};

TEST(Options, StandInOneOrderWithTheirTypesAndDefaults) {
    ZOROptionList list;
    plugin().getOptionList(list);
    ASSERT_EQ(list.getOptions().size(), std::size(OPTION_ROWS));
    for (std::size_t i = 0; i < std::size(OPTION_ROWS); ++i) {
        const ZOROption& option = *list.getOptions()[i];
        const OptionRow& row = OPTION_ROWS[i];
        EXPECT_EQ(option.getName().view(), row.name);
        EXPECT_EQ(option.getDisplayName().view(), row.displayName);
        EXPECT_EQ(option.getType().view(), row.type) << row.name;
        EXPECT_EQ(option.getDefault().view(), row.defaultValue) << row.name;
        EXPECT_EQ(option.getValue().view(), row.defaultValue) << row.name;
        EXPECT_THAT(option.getPermittedValues(), SizeIs(row.permittedValues)) << row.name;
        EXPECT_FALSE(option.getDescription().isEmpty()) << row.name;
    }
}

TEST(Options, ReplaceTheOnesThatAListHolds) {
    ZOROptionList list;
    plugin().getOptionList(list);
    list.find("Model")->setValue("DBM");
    plugin().getOptionList(list);
    EXPECT_EQ(list.getOptions().size(), 11U);
    EXPECT_EQ(list.getValue("Model").view(), "UML");
}

TEST(Options, OfferFilesWithTheProductsExtension) {
    ZOROptionList list;
    plugin().getOptionList(list);
    EXPECT_EQ(list.find("File")->getFileExtension().view(), "xml");
    EXPECT_EQ(list.find("File")->getFileText().view(), "Default");
    EXPECT_TRUE(list.find("Model")->getFileExtension().isEmpty());
}

TEST(Options, PermitTheValuesOfTheirEnumerations) {
    ZOROptionList list;
    plugin().getOptionList(list);
    const auto permitted = [&](const char* name) {
        std::vector<std::string> values;
        for (const ZORString& value : list.find(name)->getPermittedValues()) {
            values.emplace_back(value.view());
        }
        return values;
    };
    EXPECT_THAT(permitted("Model"), ElementsAre("UML", "ERD", "DBM", "ERD and DBM"));
    EXPECT_THAT(permitted("MS Repository"), ElementsAre("True", "False"));
    EXPECT_THAT(permitted("UML 1.3 Support"), ElementsAre("Default", "Enabled", "Partial", "Disabled"));
    EXPECT_EQ(permitted("ERD TypeSet"), permitted("DBM TypeSet"));
    const std::vector<std::string> typeSets = permitted("DBM TypeSet");
    EXPECT_EQ(typeSets[0], "None");
    EXPECT_EQ(typeSets[1], "Default");
    EXPECT_EQ(typeSets[23], "Ingres 6.4") << "ahead of Ingres 1.x, out of the order of the others";
    EXPECT_EQ(typeSets[24], "Ingres 1.x");
    EXPECT_EQ(typeSets[56], "XML Datatypes");
}

TEST(Options, UntouchedOnesWriteTheSimplifiedFormOfTheUmlView) {
    TestBridge bridge(nullptr);
    bridge.readOptions(TestOptions());
    EXPECT_EQ(bridge.modelView_, MODEL_VIEW_UML);
    EXPECT_TRUE(bridge.msRepository_);
    EXPECT_EQ(bridge.uml13Support_, UML_1_3_FULL);
}

TEST(Specification, HasTheVersionOfItsOwnBuildMoment) {
    ZORBridgeSpecification specification;
    plugin().getSpecification("MicrosoftSqlServerMdsMdcExport", specification);
    EXPECT_EQ(specification.version.view(), "5.2.0 - Jun 12 2007 10:54:00");
    EXPECT_THAT(specification.description.view(), IsEmpty());
    EXPECT_THAT(specification.furtherEntry.view(), IsEmpty());
    EXPECT_EQ(specification.flags[0], 0);
    EXPECT_EQ(specification.flags[1], 0);
}

TEST(Specification, IsTheHostsOwnOneForAnIdentifierThatTheHostDoesNotKnow) {
    ZORBridgeSpecification known;
    ZORBridgeSpecification unknown;
    unknown.flags[0] = 7;
    plugin().getSpecification("MicrosoftSqlServerMdsMdcExport", known);
    plugin().getSpecification("no such bridge", unknown);
    EXPECT_FALSE(known.toolName.isEmpty());
    EXPECT_EQ(unknown.toolName, known.toolName);
    EXPECT_EQ(unknown.vendorName, known.vendorName);
    EXPECT_EQ(unknown.toolVersions, known.toolVersions);
    EXPECT_EQ(unknown.toolWebReference, known.toolWebReference);
    EXPECT_EQ(unknown.methodologySummary, known.methodologySummary);
    EXPECT_EQ(unknown.version, known.version);
    EXPECT_EQ(unknown.flags[0], 0) << "what stood in the specification before is gone";
}

TEST(Specification, NamesTheMappingDocument) {
    EXPECT_EQ(plugin().getMappingSpecificationXmlFile().view(), "ZORMicrosoftSqlServerMdsMdcDBMExport");
}

}  // namespace
