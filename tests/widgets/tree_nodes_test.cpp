// The tree list's rows: adding, deleting with the free procedure's order,
// reordering, finding and walking, lists, tours, branches and visibleList,
// sorting, and the answers kept for compatibility.  On a shown list: the row
// found at a position after many changes, labels measured as Motif measures
// them, callbacks that delete the rows in hand, highlights, the top row and
// clones.
#include "treetest.h"

#include <Xm/RepType.h>

#include <array>
#include <random>
#include <string_view>

namespace {

using treetest::AddRow;
using treetest::Part;
using Rows = std::vector<std::string>;

std::vector<std::string> events;
std::vector<XmPrjTreeCallbackStruct> calls;

void OnDelete(Widget, XtPointer, XtPointer call)
{
    auto *cbs = (XmPrjTreeCallbackStruct *)call;
    calls.push_back(*cbs);
    events.push_back("callback:" + std::to_string((long)cbs->clientData));
}

void OnSelection(Widget, XtPointer, XtPointer call)
{
    calls.push_back(*(XmPrjTreeCallbackStruct *)call);
    events.push_back("selection");
}

void DeleteProc(XmPrjTreeNode, XtPointer data)
{
    events.push_back("proc:" + std::to_string((long)data));
}

Rows Labels(Widget tree)
{
    char **labels = nullptr;
    int n = XmPrjTreeGetLabelList(tree, &labels);
    std::vector<std::string> out;
    for (int i = 0; i < n; i++)
        out.push_back(labels[i] ? labels[i] : "(null)");
    XtFree((char *)labels);
    return out;
}

Rows Shown(Widget tree)
{
    XwkList *list = Part(tree).visibleList;
    std::vector<std::string> out;
    int expect = 0;
    for (XwkListNode *e = list->first; e; e = e->next) {
        EXPECT_EQ(e->index, expect++);
        out.push_back(XmPrjTreeGetNameItem(tree, (XmPrjTreeNode)e->data));
    }
    return out;
}

// Rows from an outline, two spaces a level, added in order; a '+' before the
// label opens the row, a '?' leaves its state undefined, others are closed.
// Each row's client data is its place, from 1.
template <size_t N> std::array<XmPrjTreeNode, N> Outline(Widget tree, const char *const (&rows)[N])
{
    std::array<XmPrjTreeNode, N> out{};
    std::vector<XmPrjTreeNode> levels;  // the last row added at each depth
    for (size_t i = 0; i < N; i++) {
        std::string_view row = rows[i];
        size_t depth = row.find_first_not_of(' ') / 2;
        row.remove_prefix(2 * depth);
        int state = row[0] == '+' ? XmSLAM_OPEN : row[0] == '?' ? XmSLAM_UNDEFINED : XmSLAM_CLOSE;
        std::string label(row.substr(state == XmSLAM_CLOSE ? 0 : 1));
        levels.resize(depth);
        XmPrjTreeNode parent = depth ? levels.back() : nullptr;
        out[i] = AddRow(tree, parent, label.c_str(), state, i + 1);
        levels.push_back(out[i]);
    }
    return out;
}

// The rows in order, and the same shown (all branches open).
void ExpectRows(Widget tree, const Rows &rows)
{
    EXPECT_EQ(Labels(tree), rows);
    EXPECT_EQ(Shown(tree), rows);
}

struct Tree : treetest::Window {
    explicit Tree(bool slam = false) : Window({{XmNcanSlam, slam}}, 240, 200, false, "tree")
    {
        events.clear();
        calls.clear();
    }
};

TEST(TreeClass, ResourcesRepTypesAndCreators)
{
    Tree t;
    // The resource keeps the class name it always had.
    XtResourceList list;
    Cardinal n;
    XtGetResourceList(xmPrjTreeWidgetClass, &list, &n);
    auto mother = std::find_if(list, list + n, [](const XtResource &r) {
        return !strcmp(r.resource_name, "mother");
    });
    EXPECT_STREQ(mother != list + n ? mother->resource_class : "", "Mather");
    XtFree((char *)list);
    for (const char *name : {"slamPolicy", "slamState", "visualMode", "sortDirection", "cellType"})
        EXPECT_NE(XmRepTypeGetId((String)name), XmREP_TYPE_INVALID) << name;
    XmRepTypeId slam_state = XmRepTypeGetId((String) "slamState");
    EXPECT_TRUE(XmRepTypeValidValue(slam_state, XmSLAM_NONE, nullptr));
    EXPECT_FALSE(XmRepTypeValidValue(slam_state, 4, nullptr));
    Rows names;
    String *got = XmRepTypeGetNameList(slam_state, False);
    for (String *name = got; name && *name; name++) {
        names.push_back(*name);
        XtFree(*name);
    }
    XtFree((char *)got);
    EXPECT_EQ(names, (Rows{"slam_open", "slam_close", "slam_undefined", "slam_none"}));

    EXPECT_FALSE(xwktest::Get<Boolean>(t.tree, XmNcanSlam));
    EXPECT_TRUE(xwktest::Get<Boolean>(t.tree, XmNuseDashLine));
    EXPECT_EQ(xwktest::Get<Dimension>(t.tree, XmNhPad), 2);
    Widget other = XmCreateTreeList(t.shell, (String) "other", nullptr, 0);
    EXPECT_TRUE(XtIsSubclass(other, xmPrjTreeWidgetClass));
    // A string from the resource database goes through the representation type.
    XtVaSetValues(other, XtVaTypedArg, (String)XmNslamPolicy, (String)XmRString, "slam_per_row",
                  13, NULL);
    EXPECT_EQ(xwktest::Get<unsigned char>(other, XmNslamPolicy), XmSLAM_PER_ROW);
}

TEST(TreeNodes, AddFindAndWalk)
{
    Tree t;
    auto [a, a1, a2] = Outline(t.tree, {"a", "  a1", "  a2"});
    XmPrjTreeNode b = XmPrjTreeAddSimpleItem(t.tree, "b", (XtPointer)4);
    EXPECT_EQ(XmPrjTreeAddSimpleItem(t.tree, nullptr, nullptr), nullptr);
    EXPECT_EQ(Labels(t.tree), (Rows{"a", "a1", "a2", "b"}));
    EXPECT_EQ(XmPrjTreeGetNodeNumber(t.tree, a2), 3);
    EXPECT_EQ(XmPrjTreeGetNodeNumber(t.tree, nullptr), 0);
    EXPECT_EQ(XmPrjTreeGetNodeLevel(t.tree, a1), 2);
    EXPECT_EQ(XmPrjTreeGetNodeLevel(t.tree, nullptr), -1);
    EXPECT_EQ(XmPrjTreeGetParent(t.tree, a1), a);
    EXPECT_EQ(XmPrjTreeGetParent(t.tree, XmPrjTreeGetRoot(t.tree)), nullptr);
    EXPECT_EQ(XmPrjTreeGetFirstNode(t.tree), a);
    EXPECT_EQ(XmPrjTreeGetLastNode(t.tree), b);
    EXPECT_EQ(XmPrjTreeGetNextNode(t.tree, a), a1);
    EXPECT_EQ(XmPrjTreeGetNextNode(t.tree, a1), a2);
    EXPECT_EQ(XmPrjTreeGetPreviousNode(t.tree, b), a2);
    EXPECT_EQ(XmPrjTreeGetPreviousNode(t.tree, a1), a);
    EXPECT_EQ(XmPrjTreeFindItemOneLevel(t.tree, a, "a2"), a2);
    EXPECT_EQ(XmPrjTreeFindItemOneLevel(t.tree, nullptr, "a2"), nullptr);
    EXPECT_EQ(XmPrjTreeFindItemByClientData(t.tree, (XtPointer)3), a2);
    EXPECT_EQ(XmPrjTreeGetItemsCount(t.tree, nullptr), 2);
    EXPECT_EQ(XmPrjTreeGetItemsCount(t.tree, a), 2);
    EXPECT_EQ(XmPrjTreeGetItemPositionFromParent(t.tree, a2), 2);
    EXPECT_EQ(XmPrjTreeGetItemPositionFromParent(t.tree, XmPrjTreeGetRoot(t.tree)), -1);
    EXPECT_EQ(XmPrjTreeGetItemByPositionFromParent(t.tree, nullptr, 2), b);
    EXPECT_EQ(XmPrjTreeGetItemByPositionFromParent(t.tree, a, 3), nullptr);
    EXPECT_EQ(XmPrjTreeGetTreeWidgetFromItem(a1), t.tree);
    EXPECT_EQ(XmPrjTreeGetClientDataFromParent(t.tree, a1), (XtPointer)1);
    EXPECT_EQ(XmPrjTreeGetClientDataFromNode(b), (XtPointer)4);
    EXPECT_TRUE(XmPrjTreeItemExists(t.tree, a2));
    EXPECT_EQ(XmPrjTreeGetTreePtr(t.tree)->count, 5u);

    // Kept as they always answered.
    EXPECT_EQ(XmPrjTreeFindItemByNodeNumber(t.tree, 0), XmPrjTreeGetRoot(t.tree));
    EXPECT_EQ(XmPrjTreeFindItemByNodeNumber(t.tree, 2), nullptr);
    XmPrjTreeNode deep = AddRow(t.tree, a1, "deep");
    EXPECT_TRUE(XmPrjTreeIsParent(t.tree, a, a1));
    EXPECT_FALSE(XmPrjTreeIsParent(t.tree, a, deep));
}

TEST(TreeNodes, ListsAndTours)
{
    Tree t;
    auto [a, a1, a11, b] = Outline(t.tree, {"a", "  a1", "    a11", "b"});
    XmPrjTreeSelectItem(t.tree, a1);
    XmPrjTreeSelectItem(t.tree, b);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(t.tree), 2);
    auto users = [](auto get) {
        XtPointer *list = nullptr;
        std::vector<long> out(get(&list));
        for (size_t i = 0; i < out.size(); i++)
            out[i] = (long)list[i];
        XtFree((char *)list);
        return out;
    };
    using L = std::vector<long>;
    Widget w = t.tree;
    EXPECT_EQ(users([&](XtPointer **l) { return XmPrjTreeGetSelectedUserList(w, l); }), (L{2, 4}));
    EXPECT_EQ(users([&](XtPointer **l) { return XmPrjTreeGetChildrenUserList(w, a, False, l); }),
              (L{1, 2, 3}));
    EXPECT_EQ(users([&](XtPointer **l) { return XmPrjTreeGetChildrenUserList(w, a, True, l); }),
              (L{2}));
    XmPrjTreeNode *ids = nullptr;
    EXPECT_EQ(XmPrjTreeGetIdList(t.tree, &ids), 4);
    EXPECT_EQ(ids[3], b);
    XtFree((char *)ids);
    XmPrjTreeDeselectItem(t.tree, a1);
    XmPrjTreeDeselectItem(t.tree, b);
    EXPECT_EQ(XmPrjTreeGetSelectedIdList(t.tree, &ids), 0);
    EXPECT_EQ(ids, nullptr);

