// Attributes, operations and parameters.

#include "ReturnArgument.h"
#include "Stereotypes.h"
#include "TemporaryName.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableUMLAttribute(const ZORAttribute* attribute) const {
    if (!isExportableUMLModelObject(attribute)) {
        return false;
    }
    // Members of foreign keys came from another class; the association stands for them.
    for (const ZORKey* key : attribute->getKeys()) {
        if (key->getElementType() == ZOR_FOREIGN_KEY) {
            return leaveOut(attribute, UML, "the relationship of the foreign key \"{0}\" stands for it", key);
        }
    }
    return true;
}

bool Bridge::isExportableUMLOperation(const ZOROperation* operation) const {
    return isExportableUMLModelObject(operation) &&
           (operation->getElementType() == ZOR_OPERATION ||
            leaveOut(operation, UML, "procedures and triggers belong to the database"));
}

const char* Bridge::getUMLArgumentKind(ZORArgumentType kind) {
    switch (kind) {
        case ZOR_ARGUMENT_NONE:
            return nullptr;
        case ZOR_ARGUMENT_IN:
            return "in";
        case ZOR_ARGUMENT_OUT:
            return "out";
        case ZOR_ARGUMENT_INOUT:
            return "inout";
        case ZOR_ARGUMENT_RETURN:
            return "return";
    }
    zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcUMLExport", 258);
}

const char* Bridge::getUMLConcurrency(ZORConcurrencyType concurrency) {
    switch (concurrency) {
        case ZOR_CONCURRENCY_SEQUENTIAL:
            return "Sequential";
        case ZOR_CONCURRENCY_GUARDED:
            return "Guarded";
        case ZOR_CONCURRENCY_ACTIVE:
            return "Active";
        case ZOR_CONCURRENCY_SYNCHRONOUS:
            return "Synchronous";
    }
    zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcUMLExport", 274);
}

const char* Bridge::getUMLOwnerScope(bool isStatic) {
    return isStatic ? "classifier" : "instance";
}

ZORString Bridge::getUMLSignature(const ZOROperation* operation) {
    ZORString signature = operation->getName() + "(";
    const char* separator = "";
    for (const ZORArgument* argument : getArgumentByPosition(*operation)) {
        signature.append(separator).append(argument->getType()->getName().view());
        if (!argument->getName().isEmpty()) {
            signature.append(' ').append(argument->getName().view());
        }
        separator = ", ";
    }
    return signature.append(')');
}

void Bridge::printUMLAttribute(ZORAttribute* attribute, CommentList& comments) {
    collectComments(attribute, comments);
    startTag("uml:Attribute"_z, attribute, UML, true);
    propertyAttribute("initialValue"_z, attribute->getInitialValue(), true);
    propertyAttribute("ownerScope"_z, getUMLOwnerScope(attribute->isStatic()));
    propertyAttribute("typeExpression"_z, attribute->getType()->getName(), true);
    propertyAttribute("visibility"_z, getXMLVisibility(attribute->getVisibility()));
    closeTag(false);
    startTag("uml:StructuralFeatureType"_z, false);
    linkUMLType(attribute->getType());
    endTag("uml:StructuralFeatureType"_z);
    linkUMLStereotype(attribute, nullptr);
    endTag("uml:Attribute"_z);
}

void Bridge::printUMLOperation(ZOROperation* operation, CommentList& comments, ConstraintList& constraints) {
    collectComments(operation, comments);
    if (msRepository_) {
        // The repository knows an operation by its name: overloads need different ones.
        const TemporaryName name(operation, getUMLSignature(operation));
        startTag("uml:Operation"_z, operation, UML, true);
    } else {
        startTag("uml:Operation"_z, operation, UML, true);
    }
    propertyAttribute("concurrency"_z, getUMLConcurrency(operation->getConcurrency()));
    propertyAttribute("isAbstract"_z, operation->isAbstract(), false);
    propertyAttribute("ownerScope"_z, getUMLOwnerScope(operation->isStatic()));
    propertyAttribute("visibility"_z, getXMLVisibility(operation->getVisibility()));
    closeTag(false);
    if (uml13Support_ == UML_1_3_FULL) {
        addUMLConstraint(operation, "precondition", operation->getPrecondition(), constraints);
        addUMLConstraint(operation, "postcondition", operation->getPostcondition(), constraints);
    }
    linkUMLStereotype(operation, nullptr);
    printUMLParameters(operation, comments);
    if (!operation->getSemantics().isEmpty()) {
        startTag("uml:ModelElementTaggedValue"_z, false);
        printUMLTaggedValue("semantics", operation->getSemantics());
        endTag("uml:ModelElementTaggedValue"_z);
    }
    endTag("uml:Operation"_z);
}

void Bridge::printUMLParameters(ZOROperation* operation, CommentList& comments) {
    if (operation->getArguments().isEmpty() && operation->getResultType() == nullptr) {
        return;
    }
    startTag("uml:BehavioralFeatureParameter"_z, false);
    for (ZORArgument* argument : getArgumentByPosition(*operation)) {
        printUMLArgument(argument, comments);
    }
    if (operation->getResultType() != nullptr) {
        printUMLArgument(ReturnArgument(*this, operation).get(), comments);
    }
    endTag("uml:BehavioralFeatureParameter"_z);
}

void Bridge::printUMLArgument(ZORArgument* argument, CommentList& comments) {
    collectComments(argument, comments);
    startTag("uml:Parameter"_z, argument, UML, true);
    propertyAttribute("defaultValue"_z, argument->getDefaultValue(), true);
    propertyAttribute("kind"_z, getUMLArgumentKind(argument->getKind()));
    propertyAttribute("typeExpression"_z, argument->getType()->getName(), true);
    closeTag(false);
    startTag("uml:ParameterType"_z, false);
    linkUMLType(argument->getType());
    endTag("uml:ParameterType"_z);
    linkUMLStereotype(argument, nullptr);
    endTag("uml:Parameter"_z);
}

void Bridge::linkUMLType(ZORType* type) {
    // For a class type only the tag comes from the class: the reference names the class type itself, which no
    // element carries.
    const bool isClassType = type->getElementType() == ZOR_CLASS_TYPE;
    linkTag(isClassType ? getUMLClassTag(static_cast<ZORClassType*>(type)->getAssociatedClass())
                        : "uml:DataType"_z,
            type, UML);
}
