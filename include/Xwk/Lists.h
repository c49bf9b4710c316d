/*
 * Xwk/Lists.h - the library's four containers.
 *
 *   l_*               a doubly linked list whose nodes carry their position;
 *   t_*               a general tree numbered lazily in preorder;
 *   XwkAllocHashTable a chained hash table drawing its entries from one
 *                     process-wide pool;
 *   HashCreate        a set of unbalanced binary trees, one per bucket, the
 *                     bucket number being chosen by the caller.
 *
 * No container copies user data: data words are stored as given and stay
 * the caller's.  None is safe for concurrent use.
 *
 * Memory: list heads and nodes come from XtCalloc and go back by XtFree;
 * trees use calloc and free; hash tables and bucket trees use Xt allocation.
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

typedef struct _XwkListNode {
    int index;                     /* position from 0, kept by the list */
    struct _XwkListNode *next;     /* towards the tail */
    struct _XwkListNode *prev;     /* towards the head */
    XtPointer data;                /* caller's word */
} XwkListNode;

/* Called for each node that is deleted, before the node is freed. */
typedef void (*XwkListFreeProc)(XwkListNode *node);
/* Gives 0 for the node looked for. */
typedef int (*XwkListCompareProc)(XtPointer data, XtPointer argument);
/* Decides on *cursor and moves *cursor on itself; non-zero ends the search. */
typedef int (*XwkListTreeFindProc)(XwkListNode **cursor, XtPointer argument);

typedef struct _XwkList {
    int count;
    XwkListFreeProc free_node;
    XwkListNode *first;
    XwkListNode *last;
    XtPointer user;
} XwkList;

XwkList *l_create(XwkListFreeProc free_node, XtPointer user);
XwkListNode *l_append(XwkList *list, XtPointer data);
XwkListNode *l_insert_head(XwkList *list, XtPointer data);
/* Inserts after node (before node); a null node appends. */
XwkListNode *l_insert(XwkList *list, XwkListNode *node, XtPointer data);
XwkListNode *l_insert_before(XwkList *list, XwkListNode *node, XtPointer data);
XwkListNode *l_find(XwkList *list, int index);
XwkListNode *l_userfind(XwkList *list, XwkListCompareProc compare, XtPointer argument);
XwkListNode *l_treefind(XwkList *list, XwkListTreeFindProc proc, XtPointer argument);
/* l_delete calls free_node; l_cut leaves the data to the caller. */
void l_delete(XwkList *list, XwkListNode *node);
void l_cut(XwkList *list, XwkListNode *node);
void l_pop(XwkList *list);
void l_reverse(XwkList *list);
/* Moves `moved` to just before `target`; renumbers from `moved` only, so
 * nodes it passed over may keep stale indices.  Nothing is freed. */
void l_replace(XwkList *list, XwkListNode *target, XwkListNode *moved);
void l_flush(XwkList *list);
void l_destroy(XwkList *list);
/* Renumbers from node to the tail: predecessor's index plus 1, or 0. */
void l_label(XwkListNode *node);

/* ------------------------------------------------------------------ */
/* Trees                                                               */
/* ------------------------------------------------------------------ */

#define XWK_TREE_PREORDER 1        /* the only traversal kind */
#define XWK_TREE_KIND_MASK 0x0f
#define XWK_TREE_STALE 0x10        /* flags bit: ids need renumbering */

typedef struct _XwkTreeNode {
    unsigned int id;               /* preorder number when fresh; root 0 */
    unsigned int level;            /* root 0 */
    struct _XwkTreeNode *parent;
    unsigned int nchildren;
    struct _XwkTreeNode *first_child;
    struct _XwkTreeNode *last_child;
    struct _XwkTreeNode *next_sibling;
    struct _XwkTreeNode *prev_sibling;
    XtPointer data;                /* caller's word */
} XwkTreeNode;

struct _XwkTree;
typedef void (*XwkTreeFreeProc)(XwkTreeNode *node, struct _XwkTree *tree);
/* Gives 0 for the node looked for. */
typedef int (*XwkTreeFindProc)(XtPointer data, XtPointer argument);
typedef void (*XwkTreeTourProc)(XwkTreeNode *node, XtPointer data, XtPointer argument);

typedef struct _XwkTree {
    unsigned int flags;            /* traversal kind | XWK_TREE_STALE */
    XwkTreeNode *root;
    XwkTreeNode *root2;            /* written with root, never read */
    unsigned int depth;            /* highest level seen plus 1; never shrinks */
    XwkTreeFreeProc free_node;
    unsigned int count;
    XtPointer reserved;
    XtPointer user;
} XwkTree;

XwkTree *t_create(int kind, XwkTreeFreeProc free_node, XtPointer user);
/* Adds a last child of parent; a null parent replaces the root pointer
 * (the old root is not freed). */
