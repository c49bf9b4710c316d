// Palettes: the library's model of one X colormap.  TrueColor is handled by
// arithmetic; the other classes keep a record per cell, found by colour or by
// pixel through two bucket-tree tables of 128 buckets.
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>

#include <algorithm>
#include <vector>

namespace {

constexpr int kBuckets = 128;
constexpr unsigned short kHighByte = 0xFF00;
constexpr char kAllChannels = DoRed | DoGreen | DoBlue;

// Process list of palettes, newest first.
struct PaletteEntry {
    Display *display;
    Colormap colormap;
    XwkPalette *palette;
    PaletteEntry *next;
    std::vector<XwkPaletteCell *> loose;   // cells of read-only classes, one XAllocColor each
};

PaletteEntry *palettes;
XwkPalette *default_palette;

int compare_color(XtPointer stored, XtPointer key)
{
    const XColor *a = (const XColor *)stored;
    const XColor *b = (const XColor *)key;
    if (a->red != b->red)
        return a->red < b->red ? -1 : 1;
    if (a->green != b->green)
        return a->green < b->green ? -1 : 1;
    if (a->blue != b->blue)
        return a->blue < b->blue ? -1 : 1;
    return 0;
}

int compare_pixel(XtPointer stored, XtPointer key)
{
    Pixel a = ((const XColor *)stored)->pixel;
    Pixel b = ((const XColor *)key)->pixel;
    return a < b ? -1 : a > b ? 1 : 0;
}

// The colour bucket is taken from the colour as given; cells are stored and
// searched masked, so searches only ever look in bucket 0.  A cell added from
// an unmasked colour lands where no search looks: kept for compatibility.
int color_bucket(const XColor *c)
{
    return (c->red + c->green + c->blue) & 0x7F;
}

int pixel_bucket(Pixel pixel)
{
    return (int)(pixel & 0x7F);
}

XColor masked(const XColor *c)
{
    XColor m = *c;
    m.red &= kHighByte;
    m.green &= kHighByte;
    m.blue &= kHighByte;
    m.flags = kAllChannels;
    return m;
}

void add_cell(XwkPalette *p, XwkPaletteCell *cell, const XColor *key_color)
{
    HashAdd(p->byColor, color_bucket(key_color), &cell->color);
    HashAdd(p->byPixel, pixel_bucket(cell->color.pixel), &cell->color);
}

void remove_cell(XwkPalette *p, XwkPaletteCell *cell)
{
    HashRemove(p->byColor, color_bucket(&cell->color), &cell->color);
    HashRemove(p->byPixel, pixel_bucket(cell->color.pixel), &cell->color);
}

XwkPaletteCell *find_color(XwkPalette *p, const XColor *color)
{
    XColor key = masked(color);
    return (XwkPaletteCell *)HashFind(p->byColor, color_bucket(&key), &key);
}

XwkPaletteCell *find_pixel(XwkPalette *p, Pixel pixel)
{
    XColor key = {};
    key.pixel = pixel;
    return (XwkPaletteCell *)HashFind(p->byPixel, pixel_bucket(pixel), &key);
}

PaletteEntry *entry_of(XwkPalette *p)
{
    for (PaletteEntry *e = palettes; e; e = e->next)
        if (e->palette == p)
            return e;
    return nullptr;
}

int trailing_zeros(unsigned long mask)
{
    return mask ? __builtin_ctzl(mask) : 0;
}

int levels(unsigned long mask)
{
    return 1 << __builtin_popcountl(mask);
}

Pixel true_color_pixel(const XwkPalette *p, const XColor *c)
{
    Pixel r = ((unsigned long)c->red * p->redSize) >> 16;
    Pixel g = ((unsigned long)c->green * p->greenSize) >> 16;
    Pixel b = ((unsigned long)c->blue * p->blueSize) >> 16;
    return r << p->redShift | g << p->greenShift | b << p->blueShift;
}

void mark_in_use(XwkPalette *p, XwkPaletteCell *cell)
{
    if (cell->inUse)
        return;
    cell->inUse = 1;
    p->freeCells--;
}

void fill_cells(XwkPalette *p, Screen *screen)
{
    Visual *root_visual = DefaultVisualOfScreen(screen);
    Colormap default_map = DefaultColormapOfScreen(screen);
    int root_entries = root_visual->map_entries;
    for (int base = 0; base < p->mapEntries; base += 256) {
        int n = std::min(256, p->mapEntries - base);
        XColor chunk[256];
        for (int i = 0; i < n; i++) {
            chunk[i] = XColor{};
            chunk[i].pixel = (Pixel)(base + i);
            chunk[i].flags = kAllChannels;
        }
        int known = std::clamp(root_entries - base, 0, n);
        if (known > 0)
            XQueryColors(p->display, default_map, chunk, known);
        for (int i = known; i < n; i++)
            chunk[i].red = chunk[i].green = chunk[i].blue = 0xFFFF;
        if (!p->shared)
            XStoreColors(p->display, p->colormap, chunk, n);
        for (int i = 0; i < n; i++) {
            XwkPaletteCell *cell = &p->cells[base + i];
            cell->color = masked(&chunk[i]);
            add_cell(p, cell, &cell->color);
        }
    }
}

void reserve_cells(XwkPalette *p, Screen *screen)
{
    Pixel black = BlackPixelOfScreen(screen);
    Pixel white = WhitePixelOfScreen(screen);
    if (!p->cells)
        return;
    for (Pixel px : {black, white})
        if (px < (Pixel)p->mapEntries)
            mark_in_use(p, &p->cells[px]);
    for (int i = 0; i < p->mapEntries; i++) {
        if ((Pixel)i == black || (Pixel)i == white)
            continue;
        mark_in_use(p, &p->cells[i]);
        p->unusedPixel = (Pixel)i;
        return;
    }
}

XwkPalette *create_palette(Widget w, bool as_default)
{
    if (!w)
        return nullptr;
    Widget shell = XwkGetShell(w);
    if (!shell)
        shell = w;
    Screen *screen = XtScreen(shell);
    Display *dpy = XtDisplay(shell);
    Visual *visual = nullptr;
    if (XtIsShell(shell))
        XtVaGetValues(shell, XtNvisual, &visual, NULL);
    int depth = shell->core.depth;
    if (!visual || as_default)
        visual = DefaultVisualOfScreen(screen);
    if (depth < 1 || as_default)
        depth = DefaultDepthOfScreen(screen);

    XwkPalette *p = (XwkPalette *)XtCalloc(1, sizeof(XwkPalette));
    p->display = dpy;
    p->visual = visual;
    p->depth = depth;
    p->mapEntries = visual->map_entries;
    p->grey = visual->c_class < 2;
    p->usesCells = visual->c_class != TrueColor;
    p->byColor = HashCreate(compare_color, nullptr, kBuckets);
    p->byPixel = HashCreate(compare_pixel, nullptr, kBuckets);
    Window root = RootWindowOfScreen(screen);

    switch (visual->c_class) {
    case StaticGray:
    case StaticColor:
    case TrueColor:
        p->readOnly = 1;
        p->colormap = as_default ? DefaultColormapOfScreen(screen)
                                 : XCreateColormap(dpy, root, visual, AllocNone);
        if (visual->c_class == TrueColor) {
            p->redShift = trailing_zeros(visual->red_mask);
            p->greenShift = trailing_zeros(visual->green_mask);
            p->blueShift = trailing_zeros(visual->blue_mask);
            p->redSize = levels(visual->red_mask);
            p->greenSize = levels(visual->green_mask);
            p->blueSize = levels(visual->blue_mask);
        }
        break;
    default:
        if (as_default) {
            p->colormap = DefaultColormapOfScreen(screen);
            p->shared = 1;
        } else {
            p->colormap = XCreateColormap(dpy, root, visual, AllocAll);
        }
        p->cells = (XwkPaletteCell *)XtCalloc(p->mapEntries, sizeof(XwkPaletteCell));
        fill_cells(p, screen);
        break;
    }

    p->freeCells = p->mapEntries;
    if (!p->shared && p->usesCells)
        reserve_cells(p, screen);

    PaletteEntry *e = new PaletteEntry{dpy, p->colormap, p, palettes, {}};
    palettes = e;
    return p;
}

XwkPaletteCell *nearest_cell(XwkPalette *p, const XColor *c)
{
    XwkPaletteCell *best = nullptr;
    long best_distance = 0;
    for (int i = 0; i < p->mapEntries; i++) {
        XwkPaletteCell *cell = &p->cells[i];
        long dr = (cell->color.red >> 8) - (c->red >> 8);
        long dg = (cell->color.green >> 8) - (c->green >> 8);
        long db = (cell->color.blue >> 8) - (c->blue >> 8);
        long d = dr * dr + dg * dg + db * db;
        if (!best || d < best_distance) {
            best = cell;
            best_distance = d;
        }
    }
    return best;
}

XwkPaletteCell *first_free_cell(XwkPalette *p)
{
    for (int i = 0; i < p->mapEntries; i++)
        if (!p->cells[i].inUse)
            return &p->cells[i];
    return nullptr;
}

// A colour no cell holds yet: a read-only cell from the server, the nearest
// cell of a full map, or the first free cell.
Pixel allocate_new(XwkPalette *p, XColor *color)
{
    XwkPaletteCell *cell;
    if (p->readOnly) {
        cell = (XwkPaletteCell *)XtCalloc(1, sizeof(XwkPaletteCell));
        cell->color = *color;
        cell->color.flags = kAllChannels;
        XAllocColor(p->display, p->colormap, &cell->color);
        color->pixel = cell->color.pixel;
        if (PaletteEntry *e = entry_of(p))
            e->loose.push_back(cell);
    } else {
        cell = p->freeCells > 0 ? first_free_cell(p) : nullptr;
        if (!cell) {
            XwkPaletteCell *near = nearest_cell(p, color);
            color->pixel = near ? near->color.pixel : 0;
            return color->pixel;
        }
        mark_in_use(p, cell);
        remove_cell(p, cell);
        color->pixel = cell->color.pixel;
    }
    cell->inUse = 1;
    cell->invalid = 0;
    Pixel pixel = cell->color.pixel;
    cell->color = masked(color);
    cell->color.pixel = pixel;
    if (!p->readOnly && !p->shared)
        XStoreColor(p->display, p->colormap, &cell->color);
    add_cell(p, cell, color);
    return pixel;
}

bool same_rgb(const XColor *a, const XColor *b)
{
    return a->red == b->red && a->green == b->green && a->blue == b->blue;
}

}  // namespace

