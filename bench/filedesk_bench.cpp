// The file selection desk's scan of a directory of 100,000 files beside
// GNU ls -l of the same directory, in the same run.
//
//   scan   what the desk does for the detail view before it fills the
//          list: read the directory, lstat every entry, filter by the
//          pattern "*", make the items, format the seven-column detail
//          text of every item, and sort the items by name with
//          directories first.  A first scan starts with empty user and
//          group caches and no entries; a warm second scan follows on the
//          same desk state and frees the first scan's entries first.
//   ls     `ls -l DIR > /dev/null` as a child process: read, lstat,
//          format, sort.
//   phases the first scan again, split into read + lstat, format, sort.
//   memory the records and table the desk keeps per entry, beyond the
//          bytes of the names, from the store's own count and from the
//          heap in use.
//
// The summary at the end prints each figure, the peer's and the ratio.
#include <benchmark/benchmark.h>

#include "filedesk/filedesk_private.h"

#include <fcntl.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int kFiles = 100000;
std::string directory;
std::map<std::string, double> results;
FsdPattern **patterns;
int pattern_count;

double Now()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void MakeDirectory()
{
    char tmpl[] = "/tmp/xwkfsdbenchXXXXXX";
    if (!mkdtemp(tmpl))
        std::abort();
    directory = tmpl;
    for (int i = 0; i < kFiles; i++) {
        char name[64];
        // Names of 14 to 24 characters, sizes spread over several digits.
        std::snprintf(name, sizeof name, "%s/%s_%06d.%s", tmpl, i % 3 ? "report" : "src",
                      i * 7919 % kFiles, i % 2 ? "c" : "txt");
        int fd = open(name, O_CREAT | O_WRONLY, 0644);
        if (fd < 0)
            std::abort();
        if (i % 10 == 0 && ftruncate(fd, off_t(i) * 37) != 0)
            std::abort();
        close(fd);
    }
    std::atexit([] {
        std::string cmd = "rm -rf '" + directory + "'";
        if (std::system(cmd.c_str()) != 0)
            std::fprintf(stderr, "filedesk_bench: could not remove %s\n", directory.c_str());
    });
}

int ByName(const FsdFileItem *a, const FsdFileItem *b, void *)
{
    return std::strcmp(a->name, b->name);
}

// One desk's state: the entries of its last scan and its name caches.
struct Desk {
    FsdDirNode *node;
    FsdEntryStore store;
    XwkList *users = nullptr;
    XwkList *groups = nullptr;
    std::vector<FsdFileItem *> view;  // stands for the list's rows
    size_t text_bytes = 0;
    Desk() { node = FsdNewDirNode(nullptr, (directory + "/").c_str(), nullptr, nullptr); }
    ~Desk()
    {
        FsdFreeNameCache(&users);
        FsdFreeNameCache(&groups);
        FsdFreeDirNode(node);
    }
    void Read()
    {
        FsdScanDirectory(node, True, patterns[pattern_count], False, nullptr, nullptr, &store);
    }
    void Format()
    {
        view.clear();
        std::string text;
        text_bytes = 0;
        for (int i = 0; i < store.Count(); i++) {
            FsdFileItem *item = store.Table()[i]->item;
            if (!item)
                continue;
            text.clear();
            FsdAppendDetailText(item, &users, &groups, &text);
            text_bytes += text.size();
            view.push_back(item);
        }
        benchmark::DoNotOptimize(text_bytes);
    }
    void Sort()
    {
        std::sort(view.begin(), view.end(), [](FsdFileItem *a, FsdFileItem *b) {
            return FsdCompareListItems(a, b, 1, 0, ByName, nullptr) < 0;
        });
    }
    void Scan()
    {
        Read();
        Format();
        Sort();
    }
};

void BM_Scan(benchmark::State &state)
{
    double first = 0, second = 0;
    for (auto _ : state) {
        double t0 = Now();
        Desk desk;
        desk.Scan();
        double t1 = Now();
        desk.Scan();
        double t2 = Now();
        if (desk.view.size() != size_t(kFiles) + 1)
            state.SkipWithError("wrong number of items");
        first += t1 - t0;
        second += t2 - t1;
        state.SetIterationTime(t1 - t0);
    }
    results["first"] = first / double(state.iterations());
    results["second"] = second / double(state.iterations());
    state.counters["warm_second_ms"] = results["second"] * 1e3;
}

