// Every public tree list operation on a widget of another class, or on no
// widget at all, is ignored: the answer is the empty one and a real list
// beside it stays as it was.
#include "treetest.h"

namespace {

using treetest::AddRow;

Boolean StopAtOnce(XmPrjTreeNode, XtPointer, XtPointer)
{
    return True;
}

void NoteDeleted(XmPrjTreeNode, XtPointer data)
{
    ++*(int *)data;
}

int Rows(Widget tree)
{
    int n = 0;
    for (XmPrjTreeNode r = XmPrjTreeGetFirstNode(tree); r; r = XmPrjTreeGetNextNode(tree, r))
        n++;
    return n;
}

// Calls everything once with `w` and `node`; counts the non-empty answers.
int CallEverything(Widget w, XmPrjTreeNode node)
{
    int answers = 0;
    auto note = [&](bool given) { answers += given ? 1 : 0; };
    static int deleted;
    XwkIcon *icon = nullptr, *fruitless = nullptr, *open = nullptr, *closed = nullptr;
    XtPointer *users = nullptr;
    char **labels = nullptr;
    XmPrjTreeNode *ids = nullptr;
    int order[2] = {1, 0}, x = 0, y = 0;
    Dimension width = 0, height = 0;

    note(AddRow(w, node, "a", XmSLAM_OPEN) != nullptr);
    note(XmPrjTreeAddSimpleItemToItem(w, node, "b", nullptr, nullptr) != nullptr);
    note(XmPrjTreeAddSimpleItem(w, "c", nullptr) != nullptr);
    XmPrjTreeAddDeleteItemCallback(w, node, NoteDeleted, &deleted);
    XmPrjTreeReparentItem(w, node, node);
    XmPrjTreeArrangeChildren(w, node, order, 2);
    XmPrjTreeSetItemPosition(w, node, 1);
    note(XmPrjTreeGetItemPositionFromParent(w, node) > 0);
    note(XmPrjTreeGetItemByPositionFromParent(w, node, 1) != nullptr);
    note(XmPrjTreeGetRoot(w) != nullptr);
    note(XmPrjTreeGetFirstNode(w) != nullptr);
    note(XmPrjTreeGetLastNode(w) != nullptr);
    note(XmPrjTreeGetNextNode(w, node) != nullptr);
    note(XmPrjTreeGetPreviousNode(w, node) != nullptr);
    note(XmPrjTreeGetParent(w, node) != nullptr);
    note(XmPrjTreeGetNodeLevel(w, node) > 0);
    note(XmPrjTreeGetNodeNumber(w, node) > 0);
    note(XmPrjTreeFindFirstChild(w, node) != nullptr);
    note(XmPrjTreeFindItemOneLevel(w, node, "a") != nullptr);
    note(XmPrjTreeFindItemByClientData(w, nullptr) != nullptr);
    note(XmPrjTreeFindItemByNodeNumber(w, 1) != nullptr);
    note(XmPrjTreeIsParent(w, node, node));
    note(XmPrjTreeItemExists(w, node));
    note(XmPrjTreeItemVisible(w, node));
    note(XmPrjTreeGetItemsCount(w, node) > 0);
    note(XmPrjTreeGetNameItem(w, node) != nullptr);
    note(XmPrjTreeGetClientData(w, node) != nullptr);
    note(XmPrjTreeGetClientDataFromParent(w, node) != nullptr);
    XmPrjTreeSetClientData(w, node, (XtPointer)1);
    note(XmPrjTreeGetSelectedItem(w) != nullptr);
    note(XmPrjTreeGetTreePtr(w) != nullptr);
    note(XmPrjTreeGetNodePtr(w, node) != nullptr);
    XmPrjTreeSetItemForeground(w, node, 1, True);
    XmPrjTreeGetItemForeground(w, node);
    XmPrjTreeSetItemCharset(w, node, (char *)"BOLD", True);
    note(XmPrjTreeGetItemCharSet(w, node) != nullptr);
    XmPrjTreeGetItemAttributes(w, node, &icon, &fruitless, &open, &closed);
    XmPrjTreeSetItemAttributes(w, node, nullptr, nullptr, nullptr, nullptr);
    XmPrjTreeGetDefaultItemAttributes(w, &fruitless, &open, &closed);
    note(XmPrjTreeGetLabelList(w, &labels) > 0);
    note(XmPrjTreeGetUserList(w, &users) > 0);
    note(XmPrjTreeGetIdList(w, &ids) > 0);
    note(XmPrjTreeGetSelectedLabelList(w, &labels) > 0);
    note(XmPrjTreeGetSelectedUserList(w, &users) > 0);
    note(XmPrjTreeGetSelectedIdList(w, &ids) > 0);
    note(XmPrjTreeGetChildrenUserList(w, node, False, &users) > 0);
    note(XmPrjTreeGetSelectedItemCount(w) > 0);
    note(XmPrjTreeGetSelectedItemsCount(w) > 0);
    note(XmPrjTreeTourTree(w, StopAtOnce, nullptr) != nullptr);
    note(XmPrjTreeTourChildren(w, node, False, StopAtOnce, nullptr) != nullptr);
    note(XmPrjTreeTourSelected(w, StopAtOnce, nullptr) != nullptr);
    XmPrjTreeChangeState(w, node, XmSLAM_CLOSE);
    XmPrjTreeGetState(w, node);
    XmPrjTreeSortChildren(w, node);
    XmPrjTreeSortItems(w, True);
    XmPrjTreeResizeWindow(w, True);
    XmPrjTreeGetPreferedSize(w, &width, &height);
    XmPrjTreeUpdateNode(w, node);
    XmPrjTreeUpdateItem(w, node);
    note(XmPrjTreeWhichNode(0, 5, 5, w) != nullptr);
    XmPrjTreeSetNode(w, node);
    XmPrjTreeSetItem(w, node, True);
    XmPrjTreeSelectItem(w, node);
    XmPrjTreeDeselectItem(w, node);
    XmPrjTreeSetSelectable(w, node, False);
    XmPrjTreeSelectAllItems(w);
    XmPrjTreeDeselectAllItems(w);
    XmPrjTreeGetOrigins(w, &x, &y);
    XmPrjTreeSetOrigins(w, 10, 10);
    XmPrjTreeSetTopItem(w, node);
    XmPrjTreeScroll(w, 1);
    XmPrjTreeHighlight(w, node);
    XmPrjTreeHighlightNode(w, node);
    note(XmPrjTreeGetHighlighted(w) != nullptr);
    note(XmPrjTreeGetHighlightedWidget(w) != nullptr);
    XmPrjTreeUnhighlight(w);
    XmPrjTreeShadowHighlight(w);
    XmPrjTreeShadowUnhighlight(w);
    XmPrjTreeSetEditable(w, False);
    XmPrjTreeDeleteItems(w, &node, 1);
    note(XmPrjTreeDeleteChildren(w, node) > 0);
    XmPrjTreeDeleteItem(w, node);
    XmPrjTreeDeleteAllItems(w);
    return answers + deleted;
}

TEST(TreeBadInput, OtherWidgetsAndNoWidgetAreIgnored)
{
    // A manager and a primitive of other classes beside the list.
    treetest::Window win({{XmNcanSlam, True}}, 200, 150, false, "tree");
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, win.shell, NULL);
    Widget label = XtVaCreateWidget("label", xmLabelWidgetClass, form, NULL);
    Widget tree = win.tree;
    win.Up(0);

