#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

/// A growing list of small values, in the library's use pointers; it never owns what they point to.
///
/// An empty list holds no memory beyond its one pointer. A walk that may see the list grow goes by index and
/// asks for `size()` at every step; iterators are invalid after any change.
template <typename T>
class ZORVector {
    static_assert(std::is_trivially_copyable_v<T>, "elements are moved as bytes");
    static_assert(alignof(T) <= 8);

  public:
    ZORVector() noexcept = default;
    ZORVector(const ZORVector& other) { appendAll(other); }
    ZORVector(ZORVector&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    ZORVector& operator=(const ZORVector& other) {
        if (this != &other) {
            ZORVector copy(other);
            std::swap(block_, copy.block_);
        }
        return *this;
    }
    ZORVector& operator=(ZORVector&& other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~ZORVector() { std::free(block_); }

    std::size_t size() const noexcept { return block_ == nullptr ? 0 : block_->size; }
    bool isEmpty() const noexcept { return size() == 0; }
    /// The element at `index`, which must be below `size()`.
    T operator[](std::size_t index) const noexcept { return items(block_)[index]; }
    T& operator[](std::size_t index) noexcept { return items(block_)[index]; }
    T last() const noexcept { return items(block_)[block_->size - 1]; }
    const T* begin() const noexcept { return block_ == nullptr ? nullptr : items(block_); }
    const T* end() const noexcept { return begin() + size(); }

    void reserve(std::size_t count) {
        if (count > (block_ == nullptr ? 0 : block_->capacity)) {
            grow(count);
        }
    }
    /// Makes room for `count` elements more; a walk of many small steps does not move them at each.
    void reserveMore(std::size_t count) {
        const std::size_t needed = size() + count;
        if (needed > (block_ == nullptr ? 0 : block_->capacity)) {
            grow(std::max(needed, nextCapacity()));
        }
    }
    void append(T value) {
        const std::size_t count = size();
        if (block_ == nullptr || block_->capacity == count) {
            grow(nextCapacity());
        }
        items(block_)[count] = value;
        block_->size = static_cast<std::uint32_t>(count + 1);
    }
    void appendAll(const ZORVector& other) {
        reserve(size() + other.size());
        for (std::size_t i = 0; i < other.size(); ++i) {
            append(other[i]);
        }
    }
    /// The index of the first element equal to `value`, or `size()`.
    std::size_t indexOf(T value) const noexcept {
        std::size_t index = 0;
        while (index < size() && !(items(block_)[index] == value)) {
            ++index;
        }
        return index;
    }
    bool contains(T value) const noexcept { return indexOf(value) < size(); }
    void removeAt(std::size_t index) noexcept {
        std::memmove(items(block_) + index, items(block_) + index + 1, (size() - index - 1) * sizeof(T));
        --block_->size;
    }
    void removeLast() noexcept { --block_->size; }
    /// Removes the last element that equals `value`; what was added last is found at once. False when there
    /// is none.
    bool removeLast(T value) noexcept {
        for (std::size_t index = size(); index > 0; --index) {
            if (items(block_)[index - 1] == value) {
                removeAt(index - 1);
                return true;
            }
        }
        return false;
    }
    void clear() noexcept {
        std::free(block_);
        block_ = nullptr;
    }

  private:
    struct Block {
        std::uint32_t size;
        std::uint32_t capacity;
    };
    static T* items(Block* block) noexcept { return reinterpret_cast<T*>(block + 1); }
    static const T* items(const Block* block) noexcept { return reinterpret_cast<const T*>(block + 1); }

    std::size_t nextCapacity() const noexcept {
        const std::size_t count = size();
        return count < 2 ? count + 1 : count + count / 2 + 1;
    }
    void grow(std::size_t capacity) {
        if (capacity > UINT32_MAX) {
            throw std::length_error("ZORVector: too many elements");
        }
        auto* block = static_cast<Block*>(std::realloc(block_, sizeof(Block) + capacity * sizeof(T)));
        if (block == nullptr) {
            throw std::bad_alloc();
        }
        if (block_ == nullptr) {
            block->size = 0;
        }
        block->capacity = static_cast<std::uint32_t>(capacity);
        block_ = block;
    }

    Block* block_ = nullptr;
};