    static std::vector<long> seen;
    seen.clear();
    auto visit = [](XmPrjTreeNode, XtPointer data, XtPointer stop) -> Boolean {
        seen.push_back((long)data);
        return (long)data == (long)stop;
    };
    EXPECT_EQ(XmPrjTreeTourTree(t.tree, visit, (XtPointer)3), a11);
    EXPECT_EQ(seen, (L{1, 2, 3}));
    seen.clear();
    EXPECT_EQ(XmPrjTreeTourChildren(t.tree, a, False, visit, nullptr), nullptr);
    EXPECT_EQ(seen, (L{2, 3}));
    XmPrjTreeSelectItem(t.tree, a11);
    // The tour over selected rows answers the top-level row it stopped under.
    EXPECT_EQ(XmPrjTreeTourSelected(t.tree, visit, (XtPointer)3), a);
}

TEST(TreeNodes, DeleteOrderAndCounts)
{
    Tree t;
    XtAddCallback(t.tree, XmNdeleteCallback, OnDelete, nullptr);
    XtAddCallback(t.tree, XmNselectionChanged, OnSelection, nullptr);
    auto [a, a1, a2, b] = Outline(t.tree, {"a", "  a1", "  a2", "b"});
    XmPrjTreeAddDeleteItemCallback(t.tree, a1, DeleteProc, (XtPointer)11);
    XmPrjTreeAddDeleteItemCallback(t.tree, a1, nullptr, nullptr);
    events.clear();
    XmPrjTreeDeleteItem(t.tree, a1);
    // The procedure first, then the callback, then selectionChanged.
    EXPECT_EQ(events, (Rows{"proc:11", "callback:2", "selection"}));
    EXPECT_EQ(calls[0].reason, XmCR_TREE_DELETE_ITEM);
    EXPECT_EQ(calls[0].part, XmTREE_PART_ROW);
    EXPECT_EQ(calls[0].cellType, XmCELL_NONE);
    EXPECT_EQ(calls[1].reason, XmCR_TREE_SELECTION_CHANGED);
    EXPECT_EQ(calls[1].cellType, XmCELL_NONE);
    AddRow(t.tree, a, "a3", XmSLAM_CLOSE, 13);
    EXPECT_EQ(XmPrjTreeDeleteChildren(t.tree, a), 3);
    EXPECT_EQ(XmPrjTreeDeleteChildren(t.tree, a), 0);
    events.clear();
    XmPrjTreeDeleteItem(t.tree, a);
    EXPECT_EQ(events, (Rows{"callback:1", "selection"}));
    // The only row goes by the delete-all path: no selectionChanged.
    events.clear();
    XmPrjTreeDeleteItem(t.tree, b);
    EXPECT_EQ(events, (Rows{"callback:4"}));
    EXPECT_EQ(XmPrjTreeGetFirstNode(t.tree), nullptr);
    EXPECT_EQ(XmPrjTreeGetTreePtr(t.tree)->count, 1u);
    Outline(t.tree, {"x", "y"});
    EXPECT_EQ(XmPrjTreeDeleteChildren(t.tree, nullptr), 2);
    EXPECT_TRUE(Labels(t.tree).empty());
}

