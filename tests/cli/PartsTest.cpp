// The parts of the program that need no process of their own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "BridgeLog.h"
#include "CommandTable.h"
#include "DefaultTypeSet.h"
#include "Failure.h"
#include "Json.h"
#include "ModelBuilder.h"
#include "ModelCounts.h"
#include "ModelName.h"
#include "Text.h"

namespace cli {
namespace {

TEST(Printable, MakesAnyTextOneHarmlessLine) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", ""},
        {"plain", "plain"},
        {"Größe 表 😀", "Größe 表 😀"},
        {"a\nb\tc\rd", "a\\nb\\tc\\rd"},
        {"\x1b[31mred", "\\u001b[31mred"},
        {std::string("a\0b", 3), "a\\u0000b"},
        {"\x7f", "\\u007f"},
        {"\xc2\x9b"
         "2J",
         "\\u009b2J"},
        {"\xff", "\\xff"},
        {"\xc3", "\\xc3"},
        {"\xe2\x82", "\\xe2\\x82"},
        {"\xe2\x82\xac", "€"},
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},
        {"\xc0\xaf", "\\xc0\\xaf"},
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
        {"\xe2\x80\xa8", "\\u2028"}};
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(printable(text), expected);
    }
}

TEST(Figures, AreForPeople) {
    EXPECT_EQ(formatCount(0), "0");
    EXPECT_EQ(formatCount(999), "999");
    EXPECT_EQ(formatCount(1000), "1,000");
    EXPECT_EQ(formatCount(1234567), "1,234,567");
    EXPECT_EQ(formatCount(1, "table", "tables"), "1 table");
    EXPECT_EQ(formatCount(0, "table", "tables"), "0 tables");
    EXPECT_EQ(formatBytes(1), "1 byte");
    EXPECT_EQ(formatBytes(999), "999 bytes");
    EXPECT_EQ(formatBytes(1000), "1.0 kB");
    EXPECT_EQ(formatBytes(999949), "999.9 kB");
    EXPECT_EQ(formatBytes(999950), "1.0 MB");
    EXPECT_EQ(formatBytes(1234567890), "1.2 GB");
}

TEST(JoinWords, PutsAWordBeforeTheLast) {
    EXPECT_EQ(joinWords({}), "");
    EXPECT_EQ(joinWords({"a"}), "a");
    EXPECT_EQ(joinWords({"a", "b"}), "a and b");
    EXPECT_EQ(joinWords({"a", "b", "c"}, "or"), "a, b or c");
}

TEST(Wrap, BreaksAtBlanks) {
    EXPECT_EQ(wrap("one two three", 2, 10), "  one two\n  three\n");
    EXPECT_EQ(wrap("a\n  b c\n\nd", 1, 4), " a\n   b\n   c\n\n d\n") << "lines keep their own indentation";
    EXPECT_EQ(wrap("unbreakable", 2, 6), "  unbreakable\n");
    EXPECT_EQ(wrap("un breakable", 2, 6), "  un\n  breakable\n");
    EXPECT_EQ(wrap("a b", 9, 5), std::string(9, ' ') + "a\n" + std::string(9, ' ') + "b\n")
        << "no room at all";
    EXPECT_EQ(wrap("", 2, 10), "");
}

TEST(JsonWriter, WritesOneLine) {
    JsonWriter json;
    json.beginObject().member("a", 1).member("b", true).key("c").beginList().value("x").value("y").endList();
    json.key("d").beginObject().endObject().key("e").raw("{}").endObject();
    EXPECT_EQ(json.text(), R"({"a":1,"b":true,"c":["x","y"],"d":{},"e":{}})");
}

TEST(JsonWriter, Indents) {
    JsonWriter json(2);
    json.beginObject()
        .member("a", -1)
        .key("b")
        .beginList()
        .value("x")
        .endList()
        .key("c")
        .beginList()
        .endList();
    json.endObject();
    EXPECT_EQ(json.text(), "{\n  \"a\": -1,\n  \"b\": [\n    \"x\"\n  ],\n  \"c\": []\n}");
}

TEST(JsonWriter, EscapesAndRepairsText) {
    JsonWriter json;
    json.value("\"\\\n\r\t\x01\x7f é \xff");
    EXPECT_EQ(json.text(), "\"\\\"\\\\\\n\\r\\t\\u0001\\u007f é \xEF\xBF\xBD\"");
}

const std::vector<std::string> TYPE_SETS = {
    "None",           "Default",        "Access 2.0", "Access 97",   "DB2/MVS 4",    "DB2/UDB 5",
    "Oracle 7.0",     "Oracle 7.3",     "Oracle 8.x", "Rdb 7",       "SQLBase 6.x",  "SQL Server 4.x",
    "SQL Server 6.x", "SQL Server 7.x", "Sybase 4.2", "Sybase 11.x", "Teradata 2.x", "XML Datatypes"};

