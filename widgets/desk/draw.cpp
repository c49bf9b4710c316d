// Painting of the desk list: graphics contexts, the repaint behind expose,
// one item (icon, shadow, label), the mark of the current item with its
// frame, and the border.  Only rows on the page are ever visited.
#include "widgets/desk/desk.h"
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>

#include <algorithm>

using namespace xwk::desk;

namespace {

// The window of a repaint, or the whole widget outside one.
XRectangle &Area(Widget view)
{
    static XRectangle area;
    XmPrjDeskPart &d = P(view);
    area.x = d.x;
    area.y = d.y;
    area.width = d.width;
    area.height = d.height;
    return area;
}

void StoreArea(Widget view, int x, int y, int width, int height)
{
    XmPrjDeskPart &d = P(view);
    d.x = (short)std::clamp(x, -32768, 32767);
    d.y = (short)std::clamp(y, -32768, 32767);
    d.width = (unsigned short)std::clamp(width, 0, 65535);
    d.height = (unsigned short)std::clamp(height, 0, 65535);
}

bool InArea(Widget view, const Box &box)
{
    return XwkRectInRegion(&Area(view), box.x, box.y, box.width, box.height);
}

GC MakeGC(Widget view, XtGCMask mask, XGCValues *values)
{
    Display *dpy = XtDisplay(view);
    Screen *screen = XtScreen(view);
    if ((int)view->core.depth == DefaultDepthOfScreen(screen))
        return XCreateGC(dpy, RootWindowOfScreen(screen), mask, values);
    Pixmap p = XCreatePixmap(dpy, RootWindowOfScreen(screen), 1, 1, view->core.depth);
    GC gc = XCreateGC(dpy, p, mask, values);
    XFreePixmap(dpy, p);
    return gc;
}

void SetGCValues(Widget view)
{
    XmPrjDeskPart &d = P(view);
    auto *pw = (XmPrimitiveWidget)view;
    Display *dpy = XtDisplay(view);
    Pixel bg = view->core.background_pixel, fg = pw->primitive.foreground;
    XSetForeground(dpy, d.backgroundGC, bg);
    XSetForeground(dpy, d.textGC, fg);
    XSetBackground(dpy, d.textGC, bg);
    XSetForeground(dpy, d.activeFillGC, d.activeBackground);
    XSetForeground(dpy, d.activeTextGC, d.activeForeground);
    XSetBackground(dpy, d.activeTextGC, d.activeBackground);
    XSetForeground(dpy, d.inactiveFillGC, d.inactiveBackground);
    XSetForeground(dpy, d.inactiveTextGC, d.inactiveForeground);
    XSetBackground(dpy, d.inactiveTextGC, d.inactiveBackground);
    int highlight = Highlight(view);
    for (GC gc : {d.activeFillGC, d.inactiveFillGC, d.frameOnGC, d.frameOffGC})
        XSetLineAttributes(dpy, gc, highlight, LineSolid, CapButt, JoinMiter);
    XSetForeground(dpy, d.frameOnGC, pw->primitive.highlight_color);
    XSetForeground(dpy, d.frameOffGC, bg);
    XSetForeground(dpy, d.topShadowGC, pw->primitive.top_shadow_color);
    XSetForeground(dpy, d.bottomShadowGC, pw->primitive.bottom_shadow_color);
    Pixmap top = pw->primitive.top_shadow_pixmap, bottom = pw->primitive.bottom_shadow_pixmap;
    if (top != XmUNSPECIFIED_PIXMAP && top != None) {
        XSetTile(dpy, d.topShadowGC, top);
        XSetFillStyle(dpy, d.topShadowGC, FillTiled);
    } else {
        XSetFillStyle(dpy, d.topShadowGC, FillSolid);
    }
    if (bottom != XmUNSPECIFIED_PIXMAP && bottom != None) {
        XSetTile(dpy, d.bottomShadowGC, bottom);
        XSetFillStyle(dpy, d.bottomShadowGC, FillTiled);
    } else {
        XSetFillStyle(dpy, d.bottomShadowGC, FillSolid);
    }
    XSetForeground(dpy, d.xorGC, bg);
    XSetBackground(dpy, d.xorGC, fg);
}

XFontStruct *DefaultFont(Widget view)
{
    XFontStruct *font = nullptr;
    XmFontList fonts = M(view).fontList;
    if (!fonts || !XmeRenderTableGetDefaultFont(fonts, &font))
        return nullptr;
    return font;
}

void DrawIcon(Widget view, XmPrjDeskItem item, const Box &box)
{
    XwkIcon *icon = item->icon;
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    Display *dpy = XtDisplay(view);
    int width = xwk::tree::IconWidth(icon), height = xwk::tree::IconHeight(icon);
    int x = box.x + Shadow(view) + m.hIconPad + (d.maxIconWidth - width) / 2;
    int y = box.y + Shadow(view) + m.hIconPad + (d.maxIconHeight - height) / 2;
    Pixmap picture = icon->pixmap;
    if (icon->mask) {
        XGCValues values;
        values.foreground = view->core.background_pixel;
        GC gc = MakeGC(view, GCForeground, &values);
        picture = xwk::tree::ComposedIcon(view, gc, icon);
        XFreeGC(dpy, gc);
    }
    XCopyArea(dpy, picture, XtWindow(view), d.textGC, 0, 0, width, height, x, y);
}

void DrawLabel(Widget view, XmPrjDeskItem item, const Box &box, bool selected)
{
    XmPrjDeskPart &d = P(view);
    Display *dpy = XtDisplay(view);
    GC fill = d.backgroundGC, text = d.textGC;
    if (selected) {
        fill = d.hasFocus ? d.activeFillGC : d.inactiveFillGC;
        text = d.hasFocus ? d.activeTextGC : d.inactiveTextGC;
    }
    XFillRectangle(dpy, XtWindow(view), fill, box.x, box.y, box.width, box.height);
    XmString s = LabelString(view, item);
    if (!s)
        return;
    XmStringDraw(dpy, XtWindow(view), M(view).fontList, s, text, (Position)box.x,
                 (Position)(box.y + Highlight(view)), (Dimension)box.width,
                 XmALIGNMENT_CENTER, XmSTRING_DIRECTION_DEFAULT, nullptr);
}

void IconShadow(Widget view, const Box &box, GC top, GC bottom, unsigned char type)
{
    XmeDrawShadows(XtDisplay(view), XtWindow(view), top, bottom, (Position)box.x,
                   (Position)box.y, (Dimension)box.width, (Dimension)box.height, Shadow(view),
                   type);
}

// The outline of icon box and label box together, half a thickness
// outside each; the shoulders close the step where the widths differ.
void DrawFrame(Widget view, const Box &icon, const Box &label, GC gc)
{
    int t = Highlight(view);
    if (!t)
        return;
    int out_before = (t + 1) / 2, out_after = t / 2;
    int il = icon.x - out_before, ir = icon.x + icon.width + out_after;
    int it = icon.y - out_before, ib = icon.y + icon.height + out_after;
    int ll = label.x - out_before, lr = label.x + label.width + out_after;
    int lt = label.y - out_before, lb = label.y + label.height + out_after;
    // Inward under the icon box when the label is narrower, outward over
    // the label when it is wider.
    int shoulder = label.width < icon.width ? ib : lt;
    XSegment seg[8] = {
        {(short)il, (short)it, (short)ir, (short)it},
        {(short)il, (short)it, (short)il, (short)shoulder},
        {(short)ir, (short)it, (short)ir, (short)shoulder},
        {(short)ll, (short)shoulder, (short)ll, (short)lb},
        {(short)lr, (short)shoulder, (short)lr, (short)lb},
        {(short)ll, (short)lb, (short)lr, (short)lb},
        {(short)il, (short)shoulder, (short)ll, (short)shoulder},
        {(short)ir, (short)shoulder, (short)lr, (short)shoulder},
    };
    XDrawSegments(XtDisplay(view), XtWindow(view), gc, seg, 8);
}

void RepaintTimer(XtPointer closure, XtIntervalId *)
{
    auto w = (Widget)closure;
    S(w).repaintTimer = 0;
    if (Alive(w) && !P(w).dontMove)
        RepaintAll(w, true);
}

}  // namespace

