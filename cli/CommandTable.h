#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ExitCode.h"
#include "OptionTable.h"

namespace cli {

/// An argument without a name, told by its place.
struct PositionalEntry {
    std::string name;
    std::string description;
    bool required;
    void (*take)(Arguments& arguments, const std::string& value);
};

struct ExampleEntry {
    std::string commandLine;  ///< what follows "oimbridge "
    std::string purpose;
};

/// What an option that several commands take means to one of them.
struct OptionMeaning {
    std::string option;  ///< its name
    std::string description;
};

struct Command {
    std::string name;
    std::string summary;      ///< one line for the list of commands
    std::string description;  ///< what the help adds to it
    std::vector<PositionalEntry> positionals;
    std::vector<OptionGroup> groups;
    std::vector<OptionMeaning> meanings = {};  ///< where they are not those of the table of options
    std::vector<ExampleEntry> examples;
    std::vector<ExitCodeEntry> exitCodes;  ///< those that it gives
    ExitCode (*run)(const Arguments& arguments, Console& console);

    bool takes(const OptionEntry& option) const;
    /// What the option is for here.
    const std::string& describe(const OptionEntry& option) const;
};

/// All commands, in the order of the help.
const std::vector<Command>& allCommands();

/// The command of this name, or null.
const Command* findCommand(std::string_view name);

}  // namespace cli
