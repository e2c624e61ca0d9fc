#pragma once

#include <string>

#include "CommandTable.h"

namespace cli {

/// The help of the program as a whole.
std::string programHelp();
/// The help of a command.
std::string commandHelp(const Command& command);
/// What `--version` shows.
std::string versionText();

}  // namespace cli
