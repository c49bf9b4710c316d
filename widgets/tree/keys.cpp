// Keyboard, wheel, focus, enter and leave, and auto-scroll of the tree
// list, with its default translations.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/ScrollBar.h>

#include <algorithm>
#include <cstdlib>
#include <strings.h>

using namespace xwk::tree;

namespace xwk::tree {

extern const char default_translations[] =
    ":<Key>osfActivate: TreeKbdSelect()\n"
    "~s ~m ~a <Key>Return: TreeKbdSelect()\n"
    ":<Key>osfSelect: TreeChangeSlamState(T)\n"
    "~s ~m ~a <Key>space: TreeChangeSlamState(T)\n"
    ":c <Key>osfUp: TreeChangeSlamState(C)\n"
    ":c <Key>osfDown: TreeChangeSlamState(O)\n"
    ":c <Key>osfLeft: TreeKbdKey(L)\n"
    ":c <Key>osfRight: TreeKbdKey(R)\n"
    ":<Key>osfUp: TreeKbdKey(u)\n"
    ":<Key>osfDown: TreeKbdKey(d)\n"
    ":<Key>osfLeft: TreeKbdKey(l)\n"
    ":<Key>osfRight: TreeKbdKey(r)\n"
    "~c <Key>osfPageUp: TreeKbdKey(U)\n"
    "~c <Key>osfPageDown: TreeKbdKey(D)\n"
    "c <Key>osfBeginLine: TreeKbdKey(t)\n"
    "c <Key>osfEndLine: TreeKbdKey(b)\n"
    ":<Key>osfBeginLine: TreeKbdKey(B)\n"
    ":<Key>osfEndLine: TreeKbdKey(E)\n"
    "s ~m ~a <Key>Tab: TreeKbdKey(p)\n"
    "~m ~a <Key>Tab: TreeKbdKey(n)\n"
    "s ~m ~a <Btn1Down>: TreeProcessBtn1(TreeSelectItems)\n"
    "c ~s ~m ~a <Btn1Down>: TreeProcessBtn1(TreeToggleItem)\n"
    "~c ~s ~m ~a <Btn1Down>: TreeProcessBtn1(TreeBeginSelect)\n"
    "<Btn1Motion>: TreeProcessBtn1(TreeMotion)\n"
    "<Btn1Up>: TreeProcessBtn1(TreeEndSelect)\n"
    "<Btn2Down>: TreeProcessDrag()\n"
    "<Btn3Down>: TreePopupMenu()\n"
    "c ~s ~m ~a <Btn4Down>: TreeScroll(PageUp)\n"
    "c ~s ~m ~a <Btn5Down>: TreeScroll(PageDown)\n"
    "s ~m ~a <Btn4Down>: TreeScroll(Up)\n"
    "s ~m ~a <Btn5Down>: TreeScroll(Down)\n"
    "~c ~s ~m ~a <Btn4Down>: TreeScroll(PageUp,2)\n"
    "~c ~s ~m ~a <Btn5Down>: TreeScroll(PageDown,2)\n"
    "<Key>osfHelp: Help()\n"
    "<Key>osfCancel: ManagerParentCancel()\n"
    "<FocusIn>: TreeFocusIn()\n"
    "<FocusOut>: TreeFocusOut()\n"
    "<Enter>: TreeEnter()\n"
    "<Leave>: TreeLeave()";

}  // namespace xwk::tree

