// Rows: adding, deleting, reparenting, finding and walking, per-row
// attributes.  Every operation works on the mother's data, whichever view
// it is given.
#include "widgets/tree/tree.h"
#include "frame/trees_private.h"

#include <Xm/XmP.h>

#include <algorithm>
#include <cstring>
#include <unordered_set>

using namespace xwk::tree;

namespace xwk::tree {

bool IsRoot(Widget w, XwkTreeNode *node)
{
    return node && M(w).tree && node == M(w).tree->root;
}

bool OwnNode(Widget w, XwkTreeNode *node)
{
    if (!node || !M(w).tree)
        return false;
    while (node->parent)
        node = node->parent;
    return node == M(w).tree->root;
}

bool Doomed(Widget w, XwkTreeNode *node)
{
    for (XwkTreeNode *top : S(Mother(w)).freeing)
        for (XwkTreeNode *n = node; n; n = n->parent)
            if (n == top)
                return true;
    return false;
}

XwkTreeNode *LinkRow(Widget w, XwkTreeNode *parent, XtPointer data)
{
    // As t_tlink does for a node with a parent, the node coming from the pool.
    XwkTree *tree = M(w).tree;
    auto *node = (XwkTreeNode *)S(Mother(w)).nodes.Get();
    if (!node)
        return nullptr;
    node->data = data;
    node->id = tree->count++;
    bool was_fresh = !(tree->flags & XWK_TREE_STALE);
    tree->flags |= XWK_TREE_STALE;
    node->level = parent->level + 1;
    if (node->level + 1 > tree->depth)
        tree->depth = node->level + 1;
    node->parent = parent;
    node->prev_sibling = parent->last_child;
    if (parent->last_child)
        parent->last_child->next_sibling = node;
    else
        parent->first_child = node;
    parent->last_child = node;
    parent->nchildren++;
    if (!was_fresh)
        return node;
    // A node that ends the preorder is numbered after its predecessor and
    // moves no other number; anywhere else the tree is renumbered now.
    for (XwkTreeNode *n = node; n; n = n->parent) {
        if (n->next_sibling) {
            t_enumerate(tree);
            return node;
        }
    }
    XwkTreeNode *before = node->prev_sibling;
    if (!before)
        before = parent;
    else
        while (before->last_child)
            before = before->last_child;
    node->id = before->id + 1;
    tree->flags &= ~XWK_TREE_STALE;
    return node;
}

void FreeRows(Widget w, XwkTreeNode *top)
{
    // As t_freenode, but the nodes go back to the pool.
    RecordPool &pool = S(Mother(w)).nodes;
    xwk::FreeSubtree(top, M(w).tree->free_node, M(w).tree,
                     [](XwkTreeNode *n, void *p) { static_cast<RecordPool *>(p)->Put(n); },
                     &pool);
}

void SetFlagOnViews(Widget w, unsigned int flag)
{
    XmPrjTreePart &m = M(w);
    P(Mother(w)).flags |= flag;
    for (Cardinal i = 0; i < m.numClones; i++)
        P(m.clones[i]).flags |= flag;
}

}  // namespace xwk::tree

namespace {

// Notes the view that deletes rows for the time of the deletion.
struct DeletingThrough {
    Widget mother;
    Widget before;
    explicit DeletingThrough(Widget w) : mother(Mother(w)), before(S(mother).deleting)
    {
        if (!before)
            S(mother).deleting = w;
    }
    ~DeletingThrough()
    {
        if (Alive(mother) && P(mother).state)
            S(mother).deleting = before;
    }
    DeletingThrough(const DeletingThrough &) = delete;
    DeletingThrough &operator=(const DeletingThrough &) = delete;
};

bool Usable(Widget w)
{
    return IsTree(w) && Alive(w) && M(w).tree;
}

bool UsableNode(Widget w, XwkTreeNode *node)
{
    return Usable(w) && node && Item(node);
}

// A row that this widget may change: a node of another list is left alone,
// its links and elements being another tree's.
bool OwnRow(Widget w, XwkTreeNode *node)
{
    return UsableNode(w, node) && OwnNode(w, node);
}

void FreeNode(XwkTreeNode *node, XwkTree *tree)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return;
    Widget w = OwnerOfTree(tree);
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    if (ext && ext->deleteProc) {
        XmPrjTreeDeleteProc proc = ext->deleteProc;
        ext->deleteProc = nullptr;
        proc(node, ext->deleteData);
    }
    if (w && !w->core.being_destroyed && P(w).deleteCallback) {
        Widget view = S(w).deleting;
        if (!view || !IsTree(view) || !Alive(view) || Mother(view) != w)
            view = w;
        CallCallbacks(view, P(w).deleteCallback, XmCR_TREE_DELETE_ITEM, nullptr, node,
                      XmTREE_PART_ROW, 0, XmCELL_NONE);
    }
    if (w) {
        XmPrjTreePart &m = P(w);
        if (m.cellNodeId == node) {
            m.cellNodeId = nullptr;
            m.cellColumn = 0;
            Widget editor = m.cellActive;
            m.cellActive = nullptr;
            if (editor && !editor->core.being_destroyed)
                XtUnmanageChild(editor);
        }
        if (m.currentNode == node) {
            m.currentNode = nullptr;
            m.selected = nullptr;
        }
        if (m.highlightedNode == node) {
            m.highlightedNode = nullptr;
            m.highlightedWidget = nullptr;
        }
        // A new row at the same address is no second click on this one.
        if (m.lastClickNode == node)
            m.lastClickNode = nullptr;
        for (Cardinal i = 0; i < m.numClones; i++)
            if (P(m.clones[i]).lastClickNode == node)
                P(m.clones[i]).lastClickNode = nullptr;
        if (ElementOf(Item(node)))
            RemoveVisible(w, node);
    }
    if (w) {
        ForgetString(w, node);
        S(w).deletions++;
        if (S(w).watching)
            S(w).freedWhileWatching.push_back(node);
    }
    FreeItem(Item(node));
    node->data = nullptr;
}

