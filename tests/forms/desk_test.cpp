// Desk forms on an application started by the client.
#include "xwktest.h"

#include <Xm/DialogS.h>

#include "boxdriver.h"

namespace {

XwkDeskRec *open_desk(const char *title, Widget parent = nullptr, const char *labels = nullptr,
                      int count = 0)
{
    xwktest::StartApp();
    XwkDeskRec *desk = nullptr;
    CreateDesk(parent, 1.0f, 2.0f, title, &desk);
    if (!desk)
        return nullptr;
    XwkDeskItem *label = nullptr;
    SetLabel(desk, 0.5f, 0.5f, "A label on the desk", &label);
    OpenDeskExt(desk, labels, count);
    xwktest::WaitViewable(desk->buttons[0]);
    xwktest::Settle();
    return desk;
}

std::string shell_title(XwkDeskRec *desk)
{
    Widget shell = XtIsApplicationShell(desk->form) ? desk->form : XtParent(desk->form);
    return xwktest::Get<char *>(shell, XtNtitle);
}

}  // namespace

TEST(Desk, TitleAndHelpParts)
{
    struct Case { const char *text, *title, *page, *anchor; } cases[] = {
        {"Name", "Name", "Name", nullptr},
        {"Name|page", "Name", "page", nullptr},
        {"Name|page#anchor", "Name", "page", "anchor"},
        {"Name|#anchor", "Name", nullptr, "anchor"},
        {"#anchor", "anchor", nullptr, "anchor"},
        {"Name#anchor", "Name#anchor", "Name", "anchor"},
        {"Name|", "Name", nullptr, nullptr},
        {"Spaced | my page # an chor", "Spaced ", "mypage", "anchor"},
    };
    for (const Case &c : cases) {
        XwkDeskRec *desk = open_desk(c.text);
        ASSERT_NE(desk, nullptr);
        EXPECT_EQ(shell_title(desk), c.title) << c.text;
        EXPECT_EQ(desk->help, nullptr) << "handed over at opening";
        char *file = nullptr, *page = nullptr, *anchor = nullptr;
        Boolean found = XwkGetHelpData(desk->buttons[0], &file, &page, &anchor);
        if (!c.page && !c.anchor) {
            EXPECT_FALSE(found) << c.text;
        } else {
            EXPECT_STREQ(page, c.page ? c.page : "") << c.text;
            EXPECT_STREQ(anchor, c.anchor ? c.anchor : "") << c.text;
        }
        CloseDesk(desk);
    }
}

TEST(Desk, ClickedButtonNumbers)
{
    XwkDeskRec *desk = open_desk("Buttons");
    ASSERT_EQ(desk->nbuttons, 3);
    xwktest::ClickCenter(desk->buttons[0]);
    EXPECT_EQ(boxdriver::poll_desk(desk), 1);
    xwktest::ClickCenter(desk->buttons[1]);
    EXPECT_EQ(boxdriver::poll_desk(desk), 2);
    xwktest::SendDeleteWindow(XtParent(desk->form));
    EXPECT_EQ(boxdriver::poll_desk(desk), 2) << "the window manager's close presses Cancel";
    // The last button is help: it never yields a result.  Without a help
    // server installed, it says so.
    int helped = 0;
    XtAddCallback(desk->panes, XmNhelpCallback,
                  [](Widget, XtPointer c, XtPointer) { ++*(int *)c; }, &helped);
    unsetenv("C_SMELD");
    boxdriver::Step step;
    std::string text;
    boxdriver::when_up(&step, [&] {
        text = boxdriver::box_text();
        xwktest::ClickCenter(boxdriver::button(1));
    });
    xwktest::ClickCenter(desk->buttons[2]);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return step.done; }, 5000));
    EXPECT_EQ(boxdriver::poll_desk(desk, 30), 0);
    EXPECT_EQ(helped, 1);
    EXPECT_EQ(text, "Help system is not available!|");
    CloseDesk(desk);
}

