// Data types as domains: a nullable one, a not-null one, or one that does not say.

#include "MicrosoftSqlServerMdsMdcExport.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::printERDType(ZORType* type, int variant) {
    ZORType* actualType = type->getActualType();
    startTag("erd:Domain"_z, type, getERDTypeID(type, variant), true, true);
    if (actualType->getLength() != 0) {
        propertyAttribute("Precision"_z, actualType->getLength());
    }
    if (actualType->getScale() != 0) {
        propertyAttribute("Scale"_z, actualType->getScale());
    }
    if (variant != 0) {
        propertyAttribute("IsNull"_z, variant == 1, true);
    }
    closeTag(false);
    printERDParentDomains(type, variant);
    if (erdTypeSet_.typeTable != nullptr) {
        startTag("erd:DomainDefaultType"_z, false);
        linkTag("erd:DataType"_z, getDTMTypeID(erdTypeSet_, ERD, actualType));
        endTag("erd:DomainDefaultType"_z);
    }
    if (actualType->getElementType() == ZOR_DERIVED_TYPE) {
        printERDDefaultValue(type);
        printERDValidValues(actualType);
    }
    endTag("erd:Domain"_z);
}

void Bridge::printERDParentDomains(ZORType* type, int variant) {
    const auto printParent = [this](int id) {
        startTag("erd:DomainParentDomain"_z, false);
        linkTag("erd:Domain"_z, id);
        endTag("erd:DomainParentDomain"_z);
    };
    if (variant == 2 && getDomainVariants(type) == 3) {
        // The nullable twin, twice: once as such, once in place of a base type.
        printParent(getERDTypeID(type, 1));
        printParent(getERDTypeID(type, 0));
    } else if (type->getBaseType() != nullptr) {
        printParent(getERDTypeID(type->getBaseType(), 0));
    }
}

void Bridge::printERDDefaultValue(const ZORType* type) {
    if (type->getActualType()->getInitialValue().isEmpty()) {
        return;
    }
    startTag("erd:DomainDefaultValue"_z, false);
    startTag("erd:Value"_z, nullptr, 0, false, true);
    propertyAttribute("StoredValue"_z, type->getInitialValue(), true);
    closeTag(true);
    endTag("erd:DomainDefaultValue"_z);
}

void Bridge::printERDValidValues(const ZORType* type) {
    if (type->getTypeValueCount() == 0) {
        return;
    }
    startTag("erd:DomainValidationRule"_z, false);
    startTag("erd:ValidationRule"_z, nullptr, 0, false, false);
    startTag("erd:ValidationRuleValidValues"_z, false);
    for (ZORTypeValue* value : getTypeValueByPosition(*type)) {
        printERDTypeValue(value);
    }
    endTag("erd:ValidationRuleValidValues"_z);
    endTag("erd:ValidationRule"_z);
    endTag("erd:DomainValidationRule"_z);
}

void Bridge::printERDTypeValue(ZORTypeValue* value) {
    tellWritten(value, "erd:Value"_z);
    startTag("erd:Value"_z, nullptr, 0, false, true);
    propertyAttribute("name"_z, value->getName(), true);
    propertyAttribute("NumericValue"_z, value->getCode());
    propertyAttribute("StoredValue"_z, value->getValue(), true);
    closeTag(true);
}
