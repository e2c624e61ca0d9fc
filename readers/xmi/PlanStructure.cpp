// What elements become, and the packages they go into.

#include <algorithm>
#include <iterator>

#include "Cycles.h"
#include "Plan.h"

namespace readers::xmi {

namespace {

/// Properties whose objects only look like elements of the model: what a template is made with.
constexpr Name TEMPLATE_ROLES[] = {
    "actual"_n,       "defaultElement"_n, "defaultParameter"_n,        "ownedActual"_n,
    "ownedDefault"_n, "parameter"_n,      "ownedParameteredElement"_n, "parameteredElement"_n,
};

/// Packages nested deeper than this are refused, whichever way they are nested.
constexpr std::size_t DEEPEST_PACKAGE = 250;

[[noreturn]] void throwTooDeep() {
    throw SourceError(
        SourceError::Kind::CANNOT_READ,
        "packages are nested deeper than " + std::to_string(DEEPEST_PACKAGE) + " levels, the most permitted");
}

/// In a path such as "a.b" or "a::b".
bool isPathSeparator(char character) noexcept {
    return character == '.' || character == ':';
}

bool isFeature(Element element) noexcept {
    switch (element.kind()) {
        case "Attribute"_n:
        case "Operation"_n:
        case "Port"_n:
        case "Property"_n:
            return element.role() != "qualifier"_n;
        default:
            return false;
    }
}

bool hasFeatures(Element classifier) noexcept {
    return std::any_of(classifier.begin(), classifier.end(), isFeature);
}

bool isPackage(Element element, bool isXmi2) noexcept {
    const KindRow* row = element.isUml() ? findKind(element.kind(), isXmi2) : nullptr;
    return row != nullptr && row->becomes == Becomes::PACKAGE;
}

/// Whether it is a package for a tool's primitive types, or one in such a package: these stand in no model.
bool isLibraryPackage(Element element, bool isXmi2) noexcept {
    while (isPackage(element, isXmi2) && element.parent()) {
        element = element.parent();
    }
    return isPackage(element, isXmi2) && element.role() != NO_NAME;
}

}  // namespace

Plan::Plan(Tree& tree, const References& references, const ExternalNames& externalNames,
           Stereotypes& stereotypes, const Dialect& dialect, LossReport& losses)
    : tree_(tree),
      references_(references),
      externalNames_(externalNames),
      stereotypes_(stereotypes),
      dialect_(dialect),
      losses_(losses),
      becomes_(tree.size(), Becomes::NOTHING),
      packages_(tree.size(), NO_NODE) {
    decideKinds();
    promoteParents();
    decideModel();
    decidePackages();
    checkNesting();
    collectEnds();
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        decideRelationship(tree_.at(index));
    }
    checkCycles();
}

void Plan::decideKinds() {
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        becomes_[index] = decideKind(tree_.at(index));
    }
}

Becomes Plan::decideKind(Element element) {
    const KindRow* row = element.isUml() ? findKind(element.kind(), dialect_.isXmi2) : nullptr;
    const bool isInTemplate = std::find(std::begin(TEMPLATE_ROLES), std::end(TEMPLATE_ROLES),
                                        element.role()) != std::end(TEMPLATE_ROLES);
    if (row == nullptr || isInTemplate) {
        return Becomes::NOTHING;
    }
    if (isLibraryPackage(element, dialect_.isXmi2)) {
        element.markAllRead();  // a tool's package for its primitive types
        return Becomes::NOTHING;
    }
    if (element.is("Abstraction"_n) && (stereotypes_.carries(element.index(), "realize") ||
                                        stereotypes_.carries(element.index(), "realization"))) {
        stereotypes_.remove(element.index(), "realize");
        stereotypes_.remove(element.index(), "realization");
        return Becomes::REALIZATION;
    }
    // A type of the model has neither attributes nor operations: a data type that does is a class.
    const bool isStructure = row->becomes == Becomes::DATA_TYPE && hasFeatures(element);
    return isStructure ? Becomes::CLASS : row->becomes;
}

