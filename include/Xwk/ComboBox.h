/**
 * \file
 * \ingroup companions
 * \brief The combo box: a single-line text, an arrow button and a list that
 * pops up in its own shell; or, as popup_list, the list alone.
 *
 * XwkComboBox is a Motif manager widget (class name "XwkComboBox", a
 * subclass of xmManagerWidgetClass).  Its children are the text "Text" (an
 * XmText) and the arrow "Button" (an XmDrawnButton), except in the
 * popup_list kind, which has neither; the list "List" (an XmList in a
 * scrolled window) sits in a frame in an override-redirect vendor shell
 * "Shell", a popup child of the combo box.  The popup_list kind serves as
 * a menu popped up where the caller wants it.
 *
 * The list takes the pointer and keyboard while it is up and gives both
 * back when it goes down, whichever way that happens (a choice, Escape, a
 * click outside, the destruction of the widget).  The grabs are taken by a
 * work procedure once the shell is on the screen.  While the list is up,
 * keys reach the list wherever the pointer is, a press on one of its
 * scroll bars does not close it, and the wheel scrolls it; a press of
 * buttons 1 to 3 outside closes it.  The release of the click that opened
 * the list, within the multi-click time, leaves it open.  A list that does
 * not fit below the combo box opens above it.
 *
 * Resources, besides those of XmManager:
 *
 * | Name | Type | Default | Meaning |
 * |---|---|---|---|
 * | XmNcomboBoxType | XwkRComboBoxType | XwkDROP_DOWN_LIST | the kind, see XwkCOMBO_BOX .. XwkPOPUP_LIST |
 * | XmNshadowThickness | horizontal dimension | 2 | the shadow round text and arrow |
 * | XmNshadowType | shadow type | XmSHADOW_IN | |
 * | XmNhighlightThickness | horizontal dimension | 2 | drawn while the text has the focus |
 * | XmNmarginWidth, XmNmarginHeight | dimensions | 2, 0 | inside the shadow; -1 is taken as 2.  With a shadow type other than XmSHADOW_OUT they are added to the text's margins at creation and are 0 afterwards |
 * | XwkNtextMarginWidth, XwkNtextMarginHeight | dimensions | 5, 2 | margins of the text |
 * | XmNlistMarginWidth, XmNlistMarginHeight | dimensions | 2, 2 | margins of the list |
 * | XmNarrowSpacing | horizontal dimension | 0 | between text and arrow |
 * | XwkNarrowPlacement | XwkRArrowPlacement | XwkARROW_RIGHT | side of the arrow |
 * | XmNcolumns | short | 20 | columns of the text |
 * | XmNmaxLength | int | 32767 | longest text |
 * | XmNitems, XmNitemCount | XmString table, int | NULL, 0 | the list's items, copied by the list |
 * | XmNvisibleItemCount | int | 10 | rows of the list (at least 1) |
 * | XmNselectedItem | XmString | NULL | the chosen item or typed text; copied |
 * | XmNselectedPosition | int | 1 | position of the chosen item, from 1 |
 * | XmNactivateCallback | callback | | Return in the text: reason XmCR_ACTIVATE |
 * | XmNselectionCallback | callback | | a choice: reason XwkCR_COMBO_SELECT, or XmCR_ACTIVATE on Return |
 * | XmNfocusCallback | callback | | the text got the focus: reason XmCR_FOCUS |
 * | XmNlosingFocusCallback | callback | | the text lost the focus: reason XmCR_LOSING_FOCUS |
 *
 * Every callback gets an XwkComboBoxCallbackStruct.  The kind cannot move
 * between popup_list and the others after creation (such a change is
 * ignored); between drop_down_combo_box and drop_down_list it only makes
 * the text editable or not.  A new XmNitems, XmNitemCount or
 * XmNvisibleItemCount goes on to the list; the caller's table stays the
 * caller's.  XtGetValues of XmNitems gives the list's own table, borrowed.
 *
 * The keyboard: osfDown or osfUp with Control, osfSelect and space pop the
 * list up; in the text, osfDown and osfUp choose the next and previous
 * item and Control with osfBeginLine or osfEndLine the first and last;
 * Return activates, and with Control also presses the default button of
 * the parent.  In the list, osfCancel and Control with osfDown or
 * osfUp close it without a choice.
 */
#ifndef XWK_COMBOBOX_H
#define XWK_COMBOBOX_H

