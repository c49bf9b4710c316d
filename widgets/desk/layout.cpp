// Geometry of the desk list: cell sizes, the grid of columns and rows, the
// scroll bar, placement of an item's boxes, the item under a point, and
// scrolling by whole rows.
#include "widgets/desk/desk.h"
#include "widgets/tree/tree.h"

#include <Xm/XmP.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>

using namespace xwk::desk;

namespace {

bool UnderScrolledWindow(Widget view)
{
    Widget parent = XtParent(view);
    return parent && XmIsScrolledWindow(parent);
}

// The maxima of label extents and icon sizes over all items, gathered
// again only after a change that may have lowered them.
void GatherExtents(Widget w)
{
    State &s = S(Mother(w));
    XmPrjDeskPart &m = M(w);
    if (s.extentsValid)
        return;
    s.maxLabelWidth = s.maxLabelHeight = 0;
    m.maxIconWidth = m.maxIconHeight = 0;
    for (XwkListNode *n = m.items ? m.items->first : nullptr; n; n = n->next)
        GrowExtents(w, Item(n));
    s.extentsValid = true;
}

void ScrollBarMoved(Widget, XtPointer closure, XtPointer call_data)
{
    auto view = (Widget)closure;
    if (!IsDesk(view) || !Alive(view))
        return;
    XmPrjDeskPart &d = P(view);
    int value = ((XmScrollBarCallbackStruct *)call_data)->value;
    if (value == d.lastTopRow)
        return;
    XmPrjDeskPart &m = M(view);
    if (m.current && Paintable(view) && RowShown(view, m.current->index / std::max(d.columns, 1)))
        EraseFrame(view, m.current);
    ScrollToRow(view, value);
    d.lastTopRow = d.topRow;
}

int BarRoom(Widget view)
{
    XmPrjDeskPart &d = P(view);
    Dimension spacing = 0;
    XtVaGetValues(XtParent(view), XmNspacing, &spacing, NULL);
    return d.scrollBar->core.width + 2 * d.scrollBar->core.border_width + spacing;
}

void BarLater(XtPointer closure, XtIntervalId *)
{
    auto view = (Widget)closure;
    S(view).barTimer = 0;
    if (!Alive(view))
        return;
    GridOne(view);
    RepaintView(view, true);
}

}  // namespace

