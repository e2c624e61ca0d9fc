#include <stdexcept>

#include "Utf8.h"
#include "Writer.h"

namespace readers::document {

namespace {

void appendEscaped(std::string& out, char character) {
    constexpr std::string_view HEX = "0123456789abcdef";
    constexpr std::string_view ESCAPED = "\"\\\n\t\r\b\f";
    constexpr std::string_view LETTERS = "\"\\ntrbf";
    const std::size_t place = ESCAPED.find(character);
    const auto code = static_cast<unsigned char>(character);
    if (place != std::string_view::npos) {
        out.append({'\\', LETTERS[place]});
    } else if (code < 0x20 || code == 0x7F) {
        out.append("\\u00").append({HEX[code >> 4U], HEX[code & 15U]});
    } else {
        out += character;
    }
}

std::string_view wordFor(const Field& field, std::int32_t number) {
    for (const Word& word : field.words) {
        if (word.number == number) {
            return word.text;
        }
    }
    throw std::invalid_argument("a number that has no word: " + std::string(field.key));
}

}  // namespace

std::vector<Writer::Member> Writer::membersOf(const Kind& kind, const ZORModelObject& object,
                                              std::size_t index) {
    std::vector<Member> members;
    for (const Field& field : kind.fields) {
        if (field.shape != Shape::KIND) {
            addMember(members, field, object, index);
        } else if (field.required || kind.word != field.words.front().text) {
            members.push_back({quote(field.key) + ": " + quote(kind.word)});
        }
    }
    return members;
}

/// Adds the field unless it is at its default.
void Writer::addMember(std::vector<Member>& members, const Field& field, const ZORModelObject& object,
                       std::size_t index) {
    const std::string key = quote(field.key) + ": ";
    const auto addText = [&](std::string_view text) {
        if (!text.empty()) {
            members.push_back({key + quote(text)});
        }
    };
    const auto addItems = [&](std::vector<std::string> items) {
        if (!items.empty()) {
            members.push_back({key, std::move(items)});
        }
    };
    const auto collect = [&](const auto& item) {
        std::vector<std::string> items;
        for (std::size_t i = 0; i < field.count(object); ++i) {
            if (std::string text = item(i); !text.empty()) {
                items.push_back(std::move(text));
            }
        }
        return items;
    };
    const auto referenceAt = [&](std::size_t i) { return idOf(field, *field.getObject(object, i)); };
    switch (field.shape) {
        case Shape::KIND:
            break;
        case Shape::ID:
            addText(ids_.find(object));
            break;
        case Shape::TEXT:
            addText(field.getText(object, 0).view());
            break;
        case Shape::TEXTS:
            addItems(collect([&](std::size_t i) { return quote(field.getText(object, i).view()); }));
            break;
        case Shape::INTEGER: {
            const std::int32_t number = field.getNumber(object);
            const bool isDefault =
                field.defaultsToIndex ? static_cast<std::size_t>(number) == index : number == 0;
            if (field.required || !isDefault) {
                members.push_back({key + std::to_string(number)});
            }
            break;
        }
        case Shape::BOOLEAN:
            if (field.getNumber(object) != 0) {
                members.push_back({key + "true"});
            }
            break;
        case Shape::WORD:
            if (const std::int32_t number = field.getNumber(object);
                field.required || number != field.words.front().number) {
                members.push_back({key + quote(wordFor(field, number))});
            }
            break;
        case Shape::WORDS: {
            std::vector<std::string> items;
            for (const Word& word : field.words) {
                if ((field.getNumber(object) >> word.number & 1) != 0) {
                    items.push_back(quote(word.text));
                }
            }
            addItems(std::move(items));
            break;
        }
        case Shape::REFERENCE:
            if (field.count(object) > 0) {
                members.push_back({key + referenceAt(0)});
            }
            break;
        case Shape::REFERENCES:
            addItems(collect(referenceAt));
            break;
        case Shape::OBJECT:
        case Shape::OBJECTS:
            if (field.count(object) > 0) {
                members.push_back({key, {}, &field});
            }
            break;
    }
}

std::string Writer::quote(std::string_view text) {
    std::string wellFormed;
    if (!isUtf8(text)) {
        ++illFormedTexts_;
        wellFormed = toWellFormed(text);
        text = wellFormed;
    }
    std::string quoted = "\"";
    for (const char character : text) {
        appendEscaped(quoted, character);
    }
    return quoted + "\"";
}

/// The id as it is written; empty for what a document does not refer to.
std::string Writer::idOf(const Field& field, const ZORObject& target) {
    if (!mayReferTo(field, target)) {
        return {};
    }
    const std::string_view id = ids_.find(target);
    if (id.empty()) {
        throw std::invalid_argument("a reference that leads out of the model: " + std::string(field.key));
    }
    return quote(id);
}

}  // namespace readers::document
