// The colour picker dialog driven by real clicks and typing, on the 24-bit
// TrueColor screen and on a full 8-bit PseudoColor map: the colour it
// returns, its fields in every unit, and the pixels of its sample.
#include "xwktest.h"

#include <Xm/LabelG.h>
#include <Xm/TextF.h>

namespace {

// Steps run from a timer inside the dialog's own loop, one every 150 ms once
// the picker is up, so each step sees what the input of the one before did.
struct Script {
    Widget parent;
    std::vector<std::function<void(Widget)>> steps;
    size_t next = 0;
    Widget picker = nullptr;
};

void Tick(XtPointer data, XtIntervalId *)
{
    Script *s = (Script *)data;
    if (!s->picker) {
        Widget found = xwktest::FindWidget(s->parent, "colorPicker");
        Widget grid = found ? xwktest::FindWidget(found, "palette") : nullptr;
        if (grid && XtIsRealized(grid) &&
            xwktest::MapState(XtDisplay(grid), XtWindow(grid)) == IsViewable)
            s->picker = found;
        XtAppAddTimeOut(xwkApp, 50, Tick, s);
        return;
    }
    s->steps[s->next++](s->picker);
    // The last step ends the dialog: no timer may outlive the script.
    if (s->next < s->steps.size())
        XtAppAddTimeOut(xwkApp, 150, Tick, s);
}

Widget Child(Widget picker, const char *name)
{
    return xwktest::FindWidget(picker, name);
}

std::string FieldText(Widget picker, const char *name)
{
    return xwktest::TextOf(Child(picker, name));
}

void TypeInto(Widget picker, const char *field, const char *text)
{
    Widget w = Child(picker, field);
    xwktest::ClickCenter(w);
    Display *dpy = XtDisplay(w);
    xwktest::PressKey(dpy, XK_End);
    for (int i = 0; i < 4; i++)
        xwktest::PressKey(dpy, XK_BackSpace);
    xwktest::TypeText(dpy, text);
    xwktest::PressKey(dpy, XK_Return);
}

struct Rgb8 {
    int r, g, b;
    bool operator==(const Rgb8 &) const = default;
};
std::ostream &operator<<(std::ostream &os, const Rgb8 &c)
{
    return os << c.r << "," << c.g << "," << c.b;
}

Rgb8 Shown(Widget picker)
{
    XColor c;
    EXPECT_TRUE(ColorPickerGetColor(picker, &c));
    return {c.red >> 8, c.green >> 8, c.blue >> 8};
}

// The colour the picker reports, and every pixel of its sample, read back
// from the screen, in it.
void ExpectColour(Widget picker, Rgb8 want)
{
    EXPECT_EQ(Shown(picker), want);
    Widget sample = Child(picker, "sample");
    xwktest::Capture shot(sample);
    ASSERT_TRUE(shot.ok());
    unsigned long pixel = shot.Pixel(shot.width() / 2, shot.height() / 2);
    EXPECT_EQ(shot.Count(pixel, 0, 0, shot.width(), shot.height()), shot.width() * shot.height());
    XColor c = xwktest::QueryColour(XtDisplay(sample), sample->core.colormap, pixel);
    EXPECT_EQ((Rgb8{c.red >> 8, c.green >> 8, c.blue >> 8}), want);
}

class ColorPickerDialog : public ::testing::TestWithParam<int> {
protected:
    Widget Parent()
    {
        xwktest::StartApp();
        if (GetParam() == 0)
            return xwkTopLevel;
        Widget pseudo = xwktest::PseudoColorShell();
        XtRealizeWidget(pseudo);
        return pseudo;
    }
};

TEST_P(ColorPickerDialog, ClicksAndTypedValuesInEveryUnit)
{
    Widget parent = Parent();
    xwktest::FullPseudoColorMap full;
    XColor cell5 = xwktest::QueryColour(XtDisplay(parent), parent->core.colormap, 5);
    // TrueColor shows a 6x6x6 cube first: cell 5 is pure blue.
    Rgb8 want5 = GetParam() == 0 ? Rgb8{0, 0, 255}
                                 : Rgb8{cell5.red >> 8, cell5.green >> 8, cell5.blue >> 8};
    Script script{parent, {
        [&](Widget p) {
            EXPECT_EQ(ColorPickerGetUnits(p), XWK_COLOR_DECIMAL);
            EXPECT_EQ(FieldText(p, "redField"), "10");
            EXPECT_EQ(FieldText(p, "blueField"), "30");
            ExpectColour(p, {10, 20, 30});
            xwktest::Click(Child(p, "palette"), 5 * XWK_COLOR_CELL + 5, 5);
        },
        [&](Widget p) {
            ExpectColour(p, want5);
            xwktest::ClickCenter(Child(p, "percent"));
            TypeInto(p, "redField", "50");
        },
        [&](Widget p) {
            EXPECT_EQ(ColorPickerGetUnits(p), XWK_COLOR_PERCENT);
            EXPECT_EQ(Shown(p).r, 128);
            EXPECT_EQ(FieldText(p, "redField"), "50");
            xwktest::ClickCenter(Child(p, "hexadecimal"));
            TypeInto(p, "greenField", "c0");
        },
        [&](Widget p) {
            EXPECT_EQ(FieldText(p, "greenField"), "C0");
            EXPECT_EQ(FieldText(p, "redField"), "80");
            xwktest::ClickCenter(Child(p, "decimal"));
            TypeInto(p, "blueField", "7");
        },
        [&](Widget p) {
            ExpectColour(p, {128, 192, 7});
            // Not a number: the bell, and the value stays.
            TypeInto(p, "blueField", "x1");
        },
        [&](Widget p) {
            EXPECT_EQ(FieldText(p, "blueField"), "7");
            xwktest::Click(Child(p, "red"), 2 + 200, 10);
        },
        [&](Widget p) {
            ExpectColour(p, {200, 192, 7});
            // A third of a turn of hue at the same saturation and value: green.
            TypeInto(p, "hueField", "85");
        },
        [&](Widget p) {
            ExpectColour(p, {7, 200, 7});
            EXPECT_EQ(FieldText(p, "valueField"), "200");
            WidgetList buttons = nullptr;
            ASSERT_EQ(XwkGetActionButtons(XtParent(XtParent(XtParent(p))), &buttons), 3);
            xwktest::ClickCenter(buttons[0]);
        },
    }};
    XtAppAddTimeOut(xwkApp, 50, Tick, &script);
    XColor color = xwktest::Rgb(10 * 257, 20 * 257, 30 * 257);
    ASSERT_TRUE(XwkColorPicker(parent, "Pick|colorpicker", nullptr, &color));
    EXPECT_EQ(script.next, script.steps.size());
    EXPECT_EQ((Rgb8{color.red / 257, color.green / 257, color.blue / 257}), (Rgb8{7, 200, 7}));
    if (GetParam() == 0) {
        EXPECT_EQ(color.pixel, 0x07C807UL);
    }
}

TEST_P(ColorPickerDialog, CancelLeavesTheColour)
{
    Widget parent = Parent();
    Script script{parent, {
        [&](Widget p) { xwktest::Click(Child(p, "green"), 2 + 255, 10); },
        [&](Widget p) {
            EXPECT_EQ(Shown(p).g, 255);
            xwktest::SendDeleteWindow(XwkGetWMShell(p));
        },
    }};
    XtAppAddTimeOut(xwkApp, 50, Tick, &script);
    XColor color = {};
    color.red = 0xFFFF;
    EXPECT_FALSE(XwkColorPicker(parent, nullptr, nullptr, &color));
    EXPECT_EQ(script.next, script.steps.size());
    EXPECT_EQ(color.red, 0xFFFF);
    EXPECT_EQ(color.green, 0);
}

// The widget-level picker in an application's own window, on a palette of
// its own colormap: the program sets colour and units, a grid click reports.
TEST(ColorPickerWidget, InAnOwnWindowOnAWritablePalette)
{
    Widget pseudo = xwktest::PseudoColorShell();
    XwkPalette *palette = XwkPaletteCreate(pseudo);
    Widget shell = XtVaCreatePopupShell("pickerShell", topLevelShellWidgetClass, pseudo,
                                        XtNvisual, palette->visual, XtNdepth, palette->depth,
                                        XtNcolormap, palette->colormap, NULL);
    // The application's form holds a gadget too: it has no core colours.
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
    XtVaCreateManagedWidget("note", xmLabelGadgetClass, form, NULL);
    Widget picker = ColorPicker(form, "ownPicker", palette, nullptr);
    XtPopup(shell, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(picker));
    xwktest::Settle();
    EXPECT_EQ(ColorPickerGetUnits(shell), -1);
    EXPECT_FALSE(ColorPickerGetColor(shell, nullptr));
    XColor c = xwktest::Rgb(0x1200, 0xFF00, 0x3400);
    ColorPickerSetColor(picker, &c);
    ColorPickerSetUnits(picker, XWK_COLOR_HEX);
    ColorPickerSetUnits(picker, 7);
    xwktest::Settle();
    EXPECT_EQ(ColorPickerGetUnits(picker), XWK_COLOR_HEX);
    EXPECT_EQ(FieldText(picker, "redField"), "12");
    EXPECT_EQ(FieldText(picker, "greenField"), "FF");
    ExpectColour(picker, {0x12, 0xFF, 0x34});
    // The grid shows the palette's cells: cell 1 is the screen's white.
    xwktest::Click(Child(picker, "palette"), XWK_COLOR_CELL + 5, 5);
    xwktest::Settle();
    XColor white = palette->cells[WhitePixelOfScreen(XtScreen(pseudo))].color;
    EXPECT_EQ(Shown(picker).r, white.red >> 8);
    EXPECT_EQ(Shown(picker).b, white.blue >> 8);
    XtDestroyWidget(shell);
    xwktest::Settle();
    Colormap map = palette->colormap;
    XwkPaletteDelete(palette);
    XFreeColormap(XtDisplay(pseudo), map);
}

INSTANTIATE_TEST_SUITE_P(Screens, ColorPickerDialog, ::testing::Values(0, 1),
                         [](const auto &info) {
                             return info.param == 0 ? "TrueColor24" : "PseudoColor8";
                         });

}  // namespace
