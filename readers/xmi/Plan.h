#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Dialect.h"
#include "ExternalNames.h"
#include "Kinds.h"
#include "Reader.h"
#include "References.h"
#include "Stereotypes.h"
#include "Tree.h"

namespace readers::xmi {

/// What every element of the file becomes, and where it goes, decided before anything is built: only then is
/// it known which references lead to classes.
class Plan {
  public:
    /// Relationships that the model cannot hold go to the loss report. Throws SourceError for cycles of
    /// packages, of generalizations and of data types.
    Plan(Tree& tree, const References& references, const ExternalNames& externalNames,
         Stereotypes& stereotypes, const Dialect& dialect, LossReport& losses);

    Becomes of(NodeIndex node) const noexcept { return becomes_[node]; }
    bool isClass(NodeIndex node) const noexcept { return node != NO_NODE && of(node) == Becomes::CLASS; }
    bool isType(NodeIndex node) const noexcept {
        return node != NO_NODE && (of(node) == Becomes::DATA_TYPE || of(node) == Becomes::ENUMERATION);
    }
    /// The one element that stands for the whole model; NO_NODE when there are several or none.
    NodeIndex model() const noexcept { return model_; }
    /// The package that an element goes into; NO_NODE for one that stands in the model itself.
    NodeIndex packageOf(NodeIndex node) const noexcept { return packages_[node]; }
    /// The name of a package that the file mentions without declaring it, for the element; usually empty.
    std::string_view mentionedPackageOf(NodeIndex node) const;
    /// The class that a nested class stands in, or NO_NODE.
    NodeIndex outerClassOf(NodeIndex node) const;

    /// The ends of an association, at least two, each of them typed by a class; empty for everything else.
    const std::vector<NodeIndex>& endsOf(NodeIndex association) const;
    /// The same for an association that the model cannot hold: its ends are what they are.
    const std::vector<NodeIndex>& anyEndsOf(NodeIndex association) const;
    /// The association that a property is an end of, or NO_NODE.
    NodeIndex associationOf(NodeIndex property) const;
    /// The class that an end stands at.
    Target typeOf(Element end) const;
    /// From and to of a generalization (child, parent), dependency or realization (client, supplier).
    const std::vector<std::pair<NodeIndex, NodeIndex>>& pairsOf(NodeIndex relationship) const;
    /// What a data type specialises, or NO_NODE.
    NodeIndex baseTypeOf(NodeIndex type) const;

  private:
    using Pairs = std::vector<std::pair<NodeIndex, NodeIndex>>;

    // PlanStructure.cpp: kinds and packages
    void decideKinds();
    Becomes decideKind(Element element);
    void promoteParents();
    void decideModel();
    void decidePackages();
    NodeIndex enclosingPackage(NodeIndex node) const noexcept;
    void placeByReference(Element package);
    void placeByNamespace(Element element);
    void checkNesting() const;

    // PlanRelationships.cpp: ends and cycles
    void collectEnds();
    void addEnds(Element association, std::vector<NodeIndex>& ends) const;
    void decideAssociation(NodeIndex association, std::vector<NodeIndex> ends);
    std::string whyNotClasses(const std::vector<NodeIndex>& ends) const;
    void decideRelationship(Element relationship);
    void decideGeneralization(Element generalization, const Target& child, const Target& parent);
    void decideDependency(Element dependency, const std::vector<Target>& clients,
                          const std::vector<Target>& suppliers);
    std::vector<Target> targetsOf(Element relationship, std::initializer_list<Name> names) const;
    Target childOf(Element generalization) const;
    Target parentOf(Element generalization) const;
    Target enclosingElement(Element relationship) const;
    std::string describe(const Target& target) const;
    std::string nameOf(const Target& target) const;
    std::string describeOther(const Target& end) const;
    std::string describeOthers(NodeIndex faulty, const std::vector<NodeIndex>& ends) const;
    void lose(Element relationship, std::string_view what, const std::string& reason);
    void checkCycles() const;

    Tree& tree_;
    const References& references_;
    const ExternalNames& externalNames_;
    Stereotypes& stereotypes_;
    const Dialect& dialect_;
    LossReport& losses_;
    NodeIndex model_ = NO_NODE;
    std::size_t pairCount_ = 0;
    std::vector<Becomes> becomes_;
    std::vector<NodeIndex> packages_;
    std::unordered_map<NodeIndex, std::string_view> mentionedPackages_;
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> ends_;
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> endsOfLost_;
    std::unordered_map<NodeIndex, NodeIndex> associations_;
    std::unordered_map<NodeIndex, Pairs> pairs_;
    std::unordered_map<NodeIndex, NodeIndex> baseTypes_;
};

}  // namespace readers::xmi