bool Due(Widget w, XwkTreeNode *parent, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    (void)node;
    if (!m.canSlam)
        return true;
    if (parent->parent) {
        int row = RowOf(w, parent);
        return !Hidden(w, parent) && RowOnPage(w, row) && ItemState(parent) != XmSLAM_CLOSE;
    }
    return true;
}

// Repaints the rows from node down while they are on the page.
void UpdateFrom(Widget w, XwkTreeNode *node)
{
    XwkTreeNode *seen = nullptr;
    for (XwkTreeNode *n = node; n && n != seen; n = NextRow(w, n)) {
        if (Hidden(w, n) || !RowOnPage(w, RowOf(w, n)))
            break;
        XmPrjTreeUpdateNode(w, n);
        seen = n;
    }
}

// Counts a row out of the selection, as deletion does.
void Unselect(Widget w, XwkTreeNode *n)
{
    XmPrjTreeItem item = Item(n);
    unsigned both = XmTREE_ITEM_SELECTED | XmTREE_ITEM_SELECTABLE;
    if (item && (item->flags & both) == both) {
        item->flags &= ~XmTREE_ITEM_SELECTED;
        if (M(w).selectedCount > 0)
            M(w).selectedCount--;
    }
}

// As t_delete_node, but the numbers are left stale for the next search to
// renew once: a batch of deletes renumbers once, not once per row.
void DetachAndFree(Widget w, XwkTreeNode *node)
{
    XwkTree *tree = M(w).tree;
    XwkTreeNode *parent = node->parent;
    if (!parent)
        return;
    bool keeps_numbers = !(tree->flags & XWK_TREE_STALE) && !t_next(node);
    xwk::UnlinkChild(node);
    if (!keeps_numbers)
        tree->flags |= XWK_TREE_STALE;
    FreeRows(w, node);
}

bool IsNodeOrChild(XwkTreeNode *current, XwkTreeNode *node)
{
    return current && (current == node || current->parent == node);
}

// The preorder predecessor without the list: the last shown row below the
// previous sibling, else the parent.
XwkTreeNode *PreviousWithoutList(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    if (node->prev_sibling) {
        XwkTreeNode *n = node->prev_sibling;
        while (n->last_child) {
            if (m.canSlam) {
                int s = ItemState(n);
                if (s == XmSLAM_CLOSE || s == XmSLAM_UNDEFINED)
                    break;
            }
            n = n->last_child;
        }
        return n;
    }
    if (node->parent && node->parent->parent)
        return node->parent;
    return nullptr;
}

void ResetOrigins(Widget w)
{
    for (Widget v : Views(w)) {
        P(v).topRow = 0;
        P(v).xOrigin = 0;
        P(v).lastHScroll = P(v).lastVScroll = -1;
    }
}

void RelayoutAndRepaint(Widget w, bool clear)
{
    if (P(w).dontMove)
        return;
    LayoutPass(w);
    ConfigureAllScrollBars(w);
    RepaintAll(w, clear);
}

bool DescendantOf(XwkTreeNode *node, XwkTreeNode *ancestor)
{
    for (XwkTreeNode *n = node; n; n = n->parent)
        if (n == ancestor)
            return true;
    return false;
}

int CollectList(Widget w, XwkTreeNode *top, bool include_top, bool selected_only, int kind,
                XtPointer **list)
{
    std::vector<XtPointer> out;
    for (XwkTreeNode *n = include_top ? top : top->first_child; n; n = PreorderNext(n, top)) {
        XmPrjTreeItem item = Item(n);
        if (!item)
            continue;
        if (selected_only && !(item->flags & XmTREE_ITEM_SELECTED))
            continue;
        switch (kind) {
        case XmTREE_LABEL_LIST: out.push_back(LabelOf(item)); break;
        case XmTREE_USER_LIST: out.push_back(item->clientData); break;
        default: out.push_back(n); break;
        }
    }
    (void)w;
    if (out.empty()) {
        *list = nullptr;
        return 0;
    }
    *list = (XtPointer *)XtCalloc(out.size() + 1, sizeof(XtPointer));
    memcpy(*list, out.data(), out.size() * sizeof(XtPointer));
    return (int)out.size();
}

