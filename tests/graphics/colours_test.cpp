// Colour allocation with the nearest-cell search on a full PseudoColor map,
// named colours, and the resource converters.
#include "xwktest.h"

#include <Xm/Xm.h>

namespace {

struct Warning {
    std::string name, type, cls, text, param;
    bool operator==(const Warning &) const = default;
};
std::ostream &operator<<(std::ostream &os, const Warning &w)
{
    return os << w.name << "/" << w.type << "/" << w.cls << ": " << w.text << " " << w.param;
}
std::vector<Warning> warnings;

void RecordWarning(String name, String type, String cls, String text, String *params, Cardinal *n)
{
    warnings.push_back({name, type, cls, text, params && n && *n ? params[0] : ""});
}

using xwktest::Rgb;

Boolean CustomSelect(Display *, XrmValuePtr, Cardinal *, XrmValuePtr, XrmValuePtr to, XtPointer *)
{
    static Pixel value = 42;
    if (to->addr)
        *(Pixel *)to->addr = value;
    else
        to->addr = (XPointer)&value;
    to->size = sizeof(Pixel);
    return True;
}

Pixel ConvertTo(Widget w, const char *type, const char *text, Boolean *ok)
{
    XrmValue from = {(unsigned)strlen(text) + 1, (XPointer)text};
    Pixel result = 0;
    XrmValue to = {sizeof(Pixel), (XPointer)&result};
    *ok = XtConvertAndStore(w, XmRString, &from, (char *)type, &to);
    return result;
}

}  // namespace

TEST(FindColor, TrueColorAlwaysAllocates)
{
    Widget shell = xwktest::StartApp();
    Display *dpy = XtDisplay(shell);
    XColor c = Rgb(0x1234, 0x5678, 0x9abc);
    EXPECT_TRUE(XwkFindColor(dpy, DefaultColormapOfScreen(XtScreen(shell)), &c));
    EXPECT_EQ(c.pixel, 0x12569aUL);
}

TEST(FindColor, FullPseudoColorMapGivesTheNearestCell)
{
    Widget shell = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(shell);
    Colormap map = DefaultColormapOfScreen(XtScreen(shell));
    XColor free_one = Rgb(0x0101, 0x0202, 0x0303);
    EXPECT_TRUE(XwkFindColor(dpy, map, &free_one));

    // Another client fills the map with a grid of colours.
    xwktest::FullPseudoColorMap full;
    ASSERT_GT(full.pixels.size(), 100u);
    for (size_t i = 0; i < full.pixels.size(); i++)
        full.Store(i, Rgb((unsigned short)((i % 16) * 0x1111), (unsigned short)((i / 16) * 0x1111),
                          0x8080));
    // Grid entry 0x23 is (0x3333, 0x2222, 0x8080).
    XColor c = Rgb(0x3400, 0x2100, 0x7f00);
    EXPECT_FALSE(XwkFindColor(dpy, map, &c));
    EXPECT_EQ(c.pixel, full.pixels[0x23]);
    EXPECT_EQ(c.red, 0x3333);
    EXPECT_EQ(c.green, 0x2222);
    EXPECT_EQ(c.blue, 0x8080);

    // An exact match stops the search at once.
    XColor exact = Rgb(0x5555, 0x1111, 0x8080);
    EXPECT_FALSE(XwkFindColor(dpy, map, &exact));
    EXPECT_EQ(exact.pixel, full.pixels[0x15]);

    // Named colours: a fixed pixel or the nearest cell give 2.
    XColor named;
    EXPECT_EQ(XwkAllocNamedColor(dpy, map, "xtDEFAULTbackground", &named), 2);
    EXPECT_EQ(named.pixel, WhitePixelOfScreen(XtScreen(shell)));
    EXPECT_EQ(XwkAllocNamedColor(dpy, map, "XtDefaultForeground", &named), 2);
    EXPECT_EQ(named.pixel, BlackPixelOfScreen(XtScreen(shell)));
    EXPECT_EQ(XwkAllocNamedColor(dpy, map, "rgb:34/21/7f", &named), 2);
    EXPECT_EQ(named.pixel, full.pixels[0x23]);
    EXPECT_EQ(XwkAllocNamedColor(dpy, map, "no such colour", &named), 0);
    EXPECT_FALSE(XwkAllocXpmColor(dpy, map, (char *)"no such colour", &named));
    EXPECT_TRUE(XwkAllocXpmColor(dpy, map, (char *)"rgb:34/21/7f", &named));

    // The converter gives the nearest pixel with no closure: never freed.
    Screen *screen = XtScreen(shell);
    XrmValue args[2] = {{sizeof(Screen *), (XPointer)&screen}, {sizeof(Colormap), (XPointer)&map}};
    Cardinal nargs = 2;
    XrmValue from = {13, (XPointer)"rgb:34/21/7f"};
    Pixel pixel = 0;
    XrmValue to = {sizeof(Pixel), (XPointer)&pixel};
    XtPointer closure = (XtPointer)1;
    EXPECT_TRUE(XwkCvtStringToPixel(dpy, args, &nargs, &from, &to, &closure));
    EXPECT_EQ(pixel, full.pixels[0x23]);
    EXPECT_EQ(closure, nullptr);
}

