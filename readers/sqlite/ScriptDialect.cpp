#include "ScriptDialect.h"

#include <algorithm>
#include <array>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

using Marks = std::array<std::string_view, 9>;

/// Marks are in small letters.
struct Dialect {
    std::string_view name;
    Marks marks;      ///< words that SQLite has no use for
    Marks weakMarks;  ///< words that SQLite takes too, say as a type's, or that comments may well hold
};

constexpr std::array<Dialect, 4> DIALECTS = {{
    {"MySQL or MariaDB",
     {"engine=", "engine =", "auto_increment", "/*!40", "lock tables", "create schema",
      "on update current_timestamp", "use `"},
     {" unsigned", "unique key", "character set", "delimiter "}},
    {"PostgreSQL",
     {"pg_catalog", "create extension", "create type", "create domain", "nextval(", "create sequence",
      "plpgsql", "from stdin", "alter table only"},
     {"::", "without time zone", "owner to"}},
    {"SQL Server",
     {"\ngo\n", "\ngo\r\n", "[dbo]", "\"dbo\"", "set quoted_identifier", "set ansi_nulls", "sysobjects",
      "nvarchar(max)", "nonclustered"},
     {"dbo.", "identity(", "identity ("}},
    {"Oracle",
     {"create or replace", "dbms_", "nologging", "pctfree", "create sequence", "\n/\n",
      "enable row movement"},
     {"varchar2", " number(", "sysdate", "tablespace", "byte)"}},
}};

int countFound(const Marks& marks, const std::string& excerpt) {
    return static_cast<int>(std::count_if(marks.begin(), marks.end(), [&](std::string_view mark) {
        return !mark.empty() && excerpt.find(mark) != std::string::npos;
    }));
}

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
    constexpr int ENOUGH = 2;  // one mark, or two weak ones
    const Dialect* likeliest = nullptr;
    int most = ENOUGH - 1;
    for (const Dialect& dialect : DIALECTS) {
        const int found = 2 * countFound(dialect.marks, excerpt) + countFound(dialect.weakMarks, excerpt);
        if (found > most) {
            most = found;
            likeliest = &dialect;
        }
    }
    return likeliest == nullptr ? std::string()
                                : "the script seems to be written for " + std::string(likeliest->name) +
                                      "; only SQLite's SQL is understood here";
}

}  // namespace readers::sqlite
