#include "ObjectUserData.h"

void ObjectUserDataPool::addChunk() {
    constexpr std::size_t SIZE = BLOCKS_PER_CHUNK * ObjectUserData::SLOTS;
    next_ = chunks_.emplace_back(std::make_unique<int[]>(SIZE)).get();
    chunkEnd_ = next_ + SIZE;
}

void ObjectUserDataPool::freeChunks() noexcept {
    chunks_.clear();
    next_ = chunkEnd_ = nullptr;
}
