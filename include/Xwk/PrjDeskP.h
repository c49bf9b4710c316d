/**
 * \file
 * \ingroup desk
 * \brief Private records of XmPrjDesk: the class and instance records, in
 * Motif style, and the record of an item.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/PrjDesk.h.  The instance part is plain data: a clone starts as a
 * copy of its mother's part.  Fields marked "mother" are meaningful in the
 * mother only and are read through `mother` by every desk; the others each
 * desk keeps for itself.
 */
#ifndef XWK_PRJDESKP_H
#define XWK_PRJDESKP_H

#include <Xwk/PrjDesk.h>
#include <Xwk/Graphics.h>
#include <Xm/PrimitiveP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** stateFlags: the sizes of the cells are known. */
#define XmDESK_SIZES_KNOWN 0x1
/** stateFlags: a grid pass runs. */
#define XmDESK_GRID_RUNNING 0x2
/** stateFlags: the grid pass changed the scroll bar. */
#define XmDESK_BAR_CHANGED 0x4
/** stateFlags: the desk has not yet asked its parent for a size. */
#define XmDESK_INITIAL_SIZE 0x8
/** stateFlags: the pointer left the pressed item. */
#define XmDESK_LEFT_ITEM 0x10
/** stateFlags: a repaint runs. */
#define XmDESK_REPAINTING 0x20
/** stateFlags: items are drawn on this desk only, not on its clones. */
#define XmDESK_THIS_ONLY 0x40
/** stateFlags: waiting for the first exposure after a resize. */
#define XmDESK_RESIZED 0x80
/** stateFlags: a repaint draws the selected items only. */
#define XmDESK_SELECTED_ONLY 0x100

/** Bit of an item's flags: the item is selected. */
#define XmDESK_ITEM_SELECTED 0x1
/** Bit of an item's flags: the user may select the item. */
#define XmDESK_ITEM_SELECTABLE 0x2

/** Bit of buttonState: button 1 went down on an item. */
#define XmDESK_BTN_ITEM 0x1
/** Bit of buttonState: the pointer moved with the button down. */
#define XmDESK_BTN_MOTION 0x2
/** Bit of buttonState: a Ctrl press toggles. */
#define XmDESK_BTN_TOGGLE 0x8

/** The record of one item, the user word of its node.  Allocated with
 * XtCalloc and freed by the widget. */
typedef struct _XmPrjDeskItemRec {
    Widget desk;                /**< the desk it was added through */
    XtPointer userData;         /**< client data; borrowed */
    XmString labelString;       /**< the label, wrapped; made when the item is first drawn */
    char *label;                /**< own copy of the label given; NULL when none */
    int reserved;               /**< not used */
    Dimension labelWidth,       /**< extent of the wrapped label: width */
        labelHeight;            /**< extent of the wrapped label: height */
    struct _XwkIcon *icon;      /**< the icon, borrowed; NULL for none */
    unsigned char flags;        /**< XmDESK_ITEM_SELECTED, XmDESK_ITEM_SELECTABLE */
    unsigned char shadow;       /**< shadow drawn around the icon: 0 none, XmSHADOW_IN, XmSHADOW_OUT */
    XmPrjDeskDeleteProc deleteCallback; /**< called when the item is freed, or NULL */
    XtPointer deleteClientData; /**< the data of \c deleteCallback */
} XmPrjDeskItemRec, /**< One item's record. */
    *XmPrjDeskItem; /**< Pointer to an item's record, the user word of its node. */

/** The desk list's part of the class record. */
typedef struct {
    XtPointer extension;        /**< for later use, NULL */
} XmPrjDeskClassPart;

/** The class record of the desk list, a subclass of XmPrimitive. */
typedef struct _XmPrjDeskClassRec {
    CoreClassPart core_class;           /**< Xt's core part */
    XmPrimitiveClassPart primitive_class; /**< Motif's primitive part */
    XmPrjDeskClassPart prj_desk_class;  /**< the desk list's part */
} XmPrjDeskClassRec;

/** The class record; xmPrjDeskWidgetClass points to it. */
extern XmPrjDeskClassRec xmPrjDeskClassRec;

