// The row model: row indices, the index of rows by position, and the list
// of shown rows (visibleList) of a tree with branches that open and close.
//
// visibleList holds the shown rows in display order, each element carrying
// its ordinal.  Whole runs of rows enter and leave it at once and are
// renumbered once per run, so that opening a branch costs one pass over the
// rows after it, not one per row.
#include "widgets/tree/tree.h"

#include <cstring>

namespace xwk::tree {

namespace {

XwkListNode *LinkAfter(XwkList *list, XwkListNode *after, XwkTreeNode *node)
{
    XwkListNode *e = ElementRoom(node);
    e->data = (XtPointer)node;
    e->prev = after;
    e->next = after ? after->next : list->first;
    if (e->next)
        e->next->prev = e;
    else
        list->last = e;
    if (after)
        after->next = e;
    else
        list->first = e;
    list->count++;
    return e;
}

void Unlink(XwkList *list, XwkListNode *e)
{
    if (e->prev)
        e->prev->next = e->next;
    else
        list->first = e->next;
    if (e->next)
        e->next->prev = e->prev;
    else
        list->last = e->prev;
    list->count--;
    memset(e, 0, sizeof *e);
}

bool ClosedState(int state)
{
    return state == XmSLAM_CLOSE || state == XmSLAM_UNDEFINED;
}

// Links the shown part of top's subtree after *after; rows that already
// have an element keep it.  Returns the first element made.
XwkListNode *LinkSubtree(XwkList *list, XwkListNode **pafter, XwkTreeNode *top)
{
    XwkListNode *after = *pafter;
    XwkListNode *first = nullptr;
    XwkTreeNode *n = top;
    while (n) {
        XmPrjTreeItem item = Item(n);
        if (item && ElementOf(item)) {
            after = ElementOf(item);
        } else if (item) {
            after = LinkAfter(list, after, n);
            if (!first)
                first = after;
        }
        bool descend = n->first_child && !ClosedState(ItemState(n));
        if (descend) {
            n = n->first_child;
            continue;
        }
        while (n != top && !n->next_sibling)
            n = n->parent;
        n = n == top ? nullptr : n->next_sibling;
    }
    *pafter = after;
    return first;
}

// Where a row enters visibleList: *after is the element to follow (null:
// the head).  False when the row stays hidden.
bool InsertionPoint(Widget w, XwkTreeNode *node, XwkListNode **after)
{
    XmPrjTreePart &m = M(w);
    for (XwkTreeNode *a = node->parent; a && a->parent; a = a->parent) {
        if (ClosedState(ItemState(a)))
            return false;
    }
    XwkTreeNode *pred;
    if (node->prev_sibling) {
        XwkTreeNode *first_row = m.tree->root->first_child;
        pred = node->prev_sibling;
        for (;;) {
            if (pred == first_row || !pred->first_child)
                break;
            if (m.canSlam && ClosedState(ItemState(pred)))
                break;
            if (!pred->last_child)
                break;
            pred = pred->last_child;
        }
    } else {
        pred = node->parent;
    }
    if (!pred || !pred->parent) {
        *after = nullptr;
        return true;
    }
    XwkTreeNode *parent = node->parent;
    if (!Item(parent) || !parent->first_child) {
        if (parent->parent)
            return false;
        *after = m.visibleList->last;
        return true;
    }
    // A predecessor without an element appends, as l_insert does.
    XwkListNode *pe = ElementOf(Item(pred));
    *after = pe ? pe : m.visibleList->last;
    return true;
}

void BuildIndex(Widget w)
{
    State &s = S(Mother(w));
    XmPrjTreePart &m = M(w);
    s.marks.clear();
    int i = 0;
    if (m.canSlam) {
        if (m.visibleList) {
            for (XwkListNode *e = m.visibleList->first; e; e = e->next, i++)
                if (i % kStride == 0)
                    s.marks.push_back((XwkTreeNode *)e->data);
        }
    } else {
        XwkTreeNode *root = m.tree->root;
        for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root), i++)
            if (i % kStride == 0)
                s.marks.push_back(n);
    }
    s.indexed = i;
    s.indexValid = true;
}

}  // namespace

int ItemState(XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return XmSLAM_OPEN;
    if (item->slamState > XmSLAM_NONE)
        item->slamState = XmSLAM_UNDEFINED;
    return item->slamState;
}

