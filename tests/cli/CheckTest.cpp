// Checking a document that is there, and one that is being written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "ProgramRunner.h"
#include "Sources.h"

namespace fs = std::filesystem;

namespace cli_test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

/// A document with the content in its package.
std::string documentWith(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
           "<oim:Transfer\nxmlns:oim=\"http://www.mdcinfo.com/oim/oim.dtd\"\n"
           "xmlns:uml=\"http://www.mdcinfo.com/oim/uml.dtd\"\n>\n"
           "<oim:TransferHeader Exporter=\"e\" ExporterVersion=\"1\" TransferDateTime=\"now\"/>\n"
           "<uml:Subsystem name=\"S\" oim:id=\"_1\">\n<uml:NamespaceOwnedElement>\n" +
           content + "</uml:NamespaceOwnedElement>\n</uml:Subsystem>\n</oim:Transfer>\n";
}

const std::string BAD_CONTENT = "<uml:Package oim:id=\"_1\" name=\"p\"/>\n<uml:Packet oim:id=\"_2\"/>\n";
const std::string LOOSE_CONTENT =
    "<uml:Class oim:id=\"_2\" name=\"c\" visibility=\"PublicAccess\"><uml:ClassifierFeature>\n"
    "<uml:Attribute oim:id=\"_3\" name=\"a\" ownerScope=\"instance\" "
    "visibility=\"PublicAccess\"><uml:StructuralFeatureType>\n<uml:Class oim:href=\"#_9\"/>\n"
    "</uml:StructuralFeatureType></uml:Attribute>\n"
    "<uml:Attribute oim:id=\"_4\" name=\"a\" ownerScope=\"instance\" "
    "visibility=\"PublicAccess\"><uml:StructuralFeatureType>\n<uml:Class oim:href=\"#_8\"/>\n"
    "</uml:StructuralFeatureType></uml:Attribute>\n"
    "</uml:ClassifierFeature></uml:Class>\n";
const std::string CLASS_AS_TYPE =
    " leads nowhere (a class that is used as a type is referred to by the type, which has no element)";

class Check : public testing::Test {
  protected:
    Scratch scratch;
};

TEST_F(Check, PassesWhatWasExported) {
    scratch.write("shop.sql", SHOP_SQL);
    for (const std::string view : {"uml", "erd", "dbm", "erd+dbm"}) {
        ASSERT_EQ(run(scratch, {"export", "shop.sql", "out.xml", "--view", view, "--overwrite"}).exitCode, 0);
        const Result result = run(scratch, {"check", "out.xml"});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_THAT(result.out, MatchesRegex("out\\.xml: no errors in [0-9,]+ elements, [0-9,]+ objects and "
                                             "[0-9,]+ references; [0-9.]+ kB\n"));
    }
}

