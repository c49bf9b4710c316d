// Pixel access shared by the image operations: with no map three bytes a
// pixel; with up to 256 entries one byte, above that an unsigned short, each
// an index into the map.  An index outside the map reads as black.
#ifndef XWK_GRAPHICS_IMAGEPIX_H
#define XWK_GRAPHICS_IMAGEPIX_H

#include <Xwk/Graphics.h>

#include <cstddef>
#include <cstring>

namespace xwk {

inline size_t PixelCount(const XwkImage *image)
{
    if (!image || !image->data || image->width <= 0 || image->height <= 0)
        return 0;
    return (size_t)image->width * (size_t)image->height;
}

inline unsigned MapIndex(const XwkImage *image, size_t i)
{
    if (image->bytesPerPixel == 2) {
        unsigned short v;
        memcpy(&v, image->data + i * 2, sizeof v);
        return v;
    }
    return image->data[i];
}

inline void SetMapIndex(XwkImage *image, size_t i, unsigned index)
{
    if (image->bytesPerPixel == 2) {
        unsigned short v = (unsigned short)index;
        memcpy(image->data + i * 2, &v, sizeof v);
        return;
    }
    image->data[i] = (unsigned char)index;
}

// The i-th pixel's colour as 0xRRGGBB.
inline unsigned PixelRGB(const XwkImage *image, size_t i)
{
    const unsigned char *p;
    if (image->cmapSize <= 0) {
        p = image->data + i * 3;
    } else {
        unsigned index = MapIndex(image, i);
        if (index >= (unsigned)image->cmapSize || !image->cmap)
            return 0;
        p = image->cmap + index * 3;
    }
    return (unsigned)p[0] << 16 | (unsigned)p[1] << 8 | p[2];
}

}  // namespace xwk

#endif
