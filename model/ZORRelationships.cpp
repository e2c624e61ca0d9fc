#include "ZORRelationships.h"

ZORAssociation* ZORAssociationRole::getAssociation() const noexcept {
    return static_cast<ZORAssociation*>(getOwner());
}

void ZORAssociationRole::addForeignKey(ZORForeignKey* key) {
    if (key != nullptr) {
        key->roles_.append(this);
    }
    if (foreignKey_ != nullptr) {
        foreignKey_->roles_.removeLast(this);
    }
    foreignKey_ = key;
}

void ZORAssociationRole::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        addForeignKey(nullptr);
        if (getAssociation() != nullptr) {
            getAssociation()->roles_.removeLast(this);
        }
    }
    ZORModelObject::setOwner(owner);
}

void ZORAssociation::setAssociationClass(ZORClass* cls) noexcept {
    if (associationClass_ != nullptr && associationClass_->association_ == this) {
        associationClass_->association_ = nullptr;
    }
    associationClass_ = cls;
    if (cls != nullptr) {
        cls->association_ = this;
    }
}

void ZORAssociation::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        setAssociationClass(nullptr);
    }
    ZORRelationship::setOwner(owner);
}

void ZORGeneralization::addSubtypeClass(ZORClass* child) {
    // In this order, what was half done is undone by taking the generalization out.
    children_.append(child);
    child->generalizations_.append(this);
}

void ZORGeneralization::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        for (ZORClass* child : children_) {
            child->generalizations_.removeLast(this);
        }
        children_.clear();
    }
    ZORRelationship::setOwner(owner);
}

void ZORDependency::setClient(ZORClass* client) {
    client->clientDependencies_.append(this);
    client_ = client;
}

void ZORDependency::setOwner(ZORObject* owner) {
    if (owner == nullptr && client_ != nullptr) {
        client_->clientDependencies_.removeLast(this);
        client_ = nullptr;
    }
    ZORRelationship::setOwner(owner);
}

void ZORRealization::setClient(ZORClass* client) {
    client->realizations_.append(this);
    client_ = client;
}

void ZORRealization::setOwner(ZORObject* owner) {
    if (owner == nullptr && client_ != nullptr) {
        client_->realizations_.removeLast(this);
        client_ = nullptr;
    }
    ZORRelationship::setOwner(owner);
}
