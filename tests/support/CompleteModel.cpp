#include "CompleteModel.h"

#include <memory>

namespace support {

namespace {

/// What stands for itself or has a word in UML can have a stereotype.
bool canHaveStereotype(const ZORModelObject& object) {
    return object.getElementType() != ZOR_REALIZATION &&
           (!object.isInstanceOf(ZOR_TYPE) || object.getElementType() == ZOR_CLASS_TYPE);
}

/// Gives an object every text that model objects may have.
void fill(ZORModelObject& object, const char* name) {
    object.setName(name);
    object.setPhysicalName(ZORString(name) + "_P");
    object.setDescription(ZORString(name) + " description");
    object.setComments(ZORString(name) + " comments");
    if (canHaveStereotype(object)) {
        object.setStereotype(ZORString(name) + " stereotype");
    }
    object.addNote(std::make_unique<ZORNote>(ZORString(name) + " note"));
}

template <typename Object>
std::unique_ptr<Object> make(const char* name) {
    auto object = std::make_unique<Object>();
    fill(*object, name);
    return object;
}

void addPackages(CompleteModel& m) {
    fill(m.model, "Shop");
    m.catalog = m.model.addChildPackage(make<ZORDatabaseCatalog>("shopdb"));
    m.catalog->setDatabaseType("SQL Server 7.x");
    m.sales = m.model.addChildPackage(make<ZORDesignPackage>("Sales"));
    m.archive = m.sales->addChildPackage(make<ZORDesignPackage>("Archive"));
    m.diagram = m.sales->addDiagram(make<ZORDiagram>("Overview"));
}

void addTypes(CompleteModel& m) {
    m.plainType = m.model.addType(make<ZORType>("anything"));
    m.integer = m.model.addType(make<ZORConcreteType>("integer"));
    m.integer->setDataType("SQL_INTEGER");
    m.color = m.model.addType(make<ZORDerivedType>("Color"));
    m.color->setDataType("SQL_VARCHAR");
    m.color->setLength(12);
    m.color->setScale(2);
    m.color->setInitialValue("red");
    m.color->setLowerBound("a");
    m.color->setUpperBound("z");
    m.color->setBaseType(m.integer);
    m.red = m.color->addTypeValue(make<ZORTypeValue>("Red"));
    m.red->setCode(7);
    m.red->setValue("r");
    m.alias = m.model.addType(make<ZORAliasType>("Tint"));
    m.alias->setBaseType(m.color);
    m.orderType = m.model.addType(make<ZORClassType>("OrderType"));
}

ZORClass* addClass(CompleteModel& m, const char* name) {
    ZORClass* cls = m.sales->addModelElement(make<ZORClass>(name));
    cls->setClassType(1);
    cls->setVisibility(ZOR_VISIBILITY_PROTECTED);
    cls->setConcurrency(ZOR_CONCURRENCY_ACTIVE);
    cls->setAbstract(true);
    cls->setPersistent(true);
    cls->setEstimatedSize(1000);
    return cls;
}

ZORAttribute* fillAttribute(ZORAttribute* attribute, ZORType* type) {
    attribute->setPosition(3);
    attribute->setType(type);
    attribute->setInitialValue("0");
    attribute->setOptional(true);
    attribute->setStatic(true);
    attribute->setVisibility(ZOR_VISIBILITY_PRIVATE);
    return attribute;
}

void fillOperation(ZOROperation& operation, ZORType* result) {
    operation.setResultType(result);
    operation.setConcurrency(ZOR_CONCURRENCY_GUARDED);
    operation.setVisibility(ZOR_VISIBILITY_IMPLEMENTATION);
    operation.setAbstract(true);
    operation.setStatic(true);
    operation.setPrecondition("before");
    operation.setPostcondition("behind");
    operation.setSemantics("meaning");
    operation.setBody("begin end");
}

ZORArgument* fillArgument(ZORArgument* argument, ZORType* type) {
    argument->addType(type);
    argument->setDefaultValue("1");
    argument->setKind(ZOR_ARGUMENT_INOUT);
    return argument;
}

void addCustomer(CompleteModel& m) {
    m.customer = addClass(m, "Customer");
    m.note = m.customer->getNotes()[0];
    m.customerId = fillAttribute(m.customer->addAttribute(make<ZORAttribute>("id")), m.integer);
    m.customerColor = fillAttribute(m.customer->addAttribute(make<ZORAttribute>("color")), m.alias);
    m.customerColor->setPosition(1);
    m.customerKey = m.customer->addKey(make<ZORCandidateKey>("PK_CUSTOMER"));
    m.customerKey->setUnique(true);
    m.customerKey->setPrimaryOfClass(m.customer);
    m.customerKey->addAttribute(m.customerId);
    m.customerIndex = m.customer->addIndex(make<ZORIndex>("IX_CUSTOMER"));
    m.customerIndex->setClustered(true);
    m.customerIndex->setUnique(true);
    m.customerIndex->setKey(m.customerKey);
    m.customerIndexMember = m.customerIndex->addIndexMember(make<ZORIndexMember>("first"));
    m.customerIndexMember->setAttribute(m.customerId);
    m.customerIndexMember->setSortOrder(ZOR_SORT_DESCENDING);
    m.synonym = m.customer->addSynonym(make<ZORSynonym>("CLIENT"));
    m.operation = m.customer->addOperation(make<ZOROperation>("greet"));
    fillOperation(*m.operation, m.color);
    m.argument = fillArgument(m.operation->addArgument(make<ZORArgument>("loud")), m.integer);
    m.trigger = static_cast<ZORTrigger*>(m.customer->addOperation(make<ZORTrigger>("audit")));
    fillOperation(*m.trigger, nullptr);
    m.trigger->setAfter(true);
    m.trigger->setInsert(true);
    m.trigger->setUpdate(true);
    m.trigger->setDelete(true);
    m.templateArgument = fillArgument(m.customer->addArgument(make<ZORArgument>("T")), m.plainType);
}

void addOrders(CompleteModel& m) {
    m.order = addClass(m, "Order");
    m.orderType->setAssociatedClass(m.order);
    m.orderCustomer = fillAttribute(m.order->addAttribute(make<ZORAttribute>("customer")), m.integer);
    m.orderKey = m.order->addKey(make<ZORForeignKey>("FK_ORDER"));
    m.orderKey->addAttribute(m.orderCustomer);
    m.orderKey->setCandidateKey(m.customerKey);
    m.map = m.orderCustomer->addRoleNameMap(make<ZORAssociationRoleNameMap>("map"));
    m.map->setForeignKey(m.orderKey);
    m.map->setReferencedAttribute(m.customerId);
    m.rebate = addClass(m, "Rebate");
    m.specialOrder = addClass(m, "SpecialOrder");
    m.specialId = fillAttribute(m.specialOrder->addAttribute(make<ZORAttribute>("no")), m.orderType);
    m.specialKey = m.specialOrder->addKey(make<ZORForeignKey>("FK_SPECIAL"));
    m.specialKey->addAttribute(m.specialId);
}

ZORAssociationRole* addRole(ZORAssociation& association, const char* name, ZORClass* cls) {
    ZORAssociationRole* role = association.addRole(make<ZORAssociationRole>(name));
    role->setAssociatedClass(cls);
    role->setMultiplicity("0..*");
    role->setUpdateRule(ZOR_ACTION_CASCADE);
    role->setDeleteRule(ZOR_ACTION_SET_NULL);
    role->setInsertRule(ZOR_ACTION_RESTRICT);
    role->setAggregateEnd(true);
    role->setAggregationKind(2);
    role->setNavigable(true);
    role->setOrdered(true);
    role->setSupertypeSide(true);
    role->setVisibility(ZOR_VISIBILITY_IMPLEMENTATION);
    role->setConstraint("{sorted}");
    return role;
}

void addRelationships(CompleteModel& m) {
    m.places = m.sales->addModelElement(make<ZORAssociation>("places"));
    m.places->setAssociationClass(m.rebate);
    m.places->setConstraint("{one}");
    m.places->setAggregation(true);
    m.places->setAssociationKind(1);
    m.buyer = addRole(*m.places, "buyer", m.customer);
    m.bought = addRole(*m.places, "bought", m.order);
    m.bought->addForeignKey(m.orderKey);
    m.qualifier = fillAttribute(m.bought->addQualifier(make<ZORAttribute>("by")), m.color);
    m.generalization = m.sales->addModelElement(make<ZORGeneralization>("is"));
    m.generalization->addSupertypeClass(m.order);
    m.generalization->addSubtypeClass(m.specialOrder);
    m.generalization->setVisibility(ZOR_VISIBILITY_PRIVATE);
    m.generalization->addForeignKey(m.specialKey);
    m.dependency = m.sales->addModelElement(make<ZORDependency>("needs"));
    m.dependency->setClient(m.order);
    m.dependency->setSupplier(m.customer);
    m.realization = m.sales->addModelElement(make<ZORRealization>("fulfils"));
    m.realization->setClient(m.order);
    m.realization->setSupplier(m.customer);
}

void addView(CompleteModel& m) {
    m.view = m.sales->addModelElement(make<ZORSQLViewEntity>("Buyers"));
    m.view->setSQLText("SELECT id FROM CUSTOMER");
    m.viewColumn = m.view->addSQLViewAttribute(make<ZORSQLViewAttribute>("buyer"));
    m.viewColumn->setType(m.integer);
    m.viewColumn->setSource(m.customerId);
    m.computedColumn = m.view->addSQLViewAttribute(make<ZORSQLViewAttribute>("total"));
    m.view->addOperation(make<ZOROperation>("refresh"));
    m.procedure = static_cast<ZORStoredProcedure*>(m.sales->addOperation(make<ZORStoredProcedure>("purge")));
    fillOperation(*m.procedure, m.integer);
    fillArgument(m.procedure->addArgument(make<ZORArgument>("before")), m.integer);
    m.diagram->addModelElement(m.customer);
    m.diagram->addModelElement(m.generalization);
    m.diagram->addModelElement(m.note);
}

}  // namespace

CompleteModel::CompleteModel() {
    addPackages(*this);
    addTypes(*this);
    addCustomer(*this);
    addOrders(*this);
    addRelationships(*this);
    addView(*this);
}

}  // namespace support
