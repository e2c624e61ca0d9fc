// Which relationships become referential constraints, and what such a constraint looks like.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Constraints : public ::testing::Test {
  protected:
    Constraints() {
        parent = model.addTable("P", {"x", "y"});
        key = model.addPrimaryKey(parent, "PK", {"x", "y"});
        child = model.addTable("C", {"x", "y"});
        foreignKey = model.addForeignKey(child, "FK", {"x", "y"}, key);
        association = model.addRelationship("R", foreignKey);
        parentRole = association->getRoles()[0];
        childRole = association->getRoles()[1];
    }

    std::string print(MDCModelView view = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), view);
        bridge.printDBMAssociation(association);
        return bridge.text();
    }
    std::string printAll() const {
        TestBridge bridge(model.model());
        bridge.printDBMModel(model.model());
        return bridge.text();
    }
    /// Whether the association becomes a constraint and its key a foreign key: both or neither.
    bool isWritten() const {
        const std::string text = printAll();
        const bool hasConstraint = count(text, "<dbm:ReferentialConstraint ") == 1;
        EXPECT_EQ(count(text, "<dbm:ForeignKey oim:id"), hasConstraint ? 1U : 0U);
        EXPECT_EQ(count(text, "<dbm:TableForeignKeys>"), hasConstraint ? 1U : 0U);
        return hasConstraint;
    }
    static void makeLogical(ZORModelObject* object) { object->setDesignLevel(ZOR_LOGICAL_ONLY); }
    static void makePhysical(ZORModelObject* object) { object->setDesignLevel(ZOR_PHYSICAL_ONLY); }

    ModelBuilder model;
    ZORClass* parent = nullptr;
    ZORClass* child = nullptr;
    ZORCandidateKey* key = nullptr;
    ZORForeignKey* foreignKey = nullptr;
    ZORAssociation* association = nullptr;
    ZORAssociationRole* parentRole = nullptr;
    ZORAssociationRole* childRole = nullptr;
};

TEST_F(Constraints, HoldTheRoleOfTheUniqueKeyAndThenThatOfTheForeignKey) {
    association->setDescription("What");
    parentRole->setName("owner");
    childRole->setDeleteRule(ZOR_ACTION_CASCADE);
    childRole->setUpdateRule(ZOR_ACTION_SET_NULL);
    parentRole->setDeleteRule(ZOR_ACTION_RESTRICT);
    EXPECT_EQ(print(), R"xml(
<dbm:ReferentialConstraint oim:id="_1" name="R"
description="What"
>
<dbm:ReferentialConstraintUniqueKeyRole>
<dbm:UniqueKeyRole oim:id="_2" name="owner"
DeleteRule="1"
>
<dbm:JoinRoleColumnSet>
<dbm:LogicalTable oim:href="#_3"/>
</dbm:JoinRoleColumnSet>
<dbm:UniqueKeyRoleUniqueKey>
<dbm:UniqueKey oim:href="#_4"/>
</dbm:UniqueKeyRoleUniqueKey>
</dbm:UniqueKeyRole>
</dbm:ReferentialConstraintUniqueKeyRole>
<dbm:ReferentialConstraintForeignKeyRole>
<dbm:ForeignKeyRole oim:id="_5"
DeleteRule="2"
UpdateRule="3"
>
<dbm:JoinRoleColumnSet>
<dbm:LogicalTable oim:href="#_6"/>
</dbm:JoinRoleColumnSet>
<dbm:ForeignKeyRoleForeignKey>
<dbm:ForeignKey oim:href="#_7"/>
</dbm:ForeignKeyRoleForeignKey>
</dbm:ForeignKeyRole>
</dbm:ReferentialConstraintForeignKeyRole>
</dbm:ReferentialConstraint>
)xml"_lines);
}

TEST_F(Constraints, WriteADeleteRuleWithoutAnUpdateRuleThatHasNoCode) {
    childRole->setDeleteRule(ZOR_ACTION_NO_ACTION);
    childRole->setUpdateRule(ZOR_ACTION_NONE);
    EXPECT_THAT(print(), HasSubstr("<dbm:ForeignKeyRole oim:id=\"_5\"\nDeleteRule=\"1\"\n>\n"));
    EXPECT_THAT(print(), Not(HasSubstr("UpdateRule")));
}

TEST_F(Constraints, LeaveInsertRulesOut) {
    childRole->setInsertRule(ZOR_ACTION_CASCADE);
    parentRole->setInsertRule(ZOR_ACTION_CASCADE);
    EXPECT_THAT(print(), Not(HasSubstr("Rule=")));
}

