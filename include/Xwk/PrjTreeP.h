/**
 * \file
 * \ingroup tree
 * \brief Private records of XmPrjTree: the class and instance records, in
 * Motif style, and the records of rows, cells and columns.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/PrjTree.h.  The instance part is plain data: a clone starts as a
 * byte copy of its mother's part.  Fields marked "mother" are read through
 * `mother` by every view; the others each view keeps for itself.  The
 * sources reach a row's words through their accessors, never by the
 * layout of these records alone.
 */
#ifndef XWK_PRJTREEP_H
#define XWK_PRJTREEP_H

#include <Xwk/PrjTree.h>
#include <Xwk/Graphics.h>
#include <Xm/DrawingAP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** XmPrjTreeFlags: a deletion batch runs; single deletes neither lay out,
 * nor repaint, nor raise selectionChanged. */
#define XmTREE_DELETE_BATCH 0x1
/** XmPrjTreeFlags: the geometry is stale; the next repaint runs a layout
 * pass first. */
#define XmTREE_GEOMETRY_STALE 0x2
/** XmPrjTreeFlags: the scroll bars are being set up, until the deferred
 * relayout has run. */
#define XmTREE_SCROLLBARS_BUSY 0x4
/** XmPrjTreeFlags: the widget asked its parent for a size before it was
 * realized. */
#define XmTREE_RESIZE_ASKED 0x8
/** XmPrjTreeFlags: the next single row is painted with its frame, as the
 * three flags after this one say. */
#define XmTREE_PAINT_FRAME 0x10
/** XmPrjTreeFlags: the next single row is painted selected. */
#define XmTREE_PAINT_SELECTED 0x20
/** XmPrjTreeFlags: the next single row is painted plain, its fill and frame
 * erased. */
#define XmTREE_PAINT_ERASE 0x40
/** XmPrjTreeFlags: the next single row's frame is the focus frame. */
#define XmTREE_PAINT_FOCUS 0x80
/** XmPrjTreeFlags: the focus frame is being repainted. */
#define XmTREE_FOCUS_FRAME 0x100
/** XmPrjTreeFlags: inside the repaint of an exposed area; rows outside the
 * stored redraw rectangle are skipped. */
#define XmTREE_IN_EXPOSE 0x200
/** XmPrjTreeFlags: a simple add runs; XmPrjTreeAddItem leaves layout and
 * painting to its caller. */
#define XmTREE_SIMPLE_ADD 0x400
/** XmPrjTreeFlags: a single-row update runs; its paint goes to the calling
 * view only, unless the row is selected. */
#define XmTREE_ROW_UPDATE 0x800
/** XmPrjTreeFlags: the font list changed; the next pass measures every
 * label again. */
#define XmTREE_FONT_CHANGED 0x1000
/** XmPrjTreeFlags: a press moved the current row; the release makes it
 * visible. */
#define XmTREE_CLICK_MOVED 0x2000
/** XmPrjTreeFlags: the class's resize runs. */
#define XmTREE_IN_RESIZE 0x4000
/** XmPrjTreeFlags: the deferred relayout runs; the scroll bar set-up
 * returns at once. */
#define XmTREE_RELAYOUT_RUNNING 0x8000
/** XmPrjTreeFlags: rows changed since this view last painted; it repaints
 * wholly before its next scroll or key action. */
#define XmTREE_ROWS_CHANGED 0x10000
/** XmPrjTreeFlags: a repaint of the selected rows only. */
#define XmTREE_SELECTED_ONLY 0x20000
/** XmPrjTreeFlags: the next layout pass also computes the column widths. */
#define XmTREE_COLUMN_WIDTHS 0x40000

/** Bit of an item's flags: the row is selected. */
#define XmTREE_ITEM_SELECTED 0x1
/** Bit of an item's flags: the row may be selected (set when it is added). */
#define XmTREE_ITEM_SELECTABLE 0x2

