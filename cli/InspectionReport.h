#pragma once

#include <string>
#include <vector>

#include "Inspection.h"

namespace cli {

/// A table for each view, with the reasons below each kind.
std::string describeVerdicts(const std::vector<ViewVerdicts>& views, bool databaseWords);
/// A list with an object for each view.
void writeVerdicts(JsonWriter& json, const std::vector<ViewVerdicts>& views);

/// A sentence for each object and view.
std::string describeNamed(const std::vector<NamedObject>& objects);
void writeNamed(JsonWriter& json, const std::vector<NamedObject>& objects);

}  // namespace cli
