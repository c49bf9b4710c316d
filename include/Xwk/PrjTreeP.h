/*
 * Xwk/PrjTreeP.h - private records of XmPrjTree.
 *
 * The instance part is plain data: a clone starts as a byte copy of its
 * mother's part.  Fields marked "mother" are read through `mother` by every
 * view; the others each view keeps for itself.
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

/* XmPrjTreeFlags */
#define XmTREE_DELETE_BATCH 0x1
#define XmTREE_GEOMETRY_STALE 0x2
#define XmTREE_SCROLLBARS_BUSY 0x4
#define XmTREE_RESIZE_ASKED 0x8
#define XmTREE_PAINT_FRAME 0x10
#define XmTREE_PAINT_SELECTED 0x20
#define XmTREE_PAINT_ERASE 0x40
#define XmTREE_PAINT_FOCUS 0x80
#define XmTREE_FOCUS_FRAME 0x100
#define XmTREE_IN_EXPOSE 0x200
#define XmTREE_SIMPLE_ADD 0x400
#define XmTREE_ROW_UPDATE 0x800
#define XmTREE_FONT_CHANGED 0x1000
#define XmTREE_CLICK_MOVED 0x2000
#define XmTREE_IN_RESIZE 0x4000
#define XmTREE_RELAYOUT_RUNNING 0x8000
#define XmTREE_ROWS_CHANGED 0x10000
#define XmTREE_SELECTED_ONLY 0x20000
#define XmTREE_COLUMN_WIDTHS 0x40000

/* Bits of an item's flags. */
#define XmTREE_ITEM_SELECTED 0x1
#define XmTREE_ITEM_SELECTABLE 0x2

/* Bits of a view's button state. */
#define XmTREE_BTN_DOWN 0x1
#define XmTREE_BTN_DRAGGED 0x2
#define XmTREE_BTN_LEFT 0x8
#define XmTREE_BTN_ENTERED 0x10
#define XmTREE_BTN_CTRL 0x20
#define XmTREE_BTN_SHIFT 0x40

/* Marker of an icon resource left to its default. */
#define XmTREE_ICON_DEFAULT ((XtPointer)0xff)

/* One cell of a row in a list with columns. */
typedef struct _XmPrjTreeCellRec {
    XwkListNode *element;
    int column;                 /* from 1 */
    struct _XmPrjTreeColumnRec *columnRec;
    char *text;                 /* owned */
    XmString string;            /* owned */
    int type;                   /* cellType */
    signed char alignment;      /* -1: the column's */
    XwkIcon *icon;              /* also a toggle's state */
    Dimension width, height;
    int comboPosition;          /* from 1 */
    Boolean combo;
    XtPointer editor[8];        /* the editors' own words */
} XmPrjTreeCellRec;

/* One column of a list with a title bar. */
typedef struct _XmPrjTreeColumnRec {
    XwkListNode *element;
    Widget tree;
    int number;                 /* from 1; negative while hidden */
    char *label;
    XmString xmLabel;
    XmString xmLabelBold;
    XwkIcon *icon;
    XwkIcon *buttonIcon;
    XtPointer button;
    int itemType;
    unsigned char alignment;
    int cellType;
    signed char cellAlignment;
    short x;
    Dimension width, height;
    int sum;
    unsigned char flags;
    XmStringTable comboItems;
    int comboCount;
} XmPrjTreeColumnRec;

typedef struct _XmPrjTreeTitleRec {
    short arrowLeftX, arrowRightX, arrowY;
    short arrowWidth, arrowHeight;
    int armedArrow;
    Boolean arrowDown;
    Boolean canScrollLeft, canScrollRight;
    int buttonState;
    XwkListNode *firstColumn;
    int columnsShown;
    Boolean laidOut;
} XmPrjTreeTitleRec;

/* Words of a row that most rows never use. */
typedef struct _XmPrjTreeItemExtRec {
    Widget tree;                /* the view it was added through, when not the mother */
    char *label;                /* a label given after creation, own copy */
    char *charset;              /* when it is not the mother's defaultCharSet */
    XwkIcon *savedIcon;         /* put aside while selectedIcon shows */
    XwkIcon *openIcon, *closedIcon, *fruitlessIcon;  /* with "slam_per_row" */
    XwkList *cells;             /* cell records, one per column, in a table */
    XmPrjTreeDeleteProc deleteProc;
    XtPointer deleteData;
    unsigned int foreground, background;  /* when `colours` is XmTREE_COLOURS_OWN */
} XmPrjTreeItemExtRec;

/* One row.  A million of them may live at once, so the record holds only
 * what every row needs.  The words a row may lack follow it, each present
 * when its bit in `layout` is set, in this order: the item icon, the
 * element in visibleList, the extension record; after them the label's
 * text when it was copied in with the record.  Foreground and background
 * at creation stand as an index into the mother's table of colour pairs.
 * The compound string of a label is made when the row is painted.  Code
 * reads and writes these through the accessors of the widget's sources. */
typedef struct _XmPrjTreeItemRec {
    XtPointer clientData;
    Dimension width, height;    /* extent of the label */
    unsigned char slamState;
    unsigned char flags;        /* XmTREE_ITEM_SELECTED, XmTREE_ITEM_SELECTABLE */
    unsigned char layout;       /* XmTREE_ITEM_HAS_* */
    unsigned char colours;
} XmPrjTreeItemRec, *XmPrjTreeItem;

