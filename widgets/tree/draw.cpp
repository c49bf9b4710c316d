// Painting of the tree list: one row (fill, frame, label, icons, trunk and
// grid), the repaint routine behind expose, and the repaints of all views.
// Only rows on the page are ever visited.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>

#include <algorithm>

using namespace xwk::tree;

namespace {

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

bool Selected(XmPrjTreeItem item)
{
    return item->flags & XmTREE_ITEM_SELECTED;
}

// Inside the shadow and the margins.
XRectangle InnerArea(Widget view)
{
    XmPrjTreePart &v = P(view);
    int sx = Shadow(view) + v.treeMarginWidth, sy = Shadow(view) + v.treeMarginHeight;
    XRectangle r;
    r.x = (short)sx;
    r.y = (short)sy;
    r.width = (unsigned short)std::max(0, (int)view->core.width - 2 * sx);
    r.height = (unsigned short)std::max(0, (int)view->core.height - 2 * sy);
    return r;
}

XRectangle Intersect(XRectangle a, int x, int y, int w, int h)
{
    int x1 = std::max((int)a.x, x), y1 = std::max((int)a.y, y);
    int x2 = std::min(a.x + (int)a.width, x + w), y2 = std::min(a.y + (int)a.height, y + h);
    XRectangle r;
    r.x = (short)x1;
    r.y = (short)y1;
    r.width = (unsigned short)std::max(0, x2 - x1);
    r.height = (unsigned short)std::max(0, y2 - y1);
    return r;
}

// The inner area less the highlight and hPad at either side: where text,
// icons and the trunk may go.
XRectangle TextArea(Widget view, int x, int y, int w, int h)
{
    XRectangle text = Intersect(InnerArea(view), x, y, w, h);
    int narrow = P(view).highlightThickness + M(view).hPad;
    XRectangle base = InnerArea(view);
    int left = std::max((int)text.x, base.x + narrow);
    int right = std::min(text.x + (int)text.width, base.x + (int)base.width - narrow);
    text.x = (short)left;
    text.width = (unsigned short)std::max(0, right - left);
    return text;
}

void SetClips(Widget view, int x, int y, int w, int h)
{
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    int shadow = Shadow(view);
    XRectangle grid = Intersect(XRectangle{(short)shadow, (short)shadow,
                                           (unsigned short)std::max(0, (int)view->core.width - 2 * shadow),
                                           (unsigned short)std::max(0, (int)view->core.height - 2 * shadow)},
                                x, y, w, h);
    XRectangle inner = Intersect(InnerArea(view), x, y, w, h);
    XRectangle text = TextArea(view, x, y, w, h);
    if (v.gridGC)
        XSetClipRectangles(dpy, v.gridGC, 0, 0, &grid, 1, YXBanded);
    for (GC gc : {v.eraseGC, v.highlightGC, v.activeBackgroundGC, v.inactiveBackgroundGC})
        XSetClipRectangles(dpy, gc, 0, 0, &inner, 1, YXBanded);
    for (GC gc : {v.trunkGC, v.textGC, v.activeTextGC, v.inactiveTextGC})
        if (gc)
            XSetClipRectangles(dpy, gc, 0, 0, &text, 1, YXBanded);
}

// The whole-window clips that painting outside expose relies on.
void DefaultClips(Widget view)
{
    SetClips(view, 0, 0, view->core.width, view->core.height);
}

int AreaBottom(Widget view)
{
    return (int)view->core.height - Shadow(view) - P(view).treeMarginHeight -
           P(view).highlightThickness;
}

}  // namespace

void xwk::tree::DrawIcon(Widget view, XwkIcon *icon, int x, int y, bool through_mask, int x_limit)
{
    if (!icon || !icon->pixmap)
        return;
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    int w = IconWidth(icon), h = IconHeight(icon);
    if (x_limit > 0)
        w = std::min(w, x_limit - x);
    h = std::min(h, AreaBottom(view) - y);
    if (w <= 0 || h <= 0)
        return;
    if (!icon->mask) {
        XCopyArea(dpy, icon->pixmap, win, v.textGC, 0, 0, w, h, x, y);
        return;
    }
    if (through_mask) {
        XSetClipOrigin(dpy, v.pixmapGC, x, y);
        XSetClipMask(dpy, v.pixmapGC, icon->mask);
        XCopyArea(dpy, icon->pixmap, win, v.pixmapGC, 0, 0, w, h, x, y);
        XSetClipOrigin(dpy, v.pixmapGC, 0, 0);
        XSetClipMask(dpy, v.pixmapGC, None);
        return;
    }
    XCopyArea(dpy, ComposedIcon(view, v.pixmapGC, icon), win, v.textGC, 0, 0, w, h, x, y);
}

