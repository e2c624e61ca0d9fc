// Whole small models in the form of each producer, and what only one of them does.

#include <gtest/gtest.h>

#include "Declarations.h"
#include "Fragments.h"
#include "Vocabularies.h"

namespace xmi_test {
namespace {

using readers::xmi::DeclaredFeature;
using readers::xmi::DeclaredOperation;
using readers::xmi::parseFeature;
using readers::xmi::parseOperation;

/// The same two classes in every form.
const std::string EXPECTED = R"(
model m
  package m
    class Book
      attribute title : String
    abstract class Shelf
    association holds
      role shelf : Shelf 1
      role book : Book 0..*
type String SQL_VARCHAR
)"_lines;

TEST(XmiDialect, EclipseUml2) {
    EXPECT_EQ(
        read(
            eclipse(cls("Book", R"(<ownedAttribute xmi:id="_t" name="title" type="_String"/>)") +
                    cls("Shelf", "", R"(isAbstract="true")") +
                    R"(<packagedElement xmi:type="uml:Association" xmi:id="_j" name="holds" memberEnd="_1 _2">
        <ownedEnd xmi:id="_1" name="shelf" type="_Shelf" association="_j"/>
        <ownedEnd xmi:id="_2" name="book" type="_Book" association="_j">
          <lowerValue xmi:type="uml:LiteralInteger" xmi:id="_l"/>
          <upperValue xmi:type="uml:LiteralUnlimitedNatural" xmi:id="_u" value="*"/></ownedEnd>
        </packagedElement>)" +
                    stringType()))
            .outline(),
        EXPECTED);
}

TEST(XmiDialect, OfTheOmgWithoutAVersionAndWithTypesByReference) {
    const std::string file = R"(<xmi:XMI xmlns:xmi="http://www.omg.org/spec/XMI/20131001"
        xmlns:uml="http://www.omg.org/spec/UML/20161101"><uml:Model xmi:id="_m" xmi:type="uml:Model" name="m">
        <packagedElement xmi:id="_Book" xmi:type="uml:Class" name="Book"><ownedAttribute xmi:id="_t" xmi:type="uml:Property"
          name="title"><type href="http://www.omg.org/spec/UML/20161101/PrimitiveTypes.xmi#String"/></ownedAttribute>
        </packagedElement>
        <packagedElement xmi:id="_Shelf" xmi:type="uml:Class" name="Shelf" isAbstract="true"/>
        <packagedElement xmi:id="_j" xmi:type="uml:Association" name="holds"><memberEnd xmi:idref="_1"/>
          <memberEnd xmi:idref="_2"/><ownedEnd xmi:id="_1" xmi:type="uml:Property" name="shelf"><type xmi:idref="_Shelf"/>
          </ownedEnd><ownedEnd xmi:id="_2" xmi:type="uml:Property" name="book"><type xmi:idref="_Book"/>
          <lowerValue xmi:id="_l" xmi:type="uml:LiteralInteger" value="0"/>
          <upperValue xmi:id="_u" xmi:type="uml:LiteralUnlimitedNatural" value="-1"/></ownedEnd></packagedElement>
        </uml:Model></xmi:XMI>)";
    EXPECT_EQ(read(file).outline(), EXPECTED);
}

