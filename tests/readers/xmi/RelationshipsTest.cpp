// Associations with their ends, generalizations, dependencies, realizations.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiRelationships : public testing::TestWithParam<Case> {};

TEST_P(XmiRelationships, AreRead) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

/// Classes A and B and what joins them, in XMI 2 and in XMI 1.2.
std::string twoClasses(const std::string& more, const std::string& inA = {}, const std::string& inB = {}) {
    return eclipse(cls("A", inA) + cls("B", inB) + more);
}
std::string twoClasses12(const std::string& more) {
    return xmi12(cls12("A") + cls12("B") + more);
}
std::string expected(const std::string& lines) {
    return "model m\n  package m\n    class A\n    class B\n" + lines;
}
/// An association of UML 1 with the attributes and contents of its ends.
std::string association12(const std::string& first, const std::string& second,
                          const std::string& firstContent = {}) {
    return R"(<UML:Association xmi.id="s" name="s"><UML:Association.connection><UML:AssociationEnd xmi.id="e1" )" +
           first + ">" + firstContent + R"(</UML:AssociationEnd><UML:AssociationEnd xmi.id="e2" )" + second +
           "/></UML:Association.connection></UML:Association>";
}

const std::vector<Case> ASSOCIATIONS = {
    {"EndsOfTheAssociationAreNotNavigable",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" name="a" type="_A" association="_s"/>
        <ownedEnd xmi:id="_e2" name="b" type="_B" association="_s"/></packagedElement>)"),
     expected("    association s\n      role a : A 1\n      role b : B 1\n")},
    {"EndsOfTheClassesAre",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2"/>)",
                R"(<ownedAttribute xmi:id="_e2" name="b" type="_B" association="_s"/>)",
                R"(<ownedAttribute xmi:id="_e1" name="a" type="_A" association="_s"/>)"),
     expected("    association s\n      role a : A 1 (navigable)\n      role b : B 1 (navigable)\n")},
    {"SoAreThoseThatTheAssociationSaysSoOf",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2"
        navigableOwnedEnd="_e2"><ownedEnd xmi:id="_e1" type="_A"/><ownedEnd xmi:id="_e2" type="_B"/>
        </packagedElement>)"),
     expected("    association s\n      role : A 1\n      role : B 1 (navigable)\n")},
    {"AnUnnamedAttributeWithAnAssociationIsAnEnd",
     enterpriseArchitect(
         cls("A", R"(<ownedAttribute xmi:type="uml:Property" xmi:id="_e2" association="_s">
        <type xmi:idref="_B"/></ownedAttribute>)") +
         cls("B") +
         R"(<packagedElement xmi:type="uml:Association" xmi:id="_s"><memberEnd xmi:idref="_e2"/>
        <memberEnd xmi:idref="_e1"/><ownedEnd xmi:type="uml:Property" xmi:id="_e1" association="_s">
        <type xmi:idref="_A"/></ownedEnd></packagedElement>)"),
     expected("    association\n      role : B (navigable)\n      role : A\n")},
    {"AnEndThatOnlyItselfKnowsOf",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s">
        <ownedEnd xmi:id="_e1" name="a" type="_A"/></packagedElement>)",
                R"(<ownedAttribute xmi:id="_e2" name="b" type="_B" association="_s"/>)"),
     expected("    association s\n      role a : A 1\n      role b : B 1 (navigable)\n")},
    {"CompositionOfUml2StandsAtTheWhole",
     twoClasses(
         R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" name="whole" type="_A"/></packagedElement>)",
         R"(<ownedAttribute xmi:id="_e2" name="part" type="_B" aggregation="composite" association="_s"/>)"),
     expected("    association s\n      role whole : A 1 (composite)\n      role part : B 1 (navigable)\n")},
    {"SharedAggregationOfUml2StandsAtTheWhole",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" type="_A"/><ownedEnd xmi:id="_e2" type="_B" aggregation="shared"/></packagedElement>)"),
     expected("    association s\n      role : A 1 (aggregate)\n      role : B 1\n")},
    {"CompositionOfUml1IsMarkedAtTheWhole",
     twoClasses12(association12(R"(type="A" aggregation="composite")", R"(type="B" aggregation="none")")),
     expected("    association s\n      role : A (composite)\n      role : B\n")},
    {"AggregationOfUml1", twoClasses12(association12(R"(type="A")", R"(type="B" aggregation="aggregate")")),
     expected("    association s\n      role : A\n      role : B (aggregate)\n")},
    {"NavigabilityOrderAndVisibilityOfUml1",
     twoClasses12(association12(R"(type="A" isNavigable="true" ordering="ordered" visibility="private")",
                                R"(type="B" isNavigable="false" ordering="unordered" visibility="public")")),
     expected("    association s\n      role : A (navigable, ordered, private)\n      role : B\n")},
    {"ParticipantsOfUml14",
     twoClasses12(association12(R"(name="a" participant="A")", R"(name="b" participant="B")")),
     expected("    association s\n      role a : A\n      role b : B\n")},
    {"MultiplicitiesOfUml2",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" type="_A"><lowerValue xmi:type="uml:LiteralInteger" xmi:id="_1"/>
          <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="_2" value="*"/></ownedEnd>
        <ownedEnd xmi:id="_e2" type="_B" isOrdered="true"><lowerValue xmi:type="uml:LiteralInteger" xmi:id="_3"/>
        </ownedEnd></packagedElement>)"),
     expected("    association s\n      role : A 0..*\n      role : B 0..1 (ordered)\n")},
    {"NoUpperBoundAsMinusOne",
     omg(cls("A") + cls("B") + R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s">
        <ownedEnd xmi:id="_e1" type="_A"><lowerValue xmi:type="uml:LiteralInteger" xmi:id="_1" value="1"/>
          <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="_2" value="-1"/></ownedEnd>
        <ownedEnd xmi:id="_e2" type="_B"><lowerValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="_3" value="-1"/>
          <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="_4" value="-1"/></ownedEnd></packagedElement>)"),
     expected("    association s\n      role : A 1..*\n      role : B *\n")},
    {"MultiplicitiesOfUml1",
     twoClasses12(association12(
         R"(type="A")", R"(type="B" multiplicity="0..*")",
         R"(<UML:AssociationEnd.multiplicity><UML:Multiplicity xmi.id="m1"><UML:Multiplicity.range>
        <UML:MultiplicityRange xmi.id="r1" lower="1" upper="1"/><UML:MultiplicityRange xmi.id="r2" lower="4" upper="-1"/>
        </UML:Multiplicity.range></UML:Multiplicity></UML:AssociationEnd.multiplicity>)")),
     expected("    association s\n      role : A 1,4..*\n      role : B 0..*\n")},
    {"NoUpperBoundAsALetter",
     twoClasses12(association12(R"(type="A" multiplicity="0..n")", R"(type="B" multiplicity="1, 3 .. N")")),
     expected("    association s\n      role : A 0..*\n      role : B 1,3..*\n")},
    {"NoBoundAsALetter",
     twoClasses12(association12(R"(type="A" multiplicity="n")", R"(type="B" multiplicity="n..m")")),
     expected("    association s\n      role : A *\n      role : B *\n")},
    {"AMultiplicityThatTwoEndsShare",
     twoClasses12(R"(<UML:Association xmi.id="s" name="s"><UML:Association.connection>
        <UML:AssociationEnd xmi.id="e1" type="A"><UML:AssociationEnd.multiplicity><UML:Multiplicity xmi.id="m1">
          <UML:Multiplicity.range><UML:MultiplicityRange xmi.id="r1" lower="0" upper="1"/></UML:Multiplicity.range>
          </UML:Multiplicity></UML:AssociationEnd.multiplicity></UML:AssociationEnd>
        <UML:AssociationEnd xmi.id="e2" type="B"><UML:AssociationEnd.multiplicity><UML:Multiplicity xmi.idref="m1"/>
          </UML:AssociationEnd.multiplicity></UML:AssociationEnd></UML:Association.connection></UML:Association>)"),
     expected("    association s\n      role : A 0..1\n      role : B 0..1\n")},
    {"AMultiplicityThatReadsLikeAnId",
     xmi12(cls12("A") + R"(<UML:Association xmi.id="s" name="s"><UML:Association.connection>
        <UML:AssociationEnd xmi.id="1" type="A" multiplicity="1"/><UML:AssociationEnd xmi.id="2" type="A"
        multiplicity="2"/></UML:Association.connection></UML:Association>)"),
     R"(
model m
  package m
    class A
    association s
      role : A 1
      role : A 2
)"_lines},
    {"QualifiersOfUml2",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" type="_A"><qualifier xmi:id="_q" name="key" type="_B"/></ownedEnd>
        <ownedEnd xmi:id="_e2" type="_B"/></packagedElement>)"),
     expected("    association s\n      role : A 1\n        qualifier key : B\n      role : B 1\n")},
    {"QualifiersOfUml1",
     twoClasses12(association12(R"(type="A")", R"(type="B")", R"(<UML:AssociationEnd.qualifier>
        <UML:Attribute xmi.id="q" name="key" type="B"/></UML:AssociationEnd.qualifier>)")),
     expected("    association s\n      role : A\n        qualifier key : B\n      role : B\n")},
    {"AssociationsOfThreeClasses",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2 _e3">
        <ownedEnd xmi:id="_e1" type="_A"/><ownedEnd xmi:id="_e2" type="_B"/><ownedEnd xmi:id="_e3" type="_B"/>
        </packagedElement>)"),
     expected("    association s\n      role : A 1\n      role : B 1\n      role : B 1\n")},
    {"AssociationsOfAClassWithItself",
     eclipse(cls("A") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" name="x" type="_A"/><ownedEnd xmi:id="_e2" name="y" type="_A" aggregation="composite"/>
        </packagedElement>)"),
     R"(
model m
  package m
    class A
    association s
      role x : A 1 (composite)
      role y : A 1
)"_lines},
    {"ConstraintsOfAssociationsAndEnds",
     twoClasses(R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="s" memberEnd="_e1 _e2">
        <ownedEnd xmi:id="_e1" type="_A"/><ownedEnd xmi:id="_e2" type="_B"/></packagedElement>
        <ownedRule xmi:id="_k1" constrainedElement="_s"><specification xmi:type="uml:LiteralString" xmi:id="_1"
          value="acyclic"/></ownedRule>
        <ownedRule xmi:id="_k2" name="sorted" constrainedElement="_e2"/>)"),
     expected("    association s {acyclic}\n      role : A 1\n      role : B 1 {sorted}\n")},
};

