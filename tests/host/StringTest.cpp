#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <stdexcept>
#include <string>

#include "ZORStd.h"

namespace {

TEST(String, IsOnePointerAndEmptyWithoutMemory) {
    static_assert(sizeof(ZORString) == sizeof(void*));
    const ZORString empty;
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(empty.length(), 0U);
    EXPECT_STREQ(empty.c_str(), "");
    EXPECT_EQ(empty.view(), "");
    EXPECT_EQ(empty, ZORString(static_cast<const char*>(nullptr)));
    EXPECT_EQ(empty, ZORString(""));
}

TEST(String, HoldsBytesWithNulsAmongThem) {
    const ZORString text("a\0b", 3);
    EXPECT_EQ(text.length(), 3U);
    EXPECT_EQ(text[1], '\0');
    EXPECT_EQ(text.c_str()[3], '\0');
    EXPECT_EQ(text.view(), std::string_view("a\0b", 3));
    EXPECT_FALSE(text == ZORString("a"));
}

TEST(String, IsMadeFromNumbersInDecimal) {
    EXPECT_EQ(ZORString(0), "0");
    EXPECT_EQ(ZORString(-17), "-17");
    EXPECT_EQ(ZORString(INT_MAX), "2147483647");
    EXPECT_EQ(ZORString(INT_MIN), "-2147483648");
}

TEST(String, CopiesAreTheirOwn) {
    ZORString one("one");
    ZORString copy(one);
    copy.append('!');
    EXPECT_EQ(one, "one");
    EXPECT_EQ(copy, "one!");
    one = copy;
    one.truncate(1);
    EXPECT_EQ(one, "o");
    EXPECT_EQ(copy, "one!");
    const ZORString& same = one;
    one = same;
    EXPECT_EQ(one, "o");
}

TEST(String, MovingTakesTheText) {
    ZORString one("one");
    const ZORString taken(std::move(one));
    EXPECT_EQ(taken, "one");
    ZORString other;
    other = ZORString("two");
    EXPECT_EQ(other, "two");
}

TEST(String, AppendsItself) {
    ZORString text("abc");
    text.append(text.view());
    EXPECT_EQ(text, "abcabc");
    text.reserve(100);
    text.append(text.view().substr(1, 2));
    EXPECT_EQ(text, "abcabcbc");
}

TEST(String, GrowsByManySmallPieces) {
    ZORString text;
    std::string expected;
    for (int i = 0; i < 10000; ++i) {
        text.append(static_cast<char>('a' + i % 26));
        expected.push_back(static_cast<char>('a' + i % 26));
    }
    text += "";
    EXPECT_EQ(text.view(), expected);
}

TEST(String, TruncatesOnlyWhatIsLonger) {
    ZORString text("abc");
    text.truncate(5);
    EXPECT_EQ(text, "abc");
    text.truncate(2);
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(text.c_str()[2], '\0');
    ZORString empty;
    empty.truncate(0);
    EXPECT_TRUE(empty.isEmpty());
}

TEST(String, KeepsItsPlaceWhileThereIsRoom) {
    ZORString text("x");
    text.reserve(64);
    const char* bytes = text.c_str();
    for (int i = 0; i < 63; ++i) {
        text.append('y');
    }
    EXPECT_EQ(text.c_str(), bytes);
    text.reserve(10);
    EXPECT_EQ(text.length(), 64U);
}

TEST(String, ReservingForAnEmptyStringLeavesItEmpty) {
    ZORString text;
    text.reserve(8);
    EXPECT_TRUE(text.isEmpty());
    EXPECT_STREQ(text.c_str(), "");
}

TEST(String, ClearGivesTheMemoryBack) {
    ZORString text("abc");
    text.clear();
    EXPECT_TRUE(text.isEmpty());
    text.append("d");
    EXPECT_EQ(text, "d");
}

TEST(String, ComparesByteForByte) {
    EXPECT_EQ(ZORString("a"), std::string_view("a"));
    EXPECT_NE(ZORString("a"), "A");
    EXPECT_LT(ZORString("A"), ZORString("a"));
    EXPECT_LT(ZORString(""), ZORString("a"));
    EXPECT_LT(ZORString("ab"), ZORString("abc"));
    EXPECT_LT(ZORString("z"), ZORString("\xC3\xA4")) << "bytes are unsigned";
}

TEST(String, AddsFromBothSides) {
    const ZORString name("b");
    EXPECT_EQ("a" + name + "c", "abc");
    EXPECT_EQ(name + name, "bb");
    EXPECT_EQ(name + std::string_view("d"), "bd");
    EXPECT_EQ(ZORString() + ZORString(), "");
}

TEST(String, LongerThanItsLengthCanTellIsRefused) {
    ZORString text("abc");
    EXPECT_THROW(text.reserve(std::size_t{1} << 32), std::length_error);
    EXPECT_EQ(text, "abc");
}

TEST(String, LiteralIsOneObject) {
    const ZORString& one = "dbm:LogicalTable"_z;
    EXPECT_EQ(one, "dbm:LogicalTable");
    EXPECT_EQ(&one, &"dbm:LogicalTable"_z);
    EXPECT_NE(&one, &"dbm:LogicalView"_z);
}

TEST(StringHash, IsTheSameForEqualTextsAndInEveryProcess) {
    EXPECT_EQ(stringHashCode("Customer"), stringHashCode(std::string("Customer")));
    EXPECT_NE(stringHashCode("Customer"), stringHashCode("customer"));
    // Documents depend on it: these values are for ever.
    EXPECT_EQ(stringHashCode(""), 0x4FD0BFC1U);
    EXPECT_EQ(stringHashCode("a"), 0x296230C0U);
    EXPECT_EQ(std::hash<ZORString>()(ZORString("a")), stringHashCode("a"));
}

TEST(StringHash, SpreadsLikeNamesOverTheLowBits) {
    std::array<int, 1024> buckets{};
    for (int i = 0; i < 10240; ++i) {
        ++buckets[stringHashCode("COLUMN_" + std::to_string(i)) % buckets.size()];
    }
    for (const int count : buckets) {
        EXPECT_LT(count, 40);
    }
}

constexpr ZORString CONSTANT = "File"_text;

TEST(StringLiteral, IsAConstantWithTheLiteralsCharacters) {
    EXPECT_EQ(CONSTANT, "File");
    EXPECT_EQ(CONSTANT.length(), 4U);
    EXPECT_STREQ(CONSTANT.c_str(), "File");
    EXPECT_EQ(("a\0b"_text).view(), std::string_view("a\0b", 3));
    EXPECT_TRUE((""_text).isEmpty());
    EXPECT_EQ("File"_text.c_str(), CONSTANT.c_str()) << "it is there once";
    EXPECT_EQ(&"File"_z, &"File"_z);
    EXPECT_EQ("File"_z.c_str(), CONSTANT.c_str());
}

TEST(StringLiteral, GivesCopiesMemoryOfTheirOwn) {
    const ZORString copy = CONSTANT;  // NOLINT(performance-unnecessary-copy-initialization): it is tested
    EXPECT_EQ(copy, "File");
    EXPECT_NE(copy.c_str(), CONSTANT.c_str());
    ZORString assigned("something else");
    assigned = CONSTANT;
    EXPECT_EQ(assigned, "File");
    EXPECT_NE(assigned.c_str(), CONSTANT.c_str());
}

TEST(StringLiteral, IsNotChangedThroughAStringThatHasItsText) {
    const auto changed = [](const auto& change) {
        ZORString text = "File"_text;
        change(text);
        return std::string(text.view());
    };
    EXPECT_EQ(changed([](ZORString& text) { text.append("name"); }), "Filename");
    EXPECT_EQ(changed([](ZORString& text) { text.truncate(2); }), "Fi");
    EXPECT_EQ(changed([](ZORString& text) { text.truncate(0); }), "");
    EXPECT_EQ(changed([](ZORString& text) { text.clear(); }), "");
    EXPECT_EQ(changed([](ZORString& text) { text.reserve(0); }), "File");
    EXPECT_EQ(changed([](ZORString& text) { text.reserve(2); }), "File");
    EXPECT_EQ(changed([](ZORString& text) { text.reserve(100); }), "File");
    EXPECT_EQ(changed([](ZORString& text) { text = ZORString("x"); }), "x");
    EXPECT_EQ(CONSTANT, "File");
}

TEST(Exception, CarriesItsText) {
    const ZORException failure("no file");
    EXPECT_EQ(failure.getText(), "no file");
    EXPECT_STREQ(failure.what(), "no file");
    const ZORException copy(failure);  // NOLINT(performance-unnecessary-copy-initialization): it is tested
    EXPECT_EQ(copy.getText(), "no file");
}

TEST(AssertionDeathTest, NamesExpressionSourceAndLine) {
    EXPECT_DEATH(zorAssertionFailed("x != 0", "Source", 42),
                 "Assertion failed: x != 0, file Source, line 42");
}

TEST(Clock, StandsStillInUniversalTimeWhenItIsFixed) {
    ZORClock::setFixed(951782400);
    std::tm time = ZORClock::now();
    EXPECT_EQ(time.tm_year, 100);
    EXPECT_EQ(time.tm_mon, 1);
    EXPECT_EQ(time.tm_mday, 29);
    EXPECT_EQ(time.tm_hour, 0);
    ZORClock::setFixed(std::nullopt);
    time = ZORClock::now();
    EXPECT_NEAR(static_cast<double>(std::mktime(&time)), static_cast<double>(std::time(nullptr)), 5);
}

}  // namespace
