// Selection of the desk list: the callbacks and their call data, presses,
// Ctrl presses, the rubber band and its auto-scroll, and XmPrjDeskSetItem.
#include "widgets/desk/desk.h"

#include <Xm/XmP.h>
#include <Xm/ScrollBar.h>

#include <algorithm>
#include <vector>

using namespace xwk::desk;

namespace {

const short kUnset = -32768;

bool band_running = false;

void FillItem(XmPrjDeskCallbackStruct &cbs, XwkListNode *node)
{
    XmPrjDeskItem item = Item(node);
    cbs.userData = item->userData;
    cbs.selected = Selected(item);
    cbs.label = item->label;
    cbs.position = node->index + 1;
}

// Calls a list with the call data, the arrays of the selection filled for
// XmMULTIPLE_SELECT; they live until the call returns.
void CallWith(Widget view, XtCallbackList list, XmPrjDeskCallbackStruct &cbs)
{
    XmPrjDeskPart &m = M(view);
    std::vector<char *> labels;
    std::vector<int> positions;
    cbs.selectedCount = m.selectedCount;
    if (m.selectionPolicy == XmMULTIPLE_SELECT && m.selectedCount > 0 && m.items) {
        for (XwkListNode *n = m.items->first; n && (int)labels.size() < m.selectedCount;
             n = n->next) {
            if (!Selected(Item(n)))
                continue;
            labels.push_back(Item(n)->label);
            positions.push_back(n->index + 1);
        }
        cbs.selectedLabels = labels.data();
        cbs.selectedPositions = positions.data();
    }
    XtCallCallbackList(view, list, (XtPointer)&cbs);
}

void EraseBand(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (d.bandLastX == kUnset || !Paintable(view))
        return;
    int x = std::min(d.bandAnchorX, d.bandLastX), y = std::min(d.bandAnchorY, d.bandLastY);
    int w = std::abs(d.bandAnchorX - d.bandLastX), h = std::abs(d.bandAnchorY - d.bandLastY);
    XDrawRectangle(XtDisplay(view), XtWindow(view), d.xorGC, x, y, w, h);
    XSync(XtDisplay(view), False);
    d.bandLastX = d.bandLastY = kUnset;
}

// A box misses the band when both its edges lie outside the band's span
// across, or both outside its span down; a band held wholly inside a box
// therefore misses it too.
bool Misses(const Box &box, int x1, int y1, int x2, int y2)
{
    auto out = [](int v, int lo, int hi) { return v < lo || v > hi; };
    bool across = out(box.x, x1, x2) && out(box.x + box.width, x1, x2);
    bool down = out(box.y, y1, y2) && out(box.y + box.height, y1, y2);
    return across || down;
}

// Selects or deselects one item under the band; false when a callback
// deleted items, so that the walk must stop.
bool BandChange(Widget view, XEvent *event, XwkListNode *node, bool select)
{
    XmPrjDeskPart &m = M(view);
    XmPrjDeskItem item = Item(node);
    if (select)
        item->flags |= XmDESK_ITEM_SELECTED;
    else
        item->flags &= ~XmDESK_ITEM_SELECTED;
    DrawItem(view, node);
    XSync(XtDisplay(view), False);
    m.selectedCount += select ? 1 : -1;
    unsigned long stamp = S(Mother(view)).deletions;
    Notify(view, event, node);
    return Alive(view) && S(Mother(view)).deletions == stamp;
}

void AutoScrollTick(XtPointer closure, XtIntervalId *)
{
    auto view = (Widget)closure;
    XmPrjDeskPart &d = P(view);
    d.autoScrollTimer = 0;
    if (!Alive(view) || !XtIsRealized(view))
        return;
    Display *dpy = XtDisplay(view);
    XWindowAttributes attributes;
    XGetWindowAttributes(dpy, XtWindow(view), &attributes);
    Window root, child;
    int root_x, root_y, x, y;
    unsigned int mask;
    XQueryPointer(dpy, XtWindow(view), &root, &child, &root_x, &root_y, &x, &y, &mask);
    EraseBand(view);
    if (y >= attributes.y + attributes.height && d.topRow < d.maxTopRow) {
        ScrollToRow(view, d.topRow + 1);
        SetBarValue(view, d.topRow);
        d.bandAnchorY = (short)(d.bandAnchorY - d.cellHeight);
    } else if (y <= attributes.y && d.topRow > 0) {
        ScrollToRow(view, d.topRow - 1);
        SetBarValue(view, d.topRow);
        d.bandAnchorY = (short)(d.bandAnchorY + d.cellHeight);
    }
    BandStep(view, nullptr, x, y);
    if (!Alive(view))
        return;
    int delay = 100;
    if (d.scrollBar)
        XtVaGetValues(d.scrollBar, XmNrepeatDelay, &delay, NULL);
    d.autoScrollTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(view),
                                        (unsigned long)std::max(delay, 1), AutoScrollTick,
                                        (XtPointer)view);
}

