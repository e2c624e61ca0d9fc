#include "ScriptDialect.h"

#include <algorithm>
#include <array>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

struct Dialect {
    std::string_view name;
    std::array<std::string_view, 12> marks;  ///< in small letters; words that SQLite has no use for
};

constexpr std::array<Dialect, 4> DIALECTS = {{
    {"MySQL or MariaDB",
     {"engine=", "engine =", "auto_increment", "/*!40", "delimiter ", " unsigned", "lock tables",
      "create schema", "unique key", "character set", "on update current_timestamp", "use `"}},
    {"PostgreSQL",
     {"pg_catalog", "create extension", "create type", "create domain", "owner to", "nextval(",
      "create sequence", "plpgsql", "from stdin", "without time zone", "alter table only", "::"}},
    {"SQL Server",
     {"\ngo\n", "\ngo\r\n", "[dbo]", "dbo.", "\"dbo\"", "set quoted_identifier", "set ansi_nulls",
      "identity(", "identity (", "sysobjects", "nvarchar(max)", "nonclustered"}},
    {"Oracle",
     {"varchar2", " number(", "create or replace", "tablespace", "dbms_", "sysdate", "nologging", "pctfree",
      "create sequence", "\n/\n", "enable row movement", "byte)"}},
}};

/// The text that is looked at: the script's beginning, and what stands around the position.
std::string excerptOf(std::string_view script, std::size_t position) {
    constexpr std::size_t BEGINNING = 65536;
    constexpr std::size_t AROUND = 4096;
    const std::size_t from = std::min(position > AROUND ? position - AROUND : 0, script.size());
    return foldCase(script.substr(0, BEGINNING)) + '\n' + foldCase(script.substr(from, 2 * AROUND));
}

}  // namespace

std::string adviseOnDialect(std::string_view script, std::size_t position) {
    const std::string excerpt = excerptOf(script, position);
    const Dialect* likeliest = nullptr;
    std::ptrdiff_t most = 0;
    for (const Dialect& dialect : DIALECTS) {
        const auto count =
            std::count_if(dialect.marks.begin(), dialect.marks.end(),
                          [&](std::string_view mark) { return excerpt.find(mark) != std::string::npos; });
        if (count > most) {
            most = count;
            likeliest = &dialect;
        }
    }
    return likeliest == nullptr ? std::string()
                                : "the script seems to be written for " + std::string(likeliest->name) +
                                      "; only SQLite's SQL is understood here";
}

}  // namespace readers::sqlite
