// Programs started from the event loop: the search path, the child's set-up,
// its output read by an input handler and its status turned into a message.
#include <Xwk/Desk.h>
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>
#include <Xwk/Process.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>
#include <Xwk/Windows.h>

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <string_view>

XwkRunProgramProc xwkRunProgramProc;

namespace {

const size_t kChunk = 8191;

bool is_explicit_path(const char *name)
{
    return name[0] == '.' || name[0] == '/';
}

// A regular file with the execute bit for others: the test of the
// remembered directory, stricter than the walk's access().
bool is_executable_for_others(const std::string &path)
{
    struct stat st;
    return stat(path.c_str(), &st) == 0 && (st.st_mode & 0xF001) == 0x8001;
}

const char *search_path(char **environment)
{
    if (!environment)
        return getenv("PATH");
    for (char **e = environment; *e; e++)
        if (strncmp(*e, "PATH=", 5) == 0)
            return *e + 5;
    return nullptr;
}

std::string last_directory;

}  // namespace

char *XwkFindExecPath(const char *name, char **environment)
{
    if (!name)
        return nullptr;
    if (is_explicit_path(name))
        return strdup(name);
    std::string_view program(name, strcspn(name, " \t"));
    if (!last_directory.empty()) {
        std::string candidate = last_directory + "/" + std::string(program);
        if (is_executable_for_others(candidate))
            return strdup(candidate.c_str());
    }
    const char *path = search_path(environment);
    if (!path)
        return nullptr;
    for (std::string_view rest = path;;) {
        size_t colon = rest.find(':');
        std::string dir(rest.substr(0, colon));
        if (dir.empty())
            dir = ".";
        std::string candidate = dir + "/" + std::string(program);
        if (access(candidate.c_str(), X_OK) == 0) {
            last_directory = dir;
            return strdup(candidate.c_str());
        }
        if (colon == std::string_view::npos)
            return nullptr;
        rest.remove_prefix(colon + 1);
    }
}

namespace {

struct RunRecord {
    int pid;
    char *path;
    Widget widget;
    XtInputId input;
    int fd;
    char *output;
    XwkRunDoneProc done_proc;
    XtPointer done_data;
};

void forget_widget(Widget, XtPointer client_data, XtPointer)
{
    ((RunRecord *)client_data)->widget = nullptr;
}

// Never returns: the child either becomes the program or exits with errno.
[[noreturn]] void run_child(int fd, char **args, const char *program, Window window)
{
    // The child's end may be below 3 when the parent ran with standard
    // descriptors closed; dup2 keeps it then.
    for (int i = 0; i < 3; i++)
        if (fd != i)
            dup2(fd, i);
    if (syscall(SYS_close_range, 3u, ~0u, 0) != 0) {
        long last = sysconf(_SC_OPEN_MAX);
        for (int i = 3; i < last; i++)
            close(i);
    }
    setpgid(0, 0);
    static char parent_window[64];
    snprintf(parent_window, sizeof parent_window, "%s=%lu", "_XWK_PARENT_WINDOW",
             (unsigned long)window);
    putenv(parent_window);
    if (xwkEnviron) {
        char *add[] = {parent_window, nullptr};
        execve(program, args, XwkMergeStrings(xwkEnviron, add, '='));
    } else {
        execvp(program, args);
    }
    int error = errno;
    fprintf(stderr, smi18n_gettext("Error: Can't run process `%s': %s"), program, strerror(error));
    fputc('\n', stderr);
    _exit(error);
}

std::string format_text(const char *format, const char *path, const char *detail)
{
    const char *translated = smi18n_gettext(format);
    int n = snprintf(nullptr, 0, translated, path, detail);
    if (n < 0)
        return "";
    std::string text((size_t)n, '\0');
    snprintf(text.data(), text.size() + 1, translated, path, detail);
    return text;
}

// The message of a wait status; empty for a normal exit with code 0.
std::string status_text(int status, const char *path, const char *output)
{
    if (WIFSIGNALED(status))
        return format_text("^b`%s'^b terminated:\n%s", path, strsignal(WTERMSIG(status)));
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 0)
        return "";
    int code = WEXITSTATUS(status);
    if (code == 127) {
        std::string out = output ? output : "";
        if (!out.empty() && out.back() == '\n')
            out.pop_back();
        std::string text = format_text("Can't execute ^b`%s'^b", path, "");
        return text + (out.empty() ? "." : ":\n" + out);
    }
    if (code == ENOENT || code == EACCES)
        return format_text("Can't execute ^b`%s'^b:\n%s", path, strerror(code));
    return format_text("^b`%s'^b exited:\n%s", path, strerror(code));
}

