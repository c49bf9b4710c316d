// The canonical path of a directory, for absolute and relative paths, from
// a private directory with a small tree.  Input: the path.
#include "filedesk/filedesk_private.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

std::string base;
std::string start;

void Check(bool ok)
{
    if (!ok)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    char tmpl[] = "/tmp/xwkfsdfuzzXXXXXX";
    if (!mkdtemp(tmpl))
        std::abort();
    base = tmpl;
    for (const char *d : {"/a", "/a/b", "/a/b/c", "/d d"})
        mkdir((base + d).c_str(), 0755);
    if (symlink("a/b", (base + "/l").c_str()) != 0)
        std::abort();
    std::atexit([] {
        std::string cmd = "rm -rf '" + base + "'";
        if (std::system(cmd.c_str()) != 0)
            std::abort();
    });
    char here[PATH_MAX];
    if (!getcwd(here, sizeof here))
        std::abort();
    start = here;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string path(reinterpret_cast<const char *>(data), size);
    path.resize(std::strlen(path.c_str()));
    // Relative paths resolve in the private tree; libFuzzer's own relative
    // paths need the start directory back afterwards.
    Check(chdir(base.c_str()) == 0);
    char *result = FsdCanonicalPath(path.c_str());
    char here[PATH_MAX];
    bool stayed = getcwd(here, sizeof here) && base == here;
    Check(chdir(start.c_str()) == 0);
    Check(stayed);
    if (result) {
        Check(result[0] == '/' && std::strlen(result) < PATH_MAX);
        if (path[0] == '/' && path.size() < 4094) {
            // Normalized by text: no empty, "." or ".." component, and a
            // directory.
            size_t n = std::strlen(result);
            Check(n == 1 || result[n - 1] != '/');
            Check(!std::strstr(result, "//") && !std::strstr(result, "/./") &&
                  !std::strstr(result, "/../"));
            struct stat st;
            Check(stat(result, &st) == 0 && S_ISDIR(st.st_mode));
        }
    }
    XtFree(result);
    return 0;
}
