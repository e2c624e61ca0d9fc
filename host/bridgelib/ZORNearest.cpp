#include "ZORNearest.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace {

std::string toLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

/// The number of letters to insert, delete, replace or swap with a neighbour, letter case aside.
std::size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> previous(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    std::iota(previous.begin(), previous.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = previous[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                current[j] = std::min(current[j], before[j - 2] + 1);
            }
        }
        std::swap(before, previous);
        std::swap(previous, current);
    }
    return previous[b.size()];
}

std::string withoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

/// How far the word is from the beginning of a longer name, blanks aside: "sqlserver" from "SQL Server 7.x".
std::size_t distanceFromBeginning(const std::string& word, const std::string& name) {
    const std::string wanted = withoutBlanks(word);
    return editDistance(wanted, withoutBlanks(name).substr(0, wanted.size()));
}

bool isNear(std::size_t distance, std::size_t length) {
    return distance <= std::max<std::size_t>(1, length / 3);
}

using Ranked = std::pair<std::size_t, std::string_view>;

std::vector<std::string_view> firstOf(std::vector<Ranked>& ranked) {
    constexpr std::size_t MOST = 3;
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const Ranked& a, const Ranked& b) { return a.first < b.first; });
    std::vector<std::string_view> first;
    for (std::size_t i = 0; i < std::min(MOST, ranked.size()); ++i) {
        first.push_back(ranked[i].second);
    }
    return first;
}

}  // namespace

std::vector<std::string_view> findNearest(std::string_view word,
                                          const std::vector<std::string_view>& candidates) {
    // A word this long is no mistyped name, and comparing it would take its time.
    constexpr std::size_t LONGEST = 200;
    if (word.empty() || word.size() > LONGEST) {
        return {};
    }
    const std::string wanted = toLower(word);
    std::vector<Ranked> whole;
    std::vector<Ranked> beginnings;
    for (const std::string_view candidate : candidates) {
        const std::string name = toLower(candidate.substr(0, LONGEST));
        const std::size_t distance = editDistance(wanted, name);
        const bool contained = wanted.size() > 2 && name.find(wanted) != std::string::npos;
        if (contained || isNear(distance, std::min(wanted.size(), name.size()))) {
            whole.emplace_back(distance, candidate);
        } else if (wanted.size() > 3 && wanted.size() < name.size()) {
            const std::size_t fromBeginning = distanceFromBeginning(wanted, name);
            if (isNear(fromBeginning, wanted.size())) {
                beginnings.emplace_back(fromBeginning, candidate);
            }
        }
    }
    return firstOf(whole.empty() ? beginnings : whole);
}

std::string describeNearest(std::string_view word, const std::vector<std::string_view>& candidates) {
    const std::vector<std::string_view> nearest = findNearest(word, candidates);
    if (nearest.empty()) {
        return {};
    }
    std::string sentence = " Did you mean ";
    for (std::size_t i = 0; i < nearest.size(); ++i) {
        if (i > 0) {
            sentence += i + 1 == nearest.size() ? " or " : ", ";
        }
        sentence.append("\"").append(nearest[i]).append("\"");
    }
    return sentence + "?";
}
