/**
 * \file
 * \ingroup desk
 * \brief XmPrjDesk, the desk list: a flat collection of items shown as a
 * grid of icons with centred labels, scrolled by whole rows.
 *
 * An item is a node of an XwkList (Xwk/Lists.h) whose user word holds the
 * item's record; callers hold nodes as opaque handles (XmPrjDeskNode), and
 * a node's \c index is the item's position from 0.  Every function checks
 * the widget's class first and answers 0 (or -1, or nothing) for a widget
 * of another class, without a message.
 *
 * **Ownership.** The widget keeps its own copy of each label.  Icons
 * (XwkIcon records, Xwk/Graphics.h) and client data stay the caller's: the
 * widget borrows them, so they must outlive the items that show them.
 * Lists handed to the caller come from XtCalloc: the caller frees the
 * array, not its members, with XtFree.
 *
 * **Grid.** The desk lays its items out in as many columns as fit its
 * width and scrolls by whole rows.  It does so only as the work window of
 * a scrolled window (XmCreateScrolledDeskList makes one): elsewhere it
 * shows one cell.
 *
 * **Clones.** A desk list created with XmNmother naming another desk list
 * is a clone of it: it shows the items of its mother with its own size,
 * scroll position and focus.  Every function acts on the mother's items
 * whichever desk it is given, and XtSetValues on a clone is passed on to
 * the mother.
 *
 * **Bulk changes.** XmPrjDeskSetEditable(w, False) sets XmNdontMove on the
 * mother and every clone: items may then be added, renamed and deleted in
 * any number without sorting, layout or painting, and
 * XmPrjDeskSetEditable(w, True) sorts, lays out and repaints once.
 *
 * **Callbacks.** Every callback gets an XmPrjDeskCallbackStruct.  The lists
 * stand in the mother and serve every clone; the widget passed is the one
 * in which the event happened.
 *
 * | Resource | Reason | Raised |
 * |---|---|---|
 * | XmNselectionChanged | XmCR_SINGLE_SELECT | a press, a keyboard move, XmPrjDeskSetItem |
 * | XmNsingleSelectionCallback | XmCR_SINGLE_SELECT | a press or Ctrl press on an item, rubber band changes, with XmNselectionPolicy XmSINGLE_SELECT |
 * | XmNmultipleSelectionCallback | XmCR_MULTIPLE_SELECT | the same with XmNselectionPolicy XmMULTIPLE_SELECT |
 * | XmNdefaultActionCallback | XmCR_DEFAULT_ACTION | a double click on one item, Return |
 * | XmNfocusCallback, XmNlosingFocusCallback | XmCR_FOCUS, XmCR_LOSING_FOCUS | the desk takes or loses the keyboard focus |
 * | XmNstartDragCallback | XmCR_TREE_START_DRAG (5046) | the drag gesture on an item: button 2, or button 1 held or moved on the current or a selected item when the display's enableBtn1Transfer is 1 or 2 |
 *
 * **Resources.** The names shared with the tree list are defined in
 * Xwk/PrjTree.h, Motif's own names in Xm/Xm.h.
 *
 * | Name | Type | Default | Meaning |
 * |---|---|---|---|
 * | mother | Widget | NULL | the desk this one is a clone of; at creation only |
 * | clones, numClones | WidgetList, Cardinal | NULL, 0 | the clones of the mother; read only |
 * | activeBackground, activeForeground | Pixel | select colour, foreground | label of a selected item while the desk has the focus |
 * | inactiveBackground, inactiveForeground | Pixel | select colour, foreground | label of a selected item without the focus |
 * | dontMove | Boolean | False | no sorting, layout or painting |
 * | sortItems | Boolean | True | keep the items sorted after each addition or rename |
 * | sortProc | XmPrjDeskSortProc | XmPrjDeskDefaultSortProc | comparison of two items |
 * | marginWidth, marginHeight | Dimension | 2 | space inside the shadow |
 * | hPad, vPad | Dimension | 2 | gap between columns, between rows |
 * | hIconPad | Dimension | 5 | pad around the icon inside its box, both ways |
 * | vFontPad | Dimension | 0 | gap between icon box and label |
 * | menuWidget | Widget | NULL | popup menu of the DeskPopupMenu action |
 * | fontList | XmFontList | default render table | font of the labels |
 * | maxChars | int | 12 | labels longer than this wrap, in characters |
 * | selected | XtPointer | NULL | client data of the current item; read only |
 * | selectionPolicy | unsigned char | XmSINGLE_SELECT | XmSINGLE_SELECT, or XmMULTIPLE_SELECT for the rubber band |
 * | selectionChanged ... losingFocusCallback | XtCallbackList | NULL | see the table of callbacks |
 * | shadowType | unsigned char | XmSHADOW_IN | the border |
 * | scrollBarDisplayPolicy | unsigned char | XmAS_NEEDED | kept; the bar shows when rows are hidden |
 *
 * **Actions.** DeskKbdKey, DeskScroll, DeskButtonMotion, DeskBeginSelect,
 * DeskEndSelect, DeskBeginToggle, DeskEndToggle, DeskFocusIn, DeskFocusOut,
 * DeskEnter, DeskLeave, DeskActivate, DeskHelp, DeskProcessDrag,
 * DeskProcessBtn1, DeskProcessBtn2 and DeskPopupMenu, for translations of
 * the application's own.  DeskKbdKey takes a code: "n" and "p" next and
 * previous tab group, "1" "2" up and down a row, "l" "r" previous and next
 * item, "3" "4" a page up and down, "5" "6" first and last item.
 * DeskScroll takes "PageUp", "PageDown", "Up" or "Down" and an optional
 * divisor of the page.
 */