XwkPalette *XwkPaletteCreate(Widget w)
{
    return create_palette(w, false);
}

XwkPalette *XwkPaletteGetDefault(Widget w)
{
    if (!default_palette)
        default_palette = create_palette(w, true);
    return default_palette;
}

Pixel XwkPaletteAlloc(XwkPalette *p, XColor *color)
{
    if (!p || !color)
        return 0;
    if (!p->usesCells) {
        color->pixel = true_color_pixel(p, color);
        return color->pixel;
    }
    XColor key = masked(color);
    if (p->lastCell && same_rgb(&p->lastCell->color, &key)) {
        color->pixel = p->lastCell->color.pixel;
        return color->pixel;
    }
    XwkPaletteCell *cell = find_color(p, color);
    if (!cell) {
        p->lastCell = nullptr;
        return allocate_new(p, color);
    }
    if (p->cells)
        mark_in_use(p, cell);
    cell->inUse = 1;
    p->lastCell = cell;
    color->pixel = cell->color.pixel;
    return color->pixel;
}

int XwkPaletteAllocN(XwkPalette *p, XColor *colors, int n, Pixel *pixels)
{
    if (!p || !colors || n <= 0)
        return 0;
    if (!p->usesCells) {
        for (int i = 0; i < n; i++) {
            colors[i].pixel = true_color_pixel(p, &colors[i]);
            if (pixels)
                pixels[i] = colors[i].pixel;
        }
        return 0;
    }
    // Claim every colour already present before any free cell is given up.
    std::vector<char> found(n, 0);
    for (int i = 0; i < n; i++) {
        XwkPaletteCell *cell = find_color(p, &colors[i]);
        if (!cell)
            continue;
        if (p->cells)
            mark_in_use(p, cell);
        cell->inUse = 1;
        colors[i].pixel = cell->color.pixel;
        found[i] = 1;
    }
    for (int i = 0; i < n; i++) {
        if (found[i])
            continue;
        if (XwkPaletteCell *cell = find_color(p, &colors[i])) {
            if (p->cells)
                mark_in_use(p, cell);
            cell->inUse = 1;
            colors[i].pixel = cell->color.pixel;
        } else {
            allocate_new(p, &colors[i]);
        }
    }
    bool hit_unused = false;
    for (int i = 0; i < n; i++) {
        if (pixels)
            pixels[i] = colors[i].pixel;
        if (colors[i].pixel == p->unusedPixel)
            hit_unused = true;
    }
    if (hit_unused && p->cells)
        if (XwkPaletteCell *cell = first_free_cell(p))
            p->unusedPixel = cell->color.pixel;
    return 0;
}

