// What several views write alike: the members of a key, the link to what an element was derived from, and the
// words for actions and visibility.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;

class KeyMembers : public ::testing::Test {
  protected:
    /// The names of the columns that the references of a key lead to, in their order.
    std::string members(ZORKey* key, MDCSubjectArea area = DBM) {
        TestBridge bridge(model.model());
        bridge.printKeyAttributes(key, "ref", area);
        std::string names;
        const std::string written = bridge.text();
        for (std::size_t at = written.find("#_"); at != std::string::npos; at = written.find("#_", at + 1)) {
            names += nameOf(bridge, std::stoi(written.substr(at + 2)), area) + " ";
        }
        return names;
    }
    ZORAttribute* column(ZORClass* table, const char* name) const { return table->getAttribute(name); }

    ModelBuilder model;

  private:
    std::string nameOf(TestBridge& bridge, int id, MDCSubjectArea area) {
        for (ZORModelElement* element : model.package()->getModelElements()) {
            for (ZORAttribute* attribute : static_cast<ZORClass*>(element)->getAttributes()) {
                if (bridge.getObjectUserData(attribute)[area] == id) {
                    return (element->getName() + "." + attribute->getName()).c_str();
                }
            }
        }
        return "?";
    }
};

TEST_F(KeyMembers, AreReferencesUnderTheGivenTag) {
    ZORClass* table = model.addTable("T", {"a", "b"});
    ZORCandidateKey* key = model.addKey(table, "K", {"a", "b"});
    TestBridge bridge(model.model());
    bridge.nextId_ = 20;
    bridge.printKeyAttributes(key, "dbm:LogicalColumn", DBM);
    EXPECT_EQ(bridge.text(),
              "<dbm:LogicalColumn oim:href=\"#_20\"/>\n<dbm:LogicalColumn oim:href=\"#_21\"/>\n");
}

TEST_F(KeyMembers, OfACandidateKeyWithoutAnIndexStandInTheOrderOfTheirPositions) {
    ZORClass* table = model.addTable("T", {"third", "first", "second"});
    column(table, "third")->setPosition(3);
    column(table, "first")->setPosition(1);
    column(table, "second")->setPosition(2);
    EXPECT_EQ(members(model.addKey(table, "K", {"third", "first", "second"})), "T.first T.second T.third ");
}

TEST_F(KeyMembers, OfEqualPositionKeepTheirOrderInTheKey) {
    ZORClass* table = model.addTable("T", {"a", "b", "c"});
    for (ZORAttribute* attribute : table->getAttributes()) {
        attribute->setPosition(1);
    }
    EXPECT_EQ(members(model.addKey(table, "K", {"c", "a", "b"})), "T.c T.a T.b ");
}

TEST_F(KeyMembers, AreASetWithoutAnIndex) {
    ZORClass* table = model.addTable("T", {"a", "b", "c"});
    column(table, "c")->setPosition(2);
    EXPECT_EQ(members(model.addKey(table, "K", {"a", "c", "b", "a", "c"})), "T.a T.b T.c ");
}

TEST_F(KeyMembers, OfACandidateKeyWithAnIndexStandInTheOrderOfTheIndex) {
    ZORClass* table = model.addTable("T", {"a", "b", "c"});
    ZORCandidateKey* key = model.addKey(table, "K", {"a", "b", "c"});
    model.addIndex(table, "I", {"b", "c", "a"})->setKey(key);
    EXPECT_EQ(members(key), "T.b T.c T.a ");
}

TEST_F(KeyMembers, AreTheIndexsColumnsLiterallyAndThoseOfTheFirstIndexOfTheKey) {
    ZORClass* table = model.addTable("T", {"a", "b", "c"});
    ZORCandidateKey* key = model.addKey(table, "K", {"a", "b"});
    model.addIndex(table, "Of another key", {"b"});
    model.addIndex(table, "First", {"c", "a"})->setKey(key);
    model.addIndex(table, "Second", {"b", "a"})->setKey(key);
    EXPECT_EQ(members(key), "T.c T.a ");
}

TEST_F(KeyMembers, AreNoneWhenTheFirstIndexOfTheKeyHasNoColumns) {
    ZORClass* table = model.addTable("T", {"a", "b"});
    ZORCandidateKey* key = model.addKey(table, "K", {"a", "b"});
    model.addIndex(table, "Empty", {})->setKey(key);
    EXPECT_EQ(members(key), "") << "the key's own columns do not stand in for them";
    model.addIndex(table, "Second", {"b", "a"})->setKey(key);
    EXPECT_EQ(members(key), "") << "nor do those of a later index";
}

