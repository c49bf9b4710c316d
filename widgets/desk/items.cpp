// Items of the desk list: adding, renaming, deleting, labels and their
// extents, sorting, and the lists and lookups of the public interface.
#include "widgets/desk/desk.h"
#include "widgets/tree/tree.h"
#include "frame/sort_private.h"
#include "frame/xmstring_private.h"

#include <Xm/XmP.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

using namespace xwk::desk;

namespace {

// The label as it is drawn: a newline wherever more than maxChars
// characters have gone since the last break and more than 2 are still to
// come, so a label at most 3 past the limit keeps one line.  Lines are cut
// at character counts, never at words.
std::string Wrapped(const char *label, int max_chars)
{
    std::string out;
    int length = (int)strlen(label);
    out.reserve(length + length / std::max(max_chars, 1) + 1);
    int run = 0;
    for (int i = 0; i < length; i++) {
        if (run > max_chars && length - i > 2) {
            out.push_back('\n');
            run = 0;
        }
        out.push_back(label[i]);
        run++;
    }
    return out;
}

bool Wraps(Widget w, const char *label)
{
    return (long)strlen(label) > (long)M(w).maxChars;
}

XmString MakeString(Widget w, const char *label)
{
    if (Wraps(w, label))
        return xwk::LinesString(Wrapped(label, M(w).maxChars).c_str(),
                                (XmStringTag)XmSTRING_DEFAULT_CHARSET);
    return XmStringCreateLocalized((char *)label);
}

// The core font of a render table of one rendition, in which a plain
// label measures as XmStringExtent would measure it; NULL when labels must
// be measured through their compound strings.
XmFontList last_list = nullptr;
XFontStruct *last_font = nullptr;

XFontStruct *PlainFont(XmFontList fonts)
{
    if (fonts == last_list)
        return last_font;
    last_list = fonts;
    last_font = nullptr;
    if (!fonts)
        return nullptr;
    XmStringTag *tags = nullptr;
    int count = XmRenderTableGetTags(fonts, &tags);
    for (int i = 0; i < count; i++)
        XtFree(tags[i]);
    XtFree((char *)tags);
    XFontStruct *font = nullptr;
    if (count == 1 && XmeRenderTableGetDefaultFont(fonts, &font) && font &&
        font->min_byte1 == 0 && font->max_byte1 == 0)
        last_font = font;
    return last_font;
}

// Deletions run the list's free procedure, which learns its desk here.
Widget freeing_mother = nullptr;

void DeleteNode(Widget w, XwkListNode *node)
{
    Widget keep = freeing_mother;
    freeing_mother = Mother(w);
    l_delete(M(w).items, node);
    freeing_mother = keep;
}

void FlushItems(Widget w)
{
    Widget keep = freeing_mother;
    freeing_mother = Mother(w);
    l_flush(M(w).items);
    freeing_mother = keep;
}

void RelayoutAfterChange(Widget w)
{
    ComputeSizes(w);
    if (XtIsRealized(Mother(w)) || P(w).mother != w) {
        Grid(w);
        RepaintSoon(w);
    }
}

// Inserts the last node in its place in a list sorted before it came.
void InsertSorted(Widget w, XwkListNode *node)
{
    XmPrjDeskPart &m = M(w);
    State &s = S(Mother(w));
    if (!m.sortProc || m.items->count < 2)
        return;
    if (!s.orderValid)
        NodeAt(w, 0);
    // The new node is the last entry of the index; search the others.
    auto end = s.order.end() - 1;
    auto place = std::upper_bound(s.order.begin(), end, node, [&](XwkListNode *a, XwkListNode *b) {
        return m.sortProc(&a, &b) < 0;
    });
    if (place == end)
        return;
    l_replace(m.items, *place, node);
    s.order.pop_back();
    s.order.insert(place, node);
}

template <typename T> int MakeList(Widget w, T **out, T (*pick)(XwkListNode *), bool selected_only)
{
    XmPrjDeskPart &m = M(w);
    int count = 0;
    for (XwkListNode *n = m.items ? m.items->first : nullptr; n; n = n->next)
        count += !selected_only || Selected(Item(n));
    if (!count) {
        *out = nullptr;
        return 0;
    }
    T *list = (T *)XtCalloc(count + 1, sizeof(T));
    int i = 0;
    for (XwkListNode *n = m.items->first; n && i < count; n = n->next)
        if (!selected_only || Selected(Item(n)))
            list[i++] = pick(n);
    *out = list;
    return i;
}

XtPointer PickLabel(XwkListNode *n) { return (XtPointer)Item(n)->label; }
XtPointer PickUser(XwkListNode *n) { return Item(n)->userData; }
XtPointer PickNode(XwkListNode *n) { return (XtPointer)n; }
XwkListNode *PickSelf(XwkListNode *n) { return n; }

}  // namespace

