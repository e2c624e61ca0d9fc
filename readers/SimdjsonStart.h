#pragma once

namespace readers {

/// Lets simdjson make what it keeps for good, once. Called before anything else of simdjson: it does so in
/// functions that must not throw, where a lack of memory would end the program. Throws std::bad_alloc
/// instead.
void startSimdjson();

}  // namespace readers
