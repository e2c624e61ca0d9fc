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
    {"MultiplicitiesThatCannotBeRead", attribute(R"(lower="0" upper="MAX")"),
     "multiplicities that cannot be read: A.x (0..MAX)\n"},
    {"MultiplicitiesOfEndsThatCannotBeRead",
     xmi12(cls12("A") + R"(<UML:Association xmi.id="j" name="J"><UML:Association.connection>
        <UML:AssociationEnd xmi.id="1" name="a" type="A" multiplicity="several"/><UML:AssociationEnd xmi.id="2" type="A"
        multiplicity="1.."/></UML:Association.connection></UML:Association>)"),
     "multiplicities that cannot be read: J.a (several)\n"
     "multiplicities that cannot be read: J.(unnamed association end in line 4) (1..)\n"},
    {"WordsThatNobodyKnows",
     eclipse(cls("A", R"(<ownedAttribute xmi:id="_x" name="x" visibility="friend"/>
        <ownedOperation xmi:id="_f" name="f" concurrency="lazy"><ownedParameter xmi:id="_p" name="p" direction="through"/>
        </ownedOperation>)") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" name="a" type="_A" aggregation="loose"/><ownedEnd xmi:id="_2" type="_A"/></packagedElement>)"),
     "visibilities: A.x (friend)\nconcurrencies: A.f (lazy)\ndirections: A.f.p (through)\n"
     "aggregations: J.a (loose)\n"},
    {"WordsOfUml1ThatNobodyKnows",
     xmi12(cls12("A", R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x" ownerScope="world"/>
        <UML:Operation xmi.id="f" name="f"><UML:BehavioralFeature.parameter><UML:Parameter xmi.id="p" name="p"
        kind="through" visibility="friend"/></UML:BehavioralFeature.parameter></UML:Operation></UML:Classifier.feature>)",
                 R"(visibility="implementation")")),
     "owner scopes: A.x (world)\nkinds: A.f.p (through)\n"},
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
     "dependencies not between classes: D (Clerk is an actor; the other end is A)\nactors: Clerk\n"},
    {"ParentsInOtherFiles",
     eclipse(cls("A", R"(<generalization xmi:id="_g"><general href="other.uml#_B"/></generalization>)")),
     "generalizations not between classes: A.(unnamed generalization in line 3) (_B (other.uml#_B) is not in "
     "the "
     "file; the other end is A)\n"},
    {"AssociationsWithAnEndInAnotherFile",
     eclipse(cls("A") + R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" type="_A"/><ownedEnd xmi:id="_2"><type href="other.uml#Part"/></ownedEnd>
        </packagedElement>)"),
     "associations not between classes: J (Part (other.uml#Part) is not in the file; the other end is A)\n"},
    {"AssociationsOfThreeThatAreNotAllClasses",
     eclipse(cls("A") + cls("B") + R"(<packagedElement xmi:type="uml:Actor" xmi:id="_k" name="Clerk"/>
        <packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2 _3">
        <ownedEnd xmi:id="_1" type="_A"/><ownedEnd xmi:id="_2" type="_k"/><ownedEnd xmi:id="_3" type="_B"/>
        </packagedElement>)"),
     "associations not between classes: J (Clerk is an actor; the other ends are A, B)\nactors: Clerk\n"},
    {"DependenciesOnUnnamedRelationships",
     xmi12(
         cls12("A") + cls12("B") + cls12("C") + "\n" +
         R"(<UML:Generalization xmi.id="g" child="A" parent="B"/><UML:Dependency xmi.id="d" client="C" supplier="g"/>)"),
     "dependencies not between classes: (unnamed dependency in line 3) ((unnamed generalization in line 3) "
     "from A to B "
     "is a generalization; the other end is C)\n"},
    {"GeneralizationsOfAClassFromATypeInAnotherFile",
     xmi12(cls12("A") + R"(<UML:Generalization xmi.id="g" name="G" child="A" parent="gone"/>)"),
     "generalizations not between classes: G (gone is not in the file; the other end is A)\n"},
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
     "elements of other vocabularies: (unnamed note in line 3)\n"},
    {"PartsInOtherFiles",
     xmi12(R"(<UML:Package href="profile.xmi|_8"><XMI.extension xmi.extender="MagicDraw UML 9.5">
        <referentPath xmi.value="profile"/></XMI.extension></UML:Package>)" +
           cls12("A")),
     "parts in other files: m (profile (profile.xmi|_8) is not in the file)\n"},
    {"AnElementThatIsWrittenTwice",
     umbrello(cls12("A") + cls12("B") + R"(<UML:Dependency xmi.id="d" namespace="m1" client="A" supplier="B"/>
        <UML:Dependency xmi.id="d" namespace="Logical View" client="A" supplier="B"/>)"),
     "repetitions of elements: Logical View.(unnamed dependency in line 6) (the first one is in line 5)\n"},
};

