/*
 * Xwk/PanedW.h - a paned window whose panes run top to bottom or left to
 * right, switchable at run time, with an optional flat full-length sash.
 *
 * Resources are Motif's paned window resources (XmNmarginWidth, XmNspacing,
 * XmNsashIndent, XmNpaneMinimum, ...) plus XmNorientation.
 */
#ifndef XWK_PANEDW_H
#define XWK_PANEDW_H

#include <Xm/Xm.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

extern WidgetClass xwkPanedWindowWidgetClass;

typedef struct _XwkPanedWindowClassRec *XwkPanedWindowWidgetClass;
typedef struct _XwkPanedWindowRec *XwkPanedWindowWidget;

Widget XwkCreatePanedWindow(Widget parent, String name, ArgList args, Cardinal num_args);

/* Sets the flat, full-length sash style; traversal is the sashes' traversalOn. */
void XwkConfigureSash(Widget w, Boolean traversal);

/* Children that are neither sash nor separator; -1 if w is no paned window. */
int XwkGetPanedWindowPanesCount(Widget w, Boolean managed_only);
/* The same children in *out, an array from XtRealloc the caller frees.
 * *out should be NULL or an XtMalloc'd array on entry. */
int XwkGetPanedWindowPanes(Widget w, WidgetList *out, Boolean managed_only);

/* Largest size along the flow of the sashes and separators beside child:
 * 0 with a single pane, 0xFFFF when the parent is no paned window. */
unsigned int XwkGetPaneSashSize(Widget child);
/* Preferred size along the flow, with the sash size when there are several panes. */
int XwkGetPaneChildSize(Widget child);

/* Exchanges vertical and horizontal flow; needs more than one pane. */
void XwkTogglePanedWindowOrientation(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
