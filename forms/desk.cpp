// Desk forms: creation, opening, polling and closing.
#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include "forms_private.h"

#include <Xm/XmP.h>
#include <Xm/BulletinBP.h>
#include <Xm/DialogS.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/MwmUtil.h>
#include <Xm/PanedW.h>
#include <Xm/SashP.h>
#include <X11/Shell.h>

#include <string.h>

#include <string>
#include <unordered_map>

namespace {

const int kFrameMargin = 9;

// Desks not closed yet, and whether their shell still stands.  A handle is
// looked at only when it is known here, so a stale handle is never read,
// and a destroyed shell is never touched after the event that destroyed it.
std::unordered_map<XwkDeskRec *, bool> open_desks;

bool is_valid(XwkDeskRec *desk)
{
    return desk && open_desks.count(desk) && desk->self == desk;
}

bool shell_stands(XwkDeskRec *desk)
{
    auto it = open_desks.find(desk);
    return it != open_desks.end() && it->second;
}

void shell_gone(Widget, XtPointer client_data, XtPointer)
{
    auto it = open_desks.find((XwkDeskRec *)client_data);
    if (it != open_desks.end())
        it->second = false;
}

bool is_app_shell(Widget w)
{
    return w && XtIsApplicationShell(w);
}

// The shell of a desk: the form itself on the first desk of a process.
Widget desk_shell(XwkDeskRec *desk)
{
    return is_app_shell(desk->form) ? desk->form : XtParent(desk->form);
}

struct ParsedTitle {
    std::string title;
    std::string help;
};

// "Name|page#anchor": only the first '|' splits; without one the whole
// string is also the help part.  Only a leading '#' is dropped from the title.
ParsedTitle parse_title(const char *text)
{
    std::string s = text ? text : "";
    ParsedTitle p;
    size_t bar = s.find('|');
    if (bar != std::string::npos) {
        p.title = s.substr(0, bar);
        p.help = s.substr(bar + 1);
    } else {
        p.title = s;
        p.help = s;
    }
    if (!p.title.empty() && p.title[0] == '#')
        p.title.erase(0, 1);
    return p;
}

void close_on_destroy(Widget, XtPointer client_data, XtPointer)
{
    CloseDesk((XwkDeskRec *)client_data);
}

void destroy_form(Widget, XtPointer client_data, XtPointer)
{
    XtDestroyWidget((Widget)client_data);
}

// The window manager's close presses the desk's cancel button.  Motif's
// cancel action acts only while the keyboard focus is inside the board (it
// reads the dynamic cancel button that focus tracking sets); a desk that
// never had the focus gets its cancel button pressed directly, so the close
// works however the manager delivers it.
void cancel_on_delete_window(Widget, XtPointer client_data, XtPointer call_data)
{
    Widget board = (Widget)client_data;
    XEvent *event = call_data ? ((XmAnyCallbackStruct *)call_data)->event : nullptr;
    if (XmIsBulletinBoard(board)) {
        XmBulletinBoardWidget bb = (XmBulletinBoardWidget)board;
        Widget cancel = bb->bulletin_board.cancel_button;
        if (!bb->bulletin_board.dynamic_cancel_button && cancel && XtIsManaged(cancel) &&
            XtIsSensitive(cancel)) {
            XtCallActionProc(cancel, (char *)"ArmAndActivate", event, nullptr, 0);
            return;
        }
    }
    XtCallActionProc(board, (char *)"ManagerParentCancel", event, nullptr, 0);
}

void start_toolkit(const std::string &title)
{
    static char fallback_class[] = "XwkApplication";
    static char *no_args[] = {fallback_class, nullptr};
    static int no_argc = 1;
    // The application class comes from argv[0]; a client that never set the
    // arguments still gets a working application.
    char **argv = xargv ? xargv : no_args;
    int *argc = xargv ? &xargc : &no_argc;
    Widget shell = XtVaAppInitialize(&xwkApp, argv[0], nullptr, 0, argc, argv,
                                     xwkFallbackResources, XtNiconName, title.c_str(),
                                     XtNtitle, title.c_str(), NULL);
    XwkInitialize(xwkApp, shell);
}

Widget create_first_desk(Widget *holder, const std::string &title)
{
    start_toolkit(title);
    *holder = XtVaCreateManagedWidget("", xmFormWidgetClass, xwkTopLevel, NULL);
    return xwkTopLevel;
}

Widget create_top_level_desk(const std::string &title)
{
    const char *translated = smi18n_gettext(title.c_str());
    Widget shell = XtVaCreatePopupShell(
        "", topLevelShellWidgetClass, xwkTopLevel,
        XmNmwmDecorations, MWM_DECOR_BORDER | MWM_DECOR_TITLE,
        XmNmwmFunctions, MWM_FUNC_MOVE | MWM_FUNC_CLOSE, XtNtitle, translated,
        XtNallowShellResize, True, XmNdeleteResponse, XmDO_NOTHING, NULL);
    Widget form = XtVaCreateWidget("", xmFormWidgetClass, shell, XmNshadowThickness, 3, NULL);
    XtAddCallback(shell, XtNdestroyCallback, destroy_form, form);
    return form;
}

Widget create_dialog_desk(Widget parent, const std::string &title)
{
    const char *translated = smi18n_gettext(title.c_str());
    Arg args[3];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdialogStyle, XmDIALOG_PRIMARY_APPLICATION_MODAL); n++;
    XtSetArg(args[n], XtNallowShellResize, True); n++;
    XtSetArg(args[n], XmNshadowThickness, 3); n++;
    Widget form = XmCreateFormDialog(XwkGetShell(parent), (char *)"", args, n);
    XtVaSetValues(XtParent(form),
                  XmNmwmDecorations, MWM_DECOR_BORDER | MWM_DECOR_TITLE,
                  XmNmwmFunctions, MWM_FUNC_MOVE | MWM_FUNC_CLOSE, XtNtitle, translated,
                  XmNdeleteResponse, XmDO_NOTHING, NULL);
    return form;
}

