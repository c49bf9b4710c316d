// The file selection desk showing a directory of 100,000 files in the
// detail representation (scan, stat, format, fill, sort, first paint),
// beside GNU `ls -l` of the same directory and a warm second show, in one
// run; and the switch to another representation, which reads nothing.
// On a private Xvfb.
#include <benchmark/benchmark.h>

#include <Xwk/Xwk.h>
#include <Xwk/FileSDP.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "xvfb.h"

namespace {

constexpr int kFiles = 100000;
std::string directory;
std::map<std::string, double> results;
XtAppContext app;
Widget top;

double Now()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void MakeDirectory()
{
    char tmpl[] = "/tmp/xwkfsdwbenchXXXXXX";
    if (!mkdtemp(tmpl))
        std::abort();
    directory = tmpl;
    for (int i = 0; i < kFiles; i++) {
        char name[64];
        std::snprintf(name, sizeof name, "%s/%s_%06d.%s", tmpl, i % 3 ? "report" : "src", i,
                      i % 2 ? "c" : "txt");
        int fd = open(name, O_CREAT | O_WRONLY, 0644);
        if (fd < 0)
            std::abort();
        close(fd);
    }
    std::atexit([] {
        std::string cmd = "rm -rf '" + directory + "'";
        if (std::system(cmd.c_str()) != 0)
            std::fprintf(stderr, "filedeskwidget_bench: could not remove %s\n", directory.c_str());
    });
}

void Drain()
{
    XSync(XtDisplay(top), False);
    while (XtAppPending(app))
        XtAppProcessEvent(app, XtIMAll);
}

// A desk on the directory in the detail representation, shown: the time
// until its first paint is on the server.
double ShowDesk(Widget *shell_out, Widget *desk_out)
{
    double start = Now();
    Widget shell = XtVaAppCreateShell("bench", "Bench", topLevelShellWidgetClass, XtDisplay(top),
                                      XmNwidth, 900, XmNheight, 600, nullptr);
    Widget desk = XtVaCreateManagedWidget("desk", xmFileSelectionDeskWidgetClass, shell,
                                          XmNdirectory, directory.c_str(), XmNrepresentation,
                                          XmREPRESENTATION_DETAIL, XmNrepeatDelay, 1, nullptr);
    XtRealizeWidget(shell);
    while (((XmFileSelectionDeskWidget)desk)->fsd.item_count < kFiles) {
        XtAppProcessEvent(app, XtIMAll);
    }
    Drain();
    *shell_out = shell;
    *desk_out = desk;
    return Now() - start;
}

void BM_ShowDetail(benchmark::State &state)
{
    for (auto _ : state) {
        Widget shell, desk;
        double seconds = ShowDesk(&shell, &desk);
        state.SetIterationTime(seconds);
        results[results.count("first") ? "second" : "first"] = seconds;
        double start = Now();
        XtVaSetValues(desk, XmNrepresentation, XmREPRESENTATION_SMALL_ICONS, nullptr);
        Drain();
        results["switch"] = Now() - start;
        XtDestroyWidget(shell);
        Drain();
    }
}

void BM_LsL(benchmark::State &state)
{
    for (auto _ : state) {
        double start = Now();
        pid_t pid = fork();
        if (pid == 0) {
            int null = open("/dev/null", O_WRONLY);
            dup2(null, 1);
            execlp("ls", "ls", "-l", directory.c_str(), (char *)nullptr);
            _exit(127);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            state.SkipWithError("ls -l failed");
        double seconds = Now() - start;
        state.SetIterationTime(seconds);
        results["ls"] = seconds;
    }
}

BENCHMARK(BM_ShowDetail)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LsL)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

void Row(const char *what, double ours, double peer, const char *peer_name, double target)
{
    std::printf("%-46s %10.1f ms %10.1f ms (%s)   ratio %.3f", what, ours * 1e3, peer * 1e3,
                peer_name, peer > 0 ? ours / peer : 0.0);
    if (target > 0)
        std::printf("   target at most %.1f", target);
    std::printf("\n");
}

}  // namespace

int main(int argc, char **argv)
{
    XwkXvfb server;
    if (!getenv("XWK_BENCH_DISPLAY") && xwk_xvfb_start(&server, 0) != 0) {
        std::fprintf(stderr, "filedeskwidget_bench: no Xvfb\n");
        return 1;
    }
    top = XtVaAppInitialize(&app, "FsdBench", nullptr, 0, &argc, argv, nullptr, NULL);
    XwkInitialize(app, top);
    MakeDirectory();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("\n%d files, detail representation\n", kFiles);
    Row("show (scan, format, fill, sort, first paint)", results["first"], results["ls"], "ls -l", 2.0);
    Row("warm second show", results["second"], results["ls"], "ls -l", 2.0);
    Row("switch to small icons, no read", results["switch"], results["first"], "first show", 0.2);
    benchmark::Shutdown();
    if (!getenv("XWK_BENCH_DISPLAY"))
        xwk_xvfb_stop(&server);
    return 0;
}
