// Loading the rule file: failures, syntax errors and the 250-rule table.
// Each case runs in a child process, which starts with nothing loaded.
#include "xwktest.h"

namespace fs = std::filesystem;

namespace {

struct RuleLoad : ::testing::Test {
    xwktest::TempDir tmp;
    fs::path dir = tmp.Path();
};

// Records a failed check of a child process: what should have held.
using Expect = std::function<void(bool ok, const char *what)>;

// Runs body in a child process and returns the checks that failed there,
// one a line: empty when every check held.
std::string InFreshProcess(const std::function<void(const Expect &)> &body)
{
    int fds[2];
    if (pipe(fds) != 0)
        return "pipe failed";
    pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        std::string report;
        body([&](bool ok, const char *what) {
            if (!ok)
                report += std::string(what) + "\n";
        });
        ssize_t ignored = write(fds[1], report.data(), report.size());
        (void)ignored;
        _exit(0);
    }
    close(fds[1]);
    std::string out;
    char buf[512];
    ssize_t n;
    while ((n = read(fds[0], buf, sizeof buf)) > 0)
        out.append(buf, size_t(n));
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        out += "child did not exit normally";
    return out;
}

int Lookup(const char *rules, const char *name, std::string *action = nullptr)
{
    char *a = nullptr;
    int rc = CheckFileType(rules, name, &a, nullptr, 0);
    if (action)
        *action = a ? a : "<null>";
    return rc;
}

TEST_F(RuleLoad, FailedLoadsLeaveNothingLoaded)
{
    std::string empty = tmp.Write("empty", "");
    std::string good = tmp.Write("good", ".c cc\n[opt]value\n");
    std::string other = tmp.Write("other", ".c other\n");
    EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
        expect(Lookup(nullptr, "a.c") == 1, "nothing to load gives 1");
        expect(GetModuleOption(nullptr, "opt") == nullptr, "no option before a load");
        expect(Lookup((dir / "missing").c_str(), "a.c") == -1, "missing file gives -1");
        expect(!GetModuleOption((dir / "missing").c_str(), "opt"), "failed load gives NULL");
        expect(Lookup(empty.c_str(), "a.c") == -4, "empty file gives -4");
        expect(Lookup(dir.c_str(), "a.c") == -4, "a directory reads nothing");
        std::string action;
        expect(Lookup(good.c_str(), "a.c", &action) == 0 && action == "cc", "good file loads");
        expect(Lookup(other.c_str(), "a.c", &action) == 0 && action == "cc", "second file ignored");
        expect(Lookup((dir / "missing").c_str(), "a.c") == 0, "path ignored once loaded");
    }), "");
}

TEST_F(RuleLoad, OptionCallLoadsTheTable)
{
    std::string good = tmp.Write("good", ".c cc\n[opt]value\n");
    EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
        char *v = GetModuleOption(good.c_str(), "opt");
        expect(v && std::string(v) == "value", "option after load");
        expect(Lookup(nullptr, "a.c") == 0, "rules loaded by the option call");
    }), "");
}

TEST_F(RuleLoad, SyntaxErrorKeepsTheRulesBeforeItAndIsNotReadAgain)
{
    std::string rules = tmp.Write("rules", ".c cc\n.h hh\nbad line\n.x xx\n");
    EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
        expect(Lookup(rules.c_str(), "a.c") == -2, "syntax error gives -2");
        std::ofstream(rules) << ".c cc\n.h hh\n.x xx\n";
        std::string action;
        expect(Lookup(rules.c_str(), "a.h", &action) == 0 && action == "hh", "earlier rule kept");
        expect(Lookup(rules.c_str(), "a.x") == 1, "later rule never stored, file not reread");
    }), "");
}

TEST_F(RuleLoad, LinesWithoutActionAreSyntaxErrors)
{
    const char *cases[] = {
        "^pattern\n.c cc\n", "!perl\n", "^\"quoted\"\n", "^\"unterminated\n", ".c \n.h hh\n",
        ".c cc\n.h", ".c cc\n.h\t", "? \n", "=x y\n", ".c\n",
    };
    for (const char *text : cases) {
        std::string rules = tmp.Write("rules", text);
        EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
            expect(Lookup(rules.c_str(), nullptr) == -2, "gives -2");
        }), "") << text;
    }
}

// A name pattern runs to the first blank or tab, across a newline.
TEST_F(RuleLoad, NamePatternRunsToABlank)
{
    std::string rules = tmp.Write("rules", ".c\n.h hh\n");
    EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
        std::string action;
        expect(Lookup(rules.c_str(), "a.h") == 1, "no .h rule");
        expect(Lookup(rules.c_str(), "a.c\n.h", &action) == 0 && action == "hh", "joined pattern");
    }), "");
}

TEST_F(RuleLoad, TableHoldsTwoHundredFiftyRulesOptionsIncluded)
{
    std::string text;
    for (int i = 0; i < 249; i++)
        text += ".s" + std::to_string(i) + " a" + std::to_string(i) + "\n";
    text += "[opt]v\n.s249 late\nnot a rule at all\n";
    std::string rules = tmp.Write("rules", text);
    EXPECT_EQ(InFreshProcess([&](const Expect &expect) {
        std::string action;
        expect(Lookup(rules.c_str(), "x.s248", &action) == 0 && action == "a248", "rule 249 kept");
        expect(Lookup(rules.c_str(), "x.s0", &action) == 0 && action == "a0", "first rule stored");
        expect(Lookup(rules.c_str(), "x.s249") == 1, "rule 251 never stored");
        char *v = GetModuleOption(nullptr, "opt");
        expect(v && std::string(v) == "v", "option is rule 250");
    }), "");
}

} // namespace
