// The program without the memory for one thing or another: it tells so, or does all of its work.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

constexpr const char* SOURCE = R"(
CREATE TABLE a (id INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE);
CREATE TABLE b (a INTEGER REFERENCES a);
CREATE VIEW v AS SELECT name FROM a;
)";

/// Of the thousands of allocations of a run, every so many-th is tried; a prime number, lest the same step of
/// a loop is met each time.
constexpr long STRIDE = 13;

struct MemoryCase {
    const char* name;
    std::vector<std::string> arguments;
    const char* output;  ///< the file that is written; null when there is none
};

std::ostream& operator<<(std::ostream& out, const MemoryCase& row) {
    return out << row.name;
}

class LackOfMemory : public testing::TestWithParam<MemoryCase> {
  protected:
    LackOfMemory() {
        scratch.write("s.sql", SOURCE);
        scratch.write("m.model.json", modelDocument("m"));
        EXPECT_EQ(run(scratch, Setting{.arguments = {"export", "s.sql", "sound.xml"}, .environment = TIME})
                      .exitCode,
                  0);
    }
    Result runFailing(long n) const {
        std::map<std::string, std::string> environment = TIME;
        environment["LD_PRELOAD"] = MEMORY_SHIM;
        environment["FAILING_ALLOCATION"] = std::to_string(n);
        environment["ALLOCATION_REACHED"] = markers / "reached";
        return run(scratch, Setting{.arguments = GetParam().arguments, .environment = environment});
    }
    std::string written() const {
        return GetParam().output == nullptr ? std::string() : scratch.read(GetParam().output);
    }

    const std::map<std::string, std::string> TIME = {{"SOURCE_DATE_EPOCH", "0"}};
    Scratch scratch;
    Scratch markers;
};

TEST_P(LackOfMemory, AtAnyTimeIsToldAndLeavesAWholeOutputOrNone) {
    const Result sound = runFailing(0);
    ASSERT_EQ(sound.exitCode, 0) << sound.err;
    const std::string whole = written();
    const std::vector<std::string> files = scratch.list();
    std::vector<std::string> filesBefore = files;
    std::erase(filesBefore, GetParam().output == nullptr ? "" : GetParam().output);

    long n = 0;
    for (bool reached = true; reached && !HasFailure();) {
        n += STRIDE;
        if (GetParam().output != nullptr) {
            std::filesystem::remove(scratch.path() / GetParam().output);
        }
        const Result result = runFailing(n);
        reached = markers.exists("reached");
        std::filesystem::remove(markers.path() / "reached");
        SCOPED_TRACE("allocation " + std::to_string(n) + ": " + result.err);
        EXPECT_EQ(result.signal, 0);
        if (result.exitCode == 0) {
            EXPECT_EQ(written(), whole);
        } else if (result.exitCode == 1) {
            EXPECT_EQ(written(), whole);
            EXPECT_THAT(result.err,
                        testing::HasSubstr("oimbridge: error: the output is written, but there is "
                                           "not enough memory to tell more of it\n"));
        } else {
            EXPECT_THAT(result.err, testing::HasSubstr("oimbridge: error: "));
            EXPECT_EQ(scratch.list(), filesBefore);
        }
    }
    EXPECT_GT(n, 500) << "the failures reach the work itself";
}

INSTANTIATE_TEST_SUITE_P(
    Commands, LackOfMemory,
    testing::Values(
        MemoryCase{"Export", {"export", "s.sql", "out.xml", "--check"}, "out.xml"},
        MemoryCase{"Convert", {"convert", "s.sql", "out.model.json"}, "out.model.json"},
        MemoryCase{
            "ExportOfAModelDocument", {"export", "m.model.json", "out.xml", "--view", "dbm"}, "out.xml"},
        MemoryCase{"ExportOfAUmlModel", {"export", EXAMPLES_FOLDER "/rental.uml", "out.xml"}, "out.xml"},
        MemoryCase{"Inspect", {"inspect", "s.sql"}, nullptr},
        MemoryCase{"Check", {"check", "sound.xml"}, nullptr}, MemoryCase{"Options", {"options"}, nullptr}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace cli_test
