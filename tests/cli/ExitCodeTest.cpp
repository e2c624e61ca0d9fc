// What each exit code means, and what is said with it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "ExitCode.h"
#include "ProgramRunner.h"
#include "Sources.h"

namespace fs = std::filesystem;

namespace cli_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ExitCode : public testing::Test {
  protected:
    ExitCode() {
        scratch.write("shop.sql", SHOP_SQL);
        scratch.write("m.model.json", modelDocument("m"));
    }
    Scratch scratch;
};

TEST_F(ExitCode, Is0WhenAllIsWell) {
    EXPECT_EQ(run(scratch, {"export", "m.model.json", "--view", "dbm"}).exitCode, 0);
    EXPECT_EQ(run(scratch, {"inspect", "m.model.json"}).exitCode, 0);
    EXPECT_EQ(run(scratch, {"options"}).exitCode, 0);
    EXPECT_EQ(run(scratch, {"--help"}).exitCode, 0);
    EXPECT_EQ(run(scratch, {"--version"}).exitCode, 0);
}

TEST_F(ExitCode, Is3WhenThereIsNoSource) {
    for (const std::string prefix : {"", "sqlite:", "sql:", "json:"}) {
        const Result result = run(scratch, {"export", prefix + "no.db", "out.xml"});
        EXPECT_EQ(result.exitCode, 3);
        EXPECT_EQ(result.err, "oimbridge: error: no.db: cannot be opened: No such file or directory\n");
    }
    EXPECT_THAT(scratch.list(), ElementsAre("m.model.json", "shop.sql")) << "a source is never made";
}

TEST_F(ExitCode, Is3WhenThePrefixIsUnknown) {
    const Result result = run(scratch, {"inspect", "oracle:shop"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.err,
                StartsWith("oimbridge: error: oracle:shop: cannot be opened: No such file or directory\n"
                           "hint: the prefixes of sources are "));
}

TEST_F(ExitCode, Is3WhenTheSourceIsAFolderOrADevice) {
    fs::create_directory(scratch.path() / "folder");
    const Result folder = run(scratch, {"inspect", "folder"});
    EXPECT_EQ(folder.exitCode, 3);
    EXPECT_EQ(folder.err, "oimbridge: error: folder: is a folder\nhint: name a file in it\n");
    EXPECT_EQ(run(scratch, {"inspect", "/dev/zero"}).exitCode, 3);
}

TEST_F(ExitCode, Is4WhenTheSourceIsOfNoKnownKind) {
    scratch.write("paper.pdf", "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
    const Result result = run(scratch, {"export", "paper.pdf"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.err,
                StartsWith("oimbridge: error: paper.pdf: this is no kind of source that is known\n"
                           "hint: when it is one, name its kind in front: "));
}

TEST_F(ExitCode, Is4WhenTheSourceIsEmpty) {
    scratch.write("empty", "");
    const Result result = run(scratch, {"export", "empty", "out.xml"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.err, "oimbridge: error: empty: there is nothing in it\n");
}

TEST_F(ExitCode, Is4WhenTheSourceIsNotUnderstood) {
    scratch.write("broken.model.json", R"({"format": "oim-source-model", "version": 1, "model": {"name": )");
    scratch.write("broken.sql", "CREATE TABLE t (a INTEGER;");
    for (const std::string source : {"broken.model.json", "broken.sql", "json:shop.sql", "sqlite:shop.sql"}) {
        const Result result = run(scratch, {"export", source, "out.xml", "--view", "dbm"});
        EXPECT_EQ(result.exitCode, 4) << source;
        EXPECT_THAT(result.err,
                    StartsWith("oimbridge: error: " + source.substr(source.find(':') + 1) + ": "));
        EXPECT_FALSE(scratch.exists("out.xml"));
    }
}

TEST_F(ExitCode, Is4WhenTheModelIsNotSound) {
    std::string types = R"({"id": "t0", "kind": "concrete", "name": "t0", "dataType": "SQL_INTEGER"})";
    for (int i = 1; i < 1010; ++i) {
        const std::string name = "t" + std::to_string(i);
        types += R"(,{"id": ")" + name + R"(", "kind": "alias", "name": ")" + name + R"(", "base": "t)" +
                 std::to_string(i - 1) + "\"}";
    }
    scratch.write("deep.model.json",
                  R"({"format": "oim-source-model", "version": 1, "model": {"name": "m", "types": [)" +
                      types + R"(], "children": [{"kind": "package", "name": "p",
                                         "elements": [{"kind": "class", "name": "t"}]}]}})");
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"inspect", "deep.model.json"},
                                                      {"export", "deep.model.json", "--view", "dbm"}}) {
        const Result result = run(scratch, arguments);
        EXPECT_EQ(result.exitCode, 4);
        EXPECT_EQ(
            result.err,
            "oimbridge: error: deep.model.json: Type 't1001' stands on more than 1000 base types, the most "
            "permitted.\n"
            "oimbridge: error: deep.model.json: the model is not sound, so it cannot be written\n"
            "hint: correct what is named above in the source\n");
    }
    EXPECT_FALSE(scratch.exists("deep.xml"));
}

