#include <algorithm>
#include <utility>

#include "DocumentParser.h"

namespace oimcheck {
namespace {

/// Deeper nesting is refused; packages nested a thousand deep need two elements each.
constexpr std::size_t DEEPEST_NESTING = 10'000;
/// The tag of an element that the grammar does not know.
constexpr std::uint16_t OTHER = 0xfffe;
constexpr std::uint16_t NOWHERE = 0xfffd;
constexpr std::string_view ROOT = "oim:Transfer";

/// The attribute of this name, or null.
template <typename Attributes>
auto find(const Attributes& attributes, std::string_view name) {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& attribute) { return attribute.name == name; });
    return found == attributes.end() ? nullptr : &*found;
}

}  // namespace

bool DocumentCheck::Parser::checkRoot(std::string_view name) {
    if (rootSeen_) {
        return true;
    }
    rootSeen_ = true;
    if (name != ROOT) {
        ++summary_.elements;
        tellLast(startOfTag(), "this is no OIM document: the root is " + quoted(name) + " where " +
                                   quoted(ROOT) + " is expected");
        stop();
    }
    return !stopped_;
}

void DocumentCheck::Parser::start(std::string_view name, const std::vector<Attribute>& attributes) {
    ++summary_.elements;
    if (open_.size() >= DEEPEST_NESTING) {
        tellLast(startOfTag(), "elements are nested deeper than " + std::to_string(DEEPEST_NESTING));
        stop();
        return;
    }
    const std::uint16_t known = grammar_.findTag(name);
    const std::uint16_t tag = known == OimGrammar::UNKNOWN ? OTHER : known;
    const Attribute* href = find(attributes, "oim:href");
    const std::uint16_t rule = checkPlace(name, tag, href != nullptr);
    if (href != nullptr) {
        checkReference(name, tag, *href, attributes);
    } else {
        checkObject(name, tag, rule, attributes);
    }
    open_.push_back({.tag = tag, .rule = rule, .isLink = href != nullptr});
}

void DocumentCheck::Parser::end() {
    checkComplete(open_.back());
    open_.pop_back();
}

void DocumentCheck::Parser::checkComplete(const Open& ended) {
    if (ended.rule == OimGrammar::UNKNOWN || ended.isLink) {
        return;
    }
    const ElementRule& rule = grammar_[ended.rule];
    const std::string& name = grammar_.nameOf(rule.tag);
    if (rule.isNeverEmpty && ended.isEmpty) {
        error([&] { return "the element " + quoted(name) + " is empty"; });
    }
    for (std::size_t i = 0; i < rule.children.size(); ++i) {
        const bool isThere = ((ended.met | ended.missed) >> i & 1U) != 0;
        if (rule.children[i].isRequired && !isThere) {
            error([&] {
                return "the element " + quoted(name) + " ends without " +
                       quoted(grammar_.nameOf(rule.children[i].tag));
            });
        }
    }
}

void DocumentCheck::Parser::checkPrefix(std::string_view prefix, bool isDeclared) {
    if (prefix.empty() || isDeclared ||
        std::find(undeclaredPrefixes_.begin(), undeclaredPrefixes_.end(), prefix) !=
            undeclaredPrefixes_.end()) {
        return;
    }
    constexpr std::size_t MOST = 100;
    if (undeclaredPrefixes_.size() < MOST) {
        undeclaredPrefixes_.emplace_back(prefix);
    }
    error([&] { return "the prefix " + quoted(prefix) + " is used without a namespace"; });
}

void DocumentCheck::Parser::checkObject(std::string_view name, std::uint16_t tag, std::uint16_t rule,
                                        const std::vector<Attribute>& attributes) {
    if (rule != OimGrammar::UNKNOWN) {
        for (const Attribute& attribute : attributes) {
            checkAttribute(grammar_[rule], attribute.name, attribute.value);
        }
        checkRequired(grammar_[rule], attributes);
    }
    const Attribute* const id = find(attributes, "oim:id");
    checkIdentifier(name, tag, id == nullptr ? std::string_view() : id->value, id != nullptr);
}

void DocumentCheck::Parser::checkRequired(const ElementRule& rule, const std::vector<Attribute>& attributes) {
    for (const AttributeRule& attribute : rule.attributes) {
        if (attribute.isRequired && find(attributes, attribute.name) == nullptr) {
            error([&] {
                return "the element " + quoted(grammar_.nameOf(rule.tag)) + " has no attribute " +
                       quoted(attribute.name);
            });
        }
    }
}

std::uint16_t DocumentCheck::Parser::checkPlace(std::string_view name, std::uint16_t tag, bool isLink) {
    if (open_.empty()) {
        if (isLink) {
            error([] { return std::string("the root is a reference"); });
        }
        return OimGrammar::ROOT_RULE;
    }
    Open& parent = open_.back();
    const bool isFirst = std::exchange(parent.isEmpty, false);
    if (tag == OTHER) {
        error([&] { return "unknown element " + quoted(name); });
        return OimGrammar::UNKNOWN;
    }
    if (parent.isLink) {
        error([&] { return "a reference holds the element " + quoted(name) + "; references are empty"; });
        return OimGrammar::UNKNOWN;
    }
    const std::uint16_t elsewhere = isLink ? OimGrammar::UNKNOWN : grammar_.soleRule(tag);
    if (parent.rule == OimGrammar::UNKNOWN) {
        return elsewhere;
    }
    const ElementRule& rule = grammar_[parent.rule];
    const std::size_t place = rule.findChild(tag);
    const bool isPermitted = isLink ? rule.mayReferTo(tag) : place != rule.children.size();
    if (!isPermitted || (rule.holdsOne && !isFirst)) {
        error([&] {
            return (isLink ? "a reference to " : "the element ") + quoted(name) +
                   (isPermitted ? " is one too many in " : " does not belong in ") +
                   quoted(grammar_.nameOf(rule.tag));
        });
    }
    if (!isPermitted || isLink) {
        return elsewhere;
    }
    checkChild(place);
    return rule.children[place].rule;
}

