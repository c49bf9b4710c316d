/* The folder: a folder of its own with icons on its tabs, more tabs than
 * fit (reached by the arrows, the keys and the popup list of button 3),
 * and the active tab and page margins in the highlight colour. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>

#include <stdio.h>

#include "pages.h"

static const char *sheet_xpm[] = {
    "12 14 3 1", "  c None", ". c #404040", "+ c #FFFFFF",
    "........    ", ".++++++..   ", ".++++++.+.  ", ".++++++.... ", ".+++++++++. ", ".+.....+++. ",
    ".+++++++++. ", ".+......++. ", ".+++++++++. ", ".+.....+++. ", ".+++++++++. ", ".+++++++++. ",
    "........... ", "            "};

static const char *gear_xpm[] = {
    "14 14 3 1", "  c None", ". c #303848", "+ c #8090B0",
    "      ..      ", "   .. ++ ..   ", "   .++++++.   ", "  .++++++++.  ", " .+++....+++. ",
    "..+++.  .+++..", ".++++.  .++++.", ".++++.  .++++.", "..+++.  .+++..", " .+++....+++. ",
    "  .++++++++.  ", "   .++++++.   ", "   .. ++ ..   ", "      ..      "};

static const char *topics[] = {
    "Overview", "Tabs", "Icons", "Arrows", "Keys", "Popup list", "Callbacks", "Pages at run time",
    "Highlight", "Margins", "Fonts", "Resources", "Children", "Summary",
};

static const char *texts[] = {
    "Each child of a folder is a page; the folder shows one at a time.",
    "A click on a tab shows its page.  The active tab stands higher and opens into the page.",
    "Tabs carry an icon beside their label.",
    "Tabs that do not fit are reached with the arrows at the right; Shift+click changes the page.",
    "Ctrl+PageDown, Ctrl+PageUp and Ctrl+1 to Ctrl+9 change the page, also from inside it.",
    "Button 3 on the tabs, or Ctrl+0, pops up the list of all pages.",
    "changePageCallback tells of every change, deletion and page about to be shown.",
    "Pages can be added and deleted while the folder stands, also from its own callbacks.",
    "With useHighlight the active tab and the page margins take the highlight colour.",
    "folderMarginWidth and folderMarginHeight leave room round a page.",
    "The active tab and the others may use fonts of their own.",
    "All of it can be set from resource files.",
    "With autoManage off, pages are added by the program and children bound to them.",
    "That is the folder.",
};

Widget demo_page_folder(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("folderPage", xmFormWidgetClass, parent, NULL);
    Arg args[3];
    XtSetArg(args[0], XmNuseMenu, True);
    XtSetArg(args[1], XmNuseHighlight, True);
    XtSetArg(args[2], XmNhighlightNonActive, True);
    Widget inner = XmCreateFolder(form, "topics", args, 3);
    XtVaSetValues(inner, XtVaTypedArg, XmNfolderHighlightColor, XmRString, "#dde8f4", 8, NULL);
    XtVaSetValues(inner, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 8, XmNleftAttachment,
                  XmATTACH_FORM, XmNleftOffset, 8, XmNrightAttachment, XmATTACH_FORM,
                  XmNrightOffset, 8, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, 8, NULL);
    XwkIcon *sheet = XwkIconCreateFromData(form, (char **)sheet_xpm);
    XwkIcon *gear = XwkIconCreateFromData(form, (char **)gear_xpm);
    int n = (int)(sizeof topics / sizeof topics[0]);
    for (int i = 0; i < n; i++) {
        XmString label = XmStringCreateLocalized((char *)topics[i]);
        XmString text = XmStringCreateLocalized((char *)texts[i]);
        XtVaCreateManagedWidget("topic", xmLabelWidgetClass, inner, XmNlabelString, text,
                                XmNfolderLabelString, label, XmNfolderLabelIcon,
                                i % 3 == 2 ? gear : sheet, XmNfolderMarginWidth, 6,
                                XmNfolderMarginHeight, 6, XmNwidth, 360, XmNheight, 160,
                                XmNrecomputeSize, False, NULL);
        XmStringFree(label);
        XmStringFree(text);
    }
    XtManageChild(inner);
    return form;
}
