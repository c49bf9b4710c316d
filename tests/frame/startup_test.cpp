// Start-up, the process globals, the class hooks and the centimetre scale.
#include "xwktest.h"

#include <Xm/LabelP.h>
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