/** Bit of a view's button state: button 1 went down in the list. */
#define XmTREE_BTN_DOWN 0x1
/** Bit of a view's button state: the pointer moved with the button down. */
#define XmTREE_BTN_DRAGGED 0x2
/** Bit of a view's button state: the pointer has left the window. */
#define XmTREE_BTN_LEFT 0x8
/** Bit of a view's button state: the pointer has entered the window. */
#define XmTREE_BTN_ENTERED 0x10
/** Bit of a view's button state: Ctrl was held in this gesture. */
#define XmTREE_BTN_CTRL 0x20
/** Bit of a view's button state: Shift was held in this gesture. */
#define XmTREE_BTN_SHIFT 0x40

/** Marker of an icon resource left to its default: the built-in icon is
 * made, or for XmNselectedIcon none is used. */
#define XmTREE_ICON_DEFAULT ((XtPointer)0xff)

/** One cell of a row in a list with columns, an element of the row's cell
 * list. */
typedef struct _XmPrjTreeCellRec {
    XwkListNode *element;       /**< its element in the row's cell list */
    int column;                 /**< column number, from 1 */
    struct _XmPrjTreeColumnRec *columnRec; /**< its column */
    char *text;                 /**< the cell's text, owned; a single blank marks an empty cell */
    XmString string;            /**< the text as a compound string, owned */
    int type;                   /**< cellType: an XmCELL_ value */
    signed char alignment;      /**< 0 beginning, 1 centre, 2 end; -1: the column's */
    XwkIcon *icon;              /**< the picture of an icon cell, also a toggle's state; borrowed */
    Dimension width,            /**< width the cell needs */
        height;                 /**< height the cell needs */
    int comboPosition;          /**< the combo box entry chosen, from 1 */
    Boolean combo;              /**< a cell of a combo box type */
    XtPointer editor[8];        /**< private words; the first holds the block of the row's cells */
} XmPrjTreeCellRec;

/** One column of a list with a title bar, an element of the list of
 * columns in display order. */
typedef struct _XmPrjTreeColumnRec {
    XwkListNode *element;       /**< its element in the list of columns */
    Widget tree;                /**< the tree list that owns it */
    int number;                 /**< column number, from 1, fixed for its life; negative while hidden */
    char *label;                /**< title text, owned */
    XmString xmLabel;           /**< the title in XmNdefaultCharSet */
    XmString xmLabelBold;       /**< the title in XmNselectCharSet, for the sorted column */
    XwkIcon *icon;              /**< picture of an icon title item; borrowed */
    XwkIcon *buttonIcon;        /**< picture of the title item's button; borrowed */
    XtPointer button;           /**< procedure and data of the button */
    int itemType;               /**< XmCELL_ type of the title item */
    unsigned char alignment;    /**< of the title item: 0 beginning, 1 centre, 2 end */
    int cellType;               /**< default XmCELL_ type of the column's cells */
    signed char cellAlignment;  /**< default alignment of the cells; -1: \c alignment */
    short x;                    /**< left edge in the title bar */
    Dimension width,            /**< column width */
        height;                 /**< height the title item needs */
    int sum;                    /**< width total of a layout pass, for the mean width */
    unsigned char flags;        /**< bit 0 sortable, bit 1 width adjustable */
    XmStringTable comboItems;   /**< entries of a combo box column; the caller's */
    int comboCount;             /**< number of \c comboItems */
} XmPrjTreeColumnRec;

/** The button of a title item: its procedure and data. */
typedef struct _XmPrjTreeTitleButtonRec {
    XmPrjTreeTitleButtonProc proc;  /**< called when the button is clicked */
    XtPointer data;                 /**< passed to \c proc */
} XmPrjTreeTitleButtonRec;

