#pragma once

#include "ZORAttribute.h"

class ZORAssociationRole;
class ZORCandidateKey;

/// The base of candidate and foreign keys: some attributes of a class, in an order.
class ZORKey : public ZORModelObject {
  public:
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_KEY || ZORModelObject::isInstanceOf(type);
    }

    ZORClass* getAssociatedClass() const noexcept;
    const ZORVector<ZORAttribute*>& getAttributes() const noexcept { return attributes_; }
    /// Adds an attribute of the key's class; the attribute lists the key.
    void addAttribute(ZORAttribute* attribute);

  protected:
    explicit ZORKey(ZORElementType type) noexcept : ZORModelObject(type) {}

  private:
    ZORVector<ZORAttribute*> attributes_;
};

/// A key that may identify the rows or objects of its class.
class ZORCandidateKey : public ZORKey {
  public:
    ZORCandidateKey() noexcept : ZORKey(ZOR_CANDIDATE_KEY) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_CANDIDATE_KEY || ZORKey::isInstanceOf(type);
    }

    bool isUnique() const noexcept { return unique_; }
    void setUnique(bool unique) noexcept { unique_ = unique; }
    /// The class whose primary key this is; null when it is not one.
    ZORClass* getPrimaryOfClass() const noexcept { return primaryOf_; }
    void setPrimaryOfClass(ZORClass* cls) noexcept { primaryOf_ = cls; }

  private:
    ZORClass* primaryOf_ = nullptr;
    bool unique_ = false;
};

/// A key whose attributes take their values from a candidate key of another (or the same) class.
class ZORForeignKey : public ZORKey {
  public:
    ZORForeignKey() noexcept : ZORKey(ZOR_FOREIGN_KEY) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_FOREIGN_KEY || ZORKey::isInstanceOf(type);
    }

    /// The key referred to; may be null.
    ZORCandidateKey* getCandidateKey() const noexcept { return candidateKey_; }
    void setCandidateKey(ZORCandidateKey* key) noexcept { candidateKey_ = key; }
    /// The role that carries the key: the last one that it was added to, null when there is none.
    ZORAssociationRole* getAssociationRole() const noexcept {
        return roles_.isEmpty() ? nullptr : roles_.last();
    }
    /// All roles that carry the key, in the order in which it was added to them.
    const ZORVector<ZORAssociationRole*>& getAssociationRoles() const noexcept { return roles_; }

  private:
    friend class ZORAssociationRole;

    ZORCandidateKey* candidateKey_ = nullptr;
    ZORVector<ZORAssociationRole*> roles_;
};

/// One column of an index.
class ZORIndexMember : public ZORModelObject {
  public:
    ZORIndexMember() noexcept : ZORModelObject(ZOR_INDEX_MEMBER) {}
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_INDEX_MEMBER || ZORModelObject::isInstanceOf(type);
    }

    ZORAttribute* getAttribute() const noexcept { return attribute_; }
    void setAttribute(ZORAttribute* attribute) noexcept { attribute_ = attribute; }
    /// Any value but none and ascending counts as descending.
    ZORSortOrder getSortOrder() const noexcept { return sortOrder_; }
    void setSortOrder(ZORSortOrder order) noexcept { sortOrder_ = order; }

  private:
    ZORAttribute* attribute_ = nullptr;
    ZORSortOrder sortOrder_ = ZOR_SORT_NONE;
};

class ZORIndex : public ZORModelObject {
  public:
    ZORIndex() noexcept : ZORModelObject(ZOR_INDEX) {}
    ~ZORIndex() override { destroyAll(members_); }
    bool isInstanceOf(ZORElementType type) const noexcept override {
        return type == ZOR_INDEX || ZORModelObject::isInstanceOf(type);
    }

    bool isClustered() const noexcept { return clustered_; }
    void setClustered(bool clustered) noexcept { clustered_ = clustered; }
    bool isUnique() const noexcept { return unique_; }
    void setUnique(bool unique) noexcept { unique_ = unique; }
    /// The key that the index implements; may be null.
    ZORKey* getKey() const noexcept { return key_; }
    void setKey(ZORKey* key) noexcept { key_ = key; }
    /// The members; a member's position is its index in this list.
    const ZORVector<ZORIndexMember*>& getIndexMembers() const noexcept { return members_; }
    ZORIndexMember* addIndexMember(std::unique_ptr<ZORIndexMember> member) {
        return adopt(members_, std::move(member));
    }

  protected:
    bool traverseParts(ZORTraversalOperation& operation, void*& context) override {
        return traverseList(members_, operation, context) && traverseNotes(operation, context);
    }

  private:
    ZORKey* key_ = nullptr;
    ZORVector<ZORIndexMember*> members_;
    bool clustered_ = false;
    bool unique_ = false;
};
