// Descriptions, comments, constraints and tagged values.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

class XmiDocumentation : public testing::TestWithParam<Case> {};

TEST_P(XmiDocumentation, IsRead) {
    EXPECT_EQ(read(GetParam().file).outline(), GetParam().expected);
}

std::string comment(const std::string& about, const std::string& body) {
    return "<ownedComment xmi:id=\"_k" + body.substr(0, 3) + "\"" +
           (about.empty() ? "" : " annotatedElement=\"" + about + "\"") + "><body>" + body +
           "</body></ownedComment>";
}

std::string rule(const std::string& name, const std::string& about, const std::string& body) {
    return "<ownedRule xmi:id=\"_r\"" + (name.empty() ? "" : " name=\"" + name + "\"") +
           (about.empty() ? "" : " constrainedElement=\"" + about + "\"") +
           "><specification xmi:type=\"uml:OpaqueExpression\" xmi:id=\"_s\"><body>" + body +
           "</body></specification></ownedRule>";
}

const std::string NOTE_ON_A = R"(
model m
  package m
    class A
      note All of it.
)"_lines;

const std::vector<Case> COMMENTS = {
    {"ACommentIsANoteOfWhatItIsAbout", eclipse(cls("A") + comment("_A", "All of it.")), NOTE_ON_A},
    {"ACommentAboutNothingIsANoteOfWhatItStandsIn", eclipse(cls("A", comment("", "All of it."))), NOTE_ON_A},
    {"ABodyMayBeAnAttribute",
     eclipse(cls("A", R"(<ownedComment xmi:id="_k" body="All of it." annotatedElement="_A"/>)")), NOTE_ON_A},
    {"ACommentOfUml1", xmi12(cls12("A") + R"(<UML:Comment xmi.id="k" body="All of it.">
        <UML:Comment.annotatedElement><UML:Class xmi.idref="A"/></UML:Comment.annotatedElement></UML:Comment>)"),
     NOTE_ON_A},
    {"ACommentOfUml13IsItsName", xmi12(cls12("A") + R"(<UML:Comment xmi.id="k" name="All of it.">
        <UML:Comment.annotatedElement><UML:Class xmi.idref="A"/></UML:Comment.annotatedElement></UML:Comment>)"),
     NOTE_ON_A},
    {"ACommentThatOnlyItsSubjectKnowsOf",
     xmi12(
         cls12("A", R"(<UML:ModelElement.comment><UML:Comment xmi.idref="k"/></UML:ModelElement.comment>)") +
         R"(<UML:Comment xmi.id="k" body="All of it."/>)"),
     NOTE_ON_A},
    {"ACommentThatBothSidesTellOfIsOneNote",
     xmi12(
         cls12("A", R"(<UML:ModelElement.comment><UML:Comment xmi.idref="k"/></UML:ModelElement.comment>)") +
         R"(<UML:Comment xmi.id="k" body="All of it."><UML:Comment.annotatedElement><UML:Class xmi.idref="A"/>
        </UML:Comment.annotatedElement></UML:Comment>)"),
     NOTE_ON_A},
    {"ACommentAboutSeveralElementsIsANoteOfEach",
     eclipse(cls("A") + cls("B") + comment("_B _A", "Both of them.")), R"(
model m
  package m
    class A
      note Both of them.
    class B
      note Both of them.
)"_lines},
    {"CommentsOfFeaturesAndEnds",
     eclipse(cls("A", R"(<ownedAttribute xmi:id="_x" name="x" type="_String">)" +
                          comment("_x", "An attribute.") +
                          R"(</ownedAttribute><ownedOperation xmi:id="_f" name="f">)" +
                          comment("_f", "Some operation.") + "</ownedOperation>") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" type="_A"/><ownedEnd xmi:id="_2" type="_A"/></packagedElement>)" +
             stringType() + comment("_1", "This end.")),
     R"(
model m
  package m
    class A
      attribute x : String
        note An attribute.
      operation f()
        note Some operation.
    association
      role : A 1
        note This end.
      role : A 1
type String SQL_VARCHAR
)"_lines},
    {"CommentsOfPackagesAreNotesOfThem",
     eclipse(R"(<packagedElement xmi:type="uml:Package" xmi:id="_p" name="P">)" + comment("_p", "A part.") +
             "</packagedElement>"),
     R"(
model m
  package P
    note A part.
)"_lines},
    {"CommentsOfDataTypesAndTheModelAreTheirComments",
     eclipse(R"(<packagedElement xmi:type="uml:DataType" xmi:id="_d" name="Colour">)" +
             comment("_d", "What is seen.") + "</packagedElement>" + comment("_m", "The whole.")),
     R"(
model m /*The whole.*/
type Colour Colour /*What is seen.*/
)"_lines},
    {"CommentsOfLiteralsDescribeThemAndStandInTheTypesComments",
     eclipse(R"(<packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="State">
        <ownedLiteral xmi:id="_l" name="open">)" +
             comment("_l", "Not yet done.") + "</ownedLiteral></packagedElement>"),
     R"(
model m
derived type State SQL_VARCHAR /*open: Not yet done.*/
  value open 0 open
)"_lines},
    {"NotesOfUmbrellosDiagramsAreNotesOfThePackage",
     umbrello(cls12("A"),
              R"(<diagrams><diagram name="D" type="1"><widgets><notewidget xmi.id="n" text="Look here."/>
        </widgets></diagram></diagrams>)"),
     R"(
model m
  package Logical View «folder»
    note Look here.
    class A
    diagram D
)"_lines},
};

