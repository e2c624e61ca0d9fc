#include "ValueList.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <unordered_set>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

/// Of digits without a sign; nothing for what is no whole number, or one that has no room.
std::optional<std::int64_t> wholeNumberOf(std::string_view digits) {
    const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    digits.remove_prefix(isHexadecimal ? 2 : 0);
    std::uint64_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number, isHexadecimal ? 16 : 10);
    const bool hasRoom = isHexadecimal || number <= std::numeric_limits<std::int64_t>::max();
    if (result.ec != std::errc() || result.ptr != end || !hasRoom) {
        return std::nullopt;
    }
    // SQLite takes hexadecimal digits for the bits of a number: 0xffffffffffffffff is -1.
    return static_cast<std::int64_t>(number);
}

std::int16_t codeOf(std::string_view digits, bool isNegative) {
    using Limits = std::numeric_limits<std::int16_t>;
    std::int64_t number = wholeNumberOf(digits).value_or(0);
    if (isNegative && number > std::numeric_limits<std::int64_t>::min()) {
        number = -number;
    }
    return number < Limits::min() || number > Limits::max() ? std::int16_t(0)
                                                            : static_cast<std::int16_t>(number);
}

/// Reads one expression. Whatever does not belong to the one form that is understood makes it give nothing.
class ValueListParser {
  public:
    ValueListParser(std::string_view expression, const TableDefinition& table)
        : cursor_(expression), table_(table) {}

    std::optional<ValueList> parse() {
        std::size_t depth = 0;
        while (cursor_.accept('(')) {
            ++depth;
        }
        if (!parseColumn() || !cursor_.accept("IN") || !cursor_.accept('(') || !parseValues()) {
            return std::nullopt;
        }
        while (depth > 0 && cursor_.accept(')')) {
            --depth;
        }
        if (depth > 0 || !cursor_.atEnd() || list_.values.empty()) {
            return std::nullopt;
        }
        return std::move(list_);
    }

  private:
    bool parseColumn() {
        const Token token = cursor_.next();
        const bool isName = token.kind == Token::Kind::WORD || token.kind == Token::Kind::QUOTED_NAME;
        list_.column = token.name();
        return isName && table_.column(list_.column) != nullptr;
    }

    /// Up to the closing parenthesis.
    bool parseValues() {
        do {
            if (!parseValue()) {
                return false;
            }
        } while (cursor_.accept(','));
        return cursor_.accept(')');
    }

    bool parseValue() {
        const bool isNegative = cursor_.accept('-');
        const bool isSigned = isNegative || cursor_.accept('+');
        const Token token = cursor_.next();
        if (token.kind == Token::Kind::NUMBER) {
            add((isNegative ? "-" : "") + std::string(token.text), codeOf(token.text, isNegative));
            return true;
        }
        if (isSigned) {
            return false;
        }
        if (token.kind == Token::Kind::STRING || isTextInNameQuotes(token)) {
            add(token.name(), 0);
            return true;
        }
        if (isTruthValue(token)) {
            add(std::string(token.text), token.is("TRUE") ? 1 : 0);
            return true;
        }
        if (token.kind == Token::Kind::BLOB) {
            add(std::string(token.text), 0);
            return true;
        }
        return false;
    }

    /// SQLite takes a name in double quotes for a text where there is no such column.
    bool isTextInNameQuotes(const Token& token) const {
        const std::string name = token.name();
        const auto isRowName = [&](const char* rowName) { return equalIgnoringCase(name, rowName); };
        return token.kind == Token::Kind::QUOTED_NAME && token.text.front() == '"' &&
               table_.column(name) == nullptr && !isRowName("rowid") && !isRowName("oid") &&
               !isRowName("_rowid_");
    }

    /// TRUE and FALSE are names of 1 and 0 where there is no such column.
    bool isTruthValue(const Token& token) const {
        return (token.is("TRUE") || token.is("FALSE")) && table_.column(token.text) == nullptr;
    }

    void add(std::string text, std::int16_t code) {
        if (seen_.insert(text).second) {
            list_.values.push_back({std::move(text), code});
        }
    }

    TokenCursor cursor_;
    const TableDefinition& table_;
    ValueList list_;
    std::unordered_set<std::string> seen_;
};

}  // namespace

std::optional<ValueList> parseValueList(std::string_view expression, const TableDefinition& table) {
    return ValueListParser(expression, table).parse();
}

std::vector<ColumnValues> findColumnValues(const TableDefinition& table) {
    std::vector<ColumnValues> found;
    std::unordered_set<std::string> columns;
    for (const CheckConstraint& check : table.checks) {
        std::optional<ValueList> list = parseValueList(check.expression, table);
        const bool isOfOtherColumn =
            list && !check.column.empty() && !equalIgnoringCase(check.column, list->column);
        if (list && !isOfOtherColumn && columns.insert(foldCase(list->column)).second) {
            found.push_back({&check, std::move(*list)});
        }
    }
    return found;
}

}  // namespace readers::sqlite
