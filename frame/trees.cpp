// General trees numbered in preorder.  Heads and nodes come from calloc.
//
// Numbering is lazy: a change sets XWK_TREE_STALE and the next search by
// number or by procedure renumbers the whole tree once.  All walks are
// iterative; a tree list may hold a million rows, some of them deep.
#include <Xwk/Lists.h>

#include "frame/trees_private.h"

#include <cstdlib>
#include <vector>

namespace {

// The preorder successor of n within the subtree of top; null past its end.
XwkTreeNode *next_in_subtree(XwkTreeNode *n, const XwkTreeNode *top)
{
    if (n->first_child)
        return n->first_child;
    while (n != top && !n->next_sibling)
        n = n->parent;
    return n == top ? nullptr : n->next_sibling;
}

bool IsPreorder(int kind)
{
    return (kind & XWK_TREE_KIND_MASK) == XWK_TREE_PREORDER;
}

bool IsStale(const XwkTree *tree)
{
    return tree->flags & XWK_TREE_STALE;
}

void AppendChild(XwkTreeNode *parent, XwkTreeNode *child)
{
    child->parent = parent;
    child->next_sibling = nullptr;
    child->prev_sibling = parent->last_child;
    if (parent->last_child)
        parent->last_child->next_sibling = child;
    else
        parent->first_child = child;
    parent->last_child = child;
    parent->nchildren++;
}

// Numbers a node just linked into a fresh tree as t_enumerate would, if
// that can be done without touching any other node: when the node ends the
// preorder, no other number moves and its own is its predecessor's plus 1.
// This relies on a fresh tree holding exact preorder numbers; code that
// relinks nodes by hand sets XWK_TREE_STALE or calls t_enumerate.
// Returns false when only a full renumbering will do.
bool NumberIfLast(const XwkTree *tree, XwkTreeNode *node)
{
    const XwkTreeNode *top = node;
    for (const XwkTreeNode *n = node; n; n = n->parent) {
        if (n->next_sibling)
            return false;
        top = n;
    }
    // Below a detached former root t_enumerate would not reach the node.
    if (top != tree->root || !IsPreorder(tree->flags))
        return true;
    const XwkTreeNode *before = node->prev_sibling;
    if (!before) {
        before = node->parent;
    } else {
        while (before->last_child)
            before = before->last_child;
    }
    node->id = before->id + 1;
    return true;
}

bool IsAncestor(const XwkTreeNode *ancestor, const XwkTreeNode *node)
{
    for (node = node->parent; node; node = node->parent) {
        if (node == ancestor)
            return true;
    }
    return false;
}

void SetLevel(XwkTreeNode *node, XtPointer, XtPointer tree)
{
    auto *t = static_cast<XwkTree *>(tree);
    node->level = node->parent ? node->parent->level + 1 : 0;
    if (node->level + 1 > t->depth)
        t->depth = node->level + 1;
}

} // namespace

namespace xwk {

void UnlinkChild(XwkTreeNode *node)
{
    XwkTreeNode *parent = node->parent;
    if (node->prev_sibling)
        node->prev_sibling->next_sibling = node->next_sibling;
    else
        parent->first_child = node->next_sibling;
    if (node->next_sibling)
        node->next_sibling->prev_sibling = node->prev_sibling;
    else
        parent->last_child = node->prev_sibling;
    node->next_sibling = node->prev_sibling = nullptr;
    parent->nchildren--;
}

void FreeSubtree(XwkTreeNode *node, XwkTreeFreeProc free_node, XwkTree *tree,
                 void (*release)(XwkTreeNode *, void *), void *closure)
{
    if (!node)
        return;
    XwkTreeNode *n = node;
    while (n->first_child)
        n = n->first_child;
    for (;;) {
        // Siblings and parent are read before the node goes; a parent is
        // reached only after all its children are gone.
        XwkTreeNode *sibling = n->next_sibling;
        XwkTreeNode *parent = n->parent;
        bool top = n == node;
        if (free_node)
            free_node(n, tree);
        release(n, closure);
        if (tree)
            tree->count--;
        if (top)
            return;
        if (sibling) {
            n = sibling;
            while (n->first_child)
                n = n->first_child;
        } else {
            n = parent;
        }
    }
}


}  // namespace xwk

