/*
 * Xwk/ComboBoxP.h - private records of the combo box.
 */
#ifndef XWK_COMBOBOXP_H
#define XWK_COMBOBOXP_H

#include <Xwk/ComboBox.h>
#include <Xm/ManagerP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Bits of the flags field. */
#define XwkCB_ARROW_PRESSED   (1 << 0)
#define XwkCB_SCROLLBAR_PRESS (1 << 1)
#define XwkCB_TEXT_FOCUS      (1 << 2)
#define XwkCB_LIST_UP         (1 << 3)
#define XwkCB_LIST_PRESS      (1 << 4)
#define XwkCB_SCROLLBAR_GRAB  (1 << 5)

typedef struct {
    XtPointer extension;
} XwkComboBoxClassPart;

typedef struct _XwkComboBoxClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XwkComboBoxClassPart combo_box_class;
} XwkComboBoxClassRec;

extern XwkComboBoxClassRec xwkComboBoxClassRec;

typedef struct {
    unsigned char comboBoxType;
    Widget text;
    Widget arrow;             /* a drawn button */
    Widget shell;
    Widget list;
    Dimension arrowSize;
    Dimension arrowSpacing;
    unsigned char arrowPlacement;
    int itemCount;
    XmStringTable items;
    int visibleItemCount;
    XmString selectedItem;
    int selectedPosition;
    Dimension marginHeight;
    Dimension marginWidth;
    Dimension textMarginHeight;
    Dimension textMarginWidth;
    Dimension listMarginHeight;
    Dimension listMarginWidth;
    Dimension highlightThickness;
    short columns;
    int maxLength;
    unsigned int flags;
    XtCallbackList activateCallback;
    XtCallbackList selectionCallback;
    XtCallbackList focusCallback;
    XtCallbackList losingFocusCallback;
    unsigned char shadowType;
    int savedTop;             /* top item of the list at the last popdown */
    XtEnum savedTransfer;     /* XmDisplay's enableBtn1Transfer during a popup */
    Time popupTime;           /* (Time)-1 when the list is down */
    XmString ownedItem;       /* a selectedItem this widget must free */
    XtWorkProcId grabProc;    /* grabs still to take after a popup */
} XwkComboBoxPart;

typedef struct _XwkComboBoxRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XwkComboBoxPart combo;
} XwkComboBoxRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
