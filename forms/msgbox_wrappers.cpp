// Thin entry points around condit: standard, printf-like and errno
// messages, boxes with a "don't show again" toggle, and the last resorts.
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include "msgbox_private.h"

#include <Xm/XmP.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>

#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

namespace {

const size_t kPrintfLimit = 1023;

struct DialogType {
    int kind;
    const char *title;
    int buttons;
};

DialogType GetXwkDialogType(int type)
{
    switch (type) {
    case XWK_DIALOG_ERROR: return {1, "Error", 2};
    case XWK_DIALOG_MESSAGE: return {0, "Message", 2};
    case XWK_DIALOG_QUESTION: return {3, "Question", 1};
    case XWK_DIALOG_WARNING: return {4, "Warning", 2};
    default: return {2, "Information", 2};
    }
}

}  // namespace

int XwkShowStdDialog(Widget w, const char *title, const char *text, int type)
{
    DialogType t = GetXwkDialogType(type);
    int result = condit(w, title ? title : t.title, t.kind, smi18n_gettext(text ? text : ""),
                        nullptr, 0, 1, t.buttons);
    return result == 2 ? 0 : result;
}

int XwkShowErrStrDialog(Widget w, const char *title, const char *operation, const char *file,
                        int type)
{
    int error = errno;
    if (!error)
        return 0;
    std::string text = std::string("An error occurred while ") +
                       smi18n_gettext(operation ? operation : "") + "\n^b" + (file ? file : "") +
                       "^b:\n" + strerror(error) + ".";
    XwkShowStdDialog(w, title, text.c_str(), type);
    return error;
}

void XwkShowPrintfDialog(Widget w, const char *title, int type, const char *format, ...)
{
    char text[kPrintfLimit + 1];
    va_list ap;
    va_start(ap, format);
    vsnprintf(text, sizeof text, smi18n_gettext(format ? format : ""), ap);
    va_end(ap);
    XwkShowStdDialog(w, title, text, type);
}

int XwkShowDialogWithToggleExt(Widget w, const char *title, const char *text, const char *toggle,
                               const char *labels, int nlabels, int default_button,
                               Boolean *flag, int type)
{
    static bool active;
    if (active)
        return 0;
    active = true;
    const char *toggle_text =
        smi18n_gettext(toggle ? toggle : "Disable this message for next time");
    // One box at a time: wait until the present one is answered.
    while (xwkConditWidget) {
        Widget shell = XtParent(xwkConditWidget);
        if (XtIsRealized(shell))
            XRaiseWindow(XtDisplay(shell), XtWindow(shell));
        if (XtAppPending(xwkApp))
            XtAppProcessEvent(xwkApp, XtIMAll);
    }
    DialogType t = GetXwkDialogType(type);
    int buttons = nlabels ? XWK_BUTTONS_LABELS : t.buttons;
    int d = default_button < 0 ? -default_button : default_button;
    condit(w, title ? title : t.title, t.kind, text ? text : "", labels, nlabels, -(d ? d : 1),
           -buttons);
    Widget box = xwkConditWidget;
    if (!box || !xwkConditWorkWidget) {
        active = false;
        return -1;
    }
    Widget last = nullptr;
    XtVaGetValues(xwkConditWorkWidget, XmNtopWidget, &last, NULL);
    if (last)
        XtVaSetValues(last, XmNbottomAttachment, XmATTACH_NONE, NULL);
    XmString s = XmStringCreateLocalized((char *)toggle_text);
    Widget check = XtVaCreateManagedWidget(
        "", xmToggleButtonWidgetClass, xwkConditWorkWidget, XmNset, flag && *flag,
        XmNlabelString, s, XmNshadowThickness, 0, XmNrecomputeSize, False, XmNalignment,
        XmALIGNMENT_BEGINNING, NULL);
    XmStringFree(s);
    XtManageChild(xwkConditWorkWidget);
    XtVaSetValues(box, XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL, NULL);
    XtManageChild(box);
    Widget shell = XtParent(box);
    XtVaSetValues(shell, XtNminWidth, (int)shell->core.width, XtNminHeight,
                  (int)shell->core.height, NULL);

    XwkConditCell *cell = xwk_condit_cell(box);
    bool gone = false;
    cell->gone = &gone;
    while (!gone && cell->answer < 0 && !xwk_condit_box_gone(box, &gone))
        XtAppProcessEvent(xwkApp, XtIMAll);
    int result = -1;
    if (!gone && !xwk_condit_box_gone(box, &gone)) {
        cell->gone = nullptr;
        if (flag)
            *flag = XmToggleButtonGetState(check);
        result = cell->answer;
        del_condit();
    } else if (!gone) {
        cell->gone = nullptr;
    }
    active = false;
    return result;
}

Boolean XwkShowDialogWithToggle(Widget w, const char *title, const char *text,
                                const char *toggle, Boolean *flag, int type)
{
    return XwkShowDialogWithToggleExt(w, title, text, toggle, nullptr, 0, 1, flag, type) == 1;
}

void ins_mem(void)
{
    condit(nullptr, "Error", 1, smi18n_gettext("Insufficient memory!"), nullptr, 0, 1, 2);
}

void botch(const char *text)
{
    fprintf(stderr, "Abort: %s\n", text ? text : "");
    abort();
}
