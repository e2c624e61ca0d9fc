#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

/// An association that stands for the link of one subtype in the views that have no generalizations. Its own
/// code tells it from a real association.
class ZORMicrosoftSqlServerMdsMdcExportBridge::ZORMDCGeneralization : public ZORAssociation {
  public:
    ZORMDCGeneralization() noexcept : ZORAssociation(ZOR_OBJECT) {}
};

/// Goes over the model before anything is written: gives an association class and its association one UML
/// identifier, and reshapes generalizations into the form that the view needs, with objects that the bridge
/// owns and takes out again at cleanup.
class ZORMicrosoftSqlServerMdsMdcExportBridge::PreprocessOperation : public ZORTraversalOperation {
  public:
    void run(ZORMicrosoftSqlServerMdsMdcExportBridge* bridge);
    bool pre_process(ZORObject* object, void*& context) override;

  private:
    void shareIdentifier(ZORClass* cls);
    /// One association per subtype, the last subtype's first.
    void replaceByAssociations(ZORGeneralization* generalization);
    void addAssociation(ZORGeneralization* generalization, ZORClass* supertype, ZORClass* subtype);
    ZORAssociationRole* addRole(ZORAssociation* association, ZORClass* cls, bool supertypeSide);
    /// Notes for an inspection that the views have nothing for the generalization.
    void leaveOut(const ZORGeneralization* generalization, const char* reason);
    /// One copy for every pair of a supertype and a subtype.
    void splitIntoPairs(ZORGeneralization* generalization);

    ZORMicrosoftSqlServerMdsMdcExportBridge* bridge_ = nullptr;
};

/// Takes the user data off every object of the model.
class ZORMicrosoftSqlServerMdsMdcExportBridge::ResetGeneralPointerOperation : public ZORTraversalOperation {
  public:
    explicit ResetGeneralPointerOperation(ObjectUserDataPool& userData) noexcept : userData_(userData) {}
    bool pre_process(ZORObject* object, void*& context) override;

  private:
    ObjectUserDataPool& userData_;
};
