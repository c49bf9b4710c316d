/* The tree list: a deep tree with icons and branches that open and close,
 * and a button that fills a flat list with a million rows. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>

#include <stdio.h>

#include "pages.h"

static const char *folder_xpm[] = {
    "16 14 3 1", "  c None", ". c #B08020", "+ c #F0D070",
    "                ", " .....          ", ".+++++.         ", ".++++++........ ",
    ".+++++++++++++. ", ".+++++++++++++. ", ".+++++++++++++. ", ".+++++++++++++. ",
    ".+++++++++++++. ", ".+++++++++++++. ", ".+++++++++++++. ", ".+++++++++++++. ",
    " .............  ", "                "};

static const char *file_xpm[] = {
    "16 14 3 1", "  c None", ". c #404040", "+ c #FFFFFF",
    "   ........     ", "   .+++++..     ", "   .+++++.+.    ", "   .+++++....   ",
    "   .++++++++.   ", "   .+.....++.   ", "   .++++++++.   ", "   .+......+.   ",
    "   .++++++++.   ", "   .+.....++.   ", "   .++++++++.   ", "   .++++++++.   ",
    "   ..........   ", "                "};

static XwkIcon *folder_icon, *file_icon;

/* Five levels, three branches each, leaves holding files. */
static void add_branch(Widget tree, XmPrjTreeNode parent, int depth, const char *prefix)
{
    char label[64];
    for (int i = 1; i <= 3; i++) {
        snprintf(label, sizeof label, "%.40s%d", prefix, i);
        if (depth == 0) {
            XmPrjTreeAddItem(tree, parent, label, file_icon, NULL, XmSLAM_UNDEFINED, NULL, NULL, NULL);
            continue;
        }
        XmPrjTreeNode node = XmPrjTreeAddItem(tree, parent, label, folder_icon, NULL,
                                              depth > 2 ? XmSLAM_OPEN : XmSLAM_CLOSE, NULL, NULL,
                                              NULL);
        char next[64];
        snprintf(next, sizeof next, "%.50s.", label);
        add_branch(tree, node, depth - 1, next);
    }
}

static void fill_million(Widget w, XtPointer client_data, XtPointer call_data)
{
    Widget tree = (Widget)client_data;
    char label[32];
    (void)w;
    (void)call_data;
    XmPrjTreeSetEditable(tree, False);
    XmPrjTreeDeleteAllItems(tree);
    for (int i = 1; i <= 1000000; i++) {
        snprintf(label, sizeof label, "Row %d", i);
        XmPrjTreeAddSimpleItem(tree, label, NULL);
    }
    XmPrjTreeSetEditable(tree, True);
    XmPrjTreeResizeWindow(tree, True);
}

static Widget labelled(Widget parent, const char *name, const char *text)
{
    XmString s = XmStringCreateLocalized((char *)text);
    Widget l = XtVaCreateManagedWidget(name, xmLabelWidgetClass, parent, XmNlabelString, s, NULL);
    XmStringFree(s);
    return l;
}

Widget demo_page_treelist(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("treelist", xmFormWidgetClass, parent, XmNwidth, 640,
                                          XmNheight, 420, NULL);
    Widget deep_label = labelled(form, "deepLabel", "A deep tree: space, Ctrl-Up, Ctrl-Down");
    XtVaSetValues(deep_label, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNtopOffset, 6, XmNleftOffset, 6, NULL);
    folder_icon = XwkIconCreateFromData(form, (char **)folder_xpm);
    file_icon = XwkIconCreateFromData(form, (char **)file_xpm);

    Arg args[2];
    XtSetArg(args[0], XmNcanSlam, True);
    Widget deep = XmCreateScrolledTreeList(form, "deep", args, 1);
    XtVaSetValues(XtParent(deep), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, deep_label,
                  XmNleftAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_POSITION, XmNrightPosition, 50, XmNleftOffset, 6,
                  XmNbottomOffset, 6, XmNtopOffset, 4, NULL);
    XmPrjTreeSetEditable(deep, False);
    add_branch(deep, NULL, 4, "Folder ");
    XmPrjTreeSetEditable(deep, True);
    XtManageChild(deep);

    Widget button = XtVaCreateManagedWidget("fill", xmPushButtonWidgetClass, form, NULL);
    XmString s = XmStringCreateLocalized("Fill with a million rows");
    XtVaSetValues(button, XmNlabelString, s, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 4,
                  XmNleftAttachment, XmATTACH_POSITION, XmNleftPosition, 50, XmNleftOffset, 6,
                  NULL);
    XmStringFree(s);
    XtSetArg(args[0], XmNselectionPolicy, XmMULTIPLE_SELECT);
    Widget flat = XmCreateScrolledTreeList(form, "flat", args, 1);
    XtVaSetValues(XtParent(flat), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, button,
                  XmNleftAttachment, XmATTACH_POSITION, XmNleftPosition, 50,
                  XmNbottomAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNleftOffset, 6, XmNrightOffset, 6, XmNbottomOffset, 6, XmNtopOffset, 4, NULL);
    XmPrjTreeAddSimpleItem(flat, "Press the button above", NULL);
    XtManageChild(flat);
    XtAddCallback(button, XmNactivateCallback, fill_million, (XtPointer)flat);
    return form;
}
