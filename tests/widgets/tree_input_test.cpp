// The tree list driven by real input: clicks, double clicks, Ctrl and
// Shift gestures, keys, the slam keys and the wheel, with the callbacks
// they raise.
#include "treetest.h"

#include <Xm/Display.h>

namespace {

using treetest::AddRow;
using treetest::Part;
using treetest::RowFill;
using xwktest::PastMultiClick;

struct Call {
    std::string list;
    XmPrjTreeCallbackStruct data;
};
std::vector<Call> calls;

void Record(Widget, XtPointer closure, XtPointer call)
{
    calls.push_back({(const char *)closure, *(XmPrjTreeCallbackStruct *)call});
}

int Count(const std::string &list)
{
    return (int)std::count_if(calls.begin(), calls.end(), [&](auto &c) { return c.list == list; });
}

// The data of the last call on the list; reason -1 if there was none.
const XmPrjTreeCallbackStruct &Last(const std::string &list)
{
    static XmPrjTreeCallbackStruct none;
    none.reason = -1;
    auto it = std::find_if(calls.rbegin(), calls.rend(), [&](auto &c) { return c.list == list; });
    return it == calls.rend() ? none : it->data;
}

// Reason, part and node of the last call on the list.
using Seen = std::tuple<int, int, XmPrjTreeNode>;
Seen Of(const std::string &list)
{
    const XmPrjTreeCallbackStruct &d = Last(list);
    return {d.reason, d.part, d.node};
}

// What the deleting callback does, once, with the row its list tells of.
using Drop = std::function<void(Widget, XmPrjTreeNode)>;
Drop drop;
std::string drop_on;

void Deleter(Widget w, XtPointer closure, XtPointer call)
{
    auto *cbs = (XmPrjTreeCallbackStruct *)call;
    if (drop && drop_on == (const char *)closure && cbs->node)
        std::exchange(drop, nullptr)(w, cbs->node);
}

void DropParent(Widget w, XmPrjTreeNode node)
{
    XmPrjTreeDeleteItem(w, XmPrjTreeGetParent(w, node));
}

void DropAll(Widget w, XmPrjTreeNode) { XmPrjTreeDeleteAllItems(w); }

void Arm(const char *list, Drop what)
{
    drop_on = list;
    drop = what;
}

struct Live : treetest::Window {
    std::vector<XmPrjTreeNode> rows;
    Live(bool slam, unsigned char policy = XmSINGLE_SELECT, int n = 40)
        : Window({{XmNcanSlam, slam}, {XmNselectionPolicy, policy}}, 260, 220)
    {
        for (const char *name : {"activateCallback", "selectionChanged", "defaultActionCallback",
                                 "multipleSelectionCallback", "focusCallback"})
            for (XtCallbackProc proc : {Record, Deleter})
                XtAddCallback(tree, name, proc, (XtPointer)name);
        drop = nullptr;
        for (int i = 0; i < n; i++) {
            std::string label = "row " + std::to_string(i);
            rows.push_back(AddRow(tree, nullptr, label.c_str(), XmSLAM_CLOSE, i + 1));
        }
        Up(200);
        calls.clear();
    }
    // The wheel where the pointer is, with modifier keys held.
    void Wheel(unsigned button, unsigned mods = 0)
    {
        Display *dpy = XtDisplay(tree);
        xwktest::HoldModifiers(dpy, mods, true);
        XTestFakeButtonEvent(dpy, button, True, CurrentTime);
        XTestFakeButtonEvent(dpy, button, False, CurrentTime);
        xwktest::HoldModifiers(dpy, mods, false);
        xwktest::Pump(80);
    }
    XmPrjTreeNode Current() { return XmPrjTreeGetSelectedItem(tree); }
    int Shown() { return Part(tree).visibleList ? Part(tree).visibleList->count : -1; }
};

TEST(TreeClicks, SelectAndDoubleClick)
{
    Live l(false);
    // Wait past the multi-click time after start-up.
    PastMultiClick(l.tree);
    l.ClickRow(3);
    EXPECT_EQ(l.Current(), l.rows[3]);
    EXPECT_EQ(Of("activateCallback"), Seen(XmCR_ACTIVATE, XmTREE_PART_LABEL, l.rows[3]));
    EXPECT_EQ(Last("activateCallback").clientData, (XtPointer)4);
    // The call data tell the row as the press found it: not yet selected.
    EXPECT_FALSE(Last("activateCallback").selected);
    EXPECT_FALSE(Last("selectionChanged").selected);
    EXPECT_EQ(Last("selectionChanged").reason, XmCR_ACTIVATE);
    EXPECT_EQ(Count("selectionChanged"), 1);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    EXPECT_EQ(xwktest::Get<XtPointer>(l.tree, XmNselected), (XtPointer)4);
    // A second press on the same row within the multi-click time.
    l.ClickRow(3);
    ASSERT_EQ(Count("defaultActionCallback"), 1);
    EXPECT_EQ(Of("defaultActionCallback"),
              Seen(XmCR_DEFAULT_ACTION, Last("defaultActionCallback").part, l.rows[3]));
    EXPECT_TRUE(Last("defaultActionCallback").selected);
    // A press elsewhere restarts the count.
    l.ClickRow(5);
    l.ClickRow(3);
    EXPECT_EQ(Count("defaultActionCallback"), 1);
    // In single selection a Ctrl press only takes the focus.
    calls.clear();
    l.ClickRow(6, ControlMask);
    EXPECT_EQ(l.Current(), l.rows[3]);
    EXPECT_EQ(Count("activateCallback"), 0);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    // Below the last row: no node.
    calls.clear();
    XmPrjTreeDeleteChildren(l.tree, nullptr);
    XmPrjTreeAddSimpleItem(l.tree, "only", nullptr);
    PastMultiClick(l.tree);
    l.ClickRow(4);
    EXPECT_EQ(Last("activateCallback").node, nullptr);
    // A row that took the place of the one first pressed, even at its
    // address, is no second click.
    PastMultiClick(l.tree);
    l.ClickRow(0);
    XmPrjTreeDeleteAllItems(l.tree);
    XmPrjTreeNode again = XmPrjTreeAddSimpleItem(l.tree, "again", nullptr);
    l.ClickRow(0);
    EXPECT_EQ(l.Current(), again);
    EXPECT_EQ(Count("defaultActionCallback"), 0);
}

TEST(TreeClicks, MultipleSelectionWithCtrlAndShift)
{
    Live l(false, XmMULTIPLE_SELECT);
    // The row pressed and the modifiers held, whether the multi-click time
    // passes first; then the rows selected, first and last (-1: any).
    struct Step { int row; unsigned mods; bool wait; int count, first, last; } steps[] = {
        {1, 0, false, 1, 1, 1}, {4, ControlMask, false, 2, 1, 4}, {4, ControlMask, false, 1, 1, 1},
        {4, ControlMask, false, 2, 1, 4}, {5, ControlMask, false, 3, 1, 5},
        // A plain press with more than one selected besides the current row
        // clears them all first.
        {2, 0, true, 1, 2, 2},
        // Shift spreads the state of the current row over the range.
        {6, ShiftMask, true, 5, 2, 6}, {4, ControlMask, false, 4, -1, -1},
        // A plain press clears the rest.
        {8, 0, true, 1, 8, 8},
        // Two selected, one of them the current row: a plain press still
        // clears the other one.
        {3, ControlMask, false, 2, 3, 8}, {10, 0, true, 1, 10, 10},
    };
    for (const Step &st : steps) {
        if (st.wait)
            PastMultiClick(l.tree);
        l.ClickRow(st.row, st.mods);
        XmPrjTreeNode *ids = nullptr;
        int n = XmPrjTreeGetSelectedIdList(l.tree, &ids);
        EXPECT_EQ(n, st.count) << st.row;
        EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), st.count) << st.row;
        if (n == st.count && st.first >= 0) {
            EXPECT_EQ(ids[0], l.rows[st.first]) << st.row;
            EXPECT_EQ(ids[n - 1], l.rows[st.last]) << st.row;
        }
        XtFree((char *)ids);
        if (!st.mods) {
            EXPECT_EQ(l.Current(), l.rows[st.row]);
        }
    }
    EXPECT_GE(Count("multipleSelectionCallback"), 1);
    // Select all tells of every row, those already selected as well.
    calls.clear();
    XmPrjTreeSelectAllItems(l.tree);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 40);
    EXPECT_EQ(Count("multipleSelectionCallback"), 40);
    EXPECT_EQ(Of("multipleSelectionCallback"),
              Seen(XmCR_MULTIPLE_SELECT, XmTREE_PART_ROW, Last("multipleSelectionCallback").node));
    EXPECT_EQ(Last("multipleSelectionCallback").cellType, XmCELL_NONE);
    EXPECT_TRUE(Last("multipleSelectionCallback").selected);
    // A Shift range from the current row spreads its state, one call a row
    // but the current one's.
    PastMultiClick(l.tree);
    l.ClickRow(2);
    ASSERT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    calls.clear();
    l.ClickRow(5, ShiftMask);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 4);
    EXPECT_EQ(Count("multipleSelectionCallback"), 3);
    EXPECT_EQ(Of("selectionChanged"),
              Seen(XmCR_ACTIVATE, Last("selectionChanged").part, l.rows[5]));
}