namespace xwk::desk {

// Item drawing keeps inside the border; the band and the border itself
// use contexts of their own.
void SetClips(Widget view)
{
    XmPrjDeskPart &d = P(view);
    if (!d.textGC)
        return;
    int shadow = Shadow(view);
    XRectangle inside;
    inside.x = (short)shadow;
    inside.y = (short)shadow;
    inside.width = (unsigned short)std::max(0, (int)view->core.width - 2 * shadow);
    inside.height = (unsigned short)std::max(0, (int)view->core.height - 2 * shadow);
    Display *dpy = XtDisplay(view);
    for (GC gc : {d.backgroundGC, d.textGC, d.activeFillGC, d.activeTextGC, d.inactiveFillGC,
                  d.inactiveTextGC, d.frameOnGC, d.frameOffGC, d.topShadowGC, d.bottomShadowGC})
        XSetClipRectangles(dpy, gc, 0, 0, &inside, 1, YXBanded);
}

void CreateGCs(Widget view)
{
    XmPrjDeskPart &d = P(view);
    XGCValues values;
    values.graphics_exposures = False;
    XtGCMask mask = GCGraphicsExposures;
    XFontStruct *font = DefaultFont(view);
    d.backgroundGC = MakeGC(view, mask, &values);
    if (font) {
        values.font = font->fid;
        mask |= GCFont;
    }
    d.textGC = MakeGC(view, mask, &values);
    d.activeTextGC = MakeGC(view, mask, &values);
    d.inactiveTextGC = MakeGC(view, mask, &values);
    mask = GCGraphicsExposures;
    d.activeFillGC = MakeGC(view, mask, &values);
    d.inactiveFillGC = MakeGC(view, mask, &values);
    d.frameOnGC = MakeGC(view, mask, &values);
    d.frameOffGC = MakeGC(view, mask, &values);
    d.topShadowGC = MakeGC(view, mask, &values);
    d.bottomShadowGC = MakeGC(view, mask, &values);
    values.function = GXxor;
    d.xorGC = MakeGC(view, mask | GCFunction, &values);
    SetGCValues(view);
    SetClips(view);
}

void FreeGCs(Widget view)
{
    XmPrjDeskPart &d = P(view);
    Display *dpy = XtDisplay(view);
    for (GC *gc : {&d.backgroundGC, &d.textGC, &d.activeFillGC, &d.activeTextGC,
                   &d.inactiveFillGC, &d.inactiveTextGC, &d.frameOnGC, &d.frameOffGC,
                   &d.topShadowGC, &d.bottomShadowGC, &d.xorGC}) {
        if (*gc)
            XFreeGC(dpy, *gc);
        *gc = nullptr;
    }
}

void UpdateGCs(Widget view)
{
    if (!P(view).textGC)
        return;
    SetGCValues(view);
    XFontStruct *font = DefaultFont(view);
    if (font)
        for (GC gc : {P(view).textGC, P(view).activeTextGC, P(view).inactiveTextGC})
            XSetFont(XtDisplay(view), gc, font->fid);
    SetClips(view);
}

void DrawBorder(Widget view, bool swapped)
{
    if (!Paintable(view))
        return;
    auto *pw = (XmPrimitiveWidget)view;
    GC top = pw->primitive.top_shadow_GC, bottom = pw->primitive.bottom_shadow_GC;
    if (swapped)
        std::swap(top, bottom);
    XmeDrawShadows(XtDisplay(view), XtWindow(view), top, bottom, 0, 0, view->core.width,
                   view->core.height, Shadow(view), M(view).shadowType);
}

void Repaint(Widget view, int x, int y, int width, int height)
{
    if (!Paintable(view))
        return;
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    StoreArea(view, x, y, width, height);
    if (XwkRectInRegion(&Area(view), 0, 0, view->core.width, view->core.height))
        DrawBorder(view, false);
    if (d.dontMove) {
        ComputeSizes(view);
        GridOne(view);
    }
    d.stateFlags |= XmDESK_REPAINTING;
    XwkListNode *current = m.current;
    bool current_shown = current && RowShown(view, RowOf(view, current->index));
    if ((!Count(view) || !current_shown) && d.hasFocus)
        Mark(view, current, true);
    else
        Mark(view, current, false);
    if (view->core.visible) {
        int first = d.topRow * d.columns;
        int last = std::min(Count(view), (d.topRow + d.visibleRows) * d.columns);
        for (int i = first; i < last; i++)
            DrawItemHere(view, NodeAt(view, i));
    }
    d.stateFlags &= ~XmDESK_REPAINTING;
    StoreArea(view, 0, 0, view->core.width, view->core.height);
}

void RepaintView(Widget view, bool clear)
{
    if (!Paintable(view) || P(view).dontMove)
        return;
    if (clear)
        XClearArea(XtDisplay(view), XtWindow(view), 0, 0, 0, 0, False);
    Repaint(view, 0, 0, view->core.width, view->core.height);
}

void RepaintAll(Widget w, bool clear)
{
    for (Widget v : Views(w))
        RepaintView(v, clear);
}

// Changes made one after another are painted once, when the loop next
// looks for events.
void RepaintSoon(Widget w)
{
    Widget mother = Mother(w);
    State &s = S(mother);
    if (s.repaintTimer)
        return;
    s.repaintTimer =
        XtAppAddTimeOut(XtWidgetToApplicationContext(mother), 0, RepaintTimer, (XtPointer)mother);
}

void DrawItem(Widget view, XwkListNode *node)
{
    XmPrjDeskPart &d = P(view);
    if (d.stateFlags & (XmDESK_REPAINTING | XmDESK_THIS_ONLY)) {
        DrawItemHere(view, node);
        return;
    }
    for (Widget v : Views(view))
        DrawItemHere(v, node);
}

void DrawItemHere(Widget view, XwkListNode *node)
{
    if (!node || !Paintable(view) || P(view).dontMove)
        return;
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    XmPrjDeskItem item = Item(node);
    if (!item || !RowShown(view, RowOf(view, node->index)))
        return;
    if ((d.stateFlags & XmDESK_SELECTED_ONLY) && !Selected(item))
        return;
    Box icon, label;
    Boxes(view, node->index, item, &icon, &label);
    if (item->icon && item->icon->pixmap) {
        bool raised = Selected(item) && Selectable(item) && node != m.current;
        if (InArea(view, icon)) {
            if (raised)
                IconShadow(view, icon, d.topShadowGC, d.bottomShadowGC, XmSHADOW_OUT);
            else if (node != m.current)
                IconShadow(view, icon, d.backgroundGC, d.backgroundGC, XmSHADOW_OUT);
            DrawIcon(view, item, icon);
        }
        item->shadow = raised ? XmSHADOW_OUT : 0;
    }
    if (InArea(view, label))
        DrawLabel(view, item, label, Selected(item));
    if (node == m.current)
        Mark(view, node, true);
}

void Mark(Widget view, XwkListNode *node, bool lit)
{
    if (!Paintable(view) || P(view).dontMove)
        return;
    XmPrjDeskPart &d = P(view);
    XmPrjDeskPart &m = M(view);
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    int shadow = Shadow(view), highlight = Highlight(view);
    int w = std::max(0, (int)view->core.width - 2 * shadow);
    int h = std::max(0, (int)view->core.height - 2 * shadow);
    bool shown = node && Count(view) && d.columns && RowShown(view, RowOf(view, node->index));
    if (!shown) {
        if (lit && d.hasFocus && highlight)
            _XmDrawHighlight(dpy, win, d.frameOnGC, (Position)shadow, (Position)shadow,
                             (Dimension)w, (Dimension)h, highlight, LineSolid);
        else if (highlight)
            XmeClearBorder(dpy, win, (Position)shadow, (Position)shadow, (Dimension)w,
                           (Dimension)h, highlight);
        return;
    }
    if (highlight)
        XmeClearBorder(dpy, win, (Position)shadow, (Position)shadow, (Dimension)w, (Dimension)h,
                       highlight);
    XmPrjDeskItem item = Item(node);
    item->shadow = lit ? XmSHADOW_OUT : XmSHADOW_IN;
    if (!item->icon)
        return;
    Box icon, label;
    Boxes(view, node->index, item, &icon, &label);
    unsigned char type = d.hasFocus ? XmSHADOW_OUT : XmSHADOW_IN;
    if (lit && Selectable(item))
        IconShadow(view, icon, d.topShadowGC, d.bottomShadowGC, type);
    else
        IconShadow(view, icon, d.backgroundGC, d.backgroundGC, type);
    DrawLabel(view, item, label, lit && Selectable(item) && Selected(item));
    GC frame = d.frameOffGC;
    if (m.highlighted == node && m.highlightedDesk == view)
        frame = d.frameOnGC;
    else if (node == m.current && lit && d.hasFocus)
        frame = d.frameOnGC;
    DrawFrame(view, icon, label, frame);
}

void MarkOnViews(Widget w, XwkListNode *node, bool lit)
{
    for (Widget v : Views(w))
        Mark(v, node, lit);
}

// The shadow of a pressed item, drawn in its icon box only.
void SetShadow(Widget w, XwkListNode *node, unsigned char shadow)
{
    XmPrjDeskItem item = Item(node);
    if (!item)
        return;
    item->shadow = shadow;
    if (!item->icon)
        return;
    for (Widget v : Views(w)) {
        if (!Paintable(v) || P(v).dontMove || !RowShown(v, RowOf(v, node->index)))
            continue;
        Box icon, label;
        Boxes(v, node->index, item, &icon, &label);
        IconShadow(v, icon, P(v).topShadowGC, P(v).bottomShadowGC, shadow);
    }
}

void EraseFrame(Widget view, XwkListNode *node)
{
    if (!node || !Item(node) || !Paintable(view) || !RowShown(view, RowOf(view, node->index)))
        return;
    Box icon, label;
    Boxes(view, node->index, Item(node), &icon, &label);
    DrawFrame(view, icon, label, P(view).frameOffGC);
}

void ExposeProc(Widget w, XEvent *event, Region region)
{
    if (!Alive(w))
        return;
    XRectangle r;
    if (region) {
        XClipBox(region, &r);
    } else if (event) {
        r.x = (short)event->xexpose.x;
        r.y = (short)event->xexpose.y;
        r.width = (unsigned short)event->xexpose.width;
        r.height = (unsigned short)event->xexpose.height;
    } else {
        r.x = r.y = 0;
        r.width = w->core.width;
        r.height = w->core.height;
    }
    P(w).stateFlags &= ~XmDESK_RESIZED;
    SetClips(w);
    Repaint(w, r.x, r.y, r.width, r.height);
}

}  // namespace xwk::desk

