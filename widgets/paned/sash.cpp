// Sash dragging and keyboard moves, the flat sash style, the orientation
// switch and the exported queries on panes.
#include "widgets/paned/paned.h"

#include <Xwk/Frame.h>

#include <Xm/XmP.h>
#include <Xm/SashP.h>
#include <Xm/SeparatoG.h>

#include <algorithm>
#include <cctype>
#include <vector>

namespace xwk::paned {

namespace {

const int kFlatSash = 6;

bool IsPanedWindow(Widget w) { return w && XmIsPanedWindow(w) && XtIsSubclass(w, xwkPanedWindowWidgetClass); }

WidgetList Managed(XwkPanedWindowWidget pw) { return pw->paned_window.managedChildren; }
int Count(XwkPanedWindowWidget pw) { return pw->paned_window.paneCount; }

// The pane a sash belongs to, by its index among managed panes.
int SashIndex(Widget sash)
{
    Widget pane = Pane(sash)->sash;
    return pane ? Pane(pane)->position : 0;
}

void FindDragPanes(XwkPanedWindowWidget pw, Widget sash)
{
    int n = Count(pw);
    int c = SashIndex(sash);
    int i = std::min(c + 1, n - 1);
    while (Pane(Managed(pw)[i])->min == Pane(Managed(pw)[i])->max && i < n - 1)
        i++;
    pw->paned_window.bottomPane = (XwkPanedWindowConstraintPtr)Managed(pw)[i]->core.constraints;
    i = c;
    while (Pane(Managed(pw)[i])->min == Pane(Managed(pw)[i])->max && i > 0)
        i--;
    pw->paned_window.topPane = (XwkPanedWindowConstraintPtr)Managed(pw)[i]->core.constraints;
    for (int k = 0; k < n; k++)
        Pane(Managed(pw)[k])->olddy = -99;
}

int TrackLineWidth(XwkPanedWindowWidget pw, Widget pane)
{
    Widget sep = Pane(pane)->separator;
    return sep ? Along(pw, sep) : 2;
}

void DrawLine(XwkPanedWindowWidget pw, int offset)
{
    if (!pw->paned_window.flipGC || !XtIsRealized((Widget)pw))
        return;
    if (Vertical(pw))
        XDrawLine(XtDisplay(pw), XtWindow(pw), pw->paned_window.flipGC, 0, offset, pw->core.width, offset);
    else
        XDrawLine(XtDisplay(pw), XtWindow(pw), pw->paned_window.flipGC, offset, 0, offset, pw->core.height);
}

void DrawTrackLines(XwkPanedWindowWidget pw)
{
    for (int i = 1; i < Count(pw); i++) {
        Widget child = Managed(pw)[i];
        XwkPanedWindowConstraintPart *pane = Pane(child);
        if (pane->olddy == pane->dy)
            continue;
        int half = (pw->paned_window.spacing + TrackLineWidth(pw, child)) / 2;
        if (pane->olddy != -99)
            DrawLine(pw, pane->olddy - half);
        DrawLine(pw, pane->dy - half);
        pane->olddy = pane->dy;
    }
}

void EraseTrackLines(XwkPanedWindowWidget pw)
{
    for (int i = 1; i < Count(pw); i++) {
        Widget child = Managed(pw)[i];
        XwkPanedWindowConstraintPart *pane = Pane(child);
        if (pane->olddy == -99)
            continue;
        DrawLine(pw, pane->olddy - (pw->paned_window.spacing + TrackLineWidth(pw, child)) / 2);
        pane->olddy = -99;
    }
}

// Grows the top pane for a positive delta, else the bottom one, and lets
// refigure take the difference from the others.
void MoveBy(XwkPanedWindowWidget pw, Widget sash, int delta, bool dragging)
{
    ResetSizes(pw);
    XwkPanedWindowConstraintPtr top = pw->paned_window.topPane, bottom = pw->paned_window.bottomPane;
    if (delta > 0 && top) {
        top->panedw.dheight += delta;
        Refigure(pw, SashIndex(sash), 'U', dragging);
    } else if (bottom) {
        bottom->panedw.dheight = -delta >= 0 && bottom->panedw.dheight - delta >= 1
                                     ? bottom->panedw.dheight - delta
                                     : 1;
        Refigure(pw, SashIndex(sash), 'L', dragging);
    }
}

void KeyMoveTimeout(XtPointer closure, XtIntervalId *)
{
    Widget sash = (Widget)closure;
    XwkPanedWindowWidget pw = Paned(XtParent(sash));
    pw->paned_window.timer = 0;
    int delta = pw->paned_window.increment;
    pw->paned_window.increment = 0;
    if (Count(pw) < 2 || !Pane(sash)->sash)
        return;
    FindDragPanes(pw, sash);
    MoveBy(pw, sash, delta, false);
    Commit(pw, nullptr);
}

void KeyMove(XwkPanedWindowWidget pw, Widget sash, String *params)
{
    char size = (char)toupper((unsigned char)params[1][0]);
    char where = (char)toupper((unsigned char)params[2][0]);
    int step = size == 'L' ? 10 : 1;
    int delta = 0;
    if (where == (Vertical(pw) ? 'U' : 'L'))
        delta = -step;
    else if (where == (Vertical(pw) ? 'D' : 'R'))
        delta = step;
    if (delta == 0)
        return;
    if (pw->paned_window.increment == 0) {
        pw->paned_window.increment = (short)delta;
        pw->paned_window.timer = XtAppAddTimeOut(XtWidgetToApplicationContext((Widget)pw),
                                                 XtGetMultiClickTime(XtDisplay(pw)), KeyMoveTimeout, sash);
        return;
    }
    pw->paned_window.increment += (short)delta;
}

}  // namespace

void CancelKeyMove(XwkPanedWindowWidget pw)
{
    if (pw->paned_window.timer)
        XtRemoveTimeOut(pw->paned_window.timer);
    pw->paned_window.timer = 0;
    pw->paned_window.increment = 0;
}

void SashCallback(Widget sash, XtPointer, XtPointer call_data)
{
    XwkPanedWindowWidget pw = Paned(XtParent(sash));
    SashCallData data = (SashCallData)call_data;
    if (data->num_params == 0) {
        XmeWarning((Widget)pw, (char *)"Too few parameters.");
        return;
    }
    XEvent *event = data->event;
    int coordinate;
    switch (event->type) {
    case KeyPress:
        if (data->num_params < 3) {
            XmeWarning((Widget)pw, (char *)"Too few parameters.");
            return;
        }
        KeyMove(pw, sash, data->params);
        return;
    case KeyRelease:
        return;
    case ButtonPress:
    case ButtonRelease:
        coordinate = Vertical(pw) ? event->xbutton.y_root : event->xbutton.x_root;
        break;
    case MotionNotify:
        coordinate = Vertical(pw) ? event->xmotion.y_root : event->xmotion.x_root;
        break;
    default:
        coordinate = pw->paned_window.startPosition;
        break;
    }
    if (!Pane(sash)->sash || Count(pw) < 2)
        return;
    switch (toupper((unsigned char)data->params[0][0])) {
    case 'S':
        FindDragPanes(pw, sash);
        pw->paned_window.startPosition = coordinate;
        break;
    case 'M':
        MoveBy(pw, sash, coordinate - pw->paned_window.startPosition, true);
        DrawTrackLines(pw);
        break;
    case 'C':
        EraseTrackLines(pw);
        Commit(pw, nullptr);
        break;
    default:
        XmeWarning((Widget)pw, (char *)"Invalid 1st parameter.");
        break;
    }
}

namespace {

struct TraversalRecord {
    Widget paned;
    Boolean traversal;
};

void SetSashTraversal(XtPointer closure, XtIntervalId *)
{
    TraversalRecord *rec = (TraversalRecord *)closure;
    XwkPanedWindowWidget pw = Paned(rec->paned);
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (XmIsSash(child))
            XtVaSetValues(child, XmNtraversalOn, rec->traversal, NULL);
    }
    XtFree((char *)rec);
}

void FlatSashesOnResize(Widget w, XtPointer, XEvent *event, Boolean *)
{
    if (event->type != ConfigureNotify)
        return;
    XwkPanedWindowWidget pw = Paned(w);
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (!XmIsSash(child))
            continue;
        if (Vertical(pw))
            XtResizeWidget(child, pw->core.width, kFlatSash, child->core.border_width);
        else
            XtResizeWidget(child, kFlatSash, pw->core.height, child->core.border_width);
    }
    XFlush(XtDisplay(w));
}

