// Selection: the current node, selecting rows, pointer gestures, the
// default action, highlight marks and the callbacks they raise.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/Display.h>
#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstring>

using namespace xwk::tree;

namespace xwk::tree {

XmPrjTreeCallbackStruct CallData(int reason, XEvent *event, XwkTreeNode *node, int part,
                                 int column, int cell_type)
{
    XmPrjTreeCallbackStruct cbs;
    memset(&cbs, 0, sizeof cbs);
    cbs.reason = reason;
    cbs.event = event;
    cbs.node = node;
    cbs.part = part;
    XmPrjTreeItem item = Item(node);
    cbs.clientData = item ? item->clientData : nullptr;
    cbs.selected = item ? (item->flags & XmTREE_ITEM_SELECTED) : False;
    cbs.column = column;
    cbs.cellType = cell_type;
    return cbs;
}

void CallCallbacks(Widget view, XtCallbackList list, int reason, XEvent *event,
                   XwkTreeNode *node, int part, int column, int cell_type)
{
    if (!list)
        return;
    XmPrjTreeCallbackStruct cbs = CallData(reason, event, node, part, column, cell_type);
    XtCallCallbackList(view, list, &cbs);
}

unsigned long Stamp(Widget w)
{
    return S(Mother(w)).deletions;
}

bool Live(Widget w, XwkTreeNode *node, unsigned long stamp)
{
    if (!node || !Alive(w))
        return false;
    if (Stamp(w) == stamp)
        return true;
    XwkTreeNode *root = M(w).tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root))
        if (n == node)
            return true;
    return false;
}

void RaiseSelectionChanged(Widget view, int reason, XEvent *event, XwkTreeNode *node, int part)
{
    CallCallbacks(view, M(view).selectionChanged, reason, event, node, part, 0, XmCELL_NONE);
}

void ClampSelectedCount(Widget w)
{
    XmPrjTreePart &m = M(w);
    int rows = (int)m.tree->count - 1;
    m.selectedCount = std::max(0, std::min(m.selectedCount, rows));
}

void SelectRow(Widget w, XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item || !(item->flags & XmTREE_ITEM_SELECTABLE) || (item->flags & XmTREE_ITEM_SELECTED))
        return;
    item->flags |= XmTREE_ITEM_SELECTED;
    M(w).selectedCount++;
    ClampSelectedCount(w);
}

void DeselectRow(Widget w, XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item || !(item->flags & XmTREE_ITEM_SELECTED))
        return;
    item->flags &= ~XmTREE_ITEM_SELECTED;
    if (M(w).selectedCount > 0)
        M(w).selectedCount--;
}

void SetItemSelected(Widget view, XwkTreeNode *node, bool value)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return;
    if (!(item->flags & XmTREE_ITEM_SELECTABLE)) {
        item->flags &= ~XmTREE_ITEM_SELECTED;
        return;
    }
    if (value)
        item->flags |= XmTREE_ITEM_SELECTED;
    else
        item->flags &= ~XmTREE_ITEM_SELECTED;
    if (P(view).dontMove)
        return;
    if (value)
        PaintSelected(view, node);
    else if (M(view).currentNode == node && P(view).hasFocus)
        UpdateRow(view, node);
    else
        PaintPlain(view, node);
}

void SetCurrent(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    m.currentNode = node;
    m.selected = node && Item(node) ? Item(node)->clientData : nullptr;
}

void ToggleAndRelayout(Widget view, XwkTreeNode *node)
{
    if (!ToggleState(view, node))
        return;
    LayoutPass(view);
    ConfigureAllScrollBars(view);
    MakeVisible(view, node, false, false);
    RepaintAll(view, P(view).clearOnUpdate);
}

