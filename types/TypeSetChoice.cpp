// The choice of a type set.

#include "MicrosoftSqlServerMdsMdcExport.h"
#include "QLT_SQMDC.h"

namespace {

/// Where the choices begin that name a convention, after "None" and "Default".
constexpr std::size_t FIRST_CONVENTION = 2;

/// The index of the choice among those from `first` on, or how many choices there are. The values of the ERD
/// option are looked up here too: both options have the same choices.
std::size_t findChoice(const ZORString& choice, std::size_t first) noexcept {
    const ZORBridgeOptionEnumerationLiteral& choices = QLT_SQMDC::BP_DBM_TYPESET_ENUM;
    std::size_t index = first;
    while (index < choices.size() && !(choices[index].getText() == choice)) {
        ++index;
    }
    return index;
}

/// The type of the database that the model describes; empty when there is none.
ZORString getDatabaseType(const ZORModel& model) {
    for (const ZORPackage* child : model.getChildPackages()) {
        if (child->getElementType() == ZOR_DATABASE_CATALOG) {
            return static_cast<const ZORDatabaseCatalog*>(child)->getDatabaseType();
        }
    }
    return {};
}

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::dtmInit(MDCTypeSet& set, MDCSubjectArea area, const ZORString& choice,
                     const ZORString& nameOverride, const ZORString& versionOverride) {
    if (choice == QLT_SQMDC::BP_DBM_TYPESET_ENUM_NONE.getText()) {
        set.typeTable = nullptr;
        return;
    }
    std::size_t index = findChoice(choice, FIRST_CONVENTION);
    if (index == QLT_SQMDC::TYPESET_CHOICES) {
        // For "Default", a database named in the model is reported as not found and never looked up: no
        // convention is inferred from it, and the set stays off. Whoever wants data types names the set.
        const bool isDefault = choice == QLT_SQMDC::BP_DBM_TYPESET_ENUM_DEFAULT.getText();
        const ZORString databaseType = isDefault && area == DBM ? getDatabaseType(*model_) : ZORString();
        if (!isDefault || !databaseType.isEmpty()) {
            QLT_SQMDC::MDC_E_UNKNOWN_TYPESET.log(*log_, isDefault ? databaseType : choice, set.name);
        }
        index = findChoice(choice, 0);
    }
    if (index == QLT_SQMDC::TYPESET_CHOICES) {
        set.typeTable = nullptr;
        return;
    }
    const DTMTypeSetDescriptor& descriptor = DTM_TYPE_SET_DESCRIPTORS[index];
    set.name = nameOverride.isEmpty() ? ZORString(descriptor.databaseName) : nameOverride;
    set.version = versionOverride.isEmpty() ? ZORString(descriptor.version) : versionOverride;
    set.typeTable = descriptor.typeTable;
}
