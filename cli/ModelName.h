#pragma once

#include <string_view>

namespace cli {

/// Throws Failure when a document of a model of this name would not be well-formed: the name goes into it as
/// it is. `given` tells that the name comes from the command line; otherwise it is the source's,
/// `sourceName`.
void requireWritableModelName(std::string_view name, bool given, std::string_view sourceName);

}  // namespace cli
