// Keys of entities, and the filters that decide which of them there are.

#include "LeavingReasons.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableERDKey(ZORKey* key) const {
    if (key->getElementType() == ZOR_CANDIDATE_KEY) {
        if (!isExportableERDClass(key->getAssociatedClass())) {
            return leaveOutWith(key, ERD, "its class \"{0}\" is left out", key->getAssociatedClass());
        }
        return isExportableERDCandidateKey(static_cast<ZORCandidateKey*>(key));
    }
    // Of several relationships and generalizations that share the key, the one that has it as its own
    // decides: another one that is written refers to the key even when this one leaves it out.
    const auto* foreignKey = static_cast<const ZORForeignKey*>(key);
    const ZORAssociationRole* role = foreignKey->getAssociationRole();
    if (role == nullptr) {
        return leaveOut(key, ERD, "it belongs to no relationship");
    }
    return isExportableERDAssociation(role->getAssociation()) ||
           leaveOutWith(key, ERD, describeRelationshipOf(*foreignKey), role->getAssociation());
}

bool Bridge::isExportableERDCandidateKey(ZORCandidateKey* key) const {
    unsigned char& mark = getERDMark(key);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    if (!isExportableERDModelObject(key)) {
        return false;
    }
    for (const ZORAttribute* attribute : key->getAttributes()) {
        if (isExportableERDModelObject(attribute)) {
            mark = MARK_EXPORTABLE;
            break;
        }
    }
    return mark == MARK_EXPORTABLE || leaveOut(key, ERD, "none of its attributes is logical");
}

bool Bridge::isExportableERDForeignKey(ZORForeignKey* key) const {
    unsigned char& mark = getERDMark(key);
    if (mark != MARK_UNDECIDED) {
        return mark == MARK_EXPORTABLE;
    }
    mark = MARK_NOT_EXPORTABLE;
    if (!isExportableERDModelObject(key)) {
        return false;
    }
    if (key->getCandidateKey() == nullptr) {
        return leaveOut(key, ERD, "it references no candidate key");
    }
    for (const ZORAttribute* attribute : key->getAttributes()) {
        const ZORAttribute* counterpart = getCounterpart(key, attribute);
        const bool isLogical = isExportableERDModelObject(attribute);
        if (counterpart == nullptr) {
            mark = MARK_NOT_EXPORTABLE;
            return leaveOut(key, ERD, "its attribute \"{0}\" has no counterpart in the referenced entity",
                            attribute);
        }
        if (isLogical != isExportableERDModelObject(counterpart)) {
            mark = MARK_NOT_EXPORTABLE;
            return leaveOut(key, ERD, "only one of its attribute \"{0}\" and the referenced one is logical",
                            attribute);
        }
        if (isLogical) {
            mark = MARK_EXPORTABLE;
        }
    }
    return mark == MARK_EXPORTABLE || leaveOut(key, ERD, "none of its attributes is logical");
}

void Bridge::printERDKey(ZORKey* key) {
    const char* keyType = "4";
    if (key->getElementType() != ZOR_FOREIGN_KEY) {
        const auto* candidateKey = static_cast<const ZORCandidateKey*>(key);
        keyType = candidateKey->getPrimaryOfClass() != nullptr ? "1" : candidateKey->isUnique() ? "2" : "3";
    }
    startTag("erd:Key"_z, key, ERD, true);
    propertyAttribute("KeyType"_z, keyType);
    closeTag(false);
    startTag("erd:KeyAttributes"_z, false);
    printKeyAttributes(key, "erd:Attribute", ERD);
    endTag("erd:KeyAttributes"_z);
    endTag("erd:Key"_z);
}
