/**
 * \file
 * \ingroup graphics
 * \brief Palettes, images, icons, cursors and colour converters.
 *
 * A palette models one X colormap (which pixel holds which colour, which
 * cells are free) and gets a pixel for an RGB value on any visual class:
 * TrueColor by arithmetic, the other classes through a record per cell.
 * All palettes of the process are kept on one list, so that the library's
 * colour converters find the palette of a colormap.  Colours are compared
 * at 8 bits per channel.  Nothing is reported: a full colormap gives the
 * nearest colour, which the caller cannot tell from an exact one.
 *
 * An image holds a picture as RGB or as indexes into a colour map, can be
 * read back from a pixmap and can be reduced to a number of colours.
 *
 * Icons are XPM pictures turned into pixmaps in the colours of the widget
 * they are for.  The library keeps every icon it makes on one list; the
 * tree list, the desk list, the folder and the message boxes borrow them
 * and never free them.
 *
 * Images, icons and their file names are allocated with XtMalloc.
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

/** One cell of a writable or read-only colormap.  Colours are kept with the
 * low byte of each channel cleared; flags is always DoRed|DoGreen|DoBlue. */
typedef struct _XwkPaletteCell {
    XColor color;             /**< Pixel and colour of the cell. */
    char inUse;               /**< The cell is taken. */
    char invalid;             /**< The server may hold another colour: the next lookup reads it back. */
} XwkPaletteCell;

/** A palette: the library's model of one X colormap.  Made by
 * XwkPaletteCreate or XwkPaletteGetDefault, freed by XwkPaletteDelete;
 * callers read its fields and change it only through the functions. */
typedef struct _XwkPalette {
    int grey;                 /**< StaticGray or GrayScale. */
    int shared;               /**< On the screen's default colormap: never stored into. */
    int usesCells;            /**< Not TrueColor: pixels come from cells. */
    int mapEntries;           /**< Number of cells of the visual. */
    int readOnly;             /**< StaticGray, StaticColor, TrueColor: colours come from XAllocColor. */
    Display *display;         /**< Display of the colormap. */
    Colormap colormap;        /**< The colormap modelled. */
    Visual *visual;           /**< Its visual. */
    int depth;                /**< Depth of the visual. */
    HashTree *byColor;        /**< Cells by red, green, blue, 128 buckets. */
    HashTree *byPixel;        /**< Cells by pixel, 128 buckets. */
    XwkPaletteCell *cells;    /**< mapEntries cells of writable classes, else NULL. */
    Pixel unusedPixel;        /**< A pixel kept back for the caller (XwkPaletteGetUnused). */
    int redShift, greenShift, blueShift;
    int redSize, greenSize, blueSize;
    int freeCells;            /**< Cells not in use. */
    int reserved;             /**< Unused; 0. */
    XwkPaletteCell *lastCell; /**< Cell of the last XwkPaletteAlloc, which spares the search for runs of one colour. */
} XwkPalette;

/** \var _XwkPalette::redShift
 * TrueColor only: bit position of red in a pixel. */
/** \var _XwkPalette::greenShift
 * TrueColor only: bit position of green in a pixel. */
/** \var _XwkPalette::blueShift
 * TrueColor only: bit position of blue in a pixel. */
/** \var _XwkPalette::redSize
 * TrueColor only: levels of red (2 to the number of bits of its mask). */
/** \var _XwkPalette::greenSize
 * TrueColor only: levels of green. */
/** \var _XwkPalette::blueSize
 * TrueColor only: levels of blue. */

/**
 * Makes a palette with a colormap of its own for the widget's shell.
 *
 * The visual and depth are the shell's, or the screen's default ones.
 * Read-only classes get a new colormap with no cells allocated.  Writable
 * classes get a new colormap with all cells allocated, holding the colours
 * of the screen's default colormap (white beyond them); the cells of the
 * screen's black and white pixels and one more cell (the unused pixel) are
 * taken.  The palette goes on the process list.  The caller gives the
 * colormap to its windows.
 *
 * \param w A widget on the screen; its shell decides the visual.
 * \return The palette, freed with XwkPaletteDelete; NULL when \p w is NULL.
 */
XwkPalette *XwkPaletteCreate(Widget w);
/**
 * The palette of the screen's default visual and colormap, one for the
 * process, made at the first call.
 *
 * On a writable class it is shared: it models the default colormap and
 * never stores into it.
 *
 * \param w A widget on the screen, used at the first call.
 * \return The default palette, borrowed; after an XwkPaletteDelete of it
 *         the next call makes a new one.
 */
