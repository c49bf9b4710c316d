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
        Write("rules", rule_text);
        char *action = nullptr;
        ASSERT_EQ(CheckFileType((dir / "rules").c_str(), nullptr, &action, nullptr, 0), 1);
    }

    static void TearDownTestSuite() { delete tmp; }

    static std::string Write(const std::string &name, const std::string &content)
    {
        return tmp->Write(name, content);
    }

    static Result Check(const std::string &name, int flags = 0)
    {
        char *action = nullptr, *argument = nullptr;
        int rc = CheckFileType(nullptr, name.c_str(), &action, &argument, flags);
        return {rc, action ? action : "<null>", argument ? argument : "<null>"};
    }
};

TEST_F(FileType, SuffixRules)
{
    EXPECT_EQ(Check("main.c"), (Result{0, "cc", "source"}));
    EXPECT_EQ(Check("/usr/include/x.h"), (Result{0, "header", "<null>"}));
    // The action runs to the ",", blanks included; the argument to a blank.
    EXPECT_EQ(Check("a.cpp"), (Result{0, "c++ ", "cpp_source"}));
    EXPECT_EQ(Check("src/Makefile"), (Result{0, "make", "build"}));
    EXPECT_EQ(Check("GNUMakefile"), (Result{0, "make", "build"}));
    EXPECT_EQ(Check("c"), (Result{1, "<null>", "<null>"}));
    EXPECT_EQ(Check(".c"), (Result{0, "cc", "source"}));
    EXPECT_EQ(Check("main.C"), (Result{1, "<null>", "<null>"}));
}

TEST_F(FileType, StrippingSuffixesLetTheInnerSuffixDecide)
{
    EXPECT_EQ(Check("main.c.gz"), (Result{0, "cc", "source"}));
    EXPECT_EQ(Check("x.h.bz2"), (Result{0, "header", "<null>"}));
    EXPECT_EQ(Check("x.c.gz.bz2"), (Result{1, "<null>", "<null>"}));
    EXPECT_EQ(Check("main.c.gz", 1), (Result{0, "gunzip", "zcat"}));
    EXPECT_EQ(Check("x.bz2", 1), (Result{0, "bunzip2", "<null>"}));
}

TEST_F(FileType, FallbacksAnswerWhenNothingElseFits)
{
    EXPECT_EQ(Check("notes.txt"), (Result{0, "text", "plain"}));
    EXPECT_EQ(Check("x.log"), (Result{0, "log", "<null>"}));
    // A later fit beats the fallback, whatever its kind.
    std::string pdf = Write("paper.txt", "%PDF-1.4\nrest\n");
    EXPECT_EQ(Check(pdf), (Result{0, "pdf", "viewer"}));
    EXPECT_EQ(Check(pdf, 2), (Result{0, "text", "plain"}));
}

TEST_F(FileType, PatternStartingWithAmpersandNeverFits)
{
    EXPECT_EQ(Check("x&tmp").rc, 1);
    EXPECT_EQ(Check("xtmp").rc, 1);
    EXPECT_EQ(Check("&tmp").rc, 1);
}

TEST_F(FileType, FirstLineRules)
{
    EXPECT_EQ(Check(Write("doc", "%PDF-1.7\n")), (Result{0, "pdf", "viewer"}));
    EXPECT_EQ(Check(Write("feed", "<?xml version=\"1.0\"?>\n<a/>\n")), (Result{0, "xml", "<null>"}));
    EXPECT_EQ(Check(Write("run", "#!/usr/bin/perl -w\nprint 1;\n")), (Result{0, "perl", "script"}));
    EXPECT_EQ(Check(Write("tool", "#!/usr/bin/env python3\n")), (Result{0, "python", "<null>"}));
    // "!" needs "#!" at the start of the first line; "^" the pattern there.
    EXPECT_EQ(Check(Write("essay", "perl and python3\n")).rc, 1);
    EXPECT_EQ(Check(Write("quoted", " %PDF-\n")).rc, 1);
    // Without a newline in the first 4096 bytes there is no first line.
    EXPECT_EQ(Check(Write("long", "%PDF-" + std::string(5000, 'x') + "\n")).rc, 1);
    EXPECT_EQ(Check(Write("short", "%PDF-")).rc, 1);
    // Suffix rules come first in the file, so they win.
    EXPECT_EQ(Check(Write("both.c", "%PDF-\n")), (Result{0, "cc", "source"}));
    EXPECT_EQ(Check((dir / "doc").string(), 2).rc, 1);
}

TEST_F(FileType, BinaryRuleLooksForANulInTheFirst4096Bytes)
{
    EXPECT_EQ(Check(Write("blob", std::string("ab\0cd", 5))), (Result{0, "binary", "hexdump"}));
    EXPECT_EQ(Check(Write("late-nul", std::string(4096, 'a') + '\0')).rc, 1);
    EXPECT_EQ(Check(Write("edge-nul", std::string(4095, 'a') + '\0')).rc, 0);
    // A first line is read as a C string: "perl" behind a NUL is not seen.
    EXPECT_EQ(Check(Write("nul-script", std::string("#!/x\0perl\n", 10))),
              (Result{0, "binary", "hexdump"}));
    EXPECT_EQ(Check(Write("blob2", std::string("\0", 1)), 2).rc, 1);
}

TEST_F(FileType, UnreadableFilesCountAsEmpty)
{
    EXPECT_EQ(Check((dir / "missing").string()).rc, 1);
    EXPECT_EQ(Check(dir.string()).rc, 1);
    EXPECT_EQ(Check(Write("empty", "")).rc, 1);
}

TEST_F(FileType, RuleFileIsReadOnceAndOutputsMayBeNull)
{
    std::string other = Write("other-rules", ".q other\n");
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
    // Options are passed over by lookups.
    EXPECT_EQ(Check("compiler").rc, 1);
    EXPECT_EQ(Check("x.late"), (Result{0, "late", "<null>"}));
}

} // namespace
