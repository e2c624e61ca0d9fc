// Stands in for the product's plug-in and looks at a model for as long as its user wants.

#include <unistd.h>

#include "StandIn.h"
#include "ZORXMLWriter.h"

namespace {

class ManyElements : public ZORXMLWriter {
  public:
    ManyElements() {
        for (int i = 0; i < 10'000; ++i) {
            countElement();
        }
    }
};

class PatientBridge : public StandInBridge, public ZORBridgeInspectionInterface {
  public:
    bool run(const ZORString& /*fileName*/, ZORModel& /*model*/, ZOROptionList& /*options*/,
             ZORLog& /*log*/) override {
        return false;
    }
    /// Ends with standard input.
    void inspect(ZORModel& /*model*/, ZOROptionList& /*options*/, ZORLog& /*log*/,
                 ZORExportObserver& /*observer*/) override {
        const ManyElements elements;
        char byte = 0;
        while (::read(STDIN_FILENO, &byte, 1) > 0) {
        }
    }
};

}  // namespace

extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface() {
    static PatientBridge bridge;
    return &bridge;
}
