#include "ModelGenerator.h"

#include <array>
#include <string>
#include <vector>

namespace bench {
namespace {

struct TypeRow {
    const char* name;
    const char* dataType;
    std::int32_t length;
    std::int32_t scale;
};

constexpr TypeRow TYPES[] = {
    {"INTEGER", "INTEGER", 0, 0},
    {"VARCHAR(60)", "VARCHAR", 60, 0},
    {"NUMERIC(12,2)", "NUMERIC", 12, 2},
    {"TIMESTAMP", "TIMESTAMP", 0, 0},
    {"VARCHAR(255)", "VARCHAR", 255, 0},
    {"DATE", "DATE", 0, 0},
    {"DOUBLE PRECISION", "DOUBLE PRECISION", 0, 0},
    {"TEXT", "TEXT", 0, 0},
};

constexpr const char* TABLE_WORDS[] = {"customer",     "invoice", "shipment",
                                       "ledger_entry", "product", "employee"};
constexpr const char* COLUMN_WORDS[] = {"reference_number", "display_name",   "unit_price",
                                        "created_at",       "street_address", "valid_until",
                                        "weight",           "internal_note",  "status"};

/// Builds one model; the members are what later parts of it refer to.
class Generator {
  public:
    explicit Generator(const ModelShape& shape) : shape_(shape) {}

    std::unique_ptr<ZORModel> build() {
        model_->setName("generated");
        auto catalog = std::make_unique<ZORDatabaseCatalog>();
        catalog->setName("generated");
        catalog->setDatabaseType("SQLite");
        model_->addChildPackage(std::move(catalog));
        addTypes();
        for (int i = 0; i < shape_.tables; ++i) {
            addTable(i);
        }
        for (int i = 0; i < shape_.tables && shape_.keysPerTable > 0; ++i) {
            addRelationships(i);
        }
        for (int i = 0; i < shape_.views && shape_.tables > 0; ++i) {
            addView(i);
        }
        return std::move(model_);
    }

  private:
    void addTypes() {
        for (const TypeRow& row : TYPES) {
            auto type = std::make_unique<ZORConcreteType>();
            type->setName(row.name);
            type->setDataType(row.dataType);
            type->setLength(row.length);
            type->setScale(row.scale);
            types_.push_back(model_->addType(std::move(type)));
        }
    }

    ZORDesignPackage* schemaOf(int table) {
        const auto schema = static_cast<std::size_t>(table / std::max(shape_.tablesPerSchema, 1));
        while (schemas_.size() <= schema) {
            auto package = std::make_unique<ZORDesignPackage>();
            package->setName(numbered("schema", static_cast<int>(schemas_.size())));
            schemas_.push_back(model_->addChildPackage(std::move(package)));
        }
        return schemas_[schema];
    }

    static ZORString numbered(const char* word, int number) {
        return ZORString(std::string(word) + "_" + std::to_string(number));
    }

    void addTable(int number) {
        auto table = std::make_unique<ZORClass>();
        table->setName(
            numbered(TABLE_WORDS[static_cast<std::size_t>(number) % std::size(TABLE_WORDS)], number));
        table->setPersistent(true);
        for (int i = 0; i < shape_.columnsPerTable; ++i) {
            addColumn(*table, i);
        }
        for (int i = 0; i < shape_.keysPerTable && shape_.columnsPerTable > 0; ++i) {
            addKey(*table, i);
        }
        for (int i = 0; i < shape_.indexesPerTable && shape_.columnsPerTable > 0; ++i) {
            addIndex(*table, numbered("ix", i), nullptr, {columnAt(*table, i), columnAt(*table, i + 1)});
        }
        tables_.push_back(schemaOf(number)->addModelElement(std::move(table)));
    }

    void addColumn(ZORClass& table, int number) {
        auto column = std::make_unique<ZORAttribute>();
        column->setName(
            numbered(COLUMN_WORDS[static_cast<std::size_t>(number) % std::size(COLUMN_WORDS)], number));
        column->setPosition(static_cast<std::int16_t>(number));
        column->setType(types_[static_cast<std::size_t>(number) % types_.size()]);
        column->setOptional(number % 3 == 2);
        if (number % 8 == 6) {
            column->setInitialValue("0");
        }
        if (shape_.columnsPerDescription > 0 && columns_++ % shape_.columnsPerDescription == 0) {
            column->setDescription(
                "Taken over from the former system; \"N/A\" & blanks stand for <unknown>.");
        }
        table.addAttribute(std::move(column));
    }

