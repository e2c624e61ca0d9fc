// What is told of documents that are not well-formed.

#include <gmock/gmock.h>

#include "Documents.h"

namespace {

using namespace check_test;
using testing::ElementsAre;
using testing::HasSubstr;

struct CutOff {
    const char* description;
    std::string end;  ///< what is left of the view's content
    const char* within;
};

class DocumentCheckOfHalfADocument : public testing::TestWithParam<CutOff> {};

TEST_P(DocumentCheckOfHalfADocument, TellsThatItWasCutOff) {
    const std::string whole = frame("");
    const std::string document = whole.substr(0, whole.find("</uml:NamespaceOwnedElement>")) + GetParam().end;
    for (const std::size_t step : {std::size_t{1}, document.size()}) {
        const Result result = check(document, step);
        ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
        EXPECT_EQ(textOf(result.findings[0]), "not well-formed: the document ends in the middle of \"" +
                                                  std::string(GetParam().within) +
                                                  "\"; it was probably cut off");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckOfHalfADocument,
    testing::Values(
        CutOff{"between tags", "", "uml:NamespaceOwnedElement"},
        CutOff{"at the start of a tag", "<", "uml:NamespaceOwnedElement"},
        CutOff{"in a name", "<uml:Mo", "uml:NamespaceOwnedElement"},
        CutOff{"behind a name", "<uml:Model ", "uml:NamespaceOwnedElement"},
        CutOff{"behind an attribute's name", "<uml:Model oim:id", "uml:NamespaceOwnedElement"},
        CutOff{"before a value", "<uml:Model oim:id=", "uml:NamespaceOwnedElement"},
        CutOff{"in a value", "<uml:Model oim:id=\"_2", "uml:NamespaceOwnedElement"},
        CutOff{"behind a value", "<uml:Model oim:id=\"_2\"", "uml:NamespaceOwnedElement"},
        CutOff{"before the end of a tag", "<uml:Model oim:id=\"_2\"/", "uml:NamespaceOwnedElement"},
        CutOff{"in a character", "<uml:Model name=\"\xe2\x82", "uml:NamespaceOwnedElement"},
        CutOff{"in a reference", "<uml:Model name=\"&am", "uml:NamespaceOwnedElement"},
        CutOff{"in an element", "<uml:Model oim:id=\"_2\">\n", "uml:Model"},
        CutOff{"in an end tag", "<uml:Model oim:id=\"_2\"></uml:Mod", "uml:Model"},
        CutOff{"before the end of an end tag", "<uml:Model oim:id=\"_2\"></uml:Model", "uml:Model"},
        CutOff{"in a comment", "<!-- and so", "uml:NamespaceOwnedElement"},
        CutOff{"in a section", "<![CDATA[ ", "uml:NamespaceOwnedElement"}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, TellsOfADocumentThatItWasCutOffBeforeItsFirstTagEnds) {
    for (std::size_t length = 5; length < DECLARATION.size() + ROOT.size() - 2; ++length) {
        EXPECT_THAT(
            check((DECLARATION + ROOT).substr(0, length)).findings,
            ElementsAre(HasSubstr(
                "not well-formed: the document ends before its first tag does; it was probably cut off")))
            << length;
    }
}

struct BadXml {
    const char* description;
    const char* content;
    const char* expected;
};

class DocumentCheckOfBadXml : public testing::TestWithParam<BadXml> {};

TEST_P(DocumentCheckOfBadXml, TellsInWordsWhatIsWrong) {
    const Result result = check(frame(GetParam().content));
    ASSERT_FALSE(result.findings.empty());
    EXPECT_EQ(textOf(result.findings.back()), "not well-formed: " + std::string(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckOfBadXml,
    testing::Values(
        BadXml{"a control character", "<uml:Model oim:id=\"_2\" name=\"\x01\"/>",
               "a character that XML does not permit"},
        BadXml{"a reference to none", "<uml:Model oim:id=\"_2\" name=\"&#xZ;\"/>",
               "a character reference that names no character"},
        BadXml{"an ampersand", "<uml:Model oim:id=\"_2\" name=\"a & b\"/>",
               "a name is expected and does not stand here; in texts, \"<\" is written &lt; and \"&\" is "
               "written &amp;"},
        BadXml{"an ampersand before a word", "<uml:Model oim:id=\"_2\" name=\"a &b\"/>",
               "a reference without a \";\" at its end; in texts, \"&\" is written &amp;"},
        BadXml{
            "an angle bracket", "<uml:Model oim:id=\"_2\" name=\"a < b\"/>",
            "a \"<\" in the value of an attribute; it is written &lt;, or a quotation mark is missing before "
            "it"},
        BadXml{
            "a value without its end", "<uml:Model oim:id=\"_2/>",
            "a \"<\" in the value of an attribute; it is written &lt;, or a quotation mark is missing before "
            "it"},
        BadXml{"a value without its beginning", "<uml:Model oim:id=_2/>",
               "the value of an attribute does not begin with a quotation mark"},
        BadXml{"no value", "<uml:Model oim:id/>", "an attribute without a value"},
        BadXml{"no blank between attributes", "<uml:Model oim:id=\"_2\"name=\"m\"/>",
               "a blank is missing, as between two attributes"},
        BadXml{"a declaration in the middle", "<?xml version=\"1.0\"?>",
               "an XML declaration that is not the very beginning of the document"},
        BadXml{"the end of no section", "]]>", "\"]]>\" without a section that it ends"},
        BadXml{"hyphens in a comment", "<!-- a -- b -->", "\"--\" in a comment"}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, TellsTheLineOfBytesThatAreNotUtf8) {
    const Result result = check(frame("<uml:Model oim:id=\"_2\" name=\"\xff\"/>"));
    EXPECT_THAT(result.findings, ElementsAre("error 6:30 not well-formed: bytes that are not UTF-8"));
}

}  // namespace
