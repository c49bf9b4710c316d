/*
 * Xwk/PanedWP.h - private records of the paned window.
 *
 * The instance part has the layout of Motif's paned window part, so that
 * code reading a paned window through the fast-subclass bit (the flat sash
 * hook among it) finds the same fields.
 */
#ifndef XWK_PANEDWP_H
#define XWK_PANEDWP_H

#include <Xwk/PanedW.h>
#include <Xm/ManagerP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    XtPointer extension;
} XwkPanedWindowClassPart;

typedef struct _XwkPanedWindowClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XwkPanedWindowClassPart paned_window_class;
} XwkPanedWindowClassRec;

extern XwkPanedWindowClassRec xwkPanedWindowClassRec;

typedef struct _XwkPanedWindowConstraintPart {
    int position;          /* index among the managed panes */
    int dheight;           /* desired size along the flow */
    Position dy;           /* position along the flow */
    Position olddy;        /* last drawn track line, -99 none */
    Dimension min;
    Dimension max;
    Boolean isPane;        /* False for sashes and separators */
    Boolean allowResize;
    Boolean skipAdjust;
    Widget sash;           /* of a pane; for a sash, the pane it belongs to */
    Widget separator;      /* of a pane; for a separator, its pane */
    short positionIndex;
} XwkPanedWindowConstraintPart;

typedef struct _XwkPanedWindowConstraintRec {
    XmManagerConstraintPart manager;
    XwkPanedWindowConstraintPart panedw;
} XwkPanedWindowConstraintRec, *XwkPanedWindowConstraintPtr;

typedef struct {
    Boolean refigureMode;
    Boolean separatorOn;
    Dimension marginWidth;
    Dimension marginHeight;
    Dimension spacing;
    Dimension sashWidth;
    Dimension sashHeight;
    Dimension sashShadowThickness;
    Position sashIndent;
    int startPosition;     /* pointer coordinate along at the start of a drag */
    short increment;       /* keyboard moves gathered within the multi-click time */
    short paneCount;
    short numSlots;
    short numManagedChildren;
    Boolean recursivelyCalled;
    Boolean resizeAtRealize;
    XwkPanedWindowConstraintPtr topPane;
    XwkPanedWindowConstraintPtr bottomPane;
    GC flipGC;
    WidgetList managedChildren;
    unsigned char orientation;
    XtIntervalId timer;    /* pending keyboard move */
} XwkPanedWindowPart;

typedef struct _XwkPanedWindowRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XwkPanedWindowPart paned_window;
} XwkPanedWindowRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
