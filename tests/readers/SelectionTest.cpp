#include "Selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using readers::LetterCase;
using readers::Selection;
using readers::SelectionMatcher;
using testing::ElementsAre;
using testing::IsEmpty;

using Patterns = std::vector<std::string>;

Selection select(Patterns schemas, Patterns excludedSchemas, Patterns tables, Patterns excludedTables) {
    Selection selection;
    selection.schemas = std::move(schemas);
    selection.excludedSchemas = std::move(excludedSchemas);
    selection.tables = std::move(tables);
    selection.excludedTables = std::move(excludedTables);
    return selection;
}

Selection selectTables(Patterns tables, Patterns excludedTables) {
    return select({}, {}, std::move(tables), std::move(excludedTables));
}

struct PatternRow {
    const char* description;
    const char* pattern;
    const char* text;
    bool matches;
};

class Pattern : public testing::TestWithParam<PatternRow> {};

TEST_P(Pattern, MatchesWhatItsWildcardsSay) {
    EXPECT_EQ(readers::matchesPattern(GetParam().pattern, GetParam().text), GetParam().matches)
        << GetParam().description << ": " << GetParam().pattern << " on " << GetParam().text;
}

const PatternRow PATTERN_ROWS[] = {
    {"plain text", "orders", "orders", true},
    {"plain text is matched whole", "order", "orders", false},
    {"letter case counts", "Orders", "orders", false},
    {"star stands for nothing", "orders*", "orders", true},
    {"star stands for much", "o*s", "orders", true},
    {"star alone", "*", "", true},
    {"stars in a row", "**a**", "a", true},
    {"star tries again", "*ab", "aab", true},
    {"two stars try again", "*a*b", "xaxaxb", true},
    {"no end", "*a*b", "xaxax", false},
    {"question mark needs a character", "order?", "order", false},
    {"question mark takes one", "order?", "orders", true},
    {"question mark takes one character of two bytes", "gr?n", "gr\xC3\xBCn", true},
    {"question mark does not take half a character", "gr??n", "gr\xC3\xBCn", false},
    {"star steps over whole characters", "*?n", "gr\xC3\xBCn", true},
    {"empty pattern", "", "", true},
    {"empty pattern and text", "", "a", false},
    {"brackets are plain", "[ab]", "a", false},
};

INSTANTIATE_TEST_SUITE_P(Rows, Pattern, testing::ValuesIn(PATTERN_ROWS));

TEST(Selection, WantsEverythingWithoutPatterns) {
    SelectionMatcher matcher{Selection{}};
    EXPECT_TRUE(matcher.wantsSchema("main"));
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
    EXPECT_THAT(matcher.unmatchedPatterns(), IsEmpty());
}

TEST(Selection, IncludingPatternsLeaveTheRestOut) {
    SelectionMatcher matcher{selectTables({"order*"}, {})};
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
    EXPECT_FALSE(matcher.wantsTable("main", "customers"));
}

TEST(Selection, ExcludingPatternsLeaveTheRestIn) {
    SelectionMatcher matcher{selectTables({}, {"tmp_*"})};
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
    EXPECT_FALSE(matcher.wantsTable("main", "tmp_orders"));
}

struct ConflictRow {
    const char* description;
    const char* table;  ///< of the schema main
    Patterns tables;
    Patterns excludedTables;
    bool isWanted;
};

class Conflict : public testing::TestWithParam<ConflictRow> {};

TEST_P(Conflict, IsDecidedByTheMostSpecificPattern) {
    SelectionMatcher matcher{selectTables(GetParam().tables, GetParam().excludedTables)};
    EXPECT_EQ(matcher.wantsTable("main", GetParam().table), GetParam().isWanted) << GetParam().description;
}

const ConflictRow CONFLICT_ROWS[] = {
    {"no pattern but a star", "orders", {"*", "order_lines_new"}, {"order_*"}, true},
    {"more characters exclude", "order_lines", {"*", "order_lines_new"}, {"order_*"}, false},
    {"the whole name includes", "order_lines_new", {"*", "order_lines_new"}, {"order_*"}, true},
    {"characters count, not bytes",
     "\xC3\xBC\xC3\xBC"
     "abc",
     {"*abc"},
     {"\xC3\xBC\xC3\xBC*"},
     true},
    {"an exclusion wins a tie", "order", {"order*"}, {"*order"}, false},
    {"an exclusion wins over itself", "order", {"order"}, {"order"}, false},
    {"a name wins over a star for nothing", "order", {"order"}, {"order*"}, true},
    {"a name wins over a longer wildcard", "order", {"order"}, {"*order*"}, true},
    {"a name wins over a schema's tables", "film", {"film"}, {"main.*"}, true},
    {"so it does when it excludes", "film", {"main.*"}, {"film"}, false},
    {"a name wins over a schema and a wildcard", "film", {"film"}, {"main.fil*"}, true},
    {"part of a name wins over a schema's tables", "film", {"f*"}, {"main.*"}, true},
    {"a schema decides between equal names", "film", {"main.film"}, {"film"}, true},
    {"a schema decides between equal wildcards", "film", {"main.f*"}, {"f*"}, true},
    {"a schema's name wins over its wildcard", "film", {"main.film"}, {"main*.film"}, true},
    {"any schema is as good as none", "film", {"*.film"}, {"film"}, false},
    {"a name with a dot is a name", "film.old", {"film.old"}, {"main.*"}, true},
    {"a name with a dot wins over a wildcard", "film.old", {"film.old"}, {"film.ol*"}, true},
};

