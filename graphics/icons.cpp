// Icons: XPM pictures read by libXpm into pixmaps in the colours of the
// widget they are made for; one record per file for the whole process.
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>

#include <Xm/DragIcon.h>
#include <Xm/Screen.h>
#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <algorithm>
#include <vector>

#include "frame/xerrors.h"

int xwkXpmStatus;

namespace {

// Sizes above these are refused before libXpm sees them: it would allocate
// for the stated size before finding out that the data is short.
constexpr unsigned long kMaxSide = 16384;
constexpr unsigned long kMaxPixels = 1UL << 24;
constexpr unsigned long kMaxColours = 1UL << 20;
constexpr unsigned long kMaxCharsPerPixel = 8;
constexpr long kXpmLibraryWithAllocator = 30410;

struct Header {
    unsigned long width, height, colours, cpp;
};

struct IconEntry {
    XwkIcon *icon;
    Display *display;
};

std::vector<IconEntry> icons;
Display *shared_display;
Screen *shared_screen;
Drawable shared_drawable;
Pixmap empty_drag_bitmap;

bool read_number(const char **cursor, unsigned long *value)
{
    const char *s = *cursor;
    while (*s == ' ' || *s == '\t')
        s++;
    if (!isdigit((unsigned char)*s))
        return false;
    errno = 0;
    char *end;
    *value = strtoul(s, &end, 10);
    if (errno)
        return false;
    *cursor = end;
    return true;
}

// The values line: width, height, number of colours, characters per pixel.
bool parse_header(const char *values, Header *h)
{
    if (!values)
        return false;
    const char *s = values;
    if (!read_number(&s, &h->width) || !read_number(&s, &h->height) ||
        !read_number(&s, &h->colours) || !read_number(&s, &h->cpp))
        return false;
    if (h->width < 1 || h->height < 1 || h->width > kMaxSide || h->height > kMaxSide)
        return false;
    if (h->width * h->height > kMaxPixels)
        return false;
    return h->colours >= 1 && h->colours <= kMaxColours && h->cpp >= 1 && h->cpp <= kMaxCharsPerPixel;
}

// libXpm reads the lines of a data array without looking for their ends; a
// short colour or pixel line would make it read past them.
bool plausible_data(char **data)
{
    Header h;
    if (!data || !parse_header(data[0], &h))
        return false;
    for (unsigned long i = 0; i < h.colours; i++)
        if (!data[1 + i] || strlen(data[1 + i]) < h.cpp)
            return false;
    for (unsigned long y = 0; y < h.height; y++) {
        const char *row = data[1 + h.colours + y];
        if (!row || strlen(row) < h.width * h.cpp)
            return false;
    }
    return true;
}

// The values line of an XPM file is its first string: refuse a file whose
// stated size is out of bounds before libXpm allocates for it.
bool plausible_file(const char *path)
{
    FILE *f = fopen(path, "r");
    if (!f)
        return false;
    char buffer[4096];
    size_t n = fread(buffer, 1, sizeof buffer - 1, f);
    fclose(f);
    buffer[n] = '\0';
    const char *s = buffer;
    if (strncmp(s, "! XPM2", 6) == 0) {
        const char *line = strchr(s, '\n');
        Header h;
        return line && parse_header(line + 1, &h);
    }
    while (*s) {
        if (s[0] == '/' && s[1] == '*') {
            const char *end = strstr(s + 2, "*/");
            if (!end)
                return false;
            s = end + 2;
            continue;
        }
        if (*s == '"') {
            Header h;
            return parse_header(s + 1, &h);
        }
        s++;
    }
    return false;
}

int alloc_xpm_color(Display *display, Colormap colormap, char *name, XColor *color, void *)
{
    return XwkAllocXpmColor(display, colormap, name, color) ? 1 : 0;
}

Drawable drawable_for(Widget w)
{
    Screen *screen = XtScreen(w);
    Window root = RootWindowOfScreen(screen);
    if (shared_drawable && shared_screen == screen)
        return shared_drawable;
    if (shared_drawable)
        return root;
    shared_display = XtDisplay(w);
    shared_screen = screen;
    shared_drawable = root;
    if ((int)w->core.depth != DefaultDepthOfScreen(screen))
        shared_drawable = XCreatePixmap(shared_display, root, 1, 1, w->core.depth);
    return shared_drawable;
}

bool pixmap_alive(Display *dpy, Pixmap p)
{
    Window root;
    int x, y;
    unsigned w, h, b, d;
    return XGetGeometry(dpy, p, &root, &x, &y, &w, &h, &b, &d) != 0;
}

void free_pixmap(Display *dpy, Pixmap p)
{
    if (dpy && p && pixmap_alive(dpy, p))
        XFreePixmap(dpy, p);
}

void free_icon_parts(Display *dpy, XwkIcon *icon)
{
    XtFree(icon->fileName);
    icon->fileName = nullptr;
    if (icon->composed != icon->pixmap)
        free_pixmap(dpy, icon->composed);
    free_pixmap(dpy, icon->pixmap);
    free_pixmap(dpy, icon->mask);
    free_pixmap(dpy, icon->extraPixmap);
}

XwkIcon *keep(Widget w, const XwkIcon &record, const char *path)
{
    XwkIcon *icon = (XwkIcon *)XtMalloc(sizeof(XwkIcon));
    *icon = record;
    icons.push_back({icon, XtDisplay(w)});
    if (path)
        icon->fileName = XtNewString(path);
    return icon;
}

}  // namespace