void DefaultAction(Widget view, XwkTreeNode *node, int part, XEvent *event, int column,
                   int cell_type)
{
    if (!node || !Item(node))
        return;
    bool eligible = part == XmTREE_PART_LABEL || part == XmTREE_PART_INDENT ||
                    part == XmTREE_PART_ICON ||
                    (part == XmTREE_PART_STATE_ICON && !IconOf(Item(node)));
    if (!eligible)
        return;
    XmPrjTreePart &m = M(view);
    if (!m.defaultActionCallback) {
        ToggleAndRelayout(view, node);
        return;
    }
    CallCallbacks(view, m.defaultActionCallback, XmCR_DEFAULT_ACTION, event, node, part, column,
                  cell_type);
}

}  // namespace xwk::tree

namespace {

bool Multiple(Widget w)
{
    return M(w).selectionPolicy == XmMULTIPLE_SELECT;
}

// The count follows each row a spread sets: up for every row it leaves
// selected, whether or not it was before, down for every row it clears.
// Select-all relies on this, as it starts the count again from 0; a range
// over rows already selected overcounts, held at the row count.
void CountSpread(Widget w, XmPrjTreeItem item, bool was, bool value)
{
    XmPrjTreePart &m = M(w);
    bool now = item->flags & XmTREE_ITEM_SELECTED;
    if (value && now)
        m.selectedCount++;
    if (!value && was && m.selectedCount > 0)
        m.selectedCount--;
    ClampSelectedCount(w);
}

// Counts a row a spread has set and raises multipleSelectionCallback for
// it; false when a callback deleted rows, which ends the walk.
bool AnnounceSpread(Widget view, XwkTreeNode *n, bool was, bool value, XEvent *event)
{
    CountSpread(view, Item(n), was, value);
    unsigned long stamp = Stamp(view);
    CallCallbacks(view, M(view).multipleSelectionCallback, XmCR_MULTIPLE_SELECT, event, n,
                  XmTREE_PART_ROW, 0, XmCELL_NONE);
    return Alive(view) && Stamp(view) == stamp;
}

// Every row numbered lo..hi in preorder, the excluded one apart, is set
// to value; each raises multipleSelectionCallback.
void RangeWalk(Widget view, unsigned lo, unsigned hi, bool value, XwkTreeNode *exclude,
               XEvent *event)
{
    XmPrjTreePart &m = M(view);
    EnsureNumbers(view);
    XwkTreeNode *root = m.tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root)) {
        if (n->id < lo)
            continue;
        if (n->id > hi)
            break;
        if (n == exclude || !Item(n))
            continue;
        XmPrjTreeItem item = Item(n);
        bool was = item->flags & XmTREE_ITEM_SELECTED;
        if (Hidden(view, n)) {
            if (item->flags & XmTREE_ITEM_SELECTABLE) {
                if (value)
                    item->flags |= XmTREE_ITEM_SELECTED;
                else
                    item->flags &= ~XmTREE_ITEM_SELECTED;
            }
        } else {
            SetItemSelected(view, n, value);
        }
        if (!AnnounceSpread(view, n, was, value, event))
            return;
    }
}

// Painting a row plain paints it on every view, so one walk serves the
// mother and the clones.
void DeselectAllInner(Widget w, XEvent *event)
{
    XmPrjTreePart &m = M(w);
    RangeWalk(w, 1, m.tree->count, false, nullptr, event);
    m.selectedCount = 0;
}

int Hit(Widget w, XEvent *event, XwkTreeNode **node, int *column, int *cell_type)
{
    XRectangle cell;
    return HitTest(w, P(w).topRow, event->xbutton.x, event->xbutton.y, true, node, column,
                   cell_type, &cell);
}


void CallWith(Widget w, XtCallbackList list, XmPrjTreeCallbackStruct cbs)
{
    if (list)
        XtCallCallbackList(w, list, &cbs);
}

