// Diagrams as subject areas: what they show, not where it stands.

#include "MicrosoftSqlServerMdsMdcExport.h"
#include "TemporaryName.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::printERDPackageDiagrams(ZORStringHashtable& names, ZORDesignPackage* package) {
    for (ZORDiagram* diagram : package->getDiagrams()) {
        if (const ZORString* uniqueName = getUniqueName(names, true, "Diagram", diagram)) {
            const TemporaryName name(diagram, *uniqueName);
            printERDDiagram(diagram);
        } else {
            printERDDiagram(diagram);
        }
    }
    for (ZORPackage* child : package->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printERDPackageDiagrams(names, static_cast<ZORDesignPackage*>(child));
        }
    }
}

void Bridge::printERDDiagram(ZORDiagram* diagram) {
    startTag("erd:SubjectArea"_z, diagram, ERD, true);
    closeTag(false);
    startTag("erd:SubjectAreaDiagrams"_z, nullptr, 0, false, false);
    startTag("erd:StoredDisplay Name=\"Display1\""_z, nullptr, 0, false, false);
    if (!diagram->getModelElements().isEmpty()) {
        printERDGraphicFeatures(diagram);
    }
    endTag("erd:StoredDisplay"_z);
    endTag("erd:SubjectAreaDiagrams"_z);
    endTag("erd:SubjectArea"_z);
}

void Bridge::printERDGraphicFeatures(ZORDiagram* diagram) {
    const auto printFeature = [this](const ZORString& featureTag, const ZORString& tag,
                                     ZORModelObject* object) {
        startTag("erd:GraphicFeature"_z, nullptr, 0, false, false);
        startTag(featureTag, false);
        linkTag(tag, object, ERD);
        endTag(featureTag);
        endTag("erd:GraphicFeature"_z);
    };
    startTag("erd:StoredDisplayGraphicFeatures"_z, false);
    for (ZORObject* element : diagram->getModelElements()) {
        if (element->getElementType() == ZOR_CLASS) {
            auto* entity = static_cast<ZORClass*>(element);
            if (isExportableERDClass(entity)) {
                printFeature("erd:GraphicFeatureEntity"_z, "erd:Entity"_z, entity);
            }
        } else if (element->getElementType() == ZOR_ASSOCIATION) {
            auto* association = static_cast<ZORAssociation*>(element);
            if (isExportableERDAssociation(association)) {
                printFeature("erd:GraphicFeatureRelationship"_z, "erd:Relationship"_z, association);
            }
        }
    }
    endTag("erd:StoredDisplayGraphicFeatures"_z);
}
