// What the commands do and print.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <filesystem>

#include "ProgramRunner.h"
#include "Reader.h"
#include "Sources.h"
#include "ZORBridgeManager.h"

namespace cli_test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Commands : public testing::Test {
  protected:
    Commands() { scratch.write("shop.sql", SHOP_SQL); }
    std::string exported(std::vector<std::string> arguments, const std::string& epoch = "0") const {
        arguments.insert(arguments.begin(), "export");
        arguments.insert(arguments.end(), {"-o", "-", "-q"});
        const Result result =
            run(scratch, Setting{.arguments = arguments, .environment = {{"SOURCE_DATE_EPOCH", epoch}}});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return result.out;
    }
    Scratch scratch;
};

TEST_F(Commands, ExportGivesTheSameBytesForTheSameSource) {
    const std::string first = exported({"shop.sql"});
    EXPECT_EQ(exported({"shop.sql"}), first);
    EXPECT_EQ(exported({"sql:shop.sql"}), first);
    EXPECT_NE(exported({"shop.sql"}, "86400"), first) << "the one clock shows in the document";
    const Result elsewhere =
        run(scratch, Setting{.arguments = {"export", "shop.sql", "-", "-q"},
                             .environment = {{"SOURCE_DATE_EPOCH", "0"}, {"TZ", "Asia/Tokyo"}}});
    EXPECT_EQ(elsewhere.out, first);
}

TEST_F(Commands, ExportTakesTheTimeOfDayWithoutAFixedMoment) {
    EXPECT_EQ(run(scratch, Setting{.arguments = {"export", "shop.sql", "a.xml"},
                                   .environment = {{"SOURCE_DATE_EPOCH", ""}}})
                  .exitCode,
              0);
    EXPECT_NE(scratch.read("a.xml"), exported({"shop.sql"}));
}

TEST_F(Commands, ExportIndentsAsAsked) {
    const std::string plain = exported({"shop.sql"});
    EXPECT_THAT(plain, Not(HasSubstr("\n ")));
    EXPECT_EQ(exported({"shop.sql", "--indent", "none"}), plain);
    EXPECT_EQ(exported({"shop.sql", "--indent", "0"}), plain);
    EXPECT_THAT(exported({"shop.sql", "--indent", "3"}), HasSubstr("\n   <oim:TransferHeader"));
    EXPECT_THAT(exported({"shop.sql", "--indent", "tab"}), HasSubstr("\n\t<oim:TransferHeader"));
    EXPECT_THAT(exported({"shop.sql", "--set", "XML Indentation (pretty printing)= \t"}),
                HasSubstr("\n \t<oim:TransferHeader"));
    EXPECT_EQ(exported({"shop.sql", "--indent", "3", "--set", "XML Indentation (pretty printing)="}), plain);
}

TEST_F(Commands, ExportLetsTheLastSettingWin) {
    const std::string oracle = exported({"shop.sql", "--dbm-typeset", "Oracle 8.x"});
    EXPECT_NE(exported({"shop.sql"}), oracle);
    EXPECT_EQ(exported({"shop.sql", "--set", "DBM TypeSet=Oracle 8.x"}), oracle);
    EXPECT_EQ(exported({"shop.sql", "--set", "DBM TypeSet=None", "--set", "DBM TypeSet=Oracle 8.x"}), oracle);
    EXPECT_EQ(exported({"shop.sql", "--set", "DBM TypeSet=Oracle 8.x", "--dbm-typeset", "None"}), oracle)
        << "--set comes after the options of its own";
}

TEST_F(Commands, ExportTakesAValueAsItIsGiven) {
    EXPECT_EQ(exported({"shop.sql", "--dbm-typeset", "Default"}),
              exported({"shop.sql", "--set", "DBM TypeSet=Default"}));
    EXPECT_NE(exported({"shop.sql", "--dbm-typeset", "None"}), exported({"shop.sql"}));
}

