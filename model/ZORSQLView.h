#pragma once

#include "ZORClass.h"

/// A column of a view.
class ZORSQLViewAttribute : public ZORModelObject {
  public:
    ZORSQLViewAttribute() noexcept : ZORModelObject(ZOR_SQL_VIEW_ATTRIBUTE) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_SQL_VIEW_ATTRIBUTE || type == ZOR_STRUCTURAL_FEATURE || type == ZOR_FEATURE ||
               ZORModelObject::isInstanceOf(type);
    }

    /// Null when the column's type is not known.
    ZORType* getType() const noexcept { return type_; }
    void setType(ZORType* type) { ZORType::changeTypeOf(this, type_, type); }
    /// What the column shows: a table's attribute, any other object, or null.
    ZORModelObject* getSource() const noexcept { return source_; }
    void setSource(ZORModelObject* source) noexcept { source_ = source; }

  private:
    ZORType* type_ = nullptr;
    ZORModelObject* source_ = nullptr;
};

/// A view of a database.
class ZORSQLViewEntity : public ZORModelElement {
  public:
    ZORSQLViewEntity() noexcept : ZORModelElement(ZOR_SQL_VIEW_ENTITY) {}
    ~ZORSQLViewEntity() override {
        destroyAll(columns_);
        destroyAll(operations_);
    }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_SQL_VIEW_ENTITY || type == ZOR_CLASSIFIER || ZORModelElement::isInstanceOf(type);
    }

    /// The view's own statement; may be empty, see `computeSqlViewSelectStatement`.
    const ZORString& getSQLText() const noexcept { return sqlText_; }
    void setSQLText(ZORString text) { sqlText_ = std::move(text); }
    std::size_t getSQLViewAttributeCount() const noexcept { return columns_.size(); }
    const ZORVector<ZORSQLViewAttribute*>& getSQLViewAttributes() const noexcept { return columns_; }
    ZORSQLViewAttribute* addSQLViewAttribute(std::unique_ptr<ZORSQLViewAttribute> column) {
        return adopt(columns_, std::move(column));
    }
    const ZORVector<ZOROperation*>& getOperations() const noexcept { return operations_; }
    ZOROperation* addOperation(std::unique_ptr<ZOROperation> operation) {
        return adopt(operations_, std::move(operation));
    }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseList(columns_, operation, context) && traverseList(operations_, operation, context) &&
               traverseNotes(operation, context);
    }

  private:
    ZORString sqlText_;
    ZORVector<ZORSQLViewAttribute*> columns_;
    ZORVector<ZOROperation*> operations_;
};
