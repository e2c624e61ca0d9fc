// Diagrams: their names, places and what they show.

#include <gtest/gtest.h>

#include "Fragments.h"

namespace xmi_test {
namespace {

TEST(XmiDiagrams, OfEnterpriseArchitectListTheirElements) {
    const Result result = read(enterpriseArchitect(
        R"(<packagedElement xmi:type="uml:Package" xmi:id="_p" name="P">)" + cls("A") + cls("B") +
            "</packagedElement>",
        R"(<diagrams><diagram xmi:id="_d"><model package="_p" owner="_p"/><properties name="Overview" type="Logical"/>
        <elements><element geometry="Left=1;" subject="_B" seqno="1"/><element subject="_A" seqno="2"/>
        <element subject="_B"/></elements></diagram></diagrams>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package P
    class A
    class B
    diagram Overview: B, A
)"_lines);
    EXPECT_EQ(result.lossLines(), "diagram layouts: P.Overview\nextensions of tools: Enterprise Architect\n");
}

TEST(XmiDiagrams, OfUmbrelloListTheirWidgets) {
    const Result result = read(umbrello(
        cls12("A") + cls12("B"),
        R"(<diagrams><diagram xmi.id="d" name="Overview" documentation="What there is." type="1"><widgets>
        <classwidget xmi.id="A" x="1"/><classwidget xmi.id="B"/></widgets></diagram></diagrams>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package Logical View «folder»
    class A
    class B
    diagram Overview: A, B "What there is."
)"_lines);
}

TEST(XmiDiagrams, OfUmlsOwnInterchangeReferToWhatTheyShow) {
    const Result result = read(xmi12(
        cls12("A"),
        R"(<UML:Diagram xmi.id="d" name="Overview"><UML:Diagram.owner><UML:SimpleSemanticModelElement xmi.id="o">
        <UML:Uml1SemanticModelBridge.element><UML:Model xmi.idref="m"/></UML:Uml1SemanticModelBridge.element>
        </UML:SimpleSemanticModelElement></UML:Diagram.owner><UML:GraphElement.contained><UML:GraphNode xmi.id="g">
        <UML:GraphElement.semanticModel><UML:Uml1SemanticModelBridge xmi.id="b">
        <UML:Uml1SemanticModelBridge.element><UML:Class xmi.idref="A"/></UML:Uml1SemanticModelBridge.element>
        </UML:Uml1SemanticModelBridge></UML:GraphElement.semanticModel></UML:GraphNode></UML:GraphElement.contained>
        </UML:Diagram>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
    diagram Overview: A
)"_lines);
}

TEST(XmiDiagrams, ShowRelationshipsToo) {
    const Result result = read(umbrello(
        cls12("A") + cls12("B") + R"(<UML:Generalization xmi.id="g" name="is" child="B" parent="A"/>)",
        R"(<diagrams><diagram xmi.id="d" name="D"><associations><assocwidget xmi.id="g"/></associations></diagram>
        </diagrams>)"));
    EXPECT_NE(result.outline().find("diagram D: is\n"), std::string::npos) << result.outline();
}

TEST(XmiDiagrams, CountWhatTheyShowThatIsNoElement) {
    const Result result = read(umbrello(
        cls12("A") + R"(<UML:UseCase xmi.id="u" name="U"/>)",
        R"(<diagrams><diagram xmi.id="d" name="D"><usecasewidget xmi.id="u"/></diagram></diagrams>)"));
    EXPECT_NE(result.lossLines().find("entries of diagrams that are not elements: Logical View.D (1)\n"),
              std::string::npos)
        << result.lossLines();
}

}  // namespace
}  // namespace xmi_test
