#include "Preprocessing.h"

#include "Inspection.h"

namespace {

/// The first foreign key, from the last to the first, that begins with a column of the class; the first of
/// all when there is none, and null when there are no keys.
ZORForeignKey* findForeignKeyOf(const ZORGeneralization& generalization, const ZORClass* subtype) {
    const ZORVector<ZORForeignKey*>& keys = generalization.getForeignKeys();
    ZORForeignKey* found = nullptr;
    for (std::size_t i = keys.size(); i > 0; --i) {
        found = keys[i - 1];
        const ZORVector<ZORAttribute*>& columns = found->getAttributes();
        if (!columns.isEmpty() && columns[0]->getAssociatedClass() == subtype) {
            break;
        }
    }
    return found;
}

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::PreprocessOperation::run(Bridge* bridge) {
    bridge_ = bridge;
    void* context = nullptr;
    bridge->model_->_depthTraversal(*this, context);
}

bool Bridge::PreprocessOperation::pre_process(ZORObject* object, void*& /*context*/) {
    if (object->getElementType() == ZOR_CLASS) {
        shareIdentifier(static_cast<ZORClass*>(object));
    } else if (object->getElementType() == ZOR_GENERALIZATION) {
        auto* generalization = static_cast<ZORGeneralization*>(object);
        if (bridge_->modelView_ == MODEL_VIEW_UML) {
            splitIntoPairs(generalization);
        } else {
            replaceByAssociations(generalization);
        }
    }
    return true;
}

void Bridge::PreprocessOperation::shareIdentifier(ZORClass* cls) {
    if (ZORAssociation* association = cls->getAssociation()) {
        bridge_->setXMLID(association, UML, bridge_->getXMLID(cls, UML));
    }
}

void Bridge::PreprocessOperation::replaceByAssociations(ZORGeneralization* generalization) {
    if (generalization->getParents().size() != 1) {
        leaveOut(generalization, "it does not have exactly one supertype");
        return;
    }
    ZORClass* supertype = generalization->getParents()[0];
    const ZORVector<ZORClass*>& subtypes = generalization->getChildren();
    if (subtypes.isEmpty()) {
        // The check of the model refuses it; a host that does without the check still learns the reason.
        leaveOut(generalization, "it has no subtype");
    }
    for (std::size_t i = subtypes.size(); i > 0; --i) {
        addAssociation(generalization, supertype, subtypes[i - 1]);
    }
}

void Bridge::PreprocessOperation::addAssociation(ZORGeneralization* generalization, ZORClass* supertype,
                                                 ZORClass* subtype) {
    bridge_->auxiliary_.reserveMore(3);
    ZORAssociation* association =
        generalization->getDesignPackage()->addModelElement(std::make_unique<ZORMDCGeneralization>());
    bridge_->auxiliary_.append(association);
    if (bridge_->inspection_ != nullptr) {
        bridge_->inspection_->standsForPair(association, generalization, subtype, nullptr);
    }
    association->setName(generalization->getName());
    association->setDesignLevel(generalization->getDesignLevel());
    association->setAssociationKind(1);
    if (bridge_->modelView_ != MODEL_VIEW_DBM) {
        const ZORVector<ZORDiagram*>& diagrams = generalization->getDiagrams();
        for (std::size_t i = diagrams.size(); i > 0; --i) {
            diagrams[i - 1]->addModelElement(association);
        }
    }
    addRole(association, supertype, true)->setMultiplicity("1");
    ZORAssociationRole* child = addRole(association, subtype, false);
    child->setMultiplicity("0..1");
    if (ZORForeignKey* key = findForeignKeyOf(*generalization, subtype)) {
        child->addForeignKey(key);
    }
}

ZORAssociationRole* Bridge::PreprocessOperation::addRole(ZORAssociation* association, ZORClass* cls,
                                                         bool supertypeSide) {
    ZORAssociationRole* role = association->addRole(std::make_unique<ZORAssociationRole>());
    bridge_->auxiliary_.append(role);
    if (bridge_->inspection_ != nullptr) {
        bridge_->inspection_->standsFor(role, nullptr);
    }
    role->setSupertypeSide(supertypeSide);
    role->setAssociatedClass(cls);
    return role;
}

void Bridge::PreprocessOperation::leaveOut(const ZORGeneralization* generalization, const char* reason) {
    if (bridge_->modelView_ != MODEL_VIEW_DBM) {
        bridge_->leaveOut(generalization, ERD, reason);
    }
    if (bridge_->modelView_ != MODEL_VIEW_ERD) {
        bridge_->leaveOut(generalization, DBM, reason);
    }
}

void Bridge::PreprocessOperation::splitIntoPairs(ZORGeneralization* generalization) {
    // Read once: the copies are walked over as well, and are single pairs already.
    const ZORVector<ZORClass*> supertypes(generalization->getParents());
    const ZORVector<ZORClass*> subtypes(generalization->getChildren());
    if (supertypes.size() < 2 && subtypes.size() < 2) {
        return;
    }
    for (ZORClass* supertype : supertypes) {
        for (ZORClass* subtype : subtypes) {
            bridge_->auxiliary_.reserveMore(1);
            ZORGeneralization* copy = generalization->getDesignPackage()->addModelElement(
                std::make_unique<ZORGeneralization>(*generalization));
            bridge_->auxiliary_.append(copy);
            if (bridge_->inspection_ != nullptr) {
                bridge_->inspection_->standsForPair(copy, generalization, subtype,
                                                    supertypes.size() > 1 ? supertype : nullptr);
            }
            copy->addSupertypeClass(supertype);
            copy->addSubtypeClass(subtype);
        }
    }
}

bool Bridge::ResetGeneralPointerOperation::pre_process(ZORObject* object, void*& /*context*/) {
    if (object->getGeneralPointer() != nullptr) {
        object->setGeneralPointer(nullptr);
        userData_.release();
    }
    return true;
}
