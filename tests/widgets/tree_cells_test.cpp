// Cell editing in the tree list with real keys and clicks: the spreadsheet's
// active cell, moving it, a combo cell, row deletion from an empty field,
// text dropped on a cell by a Motif drag, and clones kept in step.
#include "treetest.h"

#include <Xm/DragDrop.h>

namespace {

using treetest::AddRow;
using treetest::Part;

// Reason and column of a call of cellManageCallback.
using Managed = std::pair<int, int>;

// A list of three columns on a form, with room below it for more widgets.
struct Sheet {
    Widget shell, form, tree;
    std::vector<Managed> managed;
    explicit Sheet(unsigned char mode = XmSPREADSHEET, unsigned char type = XmCELL_EDIT_TEXT)
    {
        shell = xwktest::Shell("sheet", 360, 260);
        form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
        tree = treetest::Create(form, "sheet",
                                {{XmNvisualMode, mode}, {XmNnumColumns, 3}, {XmNdelimeter, '|'},
                                 {XmNtitleString, (XtArgVal) "A|B|C"}, {XmNtitleItemType, type},
                                 {XmNvisibleLines, 5}, {XmNwidth, 340}});
        XtAddCallback(tree, XmNcellManageCallback, Note, (XtPointer)this);
    }
    static void Note(Widget, XtPointer closure, XtPointer call)
    {
        auto *cbs = (XmPrjTreeCallbackStruct *)call;
        ((Sheet *)closure)->managed.push_back({cbs->reason, cbs->column});
    }
    // A widget of the class on the form, below the list.
    Widget Underneath(const char *name, WidgetClass wc)
    {
        return XtVaCreateManagedWidget(name, wc, form, XmNtopAttachment, XmATTACH_WIDGET,
                                       XmNtopWidget, XtParent(tree), NULL);
    }
    XmPrjTreeNode Add(const char *label) { return AddRow(tree, nullptr, label, XmSLAM_UNDEFINED); }
    void Up()
    {
        xwktest::Show(tree, shell, 200);
        XSetInputFocus(XtDisplay(shell), XtWindow(shell), RevertToParent, CurrentTime);
        xwktest::Pump(200);
        xwktest::Settle();
    }
    ~Sheet() { XtDestroyWidget(shell); }
    Widget Editor() { return Part(tree).cellActive; }
    int Column() { return Part(tree).cellColumn; }
    XmPrjTreeNode Node() { return Part(tree).cellNodeId; }
    void Key(KeySym sym, unsigned mods = 0)
    {
        xwktest::PressKey(XtDisplay(tree), sym, mods);
        xwktest::Pump(120);
    }
    void ClickCell(XmPrjTreeNode node, int column)
    {
        int row = XmPrjTreeGetNodeNumber(tree, node) - 1;
        xwktest::Click(tree, treetest::Column(tree, column)->x + 8, treetest::RowMiddle(tree, row));
        xwktest::Pump(200);
    }
};

TEST(TreeCells, SpreadsheetTypingAndMoving)
{
    Sheet s;
    XmPrjTreeNode a = s.Add("a1|a2|a3");
    XmPrjTreeNode b = s.Add("b1|b2|b3");
    s.Up();
    // An active cell at all times: the first editable cell of the current row.
    ASSERT_NE(s.Editor(), nullptr);
    EXPECT_EQ(s.Node(), a);
    EXPECT_EQ(s.Column(), 1);
    EXPECT_TRUE(XtIsManaged(s.Editor()));
    xwktest::TypeText(XtDisplay(s.tree), "X");
    xwktest::Pump(100);
    // Keys, and the row (0 a, 1 b) and column of the active cell after each.
    struct Step { KeySym key; unsigned mods; int row, column; } steps[] = {
        {XK_Return, 0, 0, 1}, {XK_Tab, 0, 0, 2},
        // Right at the end of the text moves on, Left inside it stays.
        {XK_Right, 0, 0, 3}, {XK_Left, 0, 0, 3}, {XK_Home, 0, 0, 3}, {XK_Left, 0, 0, 2},
        {XK_Down, 0, 1, 2},
        // Tab at the row's end goes on in the next row; Shift+Tab back.
        {XK_Tab, 0, 1, 3}, {XK_Tab, 0, 1, 3}, {XK_Up, 0, 0, 3}, {XK_Tab, ShiftMask, 0, 2},
    };
    XmPrjTreeNode rows[] = {a, b};
    for (const Step &st : steps) {
        s.Key(st.key, st.mods);
        EXPECT_EQ(s.Node(), rows[st.row]) << XKeysymToString(st.key);
        EXPECT_EQ(s.Column(), st.column) << XKeysymToString(st.key);
    }
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 1), "a1X");
    // A click on a cell activates it, and the editor shows its text.
    s.ClickCell(b, 3);
    EXPECT_EQ(s.Node(), b);
    EXPECT_EQ(s.Column(), 3);
    EXPECT_EQ(xwktest::TextOf(s.Editor()), "b3");
    // The editor follows a programmatic change of its cell.
    XmPrjTreeSetColumnLabel(s.tree, b, 3, "new");
    EXPECT_EQ(xwktest::TextOf(s.Editor()), "new");
    ASSERT_FALSE(s.managed.empty());
    EXPECT_EQ(s.managed.front().first, XmCR_TREE_CELL_MANAGED);
    // A column hidden while its cell is edited: the edit is kept, the
    // editor goes.
    s.ClickCell(a, 2);
    ASSERT_EQ(s.Column(), 2);
    xwktest::TypeText(XtDisplay(s.tree), "Z");
    xwktest::Pump(100);
    XmPrjTreeHideColumn(s.tree, 2);
    xwktest::Pump(100);
    EXPECT_FALSE(XtIsManaged(s.Editor()));
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 2), "a2Z");
}

