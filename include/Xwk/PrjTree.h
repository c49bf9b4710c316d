/**
 * \file
 * \ingroup tree
 * \brief XmPrjTree, the tree list: at once a tree, a flat list and a
 * multi-column table.
 *
 * A row is a node of a `t_` tree (Xwk/Lists.h) whose user word holds the
 * row's item record.  Callers hold nodes as opaque handles (XmPrjTreeNode);
 * the widget argument may be the tree list or any of its views.  Every
 * function checks the widget's class first and answers 0 (or -1, 255,
 * nothing) for a widget of another class, without a message.
 *
 * **Rows.** The tree has one hidden root without an item record; the rows
 * added without a parent are its children, at level 1.  Nodes are numbered
 * in preorder from the root (root 0, first row 1); the numbers change as
 * rows are added, deleted or moved.  Without XmNcanSlam every row is shown,
 * in preorder.  With it a branch opens and closes (its row's state is one
 * of the XmSLAM_ values), a column of state icons shows the state, and only
 * the rows of open branches are shown.  A node handle is valid until its
 * row is deleted; after any call that may delete rows, including the
 * raising of a callback, read again the nodes you need.
 *
 * **Ownership.** The widget keeps its own copy of each label.  Icons
 * (XwkIcon records, Xwk/Graphics.h) and client data stay the caller's: the
 * widget borrows them and never frees them, so they must outlive the rows
 * that show them.  Lists handed to the caller come from XtCalloc: the
 * caller frees the array, not its members, with XtFree.  Strings the widget
 * answers with (labels, charsets) are its own and must not be freed.
 *
 * **Views.** A tree list created with XmNmother naming another tree list is
 * a view (a clone) of that one: it shows the rows of its mother in its own
 * window, with its own scroll position, focus and per-view resources
 * (marked "view" in the table below), and it reads everything else from
 * the mother.  Every function acts on the mother's rows whichever view it
 * is given.  XtSetValues on a clone is passed on to the mother.  A clone is
 * destroyed with its mother.
 *
 * **Bulk changes.** XmPrjTreeSetEditable(w, False) sets XmNdontMove on every
 * view: rows may then be added and deleted in any number without any
 * layout or painting, and XmPrjTreeSetEditable(w, True) lays out and
 * repaints once.  XmPrjTreeAddSimpleItem and XmPrjTreeAddSimpleItemToItem
 * add rows without a layout pass, so that a list of a million rows fills
 * fast.  XmNclearOnUpdate False repaints rows over themselves without
 * flicker.
 *
 * **Lists with columns.** In XmNvisualMode XmTABLE_LIST and XmSPREADSHEET
 * the list has columns: XmNtitleString is split at XmNdelimeter into
 * XmNnumColumns title items, and each row's label is split the same way
 * into cells.  Under a scrolled window a title bar ("tableTitle", an
 * XmDrawnButton) stands above the rows: a click on a sortable title sorts
 * by that column (a second click reverses), dragging a boundary resizes
 * the column to its left, the arrows at the right end scroll the columns,
 * and button 2 drags a title onto another to reorder them (drag target
 * "_XWK_TREE_TITLE_ITEM").  The order, first column and widths travel in
 * a layout string ("label:position,width;...", see
 * XmPrjTreeGetColumnsLayoutString).  Columns keep their number for life;
 * functions take that number, whatever the display order.
 *
 * **Cells.** A cell has one of the XmCELL_ types.  The editable ones
 * (edit_text, the two combo box types, push_button) are edited in place by
 * one of three editors per view, made on demand: XmNcellTextField,
 * XmNcellComboBox, XmNcellPushButton.  A click on an editable cell makes it
 * the active cell; the editor's text is written back into the cell when
 * the active cell moves on, and by XmPrjTreeGetColumnLabel.  In the
 * editors the arrow keys, Tab, Page Up/Down and Ctrl+Home/End move the
 * active cell; Back Space or Delete in an empty text field asks
 * XmNdeleteCallback (with \c doit True) whether the row may go; Insert
 * raises XmNinsertCallback.  XmSPREADSHEET keeps an active cell at all
 * times after realize, paints selected rows without fill or frame, and
 * takes text dropped on an edit_text cell (targets STRING,
 * "COMPOUND_TEXT", "TEXT").
 *
 * **Callbacks.**  Every callback of the widget gets an
 * XmPrjTreeCallbackStruct.  The lists stand in the mother and serve every
 * view; the widget passed to the callback is the view in which the event
 * happened.  Callbacks run inside the operation that raises them and may
 * delete rows.
 *
 * | Resource | Reason | Raised |
 * |---|---|---|
 * | XmNactivateCallback | XmCR_ACTIVATE | a button 1 press on a row, with the part hit (node NULL for a press below the rows); a press on a state icon that opens or closes the branch; Ctrl+Down on a leaf, with part XmTREE_PART_INDENT, so that the application may fill the branch |
 * | XmNdefaultActionCallback | XmCR_DEFAULT_ACTION | a double click on the label, icon or indentation of a row (on the state icon of a row without icon), and Return on the current row; without this callback the branch opens or closes instead |
 * | XmNselectionChanged | XmCR_TREE_SELECTION_CHANGED | a change without an event of its own: at realize, XmPrjTreeSetItem with notify, row deletion |
 * | XmNselectionChanged | XmCR_ACTIVATE | a press that moved the current row, with the data of the press |
 * | XmNselectionChanged | XmCR_SINGLE_SELECT | a move of the current row by keyboard or by dragging over rows |
 * | XmNmultipleSelectionCallback | XmCR_MULTIPLE_SELECT | once for each row that a Shift range, a Ctrl toggle, XmPrjTreeSelectAllItems or XmPrjTreeDeselectAllItems sets |
 * | XmNfocusCallback, XmNlosingFocusCallback | XmCR_FOCUS, XmCR_LOSING_FOCUS | the view takes or loses the keyboard focus; \c part XmTREE_PART_NOTHING, \c node the current row |
 * | XmNstartDragCallback | XmCR_TREE_START_DRAG | the drag gesture on a row |
 * | XmNdeleteCallback | XmCR_TREE_DELETE_ITEM | each row as it is freed |
 * | XmNinsertCallback | XmCR_TREE_INSERT_ITEM | Insert in a cell editor |
 * | XmNcellManageCallback | XmCR_TREE_CELL_MANAGED, XmCR_TREE_CELL_UNMANAGED | the active cell editor is managed or unmanaged |
 *
 * **Resources.** "Shared" resources stand in the mother and hold for every
 * view; "view" resources each view keeps for itself.  A clone takes
 * highlightThickness, dontMove, clearOnUpdate, menuWidget, selectedIcon,
 * showGrid and the tree margins from its own creation arguments and the
 * other view resources from its mother; later, XtSetValues on it sets the
 * mother's.  Resources without a name defined here have Motif's names
 * (XmNhighlightThickness, ...).
 *
 * | Name | Type | Default | Scope | Meaning |
 * |---|---|---|---|---|
 * | highlightThickness | Dimension | 2 | view | frame of the location cursor around the current row |
 * | mother | Widget | NULL | view | the tree list this one is a view of; at creation only |
 * | clones, numClones | WidgetList, Cardinal | NULL, 0 | shared | the views of the mother; read only |
 * | activeBackground, activeForeground | Pixel | select colour, foreground | shared | selected rows while the view has the focus |
 * | inactiveBackground, inactiveForeground | Pixel | select colour, foreground | shared | selected rows without the focus |
 * | treeTrunkColor, gridColor | Pixel | foreground | shared | trunk lines, grid lines |
 * | activateCallback ... insertCallback, cellManageCallback | XtCallbackList | NULL | shared | see the table of callbacks |
 * | canSlam | Boolean | False | shared | branches open and close |
 * | useDashLine | Boolean | True | shared | trunk and grid in dotted lines |
 * | openStateIcon, closedStateIcon, fruitlessStateIcon | XwkIcon * | built-in | shared | state icons |
 * | dontMove | Boolean | False | view | no layout and no painting |
 * | clearOnUpdate | Boolean | True | view | clear a row before repainting it |
 * | hIconPad, hPad, vFontPad, vPad | Dimension | 2, 2, 1, 0 | shared | paddings |
 * | rowHeight, rowWidth | Dimension | 0 | shared | row size, computed |
 * | menuWidget | Widget | NULL | view | popup menu of button 3 |
 * | selected | XtPointer | NULL | shared | client data of the current row; read only |
 * | selectedIcon | XwkIcon * | none | view | icon of a selected row |
 * | selectionPolicy | unsigned char | XmSINGLE_SELECT | shared | XmSINGLE_SELECT or XmMULTIPLE_SELECT |
 * | scrollBarDisplayPolicy | unsigned char | XmAS_NEEDED | shared | Motif's |
 * | shadowType | unsigned char | XmSHADOW_IN | shared | the border |
 * | slamPolicy | unsigned char | XmSLAM_DEFAULT | shared | whose state icons rows show |
 * | visualMode | unsigned char | XmSIMPLE_LIST | shared | simple list, table or spreadsheet |
 * | sashCursor | Cursor | None | shared | cursor over a column boundary |
 * | numColumns | int | 1 | shared | number of columns |
 * | delimeter | unsigned char | ' ' | shared | column separator of titles and labels |
 * | titleWidget, titleHeight | Widget, Dimension | NULL, 0 | view, shared | the title bar |
 * | titleBackground, titleForeground | Pixel | background, foreground | shared | title bar colours |
 * | titleString | String | NULL | shared | column titles |
 * | titleMargin | Dimension | 1 | shared | margin of title items and cells |
 * | titleFontList | XmFontList | NULL | shared | font of the title bar |
 * | titleItemAlignment, titleItemType | unsigned char | 0, XmCELL_LABEL | shared | defaults of title items |
 * | layoutString | String | NULL | shared | the columns layout, kept for the application |
 * | titleDragIcon | XwkIcon * | built-in | shared | drag icon of a column title |
 * | fontList | XmFontList | default text render table | shared | font of the labels |
 * | defaultCharSet, selectCharSet | String | XmFONTLIST_DEFAULT_TAG, "BOLD" | shared | font list tags |
 * | treeMarginWidth, treeMarginHeight | Dimension | 2 | view | margins inside the border |
 * | treeTrunkDrawing | Boolean | True | shared | draw the tree trunk |
 * | visibleLines | int | 0 | view | rows the list is sized for |
 * | createIconProc | XmPrjTreeCreateIconProc | NULL | shared | maker of the built-in state icons |
 * | sortProc | XmPrjTreeSortProc | XmPrjTreeDefaultSortProc | shared | comparison of sibling rows |
 * | useSort, useAverageColumnWidth, useTitleScrolling | Boolean | False, True, True | shared | column behaviour |
 * | sortColumn, sortDirection | int, unsigned char | 1, XmSORT_ASCENDING | view | sort key of the default sort |
 * | showGrid | Boolean | False | view | grid lines |
 * | cellTextField, cellComboBox, cellPushButton | Widget | NULL | view | the cell editors |
 * | cellActive, cellNodeId, cellColumn | Widget, XmPrjTreeNode, int | NULL, NULL, 0 | shared | the active cell |
 * | currentNodeId | XmPrjTreeNode | NULL | shared | not used by the widget |
 *
 * Each name defined in this header tells more.
 */
