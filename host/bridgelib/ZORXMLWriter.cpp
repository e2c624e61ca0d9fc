#include "ZORXMLWriter.h"

#include <array>
#include <atomic>
#include <bit>

namespace {

std::atomic<std::uint64_t> elementsStarted = 0;

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

/// True for the bytes that stand in a document as they are: ASCII but for controls and markup.
constexpr std::array<bool, 256> makeCleanTable() {
    std::array<bool, 256> clean{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        clean[byte] = byte != '&' && byte != '<' && byte != '>' && byte != '"';
    }
    return clean;
}
constexpr std::array<bool, 256> CLEAN = makeCleanTable();

constexpr std::uint64_t repeat(unsigned char byte) {
    return 0x0101010101010101ULL * byte;
}

/// Eight bytes of a text, the first one lowest.
std::uint64_t loadWord(const char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    return word;
}

/// The index of the first byte of the word that is not clean; 8 when all are.
std::size_t firstUnclean(std::uint64_t word) {
    constexpr std::uint64_t HIGH = repeat(0x80);
    // Marks zero bytes, and perhaps bytes above a zero byte.
    const auto markZeros = [](std::uint64_t value) { return (value - repeat(1)) & ~value & HIGH; };
    // `"` and `&` (0x22, 0x26) differ in one bit, `<` and `>` (0x3c, 0x3e) in another: two tests find the
    // four.
    const std::uint64_t marks = (word & HIGH) | ((word - repeat(0x20)) & ~word & HIGH) |
                                markZeros((word & ~repeat(4)) ^ repeat('"')) |
                                markZeros((word & ~repeat(2)) ^ repeat('<'));
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

/// The length of the clean bytes that the text begins with.
std::size_t cleanPrefix(std::string_view text) {
    constexpr std::size_t WORD = sizeof(std::uint64_t);
    std::size_t at = 0;
    for (; at + WORD <= text.size(); at += WORD) {
        if (const std::size_t clean = firstUnclean(loadWord(text.data() + at)); clean < WORD) {
            return at + clean;
        }
    }
    if (at > 0 && at < text.size()) {
        // The last word begins among bytes that are known to be clean.
        const std::size_t last = text.size() - WORD;
        return last + firstUnclean(loadWord(text.data() + last));
    }
    while (at < text.size() && CLEAN[static_cast<unsigned char>(text[at])]) {
        ++at;
    }
    return at;
}

/// The reference for an ASCII character that is not clean; empty when XML forbids the character.
std::string_view referenceOf(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\t':
            return "&#9;";
        case '\n':
            return "&#10;";
        case '\r':
            return "&#13;";
        default:
            return {};
    }
}

/// A sequence at the beginning of a text that begins with a byte above 0x7F.
struct Sequence {
    std::size_t length;  ///< of the character, or of the maximal subpart of an ill-formed one
    bool allowed;        ///< well-formed, and a character that XML 1.0 permits
};

/// The ranges of the second byte, after the Unicode Standard's table of well-formed UTF-8 byte sequences.
Sequence readSequence(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0xC2 || lead > 0xF4) {
        return {1, false};
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (text.size() < 2 || byte(1) < lowest || byte(1) > highest) {
        return {1, false};
    }
    for (std::size_t i = 2; i < length; ++i) {
        if (i == text.size() || (byte(i) & 0xC0U) != 0x80) {
            return {i, false};
        }
    }
    const bool isNoncharacter = lead == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE;  // U+FFFE, U+FFFF
    return {length, !isNoncharacter};
}

}  // namespace

std::uint64_t ZORXMLWriter::getElementsStarted() noexcept {
    return elementsStarted.load(std::memory_order_relaxed);
}

void ZORXMLWriter::publishElements() noexcept {
    elementsStarted.fetch_add(ELEMENTS_AT_A_TIME, std::memory_order_relaxed);
}

template <typename Output>
void ZORXMLWriter::convert(std::string_view text, Output& output) {
    const int failuresBefore = conversionFailures_;
    while (!text.empty()) {
        std::size_t taken = cleanPrefix(text);
        output(text.substr(0, taken));
        if (taken == text.size()) {
            break;
        }
        // Characters beyond ASCII are copied in runs as well.
        std::size_t allowed = taken;
        Sequence sequence{0, true};
        while (allowed < text.size() && static_cast<unsigned char>(text[allowed]) >= 0x80) {
            sequence = readSequence(text.substr(allowed));
            if (!sequence.allowed) {
                break;
            }
            allowed += sequence.length;
        }
        output(text.substr(taken, allowed - taken));
        taken = allowed;
        if (taken < text.size() && !CLEAN[static_cast<unsigned char>(text[taken])]) {
            const std::string_view reference =
                sequence.allowed ? referenceOf(text[taken]) : std::string_view();
            output(reference.empty() ? REPLACEMENT_CHARACTER : reference);
            conversionFailures_ += reference.empty() ? 1 : 0;
            taken += sequence.allowed ? 1 : sequence.length;
        }
        text.remove_prefix(taken);
    }
    failedTexts_ += conversionFailures_ > failuresBefore ? 1 : 0;
}

ZORString ZORXMLWriter::getXMLText(const ZORString& text) {
    ZORString result;
    result.reserve(text.length());
    const auto append = [&](std::string_view part) { result.append(part); };
    convert(text.view(), append);
    return result;
}

void ZORXMLWriter::writeXMLText(const ZORString& text) {
    const auto write = [&](std::string_view part) { file_ << part; };
    convert(text.view(), write);
}
