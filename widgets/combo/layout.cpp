// Combo box geometry: preferred size, placing text and arrow, the list
// shell's size, and the geometry manager for the text.
#include "widgets/combo/combo.h"

#include <Xm/XmP.h>

#include <algorithm>
#include <cmath>

namespace xwk::combo {

namespace {

int Frame(Widget w)
{
    return Part(w).highlightThickness + Combo(w)->manager.shadow_thickness;
}

int ArrowWidthFor(int height) { return std::max(15, (int)std::lround(0.85 * height)); }

void TextPreferred(Widget text, int *width, int *height)
{
    XtWidgetGeometry pref = {};
    XtQueryGeometry(text, nullptr, &pref);
    *width = (pref.request_mode & CWWidth) ? pref.width : text->core.width;
    *height = (pref.request_mode & CWHeight) ? pref.height : text->core.height;
}

}  // namespace

void PreferredSize(Widget w, Dimension *width, Dimension *height)
{
    XwkComboBoxPart &p = Part(w);
    int tw = 1, th = 1;
    if (p.text)
        TextPreferred(p.text, &tw, &th);
    int aw = ArrowWidthFor(th);
    *width = (Dimension)std::max(1, aw + p.arrowSpacing + tw + 2 * Frame(w) + 3 * p.marginWidth);
    *height = (Dimension)std::max(1, th + 2 * Frame(w) + 2 * p.marginHeight);
}

void Layout(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (!p.text || !p.arrow)
        return;
    int frame = Frame(w);
    int avail = std::max(1, (int)w->core.height - 2 * frame - 2 * p.marginHeight);
    int aw = ArrowWidthFor(avail);
    int k = p.arrowPlacement == XwkARROW_LEFT ? 3 : 2;
    int tw = std::max(1, (int)w->core.width - 2 * frame - k * p.marginWidth - aw - p.arrowSpacing);
    int pw, ph;
    TextPreferred(p.text, &pw, &ph);
    int th = std::min(ph, avail);
    int top = frame + p.marginHeight;
    int text_y = top + (avail - th) / 2;
    int text_x, arrow_x;
    if (p.arrowPlacement == XwkARROW_LEFT) {
        arrow_x = frame + p.marginWidth;
        text_x = arrow_x + aw + p.arrowSpacing + p.marginWidth;
    } else {
        text_x = frame + p.marginWidth;
        arrow_x = (int)w->core.width - frame - aw;
    }
    p.arrowSize = (Dimension)aw;
    XmeConfigureObject(p.text, (Position)text_x, (Position)text_y, (Dimension)tw, (Dimension)std::max(1, th), 0);
    XmeConfigureObject(p.arrow, (Position)arrow_x, (Position)top, (Dimension)aw, (Dimension)avail, 0);
}

void Resize(Widget w)
{
    Layout(w);
    if (XtIsRealized(w))
        XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, True);
}

void SizeAndLayout(Widget w)
{
    Dimension width, height, rw, rh;
    PreferredSize(w, &width, &height);
    if (XtMakeResizeRequest(w, width, height, &rw, &rh) == XtGeometryAlmost)
        XtMakeResizeRequest(w, rw, rh, nullptr, nullptr);
    Layout(w);
}

XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *)
{
    Widget w = XtParent(child);
    if (child != Part(w).text)
        return XtGeometryNo;
    if (request->request_mode & XtCWQueryOnly)
        return XtGeometryYes;
    Dimension width = (request->request_mode & CWWidth) ? request->width : child->core.width;
    Dimension height = (request->request_mode & CWHeight) ? request->height : child->core.height;
    XtResizeWidget(child, width, height, child->core.border_width);
    SizeAndLayout(w);
    return XtGeometryYes;
}

void ResizeListChain(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    if (!p.list)
        return;
    // From the list up to the shell, each takes the size it asks for.
    for (Widget c = p.list; c; c = XtParent(c)) {
        XtWidgetGeometry pref = {};
        XtQueryGeometry(c, nullptr, &pref);
        Dimension width = (pref.request_mode & CWWidth) ? pref.width : c->core.width;
        Dimension height = (pref.request_mode & CWHeight) ? pref.height : c->core.height;
        if (c == p.shell) {
            Widget frame = ((CompositeWidget)c)->composite.children[0];
            width = frame->core.width + 2 * frame->core.border_width;
            height = frame->core.height + 2 * frame->core.border_width;
        }
        XtResizeWidget(c, std::max<Dimension>(1, width), std::max<Dimension>(1, height), c->core.border_width);
        if (c == p.shell)
            break;
    }
}

}  // namespace xwk::combo