TEST(TreeScrolling, KeysWheelAndOrigins)
{
    Live l(false);
    l.ClickRow(0);
    EXPECT_EQ(l.Current(), l.rows[0]);
    calls.clear();
    l.Key(XK_Up);
    // Up on the first row scrolls to the top and raises nothing.
    EXPECT_EQ(l.Current(), l.rows[0]);
    EXPECT_EQ(Count("selectionChanged"), 0);
    int page = Part(l.tree).visibleRows;
    ASSERT_GT(page, 2);
    // Keys, and the current row and the top row after each (-1: any but 0).
    struct Step { KeySym key; unsigned mods; int current, top; } steps[] = {
        {XK_Down, 0, 1, 0}, {XK_Next, 0, page, -1},
        {XK_End, ControlMask, 39, 40 - page}, {XK_Home, ControlMask, 0, 0},
    };
    for (const Step &st : steps) {
        SCOPED_TRACE(XKeysymToString(st.key));
        l.Key(st.key, st.mods);
        EXPECT_EQ(l.Current(), l.rows[st.current]);
        if (st.top < 0)
            EXPECT_GT(Part(l.tree).topRow, 0);
        else
            EXPECT_EQ(Part(l.tree).topRow, st.top);
        EXPECT_EQ(Of("selectionChanged"), Seen(XmCR_SINGLE_SELECT, XmTREE_PART_ROW, l.Current()));
        EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    }
    // The drop mark on the half shown last row brings it in whole.
    XmPrjTreeSetTopItem(l.tree, l.rows[39 - page]);
    ASSERT_EQ(Part(l.tree).topRow, 39 - page);
    XmPrjTreeHighlightNode(l.tree, l.rows[39]);
    EXPECT_EQ(Part(l.tree).topRow, 40 - page);
    EXPECT_EQ(XmPrjTreeGetHighlighted(l.tree), (XtPointer)40);
    XmPrjTreeUnhighlight(l.tree);
    // Making the current row current again leaves the page where it is.
    XmPrjTreeSetTopItem(l.tree, l.rows[20]);
    EXPECT_EQ(Part(l.tree).topRow, 20);
    calls.clear();
    XmPrjTreeSetNode(l.tree, l.rows[0]);
    EXPECT_EQ(Part(l.tree).topRow, 20);
    EXPECT_EQ(Count("selectionChanged"), 0);
    // Another row is brought in, centred, and announced.
    XmPrjTreeSetNode(l.tree, l.rows[5]);
    EXPECT_EQ(Part(l.tree).topRow, std::max(0, 5 - page / 2));
    ASSERT_EQ(Count("selectionChanged"), 1);
    EXPECT_EQ(Of("selectionChanged"),
              Seen(XmCR_TREE_SELECTION_CHANGED, XmTREE_PART_ROW, Last("selectionChanged").node));
    EXPECT_EQ(Last("selectionChanged").cellType, XmCELL_NONE);
    EXPECT_EQ(Last("selectionChanged").clientData, (XtPointer)6);
    // Without Ctrl, Right, End and Home move sideways in a label too long
    // for the list.
    XmPrjTreeAddSimpleItem(l.tree, "a label far too long for the width of this list, and more",
                           nullptr);
    XmPrjTreePart &t = Part(l.tree);
    EXPECT_EQ(t.xOrigin, 0);
    l.Key(XK_Right);
    EXPECT_EQ(t.xOrigin, t.fontWidth);
    l.Key(XK_End);
    int end = t.xOrigin;
    EXPECT_GT(end, (int)t.fontWidth);
    l.Key(XK_Right);
    EXPECT_EQ(t.xOrigin, end);
    l.Key(XK_Home);
    EXPECT_EQ(t.xOrigin, 0);
    EXPECT_EQ(l.Current(), l.rows[5]);
    // The wheel: half a page, then a row with Shift, a page with Ctrl.
    struct Turn { unsigned button, mods; int top; } turns[] = {
        {5, 0, page - page / 2}, {4, 0, 0}, {5, ShiftMask, 1}, {5, ControlMask, 1 + page},
    };
    for (const Turn &turn : turns) {
        l.Wheel(turn.button, turn.mods);
        EXPECT_EQ(t.topRow, turn.top) << turn.button << " " << turn.mods;
    }
    // The traversal codes of XmPrjTreeScroll: 2 a row down, 1 a row up.
    XmPrjTreeScroll(l.tree, 2);
    XmPrjTreeScroll(l.tree, 2);
    XmPrjTreeScroll(l.tree, 1);
    int x = -1, y = -1;
    XmPrjTreeGetOrigins(l.tree, &x, &y);
    EXPECT_EQ(y, 2 + page);
    EXPECT_EQ(x, 0);
    // Origins set from outside: -1 keeps one, the other moves.
    XmPrjTreeSetOrigins(l.tree, -1, 7);
    XmPrjTreeGetOrigins(l.tree, &x, &y);
    EXPECT_EQ(y, 7);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(xwktest::Get<int>(t.vScrollBar, XmNvalue), 7);
}