TEST(TreeCells, ComboCellChoice)
{
    Sheet s(XmTABLE_LIST, XmCELL_LABEL);
    XmString items[3] = {XmStringCreateLocalized((char *)"red"),
                         XmStringCreateLocalized((char *)"green"),
                         XmStringCreateLocalized((char *)"blue")};
    XmPrjTreeSetComboBoxItems(s.tree, 2, items, 3);
    XmPrjTreeSetColumnType(s.tree, 2, XmCELL_DROP_DOWN_LIST, 0);
    EXPECT_EQ(XmPrjTreeGetColumnType(s.tree, 2), XmCELL_DROP_DOWN_LIST);
    XmPrjTreeNode a = s.Add("one||x");
    s.Add("two||y");
    // An empty combo piece takes the first entry.
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 2), "red");
    s.Up();
    EXPECT_EQ(s.Editor(), nullptr);
    s.ClickCell(a, 2);
    ASSERT_NE(s.Editor(), nullptr);
    EXPECT_EQ(s.Editor(), Part(s.tree).cellComboBox);
    // The click that activated the cell went on to the drop-down list, which
    // popped up; a click on its third entry chooses it, and a click
    // elsewhere commits the choice.
    Widget list = XwkComboBoxGetList(s.Editor());
    ASSERT_TRUE(xwktest::WaitViewable(list));
    xwktest::Pump(100);
    Position ix = 0, iy = 0;
    Dimension iw = 0, ih = 0;
    ASSERT_TRUE(XmListPosToBounds(list, 3, &ix, &iy, &iw, &ih));
    xwktest::Click(list, ix + iw / 2, iy + ih / 2);
    xwktest::Pump(200);
    s.ClickCell(a, 1);
    EXPECT_EQ(XmPrjTreeGetColumnComboBoxPosition(s.tree, a, 2), 3);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 2), "blue");
    // In a table list a click on a label cell leaves no active cell.
    EXPECT_EQ(s.Editor(), nullptr);
    EXPECT_EQ(XmPrjTreeSetColumnComboBoxPosition(s.tree, a, 2, 2), 1);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 2), "green");
    for (XmString i : items)
        XmStringFree(i);
}

// The rows of these lists are all top-level.
XmPrjTreeNode Nth(Widget t, int n) { return XmPrjTreeGetItemByPositionFromParent(t, nullptr, n); }

