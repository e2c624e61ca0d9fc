// The UML model, its packages and data types.

#include <gmock/gmock.h>

#include "ModelBuilder.h"
#include "ModelDump.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* UML_VIEW = "UML";

std::string printModel(ZORModel* model, bool msRepository = false, MDCUML13Support support = UML_1_3_FULL) {
    TestBridge bridge(model, MODEL_VIEW_UML);
    bridge.msRepository_ = msRepository;
    bridge.uml13Support_ = support;
    bridge.printUMLModel(model);
    return bridge.text();
}

TEST(UmlModel, WithNothingToOwnHasNoContainer) {
    ZORModel model;
    EXPECT_EQ(printModel(&model), "<uml:Model oim:id=\"_1\">\n</uml:Model>\n");
}

TEST(UmlModel, WithOnlyACatalogHasAnEmptyContainer) {
    ZORModel model;
    model.addChildPackage(std::make_unique<ZORDatabaseCatalog>());
    EXPECT_EQ(printModel(&model),
              "<uml:Model "
              "oim:id=\"_1\">\n<uml:NamespaceOwnedElement>\n</uml:NamespaceOwnedElement>\n</uml:Model>\n");
}

TEST(UmlModel, LinksItsOwnStereotype) {
    ZORModel model;
    model.setStereotype("system");
    EXPECT_EQ(printModel(&model), R"xml(
<uml:Model oim:id="_1">
<uml:ModelElementStereotype>
<uml:Stereotype oim:href="#_2"/>
</uml:ModelElementStereotype>
<uml:NamespaceOwnedElement>
<uml:Stereotype oim:id="_2"
name="system"
baseClass="Model"
/>
</uml:NamespaceOwnedElement>
</uml:Model>
)xml"_lines);
}

TEST(UmlModel, WritesPackagesThenElementsThenTypes) {
    ModelBuilder model;
    ZORDesignPackage* outer = model.addPackage("Outer");
    model.addTable("Last", {"a"});
    model.addPackage("Inner", outer);
    const std::string text = printModel(model.model());
    EXPECT_LT(text.find("name=\"Inner\""), text.find("name=\"Last\""));
    EXPECT_LT(text.find("name=\"Last\""), text.find("<uml:DataType"));
}

TEST(UmlModel, RenamesTypesOfOneNameForTheRepositoryAndLeavesThemAsTheyWere) {
    ModelBuilder model;
    ZORType* first = model.addType<ZORDerivedType>("Code", "SQL_CHAR");
    ZORType* second = model.addType<ZORDerivedType>("Code", "SQL_INTEGER");
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.msRepository_ = true;
    bridge.printUMLModel(model.model());
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("name=\"Code\"/>"));
    EXPECT_THAT(text, HasSubstr("name=\"Code/1\"/>"));
    EXPECT_EQ(first->getName(), "Code");
    EXPECT_EQ(second->getName(), "Code");
}

TEST(UmlModel, KeepsTypesOfOneNameOutsideTheRepository) {
    ModelBuilder model;
    model.addType<ZORDerivedType>("Code", "SQL_CHAR");
    model.addType<ZORDerivedType>("Code", "SQL_INTEGER");
    EXPECT_EQ(count(printModel(model.model()), "name=\"Code\"/>"), 2U);
}

TEST(UmlModel, LeavesOutPlainTypesThatNothingRefersTo) {
    ModelBuilder model;
    EXPECT_THAT(printModel(model.model()), Not(HasSubstr("uml:DataType")));
    model.addAlias("n", model.number);
    EXPECT_EQ(count(printModel(model.model()), "<uml:DataType"), 2U);
}

TEST(UmlModel, NeverWritesAClassTypeAsADataType) {
    ModelBuilder model;
    ZORClass* cls = model.addTable("Order");
    auto* type = model.addType<ZORClassType>("OrderType", "");
    type->setAssociatedClass(cls);
    model.addColumn(cls, "previous", type);
    EXPECT_THAT(printModel(model.model()), Not(HasSubstr("OrderType\"/>")));
}

TEST(UmlModel, WritesADataTypeWithAStereotypeAroundTheReference) {
    ModelBuilder model;
    ZORType* type = model.addType<ZORDerivedType>("Code", "SQL_CHAR");
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    type->setStereotype("coded");
    bridge.printUMLType(type);
    EXPECT_EQ(bridge.text(), R"xml(
<uml:DataType oim:id="_1" name="Code">
<uml:ModelElementStereotype>
<uml:Stereotype oim:href="#_2"/>
</uml:ModelElementStereotype>
</uml:DataType>
)xml"_lines);
}

