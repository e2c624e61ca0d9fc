#include "Selection.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace readers {

namespace {

bool isContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Where the character after the one at `index` begins.
std::size_t nextCharacter(std::string_view text, std::size_t index) noexcept {
    ++index;
    while (index < text.size() && isContinuation(text[index])) {
        ++index;
    }
    return index;
}

/// How closely a pattern describes what it fits: whether it has no wildcards, and how many other characters.
using Closeness = std::pair<bool, std::ptrdiff_t>;

Closeness closenessOf(std::string_view pattern) {
    const bool exact = pattern.find_first_of("*?") == std::string_view::npos;
    return {exact, std::count_if(pattern.begin(), pattern.end(), [](char byte) {
                return byte != '*' && byte != '?' && !isContinuation(byte);
            })};
}

/// Of the part for the table, and of that for the schema, which decides only between patterns that describe
/// the table equally well.
using Specificity = std::pair<Closeness, Closeness>;

Specificity specificityOfQualified(std::string_view pattern) {
    const std::size_t dot = pattern.find('.');
    return {closenessOf(pattern.substr(dot + 1)), closenessOf(pattern.substr(0, dot))};
}

enum class Decision { WANTED, NOT_INCLUDED, EXCLUDED };

/// Lets every pattern that fits mark itself, and the most specific one decide. `fit` tells of one pattern how
/// specific it is, or nothing when it does not fit.
template <typename Patterns, typename Fit>
Decision decide(Patterns& patterns, const Fit& fit) {
    const bool includesAll =
        std::none_of(patterns.begin(), patterns.end(), [](const auto& pattern) { return !pattern.excludes; });
    Decision decision = includesAll ? Decision::WANTED : Decision::NOT_INCLUDED;
    std::optional<Specificity> decisive;
    for (auto& pattern : patterns) {
        const std::optional<Specificity> specificity = fit(pattern);
        if (!specificity) {
            continue;
        }
        pattern.matched = true;
        if (!decisive || *specificity > *decisive || (*specificity == *decisive && pattern.excludes)) {
            decisive = specificity;
            decision = pattern.excludes ? Decision::EXCLUDED : Decision::WANTED;
        }
    }
    return decision;
}

std::optional<SelectionPart> partFor(Decision decision, SelectionPart inclusions, SelectionPart exclusions) {
    switch (decision) {
        case Decision::NOT_INCLUDED:
            return inclusions;
        case Decision::EXCLUDED:
            return exclusions;
        case Decision::WANTED:
            break;
    }
    return std::nullopt;
}

}  // namespace

bool matchesPattern(std::string_view pattern, std::string_view text) noexcept {
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t afterStar =
        std::string_view::npos;  // where to go on in the pattern when the rest does not fit
    std::size_t starText = 0;    // where in the text the star's part ends for now
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            afterStar = ++p;
            starText = t;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            t = nextCharacter(text, t);
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (afterStar != std::string_view::npos) {
            p = afterStar;
            t = starText = nextCharacter(text, starText);
        } else {
            return false;
        }
    }
    return pattern.substr(p).find_first_not_of('*') == std::string_view::npos;
}

SelectionMatcher::SelectionMatcher(const Selection& selection, LetterCase letterCase)
    : letterCase_(letterCase) {
    addPatterns(schemas_, selection.schemas, false);
    addPatterns(schemas_, selection.excludedSchemas, true);
    addPatterns(tables_, selection.tables, false);
    addPatterns(tables_, selection.excludedTables, true);
}

void SelectionMatcher::addPatterns(Patterns& patterns, const std::vector<std::string>& given,
                                   bool excludes) const {
    for (const std::string& text : given) {
        patterns.push_back({text, comparedForm(text), excludes});
    }
}

std::string SelectionMatcher::comparedForm(std::string_view text) const {
    std::string form(text);
    if (letterCase_ == LetterCase::IGNORED) {
        std::transform(form.begin(), form.end(), form.begin(), [](char byte) {
            return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        });
    }
    return form;
}

std::optional<SelectionPart> SelectionMatcher::findSchemaRefusal(std::string_view schema) {
    const std::string name = comparedForm(schema);
    const Decision decision = decide(schemas_, [&](const Pattern& pattern) {
        return matchesPattern(pattern.compared, name)
                   ? std::optional(Specificity{closenessOf(pattern.given), {}})
                   : std::nullopt;
    });
    return partFor(decision, SelectionPart::SCHEMAS, SelectionPart::EXCLUDED_SCHEMAS);
}

std::optional<SelectionPart> SelectionMatcher::findRefusal(std::string_view schema, std::string_view table) {
    if (const std::optional<SelectionPart> refusal = findSchemaRefusal(schema)) {
        return refusal;
    }
    const std::string name = comparedForm(table);
    const std::string qualified = comparedForm(schema) + '.' + name;
    const Decision decision = decide(tables_, [&](const Pattern& pattern) -> std::optional<Specificity> {
        if (matchesPattern(pattern.compared, name)) {
            return Specificity{closenessOf(pattern.given), {}};
        }
        const bool hasDot = pattern.compared.find('.') != std::string::npos;
        return hasDot && matchesPattern(pattern.compared, qualified)
                   ? std::optional(specificityOfQualified(pattern.given))
                   : std::nullopt;
    });
    return partFor(decision, SelectionPart::TABLES, SelectionPart::EXCLUDED_TABLES);
}

std::vector<std::string> SelectionMatcher::unmatchedPatterns() const {
    std::vector<std::string> unmatched;
    for (const Patterns* patterns : {&schemas_, &tables_}) {
        for (const Pattern& pattern : *patterns) {
            if (!pattern.matched) {
                unmatched.push_back(pattern.given);
            }
        }
    }
    return unmatched;
}

void SelectionMatcher::warnOfUnmatchedPatterns(ReadContext& context) const {
    for (const Pattern& pattern : schemas_) {
        if (!pattern.matched) {
            context.warn(pattern.given, "no schema matches this pattern");
        }
    }
    for (const Pattern& pattern : tables_) {
        if (!pattern.matched) {
            context.warn(pattern.given, "no table or view matches this pattern");
        }
    }
}

}  // namespace readers
