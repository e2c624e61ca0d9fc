// Views, with their columns as SQLite understands them.

#include "Build.h"
#include "Definitions.h"
#include "SqlTokens.h"
#include "ViewNesting.h"

namespace readers::sqlite {

namespace {

/// A view's SELECT as SQLite compiles it; it is never run.
class CompiledView {
  public:
    CompiledView(const Connection& connection, const std::string& view) : connection_(connection) {
        const std::string sql = "SELECT * FROM main." + quoteName(view);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(connection.handle(), sql.c_str(), -1, &statement, nullptr);
        statement_.reset(statement);
        if (statement == nullptr) {
            connection.failUnlessMisunderstood();
        }
    }

    bool isValid() const noexcept { return statement_ != nullptr; }
    int columnCount() const noexcept { return sqlite3_column_count(statement_.get()); }
    std::string name(int column) const { return text(sqlite3_column_name(statement_.get(), column)); }
    std::string declaredType(int column) const {
        return text(sqlite3_column_decltype(statement_.get(), column));
    }
    /// The table and column that the column shows unchanged; empty for everything that is computed.
    std::string sourceTable(int column) const {
        return text(sqlite3_column_table_name(statement_.get(), column));
    }
    std::string sourceColumn(int column) const {
        return text(sqlite3_column_origin_name(statement_.get(), column));
    }

  private:
    std::string text(const char* text) const {
        if (text == nullptr) {
            connection_.failIfOutOfMemory();
        }
        return text == nullptr ? "" : text;
    }

    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    const Connection& connection_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

ZORType* typeOfColumn(Build& build, const CompiledView& compiled, int column) {
    const std::string declared = normalizeType(compiled.declaredType(column));
    const bool isTraced = !compiled.sourceColumn(column).empty();
    return declared.empty() && !isTraced ? nullptr : build.types.typeOf(declared);
}

/// SQLite traces a column of several SELECTs to one of them only; it then has no source here.
ZORAttribute* sourceOfColumn(Build& build, const CompiledView& compiled, int column, bool isCompound) {
    TableModel* table = isCompound ? nullptr : build.table(compiled.sourceTable(column));
    return table == nullptr ? nullptr : table->attribute(compiled.sourceColumn(column));
}

void addColumns(Build& build, ZORSQLViewEntity& view, const CompiledView& compiled, bool isCompound) {
    for (int i = 0; i < compiled.columnCount(); ++i) {
        auto column = std::make_unique<ZORSQLViewAttribute>();
        column->setName(ZORString(compiled.name(i)));
        column->setType(typeOfColumn(build, compiled, i));
        column->setSource(sourceOfColumn(build, compiled, i, isCompound));
        view.addSQLViewAttribute(std::move(column));
    }
}

void warnOfColumns(Build& build, const ViewFacts& view, const std::string& reason) {
    build.warn(placeOf(view.name), reason + "; its text is kept, its columns are left out");
}

void addView(Build& build, const ViewFacts& facts, const ViewNesting& nesting) {
    auto added = std::make_unique<ZORSQLViewEntity>();
    added->setName(ZORString(facts.name));
    added->setSQLText(ZORString(parseViewSelect(facts.sql)));
    ZORSQLViewEntity& view = *build.package->addModelElement(std::move(added));
    build.views[foldCase(facts.name)] = &view;
    if (!nesting.isModest(facts.name)) {
        warnOfColumns(build, facts, "the view uses itself, or too many other views one inside the other");
        return;
    }
    const CompiledView compiled(build.connection, facts.name);
    if (!compiled.isValid()) {
        warnOfColumns(build, facts,
                      "SQLite does not understand the view (" +
                          std::string(sqlite3_errmsg(build.connection.handle())) + ")");
        return;
    }
    addColumns(build, view, compiled, nesting.isCompound(facts.name));
}

}  // namespace

void addViews(Build& build) {
    ViewNesting nesting;
    for (const ViewFacts& facts : build.catalog.views) {
        nesting.add(facts.name, parseViewSelect(facts.sql));
    }
    nesting.measure();
    for (const ViewFacts& facts : build.catalog.views) {
        if (build.selectsView(facts.name)) {
            addView(build, facts, nesting);
            build.monitor.advance();
        }
    }
}

}  // namespace readers::sqlite
