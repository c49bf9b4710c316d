// condit: the one builder of message windows, with its private modal loop.
#include <Xwk/Desk.h>
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>
#include <Xwk/Text.h>

#include "msgbox_private.h"

#include <Xm/XmP.h>
#include <Xm/BulletinB.h>
#include <Xm/DialogS.h>
#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/MwmUtil.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/ScrolledW.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <X11/ShellP.h>
#include <X11/Xutil.h>

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

Widget xwkConditWidget;
Widget xwkConditWorkWidget;
XwkIcon *xwkConditIcon;
Cursor xwkDeskTopCursor;

namespace {

const int kMaxRows = 15;
const int kMaxColumns = 60;
const size_t kStackText = 8192;

struct Kind {
    const char *name;
    int icon;
};

Kind kind_of(int kind)
{
    switch (kind) {
    case 1: return {"xwkError", 1};
    case 2: return {"xwkInformation", 2};
    case 3: return {"xwkQuestion", 3};
    case 4: return {"xwkWarning", 4};
    default: return {"xwkMessageDialog", 0};
    }
}

std::vector<std::string> button_labels(int set, const char *labels, int nlabels)
{
    set = set < 0 ? -set : set;
    nlabels = nlabels < 0 ? -nlabels : nlabels;
    if (set == 0)
        return {"  OK  ", "  Cancel  "};
    if (set == 1)
        return {"  Yes  ", "  No  "};
    if (set == 3 && labels && nlabels > 0) {
        std::vector<std::string> out;
        const char *p = labels;
        for (int i = 0; i < nlabels; i++, p += strlen(p) + 1)
            out.push_back(p);
        return out;
    }
    return {"  OK  "};
}

bool being_destroyed(Widget w)
{
    return w && w->core.being_destroyed;
}

bool usable_shell_owner(Widget w)
{
    return w && XtIsWidget(w) && XtIsManaged(w) && XtIsRealized(w);
}

Widget default_parent()
{
    if (usable_shell_owner(xwkParentWidget) && !being_destroyed(xwkParentWidget))
        return XwkGetWMShell(xwkParentWidget);
    return xwkTopLevel;
}

// The shell the box stands on; null when there is none.  *dead is set for a
// widget whose class pointer is gone.
Widget find_parent(Widget parent, bool *dead)
{
    *dead = false;
    if (!parent)
        return default_parent();
    if (!XtClass(parent)) {
        *dead = true;
        return nullptr;
    }
    Widget outcome = parent;
    if (XtIsWidget(parent)) {
        outcome = XwkGetWMShell(parent);
        if (outcome && !XtIsRealized(outcome)) {
            Widget above = XtParent(outcome);
            if (!above)
                outcome = xwkTopLevel;
            else if (XtIsWidget(above) && XtIsRealized(above))
                outcome = XwkGetWMShell(above);
        }
    }
    if (!outcome || !XtIsWMShell(outcome))
        return default_parent();
    return outcome;
}

void raise_parent(Widget parent)
{
    Boolean mapped = True;
    XtVaGetValues(parent, XtNmappedWhenManaged, &mapped, NULL);
    if (!mapped)
        XtVaSetValues(parent, XtNmappedWhenManaged, True, NULL);
    if (!XtIsRealized(parent))
        return;
    XWMHints *hints = XGetWMHints(XtDisplay(parent), XtWindow(parent));
    if (!hints)
        return;
    XFree(hints);
    XMapRaised(XtDisplay(parent), XtWindow(parent));
}

void answer_closed(Widget, XtPointer client_data, XtPointer)
{
    XwkConditCell *cell = xwk_condit_cell((Widget)client_data);
    if (cell)
        cell->answer = 0;
}

void box_destroyed(Widget w, XtPointer client_data, XtPointer)
{
    XwkConditCell *cell = (XwkConditCell *)client_data;
    if (cell->gone)
        *cell->gone = true;
    XtFree((char *)cell);
    if (xwkConditWidget == w)
        xwkConditWidget = nullptr;
}

// The button's number goes to the cell of the first form standing on a
// dialog shell above it.
void button_activated(Widget w, XtPointer client_data, XtPointer)
{
    for (Widget p = XtParent(w); p; p = XtParent(p)) {
        if (!XmIsForm(p) || !XtParent(p) || !XmIsDialogShell(XtParent(p)))
            continue;
        XwkConditCell *cell = xwk_condit_cell(p);
        if (cell)
            cell->answer = (int)(long)client_data;
        return;
    }
}

void redraw_icon(Widget w, XtPointer client_data, XtPointer)
{
    XwkIcon *icon = (XwkIcon *)client_data;
    if (being_destroyed(w) || !icon || !icon->pixmap || !XtIsRealized(w))
        return;
    int x = ((int)w->core.width - (int)icon->attributes.width) / 2;
    int y = ((int)w->core.height - (int)icon->attributes.height) / 2;
    x = std::max(x, 0);
    y = std::max(y, 0);
    XGCValues values = {};
    GC gc = XtGetGC(w, 0, &values);
    if (icon->mask) {
        XSetClipMask(XtDisplay(w), gc, icon->mask);
        XSetClipOrigin(XtDisplay(w), gc, x, y);
    }
    XCopyArea(XtDisplay(w), icon->pixmap, XtWindow(w), gc, 0, 0, icon->attributes.width,
              icon->attributes.height, x, y);
    if (icon->mask)
        XSetClipMask(XtDisplay(w), gc, None);
    XFlush(XtDisplay(w));
    XtReleaseGC(w, gc);
}

struct Measure {
    int width = 0;       // widest line ended by a newline, in pixels
    int height = 0;
    int lines = 1;
    int longest = 0;     // in characters, lines ended by a newline
};

XFontStruct *fallback_font(Display *dpy)
{
    static XFontStruct *font;
    if (!font)
        font = XLoadQueryFont(dpy, "fixed");
    return font;
}

Measure measure(Widget form, const char *text)
{
    Measure m;
    XmFontList table = XmeGetDefaultRenderTable(form, XmLABEL_FONTLIST);
    XFontStruct *font = nullptr;
    if (!table || !XmeRenderTableGetDefaultFont(table, &font) || !font)
        font = fallback_font(XtDisplay(form));
    const char *line = text;
    for (const char *p = text; *p; p++) {
        if (*p != '\n')
            continue;
        int chars = (int)(p - line);
        m.lines++;
        m.longest = std::max(m.longest, chars);
        if (font)
            m.width = std::max(m.width, XTextWidth(font, line, chars));
        line = p + 1;
    }
    if (font)
        m.height = (font->ascent + font->descent) * m.lines;
    return m;
}

// The text without its markup commands' markers: the letters stay visible.
void strip_markers(const char *text, char *out)
{
    for (const char *p = text; *p; p++) {
        if (*p != '^') {
            *out++ = *p;
            continue;
        }
        if (!*++p)
            break;
        *out++ = *p;
    }
    *out = 0;
}

Widget create_scrolled_text(Widget form, const char *text, const Measure &m)
{
    size_t size = strlen(text) + 1;
    char on_stack[kStackText];
    std::vector<char> on_heap;
    char *stripped = on_stack;
    if (size > kStackText) {
        on_heap.resize(size);
        stripped = on_heap.data();
    }
    strip_markers(text, stripped);
    Pixel background = 0;
    XtVaGetValues(form, XmNbackground, &background, NULL);
    Arg args[14];
    Cardinal n = 0;
    XtSetArg(args[n], XmNrows, (short)std::min(m.lines, kMaxRows)); n++;
    XtSetArg(args[n], XmNcolumns, (short)std::min(m.longest, kMaxColumns)); n++;
    XtSetArg(args[n], XmNeditMode, XmMULTI_LINE_EDIT); n++;
    XtSetArg(args[n], XmNscrollHorizontal, True); n++;
    XtSetArg(args[n], XmNscrollVertical, True); n++;
    XtSetArg(args[n], XmNscrollBarDisplayPolicy, XmAS_NEEDED); n++;
    XtSetArg(args[n], XmNspacing, 0); n++;
    XtSetArg(args[n], XmNeditable, False); n++;
    XtSetArg(args[n], XmNcursorPositionVisible, False); n++;
    XtSetArg(args[n], XmNtraversalOn, False); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNbackground, background); n++;
    XtSetArg(args[n], XmNvalue, stripped); n++;
    Widget textw = XmCreateScrolledText(form, (char *)"", args, n);
    Widget window = XtParent(textw);
    XtVaSetValues(window, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, NULL);
    XtManageChild(textw);
    XtManageChild(window);
    return window;
}

