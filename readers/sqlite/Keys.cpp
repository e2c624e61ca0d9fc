// Candidate keys and indexes.

#include <algorithm>

#include "Build.h"
#include "Definitions.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

using Columns = std::vector<ZORAttribute*>;

bool haveSameMembers(const ZORVector<ZORAttribute*>& key, const Columns& columns) {
    return std::is_permutation(key.begin(), key.end(), columns.begin(), columns.end());
}

Columns primaryColumnsOf(const TableModel& table) {
    const auto& facts = table.facts->columns;
    Columns columns;
    for (std::size_t i = 0; i < facts.size(); ++i) {
        const auto position = static_cast<std::size_t>(std::max(facts[i].keyPosition, 0));
        if (position > 0 && table.attributes[i] != nullptr) {
            columns.resize(std::max(columns.size(), position));
            columns[position - 1] = table.attributes[i];
        }
    }
    columns.erase(std::remove(columns.begin(), columns.end(), nullptr), columns.end());
    return columns;
}

std::vector<std::string> namesOf(const Columns& columns) {
    std::vector<std::string> names;
    for (const ZORAttribute* column : columns) {
        names.emplace_back(column->getName().view());
    }
    return names;
}

/// How the values of a column are compared, unless an index or a constraint says otherwise.
std::string_view usualCollationOf(const TableModel& table, std::string_view column) {
    const ColumnDefinition* declared = table.facts->definition.column(column);
    const bool hasOwn = declared != nullptr && !declared->collation.empty();
    return hasOwn ? std::string_view(declared->collation) : "BINARY";
}

/// Whether the member is compared as values of its column always are.
bool hasUsualCollation(const TableModel& table, const IndexMember& member, const ZORAttribute& column) {
    return equalIgnoringCase(member.collation, usualCollationOf(table, column.getName().view()));
}

/// The columns that a constraint names; empty when one of them is not there.
Columns columnsOf(const TableModel& table, const KeyConstraint& key) {
    Columns columns;
    for (const KeyMember& member : key.members) {
        ZORAttribute* column = table.attribute(member.column);
        if (column == nullptr) {
            return {};
        }
        if (std::find(columns.begin(), columns.end(), column) == columns.end()) {
            columns.push_back(column);
        }
    }
    return columns;
}

/// The name that the statement gives the primary key, or nothing.
std::string declaredPrimaryName(const TableModel& table, const Columns& columns) {
    const auto& keys = table.facts->definition.keys;
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const KeyConstraint& key) {
        return key.primary && columnsOf(table, key) == columns;
    });
    return found == keys.end() ? std::string() : found->name;
}

void addPrimaryKey(Build& build, const TableModel& table) {
    const Columns columns = primaryColumnsOf(table);
    if (columns.empty()) {
        return;
    }
    const std::string declared = declaredPrimaryName(table, columns);
    const std::string name = declared.empty() ? build.names.makeUp(table.facts->name + "_pk") : declared;
    addCandidateKey(table, name, columns)->setPrimaryOfClass(table.cls);
}

/// Whether SQLite made the index for this constraint, or for one that says the same.
bool isIndexOf(const TableModel& table, const IndexFacts& index, const KeyConstraint& key) {
    return std::equal(key.members.begin(), key.members.end(), index.members.begin(), index.members.end(),
                      [&](const KeyMember& declared, const IndexMember& member) {
                          const ZORAttribute* column = table.attribute(declared.column);
                          return column != nullptr && column == table.attribute(member.column) &&
                                 equalIgnoringCase(member.collation,
                                                   declared.collation.empty()
                                                       ? usualCollationOf(table, declared.column)
                                                       : std::string_view(declared.collation));
                      });
}

/// The UNIQUE constraints of a table become keys. SQLite has one index for constraints that say the same: the
/// first of them goes with it, and the others are known from the statement alone.
class UniqueKeys {
  public:
    UniqueKeys(Build& build, const TableModel& table) : build_(build), table_(table) {
        for (const KeyConstraint& key : table.facts->definition.keys) {
            if (!key.primary) {
                declared_.push_back(&key);
            }
        }
    }

