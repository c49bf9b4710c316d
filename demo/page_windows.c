/* The family's windows: the gallery publishes its windows in the session's
 * windows info property, and lists every window of the session (its own and
 * those of any other application of the family on this display) in a menu
 * and in a tree list.  "Busy" shows the wait cursor for three seconds. */
#include <Xwk/Xwk.h>
#include <Xm/CascadeB.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <stddef.h>
#include <string.h>
#include <unistd.h>

#include "pages.h"

/* The gallery owns the session: its process id is the key. */
static int session_key(void)
{
    return (int)getpid();
}

static Widget windows_cascade, windows_tree;

static void property_changed(Widget w, XtPointer closure, XEvent *event)
{
    (void)w;
    (void)closure;
    if (windows_cascade)
        XwkProcessWindowsInfo(windows_cascade, session_key(), event);
    if (windows_tree)
        XwkProcessWindowsInfo(windows_tree, session_key(), event);
}

static void publish_shell(Widget shell)
{
    char *title = NULL;
    XtVaGetValues(shell, XmNtitle, &title, NULL);
    XwkAddWindowProperty(shell, session_key(), title ? title : "Xwk demo", XtWindow(shell),
                         shell == xwkTopLevel ? 0 : XtWindow(xwkTopLevel));
}

/* The shells are realized after the page is built: publish them then. */
static void publish_when_realized(XtPointer client_data, XtIntervalId *id)
{
    Widget shell = (Widget)client_data;
    (void)id;
    if (!XtIsRealized(shell) || !XtIsRealized(xwkTopLevel)) {
        XtAppAddTimeOut(xwkApp, 200, publish_when_realized, shell);
        return;
    }
    publish_shell(xwkTopLevel);
    publish_shell(shell);
    /* The first fill does not wait for the server's notice. */
    XEvent event;
    memset(&event, 0, sizeof event);
    event.xproperty.type = PropertyNotify;
    event.xproperty.display = XtDisplay(shell);
    event.xproperty.window = DefaultRootWindow(XtDisplay(shell));
    event.xproperty.atom = XwkGetWindowsInfoAtom(shell, session_key());
    event.xproperty.time = CurrentTime;
    property_changed(shell, NULL, &event);
}

static void page_destroyed(Widget w, XtPointer client_data, XtPointer call_data)
{
    Widget shell = (Widget)client_data;
    (void)w;
    (void)call_data;
    windows_cascade = windows_tree = NULL;
    if (XtIsRealized(shell))
        XwkDeleteWindowProperty(shell, session_key(), XtWindow(shell));
}

static void raise_selected(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)call_data;
    XwkProcessControlPanel((Widget)client_data, XWK_PANEL_RAISE);
}

static void show_busy(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)client_data;
    (void)call_data;
    XwkSetBusyStatus(w, True);
}

static Widget add_button(Widget parent, const char *label, Widget left, XtCallbackProc proc,
                         XtPointer client_data)
{
    XmString s = XmStringCreateLocalized((char *)label);
    Widget b = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, parent,
                                       XmNlabelString, s,
                                       XmNbottomAttachment, XmATTACH_FORM,
                                       XmNleftAttachment, left ? XmATTACH_WIDGET : XmATTACH_FORM,
                                       XmNleftWidget, left, XmNleftOffset, XwkWidth(0.3f), NULL);
    XmStringFree(s);
    XtAddCallback(b, XmNactivateCallback, proc, client_data);
    return b;
}

Widget demo_page_windows(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("windows", xmFormWidgetClass, parent,
                                          XmNwidth, XwkWidth(12.0f), XmNheight, XwkHeight(9.0f),
                                          NULL);
    Widget bar = XmCreateMenuBar(form, "bar", NULL, 0);
    XtVaSetValues(bar, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_FORM, NULL);
    XmString s = XmStringCreateLocalized("Windows");
    windows_cascade = XtVaCreateManagedWidget("windowsMenu", xmCascadeButtonWidgetClass, bar,
                                              XmNlabelString, s, XmNmnemonic, (KeySym)'W', NULL);
    XmStringFree(s);
    XtManageChild(bar);

    Arg args[1];
    XtSetArg(args[0], XmNcanSlam, True);
    windows_tree = XmCreateScrolledTreeList(form, "family", args, 1);
    Widget raise = add_button(form, "Raise", NULL, raise_selected, windows_tree);
    add_button(form, "Busy", raise, show_busy, NULL);
    XtVaSetValues(XtParent(windows_tree),
                  XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, bar,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, raise,
                  XmNbottomOffset, XwkHeight(0.2f), NULL);
    XtManageChild(windows_tree);

    Display *dpy = XtDisplay(form);
    Window root = DefaultRootWindow(dpy);
    XWindowAttributes a;
    XGetWindowAttributes(dpy, root, &a);
    XSelectInput(dpy, root, a.your_event_mask | PropertyChangeMask);
    XwkAddEventHandler(form, (unsigned)root, PropertyNotify, offsetof(XPropertyEvent, window),
                       property_changed, NULL);
    Widget shell = XwkGetShell(form);
    XtAddCallback(form, XmNdestroyCallback, page_destroyed, shell);
    XtAppAddTimeOut(xwkApp, 0, publish_when_realized, shell);
    return form;
}
