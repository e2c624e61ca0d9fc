#pragma once

#include <string>

namespace bench {

/// Runs SQLite's own program on a database with a command, its output to a file. Gives the processor time
/// that the process took, in seconds. Throws std::runtime_error when it cannot be run or fails.
double runSqliteShell(const std::string& database, const std::string& command, const std::string& output);

}  // namespace bench
