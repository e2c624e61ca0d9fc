// The element operations, one by one: what each of them writes, to the byte.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;

class Elements : public ::testing::Test {
  protected:
    void indent(const char* unit) { bridge.indentationUnit_ = unit; }
    /// An element of a model object whose start tag is done.
    void start(const char* tag, ZORModelObject* object, bool empty = false) {
        bridge.startTag(tag, object, UML, false);
        bridge.closeTag(empty);
    }

    TestBridge bridge{nullptr};
};

struct NamedClass : ZORClass {
    explicit NamedClass(const char* name, const char* physicalName = "") {
        setName(name);
        setPhysicalName(physicalName);
    }
};

TEST_F(Elements, AnObjectWithAttributesAndAReferenceIsLaidOutOneAttributeALine) {
    NamedClass customer("Customer");
    customer.setDescription("A buyer");
    NamedClass feature("feature");
    bridge.nextId_ = 12;
    indent("  ");
    bridge.startTag("root", false);
    bridge.startTag("uml:Class", &customer, UML, false);
    bridge.propertyAttribute("isAbstract", false, true);
    bridge.closeTag(false);
    bridge.linkTag("uml:ClassifierFeature", &feature, UML);
    bridge.endTag("uml:Class");
    bridge.endTag("root");
    EXPECT_EQ(bridge.text(), R"xml(
<root>
  <uml:Class oim:id="_12" name="Customer"
    description="A buyer"
    isAbstract="0"
  >
    <uml:ClassifierFeature oim:href="#_13"/>
  </uml:Class>
</root>
)xml"_lines);
}

TEST_F(Elements, WithoutIndentationTheLinesAreTheSameWithoutBlanksInFront) {
    NamedClass customer("Customer");
    customer.setDescription("A buyer");
    bridge.startTag("root", false);
    bridge.startTag("uml:Class", &customer, UML, false);
    bridge.propertyAttribute("isAbstract", false, true);
    bridge.closeTag(false);
    EXPECT_TRUE(bridge.currentIndentation_.isEmpty());
    bridge.linkTag("uml:ClassifierFeature", 7);
    bridge.endTag("uml:Class");
    bridge.endTag("root");
    EXPECT_TRUE(bridge.currentIndentation_.isEmpty());
    EXPECT_EQ(bridge.text(), R"xml(
<root>
<uml:Class oim:id="_1" name="Customer"
description="A buyer"
isAbstract="0"
>
<uml:ClassifierFeature oim:href="#_7"/>
</uml:Class>
</root>
)xml"_lines);
}

TEST_F(Elements, AnElementWithoutAttributeLinesStandsOnOneLine) {
    NamedClass customer("Customer");
    start("uml:Class", &customer);
    bridge.endTag("uml:Class");
    EXPECT_EQ(bridge.text(), "<uml:Class oim:id=\"_1\" name=\"Customer\">\n</uml:Class>\n");
}

TEST_F(Elements, AnEmptyElementIsClosedOnItsLine) {
    NamedClass x("x");
    bridge.nextId_ = 5;
    start("tag", &x, true);
    EXPECT_EQ(bridge.text(), "<tag oim:id=\"_5\" name=\"x\"/>\n");
}

TEST_F(Elements, AnEmptyElementGivesItsIndentationBack) {
    NamedClass x("x");
    indent("\t");
    bridge.startTag("root", false);
    start("tag", &x, true);
    start("tag", &x, true);
    bridge.endTag("root");
    EXPECT_EQ(bridge.text(),
              "<root>\n\t<tag oim:id=\"_1\" name=\"x\"/>\n\t<tag oim:id=\"_1\" name=\"x\"/>\n</root>\n");
    EXPECT_TRUE(bridge.currentIndentation_.isEmpty());
}

TEST_F(Elements, AnEmptyElementWithAttributesEndsWithALineOfItsOwn) {
    NamedClass x("x");
    indent("  ");
    bridge.startTag("root", false);
    bridge.startTag("tag", &x, UML, false);
    bridge.propertyAttribute("size", 3);
    bridge.closeTag(true);
    bridge.endTag("root");
    EXPECT_EQ(bridge.text(), R"xml(
<root>
  <tag oim:id="_1" name="x"
    size="3"
  />
</root>
)xml"_lines);
}

TEST_F(Elements, TheClosingMarkBehindAttributesStandsAtTheElementsOwnLevel) {
    indent("    ");
    bridge.startTag("outer", false);
    bridge.startTag("inner", true);
    bridge.propertyAttribute("a", "1");
    bridge.closeTag(false);
    bridge.startTag("child", false);
    bridge.endTag("child");
    bridge.endTag("inner");
    bridge.endTag("outer");
    EXPECT_EQ(bridge.text(), R"xml(
<outer>
    <inner
        a="1"
    >
        <child>
        </child>
    </inner>
</outer>
)xml"_lines);
}

