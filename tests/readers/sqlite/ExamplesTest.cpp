// The sample databases: that they are sound, and that what is read of the statements agrees with SQLite.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "ModelDump.h"
#include "SqliteTestSupport.h"
#include "ZORModelCheck.h"
#include "sqlite/SqlTokens.h"
#include "sqlite/SqliteReaders.h"
#include "sqlite/TableDefinition.h"

namespace {

using readers::Source;
using testing::IsEmpty;

struct Example {
    const char* name;
    std::size_t warnings;
};

class ExampleDatabase : public testing::TestWithParam<Example> {
  protected:
    static std::string script() {
        return support::contentOf(std::string(EXAMPLES_FOLDER "/") + GetParam().name + ".sql");
    }
};

TEST_P(ExampleDatabase, GivesOneModelAsScriptAndAsDatabase) {
    readers::ReadRequest request;
    request.modelName = GetParam().name;
    const support::Reading database = support::readDatabase(script(), request);
    const support::Reading text = support::readScript(script(), request);
    EXPECT_EQ(support::dumpModel(*text.model), support::dumpModel(*database.model));
    EXPECT_EQ(text.context.lossLines(), database.context.lossLines());
    EXPECT_THAT(checkModel(*database.model), IsEmpty());
    EXPECT_EQ(database.context.warnings.size(), GetParam().warnings);
    EXPECT_EQ(text.context.warnings, database.context.warnings);
}

TEST_P(ExampleDatabase, HasStatementsThatAreUnderstoodLikeSqliteDoes) {
    const support::ScratchFolder folder;
    support::makeDatabase(folder / "a.db", script());
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(std::string(folder / "a.db").c_str(), &database), SQLITE_OK);
    sqlite3_stmt* tables = nullptr;
    sqlite3_prepare_v2(database,
                       "SELECT name, sql FROM sqlite_schema WHERE type = 'table' AND rootpage > 0 AND name "
                       "NOT LIKE 'sqlite_%'",
                       -1, &tables, nullptr);
    int columns = 0;
    while (sqlite3_step(tables) == SQLITE_ROW) {
        const auto* table = reinterpret_cast<const char*>(sqlite3_column_text(tables, 0));
        const readers::sqlite::TableDefinition definition = readers::sqlite::parseTableDefinition(
            reinterpret_cast<const char*>(sqlite3_column_text(tables, 1)));
        EXPECT_TRUE(definition.complete) << table;
        for (const readers::sqlite::ColumnDefinition& column : definition.columns) {
            const char* collation = nullptr;
            int isAutoIncrement = 0;
            ASSERT_EQ(sqlite3_table_column_metadata(database, "main", table, column.name.c_str(), nullptr,
                                                    &collation, nullptr, nullptr, &isAutoIncrement),
                      SQLITE_OK)
                << table << "." << column.name;
            EXPECT_EQ(column.collation.empty() ? "BINARY" : column.collation, collation);
            bool isDeclaredSo = false;
            for (const readers::sqlite::KeyConstraint& key : definition.keys) {
                isDeclaredSo =
                    isDeclaredSo || (key.autoIncrement && key.members.front().column == column.name);
            }
            EXPECT_EQ(isDeclaredSo, isAutoIncrement != 0) << table << "." << column.name;
            ++columns;
        }
    }
    sqlite3_finalize(tables);
    sqlite3_close(database);
    EXPECT_GT(columns, 0);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleDatabase,
                         testing::Values(Example{"shop", 0}, Example{"library", 0}, Example{"timetable", 3}),
                         [](const testing::TestParamInfo<Example>& example) { return example.param.name; });

TEST(ExampleScript, WithAnyByteChangedGivesAModelOrAnError) {
    const std::string good = support::contentOf(EXAMPLES_FOLDER "/library.sql");
    std::size_t models = 0;
    std::size_t errors = 0;
    for (std::size_t at = 0; at < good.size(); at += 41) {
        std::string bad = good;
        bad[at] = "'\"()[;-, \n"[at % 10];
        try {
            support::RecordingContext context;
            const auto model = readers::sqlScriptReader().read(Source::fromText("a.sql", bad), {}, context);
            EXPECT_THAT(checkModel(*model), IsEmpty());
            ++models;
        } catch (const readers::SourceError&) {
            ++errors;
        }
    }
    EXPECT_GT(models, 0U);
    EXPECT_GT(errors, 0U);
}

}  // namespace
