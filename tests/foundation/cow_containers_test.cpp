#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"

namespace {

using StrMap = cow_Map<cow_String, int>;

std::vector<std::string> TreeOrder(const StrMap& m) {
    std::vector<std::string> keys;
    cow_ConstMapIterator<cow_String, int> it(m);
    for (it.First(); !it.IsDone(); it.Next()) keys.push_back(it.CurrentKey().c_str());
    return keys;
}

StrMap Build(std::initializer_list<const char*> keys) {
    StrMap m;
    int v = 0;
    for (const char* k : keys) m.Insert(cow_String(k), v++);
    return m;
}

template <class L>
std::vector<int> Ints(const L& l) {
    std::vector<int> v;
    for (int i = 0; i < l.Count(); ++i) v.push_back(l.ConstGet(i));
    return v;
}

}  // namespace

TEST(Map, TreeOrderFollowsBitsAndInsertionHistory) {
    // The first key is the root; pre-order starts there.
    EXPECT_EQ(TreeOrder(Build({"B", "A"})), (std::vector<std::string>{"B", "A"}));
    EXPECT_EQ(TreeOrder(Build({"A", "B"})), (std::vector<std::string>{"A", "B"}));
    // 'A' and 'C' have the low bit set (right), 'B' not (left).
    EXPECT_EQ(TreeOrder(Build({"C", "A", "B"})), (std::vector<std::string>{"C", "B", "A"}));
    EXPECT_EQ(TreeOrder(Build({"A", "C", "B"})), (std::vector<std::string>{"A", "B", "C"}));
    // Level 1 reads the last character: "AD" goes left of "AC" ('D' is even).
    EXPECT_EQ(TreeOrder(Build({"AB", "AC", "BB", "AD"})), (std::vector<std::string>{"AB", "BB", "AC", "AD"}));
    // Beyond the key's length the bit is 0: "A" then "AA"... all go left at level 2+.
    EXPECT_EQ(TreeOrder(Build({"E", "C", "A"})), (std::vector<std::string>{"E", "C", "A"}));
}

TEST(Map, InsertReplaceRemove) {
    StrMap m = Build({"AB", "AC", "BB", "AD"});
    EXPECT_EQ(m.Count(), 4);
    EXPECT_TRUE(m.Insert(cow_String("AC"), 99));  // replace: count unchanged
    EXPECT_EQ(m.Count(), 4);
    EXPECT_EQ(m.ConstGet(cow_String("AC")), 99);

    EXPECT_FALSE(m.Remove(cow_String("ZZ")));
    EXPECT_EQ(m.Count(), 4);
    // Removing an inner node pulls its child up into its place.
    EXPECT_TRUE(m.Remove(cow_String("AC")));
    EXPECT_EQ(m.Count(), 3);
    EXPECT_EQ(TreeOrder(m), (std::vector<std::string>{"AB", "BB", "AD"}));
    EXPECT_FALSE(m.IsMember(cow_String("AC")));
    EXPECT_EQ(m.ConstGet(cow_String("AD")), 3);
    // Removing the root.
    EXPECT_TRUE(m.Remove(cow_String("AB")));
    EXPECT_TRUE(m.IsMember(cow_String("BB")));
    EXPECT_TRUE(m.IsMember(cow_String("AD")));
    EXPECT_EQ(m.Count(), 2);
}

TEST(Map, CopiesAreIsolated) {
    StrMap a = Build({"AB", "AC", "BB", "AD"});
    StrMap b = a;
    b.Get(cow_String("AB")) = 10;  // the root
    b.Get(cow_String("AD")) = 11;  // a deep key
    b.Insert(cow_String("NEW"), 12);
    b.Remove(cow_String("BB"));
    EXPECT_EQ(a.ConstGet(cow_String("AB")), 0);
    EXPECT_EQ(a.ConstGet(cow_String("AD")), 3);
    EXPECT_FALSE(a.IsMember(cow_String("NEW")));
    EXPECT_TRUE(a.IsMember(cow_String("BB")));
    EXPECT_EQ(a.Count(), 4);
    EXPECT_EQ(b.ConstGet(cow_String("AB")), 10);
    EXPECT_EQ(b.ConstGet(cow_String("AD")), 11);
    EXPECT_EQ(b.Count(), 4);
}

