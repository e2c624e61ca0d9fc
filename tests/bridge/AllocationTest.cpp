// Exports that run out of memory, at every single allocation in turn.

#include <gtest/gtest.h>

#include "EverythingModel.h"
#include "FailingAllocator.h"
#include "ModelDump.h"
#include "TestBridge.h"

namespace {

using namespace support;

class NullSink : public ZORSink {
  public:
    void write(const char*, std::size_t) override {}
};

class NullLog : public ZORLog {
  public:
    void log(const ZORLogEvent&) override {}
};

class OutOfMemory : public ::testing::TestWithParam<const char*> {
  protected:
    OutOfMemory() {
        ZORFile::setSinkOpener([](const ZORString&) { return std::make_unique<NullSink>(); });
    }
    ~OutOfMemory() override { ZORFile::setSinkOpener({}); }

    enum class Outcome { COMPLETED, REPORTED, REPORTED_OTHERWISE };
    /// Exports with the n-th allocation failing; 0 for none.
    Outcome run(ZORModel& model, long n) {
        failAllocation(n);
        try {
            getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, model, options, log);
        } catch (const ZORException& exception) {
            return exception.getText() ==
                           "[QLCM_F0001] An unexpected error occurred in the bridge "
                           "'ZORMicrosoftSqlServerMdsMdcExport'"
                       ? Outcome::REPORTED
                       : Outcome::REPORTED_OTHERWISE;
        }
        return Outcome::COMPLETED;
    }

    TestOptions options{
        {"Model", GetParam()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "Oracle 8.x"}};
    NullLog log;
};

TEST_P(OutOfMemory, AtAnyAllocationLeavesNoLeakAndTheModelAsBefore) {
    const ModelBuilder model = makeEverything();
    const std::string before = dumpModel(*model.model());
    ASSERT_EQ(run(*model.model(), 0), Outcome::COMPLETED);
    long n = 0;
    for (bool completed = false; !completed;) {
        ++n;
        const long blocksBefore = blocksInUse();
        const Outcome outcome = run(*model.model(), n);
        const long leaked = blocksInUse() - blocksBefore;
        completed = endOfAllocationFailure();
        ASSERT_EQ(leaked, 0) << "allocation " << n;
        ASSERT_EQ(outcome, completed ? Outcome::COMPLETED : Outcome::REPORTED) << "allocation " << n;
        ASSERT_EQ(dumpModel(*model.model()), before) << "allocation " << n;
    }
    EXPECT_GT(n, onlyOperatorsFail() ? 5 : 50) << "the test reaches the export's allocations";
}

INSTANTIATE_TEST_SUITE_P(View, OutOfMemory, ::testing::Values("UML", "ERD", "DBM", "ERD and DBM"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, ' ');
                             return name;
                         });

}  // namespace