void load_help(Widget w, XtPointer, XtPointer)
{
    XwkLoadHelp(w);
}

void create_panes(XwkDeskRec *desk, Widget holder)
{
    desk->panes = XtVaCreateManagedWidget(
        "xwkPanedWindow", xmPanedWindowWidgetClass, holder,
        XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
        XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
        XmNsashWidth, 1, XmNsashHeight, 1, XmNsashIndent, -1, NULL);
    XtAddCallback(desk->panes, XmNhelpCallback, load_help, nullptr);
    Widget frame = XtVaCreateWidget("", xmFrameWidgetClass, desk->panes,
                                    XmNshadowThickness, 2, NULL);
    desk->work = XtVaCreateWidget("", xmFormWidgetClass, frame, NULL);
}

bool being_destroyed(Widget w)
{
    return w && w->core.being_destroyed;
}

void split_help(const char *help, std::string *page, std::string *anchor)
{
    std::string s = help;
    size_t hash = s.find('#');
    *page = s.substr(0, hash);
    *anchor = hash == std::string::npos ? "" : s.substr(hash + 1);
}

std::string without_white_space(std::string s)
{
    stpcvt(s.data(), XWK_CVT_ALL_SPACE);
    return s.c_str();
}

void hand_over_help(XwkDeskRec *desk)
{
    if (!desk->help)
        return;
    if (desk->help[0]) {
        std::string page, anchor;
        split_help(desk->help, &page, &anchor);
        page = without_white_space(page);
        anchor = without_white_space(anchor);
        XwkSetHelpData(desk->form, nullptr, page.empty() ? nullptr : page.c_str(),
                       anchor.empty() ? nullptr : anchor.c_str());
    }
    XtFree(desk->help);
    desk->help = nullptr;
}

}  // namespace

bool xwk_desk_is_valid(XwkDeskRec *desk)
{
    return is_valid(desk);
}

void CreateDesk(Widget parent, float x_cm, float y_cm, const char *title, XwkDeskRec **out)
{
    if (!out)
        return;
    XwkDeskRec *desk = (XwkDeskRec *)XtCalloc(1, sizeof *desk);
    if (!desk) {
        *out = nullptr;
        return;
    }
    desk->cancel_index = 1;
    ParsedTitle parsed = parse_title(title);
    desk->help = XtNewString(parsed.help.c_str());
    desk->self = desk;

    Widget holder;
    if (!xwkTopLevel)
        desk->form = create_first_desk(&holder, parsed.title);
    else if (!parent)
        desk->form = holder = create_top_level_desk(parsed.title);
    else
        desk->form = holder = create_dialog_desk(parent, parsed.title);

    open_desks[desk] = true;
    Widget shell = desk_shell(desk);
    // Xt calls destroy callbacks in order: the desk closes while its shell,
    // though being destroyed, can still be read.
    if (!is_app_shell(shell))
        XtAddCallback(shell, XtNdestroyCallback, close_on_destroy, desk);
    XtAddCallback(shell, XtNdestroyCallback, shell_gone, desk);
    // The cancel action goes to the bulletin board that knows the cancel button.
    XwkAddDeleteWindowCallback(shell, cancel_on_delete_window, (XtPointer)holder);

    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    XtVaSetValues(desk->form, XtNx, (Position)x, XtNy, (Position)y, NULL);
    create_panes(desk, holder);
    desk->origin_x = x;
    desk->origin_y = y;
    *out = desk;
}

void OpenDesk(XwkDeskRec *desk)
{
    OpenDeskExt(desk, nullptr, 0);
}