void FillOnOpen(Widget w, XtPointer, XtPointer call)
{
    auto *cbs = (XmPrjTreeCallbackStruct *)call;
    if (cbs->part == XmTREE_PART_INDENT && cbs->node)
        AddRow(w, cbs->node, "filled");
}

TEST(TreeKeys, SlamKeysOpenCloseAndFill)
{
    Live l(true, XmSINGLE_SELECT, 3);
    XmPrjTreeNode a1 = AddRow(l.tree, l.rows[0], "a1");
    XmPrjTreeNode a11 = AddRow(l.tree, a1, "a11");
    XmPrjTreeNode *r = l.rows.data();
    // Keys, and the current row and the rows shown after each.
    using Rows = std::vector<XmPrjTreeNode>;
    struct Step { KeySym key; unsigned mods; XmPrjTreeNode current; Rows shown; };
    const Step steps[] = {
        {XK_space, 0, r[0], {r[0], a1, r[1], r[2]}},
        {XK_Down, 0, a1, {r[0], a1, r[1], r[2]}},
        {XK_Down, ControlMask, a1, {r[0], a1, a11, r[1], r[2]}},
        // Ctrl-Up closes the open row; again, it climbs to the parent and
        // closes that.
        {XK_Up, ControlMask, a1, {r[0], a1, r[1], r[2]}},
        {XK_Up, ControlMask, r[0], {r[0], r[1], r[2]}},
        {XK_Down, ControlMask, r[0], {r[0], a1, r[1], r[2]}},
    };
    l.ClickRow(0);
    for (const Step &st : steps) {
        SCOPED_TRACE(XKeysymToString(st.key));
        l.Key(st.key, st.mods);
        EXPECT_EQ(l.Current(), st.current);
        Rows shown;
        for (XwkListNode *e = Part(l.tree).visibleList->first; e; e = e->next)
            shown.push_back((XmPrjTreeNode)e->data);
        EXPECT_EQ(shown, st.shown);
    }
    // The opened branch is on the screen: four rows, the fourth label
    // drawn, and nothing below it.
    xwktest::Settle();
    xwktest::Capture c(l.tree);
    Pixel fg = xwktest::PixelOf(l.tree, XmNforeground);
    int rh = Part(l.tree).rowHeight;
    EXPECT_GT(c.Count(fg, 0, l.RowTop(3), l.tree->core.width, rh), 0);
    EXPECT_EQ(c.Count(fg, 4, l.RowTop(4), l.tree->core.width - 8, rh), 0);
    // Opening a leaf lets the application fill it.
    XtAddCallback(l.tree, XmNactivateCallback, FillOnOpen, nullptr);
    l.ClickRow(2);
    calls.clear();
    l.Key(XK_Down, ControlMask);
    EXPECT_EQ(Last("activateCallback").part, XmTREE_PART_INDENT);
    EXPECT_EQ(XmPrjTreeGetState(l.tree, r[1]), XmSLAM_OPEN);
    EXPECT_EQ(l.Shown(), 5);
    // Return is the default action, which the callback hears; without a
    // callback of its own a double click toggles the row.
    calls.clear();
    l.Key(XK_Return);
    ASSERT_EQ(Count("defaultActionCallback"), 1);
    EXPECT_EQ(Of("defaultActionCallback"),
              Seen(Last("defaultActionCallback").reason, XmTREE_PART_LABEL, r[1]));
    XtRemoveAllCallbacks(l.tree, XmNdefaultActionCallback);
    XtRemoveAllCallbacks(l.tree, XmNactivateCallback);
    AddRow(l.tree, r[2], "kid");
    PastMultiClick(l.tree);
    l.ClickRow(4);
    l.ClickRow(4);
    EXPECT_EQ(XmPrjTreeGetState(l.tree, r[2]), XmSLAM_OPEN);
    EXPECT_EQ(l.Shown(), 6);
}

