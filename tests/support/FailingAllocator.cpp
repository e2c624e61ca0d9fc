#include "FailingAllocator.h"

#include <cstdlib>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ALLOCATOR_IS_TAKEN 1
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ALLOCATOR_IS_TAKEN 1
#endif
#ifndef ALLOCATOR_IS_TAKEN
#define ALLOCATOR_IS_TAKEN 0
#endif

namespace {

/// The number of the allocation that fails, counted down; none fails below 1.
long countdown = 0;
/// Blocks that are in use.
long blocks = 0;

bool fails() {
    return countdown > 0 && --countdown == 0;
}

}  // namespace

namespace support {

void failAllocation(long n) noexcept {
    countdown = n;
}

bool endOfAllocationFailure() noexcept {
    const bool unreached = countdown > 0;
    countdown = 0;
    return unreached;
}

long blocksInUse() noexcept {
    return blocks;
}

bool onlyOperatorsFail() noexcept {
    return ALLOCATOR_IS_TAKEN != 0;
}

}  // namespace support

#if ALLOCATOR_IS_TAKEN

// A sanitizer has the allocator: what is left are the operators. The sanitizer counts the leaks.

void* operator new(std::size_t size) {
    void* memory = fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

#else

extern "C" {

// The C library's own functions below those that are replaced here.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) noexcept {
    void* memory = fails() ? nullptr : __libc_malloc(size);
    blocks += memory != nullptr ? 1 : 0;
    return memory;
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    void* memory = fails() ? nullptr : __libc_calloc(count, size);
    blocks += memory != nullptr ? 1 : 0;
    return memory;
}
void* realloc(void* memory, std::size_t size) noexcept {
    void* moved = fails() ? nullptr : __libc_realloc(memory, size);
    blocks += memory == nullptr && moved != nullptr ? 1 : 0;
    return moved;
}
void free(void* memory) noexcept {
    blocks -= memory != nullptr ? 1 : 0;
    __libc_free(memory);
}

}  // extern "C"

#endif
