// The tree list as a table of 7 columns shaped like a file list (name,
// size, date, mode, owner, group, type), beside GTK 3's GtkTreeView over a
// GtkListStore of the same 7 text columns in fixed-height mode, in one run
// on a private Xvfb.
//
//   fill   100,000 rows, a sort by the name column and one by the size
//          column (as numbers), and the first complete paint.
//   page   one page-down, at 1,000 and at 100,000 rows, until drawn.
//   resize one step of a column resize (the first column one pixel wider),
//          at 1,000 and at 100,000 rows, until drawn.
//
// Without GTK's development files the program measures the tree list alone.
// The summary at the end prints each figure, GTK's and the ratio.
#include <benchmark/benchmark.h>

#include <Xwk/Xwk.h>
#include <X11/Shell.h>

#ifdef XWK_HAVE_GTK
#include <gtk/gtk.h>
#endif

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
std::map<std::string, double> results;

constexpr int kColumns = 7;
constexpr int kRows = 100000;
constexpr int kSmall = 1000;

struct Row {
    std::string cell[kColumns];
    std::string joined;
};
std::vector<Row> rows;

void MakeRows()
{
    const char *types[] = {"C source", "C header", "text", "directory", "image", "archive"};
    const char *owners[] = {"root", "anna", "bert", "carl"};
    unsigned seed = 12345;
    auto next = [&] { return seed = seed * 1103515245u + 12345u; };
    rows.resize(kRows);
    for (int i = 0; i < kRows; i++) {
        Row &r = rows[i];
        char text[64];
        snprintf(text, sizeof text, "file%06u.%c", next() % 1000000, "chtxo"[next() % 5]);
        r.cell[0] = text;
        snprintf(text, sizeof text, "%u", next() % 10000000);
        r.cell[1] = text;
        snprintf(text, sizeof text, "2024-%02u-%02u %02u:%02u", 1 + next() % 12, 1 + next() % 28,
                 next() % 24, next() % 60);
        r.cell[2] = text;
        r.cell[3] = next() % 3 ? "-rw-r--r--" : "drwxr-xr-x";
        r.cell[4] = owners[next() % 4];
        r.cell[5] = next() % 2 ? "staff" : "users";
        r.cell[6] = types[next() % 6];
        for (int c = 0; c < kColumns; c++)
            r.joined += (c ? "|" : "") + r.cell[c];
    }
}

