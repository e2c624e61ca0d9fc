#include "DocumentationText.h"
#include "ZOR.h"
#include "model_document/Wording.h"

namespace documentation {

namespace {

using readers::document::describeValue;
using readers::document::Family;
using readers::document::FamilyKinds;
using readers::document::Field;
using readers::document::Kind;
using readers::document::kindsOf;
using readers::document::Shape;

/// What stands behind a key: words as code, and whether the key must be there.
std::string valueCell(const Field& field) {
    std::string text;
    bool quoted = false;
    for (const char character : describeValue(field)) {
        if (character == '"') {
            text += quoted ? "\"`" : "`\"";
            quoted = !quoted;
        } else {
            text += character;
        }
    }
    return text + (field.required ? " (required)" : "");
}

std::string row(const Field& field, const std::string& kinds) {
    return "| `" + std::string(field.key) + "` | " + (kinds.empty() ? "" : kinds + " | ") + valueCell(field) +
           " | " + std::string(field.description) + " |\n";
}

/// The keys of a kind, but for those that every object has and "kind".
std::string tableOf(const Kind& kind) {
    std::string text = "| key | value | meaning |\n|---|---|---|\n";
    for (const Field& field : kind.fields) {
        if (!isCommon(kind, field) && field.shape != Shape::KIND) {
            text += row(field, {});
        }
    }
    return text;
}

std::string commonTable() {
    std::string text = "| key | value | meaning |\n|---|---|---|\n";
    for (const Field& field : kindsOf(Family::SYNONYMS).kinds.front().fields) {
        text += row(field, {});
    }
    return text;
}

/// "all", or the words of the kinds that have a key.
std::string kindsCell(const FamilyKinds& family, const Field& wanted) {
    std::string words;
    std::size_t count = 0;
    for (const Kind& kind : family.kinds) {
        if (findField(kind, wanted.key) != nullptr) {
            words += (words.empty() ? "`\"" : ", `\"") + std::string(kind.word) + "\"`";
            ++count;
        }
    }
    return count == family.kinds.size() ? "all" : words;
}

/// The keys of all kinds of a family, each with the kinds that have it.
std::string tableOf(const FamilyKinds& family) {
    std::string text = "| key | kinds | value | meaning |\n|---|---|---|---|\n";
    for (const Kind& kind : family.kinds) {
        for (const Field& field : kind.fields) {
            const std::string line = row(field, kindsCell(family, field));
            if (!isCommon(kind, field) && field.shape != Shape::KIND &&
                text.find(line) == std::string::npos) {
                text += line;
            }
        }
    }
    return text;
}

std::string numbersTable() {
    std::string text = "| key | numbers |\n|---|---|\n";
    for (const Kind* kind : allKinds()) {
        for (const Field& field : kind->fields) {
            if (field.shape != Shape::WORD || field.words.size() < 2) {
                continue;
            }
            std::string line = "| `" + std::string(field.key) + "` | ";
            for (const auto& word : field.words) {
                line += (&word == &field.words.front() ? "`\"" : ", `\"") + std::string(word.text) + "\"` " +
                        std::to_string(word.number);
            }
            line += " |\n";
            text += text.find(line) == std::string::npos ? line : "";
        }
    }
    return text;
}

/// The names of data types that have a counterpart in type sets.
std::string dataTypesTable() {
    std::string text = "| key | names that mean the same |\n|---|---|\n";
    for (const ZOROldDataTypeNames& names : getOldDataTypeNames()) {
        std::string spellings(names.spellings);
        for (std::size_t at = spellings.find(','); at != std::string::npos;
             at = spellings.find(',', at + 2)) {
            spellings.insert(at + 1, " ");
        }
        text += "| `" + std::string(names.key) + "` | " + spellings + " |\n";
    }
    return text;
}

PageTable table(const std::string& heading, Family family, std::size_t kind = 0) {
    return {heading, tableOf(kindsOf(family).kinds[kind])};
}

}  // namespace

std::vector<PageTable> pageTables() {
    return {
        table("### The document", Family::DOCUMENT),
        {"### Every object", commonTable()},
        table("### The model", Family::MODEL),
        table("### Catalogs", Family::CHILDREN, 1),
        {"### Types", tableOf(kindsOf(Family::TYPES))},
        table("### Type values", Family::TYPE_VALUES),
        table("### Packages", Family::CHILDREN, 0),
        table("### Diagrams", Family::DIAGRAMS),
        table("### Classes", Family::ELEMENTS, 0),
        table("### Attributes", Family::ATTRIBUTES),
        table("### Role-name maps", Family::ROLE_NAME_MAPS),
        {"### Keys", tableOf(kindsOf(Family::KEYS))},
        table("### Indexes", Family::INDEXES),
        table("### Index members", Family::INDEX_MEMBERS),
        {"### Operations, procedures and triggers", tableOf(kindsOf(Family::OPERATIONS))},
        table("### Arguments", Family::ARGUMENTS),
        table("### Views", Family::ELEMENTS, 1),
        table("### Columns of views", Family::COLUMNS),
        table("### Associations", Family::ELEMENTS, 2),
        table("### Roles", Family::ROLES),
        table("### Generalizations", Family::ELEMENTS, 3),
        table("### Dependencies", Family::ELEMENTS, 4),
        table("### Realizations", Family::ELEMENTS, 5),
        {"## Words and numbers", numbersTable()},
        {"## Data types", dataTypesTable()},
    };
}

}  // namespace documentation
