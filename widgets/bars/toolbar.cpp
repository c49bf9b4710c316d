// Tool bars: a row of drawn buttons showing icons, with tips and short
// help, in the classic (push button) or the new (flat) style.
#include "bars.h"

#include "frame/XmPrivate.h"

#include <Xwk/Frame.h>
#include <Xm/DrawP.h>
#include <Xm/DrawnBP.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/ManagerP.h>
#include <Xm/Separator.h>

#include <string.h>

#include <algorithm>

Boolean xwkToolBarNewStyle;

namespace {

// The private pair in each button's XmNuserData.
struct ButtonPair {
    XwkToolBarButton *button;
    Widget status_bar;  // null: the button's own window
};

char *saved_short_help;

const char kButtonTranslations[] =
    "#override\n<EnterWindow>:\tEnter() ShowToolbarHelp()\n<LeaveWindow>:\tLeave() HideToolbarHelp()\n"
    "<Btn1Down>:\t \tToolbarArm()\n<Btn1Up>:\t\t\tToolbarDisarm()";

ButtonPair *pair_of(Widget w)
{
    if (!w || !XmIsDrawnButton(w))
        return nullptr;
    XtPointer pair = nullptr;
    XtVaGetValues(w, XmNuserData, &pair, NULL);
    return (ButtonPair *)pair;
}

XwkToolBarButton *button_of(Widget w)
{
    ButtonPair *pair = pair_of(w);
    return pair ? pair->button : nullptr;
}

Widget help_target(Widget w)
{
    ButtonPair *pair = pair_of(w);
    return pair && pair->status_bar ? pair->status_bar : w;
}

int inset(Widget w)
{
    XmPrimitiveWidget p = (XmPrimitiveWidget)w;
    return p->primitive.highlight_thickness + p->primitive.shadow_thickness;
}

// Flat buttons borrow the shadows of their form: their own are the
// background colour.
void draw_frame(Widget w, unsigned int type)
{
    Widget form = XtParent(w);
    if (!XtIsRealized(w) || !XmIsManager(form))
        return;
    XmManagerWidget m = (XmManagerWidget)form;
    XmPrimitiveWidget p = (XmPrimitiveWidget)w;
    Dimension ht = p->primitive.highlight_thickness;
    if (XtWidth(w) <= 2 * ht || XtHeight(w) <= 2 * ht)
        return;
    XmeDrawShadows(XtDisplay(w), XtWindow(w), m->manager.top_shadow_GC, m->manager.bottom_shadow_GC, ht,
                   ht, XtWidth(w) - 2 * ht, XtHeight(w) - 2 * ht, p->primitive.shadow_thickness, type);
}

void draw_flat(Widget w)
{
    if (!XtIsRealized(w))
        return;
    XmPrimitiveWidget p = (XmPrimitiveWidget)w;
    Dimension ht = p->primitive.highlight_thickness;
    if (XtWidth(w) <= 2 * ht || XtHeight(w) <= 2 * ht)
        return;
    XmeClearBorder(XtDisplay(w), XtWindow(w), ht, ht, XtWidth(w) - 2 * ht, XtHeight(w) - 2 * ht,
                   p->primitive.shadow_thickness);
}

void leave_drawing(Widget w, XwkToolBarButton *b)
{
    _XmUnhighlightBorder(w);
    if (b->state & XwkTOOLBAR_PRESSED)
        draw_frame(w, XmSHADOW_IN);
    else
        draw_flat(w);
}

void show_short_help(Widget w, const char *help)
{
    Widget target = help_target(w);
    if (!XwkGetShortHelpSensitive(target))
        return;
    if (!saved_short_help)
        saved_short_help = XwkGetShortHelp(target);
    XwkSetShortHelp(target, help);
}

void restore_short_help(Widget w)
{
    if (!saved_short_help)
        return;
    char *saved = saved_short_help;
    saved_short_help = nullptr;
    XwkSetShortHelp(help_target(w), saved);
    XtFree(saved);
}

void ShowToolbarHelp(Widget w, XEvent *, String *, Cardinal *)
{
    XwkToolBarButton *b = button_of(w);
    if (!b)
        return;
    if (b->sensitive && xwkToolBarNewStyle) {
        _XmHighlightBorder(w);
        draw_frame(w, (b->state & XwkTOOLBAR_PRESSED) ? XmSHADOW_IN : XmSHADOW_OUT);
    }
    b->state |= XwkTOOLBAR_INSIDE;
    if (!xwkToolBarNewStyle && (b->state & XwkTOOLBAR_PRESSED))
        XwkRefreshToolBarButton(w);
    if (b->help) {
        XwkShowTipLabel(w, b->help);
        show_short_help(w, b->help);
    }
}

void HideToolbarHelp(Widget w, XEvent *, String *, Cardinal *)
{
    XwkToolBarButton *b = button_of(w);
    if (!b)
        return;
    if (xwkToolBarNewStyle && b->sensitive)
        leave_drawing(w, b);
    XwkHideTipLabel();
    b->state &= ~XwkTOOLBAR_INSIDE;
    if (!xwkToolBarNewStyle && (b->state & XwkTOOLBAR_PRESSED))
        XwkRefreshToolBarButton(w);
    restore_short_help(w);
}

void ToolbarArm(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    XwkToolBarButton *b = button_of(w);
    if (!b || !b->sensitive)
        return;
    b->state |= XwkTOOLBAR_PRESSED;
    if (xwkToolBarNewStyle) {
        _XmHighlightBorder(w);
        draw_frame(w, XmSHADOW_IN);
    }
    XwkRefreshToolBarButton(w);
    ForceUpdate(w);
    XSync(XtDisplay(w), False);
    XtCallActionProc(w, (String) "Arm", event, params, num_params ? *num_params : 0);
}

void ToolbarDisarm(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    XwkHideTipLabel();
    XwkToolBarButton *b = button_of(w);
    if (!b || !b->sensitive || w->core.being_destroyed)
        return;
    b->state &= ~XwkTOOLBAR_PRESSED;
    if (xwkToolBarNewStyle) {
        leave_drawing(w, b);
        if (b->state & XwkTOOLBAR_INSIDE)
            draw_frame(w, XmSHADOW_OUT);
    }
    XwkRefreshToolBarButton(w);
    XtCallActionProc(w, (String) "Activate", event, params, num_params ? *num_params : 0);
}

XtActionsRec button_actions[] = {
    {(String) "ShowToolbarHelp", ShowToolbarHelp},
    {(String) "HideToolbarHelp", HideToolbarHelp},
    {(String) "ToolbarArm", ToolbarArm},
    {(String) "ToolbarDisarm", ToolbarDisarm},
};

XtTranslations button_translations(Widget w)
{
    static XtTranslations parsed;
    if (!parsed) {
        XtAppAddActions(XtWidgetToApplicationContext(w), button_actions, XtNumber(button_actions));
        parsed = XtParseTranslationTable(kButtonTranslations);
    }
    return parsed;
}

// Runs once the application's callback has returned, on a live button.
void after_button_call(Widget w, Widget label)
{
    if (!w) {
        XwkSetShortHelpSensitive(label, True);
        return;
    }
    Widget target = help_target(w);
    XwkSetShortHelpSensitive(target, True);
    XwkHideTipLabel();
    XwkToolBarButton *b = button_of(w);
    if (b && !(b->state & XwkTOOLBAR_INSIDE))
        restore_short_help(w);
}

void button_pressed(Widget w, XtPointer closure, XtPointer call_data)
{
    XwkHideTipLabel();
    XwkToolBarButton *b = (XwkToolBarButton *)closure;
    if (!b || !b->callback)
        return;
    XmDrawnButtonCallbackStruct *call = (XmDrawnButtonCallbackStruct *)call_data;
    b->reason = call ? call->reason : 0;
    b->event = call ? call->event : nullptr;
    b->click_count = call ? call->click_count : 0;
    Widget target = help_target(w);
    XwkSetShortHelpSensitive(target, False);
    xwk_call_later(w, b->callback_widget, b->callback, b->closure, (XmAnyCallbackStruct *)call,
                   b->click_count, xwk_message_label(target), after_button_call);
}

void button_released(Widget w, XtPointer, XtPointer)
{
    XwkHideTipLabel();
    XwkToolBarButton *b = button_of(w);
    if (b && XwkGetShortHelpSensitive(help_target(w))) {
        if (b->state & XwkTOOLBAR_INSIDE)
            show_short_help(w, b->help);
        else
            restore_short_help(w);
    }
}

void button_destroyed(Widget, XtPointer closure, XtPointer)
{
    XtFree((char *)closure);
    XwkToolBarFreeSavedShortHelp();
}

bool has_picture(const XwkToolBarButton *b)
{
    return b && b->icon && b->icon->pixmap;
}

}  // namespace

