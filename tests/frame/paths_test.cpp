// Path services, in a private temporary directory.
#include "xwktest.h"

#include <limits.h>
#include <pwd.h>

namespace fs = std::filesystem;

namespace {

std::string Cwd()
{
    char buf[PATH_MAX];
    return getcwd(buf, sizeof buf) ? buf : "";
}

// A path the library found, "<null>" for none.
std::string Found(const char *path)
{
    return path ? path : "<null>";
}

class Paths : public ::testing::Test {
protected:
    void SetUp() override
    {
        char real[PATH_MAX];
        ASSERT_NE(realpath(tmp_.Path().c_str(), real), nullptr);
        dir_ = real;
        ASSERT_EQ(mkdir((dir_ + "/sub").c_str(), 0755), 0);
        Write("f", "content");
    }
    void Write(const std::string &name, const std::string &text) { tmp_.Write(name, text); }
    std::string Read(const std::string &name) { return tmp_.Read(name); }
    std::string P(const std::string &name) { return dir_ + "/" + name; }
    // XwkGetFullPath into a buffer of PATH_MAX, which it returns.
    std::string Full(const std::string &path)
    {
        char *r = XwkGetFullPath(out_, path.c_str());
        EXPECT_TRUE(!r || r == out_) << path;
        return Found(r);
    }
    char out_[PATH_MAX];
    xwktest::TempDir tmp_;
    std::string dir_;
};

TEST_F(Paths, IsFileExist)
{
    EXPECT_TRUE(XwkIsFileExist(P("f").c_str()));
    EXPECT_TRUE(XwkIsFileExist(P("sub").c_str()));
    EXPECT_FALSE(XwkIsFileExist(P("none").c_str()));
    EXPECT_FALSE(XwkIsFileExist(nullptr));
}

TEST_F(Paths, FindPathExpandsVariables)
{
    std::string var = "D=" + dir_;
    std::vector<char> entry(var.begin(), var.end());
    entry.push_back('\0');
    char *env[] = {entry.data(), nullptr};

    // An unknown name vanishes: "$UNSET/..." is looked up from the root.
    std::string unset = "$UNSET_XWK_TEST" + dir_ + "/f";
    for (const char *name : {"$D/f", "$(D)/f", "${D}/f", unset.c_str()})
        EXPECT_EQ(Found(XwkFindPathExt(name, nullptr, env)), P("f")) << name;

    // Without an array the process environment is used, with one it is not.
    setenv("XWK_TEST_DIR", dir_.c_str(), 1);
    EXPECT_EQ(Found(XwkFindPath("$(XWK_TEST_DIR)/f", nullptr)), P("f"));
    EXPECT_EQ(XwkFindPathExt("$(XWK_TEST_DIR)/f", nullptr, env), nullptr);

    xwkHOME = const_cast<char *>(dir_.c_str());
    EXPECT_EQ(Found(XwkFindPath("~/f", nullptr)), P("f"));
    xwkHOME = nullptr;
}

TEST_F(Paths, FindPathSearchesDirectories)
{
    std::string search = P("none") + "::" + P("sub") + ":" + dir_;
    EXPECT_EQ(Found(XwkFindPath("f", search.c_str())), P("f"));
    // A directory counts; the first directory that has it wins.
    Write("sub/f", "x");
    EXPECT_EQ(Found(XwkFindPath("f", search.c_str())), P("sub/f"));
    EXPECT_EQ(Found(XwkFindPath("sub", search.c_str())), P("sub"));
    EXPECT_EQ(XwkFindPath("nothing", search.c_str()), nullptr);
    EXPECT_EQ(XwkFindPath("f", nullptr), nullptr);
    EXPECT_EQ(XwkFindPath(nullptr, search.c_str()), nullptr);
    // One static buffer per step.
    EXPECT_EQ(XwkFindPath("f", search.c_str()), XwkFindPath("sub", search.c_str()));

    std::string huge(20000, 'a');
    EXPECT_EQ(XwkFindPath(huge.c_str(), search.c_str()), nullptr);
    std::string huge_var = "$(" + std::string(20000, 'B') + ")" + dir_;
    EXPECT_EQ(Found(XwkFindPath(huge_var.c_str(), nullptr)), dir_);
    std::string long_search(9000, 'd');
    EXPECT_EQ(XwkFindPath("f", long_search.c_str()), nullptr);
}

TEST(Patterns, ExtensionAndRegex)
{
    EXPECT_EQ(xwktest::Take(XwkGetExtFromPattern("*.c")), "c");
    EXPECT_EQ(xwktest::Take(XwkGetExtFromPattern("a.tar.gz")), "gz");
    EXPECT_EQ(xwktest::Take(XwkGetExtFromPattern("x.")), "");
    EXPECT_EQ(xwktest::Take(XwkGetExtFromPattern("a.b/c")), "<null>");
    EXPECT_EQ(xwktest::Take(XwkGetExtFromPattern("abc")), "<null>");
    EXPECT_EQ(XwkGetExtFromPattern(nullptr), nullptr);

    EXPECT_EQ(xwktest::Take(XwkGetMatchPattern("*.c")), "^.*\\.c$");
    EXPECT_EQ(xwktest::Take(XwkGetMatchPattern("a?b[0-9]/c*")), "^a.b[0-9]$");
    EXPECT_EQ(xwktest::Take(XwkGetMatchPattern("")), "^$");
    EXPECT_EQ(XwkGetMatchPattern(nullptr), nullptr);
}

TEST_F(Paths, GetFullPath)
{
    std::string before = Cwd();
    // Only the directory above needs to exist.
    for (auto [path, full] : {std::pair{P("sub/../f"), P("f")}, {P("sub/../sub/."), P("sub")},
                              {P("sub/../new"), P("new")}, {P("sub/"), P("sub")},
                              {P("none/x"), std::string("<null>")}})
        EXPECT_EQ(Full(path), full) << path;
    EXPECT_EQ(Cwd(), before);

    ASSERT_EQ(chdir(dir_.c_str()), 0);
    EXPECT_EQ(Full("sub"), P("sub"));
    EXPECT_EQ(Full("sub/x.c"), P("sub/x.c"));
    EXPECT_EQ(Full(".."), dir_.substr(0, dir_.rfind('/')));
    // A slash in the first column does not split: a missing entry of the
    // root is joined to the working directory, as it always was.
    EXPECT_EQ(Full("/xwk-no-such-entry"), dir_ + "//xwk-no-such-entry");
    EXPECT_EQ(Full("/"), "/");
    EXPECT_EQ(Cwd(), dir_);
    ASSERT_EQ(chdir(before.c_str()), 0);

    EXPECT_EQ(XwkGetFullPath(nullptr, "x"), nullptr);
    EXPECT_EQ(XwkGetFullPath(out_, nullptr), nullptr);
}

TEST_F(Paths, GetFullPathCutsLongResults)
{
    std::string before = Cwd();
    std::vector<char> out(PATH_MAX + 16, 'G');
    std::string name(3 * PATH_MAX, 'n');
    ASSERT_EQ(chdir(dir_.c_str()), 0);
    EXPECT_EQ(XwkGetFullPath(out.data(), name.c_str()), out.data());
    EXPECT_EQ(std::strlen(out.data()), static_cast<size_t>(PATH_MAX - 1));
    EXPECT_EQ(std::string(out.data(), dir_.size()), dir_);
    EXPECT_EQ(out[PATH_MAX], 'G');
    ASSERT_EQ(chdir(before.c_str()), 0);
}

TEST(Split, SplitPath)
{
    // Each part asked for, or not asked for (nullptr): "-" stands for none.
    struct Case { const char *path; bool dir, name, ext; const char *d, *n, *e; } cases[] = {
        {"/a/b.c", 1, 1, 1, "/a", "b", "c"}, {"b", 1, 1, 1, "<null>", "b", "<null>"},
        {"/x", 1, 1, 1, "", "x", "<null>"}, {"d/", 1, 1, 1, "d", "<null>", "<null>"},
        {"a.d/b.tar.gz", 1, 1, 0, "a.d", "b.tar.gz", "-"},
        {"a.d/b.tar.gz", 0, 1, 1, "-", "b.tar", "gz"},
        {"a.d/b", 0, 1, 1, "-", "b", "<null>"}, {"d/.rc", 0, 1, 1, "-", "<null>", "rc"},
    };
    for (const Case &c : cases) {
        char *d = nullptr, *n = nullptr, *e = nullptr;
        XwkSplitPath(c.path, c.dir ? &d : nullptr, c.name ? &n : nullptr, c.ext ? &e : nullptr);
        EXPECT_EQ(c.dir ? xwktest::Take(d) : "-", c.d) << c.path;
        EXPECT_EQ(c.name ? xwktest::Take(n) : "-", c.n) << c.path;
        EXPECT_EQ(c.ext ? xwktest::Take(e) : "-", c.e) << c.path;
    }
    char *d, *n, *e;
    d = n = e = reinterpret_cast<char *>(1);
    XwkSplitPath(nullptr, &d, &n, &e);
    EXPECT_TRUE(!d && !n && !e);
    XwkSplitPath("/a/b.c", nullptr, nullptr, nullptr);
}

TEST(Tilde, ExpandTilde)
{
    char home[] = "/home/me";
    xwkHOME = home;
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~")), "/home/me");
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~/x/y")), "/home/me/x/y");
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("a/~/b")), "a/~/b");
    xwkHOME = nullptr;
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~/x")), "/x");
    struct passwd *root = getpwnam("root");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~root/x")), std::string(root->pw_dir) + "/x");
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~root")), std::string(root->pw_dir));
    EXPECT_EQ(xwktest::Take(XwkExpandTilde("~no_such_user_xwk/x")), "~no_such_user_xwk/x");
    EXPECT_EQ(XwkExpandTilde(nullptr), nullptr);
}