#define XmTREE_ITEM_HAS_ICON 0x1
#define XmTREE_ITEM_HAS_ELEMENT 0x2
#define XmTREE_ITEM_HAS_EXT 0x4
#define XmTREE_ITEM_HAS_LABEL 0x8
#define XmTREE_COLOURS_OWN 0xff

typedef struct {
    XtPointer extension;
} XmPrjTreeClassPart;

typedef struct _XmPrjTreeClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmDrawingAreaClassPart drawing_area_class;
    XmPrjTreeClassPart prj_tree_class;
} XmPrjTreeClassRec;

extern XmPrjTreeClassRec xmPrjTreeClassRec;

typedef struct {
    /* resources, in table order */
    Dimension highlightThickness;
    Widget mother;
    WidgetList clones;                  /* mother */
    Cardinal numClones;                 /* mother */
    Pixel activeBackground, activeForeground;
    Pixel inactiveBackground, inactiveForeground;
    Pixel treeTrunkColor, gridColor;
    XtCallbackList activateCallback, focusCallback, losingFocusCallback, selectionChanged,
        startDragCallback, multipleSelectionCallback, defaultActionCallback, deleteCallback,
        insertCallback;
    Boolean canSlam;
    Boolean useDashLine;
    XwkIcon *closedStateIcon;
    Boolean dontMove;
    Boolean clearOnUpdate;
    XwkIcon *fruitlessStateIcon;
    Dimension hIconPad, hPad;
    Dimension rowHeight, rowWidth;
    Widget menuWidget;
    XwkIcon *openStateIcon;
    XtPointer selected;
    XwkIcon *selectedIcon;
    unsigned char selectionPolicy;
    unsigned char scrollBarDisplayPolicy;
    unsigned char shadowType;
    unsigned char slamPolicy;
    unsigned char visualMode;
    Cursor sashCursor;
    int numColumns;
    unsigned char delimeter;
    Widget titleWidget;
    Dimension titleHeight;
    Pixel titleBackground, titleForeground;
    String titleString;
    Dimension titleMargin;
    XmFontList titleFontList;
    unsigned char titleItemAlignment;
    unsigned char titleItemType;
    String layoutString;
    XwkIcon *titleDragIcon;
    XmFontList fontList;
    String defaultCharSet;
    String selectCharSet;
    Dimension treeMarginWidth, treeMarginHeight;
    Boolean treeTrunkDrawing;
    Dimension vFontPad;
    int visibleLines;
    Dimension vPad;
    XmPrjTreeCreateIconProc createIconProc;
    XmPrjTreeSortProc sortProc;
    Boolean useSort;
    Boolean useAverageColumnWidth;
    Boolean useTitleScrolling;
    int sortColumn;
    unsigned char sortDirection;
    Boolean showGrid;
    Widget cellTextField, cellComboBox, cellPushButton;
    Widget cellActive;
    XmPrjTreeNode cellNodeId;
    int cellColumn;
    XmPrjTreeNode currentNodeId;
    XtCallbackList cellManageCallback;

    /* other fields */
    XRectangle redraw;                  /* mother */
    Dimension iconWidth;                /* mother */
    Dimension stateIconWidth;           /* mother */
    Dimension fontWidth, labelHeight, defaultLabelHeight;  /* mother */
    int xOrigin;
    int topRow;
    int lastHScroll, lastVScroll;
    Time lastClickTime;
    int clickCount;
    XtIntervalId autoScrollTimer;
    int visibleRows;
    Boolean hasFocus;
    Boolean builtinOpen, builtinClosed, builtinFruitless;
    Widget hScrollBar, vScrollBar;
    GC eraseGC, pixmapGC, activeBackgroundGC, inactiveBackgroundGC, highlightGC, textGC,
        activeTextGC, inactiveTextGC, trunkGC, gridGC, sashGC, titleTextGC, titleEraseGC,
        titleShadowGC;
    short sashPosition;
    int titleMotion;
    unsigned char buttonState;
    XwkTree *tree;                      /* mother */
    XwkList *visibleList;               /* mother; NULL without canSlam */
    XmPrjTreeNode currentNode;          /* mother */
    XmPrjTreeNode lastClickNode;
    XmPrjTreeNode tourStart;            /* mother */
    int selectedCount;                  /* mother */
    XmPrjTreeNode highlightedNode;      /* mother */
    Widget highlightedWidget;           /* mother */
    Dimension comboArrowWidth;          /* mother */
    XtIntervalId relayoutTimer;
    XtIntervalId dragTimer;             /* mother */
    XtActionProc dragAction;            /* mother */
    XEvent dragEvent;                   /* mother */
    unsigned int flags;                 /* XmPrjTreeFlags */
    XmPrjTreeTitleRec *title;           /* mother; NULL in a simple list */
    XwkList *columns;                   /* mother; the title's columns */
    Boolean sortHasRun;                 /* mother */
    Boolean columnsPermuted;            /* mother */
    XmPrjTreeNode pressNode;            /* the node of the last press */
    int pressX, pressY;
    XtPointer state;                    /* the C++ side of the view */
} XmPrjTreePart;

typedef struct _XmPrjTreeRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmDrawingAreaPart drawing_area;
    XmPrjTreePart tree;
} XmPrjTreeRec;

typedef struct {
    XtPointer unused;
} XmPrjTreeConstraintPart;

typedef struct _XmPrjTreeConstraintRec {
    XmManagerConstraintPart manager;
    XmPrjTreeConstraintPart tree;
} XmPrjTreeConstraintRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