void set_offset(Widget w, const char *resource, int value)
{
    int current = 0;
    XtVaGetValues(w, resource, &current, NULL);
    if (current != value)
        XtVaSetValues(w, resource, value, NULL);
}

// Centres the work widget, and a short message vertically.
void layout_text(Widget form, XtPointer, XEvent *event, Boolean *)
{
    if (event->type != MapNotify && event->type != ConfigureNotify)
        return;
    if (xwkConditWorkWidget && XtParent(xwkConditWorkWidget) == form &&
        XtIsManaged(xwkConditWorkWidget))
        set_offset(xwkConditWorkWidget, XmNleftOffset,
                   std::max(0, ((int)form->core.width - (int)xwkConditWorkWidget->core.width) / 2));
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(form, XmNchildren, &children, XmNnumChildren, &count, NULL);
    if (!count || XmIsScrolledWindow(children[0]))
        return;
    int sum = 0;
    for (Cardinal i = 0; i < count; i++)
        if (XtIsManaged(children[i]))
            sum += children[i]->core.height;
    set_offset(children[0], XmNtopOffset, std::max(0, ((int)form->core.height - sum) / 2));
}

// Centres the button row, then lets the shell show: the box appears laid out.
void layout_base(Widget base, XtPointer client_data, XEvent *event, Boolean *)
{
    if (event->type != MapNotify && event->type != ConfigureNotify)
        return;
    Widget row = (Widget)client_data;
    set_offset(row, XmNleftOffset, std::max(0, ((int)base->core.width - (int)row->core.width) / 2));
    Widget shell = XtParent(base);
    if (!XtIsShell(shell) || shell->core.mapped_when_managed)
        return;
    XtVaSetValues(shell, XtNmappedWhenManaged, True, NULL);
    if (XtIsRealized(shell) && ((ShellWidget)shell)->shell.popped_up)
        XtMapWidget(shell);
}

