// Window states of shells, and the visibility a child application takes
// from its parent's "_SMELD_VISIBILITY" property.
#include <Xwk/Frame.h>
#include <Xwk/Windows.h>

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <X11/StringDefs.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <stdlib.h>

namespace {

// The remembered state of a shell: what it was before the last hide.
struct WindowStateRecord {
    int state;
};

XContext state_context;

int ReadWMState(Widget shell, Atom wm_state)
{
    if (!shell || !XtIsRealized(shell))
        return XWK_WM_NORMAL;
    Atom type = None;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char *data = nullptr;
    int state = XWK_WM_NORMAL;
    if (XGetWindowProperty(XtDisplay(shell), XtWindow(shell), wm_state, 0, 2, False, wm_state,
                           &type, &format, &items, &after, &data) == Success &&
        type == wm_state && format == 32 && items == 2 && data)
        state = (int)((long *)data)[0];
    if (data)
        XFree(data);
    return state;
}

WindowStateRecord *FindRecord(Widget shell)
{
    XPointer data = nullptr;
    if (XFindContext(XtDisplay(shell), XtWindow(shell), state_context, &data) != 0)
        return nullptr;
    return (WindowStateRecord *)data;
}

void ForgetRecord(Widget shell, XtPointer client, XtPointer)
{
    if (XtIsRealized(shell))
        XDeleteContext(XtDisplay(shell), XtWindow(shell), state_context);
    XtFree((char *)client);
}

// A deiconified shell takes its pop-ups along.
void FollowWMState(Widget shell, XtPointer, XEvent *event, Boolean *)
{
    if (event->type != PropertyNotify || event->xproperty.state != PropertyNewValue)
        return;
    if (event->xproperty.atom != XInternAtom(XtDisplay(shell), "WM_STATE", False))
        return;
    WindowStateRecord *r = FindRecord(shell);
    if (r && r->state == XWK_WM_ICONIC && XwkGetWMState(shell) == XWK_WM_NORMAL)
        SetWMStateForPopupList(shell, XWK_WM_NORMAL);
}

bool EnvWindow(const char *name, unsigned long *value)
{
    const char *s = getenv(name);
    if (!s)
        return false;
    *value = strtoul(s, nullptr, 10);
    return true;
}

}  // namespace

int XwkGetWMState(Widget shell)
{
    static Atom wm_state;
    if (!shell)
        return XWK_WM_NORMAL;
    if (!wm_state)
        wm_state = XInternAtom(XtDisplay(shell), "WM_STATE", False);
    return ReadWMState(shell, wm_state);
}

int XwkGetWindowState(Widget shell)
{
    if (!shell)
        return XWK_WM_NORMAL;
    return ReadWMState(shell, XInternAtom(XtDisplay(shell), "WM_STATE", False));
}

void XwkSetWMState(Widget shell, int state)
{
    if (!shell || !XtIsRealized(shell))
        return;
    Display *dpy = XtDisplay(shell);
    Window win = XtWindow(shell);
    int screen = XScreenNumberOfScreen(XtScreen(shell));
    if (state == XWK_WM_WITHDRAWN) {
        XWithdrawWindow(dpy, win, screen);
    } else if (state == XWK_WM_NORMAL) {
        // A manager reads the initial state when a withdrawn window maps.
        XtVaSetValues(shell, XtNinitialState, NormalState, NULL);
        Position x = 0, y = 0;
        XtVaGetValues(shell, XtNx, &x, XtNy, &y, NULL);
        XSizeHints hints = {};
        hints.flags = USPosition;
        hints.x = x;
        hints.y = y;
        XSetWMNormalHints(dpy, win, &hints);
        XMapWindow(dpy, win);
    } else if (state == XWK_WM_ICONIC) {
        // A manager ignores the request to iconify a withdrawn window: such
        // a window maps as an icon instead.
        XWindowAttributes a;
        if (XGetWindowAttributes(dpy, win, &a) && a.map_state == IsUnmapped &&
            XwkGetWindowState(shell) != XWK_WM_ICONIC) {
            XtVaSetValues(shell, XtNinitialState, IconicState, NULL);
            XMapWindow(dpy, win);
        } else {
            XIconifyWindow(dpy, win, screen);
        }
    }
    XFlush(dpy);
}

void XwkSetWindowVisibility(Widget shell, int state)
{
    if (!shell || !XtIsRealized(shell))
        return;
    if (!state_context)
        state_context = XUniqueContext();
    WindowStateRecord *r = FindRecord(shell);
    int previous;
    if (r) {
        previous = XwkGetWindowState(shell);
    } else {
        r = (WindowStateRecord *)XtMalloc(sizeof *r);
        r->state = previous = XwkGetWMState(shell);
        XSaveContext(XtDisplay(shell), XtWindow(shell), state_context, (XPointer)r);
        XtAddCallback(shell, XtNdestroyCallback, ForgetRecord, r);
        XtAddEventHandler(shell, PropertyChangeMask, False, FollowWMState, nullptr);
    }
    // Shown again after a hide that found it iconic: it stays an icon.
    if (state == XWK_WM_NORMAL && r->state == XWK_WM_ICONIC) {
        SetWMStateForPopupList(shell, XWK_WM_WITHDRAWN);
        XwkSetWMState(shell, XWK_WM_ICONIC);
        return;
    }
    if (state == XWK_WM_WITHDRAWN || state == XWK_WM_ICONIC) {
        SetWMStateForPopupList(shell, XWK_WM_WITHDRAWN);
        XwkSetWMState(shell, state);
    } else {
        XwkSetWMState(shell, state);
        if (state == XWK_WM_NORMAL)
            SetWMStateForPopupList(shell, XWK_WM_NORMAL);
    }
    if (previous != XWK_WM_WITHDRAWN) {
        r->state = previous;
        XSaveContext(XtDisplay(shell), XtWindow(shell), state_context, (XPointer)r);
    }
}

void SetWMStateForPopupList(Widget shell, int state)
{
    if (!shell)
        return;
    for (Cardinal i = 0; i < shell->core.num_popups; i++) {
        Widget popup = shell->core.popup_list[i];
        if (!XtIsShell(popup) || !XtIsRealized(popup))
            continue;
        CompositeWidget c = (CompositeWidget)popup;
        if (c->composite.num_children == 0 || !XtIsManaged(c->composite.children[0]))
            continue;
        XwkSetWindowVisibility(popup, state);
    }
}

void XwkProcessWindowVisibility(Widget w, XEvent *event)
{
    if (!w || w->core.being_destroyed || !event || event->type != PropertyNotify)
        return;
    Display *dpy = XtDisplay(w);
    Window root = RootWindowOfScreen(XtScreen(w));
    Atom atom = XInternAtom(dpy, "_SMELD_VISIBILITY", False);
    if (event->xproperty.window != root || event->xproperty.atom != atom)
        return;
    Widget shell = XwkGetWMShell(w);
    unsigned long env_root = 0, parent = 0;
    if (!shell || !EnvWindow("_SMELD_ROOT_WINDOW", &env_root) || env_root != root ||
        !EnvWindow("_SMELD_PARENT_WINDOW", &parent))
        return;
    Atom type = None;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char *data = nullptr;
    if (XGetWindowProperty(dpy, root, atom, 0, 100000, False, AnyPropertyType, &type, &format,
                           &items, &after, &data) != Success)
        return;
    bool ours = type == atom && format == 32 && items == 2 && data &&
                (unsigned long)((long *)data)[0] == parent;
    int state = ours ? (int)((long *)data)[1] : 0;
    if (data)
        XFree(data);
    if (ours)
        XwkSetWindowVisibility(shell, state);
}
