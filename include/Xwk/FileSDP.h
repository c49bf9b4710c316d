/**
 * \file
 * \ingroup filedesk
 * \brief Private records of the file selection desk: the class record and
 * the instance record, in Motif style.
 *
 * For subclasses and for the widget's own sources; applications use
 * Xwk/FileSD.h and the widget's resources.
 */
#ifndef XWK_FILESDP_H
#define XWK_FILESDP_H

#include <Xwk/FileSD.h>
#include <Xm/FormP.h>
#include <Xwk/PrjDesk.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Class part of XmFileSelectionDesk: nothing of its own. */
typedef struct {
    XtPointer extension;   /**< Class extension; NULL. */
} XmFileSelectionDeskClassPart;

/** Class record of XmFileSelectionDesk. */
typedef struct _XmFileSelectionDeskClassRec {
    CoreClassPart core_class;                   /**< Core part. */
    CompositeClassPart composite_class;         /**< Composite part. */
    ConstraintClassPart constraint_class;       /**< Constraint part. */
    XmManagerClassPart manager_class;           /**< XmManager part. */
    XmBulletinBoardClassPart bulletin_board_class; /**< XmBulletinBoard part. */
    XmFormClassPart form_class;                 /**< XmForm part. */
    XmFileSelectionDeskClassPart desk_class;    /**< Desk part. */
} XmFileSelectionDeskClassRec;

/** The class record; xmFileSelectionDeskWidgetClass points at it. */
extern XmFileSelectionDeskClassRec xmFileSelectionDeskClassRec;

/** Translations of the directory tree and the file view: Tab and Shift
 * Tab, Ctrl+u swaps the panels, Ctrl+o turns the paned window. */
extern XtTranslations _XmFileSDPanelsTranslts;
/** Translations of the filter text: a click makes the pattern editable. */
extern XtTranslations _XmFileSDComboBoxTextTranslts;

/** One button of the action area. */
typedef struct {
    Widget button;               /**< The push button, or NULL. */
    String label;                /**< Its label resource. */
    XtCallbackList callback;     /**< Its callback list. */
} XmFileSDButton;