TEST(TreeKeys, StateIconPressSelectsAndToggles)
{
    Live l(true, XmSINGLE_SELECT, 3);
    AddRow(l.tree, l.rows[1], "b1");
    XmPrjTreePart &t = Part(l.tree);
    ASSERT_GT(t.stateIconWidth, 0);
    Dimension shadow = ((XmManagerWidget)l.tree)->manager.shadow_thickness;
    int x = t.hPad + t.stateIconWidth / 2 + shadow + t.treeMarginWidth + t.highlightThickness;
    l.ClickRow(1, 0, x);
    EXPECT_EQ(l.Current(), l.rows[1]);
    EXPECT_EQ(XmPrjTreeGetState(l.tree, l.rows[1]), XmSLAM_OPEN);
    EXPECT_EQ(Last("activateCallback").part, XmTREE_PART_STATE_ICON);
    EXPECT_EQ(l.Shown(), 4);
    // With item icons the state icon column of a top-level row counts as
    // the icon: the press selects and toggles nothing.
    XwkIcon *icon = xwktest::SolidIcon(l.tree, 16, 16, "#0000FF");
    ASSERT_NE(icon, nullptr);
    XmPrjTreeSetItemAttributes(l.tree, l.rows[2], icon, nullptr, nullptr, nullptr);
    XmPrjTreeNode c1 = AddRow(l.tree, l.rows[2], "c1");
    XmPrjTreeResizeWindow(l.tree, True);
    xwktest::Settle();
    ASSERT_EQ(t.iconWidth, 16);
    PastMultiClick(l.tree);
    calls.clear();
    l.ClickRow(3, 0, x);
    EXPECT_EQ(l.Current(), l.rows[2]);
    EXPECT_EQ(Last("activateCallback").part, XmTREE_PART_ICON);
    EXPECT_EQ(XmPrjTreeGetState(l.tree, l.rows[2]), XmSLAM_CLOSE);
    EXPECT_FALSE(XmPrjTreeItemVisible(l.tree, c1));
    XmPrjTreeSetItemAttributes(l.tree, l.rows[2], nullptr, nullptr, nullptr, nullptr);
    XwkIconFree(l.tree, icon);
}

