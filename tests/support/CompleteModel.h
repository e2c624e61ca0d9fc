#pragma once

#include "ZOR.h"

namespace support {

/// A sound model in which every class of the model library stands and every property and reference has a
/// value, with the objects by name. Two of them have equal dumps.
struct CompleteModel {
    CompleteModel();
    CompleteModel(const CompleteModel&) = delete;
    CompleteModel& operator=(const CompleteModel&) = delete;

    ZORModel model;
    ZORDatabaseCatalog* catalog;
    ZORDesignPackage* sales;    ///< holds everything but `archive`
    ZORDesignPackage* archive;  ///< in `sales`
    ZORDiagram* diagram;

    ZORType* plainType;
    ZORConcreteType* integer;
    ZORDerivedType* color;
    ZORTypeValue* red;
    ZORAliasType* alias;  ///< of `color`
    ZORClassType* orderType;

    ZORClass* customer;
    ZORAttribute* customerId;
    ZORAttribute* customerColor;
    ZORCandidateKey* customerKey;  ///< primary, on `customerId`
    ZORIndex* customerIndex;       ///< implements `customerKey`
    ZORIndexMember* customerIndexMember;
    ZORSynonym* synonym;
    ZOROperation* operation;
    ZORArgument* argument;  ///< of `operation`
    ZORTrigger* trigger;
    ZORArgument* templateArgument;

    ZORClass* order;
    ZORAttribute* orderCustomer;
    ZORForeignKey* orderKey;  ///< references `customerKey`
    ZORAssociationRoleNameMap* map;
    ZORClass* rebate;        ///< the association class of `places`
    ZORClass* specialOrder;  ///< a child of `order`
    ZORAttribute* specialId;
    ZORForeignKey* specialKey;  ///< of the generalization

    ZORAssociation* places;
    ZORAssociationRole* buyer;
    ZORAssociationRole* bought;  ///< carries `orderKey`
    ZORAttribute* qualifier;
    ZORGeneralization* generalization;
    ZORDependency* dependency;
    ZORRealization* realization;

    ZORSQLViewEntity* view;
    ZORSQLViewAttribute* viewColumn;      ///< shows `customerId`
    ZORSQLViewAttribute* computedColumn;  ///< shows nothing
    ZORStoredProcedure* procedure;        ///< of `sales`
    ZORNote* note;                        ///< of `customer`
};

}  // namespace support