namespace {

// A picture for libXpm: a data array, or a file already parsed.
struct Source {
    char **data;
    XpmImage *image;
    const XpmInfo *info;
};

Boolean make_record(Widget w, const Source &source, XwkIcon *record)
{
    Display *dpy = XtDisplay(w);
    Screen *screen = XtScreen(w);
    Colormap colormap = w->core.colormap;
    Pixel background = w->core.background_pixel;
    Pixel foreground, top, bottom, select;
    XmGetColors(screen, colormap, background, &foreground, &top, &bottom, &select);

    // "None" matches the transparent colour by value and turns it into the
    // background; the others are the symbolic names of the XPM.
    XpmColorSymbol symbols[6] = {
        {nullptr, (char *)"None", background},
        {(char *)"background", nullptr, background},
        {(char *)"foreground", nullptr, foreground},
        {(char *)"top_shadow", nullptr, top},
        {(char *)"bottom_shadow", nullptr, bottom},
        {(char *)"select", nullptr, select},
    };
    XpmAttributes &a = record->attributes;
    a.valuemask = XpmVisual | XpmColormap | XpmDepth | XpmColorSymbols | XpmBitmapFormat;
    a.visual = DefaultVisualOfScreen(screen);
    a.colormap = colormap;
    a.depth = w->core.depth;
    a.colorsymbols = symbols;
    a.numsymbols = 6;
    a.bitmap_format = ZPixmap;
    if (XpmLibraryVersion() > kXpmLibraryWithAllocator) {
        a.valuemask |= XpmAllocColor;
        a.alloc_color = alloc_xpm_color;
    }
    Drawable d = drawable_for(w);
    int status;
    if (source.data) {
        status = XpmCreatePixmapFromData(dpy, d, source.data, &record->pixmap, &record->mask, &a);
    } else {
        status = XpmCreatePixmapFromXpmImage(dpy, d, source.image, &record->pixmap, &record->mask, &a);
        // What reading from data reports by itself.
        a.width = source.image->width;
        a.height = source.image->height;
        a.cpp = source.image->cpp;
        a.valuemask |= XpmSize | XpmCharsPerPixel;
        if (source.info && (source.info->valuemask & XpmHotspot)) {
            a.x_hotspot = source.info->x_hotspot;
            a.y_hotspot = source.info->y_hotspot;
            a.valuemask |= XpmHotspot;
        }
    }
    a.colorsymbols = nullptr;
    if (status == XpmSuccess || (status == XpmColorError && record->pixmap)) {
        record->composed = record->mask ? None : record->pixmap;
        return True;
    }
    if (record->pixmap)
        XFreePixmap(dpy, record->pixmap);
    if (record->mask)
        XFreePixmap(dpy, record->mask);
    memset(record, 0, sizeof *record);
    xwkXpmStatus = status;
    return False;
}

bool usable_widget(Widget w)
{
    return w && XtIsWidget(w);
}

}  // namespace

Boolean XwkIconCreateRecFromData(Widget w, char **data, XwkIcon *record)
{
    if (!record)
        return False;
    memset(record, 0, sizeof *record);
    if (!usable_widget(w) || !plausible_data(data)) {
        xwkXpmStatus = XpmFileInvalid;
        return False;
    }
    return make_record(w, Source{data, nullptr, nullptr}, record);
}

XwkIcon *XwkIconCreateFromData(Widget w, char **data)
{
    XwkIcon record;
    if (!XwkIconCreateRecFromData(w, data, &record))
        return nullptr;
    return keep(w, record, nullptr);
}

