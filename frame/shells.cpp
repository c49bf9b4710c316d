// Shell lookup, window manager protocols, placement and waiting for the
// server to show or hide a window.
#include <Xwk/Frame.h>

#include <Xm/XmP.h>
#include <Xm/DialogS.h>
#include <Xm/Protocols.h>
#include <X11/Shell.h>
#include <X11/ShellP.h>

#include <poll.h>
#include <stdio.h>
#include <time.h>

#include "frame/XmPrivate.h"

namespace {

Widget walk_to_shell(Widget w, WidgetClass wc)
{
    if (!w) {
        char message[128];
        snprintf(message, sizeof message, "Warning: Can't find %s widget from null reference\n",
                 wc->core_class.class_name);
        XtWarning(message);
        return nullptr;
    }
    for (;;) {
        if (XtIsSubclass(w, wc))
            return w;
        Widget parent = XtParent(w);
        // Without a match the top of the tree is the answer, not null.
        if (!parent)
            return w;
        w = parent;
    }
}

Atom delete_window_atom(Widget shell)
{
    static Atom atom;
    if (!atom)
        atom = XmInternAtom(XtDisplay(shell), (char *)"WM_DELETE_WINDOW", False);
    return atom;
}

Atom protocols_atom(Widget shell)
{
    return XmInternAtom(XtDisplay(shell), (char *)"WM_PROTOCOLS", False);
}

bool is_viewable(Widget w, bool *known)
{
    XWindowAttributes a;
    *known = XGetWindowAttributes(XtDisplay(w), XtWindow(w), &a) != 0;
    return *known && a.map_state == IsViewable;
}

// Xt never marks a shell managed: a pop-up shell counts as managed once it
// is popped up, a root shell once it is realized.
bool is_managed(Widget w)
{
    if (!XtIsShell(w))
        return XtIsManaged(w);
    if (!XtParent(w))
        return XtIsRealized(w);
    return ((ShellWidget)w)->shell.popped_up;
}

bool mapped_when_managed(Widget w)
{
    Boolean mapped = False;
    XtVaGetValues(w, XtNmappedWhenManaged, &mapped, NULL);
    return mapped;
}

// How long ForceUpdate and ForceDestroy wait for a window manager: one that
// never maps or unmaps must not hang the application.
constexpr long kWindowManagerWaitMs = 3000;

long now_ms()
{
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec * 1000L + ts.tv_nsec / 1000000L;
}

// A reparenting window manager maps a top-level window only once it has
// handled the map request, which it cannot do while this client holds the
// server.  The wait grabs the server only when no manager redirects the
// root's children.
bool manager_redirects(Widget shell)
{
    XWindowAttributes a;
    return XGetWindowAttributes(XtDisplay(shell), RootWindowOfScreen(XtScreen(shell)), &a) &&
           (a.all_event_masks & SubstructureRedirectMask);
}

// Handles one event, timer or input as the main loop does, or waits a
// little for one; never blocks past the deadline.  False once it has passed.
bool process_events_until(XtAppContext app, Display *dpy, long deadline)
{
    long left = deadline - now_ms();
    if (left <= 0)
        return false;
    XtInputMask mask = XtAppPending(app);
    if (mask & XtIMXEvent) {
        XwkAppProcessEvents(app);
        return true;
    }
    if (mask) {
        XtAppProcessEvent(app, mask);
        return true;
    }
    XFlush(dpy);
    pollfd p = {ConnectionNumber(dpy), POLLIN, 0};
    poll(&p, 1, left < 10 ? (int)left : 10);
    return true;
}

bool shells_for(Widget w, Widget *shell, Widget *top)
{
    if (!w || !XtIsWidget(w) || !XtIsManaged(w))
        return false;
    *shell = XwkGetShell(w);
    if (!*shell)
        return false;
    *top = XwkGetTopLevelShell(*shell);
    return *top != nullptr;
}

void set_class_values(Widget w, WidgetClass *classes, Cardinal nclasses, ArgList args,
                      Cardinal nargs)
{
    // Gadgets have no pop-up list: their record ends before those fields.
    for (Cardinal i = 0; XtIsWidget(w) && i < w->core.num_popups; i++)
        set_class_values(w->core.popup_list[i], classes, nclasses, args, nargs);
    if (XtIsComposite(w)) {
        CompositeWidget c = (CompositeWidget)w;
        for (Cardinal i = 0; i < c->composite.num_children; i++)
            set_class_values(c->composite.children[i], classes, nclasses, args, nargs);
    }
    for (Cardinal i = 0; i < nclasses; i++)
        if (XtClass(w) == classes[i])
            XtSetValues(w, args, nargs);
}

}  // namespace