namespace xwk::desk {

int InsetX(Widget view)
{
    return Shadow(view) + Highlight(view) + M(view).marginWidth;
}

int InsetY(Widget view)
{
    return Shadow(view) + Highlight(view) + M(view).marginHeight;
}

void ExtentsChanged(Widget w)
{
    S(Mother(w)).extentsValid = false;
}

void GrowExtents(Widget w, XmPrjDeskItem item)
{
    State &s = S(Mother(w));
    XmPrjDeskPart &m = M(w);
    s.maxLabelWidth = std::max(s.maxLabelWidth, (int)item->labelWidth);
    s.maxLabelHeight = std::max(s.maxLabelHeight, (int)item->labelHeight);
    if (item->icon) {
        m.maxIconWidth = std::max(m.maxIconWidth, (Dimension)xwk::tree::IconWidth(item->icon));
        m.maxIconHeight = std::max(m.maxIconHeight, (Dimension)xwk::tree::IconHeight(item->icon));
    }
}

void ComputeSizes(Widget w)
{
    GatherExtents(w);
    State &s = S(Mother(w));
    XmPrjDeskPart &m = M(w);
    for (Widget v : Views(w)) {
        XmPrjDeskPart &d = P(v);
        int shadow = Shadow(v), highlight = Highlight(v);
        d.maxIconWidth = m.maxIconWidth;
        d.maxIconHeight = m.maxIconHeight;
        // hIconPad pads the icon both ways.
        d.cellHeight = (Dimension)(2 * (shadow + highlight + m.hIconPad) + m.maxIconHeight +
                                   s.maxLabelHeight + m.vFontPad + m.vPad);
        d.cellWidth = (Dimension)(2 * highlight +
                                  std::max(s.maxLabelWidth,
                                           m.maxIconWidth + 2 * (shadow + m.hIconPad)) +
                                  m.hPad);
        if (!d.cellWidth)
            d.cellWidth = 1;
        if (!d.cellHeight)
            d.cellHeight = 1;
        d.stateFlags |= XmDESK_SIZES_KNOWN;
        AskSize(v);
    }
}

void PreferredSize(Widget view, Dimension *width, Dimension *height)
{
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    int extra = Shadow(view) + Highlight(view);
    int w = d.cellWidth * std::max(d.columns, 1) - m.hPad + 2 * (m.marginWidth + extra);
    int h = d.cellHeight * std::max(d.visibleRows, 1) - m.vPad + 2 * (m.marginHeight + extra);
    *width = (Dimension)std::clamp(w, 1, 32767);
    *height = (Dimension)std::clamp(h, 1, 32767);
}

// Before it is shown, a desk smaller than one cell asks its parent for its
// preferred size.
void AskSize(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (XtIsRealized(view) || !XtIsManaged(view))
        return;
    if (view->core.width >= d.cellWidth && view->core.height >= d.cellHeight)
        return;
    XmPrjDeskPart &m = M(view);
    int extra = Shadow(view) + Highlight(view);
    int w = std::max(1, d.cellWidth * d.columns - m.hPad + 2 * (m.marginWidth + extra));
    int h = std::max(1, d.cellHeight * d.totalRows - m.vPad + 2 * (m.marginHeight + extra));
    bool small = (view->core.width <= 2 * InsetX(view) && view->core.width < w) ||
                 (view->core.height <= 2 * InsetY(view) && view->core.height < h);
    if (!(d.stateFlags & XmDESK_INITIAL_SIZE) && !small)
        return;
    Dimension rw = 0, rh = 0;
    XtGeometryResult result =
        XtMakeResizeRequest(view, (Dimension)std::min(w, 32767), (Dimension)std::min(h, 32767),
                            &rw, &rh);
    if (result == XtGeometryAlmost)
        XtMakeResizeRequest(view, rw, rh, nullptr, nullptr);
    d.stateFlags &= ~XmDESK_INITIAL_SIZE;
}

bool GridOne(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (!Alive(view) || !UnderScrolledWindow(view) || (d.stateFlags & XmDESK_GRID_RUNNING))
        return false;
    d.stateFlags |= XmDESK_GRID_RUNNING;
    XmPrjDeskPart &m = M(view);
    int old_top = d.topRow, old_columns = d.columns, old_rows = d.visibleRows;
    int width = std::max((int)view->core.width, 1), height = std::max((int)view->core.height, 1);
    bool shown = d.scrollBar && XtIsManaged(d.scrollBar);
    bool need = shown;
    int count = Count(view);
    for (int pass = 0; pass < 2; pass++) {
        int room = width - 2 * InsetX(view) - m.hPad;
        // The second pass sees the width the bar leaves, or gives back.
        if (pass == 1 && d.scrollBar && need != shown)
            room += need ? -BarRoom(view) : BarRoom(view);
        d.columns = std::max(1, room / std::max((int)d.cellWidth, 1));
        int rows_room = height - 2 * InsetY(view) - m.vPad - m.vFontPad;
        d.visibleRows = std::max(1, rows_room / std::max((int)d.cellHeight, 1));
        d.totalRows = std::max(1, (count + d.columns - 1) / d.columns);
        int last_rows = count ? (count - 1) / d.columns + 1 : 1;
        d.maxTopRow = std::max(0, last_rows - d.visibleRows);
        int top = std::clamp(d.topRow, 0, d.maxTopRow);
        bool changed = false;
        if (d.visibleRows < last_rows && d.scrollBar && !d.dontMove) {
            changed = !need;
            need = true;
            XtVaSetValues(d.scrollBar, XmNminimum, 0, XmNmaximum, last_rows, XmNsliderSize,
                          d.visibleRows, XmNvalue, top, XmNincrement, 1, XmNpageIncrement,
                          std::max(d.visibleRows - 1, 1), NULL);
        } else {
            changed = need;
            need = false;
            top = 0;
        }
        d.topRow = top;
        if (!changed || pass == 1)
            break;
        d.stateFlags |= XmDESK_BAR_CHANGED;
    }
    if (d.scrollBar && need != shown) {
        State &s = S(view);
        if (s.inResize) {
            if (!s.barTimer)
                s.barTimer = XtAppAddTimeOut(XtWidgetToApplicationContext(view), 0, BarLater,
                                             (XtPointer)view);
        } else if (need) {
            XtManageChild(d.scrollBar);
        } else {
            XtUnmanageChild(d.scrollBar);
        }
    }
    d.stateFlags &= ~XmDESK_GRID_RUNNING;
    if (d.columns != old_columns && XtIsRealized(view) && m.current)
        EraseFrame(view, m.current);
    d.lastTopRow = d.topRow;
    return d.topRow != old_top || d.columns != old_columns || d.visibleRows != old_rows;
}

bool Grid(Widget w)
{
    bool changed = false;
    for (Widget v : Views(w))
        changed |= GridOne(v);
    return changed;
}

int RowOf(Widget view, int index)
{
    return index / std::max(P(view).columns, 1);
}

bool RowShown(Widget view, int row)
{
    XmPrjDeskPart &d = P(view);
    return row >= d.topRow && row <= d.topRow + d.visibleRows - 1;
}

void Boxes(Widget view, int index, XmPrjDeskItem item, Box *icon, Box *label)
{
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    int columns = std::max(d.columns, 1);
    int row = index / columns, col = index % columns;
    int base_x = InsetX(view) + col * d.cellWidth;
    int base_y = InsetY(view) + (row - d.topRow) * d.cellHeight;
    int pad = Shadow(view) + m.hIconPad;
    icon->width = d.maxIconWidth + 2 * pad;
    icon->height = d.maxIconHeight + 2 * pad;
    icon->x = base_x + (d.cellWidth - m.hPad - icon->width) / 2;
    icon->y = base_y;
    int highlight = Highlight(view);
    label->width = item->labelWidth + 2 * highlight;
    label->height = item->labelHeight + 2 * highlight;
    label->x = base_x + (d.cellWidth - m.hPad - label->width) / 2;
    label->y = base_y + icon->height + m.vFontPad;
}

XwkListNode *ItemAt(Widget view, int x, int y)
{
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    if (!Count(view))
        return nullptr;
    if (x > InsetX(view) + d.cellWidth * d.columns - m.hPad)
        return nullptr;
    if (y > InsetY(view) + d.cellHeight * d.visibleRows - m.vPad)
        return nullptr;
    int col = (x - InsetX(view)) / std::max((int)d.cellWidth, 1);
    int row = (y - InsetY(view)) / std::max((int)d.cellHeight, 1);
    int index = col + (row + d.topRow) * d.columns;
    // The bound mixes a cell index with a row count; kept as it stands.
    if (index > d.columns * (d.topRow + d.visibleRows))
        index = d.topRow + d.visibleRows;
    XwkListNode *node = NodeAt(view, index);
    if (!node)
        return nullptr;
    Box icon, label;
    Boxes(view, index, Item(node), &icon, &label);
    return icon.Contains(x, y) || label.Contains(x, y) ? node : nullptr;
}

void CreateScrollBar(Widget view)
{
    XmPrjDeskPart &d = P(view);
    Widget sw = XtParent(view);
    Arg args[11];
    Cardinal n = 0;
    XtSetArg(args[n], XmNorientation, XmVERTICAL); n++;
    XtSetArg(args[n], XmNminimum, 0); n++;
    XtSetArg(args[n], XmNmaximum, 1); n++;
    XtSetArg(args[n], XmNvalue, 0); n++;
    XtSetArg(args[n], XmNsliderSize, 1); n++;
    XtSetArg(args[n], XmNpageIncrement, 1); n++;
    XtSetArg(args[n], XmNincrement, 1); n++;
    XtSetArg(args[n], XmNtraversalOn, False); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNshadowThickness, Shadow(view)); n++;
    d.scrollBar = XmCreateScrollBar(sw, (String) "prjDeskScrollBar", args, n);
    for (const char *list : {XmNtoTopCallback, XmNtoBottomCallback, XmNincrementCallback,
                             XmNdecrementCallback, XmNpageIncrementCallback,
                             XmNpageDecrementCallback, XmNdragCallback, XmNvalueChangedCallback})
        XtAddCallback(d.scrollBar, list, ScrollBarMoved, (XtPointer)view);
    XtVaSetValues(sw, XmNverticalScrollBar, d.scrollBar, XmNhorizontalScrollBar, NULL,
                  XmNworkWindow, view, NULL);
}

