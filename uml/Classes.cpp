// Classes, interfaces and association classes, and data types.

#include "LazyCollection.h"
#include "Stereotypes.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

namespace {

constexpr int INTERFACE = 9;

/// The stereotype that UML defines for a class's type; null when it defines none.
const char* getStandardStereotype(int classType) {
    switch (classType) {
        case 4:
        case 5:
        case 6:
            return "utility";
        case 8:
            return "metaclass";
        default:
            return nullptr;
    }
}

}  // namespace

bool Bridge::isUMLInterface(const ZORClass* cls) {
    return cls->getClassType() == INTERFACE;
}

const ZORString& Bridge::getUMLClassTag(const ZORClass* cls) {
    if (cls->getAssociation() != nullptr) {
        return "uml:AssociationClass"_z;
    }
    return isUMLInterface(cls) ? "uml:Interface"_z : "uml:Class"_z;
}

void Bridge::printUMLClass(ZORClass* cls, CommentList& comments) {
    ConstraintList constraints;
    collectComments(cls, comments);
    startTag(getUMLClassTag(cls), cls, UML, true);
    propertyAttribute("isAbstract"_z, cls->isAbstract(), false);
    if (!isUMLInterface(cls)) {
        propertyAttribute("isActive"_z, cls->getConcurrency() == ZOR_CONCURRENCY_ACTIVE, false);
    }
    propertyAttribute("visibility"_z, getXMLVisibility(cls->getVisibility()));
    closeTag(false);
    if (cls->getAssociation() != nullptr) {
        tellWritten(cls->getAssociation(), getUMLClassTag(cls));
        printUMLConnection(cls->getAssociation(), comments, constraints);
    }
    printUMLClassStereotype(cls);
    printUMLTemplateParameters(cls, comments);
    printUMLFeatures(cls, comments, constraints);
    printUMLClassGeneralizations(cls);
    startTag("uml:ModelElementTaggedValue"_z, false);
    printUMLTaggedValue("persistence", cls->isPersistent() ? "persistent" : "transient");
    endTag("uml:ModelElementTaggedValue"_z);
    printUMLClientDependencies(cls);
    endTag(getUMLClassTag(cls));
    for (UMLConstraint* constraint : constraints) {
        printUMLConstraint(constraint);
    }
}

void Bridge::printUMLClassStereotype(ZORClass* cls) {
    const bool mayBeStandard = cls->getStereotype().isEmpty() && uml13Support_ == UML_1_3_FULL;
    linkUMLStereotype(cls, mayBeStandard ? getStandardStereotype(cls->getClassType()) : nullptr);
}

void Bridge::printUMLTemplateParameters(ZORClass* cls, CommentList& comments) {
    if (cls->getArguments().isEmpty()) {
        return;
    }
    startTag("uml:ModelElementTemplateParameter"_z, false);
    for (ZORArgument* argument : getArgumentByPosition(*cls)) {
        printUMLArgument(argument, comments);
    }
    endTag("uml:ModelElementTemplateParameter"_z);
}

void Bridge::printUMLFeatures(ZORClass* cls, CommentList& comments, ConstraintList& constraints) {
    LazyCollection features(*this, "uml:ClassifierFeature"_z);
    for (ZORAttribute* attribute : getAttributeByPosition(*cls)) {
        if (isExportableUMLAttribute(attribute)) {
            features.open();
            printUMLAttribute(attribute, comments);
        }
    }
    for (ZOROperation* operation : getOperationByPosition(*cls)) {
        if (isExportableUMLOperation(operation)) {
            features.open();
            printUMLOperation(operation, comments, constraints);
        }
    }
    features.close();
}

void Bridge::printUMLClassGeneralizations(ZORClass* cls) {
    LazyCollection generalizations(*this, "uml:GeneralizableElementGeneralizations"_z);
    for (ZORGeneralization* generalization : cls->getGeneralizations()) {
        if (isExportableUMLGeneralization(generalization)) {
            generalizations.open();
            linkTag("uml:Generalization"_z, generalization, UML);
        }
    }
    generalizations.close();
}

void Bridge::printUMLClientDependencies(ZORClass* cls) {
    LazyCollection dependencies(*this, "uml:ModelElementClientDependency"_z);
    for (ZORDependency* dependency : cls->getClientDependencies()) {
        if (isExportableUMLDependency(dependency)) {
            dependencies.open();
            linkTag("uml:Dependency"_z, dependency, UML);
        }
    }
    for (ZORRealization* realization : cls->getRealizations()) {
        if (uml13Support_ == UML_1_3_FULL && isExportableUMLRealization(realization)) {
            dependencies.open();
            linkTag("uml:Dependency"_z, realization, UML);
        }
    }
    dependencies.close();
}

void Bridge::printUMLType(ZORType* type) {
    startTag("uml:DataType"_z, type, UML, true);
    const bool isEmpty = type->getStereotype().isEmpty();
    closeTag(isEmpty);
    if (!isEmpty) {
        linkUMLStereotype(type, nullptr);
        endTag("uml:DataType"_z);
    }
}
