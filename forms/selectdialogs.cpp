// The selection dialogs: a modal desk with a tree list from which the user
// picks one item, or several.
#include <Xwk/Desk.h>
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>
#include <Xwk/PrjTree.h>
#include <Xwk/Text.h>
#include <Xwk/Windows.h>

#include <Xm/XmP.h>
#include <Xm/Frame.h>
#include <Xm/MwmUtil.h>
#include <X11/cursorfont.h>

#include <cstdio>
#include <string>

namespace {

const float kDeskPosition = 5.0f;
const int kOffset = 5;
const int kVisibleLines = 6;
const int kListWidth = 200;

// Pictures of the title button: all rows chosen, and none.
const char *all_picture[] = {
    "11 11 2 1", "  c None", ". c #000000",
    "...........", ".         .", ".        ..", ".       . .", ". .    .  .",
    ".  .  .   .", ".   ..    .", ".    .    .", ".         .", ".         .", "..........."};
const char *none_picture[] = {
    "11 11 2 1", "  c None", ". c #000000",
    "...........", ".         .", ".         .", ".         .", ".         .",
    ".         .", ".         .", ".         .", ".         .", ".         .", "..........."};

Widget shell_of(XwkDeskRec *desk)
{
    return XtIsApplicationShell(desk->form) ? desk->form : XtParent(desk->form);
}

struct Picker {
    XwkDeskRec *desk = nullptr;
    Widget shell = nullptr, tree = nullptr;
    bool chosen = false;
    XwkIcon *all = nullptr, *none = nullptr;
};

void default_action(Widget, XtPointer closure, XtPointer)
{
    ((Picker *)closure)->chosen = true;
}

// The button selects all rows when it shows the "all" picture, otherwise
// deselects them, and then shows the other picture.
void toggle_all(Widget w, XtPointer closure, XtPointer)
{
    Picker *p = (Picker *)closure;
    XwkIcon *shown = XmPrjTreeGetTitleItemButtonIcon(w, 1);
    if (shown == p->all) {
        XmPrjTreeSelectAllItems(w);
        XmPrjTreeSetTitleItemButton(w, 1, p->none, toggle_all, closure);
    } else {
        XmPrjTreeDeselectAllItems(w);
        XmPrjTreeSetTitleItemButton(w, 1, p->all, toggle_all, closure);
    }
}

bool build(Picker *p, Widget widget, const char *title, const char *column_title, char **items,
           int count, Boolean sort, bool multiple)
{
    Widget top = XwkGetWMShell(widget);
    bool waiting = top && XtIsRealized(top);
    if (waiting) {
        if (!xwkWaitCursor)
            xwkWaitCursor = XCreateFontCursor(XtDisplay(top), XC_watch);
        XDefineCursor(XtDisplay(top), XtWindow(top), xwkWaitCursor);
        XFlush(XtDisplay(top));
    }
    CreateDesk(top, kDeskPosition, kDeskPosition, title, &p->desk);
    if (!p->desk) {
        if (waiting)
            XUndefineCursor(XtDisplay(top), XtWindow(top));
        return false;
    }
    p->shell = shell_of(p->desk);
    XtVaSetValues(p->shell, XmNmwmDecorations, MWM_DECOR_ALL, XmNmwmFunctions, MWM_FUNC_ALL,
                  XtNmappedWhenManaged, False, NULL);
    Widget frame = XtVaCreateManagedWidget(
        "frame", xmFrameWidgetClass, p->desk->work, XmNtopAttachment, XmATTACH_FORM,
        XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
        XmNrightAttachment, XmATTACH_FORM, XmNtopOffset, kOffset, XmNbottomOffset, kOffset,
        XmNleftOffset, kOffset, XmNrightOffset, kOffset, NULL);
    Arg args[14];
    Cardinal n = 0;
    XtSetArg(args[n], XmNtitleString, column_title ? column_title : ""); n++;
    XtSetArg(args[n], XmNvisualMode, XmTABLE_LIST); n++;
    XtSetArg(args[n], XmNdelimeter, 0); n++;
    XtSetArg(args[n], XmNcanSlam, False); n++;
    XtSetArg(args[n], XmNtraversalOn, True); n++;
    XtSetArg(args[n], XmNtreeTrunkDrawing, False); n++;
    XtSetArg(args[n], XmNuseSort, sort); n++;
    XtSetArg(args[n], XmNvisibleLines, kVisibleLines); n++;
    XtSetArg(args[n], XmNwidth, kListWidth); n++;
    XtSetArg(args[n], XmNselectCharSet, XmFONTLIST_DEFAULT_TAG); n++;
    if (multiple) {
        XtSetArg(args[n], XmNselectionPolicy, XmMULTIPLE_SELECT); n++;
    }
    p->tree = XmCreateScrolledTreeList(frame, (String) "", args, n);
    if (sort)
        XmPrjTreeSetColumnSortable(p->tree, 1, True);
    for (int i = 0; items && i < count; i++)
        XmPrjTreeAddSimpleItem(p->tree, items[i], (XtPointer)(long)(i + 1));
    if (sort)
        XmPrjTreeSortItems(p->tree, True);
    if (XmPrjTreeNode first = XmPrjTreeGetFirstNode(p->tree))
        XmPrjTreeSetItem(p->tree, first, False);
    XmPrjTreeResizeWindow(p->tree, False);
    XtManageChild(p->tree);
    XtAddCallback(p->tree, XmNdefaultActionCallback, default_action, (XtPointer)p);
    if (multiple) {
        p->all = XwkIconCreateFromData(p->tree, (char **)all_picture);
        p->none = XwkIconCreateFromData(p->tree, (char **)none_picture);
        XmPrjTreeSetTitleItemButton(p->tree, 1, p->none, toggle_all, (XtPointer)p);
        XmPrjTreeSelectAllItems(p->tree);
    }
    p->desk->extent_w = 0;
    p->desk->extent_h = 0;
    OpenDesk(p->desk);
    Dimension w = p->shell->core.width, h = p->shell->core.height;
    XtVaSetValues(p->shell, XtNminWidth, (int)w, XtNminHeight, (int)h, NULL);
    XtMapWidget(p->shell);
    XmProcessTraversal(p->tree, XmTRAVERSE_CURRENT);
    ForceUpdate(p->shell);
    if (waiting)
        XUndefineCursor(XtDisplay(top), XtWindow(top));
    return true;
}

void free_pictures(Picker *p, Widget w)
{
    if (p->all)
        XwkIconFree(w, p->all);
    if (p->none)
        XwkIconFree(w, p->none);
}

}  // namespace

