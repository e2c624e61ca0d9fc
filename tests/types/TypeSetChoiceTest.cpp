// What the options of a subject area make of its type set.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "QLT_SQMDC.h"
#include "TestBridge.h"

namespace {

using namespace support;

constexpr const char* XML_DATA = "http://www.w3.org/TR/1998/NOTE-XML-data-0105/";

class TypeSetChoice : public ::testing::Test {
  protected:
    TypeSetChoice() {
        bridge.erdTypeSet_.name = "XML Datatypes";
        bridge.dbmTypeSet_.name = "SQL Server 7.x";
    }
    using TypeSet = ZORMicrosoftSqlServerMdsMdcExportBridge::MDCTypeSet;

    TypeSet& choose(MDCSubjectArea area, const char* choice, const char* name = "",
                    const char* version = "") {
        TypeSet& set = area == ERD ? bridge.erdTypeSet_ : bridge.dbmTypeSet_;
        bridge.dtmInit(set, area, choice, name, version);
        return set;
    }
    /// What the table of the set calls a type.
    static std::string nameOf(const TypeSet& set, const char* dataType) {
        ZORConcreteType type;
        type.setDataType(dataType);
        return TestBridge::getDTMTypeMap(&type, set.typeTable)->getTypeName();
    }

    ModelBuilder builder;
    TestBridge bridge{builder.model()};
};

TEST_F(TypeSetChoice, NoneAndDefaultSwitchTheDataTypesOff) {
    for (const MDCSubjectArea area : {ERD, DBM}) {
        for (const char* choice : {"None", "Default"}) {
            TypeSet& set = choose(area, "Sybase 10");
            ASSERT_NE(set.typeTable, nullptr);
            choose(area, choice);
            EXPECT_EQ(set.typeTable, nullptr) << choice;
        }
    }
    EXPECT_EQ(bridge.log().lines(), "");
}

TEST_F(TypeSetChoice, NoneLeavesNameAndVersionAsTheyWere) {
    const TypeSet& set = choose(DBM, "None", "name", "version");
    EXPECT_EQ(set.name, "SQL Server 7.x");
    EXPECT_EQ(set.version, "");
}

TEST_F(TypeSetChoice, DefaultTakesTheOverridesForNameAndVersion) {
    EXPECT_EQ(choose(DBM, "Default").name, "");
    EXPECT_EQ(choose(DBM, "Default", "name", "version").name, "name");
    EXPECT_EQ(bridge.dbmTypeSet_.version, "version");
    EXPECT_EQ(bridge.dbmTypeSet_.typeTable, nullptr);
}

TEST_F(TypeSetChoice, DefaultReportsTheDatabaseOfTheModelAsNotFoundAndWritesNoSet) {
    builder.addPackage("first");
    builder.addCatalog("Oracle 8.x");
    builder.addCatalog("Sybase 10");
    EXPECT_EQ(choose(DBM, "Default").typeTable, nullptr);
    EXPECT_EQ(bridge.log().lines(),
              "[QLT_SQMDC_E0005] The typeset 'Oracle 8.x' was not found. Using the default 'SQL Server 7.x' "
              "instead\n");
    EXPECT_EQ(bridge.log().events()[0].getSeverity(), ZORSeverity::ERROR);
}

TEST_F(TypeSetChoice, DefaultSaysNothingOfACatalogWithoutADatabaseType) {
    builder.addCatalog("");
    builder.addCatalog("Sybase 10");
    choose(DBM, "Default");
    EXPECT_EQ(bridge.log().lines(), "");
}

TEST_F(TypeSetChoice, DefaultOfTheErdViewDoesNotLookAtTheDatabase) {
    builder.addCatalog("Oracle 8.x");
    EXPECT_EQ(choose(ERD, "Default").typeTable, nullptr);
    EXPECT_EQ(bridge.log().lines(), "");
}

TEST_F(TypeSetChoice, EveryOtherChoiceTakesItsOwnDescriptor) {
    const ZORBridgeOptionEnumerationLiteral& choices = QLT_SQMDC::BP_ERD_TYPESET_ENUM;
    for (std::size_t i = 2; i < choices.size(); ++i) {
        const char* choice = choices[i].getText().c_str();
        for (const MDCSubjectArea area : {ERD, DBM}) {
            const TypeSet& set = choose(area, choice);
            EXPECT_EQ(set.typeTable, DTM_TYPE_SET_DESCRIPTORS[i].typeTable) << choice;
            EXPECT_EQ(set.name, DTM_TYPE_SET_DESCRIPTORS[i].databaseName) << choice;
            EXPECT_EQ(set.version, DTM_TYPE_SET_DESCRIPTORS[i].version) << choice;
        }
    }
    EXPECT_EQ(bridge.log().lines(), "");
}

TEST_F(TypeSetChoice, GivesNameVersionAndTable) {
    const struct {
        const char* choice;
        const char* name;
        const char* version;
        const char* nameOfVarchar;
    } rows[] = {
        {"SQLBase 6.x", "SQLBase", "6.x", "VARCHAR"},
        {"SQL Server 7.x", "Microsoft SQL Server", "7.x", "varchar"},
        {"Oracle 7.3", "Oracle", "7.3", "VARCHAR2"},
        {"XML Datatypes", XML_DATA, "1998/01/05", "string"},
        {"Clipper", "Clipper", "", "Character"},
        {"FoxPro", "FoxPro", "", "Character"},
        {"InterBase", "InterBase", "", "Text"},
    };
    for (const auto& row : rows) {
        const TypeSet& set = choose(DBM, row.choice);
        EXPECT_EQ(set.name, row.name) << row.choice;
        EXPECT_EQ(set.version, row.version) << row.choice;
        EXPECT_EQ(nameOf(set, "SQL_VARCHAR"), row.nameOfVarchar) << row.choice;
    }
}

TEST_F(TypeSetChoice, AnOverrideChangesOnlyWhatIsWritten) {
    const DTMTypeMap* const table = choose(ERD, "XML Datatypes").typeTable;
    const TypeSet& set = choose(ERD, "XML Datatypes", "X", "2");
    EXPECT_EQ(set.name, "X");
    EXPECT_EQ(set.version, "2");
    EXPECT_EQ(set.typeTable, table);
    choose(ERD, "XML Datatypes", "X", "");
    EXPECT_EQ(set.version, "1998/01/05");
    choose(ERD, "XML Datatypes", "", "2");
    EXPECT_EQ(set.name, XML_DATA);
}

TEST_F(TypeSetChoice, AValueThatIsNoChoiceLeavesNoSetAfterAWarning) {
    choose(DBM, "Sybase 10");
    bridge.dbmTypeSet_.name = "SQL Server 7.x";
    for (const char* choice : {"Sybase", "sybase 10", "Sybase 10 ", "FoxPro 2.5", ""}) {
        bridge.log().clear();
        EXPECT_EQ(choose(DBM, choice, "name", "version").typeTable, nullptr) << choice;
        EXPECT_EQ(bridge.log().lines(), "[QLT_SQMDC_E0005] The typeset '" + std::string(choice) +
                                            "' was not found. Using the default 'SQL Server 7.x' instead\n");
        EXPECT_EQ(bridge.dbmTypeSet_.name, "SQL Server 7.x") << choice;
    }
    bridge.log().clear();
    choose(ERD, "no such set");
    EXPECT_EQ(bridge.log().lines(),
              "[QLT_SQMDC_E0005] The typeset 'no such set' was not found. Using the default 'XML Datatypes' "
              "instead\n");
}

}  // namespace
