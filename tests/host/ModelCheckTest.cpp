#include "ZORModelCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "CompleteModel.h"
#include "ModelDump.h"

namespace {

using support::CompleteModel;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> check(ZORModel& model, std::size_t most = 20) {
    std::vector<std::string> sentences;
    for (const ZORString& fault : checkModel(model, most)) {
        sentences.emplace_back(fault.view());
    }
    return sentences;
}

TEST(ModelCheck, FindsNothingInASoundModel) {
    CompleteModel m;
    const std::string before = support::dumpModel(m.model);
    EXPECT_THAT(check(m.model), IsEmpty());
    EXPECT_EQ(support::dumpModel(m.model), before) << "the check leaves nothing behind";
    ZORModel empty;
    EXPECT_THAT(check(empty), IsEmpty());
}

template <typename Enumeration>
Enumeration beyond(Enumeration greatest) {
    return static_cast<Enumeration>(greatest + 1);
}

/// A bridge's own kind of association, which carries the root's code.
class ForeignAssociation : public ZORAssociation {
  public:
    ForeignAssociation() : ZORAssociation(ZOR_OBJECT) {}
};

class UnknownKey : public ZORKey {
  public:
    UnknownKey() : ZORKey(ZOR_KEY) {}
};

int anything;

/// A change that makes a complete model unsound, and all that is then said of it. `other` is another complete
/// model, whose objects are not of the first one.
struct Fault {
    const char* what;
    std::function<void(CompleteModel& m, CompleteModel& other)> make;
    std::vector<std::string> sentences;
};

const Fault FAULTS[] = {
    // What every object has
    {"design_level",
     [](auto& m, auto&) { m.synonym->setDesignLevel(beyond(ZOR_PHYSICAL_ONLY)); },
     {"Class 'Sales.Customer': synonym 'CLIENT' has the design level 3, which is none of 0 to 2."}},
    {"design_level_below_zero",
     [](auto& m, auto&) { m.model.setDesignLevel(static_cast<ZORDesignLevel>(-1)); },
     {"Model 'Shop' has the design level -1, which is none of 0 to 2."}},
    {"general_pointer_in_use",
     [](auto& m, auto&) { m.red->setGeneralPointer(&anything); },
     {"Type 'Color': value 'Red' has a general pointer that is in use."}},
    {"general_pointer_of_a_type_in_use",
     [](auto& m, auto&) { m.alias->setGeneralPointer(&anything); },
     {"Type 'Tint' has a general pointer that is in use."}},
    {"general_pointer_of_a_package_in_use",
     [](auto& m, auto&) { m.archive->setGeneralPointer(&anything); },
     {"Package 'Sales.Archive' has a general pointer that is in use."}},
    {"general_pointer_of_the_model_in_use",
     [](auto& m, auto&) { m.model.setGeneralPointer(&anything); },
     {"Model 'Shop' has a general pointer that is in use."}},
    {"general_pointer_of_a_note_in_use",
     [](auto& m, auto&) { m.note->setGeneralPointer(&anything); },
     {"Class 'Sales.Customer': note #1 has a general pointer that is in use."}},
    {"null_note",
     [](auto& m, auto&) { m.order->addNote(nullptr); },
     {"Class 'Sales.Order' has a null among its notes."}},

    // Packages
    {"model_in_a_model",
     [](auto& m, auto&) { m.model.addChildPackage(std::make_unique<ZORModel>()); },
     {"Model '#3' stands in a model or catalog, which hold only packages and catalogs."}},
    {"catalog_in_a_package",
     [](auto& m, auto&) { m.archive->addChildPackage(std::make_unique<ZORDatabaseCatalog>()); },
     {"Catalog 'Sales.Archive.#1' stands in a package, which holds only packages."}},
    {"element_of_unknown_kind",
     [](auto& m, auto&) { m.archive->addModelElement(std::make_unique<ForeignAssociation>()); },
     {"Object 'Sales.Archive.#1' is of the kind 33, which packages do not hold."}},
    {"operation_of_a_package",
     [](auto& m, auto&) { m.procedure->setVisibility(beyond(ZOR_VISIBILITY_IMPLEMENTATION)); },
     {"Package 'Sales': stored procedure 'purge' has the visibility 4, which is none of 0 to 3."}},
    {"diagram_element_of_another_model",
     [](auto& m, auto& other) { m.diagram->addModelElement(other.order); },
     {"Package 'Sales': diagram 'Overview' refers to an element that is not of this model."}},
    {"diagram_of_another_model",
     [](auto& m, auto& other) { other.diagram->addModelElement(m.order); },
     {"Class 'Sales.Order' refers to a diagram that is not of this model."}},

    // Types
    {"type_based_on_itself",
     [](auto& m, auto&) { m.color->setBaseType(m.color); },
     {"Type 'Color' is based on itself, by itself or through other types."}},
    {"types_based_on_each_other",
     [](auto& m, auto&) { m.color->setBaseType(m.alias); },
     {"Type 'Color' is based on itself, by itself or through other types."}},
    {"base_of_another_model",
     [](auto& m, auto& other) { m.alias->setBaseType(other.color); },
     {"Type 'Tint' refers to a base type that is not of this model."}},
    {"stereotype_of_a_data_type",
     [](auto& m, auto&) { m.integer->setStereotype("x"); },
     {"Type 'integer' has a stereotype, which in the UML view only the type of a class can have."}},
    {"class_type_without_a_class",
     [](auto& m, auto&) { m.orderType->setAssociatedClass(nullptr); },
     {"Type 'OrderType' has no class."}},
    {"class_type_of_another_model",
     [](auto& m, auto& other) { m.orderType->setAssociatedClass(other.order); },
     {"Type 'OrderType' refers to a class that is not of this model."}},
    {"type_that_was_taken_out",
     [](auto& m, auto&) {
         static std::unique_ptr<ZORType> kept;
         m.color->setOwner(nullptr);
         kept.reset(m.color);
     },
     {"Class 'Sales.Customer': operation 'greet' refers to a result type that is not of this model.",
      "Association 'Sales.places': role 'bought': qualifier 'by' refers to a type that is not of this model.",
      "Type 'Tint' refers to a base type that is not of this model."}},

    // Classes
    {"class_type",
     [](auto& m, auto&) { m.customer->setClassType(10); },
     {"Class 'Sales.Customer' has the class type 10, which is none of 0 to 9."}},
    {"class_type_below_zero",
     [](auto& m, auto&) { m.customer->setClassType(-1); },
     {"Class 'Sales.Customer' has the class type -1, which is none of 0 to 9."}},
    {"visibility_of_a_class",
     [](auto& m, auto&) { m.customer->setVisibility(beyond(ZOR_VISIBILITY_IMPLEMENTATION)); },
     {"Class 'Sales.Customer' has the visibility 4, which is none of 0 to 3."}},
    {"concurrency_of_a_class",
     [](auto& m, auto&) { m.customer->setConcurrency(beyond(ZOR_CONCURRENCY_SYNCHRONOUS)); },
     {"Class 'Sales.Customer' has the concurrency 4, which is none of 0 to 3."}},
    {"association_of_another_model",
     [](auto& m, auto& other) { other.places->setAssociationClass(m.customer); },
     {"Class 'Sales.Customer' refers to an association that is not of this model."}},
    {"association_with_another_class",
     [](auto& m, auto&) {
         m.places->setAssociationClass(m.order);
         m.archive->addModelElement(std::make_unique<ZORAssociation>())->setAssociationClass(m.order);
     },
     {"Association 'Sales.places' has the association class 'Order', which is the class of another "
      "association."}},
    {"association_class_of_another_model",
     [](auto& m, auto& other) { m.places->setAssociationClass(other.order); },
     {"Association 'Sales.places' refers to an association class that is not of this model."}},
    {"generalization_of_another_model",
     [](auto& m, auto& other) { other.generalization->addSubtypeClass(m.customer); },
     {"Class 'Sales.Customer' refers to a generalization that is not of this model."}},
    {"dependency_of_another_model",
     [](auto& m, auto& other) { other.dependency->setClient(m.customer); },
     {"Class 'Sales.Customer' refers to a dependency that is not of this model."}},
    {"realization_of_another_model",
     [](auto& m, auto& other) { other.realization->setClient(m.customer); },
     {"Class 'Sales.Customer' refers to a realization that is not of this model."}},

    // Attributes
    {"attribute_without_a_type",
     [](auto& m, auto&) { m.customerId->setType(nullptr); },
     {"Class 'Sales.Customer': attribute 'id' has no type."}},
    {"nameless_attribute_without_a_type",
     [](auto& m, auto&) { m.order->addAttribute(std::make_unique<ZORAttribute>()); },
     {"Class 'Sales.Order': attribute #2 has no type."}},
    {"type_of_another_model",
     [](auto& m, auto& other) { m.customerId->setType(other.integer); },
     {"Class 'Sales.Customer': attribute 'id' refers to a type that is not of this model."}},
    {"position",
     [](auto& m, auto&) { m.customerId->setPosition(-1); },
     {"Class 'Sales.Customer': attribute 'id' has the position -1, which is none of 0 to 32767."}},
    {"visibility_of_an_attribute",
     [](auto& m, auto&) { m.customerId->setVisibility(beyond(ZOR_VISIBILITY_IMPLEMENTATION)); },
     {"Class 'Sales.Customer': attribute 'id' has the visibility 4, which is none of 0 to 3."}},
    {"key_of_another_model",
     [](auto& m, auto& other) { other.customerKey->addAttribute(m.customerId); },
     {"Class 'Sales.Customer': attribute 'id' refers to a key that is not of this model."}},
    {"map_without_a_foreign_key",
     [](auto& m, auto&) { m.map->setForeignKey(nullptr); },
     {"Class 'Sales.Order': attribute 'customer': role-name map 'map' has no foreign key."}},
    {"map_of_another_model",
     [](auto& m, auto& other) { m.map->setForeignKey(other.orderKey); },
     {"Class 'Sales.Order': attribute 'customer': role-name map 'map' refers to a foreign key that is not of "
      "this "
      "model."}},
    {"map_of_another_class",
     [](auto& m, auto&) { m.map->setForeignKey(m.specialKey); },
     {"Class 'Sales.Order': attribute 'customer': role-name map 'map' is of the foreign key 'FK_SPECIAL', "
      "which belongs "
      "to another class."}},
    {"map_to_another_class",
     [](auto& m, auto&) { m.map->setReferencedAttribute(m.specialId); },
     {"Class 'Sales.Order': attribute 'customer': role-name map 'map' refers to the attribute 'no', which is "
      "not of the "
      "class that the foreign key references."}},
    {"map_to_another_model",
     [](auto& m, auto& other) {
         m.orderKey->setCandidateKey(nullptr);
         m.map->setReferencedAttribute(other.customerId);
     },
     {"Class 'Sales.Order': attribute 'customer': role-name map 'map' refers to a referenced attribute that "
      "is not of "
      "this model."}},

    // Keys and indexes
    {"attribute_of_another_class_in_a_key",
     [](auto& m, auto&) { m.customerKey->addAttribute(m.specialId); },
     {"Class 'Sales.Customer': candidate key 'PK_CUSTOMER' holds the attribute 'no', which is not of the "
      "key's class."}},
    {"attribute_of_another_class_in_a_foreign_key",
     [](auto& m, auto&) { m.orderKey->addAttribute(m.customerColor); },
     {"Class 'Sales.Order': foreign key 'FK_ORDER' holds the attribute 'color', which is not of the key's "
      "class."}},
    {"primary_key_of_another_class",
     [](auto& m, auto&) { m.customerKey->setPrimaryOfClass(m.order); },
     {"Class 'Sales.Customer': candidate key 'PK_CUSTOMER' is the primary key of the class 'Order', which is "
      "not its "
      "own."}},
    {"second_primary_key",
     [](auto& m, auto&) {
         m.customer->addKey(std::make_unique<ZORCandidateKey>())->setPrimaryOfClass(m.customer);
     },
     {"Class 'Sales.Customer' has more than one primary key."}},
    {"key_of_unknown_kind",
     [](auto& m, auto&) { m.customer->addKey(std::make_unique<UnknownKey>()); },
     {"Class 'Sales.Customer': object #2 is neither a candidate key nor a foreign key."}},
    {"referenced_key_of_another_model",
     [](auto& m, auto& other) { m.specialKey->setCandidateKey(other.customerKey); },
     {"Class 'Sales.SpecialOrder': foreign key 'FK_SPECIAL' refers to a candidate key that is not of this "
      "model."}},
    {"role_that_stands_alone",
     [](auto& m, auto&) {
         static ZORAssociationRole role;
         role.addForeignKey(m.specialKey);
     },
     {"Class 'Sales.SpecialOrder': foreign key 'FK_SPECIAL' refers to a role that is not of this model."}},
    {"index_of_another_classs_key",
     [](auto& m, auto&) { m.customerIndex->setKey(m.orderKey); },
     {"Class 'Sales.Customer': index 'IX_CUSTOMER' implements the key 'FK_ORDER', which is not of the "
      "index's class."}},
    {"index_member_without_an_attribute",
     [](auto& m, auto&) { m.customerIndexMember->setAttribute(nullptr); },
     {"Class 'Sales.Customer': index 'IX_CUSTOMER': member 'first' has no attribute."}},
    {"index_member_of_another_class",
     [](auto& m, auto&) { m.customerIndexMember->setAttribute(m.specialId); },
     {"Class 'Sales.Customer': index 'IX_CUSTOMER': member 'first' is of the attribute 'no', which is not of "
      "the index's "
      "class."}},

    // Operations
    {"result_type_of_another_model",
     [](auto& m, auto& other) { m.trigger->setResultType(other.integer); },
     {"Class 'Sales.Customer': trigger 'audit' refers to a result type that is not of this model."}},
    {"concurrency_of_an_operation",
     [](auto& m, auto&) { m.operation->setConcurrency(beyond(ZOR_CONCURRENCY_SYNCHRONOUS)); },
     {"Class 'Sales.Customer': operation 'greet' has the concurrency 4, which is none of 0 to 3."}},
    {"argument_without_a_type",
     [](auto& m, auto&) { m.argument->addType(nullptr); },
     {"Class 'Sales.Customer': operation 'greet': argument 'loud' has no type."}},
    {"template_argument_without_a_type",
     [](auto& m, auto&) { m.templateArgument->addType(nullptr); },
     {"Class 'Sales.Customer': template argument 'T' has no type."}},
    {"kind_of_an_argument",
     [](auto& m, auto&) { m.argument->setKind(beyond(ZOR_ARGUMENT_RETURN)); },
     {"Class 'Sales.Customer': operation 'greet': argument 'loud' has the kind 5, which is none of 0 to 4."}},

    // Views
    {"column_type_of_another_model",
     [](auto& m, auto& other) { m.viewColumn->setType(other.integer); },
     {"View 'Sales.Buyers': column 'buyer' refers to a type that is not of this model."}},
    {"source_of_another_model",
     [](auto& m, auto& other) { m.viewColumn->setSource(other.customerId); },
     {"View 'Sales.Buyers': column 'buyer' refers to a source that is not of this model."}},
    {"operation_of_a_view",
     [](auto& m, auto&) { m.view->getOperations()[0]->addArgument(std::make_unique<ZORArgument>()); },
     {"View 'Sales.Buyers': operation 'refresh': argument #1 has no type."}},

    // Relationships
    {"role_without_a_class",
     [](auto& m, auto&) { m.places->addRole(std::make_unique<ZORAssociationRole>()); },
     {"Association 'Sales.places': role #3 has no class."}},
    {"role_of_another_models_class",
     [](auto& m, auto& other) {
         m.places->addRole(std::make_unique<ZORAssociationRole>())->setAssociatedClass(other.order);
     },
     {"Association 'Sales.places': role #3 refers to a class that is not of this model."}},
    {"foreign_key_of_another_model",
     [](auto& m, auto& other) { m.bought->addForeignKey(other.orderKey); },
     {"Association 'Sales.places': role 'bought' refers to a foreign key that is not of this model."}},
    {"foreign_key_of_another_class",
     [](auto& m, auto&) { m.bought->setAssociatedClass(m.specialOrder); },
     {"Association 'Sales.places': role 'bought' has the foreign key 'FK_ORDER', which is not of the role's "
      "class."}},
    {"foreign_key_to_another_class",
     [](auto& m, auto&) { m.buyer->setAssociatedClass(m.specialOrder); },
     {"Association 'Sales.places': role 'bought' has the foreign key 'FK_ORDER', which references a key that "
      "is not of "
      "the other role's class."}},
    {"update_rule",
     [](auto& m, auto&) { m.buyer->setUpdateRule(beyond(ZOR_ACTION_SET_NULL)); },
     {"Association 'Sales.places': role 'buyer' has the update rule 6, which is none of 0 to 5."}},
    {"delete_rule",
     [](auto& m, auto&) { m.buyer->setDeleteRule(beyond(ZOR_ACTION_SET_NULL)); },
     {"Association 'Sales.places': role 'buyer' has the delete rule 6, which is none of 0 to 5."}},
    {"insert_rule",
     [](auto& m, auto&) { m.buyer->setInsertRule(beyond(ZOR_ACTION_SET_NULL)); },
     {"Association 'Sales.places': role 'buyer' has the insert rule 6, which is none of 0 to 5."}},
    {"aggregation_kind",
     [](auto& m, auto&) { m.buyer->setAggregationKind(3); },
     {"Association 'Sales.places': role 'buyer' has the aggregation kind 3, which is none of 0 to 2."}},
    {"visibility_of_a_role",
     [](auto& m, auto&) { m.buyer->setVisibility(beyond(ZOR_VISIBILITY_IMPLEMENTATION)); },
     {"Association 'Sales.places': role 'buyer' has the visibility 4, which is none of 0 to 3."}},
    {"qualifier_without_a_type",
     [](auto& m, auto&) { m.qualifier->setType(nullptr); },
     {"Association 'Sales.places': role 'bought': qualifier 'by' has no type."}},
    {"key_with_a_qualifier",
     [](auto& m, auto&) { m.orderKey->addAttribute(m.qualifier); },
     {"Class 'Sales.Order': foreign key 'FK_ORDER' holds the attribute 'by', which is not of the key's "
      "class."}},
    {"generalization_without_classes",
     [](auto& m, auto&) { m.archive->addModelElement(std::make_unique<ZORGeneralization>()); },
     {"Generalization 'Sales.Archive.#1' has no parent.", "Generalization 'Sales.Archive.#1' has no child."}},
    {"null_parent",
     [](auto& m, auto&) { m.generalization->addSupertypeClass(nullptr); },
     {"Generalization 'Sales.is' has no parent."}},
    {"parent_of_another_model",
     [](auto& m, auto& other) { m.generalization->addSupertypeClass(other.order); },
     {"Generalization 'Sales.is' refers to a parent that is not of this model."}},
    {"child_of_another_model",
     [](auto& m, auto& other) { m.generalization->addSubtypeClass(other.order); },
     {"Generalization 'Sales.is' refers to a child that is not of this model."}},
    {"null_foreign_key",
     [](auto& m, auto&) { m.generalization->addForeignKey(nullptr); },
     {"Generalization 'Sales.is' has no foreign key."}},
    {"foreign_key_of_another_model_in_a_generalization",
     [](auto& m, auto& other) { m.generalization->addForeignKey(other.orderKey); },
     {"Generalization 'Sales.is' refers to a foreign key that is not of this model."}},
    {"visibility_of_a_generalization",
     [](auto& m, auto&) { m.generalization->setVisibility(beyond(ZOR_VISIBILITY_IMPLEMENTATION)); },
     {"Generalization 'Sales.is' has the visibility 4, which is none of 0 to 3."}},
    {"dependency_without_client_and_supplier",
     [](auto& m, auto&) { m.archive->addModelElement(std::make_unique<ZORDependency>()); },
     {"Dependency 'Sales.Archive.#1' has no client.", "Dependency 'Sales.Archive.#1' has no supplier."}},
    {"supplier_of_another_model",
     [](auto& m, auto& other) { m.dependency->setSupplier(other.order); },
     {"Dependency 'Sales.needs' refers to a supplier that is not of this model."}},
    {"realization_without_client_and_supplier",
     [](auto& m, auto&) { m.archive->addModelElement(std::make_unique<ZORRealization>()); },
     {"Realization 'Sales.Archive.#1' has no client.", "Realization 'Sales.Archive.#1' has no supplier."}},
    {"realization_with_a_stereotype",
     [](auto& m, auto&) { m.realization->setStereotype("x"); },
     {"Realization 'Sales.fulfils' has a stereotype of its own, which in the UML view a realization cannot "
      "have."}},
};

std::ostream& operator<<(std::ostream& out, const Fault& fault) {
    return out << fault.what;
}

class ModelCheckRefuses : public testing::TestWithParam<Fault> {};

TEST_P(ModelCheckRefuses, WithOneSentenceForEachFault) {
    CompleteModel other;
    CompleteModel m;
    GetParam().make(m, other);
    const std::string before = support::dumpModel(m.model);
    EXPECT_EQ(check(m.model), GetParam().sentences);
    EXPECT_EQ(support::dumpModel(m.model), before) << "the check leaves nothing behind";
}

INSTANTIATE_TEST_SUITE_P(Rows, ModelCheckRefuses, testing::ValuesIn(FAULTS),
                         [](const testing::TestParamInfo<Fault>& row) { return row.param.what; });

TEST(ModelCheck, PermitsStereotypesOfDataTypesAndRealizationsToAllViewsButUml) {
    CompleteModel m;
    m.integer->setStereotype("x");
    m.realization->setStereotype("x");
    EXPECT_THAT(check(m.model), SizeIs(2));
    EXPECT_THAT(checkModel(m.model, 20, ZORViewsToCheck::ALL_BUT_UML), IsEmpty());
}

TEST(ModelCheck, PermitsWhatIsOnlyUnusual) {
    CompleteModel m;
    m.customerIndexMember->setSortOrder(static_cast<ZORSortOrder>(9));  // counts as descending
    m.map->setReferencedAttribute(nullptr);                             // the name decides
    m.specialOrder->addKey(std::make_unique<ZORForeignKey>());          // of no role, to no key
    m.archive->addModelElement(std::make_unique<ZORAssociation>());     // without roles
    m.computedColumn->setSource(m.viewColumn);                          // a view over a view
    m.viewColumn->setSource(m.qualifier);
    m.catalog->addChildPackage(std::make_unique<ZORDesignPackage>());
    m.buyer->addForeignKey(nullptr);
    m.buyer->setMultiplicity("nonsense");
    EXPECT_THAT(check(m.model), IsEmpty());
}

TEST(ModelCheck, TellsNoMoreFaultsThanAskedFor) {
    ZORModel model;
    auto* cls = model.addChildPackage(std::make_unique<ZORDesignPackage>())
                    ->addModelElement(std::make_unique<ZORClass>());
    for (int i = 0; i < 100; ++i) {
        cls->addAttribute(std::make_unique<ZORAttribute>());
    }
    EXPECT_THAT(check(model, 3), ElementsAre("Class '#1.#1': attribute #1 has no type.",
                                             "Class '#1.#1': attribute #2 has no type.",
                                             "Class '#1.#1': attribute #3 has no type."));
    EXPECT_THAT(check(model), SizeIs(20));
    EXPECT_THAT(check(model, 1000), SizeIs(100));
}

TEST(ModelCheck, RefusesGeneralizationsOfTooManyPairs) {
    CompleteModel m;
    for (int i = 0; i < 1000; ++i) {
        m.generalization->addSubtypeClass(m.specialOrder);
        m.diagram->addModelElement(m.generalization);
    }
    EXPECT_THAT(check(m.model),
                ElementsAre("Generalization 'Sales.is' makes more than 1000000 pairs of its children "
                            "with its parents or diagrams, the most permitted."));
    CompleteModel other;
    for (int i = 1; i < 1000; ++i) {
        other.generalization->addSubtypeClass(other.specialOrder);
        other.generalization->addSupertypeClass(other.order);
    }
    EXPECT_THAT(check(other.model), IsEmpty());
    other.generalization->addSupertypeClass(other.order);
    EXPECT_THAT(check(other.model), SizeIs(1));
}

ZORDesignPackage* nest(ZORPackage& outermost, int levels) {
    ZORPackage* package = &outermost;
    for (int level = 1; level <= levels; ++level) {
        package = package->addChildPackage(std::make_unique<ZORDesignPackage>());
        package->setName(("p" + std::to_string(level)).c_str());
    }
    return static_cast<ZORDesignPackage*>(package);
}

TEST(ModelCheck, RefusesPackagesThatAreNestedTooDeep) {
    ZORModel model;
    ZORDesignPackage* deepest = nest(model, ZOR_DEEPEST_NESTING);
    EXPECT_THAT(check(model), IsEmpty());
    nest(*deepest, 1);
    EXPECT_THAT(check(model),
                ElementsAre("Package 'p1.p2.p3....p998.p999.p1000.p1' is nested deeper than 1000 packages, "
                            "the most permitted."));
    nest(*deepest, 500000);
    EXPECT_THAT(check(model), SizeIs(2)) << "and goes no deeper";
}

TEST(ModelCheck, NamesAClassByTheOuterAndInnerPackagesOfADeepPath) {
    ZORModel model;
    auto* cls = nest(model, 7)->addModelElement(std::make_unique<ZORClass>());
    cls->setClassType(77);
    cls->setPhysicalName("T");
    EXPECT_THAT(
        check(model),
        ElementsAre("Class 'p1.p2.p3....p5.p6.p7.T' has the class type 77, which is none of 0 to 9."));
}

/// Adds aliases, each of the one before.
void addAliases(ZORModel& model, int count) {
    ZORType* base = nullptr;
    for (int i = 0; i < count; ++i) {
        auto* alias = model.addType(std::make_unique<ZORAliasType>());
        alias->setName(("t" + std::to_string(i)).c_str());
        alias->setBaseType(base);
        base = alias;
    }
}

TEST(ModelCheck, RefusesTypesOnTooManyBases) {
    ZORModel model;
    addAliases(model, ZOR_DEEPEST_NESTING + 1);
    EXPECT_THAT(check(model), IsEmpty());
    ZORModel deeper;
    addAliases(deeper, 300000);
    EXPECT_THAT(check(deeper),
                ElementsAre("Type 't1001' stands on more than 1000 base types, the most permitted."));
}

TEST(ModelCheck, FindsOneFaultInARingOfBasesAndNoneInWhatStandsOnIt) {
    ZORModel model;
    addAliases(model, 100);
    const ZORVector<ZORType*>& types = model.getTypes();
    static_cast<ZORAliasType*>(types[0])->setBaseType(types[49]);
    EXPECT_THAT(check(model), ElementsAre("Type 't0' is based on itself, by itself or through other types."));
}

TEST(ModelCheck, TakesNoAccountOfTheOrderOfTypes) {
    ZORModel model;
    ZORAliasType* derived = nullptr;
    for (int i = 0; i < 1500; ++i) {  // each is the base of the one before
        auto* alias = model.addType(std::make_unique<ZORAliasType>());
        if (derived != nullptr) {
            derived->setBaseType(alias);
        }
        derived = alias;
    }
    EXPECT_THAT(check(model),
                ElementsAre("Type '#499' stands on more than 1000 base types, the most permitted."));
}

}  // namespace
