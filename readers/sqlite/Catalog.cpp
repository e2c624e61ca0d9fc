#include "Catalog.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "Definitions.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

// Each query answers for the whole database. Virtual tables, which have no root page, are left out of them:
// when the module of one of them is not there, SQLite gives up the whole query.
constexpr std::string_view SCHEMA_QUERY =
    "SELECT type, name, tbl_name, sql, rootpage, rowid FROM main.sqlite_schema ORDER BY rowid";

constexpr std::string_view COLUMN_QUERY = R"(
    SELECT s.rowid, c.name, c.type, c."notnull", c.dflt_value, c.pk, c.hidden
    FROM main.sqlite_schema AS s CROSS JOIN pragma_table_xinfo(s.name, 'main') AS c
    WHERE s.type = 'table' AND s.rootpage > 0)";

constexpr std::string_view INDEX_QUERY = R"(
    SELECT s.rowid, l.name, l.origin, l."unique", l.partial, m.cid, m."desc", m.coll
    FROM main.sqlite_schema AS s CROSS JOIN pragma_index_list(s.name, 'main') AS l
        CROSS JOIN pragma_index_xinfo(l.name, 'main') AS m
    WHERE s.type = 'table' AND s.rootpage > 0 AND m.key)";

constexpr std::string_view FOREIGN_KEY_QUERY = R"(
    SELECT s.rowid, f.seq, f."table", f."from", f."to", f.on_update, f.on_delete
    FROM main.sqlite_schema AS s CROSS JOIN pragma_foreign_key_list(s.name, 'main') AS f
    WHERE s.type = 'table' AND s.rootpage > 0 AND s.sql LIKE '%REFERENCES%')";

struct ShadowSuffixes {
    std::string_view module;
    std::string_view suffixes;  ///< each between blanks
};
/// The modules whose virtual tables keep their data in tables named after them. That SQLite itself is not
/// asked which tables these are has two reasons: it would compile all views, and not know modules that are
/// not loaded.
constexpr std::array<ShadowSuffixes, 7> SHADOWS = {{
    {"fts3", " content docsize segdir segments stat "},
    {"fts4", " content docsize segdir segments stat "},
    {"fts5", " config content data docsize idx "},
    {"rtree", " node parent rowid "},
    {"rtree_i32", " node parent rowid "},
    {"geopoly", " node parent rowid "},
    {"spellfix1", " vocab "},
}};

bool isInternal(std::string_view name) noexcept {
    return name.size() >= 7 && equalIgnoringCase(name.substr(0, 7), "sqlite_");
}

class CatalogReader {
  public:
    CatalogReader(const Connection& connection, Monitor& monitor)
        : connection_(connection), monitor_(monitor) {}
    Catalog read();

  private:
    void readSchema();
    void removeShadowTables();
    void readColumns();
    void readVirtualColumns(TableFacts& table);
    void readIndexes();
    IndexFacts indexOf(const Query& query) const;
    void readForeignKeys();
    TableFacts* find(std::int64_t row);
    static ColumnFacts columnOf(const Query& query, int first);

    const Connection& connection_;
    Monitor& monitor_;
    Catalog catalog_;
    std::unordered_map<std::int64_t, std::size_t> tableIndexes_;  ///< by the row in the schema table
    /// Of the indexes, by name: their places in the order of creation, and their statements.
    std::unordered_map<std::string, std::pair<std::size_t, std::string>> statements_;
};

Catalog CatalogReader::read() {
    readSchema();
    removeShadowTables();
    for (std::size_t i = 0; i < catalog_.tables.size(); ++i) {
        TableFacts& table = catalog_.tables[i];
        tableIndexes_[table.row] = i;
        if (!table.isVirtual) {
            table.definition = parseTableDefinition(table.sql);
        }
        monitor_.advance();
    }
    readColumns();
    readIndexes();
    readForeignKeys();
    return std::move(catalog_);
}

void CatalogReader::readSchema() {
    Query query(connection_, SCHEMA_QUERY);
    while (query.next()) {
        const std::string type = query.text(0);
        const std::string name = query.text(1);
        if (type == "index") {
            statements_.emplace(name, std::pair(statements_.size(), query.text(3)));
        } else if (type == "table" && !isInternal(name)) {
            TableFacts table;
            table.name = name;
            table.sql = query.text(3);
            table.isVirtual = query.integer(4) == 0;
            table.row = query.integer(5);
            catalog_.tables.push_back(std::move(table));
        } else if (type == "view") {
            catalog_.views.push_back({name, query.text(3)});
        } else if (type == "trigger") {
            catalog_.triggers.push_back({name, query.text(2), query.text(3)});
        }
    }
}

void CatalogReader::removeShadowTables() {
    struct Virtual {
        std::string name;
        std::string module;
    };
    std::unordered_map<std::string, Virtual> virtualTables;
    for (const TableFacts& table : catalog_.tables) {
        if (table.isVirtual) {
            virtualTables[foldCase(table.name)] = {table.name, parseVirtualTableDefinition(table.sql).module};
        }
    }
    std::erase_if(catalog_.tables, [&](const TableFacts& table) {
        const auto found = virtualTables.find(foldCase(table.name.substr(0, table.name.rfind('_'))));
        const bool isShadow = !table.isVirtual && found != virtualTables.end() &&
                              isShadowTable(table.name, found->second.name, found->second.module);
        if (isShadow) {
            catalog_.shadows.push_back({table.name, found->second.name});
        }
        return isShadow;
    });
}