int PointerX(XEvent *event)
{
    return event->type == MotionNotify ? event->xmotion.x : event->xbutton.x;
}

int PointerY(XEvent *event)
{
    return event->type == MotionNotify ? event->xmotion.y : event->xbutton.y;
}

}  // namespace

namespace xwk::desk {

void Call(Widget view, XtCallbackList list, int reason, XEvent *event, XwkListNode *node, bool)
{
    if (!list)
        return;
    XmPrjDeskCallbackStruct cbs = {};
    cbs.reason = reason;
    cbs.event = event;
    if (node && Item(node))
        FillItem(cbs, node);
    CallWith(view, list, cbs);
}

void CallCurrent(Widget view, XtCallbackList list, int reason, XEvent *event)
{
    if (!list)
        return;
    XmPrjDeskPart &m = M(view);
    XmPrjDeskCallbackStruct cbs = {};
    cbs.reason = reason;
    cbs.event = event;
    cbs.userData = m.selected;
    if (Count(view) && m.current && Item(m.current)) {
        FillItem(cbs, m.current);
        cbs.userData = m.selected;
    }
    CallWith(view, list, cbs);
}

void Notify(Widget view, XEvent *event, XwkListNode *node)
{
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    if (d.clickCount == 0) {
        if (m.selectionPolicy == XmMULTIPLE_SELECT)
            Call(view, m.multipleSelectionCallback, XmCR_MULTIPLE_SELECT, event, node, true);
        else
            Call(view, m.singleSelectionCallback, XmCR_SINGLE_SELECT, event, node, true);
        return;
    }
    d.clickCount = 0;
    bool twice = node == d.lastClicked;
    d.lastClicked = nullptr;
    if (twice)
        Call(view, m.defaultActionCallback, XmCR_DEFAULT_ACTION, event, node, true);
}

// Every desk answers XmNselected from its own field, so the clones' copies
// follow the mother's.
void RefreshSelected(Widget w)
{
    XmPrjDeskPart &m = M(w);
    XtPointer selected = m.current && Item(m.current) ? Item(m.current)->userData : nullptr;
    for (Widget v : Views(w))
        P(v).selected = selected;
}

void DeselectAll(Widget view)
{
    XmPrjDeskPart &m = M(view);
    for (XwkListNode *n = m.items ? m.items->first : nullptr; n; n = n->next) {
        if (!Selected(Item(n)))
            continue;
        Item(n)->flags &= ~XmDESK_ITEM_SELECTED;
        DrawItem(view, n);
    }
    m.selectedCount = 0;
}

void StopBand(Widget view)
{
    XmPrjDeskPart &d = P(view);
    EraseBand(view);
    d.bandAnchorX = d.bandAnchorY = d.bandNewX = d.bandNewY = kUnset;
}

void StopAutoScroll(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (d.autoScrollTimer)
        XtRemoveTimeOut(d.autoScrollTimer);
    d.autoScrollTimer = 0;
}

void BandStep(Widget view, XEvent *event, int x, int y)
{
    if (band_running || !Paintable(view))
        return;
    band_running = true;
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    if (d.bandAnchorX == kUnset) {
        d.bandAnchorX = (short)x;
        d.bandAnchorY = (short)y;
    } else {
        EraseBand(view);
    }
    d.bandNewX = (short)x;
    d.bandNewY = (short)y;
    int x1 = std::min((int)d.bandAnchorX, x), x2 = std::max((int)d.bandAnchorX, x);
    int y1 = std::min((int)d.bandAnchorY, y), y2 = std::max((int)d.bandAnchorY, y);
    bool toggling = d.buttonState & XmDESK_BTN_TOGGLE;
    for (XwkListNode *n = m.items ? m.items->first : nullptr; n; n = n->next) {
        XmPrjDeskItem item = Item(n);
        Box icon, label;
        Boxes(view, n->index, item, &icon, &label);
        bool touched = !(Misses(icon, x1, y1, x2, y2) && Misses(label, x1, y1, x2, y2));
        bool ok = true;
        if (!touched && Selected(item) && !toggling)
            ok = BandChange(view, event, n, false);
        else if (touched && Selectable(item) && !Selected(item))
            ok = BandChange(view, event, n, true);
        if (!ok)
            break;
    }
    if (Alive(view)) {
        XDrawRectangle(XtDisplay(view), XtWindow(view), d.xorGC, x1, y1, x2 - x1, y2 - y1);
        XSync(XtDisplay(view), False);
        d.bandLastX = (short)x;
        d.bandLastY = (short)y;
    }
    band_running = false;
}

void DeskLeaveBand(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (M(view).selectionPolicy != XmMULTIPLE_SELECT || !(d.buttonState & XmDESK_BTN_MOTION) ||
        d.autoScrollTimer)
        return;
    int delay = 200;
    if (d.scrollBar)
        XtVaGetValues(d.scrollBar, XmNinitialDelay, &delay, NULL);
    d.autoScrollTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(view),
                                        (unsigned long)std::max(delay, 1), AutoScrollTick,
                                        (XtPointer)view);
}

