// The library's resource converters.  They are registered after Motif's and
// so replace them: colour names go through a palette where there is one and
// a full colormap gives the nearest colour instead of a failed widget.
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>

#include "frame/XmPrivate.h"

#include <Xm/Display.h>
#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>

#include <strings.h>

#include <string>

namespace {

XtConvertArgRec colour_args[] = {
    {XtWidgetBaseOffset, (XtPointer)XtOffsetOf(WidgetRec, core.screen), sizeof(Screen *)},
    {XtWidgetBaseOffset, (XtPointer)XtOffsetOf(WidgetRec, core.colormap), sizeof(Colormap)},
};

void display_arg(Widget w, Cardinal *, XrmValue *value)
{
    value->size = sizeof(Display *);
    value->addr = (XPointer)&DisplayOfScreen(XtScreenOfObject(w));
}

XtConvertArgRec display_args[] = {
    {XtProcedureArg, (XtPointer)display_arg, 0},
};

// Xt's convention for handing back a result: into the caller's storage when
// it gave some and it is large enough, else into a static.
template <typename T>
Boolean store(XrmValuePtr to, T value)
{
    if (to->addr) {
        if (to->size < sizeof(T)) {
            to->size = sizeof(T);
            return False;
        }
        *(T *)to->addr = value;
    } else {
        static T result;
        result = value;
        to->addr = (XPointer)&result;
    }
    to->size = sizeof(T);
    return True;
}

// One entry of a font list string: "name", "name=tag", a font set ends
// with ':' and lists its fonts with ';'.
struct FontEntry {
    std::string name;
    std::string tag;
    XmFontType type = XmFONT_IS_FONT;
};

std::string trimmed(const std::string &s)
{
    size_t a = s.find_first_not_of(" \t\n");
    if (a == std::string::npos)
        return {};
    size_t b = s.find_last_not_of(" \t\n");
    return s.substr(a, b - a + 1);
}

bool next_entry(const char **cursor, FontEntry *entry)
{
    const char *s = *cursor;
    while (*s == ',' || *s == ' ' || *s == '\t' || *s == '\n')
        s++;
    if (!*s)
        return false;
    const char *end = s;
    while (*end && *end != ',')
        end++;
    std::string text(s, end);
    *cursor = end;
    entry->tag = XmFONTLIST_DEFAULT_TAG;
    entry->type = XmFONT_IS_FONT;
    size_t eq = text.find('=');
    size_t colon = text.find(':');
    if (colon != std::string::npos && (eq == std::string::npos || colon < eq)) {
        entry->type = XmFONT_IS_FONTSET;
        entry->name = trimmed(text.substr(0, colon));
        std::string rest = trimmed(text.substr(colon + 1));
        if (!rest.empty())
            entry->tag = rest;
    } else if (eq != std::string::npos) {
        entry->name = trimmed(text.substr(0, eq));
        std::string tag = trimmed(text.substr(eq + 1));
        if (!tag.empty())
            entry->tag = tag;
    } else {
        entry->name = trimmed(text);
    }
    return !entry->name.empty();
}

Boolean string_to_font_list(Display *display, XrmValuePtr, Cardinal *num_args, XrmValuePtr from,
                            XrmValuePtr to, XtPointer *)
{
    if (*num_args != 1 || !from->addr)
        return False;
    const char *cursor = (const char *)from->addr;
    XmFontList list = nullptr;
    FontEntry entry;
    while (next_entry(&cursor, &entry)) {
        XmFontListEntry e = XmFontListEntryLoad(display, (char *)entry.name.c_str(), entry.type,
                                                (char *)entry.tag.c_str());
        if (!e)
            continue;
        list = XmFontListAppendEntry(list, e);
        XmFontListEntryFree(&e);
    }
    if (!list) {
        XtDisplayStringConversionWarning(display, (char *)from->addr, XmRFontList);
        return False;
    }
    if (!store(to, list)) {
        XmFontListFree(list);
        return False;
    }
    return True;
}

void free_font_list(XtAppContext, XrmValuePtr to, XtPointer, XrmValuePtr, Cardinal *)
{
    XmFontListFree(*(XmFontList *)to->addr);
}

Boolean string_to_render_table(Display *display, XrmValuePtr, Cardinal *num_args, XrmValuePtr from,
                               XrmValuePtr to, XtPointer *)
{
    if (*num_args != 1 || !from->addr)
        return False;
    const char *cursor = (const char *)from->addr;
    XmRenderTable table = nullptr;
    FontEntry entry;
    while (next_entry(&cursor, &entry)) {
        XtPointer font = entry.type == XmFONT_IS_FONT
                             ? (XtPointer)XLoadQueryFont(display, entry.name.c_str())
                             : nullptr;
        if (entry.type == XmFONT_IS_FONTSET) {
            char **missing = nullptr;
            int nmissing = 0;
            char *def = nullptr;
            font = (XtPointer)XCreateFontSet(display, entry.name.c_str(), &missing, &nmissing, &def);
            if (missing)
                XFreeStringList(missing);
        }
        if (!font)
            continue;
        Arg args[2];
        XtSetArg(args[0], XmNfontType, entry.type);
        XtSetArg(args[1], XmNfont, font);
        XmRendition r = XmRenditionCreate(XmGetXmDisplay(display), (char *)entry.tag.c_str(), args, 2);
        table = XmRenderTableAddRenditions(table, &r, 1, XmMERGE_REPLACE);
        XmRenditionFree(r);
    }
    if (!table) {
        XtDisplayStringConversionWarning(display, (char *)from->addr, XmRRenderTable);
        return False;
    }
    if (!store(to, table)) {
        XmRenderTableFree(table);
        return False;
    }
    return True;
}

void free_render_table(XtAppContext, XrmValuePtr to, XtPointer, XrmValuePtr, Cardinal *)
{
    XmRenderTableFree(*(XmRenderTable *)to->addr);
}

struct PseudoPixel {
    const char *name;
    Pixel pixel;
};

const PseudoPixel kSelectNames[] = {
    {"default_select_color", XmDEFAULT_SELECT_COLOR},
    {"reversed_ground_colors", XmREVERSED_GROUND_COLORS},
    {"highlight_color", XmHIGHLIGHT_COLOR},
};

Boolean string_to_select_color(Display *display, XrmValuePtr args, Cardinal *num_args,
                               XrmValuePtr from, XrmValuePtr to, XtPointer *closure)
{
    const char *name = (const char *)from->addr;
    for (const PseudoPixel &p : kSelectNames) {
        if (name && strcasecmp(name, p.name) == 0) {
            *closure = (XtPointer)0;
            return store(to, p.pixel);
        }
    }
    Pixel pixel = 0;
    XrmValue out = {sizeof(Pixel), (XPointer)&pixel};
    Boolean ok = XtCallConverter(display, XwkCvtStringToPixel, args, *num_args, from, &out, nullptr);
    *closure = (XtPointer)(long)(ok ? 1 : 0);
    if (!ok)
        return False;
    return store(to, pixel);
}

}  // namespace