extern "C" {

void XmPrjDeskHighlight(Widget w, XmPrjDeskNode node)
{
    if (!IsDesk(w) || !Alive(w) || !node || !Item(node))
        return;
    XmPrjDeskPart &m = M(w);
    if (m.highlighted == node)
        return;
    if (!Paintable(w) || !RowShown(w, RowOf(w, node->index))) {
        m.highlighted = node;
        m.highlightedDesk = w;
        return;
    }
    XmPrjDeskUnhighlight(w);
    XmPrjDeskPart &d = P(w);
    d.stateFlags |= XmDESK_THIS_ONLY;
    Box icon, label;
    Boxes(w, node->index, Item(node), &icon, &label);
    DrawFrame(w, icon, label, d.frameOnGC);
    d.stateFlags &= ~XmDESK_THIS_ONLY;
    m.highlighted = node;
    m.highlightedDesk = w;
}

void XmPrjDeskUnhighlight(Widget w)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    XmPrjDeskPart &m = M(w);
    XwkListNode *node = m.highlighted;
    Widget view = m.highlightedDesk;
    m.highlighted = nullptr;
    m.highlightedDesk = nullptr;
    if (!node || !view || !Paintable(view) || !Item(node) ||
        !RowShown(view, RowOf(view, node->index)))
        return;
    Box icon, label;
    Boxes(view, node->index, Item(node), &icon, &label);
    bool on = node == m.current && P(view).hasFocus;
    DrawFrame(view, icon, label, on ? P(view).frameOnGC : P(view).frameOffGC);
}

void XmPrjDeskShadowHighlight(Widget w)
{
    if (IsDesk(w) && Alive(w))
        DrawBorder(w, true);
}

void XmPrjDeskShadowUnhighlight(Widget w)
{
    if (IsDesk(w) && Alive(w))
        DrawBorder(w, false);
}

}  // extern "C"
