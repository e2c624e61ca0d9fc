// The type tables and the descriptors of the type sets.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "DTMTypes.h"
#include "QLT_SQMDC.h"

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

constexpr std::size_t FIRST_CONVENTION = 2;

const char* const KEYS[] = {
    "SQL_BINARY",      "SQL_BOOLEAN",   "SQL_CHAR",    "SQL_INTEGER",   "SQL_NUMERIC",  "SQL_DOUBLE",
    "SQL_REAL",        "SQL_SMALLINT",  "SQL_TINYINT", "SQL_VARBINARY", "SQL_VARCHAR",  "SQL_LONGVARBINARY",
    "SQL_LONGVARCHAR", "SQL_TIMESTAMP", "SQL_TIME",    "SQL_DATE",      "AUTOINCREMENT"};

const DTMTypeSetDescriptor& descriptorOf(const std::string& choice) {
    const ZORBridgeOptionEnumerationLiteral& choices = QLT_SQMDC::BP_DBM_TYPESET_ENUM;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i].getText() == choice.c_str()) {
            return DTM_TYPE_SET_DESCRIPTORS[i];
        }
    }
    throw std::invalid_argument(choice);
}

std::set<const DTMTypeMap*> allTables() {
    std::set<const DTMTypeMap*> tables;
    for (std::size_t i = FIRST_CONVENTION; i < QLT_SQMDC::TYPESET_CHOICES; ++i) {
        tables.insert(DTM_TYPE_SET_DESCRIPTORS[i].typeTable);
    }
    return tables;
}

/// The names of a table in the order of its rows, those of one key with commas between them.
std::string describe(const DTMTypeMap* table) {
    std::string text;
    const DTMTypeMap* row = table;
    for (; row->sourceKey != nullptr; ++row) {
        const bool first = row == table;
        const bool sameKey = !first && std::string(row->sourceKey) == row[-1].sourceKey;
        text.append(first ? "" : sameKey ? ", " : "; ").append(row->typeName);
    }
    return text.append("; ").append(row->getTypeName());
}

TEST(TypeTables, AreNineteen) {
    EXPECT_EQ(allTables().size(), 19U);
}

TEST(TypeTables, HaveTheKeysInTheirOrderAndTellOnlySomeBinariesApartBySize) {
    for (const DTMTypeMap* table : allTables()) {
        std::vector<std::string> keys;
        const DTMTypeMap* row = table;
        for (; row->sourceKey != nullptr; ++row) {
            if (row->sizeSelector == 1) {
                ASSERT_FALSE(keys.empty());
                EXPECT_EQ(keys.back(), row->sourceKey) << "the sized row follows the unsized one";
                EXPECT_EQ(row[-1].sizeSelector, 0);
                continue;
            }
            EXPECT_EQ(row->sizeSelector, row[1].sizeSelector == 1 ? 0 : -1) << row->sourceKey;
            EXPECT_NE(row->typeName, nullptr) << row->sourceKey;
            keys.emplace_back(row->sourceKey);
        }
        EXPECT_THAT(keys, ElementsAreArray(KEYS));
        EXPECT_EQ(row->sizeSelector, -1);
    }
}