TEST(Map, IteratorsWorkOnSnapshots) {
    StrMap m = Build({"b", "a", "c"});
    cow_ConstMapSortedIt<cow_String, int> it(m);
    it.First();
    m.Insert(cow_String("0"), 5);
    m.Remove(cow_String("c"));
    std::vector<std::string> seen;
    for (; !it.IsDone(); it.Next()) seen.push_back(it.CurrentKey().c_str());
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "b", "c"}));

    cow_ConstMapSortedIt<cow_String, int> desc(m, &cow_ConstMapSortedIt<cow_String, int>::DescSortCmp);
    seen.clear();
    for (desc.First(); !desc.IsDone(); desc.Next()) seen.push_back(desc.CurrentKey().c_str());
    EXPECT_EQ(seen, (std::vector<std::string>{"b", "a", "0"}));

    StrMap empty;
    cow_ConstMapSortedIt<cow_String, int> e(empty);
    e.First();
    EXPECT_TRUE(e.IsDone());
    cow_ConstMapIterator<cow_String, int> e2(empty);
    e2.First();
    EXPECT_TRUE(e2.IsDone());
}

TEST(Map, IntegerKeysAndManyEntries) {
    cow_Map<int, int> m;
    for (int i = 0; i < 5000; ++i) m.Insert(i * 7919 % 100003, i);
    EXPECT_EQ(m.Count(), 5000);
    for (int i = 0; i < 5000; i += 37) EXPECT_EQ(m.ConstGet(i * 7919 % 100003), i);
    for (int i = 0; i < 5000; i += 2) EXPECT_TRUE(m.Remove(i * 7919 % 100003));
    EXPECT_EQ(m.Count(), 2500);
    for (int i = 1; i < 5000; i += 2) ASSERT_TRUE(m.IsMember(i * 7919 % 100003)) << i;
    cow_ConstMapIterator<int, int> it(m);
    int n = 0;
    for (it.First(); !it.IsDone(); it.Next()) ++n;
    EXPECT_EQ(n, 2500);
}

// A batch insert must give the very tree that one Insert after another gives: the
// tree order reaches printed decks. The key families share long runs of bits (names
// with one digit changed, keys of even characters only, which have no set bit at all)
// and so build the deep chains that the batch skips; a map that already holds keys
// and a copy that shares its nodes take the batch as well.
TEST(Map, BatchInsertBuildsTheSameTreeAsInsert) {
    std::vector<std::vector<std::string>> families(4);
    for (int i = 0; i < 3000; ++i) families[0].push_back("P" + std::to_string(i));
    for (int i = 0; i < 500; ++i) families[1].push_back(std::string(static_cast<size_t>(i % 7), 'B') + std::to_string(i * 2));
    for (int i = 0; i < 300; ++i) families[2].push_back(std::string(static_cast<size_t>(i + 1), 'B'));
    for (int i = 0; i < 2000; ++i) families[3].push_back("K" + std::to_string(i * 7919 % 100003) + "Z");
    for (size_t f = 0; f < families.size(); ++f) {
        SCOPED_TRACE(f);
        const std::vector<std::string>& all = families[f];
        const size_t half = all.size() / 2;
        StrMap one, batch;
        std::vector<cow_String> keys;
        std::vector<int> values;
        for (size_t i = 0; i < all.size(); ++i) {
            one.Insert(cow_String(all[i].c_str()), static_cast<int>(i));
            if (i < half) {
                batch.Insert(cow_String(all[i].c_str()), static_cast<int>(i));
                continue;
            }
            keys.push_back(cow_String(all[i].c_str()));
            values.push_back(static_cast<int>(i));
        }
        const StrMap before = batch;
        batch.InsertNew(keys.data(), values.data(), static_cast<int>(keys.size()));
        EXPECT_EQ(TreeOrder(batch), TreeOrder(one));
        EXPECT_EQ(batch.Count(), static_cast<int>(all.size()));
        EXPECT_EQ(batch.ConstGet(keys.back()), values.back());
        EXPECT_EQ(before.Count(), static_cast<int>(half));
        EXPECT_FALSE(before.IsMember(keys.front()));
    }
    cow_Map<int, int> ints, intsBatch;
    std::vector<int> intKeys;
    for (int i = 0; i < 3000; ++i) {
        intKeys.push_back(i * 1024);
        ints.Insert(i * 1024, i);
    }
    intsBatch.InsertNew(intKeys.data(), intKeys.data(), static_cast<int>(intKeys.size()));
    cow_ConstMapIterator<int, int> a(ints), b(intsBatch);
    for (a.First(), b.First(); !a.IsDone(); a.Next(), b.Next()) {
        ASSERT_FALSE(b.IsDone());
        EXPECT_EQ(a.CurrentKey(), b.CurrentKey());
    }
    EXPECT_TRUE(b.IsDone());
}

