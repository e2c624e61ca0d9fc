#include "ValueList.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

std::int16_t codeOf(std::string_view number) {
    std::int16_t code = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), code);
    return result.ec == std::errc() && result.ptr == number.data() + number.size() ? code : std::int16_t(0);
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
            const std::string number = (isNegative ? "-" : "") + std::string(token.text);
            add(number, codeOf(number));
            return true;
        }
        if (isSigned) {
            return false;
        }
        if (token.kind == Token::Kind::STRING || isTextInNameQuotes(token)) {
            add(token.name(), 0);
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
