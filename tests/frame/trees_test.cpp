// Preorder trees: lazy numbering, searches, moves and frees.
#include "xwktest.h"

namespace {

using xwktest::SameWord;
using xwktest::V;
using xwktest::W;

bool Stale(const XwkTree *tree)
{
    return tree->flags & XWK_TREE_STALE;
}

// "data(id,level)[children]" in preorder, checking every link on the way.
std::string Shape(const XwkTreeNode *node)
{
    std::string out = std::to_string(V(node->data)) + "(" + std::to_string(node->id) + "," +
                      std::to_string(node->level) + ")";
    if (!node->first_child)
        return out;
    out += "[";
    unsigned n = 0;
    const XwkTreeNode *prev = nullptr;
    for (const XwkTreeNode *c = node->first_child; c; c = c->next_sibling) {
        EXPECT_EQ(c->parent, node);
        EXPECT_EQ(c->prev_sibling, prev);
        if (prev)
            out += " ";
        out += Shape(c);
        prev = c;
        n++;
    }
    EXPECT_EQ(node->last_child, prev);
    EXPECT_EQ(node->nchildren, n);
    return out + "]";
}

std::vector<intptr_t> freed;

void RecordFree(XwkTreeNode *node, XwkTree *)
{
    freed.push_back(V(node->data));
}

// Root 0 with children 1 (children 11, 12) and 2 (child 21), numbered.
struct Sample {
    XwkTree *tree = t_create(XWK_TREE_PREORDER, RecordFree, W(5));
    XwkTreeNode *root = t_tlink(tree, nullptr, W(0));
    XwkTreeNode *n1 = t_tlink(tree, root, W(1));
    XwkTreeNode *n11 = t_tlink(tree, n1, W(11));
    XwkTreeNode *n12 = t_tlink(tree, n1, W(12));
    XwkTreeNode *n2 = t_tlink(tree, root, W(2));
    XwkTreeNode *n21 = t_tlink(tree, n2, W(21));
    Sample() { t_enumerate(tree); }
    ~Sample()
    {
        freed.clear();
        t_destroy(tree);
    }
};

TEST(Trees, LinkNumbersLazily)
{
    XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, W(3));
    EXPECT_EQ(tree->user, W(3));
    EXPECT_TRUE(Stale(tree));
    EXPECT_EQ(tree->reserved, nullptr);
    XwkTreeNode *root = t_tlink(tree, nullptr, W(0));
    EXPECT_EQ(tree->root, root);
    EXPECT_EQ(tree->root2, root);
    EXPECT_TRUE(Stale(tree));  // stale on entry, so still stale
    XwkTreeNode *a = t_tlink(tree, root, W(1));
    XwkTreeNode *b = t_tlink(tree, root, W(2));
    XwkTreeNode *a1 = t_tlink(tree, a, W(3));  // temporary id 3, preorder 2
    EXPECT_EQ(a1->id, 3u);
    EXPECT_EQ(b->id, 2u);
    EXPECT_EQ(t_find(tree, 2), a1);
    EXPECT_FALSE(Stale(tree));
    EXPECT_EQ(b->id, 3u);
    EXPECT_EQ(tree->count, 4u);
    EXPECT_EQ(tree->depth, 3u);

    // Fresh on entry: the new node is numbered at once, wherever it goes.
    XwkTreeNode *a2 = t_tlink(tree, a, W(4));
    EXPECT_FALSE(Stale(tree));
    EXPECT_EQ(Shape(root), "0(0,0)[1(1,1)[3(2,2) 4(3,2)] 2(4,1)]");
    XwkTreeNode *b1 = t_tlink(tree, b, W(5));
    XwkTreeNode *b11 = t_tlink(tree, b1, W(6));
    EXPECT_FALSE(Stale(tree));
    EXPECT_EQ(Shape(root), "0(0,0)[1(1,1)[3(2,2) 4(3,2)] 2(4,1)[5(5,2)[6(6,3)]]]");
    t_tlink(tree, a2, W(7));
    EXPECT_EQ(Shape(root), "0(0,0)[1(1,1)[3(2,2) 4(3,2)[7(4,3)]] 2(5,1)[5(6,2)[6(7,3)]]]");
    EXPECT_EQ(t_find(tree, 7), b11);
    EXPECT_EQ(tree->depth, 4u);
    EXPECT_EQ(t_tlink(nullptr, root, W(9)), nullptr);
    t_destroy(tree);
}

