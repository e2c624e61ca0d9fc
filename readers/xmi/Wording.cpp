#include "Wording.h"

#include <algorithm>
#include <iterator>

namespace readers::xmi {

namespace {

bool isCapital(char character) noexcept {
    return character >= 'A' && character <= 'Z';
}

/// Words that say how an element stands in another one, not what it is.
constexpr std::string_view LEADING_WORDS[] = {"is", "owned", "e", "E"};

void removeLeadingWord(std::string& words) {
    for (const std::string_view word : LEADING_WORDS) {
        if (words.size() > word.size() && words.starts_with(word) && words[word.size()] == ' ') {
            words.erase(0, word.size() + 1);
            return;
        }
    }
}

}  // namespace

std::string toWords(std::string_view name) {
    std::string words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char character = name[i] == '_' ? ' ' : name[i];
        const bool nextIsSmall = i + 1 < name.size() && !isCapital(name[i + 1]) && name[i + 1] != '_';
        const bool beginsWord = isCapital(character) && i > 0 && (!isCapital(name[i - 1]) || nextIsSmall);
        if (beginsWord && !words.empty() && words.back() != ' ') {
            words += ' ';
        }
        const bool isAbbreviation = isCapital(character) && !nextIsSmall && name.size() > 1;
        words +=
            isCapital(character) && !isAbbreviation ? static_cast<char>(character - 'A' + 'a') : character;
    }
    removeLeadingWord(words);
    return words;
}

std::string toPlural(std::string words) {
    constexpr std::string_view VOWELS = "aeiou";
    const auto endsWith = [&](std::string_view end) { return words.ends_with(end); };
    if (endsWith("s") && !endsWith("ss") && !endsWith("us")) {
        return words;
    }
    if (endsWith("y") && words.size() > 1 && VOWELS.find(words[words.size() - 2]) == std::string_view::npos) {
        words.pop_back();
        return words + "ies";
    }
    return words + (endsWith("s") || endsWith("x") || endsWith("ch") || endsWith("sh") ? "es" : "s");
}

std::string withArticle(const std::string& words) {
    const bool vowel =
        !words.empty() && std::string_view("aeiou").find(words.front()) != std::string_view::npos;
    return (vowel && !words.starts_with("us") ? "an " : "a ") + words;
}

}  // namespace readers::xmi