    XmPrjTreeNode top = XmPrjTreeAddItem(tree, nullptr, "top", nullptr, (XtPointer)7,
                                         XmSLAM_OPEN, nullptr, nullptr, nullptr);
    XmPrjTreeNode child = XmPrjTreeAddSimpleItemToItem(tree, top, "child", nullptr, nullptr);
    XmPrjTreeSetItem(tree, child, False);
    ASSERT_TRUE(top && child);

    for (Widget wrong : {label, form, (Widget) nullptr}) {
        EXPECT_EQ(CallEverything(wrong, child), 0) << (wrong ? XtName(wrong) : "no widget");
        EXPECT_EQ(CallEverything(wrong, nullptr), 0) << (wrong ? XtName(wrong) : "no widget");
    }
    xwktest::Settle();
    EXPECT_EQ(Rows(tree), 2);
    EXPECT_TRUE(XmPrjTreeItemExists(tree, child));
    EXPECT_EQ(XmPrjTreeGetSelectedItem(tree), child);
    EXPECT_EQ(XmPrjTreeGetClientData(tree, top), (XtPointer)7);
    EXPECT_EQ(XmPrjTreeGetParent(tree, child), top);
    EXPECT_EQ(XmPrjTreeGetTreeWidgetFromItem(nullptr), nullptr);
    EXPECT_EQ(XmPrjTreeGetClientDataFromNode(nullptr), nullptr);

    // The same list with no node: nothing to act on, and nothing lost.
    XmPrjTreeDeleteItem(tree, nullptr);
    XmPrjTreeDeleteItems(tree, nullptr, 3);
    XmPrjTreeSetItemPosition(tree, nullptr, 0);
    XmPrjTreeReparentItem(tree, nullptr, top);
    XmPrjTreeChangeState(tree, nullptr, XmSLAM_CLOSE);
    XmPrjTreeSetClientData(tree, nullptr, (XtPointer)1);
    XmPrjTreeAddDeleteItemCallback(tree, nullptr, NoteDeleted, nullptr);
    EXPECT_EQ(XmPrjTreeGetNameItem(tree, nullptr), nullptr);
    EXPECT_FALSE(XmPrjTreeItemExists(tree, nullptr));
    xwktest::Settle();
    EXPECT_EQ(Rows(tree), 2);
    EXPECT_EQ(XmPrjTreeGetParent(tree, child), top);

    // A node of another list: left alone, and nothing of it kept.
    static int changes = 0;
    XtAddCallback(tree, XmNselectionChanged, [](Widget, XtPointer, XtPointer) { changes++; },
                  nullptr);
    Widget other = XmCreatePrjTree(win.shell, (String) "other", nullptr, 0);
    XmPrjTreeNode foreign = XmPrjTreeAddSimpleItem(other, "foreign", nullptr);
    ASSERT_NE(foreign, nullptr);
    XmPrjTreeSetNode(tree, foreign);
    XmPrjTreeSelectItem(tree, foreign);
    XmPrjTreeHighlight(tree, foreign);
    XmPrjTreeSetTopItem(tree, foreign);
    XmPrjTreeUpdateNode(tree, foreign);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(tree), child);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(tree), 1);
    EXPECT_EQ(XmPrjTreeGetHighlightedWidget(tree), nullptr);
    EXPECT_EQ(changes, 0);
    XtDestroyWidget(other);
    XClearArea(XtDisplay(tree), XtWindow(tree), 0, 0, 0, 0, True);
    xwktest::Settle();
    XmPrjTreeSetNode(tree, top);
    EXPECT_EQ(XmPrjTreeGetSelectedItem(tree), top);
}

}  // namespace
