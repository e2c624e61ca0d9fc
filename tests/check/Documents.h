// Documents to check, and what is found in them.
#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "DocumentCheck.h"

namespace check_test {

using oimcheck::DocumentCheck;
using oimcheck::Finding;
using oimcheck::Summary;

struct Result {
    Summary summary;
    std::vector<std::string> findings;  ///< "error 3:4 text"
};

inline Result check(const std::string& document, std::size_t step = 1 << 20, std::uint64_t most = 100) {
    Result result;
    DocumentCheck documentCheck(
        [&](const Finding& finding) {
            const char* word = finding.severity == Finding::Severity::ERROR ? "error " : "note ";
            result.findings.push_back(word + std::to_string(finding.line) + ":" +
                                      std::to_string(finding.column) + " " + finding.text +
                                      (finding.explanation.empty() ? "" : "; " + finding.explanation) +
                                      (finding.places == 1 ? "" : "; x" + std::to_string(finding.places)));
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
inline const std::string ROOT =
    "<oim:Transfer xmlns:oim=\"http://www.mdcinfo.com/oim/oim.dtd\" "
    "xmlns:uml=\"http://www.mdcinfo.com/oim/uml.dtd\" xmlns:erd=\"http://www.mdcinfo.com/oim/erd.dtd\" "
    "xmlns:dtm=\"http://www.mdcinfo.com/oim/dtm.dtd\" xmlns:dbm=\"http://www.mdcinfo.com/oim/dbm.dtd\">\n";
inline const std::string HEADER =
    "<oim:TransferHeader Exporter=\"e\" ExporterVersion=\"1\" TransferDateTime=\"now\"/>\n";

inline const std::string DECLARATION = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
inline const std::string SUBSYSTEM =
    "<uml:Subsystem name=\"S\" oim:id=\"_1\"><uml:NamespaceOwnedElement><uml:Model oim:id=\"_2\"/>"
    "</uml:NamespaceOwnedElement></uml:Subsystem>\n";

/// A document with the content in place of a view, and in line 6.
inline std::string frame(const std::string& content, const std::string& before = {},
                         const std::string& after = {}) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n" + ROOT + HEADER +
           "<uml:Subsystem name=\"S\" oim:id=\"_1\">\n<uml:NamespaceOwnedElement>" + before + "\n" + content +
           "\n" + after + "</uml:NamespaceOwnedElement>\n</uml:Subsystem>\n</oim:Transfer>\n";
}

/// A document with the content in a package.
inline std::string packaged(const std::string& content) {
    return frame(content,
                 "<uml:Model oim:id=\"_1001\"><uml:NamespaceOwnedElement><uml:Package oim:id=\"_1002\" "
                 "name=\"p\"><uml:NamespaceOwnedElement>",
                 "</uml:NamespaceOwnedElement></uml:Package></uml:NamespaceOwnedElement></uml:Model>");
}

/// A document with the content in a database schema.
inline std::string inSchema(const std::string& content) {
    return frame(content,
                 "<dbm:LogicalCatalog oim:id=\"_1001\" name=\"c\"><dbm:CatalogSchemas><dbm:LogicalSchema "
                 "oim:id=\"_1002\" name=\"s\">",
                 "</dbm:LogicalSchema></dbm:CatalogSchemas></dbm:LogicalCatalog>");
}

/// A class, or another one of that kind, with nothing but what is always there, and the content.
inline std::string makeClass(int id, const std::string& content = {}, const std::string& tag = "uml:Class") {
    const std::string number = std::to_string(id);
    return "<" + tag + " oim:id=\"_" + number + "\" name=\"c\" visibility=\"PublicAccess\">" + content +
           "<uml:ModelElementTaggedValue><uml:TaggedValue oim:id=\"_10" + number +
           "\" name=\"persistence\" value=\"transient\"/></uml:ModelElementTaggedValue></" + tag + ">";
}

/// An attribute in a class, with the content in its type.
inline std::string makeAttribute(int id, const std::string& type) {
    return "<uml:ClassifierFeature><uml:Attribute oim:id=\"_" + std::to_string(id) +
           "\" name=\"a\" ownerScope=\"instance\" visibility=\"PublicAccess\"><uml:StructuralFeatureType>" +
           type + "</uml:StructuralFeatureType></uml:Attribute></uml:ClassifierFeature>";
}

/// A dependency with the content in place of its supplier.
inline std::string makeDependency(const std::string& supplier) {
    return "<uml:Dependency oim:id=\"_2\" name=\"d\"><uml:DependencySupplier>" + supplier +
           "</uml:DependencySupplier></uml:Dependency>";
}

inline std::string textOf(const std::string& finding) {
    return finding.substr(finding.find(' ', finding.find(' ') + 1) + 1);
}

inline const std::string LOOSE_ENDS =
    makeClass(2, makeAttribute(3, "<uml:Class oim:href=\"#_9\"/>")) + "\n" +
    makeClass(4, {}, "uml:Interface") +
    "\n<uml:Comment oim:id=\"_5\" name=\"c\"><uml:CommentAnnotatedElement>"
    "<uml:Class oim:href=\"#_4\"/></uml:CommentAnnotatedElement></uml:Comment>";

/// A description as the name of a test.
inline std::string wordOf(const std::string& description) {
    std::string word = description;
    std::replace_if(
        word.begin(), word.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return word;
}

/// A row of a table.
struct BadDocument {
    const char* description;
    std::string document;
    const char* expected;
};

}  // namespace check_test
