// Identifiers of objects, the data that carries them, and unique names.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;

struct NamedClass : ZORClass {
    explicit NamedClass(const char* name = "") { setName(name); }
};

TEST(Identifiers, CountFromOne) {
    TestBridge bridge(nullptr);
    EXPECT_EQ(bridge.getUniqueID(), 1);
    EXPECT_EQ(bridge.getUniqueID(), 2);
    EXPECT_EQ(bridge.getUniqueID(), 3);
}

TEST(Identifiers, AreAllocatedOnFirstUseAndKept) {
    TestBridge bridge(nullptr);
    NamedClass a;
    NamedClass b;
    EXPECT_EQ(bridge.getXMLID(&a, ERD), 1);
    EXPECT_EQ(bridge.getXMLID(&b, ERD), 2);
    EXPECT_EQ(bridge.getXMLID(&a, ERD), 1);
}

TEST(Identifiers, DifferFromAreaToArea) {
    TestBridge bridge(nullptr);
    NamedClass a;
    EXPECT_EQ(bridge.getXMLID(&a, ERD), 1);
    EXPECT_EQ(bridge.getXMLID(&a, DBM), 2);
    EXPECT_EQ(bridge.getXMLID(&a, UML), 3);
    EXPECT_EQ(bridge.getXMLID(&a, ERD), 1);
}

TEST(Identifiers, MayBeSetInPlaceOfEarlierOnes) {
    TestBridge bridge(nullptr);
    NamedClass a;
    bridge.setXMLID(&a, DBM, 40);
    EXPECT_EQ(bridge.getXMLID(&a, DBM), 40);
    bridge.setXMLID(&a, DBM, 41);
    EXPECT_EQ(bridge.getXMLID(&a, DBM), 41);
    EXPECT_EQ(bridge.getUniqueID(), 1);
}

TEST(UserData, IsFiveZeroFilledSlotsHungOnTheObjectOnFirstUse) {
    TestBridge bridge(nullptr);
    NamedClass a;
    EXPECT_EQ(a.getGeneralPointer(), nullptr);
    int* block = bridge.getObjectUserData(&a);
    EXPECT_EQ(std::vector<int>(block, block + 5), std::vector<int>(5, 0));
    EXPECT_EQ(a.getGeneralPointer(), block);
    EXPECT_EQ(bridge.getObjectUserData(&a), block);
}

TEST(UserData, KeepsTheMarksOfTheViewsApart) {
    TestBridge bridge(nullptr);
    NamedClass a;
    bridge.getDBMMark(&a) = MARK_NOT_EXPORTABLE;
    EXPECT_EQ(bridge.getERDMark(&a), MARK_UNDECIDED);
    bridge.getERDMark(&a) = MARK_EXPORTABLE;
    EXPECT_EQ(bridge.getDBMMark(&a), MARK_NOT_EXPORTABLE);
    bridge.getXMLID(&a, DBM);
    EXPECT_EQ(bridge.getERDMark(&a), MARK_EXPORTABLE);
}

TEST(UserData, IsReleasedOnceAndOnlyWhereThereIsSome) {
    TestBridge bridge(nullptr);
    NamedClass a;
    NamedClass b;
    bridge.getObjectUserData(&a);
    bridge.releaseUserData(&b);
    EXPECT_EQ(bridge.userData_.inUse(), 1U);
    bridge.releaseUserData(&a);
    bridge.releaseUserData(&a);
    EXPECT_EQ(bridge.userData_.inUse(), 0U);
    EXPECT_EQ(a.getGeneralPointer(), nullptr);
}

TEST(UserData, OfManyObjectsIsFreshAndDistinct) {
    TestBridge bridge(nullptr);
    std::vector<NamedClass> objects(10000);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(bridge.getXMLID(&objects[i], DBM), static_cast<int>(i + 1));
    }
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(bridge.getXMLID(&objects[i], DBM), static_cast<int>(i + 1));
    }
}

class UniqueName : public ::testing::Test {
  protected:
    ~UniqueName() override { bridge.cleanup(names); }
    /// What the object of this name is to be called; "same" for its own name.
    std::string ask(const char* name, bool enabled = true) {
        const NamedClass object(name);
        const ZORString* unique = bridge.getUniqueName(names, enabled, "Entity", &object);
        return unique == nullptr ? "same" : unique->c_str();
    }

    TestBridge bridge{nullptr};
    ZORStringHashtable names{4};
};

TEST_F(UniqueName, OfThreeObjectsOfOneNameCountsUpAndWarnsTwice) {
    EXPECT_EQ(ask("A"), "same");
    EXPECT_EQ(ask("A"), "A/1");
    EXPECT_EQ(ask("A"), "A/2");
    EXPECT_EQ(bridge.log().lines(),
              "[QLT_SQMDC_W0006] Renaming the Entity 'A' to 'A/1' to avoid a name clash\n"
              "[QLT_SQMDC_W0006] Renaming the Entity 'A' to 'A/2' to avoid a name clash\n");
    EXPECT_EQ(bridge.log().events()[0].getSeverity(), ZORSeverity::WARNING);
}

TEST_F(UniqueName, OfAnObjectNamedLikeAnEarlierReplacementClashesWithIt) {
    EXPECT_EQ(ask("A"), "same");
    EXPECT_EQ(ask("A"), "A/1");
    EXPECT_EQ(ask("A/1"), "A/1/1");
}

TEST_F(UniqueName, PassesOverReplacementsThatAreTaken) {
    EXPECT_EQ(ask("A/1"), "same");
    EXPECT_EQ(ask("A"), "same");
    EXPECT_EQ(ask("A"), "A/2");
}

TEST_F(UniqueName, GoesOnCountingForEachNameAndPassesOverWhatWasTakenMeanwhile) {
    for (const char* name : {"A", "B", "A", "B", "A/2", "B/3"}) {
        ask(name);
    }
    EXPECT_EQ(ask("A"), "A/3");
    EXPECT_EQ(ask("B"), "B/2");
    EXPECT_EQ(ask("B"), "B/4");
}

TEST_F(UniqueName, TakesLetterCaseIntoAccount) {
    EXPECT_EQ(ask("a"), "same");
    EXPECT_EQ(ask("A"), "same");
}

TEST_F(UniqueName, OfObjectsWithoutANameIsMadeLikeAnyOther) {
    EXPECT_EQ(ask(""), "same");
    EXPECT_EQ(ask(""), "/1");
}

TEST_F(UniqueName, IsNotLookedForWhenItIsNotWanted) {
    EXPECT_EQ(ask("A", false), "same");
    EXPECT_EQ(ask("A", false), "same");
    EXPECT_TRUE(names.isEmpty());
    EXPECT_EQ(bridge.log().lines(), "");
    EXPECT_EQ(ask("A"), "same");
}

TEST_F(UniqueName, StartsAfreshWithACleanedTable) {
    EXPECT_EQ(ask("A"), "same");
    bridge.cleanup(names);
    EXPECT_EQ(ask("A"), "same");
}

}  // namespace
