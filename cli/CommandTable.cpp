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
        .examples = {{"inspect shop.sqlite", "a report to read"},
                     {"inspect shop.sqlite --view dbm --format json", "of one view, for programs"},
                     {"inspect shop.sqlite --view erd --why customer.name",
                      "why the column is, or is not, in the document"}},
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
        .examples = {{"convert shop.sqlite shop.model.json", "the model of a database"},
                     {"convert design.xmi - | less", "a look at what is read of a UML model"}},
        .run = runConvert};
}

Command checkCommand() {
    return {
        .name = "check",
        .summary = "check an OIM document",
        .description =
            "Reads an OIM XML document and tells what is wrong with it: XML that is not well-formed or "
            "not UTF-8, elements, attributes and values that are unknown or out of place, identifiers that "
            "are given twice, references that lead nowhere. Writes nothing.",
        .positionals = {{.name = "FILE.xml",
                         .description = "the document; \"-\" is standard input",
                         .required = true,
                         .take = [](Arguments& arguments,
                                    const std::string& value) { arguments.source = value; }}},
        .groups = {OptionGroup::GENERAL},
        .examples = {{"check shop.xml", "a document that was written earlier"},
                     {"check - < shop.xml", "from a pipe"}},
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
            .examples = {{"options", "everything"},
                         {"options \"DBM TypeSet\"", "one option, with the values it takes"},
                         {"options --format json", "for programs"}},
            .run = runOptions};
}

}  // namespace

bool Command::takes(const OptionEntry& option) const {
    return std::find(groups.begin(), groups.end(), option.group) != groups.end();
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
