// Type resolution and type-set output.

#include <cstring>
#include <string>

#include "MicrosoftSqlServerMdsMdcExport.h"

namespace {

/// Every source key has at least as many characters; comparing so many at once passes over most rows.
constexpr std::size_t SHORTEST_KEY = std::char_traits<char>::length("SQL_CHAR");

bool hasKey(const DTMTypeMap& row, const ZORString& key) noexcept {
    return !key.isEmpty() && std::memcmp(row.sourceKey, key.c_str(), SHORTEST_KEY) == 0 &&
           std::strcmp(row.sourceKey, key.c_str()) == 0;
}

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

const DTMTypeMap* Bridge::getDTMTypeMap(const ZORType* type, const DTMTypeMap* table) {
    const int sized = type->getLength() != 0 || type->getScale() != 0 ? 1 : 0;
    const ZORString& key = getOldDataType(type->getDataType());
    const DTMTypeMap* row = table;
    while (row->sourceKey != nullptr &&
           !(hasKey(*row, key) && (row->sizeSelector == -1 || row->sizeSelector == sized))) {
        ++row;
    }
    return row;
}

int Bridge::getDTMTypeID(MDCTypeSet& set, MDCSubjectArea area, ZORType* type) {
    if (area != ERD) {
        tellWritten(type, "dbm:ColumnType"_z);
        const auto* block = static_cast<const int*>(type->getGeneralPointer());
        if (block != nullptr && block[area] != 0) {
            return block[area];
        }
    }
    const DTMTypeMap* row = getDTMTypeMap(type, set.typeTable);
    const DTMTypeHashtable::Member* known = set.types.findType(row);
    const int id = known != nullptr ? known->id : set.types.addType(row, getUniqueID()).id;
    // Kept with the type, so that its next column finds it at once. A type's own identifier in the ERD area
    // is that of its domain.
    if (area != ERD) {
        setXMLID(type, area, id);
    }
    return id;
}

int Bridge::getERDTypeID(ZORType* type, int variant) {
    int& id = getObjectUserData(type)[ERD];
    if (id == 0) {
        id = getUniqueID();
        getUniqueID();  // the not-null domain's
    }
    unsigned char& variants = getDomainVariants(type);
    variants = static_cast<unsigned char>(variants | variant);
    const bool notNull = variant == 2 || (variant == 0 && variants == 2);
    return notNull ? id + 1 : id;
}

int Bridge::getDBMTypeCategory(const ZORType* type) {
    return *getDTMTypeMap(type, DTM_CATEGORY_TABLE)->typeName - '0';
}

void Bridge::printDTMType(const char* tag, const DTMTypeMap* row, int id) {
    startTag(tag, nullptr, id, false, true);
    propertyAttribute("name"_z, row->getTypeName());
    closeTag(true);
}

void Bridge::printDTMTypeSet(const char* setTag, const char* collectionTag, const char* memberTag,
                             const MDCTypeSet& set) {
    if (set.typeTable == nullptr) {
        return;
    }
    startTag(setTag, nullptr, 0, false, true);
    propertyAttribute("name"_z, set.name, false);
    propertyAttribute("version"_z, set.version, false);
    closeTag(false);
    startTag(collectionTag, false);
    for (std::size_t i = 0; i < set.types.size(); ++i) {
        const DTMTypeHashtable::Member& member = set.types.getType(i);
        printDTMType(memberTag, member.row, member.id);
    }
    endTag(collectionTag);
    endTag(setTag);
}
