// Relationships with their roles, generalizations among them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "ModelDump.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Relationships : public ::testing::Test {
  protected:
    Relationships() {
        parent = model.addTable("P", {"id"});
        parentKey = model.addPrimaryKey(parent, "PK", {"id"});
        child = model.addTable("C", {"id"});
        foreignKey = model.addForeignKey(child, "FK", {"id"}, parentKey);
        association = model.addRelationship("R", foreignKey);
        parentRole = association->getRoles()[0];
        childRole = association->getRoles()[1];
    }

    std::string print() const {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        bridge.printERDAssociation(association);
        return bridge.text();
    }
    std::string printAll(MDCModelView view = MODEL_VIEW_ERD) const {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        bridge.printERDModel(model.model());
        return bridge.text();
    }
    bool isWritten() const {
        const bool written = count(printAll(), "<erd:Relationship oim:id") == 1;
        EXPECT_EQ(count(printAll(), "KeyType=\"4\""), written ? 1U : 0U) << "its foreign key goes with it";
        return written;
    }
    std::string typeOf(const char* parentMultiplicity, const char* childMultiplicity) const {
        parentRole->setMultiplicity(parentMultiplicity);
        childRole->setMultiplicity(childMultiplicity);
        return part(print(), "RelationshipType", "\"\n");
    }
    static void makePhysical(ZORModelObject* object) { object->setDesignLevel(ZOR_PHYSICAL_ONLY); }

    ModelBuilder model;
    ZORClass* parent = nullptr;
    ZORClass* child = nullptr;
    ZORCandidateKey* parentKey = nullptr;
    ZORForeignKey* foreignKey = nullptr;
    ZORAssociation* association = nullptr;
    ZORAssociationRole* parentRole = nullptr;
    ZORAssociationRole* childRole = nullptr;
};

TEST_F(Relationships, HoldTheParentRoleWithItsRulesAndThenTheChildRole) {
    association->setDescription("What");
    parentRole->setName("owner");
    for (ZORAssociationRole* role : {parentRole, childRole}) {
        role->setDeleteRule(ZOR_ACTION_CASCADE);
        role->setInsertRule(ZOR_ACTION_SET_DEFAULT);
        role->setUpdateRule(ZOR_ACTION_SET_NULL);
    }
    EXPECT_EQ(print(), R"xml(
<erd:Relationship oim:id="_1" name="R"
description="What"
RelationshipType="2"
>
<erd:RelationshipParentRole>
<erd:ParentRole oim:id="_2" name="owner"
multiplicity="1"
Delete="2"
Insert="4"
Update="3"
>
<erd:ParentRoleEntity>
<erd:Entity oim:href="#_3"/>
</erd:ParentRoleEntity>
<erd:ParentRoleKey>
<erd:Key oim:href="#_4"/>
</erd:ParentRoleKey>
</erd:ParentRole>
</erd:RelationshipParentRole>
<erd:RelationshipChildRole>
<erd:ChildRole oim:id="_5"
multiplicity="0..*"
>
<erd:ChildRoleEntity>
<erd:Entity oim:href="#_6"/>
</erd:ChildRoleEntity>
<erd:ChildRoleKey>
<erd:Key oim:href="#_7"/>
</erd:ChildRoleKey>
</erd:ChildRole>
</erd:RelationshipChildRole>
</erd:Relationship>
)xml"_lines);
}

TEST_F(Relationships, LeaveRulesWithoutACodeAndEmptyMultiplicitiesOut) {
    parentRole->setMultiplicity("");
    parentRole->setInsertRule(ZOR_ACTION_RESTRICT);
    EXPECT_THAT(print(), HasSubstr("<erd:ParentRole oim:id=\"_2\"\nInsert=\"1\"\n>\n"));
    childRole->setMultiplicity("");
    EXPECT_THAT(print(), HasSubstr("<erd:ChildRole oim:id=\"_5\">\n"));
}

TEST_F(Relationships, ReferToTheForeignKeyAndTheKeyThatItReferencesWhicheverRoleHasIt) {
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    ZORAssociation* turned = model.addAssociation("turned");
    ZORForeignKey* key = model.addForeignKey(child, "FK2", {"id"}, parentKey);
    model.addRole(turned, child, "0..*", key);
    model.addRole(turned, parent, "1");
    bridge.setXMLID(key, ERD, 70);
    bridge.setXMLID(parentKey, ERD, 80);
    bridge.printERDAssociation(turned);
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("<erd:ParentRoleKey>\n<erd:Key oim:href=\"#_80\"/>\n"));
    EXPECT_THAT(text, HasSubstr("<erd:ChildRoleKey>\n<erd:Key oim:href=\"#_70\"/>\n"));
}

