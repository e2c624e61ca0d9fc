#include "ModelReading.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>

#include "OptionTable.h"
#include "Text.h"
#include "ZORModelCheck.h"
#include "ZORNearest.h"

namespace cli {

namespace {

class ConsoleReadContext : public readers::ReadContext {
  public:
    ConsoleReadContext(const std::string& sourceName, Console& console)
        : sourceName_(sourceName), console_(console) {}

    void warn(const std::string& where, const std::string& text) override {
        console_.print({.level = Level::WARNING, .subject = sourceName_, .where = where, .text = text});
        warnings.push_back({where, text});
    }
    void progress(std::uint64_t objects) override { objects_ = objects; }

    std::uint64_t objects() const noexcept { return objects_; }

    std::vector<ReaderWarning> warnings;

  private:
    const std::string& sourceName_;
    Console& console_;
    std::atomic<std::uint64_t> objects_ = 0;
};

[[noreturn]] void refuseForReader(const std::string& option, const readers::ReaderDescription& reader,
                                  const std::string& text, std::string hint = {}) {
    throw Failure(ExitCode::WRONG_USE, option,
                  fmt::format("{} (the source is read as: {})", text, reader.title), std::move(hint));
}

void checkSelection(const readers::Selection& selection, const readers::ReaderDescription& reader) {
    if (reader.takesSelection) {
        return;
    }
    using Part = readers::SelectionPart;
    const std::array<std::pair<Part, bool>, 6> used = {
        {{Part::SCHEMAS, !selection.schemas.empty()},
         {Part::EXCLUDED_SCHEMAS, !selection.excludedSchemas.empty()},
         {Part::TABLES, !selection.tables.empty()},
         {Part::EXCLUDED_TABLES, !selection.excludedTables.empty()},
         {Part::VIEWS, !selection.views},
         {Part::TRIGGERS, !selection.triggers}}};
    for (const auto& [part, isUsed] : used) {
        if (isUsed) {
            refuseForReader(std::string(optionFor(part)), reader,
                            "this kind of source is always read as a whole");
        }
    }
}

void checkReaderOptions(const std::map<std::string, std::string>& values,
                        const readers::ReaderDescription& reader) {
    for (const auto& [name, value] : values) {
        const auto isIt = [&wanted = name](const readers::ReaderOption& known) {
            return known.name == wanted;
        };
        const auto option = std::find_if(reader.options.begin(), reader.options.end(), isIt);
        if (option == reader.options.end()) {
            refuseForReader("--" + name, reader, "this kind of source does not take the option");
        }
        const std::vector<std::string>& permitted = option->permittedValues;
        if (!permitted.empty() && std::find(permitted.begin(), permitted.end(), value) == permitted.end()) {
            refuseForReader("--" + name, reader,
                            fmt::format("\"{}\" is not one of {}", value, joinWords(permitted)));
        }
    }
}

void requireSound(ZORModel& model, ZORViewsToCheck views, const std::string& sourceName, Console& console) {
    constexpr std::size_t MOST_FAULTS = 20;
    const std::vector<ZORString> faults = checkModel(model, MOST_FAULTS, views);
    if (faults.empty()) {
        return;
    }
    for (const ZORString& fault : faults) {
        console.print({.level = Level::ERROR, .subject = sourceName, .text = std::string(fault.view())});
    }
    throw Failure(ExitCode::SOURCE_NOT_READ, sourceName, "the model is not sound, so it cannot be written",
                  "correct what is named above in the source");
}

std::unique_ptr<ZORModel> readWith(const OpenedSource& opened, const readers::ReadRequest& request,
                                   ConsoleReadContext& context, Progress& progress) {
    const std::string& name = opened.source.name();
    const Progress::Stage stage(
        progress, [&] { return fmt::format("{}: {} objects read", name, formatCount(context.objects())); });
    try {
        return opened.reader->read(opened.source, request, context);
    } catch (const readers::WrongOption& error) {
        throw Failure(ExitCode::WRONG_USE, "--" + error.option(), error.what(), error.hint());
    } catch (const readers::SourceError& error) {
        throw toFailure(error, name);
    } catch (const std::bad_alloc&) {
        throw Failure(ExitCode::SOURCE_NOT_READ, name, "there is not enough memory to read it");
    }
}

}  // namespace

std::string_view optionFor(readers::SelectionPart part) {
    switch (part) {
        case readers::SelectionPart::SCHEMAS:
            return "--schema";
        case readers::SelectionPart::EXCLUDED_SCHEMAS:
            return "--exclude-schema";
        case readers::SelectionPart::TABLES:
            return "--table";
        case readers::SelectionPart::EXCLUDED_TABLES:
            return "--exclude-table";
        case readers::SelectionPart::VIEWS:
            return "--no-views";
        case readers::SelectionPart::TRIGGERS:
            break;
    }
    return "--no-triggers";
}

ReadModel readModel(const OpenedSource& source, const Arguments& arguments, Console& console,
                    Progress& progress, ZORViewsToCheck views) {
    const readers::ReaderDescription& description = source.reader->describe();
    checkSelection(arguments.selection, description);
    checkReaderOptions(arguments.readerOptions, description);
    if (console.isVerbose()) {
        console.print({.level = Level::NOTE,
                       .subject = source.source.name(),
                       .text = fmt::format("read as: {} ({}:)", description.title, description.name)});
    }
    ConsoleReadContext context(source.source.name(), console);
    ReadModel read;
    read.model = readWith(source, {arguments.modelName, arguments.selection, arguments.readerOptions},
                          context, progress);
    requireSound(*read.model, views, source.source.name(), console);
    read.losses = std::move(context.losses);
    read.unselected = std::move(context.unselected);
    read.warnings = std::move(context.warnings);
    read.counts = countModel(*read.model);
    return read;
}

void requireContent(const ReadModel& read, const OpenedSource& source, const Arguments& arguments) {
    const KindCounts& total = read.counts.total;
    if (arguments.allowEmpty || total[ObjectKind::CLASS] > 0 || total[ObjectKind::VIEW] > 0) {
        return;
    }
    const bool selective = arguments.selection.hasPatterns() || !arguments.selection.views;
    throw Failure(
        ExitCode::NOTHING_SELECTED, source.source.name(),
        selective ? "the selection leaves no table or view" : "there is no table, view or class in it",
        "--allow-empty accepts that");
}

void printLosses(const readers::LossReport& losses, const std::string& sourceName, Console& console) {
    if (losses.isEmpty()) {
        return;
    }
    if (console.isVerbose()) {
        for (const readers::LossReport::Item& item : losses.items()) {
            const std::string detail = item.detail.empty() ? std::string() : ": " + item.detail;
            console.print({.level = Level::NOTE,
                           .subject = sourceName,
                           .where = item.where,
                           .text = fmt::format("not carried over ({}){}", item.kind, detail)});
        }
        return;
    }
    std::vector<std::string> sums;
    for (const auto& [kind, count] : losses.countByKind()) {
        sums.push_back(fmt::format("{} ({})", kind, formatCount(count)));
    }
    console.print({.level = Level::NOTE,
                   .subject = sourceName,
                   .text = "not carried over: " + joinWords(sums),
                   .hint = "--verbose lists each"});
}

ExitCode concludeRun(const ReadModel& read, const std::string& sourceName, const Arguments& arguments,
                     Console& console) {
    const std::uint64_t warnings = console.getFindingCount();
    const std::size_t losses = read.losses.items().size();
    if (!arguments.strict || (warnings == 0 && losses == 0)) {
        return ExitCode::DONE;
    }
    console.print({.level = Level::NOTE,
                   .subject = sourceName,
                   .text = fmt::format("findings: {}, {} not carried over",
                                       formatCount(warnings, "warning", "warnings"),
                                       formatCount(losses, "thing", "things"))});
    return ExitCode::FINDINGS;
}

}  // namespace cli
