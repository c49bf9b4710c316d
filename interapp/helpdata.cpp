// Help data hung on widgets: a file, a page and an anchor per widget window.
#include <Xwk/Frame.h>
#include <Xwk/Help.h>
#include <Xwk/Strings.h>

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>
#include <X11/Xutil.h>

#include <stdint.h>

namespace {

struct HelpData {
    char *file;
    char *page;
    char *anchor;
};

XContext help_context;

void free_help_data(HelpData *d)
{
    XtFree(d->file);
    XtFree(d->page);
    XtFree(d->anchor);
    XtFree((char *)d);
}

// Records are keyed by widget, not window: a widget may get help data before
// it is realized.
XID key_of(Widget w)
{
    return (XID)(uintptr_t)w;
}

void forget_help_data(Widget w, XtPointer, XtPointer)
{
    XPointer data = nullptr;
    if (XFindContext(XtDisplay(w), key_of(w), help_context, &data) != 0)
        return;
    XDeleteContext(XtDisplay(w), key_of(w), help_context);
    free_help_data((HelpData *)data);
}

}  // namespace

void XwkSetHelpData(Widget w, const char *file, const char *page, const char *anchor)
{
    if (!w || w->core.being_destroyed)
        return;
    if (!help_context)
        help_context = XUniqueContext();
    XPointer old = nullptr;
    if (XFindContext(XtDisplay(w), key_of(w), help_context, &old) == 0)
        free_help_data((HelpData *)old);
    else
        XtAddCallback(w, XtNdestroyCallback, forget_help_data, nullptr);
    HelpData *d = (HelpData *)XtMalloc(sizeof *d);
    if (!file)
        file = XwkFindPath("$(C_SMELD)/c-smeld.help", ".:..");
    d->file = file ? XtNewString(file) : nullptr;
    d->page = XtNewString(page ? page : "");
    d->anchor = XtNewString(anchor ? anchor : "");
    XSaveContext(XtDisplay(w), key_of(w), help_context, (XPointer)d);
}

namespace {

bool is_unset(const char *s)
{
    return !s || !*s;
}

bool is_empty_string(const char *s)
{
    return s && !*s;
}

void fill_unset(char **field, char *value)
{
    if (is_unset(*field))
        *field = value;
}

}  // namespace

Boolean XwkGetHelpData(Widget w, char **file, char **page, char **anchor)
{
    char *f = nullptr, *p = nullptr, *a = nullptr;
    Boolean found = False;
    if (help_context && w && !w->core.being_destroyed) {
        for (Widget at = w; at; at = XtParent(at)) {
            XPointer data = nullptr;
            if (XFindContext(XtDisplay(at), key_of(at), help_context, &data) != 0)
                continue;
            HelpData *d = (HelpData *)data;
            fill_unset(&f, d->file);
            fill_unset(&p, d->page);
            fill_unset(&a, d->anchor);
            // Further ancestors only complete an anchor whose file or page is blank.
            if (is_unset(a) || (!is_empty_string(f) && !is_empty_string(p))) {
                found = True;
                break;
            }
        }
    }
    if (file) *file = f;
    if (page) *page = p;
    if (anchor) *anchor = a;
    return found;
}

void XwkLoadHelp(Widget w)
{
    if (w && !w->core.being_destroyed)
        XwkShowHelp(w);
}
