// A depth-1 copy of a pixmap.  Despite its name this is a fixed threshold on
// a weighted grey, not an error-diffusing dither; kept for compatibility.
#include <Xwk/Graphics.h>

#include "graphics/imagepix.h"

#include <vector>

Pixmap XwkDitherPixmap(Widget w, Colormap colormap, Pixmap pixmap)
{
    if (!w)
        return None;
    XwkImage *image = XwkPixmapToImage(w, pixmap, colormap);
    if (!image)
        return None;
    if (!xwk::PixelCount(image)) {
        XwkImageDelete(image);
        return None;
    }
    int width = image->width;
    int height = image->height;
    size_t row_bytes = ((size_t)width + 7) / 8;
    std::vector<char> bits(row_bytes * height, 0);
    for (int y = 0; y < height; y++) {
        char *row = bits.data() + row_bytes * y;
        for (int x = 0; x < width; x++) {
            unsigned rgb = xwk::PixelRGB(image, (size_t)y * width + x);
            double grey = 0.4 * (rgb >> 16) + 0.4 * ((rgb >> 8) & 0xFF) + 0.2 * (rgb & 0xFF);
            // Dark pixels, 128 included, set their bit.
            if (grey <= 128.0)
                row[x >> 3] |= (char)(1 << (x & 7));
        }
    }
    Screen *screen = XtScreen(w);
    Pixmap result = XCreatePixmapFromBitmapData(XtDisplay(w), RootWindowOfScreen(screen), bits.data(),
                                                (unsigned)width, (unsigned)height,
                                                WhitePixelOfScreen(screen), BlackPixelOfScreen(screen), 1);
    XwkImageDelete(image);
    return result;
}
