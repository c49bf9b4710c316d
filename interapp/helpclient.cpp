// The help client: finds or starts the help server and hands it a widget's
// help data through a selection the server watches.
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>
#include <Xwk/Help.h>
#include <Xwk/Process.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>
#include <X11/Xatom.h>

#include <errno.h>
#include <signal.h>
#include <stdio.h>
#include <string.h>
#include <strings.h>
#include <sys/utsname.h>

#include <string>

int xwkHelpPID;
char *xwkHelpCmdLineFlags;

namespace {

const char *const kTargetNames[] = {"_SMELD_HELP_FILE", "_SMELD_HELP_PAGE", "_SMELD_HELP_ANCHOR"};

bool is_alive(int pid)
{
    if (pid <= 0)
        return false;
    errno = 0;
    return kill(pid, 0) == 0 || errno == EPERM;
}

Atom help_selection(Display *dpy)
{
    struct utsname u;
    std::string name = "_SMELD_HELP";
    if (uname(&u) == 0)
        name = std::string(u.nodename) + ":" + name;
    return XInternAtom(dpy, name.c_str(), False);
}

void show_error(Widget w, const char *text)
{
    XwkShowStdDialog(w, "Error", smi18n_gettext(text), XWK_DIALOG_ERROR);
}

// Only the last server started goes with the application: an earlier one
// is dead, and its process id may be another's by now.
Widget watched_shell;
int watched_pid;

void kill_server(Widget, XtPointer client_data, XtPointer)
{
    kill((int)(long)client_data, SIGTERM);
    watched_shell = nullptr;
}

void watch_server(Widget shell, int pid)
{
    if (watched_shell)
        XtRemoveCallback(watched_shell, XtNdestroyCallback, kill_server,
                         (XtPointer)(long)watched_pid);
    watched_shell = shell;
    watched_pid = pid;
    XtAddCallback(shell, XtNdestroyCallback, kill_server, (XtPointer)(long)pid);
}

Widget application_shell(Widget w)
{
    while (XtParent(w))
        w = XtParent(w);
    return w;
}

// The command line of a new server; empty when the help data is missing.
std::string server_command(Widget w, const char *program)
{
    std::string command = std::string(program) + " -display " + DisplayString(XtDisplay(w));
    if (xwkHelpCmdLineFlags)
        command += std::string(" ") + xwkHelpCmdLineFlags;
    char *file = nullptr, *page = nullptr, *anchor = nullptr;
    XwkGetHelpData(w, &file, &page, &anchor);
    if (!file)
        return "";
    if (strcasecmp(file, "-man") == 0) {
        command += " -man";
    } else {
        const char *found = XwkFindPath(file, ".:..");
        if (!found)
            return "";
        command += std::string(" ") + found;
    }
    if (page && *page)
        command += std::string(" ") + page;
    if (anchor && *anchor)
        command += std::string(" ") + anchor;
    Colormap colormap = 0;
    XtVaGetValues(XtIsWidget(w) ? w : XtParent(w), XtNcolormap, &colormap, NULL);
    command += " -geometry -0+0 -colormap " + std::to_string((long)colormap);
    // The command line has always been a buffer of 1024 bytes.
    if (command.size() > 1023)
        command.resize(1023);
    return command;
}

// Failures are reported in a box; the caller goes on to own the selection
// all the same.
void start_server(Widget w)
{
    xwkHelpPID = 0;
    const char *found = XwkFindPath("$(C_SMELD)/c-smeld_hs", ".:..");
    if (!found) {
        show_error(w, "Help system is not available!");
        return;
    }
    // XwkFindPath's result lives in a buffer the next search reuses.
    std::string program = found;
    std::string command = server_command(w, program.c_str());
    if (command.empty()) {
        show_error(w, "Help data is not available!");
        return;
    }
    int pid = XwkRunProcess(w, command.c_str());
    if (pid <= 0)
        return;
    xwkHelpPID = pid;
    watch_server(application_shell(w), pid);
}

// The object whose help is asked for; a gadget owns through its parent.
Widget asker;

void forget_asker(Widget, XtPointer, XtPointer)
{
    asker = nullptr;
}

void set_asker(Widget w)
{
    if (asker == w)
        return;
    if (asker)
        XtRemoveCallback(asker, XtNdestroyCallback, forget_asker, nullptr);
    asker = w;
    XtAddCallback(w, XtNdestroyCallback, forget_asker, nullptr);
}

char *copy_of(const char *s, unsigned long *length)
{
    *length = strlen(s);
    char *copy = XtMalloc((Cardinal)*length + 1);
    memcpy(copy, s, *length + 1);
    return copy;
}

Boolean convert_help(Widget owner, Atom *, Atom *target, Atom *type, XtPointer *value,
                     unsigned long *length, int *format)
{
    Display *dpy = XtDisplay(owner);
    char *data[3] = {};
    if (!XwkGetHelpData(asker ? asker : owner, &data[0], &data[1], &data[2]))
        return False;
    Atom targets[4] = {XInternAtom(dpy, "TARGETS", False)};
    for (int i = 0; i < 3; i++)
        targets[i + 1] = XInternAtom(dpy, kTargetNames[i], False);
    if (*target == targets[0]) {
        // Format 32 data travels as longs in Xt.
        long *list = (long *)XtMalloc(sizeof(long) * 4);
        for (int i = 0; i < 4; i++)
            list[i] = (long)targets[i];
        *value = (XtPointer)list;
        *type = XA_ATOM;
        *length = 4;
        *format = 32;
        return True;
    }
    for (int i = 0; i < 3; i++) {
        if (*target != targets[i + 1])
            continue;
        if (!data[i])
            return False;
        *value = copy_of(data[i], length);
        *type = *target;
        *format = 8;
        return True;
    }
    return False;
}

}  // namespace

int XwkGetHelpPIDProperty(Widget widget, const char *atom_name)
{
    if (!widget || !atom_name)
        return 0;
    Display *dpy = XtDisplay(widget);
    Atom atom = XInternAtom(dpy, atom_name, False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    XGrabServer(dpy);
    int status = XGetWindowProperty(dpy, DefaultRootWindow(dpy), atom, 0, 100000, False,
                                    AnyPropertyType, &type, &format, &count, &after, &data);
    XUngrabServer(dpy);
    XFlush(dpy);
    int pid = 0;
    if (status == Success && data && type == atom && format == 32 && count == 1)
        pid = (int)*(long *)data;
    if (data)
        XFree(data);
    return pid;
}

Boolean XwkShowHelp(Widget widget)
{
    if (!widget || widget->core.being_destroyed)
        return False;
    set_asker(widget);
    if (!is_alive(xwkHelpPID)) {
        xwkHelpPID = XwkGetHelpPIDProperty(widget, "_SMELD_HELP_PID");
        if (!is_alive(xwkHelpPID))
            start_server(widget);
        // A failure box waits in a loop of its own, in which the widget may go.
        if (asker != widget)
            return False;
    }
    Widget owner = widget;
    while (owner && !XtIsWidget(owner))
        owner = XtParent(owner);
    if (!owner || !XtIsRealized(owner))
        return False;
    Display *dpy = XtDisplay(owner);
    Atom selection = help_selection(dpy);
    Time time = XtLastTimestampProcessed(dpy);
    // Xt skips a repeated ownership with the same owner and time; the
    // server learns of a request only through a new ownership.
    if (XGetSelectionOwner(dpy, selection) == XtWindow(owner))
        XtDisownSelection(owner, selection, time);
    return XtOwnSelection(owner, selection, time, convert_help, nullptr, nullptr);
}