TEST_F(Elements, AnEmptyTextIsLeftOutOrWrittenAsAsked) {
    bridge.startTag("tag", true);
    bridge.propertyAttribute("skipped", ZORString(), true);
    bridge.propertyAttribute("name", ZORString(), false);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), "<tag\nname=\"\"\n/>\n");
}

TEST_F(Elements, ALeftOutAttributeDoesNotEndTheTagsLine) {
    bridge.startTag("tag", true);
    bridge.propertyAttribute("skipped", ZORString(), true);
    bridge.propertyAttribute("skipped", static_cast<const char*>(nullptr));
    bridge.propertyAttribute("skipped", false, false);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), "<tag/>\n");
}

TEST_F(Elements, AWordOfTheProgramIsWrittenVerbatimAndOnlyLeftOutWhenNull) {
    bridge.startTag("tag", true);
    bridge.propertyAttribute("url", "http://a/?b&c");
    bridge.propertyAttribute("none", static_cast<const char*>(nullptr));
    bridge.propertyAttribute("empty", "");
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), "<tag\nurl=\"http://a/?b&c\"\nempty=\"\"\n/>\n");
}

TEST_F(Elements, NumbersAreDecimalAndZeroIsWritten) {
    bridge.startTag("tag", true);
    bridge.propertyAttribute("zero", 0);
    bridge.propertyAttribute("least", -2147483647 - 1);
    bridge.propertyAttribute("most", 2147483647);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), "<tag\nzero=\"0\"\nleast=\"-2147483648\"\nmost=\"2147483647\"\n/>\n");
}

TEST_F(Elements, FalseIsWrittenOnlyWhenForced) {
    bridge.startTag("tag", true);
    bridge.propertyAttribute("a", false, false);
    bridge.propertyAttribute("b", false, true);
    bridge.propertyAttribute("c", true, false);
    bridge.propertyAttribute("d", true, true);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), "<tag\nb=\"0\"\nc=\"1\"\nd=\"1\"\n/>\n");
}

TEST_F(Elements, TextsOfTheModelAreEscaped) {
    NamedClass cls("a<b>\"c\"&'d'");
    cls.setDescription("line one\nline two\t\r");
    cls.setComments("\xC3\xA9 \xE2\x82\xAC");
    bridge.startTag("tag", &cls, UML, false);
    bridge.propertyAttribute("text", ZORString("1 < 2 && \"x\""), true);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), R"xml(
<tag oim:id="_1" name="a&lt;b&gt;&quot;c&quot;&amp;'d'"
description="line one&#10;line two&#9;&#13;"
comments=")xml"_lines + "\xC3\xA9 \xE2\x82\xAC" +
                                 R"xml("
text="1 &lt; 2 &amp;&amp; &quot;x&quot;"
/>
)xml");
}

TEST_F(Elements, DescriptionAndCommentsAreTheFirstAttributes) {
    NamedClass cls("C");
    cls.setComments("why");
    cls.setDescription("what");
    bridge.startTag("tag", &cls, UML, false);
    bridge.propertyAttribute("own", 1);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(),
              "<tag oim:id=\"_1\" name=\"C\"\ndescription=\"what\"\ncomments=\"why\"\nown=\"1\"\n/>\n");
}

TEST_F(Elements, AReferenceToAnObjectWrittenLaterHasItsNumber) {
    NamedClass later("Later");
    NamedClass other("Other");
    bridge.linkTag("ref", &later, ERD);
    bridge.linkTag("ref", &later, ERD);
    bridge.startTag("other", &other, ERD, false);
    bridge.closeTag(true);
    bridge.startTag("later", &later, ERD, false);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), R"xml(
<ref oim:href="#_1"/>
<ref oim:href="#_1"/>
<other oim:id="_2" name="Other"/>
<later oim:id="_1" name="Later"/>
)xml"_lines);
}

TEST_F(Elements, AReferenceToAKnownNumberTakesNone) {
    bridge.linkTag("ref", 40);
    EXPECT_EQ(bridge.text(), "<ref oim:href=\"#_40\"/>\n");
    EXPECT_EQ(bridge.getUniqueID(), 1);
}

struct NameRule {
    const char* description;
    const char* name;
    const char* physicalName;
    MDCSubjectArea area;
    bool unnamed;
    const char* written;
};

class NameOfAnObject : public ::testing::TestWithParam<NameRule> {};

TEST_P(NameOfAnObject, FollowsTheArea) {
    TestBridge bridge(nullptr);
    bridge.nextId_ = 9;
    NamedClass cls(GetParam().name, GetParam().physicalName);
    bridge.startTag("tag", &cls, GetParam().area, GetParam().unnamed);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), std::string("<tag oim:id=\"_9\"") + GetParam().written + "/>\n");
}