TEST(Access, DecidedByTheUserGlobals)
{
    int gids[] = {100, 200};
    xwkGIDs = gids;
    xwkNumGIDs = 2;
    // The file's mode, owner and group; the user; what is asked; the answer.
    struct Case { mode_t mode; uid_t owner; gid_t group; uid_t user; int want; bool ok; }
    cases[] = {
        {S_IFREG | 0600, 500, 1, 500, 4, true}, {S_IFREG | 0600, 500, 1, 500, 2, true},
        {S_IFREG | 0600, 500, 1, 500, 1, false}, {S_IFREG | 0400, 501, 1, 500, 4, false},
        // Others need the execute bit too, even on a plain file.
        {S_IFREG | 0004, 501, 1, 500, 4, false}, {S_IFREG | 0005, 501, 1, 500, 4, true},
        {S_IFREG | 0005, 501, 1, 500, 2, false}, {S_IFREG | 0003, 501, 1, 500, 2, true},
        // Any group of the process counts.
        {S_IFREG | 0040, 501, 200, 500, 4, true}, {S_IFREG | 0040, 501, 300, 500, 4, false},
        // A directory needs the execute bit of the class as well.
        {S_IFDIR | 0060, 501, 100, 500, 4, false}, {S_IFDIR | 0060, 501, 100, 500, 2, false},
        {S_IFDIR | 0070, 501, 100, 500, 4, true}, {S_IFDIR | 0070, 501, 100, 500, 2, true},
        {S_IFDIR | 0600, 500, 1, 500, 4, false}, {S_IFDIR | 0700, 500, 1, 500, 2, true},
        {S_IFREG | 0000, 501, 1, 0, 4, true}, {S_IFREG | 0000, 501, 1, 0, 7, true},
    };
    for (const Case &c : cases) {
        struct stat st = {};
        st.st_mode = c.mode;
        st.st_uid = c.owner;
        st.st_gid = c.group;
        xwkUID = c.user;
        EXPECT_EQ(XwkAccess(&st, c.want), c.ok) << std::oct << c.mode << " " << c.want;
    }
    xwkUID = 500;
    xwkGIDs = nullptr;
    xwkNumGIDs = 3;
    struct stat st = {};
    st.st_mode = S_IFREG | 0040;
    st.st_gid = 100;
    EXPECT_FALSE(XwkAccess(&st, 4)) << "no list: a group never counts";
    EXPECT_FALSE(XwkAccess(nullptr, 4));
    xwkNumGIDs = 0;
}

