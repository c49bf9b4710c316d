// The colour picker's palette grid, and the pixels its colours are drawn in
// on any visual.
#include "graphics/colorpicker_private.h"

#include <Xwk/Frame.h>

#include <Xm/DrawingA.h>
#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace xwk_picker {

XColor to_xcolor(Rgb c)
{
    XColor x = {};
    x.red = (unsigned short)(c.r * 257);
    x.green = (unsigned short)(c.g * 257);
    x.blue = (unsigned short)(c.b * 257);
    x.flags = DoRed | DoGreen | DoBlue;
    return x;
}

Rgb from_xcolor(const XColor &c)
{
    return Rgb{c.red >> 8, c.green >> 8, c.blue >> 8};
}

Pixel PixelSource::pixel_for(Rgb c) const
{
    XColor x = to_xcolor(c);
    if (!palette->usesCells || !palette->cells)
        return XwkPaletteAlloc(palette, &x);
    Pixel best = 0;
    long best_distance = LONG_MAX;
    for (int i = 0; i < palette->mapEntries; i++) {
        const XColor &cell = palette->cells[i].color;
        if (has_reserved && cell.pixel == reserved)
            continue;
        long dr = (cell.red >> 8) - c.r, dg = (cell.green >> 8) - c.g, db = (cell.blue >> 8) - c.b;
        long d = dr * dr + dg * dg + db * db;
        if (d < best_distance) {
            best_distance = d;
            best = cell.pixel;
            if (d == 0)
                break;
        }
    }
    return best;
}

void collect_pixels(Widget w, std::vector<Pixel> &pixels)
{
    if (!w || w->core.being_destroyed)
        return;
    // A gadget's record ends before the core colours and pop-up list.
    bool widget = XtIsWidget(w);
    Pixel background = 0;
    XtVaGetValues(w, XmNbackground, &background, NULL);
    pixels.push_back(background);
    if (widget)
        pixels.push_back(w->core.border_pixel);
    Pixel more[6];
    std::fill(std::begin(more), std::end(more), background);
    // Resources a widget lacks are left as they were.
    XtVaGetValues(w, XmNforeground, &more[0], XmNtopShadowColor, &more[1], XmNbottomShadowColor,
                  &more[2], XmNhighlightColor, &more[3], XmNselectColor, &more[4],
                  XmNtroughColor, &more[5], NULL);
    pixels.insert(pixels.end(), std::begin(more), std::end(more));
    if (XtIsComposite(w)) {
        CompositeWidget c = (CompositeWidget)w;
        for (Cardinal i = 0; i < c->composite.num_children; i++)
            collect_pixels(c->composite.children[i], pixels);
    }
    for (Cardinal i = 0; widget && i < w->core.num_popups; i++)
        collect_pixels(w->core.popup_list[i], pixels);
}

