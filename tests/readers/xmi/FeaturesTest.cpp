// Attributes, operations, template parameters.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiFeatures : public testing::TestWithParam<Case> {};

TEST_P(XmiFeatures, AreRead) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

/// A class A with the content, in each form of XMI, and a type String.
std::string inClass(const std::string& content) {
    return eclipse(cls("A", content) + stringType());
}
std::string inClass12(const std::string& features) {
    return xmi12(cls12("A", "<UML:Classifier.feature>" + features + "</UML:Classifier.feature>") +
                 R"(<UML:DataType xmi.id="S" name="String"/>)");
}
/// What is expected of it.
std::string classWith(const std::string& lines) {
    return "model m\n  package m\n    class A\n" + lines + "type String SQL_VARCHAR\n";
}

const std::vector<Case> ATTRIBUTES = {
    {"VisibilityAndScope",
     inClass(
         R"(<ownedAttribute xmi:id="_x" name="x" type="_String" visibility="protected" isStatic="true"/>)"),
     classWith("      attribute x : String (static, protected)\n")},
    {"VisibilityAndScopeInUml1",
     inClass12(
         R"(<UML:Attribute xmi.id="x" name="x" type="S" visibility="private" ownerScope="classifier"/>)"),
     classWith("      attribute x : String (static, private)\n")},
    {"ADefaultThatIsALiteral", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <defaultValue xmi:type="uml:LiteralString" xmi:id="_d" value="none"/></ownedAttribute>)"),
     classWith("      attribute x : String = none\n")},
    {"ADefaultWhoseValueIsTheLiteralsOwn", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <defaultValue xmi:type="uml:LiteralInteger" xmi:id="_d"/></ownedAttribute>)"),
     classWith("      attribute x : String = 0\n")},
    {"ADefaultThatIsAnExpression", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <defaultValue xmi:type="uml:OpaqueExpression" xmi:id="_d"><language>Java</language><body>now()</body>
        </defaultValue></ownedAttribute>)"),
     classWith("      attribute x : String = now()\n")},
    {"ADefaultOfSymbolsAndOperands", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <defaultValue xmi:type="uml:Expression" xmi:id="_d" symbol="add">
        <operand xmi:type="uml:LiteralInteger" xmi:id="_1" value="1"/>
        <operand xmi:type="uml:LiteralInteger" xmi:id="_2" value="2"/></defaultValue></ownedAttribute>)"),
     classWith("      attribute x : String = add(1, 2)\n")},
    {"ADefaultInUml1", inClass12(R"(<UML:Attribute xmi.id="x" name="x" type="S"><UML:Attribute.initialValue>
        <UML:Expression xmi.id="e" language="" body="none"/></UML:Attribute.initialValue></UML:Attribute>)"),
     classWith("      attribute x : String = none\n")},
    {"ADefaultInUmbrello",
     umbrello(
         R"(<UML:DataType xmi.id="S" name="String"/>)" +
         cls12("A",
               R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x" type="S" initialValue="none"/>
        </UML:Classifier.feature>)")),
     R"(
model m
  package Logical View «folder»
    class A
      attribute x : String = none
type String SQL_VARCHAR
)"_lines},
    {"ALowerBoundOfNoneIsOptional", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <lowerValue xmi:type="uml:LiteralInteger" xmi:id="_l"/></ownedAttribute>)"),
     classWith("      attribute x : String (optional)\n")},
    {"BoundsAsAttributes",
     inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String" lower="0" upper="1"/>)"),
     classWith("      attribute x : String (optional)\n")},
    {"ALowerBoundOfOneIsNot", inClass(R"(<ownedAttribute xmi:id="_x" name="x" type="_String">
        <lowerValue xmi:type="uml:LiteralInteger" xmi:id="_l" value="1"/></ownedAttribute>)"),
     classWith("      attribute x : String\n")},
    {"AMultiplicityOfUml1",
     inClass12(R"(<UML:Attribute xmi.id="x" name="x" type="S"><UML:StructuralFeature.multiplicity>
        <UML:Multiplicity xmi.id="m1"><UML:Multiplicity.range><UML:MultiplicityRange xmi.id="r" lower="0" upper="1"/>
        </UML:Multiplicity.range></UML:Multiplicity></UML:StructuralFeature.multiplicity></UML:Attribute>)"),
     classWith("      attribute x : String (optional)\n")},
    {"PortsAreAttributes",
     inClass(R"(<ownedAttribute xmi:type="uml:Port" xmi:id="_x" name="x" type="_String"/>)"),
     classWith("      attribute x : String\n")},
};