namespace {

void DrawTrunk(Widget view, XwkTreeNode *node, int y, XwkIcon *shown_icon)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    GC gc = m.useDashLine && v.trunkGC ? v.trunkGC : v.textGC;
    Pixel fg = ((XmManagerWidget)view)->manager.foreground;
    bool recolour = gc == v.textGC && m.treeTrunkColor != fg;
    if (recolour)
        XSetForeground(dpy, gc, m.treeTrunkColor);
    int level = (int)node->level;
    int rh = m.rowHeight;
    int mid = y + rh / 2;
    if (node->first_child && ItemState(node) == XmSLAM_OPEN) {
        int ih = IconHeight(shown_icon);
        if (ih < rh) {
            int x = LevelX(view, level);
            XFillRectangle(dpy, win, gc, x, y + (rh + ih) / 2, 1, rh - (rh + ih) / 2);
        }
    }
    if (node->parent && node->parent->parent) {
        int px = LevelX(view, level - 1);
        int bottom = node->next_sibling ? y + rh : mid;
        XFillRectangle(dpy, win, gc, px, y, 1, bottom - y);
        int end = IndentSlot(view) ? IconX(view, level) : LabelX(view, node);
        if (end > px) {
            XFillRectangle(dpy, win, gc, px, mid, end - px, 1);
            XwkIcon *state = StateIconOf(view, node);
            XmPrjTreeItem item = Item(node);
            XwkIcon *fruitless = m.slamPolicy == XmSLAM_PER_ROW
                                     ? (ExtOf(item) ? ExtOf(item)->fruitlessIcon : nullptr)
                                     : m.fruitlessStateIcon;
            if (state && state != fruitless)
                DrawIcon(view, state, px - IconWidth(state) / 2, mid - IconHeight(state) / 2,
                         true, 0);
        }
        XwkTreeNode *child = node->parent;
        for (XwkTreeNode *a = child->parent; a && a->parent; child = a, a = a->parent) {
            if (child->next_sibling)
                XFillRectangle(dpy, win, gc, LevelX(view, (int)a->level), y, 1, rh);
        }
    }
    if (recolour)
        XSetForeground(dpy, gc, fg);
}

}  // namespace

