#include <fmt/format.h>

#include <algorithm>

#include "BridgeLog.h"
#include "BridgeOptions.h"
#include "Commands.h"
#include "Failure.h"
#include "InspectionReport.h"
#include "ModelReading.h"
#include "Text.h"
#include "Unread.h"
#include "ZORXMLWriter.h"

namespace cli {

namespace {

using KindColumns = std::vector<const ObjectKindEntry*>;

std::string_view headingOf(const ObjectKindEntry& entry, bool databaseWords) {
    return databaseWords ? entry.databasePlural : entry.plural;
}

/// The kinds that some package has objects of, packages themselves aside.
KindColumns columnsOf(const std::vector<ModelCounts::Package>& packages) {
    KindColumns columns;
    for (const ObjectKindEntry& entry : objectKinds()) {
        const bool used =
            std::any_of(packages.begin(), packages.end(),
                        [&](const ModelCounts::Package& package) { return package.own[entry.kind] > 0; });
        if (used && entry.kind != ObjectKind::PACKAGE) {
            columns.push_back(&entry);
        }
    }
    return columns;
}

std::string totalRows(const ModelCounts& counts, bool databaseWords) {
    std::string rows;
    for (const ObjectKindEntry& entry : objectKinds()) {
        if (const std::uint64_t count = counts.total[entry.kind]; count > 0) {
            rows += fmt::format("  {:<20}{:>12}\n", headingOf(entry, databaseWords), formatCount(count));
        }
    }
    return "\nRead:\n" + (rows.empty() ? "  nothing\n" : rows);
}

std::string packageRows(const std::vector<ModelCounts::Package>& packages, bool databaseWords) {
    const KindColumns columns = columnsOf(packages);
    std::size_t widest = 0;
    for (const ModelCounts::Package& package : packages) {
        widest = std::max(widest, printable(package.path).size());
    }
    std::string rows = fmt::format("\nBy {}:\n  {:<{}}", databaseWords ? "schema" : "package", "", widest);
    for (const ObjectKindEntry* column : columns) {
        rows += fmt::format("  {}", headingOf(*column, databaseWords));
    }
    rows += "\n";
    for (const ModelCounts::Package& package : packages) {
        rows += fmt::format("  {:<{}}", printable(package.path), widest);
        for (const ObjectKindEntry* column : columns) {
            rows += fmt::format("  {:>{}}", formatCount(package.own[column->kind]),
                                headingOf(*column, databaseWords).size());
        }
        rows += "\n";
    }
    return rows;
}

std::string lossRows(const readers::LossReport& losses) {
    if (losses.isEmpty()) {
        return {};
    }
    std::string rows = "\nNot carried over:\n";
    for (const auto& [kind, count] : losses.countByKind()) {
        rows += fmt::format("  {} ({})\n", printable(kind), formatCount(count));
        for (const readers::LossReport::Item& item : losses.items()) {
            if (item.kind == kind) {
                const std::string detail = item.detail.empty() ? "" : ": " + printable(item.detail);
                rows += fmt::format("    {}{}\n", printable(item.where), detail);
            }
        }
    }
    return rows;
}

std::string textReport(const OpenedSource& source, const ReadModel& read,
                       const std::vector<ViewVerdicts>& verdicts) {
    const readers::ReaderDescription& reader = source.reader->describe();
    const bool databaseWords = reader.naturalView == "dbm";
    std::string report = fmt::format("{}: {} \"{}\"", printable(source.source.name()), reader.title,
                                     printable(read.model->getName().view()));
    if (!read.counts.databaseType.empty()) {
        report += fmt::format(", database type {}", printable(read.counts.databaseType));
    }
    report += fmt::format("; exported as --view {} unless told otherwise\n", reader.naturalView);
    report += totalRows(read.counts, databaseWords);
    if (!read.counts.packages.empty()) {
        report += packageRows(read.counts.packages, databaseWords);
    }
    return report + lossRows(read.losses) + describeVerdicts(verdicts, databaseWords);
}

std::string jsonReport(const OpenedSource& source, const ReadModel& read,
                       const std::vector<ViewVerdicts>& verdicts) {
    const readers::ReaderDescription& reader = source.reader->describe();
    JsonWriter json(2);
    json.beginObject()
        .member("source", source.source.name())
        .member("reader", reader.name)
        .member("naturalView", reader.naturalView)
        .member("model", read.model->getName().view())
        .member("databaseType", read.counts.databaseType)
        .key("counts");
    writeCounts(json, read.counts.total);
    json.key("packages").beginList();
    for (const ModelCounts::Package& package : read.counts.packages) {
        json.beginObject().member("path", package.path).key("counts");
        writeCounts(json, package.own);
        json.endObject();
    }
    json.endList().key("losses").beginList();
    for (const readers::LossReport::Item& item : read.losses.items()) {
        json.beginObject()
            .member("kind", item.kind)
            .member("where", item.where)
            .member("detail", item.detail);
        json.endObject();
    }
    json.endList().key("views");
    writeVerdicts(json, verdicts);
    return json.endObject().text() + "\n";
}

/// For reports that are not about one view as a whole.
class NoLog : public ZORLog {
  public:
    void log(const ZORLogEvent& /*event*/) override {}
};

/// The bridge, and the views in which it is to tell of a model.
class BridgeInspection {
  public:
    BridgeInspection(const Arguments& arguments, Progress& progress)
        : bridge_(loadBridge()), progress_(progress) {
        bridge_.getOptionList(options_);
        setGivenOptions(options_, arguments);
        const View* given = givenView(options_, arguments);
        isGiven_ = given != nullptr;
        needsUml_ = isGiven_ && !given->hasErd && !given->hasDbm;
        // Together these two go through all that there is.
        views_ = isGiven_ ? std::vector<std::string_view>{given->bridgeValue}
                          : std::vector<std::string_view>{"UML", "ERD and DBM"};
    }

