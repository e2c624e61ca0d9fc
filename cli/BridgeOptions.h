#pragma once

#include <string>

#include "Arguments.h"
#include "Views.h"
#include "ZORBridgeManager.h"

namespace cli {

/// Loads the export bridge. Throws Failure when that is not possible.
ZORBridge loadBridge();

/// Sets what the user gave. Throws Failure when there is no such option or it does not permit the value.
void setGivenOptions(ZOROptionList& options, const Arguments& arguments);

/// The view that the user asks for, or null.
const View* givenView(const ZOROptionList& options, const Arguments& arguments);

/// Sets the type sets that the user did not give; `databaseType` is that of the source, or empty.
void setDefaultTypeSets(ZOROptionList& options, const Arguments& arguments, const std::string& databaseType);

}  // namespace cli
