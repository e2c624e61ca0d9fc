#include "DocumentText.h"

#include <cstring>

namespace readers::document {

Text DocumentText::read(simdjson::ondemand::raw_json_string raw) {
    const char* const begin = raw.raw();
    const char* const textEnd = text_.data() + text_.size();
    const auto offset = static_cast<std::uint32_t>(begin - text_.data() - 1);
    const auto* quote =
        static_cast<const char*>(std::memchr(begin, '"', static_cast<std::size_t>(textEnd - begin)));
    if (quote == nullptr) {
        throw simdjson::simdjson_error(simdjson::UNCLOSED_STRING);
    }
    const std::string_view characters(begin, static_cast<std::size_t>(quote - begin));
    if (characters.find('\\') == std::string_view::npos) {
        return {characters, offset, false};
    }
    const char* end = begin;
    while (end < textEnd && *end != '"') {
        end += *end == '\\' ? 2 : 1;
    }
    unescaped_.resize(static_cast<std::size_t>(end - begin) + PADDING);  // the parser writes in blocks
    auto* target = reinterpret_cast<std::uint8_t*>(unescaped_.data());
    return {parser_.unescape(raw, target).value(), offset, true};
}

std::string_view DocumentText::keep(const Text& text) {
    return text.escaped ? kept_.emplace_back(text.characters) : text.characters;
}

std::size_t DocumentText::offsetOf(simdjson::ondemand::value value) const {
    return static_cast<std::size_t>(value.raw_json_token().data() - text_.data());
}

}  // namespace readers::document
