// In-place text filters and small string utilities.
#include <Xwk/Strings.h>

#include "frame/strings_private.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <string>

namespace {

// The C locale's classes, spelled out so that the user's locale cannot move
// bytes with the high bit set between classes.
bool IsSpace(unsigned c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsControl(unsigned c) { return c < 0x20 || c == 0x7F; }
bool IsPunct(unsigned c)
{
    return (c >= 0x21 && c <= 0x2F) || (c >= 0x3A && c <= 0x40) ||
           (c >= 0x5B && c <= 0x60) || (c >= 0x7B && c <= 0x7E);
}

// Case mapping covers ASCII and the Cyrillic letters of code page 866.
unsigned ToUpper(unsigned c)
{
    if (c >= 'a' && c <= 'z') return c - 0x20;
    if (c >= 0xA0 && c <= 0xAF) return c - 0x20;
    if (c >= 0xE0 && c <= 0xEF) return (c + 0xB0) & 0xFF;
    return c;
}

unsigned ToLower(unsigned c)
{
    if (c >= 'A' && c <= 'Z') return c + 0x20;
    if (c >= 0x80 && c <= 0x8F) return c + 0x20;
    if (c >= 0x90 && c <= 0x9F) return c + 0x50;
    return c;
}

}  // namespace

extern "C" char *stpcvt(char *string, int mode)
{
    if (!string) return nullptr;
    unsigned char *in = reinterpret_cast<unsigned char *>(string);
    unsigned char *out = in;
    unsigned char *end = out;  // just behind the last character that is not white space
    bool leading = true;
    bool in_run = false;
    unsigned quote = 0;

    for (; *in; in++) {
        unsigned c = *in;
        if (quote) {
            *out++ = static_cast<unsigned char>(c);
            end = out;
            if (c == quote) quote = 0;
            continue;
        }
        // White space is governed by the white-space bits alone, also the
        // tab and the newline, which are control characters too.
        if (IsSpace(c)) {
            bool first = !in_run;
            in_run = true;
            if (mode & XWK_CVT_ALL_SPACE) continue;
            if ((mode & XWK_CVT_LEADING_SPACE) && leading) continue;
            if (mode & XWK_CVT_REDUCE_SPACE) {
                if (!first) continue;
                c = ' ';
            }
            if (mode & XWK_CVT_IDENTIFIER) c = '_';
            *out++ = static_cast<unsigned char>(c);
            continue;
        }
        // A removed control character does not break a run of white space.
        if ((mode & XWK_CVT_CONTROL) && IsControl(c)) continue;
        in_run = false;
        leading = false;
        if ((mode & XWK_CVT_KEEP_QUOTED) && (c == '"' || c == '\'')) {
            quote = c;
            *out++ = static_cast<unsigned char>(c);
            end = out;
            continue;
        }
        if (mode & XWK_CVT_UPPER) c = ToUpper(c);
        if (mode & XWK_CVT_LOWER) c = ToLower(c);
        if ((mode & XWK_CVT_IDENTIFIER) && IsPunct(c) && !std::strchr("$(){}[].,~/-+", static_cast<int>(c)))
            c = '_';
        *out++ = static_cast<unsigned char>(c);
        end = out;
    }
    if (mode & XWK_CVT_TRAILING_SPACE) out = end;
    *out = '\0';
    return string;
}

extern "C" char *stpcvt_(char *string, const int *mode)
{
    if (!mode) return nullptr;
    return stpcvt(string, *mode);
}

extern "C" int stschind(int c, const char *string)
{
    if (!string) return -1;
    for (int i = 0; string[i]; i++)
        if (string[i] == static_cast<char>(c)) return i;
    return -1;
}

extern "C" char *stpxlate(char *string, const char *from, const char *to)
{
    if (!string || !from || !to) return nullptr;
    size_t to_len = std::strlen(to);
    for (char *p = string; *p; p++) {
        const char *hit = std::strchr(from, *p);
        if (!hit) continue;
        size_t i = static_cast<size_t>(hit - from);
        *p = i < to_len ? to[i] : ' ';
    }
    return string;
}

extern "C" char *stptabfy(char *string, int width)
{
    if (!string) return nullptr;
    char *out = string;
    int column = 0;
    int pending = 0;  // blanks read but not yet written
    for (const char *in = string; *in; in++) {
        char c = *in;
        if (c == ' ') {
            column++;
            pending++;
            if (width < 1 || column % width == 0) {
                *out++ = pending >= 2 ? '\t' : ' ';
                pending = 0;
            }
            continue;
        }
        for (; pending > 0; pending--) *out++ = ' ';
        *out++ = c;
        column = c == '\t' ? 0 : column + 1;
    }
    for (; pending > 0; pending--) *out++ = ' ';
    *out = '\0';
    return string;
}

extern "C" char *stpexpan(char *output, const char *input, int width, int size)
{
    if (!output || !input) return nullptr;
    if (size < 1) return *input ? const_cast<char *>(input) : nullptr;
    int used = 0;
    int column = 0;
    const int room = size - 1;
    for (; *input && used < room; input++) {
        char c = *input;
        if (c == '\t' && width > 0) {
            int blanks = width - column % width;
            if (used + blanks > room) break;  // the tab stays for the next call
            std::memset(output + used, ' ', static_cast<size_t>(blanks));
            used += blanks;
            column += blanks;
            continue;
        }
        output[used++] = c;
        column = c == '\n' ? 0 : column + 1;
    }
    output[used] = '\0';
    return *input ? const_cast<char *>(input) : nullptr;
}

extern "C" char *stpjust(char *output, const char *input, int pad, int width, int mode)
{
    if (!output || !input) return nullptr;
    size_t w = width > 0 ? static_cast<size_t>(width) : 0;
    size_t len = std::strlen(input);
    size_t before = 0, after = 0, skip = 0, n = len;
    if (len < w) {
        size_t diff = w - len;
        if (mode == 0) before = diff / 2;
        else if (mode == 1) before = diff;
        after = diff - before;
    } else {
        size_t excess = len - w;
        if (mode == 0) skip = excess / 2;
        else if (mode == 1) skip = excess;
        n = w;
    }
    // memmove first: output may be the input itself.
    std::memmove(output + before, input + skip, n);
    std::memset(output, pad, before);
    std::memset(output + before + n, pad, after);
    output[w] = '\0';
    return output;
}

extern "C" char *stpjust_(char *output, const char *input, const char *pad, const int *width,
                          const int *mode)
{
    if (!pad || !width || !mode) return nullptr;
    return stpjust(output, input, *pad, *width, *mode);
}

extern "C" char *XwkStrSep(char **stringp, const char *delim)
{
    if (!stringp || !*stringp || !delim) return nullptr;
    char *token = *stringp;
    char *end = token + std::strcspn(token, delim);
    if (*end) {
        *end = '\0';
        *stringp = end + 1;
    } else {
        *stringp = nullptr;
    }
    return token;
}

extern "C" char *concat(char *first, const char *second)
{
    if (!second) return first;
    if (!first) return XtNewString(second);
    size_t a = std::strlen(first);
    size_t b = std::strlen(second);
    first = XtRealloc(first, static_cast<Cardinal>(a + b + 1));
    std::memcpy(first + a, second, b + 1);
    return first;
}

namespace {

int CompareStrings(const void *a, const void *b)
{
    return std::strcmp(*static_cast<char *const *>(a), *static_cast<char *const *>(b));
}

char *CopyOut(const std::string &s)
{
    char *r = XtMalloc(static_cast<Cardinal>(s.size() + 1));
    std::memcpy(r, s.c_str(), s.size() + 1);
    return r;
}

// One pass, left to right, for the pairs where repeated replacement would
// never end.
char *ReplaceOnce(const char *text, const char *from, const char *to)
{
    size_t lf = std::strlen(from);
    if (lf == 0) return XtNewString(text);
    std::string out;
    for (const char *p = text;;) {
        const char *hit = std::strstr(p, from);
        if (!hit) {
            out += p;
            break;
        }
        out.append(p, static_cast<size_t>(hit - p));
        out += to;
        p = hit + lf;
    }
    return CopyOut(out);
}

}  // namespace

extern "C" void XwkSortStrings(char **strings, int count)
{
    if (!strings || count < 2) return;
    std::qsort(strings, static_cast<size_t>(count), sizeof(char *), CompareStrings);
}

// Replacing the leftmost occurrence and searching the result again from its
// start: an occurrence can only end behind the text already passed, so the
// text is consumed once from a stack onto which each replacement is pushed.
extern "C" char *XwkReplaceString(const char *text, const char *from, const char *to)
{
    if (!text || !from || !to) return nullptr;
    size_t lf = std::strlen(from);
    if (lf == 0 || std::strstr(to, from)) return ReplaceOnce(text, from, to);
    std::string pending(text);
    std::reverse(pending.begin(), pending.end());
    std::string rto(to);
    std::reverse(rto.begin(), rto.end());
    std::string out;
    out.reserve(pending.size());
    while (!pending.empty()) {
        out.push_back(pending.back());
        pending.pop_back();
        if (out.size() < lf || out.back() != from[lf - 1]) continue;
        if (std::memcmp(out.data() + out.size() - lf, from, lf) != 0) continue;
        out.resize(out.size() - lf);
        pending += rto;
    }
    return CopyOut(out);
}

extern "C" char *XwkFtoA(double value)
{
    static char buffer[64];
    double whole_part;
    double fraction = std::modf(value, &whole_part);
    long whole = 0;
    long millionths = 0;
    // Out of the range of long the whole part saturates; NaN reads as 0.
    if (std::isnan(value)) {
        whole = 0;
    } else if (whole_part >= 9223372036854775808.0) {
        whole = LONG_MAX;
    } else if (whole_part < -9223372036854775808.0) {
        whole = LONG_MIN;
    } else {
        whole = static_cast<long>(whole_part);
        millionths = static_cast<long>(std::fabs(fraction) * 1000000.0);
    }
    std::snprintf(buffer, sizeof buffer, "%ld.%ld", whole, millionths);
    return buffer;
}

extern "C" float XwkAtoF(const char *text)
{
    if (!text) return 0.0f;
    const unsigned char *p = reinterpret_cast<const unsigned char *>(text);
    while (IsSpace(*p)) p++;
    bool negative = false;
    if (*p == '+' || *p == '-') negative = *p++ == '-';
    float value = 0.0f;
    float scale = 1.0f;
    for (; *p >= '0' && *p <= '9'; p++) value = value * 10.0f + static_cast<float>(*p - '0');
    if (*p == '.') {
        for (p++; *p >= '0' && *p <= '9'; p++) {
            value = value * 10.0f + static_cast<float>(*p - '0');
            scale *= 10.0f;
        }
    }
    value /= scale;
    return negative ? -value : value;
}

extern "C" const char xwkEmptyString[] = "";
