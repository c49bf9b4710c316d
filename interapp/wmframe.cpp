// Where the window manager put a shell: the position of its frame, the
// window just below the root.
#include <Xwk/Frame.h>

#include <X11/IntrinsicP.h>

#include "frame/xerrors.h"

namespace {

Window frame_window(Display *dpy, Window w)
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

}  // namespace

void XwkGetWMCoords(Widget shell, Position *x, Position *y)
{
    if (!shell || !XtIsRealized(shell))
        return;
    Display *dpy = XtDisplay(shell);
    XSync(dpy, False);
    Window frame = frame_window(dpy, XtWindow(shell));
    XWindowAttributes a;
    if (!frame || !XGetWindowAttributes(dpy, frame, &a))
        return;
    if (x)
        *x = (Position)a.x;
    if (y)
        *y = (Position)a.y;
}
