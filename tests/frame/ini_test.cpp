// Ini files, in a private temporary directory that also takes the
// temporary copies, so that a test sees whether they are cleaned up.
#include "xwktest.h"

#include <sys/resource.h>

namespace {

class Ini : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(mkdir(tmp_.Path("tmp").c_str(), 0700), 0);
        setenv("TMPDIR", tmp_.Path("tmp").c_str(), 1);
    }
    void TearDown() override
    {
        std::filesystem::directory_iterator copies(tmp_.Path("tmp"));
        EXPECT_EQ(std::distance(begin(copies), end(copies)), 0) << "a temporary copy is left";
    }
    void Put(const std::string &text) { tmp_.Write("settings.ini", text); }
    std::string Get() { return tmp_.Read("settings.ini"); }
    int Write(const char *section, std::vector<const char *> keys, std::vector<const char *> values)
    {
        return XwkWriteIni(file_.c_str(), section, const_cast<char **>(keys.data()),
                           const_cast<char **>(values.data()), static_cast<int>(keys.size()));
    }
    // Entries of the section as "key|value" lines.
    std::string Read(const char *section, int *result = nullptr)
    {
        char **keys = reinterpret_cast<char **>(1), **values = keys;
        int count = -1;
        int r = XwkReadIni(file_.c_str(), section, &keys, &values, &count);
        if (result) *result = r;
        std::string s;
        for (int i = 0; i < count; i++) {
            s += std::string(keys[i]) + "|" + values[i] + "\n";
            free(keys[i]);
            free(values[i]);
        }
        EXPECT_TRUE(count > 0 || (!keys && !values)) << "no entries, no arrays";
        free(keys);
        free(values);
        return s;
    }
    xwktest::TempDir tmp_;
    std::string dir_ = tmp_.Path(), file_ = tmp_.Path("settings.ini");
};

TEST_F(Ini, ReadCleansKeysAndValues)
{
    Put("a=0\n[s]\n; x=1\n# y=2\n.* z=3\na=1\n b = 2 \nno entry\n c=d=e\n=empty\n[t]\nq=9\n");
    int r = -1;
    EXPECT_EQ(Read("s", &r), "a|1\nb|2 \nc|d=e\n|empty\n");
    EXPECT_EQ(r, 4);
    EXPECT_EQ(Read("t"), "q|9\n");
    // Names are case sensitive; a header matches by its beginning.
    EXPECT_EQ(Read("S"), "");
    Put("[s] trailing\nk=v\n");
    EXPECT_EQ(Read("s"), "k|v\n");
}

TEST_F(Ini, ReadStopsAtASecondHeaderAndSplitsLongLines)
{
    struct Case { std::string text, entries; } cases[] = {
        {"[s]\na=1\n[s]\nb=2\n", "a|1\n"},
        {"[s]\na=1\nb=2", "a|1\n"},  // a last line without newline is lost
        {"[s]\nk=" + std::string(4093, 'v') + "j=1\n", "k|" + std::string(4093, 'v') + "\nj|1\n"},
    };
    for (const Case &c : cases) {
        Put(c.text);
        EXPECT_EQ(Read("s"), c.entries) << c.text.substr(0, 20);
    }
}

TEST_F(Ini, ReadCountIsASignedByte)
{
    std::string text = "[s]\n";
    for (int i = 0; i < 256; i++) text += "k" + std::to_string(i) + "=v\n";
    Put(text);
    int r = -1;
    std::string entries = Read("s", &r);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(std::count(entries.begin(), entries.end(), '\n'), 256);
    EXPECT_EQ(entries.substr(entries.size() - 7), "k255|v\n");

    text = "[s]\n";
    for (int i = 0; i < 200; i++) text += "k=v\n";
    Put(text);
    Read("s", &r);
    EXPECT_EQ(r, -56);
}

