#include "TableDefinition.h"

#include <algorithm>
#include <array>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

/// Reads one statement. SQLite's grammar is followed where its lists and clauses begin and end; the
/// expressions in them are only passed over.
class TableParser {
  public:
    explicit TableParser(std::string_view sql) : cursor_(sql) {}
    TableDefinition parse();

  private:
    void parseItem();
    void parseColumn();
    void skipColumnType();
    bool parseColumnConstraint(ColumnDefinition& column);
    bool parseColumnKey(ColumnDefinition& column);
    bool parseColumnValue(ColumnDefinition& column);
    bool parseTableConstraint();
    void parseForeignKey();
    bool parseTableKey();
    static void parseParenthesisedMember(std::string_view text, KeyMember& member);
    KeyMember parseMember(KeyConstraint& key);
    void parseReference(ReferenceConstraint reference);
    bool parseDeferral();
    std::string acceptConflictClause();
    void parseTableOptions();
    bool startsTableConstraint() const noexcept;
    bool startsColumnConstraint() const noexcept;

    TokenCursor cursor_;
    TableDefinition definition_;
    std::string constraintName_;  ///< of the constraint that follows
    bool inTableConstraints_ = false;
};

bool startsWithOneOf(const Token& token, const auto& keywords) {
    return std::any_of(keywords.begin(), keywords.end(),
                       [&](std::string_view keyword) { return token.is(keyword); });
}

TableDefinition TableParser::parse() {
    while (!cursor_.atEnd() && !cursor_.accept("TABLE")) {
        cursor_.next();  // CREATE, TEMP
    }
    cursor_.acceptIfNotExists();
    cursor_.acceptQualifiedName();
    if (!cursor_.accept('(')) {
        definition_.complete = false;
        return std::move(definition_);
    }
    while (!cursor_.atEnd() && !cursor_.accept(')')) {
        if (!cursor_.accept(',')) {
            parseItem();
        }
    }
    parseTableOptions();
    return std::move(definition_);
}

bool TableParser::startsTableConstraint() const noexcept {
    constexpr std::array<std::string_view, 5> KEYWORDS = {"CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK",
                                                          "FOREIGN"};
    return startsWithOneOf(cursor_.peek(), KEYWORDS);
}

bool TableParser::startsColumnConstraint() const noexcept {
    constexpr std::array<std::string_view, 11> KEYWORDS = {"CONSTRAINT", "PRIMARY", "NOT",       "NULL",
                                                           "UNIQUE",     "CHECK",   "DEFAULT",   "COLLATE",
                                                           "REFERENCES", "AS",      "DEFERRABLE"};
    return startsWithOneOf(cursor_.peek(), KEYWORDS) ||
           (cursor_.peek().is("GENERATED") && cursor_.peek(1).is("ALWAYS"));
}

/// A column or a constraint of the table; no comma is needed between two constraints.
void TableParser::parseItem() {
    if (!inTableConstraints_ && !startsTableConstraint()) {
        parseColumn();
        return;
    }
    inTableConstraints_ = true;
    if (!parseTableConstraint()) {
        definition_.complete = false;
        cursor_.skipListMember();
    }
}

void TableParser::parseColumn() {
    ColumnDefinition column;
    definition_.complete = definition_.complete && cursor_.peek().canBeName();
    column.name = cursor_.next().name();
    skipColumnType();
    constraintName_.clear();
    while (!cursor_.atEnd() && !cursor_.peek().is(',') && !cursor_.peek().is(')')) {
        if (!parseColumnConstraint(column)) {
            definition_.complete = false;
            cursor_.skipListMember();
        }
    }
    definition_.columns.push_back(std::move(column));
}

void TableParser::skipColumnType() {
    while (cursor_.peek().canBeName() && !startsColumnConstraint()) {
        cursor_.next();
    }
    if (cursor_.peek().is('(')) {
        cursor_.skipParenthesised();
    }
}

bool TableParser::parseColumnConstraint(ColumnDefinition& column) {
    if (cursor_.accept("CONSTRAINT")) {
        constraintName_ = cursor_.next().name();
        return true;
    }
    const bool known = parseColumnKey(column) || parseColumnValue(column) || parseDeferral();
    constraintName_.clear();
    return known;
}

bool TableParser::parseColumnKey(ColumnDefinition& column) {
    if (cursor_.accept("REFERENCES")) {
        parseReference({constraintName_, {column.name}, {}, {}, {}});
        return true;
    }
    KeyConstraint key;
    key.name = constraintName_;
    key.members = {{column.name, {}, false}};
    if (cursor_.accept("PRIMARY", "KEY")) {
        key.primary = true;
        cursor_.accept("ASC");
        key.members.front().descending = cursor_.accept("DESC");
        key.conflict = acceptConflictClause();
        key.autoIncrement = cursor_.accept("AUTOINCREMENT");
    } else if (cursor_.accept("UNIQUE")) {
        key.conflict = acceptConflictClause();
    } else {
        return false;
    }
    definition_.keys.push_back(std::move(key));
    return true;
}