// Pending traversal timeouts by paned window, so that destroying the window
// first does not leave the timer a dead widget.
struct PendingTraversal {
    XtIntervalId id;
    TraversalRecord *rec;
};

void CancelTraversal(Widget, XtPointer closure, XtPointer)
{
    PendingTraversal *p = (PendingTraversal *)closure;
    XtRemoveTimeOut(p->id);
    XtFree((char *)p->rec);
    delete p;
}

}  // namespace

}  // namespace xwk::paned

using namespace xwk::paned;

extern "C" {

void XwkConfigureSash(Widget w, Boolean traversal)
{
    if (!IsPanedWindow(w))
        return;
    XwkPanedWindowWidget pw = Paned(w);
    Screen *screen = XtScreen(w);
    if (Vertical(pw))
        XtVaSetValues(w, XmNseparatorOn, False, XmNspacing, kFlatSash, XmNsashIndent, 0,
                      XmNsashHeight, kFlatSash, XmNsashWidth, WidthOfScreen(screen), NULL);
    else
        XtVaSetValues(w, XmNseparatorOn, False, XmNspacing, kFlatSash, XmNsashIndent, 0,
                      XmNsashWidth, kFlatSash, XmNsashHeight, HeightOfScreen(screen), NULL);
    XtRemoveEventHandler(w, StructureNotifyMask, False, FlatSashesOnResize, nullptr);
    XtAddEventHandler(w, StructureNotifyMask, False, FlatSashesOnResize, nullptr);

    TraversalRecord *rec = (TraversalRecord *)XtMalloc(sizeof(TraversalRecord));
    rec->paned = w;
    rec->traversal = traversal;
    PendingTraversal *pending = new PendingTraversal{0, rec};
    struct Runner {
        static void Run(XtPointer closure, XtIntervalId *id)
        {
            PendingTraversal *p = (PendingTraversal *)closure;
            XtRemoveCallback(p->rec->paned, XmNdestroyCallback, CancelTraversal, p);
            SetSashTraversal(p->rec, id);
            delete p;
        }
    };
    pending->id = XtAppAddTimeOut(XtWidgetToApplicationContext(w), 0, Runner::Run, pending);
    XtAddCallback(w, XmNdestroyCallback, CancelTraversal, pending);
}

int XwkGetPanedWindowPanesCount(Widget w, Boolean managed_only)
{
    if (!IsPanedWindow(w))
        return -1;
    XwkPanedWindowWidget pw = Paned(w);
    int count = 0;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (IsPane(child) && (!managed_only || XtIsManaged(child)))
            count++;
    }
    return count;
}

