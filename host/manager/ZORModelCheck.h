#pragma once

#include <cstddef>
#include <vector>

#include "ZOR.h"

/// Packages nested deeper than this are refused: what walks them recurses once per level. So are types that
/// stand on more base types than this: who asks for what a type stands for goes through all of them.
inline constexpr int ZOR_DEEPEST_NESTING = 1000;

/// What a model is to be written as. The UML view alone cannot say that a data type or a realization
/// has a stereotype.
enum class ZORViewsToCheck { ALL, ALL_BUT_UML };

/// Looks through a model, whatever its source, for what a bridge may not see:
/// - enumeration values, class types, aggregation kinds and positions out of range;
/// - attributes and arguments without a type, class types and roles without a class, index members without an
///   attribute, role-name maps without a foreign key, generalizations, dependencies and realizations without
///   both ends;
/// - references to objects that are not of this model, the types of another model included;
/// - base types in a circle, nesting too deep, generalizations of too many pairs of classes;
/// - keys, indexes and roles that are inconsistent with each other or their classes, a second primary key, an
///   association class that is not the class of its association;
/// - an element that packages do not hold, a general pointer in use;
/// - for the UML view, a data type or a realization with a stereotype.
///
/// Gives back one sentence per fault, naming the object, at most `most` of them; empty when the model is
/// sound. It takes constant time per object and needs no stack per nesting level. While it runs it uses the
/// general pointers of packages and types; afterwards the model is as it was.
std::vector<ZORString> checkModel(ZORModel& model, std::size_t most = 20,
                                  ZORViewsToCheck views = ZORViewsToCheck::ALL);
