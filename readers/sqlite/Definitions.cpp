#include "Definitions.h"

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

/// Behind "CREATE [TEMP] KIND [IF NOT EXISTS] [schema.]name".
TokenCursor cursorBehindName(std::string_view sql, std::string_view kind) {
    TokenCursor cursor(sql);
    while (!cursor.atEnd() && !cursor.accept(kind)) {
        cursor.next();
    }
    cursor.acceptIfNotExists();
    cursor.acceptQualifiedName();
    return cursor;
}

TriggerDefinition::Timing acceptTiming(TokenCursor& cursor) {
    if (cursor.accept("INSTEAD", "OF")) {
        return TriggerDefinition::Timing::INSTEAD_OF;
    }
    if (cursor.accept("AFTER")) {
        return TriggerDefinition::Timing::AFTER;
    }
    cursor.accept("BEFORE");
    return TriggerDefinition::Timing::BEFORE;
}

TriggerDefinition::Event acceptEvent(TokenCursor& cursor) {
    if (cursor.accept("INSERT")) {
        return TriggerDefinition::Event::INSERT;
    }
    if (cursor.accept("UPDATE")) {
        return TriggerDefinition::Event::UPDATE;
    }
    cursor.accept("DELETE");
    return TriggerDefinition::Event::DELETE;
}

}  // namespace

IndexDefinition parseIndexDefinition(std::string_view sql) {
    IndexDefinition definition;
    TokenCursor cursor = cursorBehindName(sql, "INDEX");
    cursor.accept("ON");
    cursor.acceptQualifiedName();
    if (!cursor.accept('(')) {
        return definition;
    }
    while (!cursor.atEnd() && !cursor.accept(')')) {
        if (!cursor.accept(',')) {
            definition.members.emplace_back(cursor.skipListMember());
        }
    }
    if (cursor.accept("WHERE")) {
        definition.condition = cursor.rest();
    }
    return definition;
}

std::string parseViewSelect(std::string_view sql) {
    TokenCursor cursor = cursorBehindName(sql, "VIEW");
    if (cursor.peek().is('(')) {
        cursor.skipParenthesised();
    }
    cursor.accept("AS");
    return std::string(cursor.rest());
}

bool isCompoundSelect(std::string_view select) {
    TokenCursor cursor(select);
    while (!cursor.atEnd()) {
        if (cursor.peek().is('(')) {
            cursor.skipParenthesised();
        } else if (cursor.peek().is("UNION") || cursor.peek().is("EXCEPT") || cursor.peek().is("INTERSECT")) {
            return true;
        } else {
            cursor.next();
        }
    }
    return false;
}

TriggerDefinition parseTriggerDefinition(std::string_view sql) {
    TriggerDefinition definition;
    TokenCursor cursor = cursorBehindName(sql, "TRIGGER");
    definition.timing = acceptTiming(cursor);
    definition.event = acceptEvent(cursor);
    if (cursor.accept("OF")) {
        const Token first = cursor.peek();
        while (!cursor.atEnd() && !cursor.peek().is("ON")) {
            cursor.next();
        }
        definition.columns = cursor.textSince(first);
    }
    cursor.accept("ON");
    cursor.acceptQualifiedName();
    if (cursor.accept("FOR", "EACH")) {
        cursor.next();  // ROW
    }
    definition.action = cursor.rest();
    return definition;
}

VirtualTableDefinition parseVirtualTableDefinition(std::string_view sql) {
    VirtualTableDefinition definition;
    TokenCursor cursor = cursorBehindName(sql, "TABLE");
    cursor.accept("USING");
    definition.module = cursor.next().name();
    if (cursor.peek().is('(')) {
        definition.arguments = cursor.skipParenthesised();
    }
    return definition;
}

std::string normalizeType(std::string_view declared) {
    std::string type;
    Tokenizer tokenizer(declared);
    bool inWords = false;
    for (Token token = tokenizer.next(); !token.isEnd(); token = tokenizer.next()) {
        if (inWords && token.canBeName()) {
            type += ' ';
        }
        type += token.name();
        inWords = token.canBeName();
    }
    return type;
}

}  // namespace readers::sqlite
