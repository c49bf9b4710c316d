// Numbered lists: order, indices, ownership callbacks.
#include "xwktest.h"

namespace {

using xwktest::SameWord;
using xwktest::V;
using xwktest::W;

// Data words head to tail, checking links both ways, the count, and that
// the indices count up by one from first_index.
std::vector<intptr_t> Items(const XwkList *list, int first_index = 0)
{
    std::vector<intptr_t> out;
    const XwkListNode *prev = nullptr;
    for (const XwkListNode *n = list->first; n; n = n->next) {
        EXPECT_EQ(n->prev, prev);
        EXPECT_EQ(n->index, first_index + (int)out.size()) << "data " << V(n->data);
        out.push_back(V(n->data));
        prev = n;
    }
    EXPECT_EQ(list->last, prev);
    EXPECT_EQ(static_cast<size_t>(list->count), out.size());
    return out;
}

std::vector<intptr_t> freed;

void RecordFree(XwkListNode *node)
{
    freed.push_back(V(node->data));
}

XwkList *Make(std::initializer_list<intptr_t> values)
{
    XwkList *list = l_create(RecordFree, W(99));
    for (intptr_t v : values)
        l_append(list, W(v));
    return list;
}

TEST(Lists, AppendAndInsertKeepOrderAndIndices)
{
    XwkList *list = l_create(nullptr, W(7));
    XwkListNode *a = l_append(list, W(1));
    EXPECT_EQ(a->index, 0);
    EXPECT_EQ(l_append(list, W(3))->index, 1);
    XwkListNode *b = l_insert(list, a, W(2));
    EXPECT_EQ(b->index, 1);
    l_insert_head(list, W(0));
    l_insert_before(list, a, W(-1));
    l_insert(list, nullptr, W(4));
    l_insert_before(list, nullptr, W(5));
    l_insert(list, list->last, W(6));
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{0, -1, 1, 2, 3, 4, 5, 6}));
    l_destroy(list);
}

TEST(Lists, FindByPosition)
{
    XwkList *one = Make({10});
    EXPECT_EQ(l_find(one, 0), one->first);
    EXPECT_EQ(l_find(one, 1), nullptr);
    EXPECT_EQ(l_find(one, -1), nullptr);
    XwkList *empty = Make({});
    EXPECT_EQ(l_find(empty, 0), nullptr);
    EXPECT_EQ(l_find(nullptr, 0), nullptr);

    XwkList *list = Make({});
    for (int i = 0; i < 101; i++)
        l_append(list, W(i * 10));
    for (int i : {0, 1, 49, 50, 51, 99, 100})
        EXPECT_EQ(V(l_find(list, i)->data), i * 10) << i;
    EXPECT_EQ(l_find(list, 101), nullptr);
    l_destroy(one);
    l_destroy(empty);
    l_destroy(list);
}

TEST(Lists, UserFindGivesFirstMatch)
{
    XwkList *list = Make({5, 6, 6, 7});
    EXPECT_EQ(l_userfind(list, SameWord, W(6)), list->first->next);
    EXPECT_EQ(l_userfind(list, SameWord, W(8)), nullptr);
    EXPECT_EQ(l_userfind(nullptr, SameWord, W(6)), nullptr);
    l_destroy(list);
}

// Data words below 0 stand for nested lists: the procedure steps into the
// nested list and out again at its end.
struct Nested {
    XwkList *inner;
    XwkListNode *resume;  // where the outer walk goes on
    int visited;
};

int StepThrough(XwkListNode **cursor, XtPointer arg)
{
    auto *state = static_cast<Nested *>(arg);
    XwkListNode *node = *cursor;
    state->visited++;
    if (V(node->data) == 42)
        return 1;
    if (V(node->data) < 0 && !state->resume) {
        state->resume = node->next;
        *cursor = state->inner->first;
        return 0;
    }
    *cursor = node->next;
    if (!*cursor && state->resume) {
        *cursor = state->resume;
        state->resume = nullptr;
    }
    return 0;
}

