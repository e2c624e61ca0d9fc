// Tables with their columns, and what the steps of building share.

#include <algorithm>

#include "Build.h"
#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

bool isAutoIncrement(const TableFacts& table, const ColumnFacts& column) {
    const auto& keys = table.definition.keys;
    return column.keyPosition > 0 && std::any_of(keys.begin(), keys.end(), [](const KeyConstraint& key) {
               return key.primary && key.autoIncrement;
           });
}

std::string commentsOf(const TableFacts& table, const ColumnFacts& column) {
    const ColumnDefinition* definition = table.definition.column(column.name);
    if (definition == nullptr || definition->generation.empty()) {
        return {};
    }
    return std::string("Generated column, ") + (definition->stored ? "stored: " : "virtual: ") +
           toLine(definition->generation);
}

std::unique_ptr<ZORAttribute> attributeOf(Build& build, const TableFacts& table, const ColumnFacts& column) {
    auto attribute = std::make_unique<ZORAttribute>();
    attribute->setName(ZORString(column.name));
    attribute->setType(isAutoIncrement(table, column) ? build.types.autoIncrementTypeOf(column.type)
                                                      : build.types.typeOf(column.type));
    attribute->setInitialValue(ZORString(column.defaultValue));
    attribute->setOptional(!column.notNull && column.keyPosition == 0);
    attribute->setComments(ZORString(commentsOf(table, column)));
    return attribute;
}

/// The name of a constraint finds a place here, as it does in no other part of a type.
std::string commentsOf(const CheckConstraint& check) {
    return check.name.empty() ? std::string() : "Constraint " + check.name;
}

/// Columns whose values a CHECK lists get a type of their own.
void addValueTypes(Build& build, TableModel& table) {
    for (const ColumnValues& values : findColumnValues(table.facts->definition)) {
        if (ZORAttribute* attribute = table.attribute(values.list.column)) {
            const std::string name = table.facts->name + "_" + std::string(attribute->getName().view());
            ZORType* type = build.types.addValueType(name, attribute->getType(), values.list);
            type->setComments(ZORString(commentsOf(*values.check)));
            attribute->setType(type);
            table.valueChecks.push_back(values.check);
        }
    }
}

void addColumns(Build& build, TableModel& table) {
    std::int16_t position = 0;
    for (const ColumnFacts& column : table.facts->columns) {
        if (column.hidden) {
            table.attributes.push_back(nullptr);
            continue;
        }
        ZORAttribute* attribute = table.cls->addAttribute(attributeOf(build, *table.facts, column));
        attribute->setPosition(position++);
        table.attributes.push_back(attribute);
    }
}

void reportShadowTables(Build& build) {
    for (const ShadowFacts& shadow : build.catalog.shadows) {
        if (build.matcher.wantsTable(MAIN_SCHEMA, shadow.name)) {
            build.losses.add("shadow tables of virtual tables", placeOf(shadow.name),
                             "holds the data of " + shadow.virtualTable);
        }
    }
}

}  // namespace

Build::Build(const Connection& theConnection, const Catalog& theCatalog, const ReadRequest& theRequest,
             Monitor& theMonitor, ZORModel& model)
    : connection(theConnection),
      catalog(theCatalog),
      request(theRequest),
      monitor(theMonitor),
      losses(theMonitor.context().losses),
      matcher(theRequest.selection, LetterCase::IGNORED),
      types(model) {
    for (const TableFacts& facts : catalog.tables) {
        for (const ColumnFacts& column : facts.columns) {
            types.reserve(column.type);
        }
    }
}

ZORAttribute* TableModel::attribute(int columnIndex) const noexcept {
    const auto index = static_cast<std::size_t>(columnIndex);
    return columnIndex >= 0 && index < attributes.size() ? attributes[index] : nullptr;
}

ZORAttribute* TableModel::attribute(std::string_view column) const noexcept {
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        if (attributes[i] != nullptr && equalIgnoringCase(facts->columns[i].name, column)) {
            return attributes[i];
        }
    }
    return nullptr;
}

std::string NameTable::makeUp(const std::string& name) {
    std::string unique = name;
    for (int number = 2; !names_.insert(unique).second; ++number) {
        unique = name + "_" + std::to_string(number);
    }
    return unique;
}

TableModel* Build::table(std::string_view name) {
    const auto found = tableIndexes.find(foldCase(name));
    return found == tableIndexes.end() ? nullptr : &tables[found->second];
}

bool Build::selectsTable(const std::string& name) {
    return tellSelected("table", placeOf(name), matcher.findRefusal(MAIN_SCHEMA, name));
}

bool Build::selectsView(const std::string& name) {
    std::optional<SelectionPart> refusal = matcher.findRefusal(MAIN_SCHEMA, name);
    if (!refusal && !request.selection.views) {
        refusal = SelectionPart::VIEWS;
    }
    return tellSelected("view", placeOf(name), refusal);
}

/// A trigger goes with its table or view.
bool Build::selectsTrigger(const TriggerFacts& trigger) {
    std::optional<SelectionPart> refusal = matcher.findRefusal(MAIN_SCHEMA, trigger.table);
    if (!refusal && !request.selection.triggers) {
        refusal = SelectionPart::TRIGGERS;
    } else if (!refusal && table(trigger.table) == nullptr && !request.selection.views) {
        refusal = SelectionPart::VIEWS;
    }
    return tellSelected("trigger", placeOf(trigger.table, trigger.name), refusal);
}

bool Build::tellSelected(const char* kind, const std::string& where, std::optional<SelectionPart> refusal) {
    if (refusal) {
        monitor.context().unselected.push_back({kind, where, *refusal});
    }
    return !refusal;
}

std::string placeOf(std::string_view object, std::string_view part) {
    std::string place(MAIN_SCHEMA);
    place.append(".").append(object);
    if (!part.empty()) {
        place.append(".").append(part);
    }
    return place;
}

std::string join(const std::vector<std::string>& names, std::string_view between) {
    std::string text;
    for (const std::string& name : names) {
        text.append(text.empty() ? std::string_view() : between).append(name);
    }
    return text;
}

void addTables(Build& build) {
    for (const TableFacts& facts : build.catalog.tables) {
        if (!build.selectsTable(facts.name)) {
            continue;
        }
        auto cls = std::make_unique<ZORClass>();
        cls->setName(ZORString(facts.name));
        cls->setPersistent(true);
        build.tableIndexes.emplace(foldCase(facts.name), build.tables.size());
        build.tables.push_back({&facts, build.package->addModelElement(std::move(cls)), {}});
        addColumns(build, build.tables.back());
        addValueTypes(build, build.tables.back());
        if (!facts.problem.empty()) {
            build.warn(placeOf(facts.name),
                       "the columns of the virtual table cannot be asked for: " + facts.problem);
        }
        reportTableLosses(build, build.tables.back());
        build.monitor.look();
    }
    reportShadowTables(build);
}

}  // namespace readers::sqlite