#ifndef XWK_PRJTREE_H
#define XWK_PRJTREE_H

#include <Xm/Xm.h>
#include <Xwk/Lists.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** The widget class of the tree list, for XtCreateWidget and XtIsSubclass. */
extern WidgetClass xmPrjTreeWidgetClass;

/** Pointer to the class record of the tree list (Xwk/PrjTreeP.h). */
typedef struct _XmPrjTreeClassRec *XmPrjTreeWidgetClass;
/** Pointer to the instance record of a tree list (Xwk/PrjTreeP.h). */
typedef struct _XmPrjTreeRec *XmPrjTreeWidget;
/** Handle of a row: a node of the list's `t_` tree.  The hidden root is a
 * node too, without a row.  Valid until the row is deleted. */
typedef XwkTreeNode *XmPrjTreeNode;
struct _XwkIcon;

/* ---- Resource names ------------------------------------------------------ */

/** Resource \c mother (Widget, default NULL, creation only): another tree
 * list whose rows this one shows as its view (clone).  A tree list that is
 * no clone holds itself here. */
#define XmNmother ((char *)"mother")
/** Resource class of XmNmother (spelled so since its first release). */
#define XmCMather ((char *)"Mather")
/** Resource \c clones (WidgetList, read only): the views made of the
 * mother, in the order of their creation.  The list is the widget's. */
#define XmNclones ((char *)"clones")
/** Resource class of XmNclones. */
#define XmCClones ((char *)"Clones")
/** Resource \c numClones (Cardinal, read only): the number of XmNclones. */
#define XmNnumClones ((char *)"numClones")
/** Resource class of XmNnumClones. */
#define XmCNumClones ((char *)"NumClones")
/** Resource \c activeBackground (Pixel, default the select colour): fill of
 * selected rows while the view has the keyboard focus. */
#define XmNactiveBackground ((char *)"activeBackground")
/** Resource class of XmNactiveBackground. */
#define XmCActiveBackground ((char *)"ActiveBackground")
/** Resource \c activeForeground (Pixel, default the foreground): text of
 * selected rows while the view has the keyboard focus. */
#define XmNactiveForeground ((char *)"activeForeground")
/** Resource class of XmNactiveForeground. */
#define XmCActiveForeground ((char *)"ActiveForeground")
/** Resource \c inactiveBackground (Pixel, default the select colour): fill
 * of selected rows while the view has no focus. */
#define XmNinactiveBackground ((char *)"inactiveBackground")
/** Resource class of XmNinactiveBackground. */
#define XmCInactiveBackground ((char *)"InactiveBackground")
/** Resource \c inactiveForeground (Pixel, default the foreground): text of
 * selected rows while the view has no focus. */
#define XmNinactiveForeground ((char *)"inactiveForeground")
/** Resource class of XmNinactiveForeground. */
#define XmCInactiveForeground ((char *)"InactiveForeground")
/** Resource \c treeTrunkColor (Pixel, default the foreground): colour of the
 * lines that join rows to their parents. */
#define XmNtreeTrunkColor ((char *)"treeTrunkColor")
/** Resource class of XmNtreeTrunkColor. */
#define XmCTreeTrunkColor ((char *)"TreeTrunkColor")
/** Resource \c gridColor (Pixel, default the foreground): colour of the grid
 * lines of XmNshowGrid. */
#define XmNgridColor ((char *)"gridColor")
/** Resource class of XmNgridColor. */
#define XmCGridColor ((char *)"GridColor")
/** Callback resource \c selectionChanged: the current row changed.  Reason
 * XmCR_TREE_SELECTION_CHANGED when the change has no event of its own (at
 * realize, XmPrjTreeSetItem with notify, a row deletion, which raises it
 * even when the selection stayed), XmCR_ACTIVATE after a press,
 * XmCR_SINGLE_SELECT after a keyboard move or a drag over rows. */
#define XmNselectionChanged ((char *)"selectionChanged")
/** Callback resource \c startDragCallback: the user began to drag a row,
 * with button 2, or with button 1 from the label or icon of the current or
 * a selected row when the display's enableBtn1Transfer allows it.  Reason
 * XmCR_TREE_START_DRAG; the call data tell the node, the part hit and the
 * event.  The application calls XmDragStart from it. */
#define XmNstartDragCallback ((char *)"startDragCallback")
/** Callback resource \c deleteCallback: a row is being freed, by any
 * deletion but the destruction of the widget.  Reason
 * XmCR_TREE_DELETE_ITEM, part XmTREE_PART_ROW, with the node and its client
 * data, called after the row's own delete procedure.  The rows being freed
 * cannot be deleted again from it. */
#define XmNdeleteCallback ((char *)"deleteCallback")
/** Callback resource \c insertCallback: the user pressed Insert in a cell
 * editor.  Reason XmCR_TREE_INSERT_ITEM, with the active cell's node and
 * client data. */
#define XmNinsertCallback ((char *)"insertCallback")
/** Resource \c canSlam (Boolean, default False): branches open and close.
 * The rows show a state icon, and only the rows whose ancestors are all
 * open are shown (XmNslamPolicy, XmPrjTreeChangeState).  It may change at
 * any time; rows added without it stand open. */
#define XmNcanSlam ((char *)"canSlam")
/** Resource class of XmNcanSlam. */
#define XmCCanSlam ((char *)"CanSlam")
/** Resource \c useDashLine (Boolean, default True): trunk and grid lines are
 * dotted (a 50 % tile), and the row height is kept even so that the dots
 * line up from row to row. */
#define XmNuseDashLine ((char *)"useDashLine")
/** Resource class of XmNuseDashLine. */
#define XmCUseDashLine ((char *)"UseDashLine")
/** Resource \c closedStateIcon (XwkIcon *, default the built-in one): state
 * icon of a closed branch under XmSLAM_DEFAULT.  The built-in icon is made
 * at creation with XmNcanSlam (see XmNcreateIconProc); NULL shows none.
 * The icon stays the caller's. */
#define XmNclosedStateIcon ((char *)"closedStateIcon")
/** Resource class of XmNclosedStateIcon. */
#define XmCClosedStateIcon ((char *)"ClosedStateIcon")
/** Resource \c dontMove (Boolean, default False, per view): the view neither
 * lays out nor paints; changes wait until it is set False again (which
 * runs a layout pass and repaints), XmPrjTreeResizeWindow or
 * XmPrjTreeSetEditable(w, True). */
#define XmNdontMove ((char *)"dontMove")
/** Resource class of XmNdontMove. */
#define XmCDontMove ((char *)"DontMove")
/** Resource \c clearOnUpdate (Boolean, default True, per view): a row is
 * cleared before it is repainted.  False paints rows over themselves,
 * without flicker, and a deletion clears only from the deleted row down. */
#define XmNclearOnUpdate ((char *)"clearOnUpdate")
/** Resource class of XmNclearOnUpdate. */
#define XmCClearOnUpdate ((char *)"ClearOnUpdate")
/** Resource \c fruitlessStateIcon (XwkIcon *, default the built-in one):
 * state icon of a row without children under XmSLAM_DEFAULT; with
 * XmNtreeTrunkDrawing it shows only at level 1.  NULL shows none.  The
 * icon stays the caller's. */
#define XmNfruitlessStateIcon ((char *)"fruitlessStateIcon")
/** Resource class of XmNfruitlessStateIcon. */
#define XmCFruitlessStateIcon ((char *)"FruitlessStateIcon")
/** Resource \c hIconPad (Dimension, default 2, class XmCMargin): gap between
 * the indentation steps of two levels, and after the state icon column. */
#define XmNhIconPad ((char *)"hIconPad")
/** Resource \c hPad (Dimension, default 2, class XmCMargin): horizontal
 * padding around a row's label. */
#define XmNhPad ((char *)"hPad")
/** Resource \c rowHeight (Dimension): the height of every row, padding
 * included.  Computed by the widget from the font, the icons and the
 * paddings; read it, a value set is replaced by the next layout. */
#define XmNrowHeight ((char *)"rowHeight")
/** Resource class of XmNrowHeight. */
#define XmCRowHeight ((char *)"RowHeight")
/** Resource \c rowWidth (Dimension): the width that the widest row needs,
 * indentation included.  Computed by the widget; read it. */
#define XmNrowWidth ((char *)"rowWidth")
/** Resource class of XmNrowWidth. */
#define XmCRowWidth ((char *)"RowWidth")
#ifndef XmNmenuWidget
/** Resource \c menuWidget (Widget, default NULL, per view): a popup menu
 * that button 3 positions and manages. */
#define XmNmenuWidget ((char *)"menuWidget")
#endif
#ifndef XmCMenuWidget
/** Resource class of XmNmenuWidget, unless Motif defines it. */
#define XmCMenuWidget ((char *)"MenuWidget")
#endif
/** Resource \c openStateIcon (XwkIcon *, default the built-in one): state
 * icon of an open branch under XmSLAM_DEFAULT.  NULL shows none.  The icon
 * stays the caller's. */
#define XmNopenStateIcon ((char *)"openStateIcon")
/** Resource class of XmNopenStateIcon. */
#define XmCOpenStateIcon ((char *)"OpenStateIcon")
/** Resource \c selected (XtPointer, read only): the client data of the
 * current row, NULL without one. */
#define XmNselected ((char *)"selected")
/** Resource class of XmNselected. */
#define XmCSelected ((char *)"Selected")
/** Resource \c selectedIcon (XwkIcon *, default none, per view): under
 * single selection, the icon a selected row shows in place of its own;
 * with XmNcanSlam a branch also takes it as its icon while it is open.
 * The icon stays the caller's. */
#define XmNselectedIcon ((char *)"selectedIcon")
/** Resource class of XmNselectedIcon. */
#define XmCSelectedIcon ((char *)"SelectedIcon")
/** Resource \c slamPolicy (unsigned char, default XmSLAM_DEFAULT, set at
 * creation): XmSLAM_DEFAULT, all rows show the widget's three state icons;
 * XmSLAM_PER_ROW, each row has its own (XmPrjTreeAddItem).  A change later
 * gives the warning "You can't change slam policy on the fly!". */
#define XmNslamPolicy ((char *)"slamPolicy")
/** Resource class of XmNslamPolicy. */
#define XmCSlamPolicy ((char *)"SlamPolicy")
/** Resource \c visualMode (unsigned char, default XmSIMPLE_LIST):
 * XmSIMPLE_LIST, XmTABLE_LIST or XmSPREADSHEET.  In XmSPREADSHEET selected
 * rows are painted without fill or frame. */
#define XmNvisualMode ((char *)"visualMode")
/** Resource class of XmNvisualMode. */
#define XmCVisualMode ((char *)"VisualMode")
/** Resource \c sashCursor (Cursor, default None): the cursor over a column
 * boundary of the title bar. */
#define XmNsashCursor ((char *)"sashCursor")
/** Resource class of XmNsashCursor. */
#define XmCSashCursor ((char *)"SashCursor")
/** Resource \c delimeter (unsigned char, default ' '): the character that
 * separates the columns in the title string and in the labels of a list
 * with columns. */
