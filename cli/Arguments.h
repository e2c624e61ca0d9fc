#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Console.h"
#include "Reader.h"

namespace cli {

struct Command;

enum class ReportFormat { TEXT, JSON };

/// A value for an option of the bridge.
struct BridgeSetting {
    std::string displayName;
    std::string value;
    std::string givenBy;  ///< the program's option that it was given with, for messages
};

/// What the user asked for. Which of the members a command looks at is told by the command's table entry.
struct Arguments {
    const Command* command = nullptr;
    bool help = false;
    bool version = false;

    bool quiet = false;
    bool verbose = false;
    LogFormat logFormat = LogFormat::TEXT;
    ReportFormat format = ReportFormat::TEXT;

    std::string source;
    std::string modelName;
    readers::Selection selection;
    std::map<std::string, std::string> readerOptions;
    bool allowEmpty = false;
    bool strict = false;

    std::optional<std::string> output;
    bool overwrite = false;
    bool check = false;
    /// In the order in which they are to be set.
    std::vector<BridgeSetting> bridgeOptions;

    /// The name of the objects that `inspect` is to tell about; empty for a report on everything.
    std::string askedName;

    /// What `options` is to show; empty for everything.
    std::string shownName;
};

/// Reads the command line without the program's own name. Throws Failure (wrong use). Settings that messages
/// depend on are in `console` as soon as they are known.
Arguments parseArguments(const std::vector<std::string>& words, Console& console);

}  // namespace cli