TEST(TreeNodes, DeletingMovesTheCurrentRow)
{
    Tree t;
    auto [a, b, b1, c] = Outline(t.tree, {"a", "b", "  b1", "c"});
    XmPrjTreeSetItem(t.tree, b1, False);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(t.tree), b1);
    XmPrjTreeDeleteItem(t.tree, b);
    // A child of the deleted row was current: the row above takes over,
    // its client data with it.
    EXPECT_EQ(XmPrjTreeGetSelectedItem(t.tree), a);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(t.tree), 1);
    EXPECT_EQ(xwktest::Get<XtPointer>(t.tree, XmNselected), (XtPointer)1);

    // The first row's successor is its own first child: selected and
    // counted, then freed with it.  No row is current after, and neither
    // the deleted row nor the freed child leaves the count.
    Tree u;
    XtAddCallback(u.tree, XmNselectionChanged, OnSelection, nullptr);
    auto [x, x1, y, z] = Outline(u.tree, {"x", "  x1", "y", "z"});
    XmPrjTreeSetItem(u.tree, x, False);
    ASSERT_EQ(XmPrjTreeGetSelectedItemCount(u.tree), 1);
    calls.clear();
    XmPrjTreeDeleteItem(u.tree, x);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(u.tree), nullptr);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(u.tree), 2);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].reason, XmCR_TREE_SELECTION_CHANGED);
    EXPECT_EQ(calls[0].node, nullptr);
    // A leaf numbered 1 hands over to its next sibling.
    ASSERT_EQ(XmPrjTreeGetFirstNode(u.tree), y);
    XmPrjTreeSetItem(u.tree, y, False);
    XmPrjTreeDeleteItem(u.tree, y);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(u.tree), z);
}

// Deletes the parent of the row a callback is about, unless that is the root.
void DeleteParent(Widget w, XtPointer, XtPointer call)
{
    XmPrjTreeNode node = ((XmPrjTreeCallbackStruct *)call)->node;
    XmPrjTreeNode parent = node ? XmPrjTreeGetParent(w, node) : nullptr;
    if (parent && parent != XmPrjTreeGetRoot(w))
        XmPrjTreeDeleteItem(w, parent);
}