void OpenDeskExt(XwkDeskRec *desk, const char *labels, int count)
{
    if (!is_valid(desk))
        return;
    Widget shell = desk_shell(desk);
    desk->action = XwkCreateActionArea(desk, desk->panes, labels, nullptr, count, desk);
    XtManageChild(desk->action);

    WidgetList children = nullptr;
    Cardinal nchildren = 0;
    XtVaGetValues(desk->panes, XmNchildren, &children, XmNnumChildren, &nchildren, NULL);
    for (Cardinal i = 0; i < nchildren; i++)
        if (XmIsSash(children[i]))
            XtVaSetValues(children[i], XmNtraversalOn, False, NULL);

    Widget frame = XtParent(desk->work);
    int decorations = 0;
    XtVaGetValues(shell, XmNmwmDecorations, &decorations, NULL);
    if (!(decorations & MWM_DECOR_RESIZEH) && desk->extent_w && desk->extent_h)
        XtVaSetValues(frame, XtNwidth, desk->extent_w + kFrameMargin,
                      XtNheight, desk->extent_h + kFrameMargin, NULL);
    XtManageChild(desk->work);
    XtManageChild(frame);

    int min_width = 0;  // WMShell keeps its size hints as int
    Boolean mapped = False;
    XtVaGetValues(shell, XtNminWidth, &min_width, XtNmappedWhenManaged, &mapped, NULL);
    if (mapped)
        XtVaSetValues(shell, XtNmappedWhenManaged, False, NULL);

    if (is_app_shell(desk->form)) {
        XtRealizeWidget(desk->form);
    } else {
        XtManageChild(desk->form);
        if (XtIsTopLevelShell(shell) && !XtIsTransientShell(shell))
            XtRealizeWidget(shell);
    }

    Dimension width = (Dimension)(shell->core.width > min_width ? shell->core.width : min_width);
    XtVaSetValues(desk->form, XtNwidth, width, NULL);
    XtVaSetValues(shell, XtNwidth, width, XtNmappedWhenManaged, mapped, NULL);
    if (mapped) {
        // Xt maps a shell that becomes mapped-when-managed only if it counts
        // as managed, which shells never do; dialog shells map themselves
        // when their form is managed.
        if (is_app_shell(shell))
            XtMapWidget(shell);
        else if (!XtIsTransientShell(shell))
            XtPopup(shell, XtGrabNone);
        ForceUpdate(desk->form);
    }
    hand_over_help(desk);
    desk->result = 0;
    xwkParentWidget = desk->form;
}

void UseDesk(XwkDeskRec *desk, int *out)
{
    if (!out)
        return;
    if (!is_valid(desk) || !shell_stands(desk)) {
        *out = -1;
        return;
    }
    Widget shell = desk_shell(desk);
    Widget above = XtParent(shell);
    if (being_destroyed(shell) || being_destroyed(above)) {
        *out = -1;
        return;
    }
    desk->result = 0;
    XwkAppProcessEvents(xwkApp);
    // The event may have closed the desk or destroyed its shell.
    if (!is_valid(desk) || !shell_stands(desk) || being_destroyed(shell) ||
        being_destroyed(above)) {
        *out = -1;
        return;
    }
    *out = desk->result;
    desk->result = 0;
}

void CloseDesk(XwkDeskRec *desk)
{
    if (!is_valid(desk))
        return;
    bool stands = shell_stands(desk);
    open_desks.erase(desk);
    Widget form = desk->form;
    Widget shell = stands ? desk_shell(desk) : nullptr;
    if (shell) {
        xwkParentWidget = XtParent(shell);
        XtRemoveCallback(shell, XtNdestroyCallback, shell_gone, desk);
        if (!is_app_shell(shell))
            XtRemoveCallback(shell, XtNdestroyCallback, close_on_destroy, desk);
    }
    XtFree((char *)desk->buttons);
    XtFree(desk->help);
    memset(desk, 0, sizeof *desk);
    XtFree((char *)desk);
    if (!shell || being_destroyed(shell) || being_destroyed(xwkParentWidget))
        return;
    if (!is_app_shell(form))
        XtUnmanageChild(form);
    XtDestroyWidget(shell);
}

void GetDeskItemSize(XwkDeskItem *item, float *w_cm, float *h_cm)
{
    if (!item) {
        if (w_cm) *w_cm = 0;
        if (h_cm) *h_cm = 0;
        return;
    }
    pix_cm(item->width, item->height, w_cm, h_cm);
}

void XwkSetParentWidget(Widget w)
{
    xwkParentWidget = w;
}

void createdesk_(Widget *parent, float *x_cm, float *y_cm, const char *title, XwkDeskRec **out)
{
    CreateDesk(parent ? *parent : nullptr, x_cm ? *x_cm : 0, y_cm ? *y_cm : 0, title, out);
}

void opendesk_(XwkDeskRec **desk)
{
    OpenDesk(desk ? *desk : nullptr);
}

void usedesk_(XwkDeskRec **desk, int *out)
{
    UseDesk(desk ? *desk : nullptr, out);
}

void closedesk_(XwkDeskRec **desk)
{
    CloseDesk(desk ? *desk : nullptr);
}

void getdeskitemsize_(XwkDeskItem **item, float *w_cm, float *h_cm)
{
    GetDeskItemSize(item ? *item : nullptr, w_cm, h_cm);
}
