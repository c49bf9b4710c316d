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

#define XmNmother "mother"
#define XmCMather "Mather"
#define XmNclones "clones"
#define XmCClones "Clones"
#define XmNnumClones "numClones"
#define XmCNumClones "NumClones"
#define XmNactiveBackground "activeBackground"
#define XmCActiveBackground "ActiveBackground"
#define XmNactiveForeground "activeForeground"
#define XmCActiveForeground "ActiveForeground"
#define XmNinactiveBackground "inactiveBackground"
#define XmCInactiveBackground "InactiveBackground"
#define XmNinactiveForeground "inactiveForeground"
#define XmCInactiveForeground "InactiveForeground"
#define XmNtreeTrunkColor "treeTrunkColor"
#define XmCTreeTrunkColor "TreeTrunkColor"
#define XmNgridColor "gridColor"
#define XmCGridColor "GridColor"
#define XmNselectionChanged "selectionChanged"
#define XmNstartDragCallback "startDragCallback"
#define XmNdeleteCallback "deleteCallback"
#define XmNinsertCallback "insertCallback"
#define XmNcanSlam "canSlam"
#define XmCCanSlam "CanSlam"
#define XmNuseDashLine "useDashLine"
#define XmCUseDashLine "UseDashLine"
#define XmNclosedStateIcon "closedStateIcon"
#define XmCClosedStateIcon "ClosedStateIcon"
#define XmNdontMove "dontMove"
#define XmCDontMove "DontMove"
#define XmNclearOnUpdate "clearOnUpdate"
#define XmCClearOnUpdate "ClearOnUpdate"
#define XmNfruitlessStateIcon "fruitlessStateIcon"
#define XmCFruitlessStateIcon "FruitlessStateIcon"
#define XmNhIconPad "hIconPad"
#define XmNhPad "hPad"
#define XmNrowHeight "rowHeight"
#define XmCRowHeight "RowHeight"
#define XmNrowWidth "rowWidth"
#define XmCRowWidth "RowWidth"
#ifndef XmNmenuWidget
#define XmNmenuWidget "menuWidget"
#endif
#ifndef XmCMenuWidget
#define XmCMenuWidget "MenuWidget"
#endif
#define XmNopenStateIcon "openStateIcon"
#define XmCOpenStateIcon "OpenStateIcon"
#define XmNselected "selected"
#define XmCSelected "Selected"
#define XmNselectedIcon "selectedIcon"
#define XmCSelectedIcon "SelectedIcon"
#define XmNslamPolicy "slamPolicy"
#define XmCSlamPolicy "SlamPolicy"
#define XmNvisualMode "visualMode"
#define XmCVisualMode "VisualMode"
#define XmNsashCursor "sashCursor"
#define XmCSashCursor "SashCursor"
#define XmNdelimeter "delimeter"
#define XmCDelimeter "Delimeter"
#define XmNtitleWidget "titleWidget"
#define XmCTitleWidget "TitleWidget"
#define XmNtitleHeight "titleHeight"
#define XmCTitleHeight "TitleHeight"
#define XmNtitleBackground "titleBackground"
#define XmCTitleBackground "TitleBackground"
#define XmNtitleForeground "titleForeground"
#define XmCTitleForeground "TitleForeground"
#define XmNtitleMargin "titleMargin"
#define XmCTitleMargin "TitleMargin"
#define XmNtitleFontList "titleFontList"
#define XmCTitleFontList "TitleFontList"
#define XmNtitleItemAlignment "titleItemAlignment"
#define XmCTitleItemAlignment "TitleItemAlignment"
#define XmNtitleItemType "titleItemType"
#define XmCTitleItemType "TitleItemType"
#define XmNlayoutString "layoutString"
#define XmCLayoutString "LayoutString"
#define XmNtitleDragIcon "titleDragIcon"
#define XmCTitleDragIcon "TitleDragIcon"
#define XmNdefaultCharSet "defaultCharSet"
#define XmCDefaultCharSet "DefaultCharSet"
#define XmNselectCharSet "selectCharSet"
#define XmCSelectCharSet "SelectCharSet"
#define XmNtreeMarginWidth "treeMarginWidth"
#define XmCTreeMarginWidth "TreeMarginWidth"
#define XmNtreeMarginHeight "treeMarginHeight"
#define XmCTreeMarginHeight "TreeMarginHeight"
#define XmNtreeTrunkDrawing "treeTrunkDrawing"
#define XmCTreeTrunkDrawing "TreeTrunkDrawing"
#define XmNvFontPad "vFontPad"
#define XmNvisibleLines "visibleLines"
#define XmCVisibleLines "VisibleLines"
#define XmNvPad "vPad"
#define XmNcreateIconProc "createIconProc"
#define XmCCreateIconProc "CreateIconProc"
#define XmNsortProc "sortProc"
#define XmCSortProc "SortProc"
#define XmNuseSort "useSort"
#define XmCUseSort "UseSort"
#define XmNuseAverageColumnWidth "useAverageColumnWidth"
#define XmCUseAverageColumnWidth "UseAverageColumnWidth"
#define XmNuseTitleScrolling "useTitleScrolling"
#define XmCUseTitleScrolling "UseTitleScrolling"
#define XmNsortColumn "sortColumn"
#define XmCSortColumn "SortColumn"
#define XmNsortDirection "sortDirection"
#define XmCSortDirection "SortDirection"
#define XmNshowGrid "showGrid"
#define XmCShowGrid "ShowGrid"
#define XmNcellTextField "cellTextField"
#define XmCCellTextField "CellTextField"
#define XmNcellComboBox "cellComboBox"
#define XmCCellComboBox "CellComboBox"
#define XmNcellPushButton "cellPushButton"
#define XmCCellPushButton "CellPushButton"
#define XmNcellActive "cellActive"
#define XmCCellActive "CellActive"
#define XmNcellNodeId "cellNodeId"
#define XmCCellNodeId "CellNodeId"
#define XmNcellColumn "cellColumn"
#define XmCCellColumn "CellColumn"
#define XmNcurrentNodeId "currentNodeId"
#define XmCCurrentNodeId "CurrentNodeId"
#define XmNcellManageCallback "cellManageCallback"

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