TEST(TypeTables, GiveTheNamesOfTheirConventions) {
    // In the order of the keys; the last name is the fallback. "unsized, sized" where a key has two rows.
    const struct {
        const char* choice;
        const char* names;
    } rows[] = {
        {"Access 97",
         "OLE Object; Yes/No; Text; Long Integer; Double; Double; Single; Integer; Byte; OLE Object; Text; "
         "OLE Object; Memo; Date/Time; Date/Time; Date/Time; Long Integer; "},
        {"AS/400 4.x",
         "VARGRAPHIC; SMALLINT; CHAR; INTEGER; DECIMAL; DOUBLE PRECISION; REAL; SMALLINT; SMALLINT; "
         "VARGRAPHIC; VARCHAR; VARGRAPHIC; VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; VARGRAPHIC"},
        {"Clipper",
         "Memo; Logical; Character; Numeric; Numeric; Numeric; Numeric; Numeric; Numeric; Memo; Character; "
         "Memo; Memo; date; date; date; Numeric; Memo"},
        {"DB2/UDB 5",
         "LONG VARGRAPHIC, GRAPHIC; SMALLINT; CHAR; INTEGER; DECIMAL; DOUBLE; DOUBLE; INTEGER; SMALLINT; "
         "VARGRAPHIC; VARCHAR; LONG VARGRAPHIC; LONG VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; LONG "
         "VARGRAPHIC"},
        {"DB2/MVS 4",
         "LONG VARGRAPHIC, GRAPHIC; SMALLINT; CHAR; INTEGER; DECIMAL; FLOAT; REAL; SMALLINT; SMALLINT; "
         "VARGRAPHIC; VARCHAR; LONG VARGRAPHIC; LONG VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; LONG "
         "VARGRAPHIC"},
        {"DBase 3",
         "Memo; Logical; Character; Numeric; Numeric; Numeric; Numeric; Numeric; Numeric; Memo; Character; "
         "Memo; Memo; date; date; date; Numeric; Memo"},
        {"DBase 4",
         "Memo; Logical; Character; Numeric; Numeric; Numeric; Float; Numeric; Numeric; Memo; Character; "
         "Memo; Memo; date; date; date; Numeric; Memo"},
        {"FoxPro",
         "Memo; Logical; Character; Numeric; Numeric; Numeric; Float; Numeric; Numeric; Memo; Character; "
         "Memo; Memo; date; date; date; Numeric; Memo"},
        {"Informix 9.x",
         "byte in table; smallint; char; integer; dec; double precision; real; smallint; byte; byte in "
         "table; varchar; byte in table; text; datetime year to second; datetime year to second; date; "
         "integer; byte in table"},
        {"Ingres 2.x",
         "text; integer1; char; integer; float; float8; float4; integer1; integer1; text; varchar; text; "
         "varchar; date; date; date; integer; text"},
        {"Oracle 8.x",
         "LONG RAW, RAW; SMALLINT; CHAR; INTEGER; NUMBER; FLOAT; FLOAT; SMALLINT; SMALLINT; LONG RAW; "
         "VARCHAR2; LONG RAW; LONG VARCHAR; DATE; DATE; DATE; INTEGER; LONG RAW"},
        {"Rdb 7",
         "LIST OF BYTE VARYING; TINYINT; CHAR; INTEGER; DECIMAL; DOUBLE PRECISION; REAL; INTEGER; TINYINT; "
         "LIST OF BYTE VARYING; VARCHAR; LIST OF BYTE VARYING; LONG VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; "
         "LIST OF BYTE VARYING"},
        {"Red Brick 5.x",
         "CHAR; TINYINT; CHAR; INTEGER; DECIMAL; DOUBLE PRECISION; REAL; INTEGER; SMALLINT; CHARACTER; CHAR; "
         "CHAR; CHAR; TIMESTAMP; TIME; DATE; INTEGER; CHAR"},
        {"SQL Anywhere 5",
         "LONG BINARY, BINARY; BIT; CHAR; INTEGER; DECIMAL; DOUBLE; REAL; SMALLINT; SMALLINT; BINARY; "
         "VARCHAR; LONG BINARY; LONG VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; BINARY"},
        {"SQLBase 6.x",
         "LONG VARCHAR, VARCHAR; SMALLINT; CHAR; INTEGER; DECIMAL; DOUBLE PRECISION; FLOAT; SMALLINT; "
         "SMALLINT; LONG VARCHAR; VARCHAR; LONG VARCHAR; LONG VARCHAR; TIMESTAMP; TIME; DATE; INTEGER; LONG "
         "VARCHAR"},
        {"SQL Server 7.x",
         "binary; bit; char; int; decimal; float; real; smallint; tinyint; varbinary; varchar; image; text; "
         "datetime; datetime; datetime; int; binary"},
        {"Sybase 11.x",
         "binary; bit; char; int; decimal; float; real; smallint; tinyint; varbinary; varchar; image; text; "
         "timestamp; datetime; datetime; int; binary"},
        {"Teradata 2.x",
         "BYTE; BYTEINT; CHAR; INTEGER; DECIMAL; FLOAT; FLOAT; BYTEINT; BYTEINT; VARBYTE; VARCHAR; VARBYTE; "
         "LONG VARCHAR; DATE; DATE; DATE; INTEGER; BYTE"},
        {"XML Datatypes",
         "bin.hex; boolean; char; int; number; r8; r4; i2; i1; bin.hex; string; bin.hex; string; "
         "dateTime.iso8601tz; time.iso8601.tz; date.iso8601; int; bin.hex"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(describe(descriptorOf(row.choice).typeTable), row.names) << row.choice;
    }
    EXPECT_EQ(std::size(rows), allTables().size());
}

TEST(TypeTables, OnlyTheTableOfAccessHasNoFallback) {
    for (const DTMTypeMap* table : allTables()) {
        const DTMTypeMap* row = table;
        while (row->sourceKey != nullptr) {
            ++row;
        }
        EXPECT_EQ(row->typeName == nullptr, table == descriptorOf("Access 97").typeTable);
        EXPECT_NE(row->getTypeName(), nullptr);
    }
}

TEST(TypeTables, TheCategoryTableGivesADigitForEveryKeyThatIsNoTextAndNoBinary) {
    std::vector<std::string> rows;
    const DTMTypeMap* row = DTM_CATEGORY_TABLE;
    for (; row->sourceKey != nullptr; ++row) {
        rows.push_back(std::string(row->sourceKey) + " " + row->typeName);
        EXPECT_EQ(row->sizeSelector, -1) << row->sourceKey;
    }
    EXPECT_THAT(rows, ElementsAre("SQL_BOOLEAN 0", "SQL_INTEGER 0", "SQL_NUMERIC 0", "SQL_DOUBLE 0",
                                  "SQL_REAL 0", "SQL_SMALLINT 0", "SQL_TINYINT 0", "AUTOINCREMENT 0",
                                  "SQL_TIMESTAMP 2", "SQL_TIME 2", "SQL_DATE 2"));
    EXPECT_STREQ(row->typeName, "1");
    EXPECT_EQ(row->sizeSelector, -1);
}

TEST(TypeSetDescriptors, OfNoneOfDefaultAndOfTheEndAreNull) {
    for (const std::size_t index : {std::size_t{0}, std::size_t{1}, QLT_SQMDC::TYPESET_CHOICES}) {
        const DTMTypeSetDescriptor& descriptor = DTM_TYPE_SET_DESCRIPTORS[index];
        EXPECT_EQ(descriptor.databaseName, nullptr) << index;
        EXPECT_EQ(descriptor.version, nullptr) << index;
        EXPECT_EQ(descriptor.label, nullptr) << index;
        EXPECT_EQ(descriptor.typeTable, nullptr) << index;
    }
}

TEST(TypeSetDescriptors, AreParallelToTheChoices) {
    // A choice is called after its database and version, but for these.
    const std::string xmlData = "http://www.w3.org/TR/1998/NOTE-XML-data-0105/";
    for (std::size_t i = FIRST_CONVENTION; i < QLT_SQMDC::TYPESET_CHOICES; ++i) {
        const DTMTypeSetDescriptor& descriptor = DTM_TYPE_SET_DESCRIPTORS[i];
        std::string choice = descriptor.databaseName;
        if (choice == "Microsoft SQL Server") {
            choice = "SQL Server";
        }
        choice = choice == xmlData ? "XML Datatypes"
                                   : choice + (*descriptor.version == 0 ? "" : " ") + descriptor.version;
        EXPECT_EQ(QLT_SQMDC::BP_DBM_TYPESET_ENUM[i].getText(), choice.c_str()) << i;
        EXPECT_NE(descriptor.typeTable, nullptr) << choice;
        EXPECT_EQ(descriptor.label == nullptr, choice == "XML Datatypes") << choice;
    }
}

TEST(TypeSetDescriptors, OfOneProductShareATable) {
    const struct {
        const char* choice;
        const char* sameTableAs;
    } rows[] = {
        {"Access 1.1", "Access 97"},        {"InterBase", "Access 97"},
        {"Paradox 5.x", "Access 97"},       {"Progress 7.0", "Access 97"},
        {"AS/400 2", "AS/400 4.x"},         {"DB2/390 5", "DB2/UDB 5"},
        {"DB2/CS 2", "DB2/UDB 5"},          {"DB2/MVS 2", "DB2/MVS 4"},
        {"Informix 4.x", "Informix 9.x"},   {"Ingres 6.4", "Ingres 2.x"},
        {"Oracle 7.0", "Oracle 8.x"},       {"Rdb 4", "Rdb 7"},
        {"Red Brick 3.0", "Red Brick 5.x"}, {"Watcom 4", "SQL Anywhere 5"},
        {"SQLBase 5.0", "SQLBase 6.x"},     {"SQL Server 4.x", "SQL Server 7.x"},
        {"Sybase 4.2", "Sybase 11.x"},      {"Teradata 1", "Teradata 2.x"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(descriptorOf(row.choice).typeTable, descriptorOf(row.sameTableAs).typeTable) << row.choice;
    }
}

TEST(TypeSetDescriptors, KeepTheirLabels) {
    const struct {
        const char* choice;
        const char* label;
    } rows[] = {
        {"AS/400 4.x", "AS/400 4"},
        {"DBase 3", "dBASE III"},
        {"DBase 4", "dBASE IV"},
        {"FoxPro", "FoxPro 2.5"},
        {"Informix 7.x", "INFORMIX 7.x"},
        {"Oracle 8.x", "ORACLE 8.x"},
        {"Progress 8.x", "PROGRESS 8.x"},
        {"Rdb 6", "Rdb 6.0"},
        {"SQL Anywhere 5", "SYBASE SQL Anywhere"},
        {"SQLBase 6.x", "SQLBase 5.0"},
        {"Sybase 10", "SYBASE SQL 10.x"},
        {"Watcom 3", "WATCOM 3"},
    };
    for (const auto& row : rows) {
        EXPECT_STREQ(descriptorOf(row.choice).label, row.label) << row.choice;
    }
}

}  // namespace
