#include "OptionTable.h"

#include <algorithm>

#include "OptionValues.h"
#include "Views.h"

namespace cli {

namespace {

void takePattern(std::vector<std::string>& patterns, const std::string& value) {
    patterns.push_back(value);
}

void appendOutputOptions(std::vector<OptionEntry>& table) {
    table.push_back(
        {.name = "output",
         .letter = 'o',
         .value = "OUT",
         .description = "the file to write, as the argument OUT; \"-\" is standard output",
         .group = OptionGroup::OUTPUT,
         .take = [](Arguments& arguments, const OptionEntry& option, const std::string& value) {
             if (arguments.output.has_value()) {
                 refuseValue(option, "the output is named twice, as the argument OUT and with this option");
             }
             arguments.output = value;
         }});
    table.push_back({.name = "overwrite",
                     .description = "replace OUT when it exists",
                     .group = OptionGroup::OUTPUT,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.overwrite = true;
                     }});
    table.push_back({.name = "check",
                     .description = "check what is written, and exit with 1 when there is an error in it",
                     .group = OptionGroup::CHECK,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.check = true;
                     }});
}

void appendBridgeOptions(std::vector<OptionEntry>& table) {
    table.push_back({.name = "view",
                     .value = "VIEW",
                     .description = "the view of the model; left out, the one that suits the source",
                     .group = OptionGroup::BRIDGE,
                     .permitted = viewNames(),
                     .bridgeOption = "Model",
                     .take = takeView});
    table.push_back(
        {.name = "dbm-typeset",
         .value = "TYPESET",
         .description =
             "the convention for the data types of columns, or \"None\" for none; left out, the one "
             "of the source's own database, or \"SQL Server 7.x\"",
         .group = OptionGroup::BRIDGE,
         .bridgeOption = "DBM TypeSet",
         .take = takeBridgeValue});
    table.push_back({.name = "erd-typeset",
                     .value = "TYPESET",
                     .description =
                         "the convention for the data types of domains, or \"None\" for none; left out, "
                         "\"XML Datatypes\"",
                     .group = OptionGroup::BRIDGE,
                     .bridgeOption = "ERD TypeSet",
                     .take = takeBridgeValue});
    table.push_back({.name = "indent",
                     .value = "N",
                     .description =
                         "indent the document by so many blanks (0 to 16) per level, or by \"tab\" or "
                         "\"none\"; left out, none",
                     .group = OptionGroup::LAYOUT,
                     .bridgeOption = std::string(INDENTATION),
                     .take = takeIndent});
    table.push_back({.name = "set",
                     .value = "NAME=VALUE",
                     .description =
                         "set any option of the bridge by its display name, after the options above; "
                         "\"oimbridge options\" lists them",
                     .group = OptionGroup::BRIDGE,
                     .repeatable = true,
                     .take = takeSetting});
}

void appendSourceOptions(std::vector<OptionEntry>& table) {
    table.push_back({.name = "model-name",
                     .value = "NAME",
                     .description = "the name of the model; left out, the source's own",
                     .group = OptionGroup::SOURCE,
                     .take = takeModelName});
    for (const readers::Reader* reader : readers::allReaders()) {
        for (const readers::ReaderOption& option : reader->describe().options) {
            const bool known = std::any_of(table.begin(), table.end(), [&](const OptionEntry& entry) {
                return entry.name == option.name;
            });
            if (!known) {
                table.push_back({.name = option.name,
                                 .value = "VALUE",
                                 .description = option.description,
                                 .group = OptionGroup::SOURCE,
                                 .permitted = option.permittedValues,
                                 .take = takeReaderOption});
            }
        }
    }
}

