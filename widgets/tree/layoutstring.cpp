// The columns layout string, "label:position,width;..." in display order,
// by which applications save and restore the order, the first shown column
// and the widths of the columns.
#include "widgets/tree/tree.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using namespace xwk::tree;

namespace {

// A width left out: the column keeps the width it has.
constexpr long kKeepWidth = -999999;

XmPrjTreeColumnRec *ColumnByLabel(Widget w, const char *label, size_t len)
{
    XmPrjTreePart &m = M(w);
    for (XwkListNode *e = m.columns->first; e; e = e->next) {
        const char *l = ColumnOf(e)->label ? ColumnOf(e)->label : "";
        if (strlen(l) == len && !strncmp(l, label, len))
            return ColumnOf(e);
    }
    return nullptr;
}

// A decimal number of a field, clamped to the range of an int; `found`
// tells whether the field held digits at all.
long Number(const char *s, const char *end, bool *found)
{
    while (s < end && (*s == ' ' || *s == '\t'))
        s++;
    std::string text(s, end);
    char *stop = nullptr;
    errno = 0;
    long value = strtol(text.c_str(), &stop, 10);
    *found = stop != text.c_str();
    if (errno == ERANGE || value > INT_MAX)
        value = value < 0 ? INT_MIN : INT_MAX;
    if (value < INT_MIN)
        value = INT_MIN;
    return value;
}

}  // namespace

extern "C" {

char *XmPrjTreeGetColumnsLayoutString(Widget w)
{
    if (!IsTree(w) || !Alive(w) || !M(w).title || !M(w).columns || M(w).columns->count < 2)
        return nullptr;
    XmPrjTreePart &m = M(w);
    size_t size = 1;
    int first = 0, index = 0;
    for (XwkListNode *e = m.columns->first; e; e = e->next, index++) {
        size += 15 + strlen(ColumnOf(e)->label ? ColumnOf(e)->label : "");
        if (e == m.title->firstColumn)
            first = index;
    }
    char *out = XtCalloc(size, 1);
    size_t used = 0;
    index = 0;
    for (XwkListNode *e = m.columns->first; e; e = e->next, index++) {
        XmPrjTreeColumnRec *c = ColumnOf(e);
        int n = snprintf(out + used, size - used, "%s:%d,%d;", c->label ? c->label : "",
                         index - first, (int)c->width);
        if (n < 0 || (size_t)n >= size - used)
            break;
        used += (size_t)n;
    }
    if (used && out[used - 1] == ';')
        out[used - 1] = 0;
    return out;
}

int XmPrjTreeCheckLayoutString(Widget w, char *string)
{
    if (!IsTree(w) || !Alive(w) || !M(w).columns || !string)
        return 0;
    int count = 0;
    char *p = string;
    while (*p) {
        char *colon = strchr(p, ':');
        if (!colon)
            break;
        *colon = 0;
        bool known = ColumnByLabel(w, p, strlen(p)) != nullptr;
        *colon = ':';
        if (!known)
            break;
        char *semicolon = strchr(colon + 1, ';');
        char *comma = strchr(colon + 1, ',');
        if (!comma || (semicolon && comma > semicolon))
            break;
        count++;
        if (!semicolon)
            break;
        p = semicolon + 1;
    }
    return count;
}

int XmPrjTreeSetColumnsLayoutString(Widget w, const char *string)
{
    if (!IsTree(w) || !Alive(w) || !M(w).title || !M(w).columns || !string)
        return 0;
    XmPrjTreePart &m = M(w);
    int limit = m.columns->count;
    std::vector<XmPrjTreeColumnRec *> order;
    XmPrjTreeColumnRec *first = nullptr;
    int read = 0;
    const char *p = string;
    while (*p && read < limit) {
        const char *end = strchr(p, ';');
        if (!end)
            end = p + strlen(p);
        const char *colon = (const char *)memchr(p, ':', (size_t)(end - p));
        if (!colon)
            break;
        const char *comma = (const char *)memchr(colon + 1, ',', (size_t)(end - colon - 1));
        read++;
        XmPrjTreeColumnRec *c = ColumnByLabel(w, p, (size_t)(colon - p));
        bool found = false;
        long position = Number(colon + 1, comma ? comma : end, &found);
        long width = kKeepWidth;
        if (comma) {
            const char *v = comma + 1;
            bool percent = v < end && *v == '%';
            bool has = false;
            long value = Number(percent ? v + 1 : v, end, &has);
            if (has && percent)
                value = (long)w->core.width / 4 / 25 * value;
            if (has)
                width = value;
        }
        if (c && std::find(order.begin(), order.end(), c) == order.end()) {
            order.push_back(c);
            if (found && position == 0)
                first = c;
            if (width != kKeepWidth && width >= 0)
                c->width = (Dimension)std::min(width, 0xffffL);
        }
        p = *end ? end + 1 : end;
    }
    if (!order.empty()) {
        // The columns named come first, in the string's order; the others
        // follow as they stood.
        std::vector<XmPrjTreeColumnRec *> all = order;
        for (XwkListNode *e = m.columns->first; e; e = e->next)
            if (std::find(order.begin(), order.end(), ColumnOf(e)) == order.end())
                all.push_back(ColumnOf(e));
        XwkListNode *old_first = m.title->firstColumn;
        XmPrjTreeColumnRec *shown_first = old_first ? ColumnOf(old_first) : nullptr;
        while (m.columns->first)
            l_cut(m.columns, m.columns->first);
        for (XmPrjTreeColumnRec *c : all)
            c->element = l_append(m.columns, (XtPointer)c);
        if (first)
            shown_first = first;
        m.title->firstColumn = shown_first ? shown_first->element : m.columns->first;
        m.columnsPermuted = True;
    }
    if (read && !P(w).dontMove) {
        RepaintTitles(w);
        RepaintRows(w);
    }
    return read;
}

}  // extern "C"
