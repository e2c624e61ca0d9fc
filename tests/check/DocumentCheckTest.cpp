// How a document is read, whatever stands in it.

#include <gmock/gmock.h>

#include "Documents.h"

namespace {

using namespace check_test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(DocumentCheck, TellsWhereTheTagOfAFaultBegins) {
    EXPECT_THAT(
        check(packaged("<uml:Package oim:id=\"_2\" name=\"p\"/>\n  <uml:Clas oim:id=\"_3\"/>")).findings,
        ElementsAre("error 7:3 unknown element \"uml:Clas\""));
    EXPECT_THAT(check(packaged("<uml:Package oim:id=\"_2\" name=\"\u00e4\"/> <uml:Package oim:id=\"_3\"\n  "
                               "name=\"p\" colour=\"red\"\n/>"))
                    .findings,
                ElementsAre("error 6:37 unknown attribute \"colour\" of \"uml:Package\""));
}

struct Text {
    const char* description;
    const char* content;
    const char* expected;
};

class DocumentCheckPlacesText : public testing::TestWithParam<Text> {};

TEST_P(DocumentCheckPlacesText, WhereItBegins) {
    const std::string document = packaged("<uml:Package oim:id=\"_2\" name=\"p\">\n" +
                                          std::string(GetParam().content) + "</uml:Package>");
    for (const std::size_t step : {std::size_t{1}, std::size_t{7}, document.size()}) {
        const Result result = check(document, step);
        ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
        EXPECT_THAT(result.findings[0], testing::StartsWith(GetParam().expected)) << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DocumentCheckPlacesText,
                         testing::Values(Text{"one line", "hello", "error 7:1 text"},
                                         Text{"behind blanks", "  hello\n\n  ", "error 7:3 text"},
                                         Text{"behind lines", "\n \n\thello\nworld\n", "error 9:2 text"},
                                         Text{"on several lines", "hello\nworld", "error 7:1 text"},
                                         Text{"with other letters", "  \u00e4h\nhello", "error 7:3 text"},
                                         Text{"behind a comment", "<!-- a\n -->  hello", "error 8:7 text"},
                                         Text{"behind an element", " <uml:NamespaceOwnedElement/>\n hello",
                                              "error 8:2 text"},
                                         Text{"a reference", "  &amp;\n ", "error 7:3 text"},
                                         Text{"a section", "<![CDATA[\n  hello\n\n]]>", "error 8:3 text"}),
                         [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, ShortensWhatItQuotesBetweenCharacters) {
    std::string name = "a";
    for (int i = 0; i < 100; ++i) {
        name += "\u00e4";
    }
    const Result result = check(frame("<uml:Model oim:id=\"" + name + "\"/>"));
    EXPECT_THAT(result.findings,
                ElementsAre(HasSubstr("\"" + name.substr(0, 59) + "...\" is not of the form")));
}

struct BadFrame {
    const char* description;
    std::string document;
    std::vector<std::string> expected;
};

class DocumentCheckFrame : public testing::TestWithParam<BadFrame> {};

TEST_P(DocumentCheckFrame, IsTold) {
    EXPECT_EQ(check(GetParam().document).findings, GetParam().expected);
}

/// The characters of ASCII as UTF-16, low byte first.
std::string widened(const std::string& text) {
    std::string wide = "\xFF\xFE";
    for (const char character : text) {
        wide.append({character, '\0'});
    }
    return wide;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckFrame,
    testing::Values(
        BadFrame{"nothing", "", {"error 1:1 not well-formed: there is nothing in the document"}},
        BadFrame{"zeros", std::string(100, '\0'), {"error 1:1 not well-formed: this is no XML"}},
        BadFrame{"other tags at the end",
                 DECLARATION + ROOT + "<oim:TransferHeader></b>",
                 {"error 3:1 the element \"oim:TransferHeader\" has no attribute \"Exporter\"",
                  "error 3:1 the element \"oim:TransferHeader\" has no attribute \"ExporterVersion\"",
                  "error 3:1 the element \"oim:TransferHeader\" has no attribute \"TransferDateTime\"",
                  "error 3:25 not well-formed: an end tag where that of \"oim:TransferHeader\", which line 3 "
                  "opened, is expected"}},
        BadFrame{"an early end",
                 DECLARATION + ROOT + HEADER,
                 {"error 3:78 not well-formed: the document ends in the middle of \"oim:Transfer\"; it was "
                  "probably cut off"}},
        BadFrame{"an attribute twice",
                 DECLARATION + ROOT + HEADER + "<uml:Subsystem name=\"S\" name=\"S\"/>",
                 {"error 4:33 not well-formed: the attribute \"name\" stands in a tag twice"}},
        BadFrame{"an entity of nowhere",
                 DECLARATION + ROOT + HEADER + "<uml:Subsystem name=\"&foo;\"/>",
                 {"error 4:27 not well-formed: the entity \"foo\" is not defined; in texts, \"&\" is written "
                  "&amp;"}},
        BadFrame{"no namespaces",
                 DECLARATION + "<oim:Transfer>\n" + HEADER + SUBSYSTEM + "</oim:Transfer>",
                 {"error 2:1 the prefix \"oim\" is used without a namespace",
                  "error 2:1 the element \"oim:Transfer\" has no attribute \"xmlns:oim\"",
                  "error 2:1 the element \"oim:Transfer\" has no attribute \"xmlns:uml\"",
                  "error 4:1 the prefix \"uml\" is used without a namespace"}},
        BadFrame{
            "a namespace of another place",
            DECLARATION +
                "<oim:Transfer xmlns:oim=\"urn:oim\" xmlns:uml=\"http://www.mdcinfo.com/oim/uml.dtd\">\n" +
                HEADER + SUBSYSTEM + "</oim:Transfer>",
            {"error 2:1 the attribute \"xmlns:oim\" of \"oim:Transfer\" is \"urn:oim\" where "
             "\"http://www.mdcinfo.com/oim/oim.dtd\" is expected"}},
        BadFrame{"no header",
                 DECLARATION + ROOT + SUBSYSTEM + "</oim:Transfer>",
                 {"error 3:1 the element \"uml:Subsystem\" stands where \"oim:TransferHeader\" is expected"}},
        BadFrame{"a header twice",
                 DECLARATION + ROOT + HEADER + HEADER + SUBSYSTEM + "</oim:Transfer>",
                 {"error 4:1 a second element \"oim:TransferHeader\" in \"oim:Transfer\""}},
        BadFrame{"no content",
                 DECLARATION + ROOT + HEADER + "</oim:Transfer>",
                 {"error 4:1 the element \"oim:Transfer\" ends without \"uml:Subsystem\""}},
        BadFrame{"another root",
                 DECLARATION + "<uml:Model xmlns:uml=\"http://www.mdcinfo.com/oim/uml.dtd\" name=\"m\"/>",
                 {"error 2:1 this is no OIM document: the root is \"uml:Model\" where \"oim:Transfer\" is "
                  "expected"}},
        BadFrame{
            "a reference for a root",
            "<oim:Transfer oim:href=\"#_1\" xmlns:oim=\"http://www.mdcinfo.com/oim/oim.dtd\"/>",
            {"error 1:1 the root is a reference",
             "error 1:1 a reference to \"oim:Transfer\" has the attribute \"xmlns:oim\"; references have "
             "\"oim:href\" alone",
             "error 1:1 the reference to _1 leads nowhere"}},
        BadFrame{"a document of something else",
                 "<xmi:XMI version=\"2\">\n<packagedElement/><packagedElement/></xmi:XMI>",
                 {"error 1:1 this is no OIM document: the root is \"xmi:XMI\" where \"oim:Transfer\" is "
                  "expected"}},
        BadFrame{"another encoding",
                 "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n" + ROOT + HEADER + SUBSYSTEM +
                     "</oim:Transfer>",
                 {"error 1:1 the document is in \"ISO-8859-1\", not in UTF-8"}},
        BadFrame{"wide characters",
                 widened(ROOT + HEADER + SUBSYSTEM + "</oim:Transfer>"),
                 {"error 1:1 the document is in UTF-16 or UTF-32, not in UTF-8"}}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, PassesAnEmptyViewWithAndWithoutAByteOrderMark) {
    const std::string document = DECLARATION + ROOT + HEADER + SUBSYSTEM + "</oim:Transfer>\n";
    EXPECT_THAT(check(document).findings, IsEmpty());
    EXPECT_THAT(check("\xEF\xBB\xBF" + document).findings, IsEmpty());
    EXPECT_THAT(
        check("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" + ROOT + HEADER + SUBSYSTEM + "</oim:Transfer>")
            .findings,
        IsEmpty());
}

TEST(DocumentCheck, TellsAnotherEncodingHoweverManyErrorsCameBefore) {
    const Result result = check("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n" + ROOT + HEADER +
                                    SUBSYSTEM + "<a/><b/><c/></oim:Transfer>",
                                1 << 20, 1);
    EXPECT_THAT(result.findings, ElementsAre("error 5:1 unknown element \"a\"",
                                             "error 1:1 the document is in \"ISO-8859-1\", not in UTF-8"));
    EXPECT_EQ(result.summary.errors, 4U);
}

TEST(DocumentCheck, TellsBytesThatAreNoTextInAnotherEncodingAndPrintsNothing) {
    const std::string start = "<?xml version=\"1.0\" encoding=\"EUC-JP\"?>\n" + ROOT;
    std::string wide = widened(ROOT);
    wide += std::string("\x00\xD8\x41\x00", 4);  // half of a pair, and an A
    wide += widened(HEADER).substr(2);
    testing::internal::CaptureStderr();
    const Result japanese =
        check(start + "<!-- \xA4\xFF\xFF\xFF -->" + HEADER + SUBSYSTEM + "</oim:Transfer>");
    const Result japaneseInPieces =
        check(start + HEADER + "<!-- \xA4\xFF\xFF\xFF -->" + SUBSYSTEM + "</oim:Transfer>", 16);
    const Result halfPair = check(wide);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    for (const Result* result : {&japanese, &japaneseInPieces}) {
        EXPECT_THAT(
            result->findings,
            ElementsAre(HasSubstr("not well-formed: behind this place there are bytes that are no text in "
                                  "the document's encoding, which is \"EUC-JP\"")));
    }
    EXPECT_THAT(halfPair.findings, ElementsAre(HasSubstr("which is UTF-16 or UTF-32")));
}

TEST(DocumentCheck, RefusesDocumentTypesSoThatNoEntityIsExpanded) {
    const Result result = check(
        "<!DOCTYPE oim:Transfer [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]>\n"
        "<oim:Transfer>&b;</oim:Transfer>");
    EXPECT_THAT(result.findings, ElementsAre(HasSubstr("a document type declaration, which is not read")));
}

TEST(DocumentCheck, RefusesNestingWithoutEndInBoundedMemory) {
    std::string document = ROOT;
    for (int i = 0; i < 20'000; ++i) {
        document += "<uml:NamespaceOwnedElement>";
    }
    EXPECT_THAT(check(document, 1 << 20, 3).findings.back(),
                HasSubstr("elements are nested deeper than 10000"));
}

TEST(DocumentCheck, FindsTheSameInAnyPortions) {
    const std::string document = frame("<uml:Model oim:id=\"_2\"/><uml:Clas oim:id=\"_2\" name=\"&quot;\"/>");
    const Result whole = check(document);
    for (const std::size_t step : {1U, 2U, 7U, 64U}) {
        EXPECT_EQ(check(document, step).findings.size(), whole.findings.size()) << step;
    }
    EXPECT_EQ(whole.findings.size(), 2U);
}

TEST(DocumentCheck, TellsNoMoreThanAskedForAndCountsTheRest) {
    std::string content;
    for (int i = 0; i < 50; ++i) {
        content += "<uml:Clas oim:id=\"_" + std::to_string(i + 2) + "\"/>\n";
    }
    const Result result = check(frame(content), 1 << 20, 10);
    EXPECT_EQ(result.findings.size(), 10U);
    EXPECT_EQ(result.summary.errors, 50U);
}

TEST(DocumentCheck, TellsOfVeryManyErrorsOfOneTagWhereItBegins) {
    constexpr int COUNT = 20'000;
    std::string tag = "<uml:Model oim:id=\"_2\"";
    for (int i = 0; i < COUNT; ++i) {
        tag += (i % 100 == 0 ? "\n a" : " a") + std::to_string(i) + "=\"\"";
    }
    const std::string document = frame("\n  " + tag + "/>");
    for (const std::uint64_t most : {100, 100'000}) {
        const Result result = check(document, 1 << 20, most);
        EXPECT_EQ(result.summary.errors, std::uint64_t{COUNT});
        EXPECT_EQ(result.findings.size(), std::min<std::uint64_t>(most, COUNT));
        EXPECT_THAT(result.findings, testing::Each(testing::StartsWith("error 7:3 unknown attribute \"a")));
    }
}

struct LastError {
    const char* description;
    const char* content;
    const char* expected;
};

class DocumentCheckEnds : public testing::TestWithParam<LastError> {};

TEST_P(DocumentCheckEnds, WithTheErrorThatEndsItHoweverManyCameBefore) {
    std::string before;
    for (int i = 0; i < 5; ++i) {
        before += "<uml:Clas/>";
    }
    const Result result = check(frame(before + GetParam().content + "<uml:Clas/>"), 1 << 20, 2);
    ASSERT_EQ(result.findings.size(), 3U);
    EXPECT_EQ(textOf(result.findings.back()), GetParam().expected);
    EXPECT_EQ(result.summary.errors, 6U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckEnds,
    testing::Values(
        LastError{"another tag at the end", "</b>",
                  "not well-formed: an end tag where that of \"uml:NamespaceOwnedElement\", which line 5 "
                  "opened, is expected"},
        LastError{"an entity of nowhere", "<uml:Clas a=\"&foo;\"/>",
                  "not well-formed: the entity \"foo\" is not defined; in texts, \"&\" is written &amp;"}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, TellsAllNotesHoweverFewErrorsAreAskedFor) {
    EXPECT_EQ(check(packaged(LOOSE_ENDS), 1 << 20, 0).findings.size(), 2U);
}

TEST(DocumentCheck, TakesIdentifiersFarApartWithoutMemoryForTheGap) {
    EXPECT_THAT(check(frame("<uml:Model oim:id=\"_2000000000\"/>")).findings, IsEmpty());
    EXPECT_EQ(check(packaged("<uml:Package name=\"p\" oim:id=\"_2000000000\"/><uml:Package name=\"p\" "
                             "oim:id=\"_2000000000\"/>"))
                  .summary.errors,
              1U);
    std::string content;
    for (int i = 1; i < 30'000; ++i) {
        content += "<uml:Package name=\"p\" oim:id=\"_" + std::to_string(i * 65'535) + "\"/>";
    }
    EXPECT_THAT(check(packaged(content)).findings, IsEmpty());
}

}  // namespace
