#include "OimGrammar.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace oimcheck {
namespace {

/// A row of the grammar, as text. Attributes are names, followed where the value is restricted by "=" and the
/// words that are permitted, separated by "|", or "=int"; "visibility" and the like stand for themselves. A
/// "!" in front means that the attribute is always there. Children are tags; a "&" in front means that a
/// reference of that tag stands there, "*" a group of them, "1" that the child stands there exactly once.
struct Row {
    std::string_view name;
    ElementKind kind;
    std::string_view attributes;
    std::string_view children;
};

constexpr auto FRAME = ElementKind::FRAME;
constexpr auto OBJECT = ElementKind::OBJECT;
constexpr auto ASSOCIATION = ElementKind::ASSOCIATION;
constexpr auto NUMBERED = ElementKind::NUMBERED_ASSOCIATION;

constexpr std::string_view VISIBILITY = "PublicAccess|ProtectedAccess|PrivateAccess";

constexpr Row ROWS[] = {
    {"oim:Transfer", FRAME,
     "!xmlns:oim=http://www.mdcinfo.com/oim/oim.dtd !xmlns:uml=http://www.mdcinfo.com/oim/uml.dtd "
     "xmlns:erd=http://www.mdcinfo.com/oim/erd.dtd xmlns:dtm=http://www.mdcinfo.com/oim/dtm.dtd "
     "xmlns:dbm=http://www.mdcinfo.com/oim/dbm.dtd",
     "1oim:TransferHeader 1uml:Subsystem"},
    {"oim:TransferHeader", FRAME, "!Exporter !ExporterVersion !TransferDateTime", ""},
    {"uml:Subsystem", OBJECT, "!name", "1uml:NamespaceOwnedElement"},
    {"uml:NamespaceOwnedElement", ASSOCIATION, "",
     "uml:Model erd:Model dtm:TypeSet dbm:LogicalCatalog dbm:ColumnTypeSet uml:Package uml:Class "
     "uml:Interface "
     "uml:AssociationClass uml:Association uml:Generalization uml:Dependency uml:Constraint uml:Comment "
     "uml:DataType "
     "uml:Stereotype"},

    {"uml:Model", OBJECT, "name description comments",
     "uml:ModelElementStereotype uml:NamespaceOwnedElement"},
    {"uml:Package", OBJECT, "!name description comments",
     "uml:ModelElementStereotype uml:NamespaceOwnedElement"},
    {"uml:Class", OBJECT, "!name description comments isAbstract=1 isActive=1 !visibility",
     "uml:ModelElementStereotype uml:ModelElementTemplateParameter uml:ClassifierFeature "
     "uml:GeneralizableElementGeneralizations uml:ModelElementTaggedValue uml:ModelElementClientDependency"},
    {"uml:Interface", OBJECT, "!name description comments isAbstract=1 !visibility",
     "uml:ModelElementStereotype uml:ModelElementTemplateParameter uml:ClassifierFeature "
     "uml:GeneralizableElementGeneralizations uml:ModelElementTaggedValue uml:ModelElementClientDependency"},
    {"uml:AssociationClass", OBJECT, "!name description comments isAbstract=1 isActive=1 !visibility",
     "uml:AssociationConnection uml:ModelElementStereotype uml:ModelElementTemplateParameter "
     "uml:ClassifierFeature "
     "uml:GeneralizableElementGeneralizations uml:ModelElementTaggedValue uml:ModelElementClientDependency"},
    {"uml:Association", OBJECT, "!name description comments",
     "uml:ModelElementStereotype uml:AssociationConnection"},
    {"uml:AssociationEnd", OBJECT,
     "name description comments !aggregation=none|composite|aggregate !isNavigable=0|1 multiplicity "
     "!ordering=ordered|unordered AssociationEnd.visibility",
     "uml:ModelElementStereotype uml:AssociationEndType uml:AssociationEndQualifier"},
    {"uml:Generalization", OBJECT, "!name description comments !visibility",
     "uml:ModelElementStereotype uml:GeneralizationParent"},
    {"uml:Dependency", OBJECT, "!name description comments",
     "uml:ModelElementStereotype uml:DependencySupplier"},
    {"uml:Abstraction", OBJECT, "!name=Derived", "uml:DependencySupplier"},
    {"uml:Attribute", OBJECT,
     "!name description comments initialValue !ownerScope=classifier|instance typeExpression !visibility",
     "uml:StructuralFeatureType uml:ModelElementStereotype"},
    {"uml:Operation", OBJECT,
     "!name description comments !concurrency=Sequential|Guarded|Active|Synchronous isAbstract=1 "
     "!ownerScope=classifier|instance !visibility",
     "uml:ModelElementStereotype uml:BehavioralFeatureParameter uml:ModelElementTaggedValue"},
    {"uml:Parameter", OBJECT,
     "!name description comments defaultValue kind=in|out|inout|return typeExpression",
     "uml:ParameterType uml:ModelElementStereotype"},
    {"uml:DataType", OBJECT, "!name description comments", ""},
    {"uml:Stereotype", OBJECT,
     "!name "
     "!baseClass=Model|Package|Class|AssociationClass|Attribute|Generalization|Association|AssociationEnd|"
     "Operation|Parameter|Constraint|Dependency",
     ""},
    {"uml:TaggedValue", OBJECT, "!name=persistence|semantics !value", ""},
    {"uml:Constraint", OBJECT, "!name !body", "uml:ModelElementStereotype uml:ConstraintConstrainedElement"},
    {"uml:Comment", OBJECT, "!name comments", "uml:CommentAnnotatedElement"},
    {"uml:ModelElementStereotype", ASSOCIATION, "", "&uml:Stereotype"},
    {"uml:ClassifierFeature", ASSOCIATION, "", "uml:Attribute uml:Operation"},
    {"uml:GeneralizableElementGeneralizations", ASSOCIATION, "", "&uml:Generalization"},
    {"uml:ModelElementTaggedValue", ASSOCIATION, "", "uml:TaggedValue"},
    {"uml:ModelElementClientDependency", ASSOCIATION, "", "&uml:Dependency uml:Abstraction"},
    {"uml:ModelElementTemplateParameter", ASSOCIATION, "", "uml:Parameter"},
    {"uml:BehavioralFeatureParameter", ASSOCIATION, "", "uml:Parameter"},
    {"uml:ParameterType", ASSOCIATION, "", "*classes &uml:DataType"},
    {"uml:StructuralFeatureType", ASSOCIATION, "", "*classes &uml:DataType"},
    {"uml:AssociationConnection", ASSOCIATION, "", "uml:AssociationEnd"},
    {"uml:AssociationEndType", ASSOCIATION, "", "*classes"},
    {"uml:AssociationEndQualifier", ASSOCIATION, "", "uml:Attribute"},
    {"uml:GeneralizationParent", ASSOCIATION, "", "*classes"},
    {"uml:DependencySupplier", ASSOCIATION, "",
     "*classes &erd:Model &erd:Entity &erd:Attribute &erd:Key &erd:Relationship"},
    {"uml:ConstraintConstrainedElement", ASSOCIATION, "",
     "&uml:Operation &uml:Association &uml:AssociationEnd"},
    {"uml:CommentAnnotatedElement", ASSOCIATION, "",
     "&uml:Class &uml:AssociationClass &uml:Package &uml:Attribute &uml:Operation &uml:Parameter "
     "&uml:Association "
     "&uml:AssociationEnd "
     "&uml:Generalization &uml:Dependency"},

    {"erd:Model", OBJECT, "!name description comments",
     "erd:ModelEntities erd:ModelRelationships erd:ModelSubjectAreas erd:ModelDomains"},
    {"erd:ModelEntities", ASSOCIATION, "", "erd:Entity"},
    {"erd:ModelRelationships", ASSOCIATION, "", "erd:Relationship"},
    {"erd:ModelSubjectAreas", ASSOCIATION, "", "erd:SubjectArea"},
    {"erd:ModelDomains", ASSOCIATION, "", "erd:Domain"},
    {"erd:Entity", OBJECT, "!name description comments", "erd:EntityEntityAttributes erd:EntityKeys"},
    {"erd:EntityEntityAttributes", ASSOCIATION, "", "erd:Attribute"},
    {"erd:EntityKeys", ASSOCIATION, "", "erd:Key"},
    {"erd:Attribute", OBJECT, "!name description comments initialValue", "erd:AttributeDomain"},
    {"erd:AttributeDomain", ASSOCIATION, "", "&erd:Domain"},
    {"erd:Key", OBJECT, "!name description comments !KeyType=1|2|3|4", "erd:KeyAttributes"},
    {"erd:KeyAttributes", ASSOCIATION, "", "&erd:Attribute"},
    {"erd:Relationship", OBJECT, "!name description comments !RelationshipType=1|2|3|5",
     "erd:RelationshipParentRole erd:RelationshipChildRole"},
    {"erd:RelationshipParentRole", ASSOCIATION, "", "erd:ParentRole"},
    {"erd:RelationshipChildRole", ASSOCIATION, "", "erd:ChildRole"},
    {"erd:ParentRole", OBJECT,
     "name description comments multiplicity Delete=1|2|3|4 Insert=1|2|3|4 Update=1|2|3|4",
     "erd:ParentRoleEntity erd:ParentRoleKey"},
    {"erd:ParentRoleEntity", ASSOCIATION, "", "&erd:Entity"},
    {"erd:ParentRoleKey", ASSOCIATION, "", "&erd:Key"},
    {"erd:ChildRole", OBJECT, "name description comments multiplicity",
     "erd:ChildRoleEntity erd:ChildRoleKey"},
    {"erd:ChildRoleEntity", ASSOCIATION, "", "&erd:Entity"},
    {"erd:ChildRoleKey", ASSOCIATION, "", "&erd:Key"},
    {"erd:SubjectArea", OBJECT, "!name description comments", "erd:SubjectAreaDiagrams"},
    {"erd:SubjectAreaDiagrams", NUMBERED, "", "erd:StoredDisplay"},
    {"erd:StoredDisplay", OBJECT, "!Name=Display1", "erd:StoredDisplayGraphicFeatures"},
    {"erd:StoredDisplayGraphicFeatures", ASSOCIATION, "", "erd:GraphicFeature"},
    {"erd:GraphicFeature", OBJECT, "", "erd:GraphicFeatureEntity erd:GraphicFeatureRelationship"},
    {"erd:GraphicFeatureEntity", ASSOCIATION, "", "&erd:Entity"},
    {"erd:GraphicFeatureRelationship", ASSOCIATION, "", "&erd:Relationship"},
    {"erd:Domain", OBJECT, "name description comments Precision=int Scale=int IsNull=0|1",
     "erd:DomainParentDomain erd:DomainDefaultType erd:DomainDefaultValue erd:DomainValidationRule"},
    {"erd:DomainParentDomain", ASSOCIATION, "", "&erd:Domain"},
    {"erd:DomainDefaultType", ASSOCIATION, "", "&erd:DataType"},
    {"erd:DomainDefaultValue", ASSOCIATION, "", "erd:Value"},
    {"erd:DomainValidationRule", ASSOCIATION, "", "erd:ValidationRule"},
    {"erd:ValidationRule", OBJECT, "", "erd:ValidationRuleValidValues"},
    {"erd:ValidationRuleValidValues", ASSOCIATION, "", "erd:Value"},
    {"erd:Value", OBJECT, "name NumericValue=int StoredValue", ""},

    {"dtm:TypeSet", OBJECT, "!name !version", "dtm:TypeSetTypes"},
    {"dtm:TypeSetTypes", ASSOCIATION, "", "erd:DataType"},
    {"erd:DataType", OBJECT, "!name", ""},

    {"dbm:LogicalCatalog", OBJECT, "!name description comments",
     "dbm:CatalogSchemas uml:ModelElementClientDependency"},
    {"dbm:CatalogSchemas", ASSOCIATION, "", "dbm:LogicalSchema"},
    {"dbm:LogicalSchema", OBJECT, "!name description comments",
     "dbm:SchemaTables dbm:SchemaTableSynonyms dbm:SchemaStoredProcedures dbm:SchemaViews "
     "dbm:SchemaReferentialConstraints"},
    {"dbm:SchemaTables", ASSOCIATION, "", "dbm:LogicalTable"},
    {"dbm:SchemaTableSynonyms", ASSOCIATION, "", "dbm:TableSynonym"},
    {"dbm:SchemaStoredProcedures", ASSOCIATION, "", "dbm:StoredProcedure"},
    {"dbm:SchemaViews", ASSOCIATION, "", "dbm:LogicalView"},
    {"dbm:SchemaReferentialConstraints", ASSOCIATION, "", "dbm:ReferentialConstraint"},
    {"dbm:LogicalTable", OBJECT, "!name description comments EstimatedSize=int",
     "dbm:ColumnSetColumns dbm:TableUniqueKeys dbm:TableForeignKeys dbm:TableTriggers dbm:TableIndices "
     "uml:ModelElementClientDependency"},
    {"dbm:ColumnSetColumns", ASSOCIATION, "", "dbm:LogicalColumn"},
    {"dbm:TableUniqueKeys", ASSOCIATION, "", "dbm:UniqueKey"},
    {"dbm:TableForeignKeys", ASSOCIATION, "", "dbm:ForeignKey"},
    {"dbm:TableTriggers", ASSOCIATION, "", "dbm:LogicalTrigger"},
    {"dbm:TableIndices", ASSOCIATION, "", "dbm:LogicalIndex"},
    {"dbm:LogicalColumn", OBJECT,
     "!name description comments Ordinal=int initialValue IsNullable=0|1 NumericPrecision=int "
     "NumericScale=int "
     "Length=int TimePrecision=int IdentityIncrement=1",
     "dbm:ColumnDataType uml:ModelElementClientDependency"},
    {"dbm:ColumnDataType", ASSOCIATION, "", "&dbm:ColumnType"},
    {"dbm:UniqueKey", OBJECT, "!name description comments IsPrimary=1",
     "dbm:KeyColumns uml:ModelElementClientDependency"},
    {"dbm:ForeignKey", OBJECT, "!name description comments",
     "dbm:KeyColumns uml:ModelElementClientDependency"},
    {"dbm:KeyColumns", ASSOCIATION, "", "&dbm:LogicalColumn"},
    {"dbm:LogicalIndex", OBJECT, "!name description comments IsClustered=1 IsUnique=1",
     "dbm:IndexIndexColumns uml:ModelElementClientDependency"},
    {"dbm:IndexIndexColumns", ASSOCIATION, "", "dbm:IndexColumn"},
    {"dbm:IndexColumn", OBJECT, "name description comments IsAscending=0|1", "dbm:IndexColumnColumn"},
    {"dbm:IndexColumnColumn", ASSOCIATION, "", "&dbm:LogicalColumn"},
    {"dbm:ReferentialConstraint", OBJECT, "!name description comments",
     "uml:ModelElementClientDependency dbm:ReferentialConstraintUniqueKeyRole "
     "dbm:ReferentialConstraintForeignKeyRole"},
    {"dbm:ReferentialConstraintUniqueKeyRole", ASSOCIATION, "", "dbm:UniqueKeyRole"},
    {"dbm:ReferentialConstraintForeignKeyRole", ASSOCIATION, "", "dbm:ForeignKeyRole"},
    {"dbm:UniqueKeyRole", OBJECT, "name description comments DeleteRule=1|2|3|4 UpdateRule=1|2|3|4",
     "dbm:JoinRoleColumnSet dbm:UniqueKeyRoleUniqueKey"},
    {"dbm:ForeignKeyRole", OBJECT, "name description comments DeleteRule=1|2|3|4 UpdateRule=1|2|3|4",
     "dbm:JoinRoleColumnSet dbm:ForeignKeyRoleForeignKey"},
    {"dbm:JoinRoleColumnSet", ASSOCIATION, "", "&dbm:LogicalTable"},
    {"dbm:UniqueKeyRoleUniqueKey", ASSOCIATION, "", "&dbm:UniqueKey"},
    {"dbm:ForeignKeyRoleForeignKey", ASSOCIATION, "", "&dbm:ForeignKey"},
    {"dbm:LogicalView", OBJECT, "!name description comments Body", "dbm:ColumnSetColumns"},
    {"dbm:StoredProcedure", OBJECT, "!name description comments body", "dbm:StoredProcedureParameters"},
    {"dbm:StoredProcedureParameters", ASSOCIATION, "", "dbm:StoredProcedureParameter"},
    {"dbm:StoredProcedureParameter", OBJECT,
     "!name description comments defaultValue IsOutput=1 NumericPrecision=int NumericScale=int Length=int "
     "TimePrecision=int",
     ""},
    {"dbm:LogicalTrigger", OBJECT,
     "!name description comments !BeforeAfter=1|2 IsDelete=1 IsInsert=1 IsUpdate=1 Statements", ""},
    {"dbm:TableSynonym", OBJECT, "name", "dbm:TableSynonymTable"},
    {"dbm:TableSynonymTable", ASSOCIATION, "", "&dbm:LogicalTable"},
    {"dbm:ColumnTypeSet", OBJECT, "!name !version", "dbm:ColumnTypeSetColumnTypes"},
    {"dbm:ColumnTypeSetColumnTypes", ASSOCIATION, "", "dbm:ColumnType"},
    {"dbm:ColumnType", OBJECT, "!name", ""},
};

/// References that may be loose.
struct LooseReference {
    std::string_view holder;
    std::string_view tags;    ///< of the reference
    std::string_view target;  ///< the tag of what it may lead to; empty: nowhere
    std::string_view explanation;
};

constexpr std::string_view CLASSES = "uml:Class uml:Interface uml:AssociationClass";
constexpr std::string_view CLASS_AS_TYPE =
    "a class that is used as a type is referred to by the type, which has no element";

constexpr LooseReference LOOSE_REFERENCES[] = {
    {"uml:StructuralFeatureType", CLASSES, "", CLASS_AS_TYPE},
    {"uml:ParameterType", CLASSES, "", CLASS_AS_TYPE},
    {"uml:AssociationEndType", CLASSES, "",
     "the class at an association class's end may be physical only and left out"},
    {"uml:CommentAnnotatedElement", "uml:Class", "uml:Interface",
     "comments refer to an interface as a class"},
    {"dbm:JoinRoleColumnSet", "dbm:LogicalTable", "",
     "a relationship's table may be left out of the view, being of a class type that is no table"},
    {"dbm:UniqueKeyRoleUniqueKey", "dbm:UniqueKey", "",
     "the referenced key may be left out of the view with its table, or as one that is logical only or not "
     "marked unique"},
    {"dbm:ForeignKeyRoleForeignKey", "dbm:ForeignKey", "",
     "the foreign key may be left out with its table, or with the last of several relationships that share "
     "it"},
    {"erd:ParentRoleEntity", "erd:Entity", "",
     "a relationship's class may be left out of the view, being of a class type that is no entity"},
    {"erd:ChildRoleEntity", "erd:Entity", "",
     "a relationship's class may be left out of the view, being of a class type that is no entity"},
    {"erd:ParentRoleKey", "erd:Key", "",
     "the referenced key may be left out of the view with its attributes or its entity, or as one that is "
     "physical only"},
    {"erd:ChildRoleKey", "erd:Key", "",
     "the foreign key may be left out with its entity, or with the last of several relationships that share "
     "it"},
};

/// Calls `take` for each of the words of a text.
template <typename Take>
void forEachWord(std::string_view text, char separator, const Take& take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) {
            take(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

AttributeRule readAttribute(std::string_view text) {
    const std::size_t equals = text.find('=');
    AttributeRule rule;
    rule.isRequired = text.front() == '!';
    rule.name = text.substr(rule.isRequired ? 1 : 0, equals - (rule.isRequired ? 1 : 0));
    const bool isVisibility = rule.name == "visibility" || rule.name == "AssociationEnd.visibility";
    std::string_view values = isVisibility ? VISIBILITY : std::string_view();
    if (equals != std::string_view::npos) {
        values = text.substr(equals + 1);
    }
    rule.isInteger = values == "int";
    if (!rule.isInteger) {
        forEachWord(values, '|', [&](std::string_view word) { rule.words.emplace_back(word); });
    }
    return rule;
}

}  // namespace

bool AttributeRule::permits(std::string_view value) const {
    if (isInteger) {
        int number = 0;
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
        return error == std::errc() && end == value.data() + value.size() && std::to_string(number) == value;
    }
    return words.empty() || std::find(words.begin(), words.end(), value) != words.end();
}

std::string AttributeRule::describe() const {
    if (isInteger) {
        return "an integer";
    }
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        text += (i == 0 ? "\"" : i + 1 == words.size() ? " or \"" : ", \"") + words[i] + "\"";
    }
    return text;
}

const AttributeRule* ElementRule::findAttribute(std::string_view attribute) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const AttributeRule& rule) { return rule.name == attribute; });
    return found == attributes.end() ? nullptr : &*found;
}

