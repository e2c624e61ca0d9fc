#include <gtest/gtest.h>

#include <array>
#include <string>

#include "MemorySink.h"
#include "ZORXMLWriter.h"

namespace {

class Writer : public ZORXMLWriter {
  public:
    using ZORXMLWriter::countElement;
    using ZORXMLWriter::indentationUnit_;

    std::string convert(std::string_view text) { return std::string(getXMLText(text).view()); }
    /// The same, through the file.
    std::string write(std::string_view text) {
        auto record = std::make_shared<support::SinkRecord>();
        file_.open(std::make_unique<support::MemorySink>(record));
        writeXMLText(text);
        file_.close();
        return record->text();
    }
};

struct Row {
    const char* what;
    std::string_view text;
    std::string_view converted;
    int failures;
};

#define REPLACEMENT "\xEF\xBF\xBD"

using namespace std::string_view_literals;

const Row ROWS[] = {
    {"empty", "", "", 0},
    {"plain", "Customer", "Customer", 0},
    {"markup", "<a b=\"c\">&</a>", "&lt;a b=&quot;c&quot;&gt;&amp;&lt;/a&gt;", 0},
    {"apostrophe_stays", "O'Hara", "O'Hara", 0},
    {"text_that_looks_converted", "&amp;", "&amp;amp;", 0},
    {"tab_line_feed_return", "a\tb\nc\rd", "a&#9;b&#10;c&#13;d", 0},
    {"return_and_line_feed_stay_two", "\r\n", "&#13;&#10;", 0},
    {"space_and_delete_stay", " \x7F", " \x7F", 0},
    {"beyond_ascii", "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", 0},
    {"first_and_last_of_each_length",
     "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
     "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 0},
    {"controls_above_ascii_are_permitted", "\xC2\x85\xC2\x9F", "\xC2\x85\xC2\x9F", 0},
    {"noncharacters_of_higher_planes_are_permitted", "\xF0\x9F\xBF\xBE\xF4\x8F\xBF\xBF",
     "\xF0\x9F\xBF\xBE\xF4\x8F\xBF\xBF", 0},
    {"fffd_itself_is_no_failure", REPLACEMENT, REPLACEMENT, 0},
    {"fffe",
     "a\xEF\xBF\xBE"
     "b",
     "a" REPLACEMENT "b", 1},
    {"ffff", "\xEF\xBF\xBF", REPLACEMENT, 1},
    {"nul", "a\0b"sv, "a" REPLACEMENT "b", 1},
    {"controls", "\x01\x08\x0B\x0C\x0E\x1F",
     REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT, 6},
    {"lone_continuations", "\x80\xBF", REPLACEMENT REPLACEMENT, 2},
    {"bytes_that_are_never_used", "\xC0\xC1\xF5\xFE\xFF",
     REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT, 5},
    {"truncated_two", "\xC3", REPLACEMENT, 1},
    {"truncated_three_after_one", "\xE2", REPLACEMENT, 1},
    {"truncated_three_after_two", "\xE2\x82", REPLACEMENT, 1},
    {"truncated_four_after_three", "\xF0\x9F\x98", REPLACEMENT, 1},
    {"truncated_then_text",
     "\xE2\x82"
     "A",
     REPLACEMENT "A", 1},
    {"truncated_then_character", "\xE2\x82\xC3\xA9", REPLACEMENT "\xC3\xA9", 1},
    {"truncated_then_markup", "\xF0\x9F<", REPLACEMENT "&lt;", 1},
    {"overlong_two_is_two_parts", "\xC0\xAF", REPLACEMENT REPLACEMENT, 2},
    {"overlong_three_is_three_parts", "\xE0\x80\xAF", REPLACEMENT REPLACEMENT REPLACEMENT, 3},
    {"overlong_four_is_four_parts", "\xF0\x80\x80\xAF", REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT, 4},
    {"surrogate_is_three_parts", "\xED\xA0\x80", REPLACEMENT REPLACEMENT REPLACEMENT, 3},
    {"beyond_unicode_is_four_parts", "\xF4\x90\x80\x80", REPLACEMENT REPLACEMENT REPLACEMENT REPLACEMENT, 4},
    {"the_unicode_standards_example_of_maximal_subparts",
     "a\xF1\x80\x80\xE1\x80\xC2"
     "b\x80"
     "c\x80\xBF"
     "d",
     "a" REPLACEMENT REPLACEMENT REPLACEMENT "b" REPLACEMENT "c" REPLACEMENT REPLACEMENT "d", 6},
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.what;
}

class XMLText : public testing::TestWithParam<Row> {};

TEST_P(XMLText, IsFitForADocument) {
    const Row& row = GetParam();
    Writer writer;
    EXPECT_EQ(writer.convert(row.text), row.converted);
    EXPECT_EQ(writer.getConversionFailureCount(), row.failures);
    EXPECT_EQ(writer.getFailedTextCount(), row.failures > 0 ? 1 : 0);
    Writer other;
    EXPECT_EQ(other.write(row.text), row.converted);
    EXPECT_EQ(other.getConversionFailureCount(), row.failures);
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLText, testing::ValuesIn(ROWS),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.what; });

/// One character, or one maximal subpart of an ill-formed sequence, the slow and obvious way: the longest
/// beginning of the text that a well-formed sequence can begin with.
struct Piece {
    std::size_t length;
    bool permitted;
    unsigned codePoint;
};

bool isContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80;
}