void focus_default(Widget, XtPointer client_data, XtPointer)
{
    Widget row = (Widget)client_data;
    XtPointer def = nullptr;
    XtVaGetValues(row, XmNuserData, &def, NULL);
    if (def)
        XmProcessTraversal((Widget)def, XmTRAVERSE_CURRENT);
}

Widget create_action_row(Widget base, const std::vector<std::string> &labels, XwkConditCell *cell,
                         int default_button)
{
    Widget row = XtVaCreateWidget(
        "", xmRowColumnWidgetClass, base, XmNleftAttachment, XmATTACH_FORM,
        XmNbottomAttachment, XmATTACH_FORM, XmNentryAlignment, XmALIGNMENT_CENTER,
        XmNadjustLast, False, XmNorientation, XmHORIZONTAL, XmNspacing, 5, XmNmarginWidth, 5,
        XmNmarginHeight, 5, NULL);
    int count = (int)labels.size();
    std::vector<Widget> buttons;
    Widget cancel = nullptr;
    Dimension widest = 0;
    size_t longest = 1;
    for (int i = 0; i < count; i++) {
        const char *shown = smi18n_gettext(labels[i].c_str());
        longest = std::max(longest, strlen(shown));
        XmString s = XmStringCreateLocalized((char *)shown);
        Widget b = XtVaCreateWidget("xwkActionAreaButton", xmPushButtonWidgetClass, row,
                                    XmNlabelString, s, XmNdefaultButtonShadowThickness, 1,
                                    XmNrecomputeSize, False, XmNuserData, (XtPointer)cell, XmNshowAsDefault, i == 0 ? 1 : 0,
                                    NULL);
        XmStringFree(s);
        XtAddCallback(b, XmNactivateCallback, button_activated, (XtPointer)(long)(i + 1));
        if (strstr(labels[i].c_str(), "Cancel") || strstr(labels[i].c_str(), "No")) {
            cancel = b;
            XtVaSetValues(base, XmNcancelButton, b, NULL);
        }
        widest = std::max(widest, b->core.width);
        buttons.push_back(b);
    }
    Dimension width = (Dimension)(widest + widest / longest);
    for (Widget b : buttons)
        XtVaSetValues(b, XtNwidth, width, NULL);
    XtManageChildren(buttons.data(), (Cardinal)count);
    int d = std::clamp(default_button < 0 ? -default_button : default_button, 1, count);
    XtVaSetValues(base, XmNdefaultButton, buttons[d - 1], NULL);
    XtVaSetValues(row, XmNuserData, (XtPointer)buttons[d - 1], NULL);
    if (!cancel)
        XtVaSetValues(base, XmNcancelButton, buttons[count == 1 ? 0 : 1], NULL);
    return row;
}

