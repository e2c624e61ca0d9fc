#include "ZORClass.h"

ZORClass* ZORAttribute::getAssociatedClass() const noexcept {
    ZORObject* owner = getOwner();
    return owner != nullptr && owner->getElementType() == ZOR_CLASS ? static_cast<ZORClass*>(owner) : nullptr;
}

ZORClass* ZORKey::getAssociatedClass() const noexcept {
    return static_cast<ZORClass*>(getOwner());
}

void ZORKey::addAttribute(ZORAttribute* attribute) {
    attribute->keys_.append(this);
    attributes_.append(attribute);
}

void ZORArgument::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        addType(nullptr);
    }
    ZORModelObject::setOwner(owner);
}

ZORClass::~ZORClass() {
    destroyAll(attributes_);
    destroyAll(operations_);
    destroyAll(arguments_);
    destroyAll(keys_);
    destroyAll(indexes_);
    destroyAll(synonyms_);
}

ZORAttribute* ZORClass::getAttribute(const ZORString& name, int* position) const {
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
        if (attributes_[i]->getName() == name) {
            if (position != nullptr) {
                *position = static_cast<int>(i);
            }
            return attributes_[i];
        }
    }
    if (position != nullptr) {
        *position = -1;
    }
    return nullptr;
}

ZORIndex* ZORClass::getIndexOfKey(const ZORKey* key) const noexcept {
    for (ZORIndex* index : indexes_) {
        if (index->getKey() == key) {
            return index;
        }
    }
    return nullptr;
}

bool ZORClass::traverseParts(ZORTraversalOperation& operation, void*& context) {
    return traverseList(attributes_, operation, context) && traverseList(operations_, operation, context) &&
           traverseList(arguments_, operation, context) && traverseList(keys_, operation, context) &&
           traverseList(indexes_, operation, context) && traverseList(synonyms_, operation, context) &&
           traverseNotes(operation, context);
}
