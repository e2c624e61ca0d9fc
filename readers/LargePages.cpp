#include "LargePages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace readers {

void adviseLargePages(const void* memory, std::size_t size) noexcept {
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t start = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + size) / page * page;
    if (start < end) {
        ::madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
    }
}

}  // namespace readers