/// Whether the child is the first of those that stand in the element once, and behind those that always stand
/// before it.
void DocumentCheck::Parser::checkChild(std::size_t place) {
    Open& parent = open_.back();
    const ElementRule& rule = grammar_[parent.rule];
    const ElementRule::Child& child = rule.children[place];
    const std::uint32_t bit = 1U << place;
    if (child.isSingle && (parent.met & bit) != 0) {
        error([&] {
            return "a second element " + quoted(grammar_.nameOf(child.tag)) + " in " +
                   quoted(grammar_.nameOf(rule.tag));
        });
    }
    parent.met |= bit;
    if (!child.isRequired) {
        return;
    }
    for (std::size_t i = 0; i < place; ++i) {
        const std::uint32_t earlier = 1U << i;
        if (rule.children[i].isRequired && ((parent.met | parent.missed) & earlier) == 0) {
            parent.missed |= earlier;
            error([&] {
                return "the element " + quoted(grammar_.nameOf(child.tag)) + " stands where " +
                       quoted(grammar_.nameOf(rule.children[i].tag)) + " is expected";
            });
        }
    }
}

void DocumentCheck::Parser::checkIdentifier(std::string_view name, std::uint16_t tag, std::string_view id,
                                            bool isPresent) {
    const ElementKind kind = tag == OTHER ? ElementKind::OBJECT : grammar_.kindOf(tag);
    const bool takesId = kind == ElementKind::OBJECT || kind == ElementKind::NUMBERED_ASSOCIATION;
    if (!isPresent) {
        if (takesId && tag != OTHER) {
            error([&] { return "the object " + quoted(name) + " has no oim:id"; });
        }
        return;
    }
    ++summary_.objects;
    if (!takesId) {
        error([&] { return "the element " + quoted(name) + " is no object and has an oim:id"; });
    }
    const int number = Identifiers::parse(id, "_");
    if (number == 0) {
        error([&] { return "the identifier " + quoted(id) + " is not of the form \"_N\""; });
    } else if (!identifiers_.give(number, tag)) {
        error([&] { return "the identifier " + quoted(id) + " was given before"; });
    }
}

void DocumentCheck::Parser::checkReference(std::string_view name, std::uint16_t tag, const Attribute& href,
                                           const std::vector<Attribute>& attributes) {
    ++summary_.references;
    for (const Attribute& attribute : attributes) {
        if (&attribute != &href && tag != OTHER) {
            error([&] {
                return "a reference to " + quoted(name) + " has the attribute " + quoted(attribute.name) +
                       "; references have \"oim:href\" alone";
            });
        }
    }
    const int number = Identifiers::parse(href.value, "#_");
    if (number == 0) {
        error([&] {
            return "the reference " + quoted(href.value) + " of " + quoted(name) +
                   " is not of the form \"#_N\"";
        });
    } else if (tag != OTHER) {
        identifiers_.refer(
            {number, tag, open_.empty() ? OimGrammar::UNKNOWN : open_.back().rule, startOfTag()});
    }
}

void DocumentCheck::Parser::checkAttribute(const ElementRule& rule, std::string_view name,
                                           std::string_view value) {
    if (name == "oim:id") {
        return;  // of any element, see checkIdentifier
    }
    const AttributeRule* attribute = rule.findAttribute(name);
    const std::string& element = grammar_.nameOf(rule.tag);
    if (attribute == nullptr) {
        error([&] { return "unknown attribute " + quoted(name) + " of " + quoted(element); });
    } else if (!attribute->permits(value)) {
        error([&] {
            return "the attribute " + quoted(name) + " of " + quoted(element) + " is " + quoted(value) +
                   " where " + attribute->describe() + " is expected";
        });
    }
}

std::string DocumentCheck::Parser::describeLoose(const Identifiers::Reference& reference,
                                                 std::uint16_t target) const {
    std::string text = "the reference to _" + std::to_string(reference.id);
    if (reference.holder != OimGrammar::UNKNOWN) {
        text += " in " + quoted(grammar_.nameOf(grammar_[reference.holder].tag));
    }
    if (target == NOWHERE) {
        return text + " leads nowhere";
    }
    return text + " leads to " + (target == OTHER ? "an unknown element" : quoted(grammar_.nameOf(target))) +
           ", not to " + quoted(grammar_.nameOf(reference.tag));
}

void DocumentCheck::Parser::tellLooseReferences() {
    identifiers_.forEachLoose(NOWHERE, [this](const Identifiers::Reference& reference, std::uint16_t target) {
        tellLoose(reference, target);
    });
}

void DocumentCheck::Parser::tellLoose(const Identifiers::Reference& reference, std::uint16_t target) {
    std::string_view explanation;
    if (reference.holder != OimGrammar::UNKNOWN && target != OTHER) {
        explanation = explainLooseReference(
            grammar_[reference.holder].name, grammar_.nameOf(reference.tag),
            target == NOWHERE ? std::string_view() : std::string_view(grammar_.nameOf(target)));
    }
    const bool isError = explanation.empty();
    const bool isDelivered = !isError || summary_.errors < most_;
    (isError ? summary_.errors : summary_.notes) += reference.count;
    if (isDelivered) {
        deliver({.severity = isError ? Finding::Severity::ERROR : Finding::Severity::NOTE,
                 .text = describeLoose(reference, target),
                 .explanation = std::string(explanation),
                 .places = reference.count},
                reference.place);
    }
}

}  // namespace oimcheck
