#include "DocumentationText.h"

#include <algorithm>
#include <cctype>

namespace documentation {

using readers::document::Family;
using readers::document::Field;
using readers::document::Kind;
using readers::document::kindsOf;

std::vector<const Kind*> allKinds() {
    std::vector<const Kind*> kinds;
    for (int id = 0; id < static_cast<int>(Family::COUNT); ++id) {
        if (static_cast<Family>(id) == Family::PACKAGES) {
            continue;  // the same as among the model's children
        }
        for (const Kind& kind : kindsOf(static_cast<Family>(id)).kinds) {
            kinds.push_back(&kind);
        }
    }
    return kinds;
}

const Field* findField(const Kind& kind, std::string_view key) {
    for (const Field& field : kind.fields) {
        if (field.key == key) {
            return &field;
        }
    }
    return nullptr;
}

bool isCommon(const Kind& kind, const Field& field) {
    if (findField(kind, "id") == nullptr) {
        return false;
    }
    // A synonym has nothing else.
    const std::vector<Field>& common = kindsOf(Family::SYNONYMS).kinds.front().fields;
    return std::any_of(common.begin(), common.end(),
                       [&](const Field& other) { return other.key == field.key; });
}

std::string definitionName(const Kind& kind) {
    std::string name;
    bool capital = false;
    for (const char character : kind.noun) {
        if (character == ' ' || character == '-') {
            capital = true;
        } else {
            name += capital ? static_cast<char>(std::toupper(character)) : character;
            capital = false;
        }
    }
    return name;
}

}  // namespace documentation
