/**
 * \file
 * \ingroup frame
 * \brief The library's four containers.
 *
 * - `l_*`: a doubly linked list whose nodes carry their position;
 * - `t_*`: a general tree numbered lazily in preorder;
 * - XwkAllocHashTable: a chained hash table drawing its entries from one
 *   process-wide pool;
 * - HashCreate: a set of unbalanced binary trees, one per bucket, the
 *   bucket number being chosen by the caller.
 *
 * No container copies user data: data words are stored as given and stay
 * the caller's.  None is safe for concurrent use.
 *
 * Memory: list heads and nodes come from XtCalloc and go back by XtFree;
 * trees use calloc and free; hash tables and bucket trees use Xt
 * allocation.  Each container is freed by its own destroy function.
 */
#ifndef XWK_LISTS_H
#define XWK_LISTS_H

#include <X11/Intrinsic.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* ------------------------------------------------------------------ */
/* Lists                                                               */
/* ------------------------------------------------------------------ */

/** A node of an XwkList; allocated by the list, freed by l_delete, l_cut,
 * l_pop, l_flush or l_destroy. */
typedef struct _XwkListNode {
    int index;                     /**< Position from 0, kept by the list (see l_replace). */
    struct _XwkListNode *next;     /**< Towards the tail; NULL at the tail. */
    struct _XwkListNode *prev;     /**< Towards the head; NULL at the head. */
    XtPointer data;                /**< Caller's word. */
} XwkListNode;

/**
 * Called for each node that is deleted, before the node is freed; it
 * usually frees node->data.
 *
 * \param node The node going away.
 */
typedef void (*XwkListFreeProc)(XwkListNode *node);
/**
 * Search procedure of l_userfind.
 *
 * \param data     The data word of a node.
 * \param argument The argument given to l_userfind.
 * \return 0 for the node looked for.
 */
typedef int (*XwkListCompareProc)(XtPointer data, XtPointer argument);
/**
 * Search procedure of l_treefind: decides on *cursor and moves *cursor on
 * itself.
 *
 * \param cursor   The cursor node, at the head of the list at first.  Set it
 *                 to the next node to look at, or to NULL to end the search
 *                 without a match; leaving it unchanged loops for ever.
 * \param argument The argument given to l_treefind.
 * \return Non-zero ends the search with *cursor as its result.
 */
typedef int (*XwkListTreeFindProc)(XwkListNode **cursor, XtPointer argument);

/** The head of a doubly linked numbered list, made by l_create. */
typedef struct _XwkList {
    int count;                     /**< Number of nodes. */
    XwkListFreeProc free_node;     /**< Called for each deleted node, or NULL. */
    XwkListNode *first;            /**< Head, or NULL. */
    XwkListNode *last;             /**< Tail, or NULL. */
    XtPointer user;                /**< Caller's word given at creation. */
} XwkList;

/**
 * \brief Creates an empty list.
 * \param free_node Called for each node deleted, or NULL.
 * \param user      Caller's word, kept in the head.
 * \return The list (XtCalloc; Xt ends the process when memory runs out).
 *         Free it with l_destroy.
 */
XwkList *l_create(XwkListFreeProc free_node, XtPointer user);
/**
 * \brief Adds a node at the tail; its index is the old count.
 * \param list The list; NULL gives NULL.
 * \param data Caller's word.
 * \return The new node, or NULL.
 */
XwkListNode *l_append(XwkList *list, XtPointer data);
/**
 * \brief Adds a node at the head and renumbers the whole list.
 * \param list The list; NULL gives NULL.
 * \param data Caller's word.
 * \return The new node, or NULL.
 */
XwkListNode *l_insert_head(XwkList *list, XtPointer data);
/**
 * \brief Inserts a node after a node (l_insert_before: before it); a NULL
 * node appends.  Renumbers from the new node.
 * \param list The list; NULL gives NULL.
 * \param node The node of the list to insert after, or NULL.
 * \param data Caller's word.
 * \return The new node, or NULL.
 */
XwkListNode *l_insert(XwkList *list, XwkListNode *node, XtPointer data);
/**
 * \brief Inserts a node before a node; a NULL node appends.  Renumbers
 * from the new node.
 * \param list The list; NULL gives NULL.
 * \param node The node of the list to insert before, or NULL.
 * \param data Caller's word.
 * \return The new node, or NULL.
 */
