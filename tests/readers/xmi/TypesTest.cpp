// Data types, enumerations, and what a type may refer to.

#include <gtest/gtest.h>

#include "DataTypeNames.h"
#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiTypes : public testing::TestWithParam<Case> {};

TEST_P(XmiTypes, AreRead) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

std::string attributeOf(const std::string& type, const std::string& more = {}) {
    return cls("A", "<ownedAttribute xmi:id=\"_x\" name=\"x\"" + type + ">" + more + "</ownedAttribute>");
}

const std::vector<Case> CASES = {
    {"PrimitiveAndDataTypesKeepTheirNames",
     eclipse(stringType() + R"(<packagedElement xmi:type="uml:DataType" xmi:id="_d" name="Colour"/>)"), R"(
model m
type String SQL_VARCHAR
type Colour Colour
)"_lines},
    {"AnEnumerationIsADerivedTypeWithValues",
     eclipse(R"(<packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="State">
        <ownedLiteral xmi:id="_1" name="open"/><ownedLiteral xmi:id="_2" name="closed">
        <specification xmi:type="uml:LiteralInteger" xmi:id="_s" value="7"/></ownedLiteral></packagedElement>)"),
     R"(
model m
derived type State SQL_VARCHAR
  value open 0 open
  value closed 7 7
)"_lines},
    {"AnEnumerationOfUml1", xmi12(R"(<UML:Enumeration xmi.id="e" name="State"><UML:Enumeration.literal>
        <UML:EnumerationLiteral xmi.id="l" name="open"/></UML:Enumeration.literal></UML:Enumeration>)"),
     R"(
model m
derived type State SQL_VARCHAR
  value open 0 open
)"_lines},
    {"AnEnumerationOfUmbrelloHasItsValuesRightInside",
     umbrello(R"(<UML:Enumeration xmi.id="e" stereotype="enum" name="State">
        <UML:EnumerationLiteral xmi.id="l" name="open" value="3"/></UML:Enumeration>)"),
     R"(
model m
  package Logical View «folder»
derived type State SQL_VARCHAR
  value open 3 3
)"_lines},
    {"ADataTypeThatSpecialisesAnotherOneIsDerivedFromIt",
     eclipse(R"(<packagedElement xmi:type="uml:DataType" xmi:id="_n" name="Name">
        <generalization xmi:id="_g" general="_String"/></packagedElement>)" +
             stringType()),
     R"(
model m
derived type Name from String SQL_VARCHAR
type String SQL_VARCHAR
)"_lines},
    {"WhatSpecialisesAnEnumerationHasItsDataType",
     eclipse(R"(<packagedElement xmi:type="uml:Enumeration" xmi:id="_s" name="State">
        <ownedLiteral xmi:id="_1" name="open"/></packagedElement>
        <packagedElement xmi:type="uml:Enumeration" xmi:id="_f" name="FineState"><generalization general="_s"/>
        </packagedElement><packagedElement xmi:type="uml:Enumeration" xmi:id="_r" name="RareState">
        <ownedLiteral xmi:id="_2" name="lent"/><generalization general="_f"/></packagedElement>
        <packagedElement xmi:type="uml:DataType" xmi:id="_d" name="Condition"><generalization general="_r"/>
        </packagedElement>)"),
     R"(
model m
derived type State SQL_VARCHAR
  value open 0 open
derived type FineState from State SQL_VARCHAR
derived type RareState from FineState SQL_VARCHAR
  value lent 0 lent
derived type Condition from RareState SQL_VARCHAR
)"_lines},
    {"AnEnumerationThatSpecialisesANumberHoldsWordsAllTheSame",
     eclipse(R"(<packagedElement xmi:type="uml:PrimitiveType" xmi:id="_i" name="Integer"/>
        <packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="Grade"><generalization general="_i"/>
        </packagedElement>)"),
     R"(
model m
type Integer SQL_INTEGER
derived type Grade from Integer SQL_VARCHAR
)"_lines},
    {"ADataTypeWithAttributesIsAClassWithAKeyword",
     eclipse(R"(<packagedElement xmi:type="uml:DataType" xmi:id="_p" name="Point">
        <ownedAttribute xmi:id="_x" name="x" type="_String"/></packagedElement>)" +
             stringType()),
     R"(
model m
  package m
    class Point «dataType»
      attribute x : String
