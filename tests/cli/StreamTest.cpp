// Standard input and output.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::vector<std::string> TO_STANDARD_OUTPUT = {"export", "sql:-", "-"};

/// Makes standard output a pipe that nobody reads.
void closePipe() {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) == 0) {
        ::close(ends[0]);
        ::dup2(ends[1], STDOUT_FILENO);
    }
}

void fillDisk() {
    ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
}

TEST(Streams, InputAndOutputMayBothBeOne) {
    const Scratch scratch;
    const Result result = run(scratch, Setting{.arguments = TO_STANDARD_OUTPUT, .input = SHOP_SQL});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.out, StartsWith("<?xml"));
    EXPECT_THAT(result.out, EndsWith("</oim:Transfer>\n"));
    EXPECT_THAT(result.err,
                HasSubstr("oimbridge: note: standard input: written to standard output: DBM view of "));
    EXPECT_THAT(scratch.list(), IsEmpty());
}

TEST(Streams, HoldTheSameDocumentAsAFile) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    const std::map<std::string, std::string> clock = {{"SOURCE_DATE_EPOCH", "0"}};
    ASSERT_EQ(
        run(scratch, Setting{.arguments = {"export", "shop.sql", "a.xml"}, .environment = clock}).exitCode,
        0);
    for (const std::string out : {"-", "/dev/stdout", "/dev/fd/1"}) {
        const Result result =
            run(scratch, Setting{.arguments = {"export", "shop.sql", out, "-q"}, .environment = clock});
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(result.out, scratch.read("a.xml")) << out;
        EXPECT_EQ(result.err, "");
    }
}

TEST(Streams, InputIsRecognisedByItsContent) {
    const Scratch scratch;
    const Result result = run(scratch, Setting{.arguments = {"export", "-", "-", "--view", "dbm", "-q"},
                                               .input = modelDocument("m")});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.out, EndsWith("</oim:Transfer>\n"));
}

TEST(Streams, EmptyInputIsNoSource) {
    const Scratch scratch;
    const Result result = run(scratch, Setting{.arguments = {"inspect", "-"}});
    EXPECT_EQ(result.err, "oimbridge: error: standard input: there is nothing in it\n");
    EXPECT_EQ(result.exitCode, 4);
}

TEST(Streams, ClosedInputCannotBeRead) {
    const Scratch scratch;
    const Result result =
        run(scratch, Setting{.arguments = {"inspect", "-"}, .prepare = [] { ::close(STDIN_FILENO); }});
    EXPECT_EQ(result.err, "oimbridge: error: standard input: cannot be read: Bad file descriptor\n");
    EXPECT_EQ(result.exitCode, 3);
}

struct BrokenOutput {
    const char* name;
    void (*prepare)();
    std::string message;
};

class BrokenStandardOutput : public testing::TestWithParam<BrokenOutput> {};

TEST_P(BrokenStandardOutput, IsToldForEveryCommand) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"export", "shop.sql", "-"},
                                                      {"inspect", "shop.sql"},
                                                      {"options"},
                                                      {"--help"},
                                                      {"export", "--help"},
                                                      {"--version"}}) {
        const Result result = run(scratch, Setting{.arguments = arguments, .prepare = GetParam().prepare});
        EXPECT_EQ(result.err, "oimbridge: error: standard output: " + GetParam().message + "\n")
            << arguments[0];
        EXPECT_EQ(result.exitCode, 5) << arguments[0];
    }
}

INSTANTIATE_TEST_SUITE_P(
    Streams, BrokenStandardOutput,
    testing::Values(BrokenOutput{"ClosedPipe", closePipe, "the program that reads it has closed the pipe"},
                    BrokenOutput{"FullDisk", fillDisk, "cannot be written: No space left on device"},
                    BrokenOutput{"Closed", [] { ::close(STDOUT_FILENO); },
                                 "cannot be written: Bad file descriptor"}),
    [](const auto& broken) { return broken.param.name; });

TEST(Streams, ASummaryThatNobodyReadsDoesNotMakeTheExportFail) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    const Result result =
        run(scratch, Setting{.arguments = {"export", "shop.sql", "a.xml"}, .prepare = closePipe});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(scratch.exists("a.xml"));
}

TEST(Streams, AFileNeverTakesTheNumberOfAClosedStream) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    const auto closeAll = [] {
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        ::close(STDERR_FILENO);
    };
    const std::map<std::string, std::string> clock = {{"SOURCE_DATE_EPOCH", "0"}};
    ASSERT_EQ(run(scratch, Setting{.arguments = {"export", "shop.sql", "a.xml", "-v"}, .environment = clock})
                  .exitCode,
              0);
    const Result result = run(scratch, Setting{.arguments = {"export", "shop.sql", "b.xml", "-v"},
                                               .environment = clock,
                                               .prepare = closeAll});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(scratch.read("b.xml"), scratch.read("a.xml"));
}

}  // namespace
}  // namespace cli_test
