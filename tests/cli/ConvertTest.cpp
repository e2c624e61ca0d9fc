// Saving the model of a source, and what an export makes of it afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

class Convert : public testing::Test {
  protected:
    Convert() { scratch.write("shop.sql", SHOP_SQL); }
    Scratch scratch;
};

TEST_F(Convert, GivesAModelWhoseExportIsTheSameInEveryView) {
    ASSERT_EQ(run(scratch, {"convert", "shop.sql", "saved.model.json"}).exitCode, 0);
    for (const std::string view : {"uml", "erd", "dbm", "erd+dbm"}) {
        for (const std::string source : {"shop.sql", "saved.model.json"}) {
            const Result result =
                run(scratch,
                    Setting{.arguments = {"export", source, source + ".xml", "--view", view, "--overwrite"},
                            .environment = {{"SOURCE_DATE_EPOCH", "0"}}});
            ASSERT_EQ(result.exitCode, 0) << result.err;
        }
        EXPECT_EQ(scratch.read("saved.model.json.xml"), scratch.read("shop.sql.xml")) << view;
    }
}

TEST_F(Convert, GivesAModelWhoseExportIsTheSameThoughNamesAreNotUtf8) {
    makeDatabase(scratch / "odd.db",
                 "CREATE TABLE \"a\xff\" (id INTEGER PRIMARY KEY, \"n\xe9\" TEXT, \"n\xe8\" TEXT UNIQUE);"
                 "CREATE TABLE \"a\xfe\" (x TEXT REFERENCES \"a\xff\" (\"n\xe8\"), y \"T\xff\", z \"T\xfe\");"
                 "CREATE INDEX \"i\xff\" ON \"a\xff\" (\"n\xe9\");"
                 "CREATE VIEW \"v\xff\" AS SELECT \"n\xe9\" FROM \"a\xff\";");
    const Result saved = run(scratch, {"convert", "odd.db", "odd.model.json"});
    EXPECT_EQ(saved.exitCode, 0);
    EXPECT_THAT(saved.err,
                MatchesRegex("oimbridge: warning: odd.db: [^\n]*: here, and in [0-9]+ other texts, "
                             "U\\+FFFD stands for what is not UTF-8\n"));
    EXPECT_THAT(saved.out, HasSubstr("2 tables"));
    for (const std::string view : {"uml", "erd", "dbm", "erd+dbm"}) {
        for (const std::string source : {"odd.db", "odd.model.json"}) {
            const Result result =
                run(scratch, Setting{.arguments = {"export", source, source + ".xml", "--view", view,
                                                   "--dbm-typeset", "Oracle 8.x", "--overwrite", "--check"},
                                     .environment = {{"SOURCE_DATE_EPOCH", "0"}}});
            ASSERT_EQ(result.exitCode, 0) << result.err;
        }
        EXPECT_EQ(scratch.read("odd.model.json.xml"), scratch.read("odd.db.xml")) << view;
    }
}

TEST_F(Convert, OfASavedModelGivesTheSameFile) {
    ASSERT_EQ(run(scratch, {"convert", "shop.sql", "a.model.json"}).exitCode, 0);
    ASSERT_EQ(run(scratch, {"convert", "a.model.json", "b.model.json"}).exitCode, 0);
    EXPECT_EQ(scratch.read("b.model.json"), scratch.read("a.model.json"));
}