TEST_F(Ini, ReadFailures)
{
    int r = -1;
    EXPECT_EQ(Read("s", &r), "");
    EXPECT_EQ(r, 0);
    // A directory opens but cannot be read.
    file_ = dir_;
    EXPECT_EQ(Read("s", &r), "");
    EXPECT_EQ(r, 0);

    char **keys = nullptr, **values = nullptr;
    int count = 5;
    EXPECT_EQ(XwkReadIni(nullptr, "s", &keys, &values, &count), 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(XwkReadIni(file_.c_str(), nullptr, &keys, &values, &count), 0);
    EXPECT_EQ(XwkReadIni(file_.c_str(), "s", nullptr, &values, &count), 0);
    EXPECT_EQ(XwkReadIni(file_.c_str(), "s", &keys, &values, nullptr), 0);
}

TEST_F(Ini, WriteCreatesAppendsAndReplaces)
{
    EXPECT_EQ(Write("s", {"a", "", "b"}, {"1", "lost", nullptr}), 1);
    EXPECT_EQ(Get(), "[s]\na = 1\nb = \n");
    EXPECT_EQ(Read("s"), "a|1\nb|\n");
    struct Case { const char *before; std::vector<const char *> keys, values; const char *after; }
    cases[] = {
        // A missing section is appended.
        {"[x]\nk=v\n", {"a"}, {"1"}, "[x]\nk=v\n\n[s]\na = 1\n"},
        // Keys replace by prefix, the rest stays.
        {"; head\n[s]\n; inside\nfoo=old\n other = 2\nab = 3\n foo = 4\n[t]\nfoo=5\n",
         {"foo", "a", "new"}, {"F", "A", "N"},
         "; head\n[s]\n; inside\nfoo = F\na = A\nnew = N\n other = 2\n foo = 4\n[t]\nfoo=5\n"},
        // A key takes one line only; a second "c" finds none left.
        {"[s]\nb=1\nc=2\n", {"c", "d", "c"}, {"3", "4", "5"}, "[s]\nc = 3\nd = 4\nc = 5\nb=1\n"},
        // An empty section swallows the next header.
        {"[s]\n[t]\nx=1\n", {"x"}, {"9"}, "[s]\nx = 9\n[t]\n"},
        {"[s]\na=1\n[o]\n[s]\na=2\n[p]\nq=1\n", {"a"}, {"9"},
         "[s]\na = 9\n[o]\n[s]\na = 9\n[p]\nq=1\n"},
        // A last line without newline is lost.
        {"[s]\na=1\n[t]\nz=2", {"a"}, {"3"}, "[s]\na = 3\n[t]\n"},
    };
    for (const Case &c : cases) {
        Put(c.before);
        EXPECT_EQ(Write("s", c.keys, c.values), 1);
        EXPECT_EQ(Get(), c.after) << c.before;
    }
}

TEST_F(Ini, WriteRejectsIncompleteCalls)
{
    char key[] = "a", value[] = "1";
    char *keys[] = {key}, *values[] = {value};
    EXPECT_EQ(XwkWriteIni(file_.c_str(), nullptr, keys, values, 1), 0);
    EXPECT_EQ(XwkWriteIni(file_.c_str(), "s", nullptr, values, 1), 0);
    EXPECT_EQ(XwkWriteIni(file_.c_str(), "s", keys, nullptr, 1), 0);
    EXPECT_EQ(XwkWriteIni(file_.c_str(), "s", keys, values, 0), 0);
    EXPECT_EQ(XwkWriteIni(nullptr, "s", keys, values, 1), 0);
    EXPECT_NE(access(file_.c_str(), F_OK), 0);
    EXPECT_EQ(XwkWriteIni(dir_.c_str(), "s", keys, values, 1), 0);
    EXPECT_EQ(XwkWriteIni((dir_ + "/none/x.ini").c_str(), "s", keys, values, 1), 0);
    EXPECT_TRUE(std::filesystem::is_directory(dir_));
}

TEST_F(Ini, WriteThroughNulBytes)
{
    Put(std::string("[s]\na=1\0junk\nb=2\n", 18));
    EXPECT_EQ(Read("s"), "a|1\nb|2\n");
    EXPECT_EQ(Write("s", {"c"}, {"3"}), 1);
    EXPECT_EQ(Get(), "[s]\nc = 3\na=1\nb=2\n");
}

TEST_F(Ini, FailedWriteKeepsTheOldText)
{
    std::string old = "[s]\n";
    for (int i = 0; i < 200; i++) old += "key" + std::to_string(i) + " = value\n";
    Put(old);
    struct sigaction ignore {}, saved {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGXFSZ, &ignore, &saved);
    struct rlimit limit, small;
    getrlimit(RLIMIT_FSIZE, &limit);
    small = limit;
    small.rlim_cur = 1000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    int r = Write("s", {"key0"}, {"new"});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    sigaction(SIGXFSZ, &saved, nullptr);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(Get(), old);
}

TEST_F(Ini, DeleteByKeyPrefixValueOrSection)
{
    struct Case { const char *before, *key, *value, *after; } cases[] = {
        {"[s]\nfoo=1\nfoobar = 1\n fooz=3\nbar=foo\n[t]\nfoo=2\n", "foo", nullptr,
         "[s]\n fooz=3\nbar=foo\n[t]\nfoo=2\n"},
        {"[s]\na=xyz\nb=abc\ny=q\nnoeq y\n[t]\nc=y\n", nullptr, "y",
         "[s]\nb=abc\ny=q\nnoeq y\n[t]\nc=y\n"},
        {"[s]\nb=abc\ny=q\nnoeq y\n[t]\nc=y\n", "b", "q", "[s]\nnoeq y\n[t]\nc=y\n"},
        // A whole section goes, its comments stay.
        {"# top\n[s]\na=1\n; note\nb=2\n[t]\nc=3\n[s]\nd=4\n", nullptr, nullptr,
         "# top\n; note\n[t]\nc=3\n"},
    };
    for (const Case &c : cases) {
        Put(c.before);
        XwkDeleteIni(file_.c_str(), "s", c.key, c.value);
        EXPECT_EQ(Get(), c.after) << c.before;
    }
}

TEST_F(Ini, DeleteOnMissingOrOddFiles)
{
    XwkDeleteIni(file_.c_str(), "s", "a", nullptr);
    EXPECT_NE(access(file_.c_str(), F_OK), 0);
    XwkDeleteIni(dir_.c_str(), "s", nullptr, nullptr);
    XwkDeleteIni(nullptr, "s", nullptr, nullptr);
    Put("[s]\na=1\n");
    XwkDeleteIni(file_.c_str(), nullptr, nullptr, nullptr);
    EXPECT_EQ(Get(), "[s]\na=1\n");
    Put(std::string("[s]\nk=\0v\nkeep\n", 14));
    XwkDeleteIni(file_.c_str(), "s", "k=", nullptr);
    EXPECT_EQ(Get(), "[s]\nkeep\n");
}

}  // namespace
