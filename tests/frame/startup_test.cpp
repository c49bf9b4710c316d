// Start-up, the process globals, the class hooks and the behaviour they
// change in Motif's sash and label, and the centimetre scale.
#include "xwktest.h"

#include <Xm/LabelP.h>
#include <Xm/PanedW.h>
#include <Xm/SashP.h>
#include <Xm/Screen.h>
#include <Xm/Display.h>

#include <grp.h>

// Runs first: nothing is started yet.
TEST(Units, BeforeStartUpEverythingIsZero)
{
    ASSERT_EQ(xwkTopLevel, nullptr);
    unsigned short x = 99, y = 99;
    cm_pix(3.5f, 100.0f, &x, &y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    EXPECT_EQ(XwkWidth(12.0f), 0);
}

TEST(Startup, SecondInitializeKeepsTheFirstShell)
{
    Widget shell = xwktest::StartApp();
    ASSERT_EQ(xwkTopLevel, shell);
    EXPECT_EQ(xwkParentWidget, shell);
    EXPECT_EQ(xwkDisplay, XtDisplay(shell));
    EXPECT_EQ(xwkCmWidth, 28.0f);

    Widget other = XtAppCreateShell("other", "Other", applicationShellWidgetClass,
                                    XtDisplay(shell), nullptr, 0);
    XwkInitialize(xwkApp, other);
    EXPECT_EQ(xwkTopLevel, shell);
    // The hooks are installed once and never call themselves.
    EXPECT_EQ(xmSashClassRec.core_class.realize, XwkSashRealizeClassProc);
    EXPECT_NE(XwkSashRealizeClassOriginalProc, XwkSashRealizeClassProc);
    EXPECT_EQ(xmLabelClassRec.core_class.expose, XwkLabelExposeClassProc);
    EXPECT_NE(XwkLabelExposeClassOriginalProc, XwkLabelExposeClassProc);
    XtDestroyWidget(other);
}

TEST(Startup, UserGlobals)
{
    xwktest::StartApp();
    EXPECT_EQ(xwkUID, (int)getuid());
    ASSERT_GE(xwkNumGIDs, 1);
    EXPECT_EQ(xwkGIDs[0], (int)getgid());
    std::set<int> seen(xwkGIDs, xwkGIDs + xwkNumGIDs);
    EXPECT_EQ((int)seen.size(), xwkNumGIDs) << "group ids are listed once";
    if (xwkUID == 0) {
        // Root belongs to every group of the system.
        setgrent();
        while (struct group *g = getgrent())
            EXPECT_TRUE(seen.count((int)g->gr_gid)) << g->gr_name;
        endgrent();
    }
    ASSERT_NE(xwkHOME, nullptr);
    EXPECT_STREQ(xwkHOME, XwkGetHomeDir());
    // A second call changes nothing.
    int *gids = xwkGIDs;
    XwkInitializeUser();
    EXPECT_EQ(xwkGIDs, gids);
}

TEST(Startup, ShadowColoursAreInTheScreenDatabase)
{
    Widget shell = xwktest::StartApp();
    XrmDatabase db = XtScreenDatabase(XtScreen(shell));
    char *type = nullptr;
    XrmValue value;
    ASSERT_TRUE(XrmGetResource(db, "xwktest.top.TopShadowColor", "XwkTest.Top.TopShadowColor",
                               &type, &value));
    EXPECT_STREQ(type, "Pixel");
    Pixel fg, top, bottom, select;
    XmGetColors(XtScreen(shell), shell->core.colormap, shell->core.background_pixel, &fg, &top,
                &bottom, &select);
    EXPECT_EQ(*(Pixel *)value.addr, top);
    ASSERT_TRUE(XrmGetResource(db, "a.BottomShadowColor", "A.BottomShadowColor", &type, &value));
    EXPECT_EQ(*(Pixel *)value.addr, bottom);
}

TEST(Startup, DragIconsAreTheLibrarys)
{
    Widget shell = xwktest::StartApp();
    Widget screen = XmGetXmScreen(XtScreen(shell));
    Widget valid = nullptr, invalid = nullptr, none = nullptr, source = nullptr;
    XtVaGetValues(screen, XmNdefaultValidCursorIcon, &valid, XmNdefaultInvalidCursorIcon, &invalid,
                  XmNdefaultNoneCursorIcon, &none, XmNdefaultSourceCursorIcon, &source, NULL);
    ASSERT_TRUE(valid && invalid && source);
    EXPECT_STREQ(XtName(valid), "validDragIcon");
    EXPECT_STREQ(XtName(invalid), "invalidDragIcon");
    EXPECT_EQ(none, invalid);
    EXPECT_STREQ(XtName(source), "sourceDragIcon");
    unsigned char initiator = 0;
    XtVaGetValues(XmGetXmDisplay(XtDisplay(shell)), XmNdragInitiatorProtocolStyle, &initiator,
                  NULL);
    EXPECT_EQ(initiator, XmDRAG_PREFER_RECEIVER);
}

TEST(Units, RoundingInSixteenBits)
{
    xwktest::StartApp();
    unsigned short x = 0, y = 0;
    cm_pix(1.0f, 2.0f, &x, &y);
    EXPECT_EQ(x, 28);
    EXPECT_EQ(y, 56);
    cm_pix(0.02f, 0.01f, &x, &y);   // 0.56 and 0.28 pixels
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 0);
    cm_pix(3000.0f, -1.0f, &x, &y); // 84000 and -28 wrap in 16 bits
    EXPECT_EQ(x, 84000 - 65536);
    EXPECT_EQ(y, 65536 - 28);
    y = 7;
    cm_pix(2.0f, 1.0f, &x, nullptr);
    EXPECT_EQ(x, 56);
    EXPECT_EQ(y, 7);
    float cx = 0, cy = 0;
    pix_cm(28, 42, &cx, &cy);
    EXPECT_EQ(cx, 1.0f);
    EXPECT_EQ(cy, 1.5f);
    pix_cm(65535, 0, &cx, nullptr);
    EXPECT_FLOAT_EQ(cx, 65535.0f / 28.0f);
    EXPECT_EQ(XwkWidth(0.5f), 14);
    EXPECT_EQ(XwkHeight(10.0f), 280);
}

