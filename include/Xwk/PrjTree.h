/*
 * Xwk/PrjTree.h - XmPrjTree, the tree list: at once a tree, a flat list and
 * a multi-column table.
 *
 * A row is a node of a t_ tree (Xwk/Lists.h) whose user word holds the row's
 * item record.  Callers hold nodes as opaque handles (XmPrjTreeNode); the
 * widget argument may be the tree list or any of its views.  Every function
 * checks the widget's class first and answers 0 (or -1, 255, nothing) for a
 * widget of another class.
 */
#ifndef XWK_PRJTREE_H
#define XWK_PRJTREE_H

#include <Xm/Xm.h>
#include <Xwk/Lists.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

extern WidgetClass xmPrjTreeWidgetClass;

typedef struct _XmPrjTreeClassRec *XmPrjTreeWidgetClass;
typedef struct _XmPrjTreeRec *XmPrjTreeWidget;
typedef XwkTreeNode *XmPrjTreeNode;
struct _XwkIcon;

/* ---- Resource names ------------------------------------------------------ */

#define XmNmother ((char *)"mother")
#define XmCMather ((char *)"Mather")
#define XmNclones ((char *)"clones")
#define XmCClones ((char *)"Clones")
#define XmNnumClones ((char *)"numClones")
#define XmCNumClones ((char *)"NumClones")
#define XmNactiveBackground ((char *)"activeBackground")
#define XmCActiveBackground ((char *)"ActiveBackground")
#define XmNactiveForeground ((char *)"activeForeground")
#define XmCActiveForeground ((char *)"ActiveForeground")
#define XmNinactiveBackground ((char *)"inactiveBackground")
#define XmCInactiveBackground ((char *)"InactiveBackground")
#define XmNinactiveForeground ((char *)"inactiveForeground")
#define XmCInactiveForeground ((char *)"InactiveForeground")
#define XmNtreeTrunkColor ((char *)"treeTrunkColor")
#define XmCTreeTrunkColor ((char *)"TreeTrunkColor")
#define XmNgridColor ((char *)"gridColor")
#define XmCGridColor ((char *)"GridColor")
#define XmNselectionChanged ((char *)"selectionChanged")
#define XmNstartDragCallback ((char *)"startDragCallback")
#define XmNdeleteCallback ((char *)"deleteCallback")
#define XmNinsertCallback ((char *)"insertCallback")
#define XmNcanSlam ((char *)"canSlam")
#define XmCCanSlam ((char *)"CanSlam")
#define XmNuseDashLine ((char *)"useDashLine")
#define XmCUseDashLine ((char *)"UseDashLine")
#define XmNclosedStateIcon ((char *)"closedStateIcon")
#define XmCClosedStateIcon ((char *)"ClosedStateIcon")
#define XmNdontMove ((char *)"dontMove")
#define XmCDontMove ((char *)"DontMove")
#define XmNclearOnUpdate ((char *)"clearOnUpdate")
#define XmCClearOnUpdate ((char *)"ClearOnUpdate")
#define XmNfruitlessStateIcon ((char *)"fruitlessStateIcon")
#define XmCFruitlessStateIcon ((char *)"FruitlessStateIcon")
#define XmNhIconPad ((char *)"hIconPad")
#define XmNhPad ((char *)"hPad")
#define XmNrowHeight ((char *)"rowHeight")
#define XmCRowHeight ((char *)"RowHeight")
#define XmNrowWidth ((char *)"rowWidth")
#define XmCRowWidth ((char *)"RowWidth")
#ifndef XmNmenuWidget
#define XmNmenuWidget ((char *)"menuWidget")
#endif
#ifndef XmCMenuWidget
#define XmCMenuWidget ((char *)"MenuWidget")
#endif
#define XmNopenStateIcon ((char *)"openStateIcon")
#define XmCOpenStateIcon ((char *)"OpenStateIcon")
#define XmNselected ((char *)"selected")
#define XmCSelected ((char *)"Selected")
#define XmNselectedIcon ((char *)"selectedIcon")
#define XmCSelectedIcon ((char *)"SelectedIcon")
#define XmNslamPolicy ((char *)"slamPolicy")
#define XmCSlamPolicy ((char *)"SlamPolicy")
#define XmNvisualMode ((char *)"visualMode")
#define XmCVisualMode ((char *)"VisualMode")
#define XmNsashCursor ((char *)"sashCursor")
#define XmCSashCursor ((char *)"SashCursor")
#define XmNdelimeter ((char *)"delimeter")
#define XmCDelimeter ((char *)"Delimeter")
#define XmNtitleWidget ((char *)"titleWidget")
#define XmCTitleWidget ((char *)"TitleWidget")
#define XmNtitleHeight ((char *)"titleHeight")
#define XmCTitleHeight ((char *)"TitleHeight")
#define XmNtitleBackground ((char *)"titleBackground")
#define XmCTitleBackground ((char *)"TitleBackground")
#define XmNtitleForeground ((char *)"titleForeground")
#define XmCTitleForeground ((char *)"TitleForeground")
#define XmNtitleMargin ((char *)"titleMargin")
#define XmCTitleMargin ((char *)"TitleMargin")
#define XmNtitleFontList ((char *)"titleFontList")
#define XmCTitleFontList ((char *)"TitleFontList")
#define XmNtitleItemAlignment ((char *)"titleItemAlignment")
#define XmCTitleItemAlignment ((char *)"TitleItemAlignment")
#define XmNtitleItemType ((char *)"titleItemType")
#define XmCTitleItemType ((char *)"TitleItemType")
#define XmNlayoutString ((char *)"layoutString")
#define XmCLayoutString ((char *)"LayoutString")
#define XmNtitleDragIcon ((char *)"titleDragIcon")
#define XmCTitleDragIcon ((char *)"TitleDragIcon")
#define XmNdefaultCharSet ((char *)"defaultCharSet")
#define XmCDefaultCharSet ((char *)"DefaultCharSet")
#define XmNselectCharSet ((char *)"selectCharSet")
#define XmCSelectCharSet ((char *)"SelectCharSet")
#define XmNtreeMarginWidth ((char *)"treeMarginWidth")
#define XmCTreeMarginWidth ((char *)"TreeMarginWidth")
#define XmNtreeMarginHeight ((char *)"treeMarginHeight")
#define XmCTreeMarginHeight ((char *)"TreeMarginHeight")
#define XmNtreeTrunkDrawing ((char *)"treeTrunkDrawing")
#define XmCTreeTrunkDrawing ((char *)"TreeTrunkDrawing")
#define XmNvFontPad ((char *)"vFontPad")
#define XmNvisibleLines ((char *)"visibleLines")
#define XmCVisibleLines ((char *)"VisibleLines")
#define XmNvPad ((char *)"vPad")
#define XmNcreateIconProc ((char *)"createIconProc")
#define XmCCreateIconProc ((char *)"CreateIconProc")
#define XmNsortProc ((char *)"sortProc")
#define XmCSortProc ((char *)"SortProc")
#define XmNuseSort ((char *)"useSort")
#define XmCUseSort ((char *)"UseSort")
#define XmNuseAverageColumnWidth ((char *)"useAverageColumnWidth")
#define XmCUseAverageColumnWidth ((char *)"UseAverageColumnWidth")
#define XmNuseTitleScrolling ((char *)"useTitleScrolling")
#define XmCUseTitleScrolling ((char *)"UseTitleScrolling")
#define XmNsortColumn ((char *)"sortColumn")
#define XmCSortColumn ((char *)"SortColumn")
#define XmNsortDirection ((char *)"sortDirection")
#define XmCSortDirection ((char *)"SortDirection")
#define XmNshowGrid ((char *)"showGrid")
#define XmCShowGrid ((char *)"ShowGrid")
#define XmNcellTextField ((char *)"cellTextField")
#define XmCCellTextField ((char *)"CellTextField")
#define XmNcellComboBox ((char *)"cellComboBox")
#define XmCCellComboBox ((char *)"CellComboBox")
#define XmNcellPushButton ((char *)"cellPushButton")
#define XmCCellPushButton ((char *)"CellPushButton")
#define XmNcellActive ((char *)"cellActive")
#define XmCCellActive ((char *)"CellActive")
#define XmNcellNodeId ((char *)"cellNodeId")
#define XmCCellNodeId ((char *)"CellNodeId")
#define XmNcellColumn ((char *)"cellColumn")
#define XmCCellColumn ((char *)"CellColumn")
#define XmNcurrentNodeId ((char *)"currentNodeId")
#define XmCCurrentNodeId ((char *)"CurrentNodeId")
#define XmNcellManageCallback ((char *)"cellManageCallback")