TEST_F(Commands, ExportChoosesTheTypesOfTheSourcesDatabase) {
    for (const auto& [databaseType, typeSet] : {std::pair<std::string, std::string>{"Oracle", "Oracle 8.x"},
                                                {"Sybase 10", "Sybase 10"},
                                                {"", "SQL Server 7.x"},
                                                {"Postgres", "SQL Server 7.x"}}) {
        scratch.write("m.model.json", modelDocument("m", databaseType));
        EXPECT_EQ(exported({"m.model.json", "--view", "dbm"}),
                  exported({"m.model.json", "--view", "dbm", "--dbm-typeset", typeSet}));
        const Result result =
            run(scratch, {"export", "m.model.json", "m.xml", "--view", "dbm", "--overwrite"});
        EXPECT_THAT(result.out, HasSubstr("types of " + typeSet + ", from "));
    }
}

TEST_F(Commands, ExportTellsWhenADocumentHasNoDataTypes) {
    for (const char* typeSet : {"None", "Default"}) {
        const Result result =
            run(scratch, {"export", "shop.sql", "m.xml", "--dbm-typeset", typeSet, "--overwrite"});
        EXPECT_THAT(result.out, HasSubstr("DBM view of \"shop\", without data types, from "));
    }
    const Result result = run(scratch, {"export", "shop.sql", "m.xml", "--view", "erd+dbm", "--dbm-typeset",
                                        "None", "--overwrite"});
    EXPECT_THAT(result.out, HasSubstr("types of XML Datatypes, from "));
}

/// A class with an attribute of each of the data types.
std::string documentOfTypes(const std::vector<std::string>& dataTypes) {
    std::string types;
    std::string attributes;
    for (const std::string& dataType : dataTypes) {
        const char* comma = types.empty() ? "" : ",";
        types += fmt::format(R"({}{{"id": "t.{}", "kind": "concrete", "name": "T{}", "dataType": "{}"}})",
                             comma, dataType, dataType, dataType);
        attributes += fmt::format(R"({}{{"name": "a", "type": "t.{}"}})", comma, dataType);
    }
    return fmt::format(R"({{"format": "oim-source-model", "version": 1, "model": {{"name": "m", "types": [{}],
        "children": [{{"kind": "package", "name": "p", "elements": [
            {{"kind": "class", "name": "c", "attributes": [{}]}}]}}]}}}})",
                       types, attributes);
}

TEST_F(Commands, ExportTellsOfDataTypesWithoutACounterpart) {
    scratch.write("m.model.json",
                  documentOfTypes({"geometry", "INT", "vector", "SQL_DATE", "money[]", "x", ""}));
    EXPECT_EQ(
        run(scratch, {"export", "m.model.json", "m.xml", "--view", "dbm"}).err,
        "oimbridge: note: m.model.json: no type set has a counterpart of 5 data types, so that the one for "
        "any other type is written: \"geometry\", \"vector\", \"money[]\" and 2 more\n"
        "hint: --verbose lists each; docs/model-document.md tells the names that are known\n");
    EXPECT_THAT(run(scratch, {"export", "m.model.json", "m.xml", "--view", "erd", "--overwrite", "-v"}).err,
                AllOf(HasSubstr("no type set has a counterpart of the data type \"x\" of 1 attribute\n"),
                      HasSubstr("no type set has a counterpart of the data type \"T\" of 1 attribute\n"),
                      Not(HasSubstr("\"INT\" of"))));
    for (const std::vector<std::string>& others :
         {std::vector<std::string>{"--view", "uml"}, {"--view", "dbm", "--dbm-typeset", "None"}}) {
        std::vector<std::string> arguments = {"export", "m.model.json", "m.xml", "--overwrite"};
        arguments.insert(arguments.end(), others.begin(), others.end());
        EXPECT_EQ(run(scratch, arguments).err, "");
    }
}

TEST_F(Commands, ExportNamesTheModelAsAsked) {
    EXPECT_THAT(exported({"shop.sql", "--model-name", "Corner Shop"}), HasSubstr("\"Corner Shop\""));
    EXPECT_THAT(exported({"shop.sql", "--model-name=--odd--"}), HasSubstr("\"--odd--\""));
}

