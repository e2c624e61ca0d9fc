#pragma once

#include "ZORClass.h"
#include "ZORRelationships.h"
#include "ZORSQLView.h"

/// The base of what packages are nested in: the model, its packages and its catalogs.
class ZORPackage : public ZORModelObject {
  public:
    ~ZORPackage() override;
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_PACKAGE || ZORModelObject::isInstanceOf(type);
    }

    /// Design packages and, in a model, database catalogs.
    const ZORVector<ZORPackage*>& getChildPackages() const noexcept { return children_; }
    template <typename Child>
    Child* addChildPackage(std::unique_ptr<Child> child) {
        return adopt(children_, std::move(child));
    }

  protected:
    explicit ZORPackage(ZORElementType type) noexcept : ZORModelObject(type) {}
    bool traverseChildren(ZORTraversalOperation& operation, void*& context) {
        return traverseList(children_, operation, context);
    }

  private:
    ZORVector<ZORPackage*> children_;
};

/// A diagram: of its layout, only what it shows.
class ZORDiagram : public ZORModelObject {
  public:
    ZORDiagram() noexcept : ZORModelObject(ZOR_DIAGRAM) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_DIAGRAM || ZORModelObject::isInstanceOf(type);
    }

    /// What the diagram shows, model elements and notes; it owns none of it.
    const ZORVector<ZORObject*>& getModelElements() const noexcept { return elements_; }
    /// A model element lists the diagram among those that show it.
    void addModelElement(ZORObject* element);

  private:
    friend class ZORModelElement;

    ZORVector<ZORObject*> elements_;
};

class ZORDesignPackage : public ZORPackage {
  public:
    ZORDesignPackage() noexcept : ZORPackage(ZOR_DESIGN_PACKAGE) {}
    ~ZORDesignPackage() override;
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_DESIGN_PACKAGE || ZORPackage::isInstanceOf(type);
    }

    /// Classes, views and relationships, in one order.
    const ZORVector<ZORModelElement*>& getModelElements() const noexcept { return elements_; }
    template <typename Element>
    Element* addModelElement(std::unique_ptr<Element> element) {
        return adopt(elements_, std::move(element));
    }
    /// Operations of the package itself, in practice stored procedures.
    const ZORVector<ZOROperation*>& getOperations() const noexcept { return operations_; }
    ZOROperation* addOperation(std::unique_ptr<ZOROperation> operation) {
        return adopt(operations_, std::move(operation));
    }
    const ZORVector<ZORDiagram*>& getDiagrams() const noexcept { return diagrams_; }
    ZORDiagram* addDiagram(std::unique_ptr<ZORDiagram> diagram) {
        return adopt(diagrams_, std::move(diagram));
    }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override;

  private:
    friend class ZORModelElement;

    ZORVector<ZORModelElement*> elements_;
    ZORVector<ZOROperation*> operations_;
    ZORVector<ZORDiagram*> diagrams_;
};

/// The database that the model describes.
class ZORDatabaseCatalog : public ZORPackage {
  public:
    ZORDatabaseCatalog() noexcept : ZORPackage(ZOR_DATABASE_CATALOG) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_DATABASE_CATALOG || type == ZOR_CATALOG || ZORPackage::isInstanceOf(type);
    }

    /// For example "SQL Server 7.x".
    const ZORString& getDatabaseType() const noexcept { return databaseType_; }
    void setDatabaseType(ZORString type) { databaseType_ = std::move(type); }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseChildren(operation, context) && traverseNotes(operation, context);
    }

  private:
    ZORString databaseType_;
};

/// A whole source model.
class ZORModel : public ZORPackage {
  public:
    ZORModel() noexcept : ZORPackage(ZOR_MODEL) {}
    ~ZORModel() override { destroyAll(types_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_MODEL || ZORPackage::isInstanceOf(type);
    }

    /// All data types of the model.
    const ZORVector<ZORType*>& getTypes() const noexcept { return types_; }
    template <typename Type>
    Type* addType(std::unique_ptr<Type> type) {
        return adopt(types_, std::move(type));
    }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override;

  private:
    friend class ZORType;

    void removeType(ZORType* type) { types_.removeLast(type); }

    ZORVector<ZORType*> types_;
};
