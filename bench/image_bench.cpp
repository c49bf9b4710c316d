// Colour reduction of a 4096 x 4096 picture: XwkImageCompress beside
// ImageMagick's `convert -colors 256 +dither` on the same pixels.
//
// Two pictures: a photographic-like one (gradients and noise, far more than
// 256 colours: the median cut) and one of 200 colours (the exact path).
#include <benchmark/benchmark.h>

#include <Xwk/Graphics.h>

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int kSide = 4096;

struct Picture {
    std::vector<unsigned char> rgb;
    std::string ppm;
};

uint32_t next_random(uint32_t *state)
{
    *state = *state * 1664525u + 1013904223u;
    return *state >> 8;
}

unsigned char clamp_byte(double v)
{
    return (unsigned char)(v < 0 ? 0 : v > 255 ? 255 : v);
}

// Smooth gradients with a soft highlight, plus grain: like a photograph,
// hundreds of thousands of distinct colours.
std::vector<unsigned char> photographic()
{
    std::vector<unsigned char> rgb((size_t)kSide * kSide * 3);
    uint32_t seed = 12345;
    for (int y = 0; y < kSide; y++) {
        for (int x = 0; x < kSide; x++) {
            double fx = (double)x / kSide, fy = (double)y / kSide;
            double glow = std::exp(-((fx - 0.6) * (fx - 0.6) + (fy - 0.35) * (fy - 0.35)) * 8.0);
            int noise = (int)(next_random(&seed) % 25) - 12;
            unsigned char *p = &rgb[((size_t)y * kSide + x) * 3];
            p[0] = clamp_byte(40 + 150 * fx + 60 * glow + noise);
            p[1] = clamp_byte(70 + 100 * fy + 80 * glow + noise);
            p[2] = clamp_byte(160 - 110 * fy + 40 * fx + noise);
        }
    }
    return rgb;
}

// Two hundred flat colours in bands and blocks.
std::vector<unsigned char> two_hundred()
{
    std::vector<unsigned char> rgb((size_t)kSide * kSide * 3);
    for (int y = 0; y < kSide; y++) {
        for (int x = 0; x < kSide; x++) {
            int k = ((x / 64) * 7 + (y / 96) * 13) % 200;
            unsigned char *p = &rgb[((size_t)y * kSide + x) * 3];
            p[0] = (unsigned char)(k * 37);
            p[1] = (unsigned char)(k * 11 + 5);
            p[2] = (unsigned char)(k);
        }
    }
    return rgb;
}

std::string write_ppm(const std::vector<unsigned char> &rgb, const char *name)
{
    std::string path = std::string("/tmp/xwk-bench-") + std::to_string(getpid()) + "-" + name + ".ppm";
    FILE *f = fopen(path.c_str(), "wb");
    if (!f)
        return {};
    fprintf(f, "P6\n%d %d\n255\n", kSide, kSide);
    fwrite(rgb.data(), 1, rgb.size(), f);
    fclose(f);
    return path;
}

std::map<std::string, Picture> pictures;

Picture &picture(const std::string &which)
{
    auto it = pictures.find(which);
    if (it != pictures.end())
        return it->second;
    Picture &p = pictures[which];
    p.rgb = which == "photo" ? photographic() : two_hundred();
    p.ppm = write_ppm(p.rgb, which.c_str());
    return p;
}

// Seconds per run of each benchmark, for the ratio printed at the end.
std::map<std::string, double> seconds;

void run_xwk(benchmark::State &state, const std::string &which)
{
    Picture &p = picture(which);
    double total = 0;
    int colours = 0;
    for (auto _ : state) {
        state.PauseTiming();
        XwkImage *image = XwkImageNew(kSide, kSide);
        memcpy(image->data, p.rgb.data(), p.rgb.size());
        state.ResumeTiming();
        auto t0 = std::chrono::steady_clock::now();
        XwkImage *out = XwkImageCompress(image, 256);
        total += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        colours = out->cmapSize;
        benchmark::DoNotOptimize(out->data);
        state.PauseTiming();
        XwkImageDelete(out);
        state.ResumeTiming();
    }
    state.counters["colours"] = colours;
    seconds["xwk " + which] = total / state.iterations();
}

void run_imagemagick(benchmark::State &state, const std::string &which)
{
    Picture &p = picture(which);
    std::string out = p.ppm + ".out.ppm";
    double total = 0;
    for (auto _ : state) {
        auto t0 = std::chrono::steady_clock::now();
        pid_t pid = fork();
        if (pid == 0) {
            execlp("convert", "convert", p.ppm.c_str(), "-colors", "256", "+dither", out.c_str(), (char *)nullptr);
            _exit(127);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            state.SkipWithError("convert failed");
            break;
        }
        state.SetIterationTime(s);
        total += s;
    }
    unlink(out.c_str());
    seconds["imagemagick " + which] = state.iterations() ? total / state.iterations() : 0;
}

void BM_XwkMedianCut(benchmark::State &state) { run_xwk(state, "photo"); }
void BM_ImageMagickMedianCut(benchmark::State &state) { run_imagemagick(state, "photo"); }
void BM_XwkExact200(benchmark::State &state) { run_xwk(state, "flat"); }
void BM_ImageMagickExact200(benchmark::State &state) { run_imagemagick(state, "flat"); }

BENCHMARK(BM_XwkMedianCut)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ImageMagickMedianCut)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(2);
BENCHMARK(BM_XwkExact200)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ImageMagickExact200)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(2);

void report(const char *title, const std::string &which)
{
    double ours = seconds["xwk " + which], theirs = seconds["imagemagick " + which];
    if (ours <= 0 || theirs <= 0)
        return;
    printf("%-44s Xwk %9.1f ms   ImageMagick %9.1f ms   ratio %6.1fx\n", title, ours * 1e3, theirs * 1e3,
           theirs / ours);
}

}  // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    printf("\n4096 x 4096 to 256 colours (ImageMagick: convert -colors 256 +dither, whole process)\n");
    report("photographic picture (median cut)", "photo");
    report("picture of 200 colours (exact path)", "flat");
    for (auto &entry : pictures)
        if (!entry.second.ppm.empty())
            unlink(entry.second.ppm.c_str());
    return 0;
}
