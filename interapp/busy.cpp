// The busy indication: the "_XWK_BUSY" selection passes a wait cursor from
// one application of the family to the next.
#include <Xwk/Frame.h>
#include <Xwk/Windows.h>

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>
#include <X11/cursorfont.h>

char *xwkBusyAtomName = (char *)"_XWK_BUSY";
Cursor xwkWaitCursor;

namespace {

// A timer that ends the busy state, with the shell whose destroy cancels it.
struct BusyTimer {
    Widget shell;
    XtIntervalId id;
};

Atom BusyAtom(Widget w)
{
    return XInternAtom(XtDisplay(w), xwkBusyAtomName, False);
}

void ShowIdle(Widget shell)
{
    if (XtIsRealized(shell))
        XUndefineCursor(XtDisplay(shell), XtWindow(shell));
}

void LoseBusy(Widget shell, Atom *selection)
{
    if (*selection == BusyAtom(shell))
        ShowIdle(shell);
}

// Nobody asks the busy selection for data: ownership is the message.
Boolean ConvertNothing(Widget, Atom *, Atom *, Atom *, XtPointer *, unsigned long *, int *)
{
    return False;
}

Boolean OwnBusy(Widget shell)
{
    return XtOwnSelection(shell, BusyAtom(shell), CurrentTime, ConvertNothing, LoseBusy,
                          nullptr);
}

void CancelTimer(Widget, XtPointer client, XtPointer)
{
    BusyTimer *t = (BusyTimer *)client;
    XtRemoveTimeOut(t->id);
    XtFree((char *)t);
}

void BusyExpired(XtPointer client, XtIntervalId *)
{
    BusyTimer *t = (BusyTimer *)client;
    XtRemoveCallback(t->shell, XtNdestroyCallback, CancelTimer, t);
    OwnBusy(t->shell);
    ShowIdle(t->shell);
    XtFree((char *)t);
}

}  // namespace

void XwkSetBusyStatus(Widget w, Boolean busy)
{
    if (!w || w->core.being_destroyed)
        return;
    Widget shell = XwkGetWMShell(w);
    if (!shell)
        return;
    Boolean won = OwnBusy(shell);
    if (!busy) {
        ShowIdle(shell);
        return;
    }
    if (!won)
        return;
    if (XtIsRealized(shell)) {
        if (!xwkWaitCursor)
            xwkWaitCursor = XCreateFontCursor(XtDisplay(shell), XC_watch);
        XDefineCursor(XtDisplay(shell), XtWindow(shell), xwkWaitCursor);
        XSync(XtDisplay(shell), False);
    }
    BusyTimer *t = (BusyTimer *)XtMalloc(sizeof *t);
    t->shell = shell;
    t->id = XtAppAddTimeOut(XtWidgetToApplicationContext(shell), 3000, BusyExpired, t);
    XtAddCallback(shell, XtNdestroyCallback, CancelTimer, t);
}
