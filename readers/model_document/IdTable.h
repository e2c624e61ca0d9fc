#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "ZOR.h"

namespace readers::document {

/// The objects of a document by their ids: first all are added, then the table is built, then they are found.
/// Millions of ids are normal, and so is that few of them are ever looked up.
///
/// The hash differs from run to run, so that no document can be made of ids that all fall on the same place;
/// nothing that can be seen depends on it.
class IdTable {
  public:
    struct Entry {
        std::string_view id;  ///< the text belongs to whoever added it, and stays as long as the table
        ZORModelObject* object;
        std::uint32_t offset;  ///< where in the document the id stands
        std::uint32_t hash;
    };

    IdTable();
    void reserve(std::size_t count);
    void add(std::string_view id, ZORModelObject* object, std::uint32_t offset);

    /// An id that was added twice: both entries, in the order of the document; null when there is none.
    struct Duplicate {
        const Entry* first = nullptr;
        const Entry* second = nullptr;
    };
    /// Makes the ids findable. Gives back the first id that was added twice.
    Duplicate build();
    /// The entry of the id, or null.
    const Entry* find(std::string_view id) const noexcept;

  private:
    std::uint32_t hash(std::string_view id) const noexcept;
    std::size_t findSlot(std::uint32_t hash, std::string_view id) const noexcept;

    struct Slot {
        std::uint32_t hash;
        std::uint32_t entry;  ///< its index plus 1; 0 marks a free slot
    };

    std::uint64_t secrets_[3];
    std::vector<Slot> slots_;  ///< a power of two, at most half of it taken
    std::vector<Entry> entries_;
};

}  // namespace readers::document
