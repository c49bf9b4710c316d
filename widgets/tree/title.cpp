// The title bar of a list with columns: a drawn button above the rows that
// shows the title items, the sort arrow and the scroll arrows, and lets the
// user sort, resize and scroll the columns.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>
#include <Xm/DrawnB.h>
#include <Xm/PrimitiveP.h>
#include <Xm/ScrolledWP.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace xwk::tree;

namespace {

// Gesture state of a view's title bar.
struct TitleGesture {
    XmPrjTreeColumnRec *active = nullptr;
    bool down = false;
    bool sash = false;
    bool ownCursor = false;
    XtIntervalId timer = 0;
    XEvent event{};
    XtActionProc action = nullptr;
};

std::unordered_map<Widget, TitleGesture> gestures;

TitleGesture &G(Widget view)
{
    return gestures[view];
}

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

Dimension TitleShadow(Widget title)
{
    return ((XmPrimitiveWidget)title)->primitive.shadow_thickness;
}

Widget ViewOfTitle(Widget title)
{
    XtPointer data = nullptr;
    XtVaGetValues(title, XmNuserData, &data, NULL);
    auto view = (Widget)data;
    return view && IsTree(view) && Alive(view) ? view : nullptr;
}

// The sash cursor: a bar with arrows to either side, 18 by 14.
const unsigned char sash_bits[] = {
    0x00, 0x00, 0x00, 0x80, 0x04, 0x00, 0x80, 0x04, 0x00, 0x80, 0x04, 0x00, 0x90, 0x24, 0x00,
    0x98, 0x64, 0x00, 0xfc, 0xfc, 0x00, 0xfe, 0xfd, 0x01, 0xfc, 0xfc, 0x00, 0x98, 0x64, 0x00,
    0x90, 0x24, 0x00, 0x80, 0x04, 0x00, 0x80, 0x04, 0x00, 0x00, 0x00, 0x00};
const unsigned char sash_mask[] = {
    0xc0, 0x0f, 0x00, 0xc0, 0x0f, 0x00, 0xc0, 0x0f, 0x00, 0xd8, 0x6f, 0x00, 0xdc, 0xef, 0x00,
    0xfe, 0xff, 0x01, 0xff, 0xff, 0x03, 0xff, 0xff, 0x03, 0xff, 0xff, 0x03, 0xfe, 0xff, 0x01,
    0xdc, 0xef, 0x00, 0xd8, 0x6f, 0x00, 0xc0, 0x0f, 0x00, 0xc0, 0x0f, 0x00};

void DrawIconAt(Widget view, Window win, XwkIcon *icon, int x, int y, int max_w)
{
    if (!icon || !icon->pixmap)
        return;
    Display *dpy = XtDisplay(view);
    GC gc = P(view).titleTextGC;
    int w = std::min(IconWidth(icon), max_w), h = IconHeight(icon);
    if (w <= 0)
        return;
    if (icon->mask) {
        XSetClipOrigin(dpy, gc, x, y);
        XSetClipMask(dpy, gc, icon->mask);
    }
    XCopyArea(dpy, icon->pixmap, win, gc, 0, 0, w, h, x, y);
    if (icon->mask) {
        XSetClipOrigin(dpy, gc, 0, 0);
        XSetClipMask(dpy, gc, None);
    }
}

// The box of a column's button, or false without one.
bool ButtonBox(Widget view, const State::Shown &sh, XRectangle *box)
{
    XmPrjTreeColumnRec *c = sh.column;
    if (!c->buttonIcon)
        return false;
    int h = IconHeight(c->buttonIcon) + 4;
    box->width = (unsigned short)std::min(IconWidth(c->buttonIcon) + 4, sh.width);
    box->height = (unsigned short)h;
    box->x = (short)sh.x;
    box->y = (short)(2 + ((int)M(view).titleHeight - 4 - h) / 2);
    return true;
}

bool InBox(int x, int y, int bx, int by, int bw, int bh)
{
    return x >= bx && x < bx + bw && y >= by && y < by + bh;
}

void DrawArrow(Widget view, int which, bool pressed)
{
    Widget tw = P(view).titleWidget;
    XmPrjTreeTitleRec *t = M(view).title;
    if (!tw || !XtIsRealized(tw) || !t)
        return;
    auto *prim = (XmPrimitiveWidget)tw;
    bool live = which == 1 ? t->canScrollLeft : t->canScrollRight;
    GC top = pressed ? prim->primitive.bottom_shadow_GC : prim->primitive.top_shadow_GC;
    GC bottom = pressed ? prim->primitive.top_shadow_GC : prim->primitive.bottom_shadow_GC;
    GC centre = live ? P(view).titleTextGC : P(view).titleShadowGC;
    int x = which == 1 ? t->arrowLeftX : t->arrowRightX;
    XmeDrawArrow(XtDisplay(tw), XtWindow(tw), top, bottom, centre, (Position)x, (Position)t->arrowY,
                 (Dimension)t->arrowWidth, (Dimension)t->arrowHeight, 1,
                 which == 1 ? XmARROW_LEFT : XmARROW_RIGHT);
}

void DrawButtonFrame(Widget view, const State::Shown &sh, int state)
{
    Widget tw = P(view).titleWidget;
    XRectangle box;
    if (!tw || !XtIsRealized(tw) || !ButtonBox(view, sh, &box))
        return;
    auto *prim = (XmPrimitiveWidget)tw;
    Display *dpy = XtDisplay(tw);
    if (state == 0) {
        XFillRectangle(dpy, XtWindow(tw), P(view).titleEraseGC, box.x, box.y, box.width, 1);
        XFillRectangle(dpy, XtWindow(tw), P(view).titleEraseGC, box.x, box.y + box.height - 1,
                       box.width, 1);
        XFillRectangle(dpy, XtWindow(tw), P(view).titleEraseGC, box.x, box.y, 1, box.height);
        XFillRectangle(dpy, XtWindow(tw), P(view).titleEraseGC, box.x + box.width - 1, box.y, 1,
                       box.height);
        return;
    }
    XmeDrawShadows(dpy, XtWindow(tw), prim->primitive.top_shadow_GC,
                   prim->primitive.bottom_shadow_GC, box.x, box.y, box.width, box.height, 1,
                   state == 1 ? XmSHADOW_IN : XmSHADOW_OUT);
}

const State::Shown *ShownOf(Widget view, XmPrjTreeColumnRec *c)
{
    for (auto &sh : S(view).shown)
        if (sh.column == c)
            return &sh;
    return nullptr;
}

void TitleArm(Widget title, XEvent *event, String *, Cardinal *)
{
    Widget view = ViewOfTitle(title);
    if (!view || !M(view).title)
        return;
    XmPrjTreeTitleRec *t = M(view).title;
    TitleGesture &g = G(view);
    int x = event->xbutton.x, y = event->xbutton.y;
    if (g.active && t->buttonState == 2) {
        if (const State::Shown *sh = ShownOf(view, g.active))
            DrawButtonFrame(view, *sh, 1);
        g.down = true;
        return;
    }
    if (g.active || t->buttonState)
        return;
    g.down = true;
    if (M(view).useTitleScrolling) {
        for (int which : {1, 2}) {
            int ax = which == 1 ? t->arrowLeftX : t->arrowRightX;
            if (InBox(x, y, ax, t->arrowY, t->arrowWidth, t->arrowHeight)) {
                t->armedArrow = which;
                t->arrowDown = True;
                DrawArrow(view, which, true);
                return;
            }
        }
    }
    auto &shown = S(view).shown;
    if (M(view).numColumns < 2 || M(view).columns->count < 2) {
        g.active = t->firstColumn ? ColumnOf(t->firstColumn) : nullptr;
        return;
    }
    for (auto &sh : shown)
        if (x >= sh.column->x && x < sh.x + sh.width && x < t->arrowLeftX)
            g.active = sh.column;
}

void TitleMotion(Widget title, XEvent *event, String *, Cardinal *)
{
    Widget view = ViewOfTitle(title);
    if (!view || !M(view).title)
        return;
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    XmPrjTreeTitleRec *t = m.title;
    TitleGesture &g = G(view);
    Display *dpy = XtDisplay(title);
    int x, y;
    switch (event->type) {
    case MotionNotify: x = event->xmotion.x; y = event->xmotion.y; break;
    case ButtonPress:
    case ButtonRelease: x = event->xbutton.x; y = event->xbutton.y; break;
    case EnterNotify:
    case LeaveNotify: x = event->xcrossing.x; y = event->xcrossing.y; break;
    default: x = y = -1; break;
    }
    bool inside = event->type != LeaveNotify && event->type != FocusOut && x >= 0 && y >= 0 &&
                  x < (int)title->core.width && y < (int)title->core.height;
    if (!g.sash) {
        const State::Shown *hit = nullptr;
        for (auto &sh : S(view).shown) {
            XRectangle box;
            if (inside && ButtonBox(view, sh, &box) && InBox(x, y, box.x, box.y, box.width, box.height))
                hit = &sh;
        }
        if (hit) {
            XUndefineCursor(dpy, XtWindow(title));
            if (t->buttonState != 2 && (!g.active || g.active == hit->column)) {
                DrawButtonFrame(view, *hit, g.down ? 1 : 2);
                g.active = hit->column;
                t->buttonState = 2;
            }
            XFlush(dpy);
            return;
        }
        if (t->buttonState == 2) {
            if (const State::Shown *sh = g.active ? ShownOf(view, g.active) : nullptr)
                DrawButtonFrame(view, *sh, 0);
            t->buttonState = g.down ? 1 : 0;
            if (!g.down)
                g.active = nullptr;
        }
    }
    if (t->armedArrow == 0) {
        if (g.sash) {
            if (event->type != MotionNotify)
                return;
            DrawSashLine(view, v.sashPosition);
            v.sashPosition = (short)x;
            DrawSashLine(view, v.sashPosition);
            return;
        }
        int gap = ColumnGap(view);
        auto &shown = S(view).shown;
        for (size_t i = 1; inside && i < shown.size(); i++) {
            XmPrjTreeColumnRec *c = shown[i].column;
            if (x < c->x - 1 || x > c->x + gap || x >= t->arrowLeftX)
                continue;
            if (!(shown[i - 1].column->flags & 2))
                return;
            XDefineCursor(dpy, XtWindow(title), v.sashCursor);
            XFlush(dpy);
            if (g.down && t->buttonState == 0) {
                g.active = c;
                g.sash = true;
                v.sashPosition = (short)x;
                DrawSashLine(view, x);
            }
            return;
        }
        XUndefineCursor(dpy, XtWindow(title));
        XFlush(dpy);
        return;
    }
    int ax = t->armedArrow == 1 ? t->arrowLeftX : t->arrowRightX;
    bool over = inside && InBox(x, y, ax, t->arrowY, t->arrowWidth, t->arrowHeight);
    if (over != (bool)t->arrowDown) {
        t->arrowDown = over;
        DrawArrow(view, t->armedArrow, over);
    }
}

// After the columns scrolled, an editor that left the bar finds a cell of
// the active row from the side the columns came from.
void FollowEditor(Widget view, bool from_right)
{
    XmPrjTreePart &m = M(view);
    if (!m.cellActive || !m.cellNodeId)
        return;
    for (auto &sh : S(view).shown)
        if (sh.column->number == m.cellColumn)
            return;
    auto &shown = S(view).shown;
    for (size_t k = 0; k < shown.size(); k++) {
        auto &sh = shown[from_right ? shown.size() - 1 - k : k];
        XmPrjTreeCellRec *cell = CellOf(m.cellNodeId, sh.column->number);
        if (cell && Editable(cell->type)) {
            ActivateCell(view, m.cellNodeId, sh.column->number, nullptr);
            return;
        }
    }
}

void SortBy(Widget view, XmPrjTreeColumnRec *c)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    XwkTreeNode *current = m.currentNode;
    if (m.cellNodeId)
        m.currentNode = m.cellNodeId;
    unsigned char direction = XmSORT_ASCENDING;
    if (m.sortHasRun && c->number == v.sortColumn && v.sortDirection == XmSORT_ASCENDING)
        direction = XmSORT_DISCENDING;
    v.sortColumn = c->number;
    v.sortDirection = direction;
    PaintTitle(view);
    XmPrjTreeSortItems(view, True);
    if (Alive(view))
        m.currentNode = current;
    if (Alive(view))
        RepaintTitles(view);
}