TEST_F(Paths, CopyFile)
{
    std::string big;
    for (int i = 0; i < 50000; i++) big += static_cast<char>(i * 7 + i / 251);
    Write("big", big);
    ASSERT_EQ(chmod(P("big").c_str(), 0640), 0);
    Write("old", "previous text that is longer than the new one");
    EXPECT_EQ(XwkCopyFile(P("big").c_str(), P("old").c_str()), 0);
    EXPECT_EQ(Read("old"), big);
    EXPECT_EQ(fs::status(P("old")).permissions(), fs::perms(0640));

    // Links are copied through.
    ASSERT_EQ(symlink(P("f").c_str(), P("link").c_str()), 0);
    EXPECT_EQ(XwkCopyFile(P("link").c_str(), P("copy").c_str()), 0);
    EXPECT_EQ(Read("copy"), "content");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(P("copy"))));

    EXPECT_EQ(XwkCopyFile(P("f").c_str(), P("f").c_str()), 0);
    EXPECT_EQ(Read("f"), "content");
    EXPECT_LT(XwkCopyFile(P("none").c_str(), P("copy").c_str()), 0);
    EXPECT_EQ(Read("copy"), "content");
    EXPECT_EQ(XwkCopyFile(P("f").c_str(), P("none/x").c_str()), -3);
    // A directory is not copied, and the destination stays.
    EXPECT_EQ(XwkCopyFile(P("sub").c_str(), P("copy").c_str()), -2);
    EXPECT_EQ(Read("copy"), "content");
    EXPECT_LT(XwkCopyFile(nullptr, P("copy").c_str()), 0);
    EXPECT_LT(XwkCopyFile(P("f").c_str(), nullptr), 0);

    Write("empty", "");
    EXPECT_EQ(XwkCopyFile(P("empty").c_str(), P("copy").c_str()), 0);
    EXPECT_EQ(Read("copy"), "");
}

}  // namespace
