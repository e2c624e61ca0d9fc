// What connects the objects of a model: associations, generalizations, diagrams, and the keys that foreign
// keys reference.

#include "ModelMaker.h"

namespace fuzz {
namespace {

constexpr const char* MULTIPLICITIES[] = {
    "", "1", "0..1", "*", "0..*", "1..n", "2..5", "1,3..4", "nonsense", "-1", "99999999999999999999", "5..2"};

}  // namespace

void ModelMaker::makeAssociation() {
    if (classes_.empty()) {
        return makeClass();
    }
    ZORAssociation* association = anyPackage().addModelElement(anyObject<ZORAssociation>());
    elements_.push_back(association);
    association->setAggregation(choices_.either());
    association->setAssociationKind(static_cast<int>(choices_.below(3)));
    association->setConstraint(choices_.oneIn(3) ? anyText() : ZORString());
    if (ZORClass* cls = any(classes_); choices_.oneIn(4) && cls->getAssociation() == nullptr) {
        association->setAssociationClass(cls);
    }
    const std::size_t roles = choices_.oneIn(4) ? choices_.below(4) : 2;
    for (std::size_t i = 0; i < roles; ++i) {
        makeRole(*association);
    }
}

void ModelMaker::makeRole(ZORAssociation& association) {
    ZORAssociationRole* role = association.addRole(anyObject<ZORAssociationRole>());
    role->setAssociatedClass(any(classes_));
    role->setMultiplicity(choices_.pick(MULTIPLICITIES));
    role->setUpdateRule(anyOf<ZORReferentialActionType>(6));
    role->setDeleteRule(anyOf<ZORReferentialActionType>(6));
    role->setAggregateEnd(choices_.either());
    role->setAggregationKind(static_cast<int>(choices_.below(3)));
    role->setNavigable(choices_.either());
    role->setOrdered(choices_.either());
    role->setVisibility(anyOf<ZORVisibilityType>(4));
    role->setConstraint(choices_.oneIn(4) ? anyText() : ZORString());
    ZORForeignKey* key = choices_.either() ? any(foreignKeys_) : nullptr;
    if (key != nullptr && key->getAssociationRole() == nullptr) {
        role->setAssociatedClass(key->getAssociatedClass());
        role->addForeignKey(key);
    }
    if (choices_.oneIn(4)) {
        ZORAttribute* qualifier = role->addQualifier(anyObject<ZORAttribute>());
        qualifier->setType(any(types_));
    }
}

void ModelMaker::makeGeneralization() {
    if (classes_.empty()) {
        return makeClass();
    }
    ZORGeneralization* generalization = anyPackage().addModelElement(anyObject<ZORGeneralization>());
    elements_.push_back(generalization);
    generalization->setVisibility(anyOf<ZORVisibilityType>(4));
    for (std::size_t count = 1 + (choices_.oneIn(4) ? choices_.below(3) : 0); count > 0; --count) {
        generalization->addSupertypeClass(any(classes_));
    }
    for (std::size_t count = 1 + choices_.below(3); count > 0; --count) {
        ZORClass* subtype = any(classes_);
        generalization->addSubtypeClass(subtype);
        for (ZORForeignKey* key : foreignKeys_) {
            if (key->getAssociatedClass() == subtype && choices_.either()) {
                generalization->addForeignKey(key);
            }
        }
    }
}

void ModelMaker::makeDiagram() {
    ZORDiagram* diagram = anyPackage().addDiagram(anyObject<ZORDiagram>());
    for (std::size_t count = choices_.below(6); count > 0 && !elements_.empty(); --count) {
        diagram->addModelElement(any(elements_));
    }
}

/// References to keys and attributes that may stand behind what refers to them.
void ModelMaker::completeForeignKeys() {
    for (ZORForeignKey* key : foreignKeys_) {
        ZORCandidateKey* referenced = any(candidateKeys_);
        const ZORAssociationRole* role = key->getAssociationRole();
        if (referenced == nullptr || choices_.oneIn(8)) {
            continue;
        }
        if (role != nullptr && role->getAssociation()->getRoles().size() == 2 && !choices_.oneIn(8)) {
            const ZORVector<ZORAssociationRole*>& roles = role->getAssociation()->getRoles();
            roles[roles[0] == role ? 1 : 0]->setAssociatedClass(referenced->getAssociatedClass());
        }
        key->setCandidateKey(referenced);
        for (ZORAttribute* attribute : key->getAttributes()) {
            if (choices_.either() && !referenced->getAttributes().isEmpty()) {
                auto map = std::make_unique<ZORAssociationRoleNameMap>();
                map->setForeignKey(key);
                if (!choices_.oneIn(4)) {
                    map->setReferencedAttribute(
                        referenced->getAttributes()[choices_.below(referenced->getAttributes().size())]);
                }
                attribute->addRoleNameMap(std::move(map));
            }
        }
    }
}

}  // namespace fuzz
