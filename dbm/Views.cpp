// Views with their columns, and the synonyms of tables.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::printDBMSQLViewEntity(ZORSQLViewEntity* view) {
    startTag("dbm:LogicalView"_z, view, DBM, true);
    const bool hasText = !view->getSQLText().isEmpty();
    propertyAttribute("Body"_z, hasText ? view->getSQLText() : computeSqlViewSelectStatement(*view), true);
    closeTag(false);
    if (view->getSQLViewAttributeCount() > 0) {
        startTag("dbm:ColumnSetColumns"_z, false);
        for (ZORSQLViewAttribute* column : getFeatureByPosition(*view)) {
            ZORModelObject* source = column->getSource();
            if (source != nullptr && source->getElementType() == ZOR_ATTRIBUTE) {
                tellWritten(column, "dbm:LogicalColumn"_z);
                printDBMAttribute(static_cast<ZORAttribute*>(source), &column->getName());
            } else {
                printDBMSQLViewAttribute(column);
            }
        }
        endTag("dbm:ColumnSetColumns"_z);
    }
    endTag("dbm:LogicalView"_z);
}

void Bridge::printDBMSQLViewAttribute(ZORSQLViewAttribute* column) {
    startTag("dbm:LogicalColumn"_z, column, DBM, true);
    if (column->getType() == nullptr || dbmTypeSet_.typeTable == nullptr) {
        closeTag(true);
        return;
    }
    closeTag(false);
    // The type as it is, aliases included, unlike that of a table's column.
    printDBMDataType(column->getType());
    endTag("dbm:LogicalColumn"_z);
}

void Bridge::printDBMSynonyms(ZORClass* table) {
    for (const ZORSynonym* synonym : table->getSynonyms()) {
        tellWritten(synonym, "dbm:TableSynonym"_z);
        startTag("dbm:TableSynonym"_z, nullptr, 0, false, true);
        propertyAttribute("name"_z, getPhysicalName(*synonym), true);
        closeTag(false);
        startTag("dbm:TableSynonymTable"_z, false);
        linkTag("dbm:LogicalTable"_z, table, DBM);
        endTag("dbm:TableSynonymTable"_z);
        endTag("dbm:TableSynonym"_z);
    }
}
