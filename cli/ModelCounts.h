#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Json.h"
#include "ZOR.h"

namespace cli {

/// The kinds of objects that the program tells apart when it counts.
enum class ObjectKind : std::size_t {
    PACKAGE,
    CLASS,
    ATTRIBUTE,
    CANDIDATE_KEY,
    FOREIGN_KEY,
    INDEX,
    ASSOCIATION,
    GENERALIZATION,
    DEPENDENCY,
    REALIZATION,
    VIEW,
    VIEW_COLUMN,
    OPERATION,
    PROCEDURE,
    TRIGGER,
    SYNONYM,
    DIAGRAM,
    TYPE,
    TYPE_VALUE,
    INDEX_COLUMN,
    ASSOCIATION_END,
    QUALIFIER,
    ARGUMENT,
    NOTE,
    COUNT
};

/// What people call a kind of object.
struct ObjectKindEntry {
    ObjectKind kind;
    const char* key;  ///< in JSON
    const char* singular;
    const char* plural;
    const char* databaseSingular;
    const char* databasePlural;
    /// Told of where it is about views, and not among what was read: it is there with its owner.
    bool isDetail = false;
};

/// Every kind once, in the order of the enumeration, which is that of reports.
const std::array<ObjectKindEntry, static_cast<std::size_t>(ObjectKind::COUNT)>& objectKinds();

class KindCounts {
  public:
    std::uint64_t operator[](ObjectKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }
    void add(ObjectKind kind, std::uint64_t count = 1) { counts_[static_cast<std::size_t>(kind)] += count; }
    void add(const KindCounts& other);
    bool isEmpty() const;

  private:
    std::array<std::uint64_t, static_cast<std::size_t>(ObjectKind::COUNT)> counts_{};
};

/// How many objects of each kind, details aside, there are in a model and in each of its packages.
struct ModelCounts {
    struct Package {
        std::string path;  ///< names from the outermost package inwards, with "." between them
        KindCounts own;    ///< without those of packages inside
    };
    KindCounts total;
    std::vector<Package> packages;  ///< in the model's order, outer ones before inner ones
    std::string databaseType;       ///< of the model's first catalog; empty without one
};

ModelCounts countModel(const ZORModel& model);

/// "11 tables, 64 columns and 2 views", of what there is. The words are those of databases or of models at
/// large.
std::string describeCounts(const KindCounts& counts, bool databaseWords);

/// An object with a member for every kind that is no detail, zeros included.
void writeCounts(JsonWriter& json, const KindCounts& counts);

}  // namespace cli
