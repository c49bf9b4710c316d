/**
 * \file
 * \ingroup companions
 * \brief The paned window: panes that run top to bottom or left to right,
 * switchable at run time, with an optional flat full-length sash.
 *
 * XwkPanedWindow is a Motif manager widget (class name "XwkPanedWindow", a
 * subclass of xmManagerWidgetClass) that stacks its children, the panes,
 * with a sash and a separator between each two, as Motif's paned window
 * does.  Two things set it apart: the XmNorientation resource, so that the
 * panes can run top to bottom (XmVERTICAL) or left to right
 * (XmHORIZONTAL) and switch at run time, and the flat sash style of
 * XwkConfigureSash.  It sets the fast-subclass paned window bit of Motif,
 * so that Motif's own code takes it for a paned window.  The functions
 * below accept an XwkPanedWindow only, not Motif's XmPanedWindow.
 *
 * Below, along means the direction in which the panes follow each other
 * (height in a vertical window, width in a horizontal one) and across the
 * other one.  XmNmarginHeight is the margin along and XmNmarginWidth the
 * margin across, in both orientations.
 *
 * Resources are Motif's paned window resources plus XmNorientation:
 *
 * | Name | Type | Default | Meaning |
 * |---|---|---|---|
 * | XmNmarginWidth | horizontal dimension | 3 | margin across |
 * | XmNmarginHeight | vertical dimension | 3 | margin along |
 * | XmNspacing | vertical dimension | 8 | gap between panes, where the sash sits |
 * | XmNrefigureMode | Boolean | True | False leaves the geometry alone |
 * | XmNseparatorOn | Boolean | True | separators shown |
 * | XmNsashIndent | horizontal position | -10 | place of the sashes across: from the left or top edge, or when negative from the far edge (at 0 when that falls outside) |
 * | XmNsashWidth, XmNsashHeight | dimensions | 10, 10 | size of the sashes; 0 keeps the old value |
 * | XmNsashShadowThickness | horizontal dimension | 2 | shadow of the sashes |
 * | XmNorientation | orientation | XmVERTICAL | direction of the flow |
 * | XmNinsertPosition | function | own | keeps new panes ahead of the sashes and separators, at their XmNpositionIndex |
 *
 * Constraint resources of each pane: XmNallowResize (False: once realized,
 * the pane's own geometry requests are refused), XmNpaneMinimum (1) and
 * XmNpaneMaximum (1000), the limits of its size along, XmNskipAdjust
 * (False) and XmNpositionIndex (XmLAST_POSITION).  A pane whose minimum
 * equals its maximum has no sash.  A minimum or maximum of 0, or a maximum
 * below the minimum, is warned about and corrected.
 *
 * The user drags a sash with the mouse, or moves it with the keyboard:
 * keys pressed within the multi-click time are added up and act as one
 * move.
 */
#ifndef XWK_PANEDW_H
#define XWK_PANEDW_H

#include <Xm/Xm.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** The class pointer of XwkPanedWindow, for XtCreateWidget and XtIsSubclass. */
extern WidgetClass xwkPanedWindowWidgetClass;

/** Pointer to the class record of XwkPanedWindow (see Xwk/PanedWP.h). */
typedef struct _XwkPanedWindowClassRec *XwkPanedWindowWidgetClass;
/** Pointer to an XwkPanedWindow instance record (see Xwk/PanedWP.h). */
typedef struct _XwkPanedWindowRec *XwkPanedWindowWidget;

/**
 * Creates an unmanaged paned window (XtCreateWidget of
 * xwkPanedWindowWidgetClass).
 *
 * \param parent   Parent widget.
 * \param name     Widget name.
 * \param args     Resources to set, or NULL.
 * \param num_args Number of \p args.
 * \return The new paned window.
 */
Widget XwkCreatePanedWindow(Widget parent, String name, ArgList args, Cardinal num_args);

/**
 * Sets the flat, full-length sash style.
 *
 * Sets XmNseparatorOn False, XmNspacing 6, XmNsashIndent 0, and sashes 6
 * pixels along and the screen's width (or height) across.  From then on
 * every resize of the paned window makes each sash as long as the window
 * is wide (or high) and 6 pixels thick.  Sashes realized with these
 * settings take the flat form, with a double arrow cursor across the flow,
 * through the sash hook that XwkInitialize installs.  Ignored for a widget
 * that is no XwkPanedWindow.
 *
 * \param w         The paned window.
 * \param traversal XmNtraversalOn given to every sash, from a zero-time
 *                  timeout (dropped if \p w is destroyed first).
 */
void XwkConfigureSash(Widget w, Boolean traversal);

/**
 * Counts the panes: the children that are neither sash nor separator.
 *
 * \param w            The paned window.
 * \param managed_only True: count the managed panes only.
 * \return The number of panes; -1 if \p w is no XwkPanedWindow.
 */
int XwkGetPanedWindowPanesCount(Widget w, Boolean managed_only);
/**
 * Gives the panes, as XwkGetPanedWindowPanesCount counts them, in an array.
 *
 * The array is grown by XtRealloc, one slot a pane; with no pane \p *out
 * is left as it was.  The caller frees it with XtFree (the array, not the
 * widgets).
 *
 * \param w            The paned window.
 * \param out          Receives the array; \p *out should be NULL or an
 *                     XtMalloc'd array on entry.
 * \param managed_only True: the managed panes only.
 * \return The number of panes in \p *out; -1 if \p w is no XwkPanedWindow
 *         or \p out is NULL.
 */
int XwkGetPanedWindowPanes(Widget w, WidgetList *out, Boolean managed_only);

/**
 * The largest size along the flow among the sashes and separators of
 * \p child's paned window.
 *
 * \param child A pane.
 * \return The size in pixels; 0 with fewer than two managed panes; 0xFFFF
 *         when \p child is NULL or its parent is no XwkPanedWindow.
 */
unsigned int XwkGetPaneSashSize(Widget child);
/**
 * The preferred size of a pane along the flow (XtQueryGeometry), with the
 * sash size of XwkGetPaneSashSize added when there are several managed
 * panes.
 *
 * \param child A pane.
 * \return The size in pixels; 0 when \p child is NULL or its parent is no
 *         XwkPanedWindow.
 */
int XwkGetPaneChildSize(Widget child);

/**
 * Exchanges vertical and horizontal flow.
 *
 * Unmanages the managed children, exchanges the width and height of every
 * child, turns the separators to cross the new flow, realizes the sashes
 * again so that they take the cursor of the new flow, sets XmNorientation
 * and manages the children again.  Does nothing with fewer than two panes
 * (managed or not) or for a widget that is no XwkPanedWindow.
 *
 * \param w The paned window.
 */
void XwkTogglePanedWindowOrientation(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
