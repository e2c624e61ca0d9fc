// A host of bridges in ten lines: exports a table to the file that its argument names, and tells where it is
// written what becomes of a model.
#include <iostream>

#include "ZORManager.h"

struct PrintingLog : ZORLog {
    void log(const ZORLogEvent& event) override { std::cerr << event.getText().c_str() << '\n'; }
};

int main(int /*count*/, char** arguments) {
    ZORModel model;
    model.setName("Shop");
    auto* schema = model.addChildPackage(std::make_unique<ZORDesignPackage>());
    schema->addModelElement(std::make_unique<ZORClass>())->setName("Customer");
    PrintingLog log;
    ZOROptionList options;
    const ZORBridge bridge = ZORBridgeManager().load("MicrosoftSqlServerMdsMdcExport");
    bridge.getOptionList(options);
    options.setValue("Model", "DBM");
    options.setValue("File", arguments[1]);
    bridge.run(model, options, log);
    std::cout << bridge.findMappingSpecification().c_str();
}