#include <Xm/Xm.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** The class pointer of XwkComboBox, for XtCreateWidget and XtIsSubclass. */
extern WidgetClass xwkComboBoxWidgetClass;

/** Pointer to the class record of XwkComboBox (see Xwk/ComboBoxP.h). */
typedef struct _XwkComboBoxClassRec *XwkComboBoxWidgetClass;
/** Pointer to an XwkComboBox instance record (see Xwk/ComboBoxP.h). */
typedef struct _XwkComboBoxRec *XwkComboBoxWidget;

/* Values of XmNcomboBoxType (representation type XwkRComboBoxType). */

/** XmNcomboBoxType "combo_box", a list that is always visible: not offered.
 * The widget warns ("Sorry, type of XmCOMBO_BOX while is not implemented,
 * using default.") at creation and at every XtSetValues that gives it, and
 * takes XwkDROP_DOWN_LIST instead.  An unknown value is taken as
 * XwkDROP_DOWN_LIST without a warning. */
#define XwkCOMBO_BOX 0
/** XmNcomboBoxType "drop_down_combo_box": an editable text.  Return in it
 * looks the text up among the items; a click in it is for the text and
 * does not pop the list up. */
#define XwkDROP_DOWN_COMBO_BOX 1
/** XmNcomboBoxType "drop_down_list", the default: a read-only text without
 * cursor; a click anywhere on it pops the list up. */
#define XwkDROP_DOWN_LIST 2
/** XmNcomboBoxType "popup_list": no text, no arrow, the list alone, popped
 * up by XwkComboBoxPopupList. */
#define XwkPOPUP_LIST 3

/* Values of XwkNarrowPlacement. */

/** XwkNarrowPlacement "left": the arrow left of the text. */
#define XwkARROW_LEFT 0
/** XwkNarrowPlacement "right", the default: the arrow right of the text.
 * An unknown value is taken as this one. */
#define XwkARROW_RIGHT 1

/** Representation type of XmNcomboBoxType, registered by the class with
 * the names "combo_box", "drop_down_combo_box", "drop_down_list" and
 * "popup_list" (values XwkCOMBO_BOX to XwkPOPUP_LIST). */
#define XwkRComboBoxType "XwkComboBoxType"
/** Resource name: the side of the arrow, XwkARROW_LEFT or XwkARROW_RIGHT
 * (type XwkRArrowPlacement, class XwkCArrowPlacement, default
 * XwkARROW_RIGHT). */
#define XwkNarrowPlacement "arrowPlacement"
/** Resource class of XwkNarrowPlacement. */
#define XwkCArrowPlacement "ArrowPlacement"
/** Representation type of XwkNarrowPlacement, registered by the class with
 * the names "left" and "right". */
#define XwkRArrowPlacement "ArrowPlacement"
/** Resource name: the margin above and below the string inside the text
 * (vertical dimension, class XwkCTextMarginHeight, default 2).
 * XtGetValues reads the text's own margin. */
#define XwkNtextMarginHeight "textMarginHeight"
/** Resource class of XwkNtextMarginHeight. */
#define XwkCTextMarginHeight "TextMarginHeight"
/** Resource name: the margin left and right of the string inside the text
 * (horizontal dimension, class XwkCTextMarginWidth, default 5).
 * XtGetValues reads the text's own margin. */
#define XwkNtextMarginWidth "textMarginWidth"
/** Resource class of XwkNtextMarginWidth. */
#define XwkCTextMarginWidth "TextMarginWidth"

/**
 * Reason of XmNselectionCallback when an item is chosen (1046).
 *
 * Called when an item is chosen in the list with a click or the keyboard
 * (after the list has gone down), by osfUp and osfDown, and Control with
 * osfBeginLine or osfEndLine, in the text of a drop_down_list (a
 * drop_down_combo_box changes its text and position without a callback),
 * and by XwkComboBoxSelectItem,
 * XwkComboBoxSelectPos, XwkComboBoxDeletePos and XwkComboBoxDeleteItem
 * when asked to notify.  The call data is an XwkComboBoxCallbackStruct;
 * its event is NULL for the calls of the functions.
 */
#define XwkCR_COMBO_SELECT 1046

/**
 * Call data of every callback list of the combo box.
 */
