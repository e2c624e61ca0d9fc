#pragma once

#include <algorithm>

#include "ZORPackages.h"

// The lists of an object's parts in ascending position. An attribute has a position of its own, and
// attributes of equal position keep their order; every other part's position is its index in the list that it
// stands in.

/// A list fetched by position; it holds the objects as they were when it was fetched.
template <typename Part>
class ZORPositionList {
  public:
    ZORPositionList() noexcept = default;
    explicit ZORPositionList(ZORVector<Part*> parts) noexcept : parts_(std::move(parts)) {}
    std::size_t size() const noexcept { return parts_.size(); }
    bool isEmpty() const noexcept { return parts_.isEmpty(); }
    Part* operator[](std::size_t index) const noexcept { return parts_[index]; }
    Part* const* begin() const noexcept { return parts_.begin(); }
    Part* const* end() const noexcept { return parts_.end(); }

  private:
    ZORVector<Part*> parts_;
};

using ZORAttributeByPosition = ZORPositionList<ZORAttribute>;
using ZOROperationByPosition = ZORPositionList<ZOROperation>;
using ZORArgumentByPosition = ZORPositionList<ZORArgument>;
using ZORIndexMemberByPosition = ZORPositionList<ZORIndexMember>;
using ZORFeatureByPosition = ZORPositionList<ZORSQLViewAttribute>;
using ZORTypeValueByPosition = ZORPositionList<ZORTypeValue>;

/// The attributes in ascending position, those of equal position in their order in the list.
ZORAttributeByPosition sortByPosition(const ZORVector<ZORAttribute*>& attributes);

inline ZORAttributeByPosition getAttributeByPosition(const ZORClass& cls) {
    return sortByPosition(cls.getAttributes());
}
inline ZORAttributeByPosition getQualifierAttributeByPosition(const ZORAssociationRole& role) {
    return sortByPosition(role.getQualifiers());
}
template <typename Owner>
ZOROperationByPosition getOperationByPosition(const Owner& owner) {
    return ZOROperationByPosition(owner.getOperations());
}
template <typename Owner>
ZORArgumentByPosition getArgumentByPosition(const Owner& owner) {
    return ZORArgumentByPosition(owner.getArguments());
}
inline ZORIndexMemberByPosition getIndexMemberByPosition(const ZORIndex& index) {
    return ZORIndexMemberByPosition(index.getIndexMembers());
}
inline ZORFeatureByPosition getFeatureByPosition(const ZORSQLViewEntity& view) {
    return ZORFeatureByPosition(view.getSQLViewAttributes());
}
inline ZORTypeValueByPosition getTypeValueByPosition(const ZORType& type) {
    return ZORTypeValueByPosition(type.getTypeValues());
}