TEST(UmlPackages, AreNamedAfterTheirIdentifierWhenTheyHaveNoName) {
    ModelBuilder model;
    model.addPackage("");
    EXPECT_THAT(printModel(model.model()), HasSubstr("<uml:Package oim:id=\"_2\" name=\"unnamed$2\">"));
}

TEST(UmlPackages, WriteNotesOfNestedPackagesWithTheirParent) {
    ModelBuilder model;
    ZORDesignPackage* outer = model.addPackage("Outer");
    model.addPackage("Inner", outer)->addNote(std::make_unique<ZORNote>("about the inner one"));
    EXPECT_THAT(printModel(model.model()), HasSubstr(R"xml(
</uml:Package>
<uml:Comment oim:id="_4" name="unnamed$4"
comments="about the inner one"
>
<uml:CommentAnnotatedElement>
<uml:Package oim:href="#_3"/>
</uml:CommentAnnotatedElement>
</uml:Comment>
</uml:NamespaceOwnedElement>
</uml:Package>
)xml"));
}

TEST(UmlPackages, NeverWriteNotesOfTopLevelPackages) {
    ModelBuilder model;
    model.addPackage("Outer")->addNote(std::make_unique<ZORNote>("lost"));
    model.addTable("Order");
    EXPECT_THAT(printModel(model.model()), Not(HasSubstr("lost")));
}

TEST(UmlPackages, LeaveOutWhatIsPhysicalOnly) {
    ModelBuilder model;
    model.addTable("Order")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    model.addTable("Thought")->setDesignLevel(ZOR_LOGICAL_ONLY);
    const std::string text = printModel(model.model());
    EXPECT_THAT(text, Not(HasSubstr("Order")));
    EXPECT_THAT(text, HasSubstr("Thought"));
}

TEST(UmlNames, AreThoseOfTheKindAndOfAssociationClasses) {
    ModelBuilder model;
    ZORClass* cls = model.addTable("Order");
    EXPECT_STREQ(ZORMicrosoftSqlServerMdsMdcExportBridge::getUMLName(cls), "Class");
    cls->setClassType(9);
    EXPECT_STREQ(ZORMicrosoftSqlServerMdsMdcExportBridge::getUMLName(cls), "Class");
    model.addAssociation("places")->setAssociationClass(cls);
    EXPECT_STREQ(ZORMicrosoftSqlServerMdsMdcExportBridge::getUMLName(cls), "AssociationClass");
    EXPECT_STREQ(ZORMicrosoftSqlServerMdsMdcExportBridge::getUMLName(model.package()), "Package");
}

TEST(UmlNamesDeathTest, StopTheProgramForAKindWithoutOne) {
    ZORSynonym synonym;
    EXPECT_DEATH(ZORMicrosoftSqlServerMdsMdcExportBridge::getUMLName(&synonym),
                 "Assertion failed: false, file MicrosoftSqlServerMdsMdcUMLExport, line 999");
}

TEST(UmlExport, NamesOnlyTheTwoNamespacesThatItUses) {
    ModelBuilder model;
    model.addTable("Order", {"no"});
    const std::string text = exportModel(*model.model(), {{"Model", UML_VIEW}});
    EXPECT_EQ(count(text, "xmlns:"), 2U);
}

TEST(UmlExport, LeavesTheModelAsItWas) {
    for (const char* repository : {"True", "False"}) {
        ModelBuilder model;
        ZORClass* parent = model.addTable("Parent", {"id"});
        ZORClass* other = model.addTable("Other", {"id"});
        ZORClass* child = model.addTable("Child", {"id"});
        model.addGeneralization("kinds", {parent, other}, {child});
        auto* operation = model.addOperation<ZOROperation>(child, "run");
        operation->setPrecondition("ready");
        operation->setResultType(model.number);
        model.addArgument(operation, "how");
        const std::string before = dumpModel(*model.model());
        exportModel(*model.model(), {{"Model", UML_VIEW}, {"MS Repository", repository}});
        EXPECT_EQ(dumpModel(*model.model()), before);
    }
}

}  // namespace
