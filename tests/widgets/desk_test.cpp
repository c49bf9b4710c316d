// The desk list on a real server: grid placement, centred labels and the
// selected look read back from the screen; clicks, Ctrl clicks, the rubber
// band, keys, the wheel and the drag gesture through XTest; sorting,
// wrapping, the lists and clones through the public operations.
#include "xwktest.h"

#include <Xwk/PrjDeskP.h>
#include <Xm/Display.h>
#include <Xm/ScrollBar.h>

namespace {

struct Call {
    std::string list;
    XmPrjDeskCallbackStruct data;
    std::vector<int> positions;
};
std::vector<Call> calls;

void Record(Widget, XtPointer closure, XtPointer call)
{
    auto *cbs = (XmPrjDeskCallbackStruct *)call;
    Call c{(const char *)closure, *cbs, {}};
    for (int i = 0; cbs->selectedPositions && i < cbs->selectedCount; i++)
        c.positions.push_back(cbs->selectedPositions[i]);
    calls.push_back(c);
}

const Call *Last(const std::string &list)
{
    for (auto it = calls.rbegin(); it != calls.rend(); ++it)
        if (it->list == list)
            return &*it;
    return nullptr;
}

XmPrjDeskPart &Part(Widget w)
{
    return ((XmPrjDeskWidget)w)->desk;
}

int Inset(Widget w, bool across)
{
    auto *pw = (XmPrimitiveWidget)w;
    return pw->primitive.shadow_thickness + pw->primitive.highlight_thickness +
           (across ? Part(w).marginWidth : Part(w).marginHeight);
}

struct Desk {
    Widget shell, desk;
    XwkIcon *icon = nullptr;
    std::vector<XmPrjDeskNode> items;
    Desk(int n, unsigned char policy = XmSINGLE_SELECT, int width = 360, int height = 260,
         bool with_icons = true)
    {
        shell = xwktest::Shell("desk", width, height);
        Arg args[1];
        XtSetArg(args[0], XmNselectionPolicy, policy);
        desk = XmCreateScrolledDeskList(shell, (String) "icons", args, 1);
        if (with_icons)
            icon = xwktest::SolidIcon(desk, 16, 16, "#FF0000");
        for (const char *name :
             {"selectionChanged", "singleSelectionCallback", "multipleSelectionCallback",
              "defaultActionCallback", "startDragCallback", "focusCallback"})
            XtAddCallback(desk, name, Record, (XtPointer)name);
        XmPrjDeskSetEditable(desk, False);
        for (int i = 0; i < n; i++) {
            char label[32];
            snprintf(label, sizeof label, "item %03d", i);
            items.push_back(XmPrjDeskAddItem(desk, label, icon, (XtPointer)(long)(i + 1)));
        }
        XmPrjDeskSetEditable(desk, True);
        xwktest::Show(desk, shell);
        calls.clear();
    }
    ~Desk()
    {
        XtDestroyWidget(shell);
        if (icon)
            XwkIconFree(nullptr, icon);
        xwktest::Settle();
    }
    // Centre of the label of the item at a position, in the window.
    void LabelCentre(int index, int *x, int *y)
    {
        XmPrjDeskPart &d = Part(desk);
        int col = index % d.columns, row = index / d.columns - d.topRow;
        auto *pw = (XmPrimitiveWidget)desk;
        int ht = pw->primitive.highlight_thickness;
        int icon_box = d.maxIconHeight + 2 * (pw->primitive.shadow_thickness + d.hIconPad);
        auto item = (XmPrjDeskItem)NodeData(index);
        *x = Inset(desk, true) + col * d.cellWidth + (d.cellWidth - d.hPad) / 2;
        *y = Inset(desk, false) + row * d.cellHeight + icon_box + d.vFontPad + ht +
             item->labelHeight / 2;
    }
    XtPointer NodeData(int index)
    {
        XmPrjDeskNode *ids = nullptr;
        int n = XmPrjDeskGetIdList(desk, &ids);
        XtPointer data = index < n ? ids[index]->data : nullptr;
        XtFree((char *)ids);
        return data;
    }
    int CurrentIndex()
    {
        XmPrjDeskNode node = XmPrjDeskGetSelectedItem(desk);
        return node ? node->index : -1;
    }
    void ClickItem(int index, unsigned mods = 0, unsigned button = 1)
    {
        int x, y;
        LabelCentre(index, &x, &y);
        xwktest::ClickWith(desk, x, y, mods, button);
        xwktest::Pump(60);
    }
    int SelectedCount() { return XmPrjDeskGetSelectedItemCount(desk); }
    bool IsSelected(int index)
    {
        return ((XmPrjDeskItem)NodeData(index))->flags & XmDESK_ITEM_SELECTED;
    }
    // Positions of the selected items among the first n.
    std::vector<int> Selected(int n)
    {
        std::vector<int> out;
        for (int i = 0; i < n; i++)
            if (IsSelected(i))
                out.push_back(i);
        return out;
    }
    void Key(KeySym sym, unsigned mods = 0)
    {
        xwktest::PressKey(XtDisplay(desk), sym, mods);
        xwktest::Pump(60);
    }
};

TEST(DeskGrid, CellsLabelsSelectedLookAndHitTest)
{
    Desk s(14);
    XmPrjDeskPart &d = Part(s.desk);
    ASSERT_LT(2 * d.columns, 14);  // two full rows and a part of a third
    auto *pw = (XmPrimitiveWidget)s.desk;
    int shadow = pw->primitive.shadow_thickness, ht = pw->primitive.highlight_thickness;
    // The widest label decides the width; labels are measured as Motif does.
    Dimension lw = 0, lh = 0;
    XmString widest = XmStringCreateLocalized((char *)"item 000");
    XmStringExtent(d.fontList, widest, &lw, &lh);
    XmStringFree(widest);
    EXPECT_EQ(d.cellWidth, 2 * ht + std::max<int>(lw, 16 + 2 * (shadow + d.hIconPad)) + d.hPad);
    EXPECT_EQ(d.cellHeight, 2 * (shadow + ht + d.hIconPad) + 16 + lh + d.vFontPad + d.vPad);
    int room = s.desk->core.width - 2 * Inset(s.desk, true) - d.hPad;
    EXPECT_EQ(d.columns, std::max(1, room / (int)d.cellWidth));
    EXPECT_EQ(d.totalRows, (14 + d.columns - 1) / d.columns);

    xwktest::Capture cap(s.desk);
    ASSERT_TRUE(cap.ok());
    Pixel red = 0xff0000, fg = xwktest::PixelOf(s.desk, XmNforeground);
    // Every icon of the first two rows sits centred over its label.
    for (int i = 0; i < 2 * d.columns; i++) {
        int col = i % d.columns, row = i / d.columns;
        int centre = Inset(s.desk, true) + col * d.cellWidth + (d.cellWidth - d.hPad) / 2;
        int icon_top = Inset(s.desk, false) + row * d.cellHeight + shadow + d.hIconPad;
        EXPECT_EQ(cap.Pixel(centre, icon_top + 8), red) << i;
        EXPECT_EQ(cap.Count(red, centre - 12, icon_top, 24, 16), 16 * 16) << i;
        int lx, ly;
        s.LabelCentre(i, &lx, &ly);
        int left = -1, right = -1;
        for (int x = centre - d.cellWidth / 2; x <= centre + d.cellWidth / 2; x++)
            if (cap.Count(fg, x, ly - lh / 2, 1, lh)) {
                if (left < 0)
                    left = x;
                right = x;
            }
        ASSERT_GE(left, 0) << i;
        EXPECT_LE(std::abs((left + right) / 2 - centre), 2) << i;
    }

    // The selected label is filled, the others are not.
    s.ClickItem(4);
    EXPECT_EQ(s.CurrentIndex(), 4);
    xwktest::Capture selected(s.desk);
    Pixel fill = d.hasFocus ? d.activeBackground : d.inactiveBackground;
    int x, y;
    s.LabelCentre(4, &x, &y);
    EXPECT_GT(selected.Count(fill, x - 20, y - 3, 40, 6), 60);
    s.LabelCentre(5, &x, &y);
    EXPECT_EQ(selected.Count(fill, x - 20, y - 3, 40, 6), 0);
    // The gap between two cells and the point past the last item hit nothing.
    int gap_x = Inset(s.desk, true) + d.cellWidth - 1;
    EXPECT_EQ(XmPrjDeskWhichItem(s.desk, gap_x, y), nullptr);
    s.LabelCentre(5, &x, &y);
    EXPECT_EQ(XmPrjDeskWhichItem(s.desk, x, y), (XtPointer)6L);
    // The drop-target frame outlines icon and label in the highlight colour.
    Pixel frame = ((XmPrimitiveWidget)s.desk)->primitive.highlight_color;
    int cx = Inset(s.desk, true) + (6 % d.columns) * d.cellWidth;
    int cy = Inset(s.desk, false) + (6 / d.columns) * d.cellHeight;
    auto framed = [&] {
        xwktest::Settle();
        xwktest::Capture c(s.desk);
        return c.Count(frame, cx - 2, cy - 2, d.cellWidth + 2, d.cellHeight + 2);
    };
    int before = framed();
    XmPrjDeskHighlight(s.desk, (XmPrjDeskNode)s.items[6]);
    EXPECT_GT(framed(), before + 40);
    XmPrjDeskUnhighlight(s.desk);
    EXPECT_EQ(framed(), before);
    int px = Inset(s.desk, true) + (14 % d.columns) * d.cellWidth + d.cellWidth / 2;
    int py = Inset(s.desk, false) + (14 / d.columns) * d.cellHeight + 10;
    EXPECT_EQ(XmPrjDeskWhichItem(s.desk, px, py), nullptr);
}

TEST(DeskInput, ClicksTogglesAndDoubleClick)
{
    struct Case {
        unsigned char policy;
        std::vector<std::pair<int, unsigned>> clicks;  // item, modifiers
        std::vector<int> selected;
        int current;
        const char *list;
        int reason;
    } cases[] = {
        {XmSINGLE_SELECT, {{3, 0}}, {3}, 3, "singleSelectionCallback", XmCR_SINGLE_SELECT},
        {XmSINGLE_SELECT, {{3, 0}, {5, 0}}, {5}, 5, "singleSelectionCallback", XmCR_SINGLE_SELECT},
        {XmMULTIPLE_SELECT, {{1, 0}, {4, ControlMask}}, {1, 4}, 1, "multipleSelectionCallback",
         XmCR_MULTIPLE_SELECT},
        {XmMULTIPLE_SELECT, {{1, 0}, {4, ControlMask}, {1, ControlMask}}, {4}, 1,
         "multipleSelectionCallback", XmCR_MULTIPLE_SELECT},
        // Shift has no binding of its own: the press changes nothing.
        {XmSINGLE_SELECT, {{2, 0}, {6, ShiftMask}}, {2}, 2, "singleSelectionCallback",
         XmCR_SINGLE_SELECT},
    };
    for (auto &c : cases) {
        Desk s(16, c.policy);
        for (auto &click : c.clicks) {
            s.ClickItem(click.first, click.second);
            xwktest::PastMultiClick(s.desk);
        }
        EXPECT_EQ(s.Selected(16), c.selected) << c.policy << " " << c.clicks.size();
        EXPECT_EQ(s.SelectedCount(), (int)c.selected.size());
        EXPECT_EQ(s.CurrentIndex(), c.current);
        const Call *call = Last(c.list);
        ASSERT_NE(call, nullptr);
        EXPECT_EQ(call->data.reason, c.reason);
        if (c.policy == XmMULTIPLE_SELECT) {
            std::vector<int> positions;
            for (int i : c.selected)
                positions.push_back(i + 1);
            EXPECT_EQ(call->positions, positions);
        }
    }
    Desk s(8);
    s.ClickItem(2);
    s.ClickItem(2);
    const Call *dflt = Last("defaultActionCallback");
    ASSERT_NE(dflt, nullptr);
    EXPECT_EQ(dflt->data.reason, XmCR_DEFAULT_ACTION);
    EXPECT_EQ(dflt->data.position, 3);
    EXPECT_EQ(std::string(dflt->data.label), "item 002");
    // A double click on two items gives no default action.
    xwktest::PastMultiClick(s.desk);
    calls.clear();
    s.ClickItem(3);
    s.ClickItem(4);
    EXPECT_EQ(Last("defaultActionCallback"), nullptr);
    s.Key(XK_Return);
    ASSERT_NE(Last("defaultActionCallback"), nullptr);
    EXPECT_EQ(Last("defaultActionCallback")->data.position, 5);
}

TEST(DeskInput, RubberBandSelectsTouchedItemsAndScrollsWhileOutside)
{
    Desk s(300, XmMULTIPLE_SELECT);
    XmPrjDeskPart &d = Part(s.desk);
    ASSERT_GE(d.columns, 3);
    // From the gap left of the first icon to the label of row 2, column 2.
    int x0 = Inset(s.desk, true) - 1, y0 = Inset(s.desk, false) + 2, x1, y1;
    s.LabelCentre(d.columns + 1, &x1, &y1);
    xwktest::Press(s.desk, x0, y0, 1, 30);
    for (int step = 1; step <= 4; step++)
        xwktest::MoveTo(s.desk, x0 + (x1 - x0) * step / 4, y0 + (y1 - y0) * step / 4, 30);
    xwktest::Release(s.desk, 1, 60);
    EXPECT_EQ(s.Selected(300), (std::vector<int>{0, 1, d.columns, d.columns + 1}));
    EXPECT_EQ(s.SelectedCount(), 4);
    ASSERT_NE(Last("multipleSelectionCallback"), nullptr);
    // The band leaves nothing drawn behind it.
    xwktest::Capture cap(s.desk);
    Pixel bg = xwktest::PixelOf(s.desk, XmNbackground);
    int gx = Inset(s.desk, true) + 2 * d.cellWidth + 2;
    EXPECT_EQ(cap.Count(bg, gx, Inset(s.desk, false), 1, 2 * d.cellHeight), 2 * d.cellHeight);

    // Out below the desk the band scrolls it, and reaches the rows scrolled in.
    xwktest::PastMultiClick(s.desk);
    xwktest::Press(s.desk, x0, y0, 1, 30);
    // The band is anchored where the first motion finds the pointer.
    xwktest::MoveTo(s.desk, x0 + 1, y0 + 1, 30);
    xwktest::MoveTo(s.desk, 40, s.desk->core.height / 2, 30);
    xwktest::MoveTo(s.desk, 40, s.desk->core.height + 30, 0);
    xwktest::PumpUntil([&] { return d.topRow >= 3; }, 3000);
    xwktest::Release(s.desk, 1, 60);
    EXPECT_GE(d.topRow, 3);
    EXPECT_EQ(xwktest::Get<int>(d.scrollBar, XmNvalue), d.topRow);
    EXPECT_TRUE(s.IsSelected(0));
    EXPECT_TRUE(s.IsSelected((d.topRow + d.visibleRows - 1) * d.columns));
    EXPECT_EQ(d.autoScrollTimer, 0u);
}

TEST(DeskInput, KeysAndWheelScrollByRows)
{
    Desk s(200);
    XmPrjDeskPart &d = Part(s.desk);
    ASSERT_GT(d.totalRows, d.visibleRows);
    // The scrolled window places the bar beside the desk, not over it.
    ASSERT_TRUE(XtIsManaged(d.scrollBar));
    EXPECT_GE(d.scrollBar->core.x, s.desk->core.x + (int)s.desk->core.width);
    s.ClickItem(0);
    struct Step {
        KeySym key;
        unsigned mods;
        int current;  // -1: the last item
    } steps[] = {
        {XK_Right, 0, 1}, {XK_Down, 0, 1 + d.columns}, {XK_Left, 0, d.columns},
        {XK_Up, 0, 0},    {XK_Up, 0, 0},               {XK_End, ControlMask, 199},
        {XK_Home, 0, 199}, {XK_Home, ControlMask, 0},
    };
    for (auto &st : steps) {
        s.Key(st.key, st.mods);
        EXPECT_EQ(s.CurrentIndex(), st.current) << XKeysymToString(st.key);
        EXPECT_EQ(s.SelectedCount(), 1);
        int row = st.current / d.columns;
        EXPECT_TRUE(row >= d.topRow && row < d.topRow + d.visibleRows);
    }
    EXPECT_EQ(d.topRow, 0);
    s.Key(XK_Page_Down);
    int step = d.visibleRows > 1 ? d.visibleRows - 1 : 1;
    EXPECT_EQ(d.topRow, step);
    EXPECT_EQ(s.CurrentIndex(), step * d.columns);
    EXPECT_EQ(xwktest::Get<int>(d.scrollBar, XmNvalue), d.topRow);
    // A plain wheel click moves half a page, with Shift one row.
    int top = d.topRow, page = xwktest::Get<int>(d.scrollBar, XmNpageIncrement);
    xwktest::Press(s.desk, 5, 5, 5, 0);
    xwktest::Release(s.desk, 5, 80);
    EXPECT_EQ(d.topRow, top + page - page / 2);
    xwktest::Press(s.desk, 5, 5, 4, 0);
    xwktest::Release(s.desk, 4, 80);
    EXPECT_EQ(d.topRow, top);
    // The rows shown after a scroll are painted: the icon of the top row.
    xwktest::Capture cap(s.desk);
    int icon_top = Inset(s.desk, false) + ((XmPrimitiveWidget)s.desk)->primitive.shadow_thickness +
                   d.hIconPad;
    int centre = Inset(s.desk, true) + (d.cellWidth - d.hPad) / 2;
    EXPECT_EQ(cap.Pixel(centre, icon_top + 8), 0xff0000UL);
}

TEST(DeskInput, DragGestureStartsWithReason5046)
{
    Desk s(10);
    Widget xmdisplay = XmGetXmDisplay(XtDisplay(s.desk));
    struct Case {
        unsigned char transfer;
        unsigned button;
        int move;
        bool drag;
    } cases[] = {
        {XmBUTTON2_ADJUST, 1, 10, true},  {XmBUTTON2_ADJUST, 1, 3, false},
        {XmBUTTON2_TRANSFER, 1, 10, true}, {XmOFF, 1, 10, false},
        {XmOFF, 2, 0, true},
    };
    for (auto &c : cases) {
        XtVaSetValues(xmdisplay, XmNenableBtn1Transfer, c.transfer, NULL);
        s.ClickItem(2);
        xwktest::PastMultiClick(s.desk);
        calls.clear();
        int x, y;
        s.LabelCentre(2, &x, &y);
        // Held no longer than the multi-click time, so only motion drags.
        xwktest::Press(s.desk, x, y, c.button, 20);
        xwktest::MoveTo(s.desk, x + c.move, y, 20);
        xwktest::Release(s.desk, c.button, 60);
        const Call *drag = Last("startDragCallback");
        EXPECT_EQ(drag != nullptr, c.drag) << (int)c.transfer << " " << c.move;
        if (drag) {
            EXPECT_EQ(drag->data.reason, XmCR_TREE_START_DRAG);
            EXPECT_EQ(drag->data.position, 3);
        }
    }
    XtVaSetValues(xmdisplay, XmNenableBtn1Transfer, XmOFF, NULL);
}

int ByLabelLength(const void *a, const void *b)
{
    auto x = (XmPrjDeskItem)(*(XwkListNode *const *)a)->data;
    auto y = (XmPrjDeskItem)(*(XwkListNode *const *)b)->data;
    return (int)strlen(x->label) - (int)strlen(y->label);
}

TEST(DeskItems, SortingWrappingListsAndDeletion)
{
    Desk s(0);
    XmPrjDeskNode pear = XmPrjDeskAddItem(s.desk, (char *)"pear", nullptr, (XtPointer)1);
    XmPrjDeskNode apple = XmPrjDeskAddItem(s.desk, (char *)"apple", nullptr, (XtPointer)2);
    XmPrjDeskNode fig = XmPrjDeskAddItem(s.desk, (char *)"fig", nullptr, (XtPointer)3);
    char **labels = nullptr;
    ASSERT_EQ(XmPrjDeskGetLabelList(s.desk, &labels), 3);
    EXPECT_STREQ(labels[0], "apple");
    EXPECT_STREQ(labels[2], "pear");
    EXPECT_EQ(labels[3], nullptr);
    XtFree((char *)labels);
    EXPECT_EQ(apple->index, 0);
    EXPECT_EQ(pear->index, 2);
    XmPrjDeskRenameItem(s.desk, (char *)"banana", nullptr, pear);
    EXPECT_EQ(pear->index, 1);
    // A rename sorts even while the desk is frozen.
    XmPrjDeskSetEditable(s.desk, False);
    XmPrjDeskRenameItem(s.desk, (char *)"aaa", nullptr, pear);
    EXPECT_EQ(pear->index, 0);
    XmPrjDeskRenameItem(s.desk, (char *)"banana", nullptr, pear);
    XmPrjDeskSetEditable(s.desk, True);
    XtVaSetValues(s.desk, XmNsortProc, ByLabelLength, NULL);
    XmPrjDeskSortItems(s.desk);
    EXPECT_EQ(fig->index, 0);
    EXPECT_EQ(XmPrjDeskGetClientDataFromItem(fig), (XtPointer)3);

    // Wrapping at maxChars: a label of exactly maxChars stays on one line.
    XmPrjDeskPart &d = Part(s.desk);
    Dimension w1 = 0, h1 = 0;
    XmString one = XmStringCreateLocalized((char *)"abcdefghijkl");
    XmStringExtent(d.fontList, one, &w1, &h1);
    XmStringFree(one);
    XmPrjDeskNode exact = XmPrjDeskAddItem(s.desk, (char *)"abcdefghijkl", nullptr, nullptr);
    XmPrjDeskNode longer = XmPrjDeskAddItem(s.desk, (char *)"abcdefghijklmnopqrstuvwxyz0123",
                                            nullptr, nullptr);
    XmPrjDeskNode tail = XmPrjDeskAddItem(s.desk, (char *)"abcdefghijklmno", nullptr, nullptr);
    XmPrjDeskNode four = XmPrjDeskAddItem(s.desk, (char *)"abcdefghijklmnop", nullptr, nullptr);
    auto item = [](XmPrjDeskNode n) { return (XmPrjDeskItem)n->data; };
    EXPECT_EQ(item(exact)->labelHeight, h1);
    EXPECT_EQ(item(tail)->labelHeight, h1);  // 3 past the limit: no break
    EXPECT_EQ(item(four)->labelHeight, 2 * h1);
    EXPECT_EQ(item(longer)->labelHeight, 3 * h1);
    // A break comes once more than maxChars characters have gone.
    Dimension sw = 0, sh = 0;
    XmString drawn = XmStringCreateLtoR((char *)"abcdefghijklm\nnopqrstuvwxyz\n0123",
                                        (char *)XmSTRING_DEFAULT_CHARSET);
    XmStringExtent(d.fontList, drawn, &sw, &sh);
    xwktest::Pump(60);
    ASSERT_NE(item(longer)->labelString, nullptr);
    EXPECT_TRUE(XmStringByteCompare(item(longer)->labelString, drawn));
    XmStringFree(drawn);
    EXPECT_EQ(item(longer)->labelWidth, sw);
    EXPECT_EQ(item(longer)->labelHeight, sh);

    // A narrower wrap measures every label again.
    XtVaSetValues(s.desk, XmNmaxChars, 4, NULL);
    EXPECT_EQ(item(exact)->labelHeight, 2 * h1);
    XtVaSetValues(s.desk, XmNmaxChars, 12, NULL);

    // Selection counts are kept as given, twice selected counts twice.
    EXPECT_TRUE(XmPrjDeskSelectItem(s.desk, fig));
    EXPECT_TRUE(XmPrjDeskSelectItem(s.desk, fig));
    EXPECT_EQ(XmPrjDeskGetSelectedItemsCount(s.desk), 2);
    XmPrjDeskSetSelectable(s.desk, apple, False);
    XmPrjDeskSelectItem(s.desk, apple);
    EXPECT_FALSE(item(apple)->flags & XmDESK_ITEM_SELECTED);
    XmPrjDeskNode *selected = nullptr;
    EXPECT_EQ(XmPrjDeskGetSelectedItems(s.desk, &selected), 1);
    EXPECT_EQ(selected[0], fig);
    XtFree((char *)selected);

    // Deleting the current item moves it to the previous item, or the next.
    XmPrjDeskSetItem(s.desk, fig);
    EXPECT_EQ(Last("selectionChanged")->data.reason, XmCR_SINGLE_SELECT);
    XmPrjDeskDeleteItem(s.desk, fig);
    EXPECT_EQ(XmPrjDeskGetSelectedItem(s.desk)->index, 0);
    EXPECT_EQ(xwktest::Get<XtPointer>(s.desk, XmNselected), (XtPointer)2);  // apple
    EXPECT_EQ(XmPrjDeskGetItemsCount(s.desk), 6);
    XmPrjDeskDeleteAllItems(s.desk);
    EXPECT_EQ(XmPrjDeskGetItemsCount(s.desk), 0);
    EXPECT_EQ(XmPrjDeskGetSelectedItem(s.desk), nullptr);
    XtPointer *users = (XtPointer *)1;
    EXPECT_EQ(XmPrjDeskGetUserList(s.desk, &users), 0);
    EXPECT_EQ(users, nullptr);
}

TEST(DeskClones, ShareItemsWithOwnScrollAndGoWithTheirMother)
{
    Widget later = xwktest::Shell("later", 200, 160);
    {
        Desk s(60);
        XtOverrideTranslations(s.desk, XtParseTranslationTable("<Key>F5: DeskKbdKey(5)"));
        Widget form = xwktest::Shell("clone", 200, 160);
        Arg mother[] = {{(String)XmNmother, (XtArgVal)s.desk}};
        Widget clone = XmCreateScrolledDeskList(form, (String) "view", mother, 1);
        xwktest::Show(clone, form);
        WidgetList clones = nullptr;
        Cardinal count = 0;
        XtVaGetValues(clone, XmNclones, &clones, XmNnumClones, &count, NULL);
        ASSERT_EQ(count, 1u);
        EXPECT_EQ(clones[0], clone);
        EXPECT_EQ(XmPrjDeskGetItemsCount(clone), 60);
        // The clone takes its mother's translations.
        EXPECT_EQ(xwktest::Get<XtTranslations>(clone, XmNtranslations),
                  xwktest::Get<XtTranslations>(s.desk, XmNtranslations));
        XmPrjDeskNode added = XmPrjDeskAddItem(clone, (char *)"zzz", s.icon, (XtPointer)7);
        EXPECT_EQ(XmPrjDeskGetDeskWidgetFromItem(added), clone);
        EXPECT_EQ(XmPrjDeskGetItemsCount(s.desk), 61);
        XmPrjDeskSetItem(clone, added);
        EXPECT_EQ(XmPrjDeskGetSelectedItem(s.desk), added);
        // Both desks answer XmNselected with the current item's data.
        for (Widget v : {s.desk, clone})
            EXPECT_EQ(xwktest::Get<XtPointer>(v, XmNselected), (XtPointer)7);
        EXPECT_GT(Part(clone).topRow, 0);
        EXPECT_EQ(Part(s.desk).topRow, 0);
        // Resources set on a clone are its mother's, and size every desk.
        Dimension width = Part(clone).cellWidth;
        XtVaSetValues(clone, XmNhPad, 12, NULL);
        EXPECT_EQ(Part(s.desk).hPad, 12);
        EXPECT_EQ(Part(clone).cellWidth, width + 10);
        EXPECT_EQ(Part(s.desk).cellWidth, width + 10);
        int x = -1, y = -1;
        ASSERT_EQ(XmPrjDeskSetOrigins(s.desk, 0, 2), 1);
        EXPECT_EQ(XmPrjDeskGetOrigins(s.desk, &x, &y), 1);
        EXPECT_EQ(x, 0);
        EXPECT_EQ(y, 2);
        xwktest::Pump(100);
        xwktest::Capture cap(clone);
        EXPECT_GT(cap.Count(0xff0000, 0, 0, cap.width(), cap.height()), 16 * 16);
        XtDestroyWidget(form);
        xwktest::Settle();
        EXPECT_EQ(xwktest::Get<Cardinal>(s.desk, XmNnumClones), 0u);
        EXPECT_EQ(XmPrjDeskGetDeskWidgetFromItem(added), s.desk);
        // A clone cannot outlive its mother: it goes with her.
        Widget orphan = XmCreateScrolledDeskList(later, (String) "view", mother, 1);
        XtManageChild(orphan);
        XtPopup(later, XtGrabNone);
        xwktest::Pump(100);
        XmPrjDeskSetItem(orphan, nullptr);
    }
    xwktest::Settle();
    EXPECT_EQ(xwktest::FindWidget(later, "view"), nullptr);
    XtDestroyWidget(later);
    xwktest::Settle();
}

}  // namespace
