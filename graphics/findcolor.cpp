// Colour allocation that never fails a widget: on a full colormap the
// nearest cell stands in for the colour asked.
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>

#include <strings.h>

#include <vector>

namespace {

// The per-pixel use count of the first 256 pixels and the cached colours of
// the map.  A newly taken cell makes the cache stale.
struct ColourCache {
    Display *display = nullptr;
    Colormap colormap = 0;
    std::vector<XColor> cells;
    unsigned char uses[256] = {};
    bool stale = true;
};

ColourCache cache;

Screen *screen_of_colormap(Display *display, Colormap colormap)
{
    for (int i = 0; i < ScreenCount(display); i++)
        if (DefaultColormap(display, i) == colormap)
            return ScreenOfDisplay(display, i);
    return DefaultScreenOfDisplay(display);
}

Visual *visual_of_colormap(Display *display, Colormap colormap)
{
    if (XwkPalette *p = XwkPaletteFindDpy(display, colormap))
        return p->visual;
    return DefaultVisualOfScreen(screen_of_colormap(display, colormap));
}

void note_allocation(Pixel pixel)
{
    if (pixel >= 256)
        return;
    if (cache.uses[pixel] < 255)
        cache.uses[pixel]++;
    if (cache.uses[pixel] == 1)
        cache.stale = true;
}

void refresh_cache(Display *display, Colormap colormap, int entries)
{
    if (!cache.stale && cache.display == display && cache.colormap == colormap)
        return;
    cache.display = display;
    cache.colormap = colormap;
    // Only pixels the map has are read: asking for more is a protocol error.
    cache.cells.assign(entries > 0 ? entries : 1, XColor{});
    for (size_t i = 0; i < cache.cells.size(); i++)
        cache.cells[i].pixel = i;
    XQueryColors(display, colormap, cache.cells.data(), (int)cache.cells.size());
    cache.stale = false;
}

}  // namespace

Boolean XwkFindColor(Display *display, Colormap colormap, XColor *color)
{
    if (!display || !color)
        return False;
    XColor asked = *color;
    Visual *visual = visual_of_colormap(display, colormap);
    Status ok = XAllocColor(display, colormap, color);
    if (visual->c_class == TrueColor || visual->c_class == DirectColor)
        return ok != 0;
    if (ok) {
        note_allocation(color->pixel);
        return True;
    }
    *color = asked;
    refresh_cache(display, colormap, visual->map_entries);

    const XColor *best = nullptr;
    double bound = 196608.0;
    for (const XColor &cell : cache.cells) {
        double dr = ((double)cell.red - asked.red) / 256.0;
        double dg = ((double)cell.green - asked.green) / 256.0;
        double db = ((double)cell.blue - asked.blue) / 256.0;
        double distance = dr * dr + dg * dg + db * db;
        if (distance < bound) {
            bound = distance;
            best = &cell;
            if (distance == 0.0)
                break;
        }
    }
    if (best) {
        color->pixel = best->pixel;
        color->red = best->red;
        color->green = best->green;
        color->blue = best->blue;
    } else {
        color->pixel = BlackPixelOfScreen(screen_of_colormap(display, colormap));
        color->red = color->green = color->blue = 0;
    }
    return False;
}

int XwkAllocNamedColor(Display *display, Colormap colormap, const char *name, XColor *color)
{
    if (!display || !name || !color)
        return 0;
    Screen *screen = screen_of_colormap(display, colormap);
    if (strcasecmp(name, "XtDefaultBackground") == 0) {
        color->pixel = WhitePixelOfScreen(screen);
        color->red = color->green = color->blue = 0xFFFF;
        return 2;
    }
    if (strcasecmp(name, "XtDefaultForeground") == 0) {
        color->pixel = BlackPixelOfScreen(screen);
        color->red = color->green = color->blue = 0;
        return 2;
    }
    XwkPalette *palette = XwkPaletteFindDpy(display, colormap);
    if (palette && !palette->shared) {
        if (!XParseColor(display, colormap, name, color))
            return 0;
        XwkPaletteAlloc(palette, color);
        return 1;
    }
    XColor exact;
    if (XAllocNamedColor(display, colormap, name, color, &exact))
        return 1;
    if (!XLookupColor(display, colormap, name, &exact, color))
        return 0;
    return XwkFindColor(display, colormap, color) ? 1 : 2;
}

Boolean XwkAllocXpmColor(Display *display, Colormap colormap, char *name, XColor *color)
{
    return XwkAllocNamedColor(display, colormap, name, color) != 0;
}