typedef struct {
    int reason;        /**< XwkCR_COMBO_SELECT, XmCR_ACTIVATE, XmCR_FOCUS or XmCR_LOSING_FOCUS. */
    XEvent *event;     /**< The event that caused the call, or NULL. */
    XmString item;     /**< The selected item, or the typed text that is no item; NULL when
                            there is none.  Borrowed: the widget's or the list's, valid during
                            the call; copy it with XmStringCopy to keep it. */
    int position;      /**< Position of the item, from 1; 0 for a text that is no item. */
} XwkComboBoxCallbackStruct;

/**
 * Creates an unmanaged combo box (XtCreateWidget of xwkComboBoxWidgetClass).
 *
 * \param parent   Parent widget.
 * \param name     Widget name.
 * \param args     Resources to set, or NULL.
 * \param num_args Number of \p args.
 * \return The new combo box.
 */
Widget XwkCreateComboBox(Widget parent, String name, ArgList args, Cardinal num_args);

/**
 * Adds an item to the list, then runs XwkComboBoxUpdate.
 *
 * Nothing happens for a widget that is no combo box or is being destroyed,
 * or for a NULL item.
 *
 * \param w      The combo box.
 * \param item   The item; the list keeps a copy, \p item stays the caller's.
 * \param pos    Position from 1 that the item takes; 0 appends it.
 * \param unique True: an item equal to one already in the list is not added.
 */
void XwkComboBoxAddItem(Widget w, XmString item, int pos, Boolean unique);
/**
 * Deletes the first item equal to \p item (XmStringCompare), as
 * XwkComboBoxDeletePos does.
 *
 * \param w      The combo box.
 * \param item   The item to look for; stays the caller's.
 * \param notify True: call XmNselectionCallback when the item was the
 *               selected one.
 */
void XwkComboBoxDeleteItem(Widget w, XmString item, Boolean notify);
/**
 * Deletes the item at a position.
 *
 * When it is the selected item and others remain, its neighbour is
 * selected first (the second for position 1, else the one before).  Then
 * XwkComboBoxUpdate runs.  A position out of range, an empty list, a
 * widget that is no combo box or one being destroyed are ignored.
 *
 * \param w      The combo box.
 * \param pos    Position from 1; 0 for the last item.
 * \param notify True: call XmNselectionCallback with reason
 *               XwkCR_COMBO_SELECT and no event when the deleted item was
 *               the selected one.
 */
void XwkComboBoxDeletePos(Widget w, int pos, Boolean notify);
/**
 * Deletes all items and runs XwkComboBoxUpdate, which empties the text.
 * Ignored for a widget that is no combo box or is being destroyed.
 *
 * \param w The combo box.
 */
void XwkComboBoxDeleteAllItems(Widget w);
/**
 * Selects the first item equal to \p item and shows it, without a callback.
 *
 * \param w    The combo box.
 * \param item The item to look for; stays the caller's.
 * \return Position of the item selected, 0 if not found (or \p item is
 *         NULL, or the widget is being destroyed), -1 for a wrong widget.
 */
int XwkComboBoxSetItem(Widget w, XmString item);
/**
 * Deselects everything, then selects the first item equal to \p item and
 * shows it.
 *
 * \param w      The combo box.
 * \param item   The item to look for; stays the caller's.
 * \param notify True: call XmNselectionCallback with reason
 *               XwkCR_COMBO_SELECT and no event.
 * \return Position of the item selected, 0 if not found (or \p item is
 *         NULL, or the widget is being destroyed), -1 for a wrong widget.
 */
int XwkComboBoxSelectItem(Widget w, XmString item, Boolean notify);
/**
 * Selects the item at a position and shows it.
 *
 * \param w      The combo box.
 * \param pos    Position from 1.  A position outside 1 .. item count
 *               selects nothing and leaves the text as it is (and is still
 *               returned).
 * \param notify True: call XmNselectionCallback with reason
 *               XwkCR_COMBO_SELECT and no event.
 * \return \p pos; 0 when the widget is being destroyed, -1 for a wrong
 *         widget.
 */
int XwkComboBoxSelectPos(Widget w, int pos, Boolean notify);
/**
 * Replaces the first item equal to \p old_item by \p new_item, keeping it
 * selected if it was, then runs XwkComboBoxUpdate.  No callback.
 *
 * \param w        The combo box.
 * \param old_item The item to look for; stays the caller's.
 * \param new_item The new item; the list keeps a copy, it stays the caller's.
 * \return Position of the item replaced; 0 when the two are equal, either
 *         is NULL or \p old_item is not found; -1 for a wrong widget.
 */
