// The string and path helpers that parse text.  Input: five parameter bytes
// (two of stpcvt mode, tab width, stpexpan size, separator), then the text;
// behind a NUL, the value of $X for XwkFindPathExt.
#include <Xwk/Strings.h>

#include <X11/Intrinsic.h>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

// A heap copy of exactly the string's size, so that the sanitizer sees any
// write past its end.
struct Copy {
    char *p;
    explicit Copy(const std::string &s) : p(static_cast<char *>(std::malloc(s.size() + 1)))
    {
        std::memcpy(p, s.c_str(), s.size() + 1);
    }
    ~Copy() { std::free(p); }
};

void FreeTable(char **table)
{
    if (!table)
        return;
    for (char **t = table; *t; t++)
        XtFree(*t);
    XtFree(reinterpret_cast<char *>(table));
}

void Expand(const std::string &text, int width, int size)
{
    std::vector<char> out(size_t(size) + 1);
    const char *input = text.c_str();
    const char *end = input + text.size();
    while (input) {
        char *buf = static_cast<char *>(std::malloc(size_t(size)));
        const char *rest = stpexpan(buf, input, width, size);
        if (std::strlen(buf) > size_t(size) - 1)
            std::abort();
        std::free(buf);
        if (rest && (rest < input || rest > end))
            std::abort();
        // A tab that never fits would stop every caller: go no further.
        if (rest == input)
            break;
        input = rest;
    }
}

void Tables(const std::string &text, char separator)
{
    int count = -1;
    char **table = XwkConvertStringToStringTable(text.c_str(), separator, &count);
    if (!table || count < 0 || table[count])
        std::abort();
    for (int i = 0; i < count; i++)
        if (!table[i][0])
            std::abort();
    int count2 = 0;
    char **other = XwkConvertStringToStringTable(text.c_str(), ',', &count2);
    char **merged = XwkMergeStrings(table, other, separator);
    int n = 0;
    while (merged && merged[n])
        n++;
    if (n < count || n > count + count2)
        std::abort();
    XtFree(reinterpret_cast<char *>(merged));
    FreeTable(table);
    FreeTable(other);
}

void Extract(const std::string &text)
{
    Copy c(text);
    char **keys = nullptr, **values = nullptr;
    int n = XwkExtractString(c.p, &keys, &values);
    for (int i = 0; i < n; i++) {
        if (keys[i] < c.p || keys[i] > c.p + text.size() || values[i] < c.p ||
            values[i] > c.p + text.size())
            std::abort();
    }
    XtFree(reinterpret_cast<char *>(keys));
    XtFree(reinterpret_cast<char *>(values));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 5)
        return 0;
    int mode = (data[0] | data[1] << 8) & 0x1ff;
    int width = int8_t(data[2]) % 20;
    int out_size = data[3] % 64 + 1;
    char separator = char(data[4]);
    std::string rest(reinterpret_cast<const char *>(data + 5), size - 5);
    size_t nul = rest.find('\0');
    std::string text = rest.substr(0, nul);
    std::string value = nul == std::string::npos ? "" : rest.substr(nul + 1);
    value.resize(std::strlen(value.c_str()));

    {
        Copy c(text);
        if (stpcvt(c.p, mode) != c.p || std::strlen(c.p) > text.size())
            std::abort();
    }
    {
        Copy c(text);
        if (stptabfy(c.p, width) != c.p || std::strlen(c.p) > text.size())
            std::abort();
    }
    Expand(text, width, out_size);
    Tables(text, separator);
    Extract(text);

    std::string x = "X=" + value;
    char home[] = "HOME=/root";
    char *env[] = {home, x.data(), nullptr};
    char *found = XwkFindPathExt(text.c_str(), "/nonexistent:/tmp:", env);
    if (found && std::strlen(found) >= PATH_MAX)
        std::abort();
    XwkFindPathExt(text.c_str(), nullptr, nullptr);
    return 0;
}
