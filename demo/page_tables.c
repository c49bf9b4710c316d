/* Tables: a spreadsheet with editable cells of every type, and a file-list
 * table whose columns sort, resize and move, with its layout string shown
 * and restorable. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>

#include <stdio.h>

#include "pages.h"

static const char *on_xpm[] = {
    "12 12 3 1", "  c None", ". c #205020", "+ c #60C060",
    "............", ".++++++++++.", ".+++++++++..", ".++++++++.+.", ".+.++++++.+.", ".+..+++..++.",
    ".++.+..+.++.", ".++..+..+++.", ".+++...++++.", ".++++.+++++.", ".++++++++++.", "............"};
static const char *off_xpm[] = {
    "12 12 2 1", "  c None", ". c #404040",
    "............", ".          .", ".          .", ".          .", ".          .", ".          .",
    ".          .", ".          .", ".          .", ".          .", ".          .", "............"};
static const char *disk_xpm[] = {
    "12 12 3 1", "  c None", ". c #202060", "+ c #A0A0E0",
    "............", ".++......++.", ".++......++.", ".++......++.", ".++++++++++.", ".++++++++++.",
    ".+........+.", ".+.++++++.+.", ".+........+.", ".+.++++++.+.", ".+........+.", "............"};

static XwkIcon *on_icon, *off_icon, *disk_icon;
static XmString colours[4];
static Widget layout_label, table;
static char saved_layout[1024];

static void show_layout(void)
{
    char *layout = XmPrjTreeGetColumnsLayoutString(table);
    char text[1200];
    snprintf(text, sizeof text, "Layout: %s", layout ? layout : "(none)");
    XtFree(layout);
    XmString s = XmStringCreateLocalized(text);
    XtVaSetValues(layout_label, XmNlabelString, s, NULL);
    XmStringFree(s);
}

static void save_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)client_data;
    (void)call_data;
    char *layout = XmPrjTreeGetColumnsLayoutString(table);
    snprintf(saved_layout, sizeof saved_layout, "%s", layout ? layout : "");
    XtFree(layout);
    show_layout();
}

static void restore_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)client_data;
    (void)call_data;
    if (saved_layout[0])
        XmPrjTreeSetColumnsLayoutString(table, saved_layout);
    show_layout();
}

/* The layout is first saved once the table stands, its widths measured. */
static void table_mapped(Widget w, XtPointer client_data, XEvent *event, Boolean *go_on)
{
    (void)client_data;
    (void)go_on;
    if (event->type != MapNotify)
        return;
    XtRemoveEventHandler(w, StructureNotifyMask, False, table_mapped, NULL);
    save_pressed(NULL, NULL, NULL);
}

/* A click on a toggle cell: the application flips its picture. */
static void sheet_activated(Widget w, XtPointer client_data, XtPointer call_data)
{
    XmPrjTreeCallbackStruct *cbs = (XmPrjTreeCallbackStruct *)call_data;
    (void)client_data;
    if (cbs->cellType != XmCELL_TOGGLE_ICON || !cbs->node)
        return;
    XwkIcon *now = XmPrjTreeGetColumnIcon(w, cbs->node, cbs->column);
    XmPrjTreeSetColumnIcon(w, cbs->node, cbs->column, now == on_icon ? off_icon : on_icon);
}

static Widget button(Widget parent, const char *name, const char *text)
{
    XmString s = XmStringCreateLocalized((char *)text);
    Widget b = XtVaCreateManagedWidget(name, xmPushButtonWidgetClass, parent, XmNlabelString, s,
                                       NULL);
    XmStringFree(s);
    return b;
}

static Widget make_sheet(Widget form)
{
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNvisualMode, XmSPREADSHEET); n++;
    XtSetArg(args[n], XmNnumColumns, 7); n++;
    XtSetArg(args[n], XmNdelimeter, '|'); n++;
    XtSetArg(args[n], XmNtitleString, "Label|Icon|Toggle|Text|Combo|List|Button"); n++;
    XtSetArg(args[n], XmNshowGrid, True); n++;
    XtSetArg(args[n], XmNvisibleLines, 8); n++;
    Widget sheet = XmCreateScrolledTreeList(form, "sheet", args, n);
    static const int types[7] = {XmCELL_LABEL, XmCELL_ICON, XmCELL_TOGGLE_ICON, XmCELL_EDIT_TEXT,
                                 XmCELL_DROP_DOWN_COMBO_BOX, XmCELL_DROP_DOWN_LIST,
                                 XmCELL_PUSH_BUTTON};
    colours[0] = XmStringCreateLocalized("red");
    colours[1] = XmStringCreateLocalized("green");
    colours[2] = XmStringCreateLocalized("blue");
    colours[3] = XmStringCreateLocalized("yellow");
    XmPrjTreeSetComboBoxItems(sheet, 5, colours, 4);
    XmPrjTreeSetComboBoxItems(sheet, 6, colours, 4);
    for (int c = 0; c < 7; c++)
        XmPrjTreeSetColumnType(sheet, c + 1, types[c], c == 6 ? 1 : 0);
    for (int c = 1; c <= 7; c++)
        XmPrjTreeSetTitleItemWidth(sheet, c, c == 1 || c == 4 ? 80 : 60);
    for (int r = 1; r <= 12; r++) {
        char label[128];
        snprintf(label, sizeof label, "Row %d|||edit me %d|||Run %d", r, r, r);
        XmPrjTreeNode node = XmPrjTreeAddItem(sheet, NULL, label, NULL, NULL, XmSLAM_UNDEFINED,
                                              NULL, NULL, NULL);
        XmPrjTreeSetColumnIcon(sheet, node, 2, disk_icon);
        XmPrjTreeSetColumnIcon(sheet, node, 3, r % 2 ? on_icon : off_icon);
        XmPrjTreeSetColumnComboBoxPosition(sheet, node, 6, 1 + r % 4);
    }
    XtAddCallback(sheet, XmNactivateCallback, sheet_activated, NULL);
    return sheet;
}