extern "C" {

int XwkSelectItemDialog(Widget widget, const char *title, const char *column_title, char **items,
                        int count, Boolean sort)
{
    Picker p;
    if (!build(&p, widget, title, column_title, items, count, sort, false))
        return 0;
    int pick = 0;
    for (;;) {
        int button = 0;
        UseDesk(p.desk, &button);
        if (button == -1)
            return 0;
        if (button == 1 || p.chosen) {
            XmPrjTreeNode node = XmPrjTreeGetSelectedItem(p.tree);
            pick = node ? (int)(long)XmPrjTreeGetClientData(p.tree, node) : 0;
            break;
        }
        if (button == 2)
            break;
    }
    CloseDesk(p.desk);
    return pick;
}

Boolean XwkSelectListDialog(Widget widget, const char *title, const char *column_title,
                            XtPointer **list, int *count, Boolean sort)
{
    if (!list || !count)
        return False;
    Picker p;
    Widget owner = XwkGetWMShell(widget);
    if (!build(&p, widget, title, column_title, (char **)*list, *count, sort, true))
        return False;
    char *label = XmPrjTreeGetTitleItemLabel(p.tree, 1);
    std::string base = label ? label : "";
    int shown = -1;
    Boolean result = False;
    for (;;) {
        int selected = XmPrjTreeGetSelectedItemsCount(p.tree);
        if (selected != shown) {
            char text[512];
            snprintf(text, sizeof text, smi18n_gettext("%s (%d selected)"), base.c_str(), selected);
            XmPrjTreeSetTitleItemLabel(p.tree, 1, text);
            shown = selected;
        }
        int button = 0;
        UseDesk(p.desk, &button);
        if (button == -1) {
            free_pictures(&p, owner);
            return False;
        }
        if (button == 1 || p.chosen) {
            XtPointer *out = nullptr;
            *count = XmPrjTreeGetSelectedUserList(p.tree, &out);
            *list = out;
            result = True;
            break;
        }
        if (button == 2)
            break;
    }
    CloseDesk(p.desk);
    free_pictures(&p, owner);
    return result;
}

}  // extern "C"
