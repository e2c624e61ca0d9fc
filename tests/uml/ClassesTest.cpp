// Classes, interfaces and association classes.

#include <gmock/gmock.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class UmlClasses : public ::testing::Test {
  protected:
    UmlClasses() { cls = model.addTable("Order"); }

    std::string print(MDCUML13Support support = UML_1_3_FULL) const { return print(cls, support); }
    std::string print(ZORClass* printed, MDCUML13Support support = UML_1_3_FULL) const {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.uml13Support_ = support;
        bridge.preprocess();
        ZORVector<ZORModelObject*> comments;
        bridge.printUMLClass(printed, comments);
        return bridge.text();
    }

    ModelBuilder model;
    ZORClass* cls = nullptr;
};

TEST_F(UmlClasses, WithoutFeaturesHaveOnlyTheirPersistence) {
    EXPECT_EQ(print(), R"xml(
<uml:Class oim:id="_1" name="Order"
visibility="PublicAccess"
>
<uml:ModelElementTaggedValue>
<uml:TaggedValue oim:id="_2"
name="persistence"
value="transient"
/>
</uml:ModelElementTaggedValue>
</uml:Class>
)xml"_lines);
}

TEST_F(UmlClasses, TellTheirPersistenceAtEverySupportLevel) {
    cls->setPersistent(true);
    for (const MDCUML13Support support : {UML_1_3_FULL, UML_1_3_PARTIAL, UML_1_3_DISABLED}) {
        EXPECT_THAT(print(support), HasSubstr("name=\"persistence\"\nvalue=\"persistent\"\n"));
    }
}

TEST_F(UmlClasses, AreActiveByTheirConcurrency) {
    cls->setConcurrency(ZOR_CONCURRENCY_ACTIVE);
    EXPECT_THAT(print(), HasSubstr("isActive=\"1\"\n"));
    cls->setConcurrency(ZOR_CONCURRENCY_GUARDED);
    EXPECT_THAT(print(), Not(HasSubstr("isActive")));
}

TEST_F(UmlClasses, ThatAreAbstractInterfacesAreNeverActive) {
    cls->setClassType(9);
    cls->setAbstract(true);
    cls->setConcurrency(ZOR_CONCURRENCY_ACTIVE);
    cls->setVisibility(ZOR_VISIBILITY_PROTECTED);
    EXPECT_EQ(
        part(print(), "<uml:Interface", "\n>\n"),
        "<uml:Interface oim:id=\"_1\" name=\"Order\"\nisAbstract=\"1\"\nvisibility=\"ProtectedAccess\"\n>\n");
}

struct StandardStereotype {
    int classType;
    const char* name;  ///< null: none
};

class UmlClassTypes : public UmlClasses, public ::testing::WithParamInterface<StandardStereotype> {};

TEST_P(UmlClassTypes, GiveAStandardStereotypeWithFullSupportOnly) {
    cls->setClassType(GetParam().classType);
    const auto printModel = [this](MDCUML13Support support) {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.uml13Support_ = support;
        bridge.printUMLModel(model.model());
        return bridge.text();
    };
    if (GetParam().name == nullptr) {
        EXPECT_THAT(printModel(UML_1_3_FULL), Not(HasSubstr("Stereotype")));
    } else {
        EXPECT_THAT(printModel(UML_1_3_FULL), HasSubstr("\nname=\"" + std::string(GetParam().name) + "\"\n"));
    }
    EXPECT_THAT(printModel(UML_1_3_PARTIAL), Not(HasSubstr("Stereotype")));
    EXPECT_THAT(printModel(UML_1_3_DISABLED), Not(HasSubstr("Stereotype")));
}

INSTANTIATE_TEST_SUITE_P(Rows, UmlClassTypes,
                         ::testing::Values(StandardStereotype{0, nullptr}, StandardStereotype{1, nullptr},
                                           StandardStereotype{2, nullptr}, StandardStereotype{3, nullptr},
                                           StandardStereotype{4, "utility"}, StandardStereotype{5, "utility"},
                                           StandardStereotype{6, "utility"}, StandardStereotype{7, nullptr},
                                           StandardStereotype{8, "metaclass"},
                                           StandardStereotype{9, nullptr}));

TEST_F(UmlClasses, WithAStereotypeOfTheirOwnAlwaysLinkThatOne) {
    cls->setClassType(8);
    cls->setStereotype("mine");
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.printUMLModel(model.model());
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("\nname=\"mine\"\n"));
    EXPECT_THAT(text, Not(HasSubstr("metaclass")));
}

