/*
 * desk.c - a desk form: controls placed in centimetres, the default OK,
 * Cancel and Help buttons, and a UseDesk loop that reads the fields on OK.
 *
 * The desk asks who should receive a report, how many copies to print and
 * whether to send a copy to the user as well.  OK prints the answers on
 * standard output, Cancel prints "cancelled".
 *
 * Build and run:
 *
 *     cc desk.c $(pkg-config --cflags --libs xwk) -o desk
 *     ./desk
 */
#include <Xwk/Xwk.h>

#include <stdio.h>

int main(int argc, char **argv)
{
    XwkDeskRec *desk = NULL;
    XwkDeskItem *name_field = NULL, *copies_field = NULL, *copy_box = NULL;
    char name[40 + 1] = "";     /* an edit field of 40 characters needs 41 bytes */
    long copies = 1;
    int copy_to_me[1] = {0};    /* one state per toggle of the check box */
    int button = 0;

    /* The first desk of a process starts Xt with these arguments. */
    xargc = argc;
    xargv = argv;

    /* Title "Send report", help page "reports", anchor "recipient".  The
     * position is that of the desk on the screen, in centimetres. */
    CreateDesk(NULL, 2.0f, 2.0f, "Send report|reports#recipient", &desk);
    if (!desk) {
        fprintf(stderr, "desk: out of memory\n");
        return 1;
    }

    /* Each control is placed at its distance from the top left corner of
     * the work area, in centimetres. */
    SetLabel(desk, 0.5f, 0.5f, "Who should receive the report?", NULL);
    /* A gap of 0 puts the field right behind its title.  The initial value
     * is read now; GetEditField reads the field back later. */
    SetEditField(desk, 0.5f, 1.5f, "Name:", 0.0f, name, XWK_FIELD_STRING,
                 (int)sizeof name - 1, 24, &name_field);
    SetEditField(desk, 0.5f, 2.75f, "Copies:", 0.0f, &copies, XWK_FIELD_LONG, 3, 4,
                 &copies_field);
    /* Items are packed strings; a check box of a single item has no frame. */
    SetCheckBox(desk, 0.5f, 4.0f, NULL, "Send a copy to me", 1, copy_to_me, &copy_box);

    /* OK gives 1, Cancel 2; Help opens the page named in the title. */
    OpenDesk(desk);

    /* Each call runs one event; button stays 0 until a button is pressed. */
    do
        UseDesk(desk, &button);
    while (button == 0);

    switch (button) {
    case 1:
        /* Read the controls while the desk is still open: their records go
         * with the desk. */
        GetEditField(name_field, name);
        GetEditField(copies_field, &copies);
        GetCheckBox(copy_box, copy_to_me);
        printf("name: %s\n", name);
        printf("copies: %ld\n", copies);
        printf("copy to me: %s\n", copy_to_me[0] ? "yes" : "no");
        break;
    case 2:
        printf("cancelled\n");
        break;
    default:
        /* -1: the window went away; the desk is closed already. */
        printf("window closed\n");
        return 0;
    }
    CloseDesk(desk);
    return 0;
}
