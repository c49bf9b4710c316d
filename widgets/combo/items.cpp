// The exported operations of the combo box: items, selection and children.
#include "widgets/combo/combo.h"

#include <Xm/XmP.h>
#include <Xm/List.h>
#include <Xm/Text.h>

using namespace xwk::combo;

namespace {

bool Alive(Widget w) { return IsCombo(w) && !w->core.being_destroyed && Part(w).list; }

void ReadBack(Widget w)
{
    XwkComboBoxPart &p = Part(w);
    XtVaGetValues(p.list, XmNitems, &p.items, XmNitemCount, &p.itemCount, XmNvisibleItemCount,
                  &p.visibleItemCount, NULL);
}

int SelectItem(Widget w, XmString item, bool deselect, bool notify)
{
    if (!IsCombo(w))
        return -1;
    if (!Alive(w) || !item)
        return 0;
    XwkComboBoxPart &p = Part(w);
    int pos = XmListItemPos(p.list, item);
    if (pos <= 0)
        return 0;
    if (deselect)
        XmListDeselectAllItems(p.list);
    XmListSelectPos(p.list, pos, False);
    XwkComboBoxUpdate(w);
    if (notify)
        CallSelection(w, XwkCR_COMBO_SELECT, nullptr);
    return pos;
}

}  // namespace

