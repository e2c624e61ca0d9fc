#pragma once

#include <chrono>
#include <functional>
#include <new>
#include <string>

#include "Arguments.h"
#include "Console.h"
#include "ExitCode.h"
#include "Json.h"
#include "ModelReading.h"
#include "OutputFile.h"
#include "SourceOpening.h"

namespace cli {

/// Throws Failure when standard input is to be read and nothing says where to write. `argument` is what the
/// help calls the output.
void requireOutputForStandardInput(const SourceName& name, const Arguments& arguments,
                                   const std::string& argument);

/// What a run has read and written, for people and for programs.
struct RunSummary {
    const OpenedSource& source;
    const ReadModel& read;
    const OutputFile& output;
    std::chrono::steady_clock::duration time;

    /// What was read, how much was written, how long it took: "2 tables and 5 columns; 5.8 kB in 0.01 s".
    std::string figures() const;
    /// A JSON object; `addOwn` adds what only one command has to say.
    std::string data(const std::function<void(JsonWriter&)>& addOwn) const;
};

/// Tells what was written where: to standard output, unless that is the output's place or messages go to
/// programs, which get `data` (a JSON object) too.
void printOutputSummary(const std::string& sourceName, const OutputFile& output, const std::string& text,
                        const std::string& data, Console& console);

/// Lets `tell` say what there is to say of an output that is in place, and gives back its exit code. A lack
/// of memory does not make the output unwritten any more: it is a finding.
template <typename Tell>
ExitCode tellOfOutput(Console& console, const Tell& tell) {
    try {
        return tell();
    } catch (const std::bad_alloc&) {
        console.printWithoutMemory(
            "the output is written, but there is not enough memory to tell more of it");
        return ExitCode::FINDINGS;
    }
}

/// Taking millions of objects apart would only delay the end of the program. The model stays within reach, so
/// that a check for leaks does not take it for one.
void leaveToSystem(std::unique_ptr<ZORModel> model);

}  // namespace cli