TEST_F(Constraints, FindTheForeignKeyOnEitherRole) {
    association = model.addAssociation("R2");
    model.addRole(association, child, "0..*", model.addForeignKey(child, "FK2", {"x", "y"}, key));
    model.addRole(association, parent, "1");
    const std::string text = print();
    EXPECT_THAT(text,
                HasSubstr("<dbm:ReferentialConstraintUniqueKeyRole>\n<dbm:UniqueKeyRole oim:id=\"_2\">"));
    EXPECT_THAT(text,
                HasSubstr("<dbm:ReferentialConstraintForeignKeyRole>\n<dbm:ForeignKeyRole oim:id=\"_5\">"));
    EXPECT_LT(text.find("UniqueKeyRole"), text.find("ForeignKeyRole"));
}

TEST_F(Constraints, UseTheFirstRolesKeyWhenBothHaveOne) {
    ZORForeignKey* other =
        model.addForeignKey(parent, "FK2", {"x", "y"}, model.addKey(child, "UK", {"x", "y"}));
    parentRole->addForeignKey(other);
    TestBridge bridge(model.model());
    bridge.printDBMAssociation(association);
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("<dbm:ForeignKey oim:href=\"#_" +
                                std::to_string(bridge.getXMLID(other, DBM)) + "\"/>"));
    EXPECT_EQ(bridge.getObjectUserData(foreignKey)[DBM], 0) << "the second role's key is not used";
}

TEST_F(Constraints, HaveANameInAnyCase) {
    association->setName("");
    EXPECT_THAT(print(), StartsWith("<dbm:ReferentialConstraint oim:id=\"_1\" name=\"unnamed$1\">\n"));
    association->setPhysicalName("FK_R");
    EXPECT_THAT(print(), StartsWith("<dbm:ReferentialConstraint oim:id=\"_1\" name=\"FK_R\">\n"));
}

TEST_F(Constraints, ReferToAUniqueKeyThatIsItselfLeftOut) {
    key->setUnique(false);
    EXPECT_TRUE(isWritten());
    const std::string text = printAll();
    EXPECT_EQ(count(text, "<dbm:UniqueKey oim:id"), 0U);
    EXPECT_EQ(count(text, "<dbm:UniqueKey oim:href"), 1U);
}

TEST_F(Constraints, NeedTwoRoles) {
    EXPECT_TRUE(isWritten());
    model.addRole(association, parent, "1");
    EXPECT_FALSE(isWritten()) << "three roles";
}

TEST_F(Constraints, NeedMoreThanOneRole) {
    parentRole->setOwner(nullptr);
    const std::unique_ptr<ZORAssociationRole> removed(parentRole);
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, NeedAForeignKeyOnARole) {
    childRole->addForeignKey(nullptr);
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, NeedAPhysicalAssociation) {
    makePhysical(association);
    EXPECT_TRUE(isWritten());
    makeLogical(association);
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, NeedAPhysicalForeignKeyWithAReferencedKey) {
    makePhysical(foreignKey);
    EXPECT_TRUE(isWritten());
    makeLogical(foreignKey);
    EXPECT_FALSE(isWritten());
    foreignKey->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    foreignKey->setCandidateKey(nullptr);
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, NeedAPhysicalChild) {
    makeLogical(child);
    EXPECT_FALSE(isWritten());
    EXPECT_THAT(printAll(), Not(HasSubstr("FK")));
}

TEST_F(Constraints, NeedAPhysicalParent) {
    makeLogical(parent);
    EXPECT_FALSE(isWritten());
    EXPECT_THAT(printAll(), Not(HasSubstr("FK")));
}

TEST_F(Constraints, AskNeitherForTheRolesLevelNorForTheKindOfClass) {
    makeLogical(childRole);
    makeLogical(parentRole);
    makeLogical(key);
    EXPECT_TRUE(isWritten());
    parent->setClassType(9);
    EXPECT_TRUE(isWritten());
}

TEST_F(Constraints, NeedEveryColumnToAgreeWithItsCounterpart) {
    makeLogical(parent->getAttribute("x"));
    EXPECT_FALSE(isWritten()) << "the first pair disagrees";
    makeLogical(child->getAttribute("x"));
    EXPECT_TRUE(isWritten()) << "one pair is logical, the other physical";
    makeLogical(parent->getAttribute("y"));
    EXPECT_FALSE(isWritten()) << "the last pair disagrees";
    makeLogical(child->getAttribute("y"));
    EXPECT_FALSE(isWritten()) << "no pair is physical";
}