TEST(Lists, TreeFindLetsTheProcedureMoveTheCursor)
{
    XwkList *inner = Make({20, 42}), *outer = Make({1, -1, 3});
    XwkListNode *target = inner->last;
    Nested state{inner, nullptr, 0};
    EXPECT_EQ(l_treefind(outer, StepThrough, &state), target);
    EXPECT_EQ(state.visited, 4);

    l_cut(inner, target);
    state = {inner, nullptr, 0};
    EXPECT_EQ(l_treefind(outer, StepThrough, &state), nullptr);
    EXPECT_EQ(state.visited, 4);  // 1, -1, 20, 3
    EXPECT_EQ(l_treefind(nullptr, StepThrough, &state), nullptr);
    l_destroy(inner);
    l_destroy(outer);
}

TEST(Lists, DeleteCutAndPopRenumberAndCallFreeProc)
{
    freed.clear();
    XwkList *list = Make({0, 1, 2, 3, 4});
    l_delete(list, list->first->next);
    EXPECT_EQ(freed, (std::vector<intptr_t>{1}));
    l_cut(list, list->first);
    EXPECT_EQ(freed, (std::vector<intptr_t>{1}));  // cut leaves the data alone
    l_pop(list);
    EXPECT_EQ(freed, (std::vector<intptr_t>{1, 4}));
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{2, 3}));
    l_delete(list, list->last);
    l_delete(list, list->first);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{}));

    freed.clear();
    l_pop(list);  // empty: nothing
    l_pop(nullptr);
    l_delete(nullptr, nullptr);
    EXPECT_TRUE(freed.empty());
    l_destroy(list);
}

TEST(Lists, FlushLeavesAReusableHead)
{
    freed.clear();
    XwkList *list = Make({1, 2, 3});
    l_flush(list);
    EXPECT_EQ(freed, (std::vector<intptr_t>{1, 2, 3}));
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{}));
    EXPECT_EQ(list->user, W(99));
    EXPECT_EQ(l_append(list, W(8))->index, 0);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{8}));
    freed.clear();
    l_destroy(list);
    EXPECT_EQ(freed, (std::vector<intptr_t>{8}));
    l_flush(nullptr);
    l_destroy(nullptr);
}

TEST(Lists, Reverse)
{
    XwkList *list = Make({1, 2, 3, 4});
    l_reverse(list);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{4, 3, 2, 1}));
    l_destroy(list);
    for (auto values : {std::initializer_list<intptr_t>{5}, {}}) {
        list = Make(values);
        l_reverse(list);
        EXPECT_EQ(Items(list), std::vector<intptr_t>(values));
        l_destroy(list);
    }
    l_reverse(nullptr);
}

TEST(Lists, ReplaceMovesBeforeTargetAndRenumbersFromMovedOnly)
{
    // Moving backwards: everything from the moved node on is renumbered
    // correctly.
    XwkList *list = Make({0, 1, 2, 3, 4});
    XwkListNode *target = l_find(list, 1);
    XwkListNode *moved = l_find(list, 3);
    l_replace(list, target, moved);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{0, 3, 1, 2, 4}));

    // Moving forwards: the nodes passed over keep an index one too high,
    // and the numbering from the moved node goes on from there.
    l_replace(list, l_find(list, 4), list->first);
    EXPECT_EQ(Items(list, 1), (std::vector<intptr_t>{3, 1, 2, 0, 4}));
    l_label(list->first);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{3, 1, 2, 0, 4}));

    // To the head and from the tail.
    l_replace(list, list->first, list->last);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{4, 3, 1, 2, 0}));

    // Anything null, or a node onto itself: nothing happens.
    l_replace(list, nullptr, list->first);
    l_replace(list, list->first, nullptr);
    l_replace(nullptr, list->first, list->last);
    l_replace(list, list->first, list->first);
    EXPECT_EQ(Items(list), (std::vector<intptr_t>{4, 3, 1, 2, 0}));
    freed.clear();
    l_destroy(list);
    EXPECT_EQ(freed.size(), 5u);
}

TEST(Lists, LabelOnALongListIsIterative)
{
    XwkList *list = l_create(nullptr, nullptr);
    const int n = 2000000;  // far deeper than any stack would take
    for (int i = 0; i < n; i++)
        l_append(list, nullptr);
    l_insert_head(list, W(1));
    EXPECT_EQ(list->last->index, n);
    EXPECT_EQ(list->first->next->index, 1);
    l_label(nullptr);
    l_destroy(list);
}

} // namespace
