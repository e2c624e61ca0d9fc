#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace readers::sqlite {

/// A column of a key as the constraint names it.
struct KeyMember {
    std::string column;
    std::string collation;  ///< empty: that of the column
    bool descending = false;
};

/// PRIMARY KEY or UNIQUE, of a column or of the table.
struct KeyConstraint {
    std::string name;  ///< empty where the statement gives none; so for all names of constraints
    bool primary = false;
    bool autoIncrement = false;
    std::vector<KeyMember> members;
    std::string conflict;  ///< "IGNORE" of ON CONFLICT IGNORE, or empty; so below
};

struct CheckConstraint {
    std::string name;
    std::string column;      ///< of which column it is a constraint; empty for one of the table
    std::string expression;  ///< without the outer parentheses
};

/// REFERENCES of a column, or FOREIGN KEY of the table.
struct ReferenceConstraint {
    std::string name;
    std::vector<std::string> columns;
    std::string table;
    std::string
        deferral;  ///< "DEFERRABLE INITIALLY DEFERRED" or the like; empty for checks that are not deferrable
    std::string match;  ///< the word after MATCH
};

struct ColumnDefinition {
    std::string name;
    std::string collation;
    std::string generation;  ///< the expression of a generated column; empty for every other
    bool stored = false;     ///< of a generated column: its value is kept in the table
    std::string conflict;    ///< of NOT NULL
};

/// What a CREATE TABLE statement says beyond what SQLite itself tells of the table.
struct TableDefinition {
    std::vector<ColumnDefinition> columns;
    std::vector<KeyConstraint> keys;
    std::vector<CheckConstraint> checks;
    std::vector<ReferenceConstraint> references;  ///< in the order in which they stand
    bool strict = false;
    bool withoutRowid = false;
    /// False when the statement holds something that is not understood; what was understood is here.
    bool complete = true;

    /// By name, letter case ignored; null when there is none.
    const ColumnDefinition* column(std::string_view name) const noexcept;
};

/// Reads a CREATE TABLE statement that SQLite accepted; no text makes it fail.
TableDefinition parseTableDefinition(std::string_view sql);

}  // namespace readers::sqlite
