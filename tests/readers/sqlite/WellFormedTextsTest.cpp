// Databases whose names and other texts are not UTF-8.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SqliteTestSupport.h"
#include "ZORModelCheck.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(WellFormedTexts, StandInTheModelWhileNamesAreMatchedByTheirBytes) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE \"a\xff\" (id INTEGER PRIMARY KEY, \"n\xe9\" TEXT DEFAULT 'd\xff'"
        " CHECK (\"n\xe9\" IN ('v\xff', 'v\xfe')), \"n\xe8\" INT, CONSTRAINT \"u\xff\" UNIQUE (\"n\xe8\"));"
        "CREATE TABLE \"a\xfe\" (x INT REFERENCES \"a\xff\" (\"n\xe8\"), y TEXT AS ('g\xff' || x));"
        "CREATE INDEX \"i\xff\" ON \"a\xff\" (\"n\xe8\", \"n\xe9\");"
        "CREATE VIEW \"v\xff\" AS SELECT \"n\xe9\" FROM \"a\xff\";"
        "CREATE TRIGGER \"t\xff\" AFTER INSERT ON \"a\xfe\" BEGIN SELECT 'b\xff'; END;");
    EXPECT_EQ(support::describe(*reading.model),
              "table a\uFFFD\n"
              "  id INTEGER\n"
              "  n\uFFFD a\uFFFD_n\uFFFD (TEXT: v\uFFFD|v\uFFFD) null = 'd\uFFFD'\n"
              "  n\uFFFD INT null\n"
              "  primary a\uFFFD_pk (id)\n"
              "  unique u\uFFFD (n\uFFFD)\n"
              "  index i\uFFFD (n\uFFFD, n\uFFFD)\n"
              "table a\uFFFD\n"
              "  x INT null\n"
              "  y TEXT null -- Generated column, virtual: 'g\uFFFD' || x\n"
              "  foreign a\uFFFD_x_fk (x) -> a\uFFFD.u\uFFFD (n\uFFFD)\n"
              "  trigger t\uFFFD after insert: BEGIN SELECT 'b\uFFFD'; END\n"
              "view v\uFFFD: SELECT \"n\uFFFD\" FROM \"a\uFFFD\"\n"
              "  n\uFFFD TEXT <- a\uFFFD.n\uFFFD\n"
              "relationship a\uFFFD_x_fk: a\uFFFD 0..1, a\uFFFD 0..*, delete no action, update no action\n");
    EXPECT_THAT(
        reading.context.warnings,
        ElementsAre("main.a\uFFFD: here, and in 20 other texts, U+FFFD stands for what is not UTF-8"));
    EXPECT_THAT(checkModel(*reading.model), IsEmpty());
}

TEST(WellFormedTexts, AreToldOfWithTheFirstOfThem) {
    EXPECT_THAT(support::readDatabase("CREATE TABLE t (a INT, \"b\xff\" INT)").context.warnings,
                ElementsAre("main.t.b\uFFFD: here U+FFFD stands for what is not UTF-8"));
    EXPECT_THAT(
        support::readDatabase("CREATE TABLE t (a INT DEFAULT '\xff', b INT DEFAULT '\xff')").context.warnings,
        ElementsAre("main.t.a: here, and in another text, U+FFFD stands for what is not UTF-8"));
    EXPECT_THAT(support::readDatabase("CREATE TABLE \"a\xff\" (a \"T\xff\", \"b\xff\" INT)").context.warnings,
                ElementsAre("main.a\uFFFD: here, and in 2 other texts, U+FFFD stands for what is not UTF-8"));
    EXPECT_THAT(support::readDatabase("CREATE TABLE gr\u00F6\u00DFe (\U0001F642 INT)").context.warnings,
                IsEmpty());
}

}  // namespace
