#pragma once

#include <memory>

#include "Assembly.h"
#include "Features.h"

namespace readers::xmi {

/// Associations with their ends, generalizations, dependencies and realizations.
class Relationships {
  public:
    Relationships(Assembly& assembly, Features& features) : assembly_(assembly), features_(features) {}

    /// Adds the relationship that the element becomes, or for an association class its association.
    void add(ZORDesignPackage& package, Element element);

    /// Of an element that joins more than two classes there are several relationships; all but the first one
    /// are given here, each with the first one.
    const std::vector<std::pair<ZORModelObject*, ZORModelObject*>>& copies() const noexcept {
        return copies_;
    }

  private:
    void addAssociation(ZORDesignPackage& package, Element element);
    ZORAssociationRole& addRole(ZORAssociation& association, Element end);
    void setNameAndMultiplicity(ZORAssociationRole& role, Element end) const;
    void setAggregations(ZORAssociation& association, Element element);
    void addGeneralization(ZORDesignPackage& package, Element element);
    template <typename Relationship>
    void addDependencies(ZORDesignPackage& package, Element element);
    ZORClass* classOf(NodeIndex node) const { return static_cast<ZORClass*>(assembly_.objects[node]); }

    Assembly& assembly_;
    Features& features_;
    std::vector<std::pair<ZORModelObject*, ZORModelObject*>> copies_;
};

}  // namespace readers::xmi