XwkTreeNode *t_tlink(XwkTree *tree, XwkTreeNode *parent, XtPointer data);
XwkTreeNode *t_usertlink(XwkTree *tree, XwkTreeFindProc find, XtPointer argument,
                         XtPointer data);
/* The preorder successor outside the node's subtree. */
XwkTreeNode *t_next(XwkTreeNode *node);
/* Needs fresh numbering; a node is not in its own subtree. */
Boolean t_belong_to_subtree(XwkTreeNode *node, XwkTreeNode *subtree);
XwkTreeNode *t_reparent(XwkTree *tree, XwkTreeNode *node, XwkTreeNode *new_parent);
void t_delete_node(XwkTree *tree, XwkTreeNode *node);
/* Frees a subtree, children first, without unlinking it. */
void t_freenode(XwkTreeNode *node, XwkTreeFreeProc free_node, XwkTree *tree);
void t_destroy(XwkTree *tree);
void t_label(int kind, XwkTreeNode *node, unsigned int *counter);
void t_enumerate(XwkTree *tree);
XwkTreeNode *t_find(XwkTree *tree, unsigned int id);
XwkTreeNode *t_creep(int kind, XwkTreeNode *node, unsigned int id);
XwkTreeNode *t_userfind(XwkTree *tree, XwkTreeFindProc find, XtPointer argument);
XwkTreeNode *t_usercreep(int kind, XwkTreeNode *node, XwkTreeFindProc find,
                         XtPointer argument);
void t_tour(int kind, XwkTreeNode *node, XwkTreeTourProc proc, XtPointer argument);

/* ------------------------------------------------------------------ */
/* Hash tables                                                         */
/* ------------------------------------------------------------------ */

typedef Boolean (*XwkHashEqualProc)(XtPointer stored_key, XtPointer key);
typedef unsigned int (*XwkHashProc)(XtPointer key);
/* True stops XwkMapHashTable. */
typedef Boolean (*XwkHashMapProc)(XtPointer key, XtPointer value, XtPointer closure);

typedef struct _XwkHashEntry {
    unsigned int hash;             /* full hash, so a resize needs no call */
    XtPointer key;
    XtPointer value;
    struct _XwkHashEntry *next;    /* chain link, free-list link in the pool */
} XwkHashEntry;

typedef struct _XwkHashTable {
    unsigned int size;             /* 17, 31, 67, ... 8209 */
    unsigned int count;
    XwkHashEqualProc equal;
    XwkHashProc hash;
    XwkHashEntry **buckets;
} XwkHashTable;

/* Null equal: identical words; null hash: the key word itself. */
XwkHashTable *XwkAllocHashTable(int size, XwkHashEqualProc equal, XwkHashProc hash);
void XwkFreeHashTable(XwkHashTable *table);
void XwkResizeHashTable(XwkHashTable *table, int size);
void XwkAddHashEntry(XwkHashTable *table, XtPointer key, XtPointer value);
/* *iterator 0 (or a null iterator) starts a search, a later call with the
 * same word gives the next older value of the key; 0 at the end. */
XtPointer XwkGetHashEntryIterate(XwkHashTable *table, XtPointer key, XtPointer *iterator);
XtPointer XwkRemoveHashEntry(XwkHashTable *table, XtPointer key);
XtPointer XwkRemoveHashIterator(XwkHashTable *table, XtPointer *iterator);
unsigned int XwkHashTableCount(XwkHashTable *table);
unsigned int XwkHashTableSize(XwkHashTable *table);
XtPointer XwkMapHashTable(XwkHashTable *table, XwkHashMapProc proc, XtPointer closure);

/* ------------------------------------------------------------------ */
/* Bucket trees                                                        */
/* ------------------------------------------------------------------ */

typedef int (*HashCompareProc)(XtPointer node_key, XtPointer key);
typedef void (*HashFreeProc)(XtPointer key);

typedef struct _HashTreeNode {
    XtPointer key;                 /* the caller's record */
    struct _HashTreeNode *left;    /* compare(node key, key) negative */
    struct _HashTreeNode *right;   /* compare(node key, key) positive */
    struct _HashTreeNode *same;    /* equal keys, newest first */
    struct _HashTreeNode **link;   /* the pointer that points here */
} HashTreeNode;

typedef struct _HashTree {
    HashCompareProc compare;
    HashFreeProc free_key;         /* kept, never called */
    HashTreeNode **buckets;
    int size;
} HashTree;

HashTree *HashCreate(HashCompareProc compare, HashFreeProc free_key, int size);
XtPointer HashFind(HashTree *table, int bucket, XtPointer key);
int HashAdd(HashTree *table, int bucket, XtPointer key);
int HashRemove(HashTree *table, int bucket, XtPointer key);
void HashDestroy(HashTree *table);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
