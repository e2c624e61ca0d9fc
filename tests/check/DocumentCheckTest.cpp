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
                                      std::to_string(finding.column) + " " + finding.text);
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

/// A document with the content in place of a view.
std::string frame(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<oim:Transfer>\n<uml:Subsystem name=\"S\" "
           "oim:id=\"_1\">\n"
           "<uml:NamespaceOwnedElement>\n" +
           content + "\n</uml:NamespaceOwnedElement>\n</uml:Subsystem>\n</oim:Transfer>\n";
}

std::string textOf(const std::string& finding) {
    return finding.substr(finding.find(' ', finding.find(' ') + 1) + 1);
}

TEST(DocumentCheck, PassesADocumentWithReferencesForwardAndBackward) {
    const Result result = check(
        frame("<uml:Model oim:id=\"_2\"><uml:NamespaceOwnedElement>"
              "<uml:Class oim:id=\"_3\" visibility=\"PublicAccess\"><uml:ModelElementStereotype>"
              "<uml:Stereotype oim:href=\"#_4\"/></uml:ModelElementStereotype></uml:Class>"
              "<uml:Stereotype oim:id=\"_4\" name=\"s\" baseClass=\"Class\"/>"
              "<uml:Generalization oim:id=\"_5\"><uml:GeneralizationParent><uml:Class oim:href=\"#_3\"/>"
              "</uml:GeneralizationParent></uml:Generalization>"
              "</uml:NamespaceOwnedElement></uml:Model>"));
    EXPECT_THAT(result.findings, IsEmpty());
    EXPECT_EQ(result.summary.objects, 5U);
    EXPECT_EQ(result.summary.references, 2U);
    EXPECT_EQ(result.summary.errors, 0U);
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
        BadDocument{"element in the wrong place", "<dbm:LogicalTable oim:id=\"_2\"/>",
                    "the element \"dbm:LogicalTable\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"reference in the wrong place", "<uml:Model oim:id=\"_2\"/><uml:Model oim:href=\"#_2\"/>",
                    "a reference to \"uml:Model\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"reference that holds an element",
                    "<uml:Dependency oim:id=\"_2\"><uml:DependencySupplier><uml:Class oim:href=\"#_3\">"
                    "<uml:ClassifierFeature/></uml:Class></uml:DependencySupplier></uml:Dependency>"
                    "<uml:Class oim:id=\"_3\"/>",
                    "a reference holds the element \"uml:ClassifierFeature\"; references are empty"},
        BadDocument{"object without identifier", "<uml:Model/>", "the object \"uml:Model\" has no oim:id"},
        BadDocument{"association with identifier",
                    "<erd:Model oim:id=\"_2\"><erd:ModelEntities oim:id=\"_3\"/></erd:Model>",
                    "the element \"erd:ModelEntities\" is no object and has an oim:id"},
        BadDocument{"identifier twice", "<uml:Model oim:id=\"_1\"/>",
                    "the identifier \"_1\" was given before"},
        BadDocument{"identifier with a leading zero", "<uml:Model oim:id=\"_02\"/>",
                    "the identifier \"_02\" is not of the form \"_N\""},
        BadDocument{"identifier that is no number", "<uml:Model oim:id=\"x\"/>",
                    "the identifier \"x\" is not of the form \"_N\""},
        BadDocument{"identifier beyond 32 bits", "<uml:Model oim:id=\"_99999999999\"/>",
                    "the identifier \"_99999999999\" is not of the form \"_N\""},
        BadDocument{"unknown attribute", "<uml:Model oim:id=\"_2\" colour=\"red\"/>",
                    "unknown attribute \"colour\" of \"uml:Model\""},
        BadDocument{"value outside its enumeration", "<uml:Class oim:id=\"_2\" visibility=\"Friends\"/>",
                    "the attribute \"visibility\" of \"uml:Class\" is \"Friends\" where \"PublicAccess\", "
                    "\"ProtectedAccess\" or \"PrivateAccess\" is expected"},
        BadDocument{"value that is no integer",
                    "<dbm:ColumnTypeSet oim:id=\"_2\"/><erd:Model oim:id=\"_3\"><erd:ModelDomains>"
                    "<erd:Domain oim:id=\"_4\" Precision=\"1x\"/></erd:ModelDomains></erd:Model>",
                    "the attribute \"Precision\" of \"erd:Domain\" is \"1x\" where an integer is expected"},
        BadDocument{"text", "<uml:Model oim:id=\"_2\">hello</uml:Model>",
                    "text between elements, which the OIM encoding has not: \"hello\""},
        BadDocument{"reference that leads nowhere",
                    "<uml:Dependency oim:id=\"_2\"><uml:DependencySupplier><uml:Class oim:href=\"#_7\"/>"
                    "</uml:DependencySupplier></uml:Dependency>",
                    "the reference to _7 in \"uml:DependencySupplier\" leads nowhere"},
        BadDocument{"reference to another tag",
                    "<uml:Dependency oim:id=\"_2\"><uml:DependencySupplier><uml:Class oim:href=\"#_2\"/>"
                    "</uml:DependencySupplier></uml:Dependency>",
                    "the reference to _2 in \"uml:DependencySupplier\" leads to \"uml:Dependency\", not to "
                    "\"uml:Class\""},
        BadDocument{"reference in another form",
                    "<uml:Dependency oim:id=\"_2\"><uml:DependencySupplier><uml:Class oim:href=\"_2\"/>"
                    "</uml:DependencySupplier></uml:Dependency>",
                    "the reference \"_2\" of \"uml:Class\" is not of the form \"#_N\""}),
    [](const auto& row) {
        std::string name;
        for (const char* c = row.param.description; *c != '\0'; ++c) {
            if (std::isalnum(static_cast<unsigned char>(*c)) != 0) {
                name += *c;
            } else {
                name += '_';
            }
        }
        return name;
    });

