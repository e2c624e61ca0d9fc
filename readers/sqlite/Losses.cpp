// What a CREATE TABLE statement says and a model cannot hold.

#include <algorithm>

#include "Build.h"
#include "Definitions.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

class TableLosses {
  public:
    TableLosses(LossReport& losses, const TableModel& model)
        : losses_(losses), model_(model), table_(*model.facts), definition_(model.facts->definition) {}

    void report() {
        if (table_.isVirtual) {
            const VirtualTableDefinition module = parseVirtualTableDefinition(table_.sql);
            add("virtual-table modules", {},
                module.arguments.empty() ? module.module : module.module + "(" + module.arguments + ")");
            return;
        }
        reportOptions();
        reportSizes();
        reportColumns();
        reportKeys();
        reportReferences();
        reportChecks();
    }

  private:
    void reportOptions() {
        if (definition_.strict) {
            add("table options", {}, "STRICT");
        }
        if (definition_.withoutRowid) {
            add("table options", {}, "WITHOUT ROWID");
        }
    }

    void reportSizes() {
        for (const ColumnFacts& column : table_.columns) {
            if (!sizeOf(column.type).whole) {
                add("sizes of data types", column.name, column.type);
            }
        }
    }

    void reportColumns() {
        for (const ColumnDefinition& column : definition_.columns) {
            addCollation(column.name, column.collation);
            addConflict(column.name, column.conflict);
        }
    }

    void reportKeys() {
        for (const KeyConstraint& key : definition_.keys) {
            for (const KeyMember& member : key.members) {
                addCollation(member.column, member.collation);
                if (member.descending) {
                    add("descending key columns", member.column, "DESC");
                }
            }
            addConflict(key.members.empty() ? std::string() : key.members.front().column, key.conflict);
        }
    }

    void reportReferences() {
        for (const ReferenceConstraint& reference : definition_.references) {
            const std::string columns = join(reference.columns, ", ");
            if (!reference.deferral.empty()) {
                add("deferrable constraints", columns, reference.deferral);
            }
            if (!reference.match.empty()) {
                add("MATCH clauses", columns, "MATCH " + reference.match);
            }
        }
    }

    void reportChecks() {
        const auto& kept = model_.valueChecks;
        for (const CheckConstraint& check : definition_.checks) {
            if (std::find(kept.begin(), kept.end(), &check) == kept.end()) {
                add("CHECK expressions", check.name.empty() ? check.column : check.name, check.expression);
            }
        }
    }

    void addCollation(const std::string& part, const std::string& collation) {
        if (!collation.empty() && !equalIgnoringCase(collation, "BINARY")) {
            add("collations", part, collation);
        }
    }

    void addConflict(const std::string& part, const std::string& resolution) {
        if (!resolution.empty()) {
            add("conflict clauses", part, "ON CONFLICT " + resolution);
        }
    }

    void add(const char* kind, const std::string& part, const std::string& detail) {
        losses_.add(kind, placeOf(table_.name, part), toLine(detail));
    }

    LossReport& losses_;
    const TableModel& model_;
    const TableFacts& table_;
    const TableDefinition& definition_;
};

}  // namespace

void reportTableLosses(Build& build, const TableModel& table) {
    TableLosses(build.losses, table).report();
    if (!table.facts->definition.complete) {
        build.warn(placeOf(table.facts->name),
                   "the table's statement is not understood in full; names of constraints may be missing");
    }
}

}  // namespace readers::sqlite
