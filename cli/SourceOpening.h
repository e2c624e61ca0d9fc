#pragma once

#include <string>

#include "Failure.h"
#include "Reader.h"

namespace cli {

/// A source and the reader that is to read it.
struct OpenedSource {
    readers::Source source;
    const readers::Reader* reader;
    bool isStandardInput;
};

/// Opens what SOURCE names: a path, "-" for standard input, or either behind a reader's name and a colon.
/// Throws Failure when it cannot be opened or no reader recognises it.
OpenedSource openSource(const std::string& text);

/// A reader's error as what ends the program.
Failure toFailure(const readers::SourceError& error, const std::string& sourceName);

}  // namespace cli