namespace {

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

bool Ready(Widget w)
{
    return IsTree(w) && Alive(w);
}

void ScrollVertical(Widget view, int top)
{
    XmPrjTreePart &v = P(view);
    int count = RowCount(view);
    top = std::max(0, std::min(top, count - v.visibleRows));
    ScrollTo(view, true, top);
    if (v.vScrollBar && XtIsManaged(v.vScrollBar)) {
        XtVaSetValues(v.vScrollBar, XmNvalue, v.topRow, NULL);
        v.lastVScroll = v.topRow;
    }
}

void ScrollHorizontal(Widget view, int x)
{
    XmPrjTreePart &v = P(view);
    int limit = std::max((int)view->core.width, (int)M(view).rowWidth + 2 * Shadow(view)) -
                (int)view->core.width;
    x = std::max(0, std::min(x, limit));
    ScrollTo(view, false, x);
    if (v.hScrollBar && XtIsManaged(v.hScrollBar)) {
        XtVaSetValues(v.hScrollBar, XmNvalue, v.xOrigin, NULL);
        v.lastHScroll = v.xOrigin;
    }
}

// Moves the current row to node as the arrow keys do.  Returns whether it
// moved.
bool MoveTo(Widget w, XwkTreeNode *old, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    if (!node || node == old)
        return false;
    if (old && Item(old))
        PaintPlain(w, old);
    SetCurrent(w, node);
    XmPrjTreeItem item = Item(node);
    if ((item->flags & XmTREE_ITEM_SELECTABLE) && !(item->flags & XmTREE_ITEM_SELECTED)) {
        item->flags |= XmTREE_ITEM_SELECTED;
        m.selectedCount = 1;
    }
    if (MakeVisible(w, node, false, false))
        XmPrjTreeUpdateNode(w, node);
    return true;
}

void KbdKey(Widget w, char letter, XEvent *event)
{
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    m.highlightedNode = nullptr;
    m.highlightedWidget = nullptr;
    if (letter == 'n' || letter == 'p') {
        Widget next = letter == 'n' ? _XmFindNextTabGroup(w) : _XmFindPrevTabGroup(w);
        if (next && XmIsManager(next) && XmIsTraversable(next))
            XmProcessTraversal(next, letter == 'n' ? XmTRAVERSE_NEXT_TAB_GROUP
                                                   : XmTRAVERSE_PREV_TAB_GROUP);
        else
            XmProcessTraversal(w, letter == 'n' ? XmTRAVERSE_NEXT_TAB_GROUP
                                                : XmTRAVERSE_PREV_TAB_GROUP);
        return;
    }
    int count = RowCount(w);
    if (!count)
        return;
    XwkTreeNode *old = m.currentNode;
    bool changed = false;
    if (old && Item(old)) {
        DoPendingRepaint(w);
        XFlush(XtDisplay(w));
        Item(old)->flags &= ~XmTREE_ITEM_SELECTED;
        if (m.selectedCount > 0)
            m.selectedCount--;
        unsigned long stamp = Stamp(w);
        if (m.selectionPolicy == XmMULTIPLE_SELECT && m.selectedCount >= 1)
            XmPrjTreeDeselectAllItems(w);
        if (!Live(w, old, stamp))
            return;
        int amount = PartialRow(w) ? v.visibleRows - 1 : v.visibleRows;
        amount = std::max(amount, 1);
        switch (letter) {
        case 'u': {
            XwkTreeNode *prev = m.canSlam && ElementOf(Item(old)) ? PrevRow(w, old)
                                                                     : XmPrjTreeGetPreviousNode(w, old);
            if (!prev)
                ScrollVertical(w, 0);
            changed = MoveTo(w, old, prev);
            break;
        }
        case 'd': {
            XwkTreeNode *next = m.canSlam && ElementOf(Item(old)) ? NextRow(w, old)
                                                                     : XmPrjTreeGetNextNode(w, old);
            changed = MoveTo(w, old, next);
            break;
        }
        case 'U': {
            int top = v.topRow;
            XwkTreeNode *target = NodeAt(w, top == 0 ? 0 : top - 1);
            ScrollVertical(w, top - amount);
            changed = MoveTo(w, old, target);
            break;
        }
        case 'D': {
            int top = v.topRow;
            int row = std::min(top + v.visibleRows, count - 1);
            XwkTreeNode *target = NodeAt(w, row);
            int new_top = std::min(top + amount, std::max(0, count - v.visibleRows));
            ScrollVertical(w, new_top);
            changed = MoveTo(w, old, target);
            break;
        }
        case 't':
            ScrollVertical(w, 0);
            changed = MoveTo(w, old, NodeAt(w, 0));
            break;
        case 'b':
            ScrollVertical(w, count - v.visibleRows);
            changed = MoveTo(w, old, NodeAt(w, count - 1));
            break;
        case 'l':
        case 'r':
        case 'B':
        case 'E':
            if (TableMode(w)) {
                if (letter == 'B' || letter == 'E')
                    return KbdKey(w, letter == 'B' ? 't' : 'b', event);
                break;
            }
            if (letter == 'l')
                ScrollHorizontal(w, v.xOrigin - m.fontWidth);
            else if (letter == 'r')
                ScrollHorizontal(w, v.xOrigin + m.fontWidth);
            else if (letter == 'B')
                ScrollHorizontal(w, 0);
            else
                ScrollHorizontal(w, 1 << 30);
            break;
        case 'L':
        case 'R':
            if (v.hScrollBar && XtIsManaged(v.hScrollBar)) {
                String one = (String) "1";
                XtCallActionProc(v.hScrollBar, letter == 'L' ? "PageUpOrLeft" : "PageDownOrRight",
                                 event, &one, 1);
            }
            break;
        default:
            break;
        }
    }
    XwkTreeNode *current = m.currentNode;
    if (!current || !Item(current))
        return;
    XmPrjTreeItem item = Item(current);
    if ((item->flags & XmTREE_ITEM_SELECTABLE) && !(item->flags & XmTREE_ITEM_SELECTED)) {
        item->flags |= XmTREE_ITEM_SELECTED;
        m.selectedCount++;
        ClampSelectedCount(w);
        XmPrjTreeUpdateNode(w, current);
    }
    if (changed)
        RaiseSelectionChanged(w, XmCR_SINGLE_SELECT, event, current, XmTREE_PART_ROW);
}

void AutoScrollTick(XtPointer closure, XtIntervalId *);

void ArmAutoScroll(Widget w, bool first)
{
    XmPrjTreePart &v = P(w);
    int delay = 200;
    if (v.vScrollBar) {
        int d = 0;
        XtVaGetValues(v.vScrollBar, first ? XmNinitialDelay : XmNrepeatDelay, &d, NULL);
        if (d > 0)
            delay = d;
    }
    v.autoScrollTimer =
        XtAppAddTimeOut(XtWidgetToApplicationContext(w), delay, AutoScrollTick, (XtPointer)w);
}

void AutoScrollTick(XtPointer closure, XtIntervalId *)
{
    auto w = (Widget)closure;
    XmPrjTreePart &v = P(w);
    v.autoScrollTimer = 0;
    if (!Ready(w) || !XtIsRealized(w))
        return;
    XmPrjTreePart &m = M(w);
    DoPendingRepaint(w);
    Window root, child;
    int rx, ry, x, y;
    unsigned mask;
    if (!XQueryPointer(XtDisplay(w), XtWindow(w), &root, &child, &rx, &ry, &x, &y, &mask))
        return;
    XwkTreeNode *old = m.currentNode;
    if (x >= (int)w->core.width && !TableMode(w)) {
        MakeVisible(w, old, false, false);
        ScrollHorizontal(w, v.xOrigin + m.fontWidth);
    } else if (x < 0 && !TableMode(w)) {
        MakeVisible(w, old, false, false);
        ScrollHorizontal(w, v.xOrigin - m.fontWidth);
    }
    XwkTreeNode *target = nullptr;
    if (y < 0 && old)
        target = PrevRow(w, old) ? PrevRow(w, old) : XmPrjTreeGetPreviousNode(w, old);
    else if (y >= (int)w->core.height && old)
        target = NextRow(w, old) ? NextRow(w, old) : XmPrjTreeGetNextNode(w, old);
    else
        HitTest(w, v.topRow, std::max(x, 0), y, true, &target, nullptr, nullptr, nullptr);
    if (target && target != old) {
        // The rows passed are selected as the drag that led here does:
        // with Ctrl or Shift each one toggles, else the selection moves.
        bool modified = v.buttonState & (XmTREE_BTN_CTRL | XmTREE_BTN_SHIFT);
        if (modified) {
            if (old && Item(old))
                XmPrjTreeUpdateNode(w, old);
            SetCurrent(w, target);
            if (Item(target)->flags & XmTREE_ITEM_SELECTED)
                DeselectRow(w, target);
            else
                SelectRow(w, target);
        } else {
            if (old && Item(old)) {
                DeselectRow(w, old);
                PaintPlain(w, old);
            }
            SetCurrent(w, target);
            SelectRow(w, target);
        }
        if (MakeVisible(w, target, false, false))
            XmPrjTreeUpdateNode(w, target);
        unsigned long stamp = Stamp(w);
        RaiseSelectionChanged(w, XmCR_SINGLE_SELECT, nullptr, target, XmTREE_PART_ROW);
        if (modified && Live(w, target, stamp))
            CallCallbacks(w, m.multipleSelectionCallback, XmCR_MULTIPLE_SELECT, nullptr, target,
                          XmTREE_PART_ROW, 0, XmCELL_NONE);
        if (!Ready(w))
            return;
    }
    ArmAutoScroll(w, false);
}

void PaintFocusChange(Widget w)
{
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    if (!m.currentNode || !Item(m.currentNode) || v.dontMove || !RealizedAndManaged(w))
        return;
    if (m.selectionPolicy == XmMULTIPLE_SELECT && m.selectedCount > 1) {
        v.flags |= XmTREE_SELECTED_ONLY;
        XwkTreeNode *n = NodeAt(w, v.topRow);
        for (int i = 0; n && i < PageRows(w); i++, n = NextRow(w, n))
            if (Item(n)->flags & XmTREE_ITEM_SELECTED)
                UpdateRow(w, n);
        v.flags &= ~XmTREE_SELECTED_ONLY;
    }
    v.flags |= XmTREE_FOCUS_FRAME | XmTREE_ROW_UPDATE;
    XwkTreeNode *n = m.currentNode;
    unsigned int saved = v.flags;
    v.flags |= XmTREE_PAINT_FRAME;
    if (Item(n)->flags & XmTREE_ITEM_SELECTED)
        v.flags |= XmTREE_PAINT_SELECTED;
    if (v.hasFocus)
        v.flags |= XmTREE_PAINT_FOCUS;
    PaintRow(w, n);
    v.flags = saved & ~(XmTREE_FOCUS_FRAME | XmTREE_ROW_UPDATE);
}

}  // namespace

