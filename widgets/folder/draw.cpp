// Painting the folder: its graphics contexts, the outline of tabs and of
// the page frame, the tabs with icon and label, and the arrows.
#include "widgets/folder/folder.h"

#include <Xwk/PrjTree.h>
#include <Xm/DrawP.h>
#include <Xm/XmP.h>

#include <algorithm>

namespace xwk::folder {

namespace {

enum class Outline { kTab, kActiveTab, kFrame };

GC MakeGC(Widget w, Pixel foreground, Pixel background)
{
    XGCValues values;
    values.foreground = foreground;
    values.background = background;
    values.graphics_exposures = False;
    return XtAllocateGC(w, 0, GCForeground | GCBackground | GCGraphicsExposures, &values,
                        GCFont | GCClipMask | GCClipXOrigin | GCClipYOrigin, 0);
}

Pixel ForegroundOn(Widget w, Pixel background)
{
    Pixel fg = 0, top, bottom, select;
    XmGetColors(XtScreen(w), w->core.colormap, background, &fg, &top, &bottom, &select);
    return fg;
}

Pixel SelectOf(Widget w, Pixel background)
{
    Pixel fg, top, bottom, select = background;
    XmGetColors(XtScreen(w), w->core.colormap, background, &fg, &top, &bottom, &select);
    return select;
}

bool InRedraw(Widget w, int x, int y, int width, int height)
{
    XmFolderPart &p = Part(w);
    return !p.inExpose || XwkRectInRegion(&p.redraw, x, y, width, height);
}

XSegment *Segments(Widget w, int count)
{
    XmFolderPart &p = Part(w);
    if (count > p.segmentCapacity) {
        p.segments = (XSegment *)XtRealloc((char *)p.segments, (Cardinal)(count * sizeof(XSegment)));
        p.segmentCapacity = count;
    }
    return p.segments;
}

XSegment Seg(int x1, int y1, int x2, int y2)
{
    return XSegment{(short)x1, (short)y1, (short)x2, (short)y2};
}

// Top and left lines in the top shadow; the frame adds bottom and right
// lines in the bottom shadow, a tab only the right one, which for the
// active tab runs on into the frame's top shadow so that the two meet.
void DrawOutline(Widget w, int x, int y, int width, int height, Outline kind)
{
    int t = std::min({Shadow(w), width / 2, height / 2});
    if (t <= 0)
        return;
    XSegment *s = Segments(w, 4 * t);
    XSegment *top = s, *bottom = s + 2 * t;
    int nbottom = 0;
    for (int i = 0; i < t; i++) {
        top[i] = Seg(x, y + i, x + width - i - 1, y + i);
        top[t + i] = Seg(x + i, y + t, x + i, y + height - 1);
        int right_end = y + height - 1 + (kind == Outline::kActiveTab ? i : 0);
        bottom[nbottom++] = Seg(x + width - 1 - i, y + i + 1, x + width - 1 - i, right_end);
        if (kind == Outline::kFrame)
            bottom[nbottom++] = Seg(x + i, y + height - 1 - i, x + width - 1, y + height - 1 - i);
    }
    XmManagerPart &m = Folder(w)->manager;
    XDrawSegments(XtDisplay(w), XtWindow(w), m.top_shadow_GC, top, 2 * t);
    XDrawSegments(XtDisplay(w), XtWindow(w), m.bottom_shadow_GC, bottom, nbottom);
}

// Tab rectangles of the visible tabs, from the left margin.
void PositionTabs(Widget w)
{
    XmFolderPart &p = Part(w);
    FitTabs(w);
    int base = 2 * (p.tabMarginHeight + p.tabHighlightThickness) + p.maxTabHeight + Shadow(w);
    int x = p.marginWidth;
    for (int i = p.topTab - 1; i < p.topTab - 1 + p.visibleTabCount && i < p.pageCount; i++) {
        XmFolderPage &page = p.pages[i];
        bool active = i + 1 == p.activePage;
        page.x = (Position)std::min(x, 0x7FFF);
        page.y = (Position)(active ? p.marginHeight : p.marginHeight + p.activeTabOffset);
        page.width = (Dimension)TabOuterWidth(w, page);
        page.height = (Dimension)(active ? base + p.activeTabOffset : base);
        x += page.width;
    }
}

bool ActiveTabShown(Widget w)
{
    XmFolderPart &p = Part(w);
    return p.useTabs && p.activePage >= p.topTab && p.activePage < p.topTab + p.visibleTabCount &&
           p.activePage <= p.pageCount;
}

void DrawFrame(Widget w)
{
    XmFolderPart &p = Part(w);
    Display *dpy = XtDisplay(w);
    Window win = XtWindow(w);
    int s = Shadow(w);
    int x = p.marginWidth, width = p.preferredWidth - 2 * p.marginWidth;
    int y = p.useTabs ? p.tabAreaHeight : p.marginHeight;
    int height = p.useTabs ? p.preferredHeight - p.tabAreaHeight - p.marginHeight
                           : p.preferredHeight - 2 * p.marginHeight;
    if (width <= 0 || height <= 0)
        return;
    if (InRedraw(w, x, y, width, height))
        DrawOutline(w, x, y, width, height, Outline::kFrame);
    if (ActiveTabShown(w)) {
        XmFolderPage &tab = p.pages[p.activePage - 1];
        GC gc = p.useHighlight ? p.highlightFillGC : p.backgroundGC;
        if (tab.width > s && s > 0)
            XFillRectangle(dpy, win, gc, tab.x + s, y, tab.width - s, s);
    }
    if (!p.useHighlight || p.pageCount == 0)
        return;
    Widget child = p.pages[p.activePage - 1].widget;
    if (!child)
        return;
    int mw = Con(child).folderMarginWidth, mh = Con(child).folderMarginHeight;
    int ix = x + s, iy = y + s, iw = width - 2 * s, ih = height - 2 * s;
    if (iw <= 0 || ih <= 0)
        return;
    mw = std::min(mw, iw);
    mh = std::min(mh, ih);
    if (mh > 0) {
        XFillRectangle(dpy, win, p.highlightFillGC, ix, iy, iw, mh);
        XFillRectangle(dpy, win, p.highlightFillGC, ix, iy + ih - mh, iw, mh);
    }
    if (mw > 0) {
        XFillRectangle(dpy, win, p.highlightFillGC, ix, iy, mw, ih);
        XFillRectangle(dpy, win, p.highlightFillGC, ix + iw - mw, iy, mw, ih);
    }
}

void DrawTab(Widget w, XmFolderPage &page, bool active)
{
    XmFolderPart &p = Part(w);
    Display *dpy = XtDisplay(w);
    Window win = XtWindow(w);
    int s = Shadow(w);
    GC fill, text;
    if (active) {
        fill = p.useHighlight ? p.highlightFillGC : p.backgroundGC;
        text = p.useHighlight ? p.highlightTextGC : p.activeTextGC;
    } else {
        fill = p.highlightNonActive ? p.inactiveFillGC : p.backgroundGC;
        text = p.highlightNonActive ? p.inactiveFillTextGC : p.inactiveTextGC;
    }
    int x = page.x, y = page.y, width = page.width, height = page.height;
    DrawOutline(w, x, y, width, height, active ? Outline::kActiveTab : Outline::kTab);
    int fw = width - 2 * s, fh = height - s;
    if (fw > 0 && fh > 0) {
        XPoint pts[5] = {{(short)(x + s), (short)(y + s)}, {(short)fw, 0}, {0, (short)fh},
                         {(short)-fw, 0}, {0, (short)-fh}};
        XFillPolygon(dpy, win, fill, pts, 5, Convex, CoordModePrevious);
    }
    int inner_y = y + p.tabHighlightThickness + s + p.tabMarginHeight;
    int ix = x + TabInset(w);
    int iw = 0, ih = 0;
    if (page.icon && page.icon->pixmap) {
        iw = (int)page.icon->attributes.width;
        ih = (int)page.icon->attributes.height;
        int iy = inner_y;
        if (page.textHeight > ih)
            iy -= (page.textHeight - ih) / 2;
        if (page.icon->mask) {
            XSetClipMask(dpy, text, page.icon->mask);
            XSetClipOrigin(dpy, text, ix, iy);
        }
        XCopyArea(dpy, page.icon->pixmap, win, text, 0, 0, (unsigned)iw, (unsigned)ih, ix, iy);
        if (page.icon->mask) {
            XSetClipMask(dpy, text, None);
            XSetClipOrigin(dpy, text, 0, 0);
        }
    }
    if (!page.label)
        return;
    int ty = inner_y;
    if (ih > page.textHeight)
        ty += (ih - page.textHeight) / 2;
    XmStringDraw(dpy, win, active ? p.activeTabFontList : p.tabFontList, page.label, text,
                 (Position)(ix + iw + p.spacing), (Position)ty, page.textWidth, XmALIGNMENT_CENTER,
                 XmSTRING_DIRECTION_L_TO_R, nullptr);
}

void DrawTabs(Widget w)
{
    XmFolderPart &p = Part(w);
    if (!p.useTabs)
        return;
    int end = p.marginWidth;
    for (int i = p.topTab - 1; i < p.topTab - 1 + p.visibleTabCount && i < p.pageCount; i++) {
        XmFolderPage &page = p.pages[i];
        end = page.x + page.width;
        if (InRedraw(w, page.x, page.y, page.width, page.height))
            DrawTab(w, page, i + 1 == p.activePage);
    }
    if (!p.inExpose && end < (int)w->core.width && p.tabAreaHeight > 0)
        XClearArea(XtDisplay(w), XtWindow(w), end, 0, w->core.width - end, p.tabAreaHeight, False);
}

}  // namespace

void MakeContexts(Widget w)
{
    XmFolderPart &p = Part(w);
    Pixel bg = w->core.background_pixel, fg = Folder(w)->manager.foreground;
    Pixel inactive_fill = SelectOf(w, bg);
    p.backgroundGC = MakeGC(w, bg, bg);
    p.inactiveTextGC = MakeGC(w, fg, bg);
    p.activeTextGC = MakeGC(w, fg, bg);
    p.inactiveFillGC = MakeGC(w, inactive_fill, bg);
    p.inactiveFillTextGC = MakeGC(w, ForegroundOn(w, inactive_fill), inactive_fill);
    p.highlightFillGC = MakeGC(w, p.folderHighlightColor, bg);
    p.highlightTextGC = MakeGC(w, ForegroundOn(w, p.folderHighlightColor), p.folderHighlightColor);
}

void FreeContexts(Widget w)
{
    XmFolderPart &p = Part(w);
    for (GC *gc : {&p.backgroundGC, &p.inactiveTextGC, &p.activeTextGC, &p.inactiveFillGC,
                   &p.inactiveFillTextGC, &p.highlightFillGC, &p.highlightTextGC}) {
        if (*gc)
            XtReleaseGC(w, *gc);
        *gc = nullptr;
    }
}

void DrawArrows(Widget w)
{
    XmFolderPart &p = Part(w);
    if (!XtIsRealized(w) || !p.useTabs)
        return;
    XmManagerPart &m = Folder(w)->manager;
    int s = Shadow(w);
    struct {
        bool shown;
        XRectangle box;
        unsigned char direction;
        unsigned char id;
    } arrows[2] = {{(bool)p.leftArrowShown, p.leftArrow, XmARROW_LEFT, 1},
                   {(bool)p.rightArrowShown, p.rightArrow, XmARROW_RIGHT, 2}};
    for (auto &a : arrows) {
        if (!a.shown || a.box.width == 0 || !InRedraw(w, a.box.x, a.box.y, a.box.width, a.box.height))
            continue;
        bool pressed = p.armedArrow == a.id;
        XFillRectangle(XtDisplay(w), XtWindow(w), p.backgroundGC, a.box.x, a.box.y, a.box.width,
                       a.box.height);
        XmeDrawArrow(XtDisplay(w), XtWindow(w), pressed ? m.bottom_shadow_GC : m.top_shadow_GC,
                     pressed ? m.top_shadow_GC : m.bottom_shadow_GC, p.backgroundGC, a.box.x, a.box.y,
                     a.box.width, a.box.height, (Dimension)s, a.direction);
    }
}

void Redisplay(Widget w, XEvent *, Region region)
{
    XmFolderPart &p = Part(w);
    if (!XtIsRealized(w))
        return;
    if (region) {
        XClipBox(region, &p.redraw);
        p.inExpose = True;
    }
    PositionTabs(w);
    DrawFrame(w);
    DrawTabs(w);
    DrawArrows(w);
    p.inExpose = False;
}

void RedrawStrip(Widget w)
{
    XmFolderPart &p = Part(w);
    if (!XtIsRealized(w))
        return;
    XClearArea(XtDisplay(w), XtWindow(w), 0, 0, w->core.width, p.tabAreaHeight + Shadow(w) + 1, False);
    p.inExpose = False;
    PositionTabs(w);
    DrawFrame(w);
    DrawTabs(w);
    DrawArrows(w);
}

}  // namespace xwk::folder
