#include <fmt/format.h>

#include <algorithm>

#include "Commands.h"
#include "ModelReading.h"
#include "Text.h"

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
    std::string rows = "\nRead:\n";
    for (const ObjectKindEntry& entry : objectKinds()) {
        if (const std::uint64_t count = counts.total[entry.kind]; count > 0) {
            rows += fmt::format("  {:<20}{:>12}\n", headingOf(entry, databaseWords), formatCount(count));
        }
    }
    return rows;
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
    std::string rows = "\nNot carried over, because the model cannot hold it:\n";
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

std::string textReport(const OpenedSource& source, const ReadModel& read) {
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
    return report + lossRows(read.losses);
}

std::string jsonReport(const OpenedSource& source, const ReadModel& read) {
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
    return json.endList().endObject().text() + "\n";
}

}  // namespace

ExitCode runInspect(const Arguments& arguments, Console& console) {
    const SourceName name = parseSourceName(arguments.source);
    Progress progress(console);
    const OpenedSource source = openSource(name, progress);
    const ReadModel read = readModel(source, arguments, console, progress);
    progress.stop();
    writeStandardOutput(arguments.format == ReportFormat::JSON ? jsonReport(source, read)
                                                               : textReport(source, read));
    requireContent(read, source, arguments);
    return concludeRun(read, source.source.name(), arguments, console);
}

}  // namespace cli
