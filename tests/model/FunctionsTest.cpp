// The functions that answer questions about a model: physical names, multiplicities, a view's SELECT.

#include <gtest/gtest.h>

#include "ModelBuilder.h"

namespace {

using namespace support;

TEST(PhysicalName, IsTheNameWhereThereIsNoOther) {
    ZORClass table;
    EXPECT_EQ(getPhysicalName(table), "");
    table.setName("Customer");
    EXPECT_EQ(getPhysicalName(table), "Customer");
    table.setPhysicalName("CUSTOMER");
    EXPECT_EQ(getPhysicalName(table), "CUSTOMER");
    EXPECT_EQ(table.getName(), "Customer");
}

struct MultiplicityRow {
    const char* text;
    int lower;
    int upper;
};

void expectBounds(std::initializer_list<MultiplicityRow> rows) {
    for (const MultiplicityRow& row : rows) {
        int lower = -1;
        int upper = -1;
        decodeMultiplicity(row.text, lower, upper);
        EXPECT_EQ(lower, row.lower) << "\"" << row.text << "\"";
        EXPECT_EQ(upper, row.upper) << "\"" << row.text << "\"";
    }
}

TEST(Multiplicity, ReadsNumbersAndRanges) {
    expectBounds({{"1", 1, 1},
                  {"0", 0, 0},
                  {"7", 7, 7},
                  {"0..1", 0, 1},
                  {"1..1", 1, 1},
                  {"2..5", 2, 5},
                  {"007..08", 7, 8},
                  {"2147483647", 2147483647, 2147483647},
                  {"2147483646..2147483647", 2147483646, 2147483647}});
}

TEST(Multiplicity, ReadsSignsForUnbounded) {
    for (const char* sign : {"*", "n", "N", "m", "M"}) {
        const std::string text = sign;
        expectBounds({{text.c_str(), 0, ZOR_UNBOUNDED},
                      {("0.." + text).c_str(), 0, ZOR_UNBOUNDED},
                      {("3.." + text).c_str(), 3, ZOR_UNBOUNDED}});
    }
}

TEST(Multiplicity, OfAListReachesFromTheLowestToTheHighestBound) {
    expectBounds({{"1,3", 1, 3},
                  {"5,2..3", 2, 5},
                  {"2..3,7..9,4", 2, 9},
                  {"5,*", 0, ZOR_UNBOUNDED},
                  {"4..n,6", 4, ZOR_UNBOUNDED},
                  {"0,0", 0, 0}});
}

TEST(Multiplicity, IgnoresBlanks) {
    expectBounds({{" 0 .. 1 ", 0, 1},
                  {"0. .1", 0, 1},
                  {"\t1\n..\r* ", 1, ZOR_UNBOUNDED},
                  {"1 , 2", 1, 2},
                  {"1 0", 10, 10}});
}

TEST(Multiplicity, IsOneWhereItIsNotReadable) {
    expectBounds({{"", 1, 1},      {"   ", 1, 1},     {"x", 1, 1},     {"many", 1, 1},    {"nn", 1, 1},
                  {"0..", 1, 1},   {"..", 1, 1},      {"..5", 1, 1},   {"*..5", 1, 1},    {"n..m", 1, 1},
                  {"0...1", 1, 1}, {"0..1..2", 1, 1}, {"0-1", 1, 1},   {"0,x", 1, 1},     {"x,0", 1, 1},
                  {",", 1, 1},     {"0,", 1, 1},      {",0", 1, 1},    {"0,,5", 1, 1},    {"0x10", 1, 1},
                  {"1.5", 1, 1},   {"+5", 1, 1},      {"0..+5", 1, 1}, {"\xC2\xB2", 1, 1}});
}

TEST(Multiplicity, IsOneForNumbersBelowZeroOrBeyondAnInt) {
    expectBounds({{"-1", 1, 1},
                  {"-1..5", 1, 1},
                  {"0..-1", 1, 1},
                  {"-0", 1, 1},
                  {"2147483648", 1, 1},
                  {"0..2147483648", 1, 1},
                  {"99999999999999999999999999", 1, 1},
                  {"5,99999999999999999999999999", 1, 1}});
}

TEST(Multiplicity, IsOneForBoundsTheWrongWayRound) {
    expectBounds({{"5..2", 1, 1}, {"1..0", 1, 1}, {"0,5..2", 1, 1}});
}

TEST(Multiplicity, BearsTextsOfAnyLength) {
    const std::string digits(1000000, '9');
    std::string list = "3";
    for (int i = 0; i < 100000; ++i) {
        list += ",3..4";
    }
    expectBounds({{digits.c_str(), 1, 1}, {list.c_str(), 3, 4}});
}

class ViewSelect : public ::testing::Test {
  protected:
    ZORString select() const { return computeSqlViewSelectStatement(*view); }

