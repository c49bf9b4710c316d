// Template expansion on arbitrary text, with the built-ins, a macro that
// returns long strings and one that fails.  Input: the file name, a NUL, the
// template text; without a NUL all of it is the text.
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

char *LongText(const char *arg, void *)
{
    size_t n = std::strtoul(arg, nullptr, 10) % 9000;
    char *s = static_cast<char *>(std::malloc(n + 1));
    std::memset(s, 'L', n);
    s[n] = '\0';
    return s;
}

char *Fail(const char *arg, void *)
{
    return arg[0] == 'x' ? nullptr : strdup(arg);
}

TemplateEntry *Macros()
{
    static TemplateEntry *list = [] {
        TemplateEntry *l = nullptr;
        templ_init(&l);
        templ_add(&l, "long", "long text", LongText);
        templ_add(&l, "fail", "fails on x", Fail);
        return l;
    }();
    return list;
}

// Text without "$" comes back as it was, each line cut to 4095 characters.
std::string Plain(std::string_view text)
{
    std::string out;
    size_t start = 0;
    for (;;) {
        size_t end = text.find('\n', start);
        std::string_view line = text.substr(start, end == std::string_view::npos ? end : end - start);
        out += line.substr(0, 4095);
        if (end == std::string_view::npos)
            return out;
        out += '\n';
        start = end + 1;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static char user[] = "fuzzer";
    xwkUSER = user;
    std::string input(reinterpret_cast<const char *>(data), size);
    std::string file = "src/dir/name.c";
    size_t nul = input.find('\0');
    if (nul != std::string::npos) {
        file = input.substr(0, nul);
        input.erase(0, nul + 1);
    }
    // The text is a C string: it ends at its first NUL.
    input.resize(std::strlen(input.c_str()));

    char *result = nullptr;
    int rc = templ_expand(Macros(), file.c_str(), input.c_str(), &result, nullptr);
    if (rc == 0) {
        if (!result)
            std::abort();
        if (input.find('$') == std::string::npos && Plain(input) != result)
            std::abort();
        std::free(result);
    } else if (rc < 0 || result) {
        std::abort();
    }

    TemplateEntry *none = nullptr;
    result = nullptr;
    if (templ_expand(none, file.c_str(), input.c_str(), &result, nullptr) != 0)
        std::abort();
    std::free(result);
    return 0;
}
