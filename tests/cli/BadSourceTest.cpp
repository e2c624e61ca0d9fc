// What every reader, and the program without one, says to what is no source of its kind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "ProgramRunner.h"
#include "Sources.h"

namespace fs = std::filesystem;

namespace cli_test {
namespace {

/// What there is to be named as a source.
class BadSources {
  public:
    BadSources() {
        scratch.write("empty", "");
        scratch.write("blank", " \n\t\n");
        scratch.write("zeros", std::string(5000, '\0'));
        scratch.write("picture.png", "\x89PNG\r\n\x1a\n\x01\x02\x03");
        scratch.write("encrypted.db", "\x8f\x1c\xe2\x07\xb0" + std::string(4091, '\xa7'));
        scratch.write("NOISE.SQLITE3", "\x03\xfe\x99 noise");
        scratch.write("page.html", "<!DOCTYPE html>\n<html><body>Hello</body></html>\n");
        scratch.write("list.json", "[1, 2, 3]\n");
        scratch.write("shop.sql", SHOP_SQL);
        scratch.write("m.model.json", modelDocument("m"));
        makeDatabase(scratch / "shop.sqlite", SHOP_SQL);
        scratch.write("cut.sqlite", scratch.read("shop.sqlite").substr(0, 700));
        fs::create_directory(scratch.path() / "folder");
    }

