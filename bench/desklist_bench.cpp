// The desk list beside GTK 3's GtkIconView, on a private Xvfb.
//
//   fill       100,000 items with icons and labels added in a dontMove
//              batch, then the layout and the first complete paint;
//              GtkIconView gets the same labels and icons in a
//              GtkListStore and is measured until its first paint, in a
//              process of its own on the same server.
//   page-down  one page-down by key, until the server has drawn it, at
//              1,000 and at 100,000 items.
//
// The summary at the end prints each figure, the peer's and the ratio.
// Without GTK's development files the peer's column stays empty.
#include <benchmark/benchmark.h>

#include <Xwk/Xwk.h>
#include <Xm/ScrolledW.h>
#include <X11/Shell.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#ifdef XWK_HAVE_GTK
#include <gtk/gtk.h>
#endif

#include "xvfb.h"

namespace {

constexpr int kItems = 100000;

XtAppContext app;
Widget top;
std::vector<std::string> labels;
std::map<std::string, double> results;

// Four 32 by 32 pictures with a transparent corner, as a file view shows.
std::vector<std::vector<std::string>> pictures;
std::vector<std::vector<char *>> picture_data;

void MakePictures()
{
    const char *colours[] = {"#3060C0", "#C04040", "#40A040", "#A0A040"};
    for (const char *colour : colours) {
        std::vector<std::string> xpm{"32 32 2 1", std::string("x c ") + colour, ". c None"};
        for (int y = 0; y < 32; y++) {
            std::string row;
            for (int x = 0; x < 32; x++)
                row.push_back(x + y < 8 ? '.' : 'x');
            xpm.push_back(row);
        }
        pictures.push_back(xpm);
    }
    for (auto &p : pictures) {
        std::vector<char *> data;
        for (auto &line : p)
            data.push_back((char *)line.c_str());
        picture_data.push_back(data);
    }
}

void MakeLabels(int n)
{
    labels.clear();
    labels.reserve(n);
    for (int i = 0; i < n; i++) {
        char text[40];
        snprintf(text, sizeof text, "document_%06d.txt", (i * 7919) % n);
        labels.emplace_back(text);
    }
}

double Seconds(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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
    Widget shell = nullptr, desk = nullptr;
    std::vector<XwkIcon *> icons;
    Window()
    {
        shell = XtVaCreatePopupShell("bench", topLevelShellWidgetClass, top, XmNwidth, 640,
                                     XmNheight, 480, NULL);
        desk = XmCreateScrolledDeskList(shell, (String) "desk", nullptr, 0);
        for (auto &data : picture_data)
            icons.push_back(XwkIconCreateFromData(desk, data.data()));
        XtManageChild(desk);
        XtPopup(shell, XtGrabNone);
        Drain();
    }
    ~Window()
    {
        XtDestroyWidget(shell);
        for (XwkIcon *icon : icons)
            XwkIconFree(nullptr, icon);
        Drain();
    }
    void Fill(int n)
    {
        XmPrjDeskSetEditable(desk, False);
        for (int i = 0; i < n; i++)
            XmPrjDeskAddItem(desk, (char *)labels[i].c_str(), icons[i % icons.size()],
                             (XtPointer)(long)i);
        XmPrjDeskSetEditable(desk, True);
        Drain();
    }
};

void BM_Fill_Desk(benchmark::State &state)
{
    int n = (int)state.range(0);
    for (auto _ : state) {
        Window w;
        auto start = std::chrono::steady_clock::now();
        w.Fill(n);
        double t = Seconds(start);
        state.SetIterationTime(t);
        results["fill_desk"] = t;
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
    XtCallActionProc(w, action, &event, params, 1);
}

double CpuSeconds()
{
    timespec ts;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return ts.tv_sec + ts.tv_nsec * 1e-9;
}

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

// Page-down drawn completely; the desk goes back to its top outside the
// measure every 20 pages.  The summary takes the median, and the client's
// processor time beside it: the machine may be shared, and every page
// sends the same requests at any number of items.
void BM_PageDown_Desk(benchmark::State &state)
{
    int n = (int)state.range(0);
    Window w;
    w.Fill(n);
    XmPrjDeskSetItem(w.desk, nullptr);
    Drain();
    int pages = 0;
    std::vector<double> wall, cpu;
    for (auto _ : state) {
        if (pages++ >= 20) {
            CallAction(w.desk, "DeskKbdKey", "5");
            Drain();
            pages = 0;
        }
        auto start = std::chrono::steady_clock::now();
        double cpu_start = CpuSeconds();
        CallAction(w.desk, "DeskKbdKey", "4");
        Drain();
        double t = Seconds(start);
        cpu.push_back(CpuSeconds() - cpu_start);
        state.SetIterationTime(t);
        wall.push_back(t);
    }
    results["pagedown_desk_" + std::to_string(n)] = Median(wall);
    results["pagedown_cpu_" + std::to_string(n)] = Median(cpu);
}

BENCHMARK(BM_Fill_Desk)->Arg(kItems)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PageDown_Desk)->Arg(1000)->Arg(kItems)->Iterations(200)->UseManualTime()->Unit(benchmark::kMicrosecond);

#ifdef XWK_HAVE_GTK
bool drawn = false;

gboolean NoteDrawn(GtkWidget *, cairo_t *, gpointer)
{
    drawn = true;
    return FALSE;
}

// Runs in its own process: fills a GtkIconView as the desk is filled and
// prints the seconds until its first paint.
int MeasureGtk(int argc, char **argv)
{
    gtk_init(&argc, &argv);
    MakePictures();
    MakeLabels(kItems);
    std::vector<GdkPixbuf *> pixbufs;
    for (auto &data : picture_data)
        pixbufs.push_back(gdk_pixbuf_new_from_xpm_data((const char **)data.data()));
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_default_size(GTK_WINDOW(window), 640, 480);
    GtkWidget *scrolled = gtk_scrolled_window_new(nullptr, nullptr);
    GtkWidget *view = gtk_icon_view_new();
    gtk_container_add(GTK_CONTAINER(scrolled), view);
    gtk_container_add(GTK_CONTAINER(window), scrolled);
    gtk_widget_show_all(window);
    while (gtk_events_pending())
        gtk_main_iteration();
    g_signal_connect_after(view, "draw", G_CALLBACK(NoteDrawn), nullptr);
    auto start = std::chrono::steady_clock::now();
    GtkListStore *store = gtk_list_store_new(2, G_TYPE_STRING, GDK_TYPE_PIXBUF);
    GtkTreeIter iter;
    for (int i = 0; i < kItems; i++)
        gtk_list_store_insert_with_values(store, &iter, -1, 0, labels[i].c_str(), 1,
                                          pixbufs[i % pixbufs.size()], -1);
    gtk_tree_sortable_set_sort_column_id(GTK_TREE_SORTABLE(store), 0, GTK_SORT_ASCENDING);
    gtk_icon_view_set_model(GTK_ICON_VIEW(view), GTK_TREE_MODEL(store));
    gtk_icon_view_set_text_column(GTK_ICON_VIEW(view), 0);
    gtk_icon_view_set_pixbuf_column(GTK_ICON_VIEW(view), 1);
    drawn = false;
    while (!drawn || gtk_events_pending())
        gtk_main_iteration();
    gdk_display_sync(gdk_display_get_default());
    printf("%f\n", Seconds(start));
    fflush(stdout);
    _exit(0);
}

double GtkFigure()
{
    char self[2048];
    ssize_t len = readlink("/proc/self/exe", self, sizeof self - 1);
    if (len <= 0)
        return 0;
    self[len] = 0;
    std::string command = std::string("NO_AT_BRIDGE=1 GDK_BACKEND=x11 '") + self + "' --gtk";
    FILE *p = popen(command.c_str(), "r");
    if (!p)
        return 0;
    double seconds = 0;
    if (fscanf(p, "%lf", &seconds) != 1)
        seconds = 0;
    pclose(p);
    return seconds;
}
#else
double GtkFigure()
{
    return 0;
}
#endif

void Row(const char *what, double ours, double peer, const char *unit, double scale)
{
    if (peer > 0)
        printf("%-44s %12.3f %12.3f %s   ratio %.3f\n", what, ours * scale, peer * scale, unit,
               ours / peer);
    else
        printf("%-44s %12.3f %12s %s\n", what, ours * scale, "-", unit);
}

}  // namespace