void SetBarValue(Widget view, int value)
{
    XmPrjDeskPart &d = P(view);
    if (d.scrollBar && XtIsManaged(d.scrollBar))
        XtVaSetValues(d.scrollBar, XmNvalue, value, NULL);
    d.lastTopRow = d.topRow;
}

// Scrolls by copying the rows that stay and repainting only the strip
// uncovered.
void ScrollToRow(Widget view, int row)
{
    XmPrjDeskPart &d = P(view);
    row = std::max(row, 0);
    Display *dpy = XtDisplay(view);
    if (row == d.topRow || !Paintable(view)) {
        d.topRow = row;
        if (XtIsRealized(view))
            XFlush(dpy);
        return;
    }
    d.stateFlags |= XmDESK_THIS_ONLY;
    Window win = XtWindow(view);
    int top = InsetY(view);
    int interior = (int)view->core.height - 2 * top;
    int shift = std::abs(row - d.topRow) * d.cellHeight;
    int width = (int)view->core.width - 2 * InsetX(view) + 2 * Highlight(view);
    int x = InsetX(view) - Highlight(view);
    if (shift >= interior) {
        d.topRow = row;
        XClearArea(dpy, win, x, top, width, interior, False);
        Repaint(view, x, top, width, interior);
    } else if (row > d.topRow) {
        int copy = interior - shift;
        XCopyArea(dpy, win, win, d.backgroundGC, x, top + shift, width, copy, x, top);
        d.topRow = row;
        XClearArea(dpy, win, x, top + copy, width, shift, False);
        Repaint(view, x, top + copy, width, shift);
    } else {
        int copy = interior - shift;
        XCopyArea(dpy, win, win, d.backgroundGC, x, top, width, copy, x, top + shift);
        d.topRow = row;
        XClearArea(dpy, win, x, top, width, shift, False);
        Repaint(view, x, top, width, shift);
    }
    d.stateFlags &= ~XmDESK_THIS_ONLY;
    XFlush(dpy);
}

