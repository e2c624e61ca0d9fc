// What every class of the model consists of, told once: dumping a model and walking over it both read this
// list.
#pragma once

#include "ZOR.h"

namespace support {

/// Tells `fields` all that the object holds, by these operations:
/// - `text(name, ZORString)`, `number(name, integer or enumeration)`, `flag(name, bool)`: properties;
/// - `reference(name, object or null)`, `references(name, list)`: objects that belong to somebody else;
/// - `parts(name, list)`: the objects that belong to this one.
template <typename Fields>
void describe(const ZORObject& object, Fields& fields);

namespace fields {

template <typename Fields>
void describe(const ZORNote& note, Fields& fields) {
    fields.text("description", note.getDescription());
}

template <typename Fields>
void describe(const ZORModelObject& object, Fields& fields) {
    fields.reference("owner", object.getOwner());
    fields.text("description", object.getDescription());
    fields.text("comments", object.getComments());
    fields.text("physicalName", object.getPhysicalName());
    fields.text("stereotype", object.getStereotype());
    fields.number("designLevel", object.getDesignLevel());
    fields.parts("notes", object.getNotes());
}

template <typename Fields>
void describe(const ZORPackage& package, Fields& fields) {
    fields.parts("packages", package.getChildPackages());
}

template <typename Fields>
void describe(const ZORModel& model, Fields& fields) {
    fields.parts("types", model.getTypes());
}

template <typename Fields>
void describe(const ZORDesignPackage& package, Fields& fields) {
    fields.parts("elements", package.getModelElements());
    fields.parts("operations", package.getOperations());
    fields.parts("diagrams", package.getDiagrams());
}

template <typename Fields>
void describe(const ZORDatabaseCatalog& catalog, Fields& fields) {
    fields.text("databaseType", catalog.getDatabaseType());
}

template <typename Fields>
void describe(const ZORDiagram& diagram, Fields& fields) {
    fields.references("elements", diagram.getModelElements());
}

template <typename Fields>
void describe(const ZORModelElement& element, Fields& fields) {
    fields.references("diagrams", element.getDiagrams());
}

template <typename Fields>
void describe(const ZORType& type, Fields& fields) {
    fields.text("dataType", type.getDataType());
    fields.number("length", type.getLength());
    fields.number("scale", type.getScale());
    fields.text("initialValue", type.getInitialValue());
    fields.text("lowerBound", type.getLowerBound());
    fields.text("upperBound", type.getUpperBound());
    fields.parts("values", type.getTypeValues());
    fields.reference("base", type.getBaseType());
    fields.references("typedObjects", type.getTypedObjects());
    fields.references("basedTypes", type.getBasedTypes());
}

template <typename Fields>
void describe(const ZORClassType& type, Fields& fields) {
    fields.reference("class", type.getAssociatedClass());
}

template <typename Fields>
void describe(const ZORTypeValue& value, Fields& fields) {
    fields.number("code", value.getCode());
    fields.text("value", value.getValue());
}

template <typename Fields>
void describe(const ZORClass& cls, Fields& fields) {
    fields.number("classType", cls.getClassType());
    fields.number("visibility", cls.getVisibility());
    fields.number("concurrency", cls.getConcurrency());
    fields.flag("abstract", cls.isAbstract());
    fields.flag("persistent", cls.isPersistent());
    fields.number("estimatedSize", cls.getEstimatedSize());
    fields.reference("association", cls.getAssociation());
    fields.parts("attributes", cls.getAttributes());
    fields.parts("operations", cls.getOperations());
    fields.parts("templateArguments", cls.getArguments());
    fields.parts("keys", cls.getKeys());
    fields.parts("indexes", cls.getIndexes());
    fields.parts("synonyms", cls.getSynonyms());
    fields.references("generalizations", cls.getGeneralizations());
    fields.references("clientDependencies", cls.getClientDependencies());
    fields.references("realizations", cls.getRealizations());
}

template <typename Fields>
void describe(const ZORAttribute& attribute, Fields& fields) {
    fields.number("position", attribute.getPosition());
    fields.reference("type", attribute.getType());
    fields.text("initialValue", attribute.getInitialValue());
    fields.flag("optional", attribute.isOptional());
    fields.flag("static", attribute.isStatic());
    fields.number("visibility", attribute.getVisibility());
    fields.references("keys", attribute.getKeys());
    fields.parts("roleNameMaps", attribute.getRoleNameMaps());
}

template <typename Fields>
void describe(const ZORAssociationRoleNameMap& map, Fields& fields) {
    fields.reference("foreignKey", map.getForeignKey());
    fields.reference("referencedAttribute", map.getReferencedAttribute());
}

template <typename Fields>
void describe(const ZORKey& key, Fields& fields) {
    fields.references("attributes", key.getAttributes());
}

template <typename Fields>
void describe(const ZORCandidateKey& key, Fields& fields) {
    fields.flag("unique", key.isUnique());
    fields.reference("primaryOfClass", key.getPrimaryOfClass());
}

template <typename Fields>
void describe(const ZORForeignKey& key, Fields& fields) {
    fields.reference("candidateKey", key.getCandidateKey());
    fields.references("roles", key.getAssociationRoles());
}

template <typename Fields>
void describe(const ZORIndex& index, Fields& fields) {
    fields.flag("clustered", index.isClustered());
    fields.flag("unique", index.isUnique());
    fields.reference("key", index.getKey());
    fields.parts("members", index.getIndexMembers());
}

template <typename Fields>
void describe(const ZORIndexMember& member, Fields& fields) {
    fields.reference("attribute", member.getAttribute());
    fields.number("sortOrder", member.getSortOrder());
}

template <typename Fields>
void describe(const ZOROperation& operation, Fields& fields) {
    fields.reference("resultType", operation.getResultType());
    fields.parts("arguments", operation.getArguments());
    fields.number("concurrency", operation.getConcurrency());
    fields.number("visibility", operation.getVisibility());
    fields.flag("abstract", operation.isAbstract());
    fields.flag("static", operation.isStatic());
    fields.text("precondition", operation.getPrecondition());
    fields.text("postcondition", operation.getPostcondition());
    fields.text("semantics", operation.getSemantics());
    fields.text("body", operation.getBody());
}

template <typename Fields>
void describe(const ZORTrigger& trigger, Fields& fields) {
    fields.flag("after", trigger.isAfter());
    fields.flag("insert", trigger.isInsert());
    fields.flag("update", trigger.isUpdate());
    fields.flag("delete", trigger.isDelete());
}

template <typename Fields>
void describe(const ZORArgument& argument, Fields& fields) {
    fields.reference("type", argument.getType());
    fields.text("defaultValue", argument.getDefaultValue());
    fields.number("kind", argument.getKind());
}

template <typename Fields>
void describe(const ZORSQLViewEntity& view, Fields& fields) {
    fields.text("sqlText", view.getSQLText());
    fields.parts("columns", view.getSQLViewAttributes());
    fields.parts("operations", view.getOperations());
}

template <typename Fields>
void describe(const ZORSQLViewAttribute& column, Fields& fields) {
    fields.reference("type", column.getType());
    fields.reference("source", column.getSource());
}

template <typename Fields>
void describe(const ZORAssociation& association, Fields& fields) {
    fields.parts("roles", association.getRoles());
    fields.reference("associationClass", association.getAssociationClass());
    fields.text("constraint", association.getConstraint());
    fields.flag("aggregation", association.isAggregation());
    fields.number("kind", association.getAssociationKind());
}

template <typename Fields>
void describe(const ZORAssociationRole& role, Fields& fields) {
    fields.reference("class", role.getAssociatedClass());
    fields.text("multiplicity", role.getMultiplicity());
    fields.reference("foreignKey", role.getForeignKey());
    fields.number("updateRule", role.getUpdateRule());
    fields.number("deleteRule", role.getDeleteRule());
    fields.number("insertRule", role.getInsertRule());
    fields.flag("aggregateEnd", role.isAggregateEnd());
    fields.number("aggregationKind", role.getAggregationKind());
    fields.flag("navigable", role.isNavigable());
    fields.flag("ordered", role.isOrdered());
    fields.flag("supertypeSide", role.isSupertypeSide());
    fields.number("visibility", role.getVisibility());
    fields.text("constraint", role.getConstraint());
    fields.parts("qualifiers", role.getQualifiers());
}

template <typename Fields>
void describe(const ZORGeneralization& generalization, Fields& fields) {
    fields.references("parents", generalization.getParents());
    fields.references("children", generalization.getChildren());
    fields.number("visibility", generalization.getVisibility());
    fields.references("foreignKeys", generalization.getForeignKeys());
}

template <typename Fields>
void describe(const ZORDependency& dependency, Fields& fields) {
    fields.reference("client", dependency.getClient());
    fields.reference("supplier", dependency.getSupplier());
}

template <typename Fields>
void describe(const ZORRealization& realization, Fields& fields) {
    fields.reference("client", realization.getClient());
    fields.reference("supplier", realization.getSupplier());
}

template <typename Class, typename Fields>
void describeIf(ZORElementType type, const ZORObject& object, Fields& fields) {
    if (object.isInstanceOf(type)) {
        describe(static_cast<const Class&>(object), fields);
    }
}

}  // namespace fields

template <typename Fields>
void describe(const ZORObject& object, Fields& fields) {
    using namespace fields;
    fields.text("name", object.getName());
    fields.flag("generalPointer", object.getGeneralPointer() != nullptr);
    describeIf<ZORNote>(ZOR_NOTE, object, fields);
    describeIf<ZORModelObject>(ZOR_MODEL_OBJECT, object, fields);
    describeIf<ZORPackage>(ZOR_PACKAGE, object, fields);
    describeIf<ZORModel>(ZOR_MODEL, object, fields);
    describeIf<ZORDesignPackage>(ZOR_DESIGN_PACKAGE, object, fields);
    describeIf<ZORDatabaseCatalog>(ZOR_DATABASE_CATALOG, object, fields);
    describeIf<ZORDiagram>(ZOR_DIAGRAM, object, fields);
    describeIf<ZORModelElement>(ZOR_MODEL_ELEMENT, object, fields);
    describeIf<ZORType>(ZOR_TYPE, object, fields);
    describeIf<ZORClassType>(ZOR_CLASS_TYPE, object, fields);
    describeIf<ZORTypeValue>(ZOR_TYPE_VALUE, object, fields);
    describeIf<ZORClass>(ZOR_CLASS, object, fields);
    describeIf<ZORAttribute>(ZOR_ATTRIBUTE, object, fields);
    describeIf<ZORAssociationRoleNameMap>(ZOR_ASSOCIATION_ROLE_NAME_MAP, object, fields);
    describeIf<ZORKey>(ZOR_KEY, object, fields);
    describeIf<ZORCandidateKey>(ZOR_CANDIDATE_KEY, object, fields);
    describeIf<ZORForeignKey>(ZOR_FOREIGN_KEY, object, fields);
    describeIf<ZORIndex>(ZOR_INDEX, object, fields);
    describeIf<ZORIndexMember>(ZOR_INDEX_MEMBER, object, fields);
    describeIf<ZOROperation>(ZOR_OPERATION, object, fields);
    describeIf<ZORTrigger>(ZOR_TRIGGER, object, fields);
    describeIf<ZORArgument>(ZOR_ARGUMENT, object, fields);
    describeIf<ZORSQLViewEntity>(ZOR_SQL_VIEW_ENTITY, object, fields);
    describeIf<ZORSQLViewAttribute>(ZOR_SQL_VIEW_ATTRIBUTE, object, fields);
    describeIf<ZORAssociation>(ZOR_ASSOCIATION, object, fields);
    describeIf<ZORAssociationRole>(ZOR_ASSOCIATION_ROLE, object, fields);
    describeIf<ZORGeneralization>(ZOR_GENERALIZATION, object, fields);
    describeIf<ZORDependency>(ZOR_DEPENDENCY, object, fields);
    describeIf<ZORRealization>(ZOR_REALIZATION, object, fields);
}

}  // namespace support
