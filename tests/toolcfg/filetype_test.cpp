// File type lookups against one rule file, loaded once for the process, and
// sample files in a temporary directory.
#include "xwktest.h"

namespace fs = std::filesystem;

namespace {

const char rule_text[] =
    "# file types of the tools\n"
    "; another comment\n"
    " indented comment .c wrong,wrong\n"
    "\n"
    "[compiler]gcc -O2 -g\n"
    "[empty]\n"
    "[noclose line\n"
    ".gz >gunzip,zcat\n"
    ".bz2\t>bunzip2\n"
    ".c cc,source\n"
    ".h\theader\n"
    ".cpp c++ , cpp_source trailing words\n"
    ",Makefile make,build\n"
    ",&tmp never,fits\n"
    ".txt &text,plain\n"
    ".log &log\n"
    ".sh shell\n"
    "^\"%PDF-\" pdf,viewer\n"
    "^<?xml xml\n"
    "!perl perl,script\n"
    "!\"python3\" python\n"
    "? binary,hexdump\n"
    ".late late\n";

struct Result {
    int rc;
    std::string action;
    std::string argument;
    bool operator==(const Result &) const = default;
};

std::ostream &operator<<(std::ostream &os, const Result &r)
{
    return os << r.rc << " [" << r.action << "] [" << r.argument << "]";
}

struct FileType : ::testing::Test {
    static inline xwktest::TempDir *tmp;
    static inline fs::path dir;

    static void SetUpTestSuite()
    {
        tmp = new xwktest::TempDir;
        dir = tmp->Path();
        tmp->Write("rules", rule_text);
        char *action = nullptr;
        ASSERT_EQ(CheckFileType((dir / "rules").c_str(), nullptr, &action, nullptr, 0), 1);
    }

    static void TearDownTestSuite() { delete tmp; }

