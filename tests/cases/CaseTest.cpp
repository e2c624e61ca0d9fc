// Registers a test for every case and runs it.

#include <gtest/gtest.h>

#include "Case.h"
#include "CollectingLog.h"
#include "Document.h"
#include "Expectation.h"
#include "ModelDump.h"
#include "Reader.h"
#include "ZORClock.h"
#include "ZORManager.h"

namespace {

using namespace cases;

/// 12 June 2007, 10:53:57.
constexpr std::time_t MOMENT = 1181645637;

class SilentContext : public readers::ReadContext {
  public:
    void warn(const std::string& /*where*/, const std::string& /*text*/) override {}
    void progress(std::uint64_t /*objects*/) override {}
};

std::unique_ptr<ZORModel> readModel(const Case& which) {
    const readers::Source source = readers::Source::fromFile(which.source);
    readers::ReadRequest request;
    request.modelName = which.modelName;
    SilentContext context;
    for (const readers::Reader* reader : readers::allReaders()) {
        if (reader->identify(source)) {
            return reader->read(source, request, context);
        }
    }
    throw std::runtime_error("no reader knows " + which.source);
}

/// The events, a line each.
std::string describe(const std::vector<ZORLogEvent>& events) {
    std::string text;
    for (const ZORLogEvent& event : events) {
        text.append(event.getMessageId()).append(" ").append(event.getText()).append("\n");
    }
    return text;
}

class CaseTest : public ::testing::Test {
  public:
    CaseTest(const char* group, const char* name) : group_(group), name_(name) {}

    void SetUp() override { ZORClock::setFixed(MOMENT); }
    void TearDown() override { ZORClock::setFixed({}); }

    void TestBody() override {
        const Case which = readCase(group_, name_);
        const std::unique_ptr<ZORModel> model = readModel(which);
        for (const ZORString& fault : checkModel(*model)) {
            ADD_FAILURE() << "the model is unsound: " << fault.view();
        }
        const std::string before = support::dumpModel(*model);
        support::CollectingLog log;
        const std::string document = exportModel(which, *model, log);
        EXPECT_EQ(support::dumpModel(*model), before) << "the export changed the model";
        for (const std::string& fault : findFaults(document, which.mayDangle)) {
            ADD_FAILURE() << fault;
        }
        expect(which, "expected.xml", document);
        expect(which, "expected.log", describe(log.events()));
    }

  private:
    static std::string exportModel(const Case& which, ZORModel& model, ZORLog& log) {
        const std::string path = ACTUAL_FOLDER "/" + which.name + ".xml";
        const ZORBridge bridge = ZORBridgeManager(PLUGIN_FOLDER).load("MicrosoftSqlServerMdsMdcExport");
        ZOROptionList options;
        bridge.getOptionList(options);
        options.setValue("File", path.c_str());
        for (const auto& [name, value] : which.options) {
            options.setValue(name.c_str(), value.c_str());
        }
        bridge.run(model, options, log);
        std::string document = readFile(path);
        std::remove(path.c_str());
        return document;
    }
    static void expect(const Case& which, const char* fileName, const std::string& actual) {
        const std::string difference = compareWithExpected(which, fileName, actual);
        if (!difference.empty()) {
            ADD_FAILURE() << fileName << "\n" << difference;
        }
    }

    const char* group_;
    const char* name_;
};

struct CaseRow {
    const char* group;
    const char* name;
};

constexpr CaseRow CASES[] = {
#include "CaseList.inc"
};

const bool registered = [] {
    for (const CaseRow& row : CASES) {
        ::testing::RegisterTest(row.group, row.name, nullptr, nullptr, __FILE__, __LINE__,
                                [row]() -> CaseTest* { return new CaseTest(row.group, row.name); });
    }
    return true;
}();

}  // namespace
