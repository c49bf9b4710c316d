// Shared between the files of the paned window: the along/across view of a
// child and the layout steps that the class methods and the sash drive.
#ifndef XWK_WIDGETS_PANED_H
#define XWK_WIDGETS_PANED_H

#include <Xwk/PanedWP.h>

namespace xwk::paned {

inline XwkPanedWindowWidget Paned(Widget w) { return (XwkPanedWindowWidget)w; }

inline XwkPanedWindowConstraintPart *Pane(Widget child)
{
    return &((XwkPanedWindowConstraintPtr)child->core.constraints)->panedw;
}

inline bool Vertical(XwkPanedWindowWidget pw) { return pw->paned_window.orientation != XmHORIZONTAL; }

// Along is height when panes run top to bottom, width when left to right.
inline int Along(XwkPanedWindowWidget pw, Widget w) { return Vertical(pw) ? w->core.height : w->core.width; }
inline int Across(XwkPanedWindowWidget pw, Widget w) { return Vertical(pw) ? w->core.width : w->core.height; }
inline int AlongSize(XwkPanedWindowWidget pw) { return Along(pw, (Widget)pw); }
inline int AcrossSize(XwkPanedWindowWidget pw) { return Across(pw, (Widget)pw); }

// True for a child that is a pane, not one of our sashes or separators.
inline bool IsPane(Widget child)
{
    return XtIsRectObj(child) && child->core.constraints && Pane(child)->isPane;
}

// Moves and sizes a child given along/across values.
void Place(XwkPanedWindowWidget pw, Widget w, int along_pos, int across_pos, int along, int across);

// Layout (layout.cpp).
void Refigure(XwkPanedWindowWidget pw, int c, char direction, bool dragging);
void Commit(XwkPanedWindowWidget pw, Widget instigator);
void ResetSizes(XwkPanedWindowWidget pw);
int NeededSize(XwkPanedWindowWidget pw);
void ChangeManaged(Widget w);
XtGeometryResult GeometryManager(Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply);
void Resize(Widget w);
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attrs);
void MakeFlipGC(XwkPanedWindowWidget pw);
void ClipFlipGC(XwkPanedWindowWidget pw);

// Sashes (sash.cpp).
void SashCallback(Widget sash, XtPointer closure, XtPointer call_data);
void CancelKeyMove(XwkPanedWindowWidget pw);

}  // namespace xwk::paned

#endif