    /// What the model has to be sound for, lest nothing can be told.
    ZORViewsToCheck viewsToCheck() const {
        return needsUml_ ? ZORViewsToCheck::ALL : ZORViewsToCheck::ALL_BUT_UML;
    }

    /// Without it there is nothing to say about a single object.
    void requireVerdicts() const {
        if (!bridge_.canInspect()) {
            throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, "--why", describeSilence(),
                          "without --why, inspect reports what is read");
        }
    }

    /// None, and a note, of a bridge that does not tell.
    std::vector<ViewVerdicts> count(const ReadModel& read, const std::string& sourceName,
                                    const Arguments& arguments, Console& console) {
        std::vector<ViewVerdicts> all;
        if (!bridge_.canInspect()) {
            console.print({.level = Level::NOTE, .subject = sourceName, .text = describeSilence()});
            return all;
        }
        forEachView(read, sourceName, arguments, console, [&](ZORLog& log) {
            for (ViewVerdicts& view : countVerdicts(bridge_, *read.model, options_, log)) {
                all.push_back(std::move(view));
            }
        });
        return all;
    }

    void tellOf(std::vector<NamedObject>& objects, const ReadModel& read, const std::string& sourceName,
                const Arguments& arguments, Console& console) {
        forEachView(read, sourceName, arguments, console,
                    [&](ZORLog& log) { addVerdicts(bridge_, *read.model, options_, log, objects); });
    }

  private:
    template <typename Work>
    void forEachView(const ReadModel& read, const std::string& sourceName, const Arguments& arguments,
                     Console& console, const Work& work) {
        setDefaultTypeSets(options_, arguments, read.counts.databaseType);
        BridgeLog bridgeLog(sourceName, console);
        NoLog noLog;
        for (const std::string_view view : views_) {
            if (view == "UML" && !needsUml_ && !canBeUml(*read.model, sourceName, console)) {
                continue;
            }
            options_.setValue("Model", view);
            const std::uint64_t before = ZORXMLWriter::getElementsStarted();
            const Progress::Stage stage(progress_, [&] {
                return fmt::format("{}: {} view: {} elements looked at", sourceName, view,
                                   formatCount(ZORXMLWriter::getElementsStarted() - before));
            });
            try {
                work(isGiven_ && arguments.askedName.empty() ? static_cast<ZORLog&>(bridgeLog) : noLog);
            } catch (const ZORException& error) {
                const auto [id, text] = splitMessageId(error.getText().view());
                throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, sourceName, id, text, {});
            }
        }
    }