int main(int argc, char **argv)
{
#ifdef XWK_HAVE_GTK
    for (int i = 1; i < argc; i++)
        if (!strcmp(argv[i], "--gtk"))
            return MeasureGtk(argc, argv);
#endif
    XwkXvfb server;
    if (!getenv("XWK_BENCH_DISPLAY")) {
        if (xwk_xvfb_start(&server, 0) != 0) {
            fprintf(stderr, "desklist_bench: no Xvfb\n");
            return 1;
        }
    }
    top = XtVaAppInitialize(&app, "DeskBench", nullptr, 0, &argc, argv, nullptr, NULL);
    XwkInitialize(app, top);
    MakePictures();
    MakeLabels(kItems);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    double gtk = GtkFigure();
    printf("\n%-44s %12s %12s\n", "XmPrjDesk beside GtkIconView", "XmPrjDesk", "GtkIconView");
    Row("fill + layout + first paint, 100,000 items", results["fill_desk"], gtk, "ms", 1e3);
    Row("page-down, 1,000 items (median)", results["pagedown_desk_1000"], 0, "us", 1e6);
    Row("page-down, 100,000 items (median)", results["pagedown_desk_100000"], 0, "us", 1e6);
    Row("  client processor time, 1,000 items", results["pagedown_cpu_1000"], 0, "us", 1e6);
    Row("  client processor time, 100,000 items", results["pagedown_cpu_100000"], 0, "us", 1e6);
    auto ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
    printf("%-44s %12.3f (100,000 items over 1,000 items; target at most 2)\n",
           "page-down scaling, XmPrjDesk",
           ratio(results["pagedown_desk_100000"], results["pagedown_desk_1000"]));
    printf("%-44s %12.3f (the same in client processor time)\n", "",
           ratio(results["pagedown_cpu_100000"], results["pagedown_cpu_1000"]));
    if (gtk > 0)
        printf("%-44s %12.3f (target at most 0.2)\n", "fill ratio, XmPrjDesk over GtkIconView",
               results["fill_desk"] / gtk);
    benchmark::Shutdown();
    if (!getenv("XWK_BENCH_DISPLAY"))
        xwk_xvfb_stop(&server);
    return 0;
}