TEST(Trees, LinkAtTheEndOfAFreshTreeMatchesARenumbering)
{
    // A replaced root stays counted, so the running count is no guide to
    // the next preorder number.
    XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
    XwkTreeNode *old_root = t_tlink(tree, nullptr, W(0));
    t_tlink(tree, old_root, W(1));
    t_enumerate(tree);
    XwkTreeNode *root = t_tlink(tree, nullptr, W(2));
    EXPECT_EQ(tree->root, root);
    t_tlink(tree, root, W(3));
    XwkTreeNode *b = t_tlink(tree, root, W(4));
    t_tlink(tree, b, W(5));
    EXPECT_FALSE(Stale(tree));
    EXPECT_EQ(Shape(root), "2(0,0)[3(1,1) 4(2,1)[5(3,2)]]");
    XwkTreeNode *b2 = t_tlink(tree, b, W(6));
    EXPECT_EQ(b2->id, 4u);
    EXPECT_EQ(t_find(tree, 4), b2);
    // Below the detached former root nothing is renumbered.
    XwkTreeNode *stray = t_tlink(tree, old_root, W(7));
    EXPECT_EQ(stray->id, 7u);
    EXPECT_EQ(tree->count, 8u);
    t_destroy(tree);
    freed.clear();
    t_freenode(old_root, RecordFree, nullptr);
    EXPECT_EQ(freed, (std::vector<intptr_t>{1, 7, 0}));
}

TEST(Trees, FindAndCreep)
{
    Sample s;
    EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[11(2,2) 12(3,2)] 2(4,1)[21(5,2)]]");
    const XwkTreeNode *by_id[] = {s.root, s.n1, s.n11, s.n12, s.n2, s.n21};
    for (unsigned id = 0; id < 6; id++)
        EXPECT_EQ(t_find(s.tree, id), by_id[id]) << id;
    EXPECT_EQ(t_find(s.tree, 6), nullptr);
    EXPECT_EQ(t_find(nullptr, 0), nullptr);
    EXPECT_EQ(t_creep(XWK_TREE_PREORDER, s.n1, 3), s.n12);
    EXPECT_EQ(t_creep(XWK_TREE_PREORDER, s.n1, 5), nullptr);  // outside the subtree
    EXPECT_EQ(t_creep(XWK_TREE_PREORDER, s.n2, 1), nullptr);
    EXPECT_EQ(t_creep(XWK_TREE_PREORDER, nullptr, 0), nullptr);

    // t_creep trusts the numbers as they stand; t_find renumbers first.
    s.tree->flags |= XWK_TREE_STALE;
    s.n2->id = 1;
    EXPECT_EQ(t_creep(XWK_TREE_PREORDER, s.root, 1), s.n2);
    EXPECT_EQ(t_find(s.tree, 1), s.n1);
    EXPECT_EQ(s.n2->id, 4u);
}

std::vector<intptr_t> seen;

int RecordAndMatch(XtPointer data, XtPointer arg)
{
    seen.push_back(V(data));
    return SameWord(data, arg);
}

TEST(Trees, UserFindAndUserLink)
{
    Sample s;
    seen.clear();
    EXPECT_EQ(t_userfind(s.tree, RecordAndMatch, W(2)), s.n2);
    EXPECT_EQ(seen, (std::vector<intptr_t>{0, 1, 11, 12, 2}));
    EXPECT_EQ(t_userfind(s.tree, SameWord, W(99)), nullptr);
    EXPECT_EQ(t_usercreep(XWK_TREE_PREORDER, s.n1, SameWord, W(21)), nullptr);
    EXPECT_EQ(t_usercreep(XWK_TREE_PREORDER, s.n2, SameWord, W(21)), s.n21);
    EXPECT_EQ(t_usercreep(2, s.root, SameWord, W(0)), nullptr);  // other kinds do nothing

    XwkTreeNode *n = t_usertlink(s.tree, SameWord, W(11), W(111));
    EXPECT_EQ(Shape(s.n11), "11(2,2)[111(3,3)]");
    EXPECT_EQ(s.n11->first_child, n);
    EXPECT_EQ(t_usertlink(s.tree, SameWord, W(99), W(5)), nullptr);
    EXPECT_EQ(s.tree->count, 7u);

    // An empty tree cannot be filled this way.
    XwkTree *empty = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
    EXPECT_EQ(t_usertlink(empty, SameWord, W(0), W(1)), nullptr);
    EXPECT_EQ(empty->count, 0u);
    t_destroy(empty);

    // A stale tree is renumbered by the search.
    t_tlink(s.tree, s.root, W(3));
    s.n2->id = 77;
    s.tree->flags |= XWK_TREE_STALE;
    t_userfind(s.tree, SameWord, W(0));
    EXPECT_FALSE(Stale(s.tree));
    EXPECT_EQ(s.n2->id, 5u);
}

