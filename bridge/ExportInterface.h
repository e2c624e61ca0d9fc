#pragma once

#include "ZORBridgeInterface.h"

/// The plug-in as the host sees it. It has no state: each `run` makes a bridge, which lives as long as the
/// call.
class ZORMicrosoftSqlServerMdsMdcExportDllInterface : public ZORBridgeExportInterface,
                                                      public ZORBridgeInspectionInterface {
  public:
    /// `fileName` has no effect: the option "File" names the output.
    bool run(const ZORString& fileName, ZORModel& model, ZOROptionList& options, ZORLog& log) override;
    void getOptionList(ZOROptionList& list) override;
    void getSpecification(const ZORString& bridgeId, ZORBridgeSpecification& specification) override;
    ZORString getMappingSpecificationXmlFile() override;
    void inspect(ZORModel& model, ZOROptionList& options, ZORLog& log, ZORExportObserver& observer) override;
};

/// The one function that the library exports. Every call gives back the same object, which is never freed.
extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface();