/** The state of a title bar, one per list. */
typedef struct _XmPrjTreeTitleRec {
    short arrowLeftX,           /**< x of the left scroll arrow, also the right limit of the columns */
        arrowRightX,            /**< x of the right scroll arrow */
        arrowY;                 /**< y of the scroll arrows */
    short arrowWidth,           /**< width of a scroll arrow */
        arrowHeight;            /**< height of a scroll arrow */
    int armedArrow;             /**< arrow pressed: 0 none, 1 left, 2 right */
    Boolean arrowDown;          /**< the armed arrow is drawn pressed */
    Boolean canScrollLeft,      /**< the left arrow is live */
        canScrollRight;         /**< the right arrow is live */
    int buttonState;            /**< title item button: 0 none, 1 pressed, 2 hovered */
    XwkListNode *firstColumn;   /**< the first column shown */
    int columnsShown;           /**< the number of columns that fit */
    Boolean laidOut;            /**< the bar has been placed */
} XmPrjTreeTitleRec;

/** Words of a row that most rows never use. */
typedef struct _XmPrjTreeItemExtRec {
    Widget tree;                /**< the view it was added through, when not the mother */
    char *label;                /**< a label given after creation, own copy */
    char *charset;              /**< when it is not the mother's defaultCharSet; not copied */
    XwkIcon *savedIcon;         /**< put aside while selectedIcon shows */
    XwkIcon *openIcon,          /**< open state icon, with "slam_per_row" */
        *closedIcon,            /**< closed state icon, with "slam_per_row" */
        *fruitlessIcon;         /**< leaf state icon, with "slam_per_row" */
    XwkList *cells;             /**< cell records, one per column, in a table */
    XmPrjTreeCellRec *cellBlock; /**< the same cells as one block in column order, for lookup by number */
    int cellCount;              /**< the number of cells in \c cellBlock */
    XmPrjTreeDeleteProc deleteProc; /**< the row's delete procedure, or NULL */
    XtPointer deleteData;       /**< the data of \c deleteProc */
    unsigned int foreground,    /**< label colour, when `colours` is XmTREE_COLOURS_OWN */
        background;             /**< background at creation, likewise */
} XmPrjTreeItemExtRec;

/** The record of one row, the user word of its node.  A million of them
 * may live at once, so the record holds only what every row needs.  The
 * words a row may lack follow it, each present when its bit in `layout`
 * is set, in this order: the item icon, the element in visibleList, the
 * extension record; after them the label's text when it was copied in
 * with the record.  Foreground and background
 * at creation stand as an index into the mother's table of colour pairs.
 * The compound string of a label is made when the row is painted.  Code
 * reads and writes these through the accessors of the widget's sources.
 * Allocated with XtMalloc, owned and freed by the widget. */
typedef struct _XmPrjTreeItemRec {
    XtPointer clientData;       /**< the application's value; borrowed */
    Dimension width,            /**< extent of the label: width */
        height;                 /**< extent of the label: height */
    unsigned char slamState;    /**< XmSLAM_ state of the branch */
    unsigned char flags;        /**< XmTREE_ITEM_SELECTED, XmTREE_ITEM_SELECTABLE */
    unsigned char layout;       /**< XmTREE_ITEM_HAS_* */
    unsigned char colours;      /**< index of the colour pair, or XmTREE_COLOURS_OWN */
} XmPrjTreeItemRec, /**< One row's record. */
    *XmPrjTreeItem; /**< Pointer to a row's record, the user word of its node. */

/** Bit of an item's layout: the item icon follows the record. */
#define XmTREE_ITEM_HAS_ICON 0x1
/** Bit of an item's layout: the row's element in visibleList follows. */
#define XmTREE_ITEM_HAS_ELEMENT 0x2
/** Bit of an item's layout: a pointer to the extension record follows. */
#define XmTREE_ITEM_HAS_EXT 0x4
/** Bit of an item's layout: the label's text follows the other words. */
#define XmTREE_ITEM_HAS_LABEL 0x8
/** Value of an item's colours: the pair stands in the extension record,
 * the table of pairs being full. */
