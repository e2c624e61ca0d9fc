#include "ModelMaker.h"

#include <algorithm>

namespace fuzz {
namespace {

constexpr std::size_t MOST_ELEMENTS = 40;

/// Names that clash, names to escape, ill-formed UTF-8, characters that XML forbids.
constexpr const char* TEXTS[] = {"",
                                 "A",
                                 "B",
                                 "A/1",
                                 "a",
                                 "id",
                                 "a \"b\" <c> & d",
                                 "line\nline\ttab\r",
                                 "\xC3\xA4\xF0\x9F\x98\x80",
                                 "\xFF\xC0\x80",
                                 "\x01",
                                 "shared",
                                 "SQL_VARCHAR",
                                 "a name of some length, as people give them now and then"};

constexpr const char* DATA_TYPES[] = {
    "",    "SQL_INTEGER", "SQL_VARCHAR",  "SQL_NUMERIC", "SQL_TIMESTAMP",   "SQL_CHAR", "AUTOINCREMENT",
    "INT", "bytea",       "no such type", "SQL_BINARY",  "SQL_LONGVARCHAR", "SQL_BIT",  "SQL_DATE"};

constexpr const char* DATABASES[] = {"", "SQL Server 7.x", "Oracle 8.x", "DB2/UDB 5", "SQLite", "Access 97"};

}  // namespace

std::unique_ptr<ZORModel> ModelMaker::make() {
    setTexts(*model_);
    model_->setName(choices_.either() ? "Model" : "");
    makePackages();
    makeTypes();
    while (!choices_.isEmpty() && elements_.size() < MOST_ELEMENTS) {
        makeElement();
    }
    completeForeignKeys();
    return std::move(model_);
}

ZORString ModelMaker::anyText() {
    return choices_.pick(TEXTS);
}

void ModelMaker::setTexts(ZORModelObject& object) {
    object.setName(anyText());
    if (!choices_.oneIn(4)) {
        return;
    }
    object.setPhysicalName(anyText());
    object.setDescription(anyText());
    object.setComments(anyText());
    object.setDesignLevel(anyOf<ZORDesignLevel>(3));
    if (choices_.oneIn(3)) {
        object.setStereotype(anyText());
    }
    for (std::size_t notes = choices_.below(3); notes > 0; --notes) {
        auto note = std::make_unique<ZORNote>();
        note->setDescription(anyText());
        object.addNote(std::move(note));
    }
}

void ModelMaker::makePackages() {
    for (std::size_t count = 1 + choices_.below(4); count > 0; --count) {
        auto package = anyObject<ZORDesignPackage>();
        ZORPackage* parent = model_.get();
        if (!packages_.empty() && choices_.either()) {
            parent = any(packages_);
        }
        packages_.push_back(parent->addChildPackage(std::move(package)));
    }
    for (std::size_t count = choices_.below(3); count > 0; --count) {
        model_->addChildPackage(anyObject<ZORDatabaseCatalog>())->setDatabaseType(choices_.pick(DATABASES));
    }
}

ZORDesignPackage& ModelMaker::anyPackage() {
    return *any(packages_);
}

void ModelMaker::makeTypes() {
    for (std::size_t count = 1 + choices_.below(8); count > 0; --count) {
        ZORType* type = nullptr;
        switch (choices_.below(4)) {
            case 0:
                type = model_->addType(anyObject<ZORConcreteType>());
                break;
            case 1:
                type = model_->addType(anyObject<ZORType>());
                break;
            case 2: {
                ZORDerivedType* derived = model_->addType(anyObject<ZORDerivedType>());
                derived->setBaseType(any(types_));
                type = derived;
                break;
            }
            default: {
                ZORAliasType* alias = model_->addType(anyObject<ZORAliasType>());
                alias->setBaseType(any(types_));
                type = alias;
                break;
            }
        }
        type->setDataType(choices_.pick(DATA_TYPES));
        type->setLength(static_cast<std::int32_t>(choices_.below(4)));
        type->setScale(static_cast<std::int32_t>(choices_.below(3)));
        type->setInitialValue(anyText());
        for (std::size_t values = choices_.below(3); values > 0; --values) {
            ZORTypeValue* value = type->addTypeValue(anyObject<ZORTypeValue>());
            value->setCode(static_cast<std::int16_t>(choices_.below(256) - 128));
            value->setValue(anyText());
        }
        types_.push_back(type);
    }
}

void ModelMaker::makeElement() {
    switch (choices_.below(10)) {
        case 0:
        case 1:
        case 2:
            return makeClass();
        case 3:
            return makeView();
        case 4:
        case 5:
            return makeAssociation();
        case 6:
            return makeGeneralization();
        case 7:
            return makeDiagram();
        case 8: {
            if (classes_.empty()) {
                return makeClass();
            }
            ZORDependency* dependency = anyPackage().addModelElement(anyObject<ZORDependency>());
            dependency->setClient(any(classes_));
            dependency->setSupplier(any(classes_));
            elements_.push_back(dependency);
            return;
        }
        default: {
            if (classes_.empty()) {
                return makeClass();
            }
            ZORRealization* realization = anyPackage().addModelElement(anyObject<ZORRealization>());
            realization->setStereotype("");
            realization->setClient(any(classes_));
            realization->setSupplier(any(classes_));
            elements_.push_back(realization);
            return;
        }
    }
}

void ModelMaker::makeClass() {
    ZORClass* cls = anyPackage().addModelElement(anyObject<ZORClass>());
    classes_.push_back(cls);
    elements_.push_back(cls);
    cls->setClassType(static_cast<int>(choices_.oneIn(3) ? choices_.below(10) : 0));
    cls->setVisibility(anyOf<ZORVisibilityType>(4));
    cls->setConcurrency(anyOf<ZORConcurrencyType>(4));
    cls->setAbstract(choices_.either());
    cls->setPersistent(choices_.either());
    makeAttributes(*cls);
    makeKeys(*cls);
    for (std::size_t count = choices_.below(3); count > 0; --count) {
        makeIndex(*cls);
    }
    for (std::size_t count = choices_.below(3); count > 0; --count) {
        cls->addOperation(anyOperation());
    }
    if (choices_.oneIn(5)) {
        makeArgument(*cls->addArgument(anyObject<ZORArgument>()));
    }
    if (choices_.oneIn(5)) {
        cls->addSynonym(anyObject<ZORSynonym>());
    }
    if (choices_.oneIn(4)) {
        ZORClassType* type = model_->addType(anyObject<ZORClassType>());
        type->setAssociatedClass(cls);
        types_.push_back(type);
    }
}

void ModelMaker::makeAttributes(ZORClass& cls) {
    for (std::size_t count = choices_.below(5); count > 0; --count) {
        ZORAttribute* attribute = cls.addAttribute(anyObject<ZORAttribute>());
        attribute->setType(any(types_));
        attribute->setPosition(static_cast<std::int16_t>(choices_.below(4)));
        attribute->setOptional(choices_.either());
        attribute->setStatic(choices_.oneIn(4));
        attribute->setVisibility(anyOf<ZORVisibilityType>(4));
        attribute->setInitialValue(choices_.oneIn(4) ? anyText() : ZORString());
        attributes_.push_back(attribute);
    }
}

void ModelMaker::makeKeys(ZORClass& cls) {
    bool hasPrimary = false;
    for (std::size_t count = choices_.below(4); count > 0; --count) {
        ZORKey* key = nullptr;
        if (choices_.either()) {
            ZORForeignKey* foreign = cls.addKey(anyObject<ZORForeignKey>());
            foreignKeys_.push_back(foreign);
            key = foreign;
        } else {
            ZORCandidateKey* candidate = cls.addKey(anyObject<ZORCandidateKey>());
            candidate->setUnique(choices_.either());
            if (!hasPrimary && choices_.either()) {
                candidate->setPrimaryOfClass(&cls);
                hasPrimary = true;
            }
            candidateKeys_.push_back(candidate);
            key = candidate;
        }
        for (std::size_t members = choices_.below(4); members > 0 && cls.getAttributeCount() > 0; --members) {
            key->addAttribute(cls.getAttributes()[choices_.below(cls.getAttributeCount())]);
        }
    }
}

void ModelMaker::makeIndex(ZORClass& cls) {
    ZORIndex* index = cls.addIndex(anyObject<ZORIndex>());
    index->setClustered(choices_.either());
    index->setUnique(choices_.either());
    if (!cls.getKeys().isEmpty() && choices_.either()) {
        index->setKey(cls.getKeys()[choices_.below(cls.getKeys().size())]);
    }
    for (std::size_t count = choices_.below(4); count > 0 && cls.getAttributeCount() > 0; --count) {
        ZORIndexMember* member = index->addIndexMember(anyObject<ZORIndexMember>());
        member->setAttribute(cls.getAttributes()[choices_.below(cls.getAttributeCount())]);
        member->setSortOrder(anyOf<ZORSortOrder>(3));
    }
}

std::unique_ptr<ZOROperation> ModelMaker::anyOperation() {
    std::unique_ptr<ZOROperation> operation;
    switch (choices_.below(3)) {
        case 0:
            operation = anyObject<ZOROperation>();
            break;
        case 1:
            operation = anyObject<ZORStoredProcedure>();
            break;
        default: {
            auto trigger = anyObject<ZORTrigger>();
            trigger->setAfter(choices_.either());
            trigger->setInsert(choices_.either());
            trigger->setUpdate(choices_.either());
            trigger->setDelete(choices_.either());
            operation = std::move(trigger);
            break;
        }
    }
    makeOperation(*operation);
    return operation;
}

void ModelMaker::makeOperation(ZOROperation& operation) {
    operation.setResultType(choices_.either() ? any(types_) : nullptr);
    operation.setVisibility(anyOf<ZORVisibilityType>(4));
    operation.setConcurrency(anyOf<ZORConcurrencyType>(4));
    operation.setAbstract(choices_.oneIn(4));
    operation.setStatic(choices_.oneIn(4));
    operation.setPrecondition(choices_.oneIn(3) ? anyText() : ZORString());
    operation.setPostcondition(choices_.oneIn(3) ? anyText() : ZORString());
    operation.setSemantics(choices_.oneIn(3) ? anyText() : ZORString());
    operation.setBody(anyText());
    for (std::size_t count = choices_.below(3); count > 0; --count) {
        makeArgument(*operation.addArgument(anyObject<ZORArgument>()));
    }
}

void ModelMaker::makeArgument(ZORArgument& argument) {
    argument.addType(any(types_));
    argument.setDefaultValue(anyText());
    argument.setKind(anyOf<ZORArgumentType>(5));
}

void ModelMaker::makeView() {
    ZORSQLViewEntity* view = anyPackage().addModelElement(anyObject<ZORSQLViewEntity>());
    elements_.push_back(view);
    view->setSQLText(choices_.either() ? anyText() : ZORString());
    for (std::size_t count = choices_.below(4); count > 0; --count) {
        ZORSQLViewAttribute* column = view->addSQLViewAttribute(anyObject<ZORSQLViewAttribute>());
        column->setType(choices_.either() ? any(types_) : nullptr);
        if (choices_.either()) {
            column->setSource(any(attributes_));
        } else if (choices_.oneIn(4)) {
            column->setSource(any(classes_));
        }
    }
    if (choices_.oneIn(3)) {
        view->addOperation(anyOperation());
    }
    if (choices_.oneIn(4)) {
        anyPackage().addOperation(anyOperation());
    }
}

}  // namespace fuzz
