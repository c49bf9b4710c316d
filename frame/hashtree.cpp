// Bucket trees: one unbalanced binary tree per bucket, the bucket number
// chosen by the caller.  Records with equal keys share one place in the
// tree through the `same` chain, newest first.  Every node knows the
// pointer that points at it (`link`), so it can unhook itself without a
// parent pointer.  Walks use an explicit stack: the trees are not balanced
// and may degenerate into long chains.
#include <Xwk/Lists.h>

#include <vector>

namespace {

HashTreeNode **Bucket(HashTree *table, int bucket)
{
    if (!table || bucket < 0 || bucket >= table->size)
        return nullptr;
    return &table->buckets[bucket];
}

void Hook(HashTreeNode **link, HashTreeNode *node)
{
    *link = node;
    if (node)
        node->link = link;
}

// Node, left, right, same: the first node holding this very record.
HashTreeNode *FindRecord(HashTreeNode *root, XtPointer key)
{
    std::vector<HashTreeNode *> pending;
    if (root)
        pending.push_back(root);
    while (!pending.empty()) {
        HashTreeNode *node = pending.back();
        pending.pop_back();
        if (node->key == key)
            return node;
        if (node->same)
            pending.push_back(node->same);
        if (node->right)
            pending.push_back(node->right);
        if (node->left)
            pending.push_back(node->left);
    }
    return nullptr;
}

} // namespace

extern "C" {

HashTree *HashCreate(HashCompareProc compare, HashFreeProc free_key, int size)
{
    if (size < 0)
        size = 0;
    auto *table = reinterpret_cast<HashTree *>(XtMalloc(sizeof(HashTree)));
    table->compare = compare;
    table->free_key = free_key;
    table->size = size;
    table->buckets = reinterpret_cast<HashTreeNode **>(
        XtCalloc(size ? size : 1, sizeof(HashTreeNode *)));
    return table;
}

XtPointer HashFind(HashTree *table, int bucket, XtPointer key)
{
    HashTreeNode **root = Bucket(table, bucket);
    if (!root)
        return nullptr;
    HashTreeNode *node = *root;
    while (node) {
        int order = table->compare(node->key, key);
        if (order == 0)
            return node->key;
        node = order < 0 ? node->left : node->right;
    }
    return nullptr;
}

int HashAdd(HashTree *table, int bucket, XtPointer key)
{
    HashTreeNode **link = Bucket(table, bucket);
    if (!link)
        return 1;
    auto *node = reinterpret_cast<HashTreeNode *>(XtCalloc(1, sizeof(HashTreeNode)));
    node->key = key;
    while (*link) {
        HashTreeNode *at = *link;
        int order = table->compare(at->key, key);
        if (order == 0) {
            // The new record takes the place in the tree, with its
            // branches, and the older records of that key hang behind it.
            Hook(&node->left, at->left);
            Hook(&node->right, at->right);
            at->left = at->right = nullptr;
            Hook(&node->same, at);
            break;
        }
        link = order < 0 ? &at->left : &at->right;
    }
    Hook(link, node);
    return 0;
}

int HashRemove(HashTree *table, int bucket, XtPointer key)
{
    if (!table || !key)
        return 1;
    HashTreeNode **root = Bucket(table, bucket);
    if (!root)
        return 0;
    HashTreeNode *node = FindRecord(*root, key);
    if (!node)
        return 0;
    HashTreeNode **link = node->link;
    if (HashTreeNode *next = node->same) {
        Hook(&next->left, node->left);
        Hook(&next->right, node->right);
        Hook(link, next);
    } else if (HashTreeNode *left = node->left) {
        Hook(link, left);
        if (HashTreeNode *right = node->right) {
            HashTreeNode **leaf = &left->left;
            for (HashTreeNode *at = left; at; at = *leaf) {
                leaf = table->compare(at->key, right->key) < 0 ? &at->left : &at->right;
            }
            Hook(leaf, right);
        }
    } else {
        Hook(link, node->right);
    }
    XtFree(reinterpret_cast<char *>(node));
    return 1;
}

void HashDestroy(HashTree *table)
{
    if (!table)
        return;
    std::vector<HashTreeNode *> pending;
    for (int b = 0; b < table->size; b++) {
        if (table->buckets[b])
            pending.push_back(table->buckets[b]);
        while (!pending.empty()) {
            HashTreeNode *node = pending.back();
            pending.pop_back();
            for (HashTreeNode *child : {node->left, node->right, node->same}) {
                if (child)
                    pending.push_back(child);
            }
            XtFree(reinterpret_cast<char *>(node));
        }
    }
    XtFree(reinterpret_cast<char *>(table->buckets));
    XtFree(reinterpret_cast<char *>(table));
}

} // extern "C"
