// Progress on a terminal. The program waits for its input here, so that the run lasts as long as the test
// wants.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

const std::string ERASE = "\r\x1b[K";
const std::vector<std::string> SLOW_EXPORT = {"export", "sql:-", "out.xml"};

TEST(Progress, IsShownInALongRunAndTakenAwayAfterwards) {
    const Scratch scratch;
    Process process(scratch, Setting{.arguments = SLOW_EXPORT, .terminal = true});
    ASSERT_TRUE(process.waitForTerminal(ERASE + "standard input: "));
    process.writeInput("CREATE TABLE t (a INTEGER);");
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, EndsWith(ERASE));
    EXPECT_THAT(result.err, Not(HasSubstr("\n")));
}

TEST(Progress, GivesWayToAnInterrupt) {
    const Scratch scratch;
    Process process(scratch, Setting{.arguments = SLOW_EXPORT, .terminal = true});
    ASSERT_TRUE(process.waitForTerminal(ERASE + "standard input: "));
    process.signal(SIGINT);
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_THAT(result.err, EndsWith(ERASE + "oimbridge: error: interrupted\r\n"));
}

TEST(Progress, IsNotShownInAShortRunNorInAPipeNorQuietlyNorToPrograms) {
    const Scratch scratch;
    const Result brief = run(
        scratch, Setting{.arguments = SLOW_EXPORT, .input = "CREATE TABLE t (a INTEGER);", .terminal = true});
    EXPECT_EQ(brief.exitCode, 0);
    EXPECT_EQ(brief.err, "");
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{}, {"-q"}, {"--log-format", "json"}}) {
        std::vector<std::string> arguments = SLOW_EXPORT;
        arguments.insert(arguments.end(), more.begin(), more.end());
        Process process(scratch, Setting{.arguments = arguments, .terminal = !more.empty()});
        ASSERT_TRUE(waitUntil([&] { return process.catches(SIGINT); }));
        // Progress is not due before a second; that much time passes in any case.
        std::this_thread::sleep_for(std::chrono::milliseconds(1300));
        process.signal(SIGINT);
        EXPECT_THAT(process.wait().err, Not(HasSubstr("\x1b")));
    }
}

}  // namespace
}  // namespace cli_test
