#include "DatabaseGenerator.h"

#include <sqlite3.h>

#include <iterator>
#include <memory>
#include <stdexcept>

namespace bench {
namespace {

constexpr int TABLES_PER_VIEW = 10;

constexpr const char* TABLE_WORDS[] = {"berth", "cargo_item", "crew_member", "harbour", "vessel", "voyage"};
constexpr const char* COLUMN_WORDS[] = {"call_sign", "draught", "due", "gross_weight", "hold", "remarks"};
constexpr const char* DECLARATIONS[] = {
    "VARCHAR(40) NOT NULL", "DECIMAL(12,2) DEFAULT 0", "DATE", "INTEGER NOT NULL DEFAULT 1", "TEXT",
    "DOUBLE PRECISION",     "BOOLEAN DEFAULT 0",
};

class Database {
  public:
    explicit Database(const std::string& path) {
        sqlite3* handle = nullptr;
        const int result = sqlite3_open(path.c_str(), &handle);
        handle_.reset(handle);
        assertThat(result == SQLITE_OK);
    }

    void run(const std::string& sql) {
        assertThat(sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    }

  private:
    void assertThat(bool succeeded) const {
        if (!succeeded) {
            throw std::runtime_error(std::string("cannot generate a database: ") +
                                     sqlite3_errmsg(handle_.get()));
        }
    }

    struct Closer {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

std::string tableName(int table) {
    return TABLE_WORDS[static_cast<std::size_t>(table) % std::size(TABLE_WORDS)] + std::string("_") +
           std::to_string(table);
}

std::string columnName(int column) {
    return COLUMN_WORDS[static_cast<std::size_t>(column) % std::size(COLUMN_WORDS)] + std::string("_") +
           std::to_string(column);
}

/// Tables refer to earlier ones, the first one to itself.
std::string parentOf(int table) {
    return tableName(table / 2);
}

std::string tableStatement(int table, int columns) {
    std::string sql = "CREATE TABLE " + tableName(table) + " (\n  id INTEGER PRIMARY KEY";
    for (int column = 1; column < columns - 1; ++column) {
        sql += ",\n  " + columnName(column) + ' ' +
               DECLARATIONS[static_cast<std::size_t>(table + column) % std::size(DECLARATIONS)];
    }
    return sql + ",\n  parent INTEGER NOT NULL REFERENCES " + parentOf(table) + " (id) ON DELETE CASCADE\n)";
}

std::string indexStatement(int table) {
    return "CREATE INDEX " + tableName(table) + "_index ON " + tableName(table) + " (" + columnName(1) +
           ", " + columnName(2) + " DESC)";
}

std::string viewStatement(int table) {
    return "CREATE VIEW " + tableName(table) + "_overview AS\n  SELECT own.id, own." + columnName(1) +
           ", parent." + columnName(2) + " AS parent_value\n  FROM " + tableName(table) + " AS own JOIN " +
           parentOf(table) + " AS parent ON parent.id = own.parent\n  WHERE own." + columnName(1) +
           " IS NOT NULL";
}

}  // namespace

void generateDatabase(const std::string& path, const DatabaseShape& shape) {
    Database database(path);
    database.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    for (int table = 0; table < shape.tables; ++table) {
        database.run(tableStatement(table, shape.columnsPerTable));
        database.run(indexStatement(table));
        if (table % TABLES_PER_VIEW == 0) {
            database.run(viewStatement(table));
        }
    }
    database.run("COMMIT");
}

}  // namespace bench