bool KeepVisible(Widget view, bool scroll)
{
    XmPrjDeskPart &m = M(view);
    XmPrjDeskPart &d = P(view);
    if (!m.current)
        return false;
    if (d.dontMove)
        GridOne(view);
    int row = RowOf(view, m.current->index);
    if (RowShown(view, row))
        return false;
    int top = row < d.topRow ? row : row - d.visibleRows + 1;
    if (scroll && !d.dontMove && XtIsRealized(view)) {
        ScrollToRow(view, top);
        SetBarValue(view, d.topRow);
        return true;
    }
    d.topRow = std::max(top, 0);
    return false;
}

}  // namespace xwk::desk

extern "C" {

XtPointer XmPrjDeskWhichItem(Widget w, int x, int y)
{
    if (!IsDesk(w) || !Alive(w))
        return nullptr;
    XwkListNode *node = ItemAt(w, x, y);
    return node ? Item(node)->userData : nullptr;
}

int XmPrjDeskGetOrigins(Widget w, int *x, int *y)
{
    if (!IsDesk(w))
        return 0;
    bool scrolled = UnderScrolledWindow(w);
    if (x)
        *x = 0;
    if (y)
        *y = scrolled ? P(w).topRow : 0;
    return 1;
}

int XmPrjDeskSetOrigins(Widget w, int x, int y)
{
    if (!IsDesk(w) || !Alive(w) || !UnderScrolledWindow(w))
        return 0;
    XmPrjDeskPart &d = P(w);
    if (y != -1)
        d.topRow = std::max(y, 0);
    if (x || y) {
        Grid(w);
        if (!d.dontMove)
            RepaintAll(w, true);
    }
    return 1;
}

void XmPrjDeskScroll(Widget w, int flags)
{
    if (!IsDesk(w) || !Alive(w) || !UnderScrolledWindow(w))
        return;
    Widget bar = P(w).scrollBar;
    if (!bar || !XtIsManaged(bar))
        return;
    int value = 0, minimum = 0, maximum = 0, slider = 0, increment = 1, page = 1;
    XtVaGetValues(bar, XmNvalue, &value, XmNminimum, &minimum, XmNmaximum, &maximum,
                  XmNsliderSize, &slider, XmNincrement, &increment, XmNpageIncrement, &page, NULL);
    if (flags & 1)
        value -= increment;
    if (flags & 2)
        value += increment;
    value = std::max(minimum, std::min(value, maximum - slider));
    XmScrollBarSetValues(bar, value, slider, increment, page, True);
}

}  // extern "C"
