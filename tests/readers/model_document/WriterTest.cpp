// Saving a model as a document.
#include <gmock/gmock.h>

#include "Documents.h"
#include "ModelDump.h"
#include "model_document/ModelDocumentWriter.h"

namespace {

using documents::read;
using documents::withElements;
using documents::withModel;
using support::dumpModel;
using testing::HasSubstr;

std::string save(const ZORModel& model) {
    std::string document;
    readers::writeModelDocument(model, [&](std::string_view portion) { document += portion; });
    return document;
}

/// The model that is read of the document, saved.
std::string saveAgain(const std::string& document) {
    return save(*read(document));
}

TEST(SavedDocument, GivesTheModelBackThatUsesEverything) {
    const auto model = read(documents::projectFile("examples/everything.model.json"));
    const std::string saved = save(*model);
    const auto again = read(saved);
    EXPECT_EQ(dumpModel(*again), dumpModel(*model));
    EXPECT_EQ(save(*again), saved);
}

TEST(SavedDocument, HasOneThingOnALineAndNoDefaults) {
    EXPECT_EQ(saveAgain(R"({"format": "oim-source-model", "version": 1, "model": {"name": "m", "types": [
        {"kind": "concrete", "id": "9", "name": "int", "dataType": "SQL_INTEGER", "length": 0}],
        "children": [{"kind": "package", "name": "p", "packages": [], "elements": [
            {"kind": "class", "name": "c", "visibility": "public", "abstract": false, "attributes": [
                {"id": "a1", "name": "a", "type": "9", "position": 0, "notes": ["one", "two"]},
                {"id": "a2", "name": "b", "type": "9", "position": 7, "optional": true}],
             "keys": [{"kind": "candidate", "primary": true, "attributes": ["a2", "a1"]}],
             "operations": [{"kind": "operation", "name": "run"},
                            {"kind": "trigger", "events": ["delete", "insert"], "timing": "before"}]}]}]}})"),
              R"({
  "format": "oim-source-model",
  "version": 1,
  "model": {
    "name": "m",
    "children": [
      {
        "kind": "package",
        "name": "p",
        "elements": [
          {
            "kind": "class",
            "name": "c",
            "attributes": [
              { "id": "p.c.a", "name": "a", "notes": ["one", "two"], "type": "int" },
              { "id": "p.c.b", "name": "b", "type": "int", "position": 7, "optional": true }
            ],
            "operations": [
              { "name": "run" },
              { "kind": "trigger", "events": ["insert", "delete"] }
            ],
            "keys": [
              { "kind": "candidate", "attributes": ["p.c.b", "p.c.a"], "primary": true }
            ]
          }
        ]
      }
    ],
    "types": [
      { "kind": "concrete", "id": "int", "name": "int", "dataType": "SQL_INTEGER" }
    ]
  }
}
)");
}

TEST(SavedDocument, BreaksLongListsAndKeepsAnEmptyModel) {
    EXPECT_EQ(saveAgain(withModel("")), R"({
  "format": "oim-source-model",
  "version": 1,
  "model": {}
}
)");
    const std::string text(60, 'x');
    EXPECT_EQ(saveAgain(withModel("\"notes\": [\"" + text + "\", \"" + text + "\"]")),
              "{\n  \"format\": \"oim-source-model\",\n  \"version\": 1,\n  \"model\": {\n    \"notes\": [\n"
              "      \"" +
                  text + "\",\n      \"" + text + "\"\n    ]\n  }\n}\n");
}

/// A package with two classes of these names, each referred to by a dependency.
std::string twoClasses(const std::string& first, const std::string& second) {
    return withElements(R"({"kind": "class", "id": "1", "name": ")" + first +
                        R"("}, {"kind": "class", "id": "2", "name": ")" + second +
                        R"("}, {"kind": "dependency", "client": "1", "supplier": "2"})");
}

struct IdRow {
    const char* description;
    std::string document;
    std::string client;
    std::string supplier;
};

class SavedIds : public testing::TestWithParam<IdRow> {};

TEST_P(SavedIds, AreReadableAndUnique) {
    const std::string saved = saveAgain(GetParam().document);
    EXPECT_THAT(saved, HasSubstr("\"client\": \"" + GetParam().client + "\""));
    EXPECT_THAT(saved, HasSubstr("\"supplier\": \"" + GetParam().supplier + "\""));
    EXPECT_EQ(dumpModel(*read(saved)), dumpModel(*read(GetParam().document)));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SavedIds,
    testing::Values(IdRow{"OfNames", twoClasses("a", "b"), "package.a", "package.b"},
                    IdRow{"OfTheSameNames", twoClasses("a", "a"), "package.a", "package.a~2"},
                    IdRow{"OfANameThatLooksLikeAnId", twoClasses("a~2", "a"), "package.a~2", "package.a"},
                    IdRow{"WithoutNames", twoClasses("", ""), "package.class", "package.class~2"},
                    IdRow{"OfNamesWithQuotes", twoClasses("a \\\"b\\\"", "a.b\\n"), "package.a \\\"b\\\"",
                          "package.a.b\\n"},
                    IdRow{"OfVeryLongNames", twoClasses(std::string(5000, 'x'), std::string(5001, 'x')),
                          "package." + std::string(80, 'x'), "package." + std::string(80, 'x') + "~2"}),
    [](const auto& row) { return row.param.description; });