XwkListNode *l_insert_before(XwkList *list, XwkListNode *node, XtPointer data);
/**
 * \brief The node at a position, counted from the head.
 *
 * Walks from the nearer end; the position counts, not the index fields.
 *
 * \param list  The list; NULL gives NULL.
 * \param index Position from 0.
 * \return The node, or NULL when \p index is negative or not below count.
 */
XwkListNode *l_find(XwkList *list, int index);
/**
 * \brief The first node, from the head, for which compare gives 0.
 * \param list     The list; NULL gives NULL.
 * \param compare  Called with each node's data and \p argument; NULL
 *                 gives NULL.
 * \param argument Passed to \p compare.
 * \return The node, or NULL when none matches.
 */
XwkListNode *l_userfind(XwkList *list, XwkListCompareProc compare, XtPointer argument);
/**
 * \brief A search whose procedure moves the cursor itself, so that it may
 * step through nested lists.
 *
 * The cursor starts at the head; the list code never advances it.  The
 * search ends when the procedure returns non-zero or the cursor is NULL.
 *
 * \param list     The list; NULL gives NULL.
 * \param proc     The search procedure; NULL gives NULL.
 * \param argument Passed to \p proc.
 * \return The cursor when \p proc returned non-zero, else NULL.
 */
XwkListNode *l_treefind(XwkList *list, XwkListTreeFindProc proc, XtPointer argument);
/**
 * \brief Unlinks a node, calls free_node on it, frees it and renumbers from
 * its successor.
 *
 * l_delete calls free_node; l_cut leaves the data to the caller.
 *
 * \param list The list; NULL or empty is ignored.
 * \param node A node of this list; NULL is ignored.
 */
void l_delete(XwkList *list, XwkListNode *node);
/**
 * \brief As l_delete, without calling free_node: the node is freed, the
 * data stays the caller's.
 * \param list The list; NULL or empty is ignored.
 * \param node A node of this list; NULL is ignored.
 */
void l_cut(XwkList *list, XwkListNode *node);
/**
 * \brief Deletes the tail as l_delete does.
 * \param list The list; NULL or empty is ignored.
 */
void l_pop(XwkList *list);
/**
 * \brief Reverses the list in place and renumbers it; nothing is
 * allocated.
 * \param list The list; NULL or empty is ignored.
 */
void l_reverse(XwkList *list);
/**
 * \brief Moves a node to just before another.
 *
 * Moves `moved` to just before `target`; renumbers from `moved` only, so
 * nodes it passed over may keep stale indices.  Nothing is freed, despite
 * the name, and count does not change.
 *
 * \param list   The list holding both nodes.
 * \param target The node to move before.
 * \param moved  The node to move.  Nothing is done when any argument is
 *               NULL or \p moved is \p target.
 */
void l_replace(XwkList *list, XwkListNode *target, XwkListNode *moved);
/**
 * \brief Deletes all nodes, calling free_node from head to tail.
 *
 * The head stays, empty, and takes new nodes from index 0.
 *
 * \param list The list; NULL is ignored.
 */
void l_flush(XwkList *list);
/**
 * \brief l_flush, then frees the head with XtFree.
 * \param list The list; NULL is ignored.  Invalid afterwards.
 */
void l_destroy(XwkList *list);
/**
 * \brief Renumbers from a node to the tail: each index is the
 * predecessor's plus 1, or 0 without a predecessor.
 * \param node The first node to renumber; NULL is ignored.
 */
void l_label(XwkListNode *node);

/* ------------------------------------------------------------------ */
/* Trees                                                               */
/* ------------------------------------------------------------------ */

/** Traversal kind preorder: the only kind; give it to t_create. */
#define XWK_TREE_PREORDER 1
/** The bits of a kind, and of XwkTree::flags, that hold the traversal
 * kind. */
#define XWK_TREE_KIND_MASK 0x0f
/** Bit of XwkTree::flags: the ids need renumbering. */
#define XWK_TREE_STALE 0x10

/** A node of an XwkTree; calloc'ed by t_tlink, freed by t_delete_node,
 * t_freenode or t_destroy. */
typedef struct _XwkTreeNode {
    unsigned int id;               /**< Preorder number when the numbering is fresh; root 0. */
    unsigned int level;            /**< Depth; root 0. */
    struct _XwkTreeNode *parent;   /**< Parent; NULL at the root. */
    unsigned int nchildren;        /**< Number of direct children. */
    struct _XwkTreeNode *first_child;  /**< First child, or NULL. */
    struct _XwkTreeNode *last_child;   /**< Last child, or NULL. */
    struct _XwkTreeNode *next_sibling; /**< Next node of the parent's children, or NULL. */
    struct _XwkTreeNode *prev_sibling; /**< Previous node of the parent's children, or NULL. */
    XtPointer data;                /**< Caller's word. */
} XwkTreeNode;

