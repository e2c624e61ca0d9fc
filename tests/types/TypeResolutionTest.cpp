// The way from a type of the model to a type of the chosen set.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;

class TypeResolution : public ::testing::Test {
  protected:
    void choose(const char* choice) {
        bridge.dtmInit(bridge.erdTypeSet_, ERD, choice, "", "");
        bridge.dtmInit(bridge.dbmTypeSet_, DBM, choice, "", "");
    }
    ZORType* type(const char* dataType, int length = 0, int scale = 0) {
        return builder.addType(dataType, dataType, length, scale);
    }
    std::string nameOf(const ZORType* type) const {
        return TestBridge::getDTMTypeMap(type, bridge.dbmTypeSet_.typeTable)->getTypeName();
    }
    int dbmId(ZORType* type) { return bridge.getDTMTypeID(bridge.dbmTypeSet_, DBM, type); }
    int erdId(ZORType* type) { return bridge.getDTMTypeID(bridge.erdTypeSet_, ERD, type); }
    static int storedId(const ZORType* type, MDCSubjectArea area) {
        const auto* block = static_cast<const int*>(type->getGeneralPointer());
        return block == nullptr ? 0 : block[area];
    }

    ModelBuilder builder;
    TestBridge bridge{builder.model(), MODEL_VIEW_ERD_AND_DBM};
};

TEST_F(TypeResolution, FindsTheRowOfATypeByItsKeyAndSize) {
    const struct {
        const char* choice;
        const char* dataType;
        int length;
        int scale;
        const char* name;
    } rows[] = {
        {"DB2/UDB 5", "SQL_BINARY", 8, 0, "GRAPHIC"},
        {"DB2/UDB 5", "SQL_BINARY", 0, 0, "LONG VARGRAPHIC"},
        {"DB2/UDB 5", "SQL_BINARY", 0, 2, "GRAPHIC"},
        {"Oracle 8.x", "SQL_BINARY", 16, 0, "RAW"},
        {"Oracle 8.x", "SQL_BINARY", 0, 0, "LONG RAW"},
        {"SQL Server 7.x", "SQL_BINARY", 0, 0, "binary"},
        {"SQL Server 7.x", "SQL_BINARY", 8, 0, "binary"},
        {"SQL Server 7.x", "SQL_NUMERIC", 10, 2, "decimal"},
        {"SQL Server 7.x", "AUTOINCREMENT", 0, 0, "int"},
        {"SQL Server 7.x", "character varying", 20, 0, "varchar"},
        {"SQL Server 7.x", "TIMESTAMP(6) WITH TIME ZONE", 0, 0, "datetime"},
        {"XML Datatypes", "SQL_TIME", 0, 0, "time.iso8601.tz"},
        {"Teradata 2.x", "SQL_DATE", 0, 0, "DATE"},
    };
    for (const auto& row : rows) {
        choose(row.choice);
        EXPECT_EQ(nameOf(type(row.dataType, row.length, row.scale)), row.name)
            << row.choice << " " << row.dataType << " " << row.length << " " << row.scale;
    }
}

TEST_F(TypeResolution, AKeyThatBeginsLikeAnotherIsNotTakenForIt) {
    choose("Informix 9.x");
    EXPECT_EQ(nameOf(type("SQL_TIME")), "datetime year to second");
    EXPECT_EQ(nameOf(type("SQL_LONGVARCHAR")), "text");
    EXPECT_EQ(nameOf(type("SQL_LONGVARBINARY")), "byte in table");
    choose("AS/400 4.x");
    EXPECT_EQ(nameOf(type("SQL_TIME")), "TIME");
    EXPECT_EQ(nameOf(type("SQL_TIMESTAMP")), "TIMESTAMP");
}

TEST_F(TypeResolution, ATypeThatIsInNoRowTakesTheFallback) {
    choose("XML Datatypes");
    EXPECT_EQ(nameOf(type("GEOMETRY")), "bin.hex");
    EXPECT_EQ(nameOf(type("")), "bin.hex");
    choose("Oracle 8.x");
    EXPECT_EQ(nameOf(type("no type")), "LONG RAW");
}

TEST_F(TypeResolution, ATypeThatIsInNoRowOfATableWithoutFallbackHasTheEmptyName) {
    choose("Access 97");
    const DTMTypeMap* row = TestBridge::getDTMTypeMap(type("GEOMETRY"), bridge.dbmTypeSet_.typeTable);
    EXPECT_EQ(row->sourceKey, nullptr);
    EXPECT_EQ(row->typeName, nullptr);
    EXPECT_EQ(dbmId(type("GEOMETRY")), dbmId(type("POINT"))) << "one member, as for any other name";
    EXPECT_NE(dbmId(type("GEOMETRY")), dbmId(type("SQL_CHAR")));
}

TEST_F(TypeResolution, FoldsTypesOfOneNameIntoOneMember) {
    choose("Access 97");
    const int numeric = dbmId(type("SQL_NUMERIC"));
    EXPECT_EQ(dbmId(type("SQL_DOUBLE")), numeric);
    EXPECT_NE(dbmId(type("SQL_REAL")), numeric);
    ASSERT_EQ(bridge.dbmTypeSet_.types.size(), 2U);
    EXPECT_STREQ(bridge.dbmTypeSet_.types.getType(0).row->sourceKey, "SQL_NUMERIC")
        << "the row through which the name was reached first";
    EXPECT_EQ(bridge.dbmTypeSet_.types.getType(0).id, numeric);
}