#define XmNdelimeter ((char *)"delimeter")
/** Resource class of XmNdelimeter. */
#define XmCDelimeter ((char *)"Delimeter")
/** Resource \c titleWidget (Widget, default NULL, per view): the title bar
 * above the columns. */
#define XmNtitleWidget ((char *)"titleWidget")
/** Resource class of XmNtitleWidget. */
#define XmCTitleWidget ((char *)"TitleWidget")
/** Resource \c titleHeight (Dimension, default 0): the height of the title
 * bar; it is added to the scrolled window's height when XmNvisibleLines
 * sizes the list. */
#define XmNtitleHeight ((char *)"titleHeight")
/** Resource class of XmNtitleHeight. */
#define XmCTitleHeight ((char *)"TitleHeight")
/** Resource \c titleBackground (Pixel, default the background): background
 * of the title bar. */
#define XmNtitleBackground ((char *)"titleBackground")
/** Resource class of XmNtitleBackground. */
#define XmCTitleBackground ((char *)"TitleBackground")
/** Resource \c titleForeground (Pixel, default the foreground): text of the
 * title bar. */
#define XmNtitleForeground ((char *)"titleForeground")
/** Resource class of XmNtitleForeground. */
#define XmCTitleForeground ((char *)"TitleForeground")
/** Resource \c titleMargin (Dimension, default 1): margin around title items
 * and cells. */
#define XmNtitleMargin ((char *)"titleMargin")
/** Resource class of XmNtitleMargin. */
#define XmCTitleMargin ((char *)"TitleMargin")
/** Resource \c titleFontList (XmFontList, default NULL): font of the title
 * bar. */
#define XmNtitleFontList ((char *)"titleFontList")
/** Resource class of XmNtitleFontList. */
#define XmCTitleFontList ((char *)"TitleFontList")
/** Resource \c titleItemAlignment (unsigned char, default 0): alignment of
 * new title items, 0 beginning, 1 centre, 2 end. */
#define XmNtitleItemAlignment ((char *)"titleItemAlignment")
/** Resource class of XmNtitleItemAlignment. */
#define XmCTitleItemAlignment ((char *)"TitleItemAlignment")
/** Resource \c titleItemType (unsigned char, default XmCELL_LABEL): the cell
 * type (XmCELL_ values) of new title items and of their columns' cells. */
#define XmNtitleItemType ((char *)"titleItemType")
/** Resource class of XmNtitleItemType. */
#define XmCTitleItemType ((char *)"TitleItemType")
/** Resource \c layoutString (String, default NULL): a columns layout string
 * (`label:position,width;` for each column) that the widget keeps for the
 * application; the widget does not apply it by itself. */
#define XmNlayoutString ((char *)"layoutString")
/** Resource class of XmNlayoutString. */
#define XmCLayoutString ((char *)"LayoutString")
/** Resource \c titleDragIcon (XwkIcon *, default the built-in one): the icon
 * shown while a column title is dragged.  The icon stays the caller's. */
#define XmNtitleDragIcon ((char *)"titleDragIcon")
/** Resource class of XmNtitleDragIcon. */
#define XmCTitleDragIcon ((char *)"TitleDragIcon")
/** Resource \c defaultCharSet (String, default XmFONTLIST_DEFAULT_TAG): the
 * font list tag in which labels are drawn and measured.  A row keeps the
 * tag it was made with when this changes (XmPrjTreeSetItemCharset). */
#define XmNdefaultCharSet ((char *)"defaultCharSet")
/** Resource class of XmNdefaultCharSet. */
#define XmCDefaultCharSet ((char *)"DefaultCharSet")
/** Resource \c selectCharSet (String, default "BOLD"): the font list tag of
 * the sorted column's title. */
#define XmNselectCharSet ((char *)"selectCharSet")
/** Resource class of XmNselectCharSet. */
#define XmCSelectCharSet ((char *)"SelectCharSet")
/** Resource \c treeMarginWidth (Dimension, default 2, per view): margin
 * between the border and the rows, left and right. */
#define XmNtreeMarginWidth ((char *)"treeMarginWidth")
/** Resource class of XmNtreeMarginWidth. */
#define XmCTreeMarginWidth ((char *)"TreeMarginWidth")
/** Resource \c treeMarginHeight (Dimension, default 2, per view): margin
 * between the border and the rows, above and below. */
#define XmNtreeMarginHeight ((char *)"treeMarginHeight")
/** Resource class of XmNtreeMarginHeight. */
#define XmCTreeMarginHeight ((char *)"TreeMarginHeight")
/** Resource \c treeTrunkDrawing (Boolean, default True): lines join each row
 * to its parent, in XmNtreeTrunkColor, and state icons stand on the joints
 * from level 2 on. */
#define XmNtreeTrunkDrawing ((char *)"treeTrunkDrawing")
/** Resource class of XmNtreeTrunkDrawing. */
#define XmCTreeTrunkDrawing ((char *)"TreeTrunkDrawing")
/** Resource \c vFontPad (Dimension, default 1, class XmCMargin): padding
 * above and below a row's label. */
#define XmNvFontPad ((char *)"vFontPad")
/** Resource \c visibleLines (int, default 0, per view): the number of rows
 * the list, and its scrolled window, are sized to show.  0 leaves the
 * height to the widget's size; a height given at creation sets it.  Read,
 * it gives the number of rows that fit the page now. */
#define XmNvisibleLines ((char *)"visibleLines")
/** Resource class of XmNvisibleLines. */
#define XmCVisibleLines ((char *)"VisibleLines")
/** Resource \c vPad (Dimension, default 0, class XmCMargin): extra height of
 * every row. */
#define XmNvPad ((char *)"vPad")
/** Resource \c createIconProc (XmPrjTreeCreateIconProc, default NULL): makes
 * the built-in state icons, "OpenState", "ClosedState" and
 * "FruitlessState", from their pictures.  Without it the widget uses
 * XwkIconCreateFromData on the colour picture, then on the monochrome one;
 * an icon that cannot be made gives a warning and none. */
#define XmNcreateIconProc ((char *)"createIconProc")
/** Resource class of XmNcreateIconProc. */
#define XmCCreateIconProc ((char *)"CreateIconProc")
/** Resource \c sortProc (XmPrjTreeSortProc, default
 * XmPrjTreeDefaultSortProc): compares two sibling rows for the sorts;
 * NULL makes the sorts do nothing. */
#define XmNsortProc ((char *)"sortProc")
/** Resource class of XmNsortProc. */
#define XmCSortProc ((char *)"SortProc")
/** Resource \c useSort (Boolean, default False): a click on a sortable
 * column title sorts the rows by that column. */
#define XmNuseSort ((char *)"useSort")
/** Resource class of XmNuseSort. */
#define XmCUseSort ((char *)"UseSort")
/** Resource \c useAverageColumnWidth (Boolean, default True): at realize and
 * XmPrjTreeResizeWindow columns widen to the mean width of their cells,
 * not the widest. */
#define XmNuseAverageColumnWidth ((char *)"useAverageColumnWidth")
/** Resource class of XmNuseAverageColumnWidth. */
#define XmCUseAverageColumnWidth ((char *)"UseAverageColumnWidth")
/** Resource \c useTitleScrolling (Boolean, default True): the title bar has
 * arrows that scroll the columns sideways. */
#define XmNuseTitleScrolling ((char *)"useTitleScrolling")
/** Resource class of XmNuseTitleScrolling. */
#define XmCUseTitleScrolling ((char *)"UseTitleScrolling")
/** Resource \c sortColumn (int, default 1, per view): the column by which
 * XmPrjTreeDefaultSortProc sorts rows that were added through this view;
 * 0, or a list without columns, sorts by the labels.  A change of it alone
 * sets XmNsortDirection back to XmSORT_ASCENDING. */
#define XmNsortColumn ((char *)"sortColumn")
/** Resource class of XmNsortColumn. */
#define XmCSortColumn ((char *)"SortColumn")
/** Resource \c sortDirection (unsigned char, default XmSORT_ASCENDING, per
 * view): XmSORT_ASCENDING or XmSORT_DISCENDING, for
 * XmPrjTreeDefaultSortProc. */
#define XmNsortDirection ((char *)"sortDirection")
/** Resource class of XmNsortDirection. */
#define XmCSortDirection ((char *)"SortDirection")
/** Resource \c showGrid (Boolean, default False, per view): a line in
 * XmNgridColor under every row; the row height grows by 1. */
#define XmNshowGrid ((char *)"showGrid")
/** Resource class of XmNshowGrid. */
#define XmCShowGrid ((char *)"ShowGrid")
/** Resource \c cellTextField (Widget, per view): the XmText that edits text
 * cells, a child of the view named "cellTextField".  Reading it creates
 * the editor when there is none yet. */
#define XmNcellTextField ((char *)"cellTextField")
/** Resource class of XmNcellTextField. */
#define XmCCellTextField ((char *)"CellTextField")
/** Resource \c cellComboBox (Widget, per view): the XwkComboBox that edits
 * combo box cells, named "cellComboBox".  Reading it creates the editor
 * when there is none yet. */
#define XmNcellComboBox ((char *)"cellComboBox")
/** Resource class of XmNcellComboBox. */
#define XmCCellComboBox ((char *)"CellComboBox")
/** Resource \c cellPushButton (Widget, per view): the XmPushButton of push
 * button cells, named "cellPushButton".  Reading it creates the editor
 * when there is none yet. */
#define XmNcellPushButton ((char *)"cellPushButton")
/** Resource class of XmNcellPushButton. */
#define XmCCellPushButton ((char *)"CellPushButton")
/** Resource \c cellActive (Widget, default NULL): the editor now placed
 * over the active cell, NULL without one.  Cleared when that editor is
 * destroyed or the cell's row deleted. */
#define XmNcellActive ((char *)"cellActive")
/** Resource class of XmNcellActive. */
#define XmCCellActive ((char *)"CellActive")
/** Resource \c cellNodeId (XmPrjTreeNode, default NULL): the row of the
 * active cell. */
#define XmNcellNodeId ((char *)"cellNodeId")
/** Resource class of XmNcellNodeId. */
#define XmCCellNodeId ((char *)"CellNodeId")
/** Resource \c cellColumn (int, default 0): the column of the active cell,
 * from 1; 0 for none. */
#define XmNcellColumn ((char *)"cellColumn")
/** Resource class of XmNcellColumn. */
#define XmCCellColumn ((char *)"CellColumn")
/** Resource \c currentNodeId (XmPrjTreeNode, default NULL): kept for
 * compatibility; the widget does not use it.  XmPrjTreeGetSelectedItem
 * gives the current row. */
#define XmNcurrentNodeId ((char *)"currentNodeId")
/** Resource class of XmNcurrentNodeId. */
#define XmCCurrentNodeId ((char *)"CurrentNodeId")
/** Callback resource \c cellManageCallback: the active cell editor was
 * managed (reason XmCR_TREE_CELL_MANAGED) or unmanaged
 * (XmCR_TREE_CELL_UNMANAGED); the call data give the cell's node and
 * column, with part XmTREE_PART_CELL. */
#define XmNcellManageCallback ((char *)"cellManageCallback")

