// fuzz/: programs that feed made-up input to what reads input from outside, and look for crashes, leaks and
// wrong results. The seeds are small and written here; what a run finds new stays in the build folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "Reader.h"

namespace fuzz {

/// Exports the model with these settings, by the options' display names, when it is sound for them. Aborts
/// when the export fails, when its document is wrong, when the model is not as it was before, or when a
/// second export gives another document.
void exportSound(ZORModel& model, const std::map<std::string, std::string>& settings);

/// Reads the bytes as a source of the reader and exports what they make in every view. Aborts likewise, and
/// when anything but a SourceError leaves the reader.
void readAndExport(const readers::Reader& reader, const std::uint8_t* data, std::size_t size);

}  // namespace fuzz