    void add() {
        for (const IndexFacts& index : table_.facts->indexes) {
            const Columns columns = plainColumnsOf(table_, index);
            if (index.origin == IndexFacts::Origin::UNIQUE_CONSTRAINT && !columns.empty()) {
                addKey(takeNameFor(index), columns);
            }
        }
        for (const KeyConstraint* key : declared_) {
            const Columns columns = columnsOf(table_, *key);
            if (!columns.empty()) {
                addKey(key->name, columns);
            }
        }
    }

  private:
    std::string takeNameFor(const IndexFacts& index) {
        const auto found = std::find_if(declared_.begin(), declared_.end(), [&](const KeyConstraint* key) {
            return isIndexOf(table_, index, *key);
        });
        if (found == declared_.end()) {
            return {};
        }
        std::string name = (*found)->name;
        declared_.erase(found);
        return name;
    }

    void addKey(const std::string& declared, const Columns& columns) {
        const std::string made = table_.facts->name + "_" + join(namesOf(columns), "_") + "_uk";
        addCandidateKey(table_, declared.empty() ? build_.names.makeUp(made) : declared, columns);
    }

    Build& build_;
    const TableModel& table_;
    std::vector<const KeyConstraint*> declared_;  ///< those that no index was found for yet
};

/// The key for whose sake an index is there: the candidate key that it makes unique, or else the foreign key
/// of its columns.
ZORKey* findBackedKey(const TableModel& table, const IndexFacts& index) {
    const Columns columns = plainColumnsOf(table, index);
    if (columns.empty()) {
        return nullptr;
    }
    ZORKey* backed = index.unique ? findCandidateKey(*table.cls, columns) : nullptr;
    for (ZORKey* key : table.cls->getKeys()) {
        if (backed == nullptr && key->getElementType() == ZOR_FOREIGN_KEY &&
            haveSameMembers(key->getAttributes(), columns)) {
            backed = key;
        }
    }
    return backed;
}

bool hasColumns(const TableModel& table, const IndexFacts& index) {
    return std::any_of(index.members.begin(), index.members.end(),
                       [&](const IndexMember& member) { return table.attribute(member.column) != nullptr; });
}

void reportIndexOfExpressions(Build& build, const IndexFacts& facts) {
    const IndexDefinition definition = parseIndexDefinition(facts.sql);
    const std::string condition = definition.condition.empty() ? "" : " WHERE " + definition.condition;
    build.losses.add("indexes on expressions alone", placeOf(facts.name),
                     toLine(join(definition.members, ", ") + condition) + (facts.unique ? " (unique)" : ""));
}

void addIndexMembers(Build& build, const TableModel& table, const IndexFacts& facts, ZORIndex& index) {
    const IndexDefinition definition = parseIndexDefinition(facts.sql);
    const std::string place = placeOf(facts.name);
    for (std::size_t i = 0; i < facts.members.size(); ++i) {
        const IndexMember& member = facts.members[i];
        const std::string text = i < definition.members.size() ? definition.members[i] : std::string();
        ZORAttribute* column = table.attribute(member.column);
        if (column == nullptr) {
            build.losses.add("index expressions", place,
                             toLine(text) + (facts.unique ? " (not unique without it)" : ""));
            continue;
        }
        auto added = std::make_unique<ZORIndexMember>();
        added->setAttribute(column);
        added->setSortOrder(member.descending ? ZOR_SORT_DESCENDING : ZOR_SORT_ASCENDING);
        index.addIndexMember(std::move(added));
        if (!hasUsualCollation(table, member, *column)) {
            build.losses.add("collations", place, toLine(text));
        }
    }
    if (facts.partial) {
        build.losses.add(
            "partial-index conditions", place,
            toLine(definition.condition) + (facts.unique ? " (unique among these rows only)" : ""));
    }
}

