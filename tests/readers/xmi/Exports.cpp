#include "Exports.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "CollectingLog.h"
#include "DocumentCheck.h"
#include "MemorySink.h"
#include "ModelDump.h"
#include "ZORManager.h"

namespace xmi_test {

namespace {

std::string exportModel(ZORModel& model, const char* view) {
    const ZORBridge bridge = ZORBridgeManager(PLUGIN_FOLDER).load("MicrosoftSqlServerMdsMdcExport");
    ZOROptionList options;
    bridge.getOptionList(options);
    options.setValue("Model", view);
    options.setValue("File", "memory");
    const auto record = std::make_shared<support::SinkRecord>();
    ZORFile::setSinkOpener(
        [&](const ZORString& /*path*/) { return std::make_unique<support::MemorySink>(record); });
    support::CollectingLog log;
    bridge.run(model, options, log);
    ZORFile::setSinkOpener({});
    return record->text();
}

void checkDocument(const std::string& document, const char* view) {
    oimcheck::DocumentCheck check([&](const oimcheck::Finding& finding) {
        if (finding.severity == oimcheck::Finding::Severity::ERROR) {
            ADD_FAILURE() << view << " view, line " << finding.line << ": " << finding.text;
        }
    });
    check.feed(document.data(), document.size());
    check.finish();
}

}  // namespace

void exportInEveryView(ZORModel& model) {
    const std::string before = support::dumpModel(model);
    for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
        checkDocument(exportModel(model, view), view);
        EXPECT_EQ(support::dumpModel(model), before) << "the export changed the model: " << view;
    }
}

}  // namespace xmi_test
