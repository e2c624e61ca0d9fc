#pragma once

#include <string>

#include "ZOR.h"

namespace xmi_test {

/// A UML model in few words, a line for each object, indented by two blanks per level; what has its default
/// is left out. Types come last, those that stand for classes not at all.
///
///     package P "description" /*comments*/ «stereotype»
///       note text
///       abstract class C
///         attribute a : T = 1 (optional, static, private)
///         operation f(in x : T = 1, out y : T) : T (abstract)
///       association «s» {constraint}
///         role r : C 0..1 (navigable, ordered, composite)
///       generalization C -> D
///     type T SQL_INTEGER
std::string outline(const ZORModel& model);

}  // namespace xmi_test
