#pragma once

#include <cstdint>
#include <string_view>

#include "Names.h"

namespace readers::xmi {

/// What an element of a UML model becomes.
enum class Becomes : std::uint8_t {
    NOTHING,
    MODEL,
    PACKAGE,
    CLASS,
    DATA_TYPE,
    ENUMERATION,
    ASSOCIATION,
    GENERALIZATION,
    BASE_TYPE,  ///< a generalization between data types
    DEPENDENCY,
    REALIZATION,
    STEREOTYPE  ///< the definition of one
};

/// What one metaclass becomes.
struct KindRow {
    Name kind = NO_NAME;
    Becomes becomes = Becomes::NOTHING;
    /// The word by which UML shows the kind where the model has none for it; it becomes a stereotype.
    std::string_view keyword;
    bool onlyXmi2 = false;
};

/// The row of the metaclass; null for one that becomes nothing.
const KindRow* findKind(Name kind, bool isXmi2) noexcept;

}  // namespace readers::xmi
