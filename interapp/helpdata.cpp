// Help data hung on widgets: a file, a page and an anchor per widget window.
#include <Xwk/Frame.h>

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
    d->file = file ? XtNewString(file) : nullptr;
    d->page = XtNewString(page ? page : "");
    d->anchor = XtNewString(anchor ? anchor : "");
    XSaveContext(XtDisplay(w), key_of(w), help_context, (XPointer)d);
}

// The help server is not connected yet: asking for help does nothing.
void XwkLoadHelp(Widget w)
{
    (void)w;
}
