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
        objects<&ZORAssociation::addRole>("roles", Family::ROLES, "The ends of the association."),
        reference<&ZORAssociation::setAssociationClass>(
            "associationClass", FREE_CLASS, "The class that holds the association's own features."),
        text<&ZORAssociation::setConstraint>("constraint", "A condition on the association."),
        boolean<&ZORAssociation::setAggregation>("aggregation",
                                                 "Whether one end is the whole and the other its parts."),
        integer<&ZORAssociation::setAssociationKind>(
            "associationKind", LOWEST_INTEGER, HIGHEST_INTEGER,
            "1 marks an association that stands for a generalization."),
    });
}

std::vector<Field> roleFields() {
    return withCommonFields({
        required(
            reference<&ZORAssociationRole::setAssociatedClass>("class", ANY_CLASS, "The class at this end.")),
        text<&ZORAssociationRole::setMultiplicity>(
            "multiplicity", "How many objects of this end there may be, such as \"0..1\" or \"*\"."),
        reference<&ZORAssociationRole::addForeignKey>("foreignKey", FREE_FOREIGN_KEY,
                                                      "At the referencing end: the foreign key."),
        word<&ZORAssociationRole::setUpdateRule>("updateRule", RULES,
                                                 "What happens when a referenced key changes."),
        word<&ZORAssociationRole::setDeleteRule>("deleteRule", RULES,
                                                 "What happens when a referenced row goes."),
        word<&ZORAssociationRole::setInsertRule>("insertRule", RULES,
                                                 "What happens when a referencing row comes."),
        boolean<&ZORAssociationRole::setAggregateEnd>("aggregateEnd", "Whether this end is the whole."),
        integer<&ZORAssociationRole::setAggregationKind>("aggregationKind", 0, 2,
                                                         "At the end of the parts: 0 makes them parts that "
                                                         "go with the whole, 1 and 2 parts that outlive it."),
        boolean<&ZORAssociationRole::setNavigable>("navigable", "Whether the other end can reach this one."),
        boolean<&ZORAssociationRole::setOrdered>("ordered", "Whether the objects at this end have an order."),
        word<&ZORAssociationRole::setVisibility>("visibility", VISIBILITIES, "Who may use this end."),
        text<&ZORAssociationRole::setConstraint>("constraint", "A condition on this end."),
        objects<&ZORAssociationRole::addQualifier>("qualifiers", Family::ATTRIBUTES,
                                                   "Attributes whose values tell this end's objects apart."),
    });
}

std::vector<Field> generalizationFields() {
    return withCommonFields({
        nonEmpty(
            references<&ZORGeneralization::addSupertypeClass>("parents", ANY_CLASS, "The general classes.")),
        nonEmpty(
            references<&ZORGeneralization::addSubtypeClass>("children", ANY_CLASS, "The special classes.")),
        word<&ZORGeneralization::setVisibility>("visibility", VISIBILITIES,
                                                "Who may know of the generalization."),
        references<&ZORGeneralization::addForeignKey>(
            "foreignKeys", FREE_FOREIGN_KEY, "The keys by which special rows refer to general ones."),
    });
}

std::vector<Field> dependencyFields() {
    return withCommonFields({
        required(reference<&ZORDependency::setClient>("client", ANY_CLASS, "The class that depends.")),
        required(
            reference<&ZORDependency::setSupplier>("supplier", ANY_CLASS, "The class that it depends on.")),
    });
}

std::vector<Field> realizationFields() {
    return withCommonFields({
        required(reference<&ZORRealization::setClient>("client", ANY_CLASS, "The class that realizes.")),
        required(
            reference<&ZORRealization::setSupplier>("supplier", ANY_CLASS, "The class that is realized.")),
    });
}

}  // namespace readers::document
