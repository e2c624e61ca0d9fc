// What several views write alike: the members of a key, the link to what an element was derived from, and
// OIM's words for actions and visibility.

#include "MicrosoftSqlServerMdsMdcExport.h"

namespace {

/// Whether the column is in the list, which is ordered by position. A key's columns are a set: one that was
/// given twice is one member.
bool isMember(const ZORVector<ZORAttribute*>& ordered, const ZORAttribute* column) {
    for (std::size_t i = ordered.size(); i > 0; --i) {
        if (ordered[i - 1] == column) {
            return true;
        }
        if (ordered[i - 1]->getPosition() != column->getPosition()) {
            return false;
        }
    }
    return false;
}

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableKeyMember(const ZORAttribute* column, MDCSubjectArea area) const {
    switch (area) {
        case ERD:
            return isExportableERDModelObject(column);
        case DBM:
            return isExportableDBMModelObject(column);
        default:
            return false;
    }
}

bool Bridge::isAnyAssociation(const ZORModelElement* element) {
    return element->getElementType() == ZOR_ASSOCIATION || element->getElementType() == ZOR_OBJECT;
}

const char* Bridge::getXMLRule(ZORReferentialActionType action) {
    switch (action) {
        case ZOR_ACTION_SET_DEFAULT:
            return "4";
        case ZOR_ACTION_NO_ACTION:
        case ZOR_ACTION_RESTRICT:
            return "1";
        case ZOR_ACTION_CASCADE:
            return "2";
        case ZOR_ACTION_SET_NULL:
            return "3";
        default:
            return nullptr;
    }
}

const char* Bridge::getXMLVisibility(ZORVisibilityType visibility) {
    switch (visibility) {
        case ZOR_VISIBILITY_PUBLIC:
            return "PublicAccess";
        case ZOR_VISIBILITY_PROTECTED:
            return "ProtectedAccess";
        case ZOR_VISIBILITY_PRIVATE:
        case ZOR_VISIBILITY_IMPLEMENTATION:
            return "PrivateAccess";
    }
    zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcExport", __LINE__);
}

ZORAttribute* Bridge::getCounterpart(const ZORForeignKey* key, const ZORAttribute* column) {
    for (const ZORAssociationRoleNameMap* map : column->getRoleNameMaps()) {
        if (map->getForeignKey() == key) {
            if (map->getReferencedAttribute() != nullptr) {
                return map->getReferencedAttribute();
            }
            break;  // the first map of the key decides, and this one leaves it to the name
        }
    }
    return key->getCandidateKey()->getAssociatedClass()->getAttribute(column->getName());
}

ZORVector<ZORAttribute*> Bridge::getOrderedColumns(const ZORCandidateKey* key) {
    const ZORIndex* index = key->getAssociatedClass()->getIndexOfKey(key);
    ZORVector<ZORAttribute*> columns;
    if (index == nullptr) {
        for (ZORAttribute* column : sortByPosition(key->getAttributes())) {
            if (!isMember(columns, column)) {
                columns.append(column);
            }
        }
    } else {
        for (const ZORIndexMember* member : getIndexMemberByPosition(*index)) {
            columns.append(member->getAttribute());
        }
    }
    return columns;
}

void Bridge::printKeyAttributes(ZORKey* key, const char* tag, MDCSubjectArea area) {
    const ZORString memberTag(tag);
    const bool isForeignKey = key->getElementType() != ZOR_CANDIDATE_KEY;
    const auto* foreignKey = isForeignKey ? static_cast<const ZORForeignKey*>(key) : nullptr;
    const ZORCandidateKey* candidateKey =
        isForeignKey ? foreignKey->getCandidateKey() : static_cast<const ZORCandidateKey*>(key);
    if (candidateKey == nullptr) {
        return;
    }
    if (isForeignKey) {
        pairColumns(foreignKey);
    }
    for (ZORAttribute* column : getOrderedColumns(candidateKey)) {
        if (!isExportableKeyMember(column, area)) {
            continue;
        }
        if (!isForeignKey) {
            linkTag(memberTag, column, area);
        } else if (const int ordinal = getObjectUserData(column)[ObjectUserData::PAIRING]; ordinal != 0) {
            linkTag(memberTag, key->getAttributes()[static_cast<std::size_t>(ordinal - 1)], area);
        }
    }
    if (isForeignKey) {
        unpairColumns(foreignKey);
    }
}

void Bridge::printTraceability(const char* tag, ZORModelObject* object, MDCSubjectArea area) {
    startTag("uml:ModelElementClientDependency"_z, false);
    startTag("uml:Abstraction name=\"Derived\""_z, nullptr, 0, false, false);
    startTag("uml:DependencySupplier"_z, false);
    linkTag(tag, object, area);
    endTag("uml:DependencySupplier"_z);
    endTag("uml:Abstraction"_z);
    endTag("uml:ModelElementClientDependency"_z);
}

void Bridge::pairColumns(const ZORForeignKey* key) {
    for (std::size_t i = 0; i < key->getAttributes().size(); ++i) {
        if (ZORAttribute* counterpart = getCounterpart(key, key->getAttributes()[i])) {
            getObjectUserData(counterpart)[ObjectUserData::PAIRING] = static_cast<int>(i + 1);
        }
    }
}

void Bridge::unpairColumns(const ZORForeignKey* key) {
    for (const ZORAttribute* column : key->getAttributes()) {
        if (ZORAttribute* counterpart = getCounterpart(key, column)) {
            getObjectUserData(counterpart)[ObjectUserData::PAIRING] = 0;
        }
    }
}
