/**
 * \file
 * \ingroup companions
 * \brief Private records of the folder: the class record, the instance
 * record with its page records, and the constraint record, in Motif style.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/Folder.h and the widget's resources.
 */
#ifndef XWK_FOLDERP_H
#define XWK_FOLDERP_H

#include <Xwk/Folder.h>
#include <Xm/ManagerP.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Class part of XmFolder: nothing of its own. */
typedef struct {
    XtPointer extension;   /**< Class extension; NULL. */
} XmFolderClassPart;

/** Class record of XmFolder. */
typedef struct _XmFolderClassRec {
    CoreClassPart core_class;             /**< Core part. */
    CompositeClassPart composite_class;   /**< Composite part. */
    ConstraintClassPart constraint_class; /**< Constraint part. */
    XmManagerClassPart manager_class;     /**< XmManager part. */
    XmFolderClassPart folder_class;       /**< Folder part. */
} XmFolderClassRec;

/** The class record of XmFolder; xmFolderWidgetClass points at it. */
extern XmFolderClassRec xmFolderClassRec;

/** Constraint part of every child. */
typedef struct {
    long folderId;                   /**< XmNfolderId: the page the child is bound to, 0 none. */
    XmString folderLabelString;      /**< XmNfolderLabelString: the child's own copy, or NULL. */
    struct _XwkIcon *folderLabelIcon; /**< XmNfolderLabelIcon, borrowed. */
    Dimension folderMarginWidth;     /**< XmNfolderMarginWidth. */
    Dimension folderMarginHeight;    /**< XmNfolderMarginHeight. */
} XmFolderConstraintPart;

/** Constraint record of every child of XmFolder. */
typedef struct _XmFolderConstraintRec {
    XmManagerConstraintPart manager; /**< XmManager constraint part. */
    XmFolderConstraintPart folder;   /**< Folder constraint part. */
} XmFolderConstraintRec, *XmFolderConstraint;

/** \typedef XmFolderConstraint
 * Pointer to the constraint record of a child of XmFolder. */

/** One page. */
typedef struct {
    int id;                 /**< Id, from the folder's nextFolderId; never 0. */
    XmString label;         /**< Label: the page's own, or with XmNautoManage the child's
                                 XmNfolderLabelString. */
    struct _XwkIcon *icon;  /**< Icon, borrowed, or NULL. */
    Dimension textWidth;    /**< Larger width of the label in the two tab fonts. */
    Dimension textHeight;   /**< Larger height of the label in the two tab fonts. */
    Dimension tabWidth;     /**< textWidth + XmNspacing + icon width. */
    Dimension tabHeight;    /**< Larger of textHeight and the icon's height. */
    Position x;             /**< Tab rectangle from the last drawing: left, */
    Position y;             /**< top, */
    Dimension width;        /**< width */
    Dimension height;       /**< and height. */
    Widget widget;          /**< Child bound to the page, or NULL. */
} XmFolderPage;

/** Bit of XmFolderPart.flags: initialize is running. */
#define XmFOLDER_INITIALIZING (1u << 0)
/** Bit of XmFolderPart.flags: the layout holds for the pages and children. */
#define XmFOLDER_LAYOUT_VALID (1u << 1)
/** Bit of XmFolderPart.flags: the first change_managed has run. */
#define XmFOLDER_MANAGED_ONCE (1u << 2)
/** Bit of XmFolderPart.flags: the folder itself is managing or unmanaging
 * a child. */
#define XmFOLDER_MANAGING (1u << 3)