TEST(DocumentCheck, TakesLooseReferencesThatTheExportIsKnownForAsNotes) {
    const Result result =
        check(frame("<uml:Class oim:id=\"_2\"><uml:ClassifierFeature><uml:Attribute oim:id=\"_3\">"
                    "<uml:StructuralFeatureType><uml:Class oim:href=\"#_9\"/></uml:StructuralFeatureType>"
                    "</uml:Attribute></uml:ClassifierFeature></uml:Class>"));
    EXPECT_THAT(
        result.findings,
        ElementsAre(HasSubstr("the reference to _9 in \"uml:StructuralFeatureType\" leads nowhere (a class "
                              "that is used as a type is referred to by the type, which has no element)")));
    EXPECT_EQ(result.summary.errors, 0U);
    EXPECT_EQ(result.summary.notes, 1U);
}

TEST(DocumentCheck, TellsTheLineOfAFault) {
    const Result result = check(frame("<uml:Model oim:id=\"_2\"/>\n<uml:Clas oim:id=\"_3\"/>"));
    EXPECT_THAT(result.findings, ElementsAre(testing::StartsWith("error 6:")));
}

TEST(DocumentCheck, ReportsWhatIsNotWellFormedAndStops) {
    const Result result = check("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<oim:Transfer>\n<a></b>");
    ASSERT_EQ(result.summary.errors, result.findings.size());
    EXPECT_THAT(result.findings.back(), testing::StartsWith("error 3:"));
    EXPECT_THAT(result.findings.back(), HasSubstr("not well-formed: Opening and ending tag mismatch"));
}

TEST(DocumentCheck, ReportsATruncatedDocument) {
    EXPECT_THAT(check("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<oim:Transfer>\n").findings,
                ElementsAre(HasSubstr("not well-formed")));
}

TEST(DocumentCheck, ReportsAnEmptyDocument) {
    EXPECT_EQ(check("").summary.errors, 1U);
}

TEST(DocumentCheck, ReportsBytesThatAreNotUtf8) {
    const Result result = check(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<oim:Transfer xmlns:oim=\"\xff\"></oim:Transfer>");
    EXPECT_GE(result.summary.errors, 1U);
    EXPECT_THAT(result.findings.front(), testing::StartsWith("error 2:"));
}

TEST(DocumentCheck, ReportsAnotherEncoding) {
    EXPECT_THAT(
        check("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n<oim:Transfer></oim:Transfer>").findings,
        ElementsAre("error 1:1 the document is in \"ISO-8859-1\", not in UTF-8"));
}

TEST(DocumentCheck, ReportsAnotherRoot) {
    EXPECT_THAT(check("<uml:Model oim:id=\"_1\"/>").findings,
                ElementsAre(HasSubstr("the root is \"uml:Model\" where \"oim:Transfer\" is expected")));
}

TEST(DocumentCheck, RefusesDocumentTypesSoThatNoEntityIsExpanded) {
    const Result result = check(
        "<!DOCTYPE oim:Transfer [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]>\n"
        "<oim:Transfer>&b;</oim:Transfer>");
    EXPECT_THAT(result.findings, ElementsAre(HasSubstr("a document type declaration, which is not read")));
}

TEST(DocumentCheck, RefusesNestingWithoutEndInBoundedMemory) {
    std::string document;
    for (int i = 0; i < 20'000; ++i) {
        document += "<uml:NamespaceOwnedElement>";
    }
    const Result result = check(document, 1 << 20, 1'000'000);
    EXPECT_THAT(result.findings.back(), HasSubstr("elements are nested deeper than 10000"));
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

TEST(DocumentCheck, TakesIdentifiersFarApartWithoutMemoryForTheGap) {
    EXPECT_THAT(check(frame("<uml:Model oim:id=\"_2000000000\"/>")).findings, IsEmpty());
    EXPECT_EQ(
        check(frame("<uml:Model oim:id=\"_2000000000\"/><uml:Model oim:id=\"_2000000000\"/>")).summary.errors,
        1U);
}

TEST(OimGrammar, KnowsEveryElementThatItRefersTo) {
    // Building it throws otherwise.
    EXPECT_GT(oimcheck::OimGrammar::instance().size(), 100U);
}

}  // namespace
