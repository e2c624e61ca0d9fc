// Messages: their two forms, what is told quietly, normally and verbosely, and findings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <sstream>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

using testing::HasSubstr;

class Log : public testing::Test {
  protected:
    Log() { scratch.write("shop.sql", SHOP_SQL); }
    Scratch scratch;
};

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The keys of an object, in their order.
std::vector<std::string> keysOf(const simdjson::dom::element& object) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.get_object()) {
        keys.emplace_back(key);
    }
    return keys;
}

TEST_F(Log, LossesAreSummedUpInOneLine) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml"});
    EXPECT_EQ(result.err,
              "oimbridge: note: shop.sql: not carried over: collations (1)\n"
              "hint: --verbose lists each\n");
}

TEST_F(Log, LossesAreListedVerbosely) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "-v"});
    EXPECT_THAT(result.err,
                HasSubstr("oimbridge: note: shop.sql: main.customer.name: not carried over (collations): "
                          "NOCASE\n"));
}

TEST_F(Log, IsEmptyWhenQuiet) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "-q"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out + result.err, "");
}

TEST_F(Log, ErrorsAreToldAlsoWhenQuiet) {
    const Result result = run(scratch, {"export", "missing.sqlite", "-q"});
    EXPECT_EQ(result.err, "oimbridge: error: missing.sqlite: cannot be opened: No such file or directory\n");
}

TEST_F(Log, LossesAreFindingsWhenStrict) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "--strict"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err,
                HasSubstr("oimbridge: note: shop.sql: findings: 0 warnings, 1 thing not carried over\n"));
    EXPECT_TRUE(scratch.exists("out.xml")) << "the document is written all the same";
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "out.xml", "--strict", "-q", "--overwrite"}).exitCode, 1);
    EXPECT_EQ(run(scratch, {"inspect", "shop.sql", "--strict"}).exitCode, 1);
}

TEST_F(Log, WarningsAreFindingsWhenStrict) {
    scratch.write("m.model.json", modelDocument("m"));
    EXPECT_EQ(run(scratch, {"inspect", "m.model.json", "--strict"}).exitCode, 0);
    scratch.write("plain.sql", "CREATE TABLE t (a INTEGER);");
    const Result result = run(scratch, {"inspect", "plain.sql", "--exclude-table", "x*", "--strict"});
    EXPECT_THAT(result.err, HasSubstr("oimbridge: warning: plain.sql: "));
    EXPECT_THAT(result.err, HasSubstr("x*"));
    EXPECT_EQ(result.exitCode, 1);
}

TEST_F(Log, EventsOfTheBridgeHaveTheirIdentifiers) {
    scratch.write("m.model.json",
                  R"({"format": "oim-source-model", "version": 1, "model": {"name": "m", "children": [
        {"kind": "catalog", "name": "a"}, {"kind": "catalog", "name": "b"}, {"kind": "package", "name": "p",
         "elements": [{"kind": "class", "name": "t"}]}]}})");
    const Result result = run(scratch, {"export", "m.model.json", "m.xml", "--view", "dbm"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err,
              "oimbridge: warning: m.model.json: [QLT_SQMDC_W0007] This bridge does not support multiple "
              "catalogs. The "
              "source model has multiple catalogs.\n");
    EXPECT_EQ(run(scratch, {"export", "m.model.json", "n.xml", "--view", "dbm", "--strict"}).exitCode, 1);
}

TEST_F(Log, OfJsonIsOneObjectPerLineWithTheSameKeys) {
    const std::vector<std::vector<std::string>> runs = {
        {"export", "shop.sql", "out.xml", "-v", "--log-format", "json"},
        {"export", "shop.sql", "out.xml", "--log-format", "json"},
        {"export", "shop.sql", "out2.xml", "--strict", "--log-format=json"},
        {"inspect", "missing", "--log-format", "json"}};
    const std::vector<std::string> keys = {"level", "subject", "where", "id", "text", "hint"};
    simdjson::dom::parser parser;
    for (const std::vector<std::string>& arguments : runs) {
        const Result result = run(scratch, arguments);
        EXPECT_EQ(result.out, "") << "a log for programs is all on standard error";
        const std::vector<std::string> lines = linesOf(result.err);
        EXPECT_FALSE(lines.empty());
        for (const std::string& line : lines) {
            std::vector<std::string> found = keysOf(parser.parse(line));
            if (found.size() == keys.size() + 1) {
                EXPECT_EQ(found.back(), "data");
                found.pop_back();
            }
            EXPECT_EQ(found, keys) << line;
        }
    }
}

TEST_F(Log, OfJsonEndsWithTheSummaryAndItsFigures) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "--log-format", "json"});
    simdjson::dom::parser parser;
    const simdjson::dom::element message = parser.parse(linesOf(result.err).back());
    EXPECT_EQ(std::string_view(message["level"]), "note");
    const simdjson::dom::element data = message["data"];
    EXPECT_EQ(std::string_view(data["source"]), "shop.sql");
    EXPECT_EQ(std::string_view(data["reader"]), "sql");
    EXPECT_EQ(std::string_view(data["model"]), "shop");
    EXPECT_EQ(std::string_view(data["output"]), "out.xml");
    EXPECT_EQ(std::string_view(data["view"]), "dbm");
    EXPECT_EQ(std::uint64_t(data["counts"]["classes"]), 3U);
    EXPECT_EQ(std::uint64_t(data["losses"]["collations"]), 1U);
    EXPECT_EQ(std::uint64_t(data["bytes"]), scratch.read("out.xml").size());
}

TEST_F(Log, ANameFromTheSourceCannotCommandTheTerminal) {
    scratch.write("m.model.json", modelDocument("m\\u001b[2J"));
    const Result result = run(scratch, {"export", "m.model.json", "m.xml", "--view", "dbm"});
    EXPECT_EQ(result.err,
              "oimbridge: error: m.model.json: a document cannot hold the model's name \"m\\u001b[2J\" "
              "because of the "
              "'\\u001b' in it\n"
              "hint: give the model another name with --model-name\n");
}

}  // namespace
}  // namespace cli_test