XwkTreeNode *PreorderNext(XwkTreeNode *n, XwkTreeNode *top)
{
    if (n->first_child)
        return n->first_child;
    // A row moved out from under top meanwhile ends the walk at the root.
    while (n && n != top && !n->next_sibling)
        n = n->parent;
    return !n || n == top ? nullptr : n->next_sibling;
}

int RowCount(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (!m.tree)
        return 0;
    if (m.canSlam)
        return m.visibleList ? m.visibleList->count : 0;
    return (int)m.tree->count - 1;
}

void EnsureNumbers(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (m.tree && (m.tree->flags & XWK_TREE_STALE))
        t_enumerate(m.tree);
}

int RowOf(Widget w, XwkTreeNode *node)
{
    if (!node)
        return -1;
    XmPrjTreePart &m = M(w);
    if (m.canSlam) {
        XmPrjTreeItem item = Item(node);
        XwkListNode *e = ElementOf(item);
        if (e && e->index > 0)
            return e->index;
    }
    EnsureNumbers(w);
    return (int)node->id - 1;
}

XwkTreeNode *NodeAt(Widget w, int row)
{
    if (row < 0 || row >= RowCount(w))
        return nullptr;
    State &s = S(Mother(w));
    if (!s.indexValid || row >= s.indexed)
        BuildIndex(w);
    if (row >= s.indexed)
        return nullptr;
    XmPrjTreePart &m = M(w);
    int k = row / kStride;
    if (m.canSlam) {
        XwkListNode *e = ElementOf(Item(s.marks[k]));
        for (int i = k * kStride; i < row && e; i++)
            e = e->next;
        return e ? (XwkTreeNode *)e->data : nullptr;
    }
    XwkTreeNode *n = s.marks[k];
    for (int i = k * kStride; i < row && n; i++)
        n = PreorderNext(n, m.tree->root);
    return n;
}

XwkTreeNode *NextRow(Widget w, XwkTreeNode *node)
{
    if (!node)
        return nullptr;
    XmPrjTreePart &m = M(w);
    if (m.canSlam) {
        XmPrjTreeItem item = Item(node);
        XwkListNode *own = ElementOf(item);
        if (!own)
            return nullptr;
        XwkListNode *e = own->next;
        return e ? (XwkTreeNode *)e->data : nullptr;
    }
    return PreorderNext(node, m.tree->root);
}

XwkTreeNode *PrevRow(Widget w, XwkTreeNode *node)
{
    if (!node)
        return nullptr;
    XmPrjTreePart &m = M(w);
    if (m.canSlam) {
        XmPrjTreeItem item = Item(node);
        XwkListNode *own = ElementOf(item);
        if (!own)
            return nullptr;
        XwkListNode *e = own->prev;
        return e ? (XwkTreeNode *)e->data : nullptr;
    }
    if (node->prev_sibling) {
        XwkTreeNode *n = node->prev_sibling;
        while (n->last_child)
            n = n->last_child;
        return n;
    }
    return node->parent && node->parent->parent ? node->parent : nullptr;
}

void RowsChanged(Widget w)
{
    S(Mother(w)).indexValid = false;
    GeometryChanged(w);
}

void RowAppended(Widget w, XwkTreeNode *node)
{
    State &s = S(Mother(w));
    if (!s.indexValid)
        return;
    XmPrjTreePart &m = M(w);
    XmPrjTreeItem item = Item(node);
    bool last;
    if (m.canSlam) {
        if (!ElementOf(item))
            return;
        last = ElementOf(item) == m.visibleList->last;
    } else {
        last = !(m.tree->flags & XWK_TREE_STALE) && node->id == m.tree->count - 1;
    }
    if (!last || s.indexed != RowCount(w) - 1) {
        s.indexValid = false;
        return;
    }
    if (s.indexed % kStride == 0)
        s.marks.push_back(node);
    s.indexed++;
}

bool Hidden(Widget w, XwkTreeNode *node)
{
    return M(w).canSlam && !ElementOf(Item(node));
}

void InsertVisible(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    if (!m.visibleList || !Item(node))
        return;
    XwkListNode *after;
    if (!InsertionPoint(w, node, &after))
        return;
    XwkListNode *e = LinkAfter(m.visibleList, after, node);
    l_label(e);
    if (!e->next)
        RowAppended(w, node);
    else
        RowsChanged(w);
}