XwkPalette *XwkPaletteGetDefault(Widget w);
/**
 * Gets a pixel for a colour.
 *
 * TrueColor computes it.  Otherwise a cell that holds the colour is taken;
 * without one, a read-only palette asks XAllocColor, a writable one sets
 * the first free cell to the colour, and a full writable one gives the
 * pixel of the nearest cell (least sum of squares of the channels' high
 * bytes) without changing any cell.
 *
 * \param palette The palette.
 * \param color   The colour asked (red, green, blue); its pixel is set to
 *                the result.
 * \return The pixel; 0 when \p palette or \p color is NULL.
 */
Pixel XwkPaletteAlloc(XwkPalette *palette, XColor *color);
/**
 * Gets pixels for many colours at once, in two passes, so that every
 * colour already present is claimed before any free cell is given up.
 *
 * Each colour is looked up or allocated as XwkPaletteAlloc does.  If one
 * of the pixels is the unused pixel, that moves to the first free cell,
 * when there is one.
 *
 * \param palette The palette.
 * \param colors  The colours asked; the pixel of each is set.
 * \param n       Number of \p colors.
 * \param pixels  Receives the \p n pixels, or NULL.
 * \return 0.
 */
int XwkPaletteAllocN(XwkPalette *palette, XColor *colors, int n, Pixel *pixels);
/**
 * The colour of a pixel.
 *
 * A cell marked invalid is first read back from the server.
 *
 * \param palette The palette.
 * \param pixel   The pixel.
 * \return The cell's colour, borrowed from the palette; on TrueColor one
 *         static record of the process, with channels quantized to the
 *         visual's levels, that the next call overwrites; NULL for a pixel
 *         without a cell or a NULL \p palette.
 */
XColor *XwkPaletteLookup(XwkPalette *palette, Pixel pixel);
/**
 * Finds the pixel of a colour that the palette already holds, at 8 bits
 * per channel.  Never allocates.
 *
 * \param palette The palette.
 * \param color   The colour looked for.
 * \param pixel   Receives the pixel, or NULL.
 * \return 1 when found (always on TrueColor), otherwise 0.
 */
int XwkPaletteLookupColor(XwkPalette *palette, XColor *color, Pixel *pixel);
/**
 * The pixel kept back for the caller, one that the palette's allocation
 * leaves alone (for instance for a colour that the caller changes).
 *
 * \param palette The palette.
 * \return The pixel; 0 on TrueColor and for a NULL \p palette.
 */
Pixel XwkPaletteGetUnused(XwkPalette *palette);
/**
 * Marks a cell out of date, so that the next lookup reads its colour back
 * from the server.  Only for writable palettes; ignored otherwise.
 *
 * \param palette The palette.
 * \param pixel   The cell's pixel.
 */
void XwkPaletteSetInvalid(XwkPalette *palette, Pixel pixel);
/**
 * Stores a colour in a cell (XStoreColor) and marks the cell invalid, so
 * that the next lookup gives what the server kept.
 *
 * \param palette The palette; neither read-only nor shared.
 * \param pixel   The cell's pixel.
 * \param color   The colour; its pixel and flags are set.
 * \return 1 when stored; 0 for a read-only or shared palette, a pixel
 *         without a cell or a NULL argument.
 */
int XwkPaletteSetPixel(XwkPalette *palette, Pixel pixel, XColor *color);
/**
 * Finds the palette of a colormap on the process list.
 *
 * \param display  The display.
 * \param colormap The colormap.
 * \return The newest palette of that colormap, borrowed; NULL if none.
 */
XwkPalette *XwkPaletteFindDpy(Display *display, Colormap colormap);
/**
 * Finds the palette of a colormap on the widget's display.
 *
 * \param w        A widget of the display.
 * \param colormap The colormap.
 * \return The newest palette of that colormap, borrowed; NULL if none or
 *         \p w is NULL.
 */
XwkPalette *XwkPaletteFind(Widget w, Colormap colormap);
/**
 * Removes a palette from the process list and frees it: its tables, its
 * cells and the record.  The X colormap and the pixels allocated in it are
 * left alone, as windows may still use them.
 *
 * \param palette The palette; NULL is ignored.
 */
void XwkPaletteDelete(XwkPalette *palette);

/* ---- Images ------------------------------------------------------------ */

/** A picture in memory.  Rows without padding, left to right.  With
 * cmapSize 0 a pixel is 3 bytes R, G, B; with up to 256 map entries one
 * byte, above that an unsigned short (in the machine's byte order), each
 * an index into cmap (3 bytes an entry).  An index outside the map reads
 * as black.  Freed with XwkImageDelete. */