/** Instance part of XmFileSelectionDesk. */
typedef struct {
    Widget title_label;          /**< Title label, or NULL. */
    String title_string;         /**< titleString. */
    Widget paned_window;         /**< "fsdPanedW", or NULL. */
    Widget left_form;            /**< "fsdLeftForm", or NULL. */
    Widget dir_tree_sw;          /**< "fsdDirTreeSW". */
    Widget dir_tree;             /**< "fsdDirTree". */
    Widget right_form;           /**< "fsdRightForm", or NULL. */
    Widget right_sw_form;        /**< "fsdRightSWForm", or NULL. */
    Widget filter_label;         /**< "fsdFilterLabel", or NULL. */
    String filter_label_string;  /**< filterLabelString. */
    Widget filter_text;          /**< Text of the filter combo box, or NULL. */
    Widget filter_combo;         /**< "fsdFilterComboBox", or NULL. */
    String filter_text_string;   /**< Unused. */
    Widget selection_label;      /**< "fsdSelectionLabel", or NULL. */
    String selection_label_string; /**< selectionLabelString. */
    Widget selection_text;       /**< "fsdSelectionText", or NULL. */
    String selection_text_string; /**< Text of the selection field (may alias a node's path). */
    Widget user_area;            /**< The application's child, or NULL. */
    Widget separator_upper;      /**< Upper separator, or NULL. */
    Widget separator_lower;      /**< Lower separator, or NULL. */
    String directory_tree_title; /**< directoryTreeTitle. */
    String directory;            /**< directory, the desk's copy. */
    String shown_directory;      /**< Path last shown in the selection field; XtMalloc. */
    String pattern;              /**< pattern, the desk's copy. */
    String patterns_description; /**< patternsDescription, the desk's copy. */
    FsdPattern **patterns;       /**< The pattern rows, pattern_count + 1. */
    int pattern_count;           /**< Rows after the user's. */
    int pattern_position;        /**< patternPosition. */
    Boolean use_file_desk;       /**< useFileDesk. */
    Widget file_view;            /**< The current file view, or NULL. */
    Widget file_desk;            /**< "fsdFileDesk", or NULL. */
    Widget file_list;            /**< "fsdFileList", or NULL. */
    String full_info_layout;     /**< fullInfoLayoutString, the desk's copy. */
    Widget action_area;          /**< "fsdActionArea", or NULL. */
    WidgetList action_buttons;   /**< Zero-ended table of the buttons; XtMalloc. */
    XmFileSDButton ok;           /**< OK. */
    XtCallbackList no_match_callback; /**< noMatchCallback. */
    XmFileSDButton cancel;       /**< Cancel. */
    XmFileSDButton filter;       /**< Filter. */
    Widget info_button;          /**< Info. */
    String *info_labels;         /**< The two labels of Info. */
    XtCallbackList info_callback; /**< infoCallback. */
    XmFileSDButton new_file;     /**< New File. */
    XmFileSDButton help;         /**< Help (its callback list is unused: help goes through the desk's). */
    GC gc;                       /**< Never created; freed when set. */
    FsdDirNode *current_dir;     /**< The directory shown. */
    Pixel active_background;     /**< activeBackground. */
    Pixel active_foreground;     /**< activeForeground. */
    Pixel normal_background;     /**< normalBackground. */
    Pixel normal_foreground;     /**< normalForeground. */
    unsigned char selection_policy;    /**< selectionPolicy. */
    unsigned char selection_desk_type; /**< selectionDeskType. */
    FsdCreateIconProc create_icon_proc; /**< createIconProc. */
    FsdGetIconProc get_icon_proc;       /**< getIconProc. */
    Boolean use_deny_write_icon; /**< useDenyWriteIcon. */
    Boolean use_deny_read_icon;  /**< useDenyReadIcon. */
    XtPointer drag_icon;         /**< multipleSelectionDragIcon. */
    XtPointer icons[12];         /**< The twelve icons, in creation order. */
    XtCallbackList file_list_changed_callback; /**< fileListChangedCallback. */
    XtCallbackList single_selection_callback;  /**< singleSelectionCallback. */
    XtCallbackList multiple_selection_callback; /**< multipleSelectionCallback, never called. */
    XtCallbackList default_action_callback;    /**< defaultActionCallback. */
    XtCallbackList focus_callback;             /**< focusCallback. */
    Boolean use_busy_cursor;     /**< useBusyCursor. */
    Boolean use_new_file_button; /**< useNewFileButton. */
    Boolean scan_dir_on_sub_dirs; /**< scanDirOnSubDirs. */
    Boolean initializing;        /**< True until initialize ends. */
    Cursor busy_cursor;          /**< busyCursor. */
    FsdEntry **entries;          /**< The entries of the last scan. */
    int item_count;              /**< Entries shown. */
    int entry_count;             /**< Entries read. */
    int repeat_delay;            /**< repeatDelay, milliseconds. */
    XtIntervalId select_timer;   /**< Scan after a tree selection. */
    unsigned long scroll_repeat; /**< Repeat delay of the drop auto scroll. */
    XtIntervalId scroll_timer;   /**< Drop auto scroll. */
    XtPointer pending_open;      /**< Dropped files waiting for delivery. */
    Atom transfer_target;        /**< Target of the last delivered value. */
    unsigned char filter_appearance;    /**< filterAppearance. */
    unsigned char selection_appearance; /**< selectionAppearance. */
    unsigned char style;                /**< style. */
    Boolean use_extended_info_mode;     /**< useExtendedInfoMode. */
    unsigned char default_info_mode;    /**< defaultInfoMode. */
    unsigned char representation;       /**< representation. */
    unsigned char place_direction;      /**< placeDirection. */
    unsigned char place_order;          /**< placeOrder. */
    unsigned char spare;                /**< Unused. */
    unsigned int flags;                 /**< FSD_ bits. */
    XwkList *user_cache;                /**< User names. */
    XwkList *group_cache;               /**< Group names. */
    XmPrjTreeCallbackStruct saved_tree_event; /**< Copy of the last tree selection's call data. */
    XmPrjTreeSortProc list_sort_proc;   /**< The detail list's own sortProc. */
    XmPrjDeskSortProc desk_sort_proc;   /**< The desk list's own sortProc. */
    int sort_column;                    /**< sortColumn. */
    unsigned char sort_direction;       /**< sortDirection. */
    XtCallbackList transfer_done_callback; /**< transferDoneCallback. */
    unsigned char pane_orientation;     /**< paneOrientation. */
    Boolean configure_sash;             /**< configureSash. */
    XtPointer state;                    /**< The desk's C++ state. */
} XmFileSelectionDeskPart;

/** Instance record of XmFileSelectionDesk. */
typedef struct _XmFileSelectionDeskRec {
    CorePart core;                      /**< Core part. */
    CompositePart composite;            /**< Composite part. */
    ConstraintPart constraint;          /**< Constraint part. */
    XmManagerPart manager;              /**< XmManager part. */
    XmBulletinBoardPart bulletin_board; /**< XmBulletinBoard part. */
    XmFormPart form;                    /**< XmForm part. */
    XmFileSelectionDeskPart fsd;        /**< Desk part. */
} XmFileSelectionDeskRec, *XmFileSelectionDeskWidget;

/** \typedef XmFileSelectionDeskWidget
 * Pointer to the instance record of a desk. */

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