XwkIcon *XwkIconCreateFromFile(Widget w, const char *name)
{
    if (!w || !name || !*name)
        return nullptr;
    char *path = name[0] == '/' ? XtNewString(name)
                                : XtResolvePathname(XtDisplay(w), "pixmaps", name, ".xpm", nullptr,
                                                    nullptr, 0, nullptr);
    if (!path)
        return nullptr;
    for (const IconEntry &e : icons) {
        if (e.icon->fileName && strcmp(e.icon->fileName, path) == 0) {
            XtFree(path);
            return e.icon;
        }
    }
    // Parsed to an image rather than to a data array: this libXpm's
    // conversion to data loses the row of a picture one row high.
    XwkIcon *icon = nullptr;
    XpmImage image;
    XpmInfo info;
    memset(&image, 0, sizeof image);
    memset(&info, 0, sizeof info);
    int status = XpmFileInvalid;
    if (usable_widget(w) && plausible_file(path))
        status = XpmReadFileToXpmImage(path, &image, &info);
    if (status == XpmSuccess) {
        XwkIcon record;
        memset(&record, 0, sizeof record);
        if (image.width < 1 || image.height < 1 || image.width > kMaxSide || image.height > kMaxSide)
            xwkXpmStatus = XpmFileInvalid;
        else if (make_record(w, Source{nullptr, &image, &info}, &record))
            icon = keep(w, record, path);
        XpmFreeXpmImage(&image);
        XpmFreeXpmInfo(&info);
    } else {
        xwkXpmStatus = status;
    }
    XtFree(path);
    return icon;
}

void XwkIconFree(Widget w, XwkIcon *icon)
{
    if (!icon)
        return;
    auto it = std::find_if(icons.begin(), icons.end(), [icon](const IconEntry &e) { return e.icon == icon; });
    Display *dpy = it != icons.end() ? it->display : w ? XtDisplay(w) : xwkDisplay;
    free_icon_parts(dpy, icon);
    if (it == icons.end())
        return;
    icons.erase(it);
    XtFree((char *)icon);
}

// The display may be closing and the server may have dropped the pixmaps
// already: every pixmap is probed first, under a handler that ignores errors.
void XwkIconFreeIconsList(void)
{
    std::vector<Display *> displays;
    for (const IconEntry &e : icons)
        if (std::find(displays.begin(), displays.end(), e.display) == displays.end())
            displays.push_back(e.display);
    if (shared_display && std::find(displays.begin(), displays.end(), shared_display) == displays.end())
        displays.push_back(shared_display);
    XErrorHandler old = XSetErrorHandler(XwkIgnoreXError);
    for (const IconEntry &e : icons) {
        free_icon_parts(e.display, e.icon);
        XtFree((char *)e.icon);
    }
    icons.clear();
    if (shared_drawable && shared_drawable != RootWindowOfScreen(shared_screen))
        free_pixmap(shared_display, shared_drawable);
    shared_drawable = 0;
    shared_display = nullptr;
    shared_screen = nullptr;
    for (Display *dpy : displays)
        XSync(dpy, False);
    XSetErrorHandler(old);
}

Widget XwkCreateDragIconWidget(Widget w, XwkIcon *icon)
{
    if (!w)
        return nullptr;
    Arg args[8];
    Cardinal n = 0;
    if (icon) {
        XtSetArg(args[n], XmNhotX, (Position)icon->attributes.x_hotspot), n++;
        XtSetArg(args[n], XmNhotY, (Position)icon->attributes.y_hotspot), n++;
        XtSetArg(args[n], XmNwidth, (Dimension)icon->attributes.width), n++;
        XtSetArg(args[n], XmNheight, (Dimension)icon->attributes.height), n++;
        XtSetArg(args[n], XmNdepth, (Cardinal)icon->attributes.depth), n++;
        XtSetArg(args[n], XmNpixmap, icon->pixmap), n++;
        if (icon->mask)
            XtSetArg(args[n], XmNmask, icon->mask), n++;
    } else {
        if (!empty_drag_bitmap) {
            static char zero = 0;
            empty_drag_bitmap = XCreateBitmapFromData(XtDisplay(w), RootWindowOfScreen(XtScreen(w)), &zero, 1, 1);
        }
        XtSetArg(args[n], XmNhotX, 0), n++;
        XtSetArg(args[n], XmNhotY, 0), n++;
        XtSetArg(args[n], XmNwidth, 1), n++;
        XtSetArg(args[n], XmNheight, 1), n++;
        XtSetArg(args[n], XmNdepth, 1), n++;
        XtSetArg(args[n], XmNpixmap, empty_drag_bitmap), n++;
    }
    return XmCreateDragIcon(XmGetXmScreen(XtScreen(w)), (char *)"dragIcon", args, n);
}
