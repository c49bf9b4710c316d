// Shared between the files of the tree list.
#ifndef XWK_WIDGETS_TREE_H
#define XWK_WIDGETS_TREE_H

#include <Xwk/PrjTreeP.h>

#include <vector>

namespace xwk::tree {

inline XmPrjTreePart &P(Widget w) { return ((XmPrjTreeWidget)w)->tree; }
inline XmPrjTreeItem Item(XwkTreeNode *node) { return node ? (XmPrjTreeItem)node->data : nullptr; }
bool IsTree(Widget w);
// The view that holds the rows; the widget itself when it is no clone.
Widget Mother(Widget w);
inline XmPrjTreePart &M(Widget w) { return P(Mother(w)); }
// The mother, then each clone.
std::vector<Widget> Views(Widget w);
bool RealizedAndManaged(Widget w);
bool Alive(Widget w);
bool IsRoot(Widget w, XwkTreeNode *node);
bool TableMode(Widget w);
XmPrjTreeItemExtRec *Ext(XmPrjTreeItem item);
void SetFlagOnViews(Widget w, unsigned int flag);

// The C++ side of a view; the mother's also indexes the rows.
struct State {
    // Every kStride-th row in display order, so that the row at an index is
    // found without walking from the head: tree nodes without canSlam,
    // visibleList elements with it.
    std::vector<void *> marks;
    int indexed = 0;            // rows the marks cover
    bool indexValid = false;
    Boolean hadFocusPaint = False;
};
constexpr int kStride = 32;
State &S(Widget w);

// Rows (rows.cpp).
int RowCount(Widget w);
void EnsureNumbers(Widget w);
int RowOf(Widget w, XwkTreeNode *node);
XwkTreeNode *NodeAt(Widget w, int row);
XwkTreeNode *NextRow(Widget w, XwkTreeNode *node);
XwkTreeNode *PrevRow(Widget w, XwkTreeNode *node);
XwkTreeNode *PreorderNext(XwkTreeNode *node, XwkTreeNode *top);
void RowsChanged(Widget w);
void RowAppended(Widget w, XwkTreeNode *node);
bool Hidden(Widget w, XwkTreeNode *node);
void InsertVisible(Widget w, XwkTreeNode *node);
void InsertSubtreeVisible(Widget w, XwkTreeNode *node);
void RemoveSubtreeVisible(Widget w, XwkTreeNode *node, bool keep_current);
void RemoveVisible(Widget w, XwkTreeNode *node);
bool ToggleState(Widget view, XwkTreeNode *node);
int ItemState(XwkTreeNode *node);

// Geometry (layout.cpp).
bool LayoutPass(Widget view);
void GrowForItem(Widget view, XmPrjTreeItem item);
void MeasureItem(Widget view, XmPrjTreeItem item);
XmString ItemString(Widget view, XmPrjTreeItem item);
int IndentSlot(Widget w);
int Lead(Widget w);
void CountVisibleRows(Widget view);
bool PartialRow(Widget view);
int PageRows(Widget view);
bool RowOnPage(Widget view, int row);
int RowY(Widget view, int row);
int IconX(Widget view, int level);
int LabelX(Widget view, XwkTreeNode *node);
int StateIconX(Widget view, int level, int icon_width);
int LevelX(Widget view, int level);
int HitTest(Widget view, int start, int x, int y, bool exact, XwkTreeNode **node, int *column,
            int *cell_type, XRectangle *cell);
void PreferredSize(Widget view, Dimension *width, Dimension *height);
void CreateGCs(Widget view);
void FreeGCs(Widget view);
void UpdateColourGCs(Widget view);
void CreateStateIcons(Widget w);
XwkIcon *StateIconOf(Widget w, XwkTreeNode *node);
int IconWidth(const XwkIcon *icon);
int IconHeight(const XwkIcon *icon);
void FindFont(Widget view);
void ApplyVisibleLines(Widget view);

// Drawing (draw.cpp).
void PaintRow(Widget view, XwkTreeNode *node);
void Repaint(Widget view, int x, int y, int width, int height);
void RepaintAll(Widget w, bool clear);
void RepaintFrom(Widget w, XwkTreeNode *node);
void UpdateRow(Widget view, XwkTreeNode *node);
void ExposeProc(Widget w, XEvent *event, Region region);
void PaintPlain(Widget view, XwkTreeNode *node);
void PaintSelected(Widget view, XwkTreeNode *node);
void PaintHighlighted(Widget view, XwkTreeNode *node);
void RedrawBorder(Widget view);
void DoPendingRepaint(Widget view);

// Scrolling (scroll.cpp).
void CreateScrollBars(Widget view);
void ConfigureScrollBars(Widget view);
void ConfigureAllScrollBars(Widget w);
void RunRelayoutNow(Widget view);
void ScrollTo(Widget view, bool vertical, int target);
bool MakeVisible(Widget view, XwkTreeNode *node, bool force, bool centre);
bool HasRelayoutPending(Widget view);
bool UnderScrolledWindow(Widget view);

// Selection and callbacks (select.cpp).
void CallCallbacks(Widget view, XtCallbackList list, int reason, XEvent *event,
                   XwkTreeNode *node, int part, int column, int cell_type);
void RaiseSelectionChanged(Widget view, int reason, XEvent *event, XwkTreeNode *node, int part);
void SelectRow(Widget w, XwkTreeNode *node);
void DeselectRow(Widget w, XwkTreeNode *node);
void ClampSelectedCount(Widget w);
void SetItemSelected(Widget view, XwkTreeNode *node, bool value);
void DefaultAction(Widget view, XwkTreeNode *node, int part, XEvent *event, int column,
                   int cell_type);
void ToggleAndRelayout(Widget view, XwkTreeNode *node);
void SetCurrent(Widget w, XwkTreeNode *node);

// Actions (select.cpp, keys.cpp).
extern XtActionsRec actions[18];
extern const char default_translations[];
void StopAutoScroll(Widget view);

// Sort (sort.cpp).
void SortSiblings(Widget w, XwkTreeNode *parent);

}  // namespace xwk::tree

#endif