TEST(Trees, NextAndSubtreeMembership)
{
    Sample s;
    // A node and its successor in preorder past its subtree.
    const std::pair<XwkTreeNode *, XwkTreeNode *> next[] = {
        {s.n11, s.n12}, {s.n12, s.n2}, {s.n1, s.n2}, {s.n21, nullptr}, {s.root, nullptr}};
    for (auto [node, after] : next)
        EXPECT_EQ(t_next(node), after) << V(node->data);
    EXPECT_EQ(t_next(nullptr), nullptr);

    // A node, a subtree's root, whether the node is below it.
    const std::tuple<XwkTreeNode *, XwkTreeNode *, bool> below[] = {
        {s.n12, s.n1, true}, {s.n21, s.root, true}, {s.n1, s.n1, false}, {s.n2, s.n1, false},
        {s.n1, s.n11, false}, {s.n21, s.n2, true}, {nullptr, s.n2, false}, {s.n2, nullptr, false}};
    for (auto [node, top, want] : below)
        EXPECT_EQ(t_belong_to_subtree(node, top), want);
}

TEST(Trees, ReparentMovesAndRenumbers)
{
    Sample s;
    EXPECT_EQ(t_reparent(s.tree, s.n11, s.n2), s.n11);
    EXPECT_FALSE(Stale(s.tree));
    EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[12(2,2)] 2(3,1)[21(4,2) 11(5,2)]]");

    XwkTreeNode *deep = t_tlink(s.tree, s.n21, W(211));
    EXPECT_EQ(t_reparent(s.tree, s.n2, s.n12), s.n2);
    EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[12(2,2)[2(3,3)[21(4,4)[211(5,5)] 11(6,4)]]]]");
    EXPECT_EQ(s.tree->depth, 6u);
    EXPECT_EQ(deep->level, 5u);

    // Back up: levels fall, depth stays.
    EXPECT_EQ(t_reparent(s.tree, s.n21, s.root), s.n21);
    EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[12(2,2)[2(3,3)[11(4,4)]]] 21(5,1)[211(6,2)]]");
    EXPECT_EQ(s.tree->depth, 6u);

    EXPECT_EQ(t_reparent(nullptr, s.n1, s.root), nullptr);
    EXPECT_EQ(t_reparent(s.tree, nullptr, s.root), nullptr);
    EXPECT_EQ(t_reparent(s.tree, s.n1, nullptr), nullptr);
    EXPECT_EQ(t_reparent(s.tree, s.n1, s.n1), nullptr);
    EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[12(2,2)[2(3,3)[11(4,4)]]] 21(5,1)[211(6,2)]]");
}

TEST(Trees, ReparentOntoTheCurrentParentChangesNothing)
{
    Sample s;
    t_tlink(s.tree, s.n1, W(13));  // fresh on entry: numbered at once
    s.n12->id = 40;                // a renumbering would show
    s.tree->flags |= XWK_TREE_STALE;
    EXPECT_EQ(t_reparent(s.tree, s.n11, s.n1), s.n11);
    EXPECT_EQ(s.n12->id, 40u);
    EXPECT_TRUE(Stale(s.tree));
    EXPECT_EQ(s.n1->first_child, s.n11);
}

