/* Demo page: icons made from XPM data in the colours of the widget they are
 * for, and a picture before and after reduction to a few colours. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>
#include <X11/Xutil.h>

#include <string.h>

#include "pages.h"

static const char *folder_xpm[] = {
    "16 14 4 1",
    "  c None",
    ". s foreground c black",
    "y c #e8c040",
    "o c #b08020",
    "                ",
    " .....          ",
    ".yyyyy.         ",
    ".yyyyyy.......  ",
    ".oooooooooooo.  ",
    ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ",
    ".oooooooooooooo.",
    " .............. ",
    "                ",
};

static const char *page_xpm[] = {
    "12 14 4 1",
    "  c None",
    ". s foreground c black",
    "w c white",
    "t s top_shadow c gray80",
    " ........   ",
    " .wwwwww.w. ",
    " .wwwwww.ww.",
    " .wttttw....",
    " .wwwwwwwww.",
    " .wttttttww.",
    " .wwwwwwwww.",
    " .wttttttww.",
    " .wwwwwwwww.",
    " .wttttttww.",
    " .wwwwwwwww.",
    " .wwwwwwwww.",
    " ...........",
    "            ",
};

static const char *lamp_xpm[] = {
    "14 14 5 1",
    "  c None",
    ". c #303030",
    "r c #e03020",
    "g c #30c040",
    "s s select c gray60",
    "    ......    ",
    "   .rrrrrr.   ",
    "  .rrrrrrrr.  ",
    " .rrrsrrrrrr. ",
    " .rrssrrrrrr. ",
    " .rrrrrrrrrr. ",
    " .gggggggggg. ",
    " .gggggggggg. ",
    " .gggggggggg. ",
    "  .gggggggg.  ",
    "   .gggggg.   ",
    "    ......    ",
    "     .ss.     ",
    "      ..      ",
};

enum { PICTURE_W = 160, PICTURE_H = 112 };

/* A sky-like gradient with a sun: thousands of colours. */
static XwkImage *make_picture(void)
{
    XwkImage *image = XwkImageNew(PICTURE_W, PICTURE_H);
    int x, y;
    for (y = 0; y < PICTURE_H; y++) {
        for (x = 0; x < PICTURE_W; x++) {
            double fx = (double)x / PICTURE_W, fy = (double)y / PICTURE_H;
            double d = (fx - 0.7) * (fx - 0.7) + (fy - 0.3) * (fy - 0.3);
            double sun = 1.0 / (1.0 + d * 60.0);
            unsigned char *p = image->data + (y * PICTURE_W + x) * 3;
            double r = 40 + 120 * fy + 200 * sun, g = 90 + 80 * fy + 160 * sun, b = 220 - 90 * fy + 20 * sun;
            p[0] = (unsigned char)(r > 255 ? 255 : r);
            p[1] = (unsigned char)(g > 255 ? 255 : g);
            p[2] = (unsigned char)(b > 255 ? 255 : b);
        }
    }
    return image;
}

/* A copy of an image with at most 256 map entries, for colormaps with cells. */
static XwkImage *mapped_copy(XwkImage *image)
{
    XwkImage *copy;
    size_t bytes;
    if (image->cmapSize > 0 && image->cmapSize <= 256) {
        copy = XwkImageNewCmap(image->width, image->height, image->cmapSize);
        memcpy(copy->cmap, image->cmap, (size_t)image->cmapSize * 3);
        bytes = (size_t)image->width * image->height;
    } else {
        XwkImage *rgb = XwkImageToRGB(image);
        copy = XwkImageNew(image->width, image->height);
        bytes = (size_t)image->width * image->height * 3;
        memcpy(copy->data, rgb->data, bytes);
        if (rgb != image)
            XwkImageDelete(rgb);
        return XwkImageCompress(copy, 200);
    }
    memcpy(copy->data, image->data, bytes);
    return copy;
}

/* Draws an image into a pixmap of the widget's depth: TrueColor by the
 * default palette's arithmetic; on a colormap with cells each map entry is
 * allocated once, the nearest cell standing in when the map is full. */
