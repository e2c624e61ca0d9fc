#include "TextScanner.h"

namespace readers::document {

namespace {

constexpr std::size_t LONGEST_QUOTATION = 60;

bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

std::string abbreviate(std::string_view text) {
    if (text.size() <= LONGEST_QUOTATION) {
        return std::string(text);
    }
    std::size_t end = LONGEST_QUOTATION;
    while (end > 0 && isContinuation(text[end])) {
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

}  // namespace readers::document
