// Nothing is dropped in silence: what the model cannot hold is in the loss report.

#include <gtest/gtest.h>

#include "Fragments.h"
#include "Wording.h"

namespace xmi_test {
namespace {

class XmiLosses : public testing::TestWithParam<Case> {};

TEST_P(XmiLosses, AreReported) {
    EXPECT_EQ(read(GetParam().file).lossLines(), GetParam().expected);
}

std::string attribute(const std::string& more) {
    return eclipse(cls("A", "<ownedAttribute xmi:id=\"_x\" name=\"x\" " + more + "/>"));
}

const std::vector<Case> CASES = {
    {"FlagsOfAttributes", attribute(R"(isReadOnly="true" isDerived="true" isUnique="false")"),
     "read only flags: A.x\nderived flags: A.x\nunique flags: A.x (false)\n"},
    {"FlagsThatSayWhatIsSoAnywayAreNoLoss",
     attribute(R"(isReadOnly="false" isUnique="true" visibility="public" aggregation="none")"), ""},
    {"MultiplicitiesOfAttributes", attribute(R"(lower="0" upper="*")"),
     "multiplicities of attributes: A.x (0..*)\n"},
    {"AttributesThatNobodyKnows", attribute(R"(colour="blue")"), "colours: A.x (blue)\n"},
    {"ElementsThatTheModelHasNoPlaceFor",
     eclipse(cls("A") + R"(<packagedElement xmi:type="uml:UseCase" xmi:id="_u" name="Order">
        <extensionPoint xmi:id="_e" name="part of it"/></packagedElement>)"),
     "use cases: Order\n"},
    {"PartsOfClassesThatTheModelHasNoPlaceFor",
     eclipse(cls("A", R"(<ownedBehavior xmi:type="uml:StateMachine" xmi:id="_s" name="Life"/>)")),
     "state machines: A.Life\n"},
    {"RelationshipsThatAreNotBetweenClasses",
     eclipse(cls("A") + R"(<packagedElement xmi:type="uml:Actor" xmi:id="_k" name="Clerk"/>
        <packagedElement xmi:type="uml:Dependency" xmi:id="_d" name="D" client="_A" supplier="_k"/>)"),
     "dependencies not between classes: D (Clerk is an actor)\nactors: Clerk\n"},
    {"ParentsInOtherFiles",
     eclipse(cls("A", R"(<generalization xmi:id="_g"><general href="other.uml#_B"/></generalization>)")),
     "generalizations not between classes: A.(unnamed generalization) (_B (other.uml#_B) is not in the "
     "file)\n"},
    {"AssociationsWithAnEndInAnotherFile",
     eclipse(cls("A") + R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" type="_A"/><ownedEnd xmi:id="_2"><type href="other.uml#Part"/></ownedEnd>
        </packagedElement>)"),
     "associations not between classes: J (Part (other.uml#Part) is not in the file)\n"},
    {"AggregationsOfThreeClasses",
     eclipse(cls("A") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2 _3">
        <ownedEnd xmi:id="_1" name="a" type="_A" aggregation="shared"/><ownedEnd xmi:id="_2" type="_A"/>
        <ownedEnd xmi:id="_3" type="_A"/></packagedElement>)"),
     "aggregations between more than two classes: J.a (shared)\n"},
    {"NestingsOfClasses",
     eclipse(cls("A", R"(<nestedClassifier xmi:type="uml:Class" xmi:id="_n" name="N"/>)")),
     "nestings of classes: A.N (it stands beside A)\n"},
    {"FurtherBaseTypes",
     eclipse(
         R"(<packagedElement xmi:type="uml:DataType" xmi:id="_n" name="N"><generalization general="_String"/>
        <generalization general="_o"/></packagedElement>
        <packagedElement xmi:type="uml:DataType" xmi:id="_o" name="O"/>)" +
         stringType()),
     "further base types of data types: N (O)\n"},
    {"NamesOfResults",
     eclipse(cls("A", R"(<ownedOperation xmi:id="_f" name="f">
        <ownedParameter xmi:id="_1" name="total" type="_String" direction="return"/></ownedOperation>)") +
             stringType()),
     "names of results: A.f.total\n"},
    {"ExtensionsOfTools",
     xmi12(cls12("A", R"(<XMI.extension xmi.extender="tool"><shade value="2"/></XMI.extension>)")),
     "extensions of tools: tool\n"},
    {"ElementsOfOtherVocabularies", eclipse(cls("A"), R"(<n:note xmlns:n="http://notes">text</n:note>)"),
     "elements of other vocabularies: (unnamed note)\n"},
    {"PartsInOtherFiles",
     xmi12(R"(<UML:Package href="profile.xmi|_8"><XMI.extension xmi.extender="MagicDraw UML 9.5">
        <referentPath xmi.value="profile"/></XMI.extension></UML:Package>)" +
           cls12("A")),
     "parts in other files: m (profile (profile.xmi|_8) is not in the file)\n"},
    {"AnElementThatIsWrittenTwice",
     umbrello(cls12("A") + cls12("B") + R"(<UML:Dependency xmi.id="d" namespace="m1" client="A" supplier="B"/>
        <UML:Dependency xmi.id="d" namespace="Logical View" client="A" supplier="B"/>)"),
     "repetitions of elements: Logical View.(unnamed dependency) (line 6)\n"},
};

INSTANTIATE_TEST_SUITE_P(Facts, XmiLosses, testing::ValuesIn(CASES), caseName);

TEST(XmiLossPaths, StayShortHoweverLongTheNamesAre) {
    const std::string name(1000, 'n');
    EXPECT_EQ(read(eclipse(cls(name, R"(<ownedAttribute name="x" isDerived="true"/>)"))).lossLines(),
              "derived flags: " + name.substr(0, 120) + "....x\n");
}

TEST(XmiWording, TurnsNamesIntoWords) {
    using readers::xmi::toPlural;
    using readers::xmi::toWords;
    using readers::xmi::withArticle;
    EXPECT_EQ(toWords("UseCase"), "use case");
    EXPECT_EQ(toWords("ownedTemplateSignature"), "template signature");
    EXPECT_EQ(toWords("isReadOnly"), "read only");
    EXPECT_EQ(toWords("nsURI"), "ns URI");
    EXPECT_EQ(toPlural("dependency"), "dependencies");
    EXPECT_EQ(toPlural("class"), "classes");
    EXPECT_EQ(toPlural("key"), "keys");
    EXPECT_EQ(withArticle("actor"), "an actor");
    EXPECT_EQ(withArticle("use case"), "a use case");
}

}  // namespace
}  // namespace xmi_test
