#include "Expressions.h"

#include <algorithm>
#include <array>

#include "Blanks.h"
namespace readers::xmi {

namespace {

/// XMI leaves out values that are a literal's default.
std::string_view defaultOfLiteral(Name kind) noexcept {
    switch (kind) {
        case "LiteralBoolean"_n:
            return "false";
        case "LiteralInteger"_n:
        case "LiteralUnlimitedNatural"_n:
            return "0";
        case "LiteralNull"_n:
            return "null";
        default:
            return {};
    }
}

std::string instanceName(const Assembly& assembly, Element value) {
    const Target instance = assembly.references.first(value, "instance"_n);
    if (instance.isFound()) {
        return std::string(assembly.tree.at(instance.node).text("name"_n));
    }
    return instance.exists() ? std::string(assembly.externalNames.of(instance)) : std::string();
}

/// "+(1, x)" for an expression of a symbol and operands.
std::string symbolText(const Assembly& assembly, Element expression) {
    std::string text(expression.text("symbol"_n));
    std::string operands;
    for (const Element operand : expression) {
        if (operand.role() == "operand"_n) {
            operand.markRead();
            operands += (operands.empty() ? "" : ", ") + expressionText(assembly, operand);
        }
    }
    return operands.empty() ? text : text + "(" + operands + ")";
}

/// A bound as it is written in a multiplicity. Tools and people write "no bound" in several ways.
std::string boundText(std::string_view bound) {
    const bool isLetter =
        bound.size() == 1 && std::string_view("nNmM").find(bound[0]) != std::string_view::npos;
    return bound == "-1" || isLetter ? "*" : std::string(bound);
}

/// The bounds that a multiplicity stands for; false when it does not say any.
bool decode(const std::string& text, int& lower, int& upper) {
    // What cannot be read is taken for one: with a range of more behind it, it shows.
    decodeMultiplicity(ZORString(text + ",2..2"), lower, upper);
    const bool isReadable = upper != 1;
    decodeMultiplicity(ZORString(text), lower, upper);
    return isReadable;
}

std::string rangeText(std::string lower, std::string upper) {
    lower = boundText(lower);
    upper = boundText(upper);
    if (lower.empty() || upper.empty() || lower == upper) {
        return lower.empty() ? upper : lower;
    }
    return lower == "*" ? upper : lower + ".." + upper;
}

/// What a person has written, such as "0..n" or "1, 3..N".
std::string plainText(std::string_view plain) {
    std::string text;
    for (std::size_t start = 0; start <= plain.size();) {
        const std::size_t end = std::min(plain.find(',', start), plain.size());
        const std::string_view range = trim(plain.substr(start, end - start));
        const std::size_t dots = range.find("..");
        const std::string_view lower = trim(range.substr(0, dots));
        const std::string_view upper = dots == std::string_view::npos ? lower : trim(range.substr(dots + 2));
        if (lower.empty() || upper.empty()) {
            return std::string(plain);
        }
        text += (text.empty() ? "" : ",") + rangeText(std::string(lower), std::string(upper));
        start = end + 1;
    }
    return text;
}

/// The bounds of UML 2, each a value specification or an attribute. A bound that is left out beside the other
/// is 1.
std::string boundsText(const Assembly& assembly, Element element) {
    std::array<std::string, 2> bounds;
    bool anyStated = false;
    constexpr std::array PROPERTIES = {std::array{"lowerValue"_n, "lower"_n},
                                       std::array{"upperValue"_n, "upper"_n}};
    for (std::size_t i = 0; i < bounds.size(); ++i) {
        const Element value = element.child(PROPERTIES[i][0]);
        bounds[i] = value ? expressionText(assembly, value) : std::string(element.text(PROPERTIES[i][1]));
        anyStated = anyStated || !bounds[i].empty();
        bounds[i] = bounds[i].empty() ? "1" : bounds[i];
    }
    return anyStated ? rangeText(bounds[0], bounds[1]) : std::string();
}

/// The ranges of UML 1 with commas between them.
std::string rangesText(Element multiplicity) {
    std::string text;
    multiplicity.markRead();
    for (const Element range : multiplicity) {
        if (range.is("MultiplicityRange"_n)) {
            range.markRead();
            const std::string one =
                rangeText(std::string(range.text("lower"_n)), std::string(range.text("upper"_n)));
            text += (text.empty() ? "" : ",") + one;
        }
    }
    return text;
}

std::string multiplicityText(const Assembly& assembly, Element element) {
    if (const Element inPlace = element.child("multiplicity"_n)) {
        return inPlace.is("MultiplicityRange"_n)
                   ? rangeText(std::string(inPlace.text("lower"_n)), std::string(inPlace.text("upper"_n)))
                   : rangesText(inPlace);
    }
    const Target shared = assembly.references.first(element, "multiplicity"_n);
    if (shared.isFound() && assembly.tree.at(shared.node).is("Multiplicity"_n)) {
        return rangesText(assembly.tree.at(shared.node));
    }
    if (shared.exists() && shared.form != Form::TEXT) {
        return {};
    }
    const std::string_view plain = element.text("multiplicity"_n);
    return plain.empty() ? boundsText(assembly, element) : plainText(plain);
}

}  // namespace

std::string expressionText(const Assembly& assembly, Element expression) {
    expression.markRead();
    expression.find("name"_n);  // of no account, like the type of what the text says
    expression.find("type"_n);
    for (const Name property : {"body"_n, "value"_n, "text"_n}) {
        if (expression.has(property)) {
            return expression.texts(property);
        }
    }
    if (expression.is("InstanceValue"_n)) {
        return instanceName(assembly, expression);
    }
    if (std::string text = symbolText(assembly, expression); !text.empty()) {
        return text;
    }
    return std::string(defaultOfLiteral(expression.kind()));
}

std::string expressionOf(const Assembly& assembly, Element element, Name property) {
    const Element expression = element.child(property);
    return expression ? expressionText(assembly, expression) : std::string(element.text(property));
}

std::string multiplicityInName(std::string_view name) {
    std::string text = plainText(name);
    int lower = 1;
    int upper = 1;
    return !text.empty() && decode(text, lower, upper) ? text : std::string();
}

Multiplicity multiplicityOf(const Assembly& assembly, Element element) {
    Multiplicity multiplicity;
    multiplicity.text = multiplicityText(assembly, element);
    if (multiplicity.text.empty()) {
        return multiplicity;
    }
    int lower = 1;
    int upper = 1;
    if (!decode(multiplicity.text, lower, upper)) {
        assembly.lose("multiplicities that cannot be read", element, multiplicity.text);
    }
    multiplicity.mayBeNone = lower == 0;
    multiplicity.mayBeMany = upper != 1;
    return multiplicity;
}

ZORVisibilityType visibilityOf(Element element) {
    const std::string_view word = element.text("visibility"_n);
    if (word == "protected") {
        return ZOR_VISIBILITY_PROTECTED;
    }
    if (word == "private") {
        return ZOR_VISIBILITY_PRIVATE;
    }
    return word == "package" || word == "implementation" ? ZOR_VISIBILITY_IMPLEMENTATION
                                                         : ZOR_VISIBILITY_PUBLIC;
}

}  // namespace readers::xmi
