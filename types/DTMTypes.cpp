#include "DTMTypes.h"

#include <cstring>
#include <memory>

namespace {

const DTMTypeMap* rowOf(const void* member) noexcept {
    return static_cast<const DTMTypeHashtable::Member*>(member)->row;
}

}  // namespace

DTMTypeHashtable::~DTMTypeHashtable() {
    for (std::size_t i = 0; i < size(); ++i) {
        delete static_cast<Member*>((*this)[i]);
    }
}

const DTMTypeHashtable::Member& DTMTypeHashtable::addType(const DTMTypeMap* row, int id) {
    auto member = std::make_unique<Member>(Member{row, id});
    add(member.get());
    return *member.release();
}

/// The host's table asks its members' kind for it; this one only ever looks up rows.
int DTMTypeHashtable::compare2Object(const void* object1, const void* object2) const {
    return compare2Key(object1, rowOf(object2));
}

int DTMTypeHashtable::compare2Key(const void* object, const void* key) const {
    return std::strcmp(rowOf(object)->getTypeName(), static_cast<const DTMTypeMap*>(key)->getTypeName());
}

std::uint32_t DTMTypeHashtable::hashObject(const void* object) const {
    return hashKey(rowOf(object));
}

std::uint32_t DTMTypeHashtable::hashKey(const void* key) const {
    return stringHashCode(static_cast<const DTMTypeMap*>(key)->getTypeName());
}
