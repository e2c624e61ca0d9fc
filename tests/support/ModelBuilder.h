// Small models in few words, for tests.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "ZOR.h"

namespace support {

/// Builds a model piece by piece. Every operation gives back the object that it added, for the test to set
/// what it is about; the model owns all of them. New elements go into the package that was added last.
class ModelBuilder {
  public:
    explicit ModelBuilder(const char* name = "Shop") : model_(std::make_unique<ZORModel>()) {
        model_->setName(name);
        number = addType("number", "SQL_INTEGER");
        text = addType("text", "SQL_VARCHAR", 40);
    }

    ZORModel* model() const { return model_.get(); }
    /// The model, which the builder has no more of then.
    std::unique_ptr<ZORModel> take() { return std::move(model_); }
    /// The package that elements are added to; the first one is made when it is needed.
    ZORDesignPackage* package() {
        if (package_ == nullptr) {
            addPackage("Sales");
        }
        return package_;
    }
    ZORDesignPackage* addPackage(const char* name, ZORPackage* parent = nullptr) {
        package_ =
            (parent != nullptr ? parent : model_.get())->addChildPackage(named<ZORDesignPackage>(name));
        return package_;
    }
    ZORDatabaseCatalog* addCatalog(const char* databaseType) {
        auto* catalog = model_->addChildPackage(named<ZORDatabaseCatalog>("catalog"));
        catalog->setDatabaseType(databaseType);
        return catalog;
    }

    template <typename Type = ZORConcreteType>
    Type* addType(const char* name, const char* dataType, int length = 0, int scale = 0) {
        Type* type = model_->addType(named<Type>(name));
        type->setDataType(dataType);
        type->setLength(length);
        type->setScale(scale);
        return type;
    }
    ZORAliasType* addAlias(const char* name, ZORType* base) {
        auto* type = addType<ZORAliasType>(name, "");
        type->setBaseType(base);
        return type;
    }
    ZORDerivedType* addDerived(const char* name, ZORType* base, int length = 0, int scale = 0) {
        auto* type = addType<ZORDerivedType>(name, base->getDataType().c_str(), length, scale);
        type->setBaseType(base);
        return type;
    }
    static ZORTypeValue* addValue(ZORType* type, const char* name, int code, const char* value) {
        ZORTypeValue* added = type->addTypeValue(named<ZORTypeValue>(name));
        added->setCode(static_cast<std::int16_t>(code));
        added->setValue(value);
        return added;
    }

    /// A table with columns of the type `number`.
    ZORClass* addTable(const char* name, std::initializer_list<const char*> columns = {}) {
        ZORClass* table = package()->addModelElement(named<ZORClass>(name));
        for (const char* column : columns) {
            addColumn(table, column);
        }
        return table;
    }
    /// A column behind the table's others; of the type `number` unless another one is given.
    ZORAttribute* addColumn(ZORClass* table, const char* name, ZORType* type = nullptr) const {
        const auto position = static_cast<std::int16_t>(table->getAttributeCount());
        ZORAttribute* column = table->addAttribute(named<ZORAttribute>(name));
        column->setPosition(position);
        column->setType(type != nullptr ? type : number);
        return column;
    }
    /// A unique key.
    static ZORCandidateKey* addKey(ZORClass* table, const char* name,
                                   std::initializer_list<const char*> columns) {
        auto* key = table->addKey(named<ZORCandidateKey>(name));
        key->setUnique(true);
        addColumns(key, table, columns);
        return key;
    }
    static ZORCandidateKey* addPrimaryKey(ZORClass* table, const char* name,
                                          std::initializer_list<const char*> columns) {
        ZORCandidateKey* key = addKey(table, name, columns);
        key->setPrimaryOfClass(table);
        return key;
    }
    static ZORForeignKey* addForeignKey(ZORClass* table, const char* name,
                                        std::initializer_list<const char*> columns,
                                        ZORCandidateKey* referenced) {
        auto* key = table->addKey(named<ZORForeignKey>(name));
        key->setCandidateKey(referenced);
        addColumns(key, table, columns);
        return key;
    }
    /// Says which column of the referenced key a foreign key's column stands for.
    static ZORAssociationRoleNameMap* addMap(ZORAttribute* column, ZORForeignKey* key,
                                             ZORAttribute* referenced) {
        ZORAssociationRoleNameMap* map =
            column->addRoleNameMap(std::make_unique<ZORAssociationRoleNameMap>());
        map->setForeignKey(key);
        map->setReferencedAttribute(referenced);
        return map;
    }
    static ZORIndex* addIndex(ZORClass* table, const char* name, std::initializer_list<const char*> columns) {
        ZORIndex* index = table->addIndex(named<ZORIndex>(name));
        for (const char* column : columns) {
            index->addIndexMember(std::make_unique<ZORIndexMember>())
                ->setAttribute(table->getAttribute(column));
        }
        return index;
    }
    static ZORSynonym* addSynonym(ZORClass* table, const char* name) {
        return table->addSynonym(named<ZORSynonym>(name));
    }
    /// An operation of a class, a view or a package.
    template <typename Operation, typename Owner>
    static Operation* addOperation(Owner* owner, const char* name) {
        return static_cast<Operation*>(owner->addOperation(named<Operation>(name)));
    }
    ZORArgument* addArgument(ZOROperation* operation, const char* name, ZORType* type = nullptr,
                             ZORArgumentType kind = ZOR_ARGUMENT_IN) const {
        ZORArgument* argument = operation->addArgument(named<ZORArgument>(name));
        argument->addType(type != nullptr ? type : number);
        argument->setKind(kind);
        return argument;
    }

