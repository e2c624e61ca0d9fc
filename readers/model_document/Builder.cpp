#include "Builder.h"

#include <simdjson.h>

#include <bit>
#include <cstring>
#include <deque>

#include "IdTable.h"
#include "References.h"
#include "Refusal.h"
#include "TextScanner.h"
#include "Wording.h"

namespace readers::document {

namespace {

namespace od = simdjson::ondemand;

constexpr std::uint64_t OBJECTS_PER_PROGRESS = 4096;
/// About how much text large documents spend on an object with an id and a reference. Room that is never used
/// costs nothing, and room that is missing is found later.
constexpr std::size_t BYTES_PER_OBJECT = 100;
/// Lists and objects in a value that is passed over.
constexpr std::size_t DEEPEST_IGNORED = 1000;

/// A text of the document. The characters stay until the next escaped text is read, or, without escapes, as
/// long as the document.
struct Text {
    std::string_view characters;
    std::uint32_t offset;  ///< of the opening quotation mark
    bool escaped;
};

/// An object of the document while it is being read.
struct Frame {
    const Kind* kind;
    ZORModelObject* object;
    od::object_iterator fields;
    std::uint32_t start;  ///< the object's offset
    std::uint32_t index;  ///< the object's index in its list
    bool hasBegun = false;
    bool hasSpecial = false;    ///< a part has been seen for which a field may be true only once
    std::size_t nextField = 0;  ///< which field is expected next, for a quick search
    std::uint64_t seen = 0;     ///< bit n: the n-th field was there
    References::Chain references;
    const Field* list = nullptr;  ///< the list of objects that is being read, and how far it is
    od::array_iterator elements;
    std::uint32_t elementCount = 0;
};

/// Walks through a document with a stack of its own and fills a model.
class Builder {
  public:
    Builder(std::string_view text, ReadContext& context) : text_(text), context_(context) {}

    std::unique_ptr<ZORModel> build();

  private:
    void readObjects();
    void readNext();
    void readField(od::field field);
    void readValue(const Field& row, od::value value);
    void readTexts(const Field& row, od::value value);
    void readReference(const Field& row, od::value value);
    void readReferences(const Field& row, od::value value);
    void readInteger(const Field& row, od::value value);
    void readBoolean(const Field& row, od::value value);
    void beginList(const Field& row, od::value value);
    void beginElement();
    void begin(const Kind& kind, ZORModelObject& object, od::object fields, std::size_t start,
               std::uint32_t index);
    void end();
    void setDefaults(const Frame& frame) const;
    void passOver(od::value value);

    const Kind& chooseKind(const FamilyKinds& family, od::object& object, std::size_t start);
    std::int32_t numberOf(const Field& row, const Text& word) const;
    const Field* findField(Frame& frame, std::string_view key) const noexcept;
    [[noreturn]] void refuseKey(const Frame& frame, const Text& key) const;
    [[noreturn]] void refuse(od::value value, std::string expected) const;
    void addId(const Text& id);

    Text readText(const Field& row, od::value value);
    Text textOf(od::raw_json_string raw);
    std::string_view keep(const Text& text);
    std::size_t offsetOf(od::value value) const;
    Frame& frame() noexcept { return frames_.back(); }