XwkToolBar *XwkCreateToolBarButtons(int count, XwkIcon **icons, char **help, XtCallbackProc *callbacks,
                                    XtPointer closure)
{
    if (count < 0)
        return nullptr;
    XwkToolBar *table = (XwkToolBar *)XtCalloc(1, sizeof *table);
    table->count = count;
    table->buttons = (XwkToolBarButton **)XtCalloc(count ? count : 1, sizeof *table->buttons);
    for (int i = 0; i < count; i++) {
        XwkToolBarButton *b = (XwkToolBarButton *)XtCalloc(1, sizeof *b);
        b->icon = icons ? icons[i] : nullptr;
        b->help = help ? help[i] : nullptr;
        b->callback = callbacks ? callbacks[i] : nullptr;
        b->closure = closure;
        b->sensitive = 1;
        table->buttons[i] = b;
    }
    return table;
}

void XwkDestroyToolBarButtons(XwkToolBar *table)
{
    if (!table)
        return;
    for (int i = 0; i < table->count; i++)
        XtFree((char *)table->buttons[i]);
    XtFree((char *)table->buttons);
    XtFree((char *)table);
}

Widget XwkCreateToolBarButton(Widget parent, XwkToolBarButton *button, int max_w, int max_h)
{
    if (!parent || !has_picture(button))
        return nullptr;
    XtTranslations translations = button_translations(parent);
    ButtonPair *pair = (ButtonPair *)XtMalloc(sizeof *pair);
    *pair = {button, nullptr};
    // A pixmap label without a pixmap keeps Motif from sizing the button
    // by its name.
    Widget w = XtVaCreateWidget("xwkToolBarButton", xmDrawnButtonWidgetClass, parent,
                                XmNlabelType, XmPIXMAP, XmNmarginWidth, 0, XmNmarginHeight, 0,
                                XmNpushButtonEnabled, !xwkToolBarNewStyle, XmNmultiClick,
                                XmMULTICLICK_DISCARD, XmNtraversalOn, False, XmNtranslations,
                                translations, XmNuserData, pair, NULL);
    XmPrimitiveWidget p = (XmPrimitiveWidget)w;
    int least = 2 * (w->core.border_width + p->primitive.highlight_thickness + p->primitive.shadow_thickness + 4);
    Dimension width = XtWidth(w) > least ? XtWidth(w) : (Dimension)(least + max_w);
    Dimension height = XtHeight(w) > least ? XtHeight(w) : (Dimension)(least + max_h);
    XtVaSetValues(w, XmNwidth, width, XmNheight, height, NULL);
    if (xwkToolBarNewStyle)
        XtVaSetValues(w, XmNtopShadowColor, w->core.background_pixel, XmNbottomShadowColor,
                      w->core.background_pixel, NULL);
    XtAddCallback(w, XmNexposeCallback, XwkRedrawIcon, nullptr);
    XtAddCallback(w, XmNarmCallback, button_pressed, nullptr);
    XtAddCallback(w, XmNdisarmCallback, button_released, nullptr);
    if (button->callback)
        XtAddCallback(w, XmNactivateCallback, button_pressed, button);
    XtAddCallback(w, XtNdestroyCallback, button_destroyed, pair);
    XtManageChild(w);
    button->widget = w;
    return w;
}