TEST_F(Constraints, AreNotRescuedByAnEarlierPairThatAgrees) {
    makeLogical(child->getAttribute("y"));
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, AreNotRescuedByAnEarlierPairWhenTheyAreAskedForAgain) {
    const auto isExportable = [&] {
        const TestBridge bridge(model.model());
        const bool first = bridge.isExportableDBMForeignKey(foreignKey);
        EXPECT_EQ(bridge.isExportableDBMForeignKey(foreignKey), first);
        return first;
    };
    EXPECT_TRUE(isExportable());
    makeLogical(child->getAttribute("y"));
    EXPECT_FALSE(isExportable()) << "the last pair disagrees";
    child->getAttribute("y")->setName("z");
    EXPECT_FALSE(isExportable()) << "the last column has no counterpart";
}

TEST_F(Constraints, NeedColumns) {
    ZORForeignKey* empty = model.addForeignKey(child, "no columns", {}, key);
    const TestBridge bridge(nullptr);
    EXPECT_FALSE(bridge.isExportableDBMForeignKey(empty));
    empty->setGeneralPointer(nullptr);
}

TEST_F(Constraints, FindCounterpartsByEqualName) {
    EXPECT_TRUE(isWritten());
    parent->getAttribute("y")->setName("Y");
    EXPECT_FALSE(isWritten()) << "letter case counts; a column without a counterpart disagrees";
}

TEST_F(Constraints, FindCounterpartsByRoleNameMapBeforeName) {
    parent->getAttribute("y")->setName("z");
    model.addMap(child->getAttribute("y"), foreignKey, parent->getAttribute("z"));
    EXPECT_TRUE(isWritten());
    makeLogical(parent->getAttribute("z"));
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, PassOverTheMapsOfOtherKeysAndMapsWithoutAReference) {
    ZORAttribute* logical = model.addColumn(parent, "logical");
    makeLogical(logical);
    ZORForeignKey* other = model.addForeignKey(child, "other", {"x"}, key);
    model.addMap(child->getAttribute("x"), other, logical);
    model.addMap(child->getAttribute("x"), foreignKey, nullptr);
    EXPECT_TRUE(isWritten()) << "the column of the same name is the counterpart";
    model.addMap(child->getAttribute("y"), foreignKey, logical);
    EXPECT_FALSE(isWritten());
}

TEST_F(Constraints, TakeTheFirstOfSeveralMaps) {
    ZORAttribute* logical = model.addColumn(parent, "logical");
    makeLogical(logical);
    model.addMap(child->getAttribute("x"), foreignKey, parent->getAttribute("x"));
    model.addMap(child->getAttribute("x"), foreignKey, logical);
    EXPECT_TRUE(isWritten());
}

TEST_F(Constraints, MayReferToTheirOwnTable) {
    ZORClass* tree = model.addTable("Tree", {"id", "up"});
    ZORForeignKey* up =
        model.addForeignKey(tree, "FK_UP", {"up"}, model.addPrimaryKey(tree, "PK_TREE", {"id"}));
    model.addMap(tree->getAttribute("up"), up, tree->getAttribute("id"));
    association = model.addRelationship("up", up);
    const std::string text = print();
    EXPECT_EQ(count(text, "<dbm:LogicalTable oim:href=\"#_3\"/>"), 2U);
    EXPECT_EQ(count(printAll(), "<dbm:ReferentialConstraint "), 2U);
}

TEST_F(Constraints, AreDecidedOnceAndARepeatedQuestionIsAnsweredFromTheMark) {
    const TestBridge bridge(model.model());
    EXPECT_TRUE(bridge.isExportableDBMAssociation(association));
    makeLogical(association);
    makeLogical(child);
    makeLogical(foreignKey);
    EXPECT_TRUE(bridge.isExportableDBMAssociation(association));
    EXPECT_TRUE(bridge.isExportableDBMAssociationRole(childRole));
    EXPECT_TRUE(bridge.isExportableDBMForeignKey(foreignKey));
    bridge.getDBMMark(foreignKey) = MARK_NOT_EXPORTABLE;
    EXPECT_FALSE(bridge.isExportableDBMForeignKey(foreignKey));
}

TEST_F(Constraints, LinkToTheRelationshipFirstInTheCombinedViewWhenTheErdViewHasIt) {
    EXPECT_THAT(print(MODEL_VIEW_ERD_AND_DBM), StartsWith(R"xml(
<dbm:ReferentialConstraint oim:id="_1" name="R">
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_2">
<uml:DependencySupplier>
<erd:Relationship oim:href="#_3"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
<dbm:ReferentialConstraintUniqueKeyRole>
)xml"_lines));
    EXPECT_THAT(print(MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    makePhysical(association);
    EXPECT_THAT(print(MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

}  // namespace