TEST_F(Relationships, UseTheFirstRolesKeyWhenBothHaveOne) {
    ZORCandidateKey* childKey = model.addKey(child, "UK", {"id"});
    ZORForeignKey* other = model.addForeignKey(parent, "FK2", {"id"}, childKey);
    parentRole->addForeignKey(other);
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.setXMLID(other, ERD, 70);
    bridge.setXMLID(childKey, ERD, 80);
    bridge.printERDAssociation(association);
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("<erd:ParentRoleKey>\n<erd:Key oim:href=\"#_80\"/>\n"));
    EXPECT_THAT(text, HasSubstr("<erd:ChildRoleKey>\n<erd:Key oim:href=\"#_70\"/>\n"));
    EXPECT_EQ(bridge.getObjectUserData(foreignKey)[ERD], 0) << "the second role's key is not used";
}

TEST_F(Relationships, WithoutAReferencedKeyHaveNoParentKey) {
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.printERDAssociationRole(parentRole, nullptr, true);
    EXPECT_EQ(bridge.text(), R"xml(
<erd:ParentRole oim:id="_1"
multiplicity="1"
>
<erd:ParentRoleEntity>
<erd:Entity oim:href="#_2"/>
</erd:ParentRoleEntity>
</erd:ParentRole>
)xml"_lines);
}

TEST_F(Relationships, AreOfTypeTwoUnlessBothEndsAreMany) {
    struct Row {
        const char* parent;
        const char* child;
        const char* type;
    };
    constexpr Row ROWS[] = {
        {"1", "0..*", "2"},    {"1", "1", "2"},    {"0..1", "0..1", "2"}, {"0..*", "0..1", "2"},
        {"0..*", "1", "2"},    {"*", "*", "3"},    {"2", "2", "3"},       {"1..2", "0..5", "3"},
        {"n", "M", "3"},       {"", "*", "2"},     {"*", "", "2"},        {"1", "1..2", "2"},
        {"0..2", "1..1", "2"}, {"junk", "*", "2"},
    };
    for (const Row& row : ROWS) {
        EXPECT_EQ(typeOf(row.parent, row.child), std::string("RelationshipType=\"") + row.type + "\"\n")
            << row.parent << " to " << row.child;
    }
}

TEST_F(Relationships, ThatStandForAGeneralizationInTheSourceAreOfTypeOne) {
    association->setAssociationKind(1);
    EXPECT_EQ(typeOf("*", "*"), "RelationshipType=\"1\"\n");
    association->setAssociationKind(2);
    EXPECT_EQ(typeOf("*", "*"), "RelationshipType=\"3\"\n") << "any other kind is none";
}

TEST_F(Relationships, ThatAreGeneralizationsAreOfTypeFive) {
    model.addGeneralization("G", {parent}, {child})
        ->addForeignKey(model.addForeignKey(child, "FK2", {"id"}, parentKey));
    const std::string text = printAll();
    EXPECT_EQ(count(text, "RelationshipType=\"5\""), 1U);
    EXPECT_EQ(count(text, "RelationshipType=\"2\""), 1U);
    const std::string relationship = part(text, "RelationshipType=\"5\"", "</erd:Relationship>");
    EXPECT_THAT(relationship, HasSubstr("multiplicity=\"1\""));
    EXPECT_THAT(relationship, HasSubstr("multiplicity=\"0..1\""));
    EXPECT_THAT(relationship, Not(HasSubstr("Delete")));
}

TEST_F(Relationships, OfAGeneralizationComeLastSubtypeFirstAndAreGoneAfterwards) {
    ZORClass* other = model.addTable("D", {"id"});
    ZORGeneralization* generalization = model.addGeneralization("G", {parent}, {child, other});
    generalization->addForeignKey(model.addForeignKey(child, "FK C", {"id"}, parentKey));
    generalization->addForeignKey(model.addForeignKey(other, "FK D", {"id"}, parentKey));
    const std::string before = dumpModel(*model.model());
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    bridge.printERDModel(model.model());
    const std::string text = bridge.text();
    const std::string first =
        "<erd:Entity oim:href=\"#_" + std::to_string(bridge.getXMLID(other, ERD)) + "\"";
    const std::string second =
        "<erd:Entity oim:href=\"#_" + std::to_string(bridge.getXMLID(child, ERD)) + "\"";
    const std::size_t generalizations = text.find("RelationshipType=\"5\"");
    ASSERT_NE(generalizations, std::string::npos);
    EXPECT_LT(text.find(first, generalizations), text.find(second, generalizations));
    bridge.cleanup();
    EXPECT_EQ(dumpModel(*model.model()), before);
}

TEST_F(Relationships, OfAGeneralizationNeedAForeignKeyThatIsLogical) {
    ZORClass* other = model.addTable("D", {"id"});
    ZORGeneralization* generalization = model.addGeneralization("G", {parent}, {other});
    EXPECT_EQ(count(printAll(), "RelationshipType=\"5\""), 0U) << "no foreign key";
    ZORForeignKey* key = model.addForeignKey(other, "FK D", {"id"}, parentKey);
    generalization->addForeignKey(key);
    EXPECT_EQ(count(printAll(), "RelationshipType=\"5\""), 1U);
    generalization->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_EQ(count(printAll(), "RelationshipType=\"5\""), 0U) << "its design level is carried over";
}