TEST(AllocNamedColor, APaletteOnTheColormapServesNamedColours)
{
    Widget shell = xwktest::PseudoColorShell();
    Display *dpy = XtDisplay(shell);
    XwkPalette *p = XwkPaletteCreate(shell);
    XColor c;
    EXPECT_EQ(XwkAllocNamedColor(dpy, p->colormap, "#102030", &c), 1);
    ASSERT_LT(c.pixel, 256u);
    EXPECT_TRUE(p->cells[c.pixel].inUse);
    EXPECT_EQ(p->cells[c.pixel].color.red, 0x1000);
    EXPECT_EQ(XwkAllocNamedColor(dpy, p->colormap, "#zz", &c), 0);
    XwkPaletteDelete(p);
}

TEST(Converters, PixelConverterWarnsAndFrees)
{
    Widget shell = xwktest::StartApp();
    XwkSetConverters();
    XtAppSetWarningMsgHandler(xwktest::App(), RecordWarning);
    Display *dpy = XtDisplay(shell);

    Boolean ok;
    EXPECT_EQ(ConvertTo(shell, XmRPixel, "red", &ok), 0xff0000UL);
    EXPECT_TRUE(ok);
    EXPECT_EQ(ConvertTo(shell, XmRPixel, "XTDEFAULTBACKGROUND", &ok),
              WhitePixelOfScreen(XtScreen(shell)));
    EXPECT_TRUE(ok);

    warnings.clear();
    ConvertTo(shell, XmRPixel, "no-such-colour", &ok);
    EXPECT_FALSE(ok);
    Warning bad = {"badValue", "cvtStringToPixel", "XwkError", "Color name \"%s\" is not defined",
                   "no-such-colour"};
    EXPECT_NE(std::find(warnings.begin(), warnings.end(), bad), warnings.end());

    warnings.clear();
    Cardinal none = 0;
    XrmValue from = {4, (XPointer)"red"};
    XrmValue to = {0, nullptr};
    XtPointer closure = nullptr;
    EXPECT_FALSE(XwkCvtStringToPixel(dpy, nullptr, &none, &from, &to, &closure));
    XwkCvtFreePixel(xwktest::App(), &to, nullptr, nullptr, &none);
    EXPECT_EQ(warnings, (std::vector<Warning>{
        {"wrongParameters", "cvtStringToPixel", "XwkError",
         "String to pixel conversion needs screen and colormap arguments", ""},
        {"wrongParameters", "freePixel", "XwkError",
         "Freeing a pixel requires screen and colormap arguments", ""}}));

    // Storage too small: the size asked for comes back and the result is False.
    Screen *screen = XtScreen(shell);
    Colormap map = DefaultColormapOfScreen(screen);
    XrmValue args[2] = {{sizeof(Screen *), (XPointer)&screen}, {sizeof(Colormap), (XPointer)&map}};
    Cardinal two = 2;
    unsigned char tiny[2];
    XrmValue small = {2, (XPointer)tiny};
    EXPECT_FALSE(XwkCvtStringToPixel(dpy, args, &two, &from, &small, &closure));
    EXPECT_EQ(small.size, sizeof(Pixel));

    // A pixel really allocated carries its colormap and is freed once.
    Widget pseudo = xwktest::PseudoColorShell();
    Display *pdpy = XtDisplay(pseudo);
    Screen *pscreen = XtScreen(pseudo);
    Colormap pmap = DefaultColormapOfScreen(pscreen);
    XrmValue pargs[2] = {{sizeof(Screen *), (XPointer)&pscreen},
                         {sizeof(Colormap), (XPointer)&pmap}};
    XrmValue blue = {5, (XPointer)"blue"};
    Pixel pixel = 0;
    XrmValue out = {sizeof(Pixel), (XPointer)&pixel};
    ASSERT_TRUE(XwkCvtStringToPixel(pdpy, pargs, &two, &blue, &out, &closure));
    EXPECT_EQ(closure, (XtPointer)pmap);
    xwktest::Warnings watch;
    XwkCvtFreePixel(xwktest::App(), &out, closure, pargs, &two);
    EXPECT_EQ(watch.XErrors(), 0);
    XwkCvtFreePixel(xwktest::App(), &out, nullptr, pargs, &two);
    EXPECT_EQ(watch.XErrors(), 0);   // no closure: left alone
    XwkCvtFreePixel(xwktest::App(), &out, closure, pargs, &two);
    EXPECT_EQ(watch.XErrors(), 1);   // freed already by the first call

    XrmValue white = {20, (XPointer)"XtDefaultBackground"};
    closure = (XtPointer)1;
    EXPECT_TRUE(XwkCvtStringToPixel(pdpy, pargs, &two, &white, &out, &closure));
    EXPECT_EQ(closure, nullptr);
}