    ModelBuilder builder;
    ZORClass* customer = builder.addTable("Customer", {"id", "name"});
    ZORClass* order = builder.addTable("Order", {"id", "total"});
    ZORSQLViewEntity* view = builder.addView("v", "SELECT 1");
};

TEST_F(ViewSelect, IsEmptyWithoutColumns) {
    EXPECT_EQ(select(), "");
}

TEST_F(ViewSelect, IsEmptyWhenNoColumnShowsAnAttribute) {
    ModelBuilder::addViewColumn(view, "x");
    ModelBuilder::addViewColumn(view, "y", customer);
    EXPECT_EQ(select(), "");
}

TEST_F(ViewSelect, TakesColumnsFromTheirTablesInOrderOfFirstAppearance) {
    ModelBuilder::addViewColumn(view, "total", order->getAttribute("total"));
    ModelBuilder::addViewColumn(view, "name", customer->getAttribute("name"));
    ModelBuilder::addViewColumn(view, "id", order->getAttribute("id"));
    EXPECT_EQ(select(), "SELECT Order.total, Customer.name, Order.id FROM Order, Customer");
}

TEST_F(ViewSelect, NamesAColumnThatIsCalledOtherwise) {
    ModelBuilder::addViewColumn(view, "id", customer->getAttribute("id"));
    ModelBuilder::addViewColumn(view, "customer", customer->getAttribute("name"));
    ModelBuilder::addViewColumn(view, "", customer->getAttribute("name"));
    EXPECT_EQ(select(), "SELECT Customer.id, Customer.name AS customer, Customer.name FROM Customer");
}

TEST_F(ViewSelect, PrefersPhysicalNames) {
    customer->setPhysicalName("CUST");
    customer->getAttribute("id")->setPhysicalName("CUST_ID");
    ModelBuilder::addViewColumn(view, "id", customer->getAttribute("id"));
    ModelBuilder::addViewColumn(view, "CUST_ID", customer->getAttribute("id"));
    EXPECT_EQ(select(), "SELECT CUST.CUST_ID AS id, CUST.CUST_ID FROM CUST");
}

TEST_F(ViewSelect, ShowsNullForEveryOtherColumn) {
    ModelBuilder::addViewColumn(view, "count");
    ModelBuilder::addViewColumn(view, "");
    ModelBuilder::addViewColumn(view, "id", customer->getAttribute("id"));
    ModelBuilder::addViewColumn(view, "other", order);
    EXPECT_EQ(select(), "SELECT NULL AS count, NULL, Customer.id, NULL AS other FROM Customer");
}

TEST_F(ViewSelect, ShowsNullForAnAttributeOfNoClass) {
    ZORAssociationRole* role = ModelBuilder::addRole(builder.addAssociation("a"), customer, "1");
    ZORAttribute* qualifier = role->addQualifier(std::make_unique<ZORAttribute>());
    ModelBuilder::addViewColumn(view, "q", qualifier);
    EXPECT_EQ(select(), "");
    ModelBuilder::addViewColumn(view, "id", customer->getAttribute("id"));
    EXPECT_EQ(select(), "SELECT NULL AS q, Customer.id FROM Customer");
}

TEST_F(ViewSelect, KeepsTablesApartThatHaveOneName) {
    ZORClass* other = builder.addTable("Customer", {"id"});
    ModelBuilder::addViewColumn(view, "id", customer->getAttribute("id"));
    ModelBuilder::addViewColumn(view, "id", other->getAttribute("id"));
    EXPECT_EQ(select(), "SELECT Customer.id, Customer.id FROM Customer, Customer");
}

}  // namespace