XColor *XwkPaletteLookup(XwkPalette *p, Pixel pixel)
{
    if (!p)
        return nullptr;
    if (!p->usesCells) {
        // One record for the process: the next call overwrites it.
        static XColor color;
        color.pixel = pixel;
        color.red = (unsigned short)(((pixel >> p->redShift) & (p->redSize - 1)) * (65536 / p->redSize));
        color.green = (unsigned short)(((pixel >> p->greenShift) & (p->greenSize - 1)) * (65536 / p->greenSize));
        color.blue = (unsigned short)(((pixel >> p->blueShift) & (p->blueSize - 1)) * (65536 / p->blueSize));
        color.flags = kAllChannels;
        return &color;
    }
    XwkPaletteCell *cell = find_pixel(p, pixel);
    if (!cell)
        return nullptr;
    if (cell->invalid) {
        HashRemove(p->byColor, color_bucket(&cell->color), &cell->color);
        XQueryColor(p->display, p->colormap, &cell->color);
        cell->color = masked(&cell->color);
        HashAdd(p->byColor, color_bucket(&cell->color), &cell->color);
        cell->invalid = 0;
    }
    return &cell->color;
}

int XwkPaletteLookupColor(XwkPalette *p, XColor *color, Pixel *pixel)
{
    if (!p || !color)
        return 0;
    Pixel result;
    if (!p->usesCells) {
        result = true_color_pixel(p, color);
    } else {
        XwkPaletteCell *cell = find_color(p, color);
        if (!cell)
            return 0;
        result = cell->color.pixel;
    }
    if (pixel)
        *pixel = result;
    return 1;
}

