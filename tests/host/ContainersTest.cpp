#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ZORStd.h"

namespace {

ZORVector<int> makeVector(std::initializer_list<int> values) {
    ZORVector<int> vector;
    for (const int value : values) {
        vector.append(value);
    }
    return vector;
}

std::vector<int> contents(const ZORVector<int>& vector) {
    return {vector.begin(), vector.end()};
}

TEST(Vector, IsOnePointerAndEmptyWithoutMemory) {
    static_assert(sizeof(ZORVector<void*>) == sizeof(void*));
    const ZORVector<int> empty;
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(empty.size(), 0U);
    EXPECT_EQ(empty.begin(), empty.end());
    EXPECT_FALSE(empty.contains(0));
    EXPECT_EQ(empty.indexOf(0), 0U);
}

TEST(Vector, KeepsTheOrderWhileItGrows) {
    ZORVector<int> vector;
    for (int i = 0; i < 1000; ++i) {
        vector.append(i);
    }
    ASSERT_EQ(vector.size(), 1000U);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(vector[static_cast<std::size_t>(i)], i);
    }
    EXPECT_EQ(vector.last(), 999);
}

TEST(Vector, DoesNotMoveWithinWhatWasReserved) {
    ZORVector<int> vector = makeVector({1, 2});
    vector.reserveMore(3);
    const int* elements = vector.begin();
    for (int i = 0; i < 3; ++i) {
        vector.append(i);
    }
    EXPECT_EQ(vector.begin(), elements);
    EXPECT_EQ(contents(vector), (std::vector<int>{1, 2, 0, 1, 2}));
}

TEST(Vector, MovesSeldomWhenALittleIsReservedAgainAndAgain) {
    ZORVector<int> vector;
    int moves = 0;
    const int* elements = nullptr;
    for (int i = 0; i < 1000; ++i) {
        vector.reserveMore(1);
        moves += vector.begin() == elements ? 0 : 1;
        elements = vector.begin();
        vector.append(i);
    }
    EXPECT_LT(moves, 25);
}

TEST(Vector, CopiesAreTheirOwn) {
    const ZORVector<int> one = makeVector({1, 2});
    ZORVector<int> copy(one);
    copy.append(3);
    EXPECT_EQ(contents(one), (std::vector<int>{1, 2}));
    EXPECT_EQ(contents(copy), (std::vector<int>{1, 2, 3}));
    copy = one;
    EXPECT_EQ(contents(copy), (std::vector<int>{1, 2}));
    const ZORVector<int>& same = copy;
    copy = same;
    EXPECT_EQ(contents(copy), (std::vector<int>{1, 2}));
    const ZORVector<int> taken(std::move(copy));
    EXPECT_EQ(contents(taken), (std::vector<int>{1, 2}));
}

TEST(Vector, RemovesTheLastOfEqualElements) {
    ZORVector<int> vector = makeVector({7, 1, 7, 2});
    EXPECT_TRUE(vector.removeLast(7));
    EXPECT_EQ(contents(vector), (std::vector<int>{7, 1, 2}));
    EXPECT_FALSE(vector.removeLast(9));
    vector.removeAt(0);
    EXPECT_EQ(contents(vector), (std::vector<int>{1, 2}));
    vector.removeLast();
    EXPECT_EQ(contents(vector), (std::vector<int>{1}));
    vector.clear();
    EXPECT_TRUE(vector.isEmpty());
}

TEST(Vector, AppendsAnotherAndFindsTheFirstOfEqualElements) {
    ZORVector<int> vector = makeVector({1, 2});
    vector.appendAll(makeVector({2, 3}));
    vector.appendAll(ZORVector<int>());
    EXPECT_EQ(contents(vector), (std::vector<int>{1, 2, 2, 3}));
    EXPECT_EQ(vector.indexOf(2), 1U);
    EXPECT_EQ(vector.indexOf(4), 4U);
    EXPECT_TRUE(vector.contains(3));
    vector[0] = 9;
    EXPECT_EQ(vector[0], 9);
}

/// A record with a number for a key. Its hash is chosen by the test.
struct Record {
    int key;
    int label;
};

