#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace readers::sqlite {

/// One token of SQLite's SQL. Comments and white space are none.
struct Token {
    enum class Kind : std::uint8_t {
        END,
        WORD,         ///< a keyword or a plain name
        QUOTED_NAME,  ///< "name", `name` or [name]
        STRING,       ///< 'text', which SQLite takes as a name where only a name can stand
        BLOB,         ///< x'0123'
        NUMBER,
        VARIABLE,  ///< ?1, :name, @name, $name
        SYMBOL     ///< one character of any other kind
    };

    Kind kind = Kind::END;
    std::string_view
        text;  ///< as written, quotes included; at the end, the empty text behind the last character

    bool isEnd() const noexcept { return kind == Kind::END; }
    /// A keyword, given in capitals; quoted names are never keywords.
    bool is(std::string_view keyword) const noexcept;
    bool is(char symbol) const noexcept { return kind == Kind::SYMBOL && text.front() == symbol; }
    bool canBeName() const noexcept {
        return kind == Kind::WORD || kind == Kind::QUOTED_NAME || kind == Kind::STRING;
    }
    /// The name or text itself, without quotes; other tokens as written.
    std::string name() const;
};

/// Finds one token after the other. An unclosed quote or comment reaches to the end of the text.
class Tokenizer {
  public:
    explicit Tokenizer(std::string_view sql) noexcept : sql_(sql) {}
    Token next() noexcept;

  private:
    char at(std::size_t index) const noexcept { return index < sql_.size() ? sql_[index] : '\0'; }
    void skipBlanksAndComments() noexcept;
    std::size_t endOfQuoted(std::size_t start, char quote) const noexcept;
    std::size_t endOfWord(std::size_t start) const noexcept;
    std::size_t endOfNumber(std::size_t start) const noexcept;

    std::string_view sql_;
    std::size_t position_ = 0;
};

/// A statement's tokens, walked over from left to right.
class TokenCursor {
  public:
    explicit TokenCursor(std::string_view sql);

    bool atEnd() const noexcept { return peek().isEnd(); }
    const Token& peek(std::size_t ahead = 0) const noexcept;
    Token next() noexcept;
    /// Passes over the token if it is this one.
    bool accept(std::string_view keyword) noexcept;
    bool accept(char symbol) noexcept;
    /// Passes over both tokens if they stand here in a row.
    bool accept(std::string_view first, std::string_view second) noexcept;
    void acceptIfNotExists() noexcept;
    /// Passes over [schema.]name and gives the name.
    std::string acceptQualifiedName();

    /// Standing at "(": passes over everything to the matching ")" and gives what is between them, trimmed.
    std::string_view skipParenthesised() noexcept;
    /// Passes over tokens up to a "," or ")" that belongs to the list in which the cursor stands, and gives
    /// their text.
    std::string_view skipListMember() noexcept;
    /// The text from this token on to the last one that was passed over.
    std::string_view textSince(const Token& first) const noexcept;
    /// The text from here to the end, without a closing semicolon.
    std::string_view rest() const noexcept;

  private:
    std::vector<Token> tokens_;  ///< the last one is the end
    std::size_t position_ = 0;
};

/// In small letters, as far as SQLite takes letters for the same: A to Z.
std::string foldCase(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept;

/// The text with every run of white space made one blank.
std::string toLine(std::string_view text);

/// The name as an SQL identifier in double quotes.
std::string quoteName(std::string_view name);

}  // namespace readers::sqlite