#define XmTREE_COLOURS_OWN 0xff

/** The tree list's part of the class record. */
typedef struct {
    XtPointer extension;        /**< for later use, NULL */
} XmPrjTreeClassPart;

/** The class record of the tree list, a subclass of XmDrawingArea. */
typedef struct _XmPrjTreeClassRec {
    CoreClassPart core_class;           /**< Xt's core part */
    CompositeClassPart composite_class; /**< Xt's composite part */
    ConstraintClassPart constraint_class; /**< Xt's constraint part */
    XmManagerClassPart manager_class;   /**< Motif's manager part */
    XmDrawingAreaClassPart drawing_area_class; /**< Motif's drawing area part */
    XmPrjTreeClassPart prj_tree_class;  /**< the tree list's part */
} XmPrjTreeClassRec;

/** The class record; xmPrjTreeWidgetClass points to it. */
extern XmPrjTreeClassRec xmPrjTreeClassRec;

/** The tree list's part of the instance record: the resources, then the
 * state of the view and, in the mother, of the rows. */
typedef struct {
    /* resources, in table order */
    Dimension highlightThickness;       /**< XmNhighlightThickness */
    Widget mother;                      /**< XmNmother; the widget itself when no clone */
    WidgetList clones;                  /**< mother; XmNclones, from XtRealloc */
    Cardinal numClones;                 /**< mother; XmNnumClones */
    Pixel activeBackground,             /**< XmNactiveBackground */
        activeForeground;               /**< XmNactiveForeground */
    Pixel inactiveBackground,           /**< XmNinactiveBackground */
        inactiveForeground;             /**< XmNinactiveForeground */
    Pixel treeTrunkColor,               /**< XmNtreeTrunkColor */
        gridColor;                      /**< XmNgridColor */
    XtCallbackList activateCallback,    /**< mother; XmNactivateCallback */
        focusCallback,                  /**< mother; XmNfocusCallback */
        losingFocusCallback,            /**< mother; XmNlosingFocusCallback */
        selectionChanged,               /**< mother; XmNselectionChanged */
        startDragCallback,              /**< mother; XmNstartDragCallback */
        multipleSelectionCallback,      /**< mother; XmNmultipleSelectionCallback */
        defaultActionCallback,          /**< mother; XmNdefaultActionCallback */
        deleteCallback,                 /**< mother; XmNdeleteCallback */
        insertCallback;                 /**< mother; XmNinsertCallback */
    Boolean canSlam;                    /**< XmNcanSlam */
    Boolean useDashLine;                /**< XmNuseDashLine */
    XwkIcon *closedStateIcon;           /**< XmNclosedStateIcon */
    Boolean dontMove;                   /**< XmNdontMove */
    Boolean clearOnUpdate;              /**< XmNclearOnUpdate */
    XwkIcon *fruitlessStateIcon;        /**< XmNfruitlessStateIcon */
    Dimension hIconPad,                 /**< XmNhIconPad */
        hPad;                           /**< XmNhPad */
    Dimension rowHeight,                /**< mother; XmNrowHeight, height of every row */
        rowWidth;                       /**< mother; XmNrowWidth, width of the widest row */
    Widget menuWidget;                  /**< XmNmenuWidget */
    XwkIcon *openStateIcon;             /**< XmNopenStateIcon */
    XtPointer selected;                 /**< mother; XmNselected, client data of currentNode */
    XwkIcon *selectedIcon;              /**< XmNselectedIcon */
    unsigned char selectionPolicy;      /**< XmNselectionPolicy */
    unsigned char scrollBarDisplayPolicy; /**< XmNscrollBarDisplayPolicy */
    unsigned char shadowType;           /**< XmNshadowType, of the mother for every view */
    unsigned char slamPolicy;           /**< XmNslamPolicy */
    unsigned char visualMode;           /**< XmNvisualMode */
    Cursor sashCursor;                  /**< XmNsashCursor */
    int numColumns;                     /**< XmNnumColumns */
    unsigned char delimeter;            /**< XmNdelimeter */
    Widget titleWidget;                 /**< XmNtitleWidget */
    Dimension titleHeight;              /**< XmNtitleHeight */
    Pixel titleBackground,              /**< XmNtitleBackground */
        titleForeground;                /**< XmNtitleForeground */
    String titleString;                 /**< XmNtitleString, own copy */
    Dimension titleMargin;              /**< XmNtitleMargin */
    XmFontList titleFontList;           /**< XmNtitleFontList */
    unsigned char titleItemAlignment;   /**< XmNtitleItemAlignment */
    unsigned char titleItemType;        /**< XmNtitleItemType */
    String layoutString;                /**< XmNlayoutString */
    XwkIcon *titleDragIcon;             /**< XmNtitleDragIcon */
    XmFontList fontList;                /**< XmNfontList, own copy */
    String defaultCharSet;              /**< XmNdefaultCharSet */
    String selectCharSet;               /**< XmNselectCharSet */
    Dimension treeMarginWidth,          /**< XmNtreeMarginWidth */
        treeMarginHeight;               /**< XmNtreeMarginHeight */
    Boolean treeTrunkDrawing;           /**< XmNtreeTrunkDrawing */
    Dimension vFontPad;                 /**< XmNvFontPad */
    int visibleLines;                   /**< XmNvisibleLines */
    Dimension vPad;                     /**< XmNvPad */
    XmPrjTreeCreateIconProc createIconProc; /**< XmNcreateIconProc */
    XmPrjTreeSortProc sortProc;         /**< XmNsortProc */
    Boolean useSort;                    /**< XmNuseSort */
    Boolean useAverageColumnWidth;      /**< XmNuseAverageColumnWidth */
    Boolean useTitleScrolling;          /**< XmNuseTitleScrolling */
    int sortColumn;                     /**< XmNsortColumn */
    unsigned char sortDirection;        /**< XmNsortDirection */
    Boolean showGrid;                   /**< XmNshowGrid */
    Widget cellTextField,               /**< XmNcellTextField */
        cellComboBox,                   /**< XmNcellComboBox */
        cellPushButton;                 /**< XmNcellPushButton */
    Widget cellActive;                  /**< mother; XmNcellActive */
    XmPrjTreeNode cellNodeId;           /**< mother; XmNcellNodeId */
    int cellColumn;                     /**< mother; XmNcellColumn */
    XmPrjTreeNode currentNodeId;        /**< XmNcurrentNodeId, unused */
    XtCallbackList cellManageCallback;  /**< mother; XmNcellManageCallback */

    /* other fields */
    XRectangle redraw;                  /**< mother; the rectangle of the last repaint */
    Dimension iconWidth;                /**< mother; widest item icon */
    Dimension stateIconWidth;           /**< mother; widest state icon */
    Dimension fontWidth,                /**< mother; widest character of the font */
        labelHeight,                    /**< mother; height of the tallest label */
        defaultLabelHeight;             /**< mother; height of the font */
    int xOrigin;                        /**< horizontal scroll position, in pixels */
    int topRow;                         /**< index of the top row on the page */
    int lastHScroll,                    /**< horizontal scroll bar value last seen, -1 at first */
        lastVScroll;                    /**< vertical scroll bar value last seen, -1 at first */
    Time lastClickTime;                 /**< time of the last press */
    int clickCount;                     /**< presses within the multi-click time */
    XtIntervalId autoScrollTimer;       /**< scrolls while a drag is outside the window */
    int visibleRows;                    /**< full rows that fit the page */
    Boolean hasFocus;                   /**< the view has the keyboard focus */
    Boolean builtinOpen,                /**< openStateIcon is the built-in one, freed with the widget */
        builtinClosed,                  /**< closedStateIcon likewise */
        builtinFruitless;               /**< fruitlessStateIcon likewise */
    Widget hScrollBar,                  /**< horizontal scroll bar, or NULL */
        vScrollBar;                     /**< vertical scroll bar, or NULL */
    GC eraseGC,                         /**< background: clears fill and frame */
        pixmapGC,                       /**< background: composes and masks icons */
        activeBackgroundGC,             /**< fill of selected rows with focus */
        inactiveBackgroundGC,           /**< fill of selected rows without focus */
        highlightGC,                    /**< the location cursor and drop-target frames */
        textGC,                         /**< labels of plain rows, in the font of defaultCharSet */
        activeTextGC,                   /**< labels of selected rows with focus */
        inactiveTextGC,                 /**< labels of selected rows without focus */
        trunkGC,                        /**< dotted trunk lines, or NULL */
        gridGC,                         /**< grid lines, or NULL */
        sashGC,                         /**< the column sash line */
        titleTextGC,                    /**< title bar text */
        titleEraseGC,                   /**< title bar background */
        titleShadowGC;                  /**< title bar shadows */
    short sashPosition;                 /**< x of the column sash line, -1 when none */
    int titleMotion;                    /**< state of a gesture in the title bar */
    unsigned char buttonState;          /**< XmTREE_BTN_ bits */
    XwkTree *tree;                      /**< mother; the rows */
    XwkList *visibleList;               /**< mother; NULL without canSlam */
    XmPrjTreeNode currentNode;          /**< mother; the current row, or NULL */
    XmPrjTreeNode lastClickNode;        /**< the row of the last press, for a double click */
    XmPrjTreeNode tourStart;            /**< mother; where a tour starts */
    int selectedCount;                  /**< mother; the number of selected rows */
    XmPrjTreeNode highlightedNode;      /**< mother; the row with the drop-target mark */
    Widget highlightedWidget;           /**< mother; the view that shows the mark */
    Dimension comboArrowWidth;          /**< mother; arrow width of the combo box editor */
    XtIntervalId relayoutTimer;         /**< the deferred relayout, pending while not 0 */
    XtIntervalId dragTimer;             /**< mother; waits to tell a drag from a click */
    XtActionProc dragAction;            /**< mother; the action held back by dragTimer */
    XEvent dragEvent;                   /**< mother; the press held back by dragTimer */
    unsigned int flags;                 /**< XmPrjTreeFlags */
    XmPrjTreeTitleRec *title;           /**< mother; NULL in a simple list */
    XwkList *columns;                   /**< mother; the title's columns */
    Boolean sortHasRun;                 /**< mother; a sort has run, the sort arrow turns */
    Boolean columnsPermuted;            /**< mother; display order differs from number order */
    XmPrjTreeNode pressNode;            /**< the node of the last press */
    int pressX,                         /**< x of the last press */
        pressY;                         /**< y of the last press */
    XtPointer state;                    /**< the C++ side of the view */
} XmPrjTreePart;

/** The instance record of a tree list. */
typedef struct _XmPrjTreeRec {
    CorePart core;                      /**< Xt's core part */
    CompositePart composite;            /**< Xt's composite part */
    ConstraintPart constraint;          /**< Xt's constraint part */
    XmManagerPart manager;              /**< Motif's manager part */
    XmDrawingAreaPart drawing_area;     /**< Motif's drawing area part */
    XmPrjTreePart tree;                 /**< the tree list's part */
} XmPrjTreeRec;

/** The tree list's part of a child's constraint record; the list has no
 * constraint resources. */
typedef struct {
    XtPointer unused;                   /**< not used */
} XmPrjTreeConstraintPart;

/** The constraint record of a child of the tree list (the cell editors). */
typedef struct _XmPrjTreeConstraintRec {
    XmManagerConstraintPart manager;    /**< Motif's manager part */
    XmPrjTreeConstraintPart tree;       /**< the tree list's part */
} XmPrjTreeConstraintRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