void TreeBeginSelect(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w) || event->type != ButtonPress)
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    XmPrjTreeUnhighlight(w);
    Time now = event->xbutton.time;
    if (v.lastClickTime) {
        if (now - v.lastClickTime > (Time)XtGetMultiClickTime(XtDisplay(w)))
            v.clickCount = 0;
        else
            v.clickCount++;
    }
    v.lastClickTime = now;
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    v.pressX = event->xbutton.x;
    v.pressY = event->xbutton.y;
    XwkTreeNode *node;
    int column, cell_type;
    int part = Hit(w, event, &node, &column, &cell_type);
    if (node && v.clickCount > 0 && node == v.lastClickNode) {
        v.clickCount = 0;
        DefaultAction(w, node, part, event, column, cell_type);
        if (Alive(w))
            v.lastClickNode = nullptr;
        return;
    }
    if (node && column >= 1) {
        unsigned long stamp = Stamp(w);
        if (ActivateCell(w, node, column, event) || !Alive(w) || !Live(w, node, stamp))
            return;
    }
    // The call data of a press are taken before the press changes the row, so
    // that `selected` tells the row's state as the press found it; every
    // callback of the press gets them.
    XmPrjTreeCallbackStruct data = CallData(XmCR_ACTIVATE, event, node, part, column, cell_type);
    if (!node) {
        v.lastClickNode = nullptr;
        CallWith(w, m.activateCallback, data);
        return;
    }
    if (cell_type == XmCELL_TOGGLE_ICON) {
        v.buttonState &= ~XmTREE_BTN_DOWN;
        MakeVisible(w, node, false, false);
        CallWith(w, m.activateCallback, data);
        return;
    }
    v.buttonState |= XmTREE_BTN_DOWN;
    v.lastClickNode = node;
    XwkTreeNode *old = m.currentNode;
    bool changed = old != node;
    bool cleared = false;
    // Only the bit: the count still holds the old row, so that a second
    // selected row in multiple selection makes the press clear them all.
    if (old && Item(old))
        Item(old)->flags &= ~XmTREE_ITEM_SELECTED;
    SetCurrent(w, node);
    v.flags |= XmTREE_CLICK_MOVED;
    if (Multiple(w) && m.selectedCount > 1) {
        unsigned long stamp = Stamp(w);
        DeselectAllInner(w, event);
        cleared = true;
        if (!Live(w, node, stamp) || m.currentNode != node)
            return;
    } else if (changed && old && Item(old)) {
        DoPendingRepaint(w);
        PaintPlain(w, old);
    }
    MakeVisible(w, node, false, false);
    v.flags |= XmTREE_CLICK_MOVED;
    SelectRow(w, node);
    m.selectedCount = 1;
    SetCurrent(w, node);
    unsigned long stamp = Stamp(w);
    if (part == XmTREE_PART_STATE_ICON && m.canSlam && ToggleState(w, node)) {
        CallWith(w, m.activateCallback, data);
        if (!Alive(w))
            return;
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        if (Live(w, node, stamp))
            MakeVisible(w, node, false, false);
        RepaintAll(w, v.clearOnUpdate);
    } else {
        if (changed || cleared)
            XmPrjTreeUpdateNode(w, node);
        CallWith(w, m.activateCallback, data);
    }
    if (changed && Live(w, node, stamp) && m.currentNode == node)
        CallWith(w, m.selectionChanged, data);
}

void TreeEndSelect(Widget w, XEvent *, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &v = P(w);
    if (v.flags & XmTREE_CLICK_MOVED)
        MakeVisible(w, M(w).currentNode, false, false);
    StopAutoScroll(w);
    v.buttonState = 0;
}

