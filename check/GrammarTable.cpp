#include "GrammarTable.h"

namespace oimcheck {
namespace {

constexpr auto FRAME = ElementKind::FRAME;
constexpr auto OBJECT = ElementKind::OBJECT;
constexpr auto ASSOCIATION = ElementKind::ASSOCIATION;
constexpr auto NUMBERED = ElementKind::NUMBERED_ASSOCIATION;

constexpr std::string_view END_ATTRIBUTES =
    "name description comments !aggregation=none|composite|aggregate !isNavigable=0|1 multiplicity "
    "!ordering=ordered|unordered AssociationEnd.visibility";
constexpr std::string_view ROLE_ATTRIBUTES =
    "name description comments DeleteRule=1|2|3|4 UpdateRule=1|2|3|4";

constexpr GrammarRow ROWS[] = {
    {"oim:Transfer", FRAME,
     "!xmlns:oim=http://www.mdcinfo.com/oim/oim.dtd !xmlns:uml=http://www.mdcinfo.com/oim/uml.dtd "
     "xmlns:erd=http://www.mdcinfo.com/oim/erd.dtd xmlns:dtm=http://www.mdcinfo.com/oim/dtm.dtd "
     "xmlns:dbm=http://www.mdcinfo.com/oim/dbm.dtd",
     "1oim:TransferHeader 1uml:Subsystem"},
    {"oim:TransferHeader", FRAME, "!Exporter !ExporterVersion !TransferDateTime", ""},
    {"uml:Subsystem", OBJECT, "!name", "1uml:NamespaceOwnedElement@view"},
    {"uml:NamespaceOwnedElement@view", ASSOCIATION, "",
     "+: ?uml:Model ?erd:Model ?dtm:TypeSet ?dbm:LogicalCatalog ?dbm:ColumnTypeSet"},

    {"uml:Model", OBJECT, "name description comments",
     "?uml:ModelElementStereotype ?uml:NamespaceOwnedElement@model"},
    {"uml:NamespaceOwnedElement@model", ASSOCIATION, "", "uml:Package uml:DataType uml:Stereotype"},
    {"uml:Package", OBJECT, "!name description comments",
     "?uml:ModelElementStereotype ?uml:NamespaceOwnedElement@package"},
    {"uml:NamespaceOwnedElement@package", ASSOCIATION, "",
     "uml:Package uml:Class uml:Interface uml:AssociationClass uml:Association uml:Generalization "
     "uml:Dependency uml:Constraint uml:Comment"},
    {"uml:Class", OBJECT, "!name description comments isAbstract=1 isActive=1 !visibility",
     "?uml:ModelElementStereotype ?uml:ModelElementTemplateParameter ?uml:ClassifierFeature "
     "?uml:GeneralizableElementGeneralizations 1uml:ModelElementTaggedValue@class "
     "?uml:ModelElementClientDependency@class"},
    {"uml:Interface", OBJECT, "!name description comments isAbstract=1 !visibility",
     "?uml:ModelElementStereotype ?uml:ModelElementTemplateParameter ?uml:ClassifierFeature "
     "?uml:GeneralizableElementGeneralizations 1uml:ModelElementTaggedValue@class "
     "?uml:ModelElementClientDependency@class"},
    {"uml:AssociationClass", OBJECT, "!name description comments isAbstract=1 isActive=1 !visibility",
     "1uml:AssociationConnection@class ?uml:ModelElementStereotype ?uml:ModelElementTemplateParameter "
     "?uml:ClassifierFeature ?uml:GeneralizableElementGeneralizations 1uml:ModelElementTaggedValue@class "
     "?uml:ModelElementClientDependency@class"},
    {"uml:Association", OBJECT, "!name description comments",
     "?uml:ModelElementStereotype 1uml:AssociationConnection@association"},
    {"uml:Generalization", OBJECT, "!name description comments !visibility",
     "?uml:ModelElementStereotype 1uml:GeneralizationParent"},
    {"uml:Dependency", OBJECT, "!name description comments",
     "?uml:ModelElementStereotype 1uml:DependencySupplier@class"},
    {"uml:Attribute", OBJECT,
     "!name description comments initialValue !ownerScope=classifier|instance typeExpression !visibility",
     "1uml:StructuralFeatureType ?uml:ModelElementStereotype"},
    {"uml:Operation", OBJECT,
     "!name description comments !concurrency=Sequential|Guarded|Active|Synchronous isAbstract=1 "
     "!ownerScope=classifier|instance !visibility",
     "?uml:ModelElementStereotype ?uml:BehavioralFeatureParameter ?uml:ModelElementTaggedValue@operation"},
    {"uml:Parameter", OBJECT,
     "!name description comments defaultValue kind=in|out|inout|return typeExpression",
     "1uml:ParameterType ?uml:ModelElementStereotype"},
    {"uml:DataType", OBJECT, "!name description comments", ""},
    {"uml:Stereotype", OBJECT,
     "!name "
     "!baseClass=Model|Package|Class|AssociationClass|Attribute|Generalization|Association|AssociationEnd|"
     "Operation|Parameter|Constraint|Dependency",
     ""},
    {"uml:Constraint", OBJECT, "!name !body",
     "?uml:ModelElementStereotype 1uml:ConstraintConstrainedElement"},
    {"uml:Comment", OBJECT, "!name comments", "1uml:CommentAnnotatedElement"},
    {"uml:ModelElementStereotype", ASSOCIATION, "", "1: &uml:Stereotype"},
    {"uml:ClassifierFeature", ASSOCIATION, "", "+: uml:Attribute uml:Operation"},
    {"uml:GeneralizableElementGeneralizations", ASSOCIATION, "", "+: &uml:Generalization"},
    {"uml:ModelElementTaggedValue@class", ASSOCIATION, "", "1: uml:TaggedValue@persistence"},
    {"uml:TaggedValue@persistence", OBJECT, "!name=persistence !value=persistent|transient", ""},
    {"uml:ModelElementTaggedValue@operation", ASSOCIATION, "", "1: uml:TaggedValue@semantics"},
    {"uml:TaggedValue@semantics", OBJECT, "!name=semantics !value", ""},
    {"uml:ModelElementClientDependency@class", ASSOCIATION, "", "+: &uml:Dependency"},
    {"uml:ModelElementTemplateParameter", ASSOCIATION, "", "+: uml:Parameter"},
    {"uml:BehavioralFeatureParameter", ASSOCIATION, "", "+: uml:Parameter"},
    {"uml:ParameterType", ASSOCIATION, "", "1: *classes &uml:DataType"},
    {"uml:StructuralFeatureType", ASSOCIATION, "", "1: *classes &uml:DataType"},
    {"uml:GeneralizationParent", ASSOCIATION, "", "1: *classes"},
    {"uml:DependencySupplier@class", ASSOCIATION, "", "1: *classes"},
    {"uml:ConstraintConstrainedElement", ASSOCIATION, "",
     "1: &uml:Operation &uml:Association &uml:AssociationEnd"},
    {"uml:CommentAnnotatedElement", ASSOCIATION, "",
     "1: &uml:Class &uml:AssociationClass &uml:Package &uml:Attribute &uml:Operation &uml:Parameter "
     "&uml:Association &uml:AssociationEnd &uml:Generalization &uml:Dependency"},

    // The ends of an association class are told from those of an association: they may refer to classes that
    // are left out.
    {"uml:AssociationConnection@association", ASSOCIATION, "", "uml:AssociationEnd@association"},
    {"uml:AssociationEnd@association", OBJECT, END_ATTRIBUTES,
     "?uml:ModelElementStereotype 1uml:AssociationEndType@association ?uml:AssociationEndQualifier"},
    {"uml:AssociationEndType@association", ASSOCIATION, "", "1: *classes"},
    {"uml:AssociationConnection@class", ASSOCIATION, "", "uml:AssociationEnd@class"},
    {"uml:AssociationEnd@class", OBJECT, END_ATTRIBUTES,
     "?uml:ModelElementStereotype 1uml:AssociationEndType@class ?uml:AssociationEndQualifier"},
    {"uml:AssociationEndType@class", ASSOCIATION, "", "1: *classes"},
    {"uml:AssociationEndQualifier", ASSOCIATION, "", "+: uml:Attribute"},

    {"erd:Model", OBJECT, "!name description comments",
     "1erd:ModelEntities 1erd:ModelRelationships 1erd:ModelSubjectAreas 1erd:ModelDomains"},
    {"erd:ModelEntities", ASSOCIATION, "", "erd:Entity"},
    {"erd:ModelRelationships", ASSOCIATION, "", "erd:Relationship"},
    {"erd:ModelSubjectAreas", ASSOCIATION, "", "erd:SubjectArea"},
    {"erd:ModelDomains", ASSOCIATION, "", "erd:Domain"},
    {"erd:Entity", OBJECT, "!name description comments", "?erd:EntityEntityAttributes ?erd:EntityKeys"},
    {"erd:EntityEntityAttributes", ASSOCIATION, "", "+: erd:Attribute"},
    {"erd:EntityKeys", ASSOCIATION, "", "+: erd:Key"},
    {"erd:Attribute", OBJECT, "!name description comments initialValue", "1erd:AttributeDomain"},
    {"erd:AttributeDomain", ASSOCIATION, "", "1: &erd:Domain"},
    {"erd:Key", OBJECT, "!name description comments !KeyType=1|2|3|4", "1erd:KeyAttributes"},
    {"erd:KeyAttributes", ASSOCIATION, "", "&erd:Attribute"},
    {"erd:Relationship", OBJECT, "!name description comments !RelationshipType=1|2|3|5",
     "1erd:RelationshipParentRole 1erd:RelationshipChildRole"},
    {"erd:RelationshipParentRole", ASSOCIATION, "", "1: erd:ParentRole"},
    {"erd:RelationshipChildRole", ASSOCIATION, "", "1: erd:ChildRole"},
    {"erd:ParentRole", OBJECT,
     "name description comments multiplicity Delete=1|2|3|4 Insert=1|2|3|4 Update=1|2|3|4",
     "1erd:ParentRoleEntity 1erd:ParentRoleKey"},
    {"erd:ParentRoleEntity", ASSOCIATION, "", "1: &erd:Entity"},
    {"erd:ParentRoleKey", ASSOCIATION, "", "1: &erd:Key"},
    {"erd:ChildRole", OBJECT, "name description comments multiplicity",
     "1erd:ChildRoleEntity 1erd:ChildRoleKey"},
    {"erd:ChildRoleEntity", ASSOCIATION, "", "1: &erd:Entity"},
    {"erd:ChildRoleKey", ASSOCIATION, "", "1: &erd:Key"},
    {"erd:SubjectArea", OBJECT, "!name description comments", "1erd:SubjectAreaDiagrams"},
    {"erd:SubjectAreaDiagrams", NUMBERED, "", "1: erd:StoredDisplay"},
    {"erd:StoredDisplay", OBJECT, "!Name=Display1", "?erd:StoredDisplayGraphicFeatures"},
    {"erd:StoredDisplayGraphicFeatures", ASSOCIATION, "", "erd:GraphicFeature"},
    {"erd:GraphicFeature", OBJECT, "", "1: erd:GraphicFeatureEntity erd:GraphicFeatureRelationship"},
    {"erd:GraphicFeatureEntity", ASSOCIATION, "", "1: &erd:Entity"},
    {"erd:GraphicFeatureRelationship", ASSOCIATION, "", "1: &erd:Relationship"},
    // A domain of values that are not null names its parent twice.
    {"erd:Domain", OBJECT, "name description comments Precision=int Scale=int IsNull=0|1",
     "erd:DomainParentDomain ?erd:DomainDefaultType ?erd:DomainDefaultValue ?erd:DomainValidationRule"},
    {"erd:DomainParentDomain", ASSOCIATION, "", "1: &erd:Domain"},
    {"erd:DomainDefaultType", ASSOCIATION, "", "1: &erd:DataType"},
    {"erd:DomainDefaultValue", ASSOCIATION, "", "1: erd:Value@default"},
    {"erd:Value@default", OBJECT, "StoredValue", ""},
    {"erd:DomainValidationRule", ASSOCIATION, "", "1: erd:ValidationRule"},
    {"erd:ValidationRule", OBJECT, "", "1erd:ValidationRuleValidValues"},
    {"erd:ValidationRuleValidValues", ASSOCIATION, "", "+: erd:Value@valid"},
    {"erd:Value@valid", OBJECT, "name !NumericValue=int StoredValue", ""},

    {"dtm:TypeSet", OBJECT, "!name !version", "1dtm:TypeSetTypes"},
    {"dtm:TypeSetTypes", ASSOCIATION, "", "erd:DataType"},
    {"erd:DataType", OBJECT, "!name", ""},

    {"dbm:LogicalCatalog", OBJECT, "!name description comments",
     "1dbm:CatalogSchemas ?uml:ModelElementClientDependency@catalog"},
    {"dbm:CatalogSchemas", ASSOCIATION, "", "dbm:LogicalSchema"},
    {"dbm:LogicalSchema", OBJECT, "!name description comments",
     "?dbm:SchemaTables ?dbm:SchemaTableSynonyms ?dbm:SchemaStoredProcedures ?dbm:SchemaViews "
     "?dbm:SchemaReferentialConstraints"},
    {"dbm:SchemaTables", ASSOCIATION, "", "+: dbm:LogicalTable"},
    {"dbm:SchemaTableSynonyms", ASSOCIATION, "", "+: dbm:TableSynonym"},
    {"dbm:SchemaStoredProcedures", ASSOCIATION, "", "dbm:StoredProcedure"},
    {"dbm:SchemaViews", ASSOCIATION, "", "+: dbm:LogicalView"},
    {"dbm:SchemaReferentialConstraints", ASSOCIATION, "", "+: dbm:ReferentialConstraint"},
    {"dbm:LogicalTable", OBJECT, "!name description comments EstimatedSize=int",
     "?dbm:ColumnSetColumns@table ?dbm:TableUniqueKeys ?dbm:TableForeignKeys ?dbm:TableTriggers "
     "?dbm:TableIndices ?uml:ModelElementClientDependency@table"},
    {"dbm:ColumnSetColumns@table", ASSOCIATION, "", "+: dbm:LogicalColumn@table"},
    {"dbm:TableUniqueKeys", ASSOCIATION, "", "+: dbm:UniqueKey"},
    {"dbm:TableForeignKeys", ASSOCIATION, "", "+: dbm:ForeignKey"},
    {"dbm:TableTriggers", ASSOCIATION, "", "+: dbm:LogicalTrigger"},
    {"dbm:TableIndices", ASSOCIATION, "", "+: dbm:LogicalIndex"},
    {"dbm:LogicalColumn@table", OBJECT,
     "!name description comments !Ordinal=int initialValue !IsNullable=0|1 NumericPrecision=int "
     "NumericScale=int Length=int TimePrecision=int IdentityIncrement=1",
     "?dbm:ColumnDataType ?uml:ModelElementClientDependency@column"},
    {"dbm:ColumnDataType", ASSOCIATION, "", "1: &dbm:ColumnType"},
    {"dbm:UniqueKey", OBJECT, "!name description comments IsPrimary=1",
     "1dbm:KeyColumns ?uml:ModelElementClientDependency@key"},
    {"dbm:ForeignKey", OBJECT, "!name description comments",
     "1dbm:KeyColumns ?uml:ModelElementClientDependency@key"},
    {"dbm:KeyColumns", ASSOCIATION, "", "&dbm:LogicalColumn"},
    {"dbm:LogicalIndex", OBJECT, "!name description comments IsClustered=1 IsUnique=1",
     "1dbm:IndexIndexColumns ?uml:ModelElementClientDependency@key"},
    {"dbm:IndexIndexColumns", ASSOCIATION, "", "+: dbm:IndexColumn"},
    {"dbm:IndexColumn", OBJECT, "name description comments IsAscending=0|1", "1dbm:IndexColumnColumn"},
    {"dbm:IndexColumnColumn", ASSOCIATION, "", "1: &dbm:LogicalColumn"},
    {"dbm:ReferentialConstraint", OBJECT, "!name description comments",
     "?uml:ModelElementClientDependency@constraint 1dbm:ReferentialConstraintUniqueKeyRole "
     "1dbm:ReferentialConstraintForeignKeyRole"},
    {"dbm:ReferentialConstraintUniqueKeyRole", ASSOCIATION, "", "1: dbm:UniqueKeyRole"},
    {"dbm:ReferentialConstraintForeignKeyRole", ASSOCIATION, "", "1: dbm:ForeignKeyRole"},
    {"dbm:UniqueKeyRole", OBJECT, ROLE_ATTRIBUTES, "1dbm:JoinRoleColumnSet 1dbm:UniqueKeyRoleUniqueKey"},
    {"dbm:ForeignKeyRole", OBJECT, ROLE_ATTRIBUTES, "1dbm:JoinRoleColumnSet 1dbm:ForeignKeyRoleForeignKey"},
    {"dbm:JoinRoleColumnSet", ASSOCIATION, "", "1: &dbm:LogicalTable"},
    {"dbm:UniqueKeyRoleUniqueKey", ASSOCIATION, "", "1: &dbm:UniqueKey"},
    {"dbm:ForeignKeyRoleForeignKey", ASSOCIATION, "", "1: &dbm:ForeignKey"},
    {"dbm:LogicalView", OBJECT, "!name description comments Body", "?dbm:ColumnSetColumns@view"},
    {"dbm:ColumnSetColumns@view", ASSOCIATION, "", "+: dbm:LogicalColumn@view"},
    {"dbm:LogicalColumn@view", OBJECT,
     "!name description comments initialValue IsNullable=0|1 NumericPrecision=int NumericScale=int "
     "Length=int TimePrecision=int IdentityIncrement=1",
     "?dbm:ColumnDataType"},
    {"dbm:StoredProcedure", OBJECT, "!name description comments body", "?dbm:StoredProcedureParameters"},
    {"dbm:StoredProcedureParameters", ASSOCIATION, "", "+: dbm:StoredProcedureParameter"},
    {"dbm:StoredProcedureParameter", OBJECT,
     "!name description comments defaultValue IsOutput=1 NumericPrecision=int NumericScale=int Length=int "
     "TimePrecision=int",
     ""},
    {"dbm:LogicalTrigger", OBJECT,
     "!name description comments !BeforeAfter=1|2 IsDelete=1 IsInsert=1 IsUpdate=1 Statements", ""},
    {"dbm:TableSynonym", OBJECT, "name", "1dbm:TableSynonymTable"},
    {"dbm:TableSynonymTable", ASSOCIATION, "", "1: &dbm:LogicalTable"},
    {"dbm:ColumnTypeSet", OBJECT, "!name !version", "1dbm:ColumnTypeSetColumnTypes"},
    {"dbm:ColumnTypeSetColumnTypes", ASSOCIATION, "", "dbm:ColumnType"},
    {"dbm:ColumnType", OBJECT, "!name", ""},

    // What an element of the DBM view was derived from is of the kind that corresponds to it.
    {"uml:ModelElementClientDependency@catalog", ASSOCIATION, "", "1: uml:Abstraction@catalog"},
    {"uml:Abstraction@catalog", OBJECT, "!name=Derived", "1uml:DependencySupplier@catalog"},
    {"uml:DependencySupplier@catalog", ASSOCIATION, "", "1: &erd:Model"},
    {"uml:ModelElementClientDependency@table", ASSOCIATION, "", "1: uml:Abstraction@table"},
    {"uml:Abstraction@table", OBJECT, "!name=Derived", "1uml:DependencySupplier@table"},
    {"uml:DependencySupplier@table", ASSOCIATION, "", "1: &erd:Entity"},
    {"uml:ModelElementClientDependency@column", ASSOCIATION, "", "1: uml:Abstraction@column"},
    {"uml:Abstraction@column", OBJECT, "!name=Derived", "1uml:DependencySupplier@column"},
    {"uml:DependencySupplier@column", ASSOCIATION, "", "1: &erd:Attribute"},
    {"uml:ModelElementClientDependency@key", ASSOCIATION, "", "1: uml:Abstraction@key"},
    {"uml:Abstraction@key", OBJECT, "!name=Derived", "1uml:DependencySupplier@key"},
    {"uml:DependencySupplier@key", ASSOCIATION, "", "1: &erd:Key"},
    {"uml:ModelElementClientDependency@constraint", ASSOCIATION, "", "1: uml:Abstraction@constraint"},
    {"uml:Abstraction@constraint", OBJECT, "!name=Derived", "1uml:DependencySupplier@constraint"},
    {"uml:DependencySupplier@constraint", ASSOCIATION, "", "1: &erd:Relationship"},
};

}  // namespace

std::span<const GrammarRow> grammarRows() {
    return ROWS;
}

}  // namespace oimcheck
