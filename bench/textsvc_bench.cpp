// md5_buffer beside coreutils md5sum, and crc32b beside zlib's CRC-32, over
// the same 256 MiB.  Prints each pair's throughput ratio at the end.
#include <Xwk/Text.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// zlib's header declares its own crc32, which cannot stand beside ours in
// one translation unit; crc32_z is the same routine with a size_t length.
extern "C" unsigned long crc32_z(unsigned long crc, const unsigned char *buf, size_t len);

namespace {

constexpr size_t total = size_t(256) << 20;

const std::vector<unsigned char> &Data()
{
    static std::vector<unsigned char> data = [] {
        std::vector<unsigned char> v(total);
        uint64_t x = 0x9E3779B97F4A7C15u;
        for (size_t i = 0; i < total; i += 8) {
            x ^= x << 13;
            x ^= x >> 7;
            x ^= x << 17;
            std::memcpy(&v[i], &x, 8);
        }
        return v;
    }();
    return data;
}

// The bytes in a file for md5sum; tmpfs when there is one, so that both
// sides read from memory.
const std::string &DataFile()
{
    static std::string path = [] {
        char shm[] = "/dev/shm/xwk-bench-XXXXXX";
        char tmp[] = "/tmp/xwk-bench-XXXXXX";
        int fd = mkstemp(shm);
        std::string p = shm;
        if (fd < 0) {
            fd = mkstemp(tmp);
            p = tmp;
        }
        if (fd < 0)
            std::abort();
        const std::vector<unsigned char> &d = Data();
        for (size_t off = 0; off < d.size();) {
            ssize_t n = write(fd, d.data() + off, d.size() - off);
            if (n <= 0)
                std::abort();
            off += size_t(n);
        }
        close(fd);
        std::atexit([] { unlink(DataFile().c_str()); });
        return p;
    }();
    return path;
}

std::string Md5sum(const std::string &path)
{
    std::string cmd = "md5sum " + path;
    FILE *p = popen(cmd.c_str(), "r");
    if (!p)
        return "";
    char line[256] = "";
    if (!std::fgets(line, sizeof line, p))
        line[0] = '\0';
    pclose(p);
    return std::string(line).substr(0, 32);
}

void BM_md5_buffer(benchmark::State &state)
{
    const std::vector<unsigned char> &d = Data();
    unsigned char digest[16];
    for (auto _ : state) {
        md5_buffer(reinterpret_cast<const char *>(d.data()), d.size(), digest);
        benchmark::DoNotOptimize(digest);
    }
    char hex[33];
    md5_convert_to_hex(digest, hex);
    if (Md5sum(DataFile()) != hex)
        state.SkipWithError("md5_buffer and md5sum disagree");
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(d.size()));
}

// The whole md5sum process, start-up included (a few milliseconds of 256 MiB).
void BM_md5sum(benchmark::State &state)
{
    const std::string &path = DataFile();
    for (auto _ : state) {
        pid_t pid = fork();
        if (pid == 0) {
            int null = open("/dev/null", O_WRONLY);
            dup2(null, 1);
            execlp("md5sum", "md5sum", path.c_str(), static_cast<char *>(nullptr));
            _exit(127);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            state.SkipWithError("md5sum failed");
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(total));
}

void BM_crc32b(benchmark::State &state)
{
    const std::vector<unsigned char> &d = Data();
    uint32_t crc = 0;
    for (auto _ : state) {
        crc = crc32b(d.data(), d.size());
        benchmark::DoNotOptimize(crc);
    }
    // zlib inverts before and after; undone, it must give our value.
    if (crc != uint32_t(~crc32_z(0xFFFFFFFFu, d.data(), d.size())))
        state.SkipWithError("crc32b and zlib disagree");
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(d.size()));
}

void BM_zlib_crc32(benchmark::State &state)
{
    const std::vector<unsigned char> &d = Data();
    for (auto _ : state) {
        unsigned long crc = crc32_z(0, d.data(), d.size());
        benchmark::DoNotOptimize(crc);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(d.size()));
}

BENCHMARK(BM_md5_buffer)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_md5sum)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_crc32b)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_zlib_crc32)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

// Keeps each run's throughput for the ratios.
class Reporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> rate;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs) {
            auto it = r.counters.find("bytes_per_second");
            if (it != r.counters.end() && !r.error_occurred)
                rate[r.benchmark_name()] = it->second;
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

void PrintRatio(Reporter &rep, const char *ours, const char *peer, double target)
{
    std::string a = std::string(ours) + "/min_time:2.000/real_time";
    std::string b = std::string(peer) + "/min_time:2.000/real_time";
    if (!rep.rate.count(a) || !rep.rate.count(b))
        return;
    double ra = rep.rate[a] / (1 << 20), rb = rep.rate[b] / (1 << 20);
    std::printf("%-14s %8.1f MiB/s   %-14s %8.1f MiB/s   ratio %.2f (target %.2f)\n", ours + 3, ra,
                peer + 3, rb, ra / rb, target);
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    Data();
    DataFile();
    Reporter rep;
    benchmark::RunSpecifiedBenchmarks(&rep);
    PrintRatio(rep, "BM_md5_buffer", "BM_md5sum", 0.9);
    PrintRatio(rep, "BM_crc32b", "BM_zlib_crc32", 0.8);
    benchmark::Shutdown();
    return 0;
}
