// Bucket trees: a fixed number of unbalanced binary trees, the bucket number
// chosen by the caller.  Keys equal by compare hang on a "same" chain, newest
// first, and removal is by key identity.  The palette relies on exactly this
// behaviour (which of several equal cells a search finds, and that a key
// added under one bucket is never seen from another).
#ifndef XWK_GRAPHICS_BUCKETS_H
#define XWK_GRAPHICS_BUCKETS_H

#include <vector>

namespace xwk {

class BucketTrees {
public:
    using Compare = int (*)(const void *stored, const void *key);

    BucketTrees(Compare compare, int buckets) : compare_(compare), roots_(buckets, nullptr) {}
    ~BucketTrees();
    BucketTrees(const BucketTrees &) = delete;
    BucketTrees &operator=(const BucketTrees &) = delete;

    // The stored key equal to key, the one added last among equals; or null.
    void *Find(int bucket, const void *key) const;
    void Add(int bucket, void *key);
    // Removes the node holding exactly this key pointer; false if absent.
    bool Remove(int bucket, const void *key);

private:
    struct Node {
        void *key;
        Node *left = nullptr;
        Node *right = nullptr;
        Node *same = nullptr;
        Node **link = nullptr;   // the pointer that points at this node
    };

    Node **Root(int bucket) const;
    static Node *FindIdentical(Node *root, const void *key);

    Compare compare_;
    mutable std::vector<Node *> roots_;
};

}  // namespace xwk

#endif