/// An index that cannot be shown whole makes nothing unique that is shown, and one of nothing but expressions
/// cannot be shown at all.
void addIndex(Build& build, const TableModel& table, const IndexFacts& facts) {
    if (!hasColumns(table, facts)) {
        reportIndexOfExpressions(build, facts);
        return;
    }
    auto index = std::make_unique<ZORIndex>();
    index->setName(ZORString(facts.name));
    index->setUnique(facts.unique && facts.isPlain());
    index->setKey(findBackedKey(table, facts));
    addIndexMembers(build, table, facts, *index);
    table.cls->addIndex(std::move(index));
}

/// The columns of a key in the order in which an export writes them: that of the index that backs the key,
/// else that of the table.
Columns writtenOrderOf(const ZORClass& cls, const ZORCandidateKey& key) {
    Columns columns;
    if (const ZORIndex* index = cls.getIndexOfKey(&key)) {
        for (const ZORIndexMember* member : index->getIndexMembers()) {
            columns.push_back(member->getAttribute());
        }
    } else {
        columns.assign(key.getAttributes().begin(), key.getAttributes().end());
        std::stable_sort(columns.begin(), columns.end(), [](const ZORAttribute* a, const ZORAttribute* b) {
            return a->getPosition() < b->getPosition();
        });
    }
    return columns;
}

void reportKeyOrders(Build& build, const TableModel& table) {
    for (const ZORKey* key : table.cls->getKeys()) {
        if (key->getElementType() != ZOR_CANDIDATE_KEY) {
            continue;
        }
        const Columns declared(key->getAttributes().begin(), key->getAttributes().end());
        const Columns written = writtenOrderOf(*table.cls, *static_cast<const ZORCandidateKey*>(key));
        if (!std::equal(declared.begin(), declared.end(), written.begin(), written.end())) {
            build.losses.add("orders of key columns",
                             placeOf(table.facts->name, std::string(key->getName().view())),
                             toLine(join(namesOf(declared), ", ")));
        }
    }
}

}  // namespace

ZORCandidateKey* addCandidateKey(const TableModel& table, const std::string& name,
                                 const std::vector<ZORAttribute*>& columns) {
    auto key = std::make_unique<ZORCandidateKey>();
    key->setName(ZORString(name));
    key->setUnique(true);
    ZORCandidateKey* added = table.cls->addKey(std::move(key));
    for (ZORAttribute* column : columns) {
        added->addAttribute(column);
    }
    return added;
}

ZORCandidateKey* findCandidateKey(const ZORClass& cls, const std::vector<ZORAttribute*>& columns) {
    for (ZORKey* key : cls.getKeys()) {
        if (key->getElementType() == ZOR_CANDIDATE_KEY && haveSameMembers(key->getAttributes(), columns)) {
            return static_cast<ZORCandidateKey*>(key);
        }
    }
    return nullptr;
}

std::vector<ZORAttribute*> plainColumnsOf(const TableModel& table, const IndexFacts& index) {
    Columns columns;
    if (index.isPlain()) {
        for (const IndexMember& member : index.members) {
            ZORAttribute* column = table.attribute(member.column);
            if (column != nullptr && std::find(columns.begin(), columns.end(), column) == columns.end()) {
                columns.push_back(column);
            }
        }
    }
    return columns;
}

void addCandidateKeys(Build& build) {
    for (const TableModel& table : build.tables) {
        for (const KeyConstraint& key : table.facts->definition.keys) {
            build.names.add(key.name);
        }
        for (const ReferenceConstraint& reference : table.facts->definition.references) {
            build.names.add(reference.name);
        }
    }
    for (const TableModel& table : build.tables) {
        addPrimaryKey(build, table);
        UniqueKeys(build, table).add();
    }
}

void addIndexes(Build& build) {
    for (const TableModel& table : build.tables) {
        for (const IndexFacts& index : table.facts->indexes) {
            if (index.origin == IndexFacts::Origin::CREATE_INDEX) {
                addIndex(build, table, index);
                build.monitor.look();
            }
        }
        reportKeyOrders(build, table);
    }
}

}  // namespace readers::sqlite