const OimGrammar& OimGrammar::instance() {
    static const OimGrammar grammar;
    return grammar;
}

OimGrammar::OimGrammar() {
    for (const Row& row : ROWS) {
        numbers_.emplace(row.name, static_cast<std::uint16_t>(rules_.size()));
        ElementRule& rule = rules_.emplace_back();
        rule.name = row.name;
        rule.kind = row.kind;
        forEachWord(row.attributes, ' ',
                    [&](std::string_view word) { rule.attributes.push_back(readAttribute(word)); });
    }
    const auto numberOf = [this](std::string_view name) {
        const std::uint16_t number = find(name);
        if (number == UNKNOWN) {
            throw std::logic_error("the grammar refers to the unknown element " + std::string(name));
        }
        return number;
    };
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        forEachWord(ROWS[i].children, ' ', [&](std::string_view word) {
            if (word == "*classes") {
                forEachWord(CLASSES, ' ',
                            [&](std::string_view tag) { rules_[i].references.push_back(numberOf(tag)); });
            } else if (word.front() == '&') {
                rules_[i].references.push_back(numberOf(word.substr(1)));
            } else if (word.front() == '1') {
                rules_[i].children.push_back(numberOf(word.substr(1)));
                rules_[i].sequence.push_back(numberOf(word.substr(1)));
            } else {
                rules_[i].children.push_back(numberOf(word));
            }
        });
    }
}

std::uint16_t OimGrammar::find(std::string_view name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? UNKNOWN : found->second;
}

std::string_view explainLooseReference(std::string_view holder, std::string_view tag,
                                       std::string_view target) {
    for (const LooseReference& reference : LOOSE_REFERENCES) {
        bool hasTag = false;
        forEachWord(reference.tags, ' ', [&](std::string_view word) { hasTag = hasTag || word == tag; });
        if (reference.holder == holder && reference.target == target && hasTag) {
            return reference.explanation;
        }
    }
    return {};
}

}  // namespace oimcheck
