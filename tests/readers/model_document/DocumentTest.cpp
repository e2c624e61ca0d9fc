// What follows from a document beyond its words: defaults, order, references that lead forward, what is
// ignored.
#include <gmock/gmock.h>
#include <simdjson.h>

#include "Documents.h"
#include "ModelDump.h"
#include "model_document/ModelDocumentReader.h"

namespace {

using documents::firstElement;
using documents::projectFile;
using documents::read;
using documents::RecordingContext;
using documents::withElements;
using documents::withModel;
using readers::Source;
using support::dumpModel;
using testing::ElementsAre;

std::string reverseKeys(simdjson::dom::element value);

/// The members of an object, or elements of a list, as text, with the separators between them.
std::string join(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) {
        text += (text.empty() ? "" : ", ") + item;
    }
    return text;
}

std::string reverseKeys(simdjson::dom::object object) {
    std::vector<std::string> members;
    for (const auto& [key, value] : object) {
        members.insert(members.begin(), '"' + std::string(key) + "\": " + reverseKeys(value));
    }
    return '{' + join(members) + '}';
}

/// The same JSON with the keys of every object in the opposite order.
std::string reverseKeys(simdjson::dom::element value) {
    if (value.is_object()) {
        const simdjson::dom::object object = value.get_object();
        return reverseKeys(object);
    }
    if (value.is_array()) {
        std::vector<std::string> items;
        const simdjson::dom::array list = value.get_array();
        for (const simdjson::dom::element item : list) {
            items.push_back(reverseKeys(item));
        }
        return '[' + join(items) + ']';
    }
    return simdjson::minify(value);
}

template <typename Part>
std::vector<std::string> namesOf(const ZORVector<Part*>& parts) {
    std::vector<std::string> names;
    for (const Part* part : parts) {
        names.emplace_back(part->getName());
    }
    return names;
}

TEST(DocumentOrder, OfKeysDoesNotMatter) {
    const std::string text = projectFile("examples/everything.model.json");
    simdjson::dom::parser parser;
    const simdjson::dom::element document = parser.parse(text);
    const std::string reversed = reverseKeys(document);
    EXPECT_NE(text.find("\"format\""), std::string::npos);
    EXPECT_LT(reversed.find("\"model\""), reversed.find("\"format\""));
    EXPECT_EQ(dumpModel(*read(reversed)), dumpModel(*read(text)));
}

