// Attributes, operations and parameters.

#include <gmock/gmock.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

class UmlFeatures : public ::testing::Test {
  protected:
    UmlFeatures() {
        cls = model.addTable("Order");
        operation = model.addOperation<ZOROperation>(cls, "ship");
    }

    std::string printAttribute(ZORAttribute* attribute) const {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        ZORVector<ZORModelObject*> comments;
        bridge.printUMLAttribute(attribute, comments);
        return bridge.text();
    }
    std::string printOperation(bool msRepository = false, MDCUML13Support support = UML_1_3_FULL) const {
        TestBridge bridge(model.model(), MODEL_VIEW_UML);
        bridge.msRepository_ = msRepository;
        bridge.uml13Support_ = support;
        ZORVector<ZORModelObject*> comments;
        ZORVector<Bridge::UMLConstraint*> constraints;
        bridge.printUMLOperation(operation, comments, constraints);
        return bridge.text() + "constraints " + std::to_string(constraints.size());
    }

    ModelBuilder model;
    ZORClass* cls = nullptr;
    ZOROperation* operation = nullptr;
};

TEST_F(UmlFeatures, WriteAnAttributeWithItsType) {
    ZORAttribute* attribute = model.addColumn(cls, "no");
    attribute->setInitialValue("0");
    attribute->setStatic(true);
    attribute->setVisibility(ZOR_VISIBILITY_IMPLEMENTATION);
    EXPECT_EQ(printAttribute(attribute), R"xml(
<uml:Attribute oim:id="_1" name="no"
initialValue="0"
ownerScope="classifier"
typeExpression="number"
visibility="PrivateAccess"
>
<uml:StructuralFeatureType>
<uml:DataType oim:href="#_2"/>
</uml:StructuralFeatureType>
</uml:Attribute>
)xml"_lines);
}

TEST_F(UmlFeatures, ReferToAClassTypeUnderTheTagOfItsClassAndByItsOwnIdentifier) {
    auto* type = model.addType<ZORClassType>("OrderType", "");
    type->setAssociatedClass(cls);
    ZORAttribute* attribute = model.addColumn(cls, "previous", type);
    EXPECT_THAT(printAttribute(attribute), HasSubstr("<uml:Class oim:href=\"#_2\"/>"));
    cls->setClassType(9);
    EXPECT_THAT(printAttribute(attribute), HasSubstr("<uml:Interface oim:href=\"#_2\"/>"));
    model.addAssociation("places")->setAssociationClass(cls);
    EXPECT_THAT(printAttribute(attribute), HasSubstr("<uml:AssociationClass oim:href=\"#_2\"/>"));
}

TEST_F(UmlFeatures, WriteAnOperationWithoutParametersWithoutTheirCollection) {
    EXPECT_EQ(printOperation(), R"xml(
<uml:Operation oim:id="_1" name="ship"
concurrency="Sequential"
ownerScope="instance"
visibility="PublicAccess"
>
</uml:Operation>
constraints 0)xml"_lines);
}