void TitleDisarm(Widget title, XEvent *event, String *, Cardinal *)
{
    Widget view = ViewOfTitle(title);
    if (!view || !M(view).title)
        return;
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    XmPrjTreeTitleRec *t = m.title;
    TitleGesture &g = G(view);
    Display *dpy = XtDisplay(title);
    if (g.active && t->buttonState && g.down) {
        XmPrjTreeColumnRec *c = g.active;
        bool fire = t->buttonState == 2 && c->button;
        if (const State::Shown *sh = ShownOf(view, c))
            DrawButtonFrame(view, *sh, 0);
        t->buttonState = 0;
        g.active = nullptr;
        g.down = false;
        if (fire) {
            auto *b = (XmPrjTreeTitleButtonRec *)c->button;
            XmPrjTreeCallbackStruct data{};
            data.reason = XmCR_TREE_TITLE_ACTIVATE;
            data.event = event;
            data.part = XmTREE_PART_NOTHING;
            data.column = c->number;
            data.cellType = c->itemType;
            if (b->proc)
                b->proc(view, b->data, (XtPointer)&data);
        }
        return;
    }
    t->buttonState = 0;
    if (t->armedArrow) {
        int which = t->armedArrow;
        t->armedArrow = 0;
        t->arrowDown = False;
        DrawArrow(view, which, false);
        // The release moves the columns wherever the pointer went, and the
        // right arrow moves them while a column follows, live or not.
        XwkListNode *to = nullptr;
        if (t->firstColumn)
            to = which == 1 ? t->firstColumn->prev : t->firstColumn->next;
        if (to) {
            t->firstColumn = to;
            RepaintTitles(view);
            RepaintRows(view);
            FollowEditor(view, which == 1);
        }
    } else if (g.active && !g.sash) {
        if (m.useSort && (g.active->flags & 1))
            SortBy(view, g.active);
    } else if (g.sash && g.active) {
        XUndefineCursor(dpy, XtWindow(title));
        DrawSashLine(view, v.sashPosition);
        int low = Shadow(view) + v.treeMarginWidth + v.highlightThickness;
        int pos = std::clamp((int)v.sashPosition, low, (int)title->core.width - low - 1);
        XmPrjTreeColumnRec *c = g.active;
        XmPrjTreeColumnRec *prev = nullptr;
        for (auto &sh : S(view).shown)
            if (sh.column == c)
                break;
            else
                prev = sh.column;
        v.sashPosition = -1;
        if (prev && pos != c->x) {
            int width = std::max((int)prev->width + pos - c->x, 2 * (int)m.hPad);
            prev->width = (Dimension)width;
            RepaintTitles(view);
            RepaintRows(view);
        }
    }
    g.active = nullptr;
    g.sash = false;
    g.down = false;
    v.sashPosition = -1;
}

