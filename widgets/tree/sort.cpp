// Reordering siblings: sorting, arranging by an order, swapping two rows.
// Sibling sets are sorted each by itself; the tree is never flattened.
#include "widgets/tree/tree.h"
#include "frame/sort_private.h"

#include <Xm/XmP.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

using namespace xwk::tree;

namespace {

// Work arrays of up to 8192 bytes stay on the stack.
template <typename T>
class WorkArray {
public:
    explicit WorkArray(size_t n)
    {
        if (n * sizeof(T) <= sizeof small_)
            data_ = reinterpret_cast<T *>(small_);
        else
            data_ = heap_ = reinterpret_cast<T *>(XtCalloc(n, sizeof(T)));
        memset(data_, 0, n * sizeof(T));
    }
    ~WorkArray() { XtFree(reinterpret_cast<char *>(heap_)); }
    WorkArray(const WorkArray &) = delete;
    WorkArray &operator=(const WorkArray &) = delete;
    T &operator[](size_t i) { return data_[i]; }
private:
    alignas(T) char small_[8192];
    T *data_ = nullptr;
    T *heap_ = nullptr;
};

void Relink(XwkTreeNode *parent, XwkTreeNode **children, int n)
{
    for (int i = 0; i < n; i++) {
        children[i]->prev_sibling = i ? children[i - 1] : nullptr;
        children[i]->next_sibling = i + 1 < n ? children[i + 1] : nullptr;
    }
    parent->first_child = n ? children[0] : nullptr;
    parent->last_child = n ? children[n - 1] : nullptr;
}

void SortKey(XwkTreeNode *node, int column, const char **text, XwkIcon **icon);

// The default order, with each row's key read once rather than at every
// comparison: the comparison is XmPrjTreeDefaultSortProc's, on keys taken
// as it takes them.  Only when every row of the set was added through one
// view, whose column and direction then hold for all.
struct SortEntry {
    XwkTreeNode *node;
    const char *text;
    XwkIcon *icon;
};
bool keyed_descending;
bool keyed_labels;

int CompareEntries(const void *a, const void *b)
{
    auto *x = (const SortEntry *)a, *y = (const SortEntry *)b;
    int result;
    if (!keyed_labels && x->icon && y->icon && x->icon != y->icon) {
        result = (uintptr_t)y->icon < (uintptr_t)x->icon ? 1 : -1;
    } else {
        if (!x->text || !y->text)
            return 1;
        result = strcmp(x->text, y->text);
    }
    return keyed_descending ? -result : result;
}

bool SortByKeys(XwkTreeNode **children, int n)
{
    Widget view = AddedThrough(children[0]);
    for (int i = 1; i < n; i++)
        if (AddedThrough(children[i]) != view || !Item(children[i]))
            return false;
    if (!Item(children[0]))
        return false;
    if (view && !IsTree(view))
        view = nullptr;
    int column = view ? P(view).sortColumn : 0;
    bool labels = !column || !TableMode(view);
    std::vector<SortEntry> entries((size_t)n);
    for (int i = 0; i < n; i++) {
        SortEntry &e = entries[(size_t)i];
        e.node = children[i];
        e.icon = nullptr;
        if (labels)
            e.text = LabelOf(Item(e.node));
        else
            SortKey(e.node, column, &e.text, &e.icon);
    }
    keyed_descending = view && P(view).sortDirection == XmSORT_DISCENDING;
    keyed_labels = labels;
    qsort(entries.data(), (size_t)n, sizeof(SortEntry), CompareEntries);
    for (int i = 0; i < n; i++)
        children[i] = entries[(size_t)i].node;
    return true;
}

void SortSet(Widget w, XwkTreeNode *parent)
{
    int n = (int)parent->nchildren;
    if (n < 2)
        return;
    XmPrjTreePart &m = M(w);
    if (!m.sortHasRun)
        m.sortHasRun = True;
    WorkArray<XwkTreeNode *> children(n + 1);
    int i = 0;
    for (XwkTreeNode *c = parent->first_child; c && i < n; c = c->next_sibling)
        children[i++] = c;
    if (m.sortProc != XmPrjTreeDefaultSortProc || !SortByKeys(&children[0], n))
        xwk::QsortUnlessOrdered(&children[0], n, sizeof(XwkTreeNode *),
                                (int (*)(const void *, const void *))m.sortProc);
    Relink(parent, &children[0], n);
}

void SortBelow(Widget w, XwkTreeNode *start)
{
    // Iterative, in the order a recursion would take: a set, then each
    // child's set below it.
    std::vector<XwkTreeNode *> pending{start};
    while (!pending.empty()) {
        XwkTreeNode *n = pending.back();
        pending.pop_back();
        SortSet(w, n);
        std::vector<XwkTreeNode *> kids;
        for (XwkTreeNode *c = n->first_child; c; c = c->next_sibling)
            if (c->first_child)
                kids.push_back(c);
        pending.insert(pending.end(), kids.rbegin(), kids.rend());
    }
}

// The text and icon a row sorts by in a column; a cell without text gives
// the row's label.
void SortKey(XwkTreeNode *node, int column, const char **text, XwkIcon **icon)
{
    XmPrjTreeItem item = Item(node);
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    *text = nullptr;
    *icon = nullptr;
    for (XwkListNode *e = ext && ext->cells ? ext->cells->first : nullptr; e; e = e->next) {
        auto *cell = (XmPrjTreeCellRec *)e->data;
        if (!cell || cell->column != column)
            continue;
        if (cell->type == XmCELL_ICON || cell->type == XmCELL_TOGGLE_ICON)
            *icon = cell->icon;
        *text = cell->text;
        break;
    }
    if (!*text)
        *text = LabelOf(item);
}

void TakeChildrenOut(Widget w, XwkTreeNode *parent)
{
    for (XwkTreeNode *c = parent->first_child; c; c = c->next_sibling)
        RemoveSubtreeVisible(w, c, false);
}

void PutChildrenBack(Widget w, XwkTreeNode *parent)
{
    for (XwkTreeNode *c = parent->first_child; c; c = c->next_sibling)
        InsertSubtreeVisible(w, c);
}

}  // namespace

