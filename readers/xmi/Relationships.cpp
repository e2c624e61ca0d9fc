#include "Relationships.h"

#include <unordered_set>

#include "Expressions.h"

namespace readers::xmi {

namespace {

/// How the model has the two kinds of aggregation. The number stands at the end opposite to the whole.
constexpr int COMPOSITE = 0;
constexpr int SHARED = 1;

bool isAggregation(std::string_view word) noexcept {
    return word == "composite" || word == "shared" || word == "aggregate";
}

/// For templates: clang 14 looks for the code of the literal's operator there, and there is none.
std::string_view nameOf(Element element) noexcept {
    return element.text("name"_n);
}

}  // namespace

void Relationships::add(ZORDesignPackage& package, Element element) {
    switch (assembly_.plan.of(element.index())) {
        case Becomes::ASSOCIATION:
            addAssociation(package, element);
            break;
        case Becomes::CLASS:
            if (!assembly_.plan.endsOf(element.index()).empty()) {
                addAssociation(package, element);
            }
            break;
        case Becomes::GENERALIZATION:
            addGeneralization(package, element);
            break;
        case Becomes::DEPENDENCY:
            addDependencies<ZORDependency>(package, element);
            break;
        case Becomes::REALIZATION:
            addDependencies<ZORRealization>(package, element);
            break;
        default:
            break;
    }
}

void Relationships::addAssociation(ZORDesignPackage& package, Element element) {
    ZORAssociation& association = *package.addModelElement(std::make_unique<ZORAssociation>());
    association.setName(element.text("name"_n));
    if (assembly_.plan.isClass(element.index())) {
        association.setAssociationClass(classOf(element.index()));
    } else {
        assembly_.record(element, &association);
    }
    std::unordered_set<NodeIndex> navigable;
    for (const Target& target : assembly_.references.all(element, "navigableOwnedEnd"_n)) {
        navigable.insert(target.node);
    }
    for (const NodeIndex index : assembly_.plan.endsOf(element.index())) {
        const Element end = assembly_.tree.at(index);
        // In UML 2, an end can be reached that belongs to the class at the other end, or that the association
        // says so of. Some tools keep the flag of UML 1.
        const bool belongsToClass = end.node().parent != element.index();
        const bool isNavigable = end.flag("isNavigable"_n) ||
                                 (assembly_.dialect.isXmi2 && (belongsToClass || navigable.contains(index)));
        addRole(association, end).setNavigable(isNavigable);
    }
    setAggregations(association, element);
}

ZORAssociationRole& Relationships::addRole(ZORAssociation& association, Element end) {
    ZORAssociationRole& role = *association.addRole(std::make_unique<ZORAssociationRole>());
    assembly_.record(end, &role);
    role.setAssociatedClass(classOf(assembly_.plan.typeOf(end).node));
    setNameAndMultiplicity(role, end);
    role.setOrdered(end.flag("isOrdered"_n) || end.text("ordering"_n) == "ordered");
    role.setVisibility(visibilityOf(end));
    features_.addQualifiers(role, end);
    return role;
}

void Relationships::setNameAndMultiplicity(ZORAssociationRole& role, Element end) const {
    const std::string_view name = end.text("name"_n);
    std::string multiplicity = multiplicityOf(assembly_, end).text;
    const bool isName = !multiplicity.empty() || !assembly_.dialect.namesAreDeclarations;
    const std::string written = isName ? std::string() : multiplicityInName(name);
    if (written.empty()) {
        role.setName(name);
    } else {
        multiplicity = written;
    }
    const bool isOne = multiplicity.empty() && assembly_.dialect.unstatedMultiplicityIsOne;
    role.setMultiplicity(ZORString(isOne ? "1" : multiplicity));
}

/// UML 1 marks the end at the whole, UML 2 the one at the parts; the model marks the whole.
void Relationships::setAggregations(ZORAssociation& association, Element element) {
    const std::vector<NodeIndex>& ends = assembly_.plan.endsOf(element.index());
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const Element end = assembly_.tree.at(ends[i]);
        const std::string_view word = end.text("aggregation"_n);
        if (!isAggregation(word)) {
            continue;
        }
        if (ends.size() > 2) {
            assembly_.lose("aggregations between more than two classes", end, std::string(word));
            continue;
        }
        ZORAssociationRole* marked = association.getRoles()[i];
        ZORAssociationRole* other = association.getRoles()[1 - i];
        ZORAssociationRole* whole = assembly_.dialect.isXmi2 ? other : marked;
        ZORAssociationRole* part = assembly_.dialect.isXmi2 ? marked : other;
        association.setAggregation(true);
        whole->setAggregateEnd(true);
        part->setAggregationKind(word == "composite" ? COMPOSITE : SHARED);
    }
}

void Relationships::addGeneralization(ZORDesignPackage& package, Element element) {
    const auto& [child, parent] = assembly_.plan.pairsOf(element.index()).front();
    ZORGeneralization& generalization = *package.addModelElement(std::make_unique<ZORGeneralization>());
    assembly_.record(element, &generalization);
    generalization.setName(element.text("name"_n));
    generalization.setVisibility(visibilityOf(element));
    generalization.addSupertypeClass(classOf(parent));
    generalization.addSubtypeClass(classOf(child));
}

template <typename Relationship>
void Relationships::addDependencies(ZORDesignPackage& package, Element element) {
    ZORModelObject* first = nullptr;
    for (const auto& [client, supplier] : assembly_.plan.pairsOf(element.index())) {
        Relationship& added = *package.addModelElement(std::make_unique<Relationship>());
        added.setName(nameOf(element));
        added.setClient(classOf(client));
        added.setSupplier(classOf(supplier));
        if (first == nullptr) {
            first = &added;
            assembly_.record(element, first);
        } else {
            copies_.emplace_back(&added, first);
        }
    }
}

}  // namespace readers::xmi