    Scratch scratch;
};

struct BadSource {
    std::string source;
    int exitCode;
    std::string message;  ///< without "oimbridge: error: "
};

void PrintTo(const BadSource& row, std::ostream* out) {
    *out << row.source;
}

class BadSourceTest : public testing::TestWithParam<BadSource> {};

TEST_P(BadSourceTest, IsToldTheSameByEveryCommand) {
    const BadSources sources;
    const std::vector<std::string> before = sources.scratch.list();
    for (const std::string command : {"export", "inspect", "convert"}) {
        std::vector<std::string> arguments = {command, GetParam().source};
        if (command != "inspect") {
            arguments.emplace_back("out");
        }
        const Result result = run(sources.scratch, arguments);
        EXPECT_EQ(result.err, "oimbridge: error: " + GetParam().message + "\n") << command;
        // What was read is reported before it is found to be nothing.
        EXPECT_EQ(result.out.empty(), command != "inspect" || GetParam().exitCode != 6) << command;
        EXPECT_EQ(result.exitCode, GetParam().exitCode) << command;
    }
    EXPECT_EQ(sources.scratch.list(), before);
}

std::string ofNoKnownKind(const std::string& name) {
    return name +
           ": this is no kind of source that is known\nhint: when it is one, name its kind in front: sqlite: "
           "(SQLite "
           "database), xmi: (UML model in XMI), sql: (SQL script in SQLite's dialect) or json: (Model "
           "document)";
}

std::string ofNoKnownKindButCalledADatabase(const std::string& name) {
    return ofNoKnownKind(name) +
           "; if this is a SQLite database, it is encrypted, or its beginning is damaged";
}

std::string noDatabase(const std::string& name) {
    return name +
           ": it is not a SQLite database, or it is encrypted\nhint: an encrypted database must be decrypted "
           "first";
}

std::string nameOf(const testing::TestParamInfo<BadSource>& row) {
    std::string name = row.param.source;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(
    WithoutAPrefix, BadSourceTest,
    testing::Values(BadSource{"blank", 4, ofNoKnownKind("blank")},
                    BadSource{"zeros", 4, ofNoKnownKind("zeros")},
                    BadSource{"picture.png", 4, ofNoKnownKind("picture.png")},
                    BadSource{"encrypted.db", 4, ofNoKnownKindButCalledADatabase("encrypted.db")},
                    BadSource{"NOISE.SQLITE3", 4, ofNoKnownKindButCalledADatabase("NOISE.SQLITE3")},
                    BadSource{"page.html", 4, ofNoKnownKind("page.html")},
                    BadSource{"list.json", 4, ofNoKnownKind("list.json")},
                    BadSource{"empty", 4, "empty: there is nothing in it"},
                    BadSource{"cut.sqlite", 4,
                              "cut.sqlite: it is cut off: it should hold 24576 bytes and holds 700\nhint: "
                              "copy or download it again"},
                    BadSource{"folder", 3, "folder: is a folder\nhint: name a file in it"},
                    BadSource{"/dev/null", 3, "/dev/null: is a device, not a file"},
                    BadSource{"/dev/zero", 3, "/dev/zero: is a device, not a file"},
                    BadSource{"no.such", 3, "no.such: cannot be opened: No such file or directory"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    AsAModelDocument, BadSourceTest,
    testing::Values(
        BadSource{"json:folder", 3, "folder: is a folder\nhint: name a file in it"},
        BadSource{"json:/dev/null", 3, "/dev/null: is a device, not a file"},
        BadSource{"json:/dev/zero", 3, "/dev/zero: is a device, not a file"},
        BadSource{"json:no.such", 3, "no.such: cannot be opened: No such file or directory"},
        BadSource{"json:empty", 4,
                  "empty: line 1, column 1: found the end of the document; expected a value"},
        BadSource{"json:blank", 4,
                  "blank: line 3, column 1: found the end of the document; expected a value"},
        BadSource{"json:zeros", 4, "zeros: line 1, column 1: found the character U+0000; expected a value"},
        BadSource{"json:picture.png", 4,
                  "picture.png: line 1, column 1: found the byte 89, which is not UTF-8; expected a value"},
        BadSource{"json:page.html", 4, "page.html: line 1, column 1: found <!DOCTYPE; expected a value"},
        BadSource{"json:list.json", 4,
                  "list.json: line 1, column 1: found a list; expected an object, the model document"},
        BadSource{"json:shop.sql", 4, "shop.sql: line 2, column 1: found CREATE; expected a value"},
        BadSource{"json:shop.sqlite", 4, "shop.sqlite: line 1, column 1: found SQLite; expected a value"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    AsAScript, BadSourceTest,
    testing::Values(
        BadSource{"sql:folder", 3, "folder: is a folder\nhint: name a file in it"},
        BadSource{"sql:/dev/null", 3, "/dev/null: is a device, not a file"},
        BadSource{"sql:/dev/zero", 3, "/dev/zero: is a device, not a file"},
        BadSource{"sql:no.such", 3, "no.such: cannot be opened: No such file or directory"},
        BadSource{"sql:empty", 6,
                  "empty: there is no table, view or class in it\nhint: --allow-empty accepts that"},
        BadSource{"sql:blank", 6,
                  "blank: there is no table, view or class in it\nhint: --allow-empty accepts that"},
        BadSource{"sql:zeros", 4, "zeros: line 1: there is a NUL character; this is no text"},
        BadSource{"sql:picture.png", 4, "picture.png: line 1: near \"\\x89PNG\": syntax error"},
        BadSource{"sql:page.html", 4, "page.html: line 1: near \"<\": syntax error"},
        BadSource{"sql:list.json", 4, "list.json: line 1: near \"[1, 2, 3]\": syntax error"},
        BadSource{"sql:m.model.json", 4, "m.model.json: line 1: unrecognized token: \"{\""},
        BadSource{"sql:shop.sqlite", 4, "shop.sqlite: line 1: there is a NUL character; this is no text"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    AsADatabase, BadSourceTest,
    testing::Values(BadSource{"sqlite:folder", 3, "folder: is a folder\nhint: name a file in it"},
                    BadSource{"sqlite:/dev/null", 3, "/dev/null: is a device, not a file"},
                    BadSource{"sqlite:/dev/zero", 3, "/dev/zero: is a device, not a file"},
                    BadSource{"sqlite:no.such", 3, "no.such: cannot be opened: No such file or directory"},
                    BadSource{"sqlite:empty", 4,
                              "empty: it is empty\nhint: name a database that holds something"},
                    BadSource{"sqlite:blank", 4, noDatabase("blank")},
                    BadSource{"sqlite:zeros", 4, noDatabase("zeros")},
                    BadSource{"sqlite:picture.png", 4, noDatabase("picture.png")},
                    BadSource{"sqlite:page.html", 4, noDatabase("page.html")},
                    BadSource{"sqlite:list.json", 4, noDatabase("list.json")},
                    BadSource{"sqlite:shop.sql", 4, noDatabase("shop.sql")},
                    BadSource{"sqlite:m.model.json", 4, noDatabase("m.model.json")},
                    BadSource{"sqlite:cut.sqlite", 4,
                              "cut.sqlite: it is cut off: it should hold 24576 bytes and holds 700\nhint: "
                              "copy or download it again"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    AsAUmlModel, BadSourceTest,
    testing::Values(
        BadSource{"xmi:folder", 3, "folder: is a folder\nhint: name a file in it"},
        BadSource{"xmi:/dev/null", 3, "/dev/null: is a device, not a file"},
        BadSource{"xmi:/dev/zero", 3, "/dev/zero: is a device, not a file"},
        BadSource{"xmi:no.such", 3, "no.such: cannot be opened: No such file or directory"},
        BadSource{"xmi:empty", 4, "empty: there is nothing in it"},
        BadSource{"xmi:blank", 4, "blank: there is nothing in it"},
        BadSource{"xmi:zeros", 4, "zeros: there is nothing in it"},
        BadSource{"xmi:picture.png", 4,
                  "picture.png: this is not XML: it begins with bytes that are no text"},
        BadSource{"xmi:page.html", 4,
                  "page.html: the file brings a document type (<!DOCTYPE ...>), and those are not "
                  "read\nhint: take the document type out of a copy of the file; the model does not need it"},
        BadSource{"xmi:list.json", 4, "list.json: this is not XML: it begins with \"[1, 2, 3]\""},
        BadSource{"xmi:shop.sqlite", 4, "shop.sqlite: this is not XML: it begins with \"SQLite format 3\""},
        BadSource{"xmi:m.model.json", 4,
                  "m.model.json: this is not XML: it begins with \"{\"format\": \"oim-\""}),
    nameOf);

TEST(ASourceWithoutPermission, IsToldTheSameByEveryCommand) {
    const BadSources sources;
    fs::permissions(sources.scratch.path(), fs::perms(0755));
    fs::permissions(sources.scratch.path() / "shop.sql", fs::perms::none);
    for (const std::string prefix : {"", "json:", "sql:", "sqlite:", "xmi:"}) {
        for (const std::string command : {"export", "inspect", "convert", "check"}) {
            // The administrator may read everything.
            const auto asNobody = [] { [[maybe_unused]] const bool done = ::setuid(65534) == 0; };
            const std::string source = (command == "check" ? "" : prefix) + "shop.sql";
            const Result result =
                run(sources.scratch, Setting{.arguments = {command, source, "-q"}, .prepare = asNobody});
            EXPECT_EQ(result.err, "oimbridge: error: shop.sql: cannot be opened: Permission denied\n")
                << source;
            EXPECT_EQ(result.exitCode, 3) << command;
        }
    }
}

}  // namespace
}  // namespace cli_test