TEST_F(Check, TellsErrorsAndExitsWith1) {
    scratch.write("bad.xml", documentWith(BAD_CONTENT));
    const Result result = run(scratch, {"check", "bad.xml"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err,
              "oimbridge: error: bad.xml: line 9, column 1: the identifier \"_1\" was given before\n"
              "oimbridge: error: bad.xml: line 10, column 1: unknown element \"uml:Packet\"\n");
    EXPECT_EQ(result.out, "bad.xml: 2 errors in 6 elements, 3 objects and 0 references; 417 bytes\n");
    const Result quiet = run(scratch, {"check", "bad.xml", "-q"});
    EXPECT_EQ(quiet.exitCode, 1);
    EXPECT_EQ(quiet.err, result.err);
    EXPECT_EQ(quiet.out, "");
}

TEST_F(Check, TellsTheFirstNoteOfAKindUnlessItIsVerbose) {
    scratch.write("loose.xml", documentWith(LOOSE_CONTENT));
    const Result result = run(scratch, {"check", "loose.xml"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err,
              "oimbridge: note: loose.xml: line 11, column 1: the reference to _9 in "
              "\"uml:StructuralFeatureType\"" +
                  CLASS_AS_TYPE + "; so it is in 1 other place\n");
    EXPECT_EQ(run(scratch, {"check", "loose.xml", "-v"}).err,
              "oimbridge: note: loose.xml: line 11, column 1: the reference to _9 in "
              "\"uml:StructuralFeatureType\"" +
                  CLASS_AS_TYPE +
                  "\noimbridge: note: loose.xml: line 14, column 1: the reference to _8 in "
                  "\"uml:StructuralFeatureType\"" +
                  CLASS_AS_TYPE + "\n");
}

TEST_F(Check, ReadsStandardInput) {
    const Result result =
        run(scratch, Setting{.arguments = {"check", "-"}, .input = documentWith(BAD_CONTENT)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, StartsWith("oimbridge: error: standard input: line 9, column 1: "));
    EXPECT_THAT(result.out, StartsWith("standard input: 2 errors in "));
}

TEST_F(Check, TellsProgramsWhatItFinds) {
    const Result result = run(scratch, Setting{.arguments = {"check", "-", "--log-format", "json"},
                                               .input = documentWith("<uml:Packet oim:id=\"_2\"/>\n")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(
        result.err,
        R"({"level":"error","subject":"standard input","where":"line 9, column 1","id":"",)"
        R"("text":"unknown element \"uml:Packet\"","hint":"","data":{"line":9,"column":1}})"
        "\n"
        R"({"level":"note","subject":"standard input","where":"","id":"","text":"1 error in 5 elements, )"
        R"(2 objects and 0 references; 381 bytes","hint":"","data":{"document":"standard input",)"
        R"("errors":1,"notes":0,"elements":5,"objects":2,"references":0,"bytes":381}})"
        "\n");
}

TEST_F(Check, ListsAHundredErrorsUnlessItIsVerbose) {
    std::string content;
    for (int i = 0; i < 150; ++i) {
        content += "<uml:Packet oim:id=\"_" + std::to_string(i + 2) + "\"/>\n";
    }
    scratch.write("bad.xml", documentWith(content));
    const Result result = run(scratch, {"check", "bad.xml"});
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 102);
    EXPECT_THAT(
        result.err,
        EndsWith("oimbridge: error: bad.xml: 50 more errors are not listed\nhint: --verbose lists them\n"));
    const Result verbose = run(scratch, {"check", "bad.xml", "--verbose"});
    EXPECT_EQ(std::count(verbose.err.begin(), verbose.err.end(), '\n'), 150);
}

TEST_F(Check, ListsTheErrorThatEndsItBehindAHundredOthers) {
    std::string content;
    for (int i = 0; i < 150; ++i) {
        content += "<uml:Packet oim:id=\"_" + std::to_string(i + 2) + "\"/>\n";
    }
    scratch.write("bad.xml", documentWith(content + "<uml:Package"));
    const Result result = run(scratch, {"check", "bad.xml"});
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 103);
    EXPECT_THAT(result.err, HasSubstr("\noimbridge: error: bad.xml: line 159, column 13: not well-formed: "));
    EXPECT_THAT(result.err, EndsWith("bad.xml: 50 more errors are not listed\nhint: --verbose lists them\n"));
    EXPECT_THAT(result.out, StartsWith("bad.xml: 151 errors in "));
}

TEST_F(Check, TellsProgramsOfBytesThatAreNoTextInTheEncoding) {
    std::string document = documentWith("<!-- \xA4\xFF\xFF\xFF -->\n");
    document.replace(document.find("UTF-8"), 5, "EUC-JP");
    const Result result = run(
        scratch, Setting{.arguments = {"check", "-", "--log-format", "json"}, .input = std::move(document)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, StartsWith("{\"level\":\"error\",\"subject\":\"standard input\""));
    EXPECT_THAT(result.err,
                HasSubstr("bytes that are no text in the document's encoding, which is \\\"EUC-JP\\\""));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2);
}

struct InputCase {
    const char* name;
    std::string input;
    int exitCode;
    std::string message;
};

class CheckOfAnInput : public testing::TestWithParam<InputCase> {};