int XwkGetPanedWindowPanes(Widget w, WidgetList *out, Boolean managed_only)
{
    if (!IsPanedWindow(w) || !out)
        return -1;
    XwkPanedWindowWidget pw = Paned(w);
    int count = 0;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (!IsPane(child) || (managed_only && !XtIsManaged(child)))
            continue;
        *out = (WidgetList)XtRealloc((char *)*out, (count + 1) * sizeof(Widget));
        (*out)[count++] = child;
    }
    return count;
}

unsigned int XwkGetPaneSashSize(Widget child)
{
    if (!child || !IsPanedWindow(XtParent(child)))
        return 0xFFFF;
    XwkPanedWindowWidget pw = Paned(XtParent(child));
    if (XwkGetPanedWindowPanesCount((Widget)pw, True) < 2)
        return 0;
    int size = 0;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget w = pw->composite.children[i];
        if (XtIsRectObj(w) && !IsPane(w))
            size = std::max(size, Along(pw, w));
    }
    return (unsigned int)size;
}

int XwkGetPaneChildSize(Widget child)
{
    if (!child || !IsPanedWindow(XtParent(child)))
        return 0;
    XwkPanedWindowWidget pw = Paned(XtParent(child));
    XtWidgetGeometry preferred = {};
    XtQueryGeometry(child, nullptr, &preferred);
    int size = Vertical(pw) ? preferred.height : preferred.width;
    if (XwkGetPanedWindowPanesCount((Widget)pw, True) > 1)
        size += (int)XwkGetPaneSashSize(child);
    return size;
}

void XwkTogglePanedWindowOrientation(Widget w)
{
    if (!IsPanedWindow(w) || XwkGetPanedWindowPanesCount(w, False) < 2)
        return;
    XwkPanedWindowWidget pw = Paned(w);
    unsigned char orientation = pw->paned_window.orientation;
    unsigned char other = orientation == XmHORIZONTAL ? XmVERTICAL : XmHORIZONTAL;

    std::vector<Widget> managed;
    for (Cardinal i = 0; i < pw->composite.num_children; i++)
        if (XtIsManaged(pw->composite.children[i]))
            managed.push_back(pw->composite.children[i]);
    XtUnmanageChildren(managed.data(), managed.size());

    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (!XtIsRectObj(child))
            continue;
        if (!IsPane(child) && !XmIsSash(child))
            XtVaSetValues(child, XmNorientation, other == XmVERTICAL ? XmHORIZONTAL : XmVERTICAL, NULL);
        XtResizeWidget(child, child->core.height, child->core.width, child->core.border_width);
    }
    // A realized sash is made again, so that the realize hook gives it the
    // cursor and the flat shape of the new flow.
    std::vector<Widget> sashes;
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (XmIsSash(child) && XtIsRealized(child)) {
            XtUnrealizeWidget(child);
            sashes.push_back(child);
        }
    }
    XtVaSetValues(w, XmNorientation, other, NULL);
    for (Widget sash : sashes)
        XtRealizeWidget(sash);
    XtManageChildren(managed.data(), managed.size());
    XSync(XtDisplay(w), False);
}

}  // extern "C"
