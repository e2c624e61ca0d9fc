#include "Rows.h"

namespace readers::document {

namespace {

using enum Target::Condition;

constexpr Word DESIGN_LEVELS[] = {
    {"both", ZOR_LOGICAL_AND_PHYSICAL}, {"logical", ZOR_LOGICAL_ONLY}, {"physical", ZOR_PHYSICAL_ONLY}};
constexpr Word VISIBILITY_WORDS[] = {{"public", ZOR_VISIBILITY_PUBLIC},
                                     {"protected", ZOR_VISIBILITY_PROTECTED},
                                     {"private", ZOR_VISIBILITY_PRIVATE},
                                     {"implementation", ZOR_VISIBILITY_IMPLEMENTATION}};
constexpr Word CONCURRENCY_WORDS[] = {{"sequential", ZOR_CONCURRENCY_SEQUENTIAL},
                                      {"guarded", ZOR_CONCURRENCY_GUARDED},
                                      {"active", ZOR_CONCURRENCY_ACTIVE},
                                      {"synchronous", ZOR_CONCURRENCY_SYNCHRONOUS}};
constexpr std::int32_t VERSION = 1;
constexpr Word FORMATS[] = {{"oim-source-model", 0}};

void ignoreNumber(ZORModelObject& /*object*/, std::int32_t /*number*/) {}

Field noteTexts() {
    Field row = field("notes", Shape::TEXTS, "The texts of the notes attached to the object.");
    row.setText = [](ZORModelObject& object, std::string_view value) {
        object.addNote(std::make_unique<ZORNote>(ZORString(value)));
    };
    row.count = [](const ZORModelObject& object) { return object.getNotes().size(); };
    row.getText = [](const ZORModelObject& object, std::size_t index) -> const ZORString& {
        return object.getNotes()[index]->getDescription();
    };
    return row;
}

}  // namespace

const Target ANY_OBJECT = {ZOR_MODEL_OBJECT, NONE, "an object", "objects"};
const Target ANY_TYPE = {ZOR_TYPE, NONE, "a type", "types"};
const Target ANY_CLASS = {ZOR_CLASS, NONE, "a class", "classes"};
const Target ANY_ATTRIBUTE = {ZOR_ATTRIBUTE, NONE, "an attribute", "attributes"};
const Target ANY_CANDIDATE_KEY = {ZOR_CANDIDATE_KEY, NONE, "a candidate key", "candidate keys"};
const Target ANY_FOREIGN_KEY = {ZOR_FOREIGN_KEY, NONE, "a foreign key", "foreign keys"};
const Target ANY_ELEMENT = {ZOR_MODEL_ELEMENT, NONE, "an element", "elements"};
const Target OWN_ATTRIBUTE = {ZOR_ATTRIBUTE, SAME_CLASS, "an attribute of the same class",
                              "attributes of the same class"};
const Target OWN_KEY = {ZOR_KEY, SAME_CLASS, "a key of the same class", "keys of the same class"};
const Target FREE_FOREIGN_KEY = {ZOR_FOREIGN_KEY, ONLY_ONCE,
                                 "a foreign key that no other role or generalization has",
                                 "foreign keys that no other role or generalization has"};
const Target FREE_CLASS = {ZOR_CLASS, ONLY_ONCE, "a class that no other association has",
                           "classes that no other association has"};

const std::span<const Word> VISIBILITIES = VISIBILITY_WORDS;
const std::span<const Word> CONCURRENCIES = CONCURRENCY_WORDS;

std::vector<Field> withCommonFields(std::vector<Field> own) {
    std::vector<Field> fields = {
        field("id", Shape::ID,
              "What references call the object; unique in the document. An empty id is none."),
        text<&ZORModelObject::setName, &ZORModelObject::getName>("name", "The name."),
        text<&ZORModelObject::setPhysicalName, &ZORModelObject::getPhysicalName>(
            "physicalName", "The name in the database, where it differs from the name."),
        text<&ZORModelObject::setDescription, &ZORModelObject::getDescription>("description",
                                                                               "What the object is."),
        text<&ZORModelObject::setComments, &ZORModelObject::getComments>("comments",
                                                                         "Remarks on the object."),
        text<&ZORModelObject::setStereotype, &ZORModelObject::getStereotype>("stereotype",
                                                                             "The object's stereotype."),
        word<&ZORModelObject::setDesignLevel, &ZORModelObject::getDesignLevel>(
            "designLevel", DESIGN_LEVELS,
            "Whether the object belongs to the logical model, to the database, or to both."),
        noteTexts(),
    };
    fields.insert(fields.end(), own.begin(), own.end());
    return fields;
}

std::vector<Field> documentFields() {
    Field format = required(field("format", Shape::WORD, "Says that this is a model document."));
    format.words = FORMATS;
    format.setNumber = ignoreNumber;
    format.getNumber = [](const ZORModelObject&) { return FORMATS[0].number; };
    Field version = required(field("version", Shape::INTEGER, "The version of the format."));
    version.lowest = version.highest = VERSION;
    version.setNumber = ignoreNumber;
    version.getNumber = [](const ZORModelObject&) { return VERSION; };
    Field model = required(field("model", Shape::OBJECT, "The model."));
    model.family = Family::MODEL;
    model.count = [](const ZORModelObject&) -> std::size_t { return 1; };
    // The document and its model are the same object.
    model.getObject = [](const ZORModelObject& object, std::size_t) -> const ZORObject* { return &object; };
    return {format, version, model};
}

std::vector<Field> modelFields() {
    return withCommonFields({
        objects<&ZORModel::addChildPackage<ZORPackage>, &ZORModel::getChildPackages>(
            "children", Family::CHILDREN, "The packages and the database catalog."),
        objects<&ZORModel::addType<ZORType>, &ZORModel::getTypes>("types", Family::TYPES,
                                                                  "All data types of the model."),
    });
}

std::vector<Field> catalogFields() {
    return withCommonFields({
        text<&ZORDatabaseCatalog::setDatabaseType, &ZORDatabaseCatalog::getDatabaseType>(
            "databaseType", "The database that the model is for, such as \"SQL Server 7.x\"."),
    });
}

std::vector<Field> packageFields() {
    return withCommonFields({
        objects<&ZORDesignPackage::addChildPackage<ZORPackage>, &ZORDesignPackage::getChildPackages>(
            "packages", Family::PACKAGES, "The packages inside this one."),
        objects<&ZORDesignPackage::addModelElement<ZORModelElement>, &ZORDesignPackage::getModelElements>(
            "elements", Family::ELEMENTS, "The classes, views and relationships, in any order."),
        objects<&ZORDesignPackage::addOperation, &ZORDesignPackage::getOperations>(
            "operations", Family::OPERATIONS, "Operations of the package itself."),
        objects<&ZORDesignPackage::addDiagram, &ZORDesignPackage::getDiagrams>("diagrams", Family::DIAGRAMS,
                                                                               "The diagrams."),
    });
}

std::vector<Field> diagramFields() {
    return withCommonFields({
        references<&ZORDiagram::addModelElement, &ZORDiagram::getModelElements>("elements", ANY_ELEMENT,
                                                                                "What the diagram shows."),
    });
}

}  // namespace readers::document
