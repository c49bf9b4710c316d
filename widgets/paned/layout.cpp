// Paned window geometry: the pane list, sizes along and across the flow,
// refiguring after a change, committing positions and the geometry manager.
#include "widgets/paned/paned.h"

#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/SashP.h>

#include <algorithm>
#include <vector>

namespace xwk::paned {

namespace {

int MarginAlong(XwkPanedWindowWidget pw) { return pw->paned_window.marginHeight; }
int MarginAcross(XwkPanedWindowWidget pw) { return pw->paned_window.marginWidth; }

WidgetList Managed(XwkPanedWindowWidget pw) { return pw->paned_window.managedChildren; }
int Count(XwkPanedWindowWidget pw) { return pw->paned_window.paneCount; }

void ComputePositions(XwkPanedWindowWidget pw)
{
    int pos = MarginAlong(pw);
    for (int i = 0; i < Count(pw); i++) {
        Widget child = Managed(pw)[i];
        Pane(child)->dy = (Position)pos;
        pos += Pane(child)->dheight + 2 * child->core.border_width + pw->paned_window.spacing;
    }
}

// Sum of the panes' wanted sizes with borders, spacing and both margins.
int Total(XwkPanedWindowWidget pw)
{
    int total = 0;
    for (int i = 0; i < Count(pw); i++) {
        Widget child = Managed(pw)[i];
        total += Pane(child)->dheight + 2 * child->core.border_width + pw->paned_window.spacing;
    }
    return total + 2 * MarginAlong(pw) - pw->paned_window.spacing;
}

void ClampWanted(Widget child)
{
    XwkPanedWindowConstraintPart *p = Pane(child);
    p->dheight = std::clamp(p->dheight, (int)p->min, (int)p->max);
}

// Rebuilds the list of managed panes; panes lead the child list.
void CollectManaged(XwkPanedWindowWidget pw)
{
    XwkPanedWindowPart *p = &pw->paned_window;
    int count = 0;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (!IsPane(child))
            break;
        if (!XtIsManaged(child))
            continue;
        if (count >= p->numSlots) {
            p->numSlots += 10;
            p->managedChildren =
                (WidgetList)XtRealloc((char *)p->managedChildren, p->numSlots * sizeof(Widget));
        }
        p->managedChildren[count++] = child;
    }
    p->paneCount = (short)count;
    p->numManagedChildren = (short)count;
}

Dimension Sat(int v) { return (Dimension)std::clamp(v, 1, 0xFFFF); }

XtGeometryResult AskParent(XwkPanedWindowWidget pw, int along, int across, XtGeometryMask only,
                           bool query, XtWidgetGeometry *reply)
{
    XtWidgetGeometry req = {};
    if (Vertical(pw)) {
        req.height = Sat(along);
        req.width = Sat(across);
        req.request_mode = (only & 1 ? CWHeight : 0) | (only & 2 ? CWWidth : 0);
    } else {
        req.width = Sat(along);
        req.height = Sat(across);
        req.request_mode = (only & 1 ? CWWidth : 0) | (only & 2 ? CWHeight : 0);
    }
    if (query)
        req.request_mode |= XtCWQueryOnly;
    return XtMakeGeometryRequest((Widget)pw, &req, reply);
}

int ReplyAlong(XwkPanedWindowWidget pw, const XtWidgetGeometry &g) { return Vertical(pw) ? g.height : g.width; }
int ReplyAcross(XwkPanedWindowWidget pw, const XtWidgetGeometry &g) { return Vertical(pw) ? g.width : g.height; }

}  // namespace

void Place(XwkPanedWindowWidget pw, Widget w, int along_pos, int across_pos, int along, int across)
{
    Dimension b = w->core.border_width;
    if (Vertical(pw)) {
        _XmMoveObject(w, (Position)across_pos, (Position)along_pos);
        _XmResizeObject(w, Sat(across), Sat(along), b);
    } else {
        _XmMoveObject(w, (Position)along_pos, (Position)across_pos);
        _XmResizeObject(w, Sat(along), Sat(across), b);
    }
}

void ResetSizes(XwkPanedWindowWidget pw)
{
    for (int i = 0; i < Count(pw); i++)
        Pane(Managed(pw)[i])->dheight = Along(pw, Managed(pw)[i]);
}

int NeededSize(XwkPanedWindowWidget pw)
{
    int total = Total(pw);
    return total == AlongSize(pw) ? 0 : total;
}

