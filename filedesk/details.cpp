// What the views show of an entry: mode texts, grouped sizes, dates, user
// and group names, the detail text, the sort orders and the icon rules.
#include "filedesk/filedesk_private.h"

#include <Xwk/Frame.h>
#include <Xwk/Strings.h>

#include <grp.h>
#include <pwd.h>

#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

struct NamePair {
    unsigned int id;
    char name[1];
};

void FreePair(XwkListNode *node)
{
    XtFree(static_cast<char *>(node->data));
}

// A lookup scans the list; a miss asks the system once and the pair stays
// for the life of the list, so a changed passwd file is not seen.
const char *CachedName(XwkList **cache, unsigned int id, bool user)
{
    if (!*cache)
        *cache = l_create(FreePair, nullptr);
    for (XwkListNode *n = (*cache)->first; n; n = n->next) {
        NamePair *pair = static_cast<NamePair *>(n->data);
        if (pair->id == id)
            return pair->name;
    }
    char number[16];
    const char *name = nullptr;
    if (user) {
        struct passwd *pw = getpwuid(uid_t(id));
        name = pw ? pw->pw_name : nullptr;
    } else {
        struct group *gr = getgrgid(gid_t(id));
        name = gr ? gr->gr_name : nullptr;
    }
    if (!name) {
        std::snprintf(number, sizeof number, "%u", id);
        name = number;
    }
    size_t length = std::strlen(name);
    NamePair *pair = reinterpret_cast<NamePair *>(XtMalloc(Cardinal(sizeof(NamePair) + length)));
    pair->id = id;
    std::memcpy(pair->name, name, length + 1);
    l_append(*cache, pair);
    return pair->name;
}

bool IsDotDot(const char *name)
{
    return name[0] == '.' && name[1] == '.' && name[2] == '\0';
}

void TwoDigits(int value, char *out)
{
    out[0] = char('0' + value / 10 % 10);
    out[1] = char('0' + value % 10);
}

// Directories first, ".." first among them; 2 when neither rule decides.
// is_dir is the directory bit of the item's stat record, read without
// touching the record.
int CompareKinds(const FsdFileItem *a, const FsdFileItem *b)
{
    if (a->is_dir != b->is_dir)
        return a->is_dir ? -1 : 1;
    if (a->is_dir) {
        bool ua = IsDotDot(a->name);
        bool ub = IsDotDot(b->name);
        if (ua != ub)
            return ua ? -1 : 1;
    }
    return 2;
}

} // namespace

extern "C" void mode_string(unsigned int mode, char *buffer)
{
    if (!buffer)
        return;
    char type = '?';
    if (S_ISBLK(mode)) type = 'b';
    else if (S_ISCHR(mode)) type = 'c';
    else if (S_ISDIR(mode)) type = 'd';
    else if (S_ISREG(mode)) type = '-';
    else if (S_ISFIFO(mode)) type = 'p';
    else if (S_ISLNK(mode)) type = 'l';
    else if (S_ISSOCK(mode)) type = 's';
    buffer[0] = type;
    buffer[1] = (mode & S_IRUSR) ? 'r' : '-';
    buffer[2] = (mode & S_IWUSR) ? 'w' : '-';
    buffer[3] = (mode & S_IXUSR) ? 'x' : '-';
    buffer[4] = (mode & S_IRGRP) ? 'r' : '-';
    buffer[5] = (mode & S_IWGRP) ? 'w' : '-';
    buffer[6] = (mode & S_IXGRP) ? 'x' : '-';
    buffer[7] = (mode & S_IROTH) ? 'r' : '-';
    buffer[8] = (mode & S_IWOTH) ? 'w' : '-';
    buffer[9] = (mode & S_IXOTH) ? 'x' : '-';
    if (mode & S_ISUID)
        buffer[3] = (mode & S_IXUSR) ? 's' : 'S';
    if (mode & S_ISGID)
        buffer[6] = (mode & S_IXGRP) ? 's' : 'S';
    if (mode & S_ISVTX)
        buffer[9] = (mode & S_IXOTH) ? 't' : 'T';
}

extern "C" char *XmFileSelectionDeskConvertStatToString(struct stat *stat, char *buffer)
{
    if (!stat || !buffer)
        return nullptr;
    mode_string(stat->st_mode, buffer);
    buffer[10] = '\0';
    return buffer;
}

const char *FsdUserName(XwkList **cache, unsigned int uid)
{
    return cache ? CachedName(cache, uid, true) : nullptr;
}

const char *FsdGroupName(XwkList **cache, unsigned int gid)
{
    return cache ? CachedName(cache, gid, false) : nullptr;
}

void FsdFreeNameCache(XwkList **cache)
{
    if (!cache || !*cache)
        return;
    l_destroy(*cache);
    *cache = nullptr;
}