Boolean XwkCvtStringToPixel(Display *display, XrmValuePtr args, Cardinal *num_args, XrmValuePtr from,
                            XrmValuePtr to, XtPointer *closure)
{
    XtAppContext app = XtDisplayToApplicationContext(display);
    if (*num_args != 2) {
        XtAppWarningMsg(app, "wrongParameters", "cvtStringToPixel", "XwkError",
                        "String to pixel conversion needs screen and colormap arguments", nullptr,
                        nullptr);
        return False;
    }
    Colormap colormap = *(Colormap *)args[1].addr;
    char *name = (char *)from->addr;
    XColor color = {};
    int result = XwkAllocNamedColor(display, colormap, name, &color);
    if (result == 0) {
        String params[] = {name};
        Cardinal n = 1;
        XtAppWarningMsg(app, "badValue", "cvtStringToPixel", "XwkError",
                        "Color name \"%s\" is not defined", params, &n);
        *closure = nullptr;
        return False;
    }
    // A fixed or borrowed pixel has no closure, so it is never freed.
    *closure = result == 2 ? nullptr : (XtPointer)colormap;
    return store(to, color.pixel);
}

void XwkCvtFreePixel(XtAppContext app, XrmValuePtr to, XtPointer closure, XrmValuePtr args,
                     Cardinal *num_args)
{
    if (*num_args != 2) {
        XtAppWarningMsg(app, "wrongParameters", "freePixel", "XwkError",
                        "Freeing a pixel requires screen and colormap arguments", nullptr, nullptr);
        return;
    }
    Screen *screen = *(Screen **)args[0].addr;
    Colormap colormap = *(Colormap *)args[1].addr;
    if ((XtPointer)colormap == closure)
        XFreeColors(DisplayOfScreen(screen), colormap, (Pixel *)to->addr, 1, 0);
}

void XwkSetConverters(void)
{
    static bool done;
    if (done)
        return;
    done = true;
    XmRegisterConverters();
    for (const char *type : {XmRFontList, XmRButtonFontList, XmRLabelFontList, XmRTextFontList})
        XtSetTypeConverter(XmRString, type, string_to_font_list, display_args, 1, XtCacheByDisplay,
                           free_font_list);
    for (const char *type : {XmRRenderTable, XmRButtonRenderTable, XmRLabelRenderTable,
                             XmRTextRenderTable})
        XtSetTypeConverter(XmRString, type, string_to_render_table, display_args, 1,
                           XtCacheAll | XtCacheRefCount, free_render_table);
    XtSetTypeConverter(XmRString, XmRPixel, XwkCvtStringToPixel, colour_args, 2, XtCacheByDisplay,
                       XwkCvtFreePixel);
    XtSetTypeConverter(XmRString, XmRSelectColor, string_to_select_color, colour_args, 2,
                       XtCacheByDisplay, nullptr);
}
