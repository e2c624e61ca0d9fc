#include "Program.h"

#include <new>
#include <string>
#include <vector>

#include "BridgeLog.h"
#include "CommandTable.h"
#include "Failure.h"
#include "Help.h"
#include "Signals.h"
#include "ZORException.h"
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

void report(Console& console, const Failure& failure) {
    console.print({.level = Level::ERROR,
                   .subject = failure.subject(),
                   .id = failure.id(),
                   .text = failure.what(),
                   .hint = failure.hint()});
}

/// Sets the code before anything is told: telling it takes memory, too.
void runTellingFailures(std::span<const char* const> words, Console& console, ExitCode& code) {
    try {
        code = runCommand({words.begin(), words.end()}, console);
    } catch (const Failure& failure) {
        code = failure.code();
        report(console, failure);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const ZORException& error) {
        const auto [id, text] = splitMessageId(error.getText().view());
        report(console, Failure(code, {}, id, text, {}));
    } catch (const std::exception& error) {
        report(console, Failure(code, {}, std::string("an unexpected error occurred: ") + error.what()));
    }
}

}  // namespace

int runProgram(std::span<const char* const> words) noexcept {
    signals::prepareProcess();
    ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
    Console console;
    ExitCode code = ExitCode::OUTPUT_NOT_WRITTEN;
    try {
        runTellingFailures(words, console, code);
    } catch (...) {
        console.printWithoutMemory("there is not enough memory");
    }
    return static_cast<int>(code);
}

}  // namespace cli
