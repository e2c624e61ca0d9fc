// Loading the bridge while memory runs out: no initialiser of the library's may need any, for none could
// tell.
#include <gtest/gtest.h>

#include "FailingAllocator.h"
#include "ZORBridgeManager.h"

namespace {

using namespace support;

enum class Outcome { LOADED, REPORTED };

/// Loads the bridge and lists its options with the n-th allocation failing; 0 for none.
Outcome loadWithFailure(long n) {
    failAllocation(n);
    try {
        const ZORBridge bridge = ZORBridgeManager().load(BRIDGE);
        ZOROptionList options;
        bridge.getOptionList(options);
        return options.getOptions().isEmpty() ? Outcome::REPORTED : Outcome::LOADED;
    } catch (const ZORException& error) {
        return error.getText().isEmpty() ? Outcome::LOADED : Outcome::REPORTED;
    } catch (const std::bad_alloc&) {
        return Outcome::REPORTED;
    }
}

TEST(Loading, WithoutTheMemoryForSomethingIsReported) {
    ASSERT_EQ(loadWithFailure(0), Outcome::LOADED);
    long n = 0;
    long reports = 0;
    for (bool completed = false; !completed;) {
        const Outcome outcome = loadWithFailure(++n);
        completed = endOfAllocationFailure();
        reports += outcome == Outcome::REPORTED ? 1 : 0;
        ASSERT_TRUE(!completed || outcome == Outcome::LOADED) << "allocation " << n;
    }
    EXPECT_GT(n, 20) << "the test reaches what loading allocates";
    EXPECT_GE(reports, n * 9 / 10) << "the loader itself does without a block or two";
}

TEST(Loading, LeavesNothingBehind) {
    loadWithFailure(0);
    loadWithFailure(0);  // what the loader makes once and keeps is made
    const long before = blocksInUse();
    loadWithFailure(0);
    EXPECT_EQ(blocksInUse(), before);
}

}  // namespace