namespace {

XContext grid_context;

void resolve_pixels(Grid *grid)
{
    grid->pixels.clear();
    for (Rgb c : grid->colors)
        grid->pixels.push_back(grid->source.pixel_for(c));
}

void draw(Grid *grid)
{
    Widget w = grid->widget;
    if (!XtIsRealized(w))
        return;
    Display *dpy = XtDisplay(w);
    if (!grid->gc)
        grid->gc = XCreateGC(dpy, XtWindow(w), 0, nullptr);
    for (size_t i = 0; i < grid->pixels.size(); i++) {
        int x = (int)(i % XWK_COLOR_COLUMNS) * XWK_COLOR_CELL;
        int y = (int)(i / XWK_COLOR_COLUMNS) * XWK_COLOR_CELL;
        XSetForeground(dpy, grid->gc, grid->pixels[i]);
        XFillRectangle(dpy, XtWindow(w), grid->gc, x, y, XWK_COLOR_CELL - 1, XWK_COLOR_CELL - 1);
    }
    if (grid->selected >= 0) {
        int x = (grid->selected % XWK_COLOR_COLUMNS) * XWK_COLOR_CELL;
        int y = (grid->selected / XWK_COLOR_COLUMNS) * XWK_COLOR_CELL;
        Screen *screen = XtScreen(w);
        XSetForeground(dpy, grid->gc, BlackPixelOfScreen(screen));
        XDrawRectangle(dpy, XtWindow(w), grid->gc, x, y, XWK_COLOR_CELL - 2, XWK_COLOR_CELL - 2);
        XSetForeground(dpy, grid->gc, WhitePixelOfScreen(screen));
        XDrawRectangle(dpy, XtWindow(w), grid->gc, x + 1, y + 1, XWK_COLOR_CELL - 4,
                       XWK_COLOR_CELL - 4);
    }
}

void expose(Widget, XtPointer closure, XtPointer)
{
    draw((Grid *)closure);
}

void press(Widget w, XtPointer closure, XEvent *event, Boolean *)
{
    Grid *grid = (Grid *)closure;
    if (event->type != ButtonPress || event->xbutton.button != Button1)
        return;
    int column = event->xbutton.x / XWK_COLOR_CELL, row = event->xbutton.y / XWK_COLOR_CELL;
    if (column < 0 || column >= XWK_COLOR_COLUMNS || row < 0)
        return;
    int index = row * XWK_COLOR_COLUMNS + column;
    if (index >= (int)grid->colors.size())
        return;
    grid_select(grid, index);
    if (grid->callback) {
        XColor chosen = to_xcolor(grid->colors[index]);
        chosen.pixel = grid->pixels[index];
        grid->callback(w, grid->closure, (XtPointer)&chosen);
    }
}

void destroy(Widget w, XtPointer closure, XtPointer)
{
    Grid *grid = (Grid *)closure;
    if (grid->gc)
        XFreeGC(XtDisplay(w), grid->gc);
    XDeleteContext(XtDisplay(w), (XID)(uintptr_t)w, grid_context);
    delete grid;
}

// A colormap holds every colour on TrueColor: a cube of 6 levels a channel
// and a ramp of greys stand for it.
std::vector<Rgb> standard_colors()
{
    std::vector<Rgb> colors;
    for (int r = 0; r < 6; r++)
        for (int g = 0; g < 6; g++)
            for (int b = 0; b < 6; b++)
                colors.push_back(Rgb{r * 51, g * 51, b * 51});
    for (int i = 0; i < 40; i++) {
        int level = (i + 1) * 255 / 41;
        colors.push_back(Rgb{level, level, level});
    }
    return colors;
}

std::vector<Rgb> colors_of(XwkPalette *palette)
{
    if (!palette->usesCells || !palette->cells)
        return standard_colors();
    std::vector<Rgb> colors;
    int n = std::min(palette->mapEntries, XWK_COLOR_COLUMNS * XWK_COLOR_COLUMNS);
    for (int i = 0; i < n; i++) {
        XColor *c = XwkPaletteLookup(palette, (Pixel)i);
        colors.push_back(c ? from_xcolor(*c) : from_xcolor(palette->cells[i].color));
    }
    return colors;
}

}  // namespace

Grid *grid_of(Widget w)
{
    XPointer grid = nullptr;
    if (!w || !grid_context || XFindContext(XtDisplay(w), (XID)(uintptr_t)w, grid_context, &grid))
        return nullptr;
    return (Grid *)grid;
}

void grid_select(Grid *grid, int index)
{
    if (grid->selected == index)
        return;
    grid->selected = index;
    draw(grid);
}

void grid_reserve(Grid *grid, Pixel pixel)
{
    grid->source.has_reserved = true;
    grid->source.reserved = pixel;
    resolve_pixels(grid);
    draw(grid);
}

}  // namespace xwk_picker

using namespace xwk_picker;

extern "C" Widget ColorPickerPalette(Widget parent, const char *name, XwkPalette *palette,
                                     XwkPalette *colors, XtCallbackProc callback,
                                     XtPointer closure)
{
    if (!parent)
        return nullptr;
    if (!palette)
        palette = XwkPaletteGetDefault(parent);
    Grid *grid = new Grid;
    grid->source.palette = palette;
    grid->colors = colors_of(colors ? colors : palette);
    grid->callback = callback;
    grid->closure = closure;
    resolve_pixels(grid);
    int rows = ((int)grid->colors.size() + XWK_COLOR_COLUMNS - 1) / XWK_COLOR_COLUMNS;
    Widget w = XtVaCreateManagedWidget(name ? name : "palette", xmDrawingAreaWidgetClass, parent,
                                       XmNwidth, (Dimension)(XWK_COLOR_COLUMNS * XWK_COLOR_CELL),
                                       XmNheight, (Dimension)(rows * XWK_COLOR_CELL),
                                       XmNmarginWidth, 0, XmNmarginHeight, 0,
                                       XmNresizePolicy, XmRESIZE_NONE, NULL);
    grid->widget = w;
    if (!grid_context)
        grid_context = XUniqueContext();
    XSaveContext(XtDisplay(w), (XID)(uintptr_t)w, grid_context, (XPointer)grid);
    XtAddCallback(w, XmNexposeCallback, expose, grid);
    XtAddCallback(w, XmNdestroyCallback, destroy, grid);
    XtAddEventHandler(w, ButtonPressMask, False, press, grid);
    return w;
}