void TitleDragTimerFired(XtPointer closure, XtIntervalId *)
{
    auto view = (Widget)closure;
    TitleGesture &g = G(view);
    g.timer = 0;
    if (!Alive(view) || !M(view).title)
        return;
    M(view).title->buttonState = 0;
    M(view).title->armedArrow = 0;
    g.active = nullptr;
    g.down = false;
    g.sash = false;
    XEvent saved = g.event;
    StartTitleDrag(view, &saved);
}

XtEnum Btn1Transfer(Widget w)
{
    unsigned char value = 0;
    if (Widget display = XmGetXmDisplay(XtDisplay(w)))
        XtVaGetValues(display, XmNenableBtn1Transfer, &value, NULL);
    return value;
}

void TitleProcessBtn(Widget title, XEvent *event, String *params, Cardinal *num_params, int button)
{
    Widget view = ViewOfTitle(title);
    if (!view || !num_params || *num_params != 1)
        return;
    TitleGesture &g = G(view);
    XtEnum transfer = Btn1Transfer(view);
    bool busy = g.active || g.sash;
    if (busy || (button == 1 && transfer == 0) || (button == 2 && transfer == 1)) {
        if (g.timer) {
            XtRemoveTimeOut(g.timer);
            g.timer = 0;
        }
        XtCallActionProc(title, params[0], event, nullptr, 0);
        return;
    }
    if (event->type == ButtonPress && !g.timer) {
        g.event = *event;
        g.action = nullptr;
        XtActionProc proc = nullptr;
        for (auto &a : {std::pair<const char *, XtActionProc>{"TitleArm", TitleArm},
                        {"TitleDisarm", TitleDisarm}})
            if (!strcmp(a.first, params[0]))
                proc = a.second;
        g.action = proc;
        g.timer = XtAppAddTimeOut(XtWidgetToApplicationContext(view),
                                  XtGetMultiClickTime(XtDisplay(view)), TitleDragTimerFired,
                                  (XtPointer)view);
        return;
    }
    if (g.timer && event->type == MotionNotify) {
        int dx = std::abs(event->xmotion.x - g.event.xbutton.x);
        int dy = std::abs(event->xmotion.y - g.event.xbutton.y);
        if (dx >= 4 || dy >= 3) {
            XtRemoveTimeOut(g.timer);
            g.timer = 0;
            XEvent saved = g.event;
            StartTitleDrag(view, &saved);
        }
        return;
    }
    if (g.timer) {
        XtRemoveTimeOut(g.timer);
        g.timer = 0;
        XEvent saved = g.event;
        Cardinal zero = 0;
        if (g.action)
            g.action(title, &saved, nullptr, &zero);
    }
    XtCallActionProc(title, params[0], event, nullptr, 0);
}

