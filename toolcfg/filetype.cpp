// File type rules: a rule file, read once per process, that maps a file's
// name or first bytes to an action and an argument, and holds named options.
#include <Xwk/Text.h>
#include "toolcfg/filetype.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int max_rules = 250;
constexpr size_t head_size = 4096;

struct FileTypeRule {
    char kind;                     // '.', '!', '^', '?' or '['
    char *pattern;                 // for '[': the option's value
    char *action;
    char *argument;                // for '[': the option's name
    int byte;                      // for '?'
};

// Every string of the table points into rule_text, which is kept for the
// life of the process; a non-null rule_text means the file has been read.
FileTypeRule rules[max_rules];
int rule_count;
char *rule_text;

bool is_blank(char c)
{
    return c == ' ' || c == '\t';
}

char *skip_blanks(char *p)
{
    while (is_blank(*p))
        p++;
    return p;
}

char *skip_line(char *p)
{
    while (*p && *p != '\n')
        p++;
    return *p ? p + 1 : p;
}

// Cuts the text at p and returns what follows, staying on the end of the text.
char *cut(char *p, char &behind)
{
    behind = *p;
    if (!*p)
        return p;
    *p = '\0';
    return p + 1;
}

// The action and optional argument that end a rule line; nullptr on a
// syntax error.  Returns where the next line starts.
char *parse_action(char *p, FileTypeRule &rule)
{
    p = skip_blanks(p);
    if (*p == '\n' || !*p)
        return nullptr;
    rule.action = p;
    while (*p && *p != ',' && *p != '\n')
        p++;
    char behind;
    p = cut(p, behind);
    if (behind != ',')
        return p;
    p = skip_blanks(p);
    rule.argument = p;
    while (*p && !is_blank(*p) && *p != '\n')
        p++;
    p = cut(p, behind);
    return behind == '\n' || !behind ? p : skip_line(p);
}

// "!" and "^": the text behind the character, quoted or up to white space.
// A line that ends with the pattern has no action.
char *parse_head_rule(char *p, FileTypeRule &rule)
{
    p++;
    char behind;
    if (*p == '"') {
        rule.pattern = ++p;
        while (*p && *p != '"')
            p++;
        p = cut(p, behind);
        if (!behind)
            return nullptr;
    } else {
        rule.pattern = p;
        while (*p && !is_blank(*p) && *p != '\n')
            p++;
        p = cut(p, behind);
        if (behind == '\n' || !behind)
            return nullptr;
    }
    return parse_action(p, rule);
}

// ".", "," and "?": a pattern up to the first blank or tab.  A newline does
// not end it; a line without blank runs on into the next one, as the format
// always has.
char *parse_name_rule(char *p, FileTypeRule &rule)
{
    rule.pattern = p;
    while (*p && !is_blank(*p))
        p++;
    char behind;
    p = cut(p, behind);
    if (!behind)
        return nullptr;
    return parse_action(p, rule);
}

// "[name]value"; a line without "]" is skipped.  Returns nullptr for a
// skipped line, and where the next line starts otherwise.
char *parse_option(char *p, FileTypeRule &rule)
{
    char *name = p + 1;
    char *close = name;
    while (*close && *close != '\n' && *close != ']')
        close++;
    if (*close != ']')
        return nullptr;
    *close = '\0';
    char *value = close + 1;
    char *end = value;
    while (*end && *end != '\n')
        end++;
    char behind;
    char *next = cut(end, behind);
    rule.argument = name;
    rule.pattern = value;
    rule.action = value;
    return next;
}

// Fills the table from text; 0, or -2 on a syntax error, keeping the rules
// stored before it.
int parse_rules(char *p)
{
    while (*p && rule_count < max_rules) {
        FileTypeRule rule = {};
        rule.kind = *p;
        char *next = nullptr;
        switch (*p) {
        case ' ': case '\t': case '#': case ';':
            p = skip_line(p);
            continue;
        case '\n':
            p++;
            continue;
        case '!': case '^':
            next = parse_head_rule(p, rule);
            break;
        case '.':
            next = parse_name_rule(p, rule);
            break;
        case ',':
            rule.kind = '.';
            next = parse_name_rule(p + 1, rule);
            break;
        case '?':
            // The byte has always been read at the '?' itself, so it is 0:
            // the rule finds binary files.  Kept for compatibility.
            rule.byte = 0;
            next = parse_name_rule(p + 1, rule);
            break;
        case '[':
            next = parse_option(p, rule);
            if (!next) {
                p = skip_line(p);
                continue;
            }
            break;
        default:
            return -2;
        }
        if (!next)
            return -2;
        rules[rule_count++] = rule;
        p = next;
    }
    return 0;
}