namespace xwk::desk {

// The list's free procedure, for every deleted node.
void FreeItemNode(XwkListNode *node)
{
    XmPrjDeskItem item = Item(node);
    if (!item)
        return;
    Widget mother = freeing_mother;
    if (mother && P(mother).state) {
        XmPrjDeskPart &m = P(mother);
        if (m.current == node) {
            m.current = nullptr;
            RefreshSelected(mother);
        }
        if (m.highlighted == node)
            m.highlighted = nullptr;
        for (Widget v : Views(mother))
            if (P(v).lastClicked == node)
                P(v).lastClicked = nullptr;
        if (Selected(item))
            m.selectedCount--;
        S(mother).deletions++;
        S(mother).orderValid = false;
    }
    if (item->deleteCallback) {
        XmPrjDeskDeleteProc proc = item->deleteCallback;
        item->deleteCallback = nullptr;
        proc(node, item->deleteClientData);
    }
    XtFree(item->label);
    if (item->labelString)
        XmStringFree(item->labelString);
    XtFree((char *)item);
    node->data = nullptr;
}

void DestroyItems(Widget w)
{
    XmPrjDeskPart &d = P(w);
    if (!d.items)
        return;
    Widget keep = freeing_mother;
    freeing_mother = w;
    l_destroy(d.items);
    freeing_mother = keep;
    d.items = nullptr;
}

void ItemsLoseDesk(Widget mother, Widget clone)
{
    XwkList *items = P(mother).items;
    for (XwkListNode *n = items ? items->first : nullptr; n; n = n->next)
        if (Item(n)->desk == clone)
            Item(n)->desk = mother;
}

void ForgetFonts()
{
    last_list = nullptr;
    last_font = nullptr;
    xwk::tree::ForgetFonts();
}

int Count(Widget w)
{
    XwkList *items = M(w).items;
    return items ? items->count : 0;
}

XwkListNode *NodeAt(Widget w, int index)
{
    XmPrjDeskPart &m = M(w);
    if (!m.items || index < 0 || index >= m.items->count)
        return nullptr;
    State &s = S(Mother(w));
    if (!s.orderValid || (int)s.order.size() != m.items->count) {
        s.order.clear();
        s.order.reserve(m.items->count);
        for (XwkListNode *n = m.items->first; n; n = n->next)
            s.order.push_back(n);
        s.orderValid = true;
    }
    return s.order[index];
}

void OrderChanged(Widget w)
{
    S(Mother(w)).orderValid = false;
}

// Measures a label as XmStringExtent measures its compound string: plain
// text in a core font by the font's character widths, line by line,
// anything else through the string itself.
void MeasureItem(Widget w, XmPrjDeskItem item)
{
    item->labelWidth = item->labelHeight = 0;
    if (!item->label)
        return;
    XmPrjDeskPart &m = M(w);
    XFontStruct *font = *item->label ? PlainFont(m.fontList) : nullptr;
    if (font) {
        std::string text = Wraps(w, item->label) ? Wrapped(item->label, m.maxChars)
                                                 : std::string(item->label);
        int widest = 0, lines = 0;
        bool plain = true;
        for (size_t start = 0; plain && start <= text.size(); lines++) {
            size_t end = text.find('\n', start);
            if (end == std::string::npos)
                end = text.size();
            int width = xwk::tree::PlainTextWidth(font, text.data() + start, (int)(end - start));
            plain = width >= 0;
            widest = std::max(widest, width);
            start = end + 1;
        }
        if (plain) {
            item->labelWidth = (Dimension)widest;
            item->labelHeight = (Dimension)(lines * (font->ascent + font->descent));
            return;
        }
    }
    XmString s = LabelString(w, item);
    if (s)
        XmStringExtent(m.fontList, s, &item->labelWidth, &item->labelHeight);
}

XmString LabelString(Widget w, XmPrjDeskItem item)
{
    if (!item->labelString && item->label)
        item->labelString = MakeString(w, item->label);
    return item->labelString;
}

// Sorting keeps the nodes, so that handles held by callers stay valid, and
// relinks them in the new order.
void Sort(Widget w)
{
    XmPrjDeskPart &m = M(w);
    if (!m.items || m.items->count == m.sortedCount || !m.sortProc)
        return;
    State &s = S(Mother(w));
    int count = m.items->count;
    std::vector<XwkListNode *> nodes;
    nodes.reserve(count + 1);
    for (XwkListNode *n = m.items->first; n; n = n->next)
        nodes.push_back(n);
    nodes.push_back(nullptr);
    xwk::QsortUnlessOrdered(nodes.data(), count, sizeof(XwkListNode *), m.sortProc);
    for (int i = 0; i < count; i++) {
        nodes[i]->index = i;
        nodes[i]->prev = i ? nodes[i - 1] : nullptr;
        nodes[i]->next = nodes[i + 1];
    }
    m.items->first = nodes[0];
    m.items->last = nodes[count - 1];
    nodes.pop_back();
    s.order = std::move(nodes);
    s.orderValid = true;
    s.sorted = true;
}

}  // namespace xwk::desk

