// Application callbacks of tool bar buttons and menu entries run from a
// timer of zero length, once Motif's menu handling is over and its grabs
// are gone.  The server stays grabbed until then, so that nothing happens
// in between.
#include "bars.h"

namespace {

struct Pending {
    Display *display;
    Widget entry;  // null once the entry is destroyed
    Widget label;  // message label of the entry's window; null once destroyed
    Widget call_widget;
    XtCallbackProc proc;
    XtPointer closure;
    int reason;
    bool has_event;
    XEvent event;  // the activating event, copied: Motif's is gone by then
    int click_count;
    void (*after)(Widget entry, Widget label);
};

// Laid out as XmPushButtonCallbackStruct and XmToggleButtonCallbackStruct.
struct CallData {
    int reason;
    XEvent *event;
    int click_count;
};

void entry_destroyed(Widget, XtPointer closure, XtPointer)
{
    ((Pending *)closure)->entry = nullptr;
}

void label_destroyed(Widget, XtPointer closure, XtPointer)
{
    ((Pending *)closure)->label = nullptr;
}

bool alive(Widget w)
{
    return w && !w->core.being_destroyed;
}

void run_pending(XtPointer closure, XtIntervalId *)
{
    Pending *p = (Pending *)closure;
    XUngrabServer(p->display);
    XSync(p->display, False);
    if (p->entry && p->proc) {
        CallData data = {p->reason, p->has_event ? &p->event : nullptr, p->click_count};
        p->proc(p->call_widget ? p->call_widget : p->entry, p->closure, &data);
    }
    if (p->entry)
        XtRemoveCallback(p->entry, XtNdestroyCallback, entry_destroyed, p);
    if (p->label)
        XtRemoveCallback(p->label, XtNdestroyCallback, label_destroyed, p);
    if (p->after)
        p->after(alive(p->entry) ? p->entry : nullptr, alive(p->label) ? p->label : nullptr);
    delete p;
}

}  // namespace

void xwk_call_later(Widget entry, Widget call_widget, XtCallbackProc proc, XtPointer closure,
                    const XmAnyCallbackStruct *call, int click_count, Widget label,
                    void (*after)(Widget entry, Widget label))
{
    Display *dpy = XtDisplayOfObject(entry);
    XGrabServer(dpy);
    XSync(dpy, False);
    Pending *p = new Pending{dpy, entry, label, call_widget, proc, closure, call ? call->reason : 0,
                             call && call->event, {}, click_count, after};
    if (p->has_event)
        p->event = *call->event;
    XtAddCallback(entry, XtNdestroyCallback, entry_destroyed, p);
    if (label)
        XtAddCallback(label, XtNdestroyCallback, label_destroyed, p);
    XtAppAddTimeOut(XtWidgetToApplicationContext(entry), 0, run_pending, p);
}