TEST(XmiDialect, OfXmi10) {
    const std::string file = xmi10(R"(
        <Foundation.Core.Class xmi.id="b"><Foundation.Core.ModelElement.name>Book</Foundation.Core.ModelElement.name>
          <Foundation.Core.Classifier.feature><Foundation.Core.Attribute xmi.id="t">
            <Foundation.Core.ModelElement.name>title</Foundation.Core.ModelElement.name>
            <Foundation.Core.ModelElement.visibility xmi.value="public"/>
            <Foundation.Core.StructuralFeature.type><Foundation.Core.Classifier xmi.idref="s"/>
            </Foundation.Core.StructuralFeature.type></Foundation.Core.Attribute></Foundation.Core.Classifier.feature>
        </Foundation.Core.Class>
        <Foundation.Core.Class xmi.id="h"><Foundation.Core.ModelElement.name>Shelf</Foundation.Core.ModelElement.name>
          <Foundation.Core.GeneralizableElement.isAbstract xmi.value="true"/></Foundation.Core.Class>
        <Foundation.Core.Association xmi.id="j"><Foundation.Core.ModelElement.name>holds</Foundation.Core.ModelElement.name>
          <Foundation.Core.Association.connection>
            <Foundation.Core.AssociationEnd xmi.id="e1"><Foundation.Core.ModelElement.name>shelf</Foundation.Core.ModelElement.name>
              <Foundation.Core.AssociationEnd.multiplicity>1</Foundation.Core.AssociationEnd.multiplicity>
              <Foundation.Core.AssociationEnd.type><Foundation.Core.Class xmi.idref="h"/></Foundation.Core.AssociationEnd.type>
            </Foundation.Core.AssociationEnd>
            <Foundation.Core.AssociationEnd xmi.id="e2"><Foundation.Core.ModelElement.name>book</Foundation.Core.ModelElement.name>
              <Foundation.Core.AssociationEnd.multiplicity><Foundation.Data_Types.Multiplicity>
                <Foundation.Data_Types.Multiplicity.range><Foundation.Data_Types.MultiplicityRange>
                <Foundation.Data_Types.MultiplicityRange.lower>0</Foundation.Data_Types.MultiplicityRange.lower>
                <Foundation.Data_Types.MultiplicityRange.upper>-1</Foundation.Data_Types.MultiplicityRange.upper>
                </Foundation.Data_Types.MultiplicityRange></Foundation.Data_Types.Multiplicity.range>
                </Foundation.Data_Types.Multiplicity></Foundation.Core.AssociationEnd.multiplicity>
              <Foundation.Core.AssociationEnd.type><Foundation.Core.Class xmi.idref="b"/></Foundation.Core.AssociationEnd.type>
            </Foundation.Core.AssociationEnd></Foundation.Core.Association.connection></Foundation.Core.Association>
        <Foundation.Core.DataType xmi.id="s"><Foundation.Core.ModelElement.name>String</Foundation.Core.ModelElement.name>
        </Foundation.Core.DataType>)");
    EXPECT_EQ(read(file).outline(), EXPECTED);
}

TEST(XmiDialect, PrefixesMeanNothing) {
    const std::string file = R"(<x:XMI xmlns:x="http://www.omg.org/spec/XMI/20131001"
        xmlns:u="http://www.eclipse.org/uml2/3.0.0/UML"><u:Model x:id="_m" name="m">
        <packagedElement x:type="u:Class" x:id="_A" name="A"/></u:Model></x:XMI>)";
    EXPECT_EQ(read(file).outline(), "model m\n  package m\n    class A\n");
}

TEST(XmiVocabulary, IsToldByTheFamilyOfTheNamespace) {
    using readers::xmi::Vocabulary;
    using readers::xmi::vocabularyOf;
    for (const char* uri :
         {"http://www.eclipse.org/uml2/5.0.0/UML", "http://www.omg.org/spec/UML/20131001",
          "http://www.omg.org/spec/UML/20131001/uml.xml", "http://schema.omg.org/spec/UML/2.1.1/",
          "org.omg.xmi.namespace.UML", "//org.omg/UML/1.3", "http://schema.omg.org/spec/UML/1.4"}) {
        EXPECT_EQ(vocabularyOf(uri, "Class"), Vocabulary::UML) << uri;
    }
    for (const char* uri : {"http://www.omg.org/XMI", "http://www.omg.org/spec/XMI/20131001",
                            "http://schema.omg.org/spec/XMI/2.1"}) {
        EXPECT_EQ(vocabularyOf(uri, "XMI"), Vocabulary::XMI) << uri;
    }
    for (const char* uri :
         {"http://example.org/NOTUML", "2.1", "/", "urn:x", "http://www.omg.org/spec/UMLX/1"}) {
        EXPECT_EQ(vocabularyOf(uri, "Class"), Vocabulary::OTHER) << uri;
    }
    EXPECT_EQ(vocabularyOf("", "Foundation.Core.Class"), Vocabulary::UML);
    EXPECT_EQ(vocabularyOf("", "XMI.content"), Vocabulary::XMI);
    EXPECT_EQ(vocabularyOf("", "UML:Class"), Vocabulary::UML);
    EXPECT_EQ(vocabularyOf("", "ownedAttribute"), Vocabulary::NONE);
}