TEST(FindTypeSet, FitsTheDatabaseOfTheSource) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"Oracle 7.0", "Oracle 7.0"},
        {"oracle 7.0", "Oracle 7.0"},
        {"Oracle", "Oracle 8.x"},
        {"ORACLE", "Oracle 8.x"},
        {"Oracle 7.3.4", "Oracle 7.3"},
        {"Oracle 8i", "Oracle 8.x"},
        {"Oracle 19c", "Oracle 8.x"},
        {"Oracle Database 19c", "Oracle 8.x"},
        {"Oracle Rdb 7.1", "Rdb 7"},
        {"SQL Server 6.5", "SQL Server 6.x"},
        {"Microsoft SQL Server 2000", "SQL Server 7.x"},
        {"Microsoft Access", "Access 97"},
        {"DB2", "DB2/UDB 5"},
        {"DB2/MVS 4", "DB2/MVS 4"},
        {"Sybase 11.9.2", "Sybase 11.x"},
        {"XML Datatypes", "XML Datatypes"},
        {"SQLite", ""},
        {"SQL", ""},
        {"PostgreSQL 15", ""},
        {"None", ""},
        {"Default", ""},
        {"", ""},
        {" ", ""}};
    for (const auto& [databaseType, expected] : rows) {
        EXPECT_EQ(findTypeSet(databaseType, TYPE_SETS), expected) << databaseType;
    }
}

TEST(ModelName, ThatADocumentCanHoldPasses) {
    for (const std::string name : {"", "Shop", "it's > 1", "Größe 表 😀"}) {
        EXPECT_NO_THROW(requireWritableModelName(name, "s")) << name;
    }
}

TEST(ModelName, ThatADocumentCannotHoldIsRefused) {
    for (const std::string name : {"a\"b", "a&b", "a<b", "a\nb", "a\x01", "\xff", "\xEF\xBF\xBE"}) {
        EXPECT_THROW(requireWritableModelName(name, "s"), Failure) << name;
    }
}

TEST(MessageId, IsTakenOffATextThatHasOne) {
    EXPECT_EQ(splitMessageId("[QLT_SQMDC_F0002] Unable"),
              std::pair(std::string("QLT_SQMDC_F0002"), std::string("Unable")));
    EXPECT_EQ(splitMessageId("Unable [x] y"), std::pair(std::string(), std::string("Unable [x] y")));
    EXPECT_EQ(splitMessageId("[unclosed"), std::pair(std::string(), std::string("[unclosed")));
    EXPECT_EQ(splitMessageId(""), std::pair(std::string(), std::string()));
}

TEST(CountModel, CountsByKindAndPackage) {
    support::ModelBuilder builder("Shop");
    builder.addCatalog("Oracle 8.x");
    ZORDesignPackage* outer = builder.addPackage("outer");
    ZORClass* parent = builder.addTable("parent", {"id", "name"});
    ZORCandidateKey* key = support::ModelBuilder::addPrimaryKey(parent, "pk", {"id"});
    builder.addPackage("inner", outer);
    ZORClass* child = builder.addTable("child", {"id"});
    builder.addRelationship("r", support::ModelBuilder::addForeignKey(child, "fk", {"id"}, key));
    support::ModelBuilder::addViewColumn(builder.addView("v"), "c");
    support::ModelBuilder::addOperation<ZORTrigger>(child, "t");
    support::ModelBuilder::addOperation<ZORStoredProcedure>(builder.package(), "p");

    const ModelCounts counts = countModel(*builder.model());
    EXPECT_EQ(counts.databaseType, "Oracle 8.x");
    EXPECT_EQ(describeCounts(counts.total, true),
              "2 schemas, 2 tables, 3 columns, 1 candidate key, 1 foreign key, 1 relationship, 1 view, 1 "
              "view column, "
              "1 procedure, 1 trigger and 2 data types");
    EXPECT_EQ(describeCounts(counts.total, false).substr(0, 38), "2 packages, 2 classes, 3 attributes, 1");
    ASSERT_EQ(counts.packages.size(), 2U);
    EXPECT_EQ(counts.packages[0].path, "outer");
    EXPECT_EQ(describeCounts(counts.packages[0].own, true),
              "1 schema, 1 table, 2 columns and 1 candidate key");
    EXPECT_EQ(counts.packages[1].path, "outer.inner");
    EXPECT_EQ(counts.packages[1].own[ObjectKind::CLASS], 1U);
}

TEST(CountModel, OfAnEmptyModelCountsNothing) {
    EXPECT_EQ(describeCounts(countModel(ZORModel()).total, true), "nothing");
}

TEST(ObjectKinds, StandInTheOrderOfTheirEnumeration) {
    for (std::size_t i = 0; i < objectKinds().size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(objectKinds()[i].kind), i);
    }
}

TEST(OptionTable, HasNoNameTwice) {
    std::set<std::string> names;
    std::set<char> letters;
    for (const OptionEntry& option : allOptions()) {
        EXPECT_TRUE(names.insert(option.name).second) << option.name;
        EXPECT_TRUE(option.letter == '\0' || letters.insert(option.letter).second) << option.letter;
        EXPECT_NE(option.take, nullptr) << option.name;
        EXPECT_FALSE(option.description.empty()) << option.name;
    }
}

TEST(OptionTable, HasEveryOptionInSomeCommand) {
    for (const OptionEntry& option : allOptions()) {
        const bool taken = std::any_of(allCommands().begin(), allCommands().end(),
                                       [&](const Command& command) { return command.takes(option); });
        EXPECT_TRUE(taken) << option.name;
    }
}

}  // namespace
}  // namespace cli
