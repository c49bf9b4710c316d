/* Companion widgets: combo boxes of the three kinds offered and a paned
 * window whose orientation a button switches. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>

#include "pages.h"

static const char *colours[] = {"Red", "Green", "Blue", "Cyan", "Magenta", "Yellow", "Orange",
                                "Purple", "Brown", "Grey", "Black", "White"};

static Widget make_combo(Widget parent, const char *name, unsigned char type)
{
    XmString items[12];
    int n = (int)(sizeof colours / sizeof colours[0]);
    for (int i = 0; i < n; i++)
        items[i] = XmStringCreateLocalized((char *)colours[i]);
    Arg args[4];
    Cardinal k = 0;
    XtSetArg(args[k], XmNcomboBoxType, type); k++;
    XtSetArg(args[k], XmNitems, items); k++;
    XtSetArg(args[k], XmNitemCount, n); k++;
    XtSetArg(args[k], XmNvisibleItemCount, 6); k++;
    Widget combo = XwkCreateComboBox(parent, (String)name, args, k);
    for (int i = 0; i < n; i++)
        XmStringFree(items[i]);
    XtManageChild(combo);
    return combo;
}

static void popup_menu(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)call_data;
    Dimension height = 0;
    XtVaGetValues(w, XmNheight, &height, NULL);
    /* The popup list is placed relative to its combo box, the button's neighbour. */
    XwkComboBoxPopupList((Widget)client_data, 0, (Position)(-(int)height / 2));
}

static void toggle_orientation(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)call_data;
    XwkTogglePanedWindowOrientation((Widget)client_data);
}

static Widget labelled(Widget parent, const char *text)
{
    XmString s = XmStringCreateLocalized((char *)text);
    Widget l = XtVaCreateManagedWidget("label", xmLabelWidgetClass, parent, XmNlabelString, s, NULL);
    XmStringFree(s);
    return l;
}

Widget demo_page_companions(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("companions", xmFormWidgetClass, parent, NULL);
    Widget column = XtVaCreateManagedWidget("combos", xmRowColumnWidgetClass, form,
                                            XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment,
                                            XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, NULL);
    labelled(column, "drop_down_list");
    make_combo(column, "dropDownList", XwkDROP_DOWN_LIST);
    labelled(column, "drop_down_combo_box");
    make_combo(column, "dropDownComboBox", XwkDROP_DOWN_COMBO_BOX);
    labelled(column, "popup_list");
    Widget menu_button = XtVaCreateManagedWidget("Show popup list", xmPushButtonWidgetClass, column, NULL);
    Widget popup = make_combo(column, "popupList", XwkPOPUP_LIST);
    XtAddCallback(menu_button, XmNactivateCallback, popup_menu, popup);

    Widget toggle = XtVaCreateManagedWidget("Switch orientation", xmPushButtonWidgetClass, form,
                                            XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment,
                                            XmATTACH_WIDGET, XmNleftWidget, column, NULL);
    Widget paned = XwkCreatePanedWindow(form, (String) "panes", NULL, 0);
    XtVaSetValues(paned, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, toggle, XmNleftAttachment,
                  XmATTACH_WIDGET, XmNleftWidget, column, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_FORM, NULL);
    for (int i = 0; i < 3; i++) {
        Widget text = XtVaCreateManagedWidget("pane", xmTextWidgetClass, paned, XmNeditMode,
                                              XmMULTI_LINE_EDIT, XmNrows, 4, XmNcolumns, 24, NULL);
        XmTextSetString(text, (char *)(i == 0 ? "First pane" : i == 1 ? "Second pane" : "Third pane"));
    }
    XtManageChild(paned);
    XwkConfigureSash(paned, True);
    XtAddCallback(toggle, XmNactivateCallback, toggle_orientation, paned);
    return form;
}
