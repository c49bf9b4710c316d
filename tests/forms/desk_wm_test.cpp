// Desks, boxes and prompts under a real reparenting window manager (run
// once under mwm and once under openbox): placing, the manager's close,
// transients, waiting for the manager to map, and moving and restacking.
#include "xwktest.h"

#include "boxdriver.h"

#include <chrono>

namespace {

class UnderManager : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ASSERT_TRUE(xwktest::StartWindowManager());
        Widget app = xwktest::StartApp();
        XtVaCreateManagedWidget("main", xmFormWidgetClass, app, XmNwidth, 200, XmNheight, 100,
                                NULL);
        XtRealizeWidget(app);
        ASSERT_TRUE(xwktest::WaitManaged(app));
    }

    static Widget ShellOf(XwkDeskRec *desk) { return XwkGetShell(desk->form); }

    // A desk whose work area holds a w x h form; a top-level desk asks for
    // its place at x, y (a dialog desk stands where Motif centres it).
    static XwkDeskRec *OpenManagedDesk(Widget parent, const char *title, int x = 100,
                                       int y = 100, int w = 160, int h = 40)
    {
        XwkDeskRec *desk = nullptr;
        CreateDesk(parent, 2.0, 3.0, title, &desk);
        if (!desk)
            return nullptr;
        if (!parent)
            XtVaSetValues(ShellOf(desk), XtNx, (Position)x, XtNy, (Position)y, NULL);
        XtVaCreateManagedWidget("note", xmFormWidgetClass, desk->work, XmNwidth, w,
                                XmNheight, h, NULL);
        OpenDesk(desk);
        EXPECT_TRUE(xwktest::WaitManaged(ShellOf(desk))) << title;
        return desk;
    }
};

// Polls UseDesk as a client does until it reports something or the time is
// up (0).  A timer sends the application shell a harmless event now and
// then, so that a UseDesk waiting for input cannot block the test.
int PollDesk(XwkDeskRec *desk, int timeout_ms)
{
    struct Waker {
        Widget target;
        XtIntervalId id;
        static void Tick(XtPointer p, XtIntervalId *)
        {
            Waker *w = (Waker *)p;
            XEvent ev = {};
            ev.xclient.type = ClientMessage;
            ev.xclient.window = XtWindow(w->target);
            ev.xclient.message_type = XInternAtom(XtDisplay(w->target), "XWK_TEST_WAKE", False);
            ev.xclient.format = 32;
            XSendEvent(XtDisplay(w->target), XtWindow(w->target), False, NoEventMask, &ev);
            XFlush(XtDisplay(w->target));
            w->id = XtAppAddTimeOut(xwkApp, 20, Tick, w);
        }
    } waker = {xwktest::StartApp(), 0};
    waker.id = XtAppAddTimeOut(xwkApp, 20, Waker::Tick, &waker);
    // Only UseDesk may handle the events: a result it did not see is lost.
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    int button = 0;
    do {
        UseDesk(desk, &button);
    } while (button == 0 && std::chrono::steady_clock::now() < end);
    XtRemoveTimeOut(waker.id);
    return button;
}

TEST_F(UnderManager, DeskIsPlacedMappedAndClosedByTheManagerWithoutEverHavingFocus)
{
    XwkDeskRec *desk = OpenManagedDesk(nullptr, "Placed|page#anchor");
    ASSERT_NE(desk, nullptr);
    Widget shell = ShellOf(desk);
    Display *dpy = XtDisplay(shell);
    Window frame = xwktest::FrameOf(shell);
    ASSERT_NE(frame, XtWindow(shell)) << "reparented into the manager's frame";
    XWindowAttributes f;
    ASSERT_TRUE(XGetWindowAttributes(dpy, frame, &f));
    EXPECT_EQ(f.map_state, IsViewable);
    EXPECT_GE(f.x, 0);
    EXPECT_GE(f.y, 0);
    EXPECT_LE(f.x + f.width, WidthOfScreen(f.screen));
    EXPECT_LE(f.y + f.height, HeightOfScreen(f.screen));
    EXPECT_GT(f.height, shell->core.height) << "the frame adds a title bar";
    char *name = nullptr;
    ASSERT_TRUE(XFetchName(dpy, XtWindow(shell), &name));
    EXPECT_STREQ(name, "Placed");
    XFree(name);

    ASSERT_FALSE(xwktest::HasFocus(shell));
    xwktest::CloseFromFrame(shell);
    EXPECT_EQ(PollDesk(desk, 5000), 2) << "the manager's close presses Cancel";
    CloseDesk(desk);
    xwktest::Settle();
}

