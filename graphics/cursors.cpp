// Cursors made from bitmaps, the invisible cursor, and scroll bar colouring.
#include <Xwk/Graphics.h>

#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>
#include <X11/IntrinsicP.h>
#include <X11/CompositeP.h>

namespace {

Cursor none_cursor;

}  // namespace

Cursor create_solid_cursor(Widget w, char *bits, char *maskBits, unsigned int width, unsigned int height,
                           int hotX, int hotY)
{
    if (!w || !bits || !maskBits || !width || !height)
        return None;
    Display *dpy = XtDisplay(w);
    Screen *screen = XtScreen(w);
    Window root = RootWindowOfScreen(screen);
    Colormap colormap = DefaultColormapOfScreen(screen);
    Pixmap source = XCreateBitmapFromData(dpy, root, bits, width, height);
    Pixmap mask = XCreateBitmapFromData(dpy, root, maskBits, width, height);
    XColor black, white, exact;
    XAllocNamedColor(dpy, colormap, "black", &black, &exact);
    XAllocNamedColor(dpy, colormap, "white", &white, &exact);
    Cursor cursor = XCreatePixmapCursor(dpy, source, mask, &black, &white, (unsigned)hotX, (unsigned)hotY);
    XFreePixmap(dpy, source);
    XFreePixmap(dpy, mask);
    return cursor;
}

void XwkAddSolidCursor(Widget w, WidgetClass widgetClass, Cursor cursor)
{
    if (!w || !cursor || !XtIsComposite(w))
        return;
    CompositeWidget c = (CompositeWidget)w;
    for (Cardinal i = c->composite.num_children; i-- > 0;) {
        Widget child = c->composite.children[i];
        if (XtIsWidget(child) && XtIsRealized(child) && XtIsSubclass(child, widgetClass))
            XDefineCursor(XtDisplay(child), XtWindow(child), cursor);
    }
}

void XwkSetNoneCursor(Widget w)
{
    if (!w || !XtIsRealized(w))
        return;
    Display *dpy = XtDisplay(w);
    if (!none_cursor) {
        Screen *screen = XtScreen(w);
        static char zero = 0;
        Pixmap empty = XCreateBitmapFromData(dpy, RootWindowOfScreen(screen), &zero, 1, 1);
        XColor black = {}, white = {};
        black.pixel = BlackPixelOfScreen(screen);
        white.pixel = WhitePixelOfScreen(screen);
        XQueryColor(dpy, DefaultColormapOfScreen(screen), &black);
        XQueryColor(dpy, DefaultColormapOfScreen(screen), &white);
        none_cursor = XCreatePixmapCursor(dpy, empty, empty, &black, &white, 0, 0);
        XFreePixmap(dpy, empty);
    }
    XDefineCursor(dpy, XtWindow(w), none_cursor);
}

void XwkSetScrollbarColor(Widget scrollBar, Pixel background)
{
    if (!scrollBar || !XmIsScrollBar(scrollBar))
        return;
    Pixel foreground, top, bottom, select;
    XmGetColors(XtScreen(scrollBar), scrollBar->core.colormap, background, &foreground, &top, &bottom,
                &select);
    XtVaSetValues(scrollBar, XmNbackground, background, XmNtroughColor, select, NULL);
}

void XwkResetScrollBarsColor(Widget scrolledWindow)
{
    if (!scrolledWindow || !XmIsScrolledWindow(scrolledWindow))
        return;
    Widget horizontal = nullptr, vertical = nullptr;
    XtVaGetValues(scrolledWindow, XmNhorizontalScrollBar, &horizontal, XmNverticalScrollBar, &vertical, NULL);
    Pixel background = scrolledWindow->core.background_pixel;
    XwkSetScrollbarColor(horizontal, background);
    XwkSetScrollbarColor(vertical, background);
}
