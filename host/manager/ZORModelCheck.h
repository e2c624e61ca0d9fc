#pragma once

#include <cstddef>
#include <vector>

#include "ZOR.h"

/// Packages nested deeper than this are refused: what walks them recurses once per level.
inline constexpr int ZOR_DEEPEST_NESTING = 1000;

/// Looks through a model, whatever its source, for what a bridge may not see: enumeration values out of range,
/// attributes and arguments without a type, base types in a cycle, roles without a class, a realization with a
/// stereotype of its own, nesting too deep, positions out of range, associations inconsistent with their keys.
/// Gives back one sentence per fault, naming the object, at most `most` of them; empty when the model is sound.
/// It needs no stack per nesting level.
std::vector<ZORString> checkModel(ZORModel& model, std::size_t most = 20);
