// Who lists whom: what the objects of a model register with each other, and how taking one out undoes it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "ModelDump.h"

namespace {

using namespace support;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename Part>
std::vector<const Part*> all(const ZORVector<Part*>& list) {
    return {list.begin(), list.end()};
}

/// Takes an object out of its model and destroys it.
void takeOut(ZORModelObject* object) {
    object->setOwner(nullptr);
    delete object;
}

class Registration : public ::testing::Test {
  protected:
    ModelBuilder builder;
    ZORClass* customer = builder.addTable("Customer", {"id"});
    ZORClass* order = builder.addTable("Order", {"id", "customer"});
    ZORCandidateKey* primary = ModelBuilder::addPrimaryKey(customer, "PK", {"id"});
    ZORForeignKey* foreign = ModelBuilder::addForeignKey(order, "FK", {"customer"}, primary);
    ZORForeignKey* other = ModelBuilder::addForeignKey(order, "FK2", {"id"}, primary);
};

TEST_F(Registration, AForeignKeyKnowsTheRoleThatItIsAddedTo) {
    EXPECT_EQ(foreign->getAssociationRole(), nullptr);
    ZORAssociation* association = builder.addRelationship("places", foreign);
    EXPECT_EQ(foreign->getAssociationRole(), association->getRoles()[1]);
    EXPECT_EQ(association->getRoles()[1]->getForeignKey(), foreign);
    EXPECT_EQ(association->getRoles()[0]->getForeignKey(), nullptr);
}

TEST_F(Registration, AForeignKeyOfSeveralRolesBelongsToTheLastAndEveryRoleKeepsIt) {
    ZORAssociationRole* roles[3];
    for (ZORAssociationRole*& role : roles) {
        role = ModelBuilder::addRole(builder.addAssociation("a"), order, "1", foreign);
        EXPECT_EQ(foreign->getAssociationRole(), role);
    }
    for (const ZORAssociationRole* role : roles) {
        EXPECT_EQ(role->getForeignKey(), foreign);
    }
    takeOut(roles[1]);
    EXPECT_EQ(foreign->getAssociationRole(), roles[2]);
    takeOut(roles[2]);
    EXPECT_EQ(foreign->getAssociationRole(), roles[0]);
    takeOut(roles[0]);
    EXPECT_EQ(foreign->getAssociationRole(), nullptr);
}

TEST_F(Registration, ARoleGivesUpItsForeignKeyForAnother) {
    ZORAssociationRole* role = ModelBuilder::addRole(builder.addAssociation("a"), order, "1", foreign);
    role->addForeignKey(other);
    EXPECT_EQ(role->getForeignKey(), other);
    EXPECT_EQ(other->getAssociationRole(), role);
    EXPECT_EQ(foreign->getAssociationRole(), nullptr);
    role->addForeignKey(nullptr);
    EXPECT_EQ(role->getForeignKey(), nullptr);
    EXPECT_EQ(other->getAssociationRole(), nullptr);
}

TEST_F(Registration, AForeignKeyAddedTwiceToARoleIsListedOnce) {
    ZORAssociationRole* role = ModelBuilder::addRole(builder.addAssociation("a"), order, "1", foreign);
    role->addForeignKey(foreign);
    EXPECT_EQ(role->getForeignKey(), foreign);
    EXPECT_THAT(all(foreign->getAssociationRoles()), ElementsAre(role));
}

TEST_F(Registration, ATakenOutRoleLeavesItsAssociation) {
    ZORAssociation* association = builder.addRelationship("places", foreign);
    ZORAssociationRole* role = association->getRoles()[0];
    EXPECT_EQ(role->getAssociation(), association);
    role->setOwner(nullptr);
    EXPECT_EQ(role->getAssociation(), nullptr);
    EXPECT_EQ(association->getRoles().size(), 1U);
    delete role;
}

TEST_F(Registration, AnAttributeListsItsKeysInTheOrderInWhichItJoinedThem) {
    ZORAttribute* id = order->getAttribute("id");
    ZORCandidateKey* key = ModelBuilder::addKey(order, "PK2", {"id"});
    EXPECT_THAT(all(id->getKeys()), ElementsAre(other, key));
    EXPECT_THAT(all(key->getAttributes()), ElementsAre(id));
    EXPECT_EQ(key->getAssociatedClass(), order);
    EXPECT_EQ(id->getAssociatedClass(), order);
}

TEST_F(Registration, AQualifierBelongsToNoClass) {
    ZORAssociationRole* role = ModelBuilder::addRole(builder.addAssociation("a"), order, "1");
    EXPECT_EQ(role->addQualifier(std::make_unique<ZORAttribute>())->getAssociatedClass(), nullptr);
}

TEST_F(Registration, AnAssociationClassAndItsAssociationKnowEachOther) {
    ZORAssociation* association = builder.addAssociation("a");
    association->setAssociationClass(order);
    EXPECT_EQ(order->getAssociation(), association);
    association->setAssociationClass(customer);
    EXPECT_EQ(order->getAssociation(), nullptr);
    EXPECT_EQ(customer->getAssociation(), association);
    takeOut(association);
    EXPECT_EQ(customer->getAssociation(), nullptr);
}

TEST_F(Registration, AnAssociationThatLostItsClassToAnotherLeavesItThere) {
    ZORAssociation* first = builder.addAssociation("first");
    ZORAssociation* second = builder.addAssociation("second");
    first->setAssociationClass(order);
    second->setAssociationClass(order);
    takeOut(first);
    EXPECT_EQ(order->getAssociation(), second);
}

TEST_F(Registration, AChildClassListsItsGeneralizationsAndAParentDoesNot) {
    ZORGeneralization* generalization = builder.addGeneralization("is a", {customer}, {order});
    EXPECT_THAT(all(order->getGeneralizations()), ElementsAre(generalization));
    EXPECT_THAT(all(customer->getGeneralizations()), IsEmpty());
    takeOut(generalization);
    EXPECT_THAT(all(order->getGeneralizations()), IsEmpty());
}

TEST_F(Registration, ACopiedGeneralizationStandsAlone) {
    ZORGeneralization* generalization = builder.addGeneralization("is a", {customer}, {order});
    generalization->setDesignLevel(ZOR_PHYSICAL_ONLY);
    generalization->setVisibility(ZOR_VISIBILITY_PRIVATE);
    generalization->setDescription("description");
    generalization->setComments("comments");
    generalization->setStereotype("stereotype");
    generalization->setPhysicalName("physical");
    generalization->addForeignKey(foreign);
    generalization->addNote(std::make_unique<ZORNote>("note"));
    builder.addDiagram("d", {generalization});
    int userData = 0;
    generalization->setGeneralPointer(&userData);

    const ZORGeneralization copy(*generalization);
    EXPECT_EQ(copy.getElementType(), ZOR_GENERALIZATION);
    EXPECT_EQ(copy.getName(), "is a");
    EXPECT_EQ(copy.getDesignLevel(), ZOR_PHYSICAL_ONLY);
    EXPECT_EQ(copy.getVisibility(), ZOR_VISIBILITY_PRIVATE);
    EXPECT_EQ(copy.getDescription(), "description");
    EXPECT_EQ(copy.getComments(), "comments");
    EXPECT_EQ(copy.getStereotype(), "stereotype");
    EXPECT_EQ(copy.getPhysicalName(), "physical");
    EXPECT_TRUE(copy.getParents().isEmpty() && copy.getChildren().isEmpty() &&
                copy.getForeignKeys().isEmpty());
    EXPECT_TRUE(copy.getDiagrams().isEmpty() && copy.getNotes().isEmpty());
    EXPECT_EQ(copy.getOwner(), nullptr);
    EXPECT_EQ(copy.getGeneralPointer(), nullptr);
}

TEST_F(Registration, AClientListsItsDependenciesAndRealizations) {
    ZORDependency* dependency = builder.package()->addModelElement(std::make_unique<ZORDependency>());
    dependency->setClient(order);
    dependency->setSupplier(customer);
    ZORRealization* realization = builder.package()->addModelElement(std::make_unique<ZORRealization>());
    realization->setClient(order);
    realization->setSupplier(customer);
    EXPECT_THAT(all(order->getClientDependencies()), ElementsAre(dependency));
    EXPECT_THAT(all(order->getRealizations()), ElementsAre(realization));
    EXPECT_THAT(all(customer->getClientDependencies()), IsEmpty());
    EXPECT_THAT(all(customer->getRealizations()), IsEmpty());
    takeOut(dependency);
    takeOut(realization);
    EXPECT_THAT(all(order->getClientDependencies()), IsEmpty());
    EXPECT_THAT(all(order->getRealizations()), IsEmpty());
}

TEST_F(Registration, AnElementLeavesItsPackageAndItsDiagrams) {
    ZORClass* extra = builder.addTable("Extra");
    ZORDiagram* first = builder.addDiagram("first", {customer, extra, order});
    ZORDiagram* second = builder.addDiagram("second", {extra});
    EXPECT_THAT(all(extra->getDiagrams()), ElementsAre(first, second));
    EXPECT_EQ(extra->getDesignPackage(), builder.package());
    takeOut(extra);
    EXPECT_THAT(all(first->getModelElements()), ElementsAre(customer, order));
    EXPECT_THAT(all(second->getModelElements()), IsEmpty());
    EXPECT_THAT(all(builder.package()->getModelElements()), ElementsAre(customer, order));
}

TEST_F(Registration, ADiagramMayShowANote) {
    ZORNote* note = customer->addNote(std::make_unique<ZORNote>("text"));
    ZORDiagram* diagram = builder.addDiagram("d", {note});
    EXPECT_THAT(all(diagram->getModelElements()), ElementsAre(note));
}

TEST_F(Registration, ATypeListsWhatIsTypedByIt) {
    ZORType* type = builder.addType("t", "SQL_DATE");
    ZORAttribute* attribute = builder.addColumn(order, "when", type);
    ZORSQLViewAttribute* column = ModelBuilder::addViewColumn(builder.addView("v"), "when");
    column->setType(type);
    ZOROperation* operation = ModelBuilder::addOperation<ZOROperation>(order, "o");
    operation->setResultType(type);
    ZORArgument* argument = builder.addArgument(operation, "x", type);
    EXPECT_THAT(all(type->getTypedObjects()), ElementsAre(attribute, column, operation, argument));

    attribute->setType(builder.number);
    operation->setResultType(nullptr);
    EXPECT_THAT(all(type->getTypedObjects()), ElementsAre(column, argument));
    EXPECT_EQ(operation->getResultType(), nullptr);
    column->setType(type);
    EXPECT_THAT(all(type->getTypedObjects()), ElementsAre(column, argument)) << "the same type once more";
}

TEST_F(Registration, ALoneArgumentLeavesItsType) {
    const std::size_t before = builder.number->getTypedObjects().size();
    {
        ZORArgument argument;
        argument.setName("result");
        argument.addType(builder.number);
        EXPECT_EQ(builder.number->getTypedObjects().size(), before + 1);
        argument.setOwner(nullptr);
        EXPECT_EQ(argument.getType(), nullptr);
    }
    EXPECT_EQ(builder.number->getTypedObjects().size(), before);
}

TEST_F(Registration, WhatIsAddedAndTakenOutLeavesNoTrace) {
    builder.addRelationship("places", foreign);
    ZORGeneralization* generalization = builder.addGeneralization("is a", {customer}, {order});
    ZORDiagram* diagram = builder.addDiagram("d", {generalization, order});
    const std::string before = dumpModel(*builder.model());

    ZORAssociation* association = builder.addAssociation("added");
    ZORAssociationRole* parent = ModelBuilder::addRole(association, customer, "1");
    ZORAssociationRole* child = ModelBuilder::addRole(association, order, "*", foreign);
    diagram->addModelElement(association);
    association->setAssociationClass(order);
    ZORGeneralization* copy =
        builder.package()->addModelElement(std::make_unique<ZORGeneralization>(*generalization));
    copy->addSupertypeClass(customer);
    copy->addSubtypeClass(order);
    diagram->addModelElement(copy);
    ZORAliasType* alias = builder.addAlias("alias", builder.number);
    EXPECT_NE(dumpModel(*builder.model()), before);

    for (ZORModelObject* object :
         std::initializer_list<ZORModelObject*>{alias, copy, child, parent, association}) {
        takeOut(object);
    }
    EXPECT_EQ(dumpModel(*builder.model()), before);
}

}  // namespace
