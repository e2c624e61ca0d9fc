#include "Kinds.h"

#include <array>
#include <iterator>

namespace readers::xmi {

namespace {

constexpr KindRow ROWS[] = {
    {"Abstraction"_n, Becomes::DEPENDENCY, "abstraction", false},
    {"Association"_n, Becomes::ASSOCIATION, "", false},
    {"AssociationClass"_n, Becomes::CLASS, "", false},
    {"Binding"_n, Becomes::DEPENDENCY, "bind", false},
    {"Class"_n, Becomes::CLASS, "", false},
    {"Component"_n, Becomes::CLASS, "component", true},
    {"ComponentRealization"_n, Becomes::REALIZATION, "", false},
    {"DataType"_n, Becomes::DATA_TYPE, "dataType", false},
    {"Dependency"_n, Becomes::DEPENDENCY, "", false},
    {"Enumeration"_n, Becomes::ENUMERATION, "", false},
    {"Generalization"_n, Becomes::GENERALIZATION, "", false},
    {"Interface"_n, Becomes::CLASS, "", false},
    {"InterfaceRealization"_n, Becomes::REALIZATION, "", false},
    {"Manifestation"_n, Becomes::DEPENDENCY, "manifest", false},
    {"Model"_n, Becomes::PACKAGE, "", false},
    {"Package"_n, Becomes::PACKAGE, "", false},
    {"Permission"_n, Becomes::DEPENDENCY, "", false},
    {"Primitive"_n, Becomes::DATA_TYPE, "primitive", false},
    {"PrimitiveType"_n, Becomes::DATA_TYPE, "primitive", false},
    {"Profile"_n, Becomes::PACKAGE, "profile", false},
    {"ProgrammingLanguageDataType"_n, Becomes::DATA_TYPE, "dataType", false},
    {"Realization"_n, Becomes::REALIZATION, "", false},
    {"Stereotype"_n, Becomes::STEREOTYPE, "", false},
    {"Substitution"_n, Becomes::DEPENDENCY, "substitute", false},
    {"Subsystem"_n, Becomes::PACKAGE, "subsystem", false},
    {"Usage"_n, Becomes::DEPENDENCY, "use", false},
};

using RowIndex = std::array<const KindRow*, std::size(KNOWN_NAMES)>;

constexpr RowIndex makeIndex() {
    RowIndex index{};
    for (const KindRow& row : ROWS) {
        index[static_cast<std::size_t>(row.kind)] = &row;
    }
    return index;
}

constexpr RowIndex ROW_OF_NAME = makeIndex();

}  // namespace

const KindRow* findKind(Name kind, bool isXmi2) noexcept {
    const auto number = static_cast<std::size_t>(kind);
    const KindRow* row = number < ROW_OF_NAME.size() ? ROW_OF_NAME[number] : nullptr;
    return row != nullptr && row->onlyXmi2 && !isXmi2 ? nullptr : row;
}

}  // namespace readers::xmi
