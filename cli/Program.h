// cli/: the program oimbridge: what is said on its command line, what it says to its user, and where the
// document goes. It brings a reader and a bridge together; how sources are read and documents are written is
// theirs.
#pragma once

#include <span>

namespace cli {

/// Runs the program on the words of its command line, without its own name. Gives back the exit code;
/// whatever goes wrong has been told to the user by then.
int runProgram(std::span<const char* const> words) noexcept;

}  // namespace cli
