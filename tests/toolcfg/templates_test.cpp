// Template expansion: file name forms, built-in and own macros, nesting,
// unknown names, and failures by line number.
#include "xwktest.h"

#include <ctime>

namespace {

struct Templates : ::testing::Test {
    TemplateEntry *list = nullptr;

    void SetUp() override { templ_init(&list); }
    void TearDown() override { templ_free(&list); }

    std::string Expand(const char *text, const char *file = "/src/dir/main.c", void *user = nullptr)
    {
        char *out = nullptr;
        int rc = templ_expand(list, file, text, &out, user);
        EXPECT_EQ(rc, 0) << text;
        std::string s = out ? out : "<null>";
        std::free(out);
        return s;
    }

    int Fail(const char *text)
    {
        char *out = reinterpret_cast<char *>(&list);
        int rc = templ_expand(list, "f", text, &out, nullptr);
        EXPECT_EQ(out, reinterpret_cast<char *>(&list)) << "result set on failure";
        return rc;
    }
};

std::vector<std::string> seen;

std::string Now(const char *format)
{
    char buf[100];
    std::time_t t = std::time(nullptr);
    std::strftime(buf, sizeof buf, format, std::localtime(&t));
    return buf;
}

TEST_F(Templates, InitAddsTheTenBuiltInsAndFreeClears)
{
    std::vector<std::pair<std::string, std::string>> entries;
    for (TemplateEntry *e = list; e; e = e->next)
        entries.insert(entries.begin(), {e->name, e->description});
    std::vector<std::pair<std::string, std::string>> expected = {
        {"USER", "Username"}, {"HOST", "Hostname"}, {"DATE", "Current date"},
        {"TIME", "Current time"}, {"upper", "Uppecase string"}, {"lower", "Lowercase string"},
        {"capitalize", "Capitalize string"}, {"identifier", "Cast to identifier"},
        {"basename", "Basename of the file"}, {"suffix", "Suffix of the file"}};
    EXPECT_EQ(entries, expected);
    templ_free(&list);
    EXPECT_EQ(list, nullptr);
}

// Expansions that need no macro of the test's own, on "/src/dir/main.c"
// unless the case names another file.
TEST_F(Templates, PlainExpansions)
{
    struct Case { const char *text, *expanded, *file = "/src/dir/main.c"; } cases[] = {
        {"$@", "/src/dir/main.c"}, {"[$(@D)] [$(@F)]", "[/src/dir] [main.c]"},
        {"$(@D)|$(@F)|", "|plain.c|", "plain.c"}, {"$(@D)", "", "/top"},
        // The character behind the ")" is copied without being looked at.
        {"$(@F)$@", "main.c$@"}, {"$(@F)$(upper x)", "main.c$(upper x)"}, {"$(@F)", "main.c"},
        // A file name form at a line end doubles the newline.
        {"a $(@F)\nb", "a main.c\n\nb"}, {"$(@D)\n", "/src/dir\n\n"},
        {"$@\nb", "/src/dir/main.c\nb"},
        // A dollar before anything else stays with its character.
        {"$$@ $x $$(upper a) $(1x) $( upper)", "$$@ $x $$(upper a) $(1x) $( upper)"},
        {"end $", "end $"}, {"$\nx", "$\n\nx"},
        // The built-in functions, nested or without an argument.
        {"$(upper Hello, World 1)", "HELLO, WORLD 1"}, {"$(lower Hello, World)", "hello, world"},
        {"$(capitalize hello world)", "Hello world"},
        {"$(identifier 9lives-of.a cat)", "_lives_of_a_cat"}, {"$(identifier abc_12)", "abc_12"},
        {"$(basename dir.v2/file)", "dir"}, {"$(basename $(@F))", "main"},
        {"$(basename README)", "README"}, {"$(suffix a.tar.gz)", "gz"},
        {"[$(suffix README)]", "[]"},
        {"$(upper $(lower $(capitalize ABC)))", "ABC"}, {"$(upper)", ""},
        // A missing close ends the call at the line end.
        {"$(upper abc\n$(upper def", "ABC\nDEF"}, {"x $(nosuch abc\ny", "x $(nosuch abc\ny"},
        // Inside an argument the copied character is the ")" closing the call.
        {"$(upper $(@F))!", "MAIN.C)!"},
        // Unknown names stay as they stand, calls in their arguments too.
        {"$(nosuch x) $(nosuch $(upper y)) $(Upper z)",
         "$(nosuch x) $(nosuch $(upper y)) $(Upper z)"},
        {"", ""}, {"\n\n", "\n\n"}, {"a\n", "a\n"},
        {"/* $(@F) */\n#ifndef $(upper $(identifier $(basename $(@F))))_H\n"
         "#define $(upper $(identifier $(basename $(@F))))_H\n#endif /* $(suffix $@) */\n",
         "/* io-util.h */\n#ifndef IO_UTIL_H\n#define IO_UTIL_H\n#endif /* h */\n",
         "src/io-util.h"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(Expand(c.text, c.file), c.expanded) << c.text;
}

TEST_F(Templates, EnvironmentBuiltIns)
{
    char *saved = xwkUSER;
    xwkUSER = const_cast<char *>("alice");
    EXPECT_EQ(Expand("$(USER) $(upper $(USER))"), "alice ALICE");
    xwkUSER = nullptr;
    EXPECT_EQ(Expand("[$(USER)]"), "[]");
    xwkUSER = saved;

    char host[100] = "";
    gethostname(host, sizeof host);
    host[99] = '\0';
    EXPECT_EQ(Expand("$(HOST)"), host);

    // Either side of a minute boundary is right.
    std::string before = Now("%d %B %Y|%H:%M");
    std::string got = Expand("$(DATE)|$(TIME)");
    std::string after = Now("%d %B %Y|%H:%M");
    EXPECT_TRUE(got == before || got == after) << got;
}

TEST_F(Templates, ArgumentsNestAndSkipLeadingBlanks)
{
    templ_add(&list, "rec", "records its argument", [](const char *arg, void *) {
        seen.push_back(arg);
        return strdup("<>");
    });
    EXPECT_EQ(Expand("$(rec)$(rec   )$(rec \t a (b) c )$(rec $(upper x)y)"), "<><><><>");
    EXPECT_EQ(seen, (std::vector<std::string>{"", "", "a (b) c ", "Xy"}));
}

TEST_F(Templates, AnEmptyListExpandsOnlyFileNames)
{
    TemplateEntry *empty = nullptr;
    std::swap(list, empty);
    EXPECT_EQ(Expand("$(upper x) $@ $(@D) $(@F)", "a/b"), "$(upper x) a/b a b");
    std::swap(list, empty);
}

TEST_F(Templates, LaterEntryHidesEarlierAndGetsTheUserValue)
{
    templ_add(&list, "upper", "own",
              [](const char *, void *user) { return strdup(static_cast<const char *>(user)); });
    char value[] = "mine";
    EXPECT_EQ(Expand("$(upper x)", "f", value), "mine");
    EXPECT_EQ(list->description, std::string("own"));
}

TEST_F(Templates, NullFromAMacroFailsItsLine)
{
    templ_add(&list, "null", "fails", [](const char *, void *) -> char * { return nullptr; });
    EXPECT_EQ(Fail("$(null)"), 1);
    EXPECT_EQ(Fail("one\ntwo\n  $(upper $(null)) three\nfour"), 3);
    EXPECT_EQ(Expand("$(nosuch $(null))"), "$(nosuch $(null))");
}

TEST_F(Templates, ResultsAreBoundTo4095CharactersALine)
{
    templ_add(&list, "long", "long text", [](const char *arg, void *) {
        return strdup(std::string(std::strtoul(arg, nullptr, 10), 'x').c_str());
    });
    EXPECT_EQ(Expand("$(long 4095)").size(), 4095u);
    EXPECT_EQ(Fail("$(long 4096)"), 1);
    EXPECT_EQ(Fail("ok\nx$(long 4095)"), 2);
    EXPECT_EQ(Fail("$(long 2000)$(long 2000)$(long 96)"), 1);
    EXPECT_EQ(Fail("$(upper $(long 4096))"), 1);
    EXPECT_EQ(Expand("$(long 4000)\n$(long 4000)").size(), 8001u);
    // Plain text past the bound is cut, not a failure.
    std::string plain(5000, 'p');
    EXPECT_EQ(Expand(plain.c_str()), std::string(4095, 'p'));
}

} // namespace
