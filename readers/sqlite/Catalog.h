#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Connection.h"
#include "TableDefinition.h"

namespace readers::sqlite {

/// The facts of a database as SQLite tells them, before a model is made of them. All lists are in the order
/// of creation. Names are as declared; they are compared without regard to letter case.

struct ColumnFacts {
    std::string name;
    std::string type;          ///< as declared; may be empty
    std::string defaultValue;  ///< as written in SQL; empty when there is none
    int keyPosition = 0;       ///< in the primary key, from 1; 0: not part of it
    bool notNull = false;
    bool hidden = false;  ///< of a virtual table: not among the columns of SELECT *
};

struct IndexMember {
    static constexpr int ROWID = -1;
    static constexpr int EXPRESSION = -2;
    int column = 0;  ///< the index in the table's columns, or one of the above
    bool descending = false;
    std::string collation;
};

struct IndexFacts {
    enum class Origin { CREATE_INDEX, UNIQUE_CONSTRAINT, PRIMARY_KEY };
    std::string name;
    std::string sql;            ///< empty for the indexes of constraints
    std::size_t createdAs = 0;  ///< its place among the indexes of the database
    Origin origin = Origin::CREATE_INDEX;
    bool unique = false;
    bool partial = false;
    std::vector<IndexMember> members;

    /// Whether it is made of nothing but whole columns of all rows.
    bool isPlain() const noexcept;
};

struct ForeignKeyFacts {
    std::string parentTable;  ///< as the child's declaration spells it, as are the columns
    std::vector<std::string> columns;
    std::vector<std::string> parentColumns;  ///< empty texts where the declaration names none
    std::string onUpdate;
    std::string onDelete;
};

struct TableFacts {
    std::string name;
    std::string sql;
    std::int64_t row = 0;  ///< of the table that holds the schema
    bool isVirtual = false;
    std::vector<ColumnFacts> columns;
    std::vector<IndexFacts> indexes;
    std::vector<ForeignKeyFacts> foreignKeys;  ///< in the order of declaration
    TableDefinition definition;                ///< empty for a virtual table
    std::string problem;                       ///< why a virtual table's columns cannot be known
};

struct ViewFacts {
    std::string name;
    std::string sql;
};

struct TriggerFacts {
    std::string name;
    std::string table;  ///< or view
    std::string sql;
};

/// A table in which the module of a virtual table keeps that table's data.
struct ShadowFacts {
    std::string name;
    std::string virtualTable;
};

struct Catalog {
    std::vector<TableFacts> tables;  ///< without SQLite's own, and without those behind virtual tables
    std::vector<ShadowFacts> shadows;
    std::vector<ViewFacts> views;
    std::vector<TriggerFacts> triggers;
};

/// Reads the facts of the database's main schema, with a handful of queries: that is where the time of a
/// large reading goes, so tables, columns, indexes and foreign keys count as read here. Throws SourceError.
Catalog readCatalog(const Connection& connection, Monitor& monitor);

/// Whether a table holds the data of a virtual table, by its name and the virtual table's module.
bool isShadowTable(std::string_view table, std::string_view virtualTable, std::string_view module) noexcept;

}  // namespace readers::sqlite