const std::vector<Case> OTHERS = {
    {"GeneralizationsInTheirChild", twoClasses("", R"(<generalization xmi:id="_g" general="_B"/>)"),
     "model m\n  package m\n    class A\n    generalization A -> B\n    class B\n"},
    {"GeneralizationsByElement",
     omg(cls("A", R"(<generalization xmi:type="uml:Generalization" xmi:id="_g"><general xmi:idref="_B"/>
        </generalization>)") +
         cls("B")),
     "model m\n  package m\n    class A\n    generalization A -> B\n    class B\n"},
    {"GeneralizationsBesideTheirClasses",
     twoClasses12(R"(<UML:Generalization xmi.id="g" name="g" child="A" parent="B" visibility="private"/>)"),
     expected("    generalization g A -> B (private)\n")},
    {"GeneralizationsWithTheirOldNames",
     twoClasses12(R"(<UML:Generalization xmi.id="g" subtype="A" supertype="B"/>)"),
     expected("    generalization A -> B\n")},
    {"SeveralParents",
     eclipse(
         cls("A") + cls("B") +
         cls("C", R"(<generalization xmi:id="_1" general="_A"/><generalization xmi:id="_2" general="_B"/>)")),
     expected("    class C\n    generalization C -> A\n    generalization C -> B\n")},
    {"Dependencies",
     twoClasses(
         R"(<packagedElement xmi:type="uml:Dependency" xmi:id="_d" name="d" client="_A" supplier="_B"/>)"),
     expected("    dependency d A -> B\n")},
    {"DependenciesByElements",
     xmi12(cls12("A") + cls12("B") +
           R"(<UML:Dependency xmi.id="d"><UML:Dependency.client><UML:Class xmi.idref="A"/>
        </UML:Dependency.client><UML:Dependency.supplier><UML:Class xmi.idref="B"/></UML:Dependency.supplier>
        </UML:Dependency>)"),
     expected("    dependency A -> B\n")},
    {"KindsOfDependenciesHaveAKeyword",
     twoClasses(R"(<packagedElement xmi:type="uml:Usage" xmi:id="_1" client="_A" supplier="_B"/>
        <packagedElement xmi:type="uml:Abstraction" xmi:id="_2" client="_A" supplier="_B"/>
        <packagedElement xmi:type="uml:Substitution" xmi:id="_3" substitutingClassifier="_A" contract="_B"/>)"),
     expected("    dependency A -> B «use»\n    dependency A -> B «abstraction»\n"
              "    dependency A -> B «substitute»\n")},
    {"ADependencyOnSeveralClassesIsSeveralDependencies",
     eclipse(cls("A") + cls("B") + cls("C") +
             R"(<packagedElement xmi:type="uml:Usage" xmi:id="_d" name="d" client="_A" supplier="_B _C"/>)"),
     expected("    class C\n    dependency d A -> B «use»\n    dependency d A -> C «use»\n")},
    {"InterfaceRealizations",
     eclipse(
         cls("A", R"(<interfaceRealization xmi:id="_r" name="r" client="_A" supplier="_I" contract="_I"/>)") +
         R"(<packagedElement xmi:type="uml:Interface" xmi:id="_I" name="I"/>)"),
     "model m\n  package m\n    class A\n    realization r A -> I\n    interface I\n"},
    {"InterfaceRealizationsThatOnlyNameTheInterface",
     eclipse(cls("A", R"(<interfaceRealization xmi:id="_r" contract="_I"/>)") +
             R"(<packagedElement xmi:type="uml:Interface" xmi:id="_I" name="I"/>)"),
     "model m\n  package m\n    class A\n    realization A -> I\n    interface I\n"},
    {"Realizations",
     twoClasses(R"(<packagedElement xmi:type="uml:Realization" xmi:id="_r" client="_A" supplier="_B"/>)"),
     expected("    realization A -> B\n")},
    {"AnAbstractionThatRealizesIsARealization",
     twoClasses12(
         R"(<UML:Stereotype xmi.id="st" name="realize"/><UML:Abstraction xmi.id="r" client="A" supplier="B">
        <UML:ModelElement.stereotype><UML:Stereotype xmi.idref="st"/></UML:ModelElement.stereotype></UML:Abstraction>)"),
     expected("    realization A -> B\n")},
};

INSTANTIATE_TEST_SUITE_P(Associations, XmiRelationships, testing::ValuesIn(ASSOCIATIONS), caseName);
INSTANTIATE_TEST_SUITE_P(Others, XmiRelationships, testing::ValuesIn(OTHERS), caseName);

TEST(XmiLostAssociation, LeavesTheEndOfAClassAsItsAttribute) {
    const Result result = read(
        omg(cls("A", R"(<ownedAttribute xmi:id="_e" name="address" association="_s"><type xmi:idref="_gone"/>
        </ownedAttribute>)") +
            R"(<packagedElement xmi:type="uml:Association" xmi:id="_s" name="lives" memberEnd="_e _f">
        <ownedEnd xmi:id="_f" type="_A"/></packagedElement>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute address : _gone
type _gone _gone
)"_lines);
    EXPECT_EQ(result.lossLines(),
              "associations not between classes: lives (_gone is not in the file; the other end is A)\n");
}

}  // namespace
}  // namespace xmi_test
