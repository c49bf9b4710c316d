// The rule file parser and lookups.  Input: the rule text, a NUL, and the
// first bytes of a sample file to look up; without a NUL all of it is rules.
#include <Xwk/Text.h>
#include "toolcfg/filetype.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

std::string dir;

void Save(const std::string &path, const uint8_t *data, size_t size)
{
    FILE *f = std::fopen(path.c_str(), "wb");
    if (!f)
        std::abort();
    if (size)
        std::fwrite(data, 1, size, f);
    std::fclose(f);
}

void Cleanup()
{
    unlink((dir + "/rules").c_str());
    unlink((dir + "/sample.c.gz").c_str());
    rmdir(dir.c_str());
}

void Readable(const char *s)
{
    if (s)
        (void)std::strlen(s);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // Two small files are written for every input: tmpfs when there is one.
    char shm[] = "/dev/shm/xwk-filetype-fuzz-XXXXXX";
    char tmp[] = "/tmp/xwk-filetype-fuzz-XXXXXX";
    const char *made = mkdtemp(shm);
    if (!made)
        made = mkdtemp(tmp);
    if (!made)
        std::abort();
    dir = made;
    std::atexit(Cleanup);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const uint8_t *nul = static_cast<const uint8_t *>(std::memchr(data, 0, size));
    size_t rules_size = nul ? size_t(nul - data) : size;
    std::string rules = dir + "/rules";
    std::string sample = dir + "/sample.c.gz";
    Save(rules, data, rules_size);
    if (nul)
        Save(sample, nul + 1, size - rules_size - 1);
    else
        unlink(sample.c_str());

    XwkFileTypeUnload();
    int rc = CheckFileType(rules.c_str(), nullptr, nullptr, nullptr, 0);
    if (rc < -4 || rc > 1)
        std::abort();
    struct {
        const char *name;
        int flags;
    } lookups[] = {{sample.c_str(), 0}, {sample.c_str(), 1}, {"x.c.gz", 2}, {"Makefile", 2}, {"", 2}};
    for (const auto &l : lookups) {
        char *action = nullptr, *argument = nullptr;
        int r = CheckFileType(nullptr, l.name, &action, &argument, l.flags);
        if (r == 0 && !action)
            std::abort();
        if (r != 0 && (action || argument))
            std::abort();
        Readable(action);
        Readable(argument);
    }
    Readable(GetModuleOption(nullptr, "opt"));
    Readable(GetModuleOption(nullptr, ""));
    return 0;
}
