// Window states and frames under a real window manager (run once under mwm
// and once under openbox): the frame and its position, the screen's bounds,
// and hiding and showing a shell with its pop-up, iconic or not.
#include "xwktest.h"

namespace {

Widget app, popup;

class UnderManager : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ASSERT_TRUE(xwktest::StartWindowManager());
        app = xwktest::StartApp();
        XtVaSetValues(app, XtNx, 120, XtNy, 90, NULL);
        XtVaCreateManagedWidget("main", xmFormWidgetClass, app, XmNwidth, 200, XmNheight, 100,
                                NULL);
        XtRealizeWidget(app);
        ASSERT_TRUE(xwktest::WaitManaged(app));
        popup = XtVaCreatePopupShell("tool", topLevelShellWidgetClass, app, XtNx, 400, XtNy, 300,
                                     NULL);
        XtVaCreateManagedWidget("tool", xmFormWidgetClass, popup, XmNwidth, 80, XmNheight, 60,
                                NULL);
        XtPopup(popup, XtGrabNone);
        ASSERT_TRUE(xwktest::WaitManaged(popup));
    }
    static Display *dpy() { return XtDisplay(app); }
    static int MapState(Widget shell) { return xwktest::MapState(dpy(), XtWindow(shell)); }
    static bool Becomes(Widget shell, int wm_state, int map_state)
    {
        return xwktest::PumpUntil([&] {
            return XwkGetWMState(shell) == wm_state && MapState(shell) == map_state;
        });
    }
};

TEST_F(UnderManager, FrameAndItsPosition)
{
    Window frame = xwktest::FrameOf(app);
    ASSERT_NE(frame, XtWindow(app)) << "the manager reparents";
    EXPECT_EQ(XwkGetWMWindow(dpy(), XtWindow(app)), frame);
    EXPECT_EQ(XwkGetWMWindow(dpy(), frame), frame);
    EXPECT_EQ(XwkGetWMWindow(dpy(), 0x1fffff0), 0u) << "a window that does not exist";

    for (int step = 0; step < 2; step++) {
        XWindowAttributes a;
        XGetWindowAttributes(dpy(), frame, &a);
        // A Motif manager's shell that Motif has seen mapped keeps what it
        // is given: Motif tracks the shell's place itself.
        Position x = -1, y = -1;
        XwkGetWMCoords(app, &x, &y);
        bool motif = xwktest::WindowManager() == "mwm";
        EXPECT_EQ(x, motif ? -1 : a.x) << "step " << step;
        EXPECT_EQ(y, motif ? -1 : a.y) << "step " << step;
        xwktest::DragTitle(app, 40, 30);
        xwktest::Settle();
    }
}

TEST_F(UnderManager, BoundsOfTheScreen)
{
    int sw = WidthOfScreen(XtScreen(app)), sh = HeightOfScreen(XtScreen(app));
    struct {
        int x, y, w, h, bx, by, bw, bh;
    } cases[] = {
        {10, 20, 30, 40, 10, 20, 30, 40},
        {-5, -1, 30, 40, 0, 0, 30, 40},
        {sw + 1, sh + 7, sw + 5, sh + 9, sw, sh, sw, sh},
        {sw, sh, sw, sh, sw, sh, sw, sh},
    };
    for (auto &c : cases) {
        Position x = c.x, y = c.y;
        Dimension w = c.w, h = c.h;
        XwkBoundCoords(app, &x, &y, &w, &h);
        EXPECT_EQ(x, c.bx);
        EXPECT_EQ(y, c.by);
        EXPECT_EQ(w, c.bw);
        EXPECT_EQ(h, c.bh);
    }
}

TEST_F(UnderManager, HiddenAndShownWithItsPopupAndAnIconStaysAnIcon)
{
    XwkSetWindowVisibility(app, XWK_WM_WITHDRAWN);
    EXPECT_TRUE(xwktest::PumpUntil([] { return MapState(app) == IsUnmapped; }));
    EXPECT_TRUE(xwktest::PumpUntil([] { return MapState(popup) == IsUnmapped; }));
    XwkSetWindowVisibility(app, XWK_WM_NORMAL);
    EXPECT_TRUE(Becomes(app, XWK_WM_NORMAL, IsViewable));
    EXPECT_TRUE(Becomes(popup, XWK_WM_NORMAL, IsViewable));

    XwkSetWMState(app, XWK_WM_ICONIC);
    ASSERT_TRUE(Becomes(app, XWK_WM_ICONIC, IsUnmapped));
    XwkSetWindowVisibility(app, XWK_WM_WITHDRAWN);
    EXPECT_TRUE(xwktest::PumpUntil([] { return XwkGetWindowState(app) != XWK_WM_ICONIC; }));
    XwkSetWindowVisibility(app, XWK_WM_NORMAL);
    EXPECT_TRUE(Becomes(app, XWK_WM_ICONIC, IsUnmapped)) << "shown again, it is an icon";
    // The manager may still be handling the earlier withdrawals of the pop-up.
    EXPECT_TRUE(xwktest::PumpUntil([] { return MapState(popup) == IsUnmapped; }));

    XwkSetWMState(app, XWK_WM_NORMAL);
    EXPECT_TRUE(Becomes(app, XWK_WM_NORMAL, IsViewable));
}

}  // namespace
