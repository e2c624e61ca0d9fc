#pragma once

#include <cstddef>

namespace readers {

/// Asks the system for large pages behind memory that is about to be filled: with small ones, being given
/// hundreds of megabytes takes longer than filling them. Nothing but time depends on whether the system
/// obliges.
void adviseLargePages(const void* memory, std::size_t size) noexcept;

}  // namespace readers