// Visits the rows below top in preorder (only its children when direct).
// The visitor may delete rows, the visited one included: the tour goes on
// from the visited row if it still stands, else from the row that came
// after it or after its subtree, else it ends.  A tour of the selected rows answers the
// top-level row under which the visitor stopped.
XwkTreeNode *Tour(Widget w, XwkTreeNode *top, bool direct, bool selected_only,
                  XmPrjTreeTourProc proc, XtPointer data)
{
    XwkTreeNode *root = M(w).tree->root;
    auto step = [&](XwkTreeNode *n) { return direct ? n->next_sibling : PreorderNext(n, top); };
    XwkTreeNode *n = top->first_child;
    while (n) {
        if (w->core.being_destroyed)
            return nullptr;
        XmPrjTreeItem item = Item(n);
        if (!item || (selected_only && !(item->flags & XmTREE_ITEM_SELECTED))) {
            n = step(n);
            continue;
        }
        XwkTreeNode *upper = n;
        while (selected_only && upper->parent && upper->parent != root)
            upper = upper->parent;
        XwkTreeNode *after = step(n), *beyond = n;
        while (!direct && beyond != top && !beyond->next_sibling)
            beyond = beyond->parent;
        beyond = beyond == top ? nullptr : beyond->next_sibling;
        State &st = S(Mother(w));
        size_t mark = st.freedWhileWatching.size();
        st.watching++;
        Boolean stop = proc(n, item->clientData, data);
        st.watching--;
        auto gone = [&](XwkTreeNode *x) {
            auto &freed = st.freedWhileWatching;
            return std::find(freed.begin() + mark, freed.end(), x) != freed.end();
        };
        bool n_gone = gone(n);
        XwkTreeNode *next = nullptr;
        if (!n_gone)
            next = step(n);
        else if (after && !gone(after))
            next = after;
        else if (beyond && !gone(beyond))
            next = beyond;
        if (!st.watching)
            st.freedWhileWatching.clear();
        if (stop)
            return n_gone ? nullptr : selected_only ? upper : n;
        if (w->core.being_destroyed)
            return nullptr;
        n = next;
    }
    return nullptr;
}

}  // namespace

namespace xwk::tree {

XwkTreeFreeProc TreeFreeProc()
{
    return FreeNode;
}

}  // namespace xwk::tree

