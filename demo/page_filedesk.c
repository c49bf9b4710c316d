/* The file selection desk: a directory of sample files in the detail
 * representation, and a button that opens the dialog on the home
 * directory. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/PushB.h>

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "pages.h"

static const char *sample_dirs[] = {"src", "include", "docs", "tests"};
static const char *sample_files[] = {"Makefile", "README", "main.c", "desk.c", "layout.c",
                                     "notes.txt", "build.sh", "config.ini", "changes.log"};

/* The sample directory, made once under the temporary directory. */
static const char *sample_directory(void)
{
    static char path[512];
    const char *tmp = getenv("TMPDIR");
    snprintf(path, sizeof path, "%s/xwk-demo-files-%u", tmp && *tmp ? tmp : "/tmp",
             (unsigned)getuid());
    mkdir(path, 0755);
    for (size_t i = 0; i < sizeof sample_dirs / sizeof *sample_dirs; i++) {
        char sub[600];
        snprintf(sub, sizeof sub, "%s/%s", path, sample_dirs[i]);
        mkdir(sub, 0755);
    }
    for (size_t i = 0; i < sizeof sample_files / sizeof *sample_files; i++) {
        char file[600];
        snprintf(file, sizeof file, "%s/%s", path, sample_files[i]);
        int fd = open(file, O_CREAT | O_WRONLY, strcmp(sample_files[i], "build.sh") ? 0644 : 0755);
        if (fd >= 0) {
            /* Sizes that show the grouping of digits. */
            if (ftruncate(fd, (off_t)(i * 123457)) != 0)
                perror(file);
            close(fd);
        }
    }
    return path;
}

static void close_dialog(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)client_data;
    (void)call_data;
    XtUnmanageChild(w);
}

static void open_dialog(Widget w, XtPointer client_data, XtPointer call_data)
{
    static Widget dialog;
    (void)client_data;
    (void)call_data;
    if (!dialog) {
        Arg args[8];
        Cardinal n = 0;
        const char *home = getenv("HOME");
        XtSetArg(args[n], XmNdirectory, home && *home ? home : "/"), n++;
        XtSetArg(args[n], XmNstyle, XmFILE_SELECTION_USE_ACTION_AREA), n++;
        XtSetArg(args[n], XmNfilterAppearance, XmAPPEARANCE_ABOVE_FILE_DESK), n++;
        XtSetArg(args[n], XmNselectionAppearance, XmAPPEARANCE_UNDER_DESK), n++;
        XtSetArg(args[n], XmNpatternsDescription, "C sources|*.c;*.h|Texts|*.txt;README"), n++;
        XtSetArg(args[n], XmNwidth, 720), n++;
        XtSetArg(args[n], XmNheight, 480), n++;
        dialog = XmCreateFileSelectionDeskDialog(w, "fileDialog", args, n);
        XtAddCallback(dialog, XmNokCallback, close_dialog, NULL);
        XtAddCallback(dialog, XmNcancelCallback, close_dialog, NULL);
    }
    XtManageChild(dialog);
}

Widget demo_page_filedesk(Widget parent)
{
    Widget form = XtVaCreateWidget("filedeskPage", xmFormWidgetClass, parent, NULL);
    Widget button = XtVaCreateManagedWidget(
        "Open the file dialog on the home directory", xmPushButtonWidgetClass, form,
        XmNleftAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftOffset, 4,
        XmNbottomOffset, 4, NULL);
    XtAddCallback(button, XmNactivateCallback, open_dialog, NULL);
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdirectory, sample_directory()), n++;
    XtSetArg(args[n], XmNrepresentation, XmREPRESENTATION_DETAIL), n++;
    XtSetArg(args[n], XmNtopAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNleftAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNbottomAttachment, XmATTACH_WIDGET), n++;
    XtSetArg(args[n], XmNbottomWidget, button), n++;
    Widget desk = XmCreateFileSelectionDesk(form, "fileDesk", args, n);
    XtManageChild(desk);
    return form;
}
