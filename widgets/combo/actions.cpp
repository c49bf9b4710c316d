// Combo box input: translations and actions, the list's default action,
// text focus, and the exported operations on items and the selection.
#include "widgets/combo/combo.h"

#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/List.h>
#include <Xm/ScrollBar.h>
#include <Xm/Text.h>

#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace xwk::combo {

const char combo_translations[] =
    "c <Key>osfDown: CBActivate()\n"
    "<Key>osfSelect: CBActivate()\n"
    "~s ~m ~a <Key>space: CBActivate()";

const char list_translations[] =
    "c <Key>osfDown: CBCancel()\n"
    "c <Key>osfUp: CBCancel()\n"
    "<Key>osfCancel: CBCancel()\n"
    "<Leave>: CBListAction(ListLeave)\n"
    "<Enter>: CBListAction(ListEnter)\n"
    "<Btn1Up>: ListEndSelect() ListKbdActivate() CBCancel()\n"
    "<Btn3Up>: ListEndSelect() ListKbdActivate() CBCancel()\n"
    "Button3<Motion>: ListButtonMotion()\n"
    "c ~s ~m ~a <Btn4Down>: CBListScroll(PageUp)\n"
    "c ~s ~m ~a <Btn5Down>: CBListScroll(PageDown)\n"
    "s ~m ~a <Btn4Down>: CBListScroll(Up)\n"
    "s ~m ~a <Btn5Down>: CBListScroll(Down)\n"
    "~c ~s ~m ~a <Btn4Down>: CBListScroll(PageUp,2)\n"
    "~c ~s ~m ~a <Btn5Down>: CBListScroll(PageDown,2)\n"
    "<FocusOut>: ";

const char text_translations[] =
    "<Key>osfActivate: CBTextActivate()\n"
    "~s ~m ~a <Key>Return: CBTextActivate()\n"
    "c <Key>osfDown: CBActivate()\n"
    "c <Key>osfUp: CBActivate()\n"
    "~c ~s ~m ~a <Btn1Down>: CBActivate() grab-focus()\n"
    "<Key>osfDown: CBListAction(Down)\n"
    "<Key>osfUp: CBListAction(Up)\n"
    "c <Key>osfBeginLine: CBListAction(ListBeginData)\n"
    "c <Key>osfEndLine: CBListAction(ListEndData)";

const char arrow_translations[] = "<Btn1Down>: CBActivate()";

