#pragma once

#include <string>
#include <vector>

#include "ModelReading.h"

namespace cli {

/// Something that is in the source and did not get into the model.
struct UnreadThing {
    std::string kind;     ///< "table"; empty where nobody knows
    std::string path;     ///< the names of what it belongs to and its own, with "." between them
    std::string outcome;  ///< "not selected", "not carried over" or "not read"
    std::string reason;   ///< "--table leaves it out"
};

/// What of a name the selection left out. Letter case counts.
std::vector<UnreadThing> findUnselected(const ReadModel& read, const std::string& name);

/// What of a name that nothing in the model has was left out by the selection, could not be held by the model
/// or was warned of by the reader. Of a part of a table that is left out, the table. Letter case counts,
/// unless nothing is called so.
std::vector<UnreadThing> findUnread(const ReadModel& read, const readers::Selection& selection,
                                    const std::string& name);

/// A sentence for each.
std::string describeUnread(const std::vector<UnreadThing>& things);
void writeUnread(JsonWriter& json, const std::vector<UnreadThing>& things);

}  // namespace cli
