#include "ModelCounts.h"

#include <algorithm>

#include "Text.h"

namespace cli {

namespace {

constexpr std::array<ObjectKindEntry, static_cast<std::size_t>(ObjectKind::COUNT)> KINDS = {{
    {ObjectKind::PACKAGE, "packages", "package", "packages", "schema", "schemas"},
    {ObjectKind::CLASS, "classes", "class", "classes", "table", "tables"},
    {ObjectKind::ATTRIBUTE, "attributes", "attribute", "attributes", "column", "columns"},
    {ObjectKind::CANDIDATE_KEY, "candidateKeys", "candidate key", "candidate keys", "candidate key",
     "candidate keys"},
    {ObjectKind::FOREIGN_KEY, "foreignKeys", "foreign key", "foreign keys", "foreign key", "foreign keys"},
    {ObjectKind::INDEX, "indexes", "index", "indexes", "index", "indexes"},
    {ObjectKind::ASSOCIATION, "associations", "association", "associations", "relationship", "relationships"},
    {ObjectKind::GENERALIZATION, "generalizations", "generalization", "generalizations", "generalization",
     "generalizations"},
    {ObjectKind::DEPENDENCY, "dependencies", "dependency", "dependencies", "dependency", "dependencies"},
    {ObjectKind::REALIZATION, "realizations", "realization", "realizations", "realization", "realizations"},
    {ObjectKind::VIEW, "views", "view", "views", "view", "views"},
    {ObjectKind::VIEW_COLUMN, "viewColumns", "view column", "view columns", "view column", "view columns"},
    {ObjectKind::OPERATION, "operations", "operation", "operations", "operation", "operations"},
    {ObjectKind::PROCEDURE, "procedures", "procedure", "procedures", "procedure", "procedures"},
    {ObjectKind::TRIGGER, "triggers", "trigger", "triggers", "trigger", "triggers"},
    {ObjectKind::SYNONYM, "synonyms", "synonym", "synonyms", "synonym", "synonyms"},
    {ObjectKind::DIAGRAM, "diagrams", "diagram", "diagrams", "diagram", "diagrams"},
    {ObjectKind::TYPE, "types", "data type", "data types", "data type", "data types"},
    {ObjectKind::TYPE_VALUE, "typeValues", "value", "values of data types", "value", "values of data types",
     true},
    {ObjectKind::INDEX_COLUMN, "indexColumns", "index column", "index columns", "index column",
     "index columns", true},
    {ObjectKind::ASSOCIATION_END, "associationEnds", "association end", "association ends",
     "relationship end", "relationship ends", true},
    {ObjectKind::QUALIFIER, "qualifiers", "qualifier", "qualifiers", "qualifier", "qualifiers", true},
    {ObjectKind::ARGUMENT, "arguments", "argument", "arguments", "argument", "arguments", true},
    {ObjectKind::NOTE, "notes", "note", "notes", "note", "notes", true},
}};

void countOperations(KindCounts& counts, const ZORVector<ZOROperation*>& operations) {
    for (const ZOROperation* operation : operations) {
        counts.add(operation->isInstanceOf(ZOR_TRIGGER)            ? ObjectKind::TRIGGER
                   : operation->isInstanceOf(ZOR_STORED_PROCEDURE) ? ObjectKind::PROCEDURE
                                                                   : ObjectKind::OPERATION);
    }
}

void countClass(KindCounts& counts, const ZORClass& cls) {
    counts.add(ObjectKind::CLASS);
    counts.add(ObjectKind::ATTRIBUTE, cls.getAttributeCount());
    counts.add(ObjectKind::INDEX, cls.getIndexes().size());
    counts.add(ObjectKind::SYNONYM, cls.getSynonyms().size());
    for (const ZORKey* key : cls.getKeys()) {
        counts.add(key->isInstanceOf(ZOR_FOREIGN_KEY) ? ObjectKind::FOREIGN_KEY : ObjectKind::CANDIDATE_KEY);
    }
    countOperations(counts, cls.getOperations());
}

void countView(KindCounts& counts, const ZORSQLViewEntity& view) {
    counts.add(ObjectKind::VIEW);
    counts.add(ObjectKind::VIEW_COLUMN, view.getSQLViewAttributeCount());
    countOperations(counts, view.getOperations());
}

void countElement(KindCounts& counts, const ZORModelElement& element) {
    if (element.isInstanceOf(ZOR_CLASS)) {
        countClass(counts, static_cast<const ZORClass&>(element));
    } else if (element.isInstanceOf(ZOR_SQL_VIEW_ENTITY)) {
        countView(counts, static_cast<const ZORSQLViewEntity&>(element));
    } else if (element.isInstanceOf(ZOR_ASSOCIATION)) {
        counts.add(ObjectKind::ASSOCIATION);
    } else if (element.isInstanceOf(ZOR_GENERALIZATION)) {
        counts.add(ObjectKind::GENERALIZATION);
    } else if (element.isInstanceOf(ZOR_DEPENDENCY)) {
        counts.add(ObjectKind::DEPENDENCY);
    } else if (element.isInstanceOf(ZOR_REALIZATION)) {
        counts.add(ObjectKind::REALIZATION);
    }
}

KindCounts countPackage(const ZORDesignPackage& package) {
    KindCounts counts;
    counts.add(ObjectKind::PACKAGE);
    for (const ZORModelElement* element : package.getModelElements()) {
        countElement(counts, *element);
    }
    countOperations(counts, package.getOperations());
    counts.add(ObjectKind::DIAGRAM, package.getDiagrams().size());
    return counts;
}

struct PendingPackage {
    const ZORPackage* package;
    std::string path;
};

/// Pushes the children so that the first one comes off the stack first.
void pushChildren(std::vector<PendingPackage>& pending, const ZORPackage& parent, const std::string& path) {
    const ZORVector<ZORPackage*>& children = parent.getChildPackages();
    const std::string prefix = path.empty() ? path : path + ".";
    for (std::size_t i = children.size(); i > 0; --i) {
        const ZORPackage* child = children[i - 1];
        pending.push_back({child, prefix + child->getDisplayName().c_str()});
    }
}

}  // namespace

const std::array<ObjectKindEntry, static_cast<std::size_t>(ObjectKind::COUNT)>& objectKinds() {
    return KINDS;
}

void KindCounts::add(const KindCounts& other) {
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        counts_[i] += other.counts_[i];
    }
}

