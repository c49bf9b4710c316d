// Reading directories into entries, the scan below the views, canonical
// paths and the directory nodes of the tree.
#include "filedesk/filedesk_private.h"

#include <Xwk/Strings.h>

#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

// Blocks double up to the largest size, which bounds what the last block
// leaves unused: a bigger one saves no time and costs bytes per entry.  It
// stays below malloc's usual threshold for a mapping of its own, which
// would round it up to whole pages.
constexpr size_t kFirstBlock = 4096;
constexpr size_t kLargestBlock = (size_t(128) << 10) - 64;
// readlink buffer: a longer link text is cut to this less one.
constexpr size_t kLinkBuffer = 4096;

bool IsDotDot(const char *name)
{
    return name[0] == '.' && name[1] == '.' && name[2] == '\0';
}

bool IsDot(const char *name)
{
    return name[0] == '.' && name[1] == '\0';
}

// readlink into buffer with a NUL; false when it fails or gives no text.
bool ReadLink(const char *name, char *buffer)
{
    ssize_t n = readlink(name, buffer, kLinkBuffer - 1);
    if (n <= 0)
        return false;
    buffer[n] = '\0';
    return true;
}

// Leaves a directory that was read for its "..".  When the directory
// vanished meanwhile, ".." may be gone too: the process stays where it is.
void StepOut()
{
    if (chdir("..") != 0)
        return;
}

} // namespace

// ---- The store ------------------------------------------------------------

void *FsdEntryStore::Allocate(size_t size, size_t align)
{
    size_t pad = size_t(-reinterpret_cast<uintptr_t>(cursor_)) & (align - 1);
    if (!cursor_ || pad + size > left_) {
        size_t block = blocks_.empty() ? kFirstBlock : std::min(block_bytes_, kLargestBlock);
        block = std::max(block, size + align);
        cursor_ = XtMalloc(Cardinal(block));
        blocks_.push_back(cursor_);
        block_bytes_ += block;
        left_ = block;
        pad = size_t(-reinterpret_cast<uintptr_t>(cursor_)) & (align - 1);
    }
    char *p = cursor_ + pad;
    cursor_ = p + size;
    left_ -= pad + size;
    return p;
}

