// Input of the desk list: keys, the wheel and scroll actions, focus and
// crossing, activation, help, the popup menu, the drag protocol of button
// 1 and 2, and the translations and action table.
#include "widgets/desk/desk.h"
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/Display.h>
#include <Xm/ScrollBar.h>
#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <strings.h>

using namespace xwk::desk;
using xwk::tree::Btn1Transfer;
using xwk::tree::OtherButtonDown;

namespace {

// One step of a key: the old current unmarked, the new one stored, brought
// into view and marked unless the scroll did that.
void MoveTo(Widget w, XwkListNode *node)
{
    XmPrjDeskPart &m = M(w);
    if (m.current)
        MarkOnViews(w, m.current, false);
    m.current = node;
    if (!KeepVisible(w, true))
        MarkOnViews(w, node, true);
}

void ScrollAndSetBar(Widget w, int top)
{
    ScrollToRow(w, top);
    SetBarValue(w, P(w).topRow);
}

int ColumnOf(Widget w, XwkListNode *node)
{
    return node->index % std::max(P(w).columns, 1);
}

// Moves the current item by key code; true when it moved.
bool KeyMove(Widget w, char code)
{
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    XwkListNode *node = m.current;
    int count = Count(w);
    int index = node->index;
    switch (code) {
    case '1': {
        if ((index == 0 && d.columns == 1) || index - d.columns < 0)
            return false;
        XwkListNode *n = node;
        for (int i = 0; i < d.columns && n->prev; i++)
            n = n->prev;
        MoveTo(w, n);
        return true;
    }
    case '2': {
        if (index + d.columns >= count)
            return false;
        XwkListNode *n = node;
        for (int i = 0; i < d.columns && n->next; i++)
            n = n->next;
        MoveTo(w, n);
        return true;
    }
    case 'l':
        if (!node->prev)
            return false;
        MoveTo(w, node->prev);
        return true;
    case 'r':
        if (!node->next)
            return false;
        MoveTo(w, node->next);
        return true;
    case '5':
        MoveTo(w, NodeAt(w, 0));
        if (d.topRow != 0)
            ScrollAndSetBar(w, 0);
        return true;
    case '6':
        MoveTo(w, NodeAt(w, count - 1));
        if (d.topRow + d.visibleRows < d.totalRows)
            ScrollAndSetBar(w, d.totalRows + 1 - d.visibleRows);
        return true;
    case '3': {
        if (d.totalRows < d.visibleRows || d.topRow <= d.visibleRows)
            return KeyMove(w, '5');
        int col = ColumnOf(w, node);
        MarkOnViews(w, node, false);
        int step = d.visibleRows > 1 ? d.visibleRows - 1 : d.visibleRows;
        ScrollAndSetBar(w, std::max(0, d.topRow - step));
        XwkListNode *n = NodeAt(w, (d.topRow + d.visibleRows - 1) * d.columns + col);
        m.current = n ? n : NodeAt(w, 0);
        MarkOnViews(w, m.current, true);
        return true;
    }
    case '4': {
        if (d.topRow + d.visibleRows >= d.totalRows)
            return KeyMove(w, '6');
        int col = ColumnOf(w, node);
        MarkOnViews(w, node, false);
        int step = d.visibleRows > 1 ? d.visibleRows - 1 : d.visibleRows;
        int top = std::min(d.topRow + step, std::max(0, d.totalRows - d.visibleRows));
        ScrollAndSetBar(w, top);
        XwkListNode *n = NodeAt(w, d.topRow * d.columns + col);
        m.current = n ? n : NodeAt(w, count - 1);
        MarkOnViews(w, m.current, true);
        return true;
    }
    default:
        return false;
    }
}

void KbdKey(Widget w, char code, XEvent *event)
{
    XmPrjDeskPart &m = M(w);
    if (code == 'n' || code == 'p') {
        XmProcessTraversal(w, code == 'n' ? XmTRAVERSE_NEXT_TAB_GROUP : XmTRAVERSE_PREV_TAB_GROUP);
        return;
    }
    if (!m.items || Count(w) < 2 || !m.current)
        return;
    if (m.selectedCount > 1)
        DeselectAll(w);
    XwkListNode *old = m.current;
    bool moved = KeyMove(w, code);
    if (!Alive(w))
        return;
    if (old && Item(old) && Selectable(Item(old)) && Selected(Item(old))) {
        Item(old)->flags &= ~XmDESK_ITEM_SELECTED;
        DrawItem(w, old);
    }
    if (!m.current)
        m.current = old;
    XmPrjDeskItem item = Item(m.current);
    if (item && Selectable(item)) {
        item->flags |= XmDESK_ITEM_SELECTED;
        m.selectedCount = 1;
        DrawItem(w, m.current);
    }
    RefreshSelected(w);
    if (moved)
        CallCurrent(w, m.selectionChanged, XmCR_SINGLE_SELECT, event);
}

void CancelDragTimer(Widget w)
{
    XmPrjDeskPart &d = P(w);
    if (d.dragTimer)
        XtRemoveTimeOut(d.dragTimer);
    d.dragTimer = 0;
}

void StartDrag(Widget w, XEvent *event)
{
    XmPrjDeskPart &m = M(w);
    CancelDragTimer(w);
    if (!m.startDragCallback || !event)
        return;
    if ((event->type == ButtonPress || event->type == ButtonRelease) && OtherButtonDown(event))
        return;
    int x = event->type == MotionNotify ? event->xmotion.x : event->xbutton.x;
    int y = event->type == MotionNotify ? event->xmotion.y : event->xbutton.y;
    XwkListNode *node = ItemAt(w, x, y);
    if (node)
        Call(w, m.startDragCallback, XmCR_TREE_START_DRAG, event, node, true);
}

void DragTimerFired(XtPointer closure, XtIntervalId *)
{
    auto w = (Widget)closure;
    XmPrjDeskPart &d = P(w);
    d.dragTimer = 0;
    if (!Alive(w))
        return;
    XEvent saved = d.dragEvent;
    StartDrag(w, &saved);
}

XtActionProc FindAction(const char *name);

void RunSaved(Widget w)
{
    XmPrjDeskPart &d = P(w);
    XEvent saved = d.dragEvent;
    if (d.dragAction) {
        Cardinal zero = 0;
        d.dragAction(w, &saved, nullptr, &zero);
    }
}

void PaintFocusChange(Widget w)
{
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    if (!(d.stateFlags & XmDESK_RESIZED)) {
        if (m.selectedCount) {
            d.stateFlags |= XmDESK_SELECTED_ONLY;
            Repaint(w, 0, 0, w->core.width, w->core.height);
            d.stateFlags &= ~XmDESK_SELECTED_ONLY;
        }
        Mark(w, m.current, true);
    }
}

}  // namespace