TEST(TreeNodes, CallbacksThatDeleteRows)
{
    Tree t(true);
    auto [a, a1, b, c] = Outline(t.tree, {"+a", "  a1", "b", "c"});
    // The first delete of another row takes the victim along.
    XtCallbackProc delete_victim = [](Widget w, XtPointer victim, XtPointer call) {
        XmPrjTreeNode v = *(XmPrjTreeNode *)victim;
        if (v && ((XmPrjTreeCallbackStruct *)call)->node != v) {
            *(XmPrjTreeNode *)victim = nullptr;
            XmPrjTreeDeleteItem(w, v);
        }
    };
    XmPrjTreeNode victim = b;
    XtAddCallback(t.tree, XmNdeleteCallback, delete_victim, &victim);
    XmPrjTreeDeleteItem(t.tree, a);
    ExpectRows(t.tree, {"c"});
    // Rows inside the subtree being freed are not deleted a second time.
    auto [d, d1, d11, d2] = Outline(t.tree, {"+d", "  d1", "    d11", "  d2"});
    victim = d2;
    XmPrjTreeDeleteItem(t.tree, d);
    EXPECT_EQ(Labels(t.tree), (Rows{"c"}));
    // Nor does deleting all rows from inside a delete; deleting the children
    // of the row being freed does nothing; deleting the parent of the
    // children being deleted ends that deletion.
    XtCallbackProc delete_all = [](Widget w, XtPointer, XtPointer) { XmPrjTreeDeleteAllItems(w); };
    XtCallbackProc delete_siblings = [](Widget w, XtPointer, XtPointer call) {
        XmPrjTreeNode parent = XmPrjTreeGetParent(w, ((XmPrjTreeCallbackStruct *)call)->node);
        if (parent != XmPrjTreeGetRoot(w))
            XmPrjTreeDeleteChildren(w, parent);
    };
    struct Case {
        XtCallbackProc proc;
        bool children;  // delete the children rather than the row
    } cases[] = {{delete_all, false}, {delete_siblings, false}, {DeleteParent, true}};
    for (auto &c : cases) {
        SCOPED_TRACE(&c - cases);
        XtRemoveAllCallbacks(t.tree, XmNdeleteCallback);
        XtAddCallback(t.tree, XmNdeleteCallback, c.proc, nullptr);
        XmPrjTreeNode p = Outline(t.tree, {"+p", "  p1", "  p2"})[0];
        if (c.children)
            EXPECT_EQ(XmPrjTreeDeleteChildren(t.tree, p), 2);
        else
            XmPrjTreeDeleteItem(t.tree, p);
        ExpectRows(t.tree, {"c"});
    }
    XmPrjTreeDeleteAllItems(t.tree);
    EXPECT_TRUE(Labels(t.tree).empty());
}

TEST(TreeNodes, ToursWhoseVisitorDeletesRows)
{
    Tree t(true);
    Outline(t.tree, {"+a", "  a1", "+b", "  b1", "+c", "  c1"});
    static std::vector<std::string> seen;
    seen.clear();
    // Each visited row goes, its child with it; the tour goes on after it.
    auto delete_visited = [](XmPrjTreeNode node, XtPointer, XtPointer w) -> Boolean {
        seen.push_back(XmPrjTreeGetNameItem((Widget)w, node));
        XmPrjTreeDeleteItem((Widget)w, node);
        return False;
    };
    EXPECT_EQ(XmPrjTreeTourTree(t.tree, delete_visited, t.tree), nullptr);
    EXPECT_EQ(seen, (Rows{"a", "b", "c"}));
    EXPECT_TRUE(Labels(t.tree).empty());
    // A visitor that deletes the rest of the tour ends it.
    XmPrjTreeNode p = Outline(t.tree, {"+p", "  p1", "  p2"})[0];
    seen.clear();
    auto delete_parent = [](XmPrjTreeNode node, XtPointer, XtPointer w) -> Boolean {
        seen.push_back(XmPrjTreeGetNameItem((Widget)w, node));
        XmPrjTreeDeleteItem((Widget)w, XmPrjTreeGetParent((Widget)w, node));
        return True;
    };
    EXPECT_EQ(XmPrjTreeTourChildren(t.tree, p, True, delete_parent, t.tree), nullptr);
    EXPECT_EQ(seen, (Rows{"p1"}));
    EXPECT_TRUE(Shown(t.tree).empty());
    // A list naming a row twice, and a row after its parent, deletes each once.
    auto [r, r1, s, u] = Outline(t.tree, {"+r", "  r1", "s", "u"});
    XtAddCallback(t.tree, XmNdeleteCallback, OnDelete, nullptr);
    events.clear();
    XmPrjTreeNode doomed[] = {r, r1, s, s};
    XmPrjTreeDeleteItems(t.tree, doomed, 4);
    EXPECT_EQ(events.size(), 3u);
    EXPECT_EQ(Shown(t.tree), (Rows{"u"}));
}

TEST(TreeNodes, NodesOfAnotherListAreLeftAlone)
{
    Tree t(true), other(true);
    XmPrjTreeNode a = Outline(t.tree, {"+a", "  a1"})[0];
    auto [x, x1, y] = Outline(other.tree, {"+x", "  x1", "y"});
    EXPECT_EQ(AddRow(t.tree, x, "in x"), nullptr);
    XmPrjTreeDeleteItem(t.tree, x1);
    EXPECT_EQ(XmPrjTreeDeleteChildren(t.tree, x), 0);
    XmPrjTreeReparentItem(t.tree, a, x);
    XmPrjTreeReparentItem(t.tree, x1, a);
    XmPrjTreeChangeState(t.tree, x, XmSLAM_CLOSE);
    XmPrjTreeSetItemPosition(t.tree, x, 2);
    int order[] = {1, 0};
    XmPrjTreeArrangeChildren(t.tree, XmPrjTreeGetRoot(other.tree), order, 2);
    XmPrjTreeSortChildren(t.tree, x);
    EXPECT_EQ(XmPrjTreeSetItemForeground(t.tree, x1, 7, True), 0);
    // Nor is it made current, selected or highlighted here.
    XmPrjTreeSetItem(t.tree, x1, False);
    XmPrjTreeSelectItem(t.tree, x);
    XmPrjTreeHighlightNode(t.tree, x1);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(t.tree), nullptr);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(t.tree), 0);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(other.tree), 0);
    EXPECT_EQ(XmPrjTreeGetHighlightedWidget(t.tree), nullptr);
    ExpectRows(t.tree, {"a", "a1"});
    ExpectRows(other.tree, {"x", "x1", "y"});
}

