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

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
