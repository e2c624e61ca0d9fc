#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TableDefinition.h"

namespace readers::sqlite {

/// What a CHECK of the form `column IN (literal, ...)` permits.
struct ValueList {
    struct Value {
        std::string text;       ///< a text without its quotes; everything else as written
        std::int16_t code = 0;  ///< the number, where it is a whole one of 16 bits, and 1 of TRUE; else 0
    };
    std::string column;         ///< as the CHECK spells it
    std::vector<Value> values;  ///< each once, in the order in which they stand; never empty
};

/// The values that an expression permits to a column of the table; nothing for an expression of any other
/// form. Nor for a list with NULL in it: no value makes such a CHECK false, for it is NULL where the value is
/// not in the list, so that it permits everything.
std::optional<ValueList> parseValueList(std::string_view expression, const TableDefinition& table);

/// The checks of a table that give its columns their values: of each column the first.
struct ColumnValues {
    const CheckConstraint* check = nullptr;
    ValueList list;
};
std::vector<ColumnValues> findColumnValues(const TableDefinition& table);

}  // namespace readers::sqlite
