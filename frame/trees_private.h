// Library-internal pieces of the preorder trees.
#ifndef XWK_FRAME_TREES_PRIVATE_H
#define XWK_FRAME_TREES_PRIVATE_H

#include <Xwk/Lists.h>

namespace xwk {

// Takes node out of its parent's children; numbers and the count of the
// tree are left to the caller.  node must have a parent.
void UnlinkChild(XwkTreeNode *node);

// Frees node and everything below it, children first: free_node (if any)
// for each, then release, and the tree's count (if a tree) lowered.
void FreeSubtree(XwkTreeNode *node, XwkTreeFreeProc free_node, XwkTree *tree,
                 void (*release)(XwkTreeNode *, void *), void *closure);

}  // namespace xwk

#endif
