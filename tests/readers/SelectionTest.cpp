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

TEST(Selection, MostSpecificPatternDecidesWhateverTheirOrder) {
    SelectionMatcher matcher{selectTables({"*", "order_lines_new"}, {"order_*"})};
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
    EXPECT_FALSE(matcher.wantsTable("main", "order_lines"));
    EXPECT_TRUE(matcher.wantsTable("main", "order_lines_new"));
}

TEST(Selection, SpecificityCountsCharactersNotBytes) {
    SelectionMatcher matcher{selectTables({"*abc"}, {"\xC3\xBC\xC3\xBC*"})};
    EXPECT_TRUE(matcher.wantsTable("main",
                                   "\xC3\xBC\xC3\xBC"
                                   "abc"));
}

TEST(Selection, ExclusionWinsATie) {
    SelectionMatcher matcher{selectTables({"order*"}, {"*order"})};
    EXPECT_FALSE(matcher.wantsTable("main", "order"));
    EXPECT_TRUE(matcher.wantsTable("main", "orders"));
}

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
