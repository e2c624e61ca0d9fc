#include <fmt/format.h>

#include <algorithm>

#include "BridgeOptions.h"
#include "Commands.h"
#include "Failure.h"
#include "Json.h"
#include "OptionTable.h"
#include "Text.h"
#include "ZORNearest.h"

namespace cli {

namespace {

/// What is shown: everything, or what has the name asked for.
struct Shown {
    ZORBridgeSpecification specification;
    std::string bridgeName;
    std::vector<const ZOROption*> options;
    std::vector<const readers::ReaderDescription*> readers;
};

std::string text(const ZORString& string) {
    return std::string(string.view());
}

/// The program's own option that sets one of the bridge's, or nothing.
std::string shortcutOf(const ZOROption& option) {
    if (option.getDisplayName() == "File") {
        return "OUT.xml";
    }
    for (const OptionEntry& entry : allOptions()) {
        if (std::string_view(entry.bridgeOption) == option.getDisplayName().view()) {
            return entry.dashed();
        }
    }
    return {};
}

void keepNamed(Shown& shown, const std::string& name) {
    std::vector<std::string> names;
    for (const ZOROption* option : shown.options) {
        names.push_back(text(option->getDisplayName()));
    }
    for (const readers::ReaderDescription* reader : shown.readers) {
        names.push_back(reader->name);
    }
    std::erase_if(shown.options, [&](const ZOROption* option) {
        return option->getDisplayName() != std::string_view(name) &&
               option->getName() != std::string_view(name);
    });
    std::erase_if(shown.readers,
                  [&](const readers::ReaderDescription* reader) { return reader->name != name; });
    if (shown.options.empty() && shown.readers.empty()) {
        throw Failure(ExitCode::WRONG_USE, {},
                      fmt::format("there is no option and no reader \"{}\".{}", name,
                                  describeNearest(name, {names.begin(), names.end()})),
                      "\"oimbridge options\" lists all");
    }
}

std::string optionText(const ZOROption& option) {
    const std::string shortcut = shortcutOf(option);
    std::string out = fmt::format(
        "  {}\n      {}, {}{}\n", text(option.getDisplayName()), text(option.getType()),
        option.getDefault().isEmpty() ? "empty unless set"
                                      : fmt::format("\"{}\" unless set", text(option.getDefault())),
        shortcut.empty() ? "" : "; set by " + shortcut);
    std::vector<std::string> values;
    for (const ZORString& value : option.getPermittedValues()) {
        values.push_back(fmt::format("\"{}\"", text(value)));
    }
    if (!values.empty()) {
        out += wrap("Values: " + joinWords(values, "or"), 6);
    }
    std::string description = text(option.getDescription());
    description.erase(description.find_last_not_of(" \n") + 1);
    return out + wrap(description, 6) + "\n";
}

std::string readerText(const readers::ReaderDescription& reader) {
    std::string out = fmt::format("  {}\n", reader.name);
    out += wrap(fmt::format("{}; {}. Exported as --view {} unless told otherwise; {}.", reader.title,
                            reader.recognition, reader.naturalView,
                            reader.takesSelection ? "takes --table and the other options of selection"
                                                  : "always read as a whole"),
                6);
    for (const readers::ReaderOption& option : reader.options) {
        out += fmt::format("      --{} VALUE\n", option.name);
        std::string description = option.description;
        if (!option.permittedValues.empty()) {
            description += ": " + joinWords(option.permittedValues, "or");
        }
        description += option.defaultValue.empty() ? "" : fmt::format("; left out, {}", option.defaultValue);
        out += wrap(description, 10);
    }
    return out + "\n";
}

std::string textReport(const Shown& shown) {
    std::string report;
    if (!shown.options.empty()) {
        report += fmt::format("Options of the bridge {}, version {}, for --set \"NAME=VALUE\":\n\n",
                              shown.bridgeName, text(shown.specification.version));
        for (const ZOROption* option : shown.options) {
            report += optionText(*option);
        }
    }
    if (!shown.readers.empty()) {
        report += "Readers:\n\n";
        for (const readers::ReaderDescription* reader : shown.readers) {
            report += readerText(*reader);
        }
    }
    report.pop_back();
    return report;
}

void writeBridge(JsonWriter& json, const Shown& shown) {
    const ZORBridgeSpecification& specification = shown.specification;
    json.key("bridge")
        .beginObject()
        .member("name", shown.bridgeName)
        .member("version", specification.version.view())
        .member("vendor", specification.vendorName.view())
        .member("tool", specification.toolName.view())
        .member("toolVersions", specification.toolVersions.view())
        .endObject();
}

void writeOption(JsonWriter& json, const ZOROption& option) {
    json.beginObject()
        .member("displayName", option.getDisplayName().view())
        .member("name", option.getName().view())
        .member("type", option.getType().view())
        .member("default", option.getDefault().view())
        .member("setBy", shortcutOf(option))
        .key("values")
        .beginList();
    for (const ZORString& value : option.getPermittedValues()) {
        json.value(value.view());
    }
    json.endList().member("description", option.getDescription().view()).endObject();
}

void writeReaderOption(JsonWriter& json, const readers::ReaderOption& option) {
    json.beginObject()
        .member("name", option.name)
        .member("default", option.defaultValue)
        .key("values")
        .beginList();
    for (const std::string& value : option.permittedValues) {
        json.value(value);
    }
    json.endList().member("description", option.description).endObject();
}

void writeReader(JsonWriter& json, const readers::ReaderDescription& reader) {
    json.beginObject()
        .member("name", reader.name)
        .member("title", reader.title)
        .member("recognition", reader.recognition)
        .member("naturalView", reader.naturalView)
        .member("databaseType", reader.databaseType)
        .member("takesSelection", reader.takesSelection)
        .key("options")
        .beginList();
    for (const readers::ReaderOption& option : reader.options) {
        writeReaderOption(json, option);
    }
    json.endList().endObject();
}

std::string jsonReport(const Shown& shown) {
    JsonWriter json(2);
    json.beginObject();
    writeBridge(json, shown);
    json.key("options").beginList();
    for (const ZOROption* option : shown.options) {
        writeOption(json, *option);
    }
    json.endList().key("readers").beginList();
    for (const readers::ReaderDescription* reader : shown.readers) {
        writeReader(json, *reader);
    }
    return json.endList().endObject().text() + "\n";
}

}  // namespace

ExitCode runOptions(const Arguments& arguments, Console& /*console*/) {
    const ZORBridge bridge = loadBridge();
    ZOROptionList options;
    bridge.getOptionList(options);
    Shown shown{bridge.getSpecification(), text(bridge.getName()), {}, {}};
    shown.options.assign(options.getOptions().begin(), options.getOptions().end());
    for (const readers::Reader* reader : readers::allReaders()) {
        shown.readers.push_back(&reader->describe());
    }
    if (!arguments.shownName.empty()) {
        keepNamed(shown, arguments.shownName);
    }
    writeStandardOutput(arguments.format == ReportFormat::JSON ? jsonReport(shown) : textReport(shown));
    return ExitCode::DONE;
}

}  // namespace cli