TEST(TreeFocus, FocusCallbackAndDragStart)
{
    Live l(false);
    XtAddCallback(l.tree, XmNstartDragCallback, Record, (XtPointer) "startDragCallback");
    XtVaSetValues(l.tree, XmNinactiveBackground, xwktest::PixelOf(l.tree, XmNforeground), NULL);
    // Without a window manager the shell gets the keyboard by hand.
    XSetInputFocus(XtDisplay(l.shell), XtWindow(l.shell), RevertToParent, CurrentTime);
    xwktest::Pump(50);
    l.ClickRow(2);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Count("focusCallback") > 0; }));
    EXPECT_EQ(Last("focusCallback").reason, XmCR_FOCUS);
    EXPECT_EQ(Last("focusCallback").part, 1);
    EXPECT_TRUE(Part(l.tree).hasFocus);
    // The current row shows the location cursor in the highlight colour,
    // and is filled with the active background.
    XmPrjTreePart &t = Part(l.tree);
    Pixel highlight = xwktest::PixelOf(l.tree, XmNhighlightColor);
    Pixel background = xwktest::PixelOf(l.tree, XmNbackground);
    int width = l.tree->core.width, rh = t.rowHeight;
    ASSERT_NE(t.activeBackground, t.inactiveBackground);
    EXPECT_EQ(RowFill(l.tree, 2), t.activeBackground);
    EXPECT_EQ(RowFill(l.tree, 3), background);
    EXPECT_GT(xwktest::Capture(l.tree).Count(highlight, 0, l.RowTop(2), width, rh), 20);
    // Focus elsewhere: the fill turns to the inactive background, the
    // location cursor goes, and the list says so.
    XtAddCallback(l.tree, XmNlosingFocusCallback, Record, (XtPointer) "losingFocusCallback");
    XSetInputFocus(XtDisplay(l.shell), None, RevertToNone, CurrentTime);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Count("losingFocusCallback") > 0; }));
    EXPECT_EQ(Of("losingFocusCallback"), Seen(XmCR_LOSING_FOCUS, 1, l.rows[2]));
    EXPECT_FALSE(t.hasFocus);
    EXPECT_EQ(RowFill(l.tree, 2), t.inactiveBackground);
    XSetInputFocus(XtDisplay(l.shell), XtWindow(l.shell), RevertToParent, CurrentTime);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return t.hasFocus; }));
    // Button 2 starts a drag on the row under the pointer.
    xwktest::Click(l.tree, 60, l.RowMiddle(5), 2);
    xwktest::Pump(80);
    ASSERT_EQ(Count("startDragCallback"), 1);
    EXPECT_EQ(Of("startDragCallback"), Seen(XmCR_TREE_START_DRAG, XmTREE_PART_LABEL, l.rows[5]));
    // The location cursor follows the keys: off the old row, on the new.
    l.Key(XK_Down);
    ASSERT_EQ(l.Current(), l.rows[3]);
    EXPECT_EQ(RowFill(l.tree, 3), t.activeBackground);
    EXPECT_EQ(RowFill(l.tree, 2), background);
    // Right of the short labels, where only the frame can be, and inside
    // the widget's own focus border.
    xwktest::Capture c(l.tree);
    EXPECT_EQ(c.Count(highlight, 60, l.RowTop(2) + 1, width - 72, rh - 2), 0);
    EXPECT_GT(c.Count(highlight, 60, l.RowTop(3), width - 72, rh), 20);
}

