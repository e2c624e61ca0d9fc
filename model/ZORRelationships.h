#pragma once

#include "ZORClass.h"

/// The base of generalizations, associations, dependencies and realizations.
class ZORRelationship : public ZORModelElement {
  public:
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_RELATIONSHIP || ZORModelElement::isInstanceOf(type);
    }

  protected:
    explicit ZORRelationship(ZORElementType type) noexcept : ZORModelElement(type) {}
    ZORRelationship(const ZORRelationship& other) : ZORModelElement(other) {}
};

/// One end of an association.
class ZORAssociationRole : public ZORModelObject {
  public:
    ZORAssociationRole() noexcept : ZORModelObject(ZOR_ASSOCIATION_ROLE) {}
    ~ZORAssociationRole() override { destroyAll(qualifiers_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ASSOCIATION_ROLE || ZORModelObject::isInstanceOf(type);
    }

    ZORAssociation* getAssociation() const noexcept;
    ZORClass* getAssociatedClass() const noexcept { return class_; }
    void setAssociatedClass(ZORClass* cls) noexcept { class_ = cls; }
    /// Text such as "0..1"; see `decodeMultiplicity`.
    const ZORString& getMultiplicity() const noexcept { return multiplicity_; }
    void setMultiplicity(ZORString text) { multiplicity_ = std::move(text); }
    /// The foreign key of a child end; null at every other end.
    ZORForeignKey* getForeignKey() const noexcept { return foreignKey_; }
    /// Gives the end its foreign key, in place of an earlier one. A key may be given to several ends; its own
    /// role is then the one that it was given to last.
    void addForeignKey(ZORForeignKey* key);
    ZORReferentialActionType getUpdateRule() const noexcept { return updateRule_; }
    void setUpdateRule(ZORReferentialActionType rule) noexcept { updateRule_ = rule; }
    ZORReferentialActionType getDeleteRule() const noexcept { return deleteRule_; }
    void setDeleteRule(ZORReferentialActionType rule) noexcept { deleteRule_ = rule; }
    ZORReferentialActionType getInsertRule() const noexcept { return insertRule_; }
    void setInsertRule(ZORReferentialActionType rule) noexcept { insertRule_ = rule; }
    bool isAggregateEnd() const noexcept { return aggregateEnd_; }
    void setAggregateEnd(bool aggregateEnd) noexcept { aggregateEnd_ = aggregateEnd; }
    /// 0 to 2.
    int getAggregationKind() const noexcept { return aggregationKind_; }
    void setAggregationKind(int kind) noexcept { aggregationKind_ = kind; }
    bool isNavigable() const noexcept { return navigable_; }
    void setNavigable(bool navigable) noexcept { navigable_ = navigable; }
    bool isOrdered() const noexcept { return ordered_; }
    void setOrdered(bool ordered) noexcept { ordered_ = ordered; }
    /// For the roles that stand for a generalization: whether this is the supertype's end.
    bool isSupertypeSide() const noexcept { return supertypeSide_; }
    void setSupertypeSide(bool supertypeSide) noexcept { supertypeSide_ = supertypeSide; }
    ZORVisibilityType getVisibility() const noexcept { return visibility_; }
    void setVisibility(ZORVisibilityType visibility) noexcept { visibility_ = visibility; }
    const ZORString& getConstraint() const noexcept { return constraint_; }
    void setConstraint(ZORString text) { constraint_ = std::move(text); }
    const ZORVector<ZORAttribute*>& getQualifiers() const noexcept { return qualifiers_; }
    ZORAttribute* addQualifier(std::unique_ptr<ZORAttribute> qualifier) {
        return adopt(qualifiers_, std::move(qualifier));
    }

    /// With null, the role also gives up its foreign key.
    void setOwner(ZORObject* owner) override;

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseList(qualifiers_, operation, context) && traverseNotes(operation, context);
    }

  private:
    ZORClass* class_ = nullptr;
    ZORForeignKey* foreignKey_ = nullptr;
    ZORString multiplicity_;
    ZORString constraint_;
    ZORVector<ZORAttribute*> qualifiers_;
    std::int32_t aggregationKind_ = 0;
    ZORReferentialActionType updateRule_ = ZOR_ACTION_NONE;
    ZORReferentialActionType deleteRule_ = ZOR_ACTION_NONE;
    ZORReferentialActionType insertRule_ = ZOR_ACTION_NONE;
    ZORVisibilityType visibility_ = ZOR_VISIBILITY_PUBLIC;
    bool aggregateEnd_ = false;
    bool navigable_ = false;
    bool ordered_ = false;
    bool supertypeSide_ = false;
};

