// String-driven helpers of control building: parameter lists, argument
// lists and accelerator strings.
#include <Xwk/Desk.h>
#include <Xwk/Dialogs.h>
#include <Xwk/Ini.h>
#include <Xwk/Text.h>

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <string>

namespace {

const int kQuotesArePlain = 16;

char escaped(char c)
{
    if (c == 'n')
        return '\n';
    if (c == 't')
        return '\t';
    return c;
}

void report_missing_parameter()
{
    const char *text = smi18n_gettext("Not enough one or more parameters.");
    if (xwkConfigFileName && *xwkConfigFileName && xwkConfigFileLine) {
        std::string where = std::string(xwkConfigFileName) + "(" +
                            std::to_string(xwkConfigFileLine) + "):  " + text;
        condit(nullptr, "Error", 1, where.c_str(), nullptr, 0, 1, 2);
        return;
    }
    condit(nullptr, "Error", 1, text, nullptr, 0, 1, 2);
}

// One word of a command line from *p into word; false at the end.
bool next_word(const char **p, std::string *word)
{
    const char *s = *p;
    while (*s && isspace((unsigned char)*s))
        s++;
    if (!*s) {
        *p = s;
        return false;
    }
    word->clear();
    char quote = 0;
    for (; *s; s++) {
        char c = *s;
        if (c == '\\') {
            if (!s[1]) {
                s++;  // a backslash at the very end stands for nothing
                break;
            }
            *word += *++s;
        } else if (quote) {
            if (c == quote)
                quote = 0;
            else
                *word += c;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (isspace((unsigned char)c)) {
            break;
        } else {
            *word += c;
        }
    }
    *p = s;
    return true;
}

}  // namespace

int GetParameterExt(const char *source, char *destination, int index, int mode)
{
    if (!source || !destination)
        return 0;
    int wanted = index < 0 ? -index : index;
    int ended = 0;
    char *d = destination;
    char quote = 0;
    const char *s = source;
    for (;;) {
        char c = *s;
        if (c == '\\') {
            if (s[1]) {
                *d++ = escaped(s[1]);
                s += 2;
                continue;
            }
            c = *++s;  // a backslash at the very end stands for nothing
        }
        if (!c || (!quote && (c == ',' || c == ';'))) {
            *d = 0;
            ended++;
            if (ended == wanted || !c)
                break;
            d = destination;
            for (s++; *s && isspace((unsigned char)*s); s++)
                ;
            continue;
        }
        s++;
        if (quote) {
            if (c == quote) {
                // What follows the closing quote goes on behind its zero byte.
                *d++ = 0;
                quote = 0;
            } else {
                *d++ = c;
            }
        } else if ((c == '"' || c == '\'') && mode != kQuotesArePlain) {
            quote = c;
            d = destination;
        } else {
            *d++ = c;
        }
    }
    if (ended != wanted && index > 0) {
        report_missing_parameter();
        return 0;
    }
    return ended;
}

int GetParameter(const char *source, char *destination, int index)
{
    return GetParameterExt(source, destination, index, 9999);
}

char **XwkCreateArgList(const char *string)
{
    if (!string)
        return nullptr;
    size_t slots = 8, used = 0;
    char **args = (char **)malloc(slots * sizeof *args);
    if (!args)
        return nullptr;
    args[0] = nullptr;
    const char *p = string;
    std::string word;
    bool any = false;
    while (next_word(&p, &word) || !any) {
        any = true;
        // One slot always stays free for the ending null.
        if (used + 1 == slots) {
            char **grown = (char **)realloc(args, 2 * slots * sizeof *args);
            if (!grown) {
                XwkDestroyArgList(args);
                return nullptr;
            }
            args = grown;
            slots *= 2;
        }
        args[used] = strdup(word.c_str());
        if (!args[used]) {
            XwkDestroyArgList(args);
            return nullptr;
        }
        args[++used] = nullptr;
        word.clear();
    }
    return args;
}

void XwkDestroyArgList(char **args)
{
    if (!args)
        return;
    for (char **a = args; *a; a++)
        free(*a);
    free(args);
}

char *XwkCreateAcc(const char *text)
{
    if (!text || strcasecmp(text, "none") == 0)
        return nullptr;
    const char *split = strchr(text, '-');
    if (!split)
        split = strchr(text, '+');
    std::string out;
    if (split)
        out = std::string(text, (size_t)(split - text)) + " <Key>" + (split + 1);
    else
        out = std::string("<Key>") + text;
    return XtNewString(out.c_str());
}

char *XwkCreateAccText(const char *text)
{
    if (!text || strcmp(text, "none") == 0)
        return nullptr;
    return XtNewString(text);
}