void TreeMotion(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    if (!(v.buttonState & XmTREE_BTN_DOWN) || (v.buttonState & XmTREE_BTN_LEFT))
        return;
    v.buttonState |= XmTREE_BTN_DRAGGED;
    if (Multiple(w)) {
        if (event->xmotion.state & ControlMask)
            v.buttonState |= XmTREE_BTN_CTRL;
        if (event->xmotion.state & ShiftMask)
            v.buttonState |= XmTREE_BTN_SHIFT;
    }
    StopAutoScroll(w);
    XwkTreeNode *node;
    HitTest(w, v.topRow, event->xmotion.x, event->xmotion.y, true, &node, nullptr, nullptr,
            nullptr);
    XwkTreeNode *old = m.currentNode;
    if (!node || node == old)
        return;
    DoPendingRepaint(w);
    bool modified = v.buttonState & (XmTREE_BTN_CTRL | XmTREE_BTN_SHIFT);
    SetCurrent(w, node);
    if (!modified) {
        if (old && Item(old)) {
            DeselectRow(w, old);
            PaintPlain(w, old);
        }
        if (node == NodeAt(w, RowCount(w) - 1))
            MakeVisible(w, node, false, false);
        SelectRow(w, node);
        m.selectedCount = std::max(1, std::min(m.selectedCount, RowCount(w)));
        XmPrjTreeUpdateNode(w, node);
    } else {
        if (old && Item(old))
            XmPrjTreeUpdateNode(w, old);
        MakeVisible(w, node, false, false);
        XmPrjTreeItem item = Item(node);
        if (item->flags & XmTREE_ITEM_SELECTED)
            DeselectRow(w, node);
        else
            SelectRow(w, node);
        XmPrjTreeUpdateNode(w, node);
    }
    SetCurrent(w, node);
    unsigned long stamp = Stamp(w);
    RaiseSelectionChanged(w, XmCR_SINGLE_SELECT, event, node, XmTREE_PART_ROW);
    if (modified && Live(w, node, stamp))
        CallCallbacks(w, m.multipleSelectionCallback, XmCR_MULTIPLE_SELECT, event, node,
                      XmTREE_PART_ROW, 0, XmCELL_NONE);
}

void TreeToggleItem(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    if (!Multiple(w) || event->type != ButtonPress)
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    v.buttonState |= XmTREE_BTN_DOWN;
    if (event->xbutton.state & ControlMask)
        v.buttonState |= XmTREE_BTN_CTRL;
    XwkTreeNode *node;
    int column, cell_type;
    int part = Hit(w, event, &node, &column, &cell_type);
    if (!node)
        return;
    XwkTreeNode *old = m.currentNode;
    SetCurrent(w, node);
    bool state_changed = part == XmTREE_PART_STATE_ICON && m.canSlam && ToggleState(w, node);
    if (part == XmTREE_PART_LABEL || part == XmTREE_PART_ICON) {
        if (old && old != node && Item(old))
            XmPrjTreeUpdateNode(w, old);
        XmPrjTreeItem item = Item(node);
        if (item->flags & XmTREE_ITEM_SELECTABLE) {
            if (item->flags & XmTREE_ITEM_SELECTED)
                DeselectRow(w, node);
            else
                SelectRow(w, node);
        }
        XmPrjTreeUpdateNode(w, node);
    }
    SetCurrent(w, node);
    unsigned long stamp = Stamp(w);
    if (state_changed) {
        CallCallbacks(w, m.activateCallback, XmCR_ACTIVATE, event, node, part, column, cell_type);
        if (!Alive(w))
            return;
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, v.clearOnUpdate);
    }
    if (old != node && Live(w, node, stamp))
        CallCallbacks(w, m.selectionChanged, XmCR_ACTIVATE, event, node, part, column, cell_type);
    if (Live(w, node, stamp))
        CallCallbacks(w, m.multipleSelectionCallback, XmCR_MULTIPLE_SELECT, event, node, part,
                      column, cell_type);
}