TEST(Desk, ButtonsShareOneWidthAndTheLastStandsRight)
{
    XwkDeskRec *desk = open_desk("Widths", nullptr, "&Apply\0&Close window\0_Help", 3);
    ASSERT_EQ(desk->nbuttons, 3);
    Dimension w0 = desk->buttons[0]->core.width;
    EXPECT_EQ(desk->buttons[1]->core.width, w0);
    EXPECT_EQ(desk->buttons[2]->core.width, w0);
    Widget area = desk->action;
    EXPECT_EQ(desk->buttons[2]->core.x + desk->buttons[2]->core.width + 5, (int)area->core.width);
    EXPECT_EQ(desk->buttons[0]->core.x, 5);
    // The shell is never narrower than the buttons with a gap around each.
    EXPECT_EQ(xwktest::Get<int>(XwkGetShell(area), XtNminWidth), 3 * (w0 + 5) + 2 * 5);
    EXPECT_EQ(xwktest::Get<KeySym>(desk->buttons[2], XmNmnemonic), (KeySym)'H');
    WidgetList buttons = nullptr;
    EXPECT_EQ(XwkGetActionButtons(desk->panes, &buttons), 3);
    EXPECT_EQ(buttons[1], desk->buttons[1]);
    EXPECT_EQ(XwkGetActionButtons(desk->work, &buttons), 0);
    EXPECT_EQ(buttons, nullptr);
    CloseDesk(desk);
}

TEST(Desk, DefaultAndCancelButtons)
{
    // A first button "Cancel" is the cancel button, and the default falls to it.
    // Null labels give the three default buttons whatever the count.
    struct Case { const char *title, *labels; int count, def, cancel; } cases[] = {
        {"Defaults", nullptr, 0, 0, 1}, {"Cancel first", "Cancel\0Other", 2, 0, 0},
        {"Null labels", nullptr, 1, 0, 1}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.title);
        XwkDeskRec *desk = open_desk(c.title, nullptr, c.labels, c.count);
        Widget board = XtParent(desk->panes);
        EXPECT_EQ(xwktest::Get<Widget>(board, XmNdefaultButton), desk->buttons[c.def]);
        EXPECT_EQ(xwktest::Get<Widget>(board, XmNcancelButton), desk->buttons[c.cancel]);
        EXPECT_EQ(desk->nbuttons, c.labels ? c.count : 3);
        EXPECT_EQ(desk->cancel_index, c.cancel + 1);
        CloseDesk(desk);
    }
}

TEST(Desk, DestroyedShellGivesMinusOne)
{
    XwkDeskRec *desk = open_desk("Destroyed");
    Widget shell = XtParent(desk->form);
    // Destroyed from inside an event, as a callback of the client would.
    XtAddCallback(desk->buttons[0], XmNactivateCallback,
                  [](Widget, XtPointer s, XtPointer) { XtDestroyWidget((Widget)s); }, shell);
    xwktest::ClickCenter(desk->buttons[0]);
    EXPECT_EQ(boxdriver::poll_desk(desk), -1);
    int result = 0;
    UseDesk(desk, &result);
    EXPECT_EQ(result, -1) << "the desk closed itself with its shell";
    CloseDesk(desk);  // a stale handle is ignored
}

TEST(Desk, DialogDeskUnderAParentAndClosing)
{
    XwkDeskRec *outer = open_desk("Outer");
    XwkDeskRec *desk = open_desk("Inner|inner#top", outer->form);
    ASSERT_NE(desk, nullptr);
    EXPECT_TRUE(XmIsDialogShell(XtParent(desk->form)));
    EXPECT_EQ(xwktest::Get<unsigned char>(desk->form, XmNdialogStyle),
              XmDIALOG_PRIMARY_APPLICATION_MODAL);
    EXPECT_EQ(xwkParentWidget, desk->form);
    EXPECT_EQ(shell_title(desk), "Inner");
    xwktest::ClickCenter(desk->buttons[0]);
    EXPECT_EQ(boxdriver::poll_desk(desk), 1);
    CloseDesk(desk);
    EXPECT_EQ(xwkParentWidget, XtParent(outer->form)) << "the shell the dialog hung on";

    // Closing destroys the shell.
    bool destroyed = false;
    XtAddCallback(XtParent(outer->form), XtNdestroyCallback,
                  [](Widget, XtPointer d, XtPointer) { *(bool *)d = true; }, &destroyed);
    CloseDesk(outer);
    xwktest::Settle();
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(xwkParentWidget, xwkTopLevel);
}