struct _XwkTree;
/**
 * Called for each node that is freed, children before their parent,
 * before the node's memory goes.
 *
 * \param node The node going away.
 * \param tree The tree, or NULL when t_freenode was given none.
 */
typedef void (*XwkTreeFreeProc)(XwkTreeNode *node, struct _XwkTree *tree);
/**
 * Search procedure of t_userfind, t_usercreep and t_usertlink.
 *
 * \param data     The data word of a node.
 * \param argument The argument given to the search.
 * \return 0 for the node looked for.
 */
typedef int (*XwkTreeFindProc)(XtPointer data, XtPointer argument);
/**
 * Visit procedure of t_tour; it must not free nodes.
 *
 * \param node     The node visited.
 * \param data     The node's data word.
 * \param argument The argument given to t_tour.
 */
typedef void (*XwkTreeTourProc)(XwkTreeNode *node, XtPointer data, XtPointer argument);

/** The head of a general tree, made by t_create. */
typedef struct _XwkTree {
    unsigned int flags;            /**< Traversal kind | XWK_TREE_STALE. */
    XwkTreeNode *root;             /**< The root, or NULL. */
    XwkTreeNode *root2;            /**< Written with root, never read. */
    unsigned int depth;            /**< Highest level seen plus 1; never shrinks. */
    XwkTreeFreeProc free_node;     /**< Called for each node freed, or NULL. */
    unsigned int count;            /**< Number of nodes. */
    XtPointer reserved;            /**< Zero; not used. */
    XtPointer user;                /**< Caller's word given at creation. */
} XwkTree;

/**
 * \brief Creates an empty tree; its numbering is stale.
 * \param kind      XWK_TREE_PREORDER; with any other kind numbering and
 *                  searches do nothing.
 * \param free_node Called for each node freed, or NULL.
 * \param user      Caller's word, kept in the head.
 * \return The tree (calloc), or NULL when memory ran out.  Free it with
 *         t_destroy.
 */
XwkTree *t_create(int kind, XwkTreeFreeProc free_node, XtPointer user);
/**
 * \brief Adds a node as the last child of a parent.
 *
 * A null parent replaces the root pointer (the old root is not freed).  A
 * tree whose numbering was fresh is numbered again (cheaply when the node
 * ends the preorder); a stale tree stays stale, so a batch of adds costs
 * no numbering until the next search.
 *
 * \param tree   The tree; NULL gives NULL.
 * \param parent The parent, a node of \p tree, or NULL for the root.
 * \param data   Caller's word.
 * \return The new node (calloc, freed with the tree), or NULL when memory
 *         ran out.
 */
XwkTreeNode *t_tlink(XwkTree *tree, XwkTreeNode *parent, XtPointer data);
/**
 * \brief Adds a node as the last child of the node t_userfind finds.
 *
 * An empty tree cannot be filled this way.
 *
 * \param tree     The tree.
 * \param find     Picks the parent: 0 for the node looked for.
 * \param argument Passed to \p find.
 * \param data     Caller's word.
 * \return The new node, or NULL when no parent is found.
 */
XwkTreeNode *t_usertlink(XwkTree *tree, XwkTreeFindProc find, XtPointer argument,
                         XtPointer data);
/**
 * \brief The preorder successor outside the node's subtree: its next
 * sibling, or the nearest ancestor's next sibling.
 * \param node The node; NULL gives NULL.
 * \return The successor, or NULL at the end of the preorder.
 */
XwkTreeNode *t_next(XwkTreeNode *node);
/**
 * \brief Whether a node lies below a subtree's root, by their numbers.
 *
 * Needs fresh numbering (t_enumerate, or any search by number or
 * procedure); a node is not in its own subtree.
 *
 * \param node    The node to test.
 * \param subtree Root of the subtree.
 * \return True when \p node is a descendant of \p subtree; False, also for
 *         a NULL argument.
 */
Boolean t_belong_to_subtree(XwkTreeNode *node, XwkTreeNode *subtree);
/**
 * \brief Moves a node with its subtree to the end of a new parent's
 * children, and renumbers.
 *
 * When the new parent lies in the node's own subtree, the node's children
 * are first hoisted, in order, to the end of its old parent's children
 * (the only child of a moved root becomes the root), and the node is then
 * hung under the new parent without children.  Levels and depth follow.
 *
 * \param tree       The tree.
 * \param node       The node to move.
 * \param new_parent The new parent.
 * \return \p node; unchanged, without renumbering, when \p new_parent is
 *         its parent already.  NULL for a NULL argument, when \p node is
 *         \p new_parent, or for a root with more than one child moved
 *         below its own subtree.
 */
