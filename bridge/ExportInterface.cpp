#include "ExportInterface.h"

#include "MicrosoftSqlServerMdsMdcExport.h"
#include "QLT_SQMDC.h"

namespace {

/// The version in the specification; the one in documents is of another build moment.
constexpr const char* SPECIFICATION_VERSION = "5.2.0 - Jun 12 2007 10:54:00";

const ZORBridgeOptionLiteral* const OPTIONS[] = {
    &QLT_SQMDC::BP_MODEL,
    &QLT_SQMDC::BP_MS_REPOSITORY,
    &QLT_SQMDC::BP_UML_1_3_SUPPORT,
    &QLT_SQMDC::BP_ERD_TYPESET,
    &QLT_SQMDC::BP_ERD_TYPESET_NAME,
    &QLT_SQMDC::BP_ERD_TYPESET_VERSION,
    &QLT_SQMDC::BP_DBM_TYPESET,
    &QLT_SQMDC::BP_DBM_TYPESET_NAME,
    &QLT_SQMDC::BP_DBM_TYPESET_VERSION,
    &QLT_SQMDC::BP_XML_INDENTATION__PRETTY_PRINTING_,
};

/// Calls the action with a new bridge; an exception that is not the host's leaves as the host's message.
template <typename Action>
void withBridge(ZORLog& log, const Action& action) {
    try {
        ZORMicrosoftSqlServerMdsMdcExportBridge bridge(&log);
        action(bridge);
    } catch (const ZORException&) {
        throw;
    } catch (...) {
        QLCM::BRIDGE_UNEXPECTED_ERROR.throwException(QLT_SQMDC::getDocumentId());
    }
}

}  // namespace

bool ZORMicrosoftSqlServerMdsMdcExportDllInterface::run(const ZORString& /*fileName*/, ZORModel& model,
                                                        ZOROptionList& options, ZORLog& log) {
    withBridge(log, [&](ZORMicrosoftSqlServerMdsMdcExportBridge& bridge) { bridge.run(&model, &options); });
    return true;
}

void ZORMicrosoftSqlServerMdsMdcExportDllInterface::getOptionList(ZOROptionList& list) {
    list.removeAll();
    list.append(generateOption(QLT_SQMDC::BP_FILE, "xml", "Default"));
    for (const ZORBridgeOptionLiteral* literal : OPTIONS) {
        list.append(generateOption(*literal));
    }
}

void ZORMicrosoftSqlServerMdsMdcExportDllInterface::getSpecification(const ZORString& bridgeId,
                                                                     ZORBridgeSpecification& specification) {
    const ZORBridgeSpecificationLiteral* literal = QLLST::findBridgeSpecification(bridgeId);
    if (literal == nullptr) {
        literal = &QLLST::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT;
    }
    const ZORTextLiteral* description = QLT_SQMDC::findTextLiteral(literal->getDescriptionId());
    specification = ZORBridgeSpecification();
    specification.toolWebReference = literal->getToolWebReference();
    specification.vendorName = literal->getVendorName();
    specification.toolName = literal->getToolName();
    specification.toolVersions = literal->getToolVersions();
    specification.methodologySummary = literal->getMethodologySummary();
    specification.version = SPECIFICATION_VERSION;
    specification.description =
        description != nullptr ? description->toString() : "*** " + literal->getDescriptionId();
}

ZORString ZORMicrosoftSqlServerMdsMdcExportDllInterface::getMappingSpecificationXmlFile() {
    return "ZORMicrosoftSqlServerMdsMdcDBMExport";
}

void ZORMicrosoftSqlServerMdsMdcExportDllInterface::inspect(ZORModel& model, ZOROptionList& options,
                                                            ZORLog& log, ZORExportObserver& observer) {
    withBridge(log, [&](ZORMicrosoftSqlServerMdsMdcExportBridge& bridge) {
        bridge.inspect(&model, &options, &observer);
    });
}

extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface() {
    static ZORMicrosoftSqlServerMdsMdcExportDllInterface interface;
    return &interface;
}
