#pragma once

#include <string>

#include "Console.h"
#include "Views.h"
#include "ZORBridgeInterface.h"

namespace cli {

/// Tells which data types of the model's attributes are of a name that no type set knows (see
/// `getOldDataType`): a document has what the type set holds for any other type in their place. Says nothing
/// when the options ask for no data types.
void tellUnknownDataTypes(const ZORModel& model, const View& view, const ZOROptionList& options,
                          const std::string& sourceName, Console& console);

/// Whether a document with this value of "DBM TypeSet" or "ERD TypeSet" holds data types.
bool hasDataTypes(std::string_view typeSet) noexcept;

}  // namespace cli
