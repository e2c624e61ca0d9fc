#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Arguments.h"

namespace cli {

/// Options that a command takes or leaves together.
enum class OptionGroup {
    OUTPUT,     ///< where what is written goes
    LAYOUT,     ///< how the document is laid out
    CHECK,      ///< whether the document is checked
    BRIDGE,     ///< what the bridge is told
    SOURCE,     ///< how the source is read
    SELECTION,  ///< which parts of the source are wanted
    FINDINGS,   ///< what losses and warnings lead to
    REASONS,    ///< what a report goes into
    REPORT,     ///< the form of a report
    GENERAL     ///< every command's
};

/// An option of the program. Parsing, help and the manual's completeness come from the table of these.
struct OptionEntry {
    std::string name = {};   ///< without dashes
    char letter = '\0';      ///< its short form, or none
    std::string value = {};  ///< what the help calls its value; empty for a switch
    std::string description = {};
    OptionGroup group = OptionGroup::GENERAL;
    bool repeatable = false;
    std::vector<std::string> permitted = {};  ///< the values that it takes; empty for any that is not empty
    /// The display name of the bridge's option that it sets, or nothing.
    std::string bridgeOption = {};
    /// Puts the value into the arguments, an empty one for a switch. Throws Failure when the value is no
    /// good.
    void (*take)(Arguments& arguments, const OptionEntry& option, const std::string& value) = nullptr;

    bool isSwitch() const noexcept { return value.empty(); }
    /// "--output".
    std::string dashed() const { return "--" + name; }
};

/// All options of the program, those of the readers included, in the order of the help.
const std::vector<OptionEntry>& allOptions();

/// The heading of a group in the help.
std::string_view describeGroup(OptionGroup group);

}  // namespace cli
