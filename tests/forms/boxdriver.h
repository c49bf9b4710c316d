// Drives a message box that runs its own modal loop: a timer, set before
// the box is asked for, waits until the box stands and then acts as the
// user would.  The timer runs inside the box's loop.
#ifndef XWK_TEST_BOXDRIVER_H
#define XWK_TEST_BOXDRIVER_H

#include <Xwk/Xwk.h>

#include <functional>

#include "xwktest.h"

namespace boxdriver {

struct Step {
    std::function<bool()> ready;      // the box is there for the action
    std::function<void()> action;     // the user's input
    bool done = false;
};

inline void tick(XtPointer data, XtIntervalId *)
{
    Step *step = (Step *)data;
    if (step->ready()) {
        step->action();
        step->done = true;
        return;
    }
    XtAppAddTimeOut(xwkApp, 10, tick, step);
}

inline bool box_up()
{
    Widget box = xwkConditWidget;
    if (!box || !XtIsRealized(box))
        return false;
    XWindowAttributes a;
    return XGetWindowAttributes(XtDisplay(box), XtWindow(box), &a) && a.map_state == IsViewable;
}

// Acts once the present box is viewable.
inline void when_up(Step *step, std::function<void()> action)
{
    step->ready = box_up;
    step->action = std::move(action);
    step->done = false;
    XtAppAddTimeOut(xwkApp, 10, tick, step);
}

// The n-th (from 1) button of the present box's action row.
inline Widget button(int n)
{
    Widget box = xwkConditWidget;
    if (!box)
        return nullptr;
    int seen = 0;
    std::function<Widget(Widget)> find = [&](Widget w) -> Widget {
        if (strcmp(XtName(w), "xwkActionAreaButton") == 0 && ++seen == n)
            return w;
        if (!XtIsComposite(w))
            return nullptr;
        WidgetList children = nullptr;
        Cardinal count = 0;
        XtVaGetValues(w, XmNchildren, &children, XmNnumChildren, &count, NULL);
        for (Cardinal i = 0; i < count; i++)
            if (Widget found = find(children[i]))
                return found;
        return nullptr;
    };
    return find(box);
}

}  // namespace boxdriver

#endif
