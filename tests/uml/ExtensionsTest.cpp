// Stereotypes, tagged values, constraints and comments.

#include <gmock/gmock.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class UmlExtensions : public ::testing::Test {
  protected:
    UmlExtensions() {
        first = model.addTable("First");
        second = model.addTable("Second");
    }

    std::string print(bool msRepository = false) {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.msRepository_ = msRepository;
        bridge.preprocess();
        bridge.printUMLModel(model.model());
        messages = bridge.log().lines();
        return bridge.text();
    }

    ModelBuilder model;
    ZORClass* first = nullptr;
    ZORClass* second = nullptr;
    std::string messages;
};

TEST_F(UmlExtensions, ShareAStereotypeAmongObjectsOfOneKind) {
    first->setStereotype("entity");
    second->setStereotype("entity");
    const std::string text = print();
    EXPECT_EQ(count(text, "<uml:Stereotype oim:id="), 1U);
    EXPECT_EQ(count(text, "<uml:Stereotype oim:href="), 2U);
    EXPECT_THAT(text, HasSubstr("name=\"entity\"\nbaseClass=\"Class\"\n"));
}

TEST_F(UmlExtensions, GiveAnotherKindAStereotypeOfItsOwn) {
    first->setStereotype("entity");
    model.addColumn(first, "no")->setStereotype("entity");
    const std::string text = print();
    EXPECT_THAT(text, HasSubstr("name=\"entity\"\nbaseClass=\"Class\"\n"));
    EXPECT_THAT(text, HasSubstr("name=\"entity\"\nbaseClass=\"Attribute\"\n"));
}

TEST_F(UmlExtensions, GiveEveryInterfaceAStereotypeOfItsOwn) {
    for (ZORClass* cls : {first, second}) {
        cls->setClassType(9);
        cls->setStereotype("port");
    }
    EXPECT_EQ(count(print(), "<uml:Stereotype oim:id="), 2U);
}

TEST_F(UmlExtensions, LetAClassShareTheStereotypeOfAnEarlierInterfaceOnly) {
    first->setClassType(9);
    first->setStereotype("port");
    second->setStereotype("port");
    EXPECT_EQ(count(print(), "<uml:Stereotype oim:id="), 1U);
    first->setClassType(0);
    second->setClassType(9);
    EXPECT_EQ(count(print(), "<uml:Stereotype oim:id="), 2U);
}

TEST_F(UmlExtensions, WriteNoReferenceForAnObjectWithoutAStereotype) {
    EXPECT_THAT(print(), Not(HasSubstr("uml:ModelElementStereotype")));
}

TEST_F(UmlExtensions, RenameStereotypesOfOneNameForTheRepository) {
    first->setStereotype("entity");
    model.addColumn(first, "no")->setStereotype("entity");
    const std::string text = print(true);
    EXPECT_THAT(text, HasSubstr("name=\"entity\"\nbaseClass=\"Class\"\n"));
    EXPECT_THAT(text, HasSubstr("name=\"entity/Attribute\"\nbaseClass=\"Attribute\"\n"));
    EXPECT_THAT(messages, HasSubstr("Renaming the Stereotype 'entity' to 'entity/Attribute' to avoid a name "
                                    "clash"));
}

TEST_F(UmlExtensions, WriteACommentForEveryNoteEvenAnEmptyOne) {
    first->addNote(std::make_unique<ZORNote>("one & all"));
    first->addNote(std::make_unique<ZORNote>(""));
    const std::string text = print();
    EXPECT_THAT(text, HasSubstr("comments=\"one &amp; all\"\n>\n<uml:CommentAnnotatedElement>\n<uml:Class "
                                "oim:href=\"#_3\"/>\n</uml:CommentAnnotatedElement>\n</uml:Comment>\n"));
    EXPECT_EQ(count(text, "<uml:Comment oim:id="), 2U);
    EXPECT_EQ(count(text, "comments=\""), 1U);
    EXPECT_LT(text.find("name=\"Second\""), text.find("<uml:Comment ")) << "comments end the package";
}

TEST_F(UmlExtensions, ReferToAnAnnotatedInterfaceAsAClass) {
    first->setClassType(9);
    first->addNote(std::make_unique<ZORNote>("note"));
    EXPECT_THAT(print(), HasSubstr("<uml:CommentAnnotatedElement>\n<uml:Class oim:href=\"#_3\"/>\n"));
}

TEST_F(UmlExtensions, WriteConditionsAsConstraintsBehindTheClass) {
    auto* operation = model.addOperation<ZOROperation>(first, "run");
    operation->setPrecondition("ready");
    operation->setPostcondition("done");
    const std::string text = print();
    const std::string constraint = part(text, "<uml:Constraint ", "</uml:Constraint>\n");
    EXPECT_THAT(constraint, HasSubstr("body=\"ready\"\n>\n<uml:ModelElementStereotype>\n"));
    EXPECT_THAT(constraint,
                HasSubstr("<uml:ConstraintConstrainedElement>\n<uml:Operation oim:href=\"#_4\"/>\n"));
    EXPECT_LT(text.find("body=\"ready\""), text.find("body=\"done\""));
    EXPECT_LT(text.find("</uml:Class>"), text.find("<uml:Constraint "));
    EXPECT_THAT(text, HasSubstr("name=\"precondition\"\nbaseClass=\"Constraint\"\n"));
}

TEST_F(UmlExtensions, WriteATaggedValueThatIsEmptyWithoutItsValue) {
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.printUMLTaggedValue("semantics", "");
    EXPECT_EQ(bridge.text(), "<uml:TaggedValue oim:id=\"_1\"\nname=\"semantics\"\n/>\n");
}

TEST(UmlStereotypesDeathTest, StopTheProgramWhenAStandardOneMeetsAnObjectsOwn) {
    ModelBuilder model;
    ZORClass* cls = model.addTable("Order");
    cls->setStereotype("own");
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    EXPECT_DEATH(bridge.linkUMLStereotype(cls, "utility"),
                 "Assertion failed: obj->getStereotype\\(\\).isEmpty\\(\\)==true, file "
                 "MicrosoftSqlServerMdsMdcUMLExport, line 1018");
}

}  // namespace
