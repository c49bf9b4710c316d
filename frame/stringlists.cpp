// Arrays of strings: environments, key=value texts, merged and split lists.
#include <Xwk/Strings.h>

#include <cstring>
#include <vector>

namespace {

bool IsSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

size_t CountStrings(char **array)
{
    size_t n = 0;
    if (array)
        while (array[n]) n++;
    return n;
}

// Moves to the first ',' (or also '=' when key is set) outside double
// quotes, or to the end.  A backslash before a quote keeps the quoted state.
char *ScanField(char *p, bool key)
{
    bool quoted = false;
    for (; *p; p++) {
        if (p[0] == '\\' && p[1] == '"') {
            p++;
            continue;
        }
        if (*p == '"') quoted = !quoted;
        else if (!quoted && (*p == ',' || (key && *p == '='))) break;
    }
    return p;
}

void TrimEnd(char *start, char *end)
{
    while (end > start && IsSpace(static_cast<unsigned char>(end[-1]))) end--;
    *end = '\0';
}

template <typename T>
T *ToXtArray(const std::vector<T> &v, bool null_ended)
{
    size_t n = v.size() + (null_ended ? 1 : 0);
    if (n == 0) return nullptr;
    T *array = reinterpret_cast<T *>(XtMalloc(static_cast<Cardinal>(n * sizeof(T))));
    if (!v.empty()) std::memcpy(array, v.data(), v.size() * sizeof(T));
    if (null_ended) array[v.size()] = T();
    return array;
}

}  // namespace

extern "C" char *XwkGetEnv(char **environment, const char *name)
{
    if (!environment || !name || !*name) return nullptr;
    size_t len = std::strlen(name);
    for (char **e = environment; *e; e++)
        if (std::strncmp(*e, name, len) == 0 && (*e)[len] == '=') return *e + len + 1;
    return nullptr;
}

extern "C" int XwkExtractString(char *text, char ***keys, char ***values)
{
    if (!keys || !values) return 0;
    *keys = nullptr;
    *values = nullptr;
    if (!text) return 0;
    std::vector<char *> key_list, value_list;
    char *p = text;
    for (;;) {
        while (IsSpace(static_cast<unsigned char>(*p))) p++;
        if (!*p) break;
        char *key = p;
        p = ScanField(p, true);
        if (*p != '=') {
            // A piece without '=' is dropped.
            if (!*p) break;
            p++;
            continue;
        }
        TrimEnd(key, p);
        char *value = ++p;
        p = ScanField(p, false);
        char *next = *p ? p + 1 : p;
        TrimEnd(value, p);
        size_t len = std::strlen(value);
        if (len >= 2 && value[0] == '"' && value[len - 1] == '"') {
            value[len - 1] = '\0';
            value++;
        }
        key_list.push_back(key);
        value_list.push_back(value);
        p = next;
    }
    *keys = ToXtArray(key_list, false);
    *values = ToXtArray(value_list, false);
    return static_cast<int>(key_list.size());
}

extern "C" char **XwkMergeStrings(char **old, char **add, int separator)
{
    if (!old && !add) return nullptr;
    size_t n_old = CountStrings(old);
    size_t n_add = CountStrings(add);
    std::vector<char *> merged(old, old + n_old);
    merged.reserve(n_old + n_add);
    for (size_t a = 0; a < n_add; a++) {
        char *s = add[a];
        const char *cut = std::strchr(s, static_cast<char>(separator));
        size_t len = cut ? static_cast<size_t>(cut - s) : std::strlen(s);
        bool replaced = false;
        // Only the entries of old are candidates, never those appended.
        for (size_t i = 0; i < n_old && !replaced; i++) {
            if (std::strncmp(merged[i], s, len) == 0) {
                merged[i] = s;
                replaced = true;
            }
        }
        if (!replaced) merged.push_back(s);
    }
    return ToXtArray(merged, true);
}

extern "C" char **XwkConvertStringToStringTable(const char *text, int separator, int *count)
{
    if (count) *count = 0;
    if (!text) return nullptr;
    const char sep = static_cast<char>(separator);
    std::vector<char *> pieces;
    const char *start = text;
    for (const char *p = text;; p++) {
        bool cut = *p == '\0' || (sep && *p == sep && !(p > text && p[-1] == '\\'));
        if (!cut) continue;
        if (p > start) {
            size_t len = static_cast<size_t>(p - start);
            char *piece = XtMalloc(static_cast<Cardinal>(len + 1));
            std::memcpy(piece, start, len);
            piece[len] = '\0';
            pieces.push_back(piece);
        }
        if (!*p) break;
        start = p + 1;
    }
    if (count) *count = static_cast<int>(pieces.size());
    return ToXtArray(pieces, true);
}