void TreeSelectItems(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    if (!Multiple(w) || !m.currentNode || event->type != ButtonPress)
        return;
    v.buttonState |= XmTREE_BTN_DOWN | XmTREE_BTN_SHIFT;
    XwkTreeNode *node;
    int column, cell_type;
    int part = Hit(w, event, &node, &column, &cell_type);
    if (!node)
        return;
    XwkTreeNode *old = m.currentNode;
    SetCurrent(w, node);
    bool value = Item(old)->flags & XmTREE_ITEM_SELECTED;
    SetItemSelected(w, old, value);
    unsigned long stamp = Stamp(w);
    if (part == XmTREE_PART_LABEL || part == XmTREE_PART_ICON) {
        if (!m.canSlam) {
            EnsureNumbers(w);
            unsigned lo = std::min(old->id, node->id), hi = std::max(old->id, node->id);
            RangeWalk(w, lo, hi, value, old, event);
        } else {
            int a = RowOf(w, old), b = RowOf(w, node);
            if (a > b)
                std::swap(a, b);
            XwkTreeNode *n = NodeAt(w, a);
            // The old row is in the walk and counts again.
            m.selectedCount = std::max(0, m.selectedCount - 1);
            for (int r = a; n && r <= b; r++) {
                XwkTreeNode *next = NextRow(w, n);
                XmPrjTreeItem item = Item(n);
                bool was = item->flags & XmTREE_ITEM_SELECTED;
                SetItemSelected(w, n, value);
                if (!AnnounceSpread(w, n, was, value, event))
                    return;
                n = next;
            }
        }
    }
    if (!Live(w, node, stamp))
        return;
    SetCurrent(w, node);
    XmPrjTreeUpdateNode(w, node);
    if (old != node)
        CallCallbacks(w, m.selectionChanged, XmCR_ACTIVATE, event, node, part, column, cell_type);
}

void StartDrag(Widget w, XEvent *event)
{
    XmPrjTreePart &m = M(w);
    if (!m.startDragCallback)
        return;
    XwkTreeNode *node;
    int column, cell_type;
    int x = event->type == MotionNotify ? event->xmotion.x : event->xbutton.x;
    int y = event->type == MotionNotify ? event->xmotion.y : event->xbutton.y;
    int part = HitTest(w, P(w).topRow, x, y, true, &node, &column, &cell_type, nullptr);
    if (node)
        CallCallbacks(w, m.startDragCallback, XmCR_TREE_START_DRAG, event, node, part, column,
                      cell_type);
}

void CancelDragTimer(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (m.dragTimer) {
        XtRemoveTimeOut(m.dragTimer);
        m.dragTimer = 0;
    }
}

void TreeProcessDrag(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    CancelDragTimer(w);
    if (event->type == ButtonPress && OtherButtonDown(event))
        return;
    StartDrag(w, event);
}

void DragTimerFired(XtPointer closure, XtIntervalId *)
{
    auto w = (Widget)closure;
    XmPrjTreePart &m = M(w);
    m.dragTimer = 0;
    XEvent saved = m.dragEvent;
    StartDrag(w, &saved);
}

void RunSaved(Widget w)
{
    XmPrjTreePart &m = M(w);
    XEvent saved = m.dragEvent;
    if (m.dragAction) {
        Cardinal zero = 0;
        m.dragAction(w, &saved, nullptr, &zero);
    }
}

XtActionProc FindAction(const char *name);

void TreeProcessBtn1(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsTree(w) || !Alive(w) || !num_params || *num_params != 1)
        return;
    XmPrjTreePart &m = M(w);
    XtEnum transfer = Btn1Transfer(w);
    if (transfer == 0) {
        XtCallActionProc(w, params[0], event, nullptr, 0);
        return;
    }
    if (transfer != 1 && transfer != 2)
        return;
    bool eligible = false;
    if (event->type == ButtonPress && (m.dragTimer || m.startDragCallback)) {
        XwkTreeNode *node;
        int part = HitTest(w, P(w).topRow, event->xbutton.x, event->xbutton.y, true, &node,
                           nullptr, nullptr, nullptr);
        eligible = node && (part == XmTREE_PART_LABEL || part == XmTREE_PART_ICON) &&
                   (node == m.currentNode || (Item(node)->flags & XmTREE_ITEM_SELECTED));
    }
    if (event->type == ButtonPress && !m.dragTimer && eligible && !OtherButtonDown(event)) {
        m.dragEvent = *event;
        m.dragAction = FindAction(params[0]);
        m.dragTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                      XtGetMultiClickTime(XtDisplay(w)), DragTimerFired,
                                      (XtPointer)w);
        return;
    }
    if (m.dragTimer && event->type == MotionNotify) {
        int dx = std::abs(event->xmotion.x - m.dragEvent.xbutton.x);
        int dy = std::abs(event->xmotion.y - m.dragEvent.xbutton.y);
        if (dx >= 4 || dy >= 3) {
            CancelDragTimer(w);
            XEvent saved = m.dragEvent;
            StartDrag(w, &saved);
        }
        return;
    }
    if (m.dragTimer && (event->type == ButtonRelease || event->type == ButtonPress)) {
        CancelDragTimer(w);
        RunSaved(w);
        if (!Alive(w))
            return;
    }
    XtCallActionProc(w, params[0], event, nullptr, 0);
}

