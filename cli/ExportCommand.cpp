#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <optional>

#include "BridgeLog.h"
#include "BridgeOptions.h"
#include "CheckReport.h"
#include "Commands.h"
#include "Failure.h"
#include "ModelName.h"
#include "ModelReading.h"
#include "OutputFile.h"
#include "OutputSummary.h"
#include "SourceDateEpoch.h"
#include "Text.h"
#include "UnknownDataTypes.h"
#include "Views.h"
#include "ZORXMLWriter.h"

namespace cli {

namespace {

using Clock = std::chrono::steady_clock;

const View& naturalView(const OpenedSource& source) {
    return *findViewByName(source.reader->describe().naturalView);
}

std::string outputPath(const OpenedSource& source, const Arguments& arguments) {
    return arguments.output.value_or(source.source.stem() + ".xml");
}

/// Lets the bridge's file be the output, as long as it lives.
class SinkRedirection {
  public:
    explicit SinkRedirection(OutputFile& output) {
        ZORFile::setSinkOpener([&output](const ZORString&) { return output.open(); });
    }
    ~SinkRedirection() { ZORFile::setSinkOpener({}); }
    SinkRedirection(const SinkRedirection&) = delete;
    SinkRedirection& operator=(const SinkRedirection&) = delete;
};

/// A failed export as what ends the program. When a write failed, what the bridge makes of it is of no
/// interest.
[[noreturn]] void throwExportFailure(const ZORException& error, const OutputFile& output,
                                     const std::string& sourceName) {
    const auto [id, text] = splitMessageId(error.getText().view());
    if (output.failureReason() == 0) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, sourceName, id, text, {});
    }
    if (output.isOpen()) {
        output.throwFailure();
    }
    throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, output.name(), id,
                  text + ": " + describeErrno(output.failureReason()), {});
}

void writeDocument(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options,
                   const std::string& sourceName, OutputFile& output, Console& console) {
    const SinkRedirection redirection(output);
    BridgeLog log(sourceName, console);
    try {
        bridge.run(model, options, log);
    } catch (const ZORException& error) {
        throwExportFailure(error, output, sourceName);
    }
    output.commit();
}

std::vector<std::string> typeSetsOf(const View& view, const ZOROptionList& options) {
    std::vector<std::string> typeSets;
    if (view.hasErd) {
        typeSets.emplace_back(options.getValue("ERD TypeSet").view());
    }
    if (view.hasDbm) {
        typeSets.emplace_back(options.getValue("DBM TypeSet").view());
    }
    return typeSets;
}

std::string summaryText(const RunSummary& summary, const View& view,
                        const std::vector<std::string>& typeSets) {
    std::vector<std::string> named;
    std::copy_if(typeSets.begin(), typeSets.end(), std::back_inserter(named), hasDataTypes);
    const std::string types = !named.empty()      ? ", types of " + joinWords(named)
                              : !typeSets.empty() ? ", without data types"
                                                  : "";
    // The view may not show all of what was read: `inspect` tells.
    return fmt::format("{} of \"{}\"{}, from {}", view.title, summary.read.model->getName().view(), types,
                       summary.figures());
}

std::string summaryData(const RunSummary& summary, const View& view,
                        const std::vector<std::string>& typeSets) {
    return summary.data([&](JsonWriter& json) {
        json.member("view", view.name).key("typeSets").beginList();
        for (const std::string& typeSet : typeSets) {
            json.value(typeSet);
        }
        json.endList();
    });
}

/// Reads the model and sees to it that it can be written.
ReadModel readForExport(const OpenedSource& source, const View& view, const Arguments& arguments,
                        Console& console, Progress& progress) {
    const bool isUml = !view.hasErd && !view.hasDbm;
    ReadModel read = readModel(source, arguments, console, progress,
                               isUml ? ZORViewsToCheck::ALL : ZORViewsToCheck::ALL_BUT_UML);
    requireContent(read, source, arguments);
    requireWritableModelName(read.model->getName().view(), source.source.name());
    return read;
}

void writeWithProgress(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options,
                       const OpenedSource& source, OutputFile& output, Console& console, Progress& progress) {
    const std::uint64_t before = ZORXMLWriter::getElementsStarted();
    const Progress::Stage stage(progress, [&] {
        return fmt::format("{}: {} elements, {} written", output.name(),
                           formatCount(ZORXMLWriter::getElementsStarted() - before),
                           formatBytes(output.bytes()));
    });
    writeDocument(bridge, model, options, source.source.name(), output, console);
}

void tellOptions(const ZOROptionList& options, Console& console) {
    if (!console.isVerbose()) {
        return;
    }
    for (const ZOROption* option : options.getOptions()) {
        console.print({.level = Level::NOTE,
                       .text = fmt::format("option \"{}\" is \"{}\"", option->getDisplayName().view(),
                                           option->getValue().view())});
    }
}

/// Tells what the check of the document has found. The document is written all the same.
ExitCode concludeCheck(CheckReport& check, const OutputFile& output, Console& console) {
    const bool isSound = check.finish().errors == 0;
    console.print({.level = Level::NOTE,
                   .subject = output.name(),
                   .text = "checked: " + check.summaryText(),
                   .data = check.summaryData()});
    return isSound ? ExitCode::DONE : ExitCode::FINDINGS;
}

}  // namespace

ExitCode runExport(const Arguments& arguments, Console& console) {
    const Clock::time_point start = Clock::now();
    applySourceDateEpoch();
    const ZORBridge bridge = loadBridge();
    ZOROptionList options;
    bridge.getOptionList(options);
    setGivenOptions(options, arguments);
    const View* given = givenView(options, arguments);
    const SourceName name = parseSourceName(arguments.source);
    requireOutputForStandardInput(name, arguments, "OUT.xml");
    Progress progress(console);
    const OpenedSource source = openSource(name, progress);
    const View& view = given != nullptr ? *given : naturalView(source);
    options.setValue("Model", view.bridgeValue);
    OutputFile output(outputPath(source, arguments), arguments.overwrite, source.source.path());
    std::optional<CheckReport> check;
    if (arguments.check) {
        check.emplace(output.name(), console);
        output.setObserver([&check](const char* bytes, std::size_t count) { check->feed(bytes, count); });
    }

    ReadModel read = readForExport(source, view, arguments, console, progress);
    setDefaultTypeSets(options, arguments, read.counts.databaseType);
    options.setValue("File", std::string_view(output.name()));
    tellOptions(options, console);
    writeWithProgress(bridge, *read.model, options, source, output, console, progress);
    progress.stop();

    const ExitCode code = tellOfOutput(console, [&] {
        printLosses(read.losses, source.source.name(), console);
        tellUnknownDataTypes(*read.model, view, options, source.source.name(), console);
        const RunSummary summary{source, read, output, Clock::now() - start};
        const std::vector<std::string> typeSets = typeSetsOf(view, options);
        printOutputSummary(source.source.name(), output, summaryText(summary, view, typeSets),
                           summaryData(summary, view, typeSets), console);
        const ExitCode conclusion = concludeRun(read, source.source.name(), arguments, console);
        const bool isSound = !check || concludeCheck(*check, output, console) == ExitCode::DONE;
        return isSound ? conclusion : ExitCode::FINDINGS;
    });
    leaveToSystem(std::move(read.model));
    return code;
}

}  // namespace cli
