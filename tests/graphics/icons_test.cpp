// Icons from XPM data and files, bad XPM input, drag icons, cursors and
// scroll bar colours.
#include "xwktest.h"

#include <X11/IntrinsicP.h>
#include <Xm/DragIcon.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>

namespace {

const char *kFace[] = {
    "4 2 4 1 1 0",
    "  c None",
    ". c #ff0000",
    "f s foreground c black",
    "b s background c white",
    " .fb",
    "..ff",
};

const char *kPlain[] = {
    "2 2 2 1",
    "a c #0000ff",
    "b c #00ff00",
    "ab",
    "ba",
};

Widget ColouredLabel(Widget parent, Pixel background)
{
    return XtVaCreateManagedWidget("icons", xmLabelWidgetClass, parent, XmNbackground, background,
                                   NULL);
}

const char *kFaceFile =
    "/* XPM */\n"
    "static char *face[] = {\n"
    "/* width height colours chars */\n"
    "\"3 2 2 1\",\n"
    "\"x c #00ff00\",\n"
    "\"o c None\",\n"
    "\"xox\",\n"
    "\"oxo\"};\n";

// The directory Xt searches for pixmaps.  Xt reads the search path once, at
// the first lookup: it is set before anything.
struct PixmapDir {
    xwktest::TempDir dir;
    PixmapDir()
    {
        mkdir(dir.Path("pixmaps").c_str(), 0700);
        std::string search = dir.Path("%T/%N%S:") + dir.Path("%T/%N");
        setenv("XFILESEARCHPATH", search.c_str(), 1);
    }
    // Writes a file in the pixmaps folder and returns its path.
    std::string Write(const std::string &name, const std::string &text) const
    {
        return dir.Write("pixmaps/" + name, text);
    }
} files;

}  // namespace

TEST(Icons, NoneTakesTheBackgroundAndSymbolsTheWidgetColours)
{
    Widget shell = xwktest::StartApp();
    Display *dpy = XtDisplay(shell);
    Widget label = ColouredLabel(shell, 0x336699);
    Pixel fg, top, bottom, select;
    XmGetColors(XtScreen(label), label->core.colormap, 0x336699, &fg, &top, &bottom, &select);

    XwkIcon *icon = XwkIconCreateFromData(label, (char **)kFace);
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->fileName, nullptr);
    EXPECT_NE(icon->mask, 0u);
    EXPECT_EQ(icon->composed, 0u);
    EXPECT_EQ(icon->attributes.width, 4u);
    EXPECT_EQ(icon->attributes.height, 2u);
    EXPECT_EQ(icon->attributes.depth, 24u);

    xwktest::Capture pic(dpy, icon->pixmap, 0, 0, 4, 2);
    ASSERT_TRUE(pic.ok());
    EXPECT_EQ(pic.Pixel(0, 0), 0x336699UL);   // "None"
    EXPECT_EQ(pic.Pixel(1, 0), 0xff0000UL);
    EXPECT_EQ(pic.Pixel(2, 0), fg);           // "s foreground"
    EXPECT_EQ(pic.Pixel(3, 0), 0x336699UL);   // "s background"
    xwktest::Capture mask(dpy, icon->mask, 0, 0, 4, 2);
    EXPECT_EQ(mask.Pixel(0, 0), 0UL);
    EXPECT_EQ(mask.Pixel(1, 0), 1UL);

    // Each call from data is a new record.
    XwkIcon *again = XwkIconCreateFromData(label, (char **)kFace);
    EXPECT_NE(again, icon);
    XwkIconFree(label, again);

    XwkIcon *plain = XwkIconCreateFromData(label, (char **)kPlain);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->mask, 0u);
    EXPECT_EQ(plain->composed, plain->pixmap);
    XwkIconFree(label, plain);
    XwkIconFree(label, nullptr);
}

TEST(Icons, OneRecordPerFile)
{
    Widget shell = xwktest::StartApp();
    std::string face = files.Write("face.xpm", kFaceFile);

    XwkIcon *a = XwkIconCreateFromFile(shell, "face");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(std::string(a->fileName), face);
    EXPECT_EQ(a->attributes.width, 3u);
    EXPECT_EQ(XwkIconCreateFromFile(shell, "face.xpm"), a);
    EXPECT_EQ(XwkIconCreateFromFile(shell, face.c_str()), a);

    EXPECT_EQ(XwkIconCreateFromFile(shell, "missing"), nullptr);
    EXPECT_EQ(XwkIconCreateFromFile(shell, files.dir.Path("pixmaps/missing.xpm").c_str()), nullptr);
    EXPECT_EQ(XwkIconCreateFromFile(shell, "face"), a);

    // One row high, with a hot spot.
    files.Write("row.xpm", "/* XPM */\nstatic char *row[] = {\n\"3 1 2 1 2 0\",\n"
                           "\"x c #0000ff\",\n\"o c #ffffff\",\n\"xox\"};\n");
    XwkIcon *row = XwkIconCreateFromFile(shell, "row");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->attributes.width, 3u);
    EXPECT_EQ(row->attributes.height, 1u);
    EXPECT_TRUE(row->attributes.valuemask & XpmHotspot);
    EXPECT_EQ(row->attributes.x_hotspot, 2u);
    xwktest::Capture pic(XtDisplay(shell), row->pixmap, 0, 0, 3, 1);
    EXPECT_EQ(pic.Pixel(0, 0), 0x0000ffUL);
    EXPECT_EQ(pic.Pixel(1, 0), 0xffffffUL);
    XwkIconFree(shell, row);

    XwkIconFree(shell, a);
    XwkIcon *b = XwkIconCreateFromFile(shell, "face");
    ASSERT_NE(b, nullptr);
    XwkIconFree(shell, b);
}

