// Foreign keys: each becomes a key, the links between its columns and those that it refers to, and an
// association.

#include <algorithm>

#include "Build.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

using Columns = std::vector<ZORAttribute*>;

/// A foreign key whose other end was found.
struct Relationship {
    std::string name;
    std::string declaredName;  ///< empty: the name is made up
    const ForeignKeyFacts* facts = nullptr;
    TableModel* child = nullptr;
    TableModel* parent = nullptr;
    Columns columns;
    Columns parentColumns;  ///< one for each of the columns
    ZORCandidateKey* parentKey = nullptr;
};

ZORReferentialActionType actionOf(const std::string& words) {
    if (words == "CASCADE") {
        return ZOR_ACTION_CASCADE;
    }
    if (words == "RESTRICT") {
        return ZOR_ACTION_RESTRICT;
    }
    if (words == "SET NULL") {
        return ZOR_ACTION_SET_NULL;
    }
    return words == "SET DEFAULT" ? ZOR_ACTION_SET_DEFAULT : ZOR_ACTION_NO_ACTION;
}

/// The constraint as the child's statement declares it; SQLite's list and the statement's have the same
/// order.
const ReferenceConstraint* declarationOf(const TableFacts& table, std::size_t index) {
    const auto& references = table.definition.references;
    return references.size() == table.foreignKeys.size() ? &references[index] : nullptr;
}

bool isNameIn(const auto& objects, const std::string& name) {
    return std::any_of(objects.begin(), objects.end(),
                       [&](const auto& object) { return equalIgnoringCase(object.name, name); });
}

class RelationshipBuilder {
  public:
    explicit RelationshipBuilder(Build& build) : build_(build) {}

    void add() {
        std::vector<Relationship> found;
        for (TableModel& child : build_.tables) {
            for (std::size_t i = 0; i < child.facts->foreignKeys.size(); ++i) {
                find(child, i, found);
            }
        }
        // Only now: keys that were added for the sake of a foreign key stand before all foreign keys.
        for (const Relationship& relationship : found) {
            addAssociation(relationship, addForeignKey(relationship));
            build_.monitor.look();
        }
    }

  private:
    void find(TableModel& child, std::size_t index, std::vector<Relationship>& found);
    bool findParent(Relationship& relationship);
    std::string findColumns(Relationship& relationship);
    void leaveOut(const Relationship& relationship, const std::string& reason);
    ZORCandidateKey* findOrAddParentKey(const Relationship& relationship);
    static ZORForeignKey* addForeignKey(const Relationship& relationship);
    void addAssociation(const Relationship& relationship, ZORForeignKey* key);
    static bool isUnique(const Relationship& relationship);

    Build& build_;
};

void RelationshipBuilder::find(TableModel& child, std::size_t index, std::vector<Relationship>& found) {
    Relationship relationship;
    relationship.child = &child;
    relationship.facts = &child.facts->foreignKeys[index];
    if (const ReferenceConstraint* declaration = declarationOf(*child.facts, index)) {
        relationship.declaredName = declaration->name;
    }
    relationship.name =
        !relationship.declaredName.empty()
            ? relationship.declaredName
            : build_.names.makeUp(child.facts->name + "_" + join(relationship.facts->columns, "_") + "_fk");
    if (!findParent(relationship)) {
        return;
    }
    const std::string problem = findColumns(relationship);
    if (!problem.empty()) {
        leaveOut(relationship, problem);
        return;
    }
    relationship.parentKey = findOrAddParentKey(relationship);
    if (relationship.parentKey == nullptr) {
        leaveOut(relationship, "its columns there are not unique");
        return;
    }
    found.push_back(std::move(relationship));
}

bool RelationshipBuilder::findParent(Relationship& relationship) {
    const std::string& name = relationship.facts->parentTable;
    relationship.parent = build_.table(name);
    if (relationship.parent == nullptr && isNameIn(build_.catalog.tables, name)) {
        build_.losses.add("relationships to tables left out",
                          placeOf(relationship.child->facts->name, relationship.name), name);
    } else if (relationship.parent == nullptr) {
        leaveOut(relationship,
                 isNameIn(build_.catalog.views, name) ? "this is a view" : "there is no such table");
    } else if (relationship.parent->facts->isVirtual) {
        leaveOut(relationship, "a virtual table has no keys");
    } else {
        return true;
    }
    return false;
}

