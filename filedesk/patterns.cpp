// Filter patterns: the groups of patternsDescription, the user's own row,
// globs compiled to POSIX regular expressions, and matching.
#include "filedesk/filedesk_private.h"

#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include <cstring>
#include <string>

namespace {

bool SlotCompiled(const regex_t *slot)
{
    static const regex_t zero{};
    return std::memcmp(slot, &zero, sizeof zero) != 0;
}

void FreeSlot(regex_t *slot)
{
    if (SlotCompiled(slot))
        regfree(slot);
    std::memset(slot, 0, sizeof *slot);
}

void ClearRow(FsdPattern *row)
{
    for (int i = 0; i < row->count; i++) {
        XtFree(row->globs[i]);
        FreeSlot(&row->regexes[i]);
    }
    XtFree(reinterpret_cast<char *>(row->globs));
    XtFree(reinterpret_cast<char *>(row->regexes));
    row->globs = nullptr;
    row->regexes = nullptr;
    row->count = 0;
}

// Stores a glob with a zeroed slot; returns the slot.
regex_t *AddGlob(FsdPattern *row, const char *glob, size_t length)
{
    size_t n = size_t(row->count) + 1;
    row->globs = reinterpret_cast<char **>(
        XtRealloc(reinterpret_cast<char *>(row->globs), Cardinal(n * sizeof(char *))));
    row->regexes = reinterpret_cast<regex_t *>(
        XtRealloc(reinterpret_cast<char *>(row->regexes), Cardinal(n * sizeof(regex_t))));
    char *copy = XtMalloc(Cardinal(length + 1));
    std::memcpy(copy, glob, length);
    copy[length] = '\0';
    row->globs[row->count] = copy;
    regex_t *slot = &row->regexes[row->count];
    std::memset(slot, 0, sizeof *slot);
    row->count++;
    return slot;
}

FsdPattern *NewRow(const char *name)
{
    FsdPattern *row = reinterpret_cast<FsdPattern *>(XtCalloc(1, sizeof(FsdPattern)));
    row->name = XtNewString(name);
    return row;
}

void FreeRow(FsdPattern *row)
{
    if (!row)
        return;
    ClearRow(row);
    XtFree(row->name);
    XtFree(row->text);
    XtFree(reinterpret_cast<char *>(row));
}

// Reads the patterns of one group from p up to the "|" that starts the
// next group or the end; returns where the next group name starts.
const char *ParseGroupPatterns(FsdPattern *row, const char *p)
{
    std::string text;
    while (*p && *p != '|') {
        size_t length = std::strcspn(p, ";|");
        if (row->count > 0)
            text += "; ";
        text.append(p, length);
        regex_t *slot = AddGlob(row, p, length);
        FsdCompilePattern(slot, row->globs[row->count - 1]);
        p += length;
        if (*p == ';')
            p++;
    }
    row->text = XtNewString(text.c_str());
    return *p == '|' ? p + 1 : p;
}

// Reads the groups of a text as new rows.
void ParseGroups(std::vector<FsdPattern *> *rows, const char *p)
{
    while (*p) {
        size_t length = std::strcspn(p, "|");
        std::string name(p, length);
        rows->push_back(NewRow(smi18n_gettext(name.c_str())));
        p += length;
        if (*p == '|')
            p = ParseGroupPatterns(rows->back(), p + 1);
        else
            rows->back()->text = XtNewString("");
    }
}

} // namespace

extern "C" char *XwkRemoveAllSpaces(char *text)
{
    return stpcvt(text, XWK_CVT_ALL_SPACE);
}

Boolean FsdCompilePattern(regex_t *slot, const char *glob)
{
    if (!glob || !*glob) {
        FreeSlot(slot);
        return True;
    }
    char *expression = XwkGetMatchPattern(glob);
    XwkRemoveAllSpaces(expression);
    regex_t compiled;
    int status = regcomp(&compiled, expression, REG_NOSUB);
    XtFree(expression);
    if (status != 0)
        return False;
    FreeSlot(slot);
    *slot = compiled;
    return True;
}

Boolean FsdSetPatternText(FsdPattern *row, const char *text, int *failures)
{
    if (failures)
        *failures = 0;
    if (!text)
        text = "";
    if (row->text && std::strncmp(row->text, text, kFsdPatternCompareLength) == 0)
        return False;
    ClearRow(row);
    XtFree(row->text);
    row->text = XtNewString(text);
    for (const char *p = text;;) {
        size_t length = std::strcspn(p, ";");
        regex_t *slot = AddGlob(row, p, length);
        if (!FsdCompilePattern(slot, row->globs[row->count - 1]) && failures)
            (*failures)++;
        if (!p[length])
            break;
        p += length + 1;
    }
    return True;
}

int FsdBuildPatterns(const char *description, const char *pattern, FsdPattern ***table,
                     int *user_failures)
{
    std::vector<FsdPattern *> rows;
    rows.push_back(NewRow(smi18n_gettext("User Pattern")));
    FsdSetPatternText(rows[0], pattern, user_failures);
    // The last group always shows every file, unless the description has
    // that group somewhere already.  It is read on its own, so that a
    // description ending in a bare name or a "|" still gets it whole.
    std::string all = std::string(smi18n_gettext("All files")) + "|*";
    if (description && *description) {
        ParseGroups(&rows, description);
        if (!std::strstr(description, all.c_str()))
            ParseGroups(&rows, all.c_str());
    } else {
        ParseGroups(&rows, all.c_str());
    }
    FsdPattern **result =
        reinterpret_cast<FsdPattern **>(XtMalloc(Cardinal(rows.size() * sizeof(FsdPattern *))));
    std::memcpy(result, rows.data(), rows.size() * sizeof(FsdPattern *));
    *table = result;
    return int(rows.size()) - 1;
}

void FsdFreePatterns(FsdPattern **table, int pattern_count)
{
    if (!table)
        return;
    for (int i = 0; i <= pattern_count; i++)
        FreeRow(table[i]);
    XtFree(reinterpret_cast<char *>(table));
}

XmString *FsdPatternNameStrings(FsdPattern **table, int pattern_count)
{
    if (!table || pattern_count <= 0)
        return nullptr;
    XmString *strings =
        reinterpret_cast<XmString *>(XtMalloc(Cardinal(size_t(pattern_count) * sizeof(XmString))));
    for (int i = 0; i < pattern_count; i++)
        strings[i] = XmStringCreateLocalized(table[i + 1]->name);
    return strings;
}

Boolean FsdPatternMatches(const FsdPattern *row, const char *name)
{
    if (!row || !name)
        return False;
    for (int i = 0; i < row->count; i++) {
        const regex_t *slot = &row->regexes[i];
        if (SlotCompiled(slot) && regexec(slot, name, 0, nullptr, 0) == 0)
            return True;
    }
    return False;
}

int FsdFindPatternRow(FsdPattern **table, int pattern_count, const char *text)
{
    if (!table || !text)
        return 0;
    for (int i = 1; i <= pattern_count; i++) {
        const char *row_text = table[i]->text ? table[i]->text : "";
        if (std::strncmp(row_text, text, kFsdPatternCompareLength) == 0)
            return i;
    }
    return 0;
}
