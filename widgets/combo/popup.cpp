// The list shell: placing and popping it, the pointer and keyboard grabs
// taken once it is up, and giving everything back in one place.
//
// Every grab taken in GrabWorkProc is paired with a release in Popdown, and
// Popdown is the only place that releases them, whichever way the list goes
// (choice, cancel, click outside, destruction).
#include "widgets/combo/combo.h"

#include <Xm/XmP.h>
#include <Xm/DisplayP.h>
#include <Xm/ScreenP.h>
#include <Xm/List.h>
#include <Xm/ScrollBar.h>

#include <algorithm>

namespace xwk::combo {

namespace {

const EventMask kShellMask = KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask;
const unsigned kShellPointerMask = ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask;
const unsigned kScrollBarPointerMask = ButtonPressMask | ButtonReleaseMask | EnterWindowMask |
                                       LeaveWindowMask | PointerMotionMask | ButtonMotionMask;

XmDisplay MotifDisplay(Widget w) { return (XmDisplay)XmGetXmDisplay(XtDisplay(w)); }

bool Replays(Widget w)
{
    XmScreen screen = (XmScreen)XmGetXmScreen(XtScreen(w));
    return screen && screen->screen.unpostBehavior == XmUNPOST_AND_REPLAY;
}

bool IsWithin(Widget w, Widget ancestor)
{
    for (; w; w = XtParent(w))
        if (w == ancestor)
            return true;
    return false;
}

void ScrollBars(Widget w, Widget *vertical, Widget *horizontal)
{
    *vertical = *horizontal = nullptr;
    if (Part(w).list)
        XtVaGetValues(XtParent(Part(w).list), XmNverticalScrollBar, vertical, XmNhorizontalScrollBar,
                      horizontal, NULL);
}

bool IsScrollBarOf(Widget w, Widget target)
{
    Widget v, h;
    ScrollBars(w, &v, &h);
    return target && (target == v || target == h);
}

void TakePointer(Widget w, Time t)
{
    XtGrabPointer(Part(w).shell, True, kShellPointerMask, GrabModeAsync, GrabModeAsync, None,
                  XmGetMenuCursor(XtDisplay(w)), t);
}

void ShellHandler(Widget shell, XtPointer closure, XEvent *event, Boolean *dispatch)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    Widget target = XtWindowToWidget(event->xany.display, event->xany.window);
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
        // Keys reach the list wherever the pointer is.
        if (target != p.list && (!p.text || target != p.text) && XtIsRealized(p.list)) {
            event->xkey.send_event = True;
            event->xkey.window = XtWindow(p.list);
            XtDispatchEvent(event);
            *dispatch = False;
        }
        return;
    case ButtonPress:
        if (event->xbutton.button > Button3)
            return;
        if (target && IsWithin(target, p.list)) {
            p.flags |= XwkCB_LIST_PRESS;
            *dispatch = False;
            return;
        }
        if (IsScrollBarOf(w, target)) {
            p.flags |= XwkCB_SCROLLBAR_PRESS;
            *dispatch = False;
            return;
        }
        *dispatch = False;
        Popdown(w);
        // The press that closed the list belongs to what was clicked; a
        // press on the combo box itself only closes the list.
        if (Replays(w) && target && target != shell && !IsWithin(target, w))
            XPutBackEvent(XtDisplay(w), event);
        return;
    case ButtonRelease: {
        if (event->xbutton.button > Button3)
            return;
        p.flags &= ~XwkCB_LIST_PRESS;
        Time multi = XtGetMultiClickTime(XtDisplay(w));
        if (p.popupTime != (Time)-1 && event->xbutton.time - p.popupTime < multi) {
            p.flags &= ~XwkCB_ARROW_PRESSED;
            RedrawArrow(w);
            *dispatch = False;
            return;
        }
        if (p.flags & XwkCB_SCROLLBAR_PRESS) {
            p.flags &= ~XwkCB_SCROLLBAR_PRESS;
            *dispatch = False;
            return;
        }
        if (target && (IsWithin(target, w) || IsScrollBarOf(w, target) || IsWithin(target, p.list))) {
            *dispatch = False;
            return;
        }
        *dispatch = False;
        Popdown(w);
        if (Replays(w) && target && target != shell)
            XPutBackEvent(XtDisplay(w), event);
        return;
    }
    default:
        return;
    }
}

