#pragma once

#include <string>
#include <string_view>

#include "Connection.h"
#include "SqlTokens.h"

namespace readers::sqlite {

/// Whether text begins like a script of statements that make or fill a database.
bool looksLikeScript(std::string_view head);

/// Runs a script in a new database in memory, which then stands as if it had been read from a file, except
/// that it holds no rows: inserts are understood and passed over. Every other statement that is not about the
/// schema is refused. Throws SourceError, naming the line.
class Script {
  public:
    Script(std::string text, Monitor& monitor);
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    Connection& connection() noexcept { return connection_; }

  private:
    enum class Kind { SCHEMA, INSERT, TRANSACTION, SETTING, DELETE, REFUSED, UNKNOWN };

    static Kind kindOf(const Token& firstWord) noexcept;
    static int authorize(void* self, int action, const char* first, const char* second, const char* database,
                         const char* trigger) noexcept;
    int decide(int action, std::string_view first, std::string_view second) noexcept;

    void assertText();
    void warnUnlessUtf8() const;
    void run();
    /// Gives the position behind the statement.
    const char* runStatement(const char* begin);
    const char* skipDelete(const char* begin);
    void runToEnd(const char* sql, const char* place, const char** behind);
    void finishInsert(std::string_view statement);
    void assertModestViews(const char* begin);
    void reportTemporaryObjects();
    [[noreturn]] void refuse(const char* place, const std::string& what, const std::string& hint);
    [[noreturn]] void fail(const char* place);
    std::size_t lineOf(const char* place) const noexcept;
    std::string_view textFrom(const char* begin) const noexcept;

    std::string text_;
    Monitor& monitor_;
    Connection connection_;
    Kind kind_ = Kind::UNKNOWN;       ///< of the statement that is being run
    bool isDenied_ = false;           ///< something of it is
    bool insertsSomething_ = false;   ///< so does it
    bool insertsIntoSchema_ = false;  ///< it does so into the table that holds the schema
    bool haveViewsChanged_ = false;   ///< since their nesting was looked at
};

}  // namespace readers::sqlite
