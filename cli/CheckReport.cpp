#include "CheckReport.h"

#include <fmt/format.h>

#include "Json.h"
#include "Text.h"

namespace cli {

namespace {

using oimcheck::Finding;

/// So many errors are listed: behind the first hundred there is mostly nothing new.
constexpr std::uint64_t MOST_ERRORS = 100;
constexpr std::uint64_t MOST_ERRORS_VERBOSE = 100'000;

std::uint64_t mostErrors(const Console& console) {
    return console.isVerbose() ? MOST_ERRORS_VERBOSE : MOST_ERRORS;
}

}  // namespace

CheckReport::CheckReport(std::string documentName, Console& console)
    : documentName_(std::move(documentName)),
      console_(console),
      check_([this](const Finding& finding) { take(finding); }, mostErrors(console)) {}

void CheckReport::take(const Finding& finding) {
    const bool isError = finding.severity == Finding::Severity::ERROR;
    errorsListed_ += isError ? finding.places : 0;
    if (isError || console_.isVerbose()) {
        findings_.push_back(finding);
        return;
    }
    Kind& kind = notes_[finding.explanation];
    if (kind.places == 0) {
        kind.first = finding;
    }
    kind.places += finding.places;
}

const oimcheck::Summary& CheckReport::finish() {
    summary_ = check_.finish();
    for (const Finding& finding : findings_) {
        print(finding, finding.places);
    }
    if (const std::uint64_t others = summary_.errors - errorsListed_; others > 0) {
        console_.print(
            {.level = Level::ERROR,
             .subject = documentName_,
             .text = fmt::format("{} not listed", formatCount(others, "more error is", "more errors are")),
             .hint = console_.isVerbose() ? "" : "--verbose lists them"});
    }
    for (const auto& [explanation, kind] : notes_) {
        print(kind.first, kind.places);
    }
    return summary_;
}

void CheckReport::print(const Finding& finding, std::uint64_t places) {
    const std::string elsewhere =
        places == 1 ? std::string()
                    : fmt::format("; so it is in {}", formatCount(places - 1, "other place", "other places"));
    const bool isError = finding.severity == Finding::Severity::ERROR;
    const std::string explanation =
        finding.explanation.empty() ? std::string() : fmt::format(" ({})", finding.explanation);
    JsonWriter data;
    data.beginObject().member("line", finding.line).member("column", finding.column).endObject();
    console_.print({.level = isError ? Level::ERROR : Level::NOTE,
                    .subject = documentName_,
                    .where = fmt::format("line {}, column {}", finding.line, finding.column),
                    .text = finding.text + explanation + elsewhere,
                    .data = data.text()});
}

std::string CheckReport::summaryText() const {
    return fmt::format("{} in {}, {} and {}; {}",
                       summary_.errors == 0 ? "no errors" : formatCount(summary_.errors, "error", "errors"),
                       formatCount(summary_.elements, "element", "elements"),
                       formatCount(summary_.objects, "object", "objects"),
                       formatCount(summary_.references, "reference", "references"),
                       formatBytes(summary_.bytes));
}

std::string CheckReport::summaryData() const {
    JsonWriter json;
    json.beginObject()
        .member("document", documentName_)
        .member("errors", summary_.errors)
        .member("notes", summary_.notes)
        .member("elements", summary_.elements)
        .member("objects", summary_.objects)
        .member("references", summary_.references)
        .member("bytes", summary_.bytes);
    return json.endObject().text();
}

}  // namespace cli
