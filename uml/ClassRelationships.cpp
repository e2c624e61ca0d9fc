// Associations with their ends, generalizations, dependencies and realizations.

#include "Stereotypes.h"

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

bool Bridge::isExportableUMLAssociation(const ZORAssociation* association) const {
    if (!isExportableUMLModelObject(association)) {
        return false;
    }
    for (const ZORAssociationRole* role : association->getRoles()) {
        if (!isExportableUMLModelObject(role->getAssociatedClass())) {
            return leaveOutWith(association, UML, "its class \"{0}\" is left out",
                                role->getAssociatedClass());
        }
    }
    return true;
}

bool Bridge::isExportableUMLGeneralization(const ZORGeneralization* generalization) const {
    if (generalization->getParents().isEmpty() || generalization->getChildren().isEmpty()) {
        return leaveOut(generalization, UML, "it does not have both a supertype and a subtype");
    }
    if (generalization->getParents().size() > 1 || generalization->getChildren().size() > 1) {
        return false;  // its pairs are written in its place, and tell what becomes of it
    }
    return isExportableUMLModelObject(generalization) &&
           areEndsExportable(generalization, generalization->getParents()[0],
                             generalization->getChildren()[0]);
}

bool Bridge::isExportableUMLDependency(const ZORDependency* dependency) const {
    return isExportableUMLModelObject(dependency) &&
           areEndsExportable(dependency, dependency->getSupplier(), dependency->getClient());
}

bool Bridge::isExportableUMLRealization(const ZORRealization* realization) const {
    return isExportableUMLModelObject(realization) &&
           areEndsExportable(realization, realization->getSupplier(), realization->getClient());
}

bool Bridge::areEndsExportable(const ZORModelObject* relationship, const ZORClass* end,
                               const ZORClass* otherEnd) const {
    for (const ZORClass* cls : {end, otherEnd}) {
        if (!isExportableUMLModelObject(cls)) {
            return leaveOutWith(relationship, UML, "its class \"{0}\" is left out", cls);
        }
    }
    return true;
}

const char* Bridge::getUMLAggregation(const ZORAssociationRole* role) {
    const ZORAssociation* association = role->getAssociation();
    if (!role->isAggregateEnd() || !association->isAggregation()) {
        return "none";
    }
    const ZORVector<ZORAssociationRole*>& roles = association->getRoles();
    const std::size_t opposite = roles[0] == role ? 1 : 0;
    if (opposite >= roles.size()) {
        return "none";
    }
    switch (roles[opposite]->getAggregationKind()) {
        case 0:
            return "composite";
        case 1:
        case 2:
            return "aggregate";
        default:
            zorAssertionFailed("false", "MicrosoftSqlServerMdsMdcUMLExport", 239);
    }
}

void Bridge::printUMLAssociation(ZORAssociation* association, CommentList& comments) {
    ConstraintList constraints;
    collectComments(association, comments);
    startTag("uml:Association"_z, association, UML, true);
    closeTag(false);
    addUMLConstraint(association, nullptr, association->getConstraint(), constraints);
    linkUMLStereotype(association, nullptr);
    printUMLConnection(association, comments, constraints);
    endTag("uml:Association"_z);
    for (UMLConstraint* constraint : constraints) {
        printUMLConstraint(constraint);
    }
}

void Bridge::printUMLConnection(ZORAssociation* association, CommentList& comments,
                                ConstraintList& constraints) {
    startTag("uml:AssociationConnection"_z, false);
    for (ZORAssociationRole* role : association->getRoles()) {
        printUMLAssociationRole(role, comments, constraints);
    }
    endTag("uml:AssociationConnection"_z);
}

void Bridge::printUMLAssociationRole(ZORAssociationRole* role, CommentList& comments,
                                     ConstraintList& constraints) {
    collectComments(role, comments);
    startTag("uml:AssociationEnd"_z, role, UML, false);
    propertyAttribute("aggregation"_z, getUMLAggregation(role));
    propertyAttribute("isNavigable"_z, role->isNavigable(), true);
    propertyAttribute("multiplicity"_z, role->getMultiplicity(), true);
    propertyAttribute("ordering"_z, role->isOrdered() ? "ordered" : "unordered");
    if (!msRepository_) {
        propertyAttribute("AssociationEnd.visibility"_z, getXMLVisibility(role->getVisibility()));
    }
    closeTag(false);
    addUMLConstraint(role, nullptr, role->getConstraint(), constraints);
    linkUMLStereotype(role, nullptr);
    startTag("uml:AssociationEndType"_z, false);
    linkUMLClass(role->getAssociatedClass());
    endTag("uml:AssociationEndType"_z);
    if (!role->getQualifiers().isEmpty()) {
        startTag("uml:AssociationEndQualifier"_z, false);
        for (ZORAttribute* qualifier : getQualifierAttributeByPosition(*role)) {
            printUMLAttribute(qualifier, comments);
        }
        endTag("uml:AssociationEndQualifier"_z);
    }
    endTag("uml:AssociationEnd"_z);
}

void Bridge::printUMLGeneralization(ZORGeneralization* generalization, CommentList& comments) {
    collectComments(generalization, comments);
    startTag("uml:Generalization"_z, generalization, UML, true);
    propertyAttribute("visibility"_z, getXMLVisibility(generalization->getVisibility()));
    closeTag(false);
    const bool isImplementation = generalization->getStereotype().isEmpty() &&
                                  uml13Support_ == UML_1_3_FULL &&
                                  generalization->getVisibility() == ZOR_VISIBILITY_IMPLEMENTATION;
    linkUMLStereotype(generalization, isImplementation ? "implementation" : nullptr);
    startTag("uml:GeneralizationParent"_z, false);
    linkUMLClass(generalization->getParents()[0]);
    endTag("uml:GeneralizationParent"_z);
    endTag("uml:Generalization"_z);
}

void Bridge::printUMLDependency(ZORDependency* dependency, CommentList& comments) {
    collectComments(dependency, comments);
    startTag("uml:Dependency"_z, dependency, UML, true);
    closeTag(false);
    linkUMLStereotype(dependency, nullptr);
    printUMLSupplier(dependency->getSupplier());
    endTag("uml:Dependency"_z);
}

void Bridge::printUMLRealization(ZORRealization* realization, CommentList& comments) {
    collectComments(realization, comments);
    startTag("uml:Dependency"_z, realization, UML, true);
    closeTag(false);
    linkUMLStereotype(realization, "realization");
    printUMLSupplier(realization->getSupplier());
    endTag("uml:Dependency"_z);
}

void Bridge::printUMLSupplier(ZORClass* supplier) {
    startTag("uml:DependencySupplier"_z, false);
    linkUMLClass(supplier);
    endTag("uml:DependencySupplier"_z);
}

void Bridge::linkUMLClass(ZORClass* cls) {
    linkTag(getUMLClassTag(cls), cls, UML);
}