namespace xwk::tree {

void StopAutoScroll(Widget view)
{
    XmPrjTreePart &v = P(view);
    if (v.autoScrollTimer) {
        XtRemoveTimeOut(v.autoScrollTimer);
        v.autoScrollTimer = 0;
    }
}

void TreeKbdKey(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w) || !num_params || *num_params < 1 || !params[0][0])
        return;
    KbdKey(w, params[0][0], event);
}

void TreeCellKbdKey(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!num_params || *num_params < 1 || !params[0][0])
        return;
    CellKbdKey(w, event, params[0][0]);
}

void TreeScroll(Widget w, XEvent *, String *params, Cardinal *num_params)
{
    if (!Ready(w) || !num_params || *num_params < 1)
        return;
    Widget bar = P(w).vScrollBar;
    if (!bar || !XtIsManaged(bar))
        return;
    int value, slider, inc, page, min, max;
    XtVaGetValues(bar, XmNvalue, &value, XmNsliderSize, &slider, XmNincrement, &inc,
                  XmNpageIncrement, &page, XmNminimum, &min, XmNmaximum, &max, NULL);
    const char *name = params[0];
    int step = 0;
    if (!strcasecmp(name, "PageUp") || !strcasecmp(name, "PageDown")) {
        long divisor = *num_params > 1 ? strtol(params[1], nullptr, 10) : 0;
        step = divisor ? page - page / (int)divisor : page;
        if (!strcasecmp(name, "PageUp"))
            step = -step;
    } else if (!strcasecmp(name, "Up")) {
        step = -inc;
    } else if (!strcasecmp(name, "Down")) {
        step = inc;
    } else {
        return;
    }
    value = std::max(min, std::min(value + step, max - slider));
    XmScrollBarSetValues(bar, value, slider, inc, page, True);
}

