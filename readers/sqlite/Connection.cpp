#include "Connection.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>

namespace readers::sqlite {

namespace {

/// SQLite's own steps between two looks at the context: a few milliseconds.
constexpr int STEPS_PER_LOOK = 100'000;
constexpr int WAIT_MILLISECONDS = 20;

constexpr const char* REPAIR_HINT =
    "check it with: sqlite3 FILE 'PRAGMA integrity_check', or save what is left of it with: sqlite3 FILE "
    ".recover";

}  // namespace

bool Monitor::goesOn() noexcept {
    try {
        if (pending_ == nullptr) {
            context_.progress(objects_);
        }
    } catch (...) {
        pending_ = std::current_exception();
    }
    return pending_ == nullptr;
}

void Monitor::rethrow() const {
    if (pending_ != nullptr) {
        std::rethrow_exception(pending_);
    }
}

Connection::Connection(const Way& way, Monitor& monitor) : monitor_(monitor) {
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(way.uri.c_str(), &handle, way.flags | SQLITE_OPEN_EXRESCODE, way.fileSystem);
    handle_.reset(handle);
    if (code != SQLITE_OK) {
        throw sourceErrorOf(code, handle == nullptr ? "out of memory" : sqlite3_errmsg(handle));
    }
    // Nothing in the file is trusted: it runs no functions with effects, and nothing is written when it
    // closes.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_progress_handler(handle, STEPS_PER_LOOK, &Connection::onSteps, this);
    sqlite3_busy_handler(handle, &Connection::onBusy, this);
}

int Connection::onSteps(void* self) noexcept {
    auto& connection = *static_cast<Connection*>(self);
    if (connection.stepsLeft_ > 0) {
        connection.stepsLeft_ -= STEPS_PER_LOOK;
        if (connection.stepsLeft_ <= 0) {
            connection.stepsLeft_ = -1;
        }
    }
    return connection.ranOutOfSteps() || !connection.monitor_.goesOn() ? 1 : 0;
}

int Connection::onBusy(void* self, int attempts) noexcept {
    auto& connection = *static_cast<Connection*>(self);
    if (attempts * WAIT_MILLISECONDS >= connection.patience_ || !connection.monitor_.goesOn()) {
        return 0;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(WAIT_MILLISECONDS));
    return 1;
}

void Connection::run(const char* sql) {
    if (sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail();
    }
}

void Connection::fail() const {
    monitor_.rethrow();
    throw sourceErrorOf(sqlite3_extended_errcode(handle()), sqlite3_errmsg(handle()));
}

void Connection::failUnlessMisunderstood() const {
    const int code = sqlite3_errcode(handle()) & 0xff;
    constexpr int MISUNDERSTOOD[] = {SQLITE_OK,     SQLITE_ERROR, SQLITE_AUTH,
                                     SQLITE_TOOBIG, SQLITE_ROW,   SQLITE_DONE};
    if (std::find(std::begin(MISUNDERSTOOD), std::end(MISUNDERSTOOD), code) == std::end(MISUNDERSTOOD)) {
        fail();
    }
}

void Connection::failIfOutOfMemory() const {
    if (sqlite3_errcode(handle()) == SQLITE_NOMEM) {
        fail();
    }
}

Query::Query(const Connection& connection, std::string_view sql) : connection_(connection) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(connection.handle(), sql.data(), static_cast<int>(sql.size()),
                                        &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) {
        connection.fail();
    }
}

bool Query::next() {
    const int code = sqlite3_step(get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        connection_.fail();
    }
    return code == SQLITE_ROW;
}

std::string Query::text(int column) const {
    const unsigned char* text = sqlite3_column_text(get(), column);
    if (text == nullptr) {
        connection_.failIfOutOfMemory();
    }
    return text == nullptr ? std::string()
                           : std::string(reinterpret_cast<const char*>(text),
                                         static_cast<std::size_t>(sqlite3_column_bytes(get(), column)));
}

SourceError sourceErrorOf(int code, const std::string& text) {
    using Kind = SourceError::Kind;
    switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {Kind::CANNOT_OPEN, "another process has locked the database",
                    "try again when it has finished, or read a copy"};
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return {Kind::CANNOT_OPEN, "SQLite cannot open it: " + text};
        case SQLITE_READONLY:
            return {
                Kind::CANNOT_READ,
                "a change that was cut short must be undone before the database can be read, and that would "
                "write to it",
                "open it once with a program that may write to it, such as sqlite3"};
        case SQLITE_NOTADB:
            return {Kind::CANNOT_READ, "it is not a SQLite database, or it is encrypted",
                    "an encrypted database must be decrypted first"};
        case SQLITE_CORRUPT:
            return {Kind::CANNOT_READ, "the database is damaged: " + text, REPAIR_HINT};
        case SQLITE_NOMEM:
            return {Kind::CANNOT_READ, "there is not enough memory to read it"};
        default:
            return {Kind::CANNOT_READ, "SQLite cannot read it: " + text};
    }
}

}  // namespace readers::sqlite
