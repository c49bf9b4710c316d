// The combo box: popping the list with real clicks and keys, choosing,
// typing, and taking it down so that nothing stays grabbed.
#include "xwktest.h"

#include <Xwk/ComboBoxP.h>
#include <X11/ShellP.h>

namespace {

std::vector<XwkComboBoxCallbackStruct> selections;
int pushes;

void OnSelection(Widget, XtPointer, XtPointer call)
{
    selections.push_back(*(XwkComboBoxCallbackStruct *)call);
}

void OnPush(Widget, XtPointer, XtPointer) { pushes++; }

struct Fixture {
    Widget shell = nullptr, row = nullptr, combo = nullptr, button = nullptr;
    explicit Fixture(unsigned char type, int items = 5, const char *name = "combo")
    {
        shell = XtVaCreatePopupShell("combos", topLevelShellWidgetClass, xwktest::StartApp(),
                                     NULL);
        row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, shell, XmNorientation,
                                      XmVERTICAL, NULL);
        // Above the combo box, where the list does not cover it.
        button = XtVaCreateManagedWidget("push", xmPushButtonWidgetClass, row, NULL);
        XtAddCallback(button, XmNactivateCallback, OnPush, nullptr);
        std::vector<XmString> strings;
        for (int i = 1; i <= items; i++) {
            std::string label = "item" + std::to_string(i);
            strings.push_back(XmStringCreateLocalized((char *)label.c_str()));
        }
        Arg args[] = {{(String)XmNcomboBoxType, type}, {(String)XmNitems, (XtArgVal)strings.data()},
                      {(String)XmNitemCount, items}, {(String)XmNvisibleItemCount, 4}};
        combo = XwkCreateComboBox(row, (String)name, args, 4);
        for (XmString s : strings)
            XmStringFree(s);
        XtAddCallback(combo, XmNselectionCallback, OnSelection, nullptr);
        xwktest::Show(combo, shell, 0);
        selections.clear();
        pushes = 0;
    }
    ~Fixture()
    {
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
    XwkComboBoxPart &part() { return ((XwkComboBoxWidget)combo)->combo; }
    bool listUp() { return part().flags & XwkCB_LIST_UP; }
    bool WaitUp() { return xwktest::PumpUntil([&] { return listUp(); }); }
    // Pops the list by its arrow; the pause lets the opening click's release pass.
    bool Pop(int pause_ms = 50)
    {
        xwktest::ClickCenter(XwkComboBoxGetArrow(combo));
        bool up = WaitUp();
        xwktest::Pump(pause_ms);
        return up;
    }
    // The list went down and left nothing grabbed.
    bool Closed()
    {
        return xwktest::PumpUntil([&] { return !listUp(); }) && xwktest::OthersCanGrab();
    }
    bool EscapeCloses()
    {
        xwktest::PressKey(XtDisplay(combo), XK_Escape);
        return Closed();
    }
    std::string Text() { return xwktest::TextOf(XwkComboBoxGetText(combo)); }
};

TEST(ComboBox, ArrowPopsTheListBelowOrAboveAndAChoiceClosesIt)
{
    Fixture f(XwkDROP_DOWN_LIST);
    EXPECT_EQ(f.Text(), "item1");
    ASSERT_TRUE(f.Pop(0));
    Widget list = XwkComboBoxGetList(f.combo);
    ASSERT_TRUE(xwktest::WaitViewable(list));
    xwktest::Pump(50);
    EXPECT_TRUE(f.listUp());  // the release of the opening click leaves it up
    EXPECT_FALSE(xwktest::OthersCanGrab());

    // The shell opens under the combo box, as wide as it within the highlight.
    Widget shell = XwkComboBoxGetShell(f.combo);
    int cx, cy, sx, sy;
    xwktest::RootPosition(f.combo, &cx, &cy);
    xwktest::RootPosition(shell, &sx, &sy);
    EXPECT_EQ(sx, cx + 2);
    EXPECT_EQ(sy, cy + f.combo->core.height - 2);
    EXPECT_EQ(shell->core.width, f.combo->core.width - 4);

    // Third item: rows are equal in height.
    int row_h = list->core.height / 4;
    xwktest::Click(list, list->core.width / 2, row_h * 2 + row_h / 2);
    ASSERT_TRUE(f.Closed());
    xwktest::Settle();
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(selections[0].reason, XwkCR_COMBO_SELECT);
    EXPECT_EQ(selections[0].position, 3);
    EXPECT_EQ(f.Text(), "item3");

    // Near the bottom of the screen it opens above the combo box.
    int bottom = HeightOfScreen(XtScreen(f.combo)) - 60;
    XtVaSetValues(f.shell, XmNx, 20, XmNy, bottom, NULL);
    XMoveWindow(XtDisplay(f.shell), XtWindow(f.shell), 20, bottom);
    xwktest::Settle();
    ASSERT_TRUE(f.Pop(0));
    xwktest::RootPosition(f.combo, &cx, &cy);
    xwktest::RootPosition(shell, &sx, &sy);
    EXPECT_LT(sy + (int)shell->core.height, cy + 2);
    EXPECT_TRUE(f.EscapeCloses());
}

TEST(ComboBox, ClickOutsideClosesAndReachesTheWidgetUnderIt)
{
    Fixture f(XwkDROP_DOWN_LIST);
    ASSERT_TRUE(f.Pop());
    xwktest::ClickCenter(f.button);
    ASSERT_TRUE(f.Closed());
    ASSERT_TRUE(xwktest::PumpUntil([&] { return pushes == 1; }));
    EXPECT_TRUE(selections.empty());
    EXPECT_FALSE(((ShellWidget)XwkComboBoxGetShell(f.combo))->shell.popped_up);

    // A click on the root window closes it as well.
    ASSERT_TRUE(f.Pop());
    Display *dpy = XtDisplay(f.combo);
    Screen *screen = XtScreen(f.combo);
    xwktest::MovePointer(dpy, WidthOfScreen(screen) - 5, HeightOfScreen(screen) - 5);
    XTestFakeButtonEvent(dpy, 1, True, CurrentTime);
    XTestFakeButtonEvent(dpy, 1, False, CurrentTime);
    EXPECT_TRUE(f.Closed());
}

TEST(ComboBox, KeyboardPopsChoosesAndEscapeCancels)
{
    Fixture f(XwkDROP_DOWN_LIST);
    Display *dpy = XtDisplay(f.combo);
    xwktest::ClickCenter(XwkComboBoxGetText(f.combo));  // a drop-down list pops on any click
    ASSERT_TRUE(f.WaitUp());
    xwktest::Pump(50);
    EXPECT_TRUE(f.EscapeCloses());
    EXPECT_TRUE(selections.empty());

    // Focus is back in the text: Down moves the choice and notifies.
    xwktest::PressKey(dpy, XK_Down);
    xwktest::Settle();
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(selections[0].position, 2);
    EXPECT_EQ(f.Text(), "item2");

    xwktest::PressKey(dpy, XK_Down, ControlMask);
    ASSERT_TRUE(f.WaitUp());
    xwktest::PressKey(dpy, XK_Down);
    xwktest::PressKey(dpy, XK_Return);
    ASSERT_TRUE(f.Closed());
    xwktest::Settle();
    EXPECT_EQ(f.Text(), "item3");
    EXPECT_EQ(f.part().selectedPosition, 3);
}

TEST(ComboBox, EditableTextTakesTypingAndActivates)
{
    Fixture f(XwkDROP_DOWN_COMBO_BOX);
    Display *dpy = XtDisplay(f.combo);
    Widget text = XwkComboBoxGetText(f.combo);
    xwktest::ClickCenter(text);
    xwktest::Settle();
    EXPECT_FALSE(f.listUp());  // a click in an editable text is for the text
    XmTextSetString(text, (char *)"");
    xwktest::TypeText(dpy, "hello");
    xwktest::Settle();
    EXPECT_EQ(f.Text(), "hello");
    xwktest::PressKey(dpy, XK_Return);
    xwktest::Settle();
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(selections[0].reason, XmCR_ACTIVATE);
    EXPECT_EQ(selections[0].position, 0);

    // Down in an editable text changes the text without a callback.
    selections.clear();
    xwktest::PressKey(dpy, XK_Down);
    xwktest::Settle();
    EXPECT_EQ(f.Text(), "item1");
    xwktest::PressKey(dpy, XK_Down);
    xwktest::Settle();
    EXPECT_EQ(f.Text(), "item2");
    EXPECT_EQ(f.part().selectedPosition, 2);
    EXPECT_TRUE(selections.empty());
}

TEST(ComboBox, WheelScrollsTheListAndLeavesItUp)
{
    Fixture f(XwkDROP_DOWN_LIST, 20);
    ASSERT_TRUE(f.Pop());
    Widget list = XwkComboBoxGetList(f.combo);
    int top = xwktest::Get<int>(list, XmNtopItemPosition);
    xwktest::ClickCenter(list, 5);
    xwktest::Settle();
    EXPECT_GT(xwktest::Get<int>(list, XmNtopItemPosition), top);
    EXPECT_TRUE(f.listUp());
    EXPECT_TRUE(f.EscapeCloses());
}

TEST(ComboBox, DestroyWhileUpLeavesNothingGrabbed)
{
    // Up, or destroyed between the popup and the grabs.
    for (bool up : {true, false}) {
        Fixture f(XwkDROP_DOWN_LIST);
        if (up)
            ASSERT_TRUE(f.Pop(0));
        else
            XwkComboBoxProcessXY(f.combo, f.combo->core.width - 5, 5);
        XtDestroyWidget(f.combo);
        xwktest::Settle();
        EXPECT_TRUE(xwktest::OthersCanGrab()) << up;
    }
}

TEST(ComboBox, BadValuesAndEmptyLists)
{
    Widget app = xwktest::StartApp();
    xwktest::Warnings log;
    Fixture f(XwkCOMBO_BOX, 0);
    ASSERT_EQ(log.texts.size(), 1u);
    const char *sorry = "Sorry, type of XmCOMBO_BOX while is not implemented, using default.";
    EXPECT_NE(log.texts[0].find(sorry), std::string::npos);
    EXPECT_EQ(f.part().comboBoxType, XwkDROP_DOWN_LIST);
    XtVaSetValues(f.combo, XmNcomboBoxType, 0, NULL);
    EXPECT_EQ(log.texts.size(), 2u);
    XtVaSetValues(f.combo, XmNcomboBoxType, 9, XwkNarrowPlacement, 7, NULL);
    EXPECT_EQ(f.part().comboBoxType, XwkDROP_DOWN_LIST);
    EXPECT_EQ(f.part().arrowPlacement, XwkARROW_RIGHT);

    // Empty list: the arrow still pops an empty shell.
    EXPECT_EQ(f.Text(), "");
    ASSERT_TRUE(f.Pop(0));
    EXPECT_TRUE(f.EscapeCloses());

    EXPECT_EQ(XwkComboBoxSelectPos(f.combo, 3, True), 3);
    EXPECT_TRUE(selections.empty());
    XmString missing = XmStringCreateLocalized((char *)"missing");
    EXPECT_EQ(XwkComboBoxSelectItem(f.combo, missing, True), 0);
    EXPECT_EQ(XwkComboBoxSelectItem(app, missing, True), -1);
    EXPECT_EQ(XwkComboBoxSetItem(app, missing), -1);
    EXPECT_EQ(XwkComboBoxGetList(app), nullptr);
    XwkComboBoxDeletePos(f.combo, 4, True);
    XwkComboBoxDeleteItem(f.combo, missing, True);
    XwkComboBoxAddItem(f.combo, missing, 0, True);
    XwkComboBoxAddItem(f.combo, missing, 0, True);
    EXPECT_EQ(xwktest::Get<int>(XwkComboBoxGetList(f.combo), XmNitemCount), 1);
    EXPECT_EQ(f.Text(), "missing");
    XmStringFree(missing);
}

TEST(ComboBox, ItemOperations)
{
    Fixture f(XwkDROP_DOWN_LIST);
    XmString three = XmStringCreateLocalized((char *)"item3");
    XmString other = XmStringCreateLocalized((char *)"other");
    EXPECT_EQ(XwkComboBoxSelectItem(f.combo, three, True), 3);
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(selections[0].position, 3);
    EXPECT_EQ(f.Text(), "item3");
    EXPECT_EQ(XwkComboBoxReplaceItem(f.combo, three, other), 3);
    EXPECT_EQ(f.Text(), "other");
    EXPECT_EQ(XwkComboBoxReplaceItem(f.combo, three, other), 0);
    selections.clear();
    // Deleting the selected item selects its neighbour and tells.
    XwkComboBoxDeletePos(f.combo, 3, True);
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(f.Text(), "item2");
    XwkComboBoxSelectPos(f.combo, 1, False);
    XwkComboBoxDeletePos(f.combo, 1, False);
    EXPECT_EQ(f.Text(), "item2");
    XwkComboBoxDeleteAllItems(f.combo);
    EXPECT_EQ(f.Text(), "");
    XmStringFree(three);
    XmStringFree(other);
}

TEST(ComboBox, PopupListKindAndPlacementAtScreenEdge)
{
    Fixture f(XwkPOPUP_LIST);
    EXPECT_EQ(XwkComboBoxGetText(f.combo), nullptr);
    EXPECT_EQ(XwkComboBoxGetArrow(f.combo), nullptr);
    XwkComboBoxPopupList(f.combo, 10000, 10000);
    ASSERT_TRUE(f.WaitUp());
    Widget shell = XwkComboBoxGetShell(f.combo);
    Screen *screen = XtScreen(f.combo);
    EXPECT_EQ(shell->core.x + (int)shell->core.width, WidthOfScreen(screen));
    EXPECT_EQ(shell->core.y + (int)shell->core.height, HeightOfScreen(screen));
    Widget list = XwkComboBoxGetList(f.combo);
    xwktest::Click(list, list->core.width / 2, 3);
    ASSERT_TRUE(f.Closed());
    xwktest::Settle();
    ASSERT_EQ(selections.size(), 1u);
    EXPECT_EQ(selections[0].position, 1);
}

TEST(ComboBox, ArrowIsDrawnAndResourcesComeFromTheDatabase)
{
    Widget app = xwktest::StartApp();
    XrmDatabase db = XtDatabase(XtDisplay(app));
    XrmPutStringResource(&db, "*fromdb.comboBoxType", "drop_down_combo_box");
    XrmPutStringResource(&db, "*fromdb.arrowPlacement", "left");
    Fixture f(XwkDROP_DOWN_LIST, 3, "fromdb");
    // The argument list wins over the database for the type; placement comes from it.
    EXPECT_EQ(f.part().arrowPlacement, XwkARROW_LEFT);
    Widget arrow = XwkComboBoxGetArrow(f.combo);
    Widget text = XwkComboBoxGetText(f.combo);
    EXPECT_LT(arrow->core.x, text->core.x);

    Fixture g(XwkDROP_DOWN_LIST, 3, "plain");
    XrmPutStringResource(&db, "*typed.comboBoxType", "drop_down_combo_box");
    Widget c = XwkCreateComboBox(g.row, (String) "typed", nullptr, 0);
    EXPECT_EQ(((XwkComboBoxWidget)c)->combo.comboBoxType, XwkDROP_DOWN_COMBO_BOX);
    EXPECT_EQ(((XwkComboBoxWidget)c)->combo.visibleItemCount, 10) << "the default";
    XtDestroyWidget(c);

    // The arrow has its bar and shadows: more than one colour inside it.
    Widget a = XwkComboBoxGetArrow(g.combo);
    xwktest::Capture shot(a);
    ASSERT_TRUE(shot.ok());
    Pixel bg = xwktest::PixelOf(a, XmNbackground);
    int w = a->core.width, h = a->core.height;
    int other = w * h - shot.Count(bg, 0, 0, w, h);
    EXPECT_GT(other, w + h);
    Pixel top = xwktest::PixelOf(a, XmNtopShadowColor);
    EXPECT_EQ(shot.Pixel(0, 0), top);
}

}  // namespace
