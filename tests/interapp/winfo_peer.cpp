// A small client of the family for the windows tests: each mode is another
// application on the test's X server, driven through its argv and stdin.
//   publish KEY N TAG   N windows: publish, retitle, remove the odd ones
//   orphan KEY TAG      publishes a window, then destroys the window
//   family KEY TAG      a window and a child window of it; on stdin
//                       "retitle" appends "+" to both titles, "drop"
//                       removes the child
//   child               follows "_SMELD_VISIBILITY" with a shell and a pop-up
//   busy                says busy on each line "busy" read from stdin
// Each prints one line beginning "ready" and runs until stdin closes.
#include <Xwk/Xwk.h>

#include <Xm/Form.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>

#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <string>

namespace {

Widget shell;
Display *dpy;
int family_key;
Window family_top, family_child;
std::string family_tag;

Window NewWindow()
{
    return XCreateSimpleWindow(dpy, DefaultRootWindow(dpy), 0, 0, 10, 10, 0, 0, 0);
}

void ReadStdin(XtPointer, int *fd, XtInputId *)
{
    char line[64];
    ssize_t n = read(*fd, line, sizeof line - 1);
    if (n <= 0)
        exit(0);
    line[n] = 0;
    if (strncmp(line, "busy", 4) == 0) {
        XwkSetBusyStatus(shell, True);
    } else if (strncmp(line, "retitle", 7) == 0) {
        family_tag += "+";
        XwkAddWindowProperty(shell, family_key, family_tag.c_str(), family_top, 0);
        XwkAddWindowProperty(shell, family_key, (family_tag + "-child").c_str(), family_child,
                             family_top);
    } else if (strncmp(line, "drop", 4) == 0) {
        XwkDeleteWindowProperty(shell, family_key, family_child);
    }
    printf("done\n");
    fflush(stdout);
}

void FollowParent(Widget w, XtPointer, XEvent *event)
{
    XwkProcessWindowVisibility(w, event);
}

void AddArea(Widget parent)
{
    XtVaCreateManagedWidget("area", xmFormWidgetClass, parent, XmNwidth, 80, XmNheight, 60, NULL);
}

void Publish(int key, int n, const char *tag)
{
    std::string title;
    for (int i = 0; i < n; i++) {
        Window w = NewWindow();
        title = std::string(tag) + "-" + std::to_string(i);
        XwkAddWindowProperty(shell, key, title.c_str(), w, 0);
        XwkAddWindowProperty(shell, key, (title + "*").c_str(), w, 0);
        if (i % 2)
            XwkDeleteWindowProperty(shell, key, w);
    }
    printf("ready\n");
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    XtAppContext app;
    int xc = 1;
    shell = XtVaAppInitialize(&app, "WinfoPeer", nullptr, 0, &xc, argv, nullptr, NULL);
    XwkInitialize(app, shell);
    dpy = XtDisplay(shell);
    std::string mode = argv[1];
    int key = argc > 2 ? atoi(argv[2]) : 0;
    if (mode == "publish" && argc > 4) {
        Publish(key, atoi(argv[3]), argv[4]);
    } else if (mode == "orphan" && argc > 3) {
        Window w = NewWindow();
        XwkAddWindowProperty(shell, key, argv[3], w, 0);
        XDestroyWindow(dpy, w);
        XSync(dpy, False);
        printf("ready %lu\n", w);
    } else if (mode == "family" && argc > 3) {
        family_key = key;
        family_tag = argv[3];
        family_top = NewWindow();
        family_child = NewWindow();
        XwkAddWindowProperty(shell, key, family_tag.c_str(), family_top, 0);
        XwkAddWindowProperty(shell, key, (family_tag + "-child").c_str(), family_child,
                             family_top);
        printf("ready %lu %lu\n", family_top, family_child);
    } else if (mode == "child") {
        AddArea(shell);
        Widget popup = XtVaCreatePopupShell("popup", topLevelShellWidgetClass, shell, NULL);
        AddArea(popup);
        XtRealizeWidget(shell);
        XtPopup(popup, XtGrabNone);
        XSelectInput(dpy, DefaultRootWindow(dpy), PropertyChangeMask);
        XwkAddEventHandler(shell, (unsigned)DefaultRootWindow(dpy), PropertyNotify,
                           offsetof(XPropertyEvent, window), FollowParent, nullptr);
        XSync(dpy, False);
        printf("ready %lu %lu\n", XtWindow(shell), XtWindow(popup));
    } else if (mode == "busy") {
        AddArea(shell);
        XtRealizeWidget(shell);
        XSync(dpy, False);
        printf("ready %lu\n", XtWindow(shell));
    } else {
        return 2;
    }
    fflush(stdout);
    XtAppAddInput(app, 0, (XtPointer)XtInputReadMask, ReadStdin, nullptr);
    XwkAppMainLoop(app);
    return 0;
}