    static Result Check(const std::string &name, int flags = 0)
    {
        char *action = nullptr, *argument = nullptr;
        int rc = CheckFileType(nullptr, name.c_str(), &action, &argument, flags);
        return {rc, action ? action : "<null>", argument ? argument : "<null>"};
    }
};

const Result none{1, "<null>", "<null>"};

// Names that need no file: the rules of names and suffixes.
TEST_F(FileType, NameRules)
{
    struct Case { const char *name; int flags; Result want; } cases[] = {
        {"main.c", 0, {0, "cc", "source"}}, {"/usr/include/x.h", 0, {0, "header", "<null>"}},
        // The action runs to the ",", blanks included; the argument to a blank.
        {"a.cpp", 0, {0, "c++ ", "cpp_source"}}, {"src/Makefile", 0, {0, "make", "build"}},
        {"GNUMakefile", 0, {0, "make", "build"}}, {"c", 0, none}, {".c", 0, {0, "cc", "source"}},
        {"main.C", 0, none},
        // Stripping suffixes let the inner suffix decide, unless flag 1 asks for them.
        {"main.c.gz", 0, {0, "cc", "source"}}, {"x.h.bz2", 0, {0, "header", "<null>"}},
        {"x.c.gz.bz2", 0, none}, {"main.c.gz", 1, {0, "gunzip", "zcat"}},
        {"x.bz2", 1, {0, "bunzip2", "<null>"}},
        // Fallbacks answer when nothing else fits.
        {"notes.txt", 0, {0, "text", "plain"}}, {"x.log", 0, {0, "log", "<null>"}},
        // A pattern starting with '&' never fits.
        {"x&tmp", 0, none}, {"xtmp", 0, none}, {"&tmp", 0, none},
        // Module options are passed over by lookups.
        {"compiler", 0, none}, {"x.late", 0, {0, "late", "<null>"}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(Check(c.name, c.flags), c.want) << c.name << " " << c.flags;
}

// Files written with the content: first line and binary rules.
TEST_F(FileType, ContentRules)
{
    struct Case { const char *name; std::string content; int flags; Result want; } cases[] = {
        {"doc", "%PDF-1.7\n", 0, {0, "pdf", "viewer"}}, {"doc", "%PDF-1.7\n", 2, none},
        // A later fit beats the fallback, whatever its kind; flag 2 reads no content.
        {"paper.txt", "%PDF-1.4\nrest\n", 0, {0, "pdf", "viewer"}},
        {"paper.txt", "%PDF-1.4\nrest\n", 2, {0, "text", "plain"}},
        {"feed", "<?xml version=\"1.0\"?>\n<a/>\n", 0, {0, "xml", "<null>"}},
        {"run", "#!/usr/bin/perl -w\nprint 1;\n", 0, {0, "perl", "script"}},
        {"tool", "#!/usr/bin/env python3\n", 0, {0, "python", "<null>"}},
        // "!" needs "#!" at the start of the first line; "^" the pattern there.
        {"essay", "perl and python3\n", 0, none}, {"quoted", " %PDF-\n", 0, none},
        // Without a newline in the first 4096 bytes there is no first line.
        {"long", "%PDF-" + std::string(5000, 'x') + "\n", 0, none}, {"short", "%PDF-", 0, none},
        // Suffix rules come first in the file, so they win.
        {"both.c", "%PDF-\n", 0, {0, "cc", "source"}},
        // The binary rule looks for a NUL in the first 4096 bytes.
        {"blob", std::string("ab\0cd", 5), 0, {0, "binary", "hexdump"}},
        {"blob", std::string("ab\0cd", 5), 2, none},
        {"late-nul", std::string(4096, 'a') + '\0', 0, none},
        {"edge-nul", std::string(4095, 'a') + '\0', 0, {0, "binary", "hexdump"}},
        // A first line is read as a C string: "perl" behind a NUL is not seen.
        {"nul-script", std::string("#!/x\0perl\n", 10), 0, {0, "binary", "hexdump"}},
        {"empty", "", 0, none},
    };
    for (const Case &c : cases)
        EXPECT_EQ(Check(tmp->Write(c.name, c.content), c.flags), c.want) << c.name << c.flags;
    // Unreadable files count as empty.
    EXPECT_EQ(Check((dir / "missing").string()), none);
    EXPECT_EQ(Check(dir.string()), none);
}

TEST_F(FileType, RuleFileIsReadOnceAndOutputsMayBeNull)
{
    std::string other = tmp->Write("other-rules", ".q other\n");
    char *action = nullptr;
    EXPECT_EQ(CheckFileType(other.c_str(), "x.q", &action, nullptr, 0), 1);
    EXPECT_EQ(action, nullptr);
    EXPECT_EQ(CheckFileType("/nonexistent", "main.c", nullptr, nullptr, 0), 0);
    EXPECT_EQ(CheckFileType(nullptr, nullptr, nullptr, nullptr, 0), 1);
    char *argument = nullptr;
    EXPECT_EQ(CheckFileType(nullptr, "a.c", nullptr, &argument, 0), 0);
    EXPECT_STREQ(argument, "source");
}

TEST_F(FileType, ModuleOptions)
{
    EXPECT_STREQ(GetModuleOption(nullptr, "compiler"), "gcc -O2 -g");
    EXPECT_STREQ(GetModuleOption("/ignored", "empty"), "");
    EXPECT_EQ(GetModuleOption(nullptr, "noclose"), nullptr);
    EXPECT_EQ(GetModuleOption(nullptr, "cc"), nullptr);
    EXPECT_EQ(GetModuleOption(nullptr, "absent"), nullptr);
    EXPECT_EQ(GetModuleOption(nullptr, nullptr), nullptr);
    // The same string every time: it points into the kept rule text.
    EXPECT_EQ(GetModuleOption(nullptr, "compiler"), GetModuleOption(nullptr, "compiler"));
}

} // namespace
