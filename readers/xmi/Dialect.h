#pragma once

#include <string_view>

#include "Tree.h"
#include "ZOREnumerations.h"

namespace readers::xmi {

/// In what the programs that write XMI differ beyond the form of the elements.
struct Dialect {
    std::string_view name;      ///< for people
    bool isXmi2;                ///< rows for XMI 2 are for UML 2
    std::string_view exporter;  ///< how the exporter's name begins, letter case aside; empty for any
    std::string_view space;     ///< what the namespace of UML holds; empty for any

    /// Where the file gives an end no multiplicity it is 1, as in UML 2; otherwise it is not known.
    bool unstatedMultiplicityIsOne;
    /// The direction of a parameter that has none.
    ZORArgumentType unstatedDirection;
    /// Names of features are whole declarations ("id : int"), those of ends may be multiplicities, and
    /// `namespace` may name packages that are not declared.
    bool namesAreDeclarations;
    /// Undeclared ids of types hold the type's name behind a prefix ("EAJava_int").
    bool idsHoldTypeNames;
};

/// The row that fits the file; the last one of its version of XMI fits all.
const Dialect& recogniseDialect(Tree& tree);

}  // namespace readers::xmi
