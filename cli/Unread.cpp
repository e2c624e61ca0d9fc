#include "Unread.h"

#include <fmt/format.h>

#include <algorithm>

#include "Text.h"

namespace cli {

namespace {

/// Compares paths with the name that was asked for.
class AskedName {
  public:
    AskedName(const std::string& name, bool ignoreCase)
        : ignoreCase_(ignoreCase), name_(ignoreCase ? foldCase(name) : name) {}

    bool fits(const std::string& path) const { return isEndOfPath(compared(path), name_); }
    /// Or names something in it, such as "customer.name" for "main.customer".
    bool fitsOrIsInside(const std::string& path) const {
        const std::string whole = compared(path);
        std::size_t end = name_.size();
        while (end != std::string::npos && !isEndOfPath(whole, name_.substr(0, end))) {
            end = end == 0 ? std::string::npos : name_.rfind('.', end - 1);
        }
        return end != std::string::npos;
    }

  private:
    std::string compared(const std::string& path) const { return ignoreCase_ ? foldCase(path) : path; }

    bool ignoreCase_;
    std::string name_;
};

/// A warning about a pattern is about no object, even when it reads like a name.
bool isAboutPattern(const ReaderWarning& warning, const readers::Selection& selection) {
    const auto holds = [&](const std::vector<std::string>& patterns) {
        return std::find(patterns.begin(), patterns.end(), warning.where) != patterns.end();
    };
    return holds(selection.schemas) || holds(selection.excludedSchemas) || holds(selection.tables) ||
           holds(selection.excludedTables);
}

UnreadThing describe(const readers::Unselected& thing) {
    return {thing.kind, thing.where, "not selected", fmt::format("{} leaves it out", optionFor(thing.by))};
}

std::vector<UnreadThing> find(const ReadModel& read, const readers::Selection& selection,
                              const AskedName& asked) {
    std::vector<UnreadThing> found;
    for (const readers::Unselected& thing : read.unselected) {
        if (asked.fitsOrIsInside(thing.where)) {
            found.push_back(describe(thing));
        }
    }
    for (const readers::LossReport::Item& item : read.losses.items()) {
        if (asked.fits(item.where)) {
            const std::string detail = item.detail.empty() ? "" : ": " + item.detail;
            found.push_back({{}, item.where, "not carried over", item.kind + detail});
        }
    }
    for (const ReaderWarning& warning : read.warnings) {
        if (asked.fits(warning.where) && !isAboutPattern(warning, selection)) {
            found.push_back({{}, warning.where, "not read", warning.text});
        }
    }
    return found;
}

}  // namespace

std::vector<UnreadThing> findUnselected(const ReadModel& read, const std::string& name) {
    const AskedName asked(name, false);
    std::vector<UnreadThing> found;
    for (const readers::Unselected& thing : read.unselected) {
        if (asked.fits(thing.where)) {
            found.push_back(describe(thing));
        }
    }
    return found;
}

std::vector<UnreadThing> findUnread(const ReadModel& read, const readers::Selection& selection,
                                    const std::string& name) {
    std::vector<UnreadThing> found = find(read, selection, AskedName(name, false));
    return found.empty() ? find(read, selection, AskedName(name, true)) : found;
}

std::string describeUnread(const std::vector<UnreadThing>& things) {
    std::string text;
    for (const UnreadThing& thing : things) {
        const std::string article = thing.kind.empty() ? "" : "The " + thing.kind + " ";
        text += fmt::format("{}{} was {}: {}.\n", article, printable(thing.path), thing.outcome,
                            printable(thing.reason));
    }
    return text;
}

void writeUnread(JsonWriter& json, const std::vector<UnreadThing>& things) {
    json.beginList();
    for (const UnreadThing& thing : things) {
        json.beginObject()
            .member("kind", thing.kind)
            .member("path", thing.path)
            .member("outcome", thing.outcome)
            .member("reason", thing.reason)
            .endObject();
    }
    json.endList();
}

}  // namespace cli