bool TableParser::parseColumnValue(ColumnDefinition& column) {
    if (cursor_.accept("NOT", "NULL") || cursor_.accept("NULL")) {
        column.conflict = acceptConflictClause();
    } else if (cursor_.accept("DEFAULT")) {
        if (cursor_.peek().is('(')) {
            cursor_.skipParenthesised();
        } else {
            static_cast<void>(cursor_.accept('+') || cursor_.accept('-'));
            cursor_.next();
        }
    } else if (cursor_.accept("COLLATE")) {
        column.collation = cursor_.next().name();
    } else if (cursor_.accept("CHECK")) {
        definition_.checks.push_back(
            {constraintName_, column.name, std::string(cursor_.skipParenthesised())});
    } else if (cursor_.accept("GENERATED", "ALWAYS")) {
        return true;  // AS follows
    } else if (cursor_.accept("AS")) {
        column.generation = cursor_.skipParenthesised();
        column.stored = cursor_.accept("STORED");
        cursor_.accept("VIRTUAL");
    } else {
        return false;
    }
    return true;
}

bool TableParser::parseTableConstraint() {
    if (cursor_.accept("CONSTRAINT")) {
        constraintName_ = cursor_.next().name();
        return true;
    }
    bool known = true;
    if (cursor_.peek().is("PRIMARY") || cursor_.peek().is("UNIQUE")) {
        known = parseTableKey();
    } else if (cursor_.accept("CHECK")) {
        definition_.checks.push_back({constraintName_, {}, std::string(cursor_.skipParenthesised())});
        acceptConflictClause();
    } else if (cursor_.accept("FOREIGN", "KEY")) {
        parseForeignKey();
    } else {
        known = false;
    }
    constraintName_.clear();
    return known;
}

bool TableParser::parseTableKey() {
    KeyConstraint key;
    key.name = constraintName_;
    key.primary = cursor_.accept("PRIMARY", "KEY");
    if ((!key.primary && !cursor_.accept("UNIQUE")) || !cursor_.accept('(')) {
        return false;
    }
    while (!cursor_.atEnd() && !cursor_.accept(')')) {
        if (!cursor_.accept(',')) {
            key.members.push_back(parseMember(key));
        }
    }
    key.conflict = acceptConflictClause();
    definition_.keys.push_back(std::move(key));
    return true;
}

/// A column, and maybe its collation, in any number of parentheses.
void TableParser::parseParenthesisedMember(std::string_view text, KeyMember& member) {
    Tokenizer tokenizer(text);
    for (Token token = tokenizer.next(); !token.isEnd(); token = tokenizer.next()) {
        if (member.column.empty() && token.canBeName()) {
            member.column = token.name();
        } else if (token.is("COLLATE")) {
            member.collation = tokenizer.next().name();
        }
    }
}

KeyMember TableParser::parseMember(KeyConstraint& key) {
    KeyMember member;
    if (cursor_.peek().is('(')) {
        parseParenthesisedMember(cursor_.skipParenthesised(), member);
    } else {
        member.column = cursor_.next().name();
    }
    while (!cursor_.atEnd() && !cursor_.peek().is(',') && !cursor_.peek().is(')')) {
        if (cursor_.accept("COLLATE")) {
            member.collation = cursor_.next().name();
        } else if (cursor_.accept("DESC")) {
            member.descending = true;
        } else if (cursor_.accept("AUTOINCREMENT")) {
            key.autoIncrement = true;
        } else {
            cursor_.next();
        }
    }
    return member;
}

void TableParser::parseForeignKey() {
    ReferenceConstraint reference;
    reference.name = constraintName_;
    if (cursor_.accept('(')) {
        while (!cursor_.atEnd() && !cursor_.accept(')')) {
            if (!cursor_.accept(',')) {
                reference.columns.push_back(cursor_.next().name());
            }
        }
    }
    if (!cursor_.accept("REFERENCES")) {
        definition_.complete = false;
        return;
    }
    parseReference(std::move(reference));
    parseDeferral();
}

/// What follows REFERENCES, except for the deferral.
void TableParser::parseReference(ReferenceConstraint reference) {
    reference.table = cursor_.next().name();
    if (cursor_.peek().is('(')) {
        cursor_.skipParenthesised();
    }
    while (true) {
        if (cursor_.accept("MATCH")) {
            reference.match = cursor_.next().name();
        } else if (cursor_.accept("ON")) {
            cursor_.next();  // DELETE or UPDATE
            static_cast<void>(cursor_.accept("SET") || cursor_.accept("NO"));
            cursor_.next();
        } else {
            break;
        }
    }
    definition_.references.push_back(std::move(reference));
}

bool TableParser::parseDeferral() {
    const Token first = cursor_.peek();
    const bool refused = cursor_.accept("NOT", "DEFERRABLE");
    if (!refused && !cursor_.accept("DEFERRABLE")) {
        return false;
    }
    if (cursor_.accept("INITIALLY")) {
        cursor_.next();
    }
    if (!refused && !definition_.references.empty()) {
        definition_.references.back().deferral = cursor_.textSince(first);
    }
    return true;
}

std::string TableParser::acceptConflictClause() {
    return cursor_.accept("ON", "CONFLICT") ? cursor_.next().name() : std::string();
}

void TableParser::parseTableOptions() {
    while (!cursor_.atEnd()) {
        if (cursor_.accept("WITHOUT", "ROWID")) {
            definition_.withoutRowid = true;
        } else if (cursor_.accept("STRICT")) {
            definition_.strict = true;
        } else {
            cursor_.next();
        }
    }
}

}  // namespace

const ColumnDefinition* TableDefinition::column(std::string_view name) const noexcept {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ColumnDefinition& column) {
        return equalIgnoringCase(column.name, name);
    });
    return found == columns.end() ? nullptr : &*found;
}

TableDefinition parseTableDefinition(std::string_view sql) {
    return TableParser(sql).parse();
}

}  // namespace readers::sqlite
