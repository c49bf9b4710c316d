// Ini files with fuzzed contents.  Input, in NUL-separated parts: the file's
// text, the section name, "key=value" lines to write, and a key prefix and a
// value text to delete by.
#include <Xwk/Ini.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

std::string dir;
std::string file;

std::vector<std::string> Split(const uint8_t *data, size_t size, size_t parts)
{
    std::vector<std::string> out;
    std::string s(reinterpret_cast<const char *>(data), size);
    size_t start = 0;
    while (out.size() + 1 < parts) {
        size_t nul = s.find('\0', start);
        if (nul == std::string::npos)
            break;
        out.push_back(s.substr(start, nul - start));
        start = nul + 1;
    }
    out.push_back(s.substr(start));
    out.back().resize(std::strlen(out.back().c_str()));
    out.resize(parts);
    return out;
}

void Save(const std::string &text)
{
    FILE *f = std::fopen(file.c_str(), "wb");
    if (!f)
        std::abort();
    std::fwrite(text.data(), 1, text.size(), f);
    std::fclose(f);
}

void Read(const std::string &section)
{
    char **keys = nullptr, **values = nullptr;
    int count = -1;
    signed char r = XwkReadIni(file.c_str(), section.c_str(), &keys, &values, &count);
    if (count < 0 || r != static_cast<signed char>(count) || (count > 0 && (!keys || !values)))
        std::abort();
    for (int i = 0; i < count; i++) {
        (void)std::strlen(keys[i]);
        (void)std::strlen(values[i]);
        std::free(keys[i]);
        std::free(values[i]);
    }
    std::free(keys);
    std::free(values);
}

void Cleanup()
{
    unlink(file.c_str());
    rmdir(dir.c_str());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    char shm[] = "/dev/shm/xwk-ini-fuzz-XXXXXX";
    char tmp[] = "/tmp/xwk-ini-fuzz-XXXXXX";
    const char *made = mkdtemp(shm);
    if (!made)
        made = mkdtemp(tmp);
    if (!made)
        std::abort();
    dir = made;
    file = dir + "/settings.ini";
    // The temporary files of a rewrite go here as well.
    setenv("TMPDIR", dir.c_str(), 1);
    std::atexit(Cleanup);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::string> part = Split(data, size, 5);
    const std::string &text = part[0], &section = part[1];

    Save(text);
    Read(section);

    std::vector<std::string> names, texts;
    for (size_t start = 0; start < part[2].size();) {
        size_t nl = part[2].find('\n', start);
        std::string line = part[2].substr(start, nl == std::string::npos ? nl : nl - start);
        size_t eq = line.find('=');
        names.push_back(line.substr(0, eq));
        texts.push_back(eq == std::string::npos ? "" : line.substr(eq + 1));
        start = nl == std::string::npos ? part[2].size() : nl + 1;
    }
    std::vector<char *> keys, values;
    for (size_t i = 0; i < names.size(); i++) {
        keys.push_back(names[i].data());
        values.push_back(i % 3 == 2 ? nullptr : texts[i].data());
    }
    int r = XwkWriteIni(file.c_str(), section.c_str(), keys.data(), values.data(), int(keys.size()));
    if (r != 0 && r != 1)
        std::abort();
    Read(section);

    // Deletions work on what the write left, which keeps the fuzzed text.
    XwkDeleteIni(file.c_str(), section.c_str(), part[3].empty() ? nullptr : part[3].c_str(),
                 part[4].empty() ? nullptr : part[4].c_str());
    Read(section);
    XwkDeleteIni(file.c_str(), section.c_str(), nullptr, nullptr);
    Read(section);
    return 0;
}
