/**
 * \file
 * \ingroup filedesk
 * \brief The records of the file selection desk, its call data, and the
 * helpers that format what it shows.
 *
 * The desk keeps one FsdDirNode per directory of its directory tree, and
 * for the directory it shows one FsdEntry per directory entry it kept,
 * with an FsdFileItem for what the file view shows of it.  The filter
 * patterns are FsdPattern rows.  Applications meet these records as the
 * client data of the views' items and through FsdCallbackStruct.
 *
 * **The working directory.**  Reading a directory changes the working
 * directory of the process: the desk steps into the directory, so that it
 * can look at the bare entry names, and afterwards steps to its "..".  The
 * working directory is not restored: after a scan of "/a/b/" it is "/a"
 * (for a directory reached through a symbolic link, the parent of the
 * link's target).  An application that shows a file selection desk must
 * not rely on relative paths: make paths absolute before the first scan.
 */
#ifndef XWK_FILESD_H
#define XWK_FILESD_H

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>
#include <dirent.h>
#include <regex.h>
#include <sys/stat.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** \name Bits of the desk's flags word
 * @{ */
/** A default action in the file view is being handled. */
#define FSD_DEFAULT_ACTION 0x08
/** The scan only shows the entries it has in another representation. */
#define FSD_SCAN_REPRESENT_ONLY 0x10
/** The desk itself is selecting in the file view. */
#define FSD_SELECTING_PROGRAMMATICALLY 0x20
/** A pattern change is under way. */
#define FSD_PATTERN_BUSY 0x40
/** The user selected in the directory tree. */
#define FSD_USER_SELECT 0x80
/** A refresh is running: scroll positions and the current item stay. */
#define FSD_REFRESH 0x100
/** The directory tree is being rebuilt. */
#define FSD_REBUILD 0x200
/** @} */

/** The call data of every callback of the file selection desk.  The
 * strings and the stat record belong to the desk and live until the next
 * scan; copy what you keep.
 *
 * Reasons, Motif's numbers: 1 (XmCR_HELP) help, 18 (XmCR_FOCUS) focus, 23
 * (XmCR_SINGLE_SELECT) single selection, 27 (XmCR_DEFAULT_ACTION) default
 * action, 31 (XmCR_OK) OK, the file list changed and a drop was
 * delivered, 32 (XmCR_CANCEL) cancel, 35 (XmCR_NO_MATCH) no match, 47
 * filter, 48 info, 49 new file. */
typedef struct {
    int reason;          /**< Why the callback is called; see above. */
    XEvent *event;       /**< The event that led to the call, or NULL. */
    char *path;          /**< Full path of the entry; a directory ends in "/". */
    char *directory;     /**< Path of the directory, with a trailing "/". */
    char *name;          /**< Name of the entry within the directory. */
    struct stat *stat;   /**< The entry's stat record (its target's for a link). */
} FsdCallbackStruct;

struct _FsdFileItem;

/** One directory of the directory tree, owned by its tree item and freed
 * with it. */
typedef struct _FsdDirNode {
    Widget desk;                 /**< The owning desk. */
    char *path;                  /**< Full path with a trailing "/" ("/" for the root); XtMalloc. */
    char *link_target;           /**< Text of the symbolic link the directory is reached through, or NULL; XtMalloc. */
    struct stat stat;            /**< Of the directory, or of the link's target. */
    XtPointer tree_item;         /**< Its item in the directory tree. */
    int file_count;              /**< Entries shown at the last scan, ".." included; 0 until scanned. */
    struct _FsdFileItem *last_item; /**< The entry last selected here, or NULL. */
    XtPointer spare;             /**< Cleared with last_item. */
} FsdDirNode;

/** One directory entry a scan kept.  The entries of a scan live until the
 * next scan of the desk. */
typedef struct _FsdEntry {
    struct dirent *dirent;       /**< Copy of the directory record (its record length), holding the name. */
    struct stat *stat;           /**< lstat of the entry. */
    char *link_target;           /**< Text of the symbolic link, or NULL. */
    struct stat *target_stat;    /**< stat of the link's target, or NULL. */
    struct _FsdFileItem *item;   /**< What the file view shows for it, or NULL when it is not shown. */
} FsdEntry;

/** The client data of an item of the file view, with the life of its
 * FsdEntry. */
typedef struct _FsdFileItem {
    FsdDirNode *dir;             /**< Its directory. */
    char *path;                  /**< Full path; a directory ends in "/"; for ".." the directory's own path. */
    char *name;                  /**< The entry name. */
    FsdEntry *entry;             /**< Its entry. */
    struct stat *stat;           /**< The target's stat for a link, else the entry's. */
    unsigned char selected;      /**< Selection state, as the view reported it. */
    unsigned char is_dir;        /**< True for a directory or a link to one. */
    XtPointer large_icon;        /**< Icon (XwkIcon) of the large-icon view, or NULL until needed. */
    XtPointer small_icon;        /**< Icon (XwkIcon) of the small-icon and detail views, or NULL until needed. */
    XtPointer handle;            /**< Its item in the current view. */
} FsdFileItem;

/** One row of the filter patterns: a named group of file name patterns. */
typedef struct {
    char *name;                  /**< Shown in the pattern list; XtMalloc. */
    char *text;                  /**< The patterns joined by "; " (row 0: the user's text); XtMalloc, or NULL. */
    int count;                   /**< Number of patterns. */
    char **globs;                /**< Each pattern as written; XtMalloc. */
    regex_t *regexes;            /**< One compiled expression per pattern; an all-zero slot when it did not compile. */
} FsdPattern;

/**
 * \brief Writes the ten-character mode text of ls -l: the type ("b", "c",
 * "d", "-", "p", "l", "s", "?"), then read, write and execute of owner,
 * group and others, with "s"/"S" for set-user and set-group and "t"/"T"
 * for sticky.
 * \param mode the st_mode of a stat record.
 * \param buffer at least ten bytes; no terminating NUL is written.
 */
void mode_string(unsigned int mode, char *buffer);

/**
 * \brief The mode text of a stat record, as mode_string, with a NUL.
 * \param stat the record; NULL gives NULL.
 * \param buffer at least eleven bytes; NULL gives NULL.
 * \return buffer.
 */
char *XmFileSelectionDeskConvertStatToString(struct stat *stat, char *buffer);

/**
 * \brief Removes all white space (blanks, tabs, newlines and the like) of a
 * text in place.
 * \param text the text; NULL gives NULL.
 * \return text.
 */
char *XwkRemoveAllSpaces(char *text);

/* ---- Resource names ------------------------------------------------------ */

/** Resource \c style: representation style: which parts are built (XmFILE_SELECTION_USE_ACTION_AREA or XmFILE_SELECTION_SIMPLE_DESK; default the simple desk). */
#define XmNstyle ((char *)"style")
/** Resource \c defaultInfoMode: infoMode: kept for the application (default info_full). */
#define XmNdefaultInfoMode ((char *)"defaultInfoMode")
/** Resource \c useExtendedInfoMode: Boolean: the Info button exists (default True). */
#define XmNuseExtendedInfoMode ((char *)"useExtendedInfoMode")
/** Resource \c representation: representation: how the file view shows entries (XmREPRESENTATION_ values; default large icons). */
#define XmNrepresentation ((char *)"representation")
/** Resource \c placeDirection: placeDirection: kept for the application (default ascending). */
#define XmNplaceDirection ((char *)"placeDirection")
/** Resource \c placeOrder: placeOrder: kept for the application (default by name). */
#define XmNplaceOrder ((char *)"placeOrder")
/** Resource \c normalBackground: Pixel: set at creation to the directory tree's background. */
#define XmNnormalBackground ((char *)"normalBackground")
/** Resource \c normalForeground: Pixel: set at creation to the directory tree's foreground. */
#define XmNnormalForeground ((char *)"normalForeground")
/** Resource \c directoryTreeTitle: String: title of the directory tree. */
#define XmNdirectoryTreeTitle ((char *)"directoryTreeTitle")
/** Resource \c patternsDescription: String: the pattern groups, "name|pattern;pattern|name|..." (default "All files|*"). */
#define XmNpatternsDescription ((char *)"patternsDescription")
/** Resource \c patternPosition: int: selected row of the pattern list, 0 the user's own pattern (default 1). */
#define XmNpatternPosition ((char *)"patternPosition")
/** Resource \c useFileDesk: Boolean: False builds the directory tree alone (default True). */
#define XmNuseFileDesk ((char *)"useFileDesk")
/** Resource \c multipleSelectionDragIcon: Pixmap (an XwkIcon *): drag icon of more than one item. */
#define XmNmultipleSelectionDragIcon ((char *)"multipleSelectionDragIcon")
/** Resource \c useDenyReadIcon: Boolean: a special icon for unreadable directories (default True). */
#define XmNuseDenyReadIcon ((char *)"useDenyReadIcon")
/** Resource \c useDenyWriteIcon: Boolean: a special icon for unwritable directories (default False). */
#define XmNuseDenyWriteIcon ((char *)"useDenyWriteIcon")
/** Resource \c deskRegularIcon: XwkIcon *: large icon of a regular file. */
#define XmNdeskRegularIcon ((char *)"deskRegularIcon")
/** Resource \c deskExecIcon: XwkIcon *: large icon of an executable file. */
#define XmNdeskExecIcon ((char *)"deskExecIcon")
/** Resource \c deskDirIcon: XwkIcon *: large icon of a directory. */
#define XmNdeskDirIcon ((char *)"deskDirIcon")
/** Resource \c deskDirDenyReadIcon: XwkIcon *: large icon of an unreadable directory. */
#define XmNdeskDirDenyReadIcon ((char *)"deskDirDenyReadIcon")
/** Resource \c deskDirDenyWriteIcon: XwkIcon *: large icon of an unwritable directory. */
#define XmNdeskDirDenyWriteIcon ((char *)"deskDirDenyWriteIcon")
/** Resource \c deskDirUpIcon: XwkIcon *: large icon of "..". */
#define XmNdeskDirUpIcon ((char *)"deskDirUpIcon")
/** Resource \c treeDirIcon: XwkIcon *: small icon of a directory. */
#define XmNtreeDirIcon ((char *)"treeDirIcon")
/** Resource \c treeDirUpIcon: XwkIcon *: small icon of "..". */
#define XmNtreeDirUpIcon ((char *)"treeDirUpIcon")
/** Resource \c treeDirOpenIcon: XwkIcon *: small icon of the selected directory of the tree. */
#define XmNtreeDirOpenIcon ((char *)"treeDirOpenIcon")
/** Resource \c treeDirDenyReadIcon: XwkIcon *: small icon of an unreadable directory. */
#define XmNtreeDirDenyReadIcon ((char *)"treeDirDenyReadIcon")
/** Resource \c treeDirDenyWriteIcon: XwkIcon *: small icon of an unwritable directory. */
#define XmNtreeDirDenyWriteIcon ((char *)"treeDirDenyWriteIcon")
/** Resource \c treeRegularIcon: XwkIcon *: small icon of a file. */
#define XmNtreeRegularIcon ((char *)"treeRegularIcon")
/** Resource \c okButtonLabelString: String: label of the OK button (default "OK"). */
#define XmNokButtonLabelString ((char *)"okButtonLabelString")
/** Resource \c cancelButtonLabelString: String: label of the Cancel button (default "Cancel"). */
#define XmNcancelButtonLabelString ((char *)"cancelButtonLabelString")
/** Resource \c filterButtonLabelString: String: label of the Filter button (default "Filter"). */
#define XmNfilterButtonLabelString ((char *)"filterButtonLabelString")
/** Resource \c infoButtonLabelString: String table: the two labels of the Info button (default "Brief Info", "Full Info"). */
#define XmNinfoButtonLabelString ((char *)"infoButtonLabelString")
/** Resource \c newFileButtonLabelString: String: label of the New File button (default "New File"). */
#define XmNnewFileButtonLabelString ((char *)"newFileButtonLabelString")
/** Resource \c helpButtonLabelString: String: label of the Help button (default "Help"). */
#define XmNhelpButtonLabelString ((char *)"helpButtonLabelString")
/** Resource \c selectionTextString: String: text of the selection field; read back without white space, a leading tilde expanded (a copy the caller frees; NULL without the field). */
#define XmNselectionTextString ((char *)"selectionTextString")
/** Resource \c filterAppearance: Appearance: where the filter row stands (XmAPPEARANCE_ values; default none). */
#define XmNfilterAppearance ((char *)"filterAppearance")
/** Resource \c selectionAppearance: Appearance: where the selection row stands (default none). */
#define XmNselectionAppearance ((char *)"selectionAppearance")
/** Resource \c selectionDeskType: DeskSelection: what the desk accepts (XmSELECT_ values; default any entry). */
#define XmNselectionDeskType ((char *)"selectionDeskType")
/** Resource \c busyCursor: Cursor: cursor during a scan. */
#define XmNbusyCursor ((char *)"busyCursor")
/** Resource \c useBusyCursor: Boolean: show busyCursor during a scan (default False). */
#define XmNuseBusyCursor ((char *)"useBusyCursor")
/** Resource \c useNewFileButton: Boolean: the New File button exists (default False). */
#define XmNuseNewFileButton ((char *)"useNewFileButton")
/** Resource \c scanDirOnSubDirs: Boolean: look into each directory for sub-directories before its tree node may open (default False). */
#define XmNscanDirOnSubDirs ((char *)"scanDirOnSubDirs")
/** Resource \c filterCallback: callback: the Filter button (reason 47). */
#define XmNfilterCallback ((char *)"filterCallback")
/** Resource \c infoCallback: callback: the Info button (reason 48). */
#define XmNinfoCallback ((char *)"infoCallback")
/** Resource \c newFileCallback: callback: the New File button (reason 49). */
#define XmNnewFileCallback ((char *)"newFileCallback")
/** Resource \c fileListChangedCallback: callback: a scan filled the file view (reason 31). */
#define XmNfileListChangedCallback ((char *)"fileListChangedCallback")
/** Resource \c transferDoneCallback: callback: files were dropped on the desk (an FsdTransferDoneCallbackStruct). */
#define XmNtransferDoneCallback ((char *)"transferDoneCallback")
/** Resource \c getIconProc: FsdGetIconProc: chooses the icon of a file, or hides it. */
#define XmNgetIconProc ((char *)"getIconProc")
/** Resource \c fullInfoLayoutString: String: column layout of the detail view. */
#define XmNfullInfoLayoutString ((char *)"fullInfoLayoutString")
/** Resource \c paneOrientation: orientation of the paned window (default XmHORIZONTAL). */
#define XmNpaneOrientation ((char *)"paneOrientation")
/** Resource \c configureSash: Boolean: the paned window gets the flat sash (default True). */
#define XmNconfigureSash ((char *)"configureSash")
/** Resource \c actionArea: Widget, read only: the form of the buttons. */
#define XmNactionArea ((char *)"actionArea")
/** Resource \c directoryTree: Widget, read only: the directory tree. */
#define XmNdirectoryTree ((char *)"directoryTree")
/** Resource \c fileDesk: Widget, read only: the current file view. */
#define XmNfileDesk ((char *)"fileDesk")
/** Resource \c separator: Widget, read only: the separator above the action area. */
#define XmNseparator ((char *)"separator")
/** Resource \c userArea: Widget, read only: the application's child. */
#define XmNuserArea ((char *)"userArea")
/** Resource \c okButton: Widget, read only. */
#define XmNokButton ((char *)"okButton")
/** Resource \c filterButton: Widget, read only. */
#define XmNfilterButton ((char *)"filterButton")
/** Resource \c infoButton: Widget, read only. */
#define XmNinfoButton ((char *)"infoButton")
/** Resource \c newFileButton: Widget, read only. */
#define XmNnewFileButton ((char *)"newFileButton")
/** Resource \c helpButton: Widget, read only. */
#define XmNhelpButton ((char *)"helpButton")
/** Resource \c filterLabel: Widget, read only. */
#define XmNfilterLabel ((char *)"filterLabel")
/** Resource \c filterText: Widget, read only: the text of the filter combo box. */
#define XmNfilterText ((char *)"filterText")
/** Resource \c selectionLabel: Widget, read only. */
#define XmNselectionLabel ((char *)"selectionLabel")
/** Resource \c selectionText: Widget, read only. */
#define XmNselectionText ((char *)"selectionText")
/** Resource \c filterTextString: String, read only: the text of the filter field, a copy. */
#define XmNfilterTextString ((char *)"filterTextString")

/* ---- The widget ---------------------------------------------------------- */

/** The widget class of the file selection desk (class name
 * "XmFileSelectionDesk", a subclass of xmFormWidgetClass). */
extern WidgetClass xmFileSelectionDeskWidgetClass;

/** \name Values of the desk's enumerated resources
 * @{ */
#define XmFILE_SELECTION_USE_ACTION_AREA 0 /**< style: title, rows, separators and buttons. */
#define XmFILE_SELECTION_SIMPLE_DESK 1     /**< style: the tree and the file view alone. */
#define XmAPPEARANCE_NONE 0            /**< Appearance: the row is not built. */
#define XmAPPEARANCE_ABOVE_DESK 1      /**< Appearance: above the paned window. */
#define XmAPPEARANCE_ABOVE_DIR_TREE 2  /**< Appearance: above the directory tree. */
#define XmAPPEARANCE_ABOVE_FILE_DESK 3 /**< Appearance: above the file view. */
#define XmAPPEARANCE_UNDER_DESK 4      /**< Appearance: under the paned window. */
#define XmAPPEARANCE_UNDER_DIR_TREE 5  /**< Appearance: under the directory tree. */
#define XmAPPEARANCE_UNDER_FILE_DESK 6 /**< Appearance: under the file view. */
#define XmSELECT_ANY_ENTRY 0           /**< selectionDeskType: files and directories. */
#define XmSELECT_ONLY_DIRS 1           /**< selectionDeskType: directories; files cannot be selected. */
#define XmSELECT_ONLY_FILES 2          /**< selectionDeskType: files; directories cannot be selected (value name "select_only_filesselect_executables"). */
#define XmREPRESENTATION_NAME_ONLY 0   /**< representation: names alone. */
#define XmREPRESENTATION_LARGE_ICONS 1 /**< representation: large icons. */
#define XmREPRESENTATION_SMALL_ICONS 2 /**< representation: small icons. */
#define XmREPRESENTATION_DETAIL 3      /**< representation: the table of seven columns. */
/** @} */

/** Chooses the icon of a file of the file view (resource getIconProc).
 * \param desk the desk.
 * \param st the entry's stat record.
 * \param path the full path.
 * \param icon receives the icon (an XwkIcon *).
 * \return True to show the file with *icon; False hides it. */
typedef Boolean (*FsdGetIconProc)(Widget desk, struct stat *st, char *path, XtPointer *icon);

/** Makes an icon for the desk (resource createIconProc).
 * \param desk the desk.
 * \param data the XPM data of the built-in icon.
 * \param unused 0.
 * \param name the icon's name, such as "TreeDir".
 * \return the icon (an XwkIcon *), or NULL. */
typedef XtPointer (*FsdCreateIconProc)(Widget desk, char **data, XtPointer unused, const char *name);

/** The call data of transferDoneCallback: files dropped on the desk.  The
 * strings live during the call only. */
typedef struct {
    int reason;                  /**< 31 (XmCR_OK). */
    XEvent *event;               /**< NULL. */
    unsigned char operation;     /**< The drop's operation (XmDROP_MOVE, XmDROP_COPY, XmDROP_LINK). */
    char *directory;             /**< Target directory, without a trailing "/". */
    char **files;                /**< The dropped paths that exist. */
    int count;                   /**< Number of files. */
} FsdTransferDoneCallbackStruct;

/**
 * \brief Creates a file selection desk, unmanaged.
 * \param parent the parent.
 * \param name the widget name.
 * \param args resources.
 * \param count number of args.
 * \return the desk.
 */
Widget XmCreateFileSelectionDesk(Widget parent, String name, ArgList args, Cardinal count);

/**
 * \brief Creates a file selection desk in a dialog shell named name plus
 * "_popup".  The window manager's close acts as the Cancel button, the
 * shell goes with the desk, and each time the dialog is managed again a
 * changed directory is read again.
 * \param parent the shell's parent.
 * \param name the desk's name.
 * \param args resources of the shell and the desk.
 * \param count number of args.
 * \return the desk, unmanaged: manage it to pop the dialog up.
 */
Widget XmCreateFileSelectionDeskDialog(Widget parent, String name, ArgList args, Cardinal count);

/**
 * \brief The nearest file selection desk above a widget, the widget itself
 * not counted; the walk stops at a shell.
 * \param widget where to start.
 * \return the desk, or NULL.
 */
Widget XmFindFileSelectionDeskByChild(Widget widget);

/**
 * \brief The representation of the file view.
 * \param widget the desk.
 * \return an XmREPRESENTATION_ value; 0 for another widget.
 */
unsigned char XmFileSelectionDeskGetRepresentation(Widget widget);

/**
 * \brief Reads the current directory again (mode 1, keeping scroll
 * positions and the current item) or rebuilds the directory tree for it
 * (mode 0).
 * \param widget the desk.
 * \param mode 0 or 1; others do nothing.
 */
void XmFileSelectionDeskUpdate(Widget widget, int mode);

/**
 * \brief Rebuilds the directory tree for path and shows it (mode 0), or
 * refreshes the view (mode 1).
 * \param widget the desk.
 * \param path the directory.
 * \param mode 0 or 1; others do nothing.
 */
void _XmFileSelectionDeskUpdate(Widget widget, const char *path, int mode);

/**
 * \brief Shows a directory: a leading tilde is expanded and the path made
 * canonical; the bell rings when it is not a directory.
 * \param widget the desk.
 * \param path the directory.
 * \return False when the widget is not a desk, else True.
 */
Boolean XmFileSelectionDeskShowDirectory(Widget widget, const char *path);

/**
 * \brief The name of a user id, from the desk's cache.
 * \param desk the desk.
 * \param uid the id.
 * \return the name, or the id in decimal; the desk's, never free it.
 */
const char *GetUserName(Widget desk, unsigned int uid);

/**
 * \brief The name of a group id, from the desk's cache.
 * \param desk the desk.
 * \param gid the id.
 * \return the name, or the id in decimal; the desk's, never free it.
 */
const char *GetGroupName(Widget desk, unsigned int gid);

/**
 * \brief Builds the desk's pattern table from its patternsDescription.
 * \param desk the desk.
 * \param strings when not NULL, receives the names of the groups as
 * compound strings (XtMalloc; the caller frees each and the table), or
 * NULL without groups.
 * \return the number of groups.
 */
int XmFileSDCreateFilterPatternsData(Widget desk, XmString **strings);

/**
 * \brief The patterns of the current group.
 * \param desk the desk.
 * \param position receives the group's row (0 the user's own); may be NULL.
 * \return the text, the desk's; NULL when none.
 */
char *XmFileSDGetFilterPatternString(Widget desk, int *position);

/**
 * \brief Puts the filter field at rest: read only, showing the group's
 * name.  The losing-focus handler of the filter field.
 * \param desk the desk.
 * \param text unused; may be NULL.
 */
void XmFileSDSetRealPattern(Widget desk, char *text);

/**
 * \brief Takes the pattern of the filter field and reads the directory
 * again.  The handler of the filter combo box and of the Filter button.
 * \param desk the desk.
 * \param combo the filter combo box, or NULL.
 * \param from_combo True for a choice or Return in the combo box.
 * \param event the event; with Control held a choice only selects the row.
 */
void XmFileSDShowNewPattern(Widget desk, Widget combo, Boolean from_combo, XEvent *event);

/**
 * \brief After the pattern list pops down, writes the user's own pattern
 * back into the field, once the event queue is empty.
 * \param desk the desk.
 * \param text the text widget of the filter field.
 */
void XmFileSDRestorePatternAfterComboBox(Widget desk, Widget text);

/**
 * \brief The number of selected items of the file view.
 * \param desk the desk.
 * \return the count; 0 without a file view.
 */
int XmFileSelectionDeskGetSelectedItemsCount(Widget desk);

/**
 * \brief The paths of the selected items of the file view (the current
 * item when none is selected), each without a trailing "/".
 * \param desk the desk.
 * \param paths receives a table of the paths (XtMalloc); the caller frees
 * each and the table.  Entries of items without data stay NULL.
 * \return the number of paths.
 */
int XmFileSelectionDeskGetSelectedItems(Widget desk, char ***paths);

/**
 * \brief The path of the entry under a point of the desk.
 * \param desk the desk.
 * \param x the point, relative to the desk.
 * \param y the point, relative to the desk.
 * \param highlight highlight the entry found.
 * \param widget receives the view (directory tree or file view) holding
 * the point; may be NULL.
 * \return a new path (XtMalloc, the caller frees it), or NULL.
 */
char *XmFileSelectionDeskGetItemByXY(Widget desk, int x, int y, Boolean highlight, Widget *widget);

/**
 * \brief Takes the highlight off a view of a desk.
 * \param view the directory tree or the file view.
 * \return True when the view belongs to a desk.
 */
Boolean XmFileSelectionDeskUnhighlight(Widget view);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