static Widget make_table(Widget form)
{
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNvisualMode, XmTABLE_LIST); n++;
    XtSetArg(args[n], XmNnumColumns, 5); n++;
    XtSetArg(args[n], XmNdelimeter, '|'); n++;
    XtSetArg(args[n], XmNtitleString, "Name|Size|Date|Owner|Type"); n++;
    XtSetArg(args[n], XmNuseSort, True); n++;
    XtSetArg(args[n], XmNvisibleLines, 8); n++;
    Widget t = XmCreateScrolledTreeList(form, "table", args, n);
    XmPrjTreeSetAllColumnsSortable(t, True);
    static const char *owners[] = {"anna", "bert", "carl"};
    static const char *kinds[] = {"C source", "text", "image", "archive"};
    XmPrjTreeSetEditable(t, False);
    for (int i = 0; i < 200; i++) {
        char label[128];
        snprintf(label, sizeof label, "file%03d.%c|%d|2024-%02d-%02d|%s|%s", (i * 37) % 200,
                 "ctxz"[i % 4], (i * 7919) % 100000, 1 + i % 12, 1 + i % 28, owners[i % 3],
                 kinds[i % 4]);
        XmPrjTreeAddSimpleItem(t, label, NULL);
    }
    XmPrjTreeSetEditable(t, True);
    return t;
}

Widget demo_page_tables(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("tables", xmFormWidgetClass, parent, XmNwidth, 820,
                                          XmNheight, 520, NULL);
    on_icon = XwkIconCreateFromData(form, (char **)on_xpm);
    off_icon = XwkIconCreateFromData(form, (char **)off_xpm);
    disk_icon = XwkIconCreateFromData(form, (char **)disk_xpm);

    XmString s = XmStringCreateLocalized("A spreadsheet: every cell type; arrows, Tab, "
                                         "Page Up/Down move the active cell");
    Widget sheet_label = XtVaCreateManagedWidget("sheetLabel", xmLabelWidgetClass, form,
                                                 XmNlabelString, s, XmNtopAttachment,
                                                 XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                                                 XmNtopOffset, 6, XmNleftOffset, 6, NULL);
    XmStringFree(s);
    Widget sheet = make_sheet(form);
    XtVaSetValues(XtParent(sheet), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, sheet_label,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_POSITION, XmNbottomPosition, 48, XmNleftOffset, 6,
                  XmNrightOffset, 6, XmNtopOffset, 4, NULL);
    XtManageChild(sheet);

    Widget save = button(form, "save", "Save layout");
    XtVaSetValues(save, XmNtopAttachment, XmATTACH_POSITION, XmNtopPosition, 50,
                  XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 6, NULL);
    Widget restore = button(form, "restore", "Restore layout");
    XtVaSetValues(restore, XmNtopAttachment, XmATTACH_POSITION, XmNtopPosition, 50,
                  XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, save, XmNleftOffset, 6, NULL);
    s = XmStringCreateLocalized("Layout:");
    layout_label = XtVaCreateManagedWidget("layout", xmLabelWidgetClass, form, XmNlabelString, s,
                                           XmNalignment, XmALIGNMENT_BEGINNING, XmNtopAttachment,
                                           XmATTACH_WIDGET, XmNtopWidget, save, XmNleftAttachment,
                                           XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                                           XmNleftOffset, 6, XmNtopOffset, 4, NULL);
    XmStringFree(s);
    table = make_table(form);
    XtVaSetValues(XtParent(table), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, layout_label,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_FORM, XmNleftOffset, 6, XmNrightOffset, 6,
                  XmNbottomOffset, 6, XmNtopOffset, 4, NULL);
    XtManageChild(table);
    XtAddCallback(save, XmNactivateCallback, save_pressed, NULL);
    XtAddCallback(restore, XmNactivateCallback, restore_pressed, NULL);
    XtAddEventHandler(table, StructureNotifyMask, False, table_mapped, NULL);
    return form;
}
