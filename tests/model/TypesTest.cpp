// Data types: what stands for what.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"

namespace {

using namespace support;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<const ZORType*> all(const ZORVector<ZORType*>& list) {
    return {list.begin(), list.end()};
}

TEST(Types, OnlyAnAliasStandsForAnother) {
    ModelBuilder builder;
    ZORDerivedType* derived = builder.addDerived("derived", builder.number);
    ZORAliasType* alias = builder.addAlias("alias", derived);
    ZORAliasType* aliasOfAlias = builder.addAlias("alias of alias", alias);
    ZORAliasType* baseless = builder.addAlias("baseless", nullptr);
    auto* classType = builder.addType<ZORClassType>("class", "");
    EXPECT_EQ(builder.number->getActualType(), builder.number);
    EXPECT_EQ(derived->getActualType(), derived);
    EXPECT_EQ(alias->getActualType(), derived);
    EXPECT_EQ(aliasOfAlias->getActualType(), derived);
    EXPECT_EQ(baseless->getActualType(), baseless);
    EXPECT_EQ(classType->getActualType(), classType);
    EXPECT_EQ(builder.addAlias("alias of baseless", baseless)->getActualType(), baseless);
}

TEST(Types, ABaseListsTheTypesThatAreBasedOnIt) {
    ModelBuilder builder;
    ZORDerivedType* derived = builder.addDerived("derived", builder.number);
    ZORAliasType* alias = builder.addAlias("alias", builder.number);
    EXPECT_THAT(all(builder.number->getBasedTypes()), ElementsAre(derived, alias));
    derived->setBaseType(builder.text);
    EXPECT_EQ(derived->getBaseType(), builder.text);
    EXPECT_THAT(all(builder.number->getBasedTypes()), ElementsAre(alias));
    EXPECT_THAT(all(builder.text->getBasedTypes()), ElementsAre(derived));
    derived->setBaseType(nullptr);
    EXPECT_THAT(all(builder.text->getBasedTypes()), IsEmpty());
    EXPECT_EQ(builder.number->getBaseType(), nullptr);
}

TEST(Types, ATakenOutTypeLeavesItsBaseAndTheModel) {
    ModelBuilder builder;
    ZORAliasType* alias = builder.addAlias("alias", builder.number);
    EXPECT_THAT(all(builder.model()->getTypes()), ElementsAre(builder.number, builder.text, alias));
    alias->setOwner(nullptr);
    EXPECT_THAT(all(builder.model()->getTypes()), ElementsAre(builder.number, builder.text));
    EXPECT_THAT(all(builder.number->getBasedTypes()), IsEmpty());
    delete alias;
}

TEST(Types, DestroyingAModelDestroysItInAnyOrderOfReferences) {
    ModelBuilder builder;
    ZORAliasType* early = builder.addAlias("early", nullptr);
    early->setBaseType(builder.addType("late", "SQL_DATE"));
    ModelBuilder::addValue(early, "a", 1, "A");
    builder.addColumn(builder.addTable("T"), "c", early);
    SUCCEED() << "the sanitizers see what goes wrong here";
}

}  // namespace
