/*
 * treelist.c - a tree list in a scrolled window on a desk: branches that
 * open and close, rows added in one batch, and a selection callback that
 * reports the row.
 *
 * The desk shows the files of a small project.  Each row the user selects
 * is printed on standard output; OK prints the path of the selected row,
 * Cancel prints "cancelled".  A double click on a branch opens or closes it.
 *
 * Build and run:
 *
 *     cc treelist.c $(pkg-config --cflags --libs xwk) -o treelist
 *     ./treelist
 */
#include <Xwk/Xwk.h>

#include <stdio.h>
#include <string.h>

/* Where the list stands on the work area and how large it is, in
 * centimetres. */
#define LIST_X 0.5f
#define LIST_Y 1.2f
#define LIST_W 7.0f
#define LIST_H 6.0f

/* Raised whenever the current row changes: by a click or the keyboard, and
 * once when the list is realized and its first row becomes current. */
static void selection_changed(Widget w, XtPointer client_data, XtPointer call_data)
{
    XmPrjTreeCallbackStruct *cbs = (XmPrjTreeCallbackStruct *)call_data;
    (void)client_data;
    if (!cbs->node)
        return;                 /* no row is current any more */
    printf("selected: %s\n", XmPrjTreeGetNameItem(w, cbs->node));
}

/* The row's path from the top level, "src/main.c". */
static void row_path(Widget tree, XmPrjTreeNode node, char *out, size_t size)
{
    XmPrjTreeNode parent = XmPrjTreeGetParent(tree, node);
    out[0] = 0;
    if (parent && parent != XmPrjTreeGetRoot(tree)) {
        row_path(tree, parent, out, size);
        strncat(out, "/", size - strlen(out) - 1);
    }
    strncat(out, XmPrjTreeGetNameItem(tree, node), size - strlen(out) - 1);
}

/* Fills the list in one batch: no layout and no painting until the end. */
static void add_rows(Widget tree)
{
    XmPrjTreeNode src, include;

    XmPrjTreeSetEditable(tree, False);
    /* A branch shown open, and one that starts closed. */
    src = XmPrjTreeAddItem(tree, NULL, "src", NULL, NULL, XmSLAM_OPEN, NULL, NULL, NULL);
    XmPrjTreeAddSimpleItemToItem(tree, src, "main.c", NULL, NULL);
    XmPrjTreeAddSimpleItemToItem(tree, src, "util.c", NULL, NULL);
    include = XmPrjTreeAddItem(tree, NULL, "include", NULL, NULL, XmSLAM_CLOSE,
                               NULL, NULL, NULL);
    XmPrjTreeAddSimpleItemToItem(tree, include, "util.h", NULL, NULL);
    /* A top-level leaf. */
    XmPrjTreeAddSimpleItem(tree, "README", NULL);
    XmPrjTreeSetEditable(tree, True);
    XmPrjTreeResizeWindow(tree, True);
}

int main(int argc, char **argv)
{
    XwkDeskRec *desk = NULL;
    Widget tree, window;
    Arg args[1];
    int button = 0;

    xargc = argc;
    xargv = argv;
    CreateDesk(NULL, 2.0f, 2.0f, "Project files|projects#files", &desk);
    if (!desk) {
        fprintf(stderr, "treelist: out of memory\n");
        return 1;
    }
    SetLabel(desk, LIST_X, 0.4f, "Pick a file:", NULL);

    /* Branches open and close: each row shows a state icon, and the rows of
     * a closed branch are hidden. */
    XtSetArg(args[0], XmNcanSlam, True);
    tree = XmCreateScrolledTreeList(desk->work, "files", args, 1);
    XtAddCallback(tree, XmNselectionChanged, selection_changed, NULL);
    add_rows(tree);

    /* The scrolled window is a widget of our own on the work area: it is
     * placed like the desk's controls, attached to the top left corner. */
    window = XtParent(tree);
    XtVaSetValues(window,
                  XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, (int)XwkHeight(LIST_Y),
                  XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, (int)XwkWidth(LIST_X),
                  XmNwidth, (Dimension)XwkWidth(LIST_W), XmNheight, (Dimension)XwkHeight(LIST_H),
                  NULL);
    XtManageChild(tree);

    /* The desk sizes its work area to the controls placed with the Set...
     * functions; a widget of our own is counted in by hand. */
    if (desk->extent_w < XwkWidth(LIST_X + LIST_W))
        desk->extent_w = XwkWidth(LIST_X + LIST_W);
    if (desk->extent_h < XwkHeight(LIST_Y + LIST_H))
        desk->extent_h = XwkHeight(LIST_Y + LIST_H);

    OpenDesk(desk);
    do
        UseDesk(desk, &button);
    while (button == 0);

    if (button == 1) {
        /* The current row, the one the user selected last. */
        XmPrjTreeNode node = XmPrjTreeGetSelectedItem(tree);
        char path[256];
        if (node) {
            row_path(tree, node, path, sizeof path);
            printf("chosen: %s\n", path);
        } else {
            printf("chosen: nothing\n");
        }
    } else if (button == 2) {
        printf("cancelled\n");
    }
    if (button != -1)
        CloseDesk(desk);
    return 0;
}