#ifndef XWK_PRJDESK_H
#define XWK_PRJDESK_H

#include <Xm/Xm.h>
#include <Xwk/Lists.h>
#include <Xwk/PrjTree.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** The widget class of the desk list, for XtCreateWidget and XtIsSubclass. */
extern WidgetClass xmPrjDeskWidgetClass;

/** Pointer to the class record of the desk list (Xwk/PrjDeskP.h). */
typedef struct _XmPrjDeskClassRec *XmPrjDeskWidgetClass;
/** Pointer to the instance record of a desk list (Xwk/PrjDeskP.h). */
typedef struct _XmPrjDeskRec *XmPrjDeskWidget;
/** Handle of an item: a node of the desk's item list.  Valid until the
 * item is deleted. */
typedef XwkListNode *XmPrjDeskNode;
struct _XwkIcon;

/* ---- Resource names ------------------------------------------------------ */

/** Resource \c sortItems (Boolean, default True): the items are sorted with
 * XmNsortProc after each addition and each rename of a label. */
#define XmNsortItems ((char *)"sortItems")
/** Resource class of XmNsortItems. */
#define XmCSortItems ((char *)"SortItems")
/** Resource \c maxChars (int, default 12): a label longer than this many
 * characters is broken into lines of about this length, at character
 * counts, never at words. */
#define XmNmaxChars ((char *)"maxChars")
/** Resource class of XmNmaxChars. */
#define XmCMaxChars ((char *)"MaxChars")

/* ---- Call data ----------------------------------------------------------- */

/** The call data of every callback of the desk list.  Zeroed, then filled
 * for the item concerned; the arrays are the widget's, valid during the
 * call only. */
typedef struct {
    int reason;                 /**< XmCR_ value */
    XEvent *event;              /**< the event, or NULL */
    XtPointer userData;         /**< client data of the item */
    unsigned char selected;     /**< the item is selected */
    char *label;                /**< the item's label, the widget's copy; NULL when none */
    int position;               /**< the item's position, from 1 */
    char **selectedLabels;      /**< labels of the selected items in list order, with XmMULTIPLE_SELECT */
    int selectedCount;          /**< number of selected items */
    int *selectedPositions;     /**< positions from 1 of the selected items, with XmMULTIPLE_SELECT */
} XmPrjDeskCallbackStruct;

