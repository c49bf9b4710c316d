/*
 * Xwk/ComboBox.h - a single-line text, an arrow button and a list that pops
 * up in its own shell; or, as popup_list, the list alone.
 *
 * The list takes the pointer and keyboard while it is up and gives both back
 * when it goes down, whichever way that happens.
 */
#ifndef XWK_COMBOBOX_H
#define XWK_COMBOBOX_H

#include <Xm/Xm.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

extern WidgetClass xwkComboBoxWidgetClass;

typedef struct _XwkComboBoxClassRec *XwkComboBoxWidgetClass;
typedef struct _XwkComboBoxRec *XwkComboBoxWidget;

/* Values of XmNcomboBoxType (representation type XwkRComboBoxType). */
#define XwkCOMBO_BOX 0             /* not offered: taken as drop_down_list */
#define XwkDROP_DOWN_COMBO_BOX 1   /* editable text */
#define XwkDROP_DOWN_LIST 2        /* read-only text */
#define XwkPOPUP_LIST 3            /* no text, no arrow: the list alone */

/* Values of XwkNarrowPlacement. */
#define XwkARROW_LEFT 0
#define XwkARROW_RIGHT 1

#define XwkRComboBoxType "XwkComboBoxType"
#define XwkNarrowPlacement "arrowPlacement"
#define XwkCArrowPlacement "ArrowPlacement"
#define XwkRArrowPlacement "ArrowPlacement"
#define XwkNtextMarginHeight "textMarginHeight"
#define XwkCTextMarginHeight "TextMarginHeight"
#define XwkNtextMarginWidth "textMarginWidth"
#define XwkCTextMarginWidth "TextMarginWidth"

/* Reason of selectionCallback when an item is chosen from the list. */
#define XwkCR_COMBO_SELECT 1046

typedef struct {
    int reason;
    XEvent *event;
    XmString item;
    int position;      /* from 1; 0 for a text that is no item */
} XwkComboBoxCallbackStruct;

Widget XwkCreateComboBox(Widget parent, String name, ArgList args, Cardinal num_args);

void XwkComboBoxAddItem(Widget w, XmString item, int pos, Boolean unique);
void XwkComboBoxDeleteItem(Widget w, XmString item, Boolean notify);
void XwkComboBoxDeletePos(Widget w, int pos, Boolean notify);
void XwkComboBoxDeleteAllItems(Widget w);
/* Position of the item selected, 0 if not found, -1 for a wrong widget. */
int XwkComboBoxSetItem(Widget w, XmString item);
int XwkComboBoxSelectItem(Widget w, XmString item, Boolean notify);
int XwkComboBoxSelectPos(Widget w, int pos, Boolean notify);
int XwkComboBoxReplaceItem(Widget w, XmString old_item, XmString new_item);
void XwkComboBoxUpdate(Widget w);
Boolean XwkComboBoxProcessXY(Widget w, Position x, Position y);
void XwkComboBoxPopupList(Widget w, Position x, Position y);

Widget XwkComboBoxGetText(Widget w);
Widget XwkComboBoxGetList(Widget w);
Widget XwkComboBoxGetShell(Widget w);
Widget XwkComboBoxGetArrow(Widget w);

/* Draws the combo box arrow: a downward arrow over a bar, in a shadowed box. */
void _XwkComboBoxDrawArrowButton(Display *display, Drawable d, GC top, GC bottom, GC fill,
                                 int thickness, int x, int y, int width, int height,
                                 Boolean pressed, Boolean clear);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
