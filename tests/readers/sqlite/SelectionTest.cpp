// Which parts of a database are read.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SqliteTestSupport.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* SHOP =
    "CREATE TABLE Customer(id INTEGER PRIMARY KEY, name TEXT);"
    "CREATE TABLE orders(id INTEGER PRIMARY KEY, customer INT REFERENCES customer, again INT REFERENCES "
    "orders);"
    "CREATE TABLE audit(a INT); CREATE VIEW names AS SELECT name FROM customer;"
    "CREATE TRIGGER t AFTER INSERT ON orders BEGIN SELECT 1; END; CREATE TRIGGER u AFTER INSERT ON audit "
    "BEGIN SELECT 1; END;"
    "CREATE TRIGGER w INSTEAD OF INSERT ON names BEGIN SELECT 1; END";

constexpr const char* ORDERS =
    "table orders\n  id INTEGER\n  customer INT null\n  again INT null\n  primary orders_pk (id)\n";

support::Reading readShop(const readers::Selection& selection) {
    readers::ReadRequest request;
    request.selection = selection;
    return support::readDatabase(SHOP, request);
}

TEST(SqliteSelection, LeavesOutRelationshipsToTablesThatAreLeftOut) {
    readers::Selection selection;
    selection.tables = {"ORDERS", "n*"};
    const support::Reading reading = readShop(selection);
    EXPECT_EQ(
        support::describe(*reading.model),
        std::string(ORDERS) +
            "  foreign orders_again_fk (again) -> orders.orders_pk (id)\n"
            "  trigger t after insert: BEGIN SELECT 1; END\n"
            "view names: SELECT name FROM customer\n  name TEXT\n"
            "  trigger w before insert: BEGIN SELECT 1; END\n"
            "relationship orders_again_fk: orders 0..1, orders 0..*, delete no action, update no action\n");
    EXPECT_THAT(reading.context.warnings, IsEmpty());
    EXPECT_THAT(reading.context.lossLines(),
                ElementsAre("relationships to tables left out: main.orders.orders_customer_fk: customer",
                            "trigger timings: main.names.w: INSTEAD OF"));
}

TEST(SqliteSelection, LeavesOutViewsAndTriggers) {
    readers::Selection selection;
    selection.excludedTables = {"main.orders"};
    selection.views = false;
    selection.triggers = false;
    EXPECT_EQ(support::describe(*readShop(selection).model),
              "table Customer\n  id INTEGER\n  name TEXT null\n  primary Customer_pk (id)\ntable audit\n  a "
              "INT null\n");
}

TEST(SqliteSelection, TellsWhatItLeavesOutAndWhy) {
    using readers::SelectionPart;
    readers::Selection selection;
    selection.excludedTables = {"audit"};
    selection.views = false;
    selection.triggers = false;
    std::vector<std::tuple<std::string, std::string, SelectionPart>> told;
    for (const readers::Unselected& thing : readShop(selection).context.unselected) {
        told.emplace_back(thing.kind, thing.where, thing.by);
    }
    EXPECT_THAT(told, ElementsAre(std::tuple("table", "main.audit", SelectionPart::EXCLUDED_TABLES),
                                  std::tuple("view", "main.names", SelectionPart::VIEWS),
                                  std::tuple("trigger", "main.orders.t", SelectionPart::TRIGGERS),
                                  std::tuple("trigger", "main.audit.u", SelectionPart::EXCLUDED_TABLES),
                                  std::tuple("trigger", "main.names.w", SelectionPart::TRIGGERS)));
    selection.triggers = true;
    EXPECT_EQ(readShop(selection).context.unselected.back().where, "main.names.w");
    EXPECT_EQ(readShop(selection).context.unselected.back().by, SelectionPart::VIEWS);
    EXPECT_THAT(readShop({}).context.unselected, IsEmpty());
}

TEST(SqliteSelection, KnowsTheSchemaMain) {
    readers::Selection selection;
    selection.schemas = {"MAIN"};
    selection.tables = {"audit"};
    selection.triggers = false;
    EXPECT_EQ(support::describe(*readShop(selection).model), "table audit\n  a INT null\n");
    selection.schemas = {"other"};
    const support::Reading nothing = readShop(selection);
    EXPECT_EQ(support::describe(*nothing.model), "");
    EXPECT_EQ(nothing.model->getChildPackages().size(), 1U) << "the catalog only";
}

TEST(SqliteSelection, TellsOfPatternsThatMatchNothing) {
    readers::Selection selection;
    selection.excludedTables = {"nam*", "custmer", "sqlite_*"};
    selection.views = false;
    const support::Reading reading = readShop(selection);
    ASSERT_EQ(reading.context.warnings.size(), 2U);
    EXPECT_THAT(reading.context.warnings[0], testing::HasSubstr("custmer"));
    EXPECT_THAT(reading.context.warnings[1], testing::HasSubstr("sqlite_*"));
}

}  // namespace