const std::vector<Case> OPERATIONS = {
    {"ParametersDirectionsAndResult", inClass(R"(<ownedOperation xmi:id="_f" name="f">
        <ownedParameter xmi:id="_1" name="a" type="_String"/>
        <ownedParameter xmi:id="_2" name="b" type="_String" direction="out"/>
        <ownedParameter xmi:id="_3" name="c" type="_String" direction="inout">
          <defaultValue xmi:type="uml:LiteralString" xmi:id="_d" value="z"/></ownedParameter>
        <ownedParameter xmi:id="_4" type="_String" direction="return"/></ownedOperation>)"),
     classWith("      operation f(in a : String, out b : String, inout c : String = z) : String\n")},
    {"ParametersOfUml1", inClass12(R"(<UML:Operation xmi.id="f" name="f"><UML:BehavioralFeature.parameter>
        <UML:Parameter xmi.id="1" name="a" type="S" kind="in"/><UML:Parameter xmi.id="2" name="b" type="S"/>
        <UML:Parameter xmi.id="3" kind="return" type="S"/></UML:BehavioralFeature.parameter></UML:Operation>)"),
     classWith("      operation f(in a : String, b : String) : String\n")},
    {"FlagsVisibilityAndConcurrency",
     inClass(R"(<ownedOperation xmi:id="_f" name="f" isAbstract="true" isStatic="true" visibility="private"
        concurrency="guarded"/><ownedOperation xmi:id="_g" name="g" concurrency="concurrent"/>)"),
     classWith(
         "      operation f() (abstract, static, private, guarded)\n      operation g() (synchronous)\n")},
    {"AResultWithoutATypeIsNone",
     inClass12(R"(<UML:Operation xmi.id="f" name="f"><UML:BehavioralFeature.parameter>
        <UML:Parameter xmi.id="3" kind="return"/></UML:BehavioralFeature.parameter></UML:Operation>)"),
     classWith("      operation f()\n")},
    {"ASecondResultIsAParameter",
     inClass(
         R"(<ownedOperation xmi:id="_f" name="f"><ownedParameter xmi:id="_1" type="_String" direction="return"/>
        <ownedParameter xmi:id="_2" name="second" type="_String" direction="return"/></ownedOperation>)"),
     classWith("      operation f(return second : String) : String\n")},
    {"PreAndPostconditionsByReference",
     inClass(
         R"(<ownedOperation xmi:id="_f" name="f" precondition="_r1" postcondition="_r2" bodyCondition="_r3">
        <ownedRule xmi:id="_r1"><specification xmi:type="uml:OpaqueExpression" xmi:id="_s1"><body>x > 0</body>
        </specification></ownedRule>
        <ownedRule xmi:id="_r2" name="grows"><specification xmi:type="uml:LiteralString" xmi:id="_s2" value="y > x"/>
        </ownedRule>
        <ownedRule xmi:id="_r3"><specification xmi:type="uml:OpaqueExpression" xmi:id="_s3" body="result = x"/>
        </ownedRule></ownedOperation>)"),
     classWith("      operation f()\n        precondition x > 0\n        postcondition grows: y > x\n"
               "        semantics result = x\n")},
    {"PreconditionsInPlace",
     inClass(R"(<ownedOperation xmi:id="_f" name="f"><precondition xmi:type="uml:Constraint" xmi:id="_r1">
        <specification xmi:type="uml:OpaqueExpression" xmi:id="_s1" body="x > 0"/></precondition></ownedOperation>)"),
     classWith("      operation f()\n        precondition x > 0\n")},
    {"PreconditionsOfUml1AreStereotypedConstraints",
     inClass12(R"(<UML:Operation xmi.id="f" name="f"><UML:ModelElement.constraint><UML:Constraint xmi.id="k">
        <UML:ModelElement.stereotype><UML:Stereotype xmi.id="st" name="precondition"/></UML:ModelElement.stereotype>
        <UML:Constraint.body><UML:BooleanExpression xmi.id="b" body="x > 0"/></UML:Constraint.body></UML:Constraint>
        </UML:ModelElement.constraint></UML:Operation>)"),
     classWith("      operation f()\n        precondition x > 0\n")},
    {"TheSpecificationOfUml1IsItsSemantics",
     inClass12(R"(<UML:Operation xmi.id="f" name="f" specification="adds up"/>)"),
     classWith("      operation f()\n        semantics adds up\n")},
    {"TheBodyOfAMethodOfUml1",
     inClass12(
         R"(<UML:Operation xmi.id="f" name="f"/><UML:Method xmi.id="m1" specification="f"><UML:Method.body>
        <UML:ProcedureExpression xmi.id="b" body="return 1;"/></UML:Method.body></UML:Method>)"),
     classWith("      operation f()\n        body return 1;\n")},
};