void BM_LsL(benchmark::State &state)
{
    double total = 0;
    for (auto _ : state) {
        double t0 = Now();
        pid_t pid = fork();
        if (pid == 0) {
            int null = open("/dev/null", O_WRONLY);
            dup2(null, 1);
            execlp("ls", "ls", "-l", directory.c_str(), static_cast<char *>(nullptr));
            _exit(127);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        double t = Now() - t0;
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            state.SkipWithError("ls -l failed");
        total += t;
        state.SetIterationTime(t);
    }
    results["ls"] = total / double(state.iterations());
}

void BM_Phases(benchmark::State &state)
{
    double read = 0, format = 0, sort = 0;
    for (auto _ : state) {
        Desk desk;
        double t0 = Now();
        desk.Read();
        double t1 = Now();
        desk.Format();
        double t2 = Now();
        desk.Sort();
        double t3 = Now();
        read += t1 - t0;
        format += t2 - t1;
        sort += t3 - t2;
        state.SetIterationTime(t3 - t0);
    }
    double n = double(state.iterations());
    results["read"] = read / n;
    results["format"] = format / n;
    results["sort"] = sort / n;
}

BENCHMARK(BM_Scan)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LsL)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Phases)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

void Memory()
{
    struct mallinfo2 m0 = mallinfo2();
    Desk *desk = new Desk;
    desk->Read();
    struct mallinfo2 m1 = mallinfo2();
    size_t heap = (m1.uordblks + m1.hblkhd) - (m0.uordblks + m0.hblkhd) - sizeof(Desk);
    size_t names = 0;
    int count = desk->store.Count();
    for (int i = 0; i < count; i++)
        names += std::strlen(desk->store.Table()[i]->dirent->d_name) + 1;
    size_t held = desk->store.Bytes();
    double n = double(count);
    std::printf("%-44s %12d entries, names %.1f bytes each, directory path %zu bytes\n",
                "memory", count, double(names) / n, directory.size() + 1);
    std::printf("%-44s %12.1f bytes   (target at most 300)\n",
                "  per entry beyond the names, store", double(held - names) / n);
    std::printf("%-44s %12.1f bytes   (target at most 300)\n",
                "  per entry beyond the names, heap in use", (double(heap) - double(names)) / n);
    size_t paths = 0;
    for (int i = 0; i < count; i++) {
        const FsdFileItem *item = desk->store.Table()[i]->item;
        if (item && item->path != desk->node->path)
            paths += std::strlen(item->path) + 1;
    }
    std::printf("%-44s %12.1f bytes\n", "  per entry beyond the names and the paths",
                double(held - names - paths) / n);
    std::printf("%-44s %12.1f bytes   (records %zu + %zu + %zu, table %zu)\n",
                "  of which fixed records", double(sizeof(FsdEntry) + sizeof(FsdFileItem) +
                                                   sizeof(struct stat) + sizeof(FsdEntry *)),
                sizeof(FsdEntry), sizeof(FsdFileItem), sizeof(struct stat), sizeof(FsdEntry *));
    delete desk;
}

void Row(const char *what, double ours, double peer, const char *peer_name, double target)
{
    std::printf("%-44s %10.1f ms %10.1f ms (%s)   ratio %.2f", what, ours * 1e3, peer * 1e3,
                peer_name, peer > 0 ? ours / peer : 0.0);
    if (target > 0)
        std::printf(" (target at most %.1f)", target);
    std::printf("\n");
}

} // namespace

int main(int argc, char **argv)
{
    MakeDirectory();
    pattern_count = FsdBuildPatterns("", "", &patterns, nullptr);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    std::printf("\n%-44s %13s %13s\n", "Scan of 100,000 files", "ours", "peer");
    Row("first scan (read, lstat, format, sort)", results["first"], results["ls"], "ls -l", 2.0);
    Row("warm second scan", results["second"], results["ls"], "ls -l", 2.0);
    Row("warm second scan beside the first", results["second"], results["first"], "first", 0);
    Row("  read + lstat + filter + items", results["read"], results["ls"], "ls -l", 0);
    Row("  detail texts", results["format"], results["ls"], "ls -l", 0);
    Row("  sort", results["sort"], results["ls"], "ls -l", 0);
    Memory();
    FsdFreePatterns(patterns, pattern_count);
    benchmark::Shutdown();
    return 0;
}
