// The folder's input: the action procedures of its translations, the
// repeat of a held arrow, and the popup list of pages.
#include "widgets/folder/folder.h"

#include <Xwk/ComboBox.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace xwk::folder {

namespace {

const unsigned long kRepeatDelay = 250;  // ms before a held arrow repeats
const unsigned long kRepeatStep = 100;   // ms between repeats

bool PointerOf(XEvent *event, int *x, int *y)
{
    if (!event)
        return false;
    switch (event->type) {
    case ButtonPress:
    case ButtonRelease:
        *x = event->xbutton.x;
        *y = event->xbutton.y;
        return true;
    case KeyPress:
    case KeyRelease:
        *x = event->xkey.x;
        *y = event->xkey.y;
        return true;
    case MotionNotify:
        *x = event->xmotion.x;
        *y = event->xmotion.y;
        return true;
    default:
        return false;
    }
}

// 1 for the left arrow, 2 for the right, 0 for none.
int ArrowAt(Widget w, int x, int y)
{
    XmFolderPart &p = Part(w);
    const XRectangle &box = p.leftArrow;
    if (y < box.y || y >= box.y + (int)box.height)
        return 0;
    if (p.leftArrowShown && x >= p.leftArrow.x && x < p.leftArrow.x + (int)p.leftArrow.width)
        return 1;
    if (p.rightArrowShown && x >= p.rightArrow.x && x < p.rightArrow.x + (int)p.rightArrow.width)
        return 2;
    return 0;
}

// Page number of the visible tab under a point, edges included; 0 none.
int TabAt(Widget w, int x, int y)
{
    XmFolderPart &p = Part(w);
    for (int i = p.topTab - 1; i < p.topTab - 1 + p.visibleTabCount && i < p.pageCount; i++) {
        const XmFolderPage &page = p.pages[i];
        if (x >= page.x && x <= page.x + (int)page.width && y >= page.y && y <= page.y + (int)page.height)
            return i + 1;
    }
    return 0;
}

void ScrollTabs(Widget w, int step)
{
    XmFolderPart &p = Part(w);
    p.topTab = std::clamp(p.topTab + step, 1, LastTopTab(w));
    RedrawStrip(w);
}

void StepPage(Widget w, int step, XEvent *event)
{
    XmFolderPart &p = Part(w);
    int n = p.activePage + step;
    if (p.pageCount > 0 && n >= 1 && n <= p.pageCount)
        ActivateByUser(w, n, event, XmCR_ACTIVATE);
}

bool ShiftHeld(Widget w)
{
    Window root, child;
    int rx, ry, x, y;
    unsigned int mask = 0;
    XQueryPointer(XtDisplay(w), XtWindow(w), &root, &child, &rx, &ry, &x, &y, &mask);
    return mask & ShiftMask;
}

void Repeat(XtPointer closure, XtIntervalId *)
{
    Widget w = (Widget)closure;
    XmFolderPart &p = Part(w);
    p.repeatTimer = 0;
    if (!p.armedArrow)
        return;
    int step = p.armedArrow == 1 ? -1 : 1;
    if (ShiftHeld(w))
        StepPage(w, step, nullptr);
    else
        ScrollTabs(w, step);
    if (p.armedArrow)
        p.repeatTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), kRepeatStep, Repeat, w);
}

void OpenList(Widget w, Position x, Position y)
{
    XmFolderPart &p = Part(w);
    int count = 0;
    XtVaGetValues(p.folderList, XmNitemCount, &count, NULL);
    XtVaSetValues(p.folderList, XmNvisibleItemCount, std::clamp(count, 1, 15), NULL);
    if (p.activePage >= 1 && p.activePage <= p.pageCount)
        XwkComboBoxSetItem(p.folderList, p.pages[p.activePage - 1].label);
    XwkComboBoxPopupList(p.folderList, x, y);
}

void ListChosen(Widget, XtPointer closure, XtPointer call)
{
    Widget w = (Widget)closure;
    XmFolderPart &p = Part(w);
    auto *cbs = (XwkComboBoxCallbackStruct *)call;
    if (!cbs || !cbs->item)
        return;
    for (int i = 0; i < p.pageCount; i++) {
        if (p.pages[i].label && XmStringCompare(p.pages[i].label, cbs->item)) {
            XmFolderSetActivePage(w, p.pages[i].id, True);
            return;
        }
    }
}

void FolderActivate(Widget w, XEvent *, String *, Cardinal *)
{
    XmFolderPart &p = Part(w);
    if (p.savedPage && p.savedPage != p.activePage && p.savedPage <= p.pageCount)
        ChangePage(w, p.savedPage, true);
}

void FolderGoto(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    XmFolderPart &p = Part(w);
    if (!num_params || *num_params != 1)
        return;
    int d = std::atoi(params[0]);
    if (d == 0) {
        if (p.folderList && p.pageCount > 1)
            OpenList(w, 0, 0);
        return;
    }
    if (d >= 1 && d <= p.pageCount)
        ActivateByUser(w, d, event, XmCR_ACTIVATE);
}

void FolderKbdKey(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!num_params || *num_params < 1 || Part(w).pageCount == 0)
        return;
    StepPage(w, params[0][0] == 'p' ? -1 : 1, event);
}

