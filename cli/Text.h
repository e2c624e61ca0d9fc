#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// One character of UTF-8 text.
struct Utf8Character {
    std::size_t length;  ///< in bytes; of an ill-formed sequence, its maximal subpart
    char32_t code;       ///< undefined when ill-formed
    bool wellFormed;
};

/// The character at the beginning of the text, which must not be empty.
Utf8Character decodeUtf8(std::string_view text);

/// The text as one line that is safe to show on a terminal: control characters and ill-formed bytes, which
/// may come from anywhere in a source, are written as "\xNN" or "\u00NN", line feeds and tabs as "\n" and
/// "\t".
std::string printable(std::string_view text);

/// "1,234,567".
std::string formatCount(std::uint64_t count);
/// "1 table", "1,234 tables".
std::string formatCount(std::uint64_t count, std::string_view singular, std::string_view plural);
/// "812 bytes", "14.2 kB", "3.1 MB"; a kB is 1,000 bytes.
std::string formatBytes(std::uint64_t bytes);

/// "a", "a and b", "a, b and c".
std::string joinWords(const std::vector<std::string>& words, std::string_view lastSeparator = "and");

/// The text with a to z for A to Z.
std::string foldCase(std::string_view text);

/// Whether the path, names with "." between them, is the name or ends with it.
bool isEndOfPath(std::string_view path, std::string_view name);

/// Breaks the text at blanks so that no line is longer than `width` where that can be done; lines that the
/// text has already stay, with the blanks they begin with. Every line is preceded by `indent` blanks and ends
/// with a line feed.
std::string wrap(std::string_view text, std::size_t indent, std::size_t width = 100);

/// The system's words for an errno value.
std::string describeErrno(int reason);

}  // namespace cli