/* ---- Enumerations -------------------------------------------------------- */

/** XmNslamPolicy: every row shows the widget's three state icons. */
#define XmSLAM_DEFAULT 0
/** XmNslamPolicy: every row has its own three state icons. */
#define XmSLAM_PER_ROW 1
/** State of a branch (XmPrjTreeGetState): open, its children shown. */
#define XmSLAM_OPEN 0
/** State of a branch: closed, its children hidden. */
#define XmSLAM_CLOSE 1
/** State of a branch: not known yet, treated as closed; the state of rows
 * added by the simple adds.  A row in this state becomes
 * XmSLAM_CLOSE when a child is added to it. */
#define XmSLAM_UNDEFINED 2
/** State of a branch: fixed, it never opens or closes. */
#define XmSLAM_NONE 3
/** XmNvisualMode: a tree or flat list, one label a row. */
#define XmSIMPLE_LIST 0
/** XmNvisualMode: a table with a title bar and columns. */
#define XmTABLE_LIST 1
/** XmNvisualMode: a table whose editable cells always have an active
 * cell; selected rows show no fill and no frame. */
#define XmSPREADSHEET 2
/** XmNsortDirection: ascending. */
#define XmSORT_ASCENDING 0
/** XmNsortDirection: descending (spelled so since its first release). */
#define XmSORT_DISCENDING 1
/** Cell type: text. */
#define XmCELL_LABEL 0
/** Cell type: an icon. */
#define XmCELL_ICON 1
/** Cell type: an icon that a click passes to XmNactivateCallback with this
 * type, for the application to toggle. */
#define XmCELL_TOGGLE_ICON 2
/** Cell type: text edited in XmNcellTextField. */
#define XmCELL_EDIT_TEXT 3
/** Cell type: editable text with a list, in XmNcellComboBox. */
#define XmCELL_DROP_DOWN_COMBO_BOX 4
/** Cell type: a choice from a list, in XmNcellComboBox. */
#define XmCELL_DROP_DOWN_LIST 5
/** Cell type: a push button, XmNcellPushButton. */
#define XmCELL_PUSH_BUTTON 6
/** No cell: the \c cellType of call data that concern no cell. */
#define XmCELL_NONE 0xff

/** Hit part: no row, or no particular part (also the part of the focus
 * callbacks). */
#define XmTREE_PART_NOTHING 1
/** Hit part: the label, or anywhere right of its start. */
#define XmTREE_PART_LABEL 2
/** Hit part: the state icon, or the icon slot of a list without item
 * icons. */
#define XmTREE_PART_STATE_ICON 4
/** Hit part: the row's icon. */
#define XmTREE_PART_ICON 8
/** Hit part: the indentation left of the icon. */
#define XmTREE_PART_INDENT 16
/** Hit part: a cell of a list with columns. */
#define XmTREE_PART_CELL 32
/** All parts of a row together: the part of call data that concern the
 * whole row, and the mask of XmPrjTreeWhichNode for any part. */
#define XmTREE_PART_ROW 62

/** Kind of XmPrjTreeGetSpecifiedList: the rows' labels. */
#define XmTREE_LABEL_LIST 0
/** Kind of XmPrjTreeGetSpecifiedList: the rows' client data. */
#define XmTREE_USER_LIST 1
/** Kind of XmPrjTreeGetSpecifiedList: the rows' nodes. */
#define XmTREE_ID_LIST 2

/** Reason of XmNstartDragCallback: a drag of a row began; \c event is the
 * press that began it, \c node, \c part, \c column and \c cellType tell
 * what was hit. */
#define XmCR_TREE_START_DRAG 5046
/** Reason of XmNselectionChanged when the change has no event: \c node is
 * the current row (NULL if none is left), \c part XmTREE_PART_ROW,
 * \c cellType XmCELL_NONE. */
#define XmCR_TREE_SELECTION_CHANGED 5047
/** Reason of XmNcellManageCallback: the active cell's editor was managed;
 * \c node and \c column give the cell, \c part is XmTREE_PART_CELL. */
#define XmCR_TREE_CELL_MANAGED 5048
/** Reason of XmNcellManageCallback: the active cell's editor was unmanaged;
 * the data are those of XmCR_TREE_CELL_MANAGED. */
#define XmCR_TREE_CELL_UNMANAGED 5049
/** Reason of XmNdeleteCallback: \c node is being freed, with its
 * \c clientData and \c selected state; \c part XmTREE_PART_ROW, no event.
 * From the cell editor's keys \c doit comes True and a callback clears it
 * to keep the row. */
#define XmCR_TREE_DELETE_ITEM 5050
/** Reason of XmNinsertCallback: the user asked for a new row from a cell
 * editor; \c node is the active cell's row, with its \c clientData. */
#define XmCR_TREE_INSERT_ITEM 5051
/** Reason of the button procedure of a column title: \c column is the
 * column's number, \c cellType its type. */
#define XmCR_TREE_TITLE_ACTIVATE 5052

/** Call data of every callback of the tree list.  Fields a callback does
 * not concern are zero (column), NULL or XmCELL_NONE. */
typedef struct {
    int reason;                 /**< XmCR_TREE_ value, or Motif's XmCR_ACTIVATE, XmCR_DEFAULT_ACTION, XmCR_FOCUS, XmCR_LOSING_FOCUS, XmCR_SINGLE_SELECT or XmCR_MULTIPLE_SELECT */
    XEvent *event;              /**< the event that caused the call, NULL for none */
    XmPrjTreeNode node;         /**< the row concerned; NULL for a press below the rows */
    int part;                   /**< the XmTREE_PART_ value hit; XmTREE_PART_ROW for the whole row */
    XtPointer clientData;       /**< the client data of \c node, NULL without a node */
    Boolean selected;           /**< whether \c node was selected when the data were made (for a press: before the press) */
    int column;                 /**< column number from 1, 0 for none */
    int cellType;               /**< XmCELL_ type of the cell hit, XmCELL_NONE for none */
    Boolean doit;               /**< False, except before XmNdeleteCallback from a cell editor's keys, where it comes True and a callback clears it to veto */
} XmPrjTreeCallbackStruct;

/** A row's delete procedure (XmPrjTreeAddDeleteItemCallback), called once
 * when the row is freed, before XmNdeleteCallback.
 * \param node the row being freed; its client data can still be read.
 * \param data the data given with the procedure. */
typedef void (*XmPrjTreeDeleteProc)(XmPrjTreeNode node, XtPointer data);
/** A visitor of the tours (XmPrjTreeTourTree and its siblings).
 * \param node the row visited.
 * \param clientData the row's client data.
 * \param userData the data given to the tour.
 * \return True ends the tour; the tour answers that node. */
typedef Boolean (*XmPrjTreeTourProc)(XmPrjTreeNode node, XtPointer clientData, XtPointer userData);
/** A comparison of two sibling rows for XmNsortProc, in the manner of qsort.
 * \param a pointer to the first node pointer, as qsort gives it.
 * \param b pointer to the second node pointer.
 * \return below 0 when the first row comes first, 0 when either may, above
 * 0 when the second comes first. */
typedef int (*XmPrjTreeSortProc)(const void *a, const void *b);
/** A maker of the built-in state icons (XmNcreateIconProc).
 * \param w the tree list.
 * \param colourData the XPM picture in colour.
 * \param monoData the XPM picture in two colours, of the same size.
 * \param name the icon's name: "OpenState", "ClosedState" or
 * "FruitlessState".
 * \return the icon, which the widget frees with XwkIconFree when it is
 * destroyed, unless XtSetValues replaced it before; NULL when none could be
 * made (the widget then warns and shows none). */
typedef struct _XwkIcon *(*XmPrjTreeCreateIconProc)(Widget w, char **colourData, char **monoData,
                                                    const char *name);

/* ---- Creation ------------------------------------------------------------ */

/** Creates a tree list, unmanaged.  With XmNmother in the arguments it is a
 * view of that tree list.
 * \param parent the parent; in a scrolled window the list makes its own
 * scroll bars and sets the window's policies as XmCreateScrolledTreeList
 * does.
 * \param name the widget's name.
 * \param args the resources to set.
 * \param argCount the number of \p args.
 * \return the new widget. */
Widget XmCreatePrjTree(Widget parent, String name, ArgList args, Cardinal argCount);
/** Creates a tree list, unmanaged: the same as XmCreatePrjTree.
 * \param parent the parent; a scrolled window gives the list its scroll
 * bars.
 * \param name the widget's name.
 * \param args the resources to set.
 * \param argCount the number of \p args.
 * \return the new widget. */
Widget XmCreateTreeList(Widget parent, String name, ArgList args, Cardinal argCount);
/** Creates the tree list inside a scrolled window named name + "SW" ("SW"
 * for a NULL name).  The window is created managed, with the arguments and,
 * after them, application-defined scrolling, variable visual policy, static
 * scroll bars and no shadow; the list gets the arguments alone.
 * \param parent the parent of the scrolled window.
 * \param name the name of the tree list.
 * \param args the resources to set, on the window and on the list.
 * \param argCount the number of \p args.
 * \return the tree list, unmanaged; its parent is the window, which goes
 * when the list is destroyed. */
Widget XmCreateScrolledTreeList(Widget parent, String name, ArgList args, Cardinal argCount);

/* ---- Rows ---------------------------------------------------------------- */

/** Adds a row as the last child of a parent, and unless XmNdontMove lays out
 * and repaints what changed.
 * \param w the tree list or a view; the row remembers a view it was added
 * through (XmPrjTreeGetTreeWidgetFromItem).
 * \param parent the parent row; NULL or the root adds at the top level.  A
 * parent in XmSLAM_UNDEFINED becomes XmSLAM_CLOSE, so that the new row
 * stays hidden until it is opened.
 * \param label the text of the row, or NULL; the widget keeps its own copy.
 * \param icon the row's icon, or NULL; it stays the caller's.
 * \param clientData the application's value of the row.
 * \param slamState the row's XmSLAM_ state with XmNcanSlam (an invalid value
 * counts as XmSLAM_UNDEFINED); without it the row stands open.
 * \param fruitlessIcon with XmNcanSlam and XmSLAM_PER_ROW, the row's state
 * icon as a leaf; NULL takes XmNfruitlessStateIcon.  Otherwise ignored.
 * \param openIcon likewise, the row's state icon when open; NULL takes
 * XmNopenStateIcon.
 * \param closedIcon likewise, the row's state icon when closed; NULL takes
 * XmNclosedStateIcon.
 * \return the new row; NULL for a widget of another class, a parent of
 * another list or one being deleted, or a failed allocation. */
XmPrjTreeNode XmPrjTreeAddItem(Widget w, XmPrjTreeNode parent, const char *label,
                               struct _XwkIcon *icon, XtPointer clientData, int slamState,
                               struct _XwkIcon *fruitlessIcon, struct _XwkIcon *openIcon,
                               struct _XwkIcon *closedIcon);