const std::vector<Case> TEMPLATES = {
    {"TemplateParametersOfUml2",
     inClass(R"(<ownedTemplateSignature xmi:type="uml:RedefinableTemplateSignature" xmi:id="_t">
        <ownedParameter xmi:type="uml:ClassifierTemplateParameter" xmi:id="_p">
          <ownedParameteredElement xmi:type="uml:Class" xmi:id="_T" name="T"/></ownedParameter>
        <ownedParameter xmi:type="uml:TemplateParameter" xmi:id="_q">
          <ownedParameteredElement xmi:type="uml:Property" xmi:id="_n" name="n" type="_String"/></ownedParameter>
        </ownedTemplateSignature><ownedAttribute xmi:id="_x" name="x" type="_T"/>)"),
     R"(
model m
  package m
    class A
      template T : class
      template n : String
      attribute x : T
type String SQL_VARCHAR
type class class
type T T
)"_lines},
    {"TemplateParametersOfUmbrello",
     umbrello(cls12("A", R"(<UML:ModelElement.templateParameter><UML:TemplateParameter xmi.id="t" name="T"/>
        </UML:ModelElement.templateParameter>)")),
     R"(
model m
  package Logical View «folder»
    class A
      template T : class
type class class
)"_lines},
    {"TemplateParametersOfUml14",
     xmi12(cls12("A", R"(<UML:ModelElement.templateParameter><UML:TemplateParameter xmi.id="t">
        <UML:TemplateParameter.parameter><UML:DataType xmi.id="T" name="T"/></UML:TemplateParameter.parameter>
        </UML:TemplateParameter></UML:ModelElement.templateParameter>)")),
     R"(
model m
  package m
    class A
      template T : data type
type data type data type
)"_lines},
    {"DefaultsOfTemplateParametersOfUml2", inClass(R"(<ownedTemplateSignature xmi:id="_t">
        <ownedParameter xmi:type="uml:ClassifierTemplateParameter" xmi:id="_p" default="_String">
          <ownedParameteredElement xmi:type="uml:Class" xmi:id="_T" name="T"/></ownedParameter>
        <ownedParameter xmi:id="_q"><ownedParameteredElement xmi:type="uml:Property" xmi:id="_n" name="n" type="_String"/>
          <ownedDefault xmi:type="uml:LiteralInteger" xmi:id="_5" name="five" value="5"/></ownedParameter>
        <ownedParameter xmi:id="_r"><ownedParameteredElement xmi:type="uml:Class" xmi:id="_U" name="U"/>
          <default href="other.uml#Money"/></ownedParameter></ownedTemplateSignature>)"),
     R"(
model m
  package m
    class A
      template T : class = String
      template n : String = 5
      template U : class = Money
type String SQL_VARCHAR
type class class
)"_lines},
    {"DefaultsOfTemplateParametersOfUml14",
     xmi12(cls12("A", R"(<UML:ModelElement.templateParameter><UML:TemplateParameter xmi.id="t">
        <UML:TemplateParameter.parameter><UML:DataType xmi.id="T" name="T"/></UML:TemplateParameter.parameter>
        <UML:TemplateParameter.defaultElement><UML:Class xmi.idref="A"/></UML:TemplateParameter.defaultElement>
        </UML:TemplateParameter></UML:ModelElement.templateParameter>)")),
     R"(
model m
  package m
    class A
      template T : data type = A
type data type data type
)"_lines},
};

INSTANTIATE_TEST_SUITE_P(Attributes, XmiFeatures, testing::ValuesIn(ATTRIBUTES), caseName);
INSTANTIATE_TEST_SUITE_P(Operations, XmiFeatures, testing::ValuesIn(OPERATIONS), caseName);
INSTANTIATE_TEST_SUITE_P(Templates, XmiFeatures, testing::ValuesIn(TEMPLATES), caseName);

TEST(XmiDefault, ThatIsAnEnumerationLiteralIsItsName) {
    const std::string attribute = R"(<ownedAttribute xmi:id="_x" name="x" type="_e">
        <defaultValue xmi:type="uml:InstanceValue" xmi:id="_d" instance="_l"/></ownedAttribute>)";
    const std::string enumeration = R"(<packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="State">
        <ownedLiteral xmi:id="_l" name="open"/></packagedElement>)";
    EXPECT_EQ(read(eclipse(cls("A", attribute) + enumeration)).outline(), R"(
model m
  package m
    class A
      attribute x : State = open
derived type State SQL_VARCHAR
  value open 0 open
)"_lines);
}

TEST(XmiPositions, FollowTheFile) {
    const Result result =
        read(inClass(R"(<ownedAttribute xmi:id="_1" name="b"/><ownedAttribute xmi:id="_2" name="a"/>)"));
    const auto* package = static_cast<const ZORDesignPackage*>(result.model->getChildPackages()[0]);
    const auto* read = static_cast<const ZORClass*>(package->getModelElements()[0]);
    EXPECT_EQ(read->getAttributes()[0]->getPosition(), 0);
    EXPECT_EQ(read->getAttributes()[1]->getPosition(), 1);
}

}  // namespace
}  // namespace xmi_test
