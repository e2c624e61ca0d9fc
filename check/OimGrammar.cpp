#include "OimGrammar.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "GrammarTable.h"

namespace oimcheck {
namespace {

/// An element is said to hold no more kinds of things, so that those that were met fit a word.
constexpr std::size_t MOST_CHILDREN = 32;
constexpr std::string_view VISIBILITY = "PublicAccess|ProtectedAccess|PrivateAccess";

/// Calls `take` for each of the words of a text.
template <typename Take>
void forEachWord(std::string_view text, char separator, const Take& take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) {
            take(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

AttributeRule readAttribute(std::string_view text) {
    const std::size_t equals = text.find('=');
    AttributeRule rule;
    rule.isRequired = text.front() == '!';
    rule.name = text.substr(rule.isRequired ? 1 : 0, equals - (rule.isRequired ? 1 : 0));
    const bool isVisibility = rule.name == "visibility" || rule.name == "AssociationEnd.visibility";
    std::string_view values = isVisibility ? VISIBILITY : std::string_view();
    if (equals != std::string_view::npos) {
        values = text.substr(equals + 1);
    }
    rule.isInteger = values == "int";
    if (!rule.isInteger) {
        forEachWord(values, '|', [&](std::string_view word) { rule.words.emplace_back(word); });
    }
    return rule;
}

}  // namespace

bool AttributeRule::permits(std::string_view value) const {
    if (isInteger) {
        int number = 0;
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
        return error == std::errc() && end == value.data() + value.size() && std::to_string(number) == value;
    }
    return words.empty() || std::find(words.begin(), words.end(), value) != words.end();
}

std::string AttributeRule::describe() const {
    if (isInteger) {
        return "an integer";
    }
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        text += (i == 0 ? "\"" : i + 1 == words.size() ? " or \"" : ", \"") + words[i] + "\"";
    }
    return text;
}

const AttributeRule* ElementRule::findAttribute(std::string_view attribute) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const AttributeRule& rule) { return rule.name == attribute; });
    return found == attributes.end() ? nullptr : &*found;
}

std::size_t ElementRule::findChild(std::uint16_t childTag) const {
    return static_cast<std::size_t>(std::find_if(children.begin(), children.end(),
                                                 [&](const Child& child) { return child.tag == childTag; }) -
                                    children.begin());
}

bool ElementRule::mayReferTo(std::uint16_t referenceTag) const {
    return std::find(references.begin(), references.end(), referenceTag) != references.end();
}

const OimGrammar& OimGrammar::instance() {
    static const OimGrammar grammar;
    return grammar;
}

OimGrammar::OimGrammar() {
    for (const GrammarRow& row : grammarRows()) {
        ElementRule& rule = rules_.emplace_back();
        rule.name = row.name;
        rule.kind = row.kind;
        forEachWord(row.attributes, ' ',
                    [&](std::string_view word) { rule.attributes.push_back(readAttribute(word)); });
        addTag(rule, row.name.substr(0, row.name.find('@')));
    }
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        readContent(rules_[i], grammarRows()[i].content);
    }
}

/// Gives the rule, the last one so far, the number of its tag.
void OimGrammar::addTag(ElementRule& rule, std::string_view tag) {
    const auto [known, isNew] = numbers_.emplace(tag, static_cast<std::uint16_t>(tags_.size()));
    if (isNew) {
        tags_.push_back({std::string(tag), rule.kind, static_cast<std::uint16_t>(rules_.size() - 1)});
    } else {
        tags_[known->second].soleRule = UNKNOWN;
    }
    rule.tag = known->second;
}

void OimGrammar::readContent(ElementRule& rule, std::string_view content) {
    forEachWord(content, ' ', [&](std::string_view word) {
        if (word == "*classes") {
            forEachWord(CLASSES, ' ',
                        [&](std::string_view tag) { rule.references.push_back(numberOf(tag)); });
        } else if (word == "1:" || word == "+:") {
            rule.isNeverEmpty = true;
            rule.holdsOne = word == "1:";
        } else if (word.front() == '&') {
            rule.references.push_back(numberOf(word.substr(1)));
        } else {
            readChild(rule, word);
        }
    });
    if (rule.children.size() > MOST_CHILDREN) {
        throw std::logic_error("too many kinds of things stand in " + rule.name);
    }
}

void OimGrammar::readChild(ElementRule& rule, std::string_view word) {
    const bool isRequired = word.front() == '1';
    const bool isSingle = isRequired || word.front() == '?';
    const std::uint16_t child = ruleNamed(word.substr(isSingle ? 1 : 0));
    if (rule.findChild(rules_[child].tag) != rule.children.size()) {
        throw std::logic_error("two kinds of one tag stand in " + rule.name);
    }
    rule.children.push_back({child, rules_[child].tag, isRequired, isSingle});
}

std::uint16_t OimGrammar::numberOf(std::string_view tag) const {
    const std::uint16_t number = findTag(tag);
    if (number == UNKNOWN) {
        throw std::logic_error("the grammar refers to the unknown element " + std::string(tag));
    }
    return number;
}

std::uint16_t OimGrammar::ruleNamed(std::string_view name) const {
    const auto found = std::find_if(rules_.begin(), rules_.end(),
                                    [&](const ElementRule& rule) { return rule.name == name; });
    if (found == rules_.end()) {
        throw std::logic_error("the grammar refers to the unknown row " + std::string(name));
    }
    return static_cast<std::uint16_t>(found - rules_.begin());
}

std::uint16_t OimGrammar::findTag(std::string_view name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? UNKNOWN : found->second;
}

}  // namespace oimcheck