TEST_F(TypeResolution, GivesAnIdentifierFromTheDocumentsCounterOnce) {
    choose("SQL Server 7.x");
    bridge.nextId_ = 7;
    ZORType* integer = type("SQL_INTEGER");
    EXPECT_EQ(dbmId(integer), 7);
    EXPECT_EQ(dbmId(integer), 7);
    EXPECT_EQ(storedId(integer, DBM), 7);
    EXPECT_EQ(dbmId(type("INT")), 7);
    EXPECT_EQ(bridge.nextId_, 8);
}

TEST_F(TypeResolution, TakesTheIdentifierThatATypeHasInTheArea) {
    choose("SQL Server 7.x");
    ZORType* integer = type("SQL_INTEGER");
    bridge.setXMLID(integer, DBM, 99);
    EXPECT_EQ(dbmId(integer), 99);
    EXPECT_EQ(bridge.dbmTypeSet_.types.size(), 0U);
}

TEST_F(TypeResolution, OfTheErdAreaLeavesTheTypesOwnIdentifierToItsDomain) {
    choose("XML Datatypes");
    ZORType* integer = type("SQL_INTEGER");
    bridge.setXMLID(integer, ERD, 50);
    const int id = erdId(integer);
    EXPECT_NE(id, 50);
    EXPECT_EQ(erdId(integer), id);
    EXPECT_EQ(storedId(integer, ERD), 50);
    EXPECT_EQ(bridge.erdTypeSet_.types.size(), 1U);
}

TEST_F(TypeResolution, OfTheErdAreaAttachesNothingToTheType) {
    choose("XML Datatypes");
    ZORType* integer = type("SQL_INTEGER");
    erdId(integer);
    EXPECT_EQ(integer->getGeneralPointer(), nullptr);
}

TEST_F(TypeResolution, TheTwoSetsHaveMembersOfTheirOwn) {
    choose("SQL Server 7.x");
    ZORType* integer = type("SQL_INTEGER");
    EXPECT_NE(erdId(integer), dbmId(integer));
    EXPECT_EQ(bridge.erdTypeSet_.types.size(), 1U);
    EXPECT_EQ(bridge.dbmTypeSet_.types.size(), 1U);
}

TEST_F(TypeResolution, ResolvesTheTypeItselfNotItsBase) {
    choose("SQL Server 7.x");
    ZORAliasType* alias = builder.addAlias("Code", type("SQL_CHAR", 3));
    EXPECT_EQ(nameOf(alias), "binary") << "an alias has no data type of its own";
    EXPECT_EQ(nameOf(alias->getActualType()), "char");
}

TEST_F(TypeResolution, GivesATypeTwoDomainIdentifiersInARow) {
    bridge.nextId_ = 10;
    ZORType* integer = type("SQL_INTEGER");
    EXPECT_EQ(bridge.getERDTypeID(integer, 1), 10);
    EXPECT_EQ(bridge.getERDTypeID(integer, 2), 11);
    EXPECT_EQ(bridge.nextId_, 12) << "the not-null domain's number is reserved at once";
    EXPECT_EQ(bridge.getERDTypeID(type("SQL_CHAR"), 2), 13);
    EXPECT_EQ(bridge.nextId_, 14);
}

TEST_F(TypeResolution, VariantZeroAsksForTheDomainThatIsUsed) {
    const struct {
        const char* description;
        std::vector<int> usedBefore;
        int offset;
    } rows[] = {
        {"no attribute", {}, 0},
        {"optional attributes only", {1, 1}, 0},
        {"mandatory attributes only", {2, 2}, 1},
        {"both, the optional one first", {1, 2}, 0},
        {"both, the mandatory one first", {2, 1}, 0},
    };
    for (const auto& row : rows) {
        ZORType* used = type("SQL_INTEGER");
        const int first = bridge.nextId_;
        for (const int variant : row.usedBefore) {
            bridge.getERDTypeID(used, variant);
        }
        EXPECT_EQ(bridge.getERDTypeID(used, 0), first + row.offset) << row.description;
        EXPECT_EQ(bridge.nextId_, first + 2) << row.description;
    }
}

TEST_F(TypeResolution, ADomainsVariantsAddUp) {
    ZORType* used = type("SQL_INTEGER");
    EXPECT_EQ(bridge.getDomainVariants(used), 0);
    bridge.getERDTypeID(used, 0);
    EXPECT_EQ(bridge.getDomainVariants(used), 0);
    bridge.getERDTypeID(used, 2);
    EXPECT_EQ(bridge.getDomainVariants(used), 2);
    bridge.getERDTypeID(used, 1);
    EXPECT_EQ(bridge.getDomainVariants(used), 3);
}

TEST_F(TypeResolution, SortsTypesIntoNumbersDatesAndTheRest) {
    const struct {
        int category;
        std::vector<const char*> dataTypes;
    } rows[] = {
        {0,
         {"SQL_BOOLEAN", "SQL_INTEGER", "SQL_NUMERIC", "SQL_DOUBLE", "SQL_REAL", "SQL_SMALLINT",
          "SQL_TINYINT", "AUTOINCREMENT", "bigint", "NUMBER(10,2)"}},
        {1,
         {"SQL_BINARY", "SQL_CHAR", "SQL_VARBINARY", "SQL_VARCHAR", "SQL_LONGVARBINARY", "SQL_LONGVARCHAR",
          "text", "bytea", "GEOMETRY", ""}},
        {2, {"SQL_TIMESTAMP", "SQL_TIME", "SQL_DATE", "datetime2(7)", "time without time zone"}},
    };
    for (const auto& row : rows) {
        for (const char* dataType : row.dataTypes) {
            EXPECT_EQ(TestBridge::getDBMTypeCategory(type(dataType)), row.category) << dataType;
        }
    }
}

}  // namespace
