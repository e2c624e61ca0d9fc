#include "Stereotypes.h"

using StereotypeHashtable = ZORMicrosoftSqlServerMdsMdcExportBridge::StereotypeHashtable;

namespace {

StereotypeHashtable::Key keyOf(const void* record) {
    const auto* stereotype = static_cast<const UMLStereotype*>(record);
    return {stereotype->object->getElementType(), &stereotype->name};
}

}  // namespace

void StereotypeHashtable::freeAll() noexcept {
    for (std::size_t i = 0; i < size(); ++i) {
        delete getStereotype(i);
    }
    clear();
}

/// The host's table asks its members' kind for it; this one only ever looks up keys.
int StereotypeHashtable::compare2Object(const void* object1, const void* object2) const {
    const Key key = keyOf(object2);
    return compare2Key(object1, &key);
}

int StereotypeHashtable::compare2Key(const void* object, const void* key) const {
    const Key own = keyOf(object);
    const Key& other = *static_cast<const Key*>(key);
    const int difference = own.elementType - other.elementType;
    return difference != 0 ? difference : own.name->view().compare(other.name->view());
}

std::uint32_t StereotypeHashtable::hashObject(const void* object) const {
    const Key key = keyOf(object);
    return hashKey(&key);
}

std::uint32_t StereotypeHashtable::hashKey(const void* key) const {
    const Key& wanted = *static_cast<const Key*>(key);
    return stringHashCode(wanted.name->view()) + static_cast<std::uint32_t>(wanted.elementType);
}
