/*
 * msgbox.c - message boxes: a standard question with bold markup whose
 * answer decides what follows, and a box with buttons of its own.
 *
 * The program plays the end of an editing session: it asks whether to save
 * notes.txt.  Yes confirms the save in an information box; No asks, in a
 * box with three buttons of its own, what to do with the changes.  Each
 * answer is printed on standard output.
 *
 * This program starts Xt itself and hands the application to the library
 * with XwkInitialize, as any application with a main window of its own does.
 *
 * Build and run:
 *
 *     cc msgbox.c $(pkg-config --cflags --libs xwk) -o msgbox
 *     ./msgbox
 */
#include <Xwk/Xwk.h>

#include <stdio.h>

/* ^b in a message turns bold on and off.  It shows only when the render
 * table defines the tag "BOLD", so the application brings one along. */
static String fallback_resources[] = {
    "*renderTable: DEFAULT, BOLD",
    "*renderTable.DEFAULT.fontName: -*-helvetica-medium-r-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.DEFAULT.fontType: FONT_IS_FONT",
    "*renderTable.BOLD.fontName: -*-helvetica-bold-r-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.BOLD.fontType: FONT_IS_FONT",
    NULL,
};

int main(int argc, char **argv)
{
    XtAppContext app;
    Widget shell = XtVaAppInitialize(&app, "MsgBox", NULL, 0, &argc, argv,
                                     fallback_resources, NULL);
    /* Before anything else of the library. */
    XwkInitialize(app, shell);

    /* A NULL parent puts the box on the present desk or, as here, on the
     * application shell.  The call waits until the box is answered. */
    int save = XwkShowStdDialog(NULL, NULL, "Save the changes to ^bnotes.txt^b?",
                                XWK_DIALOG_QUESTION);
    if (save < 0) {
        fprintf(stderr, "msgbox: no message box could be shown\n");
        return 1;
    }

    if (save == 1) {
        printf("save: yes\n");
        /* ... write the file here ... */
        XwkShowStdDialog(NULL, NULL, "^bnotes.txt^b has been saved.",
                         XWK_DIALOG_INFORMATION);
        printf("saved\n");
        return 0;
    }

    /* 0 is No, or the window manager's close: leave the file as it is. */
    printf("save: no\n");

    /* Labels of our own are packed strings, with button set
     * XWK_BUTTONS_LABELS.  A label containing "Cancel" becomes the box's
     * cancel button (Escape).  Button 1 is the default (Return). */
    static const char labels[] = "Discard\0Keep a copy\0Cancel";
    static const char *const names[] = {"discard", "keep a copy", "cancel"};
    int choice = condit(NULL, "Unsaved changes", XWK_KIND_WARNING,
                        "The changes to ^bnotes.txt^b have not been saved.\n"
                        "What should become of them?",
                        labels, 3, 1, XWK_BUTTONS_LABELS);
    if (choice >= 1 && choice <= 3)
        printf("changes: %s\n", names[choice - 1]);
    else if (choice == 0)
        printf("changes: box closed\n");    /* the window manager's close */
    else
        return 1;                           /* no box could be shown */
    return 0;
}