TEST(TreeSlam, RowsGivenNewWordsKeepTheirPlaceInTheList)
{
    Tree t(true);
    auto [a, a1, b] = Outline(t.tree, {"+a", "  a1", "b"});
    XwkIcon icon{};
    // Each gains a word it had not: head, middle and tail of visibleList.
    XmPrjTreeAddDeleteItemCallback(t.tree, a, DeleteProc, (XtPointer)1);
    XmPrjTreeSetItemAttributes(t.tree, a1, &icon, nullptr, nullptr, nullptr);
    XmPrjTreeSetItemForeground(t.tree, b, 9, False);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "b"}));
    EXPECT_EQ(XmPrjTreeGetFirstNode(t.tree), a);
    EXPECT_EQ(XmPrjTreeGetLastNode(t.tree), b);
    EXPECT_EQ(XmPrjTreeGetNextNode(t.tree, a1), b);
    XmPrjTreeDeleteItem(t.tree, a1);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "b"}));
    XmPrjTreeChangeState(t.tree, a, XmSLAM_CLOSE);
    AddRow(t.tree, a, "a2");
    XmPrjTreeChangeState(t.tree, a, XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a2", "b"}));
}

TEST(TreeSlam, RowsAddedWithoutCanSlamStandOpen)
{
    Tree t;
    XmPrjTreeNode p = XmPrjTreeAddSimpleItem(t.tree, "p", nullptr);
    XmPrjTreeAddSimpleItemToItem(t.tree, p, "p1", nullptr, nullptr);
    XmPrjTreeNode q = AddRow(t.tree, nullptr, "q");
    EXPECT_EQ(XmPrjTreeGetState(t.tree, p), XmSLAM_UNDEFINED);
    EXPECT_EQ(XmPrjTreeGetState(t.tree, q), XmSLAM_UNDEFINED);
    XtVaSetValues(t.tree, XmNcanSlam, True, NULL);
    EXPECT_EQ(XmPrjTreeGetState(t.tree, p), XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree), (Rows{"p", "p1", "q"}));
}

TEST(TreeSlam, VisibleListFollowsBranches)
{
    Tree t(true);
    auto [a, a1, a11, b, b1] = Outline(t.tree, {"?a", "  a1", "    a11", "+b", "  b1"});
    // A child of an undefined row closes it, and stays hidden.
    EXPECT_EQ(XmPrjTreeGetState(t.tree, a), XmSLAM_CLOSE);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "b", "b1"}));
    XmPrjTreeChangeState(t.tree, a, XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "b", "b1"}));
    XmPrjTreeChangeState(t.tree, a1, XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "a11", "b", "b1"}));
    // The state already held changes nothing; any other value toggles.
    XmPrjTreeChangeState(t.tree, a1, XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree).size(), 5u);
    XmPrjTreeChangeState(t.tree, a, XmSLAM_NONE);
    EXPECT_EQ(XmPrjTreeGetState(t.tree, a), XmSLAM_CLOSE);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "b", "b1"}));
    XmPrjTreeChangeState(t.tree, a, XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "a11", "b", "b1"}));
    EXPECT_EQ(XmPrjTreeGetLastNode(t.tree), b1);
    // Adding under a shown open row puts the row in its place.
    AddRow(t.tree, a, "a2");
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "a11", "a2", "b", "b1"}));
    // Making a hidden node current opens the branches above it.
    XmPrjTreeChangeState(t.tree, a, XmSLAM_CLOSE);
    XmPrjTreeSetItem(t.tree, a11, False);
    EXPECT_EQ(XmPrjTreeGetState(t.tree, a), XmSLAM_OPEN);
    EXPECT_EQ(Shown(t.tree).size(), 6u);
    // A current row in a branch that closes keeps its row.
    XmPrjTreeChangeState(t.tree, a1, XmSLAM_CLOSE);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a1", "a11", "a2", "b", "b1"}));
    XmPrjTreeChangeState(t.tree, a, XmSLAM_CLOSE);
    EXPECT_EQ(Shown(t.tree), (Rows{"a", "a11", "b", "b1"}));
}

TEST(TreeOrder, ArrangeSwapReparentAndSort)
{
    Tree t(true);
    auto [r1, r1a, r2, r3] = Outline(t.tree, {"+1", "  1a", "2", "3"});
    // Moving the first of three to position 3 swaps it with the third.
    XmPrjTreeSetItemPosition(t.tree, r1, 3);
    ExpectRows(t.tree, {"3", "2", "1", "1a"});
    int order[] = {1, 2, 0};
    XmPrjTreeArrangeChildren(t.tree, nullptr, order, 3);
    ExpectRows(t.tree, {"2", "1", "1a", "3"});
    int partial[] = {1};
    XmPrjTreeArrangeChildren(t.tree, nullptr, partial, 1);
    // An order that would drop a child leaves the order as it was.
    EXPECT_EQ(Labels(t.tree), (Rows{"2", "1", "1a", "3"}));
    XmPrjTreeSortItems(t.tree, False);
    ExpectRows(t.tree, {"1", "1a", "2", "3"});
    XtVaSetValues(t.tree, XmNsortDirection, XmSORT_DISCENDING, NULL);
    XmPrjTreeSortItems(t.tree, False);
    EXPECT_EQ(Labels(t.tree), (Rows{"3", "2", "1", "1a"}));
    XmPrjTreeReparentItem(t.tree, r3, r2);
    EXPECT_EQ(Labels(t.tree), (Rows{"2", "3", "1", "1a"}));
    // The moved row keeps its place on the screen until the list is rebuilt.
    EXPECT_EQ(Shown(t.tree), (Rows{"3", "2", "1", "1a"}));
    EXPECT_EQ(XmPrjTreeGetParent(t.tree, r3), r2);
    XmPrjTreeNode a = r3, b = r2;
    EXPECT_EQ(XmPrjTreeDefaultSortProc(&a, &b), 1);  // different parents
}

