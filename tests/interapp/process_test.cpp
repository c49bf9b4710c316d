// Programs started from the loop, as the user sees their end in the message
// box; the search path; a child talking through a pseudo-terminal.
#include "xwktest.h"

#include "../forms/boxdriver.h"

namespace {

Widget make_button(const char *name)
{
    static Widget row;
    if (!row)
        row = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, xwktest::StartApp(), NULL);
    Widget b = XtVaCreateManagedWidget(name, xmPushButtonWidgetClass, row, NULL);
    XtRealizeWidget(xwktest::StartApp());
    xwktest::Settle();
    return b;
}

bool reaped(int pid)
{
    return waitpid(pid, nullptr, WNOHANG) < 0 && errno == ECHILD;
}

struct Started {
    Widget done_widget = nullptr;
    std::string done_path;
    bool ended = false;
    std::string text, title;
    boxdriver::Step step;
};

void ended(Widget w, XtPointer data, const char *path)
{
    Started *run = (Started *)data;
    run->ended = true;
    run->done_widget = w;
    run->done_path = path;
    // The box, if any, comes after this call: answer it with OK.
    boxdriver::when_up(&run->step, [run] {
        run->text = boxdriver::box_text();
        run->title = boxdriver::box_title();
        xwktest::ClickCenter(boxdriver::button(1));
    });
}

// Runs the command for w until it ended and its box, if any, is answered.
void run_command(Widget w, const char *command, Started *run, bool box)
{
    XwkRunDoneRec done = {ended, run};
    int pid = XwkRunProcessDefaultProc(w, command, &done);
    ASSERT_GT(pid, 0) << command;
    ASSERT_TRUE(xwktest::PumpUntil([&] { return run->ended; }, 5000)) << command;
    if (box) {
        EXPECT_TRUE(xwktest::PumpUntil([&] { return run->step.done; }, 5000)) << command;
    } else {
        // Let the driver's timer find nothing and end.
        run->step.ready = [] { return true; };
        run->step.action = [] {};
        xwktest::PumpUntil([&] { return run->step.done; }, 1000);
    }
    EXPECT_TRUE(reaped(pid)) << command << ": no zombie is left";
}

TEST(RunProcess, TheStatusIsReadInTheMessageBox)
{
    Widget button = make_button("run");
    char *found = XwkFindExecPath("sh", nullptr);
    ASSERT_NE(found, nullptr);
    std::string sh = found;
    free(found);
    std::string window = std::to_string(XtWindow(button));
    char *environment[] = {(char *)"PATH=/usr/bin:/bin", (char *)"XWK_TEST=merged", nullptr};
    struct Case {
        const char *command;
        std::string text;  // empty: no box
        char **environment = nullptr;  // the application's, merged in
    } cases[] = {
        {"sh -c 'echo x$_XWK_PARENT_WINDOW; exit 127'",
         "Can't execute `" + sh + "':\nx" + window + "|"},
        {"sh -c 'echo $XWK_TEST:$_XWK_PARENT_WINDOW; exit 127'",
         "Can't execute `" + sh + "':\nmerged:" + window + "|", environment},
        {"sh -c 'exit 127'", "Can't execute `" + sh + "'.|"},
        // Only the last chunk of the output is reported.
        {"sh -c 'yes | head -c 20000; sleep 0.2; echo tail; exit 127'",
         "Can't execute `" + sh + "':\ntail|"},
        {"/nonexistent/program",
         "Can't execute `/nonexistent/program':\nNo such file or directory|"},
        {"sh -c 'exit 13'", "Can't execute `" + sh + "':\nPermission denied|"},
        {"sh -c 'exit 5'", "`" + sh + "' exited:\nInput/output error|"},
        {"sh -c 'kill -TERM $$'", "`" + sh + "' terminated:\nTerminated|"},
        {"sh -c 'echo all is well'", ""},
    };
    for (const Case &c : cases) {
        Started run;
        xwkEnviron = c.environment;
        run_command(button, c.command, &run, !c.text.empty());
        xwkEnviron = nullptr;
        EXPECT_EQ(run.done_widget, button) << c.command;
        EXPECT_EQ(run.done_path, c.command[0] == '/' ? "/nonexistent/program" : sh);
        EXPECT_EQ(run.text, c.text) << c.command;
        if (!c.text.empty()) {
            EXPECT_EQ(run.title, "Error") << c.command;
        }
    }
}

TEST(RunProcess, AWidgetDestroyedMeanwhileGetsNoBox)
{
    Widget button = make_button("gone");
    Widget done_widget = button;
    XwkRunDoneRec done = {[](Widget w, XtPointer data, const char *) { *(Widget *)data = w; },
                          &done_widget};
    int pid = XwkRunProcessDefaultProc(button, "sh -c 'sleep 0.2; exit 5'", &done);
    ASSERT_GT(pid, 0);
    XtDestroyWidget(button);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return reaped(pid); }, 5000));
    EXPECT_EQ(done_widget, nullptr) << "the done procedure is told the widget went";
    EXPECT_EQ(xwkConditWidget, nullptr);
}

int replacement_calls;

// The application shows busy before the program is started.
bool busy_at_start;

