// fuzz/: programs that feed made-up input to what reads input from outside, and look for crashes, leaks and
// wrong results. The seeds are small and written here; what a run finds new stays in the build folder.
#pragma once

#include <cstddef>
#include <cstdint>

#include "Reader.h"

namespace fuzz {

/// Reads the bytes as a source of the reader and, when they make a sound model, exports it in every view.
/// Aborts when anything but a SourceError leaves the reader, when the export fails, when its document is
/// wrong, or when the model is not as it was before.
void readAndExport(const readers::Reader& reader, const std::uint8_t* data, std::size_t size);

}  // namespace fuzz
