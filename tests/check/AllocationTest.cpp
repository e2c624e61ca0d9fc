// Checks that run out of memory, at every single allocation in turn: they say so, and never call a document
// good or bad for it.

#include <gtest/gtest.h>

#include <new>
#include <optional>

#include "Documents.h"
#include "FailingAllocator.h"

namespace {

using namespace check_test;
using namespace support;

/// Something of everything: elements, a text, a note, errors, and at last what is not well-formed.
std::string makeDocument() {
    std::string many;
    for (int i = 20; i < 60; ++i) {
        many += makeClass(
            i, makeAttribute(i + 100, "<uml:Class oim:href=\"#_" + std::to_string(i + 300) + "\"/>"));
    }
    return packaged(LOOSE_ENDS + many +
                    "<uml:Clas a=\"&lt;\u00e4\"/>text<uml:Class/>\n<uml:Package name=\"&foo;\"/>");
}

/// What is found with the n-th allocation failing (0 for none); nothing when the check runs out of memory.
std::optional<Result> checkWithFailure(const std::string& document, long n) {
    failAllocation(n);
    try {
        return check(document, document.size() / 2 + 1);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

void expectSame(const Result& result, const Result& expected, long n) {
    EXPECT_EQ(result.findings, expected.findings) << "allocation " << n;
    EXPECT_EQ(result.summary.errors, expected.summary.errors) << "allocation " << n;
    EXPECT_EQ(result.summary.notes, expected.summary.notes) << "allocation " << n;
}

/// The first use of the libraries is part of it: what it began and could not finish is begun anew.
TEST(CheckOutOfMemory, SaysSoFromTheFirstUseOnAndPrintsNothing) {
    const std::string document = makeDocument();
    testing::internal::CaptureStderr();
    std::vector<std::pair<long, Result>> results;
    long n = 0;
    for (bool completed = false; !completed;) {
        std::optional<Result> result = checkWithFailure(document, ++n);
        completed = endOfAllocationFailure();
        if (result) {
            results.emplace_back(n, std::move(*result));
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    ASSERT_FALSE(results.empty());
    EXPECT_GT(results.back().second.summary.errors, 3U);
    for (const auto& [number, result] : results) {
        expectSame(result, results.back().second, number);
    }
    EXPECT_GT(n, onlyOperatorsFail() ? 20 : 100) << "the test reaches the check's allocations";
}

/// Names and namespaces share the parser's pools. A name in front of the document, longer and longer, lets
/// each of them be in turn the one that needs another pool, and that is lost without a word when there is
/// none.
TEST(CheckOutOfMemory, IsNotTakenForAMissingNamespace) {
    for (std::size_t length = 500; length < 1000; length += 10) {
        const std::string document = frame("<uml:Model oim:id=\"_2\"/>")
                                         .insert(DECLARATION.size(), "<?" + std::string(length, 'p') + "?>");
        long n = 0;
        for (bool completed = false; !completed;) {
            const std::optional<Result> result = checkWithFailure(document, ++n);
            completed = endOfAllocationFailure();
            ASSERT_TRUE(!result || result->findings.empty())
                << "allocation " << n << " of the document with " << length << ": " << result->findings[0];
        }
    }
}

TEST(CheckOutOfMemory, LeavesNoLeak) {
    const std::string document = makeDocument();
    check(document);
    long n = 0;
    for (bool completed = false; !completed;) {
        const long before = blocksInUse();
        checkWithFailure(document, ++n).reset();
        const long leaked = blocksInUse() - before;
        completed = endOfAllocationFailure();
        ASSERT_EQ(leaked, 0) << "allocation " << n;
    }
}

}  // namespace