/** Called when an item is freed (XmPrjDeskAddDeleteItemCallback).
 * \param node the item's node, still valid during the call.
 * \param clientData the data given with the procedure. */
typedef void (*XmPrjDeskDeleteProc)(XmPrjDeskNode node, XtPointer clientData);
/** Search procedure of XmPrjDeskFindItem.
 * \param userData the client data of an item.
 * \param clientData the data given to XmPrjDeskFindItem.
 * \return 0 for the item looked for. */
typedef int (*XmPrjDeskFindProc)(XtPointer userData, XtPointer clientData);
/** Visit procedure of XmPrjDeskTourDesk.
 * \param node the item's node.
 * \param userData the item's client data.
 * \param clientData the data given to XmPrjDeskTourDesk.
 * \return non-zero in the low byte to stop the tour at this item. */
typedef int (*XmPrjDeskTourProc)(XmPrjDeskNode node, XtPointer userData, XtPointer clientData);
/** Comparison of two items, for qsort.
 * \param a pointer to the first item's node pointer.
 * \param b pointer to the second item's node pointer.
 * \return negative, 0 or positive as the first sorts before, with or after
 * the second. */
typedef int (*XmPrjDeskSortProc)(const void *a, const void *b);

/* ---- Creation ------------------------------------------------------------ */

/** Creates a desk list, unmanaged.
 * \param parent the parent; a scrolled window gives the desk its grid.
 * \param name the widget name.
 * \param args the creation arguments.
 * \param argCount their number.
 * \return the widget. */
Widget XmCreatePrjDesk(Widget parent, String name, ArgList args, Cardinal argCount);
/** The same as XmCreatePrjDesk.
 * \param parent the parent.
 * \param name the widget name.
 * \param args the creation arguments.
 * \param argCount their number.
 * \return the widget. */
Widget XmCreateDeskList(Widget parent, String name, ArgList args, Cardinal argCount);
/** Creates a managed scrolled window named \p name + "SW" (application
 * defined scrolling, variable visual policy, static scroll bars, no
 * shadow, after the caller's arguments) and in it an unmanaged desk list
 * with the caller's arguments.  Destroying the desk destroys the window.
 * \param parent the parent of the scrolled window.
 * \param name the desk's name.
 * \param args the creation arguments, given to both.
 * \param argCount their number.
 * \return the desk list. */
Widget XmCreateScrolledDeskList(Widget parent, String name, ArgList args, Cardinal argCount);

/* ---- Items --------------------------------------------------------------- */

/** Adds an item at the end of the list, then, unless XmNdontMove is set,
 * sorts with XmNsortItems and lays out and repaints the desks.
 * \param w the desk or a clone.
 * \param label the label, copied; NULL for none.
 * \param icon the icon, borrowed; NULL for none.
 * \param userData the item's client data.
 * \return the item's node; NULL for a widget of another class. */
XmPrjDeskNode XmPrjDeskAddItem(Widget w, const char *label, struct _XwkIcon *icon, XtPointer userData);
/** Gives an item a new label, a new icon or both, and sorts again with
 * XmNsortItems when the label changed.
 * \param w the desk.
 * \param label the new label, copied; NULL keeps the old one.
 * \param icon the new icon, borrowed; NULL keeps the old one.
 * \param node the item.
 * \return 1; 0 when \p node is NULL or both \p label and \p icon are. */
Boolean XmPrjDeskRenameItem(Widget w, const char *label, struct _XwkIcon *icon, XmPrjDeskNode node);
/** Deletes an item.  The current item moves to the previous item, or to
 * the next when it was the first.  The item's delete procedure runs.
 * \param w the desk.
 * \param node the item; invalid afterwards. */
void XmPrjDeskDeleteItem(Widget w, XmPrjDeskNode node);
/** Deletes every item, scrolls the desks to the top and clears them.
 * \param w the desk. */
