// dbm/: the model as one relational catalog. This file has the catalog and its schemas; the others have what
// stands in a schema. Nothing here decides how an element is spelled or which type set is in force.

#include "LazyCollection.h"
#include "TemporaryName.h"

namespace {

/// What a schema holds besides tables and constraints.
struct SchemaContent {
    bool hasSynonyms = false;
    bool hasProcedures = false;
    bool hasViews = false;
};

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableDBMModelObject(const ZORModelObject* object) const {
    return object->getDesignLevel() != ZOR_LOGICAL_ONLY || leaveOut(object, DBM, "it is logical only");
}

bool Bridge::isExportableDBMPackage(const ZORDesignPackage* package) const {
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() == ZOR_SQL_VIEW_ENTITY ||
            (element->getElementType() == ZOR_CLASS &&
             isExportableDBMClass(static_cast<ZORClass*>(element))) ||
            (isAnyAssociation(element) &&
             isExportableDBMAssociation(static_cast<ZORAssociation*>(element)))) {
            return true;
        }
    }
    return leaveOut(package, DBM, "it holds no table, view or relationship of the database");
}

void Bridge::printDBMModel(ZORModel* model) {
    {
        const TemporaryName name(model, model->getName() + " (physical)");
        startTag("dbm:LogicalCatalog"_z, model, DBM, false);
    }
    closeTag(false);
    startTag("dbm:CatalogSchemas"_z, false);
    for (ZORPackage* child : model->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printDBMPackages(static_cast<ZORDesignPackage*>(child));
        }
    }
    endTag("dbm:CatalogSchemas"_z);
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        printTraceability("erd:Model", model, ERD);
    }
    endTag("dbm:LogicalCatalog"_z);
}

void Bridge::printDBMPackages(ZORDesignPackage* package) {
    printDBMPackage(package);
    for (ZORPackage* child : package->getChildPackages()) {
        if (child->getElementType() == ZOR_DESIGN_PACKAGE) {
            printDBMPackages(static_cast<ZORDesignPackage*>(child));
        }
    }
}

void Bridge::printDBMPackage(ZORDesignPackage* package) {
    if (!isExportableDBMPackage(package)) {
        return;
    }
    startTag("dbm:LogicalSchema"_z, package, DBM, true);
    closeTag(false);
    SchemaContent content;
    content.hasProcedures = !package->getOperations().isEmpty();
    LazyCollection tables(*this, "dbm:SchemaTables"_z);
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() == ZOR_SQL_VIEW_ENTITY) {
            content.hasViews = true;
            content.hasProcedures |= !static_cast<ZORSQLViewEntity*>(element)->getOperations().isEmpty();
        } else if (element->getElementType() == ZOR_CLASS) {
            auto* cls = static_cast<ZORClass*>(element);
            if (isExportableDBMClass(cls)) {
                tables.open();
                printDBMClass(cls);
                content.hasSynonyms |= !cls->getSynonyms().isEmpty();
                content.hasProcedures |= !cls->getOperations().isEmpty();
            }
        }
    }
    tables.close();
    if (content.hasSynonyms) {
        printDBMPackageSynonyms(package);
    }
    if (content.hasProcedures) {
        printDBMPackageProcedures(package);
    }
    if (content.hasViews) {
        printDBMPackageViews(package);
    }
    printDBMPackageConstraints(package);
    endTag("dbm:LogicalSchema"_z);
}

void Bridge::printDBMPackageSynonyms(ZORDesignPackage* package) {
    startTag("dbm:SchemaTableSynonyms"_z, false);
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() == ZOR_CLASS && isExportableDBMClass(static_cast<ZORClass*>(element))) {
            printDBMSynonyms(static_cast<ZORClass*>(element));
        }
    }
    endTag("dbm:SchemaTableSynonyms"_z);
}

void Bridge::printDBMPackageProcedures(ZORDesignPackage* package) {
    startTag("dbm:SchemaStoredProcedures"_z, false);
    for (ZOROperation* operation : package->getOperations()) {
        printDBMOperation(operation);
    }
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() == ZOR_CLASS) {
            auto* cls = static_cast<ZORClass*>(element);
            // Procedures of tables of the other class type are not written.
            if (isExportableDBMClass(cls) && cls->getClassType() == 0) {
                printDBMStoredProcedures(cls->getOperations());
            }
        } else if (element->getElementType() == ZOR_SQL_VIEW_ENTITY) {
            printDBMStoredProcedures(static_cast<ZORSQLViewEntity*>(element)->getOperations());
        }
    }
    endTag("dbm:SchemaStoredProcedures"_z);
}

void Bridge::printDBMPackageViews(ZORDesignPackage* package) {
    startTag("dbm:SchemaViews"_z, false);
    for (ZORModelElement* element : package->getModelElements()) {
        if (element->getElementType() == ZOR_SQL_VIEW_ENTITY) {
            printDBMSQLViewEntity(static_cast<ZORSQLViewEntity*>(element));
        }
    }
    endTag("dbm:SchemaViews"_z);
}

void Bridge::printDBMPackageConstraints(ZORDesignPackage* package) {
    LazyCollection constraints(*this, "dbm:SchemaReferentialConstraints"_z);
    for (ZORModelElement* element : package->getModelElements()) {
        if (isAnyAssociation(element) && isExportableDBMAssociation(static_cast<ZORAssociation*>(element))) {
            constraints.open();
            printDBMAssociation(static_cast<ZORAssociation*>(element));
        }
    }
    constraints.close();
}
