// An allocator that fails once, at a chosen call. Test programs that use it have FailingAllocator.cpp among
// their own sources: it takes the place of the process's allocator.
#pragma once

namespace support {

/// Lets the n-th allocation from now on fail; none for 0.
void failAllocation(long n) noexcept;
/// Whether an allocation that was to fail has not been reached yet; from now on none fails.
bool endOfAllocationFailure() noexcept;
/// How many blocks are allocated. Always 0 where a sanitizer counts instead.
long blocksInUse() noexcept;
/// Whether a sanitizer has the allocator, so that only C++'s operators can be made to fail.
bool onlyOperatorsFail() noexcept;

}  // namespace support
