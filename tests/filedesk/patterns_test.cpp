// Filter patterns: the groups of patternsDescription, the user's row, and
// which names they match.
#include "xwktest.h"

#include "filedesk/filedesk_private.h"

namespace {

struct Table {
    FsdPattern **rows = nullptr;
    int count = 0;
    int user_failures = 0;
    Table(const char *description, const char *pattern)
    {
        count = FsdBuildPatterns(description, pattern, &rows, &user_failures);
    }
    ~Table() { FsdFreePatterns(rows, count); }
};

TEST(Patterns, GroupsOfTheDescription)
{
    struct Case {
        const char *description;
        std::vector<std::string> names, texts;
        int first_globs;  // the globs of the first group
    } cases[] = {
        {"", {"All files"}, {"*"}, 1},
        {nullptr, {"All files"}, {"*"}, 1},
        {"C files|*.c;*.h", {"C files", "All files"}, {"*.c; *.h", "*"}, 2},
        // The group that shows everything is not added twice.
        {"All files|*|C|*.c", {"All files", "C"}, {"*", "*.c"}, 1},
        // An empty group, and a trailing ";" that adds nothing.
        {"Empty||Text|*.txt;", {"Empty", "Text", "All files"}, {"", "*.txt", "*"}, 0},
        {"Odd|;;x", {"Odd", "All files"}, {"; ; x", "*"}, 3},
        // Ill-formed ends do not swallow the group that shows everything.
        {"C|*.c|Bare", {"C", "Bare", "All files"}, {"*.c", "", "*"}, 1},
        {"C|*.c|", {"C", "All files"}, {"*.c", "*"}, 1},
    };
    for (const Case &c : cases) {
        Table t(c.description, "");
        SCOPED_TRACE(c.description ? c.description : "(null)");
        ASSERT_EQ(t.count, int(c.names.size()));
        for (int i = 1; i <= t.count; i++) {
            EXPECT_EQ(t.rows[i]->name, c.names[size_t(i) - 1]);
            EXPECT_EQ(t.rows[i]->text, c.texts[size_t(i) - 1]);
        }
        EXPECT_EQ(t.rows[1]->count, c.first_globs);
        EXPECT_STREQ(t.rows[0]->name, "User Pattern");
    }
    Table empty("Empty||Text|*.txt", "");
    EXPECT_FALSE(FsdPatternMatches(empty.rows[1], "a.txt"));
}

TEST(Patterns, Matching)
{
    struct Case {
        const char *globs, *name;
        bool match;
    } cases[] = {
        {"*.c", "a.c", true},
        {"*.c", "a.cc", false},
        {"*.c", "ac", false},
        {"*.c;*.h", "b.h", true},
        {"?.h", "x.h", true},
        {"?.h", "xy.h", false},
        {"*.[ch]", "y.h", true},
        {"*", "with space", true},
        {"*", "\xc3\xbcn\xc3\xaf.c", true},
        {"*", "new\nline", true},
        {"*.c", "new\nline.c", true},
        // White space goes out of the expression, not out of the names.
        {"a b*", "abc", true},
        {"a b*", "a bc", false},
        // A pattern ends at its first "/".
        {"dir/x*", "dir", true},
        // Not valid as regular expressions: never match, never crash.
        {"[", "[", false},
        {"a\\(", "a(", false},
        {"[;*.c", "q.c", true},
    };
    for (const Case &c : cases) {
        std::string description = std::string("G|") + c.globs;
        Table t(description.c_str(), "");
        SCOPED_TRACE(std::string(c.globs) + " / " + c.name);
        EXPECT_EQ(bool(FsdPatternMatches(t.rows[1], c.name)), c.match);
    }
}

TEST(Patterns, UserRow)
{
    Table t("C|*.c", "*.c; *.h");
    FsdPattern *user = t.rows[0];
    EXPECT_EQ(user->count, 2);
    EXPECT_STREQ(user->globs[1], " *.h");
    EXPECT_TRUE(FsdPatternMatches(user, "x.h"));
    EXPECT_EQ(t.user_failures, 0);

    int failures = -1;
    EXPECT_FALSE(FsdSetPatternText(user, "*.c; *.h", &failures));
    EXPECT_TRUE(FsdSetPatternText(user, "[;*.o", &failures));
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(user->count, 2);
    EXPECT_FALSE(FsdPatternMatches(user, "["));
    EXPECT_TRUE(FsdPatternMatches(user, "m.o"));
    EXPECT_TRUE(FsdSetPatternText(user, "", &failures));
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(FsdPatternMatches(user, ""));

    Table bad("", "a\\(");
    EXPECT_EQ(bad.user_failures, 1);
}

TEST(Patterns, FailedCompileKeepsTheSlot)
{
    regex_t slot{};
    EXPECT_TRUE(FsdCompilePattern(&slot, "*.c"));
    EXPECT_FALSE(FsdCompilePattern(&slot, "["));
    EXPECT_EQ(regexec(&slot, "k.c", 0, nullptr, 0), 0);
    EXPECT_TRUE(FsdCompilePattern(&slot, nullptr));
    regex_t zero{};
    EXPECT_EQ(memcmp(&slot, &zero, sizeof slot), 0);
}

TEST(Patterns, RowOfAText)
{
    Table t("C|*.c;*.h|Text|*.txt", "");
    int row = 0;
    for (const char *text : {"*.c", "*.c; *.h", "*.txt", "*"})  // 0: no row but the user's
        EXPECT_EQ(FsdFindPatternRow(t.rows, t.count, text), row++) << text;

    XmString *strings = FsdPatternNameStrings(t.rows, t.count);
    ASSERT_NE(strings, nullptr);
    XmString text = XmStringCreateLocalized(const_cast<char *>("Text"));
    EXPECT_TRUE(XmStringCompare(strings[1], text));
    XmStringFree(text);
    for (int i = 0; i < t.count; i++)
        XmStringFree(strings[i]);
    XtFree(reinterpret_cast<char *>(strings));
    EXPECT_EQ(FsdPatternNameStrings(t.rows, 0), nullptr);
}

TEST(Patterns, RemoveAllSpaces)
{
    char text[] = " a\tb\n c ";
    EXPECT_STREQ(XwkRemoveAllSpaces(text), "abc");
    EXPECT_EQ(XwkRemoveAllSpaces(nullptr), nullptr);
}

} // namespace