void XmPrjDeskDeleteAllItems(Widget w);
/** Selects an item, without repainting.  The count of selected items goes
 * up by 1 whether or not the item was selected already, so select an item
 * once only.  An item that is not selectable has its mark cleared instead.
 * \param w the desk.
 * \param node the item.
 * \return 1; 0 for a NULL node or a desk being destroyed. */
Boolean XmPrjDeskSelectItem(Widget w, XmPrjDeskNode node);
/** Deselects an item, without repainting; the count goes down by 1 in
 * every case.
 * \param w the desk.
 * \param node the item.
 * \return 1; 0 for a NULL node or a desk being destroyed. */
Boolean XmPrjDeskDeselectItem(Widget w, XmPrjDeskNode node);
/** Sets whether the user may select an item (items are selectable when
 * added).  The widget's class is not checked.
 * \param w the desk.
 * \param node the item.
 * \param selectable True or False. */
void XmPrjDeskSetSelectable(Widget w, XmPrjDeskNode node, Boolean selectable);
/** Makes an item current, scrolls it into view and raises
 * XmNselectionChanged with reason XmCR_SINGLE_SELECT and no event.
 * \param w the desk that scrolls.
 * \param node the item; NULL for the first. */
void XmPrjDeskSetItem(Widget w, XmPrjDeskNode node);
/** The item at a point of the desk's window.  A point in the gaps of a
 * cell hits nothing.
 * \param w the desk.
 * \param x the point's x.
 * \param y the point's y.
 * \return the item's client data, or NULL. */
XtPointer XmPrjDeskWhichItem(Widget w, int x, int y);
/** The current item, selected or not.
 * \param w the desk.
 * \return its node, or NULL. */
XmPrjDeskNode XmPrjDeskGetSelectedItem(Widget w);
/** The selected items.
 * \param w the desk.
 * \param items set to an array of their nodes in list order, NULL-ended,
 * from XtCalloc: the caller frees it.  Set to NULL when none is selected.
 * \return their number. */
int XmPrjDeskGetSelectedItems(Widget w, XmPrjDeskNode **items);
/** The count of selected items the desk keeps.
 * \param w the desk.
 * \return the count. */
int XmPrjDeskGetSelectedItemCount(Widget w);
/** The same as XmPrjDeskGetSelectedItemCount.
 * \param w the desk.
 * \return the count. */
int XmPrjDeskGetSelectedItemsCount(Widget w);
/** The first item for which a procedure answers 0.
 * \param w the desk.
 * \param proc called with each item's client data and \p clientData.
 * \param clientData passed to \p proc.
 * \return the item's node, or NULL. */
XmPrjDeskNode XmPrjDeskFindItem(Widget w, XmPrjDeskFindProc proc, XtPointer clientData);
/** Calls a procedure for each item in list order, until it answers
 * non-zero in its low byte.
 * \param w the desk.
 * \param proc the procedure.
 * \param clientData passed to \p proc.
 * \return the node at which it stopped, or NULL. */
XmPrjDeskNode XmPrjDeskTourDesk(Widget w, XmPrjDeskTourProc proc, XtPointer clientData);
/** Sets an item's client data.
 * \param w the desk.
 * \param node the item; NULL is ignored.
 * \param data the new client data. */
void XmPrjDeskSetClientData(Widget w, XmPrjDeskNode node, XtPointer data);
/** An item's client data.
 * \param w the desk.
 * \param node the item.
 * \return the data; NULL for a NULL node. */
XtPointer XmPrjDeskGetClientData(Widget w, XmPrjDeskNode node);
/** An item's client data, without a widget.
 * \param node the item.
 * \return the data; NULL for a NULL node. */
XtPointer XmPrjDeskGetClientDataFromItem(XmPrjDeskNode node);
/** The desk through which an item was added.
 * \param node the item.
 * \return the widget; NULL for a NULL node. */
Widget XmPrjDeskGetDeskWidgetFromItem(XmPrjDeskNode node);
/** The number of items.
 * \param w the desk.
 * \return the number; -1 for a widget of another class. */
