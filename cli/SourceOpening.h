#pragma once

#include <string>

#include "Failure.h"
#include "Progress.h"
#include "Reader.h"

namespace cli {

/// A source and the reader that is to read it.
struct OpenedSource {
    readers::Source source;
    const readers::Reader* reader;
};

/// What SOURCE names: a path, or "-" for standard input, either of them behind a reader's name and a colon or
/// alone.
struct SourceName {
    std::string path;
    const readers::Reader* reader;  ///< null when the content is to tell

    bool isStandardInput() const { return path == "-"; }
};

/// Throws Failure when there is no path behind the colon.
SourceName parseSourceName(const std::string& text);

/// Standard input is read to its end. Throws Failure when the source cannot be opened or no reader recognises
/// it.
OpenedSource openSource(const SourceName& name, Progress& progress);

/// A reader's error as what ends the program.
Failure toFailure(const readers::SourceError& error, const std::string& sourceName);

}  // namespace cli
