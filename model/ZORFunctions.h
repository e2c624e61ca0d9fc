#pragma once

#include "ZORPackages.h"

/// The object's physical name, or its name where there is none.
const ZORString& getPhysicalName(const ZORModelObject& object);

/// The old-style key of a data-type name: "SQL_INTEGER", "SQL_VARCHAR" ... "AUTOINCREMENT", or the empty text
/// for a name that is none of those keys and no known SQL spelling. See `ZOROldDataTypes.cpp` for the table.
const ZORString& getOldDataType(const ZORString& typeName);

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
