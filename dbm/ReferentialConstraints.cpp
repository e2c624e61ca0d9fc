// Relationships as referential constraints, and the filters that decide which foreign keys there are.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableDBMAssociation(ZORAssociation* association) const {
    unsigned char& mark = getDBMMark(association);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    const ZORVector<ZORAssociationRole*>& roles = association->getRoles();
    if (!isExportableDBMModelObject(association)) {
        return false;
    }
    if (roles.size() != 2) {
        return leaveOut(association, DBM, "it does not have exactly two roles");
    }
    for (ZORAssociationRole* role : roles) {
        if (!isExportableDBMAssociationRole(role)) {
            return leaveOutWith(association, DBM, nullptr, role);
        }
    }
    if (roles[0]->getForeignKey() == nullptr && roles[1]->getForeignKey() == nullptr) {
        return leaveOut(association, DBM, "no foreign key stands behind it");
    }
    mark = MARK_EXPORTABLE;
    return true;
}

bool Bridge::isExportableDBMAssociationRole(ZORAssociationRole* role) const {
    unsigned char& mark = getDBMMark(role);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    ZORForeignKey* key = role->getForeignKey();
    if (!isExportableDBMModelObject(role->getAssociatedClass())) {
        return leaveOutWith(role, DBM, "its table \"{0}\" is left out", role->getAssociatedClass());
    }
    if (key != nullptr && !isExportableDBMForeignKey(key)) {
        return leaveOutWith(role, DBM, "its foreign key \"{0}\" is left out", key);
    }
    mark = MARK_EXPORTABLE;
    return true;
}

bool Bridge::isExportableDBMForeignKey(ZORForeignKey* key) const {
    unsigned char& mark = getDBMMark(key);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    if (!isExportableDBMModelObject(key)) {
        return false;
    }
    if (key->getCandidateKey() == nullptr) {
        return leaveOut(key, DBM, "it references no unique key");
    }
    for (const ZORAttribute* column : key->getAttributes()) {
        const ZORAttribute* counterpart = getCounterpart(key, column);
        const bool isPhysical = isExportableDBMModelObject(column);
        if (counterpart == nullptr) {
            mark = MARK_NOT_EXPORTABLE;
            return leaveOut(key, DBM, "its column \"{0}\" has no counterpart in the referenced table",
                            column);
        }
        if (isPhysical != isExportableDBMModelObject(counterpart)) {
            mark = MARK_NOT_EXPORTABLE;
            return leaveOut(
                key, DBM, "only one of its column \"{0}\" and the referenced one is in the database", column);
        }
        if (isPhysical) {
            mark = MARK_EXPORTABLE;
        }
    }
    return mark == MARK_EXPORTABLE || leaveOut(key, DBM, "none of its columns is in the database");
}

void Bridge::printDBMAssociation(ZORAssociation* association) {
    ZORAssociationRole* foreignKeyRole = association->getRoles()[0];
    ZORAssociationRole* uniqueKeyRole = association->getRoles()[1];
    if (foreignKeyRole->getForeignKey() == nullptr) {
        std::swap(foreignKeyRole, uniqueKeyRole);
    }
    ZORForeignKey* foreignKey = foreignKeyRole->getForeignKey();
    startTag("dbm:ReferentialConstraint"_z, association, DBM, true);
    closeTag(false);
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM && isExportableERDAssociation(association)) {
        printTraceability("erd:Relationship", association, ERD);
    }
    startTag("dbm:ReferentialConstraintUniqueKeyRole"_z, false);
    printDBMAssociationRole(uniqueKeyRole, foreignKey->getCandidateKey());
    endTag("dbm:ReferentialConstraintUniqueKeyRole"_z);
    startTag("dbm:ReferentialConstraintForeignKeyRole"_z, false);
    printDBMAssociationRole(foreignKeyRole, foreignKey);
    endTag("dbm:ReferentialConstraintForeignKeyRole"_z);
    endTag("dbm:ReferentialConstraint"_z);
}

void Bridge::printDBMAssociationRole(ZORAssociationRole* role, ZORKey* key) {
    const bool isForeignKey = key->getElementType() == ZOR_FOREIGN_KEY;
    const ZORString& tag = isForeignKey ? "dbm:ForeignKeyRole"_z : "dbm:UniqueKeyRole"_z;
    const ZORString& keyCollection =
        isForeignKey ? "dbm:ForeignKeyRoleForeignKey"_z : "dbm:UniqueKeyRoleUniqueKey"_z;
    startTag(tag, role, DBM, false);
    propertyAttribute("DeleteRule"_z, getXMLRule(role->getDeleteRule()));
    propertyAttribute("UpdateRule"_z, getXMLRule(role->getUpdateRule()));
    closeTag(false);
    startTag("dbm:JoinRoleColumnSet"_z, false);
    linkTag("dbm:LogicalTable"_z, role->getAssociatedClass(), DBM);
    endTag("dbm:JoinRoleColumnSet"_z);
    // The key is referred to whether or not it is in the document itself.
    startTag(keyCollection, false);
    linkTag(isForeignKey ? "dbm:ForeignKey"_z : "dbm:UniqueKey"_z, key, DBM);
    endTag(keyCollection);
    endTag(tag);
}