/// Gives the reason why the columns cannot be paired, or nothing.
std::string RelationshipBuilder::findColumns(Relationship& relationship) {
    const ForeignKeyFacts& facts = *relationship.facts;
    const bool namesParentColumns = !facts.parentColumns.front().empty();
    ZORVector<ZORAttribute*> primary;
    for (const ZORKey* key : relationship.parent->cls->getKeys()) {
        if (key->isInstanceOf(ZOR_CANDIDATE_KEY) &&
            static_cast<const ZORCandidateKey*>(key)->getPrimaryOfClass() != nullptr) {
            primary = key->getAttributes();
        }
    }
    if (!namesParentColumns && primary.isEmpty()) {
        return "it names no columns there, and the table has no primary key";
    }
    if (!namesParentColumns && primary.size() != facts.columns.size()) {
        return "the primary key there has another number of columns";
    }
    for (std::size_t i = 0; i < facts.columns.size(); ++i) {
        relationship.columns.push_back(relationship.child->attribute(facts.columns[i]));
        relationship.parentColumns.push_back(
            namesParentColumns ? relationship.parent->attribute(facts.parentColumns[i]) : primary[i]);
        if (relationship.columns.back() == nullptr || relationship.parentColumns.back() == nullptr) {
            return "there is no column " + facts.parentColumns[i];
        }
    }
    return {};
}

void RelationshipBuilder::leaveOut(const Relationship& relationship, const std::string& reason) {
    const ForeignKeyFacts& facts = *relationship.facts;
    build_.warn(placeOf(relationship.child->facts->name, relationship.declaredName),
                "the reference of " + join(facts.columns, ", ") + " to " + facts.parentTable +
                    " is left out: " + reason);
}

/// A unique index serves as well as a constraint.
ZORCandidateKey* RelationshipBuilder::findOrAddParentKey(const Relationship& relationship) {
    const TableModel& parent = *relationship.parent;
    ZORCandidateKey* key = findCandidateKey(*parent.cls, relationship.parentColumns);
    for (const IndexFacts& index : parent.facts->indexes) {
        const Columns columns = plainColumnsOf(parent, index);
        if (key == nullptr && index.unique && !columns.empty() &&
            std::is_permutation(columns.begin(), columns.end(), relationship.parentColumns.begin(),
                                relationship.parentColumns.end())) {
            key = addCandidateKey(parent, index.name, columns);
        }
    }
    return key;
}

ZORForeignKey* RelationshipBuilder::addForeignKey(const Relationship& relationship) {
    auto key = std::make_unique<ZORForeignKey>();
    key->setName(ZORString(relationship.name));
    key->setCandidateKey(relationship.parentKey);
    ZORForeignKey* added = relationship.child->cls->addKey(std::move(key));
    for (std::size_t i = 0; i < relationship.columns.size(); ++i) {
        added->addAttribute(relationship.columns[i]);
        auto map = std::make_unique<ZORAssociationRoleNameMap>();
        map->setForeignKey(added);
        map->setReferencedAttribute(relationship.parentColumns[i]);
        relationship.columns[i]->addRoleNameMap(std::move(map));
    }
    return added;
}

/// The parent's role is the first one.
void RelationshipBuilder::addAssociation(const Relationship& relationship, ZORForeignKey* key) {
    const bool isOptional = std::any_of(relationship.columns.begin(), relationship.columns.end(),
                                        [](const ZORAttribute* column) { return column->isOptional(); });
    auto association = std::make_unique<ZORAssociation>();
    association->setName(ZORString(relationship.name));
    for (TableModel* end : {relationship.parent, relationship.child}) {
        auto role = std::make_unique<ZORAssociationRole>();
        role->setAssociatedClass(end->cls);
        role->setDeleteRule(actionOf(relationship.facts->onDelete));
        role->setUpdateRule(actionOf(relationship.facts->onUpdate));
        association->addRole(std::move(role));
    }
    ZORAssociationRole& parent = *association->getRoles()[0];
    parent.setMultiplicity(isOptional ? "0..1" : "1");
    parent.setNavigable(true);
    ZORAssociationRole& child = *association->getRoles()[1];
    child.setMultiplicity(isUnique(relationship) ? "0..1" : "0..*");
    child.addForeignKey(key);
    build_.package->addModelElement(std::move(association));
}

/// Whether no two rows of the child refer to the same row: some of the columns are unique by themselves.
bool RelationshipBuilder::isUnique(const Relationship& relationship) {
    const auto areAmongColumns = [&](const auto& columns) {
        return std::all_of(columns.begin(), columns.end(), [&](ZORAttribute* column) {
            return std::find(relationship.columns.begin(), relationship.columns.end(), column) !=
                   relationship.columns.end();
        });
    };
    for (const ZORKey* key : relationship.child->cls->getKeys()) {
        if (key->getElementType() == ZOR_CANDIDATE_KEY && areAmongColumns(key->getAttributes())) {
            return true;
        }
    }
    const auto& indexes = relationship.child->facts->indexes;
    return std::any_of(indexes.begin(), indexes.end(), [&](const IndexFacts& index) {
        const Columns columns = plainColumnsOf(*relationship.child, index);
        return index.unique && !columns.empty() && areAmongColumns(columns);
    });
}

}  // namespace

void addRelationships(Build& build) {
    RelationshipBuilder(build).add();
}

}  // namespace readers::sqlite
