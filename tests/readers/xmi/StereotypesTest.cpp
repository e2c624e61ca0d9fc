// Stereotypes and keywords, wherever a file has them.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiStereotypes : public testing::TestWithParam<Case> {};

TEST_P(XmiStereotypes, AreRead) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

std::string applied(const std::string& name, const std::string& base) {
    return "<p:" + name + " xmlns:p=\"http://profile/1\" xmi:id=\"_a" + name + "\" " + base + "/>";
}

std::string stereotyped(const std::string& names) {
    return "model m\n  package m\n    class A «" + names + "»\n";
}

const std::vector<Case> CASES = {
    {"AppliedBesideTheModel", eclipse(cls("A"), applied("table", "base_Class=\"_A\"")), stereotyped("table")},
    {"AppliedWithALinkToTheElement",
     eclipse(cls("A"), R"(<p:table xmlns:p="http://profile/1"><base_Class href="#_A"/></p:table>)"),
     stereotyped("table")},
    {"SeveralOfThemInAlphabeticalOrder",
     eclipse(cls("A"), applied("table", "base_Class=\"_A\"") + applied("Root", "base_Class=\"_A\"") +
                           applied("entity", "base_Class=\"_A\"")),
     stereotyped("entity, Root, table")},
    {"AppliedTwiceInDifferentLetters",
     eclipse(cls("A"), applied("table", "base_Class=\"_A\"") + applied("Table", "base_Class=\"_A\"")),
     stereotyped("table")},
    {"KeywordsOfEclipse",
     eclipse(cls("A", R"(<eAnnotations xmi:id="_e" source="http://www.eclipse.org/uml2/2.0.0/UML">
        <details xmi:id="_f" key="table"/></eAnnotations>)")),
     stereotyped("table")},
    {"ReferredToByTheElement",
     xmi12(R"(<UML:Stereotype xmi.id="s" name="table"/>)" + cls12("A", R"(<UML:ModelElement.stereotype>
        <UML:Stereotype xmi.idref="s"/></UML:ModelElement.stereotype>)")),
     stereotyped("table")},
    {"ReferredToInAnAttribute",
     xmi12(R"(<UML:Stereotype xmi.id="s" name="table"/>)" + cls12("A", "", R"(stereotype="s")")),
     stereotyped("table")},
    {"NamedInAnAttribute", xmi12(cls12("A", "", R"(stereotype="table")")), stereotyped("table")},
    {"DefinedInTheElement", xmi12(cls12("A", R"(<UML:ModelElement.stereotype>
        <UML:Stereotype xmi.id="s" name="table"/></UML:ModelElement.stereotype>)")),
     stereotyped("table")},
    {"ReferringToTheElement", xmi12(cls12("A") + R"(<UML:Stereotype xmi.id="s" name="table">
        <UML:Stereotype.extendedElement><UML:Class xmi.idref="A"/></UML:Stereotype.extendedElement></UML:Stereotype>)"),
     stereotyped("table")},
    {"OfAnotherFile",
     xmi12(cls12("A", R"(<UML:ModelElement.stereotype><UML:Stereotype href="profile.xmi|_7"><XMI.extension
        xmi.extender="MagicDraw UML 9.5"><referentPath xmi.value="Profile::table"/></XMI.extension></UML:Stereotype>
        </UML:ModelElement.stereotype>)")),
     stereotyped("table")},
    {"OfEnterpriseArchitectsExtension",
     enterpriseArchitect(
         cls("A"),
         R"(<elements><element xmi:idref="_A"><properties stereotype="table"/></element></elements>)"),
     stereotyped("table")},
    {"BehindTheKeywordOfTheKind",
     eclipse(R"(<packagedElement xmi:type="uml:Component" xmi:id="_A" name="A"/>)",
             applied("bean", "base_Component=\"_A\"")),
     stereotyped("component, bean")},
    {"OfAnInterfaceButForTheWordForIt",
     umbrello(R"(<UML:Interface stereotype="interface" xmi.id="i" name="I"/>)"), R"(
model m
  package Logical View «folder»
    interface I
)"_lines},
    {"OfFeaturesAndRelationships",
     eclipse(cls("A", R"(<ownedAttribute xmi:id="_x" name="x"/><ownedOperation xmi:id="_f" name="f"/>)") +
                 cls("B", R"(<generalization xmi:id="_g" general="_A"/>)"),
             applied("id", "base_Property=\"_x\"") + applied("get", "base_Operation=\"_f\"") +
                 applied("kept", "base_Generalization=\"_g\"")),
     R"(
model m
  package m
    class A
      attribute x : unspecified «id»
      operation f() «get»
    class B
    generalization B -> A «kept»
type unspecified unspecified
)"_lines},
};

INSTANTIATE_TEST_SUITE_P(Facts, XmiStereotypes, testing::ValuesIn(CASES), caseName);

/// What no view can write is in no model.
class XmiLostStereotypes : public testing::TestWithParam<Case> {};

TEST_P(XmiLostStereotypes, AreInTheLossReport) {
    const Result result = read(GetParam().file);
    EXPECT_EQ(result.outline().find("mark"), std::string::npos) << result.outline();
    EXPECT_EQ(result.lossLines(), GetParam().expected);
}

const std::vector<Case> LOST = {
    {"OfADataType", eclipse(stringType(), applied("mark", "base_PrimitiveType=\"_String\"")),
     "stereotypes of data types: String (mark)\n"},
    {"OfALiteral",
     eclipse(R"(<packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="State">
        <ownedLiteral xmi:id="_l" name="open"/></packagedElement>)",
             applied("mark", "base_EnumerationLiteral=\"_l\"")),
     "stereotypes of enumeration literals: State.open (mark)\n"},
    {"OfARealization",
     eclipse(cls("A") + R"(<packagedElement xmi:type="uml:Interface" xmi:id="_i" name="I"/>
        <packagedElement xmi:type="uml:Realization" xmi:id="_r" name="R" client="_A" supplier="_i"/>)",
             applied("mark", "base_Realization=\"_r\"")),
     "stereotypes of realizations: R (mark)\n"},
    {"OfWhatIsNotInTheFile", eclipse(cls("A"), applied("mark", "base_Class=\"_B\"")),
     "stereotypes of things that are not in the file: _B (mark)\n"},
    {"OfWhatTheModelDoesNotHold",
     eclipse(R"(<packagedElement xmi:type="uml:Actor" xmi:id="_k" name="Clerk"/>)",
             applied("mark", "base_Actor=\"_k\"")),
     "stereotypes of things that are left out: Clerk (mark)\nactors: Clerk\n"},
    {"ThatNothingCarries", xmi12(cls12("A") + R"(<UML:Stereotype xmi.id="s" name="mark"/>)"),
     "stereotypes that nothing carries: mark\n"},
};

INSTANTIATE_TEST_SUITE_P(Facts, XmiLostStereotypes, testing::ValuesIn(LOST), caseName);

TEST(XmiStereotypeValues, AreLostWithTheirNames) {
    const Result result = read(eclipse(cls("A"), applied("table", "base_Class=\"_A\" kind=\"big\"")));
    EXPECT_EQ(result.outline(), stereotyped("table"));
    EXPECT_EQ(result.lossLines(), "tagged values: A (table: kind = big)\n");
}

}  // namespace
}  // namespace xmi_test