TEST_F(UmlFeatures, WriteTheResultAsTheLastParameterNamedLikeTheOperation) {
    operation->setResultType(model.text);
    const std::string alone = printOperation();
    EXPECT_THAT(alone, HasSubstr(R"xml(
<uml:BehavioralFeatureParameter>
<uml:Parameter oim:id="_2" name="ship"
kind="return"
typeExpression="text"
>
<uml:ParameterType>
<uml:DataType oim:href="#_3"/>
</uml:ParameterType>
</uml:Parameter>
</uml:BehavioralFeatureParameter>
)xml"));
    model.addArgument(operation, "how");
    const std::string both = printOperation();
    EXPECT_LT(both.find("kind=\"in\""), both.find("kind=\"return\""));
    EXPECT_TRUE(model.text->getTypedObjects().contains(operation));
    EXPECT_EQ(model.text->getTypedObjects().size(), 1U) << "the temporary parameter is gone";
}

TEST_F(UmlFeatures, LeaveOutTheKindOfAnArgumentWithoutDirection) {
    model.addArgument(operation, "how", nullptr, ZOR_ARGUMENT_NONE)->setDefaultValue("fast");
    const std::string text = printOperation();
    EXPECT_THAT(text, Not(HasSubstr("kind=")));
    EXPECT_THAT(text, HasSubstr("defaultValue=\"fast\"\n"));
}

TEST_F(UmlFeatures, MakeConstraintsOfConditionsWithFullSupportOnly) {
    operation->setPrecondition("paid");
    operation->setPostcondition("gone");
    operation->setSemantics("ships it");
    EXPECT_THAT(printOperation(), HasSubstr("constraints 2"));
    for (const MDCUML13Support support : {UML_1_3_PARTIAL, UML_1_3_DISABLED}) {
        EXPECT_THAT(printOperation(false, support), HasSubstr("constraints 0"));
        EXPECT_THAT(
            printOperation(false, support),
            HasSubstr("<uml:ModelElementTaggedValue>\n<uml:TaggedValue oim:id=\"_2\"\nname=\"semantics\"\n"
                      "value=\"ships it\"\n/>\n</uml:ModelElementTaggedValue>\n</uml:Operation>\n"));
    }
}

TEST_F(UmlFeatures, NameOperationsByTheirSignatureForTheRepository) {
    model.addArgument(operation, "a", model.number);
    model.addArgument(operation, "", model.text);
    EXPECT_THAT(printOperation(true), HasSubstr("name=\"ship(number a, text)\"\n"));
    EXPECT_EQ(operation->getName(), "ship");
    EXPECT_THAT(printOperation(false), HasSubstr("name=\"ship\"\n"));
}

TEST_F(UmlFeatures, GiveOverloadsDifferentNamesForTheRepository) {
    auto* overload = model.addOperation<ZOROperation>(cls, "ship");
    model.addArgument(overload, "how");
    EXPECT_FALSE(Bridge::getUMLSignature(operation) == Bridge::getUMLSignature(overload));
    EXPECT_EQ(Bridge::getUMLSignature(operation), "ship()");
}

TEST(UmlMappings, NameEveryKindConcurrencyAndScope) {
    EXPECT_EQ(Bridge::getUMLArgumentKind(ZOR_ARGUMENT_NONE), nullptr);
    EXPECT_STREQ(Bridge::getUMLArgumentKind(ZOR_ARGUMENT_IN), "in");
    EXPECT_STREQ(Bridge::getUMLArgumentKind(ZOR_ARGUMENT_OUT), "out");
    EXPECT_STREQ(Bridge::getUMLArgumentKind(ZOR_ARGUMENT_INOUT), "inout");
    EXPECT_STREQ(Bridge::getUMLArgumentKind(ZOR_ARGUMENT_RETURN), "return");
    EXPECT_STREQ(Bridge::getUMLConcurrency(ZOR_CONCURRENCY_SEQUENTIAL), "Sequential");
    EXPECT_STREQ(Bridge::getUMLConcurrency(ZOR_CONCURRENCY_GUARDED), "Guarded");
    EXPECT_STREQ(Bridge::getUMLConcurrency(ZOR_CONCURRENCY_ACTIVE), "Active");
    EXPECT_STREQ(Bridge::getUMLConcurrency(ZOR_CONCURRENCY_SYNCHRONOUS), "Synchronous");
    EXPECT_STREQ(Bridge::getUMLOwnerScope(true), "classifier");
    EXPECT_STREQ(Bridge::getUMLOwnerScope(false), "instance");
}

TEST(UmlMappingsDeathTest, StopTheProgramForValuesThatDoNotExist) {
    EXPECT_DEATH(Bridge::getUMLArgumentKind(static_cast<ZORArgumentType>(5)),
                 "Assertion failed: false, file MicrosoftSqlServerMdsMdcUMLExport, line 258");
    EXPECT_DEATH(Bridge::getUMLConcurrency(static_cast<ZORConcurrencyType>(4)),
                 "Assertion failed: false, file MicrosoftSqlServerMdsMdcUMLExport, line 274");
}

}  // namespace