TEST(TreePointer, DraggingBelowTheWindowScrolls)
{
    // Plain in single selection the current row follows the pointer; with
    // Ctrl in multiple selection each row passed is toggled as well.
    for (bool ctrl : {false, true}) {
        SCOPED_TRACE(ctrl ? "Ctrl, multiple selection" : "single selection");
        Live l(false, ctrl ? XmMULTIPLE_SELECT : XmSINGLE_SELECT, 60);
        XmPrjTreePart &t = Part(l.tree);
        unsigned mods = ctrl ? ControlMask : 0;
        l.ClickRow(1);
        PastMultiClick(l.tree);
        calls.clear();
        xwktest::HoldModifiers(XtDisplay(l.tree), mods, true);
        xwktest::Press(l.tree, 40, l.RowMiddle(3));
        xwktest::MoveTo(l.tree, 40, l.RowMiddle(4));
        EXPECT_EQ(l.Current(), l.rows[4]);
        EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), ctrl ? 3 : 1);
        xwktest::MoveTo(l.tree, 40, l.tree->core.height + 30, 0);
        bool scrolled = xwktest::PumpUntil([&] { return t.topRow > 3; }, 4000);
        xwktest::Release(l.tree, 1, 0);
        xwktest::HoldModifiers(XtDisplay(l.tree), mods, false);
        xwktest::Pump(100);
        ASSERT_TRUE(scrolled);
        int last = XmPrjTreeGetNodeNumber(l.tree, l.Current()) - 1;
        EXPECT_GE(last, t.topRow);
        // Released: the timer is gone and nothing moves any more.
        int top = t.topRow;
        xwktest::Pump(300);
        EXPECT_EQ(t.topRow, top);
        if (!ctrl) {
            EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
            continue;
        }
        // Every row the pointer passed on its way down stays selected,
        // with one call a row toggled: the press, the moves after it.
        ASSERT_GT(last, 5);
        int n = XmPrjTreeGetSelectedItemCount(l.tree);
        EXPECT_EQ(n, last - 1);
        EXPECT_EQ(Count("multipleSelectionCallback"), n - 1);
    }
}

