#include <set>

#include "DocumentationText.h"
#include "model_document/Wording.h"

namespace documentation {

namespace {

using readers::document::Family;
using readers::document::FamilyKinds;
using readers::document::Field;
using readers::document::Kind;
using readers::document::kindsOf;
using readers::document::Shape;

using Members = std::vector<std::pair<std::string, std::string>>;

std::string quote(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        quoted += (character == '"' || character == '\\' ? "\\" : "") + std::string(1, character);
    }
    return quoted + '"';
}

std::string object(const Members& members) {
    std::string text;
    for (const auto& [key, value] : members) {
        text += (text.empty() ? "" : ",") + quote(key) + ":" + value;
    }
    return "{" + text + "}";
}

std::string list(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) {
        text += (text.empty() ? "" : ",") + item;
    }
    return "[" + text + "]";
}

std::string words(const Field& field) {
    std::vector<std::string> quoted;
    for (const auto& word : field.words) {
        quoted.push_back(quote(word.text));
    }
    return list(quoted);
}

std::string reference(const std::string& definition) {
    return object({{"$ref", quote("#/$defs/" + definition)}});
}

/// What stands in a list: objects of one kind, or of a family's kinds.
std::string itemsOf(Family family) {
    const FamilyKinds& kinds = kindsOf(family);
    return reference(kinds.kinds.size() == 1 ? definitionName(kinds.kinds.front())
                                             : "any of the " + std::string(kinds.plural));
}

Members listOf(const std::string& items) {
    return {{"type", quote("array")}, {"items", items}};
}

Members integer(const Field& field) {
    if (field.lowest == field.highest) {
        return {{"const", std::to_string(field.lowest)}};
    }
    Members members = {{"type", quote("integer")},
                       {"minimum", std::to_string(field.lowest)},
                       {"maximum", std::to_string(field.highest)}};
    if (!field.defaultsToIndex) {
        members.emplace_back("default", "0");
    }
    return members;
}

Members word(const Field& field) {
    if (field.words.size() == 1) {
        return {{"const", quote(field.words.front().text)}};
    }
    return {{"enum", words(field)}, {"default", quote(field.words.front().text)}};
}

Members typeOf(const Field& field, const Kind& kind) {
    const std::string id = object({{"type", quote("string")}, {"minLength", "1"}});
    switch (field.shape) {
        case Shape::KIND:
            return {{"const", quote(kind.word)}};
        case Shape::ID:
        case Shape::TEXT:
            return {{"type", quote("string")}};
        case Shape::TEXTS:
            return listOf(object({{"type", quote("string")}}));
        case Shape::INTEGER:
            return integer(field);
        case Shape::BOOLEAN:
            return {{"type", quote("boolean")}, {"default", "false"}};
        case Shape::WORD:
            return word(field);
        case Shape::WORDS:
            return listOf(object({{"enum", words(field)}}));
        case Shape::REFERENCE:
            return {{"type", field.nullable ? list({quote("string"), quote("null")}) : quote("string")},
                    {"minLength", "1"}};
        case Shape::REFERENCES: {
            Members members = listOf(id);
            if (field.nonEmpty) {
                members.emplace_back("minItems", "1");
            }
            return members;
        }
        case Shape::OBJECT:
            return {{"$ref", quote("#/$defs/" + definitionName(kindsOf(field.family).kinds.front()))}};
        case Shape::OBJECTS:
            return listOf(itemsOf(field.family));
    }
    return {};
}

std::string definition(const Kind& kind) {
    Members properties;
    std::vector<std::string> required;
    for (const Field& field : kind.fields) {
        Members property = {{"description", quote(field.description)}};
        const Members type = typeOf(field, kind);
        property.insert(property.end(), type.begin(), type.end());
        properties.emplace_back(field.key, object(property));
        if (field.required && field.shape != Shape::KIND) {
            required.push_back(quote(field.key));
        }
    }
    Members members = {{"type", quote("object")}, {"properties", object(properties)}};
    if (!required.empty()) {
        members.emplace_back("required", list(required));
    }
    members.emplace_back("patternProperties", object({{"^\\$", "true"}}));
    members.emplace_back("additionalProperties", "false");
    return object(members);
}

/// Which keys an object may have depends on its kind.
std::string definition(const FamilyKinds& family) {
    std::vector<std::string> choices;
    for (const Kind& kind : family.kinds) {
        Members condition = {{"properties", object({{"kind", object({{"const", quote(kind.word)}})}})}};
        if (!choices.empty() || family.kindRequired) {
            condition.emplace_back("required", list({quote("kind")}));
        }
        choices.push_back(object({{"if", object(condition)}, {"then", reference(definitionName(kind))}}));
    }
    const Field& kindField = family.kinds.front().fields.front();
    Members members = {{"type", quote("object")},
                       {"properties", object({{"kind", object({{"enum", words(kindField)}})}})}};
    if (family.kindRequired) {
        members.emplace_back("required", list({quote("kind")}));
    }
    members.emplace_back("allOf", list(choices));
    return object(members);
}

/// Puts every member and item on a line of its own, but for lists of words.
std::string indent(const std::string& compact) {
    std::string text;
    std::string margin = "\n";
    bool quoted = false;
    for (std::size_t i = 0; i < compact.size(); ++i) {
        const char character = compact[i];
        if (character == '"' && (i == 0 || compact[i - 1] != '\\')) {
            quoted = !quoted;
        }
        if (!quoted && character == '[' && compact[i + 1] == '"') {
            const std::size_t end = compact.find(']', i);
            for (; i < end; ++i) {
                text += compact[i] == ',' ? std::string(", ") : std::string(1, compact[i]);
            }
            text += ']';
            continue;
        }
        if (!quoted && (character == '}' || character == ']')) {
            margin.resize(margin.size() - 2);
            text += margin;
        }
        text += character;
        if (!quoted && (character == '{' || character == '[')) {
            margin += "  ";
        }
        if (!quoted && (character == '{' || character == '[' || character == ',')) {
            text += margin;
        }
        if (!quoted && character == ':') {
            text += ' ';
        }
    }
    return text + "\n";
}

}  // namespace

std::string schemaText() {
    Members definitions;
    for (const Kind* kind : allKinds()) {
        definitions.emplace_back(definitionName(*kind), definition(*kind));
    }
    for (int id = 0; id < static_cast<int>(Family::COUNT); ++id) {
        const FamilyKinds& family = kindsOf(static_cast<Family>(id));
        if (family.kinds.size() > 1) {
            definitions.emplace_back("any of the " + std::string(family.plural), definition(family));
        }
    }
    return indent(object({
        {"$schema", quote("https://json-schema.org/draft/2020-12/schema")},
        {"$comment",
         quote("Made from the tables of the reader; to make it anew: model_document_docs schema")},
        {"title", quote("Model document")},
        {"description",
         quote("A source model written down as JSON. References, ids and a few other rules are "
               "checked by the reader only.")},
        {"$ref", quote("#/$defs/" + definitionName(kindsOf(Family::DOCUMENT).kinds.front()))},
        {"$defs", object(definitions)},
    }));
}

}  // namespace documentation