TEST(Version, CheckAndBanner)
{
    EXPECT_TRUE(XwkCheckVersion(1, 0));
    EXPECT_FALSE(XwkCheckVersion(1, 99));
    EXPECT_FALSE(XwkCheckVersion(2, 0));
    EXPECT_STREQ(XwkVersionString + strlen(XwkVersionString) - 1, "\n");
    EXPECT_EQ(strncmp(XwkVersionString, "\nXwk GUI Library.\n", 18), 0);
}

// ---------------------------------------------------------------------
// The behaviour the hooks change in Motif's sash and label classes

namespace {

struct PanedWindow {
    Widget shell, paned, sash;
};

PanedWindow make_paned(int spacing, Boolean separator, int indent, int sash_w, int sash_h,
                       unsigned char orientation = XmVERTICAL)
{
    Widget app = xwktest::StartApp();
    PanedWindow p;
    p.shell = XtVaCreatePopupShell("panes", topLevelShellWidgetClass, app, XmNwidth, 300,
                                   XmNheight, 200, NULL);
    p.paned = XtVaCreateManagedWidget(
        "paned", xmPanedWindowWidgetClass, p.shell, XmNspacing, spacing, XmNseparatorOn, separator,
        XmNsashIndent, indent, XmNsashWidth, sash_w, XmNsashHeight, sash_h, XmNorientation,
        orientation, NULL);
    XtVaCreateManagedWidget("one", xmFormWidgetClass, p.paned, XmNwidth, 300, XmNheight, 90, NULL);
    XtVaCreateManagedWidget("two", xmFormWidgetClass, p.paned, XmNwidth, 300, XmNheight, 90, NULL);
    XtPopup(p.shell, XtGrabNone);
    xwktest::WaitViewable(p.shell);
    xwktest::Settle();
    p.sash = XtNameToWidget(p.paned, "Sash");
    return p;
}

int expose_calls;
void (*saved_expose)(Widget, XEvent *, Region);
void counting_expose(Widget w, XEvent *e, Region r)
{
    expose_calls++;
    saved_expose(w, e, r);
}

// Redraws the label and counts the passes through Motif's own expose.
int count_passes(Widget label)
{
    saved_expose = XwkLabelExposeClassOriginalProc;
    XwkLabelExposeClassOriginalProc = counting_expose;
    expose_calls = 0;
    XEvent ev = {};
    ev.xexpose.type = Expose;
    ev.xexpose.window = XtWindow(label);
    ev.xexpose.width = label->core.width;
    ev.xexpose.height = label->core.height;
    XtClass(label)->core_class.expose(label, &ev, nullptr);
    XwkLabelExposeClassOriginalProc = saved_expose;
    return expose_calls;
}

// A form in a new top-level shell of the application.
Widget form_in_shell(const char *name)
{
    Widget shell = XtVaCreatePopupShell(name, topLevelShellWidgetClass, xwktest::StartApp(), NULL);
    return XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
}

}  // namespace