TEST(XmiDialect, PlantUmlNamesPackagesThatItDoesNotDeclare) {
    EXPECT_EQ(read(plantUml(cls12("A", "", R"(namespace="shop.stock")") +
                            cls12("B", "", R"(namespace="shop")") + cls12("C", "", R"(namespace="m")")))
                  .outline(),
              R"(
model PlantUML
  package shop
    package stock
      class A
    class B
  package PlantUML
    class C
)"_lines);
}

TEST(XmiDialect, PlantUmlWritesWholeDeclarationsAsNames) {
    const std::string features = R"xml(<UML:Classifier.feature>
        <UML:Attribute xmi.id="1" name="id : int = 7" visibility="private"/><UML:Attribute xmi.id="2" name="String title"/>
        <UML:Attribute xmi.id="3" name="plain"/><UML:Operation xmi.id="4" name="lend(to : B, days : int = 14) : bool"/>
        <UML:Operation xmi.id="5" name="close()"/></UML:Classifier.feature>)xml";
    EXPECT_EQ(read(plantUml(cls12("A", features) + cls12("B"))).outline(), R"(
model PlantUML
  package PlantUML
    class A
      attribute id : int = 7 (private)
      attribute title : String
      attribute plain : unspecified
      operation lend(to : B, days : int = 14) : bool
      operation close()
    class B
type int SQL_INTEGER
type String SQL_VARCHAR
type unspecified unspecified
type bool SQL_BOOLEAN
)"_lines);
}

TEST(XmiDialect, PlantUmlWritesMultiplicitiesAsNamesOfEnds) {
    const auto association = [](const std::string& first, const std::string& second) {
        return R"(<UML:Association name=""><UML:Association.connection><UML:AssociationEnd type="A" name=")" +
               first + R"("/><UML:AssociationEnd type="A" name=")" + second +
               R"("/></UML:Association.connection></UML:Association>)";
    };
    EXPECT_EQ(read(plantUml(cls12("A") + association("0..*", "owner 1") + association("n", "0..N") +
                            association("2,4", "no")))
                  .outline(),
              R"(
model PlantUML
  package PlantUML
    class A
    association
      role : A 0..*
      role owner 1 : A
    association
      role : A *
      role : A 0..*
    association
      role : A 2,4
      role no : A
)"_lines);
}

TEST(XmiDeclaration, OfAFeature) {
    const auto describe = [](const DeclaredFeature& feature) {
        return feature.name + "|" + feature.type + "|" + feature.defaultValue;
    };
    EXPECT_EQ(describe(parseFeature("id : int = 7")), "id|int|7");
    EXPECT_EQ(describe(parseFeature("id:int")), "id|int|");
    EXPECT_EQ(describe(parseFeature("unsigned long size")), "size|unsigned long|");
    EXPECT_EQ(describe(parseFeature("parts : Map<String, List<Part>>")), "parts|Map<String, List<Part>>|");
    EXPECT_EQ(describe(parseFeature("name : std::string")), "name|std::string|");
    EXPECT_EQ(describe(parseFeature("id")), "id||");
    EXPECT_EQ(describe(parseFeature("")), "||");
    EXPECT_EQ(describe(parseFeature(" : = ")), "||");
}