INSTANTIATE_TEST_SUITE_P(Rows, Conflict, testing::ValuesIn(CONFLICT_ROWS));

TEST(Selection, TableIsWantedOnlyWhenItsSchemaIs) {
    SelectionMatcher matcher{select({"sales"}, {}, {"orders"}, {})};
    EXPECT_TRUE(matcher.wantsTable("sales", "orders"));
    EXPECT_FALSE(matcher.wantsTable("sales", "customers"));
    EXPECT_FALSE(matcher.wantsTable("stock", "orders"));
}

TEST(Selection, PatternWithADotNamesSchemaAndTable) {
    SelectionMatcher matcher{selectTables({"sales.*"}, {"*.log"})};
    EXPECT_TRUE(matcher.wantsTable("sales", "orders"));
    EXPECT_FALSE(matcher.wantsTable("stock", "orders"));
    EXPECT_FALSE(matcher.wantsTable("archive", "log"));
}

TEST(Selection, PatternWithoutADotIsNotHeldAgainstTheSchema) {
    SelectionMatcher matcher{selectTables({"s*"}, {})};
    EXPECT_FALSE(matcher.wantsTable("sales", "orders"));
    EXPECT_TRUE(matcher.wantsTable("main", "stock"));
}

TEST(Selection, TableWhoseNameHasADotCanBeNamed) {
    SelectionMatcher matcher{selectTables({"orders.2024"}, {})};
    EXPECT_TRUE(matcher.wantsTable("main", "orders.2024"));
    EXPECT_FALSE(matcher.wantsTable("main", "orders.2025"));
}

TEST(Selection, LetterCaseIsIgnoredForSourcesThatIgnoreIt) {
    const Selection selection = select({"MAIN"}, {}, {"Main.ORDERS"}, {});
    SelectionMatcher matcher(selection, LetterCase::IGNORED);
    EXPECT_TRUE(matcher.wantsTable("main", "Orders"));
    SelectionMatcher strict(selection);
    EXPECT_FALSE(strict.wantsTable("main", "Orders"));
}

TEST(Selection, NamesPatternsThatMatchedNothingAsGiven) {
    SelectionMatcher matcher(select({"MAIN", "hr"}, {"temp"}, {"Orders", "invoices"}, {"main.x*"}),
                             LetterCase::IGNORED);
    matcher.wantsTable("main", "orders");
    EXPECT_THAT(matcher.unmatchedPatterns(), ElementsAre("hr", "temp", "invoices", "main.x*"));
}

TEST(Selection, OverruledPatternHasMatched) {
    SelectionMatcher matcher{selectTables({"orders"}, {"o*"})};
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
    EXPECT_THAT(matcher.unmatchedPatterns(), IsEmpty());
}

TEST(Selection, TablesOfUnwantedSchemasMatchNoPattern) {
    SelectionMatcher matcher{select({}, {"hr"}, {"hr.staff"}, {})};
    EXPECT_FALSE(matcher.wantsTable("hr", "staff"));
    EXPECT_THAT(matcher.unmatchedPatterns(), ElementsAre("hr.staff"));
}

TEST(Selection, TellsWhatLeavesATableOut) {
    using readers::SelectionPart;
    SelectionMatcher matcher{select({"main", "old*"}, {"old"}, {"o*"}, {"order?"})};
    EXPECT_EQ(matcher.findRefusal("main", "offers"), std::nullopt);
    EXPECT_EQ(matcher.findRefusal("main", "staff"), SelectionPart::TABLES);
    EXPECT_EQ(matcher.findRefusal("main", "orders"), SelectionPart::EXCLUDED_TABLES);
    EXPECT_EQ(matcher.findRefusal("temp", "offers"), SelectionPart::SCHEMAS);
    EXPECT_EQ(matcher.findRefusal("old", "orders"), SelectionPart::EXCLUDED_SCHEMAS);
}

class CollectingContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override {
        warnings.push_back(where + ": " + text);
    }
    void progress(std::uint64_t /*objects*/) override {}
    std::vector<std::string> warnings;
};

TEST(Selection, WarnsOfPatternsThatMatchedNothing) {
    SelectionMatcher matcher{select({"hr"}, {}, {"staff"}, {})};
    CollectingContext context;
    matcher.warnOfUnmatchedPatterns(context);
    EXPECT_THAT(context.warnings, ElementsAre("hr: no schema matches this pattern",
                                              "staff: no table or view matches this pattern"));
}

}  // namespace
