// Registers a test for every case and runs it.

#include <gtest/gtest.h>

#include "Case.h"
#include "CollectingLog.h"
#include "Document.h"
#include "Expectation.h"
#include "Export.h"
#include "ModelDump.h"
#include "ZORClock.h"
#include "ZORModelCheck.h"

namespace {

using namespace cases;

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
        const Reading reading = readModel(which.source, which.modelName);
        const std::unique_ptr<ZORModel>& model = reading.model;
        for (const ZORString& fault : checkModel(*model)) {
            ADD_FAILURE() << "the model is unsound: " << fault.view();
        }
        const std::string before = support::dumpModel(*model);
        support::CollectingLog log;
        const std::string document = exportModel(*model, which.options, which.name, log);
        EXPECT_EQ(support::dumpModel(*model), before) << "the export changed the model";
        for (const std::string& fault : findFaults(document, which.mayDangle)) {
            ADD_FAILURE() << fault;
        }
        expectSameWhenConverted(*model, before, which, document);
        expect(which, "expected.xml", document);
        expect(which, "expected.log", reading.log + describe(log.events()));
    }

  private:
    /// A model that was saved and read again is the same and gives the same document.
    static void expectSameWhenConverted(const ZORModel& model, const std::string& dump, const Case& which,
                                        const std::string& document) {
        const std::string saved = saveModel(model);
        const std::unique_ptr<ZORModel> again = readSavedModel(saved);
        EXPECT_EQ(support::dumpModel(*again), dump);
        EXPECT_EQ(saveModel(*again), saved);
        support::CollectingLog log;
        EXPECT_EQ(exportModel(*again, which.options, which.name, log), document);
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