Widget XwkCreateToolBar(Widget parent, XwkToolBar *table)
{
    if (!parent || !table)
        return nullptr;
    table->state = -1;
    Widget frame = XtVaCreateWidget("xwkToolBar", xmFrameWidgetClass, parent, XmNleftAttachment,
                                    XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNtopAttachment,
                                    XmATTACH_FORM, XmNmarginWidth, 0, NULL);
    if (!xwkToolBarNewStyle)
        XtVaSetValues(frame, XmNshadowThickness, 2, XmNshadowType, XmSHADOW_ETCHED_IN, NULL);
    Widget form = XtVaCreateWidget("", xmFormWidgetClass, frame, XmNuserData, table, NULL);
    int max_w = 0, max_h = 0;
    for (int i = 0; i < table->count; i++) {
        XwkToolBarButton *b = table->buttons[i];
        if (!has_picture(b))
            continue;
        max_w = std::max(max_w, (int)b->icon->attributes.width);
        max_h = std::max(max_h, (int)b->icon->attributes.height);
    }
    int offset = 5;
    Widget previous = nullptr, last_button = nullptr;
    for (int i = 0; i < table->count; i++) {
        XwkToolBarButton *b = table->buttons[i];
        if (!has_picture(b)) {
            if (b)
                b->widget = nullptr;
            if (!xwkToolBarNewStyle) {
                offset += 5;
                continue;
            }
            previous = XtVaCreateManagedWidget(
                "", xmSeparatorWidgetClass, form, XmNorientation, XmVERTICAL, XmNtopAttachment,
                XmATTACH_FORM, XmNtopOffset, 0, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, 0,
                XmNleftAttachment, previous ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget, previous,
                XmNleftOffset, 5, NULL);
            offset = 5;
            continue;
        }
        Widget w = XwkCreateToolBarButton(form, b, max_w, max_h);
        XtVaSetValues(w, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 0, XmNbottomAttachment,
                      XmATTACH_FORM, XmNbottomOffset, 0, XmNleftAttachment,
                      previous ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget, previous,
                      XmNleftOffset, offset, NULL);
        offset = 0;
        previous = last_button = w;
    }
    if (!last_button) {
        XtDestroyWidget(frame);
        return nullptr;
    }
    Dimension shadow = 0;
    XtVaGetValues(frame, XmNshadowThickness, &shadow, NULL);
    XtVaSetValues(frame, XmNheight, (Dimension)(XtHeight(last_button) + 2 * shadow), NULL);
    XtManageChild(form);
    return frame;
}