/** Instance part of XmFolder: resources first, then the state. */
typedef struct {
    Boolean autoManage;           /**< XmNautoManage. */
    Boolean doTraversal;          /**< XmNdoTraversal. */
    int activePage;               /**< XmNactivePage, from 1. */
    int topTab;                   /**< XmNtopTab, from 1. */
    int visibleTabCount;          /**< XmNvisibleTabCount. */
    XmFontList activeTabFontList; /**< XmNactiveTabFontList: the folder's copy. */
    Dimension activeTabOffset;    /**< XmNactiveTabOffset. */
    XmFontList tabFontList;       /**< XmNtabFontList: the folder's copy. */
    XmFontList fontList;          /**< XmNfontList: the folder's copy. */
    Dimension marginWidth;        /**< XmNmarginWidth. */
    Dimension marginHeight;       /**< XmNmarginHeight. */
    Dimension tabMarginWidth;     /**< XmNtabMarginWidth. */
    Dimension tabMarginHeight;    /**< XmNtabMarginHeight. */
    Dimension tabCornerSize;      /**< XmNtabCornerSize, not used. */
    Dimension tabHighlightThickness; /**< XmNtabHighlightThickness, resolved. */
    Dimension spacing;            /**< XmNspacing. */
    XtCallbackList changePageCallback; /**< XmNchangePageCallback. */
    Pixel folderHighlightColor;   /**< XmNfolderHighlightColor. */
    Boolean highlightNonActive;   /**< XmNhighlightNonActive. */
    Boolean useHighlight;         /**< XmNuseHighlight. */
    Boolean useTabs;              /**< XmNuseTabs. */
    Boolean useMenu;              /**< XmNuseMenu. */

    int nextFolderId;             /**< Id of the next page; from 1. */
    unsigned int flags;           /**< XmFOLDER_INITIALIZING and the other XmFOLDER_ bits. */
    XmFolderPage *pages;          /**< The pages in tab order (XtRealloc'd), or NULL. */
    int pageCount;                /**< Number of pages. */
    Dimension tabAreaHeight;      /**< Height of the tab row down to the page frame. */
    Dimension preferredWidth;     /**< Size the layout works with: wanted, then granted. */
    Dimension preferredHeight;    /**< Height the layout works with; 0 before the first layout. */
    Dimension maxTabHeight;       /**< Largest tabHeight of the pages. */
    Boolean leftArrowShown;       /**< The left arrow is shown. */
    Boolean rightArrowShown;      /**< The right arrow is shown. */
    XRectangle leftArrow;         /**< Box of the left arrow. */
    XRectangle rightArrow;        /**< Box of the right arrow. */
    XSegment *segments;           /**< Buffer of the outline's segments (XtRealloc'd, never shrunk). */
    int segmentCapacity;          /**< Segments the buffer holds. */
    GC backgroundGC;              /**< Background colour. */
    GC inactiveTextGC;            /**< Text of the inactive tabs. */
    GC activeTextGC;              /**< Text of the active tab. */
    GC inactiveFillGC;            /**< Fill of the inactive tabs with XmNhighlightNonActive. */
    GC inactiveFillTextGC;        /**< Text on that fill. */
    GC highlightFillGC;           /**< XmNfolderHighlightColor. */
    GC highlightTextGC;           /**< Text on XmNfolderHighlightColor. */
    int savedPage;                /**< Page active at realize, for FolderActivate. */
    int armedTab;                 /**< Page number of the tab pressed, 0 none. */
    unsigned char armedArrow;     /**< Arrow pressed: 1 left, 2 right, 0 none. */
    Widget folderList;            /**< The popup list "folderList", or NULL. */
    Time pressTime;               /**< Time of the press on an arrow; 0 none. */
    XtIntervalId repeatTimer;     /**< Repeat of a held arrow; 0 none. */
    XRectangle redraw;            /**< Bounding box of the region being repainted. */
    Boolean inExpose;             /**< redraw holds: the drawing is for an exposure. */
} XmFolderPart;

/** Instance record of XmFolder. */
typedef struct _XmFolderRec {
    CorePart core;              /**< Core part. */
    CompositePart composite;    /**< Composite part. */
    ConstraintPart constraint;  /**< Constraint part. */
    XmManagerPart manager;      /**< XmManager part. */
    XmFolderPart folder;        /**< Folder part. */
} XmFolderRec;

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
