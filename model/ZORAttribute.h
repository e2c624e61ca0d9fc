#pragma once

#include "ZORType.h"

class ZORForeignKey;
class ZORKey;
class ZORAttribute;

/// Tells, for one foreign key that an attribute belongs to, which attribute of the referenced key it maps to.
class ZORAssociationRoleNameMap : public ZORModelObject {
  public:
    ZORAssociationRoleNameMap() noexcept : ZORModelObject(ZOR_ASSOCIATION_ROLE_NAME_MAP) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ASSOCIATION_ROLE_NAME_MAP || ZORModelObject::isInstanceOf(type);
    }

    ZORForeignKey* getForeignKey() const noexcept { return foreignKey_; }
    void setForeignKey(ZORForeignKey* key) noexcept { foreignKey_ = key; }
    /// The attribute of the referenced key; may be null.
    ZORAttribute* getReferencedAttribute() const noexcept { return referenced_; }
    void setReferencedAttribute(ZORAttribute* attribute) noexcept { referenced_ = attribute; }

  private:
    ZORForeignKey* foreignKey_ = nullptr;
    ZORAttribute* referenced_ = nullptr;
};

/// An attribute of a class or column of a table; also a qualifier of an association role.
class ZORAttribute : public ZORModelObject {
  public:
    ZORAttribute() noexcept : ZORModelObject(ZOR_ATTRIBUTE) {}
    ~ZORAttribute() override { destroyAll(roleNameMaps_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ATTRIBUTE || type == ZOR_STRUCTURAL_FEATURE || type == ZOR_FEATURE ||
               ZORModelObject::isInstanceOf(type);
    }

    /// Counted from 0.
    std::int16_t getPosition() const noexcept { return position_; }
    void setPosition(std::int16_t position) noexcept { position_ = position; }
    ZORType* getType() const noexcept { return type_; }
    void setType(ZORType* type) { ZORType::changeTypeOf(this, type_, type); }
    const ZORString& getInitialValue() const noexcept { return initialValue_; }
    void setInitialValue(ZORString value) { initialValue_ = std::move(value); }
    /// True: the attribute or column may be null.
    bool isOptional() const noexcept { return optional_; }
    void setOptional(bool optional) noexcept { optional_ = optional; }
    bool isStatic() const noexcept { return static_; }
    void setStatic(bool isStatic) noexcept { static_ = isStatic; }
    ZORVisibilityType getVisibility() const noexcept { return visibility_; }
    void setVisibility(ZORVisibilityType visibility) noexcept { visibility_ = visibility; }

    /// The keys that the attribute belongs to, in the order in which it joined them.
    const ZORVector<ZORKey*>& getKeys() const noexcept { return keys_; }
    const ZORVector<ZORAssociationRoleNameMap*>& getRoleNameMaps() const noexcept { return roleNameMaps_; }
    ZORAssociationRoleNameMap* addRoleNameMap(std::unique_ptr<ZORAssociationRoleNameMap> map) {
        return adopt(roleNameMaps_, std::move(map));
    }
    /// The class that owns the attribute; null for a qualifier.
    ZORClass* getAssociatedClass() const noexcept;

  private:
    friend class ZORKey;

    ZORType* type_ = nullptr;
    ZORString initialValue_;
    ZORVector<ZORKey*> keys_;
    ZORVector<ZORAssociationRoleNameMap*> roleNameMaps_;
    std::int16_t position_ = 0;
    ZORVisibilityType visibility_ = ZOR_VISIBILITY_PUBLIC;
    bool optional_ = false;
    bool static_ = false;
};
