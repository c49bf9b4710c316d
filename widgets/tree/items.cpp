// Item records: the words that follow a record when a row has them, the
// table of colour pairs, and finding the widget that owns a node.
#include "widgets/tree/tree.h"

#include <Xm/XmP.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace xwk::tree;

namespace {

constexpr unsigned char kSlots[] = {XmTREE_ITEM_HAS_ICON, XmTREE_ITEM_HAS_ELEMENT,
                                    XmTREE_ITEM_HAS_EXT};

size_t SlotSize(unsigned char bit)
{
    return bit == XmTREE_ITEM_HAS_ELEMENT ? sizeof(XwkListNode) : sizeof(XtPointer);
}

size_t SlotBytes(unsigned char layout)
{
    size_t n = 0;
    for (unsigned char b : kSlots)
        if (layout & b)
            n += SlotSize(b);
    return n;
}

char *Slot(XmPrjTreeItem item, unsigned char bit)
{
    if (!item || !(item->layout & bit))
        return nullptr;
    char *p = (char *)(item + 1);
    for (unsigned char b : kSlots) {
        if (b == bit)
            return p;
        if (item->layout & b)
            p += SlotSize(b);
    }
    return nullptr;
}

XtPointer *Word(XmPrjTreeItem item, unsigned char bit)
{
    return (XtPointer *)Slot(item, bit);
}

char *InlineLabel(XmPrjTreeItem item)
{
    return (char *)(item + 1) + SlotBytes(item->layout);
}

// A linked element has moved from old_e to e: its neighbours and the list
// ends follow.
void Relink(XwkTreeNode *node, XwkListNode *old_e, XwkListNode *e)
{
    XwkList *list = nullptr;
    if (!old_e->prev || !old_e->next) {
        Widget w = OwnerOfNode(node);
        list = w ? M(w).visibleList : nullptr;
    }
    if (e->prev)
        e->prev->next = e;
    else if (list && list->first == old_e)
        list->first = e;
    if (e->next)
        e->next->prev = e;
    else if (list && list->last == old_e)
        list->last = e;
}

// Makes the node's record anew with the slot for bit added.
XmPrjTreeItem Reshape(XwkTreeNode *node, unsigned char bit)
{
    XmPrjTreeItem old = Item(node);
    unsigned char layout = old->layout | bit;
    const char *label = (old->layout & XmTREE_ITEM_HAS_LABEL) ? InlineLabel(old) : nullptr;
    size_t len = label ? strlen(label) + 1 : 0;
    size_t size = sizeof(XmPrjTreeItemRec) + SlotBytes(layout) + len;
    auto *item = (XmPrjTreeItem)XtMalloc(size);
    memset(item, 0, size);
    *item = *old;
    item->layout = layout;
    for (unsigned char b : kSlots)
        if (old->layout & b)
            memcpy(Slot(item, b), Slot(old, b), SlotSize(b));
    if (label)
        memcpy(InlineLabel(item), label, len);
    auto *old_e = (XwkListNode *)Slot(old, XmTREE_ITEM_HAS_ELEMENT);
    if (old_e && old_e->data)
        Relink(node, old_e, (XwkListNode *)Slot(item, XmTREE_ITEM_HAS_ELEMENT));
    XtFree((char *)old);
    node->data = (XtPointer)item;
    return item;
}

struct Owner {
    XwkTree *tree;
    Widget widget;
};
std::vector<Owner> owners;

}  // namespace

