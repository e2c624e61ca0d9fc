// erd/: the model as entities, relationships and domains. This file has the model with its collections and
// the entities with their attributes. Nothing here decides how an element is spelled or which type set is in
// force.

#include "LazyCollection.h"
#include "TemporaryName.h"
#include "UniqueNames.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

namespace {

constexpr int NULLABLE_DOMAIN = 1;
constexpr int NOT_NULL_DOMAIN = 2;

/// Calls `print` for each of the design packages in the list.
template <typename Print>
void forEachDesignPackage(const ZORPackage* parent, const Print& print) {
    for (ZORPackage* child : parent->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            print(static_cast<ZORDesignPackage*>(child));
        }
    }
}

}  // namespace

bool Bridge::isExportableERDModelObject(const ZORModelObject* object) const {
    return object->getDesignLevel() != ZOR_PHYSICAL_ONLY || leaveOut(object, ERD, "it is physical only");
}

bool Bridge::isExportableERDClass(ZORClass* entity) const {
    unsigned char& mark = getERDMark(entity);
    if (mark == MARK_UNDECIDED) {
        const bool isEntity = entity->getClassType() == 0 || entity->getClassType() == 1;
        const bool exportable = isExportableERDModelObject(entity) &&
                                (isEntity || leaveOut(entity, ERD, "a class of its type is no entity"));
        mark = exportable ? MARK_EXPORTABLE : MARK_NOT_EXPORTABLE;
    }
    return mark == MARK_EXPORTABLE;
}

void Bridge::printERDModel(ZORModel* model) {
    {
        const TemporaryName name(model, model->getName() + " (logical)");
        startTag("erd:Model"_z, model, ERD, false);
    }
    closeTag(false);
    UniqueNames names(*this, 4096);
    startTag("erd:ModelEntities"_z, false);
    forEachDesignPackage(model,
                         [&](ZORDesignPackage* package) { printERDPackageClasses(names.table, package); });
    endTag("erd:ModelEntities"_z);
    cleanup(names.table);
    startTag("erd:ModelRelationships"_z, false);
    forEachDesignPackage(model, [&](ZORDesignPackage* package) { printERDPackageAssociations(package); });
    endTag("erd:ModelRelationships"_z);
    startTag("erd:ModelSubjectAreas"_z, false);
    forEachDesignPackage(model,
                         [&](ZORDesignPackage* package) { printERDPackageDiagrams(names.table, package); });
    endTag("erd:ModelSubjectAreas"_z);
    cleanup(names.table);
    printERDModelDomains(model);
    endTag("erd:Model"_z);
}

void Bridge::printERDPackageClasses(ZORStringHashtable& names, ZORDesignPackage* package) {
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() != ZOR_CLASS ||
            !isExportableERDClass(static_cast<ZORClass*>(element))) {
            continue;
        }
        if (const ZORString* uniqueName = getUniqueName(names, true, "Entity", element)) {
            const TemporaryName name(element, *uniqueName);
            printERDClass(static_cast<ZORClass*>(element));
        } else {
            printERDClass(static_cast<ZORClass*>(element));
        }
    }
    forEachDesignPackage(package, [&](ZORDesignPackage* child) { printERDPackageClasses(names, child); });
}

void Bridge::printERDClass(ZORClass* entity) {
    startTag("erd:Entity"_z, entity, ERD, true);
    closeTag(false);
    LazyCollection attributes(*this, "erd:EntityEntityAttributes"_z);
    for (ZORAttribute* attribute : getAttributeByPosition(*entity)) {
        if (isExportableERDModelObject(attribute)) {
            attributes.open();
            printERDAttribute(attribute);
        }
    }
    attributes.close();
    LazyCollection keys(*this, "erd:EntityKeys"_z);
    for (ZORKey* key : entity->getKeys()) {
        if (isExportableERDKey(key)) {
            keys.open();
            printERDKey(key);
        }
    }
    keys.close();
    endTag("erd:Entity"_z);
}

void Bridge::printERDAttribute(ZORAttribute* attribute) {
    startTag("erd:Attribute"_z, attribute, ERD, true);
    propertyAttribute("initialValue"_z, attribute->getInitialValue(), true);
    closeTag(false);
    startTag("erd:AttributeDomain"_z, false);
    const int variant = attribute->isOptional() ? NULLABLE_DOMAIN : NOT_NULL_DOMAIN;
    linkTag("erd:Domain"_z, getERDTypeID(attribute->getType(), variant));
    endTag("erd:AttributeDomain"_z);
    endTag("erd:Attribute"_z);
}

void Bridge::printERDModelDomains(ZORModel* model) {
    // Last of all: which variants a type needs is known once every attribute that refers to it is written.
    startTag("erd:ModelDomains"_z, false);
    for (ZORType* type : model->getTypes()) {
        const int variants = getDomainVariants(type);
        switch (variants) {
            case 0:
            case NULLABLE_DOMAIN:
            case NOT_NULL_DOMAIN:
                printERDType(type, variants);
                break;
            case NULLABLE_DOMAIN | NOT_NULL_DOMAIN:
                printERDType(type, NULLABLE_DOMAIN);
                printERDType(type, NOT_NULL_DOMAIN);
                break;
            default:
                zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcERDExport", 572);
        }
    }
    endTag("erd:ModelDomains"_z);
}