TEST_F(Commands, ExportLeavesOutWhatIsNotSelected) {
    const std::string some =
        exported({"shop.sql", "--table", "customer", "--table", "s*", "--exclude-table", "main.sal?"});
    EXPECT_THAT(some, HasSubstr("\"customer\""));
    EXPECT_THAT(some, Not(HasSubstr("\"product\"")));
    EXPECT_THAT(some, Not(HasSubstr("\"sale\"")));
    EXPECT_THAT(exported({"shop.sql"}), HasSubstr("\"expensive\""));
    EXPECT_THAT(exported({"shop.sql", "--no-views"}), Not(HasSubstr("\"expensive\"")));
    EXPECT_THAT(exported({"shop.sql"}), HasSubstr("\"no_gifts\""));
    EXPECT_THAT(exported({"shop.sql", "--no-triggers"}), Not(HasSubstr("\"no_gifts\"")));
}

TEST_F(Commands, ExportOfADatabaseIsThatOfItsScript) {
    makeDatabase(scratch / "shop.db", SHOP_SQL);
    EXPECT_EQ(exported({"shop.db"}), exported({"shop.sql"}));
    EXPECT_EQ(exported({"sqlite:shop.db", "--busy-timeout", "10"}), exported({"shop.sql"}));
    EXPECT_THAT(scratch.list(), testing::ElementsAre("shop.db", "shop.sql"));
}

TEST_F(Commands, AnOptionOfAReaderIsCheckedByIt) {
    makeDatabase(scratch / "shop.db", SHOP_SQL);
    const Result absurd = run(scratch, {"inspect", "shop.db", "--busy-timeout", "soon"});
    EXPECT_EQ(absurd.exitCode, 2);
    EXPECT_EQ(absurd.err,
              "oimbridge: error: --busy-timeout: \"soon\" is no number of milliseconds\n"
              "hint: give a whole one that is not negative, such as 5000\n");
    const Result foreign = run(scratch, {"inspect", "shop.sql", "--busy-timeout", "10"});
    EXPECT_EQ(foreign.exitCode, 2);
    EXPECT_THAT(foreign.err,
                StartsWith("oimbridge: error: --busy-timeout: this kind of source does not take the option"));
}

TEST_F(Commands, ExportToTheDbmViewDoesNotShowAListOfValues) {
    const std::string columns =
        "CREATE TABLE t(a VARCHAR(9) DEFAULT 'x'{}, b DECIMAL(5,2) NOT NULL{}, c TEXT);"
        "CREATE VIEW v AS SELECT a, b FROM t UNION SELECT c, b FROM t;";
    scratch.write("plain.sql", fmt::format(fmt::runtime(columns), "", ""));
    scratch.write("lists.sql",
                  fmt::format(fmt::runtime(columns), " CHECK (a IN ('x', 'y'))", " CHECK (b IN (1, 2.5))"));
    EXPECT_EQ(exported({"lists.sql", "--model-name", "m"}), exported({"plain.sql", "--model-name", "m"}));
    EXPECT_THAT(exported({"lists.sql", "--view", "erd"}), HasSubstr("erd:ValidationRule"));
}

TEST_F(Commands, OptionsMayStandAnywhere) {
    const std::string plain = exported({"shop.sql"});
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"-q", "export", "shop.sql", "-"},
          {"export", "-q", "shop.sql", "-"},
          {"export", "--view", "dbm", "shop.sql", "-q", "-"},
          {"--log-format", "text", "-q", "export", "-o-", "shop.sql"}}) {
        const Result result =
            run(scratch, Setting{.arguments = arguments, .environment = {{"SOURCE_DATE_EPOCH", "0"}}});
        EXPECT_EQ(result.out, plain) << result.err;
    }
}

