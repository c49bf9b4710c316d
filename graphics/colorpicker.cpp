// The colour picker: palette grid, value bars for red, green, blue, hue,
// saturation and value with fields in three units, and a sample area.
#include "graphics/colorpicker_private.h"

#include <Xwk/Text.h>

#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

using namespace xwk_picker;

namespace {

constexpr int kChannels = 6;
constexpr int kBarMargin = 2;
constexpr int kBarLevels = 256;
constexpr int kBarHeight = 20;
constexpr int kRowHeight = 34;
constexpr int kBarLeft = 90;
constexpr const char *kChannelNames[kChannels] = {"red", "green", "blue",
                                                  "hue", "saturation", "value"};
constexpr const char *kChannelLabels[kChannels] = {"Red", "Green", "Blue",
                                                   "Hue", "Saturation", "Value"};
constexpr const char *kUnitNames[3] = {"percent", "decimal", "hexadecimal"};
constexpr const char *kUnitLabels[3] = {"Percent", "Decimal", "Hexadecimal"};

struct Picker {
    Widget form = nullptr;
    Widget grid = nullptr;
    Widget bars[kChannels] = {};
    Widget fields[kChannels] = {};
    Widget units_toggles[3] = {};
    Widget sample = nullptr;
    PixelSource source;
    bool own_sample_cell = false;
    Pixel sample_pixel = 0;
    Rgb rgb;
    double hsv[3] = {0, 0, 0};  // hue as a fraction of a turn, saturation, value
    int units = XWK_COLOR_DECIMAL;
    GC gc = nullptr;
};

XContext picker_context;

Picker *picker_of(Widget w)
{
    XPointer p = nullptr;
    if (!w || !picker_context || XFindContext(XtDisplay(w), (XID)(uintptr_t)w, picker_context, &p))
        return nullptr;
    return (Picker *)p;
}

int to_byte(double level)
{
    return std::clamp((int)std::lround(level * 255.0), 0, 255);
}

// Hue is kept when the colour has none (grey or black), and saturation when
// it is black, so that moving the value bar to 0 and back loses nothing.
void hsv_from_rgb(Picker *p)
{
    double r = p->rgb.r / 255.0, g = p->rgb.g / 255.0, b = p->rgb.b / 255.0;
    double high = std::max({r, g, b}), low = std::min({r, g, b}), span = high - low;
    p->hsv[2] = high;
    if (high <= 0)
        return;
    p->hsv[1] = span / high;
    if (span <= 0)
        return;
    double h;
    if (high == r)
        h = (g - b) / span;
    else if (high == g)
        h = 2 + (b - r) / span;
    else
        h = 4 + (r - g) / span;
    h /= 6;
    p->hsv[0] = h < 0 ? h + 1 : h;
}

void rgb_from_hsv(Picker *p)
{
    double h = p->hsv[0] * 6, s = p->hsv[1], v = p->hsv[2];
    if (h >= 6)
        h -= 6;
    int sector = (int)h;
    double f = h - sector, lo = v * (1 - s), fall = v * (1 - s * f), rise = v * (1 - s * (1 - f));
    double c[3];
    switch (sector) {
    case 0: c[0] = v; c[1] = rise; c[2] = lo; break;
    case 1: c[0] = fall; c[1] = v; c[2] = lo; break;
    case 2: c[0] = lo; c[1] = v; c[2] = rise; break;
    case 3: c[0] = lo; c[1] = fall; c[2] = v; break;
    case 4: c[0] = rise; c[1] = lo; c[2] = v; break;
    default: c[0] = v; c[1] = lo; c[2] = fall; break;
    }
    p->rgb = Rgb{to_byte(c[0]), to_byte(c[1]), to_byte(c[2])};
}

double level_of(const Picker *p, int channel)
{
    switch (channel) {
    case 0: return p->rgb.r / 255.0;
    case 1: return p->rgb.g / 255.0;
    case 2: return p->rgb.b / 255.0;
    default: return p->hsv[channel - 3];
    }
}

// The colour with one channel at a level, for the bars' gradients.
Rgb with_level(const Picker *p, int channel, double level)
{
    Picker probe;
    probe.rgb = p->rgb;
    std::copy(std::begin(p->hsv), std::end(p->hsv), probe.hsv);
    if (channel < 3) {
        int *c[3] = {&probe.rgb.r, &probe.rgb.g, &probe.rgb.b};
        *c[channel] = to_byte(level);
        return probe.rgb;
    }
    probe.hsv[channel - 3] = level;
    rgb_from_hsv(&probe);
    return probe.rgb;
}

GC gc_of(Picker *p, Widget w)
{
    if (!p->gc)
        p->gc = XCreateGC(XtDisplay(w), XtWindow(w), 0, nullptr);
    return p->gc;
}

void draw_bar(Picker *p, int channel)
{
    Widget w = p->bars[channel];
    if (!XtIsRealized(w))
        return;
    Display *dpy = XtDisplay(w);
    Window win = XtWindow(w);
    GC gc = gc_of(p, w);
    int height = w->core.height;
    XSetForeground(dpy, gc, w->core.background_pixel);
    XFillRectangle(dpy, win, gc, 0, 0, w->core.width, height);
    Pixel last = 0;
    for (int x = 0; x < kBarLevels; x++) {
        Pixel pixel = p->source.pixel_for(with_level(p, channel, x / 255.0));
        if (x == 0 || pixel != last)
            XSetForeground(dpy, gc, pixel);
        last = pixel;
        XDrawLine(dpy, win, gc, kBarMargin + x, kBarMargin, kBarMargin + x, height - kBarMargin - 1);
    }
    int at = kBarMargin + (int)std::lround(level_of(p, channel) * 255);
    Screen *screen = XtScreen(w);
    XSetForeground(dpy, gc, BlackPixelOfScreen(screen));
    XDrawRectangle(dpy, win, gc, at - 2, 0, 4, height - 1);
    XSetForeground(dpy, gc, WhitePixelOfScreen(screen));
    XDrawLine(dpy, win, gc, at - 1, 1, at - 1, height - 2);
    XDrawLine(dpy, win, gc, at + 1, 1, at + 1, height - 2);
}

void draw_sample(Picker *p)
{
    Widget w = p->sample;
    if (!XtIsRealized(w))
        return;
    XSetForeground(XtDisplay(w), gc_of(p, w), p->sample_pixel);
    XFillRectangle(XtDisplay(w), XtWindow(w), gc_of(p, w), 0, 0, w->core.width, w->core.height);
}

std::string format_value(int units, double level)
{
    char text[16];
    if (units == XWK_COLOR_PERCENT)
        snprintf(text, sizeof text, "%d", std::clamp((int)std::lround(level * 100), 0, 100));
    else if (units == XWK_COLOR_HEX)
        snprintf(text, sizeof text, "%02X", to_byte(level));
    else
        snprintf(text, sizeof text, "%d", to_byte(level));
    return text;
}

// A level from a typed value in the units; false when the text is not a
// number of them.
bool parse_value(int units, const char *text, double *level)
{
    while (*text == ' ')
        text++;
    char *end = nullptr;
    long n = strtol(text, &end, units == XWK_COLOR_HEX ? 16 : 10);
    if (end == text)
        return false;
    if (units == XWK_COLOR_PERCENT && *end == '%')
        end++;
    while (*end == ' ')
        end++;
    if (*end)
        return false;
    double range = units == XWK_COLOR_PERCENT ? 100.0 : 255.0;
    *level = std::clamp((double)n, 0.0, range) / range;
    return true;
}

void show_fields(Picker *p)
{
    for (int i = 0; i < kChannels; i++)
        XmTextFieldSetString(p->fields[i], (char *)format_value(p->units, level_of(p, i)).c_str());
}

void show(Picker *p)
{
    if (p->own_sample_cell) {
        XColor c = to_xcolor(p->rgb);
        XwkPaletteSetPixel(p->source.palette, p->sample_pixel, &c);
    } else {
        p->sample_pixel = p->source.pixel_for(p->rgb);
    }
    for (int i = 0; i < kChannels; i++)
        draw_bar(p, i);
    draw_sample(p);
    show_fields(p);
}

void set_level(Picker *p, int channel, double level)
{
    level = std::clamp(level, 0.0, 1.0);
    if (channel < 3) {
        int *c[3] = {&p->rgb.r, &p->rgb.g, &p->rgb.b};
        *c[channel] = to_byte(level);
        hsv_from_rgb(p);
    } else {
        p->hsv[channel - 3] = level;
        rgb_from_hsv(p);
    }
    if (Grid *grid = grid_of(p->grid))
        grid_select(grid, -1);
    show(p);
}

int channel_of(Widget w, const Widget *widgets)
{
    for (int i = 0; i < kChannels; i++)
        if (widgets[i] == w)
            return i;
    return -1;
}

void bar_input(Widget w, XtPointer closure, XEvent *event, Boolean *)
{
    Picker *p = (Picker *)closure;
    int x;
    if (event->type == ButtonPress && event->xbutton.button == Button1)
        x = event->xbutton.x;
    else if (event->type == MotionNotify && (event->xmotion.state & Button1Mask))
        x = event->xmotion.x;
    else
        return;
    int channel = channel_of(w, p->bars);
    if (channel >= 0)
        set_level(p, channel, (x - kBarMargin) / 255.0);
}

void bar_expose(Widget w, XtPointer closure, XtPointer)
{
    Picker *p = (Picker *)closure;
    int channel = channel_of(w, p->bars);
    if (channel >= 0)
        draw_bar(p, channel);
}

void sample_expose(Widget, XtPointer closure, XtPointer)
{
    draw_sample((Picker *)closure);
}

void field_done(Widget w, XtPointer closure, XtPointer)
{
    Picker *p = (Picker *)closure;
    int channel = channel_of(w, p->fields);
    if (channel < 0)
        return;
    char *text = XmTextFieldGetString(w);
    double level = 0;
    bool ok = text && parse_value(p->units, text, &level);
    XtFree(text);
    if (!ok) {
        XBell(XtDisplay(w), 0);
        show_fields(p);
        return;
    }
    if (format_value(p->units, level) != format_value(p->units, level_of(p, channel)))
        set_level(p, channel, level);
    else
        show_fields(p);
}

void units_changed(Widget w, XtPointer closure, XtPointer call)
{
    Picker *p = (Picker *)closure;
    if (!((XmToggleButtonCallbackStruct *)call)->set)
        return;
    for (int i = 0; i < 3; i++)
        if (p->units_toggles[i] == w)
            p->units = i;
    show_fields(p);
}

void grid_chosen(Widget, XtPointer closure, XtPointer call)
{
    Picker *p = (Picker *)closure;
    p->rgb = from_xcolor(*(XColor *)call);
    hsv_from_rgb(p);
    show(p);
}

void picker_destroy(Widget w, XtPointer closure, XtPointer)
{
    Picker *p = (Picker *)closure;
    if (p->gc)
        XFreeGC(XtDisplay(w), p->gc);
    XDeleteContext(XtDisplay(w), (XID)(uintptr_t)w, picker_context);
    delete p;
}

Widget shell_of(Widget w)
{
    while (w && !XtIsShell(w))
        w = XtParent(w);
    return w;
}

// A writable palette gives the sample a cell that no widget of the shell
// uses, the highest such one, so that storing into it recolours nothing else.
void reserve_sample_cell(Picker *p)
{
    XwkPalette *palette = p->source.palette;
    if (!palette->cells || palette->readOnly || palette->shared)
        return;
    std::vector<Pixel> used;
    collect_pixels(shell_of(p->form), used);
    Screen *screen = XtScreen(p->form);
    used.push_back(BlackPixelOfScreen(screen));
    used.push_back(WhitePixelOfScreen(screen));
    for (int i = palette->mapEntries - 1; i >= 0; i--) {
        Pixel pixel = palette->cells[i].color.pixel;
        if (std::find(used.begin(), used.end(), pixel) != used.end())
            continue;
        p->own_sample_cell = true;
        p->sample_pixel = pixel;
        p->source.has_reserved = true;
        p->source.reserved = pixel;
        if (Grid *grid = grid_of(p->grid))
            grid_reserve(grid, pixel);
        return;
    }
}

// Return takes the typed value and stays in the dialog, where it would
// otherwise also press the dialog's default button.
void commit_action(Widget w, XEvent *, String *, Cardinal *)
{
    Picker *p = picker_of(XtParent(w));
    if (p)
        field_done(w, p, nullptr);
}

void take_return(Widget field)
{
    static XtTranslations keys;
    if (!keys) {
        static XtActionsRec actions[] = {{(char *)"xwkColorPickerCommit", commit_action}};
        XtAppAddActions(XtWidgetToApplicationContext(field), actions, 1);
        keys = XtParseTranslationTable("<Key>Return: xwkColorPickerCommit()\n"
                                       "<Key>KP_Enter: xwkColorPickerCommit()");
    }
    XtOverrideTranslations(field, keys);
}

Widget attach(Widget w, Widget left, int left_offset, int top_offset)
{
    XtVaSetValues(w, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, top_offset,
                  XmNleftAttachment, left ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget, left,
                  XmNleftOffset, left_offset, NULL);
    return w;
}

void make_rows(Picker *p)
{
    for (int i = 0; i < kChannels; i++) {
        int top = 4 + i * kRowHeight;
        XmString s = XmStringCreateLocalized(smi18n_gettext(kChannelLabels[i]));
        Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, p->form,
                                               XmNlabelString, s, NULL);
        XmStringFree(s);
        attach(label, p->grid, 8, top + 6);
        p->bars[i] = XtVaCreateManagedWidget(
            kChannelNames[i], xmDrawingAreaWidgetClass, p->form, XmNwidth,
            (Dimension)(kBarLevels + 2 * kBarMargin), XmNheight, (Dimension)kBarHeight,
            XmNresizePolicy, XmRESIZE_NONE, NULL);
        attach(p->bars[i], p->grid, kBarLeft, top + 6);
        XtAddCallback(p->bars[i], XmNexposeCallback, bar_expose, p);
        XtAddEventHandler(p->bars[i], ButtonPressMask | Button1MotionMask, False, bar_input, p);
        std::string field = std::string(kChannelNames[i]) + "Field";
        p->fields[i] = XtVaCreateManagedWidget(field.c_str(), xmTextFieldWidgetClass, p->form,
                                               XmNcolumns, 4, XmNmaxLength, 4, NULL);
        attach(p->fields[i], p->bars[i], 8, top);
        take_return(p->fields[i]);
        XtAddCallback(p->fields[i], XmNlosingFocusCallback, field_done, p);
    }
}