extern "C" {

XmPrjTreeNode XmPrjTreeAddItem(Widget w, XmPrjTreeNode parent, const char *label, XwkIcon *icon,
                               XtPointer clientData, int slamState, XwkIcon *fruitlessIcon,
                               XwkIcon *openIcon, XwkIcon *closedIcon)
{
    if (!Usable(w))
        return nullptr;
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    XmPrjTreePart &v = P(w);
    if (!parent)
        parent = m.tree->root;
    if (!OwnNode(w, parent) || Doomed(w, parent))
        return nullptr;
    if (parent != m.tree->root && Item(parent) && ItemState(parent) == XmSLAM_UNDEFINED)
        Item(parent)->slamState = XmSLAM_CLOSE;

    unsigned char layout = 0;
    if (icon)
        layout |= XmTREE_ITEM_HAS_ICON;
    if (m.canSlam)
        layout |= XmTREE_ITEM_HAS_ELEMENT;
    if (w != mw || (m.canSlam && m.slamPolicy == XmSLAM_PER_ROW) || TableMode(w))
        layout |= XmTREE_ITEM_HAS_EXT;
    XmPrjTreeItem item = NewItem(label, layout);
    XwkTreeNode *node = LinkRow(mw, parent, item);
    if (!node) {
        FreeItem(item);
        return nullptr;
    }
    if (w != mw)
        Ext(node)->tree = w;
    SetIcon(node, icon);
    item = Item(node);
    item->clientData = clientData;
    item->flags = XmTREE_ITEM_SELECTABLE;
    item->colours = ColourIndex(mw, ((XmManagerWidget)mw)->manager.foreground,
                                mw->core.background_pixel);
    if (item->colours == XmTREE_COLOURS_OWN) {
        Ext(node)->foreground = (unsigned int)((XmManagerWidget)mw)->manager.foreground;
        Ext(node)->background = (unsigned int)mw->core.background_pixel;
        item = Item(node);
    }
    // Without canSlam the state is not stored: the row stands open, should
    // canSlam be set later.
    if (!m.canSlam)
        slamState = XmSLAM_OPEN;
    else if (slamState < 0 || slamState > XmSLAM_NONE)
        slamState = XmSLAM_UNDEFINED;
    item->slamState = (unsigned char)slamState;
    if (TableMode(w)) {
        ParseCells(w, node, true);
        item = Item(node);
    } else {
        MeasureItem(w, item);
    }
    if (v.flags & XmTREE_SIMPLE_ADD)
        GrowForItem(w, item);

    if (m.canSlam) {
        if (m.slamPolicy == XmSLAM_PER_ROW) {
            XmPrjTreeItemExtRec *ext = Ext(node);
            ext->fruitlessIcon = fruitlessIcon ? fruitlessIcon : m.fruitlessStateIcon;
            ext->openIcon = openIcon ? openIcon : m.openStateIcon;
            ext->closedIcon = closedIcon ? closedIcon : m.closedStateIcon;
        }
        InsertVisible(mw, node);
    } else {
        RowAppended(mw, node);
    }
    RowEntered(mw, node);
    SetFlagOnViews(mw, XmTREE_ROWS_CHANGED);
    if (!(v.flags & XmTREE_SIMPLE_ADD))
        v.flags |= XmTREE_GEOMETRY_STALE;
    if (v.dontMove || (v.flags & XmTREE_SIMPLE_ADD))
        return node;
    if (!Due(w, parent, node))
        return node;

    Dimension old_width = m.rowWidth, old_height = m.rowHeight;
    LayoutPass(w);
    ConfigureAllScrollBars(w);
    if (!RealizedAndManaged(w) || !node->data)
        return node;
    if (m.rowWidth == old_width && m.rowHeight == old_height && !Hidden(w, node) &&
        RowOnPage(w, RowOf(w, node)))
        UpdateFrom(w, node);
    else
        RepaintAll(w, P(w).clearOnUpdate);
    return node;
}

XmPrjTreeNode XmPrjTreeAddSimpleItemToItem(Widget w, XmPrjTreeNode parent, const char *label,
                                           XwkIcon *icon, XtPointer clientData)
{
    if (!Usable(w) || !label)
        return nullptr;
    XmPrjTreePart &v = P(w);
    unsigned int had = v.flags & XmTREE_SIMPLE_ADD;
    v.flags |= XmTREE_SIMPLE_ADD;
    XmPrjTreeNode node = XmPrjTreeAddItem(w, parent, label, icon, clientData, XmSLAM_UNDEFINED,
                                          nullptr, nullptr, nullptr);
    v.flags = (v.flags & ~XmTREE_SIMPLE_ADD) | had;
    if (!node || v.dontMove)
        return node;
    ConfigureAllScrollBars(w);
    if (RealizedAndManaged(w))
        UpdateFrom(w, node);
    return node;
}

XmPrjTreeNode XmPrjTreeAddSimpleItem(Widget w, const char *label, XtPointer clientData)
{
    return XmPrjTreeAddSimpleItemToItem(w, nullptr, label, nullptr, clientData);
}

void XmPrjTreeDeleteAllItems(Widget w)
{
    if (!Usable(w) || !S(Mother(w)).freeing.empty())
        return;
    DeletingThrough through(w);
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    XwkTreeNode *root = m.tree->root;
    m.currentNode = nullptr;
    m.selected = nullptr;
    ForgetStrings(mw);
    // The rows leave the list first, all at once.
    EmptyVisibleList(mw);
    XwkTreeNode *child = root->first_child;
    root->first_child = root->last_child = nullptr;
    root->nchildren = 0;
    S(mw).freeing.push_back(root);
    while (child) {
        XwkTreeNode *next = child->next_sibling;
        FreeRows(mw, child);
        child = next;
    }
    S(mw).freeing.pop_back();
    m.tree->count = 1;
    m.tree->flags &= ~XWK_TREE_STALE;
    m.selectedCount = 0;
    RowsChanged(mw);
    ResetOrigins(mw);
    for (Widget v : Views(mw)) {
        P(v).flags &= ~XmTREE_SCROLLBARS_BUSY;
        if (P(v).relayoutTimer) {
            XtRemoveTimeOut(P(v).relayoutTimer);
            P(v).relayoutTimer = 0;
        }
    }
    if (!P(w).dontMove) {
        ConfigureAllScrollBars(w);
        RepaintAll(w, true);
    }
    P(w).flags |= XmTREE_GEOMETRY_STALE;
}

void XmPrjTreeDeleteItem(Widget w, XmPrjTreeNode node)
{
    if (!OwnRow(w, node) || IsRoot(w, node) || Doomed(w, node))
        return;
    DeletingThrough through(w);
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    XmPrjTreePart &v = P(w);
    if (RowCount(w) == 0)
        return;
    XwkTreeNode *first = m.tree->root->first_child;
    if (RowCount(w) == 1 && node == first && (m.canSlam || !first->first_child)) {
        XmPrjTreeDeleteAllItems(w);
        return;
    }
    bool batch = v.flags & XmTREE_DELETE_BATCH;
    XwkTreeNode *successor = nullptr;
    bool make_visible = false;
    if (batch) {
        if (IsNodeOrChild(m.currentNode, node)) {
            m.currentNode = nullptr;
            m.selected = nullptr;
        }
    } else {
        if (!node->first_child) {
            Unselect(w, node);
        } else {
            for (XwkTreeNode *c = node->first_child; c; c = c->next_sibling)
                Unselect(w, c);
        }
        if (IsNodeOrChild(m.currentNode, node)) {
            EnsureNumbers(w);
            if (node->id == 1)
                successor = node->first_child ? node->first_child : node->next_sibling;
            else
                successor = PreviousWithoutList(w, node);
            // The first row's successor is its first child when it has one:
            // that row is selected and counted, then freed with the rest,
            // which leaves no current row and the count one higher, as it
            // always has.
            if (successor && !IsRoot(w, successor)) {
                m.currentNode = successor;
                m.selected = Item(successor)->clientData;
            }
            if (m.currentNode == node) {
                m.currentNode = nullptr;
                m.selected = nullptr;
            }
            if (m.currentNode) {
                XmPrjTreeItem ci = Item(m.currentNode);
                if ((ci->flags & XmTREE_ITEM_SELECTABLE) && !(ci->flags & XmTREE_ITEM_SELECTED)) {
                    ci->flags |= XmTREE_ITEM_SELECTED;
                    m.selectedCount++;
                }
                make_visible = true;
            }
        }
    }
    // Only a repaint without clearing needs the row; finding it may renumber.
    bool clear_below = !batch && !v.dontMove && !v.clearOnUpdate && RealizedAndManaged(w);
    int row = clear_below && !Hidden(w, node) ? RowOf(w, node) : -1;
    RemoveSubtreeVisible(mw, node, false);
    S(mw).freeing.push_back(node);
    DetachAndFree(mw, node);
    S(mw).freeing.pop_back();
    RowsChanged(mw);
    SetFlagOnViews(mw, XmTREE_ROWS_CHANGED);
    v.flags |= XmTREE_GEOMETRY_STALE;
    ClampSelectedCount(w);
    if (!batch && !v.dontMove) {
        LayoutPass(w);
        if (RealizedAndManaged(w)) {
            if (!v.clearOnUpdate && row >= 0 && row >= v.topRow) {
                int y = RowY(w, row);
                int bottom = (int)w->core.height - (int)((XmManagerWidget)w)->manager.shadow_thickness;
                if (y < bottom)
                    XClearArea(XtDisplay(w), XtWindow(w), 0, y, w->core.width, bottom - y, False);
            }
            if (make_visible && m.currentNode)
                MakeVisible(w, m.currentNode, false, false);
            ConfigureAllScrollBars(w);
            RepaintAll(w, v.clearOnUpdate);
        }
    }
    if (!batch)
        RaiseSelectionChanged(w, XmCR_TREE_SELECTION_CHANGED, nullptr, m.currentNode,
                              XmTREE_PART_ROW);
}

void XmPrjTreeAddDeleteItemCallback(Widget w, XmPrjTreeNode node, XmPrjTreeDeleteProc proc,
                                    XtPointer data)
{
    if (!UsableNode(w, node) || !proc)
        return;
    XmPrjTreeItemExtRec *ext = Ext(node);
    ext->deleteProc = proc;
    ext->deleteData = data;
}

int XmPrjTreeDeleteChildren(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w))
        return 0;
    if (!node || IsRoot(w, node)) {
        int rows = (int)M(w).tree->count - 1;
        XmPrjTreeDeleteAllItems(w);
        return rows;
    }
    if (!OwnRow(w, node) || Doomed(w, node))
        return 0;
    XmPrjTreePart &v = P(w);
    unsigned int had = v.flags & XmTREE_DELETE_BATCH;
    v.flags |= XmTREE_DELETE_BATCH;
    int deleted = 0;
    // A callback may delete the node itself, or leave a child in place.
    State &st = S(Mother(w));
    st.watching++;
    size_t seen = st.freedWhileWatching.size();
    while (XwkTreeNode *child = node->first_child) {
        XmPrjTreeDeleteItem(w, child);
        deleted++;
        auto &freed = st.freedWhileWatching;
        bool gone = std::find(freed.begin() + seen, freed.end(), node) != freed.end();
        seen = freed.size();
        if (gone || node->first_child == child)
            break;
    }
    if (--st.watching == 0)
        st.freedWhileWatching.clear();
    v.flags = (v.flags & ~XmTREE_DELETE_BATCH) | had;
    if (!v.dontMove) {
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, true);
    }
    if (RowCount(w) == 0) {
        ResetOrigins(w);
        M(w).selectedCount = 0;
    }
    return deleted ? deleted + 1 : 0;
}