XwkTreeNode *t_reparent(XwkTree *tree, XwkTreeNode *node, XwkTreeNode *new_parent);
/**
 * \brief Unlinks a node from its parent, frees its subtree with free_node
 * (children first) and renumbers.
 * \param tree The tree; NULL is ignored.
 * \param node The node; NULL or the root is ignored.
 */
void t_delete_node(XwkTree *tree, XwkTreeNode *node);
/**
 * \brief Frees a subtree, children first, without unlinking it.
 *
 * The caller unlinks the subtree first, or frees the whole tree.
 *
 * \param node      Root of the subtree; NULL is ignored.
 * \param free_node Called for each node before it is freed, or NULL.
 * \param tree      Its count is lowered for each node; may be NULL.
 */
void t_freenode(XwkTreeNode *node, XwkTreeFreeProc free_node, XwkTree *tree);
/**
 * \brief Frees all nodes with the tree's free_node, then the head.
 * \param tree The tree; NULL is ignored.  Invalid afterwards.
 */
void t_destroy(XwkTree *tree);
/**
 * \brief Numbers a subtree in preorder from a counter.
 *
 * Does not touch the tree's stale bit (t_enumerate does).
 *
 * \param kind    Traversal kind; anything but XWK_TREE_PREORDER does
 *                nothing.
 * \param node    Root of the subtree; NULL is ignored.
 * \param counter In: the first number.  Out: the number after the last
 *                one given.  NULL is ignored.
 */
void t_label(int kind, XwkTreeNode *node, unsigned int *counter);
/**
 * \brief Numbers the whole tree from 0 and clears the stale bit.
 * \param tree The tree; NULL is ignored.
 */
void t_enumerate(XwkTree *tree);
/**
 * \brief The node with a number; renumbers first when the numbering is
 * stale.
 * \param tree The tree; NULL gives NULL.
 * \param id   The preorder number; 0 is the root.
 * \return The node, or NULL.
 */
XwkTreeNode *t_find(XwkTree *tree, unsigned int id);
/**
 * \brief The node with a number in a subtree, without renumbering.
 *
 * Relies on fresh numbering: children's numbers rise from first to last.
 *
 * \param kind Traversal kind; not looked at.
 * \param node Root of the subtree; NULL gives NULL.
 * \param id   The preorder number.
 * \return The node, or NULL.
 */
XwkTreeNode *t_creep(int kind, XwkTreeNode *node, unsigned int id);
/**
 * \brief The first node in preorder for which find gives 0; renumbers
 * first when the numbering is stale.
 * \param tree     The tree; NULL gives NULL.
 * \param find     Called with each node's data and \p argument.
 * \param argument Passed to \p find.
 * \return The node, or NULL.
 */
XwkTreeNode *t_userfind(XwkTree *tree, XwkTreeFindProc find, XtPointer argument);
/**
 * \brief The first node of a subtree, in preorder from its root, for which
 * find gives 0.
 * \param kind     Traversal kind; anything but XWK_TREE_PREORDER gives
 *                 NULL.
 * \param node     Root of the subtree; NULL gives NULL.
 * \param find     Called with each node's data and \p argument; NULL
 *                 gives NULL.
 * \param argument Passed to \p find.
 * \return The node, or NULL.
 */
XwkTreeNode *t_usercreep(int kind, XwkTreeNode *node, XwkTreeFindProc find,
                         XtPointer argument);
/**
 * \brief Visits a subtree in preorder, its root first.
 *
 * A node's first child is taken before the procedure runs on the node, and
 * a sibling only after the subtree before it is done.
 *
 * \param kind     Traversal kind; not looked at.
 * \param node     Root of the subtree; NULL is ignored.
 * \param proc     Called for each node; NULL is ignored.
 * \param argument Passed to \p proc.
 */
void t_tour(int kind, XwkTreeNode *node, XwkTreeTourProc proc, XtPointer argument);

/* ------------------------------------------------------------------ */
/* Hash tables                                                         */
/* ------------------------------------------------------------------ */

/**
 * Key comparison of an XwkHashTable.
 *
 * \param stored_key The key of an entry.
 * \param key        The key looked for.
 * \return True when the keys are equal.
 */