TEST_F(ExitCode, Is4WhenTheModelsNameMakesTheDocumentMalformed) {
    for (const std::string name : {"R&D", "a<b", "\\\"quoted\\\""}) {
        scratch.write("named.model.json", modelDocument(name));
        const Result refused = run(scratch, {"export", "named.model.json", "out.xml", "--view", "dbm"});
        EXPECT_EQ(refused.exitCode, 4);
        EXPECT_THAT(refused.err, HasSubstr("hint: give the model another name with --model-name\n"));
        EXPECT_FALSE(scratch.exists("out.xml"));
        const Result renamed = run(scratch, {"export", "named.model.json", "ok.xml", "--view", "dbm",
                                             "--model-name", "Fine", "--overwrite"});
        EXPECT_EQ(renamed.exitCode, 0) << renamed.err;
        EXPECT_THAT(scratch.read("ok.xml"), HasSubstr("Fine"));
    }
}

TEST_F(ExitCode, Is2WhenTheNameGivenMakesTheDocumentMalformed) {
    for (const char* command : {"export", "convert", "inspect"}) {
        const Result result = run(scratch, {command, "shop.sql", "--model-name", "R&D"});
        EXPECT_EQ(
            result.err,
            "oimbridge: error: --model-name: a document cannot hold the name \"R&D\" because of the '&' "
            "in it\n");
        EXPECT_EQ(result.exitCode, 2);
    }
    EXPECT_THAT(scratch.list(), ElementsAre("m.model.json", "shop.sql"));
}

TEST_F(ExitCode, Is5WhenTheBridgeCannotBeLoaded) {
    const Result result = run(scratch, Setting{.arguments = {"export", "shop.sql"},
                                               .environment = {{"ZOR_BRIDGE_PATH", scratch / "nowhere"}}});
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(
        result.err,
        "oimbridge: error: There is no folder \"$TMPDIR/nowhere\" to look for bridges in.\n"
        "hint: the environment variable ZOR_BRIDGE_PATH names the folder of the bridge; unset, it is beside "
        "the program's libraries\n");
    EXPECT_FALSE(scratch.exists("shop.xml"));
}

TEST_F(ExitCode, Is6WhenThereIsNoTableViewOrClass) {
    scratch.write("empty.sql", "-- nothing yet\nCREATE TABLE t (a INTEGER); DROP TABLE t;\n");
    const Result result = run(scratch, {"export", "sql:empty.sql", "out.xml"});
    EXPECT_EQ(result.exitCode, 6);
    EXPECT_EQ(result.err,
              "oimbridge: error: empty.sql: there is no table, view or class in it\n"
              "hint: --allow-empty accepts that\n");
    EXPECT_FALSE(scratch.exists("out.xml"));
    EXPECT_EQ(run(scratch, {"export", "sql:empty.sql", "out.xml", "--allow-empty"}).exitCode, 0);
    EXPECT_THAT(scratch.read("out.xml"), testing::EndsWith("</oim:Transfer>\n"));
    EXPECT_EQ(run(scratch, {"inspect", "sql:empty.sql"}).exitCode, 6);
    EXPECT_EQ(run(scratch, {"inspect", "sql:empty.sql", "--allow-empty"}).exitCode, 0);
}

TEST_F(ExitCode, Is0WhenThereIsAViewAndNoTable) {
    makeDatabase(scratch / "view.db", "CREATE VIEW answer AS SELECT 42 AS number;");
    EXPECT_EQ(run(scratch, {"inspect", "view.db"}).exitCode, 0);
    EXPECT_EQ(run(scratch, {"export", "view.db", "out.xml"}).exitCode, 0);
    EXPECT_THAT(scratch.read("out.xml"), HasSubstr("\"answer\""));
    EXPECT_EQ(run(scratch, {"inspect", "view.db", "--no-views"}).exitCode, 6);
}

TEST_F(ExitCode, Is6WithTheReasonWhenAUmlModelHasNoClass) {
    scratch.write("empty.uml",
                  R"(<uml:Model xmi:version="2.1" xmlns:xmi="http://schema.omg.org/spec/XMI/2.1"
                  xmlns:uml="http://schema.omg.org/spec/UML/2.1" name="m"/>)");
    const Result result = run(scratch, {"export", "empty.uml", "out.xml"});
    EXPECT_EQ(result.exitCode, 6);
    EXPECT_EQ(result.err,
              "oimbridge: warning: empty.uml: m: there is no class in the model, nor a data type\n"
              "oimbridge: error: empty.uml: there is no table, view or class in it\n"
              "hint: --allow-empty accepts that\n");
    EXPECT_FALSE(scratch.exists("out.xml"));
}

TEST_F(ExitCode, Is4WhenAFileOnlyHasTheNameOfAUmlModel) {
    scratch.write("paper.xmi", "%PDF-1.4\n");
    const Result result = run(scratch, {"export", "paper.xmi", "out.xml"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.err, "oimbridge: error: paper.xmi: this is not XML: it begins with \"%PDF-1.4\"\n");
    EXPECT_EQ(run(scratch, {"export", "missing.xmi", "out.xml"}).exitCode, 3);
}

TEST_F(ExitCode, Is6WhenTheSelectionLeavesNothing) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "--table", "nothing*"});
    EXPECT_EQ(result.exitCode, 6);
    EXPECT_THAT(result.err, HasSubstr("oimbridge: warning: shop.sql: "));
    EXPECT_THAT(result.err, HasSubstr("oimbridge: error: shop.sql: the selection leaves no table or view\n"
                                      "hint: --allow-empty accepts that\n"));
    EXPECT_FALSE(scratch.exists("out.xml"));
}

}  // namespace
}  // namespace cli_test
