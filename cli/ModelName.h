#pragma once

#include <string>
#include <string_view>

namespace cli {

/// What the model's name holds that would make a document malformed, or nothing: the name goes into it as it
/// is.
std::string findModelNameFault(std::string_view name);

/// Throws Failure when a document cannot hold the name that the source `sourceName` has for its model.
void requireWritableModelName(std::string_view name, std::string_view sourceName);

}  // namespace cli
