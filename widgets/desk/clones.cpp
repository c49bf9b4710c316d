// Clones: desks that show the items of a mother desk, each with its own
// size and scroll position.
#include "widgets/desk/desk.h"

#include <Xm/XmP.h>
#include <Xm/DragDrop.h>

namespace xwk::desk {

namespace {

const char *const kCallbackLists[] = {
    XmNmultipleSelectionCallback, XmNsingleSelectionCallback, XmNselectionChanged,
    XmNdefaultActionCallback,     XmNfocusCallback,           XmNlosingFocusCallback,
    XmNstartDragCallback};

// The mother's drop site serves her clones too.
void CopyDropSite(Widget mother, Widget w)
{
    unsigned char operations = 0;
    Cardinal targets = 0;
    Atom *import_targets = nullptr;
    XtCallbackProc drag_proc = nullptr, drop_proc = nullptr;
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdropSiteOperations, &operations); n++;
    XtSetArg(args[n], XmNnumImportTargets, &targets); n++;
    XtSetArg(args[n], XmNimportTargets, &import_targets); n++;
    XtSetArg(args[n], XmNdragProc, &drag_proc); n++;
    XtSetArg(args[n], XmNdropProc, &drop_proc); n++;
    XmDropSiteRetrieve(mother, args, n);
    if (!operations || !targets || !import_targets)
        return;
    n = 0;
    XtSetArg(args[n], XmNdropSiteOperations, operations); n++;
    XtSetArg(args[n], XmNnumImportTargets, targets); n++;
    XtSetArg(args[n], XmNimportTargets, import_targets); n++;
    XtSetArg(args[n], XmNdragProc, drag_proc); n++;
    XtSetArg(args[n], XmNdropProc, drop_proc); n++;
    XmDropSiteRegister(w, args, n);
}

}  // namespace

void RemoveCallbackLists(Widget w)
{
    for (const char *name : kCallbackLists)
        if (XtHasCallbacks(w, (String)name) == XtCallbackHasSome)
            XtRemoveAllCallbacks(w, (String)name);
}

// Xt frees a widget's callback resources with it: a clone's copies of the
// mother's lists are cleared first, so that hers survive.
void ForgetCallbackLists(Widget w)
{
    XmPrjDeskPart &d = P(w);
    d.multipleSelectionCallback = d.singleSelectionCallback = d.selectionChanged = nullptr;
    d.defaultActionCallback = d.focusCallback = d.losingFocusCallback = nullptr;
    d.startDragCallback = nullptr;
}

void InitClone(Widget w)
{
    // Lists given to the clone itself go before her pointers replace them.
    RemoveCallbackLists(w);
    Widget mother = P(w).mother;
    w->core.background_pixel = mother->core.background_pixel;
    w->core.depth = mother->core.depth;
    w->core.colormap = mother->core.colormap;
    ((XmPrimitiveWidget)w)->primitive.user_data = ((XmPrimitiveWidget)mother)->primitive.user_data;
    // The clone answers to the same bindings as its mother.
    w->core.tm.translations = mother->core.tm.translations;
    P(w) = P(mother);
    XmPrjDeskPart &m = P(mother);
    P(w).mother = mother;
    P(w).clones = nullptr;
    P(w).numClones = 0;
    m.clones = (WidgetList)XtRealloc((char *)m.clones, (m.numClones + 1) * sizeof(Widget));
    m.clones[m.numClones++] = w;
    CopyDropSite(mother, w);
}

void DestroyClone(Widget w)
{
    Widget mother = P(w).mother;
    if (!mother || mother == w)
        return;
    XmPrjDeskPart &m = P(mother);
    Cardinal j = 0;
    for (Cardinal i = 0; i < m.numClones; i++)
        if (m.clones[i] != w)
            m.clones[j++] = m.clones[i];
    m.numClones = j;
    if (!j) {
        XtFree((char *)m.clones);
        m.clones = nullptr;
    }
    if (m.highlightedDesk == w)
        m.highlightedDesk = nullptr;
    ItemsLoseDesk(mother, w);
}

void OrphanClone(Widget w)
{
    XmPrjDeskPart &d = P(w);
    ForgetCallbackLists(w);
    d.mother = w;
    d.items = nullptr;
    d.fontList = nullptr;
    d.current = d.highlighted = nullptr;
    d.clones = nullptr;
    d.numClones = 0;
    if (!w->core.being_destroyed)
        XtDestroyWidget(w);
}

}  // namespace xwk::desk
