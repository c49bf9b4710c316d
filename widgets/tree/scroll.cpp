// Scrolling: the scroll bars under a scrolled window, the deferred
// relayout, scrolling by copying the window, and bringing a row into view.
#include "widgets/tree/tree.h"

#include <Xm/XmP.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <cstdlib>

using namespace xwk::tree;

namespace {

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

int WantedWidth(Widget view)
{
    return std::max((int)M(view).rowWidth + 2 * Shadow(view), (int)view->core.width);
}

void ScrollBarMoved(Widget bar, XtPointer closure, XtPointer call_data)
{
    auto view = (Widget)closure;
    if (!IsTree(view) || !Alive(view))
        return;
    auto *cbs = (XmScrollBarCallbackStruct *)call_data;
    XmPrjTreePart &v = P(view);
    DoPendingRepaint(view);
    if (bar == v.vScrollBar) {
        if (cbs->value != v.lastVScroll)
            ScrollTo(view, true, cbs->value);
        v.lastVScroll = v.topRow;
    } else {
        if (cbs->value != v.lastHScroll)
            ScrollTo(view, false, cbs->value);
        v.lastHScroll = v.xOrigin;
    }
}

void SetSlider(Widget view)
{
    XmPrjTreePart &v = P(view);
    if (v.vScrollBar && XtIsManaged(v.vScrollBar)) {
        int count = RowCount(view);
        int rows = std::max(1, std::min(v.visibleRows, count));
        int top = std::max(0, std::min(v.topRow, count - rows));
        XtVaSetValues(v.vScrollBar, XmNminimum, 0, XmNmaximum, std::max(count, 1), XmNvalue, top,
                      XmNsliderSize, rows, XmNincrement, 1, XmNpageIncrement, rows, NULL);
        v.lastVScroll = top;
    }
    if (v.hScrollBar && XtIsManaged(v.hScrollBar)) {
        int wanted = WantedWidth(view);
        int width = std::max(1, std::min((int)view->core.width, wanted));
        int x = std::max(0, std::min(v.xOrigin, wanted - width));
        int inc = M(view).fontWidth ? M(view).fontWidth : 1;
        XtVaSetValues(v.hScrollBar, XmNminimum, 0, XmNmaximum, wanted, XmNvalue, x, XmNsliderSize,
                      width, XmNincrement, inc, XmNpageIncrement, width, NULL);
        v.lastHScroll = x;
    }
}

void RelayoutNow(XtPointer closure, XtIntervalId *)
{
    auto view = (Widget)closure;
    XmPrjTreePart &v = P(view);
    v.relayoutTimer = 0;
    if (!Alive(view))
        return;
    v.flags |= XmTREE_RELAYOUT_RUNNING | XmTREE_SCROLLBARS_BUSY;
    for (int pass = 0; pass < 2; pass++) {
        CountVisibleRows(view);
        bool unneeded = v.vScrollBar && XtIsManaged(v.vScrollBar) &&
                        RowCount(view) <= v.visibleRows && !PartialRow(view);
        if (!unneeded)
            break;
        XtUnmanageChild(v.vScrollBar);
        v.topRow = 0;
    }
    int count = RowCount(view);
    v.topRow = std::max(0, std::min(v.topRow, count - v.visibleRows));
    int wanted = WantedWidth(view);
    v.xOrigin = std::max(0, std::min(v.xOrigin, wanted - (int)view->core.width));
    SetSlider(view);
    v.flags &= ~(XmTREE_RELAYOUT_RUNNING | XmTREE_SCROLLBARS_BUSY);
    if (RealizedAndManaged(view)) {
        XClearArea(XtDisplay(view), XtWindow(view), 0, 0, 0, 0, False);
        Repaint(view, 0, 0, view->core.width, view->core.height);
    }
}

}  // namespace