TEST(DocumentOrder, OfReferringObjectsIsThatOfTheWalk) {
    const auto model = read(withModel(R"(
        "children": [{"kind": "package",
            "elements": [
                {"kind": "generalization", "name": "outer", "parents": ["c"], "children": ["c"]},
                {"kind": "dependency", "name": "outer", "client": "c", "supplier": "c"},
                {"kind": "realization", "name": "outer", "client": "c", "supplier": "c"}],
            "diagrams": [{"name": "outer", "elements": ["c"]}],
            "packages": [{
                "diagrams": [{"name": "inner", "elements": ["c"]}],
                "elements": [
                    {"kind": "class", "id": "c"},
                    {"kind": "generalization", "name": "inner", "parents": ["c"], "children": ["c"]},
                    {"kind": "dependency", "name": "inner", "client": "c", "supplier": "c"},
                    {"kind": "realization", "name": "inner", "client": "c", "supplier": "c"}]}]}])"));
    const auto& inner = static_cast<ZORDesignPackage&>(*model->getChildPackages()[0]->getChildPackages()[0]);
    const auto& cls = static_cast<ZORClass&>(*inner.getModelElements()[0]);
    EXPECT_THAT(namesOf(cls.getGeneralizations()), ElementsAre("inner", "outer"));
    EXPECT_THAT(namesOf(cls.getClientDependencies()), ElementsAre("inner", "outer"));
    EXPECT_THAT(namesOf(cls.getRealizations()), ElementsAre("inner", "outer"));
    EXPECT_THAT(namesOf(cls.getDiagrams()), ElementsAre("inner", "outer"));
}

TEST(DocumentOrder, OfTypedObjectsIsThatOfTheWalk) {
    const auto model = read(withElements(R"({"kind": "class",
        "templateArguments": [{"type": "t", "name": "argument"}],
        "operations": [{"arguments": [{"type": "t", "name": "parameter"}], "result": "t", "name": "operation"}],
        "attributes": [{"type": "t", "name": "attribute"}]})"));
    EXPECT_THAT(namesOf(model->getTypes()[0]->getTypedObjects()),
                ElementsAre("attribute", "operation", "parameter", "argument"));
}

TEST(DocumentOrder, OfKeysThatAnAttributeIsInIsThatOfTheClass) {
    const auto model = read(withElements(R"({"kind": "class",
        "keys": [{"kind": "foreign", "name": "first", "attributes": ["a"]},
                 {"kind": "candidate", "name": "second", "attributes": ["a"]}],
        "attributes": [{"id": "a", "type": "t"}]})"));
    EXPECT_THAT(namesOf(firstElement<ZORClass>(*model).getAttributes()[0]->getKeys()),
                ElementsAre("first", "second"));
}

TEST(DocumentReferences, LeadForwardAndBackward) {
    const auto model = read(withModel(R"("types": [{"kind": "alias", "base": "later"},
        {"kind": "base", "id": "later"}, {"kind": "alias", "base": "later"}])"));
    const ZORType* later = model->getTypes()[1];
    EXPECT_EQ(model->getTypes()[0]->getBaseType(), later);
    EXPECT_EQ(model->getTypes()[2]->getBaseType(), later);
    EXPECT_EQ(later->getBasedTypes().size(), 2U);
}

TEST(DocumentReferences, SourceOfAColumnIsAnyObject) {
    for (const char* source : {"model", "type", "package", "view", "column", "operation", "argument"}) {
        const auto model = read(withModel(R"("id": "model", "types": [{"kind": "base", "id": "type"}],
            "children": [{"kind": "package", "id": "package", "elements": [{"kind": "view", "id": "view",
                "columns": [{"id": "column", "source": ")" +
                                          std::string(source) + R"("}],
                "operations": [{"id": "operation", "arguments": [{"id": "argument", "type": "type"}]}]}]}])"));
        EXPECT_NE(firstElement<ZORSQLViewEntity>(*model).getSQLViewAttributes()[0]->getSource(), nullptr)
            << source;
    }
}

TEST(DocumentReferences, LeaveNothingBehindOnTheObjects) {
    class Pointers : public ZORTraversalOperation {
      public:
        bool pre_process(ZORObject* object, void*& /*context*/) override {
            EXPECT_EQ(object->getGeneralPointer(), nullptr);
            ++visited;
            return true;
        }
        int visited = 0;
    };
    const auto model = read(projectFile("examples/everything.model.json"));
    Pointers pointers;
    void* context = nullptr;
    model->_depthTraversal(pointers, context);
    EXPECT_GT(pointers.visited, 100);
    for (const ZORModelObject* attribute : model->getTypes()[6]->getTypedObjects()) {
        if (attribute->getElementType() == ZOR_ATTRIBUTE) {
            for (const auto* map : static_cast<const ZORAttribute*>(attribute)->getRoleNameMaps()) {
                EXPECT_EQ(map->getGeneralPointer(), nullptr);
            }
        }
    }
}

TEST(DocumentIgnores, KeysThatBeginWithADollarSign) {
    const std::string ignored =
        R"("$comment": "a", "$comment": {"kind": [1, 2.5e3, null, "x\u0000"]}, "$": false, )";
    const auto model = read("{" + ignored + R"("format": "oim-source-model", "version": 1, "model": {)" +
                            ignored + R"("types": [{)" + ignored + R"("kind": "base", "values": [{)" +
                            ignored + R"("name": "v"}]}]}})");
    EXPECT_EQ(model->getTypes()[0]->getTypeValues()[0]->getName(), "v");
}

TEST(DocumentIgnores, HugeNumbersInIgnoredValues) {
    EXPECT_EQ(read(withModel(R"("$x": [1e999, 99999999999999999999999999], "name": "n")"))->getName(), "n");
}

TEST(DocumentIgnores, EmptyIds) {
    const auto model =
        read(withModel(R"("id": "", "types": [{"kind": "base", "id": ""}, {"kind": "base", "id": ""}])"));
    EXPECT_EQ(model->getTypes().size(), 2U);
}

TEST(DocumentDefaults, AreThoseOfNewObjects) {
    ZORModel expected;
    expected.addType(std::make_unique<ZORType>());
    expected.addType(std::make_unique<ZORConcreteType>());
    auto* type = expected.addType(std::make_unique<ZORDerivedType>());
    expected.addType(std::make_unique<ZORAliasType>())->addTypeValue(std::make_unique<ZORTypeValue>());
    auto* classType = expected.addType(std::make_unique<ZORClassType>());
    expected.addChildPackage(std::make_unique<ZORDatabaseCatalog>());
    auto* package = expected.addChildPackage(std::make_unique<ZORDesignPackage>());
    package->addChildPackage(std::make_unique<ZORDesignPackage>());
    package->addDiagram(std::make_unique<ZORDiagram>());
    package->addOperation(std::make_unique<ZOROperation>());
    auto* cls = package->addModelElement(std::make_unique<ZORClass>());
    auto* attribute = cls->addAttribute(std::make_unique<ZORAttribute>());
    attribute->setType(type);
    attribute->addRoleNameMap(std::make_unique<ZORAssociationRoleNameMap>());
    cls->addOperation(std::make_unique<ZOROperation>());
    cls->addOperation(std::make_unique<ZORStoredProcedure>());
    cls->addOperation(std::make_unique<ZORTrigger>());
    cls->addArgument(std::make_unique<ZORArgument>())->addType(type);
    cls->addKey(std::make_unique<ZORCandidateKey>());
    cls->addKey(std::make_unique<ZORForeignKey>());
    cls->addIndex(std::make_unique<ZORIndex>())
        ->addIndexMember(std::make_unique<ZORIndexMember>())
        ->setAttribute(attribute);
    cls->addSynonym(std::make_unique<ZORSynonym>());
    classType->setAssociatedClass(cls);
    package->addModelElement(std::make_unique<ZORSQLViewEntity>())
        ->addSQLViewAttribute(std::make_unique<ZORSQLViewAttribute>());
    auto* role = package->addModelElement(std::make_unique<ZORAssociation>())
                     ->addRole(std::make_unique<ZORAssociationRole>());
    role->setAssociatedClass(cls);
    auto* generalization = package->addModelElement(std::make_unique<ZORGeneralization>());
    generalization->addSupertypeClass(cls);
    generalization->addSubtypeClass(cls);
    auto* dependency = package->addModelElement(std::make_unique<ZORDependency>());
    dependency->setClient(cls);
    dependency->setSupplier(cls);
    auto* realization = package->addModelElement(std::make_unique<ZORRealization>());
    realization->setClient(cls);
    realization->setSupplier(cls);

    const auto model = read(withModel(R"(
        "types": [{"kind": "base"}, {"kind": "concrete"}, {"kind": "derived", "id": "t"},
                  {"kind": "alias", "values": [{}]}, {"kind": "class", "class": "c"}],
        "children": [{"kind": "catalog"}, {"kind": "package", "packages": [{}], "diagrams": [{}], "operations": [{}],
            "elements": [
                {"kind": "class", "id": "c",
                 "attributes": [{"id": "a", "type": "t", "roleNameMaps": [{}]}],
                 "operations": [{}, {"kind": "procedure"}, {"kind": "trigger"}],
                 "templateArguments": [{"type": "t"}],
                 "keys": [{"kind": "candidate"}, {"kind": "foreign"}],
                 "indexes": [{"members": [{"attribute": "a"}]}],
                 "synonyms": [{}]},
                {"kind": "view", "columns": [{}]},
                {"kind": "association", "roles": [{"class": "c"}]},
                {"kind": "generalization", "parents": ["c"], "children": ["c"]},
                {"kind": "dependency", "client": "c", "supplier": "c"},
                {"kind": "realization", "client": "c", "supplier": "c"}]}])"));
    EXPECT_EQ(dumpModel(*model), dumpModel(expected));
}

TEST(ModelDocumentReader, DescribesItself) {
    const readers::ReaderDescription& description = readers::modelDocumentReader().describe();
    EXPECT_EQ(description.name, "json");
    EXPECT_EQ(description.naturalView, "uml");
    EXPECT_FALSE(description.takesSelection);
    EXPECT_TRUE(description.options.empty());
}

TEST(ModelDocumentReader, RecognisesDocumentsByContentThenByName) {
    struct Case {
        const char* name;
        std::string text;
        bool recognised;
    };
    const Case cases[] = {
        {"x", withModel(""), true},
        {"x", "\xEF\xBB\xBF \n" + withModel(""), true},
        {"x.sql", withModel(""), true},
        {"x", R"({"model": {}})", false},
        {"x", R"(["oim-source-model"])", false},
        {"x", R"(-- "oim-source-model")", false},
        {"x", "", false},
        {"x.json", "{}", false},
        {"x.model.json", "", true},
        {"x.model.json", "{" + std::string(5000, ' ') + "\"format\": \"oim-source-model\"", true},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(readers::modelDocumentReader().identify(Source::fromText(row.name, row.text)),
                  row.recognised)
            << row.name << ": " << row.text.substr(0, 60);
    }
}

TEST(ModelDocumentReader, GivesTheModelTheNameThatIsAskedFor) {
    readers::ReadRequest request;
    request.modelName = "Other";
    RecordingContext context;
    const auto source = Source::fromText("document", withModel(R"("name": "Model")"));
    EXPECT_EQ(readers::modelDocumentReader().read(source, request, context)->getName(), "Other");
    EXPECT_EQ(readers::modelDocumentReader().read(source, {}, context)->getName(), "Model");
}

TEST(ModelDocumentReader, WarnsOfNothingAndLosesNothing) {
    RecordingContext context;
    const auto source = Source::fromText("document", projectFile("examples/everything.model.json"));
    readers::modelDocumentReader().read(source, {}, context);
    EXPECT_TRUE(context.warnings.empty());
    EXPECT_TRUE(context.losses.isEmpty());
}

}  // namespace
