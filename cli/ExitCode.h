#pragma once

#include <array>
#include <string_view>

namespace cli {

/// What the program's exit code tells.
enum class ExitCode {
    DONE = 0,
    FINDINGS = 1,
    WRONG_USE = 2,
    SOURCE_NOT_OPENED = 3,
    SOURCE_NOT_READ = 4,
    OUTPUT_NOT_WRITTEN = 5,
    NOTHING_SELECTED = 6,
    INTERRUPTED = 130
};

struct ExitCodeEntry {
    ExitCode code;
    std::string_view meaning;
};

/// Every exit code once, as help and manual list them.
inline constexpr std::array EXIT_CODES = {
    ExitCodeEntry{ExitCode::DONE, "done"},
    ExitCodeEntry{ExitCode::FINDINGS,
                  "done, but with findings (errors in what was checked; --strict: warnings, losses)"},
    ExitCodeEntry{ExitCode::WRONG_USE, "wrong use of the program"},
    ExitCodeEntry{ExitCode::SOURCE_NOT_OPENED, "the source cannot be opened"},
    ExitCodeEntry{ExitCode::SOURCE_NOT_READ, "the source cannot be read or understood"},
    ExitCodeEntry{ExitCode::OUTPUT_NOT_WRITTEN, "the output was not written"},
    ExitCodeEntry{ExitCode::NOTHING_SELECTED, "nothing selected: no table, view or class was read"},
    ExitCodeEntry{ExitCode::INTERRUPTED, "interrupted"},
};

}  // namespace cli
