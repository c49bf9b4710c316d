// Shared inside the colour picker: the palette grid's state and the pixels
// colours are drawn in.
#ifndef XWK_COLORPICKER_PRIVATE_H
#define XWK_COLORPICKER_PRIVATE_H

#include <Xwk/ColorPicker.h>

#include <vector>

namespace xwk_picker {

// An 8-bit colour.
struct Rgb {
    int r = 0, g = 0, b = 0;
    bool operator==(const Rgb &) const = default;
};

XColor to_xcolor(Rgb c);
Rgb from_xcolor(const XColor &c);

// The pixel a colour is drawn in: computed on TrueColor, the nearest cell of
// the palette otherwise (never the cell kept for a sample).
struct PixelSource {
    XwkPalette *palette = nullptr;
    bool has_reserved = false;
    Pixel reserved = 0;

    Pixel pixel_for(Rgb c) const;
};

struct Grid {
    Widget widget = nullptr;
    PixelSource source;
    std::vector<Rgb> colors;
    std::vector<Pixel> pixels;
    int selected = -1;
    XtCallbackProc callback = nullptr;
    XtPointer closure = nullptr;
    GC gc = nullptr;
};

// The grid of a drawing area made by ColorPickerPalette, or null.
Grid *grid_of(Widget w);
// Outlines cell index (-1: none) and redraws.
void grid_select(Grid *grid, int index);
// Keeps the grid's colours off a pixel, and redraws.
void grid_reserve(Grid *grid, Pixel pixel);

// The pixels every widget of the tree uses for its colours.
void collect_pixels(Widget w, std::vector<Pixel> &pixels);

}  // namespace xwk_picker

#endif
