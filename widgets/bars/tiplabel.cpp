// The one tip label of the process: a label in an override shell that
// shows near the pointer after a delay.
#include "bars.h"
#include "tiplabel.h"
#include "frame/xmstring_private.h"

#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>
#include <Xwk/Text.h>
#include <Xm/Label.h>
#include <X11/Shell.h>

#include <string.h>

#include <string>

Boolean xwkEnableToolbarTips = 1;
Boolean xwkTipLabelIsHidden = 1;
Widget xwkTipLabelWidget;

namespace {

constexpr unsigned long kTipDelayMs = 700;
// Key and button presses and releases, pointer motion and its hint.
constexpr long kTipInputMask = 0xCF;

struct TipState {
    Widget target;
    std::string text;
    const char *handed_in;  // the caller's pointer, to tell a new text from the same one
    XtIntervalId timer;
    int screen_width, screen_height;
    Widget shell;
};

TipState tip;

void cancel_timer()
{
    if (tip.timer)
        XtRemoveTimeOut(tip.timer);
    tip.timer = 0;
}

void target_destroyed(Widget w, XtPointer, XtPointer)
{
    if (w != tip.target)
        return;
    cancel_timer();
    tip.target = nullptr;
    tip.handed_in = nullptr;
    tip.text.clear();
    XwkHideTipLabel();
}

void label_destroyed(Widget, XtPointer, XtPointer)
{
    cancel_timer();
    if (tip.target)
        XtRemoveCallback(tip.target, XtNdestroyCallback, target_destroyed, nullptr);
    tip = TipState{};
    xwkTipLabelWidget = nullptr;
    xwkTipLabelIsHidden = 1;
}

bool viewable(Widget w)
{
    XWindowAttributes a;
    return XtWindow(w) && XGetWindowAttributes(XtDisplay(w), XtWindow(w), &a) &&
           a.map_state == IsViewable;
}

void create_tip(Widget target)
{
    Widget app = XwkGetAppShell(target);
    while (app && XtParent(app))
        app = XwkGetAppShell(XtParent(app));
    tip.screen_width = WidthOfScreen(XtScreen(app));
    tip.screen_height = HeightOfScreen(XtScreen(app));
    tip.shell = XtVaCreatePopupShell("", overrideShellWidgetClass, app, XtNsaveUnder, True,
                                     XtNallowShellResize, True, NULL);
    xwkTipLabelWidget = XtVaCreateManagedWidget("xwkTipLabel", xmLabelWidgetClass, tip.shell,
                                                XmNalignment, XmALIGNMENT_BEGINNING, NULL);
    XtAddCallback(xwkTipLabelWidget, XtNdestroyCallback, label_destroyed, nullptr);
}

void place_tip(Widget target, Position *x_out, Position *y_out)
{
    Display *dpy = XtDisplay(target);
    Window root, child;
    int rx = 0, ry = 0, wx, wy;
    unsigned int mask;
    XQueryPointer(dpy, RootWindowOfScreen(XtScreen(target)), &root, &child, &rx, &ry, &wx, &wy, &mask);
    int tip_w = XtWidth(tip.shell), tip_h = XtHeight(tip.shell);
    int x, y;
    if (strcmp(XtName(target), "xwkToolBarButton") == 0 && XtParent(target)) {
        Position tx, ty;
        XtTranslateCoords(XtParent(target), (Position)(XtX(target) + XtWidth(target) / 2),
                          (Position)(XtY(target) + XtHeight(target) + 5), &tx, &ty);
        x = tx;
        y = ty;
        if (y + tip_h > tip.screen_height)
            y = y - 1 - (tip_h + 10 + XtHeight(target));
    } else {
        x = rx;
        y = ry - (tip_h + 5);
    }
    // The order of the clamps is deliberate: a tip too high for the space
    // above the pointer goes below it.
    if (x < 0)
        x = 0;
    if (x > tip.screen_width)
        x = tip.screen_width;
    if (y < 0)
        y = ry + 5;
    if (y > tip.screen_height)
        y = tip.screen_height;
    if (x + tip_w > tip.screen_width)
        x = tip.screen_width - tip_w - 1;
    *x_out = (Position)x;
    *y_out = (Position)y;
}

void show_tip(XtPointer, XtIntervalId *id)
{
    if (id)
        tip.timer = 0;
    else
        cancel_timer();
    Widget target = tip.target;
    if (!xwkEnableToolbarTips || !target || !viewable(target))
        return;
    bool first = !tip.shell;
    if (first)
        create_tip(target);
    XmString s = xwk::LinesString(smi18n_gettext(tip.text.c_str()),
                                   (XmStringTag)XmFONTLIST_DEFAULT_TAG);
    XtVaSetValues(xwkTipLabelWidget, XmNlabelString, s, NULL);
    XmStringFree(s);
    XtRealizeWidget(tip.shell);
    Position x, y;
    place_tip(target, &x, &y);
    XtVaSetValues(tip.shell, XtNx, x, XtNy, y, NULL);
    XtPopup(tip.shell, XtGrabNone);
    ForceUpdate(xwkTipLabelWidget);
    if (!tip.shell)  // destroyed while the update waited
        return;
    if (!tip.target) {
        XtPopdown(tip.shell);
        return;
    }
    if (first) {
        XwkSetNoneCursor(tip.shell);
        XSelectInput(XtDisplay(tip.shell), XtWindow(tip.shell), kTipInputMask);
    }
    xwkTipLabelIsHidden = 0;
}

// The common steps of both show calls; false when nothing is to show.
bool prepare_tip(Widget w, const char *text)
{
    if (!w || !XtIsWidget(w) || !XtWindow(w))
        return false;
    XwkHideTipLabel();
    if (!xwkEnableToolbarTips || !xwkTipLabelIsHidden || !text)
        return false;
    if (w != tip.target || text != tip.handed_in) {
        if (tip.target)
            XtRemoveCallback(tip.target, XtNdestroyCallback, target_destroyed, nullptr);
        tip.target = w;
        tip.handed_in = text;
        const char *bar = strchr(text, '|');
        tip.text = bar ? bar + 1 : text;
        XtRemoveCallback(w, XtNdestroyCallback, target_destroyed, nullptr);
        XtAddCallback(w, XtNdestroyCallback, target_destroyed, nullptr);
    }
    return true;
}

}  // namespace

bool xwk_tip_owns_window(Window window)
{
    return window && ((tip.shell && window == XtWindow(tip.shell)) ||
                      (xwkTipLabelWidget && window == XtWindow(xwkTipLabelWidget)));
}

void XwkShowTipLabel(Widget w, const char *text)
{
    if (!prepare_tip(w, text))
        return;
    tip.timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), kTipDelayMs, show_tip, nullptr);
}

void XwkShowTipLabelNow(Widget w, const char *text)
{
    if (!prepare_tip(w, text))
        return;
    show_tip(nullptr, nullptr);
}

void XwkHideTipLabel(void)
{
    cancel_timer();
    if (!xwkEnableToolbarTips || xwkTipLabelIsHidden)
        return;
    if (xwkTipLabelWidget && XtWindow(xwkTipLabelWidget))
        XtPopdown(tip.shell);
    xwkTipLabelIsHidden = 1;
}