namespace xwk::tree {

XwkIcon *IconOf(XmPrjTreeItem item)
{
    XtPointer *slot = Word(item, XmTREE_ITEM_HAS_ICON);
    return slot ? (XwkIcon *)*slot : nullptr;
}

XwkListNode *ElementOf(XmPrjTreeItem item)
{
    // A linked element points back to its node; an unlinked one is zero.
    auto *e = (XwkListNode *)Slot(item, XmTREE_ITEM_HAS_ELEMENT);
    return e && e->data ? e : nullptr;
}

XwkListNode *ElementRoom(XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return nullptr;
    if (!(item->layout & XmTREE_ITEM_HAS_ELEMENT))
        item = Reshape(node, XmTREE_ITEM_HAS_ELEMENT);
    return (XwkListNode *)Slot(item, XmTREE_ITEM_HAS_ELEMENT);
}

XmPrjTreeItemExtRec *ExtOf(XmPrjTreeItem item)
{
    XtPointer *slot = Word(item, XmTREE_ITEM_HAS_EXT);
    return slot ? (XmPrjTreeItemExtRec *)*slot : nullptr;
}

char *LabelOf(XmPrjTreeItem item)
{
    if (!item)
        return nullptr;
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    if (ext && ext->label)
        return ext->label;
    return (item->layout & XmTREE_ITEM_HAS_LABEL) ? InlineLabel(item) : nullptr;
}

XmPrjTreeItem NewItem(const char *label, unsigned char layout)
{
    if (label)
        layout |= XmTREE_ITEM_HAS_LABEL;
    size_t len = label ? strlen(label) + 1 : 0;
    size_t size = sizeof(XmPrjTreeItemRec) + SlotBytes(layout) + len;
    auto *item = (XmPrjTreeItem)XtMalloc(size);
    memset(item, 0, size - len);
    item->layout = layout;
    if (label)
        memcpy(InlineLabel(item), label, len);
    return item;
}

void FreeItem(XmPrjTreeItem item)
{
    if (!item)
        return;
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    if (ext) {
        XtFree(ext->label);
        if (ext->cells)
            l_destroy(ext->cells);
        ext->cellBlock = nullptr;
        XtFree((char *)ext);
    }
    XtFree((char *)item);
}

void SetIcon(XwkTreeNode *node, XwkIcon *icon)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return;
    XtPointer *slot = Word(item, XmTREE_ITEM_HAS_ICON);
    if (!slot) {
        if (!icon)
            return;
        slot = Word(Reshape(node, XmTREE_ITEM_HAS_ICON), XmTREE_ITEM_HAS_ICON);
    }
    *slot = (XtPointer)icon;
}

XmPrjTreeItemExtRec *Ext(XwkTreeNode *node)
{
    XmPrjTreeItem item = Item(node);
    if (!item)
        return nullptr;
    XtPointer *slot = Word(item, XmTREE_ITEM_HAS_EXT);
    if (!slot)
        slot = Word(Reshape(node, XmTREE_ITEM_HAS_EXT), XmTREE_ITEM_HAS_EXT);
    if (!*slot)
        *slot = XtCalloc(1, sizeof(XmPrjTreeItemExtRec));
    return (XmPrjTreeItemExtRec *)*slot;
}

void GiveElementSlots(Widget w)
{
    // Rows made without canSlam get their slot once, before any row enters.
    XwkTreeNode *root = M(w).tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root))
        if (Item(n) && !(Item(n)->layout & XmTREE_ITEM_HAS_ELEMENT))
            Reshape(n, XmTREE_ITEM_HAS_ELEMENT);
}

void *RecordPool::Get()
{
    live_++;
#ifdef __SANITIZE_ADDRESS__
    return calloc(1, size_);
#else
    void *p;
    if (free_) {
        p = free_;
        free_ = *(void **)p;
    } else {
        // The first blocks are small, so that a short list stays small.
        if (!left_) {
            size_t n = blocks_.size() < 16 ? 64 : 1024;
            blocks_.push_back((char *)malloc(n * size_));
            left_ = n;
            if (!blocks_.back()) {
                blocks_.pop_back();
                left_ = 0;
                live_--;
                return nullptr;
            }
        }
        p = blocks_.back() + (--left_) * size_;
    }
    memset(p, 0, size_);
    return p;
#endif
}