void DeskBeginSelect(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w) || !event)
        return;
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    if (!Count(w)) {
        CallCurrent(w, m.selectionChanged, XmCR_SINGLE_SELECT, event);
        return;
    }
    Time time = event->xbutton.time;
    if (d.lastClickTime &&
        (unsigned long)(time - d.lastClickTime) <= (unsigned long)XtGetMultiClickTime(XtDisplay(w)))
        d.clickCount++;
    else
        d.clickCount = 0;
    d.lastClickTime = time;
    if (m.selectedCount)
        DeselectAll(w);
    XwkListNode *node = ItemAt(w, event->xbutton.x, event->xbutton.y);
    if (!node) {
        Mark(w, m.current, true);
        return;
    }
    d.stateFlags &= ~XmDESK_LEFT_ITEM;
    d.buttonState |= XmDESK_BTN_ITEM;
    if (Selectable(Item(node))) {
        Item(node)->flags |= XmDESK_ITEM_SELECTED;
        m.selectedCount++;
    }
    if (m.current && m.current != node)
        MarkOnViews(w, m.current, false);
    m.current = node;
    MarkOnViews(w, node, true);
    RefreshSelected(w);
    State &s = S(Mother(w));
    unsigned long stamp = s.deletions;
    CallCurrent(w, m.selectionChanged, XmCR_SINGLE_SELECT, event);
    if (!Alive(w) || s.deletions != stamp)
        return;
    SetShadow(w, node, XmSHADOW_IN);
    Notify(w, event, node);
    if (!Alive(w) || s.deletions != stamp)
        return;
    d.lastClicked = node;
}

void DeskEndSelect(Widget w, XEvent *, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    XmPrjDeskPart &d = P(w);
    StopBand(w);
    StopAutoScroll(w);
    if ((d.buttonState & XmDESK_BTN_ITEM) && M(w).current)
        SetShadow(w, M(w).current, XmSHADOW_OUT);
    d.buttonState = 0;
}

void DeskButtonMotion(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w) || !event)
        return;
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    if (!(d.buttonState & XmDESK_BTN_ITEM)) {
        if (m.selectionPolicy != XmMULTIPLE_SELECT)
            return;
        d.buttonState |= XmDESK_BTN_MOTION;
        BandStep(w, event, PointerX(event), PointerY(event));
        return;
    }
    d.buttonState |= XmDESK_BTN_MOTION;
    if (!m.current)
        return;
    bool off = ItemAt(w, PointerX(event), PointerY(event)) != m.current;
    bool was_off = d.stateFlags & XmDESK_LEFT_ITEM;
    if (off == was_off)
        return;
    if (off)
        d.stateFlags |= XmDESK_LEFT_ITEM;
    else
        d.stateFlags &= ~XmDESK_LEFT_ITEM;
    SetShadow(w, m.current, off ? XmSHADOW_OUT : XmSHADOW_IN);
}

void DeskBeginToggle(Widget w, XEvent *event, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w) || !event)
        return;
    XmPrjDeskPart &d = P(w);
    XmPrjDeskPart &m = M(w);
    d.buttonState |= XmDESK_BTN_TOGGLE;
    XwkListNode *node = ItemAt(w, event->xbutton.x, event->xbutton.y);
    if (!node || !Selectable(Item(node)))
        return;
    bool select = !Selected(Item(node));
    Item(node)->flags ^= XmDESK_ITEM_SELECTED;
    DrawItem(w, node);
    XSync(XtDisplay(w), False);
    m.selectedCount += select ? 1 : -1;
    Notify(w, event, node);
}

void DeskEndToggle(Widget w, XEvent *, String *, Cardinal *)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    StopBand(w);
    StopAutoScroll(w);
    P(w).buttonState = 0;
}

}  // namespace xwk::desk

extern "C" {

void XmPrjDeskSetItem(Widget w, XmPrjDeskNode node)
{
    if (!IsDesk(w) || !Alive(w) || !M(w).items)
        return;
    XmPrjDeskPart &m = M(w);
    if (!node)
        node = m.items->first;
    bool frozen = P(w).dontMove;
    if (m.current && !frozen)
        MarkOnViews(w, m.current, false);
    m.current = node;
    bool scrolled = KeepVisible(w, true);
    if (!scrolled && !frozen && node)
        MarkOnViews(w, node, true);
    RefreshSelected(w);
    if (XtIsRealized(w))
        XFlush(XtDisplay(w));
    CallCurrent(w, m.selectionChanged, XmCR_SINGLE_SELECT, nullptr);
}

}  // extern "C"
