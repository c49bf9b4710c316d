// Desk controls: the common steps, labels, buttons and separators.
#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Text.h>

#include "forms_private.h"
#include "frame/xmstring_private.h"

#include <Xm/XmP.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/Separator.h>

#include <math.h>
#include <string.h>

namespace xwk_forms {

// Always count entries: without a buffer every item is empty, so callers
// never index past what they asked for.
std::vector<const char *> unpack(const char *packed, int count)
{
    std::vector<const char *> out;
    const char *p = packed;
    for (int i = 0; i < count; i++) {
        out.push_back(p ? p : "");
        if (p)
            p += strlen(p) + 1;
    }
    return out;
}

XwkDeskItem *new_item(XwkDeskRec *desk, size_t size)
{
    if (!xwk_desk_is_valid(desk))
        return nullptr;
    XwkDeskItem *item = (XwkDeskItem *)XtCalloc(1, (Cardinal)size);
    if (item)
        item->desk = desk;
    return item;
}

namespace {

struct Owned {
    XwkDeskItem *item;
    Widget **arrays[1];
};

void free_item(Widget, XtPointer client_data, XtPointer)
{
    Owned *owned = (Owned *)client_data;
    for (Widget **array : owned->arrays)
        if (array)
            XtFree((char *)*array);
    XtFree((char *)owned->item);
    delete owned;
}

}  // namespace

void watch_item(XwkDeskItem *item, Widget widget, Widget **owned1)
{
    Owned *owned = new Owned{item, {owned1}};
    XtAddCallback(widget, XtNdestroyCallback, free_item, owned);
}

void raise_extent(XwkDeskItem *item, unsigned short x, unsigned short y)
{
    XwkDeskRec *desk = item->desk;
    int right = x + item->width;
    int bottom = y + item->height;
    if (right > desk->extent_w)
        desk->extent_w = (unsigned short)right;
    if (bottom > desk->extent_h)
        desk->extent_h = (unsigned short)bottom;
}

bool item_usable(XwkDeskItem *item)
{
    return item && xwk_desk_is_valid(item->desk);
}

XmString ltor(const char *text)
{
    return xwk::LinesString(smi18n_gettext(text ? text : ""), (char *)XmFONTLIST_DEFAULT_TAG);
}

XmString localized(const char *text)
{
    return XmStringCreateLocalized(smi18n_gettext(text ? text : ""));
}

void attach_at(Arg *args, Cardinal *n, unsigned short x, unsigned short y)
{
    XtSetArg(args[*n], XmNtopAttachment, XmATTACH_FORM); (*n)++;
    XtSetArg(args[*n], XmNtopOffset, (int)y); (*n)++;
    XtSetArg(args[*n], XmNleftAttachment, XmATTACH_FORM); (*n)++;
    XtSetArg(args[*n], XmNleftOffset, (int)x); (*n)++;
}

}  // namespace xwk_forms

using namespace xwk_forms;

namespace {

void read_size(XwkDeskItem *item, Widget w)
{
    Dimension width = 0, height = 0;
    XtVaGetValues(w, XtNwidth, &width, XtNheight, &height, NULL);
    item->width = width;
    item->height = height;
}

void button_pressed(Widget, XtPointer client_data, XtPointer)
{
    ((XwkButtonItem *)client_data)->pressed = 1;
}

unsigned char separator_type(int style)
{
    switch (style) {
    case 2: return XmSHADOW_ETCHED_OUT;
    case 3: return XmSINGLE_LINE;
    case 4: return XmDOUBLE_LINE;
    case 5: return XmSINGLE_DASHED_LINE;
    case 6: return XmDOUBLE_DASHED_LINE;
    default: return XmSHADOW_ETCHED_IN;
    }
}

}  // namespace

void SetLabel(XwkDeskRec *desk, float x_cm, float y_cm, const char *text, XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkDeskItem *item = new_item(desk, sizeof(XwkDeskItem));
    if (!item)
        return;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    XmString s = ltor(text);
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNlabelString, s); n++;
    attach_at(args, &n, x, y);
    item->widget = XtCreateManagedWidget("xwkLabel", xmLabelWidgetClass, desk->work, args, n);
    XmStringFree(s);
    read_size(item, item->widget);
    watch_item(item, item->widget);
    raise_extent(item, x, y);
    *out = item;
}

void SetButton(XwkDeskRec *desk, float x_cm, float y_cm, const char *text, XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkButtonItem *button = (XwkButtonItem *)new_item(desk, sizeof(XwkButtonItem));
    if (!button)
        return;
    XwkDeskItem *item = &button->item;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    XmString s = ltor(text);
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNlabelString, s); n++;
    attach_at(args, &n, x, y);
    item->widget = XtCreateManagedWidget("xwkButton", xmPushButtonWidgetClass, desk->work, args, n);
    XmStringFree(s);
    XtAddCallback(item->widget, XmNactivateCallback, button_pressed, button);
    Dimension width = 0, height = 0, mw = 0, mh = 0, shadow = 0, highlight = 0;
    XtVaGetValues(item->widget, XtNwidth, &width, XtNheight, &height, XmNmarginWidth, &mw,
                  XmNmarginHeight, &mh, XmNshadowThickness, &shadow, XmNhighlightThickness,
                  &highlight, XtNtranslations, &item->translations, NULL);
    // The margins count twice: once inside the widget's own size and once
    // here, as the layouts of the applications were made with this size.
    item->width = (unsigned short)(width + 2 * (mw + shadow + highlight));
    item->height = (unsigned short)(height + 2 * (mh + shadow + highlight));
    watch_item(item, item->widget);
    raise_extent(item, x, y);
    *out = item;
}

void GetButton(XwkDeskItem *item, int *pressed)
{
    if (!pressed || !item_usable(item))
        return;
    XwkButtonItem *button = (XwkButtonItem *)item;
    *pressed = button->pressed;
    button->pressed = 0;
}

void SetSeparator(XwkDeskRec *desk, float x_cm, float y_cm, float length_cm, int style,
                  XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkDeskItem *item = new_item(desk, sizeof(XwkDeskItem));
    if (!item)
        return;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    Dimension shadow = 0;
    XtVaGetValues(desk->work, XmNshadowThickness, &shadow, NULL);
    x = (unsigned short)(x + shadow);
    y = (unsigned short)(y + shadow);
    Screen *screen = XtScreen(desk->work);
    bool vertical = length_cm < 0;
    long length = vertical ? -(long)lroundf(length_cm * xwkCmHeight)
                           : (long)lroundf(length_cm * xwkCmWidth);
    Arg args[9];
    Cardinal n = 0;
    attach_at(args, &n, x, y);
    XtSetArg(args[n], XmNseparatorType, separator_type(style)); n++;
    XtSetArg(args[n], XmNorientation, vertical ? XmVERTICAL : XmHORIZONTAL); n++;
    if (!vertical && length > WidthOfScreen(screen)) {
        XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM); n++;
        XtSetArg(args[n], XmNrightOffset, (int)x); n++;
    } else if (!vertical) {
        XtSetArg(args[n], XtNwidth, (Dimension)length); n++;
    } else if (length > HeightOfScreen(screen)) {
        XtSetArg(args[n], XmNbottomAttachment, XmATTACH_FORM); n++;
    } else {
        XtSetArg(args[n], XtNheight, (Dimension)length); n++;
    }
    item->widget = XtCreateManagedWidget("xwkSeparator", xmSeparatorWidgetClass, desk->work,
                                         args, n);
    read_size(item, item->widget);
    watch_item(item, item->widget);
    *out = item;
}