namespace {

XtTranslations list_table, text_table, arrow_table;

// The combo box from the widget an action ran on: itself, its text or
// arrow, or the list four levels below it.
Widget FindCombo(Widget w)
{
    for (int i = 0; w && i < 5; i++, w = XtParent(w))
        if (IsCombo(w))
            return w;
    return nullptr;
}

bool ArrowUsable(Widget w)
{
    Widget arrow = Part(w).arrow;
    return !arrow || XtIsSensitive(arrow);
}

XmString CurrentItem(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (p.selectedItem)
        return p.selectedItem;
    if (p.items && p.selectedPosition >= 1 && p.selectedPosition <= p.itemCount)
        return p.items[p.selectedPosition - 1];
    return nullptr;
}

void CallList(Widget w, XtCallbackList list, int reason, XEvent *event)
{
    XwkComboBoxCallbackStruct cbs;
    cbs.reason = reason;
    cbs.event = event;
    cbs.item = CurrentItem(w);
    cbs.position = Part(w).selectedPosition;
    XtCallCallbackList(w, list, &cbs);
}

// The first text of a compound string, allocated with XtMalloc; or NULL.
char *FirstText(XmString s)
{
    XmStringContext context;
    if (!s || !XmStringInitContext(&context, s))
        return nullptr;
    char *found = nullptr;
    for (;;) {
        char *text = nullptr;
        XmStringCharSet charset = nullptr;
        XmStringDirection direction;
        XmStringComponentType unknown_tag;
        unsigned short unknown_length;
        unsigned char *unknown_value = nullptr;
        XmStringComponentType type = XmStringGetNextComponent(context, &text, &charset, &direction,
                                                              &unknown_tag, &unknown_length, &unknown_value);
        XtFree(charset);
        XtFree((char *)unknown_value);
        if (type == XmSTRING_COMPONENT_END)
            break;
        if (type == XmSTRING_COMPONENT_TEXT || type == XmSTRING_COMPONENT_LOCALE_TEXT) {
            found = text;
            break;
        }
        XtFree(text);
    }
    XmStringFreeContext(context);
    return found;
}

void SelectPosition(Widget w, int pos, bool notify, XEvent *event)
{
    XwkComboBoxPart &p = Part(w);
    FreeOwnedItem(w);
    p.selectedItem = nullptr;
    p.selectedPosition = pos;
    XmListSelectPos(p.list, pos, False);
    ShowSelection(w);
    if (notify)
        CallSelection(w, XwkCR_COMBO_SELECT, event);
}

int SelectedInList(Widget list)
{
    int *positions = nullptr, count = 0;
    if (!XmListGetSelectedPos(list, &positions, &count))
        return 0;
    int first = count > 0 ? positions[0] : 0;
    XtFree((char *)positions);
    return first;
}

void CBActivate(Widget w, XEvent *event, String *, Cardinal *)
{
    Widget cb = FindCombo(w);
    if (!cb || Part(cb).comboBoxType == XwkPOPUP_LIST || !ArrowUsable(cb))
        return;
    XwkComboBoxPart &p = Part(cb);
    // A press in an editable text is for the text.
    if (event && event->type == ButtonPress && w == p.text && p.comboBoxType == XwkDROP_DOWN_COMBO_BOX)
        return;
    PopupFromArrow(cb, event);
}

void CBTextActivate(Widget w, XEvent *event, String *, Cardinal *)
{
    Widget cb = FindCombo(w);
    if (!cb)
        return;
    XwkComboBoxPart &p = Part(cb);
    if (p.text && p.comboBoxType == XwkDROP_DOWN_COMBO_BOX) {
        char *value = XmTextGetString(p.text);
        XmString typed = XmStringCreateLocalized(value ? value : (char *)"");
        XtFree(value);
        int found = XmListItemPos(p.list, typed);
        FreeOwnedItem(cb);
        if (found > 0) {
            p.selectedPosition = found;
            p.selectedItem = nullptr;
            XmListSelectPos(p.list, found, False);
            XmStringFree(typed);
        } else {
            p.selectedPosition = 0;
            p.selectedItem = p.ownedItem = typed;
            XmListDeselectAllItems(p.list);
        }
    }
    CallList(cb, p.selectionCallback, XmCR_ACTIVATE, event);
    CallList(cb, p.activateCallback, XmCR_ACTIVATE, event);
    if (event && (event->xkey.state & ControlMask)) {
        XmParentProcessDataRec data;
        data.input_action.process_type = XmINPUT_ACTION;
        data.input_action.event = event;
        data.input_action.action = XmPARENT_ACTIVATE;
        data.input_action.params = nullptr;
        data.input_action.num_params = nullptr;
        _XmParentProcess(XtParent(cb), &data);
    }
}

void CBCancel(Widget w, XEvent *, String *, Cardinal *)
{
    if (Widget cb = FindCombo(w))
        Popdown(cb);
}

void CBListAction(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    Widget cb = FindCombo(w);
    if (!cb || !ArrowUsable(cb))
        return;
    XwkComboBoxPart &p = Part(cb);
    for (Cardinal i = 0; i < *num_params; i++) {
        const char *name = params[i];
        int selected = p.list ? SelectedInList(p.list) : 0;
        int index = -1;
        if (!strcasecmp(name, "Up")) {
            if (!selected)
                index = 0;
            else if (selected - 1 > 0)
                index = selected - 2;
        } else if (!strcasecmp(name, "Down")) {
            if (!selected)
                index = 0;
            else if (selected < p.itemCount)
                index = selected;
        } else if (!strcasecmp(name, "ListBeginData")) {
            index = 0;
        } else if (!strcasecmp(name, "ListEndData")) {
            index = p.itemCount - 1;
        } else if (!strcasecmp(name, "ListEnter")) {
            if (p.flags & XwkCB_LIST_PRESS) {
                XtCallActionProc(p.list, "ListEnter", event, nullptr, 0);
                XtCallActionProc(p.list, "ListKbdBeginSelect", event, nullptr, 0);
            }
            return;
        } else if (!strcasecmp(name, "ListLeave")) {
            if (p.flags & XwkCB_LIST_PRESS)
                XtCallActionProc(p.list, "ListLeave", event, nullptr, 0);
            return;
        } else {
            continue;
        }
        if (index >= 0 && index < p.itemCount)
            SelectPosition(cb, index + 1, p.comboBoxType != XwkDROP_DOWN_COMBO_BOX, event);
        return;
    }
}

void CBListScroll(Widget w, XEvent *, String *params, Cardinal *num_params)
{
    Widget cb = FindCombo(w);
    if (!cb || *num_params < 1)
        return;
    Widget sb = nullptr;
    XtVaGetValues(XtParent(Part(cb).list), XmNverticalScrollBar, &sb, NULL);
    if (!sb || !XtIsManaged(sb))
        return;
    int value, slider, increment, page, maximum;
    XtVaGetValues(sb, XmNvalue, &value, XmNsliderSize, &slider, XmNincrement, &increment,
                  XmNpageIncrement, &page, XmNmaximum, &maximum, NULL);
    int n = *num_params > 1 ? atoi(params[1]) : 0;
    int page_step = n > 0 ? page - page / n : page;
    const char *name = params[0];
    if (!strcasecmp(name, "PageUp"))
        value -= page_step;
    else if (!strcasecmp(name, "PageDown"))
        value += page_step;
    else if (!strcasecmp(name, "Up"))
        value -= increment;
    else if (!strcasecmp(name, "Down"))
        value += increment;
    else
        return;
    value = std::clamp(value, 0, std::max(0, maximum - slider));
    XmScrollBarSetValues(sb, value, slider, increment, page, True);
}

}  // namespace