int load_rules(const char *rule_file)
{
    if (rule_text)
        return 0;
    if (!rule_file)
        return 1;
    int fd = open(rule_file, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return -1;
    struct stat st;
    if (fstat(fd, &st) != 0) {
        close(fd);
        return -3;
    }
    size_t size = st.st_size > 0 ? size_t(st.st_size) : 0;
    char *text = static_cast<char *>(std::malloc(size + 1));
    if (!text) {
        close(fd);
        return -4;
    }
    size_t got = 0;
    while (got < size) {
        ssize_t n = read(fd, text + got, size - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        got += size_t(n);
    }
    close(fd);
    if (got == 0) {
        std::free(text);
        return -4;
    }
    text[got] = '\0';
    rule_text = text;
    return parse_rules(text);
}

// The first bytes of the file being looked up, read at most once per lookup;
// a file that cannot be read counts as empty.
struct FileHead {
    const char *name;
    bool read_done = false;
    size_t size = 0;
    char bytes[head_size];

    explicit FileHead(const char *n) : name(n) {}

    std::string_view get()
    {
        if (!read_done) {
            read_done = true;
            load();
        }
        return std::string_view(bytes, size);
    }

    void load()
    {
        // O_NONBLOCK keeps a FIFO without a writer from stalling the lookup.
        int fd = open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (fd < 0)
            return;
        while (size < head_size) {
            ssize_t n = read(fd, bytes + size, head_size - size);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0)
                break;
            size += size_t(n);
        }
        close(fd);
    }

    // The first line, as a C string would see it; none without a newline.
    bool first_line(std::string_view &line)
    {
        std::string_view head = get();
        size_t nl = head.find('\n');
        if (nl == std::string_view::npos)
            return false;
        line = head.substr(0, nl);
        line = line.substr(0, line.find('\0'));
        return true;
    }
};

bool head_rule_fits(const FileTypeRule &rule, FileHead &head)
{
    std::string_view line;
    if (!head.first_line(line))
        return false;
    if (rule.kind == '^')
        return line.starts_with(rule.pattern);
    return line.starts_with("#!") && line.find(rule.pattern) != std::string_view::npos;
}

} // namespace

int CheckFileType(const char *rule_file, const char *name, char **action, char **argument,
                  int flags)
{
    if (action)
        *action = nullptr;
    if (argument)
        *argument = nullptr;
    int loaded = load_rules(rule_file);
    if (loaded != 0)
        return loaded;
    if (!name)
        return 1;

    FileHead head(name);
    size_t len = std::strlen(name);
    char *found_action = nullptr;
    char *found_argument = nullptr;
    char *fallback_action = nullptr;
    char *fallback_argument = nullptr;
    for (int i = 0; i < rule_count && !found_action; i++) {
        const FileTypeRule &rule = rules[i];
        switch (rule.kind) {
        case '.': {
            // A pattern starting with '>' or '&' is compared from its second
            // character at its full length, so it never fits; kept as it is.
            std::string_view pattern(rule.pattern);
            size_t skip = pattern[0] == '>' || pattern[0] == '&' ? 1 : 0;
            if (len < pattern.size() ||
                std::string_view(name + len - pattern.size(), pattern.size()) != pattern.substr(skip))
                break;
            if (rule.action[0] == '&') {
                fallback_action = rule.action + 1;
                fallback_argument = rule.argument;
            } else if (rule.action[0] != '>') {
                found_action = rule.action;
                found_argument = rule.argument;
            } else if (flags & 1) {
                found_action = rule.action + 1;
                found_argument = rule.argument;
            } else {
                len -= pattern.size();
            }
            break;
        }
        case '?':
            if (!(flags & 2) && head.get().find(char(rule.byte)) != std::string_view::npos) {
                found_action = rule.action;
                found_argument = rule.argument;
            }
            break;
        case '^':
        case '!':
            if (!(flags & 2) && head_rule_fits(rule, head)) {
                found_action = rule.action;
                found_argument = rule.argument;
            }
            break;
        default:
            break;
        }
    }
    if (!found_action) {
        if (!fallback_action)
            return 1;
        found_action = fallback_action;
        found_argument = fallback_argument;
    }
    if (action)
        *action = found_action;
    if (argument)
        *argument = found_argument;
    return 0;
}

char *GetModuleOption(const char *rule_file, const char *name)
{
    if (load_rules(rule_file) != 0 || !name)
        return nullptr;
    for (int i = 0; i < rule_count; i++)
        if (rules[i].kind == '[' && std::strcmp(rules[i].argument, name) == 0)
            return rules[i].pattern;
    return nullptr;
}

void XwkFileTypeUnload(void)
{
    std::free(rule_text);
    rule_text = nullptr;
    rule_count = 0;
}