class RecordTable : public ZORHashtable {
  public:
    explicit RecordTable(std::size_t initialSize, std::uint32_t hashes = UINT32_MAX)
        : ZORHashtable(initialSize), hashes_(hashes) {}
    int labelOf(int key) const {
        const auto* record = static_cast<const Record*>(find(&key));
        return record == nullptr ? -1 : record->label;
    }
    mutable int comparisons = 0;

  protected:
    int compare2Object(const void* a, const void* b) const override { return compare2Key(a, &keyOf(b)); }
    int compare2Key(const void* object, const void* key) const override {
        ++comparisons;
        return keyOf(object) - *static_cast<const int*>(key);
    }
    std::uint32_t hashObject(const void* object) const override { return hashKey(&keyOf(object)); }
    std::uint32_t hashKey(const void* key) const override {
        return static_cast<std::uint32_t>(*static_cast<const int*>(key)) % hashes_;
    }

  private:
    static const int& keyOf(const void* object) { return static_cast<const Record*>(object)->key; }

    std::uint32_t hashes_;
};

TEST(Hashtable, FindsTheOldestOfEqualMembersBeforeAndAfterItGrows) {
    RecordTable table(1);
    Record records[100];
    for (int i = 0; i < 100; ++i) {
        records[i] = {i % 10, i};
        table.add(&records[i]);
        EXPECT_EQ(table.labelOf(i % 10), i % 10);
    }
    EXPECT_EQ(table.size(), 100U);
    EXPECT_EQ(table.labelOf(10), -1);
}

TEST(Hashtable, IteratesInOrderOfInsertion) {
    RecordTable table(4);
    Record records[] = {{5, 0}, {1, 1}, {9, 2}, {1, 3}, {0, 4}};
    for (Record& record : records) {
        table.add(&record);
    }
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i], &records[i]);
    }
}

TEST(Hashtable, TellsApartMembersOfOneHash) {
    RecordTable table(2, 1);
    Record records[] = {{5, 0}, {1, 1}, {9, 2}};
    for (Record& record : records) {
        table.add(&record);
    }
    EXPECT_EQ(table.labelOf(1), 1);
    EXPECT_EQ(table.labelOf(9), 2);
    EXPECT_EQ(table.labelOf(7), -1);
}

TEST(Hashtable, AddsManyEqualMembersWithoutLookingAtThem) {
    RecordTable table(1);
    std::vector<Record> records(100000, Record{7, 0});
    for (Record& record : records) {
        table.add(&record);
    }
    EXPECT_EQ(table.comparisons, 0);
    records[0].label = 1;
    EXPECT_EQ(table.labelOf(7), 1);
    EXPECT_EQ(table.comparisons, 1) << "the oldest one is met first";
}

TEST(Hashtable, WorksAgainAfterItWasCleared) {
    RecordTable table(4);
    Record record{3, 30};
    table.add(&record);
    table.clear();
    EXPECT_TRUE(table.isEmpty());
    EXPECT_EQ(table.labelOf(3), -1);
    table.add(&record);
    EXPECT_EQ(table.labelOf(3), 30);
}

TEST(Hashtable, OfSizeZeroTakesMembers) {
    RecordTable table(0);
    Record record{0, 1};
    EXPECT_EQ(table.labelOf(0), -1);
    table.add(&record);
    EXPECT_EQ(table.labelOf(0), 1);
}

TEST(StringHashtable, InsertsIfAbsentWithLetterCase) {
    ZORStringHashtable table(2);
    ZORString a("A");
    ZORString equal("A");
    ZORString other("a");
    EXPECT_TRUE(table.add(&a));
    EXPECT_FALSE(table.add(&equal));
    EXPECT_TRUE(table.add(&other));
    EXPECT_EQ(table.size(), 2U);
    EXPECT_EQ(table.find(ZORString("A")), &a);
    EXPECT_EQ(table.find(ZORString("b")), nullptr);
}

TEST(StringHashtable, IteratesInOrderOfInsertionAndGrows) {
    ZORStringHashtable table(0);
    std::vector<std::unique_ptr<ZORString>> texts;
    for (int i = 0; i < 5000; ++i) {
        texts.push_back(std::make_unique<ZORString>(i % 4000));
        EXPECT_EQ(table.add(texts.back().get()), i < 4000);
    }
    ASSERT_EQ(table.size(), 4000U);
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i], texts[i].get());
    }
    table.clear();
    EXPECT_TRUE(table.isEmpty());
}

}  // namespace
