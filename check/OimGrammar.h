// check/: reading an OIM document back and telling what is wrong with it. The grammar here is what this
// system writes; where it differs from what the bridge does, one of the two is wrong, and the tests find out.
// Nothing here builds a model or knows the bridge.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace oimcheck {

/// What an element is in the OIM encoding.
enum class ElementKind {
    FRAME,        ///< the root and the header: neither identifier nor reference
    OBJECT,       ///< carries oim:id
    ASSOCIATION,  ///< holds objects and references
    /// Holds objects like an association and carries an identifier like an object: the encoding has no such
    /// thing, the ERD diagrams have.
    NUMBERED_ASSOCIATION
};

/// What an attribute's value may be.
struct AttributeRule {
    std::string name;
    bool isRequired = false;
    bool isInteger = false;
    std::vector<std::string> words;  ///< empty: any text (or any integer)

    bool permits(std::string_view value) const;
    /// For messages: `an integer`, `"1" or "0"`.
    std::string describe() const;
};

/// One element of the grammar, in one of the places where it stands.
struct ElementRule {
    struct Child {
        std::uint16_t rule;
        std::uint16_t tag;
        bool isRequired;  ///< and then in the order of those that are
        bool isSingle;
    };
    std::string name;  ///< of the row: the tag, and where it is several things "@" and which one
    std::uint16_t tag = 0;
    ElementKind kind = ElementKind::OBJECT;
    std::vector<AttributeRule> attributes;
    std::vector<Child> children;            ///< what may stand in it
    std::vector<std::uint16_t> references;  ///< what it may refer to: links of this tag may stand in it
    bool isNeverEmpty = false;              ///< something stands in it, a child or a reference
    bool holdsOne = false;                  ///< and no more than that

    const AttributeRule* findAttribute(std::string_view attribute) const;
    /// The place of this tag among the children, or their number.
    std::size_t findChild(std::uint16_t childTag) const;
    bool mayReferTo(std::uint16_t referenceTag) const;
};

/// All elements of the subject areas, as this system writes them. Numbers of tags and of rules are different
/// things: an element that is something else in another place has one tag and several rules.
class OimGrammar {
  public:
    static const OimGrammar& instance();

    static constexpr std::uint16_t UNKNOWN = 0xffff;
    static constexpr std::uint16_t ROOT_RULE = 0;
    /// The number of the tag, or UNKNOWN.
    std::uint16_t findTag(std::string_view name) const;
    /// The only rule of a tag, or UNKNOWN when its place decides.
    std::uint16_t soleRule(std::uint16_t tag) const { return tags_[tag].soleRule; }
    /// The same in all places.
    ElementKind kindOf(std::uint16_t tag) const { return tags_[tag].kind; }
    const std::string& nameOf(std::uint16_t tag) const { return tags_[tag].name; }
    std::size_t tagCount() const { return tags_.size(); }

    const ElementRule& operator[](std::uint16_t rule) const { return rules_[rule]; }
    std::size_t size() const { return rules_.size(); }

  private:
    struct Tag {
        std::string name;
        ElementKind kind;
        std::uint16_t soleRule;
    };

    OimGrammar();
    void addTag(ElementRule& rule, std::string_view tag);
    std::uint16_t numberOf(std::string_view tag) const;
    std::uint16_t ruleNamed(std::string_view name) const;
    void readContent(ElementRule& rule, std::string_view content);
    void readChild(ElementRule& rule, std::string_view word);

    std::vector<ElementRule> rules_;
    std::vector<Tag> tags_;
    std::unordered_map<std::string_view, std::uint16_t> numbers_;  // of tags
};

/// Why a reference in `holder` (the name of a rule), of the tag `tag`, may lead to an element of the tag
/// `target` (empty: to none), because the export links there without testing its target. Empty when it may
/// not.
std::string_view explainLooseReference(std::string_view holder, std::string_view tag,
                                       std::string_view target);

}  // namespace oimcheck
