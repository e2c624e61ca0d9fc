// Tables, and the order of what stands in one.

#include "LazyCollection.h"
#include "LeavingReasons.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableDBMClass(ZORClass* cls) const {
    unsigned char& mark = getDBMMark(cls);
    if (mark == MARK_UNDECIDED) {
        const bool isTable = cls->getClassType() == 0 || cls->getClassType() == 1;
        const bool exportable = isExportableDBMModelObject(cls) &&
                                (isTable || leaveOut(cls, DBM, "a class of its type is no table"));
        mark = exportable ? MARK_EXPORTABLE : MARK_NOT_EXPORTABLE;
    }
    return mark == MARK_EXPORTABLE;
}

bool Bridge::isExportableDBMTableForeignKey(ZORKey* key) const {
    if (key->getElementType() != ZOR_FOREIGN_KEY) {
        return false;
    }
    const auto* foreignKey = static_cast<const ZORForeignKey*>(key);
    const ZORAssociationRole* role = foreignKey->getAssociationRole();
    if (role == nullptr) {
        return leaveOut(key, DBM, "it belongs to no relationship");
    }
    return isExportableDBMAssociation(role->getAssociation()) ||
           leaveOutWith(key, DBM, describeRelationshipOf(*foreignKey), role->getAssociation());
}

void Bridge::printDBMClass(ZORClass* cls) {
    startTag("dbm:LogicalTable"_z, cls, DBM, true);
    if (cls->getEstimatedSize() != 0) {
        propertyAttribute("EstimatedSize"_z, cls->getEstimatedSize());
    }
    closeTag(false);
    printDBMTableColumns(cls);
    printDBMTableKeys(cls);
    printDBMTableTriggers(cls);
    printDBMTableIndexes(cls);
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM && isExportableERDModelObject(cls)) {
        printTraceability("erd:Entity", cls, ERD);
    }
    endTag("dbm:LogicalTable"_z);
}

void Bridge::printDBMTableColumns(ZORClass* cls) {
    LazyCollection columns(*this, "dbm:ColumnSetColumns"_z);
    for (ZORAttribute* attribute : getAttributeByPosition(*cls)) {
        if (isExportableDBMModelObject(attribute)) {
            columns.open();
            printDBMAttribute(attribute, nullptr);
        }
    }
    columns.close();
}

void Bridge::printDBMTableKeys(ZORClass* cls) {
    LazyCollection uniqueKeys(*this, "dbm:TableUniqueKeys"_z);
    for (ZORKey* key : cls->getKeys()) {
        if (key->getElementType() == ZOR_CANDIDATE_KEY &&
            isExportableDBMCandidateKey(static_cast<ZORCandidateKey*>(key))) {
            uniqueKeys.open();
            printDBMKey(key);
        }
    }
    uniqueKeys.close();
    LazyCollection foreignKeys(*this, "dbm:TableForeignKeys"_z);
    for (ZORKey* key : cls->getKeys()) {
        if (isExportableDBMTableForeignKey(key)) {
            foreignKeys.open();
            printDBMKey(key);
        }
    }
    foreignKeys.close();
}

void Bridge::printDBMTableTriggers(ZORClass* cls) {
    LazyCollection triggers(*this, "dbm:TableTriggers"_z);
    for (ZOROperation* operation : cls->getOperations()) {
        if (operation->getElementType() == ZOR_TRIGGER && isExportableDBMModelObject(operation)) {
            triggers.open();
            printDBMTrigger(static_cast<ZORTrigger*>(operation));
        }
    }
    triggers.close();
}

void Bridge::printDBMTableIndexes(ZORClass* cls) {
    LazyCollection indexes(*this, "dbm:TableIndices"_z);
    for (ZORIndex* index : cls->getIndexes()) {
        if (isExportableDBMIndex(index)) {
            indexes.open();
            printDBMIndex(index);
        }
    }
    indexes.close();
}
