#include "ZORType.h"

#include "ZORPackages.h"

const ZORType* ZORType::getActualType() const noexcept {
    const ZORType* type = this;
    while (type->getElementType() == ZOR_ALIAS_TYPE && type->getBaseType() != nullptr) {
        type = type->getBaseType();
    }
    return type;
}

void ZORType::changeTypeOf(ZORModelObject* object, ZORType*& reference, ZORType* type) {
    if (type != nullptr) {
        type->typedObjects_.append(object);
    }
    if (reference != nullptr) {
        reference->typedObjects_.removeLast(object);
    }
    reference = type;
}

void ZORType::changeBase(ZORType*& reference, ZORType* base) {
    if (base != nullptr) {
        base->basedTypes_.append(this);
    }
    if (reference != nullptr) {
        reference->basedTypes_.removeLast(this);
    }
    reference = base;
}

void ZORType::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        if (ZORType* base = getBaseType()) {
            base->basedTypes_.removeLast(this);
        }
        if (getOwner() != nullptr) {
            static_cast<ZORModel*>(getOwner())->removeType(this);
        }
    }
    ZORModelObject::setOwner(owner);
}

bool ZORType::traverseParts(ZORTraversalOperation& operation, void*& context) {
    return traverseList(values_, operation, context) && traverseNotes(operation, context);
}