namespace xwk::tree {

Pixmap ComposedIcon(Widget view, GC gc, XwkIcon *icon)
{
    if (icon->composed || !icon->mask)
        return icon->composed ? icon->composed : icon->pixmap;
    // Composited once over the background; later paints are one copy.
    Display *dpy = XtDisplay(view);
    int iw = IconWidth(icon), ih = IconHeight(icon);
    Pixmap p = XCreatePixmap(dpy, XtWindow(view), iw, ih, view->core.depth);
    XSetClipMask(dpy, gc, None);
    XFillRectangle(dpy, p, gc, 0, 0, iw, ih);
    XSetClipOrigin(dpy, gc, 0, 0);
    XSetClipMask(dpy, gc, icon->mask);
    XCopyArea(dpy, icon->pixmap, p, gc, 0, 0, iw, ih, 0, 0);
    XSetClipMask(dpy, gc, None);
    icon->composed = p;
    return p;
}

void PaintRow(Widget view, XwkTreeNode *node)
{
    if (!RealizedAndManaged(view) || !node || IsRoot(view, node))
        return;
    XmPrjTreeItem item = Item(node);
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    if (!item || Hidden(view, node))
        return;
    int row = RowOf(view, node);
    if (!RowOnPage(view, row))
        return;
    if ((v.flags & XmTREE_SELECTED_ONLY) && !Selected(item))
        return;
    XwkIcon *row_icon = IconOf(item);
    if (row_icon && !m.iconWidth) {
        m.iconWidth = (Dimension)IconWidth(row_icon);
        if (IconHeight(row_icon) > m.rowHeight)
            m.rowHeight = (Dimension)IconHeight(row_icon);
    }
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    int y = RowY(view, row);
    int ht = v.highlightThickness;
    int label_x = LabelX(view, node);
    int fx, fy, fw, fh;
    bool table = TableMode(view);
    int right = (int)view->core.width - Shadow(view) - v.treeMarginWidth;
    if (!table) {
        fx = label_x;
        fy = y + (m.rowHeight - m.vPad - m.labelHeight) / 2 - ht - m.vFontPad;
        fh = m.labelHeight + 2 * (ht + m.vFontPad) - (v.showGrid ? 1 : 0);
    } else {
        fx = v.treeMarginWidth + Shadow(view);
        fy = y;
        fh = m.rowHeight - (v.showGrid ? 1 : 0);
    }
    fw = std::max(right - fx, 0);
    if ((v.flags & XmTREE_IN_EXPOSE) && !XwkRectInRegion(&m.redraw, 0, y, view->core.width,
                                                          m.rowHeight))
        return;
    bool selected = Selected(item);
    bool spreadsheet = m.visualMode == XmSPREADSHEET;
    bool lit = selected || (v.flags & XmTREE_PAINT_SELECTED);
    if (!spreadsheet && fw > 2 * ht && fh > 2 * ht) {
        GC fill;
        if ((v.flags & XmTREE_PAINT_ERASE) || !lit)
            fill = v.eraseGC;
        else
            fill = v.hasFocus ? v.activeBackgroundGC : v.inactiveBackgroundGC;
        XFillRectangle(dpy, win, fill, fx + ht, fy + ht, fw - 2 * ht, fh - 2 * ht);
    }
    if (!spreadsheet && ht) {
        GC frame = nullptr;
        if (v.flags & XmTREE_PAINT_FRAME)
            frame = (v.flags & XmTREE_PAINT_FOCUS) && v.hasFocus ? v.highlightGC : v.eraseGC;
        else if (v.hasFocus && m.currentNode == node)
            frame = v.highlightGC;
        if (frame)
            _XmDrawHighlight(dpy, win, frame, fx, fy, fw, fh, ht, LineSolid);
    }
    GC text;
    if ((v.flags & XmTREE_PAINT_ERASE) || spreadsheet || !lit)
        text = v.textGC;
    else
        text = v.hasFocus ? v.activeTextGC : v.inactiveTextGC;
    XmString s = table ? nullptr : RowString(view, node);
    if (table) {
        PaintCells(view, node, y, text);
        // Text in an Xft font leaves its cell's clip on the GC, which the
        // icon and the trunk below are drawn through.
        XRectangle area = (v.flags & XmTREE_IN_EXPOSE)
                              ? TextArea(view, m.redraw.x, m.redraw.y, m.redraw.width, m.redraw.height)
                              : TextArea(view, 0, 0, view->core.width, view->core.height);
        XSetClipRectangles(dpy, text, 0, 0, &area, 1, YXBanded);
    }
    if (s) {
        Pixel fg = ((XmManagerWidget)view)->manager.foreground;
        Pixel own = ForegroundOf(view, item);
        bool recolour = text == v.textGC && own != fg;
        if (recolour)
            XSetForeground(dpy, text, own);
        XmStringDraw(dpy, win, m.fontList, s, text, (Position)(label_x + m.hPad),
                     (Position)(y + (m.rowHeight - m.vPad - m.labelHeight) / 2), item->width,
                     XmALIGNMENT_BEGINNING, XmSTRING_DIRECTION_L_TO_R, nullptr);
        if (recolour)
            XSetForeground(dpy, text, fg);
    }
    XwkIcon *icon = row_icon;
    if (selected && v.selectedIcon && m.selectionPolicy != XmMULTIPLE_SELECT)
        icon = v.selectedIcon;
    int level = (int)node->level;
    // In a table icon and trunk belong to the first column: scrolled off
    // or hidden, it takes them along.
    bool lead = !table || (m.title && m.columns && m.title->firstColumn == m.columns->first &&
                           ColumnOf(m.columns->first)->number > 0);
    if (!lead)
        icon = nullptr;
    if (icon && m.iconWidth) {
        int ix = IconX(view, level) + (m.iconWidth - IconWidth(icon)) / 2;
        int iy = y + (m.rowHeight - IconHeight(icon)) / 2;
        DrawIcon(view, icon, ix, iy, table && lit, 0);
    }
    if (m.highlightedNode == node && m.highlightedWidget == view && ht && !spreadsheet)
        _XmDrawHighlight(dpy, win, v.highlightGC, fx, fy, fw, fh, ht, LineSolid);
    if (m.canSlam && lead) {
        XwkIcon *state = StateIconOf(view, node);
        XwkIcon *fruitless = m.slamPolicy == XmSLAM_PER_ROW
                                 ? (ExtOf(item) ? ExtOf(item)->fruitlessIcon : nullptr)
                                 : m.fruitlessStateIcon;
        bool trunk = m.treeTrunkDrawing;
        bool draw = !trunk || level < 2 || (state == fruitless && state != m.fruitlessStateIcon);
        if (state && draw) {
            int sx = StateIconX(view, level, IconWidth(state));
            DrawIcon(view, state, sx, y + (m.rowHeight - IconHeight(state)) / 2, true, 0);
        }
    }
    if (m.treeTrunkDrawing && lead)
        DrawTrunk(view, node, y, icon);
    if (v.showGrid && v.gridGC)
        XFillRectangle(dpy, win, v.gridGC, Shadow(view), y + m.rowHeight - 1,
                       std::max(0, (int)view->core.width - 2 * Shadow(view)), 1);
}

void Repaint(Widget view, int x, int y, int width, int height)
{
    if (HasRelayoutPending(view) || !XtIsRealized(view))
        return;
    XmPrjTreePart &v = P(view);
    XmPrjTreePart &m = M(view);
    v.flags &= ~XmTREE_ROWS_CHANGED;
    m.redraw.x = (short)x;
    m.redraw.y = (short)y;
    m.redraw.width = (unsigned short)std::max(0, width);
    m.redraw.height = (unsigned short)std::max(0, height);
    if (!v.dontMove && !(v.flags & XmTREE_GEOMETRY_STALE)) {
        if ((int)view->core.width < m.rowWidth && v.hScrollBar && !XtIsManaged(v.hScrollBar))
            ConfigureScrollBars(view);
    } else {
        LayoutPass(view);
        ConfigureScrollBars(view);
        if (HasRelayoutPending(view))
            return;
    }
    if (m.title)
        LayOutColumns(view);
    HideEditorOffPage(view);
    RedrawBorder(view);
    SetClips(view, x, y, width, height);
    v.flags |= XmTREE_IN_EXPOSE;
    int count = RowCount(view);
    if (count && XtIsManaged(view)) {
        int rows = PageRows(view);
        XwkTreeNode *n = NodeAt(view, v.topRow);
        if (!n && m.canSlam)
            n = m.visibleList->first ? (XwkTreeNode *)m.visibleList->first->data : nullptr;
        for (int i = 0; n && i < rows; i++, n = NextRow(view, n))
            PaintRow(view, n);
    }
    v.flags &= ~XmTREE_IN_EXPOSE;
    DefaultClips(view);
}

void RedrawBorder(Widget view)
{
    if (!XtIsRealized(view))
        return;
    auto *mgr = (XmManagerWidget)view;
    XmPrjTreePart &m = M(view);
    if (!XwkRectInRegion(&m.redraw, 0, 0, view->core.width, view->core.height))
        return;
    XSetClipMask(XtDisplay(view), mgr->manager.top_shadow_GC, None);
    XSetClipMask(XtDisplay(view), mgr->manager.bottom_shadow_GC, None);
    XmeDrawShadows(XtDisplay(view), XtWindow(view), mgr->manager.top_shadow_GC,
                   mgr->manager.bottom_shadow_GC, 0, 0, view->core.width, view->core.height,
                   mgr->manager.shadow_thickness, P(Mother(view)).shadowType);
}

void RepaintAll(Widget w, bool clear)
{
    for (Widget view : Views(w)) {
        if (HasRelayoutPending(view) || !XtIsRealized(view))
            continue;
        XRectangle r = InnerArea(view);
        if (P(view).showGrid) {
            int s = Shadow(view);
            r = XRectangle{(short)s, (short)s,
                           (unsigned short)std::max(0, (int)view->core.width - 2 * s),
                           (unsigned short)std::max(0, (int)view->core.height - 2 * s)};
        }
        if (clear && r.width && r.height)
            XClearArea(XtDisplay(view), XtWindow(view), r.x, r.y, r.width, r.height, False);
        Repaint(view, r.x, r.y, r.width, r.height);
    }
}

void RepaintFrom(Widget w, XwkTreeNode *node)
{
    for (Widget view : Views(w)) {
        if (HasRelayoutPending(view) || !XtIsRealized(view))
            continue;
        int row = RowOf(view, node);
        int y = std::max(RowY(view, row), (int)Shadow(view));
        int bottom = (int)view->core.height - Shadow(view);
        if (y >= bottom)
            continue;
        XClearArea(XtDisplay(view), XtWindow(view), Shadow(view), y,
                   std::max(0, (int)view->core.width - 2 * Shadow(view)), bottom - y, False);
        Repaint(view, 0, y, view->core.width, bottom - y);
    }
}

void UpdateRow(Widget view, XwkTreeNode *node)
{
    if (!RealizedAndManaged(view) || !node || !Item(node))
        return;
    XmPrjTreePart &v = P(view);
    XmPrjTreePart &m = M(view);
    if (v.dontMove || Hidden(view, node))
        return;
    int row = RowOf(view, node);
    if (!RowOnPage(view, row))
        return;
    XmPrjTreeItem item = Item(node);
    bool selected = Selected(item);
    bool inner = v.flags & (XmTREE_IN_EXPOSE | XmTREE_ROW_UPDATE);
    std::vector<Widget> targets;
    if (inner && !((v.flags & XmTREE_ROW_UPDATE) && selected))
        targets.push_back(view);
    else
        targets = Views(view);
    for (Widget t : targets) {
        XmPrjTreePart &tv = P(t);
        if (!RealizedAndManaged(t) || !RowOnPage(t, RowOf(t, node)))
            continue;
        if (tv.clearOnUpdate) {
            XRectangle r = InnerArea(t);
            XClearArea(XtDisplay(t), XtWindow(t), r.x, RowY(t, row), r.width, m.rowHeight, False);
        }
        unsigned int saved = tv.flags;
        if (selected || m.currentNode == node) {
            tv.flags |= XmTREE_PAINT_FRAME;
            if (item->flags & XmTREE_ITEM_SELECTABLE && selected)
                tv.flags |= XmTREE_PAINT_SELECTED;
            if (tv.hasFocus && m.currentNode == node)
                tv.flags |= XmTREE_PAINT_FOCUS;
        }
        PaintRow(t, node);
        tv.flags = saved;
    }
}

void PaintPlain(Widget view, XwkTreeNode *node)
{
    for (Widget t : Views(view)) {
        XmPrjTreePart &tv = P(t);
        unsigned int saved = tv.flags;
        tv.flags |= XmTREE_PAINT_FRAME | XmTREE_PAINT_ERASE;
        tv.flags &= ~(XmTREE_PAINT_SELECTED | XmTREE_PAINT_FOCUS);
        PaintRow(t, node);
        tv.flags = saved;
    }
}

void PaintSelected(Widget view, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(view);
    for (Widget t : Views(view)) {
        XmPrjTreePart &tv = P(t);
        unsigned int saved = tv.flags;
        tv.flags |= XmTREE_PAINT_FRAME | XmTREE_PAINT_SELECTED;
        tv.flags &= ~XmTREE_PAINT_ERASE;
        if (tv.hasFocus && m.currentNode == node)
            tv.flags |= XmTREE_PAINT_FOCUS;
        PaintRow(t, node);
        tv.flags = saved;
    }
}

void DoPendingRepaint(Widget view)
{
    if (P(view).flags & XmTREE_ROWS_CHANGED) {
        P(view).flags &= ~XmTREE_ROWS_CHANGED;
        RepaintAll(view, P(view).clearOnUpdate);
    }
}

void ExposeProc(Widget w, XEvent *event, Region region)
{
    if (!M(w).tree || HasRelayoutPending(w))
        return;
    XRectangle box;
    if (region) {
        XClipBox(region, &box);
    } else if (event && (event->type == Expose || event->type == GraphicsExpose)) {
        box.x = (short)event->xexpose.x;
        box.y = (short)event->xexpose.y;
        box.width = (unsigned short)event->xexpose.width;
        box.height = (unsigned short)event->xexpose.height;
    } else {
        box = XRectangle{0, 0, w->core.width, w->core.height};
    }
    Repaint(w, box.x, box.y, box.width, box.height);
}

}  // namespace xwk::tree

