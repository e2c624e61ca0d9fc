#include "Builder.h"
#include "Refusal.h"
#include "TextScanner.h"
#include "Wording.h"

namespace readers::document {

namespace {

/// Lists and objects in a value that is passed over.
constexpr std::size_t DEEPEST_IGNORED = 1000;

}  // namespace

void Builder::readField(simdjson::ondemand::field field) {
    Frame& current = frame();
    const Text key = document_.read(field.key());
    if (key.characters.starts_with('$')) {
        passOver(field.value());
        return;
    }
    const Field* row = findField(current, key.characters);
    if (row == nullptr) {
        refuseKey(current, key);
    }
    const std::uint64_t bit = std::uint64_t{1} << (row - current.kind->fields.data());
    if ((current.seen & bit) != 0) {
        throw Refusal{key.offset, "each key once", " a second time", {}};
    }
    current.seen |= bit;
    readValue(*row, field.value());
}

/// Documents mostly have their keys in one order: the search starts behind the last key found.
const Field* Builder::findField(Frame& frame, std::string_view key) noexcept {
    const std::vector<Field>& fields = frame.kind->fields;
    for (std::size_t step = 0; step < fields.size(); ++step) {
        if (frame.nextField >= fields.size()) {
            frame.nextField = 0;
        }
        const Field& field = fields[frame.nextField++];
        if (field.key == key) {
            return &field;
        }
    }
    return nullptr;
}

void Builder::readValue(const Field& row, Value value) {
    switch (row.shape) {
        case Shape::KIND:
            numberOf(row, readText(row, value));  // what follows from it is done already
            break;
        case Shape::ID:
            readId(row, value);
            break;
        case Shape::TEXT:
            row.setText(*frame().object, readText(row, value).characters);
            break;
        case Shape::TEXTS:
        case Shape::WORDS:
            readTexts(row, value);
            break;
        case Shape::INTEGER:
            readInteger(row, value);
            break;
        case Shape::BOOLEAN:
            readBoolean(row, value);
            break;
        case Shape::WORD:
            row.setNumber(*frame().object, numberOf(row, readText(row, value)));
            break;
        case Shape::REFERENCE:
            if (!row.nullable || !value.is_null().value()) {
                readReference(row, value);
            }
            break;
        case Shape::REFERENCES:
            readReferences(row, value);
            break;
        case Shape::OBJECT:
        case Shape::OBJECTS:
            beginList(row, value);
            break;
    }
}

void Builder::readId(const Field& row, Value value) {
    const Text id = readText(row, value);
    if (!id.characters.empty()) {
        ids_.add(document_.keep(id), frame().object, id.offset);
    }
}

void Builder::readTexts(const Field& row, Value value) {
    for (Value item : readList(row, value)) {
        const Text text = readText(row, item);
        if (row.shape == Shape::TEXTS) {
            row.setText(*frame().object, text.characters);
        } else {
            row.setNumber(*frame().object, numberOf(row, text));
        }
    }
}

void Builder::readReference(const Field& row, Value value) {
    const Text id = readText(row, value);
    references_.add(frame().references, row, document_.keep(id), id.offset);
}

void Builder::readReferences(const Field& row, Value value) {
    bool isEmpty = true;
    for (Value item : readList(row, value)) {
        readReference(row, item);
        isEmpty = false;
    }
    if (row.nonEmpty && isEmpty) {
        throw Refusal{document_.offsetOf(value), describeValue(row), "an empty list", {}};
    }
}

void Builder::readInteger(const Field& row, Value value) {
    std::int64_t number = 0;
    if (value.get_int64().get(number) != simdjson::SUCCESS || number < row.lowest || number > row.highest) {
        refuse(value, describeValue(row));
    }
    row.setNumber(*frame().object, static_cast<std::int32_t>(number));
}

void Builder::readBoolean(const Field& row, Value value) {
    bool flag = false;
    if (value.get_bool().get(flag) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    if (row.onceInList && flag) {
        claimSpecialPart(row, value);
    }
    row.setNumber(*frame().object, flag ? 1 : 0);
}

void Builder::claimSpecialPart(const Field& row, Value value) {
    Frame& owner = frames_[frames_.size() - 2];
    if (owner.hasSpecialPart) {
        const std::string key(row.key);
        throw Refusal{document_.offsetOf(value),
                      "at most one " + key + " key in a class",
                      "a second " + key + " key",
                      {}};
    }
    owner.hasSpecialPart = true;
}

/// Passes over a value whose key means nothing here; it must be JSON all the same.
void Builder::passOver(Value value) const {
    try {
        TextScanner(document_.view(), document_.offsetOf(value), DEEPEST_IGNORED).scanValue();
    } catch (const SyntaxFault& fault) {
        throw Refusal{fault.offset, fault.expected, fault.found, {}};
    }
}

Text Builder::readText(const Field& row, Value value) {
    simdjson::ondemand::raw_json_string raw;
    if (value.get_raw_json_string().get(raw) != simdjson::SUCCESS) {
        refuse(value, describeItem(row));
    }
    return document_.read(raw);
}

Builder::Array Builder::readList(const Field& row, Value value) const {
    Array items;
    if (value.get_array().get(items) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    return items;
}

std::int32_t Builder::numberOf(const Field& row, const Text& word) {
    for (const Word& known : row.words) {
        if (known.text == word.characters) {
            return known.number;
        }
    }
    throw Refusal{word.offset, describeItem(row), {}, {}};
}

void Builder::refuseKey(const Frame& frame, const Text& key) {
    const Kind& kind = *frame.kind;
    const std::string others = listKindsWith(familyOf(kind), key.characters);
    throw Refusal{key.offset, "a key of " + withArticle(kind.noun),
                  others.empty() ? std::string() : ", which belongs to " + others,
                  withArticle(kind.noun) + " may have the keys " + listKeys(kind)};
}

void Builder::refuse(Value value, std::string expected) const {
    throw Refusal{document_.offsetOf(value), std::move(expected), {}, {}};
}

}  // namespace readers::document