void InsertSubtreeVisible(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    if (!m.visibleList || !Item(node))
        return;
    XwkListNode *after;
    if (!InsertionPoint(w, node, &after))
        return;
    XwkListNode *first = LinkSubtree(m.visibleList, &after, node);
    if (first)
        l_label(first);
    RowsChanged(w);
}

void RemoveSubtreeVisible(Widget w, XwkTreeNode *top, bool keep_current)
{
    XmPrjTreePart &m = M(w);
    if (!m.visibleList)
        return;
    XwkListNode *before = nullptr;
    bool removed = false;
    for (XwkTreeNode *n = top; n; n = PreorderNext(n, top)) {
        XmPrjTreeItem item = Item(n);
        if (!item || !ElementOf(item))
            continue;
        if (keep_current && n == m.currentNode)
            continue;
        if (!removed)
            before = ElementOf(item)->prev;
        Unlink(m.visibleList, ElementOf(item));
        removed = true;
    }
    if (!removed)
        return;
    XwkListNode *start = before ? before->next : m.visibleList->first;
    if (start)
        l_label(start);
    RowsChanged(w);
}

void RemoveVisible(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    XmPrjTreeItem item = Item(node);
    if (!m.visibleList || !item || !ElementOf(item))
        return;
    XwkListNode *next = ElementOf(item)->next;
    bool tail = !next;
    Unlink(m.visibleList, ElementOf(item));
    if (next)
        l_label(next);
    GeometryChanged(w);
    State &s = S(Mother(w));
    if (tail && s.indexValid && s.indexed == RowCount(w) + 1) {
        s.indexed--;
        if ((int)s.marks.size() > (s.indexed + kStride - 1) / kStride)
            s.marks.pop_back();
        return;
    }
    RowsChanged(w);
}

void EmptyVisibleList(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (!m.visibleList)
        return;
    // The elements lie in the rows' records: zeroing them is their leaving.
    for (XwkListNode *e = m.visibleList->first; e;) {
        XwkListNode *next = e->next;
        memset(e, 0, sizeof *e);
        e = next;
    }
    m.visibleList->first = m.visibleList->last = nullptr;
    m.visibleList->count = 0;
    RowsChanged(w);
}

bool ToggleState(Widget view, XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return false;
    XmPrjTreePart &v = P(view);
    XmPrjTreePart &m = M(view);
    int state = ItemState(node);
    if (state == XmSLAM_NONE)
        return false;
    if (state == XmSLAM_OPEN) {
        item->slamState = XmSLAM_CLOSE;
        if (v.selectedIcon && IconOf(item) == v.selectedIcon) {
            SetIcon(node, ExtOf(item) ? ExtOf(item)->savedIcon : nullptr);
            GeometryChanged(view);
        }
        if (!node->first_child)
            return false;
        for (XwkTreeNode *c = node->first_child; c; c = c->next_sibling)
            RemoveSubtreeVisible(view, c, true);
        return true;
    }
    item->slamState = XmSLAM_OPEN;
    if (v.selectedIcon && m.selectionPolicy != XmMULTIPLE_SELECT && IconOf(item) != v.selectedIcon) {
        XwkIcon *icon = IconOf(item);
        Ext(node)->savedIcon = icon;
        SetIcon(node, v.selectedIcon);
        GeometryChanged(view);
        item = Item(node);
    }
    if (!node->first_child)
        return false;
    XwkListNode *after;
    if (m.visibleList && ElementOf(item) && InsertionPoint(view, node->first_child, &after)) {
        // The children follow their parent's row; one run, one renumbering.
        XwkListNode *first = nullptr;
        after = ElementOf(item);
        for (XwkTreeNode *c = node->first_child; c; c = c->next_sibling) {
            XwkListNode *f = LinkSubtree(m.visibleList, &after, c);
            if (!first)
                first = f;
        }
        if (first)
            l_label(first);
        RowsChanged(view);
        return true;
    }
    for (XwkTreeNode *c = node->first_child; c; c = c->next_sibling)
        InsertSubtreeVisible(view, c);
    return true;
}

}  // namespace xwk::tree
