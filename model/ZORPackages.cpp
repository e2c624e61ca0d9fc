#include "ZORPackages.h"

ZORPackage::~ZORPackage() {
    // Down to the innermost package and back up, so that the depth of nesting costs neither stack nor memory.
    ZORPackage* package = this;
    while (package != this || !children_.isEmpty()) {
        if (!package->children_.isEmpty()) {
            package = package->children_.last();
            continue;
        }
        ZORPackage* innermost = package;
        package = static_cast<ZORPackage*>(innermost->getOwner());
        package->children_.removeLast();
        delete innermost;
    }
}

ZORDesignPackage* ZORModelElement::getDesignPackage() const noexcept {
    return static_cast<ZORDesignPackage*>(getOwner());
}

void ZORModelElement::setOwner(ZORObject* owner) {
    if (owner == nullptr) {
        for (std::size_t i = diagrams_.size(); i > 0; --i) {
            diagrams_[i - 1]->elements_.removeLast(this);
        }
        diagrams_.clear();
        if (getDesignPackage() != nullptr) {
            getDesignPackage()->elements_.removeLast(this);
        }
    }
    ZORModelObject::setOwner(owner);
}

void ZORDiagram::addModelElement(ZORObject* element) {
    // In this order, what was half done is undone by taking the element out.
    if (element->isInstanceOf(ZOR_MODEL_ELEMENT)) {
        static_cast<ZORModelElement*>(element)->diagrams_.append(this);
    }
    elements_.append(element);
}

ZORDesignPackage::~ZORDesignPackage() {
    destroyAll(elements_);
    destroyAll(operations_);
    destroyAll(diagrams_);
}

bool ZORDesignPackage::traverseParts(ZORTraversalOperation& operation, void*& context) {
    return traverseChildren(operation, context) && traverseList(elements_, operation, context) &&
           traverseList(operations_, operation, context) && traverseList(diagrams_, operation, context) &&
           traverseNotes(operation, context);
}

bool ZORModel::traverseParts(ZORTraversalOperation& operation, void*& context) {
    return traverseChildren(operation, context) && traverseList(types_, operation, context) &&
           traverseNotes(operation, context);
}
