/**
 * \file
 * \ingroup colorpicker
 * \brief The colour picker: a dialog, and the widgets it is made of, for
 * choosing a colour from a palette grid and from value bars.
 *
 * XwkColorPicker runs the whole dialog on a desk and returns the colour.
 * ColorPicker makes the same picker in any manager of the application's
 * own windows, read with ColorPickerGetColor; ColorPickerPalette makes the
 * palette grid alone.
 *
 * **The picker.**  On the left a grid of colours: the colours of a given
 * palette, or of the colormap (on TrueColor, where a colormap holds every
 * colour, a fixed set of 216 colours of a 6x6x6 cube and 40 greys).  A
 * click on a cell takes its colour.  On the right six value bars, red,
 * green, blue, hue, saturation and value, each with a field for typing its
 * value; a click or a drag of button 1 on a bar sets the value at the
 * pointer, Return or leaving a field takes the typed value.  Below, three
 * toggles set the units of the fields, and a sample area shows the colour.
 *
 * **Units.**  XWK_COLOR_PERCENT shows 0 to 100, XWK_COLOR_DECIMAL 0 to 255
 * and XWK_COLOR_HEX 00 to FF, for all six bars alike (a hue of 255 is a full
 * turn).  A channel's 8-bit value is the typed value scaled to 255 and
 * rounded, so 50 percent is 128.  A text that is not a number of the units
 * rings the bell and the field shows the value again; numbers beyond the
 * range are clamped.
 *
 * **Colours and visuals.**  Colours are chosen at 8 bits per channel.  On
 * TrueColor every colour is drawn exactly.  On a visual with writable cells
 * (such as an 8-bit PseudoColor map, also a full one) the picker draws the
 * grid and bars in the nearest colours of its palette, and shows the sample
 * exactly in a cell of its own when the palette is writable (made by
 * XwkPaletteCreate, not the shared default palette): XwkColorPicker makes
 * such a palette and a colormap of its own for the dialog.
 *
 * **Widget names** (for resources and tests): the picker form has children
 * "palette" (the grid), "red", "green", "blue", "hue", "saturation" and
 * "value" (the bars, XmDrawingArea, 256 pixels of values between margins of
 * 2), their fields "redField" ... "valueField" (XmTextField), the toggles
 * "percent", "decimal" and "hexadecimal", and "sample" (XmDrawingArea).
 */
#ifndef XWK_COLORPICKER_H
#define XWK_COLORPICKER_H

#include <X11/Intrinsic.h>
#include <Xwk/Graphics.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Units of the picker's fields: percent, 0 to 100. */
#define XWK_COLOR_PERCENT 0
/** Units of the picker's fields: decimal, 0 to 255. */
#define XWK_COLOR_DECIMAL 1
/** Units of the picker's fields: hexadecimal, 00 to FF. */
#define XWK_COLOR_HEX     2

/** Width and height in pixels of a cell of the palette grid, its one-pixel
 * gap included. */
#define XWK_COLOR_CELL    12
/** Number of cells in a row of the palette grid. */
#define XWK_COLOR_COLUMNS 16

/**
 * Runs the colour picker dialog modally and returns the colour chosen.
 *
 * The dialog is a desk with the buttons OK, Cancel and Help (help page
 * "colorpicker"); it runs its own event loop until OK or Cancel, or until
 * the window manager closes it (Cancel).  On a visual with writable cells
 * the dialog gets a palette and a colormap of its own, copied from the
 * screen's, which go with it.
 *
 * \param parent  Widget whose shell owns the modal dialog, or NULL for a
 *                top-level desk (xwkTopLevel; the first desk of a process
 *                starts Xt).
 * \param title   Window title and help data as for CreateDesk; NULL gives
 *                "Colour".
 * \param palette Palette whose colours the grid shows, or NULL for the
 *                colormap's.
 * \param color   In: the colour shown first (red, green and blue).  Out, on
 *                OK: red, green and blue of the colour chosen (each 8-bit
 *                value times 257), flags DoRed|DoGreen|DoBlue, and pixel, a
 *                pixel of that colour through \p palette, or the default
 *                palette of the parent's screen (the nearest colour on a full
 *                map).  Left alone on Cancel.
 * \return True on OK, False on Cancel, on a close by the window manager or
 *         when \p color is NULL.
 */
Boolean XwkColorPicker(Widget parent, const char *title, XwkPalette *palette, XColor *color);

/**
 * Makes a colour picker: a form holding the palette grid, the value bars
 * with their fields, the units toggles and the sample area.  Its state goes
 * with the form.
 *
 * \param parent  The manager that holds it; its colormap is the one of
 *                \p palette.
 * \param name    Name of the form.
 * \param palette Palette of the colormap the picker draws in, or NULL for
 *                the default palette of the screen.  Borrowed: it must
 *                outlive the picker.  A writable palette gives the sample a
 *                cell of its own, one that no widget of the parent's shell
 *                uses.
 * \param colors  Palette whose colours the grid shows, or NULL for those of
 *                \p palette.  Read at creation only.
 * \return The form, managed; NULL when \p parent is NULL.
 */
Widget ColorPicker(Widget parent, const char *name, XwkPalette *palette, XwkPalette *colors);
/**
 * Makes a palette grid alone: an XmDrawingArea of XWK_COLOR_COLUMNS cells a
 * row, each XWK_COLOR_CELL pixels square, the chosen one outlined.
 *
 * \param parent   The manager that holds it.
 * \param name     Name of the drawing area.
 * \param palette  Palette of the colormap the grid draws in, or NULL for the
 *                 default palette of the screen; borrowed.
 * \param colors   Palette whose colours are shown (at most 256), or NULL
 *                 for those of \p palette; read at creation only.
 * \param callback Called when a cell is clicked, with the grid, \p closure
 *                 and, as call data, an `XColor *` of the cell's colour
 *                 (valid during the call); may be NULL.
 * \param closure  Client data for \p callback.
 * \return The drawing area, managed; NULL when \p parent is NULL.
 */
Widget ColorPickerPalette(Widget parent, const char *name, XwkPalette *palette,
                          XwkPalette *colors, XtCallbackProc callback, XtPointer closure);
/**
 * The colour a picker shows.
 *
 * \param picker A form made by ColorPicker.
 * \param color  Receives red, green and blue (each 8-bit value times 257),
 *               flags DoRed|DoGreen|DoBlue and the pixel the sample is drawn
 *               in.
 * \return True, or False when \p picker is not a colour picker or \p color
 *         is NULL.
 */
Boolean ColorPickerGetColor(Widget picker, XColor *color);
/**
 * Shows a colour in a picker: bars, fields and sample follow.
 *
 * \param picker A form made by ColorPicker.
 * \param color  The colour; the high byte of each channel counts.
 */
void ColorPickerSetColor(Widget picker, const XColor *color);
/**
 * Sets the units of a picker's fields; the toggles follow.
 *
 * \param picker A form made by ColorPicker.
 * \param units  XWK_COLOR_PERCENT, XWK_COLOR_DECIMAL or XWK_COLOR_HEX;
 *               others are ignored.
 */
void ColorPickerSetUnits(Widget picker, int units);
/**
 * The units of a picker's fields.
 *
 * \param picker A form made by ColorPicker.
 * \return XWK_COLOR_PERCENT, XWK_COLOR_DECIMAL or XWK_COLOR_HEX; -1 when
 *         \p picker is not a colour picker.
 */
int ColorPickerGetUnits(Widget picker);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