void XmPrjTreeDeleteItems(Widget w, XmPrjTreeNode *nodes, int n)
{
    if (!Usable(w) || !nodes)
        return;
    DeletingThrough through(w);
    XmPrjTreePart &v = P(w);
    unsigned int had = v.flags & XmTREE_DELETE_BATCH;
    v.flags |= XmTREE_DELETE_BATCH;
    // A row freed with one listed before it, or by a callback, is not
    // deleted again.
    State &st = S(Mother(w));
    std::unordered_set<XwkTreeNode *> listed(nodes, nodes + std::max(n, 0)), gone;
    st.watching++;
    size_t seen = st.freedWhileWatching.size();
    for (int i = 0; i < n; i++) {
        if (!gone.count(nodes[i]))
            XmPrjTreeDeleteItem(w, nodes[i]);
        for (; seen < st.freedWhileWatching.size(); seen++)
            if (listed.count(st.freedWhileWatching[seen]))
                gone.insert(st.freedWhileWatching[seen]);
    }
    if (--st.watching == 0)
        st.freedWhileWatching.clear();
    v.flags = (v.flags & ~XmTREE_DELETE_BATCH) | had;
    if (!v.dontMove) {
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, true);
    }
    if (RowCount(w) == 0) {
        ResetOrigins(w);
        M(w).selectedCount = 0;
    }
}

