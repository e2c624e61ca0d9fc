#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "Reader.h"

namespace readers::sqlite {

/// Counts what has been read, and asks the context now and then whether to go on; also from inside SQLite's
/// callbacks, through which no exception may pass.
class Monitor {
  public:
    explicit Monitor(ReadContext& context) noexcept : context_(context) {}

    ReadContext& context() const noexcept { return context_; }
    /// One more object was read. Throws what the context throws.
    void advance() {
        ++objects_;
        look();
    }
    /// The same where nothing more was read.
    void look() { context_.progress(objects_); }
    /// False when the context wants the reading to end; `rethrow` tells why.
    bool goesOn() noexcept;
    /// Throws what ended the reading, if anything did.
    void rethrow() const;

  private:
    ReadContext& context_;
    std::uint64_t objects_ = 0;
    std::exception_ptr pending_;
};

/// An open database. Everything that fails throws SourceError.
class Connection {
  public:
    struct Way {
        std::string uri;  ///< or ":memory:"
        int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
        const char* fileSystem = nullptr;  ///< the name of one of SQLite's; null for its default
    };

    Connection(const Way& way, Monitor& monitor);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* handle() const noexcept { return handle_.get(); }
    /// How long to wait for another process that has locked the file.
    void waitAtMost(int milliseconds) noexcept { patience_ = milliseconds; }
    /// After so many of SQLite's own steps, whatever runs is ended. 0: never.
    void allowSteps(std::uint64_t steps) noexcept { stepsLeft_ = static_cast<std::int64_t>(steps); }
    bool ranOutOfSteps() const noexcept { return stepsLeft_ < 0; }
    /// Runs statements that give no rows.
    void run(const char* sql);
    /// Throws the error that the last call to SQLite ended with.
    [[noreturn]] void fail() const;
    /// The same, unless the call went well or SQLite only did not understand a statement: where a part of the
    /// schema may be left out, a lack of memory or a damaged file is still the end of the reading.
    void failUnlessMisunderstood() const;
    /// The same when SQLite was short of memory: how some of its calls tell it, beside giving nothing.
    void failIfOutOfMemory() const;

  private:
    static int onSteps(void* self) noexcept;
    static int onBusy(void* self, int attempts) noexcept;

    struct Closer {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
    };
    std::unique_ptr<sqlite3, Closer> handle_;
    Monitor& monitor_;
    int patience_ = 0;
    std::int64_t stepsLeft_ = 0;
};

/// A query, walked over row by row.
class Query {
  public:
    Query(const Connection& connection, std::string_view sql);

    /// False behind the last row.
    bool next();
    bool isNull(int column) const noexcept { return sqlite3_column_type(get(), column) == SQLITE_NULL; }
    std::int64_t integer(int column) const noexcept { return sqlite3_column_int64(get(), column); }
    /// Empty for null.
    std::string text(int column) const;

  private:
    sqlite3_stmt* get() const noexcept { return statement_.get(); }

    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    const Connection& connection_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

/// The error for one of SQLite's extended result codes; `text` is what SQLite says about it.
SourceError sourceErrorOf(int code, const std::string& text);

}  // namespace readers::sqlite
