#include "OutputSummary.h"

#include <fmt/format.h>

#include <atomic>

#include "Failure.h"
#include "Text.h"

namespace cli {

void requireOutputForStandardInput(const SourceName& name, const Arguments& arguments,
                                   const std::string& argument) {
    if (name.isStandardInput() && !arguments.output.has_value()) {
        throw Failure(ExitCode::WRONG_USE, {},
                      argument + " is missing, and standard input has no name to make one from",
                      "\"-\" is standard output");
    }
}

std::string RunSummary::figures() const {
    const bool databaseWords = source.reader->describe().naturalView == "dbm";
    return fmt::format("{}; {} in {:.2f} s", describeCounts(read.counts.total, databaseWords),
                       formatBytes(output.bytes()), std::chrono::duration<double>(time).count());
}

std::string RunSummary::data(const std::function<void(JsonWriter&)>& addOwn) const {
    JsonWriter json;
    json.beginObject()
        .member("source", source.source.name())
        .member("reader", source.reader->describe().name)
        .member("model", read.model->getName().view())
        .member("output", output.name());
    addOwn(json);
    writeCounts(json.key("counts"), read.counts.total);
    json.key("losses").beginObject();
    for (const auto& [kind, count] : read.losses.countByKind()) {
        json.member(kind, count);
    }
    json.endObject()
        .member("bytes", output.bytes())
        .member("milliseconds", std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
    return json.endObject().text();
}

void printOutputSummary(const std::string& sourceName, const OutputFile& output, const std::string& text,
                        const std::string& data, Console& console) {
    if (console.isQuiet()) {
        return;
    }
    if (output.isStandardOutput() || console.getLogFormat() == LogFormat::JSON) {
        console.print({.level = Level::NOTE,
                       .subject = sourceName,
                       .text = fmt::format("written to {}: {}", output.name(), text),
                       .data = data});
        return;
    }
    try {
        writeStandardOutput(printable(fmt::format("{} -> {}: {}", sourceName, output.name(), text)) + "\n");
    } catch (const Failure&) {
        // The document is written all the same.
    }
}

void leaveToSystem(std::unique_ptr<ZORModel> model) {
    static std::atomic<const ZORModel*> left = nullptr;
    left = model.release();
}

}  // namespace cli
