// Exports that break off: at every write, when the file is closed, by the host's exception or another one.
// The model is as before in every case, and the host is told what went wrong first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EverythingModel.h"
#include "ModelDump.h"
#include "TestBridge.h"
#include "ZORClock.h"

namespace {

using namespace support;
using ::testing::EndsWith;
using ::testing::StartsWith;

/// Makes exports write to what the opener gives, as long as it lives.
class Opener {
  public:
    explicit Opener(ZORFile::SinkOpener opener) { ZORFile::setSinkOpener(std::move(opener)); }
    ~Opener() { ZORFile::setSinkOpener({}); }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;
};

class BrokenExport : public ::testing::TestWithParam<const char*> {
  protected:
    BrokenExport() { ZORClock::setFixed(0); }
    ~BrokenExport() override { ZORClock::setFixed({}); }

    /// The text of the failure; empty when the export completed.
    std::string failure(ZORFile::SinkOpener opener) {
        const Opener guard(std::move(opener));
        TestOptions options({{"Model", GetParam()},
                             {"ERD TypeSet", "XML Datatypes"},
                             {"DBM TypeSet", "SQL Server 7.x"},
                             {"XML Indentation (pretty printing)", " "}});
        CollectingLog log;
        try {
            getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, *model.model(), options, log);
        } catch (const ZORException& exception) {
            return exception.getText().c_str();
        }
        return {};
    }

    ModelBuilder model = makeEverything();
    std::string before = dumpModel(*model.model());
};

TEST_P(BrokenExport, AtAnyWriteLeavesTheModelAsBefore) {
    auto record = std::make_shared<SinkRecord>();
    ASSERT_EQ(failure([&](const ZORString&) { return std::make_unique<MemorySink>(record); }), "");
    const std::size_t writes = record->attempts;
    const std::string whole = record->text();
    ASSERT_GT(writes, 200U);
    for (std::size_t n = 1; n <= writes; ++n) {
        auto broken = std::make_shared<SinkRecord>();
        ASSERT_EQ(failure([&](const ZORString&) { return FailingSink::atWrite(n, broken); }),
                  "write " + std::to_string(n) + " failed");
        ASSERT_EQ(dumpModel(*model.model()), before) << "write " << n;
        ASSERT_EQ(broken->destroyed, 1) << "write " << n;
        // What was written is the beginning of the document, and no more is written behind the failure.
        ASSERT_EQ(broken->attempts, n);
        ASSERT_EQ(whole.compare(0, broken->text().size(), broken->text()), 0) << "write " << n;
    }
}

TEST_P(BrokenExport, WhenTheFileIsClosedTellsSoAndLeavesTheModelAsBefore) {
    auto record = std::make_shared<SinkRecord>();
    EXPECT_EQ(failure([&](const ZORString&) { return FailingSink::atClose(record); }), "close failed");
    EXPECT_EQ(record->closes, 1);
    EXPECT_EQ(dumpModel(*model.model()), before);
}

struct Unfriendly : ZORSink {
    void write(const char*, std::size_t) override { throw 7; }
};

TEST_P(BrokenExport, ByAnExceptionThatIsNotTheHostsIsReplacedByTheHostsMessage) {
    EXPECT_EQ(failure([](const ZORString&) { return std::make_unique<Unfriendly>(); }),
              "[QLCM_F0001] An unexpected error occurred in the bridge 'ZORMicrosoftSqlServerMdsMdcExport'");
    EXPECT_EQ(dumpModel(*model.model()), before);
}

INSTANTIATE_TEST_SUITE_P(View, BrokenExport, ::testing::Values("UML", "ERD", "DBM", "ERD and DBM"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, ' ');
                             return name;
                         });

struct ThrowingLog : ZORLog {
    void log(const ZORLogEvent&) override { throw ZORException("the log is full"); }
};

/// Lets what is written wait in the file's buffer, as long as it lives.
class FullBuffers {
  public:
    FullBuffers() { ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL); }
    ~FullBuffers() { ZORFile::setFlushPolicy(ZORFlushPolicy::EACH_LINE); }
    FullBuffers(const FullBuffers&) = delete;
    FullBuffers& operator=(const FullBuffers&) = delete;
};

TEST(BrokenLog, EndsTheExportWithWhatWasWrittenSoFarAndLeavesTheModelAsBefore) {
    ModelBuilder model;
    model.addTable("Customer");
    model.addTable("Customer");
    const std::string before = dumpModel(*model.model());
    auto record = std::make_shared<SinkRecord>();
    const Opener opener([&](const ZORString&) { return std::make_unique<MemorySink>(record); });
    const FullBuffers policy;
    TestOptions options({{"Model", "ERD"}, {"XML Indentation (pretty printing)", ""}});
    ThrowingLog log;
    try {
        getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, *model.model(), options, log);
        FAIL() << "no exception";
    } catch (const ZORException& failure) {
        EXPECT_EQ(failure.getText().view(), "the log is full");
    }
    EXPECT_EQ(dumpModel(*model.model()), before);
    // The second customer's new name is what the log is told of.
    const std::string end = "<erd:Entity oim:id=\"_3\" name=\"Customer\">\n</erd:Entity>\n";
    EXPECT_THAT(record->text(), StartsWith("<?xml "));
    EXPECT_THAT(record->text(), EndsWith(end));
    EXPECT_EQ(record->closes, 1);
}

TEST(BrokenFile, WritesNothingBehindTheFailedWriteOfAFullBuffer) {
    const FullBuffers policy;
    const ModelBuilder model = makeEverything();
    const std::string before = dumpModel(*model.model());
    auto record = std::make_shared<SinkRecord>();
    const Opener opener([&](const ZORString&) { return FailingSink::atWrite(1, record); });
    TestOptions options({{"Model", "DBM"}});
    CollectingLog log;
    EXPECT_THROW(getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, *model.model(), options, log),
                 ZORException);
    EXPECT_EQ(record->attempts, 1U);
    EXPECT_EQ(dumpModel(*model.model()), before);
}

}  // namespace
