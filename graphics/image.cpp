// Image records, expansion to RGB and reading a picture back from a pixmap.
#include <Xwk/Graphics.h>

#include "graphics/imagepix.h"

#include <X11/Xutil.h>

#include <vector>

namespace {

int kind_bytes(int cmapSize)
{
    if (cmapSize <= 0)
        return 3;
    return cmapSize <= 256 ? 1 : 2;
}

enum PictureClass { kBlackWhite = 0, kGrey = 1, kColour = 2 };

PictureClass class_of(unsigned rgb, PictureClass so_far)
{
    if (so_far == kColour)
        return kColour;
    unsigned r = rgb >> 16, g = (rgb >> 8) & 0xFF, b = rgb & 0xFF;
    if (r != g || g != b)
        return kColour;
    if (r != 0 && r != 255)
        return kGrey;
    return so_far;
}

// Black-and-white and grey pictures become a map of 2 or 256 grey entries.
XwkImage *grey_image(int width, int height, const std::vector<unsigned> &rgb, bool two_levels)
{
    XwkImage *image = XwkImageNewCmap(width, height, two_levels ? 2 : 256);
    for (int i = 0; i < image->cmapSize; i++) {
        unsigned char v = two_levels ? (unsigned char)(i * 255) : (unsigned char)i;
        image->cmap[i * 3] = image->cmap[i * 3 + 1] = image->cmap[i * 3 + 2] = v;
    }
    size_t n = xwk::PixelCount(image);
    for (size_t i = 0; i < n; i++) {
        unsigned char v = rgb[i] & 0xFF;
        image->data[i] = two_levels ? (v == 255 ? 1 : 0) : v;
    }
    return image;
}

}  // namespace

XwkImage *XwkImageNewCmap(int width, int height, int cmapSize)
{
    XwkImage *image = (XwkImage *)XtCalloc(1, sizeof(XwkImage));
    if (cmapSize < 0)
        cmapSize = 0;
    image->bytesPerPixel = kind_bytes(cmapSize);
    image->cmapSize = cmapSize;
    image->width = width;
    image->height = height;
    if (width > 0 && height > 0)
        image->data = (unsigned char *)XtCalloc((Cardinal)1,
                                                (size_t)width * (size_t)height * image->bytesPerPixel);
    if (cmapSize > 0)
        image->cmap = (unsigned char *)XtCalloc((Cardinal)cmapSize, 3);
    return image;
}

XwkImage *XwkImageNew(int width, int height)
{
    return XwkImageNewCmap(width, height, 0);
}

void XwkImageDelete(XwkImage *image)
{
    if (!image)
        return;
    if (image->cmapSize > 0)
        XtFree((char *)image->cmap);
    XtFree((char *)image->data);
    XtFree((char *)image);
}

XwkImage *XwkImageToRGB(XwkImage *image)
{
    if (!image || image->cmapSize <= 0)
        return image;
    XwkImage *rgb = XwkImageNew(image->width, image->height);
    size_t n = xwk::PixelCount(rgb) ? xwk::PixelCount(image) : 0;
    for (size_t i = 0; i < n; i++) {
        unsigned c = xwk::PixelRGB(image, i);
        rgb->data[i * 3] = (unsigned char)(c >> 16);
        rgb->data[i * 3 + 1] = (unsigned char)(c >> 8);
        rgb->data[i * 3 + 2] = (unsigned char)c;
    }
    image->compressed = 0;
    return rgb;
}

void XwkGetPixmapWHD(Display *display, Drawable drawable, int *width, int *height, int *depth)
{
    Window root;
    int x, y;
    unsigned w = 0, h = 0, border = 0, d = 0;
    if (display && drawable)
        XGetGeometry(display, drawable, &root, &x, &y, &w, &h, &border, &d);
    if (width)
        *width = (int)w;
    if (height)
        *height = (int)h;
    if (depth)
        *depth = (int)d;
}

XwkImage *XwkPixmapToImage(Widget w, Pixmap pixmap, Colormap colormap)
{
    if (!w || !pixmap)
        return nullptr;
    Display *dpy = XtDisplay(w);
    XwkPalette *palette = XwkPaletteFind(w, colormap);
    if (!palette)
        palette = XwkPaletteGetDefault(w);
    int width, height, depth;
    XwkGetPixmapWHD(dpy, pixmap, &width, &height, &depth);
    if (width <= 0 || height <= 0)
        return XwkImageNew(width, height);
    XImage *xi = XGetImage(dpy, pixmap, 0, 0, (unsigned)width, (unsigned)height, AllPlanes, ZPixmap);
    if (!xi)
        return nullptr;

    bool mapped = palette->usesCells;
    XwkImage *image = XwkImageNewCmap(width, height, mapped ? palette->mapEntries : 0);
    if (mapped) {
        for (int i = 0; i < image->cmapSize; i++) {
            if (XColor *c = XwkPaletteLookup(palette, (Pixel)i)) {
                image->cmap[i * 3] = (unsigned char)(c->red >> 8);
                image->cmap[i * 3 + 1] = (unsigned char)(c->green >> 8);
                image->cmap[i * 3 + 2] = (unsigned char)(c->blue >> 8);
            }
        }
    }

    size_t n = (size_t)width * (size_t)height;
    std::vector<unsigned> rgb(n);
    PictureClass cls = kBlackWhite;
    unsigned long depth_mask = depth >= (int)(8 * sizeof(unsigned long)) ? ~0UL : (1UL << depth) - 1;
    for (int y = 0; y < height; y++) {
        for (int x = 0; x < width; x++) {
            size_t i = (size_t)y * width + x;
            unsigned long pixel;
            if (xi->bits_per_pixel == 8)
                pixel = (unsigned char)xi->data[(size_t)y * xi->bytes_per_line + x] & depth_mask;
            else
                pixel = XGetPixel(xi, x, y);
            if (mapped) {
                xwk::SetMapIndex(image, i, (unsigned)pixel);
                rgb[i] = xwk::PixelRGB(image, i);
            } else {
                XColor *c = XwkPaletteLookup(palette, pixel);
                rgb[i] = c ? (unsigned)(c->red >> 8) << 16 | (unsigned)(c->green >> 8) << 8 | (c->blue >> 8) : 0;
                image->data[i * 3] = (unsigned char)(rgb[i] >> 16);
                image->data[i * 3 + 1] = (unsigned char)(rgb[i] >> 8);
                image->data[i * 3 + 2] = (unsigned char)rgb[i];
            }
            cls = class_of(rgb[i], cls);
        }
    }
    XDestroyImage(xi);
    if (cls == kColour)
        return image;
    XwkImageDelete(image);
    return grey_image(width, height, rgb, cls == kBlackWhite);
}
