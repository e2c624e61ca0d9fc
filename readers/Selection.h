#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Reader.h"

namespace readers {

/// Whether the letters A to Z and a to z differ, in patterns and the names that they are held against.
enum class LetterCase { COUNTS, IGNORED };

/// Answers for a reader which schemas and tables a selection wants, and remembers which patterns matched
/// anything.
///
/// A table is wanted when its schema is and the patterns for tables want it too. A pattern for tables that
/// holds a dot is held against "SCHEMA.TABLE", and against the table's name where that has a dot itself; any
/// other one against the table's name alone. `*` stands for any characters, `?` for one.
class SelectionMatcher {
  public:
    explicit SelectionMatcher(const Selection& selection, LetterCase letterCase = LetterCase::COUNTS);

    bool wantsSchema(std::string_view schema) { return !findSchemaRefusal(schema).has_value(); }
    /// For a table or a view. The patterns for tables are asked only when the schema is wanted.
    bool wantsTable(std::string_view schema, std::string_view table) {
        return !findRefusal(schema, table).has_value();
    }
    /// The same, with what leaves the table out; nothing for one that is wanted.
    std::optional<SelectionPart> findRefusal(std::string_view schema, std::string_view table);

    /// The patterns that have matched none of the names asked for so far, as they were given: those for
    /// schemas before those for tables, and of each the including ones first.
    std::vector<std::string> unmatchedPatterns() const;
    /// Tells the context of every such pattern; for readers to call when all names were asked for.
    void warnOfUnmatchedPatterns(ReadContext& context) const;

  private:
    struct Pattern {
        std::string given;
        std::string compared;  ///< in small letters where letter case is ignored
        bool excludes;
        bool matched = false;
    };
    using Patterns = std::vector<Pattern>;

    std::optional<SelectionPart> findSchemaRefusal(std::string_view schema);
    void addPatterns(Patterns& patterns, const std::vector<std::string>& given, bool excludes) const;
    std::string comparedForm(std::string_view text) const;

    Patterns schemas_;
    Patterns tables_;
    LetterCase letterCase_;
};

/// Whether the whole text fits the pattern, in which `*` stands for any characters and `?` for one (of UTF-8
/// text).
bool matchesPattern(std::string_view pattern, std::string_view text) noexcept;

}  // namespace readers