/// A data type that a class specialises is a class too, and so is what that one specialises.
void Plan::promoteParents() {
    std::unordered_map<NodeIndex, std::vector<NodeIndex>> dataTypesAbove;
    std::vector<NodeIndex> found;
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (becomes_[index] == Becomes::GENERALIZATION) {
            const Element generalization = tree_.at(index);
            const NodeIndex child = childOf(generalization).node;
            const NodeIndex parent = parentOf(generalization).node;
            if (child != NO_NODE && parent != NO_NODE && of(parent) == Becomes::DATA_TYPE) {
                dataTypesAbove[child].push_back(parent);
                found.push_back(child);
            }
        }
    }
    while (!found.empty()) {
        const NodeIndex child = found.back();
        found.pop_back();
        if (!isClass(child)) {
            continue;
        }
        for (const NodeIndex parent : dataTypesAbove[child]) {
            if (of(parent) == Becomes::DATA_TYPE) {
                becomes_[parent] = Becomes::CLASS;
                found.push_back(parent);
            }
        }
    }
}

void Plan::decideModel() {
    NodeIndex found = NO_NODE;
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        const Node& node = tree_.node(index);
        if (node.parent == NO_NODE && becomes_[index] == Becomes::PACKAGE) {
            if (found != NO_NODE) {
                return;
            }
            found = index;
        }
    }
    if (found != NO_NODE && tree_.node(found).kind == "Model"_n) {
        model_ = found;
        becomes_[found] = Becomes::MODEL;
    }
}

void Plan::decidePackages() {
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        packages_[index] = enclosingPackage(index);
    }
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        const Element element = tree_.at(index);
        if (becomes_[index] == Becomes::PACKAGE || becomes_[index] == Becomes::MODEL) {
            placeByReference(element);
        }
        if (becomes_[index] != Becomes::NOTHING && !dialect_.isXmi2) {
            placeByNamespace(element);
        }
    }
}

NodeIndex Plan::enclosingPackage(NodeIndex node) const noexcept {
    NodeIndex at = tree_.node(node).parent;
    while (at != NO_NODE && becomes_[at] != Becomes::PACKAGE) {
        at = tree_.node(at).parent;
    }
    return at;
}

/// A package may hold an element by its id that stands elsewhere in the file.
void Plan::placeByReference(Element package) {
    const NodeIndex place = of(package.index()) == Becomes::MODEL ? NO_NODE : package.index();
    for (const Name property : {"ownedElement"_n, "packagedElement"_n, "ownedMember"_n}) {
        for (const Target& target : references_.all(package, property)) {
            if (!target.isFound()) {
                losses_.add("parts in other files", package.path(), describe(target));
            } else if (tree_.node(target.node).parent == NO_NODE && target.node != model_) {
                packages_[target.node] = place;
            }
        }
    }
}

/// An element may say which package it belongs to, in files that are flat or take no care.
void Plan::placeByNamespace(Element element) {
    const Target target = references_.first(element, "namespace"_n);
    if (!target.exists() || element.index() == model_) {
        return;
    }
    if (!target.isFound()) {
        if (dialect_.namesAreDeclarations) {
            const auto depth = std::count_if(target.text.begin(), target.text.end(), isPathSeparator);
            if (static_cast<std::size_t>(depth) >= DEEPEST_PACKAGE) {
                throwTooDeep();
            }
            mentionedPackages_[element.index()] = target.text;
        }
        return;
    }
    packages_[element.index()] =
        of(target.node) == Becomes::PACKAGE ? target.node : enclosingPackage(target.node);
}

void Plan::checkNesting() const {
    Edges places;
    for (NodeIndex index = 0; index < tree_.size(); ++index) {
        if (becomes_[index] == Becomes::PACKAGE && packages_[index] != NO_NODE) {
            places[index].push_back(packages_[index]);
        }
    }
    if (const std::vector<NodeIndex> cycle = findCycle(places); !cycle.empty()) {
        throw SourceError(SourceError::Kind::CANNOT_READ,
                          "packages stand in each other: " + describeCycle(tree_, cycle));
    }
    for (const auto& [package, place] : places) {
        std::size_t depth = 1;
        for (NodeIndex at = package; at != NO_NODE; at = packages_[at]) {
            if (++depth > DEEPEST_PACKAGE) {
                throwTooDeep();
            }
        }
    }
}

std::string_view Plan::mentionedPackageOf(NodeIndex node) const {
    const auto found = mentionedPackages_.find(node);
    return found == mentionedPackages_.end() ? std::string_view() : found->second;
}

NodeIndex Plan::outerClassOf(NodeIndex node) const {
    for (NodeIndex at = tree_.node(node).parent; at != NO_NODE && becomes_[at] != Becomes::PACKAGE;
         at = tree_.node(at).parent) {
        if (becomes_[at] == Becomes::CLASS) {
            return at;
        }
    }
    return NO_NODE;
}

}  // namespace readers::xmi
