#include "Program.h"

#include <new>

#include "CommandTable.h"
#include "Failure.h"
#include "Help.h"
#include "Signals.h"
#include "ZORFile.h"

namespace cli {

namespace {

ExitCode runCommand(const std::vector<std::string>& words, Console& console) {
    const Arguments arguments = parseArguments(words, console);
    if (arguments.version) {
        writeStandardOutput(versionText());
        return ExitCode::DONE;
    }
    if (arguments.help) {
        writeStandardOutput(arguments.command == nullptr ? programHelp() : commandHelp(*arguments.command));
        return ExitCode::DONE;
    }
    const std::string farewell =
        formatMessage({.level = Level::ERROR, .text = "interrupted"}, console.getLogFormat());
    signals::install((console.canShowProgress() ? "\r\x1b[K" : "") + farewell);
    return arguments.command->run(arguments, console);
}

ExitCode report(Console& console, const Failure& failure) {
    console.print({.level = Level::ERROR,
                   .subject = failure.subject(),
                   .id = failure.id(),
                   .text = failure.what(),
                   .hint = failure.hint()});
    return failure.code();
}

}  // namespace

int runProgram(const std::vector<std::string>& words) {
    signals::prepareProcess();
    ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
    Console console;
    ExitCode code = ExitCode::OUTPUT_NOT_WRITTEN;
    try {
        code = runCommand(words, console);
    } catch (const Failure& failure) {
        code = report(console, failure);
    } catch (const std::bad_alloc&) {
        code = report(console, Failure(code, {}, "there is not enough memory"));
    } catch (const std::exception& error) {
        code =
            report(console, Failure(code, {}, std::string("an unexpected error occurred: ") + error.what()));
    }
    return static_cast<int>(code);
}

}  // namespace cli
