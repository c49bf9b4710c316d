// The event path: tip filter, raw event filters, then Xt dispatch.
#include <Xwk/Frame.h>

#include <X11/StringDefs.h>

#include <stdint.h>
#include <string.h>

#include <vector>

namespace {

XwkEventHandlerRec *handlers;

// While a walk runs (handlers may start modal loops, so walks nest), removed
// records are unlinked and disarmed but freed only when the outermost walk
// ends: the walk may still hold a pointer to any of them.
int walk_depth;
std::vector<XwkEventHandlerRec *> removed_during_walk;


bool same(const XwkEventHandlerRec *r, Widget widget, unsigned int value, int type, int offset,
          XwkEventHandlerProc proc, XtPointer closure)
{
    return r->widget == widget && r->value == value && r->type == type && r->offset == offset &&
           r->proc == proc && r->closure == closure;
}

XwkEventHandlerRec *find_handler(Widget widget, unsigned int value, int type, int offset,
                                 XwkEventHandlerProc proc, XtPointer closure)
{
    for (XwkEventHandlerRec *r = handlers; r; r = r->next)
        if (same(r, widget, value, type, offset, proc, closure))
            return r;
    return nullptr;
}

void remove_on_destroy(Widget, XtPointer client_data, XtPointer)
{
    XwkEventHandlerRec *k = (XwkEventHandlerRec *)client_data;
    XwkRemoveEventHandler(k->widget, k->value, k->type, k->offset, k->proc, k->closure);
    XtFree((char *)k);
}

bool word_matches(const XEvent *event, int offset, unsigned int value)
{
    if (offset < 0 || (size_t)offset + sizeof(uint32_t) > sizeof(XEvent))
        return false;
    uint32_t word;
    memcpy(&word, (const char *)event + offset, sizeof word);
    return word == value;
}

}  // namespace

XwkEventHandlerRec *XwkAddEventHandler(Widget widget, unsigned int value, int type, int offset,
                                       XwkEventHandlerProc proc, XtPointer closure)
{
    if (!widget || !XtIsWidget(widget))
        return nullptr;
    if (XwkEventHandlerRec *r = find_handler(widget, value, type, offset, proc, closure))
        return r;
    XwkEventHandlerRec *r = (XwkEventHandlerRec *)XtMalloc(sizeof *r);
    *r = {widget, value, type, offset, proc, closure, handlers};
    handlers = r;
    // The destroy callback keeps its own copy of the six values: the record
    // may be removed by hand long before the widget dies.
    XwkEventHandlerRec *k = (XwkEventHandlerRec *)XtMalloc(sizeof *k);
    *k = *r;
    k->next = nullptr;
    XtAddCallback(widget, XtNdestroyCallback, remove_on_destroy, k);
    return r;
}

void XwkRemoveEventHandler(Widget widget, unsigned int value, int type, int offset,
                           XwkEventHandlerProc proc, XtPointer closure)
{
    for (XwkEventHandlerRec **link = &handlers; *link; link = &(*link)->next) {
        XwkEventHandlerRec *r = *link;
        if (!same(r, widget, value, type, offset, proc, closure))
            continue;
        *link = r->next;
        if (walk_depth > 0) {
            r->proc = nullptr;
            removed_during_walk.push_back(r);
            return;
        }
        XtFree((char *)r);
        return;
    }
}

void XwkRunEventHandler(XEvent *event)
{
    if (!event)
        return;
    walk_depth++;
    XwkEventHandlerRec *next;
    for (XwkEventHandlerRec *r = handlers; r; r = next) {
        next = r->next;
        if (r->proc && event->type == r->type && word_matches(event, r->offset, r->value))
            r->proc(r->widget, r->closure, event);
    }
    if (--walk_depth > 0)
        return;
    for (XwkEventHandlerRec *r : removed_during_walk)
        XtFree((char *)r);
    removed_during_walk.clear();
}

void XwkAppProcessEvents(XtAppContext app)
{
    XEvent event;
    XtAppNextEvent(app, &event);
    XwkProcessEventsForTipLabel(&event);
    XwkRunEventHandler(&event);
    XtDispatchEvent(&event);
}

void XwkAppMainLoop(XtAppContext app)
{
    for (;;) {
        if (XwkAppExitFlag)
            return;
        if (XtAppGetExitFlag(app))
            return;
        XwkAppProcessEvents(app);
    }
}
