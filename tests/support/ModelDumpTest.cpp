#include "ModelDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "CompleteModel.h"

namespace support {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(ModelDump, OfEqualModelsIsEqual) {
    const CompleteModel one;
    const CompleteModel other;
    EXPECT_EQ(dumpModel(one.model), dumpModel(other.model));
}

TEST(ModelDump, NamesEveryObjectOnceWithItsClass) {
    const CompleteModel m;
    const std::string dump = dumpModel(m.model);
    for (const char* className : {"ZORModel",
                                  "ZORDatabaseCatalog",
                                  "ZORDesignPackage",
                                  "ZORDiagram",
                                  "ZORType",
                                  "ZORConcreteType",
                                  "ZORDerivedType",
                                  "ZORAliasType",
                                  "ZORClassType",
                                  "ZORTypeValue",
                                  "ZORClass",
                                  "ZORAttribute",
                                  "ZORAssociationRoleNameMap",
                                  "ZORCandidateKey",
                                  "ZORForeignKey",
                                  "ZORIndex",
                                  "ZORIndexMember",
                                  "ZORSynonym",
                                  "ZOROperation",
                                  "ZORTrigger",
                                  "ZORStoredProcedure",
                                  "ZORArgument",
                                  "ZORAssociation",
                                  "ZORAssociationRole",
                                  "ZORGeneralization",
                                  "ZORDependency",
                                  "ZORRealization",
                                  "ZORSQLViewEntity",
                                  "ZORSQLViewAttribute",
                                  "ZORNote"}) {
        EXPECT_THAT(dump, HasSubstr(" class " + std::string(className) + "\n"));
    }
    EXPECT_THAT(dump, HasSubstr("#0 code 2 class ZORModel\n  name \"Shop\"\n"));
}

TEST(ModelDump, TellsLineFeedsAndQuotesOfTextsFromItsOwn) {
    ZORModel one;
    one.setName("a\n  comments \"b\"");
    ZORModel other;
    other.setName("a");
    other.setComments("b");
    EXPECT_NE(dumpModel(one), dumpModel(other));
}

TEST(ModelDump, NumbersWhatIsNoPartOfTheModelWithoutFollowingIt) {
    ZORModel model;
    auto* cls = model.addChildPackage(std::make_unique<ZORDesignPackage>())
                    ->addModelElement(std::make_unique<ZORClass>());
    auto* attribute = cls->addAttribute(std::make_unique<ZORAttribute>());
    auto* map = attribute->addRoleNameMap(std::make_unique<ZORAssociationRoleNameMap>());
    // What is no object at all: following it would crash.
    alignas(ZORAttribute) static char bytes[sizeof(ZORAttribute)];
    map->setReferencedAttribute(reinterpret_cast<ZORAttribute*>(bytes));
    EXPECT_THAT(dumpModel(model), HasSubstr("  referencedAttribute outside0\n"));
}

TEST(ModelDump, NeedsNoStackForDeepNesting) {
    ZORModel model;
    ZORPackage* package = &model;
    for (int level = 0; level < 200000; ++level) {
        package = package->addChildPackage(std::make_unique<ZORDesignPackage>());
    }
    package->setName("deepest");
    EXPECT_THAT(dumpModel(model), HasSubstr("#200000 code 9 class ZORDesignPackage\n  name \"deepest\"\n"));
}

/// A change of a complete model that a comparison has to notice.
struct Change {
    const char* what;
    std::function<void(CompleteModel&)> make;
};

std::ostream& operator<<(std::ostream& out, const Change& change) {
    return out << change.what;
}

int anything;

const Change CHANGES[] = {
    {"name", [](CompleteModel& m) { m.model.setName("x"); }},
    {"name_of_a_value", [](CompleteModel& m) { m.red->setName("x"); }},
    {"general_pointer", [](CompleteModel& m) { m.customerColor->setGeneralPointer(&anything); }},
    {"general_pointer_of_a_note", [](CompleteModel& m) { m.note->setGeneralPointer(&anything); }},
    {"general_pointer_of_a_map", [](CompleteModel& m) { m.map->setGeneralPointer(&anything); }},
    {"description_of_a_note", [](CompleteModel& m) { m.note->setDescription("x"); }},
    {"owner", [](CompleteModel& m) { m.synonym->setOwner(nullptr); }},
    {"description", [](CompleteModel& m) { m.synonym->setDescription("x"); }},
    {"comments", [](CompleteModel& m) { m.synonym->setComments("x"); }},
    {"physical_name", [](CompleteModel& m) { m.synonym->setPhysicalName("x"); }},
    {"stereotype", [](CompleteModel& m) { m.synonym->setStereotype("x"); }},
    {"design_level", [](CompleteModel& m) { m.synonym->setDesignLevel(ZOR_PHYSICAL_ONLY); }},
    {"notes", [](CompleteModel& m) { m.synonym->addNote(std::make_unique<ZORNote>()); }},
    {"packages", [](CompleteModel& m) { m.archive->addChildPackage(std::make_unique<ZORDesignPackage>()); }},
    {"types", [](CompleteModel& m) { m.model.addType(std::make_unique<ZORType>()); }},
    {"elements", [](CompleteModel& m) { m.archive->addModelElement(std::make_unique<ZORClass>()); }},
    {"package_operations",
     [](CompleteModel& m) { m.archive->addOperation(std::make_unique<ZOROperation>()); }},
    {"diagrams", [](CompleteModel& m) { m.archive->addDiagram(std::make_unique<ZORDiagram>()); }},
    {"database_type", [](CompleteModel& m) { m.catalog->setDatabaseType("x"); }},
    {"diagram_elements", [](CompleteModel& m) { m.diagram->addModelElement(m.order->getNotes()[0]); }},
    {"element_diagrams", [](CompleteModel& m) { m.diagram->addModelElement(m.order); }},
    {"data_type", [](CompleteModel& m) { m.color->setDataType("x"); }},
    {"length", [](CompleteModel& m) { m.color->setLength(1); }},
    {"scale", [](CompleteModel& m) { m.color->setScale(1); }},
    {"initial_value_of_a_type", [](CompleteModel& m) { m.color->setInitialValue("x"); }},
    {"lower_bound", [](CompleteModel& m) { m.color->setLowerBound("x"); }},
    {"upper_bound", [](CompleteModel& m) { m.color->setUpperBound("x"); }},
    {"type_values", [](CompleteModel& m) { m.alias->addTypeValue(std::make_unique<ZORTypeValue>()); }},
    {"code_of_a_value", [](CompleteModel& m) { m.red->setCode(-1); }},
    {"text_of_a_value", [](CompleteModel& m) { m.red->setValue("x"); }},
    {"base_of_a_derived_type", [](CompleteModel& m) { m.color->setBaseType(m.plainType); }},
    {"base_of_an_alias", [](CompleteModel& m) { m.alias->setBaseType(nullptr); }},
    {"class_of_a_type", [](CompleteModel& m) { m.orderType->setAssociatedClass(m.customer); }},
    {"class_type", [](CompleteModel& m) { m.customer->setClassType(9); }},
    {"visibility_of_a_class", [](CompleteModel& m) { m.customer->setVisibility(ZOR_VISIBILITY_PUBLIC); }},
    {"concurrency_of_a_class", [](CompleteModel& m) { m.customer->setConcurrency(ZOR_CONCURRENCY_GUARDED); }},
    {"abstract_class", [](CompleteModel& m) { m.customer->setAbstract(false); }},
    {"persistent", [](CompleteModel& m) { m.customer->setPersistent(false); }},
    {"estimated_size", [](CompleteModel& m) { m.customer->setEstimatedSize(0); }},
    {"association_class", [](CompleteModel& m) { m.places->setAssociationClass(nullptr); }},
    {"attributes", [](CompleteModel& m) { m.customer->addAttribute(std::make_unique<ZORAttribute>()); }},
    {"operations", [](CompleteModel& m) { m.customer->addOperation(std::make_unique<ZOROperation>()); }},
    {"template_arguments",
     [](CompleteModel& m) { m.customer->addArgument(std::make_unique<ZORArgument>()); }},
    {"keys", [](CompleteModel& m) { m.customer->addKey(std::make_unique<ZORCandidateKey>()); }},
    {"indexes", [](CompleteModel& m) { m.customer->addIndex(std::make_unique<ZORIndex>()); }},
    {"synonyms", [](CompleteModel& m) { m.customer->addSynonym(std::make_unique<ZORSynonym>()); }},
    {"client_dependencies", [](CompleteModel& m) { m.dependency->setClient(m.order); }},
    {"realizations", [](CompleteModel& m) { m.realization->setClient(m.order); }},
    {"position", [](CompleteModel& m) { m.customerId->setPosition(0); }},
    {"type_of_an_attribute", [](CompleteModel& m) { m.customerId->setType(m.color); }},
    {"order_of_typed_objects",
     [](CompleteModel& m) {
         m.customerId->setType(nullptr);
         m.customerId->setType(m.integer);
     }},
    {"initial_value_of_an_attribute", [](CompleteModel& m) { m.customerId->setInitialValue("x"); }},
    {"optional", [](CompleteModel& m) { m.customerId->setOptional(false); }},
    {"static_attribute", [](CompleteModel& m) { m.customerId->setStatic(false); }},
    {"visibility_of_an_attribute",
     [](CompleteModel& m) { m.customerId->setVisibility(ZOR_VISIBILITY_PUBLIC); }},
    {"role_name_maps",
     [](CompleteModel& m) { m.customerId->addRoleNameMap(std::make_unique<ZORAssociationRoleNameMap>()); }},
    {"foreign_key_of_a_map", [](CompleteModel& m) { m.map->setForeignKey(nullptr); }},
    {"attribute_of_a_map", [](CompleteModel& m) { m.map->setReferencedAttribute(nullptr); }},
    {"attributes_of_a_key", [](CompleteModel& m) { m.customerKey->addAttribute(m.customerColor); }},
    {"unique_key", [](CompleteModel& m) { m.customerKey->setUnique(false); }},
    {"primary_key", [](CompleteModel& m) { m.customerKey->setPrimaryOfClass(nullptr); }},
    {"referenced_key", [](CompleteModel& m) { m.orderKey->setCandidateKey(nullptr); }},
    {"foreign_key_of_a_role", [](CompleteModel& m) { m.buyer->addForeignKey(m.orderKey); }},
    {"clustered", [](CompleteModel& m) { m.customerIndex->setClustered(false); }},
    {"unique_index", [](CompleteModel& m) { m.customerIndex->setUnique(false); }},
    {"key_of_an_index", [](CompleteModel& m) { m.customerIndex->setKey(nullptr); }},
    {"index_members",
     [](CompleteModel& m) { m.customerIndex->addIndexMember(std::make_unique<ZORIndexMember>()); }},
    {"attribute_of_a_member", [](CompleteModel& m) { m.customerIndexMember->setAttribute(nullptr); }},
    {"sort_order", [](CompleteModel& m) { m.customerIndexMember->setSortOrder(ZOR_SORT_NONE); }},
    {"result_type", [](CompleteModel& m) { m.operation->setResultType(nullptr); }},
    {"arguments", [](CompleteModel& m) { m.operation->addArgument(std::make_unique<ZORArgument>()); }},
    {"concurrency_of_an_operation",
     [](CompleteModel& m) { m.operation->setConcurrency(ZOR_CONCURRENCY_SEQUENTIAL); }},
    {"visibility_of_an_operation",
     [](CompleteModel& m) { m.operation->setVisibility(ZOR_VISIBILITY_PUBLIC); }},
    {"abstract_operation", [](CompleteModel& m) { m.operation->setAbstract(false); }},
    {"static_operation", [](CompleteModel& m) { m.operation->setStatic(false); }},
    {"precondition", [](CompleteModel& m) { m.operation->setPrecondition("x"); }},
    {"postcondition", [](CompleteModel& m) { m.operation->setPostcondition("x"); }},
    {"semantics", [](CompleteModel& m) { m.operation->setSemantics("x"); }},
    {"body", [](CompleteModel& m) { m.operation->setBody("x"); }},
    {"timing", [](CompleteModel& m) { m.trigger->setAfter(false); }},
    {"insert", [](CompleteModel& m) { m.trigger->setInsert(false); }},
    {"update", [](CompleteModel& m) { m.trigger->setUpdate(false); }},
    {"delete", [](CompleteModel& m) { m.trigger->setDelete(false); }},
    {"type_of_an_argument", [](CompleteModel& m) { m.argument->addType(m.color); }},
    {"default_value", [](CompleteModel& m) { m.argument->setDefaultValue("x"); }},
    {"kind_of_an_argument", [](CompleteModel& m) { m.argument->setKind(ZOR_ARGUMENT_OUT); }},
    {"sql_text", [](CompleteModel& m) { m.view->setSQLText("x"); }},
    {"columns",
     [](CompleteModel& m) { m.view->addSQLViewAttribute(std::make_unique<ZORSQLViewAttribute>()); }},
    {"view_operations", [](CompleteModel& m) { m.view->addOperation(std::make_unique<ZOROperation>()); }},
    {"type_of_a_column", [](CompleteModel& m) { m.viewColumn->setType(nullptr); }},
    {"source_of_a_column", [](CompleteModel& m) { m.viewColumn->setSource(m.customerColor); }},
    {"roles", [](CompleteModel& m) { m.places->addRole(std::make_unique<ZORAssociationRole>()); }},
    {"constraint_of_an_association", [](CompleteModel& m) { m.places->setConstraint("x"); }},
    {"aggregation", [](CompleteModel& m) { m.places->setAggregation(false); }},
    {"association_kind", [](CompleteModel& m) { m.places->setAssociationKind(0); }},
    {"class_of_a_role", [](CompleteModel& m) { m.buyer->setAssociatedClass(m.order); }},
    {"multiplicity", [](CompleteModel& m) { m.buyer->setMultiplicity("1"); }},
    {"update_rule", [](CompleteModel& m) { m.buyer->setUpdateRule(ZOR_ACTION_NONE); }},
    {"delete_rule", [](CompleteModel& m) { m.buyer->setDeleteRule(ZOR_ACTION_NONE); }},
    {"insert_rule", [](CompleteModel& m) { m.buyer->setInsertRule(ZOR_ACTION_NONE); }},
    {"aggregate_end", [](CompleteModel& m) { m.buyer->setAggregateEnd(false); }},
    {"aggregation_kind", [](CompleteModel& m) { m.buyer->setAggregationKind(0); }},
    {"navigable", [](CompleteModel& m) { m.buyer->setNavigable(false); }},
    {"ordered", [](CompleteModel& m) { m.buyer->setOrdered(false); }},
    {"supertype_side", [](CompleteModel& m) { m.buyer->setSupertypeSide(false); }},
    {"visibility_of_a_role", [](CompleteModel& m) { m.buyer->setVisibility(ZOR_VISIBILITY_PUBLIC); }},
    {"constraint_of_a_role", [](CompleteModel& m) { m.buyer->setConstraint("x"); }},
    {"qualifiers", [](CompleteModel& m) { m.buyer->addQualifier(std::make_unique<ZORAttribute>()); }},
    {"parents", [](CompleteModel& m) { m.generalization->addSupertypeClass(m.customer); }},
    {"children", [](CompleteModel& m) { m.generalization->addSubtypeClass(m.customer); }},
    {"visibility_of_a_generalization",
     [](CompleteModel& m) { m.generalization->setVisibility(ZOR_VISIBILITY_PUBLIC); }},
    {"foreign_keys_of_a_generalization",
     [](CompleteModel& m) { m.generalization->addForeignKey(m.orderKey); }},
    {"supplier_of_a_dependency", [](CompleteModel& m) { m.dependency->setSupplier(m.rebate); }},
    {"supplier_of_a_realization", [](CompleteModel& m) { m.realization->setSupplier(m.rebate); }},
};

class ModelDumpShows : public testing::TestWithParam<Change> {};

TEST_P(ModelDumpShows, TheChange) {
    CompleteModel m;
    const std::string before = dumpModel(m.model);
    GetParam().make(m);
    EXPECT_NE(dumpModel(m.model), before);
}

INSTANTIATE_TEST_SUITE_P(Of, ModelDumpShows, testing::ValuesIn(CHANGES),
                         [](const testing::TestParamInfo<Change>& row) { return row.param.what; });

}  // namespace
}  // namespace support
