#include "Refusal.h"

#include <algorithm>

#include "TextScanner.h"

namespace readers::document {

namespace {

/// Of a longer pointer only the beginning and the end are told.
constexpr std::size_t LONGEST_POINTER = 240;

std::size_t lineOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

std::size_t columnOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    return 1 + static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char byte) {
               return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
           }));
}

std::string shortenPointer(const std::string& pointer) {
    if (pointer.size() <= LONGEST_POINTER) {
        return pointer;
    }
    const std::size_t head = pointer.rfind('/', LONGEST_POINTER / 2);
    const std::size_t tail = pointer.find('/', pointer.size() - LONGEST_POINTER / 2);
    return pointer.substr(0, head) + "/..." + (tail == std::string::npos ? "" : pointer.substr(tail));
}

SourceError makeError(std::string_view text, std::size_t offset, const std::string& pointer,
                      const std::string& found, const std::string& expected, const std::string& hint) {
    std::string what =
        "line " + std::to_string(lineOf(text, offset)) + ", column " + std::to_string(columnOf(text, offset));
    if (!pointer.empty()) {
        what += ", " + shortenPointer(pointer);
    }
    what += ": found " + found + "; expected " + expected;
    return {SourceError::Kind::CANNOT_READ, what, hint};
}

SourceError makeError(std::string_view text, const TextScanner& scanner, const SyntaxFault& fault) {
    return makeError(text, fault.offset, scanner.pointer(), fault.found, fault.expected, {});
}

}  // namespace

SourceError explain(std::string_view text, const Refusal& refusal) {
    TextScanner scanner(text);
    try {
        scanner.scanValue(refusal.offset);
    } catch (const SyntaxFault& fault) {
        return makeError(text, scanner, fault);
    }
    const bool isRemark =
        refusal.found.empty() || refusal.found.front() == ',' || refusal.found.front() == ' ';
    std::string found = (isRemark ? scanner.targetText() : std::string()) + refusal.found;
    if (refusal.related != Refusal::NO_OFFSET) {
        found += " (see line " + std::to_string(lineOf(text, refusal.related)) + ")";
    }
    return makeError(text, refusal.offset, scanner.pointer(), found, refusal.expected, refusal.hint);
}

SourceError explainSyntax(std::string_view text, std::string_view reason) {
    TextScanner scanner(text);
    try {
        scanner.scanValue();
        scanner.scanEnd();
    } catch (const SyntaxFault& fault) {
        return makeError(text, scanner, fault);
    }
    return {SourceError::Kind::CANNOT_READ, "is not understood: " + std::string(reason)};
}

}  // namespace readers::document
