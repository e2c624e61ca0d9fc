// Associations with their ends, generalizations, dependencies and realizations.

#include <gmock/gmock.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

class UmlRelationships : public ::testing::Test {
  protected:
    UmlRelationships() {
        customer = model.addTable("Customer");
        order = model.addTable("Order");
    }

    std::string print(bool msRepository = false, MDCUML13Support support = UML_1_3_FULL) const {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.msRepository_ = msRepository;
        bridge.uml13Support_ = support;
        bridge.preprocess();
        bridge.printUMLModel(model.model());
        return bridge.text();
    }
    std::string printRole(ZORAssociationRole* role, bool msRepository = false) const {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.msRepository_ = msRepository;
        ZORVector<ZORModelObject*> comments;
        ZORVector<Bridge::UMLConstraint*> constraints;
        bridge.printUMLAssociationRole(role, comments, constraints);
        return bridge.text();
    }

    ModelBuilder model;
    ZORClass* customer = nullptr;
    ZORClass* order = nullptr;
};

TEST_F(UmlRelationships, WriteAnEndWithItsClass) {
    ZORAssociationRole* role = model.addRole(model.addAssociation("places"), customer, "1..*");
    EXPECT_EQ(printRole(role), R"xml(
<uml:AssociationEnd oim:id="_1"
aggregation="none"
isNavigable="0"
multiplicity="1..*"
ordering="unordered"
AssociationEnd.visibility="PublicAccess"
>
<uml:AssociationEndType>
<uml:Class oim:href="#_2"/>
</uml:AssociationEndType>
</uml:AssociationEnd>
)xml"_lines);
}

TEST_F(UmlRelationships, LeaveOutTheVisibilityOfEndsForTheRepository) {
    ZORAssociationRole* role = model.addRole(model.addAssociation("places"), customer, "");
    role->setNavigable(true);
    role->setOrdered(true);
    const std::string text = printRole(role, true);
    EXPECT_THAT(text, Not(HasSubstr("visibility")));
    EXPECT_THAT(text, Not(HasSubstr("multiplicity")));
    EXPECT_THAT(text, HasSubstr("isNavigable=\"1\"\nordering=\"ordered\"\n"));
}

TEST_F(UmlRelationships, WriteQualifiersByPositionWithoutAFilter) {
    ZORAssociationRole* role = model.addRole(model.addAssociation("places"), customer, "");
    for (const int position : {1, 0}) {
        ZORAttribute* qualifier = role->addQualifier(std::make_unique<ZORAttribute>());
        qualifier->setName(position == 0 ? "first" : "second");
        qualifier->setPosition(static_cast<std::int16_t>(position));
        qualifier->setType(model.number);
        qualifier->setDesignLevel(ZOR_PHYSICAL_ONLY);
    }
    const std::string text = printRole(role);
    EXPECT_THAT(text, HasSubstr("</uml:AssociationEndType>\n<uml:AssociationEndQualifier>\n<uml:Attribute "));
    EXPECT_LT(text.find("\"first\""), text.find("\"second\""));
}

TEST_F(UmlRelationships, WriteTheConstraintsOfAnAssociationBehindIt) {
    ZORAssociation* association = model.addAssociation("places");
    association->setConstraint("of the association");
    model.addRole(association, customer, "1")->setConstraint("of an end");
    const std::string text = print(false, UML_1_3_DISABLED);
    const std::size_t end = text.find("</uml:Association>");
    EXPECT_LT(end, text.find("body=\"of the association\""));
    EXPECT_LT(text.find("body=\"of the association\""), text.find("body=\"of an end\""));
    EXPECT_EQ(part(text, "<uml:Constraint ", "</uml:Constraint>\n"),
              "<uml:Constraint oim:id=\"_9\" name=\"unnamed$9\"\nbody=\"of the association\"\n>\n"
              "<uml:ConstraintConstrainedElement>\n<uml:Association oim:href=\"#_7\"/>\n"
              "</uml:ConstraintConstrainedElement>\n</uml:Constraint>\n");
}

TEST_F(UmlRelationships, WriteAnAssociationWithoutRolesWithAnEmptyConnection) {
    model.addAssociation("lonely");
    EXPECT_THAT(print(),
                HasSubstr("name=\"lonely\">\n<uml:AssociationConnection>\n</uml:AssociationConnection>\n"));
}

TEST_F(UmlRelationships, LeaveOutAnAssociationOfAPhysicalClass) {
    model.addRole(model.addAssociation("places"), customer, "1");
    customer->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(), Not(HasSubstr("places")));
}

TEST_F(UmlRelationships, LeaveOutThoseThatArePhysicalOnly) {
    ZORAssociation* association = model.addAssociation("places");
    model.addRole(association, customer, "1");
    ZORGeneralization* generalization = model.addGeneralization("is", {customer}, {order});
    auto* dependency = model.package()->addModelElement(std::make_unique<ZORDependency>());
    dependency->setName("uses");
    dependency->setClient(order);
    dependency->setSupplier(customer);
    auto* realization = model.package()->addModelElement(std::make_unique<ZORRealization>());
    realization->setName("implements");
    realization->setClient(order);
    realization->setSupplier(customer);
    const std::pair<ZORModelElement*, const char*> relationships[] = {{association, "name=\"places\""},
                                                                      {generalization, "name=\"is\""},
                                                                      {dependency, "name=\"uses\""},
                                                                      {realization, "name=\"implements\""}};
    for (const auto& [relationship, name] : relationships) {
        EXPECT_THAT(print(), HasSubstr(name));
        relationship->setDesignLevel(ZOR_PHYSICAL_ONLY);
        EXPECT_THAT(print(), Not(HasSubstr(name)));
    }
}

