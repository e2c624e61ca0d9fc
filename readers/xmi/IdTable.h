#pragma once

#include <string_view>
#include <vector>

#include "Tree.h"

namespace readers::xmi {

/// Finds nodes by their ids. A model has as many ids as elements, so the table is one block of memory that
/// holds hashes and numbers only.
class IdTable {
  public:
    /// For the nodes of this tree.
    explicit IdTable(const Tree& tree);

    /// Adds the node, unless there is one of the same id; gives back the one that is in the table.
    NodeIndex add(NodeIndex node);
    NodeIndex find(std::string_view id) const noexcept;

  private:
    struct Slot {
        std::uint32_t hash = 0;
        NodeIndex node = NO_NODE;
    };
    /// The slot of the id, or the free one that it would take.
    std::size_t slotOf(std::string_view id, std::uint32_t hash) const noexcept;

    const Tree& tree_;
    std::vector<Slot> slots_;  ///< a power of two, more than twice the ids
};

}  // namespace readers::xmi