void RecordPool::Put(void *record)
{
    if (!record)
        return;
#ifdef __SANITIZE_ADDRESS__
    free(record);
    live_--;
#else
    *(void **)record = free_;
    free_ = record;
    if (--live_ == 0)
        Release();
#endif
}

void RecordPool::Release()
{
    for (char *b : blocks_)
        free(b);
    blocks_.clear();
    left_ = 0;
    free_ = nullptr;
}

unsigned char ColourIndex(Widget w, Pixel foreground, Pixel background)
{
    auto &table = S(Mother(w)).colours;
    std::pair<unsigned int, unsigned int> pair{(unsigned int)foreground, (unsigned int)background};
    for (size_t i = table.size(); i-- > 0;)
        if (table[i] == pair)
            return (unsigned char)i;
    if (table.size() >= XmTREE_COLOURS_OWN)
        return XmTREE_COLOURS_OWN;
    table.push_back(pair);
    return (unsigned char)(table.size() - 1);
}

Pixel ForegroundOf(Widget w, XmPrjTreeItem item)
{
    if (item->colours == XmTREE_COLOURS_OWN) {
        XmPrjTreeItemExtRec *ext = ExtOf(item);
        return ext ? ext->foreground : 0;
    }
    auto &table = S(Mother(w)).colours;
    return item->colours < table.size() ? table[item->colours].first : 0;
}

Pixel BackgroundOf(Widget w, XmPrjTreeItem item)
{
    if (item->colours == XmTREE_COLOURS_OWN) {
        XmPrjTreeItemExtRec *ext = ExtOf(item);
        return ext ? ext->background : 0;
    }
    auto &table = S(Mother(w)).colours;
    return item->colours < table.size() ? table[item->colours].second : 0;
}

void SetForeground(Widget w, XwkTreeNode *node, Pixel pixel)
{
    XmPrjTreeItem item = Item(node);
    Pixel background = BackgroundOf(w, item);
    unsigned char index = ColourIndex(w, pixel, background);
    if (index == XmTREE_COLOURS_OWN) {
        XmPrjTreeItemExtRec *ext = Ext(node);
        ext->foreground = (unsigned int)pixel;
        ext->background = (unsigned int)background;
    }
    Item(node)->colours = index;
}

char *CharsetOf(Widget w, XmPrjTreeItem item)
{
    XmPrjTreeItemExtRec *ext = ExtOf(item);
    if (ext && ext->charset)
        return ext->charset;
    return M(w).defaultCharSet;
}

void KeepCharsets(Widget w)
{
    // defaultCharSet is about to change: rows keep the one they were made with.
    char *old = M(w).defaultCharSet;
    XwkTreeNode *root = M(w).tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root)) {
        XmPrjTreeItemExtRec *ext = ExtOf(Item(n));
        if (Item(n) && !(ext && ext->charset))
            Ext(n)->charset = old;
    }
}

Widget AddedThrough(XwkTreeNode *node)
{
    XmPrjTreeItemExtRec *ext = ExtOf(Item(node));
    if (ext && ext->tree)
        return ext->tree;
    return OwnerOfNode(node);
}

Widget OwnerOfTree(XwkTree *tree)
{
    for (const Owner &o : owners)
        if (o.tree == tree)
            return o.widget;
    return nullptr;
}

Widget OwnerOfNode(XwkTreeNode *node)
{
    if (!node)
        return nullptr;
    while (node->parent)
        node = node->parent;
    for (const Owner &o : owners)
        if (o.tree->root == node)
            return o.widget;
    return nullptr;
}

void RegisterTree(Widget w)
{
    owners.push_back({P(w).tree, w});
}

void UnregisterTree(Widget w)
{
    owners.erase(std::remove_if(owners.begin(), owners.end(),
                                [w](const Owner &o) { return o.widget == w; }),
                 owners.end());
}

}  // namespace xwk::tree