/* ---- Enumerations -------------------------------------------------------- */

/* slamPolicy */
#define XmSLAM_DEFAULT 0
#define XmSLAM_PER_ROW 1
/* slamState */
#define XmSLAM_OPEN 0
#define XmSLAM_CLOSE 1
#define XmSLAM_UNDEFINED 2
#define XmSLAM_NONE 3
/* visualMode */
#define XmSIMPLE_LIST 0
#define XmTABLE_LIST 1
#define XmSPREADSHEET 2
/* sortDirection */
#define XmSORT_ASCENDING 0
#define XmSORT_DISCENDING 1
/* cellType */
#define XmCELL_LABEL 0
#define XmCELL_ICON 1
#define XmCELL_TOGGLE_ICON 2
#define XmCELL_EDIT_TEXT 3
#define XmCELL_DROP_DOWN_COMBO_BOX 4
#define XmCELL_DROP_DOWN_LIST 5
#define XmCELL_PUSH_BUTTON 6
#define XmCELL_NONE 0xff

/* Hit parts of a row. */
#define XmTREE_PART_NOTHING 1
#define XmTREE_PART_LABEL 2
#define XmTREE_PART_STATE_ICON 4
#define XmTREE_PART_ICON 8
#define XmTREE_PART_INDENT 16
#define XmTREE_PART_CELL 32
#define XmTREE_PART_ROW 62

