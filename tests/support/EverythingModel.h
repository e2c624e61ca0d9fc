// A model in which every construct stands at least once.
#pragma once

#include "ModelBuilder.h"

namespace support {

/// Adds tables with keys, indexes, triggers and procedures, and a view, to the builder's model.
inline void addDatabaseParts(ModelBuilder& model) {
    model.addCatalog("SQLite");
    model.addPackage("Sales");
    ZORClass* customer = model.addTable("Customer", {"id", "name"});
    customer->setPhysicalName("CUSTOMER");
    customer->setDescription("A buyer");
    customer->setEstimatedSize(1000);
    customer->addNote(std::make_unique<ZORNote>("Ask sales."));
    customer->getAttribute("name")->setType(model.text);
    ZORCandidateKey* customerKey = model.addPrimaryKey(customer, "PK_CUSTOMER", {"id"});
    ZORClass* order = model.addTable("Order", {"no", "customer", "total"});
    ZORAttribute* total = order->getAttribute("total");
    total->setType(model.addType("money", "SQL_NUMERIC", 10, 2));
    total->setInitialValue("0");
    total->setOptional(true);
    model.addPrimaryKey(order, "PK_ORDER", {"no"});
    ZORForeignKey* orderKey = model.addForeignKey(order, "FK_CUSTOMER", {"customer"}, customerKey);
    model.addMap(order->getAttribute("customer"), orderKey, customer->getAttribute("id"));
    model.addIndex(order, "I_CUSTOMER", {"customer", "no"})->setUnique(true);
    model.addSynonym(order, "PURCHASE");
    model.addRelationship("places", orderKey)->getRoles()[1]->setDeleteRule(ZOR_ACTION_CASCADE);

    auto* trigger = model.addOperation<ZORTrigger>(order, "check_total");
    trigger->setUpdate(true);
    trigger->setBody("SELECT 1");
    auto* procedure = model.addOperation<ZORStoredProcedure>(order, "total_of");
    procedure->setBody("BEGIN END");
    procedure->setResultType(model.number);
    model.addArgument(procedure, "customer");
    model.addOperation<ZORStoredProcedure>(model.package(), "clean")->setResultType(model.text);
    ZORSQLViewEntity* view = model.addView("Open orders");
    model.addViewColumn(view, "no", order->getAttribute("no"));
    model.addViewColumn(view, "what")->setType(model.text);
}

/// Adds generalizations that share a key, an association class, derived and alias types, diagrams, and names
/// that clash.
inline void addModelParts(ModelBuilder& model) {
    ZORDesignPackage* people = model.addPackage("People");
    ZORClass* person = model.addTable("Person", {"id"});
    ZORCandidateKey* personKey = model.addPrimaryKey(person, "PK_PERSON", {"id"});
    ZORClass* buyer = model.addTable("Customer", {"id", "rating"});
    ZORClass* clerk = model.addTable("Clerk", {"id"});
    ZORForeignKey* buyerKey = model.addForeignKey(buyer, "FK_BUYER", {"id"}, personKey);
    ZORForeignKey* clerkKey = model.addForeignKey(clerk, "FK_CLERK", {"id"}, personKey);
    ZORGeneralization* kinds = model.addGeneralization("kinds", {person}, {buyer, clerk});
    kinds->addForeignKey(buyerKey);
    kinds->addForeignKey(clerkKey);
    model.addGeneralization("shared", {person}, {buyer, clerk})->addForeignKey(buyerKey);
    model.addGeneralization("several", {person, clerk}, {buyer});
    ZORAssociation* service = model.addAssociation("serves");
    model.addRole(service, clerk, "0..*");
    model.addRole(service, buyer, "0..*");
    ZORClass* details = model.addTable("Service");
    service->setAssociationClass(details);

    ZORDerivedType* rating = model.addDerived("rating", model.number, 2);
    rating->setInitialValue("1");
    model.addValue(rating, "good", 1, "G");
    model.addValue(rating, "bad", 0, "B");
    buyer->getAttribute("rating")->setType(model.addAlias("grade", rating));
    buyer->getAttribute("rating")->setOptional(true);
    model.addPackage("Inner", people);
    model.addDiagram("All", {person, buyer, clerk, kinds, service});
    model.addDiagram("All", {kinds, kinds});
    model.addDiagram("Empty");
}

/// All of it.
inline ModelBuilder makeEverything() {
    ModelBuilder model("Everything");
    addDatabaseParts(model);
    addModelParts(model);
    return model;
}

}  // namespace support
