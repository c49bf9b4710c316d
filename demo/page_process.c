/* The processes page: a command line run from the event loop, its failure
 * in a message box; the same command on a pseudo-terminal with its output
 * shown; and a Help button that opens the help server. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <unistd.h>

#include "pages.h"

typedef struct {
    Widget command;
    Widget output;
    int master;
    pid_t pid;
    XtInputId input;
} ProcessPage;

static void append_output(ProcessPage *page, const char *text)
{
    XmTextInsert(page->output, XmTextGetLastPosition(page->output), (char *)text);
    XmTextShowPosition(page->output, XmTextGetLastPosition(page->output));
}

static void run_done(Widget w, XtPointer data, const char *path)
{
    char line[1100];
    /* A NULL widget: the page went while the program ran. */
    if (!w)
        return;
    snprintf(line, sizeof line, "`%s' ended.\n", path);
    append_output((ProcessPage *)data, line);
}

static void run_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    ProcessPage *page = client_data;
    XwkRunDoneRec done = {run_done, page};
    char *command = XmTextFieldGetString(page->command);
    (void)call_data;
    if (XwkRunProcessDefaultProc(w, command, &done) < 0)
        append_output(page, "The command could not be started.\n");
    XtFree(command);
}

static void pty_report(XtPointer data, const char *format, const char *argument)
{
    char line[512];
    snprintf(line, sizeof line, format, argument ? argument : "");
    append_output((ProcessPage *)data, line);
}

static void pty_readable(XtPointer client_data, int *fd, XtInputId *id)
{
    ProcessPage *page = client_data;
    char buffer[4096];
    ssize_t n = read(*fd, buffer, sizeof buffer - 1);
    (void)id;
    if (n < 0 && errno == EAGAIN)
        return;
    if (n > 0) {
        /* The terminal ends lines with CR LF; the text wants LF. */
        ssize_t out = 0;
        for (ssize_t i = 0; i < n; i++)
            if (buffer[i] != '\r')
                buffer[out++] = buffer[i];
        buffer[out] = '\0';
        append_output(page, buffer);
        return;
    }
    /* The slave's last holder went: the child has ended. */
    int status = 0;
    XtRemoveInput(page->input);
    close(page->master);
    waitpid(page->pid, &status, 0);
    page->master = -1;
    append_output(page, WIFEXITED(status) && WEXITSTATUS(status) == 0 ? "[done]\n" : "[failed]\n");
}

static void pty_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    ProcessPage *page = client_data;
    char *slave = NULL;
    (void)w;
    (void)call_data;
    if (page->master >= 0)
        return;
    int master = XwkPtyOpen(&slave, pty_report, page);
    if (!master)
        return;
    char *command = XmTextFieldGetString(page->command);
    pid_t pid = fork();
    if (pid == 0) {
        setsid();
        int fd = open(slave, O_RDWR);
        if (fd < 0)
            _exit(1);
        XwkPtyChildInit(fd);
        dup2(fd, 0);
        dup2(fd, 1);
        dup2(fd, 2);
        close(master);
        execl("/bin/sh", "sh", "-c", command, (char *)NULL);
        _exit(127);
    }
    XtFree(command);
    if (pid < 0) {
        close(master);
        return;
    }
    XwkPtyParentInit(master);
    page->master = master;
    page->pid = pid;
    page->input = XtAppAddInput(XtWidgetToApplicationContext(page->output), master,
                                (XtPointer)XtInputReadMask, pty_readable, page);
}

static void page_destroyed(Widget w, XtPointer client_data, XtPointer call_data)
{
    ProcessPage *page = client_data;
    (void)w;
    (void)call_data;
    if (page->master >= 0) {
        XtRemoveInput(page->input);
        close(page->master);
        waitpid(page->pid, NULL, 0);
    }
    XtFree((char *)page);
}

static void help_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)client_data;
    (void)call_data;
    XwkLoadHelp(w);
}

static Widget add_button(Widget row, const char *label, XtCallbackProc proc, XtPointer data)
{
    XmString s = XmStringCreateLocalized((char *)label);
    Widget b = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, row, XmNlabelString, s,
                                       NULL);
    XmStringFree(s);
    XtAddCallback(b, XmNactivateCallback, proc, data);
    return b;
}

Widget demo_page_process(Widget parent)
{
    ProcessPage *page = (ProcessPage *)XtCalloc(1, sizeof *page);
    page->master = -1;
    Widget form = XtVaCreateManagedWidget("process", xmFormWidgetClass, parent, NULL);
    XtAddCallback(form, XmNdestroyCallback, page_destroyed, page);
    XwkSetHelpData(form, NULL, "process", "status");
    XmString s = XmStringCreateLocalized("Command:");
    Widget label = XtVaCreateManagedWidget(
        "label", xmLabelWidgetClass, form, XmNlabelString, s, XmNtopAttachment, XmATTACH_FORM,
        XmNtopOffset, 10, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 8, NULL);
    XmStringFree(s);
    page->command = XtVaCreateManagedWidget(
        "command", xmTextFieldWidgetClass, form, XmNvalue, "ls -l /usr", XmNcolumns, 40,
        XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 6, XmNleftAttachment, XmATTACH_WIDGET,
        XmNleftWidget, label, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 8, NULL);
    Widget row = XtVaCreateManagedWidget(
        "buttons", xmRowColumnWidgetClass, form, XmNorientation, XmHORIZONTAL, XmNtopAttachment,
        XmATTACH_WIDGET, XmNtopWidget, page->command, XmNleftAttachment, XmATTACH_FORM, NULL);
    add_button(row, "Run", run_pressed, page);
    add_button(row, "Run on a terminal", pty_pressed, page);
    add_button(row, "Help", help_pressed, NULL);

    Arg args[10];
    int n = 0;
    XtSetArg(args[n], XmNeditMode, XmMULTI_LINE_EDIT), n++;
    XtSetArg(args[n], XmNeditable, False), n++;
    XtSetArg(args[n], XmNrows, 14), n++;
    XtSetArg(args[n], XmNwordWrap, True), n++;
    XtSetArg(args[n], XmNscrollHorizontal, False), n++;
    XtSetArg(args[n], XmNtopAttachment, XmATTACH_WIDGET), n++;
    XtSetArg(args[n], XmNtopWidget, row), n++;
    XtSetArg(args[n], XmNleftAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNbottomAttachment, XmATTACH_FORM), n++;
    page->output = XmCreateScrolledText(form, "output", args, n);
    XtManageChild(page->output);
    append_output(page, "Run shows failures in a message box; on a terminal the output "
                         "comes here.\n");
    return form;
}