void TreeProcessBtn2(Widget w, XEvent *event, String *params, Cardinal *num_params)
{
    if (!IsTree(w) || !Alive(w))
        return;
    if (M(w).dragTimer) {
        CancelDragTimer(w);
        return;
    }
    XtEnum transfer = Btn1Transfer(w);
    if (transfer == 1) {
        if (num_params && *num_params == 1)
            XtCallActionProc(w, params[0], event, nullptr, 0);
        return;
    }
    if (transfer != 0 && transfer != 2)
        return;
    if (event->type == ButtonPress)
        StartDrag(w, event);
}

void TreePopupMenu(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsTree(w) || !Alive(w))
        return;
    Widget menu = P(w).menuWidget;
    if (!menu || event->type != ButtonPress)
        return;
    XmMenuPosition(menu, &event->xbutton);
    XtManageChild(menu);
}

}  // namespace

extern "C" {

void XmPrjTreeSetItem(Widget w, XmPrjTreeNode node, Boolean notify)
{
    if (!IsTree(w) || !Alive(w) || !node || !OwnNode(w, node))
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    if (IsRoot(w, node)) {
        node = XmPrjTreeGetFirstNode(w);
        if (!node)
            return;
    }
    if (!Item(node))
        return;
    XwkTreeNode *old = m.currentNode;
    XmPrjTreeItem item = Item(node);
    if (old == node && (item->flags & XmTREE_ITEM_SELECTABLE) &&
        !(item->flags & XmTREE_ITEM_SELECTED))
        old = nullptr;
    if ((int)w->core.width < m.rowWidth && v.hScrollBar && !XtIsManaged(v.hScrollBar))
        ConfigureScrollBars(w);
    if (old == node) {
        if (P(w).mother && P(w).mother != w)
            MakeVisible(w, node, false, false);
        return;
    }
    if (old && Item(old) && !Multiple(w)) {
        if (!v.dontMove)
            PaintPlain(w, old);
        DeselectRow(w, old);
    }
    SelectRow(w, node);
    bool opened = false;
    if (m.canSlam) {
        std::vector<XwkTreeNode *> closed;
        for (XwkTreeNode *a = node->parent; a && a->parent; a = a->parent) {
            int s = ItemState(a);
            if (s == XmSLAM_CLOSE || s == XmSLAM_UNDEFINED)
                closed.push_back(a);
        }
        if (!closed.empty() && old && Item(old) && !v.dontMove)
            PaintPlain(w, old);
        for (auto it = closed.rbegin(); it != closed.rend(); ++it) {
            SetCurrent(w, *it);
            if (ToggleState(w, *it)) {
                LayoutPass(w);
                ConfigureAllScrollBars(w);
                opened = true;
            }
        }
    }
    SetCurrent(w, node);
    bool scrolled = false;
    if (HasRelayoutPending(w)) {
        RunRelayoutNow(w);
        scrolled = true;
    }
    scrolled = !MakeVisible(w, node, false, true) || scrolled;
    v.buttonState = 0;
    if (!v.dontMove) {
        if (opened || scrolled)
            RepaintAll(w, v.clearOnUpdate);
        else
            XmPrjTreeUpdateNode(w, node);
    }
    if (notify)
        RaiseSelectionChanged(w, XmCR_TREE_SELECTION_CHANGED, nullptr, node, XmTREE_PART_ROW);
}

void XmPrjTreeSetNode(Widget w, XmPrjTreeNode node)
{
    XmPrjTreeSetItem(w, node, True);
}

void XmPrjTreeSelectItem(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !node || !Item(node) || !OwnNode(w, node))
        return;
    SelectRow(w, node);
}