double Seconds(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// ---- The tree list --------------------------------------------------------

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

struct Table {
    Widget shell = nullptr, tree = nullptr;
    Table()
    {
        shell = XtVaCreatePopupShell("bench", topLevelShellWidgetClass, top, XmNwidth, 800,
                                     XmNheight, 600, NULL);
        Arg args[5];
        Cardinal n = 0;
        XtSetArg(args[n], XmNvisualMode, XmTABLE_LIST); n++;
        XtSetArg(args[n], XmNnumColumns, kColumns); n++;
        XtSetArg(args[n], XmNdelimeter, '|'); n++;
        XtSetArg(args[n], XmNtitleString, "Name|Size|Date|Mode|Owner|Group|Type"); n++;
        XtSetArg(args[n], XmNuseSort, True); n++;
        tree = XmCreateScrolledTreeList(shell, (String) "table", args, n);
        XtManageChild(tree);
        XtPopup(shell, XtGrabNone);
        Drain();
    }
    ~Table()
    {
        XtDestroyWidget(shell);
        Drain();
    }
};

// The table being sorted, as an application knows it.
Widget sorting;

int NumericSort(const void *a, const void *b)
{
    XmPrjTreeNode na = *(XmPrjTreeNode const *)a, nb = *(XmPrjTreeNode const *)b;
    Widget w = sorting;
    long x = atol(XmPrjTreeGetColumnLabel(w, na, 2)), y = atol(XmPrjTreeGetColumnLabel(w, nb, 2));
    return x < y ? -1 : x > y;
}

void FillTable(Widget tree, int n)
{
    XmPrjTreeSetEditable(tree, False);
    for (int i = 0; i < n; i++)
        XmPrjTreeAddSimpleItem(tree, rows[i].joined.c_str(), (XtPointer)(long)i);
}

void SortTable(Widget tree)
{
    XtVaSetValues(tree, XmNsortColumn, 1, XmNsortProc, XmPrjTreeDefaultSortProc, NULL);
    XmPrjTreeSortItems(tree, False);
    sorting = tree;
    XtVaSetValues(tree, XmNsortColumn, 2, XmNsortProc, NumericSort, NULL);
    XmPrjTreeSortItems(tree, False);
}

void CallKey(Widget w, const char *param)
{
    String params[1] = {(String)param};
    XEvent event;
    memset(&event, 0, sizeof event);
    event.type = KeyPress;
    event.xkey.display = XtDisplay(w);
    event.xkey.window = XtWindow(w);
    XtCallActionProc(w, "TreeKbdKey", &event, params, 1);
}

void BM_Fill_Tree(benchmark::State &state)
{
    for (auto _ : state) {
        Table t;
        auto start = std::chrono::steady_clock::now();
        FillTable(t.tree, kRows);
        SortTable(t.tree);
        XmPrjTreeResizeWindow(t.tree, True);
        Drain();
        double s = Seconds(start);
        state.SetIterationTime(s);
        results["fill_tree"] = s;
    }
}

void TreeSteps(benchmark::State &state, bool resize)
{
    int n = (int)state.range(0);
    Table t;
    FillTable(t.tree, n);
    XmPrjTreeResizeWindow(t.tree, True);
    XmPrjTreeSetNode(t.tree, XmPrjTreeGetFirstNode(t.tree));
    Drain();
    double total = 0;
    long count = 0;
    int step = 0;
    int width = XmPrjTreeGetTitleItemWidth(t.tree, 1);
    for (auto _ : state) {
        if (!resize && step++ >= 20) {
            CallKey(t.tree, "t");
            Drain();
            step = 0;
        }
        auto start = std::chrono::steady_clock::now();
        if (resize)
            XmPrjTreeSetTitleItemWidth(t.tree, 1, ++width);
        else
            CallKey(t.tree, "D");
        Drain();
        double s = Seconds(start);
        state.SetIterationTime(s);
        total += s;
        count++;
    }
    results[std::string(resize ? "resize_tree_" : "page_tree_") + std::to_string(n)] = total / count;
}

void BM_PageDown_Tree(benchmark::State &s) { TreeSteps(s, false); }
void BM_Resize_Tree(benchmark::State &s) { TreeSteps(s, true); }

#ifdef XWK_HAVE_GTK
// ---- GtkTreeView ----------------------------------------------------------

void GtkDrain()
{
    for (int round = 0; round < 3; round++) {
        while (gtk_events_pending())
            gtk_main_iteration_do(FALSE);
        G_GNUC_BEGIN_IGNORE_DEPRECATIONS
        gdk_window_process_all_updates();
        G_GNUC_END_IGNORE_DEPRECATIONS
        gdk_display_sync(gdk_display_get_default());
    }
}

gint GtkNumeric(GtkTreeModel *model, GtkTreeIter *a, GtkTreeIter *b, gpointer)
{
    gchar *x = nullptr, *y = nullptr;
    gtk_tree_model_get(model, a, 1, &x, -1);
    gtk_tree_model_get(model, b, 1, &y, -1);
    long p = x ? atol(x) : 0, q = y ? atol(y) : 0;
    g_free(x);
    g_free(y);
    return p < q ? -1 : p > q;
}

struct GtkTable {
    GtkWidget *window, *scrolled, *view;
    GtkListStore *store;
    GtkTable()
    {
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        gtk_window_set_default_size(GTK_WINDOW(window), 800, 600);
        scrolled = gtk_scrolled_window_new(nullptr, nullptr);
        gtk_container_add(GTK_CONTAINER(window), scrolled);
        store = gtk_list_store_new(kColumns, G_TYPE_STRING, G_TYPE_STRING, G_TYPE_STRING,
                                   G_TYPE_STRING, G_TYPE_STRING, G_TYPE_STRING, G_TYPE_STRING);
        view = gtk_tree_view_new();
        const char *titles[] = {"Name", "Size", "Date", "Mode", "Owner", "Group", "Type"};
        for (int c = 0; c < kColumns; c++) {
            GtkCellRenderer *r = gtk_cell_renderer_text_new();
            GtkTreeViewColumn *col =
                gtk_tree_view_column_new_with_attributes(titles[c], r, "text", c, nullptr);
            gtk_tree_view_column_set_sizing(col, GTK_TREE_VIEW_COLUMN_FIXED);
            gtk_tree_view_column_set_fixed_width(col, 100);
            gtk_tree_view_column_set_resizable(col, TRUE);
            gtk_tree_view_append_column(GTK_TREE_VIEW(view), col);
        }
        gtk_tree_view_set_fixed_height_mode(GTK_TREE_VIEW(view), TRUE);
        gtk_container_add(GTK_CONTAINER(scrolled), view);
        gtk_widget_show_all(window);
        GtkDrain();
    }
    ~GtkTable()
    {
        gtk_widget_destroy(window);
        g_object_unref(store);
        GtkDrain();
    }
    void Fill(int n)
    {
        GtkTreeIter iter;
        for (int i = 0; i < n; i++) {
            const Row &r = rows[i];
            gtk_list_store_insert_with_values(store, &iter, -1, 0, r.cell[0].c_str(), 1,
                                              r.cell[1].c_str(), 2, r.cell[2].c_str(), 3,
                                              r.cell[3].c_str(), 4, r.cell[4].c_str(), 5,
                                              r.cell[5].c_str(), 6, r.cell[6].c_str(), -1);
        }
    }
    void Sort()
    {
        GtkTreeSortable *s = GTK_TREE_SORTABLE(store);
        gtk_tree_sortable_set_sort_column_id(s, 0, GTK_SORT_ASCENDING);
        gtk_tree_sortable_set_sort_func(s, 1, GtkNumeric, nullptr, nullptr);
        gtk_tree_sortable_set_sort_column_id(s, 1, GTK_SORT_ASCENDING);
    }
};

void BM_Fill_Gtk(benchmark::State &state)
{
    for (auto _ : state) {
        GtkTable t;
        auto start = std::chrono::steady_clock::now();
        t.Fill(kRows);
        t.Sort();
        gtk_tree_view_set_model(GTK_TREE_VIEW(t.view), GTK_TREE_MODEL(t.store));
        GtkDrain();
        double s = Seconds(start);
        state.SetIterationTime(s);
        results["fill_gtk"] = s;
    }
}

void GtkSteps(benchmark::State &state, bool resize)
{
    int n = (int)state.range(0);
    GtkTable t;
    t.Fill(n);
    gtk_tree_view_set_model(GTK_TREE_VIEW(t.view), GTK_TREE_MODEL(t.store));
    gtk_widget_grab_focus(t.view);
    GtkTreePath *path = gtk_tree_path_new_first();
    gtk_tree_view_set_cursor(GTK_TREE_VIEW(t.view), path, nullptr, FALSE);
    gtk_tree_path_free(path);
    GtkDrain();
    GtkTreeViewColumn *first = gtk_tree_view_get_column(GTK_TREE_VIEW(t.view), 0);
    int width = gtk_tree_view_column_get_fixed_width(first);
    double total = 0;
    long count = 0;
    int step = 0;
    for (auto _ : state) {
        gboolean handled;
        if (!resize && step++ >= 20) {
            g_signal_emit_by_name(t.view, "move-cursor", GTK_MOVEMENT_BUFFER_ENDS, -1, &handled);
            GtkDrain();
            step = 0;
        }
        auto start = std::chrono::steady_clock::now();
        if (resize)
            gtk_tree_view_column_set_fixed_width(first, ++width);
        else
            g_signal_emit_by_name(t.view, "move-cursor", GTK_MOVEMENT_PAGES, 1, &handled);
        GtkDrain();
        double s = Seconds(start);
        state.SetIterationTime(s);
        total += s;
        count++;
    }
    results[std::string(resize ? "resize_gtk_" : "page_gtk_") + std::to_string(n)] = total / count;
}

void BM_PageDown_Gtk(benchmark::State &s) { GtkSteps(s, false); }
void BM_Resize_Gtk(benchmark::State &s) { GtkSteps(s, true); }
#endif

BENCHMARK(BM_Fill_Tree)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PageDown_Tree)->Arg(kSmall)->Arg(kRows)->Iterations(100)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Resize_Tree)->Arg(kSmall)->Arg(kRows)->Iterations(100)->UseManualTime()->Unit(benchmark::kMicrosecond);
#ifdef XWK_HAVE_GTK
BENCHMARK(BM_Fill_Gtk)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PageDown_Gtk)->Arg(kSmall)->Arg(kRows)->Iterations(100)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Resize_Gtk)->Arg(kSmall)->Arg(kRows)->Iterations(100)->UseManualTime()->Unit(benchmark::kMicrosecond);
#endif

