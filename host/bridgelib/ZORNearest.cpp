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

}  // namespace

std::vector<std::string_view> findNearest(std::string_view word,
                                          const std::vector<std::string_view>& candidates) {
    constexpr std::size_t MOST = 3;
    // A word this long is no mistyped name, and comparing it would take its time.
    constexpr std::size_t LONGEST = 200;
    if (word.empty() || word.size() > LONGEST) {
        return {};
    }
    const std::string wanted = toLower(word);
    std::vector<std::pair<std::size_t, std::string_view>> ranked;
    for (const std::string_view candidate : candidates) {
        const std::string name = toLower(candidate.substr(0, LONGEST));
        const std::size_t distance = editDistance(wanted, name);
        const bool contained = wanted.size() > 2 && name.find(wanted) != std::string::npos;
        if (contained || distance <= std::max<std::size_t>(1, std::min(wanted.size(), name.size()) / 3)) {
            ranked.emplace_back(distance, candidate);
        }
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string_view> nearest;
    for (std::size_t i = 0; i < std::min(MOST, ranked.size()); ++i) {
        nearest.push_back(ranked[i].second);
    }
    return nearest;
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