    ZORSQLViewEntity* addView(const char* name, const char* sql = "") {
        auto* view = package()->addModelElement(named<ZORSQLViewEntity>(name));
        view->setSQLText(sql);
        return view;
    }
    static ZORSQLViewAttribute* addViewColumn(ZORSQLViewEntity* view, const char* name,
                                              ZORModelObject* source = nullptr) {
        ZORSQLViewAttribute* column = view->addSQLViewAttribute(named<ZORSQLViewAttribute>(name));
        column->setSource(source);
        return column;
    }

    ZORAssociation* addAssociation(const char* name) {
        return package()->addModelElement(named<ZORAssociation>(name));
    }
    static ZORAssociationRole* addRole(ZORAssociation* association, ZORClass* cls, const char* multiplicity,
                                       ZORForeignKey* key = nullptr) {
        ZORAssociationRole* role = association->addRole(std::make_unique<ZORAssociationRole>());
        role->setAssociatedClass(cls);
        role->setMultiplicity(multiplicity);
        if (key != nullptr) {
            role->addForeignKey(key);
        }
        return role;
    }
    /// The usual association of a foreign key: the parent's role first, then the child's with the key.
    ZORAssociation* addRelationship(const char* name, ZORForeignKey* key) {
        ZORAssociation* association = addAssociation(name);
        addRole(association, key->getCandidateKey()->getAssociatedClass(), "1");
        addRole(association, key->getAssociatedClass(), "0..*", key);
        return association;
    }
    ZORGeneralization* addGeneralization(const char* name, std::initializer_list<ZORClass*> supertypes,
                                         std::initializer_list<ZORClass*> subtypes) {
        auto* generalization = package()->addModelElement(named<ZORGeneralization>(name));
        for (ZORClass* supertype : supertypes) {
            generalization->addSupertypeClass(supertype);
        }
        for (ZORClass* subtype : subtypes) {
            generalization->addSubtypeClass(subtype);
        }
        return generalization;
    }
    ZORDiagram* addDiagram(const char* name, std::initializer_list<ZORObject*> elements = {}) {
        ZORDiagram* diagram = package()->addDiagram(named<ZORDiagram>(name));
        for (ZORObject* element : elements) {
            diagram->addModelElement(element);
        }
        return diagram;
    }

    ZORType* number = nullptr;
    ZORType* text = nullptr;

  private:
    template <typename Object>
    static std::unique_ptr<Object> named(const char* name) {
        auto object = std::make_unique<Object>();
        object->setName(name);
        return object;
    }
    static void addColumns(ZORKey* key, ZORClass* table, std::initializer_list<const char*> columns) {
        for (const char* column : columns) {
            key->addAttribute(table->getAttribute(column));
        }
    }

    std::unique_ptr<ZORModel> model_;
    ZORDesignPackage* package_ = nullptr;
};

/// A whole text as a raw literal that begins on the line after its quotes.
inline std::string operator""_lines(const char* text, std::size_t length) {
    return std::string(text + 1, length - 1);
}

}  // namespace support
