// The paned window class: resources, class record, instance and constraint
// life cycle, insertion of panes with their sash and separator.
#include "widgets/paned/paned.h"

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xm/SashP.h>
#include <Xm/SeparatoG.h>

#include <algorithm>
#include <vector>

using namespace xwk::paned;

namespace {

const char kMinWarning[] = "Invalid minimum value, must be > 0.";
const char kMaxWarning[] = "Invalid maximum value, must be > 0.";
const char kMinMaxWarning[] = "Invalid minimum/maximum value, minimum must be < maximum.";

Cardinal InsertPosition(Widget child);

#define PW_OFFSET(field) XtOffsetOf(XwkPanedWindowRec, paned_window.field)
#define PC_OFFSET(field) XtOffsetOf(XwkPanedWindowConstraintRec, panedw.field)

XtResource resources[] = {
    {(String)XmNmarginWidth, (String)XmCMarginWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     PW_OFFSET(marginWidth), (String)XmRImmediate, (XtPointer)3},
    {(String)XmNmarginHeight, (String)XmCMarginHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     PW_OFFSET(marginHeight), (String)XmRImmediate, (XtPointer)3},
    {(String)XmNspacing, (String)XmCSpacing, (String)XmRVerticalDimension, sizeof(Dimension),
     PW_OFFSET(spacing), (String)XmRImmediate, (XtPointer)8},
    {(String)XmNrefigureMode, (String)XmCBoolean, (String)XmRBoolean, sizeof(Boolean),
     PW_OFFSET(refigureMode), (String)XmRImmediate, (XtPointer)True},
    {(String)XmNseparatorOn, (String)XmCSeparatorOn, (String)XmRBoolean, sizeof(Boolean),
     PW_OFFSET(separatorOn), (String)XmRImmediate, (XtPointer)True},
    {(String)XmNsashIndent, (String)XmCSashIndent, (String)XmRHorizontalPosition, sizeof(Position),
     PW_OFFSET(sashIndent), (String)XmRImmediate, (XtPointer)-10},
    {(String)XmNsashWidth, (String)XmCSashWidth, (String)XmRHorizontalDimension, sizeof(Dimension),
     PW_OFFSET(sashWidth), (String)XmRImmediate, (XtPointer)10},
    {(String)XmNsashHeight, (String)XmCSashHeight, (String)XmRVerticalDimension, sizeof(Dimension),
     PW_OFFSET(sashHeight), (String)XmRImmediate, (XtPointer)10},
    {(String)XmNsashShadowThickness, (String)XmCShadowThickness, (String)XmRHorizontalDimension,
     sizeof(Dimension), PW_OFFSET(sashShadowThickness), (String)XmRImmediate, (XtPointer)2},
    {(String)XmNorientation, (String)XmCOrientation, (String)XmROrientation, sizeof(unsigned char),
     PW_OFFSET(orientation), (String)XmRImmediate, (XtPointer)XmVERTICAL},
    {(String)XmNinsertPosition, (String)XmCInsertPosition, (String)XmRFunction, sizeof(XtOrderProc),
     XtOffsetOf(XwkPanedWindowRec, composite.insert_position), (String)XmRImmediate,
     (XtPointer)InsertPosition},
};

XmSyntheticResource syn_resources[] = {
    {(String)XmNmarginWidth, sizeof(Dimension), PW_OFFSET(marginWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNmarginHeight, sizeof(Dimension), PW_OFFSET(marginHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
    {(String)XmNspacing, sizeof(Dimension), PW_OFFSET(spacing), XmeFromVerticalPixels,
     XmeToVerticalPixels},
    {(String)XmNsashIndent, sizeof(Position), PW_OFFSET(sashIndent), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNsashWidth, sizeof(Dimension), PW_OFFSET(sashWidth), XmeFromHorizontalPixels,
     XmeToHorizontalPixels},
    {(String)XmNsashHeight, sizeof(Dimension), PW_OFFSET(sashHeight), XmeFromVerticalPixels,
     XmeToVerticalPixels},
    {(String)XmNsashShadowThickness, sizeof(Dimension), PW_OFFSET(sashShadowThickness),
     XmeFromHorizontalPixels, XmeToHorizontalPixels},
};

XtResource constraint_resources[] = {
    {(String)XmNallowResize, (String)XmCBoolean, (String)XmRBoolean, sizeof(Boolean),
     PC_OFFSET(allowResize), (String)XmRImmediate, (XtPointer)False},
    {(String)XmNpaneMinimum, (String)XmCPaneMinimum, (String)XmRVerticalDimension, sizeof(Dimension),
     PC_OFFSET(min), (String)XmRImmediate, (XtPointer)1},
    {(String)XmNpaneMaximum, (String)XmCPaneMaximum, (String)XmRVerticalDimension, sizeof(Dimension),
     PC_OFFSET(max), (String)XmRImmediate, (XtPointer)1000},
    {(String)XmNskipAdjust, (String)XmCBoolean, (String)XmRBoolean, sizeof(Boolean),
     PC_OFFSET(skipAdjust), (String)XmRImmediate, (XtPointer)False},
    {(String)XmNpositionIndex, (String)XmCPositionIndex, (String)XmRShort, sizeof(short),
     PC_OFFSET(positionIndex), (String)XmRImmediate, (XtPointer)XmLAST_POSITION},
};

#undef PW_OFFSET
#undef PC_OFFSET

// Panes come first in the child list; sashes and separators follow them.
int LeadingPanes(XwkPanedWindowWidget pw)
{
    int n = 0;
    while (n < (int)pw->composite.num_children && IsPane(pw->composite.children[n]))
        n++;
    return n;
}

Cardinal InsertPosition(Widget child)
{
    XwkPanedWindowWidget pw = Paned(XtParent(child));
    int panes = LeadingPanes(pw);
    short index = XtIsRectObj(child) ? Pane(child)->positionIndex : (short)XmLAST_POSITION;
    if (index >= 0 && index < panes)
        return index;
    return panes;
}

void RenumberPanes(XwkPanedWindowWidget pw)
{
    for (Cardinal i = 0; i < pw->composite.num_children; i++) {
        Widget child = pw->composite.children[i];
        if (IsPane(child))
            Pane(child)->positionIndex = (short)i;
    }
}

void ValidateLimits(XwkPanedWindowWidget pw, XwkPanedWindowConstraintPart *pane)
{
    if (pane->min == 0) {
        XmeWarning((Widget)pw, (char *)kMinWarning);
        pane->min = 1;
    }
    if (pane->max == 0) {
        XmeWarning((Widget)pw, (char *)kMaxWarning);
        pane->max = pane->min + 1;
    }
    if (pane->max < pane->min) {
        XmeWarning((Widget)pw, (char *)kMinMaxWarning);
        pane->max = pane->min + 1;
    }
}

void ClassInitialize();
void ClassPartInitialize(WidgetClass wc) { _XmFastSubclassInit(wc, XmPANED_WINDOW_BIT); }

void Initialize(Widget, Widget nw, ArgList, Cardinal *)
{
    XwkPanedWindowWidget pw = Paned(nw);
    XwkPanedWindowPart *p = &pw->paned_window;
    if (p->orientation != XmHORIZONTAL)
        p->orientation = XmVERTICAL;
    p->paneCount = 0;
    p->numManagedChildren = 0;
    p->numSlots = 10;
    p->managedChildren = (WidgetList)XtMalloc(p->numSlots * sizeof(Widget));
    p->startPosition = 0;
    p->topPane = p->bottomPane = nullptr;
    p->flipGC = nullptr;
    p->increment = 0;
    p->timer = 0;
    p->resizeAtRealize = True;
    p->recursivelyCalled = False;
    if (nw->core.width == 0)
        nw->core.width = 10;
    if (nw->core.height == 0)
        nw->core.height = 10;
}

void Destroy(Widget w)
{
    XwkPanedWindowWidget pw = Paned(w);
    CancelKeyMove(pw);
    XtFree((char *)pw->paned_window.managedChildren);
    pw->paned_window.managedChildren = nullptr;
    if (pw->paned_window.flipGC)
        XFreeGC(XtDisplay(w), pw->paned_window.flipGC);
    pw->paned_window.flipGC = nullptr;
}

std::vector<Widget> ChildrenWhere(XwkPanedWindowWidget pw, bool (*match)(Widget))
{
    std::vector<Widget> out;
    for (Cardinal i = 0; i < pw->composite.num_children; i++)
        if (match(pw->composite.children[i]))
            out.push_back(pw->composite.children[i]);
    return out;
}

bool IsOurSash(Widget w) { return XmIsSash(w) && !IsPane(w); }
bool IsOurSeparator(Widget w) { return XtIsRectObj(w) && !IsPane(w) && !XmIsSash(w); }

void SetSashValues(XwkPanedWindowWidget pw)
{
    // One argument list serves every sash.
    static Arg args[3];
    Cardinal n = 0;
    XtSetArg(args[n], XmNwidth, pw->paned_window.sashWidth); n++;
    XtSetArg(args[n], XmNheight, pw->paned_window.sashHeight); n++;
    XtSetArg(args[n], XmNshadowThickness, pw->paned_window.sashShadowThickness); n++;
    for (Widget sash : ChildrenWhere(pw, IsOurSash))
        XtSetValues(sash, args, n);
}

Boolean SetValues(Widget cw, Widget, Widget nw, ArgList, Cardinal *)
{
    XwkPanedWindowWidget old = Paned(cw), pw = Paned(nw);
    XwkPanedWindowPart *o = &old->paned_window, *p = &pw->paned_window;

    if (p->orientation != XmHORIZONTAL && p->orientation != XmVERTICAL)
        p->orientation = o->orientation;
    if (old->core.background_pixel != pw->core.background_pixel && XtIsRealized(nw)) {
        if (p->flipGC)
            XFreeGC(XtDisplay(nw), p->flipGC);
        p->flipGC = nullptr;
        MakeFlipGC(pw);
    }
    if (p->sashWidth == 0)
        p->sashWidth = o->sashWidth;
    if (p->sashHeight == 0)
        p->sashHeight = o->sashHeight;
    if (p->sashWidth != o->sashWidth || p->sashHeight != o->sashHeight ||
        p->sashShadowThickness != o->sashShadowThickness)
        SetSashValues(pw);

    if (p->separatorOn != o->separatorOn && pw->composite.num_children > 2) {
        std::vector<Widget> separators = ChildrenWhere(pw, IsOurSeparator);
        if (p->separatorOn)
            XtManageChildren(separators.data(), separators.size());
        else
            XtUnmanageChildren(separators.data(), separators.size());
    }

    if (p->orientation != o->orientation) {
        for (Widget sep : ChildrenWhere(pw, IsOurSeparator))
            XtVaSetValues(sep, XmNorientation, Vertical(pw) ? XmHORIZONTAL : XmVERTICAL, NULL);
        if (p->paneCount > 0)
            ChangeManaged(nw);
        return True;
    }

    bool recommit = p->marginWidth != o->marginWidth || p->marginHeight != o->marginHeight ||
                    p->spacing != o->spacing || p->sashIndent != o->sashIndent ||
                    p->sashShadowThickness != o->sashShadowThickness;
    if (p->refigureMode && !o->refigureMode && p->paneCount > 0)
        recommit = true;
    if (recommit && p->paneCount > 0) {
        Refigure(pw, p->paneCount - 1, 'L', false);
        Commit(pw, nullptr);
    }
    return False;
}

void InsertChild(Widget w)
{
    XwkPanedWindowWidget pw = Paned(XtParent(w));
    (*((CompositeWidgetClass)xmManagerWidgetClass)->composite_class.insert_child)(w);
    if (!XtIsRectObj(w))
        return;
    XwkPanedWindowConstraintPart *pane = Pane(w);
    if (pw->paned_window.recursivelyCalled) {
        pane->isPane = False;
        return;
    }
    pane->isPane = True;

    Cardinal index = 0;
    while (index < pw->composite.num_children && pw->composite.children[index] != w)
        index++;
    if (pane->positionIndex == XmLAST_POSITION)
        pane->positionIndex = (short)index;
    if (index + 1 != (Cardinal)LeadingPanes(pw))
        RenumberPanes(pw);

    pw->paned_window.recursivelyCalled = True;
    bool vertical = Vertical(pw);
    Arg args[12];
    Cardinal n = 0;
    XtSetArg(args[n], XmNorientation, vertical ? XmHORIZONTAL : XmVERTICAL); n++;
    XtSetArg(args[n], vertical ? XmNwidth : XmNheight, AcrossSize(pw)); n++;
    XtSetArg(args[n], XmNborderWidth, 0); n++;
    XtSetArg(args[n], XmNhighlightThickness, 0); n++;
    XtSetArg(args[n], XmNseparatorType, XmSHADOW_ETCHED_IN); n++;
    XtSetArg(args[n], XmNmargin, 0); n++;
    XtSetArg(args[n], XmNnavigationType, XmNONE); n++;
    Widget separator = XtCreateWidget("separator", xmSeparatorGadgetClass, (Widget)pw, args, n);
    Pane(separator)->separator = w;
    pane->separator = separator;

    n = 0;
    XtSetArg(args[n], XmNwidth, pw->paned_window.sashWidth); n++;
    XtSetArg(args[n], XmNheight, pw->paned_window.sashHeight); n++;
    if (pw->paned_window.sashShadowThickness != (Dimension)-1) {
        XtSetArg(args[n], XmNshadowThickness, pw->paned_window.sashShadowThickness); n++;
    }
    XtSetArg(args[n], XmNunitType, XmPIXELS); n++;
    Widget sash = XtCreateWidget("sash", xmSashWidgetClass, (Widget)pw, args, n);
    if (pw->paned_window.sashShadowThickness == (Dimension)-1)
        XtVaGetValues(sash, XmNshadowThickness, &pw->paned_window.sashShadowThickness, NULL);
    XtAddCallback(sash, XmNcallback, SashCallback, nullptr);
    Pane(sash)->sash = w;
    pane->sash = sash;
    pw->paned_window.recursivelyCalled = False;

    XtVaSetValues(w, XmNnavigationType, XmTAB_GROUP, NULL);
}

void ConstraintInitialize(Widget, Widget nw, ArgList, Cardinal *)
{
    if (!XtIsRectObj(nw))
        return;
    XwkPanedWindowWidget pw = Paned(XtParent(nw));
    XwkPanedWindowConstraintPart *pane = Pane(nw);
    if (pw->paned_window.recursivelyCalled)
        pane->positionIndex = XmLAST_POSITION;
    pane->sash = pane->separator = nullptr;
    pane->isPane = False;
    pane->position = 0;
    pane->dy = pane->olddy = 0;
    ValidateLimits(pw, pane);
    int size = std::clamp(Along(pw, nw), (int)pane->min, (int)pane->max);
    pane->dheight = size;
    if (XtIsManaged(nw))
        Place(pw, nw, Vertical(pw) ? nw->core.y : nw->core.x, Vertical(pw) ? nw->core.x : nw->core.y,
              size, Across(pw, nw));
}

void ConstraintDestroy(Widget w)
{
    if (!XtIsRectObj(w))
        return;
    XwkPanedWindowConstraintPart *pane = Pane(w);
    if (!pane->isPane) {
        // A sash or separator going on its own: its pane must not point at it.
        if (Widget owner = XmIsSash(w) ? pane->sash : pane->separator) {
            XwkPanedWindowConstraintPart *op = Pane(owner);
            if (op->sash == w)
                op->sash = nullptr;
            if (op->separator == w)
                op->separator = nullptr;
        }
        return;
    }
    // The pane's record is gone before its sash and separator are; cut the
    // links both ways first.
    if (Widget sash = pane->sash) {
        Pane(sash)->sash = nullptr;
        pane->sash = nullptr;
        XtDestroyWidget(sash);
    }
    if (Widget separator = pane->separator) {
        Pane(separator)->separator = nullptr;
        pane->separator = nullptr;
        XtDestroyWidget(separator);
    }
}

void MoveToIndex(XwkPanedWindowWidget pw, Widget w, int target)
{
    int panes = LeadingPanes(pw);
    WidgetList children = pw->composite.children;
    int from = -1;
    for (int i = 0; i < panes; i++)
        if (children[i] == w)
            from = i;
    if (from < 0)
        return;
    target = std::clamp(target, 0, panes - 1);
    if (from < target)
        std::rotate(children + from, children + from + 1, children + target + 1);
    else if (from > target)
        std::rotate(children + target, children + from, children + from + 1);
    RenumberPanes(pw);
}

Boolean ConstraintSetValues(Widget cw, Widget, Widget nw, ArgList, Cardinal *)
{
    if (!XtIsRectObj(nw))
        return False;
    XwkPanedWindowWidget pw = Paned(XtParent(nw));
    XwkPanedWindowConstraintPart *o = Pane(cw), *p = Pane(nw);
    if (!p->isPane) {
        p->positionIndex = XmLAST_POSITION;
        return False;
    }
    bool relayout = false;
    if (p->min != o->min || p->max != o->max) {
        ValidateLimits(pw, p);
        bool sash_change = (p->min == p->max) != (o->min == o->max);
        int along = Along(pw, nw);
        int clamped = std::clamp(along, (int)p->min, (int)p->max);
        if (XtIsManaged(nw) && clamped != along) {
            if (Vertical(pw))
                nw->core.height = clamped;
            else
                nw->core.width = clamped;
            p->dheight = clamped;
        }
        relayout = sash_change || clamped != along;
    }
    if (p->positionIndex != o->positionIndex) {
        MoveToIndex(pw, nw, p->positionIndex);
        relayout = true;
    }
    if (relayout && XtIsManaged(nw))
        ChangeManaged((Widget)pw);
    return False;
}

XmBaseClassExtRec base_class_extension = {
    nullptr,                       // next_extension
    NULLQUARK,                     // record_type, set in class initialize
    XmBaseClassExtVersion,
    sizeof(XmBaseClassExtRec),
    XmInheritInitializePrehook,
    XmInheritSetValuesPrehook,
    XmInheritInitializePosthook,
    XmInheritSetValuesPosthook,
    XmInheritClass,                // secondaryObjectClass
    XmInheritSecObjectCreate,
    XmInheritGetSecResData,
    {0},                           // fast subclass flags
    XmInheritGetValuesPrehook,
    XmInheritGetValuesPosthook,
    nullptr,                       // classPartInitPrehook
    nullptr,                       // classPartInitPosthook
    nullptr, nullptr, 0,           // ext resources
    FALSE,                         // use_sub_resources
    XmInheritWidgetNavigable,
    XmInheritFocusChange,
    nullptr,                       // wrapperData
};

void ClassInitialize() { base_class_extension.record_type = XmQmotif; }

}  // namespace

extern "C" {

XwkPanedWindowClassRec xwkPanedWindowClassRec = {
    {
        (WidgetClass)&xmManagerClassRec,      // superclass
        (String) "XwkPanedWindow",            // class_name
        sizeof(XwkPanedWindowRec),            // widget_size
        ClassInitialize,                      // class_initialize
        ClassPartInitialize,                  // class_part_initialize
        FALSE,                                // class_inited
        Initialize,                           // initialize
        nullptr,                              // initialize_hook
        Realize,                              // realize
        nullptr, 0,                           // actions
        resources, XtNumber(resources),       // resources
        NULLQUARK,                            // xrm_class
        TRUE,                                 // compress_motion
        XtExposeCompressSeries,               // compress_exposure
        TRUE,                                 // compress_enterleave
        FALSE,                                // visible_interest
        Destroy,                              // destroy
        Resize,                               // resize
        XmeRedisplayGadgets,                  // expose
        SetValues,                            // set_values
        nullptr,                              // set_values_hook
        XtInheritSetValuesAlmost,             // set_values_almost
        nullptr,                              // get_values_hook
        nullptr,                              // accept_focus
        XtVersion,                            // version
        nullptr,                              // callback_private
        XtInheritTranslations,                // tm_table
        XtInheritQueryGeometry,               // query_geometry
        nullptr,                              // display_accelerator
        (XtPointer)&base_class_extension,     // extension
    },
    {
        GeometryManager,                      // geometry_manager
        ChangeManaged,                        // change_managed
        InsertChild,                          // insert_child
        XtInheritDeleteChild,                 // delete_child
        nullptr,                              // extension
    },
    {
        constraint_resources, XtNumber(constraint_resources),
        sizeof(XwkPanedWindowConstraintRec),
        ConstraintInitialize,
        ConstraintDestroy,
        ConstraintSetValues,
        nullptr,
    },
    {
        XtInheritTranslations,                // translations
        syn_resources, XtNumber(syn_resources),
        nullptr, 0,                           // synthetic constraint resources
        XmInheritParentProcess,
        nullptr,
    },
    {nullptr},
};

WidgetClass xwkPanedWindowWidgetClass = (WidgetClass)&xwkPanedWindowClassRec;

Widget XwkCreatePanedWindow(Widget parent, String name, ArgList args, Cardinal num_args)
{
    return XtCreateWidget(name, xwkPanedWindowWidgetClass, parent, args, num_args);
}

}  // extern "C"
