// The action area: a row of push buttons below a desk (or any paned window).
#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include <Xm/XmP.h>
#include <Xm/BulletinB.h>
#include <Xm/Form.h>
#include <Xm/PanedW.h>
#include <Xm/PushB.h>

#include <ctype.h>
#include <stdio.h>
#include <string.h>
#include <strings.h>

#include <string>
#include <vector>

namespace {

const int kButtonGap = 5;
const char kDefaultLabels[] = "&OK\0&Cancel\0&Help";
const int kDefaultCount = 3;

struct Label {
    std::string text;      // without the mnemonic marker
    char mnemonic = 0;
};

// The first '&' or '_' marks the mnemonic: it goes, the character behind it stays.
Label parse_label(const char *raw)
{
    Label l;
    l.text = raw;
    size_t mark = l.text.find_first_of("&_");
    if (mark == std::string::npos)
        return l;
    l.text.erase(mark, 1);
    if (mark < l.text.size())
        l.mnemonic = l.text[mark];
    return l;
}

std::vector<Label> unpack_labels(const char *labels, int count)
{
    std::vector<Label> out;
    const char *p = labels;
    for (int i = 0; i < count; i++) {
        out.push_back(parse_label(p));
        p += strlen(p) + 1;
    }
    return out;
}

bool is_default_label(const std::string &s)
{
    return strcasecmp(s.c_str(), "OK") == 0 || strcasecmp(s.c_str(), "Yes") == 0;
}

bool is_cancel_label(const std::string &s)
{
    return strcasecmp(s.c_str(), "Cancel") == 0 || strcasecmp(s.c_str(), "Close") == 0 ||
           strcasecmp(s.c_str(), "No") == 0;
}

bool is_desk(XtPointer p)
{
    XwkDeskRec *desk = (XwkDeskRec *)p;
    return desk && desk->self == desk;
}

// A negative client value stands for the help button.
void desk_button_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    XtPointer user = nullptr;
    XtVaGetValues(w, XmNuserData, &user, NULL);
    XwkDeskRec *desk = (XwkDeskRec *)user;
    if (!is_desk(desk))
        return;
    long value = (long)client_data;
    if (value >= 0) {
        desk->result = (int)value;
        return;
    }
    XmAnyCallbackStruct *cb = (XmAnyCallbackStruct *)call_data;
    XmAnyCallbackStruct help = {XmCR_HELP, cb ? cb->event : nullptr};
    XtCallCallbacks(desk->panes, XmNhelpCallback, &help);
}

Widget create_button(Widget area, const Label &label, XtPointer closure, bool first)
{
    char accelerator[16] = "";
    XmString text = XmStringCreateLocalized(smi18n_gettext(label.text.c_str()));
    Arg args[10];
    Cardinal n = 0;
    XtSetArg(args[n], XmNlabelString, text); n++;
    XtSetArg(args[n], XmNdefaultButtonShadowThickness, 1); n++;
    XtSetArg(args[n], XmNrecomputeSize, False); n++;
    XtSetArg(args[n], XmNuserData, closure); n++;
    XtSetArg(args[n], XmNshowAsDefault, first ? 1 : 0); n++;
    XtSetArg(args[n], XmNtopAttachment, XmATTACH_FORM); n++;
    if (label.mnemonic) {
        snprintf(accelerator, sizeof accelerator, "<Key>%c", tolower((unsigned char)label.mnemonic));
        XtSetArg(args[n], XmNmnemonic, (KeySym)(unsigned char)label.mnemonic); n++;
        XtSetArg(args[n], XmNaccelerator, accelerator); n++;
    }
    Widget button = XmCreatePushButton(area, (char *)"", args, n);
    XmStringFree(text);
    return button;
}

void place_button(Widget button, Widget previous, int i, int count)
{
    if (count == 1) {
        XtVaSetValues(button, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, kButtonGap, NULL);
        return;
    }
    if (i == count - 1) {
        XtVaSetValues(button, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, kButtonGap, NULL);
        return;
    }
    if (i == 0)
        XtVaSetValues(button, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, kButtonGap, NULL);
    else
        XtVaSetValues(button, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, previous,
                      XmNleftOffset, kButtonGap, NULL);
}

