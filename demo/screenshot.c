#include "screenshot.h"

#include <X11/Xutil.h>
#include <png.h>
#include <stdio.h>
#include <stdlib.h>

static int shift_of(unsigned long mask)
{
    int shift = 0;
    while (mask && !(mask & 1)) {
        mask >>= 1;
        shift++;
    }
    return shift;
}

static unsigned char channel(unsigned long pixel, unsigned long mask)
{
    unsigned long v = (pixel & mask) >> shift_of(mask);
    unsigned long max = mask >> shift_of(mask);
    return max ? (unsigned char)(v * 255 / max) : 0;
}

/* Fills rgb with the colour of every pixel; other visuals than TrueColor ask
 * the colormap, once per distinct pixel value. */
static void to_rgb(Display *dpy, XImage *img, Visual *visual, Colormap cmap, unsigned char *rgb)
{
    int truecolor = visual->class == TrueColor || visual->class == DirectColor;
    XColor cache[256];
    int cached[256] = {0};
    for (int y = 0; y < img->height; y++) {
        for (int x = 0; x < img->width; x++) {
            unsigned long p = XGetPixel(img, x, y);
            unsigned char *out = rgb + 3 * ((size_t)y * img->width + x);
            if (truecolor) {
                out[0] = channel(p, visual->red_mask);
                out[1] = channel(p, visual->green_mask);
                out[2] = channel(p, visual->blue_mask);
                continue;
            }
            XColor c;
            if (p < 256 && cached[p]) {
                c = cache[p];
            } else {
                c.pixel = p;
                XQueryColor(dpy, cmap, &c);
                if (p < 256) {
                    cache[p] = c;
                    cached[p] = 1;
                }
            }
            out[0] = c.red >> 8;
            out[1] = c.green >> 8;
            out[2] = c.blue >> 8;
        }
    }
}

int demo_write_png(Display *dpy, Window window, const char *path)
{
    XWindowAttributes a;
    if (!XGetWindowAttributes(dpy, window, &a))
        return -1;
    XImage *img = XGetImage(dpy, window, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
    if (!img)
        return -1;
    unsigned char *rgb = malloc((size_t)a.width * a.height * 3);
    FILE *f = fopen(path, "wb");
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, NULL, NULL, NULL);
    png_infop info = png ? png_create_info_struct(png) : NULL;
    int rc = -1;
    if (!rgb || !f || !info || setjmp(png_jmpbuf(png)))
        goto done;
    to_rgb(dpy, img, a.visual, a.colormap, rgb);
    png_init_io(png, f);
    png_set_IHDR(png, info, a.width, a.height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < a.height; y++)
        png_write_row(png, rgb + (size_t)y * a.width * 3);
    png_write_end(png, NULL);
    rc = 0;
done:
    if (png)
        png_destroy_write_struct(&png, info ? &info : NULL);
    if (f)
        fclose(f);
    free(rgb);
    XDestroyImage(img);
    return rc;
}