type String SQL_VARCHAR
)"_lines},
    {"ADataTypeThatAClassSpecialisesIsAClassAndSoIsItsParent",
     umbrello(R"(<UML:DataType xmi.id="t1" name="List"/><UML:DataType xmi.id="t2" name="Base"/>)" +
              cls12("A") +
              R"(<UML:Generalization xmi.id="g1" child="A" parent="t1"/>
        <UML:Generalization xmi.id="g2" child="t1" parent="t2"/>)"),
     R"(
model m
  package Logical View «folder»
    class List «dataType»
    class Base «dataType»
    class A
    generalization A -> List
    generalization List -> Base
)"_lines},
    {"ATypeById", eclipse(attributeOf(R"( type="_String")") + stringType()), R"(
model m
  package m
    class A
      attribute x : String
type String SQL_VARCHAR
)"_lines},
    {"ATypeByIdInAnElement", omg(attributeOf("", R"(<type xmi:idref="_String"/>)") + stringType()), R"(
model m
  package m
    class A
      attribute x : String
type String SQL_VARCHAR
)"_lines},
    {"ATypeByLinkInsideTheFile", omg(attributeOf("", R"(<type href="#_String"/>)") + stringType()), R"(
model m
  package m
    class A
      attribute x : String
type String SQL_VARCHAR
)"_lines},
    {"ATypeByLinkThatNamesTheFileItself",
     omg(attributeOf("", R"(<type href="file.uml#_String"/>)") + stringType()),
     R"(
model m
  package m
    class A
      attribute x : String
type String SQL_VARCHAR
)"_lines},
    {"ATypeByName",
     omg(attributeOf(R"( type="unsigned int")") +
         R"(<packagedElement xmi:type="uml:PrimitiveType" xmi:id="_9" name="unsigned int"/>)"),
     R"(
model m
  package m
    class A
      attribute x : unsigned int
type unsigned int SQL_NUMERIC
)"_lines},
    {"ATypeOfAWellKnownLibrary", eclipse(attributeOf("", R"(<type xmi:type="uml:PrimitiveType"
        href="pathmap://UML_LIBRARIES/UMLPrimitiveTypes.library.uml#Boolean"/>)")),
     R"(
model m
  package m
    class A
      attribute x : Boolean
type Boolean SQL_BOOLEAN
)"_lines},
    {"ATypeThatIsAClassHasNoDataTypeOfItsOwn", eclipse(attributeOf(R"( type="_B")") + cls("B")), R"(
model m
  package m
    class A
      attribute x : B
    class B
)"_lines},
    {"AnAttributeWithoutATypeIsUnspecified", eclipse(attributeOf("")), R"(
model m
  package m
    class A
      attribute x : unspecified
type unspecified unspecified
)"_lines},
    {"ATypeByIdWithBlanks",
     umbrello(R"(<UML:DataType xmi.id="my type" name="T"/>)" +
              cls12("A", R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x" type="my type"/>
        </UML:Classifier.feature>)")),
     R"(
model m
  package Logical View «folder»
    class A
      attribute x : T
type T T
)"_lines},
};

INSTANTIATE_TEST_SUITE_P(Facts, XmiTypes, testing::ValuesIn(CASES), caseName);

TEST(XmiOutsideTypes, BecomeDataTypesWithOneWarningEach) {
    const Result result = read(
        omg(cls("A", R"(<ownedAttribute xmi:id="_1" name="a"><type href="other.uml#Money"/></ownedAttribute>
        <ownedAttribute xmi:id="_2" name="b"><type href="other.uml#Money"/></ownedAttribute>)")));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute a : Money
      attribute b : Money
type Money Money
)"_lines);
    EXPECT_EQ(result.warningLines(),
              "A.a: its type is not in the file (other.uml#Money); a data type \"Money\" stands for it\n");
}

TEST(XmiOutsideTypes, OfWellKnownLibrariesNeedNoWarning) {
    const Result result = read(eclipse(
        attributeOf("", R"(<type href="pathmap://UML_LIBRARIES/UMLPrimitiveTypes.library.uml#String"/>)")));
    EXPECT_EQ(result.warningLines(), "");
}

TEST(XmiOutsideTypes, ThatOnlyAnIdTellsOfKeepItWithAWarning) {
    const Result result = read(omg(
        cls("A", R"(<ownedAttribute xmi:id="_1" name="a"><type href="other.uml#_x7:1"/></ownedAttribute>)")));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute a : _x7:1
type _x7:1 _x7:1
)"_lines);
    EXPECT_EQ(
        result.warningLines(),
        "A.a: its type and the type's name are in another file (other.uml#_x7:1); a data type \"_x7:1\" "
        "stands for it\n");
}

TEST(XmiOutsideTypes, OfArgoUmlsOwnProfileAreKnownByTheirIds) {
    const std::string profile =
        "http://argouml.org/profiles/uml14/default-uml14.xmi"
        "#-84-17--56-5-43645a83:11466542d86:-8000:000000000000087";
    const auto attribute = [&](const std::string& name, const std::string& digit) {
        return "<UML:Attribute xmi.id=\"" + name + "\" name=\"" + name +
               "\"><UML:StructuralFeature.type><UML:DataType href=\"" + profile + digit +
               "\"/></UML:StructuralFeature.type></UML:Attribute>";
    };
    const Result result = read(xmi12(cls12("A", "<UML:Classifier.feature>" + attribute("n", "C") +
                                                    attribute("s", "E") + "</UML:Classifier.feature>")));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute n : Integer
      attribute s : String
type Integer SQL_INTEGER
type String SQL_VARCHAR
)"_lines);
    EXPECT_EQ(result.warningLines(), "");
}

TEST(XmiOutsideTypes, AreCalledWhatTheToolCallsThem) {
    const Result result = read(xmi12(
        cls12("A", R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x"><UML:StructuralFeature.type>
        <UML:Classifier href="types.xml.zip|_9_0_1"><XMI.extension xmi.extender="MagicDraw UML 9.5">
        <referentPath xmi.value="datatype::Money"/></XMI.extension></UML:Classifier></UML:StructuralFeature.type>
        </UML:Attribute></UML:Classifier.feature>)")));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute x : Money
type Money Money
)"_lines);
}

TEST(XmiOutsideTypes, OfEnterpriseArchitectHaveTheirNamesInTheExtension) {
    const std::string attributes =
        R"(<ownedAttribute xmi:id="_1" name="a"><type xmi:idref="EAID_7"/></ownedAttribute>
        <ownedAttribute xmi:id="_2" name="b"><type xmi:idref="EAID_8"/></ownedAttribute>
        <ownedAttribute xmi:id="_3" name="c"><type xmi:idref="EAJava_int"/></ownedAttribute>)";
    const Result result = read(enterpriseArchitect(
        cls("A", attributes),
        R"(<elements><element xmi:idref="_A"><attributes><attribute xmi:idref="_1"><properties type="Money"/>
        </attribute></attributes></element></elements><EAStub xmi:id="EAID_8" name="Length" UMLType="Class"/>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute a : Money
      attribute b : Length
      attribute c : int
type Money Money
type Length Length
type int SQL_INTEGER
)"_lines);
}

TEST(XmiOutsideTypes, OfEnterpriseArchitectMayBeDeclaredInTheExtension) {
    const Result result = read(enterpriseArchitect(
        cls("A", R"(<ownedAttribute xmi:id="_1" name="a"><type xmi:idref="EAJava_int"/></ownedAttribute>)"),
        R"(<primitivetypes><packagedElement xmi:type="uml:Package" xmi:id="P" name="EA_PrimitiveTypes_Package">
        <packagedElement xmi:type="uml:Package" xmi:id="J" name="EA_Java_Types_Package"><packagedElement
        xmi:type="uml:PrimitiveType" xmi:id="EAJava_int" name="int"/></packagedElement></packagedElement>
        </primitivetypes>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute a : int
type int SQL_INTEGER
)"_lines);
    EXPECT_EQ(result.warningLines(), "");
}

TEST(XmiTypeOfAnotherKind, IsKeptByName) {
    const Result result =
        read(xmi12(R"(<UML:Actor xmi.id="clerk" name="Clerk"/>)" +
                   cls12("A", R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x" type="clerk"/>
        </UML:Classifier.feature>)")));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute x : Clerk
type Clerk Clerk
)"_lines);
    EXPECT_EQ(result.warningLines(),
              "A.x: of its type, Clerk (actor), only the name is kept, as a data type\n");
}

TEST(XmiDataTypeNames, LeadToOldStyleKeysWhateverTheLibrary) {
    using readers::xmi::dataTypeOfPrimitive;
    EXPECT_EQ(dataTypeOfPrimitive("String"), "SQL_VARCHAR");
    EXPECT_EQ(dataTypeOfPrimitive("EInt"), "SQL_INTEGER");
    EXPECT_EQ(dataTypeOfPrimitive("java.lang.Boolean"), "SQL_BOOLEAN");
    EXPECT_EQ(dataTypeOfPrimitive("std::string"), "SQL_VARCHAR");
    EXPECT_EQ(dataTypeOfPrimitive("long"), "SQL_NUMERIC");
    EXPECT_EQ(dataTypeOfPrimitive("Colour"), "");
    EXPECT_EQ(dataTypeOfPrimitive(""), "");
}

}  // namespace
}  // namespace xmi_test
