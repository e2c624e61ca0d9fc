#include "ZORHashtable.h"

#include <bit>

namespace {

std::size_t bucketsFor(std::size_t members) {
    return std::bit_ceil(members < 8 ? std::size_t{8} : members);
}

}  // namespace

ZORHashtable::ZORHashtable(std::size_t initialSize) {
    rebuild(bucketsFor(initialSize));
}

void ZORHashtable::rebuild(std::size_t bucketCount) {
    ZORVector<Bucket> buckets;
    buckets.reserve(bucketCount);
    for (std::size_t i = 0; i < bucketCount; ++i) {
        buckets.append({NONE, NONE});
    }
    buckets_ = std::move(buckets);
    for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
        link(entry);
    }
}

void ZORHashtable::link(std::uint32_t entry) {
    entries_[entry].next = NONE;
    Bucket& bucket = buckets_[entries_[entry].hash & (buckets_.size() - 1)];
    if (bucket.first == NONE) {
        bucket.first = entry;
    } else {
        entries_[bucket.last].next = entry;
    }
    bucket.last = entry;
}

void ZORHashtable::add(void* object) {
    // Whatever may throw comes first, so that a failed call leaves the table as it was.
    if (entries_.size() == buckets_.size()) {
        rebuild(buckets_.size() * 2);
    }
    entries_.append({object, hashObject(object), NONE});
    link(static_cast<std::uint32_t>(entries_.size() - 1));
}

void* ZORHashtable::find(const void* key) const {
    const std::uint32_t hash = hashKey(key);
    const Bucket bucket = buckets_[hash & (buckets_.size() - 1)];
    for (std::uint32_t at = bucket.first; at != NONE; at = entries_[at].next) {
        const Entry entry = entries_[at];
        if (entry.hash == hash && compare2Key(entry.object, key) == 0) {
            return entry.object;
        }
    }
    return nullptr;
}

void ZORHashtable::clear() noexcept {
    entries_.clear();
    for (std::size_t i = 0; i < buckets_.size(); ++i) {
        buckets_[i] = {NONE, NONE};
    }
}