TEST(TreeAttributes, ColourCharsetIconsAndPerRowStates)
{
    Tree t(true);
    XtVaSetValues(t.tree, XmNslamPolicy, XmSLAM_PER_ROW, NULL);
    XmPrjTreeNode a = AddRow(t.tree, nullptr, "a");
    EXPECT_EQ(XmPrjTreeSetItemForeground(t.tree, a, 5, False), 1);
    EXPECT_EQ(XmPrjTreeGetItemForeground(t.tree, a), 5u);
    EXPECT_EQ(XmPrjTreeSetItemCharset(t.tree, a, (char *)XmFONTLIST_DEFAULT_TAG, False), 1);
    XwkIcon *icon = (XwkIcon *)1, *fruitless = (XwkIcon *)1, *open = nullptr, *closed = nullptr;
    XwkIcon fake{};
    XmPrjTreeSetItemAttributes(t.tree, a, nullptr, nullptr, &fake, nullptr);
    XmPrjTreeGetItemAttributes(t.tree, a, &icon, &fruitless, &open, &closed);
    EXPECT_EQ(icon, nullptr);
    EXPECT_EQ(open, &fake);
    XwkIcon *wf, *wo, *wc;
    XmPrjTreeGetDefaultItemAttributes(t.tree, &wf, &wo, &wc);
    // A null state icon takes the widget's.
    EXPECT_EQ(fruitless, wf);
    EXPECT_EQ(closed, wc);
    EXPECT_NE(wo, nullptr);

    // Closing gives the row back the icon put aside when selectedIcon came:
    // none, for a row that had selectedIcon itself.
    XwkIcon selected_icon{}, own{};
    Widget sel = XtVaCreateWidget("sel", xmPrjTreeWidgetClass, t.shell, XmNcanSlam, True,
                                  XmNselectedIcon, &selected_icon, NULL);
    XmPrjTreeNode r = XmPrjTreeAddItem(sel, nullptr, "r", &own, nullptr, XmSLAM_CLOSE, nullptr,
                                       nullptr, nullptr);
    AddRow(sel, r, "r1");
    XmPrjTreeChangeState(sel, r, XmSLAM_OPEN);
    XmPrjTreeGetItemAttributes(sel, r, &icon, nullptr, nullptr, nullptr);
    EXPECT_EQ(icon, &selected_icon);
    XmPrjTreeChangeState(sel, r, XmSLAM_CLOSE);
    XmPrjTreeGetItemAttributes(sel, r, &icon, nullptr, nullptr, nullptr);
    EXPECT_EQ(icon, &own);
    XmPrjTreeNode q = XmPrjTreeAddItem(sel, nullptr, "q", &selected_icon, nullptr, XmSLAM_OPEN,
                                       nullptr, nullptr, nullptr);
    AddRow(sel, q, "q1");
    XmPrjTreeChangeState(sel, q, XmSLAM_CLOSE);
    XmPrjTreeGetItemAttributes(sel, q, &icon, nullptr, nullptr, nullptr);
    EXPECT_EQ(icon, nullptr);
}

// A scrolled list on the screen, unlike Tree above.
struct Live : treetest::Window {
    explicit Live(bool slam) : Window({{XmNcanSlam, slam}}) { Up(100); }
};

// The rows in display order, walked the slow way.
std::vector<XmPrjTreeNode> DisplayOrder(Widget tree)
{
    std::vector<XmPrjTreeNode> out;
    XmPrjTreePart &t = Part(tree);
    if (t.canSlam) {
        for (XwkListNode *e = t.visibleList->first; e; e = e->next)
            out.push_back((XmPrjTreeNode)e->data);
        return out;
    }
    std::function<void(XmPrjTreeNode)> walk = [&](XmPrjTreeNode n) {
        for (XmPrjTreeNode c = n->first_child; c; c = c->next_sibling) {
            out.push_back(c);
            walk(c);
        }
    };
    walk(t.tree->root);
    return out;
}

void CheckPositions(Live &l, std::mt19937 &rng)
{
    std::vector<XmPrjTreeNode> order = DisplayOrder(l.tree);
    if (order.empty())
        return;
    int page = Part(l.tree).visibleRows;
    int last_top = std::max(0, (int)order.size() - page);
    for (int k = 0; k < 6; k++) {
        int top = (int)(rng() % (last_top + 1));
        XmPrjTreeSetOrigins(l.tree, -1, top);
        ASSERT_EQ(Part(l.tree).topRow, top);
        XmPrjTreeNode found = XmPrjTreeWhichNode(0xff, 200, l.RowMiddle(top), l.tree);
        ASSERT_EQ(found, order[top]) << "top row " << top << " of " << order.size();
    }
}

class RowIndex : public ::testing::TestWithParam<bool> {};