typedef struct _XwkImage {
    int bytesPerPixel;        /**< 3 for RGB, 1 for up to 256 map entries, 2 above. */
    unsigned char compressed; /**< Set on the result of XwkImageCompress. */
    int cmapSize;             /**< Map entries; 0 means direct RGB. */
    unsigned char *cmap;      /**< Red, green, blue, 3 bytes an entry; NULL without a map. */
    int width, height;
    unsigned char *data;      /**< The pixels; NULL when a side is 0. */
} XwkImage;

/** \var _XwkImage::width
 * Width in pixels. */
/** \var _XwkImage::height
 * Height in pixels. */

/**
 * Makes an RGB image, its pixels zeroed.
 *
 * \param width  Width in pixels.
 * \param height Height in pixels.
 * \return The image, which the caller frees with XwkImageDelete; without
 *         data when a side is not positive.
 */
XwkImage *XwkImageNew(int width, int height);
/**
 * Makes an image whose kind follows from the size of its map, pixels and
 * map zeroed: RGB for 0, one byte a pixel up to 256 entries, two above.
 *
 * \param width    Width in pixels.
 * \param height   Height in pixels.
 * \param cmapSize Number of map entries; a negative one is taken as 0.
 * \return The image, which the caller frees with XwkImageDelete; without
 *         data when a side is not positive.
 */
XwkImage *XwkImageNewCmap(int width, int height, int cmapSize);
/**
 * Frees an image: its map, its data and the record.
 *
 * \param image The image; NULL is ignored.
 */
void XwkImageDelete(XwkImage *image);
/**
 * Reduces an image to a number of colours.
 *
 * A mapped image with fewer entries than the limit is returned as it is.
 * Otherwise, when the picture has no more distinct colours than the limit,
 * the result maps exactly those colours, in order of first appearance.
 * Else a median cut on a histogram of 5 bits per channel gives at most
 * \p colors entries (fewer when the boxes run out of colours to split),
 * each the plain mean of its box's colours.  The result has compressed
 * set.
 *
 * \param image  The image.  When a new image is returned, \p image has
 *               been deleted: use the result only.
 * \param colors The greatest number of colours; above 32768 taken as 32768.
 * \return The reduced image (or \p image itself, see above), which the
 *         caller frees with XwkImageDelete; NULL when \p image is NULL.
 */
XwkImage *XwkImageCompress(XwkImage *image, int colors);
/**
 * Expands a mapped image to RGB.
 *
 * \param image The image.  A mapped one is left in place, not deleted, with
 *              compressed cleared.
 * \return A new RGB image, which the caller frees with XwkImageDelete; an
 *         RGB (or NULL) \p image is returned as it is.
 */
XwkImage *XwkImageToRGB(XwkImage *image);
/**
 * Reads the width, height and depth of a drawable (XGetGeometry).
 *
 * \param display  The display; with \p drawable 0 or a NULL \p display
 *                 all three are 0.
 * \param drawable The pixmap or window.
 * \param width    Receives the width, or NULL.
 * \param height   Receives the height, or NULL.
 * \param depth    Receives the depth, or NULL.
 */
void XwkGetPixmapWHD(Display *display, Drawable drawable, int *width, int *height, int *depth);
/**
 * Reads a pixmap back into an image, through the palette of a colormap.
 *
 * With a palette that uses cells the image maps each pixel to its cell,
 * with a map of the palette's mapEntries; on TrueColor it is RGB.  A
 * picture of only black and white becomes a map of two entries (0 black,
 * 1 white), one of only greys a map of a 256-entry grey ramp.
 *
 * \param w        A widget of the display.
 * \param pixmap   The pixmap.
 * \param colormap Colormap of the pixmap's colours; without a palette of
 *                 its own the default palette (XwkPaletteGetDefault) is used.
 * \return The image, which the caller frees with XwkImageDelete; an image
 *         without data for a pixmap of no size; NULL when \p w or
 *         \p pixmap is 0 or the pixmap cannot be read.
 */
XwkImage *XwkPixmapToImage(Widget w, Pixmap pixmap, Colormap colormap);
/**
 * Makes a depth-1 copy of a pixmap.
 *
 * Despite its name this is a fixed threshold, not an error-diffusing
 * dither: a pixel is dark when 0.4 red + 0.4 green + 0.2 blue is 128 or
 * less.  Dark pixels take the screen's white pixel value in the bitmap,
 * the others its black pixel value.
 *
 * \param w        A widget of the screen.
 * \param colormap Colormap of the pixmap's colours, as for XwkPixmapToImage.
 * \param pixmap   The pixmap.
 * \return The bitmap, which the caller frees with XFreePixmap; None when
 *         \p w is NULL or the pixmap cannot be read or is empty.
 */
