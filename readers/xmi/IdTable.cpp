#include "IdTable.h"

#include <bit>
#include <functional>

namespace readers::xmi {

namespace {

std::uint32_t hashOf(std::string_view id) noexcept {
    const std::size_t hash = std::hash<std::string_view>()(id);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

}  // namespace

IdTable::IdTable(const Tree& tree)
    : tree_(tree), slots_(std::bit_ceil(2 * static_cast<std::size_t>(tree.size()) + 2)) {}

std::size_t IdTable::slotOf(std::string_view id, std::uint32_t hash) const noexcept {
    std::size_t slot = hash & (slots_.size() - 1);
    while (slots_[slot].node != NO_NODE &&
           (slots_[slot].hash != hash || tree_.node(slots_[slot].node).id != id)) {
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

NodeIndex IdTable::add(NodeIndex node) {
    const std::string_view id = tree_.node(node).id;
    const std::uint32_t hash = hashOf(id);
    Slot& slot = slots_[slotOf(id, hash)];
    if (slot.node == NO_NODE) {
        slot = {hash, node};
    }
    return slot.node;
}

NodeIndex IdTable::find(std::string_view id) const noexcept {
    return slots_[slotOf(id, hashOf(id))].node;
}

}  // namespace readers::xmi
