#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sqlite/ViewNesting.h"

namespace {

using readers::sqlite::findTableReferences;
using readers::sqlite::ViewNesting;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TableReferences, StandBehindFromJoinAndIn) {
    EXPECT_THAT(findTableReferences("SELECT a, b FROM T1 x, main.\"t 2\" AS y, 't3'"),
                ElementsAre("t1", "t 2", "t3"));
    EXPECT_THAT(
        findTableReferences("SELECT 1 FROM a LEFT JOIN b ON f(a.x, c) = b.y, d WHERE x IN e AND y IN (f, g)"),
        ElementsAre("a", "b", "d", "e"));
    EXPECT_THAT(
        findTableReferences("SELECT (SELECT max(x), y FROM a) FROM (SELECT 1 FROM b, c) s, (d JOIN e)"),
        ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_THAT(findTableReferences("SELECT 1 FROM a GROUP BY x, y ORDER BY z, w"), ElementsAre("a"));
    EXPECT_THAT(findTableReferences("SELECT 1, 2"), IsEmpty());
    EXPECT_THAT(findTableReferences("SELECT 1 FROM a window, b"), ElementsAre("a", "b"));
}

TEST(TableReferences, AreNotTheTablesThatWithDefines) {
    EXPECT_THAT(findTableReferences(
                    "WITH RECURSIVE a(n) AS (SELECT 1 UNION ALL SELECT n FROM a, x), b AS NOT MATERIALIZED"
                    " (SELECT 2 FROM a) SELECT * FROM b, c"),
                ElementsAre("x", "c"));
    EXPECT_THAT(findTableReferences("SELECT * FROM (WITH a AS (SELECT 1) SELECT * FROM a), a"),
                ElementsAre("a"))
        << "only in its own parentheses";
    EXPECT_THAT(findTableReferences("WITH a AS (SELECT 1) SELECT * FROM main.a"), ElementsAre("a"))
        << "a name with a schema is a table's";
    EXPECT_THAT(findTableReferences("SELECT with a, b FROM a"), ElementsAre("a"))
        << "a column may be called with";
}

TEST(ViewNesting, IsModestUpToADepth) {
    ViewNesting nesting;
    nesting.add("v0", "SELECT * FROM t");
    for (int i = 1; i <= 150; ++i) {
        nesting.add("V" + std::to_string(i), "SELECT * FROM v" + std::to_string(i - 1));
    }
    nesting.measure();
    EXPECT_TRUE(nesting.isModest("v99"));
    EXPECT_FALSE(nesting.isModest("v100"));
    EXPECT_FALSE(nesting.isModest("v150"));
    EXPECT_TRUE(nesting.isModest("t")) << "no view at all";
    EXPECT_FALSE(nesting.areAllModest());
}

TEST(ViewNesting, IsModestUpToANumberOfTables) {
    ViewNesting nesting;
    nesting.add("v0", "SELECT * FROM t");
    for (int i = 1; i <= 70; ++i) {
        const std::string below = "v" + std::to_string(i - 1);
        nesting.add("v" + std::to_string(i), "SELECT * FROM " + below + " a JOIN " + below + " b");
    }
    nesting.measure();
    EXPECT_TRUE(nesting.isModest("v7"));
    EXPECT_FALSE(nesting.isModest("v10"));
    EXPECT_FALSE(nesting.isModest("v70")) << "sizes do not wrap around";
}

TEST(ViewNesting, IsNotModestForViewsDefinedByThemselves) {
    ViewNesting nesting;
    nesting.add("a", "SELECT * FROM b");
    nesting.add("b", "SELECT * FROM A");
    nesting.add("c", "SELECT * FROM b");
    nesting.add("d", "WITH d AS (SELECT 1) SELECT * FROM d");
    nesting.measure();
    EXPECT_FALSE(nesting.isModest("a"));
    EXPECT_FALSE(nesting.isModest("b"));
    EXPECT_FALSE(nesting.isModest("c"));
    EXPECT_TRUE(nesting.isModest("d"));
}

TEST(ViewNesting, TakesViewsOfOneNameTogether) {
    ViewNesting nesting;
    nesting.add("a", "SELECT * FROM main.b");
    nesting.add("b", "SELECT * FROM a");
    nesting.add("A", "SELECT 1");
    nesting.measure();
    EXPECT_FALSE(nesting.isModest("a"));
}

TEST(ViewNesting, KnowsCompoundViewsAndWhatIsMadeOfThem) {
    ViewNesting nesting;
    nesting.add("over", "SELECT * FROM both");
    nesting.add("both", "SELECT 1 UNION SELECT 2");
    nesting.add("plain", "SELECT * FROM t");
    nesting.measure();
    EXPECT_TRUE(nesting.isCompound("both"));
    EXPECT_TRUE(nesting.isCompound("over"));
    EXPECT_FALSE(nesting.isCompound("plain"));
}

}  // namespace
