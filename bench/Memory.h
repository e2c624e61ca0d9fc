#pragma once

#include <malloc.h>

#include <cstddef>

namespace bench {

/// Bytes that are allocated at the moment.
inline std::size_t allocatedBytes() {
    const auto use = mallinfo2();
    return use.uordblks + use.hblkhd;
}

}  // namespace bench