void Refigure(XwkPanedWindowWidget pw, int c, char direction, bool dragging)
{
    int n = Count(pw);
    if (n == 0 || !pw->paned_window.refigureMode)
        return;
    c = std::clamp(c, 0, n - 1);
    for (int i = 0; i < n; i++)
        ClampWanted(Managed(pw)[i]);
    int size = AlongSize(pw);
    int used = Total(pw);
    const int step = direction == 'U' ? 1 : -1;
    int dir = step;
    int i = c;
    if (direction == 'U' && c != n - 1)
        i++;

    for (int pass = 0; used != size && pass < 9 * n; pass++) {
        XwkPanedWindowConstraintPart *pane = Pane(Managed(pw)[i]);
        if (!pane->skipAdjust || dragging || dir != step) {
            int old = pane->dheight;
            if (used < size)
                pane->dheight += size - used;
            else if (used - size < pane->dheight && pane->dheight - (used - size) > 1)
                pane->dheight -= used - size;
            else
                pane->dheight = 1;
            ClampWanted(Managed(pw)[i]);
            used += pane->dheight - old;
        }
        i += dir;
        if (i >= 0 && i < n)
            continue;
        // Ran off the end: go back the other way from the start, once.
        dir = -dir;
        if (dir == step) {
            ComputePositions(pw);
            if (!dragging) {
                int pos = Total(pw);
                if (pos <= size)
                    return;
                XwkPanedWindowConstraintPart *cp = Pane(Managed(pw)[c]);
                cp->dheight = cp->dheight > pos - size ? cp->dheight - (pos - size) : 1;
                ComputePositions(pw);
            }
            return;
        }
        i = c + dir;
        if (c == 0 && dir < 0)
            i++;
        if (i < 0 || i >= n)
            i = c;
    }
    ComputePositions(pw);
}

void ClipFlipGC(XwkPanedWindowWidget pw)
{
    if (!pw->paned_window.flipGC)
        return;
    Region all = XCreateRegion();
    Region sashes = XCreateRegion();
    XRectangle r = {0, 0, pw->core.width, pw->core.height};
    XUnionRectWithRegion(&r, all, all);
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget w = pw->composite.children[i];
        if (!XmIsSash(w) || !XtIsManaged(w))
            continue;
        XRectangle s = {w->core.x, w->core.y, (unsigned short)(w->core.width + 2 * w->core.border_width),
                        (unsigned short)(w->core.height + 2 * w->core.border_width)};
        XUnionRectWithRegion(&s, sashes, sashes);
    }
    XSubtractRegion(all, sashes, all);
    XSetRegion(XtDisplay(pw), pw->paned_window.flipGC, all);
    XDestroyRegion(all);
    XDestroyRegion(sashes);
}

void Commit(XwkPanedWindowWidget pw, Widget instigator)
{
    const int across_size = AcrossSize(pw);
    const int spacing = pw->paned_window.spacing;
    for (int i = 0; i < Count(pw); i++) {
        Widget child = Managed(pw)[i];
        XwkPanedWindowConstraintPart *pane = Pane(child);
        int b = child->core.border_width;
        if (child != instigator) {
            int across = std::max(1, across_size - 2 * (b + MarginAcross(pw)));
            Place(pw, child, pane->dy, MarginAcross(pw), pane->dheight, across);
        }
        int below = pane->dy + Along(pw, child) + 2 * b + spacing / 2;
        if (Widget sep = pane->separator; sep && XtIsManaged(sep)) {
            int along = below - Along(pw, sep) / 2 - sep->core.border_width;
            Place(pw, sep, along, 0, Along(pw, sep), across_size);
        }
        Widget sash = pane->sash;
        if (!sash || !XtIsManaged(sash))
            continue;
        int indent = pw->paned_window.sashIndent;
        int across = indent >= 0 ? indent
                                 : across_size + indent - Across(pw, sash) - 2 * sash->core.border_width;
        if (across < 0 || across > across_size - Across(pw, sash))
            across = 0;
        int along = below - Along(pw, sash) / 2 - sash->core.border_width;
        XWindowChanges changes;
        changes.x = Vertical(pw) ? across : along;
        changes.y = Vertical(pw) ? along : across;
        changes.stack_mode = Above;
        sash->core.x = (Position)changes.x;
        sash->core.y = (Position)changes.y;
        // Configured directly so that the sash is raised above the panes in
        // the same request.
        if (XtIsRealized(sash))
            XConfigureWindow(XtDisplay(sash), XtWindow(sash), CWX | CWY | CWStackMode, &changes);
    }
    ClipFlipGC(pw);
}

