// Comparing with an expected file, and taking what came out in its place.

#include "Expectation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace cases {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// A case of one expected file, in a folder of its own.
class ExpectedFile : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "caseXXXXXX";
        which_.folder = ::mkdtemp(pattern.data());
        which_.name = "expectation.test";
        expected_ = which_.folder + "/expected.log";
        kept_ = ACTUAL_FOLDER "/expectation.test.expected.log";
        ::unsetenv("ZOR_UPDATE_GOLDEN");
        writeFile(expected_, "one\n");
    }
    void TearDown() override {
        std::filesystem::remove_all(which_.folder);
        std::filesystem::remove(kept_);
    }
    std::string compare(const std::string& actual) const {
        return compareWithExpected(which_, "expected.log", actual);
    }

    Case which_;
    std::string expected_;
    std::string kept_;
};

TEST_F(ExpectedFile, ThatDiffersIsShownWithWhatToDoNext) {
    const std::string difference = compare("two\n");
    EXPECT_THAT(difference, HasSubstr("-one\n+two\n"));
    EXPECT_THAT(difference, HasSubstr("./dev test --update-golden -R 'cases\\.expectation\\.test$'"));
    EXPECT_EQ(readFile(kept_), "two\n");
    EXPECT_EQ(readFile(expected_), "one\n");
}

TEST_F(ExpectedFile, ThatIsEqualAgainLeavesNothingBehind) {
    compare("two\n");
    EXPECT_THAT(compare("one\n"), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(kept_));
}

TEST_F(ExpectedFile, ThatIsUpdatedLeavesNothingBehind) {
    compare("two\n");
    ::setenv("ZOR_UPDATE_GOLDEN", "1", 1);
    EXPECT_THAT(compare("two\n"), IsEmpty());
    EXPECT_EQ(readFile(expected_), "two\n");
    EXPECT_FALSE(std::filesystem::exists(kept_));
    ::unsetenv("ZOR_UPDATE_GOLDEN");
}

}  // namespace
}  // namespace cases