TEST_P(RowIndex, RowAtAPositionAfterChanges)
{
    bool slam = GetParam();
    Live l(slam);
    std::mt19937 rng(7);
    std::vector<XmPrjTreeNode> nodes;
    std::string label;
    XmPrjTreeSetEditable(l.tree, False);
    for (int i = 0; i < 600; i++) {
        XmPrjTreeNode parent =
            nodes.empty() || rng() % 3 == 0 ? nullptr : nodes[rng() % nodes.size()];
        label = "n" + std::to_string(i);
        nodes.push_back(XmPrjTreeAddItem(l.tree, parent, label.c_str(), nullptr, nullptr,
                                         rng() % 2 ? XmSLAM_OPEN : XmSLAM_CLOSE, nullptr, nullptr,
                                         nullptr));
    }
    XmPrjTreeSetEditable(l.tree, True);
    xwktest::Settle();
    CheckPositions(l, rng);
    for (int round = 0; round < 30; round++) {
        XmPrjTreeNode n = nodes[rng() % nodes.size()];
        switch (rng() % 4) {
        case 0:
            if (slam)
                XmPrjTreeChangeState(l.tree, n, XmSLAM_NONE);
            break;
        case 1:
            label = "late" + std::to_string(round);
            nodes.push_back(AddRow(l.tree, n, label.c_str(), XmSLAM_OPEN));
            break;
        case 2:
            XmPrjTreeSortChildren(l.tree, n);
            break;
        default:
            // Deleting takes the subtree; forget those nodes.
            std::erase_if(nodes, [n](XmPrjTreeNode m) {
                while (m && m != n)
                    m = m->parent;
                return m == n;
            });
            XmPrjTreeDeleteItem(l.tree, n);
            break;
        }
        if (nodes.empty())
            break;
        CheckPositions(l, rng);
    }
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutBranches, RowIndex, ::testing::Values(false, true));

TEST_P(RowIndex, AddingRowByRowMeasuresAsAFullPass)
{
    Live l(GetParam());
    // Taller than the label, with a mask.
    std::vector<const char *> dot{"6 20 2 1", "  c None", "x c #00FF00"};
    dot.insert(dot.end(), 20, "xxxxxx");
    XwkIcon *icon = XwkIconCreateFromData(l.tree, (char **)dot.data());
    ASSERT_NE(icon, nullptr);
    std::mt19937 rng(11);
    std::vector<XmPrjTreeNode> nodes;
    for (int i = 0; i < 80; i++) {
        XmPrjTreeNode parent = nodes.empty() || rng() % 2 ? nullptr : nodes[rng() % nodes.size()];
        std::string label(1 + rng() % 40, 'm');
        nodes.push_back(XmPrjTreeAddItem(l.tree, parent, label.c_str(), rng() % 5 ? nullptr : icon,
                                         nullptr, XmSLAM_OPEN, nullptr, nullptr, nullptr));
    }
    XmPrjTreePart &t = Part(l.tree);
    Dimension width = t.rowWidth, height = t.rowHeight, icons = t.iconWidth, label = t.labelHeight;
    // Anything set through XtSetValues makes the next pass visit all rows.
    XtVaSetValues(l.tree, XmNhPad, t.hPad, NULL);
    XmPrjTreeResizeWindow(l.tree, False);
    EXPECT_EQ(t.rowWidth, width);
    EXPECT_EQ(t.rowHeight, height);
    EXPECT_EQ(t.iconWidth, icons);
    EXPECT_EQ(t.labelHeight, label);
    EXPECT_EQ(t.iconWidth, 6);
    XmPrjTreeDeleteAllItems(l.tree);
    XwkIconFree(l.tree, icon);
}

TEST(RowMeasure, LabelsMeasureAsMotifDoes)
{
    Live l(false);
    XmPrjTreePart &t = Part(l.tree);
    for (const char *text : {"a", "Hello, world", "   spaced   ", "W", "tab\there", "\xe9t\xe9",
                             "", "0123456789012345678901234567890123456789"}) {
        XmPrjTreeNode node = XmPrjTreeAddSimpleItem(l.tree, text, nullptr);
        XmString s = XmStringCreate((char *)text, (XmStringCharSet)XmFONTLIST_DEFAULT_TAG);
        Dimension w = 0, h = 0;
        XmStringExtent(t.fontList, s, &w, &h);
        XmStringFree(s);
        auto *item = (XmPrjTreeItem)node->data;
        EXPECT_EQ(item->width, w) << text;
        EXPECT_EQ(item->height, h ? h : t.labelHeight) << text;
    }
}

TEST(RowCallbacks, CallbacksThatDeleteTheRowsInHand)
{
    Live l(true);
    XmPrjTreeNode a = AddRow(l.tree, nullptr, "a", XmSLAM_OPEN);
    XmPrjTreeNode a1 = AddRow(l.tree, a, "a1", XmSLAM_OPEN);
    AddRow(l.tree, nullptr, "b", XmSLAM_OPEN);
    AddRow(l.tree, nullptr, "c", XmSLAM_OPEN);
    xwktest::Settle();
    // Making a1 current tells selectionChanged, which deletes a1's parent.
    XtAddCallback(l.tree, XmNselectionChanged, DeleteParent, nullptr);
    XmPrjTreeSetNode(l.tree, a1);
    xwktest::Settle();
    XtRemoveAllCallbacks(l.tree, XmNselectionChanged);
    EXPECT_EQ(XmPrjTreeFindItemOneLevel(l.tree, nullptr, "a"), nullptr);
    EXPECT_EQ(Part(l.tree).visibleList->count, 2);
    // A click whose activateCallback deletes the clicked row.
    XtCallbackProc delete_clicked = [](Widget w, XtPointer, XtPointer call) {
        if (((XmPrjTreeCallbackStruct *)call)->node)
            XmPrjTreeDeleteItem(w, ((XmPrjTreeCallbackStruct *)call)->node);
    };
    XtAddCallback(l.tree, XmNactivateCallback, delete_clicked, nullptr);
    l.ClickRow(0);
    EXPECT_EQ(Part(l.tree).visibleList->count, 1);
    l.ClickRow(0);
    EXPECT_EQ(XmPrjTreeGetFirstNode(l.tree), nullptr);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(l.tree), nullptr);
}