TEST(TreeCallbacks, InputSurvivesCallbacksThatDeleteRows)
{
    Live l(true, XmSINGLE_SELECT, 6);
    AddRow(l.tree, l.rows[0], "k1");
    AddRow(l.tree, l.rows[0], "k2");
    XmPrjTreeChangeState(l.tree, l.rows[0], XmSLAM_OPEN);
    xwktest::Settle();
    ASSERT_EQ(l.Shown(), 8);
    // A press whose activate callback deletes the pressed row's parent:
    // the branch goes with the row that would have followed it as current,
    // and the press itself raises nothing more.
    PastMultiClick(l.tree);
    Arm("activateCallback", DropParent);
    calls.clear();
    l.ClickRow(2);
    EXPECT_EQ(l.Shown(), 5);
    EXPECT_EQ(l.Current(), nullptr);
    ASSERT_EQ(Count("selectionChanged"), 1);
    EXPECT_EQ(Last("selectionChanged").reason, XmCR_TREE_SELECTION_CHANGED);
    // The list still answers the pointer.
    l.ClickRow(0);
    EXPECT_EQ(l.Current(), l.rows[1]);
    // A key whose selection callback empties the list.
    Arm("selectionChanged", DropAll);
    l.Key(XK_Down);
    EXPECT_EQ(l.Shown(), 0);
    EXPECT_EQ(l.Current(), nullptr);
    l.Key(XK_Down);
    l.Key(XK_space);
    l.ClickRow(0);
    EXPECT_EQ(l.Current(), nullptr);
    // Rows again; a double click whose default action deletes its row.
    for (const char *name : {"x0", "x1", "x2"})
        AddRow(l.tree, nullptr, name);
    xwktest::Settle();
    PastMultiClick(l.tree);
    l.ClickRow(1);
    Arm("defaultActionCallback", XmPrjTreeDeleteItem);
    l.ClickRow(1);
    EXPECT_EQ(l.Shown(), 2);
    XmPrjTreeNode first = XmPrjTreeGetFirstNode(l.tree);
    EXPECT_EQ(l.Current(), first);
    // Opening a leaf from the keyboard, where the application deletes it
    // instead of filling it.
    PastMultiClick(l.tree);
    l.ClickRow(1);
    ASSERT_NE(l.Current(), nullptr);
    Arm("activateCallback", XmPrjTreeDeleteItem);
    l.Key(XK_Down, ControlMask);
    EXPECT_EQ(l.Shown(), 1);
    EXPECT_EQ(l.Current(), first);
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    // Ctrl-Up on a leaf climbs to its parent, whose selection callback
    // deletes that parent: the climb ends there.
    XmPrjTreeNode p = AddRow(l.tree, nullptr, "p", XmSLAM_OPEN);
    AddRow(l.tree, p, "c");
    xwktest::Settle();
    ASSERT_EQ(l.Shown(), 3);
    PastMultiClick(l.tree);
    l.ClickRow(2);
    Arm("selectionChanged", XmPrjTreeDeleteItem);
    l.Key(XK_Up, ControlMask);
    EXPECT_EQ(l.Shown(), 1);
    EXPECT_EQ(l.Current(), first);
}

