#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace readers::document {

/// Where a text stops being JSON: thrown.
struct SyntaxFault {
    std::size_t offset;
    std::string found;
    std::string expected;
};

/// Walks over JSON text byte by byte, strictly, and knows at every moment where in the document it is. It is
/// the slow companion of the parser: asked only when a place is to be named, and for values that the reader
/// passes over.
class TextScanner {
  public:
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    /// Starts at the value, or the blanks before it, at `start`. Lists and objects may be nested `deepest`
    /// levels.
    explicit TextScanner(std::string_view text, std::size_t start = 0, std::size_t deepest = 10000)
        : text_(text), at_(start), deepest_(deepest) {}

    /// Scans one value with all that is in it. When a value or key begins at `target`, it stops behind that
    /// one, or before it if it is a list or an object. Returns whether it stopped so. Throws SyntaxFault.
    bool scanValue(std::size_t target = NOWHERE);
    /// Scans the blanks up to the end of the text. Throws SyntaxFault when there is more.
    void scanEnd();

    /// Where the scanner is: the JSON pointer of the value or key that it has stopped at. Keys stand in it as
    /// they are written in the document, escapes included.
    std::string pointer() const;
    /// What the target is: `"abc"`, `12`, `a list`.
    const std::string& targetText() const noexcept { return targetText_; }

  private:
    struct Level {
        bool isObject;
        bool isInside = false;  ///< whether the scanner is in one of its values, or behind that value's key
        std::string_view key = {};
        std::size_t index = 0;
    };

    bool atEnd() const noexcept { return at_ >= text_.size(); }
    bool isNext(char character) const noexcept { return !atEnd() && text_[at_] == character; }
    void skipBlanks() noexcept;
    bool openContainer(std::size_t target);
    bool moveToNextValue(std::size_t target);
    bool scanKey(std::size_t target);
    void enter(bool isObject);
    void scanScalar();
    void scanString();
    void scanEscape();
    void scanUnicodeEscape();
    unsigned scanFourDigits();
    void scanCharacter();
    void scanNumber();
    bool scanDigits() noexcept;
    [[noreturn]] void fail(std::size_t offset, std::string expected) const;
    std::string describeText(std::size_t offset) const;

    std::string_view text_;
    std::size_t at_;
    std::size_t deepest_;
    bool reached_ = false;
    std::vector<Level> levels_;
    std::string targetText_;
};

/// Shortens a text to what a message can hold, without cutting characters.
std::string abbreviate(std::string_view text);

}  // namespace readers::document
