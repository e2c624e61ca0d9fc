#include <cstdio>

#include "TextScanner.h"

// Texts, numbers and words of JSON, and what is said of anything else.

namespace readers::document {

namespace {

constexpr std::string_view SEPARATORS = " \t\n\r,:[]{}\"";

bool isDigit(char character) noexcept {
    return character >= '0' && character <= '9';
}

/// The length of the well-formed UTF-8 sequence that the text begins with; 0 when there is none.
std::size_t sequenceLength(std::string_view text) noexcept {
    const auto byte = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const auto continues = [&](std::size_t index) { return (byte(index) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return continues(1) ? 2 : 0;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        const bool tooLong = first == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = first == 0xED && byte(1) > 0x9F;
        return continues(1) && continues(2) && !tooLong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool tooLong = first == 0xF0 && byte(1) < 0x90;
        const bool tooHigh = first == 0xF4 && byte(1) > 0x8F;
        return continues(1) && continues(2) && continues(3) && !tooLong && !tooHigh ? 4 : 0;
    }
    return 0;
}

std::string hexadecimal(unsigned char byte, const char* format) {
    char text[32];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(byte));
    return text;
}

}  // namespace

void TextScanner::scanScalar() {
    if (isNext('"')) {
        scanString();
        return;
    }
    if (!atEnd() && (isDigit(text_[at_]) || text_[at_] == '-')) {
        scanNumber();
        return;
    }
    for (const std::string_view literal : {"true", "false", "null"}) {
        const std::size_t end = at_ + literal.size();
        const bool whole = end >= text_.size() || SEPARATORS.find(text_[end]) != std::string_view::npos;
        if (text_.substr(at_).starts_with(literal) && whole) {
            at_ = end;
            return;
        }
    }
    fail(at_, "a value");
}

void TextScanner::scanString() {
    const std::size_t start = at_++;
    while (!isNext('"')) {
        if (atEnd()) {
            throw SyntaxFault{start, "a text without its end", "a closing quotation mark"};
        }
        if (text_[at_] == '\\') {
            scanEscape();
        } else {
            scanCharacter();
        }
    }
    ++at_;
}

void TextScanner::scanCharacter() {
    const auto byte = static_cast<unsigned char>(text_[at_]);
    if (byte < 0x20) {
        throw SyntaxFault{at_, hexadecimal(byte, "the character U+%04X in a text"),
                          hexadecimal(byte, "its escape \\u%04x")};
    }
    const std::size_t length = sequenceLength(text_.substr(at_));
    if (length == 0) {
        fail(at_, "UTF-8 text");
    }
    at_ += length;
}

void TextScanner::scanEscape() {
    const std::size_t start = at_++;
    if (isNext('u')) {
        at_ = start;
        scanUnicodeEscape();
        return;
    }
    if (atEnd() || std::string_view("\"\\/bfnrt").find(text_[at_]) == std::string_view::npos) {
        const std::size_t length = atEnd() ? 0 : sequenceLength(text_.substr(at_));
        throw SyntaxFault{start, "the escape " + std::string(text_.substr(start, 1 + length)),
                          "one of \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\u"};
    }
    ++at_;
}

void TextScanner::scanUnicodeEscape() {
    const std::size_t start = at_;
    const unsigned first = scanFourDigits();
    if (first < 0xD800 || first > 0xDFFF) {
        return;
    }
    const bool isPair = first < 0xDC00 && text_.substr(at_).starts_with("\\u");
    const unsigned second = isPair ? scanFourDigits() : 0;
    if (second < 0xDC00 || second > 0xDFFF) {
        throw SyntaxFault{start,
                          "the escape " + std::string(text_.substr(start, 6)) + ", half a surrogate pair",
                          "two escapes that make a pair"};
    }
}

/// Scans `\u` with its digits and gives their value.
unsigned TextScanner::scanFourDigits() {
    const std::size_t start = at_;
    at_ += 2;
    unsigned value = 0;
    for (int i = 0; i < 4; ++i, ++at_) {
        const char digit = atEnd() ? ' ' : text_[at_];
        const std::size_t place = std::string_view("0123456789abcdefABCDEF").find(digit);
        if (place == std::string_view::npos) {
            throw SyntaxFault{start, "the escape " + std::string(text_.substr(start, at_ - start)),
                              "four hexadecimal digits behind \\u"};
        }
        value = value * 16 + static_cast<unsigned>(place > 15 ? place - 6 : place);
    }
    return value;
}

void TextScanner::scanNumber() {
    const std::size_t start = at_;
    at_ += isNext('-') ? 1U : 0U;
    const bool leadingZero = isNext('0');
    const std::size_t digits = at_;
    bool good = scanDigits() && (!leadingZero || at_ == digits + 1);
    if (good && isNext('.')) {
        ++at_;
        good = scanDigits();
    }
    if (good && (isNext('e') || isNext('E'))) {
        ++at_;
        at_ += isNext('+') || isNext('-') ? 1U : 0U;
        good = scanDigits();
    }
    if (!good || (!atEnd() && SEPARATORS.find(text_[at_]) == std::string_view::npos)) {
        fail(start, "a number as JSON writes it");
    }
}

bool TextScanner::scanDigits() noexcept {
    const std::size_t start = at_;
    while (!atEnd() && isDigit(text_[at_])) {
        ++at_;
    }
    return at_ > start;
}

void TextScanner::fail(std::size_t offset, std::string expected) const {
    throw SyntaxFault{offset, describeText(offset), std::move(expected)};
}

/// What stands at a place where it should not.
std::string TextScanner::describeText(std::size_t offset) const {
    if (offset >= text_.size()) {
        return "the end of the document";
    }
    const auto byte = static_cast<unsigned char>(text_[offset]);
    const std::size_t length = sequenceLength(text_.substr(offset));
    if (length == 0) {
        return hexadecimal(byte, "the byte %02X, which is not UTF-8");
    }
    if (byte < 0x20 || byte == 0x7F) {
        return hexadecimal(byte, "the character U+%04X");
    }
    if (SEPARATORS.find(text_[offset]) != std::string_view::npos) {
        return byte == '"' ? "a text" : '"' + std::string(1, text_[offset]) + '"';
    }
    std::size_t end = offset;
    while (end < text_.size() && static_cast<unsigned char>(text_[end]) > 0x20 && text_[end] != 0x7F &&
           SEPARATORS.find(text_[end]) == std::string_view::npos) {
        const std::size_t step = sequenceLength(text_.substr(end));
        if (step == 0) {
            break;
        }
        end += step;
    }
    return abbreviate(text_.substr(offset, end - offset));
}

}  // namespace readers::document