void make_units(Picker *p)
{
    Widget box = XtVaCreateWidget("units", xmRowColumnWidgetClass, p->form,
                                         XmNorientation, XmHORIZONTAL, XmNradioBehavior, True,
                                         XmNradioAlwaysOne, True, NULL);
    attach(box, p->grid, kBarLeft - 4, 4 + kChannels * kRowHeight);
    for (int i = 0; i < 3; i++) {
        XmString s = XmStringCreateLocalized(smi18n_gettext(kUnitLabels[i]));
        p->units_toggles[i] = XtVaCreateManagedWidget(kUnitNames[i], xmToggleButtonWidgetClass,
                                                      box, XmNlabelString, s, XmNset,
                                                      i == p->units ? XmSET : XmUNSET, NULL);
        XmStringFree(s);
        XtAddCallback(p->units_toggles[i], XmNvalueChangedCallback, units_changed, p);
    }
    // Sized before it is managed: its later request to the form, made when
    // the dialog is realized, would be refused.
    XtWidgetGeometry size = {};
    XtQueryGeometry(box, nullptr, &size);
    XtVaSetValues(box, XmNwidth, size.width, XmNheight, size.height, NULL);
    XtManageChild(box);
}

void make_sample(Picker *p)
{
    p->sample = XtVaCreateManagedWidget(
        "sample", xmDrawingAreaWidgetClass, p->form, XmNwidth,
        (Dimension)(XWK_COLOR_COLUMNS * XWK_COLOR_CELL), XmNheight, (Dimension)48,
        XmNresizePolicy, XmRESIZE_NONE, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, p->grid,
        XmNtopOffset, 8, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 4, NULL);
    XtAddCallback(p->sample, XmNexposeCallback, sample_expose, p);
}

}  // namespace

