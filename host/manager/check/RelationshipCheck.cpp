#include <algorithm>
#include <string>

#include "ModelChecker.h"

namespace {

constexpr int GREATEST_AGGREGATION_KIND = 2;
/// Bridges make an object of every pair of a parent and a child, and put one per child on every diagram.
constexpr std::size_t MOST_PAIRS = 1000000;

}  // namespace

void ModelChecker::checkAssociation(const Place& place, const ZORAssociation& association) {
    if (const ZORClass* cls = association.getAssociationClass()) {
        if (checkReference(place, cls, "association class") && cls->getAssociation() != &association) {
            faults_.add(place, "has the association class" + Faults::quote(*cls) +
                                   ", which is the class of another association");
        }
    }
    checkParts(place, association.getRoles(),
               [this](const Place& at, const ZORAssociationRole& role) { checkRole(at, role); });
}

void ModelChecker::checkRole(const Place& place, const ZORAssociationRole& role) {
    if (checkReference(place, role.getAssociatedClass(), "class") && role.getForeignKey() != nullptr) {
        checkForeignKeyOfRole(place, role);
    }
    checkNumber(place, "update rule", role.getUpdateRule(), ZOR_ACTION_SET_NULL);
    checkNumber(place, "delete rule", role.getDeleteRule(), ZOR_ACTION_SET_NULL);
    checkNumber(place, "insert rule", role.getInsertRule(), ZOR_ACTION_SET_NULL);
    checkNumber(place, "aggregation kind", role.getAggregationKind(), GREATEST_AGGREGATION_KIND);
    checkNumber(place, "visibility", role.getVisibility(), ZOR_VISIBILITY_IMPLEMENTATION);
    checkParts(place, role.getQualifiers(),
               [this](const Place& at, const ZORAttribute& qualifier) { checkAttribute(at, qualifier); });
}

void ModelChecker::checkForeignKeyOfRole(const Place& place, const ZORAssociationRole& role) {
    const ZORForeignKey& key = *role.getForeignKey();
    if (!checkReference(place, &key, "foreign key")) {
        return;
    }
    if (key.getOwner() != role.getAssociatedClass()) {
        faults_.add(place, "has the foreign key" + Faults::quote(key) + ", which is not of the role's class");
    }
    const ZORVector<ZORAssociationRole*>& roles = role.getAssociation()->getRoles();
    if (key.getCandidateKey() == nullptr || roles.size() != 2) {
        return;
    }
    const ZORAssociationRole* other = roles[0] == &role ? roles[1] : roles[0];
    if (key.getCandidateKey()->getOwner() != other->getAssociatedClass()) {
        faults_.add(place, "has the foreign key" + Faults::quote(key) +
                               ", which references a key that is not of the other role's class");
    }
}

void ModelChecker::checkGeneralization(const Place& place, const ZORGeneralization& generalization) {
    if (generalization.getParents().isEmpty()) {
        faults_.add(place, "has no parent");
    }
    if (generalization.getChildren().isEmpty()) {
        faults_.add(place, "has no child");
    }
    const std::size_t pairs =
        generalization.getChildren().size() *
        std::max(generalization.getParents().size(), generalization.getDiagrams().size());
    if (pairs > MOST_PAIRS) {
        faults_.add(place, "makes more than " + std::to_string(MOST_PAIRS) +
                               " pairs of its children with its parents or diagrams, the most permitted");
    }
    checkReferences(place, generalization.getParents(), "parent");
    checkReferences(place, generalization.getChildren(), "child");
    checkReferences(place, generalization.getForeignKeys(), "foreign key");
    checkNumber(place, "visibility", generalization.getVisibility(), ZOR_VISIBILITY_IMPLEMENTATION);
}