TEST(Converters, SelectColourNamesAndFonts)
{
    Widget shell = xwktest::StartApp();
    XwkSetConverters();
    Boolean ok;
    EXPECT_EQ(ConvertTo(shell, XmRSelectColor, "Highlight_Color", &ok), (Pixel)-3);
    EXPECT_TRUE(ok);
    EXPECT_EQ(ConvertTo(shell, XmRSelectColor, "DEFAULT_SELECT_COLOR", &ok), (Pixel)-1);
    EXPECT_EQ(ConvertTo(shell, XmRSelectColor, "reversed_ground_colors", &ok), (Pixel)-2);
    EXPECT_EQ(ConvertTo(shell, XmRSelectColor, "#00ff00", &ok), 0x00ff00UL);
    EXPECT_TRUE(ok);
    ConvertTo(shell, XmRSelectColor, "not-a-colour-name", &ok);
    EXPECT_FALSE(ok);

    XrmValue from = {6, (XPointer)"fixed"};
    XmFontList list = nullptr;
    XrmValue to = {sizeof list, (XPointer)&list};
    EXPECT_TRUE(XtConvertAndStore(shell, XmRString, &from, XmRFontList, &to));
    EXPECT_NE(list, nullptr);
    XmRenderTable table = nullptr;
    XrmValue to_table = {sizeof table, (XPointer)&table};
    EXPECT_TRUE(XtConvertAndStore(shell, XmRString, &from, XmRLabelRenderTable, &to_table));
    ASSERT_NE(table, nullptr);
    XmStringTag *tags = nullptr;
    int ntags = XmRenderTableGetTags(table, &tags);
    EXPECT_EQ(ntags, 1);
    for (int i = 0; i < ntags; i++)
        XtFree(tags[i]);
    XtFree((char *)tags);

    // A label built from the converted table draws with it.
    Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, shell, XtVaTypedArg,
                                           XmNrenderTable, XmRString, "fixed", 6, NULL);
    EXPECT_NE(xwktest::Get<XmRenderTable>(label, XmNrenderTable), nullptr);
    XtDestroyWidget(label);
}

// Last: a converter of the test's own stays in place when the library's
// are asked for again.
TEST(Converters, SettingThemTwiceRegistersOnce)
{
    Widget shell = xwktest::StartApp();
    XwkSetConverters();
    XtSetTypeConverter(XmRString, XmRSelectColor, CustomSelect, nullptr, 0, XtCacheNone, nullptr);
    XwkSetConverters();
    Boolean ok;
    EXPECT_EQ(ConvertTo(shell, XmRSelectColor, "highlight_color", &ok), 42u);
}
