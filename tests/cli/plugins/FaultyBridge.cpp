// Stands in for the product's plug-in and writes a document with an error in it.

#include "StandIn.h"
#include "ZORFile.h"

namespace {

class FaultyBridge : public StandInBridge {
  public:
    bool run(const ZORString& /*fileName*/, ZORModel& /*model*/, ZOROptionList& options,
             ZORLog& /*log*/) override {
        ZORFile file;
        file.setPath(options.getValue("File"));
        if (!file.openForOutput()) {
            return false;
        }
        file.printLine("<oim:Transfer/>");
        file.close();
        return true;
    }
};

}  // namespace

extern "C" ZORBridgeExportInterface* getZORMicrosoftSqlServerMdsMdcExportInterface() {
    static FaultyBridge bridge;
    return &bridge;
}