TEST_P(CheckOfAnInput, ThatCannotBeOneIsTold) {
    const Scratch scratch;
    scratch.write("empty.xml", "");
    scratch.write("shop.sql", SHOP_SQL);
    fs::create_directory(scratch.path() / "folder");
    const Result result = run(scratch, {"check", GetParam().input});
    EXPECT_EQ(result.err, "oimbridge: error: " + GetParam().message + "\n");
    EXPECT_EQ(result.exitCode, GetParam().exitCode);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CheckOfAnInput,
    testing::Values(
        InputCase{"Missing", "no.xml", 3, "no.xml: cannot be opened: No such file or directory"},
        InputCase{"Folder", "folder", 3, "folder: is a folder\nhint: name a file in it"},
        InputCase{"Empty", "empty.xml", 1,
                  "empty.xml: line 1, column 1: not well-formed: there is nothing in the document"},
        InputCase{"OfNothing", "/dev/null", 1,
                  "/dev/null: line 1, column 1: not well-formed: there is nothing in the document"},
        InputCase{"OfZerosWithoutEnd", "/dev/zero", 1,
                  "/dev/zero: line 1, column 1: not well-formed: this is no XML"},
        InputCase{"OfAnotherFormat", "shop.sql", 1,
                  "shop.sql: line 2, column 1: not well-formed: this is no XML"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Check, OfAnExportTellsWhyAReferencedKeyMayBeMissing) {
    scratch.write("interface.model.json",
                  R"({"format": "oim-source-model", "version": 1, "model": {"name": "m",
        "types": [{"id": "t", "kind": "concrete", "name": "int", "dataType": "SQL_INTEGER"}],
        "children": [{"kind": "package", "name": "p", "elements": [
          {"kind": "class", "id": "a", "name": "A", "classType": 2,
           "attributes": [{"id": "a.i", "name": "i", "type": "t"}],
           "keys": [{"kind": "candidate", "id": "a.k", "name": "k", "unique": true, "attributes": ["a.i"]}]},
          {"kind": "class", "id": "b", "name": "B", "attributes": [{"id": "b.i", "name": "i", "type": "t"}],
           "keys": [{"kind": "foreign", "id": "b.f", "name": "f", "references": "a.k",
                     "attributes": ["b.i"]}]},
          {"kind": "association", "name": "r",
           "roles": [{"class": "a"}, {"class": "b", "foreignKey": "b.f"}]}]}]}})");
    const std::pair<const char*, const char*> views[] = {
        {"dbm",
         "(the referenced key may be left out of the view with its table, or as one that is logical "
         "only or not marked unique)"},
        {"erd",
         "(the referenced key may be left out of the view with its attributes or its entity, or as one "
         "that is physical only)"}};
    for (const auto& [view, reason] : views) {
        const Result result = run(scratch, {"export", "interface.model.json", "-o",
                                            std::string(view) + ".xml", "--view", view, "--check"});
        EXPECT_EQ(result.exitCode, 0) << view;
        EXPECT_THAT(result.err, HasSubstr(reason)) << view;
    }
}

TEST_F(Check, OfAnExportTellsErrorsAndKeepsTheDocument) {
    scratch.write("shop.sql", SHOP_SQL);
    const Result result = run(scratch, Setting{.arguments = {"export", "shop.sql", "out.xml", "--check"},
                                               .environment = {{"ZOR_BRIDGE_PATH", FAULTY_BRIDGE_FOLDER}}});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err,
                HasSubstr("oimbridge: error: out.xml: line 1, column 1: the prefix \"oim\" is used without a "
                          "namespace\n"));
    EXPECT_THAT(result.err,
                EndsWith("oimbridge: note: out.xml: checked: 4 errors in 1 element, 0 objects and 0 "
                         "references; 16 bytes\n"));
    EXPECT_EQ(scratch.read("out.xml"), "<oim:Transfer/>\n");
    const std::vector<std::string> unchecked = {"export", "shop.sql", "out.xml", "--overwrite"};
    EXPECT_EQ(run(scratch,
                  Setting{.arguments = unchecked, .environment = {{"ZOR_BRIDGE_PATH", FAULTY_BRIDGE_FOLDER}}})
                  .exitCode,
              0);
}

TEST_F(Check, OfAnExportTellsThatAllIsWell) {
    scratch.write("shop.sql", SHOP_SQL);
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "--check"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, HasSubstr("oimbridge: note: out.xml: checked: no errors in "));
    EXPECT_THAT(result.out, StartsWith("shop.sql -> out.xml: "));
    const Result piped = run(scratch, {"export", "shop.sql", "-", "--check", "--overwrite"});
    EXPECT_EQ(piped.exitCode, 0);
    EXPECT_THAT(piped.err, HasSubstr("oimbridge: note: standard output: checked: no errors in "));
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "out.xml", "--check", "--overwrite", "-q"}).err, "");
}

}  // namespace
}  // namespace cli_test
