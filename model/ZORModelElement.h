#pragma once

#include "ZORObject.h"

class ZORDesignPackage;
class ZORDiagram;

/// The base of what a design package holds: classes, views and relationships.
class ZORModelElement : public ZORModelObject {
  public:
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_MODEL_ELEMENT || ZORModelObject::isInstanceOf(type);
    }

    /// The package that owns the element; null while it stands alone.
    ZORDesignPackage* getDesignPackage() const noexcept;
    /// The diagrams that show the element, in the order in which it was put on them.
    const ZORVector<ZORDiagram*>& getDiagrams() const noexcept { return diagrams_; }

    /// With null, the element also leaves the diagrams that show it.
    void setOwner(ZORObject* owner) override;

  protected:
    explicit ZORModelElement(ZORElementType type) noexcept : ZORModelObject(type) {}
    ZORModelElement(const ZORModelElement& other) : ZORModelObject(other) {}

  private:
    friend class ZORDiagram;

    ZORVector<ZORDiagram*> diagrams_;
};
