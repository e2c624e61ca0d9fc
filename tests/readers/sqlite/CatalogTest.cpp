// How the facts of a database are asked for.

#include "sqlite/Catalog.h"

#include <gtest/gtest.h>

#include "SqliteTestSupport.h"
#include "sqlite/SqliteReaders.h"

namespace {

using readers::sqlite::Connection;
using readers::sqlite::Monitor;

/// Counts the statements of all databases that are opened while it lives.
class StatementCounter {
  public:
    StatementCounter() {
        count_ = 0;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&StatementCounter::onOpen));
    }
    ~StatementCounter() {
        sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&StatementCounter::onOpen));
    }
    StatementCounter(const StatementCounter&) = delete;
    StatementCounter& operator=(const StatementCounter&) = delete;

    static std::size_t count() { return count_; }

  private:
    static int onOpen(sqlite3* database, const char** /*message*/, const void* /*routines*/) {
        return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, &StatementCounter::onStatement, nullptr);
    }
    /// SQLite's table-valued functions run a PRAGMA for each of their calls, and that is how it is told of
    /// them.
    static int onStatement(unsigned /*event*/, void* /*context*/, void* /*statement*/, void* sql) {
        const bool isSqlites =
            std::string_view(static_cast<const char*>(sql)).starts_with("-- PRAGMA 'main'.");
        count_ += isSqlites ? 0U : 1U;
        return 0;
    }

    static inline std::size_t count_ = 0;
};

/// Tables that refer to each other, each with keys, an index and a trigger.
std::string tables(int count) {
    std::string sql = "BEGIN;";
    for (int i = 0; i < count; ++i) {
        const std::string name = "t" + std::to_string(i);
        sql += "CREATE TABLE " + name + "(id INTEGER PRIMARY KEY, a TEXT UNIQUE, b INT REFERENCES t0);";
        sql += "CREATE INDEX of_" + name + " ON " + name + "(b);";
        sql += "CREATE TRIGGER on_" + name + " AFTER INSERT ON " + name + " BEGIN SELECT 1; END;";
    }
    return sql + "COMMIT;";
}

std::size_t countStatementsFor(int tableCount) {
    const support::ScratchFolder folder;
    const std::string path = folder / "a.db";
    support::makeDatabase(path, tables(tableCount));
    support::RecordingContext context;
    const StatementCounter counter;
    readers::sqliteDatabaseReader().read(readers::Source::fromFile(path), {}, context);
    return StatementCounter::count();
}

TEST(Catalog, IsReadWithAsManyQueriesForManyTablesAsForFew) {
    const std::size_t few = countStatementsFor(2);
    EXPECT_GE(few, 4U) << "the schema, columns, indexes and foreign keys";
    EXPECT_EQ(countStatementsFor(50), few);
}

TEST(Catalog, CountsAsReadWhatItHolds) {
    const support::ScratchFolder folder;
    support::makeDatabase(folder / "a.db", tables(10));
    support::RecordingContext context;
    Monitor monitor(context);
    const Connection connection({.uri = folder / "a.db"}, monitor);
    readCatalog(connection, monitor);
    EXPECT_EQ(context.objects, 10U * (1 + 3 + 2 + 1)) << "tables, columns, indexes and foreign keys";
}

}  // namespace