void TitleProcessBtn1(Widget title, XEvent *event, String *params, Cardinal *num_params)
{
    TitleProcessBtn(title, event, params, num_params, 1);
}

void TitleProcessBtn2(Widget title, XEvent *event, String *params, Cardinal *num_params)
{
    TitleProcessBtn(title, event, params, num_params, 2);
}

void TitleProcessDrag(Widget title, XEvent *event, String *, Cardinal *)
{
    Widget view = ViewOfTitle(title);
    if (!view)
        return;
    TitleGesture &g = G(view);
    if (g.timer) {
        XtRemoveTimeOut(g.timer);
        g.timer = 0;
    }
    if (g.active)
        return;
    StartTitleDrag(view, event);
}

XtActionsRec title_actions[] = {
    {(String) "TitleArm", TitleArm},
    {(String) "TitleDisarm", TitleDisarm},
    {(String) "TitleMotion", TitleMotion},
    {(String) "TitleProcessDrag", TitleProcessDrag},
    {(String) "TitleProcessBtn1", TitleProcessBtn1},
    {(String) "TitleProcessBtn2", TitleProcessBtn2},
};

const char title_translations[] =
    "<Btn1Down>: TitleProcessBtn1(TitleArm) TitleMotion()\n"
    "<Btn1Up>: TitleProcessBtn1(TitleDisarm)\n"
    "<Motion>: TitleMotion()\n"
    "<Btn2Down>: TitleProcessDrag()\n"
    "<LeaveWindow>: TitleMotion()\n"
    "<FocusOut>: TitleMotion()";