void XmPrjTreeReparentItem(Widget w, XmPrjTreeNode node, XmPrjTreeNode newParent)
{
    if (!OwnRow(w, node) || !OwnNode(w, newParent) || node == newParent || Doomed(w, node) ||
        Doomed(w, newParent))
        return;
    Widget mw = Mother(w);
    XmPrjTreePart &m = P(mw);
    bool inside = DescendantOf(newParent, node);
    if (m.canSlam && inside) {
        RemoveSubtreeVisible(mw, node, false);
        t_reparent(m.tree, node, newParent);
        InsertSubtreeVisible(mw, node);
    } else {
        t_reparent(m.tree, node, newParent);
    }
    RowsChanged(mw);
    SetFlagOnViews(mw, XmTREE_ROWS_CHANGED);
    P(w).flags |= XmTREE_GEOMETRY_STALE;
    RelayoutAndRepaint(w, true);
}

int XmPrjTreeGetItemPositionFromParent(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w) || !node || IsRoot(w, node) || !node->parent || !node->parent->nchildren)
        return -1;
    int pos = 1;
    for (XwkTreeNode *c = node->parent->first_child; c && c != node; c = c->next_sibling)
        pos++;
    return pos;
}

XmPrjTreeNode XmPrjTreeGetItemByPositionFromParent(Widget w, XmPrjTreeNode parent, int position)
{
    if (!Usable(w))
        return nullptr;
    if (!parent)
        parent = M(w).tree->root;
    if (position < 1 || position > (int)parent->nchildren)
        return nullptr;
    XwkTreeNode *c = parent->first_child;
    for (int i = 1; i < position && c; i++)
        c = c->next_sibling;
    return c;
}

XmPrjTreeNode XmPrjTreeGetRoot(Widget w)
{
    return Usable(w) ? M(w).tree->root : nullptr;
}

XmPrjTreeNode XmPrjTreeGetFirstNode(Widget w)
{
    if (!Usable(w))
        return nullptr;
    XmPrjTreePart &m = M(w);
    if (!m.tree->root->first_child)
        return nullptr;
    if (m.canSlam)
        return m.visibleList && m.visibleList->first ? (XwkTreeNode *)m.visibleList->first->data
                                                     : nullptr;
    return m.tree->root->first_child;
}

XmPrjTreeNode XmPrjTreeGetLastNode(Widget w)
{
    if (!Usable(w))
        return nullptr;
    XmPrjTreePart &m = M(w);
    if (m.canSlam)
        return m.visibleList && m.visibleList->last ? (XwkTreeNode *)m.visibleList->last->data
                                                    : nullptr;
    XwkTreeNode *n = m.tree->root;
    while (n->last_child)
        n = n->last_child;
    return n == m.tree->root ? nullptr : n;
}

XmPrjTreeNode XmPrjTreeGetNextNode(Widget w, XmPrjTreeNode node)
{
    if (!UsableNode(w, node))
        return nullptr;
    XwkTreeNode *next = node->first_child ? node->first_child : node->next_sibling;
    if (!next && M(w).canSlam)
        next = NextRow(w, node);
    return next;
}

XmPrjTreeNode XmPrjTreeGetPreviousNode(Widget w, XmPrjTreeNode node)
{
    if (!UsableNode(w, node))
        return nullptr;
    XwkTreeNode *prev = PreviousWithoutList(w, node);
    if (!prev && M(w).canSlam)
        prev = PrevRow(w, node);
    return prev;
}

XmPrjTreeNode XmPrjTreeGetParent(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w) || !node || IsRoot(w, node))
        return nullptr;
    return node->parent;
}

int XmPrjTreeGetNodeLevel(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w) || !node)
        return -1;
    return (int)node->level;
}

int XmPrjTreeGetNodeNumber(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w) || !node)
        return 0;
    EnsureNumbers(w);
    return (int)node->id;
}

XmPrjTreeNode XmPrjTreeFindFirstChild(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w))
        return nullptr;
    return (node ? node : M(w).tree->root)->first_child;
}

XmPrjTreeNode XmPrjTreeFindItemOneLevel(Widget w, XmPrjTreeNode parent, const char *label)
{
    if (!Usable(w) || !label)
        return nullptr;
    if (!parent)
        parent = M(w).tree->root;
    for (XwkTreeNode *c = parent->first_child; c; c = c->next_sibling)
        if (Item(c) && LabelOf(Item(c)) && strcmp(LabelOf(Item(c)), label) == 0)
            return c;
    return nullptr;
}

XmPrjTreeNode XmPrjTreeFindItemByClientData(Widget w, XtPointer clientData)
{
    if (!Usable(w))
        return nullptr;
    XwkTreeNode *root = M(w).tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root))
        if (Item(n) && Item(n)->clientData == clientData)
            return n;
    return nullptr;
}

XmPrjTreeNode XmPrjTreeFindItemByNodeNumber(Widget w, int number)
{
    // Only the root is ever found: the original search drops what its
    // recursion into the children returns, and callers rely on that.
    if (!Usable(w))
        return nullptr;
    return number == 0 ? M(w).tree->root : nullptr;
}

Boolean XmPrjTreeIsParent(Widget w, XmPrjTreeNode parent, XmPrjTreeNode node)
{
    // Direct children only, as the original's dropped recursion gives.
    if (!Usable(w) || !parent || !node)
        return False;
    return node->parent == parent;
}