TEST(Trees, ReparentIntoOwnSubtreeHoistsTheChildren)
{
    Sample s;
    t_tlink(s.tree, s.n1, W(13));
    XwkTreeNode *n121 = t_tlink(s.tree, s.n12, W(121));
    EXPECT_EQ(t_reparent(s.tree, s.n1, s.n12), s.n1);
    EXPECT_EQ(Shape(s.root),
              "0(0,0)[2(1,1)[21(2,2)] 11(3,1) 12(4,1)[121(5,2) 1(6,2)] 13(7,1)]");
    EXPECT_EQ(s.n1->nchildren, 0u);

    // Deeper down: onto a grandchild.
    EXPECT_EQ(t_reparent(s.tree, s.n12, n121), s.n12);
    EXPECT_EQ(Shape(s.root),
              "0(0,0)[2(1,1)[21(2,2)] 11(3,1) 13(4,1) 121(5,1)[12(6,2)] 1(7,1)]");
}

TEST(Trees, ReparentOfTheRoot)
{
    {
        Sample s;  // two children: refused
        EXPECT_EQ(t_reparent(s.tree, s.root, s.n11), nullptr);
        EXPECT_EQ(Shape(s.root), "0(0,0)[1(1,1)[11(2,2) 12(3,2)] 2(4,1)[21(5,2)]]");
    }
    XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
    XwkTreeNode *root = t_tlink(tree, nullptr, W(0));
    XwkTreeNode *a = t_tlink(tree, root, W(1));
    XwkTreeNode *a1 = t_tlink(tree, a, W(2));
    // One child: it takes the root's place and the old root goes below.
    EXPECT_EQ(t_reparent(tree, root, a1), root);
    EXPECT_EQ(tree->root, a);
    EXPECT_EQ(a->parent, nullptr);
    EXPECT_EQ(Shape(a), "1(0,0)[2(1,1)[0(2,2)]]");
    t_destroy(tree);
}

TEST(Trees, DeleteNodeFreesTheSubtreeAndRenumbers)
{
    Sample s;
    XwkTreeNode *n3 = t_tlink(s.tree, s.root, W(3));
    freed.clear();
    t_delete_node(s.tree, s.n1);
    EXPECT_EQ(freed, (std::vector<intptr_t>{11, 12, 1}));
    EXPECT_EQ(s.tree->count, 4u);
    EXPECT_FALSE(Stale(s.tree));
    EXPECT_EQ(Shape(s.root), "0(0,0)[2(1,1)[21(2,2)] 3(3,1)]");
    EXPECT_EQ(t_find(s.tree, 3), n3);

    // The last node in preorder, in a fresh and in a stale tree.
    t_delete_node(s.tree, n3);
    EXPECT_EQ(Shape(s.root), "0(0,0)[2(1,1)[21(2,2)]]");
    s.tree->flags |= XWK_TREE_STALE;
    s.n2->id = 30;
    t_delete_node(s.tree, s.n21);
    EXPECT_FALSE(Stale(s.tree));
    EXPECT_EQ(Shape(s.root), "0(0,0)[2(1,1)]");
    EXPECT_EQ(s.tree->count, 2u);
    EXPECT_EQ(s.tree->depth, 3u);  // never shrinks

    freed.clear();
    t_delete_node(s.tree, s.root);  // not the root
    t_delete_node(s.tree, nullptr);
    t_delete_node(nullptr, s.n2);
    EXPECT_TRUE(freed.empty());
    EXPECT_EQ(s.tree->count, 2u);
}

TEST(Trees, FreeNodeGoesChildrenFirstAndKeepsLinks)
{
    Sample s;
    t_tlink(s.tree, s.n11, W(111));
    unsigned before = s.tree->count;
    // t_freenode does not unlink: detach first, as t_delete_node does.
    s.root->first_child = s.n2;
    s.n2->prev_sibling = nullptr;
    s.root->nchildren--;
    freed.clear();
    t_freenode(s.n1, RecordFree, s.tree);
    EXPECT_EQ(freed, (std::vector<intptr_t>{111, 11, 12, 1}));
    EXPECT_EQ(s.tree->count, before - 4);
    t_freenode(nullptr, RecordFree, s.tree);
    freed.clear();
    t_destroy(s.tree);
    EXPECT_EQ(freed, (std::vector<intptr_t>{21, 2, 0}));
    s.tree = nullptr;
    t_destroy(nullptr);
}

void Visit(XwkTreeNode *, XtPointer data, XtPointer arg)
{
    static_cast<std::vector<intptr_t> *>(arg)->push_back(V(data));
}

