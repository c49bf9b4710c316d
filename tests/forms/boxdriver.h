// Drives a message box that runs its own modal loop: a timer, set before
// the box is asked for, waits until the box stands and then acts as the
// user would.  The timer runs inside the box's loop.
#ifndef XWK_TEST_BOXDRIVER_H
#define XWK_TEST_BOXDRIVER_H

#include "xwktest.h"

namespace boxdriver {

struct Step {
    std::function<bool()> ready;      // the box is there for the action
    std::function<void()> action;     // the user's input
    bool done = false;
    // Input through a window manager's frame can miss while the manager is
    // still settling the frame; when set, the action is repeated if the box
    // still stands this long after it.
    int retry_ms = 0;
    int attempts = 0;
    XtIntervalId timer = 0;
    ~Step()
    {
        if (timer)
            XtRemoveTimeOut(timer);
    }
};

inline void tick(XtPointer data, XtIntervalId *)
{
    Step *step = (Step *)data;
    step->timer = 0;
    if (step->ready()) {
        if (step->attempts > 0)
            fprintf(stderr, "boxdriver: the box still stands, acting again\n");
        step->action();
        step->done = true;
        if (step->retry_ms > 0 && ++step->attempts < 5)
            step->timer = XtAppAddTimeOut(xwkApp, step->retry_ms, tick, step);
        return;
    }
    if (!step->done)
        step->timer = XtAppAddTimeOut(xwkApp, 10, tick, step);
}

inline void start(Step *step)
{
    if (step->timer)
        XtRemoveTimeOut(step->timer);
    step->done = false;
    step->attempts = 0;
    step->timer = XtAppAddTimeOut(xwkApp, 10, tick, step);
}

// Acts once cond holds (the box is up, the input has been handled).
inline void when(Step *step, std::function<bool()> cond, std::function<void()> action)
{
    step->ready = std::move(cond);
    step->action = std::move(action);
    start(step);
}

inline bool box_up()
{
    return xwktest::Viewable(xwkConditWidget);
}

// Acts once the present box is viewable.
inline void when_up(Step *step, std::function<void()> action)
{
    when(step, box_up, std::move(action));
}

// The desk form that opened last (a prompt, a selection dialog), once it
// has its action area and stands on the screen.
inline bool form_up()
{
    Widget form = xwkParentWidget;
    return form && xwktest::FindWidget(form, "xwkActionArea") && xwktest::Viewable(form);
}

// The n-th (from 1) button of that form's action area.
inline Widget action_button(int n)
{
    Widget area = xwktest::FindWidget(xwkParentWidget, "xwkActionArea");
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(area, XmNchildren, &children, XmNnumChildren, &count, NULL);
    return n >= 1 && (Cardinal)n <= count ? children[n - 1] : nullptr;
}

inline void collect(Widget w, const std::function<bool(Widget)> &match, std::vector<Widget> *out)
{
    if (match(w))
        out->push_back(w);
    if (!XtIsComposite(w))
        return;
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(w, XmNchildren, &children, XmNnumChildren, &count, NULL);
    for (Cardinal i = 0; i < count; i++)
        collect(children[i], match, out);
}

inline void collect(Widget w, const char *name, std::vector<Widget> *out)
{
    collect(w, [name](Widget c) { return strcmp(XtName(c), name) == 0; }, out);
}

// The n-th (from 1) button of the present box's action row.
inline Widget button(int n)
{
    std::vector<Widget> buttons;
    if (xwkConditWidget)
        collect(xwkConditWidget, "xwkActionAreaButton", &buttons);
    return n >= 1 && (size_t)n <= buttons.size() ? buttons[n - 1] : nullptr;
}

// Line breaks come back as "\n".
inline std::string label_text(Widget label)
{
    static XmParseTable table;
    if (!table) {
        table = (XmParseTable)XtMalloc(sizeof(XmParseMapping));
        XmString separator = XmStringSeparatorCreate();
        Arg args[3];
        XtSetArg(args[0], XmNincludeStatus, XmINSERT);
        XtSetArg(args[1], XmNsubstitute, separator);
        XtSetArg(args[2], XmNpattern, "\n");
        table[0] = XmParseMappingCreate(args, 3);
        XmStringFree(separator);
    }
    XmString s = xwktest::Get<XmString>(label, XmNlabelString);
    char *plain = (char *)XmStringUnparse(s, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, table, 1,
                                          XmOUTPUT_ALL);
    XmStringFree(s);
    return xwktest::Take(plain);
}

// The text of the present box as its labels show it, one label a line.
inline std::string box_text()
{
    std::vector<Widget> labels;
    collect(xwkConditWidget, "xwkConditLabel", &labels);
    std::string out;
    for (Widget l : labels)
        out += label_text(l) + "|";
    return out;
}

inline std::string box_title()
{
    char *title = xwktest::Get<char *>(XtParent(xwkConditWidget), XtNtitle);
    return title ? title : "";
}

// Polls the desk as a client would, but never blocks for more than a second
// without an event: gives the first non-zero result, -1, or 0 on silence.
// The by-reference form of UseDesk can stand in for it.
inline void use_desk(XwkDeskRec **desk, int *result) { UseDesk(*desk, result); }
inline int poll_desk(XwkDeskRec *desk, int max_events = 500,
                     void (*use)(XwkDeskRec **, int *) = use_desk)
{
    for (int i = 0; i < max_events; i++) {
        if (!xwktest::PumpUntil([] { return (XtAppPending(xwkApp) & XtIMXEvent) != 0; }, 1000))
            return 0;
        int result = 0;
        use(&desk, &result);
        if (result != 0)
            return result;
    }
    return 0;
}

}  // namespace boxdriver

#endif
