#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "Tree.h"

namespace readers::xmi {

/// Each node with those that it leads to.
using Edges = std::unordered_map<NodeIndex, std::vector<NodeIndex>>;

/// The nodes of one way that comes back to where it begins, beginning with the one that stands first in the
/// file; empty when there is none. The same edges give the same cycle. Needs no stack per step.
std::vector<NodeIndex> findCycle(const Edges& edges);

/// "A (line 3) -> B (line 9) -> A", of a long one only the beginning.
std::string describeCycle(const Tree& tree, const std::vector<NodeIndex>& cycle);

}  // namespace readers::xmi