void TitleExposed(Widget title, XtPointer, XtPointer)
{
    if (Widget view = ViewOfTitle(title))
        PaintTitle(view);
}

void TitleGone(Widget title, XtPointer closure, XtPointer)
{
    auto view = (Widget)closure;
    if (IsTree(view) && P(view).state && P(view).titleWidget == title)
        P(view).titleWidget = nullptr;
}

}  // namespace

namespace xwk::tree {

void CreateSashCursor(Widget view)
{
    XmPrjTreePart &v = P(view);
    if (v.sashCursor)
        return;
    Display *dpy = XtDisplay(view);
    Window root = RootWindowOfScreen(XtScreen(view));
    unsigned int bw = 0, bh = 0;
    if (XQueryBestCursor(dpy, root, 18, 14, &bw, &bh) && bw >= 18 && bh >= 14) {
        Pixmap bits = XCreateBitmapFromData(dpy, root, (const char *)sash_bits, 18, 14);
        Pixmap mask = XCreateBitmapFromData(dpy, root, (const char *)sash_mask, 18, 14);
        XColor black, white;
        black.pixel = BlackPixelOfScreen(XtScreen(view));
        white.pixel = WhitePixelOfScreen(XtScreen(view));
        black.red = black.green = black.blue = 0;
        white.red = white.green = white.blue = 0xffff;
        black.flags = white.flags = DoRed | DoGreen | DoBlue;
        v.sashCursor = XCreatePixmapCursor(dpy, bits, mask, &black, &white, 8, 8);
        XFreePixmap(dpy, bits);
        XFreePixmap(dpy, mask);
    } else {
        v.sashCursor = XCreateFontCursor(dpy, 34);
    }
    G(view).ownCursor = true;
}

void CreateTitleGCs(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    Drawable d = RootWindowOfScreen(XtScreen(view));
    Pixmap scratch = None;
    if ((int)view->core.depth != DefaultDepthOfScreen(XtScreen(view)))
        d = scratch = XCreatePixmap(dpy, d, 1, 1, view->core.depth);
    XGCValues values;
    values.graphics_exposures = False;
    values.foreground = m.titleForeground;
    values.background = m.titleBackground;
    XtGCMask mask = GCForeground | GCBackground | GCGraphicsExposures;
    XFontStruct *font = nullptr;
    XmeRenderTableGetDefaultFont(TitleFonts(view), &font);
    if (font) {
        values.font = font->fid;
        mask |= GCFont;
    }
    v.titleTextGC = XCreateGC(dpy, d, mask, &values);
    values.foreground = m.titleBackground;
    v.titleEraseGC = XCreateGC(dpy, d, GCForeground | GCGraphicsExposures, &values);
    values.foreground = m.titleForeground;
    values.fill_style = FillTiled;
    values.tile = XmGetPixmapByDepth(XtScreen(view), (char *)"75_foreground", m.titleForeground,
                                     m.titleBackground, view->core.depth);
    v.titleShadowGC = XCreateGC(dpy, d, GCForeground | GCBackground | GCFillStyle | GCTile |
                                            GCGraphicsExposures, &values);
    values.function = GXinvert;
    values.subwindow_mode = IncludeInferiors;
    values.plane_mask = AllPlanes;
    v.sashGC = XCreateGC(dpy, d, GCFunction | GCSubwindowMode | GCPlaneMask | GCGraphicsExposures,
                         &values);
    if (scratch)
        XFreePixmap(dpy, scratch);
}

void CreateTitle(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    CreateTitleGCs(view);
    CreateSashCursor(view);
    if (!m.title || !UnderScrolledWindow(view))
        return;
    static bool registered = false;
    static XtTranslations parsed = nullptr;
    if (!registered) {
        XtAppAddActions(XtWidgetToApplicationContext(view), title_actions,
                        XtNumber(title_actions));
        parsed = XtParseTranslationTable(title_translations);
        registered = true;
    }
    Arg args[12];
    Cardinal n = 0;
    XtSetArg(args[n], XmNshadowType, XmSHADOW_OUT); n++;
    XtSetArg(args[n], XmNshadowThickness, 2); n++;
    XtSetArg(args[n], XmNtraversalOn, False); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNuserData, (XtPointer)view); n++;
    XtSetArg(args[n], XmNtranslations, parsed); n++;
    XtSetArg(args[n], XmNbackground, m.titleBackground); n++;
    XtSetArg(args[n], XmNforeground, m.titleForeground); n++;
    XtSetArg(args[n], XmNscrolledWindowChildType, XmNO_SCROLL); n++;
    XtSetArg(args[n], XmNheight, std::max(1, (int)m.titleHeight)); n++;
    XtSetArg(args[n], XmNwidth, std::max(1, (int)view->core.width)); n++;
    v.titleWidget = XmCreateDrawnButton(XtParent(view), (String) "tableTitle", args, n);
    XtAddCallback(v.titleWidget, XmNexposeCallback, TitleExposed, nullptr);
    XtAddCallback(v.titleWidget, XmNresizeCallback, TitleExposed, nullptr);
    XtAddCallback(v.titleWidget, XmNdestroyCallback, TitleGone, (XtPointer)view);
    XtInstallAccelerators(v.titleWidget, view);
    XtManageChild(v.titleWidget);
    RegisterTitleDropSite(view);
    PlaceTitle(view);
}