INSTANTIATE_TEST_SUITE_P(
    Rules, NameOfAnObject,
    ::testing::Values(
        NameRule{"PhysicalNameInDbm", "Customer", "CUST", DBM, false, " name=\"CUST\""},
        NameRule{"NameInDbmWithoutPhysicalName", "Customer", "", DBM, true, " name=\"Customer\""},
        NameRule{"NameInErd", "Customer", "CUST", ERD, true, " name=\"Customer\""},
        NameRule{"NameInUml", "Customer", "CUST", UML, true, " name=\"Customer\""},
        NameRule{"PhysicalNameAloneInErd", "", "CUST", ERD, false, ""},
        NameRule{"PhysicalNameAloneInErdWithFallback", "", "CUST", ERD, true, " name=\"unnamed$9\""},
        NameRule{"NoNameWithFallback", "", "", DBM, true, " name=\"unnamed$9\""},
        NameRule{"NoNameWithoutFallback", "", "", DBM, false, ""}),
    [](const auto& test) { return test.param.description; });

TEST_F(Elements, AnElementWithAGivenNumberKeepsItAndAZeroTakesAFreshOne) {
    bridge.nextId_ = 3;
    bridge.startTag("given", nullptr, 40, false, false);
    bridge.startTag("fresh", nullptr, 0, false, false);
    bridge.startTag("fresh", nullptr, 0, false, false);
    EXPECT_EQ(bridge.text(), "<given oim:id=\"_40\">\n<fresh oim:id=\"_3\">\n<fresh oim:id=\"_4\">\n");
}

TEST_F(Elements, AnElementWithAGivenNumberTakesNameAndTextsOfItsObjectButNeverThePhysicalName) {
    NamedClass cls("Customer", "CUST");
    cls.setDescription("A buyer");
    bridge.startTag("tag", &cls, 7, true, true);
    bridge.closeTag(true);
    NamedClass nameless("", "CUST");
    bridge.startTag("tag", &nameless, 8, true, true);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(), R"xml(
<tag oim:id="_7" name="Customer"
description="A buyer"
/>
<tag oim:id="_8"/>
)xml"_lines);
    EXPECT_EQ(cls.getGeneralPointer(), nullptr) << "the number is not the object's own";
}

TEST_F(Elements, AnElementWithoutAnObjectIsCalledUnnamedOnlyWhenAsked) {
    bridge.startTag("tag", nullptr, 7, true, false);
    bridge.startTag("tag", nullptr, 8, false, false);
    EXPECT_EQ(bridge.text(), "<tag oim:id=\"_7\" name=\"unnamed$7\">\n<tag oim:id=\"_8\">\n");
}

TEST_F(Elements, ATagMayCarryAttributesOfItsOwn) {
    bridge.startTag("uml:Abstraction name=\"Derived\"", nullptr, 0, false, false);
    EXPECT_EQ(bridge.text(), "<uml:Abstraction name=\"Derived\" oim:id=\"_1\">\n");
}

TEST_F(Elements, ClosingAnElementDoesNotReopenTheAttributesOfAnother) {
    // An attribute after an end tag would go to the enclosing start tag's state: every start tag sets it
    // anew.
    bridge.startTag("a", true);
    bridge.propertyAttribute("x", 1);
    bridge.closeTag(false);
    bridge.startTag("b", true);
    bridge.closeTag(true);
    bridge.endTag("a");
    EXPECT_EQ(bridge.text(), "<a\nx=\"1\"\n>\n<b/>\n</a>\n");
}

TEST_F(Elements, EveryLineIsFlushedForTheHostThatAsksForIt) {
    auto record = std::make_shared<SinkRecord>();
    bridge.file_.open(std::make_unique<MemorySink>(record));
    bridge.startTag("a", true);
    bridge.propertyAttribute("x", 1);
    bridge.closeTag(true);
    EXPECT_EQ(record->writes, (std::vector<std::string>{"<a\n", "x=\"1\"\n", "/>\n"}));
}

TEST_F(Elements, CharactersThatXmlForbidsAreReplacedAndCounted) {
    NamedClass cls(
        "a\x01"
        "b\xC3");
    cls.setDescription("\xFF\xFE");
    bridge.startTag("tag", &cls, UML, false);
    bridge.closeTag(true);
    EXPECT_EQ(bridge.text(),
              "<tag oim:id=\"_1\" name=\"a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\"\ndescription=\"\xEF\xBF\xBD\xEF\xBF\xBD\"\n/>\n");
    EXPECT_EQ(bridge.getConversionFailureCount(), 4);
    EXPECT_EQ(bridge.getFailedTextCount(), 2);
}

}  // namespace
