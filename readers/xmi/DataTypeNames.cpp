#include "DataTypeNames.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace readers::xmi {

namespace {

struct Row {
    std::string_view name;  ///< without "java.lang." and the like
    std::string_view dataType;
};

/// In alphabetical order (capitals first), for the search. Integers of 64 bits are decimals.
constexpr Row ROWS[] = {
    {"BigDecimal", "SQL_NUMERIC"},
    {"BigInteger", "SQL_NUMERIC"},
    {"Bool", "SQL_BOOLEAN"},
    {"Boolean", "SQL_BOOLEAN"},
    {"Byte", "SQL_TINYINT"},
    {"Char", "SQL_CHAR"},
    {"Character", "SQL_CHAR"},
    {"CharacterString", "SQL_VARCHAR"},
    {"Currency", "SQL_NUMERIC"},
    {"Date", "SQL_DATE"},
    {"DateTime", "SQL_TIMESTAMP"},
    {"Decimal", "SQL_NUMERIC"},
    {"Double", "SQL_DOUBLE"},
    {"EBigDecimal", "SQL_NUMERIC"},
    {"EBigInteger", "SQL_NUMERIC"},
    {"EBoolean", "SQL_BOOLEAN"},
    {"EBooleanObject", "SQL_BOOLEAN"},
    {"EByte", "SQL_TINYINT"},
    {"EByteArray", "SQL_LONGVARBINARY"},
    {"EChar", "SQL_CHAR"},
    {"EDate", "SQL_TIMESTAMP"},
    {"EDouble", "SQL_DOUBLE"},
    {"EDoubleObject", "SQL_DOUBLE"},
    {"EFloat", "SQL_REAL"},
    {"EFloatObject", "SQL_REAL"},
    {"EInt", "SQL_INTEGER"},
    {"EIntegerObject", "SQL_INTEGER"},
    {"ELong", "SQL_NUMERIC"},
    {"ELongObject", "SQL_NUMERIC"},
    {"EShort", "SQL_SMALLINT"},
    {"EString", "SQL_VARCHAR"},
    {"Float", "SQL_REAL"},
    {"Int", "SQL_INTEGER"},
    {"Integer", "SQL_INTEGER"},
    {"Long", "SQL_NUMERIC"},
    {"Number", "SQL_NUMERIC"},
    {"Real", "SQL_DOUBLE"},
    {"Short", "SQL_SMALLINT"},
    {"String", "SQL_VARCHAR"},
    {"Time", "SQL_TIME"},
    {"Timestamp", "SQL_TIMESTAMP"},
    {"UUID", "SQL_CHAR"},
    {"UnlimitedNatural", "SQL_INTEGER"},
    {"bool", "SQL_BOOLEAN"},
    {"boolean", "SQL_BOOLEAN"},
    {"byte", "SQL_TINYINT"},
    {"byte[]", "SQL_LONGVARBINARY"},
    {"char", "SQL_CHAR"},
    {"date", "SQL_DATE"},
    {"dateTime", "SQL_TIMESTAMP"},
    {"decimal", "SQL_NUMERIC"},
    {"double", "SQL_DOUBLE"},
    {"float", "SQL_REAL"},
    {"int", "SQL_INTEGER"},
    {"integer", "SQL_INTEGER"},
    {"long", "SQL_NUMERIC"},
    {"real", "SQL_DOUBLE"},
    {"short", "SQL_SMALLINT"},
    {"string", "SQL_VARCHAR"},
    {"time", "SQL_TIME"},
    {"unsigned int", "SQL_NUMERIC"},
    {"unsigned long", "SQL_NUMERIC"},
    {"unsigned short", "SQL_INTEGER"},
};

constexpr bool isBefore(const Row& a, const Row& b) noexcept {
    return a.name < b.name;
}
static_assert(std::is_sorted(std::begin(ROWS), std::end(ROWS), isBefore));

constexpr std::string_view PATHS[] = {"java.lang.", "java.util.", "java.math.",
                                      "java.sql.",  "std::",      "System."};

}  // namespace

std::string_view dataTypeOfPrimitive(std::string_view name) noexcept {
    for (const std::string_view path : PATHS) {
        if (name.starts_with(path)) {
            name.remove_prefix(path.size());
        }
    }
    const auto* const row = std::lower_bound(std::begin(ROWS), std::end(ROWS), Row{name, {}}, isBefore);
    return row != std::end(ROWS) && row->name == name ? row->dataType : std::string_view();
}

}  // namespace readers::xmi