void finish_child(RunRecord *r)
{
    close(r->fd);
    XtRemoveInput(r->input);
    int status = 0;
    while (waitpid(r->pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (r->done_proc)
        r->done_proc(r->widget, r->done_data, r->path);
    if (r->widget && !r->widget->core.being_destroyed) {
        std::string text = status_text(status, r->path, r->output);
        if (!text.empty())
            XwkShowStdDialog(r->widget, "Error", text.c_str(), XWK_DIALOG_ERROR);
    }
    // The box waits in a loop of its own, in which the widget may go.
    if (r->widget)
        XtRemoveCallback(r->widget, XtNdestroyCallback, forget_widget, r);
    XtFree(r->output);
    free(r->path);
    XtFree((char *)r);
}

void read_child_output(XtPointer client_data, int *, XtInputId *)
{
    RunRecord *r = (RunRecord *)client_data;
    char buffer[kChunk];
    ssize_t n = read(r->fd, buffer, sizeof buffer);
    if (n < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (n <= 0) {
        finish_child(r);
        return;
    }
    XtFree(r->output);
    r->output = XtMalloc((Cardinal)n + 1);
    memcpy(r->output, buffer, (size_t)n);
    r->output[n] = '\0';
}

XtAppContext context_of(Widget widget)
{
    return widget ? XtWidgetToApplicationContext(widget) : xwkApp;
}

}  // namespace

int XwkRunProcessDefaultProc(Widget widget, const char *command, XwkRunDoneRec *done)
{
    XtAppContext app = context_of(widget);
    if (!app)
        return -1;
    int fds[2];
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, fds) != 0)
        return -1;
    char **args = XwkCreateArgList(command);
    if (!args || !args[0]) {
        XwkDestroyArgList(args);
        close(fds[0]);
        close(fds[1]);
        return -1;
    }
    if (!is_explicit_path(args[0])) {
        if (char *found = XwkFindExecPath(args[0], xwkEnviron)) {
            free(args[0]);
            args[0] = found;
        }
    }
    // Later children must not hold this end: it would keep a finished
    // child's socket open.
    fcntl(fds[0], F_SETFD, FD_CLOEXEC);
    Window window = widget ? XtWindowOfObject(widget) : None;
    fflush(nullptr);
    pid_t pid = fork();
    if (pid < 0) {
        XwkDestroyArgList(args);
        close(fds[0]);
        close(fds[1]);
        return -1;
    }
    if (pid == 0)
        run_child(fds[1], args, args[0], window);
    close(fds[1]);
    RunRecord *r = (RunRecord *)XtCalloc(1, sizeof *r);
    r->pid = pid;
    r->path = strdup(args[0]);
    r->widget = widget;
    r->fd = fds[0];
    if (done) {
        r->done_proc = done->proc;
        r->done_data = done->data;
    }
    if (widget)
        XtAddCallback(widget, XtNdestroyCallback, forget_widget, r);
    r->input = XtAppAddInput(app, r->fd, (XtPointer)XtInputReadMask, read_child_output, r);
    XwkDestroyArgList(args);
    return pid;
}

int XwkSetRunCommand(XwkRunProgramProc proc)
{
    xwkRunProgramProc = proc;
    return 0;
}

int XwkRunProcess(Widget widget, const char *command)
{
    XwkSetBusyStatus(widget, True);
    if (xwkRunProgramProc)
        return xwkRunProgramProc(widget, command);
    return XwkRunProcessDefaultProc(widget, command, nullptr);
}
