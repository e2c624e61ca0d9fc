#pragma once

#include <string>
#include <string_view>

#include "OptionTable.h"

namespace cli {

/// The bridge's option that `--indent` sets.
inline constexpr std::string_view INDENTATION = "XML Indentation (pretty printing)";

/// Ends the program because of the option, as wrong use.
[[noreturn]] void refuseValue(const OptionEntry& option, const std::string& text, std::string hint = {});

// What puts an option's value into the arguments, as a table entry's `take` does.

/// For options whose value is one of the bridge's, taken as it is.
void takeBridgeValue(Arguments& arguments, const OptionEntry& option, const std::string& value);
void takeView(Arguments& arguments, const OptionEntry& option, const std::string& value);
void takeIndent(Arguments& arguments, const OptionEntry& option, const std::string& value);
/// For "NAME=VALUE", with the display name of one of the bridge's options.
void takeSetting(Arguments& arguments, const OptionEntry& option, const std::string& value);
/// For options that a reader has of its own.
void takeReaderOption(Arguments& arguments, const OptionEntry& option, const std::string& value);
void takeModelName(Arguments& arguments, const OptionEntry& option, const std::string& value);

}  // namespace cli