char *FsdEntryStore::CopyText(const char *text, size_t length)
{
    char *copy = static_cast<char *>(Allocate(length + 1, 1));
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

void FsdEntryStore::Clear()
{
    for (char *block : blocks_)
        XtFree(block);
    blocks_.clear();
    block_bytes_ = 0;
    cursor_ = nullptr;
    left_ = 0;
    XtFree(reinterpret_cast<char *>(table_));
    table_ = nullptr;
    count_ = capacity_ = 0;
}

size_t FsdEntryStore::Bytes() const
{
    return block_bytes_ + size_t(capacity_) * sizeof(FsdEntry *);
}

FsdEntry *FsdEntryStore::NewEntry(const struct dirent *d, const struct stat &st,
                                  const char *link_target, const struct stat *target_stat)
{
    FsdEntry *entry = static_cast<FsdEntry *>(Allocate(sizeof(FsdEntry), alignof(FsdEntry)));
    struct stat *own = static_cast<struct stat *>(Allocate(sizeof st, alignof(struct stat)));
    *own = st;
    entry->stat = own;
    // The record as the system gave it, no longer than its record length;
    // the name is always whole and ended.
    size_t name_end = offsetof(struct dirent, d_name) + std::strlen(d->d_name) + 1;
    size_t length = std::max<size_t>(d->d_reclen, name_end);
    entry->dirent = static_cast<struct dirent *>(Allocate(length, alignof(struct dirent)));
    std::memcpy(entry->dirent, d, name_end);
    std::memset(reinterpret_cast<char *>(entry->dirent) + name_end, 0, length - name_end);
    entry->dirent->d_reclen = static_cast<unsigned short>(length);
    entry->link_target = link_target ? CopyText(link_target, std::strlen(link_target)) : nullptr;
    entry->target_stat = nullptr;
    if (target_stat) {
        entry->target_stat =
            static_cast<struct stat *>(Allocate(sizeof(struct stat), alignof(struct stat)));
        *entry->target_stat = *target_stat;
    }
    entry->item = nullptr;
    return entry;
}

void FsdEntryStore::Append(FsdEntry *entry)
{
    if (count_ == capacity_) {
        capacity_ = capacity_ ? capacity_ * 2 : 64;
        table_ = reinterpret_cast<FsdEntry **>(XtRealloc(
            reinterpret_cast<char *>(table_), Cardinal(size_t(capacity_) * sizeof(FsdEntry *))));
    }
    table_[count_++] = entry;
}

void FsdEntryStore::ShrinkTable()
{
    if (count_ == capacity_ || count_ == 0)
        return;
    capacity_ = count_;
    table_ = reinterpret_cast<FsdEntry **>(XtRealloc(
        reinterpret_cast<char *>(table_), Cardinal(size_t(capacity_) * sizeof(FsdEntry *))));
}

FsdFileItem *FsdEntryStore::NewItem(FsdEntry *entry, FsdDirNode *dir, Boolean is_dot_dot)
{
    FsdFileItem *item =
        static_cast<FsdFileItem *>(Allocate(sizeof(FsdFileItem), alignof(FsdFileItem)));
    std::memset(item, 0, sizeof *item);
    item->dir = dir;
    item->entry = entry;
    item->name = entry->dirent->d_name;
    item->stat = entry->target_stat ? entry->target_stat : entry->stat;
    item->is_dir = FsdEntryIsDirectory(entry);
    if (is_dot_dot) {
        item->path = dir->path;
    } else {
        size_t dir_length = std::strlen(dir->path);
        size_t name_length = std::strlen(item->name);
        size_t length = dir_length + name_length + (item->is_dir ? 1 : 0);
        char *path = static_cast<char *>(Allocate(length + 1, 1));
        std::memcpy(path, dir->path, dir_length);
        std::memcpy(path + dir_length, item->name, name_length);
        if (item->is_dir)
            path[length - 1] = '/';
        path[length] = '\0';
        item->path = path;
    }
    entry->item = item;
    return item;
}

// ---- Reading --------------------------------------------------------------

Boolean FsdEntryIsDirectory(const FsdEntry *entry)
{
    return S_ISDIR(entry->stat->st_mode) ||
           (entry->target_stat && S_ISDIR(entry->target_stat->st_mode));
}

FsdEntry *FsdFilterDirectories(FsdEntryStore *store, const struct dirent *d, const FsdPattern *)
{
    if (IsDot(d->d_name) || IsDotDot(d->d_name))
        return nullptr;
    struct stat st;
    if (lstat(d->d_name, &st) != 0)
        return nullptr;
    if (S_ISDIR(st.st_mode))
        return store->NewEntry(d, st, nullptr, nullptr);
    if (!S_ISLNK(st.st_mode))
        return nullptr;
    char text[kLinkBuffer];
    struct stat target;
    if (!ReadLink(d->d_name, text) || stat(text, &target) != 0 || !S_ISDIR(target.st_mode))
        return nullptr;
    return store->NewEntry(d, st, text, &target);
}

FsdEntry *FsdFilterFiles(FsdEntryStore *store, const struct dirent *d, const FsdPattern *row)
{
    if (IsDot(d->d_name))
        return nullptr;
    struct stat st;
    if (lstat(d->d_name, &st) != 0)
        return nullptr;
    if (!S_ISLNK(st.st_mode)) {
        if (S_ISDIR(st.st_mode) || FsdPatternMatches(row, d->d_name))
            return store->NewEntry(d, st, nullptr, nullptr);
        return nullptr;
    }
    // A dangling link is never shown.
    char text[kLinkBuffer];
    struct stat target;
    if (!ReadLink(d->d_name, text) || stat(text, &target) != 0)
        return nullptr;
    if (S_ISDIR(target.st_mode) || FsdPatternMatches(row, d->d_name))
        return store->NewEntry(d, st, text, &target);
    return nullptr;
}

int FsdCompareEntryNames(const void *a, const void *b)
{
    const FsdEntry *x = *static_cast<FsdEntry *const *>(a);
    const FsdEntry *y = *static_cast<FsdEntry *const *>(b);
    return std::strcmp(x->dirent->d_name, y->dirent->d_name);
}

// The filters look at bare names, so the read steps into the directory;
// it leaves the process in the directory's "..", as it always has.  When
// the directory cannot be entered nothing is read and the working
// directory stays where it was.
int FsdReadDirectory(const char *path, FsdFilterProc filter, const FsdPattern *row,
                     int (*compare)(const void *, const void *), FsdEntryStore *store)
{
    if (!path || !filter || !store)
        return 0;
    DIR *dir = opendir(path);
    if (!dir)
        return 0;
    if (chdir(path) != 0) {
        closedir(dir);
        return 0;
    }
    while (const struct dirent *d = readdir(dir)) {
        if (FsdEntry *entry = filter(store, d, row))
            store->Append(entry);
    }
    closedir(dir);
    StepOut();
    store->ShrinkTable();
    if (compare && store->Count() > 1)
        std::qsort(store->Table(), size_t(store->Count()), sizeof(FsdEntry *), compare);
    return store->Count();
}

Boolean FsdStatDirectory(const char *path, struct stat *st)
{
    if (!path || !st || lstat(path, st) != 0)
        return False;
    // The target is looked up from the link's own place, not from the
    // working directory, so that a relative link text resolves right.
    if (S_ISLNK(st->st_mode) && stat(path, st) != 0)
        return False;
    return True;
}

int FsdScanDirectory(FsdDirNode *node, Boolean with_files, const FsdPattern *row,
                     Boolean sort_by_name, FsdAcceptProc accept, void *closure,
                     FsdEntryStore *store)
{
    if (!node || !store)
        return 0;
    FsdStatDirectory(node->path, &node->stat);
    store->Clear();
    int count = FsdReadDirectory(node->path, with_files ? FsdFilterFiles : FsdFilterDirectories,
                                 row, sort_by_name ? FsdCompareEntryNames : nullptr, store);
    if (!with_files)
        return count;
    bool at_root = std::strcmp(node->path, "/") == 0;
    FsdEntry **table = store->Table();
    int shown = 0;
    for (int pass = 0; pass < 2; pass++) {
        for (int i = 0; i < count; i++) {
            FsdEntry *entry = table[i];
            bool is_dir = FsdEntryIsDirectory(entry);
            if (is_dir != (pass == 0))
                continue;
            bool dot_dot = IsDotDot(entry->dirent->d_name);
            if (dot_dot && at_root)
                continue;
            FsdFileItem *item = store->NewItem(entry, node, dot_dot);
            if (!is_dir && accept && !accept(item, closure)) {
                entry->item = nullptr;
                continue;
            }
            shown++;
        }
    }
    return shown;
}

// ---- Canonical paths ------------------------------------------------------

// An absolute path is normalized by text and must name a directory;
// anything else is resolved by the file system, from the working
// directory, which is restored.
char *FsdCanonicalPath(const char *path)
{
    if (!path)
        return nullptr;
    size_t length = std::strlen(path);
    if (path[0] == '/' && length < 4094) {
        std::vector<std::string_view> parts;
        for (size_t i = 0; i < length;) {
            size_t end = i;
            while (end < length && path[end] != '/')
                end++;
            std::string_view part(path + i, end - i);
            i = end + 1;
            if (part.empty() || part == ".")
                continue;
            if (part == "..") {
                if (!parts.empty())
                    parts.pop_back();
                continue;
            }
            parts.push_back(part);
        }
        std::string result(1, '/');
        for (std::string_view part : parts) {
            if (result.size() > 1)
                result += '/';
            result += part;
        }
        struct stat st;
        if (stat(result.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
            return nullptr;
        return XtNewString(result.c_str());
    }
    char full[PATH_MAX];
    if (!XwkGetFullPath(full, path))
        return nullptr;
    return XtNewString(full);
}

Boolean FsdHasSubdirectory(const char *path)
{
    if (!path)
        return False;
    DIR *dir = opendir(path);
    if (!dir)
        return False;
    if (chdir(path) != 0) {
        closedir(dir);
        return False;
    }
    Boolean found = False;
    while (const struct dirent *d = readdir(dir)) {
        if (IsDot(d->d_name) || IsDotDot(d->d_name))
            continue;
        struct stat st;
        if (stat(d->d_name, &st) != 0)
            break;
        if (S_ISDIR(st.st_mode)) {
            found = True;
            break;
        }
    }
    closedir(dir);
    StepOut();
    return found;
}

// ---- Directory nodes ------------------------------------------------------

FsdDirNode *FsdNewDirNode(Widget desk, const char *path, const char *link_target,
                          const struct stat *st)
{
    FsdDirNode *node = reinterpret_cast<FsdDirNode *>(XtCalloc(1, sizeof(FsdDirNode)));
    node->desk = desk;
    node->path = XtNewString(path ? path : "/");
    node->link_target = link_target ? XtNewString(link_target) : nullptr;
    if (st)
        node->stat = *st;
    return node;
}

FsdDirNode *FsdNewChildNode(Widget desk, const char *level_path, const FsdEntry *entry)
{
    std::string path = level_path;
    if (path != "/")
        path += '/';
    path += entry->dirent->d_name;
    path += '/';
    const struct stat *st = entry->target_stat ? entry->target_stat : entry->stat;
    return FsdNewDirNode(desk, path.c_str(), entry->link_target, st);
}

void FsdFreeDirNode(FsdDirNode *node)
{
    if (!node)
        return;
    XtFree(node->link_target);
    XtFree(node->path);
    XtFree(reinterpret_cast<char *>(node));
}

int FsdDirNodeState(const FsdDirNode *node, Boolean scan_dir_on_sub_dirs)
{
    if (!node)
        return 1;
    if (scan_dir_on_sub_dirs && FsdHasSubdirectory(node->path))
        return 2;
    if (node->stat.st_nlink > 2 && XwkAccess(const_cast<struct stat *>(&node->stat), 4))
        return 2;
    return 1;
}
