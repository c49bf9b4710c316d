/* The desk list: a folder of files as a grid of icons with the rubber band,
 * a clone of it beside, and a button that fills it with 100,000 files. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>

#include <stdio.h>

#include "pages.h"

static const char *folder_xpm[] = {
    "32 28 3 1", "  c None", ". c #B08020", "+ c #F0D070",
    "                                ", "  .........                     ",
    " .+++++++++.                    ", ".+++++++++++.                   ",
    ".++++++++++++.................. ", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", ".++++++++++++++++++++++++++++++.",
    ".++++++++++++++++++++++++++++++.", " .............................. ",
    "                                ", "                                "};

static const char *file_xpm[] = {
    "24 28 3 1", "  c None", ". c #404040", "+ c #FFFFFF",
    "   ..............       ", "   .++++++++++++..      ", "   .++++++++++++.+.     ",
    "   .++++++++++++.++.    ", "   .++++++++++++.....   ", "   .++++++++++++++++.   ",
    "   .++..........+++.    ", "   .++++++++++++++++.   ", "   .++.........++++.    ",
    "   .++++++++++++++++.   ", "   .++...........++.    ", "   .++++++++++++++++.   ",
    "   .++........+++++.    ", "   .++++++++++++++++.   ", "   .++..........+++.    ",
    "   .++++++++++++++++.   ", "   .++.........++++.    ", "   .++++++++++++++++.   ",
    "   .++...........++.    ", "   .++++++++++++++++.   ", "   .++........+++++.    ",
    "   .++++++++++++++++.   ", "   .++++++++++++++++.   ", "   .++++++++++++++++.   ",
    "   .++++++++++++++++.   ", "   ..................   ", "                        ",
    "                        "};

static XwkIcon *folder_icon, *file_icon;

static const char *names[] = {
    "src", "include", "docs", "tests", "Makefile", "README", "main.c", "desk.c",
    "layout.c", "draw.c", "input.c", "a_rather_long_file_name_that_wraps.txt", "notes.txt",
    "build.sh", "config.ini", "changes.log", "icons", "data.bin", "x", "LICENSE"};

static void fill_many(Widget w, XtPointer client_data, XtPointer call_data)
{
    Widget desk = (Widget)client_data;
    char label[32];
    (void)w;
    (void)call_data;
    XmPrjDeskSetEditable(desk, False);
    XmPrjDeskDeleteAllItems(desk);
    for (int i = 1; i <= 100000; i++) {
        snprintf(label, sizeof label, "file%06d.c", i);
        XmPrjDeskAddItem(desk, label, i % 10 ? file_icon : folder_icon, NULL);
    }
    XmPrjDeskSetEditable(desk, True);
}

static Widget labelled(Widget parent, const char *name, const char *text)
{
    XmString s = XmStringCreateLocalized((char *)text);
    Widget l = XtVaCreateManagedWidget(name, xmLabelWidgetClass, parent, XmNlabelString, s, NULL);
    XmStringFree(s);
    return l;
}

Widget demo_page_desklist(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("desklist", xmFormWidgetClass, parent, XmNwidth, 640,
                                          XmNheight, 420, NULL);
    Widget title = labelled(form, "deskLabel",
                            "Icons: click, Ctrl-click, drag a band from an empty spot; a clone");
    XtVaSetValues(title, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNtopOffset, 6, XmNleftOffset, 6, NULL);
    folder_icon = XwkIconCreateFromData(form, (char **)folder_xpm);
    file_icon = XwkIconCreateFromData(form, (char **)file_xpm);

    Arg args[2];
    XtSetArg(args[0], XmNselectionPolicy, XmMULTIPLE_SELECT);
    Widget desk = XmCreateScrolledDeskList(form, "desk", args, 1);
    XtVaSetValues(XtParent(desk), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, title,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_POSITION,
                  XmNrightPosition, 64, XmNbottomAttachment, XmATTACH_FORM, XmNtopOffset, 4,
                  XmNleftOffset, 6, XmNbottomOffset, 40, NULL);
    for (unsigned i = 0; i < sizeof names / sizeof names[0]; i++)
        XmPrjDeskAddItem(desk, (char *)names[i], i < 4 || i == 16 ? folder_icon : file_icon, NULL);
    XtManageChild(desk);

    XtSetArg(args[0], XmNmother, desk);
    Widget clone = XmCreateScrolledDeskList(form, "clone", args, 1);
    XtVaSetValues(XtParent(clone), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, title,
                  XmNleftAttachment, XmATTACH_POSITION, XmNleftPosition, 65,
                  XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
                  XmNtopOffset, 4, XmNrightOffset, 6, XmNbottomOffset, 40, NULL);
    XtManageChild(clone);

    XmString s = XmStringCreateLocalized("Fill with 100,000 files");
    Widget many = XtVaCreateManagedWidget("many", xmPushButtonWidgetClass, form, XmNlabelString, s,
                                          XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 6,
                                          XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, 6,
                                          NULL);
    XmStringFree(s);
    XtAddCallback(many, XmNactivateCallback, fill_many, (XtPointer)desk);
    return form;
}