Pixel XwkPaletteGetUnused(XwkPalette *p)
{
    return p ? p->unusedPixel : 0;
}

void XwkPaletteSetInvalid(XwkPalette *p, Pixel pixel)
{
    if (!p || !p->usesCells || p->readOnly)
        return;
    if (XwkPaletteCell *cell = find_pixel(p, pixel))
        cell->invalid = 1;
}

int XwkPaletteSetPixel(XwkPalette *p, Pixel pixel, XColor *color)
{
    if (!p || !color || p->readOnly || p->shared)
        return 0;
    XwkPaletteCell *cell = find_pixel(p, pixel);
    if (!cell)
        return 0;
    color->pixel = pixel;
    color->flags = kAllChannels;
    XStoreColor(p->display, p->colormap, color);
    cell->invalid = 1;
    return 1;
}

XwkPalette *XwkPaletteFindDpy(Display *display, Colormap colormap)
{
    for (PaletteEntry *e = palettes; e; e = e->next)
        if (e->display == display && e->colormap == colormap)
            return e->palette;
    return nullptr;
}

XwkPalette *XwkPaletteFind(Widget w, Colormap colormap)
{
    if (!w)
        return nullptr;
    return XwkPaletteFindDpy(XtDisplay(w), colormap);
}

// The X colormap is left alone: it may still be installed on windows.
void XwkPaletteDelete(XwkPalette *p)
{
    if (!p)
        return;
    for (PaletteEntry **link = &palettes; *link; link = &(*link)->next) {
        PaletteEntry *e = *link;
        if (e->palette != p)
            continue;
        *link = e->next;
        for (XwkPaletteCell *cell : e->loose)
            XtFree((char *)cell);
        delete e;
        break;
    }
    if (default_palette == p)
        default_palette = nullptr;
    HashDestroy(p->byColor);
    HashDestroy(p->byPixel);
    XtFree((char *)p->cells);
    XtFree((char *)p);
}
