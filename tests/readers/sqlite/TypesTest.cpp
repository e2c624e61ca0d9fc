#include <gtest/gtest.h>

#include "SqliteTestSupport.h"
#include "sqlite/TypeTable.h"

namespace {

struct TypeCase {
    const char* declared;
    const char* name;
    const char* dataType;
    const char* key;
    int length = 0;
    int scale = 0;
};

void PrintTo(const TypeCase& typeCase, std::ostream* out) {
    *out << typeCase.declared;
}

const TypeCase CASES[] = {
    {"INTEGER", "INTEGER", "INTEGER", "SQL_INTEGER"},
    {"BIGINT", "BIGINT", "BIGINT", "SQL_NUMERIC"},
    {"varchar(40)", "varchar(40)", "varchar", "SQL_VARCHAR", 40},
    {"NATIVE CHARACTER ( 70 )", "NATIVE CHARACTER(70)", "NATIVE CHARACTER", "SQL_CHAR", 70},
    {"DECIMAL(10,2)", "DECIMAL(10,2)", "DECIMAL", "SQL_NUMERIC", 10, 2},
    {"NUMERIC(+8, +3)", "NUMERIC(+8,+3)", "NUMERIC", "SQL_NUMERIC", 8, 3},
    {"NUMERIC(-8,-3)", "NUMERIC(-8,-3)", "NUMERIC", "SQL_NUMERIC"},
    {"VARCHAR(99999999999)", "VARCHAR(99999999999)", "VARCHAR", "SQL_VARCHAR"},
    {"DOUBLE PRECISION", "DOUBLE PRECISION", "DOUBLE PRECISION", "SQL_DOUBLE"},
    {"BOOLEAN", "BOOLEAN", "BOOLEAN", "SQL_BOOLEAN"},
    {"DATETIME", "DATETIME", "DATETIME", "SQL_TIMESTAMP"},
    {"TEXT", "TEXT", "TEXT", "SQL_LONGVARCHAR"},
    {"", "BLOB", "SQL_LONGVARBINARY", "SQL_LONGVARBINARY"},
    {"POINT", "POINT", "SQL_INTEGER", "SQL_INTEGER"},  // it holds the letters INT
    {"RICHTEXT(9)", "RICHTEXT(9)", "SQL_LONGVARCHAR", "SQL_LONGVARCHAR", 9},
    {"my blob", "my blob", "SQL_LONGVARBINARY", "SQL_LONGVARBINARY"},
    {"FLOATING", "FLOATING", "SQL_DOUBLE", "SQL_DOUBLE"},
    {"STRING", "STRING", "SQL_NUMERIC", "SQL_NUMERIC"},
    {"\"AUTOINCREMENT\"", "AUTOINCREMENT", "SQL_NUMERIC", "SQL_NUMERIC"},
};

class SqliteTypes : public testing::TestWithParam<TypeCase> {};

TEST_P(SqliteTypes, AreNamedAsDeclaredAndKnownToExports) {
    const TypeCase& expected = GetParam();
    const support::Reading reading =
        support::readDatabase(std::string("CREATE TABLE t(a ") + expected.declared + ")");
    ASSERT_EQ(reading.model->getTypes().size(), 1U);
    const ZORType& type = *reading.model->getTypes()[0];
    EXPECT_EQ(type.getName(), expected.name);
    EXPECT_EQ(type.getDataType(), expected.dataType);
    EXPECT_EQ(getOldDataType(type.getDataType()), expected.key);
    EXPECT_EQ(type.getLength(), expected.length);
    EXPECT_EQ(type.getScale(), expected.scale);
    EXPECT_EQ(type.getElementType(), ZOR_CONCRETE_TYPE);
}

INSTANTIATE_TEST_SUITE_P(Declared, SqliteTypes, testing::ValuesIn(CASES));

TEST(SqliteTypes, EqualDeclarationsAreOneObject) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(a VARCHAR(9), b varchar( 9 ), c VARCHAR(8)); CREATE TABLE u(a INTEGER PRIMARY KEY "
        "AUTOINCREMENT, b VarChar(9));"
        "CREATE TABLE v(a INTEGER PRIMARY KEY AUTOINCREMENT, b INTEGER)");
    std::vector<std::string> names;
    for (const ZORType* type : reading.model->getTypes()) {
        names.emplace_back(type->getName().view());
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"VARCHAR(9)", "VARCHAR(8)", "INTEGER AUTOINCREMENT", "INTEGER"}));
    EXPECT_EQ(reading.model->getTypes()[0]->getTypedObjects().size(), 3U);
}

TEST(SqliteTypes, AutoincrementIsTheDataTypeOfItsColumns) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(id INTEGER NOT NULL, n INT, CONSTRAINT pk PRIMARY KEY (id AUTOINCREMENT))");
    EXPECT_EQ(reading.model->getTypes()[0]->getDataType(), "AUTOINCREMENT");
    EXPECT_EQ(reading.model->getTypes()[1]->getDataType(), "INT");
}

}  // namespace