void TreeKbdSelect(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!Ready(w))
        return;
    XwkTreeNode *node = M(w).currentNode;
    if (node)
        DefaultAction(w, node, XmTREE_PART_LABEL, event, 0, XmCELL_NONE);
    if (!Ready(w))
        return;
    XmParentProcessDataRec data;
    data.input_action.process_type = XmINPUT_ACTION;
    data.input_action.event = event;
    data.input_action.action = XmPARENT_ACTIVATE;
    data.input_action.params = nullptr;
    data.input_action.num_params = nullptr;
    Widget parent = XtParent(w);
    if (XmIsManager(parent))
        _XmParentProcess(parent, &data);
}

void TreeChangeSlamState(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w) || !num_params || *num_params < 1)
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    XwkTreeNode *node = m.currentNode;
    if (!node || !Item(node))
        return;
    char letter = params[0][0];
    int state = ItemState(node);
    bool was_t = letter == 'T';
    if (was_t)
        letter = state == XmSLAM_OPEN ? 'C' : 'O';
    bool changed = false;
    if (letter == 'C') {
        bool closed = state == XmSLAM_CLOSE || state == XmSLAM_UNDEFINED;
        bool leaf_climb = !was_t && !node->first_child && node->parent &&
                          node->parent->first_child;
        if (closed || leaf_climb) {
            XwkTreeNode *parent = node->parent;
            if (!parent || !parent->parent)
                return;
            DeselectRow(w, node);
            PaintPlain(w, node);
            SetCurrent(w, parent);
            SelectRow(w, parent);
            XmPrjTreeUpdateNode(w, parent);
            unsigned long stamp = Stamp(w);
            CallCallbacks(w, m.selectionChanged, XmCR_SINGLE_SELECT, event, parent,
                          XmTREE_PART_LABEL, 0, XmCELL_NONE);
            if (!Live(w, parent, stamp) || m.currentNode != parent)
                return;
            String c = (String) "C";
            Cardinal one = 1;
            TreeChangeSlamState(w, event, &c, &one);
            return;
        }
        changed = ToggleState(w, node);
    } else if (letter == 'O') {
        if (!node->first_child) {
            unsigned long stamp = Stamp(w);
            CallCallbacks(w, m.activateCallback, XmCR_ACTIVATE, event, node, XmTREE_PART_INDENT, 0,
                          XmCELL_NONE);
            if (!Live(w, node, stamp) || !node->first_child)
                return;
        }
        if (ItemState(node) == XmSLAM_OPEN)
            return;
        changed = ToggleState(w, node);
    } else {
        return;
    }
    (void)changed;
    LayoutPass(w);
    ConfigureAllScrollBars(w);
    if (HasRelayoutPending(w)) {
        MakeVisible(w, node, false, false);
        return;
    }
    int top = v.topRow;
    Boolean saved = v.dontMove;
    v.dontMove = True;
    MakeVisible(w, node, false, false);
    v.dontMove = saved;
    if (v.topRow == top) {
        RepaintFrom(w, node);
    } else {
        int wanted = v.topRow;
        v.topRow = top;
        ScrollVertical(w, wanted);
        RepaintAll(w, v.clearOnUpdate);
    }
}