extern "C" {

XwkTree *t_create(int kind, XwkTreeFreeProc free_node, XtPointer user)
{
    auto *tree = static_cast<XwkTree *>(calloc(1, sizeof(XwkTree)));
    if (!tree)
        return nullptr;
    tree->flags = (kind & XWK_TREE_KIND_MASK) | XWK_TREE_STALE;
    tree->free_node = free_node;
    tree->user = user;
    return tree;
}

XwkTreeNode *t_tlink(XwkTree *tree, XwkTreeNode *parent, XtPointer data)
{
    if (!tree)
        return nullptr;
    auto *node = static_cast<XwkTreeNode *>(calloc(1, sizeof(XwkTreeNode)));
    if (!node)
        return nullptr;
    node->data = data;
    node->id = tree->count++;
    bool was_fresh = !IsStale(tree);
    tree->flags |= XWK_TREE_STALE;
    node->level = parent ? parent->level + 1 : 0;
    if (node->level + 1 > tree->depth)
        tree->depth = node->level + 1;
    if (parent) {
        AppendChild(parent, node);
    } else {
        tree->root = tree->root2 = node;
    }
    if (!was_fresh)
        return node;
    if (parent && NumberIfLast(tree, node)) {
        tree->flags &= ~XWK_TREE_STALE;
        return node;
    }
    t_enumerate(tree);
    return node;
}

XwkTreeNode *t_usertlink(XwkTree *tree, XwkTreeFindProc find, XtPointer argument,
                         XtPointer data)
{
    XwkTreeNode *parent = t_userfind(tree, find, argument);
    if (!parent)
        return nullptr;
    return t_tlink(tree, parent, data);
}

XwkTreeNode *t_next(XwkTreeNode *node)
{
    for (; node; node = node->parent) {
        if (node->next_sibling)
            return node->next_sibling;
    }
    return nullptr;
}

Boolean t_belong_to_subtree(XwkTreeNode *node, XwkTreeNode *subtree)
{
    if (!node || !subtree || !(subtree->id < node->id))
        return False;
    XwkTreeNode *after = t_next(subtree);
    return !after || node->id < after->id;
}

XwkTreeNode *t_reparent(XwkTree *tree, XwkTreeNode *node, XwkTreeNode *new_parent)
{
    if (!tree || !node || !new_parent || node == new_parent)
        return nullptr;
    if (node->parent == new_parent)
        return node;
    bool hoist = IsAncestor(node, new_parent);
    if (hoist && !node->parent && node->nchildren > 1)
        return nullptr;

    XwkTreeNode *old_parent = node->parent;
    if (old_parent)
        xwk::UnlinkChild(node);
    if (hoist) {
        XwkTreeNode *child = node->first_child;
        node->first_child = node->last_child = nullptr;
        node->nchildren = 0;
        while (child) {
            XwkTreeNode *next = child->next_sibling;
            if (old_parent) {
                AppendChild(old_parent, child);
            } else {
                // A root with one child: that child becomes the root.
                child->parent = nullptr;
                child->next_sibling = child->prev_sibling = nullptr;
                tree->root = tree->root2 = child;
            }
            t_tour(XWK_TREE_PREORDER, child, SetLevel, tree);
            child = next;
        }
    }
    AppendChild(new_parent, node);
    t_tour(XWK_TREE_PREORDER, node, SetLevel, tree);
    tree->flags |= XWK_TREE_STALE;
    t_enumerate(tree);
    return node;
}

void t_delete_node(XwkTree *tree, XwkTreeNode *node)
{
    if (!tree || !node || !node->parent)
        return;
    // Removing the end of a freshly numbered preorder moves no other number.
    bool keeps_numbers = !IsStale(tree) && !t_next(node);
    xwk::UnlinkChild(node);
    t_freenode(node, tree->free_node, tree);
    if (keeps_numbers)
        return;
    tree->flags |= XWK_TREE_STALE;
    t_enumerate(tree);
}

void t_freenode(XwkTreeNode *node, XwkTreeFreeProc free_node, XwkTree *tree)
{
    xwk::FreeSubtree(node, free_node, tree, [](XwkTreeNode *n, void *) { free(n); }, nullptr);
}

void t_destroy(XwkTree *tree)
{
    if (!tree)
        return;
    t_freenode(tree->root, tree->free_node, tree);
    free(tree);
}

void t_label(int kind, XwkTreeNode *node, unsigned int *counter)
{
    if (!IsPreorder(kind) || !node || !counter)
        return;
    for (XwkTreeNode *n = node; n; n = next_in_subtree(n, node))
        n->id = (*counter)++;
}

void t_enumerate(XwkTree *tree)
{
    if (!tree)
        return;
    unsigned int counter = 0;
    t_label(tree->flags, tree->root, &counter);
    tree->flags &= ~XWK_TREE_STALE;
}

XwkTreeNode *t_find(XwkTree *tree, unsigned int id)
{
    if (!tree)
        return nullptr;
    if (IsStale(tree))
        t_enumerate(tree);
    return t_creep(tree->flags & XWK_TREE_KIND_MASK, tree->root, id);
}

XwkTreeNode *t_creep(int, XwkTreeNode *node, unsigned int id)
{
    // Children's numbers rise from first to last, so the last child whose
    // number is not above the one wanted holds it in its subtree.
    while (node) {
        if (node->id == id)
            return node;
        XwkTreeNode *child = node->last_child;
        if (!child)
            return nullptr;
        while (id < child->id) {
            child = child->prev_sibling;
            if (!child)
                return nullptr;
        }
        if (child->id == id)
            return child;
        node = child;
    }
    return nullptr;
}

XwkTreeNode *t_userfind(XwkTree *tree, XwkTreeFindProc find, XtPointer argument)
{
    if (!tree)
        return nullptr;
    if (IsStale(tree))
        t_enumerate(tree);
    return t_usercreep(tree->flags & XWK_TREE_KIND_MASK, tree->root, find, argument);
}

XwkTreeNode *t_usercreep(int kind, XwkTreeNode *node, XwkTreeFindProc find,
                         XtPointer argument)
{
    if (!IsPreorder(kind) || !node || !find)
        return nullptr;
    for (XwkTreeNode *n = node; n; n = next_in_subtree(n, node))
        if (find(n->data, argument) == 0)
            return n;
    return nullptr;
}

void t_tour(int, XwkTreeNode *node, XwkTreeTourProc proc, XtPointer argument)
{
    if (!node || !proc)
        return;
    // Each level's next child is taken before the procedure runs on the
    // one above it, and a sibling only after the subtree before it is done,
    // exactly as a recursive walk would.
    std::vector<XwkTreeNode *> pending;
    XwkTreeNode *first = node->first_child;
    proc(node, node->data, argument);
    pending.push_back(first);
    while (!pending.empty()) {
        XwkTreeNode *child = pending.back();
        if (!child) {
            pending.pop_back();
            if (!pending.empty())
                pending.back() = pending.back()->next_sibling;
            continue;
        }
        first = child->first_child;
        proc(child, child->data, argument);
        pending.push_back(first);
    }
}

} // extern "C"