namespace xwk::tree {

bool UnderScrolledWindow(Widget view)
{
    Widget parent = XtParent(view);
    return parent && XmIsScrolledWindow(parent);
}

bool HasRelayoutPending(Widget view)
{
    return P(view).relayoutTimer != 0;
}

void CreateScrollBars(Widget view)
{
    XmPrjTreePart &v = P(view);
    Widget sw = XtParent(view);
    // A window made with other policies keeps them: Motif refuses the
    // change with its own warnings.
    XtVaSetValues(sw, XmNscrollingPolicy, XmAPPLICATION_DEFINED, XmNvisualPolicy, XmVARIABLE,
                  XmNscrollBarDisplayPolicy, XmSTATIC, NULL);
    XtOverrideTranslations(sw, XtParseTranslationTable(""));
    Arg args[12];
    Cardinal n = 0;
    XtSetArg(args[n], XmNorientation, XmVERTICAL); n++;
    XtSetArg(args[n], XmNtraversalOn, False); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNshadowThickness, Shadow(view)); n++;
    XtSetArg(args[n], XmNminimum, 0); n++;
    XtSetArg(args[n], XmNmaximum, 1); n++;
    XtSetArg(args[n], XmNvalue, 0); n++;
    XtSetArg(args[n], XmNincrement, 1); n++;
    XtSetArg(args[n], XmNpageIncrement, 1); n++;
    XtSetArg(args[n], XmNsliderSize, 1); n++;
    v.vScrollBar = XmCreateScrollBar(sw, (String) "treeVertScrollBar", args, n);
    XtAddCallback(v.vScrollBar, XmNvalueChangedCallback, ScrollBarMoved, (XtPointer)view);
    XtAddCallback(v.vScrollBar, XmNdragCallback, ScrollBarMoved, (XtPointer)view);
    v.hScrollBar = nullptr;
    if (M(view).numColumns == 1) {
        XtSetArg(args[0], XmNorientation, XmHORIZONTAL);
        v.hScrollBar = XmCreateScrollBar(sw, (String) "treeHorizScrollBar", args, n);
        XtAddCallback(v.hScrollBar, XmNvalueChangedCallback, ScrollBarMoved, (XtPointer)view);
        XtAddCallback(v.hScrollBar, XmNdragCallback, ScrollBarMoved, (XtPointer)view);
    }
    XtVaSetValues(sw, XmNverticalScrollBar, v.vScrollBar, XmNhorizontalScrollBar, v.hScrollBar,
                  XmNworkWindow, view, NULL);
}

void ConfigureScrollBars(Widget view)
{
    if (!Alive(view))
        return;
    XmPrjTreePart &v = P(view);
    if ((v.flags & XmTREE_RELAYOUT_RUNNING) || !UnderScrolledWindow(view))
        return;
    Widget sw = XtParent(view);
    int count = RowCount(view);
    if (!count) {
        if (v.vScrollBar && XtIsManaged(v.vScrollBar))
            XtUnmanageChild(v.vScrollBar);
        if (v.hScrollBar && XtIsManaged(v.hScrollBar))
            XtUnmanageChild(v.hScrollBar);
        v.topRow = v.xOrigin = 0;
        v.visibleRows = 0;
        return;
    }
    v.flags |= XmTREE_SCROLLBARS_BUSY;
    Dimension sw_width = sw->core.width, sw_height = sw->core.height;
    bool vm = v.vScrollBar && XtIsManaged(v.vScrollBar);
    bool hm = v.hScrollBar && XtIsManaged(v.hScrollBar);
    bool vm0 = vm, hm0 = hm;
    Dimension spacing = 4;
    XtVaGetValues(sw, XmNspacing, &spacing, NULL);
    int width = view->core.width, height = view->core.height;
    Dimension saved_height = view->core.height, saved_width = view->core.width;
    bool stop = false;
    for (int pass = 0; pass < 2; pass++) {
        view->core.height = (Dimension)std::max(height, 1);
        view->core.width = (Dimension)std::max(width, 1);
        CountVisibleRows(view);
        if (v.dontMove || !XtIsManaged(view) || !XtIsManaged(sw)) {
            stop = true;
            break;
        }
        v.topRow = std::max(0, std::min(v.topRow, count - v.visibleRows));
        int wanted = std::max((int)M(view).rowWidth + 2 * Shadow(view), width);
        v.xOrigin = std::max(0, std::min(v.xOrigin, wanted - width));
        bool changed = false;
        if (v.vScrollBar) {
            bool need = v.visibleRows < count;
            if (need != vm) {
                int bar = v.vScrollBar->core.width + spacing;
                width += need ? -bar : bar;
                if (!need)
                    v.topRow = 0;
                vm = need;
                changed = true;
            }
        }
        if (v.hScrollBar) {
            bool need = (int)M(view).rowWidth + 2 * Shadow(view) > width;
            if (need != hm) {
                int bar = v.hScrollBar->core.height + spacing;
                height += need ? -bar : bar;
                if (!need)
                    v.xOrigin = 0;
                hm = need;
                changed = true;
            }
        }
        if (!changed)
            break;
    }
    view->core.height = saved_height;
    view->core.width = saved_width;
    if (stop) {
        CountVisibleRows(view);
        v.flags &= ~XmTREE_SCROLLBARS_BUSY;
        return;
    }
    bool changed = vm != vm0 || hm != hm0;
    if (v.vScrollBar && vm != vm0)
        vm ? XtManageChild(v.vScrollBar) : XtUnmanageChild(v.vScrollBar);
    if (v.hScrollBar && hm != hm0)
        hm ? XtManageChild(v.hScrollBar) : XtUnmanageChild(v.hScrollBar);
    if (changed && (sw->core.width != sw_width || sw->core.height != sw_height))
        XtResizeWidget(sw, sw_width, sw_height, sw->core.border_width);
    // Xt lets an unrealized window lay out its managed children once, as the
    // hierarchy is realized: bars managed after that, from a realize
    // procedure, would stay where they were made, over the rows.
    if (changed && !XtIsRealized(sw) && XtIsManaged(sw))
        (*XtClass(sw)->core_class.resize)(sw);
    CountVisibleRows(view);
    v.topRow = std::max(0, std::min(v.topRow, count - v.visibleRows));
    SetSlider(view);
    if (changed && RealizedAndManaged(view)) {
        if (v.relayoutTimer) {
            XtRemoveTimeOut(v.relayoutTimer);
            v.relayoutTimer = 0;
            RelayoutNow((XtPointer)view, nullptr);
        }
        v.relayoutTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(view), 0, RelayoutNow,
                                          (XtPointer)view);
    } else {
        v.flags &= ~XmTREE_SCROLLBARS_BUSY;
    }
    if (XtIsRealized(view))
        XFlush(XtDisplay(view));
}