/** Adds a row fast: as XmPrjTreeAddItem with XmSLAM_UNDEFINED and the
 * widget's state icons, but without a layout pass; the shared row sizes
 * only grow to fit the new row.  Unless XmNdontMove the scroll bars follow
 * and the rows on the page from the new one down are repainted.  This is
 * the way to fill long lists.
 * \param w the tree list or a view.
 * \param parent the parent row; NULL or the root adds at the top level.
 * \param label the text of the row; the widget keeps its own copy.
 * \param icon the row's icon, or NULL; it stays the caller's.
 * \param clientData the application's value of the row.
 * \return the new row; NULL for a NULL \p label and as XmPrjTreeAddItem. */
XmPrjTreeNode XmPrjTreeAddSimpleItemToItem(Widget w, XmPrjTreeNode parent, const char *label,
                                           struct _XwkIcon *icon, XtPointer clientData);
/** Adds a row at the top level without icon, fast, as
 * XmPrjTreeAddSimpleItemToItem.
 * \param w the tree list or a view.
 * \param label the text of the row; the widget keeps its own copy.
 * \param clientData the application's value of the row.
 * \return the new row; NULL for a NULL \p label or a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeAddSimpleItem(Widget w, const char *label, XtPointer clientData);
/** Deletes a row and all rows below it.  Each row freed calls its delete
 * procedure, then XmNdeleteCallback.  When the current row is the row or a
 * direct child of it, the row above becomes current and selected (for the
 * first row, its next sibling; when it has children, its first child,
 * which goes with it and leaves no current row, as it always has); a
 * current row deeper below leaves no current row.  Unless XmNdontMove the list is laid out and repainted.  Then
 * XmNselectionChanged is raised with XmCR_TREE_SELECTION_CHANGED, whether
 * or not the selection changed; deleting the only row is
 * XmPrjTreeDeleteAllItems and raises nothing.  The handles of the deleted
 * rows are invalid afterwards.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root, a row of another list or
 * a row being deleted. */
void XmPrjTreeDeleteItem(Widget w, XmPrjTreeNode node);
/** Deletes the rows below a row, in one batch: one layout and one repaint
 * at the end (unless XmNdontMove), no XmNselectionChanged; a current row
 * among them leaves no current row.
 * \param w the tree list or a view.
 * \param node the row; NULL or the root deletes all rows, as
 * XmPrjTreeDeleteAllItems.
 * \return for NULL or the root, the number of rows there were; otherwise 0
 * when nothing was deleted, else the number of children deleted plus 1 (the
 * extra one is kept for its callers, who test for 0).  0 for a widget of
 * another class. */
int XmPrjTreeDeleteChildren(Widget w, XmPrjTreeNode node);
/** Deletes rows, with all rows below each, in one batch: one layout and one
 * repaint at the end (unless XmNdontMove), no XmNselectionChanged; a
 * current row among them leaves no current row.  A row already freed with
 * one named before it, or by a callback, is skipped.
 * \param w the tree list or a view.
 * \param nodes the rows; the array stays the caller's.
 * \param n the number of \p nodes. */
void XmPrjTreeDeleteItems(Widget w, XmPrjTreeNode *nodes, int n);
/** Deletes every row.  Each row calls its delete procedure and
 * XmNdeleteCallback; no XmNselectionChanged is raised.  The views scroll
 * back to the start and, unless XmNdontMove, repaint.
 * \param w the tree list or a view. */
void XmPrjTreeDeleteAllItems(Widget w);
/** Sets the delete procedure of a row, replacing the one it had: it is
 * called once, when the row is freed, before XmNdeleteCallback, and also
 * when the rows go with the widget.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL.
 * \param proc the procedure; NULL does nothing (a procedure cannot be
 * removed).
 * \param data passed to \p proc; it stays the caller's. */
void XmPrjTreeAddDeleteItemCallback(Widget w, XmPrjTreeNode node, XmPrjTreeDeleteProc proc,
                                    XtPointer data);
/** Moves a row, with the rows below it, to be the last child of another
 * row, then lays out and repaints unless XmNdontMove.  When the new parent
 * lies below the row itself, the row's children first move up to the row's
 * old parent.  With XmNcanSlam the moved row keeps its place on the screen
 * until the shown rows are next rebuilt, unless the new parent lay below
 * it.
 * \param w the tree list or a view.
 * \param node the row to move.
 * \param newParent the new parent; the root for the top level.  NULL, the
 * row itself or a row of another list does nothing. */
void XmPrjTreeReparentItem(Widget w, XmPrjTreeNode node, XmPrjTreeNode newParent);
/** Puts the children of a row in a new order and repaints unless
 * XmNdontMove.  Open branches among them are closed for the move and
 * opened again.  Nothing happens for fewer than 2 children.
 * \param w the tree list or a view.
 * \param parent the row whose children move; NULL for the top level.
 * \param order for each place i below \p n, the 0-based place the child put
 * there had before.  Places from \p n on, and entries out of range, keep
 * their child; an order that names a child twice leaves the order as it
 * was.  The array stays the caller's.
 * \param n the number of entries of \p order. */
void XmPrjTreeArrangeChildren(Widget w, XmPrjTreeNode parent, int *order, int n);
/** Swaps the node with the sibling at the 1-based position: the sibling
 * takes the node's old place (an exchange, not a move), then the node is
 * scrolled into view and, unless XmNdontMove, the views repaint.
 * \param w the tree list or a view.
 * \param node the row to move.
 * \param position its new place among its siblings, from 1; out of range,
 * or its own place, does nothing. */
void XmPrjTreeSetItemPosition(Widget w, XmPrjTreeNode node, int position);
/** Tells a row's place among its siblings.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the place, from 1; -1 for NULL, the root or a widget of another
 * class. */
int XmPrjTreeGetItemPositionFromParent(Widget w, XmPrjTreeNode node);
/** Finds a row by its place among its siblings.
 * \param w the tree list or a view.
 * \param parent the parent row; NULL for the top level.
 * \param position the place, from 1.
 * \return the row; NULL when out of range or for a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeGetItemByPositionFromParent(Widget w, XmPrjTreeNode parent, int position);

/* ---- Finding and walking ------------------------------------------------- */

/** Gives the hidden root, the parent of the top-level rows.
 * \param w the tree list or a view.
 * \return the root; NULL for a widget of another class. */
XmPrjTreeNode XmPrjTreeGetRoot(Widget w);
/** Gives the first row shown.
 * \param w the tree list or a view.
 * \return the first top-level row, with XmNcanSlam the first row shown;
 * NULL for an empty list or a widget of another class. */
XmPrjTreeNode XmPrjTreeGetFirstNode(Widget w);
/** Gives the last row: with XmNcanSlam the last row shown, without it the
 * last row in preorder.
 * \param w the tree list or a view.
 * \return the row; NULL for an empty list or a widget of another class. */
XmPrjTreeNode XmPrjTreeGetLastNode(Widget w);
/** Steps down: the row's first child if it has children, else its next
 * sibling; with XmNcanSlam, when that gives none, the next row shown.
 * Without XmNcanSlam the last child of a branch has no next node.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the next node; NULL at the end, for NULL or the root, or for a
 * widget of another class. */
XmPrjTreeNode XmPrjTreeGetNextNode(Widget w, XmPrjTreeNode node);
/** Steps up: the last row below the previous sibling that is shown (closed
 * branches are not entered with XmNcanSlam), else the parent; with
 * XmNcanSlam, when that gives none, the previous row shown.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the previous node; NULL at the start, for NULL or the root, or
 * for a widget of another class. */
XmPrjTreeNode XmPrjTreeGetPreviousNode(Widget w, XmPrjTreeNode node);
/** Gives a row's parent.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the parent, which is the root for a top-level row; NULL for the
 * root, NULL or a widget of another class. */
XmPrjTreeNode XmPrjTreeGetParent(Widget w, XmPrjTreeNode node);
/** Gives a row's depth.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the level: 0 for the root, 1 for a top-level row; -1 for NULL or
 * a widget of another class. */
int XmPrjTreeGetNodeLevel(Widget w, XmPrjTreeNode node);
/** Gives a row's number in preorder from the root, shown or not: the root
 * is 0, the first row 1.  Numbers change as rows come, go and move.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the number; 0 for NULL or a widget of another class. */
int XmPrjTreeGetNodeNumber(Widget w, XmPrjTreeNode node);
/** Gives a row's first child.
 * \param w the tree list or a view.
 * \param node the row; NULL for the root.
 * \return the first child; NULL without children or for a widget of
 * another class. */
XmPrjTreeNode XmPrjTreeFindFirstChild(Widget w, XmPrjTreeNode node);
/** Finds a child by its label, compared with strcmp.
 * \param w the tree list or a view.
 * \param parent the row whose children are searched; NULL for the top
 * level.
 * \param label the label sought.
 * \return the first child with that label; NULL when none has it, for a
 * NULL \p label or for a widget of another class. */
XmPrjTreeNode XmPrjTreeFindItemOneLevel(Widget w, XmPrjTreeNode parent, const char *label);
/** Finds a row by its client data, in preorder over all rows, shown or not.
 * \param w the tree list or a view.
 * \param clientData the value sought, compared as a pointer.
 * \return the first row holding it; NULL when none does or for a widget of
 * another class. */
XmPrjTreeNode XmPrjTreeFindItemByClientData(Widget w, XtPointer clientData);
/** Finds the root for 0 and nothing else, as it always has: the search
 * never looks below the root, and callers rely on that.
 * \param w the tree list or a view.
 * \param number the node number sought.
 * \return the root for 0; NULL for any other number or a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeFindItemByNodeNumber(Widget w, int number);
/** True for direct children only, as it always has: a grandchild answers
 * False.
 * \param w the tree list or a view.
 * \param parent the supposed parent.
 * \param node the row.
 * \return True when \p node is a child of \p parent; False otherwise, for
 * NULL arguments or a widget of another class. */
Boolean XmPrjTreeIsParent(Widget w, XmPrjTreeNode parent, XmPrjTreeNode node);
/** Tells whether a node's number lies among the list's nodes.  The handle
 * is read, so it must point to a node that still stands: a handle of a
 * deleted row cannot be tested this way.
 * \param w the tree list or a view.
 * \param node the node, the root included.
 * \return True when its number is within the tree's count; False for NULL
 * or a widget of another class. */
Boolean XmPrjTreeItemExists(Widget w, XmPrjTreeNode node);
/** Tells whether a row can be seen now in this view: with XmNcanSlam all
 * its ancestors must be open, and in every mode its row must lie on the
 * view's page (a partly shown last row counts).
 * \param w the view asked.
 * \param node the row.
 * \return True when it is on the page; False otherwise, for NULL or the
 * root, or for a widget of another class. */
Boolean XmPrjTreeItemVisible(Widget w, XmPrjTreeNode node);
/** Counts a row's direct children.
 * \param w the tree list or a view.
 * \param node the row; NULL for the root, which gives the number of
 * top-level rows.
 * \return the count; 0 for a widget of another class. */
int XmPrjTreeGetItemsCount(Widget w, XmPrjTreeNode node);
/** Gives the view a row was added through, or the tree list that holds it;
 * takes no widget.
 * \param node the row.
 * \return the widget; NULL for NULL or the root. */
Widget XmPrjTreeGetTreeWidgetFromItem(XmPrjTreeNode node);
/** Gives a row's label.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the widget's own copy, not to be changed or freed; NULL for a row
 * without label, NULL, the root or a widget of another class. */
