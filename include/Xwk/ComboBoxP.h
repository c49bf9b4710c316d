/**
 * \file
 * \ingroup companions
 * \brief Private records of the combo box: the class record and the
 * instance record, in Motif style.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/ComboBox.h and the widget's resources.
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

/** Bit of XwkComboBoxPart::flags: the arrow is drawn pressed (the list is
 * up, or the opening click is not yet released). */
#define XwkCB_ARROW_PRESSED   (1 << 0)
/** Bit of XwkComboBoxPart::flags: a button went down on a scroll bar of the
 * list; its release does not close the list. */
#define XwkCB_SCROLLBAR_PRESS (1 << 1)
/** Bit of XwkComboBoxPart::flags: the text has the keyboard focus; the
 * highlight is drawn. */
#define XwkCB_TEXT_FOCUS      (1 << 2)
/** Bit of XwkComboBoxPart::flags: the list is up and its grabs are taken. */
#define XwkCB_LIST_UP         (1 << 3)
/** Bit of XwkComboBoxPart::flags: a button is down inside the list, so that
 * entering and leaving it drag the selection. */
#define XwkCB_LIST_PRESS      (1 << 4)
/** Bit of XwkComboBoxPart::flags: a scroll bar of the list holds the pointer
 * grab while its slider is dragged. */
#define XwkCB_SCROLLBAR_GRAB  (1 << 5)

/** Class part of XwkComboBox: nothing of its own. */
typedef struct {
    XtPointer extension;   /**< Class extension; NULL. */
} XwkComboBoxClassPart;

/** Class record of XwkComboBox. */
typedef struct _XwkComboBoxClassRec {
    CoreClassPart core_class;             /**< Core part. */
    CompositeClassPart composite_class;   /**< Composite part. */
    ConstraintClassPart constraint_class; /**< Constraint part. */
    XmManagerClassPart manager_class;     /**< XmManager part. */
    XwkComboBoxClassPart combo_box_class; /**< Combo box part. */
} XwkComboBoxClassRec;

/** The class record of XwkComboBox; xwkComboBoxWidgetClass points at it. */
extern XwkComboBoxClassRec xwkComboBoxClassRec;

/** Instance part of XwkComboBox: resources first, then the state of the
 * popup. */
typedef struct {
    unsigned char comboBoxType;   /**< XmNcomboBoxType: XwkDROP_DOWN_COMBO_BOX .. XwkPOPUP_LIST. */
    Widget text;                  /**< The XmText "Text"; NULL for popup_list. */
    Widget arrow;                 /**< The arrow "Button", a drawn button; NULL for popup_list. */
    Widget shell;                 /**< The override-redirect shell "Shell" of the list. */
    Widget list;                  /**< The XmList "List" in its scrolled window. */
    Dimension arrowSize;          /**< Width of the arrow at the last layout. */
    Dimension arrowSpacing;       /**< XmNarrowSpacing: between text and arrow. */
    unsigned char arrowPlacement; /**< XwkNarrowPlacement: XwkARROW_LEFT or XwkARROW_RIGHT. */
    int itemCount;                /**< XmNitemCount, read back from the list. */
    XmStringTable items;          /**< XmNitems: the list's own table, borrowed from it. */
    int visibleItemCount;         /**< XmNvisibleItemCount. */
    XmString selectedItem;        /**< XmNselectedItem, or NULL: the item or typed text shown. */
    int selectedPosition;         /**< XmNselectedPosition, from 1; 0 for a typed text. */
    Dimension marginHeight;       /**< XmNmarginHeight. */
    Dimension marginWidth;        /**< XmNmarginWidth. */
    Dimension textMarginHeight;   /**< XwkNtextMarginHeight. */
    Dimension textMarginWidth;    /**< XwkNtextMarginWidth. */
    Dimension listMarginHeight;   /**< XmNlistMarginHeight. */
    Dimension listMarginWidth;    /**< XmNlistMarginWidth. */
    Dimension highlightThickness; /**< XmNhighlightThickness. */
    short columns;                /**< XmNcolumns of the text. */
    int maxLength;                /**< XmNmaxLength of the text. */
    unsigned int flags;           /**< XwkCB_ARROW_PRESSED and the other XwkCB_ bits. */
    XtCallbackList activateCallback;    /**< XmNactivateCallback. */
    XtCallbackList selectionCallback;   /**< XmNselectionCallback. */
    XtCallbackList focusCallback;       /**< XmNfocusCallback. */
    XtCallbackList losingFocusCallback; /**< XmNlosingFocusCallback. */
    unsigned char shadowType;     /**< XmNshadowType. */
    int savedTop;             /**< Top item of the list at the last popdown; 0 before the first. */
    XtEnum savedTransfer;     /**< XmDisplay's enableBtn1Transfer, kept during a popup (which sets it to 0). */
    Time popupTime;           /**< Time the grabs were taken; (Time)-1 when the list is down. */
    XmString ownedItem;       /**< A selectedItem this widget must free (XmStringFree), or NULL. */
    XtWorkProcId grabProc;    /**< Work procedure that takes the grabs after a popup; 0 when none is pending. */
} XwkComboBoxPart;

/** Instance record of XwkComboBox. */
typedef struct _XwkComboBoxRec {
    CorePart core;             /**< Core part. */
    CompositePart composite;   /**< Composite part. */
    ConstraintPart constraint; /**< Constraint part. */
    XmManagerPart manager;     /**< XmManager part. */
    XwkComboBoxPart combo;     /**< Combo box part. */
} XwkComboBoxRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