// Tracks presses inside the list for the enter and leave actions.
void ListHandler(Widget, XtPointer closure, XEvent *event, Boolean *)
{
    XwkComboBoxPart &p = Part((Widget)closure);
    if (!(p.flags & XwkCB_LIST_UP) || event->xbutton.button > Button3)
        return;
    if (event->type == ButtonPress)
        p.flags |= XwkCB_LIST_PRESS;
    else
        p.flags &= ~XwkCB_LIST_PRESS;
}

// While a scroll bar slider is dragged the pointer grab moves to it, then
// back to the shell.
void ScrollBarHandler(Widget sb, XtPointer closure, XEvent *event, Boolean *dispatch)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    if (!(p.flags & XwkCB_LIST_UP))
        return;
    if (event->type == ButtonPress) {
        p.flags |= XwkCB_SCROLLBAR_GRAB;
        XtGrabPointer(sb, False, kScrollBarPointerMask, GrabModeAsync, GrabModeAsync, None,
                      XmGetMenuCursor(XtDisplay(w)), event->xbutton.time);
        return;
    }
    if (p.flags & XwkCB_SCROLLBAR_GRAB) {
        p.flags &= ~XwkCB_SCROLLBAR_GRAB;
        TakePointer(w, event->xbutton.time);
        XAllowEvents(XtDisplay(w), SyncPointer, event->xbutton.time);
        return;
    }
    *dispatch = False;
}

Boolean GrabWorkProc(XtPointer closure)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    p.grabProc = 0;
    Display *dpy = XtDisplay(w);
    XtInsertEventHandler(p.shell, kShellMask, True, ShellHandler, w, XtListHead);
    Time t = XtLastTimestampProcessed(dpy);
    XmDisplay xd = MotifDisplay(w);
    xd->display.userGrabbed = True;
    XmProcessTraversal(p.list, XmTRAVERSE_CURRENT);
    // Button 1 in the list selects; it must not start a drag.
    p.savedTransfer = xd->display.enable_btn1_transfer;
    xd->display.enable_btn1_transfer = 0;
    XtGrabKeyboard(p.list, False, GrabModeAsync, GrabModeAsync, t);
    TakePointer(w, t);
    XAllowEvents(dpy, SyncPointer, t);
    XtAddGrab(p.shell, True, True);
    p.flags |= XwkCB_LIST_UP | XwkCB_LIST_PRESS;
    p.popupTime = t;
    return True;
}

void Show(Widget w, int x, int y, int width, int height)
{
    XwkComboBoxPart &p = Part(w);
    XtConfigureWidget(p.shell, (Position)x, (Position)y, (Dimension)std::max(1, width),
                      (Dimension)std::max(1, height), p.shell->core.border_width);
    XtPopup(p.shell, XtGrabNone);
    p.grabProc = XtAppAddWorkProc(XtWidgetToApplicationContext(w), GrabWorkProc, w);
}

bool Busy(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    return p.grabProc || (p.flags & XwkCB_LIST_UP) || !p.shell || p.shell->core.being_destroyed;
}

}  // namespace

bool ShellIsUp(Widget w)
{
    Widget shell = Part(w).shell;
    return shell && ((ShellWidget)shell)->shell.popped_up;
}

void AddScrollBarHandlers(Widget w)
{
    if (Part(w).comboBoxType == XwkCOMBO_BOX)
        return;
    Widget v, h;
    ScrollBars(w, &v, &h);
    for (Widget sb : {v, h})
        if (sb)
            XtInsertEventHandler(sb, ButtonPressMask | ButtonReleaseMask, False, ScrollBarHandler, w,
                                 XtListHead);
    XtAddEventHandler(Part(w).list, ButtonPressMask | ButtonReleaseMask, False, ListHandler, w);
}

void CancelPendingGrab(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (p.grabProc)
        XtRemoveWorkProc(p.grabProc);
    p.grabProc = 0;
}

