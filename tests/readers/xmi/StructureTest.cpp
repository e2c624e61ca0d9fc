// Models, packages, and the kinds of classifiers.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiStructure : public testing::TestWithParam<Case> {};

TEST_P(XmiStructure, Holds) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

const std::vector<Case> PACKAGES = {
    {"WhatStandsInNoPackageGoesIntoOneOfTheModelsName", eclipse(cls("A")), R"(
model m
  package m
    class A
)"_lines},
    {"PackagesOfTheModelAreItsPackages",
     eclipse(R"(<packagedElement xmi:type="uml:Package" xmi:id="_p" name="P">)" + cls("A") +
             R"(<packagedElement xmi:type="uml:Package" xmi:id="_q" name="Q"/></packagedElement>)"),
     R"(
model m
  package P
    package Q
    class A
)"_lines},
    {"PackagesStandInTheOrderOfTheFile",
     eclipse(R"(<packagedElement xmi:type="uml:Package" xmi:id="_p" name="P"/>)" + cls("A") +
             R"(<packagedElement xmi:type="uml:Package" xmi:id="_q" name="Q"/>)" + cls("B")),
     R"(
model m
  package P
  package m
    class A
    class B
  package Q
)"_lines},
    {"ModelsInsideAModelArePackages",
     omg(R"(<packagedElement xmi:type="uml:Model" xmi:id="_n" name="inner">)" + cls("A") +
         "</packagedElement>"),
     R"(
model m
  package inner
    class A
)"_lines},
    {"SubsystemsAndProfilesArePackagesWithAKeyword",
     xmi12(R"(<UML:Subsystem xmi.id="s" name="S"/><UML:Profile xmi.id="p" name="P"/>)"), R"(
model m
  package S «subsystem»
  package P «profile»
)"_lines},
    {"APackageMayBeTheOutermostElement",
     R"(<uml:Package xmi:version="2.1" xmlns:xmi="http://schema.omg.org/spec/XMI/2.1"
        xmlns:uml="http://www.eclipse.org/uml2/3.0.0/UML" xmi:id="_p" name="P">)" +
         cls("A") + "</uml:Package>",
     R"(
model file
  package P
    class A
)"_lines},
    {"SeveralModelsAreThePackagesOfOne",
     R"(<xmi:XMI xmlns:xmi="http://schema.omg.org/spec/XMI/2.1" xmlns:uml="http://schema.omg.org/spec/UML/2.1">
        <uml:Model xmi:id="_1" name="one"/><uml:Model xmi:id="_2" name="two"/></xmi:XMI>)",
     R"(
model file
  package one
  package two
)"_lines},
    {"AnElementOfAFlatFileGoesIntoThePackageThatItNames",
     R"(<XMI xmi.version="1.1" xmlns:UML="//org.omg/UML/1.3"><XMI.content>
        <UML:Package xmi.id="p" name="P"/><UML:Class xmi.id="c" name="C" namespace="p"/></XMI.content></XMI>)",
     R"(
model file
  package P
    class C
)"_lines},
    {"APackageMayHoldAnElementByItsId",
     R"(<XMI xmi.version="1.1" xmlns:UML="//org.omg/UML/1.3"><XMI.content>
        <UML:Package xmi.id="p" name="P"><UML:Namespace.ownedElement><UML:Class xmi.idref="c"/>
        </UML:Namespace.ownedElement></UML:Package><UML:Class xmi.id="c" name="C"/></XMI.content></XMI>)",
     R"(
model file
  package P
    class C
)"_lines},
};

const std::vector<Case> CLASSIFIERS = {
    {"ClassesHaveVisibilityAndFlags",
     eclipse(cls("A", "", R"(visibility="private" isAbstract="true" isActive="true")") +
             cls("B", "", R"(visibility="package")")),
     R"(
model m
  package m
    abstract class A (private, active)
    class B (implementation)
)"_lines},
    {"InterfacesAreClassesOfTheirOwnKind",
     eclipse(R"(<packagedElement xmi:type="uml:Interface" xmi:id="_i" name="I"/>)"), R"(
model m
  package m
    interface I
)"_lines},
    {"ComponentsOfUml2AreClassesWithAKeyword",
     omg(R"(<packagedElement xmi:type="uml:Component" xmi:id="_c" name="C"/>)"), R"(
model m
  package m
    class C «component»
)"_lines},
    {"NestedClassesStandBesideTheOuterOne",
     eclipse(cls("A", R"(<nestedClassifier xmi:type="uml:Class" xmi:id="_n" name="N"/>)") + cls("B")), R"(
model m
  package m
    class A
    class N
    class B
)"_lines},
    {"UnnamedClassesStayUnnamed", xmi12(R"(<UML:Class xmi.id="c"/>)"), R"(
model m
  package m
    class
)"_lines},
    {"AClassInWhatTheModelDoesNotHoldIsRead",
     eclipse(R"(<packagedElement xmi:type="uml:Collaboration" xmi:id="_k" name="K">
        <nestedClassifier xmi:type="uml:Class" xmi:id="_c" name="C"/></packagedElement>)"),
     R"(
model m
  package m
    class C
)"_lines},
    {"AssociationClassesAreAClassAndItsAssociation",
     eclipse(cls("A") + cls("B") +
             R"(<packagedElement xmi:type="uml:AssociationClass" xmi:id="_j" name="Job" memberEnd="_e1 _e2">
        <ownedAttribute xmi:id="_x" name="salary" type="_String"/><ownedEnd xmi:id="_e1" name="a" type="_A"/>
        <ownedEnd xmi:id="_e2" name="b" type="_B"/></packagedElement>)" +
             stringType()),
     R"(
model m
  package m
    class A
    class B
    class Job
      attribute salary : String
    association Job of class Job
      role a : A 1
      role b : B 1
type String SQL_VARCHAR
)"_lines},
};

INSTANTIATE_TEST_SUITE_P(Packages, XmiStructure, testing::ValuesIn(PACKAGES), caseName);
INSTANTIATE_TEST_SUITE_P(Classifiers, XmiStructure, testing::ValuesIn(CLASSIFIERS), caseName);

TEST(XmiModelName, IsTheOneThatTheUserGives) {
    EXPECT_EQ(read(eclipse(cls("A")), "file.uml", "mine").outline(),
              "model mine\n  package m\n    class A\n");
}

TEST(XmiModelName, IsTheFilesWhereTheModelHasNone) {
    const std::string unnamed =
        R"(<uml:Model xmi:version="2.1" xmlns:xmi="http://schema.omg.org/spec/XMI/2.1"
        xmlns:uml="http://schema.omg.org/spec/UML/2.1"/>)";
    EXPECT_EQ(read(unnamed, "some/shop.uml").outline(), "model shop\n");
}

}  // namespace
}  // namespace xmi_test
