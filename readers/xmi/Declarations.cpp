#include "Declarations.h"

#include <algorithm>

#include "Blanks.h"

namespace readers::xmi {

namespace {

bool opens(char character) noexcept {
    return character == '(' || character == '<' || character == '[' || character == '{';
}

bool closes(char character) noexcept {
    return character == ')' || character == '>' || character == ']' || character == '}';
}

/// Where the character stands outside all brackets; npos when nowhere. The two colons of a path are none.
std::size_t findOutside(std::string_view text, char wanted, std::size_t from = 0) noexcept {
    int depth = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        const bool isPath =
            wanted == ':' && ((i + 1 < text.size() && text[i + 1] == ':') || (i > 0 && text[i - 1] == ':'));
        if (depth == 0 && text[i] == wanted && !isPath) {
            return i;
        }
        depth += opens(text[i]) ? 1 : closes(text[i]) ? -1 : 0;
        depth = std::max(depth, 0);
    }
    return std::string_view::npos;
}

/// The parts of "type name": the last word is the name.
void splitWords(std::string_view text, std::string& type, std::string& name) {
    const std::size_t blank = text.find_last_of(BLANKS);
    const bool isOneWord = blank == std::string_view::npos || closes(text.back());
    name = isOneWord ? text : trim(text.substr(blank));
    type = isOneWord ? std::string_view() : trim(text.substr(0, blank));
}

}  // namespace

DeclaredFeature parseFeature(std::string_view text) {
    DeclaredFeature feature;
    if (const std::size_t equals = findOutside(text, '='); equals != std::string_view::npos) {
        feature.defaultValue = trim(text.substr(equals + 1));
        text = text.substr(0, equals);
    }
    if (const std::size_t colon = findOutside(text, ':'); colon != std::string_view::npos) {
        feature.name = trim(text.substr(0, colon));
        feature.type = trim(text.substr(colon + 1));
    } else {
        splitWords(trim(text), feature.type, feature.name);
    }
    return feature;
}

DeclaredOperation parseOperation(std::string_view text) {
    DeclaredOperation operation;
    text = trim(text);
    const std::size_t open = text.find('(');
    const std::size_t close = open == std::string_view::npos ? open : findOutside(text, ')', open + 1);
    if (open != std::string_view::npos && close == std::string_view::npos) {
        operation.name = text;  // no declaration after all
        return operation;
    }
    if (close == std::string_view::npos) {
        const DeclaredFeature plain = parseFeature(text);
        operation.name = plain.name;
        operation.result = plain.type;
        return operation;
    }
    splitWords(trim(text.substr(0, open)), operation.result, operation.name);
    const std::string_view after = trim(text.substr(close + 1));
    if (after.starts_with(':')) {
        operation.result = trim(after.substr(1));
    }
    std::string_view rest = text.substr(open + 1, close - open - 1);
    while (!trim(rest).empty()) {
        const std::size_t comma = findOutside(rest, ',');
        operation.parameters.push_back(parseFeature(rest.substr(0, comma)));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return operation;
}

}  // namespace readers::xmi