void Line(const char *what, double ours, double peer, const char *unit, double scale)
{
    printf("%-44s %12.3f %12.3f %s   ratio %.3f\n", what, ours * scale, peer * scale, unit,
           peer > 0 ? ours / peer : 0.0);
}

}  // namespace

int main(int argc, char **argv)
{
    XwkXvfb server;
    if (!getenv("XWK_BENCH_DISPLAY") && xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "treetable_bench: no Xvfb\n");
        return 1;
    }
    top = XtVaAppInitialize(&app, "TableBench", nullptr, 0, &argc, argv, nullptr, NULL);
    XwkInitialize(app, top);
#ifdef XWK_HAVE_GTK
    gtk_init(&argc, &argv);
#endif
    MakeRows();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    printf("\n%-44s %12s %12s\n", "XmPrjTree table beside GtkTreeView", "XmPrjTree", "GTK 3");
    Line("fill + 2 sorts + first paint, 100,000 rows", results["fill_tree"], results["fill_gtk"],
         "ms", 1e3);
    Line("page-down, 1,000 rows", results["page_tree_1000"], results["page_gtk_1000"], "us", 1e6);
    Line("page-down, 100,000 rows", results["page_tree_100000"], results["page_gtk_100000"], "us",
         1e6);
    Line("column resize step, 1,000 rows", results["resize_tree_1000"], results["resize_gtk_1000"],
         "us", 1e6);
    Line("column resize step, 100,000 rows", results["resize_tree_100000"],
         results["resize_gtk_100000"], "us", 1e6);
    auto scale = [](double big, double small) { return small > 0 ? big / small : 0.0; };
    printf("%-44s %12.3f (100,000 rows over 1,000; target at most 2)\n", "page-down scaling",
           scale(results["page_tree_100000"], results["page_tree_1000"]));
    printf("%-44s %12.3f (100,000 rows over 1,000; target at most 2)\n", "resize step scaling",
           scale(results["resize_tree_100000"], results["resize_tree_1000"]));
    benchmark::Shutdown();
    if (!getenv("XWK_BENCH_DISPLAY"))
        xwk_xvfb_stop(&server);
    return 0;
}
