// XPM pictures, well formed or not, through the icon path: as a data array
// (XwkIconCreateFromData) and as a file (XwkIconCreateFromFile).  Bad input
// must give no icon and no crash, leak or X error.  A private Xvfb is started
// at the first input.
#undef _GNU_SOURCE
extern "C" {
#include "tests/support/xvfb.c"
}

#include <Xwk/Xwk.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace {

Widget shell;
std::string file_path;

int abort_on_x_error(Display *, XErrorEvent *e)
{
    fprintf(stderr, "xpm_fuzz: X error %d, request %d\n", e->error_code, e->request_code);
    abort();
}

void start()
{
    static XwkXvfb server = {-1, -1};
    if (xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "xpm_fuzz: cannot start Xvfb\n");
        abort();
    }
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    static int argc = 0;
    Display *dpy = XtOpenDisplay(app, nullptr, "xpm_fuzz", "XpmFuzz", nullptr, 0, &argc, nullptr);
    if (!dpy)
        abort();
    shell = XtVaAppCreateShell("xpm_fuzz", "XpmFuzz", applicationShellWidgetClass, dpy, XtNwidth, 10,
                               XtNheight, 10, nullptr);
    XSetErrorHandler(abort_on_x_error);
    file_path = "/tmp/xpm_fuzz-" + std::to_string(getpid()) + ".xpm";
}

std::vector<std::string> split_lines(const uint8_t *data, size_t size)
{
    std::vector<std::string> lines(1);
    for (size_t i = 0; i < size; i++) {
        if (data[i] == '\n')
            lines.emplace_back();
        else if (data[i] != '\r')
            lines.back() += (char)data[i];
    }
    return lines;
}

// A data array always holds as many lines as its values line promises (a C
// array of strings cannot say how long it is); the missing ones are empty.
size_t promised_lines(const std::string &values, size_t have)
{
    unsigned long w = 0, h = 0, colours = 0, cpp = 0;
    if (sscanf(values.c_str(), "%lu %lu %lu %lu", &w, &h, &colours, &cpp) != 4)
        return have;
    if (h > 100000 || colours > 100000)
        return have;
    return std::max(have, (size_t)(1 + colours + h));
}

void through_data(const uint8_t *data, size_t size)
{
    std::vector<std::string> lines = split_lines(data, size);
    size_t n = promised_lines(lines[0], lines.size());
    lines.resize(n);
    lines.push_back("XPMENDEXT");
    std::vector<char *> array;
    for (std::string &line : lines)
        array.push_back(line.data());
    array.push_back(nullptr);
    if (XwkIcon *icon = XwkIconCreateFromData(shell, array.data()))
        XwkIconFree(shell, icon);
}

void through_file(const uint8_t *data, size_t size)
{
    FILE *f = fopen(file_path.c_str(), "wb");
    if (!f)
        return;
    fwrite(data, 1, size, f);
    fclose(f);
    if (XwkIcon *icon = XwkIconCreateFromFile(shell, file_path.c_str()))
        XwkIconFree(shell, icon);
    unlink(file_path.c_str());
}

}  // namespace

// libXpm 3.5's parser leaks on some of its own error paths (a repeated
// colour key, a truncated file); those leaks are the reader's, not the icon
// path's.  libXpm has no frame pointers: the slow unwinder is needed to see
// the parser's frame in the allocation stacks.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:xpmParseData\nleak:xpmParseColors\n";
}

extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (!shell)
        start();
    through_data(data, size);
    through_file(data, size);
    XSync(XtDisplay(shell), False);
    return 0;
}