const std::vector<Case> REFERENCES = {
    {"OfAnAttributeToItsAssociation", attribute(R"(association="gone")"),
     "references that lead nowhere: A.x (association gone)\n"},
    {"OfAnOperationToItsConditions",
     eclipse(cls("A", R"(<ownedOperation xmi:id="_f" name="f" precondition="gone" bodyCondition="lost"/>)")),
     "references that lead nowhere: A.f (precondition gone)\n"
     "references that lead nowhere: A.f (body condition lost)\n"},
    {"OfAConstraintToSomeOfWhatItIsAbout",
     eclipse(cls("A") + R"(<ownedRule xmi:id="_r" name="R" constrainedElement="_A gone"/>)"),
     "references that lead nowhere: R (constrained element gone)\n"},
    {"OfACommentByALinkIntoAnotherFile", eclipse(cls("A", R"(<ownedComment xmi:id="_k" name="K" body="text">
        <annotatedElement href="other.uml#_7"/></ownedComment>)")),
     "references into other files: A.K (annotated element other.uml#_7)\n"},
    {"OfADefaultToItsLiteral",
     eclipse(cls(
         "A", R"(<ownedAttribute xmi:id="_x" name="x"><defaultValue xmi:type="uml:InstanceValue" xmi:id="_d"
        name="d" instance="gone"/></ownedAttribute>)")),
     "references that lead nowhere: A.x.d (instance gone)\n"},
    {"OfAnAttributeToItsMultiplicity",
     xmi12(cls12("A", R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x">
        <UML:StructuralFeature.multiplicity><UML:Multiplicity xmi.idref="7"/></UML:StructuralFeature.multiplicity>
        </UML:Attribute></UML:Classifier.feature>)")),
     "references that lead nowhere: A.x (multiplicity 7)\n"},
    {"OfAnAssociationToOneOfItsEnds",
     eclipse(cls("A") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2 gone">
        <ownedEnd xmi:id="_1" type="_A"/><ownedEnd xmi:id="_2" type="_A"/></packagedElement>)"),
     "references that lead nowhere: J (member end gone)\n"},
    {"OfAClassOfUml1ToItsCommentsAndConstraints",
     xmi12(cls12("A", R"(<UML:ModelElement.comment><UML:Comment xmi.idref="gone"/></UML:ModelElement.comment>
        <UML:ModelElement.constraint><UML:Constraint xmi.idref="lost"/></UML:ModelElement.constraint>)")),
     "references that lead nowhere: A (comment gone)\nreferences that lead nowhere: A (constraint lost)\n"},
    {"OfAClassToWhatTheOtherSideWouldSay",
     xmi12(cls12("A", R"(<UML:ModelElement.clientDependency><UML:Dependency xmi.idref="gone"/>
        </UML:ModelElement.clientDependency>)",
                 R"(namespace="lost")")),
     "references that lead nowhere: A (namespace lost)\n"
     "references that lead nowhere: A (client dependency gone)\n"},
    {"ToStereotypes", xmi12(cls12("A", R"(<UML:ModelElement.stereotype><UML:Stereotype xmi.idref="gone"/>
        <UML:Stereotype href="profile.xmi#_7"/></UML:ModelElement.stereotype>)")),
     "stereotypes that are not in the file: A (gone)\nstereotypes that are not in the file: A "
     "(profile.xmi#_7)\n"},
};

const std::vector<Case> REPETITIONS = {
    {"OfTheNesting",
     eclipse(
         cls("A", R"(<ownedAttribute xmi:id="_x" name="x" class="_A" featuringClassifier="_A"/>
        <ownedOperation xmi:id="_f" name="f" class="_A"><ownedParameter xmi:id="_p" name="p" operation="_f"/>
        <ownedRule xmi:id="_r" context="_f"/></ownedOperation>)",
             R"(owningPackage="_m" package="_m" owner="_m")") +
         R"(<packagedElement xmi:type="uml:Interface" xmi:id="_i" name="I"><ownedAttribute xmi:id="_y" name="y"
        interface="_i"/></packagedElement><packagedElement xmi:type="uml:DataType" xmi:id="_d" name="D">
        <ownedAttribute xmi:id="_z" name="z" datatype="_d"/></packagedElement>
        <packagedElement xmi:type="uml:Enumeration" xmi:id="_e" name="E"><ownedLiteral xmi:id="_l" name="l"
        enumeration="_e"/></packagedElement>)"),
     ""},
    {"OfTemplateParameters",
     eclipse(cls("A", R"(<ownedTemplateSignature xmi:id="_s" parameter="_p" template="_A"><ownedParameter
        xmi:type="uml:ClassifierTemplateParameter" xmi:id="_p" signature="_s" parameteredElement="_T">
        <ownedParameteredElement xmi:type="uml:Class" xmi:id="_T" name="T" templateParameter="_p"
        owningTemplateParameter="_p"/></ownedParameter></ownedTemplateSignature>)")),
     ""},
    {"OfEnds",
     eclipse(cls("A") +
             R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="J" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" name="a" type="_A" owningAssociation="_j" opposite="_2"><qualifier xmi:id="_q" name="q"
        associationEnd="_1"/></ownedEnd><ownedEnd xmi:id="_2" name="b" type="_A" opposite="_1"/></packagedElement>)"),
     ""},
    {"AreNoneWhereTheyLeadElsewhere",
     eclipse(cls("A", R"(<ownedAttribute xmi:id="_x" name="x" opposite="_y"/><ownedRule xmi:id="_r" name="R"
        context="_B"/>)") +
             cls("B", R"(<ownedAttribute xmi:id="_y" name="y"/>)")),
     "opposites: A.x (_y)\ncontexts: A.R (_B)\n"},
};

INSTANTIATE_TEST_SUITE_P(References, XmiLosses, testing::ValuesIn(REFERENCES), caseName);
INSTANTIATE_TEST_SUITE_P(Repetitions, XmiLosses, testing::ValuesIn(REPETITIONS), caseName);
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