// Flat: as thick as the spacing, the paned window's whole length, no border.
TEST(SashHook, FlatSashOnlyUnderTheExactConditions)
{
    struct { int spacing; Boolean sep; int indent, w, h; unsigned char orientation; bool flat; }
    cases[] = {
        {6, False, 0, 10, 4, XmVERTICAL, true},  {6, False, 0, 4, 10, XmHORIZONTAL, true},
        {5, False, 0, 10, 4, XmVERTICAL, false},   // spacing not 6
        {6, True, 0, 10, 4, XmVERTICAL, false},    // separator on
        {6, False, 2, 10, 4, XmVERTICAL, false},   // indented
        {6, False, 0, 10, 10, XmVERTICAL, false},  // square sash
    };
    for (auto &c : cases) {
        PanedWindow p = make_paned(c.spacing, c.sep, c.indent, c.w, c.h, c.orientation);
        ASSERT_NE(p.sash, nullptr);
        bool across = c.orientation == XmVERTICAL;
        int w = !c.flat ? c.w : across ? p.paned->core.width : 6;
        int h = !c.flat ? c.h : across ? 6 : p.paned->core.height;
        EXPECT_EQ(p.sash->core.width, w) << "spacing " << c.spacing << ", indent " << c.indent;
        EXPECT_EQ(p.sash->core.height, h) << "separator " << (int)c.sep;
        EXPECT_TRUE(!c.flat || p.sash->core.border_width == 0) << "a flat sash has no border";
        XtDestroyWidget(p.shell);
    }
}

TEST(LabelHook, InsensitiveTextIsEtched)
{
    Widget form = form_in_shell("etched"), shell = XtParent(form);
    XmString text = XmStringCreateLocalized((char *)"WWWW MMMM");
    Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, form, XmNlabelString, text,
                                           XmNsensitive, False, NULL);
    XmStringFree(text);
    XtPopup(shell, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(label));
    xwktest::Settle();

    Pixel fg = xwktest::PixelOf(label, XmNforeground);
    Pixel top = xwktest::PixelOf(label, XmNtopShadowColor);
    Pixel bottom = xwktest::PixelOf(label, XmNbottomShadowColor);
    ASSERT_NE(top, bottom);
    XClearArea(XtDisplay(label), XtWindow(label), 0, 0, 0, 0, True);
    xwktest::Settle();
    xwktest::Capture cap(label);
    ASSERT_TRUE(cap.ok());
    int w = cap.width(), h = cap.height();
    EXPECT_GT(cap.Count(top, 0, 0, w, h), 10) << "the raised pass shows";
    EXPECT_GT(cap.Count(bottom, 0, 0, w, h), 10) << "the sunken pass shows";
    EXPECT_EQ(cap.Count(fg, 0, 0, w, h), 0) << "no normal text";

    EXPECT_EQ(count_passes(label), 2);
    XtSetSensitive(label, True);
    EXPECT_EQ(count_passes(label), 1);
    XtDestroyWidget(shell);
}

TEST(LabelHook, InsensitivePixmapLabelIsDrawnOnce)
{
    Widget form = form_in_shell("pixmap"), shell = XtParent(form);
    XtRealizeWidget(shell);
    Pixmap pm = XCreatePixmap(XtDisplay(shell), XtWindow(shell), 8, 8,
                              DefaultDepthOfScreen(XtScreen(shell)));
    Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, form, XmNlabelType,
                                           XmPIXMAP, XmNlabelPixmap, pm, XmNsensitive, False, NULL);
    XtPopup(shell, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(label));
    EXPECT_EQ(count_passes(label), 1);
    XtDestroyWidget(shell);
    XFreePixmap(XtDisplay(xwktest::StartApp()), pm);
}

TEST(LabelHook, ArmedPushButtonTextMovesByOnePixel)
{
    Widget form = form_in_shell("armed"), shell = XtParent(form);
    XmString text = XmStringCreateLocalized((char *)"Press");
    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, form,
                                            XmNlabelString, text, XmNfillOnArm, False, NULL);
    XmStringFree(text);
    XtPopup(shell, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(button));
    xwktest::Settle();
    Pixel fg = xwktest::PixelOf(button, XmNforeground);

    Dimension highlight = 0, shadow = 0;
    XtVaGetValues(button, XmNhighlightThickness, &highlight, XmNshadowThickness, &shadow, NULL);
    const int border = highlight + shadow;
    auto text_box = [&](int *left, int *top) {
        xwktest::Capture cap(button);
        *left = *top = 1 << 20;
        for (int y = border; y < cap.height() - border; y++)
            for (int x = border; x < cap.width() - border; x++)
                if (cap.Pixel(x, y) == fg) {
                    *left = std::min(*left, x);
                    *top = std::min(*top, y);
                }
    };
    // Inside the shadow, only the text is in the foreground colour.
    int x0, y0, x1, y1;
    text_box(&x0, &y0);
    xwktest::Press(button, button->core.width / 2, button->core.height / 2, 1, 100);
    xwktest::Settle();
    text_box(&x1, &y1);
    XTestFakeButtonEvent(XtDisplay(button), 1, False, CurrentTime);
    xwktest::Settle();
    EXPECT_EQ(x1, x0 + 1);
    EXPECT_EQ(y1, y0 + 1);
    XtDestroyWidget(shell);
}