Boolean XmPrjTreeItemExists(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w) || !node)
        return False;
    // Fresh numbers run from 0 to count - 1 without a gap, so a number
    // below the count is one that t_find finds.
    EnsureNumbers(w);
    return node->id < M(w).tree->count;
}

Boolean XmPrjTreeItemVisible(Widget w, XmPrjTreeNode node)
{
    if (!UsableNode(w, node))
        return False;
    if (M(w).canSlam) {
        XwkTreeNode *a = node->parent;
        while (a && a->parent && ItemState(a) == XmSLAM_OPEN)
            a = a->parent;
        if (a && a->parent)
            return False;
    }
    return RowOnPage(w, RowOf(w, node));
}

int XmPrjTreeGetItemsCount(Widget w, XmPrjTreeNode node)
{
    if (!Usable(w))
        return 0;
    if (!node)
        node = M(w).tree->root;
    if (!node)
        return -1;
    return (int)node->nchildren;
}

Widget XmPrjTreeGetTreeWidgetFromItem(XmPrjTreeNode node)
{
    return node && Item(node) ? AddedThrough(node) : nullptr;
}

char *XmPrjTreeGetNameItem(Widget w, XmPrjTreeNode node)
{
    return UsableNode(w, node) ? LabelOf(Item(node)) : nullptr;
}

XtPointer XmPrjTreeGetClientData(Widget w, XmPrjTreeNode node)
{
    return UsableNode(w, node) ? Item(node)->clientData : nullptr;
}

XtPointer XmPrjTreeGetClientDataFromNode(XmPrjTreeNode node)
{
    return node && Item(node) ? Item(node)->clientData : nullptr;
}

XtPointer XmPrjTreeGetClientDataFromParent(Widget w, XmPrjTreeNode node)
{
    if (!UsableNode(w, node) || !node->parent || !Item(node->parent))
        return nullptr;
    return Item(node->parent)->clientData;
}

void XmPrjTreeSetClientData(Widget w, XmPrjTreeNode node, XtPointer clientData)
{
    if (!UsableNode(w, node))
        return;
    Item(node)->clientData = clientData;
    if (M(w).currentNode == node)
        M(w).selected = clientData;
}

XmPrjTreeNode XmPrjTreeGetSelectedItem(Widget w)
{
    return Usable(w) ? M(w).currentNode : nullptr;
}

XwkTree *XmPrjTreeGetTreePtr(Widget w)
{
    return Usable(w) ? M(w).tree : nullptr;
}

XmPrjTreeNode XmPrjTreeGetNodePtr(Widget w, XmPrjTreeNode node)
{
    return Usable(w) ? node : nullptr;
}

Pixel XmPrjTreeGetItemForeground(Widget w, XmPrjTreeNode node)
{
    return UsableNode(w, node) ? ForegroundOf(w, Item(node)) : 0;
}

int XmPrjTreeSetItemForeground(Widget w, XmPrjTreeNode node, Pixel pixel, Boolean redraw)
{
    if (!OwnRow(w, node))
        return 0;
    if (ForegroundOf(w, Item(node)) == pixel)
        return 1;
    SetForeground(w, node, pixel);
    if (redraw)
        XmPrjTreeUpdateNode(w, node);
    return 1;
}

char *XmPrjTreeGetItemCharSet(Widget w, XmPrjTreeNode node)
{
    return UsableNode(w, node) ? CharsetOf(w, Item(node)) : nullptr;
}

int XmPrjTreeSetItemCharset(Widget w, XmPrjTreeNode node, char *charset, Boolean redraw)
{
    if (!OwnRow(w, node) || !charset)
        return 0;
    char *now = CharsetOf(w, Item(node));
    if (now && strcmp(now, charset) == 0)
        return 1;
    Ext(node)->charset = charset;
    ForgetString(w, node);
    GeometryChanged(w);
    XmPrjTreeItem item = Item(node);
    Dimension old_height = M(w).rowHeight;
    MeasureItem(w, item);
    GrowForItem(w, item);
    if (!redraw || P(w).dontMove)
        return 1;
    if (M(w).rowHeight != old_height) {
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, P(w).clearOnUpdate);
    } else {
        ConfigureAllScrollBars(w);
        XmPrjTreeUpdateNode(w, node);
    }
    return 1;
}

void XmPrjTreeGetItemAttributes(Widget w, XmPrjTreeNode node, XwkIcon **icon, XwkIcon **fruitless,
                                XwkIcon **open, XwkIcon **closed)
{
    if (!UsableNode(w, node))
        return;
    XmPrjTreeItem item = Item(node);
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    if (icon)
        *icon = IconOf(item);
    if (fruitless)
        *fruitless = ext ? ext->fruitlessIcon : nullptr;
    if (open)
        *open = ext ? ext->openIcon : nullptr;
    if (closed)
        *closed = ext ? ext->closedIcon : nullptr;
}

