// Keys of entities, and the filters that decide which of them there are.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class EntityKeys : public ::testing::Test {
  protected:
    EntityKeys() {
        parent = model.addTable("P", {"x", "y"});
        parentKey = model.addPrimaryKey(parent, "PK", {"x", "y"});
        child = model.addTable("C", {"x", "y"});
        foreignKey = model.addForeignKey(child, "FK", {"x", "y"}, parentKey);
        association = model.addRelationship("R", foreignKey);
    }

    std::string print(ZORKey* key) const {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        bridge.printERDKey(key);
        return bridge.text();
    }
    /// Asks twice, with fresh marks.
    bool isWritten(ZORKey* key) const {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        const bool first = bridge.isExportableERDKey(key);
        EXPECT_EQ(bridge.isExportableERDKey(key), first);
        return first;
    }
    static void makePhysical(ZORModelObject* object) { object->setDesignLevel(ZOR_PHYSICAL_ONLY); }
    static void makeLogical(ZORModelObject* object) { object->setDesignLevel(ZOR_LOGICAL_ONLY); }

    ModelBuilder model;
    ZORClass* parent = nullptr;
    ZORClass* child = nullptr;
    ZORCandidateKey* parentKey = nullptr;
    ZORForeignKey* foreignKey = nullptr;
    ZORAssociation* association = nullptr;
};

TEST_F(EntityKeys, TellTheirTypeByANumber) {
    ZORCandidateKey* key = model.addKey(parent, "K", {"x"});
    EXPECT_THAT(print(key), HasSubstr("\nKeyType=\"2\"\n")) << "unique";
    key->setUnique(false);
    EXPECT_THAT(print(key), HasSubstr("\nKeyType=\"3\"\n")) << "not unique";
    key->setPrimaryOfClass(parent);
    EXPECT_THAT(print(key), HasSubstr("\nKeyType=\"1\"\n")) << "primary";
    key->setUnique(true);
    EXPECT_THAT(print(key), HasSubstr("\nKeyType=\"1\"\n")) << "primary, also when it is unique";
    EXPECT_THAT(print(foreignKey), HasSubstr("\nKeyType=\"4\"\n")) << "foreign";
}

TEST_F(EntityKeys, ReferToTheirAttributes) {
    foreignKey->setPhysicalName("FK_C");
    foreignKey->setDescription("What");
    EXPECT_EQ(print(foreignKey), R"xml(
<erd:Key oim:id="_1" name="FK"
description="What"
KeyType="4"
>
<erd:KeyAttributes>
<erd:Attribute oim:href="#_2"/>
<erd:Attribute oim:href="#_3"/>
</erd:KeyAttributes>
</erd:Key>
)xml"_lines);
    makePhysical(parent->getAttribute("x"));
    EXPECT_EQ(count(print(parentKey), "<erd:Attribute "), 1U);
}

TEST_F(EntityKeys, WithoutANameAreNumbered) {
    parentKey->setName("");
    EXPECT_THAT(print(parentKey), HasSubstr("<erd:Key oim:id=\"_1\" name=\"unnamed$1\"\n"));
}

TEST_F(EntityKeys, AreWrittenUniqueOrNotWhenOneAttributeIsLogical) {
    ZORCandidateKey* inversion = model.addKey(parent, "K", {"x", "y"});
    inversion->setUnique(false);
    EXPECT_TRUE(isWritten(inversion));
    makePhysical(parent->getAttribute("x"));
    EXPECT_TRUE(isWritten(inversion));
    makePhysical(parent->getAttribute("y"));
    EXPECT_FALSE(isWritten(inversion));
    EXPECT_FALSE(isWritten(model.addKey(parent, "no attributes", {})));
}

TEST_F(EntityKeys, NeedALogicalKeyOfAnEntity) {
    makeLogical(parentKey);
    EXPECT_TRUE(isWritten(parentKey));
    makePhysical(parentKey);
    EXPECT_FALSE(isWritten(parentKey));
    parentKey->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    makePhysical(parent);
    EXPECT_FALSE(isWritten(parentKey));
    parent->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    parent->setClassType(9);
    EXPECT_FALSE(isWritten(parentKey)) << "an interface is no entity";
}