const std::vector<Case> DESCRIPTIONS = {
    {"TaggedValuesOfThatName",
     xmi12(cls12(
         "A",
         R"(<UML:ModelElement.taggedValue><UML:TaggedValue xmi.id="t" tag="documentation" value="It is."/>
        </UML:ModelElement.taggedValue>)")),
     "model m\n  package m\n    class A \"It is.\"\n"},
    {"TaggedValuesWithADefinition",
     xmi12(
         cls12("A",
               R"(<UML:ModelElement.taggedValue><UML:TaggedValue xmi.id="t"><UML:TaggedValue.dataValue>It is.
</UML:TaggedValue.dataValue><UML:TaggedValue.type><UML:TagDefinition xmi.idref="d"/></UML:TaggedValue.type>
        </UML:TaggedValue></UML:ModelElement.taggedValue>)") +
         R"(<UML:TagDefinition xmi.id="d" name="documentation"/>)"),
     "model m\n  package m\n    class A \"It is.\n\"\n"},
    {"TaggedValuesBesideTheModelNameTheirElement",
     xmi12(cls12("A"),
           R"(<UML:TaggedValue xmi.id="t" tag="documentation" value="It is." modelElement="A"/>)"),
     "model m\n  package m\n    class A \"It is.\"\n"},
    {"UmbrellosAttributeForIt", umbrello(cls12("A", "", R"(comment="It is.")")),
     "model m\n  package Logical View «folder»\n    class A \"It is.\"\n"},
    {"EclipsesAnnotationForGenerators",
     eclipse(cls("A", R"(<eAnnotations xmi:id="_e" source="http://www.eclipse.org/emf/2002/GenModel">
        <details xmi:id="_f" key="documentation" value="It is."/></eAnnotations>)")),
     "model m\n  package m\n    class A \"It is.\"\n"},
    {"EnterpriseArchitectsProperties",
     enterpriseArchitect(cls("A", R"(<ownedAttribute xmi:id="_x" name="x"/>)"),
                         R"(<elements><element xmi:idref="_A"><properties documentation="It is."/><attributes>
        <attribute xmi:idref="_x"><documentation value="So is this."/></attribute></attributes></element></elements>)"),
     R"(
model m
  package m
    class A "It is."
      attribute x : unspecified "So is this."
type unspecified unspecified
)"_lines},
    {"SeveralPiecesStandTogether",
     xmi12(cls12(
         "A", R"(<UML:ModelElement.taggedValue><UML:TaggedValue xmi.id="t" tag="documentation" value="One."/>
        <UML:TaggedValue xmi.id="u" tag="description" value="Two."/></UML:ModelElement.taggedValue>)")),
     "model m\n  package m\n    class A \"One.\n\nTwo.\"\n"},
};

const std::vector<Case> CONSTRAINTS = {
    {"AConstraintOfAClassIsANoteInBraces", eclipse(cls("A", rule("", "", "x > 0"))), R"(
model m
  package m
    class A
      note {x > 0}
)"_lines},
    {"ItsNameStandsInFront", eclipse(cls("A") + rule("positive", "_A", "x > 0")), R"(
model m
  package m
    class A
      note {positive: x > 0}
)"_lines},
    {"AConstraintOfUml1", xmi12(cls12("A") + R"(<UML:Constraint xmi.id="c" name="positive">
        <UML:Constraint.constrainedElement><UML:Class xmi.idref="A"/></UML:Constraint.constrainedElement>
        <UML:Constraint.body><UML:BooleanExpression xmi.id="b" language="OCL" body="x > 0"/></UML:Constraint.body>
        </UML:Constraint>)"),
     R"(
model m
  package m
    class A
      note {positive: x > 0}
)"_lines},
    {"AConstraintOfAnOperationThatIsNoConditionIsANote",
     eclipse(
         cls("A", R"(<ownedOperation xmi:id="_f" name="f">)" + rule("", "", "x > 0") + "</ownedOperation>")),
     R"(
model m
  package m
    class A
      operation f()
        note {x > 0}
)"_lines},
    {"CommentsAboutAConstraintGoToWhatItConstrains",
     eclipse(cls("A") + R"(<ownedRule xmi:id="_r" name="positive" constrainedElement="_A"/>)" +
             comment("_r", "Why it is so.")),
     R"(
model m
  package m
    class A
      note {positive}
      note Why it is so.
)"_lines},
    {"AllCommentsAboutAConstraintGoToAllThatItConstrains",
     eclipse(cls("A") + cls("B") +
             R"(<ownedRule xmi:id="_r" name="positive" constrainedElement="_A _s _B _nowhere _B"/>
        <ownedRule xmi:id="_s" name="small" constrainedElement="_A"/>)" +
             comment("_r", "Why it is so.") + comment("_r", "Since when.")),
     R"(
model m
  package m
    class A
      note {positive}
      note {positive}
      note {small}
      note Why it is so.
      note Since when.
    class B
      note {positive}
      note Why it is so.
      note Since when.
)"_lines},
};

INSTANTIATE_TEST_SUITE_P(Comments, XmiDocumentation, testing::ValuesIn(COMMENTS), caseName);
INSTANTIATE_TEST_SUITE_P(Descriptions, XmiDocumentation, testing::ValuesIn(DESCRIPTIONS), caseName);
INSTANTIATE_TEST_SUITE_P(Constraints, XmiDocumentation, testing::ValuesIn(CONSTRAINTS), caseName);

TEST(XmiTaggedValues, MakeAClassPersistent) {
    EXPECT_EQ(
        read(xmi12(cls12("A", R"(<UML:ModelElement.taggedValue><UML:TaggedValue xmi.id="t" tag="persistence"
        value="persistent"/></UML:ModelElement.taggedValue>)")))
            .outline(),
        "model m\n  package m\n    class A (persistent)\n");
}

TEST(XmiTaggedValues, OfOtherNamesAreLost) {
    const Result result = read(xmi12(
        cls12("A", R"(<UML:ModelElement.taggedValue><UML:TaggedValue xmi.id="t" tag="author" value="me"/>
        </UML:ModelElement.taggedValue>)")));
    EXPECT_EQ(result.lossLines(), "tagged values: A (author = me)\n");
}

TEST(XmiTaggedValues, OfEnterpriseArchitectAreLostWithoutWhatTheyMean) {
    const Result result = read(enterpriseArchitect(
        cls("A"),
        R"(<elements><element xmi:idref="_A"><tags><tag name="unit" value="m#NOTES#Values: m,km"/></tags>
        </element></elements>)"));
    EXPECT_EQ(result.lossLines(), "tagged values: A (unit = m)\nextensions of tools: Enterprise Architect\n");
}

}  // namespace
}  // namespace xmi_test
