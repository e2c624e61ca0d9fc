// What the parser tells of a document, and where.

#include <algorithm>
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
    return {xmlSAX2GetLineNumber(context_), xmlSAX2GetColumnNumber(context_)};
}

const Identifiers::Place& DocumentCheck::Parser::startOfTag() {
    if (!startOfTag_) {
        startOfTag_ = findStartOfTag();
    }
    return *startOfTag_;
}

Identifiers::Place DocumentCheck::Parser::findStartOfTag() const {
    const xmlParserInput& input = *context_->input;
    const auto* const base = reinterpret_cast<const char*>(input.base);
    const auto* const end = reinterpret_cast<const char*>(input.cur);
    const char* start = end;
    int line = input.line;
    while (start > base && *start != '<') {
        line -= *--start == '\n' ? 1 : 0;
    }
    const auto charactersFrom = [&](const char* from, const char* to) {
        return countCharacters({from, static_cast<std::size_t>(to - from)});
    };
    if (line == input.line) {
        return {line, input.col - charactersFrom(start, end)};
    }
    const char* lineStart = start;
    while (lineStart > base && lineStart[-1] != '\n') {
        --lineStart;
    }
    return {line, charactersFrom(lineStart, start) + 1};
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
