// Stored procedures with their parameters, and triggers.

#include "ReturnArgument.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::printDBMStoredProcedures(const ZORVector<ZOROperation*>& operations) {
    for (ZOROperation* operation : operations) {
        if (operation->getElementType() == ZOR_STORED_PROCEDURE && isExportableDBMModelObject(operation)) {
            printDBMOperation(operation);
        }
    }
}

void Bridge::printDBMOperation(ZOROperation* operation) {
    const bool hasParameters = !operation->getArguments().isEmpty() || operation->getResultType() != nullptr;
    startTag("dbm:StoredProcedure"_z, operation, DBM, true);
    if (operation->getElementType() == ZOR_STORED_PROCEDURE) {
        propertyAttribute("body"_z, operation->getBody(), true);
    }
    closeTag(!hasParameters);
    if (!hasParameters) {
        return;
    }
    startTag("dbm:StoredProcedureParameters"_z, false);
    for (ZORArgument* argument : getArgumentByPosition(*operation)) {
        printDBMArgument(argument);
    }
    if (operation->getResultType() != nullptr) {
        printDBMArgument(ReturnArgument(*this, operation).get());
    }
    endTag("dbm:StoredProcedureParameters"_z);
    endTag("dbm:StoredProcedure"_z);
}

void Bridge::printDBMArgument(ZORArgument* argument) {
    startTag("dbm:StoredProcedureParameter"_z, argument, DBM, true);
    propertyAttribute("defaultValue"_z, argument->getDefaultValue(), true);
    propertyAttribute("IsOutput"_z, argument->getKind() != ZOR_ARGUMENT_IN, false);
    printDBMTypeSize(argument->getType()->getActualType());
    closeTag(true);
}

void Bridge::printDBMTrigger(ZORTrigger* trigger) {
    startTag("dbm:LogicalTrigger"_z, trigger, DBM, true);
    propertyAttribute("BeforeAfter"_z, trigger->isAfter() ? "2" : "1");
    propertyAttribute("IsDelete"_z, trigger->isDelete(), false);
    propertyAttribute("IsInsert"_z, trigger->isInsert(), false);
    propertyAttribute("IsUpdate"_z, trigger->isUpdate(), false);
    propertyAttribute("Statements"_z, trigger->getBody(), true);
    closeTag(true);
}
