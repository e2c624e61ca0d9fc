#include "SqlTokens.h"

#include <algorithm>

namespace readers::sqlite {

namespace {

constexpr bool isBlank(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}
constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool isWordStart(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool isWordPart(char c) noexcept {
    return isWordStart(c) || isDigit(c) || c == '$';
}
constexpr char toSmall(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string foldCase(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), toSmall);
    return folded;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return toSmall(x) == toSmall(y); });
}

std::string toLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (!isBlank(c)) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return line;
}

std::string quoteName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

bool Token::is(std::string_view keyword) const noexcept {
    return kind == Kind::WORD && equalIgnoringCase(text, keyword);
}

std::string Token::name() const {
    if (kind != Kind::QUOTED_NAME && kind != Kind::STRING) {
        return std::string(text);
    }
    const char quote = text.front() == '[' ? ']' : text.front();
    const bool isClosed = text.size() > 1 && text.back() == quote;
    const std::string_view inside = text.substr(1, text.size() - (isClosed ? 2 : 1));
    std::string name;
    for (std::size_t i = 0; i < inside.size(); ++i) {
        name += inside[i];
        if (inside[i] == quote && quote != ']') {
            ++i;  // a quote inside is written twice
        }
    }
    return name;
}

Token Tokenizer::next() noexcept {
    skipBlanksAndComments();
    const std::size_t start = position_;
    const char c = at(start);
    const auto token = [&](Token::Kind kind, std::size_t end) {
        position_ = std::min(end, sql_.size());
        return Token{kind, sql_.substr(start, position_ - start)};
    };
    if (start >= sql_.size()) {
        return token(Token::Kind::END, start);
    }
    if ((c == 'x' || c == 'X') && at(start + 1) == '\'') {
        return token(Token::Kind::BLOB, endOfQuoted(start + 1, '\''));
    }
    if (isWordStart(c)) {
        return token(Token::Kind::WORD, endOfWord(start));
    }
    if (isDigit(c) || (c == '.' && isDigit(at(start + 1)))) {
        return token(Token::Kind::NUMBER, endOfNumber(start));
    }
    switch (c) {
        case '\'':
            return token(Token::Kind::STRING, endOfQuoted(start, '\''));
        case '"':
        case '`':
            return token(Token::Kind::QUOTED_NAME, endOfQuoted(start, c));
        case '[':
            return token(Token::Kind::QUOTED_NAME, endOfQuoted(start, ']'));
        case '?':
        case ':':
        case '@':
        case '$':
        case '#':
            return token(Token::Kind::VARIABLE, endOfWord(start + 1));
        default:
            return token(Token::Kind::SYMBOL, start + 1);
    }
}

void Tokenizer::skipBlanksAndComments() noexcept {
    while (position_ < sql_.size()) {
        if (isBlank(at(position_))) {
            ++position_;
        } else if (at(position_) == '-' && at(position_ + 1) == '-') {
            position_ = std::min(sql_.find('\n', position_), sql_.size());
        } else if (at(position_) == '/' && at(position_ + 1) == '*') {
            const std::size_t end = sql_.find("*/", position_ + 2);
            position_ = end == std::string_view::npos ? sql_.size() : end + 2;
        } else {
            return;
        }
    }
}

/// `quote` ends the text that begins at `start`, unless it stands there twice.
std::size_t Tokenizer::endOfQuoted(std::size_t start, char quote) const noexcept {
    std::size_t position = start + 1;
    while (true) {
        position = sql_.find(quote, position);
        if (position == std::string_view::npos) {
            return sql_.size();
        }
        if (quote == ']' || at(position + 1) != quote) {
            return position + 1;
        }
        position += 2;
    }
}

std::size_t Tokenizer::endOfWord(std::size_t start) const noexcept {
    std::size_t end = start;
    while (end < sql_.size() && isWordPart(sql_[end])) {
        ++end;
    }
    return end;
}

std::size_t Tokenizer::endOfNumber(std::size_t start) const noexcept {
    std::size_t end = start;
    while (end < sql_.size() &&
           (isWordPart(sql_[end]) || sql_[end] == '.' ||
            ((sql_[end] == '+' || sql_[end] == '-') && toSmall(sql_[end - 1]) == 'e' &&
             isDigit(at(end + 1)) && !(at(start) == '0' && toSmall(at(start + 1)) == 'x')))) {
        ++end;
    }
    return end;
}

TokenCursor::TokenCursor(std::string_view sql) {
    Tokenizer tokenizer(sql);
    do {
        tokens_.push_back(tokenizer.next());
    } while (!tokens_.back().isEnd());
}

const Token& TokenCursor::peek(std::size_t ahead) const noexcept {
    return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

Token TokenCursor::next() noexcept {
    const Token token = peek();
    if (!token.isEnd()) {
        ++position_;
    }
    return token;
}

bool TokenCursor::accept(std::string_view keyword) noexcept {
    const bool found = peek().is(keyword);
    position_ += found ? 1U : 0U;
    return found;
}

bool TokenCursor::accept(char symbol) noexcept {
    const bool found = peek().is(symbol);
    position_ += found ? 1U : 0U;
    return found;
}

bool TokenCursor::accept(std::string_view first, std::string_view second) noexcept {
    const bool found = peek().is(first) && peek(1).is(second);
    position_ += found ? 2U : 0U;
    return found;
}

void TokenCursor::acceptIfNotExists() noexcept {
    if (peek().is("IF") && peek(1).is("NOT") && peek(2).is("EXISTS")) {
        position_ += 3;
    }
}

std::string TokenCursor::acceptQualifiedName() {
    std::string name = next().name();
    if (accept('.')) {
        name = next().name();
    }
    return name;
}

std::string_view TokenCursor::skipParenthesised() noexcept {
    const Token opening = next();
    const std::size_t first = position_;
    std::size_t depth = 1;
    while (!atEnd()) {
        const Token token = next();
        depth += token.is('(') ? 1U : 0U;
        depth -= token.is(')') ? 1U : 0U;
        if (depth == 0) {
            const std::size_t closing = position_ - 1;
            if (closing == first) {
                return {};
            }
            const char* begin = tokens_[first].text.data();
            const std::string_view last = tokens_[closing - 1].text;
            return {begin, static_cast<std::size_t>(last.data() + last.size() - begin)};
        }
    }
    return textSince(opening);
}

std::string_view TokenCursor::skipListMember() noexcept {
    const Token first = peek();
    while (!atEnd() && !peek().is(',') && !peek().is(')')) {
        if (peek().is('(')) {
            skipParenthesised();
        } else {
            next();
        }
    }
    return textSince(first);
}

std::string_view TokenCursor::textSince(const Token& first) const noexcept {
    const char* begin = first.text.data();
    const std::string_view last = position_ == 0 ? std::string_view() : tokens_[position_ - 1].text;
    const char* end = last.data() + last.size();
    return end > begin ? std::string_view(begin, static_cast<std::size_t>(end - begin)) : std::string_view();
}

std::string_view TokenCursor::rest() const noexcept {
    std::size_t end = tokens_.size() - 1;
    while (end > position_ && tokens_[end - 1].is(';')) {
        --end;
    }
    if (end <= position_) {
        return {};
    }
    const char* begin = tokens_[position_].text.data();
    const std::string_view last = tokens_[end - 1].text;
    return {begin, static_cast<std::size_t>(last.data() + last.size() - begin)};
}

}  // namespace readers::sqlite
