#pragma once

#include <cstddef>
#include <cstdint>

#include "ZORVector.h"

/// A hash table of objects that it does not own. A subclass says what an object's key is: it hashes and
/// compares objects and keys through the four operations below. It iterates in the order of insertion.
///
/// Lookup and insertion take amortised constant time, equal members included.
class ZORHashtable {
  public:
    /// `initialSize` members fit without the table growing.
    explicit ZORHashtable(std::size_t initialSize);
    virtual ~ZORHashtable() = default;
    ZORHashtable(const ZORHashtable&) = delete;
    ZORHashtable& operator=(const ZORHashtable&) = delete;

    /// Adds a member. It does not look for an equal one: both are then members.
    void add(void* object);
    /// The member that was added first among those that equal the key, or null.
    void* find(const void* key) const;
    /// Forgets all members; they are not freed.
    void clear() noexcept;

    std::size_t size() const noexcept { return entries_.size(); }
    bool isEmpty() const noexcept { return entries_.isEmpty(); }
    /// The member added as number `index`, counted from 0.
    void* operator[](std::size_t index) const noexcept { return entries_[index].object; }

  protected:
    /// 0 when the two members have equal keys, else the sign of their order.
    virtual int compare2Object(const void* object1, const void* object2) const = 0;
    /// 0 when the member has this key, else the sign of their order.
    virtual int compare2Key(const void* object, const void* key) const = 0;
    virtual std::uint32_t hashObject(const void* object) const = 0;
    virtual std::uint32_t hashKey(const void* key) const = 0;

  private:
    /// Members of one bucket are chained from the oldest to the newest, so that a search meets the oldest
    /// first.
    struct Entry {
        void* object;
        std::uint32_t hash;
        std::uint32_t next;
    };
    struct Bucket {
        std::uint32_t first;
        std::uint32_t last;
    };
    static constexpr std::uint32_t NONE = UINT32_MAX;

    void link(std::uint32_t entry);
    void rebuild(std::size_t bucketCount);

    ZORVector<Entry> entries_;
    ZORVector<Bucket> buckets_;
};
