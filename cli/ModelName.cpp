#include "ModelName.h"

#include <fmt/format.h>

#include "Failure.h"
#include "Text.h"

namespace cli {

namespace {

bool isWritable(const Utf8Character& character) {
    const char32_t code = character.code;
    return character.wellFormed && code >= 0x20 && code != '"' && code != '&' && code != '<' &&
           code != 0xFFFE && code != 0xFFFF;
}

}  // namespace

std::string findModelNameFault(std::string_view name) {
    while (!name.empty()) {
        const Utf8Character character = decodeUtf8(name);
        if (!isWritable(character)) {
            return std::string(name.substr(0, character.length));
        }
        name.remove_prefix(character.length);
    }
    return {};
}

void requireWritableModelName(std::string_view name, std::string_view sourceName) {
    const std::string fault = findModelNameFault(name);
    if (!fault.empty()) {
        throw Failure(ExitCode::SOURCE_NOT_READ, std::string(sourceName),
                      fmt::format("a document cannot hold the model's name \"{}\" because of the '{}' in it",
                                  name, fault),
                      "give the model another name with --model-name");
    }
}

}  // namespace cli