TEST_F(KeyMembers, OfAForeignKeyFollowTheReferencedKeysOrder) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    column(parent, "x")->setPosition(2);
    column(parent, "y")->setPosition(1);
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"x", "y"});
    EXPECT_EQ(members(model.addForeignKey(child, "FK", {"x", "y"}, key)), "C.y C.x ");
}

TEST_F(KeyMembers, OfAForeignKeyArePairedByRoleNameMapBeforeName) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"x", "y"});
    ZORForeignKey* foreignKey = model.addForeignKey(child, "FK", {"x", "y"}, key);
    model.addMap(column(child, "x"), foreignKey, column(parent, "y"));
    model.addMap(column(child, "y"), foreignKey, column(parent, "x"));
    EXPECT_EQ(members(foreignKey), "C.y C.x ");
}

TEST_F(KeyMembers, IgnoreTheRoleNameMapsOfOtherForeignKeys) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"x", "y"});
    ZORForeignKey* other = model.addForeignKey(child, "Other", {"x"}, key);
    ZORForeignKey* foreignKey = model.addForeignKey(child, "FK", {"x"}, key);
    model.addMap(column(child, "x"), other, column(parent, "y"));
    EXPECT_EQ(members(foreignKey), "C.x ");
}

TEST_F(KeyMembers, OfAMapWithoutAReferenceArePairedByNameWhateverLaterMapsSay) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"other", "x"});
    ZORForeignKey* foreignKey = model.addForeignKey(child, "FK", {"other", "x"}, key);
    model.addMap(column(child, "other"), foreignKey, column(parent, "y"));
    model.addMap(column(child, "x"), foreignKey, nullptr);
    model.addMap(column(child, "x"), foreignKey, column(parent, "y"));
    EXPECT_EQ(members(foreignKey), "C.x C.other ");
}

TEST_F(KeyMembers, OfTheSameNameAreTheFirstColumnOfThatNameInListOrder) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    column(parent, "y")->setName("x");
    column(parent, "x")->setPosition(5);
    ZORCandidateKey* key = parent->addKey(std::make_unique<ZORCandidateKey>());
    key->addAttribute(parent->getAttributes()[0]);
    key->addAttribute(parent->getAttributes()[1]);
    ZORClass* child = model.addTable("C", {"x"});
    ZORForeignKey* foreignKey = model.addForeignKey(child, "FK", {"x"}, key);
    EXPECT_EQ(TestBridge::getCounterpart(foreignKey, column(child, "x")), parent->getAttributes()[0]);
    EXPECT_EQ(members(foreignKey), "C.x ");
}

TEST_F(KeyMembers, OfAForeignKeyThatMatchesNothingAreNone) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"u", "v"});
    EXPECT_EQ(members(model.addForeignKey(child, "FK", {"u", "v"}, key)), "");
}