namespace xwk::desk {

void DeskKbdKey(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w) || !num_params || *num_params < 1 || !params[0])
        return;
    KbdKey(w, params[0][0], event);
}

void DeskScroll(Widget w, XEvent *, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w) || !num_params || *num_params < 1 || !params[0])
        return;
    Widget bar = P(w).scrollBar;
    if (!bar || !XtIsManaged(bar))
        return;
    int value = 0, maximum = 0, slider = 0, increment = 1, page = 1;
    XtVaGetValues(bar, XmNvalue, &value, XmNmaximum, &maximum, XmNsliderSize, &slider,
                  XmNincrement, &increment, XmNpageIncrement, &page, NULL);
    int n = *num_params > 1 && params[1] ? atoi(params[1]) : 0;
    int page_step = n ? page - page / n : page;
    const char *what = params[0];
    if (!strcasecmp(what, "PageUp"))
        value -= page_step;
    else if (!strcasecmp(what, "PageDown"))
        value += page_step;
    else if (!strcasecmp(what, "Up"))
        value -= increment;
    else if (!strcasecmp(what, "Down"))
        value += increment;
    else
        return;
    value = std::max(0, std::min(value, maximum - slider));
    XmScrollBarSetValues(bar, value, slider, increment, page, True);
}

void DeskFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    XmPrjDeskPart &d = P(w);
    auto *pw = (XmPrimitiveWidget)w;
    if (pw->primitive.traversal_on && _XmGetFocusPolicy(w) == XmEXPLICIT && event &&
        event->xfocus.send_event && !d.hasFocus) {
        d.hasFocus = True;
        PaintFocusChange(w);
        CallCurrent(w, M(w).focusCallback, XmCR_FOCUS, event);
        if (!Alive(w))
            return;
    }
    _XmPrimitiveFocusIn(w, event, params, num_params);
}

void DeskFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    XmPrjDeskPart &d = P(w);
    if (d.hasFocus) {
        d.hasFocus = False;
        PaintFocusChange(w);
        CallCurrent(w, M(w).losingFocusCallback, XmCR_LOSING_FOCUS, event);
        if (!Alive(w))
            return;
    }
    _XmPrimitiveFocusOut(w, event, params, num_params);
}

void DeskEnter(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    StopAutoScroll(w);
    auto *pw = (XmPrimitiveWidget)w;
    if (_XmGetFocusPolicy(w) == XmPOINTER && pw->primitive.highlight_on_enter) {
        P(w).hasFocus = True;
        Mark(w, M(w).current, true);
    }
    _XmPrimitiveEnter(w, event, params, num_params);
}

void DeskLeave(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    DeskLeaveBand(w);
    auto *pw = (XmPrimitiveWidget)w;
    if (_XmGetFocusPolicy(w) == XmPOINTER && pw->primitive.highlight_on_enter) {
        P(w).hasFocus = False;
        Mark(w, M(w).current, true);
    }
    _XmPrimitiveLeave(w, event, params, num_params);
}

void DeskActivate(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    XmPrjDeskPart &m = M(w);
    if (m.current) {
        Call(w, m.defaultActionCallback, XmCR_DEFAULT_ACTION, event, m.current, true);
        return;
    }
    XmParentInputActionRec data;
    data.process_type = XmINPUT_ACTION;
    data.event = event;
    data.action = XmPARENT_ACTIVATE;
    data.params = params;
    data.num_params = num_params;
    Widget parent = XtParent(w);
    if (parent && XmIsManager(parent))
        _XmParentProcess(parent, (XmParentProcessData)&data);
}

void DeskHelp(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    DeskEndSelect(w, event, params, num_params);
    _XmPrimitiveHelp(w, event, params, num_params);
}

void DeskPopupMenu(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    Widget menu = P(w).menuWidget;
    if (!menu || !event || event->type != ButtonPress)
        return;
    XmMenuPosition(menu, &event->xbutton);
    XtManageChild(menu);
}

void DeskProcessDrag(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w) || !event)
        return;
    StartDrag(w, event);
}

void DeskProcessBtn1(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w) || !event || !num_params || *num_params != 1)
        return;
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    XtEnum transfer = Btn1Transfer(w);
    if (transfer == 0) {
        XtCallActionProc(w, params[0], event, nullptr, 0);
        return;
    }
    if (transfer > 2)
        return;
    bool filter = d.dragTimer != 0;
    if (!filter && event->type == ButtonPress && m.startDragCallback) {
        XwkListNode *node = ItemAt(w, event->xbutton.x, event->xbutton.y);
        filter = node && (node == m.current || Selected(Item(node)));
    }
    if (!filter) {
        XtCallActionProc(w, params[0], event, nullptr, 0);
        return;
    }
    if (event->type == ButtonPress && !d.dragTimer) {
        if (OtherButtonDown(event))
            return;
        d.dragEvent = *event;
        d.dragAction = FindAction(params[0]);
        d.dragTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                      XtGetMultiClickTime(XtDisplay(w)), DragTimerFired,
                                      (XtPointer)w);
        return;
    }
    if (event->type == MotionNotify) {
        int dx = std::abs(event->xmotion.x_root - d.dragEvent.xbutton.x_root);
        int dy = std::abs(event->xmotion.y_root - d.dragEvent.xbutton.y_root);
        if (dx >= 4 || dy >= 4) {
            XEvent saved = d.dragEvent;
            StartDrag(w, &saved);
        }
        return;
    }
    if (event->type == ButtonRelease || event->type == ButtonPress) {
        CancelDragTimer(w);
        RunSaved(w);
        if (!Alive(w))
            return;
        XtCallActionProc(w, params[0], event, nullptr, 0);
    }
}

void DeskProcessBtn2(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsDesk(w) || !Alive(w) || !event || !num_params || *num_params != 1)
        return;
    if (P(w).dragTimer) {
        CancelDragTimer(w);
        return;
    }
    XtEnum transfer = Btn1Transfer(w);
    if (transfer == 1) {
        XtCallActionProc(w, params[0], event, nullptr, 0);
        return;
    }
    if ((transfer == 0 || transfer == 2) && event->type == ButtonPress)
        StartDrag(w, event);
}

