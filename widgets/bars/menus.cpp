// Table-driven menus: menu bars, pull-downs, pop-ups and option menus from
// arrays of XwkMenuItem, and the short help of their entries.
#include "bars.h"

#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Text.h>
#include <Xm/CascadeB.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/RowColumnP.h>
#include <Xm/Separator.h>
#include <Xm/ToggleB.h>
#include <Xm/ToggleBG.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/DrawnB.h>

#include <string.h>
#include <strings.h>

#include <string>
#include <unordered_set>

namespace {

// The saved message text of each window, keyed by the window of its WM
// shell: one entry is armed at a time, so one text per window is enough.
XContext saved_help_context;

XwkMenuButtonRec *record_of(Widget w)
{
    if (!w)
        return nullptr;
    XtPointer rec = nullptr;
    XtVaGetValues(w, XmNuserData, &rec, NULL);
    return (XwkMenuButtonRec *)rec;
}

// The records this file made: XmNuserData of other widgets may hold
// anything.
std::unordered_set<XwkMenuButtonRec *> live_records;

XwkMenuButtonRec *entry_record(Widget w)
{
    XwkMenuButtonRec *rec = record_of(w);
    return rec && live_records.count(rec) ? rec : nullptr;
}

Widget help_target(Widget w, XwkMenuButtonRec *rec)
{
    return rec->status_bar ? rec->status_bar : w;
}

bool saved_help_key(Widget w, Display **dpy, XID *key)
{
    Widget shell = XwkGetWMShell(w);
    if (!shell)
        return false;
    *dpy = XtDisplay(shell);
    *key = XtWindow(shell);
    return true;
}

char *find_saved_help(Display *dpy, XID key)
{
    XPointer text = nullptr;
    if (!saved_help_context || XFindContext(dpy, key, saved_help_context, &text) != 0)
        return nullptr;
    return (char *)text;
}

void drop_saved_help(Display *dpy, XID key)
{
    XtFree(find_saved_help(dpy, key));
    if (saved_help_context)
        XDeleteContext(dpy, key, saved_help_context);
}

// An entry destroyed while armed leaves its help on the label: the saved
// text goes back, without the wait of XwkSetShortHelp, unless the whole
// window goes.
void put_back_saved_help(Widget w, Display *dpy, XID key)
{
    char *saved = find_saved_help(dpy, key);
    Widget label = saved ? xwk_message_label(XwkGetWMShell(w)) : nullptr;
    if (!label)
        return;
    XmString s = XmStringCreateLocalized(saved);
    XtVaSetValues(label, XmNlabelString, s, NULL);
    XmStringFree(s);
}

XmString translated(const char *text)
{
    return XmStringCreateLocalized(smi18n_gettext(text));
}

bool is_help_title(const char *title)
{
    return strcasecmp(title, "Help") == 0 || (*title && strcasecmp(title + 1, "Help") == 0);
}

bool is_option_pulldown(Widget menu)
{
    if (!XmIsRowColumn(menu))
        return false;
    XmRowColumnWidget rc = (XmRowColumnWidget)menu;
    for (int i = 0; i < rc->row_column.postFromCount; i++) {
        Widget from = rc->row_column.postFromList[i];
        if (XmIsRowColumn(from) && RC_Type(from) == XmMENU_OPTION)
            return true;
    }
    return false;
}

bool is_toggle(Widget w)
{
    return XmIsToggleButton(w) || XmIsToggleButtonGadget(w);
}

// The third word of the call data exists only for these classes.
int click_count_of(Widget w, XtPointer call_data)
{
    if (!call_data)
        return 0;
    if (is_toggle(w))
        return ((XmToggleButtonCallbackStruct *)call_data)->set;
    if (XmIsPushButton(w) || XmIsPushButtonGadget(w))
        return ((XmPushButtonCallbackStruct *)call_data)->click_count;
    if (XmIsDrawnButton(w))
        return ((XmDrawnButtonCallbackStruct *)call_data)->click_count;
    return 0;
}

void after_entry_call(Widget w, Widget label)
{
    if (!w) {  // the callback destroyed the entry: short help goes on all the same
        XwkSetShortHelpSensitive(label, True);
        return;
    }
    XwkSetShortHelpSensitive(w, True);
    XwkMenuButtonDisarmCallback(w, nullptr, nullptr);
}

void entry_activated(Widget w, XtPointer closure, XtPointer call_data)
{
    XwkMenuButtonRec *rec = (XwkMenuButtonRec *)closure;
    XmAnyCallbackStruct *call = (XmAnyCallbackStruct *)call_data;
    rec->reason = call ? call->reason : 0;
    rec->event = call ? call->event : nullptr;
    rec->click_count = click_count_of(w, call_data);
    XwkSetShortHelpSensitive(w, False);
    xwk_call_later(w, nullptr, rec->callback, rec->closure, call, rec->click_count, xwk_message_label(w),
                   after_entry_call);
}

}  // namespace