extern "C" {

XmPrjDeskNode XmPrjDeskAddItem(Widget w, const char *label, XwkIcon *icon, XtPointer userData)
{
    if (!IsDesk(w) || !Alive(w) || !M(w).items)
        return nullptr;
    XmPrjDeskPart &m = M(w);
    auto item = (XmPrjDeskItem)XtCalloc(1, sizeof(XmPrjDeskItemRec));
    XwkListNode *node = l_append(m.items, (XtPointer)item);
    State &s = S(Mother(w));
    if (s.orderValid && (int)s.order.size() + 1 == m.items->count)
        s.order.push_back(node);
    else
        s.orderValid = false;
    item->desk = w;
    item->label = label ? XtNewString(label) : nullptr;
    MeasureItem(w, item);
    item->icon = icon;
    item->flags = XmDESK_ITEM_SELECTABLE;
    item->userData = userData;
    GrowExtents(w, item);
    bool was_sorted = s.sorted;
    s.sorted = m.items->count < 2;
    if (P(w).dontMove)
        return node;
    if (m.sortItems) {
        // A list sorted before takes the new item in its place.
        if (was_sorted) {
            InsertSorted(w, node);
            s.sorted = true;
        } else {
            Sort(w);
        }
    }
    RelayoutAfterChange(w);
    return node;
}

Boolean XmPrjDeskRenameItem(Widget w, const char *label, XwkIcon *icon, XmPrjDeskNode node)
{
    if (!IsDesk(w) || !Alive(w) || !node || (!label && !icon) || !Item(node))
        return 0;
    XmPrjDeskItem item = Item(node);
    if (icon)
        item->icon = icon;
    if (label) {
        char *copy = XtNewString(label);
        XtFree(item->label);
        item->label = copy;
        if (item->labelString)
            XmStringFree(item->labelString);
        item->labelString = nullptr;
        MeasureItem(w, item);
        S(Mother(w)).sorted = false;
        if (M(w).sortItems)
            Sort(w);
    }
    ExtentsChanged(w);
    if (!P(w).dontMove)
        RelayoutAfterChange(w);
    return 1;
}

void XmPrjDeskDeleteItem(Widget w, XmPrjDeskNode node)
{
    if (!IsDesk(w) || !Alive(w) || !node || !Item(node) || !M(w).items)
        return;
    XmPrjDeskPart &m = M(w);
    if (m.highlighted == node)
        m.highlighted = nullptr;
    if (m.current == node) {
        m.current = node->prev ? node->prev : node->next;
        RefreshSelected(w);
    }
    // Only an item as large as the largest can lower the cell size.
    XmPrjDeskItem item = Item(node);
    State &s = S(Mother(w));
    bool extreme = item->labelWidth >= s.maxLabelWidth || item->labelHeight >= s.maxLabelHeight ||
                   (item->icon && (xwk::tree::IconWidth(item->icon) >= m.maxIconWidth ||
                                   xwk::tree::IconHeight(item->icon) >= m.maxIconHeight));
    DeleteNode(w, node);
    if (extreme)
        ExtentsChanged(w);
    if (!Mother(w)->core.being_destroyed && !P(w).dontMove)
        RelayoutAfterChange(w);
}

void XmPrjDeskDeleteAllItems(Widget w)
{
    if (!IsDesk(w) || !Alive(w) || !M(w).items)
        return;
    FlushItems(w);
    ExtentsChanged(w);
    S(Mother(w)).sorted = true;
    for (Widget v : Views(w)) {
        XmPrjDeskPart &d = P(v);
        M(v).current = nullptr;
        d.selected = nullptr;
        d.topRow = 0;
        d.lastTopRow = -1;
        M(v).selectedCount = 0;
        d.columns = d.totalRows = d.visibleRows = 1;
        if (d.dontMove)
            continue;
        if (d.scrollBar && XtIsManaged(d.scrollBar))
            XtUnmanageChild(d.scrollBar);
        if (Paintable(v))
            RepaintView(v, true);
    }
}

Boolean XmPrjDeskSelectItem(Widget w, XmPrjDeskNode node)
{
    if (!IsDesk(w) || w->core.being_destroyed || !node || !Item(node))
        return 0;
    XmPrjDeskItem item = Item(node);
    if (Selectable(item))
        item->flags |= XmDESK_ITEM_SELECTED;
    else
        item->flags &= ~XmDESK_ITEM_SELECTED;
    M(w).selectedCount++;
    return 1;
}

Boolean XmPrjDeskDeselectItem(Widget w, XmPrjDeskNode node)
{
    if (!IsDesk(w) || w->core.being_destroyed || !node || !Item(node))
        return 0;
    Item(node)->flags &= ~XmDESK_ITEM_SELECTED;
    M(w).selectedCount--;
    return 1;
}

void XmPrjDeskSetSelectable(Widget, XmPrjDeskNode node, Boolean selectable)
{
    if (!node || !Item(node))
        return;
    if (selectable)
        Item(node)->flags |= XmDESK_ITEM_SELECTABLE;
    else
        Item(node)->flags &= ~XmDESK_ITEM_SELECTABLE;
}

XmPrjDeskNode XmPrjDeskGetSelectedItem(Widget w)
{
    return IsDesk(w) ? M(w).current : nullptr;
}

int XmPrjDeskGetSelectedItems(Widget w, XmPrjDeskNode **items)
{
    if (!IsDesk(w) || !items)
        return 0;
    return MakeList(w, items, PickSelf, true);
}

int XmPrjDeskGetSelectedItemCount(Widget w)
{
    return IsDesk(w) ? M(w).selectedCount : 0;
}

int XmPrjDeskGetSelectedItemsCount(Widget w)
{
    return IsDesk(w) ? M(w).selectedCount : 0;
}

static int (*find_proc)(XtPointer, XtPointer);

static int search_item(XtPointer data, XtPointer argument)
{
    return find_proc(((XmPrjDeskItem)data)->userData, argument);
}

XmPrjDeskNode XmPrjDeskFindItem(Widget w, XmPrjDeskFindProc proc, XtPointer clientData)
{
    if (!IsDesk(w) || !proc)
        return nullptr;
    auto keep = find_proc;
    find_proc = proc;
    XwkListNode *found = l_userfind(M(w).items, search_item, clientData);
    find_proc = keep;
    return found;
}

XmPrjDeskNode XmPrjDeskTourDesk(Widget w, XmPrjDeskTourProc proc, XtPointer clientData)
{
    if (!IsDesk(w) || !proc || !M(w).items)
        return nullptr;
    for (XwkListNode *n = M(w).items->first, *next; n; n = next) {
        next = n->next;
        if (proc(n, Item(n)->userData, clientData) & 0xff)
            return n;
    }
    return nullptr;
}

void XmPrjDeskSetClientData(Widget w, XmPrjDeskNode node, XtPointer data)
{
    if (IsDesk(w) && node && Item(node))
        Item(node)->userData = data;
}

XtPointer XmPrjDeskGetClientData(Widget w, XmPrjDeskNode node)
{
    return IsDesk(w) && node && Item(node) ? Item(node)->userData : nullptr;
}

XtPointer XmPrjDeskGetClientDataFromItem(XmPrjDeskNode node)
{
    return node && Item(node) ? Item(node)->userData : nullptr;
}

Widget XmPrjDeskGetDeskWidgetFromItem(XmPrjDeskNode node)
{
    return node && Item(node) ? Item(node)->desk : nullptr;
}

int XmPrjDeskGetItemsCount(Widget w)
{
    return IsDesk(w) ? Count(w) : -1;
}

int XmPrjDeskGetSpecifiedList(Widget w, int kind, XtPointer **list)
{
    if (!IsDesk(w) || !list)
        return 0;
    XtPointer (*pick)(XwkListNode *) = kind == 0 ? PickLabel : kind == 2 ? PickNode : PickUser;
    return MakeList(w, list, pick, false);
}

int XmPrjDeskGetLabelList(Widget w, char ***list)
{
    return XmPrjDeskGetSpecifiedList(w, 0, (XtPointer **)list);
}

int XmPrjDeskGetUserList(Widget w, XtPointer **list)
{
    return XmPrjDeskGetSpecifiedList(w, 1, list);
}

int XmPrjDeskGetIdList(Widget w, XmPrjDeskNode **list)
{
    return XmPrjDeskGetSpecifiedList(w, 2, (XtPointer **)list);
}

int XmPrjDeskDefaultSortProc(const void *a, const void *b)
{
    XmPrjDeskItem x = Item(*(XwkListNode *const *)a), y = Item(*(XwkListNode *const *)b);
    return strcmp(x && x->label ? x->label : "", y && y->label ? y->label : "");
}

void XmPrjDeskSortItems(Widget w)
{
    if (IsDesk(w) && Alive(w))
        Sort(w);
}

void XmPrjDeskAddDeleteItemCallback(Widget w, XmPrjDeskNode node, XmPrjDeskDeleteProc proc,
                                    XtPointer clientData)
{
    if (!IsDesk(w) || !node || !proc || !Item(node))
        return;
    Item(node)->deleteCallback = proc;
    Item(node)->deleteClientData = clientData;
}

void XmPrjDeskSetEditable(Widget w, Boolean editable)
{
    if (!IsDesk(w) || !Alive(w))
        return;
    Boolean frozen = !editable;
    if (M(w).dontMove == frozen && P(w).dontMove == frozen)
        return;
    for (Widget v : Views(w))
        P(v).dontMove = frozen;
    if (frozen)
        return;
    if (M(w).sortItems)
        Sort(w);
    ComputeSizes(w);
    Grid(w);
    if (XtIsRealized(Mother(w)))
        RepaintAll(w, true);
}

Boolean XmPrjDeskGetEditable(Widget w)
{
    return IsDesk(w) && !P(w).dontMove;
}

}  // extern "C"