TEST_F(Commands, ExportLeavesTheSourceAlone) {
    const auto before = std::filesystem::last_write_time(scratch.path() / "shop.sql");
    exported({"shop.sql"});
    EXPECT_EQ(scratch.read("shop.sql"), SHOP_SQL);
    EXPECT_EQ(std::filesystem::last_write_time(scratch.path() / "shop.sql"), before);
    EXPECT_EQ(scratch.list(), std::vector<std::string>{"shop.sql"});
}

TEST_F(Commands, OptionsListsAllThatTheBridgeDescribes) {
    ZOROptionList options;
    ZORBridgeManager().load("MicrosoftSqlServerMdsMdcExport").getOptionList(options);
    const Result text = run(scratch, {"options"});
    const Result json = run(scratch, {"options", "--format", "json"});
    simdjson::dom::parser parser;
    const simdjson::dom::element report = parser.parse(json.out);
    ASSERT_EQ(report["options"].get_array().size(), options.getOptions().size());
    std::size_t index = 0;
    for (const ZOROption* option : options.getOptions()) {
        EXPECT_THAT(text.out, HasSubstr("\n  " + std::string(option->getDisplayName().view()) + "\n"));
        const simdjson::dom::element described = report["options"].at(index++);
        EXPECT_EQ(std::string_view(described["displayName"]), option->getDisplayName().view());
        EXPECT_EQ(std::string_view(described["name"]), option->getName().view());
        EXPECT_EQ(std::string_view(described["type"]), option->getType().view());
        EXPECT_EQ(std::string_view(described["default"]), option->getDefault().view());
        EXPECT_EQ(std::string_view(described["description"]), option->getDescription().view());
        std::size_t value = 0;
        for (const ZORString& permitted : option->getPermittedValues()) {
            EXPECT_EQ(std::string_view(described["values"].at(value++)), permitted.view());
        }
        EXPECT_EQ(described["values"].get_array().size(), value);
    }
}

TEST_F(Commands, OptionsListsTheReaders) {
    const Result text = run(scratch, {"options"});
    simdjson::dom::parser parser;
    const simdjson::dom::element report = parser.parse(run(scratch, {"options", "--format", "json"}).out);
    ASSERT_EQ(report["readers"].get_array().size(), readers::allReaders().size());
    std::size_t index = 0;
    for (const readers::Reader* reader : readers::allReaders()) {
        const readers::ReaderDescription& description = reader->describe();
        EXPECT_THAT(text.out, HasSubstr("\n  " + description.name + "\n"));
        const simdjson::dom::element described = report["readers"].at(index++);
        EXPECT_EQ(std::string_view(described["name"]), description.name);
        EXPECT_EQ(std::string_view(described["title"]), description.title);
        EXPECT_EQ(bool(described["takesSelection"]), description.takesSelection);
        EXPECT_EQ(described["options"].get_array().size(), description.options.size());
    }
}

TEST_F(Commands, OptionsShowsOneByItsNames) {
    const Result shown = run(scratch, {"options", "Model"});
    EXPECT_THAT(shown.out, HasSubstr("  Model\n"
                                     "      Enumerated, \"UML\" unless set; set by --view\n"
                                     "      Values: \"UML\", \"ERD\", \"DBM\" or \"ERD and DBM\"\n"
                                     "      Specifies the target Open Information Model.\n"
                                     "        'UML' - Export a UML view of the model.\n"));
    EXPECT_THAT(shown.out, Not(HasSubstr("Readers")));
    EXPECT_EQ(run(scratch, {"options", "BP_MODEL"}).out, shown.out);
    const Result reader = run(scratch, {"options", "sqlite"});
    EXPECT_THAT(reader.out, StartsWith("Readers:\n\n  sqlite\n"));
    const simdjson::padded_string json(run(scratch, {"options", "sqlite", "--format", "json"}).out);
    simdjson::dom::parser parser;
    const simdjson::dom::element report = parser.parse(json);
    EXPECT_EQ(report["options"].get_array().size(), 0U);
    EXPECT_EQ(report["readers"].get_array().size(), 1U);
}

}  // namespace
}  // namespace cli_test