TEST(TreeCells, BlankCellStaysActiveAndEditorsTakeTurns)
{
    Sheet s;
    XmPrjTreeSetColumnType(s.tree, 3, XmCELL_PUSH_BUTTON, 0);
    XmPrjTreeNode a = s.Add("a1|a2|a3");
    XmPrjTreeNode b = s.Add("b1|b2|b3");
    XmPrjTreeSetColumnLabel(s.tree, b, 2, " ");
    s.Up();
    s.ClickCell(b, 2);
    ASSERT_EQ(s.Node(), b);
    EXPECT_EQ(s.Column(), 2);
    // A repaint of the whole list leaves the editor over its cell.
    XClearArea(XtDisplay(s.tree), XtWindow(s.tree), 0, 0, 0, 0, True);
    xwktest::Pump(200);
    ASSERT_NE(s.Editor(), nullptr);
    EXPECT_TRUE(XtIsManaged(s.Editor()));
    EXPECT_NEAR(s.Editor()->core.y, treetest::RowTop(s.tree, 1), Part(s.tree).rowHeight / 2);
    // Scrolled off and back, it comes back with its row.
    for (int i = 0; i < 12; i++)
        s.Add("x|y|z");
    XmPrjTreeSetTopItem(s.tree, Nth(s.tree, 9));
    xwktest::Pump(200);
    EXPECT_FALSE(XtIsManaged(s.Editor()));
    XmPrjTreeSetTopItem(s.tree, a);
    xwktest::Pump(200);
    EXPECT_TRUE(XtIsManaged(s.Editor()));
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, b, 2), " ");
    // Moving from a text cell to a push button cell: the field's going is
    // told for the cell it left, then the button's coming for the new one.
    s.managed.clear();
    ASSERT_TRUE(XmPrjTreeGotoColumn(s.tree, a, 3));
    EXPECT_EQ(s.Editor(), Part(s.tree).cellPushButton);
    EXPECT_EQ(s.managed, (std::vector<Managed>{{XmCR_TREE_CELL_UNMANAGED, 2},
                                               {XmCR_TREE_CELL_MANAGED, 3}}));
}

TEST(TreeCells, CellOperations)
{
    Sheet s(XmTABLE_LIST, XmCELL_LABEL);
    XmPrjTreeNode a = s.Add("a1|a2|a3");
    XmPrjTreeNode b = s.Add("b1|b2|b3");
    XwkIcon *icon = xwktest::SolidIcon(s.tree, 4, 4, "#FF0000");
    ASSERT_NE(icon, nullptr);
    // An icon only in an icon cell.
    EXPECT_EQ(XmPrjTreeSetColumnIcon(s.tree, a, 2, icon), 0);
    XmPrjTreeSetColumnItem(s.tree, a, 2, XmCELL_TOGGLE_ICON, 9, (XtPointer)icon);
    EXPECT_EQ(XmPrjTreeGetCellType(s.tree, a, 2), XmCELL_TOGGLE_ICON);
    EXPECT_EQ(XmPrjTreeGetColumnIcon(s.tree, a, 2), icon);
    EXPECT_EQ(XmPrjTreeGetColumnIcon(s.tree, a, 3), nullptr);
    // A label cell takes the text; an edit cell that is not active keeps its own.
    XmPrjTreeSetColumnItem(s.tree, a, 3, XmCELL_LABEL, 0, (XtPointer) "new");
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, a, 3), "new");
    XmPrjTreeSetColumnItem(s.tree, b, 3, XmCELL_EDIT_TEXT, 0, (XtPointer) "other");
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, b, 3), "b3");
    EXPECT_EQ(XmPrjTreeGetCellType(s.tree, b, 9), 255);
    EXPECT_EQ(XmPrjTreeSetCellType(s.tree, b, 2, XmCELL_EDIT_TEXT), 1);
    EXPECT_EQ(XmPrjTreeGetCellType(s.tree, b, 2), XmCELL_EDIT_TEXT);
    // Moving the active cell: up, down, back.
    s.Up();
    ASSERT_TRUE(XmPrjTreeGotoColumn(s.tree, b, 3));
    EXPECT_EQ(XmPrjTreeProcessTraversalCell(s.tree, XmTRAVERSE_PREV), 1);
    EXPECT_EQ(s.Column(), 2);
    EXPECT_EQ(XmPrjTreeProcessTraversalCell(s.tree, XmTRAVERSE_UP), 0);
    XmPrjTreeSetColumnItem(s.tree, b, 2, XmCELL_EDIT_TEXT, 0, (XtPointer) "typed");
    EXPECT_EQ(xwktest::TextOf(s.Editor()), "typed");
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, b, 2), "typed");
    XwkIconFree(s.tree, icon);
}

int presses[2];
void Pressed(Widget, XtPointer closure, XtPointer) { presses[(long)closure]++; }

int vetoes = 0;
void Veto(Widget, XtPointer, XtPointer call)
{
    auto *cbs = (XmPrjTreeCallbackStruct *)call;
    if (cbs->doit) {
        cbs->doit = False;
        vetoes++;
    }
}