TEST(RowMarks, HighlightTopItemAndOrigins)
{
    Live l(false);
    std::vector<XmPrjTreeNode> rows;
    for (int i = 0; i < 50; i++) {
        std::string label = "r" + std::to_string(i);
        rows.push_back(XmPrjTreeAddSimpleItem(l.tree, label.c_str(), xwktest::W(i + 100)));
    }
    xwktest::Settle();
    XmPrjTreeHighlight(l.tree, rows[2]);
    EXPECT_EQ(XmPrjTreeGetHighlighted(l.tree), (XtPointer)102);
    XmPrjTreeUnhighlight(l.tree);
    EXPECT_EQ(XmPrjTreeGetHighlighted(l.tree), nullptr);
    XmPrjTreePart &t = Part(l.tree);
    XmPrjTreeSetTopItem(l.tree, rows[20]);
    EXPECT_EQ(t.topRow, 20);
    EXPECT_TRUE(XmPrjTreeItemVisible(l.tree, rows[20]));
    EXPECT_FALSE(XmPrjTreeItemVisible(l.tree, rows[19]));
    // Near the end the top stops at the last full page.
    XmPrjTreeSetTopItem(l.tree, rows[49]);
    EXPECT_EQ(t.topRow, 50 - t.visibleRows);
    EXPECT_EQ(xwktest::Get<int>(t.vScrollBar, XmNvalue), t.topRow);
    // Deleting everything resets the origins and drops the bars.
    XmPrjTreeDeleteAllItems(l.tree);
    EXPECT_EQ(t.topRow, 0);
    EXPECT_FALSE(XtIsManaged(t.vScrollBar));
}

TEST(RowViews, CloneShowsTheMothersRows)
{
    Widget shell = xwktest::Shell("views", 300, 200);
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
    // Each view in a scrolled window, which keeps its count of rows on the page.
    Widget mother = XmCreateScrolledTreeList(form, (String) "mother", nullptr, 0);
    XtVaSetValues(XtParent(mother), XmNwidth, 140, XmNheight, 180, NULL);
    int changed = 0;
    XtCallbackProc count = [](Widget, XtPointer changed, XtPointer) { ++*(int *)changed; };
    XtAddCallback(mother, XmNselectionChanged, count, &changed);
    // The clone's own lists give way to the mother's, which serve every view.
    XtCallbackRec own[] = {{count, &changed}, {nullptr, nullptr}};
    Widget clone = treetest::Create(
        form, "clone", {{XmNmother, (XtArgVal)mother}, {XmNselectionChanged, (XtArgVal)own}});
    XtVaSetValues(XtParent(clone), XmNwidth, 140, XmNheight, 180, XmNleftAttachment,
                  XmATTACH_WIDGET, XmNleftWidget, XtParent(mother), NULL);
    XtManageChild(mother);
    XtManageChild(clone);
    EXPECT_EQ(xwktest::Get<Cardinal>(mother, XmNnumClones), 1u);
    XmPrjTreeNode a = XmPrjTreeAddSimpleItem(clone, "through the clone", nullptr);
    XmPrjTreeAddSimpleItem(mother, "through the mother", nullptr);
    EXPECT_EQ(XmPrjTreeGetFirstNode(mother), a);
    EXPECT_EQ(XmPrjTreeGetTreeWidgetFromItem(a), clone);
    EXPECT_EQ(XmPrjTreeGetItemsCount(clone, nullptr), 2);
    // A value set on the clone lands on the mother.
    XtVaSetValues(clone, XmNhPad, 5, NULL);
    EXPECT_EQ(xwktest::Get<Dimension>(mother, XmNhPad), 5);
    xwktest::Show(clone, shell, 100);
    XmPrjTreeSetNode(clone, a);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(mother), a);
    xwktest::Settle();
    Pixel fg = xwktest::PixelOf(mother, XmNforeground);
    Pixel bg = xwktest::PixelOf(mother, XmNbackground);
    // Both views paint the two rows on their background.
    for (Widget view : {mother, clone}) {
        xwktest::Capture c(view);
        EXPECT_GT(c.Count(fg, 0, 0, view->core.width, view->core.height), 20) << XtName(view);
        EXPECT_GT(c.Count(bg, 0, 0, view->core.width, view->core.height), 1000) << XtName(view);
    }
    XtDestroyWidget(clone);
    EXPECT_EQ(xwktest::Get<Cardinal>(mother, XmNnumClones), 0u);
    // The mother's lists outlive the clone.
    int before = changed;
    XmPrjTreeSetItem(mother, XmPrjTreeGetLastNode(mother), True);
    EXPECT_EQ(changed, before + 1);

    // A clone goes with its mother, and shares nothing it would free again;
    // so does a shell holding both, the mother first.
    Widget orphan = treetest::Create(form, "orphan", {{XmNmother, (XtArgVal)mother}});
    XtManageChild(orphan);
    bool orphan_gone = false;
    XtAddCallback(orphan, XmNdestroyCallback,
                  [](Widget, XtPointer flag, XtPointer) { *(bool *)flag = true; }, &orphan_gone);
    XtDestroyWidget(mother);
    EXPECT_TRUE(orphan_gone);
    Widget second = XmCreateScrolledTreeList(form, (String) "second", nullptr, 0);
    treetest::Create(form, "secondClone", {{XmNmother, (XtArgVal)second}});
    XmPrjTreeAddSimpleItem(second, "shared", (XtPointer)1);
    XtDestroyWidget(shell);
}

}  // namespace
