// Shared between the files of the desk list.
#ifndef XWK_WIDGETS_DESK_H
#define XWK_WIDGETS_DESK_H

#include <Xwk/PrjDeskP.h>

#include <vector>

namespace xwk::desk {

inline XmPrjDeskPart &P(Widget w) { return ((XmPrjDeskWidget)w)->desk; }
inline XmPrjDeskItem Item(XwkListNode *node) { return node ? (XmPrjDeskItem)node->data : nullptr; }
bool IsDesk(Widget w);
// The desk that holds the items; the widget itself when it is no clone.
inline Widget Mother(Widget w)
{
    Widget m = P(w).mother;
    return m ? m : w;
}
inline XmPrjDeskPart &M(Widget w) { return P(Mother(w)); }
// The mother, then each clone.
std::vector<Widget> Views(Widget w);
bool Alive(Widget w);
bool Paintable(Widget w);
inline Dimension Shadow(Widget w) { return ((XmPrimitiveWidget)w)->primitive.shadow_thickness; }
inline Dimension Highlight(Widget w) { return ((XmPrimitiveWidget)w)->primitive.highlight_thickness; }
inline bool Selected(XmPrjDeskItem item) { return item->flags & XmDESK_ITEM_SELECTED; }
inline bool Selectable(XmPrjDeskItem item) { return item->flags & XmDESK_ITEM_SELECTABLE; }

// The C++ side of a desk; the mother's also indexes the items.
struct State {
    // The items by position, rebuilt from the list when stale, so that a
    // page far down the list is found without walking to it.
    std::vector<XwkListNode *> order;
    bool orderValid = true;
    // The list stands sorted by the sort procedure in force, so that an
    // addition is inserted in place instead of sorting all again.
    bool sorted = true;
    // The maxima of the items' extents hold for the items as they are.
    bool extentsValid = true;
    int maxLabelWidth = 0, maxLabelHeight = 0;
    // Items freed so far: a node held across a callback still lives while
    // this has not moved.
    unsigned long deletions = 0;
    XtIntervalId repaintTimer = 0;
    // The scroll bar is shown or hidden after the resize that asked for
    // it: the scrolled window lays out its children only outside its own
    // layout.
    bool inResize = false;
    XtIntervalId barTimer = 0;
};
State &S(Widget w);

// Items (items.cpp).
void FreeItemNode(XwkListNode *node);
void DestroyItems(Widget w);
// Items added through a clone that goes are the mother's from then on.
void ItemsLoseDesk(Widget mother, Widget clone);
int Count(Widget w);
XwkListNode *NodeAt(Widget w, int index);
void OrderChanged(Widget w);
void MeasureItem(Widget w, XmPrjDeskItem item);
// The font list goes: measures cached on it start again.
void ForgetFonts();
XmString LabelString(Widget w, XmPrjDeskItem item);
void Sort(Widget w);

// Geometry (layout.cpp).
int InsetX(Widget view);
int InsetY(Widget view);
void ComputeSizes(Widget w);
void ExtentsChanged(Widget w);
void GrowExtents(Widget w, XmPrjDeskItem item);
bool GridOne(Widget view);
bool Grid(Widget w);
void PreferredSize(Widget view, Dimension *width, Dimension *height);
void AskSize(Widget view);
bool RowShown(Widget view, int row);
// A box of a cell in window coordinates, wider than X's 16 bits so that
// rows far off the page do not wrap onto it.
struct Box {
    int x = 0, y = 0, width = 0, height = 0;
    bool Contains(int px, int py) const
    {
        return px >= x && px <= x + width && py >= y && py <= y + height;
    }
};
int RowOf(Widget view, int index);
void Boxes(Widget view, int index, XmPrjDeskItem item, Box *icon, Box *label);
XwkListNode *ItemAt(Widget view, int x, int y);
void CreateScrollBar(Widget view);
void SetBarValue(Widget view, int value);
void ScrollToRow(Widget view, int row);
bool KeepVisible(Widget view, bool scroll);

// Drawing (draw.cpp).
void CreateGCs(Widget view);
void FreeGCs(Widget view);
void UpdateGCs(Widget view);
// Item drawing keeps inside the border, whatever the widget's size.
void SetClips(Widget view);
void Repaint(Widget view, int x, int y, int width, int height);
void RepaintView(Widget view, bool clear);
void RepaintAll(Widget w, bool clear);
void RepaintSoon(Widget w);
void DrawItem(Widget view, XwkListNode *node);
void DrawItemHere(Widget view, XwkListNode *node);
void Mark(Widget view, XwkListNode *node, bool lit);
void MarkOnViews(Widget w, XwkListNode *node, bool lit);
void SetShadow(Widget w, XwkListNode *node, unsigned char shadow);
void EraseFrame(Widget view, XwkListNode *node);
void DrawBorder(Widget view, bool swapped);
void ExposeProc(Widget w, XEvent *event, Region region);

// Selection and callbacks (select.cpp).
void Call(Widget view, XtCallbackList list, int reason, XEvent *event, XwkListNode *node,
          bool arrays);
void CallCurrent(Widget view, XtCallbackList list, int reason, XEvent *event);
void Notify(Widget view, XEvent *event, XwkListNode *node);
void RefreshSelected(Widget w);
void DeselectAll(Widget view);
void StopBand(Widget view);
void StopAutoScroll(Widget view);
void BandStep(Widget view, XEvent *event, int x, int y);

// Actions (input.cpp, select.cpp).
extern XtActionsRec actions[17];
extern const char default_translations[];
void DeskButtonMotion(Widget, XEvent *, String *, Cardinal *);
void DeskBeginSelect(Widget, XEvent *, String *, Cardinal *);
void DeskEndSelect(Widget, XEvent *, String *, Cardinal *);
void DeskBeginToggle(Widget, XEvent *, String *, Cardinal *);
void DeskEndToggle(Widget, XEvent *, String *, Cardinal *);
void DeskLeaveBand(Widget view);

// Clones (clones.cpp).
void InitClone(Widget w);
void DestroyClone(Widget w);
void OrphanClone(Widget w);
void ForgetCallbackLists(Widget w);
void RemoveCallbackLists(Widget w);

}  // namespace xwk::desk

#endif