extern "C" {

void XmPrjTreeUpdateNode(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !OwnNode(w, node))
        return;
    XmPrjTreePart &v = P(w);
    unsigned int had = v.flags & XmTREE_ROW_UPDATE;
    v.flags |= XmTREE_ROW_UPDATE;
    for (Widget view : Views(w))
        UpdateRow(view, node);
    v.flags = (v.flags & ~XmTREE_ROW_UPDATE) | had;
}

void XmPrjTreeUpdateItem(Widget w, XmPrjTreeNode node)
{
    if (!IsTree(w) || !Alive(w) || !OwnNode(w, node) || !Item(node))
        return;
    for (Widget view : Views(w))
        UpdateRow(view, node);
}

void XmPrjTreeResizeWindow(Widget w, Boolean redraw)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &v = P(w);
    v.dontMove = False;
    if (M(w).useAverageColumnWidth)
        v.flags |= XmTREE_COLUMN_WIDTHS;
    LayoutPass(w);
    v.flags &= ~XmTREE_COLUMN_WIDTHS;
    if (!XtIsRealized(w) && v.visibleLines)
        ApplyVisibleLines(w);
    ConfigureAllScrollBars(w);
    if (!redraw || !XtIsRealized(w))
        return;
    XFlush(XtDisplay(w));
    RepaintAll(w, true);
    XFlush(XtDisplay(w));
}

}  // extern "C"