void XmPrjTreeDeselectItem(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !node || !Item(node) || !OwnNode(w, node))
        return;
    XmPrjTreeItem item = Item(node);
    if (!(item->flags & XmTREE_ITEM_SELECTABLE))
        return;
    DeselectRow(w, node);
}

void XmPrjTreeSetSelectable(Widget w, XmPrjTreeNode node, Boolean selectable)
{
    if (!IsTree(w) || !Alive(w) || !OwnNode(w, node) || !Item(node))
        return;
    XmPrjTreeItem item = Item(node);
    if (selectable) {
        item->flags |= XmTREE_ITEM_SELECTABLE;
    } else {
        item->flags &= ~(XmTREE_ITEM_SELECTABLE | XmTREE_ITEM_SELECTED);
    }
}

void XmPrjTreeSelectAllItems(Widget w)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &m = M(w);
    m.selectedCount = 0;
    RangeWalk(w, 1, m.tree->count, true, nullptr, nullptr);
}

void XmPrjTreeDeselectAllItems(Widget w)
{
    if (!IsTree(w) || !Alive(w))
        return;
    DeselectAllInner(w, nullptr);
}

void XmPrjTreeHighlightNode(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !node || !Item(node) || !OwnNode(w, node))
        return;
    XmPrjTreePart &m = M(w);
    m.highlightedNode = node;
    m.highlightedWidget = w;
    if (Hidden(w, node) || !RowOnPage(w, RowOf(w, node)))
        return;
    XmPrjTreePart &v = P(w);
    unsigned int had = v.flags & XmTREE_ROW_UPDATE;
    v.flags |= XmTREE_ROW_UPDATE;
    DoPendingRepaint(w);
    // The last row may stand half shown below the page: it comes in whole.
    if (RowOf(w, node) == RowCount(w) - 1)
        MakeVisible(w, node, false, false);
    UpdateRow(w, node);
    v.flags = (v.flags & ~XmTREE_ROW_UPDATE) | had;
}

void XmPrjTreeUnhighlight(Widget w)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &m = M(w);
    XwkTreeNode *node = m.highlightedNode;
    Widget view = m.highlightedWidget;
    m.highlightedNode = nullptr;
    m.highlightedWidget = nullptr;
    if (!node || !view || !Item(node) || Hidden(view, node) || !RowOnPage(view, RowOf(view, node)))
        return;
    // The mark's frame goes even where rows repaint without clearing; the
    // location cursor of a focused current row comes back in its place.
    XmPrjTreePart &v = P(view);
    unsigned int saved = v.flags;
    v.flags |= XmTREE_PAINT_FRAME;
    UpdateRow(view, node);
    v.flags = saved;
}

void XmPrjTreeHighlight(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w))
        return;
    if (M(w).highlightedNode == node && node)
        return;
    if (node && !OwnNode(w, node))
        return;
    XmPrjTreeUnhighlight(w);
    if (node)
        XmPrjTreeHighlightNode(w, node);
}

XtPointer XmPrjTreeGetHighlighted(Widget w)
{
    if (!IsTree(w))
        return nullptr;
    XwkTreeNode *node = M(w).highlightedNode;
    return node && Item(node) ? Item(node)->clientData : nullptr;
}

Widget XmPrjTreeGetHighlightedWidget(Widget w)
{
    return IsTree(w) ? M(w).highlightedWidget : nullptr;
}

void XmPrjTreeShadowHighlight(Widget w)
{
    if (!IsTree(w) || !RealizedAndManaged(w))
        return;
    M(w).shadowType = XmSHADOW_OUT;
    M(w).redraw = XRectangle{0, 0, w->core.width, w->core.height};
    RedrawBorder(w);
}

void XmPrjTreeShadowUnhighlight(Widget w)
{
    if (!IsTree(w) || !RealizedAndManaged(w))
        return;
    M(w).shadowType = XmSHADOW_IN;
    M(w).redraw = XRectangle{0, 0, w->core.width, w->core.height};
    RedrawBorder(w);
}

}  // extern "C"