/** The desk list's part of the instance record. */
typedef struct {
    short x,                            /**< the area being repainted: left */
        y;                              /**< top */
    unsigned short width,               /**< width */
        height;                         /**< height */
    XmPrjDeskNode highlighted;          /**< mother; the item with the drop-target frame */
    Widget highlightedDesk;             /**< mother; the desk in which that frame shows */
    Dimension hPad,                     /**< XmNhPad */
        vPad,                           /**< XmNvPad */
        vFontPad,                       /**< XmNvFontPad */
        hIconPad;                       /**< XmNhIconPad */
    Dimension cellWidth,                /**< width of a cell, hPad included */
        cellHeight,                     /**< height of a cell, vPad included */
        maxIconWidth,                   /**< widest icon */
        maxIconHeight;                  /**< tallest icon */
    Dimension marginWidth,              /**< XmNmarginWidth */
        marginHeight;                   /**< XmNmarginHeight */
    int topRow,                         /**< first row shown */
        lastTopRow,                     /**< top row the scroll bar last set, -1 at first */
        maxTopRow;                      /**< highest top row */
    short bandAnchorX,                  /**< rubber band anchor: x; -32768 when unset */
        bandAnchorY,                    /**< anchor: y */
        bandLastX,                      /**< corner drawn last: x; -32768 when none */
        bandLastY,                      /**< corner drawn last: y */
        bandNewX,                       /**< corner asked for: x */
        bandNewY;                       /**< corner asked for: y */
    XmFontList fontList;                /**< mother; XmNfontList, own copy */
    Pixel activeForeground,             /**< XmNactiveForeground */
        activeBackground,               /**< XmNactiveBackground */
        inactiveForeground,             /**< XmNinactiveForeground */
        inactiveBackground;             /**< XmNinactiveBackground */
    GC backgroundGC,                    /**< background */
        textGC,                         /**< labels and icons */
        activeFillGC,                   /**< label fill of selected items with focus */
        activeTextGC,                   /**< label text of selected items with focus */
        inactiveFillGC,                 /**< label fill of selected items without focus */
        inactiveTextGC,                 /**< label text of selected items without focus */
        frameOnGC,                      /**< item frame in the highlight colour */
        frameOffGC,                     /**< item frame in the background colour */
        topShadowGC,                    /**< icon box shadows: top */
        bottomShadowGC,                 /**< icon box shadows: bottom */
        xorGC;                          /**< the rubber band */
    int maxChars;                       /**< XmNmaxChars */
    int visibleRows,                    /**< whole rows that fit */
        columns,                        /**< columns that fit */
        totalRows;                      /**< rows of all items */
    int selectedCount;                  /**< mother; number of selected items */
    XwkList *items;                     /**< mother; the items */
    XtPointer selected;                 /**< mother; XmNselected, client data of current */
    XmPrjDeskNode current;              /**< mother; the current item, or NULL */
    XmPrjDeskNode lastClicked;          /**< item of the first press of a double click */
    Widget scrollBar;                   /**< the vertical scroll bar, or NULL */
    Widget menuWidget;                  /**< XmNmenuWidget */
    Boolean hasFocus;                   /**< the desk has the keyboard focus */
    Boolean dontMove;                   /**< XmNdontMove */
    Boolean sortItems;                  /**< XmNsortItems */
    int sortedCount;                    /**< compared by XmPrjDeskSortItems; stays 0 */
    XmPrjDeskSortProc sortProc;         /**< XmNsortProc */
    unsigned char scrollBarDisplayPolicy; /**< XmNscrollBarDisplayPolicy */
    unsigned char selectionPolicy;      /**< XmNselectionPolicy */
    unsigned char shadowType;           /**< XmNshadowType */
    Time lastClickTime;                 /**< time of the last press */
    XtIntervalId autoScrollTimer;       /**< scrolls while the band is outside */
    int clickCount;                     /**< presses within the multi-click time */
    unsigned char buttonState;          /**< XmDESK_BTN_ bits */
    XtCallbackList multipleSelectionCallback, /**< mother; XmNmultipleSelectionCallback */
        singleSelectionCallback,        /**< mother; XmNsingleSelectionCallback */
        selectionChanged,               /**< mother; XmNselectionChanged */
        defaultActionCallback,          /**< mother; XmNdefaultActionCallback */
        focusCallback,                  /**< mother; XmNfocusCallback */
        losingFocusCallback,            /**< mother; XmNlosingFocusCallback */
        startDragCallback;              /**< mother; XmNstartDragCallback */
    Widget mother;                      /**< XmNmother; the widget itself when no clone */
    WidgetList clones;                  /**< mother; XmNclones, from XtRealloc */
    Cardinal numClones;                 /**< mother; XmNnumClones */
    XtIntervalId dragTimer;             /**< waits to tell a drag from a click */
    XtActionProc dragAction;            /**< the action held back by dragTimer */
    XEvent dragEvent;                   /**< the press held back by dragTimer */
    unsigned int stateFlags;            /**< XmDESK_ state bits */
    XtPointer state;                    /**< the C++ side of the desk */
} XmPrjDeskPart;

/** The instance record of a desk list. */
typedef struct _XmPrjDeskRec {
    CorePart core;                      /**< Xt's core part */
    XmPrimitivePart primitive;          /**< Motif's primitive part */
    XmPrjDeskPart desk;                 /**< the desk list's part */
} XmPrjDeskRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