    static ZORAttribute* columnAt(const ZORClass& table, int number) {
        return table.getAttributes()[static_cast<std::size_t>(number) % table.getAttributeCount()];
    }

    static void addKey(ZORClass& table, int number) {
        auto key = std::make_unique<ZORCandidateKey>();
        key->setName(numbered(number == 0 ? "pk" : "uq", number));
        key->setUnique(true);
        key->setPrimaryOfClass(number == 0 ? &table : nullptr);
        ZORCandidateKey* added = table.addKey(std::move(key));
        added->addAttribute(columnAt(table, number));
        addIndex(table, numbered("ix_key", number), added, {columnAt(table, number)});
    }

    static void addIndex(ZORClass& table, ZORString name, ZORKey* key,
                         const std::vector<ZORAttribute*>& columns) {
        auto index = std::make_unique<ZORIndex>();
        index->setName(std::move(name));
        index->setUnique(key != nullptr);
        index->setKey(key);
        for (ZORAttribute* column : columns) {
            auto member = std::make_unique<ZORIndexMember>();
            member->setAttribute(column);
            member->setSortOrder(ZOR_SORT_ASCENDING);
            index->addIndexMember(std::move(member));
        }
        table.addIndex(std::move(index));
    }

    /// To the tables behind this one, the first tables following the last.
    void addRelationships(int number) {
        ZORClass& child = *tables_[static_cast<std::size_t>(number)];
        for (int i = 0; i < shape_.relationshipsPerTable && shape_.columnsPerTable > 0; ++i) {
            ZORClass& parent = *tables_[static_cast<std::size_t>(number + i + 1) % tables_.size()];
            addRelationship(child, parent, i);
        }
    }

    void addRelationship(ZORClass& child, ZORClass& parent, int number) {
        auto key = std::make_unique<ZORForeignKey>();
        key->setName(numbered("fk", number));
        auto* parentKey = static_cast<ZORCandidateKey*>(parent.getKeys()[0]);
        key->setCandidateKey(parentKey);
        ZORForeignKey* added = child.addKey(std::move(key));
        ZORAttribute* column = columnAt(child, number + 1);
        added->addAttribute(column);
        auto map = std::make_unique<ZORAssociationRoleNameMap>();
        map->setForeignKey(added);
        map->setReferencedAttribute(parentKey->getAttributes()[0]);
        column->addRoleNameMap(std::move(map));

        auto association = std::make_unique<ZORAssociation>();
        association->setName(child.getName() + "_to_" + parent.getName());
        addRole(*association, child, "0..*")->addForeignKey(added);
        addRole(*association, parent, "1");
        child.getDesignPackage()->addModelElement(std::move(association));
    }

    static ZORAssociationRole* addRole(ZORAssociation& association, ZORClass& cls, const char* multiplicity) {
        auto role = std::make_unique<ZORAssociationRole>();
        role->setAssociatedClass(&cls);
        role->setMultiplicity(multiplicity);
        role->setDeleteRule(ZOR_ACTION_CASCADE);
        role->setUpdateRule(ZOR_ACTION_NO_ACTION);
        return association.addRole(std::move(role));
    }

    void addView(int number) {
        const ZORClass& table = *tables_[static_cast<std::size_t>(number) % tables_.size()];
        auto view = std::make_unique<ZORSQLViewEntity>();
        view->setName(numbered("view", number));
        for (ZORAttribute* source : table.getAttributes()) {
            auto column = std::make_unique<ZORSQLViewAttribute>();
            column->setName(source->getName());
            column->setType(source->getType());
            column->setSource(source);
            view->addSQLViewAttribute(std::move(column));
        }
        table.getDesignPackage()->addModelElement(std::move(view));
    }

    ModelShape shape_;
    std::unique_ptr<ZORModel> model_ = std::make_unique<ZORModel>();
    std::vector<ZORType*> types_;
    std::vector<ZORDesignPackage*> schemas_;
    std::vector<ZORClass*> tables_;
    int columns_ = 0;
};

class Counter : public ZORTraversalOperation {
  public:
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        count += object->isInstanceOf(ZOR_MODEL_OBJECT) ? 1U : 0U;
        return true;
    }
    std::size_t count = 0;
};

}  // namespace

std::unique_ptr<ZORModel> generateModel(const ModelShape& shape) {
    return Generator(shape).build();
}

std::size_t countObjects(ZORModel& model) {
    Counter counter;
    void* context = nullptr;
    model._depthTraversal(counter, context);
    return counter.count;
}

}  // namespace bench
