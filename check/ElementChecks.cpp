#include <algorithm>

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
    const std::uint16_t known = grammar_.find(name);
    const std::uint16_t tag = known == OimGrammar::UNKNOWN ? OTHER : known;
    const Attribute* href = find(attributes, "oim:href");
    checkPlace(name, tag, href != nullptr);
    if (href != nullptr) {
        checkReference(name, tag, *href, attributes);
    } else {
        checkObject(name, tag, attributes);
    }
    open_.push_back({tag, href != nullptr, false, 0});
}

void DocumentCheck::Parser::end() {
    const Open& ended = open_.back();
    if (ended.tag != OTHER && !ended.isLink) {
        const ElementRule& rule = grammar_[ended.tag];
        if (ended.inSequence < rule.sequence.size()) {
            tell(Finding::Severity::ERROR, place(),
                 "the element " + quoted(rule.name) + " ends without " +
                     quoted(grammar_[rule.sequence[ended.inSequence]].name));
        }
    }
    open_.pop_back();
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

void DocumentCheck::Parser::checkObject(std::string_view name, std::uint16_t tag,
                                        const std::vector<Attribute>& attributes) {
    if (tag != OTHER) {
        for (const Attribute& attribute : attributes) {
            checkAttribute(name, tag, attribute.name, attribute.value);
        }
        checkRequired(name, tag, attributes);
    }
    const Attribute* const id = find(attributes, "oim:id");
    checkIdentifier(name, tag, id == nullptr ? std::string_view() : id->value, id != nullptr);
}

void DocumentCheck::Parser::checkRequired(std::string_view name, std::uint16_t tag,
                                          const std::vector<Attribute>& attributes) {
    for (const AttributeRule& rule : grammar_[tag].attributes) {
        if (rule.isRequired && find(attributes, rule.name) == nullptr) {
            error([&] { return "the element " + quoted(name) + " has no attribute " + quoted(rule.name); });
        }
    }
}

void DocumentCheck::Parser::checkSequence(const ElementRule& parent, std::uint16_t tag) {
    const std::vector<std::uint16_t>& sequence = parent.sequence;
    const auto place =
        static_cast<std::size_t>(std::find(sequence.begin(), sequence.end(), tag) - sequence.begin());
    std::uint16_t& reached = open_.back().inSequence;
    if (place == sequence.size()) {
        return;
    }
    if (place < reached) {
        error(
            [&] { return "a second element " + quoted(grammar_[tag].name) + " in " + quoted(parent.name); });
    } else if (place > reached) {
        error([&] {
            return "the element " + quoted(grammar_[tag].name) + " stands where " +
                   quoted(grammar_[sequence[reached]].name) + " is expected";
        });
    }
    reached = std::max(reached, static_cast<std::uint16_t>(place + 1));
}

void DocumentCheck::Parser::checkPlace(std::string_view name, std::uint16_t tag, bool isLink) {
    if (tag == OTHER) {
        error([&] { return "unknown element " + quoted(name); });
        return;
    }
    if (open_.empty()) {
        if (isLink) {
            error([] { return std::string("the root is a reference"); });
        }
        return;
    }
    if (open_.back().isLink) {
        error([&] { return "a reference holds the element " + quoted(name) + "; references are empty"; });
        return;
    }
    if (open_.back().tag == OTHER) {
        return;
    }
    const ElementRule& parent = grammar_[open_.back().tag];
    const std::vector<std::uint16_t>& permitted = isLink ? parent.references : parent.children;
    if (!isLink) {
        checkSequence(parent, tag);
    }
    if (std::find(permitted.begin(), permitted.end(), tag) == permitted.end()) {
        error([&] {
            return (isLink ? "a reference to " : "the element ") + quoted(name) + " does not belong in " +
                   quoted(parent.name);
        });
    }
}

void DocumentCheck::Parser::checkIdentifier(std::string_view name, std::uint16_t tag, std::string_view id,
                                            bool isPresent) {
    const ElementKind kind = tag == OTHER ? ElementKind::OBJECT : grammar_[tag].kind;
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
        identifiers_.refer({number, tag, open_.empty() ? OTHER : open_.back().tag, startOfTag()});
    }
}

void DocumentCheck::Parser::checkAttribute(std::string_view element, std::uint16_t tag, std::string_view name,
                                           std::string_view value) {
    if (name == "oim:id") {
        return;  // of any element, see checkIdentifier
    }
    const AttributeRule* rule = grammar_[tag].findAttribute(name);
    if (rule == nullptr) {
        error([&] { return "unknown attribute " + quoted(name) + " of " + quoted(element); });
    } else if (!rule->permits(value)) {
        error([&] {
            return "the attribute " + quoted(name) + " of " + quoted(element) + " is " + quoted(value) +
                   " where " + rule->describe() + " is expected";
        });
    }
}

void DocumentCheck::Parser::tellLooseReferences() {
    identifiers_.forEachLoose(NOWHERE, [this](const Identifiers::Reference& reference, std::uint16_t target) {
        const std::string& tag = grammar_[reference.tag].name;
        const std::string_view holder = reference.holder == OTHER
                                            ? std::string_view()
                                            : std::string_view(grammar_[reference.holder].name);
        const std::string_view targetTag = target == NOWHERE || target == OTHER
                                               ? std::string_view()
                                               : std::string_view(grammar_[target].name);
        const std::string_view explanation =
            target == OTHER ? std::string_view() : explainLooseReference(holder, tag, targetTag);
        std::string text = "the reference to _" + std::to_string(reference.id);
        text += holder.empty() ? "" : " in " + quoted(holder);
        text += " leads ";
        text += target == NOWHERE
                    ? "nowhere"
                    : "to " + (target == OTHER ? "an unknown element" : quoted(grammar_[target].name));
        text += target == NOWHERE ? "" : ", not to " + quoted(tag);
        tell(explanation.empty() ? Finding::Severity::ERROR : Finding::Severity::NOTE, reference.place,
             std::move(text), explanation);
    });
}

}  // namespace oimcheck
