#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Reader.h"
#include "References.h"

namespace readers::xmi {

/// Which stereotypes and keywords each element carries, wherever the file says so: references from the
/// element or from the stereotype (UML 1), elements beside the model that apply a profile's stereotype (UML
/// 2), and keywords.
class Stereotypes {
  public:
    /// Values that come with an applied stereotype are tagged values, which go to the loss report.
    Stereotypes(Tree& tree, const References& references, LossReport& losses);

    /// Does nothing when the element carries it already, letter case aside.
    void add(NodeIndex element, std::string_view name);
    /// The same for the one word that UML has for the element's kind; it stands in front of the others.
    void addKeyword(NodeIndex element, std::string_view word);
    /// A keyword first, the others in alphabetical order: the order in which they were applied means nothing.
    std::vector<std::string> of(NodeIndex element) const;
    bool carries(NodeIndex element, std::string_view name) const;
    void remove(NodeIndex element, std::string_view name);
    /// Whether an applied stereotype brings the element a tagged value of that name.
    bool hasTaggedValue(NodeIndex element, std::string_view name) const {
        return taggedValues_.contains({element, name});
    }
    /// The elements that carry any, in the order of the file.
    std::vector<NodeIndex> carriers() const;

  private:
    /// Alphabetical, letter case aside.
    struct ComesBefore {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const noexcept;
    };
    struct Names {
        std::string keyword;
        std::set<std::string, ComesBefore> others;
    };

    void readReferences(Element element);
    void addByName(Element element, const Target& target);
    void readDefinition(Element stereotype);
    void readKeywords(Element annotation);
    void readApplied(Element applied);
    bool readBase(Element applied, std::string_view property, std::string_view text);
    void reportTaggedValues(Element applied);
    NodeIndex findBase(Element applied) const;

    Tree& tree_;
    const References& references_;
    LossReport& losses_;
    std::unordered_map<NodeIndex, Names> names_;
    std::set<std::pair<NodeIndex, std::string_view>> taggedValues_;
};

/// A tagged value without what Enterprise Architect appends to it: what the tag means.
std::string_view withoutTagNotes(std::string_view value) noexcept;

/// Whether two words differ at most in letter case.
bool isSameWord(std::string_view a, std::string_view b) noexcept;

}  // namespace readers::xmi