TEST_F(Convert, NamesTheFileForTheSourceAndSumsUp) {
    const Result result = run(scratch, {"convert", "shop.sql"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(
        result.out,
        MatchesRegex("shop\\.sql -> shop\\.model\\.json: model \"shop\": 1 schema, 3 tables, 7 columns, .*; "
                     "[0-9.]+ kB in [0-9.]+ s\n"));
    EXPECT_EQ(result.err,
              "oimbridge: note: shop.sql: not carried over: collations (1)\nhint: --verbose lists each\n");
    EXPECT_THAT(scratch.list(), ElementsAre("shop.model.json", "shop.sql"));
}

TEST_F(Convert, WritesToStandardOutput) {
    const Result result =
        run(scratch, Setting{.arguments = {"convert", "sql:-", "-", "--model-name", "m"}, .input = SHOP_SQL});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.out,
                StartsWith("{\n  \"format\": \"oim-source-model\",\n  \"version\": 1,\n  \"model\": {\n"
                           "    \"name\": \"m\",\n"));
    EXPECT_THAT(result.out, EndsWith("\n}\n"));
    EXPECT_THAT(result.err,
                HasSubstr("oimbridge: note: standard input: written to standard output: model \"m\": "));
}

TEST_F(Convert, SelectsAndFindsAsAnExportDoes) {
    ASSERT_EQ(
        run(scratch, {"convert", "shop.sql", "some.model.json", "--table", "product", "--no-views"}).exitCode,
        0);
    const std::string saved = scratch.read("some.model.json");
    EXPECT_THAT(saved, HasSubstr("\"name\": \"product\""));
    EXPECT_THAT(saved, testing::Not(HasSubstr("\"name\": \"customer\"")));
    EXPECT_EQ(run(scratch, {"convert", "shop.sql", "strict.model.json", "--strict"}).exitCode, 1);
    EXPECT_TRUE(scratch.exists("strict.model.json"));
    EXPECT_EQ(run(scratch, {"convert", "shop.sql", "none.model.json", "--table", "x*"}).exitCode, 6);
    EXPECT_FALSE(scratch.exists("none.model.json"));
}

TEST_F(Convert, ReplacesNothingUnlessAsked) {
    scratch.write("old.model.json", "old");
    const Result refused = run(scratch, {"convert", "shop.sql", "old.model.json"});
    EXPECT_EQ(refused.exitCode, 5);
    EXPECT_EQ(refused.err,
              "oimbridge: error: old.model.json: exists already\nhint: --overwrite replaces it\n");
    EXPECT_EQ(scratch.read("old.model.json"), "old");
    EXPECT_EQ(run(scratch, {"convert", "shop.sql", "old.model.json", "--overwrite"}).exitCode, 0);
    EXPECT_THAT(scratch.read("old.model.json"), StartsWith("{"));
}

TEST_F(Convert, RefusesToReplaceItsSource) {
    scratch.write("m.model.json", modelDocument("m"));
    const Result result = run(scratch, {"convert", "m.model.json", "--overwrite"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(
        result.err,
        "oimbridge: error: m.model.json: the output is the source itself\nhint: give OUT another name\n");
}

TEST_F(Convert, LeavesTheEarlierFileWhenTheDiskIsFull) {
    scratch.write("old.model.json", "old");
    const Result result =
        run(scratch,
            Setting{.arguments = {"convert", "shop.sql", "old.model.json", "--overwrite"}, .prepare = [] {
                        const rlimit limit = {1000, 1000};
                        ::setrlimit(RLIMIT_FSIZE, &limit);
                    }});
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.err, "oimbridge: error: old.model.json: cannot be written: File too large\n");
    EXPECT_EQ(scratch.read("old.model.json"), "old");
    EXPECT_THAT(scratch.list(), ElementsAre("old.model.json", "shop.sql"));
}

TEST_F(Convert, WarnsOfTextsThatAreNotUtf8) {
    scratch.write("a\xff.sql", SHOP_SQL);
    const Result result = run(scratch, {"convert", "a\xff.sql", "out.model.json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err,
                StartsWith("oimbridge: warning: a\\xff.sql: 2 texts are not UTF-8: U+FFFD stands for what "
                           "is ill-formed\n"));
    EXPECT_THAT(scratch.read("out.model.json"), HasSubstr("\"name\": \"a\xEF\xBF\xBD\""));
}

}  // namespace
}  // namespace cli_test