/// Null for a table that is left out.
TableFacts* CatalogReader::find(std::int64_t row) {
    const auto found = tableIndexes_.find(row);
    return found == tableIndexes_.end() ? nullptr : &catalog_.tables[found->second];
}

ColumnFacts CatalogReader::columnOf(const Query& query, int first) {
    ColumnFacts column;
    column.name = query.text(first);
    column.type = normalizeType(query.text(first + 1));
    column.notNull = query.integer(first + 2) != 0;
    column.defaultValue = query.text(first + 3);
    column.keyPosition = static_cast<int>(query.integer(first + 4));
    column.hidden = query.integer(first + 5) == 1;
    return column;
}

void CatalogReader::readColumns() {
    Query query(connection_, COLUMN_QUERY);
    while (query.next()) {
        if (TableFacts* table = find(query.integer(0))) {
            table->columns.push_back(columnOf(query, 1));
            monitor_.advance();
        }
    }
    for (TableFacts& table : catalog_.tables) {
        if (table.isVirtual) {
            readVirtualColumns(table);
        }
    }
}

void CatalogReader::readVirtualColumns(TableFacts& table) {
    try {
        Query query(connection_, "PRAGMA main.table_xinfo(" + quoteName(table.name) + ")");
        while (query.next()) {
            table.columns.push_back(columnOf(query, 1));
            monitor_.advance();
        }
    } catch (const SourceError& failure) {
        if (failure.kind() == SourceError::Kind::INTERRUPTED) {
            throw;
        }
        table.problem = sqlite3_errmsg(connection_.handle());
        connection_.failUnlessMisunderstood();
        table.columns.clear();
    }
}

void CatalogReader::readIndexes() {
    Query query(connection_, INDEX_QUERY);
    while (query.next()) {
        TableFacts* table = find(query.integer(0));
        if (table == nullptr) {
            continue;
        }
        const std::string name = query.text(1);
        if (table->indexes.empty() || table->indexes.back().name != name) {
            table->indexes.push_back(indexOf(query));
            monitor_.advance();
        }
        table->indexes.back().members.push_back(
            {static_cast<int>(query.integer(5)), query.integer(6) != 0, query.text(7)});
    }
    for (TableFacts& table : catalog_.tables) {
        std::stable_sort(table.indexes.begin(), table.indexes.end(),
                         [](const IndexFacts& a, const IndexFacts& b) { return a.createdAs < b.createdAs; });
    }
}

IndexFacts CatalogReader::indexOf(const Query& query) const {
    IndexFacts index;
    index.name = query.text(1);
    const std::string origin = query.text(2);
    index.origin = origin == "pk"  ? IndexFacts::Origin::PRIMARY_KEY
                   : origin == "u" ? IndexFacts::Origin::UNIQUE_CONSTRAINT
                                   : IndexFacts::Origin::CREATE_INDEX;
    index.unique = query.integer(3) != 0;
    index.partial = query.integer(4) != 0;
    const auto statement = statements_.find(index.name);
    if (statement != statements_.end()) {
        index.createdAs = statement->second.first;
        index.sql = statement->second.second;
    }
    return index;
}

/// SQLite counts a table's foreign keys from the last one that was declared.
void CatalogReader::readForeignKeys() {
    Query query(connection_, FOREIGN_KEY_QUERY);
    while (query.next()) {
        TableFacts* table = find(query.integer(0));
        if (table == nullptr) {
            continue;
        }
        if (query.integer(1) == 0) {
            table->foreignKeys.push_back({query.text(2), {}, {}, query.text(5), query.text(6)});
            monitor_.advance();
        }
        table->foreignKeys.back().columns.push_back(query.text(3));
        table->foreignKeys.back().parentColumns.push_back(query.text(4));
    }
    for (TableFacts& table : catalog_.tables) {
        std::reverse(table.foreignKeys.begin(), table.foreignKeys.end());
    }
}

}  // namespace

bool IndexFacts::isPlain() const noexcept {
    return !partial && std::none_of(members.begin(), members.end(),
                                    [](const IndexMember& member) { return member.column < 0; });
}

bool isShadowTable(std::string_view table, std::string_view virtualTable, std::string_view module) noexcept {
    if (table.size() <= virtualTable.size() + 1 || table[virtualTable.size()] != '_' ||
        !equalIgnoringCase(table.substr(0, virtualTable.size()), virtualTable)) {
        return false;
    }
    const std::string suffix = " " + foldCase(table.substr(virtualTable.size() + 1)) + " ";
    return std::any_of(SHADOWS.begin(), SHADOWS.end(), [&](const ShadowSuffixes& shadow) {
        return equalIgnoringCase(shadow.module, module) &&
               shadow.suffixes.find(suffix) != std::string_view::npos;
    });
}

Catalog readCatalog(const Connection& connection, Monitor& monitor) {
    return CatalogReader(connection, monitor).read();
}

}  // namespace readers::sqlite