void TreeEnter(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w))
        return;
    XmPrjTreePart &v = P(w);
    v.buttonState |= XmTREE_BTN_ENTERED;
    v.buttonState &= ~XmTREE_BTN_LEFT;
    StopAutoScroll(w);
    _XmManagerEnter(w, event, params, num_params);
}

void TreeLeave(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w))
        return;
    XmPrjTreePart &v = P(w);
    v.buttonState |= XmTREE_BTN_LEFT;
    v.buttonState &= ~XmTREE_BTN_ENTERED;
    _XmManagerLeave(w, event, params, num_params);
    if ((v.buttonState & XmTREE_BTN_DRAGGED) || M(w).dragTimer) {
        StopAutoScroll(w);
        ArmAutoScroll(w, true);
    }
}

void TreeFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w))
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    auto *mgr = (XmManagerWidget)w;
    if (mgr->manager.traversal_on && _XmGetFocusPolicy(w) == XmEXPLICIT && event &&
        event->type == FocusIn)
        v.hasFocus = True;
    if (m.cellActive && XtIsManaged(m.cellActive))
        XmProcessTraversal(m.cellActive, XmTRAVERSE_CURRENT);
    PaintFocusChange(w);
    if (v.hasFocus && m.focusCallback)
        CallCallbacks(w, m.focusCallback, XmCR_FOCUS, event, m.currentNode, 1, 0, XmCELL_NONE);
    if (Ready(w))
        _XmManagerFocusIn(w, event, params, num_params);
}

void TreeFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!Ready(w))
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    if (!v.hasFocus)
        return;
    v.hasFocus = False;
    PaintFocusChange(w);
    if (m.losingFocusCallback)
        CallCallbacks(w, m.losingFocusCallback, XmCR_LOSING_FOCUS, event, m.currentNode, 1, 0,
                      XmCELL_NONE);
    if (Ready(w))
        _XmManagerFocusOut(w, event, params, num_params);
}

}  // namespace xwk::tree
