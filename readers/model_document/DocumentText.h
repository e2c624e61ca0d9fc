#pragma once

#include <simdjson.h>

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace readers::document {

/// A text that a document holds.
struct Text {
    std::string_view characters;
    std::uint32_t offset;  ///< of the opening quotation mark
    bool escaped;  ///< written with escapes: the characters stay only until the next such text is read
};

/// The text of a document and the parser that goes through it.
class DocumentText {
  public:
    /// How many zero bytes must be readable behind the text.
    static constexpr std::size_t PADDING = simdjson::SIMDJSON_PADDING;

    explicit DocumentText(std::string_view text) : text_(text) {}

    std::string_view view() const noexcept { return text_; }
    /// Begins to read. Throws simdjson_error.
    simdjson::ondemand::document iterate() { return parser_.iterate(text_, text_.size() + PADDING); }

    /// A text or key that has just been met, with its escapes undone. Throws simdjson_error.
    Text read(simdjson::ondemand::raw_json_string raw);
    /// The text's characters, to stay as long as this object.
    std::string_view keep(const Text& text);
    /// Where a value begins.
    std::size_t offsetOf(simdjson::ondemand::value value) const;

  private:
    std::string_view text_;
    simdjson::ondemand::parser parser_;
    std::string unescaped_;
    std::deque<std::string> kept_;
};

}  // namespace readers::document