XtActionsRec actions[17] = {
    {(String) "DeskKbdKey", DeskKbdKey},
    {(String) "DeskScroll", DeskScroll},
    {(String) "DeskButtonMotion", DeskButtonMotion},
    {(String) "DeskBeginSelect", DeskBeginSelect},
    {(String) "DeskEndSelect", DeskEndSelect},
    {(String) "DeskBeginToggle", DeskBeginToggle},
    {(String) "DeskEndToggle", DeskEndToggle},
    {(String) "DeskFocusIn", DeskFocusIn},
    {(String) "DeskFocusOut", DeskFocusOut},
    {(String) "DeskEnter", DeskEnter},
    {(String) "DeskLeave", DeskLeave},
    {(String) "DeskActivate", DeskActivate},
    {(String) "DeskHelp", DeskHelp},
    {(String) "DeskProcessDrag", DeskProcessDrag},
    {(String) "DeskProcessBtn1", DeskProcessBtn1},
    {(String) "DeskProcessBtn2", DeskProcessBtn2},
    {(String) "DeskPopupMenu", DeskPopupMenu},
};

const char default_translations[] =
    "~c ~s ~m ~a <Btn1Down>: DeskProcessBtn1(DeskBeginSelect)\n"
    "<Btn1Motion>: DeskProcessBtn1(DeskButtonMotion)\n"
    "c ~s ~m ~a <Btn1Down>: DeskProcessBtn1(DeskBeginToggle)\n"
    "c ~s ~m ~a <Btn1Up>: DeskProcessBtn1(DeskEndToggle)\n"
    "<Btn1Up>: DeskProcessBtn1(DeskEndSelect)\n"
    "<Btn2Down>: DeskProcessDrag()\n"
    "c ~s ~m ~a <Btn4Down>: DeskScroll(PageUp)\n"
    "c ~s ~m ~a <Btn5Down>: DeskScroll(PageDown)\n"
    "s ~m ~a <Btn4Down>: DeskScroll(Up)\n"
    "s ~m ~a <Btn5Down>: DeskScroll(Down)\n"
    "~c ~s ~m ~a <Btn4Down>: DeskScroll(PageUp,2)\n"
    "~c ~s ~m ~a <Btn5Down>: DeskScroll(PageDown,2)\n"
    "<Key>Tab: DeskKbdKey(n)\n"
    "Shift<Key>Tab: DeskKbdKey(p)\n"
    "<Key>osfUp: DeskKbdKey(1)\n"
    "<Key>osfDown: DeskKbdKey(2)\n"
    "<Key>osfLeft: DeskKbdKey(l)\n"
    "<Key>osfRight: DeskKbdKey(r)\n"
    "~c <Key>osfPageUp: DeskKbdKey(3)\n"
    "~c <Key>osfPageDown: DeskKbdKey(4)\n"
    "c <Key>osfBeginLine: DeskKbdKey(5)\n"
    "c <Key>osfEndLine: DeskKbdKey(6)\n"
    "<Key>osfBeginLine: DeskKbdKey(7)\n"
    "<Key>osfEndLine: DeskKbdKey(8)\n"
    "~s ~m ~a <Key>Return: DeskActivate()\n"
    "<Key>osfHelp: DeskHelp()\n"
    "<FocusIn>: DeskFocusIn()\n"
    "<FocusOut>: DeskFocusOut()\n"
    "<Enter>: DeskEnter()\n"
    "<Leave>: DeskLeave()\n"
    "<Key>osfCancel: PrimitiveParentCancel()";

}  // namespace xwk::desk

namespace {

// Xt compiles a class's action list in place, names turned into quarks,
// so the names are looked up here rather than in that list.
XtActionProc FindAction(const char *name)
{
    static const struct {
        const char *name;
        XtActionProc proc;
    } named[] = {
        {"DeskButtonMotion", DeskButtonMotion}, {"DeskBeginSelect", DeskBeginSelect},
        {"DeskEndSelect", DeskEndSelect},       {"DeskBeginToggle", DeskBeginToggle},
        {"DeskEndToggle", DeskEndToggle},
    };
    for (const auto &a : named)
        if (strcmp(a.name, name) == 0)
            return a.proc;
    return nullptr;
}

}  // namespace