Widget create_logo(Widget parent)
{
    Widget shell = XtVaCreatePopupShell("xwkLogo", overrideShellWidgetClass, parent,
                                        XtNallowShellResize, True, NULL);
    return XtVaCreateManagedWidget("", xmBulletinBoardWidgetClass, shell, XmNmarginWidth, 5,
                                   XmNmarginHeight, 5, XmNshadowThickness, 5, NULL);
}

Widget create_dialog(Widget parent, const char *name, const char *title, bool modal,
                     XwkConditCell *cell)
{
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdialogStyle, modal ? XmDIALOG_FULL_APPLICATION_MODAL : XmDIALOG_MODELESS); n++;
    XtSetArg(args[n], XmNmarginWidth, 1); n++;
    XtSetArg(args[n], XmNmarginHeight, 1); n++;
    XtSetArg(args[n], XmNshadowThickness, 1); n++;
    XtSetArg(args[n], XmNresizePolicy, XmRESIZE_GROW); n++;
    XtSetArg(args[n], XmNuserData, (XtPointer)cell); n++;
    XtSetArg(args[n], XmNautoUnmanage, False); n++;
    Widget base = XmCreateFormDialog(parent, (char *)name, args, n);
    Widget shell = XtParent(base);
    XtVaSetValues(shell, XmNmwmDecorations, MWM_DECOR_BORDER | MWM_DECOR_TITLE,
                  XmNmwmFunctions, MWM_FUNC_MOVE | MWM_FUNC_CLOSE, XtNtitle,
                  title ? smi18n_gettext(title) : "", XtNallowShellResize, True,
                  XmNdeleteResponse, XmDO_NOTHING, XtNmappedWhenManaged, False, NULL);
    XwkAddDeleteWindowCallback(shell, answer_closed, base);
    XtAddCallback(base, XtNdestroyCallback, box_destroyed, cell);
    return base;
}

// The message itself: an icon at the left, the text beside it.
Widget create_message(Widget base, const char *title, XwkIcon *icon, const char *text)
{
    Widget top = XtVaCreateWidget(title ? title : "", xmFormWidgetClass, base, XmNtopAttachment,
                                  XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                                  XmNrightAttachment, XmATTACH_FORM, NULL);
    Widget picture = nullptr;
    if (icon) {
        picture = XtVaCreateManagedWidget(
            "", xmDrawnButtonWidgetClass, top, XtNwidth, (Dimension)(icon->attributes.width + 4),
            XtNheight, (Dimension)(icon->attributes.height + 4), XmNleftOffset, 20,
            XmNleftAttachment, XmATTACH_FORM, XmNtopAttachment, XmATTACH_FORM,
            XmNbottomAttachment, XmATTACH_FORM, XmNtraversalOn, False, XmNshadowThickness, 0,
            XmNmarginWidth, 0, XmNmarginHeight, 0, XmNpushButtonEnabled, False, NULL);
        XtAddCallback(picture, XmNexposeCallback, redraw_icon, icon);
    }
    Widget form = XtVaCreateWidget(
        "", xmFormWidgetClass, top, XmNleftAttachment, picture ? XmATTACH_WIDGET : XmATTACH_FORM,
        XmNleftWidget, picture, XmNtopAttachment, XmATTACH_FORM, XmNrightAttachment,
        XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNtopOffset, 20, XmNbottomOffset, 20,
        XmNleftOffset, 10, XmNrightOffset, 20, NULL);

    Measure m = measure(form, text);
    Screen *screen = XtScreen(form);
    int max_w = WidthOfScreen(screen) / 100 * 80;
    int max_h = HeightOfScreen(screen) / 100 * 80;
    Widget last = m.width <= max_w && m.height <= max_h ? XwkCreateCompoundLabels(form, text)
                                                        : create_scrolled_text(form, text, m);
    xwkConditWorkWidget = XtVaCreateWidget(
        "xwkConditWorkWidget", xmRowColumnWidgetClass, form, XmNtopAttachment,
        last ? XmATTACH_WIDGET : XmATTACH_FORM, XmNtopWidget, last, XmNleftAttachment,
        XmATTACH_FORM, NULL);
    XtAddEventHandler(form, StructureNotifyMask, False, layout_text, nullptr);
    XtManageChild(form);
    XtManageChild(top);
    return top;
}

struct ParentWatch {
    bool gone = false;
};

void parent_destroyed(Widget, XtPointer client_data, XtPointer)
{
    ((ParentWatch *)client_data)->gone = true;
}

}  // namespace

