#pragma once

#include <span>
#include <string_view>

#include "ZORPackages.h"

/// The object's physical name, or its name where there is none.
const ZORString& getPhysicalName(const ZORModelObject& object);

/// The old-style key of a data-type name: "SQL_INTEGER", "SQL_VARCHAR" ... "AUTOINCREMENT", or the empty text
/// for a name that is none of those keys and no known SQL spelling.
const ZORString& getOldDataType(const ZORString& typeName);

/// A key, and the other names that lead to it: in upper case and with commas between them. Any case, sizes in
/// parentheses but "(MAX)", and words such as UNSIGNED make no difference to those.
struct ZOROldDataTypeNames {
    std::string_view key;
    std::string_view spellings;
};
/// The whole table that `getOldDataType` goes by, in the order of the keys.
std::span<const ZOROldDataTypeNames> getOldDataTypeNames() noexcept;

/// A SELECT statement that yields the view's columns from their source tables; empty unless some column's
/// source is an attribute of a class. Columns with another source or none show NULL.
ZORString computeSqlViewSelectStatement(const ZORSQLViewEntity& view);

/// The upper bound of a multiplicity without one.
inline constexpr int ZOR_UNBOUNDED = 0x7fffffff;

/// Reads a multiplicity: "a", "a..b", "*", "n" or "m" (0 to unbounded), or several of these with commas
/// between them (the lowest lower and the highest upper bound); b may be unbounded too. Blanks are ignored.
/// "" and everything else give 1 and 1, as do numbers below zero or beyond an int, and bounds the wrong way
/// round.
void decodeMultiplicity(const ZORString& text, int& lower, int& upper);