namespace xwk::tree {

XtEnum Btn1Transfer(Widget w)
{
    unsigned char value = 0;
    Widget display = XmGetXmDisplay(XtDisplay(w));
    if (display)
        XtVaGetValues(display, XmNenableBtn1Transfer, &value, NULL);
    return value;
}

bool OtherButtonDown(XEvent *event)
{
    unsigned state = event->xbutton.state;
    unsigned own = Button1Mask << (event->xbutton.button - 1);
    return (state & (Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask)) & ~own;
}

void TreeKbdKey(Widget, XEvent *, String *, Cardinal *);
void TreeCellKbdKey(Widget, XEvent *, String *, Cardinal *);
void TreeScroll(Widget, XEvent *, String *, Cardinal *);
void TreeKbdSelect(Widget, XEvent *, String *, Cardinal *);
void TreeChangeSlamState(Widget, XEvent *, String *, Cardinal *);
void TreeEnter(Widget, XEvent *, String *, Cardinal *);
void TreeLeave(Widget, XEvent *, String *, Cardinal *);
void TreeFocusIn(Widget, XEvent *, String *, Cardinal *);
void TreeFocusOut(Widget, XEvent *, String *, Cardinal *);

XtActionsRec actions[18] = {
    {(String) "TreeKbdKey", TreeKbdKey},
    {(String) "TreeCellKbdKey", TreeCellKbdKey},
    {(String) "TreeScroll", TreeScroll},
    {(String) "TreeKbdSelect", TreeKbdSelect},
    {(String) "TreeBeginSelect", TreeBeginSelect},
    {(String) "TreeEndSelect", TreeEndSelect},
    {(String) "TreeMotion", TreeMotion},
    {(String) "TreeSelectItems", TreeSelectItems},
    {(String) "TreeToggleItem", TreeToggleItem},
    {(String) "TreeChangeSlamState", TreeChangeSlamState},
    {(String) "TreeEnter", TreeEnter},
    {(String) "TreeLeave", TreeLeave},
    {(String) "TreeFocusIn", TreeFocusIn},
    {(String) "TreeFocusOut", TreeFocusOut},
    {(String) "TreeProcessDrag", TreeProcessDrag},
    {(String) "TreeProcessBtn1", TreeProcessBtn1},
    {(String) "TreeProcessBtn2", TreeProcessBtn2},
    {(String) "TreePopupMenu", TreePopupMenu},
};

}  // namespace xwk::tree

namespace {

// Xt compiles a class's action list in place, names turned into quarks,
// so the names are looked up here rather than in that list.
XtActionProc FindAction(const char *name)
{
    static const struct {
        const char *name;
        XtActionProc proc;
    } named[] = {
        {"TreeKbdKey", TreeKbdKey},
        {"TreeCellKbdKey", TreeCellKbdKey},
        {"TreeScroll", TreeScroll},
        {"TreeKbdSelect", TreeKbdSelect},
        {"TreeBeginSelect", TreeBeginSelect},
        {"TreeEndSelect", TreeEndSelect},
        {"TreeMotion", TreeMotion},
        {"TreeSelectItems", TreeSelectItems},
        {"TreeToggleItem", TreeToggleItem},
        {"TreeChangeSlamState", TreeChangeSlamState},
        {"TreeEnter", TreeEnter},
        {"TreeLeave", TreeLeave},
        {"TreeFocusIn", TreeFocusIn},
        {"TreeFocusOut", TreeFocusOut},
        {"TreeProcessDrag", TreeProcessDrag},
        {"TreeProcessBtn1", TreeProcessBtn1},
        {"TreeProcessBtn2", TreeProcessBtn2},
        {"TreePopupMenu", TreePopupMenu},
    };
    for (const auto &a : named)
        if (strcmp(a.name, name) == 0)
            return a.proc;
    return nullptr;
}

}  // namespace
