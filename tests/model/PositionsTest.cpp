// Lists in ascending position.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"

namespace {

using namespace support;
using ::testing::ElementsAre;

template <typename List>
std::vector<std::string> names(const List& list) {
    std::vector<std::string> names;
    for (const ZORObject* object : list) {
        names.emplace_back(object->getName().view());
    }
    return names;
}

class Positions : public ::testing::Test {
  protected:
    ZORAttribute* add(const char* name, int position) {
        ZORAttribute* column = builder.addColumn(table, name);
        column->setPosition(static_cast<std::int16_t>(position));
        return column;
    }

    ModelBuilder builder;
    ZORClass* table = builder.addTable("T");
};

TEST_F(Positions, OfAttributesAscend) {
    add("c", 2);
    add("a", 0);
    add("b", 1);
    EXPECT_THAT(names(getAttributeByPosition(*table)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(table->getAttributes()), ElementsAre("c", "a", "b"))
        << "the list itself stays as it is";
}

TEST_F(Positions, OfEqualValueKeepTheOrderOfTheList) {
    add("x2", 5);
    add("a1", 1);
    add("x1", 5);
    add("a2", 1);
    add("x3", 5);
    EXPECT_THAT(names(getAttributeByPosition(*table)), ElementsAre("a1", "a2", "x2", "x1", "x3"));
}

TEST_F(Positions, KeepTheOrderOfManyEqualOnes) {
    std::vector<std::string> expected;
    for (int i = 0; i < 200; ++i) {
        add(("low" + std::to_string(i)).c_str(), 1);
        add(("lower" + std::to_string(i)).c_str(), 0);
    }
    for (int i = 0; i < 200; ++i) {
        expected.push_back("lower" + std::to_string(i));
    }
    for (int i = 0; i < 200; ++i) {
        expected.push_back("low" + std::to_string(i));
    }
    EXPECT_EQ(names(getAttributeByPosition(*table)), expected);
}

TEST_F(Positions, ReachFromTheLowestToTheHighestNumber) {
    add("high", 32767);
    add("low", -32768);
    add("none", 0);
    EXPECT_THAT(names(getAttributeByPosition(*table)), ElementsAre("low", "none", "high"));
}

TEST_F(Positions, OfAClassWithoutAttributesAreNone) {
    const ZORAttributeByPosition none = getAttributeByPosition(*table);
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.begin(), none.end());
    EXPECT_EQ(none.begin(), nullptr) << "the copy of an empty list holds no memory";
}

TEST_F(Positions, OfQualifiersAscendToo) {
    ZORAssociationRole* role = ModelBuilder::addRole(builder.addAssociation("a"), table, "1");
    for (const int position : {1, 0}) {
        ZORAttribute* qualifier = role->addQualifier(std::make_unique<ZORAttribute>());
        qualifier->setName(position == 1 ? "second" : "first");
        qualifier->setPosition(static_cast<std::int16_t>(position));
    }
    EXPECT_THAT(names(getQualifierAttributeByPosition(*role)), ElementsAre("first", "second"));
}

TEST_F(Positions, OfEverythingElseAreTheOrderOfTheList) {
    ModelBuilder::addOperation<ZORStoredProcedure>(table, "p2");
    ZOROperation* operation = ModelBuilder::addOperation<ZORTrigger>(table, "p1");
    builder.addArgument(operation, "y");
    builder.addArgument(operation, "x");
    EXPECT_THAT(names(getOperationByPosition(*table)), ElementsAre("p2", "p1"));
    EXPECT_THAT(names(getArgumentByPosition(*operation)), ElementsAre("y", "x"));

    ZORSQLViewEntity* view = builder.addView("v");
    ModelBuilder::addViewColumn(view, "d");
    ModelBuilder::addViewColumn(view, "c");
    EXPECT_THAT(names(getFeatureByPosition(*view)), ElementsAre("d", "c"));

    ModelBuilder::addValue(builder.number, "two", 2, "2");
    ModelBuilder::addValue(builder.number, "one", 1, "1");
    EXPECT_THAT(names(getTypeValueByPosition(*builder.number)), ElementsAre("two", "one"));

    add("a", 1);
    add("b", 0);
    ZORIndex* index = ModelBuilder::addIndex(table, "i", {"a", "b"});
    const ZORIndexMemberByPosition members = getIndexMemberByPosition(*index);
    ASSERT_EQ(members.size(), 2U);
    EXPECT_EQ(members[0]->getAttribute()->getName(), "a");
}

TEST_F(Positions, ListHoldsWhatThereWasWhenItWasFetched) {
    ZOROperation* operation = ModelBuilder::addOperation<ZOROperation>(table, "o");
    builder.addArgument(operation, "before");
    const ZORArgumentByPosition list = getArgumentByPosition(*operation);
    builder.addArgument(operation, "after");
    EXPECT_THAT(names(list), ElementsAre("before"));
}

TEST_F(Positions, FirstAttributeOfANameIsFoundInListOrder) {
    add("other", 0);
    ZORAttribute* first = add("same", 9);
    add("same", 1);
    int position = 7;
    EXPECT_EQ(table->getAttribute("same", &position), first);
    EXPECT_EQ(position, 1) << "the index in the list, not the attribute's position";
    EXPECT_EQ(table->getAttribute("Same", &position), nullptr);
    EXPECT_EQ(position, -1);
    EXPECT_EQ(table->getAttribute("same"), first);
}

}  // namespace