void ConfigureAllScrollBars(Widget w)
{
    for (Widget view : Views(w))
        ConfigureScrollBars(view);
}

void RunRelayoutNow(Widget view)
{
    XmPrjTreePart &v = P(view);
    if (!v.relayoutTimer)
        return;
    XtRemoveTimeOut(v.relayoutTimer);
    v.relayoutTimer = 0;
    RelayoutNow((XtPointer)view, nullptr);
}

void ScrollTo(Widget view, bool vertical, int target)
{
    XmPrjTreePart &v = P(view);
    XmPrjTreePart &m = M(view);
    if (target < 0)
        target = 0;
    int current = vertical ? v.topRow : v.xOrigin;
    if (target == current)
        return;
    if (!RealizedAndManaged(view) || HasRelayoutPending(view)) {
        (vertical ? v.topRow : v.xOrigin) = target;
        return;
    }
    v.flags |= XmTREE_ROW_UPDATE;
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    int shadow = Shadow(view);
    int ax = shadow + v.treeMarginWidth, ay = shadow + v.treeMarginHeight;
    int aw = std::max(0, (int)view->core.width - 2 * ax);
    int ah = std::max(0, (int)view->core.height - ay - (v.showGrid ? shadow : ay));
    GC gc = v.gridGC ? v.gridGC : vertical ? v.eraseGC : (v.trunkGC ? v.trunkGC : v.textGC);
    int distance = vertical ? (target - current) * (int)m.rowHeight : target - current;
    int span = vertical ? ah : aw;
    (vertical ? v.topRow : v.xOrigin) = target;
    if (std::abs(distance) < span) {
        XRectangle clip = {(short)ax, (short)ay, (unsigned short)aw, (unsigned short)ah};
        XSetClipRectangles(dpy, gc, 0, 0, &clip, 1, YXBanded);
        XSetGraphicsExposures(dpy, gc, True);
        int keep = span - std::abs(distance);
        if (vertical) {
            int from = distance > 0 ? ay + distance : ay;
            int to = distance > 0 ? ay : ay - distance;
            XCopyArea(dpy, win, win, gc, ax, from, aw, keep, ax, to);
            int band = distance > 0 ? ay + keep : ay;
            XClearArea(dpy, win, ax, band, aw, std::abs(distance), False);
            Repaint(view, ax, band, aw, std::abs(distance));
        } else {
            int from = distance > 0 ? ax + distance : ax;
            int to = distance > 0 ? ax : ax - distance;
            XCopyArea(dpy, win, win, gc, from, ay, keep, ah, to, ay);
            int band = distance > 0 ? ax + keep : ax;
            XClearArea(dpy, win, band, ay, std::abs(distance), ah, False);
            Repaint(view, band, ay, std::abs(distance), ah);
        }
        XSetGraphicsExposures(dpy, gc, False);
    } else {
        XClearArea(dpy, win, ax, ay, aw, ah, False);
        Repaint(view, ax, ay, aw, ah);
    }
    XFlush(dpy);
    v.flags &= ~XmTREE_ROW_UPDATE;
}