void PopupFromArrow(Widget w, XEvent *event)
{
    XwkComboBoxPart &p = Part(w);
    if (Busy(w))
        return;
    if (p.text)
        XmProcessTraversal(p.text, XmTRAVERSE_CURRENT);
    if (p.itemCount > 0) {
        int pos = p.selectedPosition > 0 && p.selectedPosition <= p.itemCount ? p.selectedPosition : 1;
        int top = 1, visible = 1;
        XtVaGetValues(p.list, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, NULL);
        if (p.savedTop == 0 && p.itemCount - pos > visible)
            XmListSetPos(p.list, pos);
        XtVaGetValues(p.list, XmNtopItemPosition, &top, NULL);
        if (pos < top)
            XmListSetPos(p.list, pos);
        else if (pos >= top + visible)
            XmListSetBottomPos(p.list, p.itemCount - pos < visible ? p.itemCount : pos);
        XmListSelectPos(p.list, pos, False);
    }
    Dimension hl = p.highlightThickness;
    Position rx, ry;
    XtTranslateCoords(w, (Position)hl, (Position)(w->core.height - hl), &rx, &ry);
    int width = (int)w->core.width - 2 * hl;
    int height = p.shell->core.height;
    Screen *screen = XtScreen(w);
    if (rx + width > WidthOfScreen(screen))
        width = WidthOfScreen(screen) - rx;
    int y = ry;
    if (y + height > HeightOfScreen(screen))
        y = std::max(0, y - (int)w->core.height - height);
    Show(w, rx, y, width, height);
    if (p.itemCount > 0 && p.arrow)
        XtCallActionProc(p.arrow, "Disarm", event, nullptr, 0);
    p.flags |= XwkCB_ARROW_PRESSED;
    RedrawArrow(w);
}

void PopupAt(Widget w, Position x, Position y)
{
    if (Busy(w))
        return;
    XwkComboBoxPart &p = Part(w);
    Position rx, ry;
    XtTranslateCoords(w, x, y, &rx, &ry);
    Screen *screen = XtScreen(w);
    int width = p.shell->core.width, height = p.shell->core.height;
    int left = std::max(0, std::min((int)rx, WidthOfScreen(screen) - width));
    int top = std::max(0, std::min((int)ry, HeightOfScreen(screen) - height));
    Show(w, left, top, width, height);
}

void Popdown(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    Display *dpy = XtDisplay(w);
    XmDisplay xd = MotifDisplay(w);
    if (xd)
        xd->display.userGrabbed = False;
    if (p.grabProc) {
        // Popped but the grabs were never taken: only the shell goes.
        CancelPendingGrab(w);
        if (p.shell && !p.shell->core.being_destroyed)
            XtPopdown(p.shell);
    }
    if (!(p.flags & XwkCB_LIST_UP))
        return;
    XtRemoveEventHandler(p.shell, kShellMask, True, ShellHandler, w);
    if (xd)
        xd->display.enable_btn1_transfer = p.savedTransfer;
    Time t = XtLastTimestampProcessed(dpy);
    XEvent cancel = {};
    cancel.type = KeyPress;
    cancel.xkey.display = dpy;
    cancel.xkey.window = XtWindow(p.list);
    cancel.xkey.time = t;
    XtCallActionProc(p.list, "ListKbdCancel", &cancel, nullptr, 0);
    p.flags &= ~(XwkCB_SCROLLBAR_PRESS | XwkCB_LIST_UP | XwkCB_LIST_PRESS | XwkCB_SCROLLBAR_GRAB);
    p.popupTime = (Time)-1;
    XtVaGetValues(p.list, XmNtopItemPosition, &p.savedTop, NULL);
    if (Replays(w))
        XAllowEvents(dpy, ReplayPointer, t);
    // Given back at the current time: a release stamped earlier than the
    // grab would be ignored by the server.
    XtUngrabPointer(p.shell, CurrentTime);
    XtUngrabKeyboard(p.list, CurrentTime);
    // A shell being destroyed has its Xt grab and popup state cleared by
    // the toolkit's own destroy callbacks.
    if (!p.shell->core.being_destroyed) {
        XtRemoveGrab(p.shell);
        XtPopdown(p.shell);
    }
    XSync(dpy, False);
    if (p.text && !p.text->core.being_destroyed)
        XmProcessTraversal(p.text, XmTRAVERSE_CURRENT);
    if (p.arrow) {
        p.flags &= ~XwkCB_ARROW_PRESSED;
        RedrawArrow(w);
    }
}

}  // namespace xwk::combo
