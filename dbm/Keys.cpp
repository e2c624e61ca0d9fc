// Unique keys, foreign keys and indexes of a table.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableDBMCandidateKey(ZORCandidateKey* key) const {
    unsigned char& mark = getDBMMark(key);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    // A primary key that is not marked unique is left out as well.
    if (!isExportableDBMModelObject(key)) {
        return false;
    }
    if (!key->isUnique()) {
        return leaveOut(key, DBM, "it is not marked unique");
    }
    for (const ZORAttribute* column : key->getAttributes()) {
        if (isExportableDBMModelObject(column)) {
            mark = MARK_EXPORTABLE;
            break;
        }
    }
    return mark == MARK_EXPORTABLE || leaveOut(key, DBM, "none of its columns is in the database");
}

bool Bridge::isExportableDBMIndex(ZORIndex* index) const {
    unsigned char& mark = getDBMMark(index);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    if (!isExportableDBMModelObject(index)) {
        return false;
    }
    for (const ZORIndexMember* member : index->getIndexMembers()) {
        if (isExportableDBMModelObject(member->getAttribute())) {
            mark = MARK_EXPORTABLE;
            break;
        }
    }
    return mark == MARK_EXPORTABLE || leaveOut(index, DBM, "none of its columns is in the database");
}

void Bridge::printDBMKey(ZORKey* key) {
    const bool isForeignKey = key->getElementType() == ZOR_FOREIGN_KEY;
    const ZORString& tag = isForeignKey ? "dbm:ForeignKey"_z : "dbm:UniqueKey"_z;
    startTag(tag, key, DBM, true);
    if (!isForeignKey) {
        const bool isPrimary = static_cast<ZORCandidateKey*>(key)->getPrimaryOfClass() != nullptr;
        propertyAttribute("IsPrimary"_z, isPrimary, false);
    }
    closeTag(false);
    startTag("dbm:KeyColumns"_z, false);
    printKeyAttributes(key, "dbm:LogicalColumn", DBM);
    endTag("dbm:KeyColumns"_z);
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM && isExportableERDKey(key)) {
        printTraceability("erd:Key", key, ERD);
    }
    endTag(tag);
}

void Bridge::printDBMIndex(ZORIndex* index) {
    startTag("dbm:LogicalIndex"_z, index, DBM, true);
    propertyAttribute("IsClustered"_z, index->isClustered(), false);
    propertyAttribute("IsUnique"_z, index->isUnique(), false);
    closeTag(false);
    startTag("dbm:IndexIndexColumns"_z, false);
    for (ZORIndexMember* member : getIndexMemberByPosition(*index)) {
        if (isExportableDBMModelObject(member->getAttribute())) {
            printDBMIndexMember(member);
        } else {
            leaveOutWith(member, DBM, "its column \"{0}\" is left out", member->getAttribute());
        }
    }
    endTag("dbm:IndexIndexColumns"_z);
    ZORKey* key = index->getKey();
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM && key != nullptr && isExportableERDKey(key)) {
        printTraceability("erd:Key", key, ERD);
    }
    endTag("dbm:LogicalIndex"_z);
}

void Bridge::printDBMIndexMember(ZORIndexMember* member) {
    startTag("dbm:IndexColumn"_z, member, DBM, false);
    if (member->getSortOrder() != ZOR_SORT_NONE) {
        propertyAttribute("IsAscending"_z, member->getSortOrder() == ZOR_SORT_ASCENDING, true);
    }
    closeTag(false);
    startTag("dbm:IndexColumnColumn"_z, false);
    linkTag("dbm:LogicalColumn"_z, member->getAttribute(), DBM);
    endTag("dbm:IndexColumnColumn"_z);
    endTag("dbm:IndexColumn"_z);
}