char *XwkCreateString(const char *label, char *mnemonic, char *prefix)
{
    if (mnemonic)
        *mnemonic = 0;
    if (prefix)
        *prefix = 0;
    if (!label)
        return nullptr;
    std::string text = label;
    if (!text.empty() && (text[0] == '-' || text[0] == '*')) {
        if (prefix)
            *prefix = text[0];
        text.erase(0, 1);
    }
    size_t at = text.find_first_of("&_");
    if (at != std::string::npos) {
        if (mnemonic)
            *mnemonic = text.c_str()[at + 1];
        text.erase(at, 1);
    }
    return XtNewString(text.c_str());
}

char *XwkCreateStringSimple(const char *label)
{
    if (!label)
        return nullptr;
    std::string text = label;
    size_t at = text.find_first_of("&_");
    if (at != std::string::npos)
        text.erase(at, 1);
    return XtNewString(text.c_str());
}

void XwkPrepareMenuItem(XwkMenuItem *item, const char *label, const char *short_help,
                        const char *accelerator_text, WidgetClass *widget_class,
                        XtCallbackProc callback, XtPointer closure, XtPointer user,
                        XwkMenuItem *submenu)
{
    if (!item)
        return;
    char prefix = 0;
    *item = XwkMenuItem{};
    item->name = XwkCreateString(label, &item->mnemonic, &prefix);
    if (accelerator_text) {
        item->accelerator = XwkCreateAcc(accelerator_text);
        item->accelerator_text = XwkCreateAccText(accelerator_text);
    }
    item->short_help = XwkCreateStringSimple(short_help);
    item->widget_class = widget_class;
    item->callback = callback;
    item->closure = closure;
    item->user = user;
    item->submenu = submenu;
    if (prefix == '*')
        item->insensitive = 1;
    if (prefix == '-') {
        item->widget_class = &xmSeparatorWidgetClass;
        item->callback = nullptr;
    }
}

Widget XwkCreateMenu(Widget parent, XwkMenu *menu)
{
    if (!menu)
        return nullptr;
    return XwkCreateSubmenu(parent, menu->kind, menu->title, menu->mnemonic, menu->default_index,
                            menu->items);
}

Widget XwkCreateSubmenu(Widget parent, int kind, const char *title, char mnemonic,
                        int default_index, XwkMenuItem *items)
{
    if (!parent)
        return nullptr;
    Widget menu;
    switch (kind) {
    case XwkMENU_BAR:
        menu = XmCreateMenuBar(parent, (String) "xwkMenuBar", nullptr, 0);
        break;
    case XwkMENU_PULLDOWN:
    case XwkMENU_OPTION:
        menu = XmCreatePulldownMenu(parent, (String) "xwkPulldownMenu", nullptr, 0);
        break;
    case XwkMENU_POPUP:
        menu = XmCreatePopupMenu(parent, (String) "xwkPopupMenu", nullptr, 0);
        break;
    default:
        return nullptr;
    }
    Widget result = menu;
    Arg args[3];
    Cardinal n = 0;
    XmString label = title ? translated(title) : nullptr;
    XtSetArg(args[n], XmNsubMenuId, menu); n++;
    if (label) {
        XtSetArg(args[n], XmNlabelString, label); n++;
    }
    if (mnemonic) {
        XtSetArg(args[n], XmNmnemonic, (KeySym)(unsigned char)mnemonic); n++;
    }
    if (kind == XwkMENU_PULLDOWN && title) {
        result = XtCreateManagedWidget(title, xmCascadeButtonWidgetClass, parent, args, n);
        if (is_help_title(title))
            XtVaSetValues(parent, XmNmenuHelpWidget, result, NULL);
    } else if (kind == XwkMENU_OPTION) {
        result = XmCreateOptionMenu(parent, (String) "xwkOptionMenu", args, n);
        XtManageChild(result);
    }
    XmStringFree(label);
    for (int i = 0; items && items[i].name; i++) {
        Widget entry = XwkCreateMenuItem(menu, &items[i]);
        if (kind == XwkMENU_OPTION && i == default_index && entry)
            XtVaSetValues(result, XmNmenuHistory, entry, NULL);
    }
    return result;
}

