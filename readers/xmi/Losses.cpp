#include "Losses.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>

#include "BackReferences.h"
#include "Wording.h"

namespace readers::xmi {

namespace {

/// What is written for its own sake.
constexpr std::string_view OF_NO_ACCOUNT[] = {"attributePosition", "drawas", "label", "toolId"};

/// Values that every element has unless it says otherwise.
struct DefaultValue {
    std::string_view name;
    std::string_view value;
};
constexpr DefaultValue DEFAULTS[] = {
    {"changeability", "changeable"}, {"changeable", "changeable"}, {"direction", "in"},
    {"isNavigable", "true"},         {"kind", "return"},           {"ordering", "unordered"},
    {"ownerScope", "instance"},      {"targetScope", "instance"},  {"visibility", "public"},
};

/// A parameter has no visibility of its own, whatever a tool writes.
bool isOfNoAccount(Element element, std::string_view name) noexcept {
    return (element.is("Parameter"_n) && name == "visibility") ||
           std::find(std::begin(OF_NO_ACCOUNT), std::end(OF_NO_ACCOUNT), name) != std::end(OF_NO_ACCOUNT);
}

/// Flags that every element has unless it says otherwise; for all other flags that is news.
constexpr std::string_view SET_FLAGS[] = {"isSubstitutable", "isUnique"};

bool saysNothing(std::string_view name, std::string_view text) noexcept {
    const bool isSetFlag = std::find(std::begin(SET_FLAGS), std::end(SET_FLAGS), name) != std::end(SET_FLAGS);
    return text.empty() || text == (isSetFlag ? "true" : "false") || text == "none" ||
           std::any_of(std::begin(DEFAULTS), std::end(DEFAULTS),
                       [&](const DefaultValue& row) { return row.name == name && row.value == text; });
}

/// Properties of which the reader knows every word; what it takes for another word is not what the file says.
struct Words {
    Name name;
    std::array<std::string_view, 5> known;
};
constexpr Words WORDS[] = {
    {"aggregation"_n, {"none", "shared", "composite", "aggregate"}},
    {"concurrency"_n, {"sequential", "guarded", "concurrent"}},
    {"direction"_n, {"in", "out", "inout", "return"}},
    {"kind"_n, {"in", "out", "inout", "return"}},
    {"ordering"_n, {"ordered", "unordered"}},
    {"ownerScope"_n, {"instance", "classifier"}},
    {"visibility"_n, {"public", "protected", "private", "package", "implementation"}},
};

/// Whether the value was read as one of a few words and is none of them.
bool isUnknownWord(const Value& value) noexcept {
    const auto* const row = std::find_if(std::begin(WORDS), std::end(WORDS),
                                         [&](const Words& words) { return words.name == value.name; });
    return row != std::end(WORDS) && value.read && !value.text.empty() &&
           std::find(row->known.begin(), row->known.end(), value.text) == row->known.end();
}

/// What a lost attribute counts as: "leaf flags" for isLeaf, "discriminators".
std::string kindOfValue(std::string_view name) {
    const bool isFlag = name.size() > 2 && name.starts_with("is") && name[2] >= 'A' && name[2] <= 'Z';
    return isFlag ? toWords(name) + " flags" : toPlural(toWords(name));
}

void reportValue(const Assembly& assembly, Element element, std::uint32_t at) {
    const Value& value = assembly.tree.value(at);
    const std::string_view name = assembly.tree.names.text(value.name);
    const bool isObject = assembly.objects[element.index()] != nullptr;
    const bool isLost =
        (isObject && isUnknownWord(value)) ||
        (!value.read && !saysNothing(name, value.text) && !isRepetition(assembly, element, at));
    if (reportMissing(assembly, element, at) || !isLost || isOfNoAccount(element, name)) {
        return;
    }
    const bool isFlag = value.text == "true";
    assembly.lose(kindOfValue(name), element, isFlag ? std::string() : std::string(value.text));
}

void reportValues(const Assembly& assembly, Element element) {
    for (std::uint32_t at = element.node().firstValue; at != NO_NODE; at = assembly.tree.value(at).next) {
        reportValue(assembly, element, at);
    }
}

/// What an element says that the model does not hold counts as: "state machines", "package imports".
std::string kindOfElement(const Assembly& assembly, Element element) {
    if (element.is("Stereotype"_n)) {
        return "stereotypes that nothing carries";
    }
    return toPlural(assembly.tree.kindOf(element.index()));
}

/// One entry for each tool: its extensions are not meant for others.
void reportExtensions(const Assembly& assembly) {
    std::set<std::string> tools;
    for (NodeIndex index = 0; index < assembly.tree.size(); ++index) {
        const Element element = assembly.tree.at(index);
        if (element.node().space == Space::EXTENSION && element.is("Extension"_n) && !element.node().read &&
            (element.firstChild() || element.has("text"_n))) {
            tools.emplace(element.text("extender"_n));
        }
    }
    for (const std::string& tool : tools) {
        assembly.context.losses.add("extensions of tools", tool.empty() ? "(unnamed tool)" : tool);
    }
}

}  // namespace

void reportUnread(const Assembly& assembly) {
    for (NodeIndex index = 0; index < assembly.tree.size(); ++index) {
        const Element element = assembly.tree.at(index);
        if (element.node().space == Space::EXTENSION) {
            continue;
        }
        const bool isPartOfUnread = element.parent() && !element.parent().node().read &&
                                    element.parent().node().space == element.node().space;
        if (element.node().read) {
            reportValues(assembly, element);
        } else if (element.isUml() && !isPartOfUnread) {
            assembly.lose(kindOfElement(assembly, element), element);
        } else if (!isPartOfUnread) {
            assembly.lose("elements of other vocabularies", element);
        }
    }
    reportExtensions(assembly);
}

}  // namespace readers::xmi
