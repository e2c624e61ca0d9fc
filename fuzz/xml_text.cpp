// The conversion of texts for a document against a slow one that follows the definitions letter by letter.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "ZORXMLWriter.h"

namespace {

/// The code point of a sequence of 1 to 4 bytes, if the sequence is well-formed: decoded by arithmetic and
/// held to be in the shortest form, no surrogate and in range.
std::optional<std::uint32_t> decode(std::string_view bytes) {
    constexpr std::uint32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = lead < 0x80             ? 1
                               : (lead & 0xE0) == 0xC0 ? 2
                               : (lead & 0xF0) == 0xE0 ? 3
                               : (lead & 0xF8) == 0xF0 ? 4
                                                       : 0;
    if (length != bytes.size()) {
        return std::nullopt;
    }
    std::uint32_t point = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0) != 0x80) {
            return std::nullopt;
        }
        point = point << 6 | (byte & 0x3FU);
    }
    const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
    if (point < SMALLEST[length] || isSurrogate || point > 0x10FFFF) {
        return std::nullopt;
    }
    return point;
}

/// Whether some well-formed sequence begins with the bytes. What may follow is an interval: its ends tell.
bool beginsCharacter(std::string_view bytes) {
    for (std::size_t length = bytes.size(); length <= 4; ++length) {
        for (const char filler : {'\x80', '\xBF'}) {
            std::string filled(bytes);
            filled.resize(length, filler);
            if (decode(filled)) {
                return true;
            }
        }
    }
    return false;
}

bool isXMLCharacter(std::uint32_t point) {
    return point == 0x9 || point == 0xA || point == 0xD || (point >= 0x20 && point <= 0xD7FF) ||
           (point >= 0xE000 && point <= 0xFFFD) || point >= 0x10000;
}

std::string represent(std::uint32_t point, std::string_view bytes) {
    switch (point) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\t':
        case '\n':
        case '\r':
            return "&#" + std::to_string(point) + ";";
        default:
            return std::string(bytes);
    }
}

struct Converted {
    std::string text;
    int failures = 0;
};

Converted convertSlowly(std::string_view text) {
    Converted result;
    while (!text.empty()) {
        std::size_t length = 1;
        while (length < text.size() && length < 4 && beginsCharacter(text.substr(0, length + 1))) {
            ++length;
        }
        std::optional<std::uint32_t> point;
        if (beginsCharacter(text.substr(0, length))) {
            point = decode(text.substr(0, length));
        }
        if (point && isXMLCharacter(*point)) {
            result.text += represent(*point, text.substr(0, length));
        } else {
            result.text += "\xEF\xBF\xBD";
            ++result.failures;
        }
        text.remove_prefix(length);
    }
    return result;
}

class StringSink : public ZORSink {
  public:
    explicit StringSink(std::string& text) : text_(text) {}
    void write(const char* bytes, std::size_t count) override { text_.append(bytes, count); }

  private:
    std::string& text_;
};

class Writer : public ZORXMLWriter {
  public:
    /// What stands in a file.
    std::string writeToFile(const ZORString& text) {
        std::string written;
        file_.open(std::make_unique<StringSink>(written));
        writeXMLText(text);
        file_.close();
        return written;
    }
};

void expect(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const Converted expected = convertSlowly(input);
    Writer writer;
    expect(writer.getXMLText(input).view() == expected.text, "the text differs");
    expect(writer.getConversionFailureCount() == expected.failures, "the number of failures differs");
    expect(writer.getFailedTextCount() == (expected.failures > 0 ? 1 : 0),
           "the number of failed texts differs");
    expect(writer.writeToFile(input) == expected.text, "what stands in the file differs");
    return 0;
}
