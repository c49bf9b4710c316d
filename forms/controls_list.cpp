// Desk controls: scrolled lists.
#include <Xwk/Desk.h>
#include <Xwk/Graphics.h>
#include <Xwk/Text.h>

#include "forms_private.h"

#include <Xm/XmP.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/ScrolledW.h>

#include <stdlib.h>

using namespace xwk_forms;

namespace {

bool multiple(int policy)
{
    return policy == XmMULTIPLE_SELECT || policy == XmEXTENDED_SELECT;
}

// Scrolls the position into a view of `visible` rows, then selects it.
void show_position(Widget list, int position, int visible)
{
    int top = 1;
    XtVaGetValues(list, XmNtopItemPosition, &top, NULL);
    if (position < top)
        XmListSetPos(list, position);
    else if (position >= top + visible)
        XmListSetBottomPos(list, position);
    XmListSelectPos(list, position, False);
}

}  // namespace

void SetScrolledListExt(XwkDeskRec *desk, float x_cm, float y_cm, const char *title,
                        const char *items, int count, int visible, int *selected, int policy,
                        XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkListItem *record = (XwkListItem *)new_item(desk, sizeof(XwkListItem));
    if (!record)
        return;
    XwkDeskItem *item = &record->item;
    if (count < 0)
        count = 0;
    if (selected) {
        // The clamp writes into the caller's array, flags included.
        if (selected[0] > count)
            selected[0] = count;
        if (selected[0] < 1)
            selected[0] = 1;
        record->selected = selected[0];
    }
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    Dimension tw = 0, th = 0;
    if (title && *title) {
        XmString s = localized(title);
        Arg args[5];
        Cardinal n = 0;
        XtSetArg(args[n], XmNlabelString, s); n++;
        attach_at(args, &n, x, y);
        record->title = XtCreateManagedWidget("xwkLabel", xmLabelWidgetClass, desk->work, args, n);
        XmStringFree(s);
        XtVaGetValues(record->title, XtNwidth, &tw, XtNheight, &th, NULL);
    }
    Arg fargs[6];
    Cardinal fn = 0;
    XtSetArg(fargs[fn], XmNshadowType, XmSHADOW_OUT); fn++;
    if (record->title) {
        XtSetArg(fargs[fn], XmNtopAttachment, XmATTACH_WIDGET); fn++;
        XtSetArg(fargs[fn], XmNtopWidget, record->title); fn++;
        XtSetArg(fargs[fn], XmNtopOffset, 0); fn++;
    } else {
        XtSetArg(fargs[fn], XmNtopAttachment, XmATTACH_FORM); fn++;
        XtSetArg(fargs[fn], XmNtopOffset, (int)y); fn++;
    }
    XtSetArg(fargs[fn], XmNleftAttachment, XmATTACH_FORM); fn++;
    XtSetArg(fargs[fn], XmNleftOffset, (int)x); fn++;
    Widget frame = XtCreateWidget("xwkFrame", xmFrameWidgetClass, desk->work, fargs, fn);
    item->widget = frame;

    std::vector<const char *> texts = unpack(items, count);
    std::vector<XmString> strings, chosen;
    for (int i = 0; i < count; i++) {
        strings.push_back(XmStringCreateLocalized((char *)texts[i]));
        if (multiple(policy) && selected && selected[i])
            chosen.push_back(strings.back());
    }
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNitems, strings.data()); n++;
    XtSetArg(args[n], XmNitemCount, count); n++;
    XtSetArg(args[n], XmNselectedItems, chosen.data()); n++;
    XtSetArg(args[n], XmNselectedItemCount, (int)chosen.size()); n++;
    XtSetArg(args[n], XmNvisibleItemCount, visible > 0 ? visible : 1); n++;
    XtSetArg(args[n], XmNselectionPolicy, policy); n++;
    XtSetArg(args[n], XmNlistSizePolicy, XmRESIZE_IF_POSSIBLE); n++;
    record->list = XmCreateScrolledList(frame, (char *)"xwkScrolledList", args, n);
    for (XmString s : strings)
        XmStringFree(s);
    if (!multiple(policy) && selected && count > 0)
        show_position(record->list, selected[0], visible);

    XtVaGetValues(record->list, XtNtranslations, &item->translations, NULL);
    watch_item(item, frame);
    XtManageChild(record->list);
    XtManageChild(frame);
    Dimension width = 0, height = 0;
    XtVaGetValues(record->list, XtNwidth, &width, XtNheight, &height, NULL);

    Widget window = XtParent(record->list);
    Dimension spacing = 0;
    Widget bar = nullptr;
    XtVaGetValues(window, XmNspacing, &spacing, XmNverticalScrollBar, &bar, NULL);
    if (bar && XtIsManaged(bar)) {
        width = (Dimension)(width + bar->core.width);
        Pixel background = 0;
        XtVaGetValues(desk->form, XmNbackground, &background, NULL);
        XwkSetScrollbarColor(bar, background);
    }
    width = (Dimension)(width + spacing);
    Dimension t = 0;
    XtVaGetValues(frame, XmNshadowThickness, &t, NULL);
    // The frame has no height of its own yet: widening it alone would leave
    // it 0 high, and the form would squash the list to the frame's shadow.
    if (width < tw)
        XtVaSetValues(frame, XtNwidth, tw, XtNheight, (Dimension)(height + 2 * t), NULL);
    item->width = (unsigned short)std::max<int>(tw, width + 2 * t);
    item->height = (unsigned short)(height + 2 * t + th);
    raise_extent(item, x, y);
    *out = item;
}

void SetScrolledList(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                     int count, int visible, int selected, XwkDeskItem **out)
{
    SetScrolledListExt(desk, x, y, title, items, count, visible, &selected, XmBROWSE_SELECT, out);
}

void GetScrolledList(XwkDeskItem *item, int *selected)
{
    if (!selected || !item_usable(item))
        return;
    int *positions = nullptr;
    int count = 0;
    *selected = 0;
    if (XmListGetSelectedPos(((XwkListItem *)item)->list, &positions, &count) && count > 0)
        *selected = positions[0];
    XtFree((char *)positions);
}

void GetScrolledListExt(XwkDeskItem *item, int **positions, int *count)
{
    if (!positions || !count)
        return;
    *positions = nullptr;
    *count = 0;
    if (!item_usable(item))
        return;
    if (!XmListGetSelectedPos(((XwkListItem *)item)->list, positions, count)) {
        *positions = nullptr;
        *count = 0;
    }
}

void ChangeScrolledList(XwkDeskItem *item, int position)
{
    if (!item_usable(item))
        return;
    XmListSelectPos(((XwkListItem *)item)->list, position, False);
}

void ChangeScrolledListExt(XwkDeskItem *item, int *positions, int count)
{
    if (!positions || !item_usable(item))
        return;
    Widget list = ((XwkListItem *)item)->list;
    int items = 0;
    XtVaGetValues(list, XmNitemCount, &items, NULL);
    int n = std::min(count, items);
    for (int i = 0; i < n; i++)
        XmListSelectPos(list, positions[i], False);
}