void appendSelectionOptions(std::vector<OptionEntry>& table) {
    const auto append = [&](const char* name, const char* description, auto take) {
        table.push_back({.name = name,
                         .value = "PATTERN",
                         .description = description,
                         .group = OptionGroup::SELECTION,
                         .repeatable = true,
                         .take = take});
    };
    append("schema", "read only the schemas of this name",
           [](Arguments& arguments, const OptionEntry&, const std::string& value) {
               takePattern(arguments.selection.schemas, value);
           });
    append("exclude-schema", "leave out the schemas of this name",
           [](Arguments& arguments, const OptionEntry&, const std::string& value) {
               takePattern(arguments.selection.excludedSchemas, value);
           });
    append("table", "read only the tables and views of this name, \"TABLE\" or \"SCHEMA.TABLE\"",
           [](Arguments& arguments, const OptionEntry&, const std::string& value) {
               takePattern(arguments.selection.tables, value);
           });
    append("exclude-table", "leave out the tables and views of this name",
           [](Arguments& arguments, const OptionEntry&, const std::string& value) {
               takePattern(arguments.selection.excludedTables, value);
           });
    table.push_back({.name = "no-views",
                     .description = "leave out all views",
                     .group = OptionGroup::SELECTION,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.selection.views = false;
                     }});
    table.push_back({.name = "no-triggers",
                     .description = "leave out all triggers",
                     .group = OptionGroup::SELECTION,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.selection.triggers = false;
                     }});
}

void appendFindingsAndReportOptions(std::vector<OptionEntry>& table) {
    table.push_back(
        {.name = "strict",
         .description = "exit with 1 when there was a warning, or something the model cannot hold",
         .group = OptionGroup::FINDINGS,
         .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
             arguments.strict = true;
         }});
    table.push_back({.name = "allow-empty",
                     .description = "do not mind when no table, view or class was read",
                     .group = OptionGroup::FINDINGS,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.allowEmpty = true;
                     }});
    table.push_back({.name = "why",
                     .value = "NAME",
                     .description = "tell of the objects of this name whether they are written, and why not; "
                                    "\"TABLE.COLUMN\" names a part",
                     .group = OptionGroup::REASONS,
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string& value) {
                         arguments.askedName = value;
                     }});
    table.push_back({.name = "format",
                     .value = "FORMAT",
                     .description = "the form of the report; left out, text",
                     .group = OptionGroup::REPORT,
                     .permitted = {"text", "json"},
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string& value) {
                         arguments.format = value == "json" ? ReportFormat::JSON : ReportFormat::TEXT;
                     }});
}

void appendGeneralOptions(std::vector<OptionEntry>& table) {
    table.push_back({.name = "quiet",
                     .letter = 'q',
                     .description = "print errors only",
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.quiet = true;
                     }});
    table.push_back({.name = "verbose",
                     .letter = 'v',
                     .description =
                         "tell more: what was chosen, each thing that the model cannot hold, and each "
                         "finding of a check",
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.verbose = true;
                     }});
    table.push_back(
        {.name = "log-format",
         .value = "FORMAT",
         .description = "the form of messages: text, or json for one object per line; left out, text",
         .permitted = {"text", "json"},
         .take = [](Arguments& arguments, const OptionEntry&, const std::string& value) {
             arguments.logFormat = value == "json" ? LogFormat::JSON : LogFormat::TEXT;
         }});
    table.push_back({.name = "help",
                     .letter = 'h',
                     .description = "show this help",
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.help = true;
                     }});
    table.push_back({.name = "version",
                     .description = "show the program's version",
                     .take = [](Arguments& arguments, const OptionEntry&, const std::string&) {
                         arguments.version = true;
                     }});
}

std::vector<OptionEntry> makeTable() {
    std::vector<OptionEntry> table;
    appendOutputOptions(table);
    appendBridgeOptions(table);
    appendSourceOptions(table);
    appendSelectionOptions(table);
    appendFindingsAndReportOptions(table);
    appendGeneralOptions(table);
    return table;
}

}  // namespace

const std::vector<OptionEntry>& allOptions() {
    static const std::vector<OptionEntry> table = makeTable();
    return table;
}

std::string_view describeGroup(OptionGroup group) {
    switch (group) {
        case OptionGroup::OUTPUT:
            return "Output";
        case OptionGroup::LAYOUT:
            return "Layout";
        case OptionGroup::CHECK:
            return "Check";
        case OptionGroup::BRIDGE:
            return "Content";
        case OptionGroup::SOURCE:
            return "Source";
        case OptionGroup::SELECTION:
            return "Selection (of databases; PATTERN may hold * and ?, the most specific pattern decides)";
        case OptionGroup::FINDINGS:
            return "Findings";
        case OptionGroup::REASONS:
            return "Reasons";
        case OptionGroup::REPORT:
            return "Report";
        case OptionGroup::GENERAL:
            return "General";
    }
    return {};
}

}  // namespace cli
