// types/: the data-type conventions of database products, the choice of one, and the way from a type of the
// model to a type of the convention. Nothing here knows what an element of a view looks like.
#pragma once

#include "ZORHashtable.h"
#include "ZORString.h"

/// One row of a type table. A table ends with a row without a source key, which holds the fallback.
struct DTMTypeMap {
    const char* sourceKey;  ///< old-style data-type name; null in the end row
    int sizeSelector;       ///< -1 any type, 0 only one without length and scale, 1 only one with either
    const char* typeName;  ///< name in the target convention; null in the end row of a table without fallback

    /// The name to compare and to write: empty where there is no fallback.
    const char* getTypeName() const noexcept { return typeName == nullptr ? "" : typeName; }
};

/// What stands behind one value of the type-set options; all null for "None" and "Default" and at the end.
struct DTMTypeSetDescriptor {
    const char* databaseName;
    const char* version;
    const char* label;  ///< kept for reference; nothing reads it
    const DTMTypeMap* typeTable;
};

/// The descriptors, parallel to the values of `QLT_SQMDC::BP_DBM_TYPESET_ENUM`; ends with an all-null row.
extern const DTMTypeSetDescriptor DTM_TYPE_SET_DESCRIPTORS[];

/// The table whose type names are the categories of `getDBMTypeCategory`, a digit each.
extern const DTMTypeMap DTM_CATEGORY_TABLE[];

/// The types of one set that were used, by their name in the convention: every source key that leads to the
/// same name shares a member. The table owns its members.
class DTMTypeHashtable : public ZORHashtable {
  public:
    struct Member {
        const DTMTypeMap* row;  ///< the row through which the type was reached first
        int id;                 ///< the identifier of its element
    };

    explicit DTMTypeHashtable(std::size_t initialSize) : ZORHashtable(initialSize) {}
    ~DTMTypeHashtable() override;
    /// The member whose type name is that of the row, or null.
    const Member* findType(const DTMTypeMap* row) const { return static_cast<const Member*>(find(row)); }
    /// Adds a member; the caller has seen that there is none of this type name.
    const Member& addType(const DTMTypeMap* row, int id);
    const Member& getType(std::size_t index) const { return *static_cast<const Member*>((*this)[index]); }

  protected:
    int compare2Object(const void* object1, const void* object2) const override;
    int compare2Key(const void* object, const void* key) const override;
    std::uint32_t hashObject(const void* object) const override;
    std::uint32_t hashKey(const void* key) const override;
};
