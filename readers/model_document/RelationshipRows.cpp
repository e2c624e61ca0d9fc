#include "Rows.h"

namespace readers::document {

namespace {

constexpr Word RULES[] = {{"none", ZOR_ACTION_NONE},          {"setDefault", ZOR_ACTION_SET_DEFAULT},
                          {"noAction", ZOR_ACTION_NO_ACTION}, {"restrict", ZOR_ACTION_RESTRICT},
                          {"cascade", ZOR_ACTION_CASCADE},    {"setNull", ZOR_ACTION_SET_NULL}};

Field nonEmpty(Field row) {
    row.nonEmpty = true;
    return required(row);
}

}  // namespace

std::vector<Field> associationFields() {
    return withCommonFields({
        objects<&ZORAssociation::addRole, &ZORAssociation::getRoles>("roles", Family::ROLES,
                                                                     "The ends of the association."),
        reference<&ZORAssociation::setAssociationClass, &ZORAssociation::getAssociationClass>(
            "associationClass", FREE_CLASS, "The class that holds the association's own features."),
        text<&ZORAssociation::setConstraint, &ZORAssociation::getConstraint>(
            "constraint", "A condition on the association."),
        boolean<&ZORAssociation::setAggregation, &ZORAssociation::isAggregation>(
            "aggregation", "Whether one end is the whole and the other its parts."),
        integer<&ZORAssociation::setAssociationKind, &ZORAssociation::getAssociationKind>(
            "associationKind", LOWEST_INTEGER, HIGHEST_INTEGER,
            "1 marks an association that stands for a generalization."),
    });
}

std::vector<Field> roleFields() {
    return withCommonFields({
        required(reference<&ZORAssociationRole::setAssociatedClass, &ZORAssociationRole::getAssociatedClass>(
            "class", ANY_CLASS, "The class at this end.")),
        text<&ZORAssociationRole::setMultiplicity, &ZORAssociationRole::getMultiplicity>(
            "multiplicity", "How many objects of this end there may be, such as \"0..1\" or \"*\"."),
        reference<&ZORAssociationRole::addForeignKey, &ZORAssociationRole::getForeignKey>(
            "foreignKey", FREE_FOREIGN_KEY, "At the referencing end: the foreign key."),
        word<&ZORAssociationRole::setUpdateRule, &ZORAssociationRole::getUpdateRule>(
            "updateRule", RULES, "What happens when a referenced key changes."),
        word<&ZORAssociationRole::setDeleteRule, &ZORAssociationRole::getDeleteRule>(
            "deleteRule", RULES, "What happens when a referenced row goes."),
        word<&ZORAssociationRole::setInsertRule, &ZORAssociationRole::getInsertRule>(
            "insertRule", RULES, "What happens when a referencing row comes."),
        boolean<&ZORAssociationRole::setAggregateEnd, &ZORAssociationRole::isAggregateEnd>(
            "aggregateEnd", "Whether this end is the whole."),
        integer<&ZORAssociationRole::setAggregationKind, &ZORAssociationRole::getAggregationKind>(
            "aggregationKind", 0, 2,
            "At the end of the parts: 0 makes them parts that "
            "go with the whole, 1 and 2 parts that outlive it."),
        boolean<&ZORAssociationRole::setNavigable, &ZORAssociationRole::isNavigable>(
            "navigable", "Whether the other end can reach this one."),
        boolean<&ZORAssociationRole::setOrdered, &ZORAssociationRole::isOrdered>(
            "ordered", "Whether the objects at this end have an order."),
        word<&ZORAssociationRole::setVisibility, &ZORAssociationRole::getVisibility>(
            "visibility", VISIBILITIES, "Who may use this end."),
        text<&ZORAssociationRole::setConstraint, &ZORAssociationRole::getConstraint>(
            "constraint", "A condition on this end."),
        objects<&ZORAssociationRole::addQualifier, &ZORAssociationRole::getQualifiers>(
            "qualifiers", Family::ATTRIBUTES, "Attributes whose values tell this end's objects apart."),
    });
}

std::vector<Field> generalizationFields() {
    return withCommonFields({
        nonEmpty(references<&ZORGeneralization::addSupertypeClass, &ZORGeneralization::getParents>(
            "parents", ANY_CLASS, "The general classes.")),
        nonEmpty(references<&ZORGeneralization::addSubtypeClass, &ZORGeneralization::getChildren>(
            "children", ANY_CLASS, "The special classes.")),
        word<&ZORGeneralization::setVisibility, &ZORGeneralization::getVisibility>(
            "visibility", VISIBILITIES, "Who may know of the generalization."),
        references<&ZORGeneralization::addForeignKey, &ZORGeneralization::getForeignKeys>(
            "foreignKeys", FREE_FOREIGN_KEY, "The keys by which special rows refer to general ones."),
    });
}

std::vector<Field> dependencyFields() {
    return withCommonFields({
        required(reference<&ZORDependency::setClient, &ZORDependency::getClient>("client", ANY_CLASS,
                                                                                 "The class that depends.")),
        required(reference<&ZORDependency::setSupplier, &ZORDependency::getSupplier>(
            "supplier", ANY_CLASS, "The class that it depends on.")),
    });
}

std::vector<Field> realizationFields() {
    return withCommonFields({
        required(reference<&ZORRealization::setClient, &ZORRealization::getClient>(
            "client", ANY_CLASS, "The class that realizes.")),
        required(reference<&ZORRealization::setSupplier, &ZORRealization::getSupplier>(
            "supplier", ANY_CLASS, "The class that is realized.")),
    });
}

}  // namespace readers::document
