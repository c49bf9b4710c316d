// Combo box drawing: its shadow and highlight, and the arrow button.
#include "widgets/combo/combo.h"

#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>
#include <Xm/DrawnBP.h>

#include <cmath>

namespace xwk::combo {

void DrawHighlight(Widget w, bool on)
{
    if (!XtIsRealized(w))
        return;
    XwkComboBoxWidget cb = Combo(w);
    Dimension t = Part(w).highlightThickness;
    if (t == 0)
        return;
    GC gc = on ? cb->manager.highlight_GC : cb->manager.background_GC;
    _XmDrawHighlight(XtDisplay(w), XtWindow(w), gc, 0, 0, w->core.width, w->core.height, t, LineSolid);
}

void Redisplay(Widget w, XEvent *, Region)
{
    XwkComboBoxWidget cb = Combo(w);
    XwkComboBoxPart &p = Part(w);
    if (!XtIsRealized(w) || p.comboBoxType == XwkPOPUP_LIST)
        return;
    int hl = p.highlightThickness;
    int st = cb->manager.shadow_thickness;
    int width = (int)w->core.width - 2 * hl, height = (int)w->core.height - 2 * hl;
    if (width <= 0 || height <= 0)
        return;
    XmeDrawShadows(XtDisplay(w), XtWindow(w), cb->manager.top_shadow_GC, cb->manager.bottom_shadow_GC,
                   (Position)hl, (Position)hl, (Dimension)width, (Dimension)height, (Dimension)st, p.shadowType);
    if (p.arrow) {
        int inner_x = hl + st, inner_w = width - 2 * st;
        int split = p.arrowPlacement == XwkARROW_LEFT ? p.arrow->core.x + p.arrow->core.width : p.arrow->core.x;
        int x0 = p.arrowPlacement == XwkARROW_LEFT ? split : inner_x;
        int x1 = p.arrowPlacement == XwkARROW_LEFT ? inner_x + inner_w : split;
        if (x1 > x0 && height - 2 * st > 0)
            XFillRectangle(XtDisplay(w), XtWindow(w), cb->manager.background_GC, x0, hl + st,
                           (unsigned)(x1 - x0), (unsigned)(height - 2 * st));
    }
    DrawHighlight(w, (p.flags & XwkCB_TEXT_FOCUS) != 0);
}

void RedrawArrow(Widget w)
{
    Widget arrow = Part(w).arrow;
    if (!arrow || !XtIsRealized(arrow))
        return;
    XmDrawnButtonWidget db = (XmDrawnButtonWidget)arrow;
    _XwkComboBoxDrawArrowButton(XtDisplay(arrow), XtWindow(arrow), db->primitive.top_shadow_GC,
                                db->primitive.bottom_shadow_GC, Combo(w)->manager.background_GC,
                                db->primitive.shadow_thickness, 0, 0, arrow->core.width,
                                arrow->core.height, (Part(w).flags & XwkCB_ARROW_PRESSED) != 0, True);
}

void ArrowExposeCallback(Widget, XtPointer closure, XtPointer)
{
    RedrawArrow((Widget)closure);
}

}  // namespace xwk::combo

extern "C" void _XwkComboBoxDrawArrowButton(Display *display, Drawable d, GC top, GC bottom, GC fill,
                                            int s, int x, int y, int width, int height, Boolean pressed,
                                            Boolean clear)
{
    if (width <= 2 * s || height <= 2 * s)
        return;
    if (clear) {
        XFillRectangle(display, d, fill, x + s, y + s, (unsigned)(width - 2 * s), (unsigned)(height - 2 * s));
        XmeDrawShadows(display, d, top, bottom, (Position)x, (Position)y, (Dimension)width,
                       (Dimension)height, (Dimension)s, XmSHADOW_OUT);
    }
    int inner = width - 2 * s;
    int a = inner - s - inner / 6;
    if (a <= 2)
        return;
    int arrow_y = height < 15 ? y + s : y + s + (height - 2 * s) / 8;
    XmeDrawArrow(display, d, pressed ? bottom : top, pressed ? top : bottom, fill, (Position)(x + 2 * s),
                 (Position)arrow_y, (Dimension)a, (Dimension)a, (Dimension)(s > 0 ? s : 1), XmARROW_DOWN);
    int bar_y = arrow_y + (int)std::lround(a * 0.8660254037844) + 1;
    int cap = y + height - 2 * s - 1;
    if (bar_y > cap)
        bar_y = cap;
    int bar_h = height - 2 * s - 1 >= 20 ? 3 : 2;
    XmeDrawShadows(display, d, top, bottom, (Position)(x + 2 * s + 1), (Position)bar_y, (Dimension)(a - 2),
                   (Dimension)bar_h, 1, XmSHADOW_OUT);
}
