// The tree list beside Motif's XmList, on a private Xvfb.
//
//   flat   1,000,000 rows by XmPrjTreeAddSimpleItem in a dontMove batch,
//          XmPrjTreeResizeWindow and the first complete paint; XmList gets
//          the same labels as compound strings by XmListAddItemsUnselected
//          and paints once.  Both start from the same C strings, so making
//          the compound strings is part of XmList's figure; a second XmList
//          figure leaves them out.
//   tree   1,000 top-level rows with 1,000 children each, canSlam, all
//          open, measured the same way against XmList's flat figure.
//   keys   one page-down, and one jump to the end, at 1,000 and at
//          1,000,000 rows, each until the server has drawn.
//   memory heap in use at the peak of each fill, measured in a fresh
//          process per widget.
//
// The summary at the end prints each figure, the peer's and the ratio.
#include <benchmark/benchmark.h>

#include <Xwk/Xwk.h>
#include <Xm/List.h>
#include <Xm/ScrolledW.h>
#include <X11/Shell.h>

#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "xvfb.h"

namespace {

XtAppContext app;
Widget top;
std::vector<std::string> labels;
std::vector<const char *> label_ptrs;
std::map<std::string, double> results;

void MakeLabels(int n)
{
    labels.clear();
    label_ptrs.clear();
    labels.reserve(n);
    for (int i = 0; i < n; i++) {
        char text[32];
        snprintf(text, sizeof text, "Item number %d", i);
        labels.emplace_back(text);
    }
    for (auto &l : labels)
        label_ptrs.push_back(l.c_str());
}

// Handles everything queued, then waits until the server has drawn it.
void Drain()
{
    Display *dpy = XtDisplay(top);
    for (int round = 0; round < 3; round++) {
        XSync(dpy, False);
        while (XtAppPending(app))
            XtAppProcessEvent(app, XtIMAll);
    }
    XSync(dpy, False);
}

struct Window {
    Widget shell = nullptr, widget = nullptr;
    explicit Window(bool tree, bool slam = false)
    {
        shell = XtVaCreatePopupShell("bench", topLevelShellWidgetClass, top, XmNwidth, 400,
                                     XmNheight, 500, NULL);
        if (tree) {
            Arg args[1];
            XtSetArg(args[0], XmNcanSlam, slam);
            widget = XmCreateScrolledTreeList(shell, (String) "tree", args, 1);
        } else {
            Arg args[2];
            XtSetArg(args[0], XmNselectionPolicy, XmBROWSE_SELECT);
            XtSetArg(args[1], XmNscrollBarDisplayPolicy, XmSTATIC);
            widget = XmCreateScrolledList(shell, (String) "list", args, 2);
        }
        XtManageChild(widget);
        XtPopup(shell, XtGrabNone);
        Drain();
    }
    ~Window()
    {
        XtDestroyWidget(shell);
        Drain();
    }
};

double Seconds(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void FillFlat(Widget tree, int n)
{
    XmPrjTreeSetEditable(tree, False);
    for (int i = 0; i < n; i++)
        XmPrjTreeAddSimpleItem(tree, label_ptrs[i], (XtPointer)(long)i);
    XmPrjTreeResizeWindow(tree, True);
    Drain();
}

void FillTree(Widget tree, int tops, int children)
{
    XmPrjTreeSetEditable(tree, False);
    int k = 0;
    for (int i = 0; i < tops; i++) {
        XmPrjTreeNode node = XmPrjTreeAddItem(tree, nullptr, label_ptrs[k++], nullptr, nullptr,
                                              XmSLAM_OPEN, nullptr, nullptr, nullptr);
        for (int j = 0; j < children; j++)
            XmPrjTreeAddSimpleItemToItem(tree, node, label_ptrs[k++ % labels.size()], nullptr,
                                         nullptr);
    }
    XmPrjTreeResizeWindow(tree, True);
    Drain();
}

// The same labels, made into compound strings and given to XmList.
void FillList(Widget list, int n)
{
    std::vector<XmString> table(n);
    for (int i = 0; i < n; i++)
        table[i] = XmStringCreateLocalized((char *)label_ptrs[i]);
    XmListAddItemsUnselected(list, table.data(), n, 0);
    Drain();
    for (XmString s : table)
        XmStringFree(s);
}

void BM_FlatFill_Tree(benchmark::State &state)
{
    int n = (int)state.range(0);
    for (auto _ : state) {
        Window w(true);
        auto start = std::chrono::steady_clock::now();
        FillFlat(w.widget, n);
        double t = Seconds(start);
        state.SetIterationTime(t);
        results["flat_tree_" + std::to_string(n)] = t;
    }
}

void BM_FlatFill_XmList(benchmark::State &state)
{
    int n = (int)state.range(0);
    for (auto _ : state) {
        Window w(false);
        auto start = std::chrono::steady_clock::now();
        FillList(w.widget, n);
        double t = Seconds(start);
        state.SetIterationTime(t);
        results["flat_list_" + std::to_string(n)] = t;
    }
}

// XmList again, its compound strings made before the clock starts.
void BM_FlatFill_XmListReadyStrings(benchmark::State &state)
{
    int n = (int)state.range(0);
    for (auto _ : state) {
        Window w(false);
        std::vector<XmString> table(n);
        for (int i = 0; i < n; i++)
            table[i] = XmStringCreateLocalized((char *)label_ptrs[i]);
        auto start = std::chrono::steady_clock::now();
        XmListAddItemsUnselected(w.widget, table.data(), n, 0);
        Drain();
        double t = Seconds(start);
        state.SetIterationTime(t);
        results["flat_ready_" + std::to_string(n)] = t;
        for (XmString s : table)
            XmStringFree(s);
    }
}

void BM_TreeFill_Tree(benchmark::State &state)
{
    for (auto _ : state) {
        Window w(true, true);
        auto start = std::chrono::steady_clock::now();
        FillTree(w.widget, 1000, 1000);
        double t = Seconds(start);
        state.SetIterationTime(t);
        results["tree_tree"] = t;
    }
}

void CallAction(Widget w, const char *action, const char *param)
{
    String params[1] = {(String)param};
    XEvent event;
    memset(&event, 0, sizeof event);
    event.type = KeyPress;
    event.xkey.display = XtDisplay(w);
    event.xkey.window = XtWindow(w);
    XtCallActionProc(w, action, &event, params, param ? 1 : 0);
}

// Page-down and jump-to-end, each drawn completely; the list is put back
// at its top outside the measure.
void Keys(benchmark::State &state, bool tree, const char *key, const char *name)
{
    int n = (int)state.range(0);
    Window w(tree);
    if (tree)
        FillFlat(w.widget, n);
    else
        FillList(w.widget, n);
    const char *down = tree ? "TreeKbdKey" : (!strcmp(key, "D") ? "ListNextPage" : "ListEndData");
    const char *home = tree ? "TreeKbdKey" : "ListBeginData";
    const char *down_param = tree ? key : nullptr;
    const char *home_param = tree ? "t" : nullptr;
    if (tree)
        XmPrjTreeSetNode(w.widget, XmPrjTreeGetFirstNode(w.widget));
    else
        XmListSelectPos(w.widget, 1, False);
    Drain();
    int pages = 0;
    double total = 0;
    long count = 0;
    for (auto _ : state) {
        if (pages++ >= 20) {
            CallAction(w.widget, home, home_param);
            Drain();
            pages = 0;
        }
        auto start = std::chrono::steady_clock::now();
        CallAction(w.widget, down, down_param);
        Drain();
        double t = Seconds(start);
        state.SetIterationTime(t);
        total += t;
        count++;
        if (!strcmp(key, "b")) {
            CallAction(w.widget, home, home_param);
            Drain();
        }
    }
    results[std::string(name) + (tree ? "_tree_" : "_list_") + std::to_string(n)] = total / count;
}

void BM_PageDown_Tree(benchmark::State &s) { Keys(s, true, "D", "pagedown"); }
void BM_PageDown_XmList(benchmark::State &s) { Keys(s, false, "D", "pagedown"); }
void BM_JumpEnd_Tree(benchmark::State &s) { Keys(s, true, "b", "end"); }
void BM_JumpEnd_XmList(benchmark::State &s) { Keys(s, false, "b", "end"); }

constexpr int kMillion = 1000000;

BENCHMARK(BM_FlatFill_Tree)->Arg(kMillion)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FlatFill_XmList)->Arg(kMillion)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FlatFill_XmListReadyStrings)->Arg(kMillion)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TreeFill_Tree)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PageDown_Tree)->Arg(1000)->Arg(kMillion)->Iterations(200)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PageDown_XmList)->Arg(1000)->Arg(kMillion)->Iterations(200)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_JumpEnd_Tree)->Arg(1000)->Arg(kMillion)->Iterations(50)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_JumpEnd_XmList)->Arg(1000)->Arg(kMillion)->Iterations(50)->UseManualTime()->Unit(benchmark::kMicrosecond);