char *XmPrjTreeGetNameItem(Widget w, XmPrjTreeNode node);
/** Gives a row's client data.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the client data; NULL for NULL, the root or a widget of another
 * class. */
XtPointer XmPrjTreeGetClientData(Widget w, XmPrjTreeNode node);
/** Gives a row's client data; takes no widget, and checks none.
 * \param node the row.
 * \return the client data; NULL for NULL or the root. */
XtPointer XmPrjTreeGetClientDataFromNode(XmPrjTreeNode node);
/** Gives the client data of a row's parent.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the parent's client data; NULL for a top-level row, NULL, the
 * root or a widget of another class. */
XtPointer XmPrjTreeGetClientDataFromParent(Widget w, XmPrjTreeNode node);
/** Replaces a row's client data; XmNselected follows when it is the current
 * row.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL or the root.
 * \param clientData the new value; it stays the caller's. */
void XmPrjTreeSetClientData(Widget w, XmPrjTreeNode node, XtPointer clientData);
/** Gives the current row, the one of the location cursor; in multiple
 * selection other rows may be selected too (XmPrjTreeGetSelectedIdList).
 * \param w the tree list or a view.
 * \return the current row; NULL without one or for a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeGetSelectedItem(Widget w);
/** Gives the `t_` tree that holds the rows.  It stays the widget's: read it,
 * and change rows only through the widget.
 * \param w the tree list or a view.
 * \return the tree; NULL for a widget of another class. */
XwkTree *XmPrjTreeGetTreePtr(Widget w);
/** Gives the node of a row handle, which is the handle itself.
 * \param w the tree list or a view.
 * \param node the row.
 * \return \p node; NULL for a widget of another class. */
XmPrjTreeNode XmPrjTreeGetNodePtr(Widget w, XmPrjTreeNode node);

/* ---- Row attributes ------------------------------------------------------ */

/** Gives the colour of a row's label: the widget's foreground when the row
 * was made, unless set since.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the pixel; 0 for NULL, the root or a widget of another class. */
Pixel XmPrjTreeGetItemForeground(Widget w, XmPrjTreeNode node);
/** Sets the colour of a row's label, shown where it is not drawn as
 * selected.
 * \param w the tree list or a view.
 * \param node the row.
 * \param pixel the colour.
 * \param redraw True repaints the row on every view.
 * \return 1, also when nothing changed; 0 for NULL, the root, a row of
 * another list or a widget of another class. */
int XmPrjTreeSetItemForeground(Widget w, XmPrjTreeNode node, Pixel pixel, Boolean redraw);
/** Gives the font list tag of a row's label: its own, else XmNdefaultCharSet.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the tag, not to be freed; NULL for NULL, the root or a widget of
 * another class. */
char *XmPrjTreeGetItemCharSet(Widget w, XmPrjTreeNode node);
/** Sets the font list tag of a row's label, and measures the label again;
 * the row sizes grow to fit.
 * \param w the tree list or a view.
 * \param node the row.
 * \param charset the tag; the widget keeps the pointer, not a copy, so it
 * must last as long as the row (a string literal does).
 * \param redraw True repaints, unless XmNdontMove: all views when the rows
 * grew taller, else the row.
 * \return 1, also when the tag was the same; 0 for a NULL \p charset, NULL,
 * the root, a row of another list or a widget of another class. */
int XmPrjTreeSetItemCharset(Widget w, XmPrjTreeNode node, char *charset, Boolean redraw);
/** Gives a row's icons.  Each output pointer may be NULL, and is then left
 * out; on failure the outputs are left as they are.  The icons stay the
 * caller's who gave them.
 * \param w the tree list or a view.
 * \param node the row.
 * \param icon receives the row's icon, or NULL.
 * \param fruitless receives the row's own leaf state icon (XmSLAM_PER_ROW),
 * else NULL.
 * \param open receives the row's own open state icon, else NULL.
 * \param closed receives the row's own closed state icon, else NULL. */
void XmPrjTreeGetItemAttributes(Widget w, XmPrjTreeNode node, struct _XwkIcon **icon,
                                struct _XwkIcon **fruitless, struct _XwkIcon **open,
                                struct _XwkIcon **closed);
/** Sets a row's icons.  An icon wider than the icon column or taller than
 * the rows makes a layout pass and a repaint of all views (unless
 * XmNdontMove); otherwise only the row is repainted.  The icons stay the
 * caller's.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another list.
 * \param icon the row's new icon; NULL removes it.
 * \param fruitless under XmSLAM_PER_ROW, the row's leaf state icon, NULL for
 * the widget's; ignored otherwise.
 * \param open likewise, the open state icon.
 * \param closed likewise, the closed state icon. */
void XmPrjTreeSetItemAttributes(Widget w, XmPrjTreeNode node, struct _XwkIcon *icon,
                                struct _XwkIcon *fruitless, struct _XwkIcon *open,
                                struct _XwkIcon *closed);
/** Gives the widget's three state icons (XmNfruitlessStateIcon,
 * XmNopenStateIcon, XmNclosedStateIcon).  Each output pointer may be NULL,
 * and is then left out; on failure the outputs are left as they are.
 * \param w the tree list or a view.
 * \param fruitless receives the leaf state icon.
 * \param open receives the open state icon.
 * \param closed receives the closed state icon. */
void XmPrjTreeGetDefaultItemAttributes(Widget w, struct _XwkIcon **fruitless,
                                       struct _XwkIcon **open, struct _XwkIcon **closed);

/* ---- Lists and tours ----------------------------------------------------- */

/** Lists all rows, shown or not, in preorder.  Arrays come from XtCalloc,
 * with a NULL entry after the last; the caller frees the array, not its
 * members, with XtFree.
 * \param w the tree list or a view.
 * \param kind XmTREE_LABEL_LIST for the labels (the widget's own strings,
 * NULL for a row without label), XmTREE_USER_LIST for the client data,
 * XmTREE_ID_LIST (or any other value) for the nodes.
 * \param list receives the array; NULL when there is no row.
 * \return the number of entries; 0 for an empty list, a NULL \p list or a
 * widget of another class. */
int XmPrjTreeGetSpecifiedList(Widget w, int kind, XtPointer **list);
/** Lists the labels of all rows, as XmPrjTreeGetSpecifiedList with
 * XmTREE_LABEL_LIST; the caller frees the array, not the labels.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetLabelList(Widget w, char ***list);
/** Lists the client data of all rows, as XmPrjTreeGetSpecifiedList with
 * XmTREE_USER_LIST; the caller frees the array with XtFree.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetUserList(Widget w, XtPointer **list);
/** Lists the nodes of all rows, as XmPrjTreeGetSpecifiedList with
 * XmTREE_ID_LIST; the caller frees the array with XtFree.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetIdList(Widget w, XmPrjTreeNode **list);
/** Lists the selected rows, shown or not, in preorder, as
 * XmPrjTreeGetSpecifiedList does all rows.  The caller frees the array, not
 * its members, with XtFree.
 * \param w the tree list or a view.
 * \param kind XmTREE_LABEL_LIST, XmTREE_USER_LIST or XmTREE_ID_LIST.
 * \param list receives the array; NULL when no row is selected.
 * \return the number of entries; 0 when none is selected, for a NULL
 * \p list or a widget of another class. */
int XmPrjTreeGetSelectedSpecifiedList(Widget w, int kind, XtPointer **list);
/** Lists the labels of the selected rows; the caller frees the array, not
 * the labels, with XtFree.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetSelectedLabelList(Widget w, char ***list);
/** Lists the client data of the selected rows; the caller frees the array
 * with XtFree.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetSelectedUserList(Widget w, XtPointer **list);
/** Lists the nodes of the selected rows; the caller frees the array with
 * XtFree.
 * \param w the tree list or a view.
 * \param list receives the array, or NULL.
 * \return the number of entries; 0 for none or on failure. */
int XmPrjTreeGetSelectedIdList(Widget w, XmPrjTreeNode **list);
/** Lists the client data of the rows under a row.  The array comes from
 * XtCalloc; the caller frees it with XtFree.
 * \param w the tree list or a view.
 * \param node the row; NULL for the root.
 * \param directOnly True lists the children only; False lists the row
 * itself (not the root) and every row below it, in preorder.
 * \param list receives the array; NULL when it would be empty.
 * \return the number of entries; 0 for none, a NULL \p list or a widget of
 * another class. */
int XmPrjTreeGetChildrenUserList(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                 XtPointer **list);
/** Gives the number of selected rows, as the widget counts them.
 * \param w the tree list or a view.
 * \return the count; 0 for a widget of another class. */
int XmPrjTreeGetSelectedItemCount(Widget w);
/** Gives the number of selected rows: the same as
 * XmPrjTreeGetSelectedItemCount.
 * \param w the tree list or a view.
 * \return the count; 0 for a widget of another class. */
int XmPrjTreeGetSelectedItemsCount(Widget w);
/** Visits all rows, shown or not, in preorder.  The visitor may delete
 * rows, the visited one included: the tour goes on from the next row that
 * still stands.  It stops when the widget begins to be destroyed.
 * \param w the tree list or a view.
 * \param proc the visitor; True from it ends the tour.
 * \param data passed to \p proc as its last argument.
 * \return the row at which \p proc answered True; NULL when it never did,
 * when it deleted that row, for a NULL \p proc or a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeTourTree(Widget w, XmPrjTreeTourProc proc, XtPointer data);
/** Visits the rows under a row, in preorder, as XmPrjTreeTourTree.
 * \param w the tree list or a view.
 * \param node the row, which is not visited; NULL for the root.
 * \param directOnly True visits the children only, False every row below.
 * \param proc the visitor; True from it ends the tour.
 * \param data passed to \p proc as its last argument.
 * \return the row at which \p proc answered True; NULL when it never did,
 * when it deleted that row, for a NULL \p proc, a row of another list or a
 * widget of another class. */
XmPrjTreeNode XmPrjTreeTourChildren(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                    XmPrjTreeTourProc proc, XtPointer data);
/** Visits the selected rows, shown or not, in preorder, as
 * XmPrjTreeTourTree.
 * \param w the tree list or a view.
 * \param proc the visitor; True from it ends the tour.
 * \param data passed to \p proc as its last argument.
 * \return the top-level row under which (or at which) \p proc answered
 * True; NULL when it never did, for a NULL \p proc or a widget of another
 * class. */
XmPrjTreeNode XmPrjTreeTourSelected(Widget w, XmPrjTreeTourProc proc, XtPointer data);

/* ---- Branches and sorting ------------------------------------------------ */

/** Opens or closes a branch, and when realized and managed repaints what
 * moved.  Needs XmNcanSlam.  A
 * leaf in XmSLAM_UNDEFINED counts as closed.  When \p state is the row's
 * state nothing happens; any other value toggles the branch, as it always
 * has (so XmSLAM_NONE asked of an open row closes it).  A row in
 * XmSLAM_NONE never changes.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another list.
 * \param state the state wanted, an XmSLAM_ value. */