extern "C" {

void XwkComboBoxUpdate(Widget w)
{
    if (!Alive(w))
        return;
    XwkComboBoxPart &p = Part(w);
    FreeOwnedItem(w);
    p.selectedItem = nullptr;
    p.selectedPosition = 1;
    ReadBack(w);
    if (p.itemCount > 0) {
        int *positions = nullptr, count = 0;
        if (XmListGetSelectedPos(p.list, &positions, &count) && count > 0) {
            p.selectedPosition = positions[0];
        } else if (p.text) {
            char *value = XmTextGetString(p.text);
            XmString s = XmStringCreateLocalized(value ? value : (char *)"");
            int found = XmListItemPos(p.list, s);
            XmStringFree(s);
            XtFree(value);
            p.selectedPosition = found > 0 ? found : 1;
            XmListSelectPos(p.list, p.selectedPosition, False);
        } else {
            XmListSelectPos(p.list, 1, False);
        }
        XtFree((char *)positions);
        int top = 1, visible = 1;
        XtVaGetValues(p.list, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, NULL);
        if (p.selectedPosition < top)
            XmListSetPos(p.list, p.selectedPosition);
        else if (p.selectedPosition >= top + visible)
            XmListSetBottomPos(p.list, p.selectedPosition);
    }
    ShowSelection(w);
}

void XwkComboBoxAddItem(Widget w, XmString item, int pos, Boolean unique)
{
    if (!Alive(w) || !item)
        return;
    if (unique && XmListItemExists(Part(w).list, item))
        return;
    XmListAddItem(Part(w).list, item, pos);
    XwkComboBoxUpdate(w);
}

void XwkComboBoxDeletePos(Widget w, int pos, Boolean notify)
{
    if (!Alive(w))
        return;
    XwkComboBoxPart &p = Part(w);
    ReadBack(w);
    if (pos < 0 || pos > p.itemCount || p.itemCount == 0)
        return;
    if (pos == 0)
        pos = p.itemCount;
    bool was_selected = pos == p.selectedPosition;
    if (was_selected && p.itemCount > 1)
        XmListSelectPos(p.list, pos == 1 ? 2 : pos - 1, False);
    XmListDeletePos(p.list, pos);
    XwkComboBoxUpdate(w);
    if (notify && was_selected)
        CallSelection(w, XwkCR_COMBO_SELECT, nullptr);
}

void XwkComboBoxDeleteItem(Widget w, XmString item, Boolean notify)
{
    if (!Alive(w) || !item)
        return;
    XwkComboBoxPart &p = Part(w);
    ReadBack(w);
    for (int i = 0; i < p.itemCount; i++) {
        if (XmStringCompare(p.items[i], item)) {
            XwkComboBoxDeletePos(w, i + 1, notify);
            return;
        }
    }
}

void XwkComboBoxDeleteAllItems(Widget w)
{
    if (!Alive(w))
        return;
    XmListDeleteAllItems(Part(w).list);
    XwkComboBoxUpdate(w);
}

int XwkComboBoxSetItem(Widget w, XmString item)
{
    return SelectItem(w, item, false, false);
}

int XwkComboBoxSelectItem(Widget w, XmString item, Boolean notify)
{
    return SelectItem(w, item, true, notify);
}

int XwkComboBoxSelectPos(Widget w, int pos, Boolean notify)
{
    if (!IsCombo(w))
        return -1;
    if (!Alive(w))
        return 0;
    XwkComboBoxPart &p = Part(w);
    ReadBack(w);
    // Out of range selects nothing; the text keeps what it shows.
    if (pos < 1 || pos > p.itemCount)
        return pos;
    XmListSelectPos(p.list, pos, False);
    XwkComboBoxUpdate(w);
    if (notify)
        CallSelection(w, XwkCR_COMBO_SELECT, nullptr);
    return pos;
}

int XwkComboBoxReplaceItem(Widget w, XmString old_item, XmString new_item)
{
    if (!IsCombo(w))
        return -1;
    if (!Alive(w) || !old_item || !new_item || XmStringCompare(old_item, new_item))
        return 0;
    XwkComboBoxPart &p = Part(w);
    int pos = XmListItemPos(p.list, old_item);
    if (pos <= 0)
        return 0;
    // Motif's list loses track of (and leaks) its copy of a selected item
    // that is replaced in place; replace it unselected and select again.
    bool selected = XmListPosSelected(p.list, pos);
    if (selected)
        XmListDeselectPos(p.list, pos);
    XmListReplaceItemsPos(p.list, &new_item, 1, pos);
    if (selected)
        XmListSelectPos(p.list, pos, False);
    XwkComboBoxUpdate(w);
    return pos;
}

Boolean XwkComboBoxProcessXY(Widget w, Position x, Position y)
{
    if (!Alive(w))
        return False;
    XwkComboBoxPart &p = Part(w);
    if (p.comboBoxType == XwkPOPUP_LIST || !p.arrow)
        return False;
    bool on_arrow = x >= p.arrow->core.x && x < p.arrow->core.x + (int)p.arrow->core.width;
    if (on_arrow || p.comboBoxType == XwkDROP_DOWN_LIST) {
        if (!XtIsSensitive(p.arrow))
            return False;
        PopupFromArrow(w, nullptr);
        return True;
    }
    if (p.text && p.comboBoxType == XwkDROP_DOWN_COMBO_BOX) {
        XmTextPosition at = XmTextXYToPos(p.text, (Position)(x - p.text->core.x), (Position)(y - p.text->core.y));
        XmProcessTraversal(p.text, XmTRAVERSE_CURRENT);
        XmTextSetInsertionPosition(p.text, at);
    }
    return False;
}

void XwkComboBoxPopupList(Widget w, Position x, Position y)
{
    if (!Alive(w))
        return;
    XwkComboBoxPart &p = Part(w);
    ReadBack(w);
    if (p.comboBoxType != XwkPOPUP_LIST && p.itemCount > 0)
        return;
    PopupAt(w, x, y);
}

Widget XwkComboBoxGetText(Widget w) { return IsCombo(w) ? Part(w).text : nullptr; }
Widget XwkComboBoxGetList(Widget w) { return IsCombo(w) ? Part(w).list : nullptr; }
Widget XwkComboBoxGetShell(Widget w) { return IsCombo(w) ? Part(w).shell : nullptr; }
Widget XwkComboBoxGetArrow(Widget w) { return IsCombo(w) ? Part(w).arrow : nullptr; }

}  // extern "C"
