// Doubly linked numbered lists.  Heads and nodes come from XtCalloc.
#include <Xwk/Lists.h>

namespace {

XwkListNode *NewNode(XtPointer data)
{
    auto *node = reinterpret_cast<XwkListNode *>(XtCalloc(1, sizeof(XwkListNode)));
    node->data = data;
    return node;
}

void LinkTail(XwkList *list, XwkListNode *node)
{
    node->prev = list->last;
    node->next = nullptr;
    if (list->last)
        list->last->next = node;
    else
        list->first = node;
    list->last = node;
    list->count++;
}

void LinkBefore(XwkList *list, XwkListNode *target, XwkListNode *node)
{
    node->next = target;
    node->prev = target->prev;
    if (target->prev)
        target->prev->next = node;
    else
        list->first = node;
    target->prev = node;
}

void Unlink(XwkList *list, XwkListNode *node)
{
    if (node->prev)
        node->prev->next = node->next;
    else
        list->first = node->next;
    if (node->next)
        node->next->prev = node->prev;
    else
        list->last = node->prev;
}

void Remove(XwkList *list, XwkListNode *node, bool call_free)
{
    if (!list || !list->count || !node)
        return;
    XwkListNode *successor = node->next;
    Unlink(list, node);
    list->count--;
    if (call_free && list->free_node)
        list->free_node(node);
    XtFree(reinterpret_cast<char *>(node));
    l_label(successor);
}

} // namespace

extern "C" {

XwkList *l_create(XwkListFreeProc free_node, XtPointer user)
{
    auto *list = reinterpret_cast<XwkList *>(XtCalloc(1, sizeof(XwkList)));
    list->free_node = free_node;
    list->user = user;
    return list;
}

XwkListNode *l_append(XwkList *list, XtPointer data)
{
    if (!list)
        return nullptr;
    XwkListNode *node = NewNode(data);
    node->index = list->count;
    LinkTail(list, node);
    return node;
}

XwkListNode *l_insert_head(XwkList *list, XtPointer data)
{
    if (!list)
        return nullptr;
    if (!list->first)
        return l_append(list, data);
    XwkListNode *node = NewNode(data);
    LinkBefore(list, list->first, node);
    list->count++;
    l_label(node);
    return node;
}

XwkListNode *l_insert(XwkList *list, XwkListNode *node, XtPointer data)
{
    if (!list)
        return nullptr;
    if (!node)
        return l_append(list, data);
    XwkListNode *fresh = NewNode(data);
    if (node->next) {
        LinkBefore(list, node->next, fresh);
        list->count++;
    } else {
        LinkTail(list, fresh);
    }
    l_label(fresh);
    return fresh;
}

XwkListNode *l_insert_before(XwkList *list, XwkListNode *node, XtPointer data)
{
    if (!list)
        return nullptr;
    if (!node)
        return l_append(list, data);
    XwkListNode *fresh = NewNode(data);
    LinkBefore(list, node, fresh);
    list->count++;
    l_label(fresh);
    return fresh;
}

XwkListNode *l_find(XwkList *list, int index)
{
    if (!list || index < 0 || index >= list->count)
        return nullptr;
    // count is the true length even when indices are stale, so walking
    // from the nearer end reaches the same node as walking from the head.
    XwkListNode *node;
    if (index <= list->count / 2) {
        node = list->first;
        for (int i = 0; i < index && node; i++)
            node = node->next;
    } else {
        node = list->last;
        for (int i = list->count - 1; i > index && node; i--)
            node = node->prev;
    }
    return node;
}

XwkListNode *l_userfind(XwkList *list, XwkListCompareProc compare, XtPointer argument)
{
    if (!list || !compare)
        return nullptr;
    for (XwkListNode *node = list->first; node; node = node->next) {
        if (compare(node->data, argument) == 0)
            return node;
    }
    return nullptr;
}

XwkListNode *l_treefind(XwkList *list, XwkListTreeFindProc proc, XtPointer argument)
{
    if (!list || !proc)
        return nullptr;
    // The procedure moves the cursor on itself, so it may step into lists
    // of its own.
    XwkListNode *cursor = list->first;
    while (cursor) {
        if (proc(&cursor, argument))
            return cursor;
    }
    return nullptr;
}

void l_delete(XwkList *list, XwkListNode *node)
{
    Remove(list, node, true);
}

void l_cut(XwkList *list, XwkListNode *node)
{
    Remove(list, node, false);
}

void l_pop(XwkList *list)
{
    if (!list || !list->last)
        return;
    Remove(list, list->last, true);
}

void l_reverse(XwkList *list)
{
    if (!list || !list->first)
        return;
    for (XwkListNode *node = list->first; node;) {
        XwkListNode *next = node->next;
        node->next = node->prev;
        node->prev = next;
        node = next;
    }
    XwkListNode *head = list->first;
    list->first = list->last;
    list->last = head;
    l_label(list->first);
}

void l_replace(XwkList *list, XwkListNode *target, XwkListNode *moved)
{
    if (!list || !target || !moved || target == moved)
        return;
    Unlink(list, moved);
    LinkBefore(list, target, moved);
    // Deliberately from `moved` only: nodes it passed over keep their old
    // index until some later renumbering.
    l_label(moved);
}

void l_flush(XwkList *list)
{
    if (!list)
        return;
    XwkListNode *node = list->first;
    list->first = list->last = nullptr;
    list->count = 0;
    while (node) {
        XwkListNode *next = node->next;
        if (list->free_node)
            list->free_node(node);
        XtFree(reinterpret_cast<char *>(node));
        node = next;
    }
}

void l_destroy(XwkList *list)
{
    if (!list)
        return;
    l_flush(list);
    XtFree(reinterpret_cast<char *>(list));
}

void l_label(XwkListNode *node)
{
    if (!node)
        return;
    int index = node->prev ? node->prev->index + 1 : 0;
    for (; node; node = node->next)
        node->index = index++;
}

} // extern "C"