void XmPrjTreeChangeState(Widget w, XmPrjTreeNode node, int state);
/** Gives a row's branch state; an invalid stored value is repaired to
 * XmSLAM_UNDEFINED.
 * \param w the tree list or a view.
 * \param node the row.
 * \return the XmSLAM_ state; XmSLAM_UNDEFINED without XmNcanSlam; 0 for
 * NULL, the root or a widget of another class. */
int XmPrjTreeGetState(Widget w, XmPrjTreeNode node);
/** The default XmNsortProc.  Rows of different parents, NULL nodes or the
 * root compare as 1.  In a list without columns, or when the XmNsortColumn
 * of the view the first row was added through is 0, the labels are
 * compared with strcmp (a missing label gives 1).  With columns, the cells
 * of that column: two different icons compare by address, as they always
 * have, else the texts (a missing text takes the row's label).  With
 * XmSORT_DISCENDING the result is negated, the 1 of the cases above apart.
 * qsort is not stable: rows that compare equal come in no defined order.
 * \param a pointer to the first node pointer, as qsort gives it.
 * \param b pointer to the second node pointer.
 * \return below 0, 0 or above 0 as the first row comes before, with or
 * after the second. */
int XmPrjTreeDefaultSortProc(const void *a, const void *b);
/** Sorts the rows below a row with XmNsortProc: each set of siblings is
 * sorted by itself, level by level down, the tree is never flattened.
 * Nothing without XmNsortProc.
 * \param w the tree list or a view.
 * \param start the row whose descendants are sorted; NULL for all rows.
 * \param keepVisible True brings the active cell's row, else the current
 * row, into view, in the middle of the page if it has to scroll.
 * \param redraw True repaints all views, unless XmNdontMove. */
void _XmPrjTreeSortItems(Widget w, XmPrjTreeNode start, Boolean keepVisible, Boolean redraw);
/** Sorts all rows below a row (not only its children), keeping the current
 * row in view, and repaints: _XmPrjTreeSortItems(w, node, True, True).
 * \param w the tree list or a view.
 * \param node the row; NULL for all rows. */
void XmPrjTreeSortChildren(Widget w, XmPrjTreeNode node);
/** Sorts all rows and repaints: _XmPrjTreeSortItems(w, NULL, keepVisible,
 * True).
 * \param w the tree list or a view.
 * \param keepVisible True brings the current row into view, in the middle
 * of the page if it has to scroll. */
void XmPrjTreeSortItems(Widget w, Boolean keepVisible);

/* ---- Geometry and drawing ------------------------------------------------ */

/** Ends an update batch on this view: sets its XmNdontMove False, lays out
 * (with the column widths under XmNuseAverageColumnWidth), applies
 * XmNvisibleLines to a list not yet realized, and sets the scroll bars of
 * all views.
 * \param w the view.
 * \param redraw True repaints all views, cleared, once realized. */
void XmPrjTreeResizeWindow(Widget w, Boolean redraw);
/** Computes the size the list would like, after a layout pass.  The height
 * is that of XmNvisibleLines rows, or of the rows that fit now.  The width
 * is, for a list with XmNcanSlam and shown rows, the indentation of the
 * deepest shown row plus twice the margins, padding and highlight (and
 * the number of the widget's children); else the present width of a
 * realized list with rows, or the widest row and the shadow.  A height
 * that holds an exact number of rows counts as one row, as it always has.
 * \param w the tree list or a view.
 * \param width receives the width; 0 on failure.
 * \param height receives the height; 0 on failure.  Nothing is computed
 * when either pointer is NULL. */
void XmPrjTreeGetPreferedSize(Widget w, Dimension *width, Dimension *height);
/** Repaints a row on every view where it is on the page, unless the view
 * has XmNdontMove.
 * \param w the tree list or a view.
 * \param node the row; nothing for a row of another list. */
void XmPrjTreeUpdateNode(Widget w, XmPrjTreeNode node);
/** Repaints a row on every view, as XmPrjTreeUpdateNode.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another
 * list. */
void XmPrjTreeUpdateItem(Widget w, XmPrjTreeNode node);
/** Finds the row at a point of a view.
 * \param mask the XmTREE_PART_ values accepted, or'ed; XmTREE_PART_ROW
 * accepts any part of a row.
 * \param x the point's x in the view's window.
 * \param y the point's y in the view's window.
 * \param w the view.
 * \return the row when the part hit is in \p mask; NULL below the last row,
 * for another part or a widget of another class. */
XmPrjTreeNode XmPrjTreeWhichNode(int mask, int x, int y, Widget w);
/** Finds the client data of the row at a point, as XmPrjTreeWhichNode.
 * \param mask the XmTREE_PART_ values accepted, or'ed.
 * \param x the point's x in the view's window.
 * \param y the point's y in the view's window.
 * \param w the view.
 * \return the row's client data; NULL where XmPrjTreeWhichNode finds no
 * row. */
XtPointer XmPrjTreeWhichItem(int mask, int x, int y, Widget w);
/** True when the rectangle touches the redraw rectangle stored last: the
 * widgets of the library store the rectangle of each repaint and skip what
 * lies outside it.
 * \param stored the stored rectangle.
 * \param x the left edge of the rectangle tested.
 * \param y its top edge.
 * \param width its width.
 * \param height its height.
 * \return True when the two overlap by at least one pixel; False otherwise
 * and for a NULL \p stored. */
Boolean XwkRectInRegion(XRectangle *stored, int x, int y, int width, int height);

/* ---- Selection, keyboard and scrolling ----------------------------------- */

/** Makes a row current and raises XmNselectionChanged:
 * XmPrjTreeSetItem(w, node, True).
 * \param w the view that scrolls to the row.
 * \param node the row; the root means the first row. */
void XmPrjTreeSetNode(Widget w, XmPrjTreeNode node);
/** Makes a row current: except in multiple selection the old current row
 * is deselected; the row is selected if selectable; with XmNcanSlam the
 * closed branches above it open; the view scrolls to show it, in the
 * middle of the page if it must scroll, and repaints unless XmNdontMove.
 * A row already current and selected, or not selectable, changes nothing;
 * a clone then only scrolls to it.
 * \param w the view that scrolls to the row.
 * \param node the row; the root means the first row; nothing for NULL or a
 * row of another list.
 * \param notify True raises XmNselectionChanged with
 * XmCR_TREE_SELECTION_CHANGED, part XmTREE_PART_ROW and no event. */
void XmPrjTreeSetItem(Widget w, XmPrjTreeNode node, Boolean notify);
/** Selects a selectable row and counts it.  Nothing is painted: call
 * XmPrjTreeUpdateNode to show it.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another list. */
void XmPrjTreeSelectItem(Widget w, XmPrjTreeNode node);
/** Deselects a selectable row and counts it out.  Nothing is painted: call
 * XmPrjTreeUpdateNode to show it.
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another list. */
void XmPrjTreeDeselectItem(Widget w, XmPrjTreeNode node);
/** Lets a row be selected or not (rows are selectable when added).
 * \param w the tree list or a view.
 * \param node the row; nothing for NULL, the root or a row of another list.
 * \param selectable False also clears the row's selection, without
 * changing the count of selected rows, and paints nothing. */
void XmPrjTreeSetSelectable(Widget w, XmPrjTreeNode node, Boolean selectable);
/** Selects every selectable row, shown or not, repainting the shown ones
 * unless XmNdontMove, and raises XmNmultipleSelectionCallback with
 * XmCR_MULTIPLE_SELECT for each row in turn; a callback that deletes rows
 * ends the walk.
 * \param w the tree list or a view. */
void XmPrjTreeSelectAllItems(Widget w);
/** Deselects every row, shown or not, repainting the shown ones on all
 * views unless XmNdontMove, and raises XmNmultipleSelectionCallback with
 * XmCR_MULTIPLE_SELECT for each row in turn; the count of selected rows
 * is 0 after.
 * \param w the tree list or a view. */
void XmPrjTreeDeselectAllItems(Widget w);
/** Gives a view's scroll position.  Each output pointer may be NULL.
 * \param w the view.
 * \param x receives the horizontal origin in pixels; 0 when the view is not
 * in a scrolled window or on failure.
 * \param y receives the index of the top row; 0 likewise. */
void XmPrjTreeGetOrigins(Widget w, int *x, int *y);
/** Sets a view's scroll position, then its scroll bars and, unless
 * XmNdontMove, repaints it cleared.  Only in a scrolled window.
 * \param w the view.
 * \param x the horizontal origin in pixels; -1 leaves it.
 * \param y the index of the top row; -1 leaves it. */
void XmPrjTreeSetOrigins(Widget w, int x, int y);
/** Scrolls a view so that a row stands at the top, as far as the last page
 * allows.  Unrealized, unmanaged or under XmNdontMove, the position is
 * only stored.
 * \param w the view.
 * \param node the row; nothing for NULL, the root or a row of another list. */
void XmPrjTreeSetTopItem(Widget w, XmPrjTreeNode node);
/** Scrolls a view by one step of its scroll bar, as the bar's arrow does.
 * Only in a scrolled window.
 * \param w the view.
 * \param direction 1 up and 2 down (a row), 4 left and 8 right (the
 * font's widest character); other values do nothing. */
void XmPrjTreeScroll(Widget w, int direction);
/** Moves the drop-target mark, a frame independent of the selection, to a
 * row: the mark is removed from where it was, then set on the row.  A row
 * already marked keeps it.
 * \param w the view that shows the mark.
 * \param node the row; NULL only removes the mark. */
void XmPrjTreeHighlight(Widget w, XmPrjTreeNode node);
/** Sets the drop-target mark on a row of a view and paints it, without
 * removing the mark from another row (see XmPrjTreeHighlight).  A row off
 * the page is only recorded.
 * \param w the view that shows the mark.
 * \param node the row; nothing for NULL, the root or a row of another list. */
void XmPrjTreeHighlightNode(Widget w, XmPrjTreeNode node);
/** Removes the drop-target mark, on whichever view holds it.
 * \param w the tree list or a view. */
void XmPrjTreeUnhighlight(Widget w);
/** Gives the marked row's client data.
 * \param w the tree list or a view.
 * \return the client data; NULL without mark or for a widget of another
 * class. */
XtPointer XmPrjTreeGetHighlighted(Widget w);
/** Gives the view that shows the drop-target mark.
 * \param w the tree list or a view.
 * \return the view; NULL without mark or for a widget of another class. */
Widget XmPrjTreeGetHighlightedWidget(Widget w);
/** Shows the whole list as a drop target: the border's shadow goes out
 * (XmSHADOW_OUT) and is redrawn.  Only when realized and managed.
 * \param w the view whose border is redrawn. */
void XmPrjTreeShadowHighlight(Widget w);
/** Ends XmPrjTreeShadowHighlight: the shadow goes back in (XmSHADOW_IN).
 * Only when realized and managed.
 * \param w the view whose border is redrawn. */
void XmPrjTreeShadowUnhighlight(Widget w);
/** The update batch: False sets dontMove on every view, True ends it.  The
 * name is historical: it concerns no cell.  Ending the batch lays out, sets
 * the scroll bars and repaints all views when realized and managed.
 * \param w the tree list or a view.
 * \param editable False begins the batch, True ends it. */
void XmPrjTreeSetEditable(Widget w, Boolean editable);
/** Tells whether a view is out of an update batch.
 * \param w the view.
 * \return True when its XmNdontMove is False; False inside a batch or for a
 * widget of another class. */
