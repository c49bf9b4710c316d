// Desk controls of choice: radio boxes, check boxes and option menus.
#include <Xwk/Desk.h>
#include <Xwk/Text.h>

#include "forms_private.h"

#include <Xm/XmP.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>

#include <stdlib.h>

using namespace xwk_forms;

namespace {

void query_size(XwkDeskItem *item)
{
    XtWidgetGeometry reply = {};
    XtQueryGeometry(item->widget, nullptr, &reply);
    item->width = reply.width;
    item->height = reply.height;
}

// The frame of a group of toggles, with its title; a negative count stretches
// it to the right edge of the work area.
Widget create_group_frame(XwkDeskRec *desk, unsigned short x, unsigned short y, const char *title,
                          bool stretch, Widget *title_widget)
{
    Arg args[11];
    Cardinal n = 0;
    attach_at(args, &n, x, y);
    XtSetArg(args[n], XmNshadowType, XmSHADOW_ETCHED_IN); n++;
    XtSetArg(args[n], XmNshadowThickness, 2); n++;
    XtSetArg(args[n], XmNmarginWidth, 5); n++;
    XtSetArg(args[n], XmNmarginHeight, 4); n++;
    if (stretch) {
        XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM); n++;
        XtSetArg(args[n], XmNrightOffset, (int)x); n++;
    }
    Widget frame = XtCreateWidget("xwkFrame", xmFrameWidgetClass, desk->work, args, n);
    *title_widget = nullptr;
    if (title && *title) {
        XmString s = localized(title);
        *title_widget = XtVaCreateManagedWidget("xwkLabel", xmLabelWidgetClass, frame,
                                                XmNlabelString, s, XmNchildType,
                                                XmFRAME_TITLE_CHILD, NULL);
        XmStringFree(s);
    }
    return frame;
}

Widget create_toggle(const char *name, Widget parent, const char *text, Arg *extra, Cardinal nextra)
{
    XmString s = ltor(text);
    Arg args[12];
    Cardinal n = 0;
    XtSetArg(args[n], XmNlabelString, s); n++;
    XtSetArg(args[n], XmNalignment, XmALIGNMENT_BEGINNING); n++;
    XtSetArg(args[n], XmNshadowThickness, 0); n++;
    for (Cardinal i = 0; i < nextra; i++)
        args[n++] = extra[i];
    Widget toggle = XtCreateManagedWidget(name, xmToggleButtonWidgetClass, parent, args, n);
    XmStringFree(s);
    return toggle;
}

void option_chosen(Widget w, XtPointer client_data, XtPointer)
{
    XtPointer number = nullptr;
    XtVaGetValues(w, XmNuserData, &number, NULL);
    ((XwkOptionItem *)client_data)->selected = (int)(long)number;
}

}  // namespace

void SetRadioBox(XwkDeskRec *desk, float x_cm, float y_cm, const char *title, const char *items,
                 int count, int selected, XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkToggleItem *radio = (XwkToggleItem *)new_item(desk, sizeof(XwkToggleItem));
    if (!radio)
        return;
    XwkDeskItem *item = &radio->item;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    bool stretch = count < 0;
    count = abs(count);
    item->widget = create_group_frame(desk, x, y, title, stretch, &radio->title);
    Widget box = XtVaCreateWidget("", xmRowColumnWidgetClass, item->widget, XmNradioAlwaysOne, True,
                                  XmNradioBehavior, True, XmNspacing, 0, XmNorientation,
                                  XmVERTICAL, XmNmarginWidth, 0, XmNmarginHeight, 0, NULL);
    radio->count = count;
    radio->toggles = (Widget *)XtCalloc((Cardinal)(count ? count : 1), sizeof(Widget));
    std::vector<const char *> texts = unpack(items, count);
    for (int i = 0; i < count; i++) {
        radio->toggles[i] = create_toggle("xwkRadioBox", box, texts[i], nullptr, 0);
        if (i + 1 == selected)
            XmToggleButtonSetState(radio->toggles[i], True, False);
    }
    XtManageChild(box);
    XtManageChild(item->widget);
    XtVaGetValues(box, XtNtranslations, &item->translations, NULL);
    query_size(item);
    watch_item(item, item->widget, &radio->toggles);
    raise_extent(item, x, y);
    *out = item;
}

void GetRadioBox(XwkDeskItem *item, int *selected)
{
    if (!selected || !item_usable(item))
        return;
    XwkToggleItem *radio = (XwkToggleItem *)item;
    *selected = 0;
    for (int i = 0; i < radio->count; i++) {
        if (XmToggleButtonGetState(radio->toggles[i])) {
            *selected = i + 1;
            return;
        }
    }
}

void ChangeRadioBox(XwkDeskItem *item, int selected)
{
    if (!item_usable(item))
        return;
    XwkToggleItem *radio = (XwkToggleItem *)item;
    for (int i = 0; i < radio->count; i++)
        XmToggleButtonSetState(radio->toggles[i], i + 1 == selected, False);
}

