#include "ObjectIds.h"

#include <stdexcept>

#include "Utf8.h"

namespace readers::document {

namespace {

/// Of longer names, only the beginning goes into an id.
constexpr std::size_t LONGEST_NAME = 80;
/// Longer ids consist of the object's own name: those of deeply nested packages would take the square of the
/// depth.
constexpr std::size_t LONGEST_ID = 200;

std::string_view shorten(std::string_view name) {
    if (name.size() <= LONGEST_NAME) {
        return name;
    }
    std::size_t end = LONGEST_NAME;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return name.substr(0, end);
}

std::string pathOf(const Kind& kind, const ZORModelObject& object, const std::string& ownerPath) {
    if (kind.elementType == ZOR_MODEL) {
        return {};
    }
    const std::string_view name = object.getDisplayName().view();
    const std::string whole = toWellFormed(name.empty() ? kind.noun : name);
    const std::string own(shorten(whole));
    const bool isShort = ownerPath.size() + own.size() < LONGEST_ID;
    return ownerPath.empty() || !isShort ? own : ownerPath + "." + own;
}

/// Calls `visit(kind, part)` for every part of the object, in document order.
template <typename Visit>
void forEachPart(const Kind& kind, const ZORModelObject& object, const Visit& visit) {
    for (const Field& field : kind.fields) {
        if (field.shape != Shape::OBJECT && field.shape != Shape::OBJECTS) {
            continue;
        }
        for (std::size_t i = 0; i < field.count(object); ++i) {
            const ZORObject& part = *field.getObject(object, i);
            visit(kindOf(field.family, part), static_cast<const ZORModelObject&>(part));
        }
    }
}

}  // namespace

const Kind& kindOf(Family family, const ZORObject& object) {
    for (const Kind& kind : kindsOf(family).kinds) {
        if (kind.elementType == object.getElementType()) {
            return kind;
        }
    }
    throw std::invalid_argument("an object of a class that model documents do not know");
}

bool mayReferTo(const Field& field, const ZORObject& object) {
    return object.isInstanceOf(field.target->type);
}

ObjectIds::ObjectIds(const ZORModel& model) {
    const Kind& kind = kindsOf(Family::MODEL).kinds.front();
    collect(kind, model);
    assign(kind, model, {});
}

std::string_view ObjectIds::find(const ZORObject& object) const noexcept {
    const auto found = ids_.find(&object);
    return found == ids_.end() ? std::string_view() : std::string_view(found->second);
}

/// Finds out what is referred to.
void ObjectIds::collect(const Kind& kind, const ZORModelObject& object) {
    for (const Field& field : kind.fields) {
        if (field.shape == Shape::REFERENCE || field.shape == Shape::REFERENCES) {
            for (std::size_t i = 0; i < field.count(object); ++i) {
                const ZORObject* target = field.getObject(object, i);
                if (mayReferTo(field, *target)) {
                    ids_.try_emplace(target);
                }
            }
        }
    }
    forEachPart(kind, object,
                [&](const Kind& partKind, const ZORModelObject& part) { collect(partKind, part); });
}

void ObjectIds::assign(const Kind& kind, const ZORModelObject& object, const std::string& path) {
    if (const auto wanted = ids_.find(&object); wanted != ids_.end()) {
        wanted->second = makeUnique(path.empty() ? std::string(kind.noun) : path);
    }
    forEachPart(kind, object, [&](const Kind& partKind, const ZORModelObject& part) {
        assign(partKind, part, pathOf(partKind, part, path));
    });
}

std::string ObjectIds::makeUnique(std::string id) {
    const int number = ++taken_[id];
    if (number == 1) {
        return id;
    }
    // Another object may be called just so.
    return makeUnique(id + "~" + std::to_string(number));
}

}  // namespace readers::document
