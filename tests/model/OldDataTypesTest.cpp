// The old-style keys of the names that databases give their data types.

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "ZOR.h"

namespace {

const char* const KEYS[] = {
    "SQL_BINARY",      "SQL_BOOLEAN",   "SQL_CHAR",    "SQL_INTEGER",   "SQL_NUMERIC",  "SQL_DOUBLE",
    "SQL_REAL",        "SQL_SMALLINT",  "SQL_TINYINT", "SQL_VARBINARY", "SQL_VARCHAR",  "SQL_LONGVARBINARY",
    "SQL_LONGVARCHAR", "SQL_TIMESTAMP", "SQL_TIME",    "SQL_DATE",      "AUTOINCREMENT"};

TEST(OldDataTypes, KeysAreTheirOwn) {
    for (const char* key : KEYS) {
        EXPECT_EQ(getOldDataType(key), key);
    }
}

TEST(OldDataTypes, KeysCountOnlyWhenWrittenExactlySo) {
    for (const char* name :
         {"sql_integer", " SQL_INTEGER", "SQL_INTEGER ", "SQL_INTEGER(4)", "Sql_Varchar", "SQL_VARCHAR(MAX)",
          "SQL_INTEGER UNSIGNED", "autoincrement", "AutoIncrement", " AUTOINCREMENT", "AUTOINCREMENT(1)",
          "INTEGER AUTOINCREMENT", "SQL_BIGINT", "SQL_"}) {
        EXPECT_EQ(getOldDataType(name), "") << name;
    }
    EXPECT_EQ(getOldDataType(ZORString("SQL_INTEGER\0", 12)), "") << "a key and a NUL";
}

struct SpellingRow {
    const char* key;
    std::vector<const char*> spellings;
};

void expectKeys(const std::vector<SpellingRow>& rows) {
    for (const SpellingRow& row : rows) {
        for (const char* spelling : row.spellings) {
            EXPECT_EQ(getOldDataType(spelling), row.key) << spelling;
        }
    }
}

TEST(OldDataTypes, KnowTheStandardsNames) {
    expectKeys({
        {"SQL_CHAR", {"CHARACTER", "CHAR", "NATIONAL CHARACTER", "NCHAR"}},
        {"SQL_VARCHAR",
         {"CHARACTER VARYING", "CHAR VARYING", "VARCHAR", "NATIONAL CHARACTER VARYING", "NCHAR VARYING",
          "INTERVAL YEAR TO MONTH", "INTERVAL DAY TO SECOND"}},
        {"SQL_LONGVARCHAR", {"CHARACTER LARGE OBJECT", "CLOB", "XML"}},
        {"SQL_BINARY", {"BINARY"}},
        {"SQL_VARBINARY", {"BINARY VARYING", "VARBINARY", "BIT VARYING"}},
        {"SQL_LONGVARBINARY", {"BINARY LARGE OBJECT", "BLOB"}},
        {"SQL_NUMERIC", {"NUMERIC", "DECIMAL", "DEC", "BIGINT", "DECFLOAT"}},
        {"SQL_INTEGER", {"INTEGER", "INT"}},
        {"SQL_SMALLINT", {"SMALLINT"}},
        {"SQL_DOUBLE", {"FLOAT", "DOUBLE PRECISION"}},
        {"SQL_REAL", {"REAL"}},
        {"SQL_BOOLEAN", {"BOOLEAN"}},
        {"SQL_DATE", {"DATE"}},
        {"SQL_TIME", {"TIME", "TIME WITH TIME ZONE", "TIME WITHOUT TIME ZONE"}},
        {"SQL_TIMESTAMP", {"TIMESTAMP", "TIMESTAMP WITH TIME ZONE", "TIMESTAMP WITHOUT TIME ZONE"}},
    });
}

TEST(OldDataTypes, KnowSqliteNames) {
    expectKeys({
        {"SQL_SMALLINT", {"INT2"}},
        {"SQL_NUMERIC", {"INT8", "UNSIGNED BIG INT"}},
        {"SQL_VARCHAR", {"VARYING CHARACTER(255)"}},
        {"SQL_CHAR", {"NATIVE CHARACTER(70)"}},
        {"SQL_LONGVARCHAR", {"TEXT"}},
        {"SQL_DOUBLE", {"DOUBLE"}},
        {"SQL_TIMESTAMP", {"DATETIME"}},
    });
}

TEST(OldDataTypes, KnowPostgresqlNames) {
    expectKeys({
        {"SQL_SMALLINT", {"int2", "smallserial", "serial2"}},
        {"SQL_INTEGER", {"int4", "serial", "serial4", "oid"}},
        {"SQL_NUMERIC", {"int8", "bigserial", "serial8", "money"}},
        {"SQL_REAL", {"float4"}},
        {"SQL_DOUBLE", {"float8"}},
        {"SQL_CHAR", {"bpchar", "uuid"}},
        {"SQL_VARCHAR",
         {"name", "inet", "cidr", "macaddr", "macaddr8", "interval", "interval day to second(3)"}},
        {"SQL_LONGVARCHAR", {"text", "citext", "json", "jsonb", "xml"}},
        {"SQL_LONGVARBINARY", {"bytea"}},
        {"SQL_VARBINARY", {"bit varying(8)", "varbit"}},
        {"SQL_BOOLEAN", {"bool", "boolean"}},
        {"SQL_TIMESTAMP", {"timestamptz", "timestamp(3) without time zone"}},
        {"SQL_TIME", {"timetz"}},
    });
}

TEST(OldDataTypes, KnowMysqlNames) {
    expectKeys({
        {"SQL_TINYINT", {"tinyint", "tinyint(1)", "int1", "tinyint(3) unsigned zerofill"}},
        {"SQL_SMALLINT", {"smallint(5) unsigned", "year", "year(4)"}},
        {"SQL_INTEGER", {"mediumint", "middleint", "int3", "int(10) unsigned", "int(11) auto_increment"}},
        {"SQL_NUMERIC", {"bigint(20) unsigned", "fixed(10,2)", "decimal(10, 2) unsigned"}},
        {"SQL_DOUBLE", {"double(8,2) unsigned"}},
        {"SQL_LONGVARCHAR", {"tinytext", "mediumtext", "longtext", "json"}},
        {"SQL_LONGVARBINARY", {"tinyblob", "mediumblob", "longblob", "long varbinary"}},
        {"SQL_VARCHAR", {"enum('a','b')", "set('x','y')", "varchar(40) binary", "enum('(',')','it''s)')"}},
        {"SQL_BINARY", {"char byte", "binary(16)"}},
        {"SQL_CHAR", {"char(3) binary"}},
    });
}

TEST(OldDataTypes, KnowSqlServerNames) {
    expectKeys({
        {"SQL_BOOLEAN", {"bit"}},
        {"SQL_TINYINT", {"tinyint"}},
        {"SQL_INTEGER", {"int identity", "int identity(1,1)"}},
        {"SQL_NUMERIC", {"money", "smallmoney", "numeric() identity"}},
        {"SQL_CHAR", {"nchar(10)", "uniqueidentifier"}},
        {"SQL_VARCHAR", {"nvarchar(50)", "sysname"}},
        {"SQL_LONGVARCHAR", {"varchar(max)", "nvarchar(MAX)", "ntext", "xml"}},
        {"SQL_LONGVARBINARY", {"varbinary(max)", "image"}},
        {"SQL_BINARY", {"rowversion"}},
        {"SQL_TIMESTAMP", {"datetime", "datetime2", "datetime2(7)", "smalldatetime", "datetimeoffset(7)"}},
    });
}

TEST(OldDataTypes, KnowOracleNames) {
    expectKeys({
        {"SQL_VARCHAR",
         {"VARCHAR2(20)", "VARCHAR2(20 CHAR)", "NVARCHAR2(20)", "ROWID", "UROWID",
          "INTERVAL DAY(2) TO SECOND(6)", "INTERVAL YEAR(2) TO MONTH"}},
        {"SQL_NUMERIC", {"NUMBER", "NUMBER(10)", "NUMBER(*,0)", "NUMBER(10, 2)"}},
        {"SQL_REAL", {"BINARY_FLOAT"}},
        {"SQL_DOUBLE", {"BINARY_DOUBLE", "FLOAT(126)"}},
        {"SQL_INTEGER", {"PLS_INTEGER", "BINARY_INTEGER"}},
        {"SQL_BINARY", {"RAW(16)"}},
        {"SQL_LONGVARBINARY", {"LONG RAW", "BFILE"}},
        {"SQL_LONGVARCHAR", {"LONG", "CLOB", "NCLOB", "XMLTYPE"}},
        {"SQL_TIMESTAMP",
         {"TIMESTAMP(6)", "TIMESTAMP(6) WITH TIME ZONE", "TIMESTAMP(6) WITH LOCAL TIME ZONE"}},
    });
}

TEST(OldDataTypes, KnowDb2Names) {
    expectKeys({
        {"SQL_CHAR", {"GRAPHIC(5)"}},
        {"SQL_VARCHAR", {"VARGRAPHIC(5)"}},
        {"SQL_LONGVARCHAR", {"LONG VARCHAR", "LONG VARGRAPHIC", "DBCLOB(1M)"}},
        {"SQL_BINARY", {"CHAR(8) FOR BIT DATA", "CHAR () FOR BIT DATA"}},
        {"SQL_VARBINARY", {"VARCHAR(8) FOR BIT DATA", "CHARACTER VARYING(8) FOR BIT DATA"}},
        {"SQL_LONGVARBINARY", {"LONG VARCHAR FOR BIT DATA", "BLOB(1M)"}},
        {"SQL_NUMERIC", {"DECFLOAT(34)"}},
    });
}

TEST(OldDataTypes, PassOverLetterCaseSizesAndRepeatedBlanks) {
    expectKeys({
        {"SQL_DOUBLE",
         {"double  precision", "Double Precision", "DOUBLE PRECISION(5)", " double\tprecision ",
          "double\nprecision ( 5 )", "DOUBLE(5)PRECISION"}},
        {"SQL_CHAR", {"CHAR (10)", "char(10)", " Char ( 10 ) "}},
        {"SQL_INTEGER", {"INT(11)UNSIGNED", "unsigned int", "Signed Integer"}},
        {"SQL_NUMERIC", {"NUMERIC((10),(2))", "dec ( 5 , 2 )"}},
        {"SQL_LONGVARCHAR", {"VARCHAR ( max )", "character varying(MAX)"}},
    });
}

TEST(OldDataTypes, HaveNoKeyForWhatTheyDoNotKnow) {
    for (const char* name : {"",
                             " ",
                             "(",
                             ")",
                             "()",
                             "(10)",
                             "(MAX)",
                             "VARCHAR(10",
                             "VARCHAR)",
                             "VARCHAR(10))",
                             "ENUM('a",
                             "ENUM('a)",
                             "integer[]",
                             "integer[3]",
                             "text[][]",
                             "integer array",
                             "_int4",
                             "GEOMETRY",
                             "POINT",
                             "SQL_VARIANT",
                             "HIERARCHYID",
                             "tsvector",
                             "int4range",
                             "MAX",
                             "UNSIGNED",
                             "INTEGER INTEGER",
                             "INTEGER4",
                             "VAR CHAR",
                             "TIMESTAMPWITH TIME ZONE",
                             "TEXT(MAX)",
                             "\xC3\x84",
                             "INT\xC3\x84",
                             "NULL",
                             "ANY",
                             "public.citext"}) {
        EXPECT_EQ(getOldDataType(name), "") << name;
    }
}

TEST(OldDataTypes, BearNamesOfAnyLength) {
    const std::string million(1000000, 'X');
    const std::string blanks(1000000, ' ');
    EXPECT_EQ(getOldDataType(million.c_str()), "");
    EXPECT_EQ(getOldDataType(("VARCHAR " + million).c_str()), "");
    EXPECT_EQ(getOldDataType((blanks + "VARCHAR" + blanks).c_str()), "SQL_VARCHAR");
    EXPECT_EQ(getOldDataType(("VARCHAR(" + million + ")").c_str()), "SQL_VARCHAR");
    EXPECT_EQ(getOldDataType(("VARCHAR" + std::string(1000000, '(')).c_str()), "");
    std::string words = "INTEGER";
    for (int i = 0; i < 100000; ++i) {
        words += " UNSIGNED";
    }
    EXPECT_EQ(getOldDataType(words.c_str()), "SQL_INTEGER");
    // Around the length up to which names are looked at.
    for (std::size_t length = 40; length < 60; ++length) {
        EXPECT_EQ(getOldDataType((std::string(length, 'X') + "(MAX)").c_str()), "") << length;
        EXPECT_EQ(getOldDataType((std::string(length, 'X') + " INT").c_str()), "") << length;
    }
}

TEST(OldDataTypes, AreTheSameTextForEveryCall) {
    EXPECT_EQ(&getOldDataType("int"), &getOldDataType("INTEGER(4)"));
    EXPECT_EQ(&getOldDataType("no type"), &getOldDataType(""));
}

TEST(OldDataTypes, MayBeAskedForFromSeveralThreads) {
    std::vector<std::thread> threads;
    std::vector<int> wrong(4, 0);
    for (int& count : wrong) {
        threads.emplace_back([&count] {
            for (int i = 0; i < 1000; ++i) {
                count += getOldDataType("nvarchar(20)") == "SQL_VARCHAR" ? 0 : 1;
                count += getOldDataType("bigint unsigned") == "SQL_NUMERIC" ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

}  // namespace
