#include "Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <system_error>

namespace cli {

namespace {

struct LeadByte {
    unsigned char first;
    unsigned char last;
    std::size_t length;
    unsigned char lowestSecond;
    unsigned char highestSecond;
};

/// Well-formed sequences by their first byte; only the second byte's range differs from 80..BF.
constexpr std::array LEAD_BYTES = {
    LeadByte{0xC2, 0xDF, 2, 0x80, 0xBF}, LeadByte{0xE0, 0xE0, 3, 0xA0, 0xBF},
    LeadByte{0xE1, 0xEC, 3, 0x80, 0xBF}, LeadByte{0xED, 0xED, 3, 0x80, 0x9F},
    LeadByte{0xEE, 0xEF, 3, 0x80, 0xBF}, LeadByte{0xF0, 0xF0, 4, 0x90, 0xBF},
    LeadByte{0xF1, 0xF3, 4, 0x80, 0xBF}, LeadByte{0xF4, 0xF4, 4, 0x80, 0x8F},
};

const LeadByte* findLeadByte(unsigned char byte) {
    for (const LeadByte& lead : LEAD_BYTES) {
        if (byte >= lead.first && byte <= lead.last) {
            return &lead;
        }
    }
    return nullptr;
}

bool isControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

void appendEscaped(std::string& out, char32_t code) {
    switch (code) {
        case '\n':
            out += "\\n";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            out += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(code));
    }
}

}  // namespace

Utf8Character decodeUtf8(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) {
        return {1, first, true};
    }
    const LeadByte* lead = findLeadByte(first);
    if (lead == nullptr) {
        return {1, 0, false};
    }
    char32_t code = first & (0xFFU >> (lead->length + 1));
    for (std::size_t i = 1; i < lead->length; ++i) {
        const unsigned char lowest = i == 1 ? lead->lowestSecond : 0x80;
        const unsigned char highest = i == 1 ? lead->highestSecond : 0xBF;
        if (i >= text.size() || byteAt(i) < lowest || byteAt(i) > highest) {
            return {i, 0, false};
        }
        code = (code << 6) | (byteAt(i) & 0x3FU);
    }
    return {lead->length, code, true};
}

std::string printable(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character character = decodeUtf8(text);
        if (!character.wellFormed) {
            for (std::size_t i = 0; i < character.length; ++i) {
                out += fmt::format("\\x{:02x}", static_cast<unsigned char>(text[i]));
            }
        } else if (isControl(character.code)) {
            appendEscaped(out, character.code);
        } else {
            out += text.substr(0, character.length);
        }
        text.remove_prefix(character.length);
    }
    return out;
}

std::string formatCount(std::uint64_t count) {
    std::string digits = std::to_string(count);
    for (std::size_t i = digits.size(); i > 3; i -= 3) {
        digits.insert(i - 3, 1, ',');
    }
    return digits;
}

std::string formatCount(std::uint64_t count, std::string_view singular, std::string_view plural) {
    return fmt::format("{} {}", formatCount(count), count == 1 ? singular : plural);
}

std::string formatBytes(std::uint64_t bytes) {
    if (bytes < 1000) {
        return formatCount(bytes, "byte", "bytes");
    }
    constexpr std::array UNITS = {"kB", "MB", "GB", "TB"};
    double size = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    // 999.95 would be rounded to 1000.0.
    while (size >= 999.95 && unit + 1 < UNITS.size()) {
        size /= 1000;
        ++unit;
    }
    return fmt::format("{:.1f} {}", size, UNITS[unit]);
}

std::string joinWords(const std::vector<std::string>& words, std::string_view lastSeparator) {
    std::string joined;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0) {
            joined += i + 1 == words.size() ? fmt::format(" {} ", lastSeparator) : ", ";
        }
        joined += words[i];
    }
    return joined;
}

std::string foldCase(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return folded;
}

bool isEndOfPath(std::string_view path, std::string_view name) {
    return path.ends_with(name) && (path.size() == name.size() || path[path.size() - name.size() - 1] == '.');
}

std::string wrap(std::string_view text, std::size_t indent, std::size_t width) {
    std::string out;
    while (!text.empty()) {
        const std::size_t lineEnd = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, lineEnd);
        text.remove_prefix(std::min(lineEnd + 1, text.size()));
        const std::size_t own = std::min(line.find_first_not_of(' '), line.size());
        line.remove_prefix(own);
        do {
            const std::size_t room = width > indent + own ? width - indent - own : 1;
            std::size_t cut = line.size();
            if (line.size() > room) {
                cut = line.rfind(' ', room);
                cut = std::min(cut == std::string_view::npos ? line.find(' ') : cut, line.size());
            }
            if (cut > 0) {
                out.append(indent + own, ' ').append(line.substr(0, cut));
            }
            out += '\n';
            line.remove_prefix(std::min(cut + 1, line.size()));
        } while (!line.empty());
    }
    return out;
}

std::string describeErrno(int reason) {
    return std::generic_category().message(reason);
}

}  // namespace cli