size_t HeapInUse()
{
    struct mallinfo2 mi = mallinfo2();
    return mi.uordblks + mi.hblkhd;
}

void StartToolkit(int *argc, char **argv)
{
    top = XtVaAppInitialize(&app, "TreeBench", nullptr, 0, argc, argv, nullptr, NULL);
    XwkInitialize(app, top);
}

// Runs in its own process: builds one widget, fills it, and prints the
// heap in use at the fill's peak, less what was in use before.
int MeasureMemory(const char *what, int argc, char **argv)
{
    StartToolkit(&argc, argv);
    MakeLabels(kMillion);
    bool tree = strcmp(what, "list") != 0;
    Window w(tree, !strcmp(what, "tree"));
    size_t before = HeapInUse();
    size_t peak;
    if (!strcmp(what, "flat")) {
        FillFlat(w.widget, kMillion);
        peak = HeapInUse();
    } else if (!strcmp(what, "tree")) {
        FillTree(w.widget, 1000, 1000);
        peak = HeapInUse();
    } else {
        // XmList's peak: the caller's table and the list's copies at once.
        std::vector<XmString> table(kMillion);
        for (int i = 0; i < kMillion; i++)
            table[i] = XmStringCreateLocalized((char *)label_ptrs[i]);
        XmListAddItemsUnselected(w.widget, table.data(), kMillion, 0);
        Drain();
        peak = HeapInUse();
        for (XmString s : table)
            XmStringFree(s);
    }
    printf("%zu\n", peak - before);
    fflush(stdout);
    _exit(0);
}