TEST(TreeCells, EditorKeysReturnEscapeAndBackSpace)
{
    // On a form with default and cancel buttons: Return in a cell editor
    // stays there, Escape still cancels.
    Sheet s;
    Widget ok = s.Underneath("ok", xmPushButtonWidgetClass);
    Widget cancel = s.Underneath("cancel", xmPushButtonWidgetClass);
    XtAddCallback(ok, XmNactivateCallback, Pressed, (XtPointer)0);
    XtAddCallback(cancel, XmNactivateCallback, Pressed, (XtPointer)1);
    XtVaSetValues(s.form, XmNdefaultButton, ok, XmNcancelButton, cancel, NULL);
    s.Add("a||");
    XmPrjTreeNode b = s.Add("|  |");
    s.Add("c||");
    s.Up();
    ASSERT_NE(s.Editor(), nullptr);
    XmProcessTraversal(s.Editor(), XmTRAVERSE_CURRENT);
    xwktest::Pump(100);
    s.Key(XK_Return);
    EXPECT_EQ(presses[0], 0);
    s.Key(XK_Escape);
    EXPECT_EQ(presses[1], 1);
    // BackSpace in an empty field deletes its row, unless vetoed.
    s.ClickCell(b, 2);
    ASSERT_EQ(s.Node(), b);
    XtAddCallback(s.tree, XmNdeleteCallback, Veto, nullptr);
    s.Key(XK_BackSpace);
    EXPECT_EQ(vetoes, 1);
    EXPECT_EQ(XmPrjTreeGetItemsCount(s.tree, nullptr), 3);
    XtRemoveAllCallbacks(s.tree, XmNdeleteCallback);
    s.Key(XK_BackSpace);
    EXPECT_EQ(XmPrjTreeGetItemsCount(s.tree, nullptr), 2);
    EXPECT_NE(s.Node(), nullptr);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, s.Node(), 1), "a");
    // Deleting the active cell's row leaves no active cell.
    XmPrjTreeDeleteItem(s.tree, s.Node());
    EXPECT_EQ(Part(s.tree).cellNodeId, nullptr);
}

TEST(TreeCells, TextDraggedFromAnotherWidgetLandsInCell)
{
    Sheet s;
    s.Add("a1|a2|a3");
    XmPrjTreeNode b = s.Add("b1|b2|b3");
    Widget source = s.Underneath("source", xmTextWidgetClass);
    XmTextSetString(source, (char *)"dropped");
    s.Up();
    xwktest::WaitViewable(source);
    // The spreadsheet's own text drop site: composite, no drag-under effect.
    unsigned char site_type = 0, animation = 0xff;
    Arg site[2];
    XtSetArg(site[0], XmNdropSiteType, &site_type);
    XtSetArg(site[1], XmNanimationStyle, &animation);
    XmDropSiteRetrieve(s.tree, site, 2);
    EXPECT_EQ(site_type, XmDROP_SITE_COMPOSITE);
    EXPECT_EQ(animation, XmDRAG_UNDER_NONE);
    XmTextSetSelection(source, 0, 7, CurrentTime);
    xwktest::Pump(100);
    int sx, sy, tx, ty;
    xwktest::RootPosition(source, &sx, &sy);
    xwktest::RootPosition(s.tree, &tx, &ty);
    int cx = tx + treetest::Column(s.tree, 3)->x + 10;
    int cy = ty + treetest::RowMiddle(s.tree, 1);
    int x0 = sx + 12, y0 = sy + source->core.height / 2;
    treetest::QueuedDrag(XtDisplay(s.tree), x0, y0, cx - x0, cy - y0, 2, 10);
    xwktest::PumpUntil([&] { return !strcmp(XmPrjTreeGetColumnLabel(s.tree, b, 3), "dropped"); },
                       4000);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(s.tree, b, 3), "dropped");
}

TEST(TreeCells, ClonesStayInStep)
{
    Sheet s(XmTABLE_LIST, XmCELL_LABEL);
    Widget mother = s.tree;
    Pixel other = mother->core.background_pixel ^ 1;
    Widget clone = treetest::Create(s.form, "clone",
                                    {{XmNvisualMode, XmTABLE_LIST}, {XmNnumColumns, 3},
                                     {XmNdelimeter, '|'}, {XmNtitleString, (XtArgVal) "A|B|C"},
                                     {XmNvisibleLines, 5}, {XmNmother, (XtArgVal)mother},
                                     {XmNbackground, (XtArgVal)other}});
    XtVaSetValues(XtParent(clone), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget,
                  XtParent(mother), NULL);
    ASSERT_NE(Part(clone).titleWidget, nullptr);
    // The clone takes its mother's background.
    EXPECT_EQ(clone->core.background_pixel, mother->core.background_pixel);
    for (int i = 0; i < 20; i++)
        AddRow(clone, nullptr, ("k" + std::to_string(i) + "|v").c_str(), XmSLAM_UNDEFINED);
    XtManageChild(clone);
    s.Up();
    XmPrjTreeSetTopItem(clone, Nth(clone, 10));
    xwktest::Pump(100);
    EXPECT_EQ(Part(mother).topRow, 0);
    EXPECT_EQ(Part(clone).topRow, 9);
    // A row changed through one view shows in both; a column resized
    // through one is resized for both.
    XmPrjTreeSetColumnLabel(mother, Nth(mother, 11), 2, "changed");
    XmPrjTreeDeleteItem(clone, Nth(clone, 1));
    xwktest::Pump(200);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(clone, Nth(clone, 10), 2), "changed");
    XmPrjTreeSetTitleItemWidth(clone, 1, 90);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(mother, 1), 90);
    // The clone shows a selection made through the mother once it repaints,
    // and repaints by itself when the mother deselects all.
    XtVaSetValues(mother, XmNselectionPolicy, XmMULTIPLE_SELECT, NULL);
    XmPrjTreeSelectAllItems(mother);
    XClearArea(XtDisplay(clone), XtWindow(clone), 0, 0, 0, 0, True);
    ASSERT_EQ(treetest::RowFill(clone, 1), Part(clone).inactiveBackground);
    XmPrjTreeDeselectAllItems(mother);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(mother), 0);
    EXPECT_EQ(treetest::RowFill(clone, 1), xwktest::PixelOf(clone, XmNbackground));
    EXPECT_EQ(treetest::RowFill(mother, 1), xwktest::PixelOf(clone, XmNbackground));
}

