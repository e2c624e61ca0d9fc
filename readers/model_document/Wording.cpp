#include "Wording.h"

#include <functional>

namespace readers::document {

namespace {

std::string quote(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// "a", "a and b", "a, b and c"; `last` is the word before the last one.
std::string enumerate(const std::vector<std::string>& items, std::string_view last) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) {
            text += i + 1 < items.size() ? ", " : " " + std::string(last) + " ";
        }
        text += items[i];
    }
    return text;
}

std::string enumerateWords(std::span<const Word> words, std::string_view last) {
    std::vector<std::string> quoted;
    for (const Word& word : words) {
        quoted.push_back(quote(word.text));
    }
    return enumerate(quoted, last);
}

std::string describeInteger(const Field& field) {
    if (field.lowest == field.highest) {
        return "the number " + std::to_string(field.lowest);
    }
    if (field.lowest == LOWEST_INTEGER && field.highest == HIGHEST_INTEGER) {
        return "an integer of at most 32 bits";
    }
    return "an integer from " + std::to_string(field.lowest) + " to " + std::to_string(field.highest);
}

}  // namespace

std::string withArticle(std::string_view noun) {
    const bool vowel = std::string_view("aeio").find(noun.front()) != std::string_view::npos;
    return (vowel ? "an " : "a ") + std::string(noun);
}

std::string describeValue(const Field& field) {
    switch (field.shape) {
        case Shape::TEXTS:
            return "a list of texts";
        case Shape::WORDS:
            return "a list of " + enumerateWords(field.words, "and");
        case Shape::REFERENCES:
            return "a list of references to " + std::string(field.target->many) +
                   (field.nonEmpty ? ", at least one" : "");
        case Shape::OBJECTS:
            return "a list of " + std::string(kindsOf(field.family).plural);
        default:
            return describeItem(field);
    }
}

std::string describeItem(const Field& field) {
    switch (field.shape) {
        case Shape::ID:
        case Shape::TEXT:
        case Shape::TEXTS:
            return "a text";
        case Shape::INTEGER:
            return describeInteger(field);
        case Shape::BOOLEAN:
            return "true or false";
        case Shape::KIND:
        case Shape::WORD:
        case Shape::WORDS:
            return enumerateWords(field.words, "or");
        case Shape::REFERENCE:
        case Shape::REFERENCES:
            return "a reference to " + std::string(field.target->one) + (field.nullable ? ", or null" : "");
        case Shape::OBJECT:
        case Shape::OBJECTS:
            return "an object";
    }
    return {};
}

std::string listKeys(const Kind& kind) {
    std::vector<std::string> keys;
    for (const Field& field : kind.fields) {
        keys.push_back(quote(field.key));
    }
    return enumerate(keys, "and");
}

std::string listKindsWith(const FamilyKinds& family, std::string_view key) {
    std::vector<std::string> nouns;
    for (const Kind& kind : family.kinds) {
        for (const Field& field : kind.fields) {
            if (field.key == key) {
                nouns.push_back(withArticle(kind.noun));
            }
        }
    }
    return enumerate(nouns, "and");
}

}  // namespace readers::document