Boolean XmPrjTreeGetEditable(Widget w);


/* ---- Title bar and columns ---------------------------------------------- */

/** Procedure of a title item's button (XmPrjTreeSetTitleItemButton), called
 * when the button is clicked.
 * \param w the view whose title was clicked.
 * \param data the data given with the procedure.
 * \param callData an XmPrjTreeCallbackStruct with reason
 * XmCR_TREE_TITLE_ACTIVATE, \c column the column's number and \c cellType
 * the title item's type. */
typedef void (*XmPrjTreeTitleButtonProc)(Widget w, XtPointer data, XtPointer callData);

/** Sets a title item's contents.
 * \param w the tree list or a view.
 * \param column the column's number, from 1 (hidden columns too).
 * \param type XmCELL_ICON or XmCELL_TOGGLE_ICON: \p value is an XwkIcon,
 * borrowed, and the column takes its width; any other type: \p value is the
 * label text, copied.
 * \param alignment 0 beginning, 1 centre, 2 end; any other value keeps the
 * present one.
 * \param value the icon or the label.
 * \return 0, or 255 for a bad column or widget.  The title's height can only grow. */
int XmPrjTreeSetTitleItem(Widget w, int column, int type, int alignment, XtPointer value);
/** Sets the label of a title item of type XmCELL_LABEL; other items are left.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param label the text, copied; NULL is taken as "".
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetTitleItemLabel(Widget w, int column, const char *label);
/** The label of a title item.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return the widget's own string, not to be freed; NULL for a bad column. */
char *XmPrjTreeGetTitleItemLabel(Widget w, int column);
/** Sets the alignment of a title item.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param alignment 0 beginning, 1 centre, 2 end; others become 0.
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetTitleItemAlignment(Widget w, int column, int alignment);
/** Sets the type of a title item.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param type an XmCELL_ value; others are refused.
 * \return 0, or 255 for a bad column or type. */
int XmPrjTreeSetTitleItemType(Widget w, int column, int type);
/** Sets a column's width, never below the width of the rows' icon slot
 * (the widest row icon measured).
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param width in pixels.
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetTitleItemWidth(Widget w, int column, int width);
/** A column's width.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return the width in pixels; 0 for a hidden or bad column. */
int XmPrjTreeGetTitleItemWidth(Widget w, int column);
/** Puts a button with an icon at the start of a title item; a click on it
 * calls \p proc.  The column widens by the icon's width + 4.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param icon the button's picture, borrowed; replaces any earlier one.
 * \param proc called on a click, or NULL.
 * \param data passed to \p proc.
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetTitleItemButton(Widget w, int column, struct _XwkIcon *icon,
                                XmPrjTreeTitleButtonProc proc, XtPointer data);
/** The icon of a title item's button.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return the icon, borrowed; NULL without a button or for a bad column. */
struct _XwkIcon *XmPrjTreeGetTitleItemButtonIcon(Widget w, int column);
/** Hides a column; its cells stay in every row and it keeps its number.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return 0, or 255 for a bad column.  Title and rows repaint unless dontMove. */
int XmPrjTreeHideColumn(Widget w, int column);
/** Shows a hidden column again in its place.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return 0, or 255 for a bad column. */
int XmPrjTreeShowColumn(Widget w, int column);
/** Sets the default type and alignment of a column's cells, for rows added
 * later, and makes the editor that the type needs.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param type an XmCELL_ value.
 * \param alignment 0 beginning, 1 centre, 2 end; others become 0.
 * \return 0, or 255 for a bad column or type. */
int XmPrjTreeSetColumnType(Widget w, int column, int type, int alignment);
/** The default cell type of a column.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \return an XmCELL_ value, or 255 for a bad column. */
int XmPrjTreeGetColumnType(Widget w, int column);
/** Lets the user resize a column by dragging its right boundary, or not.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param adjustable True (the default) or False.
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetColumnAdjustable(Widget w, int column, Boolean adjustable);
/** Lets a click on the column's title sort the rows (with XmNuseSort), or not.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param sortable True or False (the default).
 * \return 0, or 255 for a bad column. */
int XmPrjTreeSetColumnSortable(Widget w, int column, Boolean sortable);
/** XmPrjTreeSetColumnSortable for every column.
 * \param w the tree list or a view.
 * \param sortable True or False.
 * \return 0, or 255 without columns. */
int XmPrjTreeSetAllColumnsSortable(Widget w, Boolean sortable);
/** The view's sort column and direction.
 * \param w the view.
 * \param direction receives XmSORT_ASCENDING or XmSORT_DISCENDING; may be NULL.
 * \return the column's number (XmNsortColumn), or -1 in a list without columns. */
int XmPrjTreeGetSortColumn(Widget w, unsigned char *direction);

/** The columns' order, first shown column and widths as a string: for
 * each column in display order "label:position,width", joined by ";",
 * where position counts from the first shown column (0 for that one,
 * negative before it).  Applications save it and give it back to
 * XmPrjTreeSetColumnsLayoutString.
 * \param w the tree list or a view.
 * \return a string from XtCalloc that the caller frees with XtFree; NULL
 * without columns or with fewer than 2. */
char *XmPrjTreeGetColumnsLayoutString(Widget w);
/** Counts the leading entries of a layout string that are sound: each
 * needs a label of an existing column, a ":" and a ",".
 * \param w the tree list or a view.
 * \param string the layout string; written into while it is read and
 * restored (it must be writable).
 * \return the count; compare it with the number of columns. */
int XmPrjTreeCheckLayoutString(Widget w, char *string);
/** Applies a layout string: columns named in it are put in its order, the
 * one at position 0 becomes the first shown, and each takes its width, in
 * pixels or, after a "%", in percent of the list's width.  Unknown labels
 * are skipped; a missing width leaves the column's.  Reading stops at an
 * entry without ":".
 * \param w the tree list or a view.
 * \param string the layout string, not changed.
 * \return the number of entries read; with some, title and rows repaint
 * unless dontMove. */
int XmPrjTreeSetColumnsLayoutString(Widget w, const char *string);

/* ---- Cells --------------------------------------------------------------- */

/** Sets a cell's type, alignment and value, creating the row's cells if it
 * has none yet.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \param type an XmCELL_ value.
 * \param alignment 0 beginning, 1 centre, 2 end; others become 0.
 * \param value an XwkIcon (borrowed) for the icon types; the text (copied)
 * for XmCELL_LABEL and XmCELL_PUSH_BUTTON; for XmCELL_EDIT_TEXT and the
 * combo types the text goes into the active editor of this cell only.
 * \return 1, or 0 for a bad row, column or type. */
int XmPrjTreeSetColumnItem(Widget w, XmPrjTreeNode node, int column, int type, int alignment,
                           XtPointer value);
/** Sets a cell's text (in a list without columns, the row's label).  An
 * editor showing the cell follows.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \param text the text, copied.
 * \return 1, or 0 for a bad row or column. */
int XmPrjTreeSetColumnLabel(Widget w, XmPrjTreeNode node, int column, const char *text);
/** A cell's text; for the active cell the editor's text is written back
 * first.  In a list without columns, the row's label.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \return the widget's own string, not to be freed; NULL for a bad cell. */
char *XmPrjTreeGetColumnLabel(Widget w, XmPrjTreeNode node, int column);
/** The icon of a cell of type XmCELL_ICON or XmCELL_TOGGLE_ICON (in a list
 * without columns, the row's icon).
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \return the icon, borrowed, or NULL. */
struct _XwkIcon *XmPrjTreeGetColumnIcon(Widget w, XmPrjTreeNode node, int column);
/** Sets the icon of a cell of type XmCELL_ICON or XmCELL_TOGGLE_ICON.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \param icon the icon, borrowed.
 * \return 1, or 0 for another type or a bad cell. */
int XmPrjTreeSetColumnIcon(Widget w, XmPrjTreeNode node, int column, struct _XwkIcon *icon);
/** A cell's type.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \return an XmCELL_ value, or 255 for a bad cell. */
int XmPrjTreeGetCellType(Widget w, XmPrjTreeNode node, int column);
/** Sets a cell's type and repaints the row.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \param type an XmCELL_ value.
 * \return 1, or 0 for a bad cell or type. */
int XmPrjTreeSetCellType(Widget w, XmPrjTreeNode node, int column, int type);
/** Gives a column the entries of its combo box; a column of another type
 * becomes XmCELL_DROP_DOWN_COMBO_BOX.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param items the entries; not copied: the table stays the caller's and
 * must live as long as the column uses it.
 * \param count the number of entries.
 * \return 1, or 0 for a bad column. */
int XmPrjTreeSetComboBoxItems(Widget w, int column, XmStringTable items, int count);
/** The entries of a column's combo box.
 * \param w the tree list or a view.
 * \param column the column's number.
 * \param count receives the number of entries; may be NULL.
 * \return the caller's table given to XmPrjTreeSetComboBoxItems, or NULL. */
XmStringTable XmPrjTreeGetComboBoxItems(Widget w, int column, int *count);
/** Chooses an entry of a combo cell; the cell's text becomes that entry.  A
 * cell of another type becomes XmCELL_DROP_DOWN_COMBO_BOX.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \param position the entry, from 1.
 * \return 1, or 0 for a bad cell. */
int XmPrjTreeSetColumnComboBoxPosition(Widget w, XmPrjTreeNode node, int column, int position);
/** The entry chosen in a combo cell, read from the editor for the active cell.
 * \param w the tree list or a view.
 * \param node the row.
 * \param column the column's number.
 * \return the position from 1, or 0. */
int XmPrjTreeGetColumnComboBoxPosition(Widget w, XmPrjTreeNode node, int column);
/** Makes a cell the active cell, its editor placed over it with the focus.
 * \param w the view.
 * \param node the row.
 * \param column the column's number.
 * \return True if the cell is editable and became active. */
Boolean XmPrjTreeGotoColumn(Widget w, XmPrjTreeNode node, int column);
/** Moves the active cell.
 * \param w the view.
 * \param direction XmTRAVERSE_UP, XmTRAVERSE_DOWN, XmTRAVERSE_PREV or
 * XmTRAVERSE_LEFT (the previous editable cell), XmTRAVERSE_NEXT or
 * XmTRAVERSE_RIGHT (the next one).
 * \return 1 when it moved, else 0. */
int XmPrjTreeProcessTraversalCell(Widget w, int direction);
/** Tells a view it has (or lacks) the keyboard focus, as its own focus
 * handling would, and repaints the current row for it.
 * \param w the view.
 * \param hasFocus True or False. */
void XmPrjTreeProcessTraversal(Widget w, Boolean hasFocus);
/** Gives a row a new label or icon.  In a list with columns the label is
 * split into the cells again.
 * \param w the tree list or a view.
 * \param node the row.
 * \param label the new label, copied, or NULL to keep it.
 * \param icon the new icon, borrowed, or NULL to keep it.
 * \return 1, or 0 with neither label nor icon, a bad row or an empty list. */
int XmPrjTreeRenameItem(Widget w, XmPrjTreeNode node, const char *label, struct _XwkIcon *icon);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