TEST_F(UnderManager, KeyboardCloseOfAFocusedDeskPressesCancel)
{
    XwkDeskRec *desk = OpenManagedDesk(nullptr, "Focused");
    ASSERT_NE(desk, nullptr);
    Widget shell = ShellOf(desk);
    // A click on the work area, not on a button, gives the desk the focus.
    xwktest::Click(desk->work, 5, 5);
    ASSERT_TRUE(xwktest::PumpUntil([shell] { return xwktest::HasFocus(shell); }));
    EXPECT_EQ(PollDesk(desk, 200), 0) << "the click pressed nothing";
    xwktest::PressKey(XtDisplay(shell), XK_F4, Mod1Mask);
    EXPECT_EQ(PollDesk(desk, 5000), 2);
    CloseDesk(desk);
    xwktest::Settle();
}

TEST_F(UnderManager, MessageBoxAndPromptCloseByTheManager)
{
    boxdriver::Step step;
    step.retry_ms = 2000;
    boxdriver::when_up(&step, [] { xwktest::CloseFromFrame(XtParent(xwkConditWidget)); });
    EXPECT_EQ(XwkShowStdDialog(nullptr, "Close me", "Closed by the ^bmanager^b?", 4), 0);
    EXPECT_TRUE(step.done);

    boxdriver::when(&step, [] {
        Widget form = xwkParentWidget;
        if (!form || !xwktest::FindWidget(form, "xwkActionArea") || !XtIsRealized(form))
            return false;
        Widget shell = XwkGetShell(form);
        return xwktest::FrameOf(shell) != XtWindow(shell);
    }, [] { xwktest::CloseFromFrame(XwkGetShell(xwkParentWidget)); });
    char buffer[32] = "kept";
    EXPECT_EQ(inputa(nullptr, "Name", "Name:", buffer, sizeof buffer), 0);
    EXPECT_TRUE(step.done);
    EXPECT_STREQ(buffer, "kept") << "a closed prompt leaves the buffer alone";
}

TEST_F(UnderManager, TransientDialogStandsOverItsOwnerWhenTheOwnerIsRaised)
{
    // The dialog, centred on the large owner, leaves the owner's title bar
    // free; the other desk covers the owner's lower right.
    XwkDeskRec *owner = OpenManagedDesk(nullptr, "Owner", 100, 100, 400, 220);
    ASSERT_NE(owner, nullptr);
    XwkDeskRec *dialog = OpenManagedDesk(owner->form, "Dialog");
    XwkDeskRec *other = OpenManagedDesk(nullptr, "Other", 300, 250);
    ASSERT_TRUE(dialog && other);
    Display *dpy = XtDisplay(owner->form);
    Window transient_for = None;
    ASSERT_TRUE(XGetTransientForHint(dpy, XtWindow(ShellOf(dialog)), &transient_for));
    EXPECT_EQ(transient_for, XtWindow(ShellOf(owner)));

    auto level = [dpy](XwkDeskRec *d) {
        return xwktest::StackingIndex(dpy, xwktest::FrameOf(XwkGetShell(d->form)));
    };
    // The other desk came last and lies over both until the user raises
    // the owner by its title bar, which brings the dialog along.
    ASSERT_GT(level(other), level(owner));
    EXPECT_GT(level(dialog), level(owner));
    xwktest::ClickTitle(ShellOf(owner));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return level(owner) > level(other); }));
    EXPECT_GT(level(dialog), level(owner)) << "the transient stays over its owner";

    CloseDesk(dialog);
    CloseDesk(other);
    CloseDesk(owner);
    xwktest::Settle();
}

