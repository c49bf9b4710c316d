// The containers against GLib doing the same work: a million tree links
// under one parent, a million list appends, a hash table of 8,000 entries.
// Each benchmark reports "ns/op"; a summary after the run sets our figure
// beside GLib's with the ratio (ours / GLib's, below 1 is faster).
#include <benchmark/benchmark.h>

#include <Xwk/Lists.h>

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#ifdef XWK_HAVE_GLIB
#include <glib.h>
#endif

namespace {

constexpr int kMillion = 1000000;
constexpr int kHashEntries = 8000;

XtPointer W(intptr_t v)
{
    return reinterpret_cast<XtPointer>(v);
}

benchmark::Counter PerOp(double ops)
{
    return benchmark::Counter(ops, benchmark::Counter::kIsIterationInvariantRate |
                                       benchmark::Counter::kInvert);
}

// ---------------------------------------------------------------------
// Trees

void BM_Xwk_TreeLink(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
        XwkTreeNode *root = t_tlink(tree, nullptr, nullptr);
        state.ResumeTiming();
        for (int i = 0; i < kMillion; i++)
            benchmark::DoNotOptimize(t_tlink(tree, root, W(i)));
        state.PauseTiming();
        t_destroy(tree);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kMillion);
}

// The first search after the links renumbers the whole tree once.
void BM_Xwk_TreeFindLastAfterLinks(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
        XwkTreeNode *root = t_tlink(tree, nullptr, nullptr);
        for (int i = 0; i < kMillion; i++)
            t_tlink(tree, root, W(i));
        state.ResumeTiming();
        XwkTreeNode *last = t_find(tree, kMillion);
        state.PauseTiming();
        if (!last || last->data != W(kMillion - 1))
            state.SkipWithError("t_find missed the last node");
        t_destroy(tree);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(1);
}

// Links into a freshly numbered tree, each followed by a search: the
// pattern of a view that appends rows and looks one up at once.
void BM_Xwk_TreeLinkFindInterleaved(benchmark::State &state)
{
    const int n = 100000;
    for (auto _ : state) {
        state.PauseTiming();
        XwkTree *tree = t_create(XWK_TREE_PREORDER, nullptr, nullptr);
        XwkTreeNode *root = t_tlink(tree, nullptr, nullptr);
        t_enumerate(tree);
        state.ResumeTiming();
        for (int i = 0; i < n; i++) {
            t_tlink(tree, root, W(i));
            benchmark::DoNotOptimize(t_find(tree, i + 1));
        }
        state.PauseTiming();
        t_destroy(tree);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(n);
}

#ifdef XWK_HAVE_GLIB
void BM_GLib_TreeLink(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        GNode *root = g_node_new(nullptr);
        GNode *last = nullptr;
        state.ResumeTiming();
        // g_node_append walks the children; inserting after the known last
        // child is GLib's constant-time way to add a last child.
        for (int i = 0; i < kMillion; i++)
            last = g_node_insert_data_after(root, last, W(i));
        benchmark::DoNotOptimize(last);
        state.PauseTiming();
        g_node_destroy(root);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kMillion);
}
#endif

// ---------------------------------------------------------------------
// Lists

void BM_Xwk_ListAppend(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        XwkList *list = l_create(nullptr, nullptr);
        state.ResumeTiming();
        for (int i = 0; i < kMillion; i++)
            benchmark::DoNotOptimize(l_append(list, W(i)));
        state.PauseTiming();
        l_destroy(list);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kMillion);
}

void BM_Xwk_ListFindMiddle(benchmark::State &state)
{
    XwkList *list = l_create(nullptr, nullptr);
    for (int i = 0; i < kMillion; i++)
        l_append(list, W(i));
    for (auto _ : state) {
        XwkListNode *node = l_find(list, kMillion / 2);
        benchmark::DoNotOptimize(node);
    }
    if (l_find(list, kMillion / 2)->data != W(kMillion / 2))
        state.SkipWithError("l_find missed the middle");
    l_destroy(list);
    state.counters["ns/op"] = PerOp(1);
}

#ifdef XWK_HAVE_GLIB
void BM_GLib_ListAppend(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        GQueue *queue = g_queue_new();
        state.ResumeTiming();
        for (int i = 0; i < kMillion; i++)
            g_queue_push_tail(queue, W(i));
        benchmark::DoNotOptimize(queue->tail);
        state.PauseTiming();
        g_queue_free(queue);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kMillion);
}