// The data words in the order t_tour visits them.
std::vector<intptr_t> Tour(int kind, XwkTreeNode *node, XwkTreeTourProc visit = Visit)
{
    std::vector<intptr_t> order;
    t_tour(kind, node, visit, &order);
    return order;
}

// Hangs a new first child under 1 while 1 is visited: the child list was
// taken before, so the new child is not visited.
XwkTree *tourTree;

void GrowWhileVisiting(XwkTreeNode *node, XtPointer data, XtPointer arg)
{
    Visit(node, data, arg);
    if (V(data) != 1)
        return;
    XwkTreeNode *extra = t_tlink(tourTree, node, W(-1));
    // Move the new last child to the front.
    node->last_child = extra->prev_sibling;
    node->last_child->next_sibling = nullptr;
    extra->prev_sibling = nullptr;
    extra->next_sibling = node->first_child;
    node->first_child->prev_sibling = extra;
    node->first_child = extra;
}

TEST(Trees, TourIsPreorderAndTakesTheFirstChildBeforeTheVisit)
{
    Sample s;
    // The kind is not looked at.
    EXPECT_EQ(Tour(7, s.root), (std::vector<intptr_t>{0, 1, 11, 12, 2, 21}));
    EXPECT_EQ(Tour(XWK_TREE_PREORDER, s.n1), (std::vector<intptr_t>{1, 11, 12}));
    tourTree = s.tree;
    EXPECT_EQ(Tour(XWK_TREE_PREORDER, s.root, GrowWhileVisiting),
              (std::vector<intptr_t>{0, 1, 11, 12, 2, 21}));
    EXPECT_TRUE(Tour(XWK_TREE_PREORDER, nullptr).empty());
}

TEST(Trees, LabelAndEnumerate)
{
    Sample s;
    unsigned counter = 10;
    t_label(XWK_TREE_PREORDER, s.n1, &counter);
    EXPECT_EQ(counter, 13u);
    EXPECT_EQ(s.n12->id, 12u);
    counter = 50;
    t_label(2, s.n1, &counter);  // other kinds do nothing
    EXPECT_EQ(counter, 50u);
    EXPECT_EQ(s.n1->id, 10u);
    t_enumerate(s.tree);
    EXPECT_EQ(s.n1->id, 1u);
    t_label(XWK_TREE_PREORDER, nullptr, &counter);
    t_enumerate(nullptr);

    // Another kind: numbering never happens; t_find searches the numbers
    // as they stand and clears the stale bit all the same.
    XwkTree *other = t_create(2, nullptr, nullptr);
    XwkTreeNode *r = t_tlink(other, nullptr, W(0));
    XwkTreeNode *c = t_tlink(other, r, W(1));
    XwkTreeNode *d = t_tlink(other, r, W(2));
    EXPECT_EQ(t_find(other, 2), d);
    EXPECT_FALSE(Stale(other));
    c->id = 7;
    other->flags |= XWK_TREE_STALE;
    EXPECT_EQ(t_find(other, 1), nullptr);
    EXPECT_EQ(c->id, 7u);
    EXPECT_EQ(t_userfind(other, SameWord, W(1)), nullptr);
    t_destroy(other);
}

TEST(Trees, DeepAndWideTreesNeedNoStack)
{
    XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
    XwkTreeNode *node = t_tlink(tree, nullptr, W(0));
    const unsigned n = 300000;
    for (unsigned i = 1; i < n; i++)
        node = t_tlink(tree, node, W(i));
    EXPECT_EQ(t_find(tree, n - 1), node);
    EXPECT_EQ(tree->depth, n);
    EXPECT_EQ(t_usercreep(XWK_TREE_PREORDER, tree->root, SameWord, W(n - 1)), node);
    EXPECT_EQ(Tour(XWK_TREE_PREORDER, tree->root).size(), n);
    XwkTreeNode *wide = t_tlink(tree, tree->root, W(-1));
    for (unsigned i = 0; i < 1000; i++)
        t_tlink(tree, wide, W(i));
    EXPECT_EQ(t_find(tree, n + 1)->data, W(0));
    EXPECT_EQ(t_find(tree, n + 1000)->data, W(999));
    t_destroy(tree);
}

} // namespace