int replacement(Widget w, const char *command)
{
    replacement_calls++;
    Display *dpy = XtDisplay(w);
    busy_at_start = XGetSelectionOwner(dpy, XInternAtom(dpy, "_XWK_BUSY", False)) ==
                    XtWindow(XwkGetWMShell(w));
    return strcmp(command, "tool") == 0 ? 4242 : -1;
}

TEST(RunProcess, TheRunCommandCanBeReplaced)
{
    Widget button = make_button("replaced");
    EXPECT_EQ(XwkSetRunCommand(replacement), 0);
    EXPECT_EQ(XwkRunProcess(button, "tool"), 4242);
    EXPECT_EQ(replacement_calls, 1);
    EXPECT_TRUE(busy_at_start);
    XwkSetRunCommand(nullptr);
    int pid = XwkRunProcess(button, "sh -c 'exit 0'");
    ASSERT_GT(pid, 0);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return reaped(pid); }, 5000));
    EXPECT_EQ(replacement_calls, 1);
}

TEST(FindExecPath, NamesPathsAndTheRememberedDirectory)
{
    xwktest::TempDir tmp;
    std::string dir = tmp.Path();
    auto make = [&](const char *name, mode_t mode) {
        std::string path = dir + "/" + name;
        close(open(path.c_str(), O_CREAT | O_WRONLY, 0600));
        chmod(path.c_str(), mode);
        return path;
    };
    std::string tool = make("tool", 0755), hidden = make("hidden", 0750);
    std::string in_dir = "PATH=/nonexistent:" + dir, elsewhere = "PATH=/nonexistent";
    char *path_dir[] = {(char *)"HOME=/", in_dir.data(), nullptr};
    char *path_elsewhere[] = {elsewhere.data(), nullptr};
    char *no_path[] = {(char *)"HOME=/", nullptr};
    struct Case {
        const char *name;
        char **env;
        const char *expected;  // nullptr: not found
    } cases[] = {
        {"./local -x", nullptr, "./local -x"},
        {"/bin/true --help", nullptr, "/bin/true --help"},
        {"missing-program-xwk", path_dir, nullptr},
        {"tool\t-x", path_dir, tool.c_str()},
        // Found once in dir: the next search starts there, whatever PATH says.
        {"tool", path_elsewhere, tool.c_str()},
        {"tool", no_path, tool.c_str()},
        // The remembered directory wants the execute bit for others.
        {"hidden", path_dir, hidden.c_str()},
        {"hidden", path_elsewhere, nullptr},
        {"missing-program-xwk", no_path, nullptr},
    };
    for (const Case &c : cases) {
        char *found = XwkFindExecPath(c.name, c.env);
        EXPECT_STREQ(found, c.expected) << c.name;
        free(found);
    }
}

// Reads the master until the output holds text or two seconds pass.
bool read_until(int fd, std::string *out, const char *text)
{
    for (int waited = 0; out->find(text) == std::string::npos; waited += 20) {
        if (waited > 2000)
            return false;
        struct pollfd p = {fd, POLLIN, 0};
        if (poll(&p, 1, 20) <= 0)
            continue;
        char buffer[512];
        ssize_t n = read(fd, buffer, sizeof buffer);
        if (n > 0)
            out->append(buffer, (size_t)n);
    }
    return true;
}

TEST(Pty, AChildTalksThroughThePseudoTerminal)
{
    std::vector<std::string> reports;
    char *slave = nullptr;
    int master = XwkPtyOpen(
        &slave,
        [](XtPointer data, const char *format, const char *) {
            ((std::vector<std::string> *)data)->push_back(format);
        },
        &reports);
    ASSERT_GT(master, 0);
    EXPECT_TRUE(reports.empty());
    ASSERT_NE(slave, nullptr);
    EXPECT_EQ(std::string(slave).rfind("/dev/pts/", 0), 0u) << slave;
    XwkPtyParentInit(master);
    EXPECT_TRUE(fcntl(master, F_GETFL) & O_NONBLOCK);

    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        setsid();
        int fd = open(slave, O_RDWR);
        if (fd < 0)
            _exit(3);
        XwkPtyChildInit(fd);
        for (int i = 0; i < 3; i++)
            dup2(fd, i);
        execlp("sh", "sh", "-c",
               "stty -a; printf 'TERM=%s\\n' \"$TERM\"; read line; echo \"got:$line\"", (char *)0);
        _exit(127);
    }
    std::string out;
    EXPECT_TRUE(read_until(master, &out, "TERM=dumb\r\n")) << out;
    for (const char *setting : {"intr = ^C", "quit = ^\\", "erase = ^?", "kill = ^U", "eof = ^D",
                                " icanon", " echo ", " icrnl", " onlcr"})
        EXPECT_NE(out.find(setting), std::string::npos) << setting;
    ASSERT_EQ(write(master, "hello\n", 6), 6);
    EXPECT_TRUE(read_until(master, &out, "got:hello\r\n")) << out;
    EXPECT_NE(out.find("hello\r\n"), std::string::npos) << "the line is echoed";
    int status = 0;
    EXPECT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    close(master);
}

}  // namespace
