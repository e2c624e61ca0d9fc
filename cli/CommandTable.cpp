#include "CommandTable.h"

#include <algorithm>

#include "Commands.h"

namespace cli {

namespace {

PositionalEntry sourceArgument() {
    return {.name = "SOURCE",
            .description =
                "the file to read, recognised by its content; \"-\" is standard input; "
                "PREFIX:PATH names the kind of source (see below)",
            .required = true,
            .take = [](Arguments& arguments, const std::string& value) { arguments.source = value; }};
}

PositionalEntry outputArgument(const std::string& name, const std::string& extension) {
    return {
        .name = name,
        .description = "the file to write; \"-\" is standard output; left out, the source's name with \"" +
                       extension + "\", in the current folder",
        .required = false,
        .take = [](Arguments& arguments, const std::string& value) { arguments.output = value; }};
}

/// The exit codes of the program with a command's own meanings, without those whose meaning is empty.
std::vector<ExitCodeEntry> exitCodesWith(std::initializer_list<ExitCodeEntry> own) {
    std::vector<ExitCodeEntry> entries(EXIT_CODES.begin(), EXIT_CODES.end());
    for (const ExitCodeEntry& meaning : own) {
        std::find_if(entries.begin(), entries.end(), [&](const ExitCodeEntry& entry) {
            return entry.code == meaning.code;
        })->meaning = meaning.meaning;
    }
    std::erase_if(entries, [](const ExitCodeEntry& entry) { return entry.meaning.empty(); });
    return entries;
}

constexpr std::string_view STRICT_FINDINGS = "done, but with findings (--strict: warnings, losses)";
constexpr const char* VERBOSE_READING =
    "tell more: what was chosen, and each thing that the model cannot hold";

Command exportCommand() {
    return {
        .name = "export",
        .summary = "write a source's model as an OIM document",
        .description =
            "Reads SOURCE and writes its model as an OIM XML document. The document appears under "
            "its name only when it is complete; a file that was there before stays as it is until "
            "then.",
        .positionals = {sourceArgument(), outputArgument("OUT.xml", ".xml")},
        .groups = {OptionGroup::OUTPUT, OptionGroup::LAYOUT, OptionGroup::CHECK, OptionGroup::BRIDGE,
                   OptionGroup::SOURCE, OptionGroup::SELECTION, OptionGroup::FINDINGS, OptionGroup::GENERAL},
        .examples = {{"export shop.sqlite shop.xml", "a database, in the view that suits it"},
                     {"export shop.sqlite shop.xml --view dbm --dbm-typeset \"Oracle 8.x\" --indent 2",
                      "with another database's types, indented"},
                     {"export shop.sqlite --table \"order*\" --exclude-table order_log -o orders.xml",
                      "some tables only"},
                     {"export json:model.txt - --view dbm | gzip > model.xml.gz",
                      "a model document of any name, into a pipe"},
                     {"export shop.sqlite shop.xml --check", "checked, as \"oimbridge check\" does"},
                     {"export shop.sql shop.xml --set \"MS Repository=False\" --overwrite",
                      "with an option of the bridge"}},
        .exitCodes = exitCodesWith({{ExitCode::FINDINGS,
                                     "done, but with findings (--strict: warnings, losses; --check: "
                                     "errors)"}}),
        .run = runExport};
}

Command inspectCommand() {
    return {
        .name = "inspect",
        .summary = "tell what would be read from a source and written of it",
        .description =
            "Reads SOURCE and tells what was read, by kind and package, what the model cannot hold, and "
            "for each view how much of it is written, and why the rest is not. Writes nothing.",
        .positionals = {sourceArgument()},
        .groups = {OptionGroup::BRIDGE, OptionGroup::SOURCE, OptionGroup::SELECTION, OptionGroup::FINDINGS,
                   OptionGroup::REASONS, OptionGroup::REPORT, OptionGroup::GENERAL},
        .meanings = {{"view", "the view to tell of; left out, all of them"}, {"verbose", VERBOSE_READING}},
        .examples = {{"inspect shop.sqlite", "a report to read"},
                     {"inspect shop.sqlite --view dbm --format json", "of one view, for programs"},
                     {"inspect shop.sqlite --view erd --why customer.name",
                      "why the column is, or is not, in the document"}},
        .exitCodes = exitCodesWith({{ExitCode::FINDINGS, STRICT_FINDINGS}}),
        .run = runInspect};
}

Command convertCommand() {
    return {
        .name = "convert",
        .summary = "save a source's model as a model document",
        .description =
            "Reads SOURCE and saves its model as a model document (JSON), which all commands read as they "
            "read SOURCE: to keep a model under version control, to edit it, or to look at it. The file "
            "appears under its name only when it is complete.",
        .positionals = {sourceArgument(), outputArgument("MODEL.model.json", ".model.json")},
        .groups = {OptionGroup::OUTPUT, OptionGroup::SOURCE, OptionGroup::SELECTION, OptionGroup::FINDINGS,
                   OptionGroup::GENERAL},
        .meanings = {{"output",
                      "the file to write, as the argument MODEL.model.json; \"-\" is standard output"},
                     {"overwrite", "replace the file when it exists"},
                     {"verbose", VERBOSE_READING}},
        .examples = {{"convert shop.sqlite shop.model.json", "the model of a database"},
                     {"convert design.xmi - | less", "a look at what is read of a UML model"}},
        .exitCodes = exitCodesWith({{ExitCode::FINDINGS, STRICT_FINDINGS}}),
        .run = runConvert};
}

Command checkCommand() {
    return {
        .name = "check",
        .summary = "check an OIM document",
        .description =
            "Reads an OIM XML document and tells what is wrong with it: XML that is not well-formed or "
            "not UTF-8, elements, attributes and values that are unknown or out of place, objects that lack "
            "what is always there, identifiers that are given twice, references that lead nowhere. Writes "
            "nothing.",
        .positionals = {{.name = "FILE.xml",
                         .description = "the document; \"-\" is standard input",
                         .required = true,
                         .take = [](Arguments& arguments,
                                    const std::string& value) { arguments.source = value; }}},
        .groups = {OptionGroup::GENERAL},
        .meanings = {{"verbose", "list more: 100,000 errors in place of 100, and every note"}},
        .examples = {{"check shop.xml", "a document that was written earlier"},
                     {"check - < shop.xml", "from a pipe"}},
        .exitCodes =
            exitCodesWith({{ExitCode::DONE, "no errors"},
                           {ExitCode::FINDINGS, "errors in the document"},
                           {ExitCode::SOURCE_NOT_OPENED, "the document cannot be opened or read"},
                           {ExitCode::SOURCE_NOT_READ, ""},
                           {ExitCode::OUTPUT_NOT_WRITTEN, "the findings were not written, or memory ran out"},
                           {ExitCode::NOTHING_SELECTED, ""}}),
        .run = runCheck};
}

Command optionsCommand() {
    return {.name = "options",
            .summary = "list the options of the bridge and the readers",
            .description =
                "Lists what the bridge describes of its options (names, types, defaults, values, "
                "descriptions), and the readers with theirs.",
            .positionals = {{.name = "NAME",
                             .description = "show only the option or the reader of this name",
                             .required = false,
                             .take = [](Arguments& arguments,
                                        const std::string& value) { arguments.shownName = value; }}},
            .groups = {OptionGroup::REPORT, OptionGroup::GENERAL},
            .meanings = {{"verbose", "as without it; there is no more to tell"}},
            .examples = {{"options", "everything"},
                         {"options \"DBM TypeSet\"", "one option, with the values it takes"},
                         {"options --format json", "for programs"}},
            .exitCodes = exitCodesWith({{ExitCode::FINDINGS, ""},
                                        {ExitCode::SOURCE_NOT_OPENED, ""},
                                        {ExitCode::SOURCE_NOT_READ, ""},
                                        {ExitCode::NOTHING_SELECTED, ""}}),
            .run = runOptions};
}

}  // namespace

bool Command::takes(const OptionEntry& option) const {
    return std::find(groups.begin(), groups.end(), option.group) != groups.end();
}

const std::string& Command::describe(const OptionEntry& option) const {
    const auto own = std::find_if(meanings.begin(), meanings.end(), [&](const OptionMeaning& meaning) {
        return meaning.option == option.name;
    });
    return own == meanings.end() ? option.description : own->description;
}

const std::vector<Command>& allCommands() {
    static const std::vector<Command> table = {exportCommand(), inspectCommand(), convertCommand(),
                                               checkCommand(), optionsCommand()};
    return table;
}

const Command* findCommand(std::string_view name) {
    const std::vector<Command>& commands = allCommands();
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const Command& command) { return command.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

}  // namespace cli