TEST_F(KeyMembers, OfAForeignKeyLeaveOutTheReferencedColumnsWithoutAPartner) {
    ZORClass* parent = model.addTable("P", {"x", "y", "z"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y", "z"});
    ZORClass* child = model.addTable("C", {"z", "x"});
    EXPECT_EQ(members(model.addForeignKey(child, "FK", {"z", "x"}, key)), "C.x C.z ");
}

TEST_F(KeyMembers, OfAForeignKeyWithoutAReferencedKeyAreNone) {
    ZORClass* child = model.addTable("C", {"u"});
    EXPECT_EQ(members(model.addForeignKey(child, "FK", {"u"}, nullptr)), "");
}

TEST_F(KeyMembers, OfOneForeignKeyLeaveNoTraceForTheNext) {
    // The second key refers to the same columns but pairs only one of them.
    ZORClass* parent = model.addTable("P", {"x", "y"});
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* first = model.addTable("First", {"x", "y"});
    ZORClass* second = model.addTable("Second", {"x"});
    ZORForeignKey* firstKey = model.addForeignKey(first, "FK1", {"x", "y"}, key);
    ZORForeignKey* secondKey = model.addForeignKey(second, "FK2", {"x"}, key);
    TestBridge bridge(model.model());
    bridge.printKeyAttributes(firstKey, "ref", DBM);
    for (ZORAttribute* attribute : parent->getAttributes()) {
        EXPECT_EQ(bridge.getObjectUserData(attribute)[ObjectUserData::PAIRING], 0)
            << attribute->getName().view();
    }
    EXPECT_EQ(bridge.text(), "<ref oim:href=\"#_1\"/>\n<ref oim:href=\"#_2\"/>\n");
    bridge.printKeyAttributes(secondKey, "ref", DBM);
    EXPECT_EQ(bridge.text(), "<ref oim:href=\"#_3\"/>\n");
}

TEST_F(KeyMembers, OfAForeignKeyIntoItsOwnTableArePairedLikeAnyOther) {
    ZORClass* table = model.addTable("T", {"id", "parent"});
    ZORCandidateKey* key = model.addPrimaryKey(table, "PK", {"id"});
    ZORForeignKey* foreignKey = model.addForeignKey(table, "FK", {"parent"}, key);
    model.addMap(column(table, "parent"), foreignKey, column(table, "id"));
    EXPECT_EQ(members(foreignKey), "T.parent ");
}

TEST_F(KeyMembers, TakePartOnlyWhereTheirAreaShowsThem) {
    ZORClass* table = model.addTable("T", {"both", "logical", "physical"});
    column(table, "logical")->setDesignLevel(ZOR_LOGICAL_ONLY);
    column(table, "physical")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    ZORCandidateKey* key = model.addKey(table, "K", {"both", "logical", "physical"});
    EXPECT_EQ(members(key, DBM), "T.both T.physical ");
    EXPECT_EQ(members(key, ERD), "T.both T.logical ");
    EXPECT_EQ(members(key, UML), "");
}

TEST_F(KeyMembers, OfAForeignKeyTakePartWhereTheReferencedColumnIsShown) {
    ZORClass* parent = model.addTable("P", {"x", "y"});
    column(parent, "y")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    ZORCandidateKey* key = model.addKey(parent, "PK", {"x", "y"});
    ZORClass* child = model.addTable("C", {"x", "y"});
    ZORForeignKey* foreignKey = model.addForeignKey(child, "FK", {"x", "y"}, key);
    EXPECT_EQ(members(foreignKey, ERD), "C.x ");
    EXPECT_EQ(members(foreignKey, DBM), "C.x C.y ");
}

TEST(Traceability, IsADerivedAbstractionWithTheElementAsItsSupplier) {
    ModelBuilder model;
    ZORClass* table = model.addTable("T");
    TestBridge bridge(model.model());
    bridge.setXMLID(table, ERD, 17);
    bridge.nextId_ = 40;
    bridge.printTraceability("erd:Attribute", table, ERD);
    EXPECT_EQ(bridge.text(), R"xml(
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_40">
<uml:DependencySupplier>
<erd:Attribute oim:href="#_17"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
)xml"_lines);
}

TEST(ReferentialRules, HaveOneCodeForNoActionAndRestrictAndNoneForNone) {
    EXPECT_EQ(TestBridge::getXMLRule(ZOR_ACTION_NONE), nullptr);
    EXPECT_STREQ(TestBridge::getXMLRule(ZOR_ACTION_SET_DEFAULT), "4");
    EXPECT_STREQ(TestBridge::getXMLRule(ZOR_ACTION_NO_ACTION), "1");
    EXPECT_STREQ(TestBridge::getXMLRule(ZOR_ACTION_RESTRICT), "1");
    EXPECT_STREQ(TestBridge::getXMLRule(ZOR_ACTION_CASCADE), "2");
    EXPECT_STREQ(TestBridge::getXMLRule(ZOR_ACTION_SET_NULL), "3");
    EXPECT_EQ(TestBridge::getXMLRule(static_cast<ZORReferentialActionType>(6)), nullptr);
    EXPECT_EQ(TestBridge::getXMLRule(static_cast<ZORReferentialActionType>(-1)), nullptr);
}

TEST(Visibility, OfTheImplementationIsPrivate) {
    EXPECT_STREQ(TestBridge::getXMLVisibility(ZOR_VISIBILITY_PUBLIC), "PublicAccess");
    EXPECT_STREQ(TestBridge::getXMLVisibility(ZOR_VISIBILITY_PROTECTED), "ProtectedAccess");
    EXPECT_STREQ(TestBridge::getXMLVisibility(ZOR_VISIBILITY_PRIVATE), "PrivateAccess");
    EXPECT_STREQ(TestBridge::getXMLVisibility(ZOR_VISIBILITY_IMPLEMENTATION), "PrivateAccess");
}

TEST(VisibilityDeathTest, OfAnUnknownValueEndsTheProgramAndNamesTheSource) {
    EXPECT_DEATH(TestBridge::getXMLVisibility(static_cast<ZORVisibilityType>(4)),
                 "false.*MicrosoftSqlServerMdsMdcExport");
}

}  // namespace