typedef Boolean (*XwkHashEqualProc)(XtPointer stored_key, XtPointer key);
/**
 * Hash function of an XwkHashTable.
 *
 * \param key The key.
 * \return Its hash value; the bucket is this modulo the table size.
 */
typedef unsigned int (*XwkHashProc)(XtPointer key);
/**
 * Visit procedure of XwkMapHashTable; it may remove the entry it is given.
 *
 * \param key     The entry's key.
 * \param value   The entry's value.
 * \param closure The closure given to XwkMapHashTable.
 * \return True stops XwkMapHashTable.
 */
typedef Boolean (*XwkHashMapProc)(XtPointer key, XtPointer value, XtPointer closure);

/** An entry of an XwkHashTable, taken from the process-wide pool. */
typedef struct _XwkHashEntry {
    unsigned int hash;             /**< Full hash, so a resize needs no call. */
    XtPointer key;                 /**< The key. */
    XtPointer value;               /**< The value. */
    struct _XwkHashEntry *next;    /**< Chain link, free-list link in the pool. */
} XwkHashEntry;

/** A chained hash table, made by XwkAllocHashTable. */
typedef struct _XwkHashTable {
    unsigned int size;             /**< Number of buckets: 17, 31, 67, ... 8209. */
    unsigned int count;            /**< Number of entries. */
    XwkHashEqualProc equal;        /**< Key comparison. */
    XwkHashProc hash;              /**< Hash function. */
    XwkHashEntry **buckets;        /**< Chain heads, size of them. */
} XwkHashTable;

/**
 * \brief Creates an empty hash table.
 *
 * Null equal: identical words; null hash: the key word itself.  The bucket
 * count is the first of 17, 31, 67, 131, 257, 521, 1031, 2053, 4099, 8209
 * not below \p size, and 8209 for a larger wish.
 *
 * \param size  Wished number of buckets.
 * \param equal Key comparison, or NULL.
 * \param hash  Hash function, or NULL.
 * \return The table (Xt allocation, never NULL).  Free it with
 *         XwkFreeHashTable.
 */
XwkHashTable *XwkAllocHashTable(int size, XwkHashEqualProc equal, XwkHashProc hash);
/**
 * \brief Frees a table; its entries go back to the pool.  Keys and values
 * are not touched.
 * \param table The table; NULL is ignored.  Invalid afterwards.
 */
void XwkFreeHashTable(XwkHashTable *table);
/**
 * \brief Grows a table to the bucket count of a wish; a wish not larger
 * than the present size does nothing.
 *
 * Kept as it has always behaved: when an entry stays in its bucket and a
 * later entry of that chain moves, the staying entry drops out of the
 * chain; lookups no longer find it, while count still includes it.
 *
 * \param table The table; NULL is ignored.
 * \param size  Wished number of buckets, rounded as by XwkAllocHashTable.
 */
void XwkResizeHashTable(XwkHashTable *table, int size);
/**
 * \brief Adds an entry at the head of its chain.
 *
 * Duplicates are not looked for: the newest entry of equal keys is found
 * first.
 *
 * \param table The table; NULL is ignored.
 * \param key   The key, stored as given.
 * \param value The value, stored as given.
 */
void XwkAddHashEntry(XwkHashTable *table, XtPointer key, XtPointer value);
/**
 * \brief Looks a key up, or goes on to its next older entry.
 *
 * *iterator 0 (or a null iterator) starts a search, a later call with the
 * same word gives the next older value of the key; 0 at the end.  The
 * stored hash is not compared, only the keys by the table's equal.
 *
 * \param table    The table; NULL gives NULL.
 * \param key      The key looked for.
 * \param iterator In: 0 to start, or the word of the previous call.  Out:
 *                 the entry found, 0 at the end.  May be NULL for a plain
 *                 lookup.
 * \return The value, or NULL when there is no (further) entry; a stored
 *         value of NULL looks the same.
 */
XtPointer XwkGetHashEntryIterate(XwkHashTable *table, XtPointer key, XtPointer *iterator);
/**
 * \brief Removes the newest entry of a key; the entry goes back to the
 * pool.
 * \param table The table; NULL gives NULL.
 * \param key   The key.
 * \return The key stored in the entry, or NULL when there is none.
 */
XtPointer XwkRemoveHashEntry(XwkHashTable *table, XtPointer key);
/**
 * \brief Removes the entry an iterator word of XwkGetHashEntryIterate
 * stands on, found by identity in its chain.
 * \param table    The table; NULL gives NULL.
 * \param iterator The iterator word.  It steps back to the previous entry
 *                 of the chain (0 at the head), so that iterating on gives
 *                 the removed entry's successor.  NULL or 0 gives NULL.
 * \return The key stored in the entry, or NULL when it is not found.
 */
