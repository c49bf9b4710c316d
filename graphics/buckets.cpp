#include "graphics/buckets.h"

namespace xwk {

BucketTrees::~BucketTrees()
{
    std::vector<Node *> pending;
    for (Node *root : roots_)
        if (root)
            pending.push_back(root);
    while (!pending.empty()) {
        Node *n = pending.back();
        pending.pop_back();
        for (Node *child : {n->left, n->right, n->same})
            if (child)
                pending.push_back(child);
        delete n;
    }
}

BucketTrees::Node **BucketTrees::Root(int bucket) const
{
    if (bucket < 0 || bucket >= (int)roots_.size())
        return nullptr;
    return &roots_[bucket];
}

void *BucketTrees::Find(int bucket, const void *key) const
{
    Node **root = Root(bucket);
    if (!root)
        return nullptr;
    for (Node *n = *root; n;) {
        int c = compare_(n->key, key);
        if (c == 0)
            return n->key;
        n = c < 0 ? n->left : n->right;
    }
    return nullptr;
}

void BucketTrees::Add(int bucket, void *key)
{
    Node **slot = Root(bucket);
    if (!slot)
        return;
    Node *node = new Node;
    node->key = key;
    while (*slot) {
        Node *n = *slot;
        int c = compare_(n->key, key);
        if (c == 0) {
            // Newest of equal keys first: the old chain hangs behind the new node.
            node->same = n->same;
            if (node->same)
                node->same->link = &node->same;
            n->same = node;
            node->link = &n->same;
            return;
        }
        slot = c < 0 ? &n->left : &n->right;
    }
    *slot = node;
    node->link = slot;
}

BucketTrees::Node *BucketTrees::FindIdentical(Node *root, const void *key)
{
    // Whole-bucket search in the order node, left, right, same.
    std::vector<Node *> pending;
    if (root)
        pending.push_back(root);
    while (!pending.empty()) {
        Node *n = pending.back();
        pending.pop_back();
        if (n->key == key)
            return n;
        for (Node *child : {n->same, n->right, n->left})
            if (child)
                pending.push_back(child);
    }
    return nullptr;
}

bool BucketTrees::Remove(int bucket, const void *key)
{
    Node **root = Root(bucket);
    if (!root || !key)
        return true;
    Node *node = FindIdentical(*root, key);
    if (!node)
        return false;
    Node *replacement;
    if (node->same) {
        replacement = node->same;
        replacement->left = node->left;
        replacement->right = node->right;
        if (replacement->left)
            replacement->left->link = &replacement->left;
        if (replacement->right)
            replacement->right->link = &replacement->right;
    } else if (node->left) {
        replacement = node->left;
        if (Node *right = node->right) {
            Node **slot = &replacement->left;
            Node *visit = replacement;
            for (;;) {
                slot = compare_(visit->key, right->key) < 0 ? &visit->left : &visit->right;
                if (!*slot)
                    break;
                visit = *slot;
            }
            *slot = right;
            right->link = slot;
        }
    } else {
        replacement = node->right;
    }
    *node->link = replacement;
    if (replacement)
        replacement->link = node->link;
    delete node;
    return true;
}

}  // namespace xwk
