// Relationships with their parent and child roles, generalizations among them in the form that preprocessing
// gave them.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

namespace {

/// "5" a generalization, "1" an association that stands for one, "3" many-to-many, "2" any other.
const char* getRelationshipType(const ZORAssociation* association, const ZORAssociationRole* parent,
                                const ZORAssociationRole* child) {
    if (association->getElementType() == ZOR_OBJECT) {
        return "5";
    }
    if (association->getAssociationKind() == 1) {
        return "1";
    }
    int lower = 0;
    int childUpper = 0;
    int parentUpper = 0;
    decodeMultiplicity(child->getMultiplicity(), lower, childUpper);
    decodeMultiplicity(parent->getMultiplicity(), lower, parentUpper);
    return childUpper > 1 && parentUpper >= 2 ? "3" : "2";
}

}  // namespace

bool Bridge::isExportableERDAssociation(ZORAssociation* association) const {
    unsigned char& mark = getERDMark(association);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    const ZORVector<ZORAssociationRole*>& roles = association->getRoles();
    if (!isExportableERDModelObject(association)) {
        return false;
    }
    if (roles.size() != 2) {
        return leaveOut(association, ERD, "it does not have exactly two roles");
    }
    for (ZORAssociationRole* role : roles) {
        if (!isExportableERDAssociationRole(role)) {
            return leaveOutWith(association, ERD, nullptr, role);
        }
    }
    if (roles[0]->getForeignKey() == nullptr && roles[1]->getForeignKey() == nullptr) {
        return leaveOut(association, ERD, "no foreign key stands behind it");
    }
    mark = MARK_EXPORTABLE;
    return true;
}

bool Bridge::isExportableERDAssociationRole(ZORAssociationRole* role) const {
    unsigned char& mark = getERDMark(role);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    ZORForeignKey* key = role->getForeignKey();
    if (!isExportableERDModelObject(role->getAssociatedClass())) {
        return leaveOutWith(role, ERD, "its class \"{0}\" is left out", role->getAssociatedClass());
    }
    if (key != nullptr && !isExportableERDForeignKey(key)) {
        return leaveOutWith(role, ERD, "its foreign key \"{0}\" is left out", key);
    }
    mark = MARK_EXPORTABLE;
    return true;
}

bool Bridge::isExportableERDGeneralization(ZORGeneralization* generalization) const {
    unsigned char& mark = getERDMark(generalization);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    if (!isExportableERDModelObject(generalization) || generalization->getParents().size() != 1 ||
        !isExportableERDModelObject(generalization->getParents()[0])) {
        return false;
    }
    mark = MARK_EXPORTABLE;
    for (const ZORClass* child : generalization->getChildren()) {
        if (!isExportableERDModelObject(child)) {
            mark = MARK_NOT_EXPORTABLE;
        }
    }
    return mark == MARK_EXPORTABLE;
}

void Bridge::printERDPackageAssociations(ZORDesignPackage* package) {
    for (ZORModelElement* element : package->getModelElements()) {
        if (isAnyAssociation(element) && isExportableERDAssociation(static_cast<ZORAssociation*>(element))) {
            printERDAssociation(static_cast<ZORAssociation*>(element));
        }
    }
    for (ZORPackage* child : package->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printERDPackageAssociations(static_cast<ZORDesignPackage*>(child));
        }
    }
}

void Bridge::printERDAssociation(ZORAssociation* association) {
    ZORAssociationRole* child = association->getRoles()[0];
    ZORAssociationRole* parent = association->getRoles()[1];
    if (child->getForeignKey() == nullptr) {
        std::swap(child, parent);
    }
    ZORForeignKey* childKey = child->getForeignKey();
    startTag("erd:Relationship"_z, association, ERD, true);
    propertyAttribute("RelationshipType"_z, getRelationshipType(association, parent, child));
    closeTag(false);
    startTag("erd:RelationshipParentRole"_z, false);
    printERDAssociationRole(parent, childKey->getCandidateKey(), true);
    endTag("erd:RelationshipParentRole"_z);
    startTag("erd:RelationshipChildRole"_z, false);
    printERDAssociationRole(child, childKey, false);
    endTag("erd:RelationshipChildRole"_z);
    endTag("erd:Relationship"_z);
}

void Bridge::printERDAssociationRole(ZORAssociationRole* role, ZORKey* key, bool isParent) {
    const ZORString& tag = isParent ? "erd:ParentRole"_z : "erd:ChildRole"_z;
    const ZORString& entityTag = isParent ? "erd:ParentRoleEntity"_z : "erd:ChildRoleEntity"_z;
    const ZORString& keyTag = isParent ? "erd:ParentRoleKey"_z : "erd:ChildRoleKey"_z;
    startTag(tag, role, ERD, false);
    propertyAttribute("multiplicity"_z, role->getMultiplicity(), true);
    if (isParent) {
        propertyAttribute("Delete"_z, getXMLRule(role->getDeleteRule()));
        propertyAttribute("Insert"_z, getXMLRule(role->getInsertRule()));
        propertyAttribute("Update"_z, getXMLRule(role->getUpdateRule()));
    }
    closeTag(false);
    startTag(entityTag, false);
    linkTag("erd:Entity"_z, role->getAssociatedClass(), ERD);
    endTag(entityTag);
    if (key != nullptr) {
        startTag(keyTag, false);
        linkTag("erd:Key"_z, key, ERD);
        endTag(keyTag);
    }
    endTag(tag);
}

void Bridge::printERDGeneralization(ZORGeneralization* generalization) {
    startTag("erd:EntityGeneralization"_z, generalization, ERD, false);
    closeTag(false);
    startTag("erd:EntityGeneralizationSuperEntity"_z, false);
    linkTag("erd:Entity"_z, generalization->getParents()[0], ERD);
    endTag("erd:EntityGeneralizationSuperEntity"_z);
    endTag("erd:EntityGeneralization"_z);
}