void FolderArm(Widget w, XEvent *event, String *, Cardinal *)
{
    XmFolderPart &p = Part(w);
    int x, y;
    if (p.pageCount == 0 || !p.useTabs || !PointerOf(event, &x, &y))
        return;
    p.pressTime = 0;
    int arrow = ArrowAt(w, x, y);
    if (!arrow) {
        int tab = TabAt(w, x, y);
        if (tab && p.doTraversal && p.autoManage)
            XmProcessTraversal(w, XmTRAVERSE_CURRENT);
        p.armedTab = tab;
        return;
    }
    p.armedArrow = (unsigned char)arrow;
    DrawArrows(w);
    XFlush(XtDisplay(w));
    p.pressTime = event->xbutton.time;
    StopRepeat(w);
    p.repeatTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), kRepeatDelay, Repeat, w);
}

void FolderDisarm(Widget w, XEvent *event, String *, Cardinal *)
{
    XmFolderPart &p = Part(w);
    StopRepeat(w);
    int x = -1, y = -1;
    PointerOf(event, &x, &y);
    if (p.armedArrow) {
        int armed = p.armedArrow;
        bool quick = event && event->type == ButtonRelease && p.pressTime &&
                     event->xbutton.time - p.pressTime < kRepeatDelay;
        p.armedArrow = 0;
        p.pressTime = 0;
        if (quick && ArrowAt(w, x, y) == armed) {
            int step = armed == 1 ? -1 : 1;
            if (event->xbutton.state & ShiftMask)
                StepPage(w, step, event);
            else
                ScrollTabs(w, step);
        }
        RedrawStrip(w);
    }
    int tab = p.armedTab;
    p.armedTab = 0;
    if (tab && TabAt(w, x, y) == tab && tab != p.activePage)
        ActivateByUser(w, tab, event, XmCR_ACTIVATE);
}

void FolderPopupMenu(Widget w, XEvent *event, String *, Cardinal *)
{
    XmFolderPart &p = Part(w);
    int x, y;
    if (p.pageCount < 2 || !p.folderList || !PointerOf(event, &x, &y))
        return;
    if (x < 0 || x > (int)w->core.width || y < 0 || y > (int)p.tabAreaHeight)
        return;
    OpenList(w, (Position)x, (Position)y);
}

// Drags start nowhere in the folder; the action keeps the translation.
void FolderProcessDrag(Widget, XEvent *, String *, Cardinal *) {}

}  // namespace

XtActionsRec actions[] = {
    {(String) "FolderActivate", FolderActivate},
    {(String) "FolderGoto", FolderGoto},
    {(String) "FolderKbdKey", FolderKbdKey},
    {(String) "FolderArm", FolderArm},
    {(String) "FolderDisarm", FolderDisarm},
    {(String) "FolderPopupMenu", FolderPopupMenu},
    {(String) "FolderProcessDrag", FolderProcessDrag},
};
const Cardinal num_actions = XtNumber(actions);

const char translations[] =
    "<Btn1Down>: FolderArm()\n"
    "<Btn1Up>: FolderDisarm()\n"
    "<Btn2Down>: FolderProcessDrag()\n"
    "<Btn3Down>: FolderPopupMenu()\n"
    "c s a <Key>Tab: FolderKbdKey(p)\n"
    "c <Key>minus: FolderKbdKey(p)\n"
    "c a <Key>Tab: FolderKbdKey(n)\n"
    "c <Key>equal: FolderKbdKey(n)\n"
    "c ~s ~m ~a <Key>osfPageUp: FolderKbdKey(p)\n"
    "c ~s ~m ~a <Key>osfPageDown: FolderKbdKey(n)\n"
    "<Key>osfHelp: Help()\n"
    "<Key>osfCancel: ManagerParentCancel()\n"
    "c ~s ~m ~a <Key>0: FolderGoto(0)\n"
    "c ~s ~m ~a <Key>1: FolderGoto(1)\n"
    "c ~s ~m ~a <Key>2: FolderGoto(2)\n"
    "c ~s ~m ~a <Key>3: FolderGoto(3)\n"
    "c ~s ~m ~a <Key>4: FolderGoto(4)\n"
    "c ~s ~m ~a <Key>5: FolderGoto(5)\n"
    "c ~s ~m ~a <Key>6: FolderGoto(6)\n"
    "c ~s ~m ~a <Key>7: FolderGoto(7)\n"
    "c ~s ~m ~a <Key>8: FolderGoto(8)\n"
    "c ~s ~m ~a <Key>9: FolderGoto(9)";

void RegisterGrabActions()
{
    const unsigned int mask = ButtonPressMask | ButtonReleaseMask;
    XtRegisterGrabAction(FolderKbdKey, True, mask, GrabModeAsync, GrabModeAsync);
    XtRegisterGrabAction(FolderGoto, True, mask, GrabModeAsync, GrabModeAsync);
}

void GrabPageKeys(Widget w)
{
    Display *dpy = XtDisplay(w);
    for (KeySym sym : {XK_Prior, XK_Next}) {
        KeyCode code = XKeysymToKeycode(dpy, sym);
        if (code)
            XtGrabKey(w, code, ControlMask, True, GrabModeAsync, GrabModeAsync);
    }
}

void StopRepeat(Widget w)
{
    XmFolderPart &p = Part(w);
    if (p.repeatTimer)
        XtRemoveTimeOut(p.repeatTimer);
    p.repeatTimer = 0;
}

void MakeFolderList(Widget w)
{
    Arg args[1];
    XtSetArg(args[0], XmNcomboBoxType, XwkPOPUP_LIST);
    XmFolderPart &p = Part(w);
    p.folderList = XwkCreateComboBox(w, (String) "folderList", args, 1);
    XtAddCallback(p.folderList, XmNselectionCallback, ListChosen, w);
}

}  // namespace xwk::folder
