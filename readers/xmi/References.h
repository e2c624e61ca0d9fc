#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "IdTable.h"
#include "Reader.h"
#include "Tree.h"

namespace readers::xmi {

/// Where a reference leads.
struct Target {
    NodeIndex node = NO_NODE;  ///< NO_NODE when it is not in the file
    std::string_view text;     ///< the reference as it is written
    std::string_view label;    ///< what the tool that wrote the file calls the target; usually empty
    Form form = Form::TEXT;

    /// Whether there is a reference at all.
    bool exists() const noexcept { return !text.empty(); }
    bool isFound() const noexcept { return node != NO_NODE; }
};

/// The ids of the model's elements, and the references to them. Ids are opaque: they may hold blanks, and a
/// target may stand behind the reference.
class References {
  public:
    /// `fileName` is the file's own name in references. Throws SourceError when two elements have one id; an
    /// element that a careless tool wrote twice goes to the loss report.
    References(Tree& tree, std::string fileName, LossReport& losses);

    NodeIndex find(std::string_view id) const noexcept;
    /// All that the element's values of the name refer to, in their order, each value marked as read.
    std::vector<Target> all(Element element, Name name) const;
    /// The first of them; one that does not exist when there is none.
    Target first(Element element, Name name) const;
    /// The same for the first of several names of which the element has any.
    Target first(Element element, std::initializer_list<Name> names) const;
    /// All that one value refers to. It is not marked as read.
    std::vector<Target> of(std::uint32_t value) const;

  private:
    void add(Element element, LossReport& losses);
    bool sayTheSame(Element a, Element b) const;
    /// Appends what one value refers to.
    void resolve(const Value& value, std::string_view label, std::vector<Target>& targets) const;
    NodeIndex findLink(std::string_view link) const noexcept;

    Tree& tree_;
    std::string fileName_;
    IdTable nodes_;
};

}  // namespace readers::xmi