/// Whether some code point of `length` bytes begins with these bits.
bool canGrowInto(unsigned bits, std::size_t bytes, std::size_t length) {
    const unsigned rest = 6 * static_cast<unsigned>(length - bytes);
    const unsigned lowest = bits << rest;
    const unsigned highest = lowest + (1U << rest) - 1;
    const unsigned smallest = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    const unsigned greatest = length == 2 ? 0x7FF : length == 3 ? 0xFFFF : 0x10FFFF;
    for (unsigned point = lowest; point <= highest; point += bytes == length ? 1 : 64) {
        const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
        if (point >= smallest && point <= greatest && !surrogate) {
            return true;
        }
    }
    return false;
}

Piece readPiece(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        return {1, lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r', lead};
    }
    const std::size_t length = lead >= 0xF8 ? 0 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0) {
        return {1, false, 0};
    }
    unsigned bits = lead & (0x7FU >> length);
    if (!canGrowInto(bits, 1, length)) {
        return {1, false, 0};
    }
    for (std::size_t at = 1; at < length; ++at) {
        if (!isContinuation(text, at)) {
            return {at, false, 0};
        }
        const unsigned longer = bits << 6 | (static_cast<unsigned char>(text[at]) & 0x3FU);
        if (!canGrowInto(longer, at + 1, length)) {
            return {at, false, 0};
        }
        bits = longer;
    }
    return {length, bits != 0xFFFE && bits != 0xFFFF, bits};
}

std::string convertSlowly(std::string_view text, int& failures) {
    std::string converted;
    while (!text.empty()) {
        const Piece piece = readPiece(text);
        if (!piece.permitted) {
            converted += REPLACEMENT;
            ++failures;
        } else {
            switch (piece.codePoint) {
                case '&':
                    converted += "&amp;";
                    break;
                case '<':
                    converted += "&lt;";
                    break;
                case '>':
                    converted += "&gt;";
                    break;
                case '"':
                    converted += "&quot;";
                    break;
                case '\t':
                case '\n':
                case '\r':
                    converted += "&#" + std::to_string(piece.codePoint) + ";";
                    break;
                default:
                    converted += text.substr(0, piece.length);
            }
        }
        text.remove_prefix(piece.length);
    }
    return converted;
}

void expectLikeTheSlowWay(const std::string& text) {
    Writer writer;
    int failures = 0;
    const std::string expected = convertSlowly(text, failures);
    ASSERT_EQ(writer.convert(text), expected);
    ASSERT_EQ(writer.getConversionFailureCount(), failures);
}

TEST(XMLText, OfEveryByteAtEveryOffsetOfAWordIsAsTheSlowWaySays) {
    for (std::size_t length = 1; length <= 17; ++length) {
        for (std::size_t offset = 0; offset < length; ++offset) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string text(length, 'x');
                text[offset] = static_cast<char>(byte);
                expectLikeTheSlowWay(text);
            }
        }
    }
}

TEST(XMLText, OfEveryPairOfBytesIsAsTheSlowWaySays) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            expectLikeTheSlowWay({'x', static_cast<char>(first), static_cast<char>(second), 'x'});
            expectLikeTheSlowWay({static_cast<char>(first), static_cast<char>(second)});
        }
    }
}

TEST(XMLText, OfLongerSequencesIsAsTheSlowWaySays) {
    // The bytes at which the rules change.
    constexpr unsigned char EDGES[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBD,
                                       0xBE, 0xBF, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED,
                                       0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xFF};
    for (const unsigned char a : EDGES) {
        for (const unsigned char b : EDGES) {
            for (const unsigned char c : EDGES) {
                for (const unsigned char d : EDGES) {
                    expectLikeTheSlowWay({static_cast<char>(a), static_cast<char>(b), static_cast<char>(c),
                                          static_cast<char>(d)});
                }
            }
        }
    }
}

TEST(XMLText, KeepsLongCleanRuns) {
    const std::string clean(1000000, 'x');
    Writer writer;
    EXPECT_EQ(writer.convert(clean), clean);
    EXPECT_EQ(writer.write(clean + "<" + clean), clean + "&lt;" + clean);
    std::string accented;
    for (int i = 0; i < 100000; ++i) {
        accented += "\xC3\xA9";
    }
    EXPECT_EQ(writer.convert(accented), accented);
    EXPECT_EQ(writer.getConversionFailureCount(), 0);
}

TEST(XMLText, CountsFailuresAndTheTextsThatHeldThem) {
    Writer writer;
    writer.convert("\x01\x02");
    writer.convert("fine");
    writer.write("a\x03");
    EXPECT_EQ(writer.getConversionFailureCount(), 3);
    EXPECT_EQ(writer.getFailedTextCount(), 2);
}

TEST(XMLWriter, BeginsWithTheNameOfTheOptionAsIndentation) {
    const Writer writer;
    EXPECT_EQ(writer.indentationUnit_, "XML Indentation (pretty printing)");
}

TEST(XMLWriter, PublishesItsElementsNowAndThen) {
    const std::uint64_t before = ZORXMLWriter::getElementsStarted();
    Writer writer;
    for (int i = 0; i < 4096; ++i) {
        writer.countElement();
    }
    EXPECT_EQ(ZORXMLWriter::getElementsStarted() - before, 4096U);
}

TEST(XMLWriter, AddsItsElementsToThoseOfEarlierExports) {
    const std::uint64_t before = ZORXMLWriter::getElementsStarted();
    for (int run = 0; run < 2; ++run) {
        Writer writer;
        for (int i = 0; i < 5000; ++i) {
            writer.countElement();
        }
    }
    EXPECT_EQ(ZORXMLWriter::getElementsStarted() - before, 8192U);
}

}  // namespace