TEST(Icons, BadDataGivesNothingAndNoXError)
{
    Widget shell = xwktest::StartApp();
    std::vector<std::vector<const char *>> bad = {
        {"2 2 3 1", "a c red", "b c blue", "ab", "ba", "", ""},          // one colour short
        {"0 0 1 1", "a c red", "", ""},                                   // empty picture
        {"-4 2 1 1", "a c red", "aaaa", "aaaa"},                          // negative width
        {"100000 100000 1 1", "a c red", "a", "a"},                      // huge
        {"4 2 1 1", "a c red", "aa", "aaaa"},                             // short row
        {"2 2 1 3", "abc c red", "abcab", "abcabc"},                      // short row, 3 chars
        {"2 1 1 1", "a c nosuchcolour", "aa"},                            // unknown colour
        {"2 1 1 1", "a c red", "ab"},                                     // pixel of no colour
        {"\x01\xff\x7f", "\x80\x81", "\xfe", "", "", ""},                 // garbage
        {"2 1 1 0", "a c red", "aa"},                                     // no chars per pixel
        {"", "", ""},
    };
    xwktest::Warnings watch;
    for (size_t i = 0; i < bad.size(); i++) {
        std::vector<const char *> lines = bad[i];
        for (int k = 0; k < 8; k++)
            lines.push_back("");
        xwkXpmStatus = 0;
        EXPECT_EQ(XwkIconCreateFromData(shell, (char **)lines.data()), nullptr) << "case " << i;
        EXPECT_NE(xwkXpmStatus, 0) << "case " << i;
        XwkIcon record;
        memset(&record, 0x5a, sizeof record);
        EXPECT_FALSE(XwkIconCreateRecFromData(shell, (char **)lines.data(), &record));
        EXPECT_EQ(record.pixmap, 0u);
        EXPECT_EQ(record.fileName, nullptr);
    }
    EXPECT_EQ(XwkIconCreateFromData(shell, nullptr), nullptr);
    EXPECT_EQ(XwkIconCreateFromData(nullptr, (char **)kPlain), nullptr);

    std::vector<std::string> texts = {
        "/* XPM */\nstatic char *x[] = {\n\"3 1 2 1\",\n\"x c red\",\n",         // truncated
        "/* XPM */\nstatic char *x[] = {\"60000 60000 1 1\",\"x c red\",\"x\"};\n",
        std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16),
        "/* XPM */\nstatic char *x[] = {\"2 2 5 1\",\"x c red\",\"xx\",\"xx\"};\n",
        "",
    };
    for (size_t i = 0; i < texts.size(); i++) {
        std::string path = files.Write("bad" + std::to_string(i) + ".xpm", texts[i]);
        EXPECT_EQ(XwkIconCreateFromFile(shell, path.c_str()), nullptr) << "file " << i;
    }
    EXPECT_EQ(watch.XErrors(), 0);
}

TEST(Icons, FreeingTheListSurvivesPixmapsTheServerDropped)
{
    Widget shell = xwktest::StartApp();
    Display *dpy = XtDisplay(shell);
    XwkIcon *a = XwkIconCreateFromData(shell, (char **)kFace);
    XwkIcon *b = XwkIconCreateFromData(shell, (char **)kPlain);
    ASSERT_TRUE(a && b);
    Pixmap extra = XCreatePixmap(dpy, DefaultRootWindow(dpy), 2, 2, 24);
    b->extraPixmap = extra;
    XFreePixmap(dpy, a->pixmap);
    XFreePixmap(dpy, a->mask);
    xwktest::Warnings watch;
    XwkIconFreeIconsList();
    EXPECT_EQ(watch.XErrors(), 0);
    XFreePixmap(dpy, extra);
    EXPECT_EQ(watch.XErrors(), 1) << "the extra pixmap went with its icon";

    // The list starts again.
    XwkIcon *c = XwkIconCreateFromFile(shell, files.Write("face.xpm", kFaceFile).c_str());
    ASSERT_NE(c, nullptr);
    XwkIconFreeIconsList();
}

