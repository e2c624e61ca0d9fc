#pragma once

#include "Arguments.h"
#include "ExitCode.h"

namespace cli {

// The commands' work, called through the command table. Each throws Failure when it cannot be done.

ExitCode runCheck(const Arguments& arguments, Console& console);
ExitCode runConvert(const Arguments& arguments, Console& console);
ExitCode runExport(const Arguments& arguments, Console& console);
ExitCode runInspect(const Arguments& arguments, Console& console);
ExitCode runOptions(const Arguments& arguments, Console& console);

}  // namespace cli