void SetCheckBox(XwkDeskRec *desk, float x_cm, float y_cm, const char *title, const char *items,
                 int count, int *states, XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkToggleItem *check = (XwkToggleItem *)new_item(desk, sizeof(XwkToggleItem));
    if (!check)
        return;
    XwkDeskItem *item = &check->item;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    bool framed = count > 1 || count < -1;
    bool stretch = count < 0;
    count = abs(count);
    Widget holder;
    if (framed) {
        item->widget = create_group_frame(desk, x, y, title, stretch, &check->title);
        holder = XtVaCreateWidget("", xmFormWidgetClass, item->widget, NULL);
    } else {
        Arg args[4];
        Cardinal n = 0;
        attach_at(args, &n, x, y);
        item->widget = holder = XtCreateWidget("", xmFormWidgetClass, desk->work, args, n);
    }
    check->count = count;
    check->toggles = (Widget *)XtCalloc((Cardinal)(count ? count : 1), sizeof(Widget));
    std::vector<const char *> texts = unpack(items, count);
    for (int i = 0; i < count; i++) {
        Arg args[5];
        Cardinal n = 0;
        XtSetArg(args[n], XmNindicatorOn, 1); n++;
        XtSetArg(args[n], XmNleftAttachment, XmATTACH_FORM); n++;
        XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM); n++;
        if (i == 0) {
            XtSetArg(args[n], XmNtopAttachment, XmATTACH_FORM); n++;
        } else {
            XtSetArg(args[n], XmNtopAttachment, XmATTACH_WIDGET); n++;
            XtSetArg(args[n], XmNtopWidget, check->toggles[i - 1]); n++;
        }
        check->toggles[i] = create_toggle("xwkCheckBox", holder, texts[i], args, n);
        if (states && states[i])
            XmToggleButtonSetState(check->toggles[i], True, False);
    }
    XtManageChild(holder);
    XtManageChild(item->widget);
    if (count > 0)
        XtVaGetValues(check->toggles[0], XtNtranslations, &item->translations, NULL);
    query_size(item);
    watch_item(item, item->widget, &check->toggles);
    raise_extent(item, x, y);
    *out = item;
}

void GetCheckBox(XwkDeskItem *item, int *states)
{
    if (!states || !item_usable(item))
        return;
    XwkToggleItem *check = (XwkToggleItem *)item;
    for (int i = 0; i < check->count; i++)
        states[i] = XmToggleButtonGetState(check->toggles[i]) ? 1 : 0;
}

void SetOptionMenu(XwkDeskRec *desk, float x_cm, float y_cm, const char *title, int,
                   const char *items, int count, int selected, XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkOptionItem *option = (XwkOptionItem *)new_item(desk, sizeof(XwkOptionItem));
    if (!option)
        return;
    XwkDeskItem *item = &option->item;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    if (count < 0)
        count = 0;
    if (selected > count)
        selected = count;
    if (selected < 1)
        selected = 1;
    option->pulldown = XmCreatePulldownMenu(desk->work, (char *)"xwkPulldownMenu", nullptr, 0);
    option->count = count;
    option->selected = count ? selected : 0;
    option->buttons = (Widget *)XtCalloc((Cardinal)(count ? count : 1), sizeof(Widget));
    std::vector<const char *> texts = unpack(items, count);
    for (int i = 0; i < count; i++) {
        option->buttons[i] = XtVaCreateWidget(texts[i], xmPushButtonWidgetClass, option->pulldown,
                                              XmNuserData, (XtPointer)(long)(i + 1), NULL);
        XtAddCallback(option->buttons[i], XmNactivateCallback, option_chosen, option);
    }
    XtManageChildren(option->buttons, (Cardinal)count);

    XmString s = localized(title);
    Arg args[12];
    Cardinal n = 0;
    attach_at(args, &n, x, y);
    XtSetArg(args[n], XmNspacing, 0); n++;
    XtSetArg(args[n], XmNmarginWidth, 0); n++;
    XtSetArg(args[n], XmNmarginHeight, 0); n++;
    XtSetArg(args[n], XmNlabelString, s); n++;
    XtSetArg(args[n], XmNsubMenuId, option->pulldown); n++;
    if (count) {
        XtSetArg(args[n], XmNmenuHistory, option->buttons[selected - 1]); n++;
    }
    item->widget = XmCreateOptionMenu(desk->work, (char *)"xwkOptionMenu", args, n);
    XmStringFree(s);
    XtVaSetValues(XmOptionButtonGadget(item->widget), XmNmarginHeight, 0, NULL);
    XtVaSetValues(XmOptionLabelGadget(item->widget), XmNmarginHeight, 0, NULL);
    XtManageChild(item->widget);
    XtVaGetValues(item->widget, XtNtranslations, &item->translations, NULL);
    query_size(item);
    watch_item(item, item->widget, &option->buttons);
    raise_extent(item, x, y);
    *out = item;
}

void GetOptionMenu(XwkDeskItem *item, int *selected)
{
    if (!selected || !item_usable(item))
        return;
    *selected = ((XwkOptionItem *)item)->selected;
}