Widget XwkGetShell(Widget w) { return walk_to_shell(w, shellWidgetClass); }
Widget XwkGetWMShell(Widget w) { return walk_to_shell(w, wmShellWidgetClass); }
Widget XwkGetVendorShell(Widget w) { return walk_to_shell(w, vendorShellWidgetClass); }
Widget XwkGetDialogShell(Widget w) { return walk_to_shell(w, xmDialogShellWidgetClass); }
Widget XwkGetTopLevelShell(Widget w) { return walk_to_shell(w, topLevelShellWidgetClass); }
Widget XwkGetAppShell(Widget w) { return walk_to_shell(w, applicationShellWidgetClass); }

void XwkAddDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure)
{
    if (!shell)
        return;
    XmAddProtocolCallback(shell, protocols_atom(shell), delete_window_atom(shell), proc, closure);
}

void XwkRemoveDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure)
{
    if (!shell)
        return;
    XmRemoveProtocolCallback(shell, protocols_atom(shell), delete_window_atom(shell), proc,
                             closure);
}

void XwkSetTransientFor(Widget parent, Widget child)
{
    if (!parent || !child || !XwkGetWMShell(parent) || !XwkGetWMShell(child))
        return;
    Widget current = nullptr;
    XtVaGetValues(child, XtNtransientFor, &current, NULL);
    if (current == parent)
        return;
    Position px = parent->core.x, py = parent->core.y;
    XwkGetWMCoords(parent, &px, &py);
    int x = px, y = py;
    unsigned pw = parent->core.width, ph = parent->core.height;
    unsigned cw = child->core.width, ch = child->core.height;
    x += pw > cw ? (int)((pw - cw) / 2) : -(int)((cw - pw) / 2);
    y += ph > ch ? (int)((ph - ch) / 2) : -(int)((ch - ph) / 2);
    XtVaSetValues(child, XtNx, (Position)(x < 0 ? 0 : x), XtNy, (Position)(y < 0 ? 0 : y),
                  XtNtransientFor, parent, NULL);
}

void XwkSetWidgetClassValues(Widget root, WidgetClass *classes, Cardinal nclasses, ArgList args,
                             Cardinal nargs)
{
    if (!root || !classes)
        return;
    set_class_values(root, classes, nclasses, args, nargs);
}

void ForceUpdate(Widget w)
{
    Widget shell, top;
    if (!shells_for(w, &shell, &top))
        return;
    if (is_managed(shell) && XtIsRealized(shell) && mapped_when_managed(shell) &&
        is_managed(top) && XtIsRealized(top) && mapped_when_managed(top)) {
        Display *dpy = XtDisplay(shell);
        XtAppContext app = XtWidgetToApplicationContext(shell);
        bool grab = !manager_redirects(shell);
        if (grab)
            XGrabServer(dpy);
        long deadline = now_ms() + kWindowManagerWaitMs;
        for (;;) {
            bool known;
            if (is_viewable(shell, &known) || !known)
                break;
            if (!is_viewable(top, &known) && known)
                break;
            if (!process_events_until(app, dpy, deadline))
                break;
        }
        if (grab)
            XUngrabServer(dpy);
        XFlush(dpy);
    }
    XmUpdateDisplay(top);
}

void ForceDestroy(Widget w)
{
    Widget shell, top;
    if (!shells_for(w, &shell, &top))
        return;
    if (is_managed(shell) && XtIsRealized(shell) && is_managed(top) && XtIsRealized(top)) {
        Display *dpy = XtDisplay(shell);
        XtAppContext app = XtWidgetToApplicationContext(shell);
        long deadline = now_ms() + kWindowManagerWaitMs;
        for (;;) {
            bool known;
            if (!is_viewable(shell, &known) || !known)
                break;
            if (is_viewable(top, &known))
                break;
            if (!process_events_until(app, dpy, deadline))
                break;
        }
    }
    XmUpdateDisplay(top);
}

void XwkBell(Widget w)
{
    if (!w)
        return;
    if (_XmGetAudibleWarning(w) == XmBELL)
        XBell(XtDisplay(w), 0);
}
