/*
 * Xwk/Graphics.h - palettes, images, icons, cursors and colour converters.
 *
 * A palette models one X colormap (which pixel holds which colour, which
 * cells are free); an image holds a picture as RGB or as indexes into a
 * colour map and can be reduced to a number of colours; icons are XPM
 * pictures turned into pixmaps in the colours of the widget they are for.
 */
#ifndef XWK_GRAPHICS_H
#define XWK_GRAPHICS_H

#include <X11/Intrinsic.h>
#include <X11/Xlib.h>
#include <X11/xpm.h>
#include <Xwk/Lists.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* ---- Palettes ---------------------------------------------------------- */

/* One cell of a writable or read-only colormap.  Colours are kept with the
 * low byte of each channel cleared; flags is always DoRed|DoGreen|DoBlue. */
typedef struct _XwkPaletteCell {
    XColor color;
    char inUse;
    char invalid;
} XwkPaletteCell;

typedef struct _XwkPalette {
    int grey;                 /* StaticGray or GrayScale */
    int shared;               /* on the screen's default colormap: never stored into */
    int usesCells;            /* not TrueColor */
    int mapEntries;
    int readOnly;             /* StaticGray, StaticColor, TrueColor */
    Display *display;
    Colormap colormap;
    Visual *visual;
    int depth;
    HashTree *byColor;        /* cells by red, green, blue, 128 buckets */
    HashTree *byPixel;        /* cells by pixel, 128 buckets */
    XwkPaletteCell *cells;    /* mapEntries cells of writable classes, else NULL */
    Pixel unusedPixel;        /* a pixel kept back for the caller */
    int redShift, greenShift, blueShift;   /* TrueColor only */
    int redSize, greenSize, blueSize;      /* TrueColor levels per channel */
    int freeCells;
    int reserved;
    XwkPaletteCell *lastCell; /* cell of the last XwkPaletteAlloc */
} XwkPalette;

XwkPalette *XwkPaletteCreate(Widget w);
XwkPalette *XwkPaletteGetDefault(Widget w);
Pixel XwkPaletteAlloc(XwkPalette *palette, XColor *color);
int XwkPaletteAllocN(XwkPalette *palette, XColor *colors, int n, Pixel *pixels);
XColor *XwkPaletteLookup(XwkPalette *palette, Pixel pixel);
int XwkPaletteLookupColor(XwkPalette *palette, XColor *color, Pixel *pixel);
Pixel XwkPaletteGetUnused(XwkPalette *palette);
void XwkPaletteSetInvalid(XwkPalette *palette, Pixel pixel);
int XwkPaletteSetPixel(XwkPalette *palette, Pixel pixel, XColor *color);
XwkPalette *XwkPaletteFindDpy(Display *display, Colormap colormap);
XwkPalette *XwkPaletteFind(Widget w, Colormap colormap);
void XwkPaletteDelete(XwkPalette *palette);

/* ---- Images ------------------------------------------------------------ */

/* Rows without padding.  With cmapSize 0 a pixel is 3 bytes R, G, B; with
 * up to 256 map entries one byte, above that an unsigned short, each an
 * index into cmap (3 bytes an entry). */
typedef struct _XwkImage {
    int bytesPerPixel;
    unsigned char compressed;
    int cmapSize;
    unsigned char *cmap;
    int width, height;
    unsigned char *data;
} XwkImage;

XwkImage *XwkImageNew(int width, int height);
XwkImage *XwkImageNewCmap(int width, int height, int cmapSize);
void XwkImageDelete(XwkImage *image);
XwkImage *XwkImageCompress(XwkImage *image, int colors);
XwkImage *XwkImageToRGB(XwkImage *image);
void XwkGetPixmapWHD(Display *display, Drawable drawable, int *width, int *height, int *depth);
XwkImage *XwkPixmapToImage(Widget w, Pixmap pixmap, Colormap colormap);
Pixmap XwkDitherPixmap(Widget w, Colormap colormap, Pixmap pixmap);

/* ---- Icons ------------------------------------------------------------- */

typedef struct _XwkIcon {
    char *fileName;           /* resolved path, owned; NULL when made from data */
    Pixmap pixmap;
    Pixmap mask;              /* shape, or None */
    Pixmap composed;          /* picture over a background, made by the views */
    Pixmap extraPixmap;       /* freed with the icon */
    XpmAttributes attributes;
} XwkIcon;

extern int xwkXpmStatus;      /* libXpm status of the last failed icon */

XwkIcon *XwkIconCreateFromFile(Widget w, const char *name);
XwkIcon *XwkIconCreateFromData(Widget w, char **data);
Boolean XwkIconCreateRecFromData(Widget w, char **data, XwkIcon *record);
void XwkIconFree(Widget w, XwkIcon *icon);
void XwkIconFreeIconsList(void);
Widget XwkCreateDragIconWidget(Widget w, XwkIcon *icon);

/* ---- Colours and converters -------------------------------------------- */

/* XwkFindColor is declared in Xwk/Frame.h. */
int XwkAllocNamedColor(Display *display, Colormap colormap, const char *name, XColor *color);
Boolean XwkAllocXpmColor(Display *display, Colormap colormap, char *name, XColor *color);
Boolean XwkCvtStringToPixel(Display *display, XrmValuePtr args, Cardinal *num_args,
                            XrmValuePtr from, XrmValuePtr to, XtPointer *closure);
void XwkCvtFreePixel(XtAppContext app, XrmValuePtr to, XtPointer closure,
                     XrmValuePtr args, Cardinal *num_args);
void XwkSetScrollbarColor(Widget scrollBar, Pixel background);
void XwkResetScrollBarsColor(Widget scrolledWindow);

/* ---- Cursors ----------------------------------------------------------- */

Cursor create_solid_cursor(Widget w, char *bits, char *maskBits, unsigned int width,
                           unsigned int height, int hotX, int hotY);
void XwkAddSolidCursor(Widget w, WidgetClass widgetClass, Cursor cursor);
void XwkSetNoneCursor(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