void DestroyTitle(Widget view)
{
    XmPrjTreePart &v = P(view);
    auto it = gestures.find(view);
    if (it != gestures.end()) {
        if (it->second.timer)
            XtRemoveTimeOut(it->second.timer);
        if (it->second.ownCursor && v.sashCursor)
            XFreeCursor(XtDisplay(view), v.sashCursor);
        gestures.erase(it);
    }
    // The bar may be on its way out already, its destroy to come after the
    // list is gone (the list's scrolled window goes with the list): it must
    // not call back into the list then.
    if (v.titleWidget) {
        XtRemoveCallback(v.titleWidget, XmNdestroyCallback, TitleGone, (XtPointer)view);
        if (!v.titleWidget->core.being_destroyed)
            XtDestroyWidget(v.titleWidget);
    }
    v.titleWidget = nullptr;
}

void PlaceTitle(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    if (!UnderScrolledWindow(view))
        return;
    auto *sw = (XmScrolledWindowWidget)XtParent(view);
    Position wanted = (Position)(sw->swindow.HeightPad + (v.titleWidget ? m.titleHeight : 0));
    bool moved = sw->swindow.YOffset != wanted;
    sw->swindow.YOffset = wanted;
    if (!v.titleWidget)
        return;
    if (moved && XtIsRealized((Widget)sw))
        (*XtClass((Widget)sw)->core_class.resize)((Widget)sw);
    XtConfigureWidget(v.titleWidget, view->core.x, (Position)sw->swindow.HeightPad,
                      std::max(1, (int)view->core.width), std::max(1, (int)m.titleHeight), 0);
    if (m.title)
        m.title->laidOut = True;
}