XwkConditCell *xwk_condit_cell(Widget box)
{
    if (!box)
        return nullptr;
    XtPointer cell = nullptr;
    XtVaGetValues(box, XmNuserData, &cell, NULL);
    return (XwkConditCell *)cell;
}

bool xwk_condit_box_gone(Widget box, const bool *gone)
{
    return *gone || being_destroyed(box) || being_destroyed(XtParent(box)) ||
           being_destroyed(XtParent(XtParent(box)));
}

int condit(Widget parent_in, const char *title, int kind, const char *text, const char *labels,
           int nlabels, int default_button, int buttons)
{
    if (!xwkTopLevel)
        return -1;
    bool dead = false;
    Widget parent = find_parent(parent_in, &dead);
    if (dead || !parent || being_destroyed(parent))
        return -1;
    Display *dpy = XtDisplay(parent);
    XUngrabServer(dpy);
    XUngrabPointer(dpy, CurrentTime);
    XUngrabKeyboard(dpy, CurrentTime);
    raise_parent(parent);
    if (!text)
        text = "";

    Kind k = kind_of(kind);
    XwkIcon *icon = xwkConditIcon ? xwkConditIcon : (k.icon ? xwk_kind_icon(parent, k.icon) : nullptr);
    bool logo = !title && default_button < 0;
    XwkConditCell *cell = nullptr;
    Widget base;
    if (logo) {
        base = create_logo(parent);
    } else {
        cell = (XwkConditCell *)XtCalloc(1, sizeof *cell);
        base = create_dialog(parent, k.name, title, default_button > 0, cell);
    }
    Widget shell = XtParent(base);
    Widget top = create_message(base, title, icon, text);
    Widget separator = XtVaCreateManagedWidget(
        "", xmSeparatorWidgetClass, base, XmNseparatorType, XmSHADOW_ETCHED_IN, XmNorientation,
        XmHORIZONTAL, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, NULL);
    XtVaSetValues(top, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, separator, NULL);
    Widget row = create_action_row(base, button_labels(buttons, labels, nlabels), cell,
                                   default_button);
    XtManageChild(row);
    XtVaSetValues(separator, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, row, NULL);
    XtAddCallback(base, XmNmapCallback, focus_default, row);
    XtAddEventHandler(base, StructureNotifyMask, False, layout_base, row);
    if (cell)
        cell->answer = -1;
    xwkConditWidget = base;

    if (buttons >= 0) {
        if (logo)
            XtPopup(shell, XtGrabNone);
        else
            XtManageChild(base);
        XtVaSetValues(shell, XtNminWidth, (int)shell->core.width, XtNminHeight,
                      (int)shell->core.height, NULL);
    }
    if (default_button < 0) {
        if (buttons < 0)
            return -1;
        ForceUpdate(base);
        return cell ? cell->answer : -1;
    }

    bool gone = false;
    cell->gone = &gone;
    ParentWatch watch;
    XtAddCallback(parent, XtNdestroyCallback, parent_destroyed, &watch);
    ForceUpdate(shell);
    if (!gone)
        XwkAddSolidCursor(row, xmPushButtonWidgetClass, xwkDeskTopCursor);
    bool failed = false;
    while (!gone && cell->answer < 0) {
        XwkAppProcessEvents(xwkApp);
        if (gone || watch.gone || being_destroyed(base) || being_destroyed(parent)) {
            failed = true;
            break;
        }
    }
    failed = failed || gone;
    if (!watch.gone)
        XtRemoveCallback(parent, XtNdestroyCallback, parent_destroyed, &watch);
    if (failed) {
        if (!gone)
            cell->gone = nullptr;
        if (xwkConditWidget == base)
            xwkConditWidget = nullptr;
        return -1;
    }
    int result = cell->answer;
    cell->gone = nullptr;
    XtPopdown(shell);
    XtDestroyWidget(shell);
    ForceUpdate(parent);
    if (xwkConditWidget == base)
        xwkConditWidget = nullptr;
    return result;
}

void del_condit(void)
{
    Widget box = xwkConditWidget;
    if (!box)
        return;
    xwkConditWidget = nullptr;
    if (being_destroyed(box))
        return;
    Widget shell = XtParent(box);
    XtPopdown(shell);
    XFlush(XtDisplay(box));
    Widget above = XtParent(shell);
    if (above && XtIsRealized(above))
        ForceUpdate(above);
    XtDestroyWidget(shell);
}