TEST_F(UmlClasses, LeaveOutMembersOfForeignKeys) {
    ZORClass* customer = model.addTable("Customer", {"id"});
    model.addColumn(cls, "customer");
    model.addForeignKey(cls, "fk", {"customer"}, model.addPrimaryKey(customer, "pk", {"id"}));
    EXPECT_THAT(print(), Not(HasSubstr("uml:ClassifierFeature")));
    model.addOperation<ZOROperation>(cls, "ship");
    EXPECT_THAT(print(), HasSubstr("<uml:ClassifierFeature>\n<uml:Operation"));
    EXPECT_THAT(print(customer), HasSubstr("<uml:Attribute"));
}

TEST_F(UmlClasses, WriteAttributesByPositionBeforeOperations) {
    model.addOperation<ZOROperation>(cls, "ship");
    model.addColumn(cls, "second")->setPosition(2);
    model.addColumn(cls, "first")->setPosition(1);
    const std::string text = print();
    EXPECT_LT(text.find("\"first\""), text.find("\"second\""));
    EXPECT_LT(text.find("\"second\""), text.find("\"ship\""));
    EXPECT_EQ(count(text, "<uml:ClassifierFeature>"), 1U);
}

TEST_F(UmlClasses, LeaveOutProceduresTriggersAndPhysicalOperations) {
    model.addOperation<ZORStoredProcedure>(cls, "procedure");
    model.addOperation<ZORTrigger>(cls, "trigger");
    model.addOperation<ZOROperation>(cls, "physical")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(), Not(HasSubstr("uml:ClassifierFeature")));
}

TEST_F(UmlClasses, WriteTheirTemplateArgumentsAsParameters) {
    ZORArgument* argument = cls->addArgument(std::make_unique<ZORArgument>());
    argument->setName("T");
    argument->addType(model.number);
    EXPECT_THAT(print(),
                HasSubstr("<uml:ModelElementTemplateParameter>\n<uml:Parameter oim:id=\"_2\" name=\"T\"\n"));
}

TEST_F(UmlClasses, WriteTheEndsOfTheirAssociationAndShareItsIdentifier) {
    ZORClass* other = model.addTable("Other");
    ZORAssociation* association = model.addAssociation("places");
    association->setConstraint("not written");
    association->setAssociationClass(cls);
    model.addRole(association, other, "1")->setConstraint("written behind the class");
    const std::string text = print();
    EXPECT_THAT(text, ::testing::StartsWith("<uml:AssociationClass oim:id=\"_1\" name=\"Order\"\n"));
    EXPECT_THAT(text, HasSubstr(">\n<uml:AssociationConnection>\n<uml:AssociationEnd oim:id=\"_2\"\n"));
    EXPECT_THAT(text, HasSubstr("</uml:AssociationClass>\n<uml:Constraint oim:id=\"_"));
    EXPECT_THAT(text, HasSubstr("body=\"written behind the class\"\n"));
    EXPECT_THAT(text, Not(HasSubstr("not written")));
}

TEST_F(UmlClasses, WriteAnAssociationThatHasAClassOnlyWithThatClass) {
    ZORAssociation* association = model.addAssociation("places");
    model.addRole(association, model.addTable("Other"), "1");
    association->setAssociationClass(cls);
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.printUMLModel(model.model());
    const std::string text = bridge.text();
    EXPECT_THAT(text, Not(HasSubstr("<uml:Association ")));
    EXPECT_EQ(count(text, "<uml:AssociationEnd "), 1U);
}

TEST_F(UmlClasses, ReferToTheGeneralizationsInWhichTheyAreTheChild) {
    ZORClass* parent = model.addTable("Parent");
    model.addGeneralization("is", {parent}, {cls});
    EXPECT_THAT(
        print(),
        HasSubstr("<uml:GeneralizableElementGeneralizations>\n<uml:Generalization oim:href=\"#_2\"/>\n"
                  "</uml:GeneralizableElementGeneralizations>\n<uml:ModelElementTaggedValue>"));
    EXPECT_THAT(print(parent), Not(HasSubstr("uml:Generalization ")));
    parent->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(), Not(HasSubstr("uml:Generalization")));
}

TEST_F(UmlClasses, ReferToTheirDependenciesAndToRealizationsWithFullSupportOnly) {
    ZORClass* supplier = model.addTable("Supplier");
    auto* dependency = model.package()->addModelElement(std::make_unique<ZORDependency>());
    dependency->setClient(cls);
    dependency->setSupplier(supplier);
    auto* realization = model.package()->addModelElement(std::make_unique<ZORRealization>());
    realization->setClient(cls);
    realization->setSupplier(supplier);
    EXPECT_THAT(print(),
                HasSubstr("<uml:ModelElementClientDependency>\n<uml:Dependency oim:href=\"#_3\"/>\n"
                          "<uml:Dependency oim:href=\"#_4\"/>\n</uml:ModelElementClientDependency>\n"));
    EXPECT_EQ(count(print(UML_1_3_PARTIAL), "<uml:Dependency "), 1U);
}

}  // namespace