TEST(Handles, CopyOnWriteAndOwnership) {
    cow_COW<std::string> a(new std::string("x"));
    cow_COW<std::string> b = a;
    EXPECT_EQ(a.ShareCount(), 2);
    b.Get() += "y";
    EXPECT_EQ(a.ConstGet(), "x");
    EXPECT_EQ(b.ConstGet(), "xy");
    EXPECT_EQ(a.ShareCount(), 1);
    cow_COW<std::string>& alias = b;
    b = alias;  // self-assignment
    EXPECT_EQ(b.ConstGet(), "xy");
    cow_COW<std::string> c = a;
    c = new std::string("z");  // a shared handle drops one share and owns the new object
    EXPECT_EQ(a.ConstGet(), "x");
    EXPECT_EQ(c.ConstGet(), "z");
    EXPECT_EQ(a.ShareCount(), 1);

    cow_ArrayCOW<std::string> none;
    EXPECT_FALSE(none.HasValue());
    none = new std::string("now");
    EXPECT_TRUE(none.HasValue());

    struct Shape {
        virtual ~Shape() = default;
        virtual Shape* Copy() const = 0;
        virtual int Kind() const = 0;
    };
    struct Square : Shape {
        Shape* Copy() const override { return new Square(*this); }
        int Kind() const override { return 4; }
    };
    cow_COW<Shape, cow_Virtual<Shape>> s(new Square);
    cow_COW<Shape, cow_Virtual<Shape>> t = s;
    EXPECT_EQ(t.Get().Kind(), 4);  // cloned through the virtual copy
    EXPECT_NE(s.Pointer(), t.Pointer());
}

TEST(Lists, CopiesAreIsolatedAcrossBlocks) {
    cow_1DArrayList<int> a;
    for (int i = 0; i < 100; ++i) a.Append(i);
    cow_1DArrayList<int> b = a;
    b.Get(50) = -1;
    b.Append(100);
    b.Remove(0);
    EXPECT_EQ(a.Count(), 100);
    EXPECT_EQ(a.ConstGet(50), 50);
    EXPECT_EQ(a.ConstGet(0), 0);
    EXPECT_EQ(b.Count(), 100);
    EXPECT_EQ(b.ConstGet(49), -1);
    EXPECT_EQ(b.ConstGet(99), 100);

    cow_1DArrayList<int> sized(1000);
    for (int i = 0; i < 1000; ++i) sized.Append(i);
    EXPECT_EQ(sized.ConstGet(999), 999);
    EXPECT_EQ(sized.Count(), 1000);
}

TEST(Lists, ArrayListOperations) {
    cow_1DArrayList<int> l;
    for (int i = 0; i < 5; ++i) l.Append(i * 10);
    EXPECT_TRUE(l.Insert(2, 15));
    EXPECT_TRUE(l.Insert(l.Count(), 99));
    EXPECT_EQ(Ints(l), (std::vector<int>{0, 10, 15, 20, 30, 40, 99}));
    EXPECT_EQ(l.Pop(), 99);
    EXPECT_TRUE(l.RemoveMember(15));
    EXPECT_FALSE(l.RemoveMember(15));
    EXPECT_FALSE(l.AppendUnlessMember(40));
    EXPECT_EQ(Ints(l.Slice(2, 100)), (std::vector<int>{20, 30, 40}));
    EXPECT_EQ(Ints(l.Slice(1, 3)), (std::vector<int>{10, 20}));
    int n = 0;
    int* c = l.GetCArray(n);
    EXPECT_EQ(n, 5);
    EXPECT_EQ(c[4], 40);
    delete[] c;
    l.ClearAll();
    EXPECT_EQ(l.Count(), 0);
    l.Append(7);
    EXPECT_EQ(Ints(l), (std::vector<int>{7}));
}