class ZORAssociation : public ZORRelationship {
  public:
    ZORAssociation() noexcept : ZORAssociation(ZOR_ASSOCIATION) {}
    ~ZORAssociation() override { destroyAll(roles_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_ASSOCIATION || ZORRelationship::isInstanceOf(type);
    }

    const ZORVector<ZORAssociationRole*>& getRoles() const noexcept { return roles_; }
    ZORAssociationRole* addRole(std::unique_ptr<ZORAssociationRole> role) {
        return adopt(roles_, std::move(role));
    }
    /// The class that holds the association's own features; null when there is none.
    ZORClass* getAssociationClass() const noexcept { return associationClass_; }
    /// The class's association is this one from now on.
    void setAssociationClass(ZORClass* cls) noexcept;
    const ZORString& getConstraint() const noexcept { return constraint_; }
    void setConstraint(ZORString text) { constraint_ = std::move(text); }
    bool isAggregation() const noexcept { return aggregation_; }
    void setAggregation(bool aggregation) noexcept { aggregation_ = aggregation; }
    /// 1 marks an association that stands for a generalization.
    int getAssociationKind() const noexcept { return kind_; }
    void setAssociationKind(int kind) noexcept { kind_ = kind; }

    /// With null, the association also gives up its association class. Its roles keep their foreign keys.
    void setOwner(ZORObject* owner) override;

  protected:
    explicit ZORAssociation(ZORElementType type) noexcept : ZORRelationship(type) {}
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseList(roles_, operation, context) && traverseNotes(operation, context);
    }

  private:
    friend class ZORAssociationRole;

    ZORVector<ZORAssociationRole*> roles_;
    ZORClass* associationClass_ = nullptr;
    ZORString constraint_;
    std::int32_t kind_ = 0;
    bool aggregation_ = false;
};

class ZORGeneralization : public ZORRelationship {
  public:
    ZORGeneralization() noexcept : ZORRelationship(ZOR_GENERALIZATION) {}
    /// Carries over the common texts, the design level and the visibility; the copy has no classes, foreign
    /// keys, diagrams or notes and stands alone.
    ZORGeneralization(const ZORGeneralization& other)
        : ZORRelationship(other), visibility_(other.visibility_) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_GENERALIZATION || ZORRelationship::isInstanceOf(type);
    }

    const ZORVector<ZORClass*>& getParents() const noexcept { return parents_; }
    void addSupertypeClass(ZORClass* parent) { parents_.append(parent); }
    const ZORVector<ZORClass*>& getChildren() const noexcept { return children_; }
    /// The class lists the generalization among those in which it is the child.
    void addSubtypeClass(ZORClass* child);
    ZORVisibilityType getVisibility() const noexcept { return visibility_; }
    void setVisibility(ZORVisibilityType visibility) noexcept { visibility_ = visibility; }
    const ZORVector<ZORForeignKey*>& getForeignKeys() const noexcept { return foreignKeys_; }
    void addForeignKey(ZORForeignKey* key) { foreignKeys_.append(key); }

    /// With null, the generalization also leaves its children's lists.
    void setOwner(ZORObject* owner) override;

  private:
    ZORVector<ZORClass*> parents_;
    ZORVector<ZORClass*> children_;
    ZORVector<ZORForeignKey*> foreignKeys_;
    ZORVisibilityType visibility_ = ZOR_VISIBILITY_PUBLIC;
};

class ZORDependency : public ZORRelationship {
  public:
    ZORDependency() noexcept : ZORRelationship(ZOR_DEPENDENCY) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_DEPENDENCY || ZORRelationship::isInstanceOf(type);
    }

    ZORClass* getClient() const noexcept { return client_; }
    /// The class lists the dependency among its own; called once.
    void setClient(ZORClass* client);
    ZORClass* getSupplier() const noexcept { return supplier_; }
    void setSupplier(ZORClass* supplier) noexcept { supplier_ = supplier; }

    /// With null, the dependency also leaves its client's list.
    void setOwner(ZORObject* owner) override;

  private:
    ZORClass* client_ = nullptr;
    ZORClass* supplier_ = nullptr;
};

class ZORRealization : public ZORRelationship {
  public:
    ZORRealization() noexcept : ZORRelationship(ZOR_REALIZATION) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_REALIZATION || ZORRelationship::isInstanceOf(type);
    }

    ZORClass* getClient() const noexcept { return client_; }
    /// The class lists the realization among its own; called once.
    void setClient(ZORClass* client);
    ZORClass* getSupplier() const noexcept { return supplier_; }
    void setSupplier(ZORClass* supplier) noexcept { supplier_ = supplier; }

    /// With null, the realization also leaves its client's list.
    void setOwner(ZORObject* owner) override;

  private:
    ZORClass* client_ = nullptr;
    ZORClass* supplier_ = nullptr;
};
