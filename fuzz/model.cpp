// Any sound model, with any options that the program lets through: the bytes are the choices that both are
// made of.

#include "ExportInterface.h"
#include "ModelMaker.h"
#include "ReaderFuzzing.h"
#include "ZORBridgeLib.h"

namespace {

constexpr std::size_t LONGEST_TEXT = 12;

std::string anyBytes(fuzz::Choices& choices) {
    std::string text;
    for (std::size_t count = choices.below(LONGEST_TEXT); count > 0; --count) {
        text += static_cast<char>(choices.below(256));
    }
    return text;
}

/// The program takes nothing else for an indentation.
std::string anyWhiteSpace(fuzz::Choices& choices) {
    std::string text;
    for (std::size_t count = choices.below(LONGEST_TEXT); count > 0; --count) {
        text += choices.pick({' ', '\t', '\n', '\r'});
    }
    return text;
}

std::string anyValue(fuzz::Choices& choices, const ZOROption& option) {
    const std::vector<ZORString>& permitted = option.getPermittedValues();
    if (!permitted.empty()) {
        return std::string(permitted[choices.below(permitted.size())]);
    }
    return option.getDisplayName() == "XML Indentation (pretty printing)" ? anyWhiteSpace(choices)
                                                                          : anyBytes(choices);
}

std::map<std::string, std::string> anySettings(fuzz::Choices& choices) {
    ZOROptionList options;
    getZORMicrosoftSqlServerMdsMdcExportInterface()->getOptionList(options);
    std::map<std::string, std::string> settings;
    for (const ZOROption* option : options.getOptions()) {
        if (option->getDisplayName() != "File") {
            settings[std::string(option->getDisplayName())] = anyValue(choices, *option);
        }
    }
    return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Choices choices(data, size);
    const std::map<std::string, std::string> settings = anySettings(choices);
    fuzz::exportSound(*fuzz::ModelMaker(choices).make(), settings);
    return 0;
}