TEST(Desk, WorkAreaTakesTheExtentOfItsControls)
{
    xwktest::StartApp();
    XwkDeskRec *desk = nullptr;
    CreateDesk(nullptr, 0, 0, "Extent", &desk);
    ASSERT_NE(desk, nullptr);
    EXPECT_EQ(desk->origin_x, 0);
    desk->extent_w = 300;
    desk->extent_h = 120;
    OpenDesk(desk);
    xwktest::WaitViewable(desk->buttons[0]);
    Widget frame = XtParent(desk->work);
    EXPECT_EQ(frame->core.height, 120 + 9);
    EXPECT_GE(frame->core.width, 300 + 9);
    CloseDesk(desk);
}

TEST(Desk, NullAndStaleHandles)
{
    xwktest::StartApp();
    int result = 7;
    UseDesk(nullptr, &result);
    EXPECT_EQ(result, -1);
    OpenDesk(nullptr);
    CloseDesk(nullptr);
    XwkDeskRec fake = {};
    UseDesk(&fake, &result);
    EXPECT_EQ(result, -1);
    CreateDesk(nullptr, 0, 0, "x", nullptr);
    float w = 1, h = 1;
    GetDeskItemSize(nullptr, &w, &h);
    EXPECT_EQ(w, 0);
}

TEST(Desk, ByReferenceForms)
{
    xwktest::StartApp();
    Widget parent = nullptr;
    float x = 1.0f, y = 0.5f, len = 3.0f, gap = 0.0f;
    XwkDeskRec *desk = nullptr;
    createdesk_(&parent, &x, &y, "By reference", &desk);
    ASSERT_NE(desk, nullptr);
    EXPECT_EQ(desk->origin_x, 28);
    EXPECT_EQ(desk->origin_y, 14);

    // The controls, all at one place.
    x = 0.5f;
    int style = 2, count = 2, sel = 2, type = 1, length = 6, columns = 6, reserved = 0, vis = 2;
    long value = 7;
    XwkDeskItem *items[8] = {};
    setlabel_(&desk, &x, &y, "Label", &items[0]);
    setbutton_(&desk, &x, &y, "Button", &items[1]);
    setseparator_(&desk, &x, &y, &len, &style, &items[2]);
    setradiobox_(&desk, &x, &y, "R", "a\0b", &count, &sel, &items[3]);
    setcheckbox_(&desk, &x, &y, "C", "a\0b", &count, nullptr, &items[4]);
    setoptionmenu_(&desk, &x, &y, "O", &reserved, "a\0b", &count, &sel, &items[5]);
    setscrolledlist_(&desk, &x, &y, "L", "a\0b", &count, &vis, &sel, &items[6]);
    seteditfield_(&desk, &x, &y, "E", &gap, &value, &type, &length, &columns, &items[7]);
    for (XwkDeskItem *item : items)
        ASSERT_NE(item, nullptr);
    int got[4] = {-1, -1, -1, -1};
    getradiobox_(&items[3], &got[0]);
    getoptionmenu_(&items[5], &got[1]);
    getscrolledlist_(&items[6], &got[2]);
    getbutton_(&items[1], &got[3]);
    EXPECT_EQ(std::vector<int>(got, got + 4), (std::vector<int>{2, 2, 2, 0}));

    opendesk_(&desk);
    xwktest::WaitViewable(desk->buttons[0]);
    XwkDeskItem *label = items[0];
    float w = 0, h = 0;
    getdeskitemsize_(&label, &w, &h);
    float ew, eh;
    pix_cm(label->widget->core.width, label->widget->core.height, &ew, &eh);
    EXPECT_EQ(w, ew);
    EXPECT_EQ(h, eh);
    xwktest::ClickCenter(desk->buttons[1]);
    EXPECT_EQ(boxdriver::poll_desk(desk, 200, usedesk_), 2);
    closedesk_(&desk);
}