void XwkRedrawIcon(Widget w, XtPointer closure, XtPointer)
{
    if (!w || w->core.being_destroyed || !XtIsRealized(w) || !XmIsPrimitive(w))
        return;
    XwkIcon *icon = (XwkIcon *)closure;
    XwkToolBarButton *b = nullptr;
    if (!icon) {
        b = button_of(w);
        if (!b)
            return;
        icon = (!b->sensitive && b->insensitive_icon) ? b->insensitive_icon : b->icon;
    }
    if (!icon || !icon->pixmap)
        return;
    Display *dpy = XtDisplay(w);
    int in = inset(w);
    int area_w = XtWidth(w) - 2 * in, area_h = XtHeight(w) - 2 * in;
    if (area_w <= 0 || area_h <= 0)
        return;
    int icon_w = icon->attributes.width, icon_h = icon->attributes.height;
    int x = in + std::max(0, (area_w - icon_w) / 2);
    int y = in + std::max(0, (area_h - icon_h) / 2);
    XGCValues values = {};
    // The clip and foreground change per call: a GC of its own, not a
    // shared one.
    GC gc = XtAllocateGC(w, 0, 0, &values, GCForeground | GCClipMask | GCClipXOrigin | GCClipYOrigin, 0);
    XwkToolBar *table = nullptr;
    Widget form = XtParent(w);
    if (b && XmIsForm(form) && XtParent(form) && strcmp(XtName(XtParent(form)), "xwkToolBar") == 0)
        XtVaGetValues(XtParent(w), XmNuserData, &table, NULL);
    if (b && (b->state & 6) == 6 && (!table || table->state == -1)) {
        Pixel fg, top, bottom, select;
        XmGetColors(XtScreen(w), w->core.colormap, w->core.background_pixel, &fg, &top, &bottom, &select);
        XSetForeground(dpy, gc, select);
        XFillRectangle(dpy, XtWindow(w), gc, in, in, area_w, area_h);
    }
    if (icon->mask) {
        XSetClipMask(dpy, gc, icon->mask);
        XSetClipOrigin(dpy, gc, x, y);
    }
    XCopyArea(dpy, icon->pixmap, XtWindow(w), gc, 0, 0, std::min(icon_w, area_w), std::min(icon_h, area_h), x, y);
    XFlush(dpy);
    XtReleaseGC(w, gc);
    if (b && b->sensitive && xwkToolBarNewStyle && (b->state & (XwkTOOLBAR_INSIDE | XwkTOOLBAR_PRESSED)))
        draw_frame(w, (b->state & XwkTOOLBAR_PRESSED) ? XmSHADOW_IN : XmSHADOW_OUT);
}

void XwkRefreshToolBarButton(Widget w)
{
    if (!w || !XtIsRealized(w) || !XmIsPrimitive(w))
        return;
    int in = inset(w);
    int area_w = XtWidth(w) - 2 * in, area_h = XtHeight(w) - 2 * in;
    if (area_w > 0 && area_h > 0)
        XClearArea(XtDisplay(w), XtWindow(w), in, in, area_w, area_h, False);
    XwkRedrawIcon(w, nullptr, nullptr);
}

void XwkSetToolBarButtonSensitive(Widget w, Boolean flag)
{
    XwkToolBarButton *b = button_of(w);
    if (!b || !b->sensitive == !flag)
        return;
    b->sensitive = flag ? 1 : 0;
    if (!flag && xwkToolBarNewStyle) {
        _XmUnhighlightBorder(w);
        draw_flat(w);
        b->state = 0;
    }
    XwkRefreshToolBarButton(w);
}

void XwkSetStatusBarForToolBar(Widget toolbar, Widget status)
{
    if (!toolbar || !XtIsComposite(toolbar))
        return;
    CompositeWidget frame = (CompositeWidget)toolbar;
    if (frame->composite.num_children == 0 || !XmIsForm(frame->composite.children[0]))
        return;
    CompositeWidget form = (CompositeWidget)frame->composite.children[0];
    for (Cardinal i = 0; i < form->composite.num_children; i++)
        if (ButtonPair *pair = pair_of(form->composite.children[i]))
            pair->status_bar = status;
}

void XwkToolBarFreeSavedShortHelp(void)
{
    XtFree(saved_short_help);
    saved_short_help = nullptr;
}
