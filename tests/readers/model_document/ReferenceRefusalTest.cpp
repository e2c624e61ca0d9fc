// Objects without what they need, and references that lead nowhere or where they should not.
#include "Documents.h"

namespace {

using documents::nameOf;
using documents::refusalOf;
using documents::Row;
using documents::withElements;
using documents::withModel;

class StructureRefusal : public testing::TestWithParam<Row> {};

TEST_P(StructureRefusal, SaysWhereWhatWasFoundAndWhatWasExpected) {
    EXPECT_EQ(refusalOf(GetParam().text), GetParam().message);
}

const Row MISSING_ROWS[] = {
    {"TypeWithoutKind", withModel(R"("types": [{"name": "x"}])"),
     "line 3, column 11, /model/types/0: found no \"kind\" in this object; expected \"base\", \"concrete\", "
     "\"derived\", \"alias\" or \"class\""},
    {"UnknownKindOfType", withModel(R"("types": [{"name": "x", "kind": "concret"}])"),
     "line 3, column 33, /model/types/0/kind: found \"concret\"; expected \"base\", \"concrete\", "
     "\"derived\", \"alias\" or \"class\""},
    {"NumberAsKind", withModel(R"("types": [{"kind": 5}])"),
     "line 3, column 20, /model/types/0/kind: found 5; expected \"base\", \"concrete\", \"derived\", "
     "\"alias\" or \"class\""},
    {"ChildWithoutKind", withModel(R"("children": [{"name": "p"}])"),
     "line 3, column 14, /model/children/0: found no \"kind\" in this object; expected \"package\" or "
     "\"catalog\""},
    {"ElementWithoutKind", withElements(R"({})"),
     "line 5, column 1, /model/children/0/elements/0: found no \"kind\" in this object; expected \"class\", "
     "\"view\", \"association\", \"generalization\", \"dependency\" or \"realization\""},
    {"KeyWithoutKind", withElements(R"({"kind": "class", "keys": [{}]})"),
     "line 5, column 28, /model/children/0/elements/0/keys/0: found no \"kind\" in this object; expected "
     "\"candidate\" or \"foreign\""},
    {"UnknownKindOfOperation", withElements(R"({"kind": "class", "operations": [{"kind": "function"}]})"),
     "line 5, column 43, /model/children/0/elements/0/operations/0/kind: found \"function\"; expected "
     "\"operation\", \"procedure\" or \"trigger\""},
    {"CatalogInAPackage",
     withModel(R"("children": [{"kind": "package", "packages": [{"kind": "catalog"}]}])"),
     "line 3, column 56, /model/children/0/packages/0/kind: found \"catalog\"; expected \"package\""},
    {"ClassTypeWithoutClass", withModel(R"("types": [{"kind": "class"}])"),
     "line 3, column 11, /model/types/0: found no \"class\" in this class type; expected a reference to a "
     "class"},
    {"AttributeWithoutType", withElements(R"({"kind": "class", "attributes": [{"name": "a"}]})"),
     "line 5, column 34, /model/children/0/elements/0/attributes/0: found no \"type\" in this attribute; "
     "expected a reference to a type"},
    {"ArgumentWithoutType", withElements(R"({"kind": "class", "templateArguments": [{}]})"),
     "line 5, column 41, /model/children/0/elements/0/templateArguments/0: found no \"type\" in this "
     "argument; expected a reference to a type"},
    {"IndexMemberWithoutAttribute", withElements(R"({"kind": "class", "indexes": [{"members": [{}]}]})"),
     "line 5, column 44, /model/children/0/elements/0/indexes/0/members/0: found no \"attribute\" in this "
     "index member; expected a reference to an attribute of the same class"},
    {"RoleWithoutClass", withElements(R"({"kind": "association", "roles": [{}]})"),
     "line 5, column 35, /model/children/0/elements/0/roles/0: found no \"class\" in this role; expected a "
     "reference to a class"},
    {"GeneralizationWithoutParents", withElements(R"({"kind": "generalization", "children": ["c"]})"),
     "line 5, column 1, /model/children/0/elements/0: found no \"parents\" in this generalization; expected "
     "a list of references to classes, at least one"},
    {"GeneralizationWithEmptyChildren",
     withElements(R"({"kind": "generalization", "parents": ["c"], "children": []})"),
     "line 5, column 58, /model/children/0/elements/0/children: found an empty list; expected a list of "
     "references to classes, at least one"},
    {"DependencyWithoutClient", withElements(R"({"kind": "dependency", "supplier": "c"})"),
     "line 5, column 1, /model/children/0/elements/0: found no \"client\" in this dependency; expected a "
     "reference to a class"},
    {"RealizationWithoutSupplier", withElements(R"({"kind": "realization", "client": "c"})"),
     "line 5, column 1, /model/children/0/elements/0: found no \"supplier\" in this realization; expected a "
     "reference to a class"},
};

INSTANTIATE_TEST_SUITE_P(Missing, StructureRefusal, testing::ValuesIn(MISSING_ROWS), nameOf);

const Row REFERENCE_ROWS[] = {
    {"NoSuchId", withElements(R"({"kind": "class", "attributes": [{"type": "u"}]})"),
     "line 5, column 43, /model/children/0/elements/0/attributes/0/type: found \"u\", which is no object's "
     "id; expected a reference to a type"},
    {"EmptyReference", withElements(R"({"kind": "class", "id": "", "attributes": [{"type": ""}]})"),
     "line 5, column 53, /model/children/0/elements/0/attributes/0/type: found \"\", which is no object's "
     "id; expected a reference to a type"},
    {"NameInsteadOfId", withElements(R"({"kind": "dependency", "client": "C", "supplier": "C"},
{"kind": "class", "id": "c", "name": "C"})"),
     "line 5, column 34, /model/children/0/elements/0/client: found \"C\", which is no object's id; expected "
     "a reference to a class"},
    {"ReferenceIsToldAsItIsWritten",
     withElements(R"({"kind": "class", "attributes": [{"type": "\u001b[31m"}]})"),
     R"(line 5, column 43, /model/children/0/elements/0/attributes/0/type: found "\u001b[31m", which is no object's id; expected a reference to a type)"},
    {"ClassAsType", withElements(R"({"kind": "class", "attributes": [{"type": "c"}]},
{"kind": "class", "id": "c"})"),
     "line 5, column 43, /model/children/0/elements/0/attributes/0/type: found \"c\", the id of a class (see "
     "line 6); expected a reference to a type"},
    {"TypeAsClass", withElements(R"({"kind": "association", "roles": [{"class": "t"}]})"),
     "line 5, column 45, /model/children/0/elements/0/roles/0/class: found \"t\", the id of a concrete type "
     "(see line 3); expected a reference to a class"},
    {"ModelAsType", withModel(R"("id": "m", "types": [{"kind": "alias", "base": "m"}])"),
     "line 3, column 48, /model/types/0/base: found \"m\", the id of a model (see line 3); expected a "
     "reference to a type"},
    {"ForeignKeyAsReferencedKey",
     withElements(R"({"kind": "class", "keys": [{"kind": "foreign", "id": "f", "references": "f"}]})"),
     "line 5, column 73, /model/children/0/elements/0/keys/0/references: found \"f\", the id of a foreign "
     "key (see line 5); expected a reference to a candidate key"},
    {"CandidateKeyOfAMap", withElements(R"({"kind": "class", "keys": [{"kind": "candidate", "id": "k"}],
"attributes": [{"type": "t", "roleNameMaps": [{"foreignKey": "k"}]}]})"),
     "line 6, column 62, /model/children/0/elements/0/attributes/0/roleNameMaps/0/foreignKey: found \"k\", "
     "the id of a candidate key (see line 5); expected a reference to a foreign key"},
    {"ColumnOfAMap",
     withElements(R"({"kind": "class", "attributes": [{"type": "t", "roleNameMaps": [{"references": "v"}]}]},
{"kind": "view", "columns": [{"id": "v"}]})"),
     "line 5, column 80, /model/children/0/elements/0/attributes/0/roleNameMaps/0/references: found \"v\", "
     "the id of a column (see line 6); expected a reference to an attribute, or null"},
    {"PackageOnADiagram",
     withModel(R"("children": [{"kind": "package", "id": "p", "diagrams": [{"elements": ["p"]}]}])"),
     "line 3, column 72, /model/children/0/diagrams/0/elements/0: found \"p\", the id of a package (see line "
     "3); expected a reference to an element"},
    {"AttributeOfAnotherClass", withElements(R"({"kind": "class", "attributes": [{"id": "a", "type": "t"}]},
{"kind": "class", "keys": [{"kind": "candidate", "attributes": ["a"]}]})"),
     "line 6, column 65, /model/children/0/elements/1/keys/0/attributes/0: found \"a\", the id of an "
     "attribute elsewhere (see line 5); expected a reference to an attribute of the same class"},
    {"QualifierInAKey",
     withElements(R"({"kind": "class", "id": "c", "keys": [{"kind": "candidate", "attributes": ["q"]}]},
{"kind": "association", "roles": [{"class": "c", "qualifiers": [{"id": "q", "type": "t"}]}]})"),
     "line 5, column 76, /model/children/0/elements/0/keys/0/attributes/0: found \"q\", the id of an "
     "attribute elsewhere (see line 6); expected a reference to an attribute of the same class"},
    {"IndexedAttributeOfAnotherClass",
     withElements(R"({"kind": "class", "attributes": [{"id": "a", "type": "t"}]},
{"kind": "class", "indexes": [{"members": [{"attribute": "a"}]}]})"),
     "line 6, column 58, /model/children/0/elements/1/indexes/0/members/0/attribute: found \"a\", the id of "
     "an attribute elsewhere (see line 5); expected a reference to an attribute of the same class"},
    {"IndexOfAnotherClassesKey",
     withElements(R"({"kind": "class", "keys": [{"kind": "candidate", "id": "k"}]},
{"kind": "class", "indexes": [{"key": "k"}]})"),
     "line 6, column 39, /model/children/0/elements/1/indexes/0/key: found \"k\", the id of a candidate key "
     "elsewhere (see line 5); expected a reference to a key of the same class"},
    {"IdTwice", withModel(R"("types": [{"kind": "base", "id": "x"},
{"kind": "base", "id": "y"},
{"kind": "base", "id": "x"}])"),
     "line 5, column 24, /model/types/2/id: found \"x\", the id of another object (see line 3); expected an "
     "id of its own"},
    {"IdTwiceOnceWithEscapes", withModel(R"("id": "x", "types": [{"kind": "base", "id": "\u0078"}])"),
     R"(line 3, column 45, /model/types/0/id: found "\u0078", the id of another object (see line 3); expected an id of its own)"},
};

INSTANTIATE_TEST_SUITE_P(References, StructureRefusal, testing::ValuesIn(REFERENCE_ROWS), nameOf);

const Row RULE_ROWS[] = {
    {"TwoPrimaryKeys", withElements(R"({"kind": "class", "keys": [
{"kind": "candidate", "primary": true},
{"kind": "candidate", "primary": false},
{"kind": "candidate", "primary": true}]})"),
     "line 8, column 34, /model/children/0/elements/0/keys/2/primary: found a second primary key; expected "
     "at most one primary key in a class"},
    {"AssociationClassOfTwoAssociations", withElements(R"({"kind": "class", "id": "c"},
{"kind": "association", "associationClass": "c"},
{"kind": "association", "associationClass": "c"})"),
     "line 7, column 45, /model/children/0/elements/2/associationClass: found \"c\", which is referred to "
     "already (see line 6); expected a reference to a class that no other association has"},
    {"ForeignKeyOfTwoRoles",
     withElements(R"({"kind": "class", "id": "c", "keys": [{"kind": "foreign", "id": "f"}]},
{"kind": "association", "roles": [
{"class": "c", "foreignKey": "f"},
{"class": "c", "foreignKey": "f"}]})"),
     "line 8, column 30, /model/children/0/elements/1/roles/1/foreignKey: found \"f\", which is referred to "
     "already (see line 7); expected a reference to a foreign key that no other role or generalization has"},
    {"ForeignKeyOfARoleAndAGeneralization",
     withElements(R"({"kind": "class", "id": "c", "keys": [{"kind": "foreign", "id": "f"}]},
{"kind": "association", "roles": [{"class": "c", "foreignKey": "f"}]},
{"kind": "generalization", "parents": ["c"], "children": ["c"], "foreignKeys": ["f"]})"),
     "line 7, column 81, /model/children/0/elements/2/foreignKeys/0: found \"f\", which is referred to "
     "already (see line 6); expected a reference to a foreign key that no other role or generalization has"},
    {"ForeignKeyTwiceInAGeneralization",
     withElements(R"({"kind": "class", "id": "c", "keys": [{"kind": "foreign", "id": "f"}]},
{"kind": "generalization", "parents": ["c"], "children": ["c"], "foreignKeys": ["f", "f"]})"),
     "line 6, column 86, /model/children/0/elements/1/foreignKeys/1: found \"f\", which is referred to "
     "already (see line 6); expected a reference to a foreign key that no other role or generalization has"},
    {"TypeBasedOnItself", withModel(R"("types": [{"kind": "alias", "id": "x", "base": "x"}])"),
     "line 3, column 48, /model/types/0/base: found \"x\", whose bases go round in a circle; expected a type "
     "whose chain of bases ends"},
    {"TypesBasedOnEachOther", withModel(R"("types": [{"kind": "derived", "id": "x", "base": "y"},
{"kind": "alias", "id": "y", "base": "z"},
{"kind": "derived", "id": "z", "base": "x"}])"),
     "line 3, column 50, /model/types/0/base: found \"y\", whose bases go round in a circle; expected a type "
     "whose chain of bases ends"},
    {"CircleOfBasesFurtherOn", withModel(R"("types": [{"kind": "base", "id": "end"},
{"kind": "alias", "id": "good", "base": "end"},
{"kind": "alias", "base": "x"},
{"kind": "alias", "id": "x", "base": "y"},
{"kind": "alias", "id": "y", "base": "x"}])"),
     "line 5, column 27, /model/types/2/base: found \"x\", whose bases go round in a circle; expected a type "
     "whose chain of bases ends"},
};

INSTANTIATE_TEST_SUITE_P(Rules, StructureRefusal, testing::ValuesIn(RULE_ROWS), nameOf);

}  // namespace