int drags = 0;
void Nothing(Widget, XtPointer, XtPointer) { drags++; }

TEST(TreeCells, OpenPointsOfClones)
{
    // Each view in a shell of its own, so that the clone can go alone.
    Widget shell = xwktest::Shell("slam", 240, 100),
           clone_shell = xwktest::Shell("clone", 240, 100);
    XtVaSetValues(clone_shell, XmNy, 150, NULL);
    Widget mother = treetest::Create(shell, "mother", {{XmNheight, 60}, {XmNwidth, 200}});
    // canSlam turned on later brings the built-in state icons.
    XwkIcon *fruitless = nullptr, *open = nullptr, *closed = nullptr;
    XmPrjTreeGetDefaultItemAttributes(mother, &fruitless, &open, &closed);
    EXPECT_EQ(open, nullptr);
    XtVaSetValues(mother, XmNcanSlam, True, NULL);
    XmPrjTreeGetDefaultItemAttributes(mother, &fruitless, &open, &closed);
    EXPECT_TRUE(open && closed && fruitless);
    // A drag timer armed in a clone goes with the clone.
    Widget clone = treetest::Create(clone_shell, "clone", {{XmNmother, (XtArgVal)mother}});
    XtAddCallback(mother, XmNstartDragCallback, Nothing, nullptr);
    XmPrjTreeAddSimpleItem(mother, "the first row, wide enough to press on", nullptr);
    XmPrjTreeAddSimpleItem(mother, "the second row", nullptr);
    XtManageChild(mother);
    XtPopup(shell, XtGrabNone);
    xwktest::Show(clone, clone_shell, 200);
    Widget display = XmGetXmDisplay(XtDisplay(clone));
    XtVaSetValues(display, XmNenableBtn1Transfer, XmBUTTON2_TRANSFER, NULL);
    Display *dpy = XtDisplay(clone);
    int x, y, row_y = treetest::RowMiddle(clone, 0), label_x = 60;
    xwktest::RootPosition(clone, &x, &y);
    ASSERT_NE(XmPrjTreeWhichNode(XmTREE_PART_LABEL, label_x, row_y, clone), nullptr);
    xwktest::Click(clone, label_x, row_y);
    xwktest::PastMultiClick(clone);
    xwktest::MovePointer(dpy, x + label_x, y + row_y);
    xwktest::Pump(50);
    XTestFakeButtonEvent(dpy, 1, True, CurrentTime);
    // Only the press: the timer that tells a drag from a click is armed.
    XSync(dpy, False);
    XmPrjTreePart &m = Part(mother);
    while (!m.dragTimer && XtAppPending(xwktest::App()) & XtIMXEvent)
        XtAppProcessEvent(xwktest::App(), XtIMXEvent);
    ASSERT_NE(m.dragTimer, 0u);
    XtDestroyWidget(XtParent(clone));
    xwktest::Pump(XtGetMultiClickTime(dpy) + 200);
    XTestFakeButtonEvent(dpy, 1, False, CurrentTime);
    xwktest::Pump(100);
    EXPECT_EQ(m.dragTimer, 0u);
    EXPECT_EQ(drags, 0);
    XtVaSetValues(display, XmNenableBtn1Transfer, XmOFF, NULL);
    XtDestroyWidget(shell);
    XtDestroyWidget(clone_shell);
    xwktest::Pump(50);
}

}  // namespace
