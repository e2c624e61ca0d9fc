#include "InspectionReport.h"

#include <fmt/format.h>

#include <algorithm>

#include "Text.h"

namespace cli {

namespace {

using Reason = std::pair<std::string, std::uint64_t>;

/// The one that holds most often first.
std::vector<Reason> inOrder(const std::map<std::string, std::uint64_t>& reasons) {
    std::vector<Reason> sorted(reasons.begin(), reasons.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Reason& a, const Reason& b) { return a.second > b.second; });
    return sorted;
}

/// The end of a sentence.
std::string describeExceptions(const NamedObject::Verdict& verdict) {
    std::string text;
    for (const std::string& exception : verdict.exceptions) {
        text += (text.empty() ? ", but " : "; ") + printable(exception);
    }
    return text;
}

void writeVerdict(JsonWriter& json, const NamedObject::Verdict& verdict) {
    json.beginObject()
        .member("view", verdict.view)
        .member("written", verdict.written)
        .member(verdict.written ? "element" : "reason", verdict.text);
    if (!verdict.exceptions.empty()) {
        json.key("exceptions").beginList();
        for (const std::string& exception : verdict.exceptions) {
            json.value(exception);
        }
        json.endList();
    }
    json.endObject();
}

}  // namespace

std::string describeVerdicts(const std::vector<ViewVerdicts>& views, bool databaseWords) {
    std::string text;
    for (const ViewVerdicts& view : views) {
        text += fmt::format("\n{:<22}{:>12}{:>12}\n", fmt::format("In the {}:", titleOfView(view.view)),
                            "written", "left out");
        if (view.kinds.empty()) {
            text += "  nothing\n";
        }
        for (const auto& [kind, verdicts] : view.kinds) {
            const ObjectKindEntry& entry = objectKinds()[static_cast<std::size_t>(kind)];
            text += fmt::format("  {:<20}{:>12}{:>12}\n", databaseWords ? entry.databasePlural : entry.plural,
                                formatCount(verdicts.written), formatCount(verdicts.leftOut));
            for (const auto& [reason, count] : inOrder(verdicts.reasons)) {
                text += fmt::format("    {}: {}\n", formatCount(count), printable(reason));
            }
        }
    }
    return text;
}

void writeVerdicts(JsonWriter& json, const std::vector<ViewVerdicts>& views) {
    json.beginList();
    for (const ViewVerdicts& view : views) {
        json.beginObject().member("view", view.view).key("kinds").beginObject();
        for (const auto& [kind, verdicts] : view.kinds) {
            json.key(objectKinds()[static_cast<std::size_t>(kind)].key)
                .beginObject()
                .member("written", verdicts.written)
                .member("leftOut", verdicts.leftOut)
                .key("reasons")
                .beginList();
            for (const auto& [reason, count] : inOrder(verdicts.reasons)) {
                json.beginObject().member("reason", reason).member("count", count).endObject();
            }
            json.endList().endObject();
        }
        json.endObject().endObject();
    }
    json.endList();
}

std::string describeNamed(const std::vector<NamedObject>& objects) {
    std::string text;
    for (const NamedObject& object : objects) {
        for (const NamedObject::Verdict& verdict : object.verdicts) {
            text += fmt::format("The {} {} is {} the {} {} {}{}.\n", object.kind, printable(object.path),
                                verdict.written ? "written to" : "left out of", titleOfView(verdict.view),
                                verdict.written ? "as" : "because", printable(verdict.text),
                                describeExceptions(verdict));
        }
    }
    return text;
}

void writeNamed(JsonWriter& json, const std::vector<NamedObject>& objects) {
    json.beginList();
    for (const NamedObject& object : objects) {
        json.beginObject().member("kind", object.kind).member("path", object.path).key("views").beginList();
        for (const NamedObject::Verdict& verdict : object.verdicts) {
            writeVerdict(json, verdict);
        }
        json.endList().endObject();
    }
    json.endList();
}

}  // namespace cli
