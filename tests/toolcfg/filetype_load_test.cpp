// Loading the rule file: failures, syntax errors and the 250-rule table.
// Each case runs in a child process, which starts with nothing loaded.
#include "xwktest.h"

namespace fs = std::filesystem;

namespace {

struct RuleLoad : ::testing::Test {
    xwktest::TempDir tmp;
    fs::path dir = tmp.Path();
    std::string Write(const std::string &name, const std::string &content)
    {
        return tmp.Write(name, content);
    }
};

// Runs body in a child process and returns what it reported: empty when
// every check held.
std::string InFreshProcess(const std::function<std::string()> &body)
{
    int fds[2];
    if (pipe(fds) != 0)
        return "pipe failed";
    pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        std::string report = body();
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

struct Report {
    std::string text;
    void Expect(bool ok, const std::string &what)
    {
        if (!ok)
            text += what + "\n";
    }
};

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
    std::string empty = Write("empty", "");
    std::string good = Write("good", ".c cc\n[opt]value\n");
    std::string other = Write("other", ".c other\n");
    EXPECT_EQ(InFreshProcess([&] {
        Report r;
        r.Expect(Lookup(nullptr, "a.c") == 1, "nothing to load gives 1");
        r.Expect(GetModuleOption(nullptr, "opt") == nullptr, "no option before a load");
        r.Expect(Lookup((dir / "missing").c_str(), "a.c") == -1, "missing file gives -1");
        r.Expect(GetModuleOption((dir / "missing").c_str(), "opt") == nullptr, "failed load gives NULL");
        r.Expect(Lookup(empty.c_str(), "a.c") == -4, "empty file gives -4");
        r.Expect(Lookup(dir.c_str(), "a.c") == -4, "a directory reads nothing");
        std::string action;
        r.Expect(Lookup(good.c_str(), "a.c", &action) == 0 && action == "cc", "good file loads");
        r.Expect(Lookup(other.c_str(), "a.c", &action) == 0 && action == "cc", "second file ignored");
        r.Expect(Lookup((dir / "missing").c_str(), "a.c") == 0, "path ignored once loaded");
        return r.text;
    }), "");
}

TEST_F(RuleLoad, OptionCallLoadsTheTable)
{
    std::string good = Write("good", ".c cc\n[opt]value\n");
    EXPECT_EQ(InFreshProcess([&] {
        Report r;
        char *v = GetModuleOption(good.c_str(), "opt");
        r.Expect(v && std::string(v) == "value", "option after load");
        r.Expect(Lookup(nullptr, "a.c") == 0, "rules loaded by the option call");
        return r.text;
    }), "");
}

TEST_F(RuleLoad, SyntaxErrorKeepsTheRulesBeforeItAndIsNotReadAgain)
{
    std::string rules = Write("rules", ".c cc\n.h hh\nbad line\n.x xx\n");
    EXPECT_EQ(InFreshProcess([&] {
        Report r;
        r.Expect(Lookup(rules.c_str(), "a.c") == -2, "syntax error gives -2");
        std::ofstream(rules) << ".c cc\n.h hh\n.x xx\n";
        std::string action;
        r.Expect(Lookup(rules.c_str(), "a.h", &action) == 0 && action == "hh", "earlier rule kept");
        r.Expect(Lookup(rules.c_str(), "a.x") == 1, "later rule never stored, file not reread");
        return r.text;
    }), "");
}

TEST_F(RuleLoad, LinesWithoutActionAreSyntaxErrors)
{
    const char *cases[] = {
        "^pattern\n.c cc\n",
        "!perl\n",
        "^\"quoted\"\n",
        "^\"unterminated\n",
        ".c \n.h hh\n",
        ".c cc\n.h",
        ".c cc\n.h\t",
        "? \n",
        "=x y\n",
        ".c\n",
    };
    for (const char *text : cases) {
        std::string rules = Write("rules", text);
        EXPECT_EQ(InFreshProcess([&] {
            Report r;
            r.Expect(Lookup(rules.c_str(), nullptr) == -2, "gives -2");
            return r.text;
        }), "") << text;
    }
}

// A name pattern runs to the first blank or tab, across a newline.
TEST_F(RuleLoad, NamePatternRunsToABlank)
{
    std::string rules = Write("rules", ".c\n.h hh\n");
    EXPECT_EQ(InFreshProcess([&] {
        Report r;
        std::string action;
        r.Expect(Lookup(rules.c_str(), "a.h") == 1, "no .h rule");
        r.Expect(Lookup(rules.c_str(), "a.c\n.h", &action) == 0 && action == "hh", "joined pattern");
        return r.text;
    }), "");
}

TEST_F(RuleLoad, TableHoldsTwoHundredFiftyRulesOptionsIncluded)
{
    std::string text;
    for (int i = 0; i < 249; i++)
        text += ".s" + std::to_string(i) + " a" + std::to_string(i) + "\n";
    text += "[opt]v\n.s249 late\nnot a rule at all\n";
    std::string rules = Write("rules", text);
    EXPECT_EQ(InFreshProcess([&] {
        Report r;
        std::string action;
        r.Expect(Lookup(rules.c_str(), "x.s248", &action) == 0 && action == "a248", "rule 249 stored");
        r.Expect(Lookup(rules.c_str(), "x.s0", &action) == 0 && action == "a0", "first rule stored");
        r.Expect(Lookup(rules.c_str(), "x.s249") == 1, "rule 251 never stored");
        char *v = GetModuleOption(nullptr, "opt");
        r.Expect(v && std::string(v) == "v", "option is rule 250");
        return r.text;
    }), "");
}

} // namespace