int XwkComboBoxReplaceItem(Widget w, XmString old_item, XmString new_item);
/**
 * Takes up the list's items and selection again, after the list was
 * changed directly (through XwkComboBoxGetList).
 *
 * Forgets XmNselectedItem, reads XmNitems, XmNitemCount and
 * XmNvisibleItemCount back from the list and, when there are items, takes
 * the first selected position of the list.  With nothing selected there,
 * the text is looked for among the items and selects the item found, else
 * the first.  The selected item is scrolled into view and shown in the
 * text.  No callback.
 *
 * \param w The combo box; ignored when it is none or is being destroyed.
 */
void XwkComboBoxUpdate(Widget w);
/**
 * Handles a click given from outside, at a position in the combo box, as
 * the widget would; for instance a cell editor passes on the click that
 * opened it.
 *
 * Over the arrow's columns, or anywhere on a drop_down_list, the list pops
 * up (when the arrow is sensitive).  Elsewhere on a drop_down_combo_box
 * the text takes the focus and its insertion cursor goes to the character
 * at that position.  A popup_list does nothing.
 *
 * \param w The combo box.
 * \param x Horizontal position in \p w's coordinates.
 * \param y Vertical position in \p w's coordinates.
 * \return True when the list was popped up, otherwise False.
 */
Boolean XwkComboBoxProcessXY(Widget w, Position x, Position y);
/**
 * Pops the list up at a position, with its present size.
 *
 * The shell is moved left or up by just enough to lie on the screen, and
 * never to a negative position.  Only for the popup_list kind, or for a
 * combo box without items; ignored as well while the list is up.  The
 * keyboard focus is not moved to the text.
 *
 * \param w The combo box.
 * \param x Horizontal position of the list's top left corner, in \p w's
 *          coordinates.
 * \param y Vertical position of the list's top left corner, in \p w's
 *          coordinates.
 */
void XwkComboBoxPopupList(Widget w, Position x, Position y);

/**
 * The text child (an XmText).
 *
 * \param w The combo box.
 * \return The text, borrowed (it goes with the combo box); NULL for the
 *         popup_list kind or a widget that is no combo box.
 */
Widget XwkComboBoxGetText(Widget w);
/**
 * The list (an XmList in a scrolled window, in a frame in the shell).
 * Call XwkComboBoxUpdate after changing it directly.
 *
 * \param w The combo box.
 * \return The list, borrowed (it goes with the combo box); NULL for a
 *         widget that is no combo box.
 */
Widget XwkComboBoxGetList(Widget w);
/**
 * The override-redirect shell in which the list pops up.
 *
 * \param w The combo box.
 * \return The shell, borrowed (it goes with the combo box); NULL for a
 *         widget that is no combo box.
 */
Widget XwkComboBoxGetShell(Widget w);
/**
 * The arrow button (an XmDrawnButton).  Making it insensitive keeps the
 * list from popping up.
 *
 * \param w The combo box.
 * \return The arrow, borrowed (it goes with the combo box); NULL for the
 *         popup_list kind or a widget that is no combo box.
 */
Widget XwkComboBoxGetArrow(Widget w);

/**
 * Draws the combo box arrow: a downward arrow over a bar, in a shadowed box.
 *
 * The arrow's side is the inner width less the thickness and less a sixth
 * of the inner width (inner width = \p width - 2 x \p thickness); it stands
 * at \p x + 2 x \p thickness, an eighth of the inner height below the top
 * shadow (right at it when \p height is under 15).  The bar below it is 2
 * pixels high, 3 when the inner height is 21 or more.  Nothing is drawn
 * when \p width or \p height is not more than 2 x \p thickness.
 *
 * \param display   The display.
 * \param d         Window or pixmap to draw on.
 * \param top       Context of the top shadow colour.
 * \param bottom    Context of the bottom shadow colour.
 * \param fill      Context of the background, for \p clear and the arrow's inside.
 * \param thickness Shadow thickness of the box, in pixels.
 * \param x         Left edge of the box.
 * \param y         Top edge of the box.
 * \param width     Width of the box.
 * \param height    Height of the box.
 * \param pressed   True: the arrow's shadows are drawn sunken.
 * \param clear     True: the box is filled with \p fill and its outer
 *                  shadow (out) drawn first.
 */
void _XwkComboBoxDrawArrowButton(Display *display, Drawable d, GC top, GC bottom, GC fill,
                                 int thickness, int x, int y, int width, int height,
                                 Boolean pressed, Boolean clear);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