Pixmap XwkDitherPixmap(Widget w, Colormap colormap, Pixmap pixmap);

/* ---- Icons ------------------------------------------------------------- */

/** An icon: an XPM picture as pixmaps in the colours of a widget.  Items
 * and pages borrow icons and never free them. */
typedef struct _XwkIcon {
    char *fileName;           /**< Resolved path, owned; NULL when made from data. */
    Pixmap pixmap;            /**< The picture. */
    Pixmap mask;              /**< Shape, or None. */
    Pixmap composed;          /**< Picture over a background, made by the views; the pixmap itself without a mask. */
    Pixmap extraPixmap;       /**< Freed with the icon. */
    XpmAttributes attributes; /**< As libXpm filled them: width, height, depth, hot spot. */
} XwkIcon;

/** libXpm status of the last icon that failed (XpmFileInvalid for a
 * picture refused before libXpm reads it). */
extern int xwkXpmStatus;

/**
 * Loads an icon from an XPM file.
 *
 * The colours "None" (transparent) and "background" take the widget's
 * background, and the symbolic colours "foreground", "top_shadow",
 * "bottom_shadow" and "select" the colours Motif derives from it; the
 * picture's other colours go through the palette of the widget's colormap
 * where there is one.  There is one icon per file in the process: a name
 * that resolves to the path of an icon already made gives that icon, in
 * the colours of the widget it was first made for.
 *
 * \param w    The widget whose colours the icon takes.
 * \param name A path starting with '/', or a name resolved with
 *             XtResolvePathname, type "pixmaps", suffix ".xpm".
 * \return The icon, on the library's list; freed with XwkIconFree or
 *         XwkIconFreeIconsList.  NULL when the file is not found or cannot
 *         be read (xwkXpmStatus then tells why, for a file found).
 */
XwkIcon *XwkIconCreateFromFile(Widget w, const char *name);
/**
 * Makes an icon from an XPM data array, with colours as for
 * XwkIconCreateFromFile.  Every call makes a new icon.
 *
 * \param w    The widget whose colours the icon takes.
 * \param data The XPM data; stays the caller's.
 * \return The icon, on the library's list; freed with XwkIconFree or
 *         XwkIconFreeIconsList.  NULL on failure, with xwkXpmStatus set.
 */
XwkIcon *XwkIconCreateFromData(Widget w, char **data);
/**
 * Fills a caller's icon record from an XPM data array, with colours as for
 * XwkIconCreateFromFile.  The record does not go on the library's list.
 *
 * \param w      The widget whose colours the icon takes.
 * \param data   The XPM data; stays the caller's.
 * \param record The record to fill; zeroed on failure.  The caller frees
 *               its pixmaps (XwkIconFree frees them and leaves the record).
 * \return True on success; False with xwkXpmStatus set.
 */
Boolean XwkIconCreateRecFromData(Widget w, char **data, XwkIcon *record);
/**
 * Frees an icon: its file name, its composed picture (when it is not the
 * pixmap itself), pixmap, mask and extraPixmap, each only if the server
 * still has it, then takes the icon off the library's list and frees the
 * record.  A record that is not on the list (from
 * XwkIconCreateRecFromData) has its parts freed and stays the caller's.
 *
 * \param w    A widget of the display, for a record not on the list (NULL:
 *             the library's display).
 * \param icon The icon; NULL is ignored.
 */
void XwkIconFree(Widget w, XwkIcon *icon);
/**
 * Frees every icon on the library's list, and the drawable shared by icon
 * creation.  Runs under an X error handler that ignores errors, so that it
 * is safe while the display closes; every icon pointer is dead afterwards.
 */
void XwkIconFreeIconsList(void);
/**
 * Makes a Motif drag icon ("dragIcon", XmCreateDragIcon on the XmScreen)
 * from an icon: its pixmap, mask, size, depth and hot spot.
 *
 * \param w    A widget of the screen.
 * \param icon The icon, borrowed; NULL for an empty 1 by 1 drag icon.
 * \return The drag icon widget, which the caller destroys with
 *         XtDestroyWidget; NULL when \p w is NULL.
 */
Widget XwkCreateDragIconWidget(Widget w, XwkIcon *icon);

/* ---- Colours and converters -------------------------------------------- */

