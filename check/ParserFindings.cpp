// What the parser tells of a document, and where.

#include <algorithm>
#include <functional>
#include <utility>

#include "DocumentParser.h"

namespace oimcheck {
namespace {

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

int countCharacters(std::string_view text) {
    return static_cast<int>(
        text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), continuesCharacter)));
}

}  // namespace

std::string quoted(std::string_view text) {
    std::size_t end = 60;
    if (text.size() <= end) {
        return "\"" + std::string(text) + "\"";
    }
    while (continuesCharacter(text[end])) {
        --end;
    }
    return "\"" + std::string(text.substr(0, end)) + "...\"";
}

Identifiers::Place DocumentCheck::Parser::place() const {
    return {xmlSAX2GetLineNumber(context_.get()), xmlSAX2GetColumnNumber(context_.get())};
}

const Identifiers::Place& DocumentCheck::Parser::startOfTag() {
    if (!startOfTag_) {
        startOfTag_ = findStart('<');
    }
    return *startOfTag_;
}

/// What was met last ends where the parser stands; it begins with the byte `first`.
Identifiers::Place DocumentCheck::Parser::findStart(char first) const {
    const auto* const base = reinterpret_cast<const char*>(context_->input->base);
    const auto* start = reinterpret_cast<const char*>(context_->input->cur);
    while (start > base && *start != first) {
        --start;
    }
    return placeOf(start);
}

/// Of a byte that the parser has in memory.
Identifiers::Place DocumentCheck::Parser::placeOf(const char* byte) const {
    const xmlParserInput& input = *context_->input;
    const auto* const base = reinterpret_cast<const char*>(input.base);
    const auto* const end = reinterpret_cast<const char*>(input.cur);
    const auto charactersFrom = [](const char* from, const char* to) {
        return countCharacters({from, static_cast<std::size_t>(to - from)});
    };
    const auto line = input.line - static_cast<int>(std::count(std::min(byte, end), end, '\n')) +
                      static_cast<int>(std::count(end, std::max(byte, end), '\n'));
    if (line == input.line) {
        const int further = byte < end ? -charactersFrom(byte, end) : charactersFrom(end, byte);
        return {line, input.col + further};
    }
    const char* lineStart = byte;
    while (lineStart > base && lineStart[-1] != '\n') {
        --lineStart;
    }
    return {line, charactersFrom(lineStart, byte) + 1};
}

/// A text is in the parser's own memory, or a copy of what stands there, or what a reference such as "&amp;"
/// stands for.
Identifiers::Place DocumentCheck::Parser::startOfText(std::string_view text) const {
    const auto* const base = reinterpret_cast<const char*>(context_->input->base);
    const auto* const end = reinterpret_cast<const char*>(context_->input->end);
    const auto* const here = reinterpret_cast<const char*>(context_->input->cur);
    const std::size_t blanks = text.find_first_not_of(BLANKS);
    if (std::less_equal<>()(base, text.data()) && std::less<>()(text.data(), end)) {
        return placeOf(text.data() + blanks);
    }
    if (text.size() <= static_cast<std::size_t>(here - base) &&
        std::equal(text.begin(), text.end(), here - text.size())) {
        return placeOf(here - text.size() + blanks);
    }
    return here > base && here[-1] == ';' ? findStart('&') : place();
}

void DocumentCheck::Parser::tell(Identifiers::Place at, std::string text) {
    if (summary_.errors++ < most_) {
        deliver({.severity = Finding::Severity::ERROR, .text = std::move(text)}, at);
    }
}

void DocumentCheck::Parser::tellLast(Identifiers::Place at, std::string text) {
    stopped_ = true;
    tellInAnyCase(at, std::move(text));
}

void DocumentCheck::Parser::tellInAnyCase(Identifiers::Place at, std::string text) {
    ++summary_.errors;
    deliver({.severity = Finding::Severity::ERROR, .text = std::move(text)}, at);
}

void DocumentCheck::Parser::deliver(Finding finding, Identifiers::Place at) const {
    finding.line = std::max(at.line, 1);
    finding.column = std::max(at.column, 1);
    receiver_(finding);
}

}  // namespace oimcheck
