// Where the window manager put a shell: its frame, the window just below
// the root, and the screen's bounds.
#include <Xwk/Frame.h>
#include <Xwk/Windows.h>

#include <Xm/VendorSEP.h>
#include <Xm/VendorS.h>
#include <X11/IntrinsicP.h>

#include "frame/XmPrivate.h"
#include "frame/xerrors.h"

Window XwkGetWMWindow(Display *dpy, Window w)
{
    XErrorHandler old = XSetErrorHandler(XwkIgnoreXError);
    XGrabServer(dpy);
    Window result = 0;
    for (;;) {
        Window root, parent, *children = nullptr;
        unsigned n = 0;
        if (!XQueryTree(dpy, w, &root, &parent, &children, &n))
            break;
        if (children)
            XFree(children);
        if (parent == root) {
            result = w;
            break;
        }
        w = parent;
    }
    XUngrabServer(dpy);
    XSync(dpy, False);
    XSetErrorHandler(old);
    return result;
}

namespace {

// Under a Motif window manager a shell the manager has not placed yet, or
// whose frame offsets Motif has not learned, keeps the position it asked
// for.
bool FramePlaced(Widget shell)
{
    if (!XmIsMotifWMRunning(shell))
        return true;
    XmWidgetExtData ext = _XmGetWidgetExtData(shell, XmSHELL_EXTENSION);
    if (!ext || !ext->widget)
        return true;
    XmVendorShellExtObject ve = (XmVendorShellExtObject)ext->widget;
    if (ve->vendor.lastMapRequest == 0)
        return false;
    return ve->vendor.xOffset >= 1 || ve->vendor.yOffset >= 1;
}

}  // namespace

void XwkGetWMCoords(Widget shell, Position *x, Position *y)
{
    if (!shell || !XtIsRealized(shell) || !FramePlaced(shell))
        return;
    Display *dpy = XtDisplay(shell);
    XSync(dpy, False);
    Window frame = XwkGetWMWindow(dpy, XtWindow(shell));
    XWindowAttributes a;
    if (!frame || !XGetWindowAttributes(dpy, frame, &a))
        return;
    if (x)
        *x = (Position)a.x;
    if (y)
        *y = (Position)a.y;
}

void XwkBoundCoords(Widget w, Position *x, Position *y, Dimension *width, Dimension *height)
{
    if (!w)
        return;
    Screen *s = XtScreen(w);
    int sw = WidthOfScreen(s), sh = HeightOfScreen(s);
    if (x && *x < 0)
        *x = 0;
    else if (x && *x > sw)
        *x = (Position)sw;
    if (y && *y < 0)
        *y = 0;
    else if (y && *y > sh)
        *y = (Position)sh;
    if (width && *width > sw)
        *width = (Dimension)sw;
    if (height && *height > sh)
        *height = (Dimension)sh;
}
