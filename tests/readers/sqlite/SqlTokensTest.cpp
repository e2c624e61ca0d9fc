#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sqlite/SqlTokens.h"

namespace {

using readers::sqlite::Token;
using readers::sqlite::TokenCursor;
using readers::sqlite::Tokenizer;
using testing::ElementsAre;

/// One letter for the kind and the text of every token.
std::vector<std::string> tokensOf(std::string_view sql) {
    constexpr std::string_view KINDS = "ewqsbnvy";  // in the order of Token::Kind
    std::vector<std::string> tokens;
    Tokenizer tokenizer(sql);
    for (Token token = tokenizer.next(); !token.isEnd(); token = tokenizer.next()) {
        tokens.push_back(KINDS[static_cast<std::size_t>(token.kind)] + (":" + std::string(token.text)));
    }
    return tokens;
}

TEST(SqlTokens, TellsTheKindsApart) {
    EXPECT_THAT(tokensOf("SELECT a1$, 12.5e-3 FROM t WHERE x=?1"),
                ElementsAre("w:SELECT", "w:a1$", "y:,", "n:12.5e-3", "w:FROM", "w:t", "w:WHERE", "w:x",
                            "y:=", "v:?1"));
    EXPECT_THAT(tokensOf("x'0aFF' X'' xy :a @b $c"),
                ElementsAre("b:x'0aFF'", "b:X''", "w:xy", "v::a", "v:@b", "v:$c"));
    EXPECT_THAT(tokensOf(".5 0x1F+2 1e5 1e+5 3+4"),
                ElementsAre("n:.5", "n:0x1F", "y:+", "n:2", "n:1e5", "n:1e+5", "n:3", "y:+", "n:4"));
    EXPECT_THAT(tokensOf("größe naïve_2"), ElementsAre("w:größe", "w:naïve_2"));
}

TEST(SqlTokens, PassesOverComments) {
    EXPECT_THAT(tokensOf("a -- b 'c\n d /* e -- f\n */ g"), ElementsAre("w:a", "w:d", "w:g"));
    EXPECT_THAT(tokensOf("a - - b / * c"), ElementsAre("w:a", "y:-", "y:-", "w:b", "y:/", "y:*", "w:c"));
    EXPECT_THAT(tokensOf("-- only"), ElementsAre());
    EXPECT_THAT(tokensOf("'--' \"/*\""), ElementsAre("s:'--'", "q:\"/*\""));
}

TEST(SqlTokens, KeepsQuotedTextTogether) {
    EXPECT_THAT(tokensOf(R"('it''s' "a""b" `c``d` [e"f g])"),
                ElementsAre("s:'it''s'", R"(q:"a""b")", "q:`c``d`", R"(q:[e"f g])"));
    EXPECT_THAT(tokensOf("''''"), ElementsAre("s:''''"));
}

TEST(SqlTokens, EndsUnclosedTextAtTheEnd) {
    for (const char* sql : {"'open", "\"open", "`open", "[open", "x'open", "'open''"}) {
        EXPECT_EQ(tokensOf(sql).size(), 1U) << sql;
    }
    EXPECT_THAT(tokensOf("a /* open"), ElementsAre("w:a"));
}

TEST(SqlTokens, TakesQuotesOffNames) {
    const auto nameOf = [](std::string_view sql) { return Tokenizer(sql).next().name(); };
    EXPECT_EQ(nameOf("plain"), "plain");
    EXPECT_EQ(nameOf(R"("a""b")"), "a\"b");
    EXPECT_EQ(nameOf("`c``d`"), "c`d");
    EXPECT_EQ(nameOf("[e]"), "e");
    EXPECT_EQ(nameOf("'it''s'"), "it's");
    EXPECT_EQ(nameOf("\"\""), "");
    EXPECT_EQ(nameOf("\"open"), "open");
    EXPECT_EQ(nameOf("\""), "");
}

TEST(SqlTokens, KnowsKeywordsInAnyLetterCaseAndNeverInQuotes) {
    EXPECT_TRUE(Tokenizer("uNiQuE").next().is("UNIQUE"));
    EXPECT_FALSE(Tokenizer("\"UNIQUE\"").next().is("UNIQUE"));
    EXPECT_FALSE(Tokenizer("uniquely").next().is("UNIQUE"));
}

TEST(TokenCursor, PassesOverNestedParentheses) {
    TokenCursor cursor("( a, (b ')' c), \")\" ) d");
    EXPECT_EQ(cursor.skipParenthesised(), "a, (b ')' c), \")\"");
    EXPECT_EQ(cursor.next().text, "d");
    TokenCursor empty("() d");
    EXPECT_EQ(empty.skipParenthesised(), "");
    EXPECT_EQ(empty.next().text, "d");
    TokenCursor open("((a");
    open.skipParenthesised();
    EXPECT_TRUE(open.atEnd());
}

TEST(TokenCursor, NeedsNoStackForParentheses) {
    const std::string deep(1'000'000, '(');
    TokenCursor cursor(deep);
    cursor.skipParenthesised();
    EXPECT_TRUE(cursor.atEnd());
}

TEST(TokenCursor, GivesTextAsWritten) {
    TokenCursor cursor("x AS  SELECT 1 -- one\n, 2 ; ; ");
    cursor.next();
    const Token first = cursor.next();
    cursor.next();
    EXPECT_EQ(cursor.textSince(first), "AS  SELECT");
    EXPECT_EQ(cursor.rest(), "1 -- one\n, 2");
}

TEST(SqlNames, FoldOnlyTheLettersThatSqliteFolds) {
    EXPECT_EQ(readers::sqlite::foldCase("ABCxyzÄ_1"), "abcxyzÄ_1");
    EXPECT_TRUE(readers::sqlite::equalIgnoringCase("Straße", "STRAße"));
    EXPECT_FALSE(readers::sqlite::equalIgnoringCase("Ä", "ä"));
    EXPECT_EQ(readers::sqlite::quoteName("a\"b"), "\"a\"\"b\"");
}

}  // namespace
