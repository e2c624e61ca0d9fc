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

/// One element of the grammar.
struct ElementRule {
    std::string name;
    ElementKind kind = ElementKind::OBJECT;
    std::vector<AttributeRule> attributes;
    std::vector<std::uint16_t> children;  ///< what may stand in it
    std::vector<std::uint16_t>
        sequence;  ///< of the children, those that must stand in it once, in this order
    std::vector<std::uint16_t> references;  ///< what it may refer to: links of this tag may stand in it

    const AttributeRule* findAttribute(std::string_view attribute) const;
};

/// All elements of the subject areas, as this system writes them.
class OimGrammar {
  public:
    static const OimGrammar& instance();

    static constexpr std::uint16_t UNKNOWN = 0xffff;
    /// The number of the element of this name, or UNKNOWN.
    std::uint16_t find(std::string_view name) const;
    const ElementRule& operator[](std::uint16_t number) const { return rules_[number]; }
    std::size_t size() const { return rules_.size(); }

  private:
    OimGrammar();

    std::vector<ElementRule> rules_;
    std::unordered_map<std::string_view, std::uint16_t> numbers_;
};

/// Why a reference in `holder`, of the tag `tag`, may lead to an element of the tag `target` (empty: to
/// none), because the export links there without testing its target. Empty when it may not.
std::string_view explainLooseReference(std::string_view holder, std::string_view tag,
                                       std::string_view target);

}  // namespace oimcheck