void XmPrjTreeSetItemAttributes(Widget w, XmPrjTreeNode node, XwkIcon *icon, XwkIcon *fruitless,
                                XwkIcon *open, XwkIcon *closed)
{
    if (!OwnRow(w, node))
        return;
    XmPrjTreePart &m = M(w);
    SetIcon(node, icon);
    GeometryChanged(w);
    if (m.slamPolicy == XmSLAM_PER_ROW) {
        XmPrjTreeItemExtRec *ext = Ext(node);
        ext->fruitlessIcon = fruitless ? fruitless : m.fruitlessStateIcon;
        ext->openIcon = open ? open : m.openStateIcon;
        ext->closedIcon = closed ? closed : m.closedStateIcon;
    }
    bool wider = icon && IconWidth(icon) > m.iconWidth;
    bool taller = icon && IconHeight(icon) > m.rowHeight;
    if (wider || taller) {
        P(w).flags |= XmTREE_GEOMETRY_STALE;
        RelayoutAndRepaint(w, P(w).clearOnUpdate);
        return;
    }
    if (Hidden(w, node))
        return;
    XmPrjTreeUpdateNode(w, node);
}

void XmPrjTreeGetDefaultItemAttributes(Widget w, XwkIcon **fruitless, XwkIcon **open,
                                       XwkIcon **closed)
{
    if (!Usable(w))
        return;
    XmPrjTreePart &m = M(w);
    if (fruitless)
        *fruitless = m.fruitlessStateIcon;
    if (open)
        *open = m.openStateIcon;
    if (closed)
        *closed = m.closedStateIcon;
}

int XmPrjTreeGetSpecifiedList(Widget w, int kind, XtPointer **list)
{
    if (list)
        *list = nullptr;
    if (!Usable(w) || !list)
        return 0;
    return CollectList(w, M(w).tree->root, false, false, kind, list);
}

int XmPrjTreeGetLabelList(Widget w, char ***list)
{
    return XmPrjTreeGetSpecifiedList(w, XmTREE_LABEL_LIST, (XtPointer **)list);
}

int XmPrjTreeGetUserList(Widget w, XtPointer **list)
{
    return XmPrjTreeGetSpecifiedList(w, XmTREE_USER_LIST, list);
}

int XmPrjTreeGetIdList(Widget w, XmPrjTreeNode **list)
{
    return XmPrjTreeGetSpecifiedList(w, XmTREE_ID_LIST, (XtPointer **)list);
}

int XmPrjTreeGetSelectedSpecifiedList(Widget w, int kind, XtPointer **list)
{
    if (list)
        *list = nullptr;
    if (!Usable(w) || !list)
        return 0;
    return CollectList(w, M(w).tree->root, false, true, kind, list);
}

int XmPrjTreeGetSelectedLabelList(Widget w, char ***list)
{
    return XmPrjTreeGetSelectedSpecifiedList(w, XmTREE_LABEL_LIST, (XtPointer **)list);
}

int XmPrjTreeGetSelectedUserList(Widget w, XtPointer **list)
{
    return XmPrjTreeGetSelectedSpecifiedList(w, XmTREE_USER_LIST, list);
}

int XmPrjTreeGetSelectedIdList(Widget w, XmPrjTreeNode **list)
{
    return XmPrjTreeGetSelectedSpecifiedList(w, XmTREE_ID_LIST, (XtPointer **)list);
}

int XmPrjTreeGetChildrenUserList(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                 XtPointer **list)
{
    if (list)
        *list = nullptr;
    if (!Usable(w) || !list)
        return 0;
    if (!node)
        node = M(w).tree->root;
    if (!directOnly)
        return CollectList(w, node, true, false, XmTREE_USER_LIST, list);
    std::vector<XtPointer> out;
    for (XwkTreeNode *c = node->first_child; c; c = c->next_sibling)
        out.push_back(Item(c) ? Item(c)->clientData : nullptr);
    if (out.empty())
        return 0;
    *list = (XtPointer *)XtCalloc(out.size() + 1, sizeof(XtPointer));
    memcpy(*list, out.data(), out.size() * sizeof(XtPointer));
    return (int)out.size();
}

int XmPrjTreeGetSelectedItemCount(Widget w)
{
    return Usable(w) ? M(w).selectedCount : 0;
}

int XmPrjTreeGetSelectedItemsCount(Widget w)
{
    return XmPrjTreeGetSelectedItemCount(w);
}

XmPrjTreeNode XmPrjTreeTourTree(Widget w, XmPrjTreeTourProc proc, XtPointer data)
{
    if (!Usable(w) || !proc)
        return nullptr;
    return Tour(w, M(w).tree->root, false, false, proc, data);
}

XmPrjTreeNode XmPrjTreeTourChildren(Widget w, XmPrjTreeNode node, Boolean directOnly,
                                    XmPrjTreeTourProc proc, XtPointer data)
{
    if (!Usable(w) || !proc)
        return nullptr;
    if (!node)
        node = M(w).tree->root;
    if (!OwnNode(w, node))
        return nullptr;
    return Tour(w, node, directOnly, false, proc, data);
}

XmPrjTreeNode XmPrjTreeTourSelected(Widget w, XmPrjTreeTourProc proc, XtPointer data)
{
    if (!Usable(w) || !proc)
        return nullptr;
    return Tour(w, M(w).tree->root, false, true, proc, data);
}

}  // extern "C"
