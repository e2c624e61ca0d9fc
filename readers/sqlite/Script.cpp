#include "Script.h"

#include <algorithm>
#include <array>

#include "Definitions.h"
#include "ScriptDialect.h"
#include "Utf8.h"
#include "ViewNesting.h"

namespace readers::sqlite {

namespace {

/// About a second's work; a statement about the schema needs a few thousand.
constexpr std::uint64_t MOST_STEPS = 50'000'000;
constexpr sqlite3_int64 MOST_MEMORY = 256 * 1024 * 1024;

constexpr const char* REFUSAL_HINT =
    "a script may make tables, views, indexes and triggers and insert rows; take everything else out, or "
    "run the script with sqlite3 and name the database that it makes";

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

bool isOneOf(std::string_view word, std::string_view words) noexcept {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (equalIgnoringCase(word, words.substr(0, end))) {
            return true;
        }
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

/// Whether a schema statement makes SQLite compile views that exist already: CREATE TABLE ... AS, CREATE
/// VIRTUAL TABLE, ALTER TABLE.
bool compilesViews(std::string_view statement) {
    constexpr int MOST_TOKENS_BEFORE_AS = 9;  // CREATE TEMP TABLE IF NOT EXISTS schema.name
    Tokenizer tokenizer(statement);
    if (tokenizer.next().is("ALTER")) {
        return true;
    }
    for (int i = 0; i < MOST_TOKENS_BEFORE_AS; ++i) {
        const Token token = tokenizer.next();
        if (token.is("AS") || token.is("VIRTUAL")) {
            return true;
        }
        if (token.is('(') || token.is("VIEW")) {
            return false;
        }
    }
    return false;
}

/// Keeps a script from taking all memory. SQLite has one limit for all its databases, so the earlier one is
/// set again.
class MemoryLimit {
  public:
    MemoryLimit() noexcept : earlier_(sqlite3_hard_heap_limit64(sqlite3_memory_used() + MOST_MEMORY)) {}
    ~MemoryLimit() { sqlite3_hard_heap_limit64(earlier_); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

  private:
    sqlite3_int64 earlier_;
};

std::string shortened(std::string_view message) {
    std::string text = toLine(message);
    constexpr std::size_t LONGEST = 200;
    if (text.size() > LONGEST) {
        std::size_t end = LONGEST;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
            --end;  // not in the middle of a character
        }
        text = text.substr(0, end) + "...";
    }
    return text;
}

}  // namespace

bool looksLikeScript(std::string_view head) {
    if (head.find('\0') != std::string_view::npos) {
        return false;
    }
    head.remove_prefix(head.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0);
    Tokenizer tokenizer(head);
    const Token first = tokenizer.next();
    const Token second = tokenizer.next();
    if (first.is("BEGIN")) {
        return second.is(';') || isOneOf(second.text, "TRANSACTION DEFERRED IMMEDIATE EXCLUSIVE");
    }
    return (first.is("PRAGMA") && second.canBeName()) ||
           (first.is("INSERT") && isOneOf(second.text, "INTO OR")) ||
           (isOneOf(first.text, "CREATE DROP ALTER") &&
            isOneOf(second.text, "TABLE VIEW INDEX TRIGGER UNIQUE VIRTUAL TEMP TEMPORARY SCHEMA DATABASE"));
}

Script::Script(std::string text, Monitor& monitor)
    : text_(std::move(text)),
      monitor_(monitor),
      connection_({":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr}, monitor) {
    assertText();
    connection_.run("PRAGMA temp_store=MEMORY");  // no files, and counted with the rest
    // Dumps make the tables behind virtual tables themselves.
    sqlite3_db_config(connection_.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    sqlite3_set_authorizer(connection_.handle(), &Script::authorize, this);
    {
        const MemoryLimit limit;
        run();
    }
    sqlite3_set_authorizer(connection_.handle(), nullptr, nullptr);
    connection_.allowSteps(0);
    reportTemporaryObjects();
    warnUnlessUtf8();  // only now: what is no script at all has a fault that says more
}

Script::Kind Script::kindOf(const Token& firstWord) noexcept {
    struct Row {
        Kind kind;
        std::string_view words;
    };
    constexpr std::array<Row, 6> ROWS = {{
        {Kind::SCHEMA, "CREATE ALTER DROP REINDEX ANALYZE"},
        {Kind::INSERT, "INSERT REPLACE WITH"},
        {Kind::TRANSACTION, "BEGIN COMMIT END ROLLBACK SAVEPOINT RELEASE"},
        {Kind::SETTING, "PRAGMA"},
        {Kind::DELETE, "DELETE"},
        {Kind::REFUSED, "SELECT VALUES UPDATE ATTACH DETACH VACUUM EXPLAIN"},
    }};
    const auto row = std::find_if(ROWS.begin(), ROWS.end(), [&](const Row& candidate) {
        return isOneOf(firstWord.text, candidate.words);
    });
    return row == ROWS.end() ? Kind::UNKNOWN : row->kind;
}

int Script::authorize(void* self, int action, const char* first, const char* second, const char* /*database*/,
                      const char* /*trigger*/) noexcept {
    auto& script = *static_cast<Script*>(self);
    const int verdict = script.decide(action, first == nullptr ? "" : first, second == nullptr ? "" : second);
    script.isDenied_ = script.isDenied_ || verdict == SQLITE_DENY;
    return verdict;
}

/// SQLite asks for everything that a statement does, what it does by itself to keep its books included. To
/// ignore a part of a statement makes SQLite accept the statement and leave out the part.
int Script::decide(int action, std::string_view first, std::string_view second) noexcept {
    if (action == SQLITE_ATTACH || action == SQLITE_DETACH ||
        (action == SQLITE_FUNCTION && isOneOf(second, "load_extension fts3_tokenizer"))) {
        return SQLITE_DENY;
    }
    switch (kind_) {
        case Kind::SCHEMA:
            haveViewsChanged_ = haveViewsChanged_ || action == SQLITE_CREATE_VIEW;
            return action == SQLITE_PRAGMA && !second.empty() ? SQLITE_IGNORE : SQLITE_OK;
        case Kind::INSERT:
            insertsSomething_ = insertsSomething_ || action == SQLITE_INSERT;
            insertsIntoSchema_ = insertsIntoSchema_ ||
                                 (action == SQLITE_INSERT && isOneOf(first, "sqlite_master sqlite_schema"));
            return action == SQLITE_INSERT ? SQLITE_IGNORE : SQLITE_DENY;
        case Kind::SETTING:
            // The others change nothing that a model could show.
            return isOneOf(first, "legacy_alter_table foreign_keys") ? SQLITE_OK : SQLITE_IGNORE;
        case Kind::TRANSACTION:
            return action == SQLITE_TRANSACTION || action == SQLITE_SAVEPOINT ? SQLITE_OK : SQLITE_DENY;
        default:
            return SQLITE_DENY;
    }
}

void Script::assertText() {
    const std::string_view text = text_;
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        throw SourceError(SourceError::Kind::CANNOT_READ, "it is UTF-16 text",
                          "save it as UTF-8, for example with: iconv -f UTF-16 -t UTF-8");
    }
    const std::size_t nul = text.find('\0');
    if (nul != std::string_view::npos) {
        refuse(text_.c_str() + nul, "there is a NUL character; this is no text", {});
    }
}

/// A script in an encoding of single bytes is read all the same: only its names suffer.
void Script::warnUnlessUtf8() const {
    if (isUtf8(text_)) {
        return;
    }
    const std::string_view text = text_;
    std::size_t line = 0;
    std::size_t end = text.find('\n');
    while (end != std::string_view::npos && isUtf8(text.substr(line, end - line))) {
        line = end + 1;
        end = text.find('\n', line);
    }
    monitor_.context().warn(
        "line " + std::to_string(lineOf(text_.c_str() + line)),
        "this is not UTF-8, and names may be garbled; if the script is in another encoding, "
        "save it as UTF-8, for example with: iconv -f ISO-8859-1 -t UTF-8");
}

void Script::run() {
    constexpr std::size_t STATEMENTS_PER_LOOK = 256;
    const char* position = text_.c_str() + (text_.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0);
    for (std::size_t count = 1;; ++count) {
        const Token first = Tokenizer(textFrom(position)).next();
        if (first.isEnd()) {
            return;
        }
        position = first.is(';') ? first.text.data() + 1 : runStatement(first.text.data());
        if (count % STATEMENTS_PER_LOOK == 0) {
            monitor_.look();
        }
    }
}

const char* Script::runStatement(const char* begin) {
    const Token first = Tokenizer(textFrom(begin)).next();
    kind_ = kindOf(first);
    isDenied_ = insertsSomething_ = insertsIntoSchema_ = false;
    if (first.is('.')) {
        refuse(begin, "this is a command of the sqlite3 program, not SQL", REFUSAL_HINT);
    }
    if (kind_ == Kind::REFUSED) {
        refuse(begin, std::string(first.text) + " is not run", REFUSAL_HINT);
    }
    if (kind_ == Kind::DELETE) {
        return skipDelete(begin);
    }
    if (kind_ == Kind::SCHEMA && compilesViews(textFrom(begin))) {
        assertModestViews(begin);
    }
    const char* behind = begin;
    runToEnd(begin, begin, &behind);
    if (kind_ == Kind::INSERT) {
        finishInsert({begin, static_cast<std::size_t>(behind - begin)});
    }
    return behind;
}

/// Dumps empty the tables in which SQLite keeps its books before they fill them; there are no rows here.
const char* Script::skipDelete(const char* begin) {
    Tokenizer tokenizer(textFrom(begin));
    tokenizer.next();
    const bool isWhole = tokenizer.next().is("FROM");
    const std::string table = tokenizer.next().name();
    const Token end = tokenizer.next();
    if (!isWhole || !isOneOf(table, "sqlite_sequence sqlite_stat1 sqlite_stat3 sqlite_stat4") ||
        !(end.isEnd() || end.is(';'))) {
        refuse(begin, "DELETE is not run", REFUSAL_HINT);
    }
    return end.text.data() + end.text.size();
}

/// Compiles and runs one statement; messages name the line of `place`. An insert is only compiled: as its
/// main part is ignored, there is nothing to run.
void Script::runToEnd(const char* sql, const char* place, const char** behind) {
    connection_.allowSteps(MOST_STEPS);
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(connection_.handle(), sql, -1, &statement, behind);
    if (code != SQLITE_OK) {
        const int offset = sqlite3_error_offset(connection_.handle());
        fail(place == sql && offset > 0 ? place + offset : place);
    }
    while (kind_ != Kind::INSERT && statement != nullptr && (code = sqlite3_step(statement)) == SQLITE_ROW) {
    }
    sqlite3_finalize(statement);
    if (code != SQLITE_OK && code != SQLITE_DONE) {
        fail(place);
    }
}

/// A dump that sqlite3 writes makes virtual tables by rows of the table that holds the schema.
void Script::finishInsert(std::string_view statement) {
    if (!insertsSomething_) {
        refuse(statement.data(), "WITH ... SELECT is not run", REFUSAL_HINT);
    }
    if (!insertsIntoSchema_) {
        return;
    }
    Tokenizer tokenizer(statement);
    for (Token token = tokenizer.next(); !token.isEnd(); token = tokenizer.next()) {
        const std::string sql = token.kind == Token::Kind::STRING ? token.name() : std::string();
        Tokenizer inner(sql);
        if (inner.next().is("CREATE") && inner.next().is("VIRTUAL")) {
            assertModestViews(statement.data());
            kind_ = Kind::SCHEMA;
            const char* behind = nullptr;
            runToEnd(sql.c_str(), statement.data(), &behind);
            return;
        }
    }
    refuse(statement.data(), "the table that holds the schema is not written to", REFUSAL_HINT);
}

void Script::assertModestViews(const char* begin) {
    if (!haveViewsChanged_) {
        return;
    }
    ViewNesting nesting;
    sqlite3_set_authorizer(connection_.handle(), nullptr, nullptr);
    {
        Query query(connection_,
                    "SELECT name, sql FROM sqlite_schema WHERE type = 'view'"
                    " UNION ALL SELECT name, sql FROM sqlite_temp_schema WHERE type = 'view'");
        while (query.next()) {
            nesting.add(query.text(0), parseViewSelect(query.text(1)));
        }
    }
    sqlite3_set_authorizer(connection_.handle(), &Script::authorize, this);
    nesting.measure();
    haveViewsChanged_ = false;
    if (!nesting.areAllModest()) {
        refuse(begin,
               "this cannot be run, as there are views before it that are nested too deeply in each other",
               {});
    }
}

void Script::reportTemporaryObjects() {
    Query query(connection_, "SELECT name FROM sqlite_temp_schema WHERE type <> 'index' OR sql IS NOT NULL");
    while (query.next()) {
        monitor_.context().losses.add("temporary objects", "temp." + query.text(0));
    }
}

void Script::refuse(const char* place, const std::string& what, const std::string& hint) {
    throw SourceError(SourceError::Kind::CANNOT_READ, "line " + std::to_string(lineOf(place)) + ": " + what,
                      hint);
}

/// For the error with which SQLite's last call ended.
void Script::fail(const char* place) {
    monitor_.rethrow();
    if (connection_.ranOutOfSteps()) {
        refuse(place, "the statement does not come to an end", "take out what it selects from");
    }
    if (sqlite3_errcode(connection_.handle()) == SQLITE_NOMEM) {
        refuse(place, "the statement needs too much memory", "take out what it selects from");
    }
    if (isDenied_) {
        refuse(place, "this is not allowed in a script", REFUSAL_HINT);
    }
    refuse(place, shortened(sqlite3_errmsg(connection_.handle())),
           adviseOnDialect(text_, static_cast<std::size_t>(place - text_.c_str())));
}

std::size_t Script::lineOf(const char* place) const noexcept {
    return 1 + static_cast<std::size_t>(std::count(text_.c_str(), place, '\n'));
}

std::string_view Script::textFrom(const char* begin) const noexcept {
    return {begin, static_cast<std::size_t>(text_.c_str() + text_.size() - begin)};
}

}  // namespace readers::sqlite
