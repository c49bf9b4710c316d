// Rows on a live tree list: the row found at a position after many changes,
// labels measured as Motif measures them, callbacks that delete rows,
// highlights, origins and the top row.
#include "treetest.h"

#include <random>

namespace {

using treetest::AddRow;
using treetest::Part;

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
    std::vector<XmPrjTreeNode> stack;
    for (XmPrjTreeNode c = t.tree->root->last_child; c; c = c->prev_sibling)
        stack.push_back(c);
    while (!stack.empty()) {
        XmPrjTreeNode n = stack.back();
        stack.pop_back();
        out.push_back(n);
        for (XmPrjTreeNode c = n->last_child; c; c = c->prev_sibling)
            stack.push_back(c);
    }
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
    bool slam = GetParam();
    Live l(slam);
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
    XtCallbackProc delete_parent = [](Widget w, XtPointer, XtPointer call) {
        XmPrjTreeNode node = ((XmPrjTreeCallbackStruct *)call)->node;
        if (node && XmPrjTreeGetParent(w, node))
            XmPrjTreeDeleteItem(w, XmPrjTreeGetParent(w, node));
    };
    XtAddCallback(l.tree, XmNselectionChanged, delete_parent, nullptr);
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
    static int changed;
    changed = 0;
    XtCallbackProc count = [](Widget, XtPointer, XtPointer) { changed++; };
    XtAddCallback(mother, XmNselectionChanged, count, nullptr);
    // The clone's own lists give way to the mother's, which serve every view.
    XtCallbackRec own[] = {{count, nullptr}, {nullptr, nullptr}};
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