TEST_F(Relationships, NeedTwoRoles) {
    EXPECT_TRUE(isWritten());
    model.addRole(association, parent, "1");
    EXPECT_FALSE(isWritten());
}

TEST_F(Relationships, NeedAForeignKeyOnARole) {
    childRole->addForeignKey(nullptr);
    EXPECT_FALSE(isWritten());
}

TEST_F(Relationships, NeedALogicalAssociationBetweenLogicalClasses) {
    for (ZORModelObject* object :
         std::initializer_list<ZORModelObject*>{association, parent, child, foreignKey}) {
        makePhysical(object);
        EXPECT_FALSE(isWritten()) << object->getName().view();
        object->setDesignLevel(ZOR_LOGICAL_ONLY);
        EXPECT_TRUE(isWritten()) << object->getName().view();
    }
}

TEST_F(Relationships, AskNeitherForTheLevelOfRolesAndReferencedKeyNorForTheKindOfClass) {
    makePhysical(parentRole);
    makePhysical(childRole);
    makePhysical(parentKey);
    EXPECT_TRUE(isWritten());
    parent->setClassType(9);
    EXPECT_TRUE(isWritten());
    child->setClassType(9);
    EXPECT_EQ(count(printAll(), "<erd:Relationship oim:id"), 1U) << "of two classes that are no entities";
}

TEST_F(Relationships, AreDecidedOnceAndApartFromTheDbmView) {
    const TestBridge bridge(model.model(), MODEL_VIEW_ERD_AND_DBM);
    EXPECT_TRUE(bridge.isExportableERDAssociation(association));
    EXPECT_EQ(bridge.getDBMMark(association), MARK_UNDECIDED);
    makePhysical(association);
    makePhysical(child);
    EXPECT_TRUE(bridge.isExportableERDAssociation(association));
    EXPECT_TRUE(bridge.isExportableERDAssociationRole(childRole));
    EXPECT_TRUE(bridge.isExportableDBMAssociation(association)) << "asked for the first time";
}

TEST_F(Relationships, OfAPackageComeBeforeThoseOfItsSubPackages) {
    ZORDesignPackage* outer = model.package();
    model.addPackage("Inner", outer);
    model.addRelationship("inner", model.addForeignKey(child, "FK2", {"id"}, parentKey));
    ZORAssociation* last = outer->addModelElement(std::make_unique<ZORAssociation>());
    last->setName("outer");
    model.addRole(last, parent, "1");
    model.addRole(last, child, "*", model.addForeignKey(child, "FK3", {"id"}, parentKey));
    const std::string text = printAll();
    EXPECT_LT(text.find("name=\"R\""), text.find("name=\"outer\""));
    EXPECT_LT(text.find("name=\"outer\""), text.find("name=\"inner\""));
    EXPECT_NE(text.find("name=\"inner\""), std::string::npos);
}

TEST_F(Relationships, OfOneNameKeepIt) {
    model.addRelationship("R", model.addForeignKey(child, "FK2", {"id"}, parentKey));
    EXPECT_EQ(count(printAll(), " name=\"R\"\nRelationshipType"), 2U);
}

TEST_F(Relationships, WithoutANameAreNumbered) {
    association->setName("");
    EXPECT_THAT(print(), HasSubstr("<erd:Relationship oim:id=\"_1\" name=\"unnamed$1\"\n"));
}

class Generalizations : public Relationships {
  protected:
    Generalizations() { generalization = model.addGeneralization("G", {parent}, {child}); }

    bool isExportable() const {
        const TestBridge bridge(nullptr, MODEL_VIEW_ERD);
        const bool first = bridge.isExportableERDGeneralization(generalization);
        EXPECT_EQ(bridge.isExportableERDGeneralization(generalization), first);
        generalization->setGeneralPointer(nullptr);
        return first;
    }

    ZORGeneralization* generalization = nullptr;
};

TEST_F(Generalizations, HaveAnElementThatNamesTheSupertypeThoughNothingAsksForIt) {
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.printERDGeneralization(generalization);
    EXPECT_EQ(bridge.text(), R"xml(
<erd:EntityGeneralization oim:id="_1" name="G">
<erd:EntityGeneralizationSuperEntity>
<erd:Entity oim:href="#_2"/>
</erd:EntityGeneralizationSuperEntity>
</erd:EntityGeneralization>
)xml"_lines);
    EXPECT_THAT(printAll(), Not(HasSubstr("EntityGeneralization")));
}

TEST_F(Generalizations, AreExportableWithOneLogicalSupertypeAndLogicalSubtypes) {
    EXPECT_TRUE(isExportable());
    makePhysical(child);
    EXPECT_FALSE(isExportable());
    child->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_TRUE(isExportable());
    makePhysical(parent);
    EXPECT_FALSE(isExportable());
    parent->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    makePhysical(generalization);
    EXPECT_FALSE(isExportable());
    generalization->setDesignLevel(ZOR_LOGICAL_ONLY);
    generalization->addSupertypeClass(child);
    EXPECT_FALSE(isExportable());
}

}  // namespace
