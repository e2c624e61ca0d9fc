// Columns, and the size attributes that columns and parameters share.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

Bridge::DBMColumnTraits Bridge::getDBMColumnTraits(ZORType* type) {
    constexpr int KNOWN = 0x80;
    constexpr int IDENTITY = 0x40;
    constexpr int CATEGORY = 0x3f;
    unsigned char& traits = getColumnTraits(type);
    if (traits == 0) {
        const bool isIdentity = getOldDataType(type->getDataType()) == "AUTOINCREMENT";
        traits = static_cast<unsigned char>(KNOWN | (isIdentity ? IDENTITY : 0) | getDBMTypeCategory(type));
    }
    return {traits & CATEGORY, (traits & IDENTITY) != 0};
}

void Bridge::printDBMAttribute(ZORAttribute* column, const ZORString* name) {
    ZORType* type = column->getType()->getActualType();
    if (name == nullptr) {
        startTag("dbm:LogicalColumn"_z, column, DBM, true);
        propertyAttribute("Ordinal"_z, column->getPosition() + 1);
    } else {
        startTag("dbm:LogicalColumn"_z, nullptr, 0, false, true);
        propertyAttribute("name"_z, *name, false);
    }
    const bool hasOwnValue = !column->getInitialValue().isEmpty();
    propertyAttribute("initialValue"_z, hasOwnValue ? column->getInitialValue() : type->getInitialValue(),
                      true);
    propertyAttribute("IsNullable"_z, column->isOptional(), true);
    printDBMTypeSize(type);
    if (getDBMColumnTraits(type).isIdentity) {
        propertyAttribute("IdentityIncrement"_z, "1");
    }
    closeTag(false);
    printDBMDataType(type);
    if (modelView_ == MODEL_VIEW_ERD_AND_DBM && name == nullptr && isExportableERDModelObject(column) &&
        isExportableERDModelObject(column->getAssociatedClass())) {
        printTraceability("erd:Attribute", column, ERD);
    }
    endTag("dbm:LogicalColumn"_z);
}

void Bridge::printDBMTypeSize(ZORType* type) {
    const auto writeUnlessZero = [this](const ZORString& name, int size) {
        if (size != 0) {
            propertyAttribute(name, size);
        }
    };
    switch (getDBMColumnTraits(type).category) {
        case 0:
            writeUnlessZero("NumericPrecision"_z, type->getLength());
            writeUnlessZero("NumericScale"_z, type->getScale());
            break;
        case 1:
            writeUnlessZero("Length"_z, type->getLength());
            break;
        case 2:
            writeUnlessZero("TimePrecision"_z, type->getLength());
            break;
        default:
            // There is no other category.
            break;
    }
}

void Bridge::printDBMDataType(ZORType* type) {
    if (dbmTypeSet_.typeTable == nullptr) {
        return;
    }
    startTag("dbm:ColumnDataType"_z, false);
    linkTag("dbm:ColumnType"_z, getDTMTypeID(dbmTypeSet_, DBM, type));
    endTag("dbm:ColumnDataType"_z);
}