extern "C" {

Widget ColorPicker(Widget parent, const char *name, XwkPalette *palette, XwkPalette *colors)
{
    if (!parent)
        return nullptr;
    Picker *p = new Picker;
    p->source.palette = palette ? palette : XwkPaletteGetDefault(parent);
    p->form = XtVaCreateWidget(name ? name : "colorPicker", xmFormWidgetClass, parent, NULL);
    if (!picker_context)
        picker_context = XUniqueContext();
    XSaveContext(XtDisplay(p->form), (XID)(uintptr_t)p->form, picker_context, (XPointer)p);
    XtAddCallback(p->form, XmNdestroyCallback, picker_destroy, p);
    p->grid = ColorPickerPalette(p->form, "palette", p->source.palette, colors, grid_chosen, p);
    attach(p->grid, nullptr, 4, 4);
    make_rows(p);
    make_units(p);
    make_sample(p);
    XtManageChild(p->form);
    reserve_sample_cell(p);
    hsv_from_rgb(p);
    show(p);
    return p->form;
}

Boolean ColorPickerGetColor(Widget picker, XColor *color)
{
    Picker *p = picker_of(picker);
    if (!p || !color)
        return False;
    *color = to_xcolor(p->rgb);
    color->pixel = p->sample_pixel;
    return True;
}

void ColorPickerSetColor(Widget picker, const XColor *color)
{
    Picker *p = picker_of(picker);
    if (!p || !color)
        return;
    p->rgb = from_xcolor(*color);
    hsv_from_rgb(p);
    if (Grid *grid = grid_of(p->grid))
        grid_select(grid, -1);
    show(p);
}

void ColorPickerSetUnits(Widget picker, int units)
{
    Picker *p = picker_of(picker);
    if (!p || units < XWK_COLOR_PERCENT || units > XWK_COLOR_HEX)
        return;
    p->units = units;
    for (int i = 0; i < 3; i++)
        XmToggleButtonSetState(p->units_toggles[i], i == units, False);
    show_fields(p);
}

int ColorPickerGetUnits(Widget picker)
{
    Picker *p = picker_of(picker);
    return p ? p->units : -1;
}

}  // extern "C"
