#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// What a view's filter decided of an object; the first says nothing yet.
enum ExportMark : unsigned char { MARK_UNDECIDED = 0, MARK_EXPORTABLE = 1, MARK_NOT_EXPORTABLE = 2 };

/// The block of five 32-bit slots that an export hangs on an object:
/// - 0 to 2: the object's identifier in the subject area of that number, 0 while it has none;
/// - 3: the export marks, one byte each, the DBM view's first, then the ERD view's; on a type, in the third
///   byte, what its columns need to know of it in the DBM view;
/// - 4: on a column of a referenced key, while a foreign key's members are written, the ordinal (from 1)
///   of the foreign-key column paired with it; on a type, in the first byte, which of its ERD domains are
///   used.
/// Bytes within a slot are accessed as unsigned char, as which the language lets any storage be read.
namespace ObjectUserData {
inline constexpr std::size_t SLOTS = 5;
inline constexpr std::size_t MARKS = 3;
inline constexpr std::size_t PAIRING = 4;
inline constexpr std::size_t DOMAIN_VARIANTS = 4;
}  // namespace ObjectUserData

/// Hands out blocks from large chunks: a block costs its 20 bytes and nothing more, which counts with
/// millions of objects. A released block is not handed out again; the chunks are freed when no block is in
/// use.
class ObjectUserDataPool {
  public:
    /// A zero-filled block.
    int* allocate() {
        if (next_ == chunkEnd_) {
            addChunk();
        }
        int* block = next_;
        next_ += ObjectUserData::SLOTS;
        ++inUse_;
        return block;
    }
    void release() noexcept {
        if (--inUse_ == 0) {
            freeChunks();
        }
    }
    /// How many blocks are in use.
    std::size_t inUse() const noexcept { return inUse_; }

  private:
    static constexpr std::size_t BLOCKS_PER_CHUNK = 4096;

    void addChunk();
    void freeChunks() noexcept;

    std::vector<std::unique_ptr<int[]>> chunks_;
    int* next_ = nullptr;
    int* chunkEnd_ = nullptr;
    std::size_t inUse_ = 0;
};
