#include "Json.h"

#include <fmt/format.h>

#include <utility>

#include "Text.h"

namespace cli {

namespace {

void appendEscape(std::string& out, char character) {
    switch (character) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            out += fmt::format("\\u{:04x}", static_cast<unsigned char>(character));
    }
}

bool needsEscape(char32_t code) {
    return code < 0x20 || code == '"' || code == '\\' || code == 0x7F;
}

void appendQuoted(std::string& out, std::string_view text) {
    out += '"';
    while (!text.empty()) {
        const Utf8Character character = decodeUtf8(text);
        if (!character.wellFormed) {
            out += "\xEF\xBF\xBD";
        } else if (needsEscape(character.code)) {
            appendEscape(out, text[0]);
        } else {
            out += text.substr(0, character.length);
        }
        text.remove_prefix(character.length);
    }
    out += '"';
}

}  // namespace

JsonWriter& JsonWriter::key(std::string_view name) {
    separate();
    appendQuoted(out_, name);
    out_ += indent_ > 0 ? ": " : ":";
    afterKey_ = true;
    return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
    separate();
    appendQuoted(out_, text);
    return *this;
}

JsonWriter& JsonWriter::raw(std::string_view json) {
    separate();
    out_ += json;
    return *this;
}

JsonWriter& JsonWriter::begin(char bracket) {
    separate();
    out_ += bracket;
    hasItems_.push_back(false);
    return *this;
}

JsonWriter& JsonWriter::end(char bracket) {
    const bool hadItems = hasItems_.back();
    hasItems_.pop_back();
    if (hadItems) {
        breakLine();
    }
    out_ += bracket;
    return *this;
}

void JsonWriter::separate() {
    if (std::exchange(afterKey_, false) || hasItems_.empty()) {
        return;
    }
    if (hasItems_.back()) {
        out_ += ',';
    }
    hasItems_.back() = true;
    breakLine();
}

void JsonWriter::breakLine() {
    if (indent_ > 0) {
        out_ += '\n';
        out_.append(hasItems_.size() * indent_, ' ');
    }
}

}  // namespace cli
