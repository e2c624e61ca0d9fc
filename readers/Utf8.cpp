#include "Utf8.h"

#include <simdjson.h>

#include "SimdjsonStart.h"

namespace readers {

namespace {

/// The length of the well-formed UTF-8 character at the beginning of the text; of one that is not, that of
/// the part to be replaced, with `isWellFormed` false.
std::size_t characterLength(std::string_view text, bool& isWellFormed) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    isWellFormed = lead < 0x80;
    if (lead < 0xC2 || lead > 0xF4) {
        return 1;
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (text.size() < 2 || byte(1) < lowest || byte(1) > highest) {
        return 1;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if (i == text.size() || (byte(i) & 0xC0U) != 0x80) {
            return i;
        }
    }
    isWellFormed = true;
    return length;
}

}  // namespace

bool isUtf8(std::string_view text) {
    startSimdjson();
    return simdjson::validate_utf8(text.data(), text.size());
}

std::string toWellFormed(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        bool isWellFormed = false;
        const std::size_t length = characterLength(text, isWellFormed);
        result += isWellFormed ? text.substr(0, length) : std::string_view("\xEF\xBF\xBD");
        text.remove_prefix(length);
    }
    return result;
}

}  // namespace readers
