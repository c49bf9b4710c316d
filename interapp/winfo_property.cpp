// The windows info property on the root window: reading, publishing,
// removing and parsing its records.
#include <Xwk/Dialogs.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>
#include <Xwk/Windows.h>

#include <X11/Intrinsic.h>
#include <X11/Xatom.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/utsname.h>
#include <unistd.h>

#include "frame/xerrors.h"
#include "interapp/winfo_private.h"
#include "interapp/winfo_text.h"

namespace {

// Property reads are limited to this many 32-bit units.
constexpr long kReadLength = 100000;

Window RootOf(Widget w)
{
    return RootWindowOfScreen(XtScreen(w));
}

void ShowInternalError(Widget w, const char *text)
{
    condit(w, "Error", XWK_KIND_ERROR, smi18n_gettext(text), nullptr, 0, 1, XWK_BUTTONS_OK);
}

void WriteProperty(Widget w, Atom atom, const std::string &text)
{
    XChangeProperty(XtDisplay(w), RootOf(w), atom, XA_STRING, 8, PropModeReplace,
                    (const unsigned char *)text.c_str(), (int)text.size() + 1);
}

}  // namespace

namespace winfo {

char *ReadProperty(Widget w, Atom atom)
{
    Atom type = None;
    int format = 0;
    unsigned long items = 0, after = 0;
    unsigned char *data = nullptr;
    if (XGetWindowProperty(XtDisplay(w), RootOf(w), atom, 0, kReadLength, False, XA_STRING,
                           &type, &format, &items, &after, &data) != Success)
        return nullptr;
    if (type != XA_STRING || format != 8 || !data) {
        if (data)
            XFree(data);
        return nullptr;
    }
    // Xlib ends the data with a NUL of its own, so strlen stays inside.
    if (strlen((char *)data) + 1 != items)
        ShowInternalError(w, "Internal error: Invalid property record length!");
    return (char *)data;
}

}  // namespace winfo

Atom XwkGetWindowsInfoAtom(Widget w, int key)
{
    struct utsname u;
    const char *node = uname(&u) == 0 ? u.nodename : "";
    char name[sizeof u.nodename + 64];
    snprintf(name, sizeof name, "_SMELD_WINDOWS_INFO:%s:%d", node, key);
    return XInternAtom(XtDisplay(w), name, False);
}

void XwkAddWindowProperty(Widget w, int key, const char *title, Window window, Window parent)
{
    if (!w)
        return;
    Display *dpy = XtDisplay(w);
    Atom atom = XwkGetWindowsInfoAtom(w, key);
    XGrabServer(dpy);
    char *old = winfo::ReadProperty(w, atom);
    WriteProperty(w, atom, winfo::Publish(old, title, window, parent, (int)getpid()));
    XFlush(dpy);
    if (old)
        XFree(old);
    XUngrabServer(dpy);
    XFlush(dpy);
}

void XwkDeleteWindowProperty(Widget w, int key, Window window)
{
    if (!w)
        return;
    Display *dpy = XtDisplay(w);
    Atom atom = XwkGetWindowsInfoAtom(w, key);
    XErrorHandler previous = XSetErrorHandler(XwkIgnoreXError);
    XGrabServer(dpy);
    char *old = winfo::ReadProperty(w, atom);
    if (old) {
        std::string text = old;
        if (winfo::Remove(text, window)) {
            WriteProperty(w, atom, text);
            XFlush(dpy);
        }
        XFree(old);
    }
    XUngrabServer(dpy);
    XSync(dpy, False);
    XSetErrorHandler(previous);
}

void XwkDestroyWindowProperty(Widget w, int key)
{
    if (!w)
        return;
    Display *dpy = XtDisplay(w);
    Atom atom = XwkGetWindowsInfoAtom(w, key);
    XGrabServer(dpy);
    XDeleteProperty(dpy, RootOf(w), atom);
    XUngrabServer(dpy);
    XFlush(dpy);
}

namespace winfo {

int ParseRecords(const char *text, WindowsInfoRecord **records, int *parsed)
{
    *records = nullptr;
    *parsed = 0;
    if (!text)
        return 0;
    std::string_view view(text);
    int count = HeaderCount(view);
    if (count <= 0)
        return count;
    WindowsInfoRecord *table = (WindowsInfoRecord *)XtCalloc(count, sizeof *table);
    *parsed = WalkRecords(view, [&](const RecordView &r) {
        WindowsInfoRecord *rec = &table[*parsed];
        rec->self = rec;
        rec->title = XtNewString(std::string(r.title).c_str());
        rec->window = r.window;
        rec->parent = r.parent;
        rec->pid = r.pid;
        ++*parsed;
        return true;
    });
    *records = table;
    return count;
}

}  // namespace winfo

int ParsePropertyString(Widget w, const char *text, WindowsInfoRecord **records)
{
    WindowsInfoRecord *table = nullptr;
    int parsed = 0;
    int count = winfo::ParseRecords(text, &table, &parsed);
    if (records)
        *records = table;
    else
        winfo::FreeRecords(table, count);
    if (parsed != count)
        ShowInternalError(w, "Internal error: Invalid property record found!");
    return count;
}

namespace winfo {

void FreeRecords(WindowsInfoRecord *table, int count)
{
    if (!table)
        return;
    for (int i = 0; i < count; i++)
        XtFree(table[i].title);
    XtFree((char *)table);
}

}  // namespace winfo

void XwkSendClientMsg(Display *display, Window window, Atom type, long data0, long data1)
{
    XEvent ev;
    memset(&ev, 0, sizeof ev);
    ev.xclient.type = ClientMessage;
    ev.xclient.display = display;
    ev.xclient.window = window;
    ev.xclient.message_type = type;
    ev.xclient.format = 32;
    ev.xclient.data.l[0] = data0;
    ev.xclient.data.l[1] = data1;
    XSendEvent(display, window, False, NoEventMask, &ev);
    XFlush(display);
}

Boolean XwkGetSessionID(const char *text, int *first, int *second)
{
    if (first)
        *first = 0;
    if (second)
        *second = 0;
    if (!text)
        return False;
    std::string copy = text;
    stpcvt(copy.data(), XWK_CVT_ALL_SPACE);
    const char *s = copy.c_str();
    const char *comma = strchr(s, ',');
    if (!comma)
        return False;
    if (first)
        *first = (int)strtol(s, nullptr, 10);
    if (second)
        *second = (int)strtol(comma + 1, nullptr, 10);
    return True;
}