/* XwkFindColor is declared in Xwk/Frame.h. */
/**
 * Allocates a colour by name, never failing for a full colormap.
 *
 * "XtDefaultBackground" and "XtDefaultForeground" (any case) give the
 * screen's white and black pixels.  With a palette on this colormap that
 * is not shared, the name is parsed and the palette allocates.  Otherwise
 * XAllocNamedColor; when that fails for a known name, XwkFindColor gives
 * the nearest cell.
 *
 * \param display  The display.
 * \param colormap The colormap.
 * \param name     Colour name, or an RGB value as XParseColor reads it.
 * \param color    Receives the pixel and colour.
 * \return 0 for an unknown name (or a NULL argument); 1 when a pixel was
 *         allocated; 2 for a fixed pixel or the nearest cell, which must
 *         not be freed.
 */
int XwkAllocNamedColor(Display *display, Colormap colormap, const char *name, XColor *color);
/**
 * The colour allocator the library gives libXpm: XwkAllocNamedColor.
 *
 * \param display  The display.
 * \param colormap The colormap.
 * \param name     Colour name.
 * \param color    Receives the pixel and colour.
 * \return True unless the name is unknown.
 */
Boolean XwkAllocXpmColor(Display *display, Colormap colormap, char *name, XColor *color);
/**
 * The library's String to Pixel converter, which replaces Motif's
 * (registered with the screen and colormap of the widget as arguments,
 * cached by display, with XwkCvtFreePixel as destructor).  Colour names go
 * through XwkAllocNamedColor, so through a palette where there is one, and
 * a full colormap gives the nearest colour instead of a failed widget.
 *
 * \param display  The display.
 * \param args     Screen and colormap.
 * \param num_args Number of \p args; other than 2 warns
 *                 ("wrongParameters") and fails.
 * \param from     The colour name.
 * \param to       Receives the pixel, by Xt's convention: into the
 *                 caller's storage when given and large enough (else its
 *                 size is set and the conversion fails), or a static.
 * \param closure  Receives the colormap for an allocated pixel, NULL for a
 *                 fixed or nearest one, which is thus never freed.
 * \return True on success; False with a warning ("badValue") for an
 *         unknown name.
 */
Boolean XwkCvtStringToPixel(Display *display, XrmValuePtr args, Cardinal *num_args,
                            XrmValuePtr from, XrmValuePtr to, XtPointer *closure);
/**
 * Destructor of XwkCvtStringToPixel: frees the pixel (XFreeColors) when the
 * conversion allocated it in this colormap.
 *
 * \param app      The application context.
 * \param to       The converted pixel.
 * \param closure  The conversion's closure: the colormap, or NULL.
 * \param args     Screen and colormap.
 * \param num_args Number of \p args; other than 2 warns ("wrongParameters")
 *                 and frees nothing.
 */
void XwkCvtFreePixel(XtAppContext app, XrmValuePtr to, XtPointer closure,
                     XrmValuePtr args, Cardinal *num_args);
/**
 * Colours a scroll bar: the given background, and as trough colour the
 * select colour that Motif derives from it.
 *
 * \param scrollBar  The scroll bar; a widget that is none is ignored.
 * \param background The background pixel.
 */
void XwkSetScrollbarColor(Widget scrollBar, Pixel background);
/**
 * Colours both scroll bars of a scrolled window with its background, as
 * XwkSetScrollbarColor does.
 *
 * \param scrolledWindow The scrolled window; a widget that is none is
 *                       ignored.
 */
void XwkResetScrollBarsColor(Widget scrolledWindow);

/* ---- Cursors ----------------------------------------------------------- */

/**
 * Makes a black and white cursor from bitmap data.
 *
 * \param w        A widget of the screen.
 * \param bits     Bitmap of the cursor (XBM layout); set bits are black.
 * \param maskBits Bitmap of its shape.
 * \param width    Width of both bitmaps.
 * \param height   Height of both bitmaps.
 * \param hotX     Horizontal hot spot.
 * \param hotY     Vertical hot spot.
 * \return The cursor, which the caller frees with XFreeCursor; None for a
 *         NULL argument or a zero size.
 */
Cursor create_solid_cursor(Widget w, char *bits, char *maskBits, unsigned int width,
                           unsigned int height, int hotX, int hotY);
/**
 * Defines a cursor on every realized child widget of \p w that belongs to
 * a class (or a subclass of it).
 *
 * \param w           A composite widget; others are ignored.
 * \param widgetClass The class of the children to change.
 * \param cursor      The cursor, which stays the caller's; None is ignored.
 */
void XwkAddSolidCursor(Widget w, WidgetClass widgetClass, Cursor cursor);
/**
 * Hides the pointer over a widget: defines an invisible cursor, made once
 * for the process, on its window.
 *
 * \param w A realized widget; others are ignored.
 */
void XwkSetNoneCursor(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
