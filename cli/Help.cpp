#include "Help.h"

#include <fmt/format.h>

#include <span>

#include "Text.h"

namespace cli {

namespace {

constexpr std::size_t WIDTH = 100;
constexpr std::size_t DESCRIPTION_COLUMN = 30;

/// A name at the left, its description wrapped at the right; a long name has a line of its own.
std::string row(const std::string& name, const std::string& description) {
    const std::string left = "  " + name;
    std::string right = wrap(description, DESCRIPTION_COLUMN, WIDTH);
    if (left.size() + 2 > DESCRIPTION_COLUMN) {
        return left + "\n" + right;
    }
    return left + right.substr(left.size());
}

std::string optionName(const OptionEntry& option) {
    const std::string letter = option.letter == '\0' ? "    " : fmt::format("-{}, ", option.letter);
    return letter + option.dashed() + (option.isSwitch() ? "" : " " + option.value);
}

/// `description`: what the option is for.
std::string optionDescription(const OptionEntry& option, std::string description) {
    if (!option.permitted.empty()) {
        description += fmt::format(" ({})", joinWords(option.permitted, "or"));
    }
    if (option.repeatable) {
        description += " (repeatable)";
    }
    return description;
}

/// Of a command, or of the program.
std::string optionRows(OptionGroup group, const Command* command) {
    std::string rows;
    for (const OptionEntry& option : allOptions()) {
        if (option.group == group) {
            const std::string& description =
                command == nullptr ? option.description : command->describe(option);
            rows += row(optionName(option), optionDescription(option, description));
        }
    }
    return rows.empty() ? rows : fmt::format("\n{}:\n{}", describeGroup(group), rows);
}

std::string usage(const Command& command) {
    std::string line = "oimbridge " + command.name;
    for (const PositionalEntry& positional : command.positionals) {
        line += positional.required ? " " + positional.name : fmt::format(" [{}]", positional.name);
    }
    return line + " [options]";
}

std::string argumentRows(const Command& command) {
    std::string rows = "\nArguments:\n";
    for (const PositionalEntry& positional : command.positionals) {
        rows += row(positional.name, positional.description);
    }
    return rows;
}

std::string sourceRows() {
    std::string rows = "\nSources:\n";
    for (const readers::Reader* reader : readers::allReaders()) {
        const readers::ReaderDescription& description = reader->describe();
        rows += row(description.name + ":PATH", description.title + "; " + description.recognition);
    }
    return rows;
}

std::string exampleRows(const Command& command) {
    std::string rows = "\nExamples:\n";
    for (const ExampleEntry& example : command.examples) {
        rows += fmt::format("  oimbridge {}\n{}", example.commandLine, wrap(example.purpose, 6, WIDTH));
    }
    return rows;
}

std::string exitCodeRows(std::span<const ExitCodeEntry> entries) {
    std::string rows = "\nExit codes:\n";
    for (const ExitCodeEntry& entry : entries) {
        rows += fmt::format("  {:<5}{}\n", static_cast<int>(entry.code), entry.meaning);
    }
    return rows;
}

}  // namespace

std::string programHelp() {
    std::string help = "Usage: oimbridge COMMAND ...\n\n";
    help += wrap(
        "Writes the model of a source, such as a database, as an XML document of the Open Information Model.",
        0, WIDTH);
    help += "\nCommands:\n";
    for (const Command& command : allCommands()) {
        help += row(usage(command).substr(std::string_view("oimbridge ").size()), command.summary);
    }
    help += sourceRows();
    help += optionRows(OptionGroup::GENERAL, nullptr);
    help += "\nExamples:\n";
    for (const Command& command : allCommands()) {
        help += fmt::format("  oimbridge {}\n", command.examples.front().commandLine);
    }
    help += exitCodeRows(EXIT_CODES);
    return help + "\n\"oimbridge COMMAND --help\" tells more.\n";
}

std::string commandHelp(const Command& command) {
    std::string help = fmt::format("Usage: {}\n\n", usage(command));
    help += wrap(command.description, 0, WIDTH);
    help += argumentRows(command);
    for (const OptionGroup group : command.groups) {
        help += optionRows(group, &command);
        if (group == OptionGroup::SOURCE) {
            help += sourceRows();
        }
    }
    return help + exampleRows(command) + exitCodeRows(command.exitCodes);
}

std::string versionText() {
    return "oimbridge " OIMBRIDGE_VERSION "\n";
}

}  // namespace cli