bool KindCounts::isEmpty() const {
    return std::all_of(counts_.begin(), counts_.end(), [](std::uint64_t count) { return count == 0; });
}

ModelCounts countModel(const ZORModel& model) {
    ModelCounts counts;
    counts.total.add(ObjectKind::TYPE, model.getTypes().size());
    std::vector<PendingPackage> pending;
    pushChildren(pending, model, {});
    while (!pending.empty()) {
        const PendingPackage next = std::move(pending.back());
        pending.pop_back();
        if (next.package->isInstanceOf(ZOR_DATABASE_CATALOG)) {
            if (counts.databaseType.empty()) {
                counts.databaseType =
                    static_cast<const ZORDatabaseCatalog*>(next.package)->getDatabaseType().view();
            }
            // The catalog is no package to the reader of a report, but what it holds may be.
            pushChildren(pending, *next.package, {});
            continue;
        }
        counts.packages.push_back(
            {next.path, countPackage(static_cast<const ZORDesignPackage&>(*next.package))});
        counts.total.add(counts.packages.back().own);
        pushChildren(pending, *next.package, next.path);
    }
    return counts;
}

std::string describeCounts(const KindCounts& counts, bool databaseWords) {
    std::vector<std::string> words;
    for (const ObjectKindEntry& entry : KINDS) {
        if (const std::uint64_t count = counts[entry.kind]; count > 0) {
            words.push_back(databaseWords ? formatCount(count, entry.databaseSingular, entry.databasePlural)
                                          : formatCount(count, entry.singular, entry.plural));
        }
    }
    return words.empty() ? "nothing" : joinWords(words);
}

void writeCounts(JsonWriter& json, const KindCounts& counts) {
    json.beginObject();
    for (const ObjectKindEntry& entry : KINDS) {
        if (!entry.isDetail) {
            json.member(entry.key, counts[entry.kind]);
        }
    }
    json.endObject();
}

}  // namespace cli
