#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Catalog.h"
#include "Selection.h"
#include "TypeTable.h"
#include "ValueList.h"
#include "ZOR.h"

namespace readers::sqlite {

/// The only schema of a database file.
inline constexpr std::string_view MAIN_SCHEMA = "main";

/// A table and what was made of it.
struct TableModel {
    const TableFacts* facts = nullptr;
    ZORClass* cls = nullptr;
    std::vector<ZORAttribute*> attributes;  ///< by the index of the column; null for hidden columns
    /// The CHECKs that became types of columns.
    std::vector<const CheckConstraint*> valueChecks = {};

    /// Null when there is none.
    ZORAttribute* attribute(int columnIndex) const noexcept;
    /// By the column's name, letter case ignored; null when there is none.
    ZORAttribute* attribute(std::string_view column) const noexcept;
};

/// Names made up for what has none in the database: never one that was there before.
class NameTable {
  public:
    void add(const std::string& name) { names_.insert(name); }
    /// The name, with a number behind it where it is taken.
    std::string makeUp(const std::string& name);

  private:
    std::set<std::string> names_;
};

/// What the steps of building a model share. The steps are to be taken in the order in which they stand
/// below.
struct Build {
    Build(const Connection& connection, const Catalog& catalog, const ReadRequest& request, Monitor& monitor,
          ZORModel& model);

    const Connection& connection;
    const Catalog& catalog;
    const ReadRequest& request;
    Monitor& monitor;
    LossReport& losses;
    SelectionMatcher matcher;
    TypeTable types;
    NameTable names;  ///< of keys and associations
    ZORDesignPackage* package = nullptr;
    std::vector<TableModel> tables;
    std::unordered_map<std::string, std::size_t>
        tableIndexes;  ///< by name in small letters; so are the views
    std::unordered_map<std::string, ZORSQLViewEntity*> views;

    /// Null for a table that was not selected, or does not exist.
    TableModel* table(std::string_view name);
    /// Whether the selection has it. What it does not have, the context is told of.
    bool selectsTable(const std::string& name);
    bool selectsView(const std::string& name);
    bool selectsTrigger(const TriggerFacts& trigger);
    void warn(const std::string& where, const std::string& text) { monitor.context().warn(where, text); }

  private:
    bool tellSelected(const char* kind, const std::string& where, std::optional<SelectionPart> refusal);
};

/// How messages call an object: "main.customer.name".
std::string placeOf(std::string_view object, std::string_view part = {});

/// The names, with something between them.
std::string join(const std::vector<std::string>& names, std::string_view between);

/// Tables with their columns, in the order of creation.
void addTables(Build& build);
/// Primary keys and unique constraints.
void addCandidateKeys(Build& build);
void addViews(Build& build);
/// Foreign keys with their associations; and candidate keys that only a unique index stands for, where a
/// foreign key refers to them.
void addRelationships(Build& build);
void addIndexes(Build& build);
void addTriggers(Build& build);
/// Reports what a table's statement says and a model cannot hold.
void reportTableLosses(Build& build, const TableModel& table);

/// A new unique key of the table.
ZORCandidateKey* addCandidateKey(const TableModel& table, const std::string& name,
                                 const std::vector<ZORAttribute*>& columns);
/// The candidate key of exactly these columns, in any order; the primary key rather than another one; or
/// null.
ZORCandidateKey* findCandidateKey(const ZORClass& cls, const std::vector<ZORAttribute*>& columns);
/// The columns of an index; empty when it is made of more than whole columns of all rows.
std::vector<ZORAttribute*> plainColumnsOf(const TableModel& table, const IndexFacts& index);

}  // namespace readers::sqlite