// The separators alternate, "." after the first group of three from the
// right, "," after the second, and so on: 1234567 is "1,234.567".  Odd,
// and what users of the desk have always seen.
void FsdGroupDigits(long value, char *out)
{
    char digits[24];
    int length = std::snprintf(digits, sizeof digits, "%ld", value);
    if (length < 4) {
        std::memcpy(out, digits, size_t(length) + 1);
        return;
    }
    const char *first = digits[0] == '-' ? digits + 1 : digits;
    int count = int(digits + length - first);
    char *p = out;
    if (first != digits)
        *p++ = '-';
    for (int i = 0; i < count; i++) {
        int left = count - i;
        if (i > 0 && left % 3 == 0)
            *p++ = (left / 3) % 2 == 1 ? '.' : ',';
        *p++ = first[i];
    }
    *p = '\0';
}

void FsdFormatDate(time_t time, char *out)
{
    // Files written together share their second: one conversion serves
    // them, as long as the time zone (set by tzset) stays the same.
    static time_t last_time;
    static long last_zone;
    static char last_text[32];
    if (last_text[0] && time == last_time && last_zone == timezone) {
        std::memcpy(out, last_text, sizeof last_text);
        return;
    }
    struct tm tm;
    out[0] = '\0';
    if (!localtime_r(&time, &tm))
        return;
    int year = tm.tm_year + 1900;
    if (year >= 0 && year <= 9999) {
        TwoDigits(tm.tm_mon + 1, out);
        out[2] = '/';
        TwoDigits(tm.tm_mday, out + 3);
        out[5] = '/';
        TwoDigits(year / 100, out + 6);
        TwoDigits(year % 100, out + 8);
        out[10] = ' ';
        TwoDigits(tm.tm_hour, out + 11);
        out[13] = ':';
        TwoDigits(tm.tm_min, out + 14);
        out[16] = ':';
        TwoDigits(tm.tm_sec, out + 17);
        out[19] = '\0';
    } else if (std::strftime(out, 32, "%m/%d/%Y %H:%M:%S", &tm) == 0) {
        out[0] = '\0';
    }
    last_time = time;
    last_zone = timezone;
    std::memcpy(last_text, out, sizeof last_text);
}

// Owner, size, date and mode are of the entry's own lstat: a link shows
// itself, not its target.
void FsdAppendDetailText(const FsdFileItem *item, XwkList **users, XwkList **groups,
                         std::string *out)
{
    const struct stat *st = item->entry->stat;
    char size[32], date[32], mode[10];
    FsdGroupDigits(long(st->st_size), size);
    FsdFormatDate(st->st_mtime, date);
    mode_string(st->st_mode, mode);
    out->append(item->name);
    out->push_back('|');
    out->append(FsdUserName(users, st->st_uid));
    out->push_back('|');
    out->append(FsdGroupName(groups, st->st_gid));
    out->push_back('|');
    out->append(size);
    out->push_back('|');
    out->append(date);
    out->push_back('|');
    out->append(mode, sizeof mode);
    out->push_back('|');
    out->append(item->entry->link_target ? item->entry->link_target : " ");
}

int FsdCompareDeskItems(const FsdFileItem *a, const FsdFileItem *b)
{
    if (!a || !b)
        return 1;
    int kinds = CompareKinds(a, b);
    if (kinds != 2)
        return kinds;
    return std::strcmp(a->name, b->name);
}

int FsdCompareListItems(const FsdFileItem *a, const FsdFileItem *b, int column, int direction,
                        FsdItemCompareProc fallback, void *closure)
{
    if (!a || !b)
        return 1;
    int kinds = CompareKinds(a, b);
    if (kinds != 2)
        return kinds;
    int result = 0;
    if (column == 4 || column == 5) {
        const struct stat *sa = a->entry->stat;
        const struct stat *sb = b->entry->stat;
        if (column == 4)
            result = (sa->st_size > sb->st_size) - (sa->st_size < sb->st_size);
        else
            result = (sa->st_mtime > sb->st_mtime) - (sa->st_mtime < sb->st_mtime);
    }
    if (result != 0)
        return direction == 1 ? -result : result;
    return fallback ? fallback(a, b, closure) : 0;
}

FsdIconKind FsdDirectoryIcon(const struct stat *st, Boolean desk_set, Boolean use_deny_read,
                             Boolean use_deny_write)
{
    struct stat *record = const_cast<struct stat *>(st);
    if (use_deny_read && !XwkAccess(record, 4))
        return desk_set ? FSD_ICON_DESK_DIR_DENY_READ : FSD_ICON_TREE_DIR_DENY_READ;
    if (use_deny_write && !XwkAccess(record, 2))
        return desk_set ? FSD_ICON_DESK_DIR_DENY_WRITE : FSD_ICON_TREE_DIR_DENY_WRITE;
    return desk_set ? FSD_ICON_DESK_DIR : FSD_ICON_TREE_DIR;
}

FsdIconKind FsdUpIcon(Boolean desk_set)
{
    return desk_set ? FSD_ICON_DESK_DIR_UP : FSD_ICON_TREE_DIR_UP;
}

FsdIconKind FsdFileIcon(const struct stat *st, Boolean detail)
{
    if (detail)
        return FSD_ICON_TREE_REGULAR;
    return st && (st->st_mode & 0111) ? FSD_ICON_DESK_EXEC : FSD_ICON_DESK_REGULAR;
}
