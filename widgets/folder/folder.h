// Shared between the files of the folder.
#ifndef XWK_WIDGETS_FOLDER_H
#define XWK_WIDGETS_FOLDER_H

#include <Xwk/FolderP.h>
#include <Xwk/Graphics.h>

namespace xwk::folder {

inline XmFolderWidget Folder(Widget w) { return (XmFolderWidget)w; }
inline XmFolderPart &Part(Widget w) { return ((XmFolderWidget)w)->folder; }
inline XmFolderConstraintPart &Con(Widget child)
{
    return ((XmFolderConstraint)child->core.constraints)->folder;
}
inline int Shadow(Widget w) { return Folder(w)->manager.shadow_thickness; }
bool IsFolder(Widget w);
// The folder of a child, or null when the parent is no folder.
Widget FolderOf(Widget child);
// A child that takes part in the layout: alive and not the popup list.
bool IsPageChild(Widget w, Widget child);

// Pages (pages.cpp).  Indexes are from 0, page numbers from 1.
int IndexOfId(Widget w, int id);
int IndexOfWidget(Widget w, Widget child);
// Appends a page; the label is stored as given (owned by the caller of
// this, see LabelOwnedByChild).  Returns the new id.
int AppendPage(Widget w, XmString label, XwkIcon *icon, Widget child);
// True when the page's label belongs to its child's constraint.
bool LabelOwnedByChild(const XmFolderPage &page);
void MeasurePage(Widget w, XmFolderPage &page);
// Gives the page at index a new label, kept as given, in the popup list
// too; free_old frees the label it replaces.
void SetLabel(Widget w, int index, XmString label, bool free_old);
// After tabs were added, removed or measured anew: lays out again when the
// tab row's height changed, and repaints.
void TabsChanged(Widget w);
void MeasureAll(Widget w);
bool DeletePage(Widget w, int id, bool notify, XEvent *event);
void FreePages(Widget w);
// Runs changePageCallback; false when the folder went meanwhile.
void Notify(Widget w, int reason, XEvent *event, int from_id, int to_id);
// Activates page n (from 1) the way the user does: reason 10 before the
// change with autoManage off, after it with autoManage on.
void ActivateByUser(Widget w, int n, XEvent *event, int reason);

// Layout (layout.cpp).
int TabInset(Widget w);
int TabOuterWidth(Widget w, const XmFolderPage &page);
void ComputeTabAreaHeight(Widget w);
void FitTabs(Widget w);
void Layout(Widget w);
void PlaceChild(Widget w, Widget child, bool show, bool traversal);
void ChangePage(Widget w, int n, bool redraw);
void Resize(Widget w);
void ChangeManaged(Widget w);
XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply);
XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *reply);
int ArrowSize(Widget w);
int LastTopTab(Widget w);

// Drawing (draw.cpp).
void MakeContexts(Widget w);
void FreeContexts(Widget w);
void Redisplay(Widget w, XEvent *event, Region region);
// Clears the tab row and the frame's top and draws them again.
void RedrawStrip(Widget w);
void DrawArrows(Widget w);

// Input (actions.cpp).
extern XtActionsRec actions[];
extern const Cardinal num_actions;
extern const char translations[];
void RegisterGrabActions();
// Grabs Ctrl+PageUp and Ctrl+PageDown for the folder, whose translations
// name them by Motif's virtual keys, which Xt cannot grab by itself.
void GrabPageKeys(Widget w);
void StopRepeat(Widget w);
void MakeFolderList(Widget w);

}  // namespace xwk::folder

#endif