TEST(Lists, RemovedSlotsReleaseWhatTheyHeld) {
    cow_COW<int> shared(new int(1));
    cow_1DArrayList<cow_COW<int>> l;
    l.Append(shared);
    l.Append(shared);
    EXPECT_EQ(shared.ShareCount(), 3);
    l.Remove(0);
    l.Pop();
    EXPECT_EQ(shared.ShareCount(), 1);
}

TEST(Lists, PrependAndQueueOperations) {
    cow_List<int> l;
    // Far more than one full block table of 16 blocks of 16 elements.
    for (int i = 0; i < 600; ++i) l.Prepend(i);
    ASSERT_EQ(l.Count(), 600);
    for (int i = 0; i < 600; ++i) ASSERT_EQ(l.ConstGet(i), 599 - i);
    l.Append(-1);
    EXPECT_EQ(l.ConstGet(600), -1);

    cow_List<int> q;
    for (int i = 0; i < 100; ++i) q.Append(i);
    for (int i = 0; i < 90; ++i) q.RemoveFirst();
    EXPECT_EQ(Ints(q), (std::vector<int>{90, 91, 92, 93, 94, 95, 96, 97, 98, 99}));
    q.RemoveLast().InsertAfter(0, 42).RemoveIndex(1);
    EXPECT_EQ(q.Count(), 9);
    q.InsertAfter(q.Count() - 1, 5);
    q.Sort();
    EXPECT_EQ(Ints(q), (std::vector<int>{5, 90, 91, 92, 93, 94, 95, 96, 97, 98}));
    EXPECT_TRUE(q.IsMember(97));
    q.Clear();
    EXPECT_TRUE(q.IsEmpty());
}

TEST(Btree, KeyOrderAndUniqueness) {
    cow_Btree<cow_String, int> t;
    EXPECT_TRUE(t.InsertUnlessMember(cow_String("node"), 4));
    EXPECT_TRUE(t.InsertUnlessMember(cow_String("element"), 7));
    EXPECT_FALSE(t.InsertUnlessMember(cow_String("node"), 5));
    EXPECT_EQ(t.ConstGet(cow_String("node")), 4);
    cow_BtreeIterator<cow_String, int> it(t);
    std::vector<std::string> keys;
    for (it.First(); !it.IsDone(); it.Next()) keys.push_back(it.CurrentKey().c_str());
    EXPECT_EQ(keys, (std::vector<std::string>{"element", "node"}));
}

namespace {

// A record of 64 bytes that counts how many of it were ever made.
struct Counted {
    static int made;
    Counted() { ++made; }
    Counted(const Counted&) { ++made; }
    Counted& operator=(const Counted&) = default;
    char bytes[64] = {};
};
int Counted::made = 0;

}  // namespace

// Room for many class-typed elements must not make them all at the first append: a
// block is made whole, so its blocks are kept to a few kilobytes. Plain values keep
// their large blocks, and both kinds hold what they are given.
TEST(Lists, RoomForManyRecordsMakesSmallBlocks) {
    Counted::made = 0;
    cow_1DArrayList<Counted> records(16384);
    records.Append(Counted());
    EXPECT_LE(Counted::made, 4096 / 64 + 2);
    for (int i = 1; i < 20000; ++i) records.Append(Counted());
    EXPECT_EQ(records.Count(), 20000);

    cow_1DArrayList<int> ints(16384);
    for (int i = 0; i < 20000; ++i) ints.Append(i);
    EXPECT_EQ(ints.Count(), 20000);
    EXPECT_EQ(ints.ConstGet(19999), 19999);
    EXPECT_EQ(ints.ConstGet(8191), 8191);
}