/* Kinds of XmPrjTreeGetSpecifiedList. */
#define XmTREE_LABEL_LIST 0
#define XmTREE_USER_LIST 1
#define XmTREE_ID_LIST 2

/* Own callback reasons. */
#define XmCR_TREE_START_DRAG 5046
#define XmCR_TREE_SELECTION_CHANGED 5047
#define XmCR_TREE_CELL_MANAGED 5048
#define XmCR_TREE_CELL_UNMANAGED 5049
#define XmCR_TREE_DELETE_ITEM 5050
#define XmCR_TREE_INSERT_ITEM 5051
#define XmCR_TREE_TITLE_ACTIVATE 5052

typedef struct {
    int reason;
    XEvent *event;
    XmPrjTreeNode node;
    int part;
    XtPointer clientData;
    Boolean selected;
    int column;
    int cellType;
    Boolean doit;
} XmPrjTreeCallbackStruct;

typedef void (*XmPrjTreeDeleteProc)(XmPrjTreeNode node, XtPointer data);
/* True ends the tour; the tour answers that node. */
typedef Boolean (*XmPrjTreeTourProc)(XmPrjTreeNode node, XtPointer clientData, XtPointer userData);
/* Gets pointers to two node pointers, as qsort gives them. */
typedef int (*XmPrjTreeSortProc)(const void *a, const void *b);
typedef struct _XwkIcon *(*XmPrjTreeCreateIconProc)(Widget w, char **colourData, char **monoData,
                                                    const char *name);

/* ---- Creation ------------------------------------------------------------ */

Widget XmCreatePrjTree(Widget parent, String name, ArgList args, Cardinal argCount);
Widget XmCreateTreeList(Widget parent, String name, ArgList args, Cardinal argCount);
/* The tree list inside a scrolled window named name + "SW"; returns the tree
 * list, unmanaged; the window goes when the list is destroyed. */
Widget XmCreateScrolledTreeList(Widget parent, String name, ArgList args, Cardinal argCount);

/* ---- Rows ---------------------------------------------------------------- */

XmPrjTreeNode XmPrjTreeAddItem(Widget w, XmPrjTreeNode parent, const char *label,
                               struct _XwkIcon *icon, XtPointer clientData, int slamState,
                               struct _XwkIcon *fruitlessIcon, struct _XwkIcon *openIcon,
                               struct _XwkIcon *closedIcon);
XmPrjTreeNode XmPrjTreeAddSimpleItemToItem(Widget w, XmPrjTreeNode parent, const char *label,
                                           struct _XwkIcon *icon, XtPointer clientData);