void BM_GLib_ListFindMiddle(benchmark::State &state)
{
    GQueue *queue = g_queue_new();
    for (int i = 0; i < kMillion; i++)
        g_queue_push_tail(queue, W(i));
    for (auto _ : state)
        benchmark::DoNotOptimize(g_queue_peek_nth(queue, kMillion / 2));
    g_queue_free(queue);
    state.counters["ns/op"] = PerOp(1);
}
#endif

// ---------------------------------------------------------------------
// Hash tables: pointer-like keys, identity hash and equality on both sides.

XtPointer Key(int i)
{
    return W((static_cast<intptr_t>(i) + 1) * 16);
}

void BM_Xwk_HashAdd(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        XwkHashTable *table = XwkAllocHashTable(kHashEntries, nullptr, nullptr);
        state.ResumeTiming();
        for (int i = 0; i < kHashEntries; i++)
            XwkAddHashEntry(table, Key(i), W(i + 1));
        state.PauseTiming();
        XwkFreeHashTable(table);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kHashEntries);
}

void BM_Xwk_HashLookup(benchmark::State &state)
{
    XwkHashTable *table = XwkAllocHashTable(kHashEntries, nullptr, nullptr);
    for (int i = 0; i < kHashEntries; i++)
        XwkAddHashEntry(table, Key(i), W(i + 1));
    for (auto _ : state) {
        for (int i = 0; i < kHashEntries; i++)
            benchmark::DoNotOptimize(XwkGetHashEntryIterate(table, Key(i), nullptr));
    }
    XwkFreeHashTable(table);
    state.counters["ns/op"] = PerOp(kHashEntries);
}

#ifdef XWK_HAVE_GLIB
void BM_GLib_HashAdd(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        GHashTable *table = g_hash_table_new(g_direct_hash, g_direct_equal);
        state.ResumeTiming();
        for (int i = 0; i < kHashEntries; i++)
            g_hash_table_insert(table, Key(i), W(i + 1));
        state.PauseTiming();
        g_hash_table_destroy(table);
        state.ResumeTiming();
    }
    state.counters["ns/op"] = PerOp(kHashEntries);
}

void BM_GLib_HashLookup(benchmark::State &state)
{
    GHashTable *table = g_hash_table_new(g_direct_hash, g_direct_equal);
    for (int i = 0; i < kHashEntries; i++)
        g_hash_table_insert(table, Key(i), W(i + 1));
    for (auto _ : state) {
        for (int i = 0; i < kHashEntries; i++)
            benchmark::DoNotOptimize(g_hash_table_lookup(table, Key(i)));
    }
    g_hash_table_destroy(table);
    state.counters["ns/op"] = PerOp(kHashEntries);
}
#endif

BENCHMARK(BM_Xwk_TreeLink)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Xwk_TreeFindLastAfterLinks)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Xwk_TreeLinkFindInterleaved)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Xwk_ListAppend)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Xwk_ListFindMiddle)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Xwk_HashAdd)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Xwk_HashLookup)->Unit(benchmark::kMicrosecond);
#ifdef XWK_HAVE_GLIB
BENCHMARK(BM_GLib_TreeLink)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GLib_ListAppend)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GLib_ListFindMiddle)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GLib_HashAdd)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GLib_HashLookup)->Unit(benchmark::kMicrosecond);
#endif

// Keeps the ns/op figure of every run for the summary.
class SummaryReporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> nsPerOp;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            auto it = run.counters.find("ns/op");
            if (!run.error_occurred && it != run.counters.end())
                nsPerOp[run.benchmark_name()] = it->second.value * 1e9;
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

void PrintSummary(const std::map<std::string, double> &ns)
{
    const char *ops[] = {"TreeLink", "ListAppend", "ListFindMiddle", "HashAdd", "HashLookup",
                         "TreeFindLastAfterLinks", "TreeLinkFindInterleaved"};
    printf("\n%-26s %14s %14s %8s\n", "operation", "Xwk ns/op", "GLib ns/op", "ratio");
    for (const char *op : ops) {
        auto ours = ns.find(std::string("BM_Xwk_") + op);
        auto peer = ns.find(std::string("BM_GLib_") + op);
        if (ours == ns.end())
            continue;
        if (peer == ns.end()) {
            printf("%-26s %14.2f %14s %8s\n", op, ours->second, "-", "-");
            continue;
        }
        printf("%-26s %14.2f %14.2f %8.2f\n", op, ours->second, peer->second,
               ours->second / peer->second);
    }
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintSummary(reporter.nsPerOp);
    return 0;
}