void ChangeManaged(Widget w)
{
    XwkPanedWindowWidget pw = Paned(w);
    XwkPanedWindowPart *p = &pw->paned_window;
    if (p->recursivelyCalled)
        return;
    p->recursivelyCalled = True;

    CollectManaged(pw);
    int n = Count(pw);

    int largest = 0;
    for (int i = 0; i < n; i++) {
        Widget child = Managed(pw)[i];
        largest = std::max(largest, Across(pw, child) + 2 * (int)child->core.border_width);
        XwkPanedWindowConstraintPart *pane = Pane(child);
        int along = Along(pw, child);
        int clamped = std::clamp(along, (int)pane->min, (int)pane->max);
        if (clamped != along)
            Place(pw, child, Vertical(pw) ? child->core.y : child->core.x,
                  Vertical(pw) ? child->core.x : child->core.y, clamped, Across(pw, child));
    }

    std::vector<Widget> manage, unmanage;
    Widget last = n ? Managed(pw)[n - 1] : nullptr;
    int sum = 0;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (!IsPane(child))
            break;
        XwkPanedWindowConstraintPart *pane = Pane(child);
        bool shown = XtIsManaged(child);
        if (shown) {
            pane->dheight = Along(pw, child);
            sum += pane->dheight + 2 * child->core.border_width;
            int across = std::max(1, largest - 2 * (int)child->core.border_width);
            Place(pw, child, Vertical(pw) ? child->core.y : child->core.x,
                  Vertical(pw) ? child->core.x : child->core.y, pane->dheight, across);
        }
        bool has_neighbour = shown && child != last;
        if (Widget sep = pane->separator)
            (has_neighbour && p->separatorOn ? manage : unmanage).push_back(sep);
        if (Widget sash = pane->sash)
            (has_neighbour && pane->min != pane->max ? manage : unmanage).push_back(sash);
    }
    auto drop_done = [](std::vector<Widget> &v, bool want_managed) {
        std::erase_if(v, [&](Widget c) { return (bool)XtIsManaged(c) == want_managed; });
    };
    drop_done(manage, true);
    drop_done(unmanage, false);
    if (!unmanage.empty())
        XtUnmanageChildren(unmanage.data(), unmanage.size());
    if (!manage.empty())
        XtManageChildren(manage.data(), manage.size());
    for (int i = 0; i < n; i++) {
        Pane(Managed(pw)[i])->position = i;
        Widget sash = Pane(Managed(pw)[i])->sash;
        if (sash && XtIsManaged(sash) && XtIsRealized(sash))
            XRaiseWindow(XtDisplay(sash), XtWindow(sash));
    }

    int along = std::max(1, sum + 2 * MarginAlong(pw) + p->spacing * std::max(0, n - 1));
    int across = std::max(1, largest + 2 * MarginAcross(pw));
    Dimension want_w = Sat(Vertical(pw) ? across : along), want_h = Sat(Vertical(pw) ? along : across);
    XtGeometryResult result = XtGeometryNo;
    for (int tries = 0; tries < 4; tries++) {
        Dimension rw = 0, rh = 0;
        result = XtMakeResizeRequest(w, want_w, want_h, &rw, &rh);
        if (result != XtGeometryAlmost)
            break;
        want_w = rw;
        want_h = rh;
    }
    if (result == XtGeometryNo && AlongSize(pw) != along)
        p->resizeAtRealize = False;

    if (int needed = NeededSize(pw); needed != 0 && n > 0) {
        Dimension rw, rh;
        XtMakeResizeRequest(w, Vertical(pw) ? w->core.width : Sat(needed),
                            Vertical(pw) ? Sat(needed) : w->core.height, &rw, &rh);
    }
    ResetSizes(pw);
    if (XtIsRealized(w) && n > 0) {
        Refigure(pw, 0, 'U', false);
        Commit(pw, nullptr);
    }
    XmeNavigChangeManaged(w);
    p->recursivelyCalled = False;
}

void Resize(Widget w)
{
    XwkPanedWindowWidget pw = Paned(w);
    if (Count(pw) == 0)
        return;
    Refigure(pw, Count(pw) - 1, 'L', false);
    Commit(pw, nullptr);
}

void MakeFlipGC(XwkPanedWindowWidget pw)
{
    if (pw->paned_window.flipGC || !XtIsRealized((Widget)pw))
        return;
    XGCValues values;
    values.function = GXinvert;
    values.subwindow_mode = IncludeInferiors;
    values.foreground = pw->core.background_pixel;
    values.line_width = 2;
    pw->paned_window.flipGC = XCreateGC(XtDisplay(pw), XtWindow(pw),
                                        GCFunction | GCSubwindowMode | GCForeground | GCLineWidth,
                                        &values);
    ClipFlipGC(pw);
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attrs)
{
    XwkPanedWindowWidget pw = Paned(w);
    attrs->bit_gravity = NorthWestGravity;
    attrs->do_not_propagate_mask = ButtonPressMask | ButtonReleaseMask | KeyPressMask |
                                   KeyReleaseMask | PointerMotionMask;
    *mask |= CWBitGravity | CWDontPropagate;
    XtCreateWindow(w, InputOutput, CopyFromParent, *mask, attrs);
    MakeFlipGC(pw);
    if (pw->paned_window.resizeAtRealize)
        Resize(w);
    // Children are realized by Xt after this; their windows are stacked by
    // the commit that follows, sashes last so that they lie above the panes.
}

