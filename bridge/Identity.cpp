// Object identity and unique names.

#include "MicrosoftSqlServerMdsMdcExport.h"
#include "QLT_SQMDC.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

int Bridge::getUniqueID() {
    return nextId_++;
}

int* Bridge::getObjectUserData(ZORModelObject* object) const {
    auto* block = static_cast<int*>(object->getGeneralPointer());
    if (block == nullptr) {
        block = userData_.allocate();
        object->setGeneralPointer(block);
    }
    return block;
}

int Bridge::getXMLID(ZORModelObject* object, MDCSubjectArea area) {
    int& id = getObjectUserData(object)[area];
    if (id == 0) {
        id = getUniqueID();
    }
    return id;
}

void Bridge::setXMLID(ZORModelObject* object, MDCSubjectArea area, int id) {
    getObjectUserData(object)[area] = id;
}

unsigned char& Bridge::getDBMMark(ZORModelObject* object) const {
    return reinterpret_cast<unsigned char*>(getObjectUserData(object) + ObjectUserData::MARKS)[0];
}

unsigned char& Bridge::getERDMark(ZORModelObject* object) const {
    return reinterpret_cast<unsigned char*>(getObjectUserData(object) + ObjectUserData::MARKS)[1];
}

unsigned char& Bridge::getDomainVariants(ZORType* type) const {
    return *reinterpret_cast<unsigned char*>(getObjectUserData(type) + ObjectUserData::DOMAIN_VARIANTS);
}

unsigned char& Bridge::getColumnTraits(ZORType* type) const {
    return reinterpret_cast<unsigned char*>(getObjectUserData(type) + ObjectUserData::MARKS)[2];
}

void Bridge::releaseUserData(ZORModelObject* object) noexcept {
    if (object->getGeneralPointer() != nullptr) {
        object->setGeneralPointer(nullptr);
        userData_.release();
    }
}

ZORString* Bridge::getUniqueName(ZORStringHashtable& names, bool enabled, const char* kind,
                                 const ZORObject* object) {
    if (!enabled) {
        return nullptr;
    }
    auto name = std::make_unique<ZORString>(object->getName());
    if (names.add(name.get())) {
        name.release();
        return nullptr;
    }
    // Names never leave a table, so those that were taken the last time still are.
    int& counter = nameCounters_[names.find(*name)];
    do {
        *name = object->getName() + "/" + ZORString(++counter);
    } while (!names.add(name.get()));
    // The table has the name from here on, also when the log throws.
    ZORString* uniqueName = name.release();
    QLT_SQMDC::MDC_E_NAME_CLASH.log(*log_, kind, object->getName(), *uniqueName);
    return uniqueName;
}
