// The file selection desk below its views: filter patterns, reading and
// scanning directories, the detail texts, the sort orders and the icon
// rules.  Everything here works without a display; the widget calls it.
#ifndef XWK_FILEDESK_PRIVATE_H
#define XWK_FILEDESK_PRIVATE_H

#include <Xwk/FileSD.h>
#include <Xwk/Lists.h>

#include <Xm/Xm.h>

#include <cstddef>
#include <string>
#include <vector>

// ---- Filter patterns ----------------------------------------------------

// Comparisons of pattern texts look at this many characters.
constexpr size_t kFsdPatternCompareLength = 4093;

// Compiles a glob into slot (REG_NOSUB, white space removed).  On success
// the old expression is freed and the new one stored; on failure the slot
// stays as it was and the result is False.  An empty or NULL glob only
// frees the slot and counts as success.
Boolean FsdCompilePattern(regex_t *slot, const char *glob);

// Sets a row's patterns from a text split at ";" when the row has no text
// or the text differs; *failures (optional) gets the number of patterns
// that did not compile, each left with an empty slot.  True when the row
// changed.
Boolean FsdSetPatternText(FsdPattern *row, const char *text, int *failures);

// Builds the pattern table from patternsDescription and the user's pattern
// (row 0, "User Pattern").  *table gets pattern_count + 1 rows (XtMalloc);
// returns pattern_count.  *user_failures (optional) as FsdSetPatternText.
int FsdBuildPatterns(const char *description, const char *pattern, FsdPattern ***table,
                     int *user_failures);
void FsdFreePatterns(FsdPattern **table, int pattern_count);

// The compound strings of the names of rows 1 on, or NULL for no rows;
// the caller frees each and the table (XtFree).
XmString *FsdPatternNameStrings(FsdPattern **table, int pattern_count);

// True when a compiled expression of the row matches the name.
Boolean FsdPatternMatches(const FsdPattern *row, const char *name);

// The row, from 1 on, whose text is text; 0 when none.
int FsdFindPatternRow(FsdPattern **table, int pattern_count, const char *text);

// ---- Entries ------------------------------------------------------------

// Owns the entries of one directory read, their items and the table of
// pointers (the desk's entries).  Records come from one arena, so a
// directory of many entries costs few allocations and is freed at once.
class FsdEntryStore {
public:
    FsdEntryStore() = default;
    FsdEntryStore(const FsdEntryStore &) = delete;
    FsdEntryStore &operator=(const FsdEntryStore &) = delete;
    ~FsdEntryStore() { Clear(); }

    FsdEntry **Table() const { return table_; }
    int Count() const { return count_; }
    // Frees every entry, item and the table.
    void Clear();
    // Memory held by the records and the table, in bytes.
    size_t Bytes() const;

    // A new entry, not yet in the table.  link_target and target_stat may
    // be NULL.
    FsdEntry *NewEntry(const struct dirent *d, const struct stat &st, const char *link_target,
                       const struct stat *target_stat);
    void Append(FsdEntry *entry);
    void ShrinkTable();
    // The entry's item, with its path formed from the directory.
    FsdFileItem *NewItem(FsdEntry *entry, FsdDirNode *dir, Boolean is_dot_dot);

private:
    void *Allocate(size_t size, size_t align);
    char *CopyText(const char *text, size_t length);

    std::vector<char *> blocks_;
    size_t block_bytes_ = 0;
    char *cursor_ = nullptr;
    size_t left_ = 0;
    FsdEntry **table_ = nullptr;
    int count_ = 0;
    int capacity_ = 0;
};

// A filter of FsdReadDirectory: a new entry of the store, or NULL.  It is
// called with the working directory in the directory read.
typedef FsdEntry *(*FsdFilterProc)(FsdEntryStore *store, const struct dirent *d,
                                   const FsdPattern *row);
// Directories and links to directories, without "." and "..".
FsdEntry *FsdFilterDirectories(FsdEntryStore *store, const struct dirent *d, const FsdPattern *row);
// Directories (".." included, "." not) and files whose name matches row.
FsdEntry *FsdFilterFiles(FsdEntryStore *store, const struct dirent *d, const FsdPattern *row);
// strcmp of the entries' names, for qsort of FsdEntry pointers.
int FsdCompareEntryNames(const void *a, const void *b);

// Reads a directory into the store through the filter, and sorts the
// table with compare when given.  Moves the working directory into the
// directory and leaves it at its "..".  Returns the number of entries the
// store holds.
int FsdReadDirectory(const char *path, FsdFilterProc filter, const FsdPattern *row,
                     int (*compare)(const void *, const void *), FsdEntryStore *store);

// True for a directory or a link to one.
Boolean FsdEntryIsDirectory(const FsdEntry *entry);