extern "C" {

int XmPrjTreeDefaultSortProc(const void *a, const void *b)
{
    XwkTreeNode *na = *(XwkTreeNode *const *)a;
    XwkTreeNode *nb = *(XwkTreeNode *const *)b;
    if (!na || !nb || na->parent != nb->parent || !Item(na) || !Item(nb))
        return 1;
    Widget view = AddedThrough(na);
    if (view && !IsTree(view))
        view = nullptr;
    int column = view ? P(view).sortColumn : 0;
    int result;
    if (!column || !TableMode(view)) {
        const char *ta = LabelOf(Item(na)), *tb = LabelOf(Item(nb));
        if (!ta || !tb)
            return 1;
        result = strcmp(ta, tb);
    } else {
        const char *ta, *tb;
        XwkIcon *ia, *ib;
        SortKey(na, column, &ta, &ia);
        SortKey(nb, column, &tb, &ib);
        // Icons sort by address, as they always have.
        if (ia && ib && ia != ib) {
            result = (uintptr_t)ib < (uintptr_t)ia ? 1 : -1;
        } else {
            if (!ta || !tb)
                return 1;
            result = strcmp(ta, tb);
        }
    }
    if (view && P(view).sortDirection == XmSORT_DISCENDING)
        result = -result;
    return result;
}

void _XmPrjTreeSortItems(Widget w, XmPrjTreeNode start, Boolean keepVisible, Boolean redraw)
{
    if (!IsTree(w) || !Alive(w) || !M(w).sortProc)
        return;
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    XmPrjTreePart &v = P(w);
    if (!start)
        start = m.tree->root;
    if (!OwnNode(w, start) || Doomed(w, start))
        return;
    XwkTreeNode *current = m.currentNode;
    if (!v.clearOnUpdate && current && Item(current) && !Hidden(w, current) &&
        RowOnPage(w, RowOf(w, current)))
        PaintPlain(w, current);
    m.currentNode = nullptr;
    if (m.canSlam)
        TakeChildrenOut(mw, start);
    SortBelow(mw, start);
    t_enumerate(m.tree);
    if (m.canSlam)
        PutChildrenBack(mw, start);
    RowsChanged(mw);
    SetFlagOnViews(mw, XmTREE_ROWS_CHANGED);
    m.currentNode = current;
    if (keepVisible) {
        XwkTreeNode *target = m.cellNodeId ? m.cellNodeId : current;
        if (target)
            MakeVisible(w, target, false, true);
    }
    if (RealizedAndManaged(w) && !v.dontMove && redraw)
        RepaintAll(w, v.clearOnUpdate);
}

void XmPrjTreeSortChildren(Widget w, XmPrjTreeNode node)
{
    _XmPrjTreeSortItems(w, node, True, True);
}

void XmPrjTreeSortItems(Widget w, Boolean keepVisible)
{
    _XmPrjTreeSortItems(w, nullptr, keepVisible, True);
}

void XmPrjTreeArrangeChildren(Widget w, XmPrjTreeNode parent, int *order, int n)
{
    if (!IsTree(w) || !Alive(w) || !order)
        return;
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    if (!parent)
        parent = m.tree->root;
    if (!OwnNode(w, parent) || Doomed(w, parent))
        return;
    int count = (int)parent->nchildren;
    if (count < 2)
        return;
    XwkTreeNode *current = m.currentNode;
    m.currentNode = nullptr;
    WorkArray<XwkTreeNode *> opened(count + 1);
    WorkArray<XwkTreeNode *> old_order(count + 1);
    WorkArray<XwkTreeNode *> new_order(count + 1);
    int i = 0;
    for (XwkTreeNode *c = parent->first_child; c && i < count; c = c->next_sibling)
        old_order[i++] = c;
    int nopened = 0;
    if (m.canSlam) {
        for (i = 0; i < count; i++) {
            if (Item(old_order[i]) && ItemState(old_order[i]) == XmSLAM_OPEN) {
                ToggleState(mw, old_order[i]);
                opened[nopened++] = old_order[i];
            }
        }
    }
    for (i = 0; i < count; i++) {
        int from = i < n ? order[i] : i;
        new_order[i] = from >= 0 && from < count ? old_order[from] : old_order[i];
    }
    // A repeated index would lose a child; the old order stands then.
    std::vector<bool> seen(count, false);
    bool sound = true;
    for (i = 0; i < count; i++) {
        for (int j = 0; j < count; j++)
            if (new_order[i] == old_order[j]) {
                sound = sound && !seen[j];
                seen[j] = true;
            }
    }
    if (!sound)
        for (i = 0; i < count; i++)
            new_order[i] = old_order[i];
    if (m.canSlam)
        TakeChildrenOut(mw, parent);
    Relink(parent, &new_order[0], count);
    t_enumerate(m.tree);
    if (m.canSlam)
        PutChildrenBack(mw, parent);
    for (i = 0; i < nopened; i++)
        ToggleState(mw, opened[i]);
    RowsChanged(mw);
    SetFlagOnViews(mw, XmTREE_ROWS_CHANGED);
    m.currentNode = current;
    if (!P(w).dontMove)
        RepaintAll(w, P(w).clearOnUpdate);
}

void XmPrjTreeSetItemPosition(Widget w, XmPrjTreeNode node, int position)
{
    if (!IsTree(w) || !Alive(w) || !node || !Item(node) || !node->parent || !OwnNode(w, node) ||
        Doomed(w, node))
        return;
    XwkTreeNode *parent = node->parent;
    int count = (int)parent->nchildren;
    int own = XmPrjTreeGetItemPositionFromParent(w, node);
    if (position < 1 || position > count || own < 1 || own == position)
        return;
    std::vector<int> order(count);
    for (int i = 0; i < count; i++)
        order[i] = i;
    std::swap(order[own - 1], order[position - 1]);
    XmPrjTreePart &v = P(w);
    Boolean saved = v.dontMove;
    v.dontMove = True;
    XmPrjTreeArrangeChildren(w, parent == M(w).tree->root ? nullptr : parent, order.data(), count);
    v.dontMove = saved;
    MakeVisible(w, node, false, false);
    if (!v.dontMove)
        RepaintAll(w, v.clearOnUpdate);
}

}  // extern "C"