TEST(XmiDeclaration, OfAnOperation) {
    const auto describe = [](const DeclaredOperation& operation) {
        std::string text = operation.name + "|" + operation.result;
        for (const DeclaredFeature& parameter : operation.parameters) {
            text += "|" + parameter.name + ":" + parameter.type;
        }
        return text + (operation.rest.empty() ? "" : "|+ " + operation.rest);
    };
    EXPECT_EQ(describe(parseOperation("f()")), "f|");
    EXPECT_EQ(describe(parseOperation("f(a : int, Map<K, V> b) : void")), "f|void|a:int|b:Map<K, V>");
    EXPECT_EQ(describe(parseOperation("int f(a)")), "f|int|a:");
    EXPECT_EQ(describe(parseOperation("f")), "f|");
    EXPECT_EQ(describe(parseOperation("f(a, b")), "f(a, b|");
    EXPECT_EQ(describe(parseOperation("")), "|");
    EXPECT_EQ(describe(parseOperation("operator()(int a) : bool")), "operator()|bool|a:int");
    EXPECT_EQ(describe(parseOperation("bool operator() (int a) const")), "operator()|bool|a:int|+ const");
    EXPECT_EQ(describe(parseOperation("operator()")), "operator()|");
    EXPECT_EQ(describe(parseOperation("my_operator()")), "my_operator|");
    EXPECT_EQ(describe(parseOperation("f(int a) : bool {query}")), "f|bool|a:int|+ {query}");
    EXPECT_EQ(describe(parseOperation("f() : {a: int}")), "f|{a: int}");
    EXPECT_EQ(describe(parseOperation("f(a) const : a::B throws X")), "f|a::B|a:|+ const throws X");
    EXPECT_EQ(describe(parseOperation("f() throws a::X")), "f||+ throws a::X");
}

TEST(XmiDialect, PlantUmlsAdditionsToOperationsAreLost) {
    const Result result = read(plantUml(cls12("A", R"xml(<UML:Classifier.feature>
        <UML:Operation xmi.id="1" name="size() : int {query}"/><UML:Operation xmi.id="2" name="close() throws X"/>
        </UML:Classifier.feature>)xml")));
    EXPECT_EQ(result.outline(), R"(
model PlantUML
  package PlantUML
    class A
      operation size() : int
      operation close()
type int SQL_INTEGER
)"_lines);
    EXPECT_EQ(result.lossLines(),
              "texts behind parameter lists: A.size() : int {query} ({query})\n"
              "texts behind parameter lists: A.close() throws X (throws X)\n");
}

TEST(XmiEnterpriseArchitect, KeepsDefaultsAndEndsInItsExtension) {
    const Result result = read(enterpriseArchitect(
        cls("A", R"(<ownedAttribute xmi:id="_x" name="x"><type xmi:idref="EAJava_int"/></ownedAttribute>)") +
            cls("B") +
            R"(<packagedElement xmi:type="uml:Association" xmi:id="_j"><memberEnd xmi:idref="EAID_src_1"/>
        <memberEnd xmi:idref="EAID_dst_1"/><ownedEnd xmi:type="uml:Property" xmi:id="EAID_src_1"><type xmi:idref="_A"/>
        </ownedEnd><ownedEnd xmi:type="uml:Property" xmi:id="EAID_dst_1"><type xmi:idref="_B"/></ownedEnd>
        </packagedElement>)",
        R"(<elements><element xmi:idref="_A"><attributes><attribute xmi:idref="_x"><initial body="3"/></attribute>
        </attributes></element></elements><connectors><connector xmi:idref="_j"><source xmi:idref="_A">
        <documentation value="Where it begins."/></source><target xmi:idref="_B"><role stereotype="ref"/></target>
        </connector></connectors>)"));
    EXPECT_EQ(result.outline(), R"(
model m
  package m
    class A
      attribute x : int = 3
    class B
    association
      role : A "Where it begins."
      role : B «ref»
type int SQL_INTEGER
)"_lines);
}

}  // namespace
}  // namespace xmi_test