TEST(Icons, PseudoColorIconOnAFullMapTakesNearestCells)
{
    Widget pseudo = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(pseudo);
    // Every cell taken by another client and dark, one of them near green.
    xwktest::FullPseudoColorMap full;
    ASSERT_FALSE(full.pixels.empty());
    for (size_t i = 1; i < full.pixels.size(); i++)
        full.Store(i, xwktest::Rgb(0x1010, 0x2020, 0x3030));
    full.Store(0, xwktest::Rgb(0x1212, 0xf0f0, 0x3434));

    std::string text = kFaceFile;
    text.replace(text.find("#00ff00"), 7, "#12f034");
    files.Write("near.xpm", text);
    xwktest::Warnings watch;
    XwkIcon *icon = XwkIconCreateFromFile(pseudo, "near");
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->attributes.depth, 8u);
    xwktest::Capture pic(dpy, icon->pixmap, 0, 0, 3, 2);
    EXPECT_EQ(pic.Pixel(0, 0), full.pixels[0]);
    EXPECT_EQ(pic.Pixel(1, 0), pseudo->core.background_pixel);
    EXPECT_EQ(watch.XErrors(), 0);
    XwkIconFree(pseudo, icon);
}

TEST(DragIcons, FromAnIconOrEmpty)
{
    Widget shell = xwktest::StartApp();
    XwkIcon *icon = XwkIconCreateFromData(shell, (char **)kFace);
    ASSERT_NE(icon, nullptr);
    Widget drag = XwkCreateDragIconWidget(shell, icon);
    ASSERT_NE(drag, nullptr);
    EXPECT_STREQ(XtName(drag), "dragIcon");
    using xwktest::Get;
    EXPECT_EQ(Get<Pixmap>(drag, XmNpixmap), icon->pixmap);
    EXPECT_EQ(Get<Pixmap>(drag, XmNmask), icon->mask);
    EXPECT_EQ(Get<Dimension>(drag, XmNwidth), 4);
    EXPECT_EQ(Get<Dimension>(drag, XmNheight), 2);
    EXPECT_EQ(Get<Position>(drag, XmNhotX), 1);   // the hot spot "1 0" of the values line
    EXPECT_EQ(Get<Position>(drag, XmNhotY), 0);

    Widget empty = XwkCreateDragIconWidget(shell, nullptr);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(Get<Dimension>(empty, XmNwidth), 1);
    EXPECT_EQ(Get<Dimension>(empty, XmNheight), 1);
    EXPECT_EQ(Get<Cardinal>(empty, XmNdepth), 1u);
    Pixmap pixmap = Get<Pixmap>(empty, XmNpixmap);
    EXPECT_NE(pixmap, 0u);
    Widget second = XwkCreateDragIconWidget(shell, nullptr);
    EXPECT_EQ(Get<Pixmap>(second, XmNpixmap), pixmap);
    XtDestroyWidget(drag);
    XtDestroyWidget(empty);
    XtDestroyWidget(second);
    XwkIconFree(shell, icon);
}

TEST(Cursors, SolidAndInvisibleCursors)
{
    Widget shell = xwktest::StartApp();
    Widget box = XtVaCreateManagedWidget("box", xmLabelWidgetClass, shell, NULL);
    XtRealizeWidget(shell);
    xwktest::Warnings watch;
    char bits[] = {0x0f, 0x0f, 0x0f, 0x0f, 0x0f, 0x0f, 0x0f, 0x0f};
    char mask[] = {0x1f, 0x1f, 0x1f, 0x1f, 0x1f, 0x1f, 0x1f, 0x1f};
    Cursor c = create_solid_cursor(shell, bits, mask, 8, 8, 2, 3);
    EXPECT_NE(c, 0u);
    XwkAddSolidCursor(shell, xmLabelWidgetClass, c);
    XwkAddSolidCursor(shell, xmLabelWidgetClass, None);
    XwkSetNoneCursor(box);
    XwkSetNoneCursor(shell);
    EXPECT_EQ(watch.XErrors(), 0);
    XtUnmanageChild(box);
    XtDestroyWidget(box);
}

TEST(ScrollBars, ColouredWithTheSelectColour)
{
    Widget shell = xwktest::StartApp();
    Widget list = XmCreateScrolledList(shell, (char *)"list", nullptr, 0);
    Widget sw = XtParent(list);
    Widget vsb = nullptr, hsb = nullptr;
    XtVaGetValues(sw, XmNverticalScrollBar, &vsb, XmNhorizontalScrollBar, &hsb, NULL);
    ASSERT_NE(vsb, nullptr);
    Pixel fg, top, bottom, select;
    XmGetColors(XtScreen(sw), sw->core.colormap, 0x884422, &fg, &top, &bottom, &select);
    XwkSetScrollbarColor(vsb, 0x884422);
    EXPECT_EQ(xwktest::PixelOf(vsb, XmNbackground), 0x884422UL);
    EXPECT_EQ(xwktest::PixelOf(vsb, XmNtroughColor), select);

    Widget label = ColouredLabel(shell, 0x123456);
    XwkSetScrollbarColor(label, 0x884422);
    EXPECT_EQ(xwktest::PixelOf(label, XmNbackground), 0x123456UL);

    XtVaSetValues(sw, XmNbackground, 0x224488, NULL);
    XwkResetScrollBarsColor(sw);
    for (Widget bar : {vsb, hsb}) {
        if (bar) {
            EXPECT_EQ(xwktest::PixelOf(bar, XmNbackground), 0x224488UL);
        }
    }
    XtDestroyWidget(sw);
    XtDestroyWidget(label);
}
