#include "Builder.h"

#include <bit>

#include "Refusal.h"
#include "Wording.h"

namespace readers::document {

namespace {

namespace od = simdjson::ondemand;

constexpr std::uint64_t OBJECTS_PER_PROGRESS = 4096;
/// About how much text large documents spend on an object with an id and a reference. Room that is never used
/// costs nothing, and room that is missing is found later.
constexpr std::size_t BYTES_PER_OBJECT = 100;

}  // namespace

std::unique_ptr<ZORModel> Builder::build() {
    model_ = std::make_unique<ZORModel>();
    ids_.reserve(document_.view().size() / BYTES_PER_OBJECT);
    references_.reserve(document_.view().size() / BYTES_PER_OBJECT);
    readDocument();
    refuseDuplicateIds();
    references_.tie(*model_, ids_, [this] { context_.progress(objectCount_); });
    context_.progress(objectCount_);
    return std::move(model_);
}

void Builder::readDocument() {
    od::document document = document_.iterate();
    Object root;
    if (const simdjson::error_code error = document.get_object().get(root)) {
        if (error != simdjson::INCORRECT_TYPE) {
            throw simdjson::simdjson_error(error);
        }
        throw Refusal{document_.view().find_first_not_of(" \t\r\n"), "an object, the model document", {}, {}};
    }
    beginObject(kindsOf(Family::DOCUMENT).kinds.front(), *model_, root, document_.view().find('{'), 0);
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
        endObject();
    } else {
        readField((*current.fields).take_value());
    }
}

/// Begins what stands behind a key: an object, or a list of objects.
void Builder::beginList(const Field& row, Value value) {
    Frame& current = frame();
    if (row.shape == Shape::OBJECT) {
        Object fields;
        if (value.get_object().get(fields) != simdjson::SUCCESS) {
            refuse(value, describeValue(row));
        }
        beginObject(kindsOf(row.family).kinds.front(), *current.object, fields, document_.offsetOf(value), 0);
        return;
    }
    current.list = &row;
    current.elements = readList(row, value).begin().value();
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
    Value element = (*current.elements).value();
    Object fields;
    if (element.get_object().get(fields) != simdjson::SUCCESS) {
        refuse(element, describeItem(row));
    }
    const std::size_t start = document_.offsetOf(element);
    const Kind& kind = chooseKind(kindsOf(row.family), fields, start);
    std::unique_ptr<ZORModelObject> part = kind.make();
    ZORModelObject& object = *part;
    row.add(*current.object, std::move(part));
    beginObject(kind, object, fields, start, current.elementCount++);
}

void Builder::beginObject(const Kind& kind, ZORModelObject& object, Object fields, std::size_t start,
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

void Builder::endObject() {
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
                      describeValue(row) + " as its \"" + std::string(row.key) + "\"",
                      withArticle(frame.kind->noun) + " behind " + std::to_string(index) + " others",
                      {}};
    }
    row.setNumber(*frame.object, static_cast<std::int32_t>(index));
}

/// An object's kind decides what its keys mean, wherever among them it stands.
const Kind& Builder::chooseKind(const FamilyKinds& family, Object& object, std::size_t start) {
    if (family.kinds.size() == 1) {
        return family.kinds.front();
    }
    const Field& row = family.kinds.front().fields.front();
    std::size_t chosen = 0;
    bool isFound = false;
    for (od::field field : object) {
        if (document_.read(field.key()).characters == row.key) {
            chosen = static_cast<std::size_t>(numberOf(row, readText(row, field.value())));
            isFound = true;
            break;
        }
    }
    if (!isFound && family.kindRequired) {
        throw Refusal{start, describeValue(row), "no \"" + std::string(row.key) + "\" in this object", {}};
    }
    object.reset().value();
    return family.kinds[chosen];
}

void Builder::refuseDuplicateIds() {
    const IdTable::Duplicate duplicate = ids_.build();
    if (duplicate.second != nullptr) {
        throw Refusal{duplicate.second->offset,
                      "an id of its own",
                      ", the id of another object",
                      {},
                      duplicate.first->offset};
    }
}

}  // namespace readers::document
