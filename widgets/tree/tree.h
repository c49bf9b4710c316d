// Shared between the files of the tree list.
#ifndef XWK_WIDGETS_TREE_H
#define XWK_WIDGETS_TREE_H

#include <Xwk/PrjTreeP.h>

#include <unordered_map>
#include <vector>

namespace xwk::tree {

inline XmPrjTreePart &P(Widget w) { return ((XmPrjTreeWidget)w)->tree; }
inline XmPrjTreeItem Item(XwkTreeNode *node) { return node ? (XmPrjTreeItem)node->data : nullptr; }
bool IsTree(Widget w);
// A managed scrolled window named name + "SW", with application-defined
// scrolling, and in it an unmanaged list widget of the class that takes the
// window down with it; the scrolled creators of the tree list and of the
// desk list.
Widget CreateInScrolledWindow(WidgetClass widget_class, Widget parent, String name, ArgList args,
                              Cardinal argCount);
// The view that holds the rows; the widget itself when it is no clone.
inline Widget Mother(Widget w)
{
    Widget m = P(w).mother;
    return m ? m : w;
}
inline XmPrjTreePart &M(Widget w) { return P(Mother(w)); }
// The mother, then each clone.
std::vector<Widget> Views(Widget w);
bool RealizedAndManaged(Widget w);
bool Alive(Widget w);
bool IsRoot(Widget w, XwkTreeNode *node);
// Whether the node stands in this widget's tree (the root included).
bool OwnNode(Widget w, XwkTreeNode *node);
// Whether the node lies in a subtree being freed now: a callback raised by
// the freeing may not change it.
bool Doomed(Widget w, XwkTreeNode *node);
bool TableMode(Widget w);
void SetFlagOnViews(Widget w, unsigned int flag);

// The words of an item record that follow it (items.cpp).  Setting a word
// a row does not yet have makes its record anew: the node's data changes,
// so an item pointer read before is stale after SetIcon, ElementRoom and
// Ext.  A row's element in visibleList lies inside its record; a record
// made anew while the row is shown takes its element along, relinked.
XwkIcon *IconOf(XmPrjTreeItem item);
// The row's element while it is in visibleList, else null.
XwkListNode *ElementOf(XmPrjTreeItem item);
// Room for the row's element, unlinked and zeroed unless it is linked.
XwkListNode *ElementRoom(XwkTreeNode *node);
XmPrjTreeItemExtRec *ExtOf(XmPrjTreeItem item);
char *LabelOf(XmPrjTreeItem item);
XmPrjTreeItem NewItem(const char *label, unsigned char layout);
void FreeItem(XmPrjTreeItem item);
void SetIcon(XwkTreeNode *node, XwkIcon *icon);
XmPrjTreeItemExtRec *Ext(XwkTreeNode *node);
void GiveElementSlots(Widget w);
unsigned char ColourIndex(Widget w, Pixel foreground, Pixel background);
Pixel ForegroundOf(Widget w, XmPrjTreeItem item);
Pixel BackgroundOf(Widget w, XmPrjTreeItem item);
void SetForeground(Widget w, XwkTreeNode *node, Pixel pixel);
char *CharsetOf(Widget w, XmPrjTreeItem item);
void KeepCharsets(Widget w);
Widget AddedThrough(XwkTreeNode *node);
// The mother whose tree holds the node, or whose tree this is.
Widget OwnerOfNode(XwkTreeNode *node);
Widget OwnerOfTree(XwkTree *tree);
void RegisterTree(Widget w);
void UnregisterTree(Widget w);

// Records of one size handed out from blocks: a row's tree node costs its
// size and no more, where malloc would add its own words to each.  The
// blocks go when the last record comes back.  Under the address sanitizer
// each record is its own allocation, so that a freed row is still caught.
class RecordPool {
public:
    explicit RecordPool(size_t size) : size_(size) {}
    ~RecordPool() { Release(); }
    RecordPool(const RecordPool &) = delete;
    RecordPool &operator=(const RecordPool &) = delete;
    void *Get();
    void Put(void *record);
private:
    void Release();
    size_t size_;
    std::vector<char *> blocks_;
    size_t left_ = 0;           // records never handed out in the last block
    void *free_ = nullptr;      // records given back, linked through their first word
    size_t live_ = 0;
};

// Rows' tree nodes (nodes.cpp): linked and freed as t_tlink and t_freenode
// do, from the mother's pool.
XwkTreeNode *LinkRow(Widget w, XwkTreeNode *parent, XtPointer data);
void FreeRows(Widget w, XwkTreeNode *top);

// The maxima that a layout pass gathers over the rows.
struct Raw {
    bool fresh = false;  // they still hold for the rows as they are
    int label_height = 0, row_height = 0, row_width = 0, icon_width = 0, state_width = 0;
    unsigned deepest = 0;
};

// The C++ side of a view; the mother's also indexes the rows.
struct State {
    Raw raw;
    // Every kStride-th row in display order, so that the row at an index is
    // found without walking from the head.
    std::vector<XwkTreeNode *> marks;
    int indexed = 0;            // rows the marks cover
    bool indexValid = false;
    // Compound strings of rows painted lately, so that paging does not
    // make them again; dropped with their row and when the font changes.
    std::unordered_map<XwkTreeNode *, XmString> strings;
    // Pairs of foreground and background that rows were made with.
    std::vector<std::pair<unsigned int, unsigned int>> colours;
    // Rows freed so far: a node held across a callback is known to live
    // while this has not moved.
    unsigned long deletions = 0;
    // Subtrees being freed now; their rows may not be deleted again from
    // the callbacks that the freeing raises.
    std::vector<XwkTreeNode *> freeing;
    // Walks that hold nodes across callbacks (tours, lists of rows to
    // delete), and the rows freed meanwhile, so that they go on only from
    // rows that still stand.
    int watching = 0;
    std::vector<XwkTreeNode *> freedWhileWatching;
    RecordPool nodes{sizeof(XwkTreeNode)};
    // Columns shown on this view, in display order, with the x where their
    // contents start and their width there.
    struct Shown {
        XmPrjTreeColumnRec *column;
        int x, width;
    };
    std::vector<Shown> shown;
    // The view through which rows are being deleted: deleteCallback is
    // raised on it.
    Widget deleting = nullptr;
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
// Empties visibleList at once, every row leaving it; the head stays.
void EmptyVisibleList(Widget w);
bool ToggleState(Widget view, XwkTreeNode *node);
int ItemState(XwkTreeNode *node);

// Geometry (layout.cpp).
bool LayoutPass(Widget view);
// A row has come in: the next pass need not visit all rows for it.
void RowEntered(Widget w, XwkTreeNode *node);
// Anything else changed that a pass measures.
void GeometryChanged(Widget w);
void GrowForItem(Widget view, XmPrjTreeItem item);
void MeasureItem(Widget view, XmPrjTreeItem item);
// Measures text in the list's font as XmStringExtent would.
void MeasureText(Widget view, const char *text, const char *charset, Dimension *width,
                 Dimension *height);
// A fresh compound string of the label, for the caller to free.
XmString MakeItemString(Widget view, XmPrjTreeItem item);
// The label's compound string from the cache; the cache keeps it.
XmString RowString(Widget view, XwkTreeNode *node);
void ForgetString(Widget w, XwkTreeNode *node);
void ForgetStrings(Widget w);
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
// Font lists and fonts may go: the lookups cached on them start again.
void ForgetFonts();
// The width of plain text (printable ASCII) in a core font, as XTextWidth
// gives it, from a table of the font's character widths; -1 for any other
// text.  A negative length reads up to the terminating zero.  The desk list
// measures its labels with it too.
int PlainTextWidth(XFontStruct *font, const char *text, int length = -1);
void ApplyVisibleLines(Widget view);

// Drawing (draw.cpp).
// The icon over the background that gc fills with, made once and cached in
// the icon record (the desk list draws its icons with it too); the pixmap
// itself for an icon without a mask.  Leaves gc without a clip.
Pixmap ComposedIcon(Widget view, GC gc, XwkIcon *icon);
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
void DrawIcon(Widget view, XwkIcon *icon, int x, int y, bool through_mask, int x_limit);

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
unsigned long Stamp(Widget w);
// Whether a node held since the stamp still stands in the tree; compares
// pointers only, so a freed node is never read.
bool Live(Widget w, XwkTreeNode *node, unsigned long stamp);
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

// Button 1 transfer of the display (XmNenableBtn1Transfer), shared with the
// desk list's drag gesture, and whether a button other than the event's own
// is down.
XtEnum Btn1Transfer(Widget w);
bool OtherButtonDown(XEvent *event);

// Actions (select.cpp, keys.cpp).
extern XtActionsRec actions[18];
extern const char default_translations[];
void StopAutoScroll(Widget view);

// Sort (sort.cpp).
void SortSiblings(Widget w, XwkTreeNode *parent);

// Columns (columns.cpp).  A column of the list of columns in display order.
inline XmPrjTreeColumnRec *ColumnOf(XwkListNode *e) { return (XmPrjTreeColumnRec *)e->data; }
// By absolute number, so that hidden columns are found too.
XmPrjTreeColumnRec *ColumnByNumber(Widget w, int number);
void ParseTitle(Widget w);
void FreeTitle(Widget w);
XmFontList TitleFonts(Widget w);
// The gap between a column's boundary and its contents.
int ColumnGap(Widget w);
// Places the columns on a view: their x, the arrows, and which are shown.
void LayOutColumns(Widget view);
// Scrolls the columns so that the column is on the bar; true if it moved.
bool ScrollToColumn(Widget view, int number);
// Repaints the rows of every view, clearing.
void RepaintRows(Widget w);

// Title bar (title.cpp).
void CreateTitle(Widget view);
void PlaceTitle(Widget view);
void PaintTitle(Widget view);
void DestroyTitle(Widget view);
void RepaintTitles(Widget w);
void CreateTitleGCs(Widget view);
void DrawSashLine(Widget view, int x);
void CreateSashCursor(Widget view);

// Cells (cells.cpp).
XmPrjTreeCellRec *CellOf(XwkTreeNode *node, int column);
// Parses the row's label into its cells, creating them or replacing their texts.
void ParseCells(Widget w, XwkTreeNode *node, bool first);
void PaintCells(Widget view, XwkTreeNode *node, int y, GC text);
// The column under x on a row; fills column, cell type and rectangle.
bool CellAt(Widget view, XwkTreeNode *node, int row_y, int x, int *column, int *cell_type,
            XRectangle *cell);
bool CellRect(Widget view, XwkTreeNode *node, int column, XRectangle *cell);
void AccumulateColumnWidths(Widget view);
bool Editable(int type);

// Cell editors (editors.cpp).
Widget MakeEditor(Widget view, int kind);
bool ActivateCell(Widget view, XwkTreeNode *node, int column, XEvent *event);
void CommitCell(Widget w);
void PlaceEditor(Widget view, XwkTreeNode *node, const XRectangle &cell);
void HideEditorOffPage(Widget view);
void PlaceFirstCell(Widget view);
void RaiseCellManage(Widget w);
void CellKbdKey(Widget editor, XEvent *event, char letter);

// Drag and drop (dnd.cpp).
void RegisterTitleDropSite(Widget view);
void RegisterCellDropSite(Widget view);
void StartTitleDrag(Widget view, XEvent *event);
void CopyDropSite(Widget clone);
void MakeTitleDragIcon(Widget w);
void FreeTitleDragIcon(Widget w);

}  // namespace xwk::tree

#endif