// Decides, for a file of the file view, whether it is shown; the widget's
// getIconProc.  Directories are always shown.
typedef Boolean (*FsdAcceptProc)(FsdFileItem *item, void *closure);

// The scan of a directory for the views, below the views: refreshes the
// node's stat, clears the store and reads the node's directory, with files
// matching row when with_files, else directories only; sorted by name when
// sort_by_name.  With files, every entry but a dropped one gets its item:
// ".." at the root and the files accept refuses are dropped.  Returns the
// number of entries with an item (the node's file_count), and with_files
// False the number of directories read.
int FsdScanDirectory(FsdDirNode *node, Boolean with_files, const FsdPattern *row,
                     Boolean sort_by_name, FsdAcceptProc accept, void *closure,
                     FsdEntryStore *store);

// lstat of a path; a link is followed to its target.  False when either fails.
Boolean FsdStatDirectory(const char *path, struct stat *st);

// Canonical path of a directory (XtMalloc), or NULL.
char *FsdCanonicalPath(const char *path);

// True when the directory holds a sub-directory.  Moves the working
// directory like FsdReadDirectory.
Boolean FsdHasSubdirectory(const char *path);

// ---- Directory nodes ----------------------------------------------------

// A node for path (with its trailing "/"); link_target is copied.
FsdDirNode *FsdNewDirNode(Widget desk, const char *path, const char *link_target,
                          const struct stat *st);
// A node for a directory entry read below level_path ("/" or a path
// without a trailing "/").
FsdDirNode *FsdNewChildNode(Widget desk, const char *level_path, const FsdEntry *entry);
void FsdFreeDirNode(FsdDirNode *node);
// The tree state of a new node: 2 (can open) or 1.
int FsdDirNodeState(const FsdDirNode *node, Boolean scan_dir_on_sub_dirs);

// ---- Icons --------------------------------------------------------------

// The twelve icons of the desk, in the order they are made.
enum FsdIconKind {
    FSD_ICON_TREE_DIR,
    FSD_ICON_TREE_DIR_UP,
    FSD_ICON_TREE_DIR_OPEN,
    FSD_ICON_TREE_DIR_DENY_READ,
    FSD_ICON_TREE_DIR_DENY_WRITE,
    FSD_ICON_TREE_REGULAR,
    FSD_ICON_DESK_DIR,
    FSD_ICON_DESK_DIR_DENY_READ,
    FSD_ICON_DESK_DIR_DENY_WRITE,
    FSD_ICON_DESK_DIR_UP,
    FSD_ICON_DESK_EXEC,
    FSD_ICON_DESK_REGULAR,
    FSD_ICON_COUNT
};

// The icon of a directory by the permissions of the user globals
// (xwkUID, xwkGIDs): the deny-read icon when unreadable and
// use_deny_read, else the deny-write icon when unwritable and
// use_deny_write, else the normal one; of the desk set or the tree set.
FsdIconKind FsdDirectoryIcon(const struct stat *st, Boolean desk_set, Boolean use_deny_read,
                             Boolean use_deny_write);
// The icon of ".." of the desk set or the tree set.
FsdIconKind FsdUpIcon(Boolean desk_set);
// The choice of the default getIconProc for a file.
FsdIconKind FsdFileIcon(const struct stat *st, Boolean detail);

// ---- Detail texts and sorting -------------------------------------------

// The name of a user or group id from the cache list (made at first use),
// asking the system on a miss; the id in decimal when it has no name.
const char *FsdUserName(XwkList **cache, unsigned int uid);
const char *FsdGroupName(XwkList **cache, unsigned int gid);
void FsdFreeNameCache(XwkList **cache);

// "%ld" with separators after every third digit from the right, "." then
// "," alternating; out holds 32 bytes.
void FsdGroupDigits(long value, char *out);
// "%m/%d/%Y %H:%M:%S" of the local time; out holds 32 bytes.
void FsdFormatDate(time_t time, char *out);

// Appends the detail text of an item to out: name, user, group, size,
// date, mode and link text joined by "|".
void FsdAppendDetailText(const FsdFileItem *item, XwkList **users, XwkList **groups,
                         std::string *out);

// The desk list's order: directories first, ".." first of them, then by name.
int FsdCompareDeskItems(const FsdFileItem *a, const FsdFileItem *b);
// The comparison the list's own sort proc stands for.
typedef int (*FsdItemCompareProc)(const FsdFileItem *a, const FsdFileItem *b, void *closure);
// The list's order: directories first, ".." first of them; column 4 by
// size and 5 by date, negated for direction 1; ties and other columns by
// fallback.
int FsdCompareListItems(const FsdFileItem *a, const FsdFileItem *b, int column, int direction,
                        FsdItemCompareProc fallback, void *closure);

#endif