TEST(TreeCallbacks, RangeAndDragSurviveCallbacksThatDeleteRows)
{
    Live l(true, XmMULTIPLE_SELECT, 6);
    l.ClickRow(0);
    // The range walk stops at the callback that deleted a row.
    Arm("multipleSelectionCallback", XmPrjTreeDeleteItem);
    calls.clear();
    l.ClickRow(4, ShiftMask);
    EXPECT_EQ(l.Shown(), 5);
    EXPECT_EQ(Count("multipleSelectionCallback"), 1);
    EXPECT_LE(XmPrjTreeGetSelectedItemCount(l.tree), 5);
    // A drag whose selection callback deletes the row it reached.
    PastMultiClick(l.tree);
    xwktest::Press(l.tree, 40, l.RowMiddle(0));
    Arm("selectionChanged", XmPrjTreeDeleteItem);
    xwktest::MoveTo(l.tree, 40, l.RowMiddle(2));
    xwktest::MoveTo(l.tree, 40, l.RowMiddle(3));
    xwktest::Release(l.tree, 1, 80);
    EXPECT_EQ(l.Shown(), 4);
    EXPECT_NE(l.Current(), nullptr);
    EXPECT_GE(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    EXPECT_LE(XmPrjTreeGetSelectedItemCount(l.tree), 4);
}

TEST(TreeKeys, SlamKeysWorkInAListWithoutSlam)
{
    Live l(false, XmSINGLE_SELECT, 3);
    XmPrjTreeNode kid = AddRow(l.tree, l.rows[0], "kid");
    xwktest::Settle();
    // The whole tree is shown: rows[0], kid, rows[1], rows[2].
    l.ClickRow(1);
    ASSERT_EQ(l.Current(), kid);
    calls.clear();
    // Ctrl-Up on a leaf climbs to its parent.
    l.Key(XK_Up, ControlMask);
    EXPECT_EQ(l.Current(), l.rows[0]);
    EXPECT_EQ(Of("selectionChanged"), Seen(XmCR_SINGLE_SELECT, XmTREE_PART_LABEL, l.rows[0]));
    EXPECT_EQ(XmPrjTreeGetSelectedItemCount(l.tree), 1);
    // Ctrl-Down on a leaf asks the application to fill it.
    PastMultiClick(l.tree);
    l.ClickRow(3);
    calls.clear();
    l.Key(XK_Down, ControlMask);
    EXPECT_EQ(Of("activateCallback"),
              Seen(Last("activateCallback").reason, XmTREE_PART_INDENT, l.rows[2]));
    EXPECT_EQ(Last("activateCallback").cellType, XmCELL_NONE);
}

TEST(TreePointer, ButtonOneDragWaitsForTheMultiClickTimeOrAMove)
{
    Live l(false, XmSINGLE_SELECT, 10);
    XtAddCallback(l.tree, XmNstartDragCallback, Record, (XtPointer) "startDragCallback");
    Widget display = XmGetXmDisplay(XtDisplay(l.tree));
    XtVaSetValues(display, XmNenableBtn1Transfer, XmBUTTON2_TRANSFER, NULL);
    l.ClickRow(2);
    ASSERT_EQ(l.Current(), l.rows[2]);
    PastMultiClick(l.tree);
    int x = 40, y = l.RowMiddle(2);
    // A press on the current row's label waits: 3 pixels sideways are no
    // drag, 4 are.
    calls.clear();
    xwktest::Press(l.tree, x, y, 1, 30);
    xwktest::MoveTo(l.tree, x + 3, y, 30);
    EXPECT_EQ(Count("startDragCallback"), 0);
    EXPECT_EQ(Count("activateCallback"), 0);
    xwktest::MoveTo(l.tree, x + 4, y, 30);
    ASSERT_EQ(Count("startDragCallback"), 1);
    EXPECT_EQ(Of("startDragCallback"), Seen(XmCR_TREE_START_DRAG, XmTREE_PART_LABEL, l.rows[2]));
    xwktest::Release(l.tree);
    // A quick click runs the waiting press, then the release.
    PastMultiClick(l.tree);
    calls.clear();
    l.ClickRow(2);
    EXPECT_EQ(Count("startDragCallback"), 0);
    EXPECT_EQ(Count("activateCallback"), 1);
    EXPECT_EQ(Part(l.tree).buttonState, 0);
    // Held past the multi-click time, the press becomes a drag by itself.
    PastMultiClick(l.tree);
    calls.clear();
    xwktest::Press(l.tree, x, y, 1, 0);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return Count("startDragCallback") == 1; }));
    xwktest::Release(l.tree);
    // A press on another row selects at once.
    calls.clear();
    l.ClickRow(5);
    EXPECT_EQ(l.Current(), l.rows[5]);
    EXPECT_EQ(Count("startDragCallback"), 0);
    XtVaSetValues(display, XmNenableBtn1Transfer, XmOFF, NULL);
}

// Last in the file: it leaves the keyboard focus to a window that goes.
TEST(TreeTraversal, TabAndShiftTabMoveBetweenGroups)
{
    // Two lists, then a group of buttons: three tab groups.
    Widget shell = xwktest::Shell("tabs", 300, 240);
    Widget box = XtVaCreateManagedWidget("box", xmRowColumnWidgetClass, shell, NULL);
    Widget tree = treetest::Create(box, "list", {{XmNvisibleLines, 5}});
    Widget second = treetest::Create(box, "second", {{XmNvisibleLines, 2}});
    XmPrjTreeAddSimpleItem(tree, (char *)"row", nullptr);
    XmPrjTreeAddSimpleItem(second, (char *)"other", nullptr);
    XtManageChild(second);
    Widget group = XtVaCreateManagedWidget("group", xmFormWidgetClass, box, NULL);
    XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, group, NULL);
    xwktest::Show(tree, shell, 0);
    XSetInputFocus(XtDisplay(shell), XtWindow(shell), RevertToParent, CurrentTime);
    xwktest::Pump(100);
    xwktest::Click(tree, 40, 10);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Part(tree).hasFocus; }));
    xwktest::PressKey(XtDisplay(tree), XK_Tab);
    xwktest::PumpUntil([&] { return XmGetFocusWidget(tree) != tree; });
    EXPECT_EQ(XmGetFocusWidget(tree), second);
    // Shift-Tab comes back.
    xwktest::PressKey(XtDisplay(tree), XK_Tab, ShiftMask);
    xwktest::PumpUntil([&] { return XmGetFocusWidget(tree) == tree; });
    EXPECT_EQ(XmGetFocusWidget(tree), tree);
    XtDestroyWidget(shell);
    xwktest::Settle();
}

}  // namespace
