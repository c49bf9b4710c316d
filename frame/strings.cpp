// In-place text filters and small string utilities.
#include <Xwk/Strings.h>

#include <cstring>

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