Widget XwkCreateMenuItem(Widget menu, XwkMenuItem *item)
{
    if (!menu || !item || !item->name)
        return nullptr;
    Arg args[3];
    Cardinal n = 0;
    XmString accelerator_text = nullptr;
    if (item->mnemonic) {
        XtSetArg(args[n], XmNmnemonic, (KeySym)(unsigned char)item->mnemonic); n++;
    }
    if (item->accelerator) {
        accelerator_text = XmStringCreateLocalized(item->accelerator_text ? item->accelerator_text : (char *)"");
        XtSetArg(args[n], XmNaccelerator, item->accelerator); n++;
        XtSetArg(args[n], XmNacceleratorText, accelerator_text); n++;
    }
    Widget w;
    if (!item->submenu) {
        WidgetClass wc = item->widget_class && *item->widget_class ? *item->widget_class : xmPushButtonWidgetClass;
        w = XtCreateManagedWidget(item->name, wc, menu, args, n);
        if (XmIsLabel(w) || XmIsLabelGadget(w)) {
            XmString s = translated(item->name);
            XtVaSetValues(w, XmNlabelString, s, NULL);
            XmStringFree(s);
        }
    } else if (is_option_pulldown(menu)) {
        XmeWarning(menu, (char *)"A submenu inside an option menu is not supported.");
        XmStringFree(accelerator_text);
        return nullptr;
    } else {
        w = XwkCreateSubmenu(menu, XwkMENU_PULLDOWN, item->name, item->mnemonic, item->submenu_default,
                             item->submenu);
        XtSetValues(w, args, n);
    }
    XmStringFree(accelerator_text);
    item->widget = w;
    bool plain_cascade = !item->submenu && (XmIsCascadeButton(w) || XmIsCascadeButtonGadget(w));
    XwkMenuButtonRec *rec = nullptr;
    if (!plain_cascade) {
        rec = (XwkMenuButtonRec *)XtCalloc(1, sizeof *rec);
        rec->user = item->user;
        rec->short_help = item->short_help ? XtNewString(item->short_help) : nullptr;
        rec->widget = w;
        live_records.insert(rec);
        XtVaSetValues(w, XmNuserData, rec, NULL);
        XtAddCallback(w, XtNdestroyCallback, XwkMenuButtonDestroyCallback, nullptr);
    }
    if (item->insensitive == 1)
        XtSetSensitive(w, False);
    if (item->callback && rec) {
        rec->callback = item->callback;
        rec->closure = item->closure;
        XtAddCallback(w, is_toggle(w) ? XmNvalueChangedCallback : XmNactivateCallback, entry_activated, rec);
    }
    if (XtHasCallbacks(w, XmNarmCallback) != XtCallbackNoList)
        XtAddCallback(w, XmNarmCallback, XwkMenuButtonArmCallback, nullptr);
    if (XtHasCallbacks(w, XmNdisarmCallback) != XtCallbackNoList)
        XtAddCallback(w, XmNdisarmCallback, XwkMenuButtonDisarmCallback, nullptr);
    return w;
}

void XwkMenuItemsSetClosure(XwkMenuItem *items, XtPointer closure)
{
    for (int i = 0; items && items[i].name; i++) {
        if (items[i].submenu)
            XwkMenuItemsSetClosure(items[i].submenu, closure);
        else
            items[i].closure = closure;
    }
}

void XwkSetStatusBarForMenu(Widget entry, Widget status)
{
    if (XwkMenuButtonRec *rec = entry_record(entry))
        rec->status_bar = status;
}

Widget XwkCreateMessageArea(Widget parent)
{
    if (!parent)
        return nullptr;
    Widget frame = XtVaCreateManagedWidget("xwkMessageArea", xmFrameWidgetClass, parent, XmNshadowType,
                                           XmSHADOW_OUT, NULL);
    Widget label = XtVaCreateManagedWidget("Ready", xmLabelWidgetClass, frame, XmNalignment,
                                           XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, NULL);
    XwkSetShortHelpSensitive(label, True);
    return frame;
}

void XwkMenuButtonArmCallback(Widget w, XtPointer, XtPointer)
{
    if (!w || w->core.being_destroyed || !XwkGetShortHelpSensitive(w))
        return;
    XwkMenuButtonRec *rec = entry_record(w);
    if (!rec || !rec->short_help)
        return;
    Display *dpy;
    XID key;
    if (!saved_help_key(w, &dpy, &key))
        return;
    if (!saved_help_context)
        saved_help_context = XUniqueContext();
    Widget target = help_target(w, rec);
    // A text saved already is the window's own: the entry armed before
    // this one has not put it back yet.
    if (!find_saved_help(dpy, key))
        XSaveContext(dpy, key, saved_help_context, (XPointer)XwkGetShortHelp(target));
    XwkSetShortHelp(target, rec->short_help);
}

void XwkMenuButtonDisarmCallback(Widget w, XtPointer, XtPointer)
{
    if (!w || !saved_help_context || !XwkGetShortHelpSensitive(w))
        return;
    XwkMenuButtonRec *rec = entry_record(w);
    Display *dpy;
    XID key;
    if (!rec || !saved_help_key(w, &dpy, &key))
        return;
    char *saved = find_saved_help(dpy, key);
    if (!saved)
        return;
    XDeleteContext(dpy, key, saved_help_context);
    XwkSetShortHelp(help_target(w, rec), saved);
    XtFree(saved);
}

// The context itself stays: a new one would strand, unfreed, the texts
// still saved on other windows.
void XwkMenuButtonDestroyCallback(Widget w, XtPointer, XtPointer)
{
    Display *dpy;
    XID key;
    if (saved_help_context && saved_help_key(w, &dpy, &key)) {
        put_back_saved_help(w, dpy, key);
        drop_saved_help(dpy, key);
    }
    XwkMenuButtonRec *rec = entry_record(w);
    if (!rec)
        return;
    live_records.erase(rec);
    XtFree(rec->short_help);
    XtFree((char *)rec);
}

void XwkMenuFreeSavedShortHelp(Widget w)
{
    Display *dpy;
    XID key;
    if (w && saved_help_context && saved_help_key(w, &dpy, &key))
        drop_saved_help(dpy, key);
}
