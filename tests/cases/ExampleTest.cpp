// What comes of every example in every view: a sound document, the same from the model when it was saved
// between, and a model that is as it was.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "CollectingLog.h"
#include "Document.h"
#include "Export.h"
#include "ModelDump.h"
#include "ZORClock.h"

namespace cases {
namespace {

constexpr const char* VIEWS[] = {"UML", "ERD", "DBM", "ERD and DBM"};

class Example : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override { ZORClock::setFixed(MOMENT); }
    void TearDown() override { ZORClock::setFixed({}); }

    static std::string exportView(ZORModel& model, const std::string& view) {
        support::CollectingLog log;
        // Tests run at the same time: each writes a file of its own.
        std::string file = testing::UnitTest::GetInstance()->current_test_info()->name();
        std::replace(file.begin(), file.end(), '/', '.');
        return exportModel(model, {{"Model", view}}, file, log);
    }
};

TEST_P(Example, GivesSoundDocumentsAlsoWhenItWasSaved) {
    const auto model = readModel(PROJECT_FOLDER "/examples/" + GetParam(), {}).model;
    const std::string saved = saveModel(*model);
    const auto again = readSavedModel(saved);
    EXPECT_EQ(support::dumpModel(*again), support::dumpModel(*model));
    EXPECT_EQ(saveModel(*again), saved);
    for (const char* view : VIEWS) {
        SCOPED_TRACE(view);
        const std::string document = exportView(*model, view);
        EXPECT_EQ(findFaults(document, true), std::vector<std::string>());
        EXPECT_EQ(exportView(*again, view), document);
    }
}

TEST_P(Example, IsTheSameModelAfterEveryExport) {
    const auto model = readModel(PROJECT_FOLDER "/examples/" + GetParam(), {}).model;
    const std::string before = support::dumpModel(*model);
    for (const char* view : VIEWS) {
        exportView(*model, view);
        EXPECT_EQ(support::dumpModel(*model), before) << view;
    }
}

std::vector<std::string> examples() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(PROJECT_FOLDER "/examples")) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, Example, testing::ValuesIn(examples()), [](const auto& example) {
    std::string name = example.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

}  // namespace
}  // namespace cases