XtGeometryResult GeometryManager(Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply)
{
    XwkPanedWindowWidget pw = Paned(XtParent(w));
    XwkPanedWindowConstraintPart *pane = Pane(w);
    XtGeometryMask mask = request->request_mode;

    if (!pane->isPane || pane->positionIndex == XmLAST_POSITION) {
        if (pane->isPane) {
            for (Cardinal i = 0; i < pw->composite.num_children; i++)
                if (pw->composite.children[i] == w)
                    pane->positionIndex = (short)i;
        }
        if ((mask & CWX) && request->x >= 0)
            w->core.x = request->x;
        if ((mask & CWY) && request->y >= 0)
            w->core.y = request->y;
        if ((mask & CWWidth) && request->width > 0)
            w->core.width = request->width;
        if ((mask & CWHeight) && request->height > 0)
            w->core.height = request->height;
        return XtGeometryYes;
    }
    if (XtIsRealized((Widget)pw) && !pane->allowResize)
        return XtGeometryNo;
    if (!(mask & (CWWidth | CWHeight)))
        return XtGeometryNo;

    const XtGeometryMask along_bit = Vertical(pw) ? CWHeight : CWWidth;
    const XtGeometryMask across_bit = Vertical(pw) ? CWWidth : CWHeight;
    int req_along = Vertical(pw) ? request->height : request->width;
    int req_across = Vertical(pw) ? request->width : request->height;
    bool almost = (mask & (CWX | CWY)) != 0;
    bool query = (mask & XtCWQueryOnly) || almost;
    int allowed_across = Across(pw, w), allowed_along = Along(pw, w);

    if (mask & across_bit) {
        CollectManaged(pw);
        int largest = 1, border = 0;
        for (int i = 0; i < Count(pw); i++) {
            Widget c = Managed(pw)[i];
            if (Across(pw, c) + c->core.border_width > largest + border) {
                largest = Across(pw, c);
                border = c->core.border_width;
            }
        }
        int frame = 2 * (border + MarginAcross(pw));
        if (req_across < largest) {
            allowed_across = largest;
            almost = true;
        } else {
            XtWidgetGeometry got;
            switch (AskParent(pw, 0, req_across + frame, 2, query, &got)) {
            case XtGeometryYes:
                allowed_across = req_across;
                break;
            case XtGeometryAlmost:
                allowed_across = std::max(largest, std::max(1, ReplyAcross(pw, got) - frame));
                almost = true;
                break;
            default:
                allowed_across = AcrossSize(pw) - frame;
                break;
            }
        }
    }
    if (almost)
        query = true;

    int old_wanted = pane->dheight;
    if (mask & along_bit) {
        if (req_along < pane->min || req_along > pane->max) {
            req_along = std::clamp(req_along, (int)pane->min, (int)pane->max);
            almost = query = true;
        }
        ResetSizes(pw);
        old_wanted = pane->dheight;
        pane->dheight = req_along;
        allowed_along = req_along;
        if (int needed = NeededSize(pw); needed != 0) {
            XtWidgetGeometry got;
            switch (AskParent(pw, needed, 0, 1, query, &got)) {
            case XtGeometryYes:
                break;
            case XtGeometryAlmost: {
                int offered = ReplyAlong(pw, got);
                int reduced = needed > offered && req_along > needed - offered ? req_along - (needed - offered) : 1;
                allowed_along = std::clamp(reduced, (int)pane->min, (int)pane->max);
                almost = true;
                break;
            }
            default:
                allowed_along = Along(pw, w);
                break;
            }
        }
    }

    bool got_all = !almost && (!(mask & along_bit) || allowed_along == req_along) &&
                   (!(mask & across_bit) || allowed_across == req_across);
    if (got_all) {
        if (mask & XtCWQueryOnly) {
            pane->dheight = old_wanted;
            return XtGeometryYes;
        }
        if (Vertical(pw)) {
            w->core.width = Sat(allowed_across);
            w->core.height = Sat(allowed_along);
        } else {
            w->core.width = Sat(allowed_along);
            w->core.height = Sat(allowed_across);
        }
        Refigure(pw, pane->position, 'U', false);
        if (Vertical(pw)) {
            w->core.y = pane->dy;
            w->core.x = MarginAcross(pw);
        } else {
            w->core.x = pane->dy;
            w->core.y = MarginAcross(pw);
        }
        Commit(pw, w);
        return XtGeometryYes;
    }
    pane->dheight = old_wanted;
    reply->request_mode = CWWidth | CWHeight;
    reply->width = Sat(Vertical(pw) ? allowed_across : allowed_along);
    reply->height = Sat(Vertical(pw) ? allowed_along : allowed_across);
    return XtGeometryAlmost;
}

}  // namespace xwk::paned