TEST_F(UmlRelationships, LeaveOutAGeneralizationWithoutASubtype) {
    model.addGeneralization("is", {customer}, {});
    EXPECT_THAT(print(), Not(HasSubstr("name=\"is\"")));
}

struct Aggregation {
    const char* description;
    bool aggregateEnd;
    bool aggregation;
    int oppositeKind;
    const char* word;
};

class UmlAggregation : public ::testing::TestWithParam<Aggregation> {};

TEST_P(UmlAggregation, IsDecidedByTheFlagsAndTheOppositeRole) {
    ZORAssociation association;
    association.setAggregation(GetParam().aggregation);
    ZORAssociationRole* first = association.addRole(std::make_unique<ZORAssociationRole>());
    ZORAssociationRole* second = association.addRole(std::make_unique<ZORAssociationRole>());
    for (ZORAssociationRole* role : {first, second}) {
        ZORAssociationRole* opposite = role == first ? second : first;
        role->setAggregateEnd(GetParam().aggregateEnd);
        opposite->setAggregationKind(GetParam().oppositeKind);
        EXPECT_STREQ(Bridge::getUMLAggregation(role), GetParam().word) << GetParam().description;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, UmlAggregation,
                         ::testing::Values(Aggregation{"plain end", false, true, 0, "none"},
                                           Aggregation{"plain association", true, false, 0, "none"},
                                           Aggregation{"kind 0", true, true, 0, "composite"},
                                           Aggregation{"kind 1", true, true, 1, "aggregate"},
                                           Aggregation{"kind 2", true, true, 2, "aggregate"}));

TEST(UmlAggregationOf, ALoneRoleIsNone) {
    ZORAssociation association;
    association.setAggregation(true);
    ZORAssociationRole* role = association.addRole(std::make_unique<ZORAssociationRole>());
    role->setAggregateEnd(true);
    EXPECT_STREQ(Bridge::getUMLAggregation(role), "none");
}

TEST(UmlAggregationDeathTest, StopsTheProgramForAKindThatDoesNotExist) {
    ZORAssociation association;
    association.setAggregation(true);
    ZORAssociationRole* role = association.addRole(std::make_unique<ZORAssociationRole>());
    role->setAggregateEnd(true);
    association.addRole(std::make_unique<ZORAssociationRole>())->setAggregationKind(3);
    EXPECT_DEATH(Bridge::getUMLAggregation(role),
                 "Assertion failed: false, file MicrosoftSqlServerMdsMdcUMLExport, line 239");
}

TEST_F(UmlRelationships, LinkImplementationForHiddenGeneralizationsWithFullSupportOnly) {
    ZORGeneralization* generalization = model.addGeneralization("is", {customer}, {order});
    generalization->setVisibility(ZOR_VISIBILITY_IMPLEMENTATION);
    EXPECT_THAT(print(), HasSubstr("\nname=\"implementation\"\nbaseClass=\"Generalization\"\n"));
    EXPECT_THAT(print(false, UML_1_3_PARTIAL), Not(HasSubstr("implementation")));
    generalization->setStereotype("own");
    EXPECT_THAT(print(), Not(HasSubstr("implementation")));
}

TEST_F(UmlRelationships, SplitGeneralizationsIntoPairs) {
    ZORClass* guest = model.addTable("Guest");
    model.addGeneralization("is", {customer}, {order, guest})->setDescription("kept");
    const std::string text = print();
    EXPECT_EQ(count(text, "<uml:GeneralizationParent>"), 2U);
    EXPECT_EQ(count(text, "<uml:GeneralizableElementGeneralizations>"), 2U);
    EXPECT_EQ(count(text, "description=\"kept\""), 2U);
}

TEST_F(UmlRelationships, WriteADependencyWithItsSupplier) {
    auto* dependency = model.package()->addModelElement(std::make_unique<ZORDependency>());
    dependency->setName("uses");
    dependency->setClient(order);
    dependency->setSupplier(customer);
    EXPECT_THAT(print(), HasSubstr(R"xml( name="uses">
<uml:DependencySupplier>
<uml:Class oim:href="#_3"/>
</uml:DependencySupplier>
</uml:Dependency>
)xml"));
}

TEST_F(UmlRelationships, WriteARealizationAsADependencyWithItsStereotype) {
    auto* realization = model.package()->addModelElement(std::make_unique<ZORRealization>());
    realization->setName("implements");
    realization->setClient(order);
    realization->setSupplier(customer);
    const std::string text = print();
    EXPECT_THAT(part(text, " name=\"implements\">", "</uml:Dependency>"),
                HasSubstr("<uml:ModelElementStereotype>"));
    EXPECT_THAT(text, HasSubstr("\nname=\"realization\"\nbaseClass=\"Dependency\"\n"));
    EXPECT_THAT(print(false, UML_1_3_DISABLED), Not(HasSubstr("implements")));
}

}  // namespace
