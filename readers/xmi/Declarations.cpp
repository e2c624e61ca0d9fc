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

/// The operator that calls an object has a name with brackets in it.
constexpr std::string_view CALL_OPERATOR = "operator()";

bool endsWithCallOperator(std::string_view text) noexcept {
    const std::size_t before = text.size() - CALL_OPERATOR.size();
    return text.ends_with(CALL_OPERATOR) &&
           (before == 0 || BLANKS.find(text[before - 1]) != std::string_view::npos);
}

/// Where the bracket of the parameters stands; npos when there are none.
std::size_t findParameters(std::string_view text) noexcept {
    const std::size_t open = text.find('(');
    const bool isName = open != std::string_view::npos && endsWithCallOperator(text.substr(0, open + 2));
    return isName ? text.find('(', open + 2) : open;
}

/// What stands in front of the parameters.
void splitHead(std::string_view head, DeclaredOperation& operation) {
    const bool isCall = endsWithCallOperator(head);
    splitWords(isCall ? head.substr(0, head.size() - 2) : head, operation.result, operation.name);
    operation.name += isCall ? "()" : "";
}

/// Where what a language adds to a result begins: "{query}", "throws X"; npos when nothing does.
std::size_t findAddition(std::string_view result) noexcept {
    const std::size_t throws = result.find(" throws ");
    return std::min(findOutside(result, '{', 1), throws);
}

/// What stands behind them: ": result", and what a diagram or a language adds on either side of it.
void splitEnd(std::string_view end, DeclaredOperation& operation) {
    const std::size_t colon = findOutside(end, ':');
    operation.rest = trim(end.substr(0, colon));
    if (colon == std::string_view::npos) {
        return;
    }
    const std::string_view result = trim(end.substr(colon + 1));
    const std::size_t addition = std::min(findAddition(result), result.size());
    operation.result = trim(result.substr(0, addition));
    const std::string_view added = trim(result.substr(addition));
    operation.rest.append(operation.rest.empty() || added.empty() ? "" : " ").append(added);
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
    const std::string_view head = text.substr(0, findParameters(text));
    if (head.size() == text.size()) {
        const DeclaredFeature plain = parseFeature(text);
        operation.name = plain.name;
        operation.result = plain.type;
        return operation;
    }
    const std::size_t open = head.size();
    const std::size_t close = findOutside(text, ')', open + 1);
    if (close == std::string_view::npos) {
        operation.name = text;  // no declaration after all
        return operation;
    }
    splitHead(trim(head), operation);
    splitEnd(trim(text.substr(close + 1)), operation);
    std::string_view rest = text.substr(open + 1, close - open - 1);
    while (!trim(rest).empty()) {
        const std::size_t comma = findOutside(rest, ',');
        operation.parameters.push_back(parseFeature(rest.substr(0, comma)));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
    return operation;
}

}  // namespace readers::xmi
