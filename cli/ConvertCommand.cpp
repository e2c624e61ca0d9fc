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

std::string summaryData(const OpenedSource& source, const ReadModel& read, const OutputFile& output,
                        Clock::duration time) {
    JsonWriter json;
    json.beginObject()
        .member("source", source.source.name())
        .member("reader", source.reader->describe().name)
        .member("model", read.model->getName().view())
        .member("output", output.name())
        .key("counts");
    writeCounts(json, read.counts.total);
    json.key("losses").beginObject();
    for (const auto& [kind, count] : read.losses.countByKind()) {
        json.member(kind, count);
    }
    json.endObject()
        .member("bytes", output.bytes())
        .member("milliseconds", std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
    return json.endObject().text();
}

std::string summaryText(const OpenedSource& source, const ReadModel& read, const OutputFile& output,
                        Clock::duration time) {
    const bool databaseWords = source.reader->describe().naturalView == "dbm";
    return fmt::format("model \"{}\": {}; {} in {:.2f} s", read.model->getName().view(),
                       describeCounts(read.counts.total, databaseWords), formatBytes(output.bytes()),
                       std::chrono::duration<double>(time).count());
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

    warnOfIllFormedTexts(illFormed, sourceName, console);
    printLosses(read.losses, sourceName, console);
    const Clock::duration time = Clock::now() - start;
    printOutputSummary(sourceName, output, summaryText(source, read, output, time),
                       summaryData(source, read, output, time), console);
    const ExitCode code = concludeRun(read, sourceName, arguments, console);
    leaveToSystem(std::move(read.model));
    return code;
}

}  // namespace cli
