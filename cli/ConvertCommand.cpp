#include <fmt/format.h>

#include <chrono>

#include "Commands.h"
#include "Failure.h"
#include "Json.h"
#include "ModelReading.h"
#include "OutputFile.h"
#include "OutputSummary.h"
#include "Text.h"
#include "ZORException.h"
#include "model_document/ModelDocumentWriter.h"

namespace cli {

namespace {

using Clock = std::chrono::steady_clock;

/// Gives back how many texts were not UTF-8.
std::uint64_t writeDocument(const ZORModel& model, OutputFile& output, Progress& progress) {
    const Progress::Stage stage(
        progress, [&] { return fmt::format("{}: {} written", output.name(), formatBytes(output.bytes())); });
    const std::unique_ptr<ZORSink> sink = output.open();
    if (sink == nullptr) {
        output.throwFailure();
    }
    try {
        const std::uint64_t illFormed = readers::writeModelDocument(
            model, [&](std::string_view portion) { sink->write(portion.data(), portion.size()); });
        sink->close();
        output.commit();
        return illFormed;
    } catch (const ZORException&) {
        output.throwFailure();
    }
}

void warnOfIllFormedTexts(std::uint64_t count, const std::string& sourceName, Console& console) {
    if (count > 0) {
        console.print({.level = Level::WARNING,
                       .subject = sourceName,
                       .text = fmt::format("{} not UTF-8: U+FFFD stands for what is ill-formed",
                                           formatCount(count, "text is", "texts are"))});
    }
}

}  // namespace

ExitCode runConvert(const Arguments& arguments, Console& console) {
    const Clock::time_point start = Clock::now();
    const SourceName name = parseSourceName(arguments.source);
    requireOutputForStandardInput(name, arguments, "MODEL.model.json");
    Progress progress(console);
    const OpenedSource source = openSource(name, progress);
    const std::string& sourceName = source.source.name();
    OutputFile output(arguments.output.value_or(source.source.stem() + ".model.json"), arguments.overwrite,
                      source.source.path());
    ReadModel read = readModel(source, arguments, console, progress);
    requireContent(read, source, arguments);
    const std::uint64_t illFormed = writeDocument(*read.model, output, progress);
    progress.stop();

    const ExitCode code = tellOfOutput(console, [&] {
        warnOfIllFormedTexts(illFormed, sourceName, console);
        printLosses(read.losses, sourceName, console);
        const RunSummary summary{source, read, output, Clock::now() - start};
        printOutputSummary(sourceName, output,
                           fmt::format("model \"{}\": {}", read.model->getName().view(), summary.figures()),
                           summary.data([](JsonWriter& /*json*/) {}), console);
        return concludeRun(read, sourceName, arguments, console);
    });
    leaveToSystem(std::move(read.model));
    return code;
}

}  // namespace cli
