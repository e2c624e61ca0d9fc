// Files that are damaged or ask for too much: each is refused with a sentence.

#include <gtest/gtest.h>

#include "Fragments.h"
#include "Reader.h"
#include "xmi/XmiReader.h"

namespace xmi_test {
namespace {

using readers::SourceError;

/// What the reader says to the file; empty when it takes it.
std::string refusal(const std::string& text) {
    try {
        read(text);
        return {};
    } catch (const SourceError& error) {
        EXPECT_EQ(error.kind(), SourceError::Kind::CANNOT_READ);
        return error.what();
    }
}

class XmiRefusal : public testing::TestWithParam<Case> {};

TEST_P(XmiRefusal, IsASentence) {
    EXPECT_EQ(refusal(GetParam().file), GetParam().expected);
}

std::string child(const std::string& name, const std::string& parent) {
    return "\n" + cls(name, "<generalization xmi:id=\"_g" + name + "\" general=\"_" + parent + "\"/>");
}

std::string dataType(const std::string& name, const std::string& base) {
    return "\n<packagedElement xmi:type=\"uml:DataType\" xmi:id=\"_" + name + "\" name=\"" + name +
           "\"><generalization general=\"_" + base + "\"/></packagedElement>";
}

std::string repeat(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

std::string flat(const std::string& elements) {
    return "<XMI xmi.version=\"1.1\" xmlns:UML=\"//org.omg/UML/1.3\"><XMI.content>" + elements +
           "</XMI.content></XMI>";
}

const std::string SOUND = eclipse(cls("A"));

std::string withDocumentType(const std::string& type) {
    return type + SOUND.substr(SOUND.find('\n') + 1);
}

const std::string NOT_PERMITTED = "line 3: there is a character that XML does not permit";
/// The text, all of it ASCII, with its encoding declared in its marks.
std::string inUtf16(const std::string& text) {
    std::string wide = "\xFF\xFE";
    for (const char character : text.substr(text.find('\n') + 1)) {
        wide += {character, '\0'};
    }
    return wide;
}

constexpr auto SURPLUS = ": there is something behind the end of the outermost element";
constexpr auto CUT_OFF = ": the file ends in the middle of an element";

const std::vector<Case> TEXTS = {
    {"Nothing", "", "there is nothing in it"},
    {"Blanks", " \n\t ", "there is nothing in it"},
    {"APdf", "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n", "this is not XML: it begins with \"%PDF-1.4\""},
    {"Bytes", std::string("\x01\x02\x03", 3), "this is not XML: it begins with bytes that are no text"},
    {"CutOffBetweenElements", SOUND.substr(0, SOUND.find("</uml:Model>")), std::string("line 3") + CUT_OFF},
    {"CutOffInAnElement", SOUND.substr(0, SOUND.find("uml:Class") + 3), std::string("line 3") + CUT_OFF},
    {"CutOffInTheLastTag", SOUND.substr(0, SOUND.size() - 4), std::string("line 3") + CUT_OFF},
    {"AnElementBehindTheModel", SOUND + "\n<x/>", std::string("line 4") + SURPLUS},
    {"AnEndBehindTheModel", SOUND + "\n</xmi:XMI>", std::string("line 4") + SURPLUS},
    {"TextBehindTheModel", SOUND + "\nand more", std::string("line 4") + SURPLUS},
    {"ASecondFileBehindTheModel", SOUND + "\n" + SOUND, std::string("line 4") + SURPLUS},
    {"TagsThatDoNotMatch", eclipse("<packagedElement></ownedElement>"),
     "line 3: this is not well-formed XML: Opening and ending tag mismatch: packagedElement line 3 and "
     "ownedElement"},
    {"BytesOfAnotherEncoding",
     eclipse(cls("Gr\xF6\xDF"
                 "e")),
     "line 3: there are bytes that are no text in the file's encoding, which is UTF-8"},
    {"BytesThatTheEncodingLeavesFree",
     "<?xml version=\"1.0\" encoding=\"windows-1252\"?>" +
         SOUND.substr(SOUND.find('\n'), SOUND.find("uml:Class") - SOUND.find('\n')) + "\x81" + SOUND,
     "there are bytes that are no text in the file's encoding, which is windows-1252"},
    {"AControlCharacterByNumber", eclipse(cls("A&#1;")), NOT_PERMITTED + " (U+0001)"},
    {"AControlCharacterInAText", eclipse("<body>\x1B</body>"), NOT_PERMITTED + " (U+001B)"},
    {"AControlCharacterInAnAttribute", eclipse(cls("A\x02")), NOT_PERMITTED},
    {"AControlCharacterInASection", eclipse("<body><![CDATA[\x02]]></body>"), NOT_PERMITTED},
    {"ACharacterThatIsNone", eclipse("<body>\xEF\xBF\xBE</body>"), NOT_PERMITTED + " (U+FFFE)"},
    {"AZeroByte", eclipse(cls(std::string("A\0", 2))), NOT_PERMITTED},
    {"AnEncodingThatNobodyKnows",
     "<?xml version=\"1.0\" encoding=\"klingon\"?>" + SOUND.substr(SOUND.find('\n')),
     "line 1: the encoding that the file declares, klingon, is not known here"},
    {"EntitiesThatGrow",
     withDocumentType("<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>\n"),
     "the file brings a document type (<!DOCTYPE ...>), and those are not read"},
    {"EntitiesOfOtherFiles",
     withDocumentType("<!-- a comment first --><!DOCTYPE x SYSTEM \"file:///etc/passwd\">\n"),
     "the file brings a document type (<!DOCTYPE ...>), and those are not read"},
    {"EntitiesThatAreNotDefined", eclipse(cls("&a;")),
     "line 3: this is not well-formed XML: Entity 'a' not defined"},
    {"ElementsNestedTooDeep",
     eclipse(repeat("<packagedElement xmi:type=\"uml:Package\">", 300) + repeat("</packagedElement>", 300)),
     "line 3: elements are nested deeper than 250 levels, the most permitted"},
};

const std::vector<Case> MODELS = {
    {"AnIdForTwoElements",
     eclipse(cls("A") + "\n" + "<packagedElement xmi:type=\"uml:Class\" xmi:id=\"_A\" name=\"B\"/>"),
     "the id \"_A\" belongs to two elements: A (line 3) and B (line 4)"},
    {"AnIdForTwoElementsThatHoldSomething",
     umbrello(cls12("A", "<UML:Classifier.feature/>") + cls12("A", R"(<UML:ModelElement.comment>
        <UML:Comment xmi.id="k"/></UML:ModelElement.comment>)")),
     "the id \"A\" belongs to two elements: Logical View.A (line 5) and Logical View.A (line 5)"},
    {"ACycleOfGeneralizations", eclipse(child("A", "B") + child("B", "C") + child("C", "A")),
     "generalizations lead back to where they begin: A (line 4) -> B (line 5) -> C (line 6) -> A"},
    {"AClassThatIsItsOwnParent", eclipse(child("A", "A")),
     "generalizations lead back to where they begin: A (line 4) -> A"},
    {"ACycleOfDataTypes", eclipse(dataType("T", "U") + dataType("U", "T")),
     "generalizations lead back to where they begin: T (line 4) -> U (line 5) -> T"},
    {"ACycleOfPackages", flat(R"(<UML:Package xmi.id="p" name="P" namespace="q"/>
<UML:Package xmi.id="q" name="Q" namespace="p"/>)"),
     "packages stand in each other: P (line 1) -> Q (line 2) -> P"},
    {"PackagesThatStandTooDeepByReference",
     [] {
         std::string packages;
         for (int i = 0; i < 300; ++i) {
             packages += "<UML:Package xmi.id=\"p" + std::to_string(i) + "\" namespace=\"p" +
                         std::to_string(i + 1) + "\"/>";
         }
         return flat(packages);
     }(),
     "packages are nested deeper than 250 levels, the most permitted"},
    {"MentionedPackagesThatStandTooDeep",
     plantUml(cls12("A", "", "namespace=\"" + repeat("p.", 300) + "q\"")),
     "packages are nested deeper than 250 levels, the most permitted"},
};

INSTANTIATE_TEST_SUITE_P(Texts, XmiRefusal, testing::ValuesIn(TEXTS), caseName);
INSTANTIATE_TEST_SUITE_P(Models, XmiRefusal, testing::ValuesIn(MODELS), caseName);

TEST(XmiRefusalOfLargeFiles, IsASentence) {
    const std::vector<Case> files = {
        {"ElementsNestedFarTooDeepBehindALongComment",
         "<a><!--" + std::string(1000000, 'x') + "-->" + repeat("<a>", 100000) + repeat("</a>", 100001),
         "line 1: elements are nested deeper than 250 levels, the most permitted"},
        {"TagsThatDoNotMatchBehindALongComment",
         eclipse("<!--" + std::string(1000000, 'x') + "-->\n<packagedElement></ownedElement>"),
         "line 4: this is not well-formed XML: Opening and ending tag mismatch: packagedElement line 4 and "
         "ownedElement"},
        {"ATextThatIsTooLongForItsEncoding",
         inUtf16(eclipse("<body>" + std::string(11000000, 'x') + "</body>")),
         "a text, an attribute or a comment is longer than 10 MB"},
        {"ElementsNestedFarTooDeep", repeat("<a>", 100000),
         "line 1: elements are nested deeper than 250 levels, the most permitted"},
        {"DependenciesOfManyOnMany",
         [] {
             std::string classes;
             std::string ids;
             for (int i = 0; i < 1001; ++i) {
                 classes += cls("C" + std::to_string(i));
                 ids += "_C" + std::to_string(i) + " ";
             }
             return eclipse(classes +
                            R"(<packagedElement xmi:type="uml:Dependency" xmi:id="_d" name="D" client=")" +
                            ids + "\" supplier=\"" + ids + "\"/>");
         }(),
         "D: the dependencies of several clients and suppliers come to more than 1000000 relationships "
         "between "
         "classes"},
        {"ALongCommentAboutMany",
         [] {
             std::string classes;
             std::string ids;
             for (int i = 0; i < 300; ++i) {
                 classes += cls("C" + std::to_string(i));
                 ids += "_C" + std::to_string(i) + " ";
             }
             return eclipse(classes + R"(<ownedComment xmi:id="_k" annotatedElement=")" + ids + "\"><body>" +
                            std::string(1000000, 'x') + "</body></ownedComment>");
         }(),
         "the texts of comments, constraints and dependencies that are about many elements come to more than "
         "256 "
         "MB "
         "when each element gets its own"},
    };
    for (const Case& file : files) {
        EXPECT_EQ(refusal(file.file), file.expected) << file.fact;
    }
}

TEST(XmiCutOff, WhereverItIsGivesASentence) {
    const std::string file = umbrello(
        cls12(
            "A",
            R"(<UML:Classifier.feature><UML:Attribute xmi.id="x" name="x" type="A"/></UML:Classifier.feature>)") +
        R"(<UML:Generalization xmi.id="g" child="A" parent="B"/>)" + cls12("B"));
    for (std::size_t length = 0; length < file.size(); ++length) {
        EXPECT_NE(refusal(file.substr(0, length)), "") << "cut off behind " << file.substr(0, length);
    }
}

/// Behind a long prolog the parser sees a document type first; its entities must not grow then.
TEST(XmiDocumentType, IsRefusedBeforeItsEntitiesGrow) {
    std::string type = "<!DOCTYPE x [<!ENTITY a0 \"aaaaaaaaaaaaaaaaaaaa\">";
    for (char i = '1'; i <= '9'; ++i) {
        const std::string inner = std::string("&a") + static_cast<char>(i - 1) + ";";
        type += std::string("<!ENTITY a") + i + " \"" + repeat(inner, 10) + "\">";
    }
    type += "<!ATTLIST packagedElement z CDATA \"&a9;\">]>";
    EXPECT_NE(refusal("<!--" + std::string(2000000, 'x') + "-->" + withDocumentType(type)), "");
}

/// Long texts take another way through the parser, to the same end.
TEST(XmiLongSections, AreRead) {
    const std::string longText = repeat("long > short &lt;", 700000);
    const std::string comment = "<!--" + longText + "-->";
    const std::string attribute = R"(<ownedAttribute xmi:id="_x" name="x" type="_A"></ownedAttribute>)";
    const std::string sound =
        cls("A", attribute + "<ownedComment xmi:id=\"_k\"><body>text</body></ownedComment>");
    EXPECT_EQ(read(eclipse(comment + sound)).outline(), read(eclipse(sound)).outline());
    const std::string expected = repeat("long > short <", 700000);
    for (const std::string& file :
         {eclipse(cls("A", "<ownedComment><body>" + longText + "</body></ownedComment>")),
          eclipse(cls("A", "<ownedComment body=\"" + longText + "\"/>"))}) {
        const Result result = read(file);
        const auto* package = static_cast<const ZORDesignPackage*>(result.model->getChildPackages()[0]);
        EXPECT_EQ(package->getModelElements()[0]->getNotes()[0]->getDescription().view(), expected);
    }
}

TEST(XmiLongSections, LeaveFarLinesKnownAsFarAsTheParserCounts) {
    const std::string file = eclipse("<!--" + std::string(1000000, 'x') + "-->" + std::string(100000, '\n') +
                                     "<packagedElement xmi:type=\"uml:UseCase\"/>\n");
    EXPECT_EQ(read(file).lossLines(), "use cases: (unnamed use case in line 65535)\n");
}

/// A file without classes is sound; why there are none is told.
TEST(XmiEmptiness, IsExplained) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {eclipse(""), "m: there is no class in the model, nor a data type\n"},
        {eclipse(stringType()), "m: there is no class in the model, only data types\n"},
        {"<html><body/></html>",
         "file: there is no UML model in the file; its outermost element is <html>\n"},
        {R"(<xmi:XMI xmlns:xmi="http://www.omg.org/spec/XMI/20131001"/>)",
         "file: there is no UML model in the file; its outermost element is <XMI>\n"},
    };
    for (const auto& [file, warning] : rows) {
        EXPECT_EQ(read(file).warningLines(), warning);
    }
}

TEST(XmiEmptiness, IsNoneWhereAClassStandsDeepInside) {
    const std::string package = "<packagedElement xmi:type=\"uml:Package\" name=\"p\">";
    EXPECT_EQ(
        read(eclipse(repeat(package, 100) + cls("A") + repeat("</packagedElement>", 100))).warningLines(),
        "");
}

}  // namespace
}  // namespace xmi_test