static Pixmap image_to_pixmap(Widget w, XwkImage *image)
{
    Display *dpy = XtDisplay(w);
    Screen *screen = XtScreen(w);
    XwkPalette *palette = XwkPaletteGetDefault(w);
    Pixmap pixmap = XCreatePixmap(dpy, RootWindowOfScreen(screen), (unsigned)image->width,
                                  (unsigned)image->height, (unsigned)DefaultDepthOfScreen(screen));
    XImage *xi = XGetImage(dpy, pixmap, 0, 0, (unsigned)image->width, (unsigned)image->height, AllPlanes, ZPixmap);
    GC gc = XCreateGC(dpy, pixmap, 0, NULL);
    int x, y, i;
    if (!palette->usesCells) {
        XwkImage *rgb = XwkImageToRGB(image);
        for (y = 0; y < image->height; y++) {
            for (x = 0; x < image->width; x++) {
                const unsigned char *p = rgb->data + (y * image->width + x) * 3;
                XColor c;
                c.red = (unsigned short)(p[0] << 8);
                c.green = (unsigned short)(p[1] << 8);
                c.blue = (unsigned short)(p[2] << 8);
                c.flags = DoRed | DoGreen | DoBlue;
                XPutPixel(xi, x, y, XwkPaletteAlloc(palette, &c));
            }
        }
        if (rgb != image)
            XwkImageDelete(rgb);
    } else {
        XwkImage *mapped = mapped_copy(image);
        unsigned long pixels[256];
        for (i = 0; i < mapped->cmapSize; i++) {
            XColor c;
            c.red = (unsigned short)(mapped->cmap[i * 3] * 257);
            c.green = (unsigned short)(mapped->cmap[i * 3 + 1] * 257);
            c.blue = (unsigned short)(mapped->cmap[i * 3 + 2] * 257);
            c.flags = DoRed | DoGreen | DoBlue;
            XwkFindColor(dpy, DefaultColormapOfScreen(screen), &c);
            pixels[i] = c.pixel;
        }
        for (y = 0; y < image->height; y++)
            for (x = 0; x < image->width; x++)
                XPutPixel(xi, x, y, pixels[mapped->data[y * image->width + x]]);
        XwkImageDelete(mapped);
    }
    XPutImage(dpy, pixmap, gc, xi, 0, 0, 0, 0, (unsigned)image->width, (unsigned)image->height);
    XFreeGC(dpy, gc);
    XDestroyImage(xi);
    return pixmap;
}

static Widget labelled(Widget parent, const char *name, const char *text, Pixmap pixmap)
{
    Widget column = XtVaCreateManagedWidget(name, xmRowColumnWidgetClass, parent,
                                            XmNorientation, XmVERTICAL, NULL);
    XmString s = XmStringCreateLocalized((char *)text);
    XtVaCreateManagedWidget("caption", xmLabelWidgetClass, column, XmNlabelString, s, NULL);
    XmStringFree(s);
    XtVaCreateManagedWidget("picture", xmLabelWidgetClass, column, XmNlabelType, XmPIXMAP,
                            XmNlabelPixmap, pixmap, NULL);
    return column;
}

Widget demo_page_colours(Widget parent)
{
    Widget page = XtVaCreateManagedWidget("colours", xmRowColumnWidgetClass, parent,
                                          XmNorientation, XmVERTICAL, XmNspacing, 8, NULL);
    Widget icons = XtVaCreateManagedWidget("icons", xmRowColumnWidgetClass, page,
                                           XmNorientation, XmHORIZONTAL, XmNspacing, 12, NULL);
    const char **pictures[] = {folder_xpm, page_xpm, lamp_xpm};
    const char *names[] = {"Folder", "Page", "Lamp"};
    int i;
    for (i = 0; i < 3; i++) {
        XwkIcon *icon = XwkIconCreateFromData(icons, (char **)pictures[i]);
        if (icon)
            labelled(icons, "icon", names[i], icon->pixmap);
    }

    Widget pictures_row = XtVaCreateManagedWidget("pictures", xmRowColumnWidgetClass, page,
                                                  XmNorientation, XmHORIZONTAL, XmNspacing, 12, NULL);
    XwkImage *original = make_picture();
    labelled(pictures_row, "before", "Original", image_to_pixmap(pictures_row, original));
    XwkImage *reduced = XwkImageCompress(original, 12);
    labelled(pictures_row, "after", "Reduced to 12 colours", image_to_pixmap(pictures_row, reduced));
    XwkImageDelete(reduced);
    return page;
}