    std::string_view text_;
    ReadContext& context_;
    od::parser parser_;
    std::vector<Frame> frames_;
    std::unique_ptr<ZORModel> model_;
    IdTable ids_;
    References references_;
    std::string unescaped_;
    std::deque<std::string> kept_;  ///< ids that are written with escapes
    std::uint64_t objectCount_ = 0;
    int packageDepth_ = 0;
};

std::unique_ptr<ZORModel> Builder::build() {
    model_ = std::make_unique<ZORModel>();
    ids_.reserve(text_.size() / BYTES_PER_OBJECT);
    references_.reserve(text_.size() / BYTES_PER_OBJECT);
    readObjects();
    if (const IdTable::Duplicate duplicate = ids_.build(); duplicate.second != nullptr) {
        throw Refusal{duplicate.second->offset,
                      "an id of its own",
                      '"' + abbreviate(duplicate.second->id) + "\", the id of another object",
                      {},
                      duplicate.first->offset};
    }
    references_.tie(*model_, ids_, [this] { context_.progress(objectCount_); });
    context_.progress(objectCount_);
    return std::move(model_);
}

void Builder::readObjects() {
    od::document document = parser_.iterate(text_, text_.size() + TEXT_PADDING);
    od::object root;
    if (const simdjson::error_code error = document.get_object().get(root)) {
        if (error != simdjson::INCORRECT_TYPE) {
            throw simdjson::simdjson_error(error);
        }
        throw Refusal{text_.find_first_not_of(" \t\r\n"), "an object, the model document", {}, {}};
    }
    begin(kindsOf(Family::DOCUMENT).kinds[0], *model_, root, text_.find('{'), 0);
    while (!frames_.empty()) {
        readNext();
    }
    if (document.current_location().error() == simdjson::SUCCESS) {
        throw simdjson::simdjson_error(simdjson::TRAILING_CONTENT);
    }
}

/// Reads the innermost object a step further: by an element of its list, by a field, or to its end.
void Builder::readNext() {
    Frame& current = frame();
    if (current.list != nullptr) {
        beginElement();
        return;
    }
    if (current.hasBegun) {
        ++current.fields;
    }
    current.hasBegun = true;
    if (current.fields == od::object_iterator()) {
        end();
    } else {
        readField((*current.fields).take_value());
    }
}

void Builder::readField(od::field field) {
    const Text key = textOf(field.key());
    Frame& current = frame();
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
        throw Refusal{
            key.offset, "each key once", "the key \"" + std::string(row->key) + "\" a second time", {}};
    }
    current.seen |= bit;
    readValue(*row, field.value());
}

void Builder::readValue(const Field& row, od::value value) {
    switch (row.shape) {
        case Shape::KIND:
            numberOf(row, readText(row, value));  // what follows from it is done already
            break;
        case Shape::ID:
            addId(readText(row, value));
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

void Builder::readTexts(const Field& row, od::value value) {
    od::array items;
    if (value.get_array().get(items) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    for (od::value item : items) {
        const Text text = readText(row, item);
        if (row.shape == Shape::TEXTS) {
            row.setText(*frame().object, text.characters);
        } else {
            row.setNumber(*frame().object, numberOf(row, text));
        }
    }
}

void Builder::readReference(const Field& row, od::value value) {
    const Text id = readText(row, value);
    references_.add(frame().references, row, keep(id), id.offset);
}

void Builder::readReferences(const Field& row, od::value value) {
    od::array items;
    if (value.get_array().get(items) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    bool isEmpty = true;
    for (od::value item : items) {
        readReference(row, item);
        isEmpty = false;
    }
    if (row.nonEmpty && isEmpty) {
        throw Refusal{offsetOf(value), describeValue(row), "an empty list", {}};
    }
}

void Builder::readInteger(const Field& row, od::value value) {
    std::int64_t number = 0;
    if (value.get_int64().get(number) != simdjson::SUCCESS || number < row.lowest || number > row.highest) {
        refuse(value, describeValue(row));
    }
    row.setNumber(*frame().object, static_cast<std::int32_t>(number));
}

void Builder::readBoolean(const Field& row, od::value value) {
    bool flag = false;
    if (value.get_bool().get(flag) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    if (row.onceInList && flag) {
        Frame& owner = frames_[frames_.size() - 2];
        if (owner.hasSpecial) {
            throw Refusal{offsetOf(value),
                          "at most one " + std::string(row.key) + " key in a class",
                          "a second " + std::string(row.key) + " key",
                          {}};
        }
        owner.hasSpecial = true;
    }
    row.setNumber(*frame().object, flag ? 1 : 0);
}

void Builder::beginList(const Field& row, od::value value) {
    Frame& current = frame();
    if (row.shape == Shape::OBJECT) {
        od::object object;
        if (value.get_object().get(object) != simdjson::SUCCESS) {
            refuse(value, describeValue(row));
        }
        begin(kindsOf(row.family).kinds.front(), *current.object, object, offsetOf(value), 0);
        return;
    }
    od::array items;
    if (value.get_array().get(items) != simdjson::SUCCESS) {
        refuse(value, describeValue(row));
    }
    current.list = &row;
    current.elements = items.begin().value();
    current.elementCount = 0;
}

/// Goes to the next element of the list of objects that is being read, or leaves the list.
void Builder::beginElement() {
    Frame& current = frame();
    if (current.elementCount > 0) {
        ++current.elements;
    }
    if (current.elements == od::array_iterator()) {
        current.list = nullptr;
        return;
    }
    const Field& row = *current.list;
    od::value element = (*current.elements).value();
    od::object fields;
    if (element.get_object().get(fields) != simdjson::SUCCESS) {
        refuse(element, describeItem(row));
    }
    const Kind& kind = chooseKind(kindsOf(row.family), fields, offsetOf(element));
    std::unique_ptr<ZORModelObject> part = kind.make();
    ZORModelObject& object = *part;
    row.add(*current.object, std::move(part));
    begin(kind, object, fields, offsetOf(element), current.elementCount++);
}

void Builder::begin(const Kind& kind, ZORModelObject& object, od::object fields, std::size_t start,
                    std::uint32_t index) {
    if (kind.elementType == ZOR_DESIGN_PACKAGE && ++packageDepth_ > DEEPEST_NESTING) {
        const std::string most = std::to_string(DEEPEST_NESTING);
        throw Refusal{
            start, "at most " + most + " levels", "packages nested deeper than " + most + " levels", {}};
    }
    if (++objectCount_ % OBJECTS_PER_PROGRESS == 0) {
        context_.progress(objectCount_);
    }
    Frame& begun = frames_.emplace_back();
    begun.kind = &kind;
    begun.object = &object;
    begun.fields = fields.begin().value();
    begun.start = static_cast<std::uint32_t>(start);
    begun.index = index;
}

void Builder::end() {
    const Frame& ended = frame();
    const std::uint64_t missing = ended.kind->requiredFields & ~ended.seen;
    if (missing != 0) {
        const Field& row = ended.kind->fields[static_cast<std::size_t>(std::countr_zero(missing))];
        throw Refusal{ended.start,
                      describeValue(row),
                      "no \"" + std::string(row.key) + "\" in this " + std::string(ended.kind->noun),
                      {}};
    }
    setDefaults(ended);
    References::attach(*ended.object, ended.references);
    packageDepth_ -= ended.kind->elementType == ZOR_DESIGN_PACKAGE ? 1 : 0;
    frames_.pop_back();
}

void Builder::setDefaults(const Frame& frame) const {
    const std::size_t place = frame.kind->indexField;
    if (place == Kind::NO_FIELD || (frame.seen >> place & 1) != 0) {
        return;
    }
    const Field& row = frame.kind->fields[place];
    const auto index = static_cast<std::int64_t>(frame.index);
    if (index > row.highest) {
        throw Refusal{frame.start,
                      describeValue(row) + " as \"" + std::string(row.key) + "\"",
                      withArticle(frame.kind->noun) + " behind " + std::to_string(index) + " others",
                      {}};
    }
    row.setNumber(*frame.object, static_cast<std::int32_t>(index));
}

/// Passes over a value whose key means nothing here; it must be JSON all the same.
void Builder::passOver(od::value value) {
    try {
        TextScanner(text_, offsetOf(value), DEEPEST_IGNORED).scanValue();
    } catch (const SyntaxFault& fault) {
        throw Refusal{fault.offset, fault.expected, fault.found, {}};
    }
}

/// An object's kind decides what its keys mean, wherever among them it stands.
const Kind& Builder::chooseKind(const FamilyKinds& family, od::object& object, std::size_t start) {
    if (family.kinds.size() == 1) {
        return family.kinds.front();
    }
    const Field& row = family.kinds.front().fields.front();
    std::size_t chosen = 0;
    bool isFound = false;
    for (od::field field : object) {
        if (textOf(field.key()).characters == row.key) {
            chosen = static_cast<std::size_t>(numberOf(row, readText(row, field.value())));
            isFound = true;
            break;
        }
    }
    if (!isFound && family.kindRequired) {
        throw Refusal{start, describeValue(row), "no \"kind\" in this object", {}};
    }
    object.reset().value();
    return family.kinds[chosen];
}

std::int32_t Builder::numberOf(const Field& row, const Text& word) const {
    for (const Word& known : row.words) {
        if (known.text == word.characters) {
            return known.number;
        }
    }
    throw Refusal{word.offset, describeItem(row), {}, {}};
}

/// Documents mostly have their keys in one order: the search starts behind the last key found.
const Field* Builder::findField(Frame& frame, std::string_view key) const noexcept {
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

void Builder::refuseKey(const Frame& frame, const Text& key) const {
    const Kind& kind = *frame.kind;
    const std::string others = listKindsWith(familyOf(kind), key.characters);
    const std::string quoted = '"' + abbreviate(key.characters) + '"';
    throw Refusal{key.offset, "a key of " + withArticle(kind.noun),
                  others.empty() ? std::string() : "the key " + quoted + ", which belongs to " + others,
                  withArticle(kind.noun) + " may have the keys " + listKeys(kind)};
}

void Builder::refuse(od::value value, std::string expected) const {
    throw Refusal{offsetOf(value), std::move(expected), {}, {}};
}

void Builder::addId(const Text& id) {
    if (!id.characters.empty()) {
        ids_.add(keep(id), frame().object, id.offset);
    }
}

Text Builder::readText(const Field& row, od::value value) {
    od::raw_json_string raw;
    if (value.get_raw_json_string().get(raw) != simdjson::SUCCESS) {
        refuse(value, describeItem(row));
    }
    return textOf(raw);
}

Text Builder::textOf(od::raw_json_string raw) {
    const char* const begin = raw.raw();
    const char* const textEnd = text_.data() + text_.size();
    const auto offset = static_cast<std::uint32_t>(begin - text_.data() - 1);
    const auto* quote =
        static_cast<const char*>(std::memchr(begin, '"', static_cast<std::size_t>(textEnd - begin)));
    if (quote == nullptr) {
        throw simdjson::simdjson_error(simdjson::UNCLOSED_STRING);
    }
    const std::string_view characters(begin, static_cast<std::size_t>(quote - begin));
    if (characters.find('\\') == std::string_view::npos) {
        return {characters, offset, false};
    }
    const char* end = begin;
    while (end < textEnd && *end != '"') {
        end += *end == '\\' ? 2 : 1;
    }
    unescaped_.resize(static_cast<std::size_t>(end - begin) + TEXT_PADDING);
    auto* target = reinterpret_cast<std::uint8_t*>(unescaped_.data());
    return {parser_.unescape(raw, target).value(), offset, true};
}

/// The text's characters, to stay as long as the builder.
std::string_view Builder::keep(const Text& text) {
    return text.escaped ? kept_.emplace_back(text.characters) : text.characters;
}

std::size_t Builder::offsetOf(od::value value) const {
    return static_cast<std::size_t>(value.raw_json_token().data() - text_.data());
}

}  // namespace

const std::size_t TEXT_PADDING = simdjson::SIMDJSON_PADDING;

std::unique_ptr<ZORModel> buildModel(std::string_view text, ReadContext& context) {
    try {
        return Builder(text, context).build();
    } catch (const Refusal& refusal) {
        throw explain(text, refusal);
    } catch (const simdjson::simdjson_error& error) {
        throw explainSyntax(text, error.what());
    }
}

}  // namespace readers::document