XtActionsRec actions[] = {
    {(String) "CBActivate", CBActivate},
    {(String) "CBTextActivate", CBTextActivate},
    {(String) "CBCancel", CBCancel},
    {(String) "CBListAction", CBListAction},
    {(String) "CBListScroll", CBListScroll},
};
const Cardinal num_actions = XtNumber(actions);

void ParseTranslations()
{
    list_table = XtParseTranslationTable(list_translations);
    text_table = XtParseTranslationTable(text_translations);
    arrow_table = XtParseTranslationTable(arrow_translations);
}

XtTranslations ListTranslations() { return list_table; }
XtTranslations TextTranslations() { return text_table; }
XtTranslations ArrowTranslations() { return arrow_table; }

void FreeOwnedItem(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (!p.ownedItem)
        return;
    if (p.selectedItem == p.ownedItem)
        p.selectedItem = nullptr;
    XmStringFree(p.ownedItem);
    p.ownedItem = nullptr;
}

void ShowSelection(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (p.comboBoxType == XwkPOPUP_LIST || !p.text)
        return;
    XmString item = CurrentItem(w);
    char *want = FirstText(item);
    char *have = XmTextGetString(p.text);
    if (!have || std::strcmp(have, want ? want : "") != 0) {
        XmTextSetString(p.text, want ? want : (char *)"");
        if (p.comboBoxType == XwkDROP_DOWN_COMBO_BOX)
            XmTextSetInsertionPosition(p.text, XmTextGetLastPosition(p.text));
    }
    XtFree(have);
    XtFree(want);
}

void SelectAgain(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (!p.list)
        return;
    XmListDeselectAllItems(p.list);
    if (p.selectedItem) {
        int pos = XmListItemPos(p.list, p.selectedItem);
        if (pos > 0) {
            p.selectedPosition = pos;
            XmListSelectPos(p.list, pos, False);
        }
    } else if (p.selectedPosition >= 1 && p.selectedPosition <= p.itemCount) {
        XmListSelectPos(p.list, p.selectedPosition, False);
    }
    ShowSelection(w);
}

void CallSelection(Widget w, int reason, XEvent *event)
{
    CallList(w, Part(w).selectionCallback, reason, event);
}

void ListDefaultAction(Widget, XtPointer closure, XtPointer call_data)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    XmListCallbackStruct *cbs = (XmListCallbackStruct *)call_data;
    FreeOwnedItem(w);
    p.selectedItem = nullptr;
    p.selectedPosition = cbs->item_position;
    ShowSelection(w);
    if (cbs->reason == XmCR_DEFAULT_ACTION)
        Popdown(w);
    if (!ShellIsUp(w))
        CallSelection(w, XwkCR_COMBO_SELECT, cbs->event);
}

void TextFocus(Widget, XtPointer closure, XtPointer call_data)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    XmAnyCallbackStruct *cbs = (XmAnyCallbackStruct *)call_data;
    p.flags |= XwkCB_TEXT_FOCUS;
    DrawHighlight(w, true);
    CallList(w, p.focusCallback, XmCR_FOCUS, cbs ? cbs->event : nullptr);
    if (cbs && cbs->event && cbs->event->type == FocusIn) {
        Cardinal n = 0;
        _XmManagerFocusIn(w, cbs->event, nullptr, &n);
    }
}

void TextLosingFocus(Widget, XtPointer closure, XtPointer call_data)
{
    Widget w = (Widget)closure;
    XwkComboBoxPart &p = Part(w);
    if (!(p.flags & XwkCB_TEXT_FOCUS))
        return;
    XmAnyCallbackStruct *cbs = (XmAnyCallbackStruct *)call_data;
    p.flags &= ~XwkCB_TEXT_FOCUS;
    CallList(w, p.losingFocusCallback, XmCR_LOSING_FOCUS, cbs ? cbs->event : nullptr);
    // With the shell up, focus only went to the list.
    if (!ShellIsUp(w))
        DrawHighlight(w, false);
    if (cbs && cbs->event && cbs->event->type == FocusOut) {
        Cardinal n = 0;
        _XmManagerFocusOut(w, cbs->event, nullptr, &n);
    }
}

}  // namespace xwk::combo