XtPointer XwkRemoveHashIterator(XwkHashTable *table, XtPointer *iterator);
/**
 * \brief Number of entries.
 * \param table The table; NULL gives 0.
 * \return The count.
 */
unsigned int XwkHashTableCount(XwkHashTable *table);
/**
 * \brief Number of buckets.
 * \param table The table; NULL gives 0.
 * \return The size.
 */
unsigned int XwkHashTableSize(XwkHashTable *table);
/**
 * \brief Visits the entries, bucket 0 upward, each chain from its head,
 * until the procedure returns True.
 * \param table   The table; NULL gives NULL.
 * \param proc    Called for each entry; NULL gives NULL.
 * \param closure Passed to \p proc.
 * \return The value of the entry on which \p proc returned True, or NULL.
 */
XtPointer XwkMapHashTable(XwkHashTable *table, XwkHashMapProc proc, XtPointer closure);

/* ------------------------------------------------------------------ */
/* Bucket trees                                                        */
/* ------------------------------------------------------------------ */

/**
 * Key order of a HashTree.
 *
 * \param node_key The record of a node of the tree.
 * \param key      The record looked for or added.
 * \return Negative to go left, positive to go right, 0 for equal keys.
 */
typedef int (*HashCompareProc)(XtPointer node_key, XtPointer key);
/**
 * Key release procedure of a HashTree; kept, never called.
 *
 * \param key A record.
 */
typedef void (*HashFreeProc)(XtPointer key);

/** A node of a bucket tree; Xt allocation, owned by the HashTree. */
typedef struct _HashTreeNode {
    XtPointer key;                 /**< The caller's record. */
    struct _HashTreeNode *left;    /**< compare(node key, key) negative. */
    struct _HashTreeNode *right;   /**< compare(node key, key) positive. */
    struct _HashTreeNode *same;    /**< Equal keys, newest first. */
    struct _HashTreeNode **link;   /**< The pointer that points here. */
} HashTreeNode;

/** A set of unbalanced binary trees, one per bucket, made by HashCreate. */
typedef struct _HashTree {
    HashCompareProc compare;       /**< Key order. */
    HashFreeProc free_key;         /**< Kept, never called. */
    HashTreeNode **buckets;        /**< Tree roots, size of them. */
    int size;                      /**< Number of buckets. */
} HashTree;

/**
 * \brief Creates a set of empty bucket trees.
 * \param compare  Key order; must not be NULL.
 * \param free_key Kept in the table, never called; may be NULL.
 * \param size     Number of buckets; a negative one counts as 0.
 * \return The table (Xt allocation, never NULL).  Free it with
 *         HashDestroy.
 */
HashTree *HashCreate(HashCompareProc compare, HashFreeProc free_key, int size);
/**
 * \brief Finds the newest record equal to a key in one bucket, descending
 * by compare.
 * \param table  The table; NULL gives NULL.
 * \param bucket Bucket number, 0 to size - 1; out of range gives NULL.
 * \param key    The key record looked for.
 * \return The stored record, or NULL.
 */
XtPointer HashFind(HashTree *table, int bucket, XtPointer key);
/**
 * \brief Adds a record to one bucket.
 *
 * The bucket number is the caller's business; the table computes no hash.
 * A record with a key equal to a stored one takes that node's place, and
 * the older records of the key hang behind it.
 *
 * \param table  The table.
 * \param bucket Bucket number, 0 to size - 1.
 * \param key    The record, stored as given.
 * \return 0 when added; 1 for a NULL table or a bucket out of range.
 */
int HashAdd(HashTree *table, int bucket, XtPointer key);
/**
 * \brief Removes the node of one record from one bucket.
 *
 * The record is found by pointer identity, not by compare, so records with
 * equal keys are told apart.  The record itself is not touched.
 *
 * \param table  The table.
 * \param bucket Bucket number, 0 to size - 1.
 * \param key    The record to remove.
 * \return 1 when removed, and for a NULL table or key; 0 when not found
 *         or for a bucket out of range.
 */
int HashRemove(HashTree *table, int bucket, XtPointer key);
/**
 * \brief Frees all nodes and the table; the records are not touched.
 * \param table The table; NULL is ignored.  Invalid afterwards.
 */
void HashDestroy(HashTree *table);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