double MemoryOf(const char *what)
{
    char command[4096];
    char self[2048];
    ssize_t len = readlink("/proc/self/exe", self, sizeof self - 1);
    if (len <= 0)
        return 0;
    self[len] = 0;
    snprintf(command, sizeof command, "'%s' --memory=%s", self, what);
    FILE *p = popen(command, "r");
    if (!p)
        return 0;
    double bytes = 0;
    if (fscanf(p, "%lf", &bytes) != 1)
        bytes = 0;
    pclose(p);
    return bytes;
}

void Row(const char *what, double ours, double peer, const char *unit, double scale)
{
    printf("%-44s %12.3f %12.3f %s   ratio %.3f\n", what, ours * scale, peer * scale, unit,
           peer > 0 ? ours / peer : 0.0);
}

}  // namespace

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; i++)
        if (!strncmp(argv[i], "--memory=", 9))
            return MeasureMemory(argv[i] + 9, argc, argv);
    XwkXvfb server;
    if (!getenv("XWK_BENCH_DISPLAY")) {
        if (xwk_xvfb_start(&server, 0) != 0) {
            fprintf(stderr, "treelist_bench: no Xvfb\n");
            return 1;
        }
    }
    StartToolkit(&argc, argv);
    MakeLabels(kMillion);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    double flat_mem = MemoryOf("flat"), tree_mem = MemoryOf("tree"), list_mem = MemoryOf("list");
    printf("\n%-44s %12s %12s\n", "XmPrjTree beside XmList", "XmPrjTree", "XmList");
    Row("flat fill + first paint, 1,000,000 rows", results["flat_tree_1000000"],
        results["flat_list_1000000"], "ms", 1e3);
    Row("  the same, XmList given ready strings", results["flat_tree_1000000"],
        results["flat_ready_1000000"], "ms", 1e3);
    Row("tree fill + first paint, 1,000 x 1,000", results["tree_tree"],
        results["flat_list_1000000"], "ms", 1e3);
    Row("page-down, 1,000 rows", results["pagedown_tree_1000"], results["pagedown_list_1000"],
        "us", 1e6);
    Row("page-down, 1,000,000 rows", results["pagedown_tree_1000000"],
        results["pagedown_list_1000000"], "us", 1e6);
    Row("jump to end, 1,000 rows", results["end_tree_1000"], results["end_list_1000"], "us", 1e6);
    Row("jump to end, 1,000,000 rows", results["end_tree_1000000"], results["end_list_1000000"],
        "us", 1e6);
    Row("memory, flat 1,000,000 rows", flat_mem, list_mem, "MB", 1e-6);
    Row("memory, tree 1,000 x 1,000", tree_mem, list_mem, "MB", 1e-6);
    printf("%-44s %12.3f (1,000,000 rows over 1,000 rows; target at most 2)\n",
           "page-down scaling, XmPrjTree",
           results["pagedown_tree_1000"] > 0
               ? results["pagedown_tree_1000000"] / results["pagedown_tree_1000"]
               : 0.0);
    benchmark::Shutdown();
    if (!getenv("XWK_BENCH_DISPLAY"))
        xwk_xvfb_stop(&server);
    return 0;
}
