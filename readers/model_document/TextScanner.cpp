#include "TextScanner.h"

#include <algorithm>
#include <cstdio>

namespace readers::document {

namespace {

constexpr std::size_t LONGEST_QUOTATION = 60;
constexpr std::string_view SEPARATORS = " \t\n\r,:[]{}\"";

bool isDigit(char character) noexcept {
    return character >= '0' && character <= '9';
}

bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
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

std::string abbreviate(std::string_view text) {
    if (text.size() <= LONGEST_QUOTATION) {
        return std::string(text);
    }
    std::size_t end = LONGEST_QUOTATION;
    while (isContinuation(text[end])) {
        --end;
    }
    return std::string(text.substr(0, end)) + "...";
}

bool TextScanner::scanValue(std::size_t target) {
    do {
        if (!levels_.empty()) {
            levels_.back().isInside = true;
        }
        skipBlanks();
        if (at_ == target) {
            reached_ = true;
            if (isNext('{') || isNext('[')) {
                targetText_ = isNext('{') ? "an object" : "a list";
            } else {
                scanScalar();
                targetText_ = abbreviate(text_.substr(target, at_ - target));
            }
            return true;
        }
        if (isNext('{') || isNext('[')) {
            if (openContainer(target)) {
                continue;
            }
        } else {
            scanScalar();
        }
        if (!moveToNextValue(target)) {
            break;
        }
    } while (!reached_);
    return reached_;
}

void TextScanner::scanEnd() {
    skipBlanks();
    if (!atEnd()) {
        fail(at_, "the end of the document");
    }
}

std::string TextScanner::pointer() const {
    std::string pointer;
    for (const Level& level : levels_) {
        if (!level.isInside) {
            break;
        }
        pointer += '/';
        if (!level.isObject) {
            pointer += std::to_string(level.index);
            continue;
        }
        for (const char character : level.key) {
            if (character == '~' || character == '/') {
                pointer += character == '~' ? "~0" : "~1";
            } else {
                pointer += character;
            }
        }
    }
    return pointer;
}

void TextScanner::skipBlanks() noexcept {
    while (isNext(' ') || isNext('\n') || isNext('\r') || isNext('\t')) {
        ++at_;
    }
}

/// Goes to the first value of a list or object; false when it is empty and was passed.
bool TextScanner::openContainer(std::size_t target) {
    const bool isObject = isNext('{');
    enter(isObject);
    ++at_;
    skipBlanks();
    if (isNext(isObject ? '}' : ']')) {
        ++at_;
        levels_.pop_back();
        return false;
    }
    if (isObject) {
        scanKey(target);
    }
    return true;
}

void TextScanner::enter(bool isObject) {
    if (levels_.size() >= deepest_) {
        throw SyntaxFault{at_, "lists and objects nested deeper than " + std::to_string(deepest_) + " levels",
                          "less nesting"};
    }
    levels_.push_back({isObject});
}

/// From behind a value to the next one, out of all lists and objects that end in between; false when the
/// scanned value ends.
bool TextScanner::moveToNextValue(std::size_t target) {
    while (!levels_.empty()) {
        Level& level = levels_.back();
        level.isInside = false;
        skipBlanks();
        if (isNext(',')) {
            ++at_;
            if (level.isObject) {
                skipBlanks();
                scanKey(target);
            } else {
                ++level.index;
            }
            return true;
        }
        if (!isNext(level.isObject ? '}' : ']')) {
            fail(at_, level.isObject ? "\",\" or \"}\"" : "\",\" or \"]\"");
        }
        ++at_;
        levels_.pop_back();
    }
    return false;
}

/// Scans a key and the colon behind it; stops behind the key when that is the target.
bool TextScanner::scanKey(std::size_t target) {
    const std::size_t start = at_;
    if (!isNext('"')) {
        fail(at_, "a key in quotation marks");
    }
    scanString();
    levels_.back().key = text_.substr(start + 1, at_ - start - 2);
    levels_.back().isInside = true;
    if (start == target) {
        reached_ = true;
        targetText_ = "the key " + abbreviate(text_.substr(start, at_ - start));
        return true;
    }
    skipBlanks();
    if (!isNext(':')) {
        fail(at_, "\":\" behind the key");
    }
    ++at_;
    return false;
}

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
