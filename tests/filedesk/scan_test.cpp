// Reading and scanning directories on a real file system, canonical paths,
// the detail texts and the permission rules.
#include "xwktest.h"

#include "filedesk/filedesk_private.h"

#include <Xwk/Frame.h>
#include <sys/time.h>

#include <map>

namespace {

using Names = std::set<std::string>;

std::string Cwd() { return std::filesystem::current_path().string(); }

const std::string kLong = std::string(250, 'l') + ".c";

class Scan : public ::testing::Test {
protected:
    void SetUp() override
    {
        start_ = Cwd();
        dir_ = tmp_.Path();
        for (const char *d : {"sub", "sub/inner", "sub/inner/deep", "with space"})
            ASSERT_EQ(mkdir(P(d).c_str(), 0755), 0);
        for (const char *f : {"a.c", "b.h", "x.txt", "\xc3\xbcn\xc3\xaf.c", "new\nline.c",
                              "pipe|name.c", "run.c", kLong.c_str()})
            tmp_.Write(f, "");
        chmod(P("run.c").c_str(), 0755);
        for (auto [to, from] : {std::pair{"sub", "link_dir"}, {"a.c", "link.c"},
                                {"nowhere", "gone.c"}, {"x.txt", "link_txt"}})
            ASSERT_EQ(symlink(to, P(from).c_str()), 0);
        FsdBuildPatterns("C|*.c", "", &rows_, nullptr);
    }
    void TearDown() override
    {
        FsdFreeDirNode(node_);
        FsdFreePatterns(rows_, 2);
        ASSERT_EQ(chdir(start_.c_str()), 0);
    }
    std::string P(const std::string &name) { return dir_ + "/" + name; }
    Names Read(const std::string &path, FsdFilterProc filter)
    {
        FsdEntryStore store;
        FsdReadDirectory(path.c_str(), filter, rows_[1], nullptr, &store);
        Names names;
        for (int i = 0; i < store.Count(); i++)
            names.insert(store.Table()[i]->dirent->d_name);
        return names;
    }
    // The items of a directory (the fixture's when none is named) scanned
    // with the row, directories included, unsorted.
    std::vector<FsdFileItem *> Items(const FsdPattern *row, const std::string &path = "")
    {
        FsdFreeDirNode(node_);
        std::string where = (path.empty() ? dir_ : path) + "/";
        node_ = FsdNewDirNode(nullptr, where.c_str(), nullptr, nullptr);
        count_ = FsdScanDirectory(node_, True, row, False, nullptr, nullptr, &store_);
        std::vector<FsdFileItem *> items;
        for (int i = 0; i < store_.Count(); i++)
            items.push_back(store_.Table()[i]->item);
        return items;
    }
    xwktest::TempDir tmp_;
    std::string start_, dir_;
    FsdPattern **rows_ = nullptr;
    FsdDirNode *node_ = nullptr;
    FsdEntryStore store_;
    int count_ = 0;
};

// What the filters keep, and where a read leaves the process: in the
// directory's "..", so relative paths the application holds no longer mean
// what they did.
TEST_F(Scan, FiltersKeepWhatTheViewsShowAndTheReadEndsAtTheParent)
{
    const Names files = {"..", "sub", "with space", "link_dir", "a.c", "run.c", "link.c",
                         "\xc3\xbcn\xc3\xaf.c", "new\nline.c", "pipe|name.c", kLong};
    const std::string parent = dir_.substr(0, dir_.rfind('/'));
    struct Case {
        std::string read, from;
        FsdFilterProc filter;
        Names names;
        std::string after;
    } cases[] = {
        {dir_, "/", FsdFilterFiles, files, parent},
        {dir_, "/", FsdFilterDirectories, {"sub", "with space", "link_dir"}, parent},
        {P("sub/inner/deep"), "/", FsdFilterDirectories, {}, P("sub/inner")},
        {P("sub/inner"), "/", FsdFilterFiles, {"..", "deep"}, P("sub")},
        {P("link_dir/inner/"), "/", FsdFilterFiles, {"..", "deep"}, P("sub")},
        {P("link_dir"), "/", FsdFilterFiles, {"..", "inner"}, dir_},
        {"sub/inner/deep", dir_, FsdFilterFiles, {".."}, P("sub/inner")},
        {P("vanished"), "/", FsdFilterFiles, {}, "/"},
    };
    for (const Case &c : cases) {
        ASSERT_EQ(chdir(c.from.c_str()), 0);
        EXPECT_EQ(Read(c.read, c.filter), c.names) << c.read;
        EXPECT_EQ(Cwd(), c.after) << c.read;
    }
    ASSERT_EQ(chdir("/"), 0);
    EXPECT_TRUE(FsdHasSubdirectory(P("sub").c_str()));
    EXPECT_EQ(Cwd(), dir_);
    EXPECT_FALSE(FsdHasSubdirectory(P("sub/inner/deep").c_str()));
    EXPECT_FALSE(FsdHasSubdirectory(P("a.c").c_str()));
}

Boolean RefuseHeaders(FsdFileItem *item, void *closure)
{
    ++*static_cast<int *>(closure);
    return std::string(item->name) != "run.c";
}

TEST_F(Scan, ItemsOfADirectory)
{
    node_ = FsdNewDirNode(nullptr, (dir_ + "/").c_str(), nullptr, nullptr);
    int asked = 0;
    EXPECT_EQ(FsdScanDirectory(node_, True, rows_[1], True, RefuseHeaders, &asked, &store_), 10);
    EXPECT_EQ(asked, 7);
    struct stat st;
    stat(dir_.c_str(), &st);
    EXPECT_EQ(node_->stat.st_ino, st.st_ino);
    const Names dirs = {"..", "sub", "link_dir", "with space"};
    std::map<std::string, FsdEntry *> entries;
    std::string previous;
    for (int i = 0; i < store_.Count(); i++) {
        FsdEntry *e = store_.Table()[i];
        std::string name = e->dirent->d_name;
        EXPECT_LT(previous, name);
        previous = name;
        entries[name] = e;
        if (!e->item)
            continue;
        EXPECT_TRUE(e->item->entry == e && e->item->dir == node_) << name;
        EXPECT_EQ(bool(e->item->is_dir), dirs.count(name) == 1) << name;
        std::string want = name == ".." ? dir_ + "/" : P(name) + (dirs.count(name) ? "/" : "");
        EXPECT_EQ(e->item->path, want);
    }
    EXPECT_EQ(entries["run.c"]->item, nullptr);
    FsdEntry *link = entries["link_dir"];
    EXPECT_TRUE(S_ISLNK(link->stat->st_mode));
    EXPECT_EQ(link->item->stat, link->target_stat);
    FsdDirNode *child = FsdNewChildNode(nullptr, dir_.c_str(), link);
    EXPECT_EQ(child->path, dir_ + "/link_dir/");
    EXPECT_STREQ(child->link_target, "sub");
    EXPECT_TRUE(S_ISDIR(child->stat.st_mode));
    EXPECT_EQ(FsdDirNodeState(child, False), 2);
    FsdFreeDirNode(child);

    // The root shows no "..".
    FsdDirNode *root = FsdNewDirNode(nullptr, "/", nullptr, nullptr);
    FsdScanDirectory(root, True, rows_[1], True, nullptr, nullptr, &store_);
    for (int i = 0; i < store_.Count(); i++)
        EXPECT_EQ(!store_.Table()[i]->item, !strcmp(store_.Table()[i]->dirent->d_name, ".."));
    EXPECT_EQ(FsdScanDirectory(root, False, nullptr, False, nullptr, nullptr, &store_),
              int(Read("/", FsdFilterDirectories).size()));
    FsdFreeDirNode(root);

    // A directory that vanished shows nothing.
    ASSERT_EQ(rmdir(P("sub/inner/deep").c_str()), 0);
    XtFree(node_->path);
    node_->path = XtNewString((dir_ + "/sub/inner/deep/").c_str());
    EXPECT_EQ(FsdScanDirectory(node_, True, rows_[1], True, nullptr, nullptr, &store_), 0);
}

TEST_F(Scan, TenThousandFilesSortDirectoriesFirst)
{
    std::string big = P("big");
    ASSERT_EQ(mkdir(big.c_str(), 0755), 0);
    for (int i = 0; i < 10000; i++) {
        std::string name = big + "/f" + std::to_string(i * 7919 % 10000) + (i % 2 ? ".c" : ".o");
        close(open(name.c_str(), O_CREAT | O_WRONLY, 0644));
    }
    ASSERT_EQ(mkdir((big + "/zdir").c_str(), 0755), 0);
    Items(rows_[2], big);
    EXPECT_EQ(count_, 10002);
    std::vector<FsdFileItem *> items = Items(rows_[1], big);
    EXPECT_EQ(count_, 5002);
    std::sort(items.begin(), items.end(),
              [](auto a, auto b) { return FsdCompareDeskItems(a, b) < 0; });
    EXPECT_STREQ(items[0]->name, "..");
    EXPECT_STREQ(items[1]->name, "zdir");
    EXPECT_STREQ(items[2]->name, "f1.c");
    EXPECT_STREQ(items.back()->name, "f9999.c");
}

TEST_F(Scan, CanonicalPaths)
{
    ASSERT_EQ(chdir(dir_.c_str()), 0);
    struct Case {
        std::string path, result;  // "": none
    } cases[] = {
        {P("sub/./inner/../"), P("sub")},
        {P("sub//inner/"), P("sub/inner")},
        {P("link_dir/.."), dir_},
        {P("a.c"), ""},
        {P("none"), ""},
        {"sub/inner", P("sub/inner")},
        {"sub/inner/", P("sub/inner")},
        {"none", P("none")},
        {"sub/none", P("sub/none")},
        {"none/x", ""},
        {"/" + std::string(4100, 'x') + "/y", ""},
        {"/", "/"},
        {"/..", "/"},
        {"//./", "/"},
    };
    for (const Case &c : cases) {
        char *got = FsdCanonicalPath(c.path.c_str());
        EXPECT_EQ(got ? got : "", c.result) << c.path;
        XtFree(got);
        EXPECT_EQ(Cwd(), dir_);
    }
}

TEST(Details, Texts)
{
    struct {
        long value;
        const char *text;
    } sizes[] = {{0, "0"},           {999, "999"},
                 {1000, "1.000"},    {1234567, "1,234.567"},
                 {-1234, "-1.234"},  {12345678901, "12.345,678.901"}};
    for (auto &s : sizes) {
        char out[32];
        FsdGroupDigits(s.value, out);
        EXPECT_STREQ(out, s.text);
    }
    struct {
        unsigned mode;
        const char *text;
    } modes[] = {{S_IFDIR | 0755, "drwxr-xr-x"},  {S_IFREG | 04755, "-rwsr-xr-x"},
                 {S_IFREG | 04644, "-rwSr--r--"}, {S_IFREG | 02750, "-rwxr-s---"},
                 {S_IFDIR | 01777, "drwxrwxrwt"}, {S_IFDIR | 01776, "drwxrwxrwT"},
                 {S_IFIFO | 0600, "prw-------"},  {S_IFSOCK | 0777, "srwxrwxrwx"},
                 {S_IFCHR | 0620, "crw--w----"},  {S_IFBLK | 0660, "brw-rw----"},
                 {S_IFLNK | 0777, "lrwxrwxrwx"},  {0, "?---------"}};
    for (auto &m : modes) {
        struct stat st {};
        st.st_mode = m.mode;
        char out[16];
        memset(out, 'Z', sizeof out);
        EXPECT_STREQ(XmFileSelectionDeskConvertStatToString(&st, out), m.text);
    }
    XwkList *users = nullptr;
    const char *root = FsdUserName(&users, 0);
    EXPECT_STREQ(root, "root");
    EXPECT_STREQ(FsdUserName(&users, 54321), "54321");
    EXPECT_EQ(FsdUserName(&users, 0), root);
    EXPECT_EQ(users->count, 2);
    FsdFreeNameCache(&users);
    EXPECT_EQ(users, nullptr);
}

TEST_F(Scan, DetailTextOfAnEntry)
{
    setenv("TZ", "UTC", 1);
    tzset();
    ASSERT_EQ(truncate(P("a.c").c_str(), 1234567), 0);
    struct timeval times[2] = {{1041480306, 0}, {1041480306, 0}};
    ASSERT_EQ(utimes(P("a.c").c_str(), times), 0);
    XwkList *users = nullptr, *groups = nullptr;
    std::set<std::string> texts;
    for (FsdFileItem *item : Items(rows_[1])) {
        std::string text;
        FsdAppendDetailText(item, &users, &groups, &text);
        texts.insert(text);
    }
    EXPECT_TRUE(texts.count("a.c|root|root|1,234.567|01/02/2003 04:05:06|-rw-r--r--| "));
    auto found = texts.lower_bound("link.c|");  // the first text from "link.c|" on
    ASSERT_NE(found, texts.end());
    std::string link = *found;
    EXPECT_NE(link.find("|3|"), std::string::npos) << link;
    EXPECT_NE(link.find("|lrwxrwxrwx|a.c"), std::string::npos) << link;
    FsdFreeNameCache(&users);
    FsdFreeNameCache(&groups);
    char date[32];
    setenv("TZ", "EST5", 1);
    tzset();
    FsdFormatDate(1041480306, date);
    EXPECT_STREQ(date, "01/01/2003 23:05:06");
    unsetenv("TZ");
    tzset();
}

int ByName(const FsdFileItem *a, const FsdFileItem *b, void *)
{
    return strcmp(a->name, b->name);
}

TEST_F(Scan, ListOrderBySize)
{
    ASSERT_EQ(truncate(P("b.h").c_str(), 10), 0);
    ASSERT_EQ(truncate(P("x.txt").c_str(), 7), 0);
    std::vector<FsdFileItem *> items = Items(rows_[2]);
    std::sort(items.begin(), items.end(), [&](auto a, auto b) {
        return FsdCompareListItems(a, b, 4, 1, ByName, nullptr) < 0;
    });
    // Directories stand first whatever the direction, ".." first of them;
    // files by size, largest first, ties by the fallback.
    std::vector<std::string> names;
    for (size_t i = 0; i < 9; i++)
        names.push_back(items[i]->name);
    EXPECT_EQ(names, (std::vector<std::string>{"..", "sub", "with space", "link_dir", "b.h",
                                               "x.txt", "link_txt", "link.c", "a.c"}));
    EXPECT_EQ(FsdCompareListItems(items[0], nullptr, 1, 0, ByName, nullptr), 1);
}

// Root may read and write everything: the rules are tried as another user.
TEST_F(Scan, PermissionsOfAnotherUser)
{
    xwktest::AnotherUser another_user;
    struct Case {
        mode_t mode;
        Boolean deny_read, deny_write, desk;
        FsdIconKind icon;
    } cases[] = {
        {0755, True, True, False, FSD_ICON_TREE_DIR_DENY_WRITE},
        {0755, True, False, False, FSD_ICON_TREE_DIR},
        {0700, True, True, True, FSD_ICON_DESK_DIR_DENY_READ},
        {0700, False, True, True, FSD_ICON_DESK_DIR_DENY_WRITE},
        {0700, False, False, False, FSD_ICON_TREE_DIR},
        {0777, True, True, True, FSD_ICON_DESK_DIR},
    };
    for (const Case &c : cases) {
        struct stat st {};
        st.st_mode = S_IFDIR | c.mode;
        EXPECT_EQ(FsdDirectoryIcon(&st, c.desk, c.deny_read, c.deny_write), c.icon) << c.mode;
    }
    struct stat st {};
    stat(P("sub").c_str(), &st);
    FsdDirNode *node = FsdNewDirNode(nullptr, (P("sub") + "/").c_str(), nullptr, &st);
    EXPECT_EQ(FsdDirNodeState(node, False), 2);
    node->stat.st_mode = S_IFDIR | 0700;
    EXPECT_EQ(FsdDirNodeState(node, False), 1);
    EXPECT_EQ(FsdDirNodeState(node, True), 2);
    node->stat.st_nlink = 2;
    node->stat.st_mode = S_IFDIR | 0755;
    EXPECT_EQ(FsdDirNodeState(node, False), 1);
    FsdFreeDirNode(node);
    st.st_mode = S_IFREG | 0700;
    EXPECT_EQ(FsdFileIcon(&st, False), FSD_ICON_DESK_EXEC);
    EXPECT_EQ(FsdFileIcon(&st, True), FSD_ICON_TREE_REGULAR);
    xwkUID = 0;
    st.st_mode = S_IFDIR;
    EXPECT_EQ(FsdDirectoryIcon(&st, False, True, True), FSD_ICON_TREE_DIR);
}

} // namespace
