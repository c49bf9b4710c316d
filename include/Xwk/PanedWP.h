/**
 * \file
 * \ingroup companions
 * \brief Private records of the paned window: the class record, the
 * instance record and the constraint record, in Motif style.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/PanedW.h and the widget's resources.  The instance part has the
 * layout of Motif's paned window part, so that code reading a paned window
 * through the fast-subclass bit (the flat sash hook among it) finds the
 * same fields.  Along means the direction of the flow (height in a
 * vertical window, width in a horizontal one).
 */
#ifndef XWK_PANEDWP_H
#define XWK_PANEDWP_H

#include <Xwk/PanedW.h>
#include <Xm/ManagerP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Class part of XwkPanedWindow: nothing of its own. */
typedef struct {
    XtPointer extension;   /**< Class extension; NULL. */
} XwkPanedWindowClassPart;

/** Class record of XwkPanedWindow. */
typedef struct _XwkPanedWindowClassRec {
    CoreClassPart core_class;                   /**< Core part. */
    CompositeClassPart composite_class;         /**< Composite part. */
    ConstraintClassPart constraint_class;       /**< Constraint part. */
    XmManagerClassPart manager_class;           /**< XmManager part. */
    XwkPanedWindowClassPart paned_window_class; /**< Paned window part. */
} XwkPanedWindowClassRec;

/** The class record of XwkPanedWindow; xwkPanedWindowWidgetClass points at
 * it. */
extern XwkPanedWindowClassRec xwkPanedWindowClassRec;

/** Constraint part of every child: a pane, or the sash or separator of one. */
typedef struct _XwkPanedWindowConstraintPart {
    int position;          /**< Index among the managed panes. */
    int dheight;           /**< Desired size along the flow. */
    Position dy;           /**< Position along the flow. */
    Position olddy;        /**< Position of the last drawn track line during a drag; -99 none. */
    Dimension min;         /**< XmNpaneMinimum: least size along. */
    Dimension max;         /**< XmNpaneMaximum: largest size along. */
    Boolean isPane;        /**< True for a pane, False for sashes and separators. */
    Boolean allowResize;   /**< XmNallowResize: the pane's geometry requests are heard when realized. */
    Boolean skipAdjust;    /**< XmNskipAdjust: the pane is passed over when others take up a change. */
    Widget sash;           /**< Of a pane, its sash or NULL; of a sash, the pane it belongs to. */
    Widget separator;      /**< Of a pane, its separator or NULL; of a separator, its pane. */
    short positionIndex;   /**< XmNpositionIndex: place among the children; XmLAST_POSITION (-1) marks a sash or separator. */
} XwkPanedWindowConstraintPart;

/** Constraint record of every child of XwkPanedWindow. */
typedef struct _XwkPanedWindowConstraintRec {
    XmManagerConstraintPart manager;      /**< XmManager constraint part. */
    XwkPanedWindowConstraintPart panedw;  /**< Paned window constraint part. */
} XwkPanedWindowConstraintRec, *XwkPanedWindowConstraintPtr;

/** \typedef XwkPanedWindowConstraintPtr
 * Pointer to the constraint record of a child of XwkPanedWindow. */

/** Instance part of XwkPanedWindow: resources first, then the layout state. */
typedef struct {
    Boolean refigureMode;  /**< XmNrefigureMode: False leaves the geometry alone. */
    Boolean separatorOn;   /**< XmNseparatorOn: separators shown. */
    Dimension marginWidth; /**< XmNmarginWidth: margin across. */
    Dimension marginHeight;        /**< XmNmarginHeight: margin along. */
    Dimension spacing;             /**< XmNspacing: gap between panes. */
    Dimension sashWidth;           /**< XmNsashWidth. */
    Dimension sashHeight;          /**< XmNsashHeight. */
    Dimension sashShadowThickness; /**< XmNsashShadowThickness. */
    Position sashIndent;   /**< XmNsashIndent: from the near edge, or when negative from the far edge. */
    int startPosition;     /**< Pointer coordinate along at the start of a drag. */
    short increment;       /**< Keyboard moves gathered within the multi-click time, in pixels. */
    short paneCount;       /**< Number of managed panes. */
    short numSlots;        /**< Slots of managedChildren. */
    short numManagedChildren;      /**< Number of managed panes, as paneCount. */
    Boolean recursivelyCalled;     /**< Set while the widget creates or manages its own sashes and separators. */
    Boolean resizeAtRealize;       /**< The realize lays the panes out again. */
    XwkPanedWindowConstraintPtr topPane;    /**< Pane that grows or shrinks above (or left of) the dragged sash. */
    XwkPanedWindowConstraintPtr bottomPane; /**< Pane that grows or shrinks below (or right of) the dragged sash. */
    GC flipGC;             /**< Inverting context of the track lines, clipped off the sashes; NULL until realized. */
    WidgetList managedChildren;    /**< The managed panes in order (XtMalloc'd, numSlots slots). */
    unsigned char orientation;     /**< XmNorientation: XmVERTICAL or XmHORIZONTAL. */
    XtIntervalId timer;    /**< Pending keyboard move; 0 when none. */
} XwkPanedWindowPart;

/** Instance record of XwkPanedWindow. */
typedef struct _XwkPanedWindowRec {
    CorePart core;                    /**< Core part. */
    CompositePart composite;          /**< Composite part. */
    ConstraintPart constraint;        /**< Constraint part. */
    XmManagerPart manager;            /**< XmManager part. */
    XwkPanedWindowPart paned_window;  /**< Paned window part. */
} XwkPanedWindowRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
