#include "IdTable.h"

#include <bit>
#include <cstring>
#include <random>
#include <utility>

#include "LargePages.h"

namespace readers::document {

namespace {

__extension__ using Wide = unsigned __int128;

/// Both halves of the product, folded into one: every bit of the factors touches every bit of the result.
std::uint64_t mix(std::uint64_t a, std::uint64_t b) noexcept {
    const Wide product = static_cast<Wide>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

template <typename Integer>
std::uint64_t load(const char* bytes) noexcept {
    Integer value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// At most 16 bytes as two numbers; bytes may be in both.
std::pair<std::uint64_t, std::uint64_t> loadRest(std::string_view text) noexcept {
    const char* const end = text.data() + text.size();
    if (text.size() >= 8) {
        return {load<std::uint64_t>(text.data()), load<std::uint64_t>(end - 8)};
    }
    if (text.size() >= 4) {
        return {load<std::uint32_t>(text.data()), load<std::uint32_t>(end - 4)};
    }
    std::uint64_t bytes = 0;
    for (const char byte : text) {
        bytes = bytes << 8 | static_cast<unsigned char>(byte);
    }
    return {bytes, 0};
}

}  // namespace

IdTable::IdTable() {
    std::random_device random;
    for (std::uint64_t& secret : secrets_) {
        secret = (static_cast<std::uint64_t>(random()) << 32) | random();
    }
}

void IdTable::reserve(std::size_t count) {
    entries_.reserve(count);
    adviseLargePages(entries_.data(), count * sizeof(Entry));
}

void IdTable::add(std::string_view id, ZORModelObject* object, std::uint32_t offset) {
    entries_.push_back({id, object, offset, hash(id)});
}

IdTable::Duplicate IdTable::build() {
    // With so many ids nearly every slot is far from the caches: they are asked for some ids ahead.
    constexpr std::size_t AHEAD = 16;
    const std::size_t count = std::bit_ceil(2 * entries_.size() + 2);
    slots_.reserve(count);
    adviseLargePages(slots_.data(), count * sizeof(Slot));
    slots_.resize(count);
    const std::size_t mask = count - 1;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (i + AHEAD < entries_.size()) {
            __builtin_prefetch(&slots_[entries_[i + AHEAD].hash & mask], 1);
        }
        Slot& slot = slots_[findSlot(entries_[i].hash, entries_[i].id)];
        if (slot.entry != 0) {
            return {&entries_[slot.entry - 1], &entries_[i]};
        }
        slot = {entries_[i].hash, static_cast<std::uint32_t>(i + 1)};
    }
    return {};
}

const IdTable::Entry* IdTable::find(std::string_view id) const noexcept {
    const Slot& slot = slots_[findSlot(hash(id), id)];
    return slot.entry == 0 ? nullptr : &entries_[slot.entry - 1];
}

std::uint32_t IdTable::hash(std::string_view id) const noexcept {
    std::uint64_t state = secrets_[0] ^ id.size();
    while (id.size() > 16) {
        state = mix(load<std::uint64_t>(id.data()) ^ secrets_[1],
                    load<std::uint64_t>(id.data() + 8) ^ secrets_[2] ^ state);
        id.remove_prefix(16);
    }
    const auto [first, second] = loadRest(id);
    return static_cast<std::uint32_t>(mix(first ^ secrets_[1], second ^ secrets_[2] ^ state));
}

/// The slot with the id, or the free one in which it belongs.
std::size_t IdTable::findSlot(std::uint32_t hash, std::string_view id) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    std::size_t index = hash & mask;
    while (slots_[index].entry != 0) {
        if (slots_[index].hash == hash && entries_[slots_[index].entry - 1].id == id) {
            break;
        }
        index = (index + 1) & mask;
    }
    return index;
}

}  // namespace readers::document
