// What stands in a document: elements, attributes, identifiers and references.

#include <gmock/gmock.h>

#include "Documents.h"
#include "OimGrammar.h"

namespace {

using namespace check_test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(ElementChecks, PassesADocumentWithReferencesForwardAndBackward) {
    const Result result = check(
        frame("<uml:Model oim:id=\"_2\"><uml:NamespaceOwnedElement><uml:Package oim:id=\"_6\" name=\"p\">"
              "<uml:NamespaceOwnedElement>" +
              makeClass(3,
                        "<uml:ModelElementStereotype><uml:Stereotype oim:href=\"#_4\"/>"
                        "</uml:ModelElementStereotype>") +
              "<uml:Generalization oim:id=\"_5\" name=\"g\" visibility=\"PublicAccess\">"
              "<uml:GeneralizationParent><uml:Class oim:href=\"#_3\"/></uml:GeneralizationParent>"
              "</uml:Generalization></uml:NamespaceOwnedElement></uml:Package>"
              "<uml:Stereotype oim:id=\"_4\" name=\"s\" baseClass=\"Class\"/>"
              "</uml:NamespaceOwnedElement></uml:Model>"));
    EXPECT_THAT(result.findings, IsEmpty());
    EXPECT_EQ(result.summary.objects, 7U);
    EXPECT_EQ(result.summary.references, 2U);
    EXPECT_EQ(result.summary.errors, 0U);
}

class DocumentCheckFinds : public testing::TestWithParam<BadDocument> {};

TEST_P(DocumentCheckFinds, OneFault) {
    const Result result = check(GetParam().document);
    ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
    EXPECT_EQ(textOf(result.findings[0]), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckFinds,
    testing::Values(
        BadDocument{"unknown element", packaged("<uml:Clas oim:id=\"_2\"/>"), "unknown element \"uml:Clas\""},
        BadDocument{"element in the wrong place", packaged("<dbm:LogicalTable oim:id=\"_2\" name=\"l\"/>"),
                    "the element \"dbm:LogicalTable\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"reference in the wrong place", packaged("<uml:Package oim:href=\"#_1002\"/>"),
                    "a reference to \"uml:Package\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{
            "reference that holds an element",
            packaged(makeDependency("<uml:Class oim:href=\"#_3\"><uml:ClassifierFeature/></uml:Class>") +
                     makeClass(3)),
            "a reference holds the element \"uml:ClassifierFeature\"; references are empty"},
        BadDocument{
            "reference with an attribute",
            packaged(makeDependency("<uml:Class oim:href=\"#_3\" name=\"c\"/>") + makeClass(3)),
            "a reference to \"uml:Class\" has the attribute \"name\"; references have \"oim:href\" alone"},
        BadDocument{"reference with an identifier, which it does not give",
                    packaged(makeDependency("<uml:Class oim:id=\"_3\" oim:href=\"#_3\"/>") + makeClass(3)),
                    "a reference to \"uml:Class\" has the attribute \"oim:id\"; references have \"oim:href\" "
                    "alone"},
        BadDocument{"object without identifier", frame("<uml:Model/>"),
                    "the object \"uml:Model\" has no oim:id"},
        BadDocument{"association with identifier",
                    packaged("<uml:Package oim:id=\"_2\" name=\"p\"><uml:NamespaceOwnedElement "
                             "oim:id=\"_3\"/></uml:Package>"),
                    "the element \"uml:NamespaceOwnedElement\" is no object and has an oim:id"},
        BadDocument{"identifier twice", frame("<uml:Model oim:id=\"_1\"/>"),
                    "the identifier \"_1\" was given before"},
        BadDocument{"identifier with a leading zero", frame("<uml:Model oim:id=\"_02\"/>"),
                    "the identifier \"_02\" is not of the form \"_N\""},
        BadDocument{"identifier that is no number", frame("<uml:Model oim:id=\"x\"/>"),
                    "the identifier \"x\" is not of the form \"_N\""},
        BadDocument{"identifier beyond 32 bits", frame("<uml:Model oim:id=\"_99999999999\"/>"),
                    "the identifier \"_99999999999\" is not of the form \"_N\""},
        BadDocument{"object without what this system always writes", packaged("<uml:Package oim:id=\"_2\"/>"),
                    "the element \"uml:Package\" has no attribute \"name\""},
        BadDocument{"unknown attribute", frame("<uml:Model oim:id=\"_2\" colour=\"red\"/>"),
                    "unknown attribute \"colour\" of \"uml:Model\""},
        BadDocument{
            "value outside its enumeration",
            packaged("<uml:Generalization oim:id=\"_2\" visibility=\"Friends\" name=\"c\">"
                     "<uml:GeneralizationParent><uml:Class oim:href=\"#_3\"/></uml:GeneralizationParent>"
                     "</uml:Generalization>" +
                     makeClass(3)),
            "the attribute \"visibility\" of \"uml:Generalization\" is \"Friends\" where "
            "\"PublicAccess\", \"ProtectedAccess\" or \"PrivateAccess\" is expected"},
        BadDocument{"value that is no integer",
                    inSchema("<dbm:SchemaTables><dbm:LogicalTable oim:id=\"_2\" name=\"t\" "
                             "EstimatedSize=\"1x\"/></dbm:SchemaTables>"),
                    "the attribute \"EstimatedSize\" of \"dbm:LogicalTable\" is \"1x\" where an integer is "
                    "expected"},
        BadDocument{"text", frame("<uml:Model oim:id=\"_2\">hello</uml:Model>"),
                    "text between elements, which the OIM encoding has not: \"hello\""},
        BadDocument{"reference that leads nowhere", packaged(makeDependency("<uml:Class oim:href=\"#_7\"/>")),
                    "the reference to _7 in \"uml:DependencySupplier\" leads nowhere"},
        BadDocument{"reference to another tag", packaged(makeDependency("<uml:Class oim:href=\"#_2\"/>")),
                    "the reference to _2 in \"uml:DependencySupplier\" leads to \"uml:Dependency\", not to "
                    "\"uml:Class\""},
        BadDocument{"reference in another form", packaged(makeDependency("<uml:Class oim:href=\"_2\"/>")),
                    "the reference \"_2\" of \"uml:Class\" is not of the form \"#_N\""}),
    [](const auto& row) { return wordOf(row.param.description); });

/// Of what stands where this system never writes it, or lacks what it always writes.
class DocumentCheckAsksFor : public testing::TestWithParam<BadDocument> {};

TEST_P(DocumentCheckAsksFor, WhatIsAlwaysWritten) {
    const Result result = check(GetParam().document);
    ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
    EXPECT_EQ(textOf(result.findings[0]), GetParam().expected);
}

const std::string OF_PARENT =
    "<erd:RelationshipParentRole><erd:ParentRole oim:id=\"_6\"><erd:ParentRoleEntity><erd:Entity "
    "oim:href=\"#_3\"/></erd:ParentRoleEntity><erd:ParentRoleKey><erd:Key oim:href=\"#_5\"/>"
    "</erd:ParentRoleKey></erd:ParentRole></erd:RelationshipParentRole>";

/// A document with an entity, its key and a relationship with the content.
std::string withRelationship(const std::string& content) {
    return frame(
        "<erd:Model oim:id=\"_2\" name=\"m\"><erd:ModelEntities><erd:Entity oim:id=\"_3\" "
        "name=\"e\"><erd:EntityKeys><erd:Key oim:id=\"_5\" name=\"k\" KeyType=\"1\"><erd:KeyAttributes/>"
        "</erd:Key></erd:EntityKeys></erd:Entity></erd:ModelEntities><erd:ModelRelationships>"
        "<erd:Relationship oim:id=\"_4\" name=\"r\" RelationshipType=\"2\">" +
        content +
        "</erd:Relationship></erd:ModelRelationships><erd:ModelSubjectAreas/><erd:ModelDomains/></"
        "erd:Model>");
}

/// A document with a table that holds the content.
std::string inTable(const std::string& content) {
    return inSchema("<dbm:SchemaTables><dbm:LogicalTable oim:id=\"_2\" name=\"t\">" + content +
                    "</dbm:LogicalTable></dbm:SchemaTables>");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckAsksFor,
    testing::Values(
        BadDocument{"a view in a package",
                    packaged("<dbm:LogicalCatalog oim:id=\"_2\" name=\"l\">"
                             "<dbm:CatalogSchemas/></dbm:LogicalCatalog>"),
                    "the element \"dbm:LogicalCatalog\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"a class outside packages", frame(makeClass(2) + "<uml:Model oim:id=\"_3\"/>"),
                    "the element \"uml:Class\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"a data type in a package", packaged("<uml:DataType oim:id=\"_2\" name=\"d\"/>"),
                    "the element \"uml:DataType\" does not belong in \"uml:NamespaceOwnedElement\""},
        BadDocument{"no view", frame(""), "the element \"uml:NamespaceOwnedElement\" is empty"},
        BadDocument{"a view twice", frame("<uml:Model oim:id=\"_2\"/><uml:Model oim:id=\"_3\"/>"),
                    "a second element \"uml:Model\" in \"uml:NamespaceOwnedElement\""},
        BadDocument{"an association twice",
                    frame("<dbm:LogicalCatalog oim:id=\"_2\" name=\"l\"><dbm:CatalogSchemas/>"
                          "<dbm:CatalogSchemas/></dbm:LogicalCatalog>"),
                    "a second element \"dbm:CatalogSchemas\" in \"dbm:LogicalCatalog\""},
        BadDocument{"a relationship without its second role", withRelationship(OF_PARENT),
                    "the element \"erd:Relationship\" ends without \"erd:RelationshipChildRole\""},
        BadDocument{"a key without its columns",
                    inTable("<dbm:TableUniqueKeys><dbm:UniqueKey oim:id=\"_3\" name=\"k\"/>"
                            "</dbm:TableUniqueKeys>"),
                    "the element \"dbm:UniqueKey\" ends without \"dbm:KeyColumns\""},
        BadDocument{"a collection without members", inTable("<dbm:ColumnSetColumns/>"),
                    "the element \"dbm:ColumnSetColumns\" is empty"},
        BadDocument{"a column of a table without its position",
                    inTable("<dbm:ColumnSetColumns><dbm:LogicalColumn oim:id=\"_3\" name=\"c\" "
                            "IsNullable=\"1\"/></dbm:ColumnSetColumns>"),
                    "the element \"dbm:LogicalColumn\" has no attribute \"Ordinal\""},
        BadDocument{
            "a column of a view with a position",
            inSchema("<dbm:SchemaViews><dbm:LogicalView oim:id=\"_2\" name=\"v\"><dbm:ColumnSetColumns>"
                     "<dbm:LogicalColumn oim:id=\"_3\" name=\"c\" Ordinal=\"1\"/>"
                     "</dbm:ColumnSetColumns></dbm:LogicalView></dbm:SchemaViews>"),
            "unknown attribute \"Ordinal\" of \"dbm:LogicalColumn\""},
        BadDocument{"a reference that is missing", packaged(makeDependency("")),
                    "the element \"uml:DependencySupplier\" is empty"},
        BadDocument{"a reference twice",
                    packaged(makeDependency("<uml:Class oim:href=\"#_3\"/><uml:Class oim:href=\"#_3\"/>") +
                             makeClass(3)),
                    "a reference to \"uml:Class\" is one too many in \"uml:DependencySupplier\""},
        BadDocument{"a class that depends on an entity",
                    frame("<uml:Model oim:id=\"_4\"><uml:NamespaceOwnedElement><uml:Package oim:id=\"_5\" "
                          "name=\"p\"><uml:NamespaceOwnedElement>" +
                          makeDependency("<erd:Model oim:href=\"#_3\"/>") +
                          "</uml:NamespaceOwnedElement></uml:Package></uml:NamespaceOwnedElement></uml:Model>"
                          "<erd:Model oim:id=\"_3\" name=\"m\"><erd:ModelEntities/><erd:ModelRelationships/>"
                          "<erd:ModelSubjectAreas/><erd:ModelDomains/></erd:Model>"),
                    "a reference to \"erd:Model\" does not belong in \"uml:DependencySupplier\""},
        BadDocument{
            "an origin of another kind",
            frame("<erd:Model oim:id=\"_2\" name=\"m\"><erd:ModelEntities/><erd:ModelRelationships/>"
                  "<erd:ModelSubjectAreas/><erd:ModelDomains/></erd:Model><dbm:LogicalCatalog "
                  "oim:id=\"_3\" name=\"c\"><dbm:CatalogSchemas><dbm:LogicalSchema oim:id=\"_4\" "
                  "name=\"s\"><dbm:SchemaTables><dbm:LogicalTable oim:id=\"_5\" name=\"t\">"
                  "<uml:ModelElementClientDependency><uml:Abstraction oim:id=\"_6\" name=\"Derived\">"
                  "<uml:DependencySupplier><erd:Model oim:href=\"#_2\"/></uml:DependencySupplier>"
                  "</uml:Abstraction></uml:ModelElementClientDependency></dbm:LogicalTable>"
                  "</dbm:SchemaTables></dbm:LogicalSchema></dbm:CatalogSchemas></dbm:LogicalCatalog>"),
            "a reference to \"erd:Model\" does not belong in \"uml:DependencySupplier\""},
        BadDocument{"a tagged value of a class with another value",
                    packaged(std::string(makeClass(2)).replace(makeClass(2).find("transient"), 9, "ZZZ")),
                    "the attribute \"value\" of \"uml:TaggedValue\" is \"ZZZ\" where \"persistent\" or "
                    "\"transient\" is expected"},
        BadDocument{
            "a tagged value of an operation in a class",
            packaged(std::string(makeClass(2)).replace(makeClass(2).find("persistence"), 11, "semantics")),
            "the attribute \"name\" of \"uml:TaggedValue\" is \"semantics\" where \"persistence\" is "
            "expected"}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(ElementChecks, TakesLooseReferencesThatTheExportIsKnownForAsNotes) {
    const Result result = check(packaged(LOOSE_ENDS));
    EXPECT_THAT(
        result.findings,
        ElementsAre("note 6:193 the reference to _9 in \"uml:StructuralFeatureType\" leads nowhere; a "
                    "class that is used as a type is referred to by the type, which has no element",
                    "note 8:64 the reference to _4 in \"uml:CommentAnnotatedElement\" leads to "
                    "\"uml:Interface\", not to \"uml:Class\"; comments refer to an interface as a "
                    "class"));
    EXPECT_EQ(result.summary.errors, 0U);
    EXPECT_EQ(result.summary.notes, 2U);
}

/// An association, or another element with ends, with an end whose class is missing.
std::string withLooseEnd(const std::string& start, const std::string& end) {
    return start +
           "<uml:AssociationConnection><uml:AssociationEnd oim:id=\"_3\" aggregation=\"none\" "
           "isNavigable=\"1\" ordering=\"unordered\"><uml:AssociationEndType><uml:Class oim:href=\"#_9\"/>"
           "</uml:AssociationEndType></uml:AssociationEnd></uml:AssociationConnection>" +
           end;
}

TEST(ElementChecks, TakesTheMissingClassOfAnAssociationClassForOneThatIsLeftOut) {
    const Result result = check(packaged(makeClass(2, withLooseEnd("", ""), "uml:AssociationClass")));
    EXPECT_THAT(result.findings,
                ElementsAre(HasSubstr("the reference to _9 in \"uml:AssociationEndType\" leads nowhere; the "
                                      "class at an association class's end may be physical only")));
    EXPECT_EQ(result.summary.errors, 0U);
}

class DocumentCheckRefuses : public testing::TestWithParam<BadDocument> {};

TEST_P(DocumentCheckRefuses, ALooseReferenceOfAnotherKindInAKnownPlace) {
    const Result result = check(GetParam().document);
    ASSERT_EQ(result.findings.size(), 1U) << testing::PrintToString(result.findings);
    EXPECT_EQ(textOf(result.findings[0]), GetParam().expected);
    EXPECT_EQ(result.summary.errors, 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentCheckRefuses,
    testing::Values(
        BadDocument{"a data type that is missing",
                    packaged(makeClass(2, makeAttribute(3, "<uml:DataType oim:href=\"#_9\"/>"))),
                    "the reference to _9 in \"uml:StructuralFeatureType\" leads nowhere"},
        BadDocument{
            "a class type that leads to a package",
            packaged(makeClass(2, makeAttribute(3, "<uml:Class oim:href=\"#_1002\"/>"))),
            "the reference to _1002 in \"uml:StructuralFeatureType\" leads to \"uml:Package\", not to "
            "\"uml:Class\""},
        BadDocument{
            "the class of an association without a class of its own",
            packaged(withLooseEnd("<uml:Association oim:id=\"_2\" name=\"a\">", "</uml:Association>")),
            "the reference to _9 in \"uml:AssociationEndType\" leads nowhere"},
        BadDocument{"a comment on nothing",
                    packaged("<uml:Comment oim:id=\"_5\" name=\"c\"><uml:CommentAnnotatedElement><uml:Class "
                             "oim:href=\"#_4\"/></uml:CommentAnnotatedElement></uml:Comment>"),
                    "the reference to _4 in \"uml:CommentAnnotatedElement\" leads nowhere"},
        BadDocument{
            "a relationship whose entity is a model",
            withRelationship(
                OF_PARENT +
                "<erd:RelationshipChildRole><erd:ChildRole oim:id=\"_7\"><erd:ChildRoleEntity><erd:Entity "
                "oim:href=\"#_2\"/></erd:ChildRoleEntity><erd:ChildRoleKey><erd:Key oim:href=\"#_5\"/>"
                "</erd:ChildRoleKey></erd:ChildRole></erd:RelationshipChildRole>"),
            "the reference to _2 in \"erd:ChildRoleEntity\" leads to \"erd:Model\", not to \"erd:Entity\""}),
    [](const auto& row) { return wordOf(row.param.description); });

TEST(ElementChecks, TellsALooseReferenceOnceAndCountsItInEveryPlace) {
    const std::string loose =
        "<uml:ModelElementStereotype><uml:Stereotype oim:href=\"#_9\"/></uml:ModelElementStereotype>";
    const std::string asType = makeAttribute(12, "<uml:Class oim:href=\"#_8\"/>");
    const std::string document =
        packaged(makeClass(2, loose) + makeClass(3, loose) + makeClass(4, loose) +
                 makeClass(5, makeAttribute(11, "<uml:Class oim:href=\"#_8\"/>")) + makeClass(6, asType));
    const Result result = check(document);
    EXPECT_THAT(
        result.findings,
        ElementsAre("error 6:87 the reference to _9 in \"uml:ModelElementStereotype\" leads nowhere; x3",
                    testing::AllOf(testing::StartsWith("note "), testing::EndsWith("no element; x2"))));
    EXPECT_EQ(result.summary.errors, 3U);
    EXPECT_EQ(result.summary.notes, 2U);
    EXPECT_EQ(check(document, 1 << 20, 0).summary.errors, 3U);
}

TEST(ElementChecks, LeavesOutAnUnknownElementThatALooseReferenceStandsIn) {
    const Result result = check(packaged("<uml:Clas oim:id=\"_2\"><uml:Class oim:href=\"#_9\"/></uml:Clas>"));
    EXPECT_THAT(result.findings, ElementsAre("error 6:1 unknown element \"uml:Clas\"",
                                             "error 6:23 the reference to _9 leads nowhere"));
}

TEST(OimGrammar, KnowsEveryElementThatItRefersTo) {
    // Building it throws otherwise.
    EXPECT_GT(oimcheck::OimGrammar::instance().tagCount(), 100U);
}

}  // namespace