bool MakeVisible(Widget view, XwkTreeNode *node, bool force, bool centre)
{
    XmPrjTreePart &v = P(view);
    v.flags &= ~XmTREE_CLICK_MOVED;
    if (!node || !Item(node))
        return true;
    int row = RowOf(view, node);
    if (row < 0)
        return true;
    if (!force && row >= v.topRow && row < v.topRow + v.visibleRows)
        return true;
    if (v.dontMove || (v.flags & XmTREE_GEOMETRY_STALE)) {
        LayoutPass(view);
        ConfigureScrollBars(view);
    }
    int count = RowCount(view);
    if (v.topRow == 0 && (row < v.visibleRows || count <= v.visibleRows))
        return true;
    int top;
    if (centre)
        top = row - v.visibleRows / 2;
    else if (row >= v.topRow)
        top = std::abs(row - v.visibleRows) + 1;
    else
        top = row;
    top = std::max(0, std::min(top, count - v.visibleRows));
    if (RealizedAndManaged(view) && !v.dontMove) {
        ScrollTo(view, true, top);
        if (v.topRow > v.visibleRows)
            ConfigureScrollBars(view);
        if (v.vScrollBar && XtIsManaged(v.vScrollBar)) {
            XtVaSetValues(v.vScrollBar, XmNvalue, v.topRow, NULL);
            v.lastVScroll = v.topRow;
        }
    } else {
        v.topRow = top;
    }
    return false;
}

}  // namespace xwk::tree

extern "C" {

void XmPrjTreeGetOrigins(Widget w, int *x, int *y)
{
    if (x)
        *x = 0;
    if (y)
        *y = 0;
    if (!IsTree(w) || !UnderScrolledWindow(w))
        return;
    if (x)
        *x = P(w).xOrigin;
    if (y)
        *y = P(w).topRow;
}

void XmPrjTreeSetOrigins(Widget w, int x, int y)
{
    if (!IsTree(w) || !Alive(w) || !UnderScrolledWindow(w))
        return;
    XmPrjTreePart &v = P(w);
    bool changed = false;
    if (x != -1 && x != v.xOrigin) {
        v.xOrigin = x;
        changed = true;
    }
    if (y != -1 && y != v.topRow) {
        v.topRow = y;
        changed = true;
    }
    if (!changed)
        return;
    ConfigureScrollBars(w);
    if (!v.dontMove)
        RepaintAll(w, true);
}

void XmPrjTreeSetTopItem(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !OwnNode(w, node) || !Item(node))
        return;
    XmPrjTreePart &v = P(w);
    v.flags &= ~XmTREE_CLICK_MOVED;
    int row = RowOf(w, node);
    row = std::max(0, std::min(row, RowCount(w) - v.visibleRows));
    if (RealizedAndManaged(w) && !v.dontMove) {
        ScrollTo(w, true, row);
        if (v.topRow > v.visibleRows)
            ConfigureScrollBars(w);
        if (v.vScrollBar && XtIsManaged(v.vScrollBar)) {
            XtVaSetValues(v.vScrollBar, XmNvalue, v.topRow, NULL);
            v.lastVScroll = v.topRow;
        }
    } else {
        v.topRow = row;
    }
}

void XmPrjTreeScroll(Widget w, int direction)
{
    if (!IsTree(w) || !Alive(w) || !UnderScrolledWindow(w))
        return;
    XmPrjTreePart &v = P(w);
    Widget bar = direction == 1 || direction == 2 ? v.vScrollBar
                 : direction == 4 || direction == 8 ? v.hScrollBar
                                                     : nullptr;
    if (!bar)
        return;
    int value, slider, inc, page, min, max;
    XtVaGetValues(bar, XmNvalue, &value, XmNsliderSize, &slider, XmNincrement, &inc,
                  XmNpageIncrement, &page, XmNminimum, &min, XmNmaximum, &max, NULL);
    value += direction == 1 || direction == 4 ? -inc : inc;
    value = std::max(min, std::min(value, max - slider));
    XmScrollBarSetValues(bar, value, slider, inc, page, True);
}

}  // extern "C"
