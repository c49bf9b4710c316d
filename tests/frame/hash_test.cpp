// Hash tables with the shared entry pool, and bucket trees.
#include "xwktest.h"

namespace {

using xwktest::V;
using xwktest::W;
using Values = std::vector<intptr_t>;

// A table of the size with the (key, value) entries added in order.
XwkHashTable *Table(int size, std::initializer_list<std::pair<int, int>> entries)
{
    XwkHashTable *table = XwkAllocHashTable(size, nullptr, nullptr);
    for (auto [key, value] : entries)
        XwkAddHashEntry(table, W(key), W(value));
    return table;
}

// The value each key finds first, 0 for none.
Values Finds(XwkHashTable *table, std::initializer_list<intptr_t> keys)
{
    Values out;
    for (intptr_t key : keys)
        out.push_back(V(XwkGetHashEntryIterate(table, W(key), nullptr)));
    return out;
}

TEST(HashTable, SizesFollowTheSeries)
{
    const std::pair<int, unsigned> cases[] = {
        {0, 17},     {-4, 17},   {17, 17},     {18, 31},     {31, 31},     {32, 67},
        {100, 131},  {200, 257}, {300, 521},   {1000, 1031}, {2000, 2053}, {4000, 4099},
        {8000, 8209}, {8209, 8209}, {8210, 8209}, {100000, 8209},
    };
    for (auto [wish, size] : cases) {
        XwkHashTable *table = XwkAllocHashTable(wish, nullptr, nullptr);
        EXPECT_EQ(XwkHashTableSize(table), size) << wish;
        EXPECT_EQ(XwkHashTableCount(table), 0u);
        XwkFreeHashTable(table);
    }
    EXPECT_EQ(XwkHashTableSize(nullptr), 0u);
    EXPECT_EQ(XwkHashTableCount(nullptr), 0u);
    XwkAddHashEntry(nullptr, W(1), W(1));
    XtPointer it = W(0);
    EXPECT_EQ(XwkGetHashEntryIterate(nullptr, W(1), &it), nullptr);
    EXPECT_EQ(XwkRemoveHashEntry(nullptr, W(1)), nullptr);
    XwkFreeHashTable(nullptr);
}

TEST(HashTable, EqualKeysGiveTheNewestFirst)
{
    XwkHashTable *table = Table(10, {{5, 50}, {22, 220}, {5, 51}, {5, 52}});  // 22: 5's bucket
    EXPECT_EQ(XwkHashTableCount(table), 4u);
    EXPECT_EQ(Finds(table, {5, 22, 6}), (Values{52, 220, 0}));

    XtPointer it = nullptr;
    Values values;
    while (XtPointer v = XwkGetHashEntryIterate(table, W(5), &it)) {
        values.push_back(V(v));
        EXPECT_NE(it, nullptr);
    }
    EXPECT_EQ(values, (Values{52, 51, 50}));
    EXPECT_EQ(it, nullptr);  // cleared at the end: the next call starts over
    EXPECT_EQ(V(XwkGetHashEntryIterate(table, W(5), &it)), 52);

    // Removal takes only the first match.
    EXPECT_EQ(XwkRemoveHashEntry(table, W(5)), W(5));
    EXPECT_EQ(Finds(table, {5}), Values{51});
    EXPECT_EQ(XwkHashTableCount(table), 3u);

    // A value of 0 looks like an absent key.
    XwkAddHashEntry(table, W(9), W(0));
    it = nullptr;
    EXPECT_EQ(XwkGetHashEntryIterate(table, W(9), &it), nullptr);
    EXPECT_NE(it, nullptr);
    XwkFreeHashTable(table);
}

std::vector<std::pair<XtPointer, XtPointer>> equalCalls;

Boolean StringEqual(XtPointer stored, XtPointer key)
{
    equalCalls.emplace_back(stored, key);
    return strcmp(static_cast<char *>(stored), static_cast<char *>(key)) == 0;
}

unsigned int StringHash(XtPointer key)
{
    unsigned h = 0;
    for (const char *s = static_cast<char *>(key); *s; s++)
        h = h * 31 + static_cast<unsigned char>(*s);
    return h;
}

TEST(HashTable, CustomProceduresAndRemovalGiveTheStoredKey)
{
    XwkHashTable *table = XwkAllocHashTable(0, StringEqual, StringHash);
    char alpha[] = "alpha", beta[] = "beta";
    XwkAddHashEntry(table, alpha, W(1));
    XwkAddHashEntry(table, beta, W(2));
    EXPECT_EQ(table->buckets[StringHash(alpha) % 17]->hash, StringHash(alpha));

    char probe[] = "alpha";
    equalCalls.clear();
    EXPECT_EQ(V(XwkGetHashEntryIterate(table, probe, nullptr)), 1);
    ASSERT_FALSE(equalCalls.empty());
    EXPECT_EQ(equalCalls.back().first, static_cast<XtPointer>(alpha));  // stored key first
    EXPECT_EQ(equalCalls.back().second, static_cast<XtPointer>(probe));

    EXPECT_EQ(XwkRemoveHashEntry(table, probe), static_cast<XtPointer>(alpha));
    EXPECT_EQ(XwkHashTableCount(table), 1u);
    EXPECT_EQ(XwkGetHashEntryIterate(table, probe, nullptr), nullptr);
    EXPECT_EQ(XwkRemoveHashEntry(table, probe), nullptr);
    EXPECT_EQ(XwkHashTableCount(table), 1u);
    XwkFreeHashTable(table);
}

TEST(HashTable, RemoveAtTheIterator)
{
    XwkHashTable *table = Table(17, {{7, 1}, {7, 2}, {7, 3}, {7, 4}, {24, 99}});  // one chain

    // Remove the even values while walking the key: the walk goes on.
    XtPointer it = nullptr;
    Values seen;
    while (XtPointer v = XwkGetHashEntryIterate(table, W(7), &it)) {
        seen.push_back(V(v));
        if (V(v) % 2 == 0) {
            EXPECT_EQ(XwkRemoveHashIterator(table, &it), W(7));
        }
    }
    EXPECT_EQ(seen, (Values{4, 3, 2, 1}));
    EXPECT_EQ(XwkHashTableCount(table), 3u);
    seen.clear();
    while (XtPointer v = XwkGetHashEntryIterate(table, W(7), &it))
        seen.push_back(V(v));
    EXPECT_EQ(seen, (Values{3, 1}));
    EXPECT_EQ(Finds(table, {24}), Values{99});

    // An entry of another table is not in this one's chain.
    XwkHashTable *other = Table(17, {{7, 5}});
    it = nullptr;
    XwkGetHashEntryIterate(other, W(7), &it);
    EXPECT_EQ(XwkRemoveHashIterator(table, &it), nullptr);
    EXPECT_EQ(XwkHashTableCount(table), 3u);
    it = nullptr;
    EXPECT_EQ(XwkRemoveHashIterator(table, &it), nullptr);
    EXPECT_EQ(XwkRemoveHashIterator(table, nullptr), nullptr);
    EXPECT_EQ(XwkRemoveHashIterator(nullptr, &it), nullptr);
    XwkFreeHashTable(other);
    XwkFreeHashTable(table);
}

// The iterator word names the entry, which shows where the pool put it.
XtPointer EntryOf(XwkHashTable *table, XtPointer key)
{
    XtPointer it = nullptr;
    XwkGetHashEntryIterate(table, key, &it);
    return it;
}

TEST(HashTable, EntriesComeFromOneSharedPool)
{
    XwkHashTable *a = Table(17, {{1, 10}});
    XwkHashTable *b = XwkAllocHashTable(8209, nullptr, nullptr);
    XtPointer entry = EntryOf(a, W(1));
    XwkRemoveHashEntry(a, W(1));
    // The entry given back is the next one handed out, to any table.
    XwkAddHashEntry(b, W(2), W(20));
    EXPECT_EQ(EntryOf(b, W(2)), entry);

    // Once the free list runs dry, blocks of 256 are handed out in
    // address order.
    const int n = 3000;
    for (int i = 0; i < n; i++)
        XwkAddHashEntry(b, W(1000 + i), W(1));
    int ascending = 0;
    auto prev = reinterpret_cast<uintptr_t>(EntryOf(b, W(1000 + n - 300)));
    for (int i = n - 299; i < n; i++) {
        auto cur = reinterpret_cast<uintptr_t>(EntryOf(b, W(1000 + i)));
        ascending += cur == prev + sizeof(XwkHashEntry);
        prev = cur;
    }
    EXPECT_GE(ascending, 297);

    // Freeing a table gives all its entries back.
    std::set<XtPointer> entries;
    for (int i = 0; i < 5; i++)
        entries.insert(EntryOf(b, W(1000 + i)));
    XwkHashTable *c = XwkAllocHashTable(17, nullptr, nullptr);
    XwkFreeHashTable(b);
    for (int i = 0; i < n + 1; i++)
        XwkAddHashEntry(c, W(i), W(1));
    int reused = 0;
    for (int i = 0; i < n + 1; i++)
        reused += entries.count(EntryOf(c, W(i)));
    EXPECT_EQ(reused, 5);
    XwkFreeHashTable(c);
    XwkFreeHashTable(a);
}

TEST(HashTable, ResizeGrowsOnly)
{
    XwkHashTable *table = Table(100, {{1, 1}});
    for (auto [wish, size] : {std::pair{20, 131u}, {131, 131u}, {132, 257u}}) {
        XwkResizeHashTable(table, wish);
        EXPECT_EQ(XwkHashTableSize(table), size) << wish;
    }
    EXPECT_EQ(Finds(table, {1}), Values{1});
    XwkResizeHashTable(nullptr, 1000);
    XwkFreeHashTable(table);
}

TEST(HashTable, ResizeMovesEntriesToTheTailOfTheirNewChainAndLosesSome)
{
    // In bucket 0 of 17, head first: 17 (moves to 17 of 31), 0 (stays);
    // 48 sits in bucket 14 of 17 and goes to bucket 17 of 31 as well.
    XwkHashTable *table = Table(17, {{0, 100}, {17, 117}, {48, 148}});
    XwkResizeHashTable(table, 31);
    EXPECT_EQ(XwkHashTableSize(table), 31u);
    EXPECT_EQ(Finds(table, {0, 17, 48}), (Values{100, 117, 148}));
    // Bucket 17 holds 17 (moved first, from bucket 0), then 48.
    Values chain;
    for (XwkHashEntry *e = table->buckets[17]; e; e = e->next)
        chain.push_back(V(e->key));
    EXPECT_EQ(chain, (Values{17, 48}));
    EXPECT_EQ(XwkHashTableCount(table), 3u);
    XwkFreeHashTable(table);

    // An entry that stays in front of one that moves is lost. Head first,
    // bucket 0 of 17: 0 (stays), 17 (moves); bucket 1: 1 (stays), 18 (moves),
    // 528 (stays).
    table = Table(17, {{17, 117}, {0, 100}, {528, 135}, {18, 118}, {1, 101}});
    XwkResizeHashTable(table, 18);
    EXPECT_EQ(Finds(table, {0, 17, 1, 18, 528}), (Values{0, 117, 0, 118, 135}));
    EXPECT_EQ(table->buckets[1]->key, W(528));
    EXPECT_EQ(XwkHashTableCount(table), 5u);
    EXPECT_EQ(XwkRemoveHashEntry(table, W(0)), nullptr);
    XwkFreeHashTable(table);
}

Boolean Collect(XtPointer key, XtPointer value, XtPointer closure)
{
    auto *seen = static_cast<Values *>(closure);
    seen->push_back(V(key));
    return V(value) == 7;
}

Boolean RemoveEach(XtPointer key, XtPointer, XtPointer closure)
{
    XwkRemoveHashEntry(static_cast<XwkHashTable *>(closure), key);
    return False;
}

TEST(HashTable, MapWalksBucketsUpwardAndStopsOnTrue)
{
    XwkHashTable *table = Table(17, {{3, 1}, {1, 1}, {18, 1}, {5, 7}, {16, 1}});  // 18 ahead of 1
    Values seen;
    EXPECT_EQ(V(XwkMapHashTable(table, Collect, &seen)), 7);
    EXPECT_EQ(seen, (Values{18, 1, 3, 5}));
    XwkRemoveHashEntry(table, W(5));
    seen.clear();
    EXPECT_EQ(XwkMapHashTable(table, Collect, &seen), nullptr);
    EXPECT_EQ(seen, (Values{18, 1, 3, 16}));

    // The procedure may remove the entry it is given.
    EXPECT_EQ(XwkMapHashTable(table, RemoveEach, table), nullptr);
    EXPECT_EQ(XwkHashTableCount(table), 0u);
    EXPECT_EQ(XwkMapHashTable(nullptr, Collect, &seen), nullptr);
    XwkFreeHashTable(table);
}

// ---------------------------------------------------------------------
// Bucket trees

struct Rec {
    int key;
};

int compareCalls;

int CompareRec(XtPointer a, XtPointer b)
{
    compareCalls++;
    return static_cast<Rec *>(a)->key - static_cast<Rec *>(b)->key;
}

// Every node is pointed at by the pointer its link names; returns the
// number of nodes.
int CheckLinks(HashTreeNode **slot)
{
    HashTreeNode *node = *slot;
    if (!node)
        return 0;
    EXPECT_EQ(node->link, slot);
    return 1 + CheckLinks(&node->left) + CheckLinks(&node->right) + CheckLinks(&node->same);
}

TEST(HashTree, AddAndFindPerBucket)
{
    HashTree *table = HashCreate(CompareRec, nullptr, 4);
    std::vector<Rec> recs(20);
    for (int i = 0; i < 20; i++) {
        recs[i].key = (i * 7) % 20;
        EXPECT_EQ(HashAdd(table, recs[i].key % 4, &recs[i]), 0);
    }
    for (int i = 0; i < 20; i++) {
        Rec probe{recs[i].key};
        EXPECT_EQ(HashFind(table, probe.key % 4, &probe), &recs[i]);
        EXPECT_EQ(HashFind(table, (probe.key + 1) % 4, &probe), nullptr);
    }
    int nodes = 0;
    for (int b = 0; b < 4; b++)
        nodes += CheckLinks(&table->buckets[b]);
    EXPECT_EQ(nodes, 20);
    // The first record of bucket 0 is its root; smaller keys go right.
    HashTreeNode *root = table->buckets[0];
    EXPECT_EQ(root->key, &recs[0]);
    ASSERT_NE(root->left, nullptr);
    EXPECT_GT(static_cast<Rec *>(root->left->key)->key, 0);
    EXPECT_EQ(root->right, nullptr);

    Rec probe{1};
    EXPECT_EQ(HashFind(nullptr, 0, &probe), nullptr);
    EXPECT_EQ(HashAdd(nullptr, 0, &probe), 1);
    EXPECT_EQ(HashFind(table, 4, &probe), nullptr);
    EXPECT_EQ(HashFind(table, -1, &probe), nullptr);
    EXPECT_EQ(HashAdd(table, 4, &probe), 1);
    HashDestroy(table);
    HashDestroy(nullptr);
}

TEST(HashTree, EqualKeysBothStayAndRemoveGoesByPointer)
{
    HashTree *table = HashCreate(CompareRec, nullptr, 1);
    Rec mid{10}, low{5}, high{15}, first{10}, second{10};
    for (Rec *r : {&mid, &low, &high, &first, &second})
        HashAdd(table, 0, r);
    Rec probe{10};
    EXPECT_EQ(HashFind(table, 0, &probe), &second);
    EXPECT_EQ(CheckLinks(&table->buckets[0]), 5);
    // The others stay reachable by descent.
    EXPECT_EQ(HashFind(table, 0, &low), &low);
    EXPECT_EQ(HashFind(table, 0, &high), &high);

    compareCalls = 0;
    EXPECT_EQ(HashRemove(table, 0, &first), 1);  // from the middle of the chain
    EXPECT_EQ(compareCalls, 0);
    EXPECT_EQ(HashFind(table, 0, &probe), &second);
    EXPECT_EQ(HashRemove(table, 0, &second), 1);  // the newest: the next takes over
    EXPECT_EQ(HashFind(table, 0, &probe), &mid);
    EXPECT_EQ(HashFind(table, 0, &low), &low);
    EXPECT_EQ(HashFind(table, 0, &high), &high);
    EXPECT_EQ(CheckLinks(&table->buckets[0]), 3);
    EXPECT_EQ(HashRemove(table, 0, &first), 0);  // gone already
    Rec stranger{10};
    EXPECT_EQ(HashRemove(table, 0, &stranger), 0);  // equal key, other record
    EXPECT_EQ(HashRemove(table, 0, nullptr), 1);
    EXPECT_EQ(HashRemove(nullptr, 0, &mid), 1);
    EXPECT_EQ(HashRemove(table, 3, &mid), 0);
    HashDestroy(table);
}

TEST(HashTree, RemoveHangsTheRightBranchBelowTheLeft)
{
    HashTree *table = HashCreate(CompareRec, nullptr, 1);
    // Larger keys to the left: 50 has left 70 (60, 80) and right 30 (20, 40).
    std::vector<Rec> recs = {{50}, {70}, {30}, {60}, {80}, {20}, {40}, {65}, {35}};
    for (Rec &r : recs)
        HashAdd(table, 0, &r);
    EXPECT_EQ(HashRemove(table, 0, &recs[0]), 1);
    HashTreeNode *root = table->buckets[0];
    EXPECT_EQ(root->key, &recs[1]);  // 70 took the place
    EXPECT_EQ(root->link, &table->buckets[0]);
    // 30 goes down from 70 by comparison: right of 70, right of 60.
    HashTreeNode *n60 = root->right;
    ASSERT_NE(n60, nullptr);
    EXPECT_EQ(static_cast<Rec *>(n60->key)->key, 60);
    ASSERT_NE(n60->right, nullptr);
    EXPECT_EQ(static_cast<Rec *>(n60->right->key)->key, 30);
    EXPECT_EQ(CheckLinks(&table->buckets[0]), 8);
    for (size_t i = 1; i < recs.size(); i++)
        EXPECT_EQ(HashFind(table, 0, &recs[i]), &recs[i]) << recs[i].key;

    // A node with a right branch only, then a leaf, then the last root.
    EXPECT_EQ(HashRemove(table, 0, &recs[3]), 1);  // 60: left 65, right 30
    EXPECT_EQ(HashRemove(table, 0, &recs[5]), 1);  // 20, a leaf
    EXPECT_EQ(CheckLinks(&table->buckets[0]), 6);
    for (int i : {1, 2, 4, 6, 7, 8})
        EXPECT_EQ(HashFind(table, 0, &recs[i]), &recs[i]) << recs[i].key;
    for (int i : {1, 2, 4, 6, 7, 8})
        EXPECT_EQ(HashRemove(table, 0, &recs[i]), 1);
    EXPECT_EQ(table->buckets[0], nullptr);
    HashDestroy(table);
}

} // namespace
