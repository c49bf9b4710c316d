// The two behaviour changes the library makes to Motif's class records: flat
// full-length sashes for suitably configured paned windows, and etched text
// for insensitive labels (plus a moving face for armed push buttons).
#include <Xwk/Frame.h>

#include <Xm/XmP.h>
#include <Xm/LabelP.h>
#include <Xm/PanedWP.h>
#include <Xm/PushBP.h>
#include <Xm/SashP.h>

namespace {

const unsigned char kSash24x16Source[] = {
    0xff, 0xed, 0xff, 0xff, 0xed, 0xff, 0xdf, 0xed, 0xfe, 0xcf, 0xed, 0xfc, 0xd7, 0xed, 0xfa, 0xdb,
    0xed, 0xf6, 0x1d, 0x0c, 0xee, 0xfe, 0xff, 0xdf, 0x1d, 0x0c, 0xee, 0xdb, 0xed, 0xf6, 0xd7, 0xed,
    0xfa, 0xcf, 0xed, 0xfc, 0xdf, 0xed, 0xfe, 0xff, 0xed, 0xff, 0xff, 0xed, 0xff, 0xff, 0xff, 0xff};
const unsigned char kSash24x16Mask[] = {
    0x00, 0x1e, 0x00, 0x00, 0x1e, 0x00, 0x20, 0x1e, 0x01, 0x30, 0x1e, 0x03, 0x38, 0x1e, 0x07, 0x3c,
    0x1e, 0x0f, 0xfe, 0xff, 0x1f, 0xff, 0xff, 0x3f, 0xfe, 0xff, 0x1f, 0x3c, 0x1e, 0x0f, 0x38, 0x1e,
    0x07, 0x30, 0x1e, 0x03, 0x20, 0x1e, 0x01, 0x00, 0x1e, 0x00, 0x00, 0x1e, 0x00, 0x00, 0x00, 0x00};
const unsigned char kSash16x24Source[] = {
    0x7f, 0xff, 0xbf, 0xfe, 0xdf, 0xfd, 0xef, 0xfb, 0xf7, 0xf7, 0x83, 0xe0, 0xbf, 0xfe, 0xbf, 0xfe,
    0xbf, 0xfe, 0x80, 0x80, 0xff, 0xff, 0xff, 0xff, 0x80, 0x80, 0xbf, 0xfe, 0xbf, 0xfe, 0xbf, 0xfe,
    0x83, 0xe0, 0xf7, 0xf7, 0xef, 0xfb, 0xdf, 0xfd, 0xbf, 0xfe, 0x7f, 0xff, 0xff, 0xff, 0xff, 0xff};
const unsigned char kSash16x24Mask[] = {
    0x80, 0x00, 0xc0, 0x01, 0xe0, 0x03, 0xf0, 0x07, 0xf8, 0x0f, 0xfc, 0x1f, 0xc0, 0x01, 0xc0, 0x01,
    0xc0, 0x01, 0xff, 0x7f, 0xff, 0x7f, 0xff, 0x7f, 0xff, 0x7f, 0xc0, 0x01, 0xc0, 0x01, 0xc0, 0x01,
    0xfc, 0x1f, 0xf8, 0x0f, 0xf0, 0x07, 0xe0, 0x03, 0xc0, 0x01, 0x80, 0x00, 0x00, 0x00, 0x00, 0x00};

const int kFlatSashThickness = 6;

Cursor make_sash_cursor(Widget w, const unsigned char *source, const unsigned char *mask,
                        unsigned width, unsigned height, unsigned hot_x, unsigned hot_y)
{
    Display *dpy = XtDisplay(w);
    Screen *screen = XtScreen(w);
    Window root = RootWindowOfScreen(screen);
    unsigned best_w = 0, best_h = 0;
    XQueryBestCursor(dpy, root, width, height, &best_w, &best_h);
    if (best_w < width || best_h < height)
        return None;
    Pixmap src = XCreateBitmapFromData(dpy, root, (const char *)source, width, height);
    Pixmap msk = XCreateBitmapFromData(dpy, root, (const char *)mask, width, height);
    XColor fg, bg;
    fg.pixel = BlackPixelOfScreen(screen);
    bg.pixel = WhitePixelOfScreen(screen);
    Colormap cmap = DefaultColormapOfScreen(screen);
    XQueryColor(dpy, cmap, &fg);
    XQueryColor(dpy, cmap, &bg);
    Cursor cursor = XCreatePixmapCursor(dpy, src, msk, &fg, &bg, hot_x, hot_y);
    XFreePixmap(dpy, src);
    XFreePixmap(dpy, msk);
    return cursor;
}

Cursor horizontal_sash_cursor, vertical_sash_cursor;
bool sash_cursors_made;

void make_sash_cursors(Widget w)
{
    if (sash_cursors_made)
        return;
    sash_cursors_made = true;
    horizontal_sash_cursor = make_sash_cursor(w, kSash24x16Source, kSash24x16Mask, 24, 16, 11, 7);
    vertical_sash_cursor = make_sash_cursor(w, kSash16x24Source, kSash16x24Mask, 16, 24, 7, 11);
}

bool wants_flat_sash(Widget paned)
{
    Position indent = 0;
    Dimension width = 0, height = 0, spacing = 0;
    Boolean separator = True;
    XtVaGetValues(paned, XmNsashIndent, &indent, XmNsashWidth, &width, XmNsashHeight, &height,
                  XmNseparatorOn, &separator, XmNspacing, &spacing, NULL);
    return indent == 0 && width != height && !separator && spacing == kFlatSashThickness;
}

// The GC a paned window draws its track line with, once it has made one.
GC track_line_gc(Widget paned)
{
    if (XmIsPanedWindow(paned))
        return ((XmPanedWindowWidget)paned)->paned_window.flipgc;
    return nullptr;
}

GC make_text_gc(Widget w, Pixel foreground)
{
    XGCValues values;
    values.foreground = foreground;
    values.background = w->core.background_pixel;
    return XCreateGC(XtDisplay(w), XtWindow(w), GCForeground | GCBackground, &values);
}

// Motif draws insensitive text itself with a shadow GC one pixel off; a no-op
// GC in that slot leaves just the two passes of the etched look.
GC make_noop_gc(Widget w)
{
    XGCValues values;
    values.function = GXnoop;
    return XCreateGC(XtDisplay(w), XtWindow(w), GCFunction, &values);
}

struct LabelState {
    GC normal, insensitive, shadow;
    XRectangle text, acc;
};

LabelState save_label(XmLabelWidget lw)
{
    return {lw->label.normal_GC, lw->label.insensitive_GC, lw->label.shadow_GC,
            lw->label.TextRect, lw->label.acc_TextRect};
}

void restore_label(XmLabelWidget lw, const LabelState &s)
{
    lw->label.normal_GC = s.normal;
    lw->label.insensitive_GC = s.insensitive;
    lw->label.shadow_GC = s.shadow;
    lw->label.TextRect = s.text;
    lw->label.acc_TextRect = s.acc;
}

void draw_etched(Widget w, XEvent *event, Region region)
{
    XmLabelWidget lw = (XmLabelWidget)w;
    LabelState saved = save_label(lw);
    GC top = make_text_gc(w, lw->primitive.top_shadow_color);
    GC bottom = make_text_gc(w, lw->primitive.bottom_shadow_color);
    GC noop = make_noop_gc(w);

    lw->label.normal_GC = lw->label.insensitive_GC = top;
    lw->label.shadow_GC = noop;
    lw->label.TextRect.x += 1;
    lw->label.TextRect.y += 1;
    if (lw->label._acc_text) {
        lw->label.acc_TextRect.x += 1;
        lw->label.acc_TextRect.y += 1;
    }
    XwkLabelExposeClassOriginalProc(w, event, region);

    restore_label(lw, saved);
    lw->label.normal_GC = lw->label.insensitive_GC = bottom;
    lw->label.shadow_GC = noop;
    // Xft builds of Motif clear the text box before drawing; an empty box
    // keeps the first pass on screen.  The text itself is placed by StringRect.
    lw->label.TextRect.width = 0;
    lw->label.TextRect.height = 0;
    XwkLabelExposeClassOriginalProc(w, event, region);

    restore_label(lw, saved);
    XFreeGC(XtDisplay(w), top);
    XFreeGC(XtDisplay(w), bottom);
    XFreeGC(XtDisplay(w), noop);
}

bool is_armed_push_button(Widget w)
{
    if (!XmIsPushButton(w))
        return false;
    XmPushButtonWidget pb = (XmPushButtonWidget)w;
    unsigned char menu = pb->label.menu_type;
    return pb->pushbutton.armed && menu != XmMENU_PULLDOWN && menu != XmMENU_POPUP;
}

}  // namespace

void XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs)
{
    Widget paned = XtParent(sash);
    if (paned && wants_flat_sash(paned)) {
        _XwkSashRealizeClassProc(sash, mask, attrs);
        return;
    }
    XwkSashRealizeClassOriginalProc(sash, mask, attrs);
}

void _XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs)
{
    Widget paned = XtParent(sash);
    unsigned char orientation = XmVERTICAL;
    XtVaGetValues(paned, XmNorientation, &orientation, NULL);
    make_sash_cursors(sash);

    Cursor cursor;
    int thickness = kFlatSashThickness;
    if (orientation == XmHORIZONTAL) {
        XtResizeWidget(sash, kFlatSashThickness, paned->core.height, 0);
        cursor = horizontal_sash_cursor;
    } else {
        XtResizeWidget(sash, paned->core.width, kFlatSashThickness, 0);
        cursor = vertical_sash_cursor;
    }
    if (GC gc = track_line_gc(paned)) {
        XGCValues values;
        values.line_width = thickness;
        XChangeGC(XtDisplay(paned), gc, GCLineWidth, &values);
    }
    attrs->cursor = cursor;
    *mask |= CWCursor;
    XtCreateWindow(sash, InputOutput, CopyFromParent, *mask, attrs);
    XDefineCursor(XtDisplay(sash), XtWindow(sash), cursor);
}

void XwkLabelExposeClassProc(Widget label, XEvent *event, Region region)
{
    XmLabelWidget lw = (XmLabelWidget)label;
    if (!XtIsSensitive(label) && lw->label.label_type == XmSTRING) {
        draw_etched(label, event, region);
        return;
    }
    if (is_armed_push_button(label)) {
        XRectangle text = lw->label.TextRect;
        lw->label.TextRect.x += 1;
        lw->label.TextRect.y += 1;
        XwkLabelExposeClassOriginalProc(label, event, region);
        lw->label.TextRect = text;
        return;
    }
    XwkLabelExposeClassOriginalProc(label, event, region);
}