XmPrjTreeNode XmPrjTreeAddSimpleItem(Widget w, const char *label, XtPointer clientData);
void XmPrjTreeDeleteItem(Widget w, XmPrjTreeNode node);
/* 0 when nothing was deleted, else the number deleted plus 1. */
int XmPrjTreeDeleteChildren(Widget w, XmPrjTreeNode node);
void XmPrjTreeDeleteItems(Widget w, XmPrjTreeNode *nodes, int n);
void XmPrjTreeDeleteAllItems(Widget w);
void XmPrjTreeAddDeleteItemCallback(Widget w, XmPrjTreeNode node, XmPrjTreeDeleteProc proc,
                                    XtPointer data);
void XmPrjTreeReparentItem(Widget w, XmPrjTreeNode node, XmPrjTreeNode newParent);
void XmPrjTreeArrangeChildren(Widget w, XmPrjTreeNode parent, int *order, int n);
/* Swaps the node with the sibling at the 1-based position. */
void XmPrjTreeSetItemPosition(Widget w, XmPrjTreeNode node, int position);
int XmPrjTreeGetItemPositionFromParent(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeGetItemByPositionFromParent(Widget w, XmPrjTreeNode parent, int position);

/* ---- Finding and walking ------------------------------------------------- */

XmPrjTreeNode XmPrjTreeGetRoot(Widget w);
XmPrjTreeNode XmPrjTreeGetFirstNode(Widget w);
XmPrjTreeNode XmPrjTreeGetLastNode(Widget w);
XmPrjTreeNode XmPrjTreeGetNextNode(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeGetPreviousNode(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeGetParent(Widget w, XmPrjTreeNode node);
int XmPrjTreeGetNodeLevel(Widget w, XmPrjTreeNode node);
int XmPrjTreeGetNodeNumber(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeFindFirstChild(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeFindItemOneLevel(Widget w, XmPrjTreeNode parent, const char *label);
XmPrjTreeNode XmPrjTreeFindItemByClientData(Widget w, XtPointer clientData);
/* Finds the root for 0 and nothing else, as it always has. */
XmPrjTreeNode XmPrjTreeFindItemByNodeNumber(Widget w, int number);
/* True for direct children only, as it always has. */
Boolean XmPrjTreeIsParent(Widget w, XmPrjTreeNode parent, XmPrjTreeNode node);
Boolean XmPrjTreeItemExists(Widget w, XmPrjTreeNode node);
Boolean XmPrjTreeItemVisible(Widget w, XmPrjTreeNode node);
int XmPrjTreeGetItemsCount(Widget w, XmPrjTreeNode node);
Widget XmPrjTreeGetTreeWidgetFromItem(XmPrjTreeNode node);
char *XmPrjTreeGetNameItem(Widget w, XmPrjTreeNode node);
XtPointer XmPrjTreeGetClientData(Widget w, XmPrjTreeNode node);
XtPointer XmPrjTreeGetClientDataFromNode(XmPrjTreeNode node);
XtPointer XmPrjTreeGetClientDataFromParent(Widget w, XmPrjTreeNode node);
void XmPrjTreeSetClientData(Widget w, XmPrjTreeNode node, XtPointer clientData);
XmPrjTreeNode XmPrjTreeGetSelectedItem(Widget w);
XwkTree *XmPrjTreeGetTreePtr(Widget w);
XmPrjTreeNode XmPrjTreeGetNodePtr(Widget w, XmPrjTreeNode node);

/* ---- Row attributes ------------------------------------------------------ */

Pixel XmPrjTreeGetItemForeground(Widget w, XmPrjTreeNode node);
int XmPrjTreeSetItemForeground(Widget w, XmPrjTreeNode node, Pixel pixel, Boolean redraw);
char *XmPrjTreeGetItemCharSet(Widget w, XmPrjTreeNode node);
int XmPrjTreeSetItemCharset(Widget w, XmPrjTreeNode node, char *charset, Boolean redraw);
void XmPrjTreeGetItemAttributes(Widget w, XmPrjTreeNode node, struct _XwkIcon **icon,
                                struct _XwkIcon **fruitless, struct _XwkIcon **open,
                                struct _XwkIcon **closed);
void XmPrjTreeSetItemAttributes(Widget w, XmPrjTreeNode node, struct _XwkIcon *icon,
                                struct _XwkIcon *fruitless, struct _XwkIcon *open,
                                struct _XwkIcon *closed);
void XmPrjTreeGetDefaultItemAttributes(Widget w, struct _XwkIcon **fruitless,
                                       struct _XwkIcon **open, struct _XwkIcon **closed);

/* ---- Lists and tours ----------------------------------------------------- */

/* Arrays come from XtCalloc; the caller frees the array, not its members. */
int XmPrjTreeGetSpecifiedList(Widget w, int kind, XtPointer **list);
int XmPrjTreeGetLabelList(Widget w, char ***list);
int XmPrjTreeGetUserList(Widget w, XtPointer **list);
int XmPrjTreeGetIdList(Widget w, XmPrjTreeNode **list);
int XmPrjTreeGetSelectedSpecifiedList(Widget w, int kind, XtPointer **list);
int XmPrjTreeGetSelectedLabelList(Widget w, char ***list);
int XmPrjTreeGetSelectedUserList(Widget w, XtPointer **list);
int XmPrjTreeGetSelectedIdList(Widget w, XmPrjTreeNode **list);
int XmPrjTreeGetChildrenUserList(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                 XtPointer **list);
int XmPrjTreeGetSelectedItemCount(Widget w);
int XmPrjTreeGetSelectedItemsCount(Widget w);
XmPrjTreeNode XmPrjTreeTourTree(Widget w, XmPrjTreeTourProc proc, XtPointer data);
XmPrjTreeNode XmPrjTreeTourChildren(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                    XmPrjTreeTourProc proc, XtPointer data);
XmPrjTreeNode XmPrjTreeTourSelected(Widget w, XmPrjTreeTourProc proc, XtPointer data);

/* ---- Branches and sorting ------------------------------------------------ */

void XmPrjTreeChangeState(Widget w, XmPrjTreeNode node, int state);
int XmPrjTreeGetState(Widget w, XmPrjTreeNode node);
int XmPrjTreeDefaultSortProc(const void *a, const void *b);
void _XmPrjTreeSortItems(Widget w, XmPrjTreeNode start, Boolean keepVisible, Boolean redraw);
void XmPrjTreeSortChildren(Widget w, XmPrjTreeNode node);
void XmPrjTreeSortItems(Widget w, Boolean keepVisible);

/* ---- Geometry and drawing ------------------------------------------------ */

void XmPrjTreeResizeWindow(Widget w, Boolean redraw);
void XmPrjTreeGetPreferedSize(Widget w, Dimension *width, Dimension *height);
void XmPrjTreeUpdateNode(Widget w, XmPrjTreeNode node);
void XmPrjTreeUpdateItem(Widget w, XmPrjTreeNode node);
XmPrjTreeNode XmPrjTreeWhichNode(int mask, int x, int y, Widget w);
XtPointer XmPrjTreeWhichItem(int mask, int x, int y, Widget w);
/* True when the rectangle touches the redraw rectangle stored last. */
Boolean XwkRectInRegion(XRectangle *stored, int x, int y, int width, int height);

/* ---- Selection, keyboard and scrolling ----------------------------------- */

void XmPrjTreeSetNode(Widget w, XmPrjTreeNode node);
void XmPrjTreeSetItem(Widget w, XmPrjTreeNode node, Boolean notify);
void XmPrjTreeSelectItem(Widget w, XmPrjTreeNode node);
void XmPrjTreeDeselectItem(Widget w, XmPrjTreeNode node);
void XmPrjTreeSetSelectable(Widget w, XmPrjTreeNode node, Boolean selectable);
void XmPrjTreeSelectAllItems(Widget w);
void XmPrjTreeDeselectAllItems(Widget w);
void XmPrjTreeGetOrigins(Widget w, int *x, int *y);
void XmPrjTreeSetOrigins(Widget w, int x, int y);
void XmPrjTreeSetTopItem(Widget w, XmPrjTreeNode node);
void XmPrjTreeScroll(Widget w, int direction);
void XmPrjTreeHighlight(Widget w, XmPrjTreeNode node);
void XmPrjTreeHighlightNode(Widget w, XmPrjTreeNode node);
void XmPrjTreeUnhighlight(Widget w);
XtPointer XmPrjTreeGetHighlighted(Widget w);
Widget XmPrjTreeGetHighlightedWidget(Widget w);
void XmPrjTreeShadowHighlight(Widget w);
void XmPrjTreeShadowUnhighlight(Widget w);
/* The update batch: False sets dontMove on every view, True ends it. */
void XmPrjTreeSetEditable(Widget w, Boolean editable);
Boolean XmPrjTreeGetEditable(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