TEST(SavedIdsOf, DeepPackagesStayShort) {
    std::string packages;
    std::string ends;
    for (int i = 0; i < 900; ++i) {
        packages += "{\"name\": \"" + std::string(50, 'p') + "\", \"packages\": [";
        ends += "]}";
    }
    const std::string document =
        "{\"format\": \"oim-source-model\", \"version\": 1, \"model\": {\"children\": [{\"kind\": "
        "\"package\", "
        "\"packages\": [" +
        packages +
        R"({"elements": [{"kind": "class", "id": "1"}, {"kind": "dependency", "client": "1", "supplier": "1"}]})" +
        ends + "]}]}}";
    const auto model = read(document);
    const std::string saved = save(*model);
    const std::size_t id = saved.find("\"client\": \"");
    EXPECT_LT(saved.find('\n', id) - id, 250U);
    EXPECT_EQ(dumpModel(*read(saved)), dumpModel(*model));
}

TEST(SavedDocument, EscapesWhatJsonCannotHold) {
    ZORModel model;
    using namespace std::string_view_literals;
    model.setName(ZORString("\"\\\n\t\r\b\f\x01\x1f\x7f\0 \xC3\xA4\xEF\xBF\xBE"sv));
    const std::string saved = save(model);
    EXPECT_THAT(saved, HasSubstr(R"("\"\\\n\t\r\b\f\u0001\u001f\u007f\u0000 )"));
    EXPECT_EQ(read(saved)->getName(), model.getName());
}

TEST(SavedDocument, ReplacesWhatIsNotUtf8AndCountsTheTexts) {
    ZORModel model;
    model.setName(ZORString("a\xff\xe2\x82z"));
    model.setDescription(ZORString("\xed\xa0\x80"));
    model.setComments(ZORString("fine"));
    std::string saved;
    EXPECT_EQ(readers::writeModelDocument(model, [&](std::string_view portion) { saved += portion; }), 2U);
    EXPECT_EQ(read(saved)->getName(), ZORString("a\xEF\xBF\xBD\xEF\xBF\xBDz"));
    EXPECT_EQ(read(saved)->getDescription(), ZORString("\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"));
}

TEST(SavedDocument, TellsIdsApartThatDifferOnlyInWhatIsNotUtf8) {
    ZORModel model;
    auto* package = model.addChildPackage(std::make_unique<ZORDesignPackage>());
    auto* first = package->addModelElement(std::make_unique<ZORClass>());
    auto* second = package->addModelElement(std::make_unique<ZORClass>());
    first->setName(ZORString("a\xfe"));
    second->setName(ZORString("a\xff"));
    auto* dependency = package->addModelElement(std::make_unique<ZORDependency>());
    dependency->setClient(first);
    dependency->setSupplier(second);
    const auto again = read(save(model));
    const auto& elements = static_cast<ZORDesignPackage*>(again->getChildPackages()[0])->getModelElements();
    EXPECT_EQ(static_cast<ZORDependency*>(elements[2])->getClient(), elements[0]);
    EXPECT_EQ(static_cast<ZORDependency*>(elements[2])->getSupplier(), elements[1]);
}

TEST(SavedDocument, LeavesOutNotesOnDiagrams) {
    ZORModel model;
    auto* package = model.addChildPackage(std::make_unique<ZORDesignPackage>());
    auto* cls = package->addModelElement(std::make_unique<ZORClass>());
    ZORNote note;
    auto* diagram = package->addDiagram(std::make_unique<ZORDiagram>());
    diagram->addModelElement(&note);
    diagram->addModelElement(cls);
    EXPECT_THAT(save(model), HasSubstr(R"({ "elements": ["package.class"] })"));
}

TEST(SavedDocument, RefusesReferencesThatLeaveTheModel) {
    ZORModel model;
    ZORClass outside;
    auto* package = model.addChildPackage(std::make_unique<ZORDesignPackage>());
    auto* dependency = package->addModelElement(std::make_unique<ZORDependency>());
    dependency->setSupplier(&outside);
    EXPECT_THROW(save(model), std::invalid_argument);
}

}  // namespace
