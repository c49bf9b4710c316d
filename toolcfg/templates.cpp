// Template expansion: "$@", "$(@D)", "$(@F)" and "$(name argument)" calls
// of a list of macro functions, line by line.
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

// A line, or a call's argument, holds at most this many characters.  A macro
// result that would go past it fails the line; other text is cut there.
constexpr size_t line_max = 4095;

// Calls nest by recursion; a deeper nest fails its line rather than the stack.
constexpr int nest_max = 1000;

char *dup_string(std::string_view s)
{
    char *p = static_cast<char *>(std::malloc(s.size() + 1));
    if (!p)
        return nullptr;
    std::memcpy(p, s.data(), s.size());
    p[s.size()] = '\0';
    return p;
}

bool is_letter(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool is_letter_or_digit(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

char *macro_user(const char *, void *)
{
    return dup_string(xwkUSER ? xwkUSER : "");
}

char *macro_host(const char *, void *)
{
    char buf[100];
    if (gethostname(buf, sizeof buf) != 0)
        buf[0] = '\0';
    buf[sizeof buf - 1] = '\0';
    return dup_string(buf);
}

char *format_now(const char *format)
{
    char buf[100];
    std::time_t now = std::time(nullptr);
    std::tm tm;
    if (!localtime_r(&now, &tm) || std::strftime(buf, sizeof buf, format, &tm) == 0)
        buf[0] = '\0';
    return dup_string(buf);
}

char *macro_date(const char *, void *)
{
    return format_now("%d %B %Y");
}

char *macro_time(const char *, void *)
{
    return format_now("%H:%M");
}

char *macro_upper(const char *arg, void *)
{
    char *s = dup_string(arg);
    for (char *p = s; p && *p; p++)
        *p = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    return s;
}

char *macro_lower(const char *arg, void *)
{
    char *s = dup_string(arg);
    for (char *p = s; p && *p; p++)
        *p = static_cast<char>(std::tolower(static_cast<unsigned char>(*p)));
    return s;
}

char *macro_capitalize(const char *arg, void *)
{
    char *s = dup_string(arg);
    if (s && *s)
        *s = static_cast<char>(std::toupper(static_cast<unsigned char>(*s)));
    return s;
}

char *macro_identifier(const char *arg, void *)
{
    char *s = dup_string(arg);
    if (!s)
        return nullptr;
    for (char *p = s; *p; p++) {
        bool keep = p == s ? is_letter(*p) : is_letter_or_digit(*p);
        if (!keep)
            *p = '_';
    }
    return s;
}

// Only the last "." counts; a "/" behind it is not looked at.
char *macro_basename(const char *arg, void *)
{
    const char *dot = std::strrchr(arg, '.');
    return dup_string(dot ? std::string_view(arg, dot - arg) : std::string_view(arg));
}

char *macro_suffix(const char *arg, void *)
{
    const char *dot = std::strrchr(arg, '.');
    return dup_string(dot ? dot + 1 : "");
}

struct Expander {
    TemplateEntry *list;
    std::string_view file;
    std::string_view text;
    void *user;
    // For each "(" of the current line, its closing ")" by counting
    // parentheses, or the end of the line when there is none.
    size_t line_start = 0;
    std::vector<size_t> close_of;
    std::vector<size_t> open;

    void match_parentheses(size_t start, size_t end);

    char at(size_t i) const { return i < text.size() ? text[i] : '\0'; }
    bool starts(size_t i, std::string_view s) const { return text.substr(i).starts_with(s); }
    bool expand(size_t begin, size_t end, size_t line_end, int depth, std::string &out) const;
    bool call(const TemplateEntry *entry, size_t arg, size_t close, size_t line_end, int depth,
              std::string &out) const;
};

// Counting from a "(" to the ")" that brings the count back to zero finds
// the same ")" as matching with a stack; one pass serves every call.
void Expander::match_parentheses(size_t start, size_t end)
{
    line_start = start;
    close_of.assign(end - start, end);
    open.clear();
    for (size_t i = start; i < end; i++) {
        if (text[i] == '(') {
            open.push_back(i);
        } else if (text[i] == ')' && !open.empty()) {
            close_of[open.back() - start] = i;
            open.pop_back();
        }
    }
}

void append_cut(std::string &out, std::string_view s)
{
    size_t room = line_max - out.size();
    out.append(s.substr(0, room));
}

void append_cut(std::string &out, char c)
{
    if (out.size() < line_max)
        out.push_back(c);
}

const TemplateEntry *find_entry(const TemplateEntry *list, std::string_view name)
{
    for (; list; list = list->next)
        if (list->name && name == list->name)
            return list;
    return nullptr;
}

bool Expander::call(const TemplateEntry *entry, size_t arg, size_t close, size_t line_end,
                    int depth, std::string &out) const
{
    if (depth >= nest_max)
        return false;
    std::string argument;
    if (at(arg) != ')' && !expand(arg, close, line_end, depth + 1, argument))
        return false;
    char *result = entry->proc(argument.c_str(), user);
    if (!result)
        return false;
    size_t len = std::strlen(result);
    if (out.size() + len > line_max) {
        std::free(result);
        return false;
    }
    out.append(result, len);
    std::free(result);
    return true;
}

// Expands text[begin, end) into out.  Where a form copies "the character
// behind" without looking at it, that character may lie at or past end (the
// line's newline, or the ")" closing an argument); the copy is kept for
// compatibility, and the loop then stops.
bool Expander::expand(size_t begin, size_t end, size_t line_end, int depth, std::string &out) const
{
    size_t i = begin;
    while (i < end) {
        char c = text[i];
        if (c != '$') {
            append_cut(out, c);
            i++;
            continue;
        }
        if (at(i + 1) == '@') {
            append_cut(out, file);
            i += 2;
            continue;
        }
        if (starts(i, "$(@D)") || starts(i, "$(@F)")) {
            size_t slash = file.rfind('/');
            if (text[i + 3] == 'D')
                append_cut(out, slash == std::string_view::npos ? std::string_view() : file.substr(0, slash));
            else
                append_cut(out, slash == std::string_view::npos ? file : file.substr(slash + 1));
            i += 5;
            if (i < text.size())
                append_cut(out, text[i]);
            i++;
            continue;
        }
        if (at(i + 1) == '(' && is_letter(at(i + 2))) {
            size_t name = i + 2;
            size_t name_end = name;
            while (name_end < line_end && (is_letter_or_digit(text[name_end]) || text[name_end] == '_'))
                name_end++;
            size_t close = close_of[i + 1 - line_start];
            const TemplateEntry *entry = find_entry(list, text.substr(name, name_end - name));
            if (!entry) {
                append_cut(out, text.substr(i, close - i));
                i = close;
                continue;
            }
            size_t arg = name_end;
            while (arg < close && (text[arg] == ' ' || text[arg] == '\t'))
                arg++;
            if (!call(entry, arg, close, line_end, depth, out))
                return false;
            i = close + 1;
            continue;
        }
        append_cut(out, c);
        if (i + 1 < text.size())
            append_cut(out, text[i + 1]);
        i += 2;
    }
    return true;
}

} // namespace

void templ_add(TemplateEntry **list, const char *name, const char *description, TemplateProc proc)
{
    TemplateEntry *entry = static_cast<TemplateEntry *>(std::malloc(sizeof *entry));
    if (!entry)
        return;
    entry->name = name;
    entry->description = description;
    entry->proc = proc;
    entry->next = *list;
    *list = entry;
}

void templ_init(TemplateEntry **list)
{
    templ_add(list, "USER", "Username", macro_user);
    templ_add(list, "HOST", "Hostname", macro_host);
    templ_add(list, "DATE", "Current date", macro_date);
    templ_add(list, "TIME", "Current time", macro_time);
    templ_add(list, "upper", "Uppecase string", macro_upper);
    templ_add(list, "lower", "Lowercase string", macro_lower);
    templ_add(list, "capitalize", "Capitalize string", macro_capitalize);
    templ_add(list, "identifier", "Cast to identifier", macro_identifier);
    templ_add(list, "basename", "Basename of the file", macro_basename);
    templ_add(list, "suffix", "Suffix of the file", macro_suffix);
}

void templ_free(TemplateEntry **list)
{
    TemplateEntry *entry = *list;
    while (entry) {
        TemplateEntry *next = entry->next;
        std::free(entry);
        entry = next;
    }
    *list = nullptr;
}

int templ_expand(TemplateEntry *list, const char *file, const char *text, char **result, void *user)
{
    Expander ex{list, file ? file : "", text ? text : "", user, 0, {}, {}};
    std::string out;
    std::string buf;
    out.reserve(0x100A);
    size_t start = 0;
    int line = 0;
    for (;;) {
        size_t end = ex.text.find('\n', start);
        if (end == std::string_view::npos)
            end = ex.text.size();
        line++;
        buf.clear();
        ex.match_parentheses(start, end);
        if (!ex.expand(start, end, end, 0, buf))
            return line;
        out += buf;
        if (end == ex.text.size())
            break;
        out.push_back('\n');
        start = end + 1;
    }
    char *s = dup_string(out);
    if (!s)
        return line;
    *result = s;
    return 0;
}