TEST_F(EntityKeys, ThatAreForeignNeedARoleAndGoWithItsAssociation) {
    EXPECT_TRUE(isWritten(foreignKey));
    EXPECT_FALSE(isWritten(model.addForeignKey(child, "without a role", {"x"}, parentKey)));
    makePhysical(association);
    EXPECT_FALSE(isWritten(foreignKey));
}

TEST_F(EntityKeys, SharedByRelationshipsGoWithTheLastOneThoughTheOthersReferToThem) {
    model.addRelationship("last", foreignKey);
    EXPECT_TRUE(isWritten(foreignKey));
    makePhysical(association);
    EXPECT_TRUE(isWritten(foreignKey));
    association->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    makePhysical(foreignKey->getAssociationRole()->getAssociation());
    EXPECT_FALSE(isWritten(foreignKey));
    const std::string text = exportModel(*model.model(), {{"Model", "ERD"}});
    EXPECT_EQ(count(text, "<erd:ChildRoleKey>"), 1U) << "the first relationship is written all the same";
    EXPECT_EQ(count(text, "KeyType=\"4\""), 0U);
}

class ForeignKeysOfEntities : public EntityKeys {
  protected:
    /// What the filter of the key itself says, not that of its association.
    bool isExportable(ZORForeignKey* key) const {
        const TestBridge bridge(nullptr, MODEL_VIEW_ERD);
        const bool first = bridge.isExportableERDForeignKey(key);
        EXPECT_EQ(bridge.isExportableERDForeignKey(key), first);
        key->setGeneralPointer(nullptr);
        return first;
    }
};

TEST_F(ForeignKeysOfEntities, NeedALogicalKeyWithAReferencedOne) {
    EXPECT_TRUE(isExportable(foreignKey));
    makePhysical(foreignKey);
    EXPECT_FALSE(isExportable(foreignKey));
    foreignKey->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_TRUE(isExportable(foreignKey));
    foreignKey->setCandidateKey(nullptr);
    EXPECT_FALSE(isExportable(foreignKey));
}

TEST_F(ForeignKeysOfEntities, NeedEveryMemberToAgreeWithItsMatch) {
    makePhysical(child->getAttribute("x"));
    EXPECT_FALSE(isExportable(foreignKey)) << "the first pair disagrees";
    makePhysical(parent->getAttribute("x"));
    EXPECT_TRUE(isExportable(foreignKey)) << "one pair is physical, the other logical";
    makePhysical(child->getAttribute("y"));
    EXPECT_FALSE(isExportable(foreignKey)) << "the last pair disagrees";
    makePhysical(parent->getAttribute("y"));
    EXPECT_FALSE(isExportable(foreignKey)) << "no pair is logical";
}

TEST_F(ForeignKeysOfEntities, AreNotRescuedByAnEarlierPairThatAgrees) {
    makePhysical(child->getAttribute("y"));
    EXPECT_FALSE(isExportable(foreignKey));
}

TEST_F(ForeignKeysOfEntities, AreLeftOutWithTheirAssociationWhenAMemberIsPhysicalOnly) {
    makePhysical(child->getAttribute("y"));
    const std::string text = exportModel(*model.model(), {{"Model", "ERD"}});
    EXPECT_THAT(text, Not(HasSubstr("\"FK\"")));
    EXPECT_THAT(text, Not(HasSubstr("erd:Relationship ")));
}

TEST_F(ForeignKeysOfEntities, MatchByMapAndByName) {
    parent->getAttribute("y")->setName("z");
    EXPECT_FALSE(isExportable(foreignKey)) << "a member without a match";
    model.addMap(child->getAttribute("y"), foreignKey, nullptr);
    EXPECT_FALSE(isExportable(foreignKey));
    child->getAttribute("y")->getRoleNameMaps()[0]->setReferencedAttribute(parent->getAttribute("z"));
    EXPECT_TRUE(isExportable(foreignKey));
}

TEST_F(ForeignKeysOfEntities, NeedMembers) {
    EXPECT_FALSE(isExportable(model.addForeignKey(child, "no members", {}, parentKey)));
}

}  // namespace
