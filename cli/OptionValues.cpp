#include "OptionValues.h"

#include <fmt/format.h>

#include <charconv>

#include "Failure.h"
#include "ModelName.h"
#include "Views.h"

namespace cli {

namespace {

constexpr int WIDEST_INDENTATION = 16;

std::string indentationOf(const OptionEntry& option, const std::string& value) {
    if (value == "none") {
        return {};
    }
    if (value == "tab") {
        return "\t";
    }
    int width = -1;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), width);
    if (error != std::errc() || end != value.data() + value.size() || width < 0 ||
        width > WIDEST_INDENTATION) {
        refuseValue(option, fmt::format("\"{}\" is neither a number from 0 to {} nor \"tab\" nor \"none\"",
                                        value, WIDEST_INDENTATION));
    }
    return std::string(static_cast<std::size_t>(width), ' ');
}

/// The indentation goes between the document's tags as it is, where XML permits nothing but white space.
void requireWhiteSpace(const OptionEntry& option, const std::string& name, const std::string& value) {
    if (value.find_first_not_of(" \t\r\n") != std::string::npos) {
        refuseValue(
            option,
            fmt::format("the value \"{}\" of the option \"{}\" holds more than blanks, tabs and line ends",
                        value, name),
            "\"--indent\" indents by so many blanks");
    }
}

}  // namespace

void refuseValue(const OptionEntry& option, const std::string& text, std::string hint) {
    throw Failure(ExitCode::WRONG_USE, option.dashed(), text, std::move(hint));
}

void takeBridgeValue(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    arguments.bridgeOptions.push_back({option.bridgeOption, value, option.dashed()});
}

void takeView(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    takeBridgeValue(arguments, option, std::string(findViewByName(value)->bridgeValue));
}

void takeIndent(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    takeBridgeValue(arguments, option, indentationOf(option, value));
}

void takeSetting(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    const std::size_t equals = value.find('=');
    if (equals == std::string::npos || equals == 0) {
        refuseValue(option, fmt::format("\"{}\" is not of the form \"NAME=VALUE\"", value),
                    "\"oimbridge options\" lists the names");
    }
    const std::string name = value.substr(0, equals);
    if (name == "File") {
        refuseValue(option, "the option \"File\" is what OUT says",
                    "name the output as OUT or with --output");
    }
    const std::string setting = value.substr(equals + 1);
    if (name == INDENTATION) {
        requireWhiteSpace(option, name, setting);
    }
    arguments.bridgeOptions.push_back({name, setting, option.dashed()});
}

void takeReaderOption(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    arguments.readerOptions[option.name] = value;
}

void takeModelName(Arguments& arguments, const OptionEntry& option, const std::string& value) {
    const std::string fault = findModelNameFault(value);
    if (!fault.empty()) {
        refuseValue(option, fmt::format("a document cannot hold the name \"{}\" because of the '{}' in it",
                                        value, fault));
    }
    arguments.modelName = value;
}

}  // namespace cli