void settle_default_and_cancel(Widget board, Widget *buttons, int count)
{
    Widget def = nullptr, cancel = nullptr;
    XtVaGetValues(board, XmNdefaultButton, &def, XmNcancelButton, &cancel, NULL);
    if (!def && count > 0) {
        def = buttons[0];
        XtVaSetValues(board, XmNdefaultButton, def, NULL);
    }
    if (!cancel && count > 2) {
        cancel = buttons[1];
        XtVaSetValues(board, XmNcancelButton, cancel, NULL);
    }
    if (def && !cancel)
        XtVaSetValues(board, XmNcancelButton, def, NULL);
}

}  // namespace

Widget XwkCreateActionArea(XwkDeskRec *desk, Widget parent, const char *labels,
                           XwkActionCallbackRec *callbacks, int count, XtPointer closure)
{
    if (!desk || !parent)
        return nullptr;
    Widget area = XtVaCreateWidget("xwkActionArea", xmFormWidgetClass, parent,
                                   XmNskipAdjust, True, NULL);
    Widget board = XtParent(parent);
    bool has_board = board && XmIsBulletinBoard(board);
    if (!labels || !*labels || count <= 0) {
        labels = kDefaultLabels;
        count = kDefaultCount;
    }
    std::vector<Label> parsed = unpack_labels(labels, count);
    desk->nbuttons = count;
    XtFree((char *)desk->buttons);
    desk->buttons = (Widget *)XtCalloc((Cardinal)count, sizeof(Widget));

    size_t longest = 1;
    Dimension widest = 0;
    for (int i = 0; i < count; i++) {
        const Label &label = parsed[i];
        longest = std::max(longest, strlen(smi18n_gettext(label.text.c_str())));
        Widget button = create_button(area, label, closure, i == 0);
        desk->buttons[i] = button;
        place_button(button, i ? desk->buttons[i - 1] : nullptr, i, count);
        if (has_board && is_default_label(label.text))
            XtVaSetValues(board, XmNdefaultButton, button, NULL);
        if (has_board && is_cancel_label(label.text)) {
            XtVaSetValues(board, XmNcancelButton, button, NULL);
            desk->cancel_index = i + 1;
        }
        if (callbacks) {
            XtAddCallback(button, XmNactivateCallback, callbacks[i].callback, callbacks[i].closure);
        } else {
            long value = i == count - 1 ? -count : i + 1;
            XtAddCallback(button, XmNactivateCallback, desk_button_pressed, (XtPointer)value);
        }
        widest = std::max(widest, button->core.width);
    }
    if (has_board)
        settle_default_and_cancel(board, desk->buttons, count);

    XtManageChildren(desk->buttons, (Cardinal)count);
    Dimension width = (Dimension)(widest + widest / longest);
    for (int i = 0; i < count; i++)
        XtVaSetValues(desk->buttons[i], XtNwidth, width, NULL);

    if (!callbacks && is_desk(closure)) {
        XwkDeskRec *owner = (XwkDeskRec *)closure;
        int total = (width + kButtonGap) * count + kButtonGap;
        owner->extent_w = (unsigned short)(std::max<int>(owner->extent_w, total) + kButtonGap);
        XtVaSetValues(XwkGetShell(parent), XtNminWidth, total + kButtonGap, NULL);
    }
    XmProcessTraversal(desk->buttons[0], XmTRAVERSE_CURRENT);
    return area;
}

int XwkGetActionButtons(Widget panes, WidgetList *out)
{
    if (!out)
        return 0;
    *out = nullptr;
    if (!panes || !XmIsPanedWindow(panes))
        return 0;
    WidgetList children = nullptr;
    Cardinal n = 0;
    XtVaGetValues(panes, XmNchildren, &children, XmNnumChildren, &n, NULL);
    for (Cardinal i = n; i-- > 0;) {
        if (!XmIsForm(children[i]))
            continue;
        WidgetList buttons = nullptr;
        Cardinal nbuttons = 0;
        XtVaGetValues(children[i], XmNchildren, &buttons, XmNnumChildren, &nbuttons, NULL);
        *out = buttons;
        return (int)nbuttons;
    }
    return 0;
}