TEST_F(UnderManager, ForceUpdateReturnsOnceTheManagerHasMappedTheWindow)
{
    Widget form = XmCreateFormDialog(xwktest::StartApp(), (char *)"forced", nullptr, 0);
    XtVaSetValues(form, XmNwidth, 120, XmNheight, 50, NULL);
    Widget shell = XtParent(form);
    XtManageChild(form);
    ForceUpdate(form);
    // No events are handled between the return and these checks.
    EXPECT_TRUE(xwktest::Viewable(shell));
    EXPECT_NE(xwktest::FrameOf(shell), XtWindow(shell)) << "reparented before the return";

    XtUnmanageChild(form);
    ForceDestroy(form);
    XWindowAttributes a;
    ASSERT_TRUE(XGetWindowAttributes(XtDisplay(shell), XtWindow(shell), &a));
    EXPECT_NE(a.map_state, IsViewable);
    XtDestroyWidget(shell);
    xwktest::Settle();
}

void count_event(Widget, XtPointer count, XEvent *)
{
    ++*(int *)count;
}

TEST_F(UnderManager, PolledDeskAndEventFiltersKeepWorkingWhileTheManagerMovesAndRestacks)
{
    XwkDeskRec *desk = OpenManagedDesk(nullptr, "Busy");
    ASSERT_NE(desk, nullptr);
    Widget shell = ShellOf(desk);
    Display *dpy = XtDisplay(shell);
    Widget ok = desk->buttons[0];
    int configures = 0, presses = 0;
    XwkAddEventHandler(shell, (unsigned)XtWindow(shell), ConfigureNotify,
                       (int)offsetof(XConfigureEvent, window), count_event, &configures);
    XwkAddEventHandler(ok, (unsigned)XtWindow(ok), ButtonPress,
                       (int)offsetof(XButtonEvent, window), count_event, &presses);

    int x0, y0;
    xwktest::RootPosition(shell, &x0, &y0);
    xwktest::DragTitle(shell, 150, 90);
    EXPECT_EQ(PollDesk(desk, 300), 0) << "moving presses nothing";
    int x1, y1;
    xwktest::RootPosition(shell, &x1, &y1);
    EXPECT_NEAR(x1 - x0, 150, 3);
    EXPECT_NEAR(y1 - y0, 90, 3);
    EXPECT_GT(configures, 0) << "the filter saw the manager's configure notices";
    // Xt learns the new place from them: what the shell believes is where it is.
    EXPECT_NEAR(shell->core.x, x1, 3);
    EXPECT_NEAR(shell->core.y, y1, 3);

    // Another desk over its body, then the user raises this one again.
    XWindowAttributes f;
    ASSERT_TRUE(XGetWindowAttributes(dpy, xwktest::FrameOf(shell), &f));
    XwkDeskRec *cover = OpenManagedDesk(nullptr, "Cover", f.x + 40, f.y + 40);
    ASSERT_NE(cover, nullptr);
    auto level = [dpy](Widget s) { return xwktest::StackingIndex(dpy, xwktest::FrameOf(s)); };
    // A manager that prevents focus stealing may map a new window below the
    // one the user just dragged; the user then raises it by its title.
    Widget cover_shell = XwkGetShell(cover->form);
    if (level(cover_shell) < level(shell)) {
        xwktest::ClickTitle(cover_shell);
        xwktest::PumpUntil([&] { return level(cover_shell) > level(shell); });
    }
    ASSERT_GT(level(cover_shell), level(shell));
    xwktest::ClickTitle(shell);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return level(shell) > level(cover_shell); }));

    xwktest::ClickCenter(ok);
    EXPECT_EQ(PollDesk(desk, 5000), 1) << "OK pressed at the desk's new place";
    EXPECT_EQ(presses, 1);
    XwkRemoveEventHandler(shell, (unsigned)XtWindow(shell), ConfigureNotify,
                          (int)offsetof(XConfigureEvent, window), count_event, &configures);
    XwkRemoveEventHandler(ok, (unsigned)XtWindow(ok), ButtonPress,
                          (int)offsetof(XButtonEvent, window), count_event, &presses);
    CloseDesk(cover);
    CloseDesk(desk);
    xwktest::Settle();
}

}  // namespace
