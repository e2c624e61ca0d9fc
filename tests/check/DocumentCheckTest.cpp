#include "DocumentCheck.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "OimGrammar.h"

namespace {

using oimcheck::DocumentCheck;
using oimcheck::Finding;
using oimcheck::Summary;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Result {
    Summary summary;
    std::vector<std::string> findings;  ///< "error 3:4 text"
};

Result check(const std::string& document, std::size_t step = 1 << 20, std::uint64_t most = 100) {
    Result result;
    DocumentCheck documentCheck(
        [&](const Finding& finding) {
            const char* word = finding.severity == Finding::Severity::ERROR ? "error " : "note ";
            result.findings.push_back(word + std::to_string(finding.line) + ":" +
                                      std::to_string(finding.column) + " " + finding.text +
                                      (finding.explanation.empty() ? "" : "; " + finding.explanation));
        },
        most);
    for (std::size_t at = 0; at < document.size(); at += step) {
        if (!documentCheck.feed(document.data() + at, std::min(step, document.size() - at))) {
            break;
        }
    }
    result.summary = documentCheck.finish();
    return result;
}

/// The start of the root, with all namespaces.
const std::string ROOT =
    "<oim:Transfer xmlns:oim=\"http://www.mdcinfo.com/oim/oim.dtd\" "
    "xmlns:uml=\"http://www.mdcinfo.com/oim/uml.dtd\" xmlns:erd=\"http://www.mdcinfo.com/oim/erd.dtd\" "
    "xmlns:dtm=\"http://www.mdcinfo.com/oim/dtm.dtd\" xmlns:dbm=\"http://www.mdcinfo.com/oim/dbm.dtd\">\n";
const std::string HEADER =
    "<oim:TransferHeader Exporter=\"e\" ExporterVersion=\"1\" TransferDateTime=\"now\"/>\n";

/// A document with the content in place of a view.
std::string frame(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n" + ROOT + HEADER +
           "<uml:Subsystem name=\"S\" oim:id=\"_1\">\n<uml:NamespaceOwnedElement>\n" + content +
           "\n</uml:NamespaceOwnedElement>\n</uml:Subsystem>\n</oim:Transfer>\n";
}

std::string textOf(const std::string& finding) {
    return finding.substr(finding.find(' ', finding.find(' ') + 1) + 1);
}

TEST(DocumentCheck, PassesADocumentWithReferencesForwardAndBackward) {
    const Result result = check(
        frame("<uml:Model oim:id=\"_2\"><uml:NamespaceOwnedElement>"
              "<uml:Class oim:id=\"_3\" visibility=\"PublicAccess\" name=\"c\"><uml:ModelElementStereotype>"
              "<uml:Stereotype oim:href=\"#_4\"/></uml:ModelElementStereotype></uml:Class>"
              "<uml:Stereotype oim:id=\"_4\" name=\"s\" baseClass=\"Class\"/>"
              "<uml:Generalization oim:id=\"_5\" name=\"g\" "
              "visibility=\"PublicAccess\"><uml:GeneralizationParent><uml:Class oim:href=\"#_3\"/>"
              "</uml:GeneralizationParent></uml:Generalization>"
              "</uml:NamespaceOwnedElement></uml:Model>"));
    EXPECT_THAT(result.findings, IsEmpty());
    EXPECT_EQ(result.summary.objects, 5U);
    EXPECT_EQ(result.summary.references, 2U);
    EXPECT_EQ(result.summary.errors, 0U);
}

/// A description as the name of a test.
std::string wordOf(const std::string& description) {
    std::string word = description;
    std::replace_if(
        word.begin(), word.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return word;
}

struct BadDocument {
    const char* description;
    const char* content;
    const char* expected;
};

class DocumentCheckFinds : public testing::TestWithParam<BadDocument> {};

TEST_P(DocumentCheckFinds, OneFault) {
    const Result result = check(frame(GetParam().content));
    ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
    EXPECT_EQ(textOf(result.findings[0]), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckFinds,
    testing::Values(
        BadDocument{"unknown element", "<uml:Clas oim:id=\"_2\"/>", "unknown element \"uml:Clas\""},
        BadDocument{"element in the wrong place", "<dbm:LogicalTable oim:id=\"_2\" name=\"l\"/>",
                    "the element \"dbm:LogicalTable\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"reference in the wrong place", "<uml:Model oim:id=\"_2\"/><uml:Model oim:href=\"#_2\"/>",
                    "a reference to \"uml:Model\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{
            "reference that holds an element",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:href=\"#_3\">"
            "<uml:ClassifierFeature/></uml:Class></uml:DependencySupplier></uml:Dependency>"
            "<uml:Class oim:id=\"_3\" name=\"c\" visibility=\"PublicAccess\"/>",
            "a reference holds the element \"uml:ClassifierFeature\"; references are empty"},
        BadDocument{
            "reference with an attribute",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:href=\"#_3\" "
            "name=\"c\"/></uml:DependencySupplier></uml:Dependency><uml:Class oim:id=\"_3\" name=\"c\" "
            "visibility=\"PublicAccess\"/>",
            "a reference to \"uml:Class\" has the attribute \"name\"; references have \"oim:href\" alone"},
        BadDocument{
            "reference with an identifier, which it does not give",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:id=\"_3\" "
            "oim:href=\"#_3\"/></uml:DependencySupplier></uml:Dependency><uml:Class oim:id=\"_3\" name=\"c\" "
            "visibility=\"PublicAccess\"/>",
            "a reference to \"uml:Class\" has the attribute \"oim:id\"; references have \"oim:href\" "
            "alone"},
        BadDocument{"object without identifier", "<uml:Model/>", "the object \"uml:Model\" has no oim:id"},
        BadDocument{"association with identifier",
                    "<erd:Model oim:id=\"_2\" name=\"m\"><erd:ModelEntities oim:id=\"_3\"/></erd:Model>",
                    "the element \"erd:ModelEntities\" is no object and has an oim:id"},
        BadDocument{"identifier twice", "<uml:Model oim:id=\"_1\"/>",
                    "the identifier \"_1\" was given before"},
        BadDocument{"identifier with a leading zero", "<uml:Model oim:id=\"_02\"/>",
                    "the identifier \"_02\" is not of the form \"_N\""},
        BadDocument{"identifier that is no number", "<uml:Model oim:id=\"x\"/>",
                    "the identifier \"x\" is not of the form \"_N\""},
        BadDocument{"identifier beyond 32 bits", "<uml:Model oim:id=\"_99999999999\"/>",
                    "the identifier \"_99999999999\" is not of the form \"_N\""},
        BadDocument{"object without what this system always writes",
                    "<uml:Class oim:id=\"_2\" visibility=\"PublicAccess\"/>",
                    "the element \"uml:Class\" has no attribute \"name\""},
        BadDocument{"unknown attribute", "<uml:Model oim:id=\"_2\" colour=\"red\"/>",
                    "unknown attribute \"colour\" of \"uml:Model\""},
        BadDocument{"value outside its enumeration",
                    "<uml:Class oim:id=\"_2\" visibility=\"Friends\" name=\"c\"/>",
                    "the attribute \"visibility\" of \"uml:Class\" is \"Friends\" where \"PublicAccess\", "
                    "\"ProtectedAccess\" or \"PrivateAccess\" is expected"},
        BadDocument{"value that is no integer",
                    "<dbm:ColumnTypeSet oim:id=\"_2\" name=\"c\" version=\"c\"/><erd:Model oim:id=\"_3\" "
                    "name=\"m\"><erd:ModelDomains>"
                    "<erd:Domain oim:id=\"_4\" Precision=\"1x\"/></erd:ModelDomains></erd:Model>",
                    "the attribute \"Precision\" of \"erd:Domain\" is \"1x\" where an integer is expected"},
        BadDocument{"text", "<uml:Model oim:id=\"_2\">hello</uml:Model>",
                    "text between elements, which the OIM encoding has not: \"hello\""},
        BadDocument{
            "reference that leads nowhere",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:href=\"#_7\"/>"
            "</uml:DependencySupplier></uml:Dependency>",
            "the reference to _7 in \"uml:DependencySupplier\" leads nowhere"},
        BadDocument{
            "reference to another tag",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:href=\"#_2\"/>"
            "</uml:DependencySupplier></uml:Dependency>",
            "the reference to _2 in \"uml:DependencySupplier\" leads to \"uml:Dependency\", not to "
            "\"uml:Class\""},
        BadDocument{
            "reference in another form",
            "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier><uml:Class oim:href=\"_2\"/>"
            "</uml:DependencySupplier></uml:Dependency>",
            "the reference \"_2\" of \"uml:Class\" is not of the form \"#_N\""}),
    [](const auto& row) { return wordOf(row.param.description); });

const std::string LOOSE_ENDS =
    "<uml:Class oim:id=\"_2\" name=\"c\" visibility=\"PublicAccess\"><uml:ClassifierFeature><uml:Attribute "
    "oim:id=\"_3\" name=\"a\" ownerScope=\"instance\" visibility=\"PublicAccess\">"
    "<uml:StructuralFeatureType><uml:Class oim:href=\"#_9\"/></uml:StructuralFeatureType></uml:Attribute>"
    "</uml:ClassifierFeature></uml:Class>\n"
    "<uml:Interface oim:id=\"_4\" name=\"i\" visibility=\"PublicAccess\"/><uml:Comment oim:id=\"_5\" "
    "name=\"c\"><uml:CommentAnnotatedElement>"
    "<uml:Class oim:href=\"#_4\"/></uml:CommentAnnotatedElement></uml:Comment>";

TEST(DocumentCheck, TakesLooseReferencesThatTheExportIsKnownForAsNotes) {
    const Result result = check(frame(LOOSE_ENDS));
    EXPECT_THAT(
        result.findings,
        ElementsAre("note 6:193 the reference to _9 in \"uml:StructuralFeatureType\" leads nowhere; a "
                    "class that is used as a type is referred to by the type, which has no element",
                    "note 7:127 the reference to _4 in \"uml:CommentAnnotatedElement\" leads to "
                    "\"uml:Interface\", not to \"uml:Class\"; comments refer to an interface as a "
                    "class"));
    EXPECT_EQ(result.summary.errors, 0U);
    EXPECT_EQ(result.summary.notes, 2U);
}

struct LooseReference {
    const char* description;
    const char* content;
    const char* expected;
};

class DocumentCheckRefuses : public testing::TestWithParam<LooseReference> {};

TEST_P(DocumentCheckRefuses, ALooseReferenceOfAnotherKindInAKnownPlace) {
    const Result result = check(frame(GetParam().content));
    ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
    EXPECT_EQ(textOf(result.findings[0]), GetParam().expected);
    EXPECT_EQ(result.summary.errors, 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckRefuses,
    testing::Values(
        LooseReference{"a data type that is missing",
                       "<uml:Class oim:id=\"_2\" name=\"c\" "
                       "visibility=\"PublicAccess\"><uml:ClassifierFeature><uml:Attribute oim:id=\"_3\" "
                       "name=\"a\" ownerScope=\"instance\" visibility=\"PublicAccess\">"
                       "<uml:StructuralFeatureType><uml:DataType oim:href=\"#_9\"/>"
                       "</uml:StructuralFeatureType></uml:Attribute></uml:ClassifierFeature></uml:Class>",
                       "the reference to _9 in \"uml:StructuralFeatureType\" leads nowhere"},
        LooseReference{
            "a class type that leads to a package",
            "<uml:Package oim:id=\"_9\" name=\"p\"/><uml:Class oim:id=\"_2\" name=\"c\" "
            "visibility=\"PublicAccess\"><uml:ClassifierFeature>"
            "<uml:Attribute oim:id=\"_3\" name=\"a\" ownerScope=\"instance\" "
            "visibility=\"PublicAccess\"><uml:StructuralFeatureType><uml:Class oim:href=\"#_9\"/>"
            "</uml:StructuralFeatureType></uml:Attribute></uml:ClassifierFeature></uml:Class>",
            "the reference to _9 in \"uml:StructuralFeatureType\" leads to \"uml:Package\", not to "
            "\"uml:Class\""},
        LooseReference{
            "a comment on nothing",
            "<uml:Comment oim:id=\"_5\" name=\"c\"><uml:CommentAnnotatedElement><uml:Class oim:href=\"#_4\"/>"
            "</uml:CommentAnnotatedElement></uml:Comment>",
            "the reference to _4 in \"uml:CommentAnnotatedElement\" leads nowhere"},
        LooseReference{
            "a relationship whose table is a package",
            "<dbm:LogicalCatalog oim:id=\"_2\" name=\"l\"><dbm:CatalogSchemas><dbm:LogicalSchema "
            "oim:id=\"_3\" name=\"l\"><dbm:SchemaReferentialConstraints><dbm:ReferentialConstraint "
            "oim:id=\"_4\" name=\"r\"><dbm:ReferentialConstraintUniqueKeyRole><dbm:UniqueKeyRole "
            "oim:id=\"_5\"><dbm:JoinRoleColumnSet><dbm:LogicalTable oim:href=\"#_3\"/>"
            "</dbm:JoinRoleColumnSet></dbm:UniqueKeyRole></dbm:ReferentialConstraintUniqueKeyRole>"
            "</dbm:ReferentialConstraint></dbm:SchemaReferentialConstraints></dbm:LogicalSchema>"
            "</dbm:CatalogSchemas></dbm:LogicalCatalog>",
            "the reference to _3 in \"dbm:JoinRoleColumnSet\" leads to \"dbm:LogicalSchema\", not "
            "to \"dbm:LogicalTable\""}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, LeavesOutAnUnknownElementThatALooseReferenceStandsIn) {
    const Result result = check(frame("<uml:Clas oim:id=\"_2\"><uml:Class oim:href=\"#_9\"/></uml:Clas>"));
    EXPECT_THAT(result.findings, ElementsAre("error 6:1 unknown element \"uml:Clas\"",
                                             "error 6:23 the reference to _9 leads nowhere"));
}

TEST(DocumentCheck, TellsWhereTheTagOfAFaultBegins) {
    EXPECT_THAT(check(frame("<uml:Model oim:id=\"_2\"/>\n  <uml:Clas oim:id=\"_3\"/>")).findings,
                ElementsAre("error 7:3 unknown element \"uml:Clas\""));
    EXPECT_THAT(check(frame("<uml:Model oim:id=\"_2\" name=\"\u00e4\"/> <uml:Model oim:id=\"_3\"\n  "
                            "colour=\"red\"\n/>"))
                    .findings,
                ElementsAre("error 6:35 unknown attribute \"colour\" of \"uml:Model\""));
}

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

const std::string DECLARATION = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
const std::string SUBSYSTEM =
    "<uml:Subsystem name=\"S\" oim:id=\"_1\"><uml:NamespaceOwnedElement/></uml:Subsystem>\n";

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
        BadFrame{
            "other tags at the end",
            DECLARATION + ROOT + "<oim:TransferHeader></b>",
            {"error 3:1 the element \"oim:TransferHeader\" has no attribute \"Exporter\"",
             "error 3:1 the element \"oim:TransferHeader\" has no attribute \"ExporterVersion\"",
             "error 3:1 the element \"oim:TransferHeader\" has no attribute \"TransferDateTime\"",
             "error 3:25 not well-formed: Opening and ending tag mismatch: TransferHeader line 3 and b"}},
        BadFrame{"an early end",
                 DECLARATION + ROOT + HEADER,
                 {"error 3:78 not well-formed: the document ends before its elements do"}},
        BadFrame{"an attribute twice",
                 DECLARATION + ROOT + HEADER + "<uml:Subsystem name=\"S\" name=\"S\"/>",
                 {"error 4:33 not well-formed: Attribute name redefined"}},
        BadFrame{"an entity of nowhere",
                 DECLARATION + ROOT + HEADER + "<uml:Subsystem name=\"&foo;\"/>",
                 {"error 4:27 not well-formed: Entity 'foo' not defined"}},
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
                 {"error 4:16 the element \"oim:Transfer\" ends without \"uml:Subsystem\""}},
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

TEST(DocumentCheck, TellsTheLineOfBytesThatAreNotUtf8) {
    const Result result = check(frame("<uml:Model oim:id=\"_2\" name=\"\xff\"/>"));
    EXPECT_EQ(result.summary.errors, 1U);
    EXPECT_THAT(result.findings.front(), testing::StartsWith("error 6:"));
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
                  "not well-formed: Opening and ending tag mismatch: NamespaceOwnedElement line 5 and b"},
        LastError{"an entity of nowhere", "<uml:Clas a=\"&foo;\"/>",
                  "not well-formed: Entity 'foo' not defined"}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(DocumentCheck, TellsAllNotesHoweverFewErrorsAreAskedFor) {
    EXPECT_EQ(check(frame(LOOSE_ENDS), 1 << 20, 0).findings.size(), 2U);
}

TEST(DocumentCheck, TakesIdentifiersFarApartWithoutMemoryForTheGap) {
    EXPECT_THAT(check(frame("<uml:Model oim:id=\"_2000000000\"/>")).findings, IsEmpty());
    EXPECT_EQ(
        check(frame("<uml:Model oim:id=\"_2000000000\"/><uml:Model oim:id=\"_2000000000\"/>")).summary.errors,
        1U);
    std::string content;
    for (int i = 1; i < 30'000; ++i) {
        content += "<uml:Model oim:id=\"_" + std::to_string(i * 65'535) + "\"/>";
    }
    EXPECT_THAT(check(frame(content)).findings, IsEmpty());
}

TEST(OimGrammar, KnowsEveryElementThatItRefersTo) {
    // Building it throws otherwise.
    EXPECT_GT(oimcheck::OimGrammar::instance().size(), 100U);
}

}  // namespace