int XmPrjDeskGetItemsCount(Widget w);
/** An array of one word of every item, in list order.
 * \param w the desk.
 * \param kind 0 labels (the widget's copies), 2 nodes, any other value
 * client data.
 * \param list set to the array, NULL-ended, from XtCalloc: the caller frees
 * it.  NULL for an empty desk; untouched for a widget of another class.
 * \return the number of items. */
int XmPrjDeskGetSpecifiedList(Widget w, int kind, XtPointer **list);
/** XmPrjDeskGetSpecifiedList of kind 0.
 * \param w the desk.
 * \param list set to the array of labels.
 * \return the number of items. */
int XmPrjDeskGetLabelList(Widget w, char ***list);
/** XmPrjDeskGetSpecifiedList of kind 1.
 * \param w the desk.
 * \param list set to the array of client data.
 * \return the number of items. */
int XmPrjDeskGetUserList(Widget w, XtPointer **list);
/** XmPrjDeskGetSpecifiedList of kind 2.
 * \param w the desk.
 * \param list set to the array of nodes.
 * \return the number of items. */
int XmPrjDeskGetIdList(Widget w, XmPrjDeskNode **list);
/** The default XmNsortProc: strcmp of the labels, an item without a label
 * counting as "".
 * \param a pointer to the first node pointer.
 * \param b pointer to the second node pointer.
 * \return as strcmp. */
int XmPrjDeskDefaultSortProc(const void *a, const void *b);
/** Sorts the items with XmNsortProc.  Nodes stay valid and are numbered
 * again from 0; the current item and the selection stay.
 * \param w the desk. */
void XmPrjDeskSortItems(Widget w);
/** Sets the procedure called when an item is freed.
 * \param w the desk.
 * \param node the item; NULL is ignored.
 * \param proc the procedure; NULL is ignored.
 * \param clientData passed to \p proc. */
void XmPrjDeskAddDeleteItemCallback(Widget w, XmPrjDeskNode node, XmPrjDeskDeleteProc proc,
                                    XtPointer clientData);

/* ---- Drawing and scrolling ----------------------------------------------- */

/** Draws the drop-target frame around an item, in the highlight colour.
 * \param w the desk that shows it.
 * \param node the item. */
void XmPrjDeskHighlight(Widget w, XmPrjDeskNode node);
/** Takes the drop-target frame away.
 * \param w the desk. */
void XmPrjDeskUnhighlight(Widget w);
/** Draws the desk's border with its shadows exchanged, as a drop target.
 * \param w the desk. */
void XmPrjDeskShadowHighlight(Widget w);
/** Draws the desk's border as it normally is.
 * \param w the desk. */
void XmPrjDeskShadowUnhighlight(Widget w);
/** The scroll origin.
 * \param w the desk.
 * \param x set to 0.
 * \param y set to the top row shown, in a scrolled window; else 0.
 * \return 1; 0 for a widget of another class. */
int XmPrjDeskGetOrigins(Widget w, int *x, int *y);
/** Sets the top row, in a scrolled window.
 * \param w the desk.
 * \param x not used but as a change request.
 * \param y the top row; -1 keeps it, other negative values give 0.
 * \return 1; 0 outside a scrolled window. */
int XmPrjDeskSetOrigins(Widget w, int x, int y);
/** Scrolls by one row with the scroll bar, as its arrows do.
 * \param w the desk.
 * \param flags bit 0 up, bit 1 down. */
void XmPrjDeskScroll(Widget w, int flags);
/** Sets XmNdontMove to the opposite on the mother and every clone; True
 * then sorts, lays out and repaints.
 * \param w the desk.
 * \param editable True to lay out again, False to freeze. */
void XmPrjDeskSetEditable(Widget w, Boolean editable);
/** Whether the desk is not frozen.
 * \param w the desk.
 * \return not XmNdontMove. */
Boolean XmPrjDeskGetEditable(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