void PaintTitle(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    XmPrjTreeTitleRec *t = m.title;
    if (!t || !Alive(view))
        return;
    Widget tw = v.titleWidget;
    int tshadow = tw ? TitleShadow(tw) : 0;
    int th = tw ? tw->core.height : m.titleHeight;
    t->arrowHeight = (short)std::max(0, std::min({15, (int)m.titleHeight, th - 2 * tshadow}));
    t->arrowWidth = (short)std::max(0, t->arrowHeight - tshadow);
    t->arrowY = (short)((th - t->arrowHeight) / 2);
    LayOutColumns(view);
    if (!tw || !XtIsRealized(tw))
        return;
    if (!t->laidOut)
        PlaceTitle(view);
    auto *prim = (XmPrimitiveWidget)tw;
    Display *dpy = XtDisplay(tw);
    Window win = XtWindow(tw);
    XFillRectangle(dpy, win, v.titleEraseGC, 0, 0, tw->core.width, tw->core.height);
    XmeDrawShadows(dpy, win, prim->primitive.top_shadow_GC, prim->primitive.bottom_shadow_GC, 0, 0,
                   tw->core.width, tw->core.height, tshadow, XmSHADOW_OUT);
    XmFontList fonts = TitleFonts(view);
    bool first = true;
    for (auto &sh : S(view).shown) {
        XmPrjTreeColumnRec *c = sh.column;
        if (!first)
            XmeDrawSeparator(dpy, win, prim->primitive.top_shadow_GC,
                             prim->primitive.bottom_shadow_GC, nullptr, c->x, tshadow, 2,
                             std::max(0, th - 2 * tshadow), 2, 0, XmVERTICAL, XmSHADOW_ETCHED_IN);
        first = false;
        int x = sh.x, w = sh.width;
        bool sorted = m.useSort && (c->flags & 1) && c->number == v.sortColumn;
        if (c->buttonIcon) {
            XwkIcon *b = c->buttonIcon;
            DrawIconAt(view, win, b, x + 2, (th - IconHeight(b)) / 2, w - 2);
            int shift = tshadow + m.hPad + 2 + IconWidth(b);
            x += shift;
            w -= shift;
        }
        if (w <= 0)
            continue;
        if ((c->itemType == XmCELL_ICON || c->itemType == XmCELL_TOGGLE_ICON) && c->icon) {
            int ix = c->alignment == 1 ? x + (w - IconWidth(c->icon)) / 2 : x;
            DrawIconAt(view, win, c->icon, ix, (th - IconHeight(c->icon)) / 2, x + w - ix);
        } else {
            XmString s = sorted ? c->xmLabelBold : c->xmLabel;
            Dimension sw = 0, shh = 0;
            XmStringExtent(fonts, s, &sw, &shh);
            int text_w = w - (sorted ? t->arrowWidth + 2 : 0);
            unsigned char align = c->alignment == 1   ? XmALIGNMENT_CENTER
                                  : c->alignment == 2 ? XmALIGNMENT_END
                                                      : XmALIGNMENT_BEGINNING;
            if ((int)sw > text_w)
                align = XmALIGNMENT_BEGINNING;
            XRectangle clip = {(short)x, 0, (unsigned short)std::max(0, text_w), (unsigned short)th};
            XmStringDraw(dpy, win, fonts, s, v.titleTextGC, (Position)x, (Position)((th - shh) / 2),
                         (Dimension)std::max(1, text_w), align, XmSTRING_DIRECTION_L_TO_R, &clip);
        }
        if (sorted && w > t->arrowWidth) {
            unsigned char dir = !m.sortHasRun ? XmARROW_RIGHT
                                : v.sortDirection == XmSORT_DISCENDING ? XmARROW_UP
                                                                       : XmARROW_DOWN;
            XmeDrawArrow(dpy, win, prim->primitive.top_shadow_GC, prim->primitive.bottom_shadow_GC,
                         v.titleEraseGC, (Position)(x + w - t->arrowWidth), t->arrowY,
                         (Dimension)t->arrowWidth, (Dimension)t->arrowHeight, 1, dir);
        }
    }
    if (m.numColumns > 1 && m.useTitleScrolling) {
        DrawArrow(view, 1, t->armedArrow == 1 && t->arrowDown);
        DrawArrow(view, 2, t->armedArrow == 2 && t->arrowDown);
    }
    TitleGesture &g = G(view);
    if (g.active && M(view).title->buttonState == 2)
        if (const State::Shown *sh = ShownOf(view, g.active))
            DrawButtonFrame(view, *sh, g.down ? 1 : 2);
}

void RepaintTitles(Widget w)
{
    for (Widget v : Views(w))
        PaintTitle(v);
}

void DrawSashLine(Widget view, int x)
{
    if (x < 0)
        return;
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    if (v.titleWidget && XtIsRealized(v.titleWidget))
        XDrawLine(dpy, XtWindow(v.titleWidget), v.sashGC, x, 0, x, v.titleWidget->core.height);
    if (XtIsRealized(view))
        XDrawLine(dpy, XtWindow(view), v.sashGC, x, 0, x, view->core.height);
}

}  // namespace xwk::tree
