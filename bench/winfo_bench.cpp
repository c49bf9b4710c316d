// Stress of the windows info property: 20 processes at once, each 500
// publish, retitle and remove operations on one session's property.  It
// checks that every record that should remain is there once and intact,
// and prints the time per operation beside the Xlib floor: the same number
// of bare XChangeProperty appends with a round trip each, no lock, no read.
//
//   winfo_bench [processes [operations]]
#include <Xwk/Xwk.h>
#include <X11/Shell.h>
#include <X11/Xatom.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "xvfb.h"

namespace {

constexpr int kKey = 4711;

double Now()
{
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec + ts.tv_nsec * 1e-9;
}

Widget OpenShell(XtAppContext *app)
{
    int argc = 0;
    *app = XtCreateApplicationContext();
    Display *dpy = XtOpenDisplay(*app, nullptr, "winfo_bench", "WinfoBench", nullptr, 0, &argc,
                                 nullptr);
    if (!dpy)
        return nullptr;
    return XtAppCreateShell("winfo_bench", "WinfoBench", applicationShellWidgetClass, dpy,
                            nullptr, 0);
}

// Window ids are invented: the property does not look at them.
unsigned long WindowOf(int process, int i)
{
    return ((unsigned long)(process + 1) << 16) | (unsigned long)i;
}

std::string Title(int process, int i, bool retitled)
{
    return "p" + std::to_string(process) + "-" + std::to_string(i) + (retitled ? "*" : "");
}

// The operations of one process: window i is published and retitled, and
// removed again when i is odd, until ops operations are done.
void RunOperations(Widget shell, int process, int ops, bool floor)
{
    Display *dpy = XtDisplay(shell);
    Atom atom = XwkGetWindowsInfoAtom(shell, floor ? kKey + 1 : kKey);
    int done = 0;
    for (int i = 0; done < ops; i++) {
        for (int step = 0; step < 3 && done < ops; step++) {
            if (step == 2 && i % 2 == 0)
                continue;
            done++;
            if (floor) {
                std::string rec = Title(process, i, step > 0) + "|00000000,00000000,00000000;";
                XChangeProperty(dpy, DefaultRootWindow(dpy), atom, XA_STRING, 8, PropModeAppend,
                                (const unsigned char *)rec.c_str(), (int)rec.size());
                XSync(dpy, False);
            } else if (step < 2) {
                XwkAddWindowProperty(shell, kKey, Title(process, i, step > 0).c_str(),
                                     WindowOf(process, i), 0);
            } else {
                XwkDeleteWindowProperty(shell, kKey, WindowOf(process, i));
            }
        }
    }
}

// What must remain of one process's operations.
void Expect(int process, int ops, std::map<unsigned long, std::string> *out)
{
    int done = 0;
    for (int i = 0; done < ops; i++) {
        done += 1;
        if (done >= ops) {  // published, never retitled
            (*out)[WindowOf(process, i)] = Title(process, i, false);
            break;
        }
        done += 1;
        (*out)[WindowOf(process, i)] = Title(process, i, true);
        if (i % 2 && done < ops) {
            done += 1;
            out->erase(WindowOf(process, i));
        }
    }
}

// Runs n processes of ops operations at once; returns the wall time.
double RunProcesses(int n, int ops, bool floor, std::vector<pid_t> *pids)
{
    int gate[2];
    if (pipe(gate) != 0)
        return -1;
    for (int p = 0; p < n; p++) {
        pid_t pid = fork();
        if (pid == 0) {
            close(gate[1]);
            XtAppContext app;
            Widget shell = OpenShell(&app);
            char c;
            (void)!read(gate[0], &c, 1);  // all start together
            if (shell)
                RunOperations(shell, p, ops, floor);
            _exit(shell ? 0 : 1);
        }
        pids->push_back(pid);
    }
    close(gate[0]);
    usleep(300000);  // let every process connect
    double start = Now();
    close(gate[1]);
    int failed = 0;
    for (pid_t pid : *pids) {
        int status = 0;
        waitpid(pid, &status, 0);
        failed += !(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    double wall = Now() - start;
    if (failed)
        fprintf(stderr, "winfo_bench: %d processes failed\n", failed);
    return wall;
}

int Check(Widget shell, int n, int ops, const std::vector<pid_t> &pids)
{
    std::map<unsigned long, std::string> expected;
    for (int p = 0; p < n; p++)
        Expect(p, ops, &expected);
    Display *dpy = XtDisplay(shell);
    Atom type;
    int format;
    unsigned long items, after;
    unsigned char *data = nullptr;
    XGetWindowProperty(dpy, DefaultRootWindow(dpy), XwkGetWindowsInfoAtom(shell, kKey), 0,
                       100000, False, XA_STRING, &type, &format, &items, &after, &data);
    if (!data) {
        printf("no property\n");
        return 1;
    }
    WindowsInfoRecord *r = nullptr;
    int count = ParsePropertyString(shell, (char *)data, &r);
    int missing = 0, duplicated = 0, corrupt = 0, extra = 0;
    std::map<unsigned long, int> seen;
    for (int i = 0; i < count; i++) {
        if (!r[i].title) {
            corrupt++;
            continue;
        }
        auto it = expected.find(r[i].window);
        int process = (int)(r[i].window >> 16) - 1;
        if (it == expected.end())
            extra++;
        else if (it->second != r[i].title || r[i].parent != 0 || process < 0 || process >= n ||
                 r[i].pid != pids[process])
            corrupt++;
        if (++seen[r[i].window] == 2)
            duplicated++;
        XtFree(r[i].title);
    }
    for (auto &e : expected)
        missing += !seen.count(e.first);
    XtFree((char *)r);
    printf("records: expected %zu, header %d, stored length %s; missing %d, duplicated %d, "
           "corrupt %d, unexpected %d\n",
           expected.size(), count, strlen((char *)data) + 1 == items ? "exact" : "WRONG", missing,
           duplicated, corrupt, extra);
    XFree(data);
    return missing || duplicated || corrupt || extra || count != (int)expected.size();
}

}  // namespace

int main(int argc, char **argv)
{
    int n = argc > 1 ? atoi(argv[1]) : 20;
    int ops = argc > 2 ? atoi(argv[2]) : 500;
    XwkXvfb server;
    bool own_server = !getenv("XWK_BENCH_DISPLAY");
    if (own_server && xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "winfo_bench: no Xvfb\n");
        return 1;
    }
    XtToolkitInitialize();
    XtAppContext app;
    Widget shell = OpenShell(&app);
    if (!shell)
        return 1;
    XwkDestroyWindowProperty(shell, kKey);
    XDeleteProperty(XtDisplay(shell), DefaultRootWindow(XtDisplay(shell)),
                    XwkGetWindowsInfoAtom(shell, kKey + 1));

    std::vector<pid_t> pids, floor_pids;
    double ours = RunProcesses(n, ops, false, &pids);
    double peer = RunProcesses(n, ops, true, &floor_pids);
    int bad = Check(shell, n, ops, pids);
    double total = (double)n * ops;
    printf("%d processes x %d operations on one property\n", n, ops);
    printf("%-44s %12s %12s\n", "", "Xwk", "Xlib floor");
    printf("%-44s %12.3f %12.3f ms   ratio %.3f\n", "wall time", ours * 1e3, peer * 1e3,
           ours / peer);
    printf("%-44s %12.1f %12.1f us   ratio %.3f\n", "per operation (wall / all operations)",
           ours / total * 1e6, peer / total * 1e6, ours / peer);
    printf("%s\n", bad ? "FAILED: the table is not what the operations left" : "table intact");
    if (own_server)
        xwk_xvfb_stop(&server);
    return bad;
}