    std::string describeSilence() const {
        return fmt::format("the bridge \"{}\" does not tell what it would write", bridge_.getName().view());
    }

    /// Warns of a model that has no UML view.
    static bool canBeUml(ZORModel& model, const std::string& sourceName, Console& console) {
        const std::vector<ZORString> faults = checkModel(model, 1, ZORViewsToCheck::ALL);
        if (!faults.empty()) {
            console.print({.level = Level::WARNING,
                           .subject = sourceName,
                           .text = fmt::format("it has no UML view: {}", faults.front().view())});
        }
        return faults.empty();
    }

    ZORBridge bridge_;
    Progress& progress_;
    ZOROptionList options_;
    std::vector<std::string_view> views_;
    bool isGiven_ = false;
    bool needsUml_ = false;
};

/// What there is to say of a name: of objects of the model, or of what did not get into it.
struct Answer {
    std::vector<NamedObject> objects;
    std::vector<UnreadThing> unread;
};

Answer findAsked(const ReadModel& read, const OpenedSource& source, const Arguments& arguments) {
    const bool databaseWords = source.reader->describe().naturalView == "dbm";
    Answer answer;
    answer.objects = findNamed(*read.model, arguments.askedName, databaseWords);
    answer.unread = answer.objects.empty() ? findUnread(read, arguments.selection, arguments.askedName)
                                           : findUnselected(read, arguments.askedName);
    if (answer.objects.empty() && answer.unread.empty()) {
        throw Failure(ExitCode::WRONG_USE, "--why",
                      fmt::format("nothing that was read is called \"{}\".{}", arguments.askedName,
                                  describeNearestNames(*read.model, arguments.askedName)));
    }
    return answer;
}

std::string namedReport(const Answer& answer, const OpenedSource& source, const Arguments& arguments) {
    if (arguments.format == ReportFormat::TEXT) {
        return describeNamed(answer.objects) + describeUnread(answer.unread);
    }
    JsonWriter json(2);
    json.beginObject()
        .member("source", source.source.name())
        .member("name", arguments.askedName)
        .key("objects");
    writeNamed(json, answer.objects);
    json.key("unread");
    writeUnread(json, answer.unread);
    return json.endObject().text() + "\n";
}

}  // namespace

ExitCode runInspect(const Arguments& arguments, Console& console) {
    Progress progress(console);
    BridgeInspection inspection(arguments, progress);
    if (!arguments.askedName.empty()) {
        inspection.requireVerdicts();
    }
    const SourceName name = parseSourceName(arguments.source);
    const OpenedSource source = openSource(name, progress);
    const std::string& sourceName = source.source.name();
    const ReadModel read = readModel(source, arguments, console, progress, inspection.viewsToCheck());
    std::string report;
    if (arguments.askedName.empty()) {
        const std::vector<ViewVerdicts> verdicts = inspection.count(read, sourceName, arguments, console);
        report = arguments.format == ReportFormat::JSON ? jsonReport(source, read, verdicts)
                                                        : textReport(source, read, verdicts);
    } else {
        Answer answer = findAsked(read, source, arguments);
        if (!answer.objects.empty()) {
            inspection.tellOf(answer.objects, read, sourceName, arguments, console);
        }
        report = namedReport(answer, source, arguments);
    }
    progress.stop();
    writeStandardOutput(report);
    requireContent(read, source, arguments);
    return concludeRun(read, sourceName, arguments, console);
}

}  // namespace cli
