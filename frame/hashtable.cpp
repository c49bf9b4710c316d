// Chained hash tables with one process-wide entry pool.
//
// Entries come from a free list shared by all tables; an empty free list is
// refilled with a block of 256 entries from XtMalloc.  Blocks are never
// given back, so adding an entry costs no allocator call in the common case.
#include <Xwk/Lists.h>

#include <cstdint>
#include <iterator>

namespace {

constexpr int kEntriesPerBlock = 256;
constexpr unsigned int kSizes[] = {17, 31, 67, 131, 257, 521, 1031, 2053, 4099, 8209};

XwkHashEntry *freeEntries;

XwkHashEntry *PopEntry()
{
    if (!freeEntries) {
        auto *block = reinterpret_cast<XwkHashEntry *>(
            XtMalloc(kEntriesPerBlock * sizeof(XwkHashEntry)));
        // Threaded in address order: the block is handed out front to back.
        for (int i = 0; i < kEntriesPerBlock - 1; i++)
            block[i].next = &block[i + 1];
        block[kEntriesPerBlock - 1].next = nullptr;
        freeEntries = block;
    }
    XwkHashEntry *entry = freeEntries;
    freeEntries = entry->next;
    return entry;
}

void PushEntry(XwkHashEntry *entry)
{
    entry->next = freeEntries;
    freeEntries = entry;
}

unsigned int SeriesSize(int wish)
{
    for (unsigned int size : kSizes) {
        if (wish <= static_cast<int>(size))
            return size;
    }
    return kSizes[std::size(kSizes) - 1];
}

Boolean SameWord(XtPointer stored_key, XtPointer key)
{
    return stored_key == key;
}

unsigned int WordHash(XtPointer key)
{
    return static_cast<unsigned int>(reinterpret_cast<uintptr_t>(key));
}

unsigned int HashOf(const XwkHashTable *table, XtPointer key)
{
    if (table->hash == WordHash)
        return WordHash(key);
    return table->hash(key);
}

bool Equal(const XwkHashTable *table, XtPointer stored_key, XtPointer key)
{
    if (table->equal == SameWord)
        return stored_key == key;
    return table->equal(stored_key, key);
}

// The sizes are a fixed series, so a switch lets the compiler replace the
// division by a multiplication for each of them.
unsigned int BucketOf(unsigned int hash, unsigned int size)
{
    switch (size) {
    case 17: return hash % 17;
    case 31: return hash % 31;
    case 67: return hash % 67;
    case 131: return hash % 131;
    case 257: return hash % 257;
    case 521: return hash % 521;
    case 1031: return hash % 1031;
    case 2053: return hash % 2053;
    case 4099: return hash % 4099;
    case 8209: return hash % 8209;
    default: return hash % size;
    }
}

// Unhooks the entry that *link points at and gives it back to the pool;
// returns its key, read before the push.
XtPointer Release(XwkHashTable *table, XwkHashEntry **link, XwkHashEntry *entry)
{
    *link = entry->next;
    table->count--;
    XtPointer key = entry->key;
    PushEntry(entry);
    return key;
}

} // namespace

extern "C" {

XwkHashTable *XwkAllocHashTable(int size, XwkHashEqualProc equal, XwkHashProc hash)
{
    auto *table = reinterpret_cast<XwkHashTable *>(XtMalloc(sizeof(XwkHashTable)));
    table->size = SeriesSize(size);
    table->count = 0;
    table->equal = equal ? equal : SameWord;
    table->hash = hash ? hash : WordHash;
    table->buckets = reinterpret_cast<XwkHashEntry **>(
        XtCalloc(table->size, sizeof(XwkHashEntry *)));
    return table;
}

void XwkFreeHashTable(XwkHashTable *table)
{
    if (!table)
        return;
    for (unsigned int b = 0; b < table->size; b++) {
        XwkHashEntry *entry = table->buckets[b];
        while (entry) {
            XwkHashEntry *next = entry->next;
            PushEntry(entry);
            entry = next;
        }
    }
    XtFree(reinterpret_cast<char *>(table->buckets));
    XtFree(reinterpret_cast<char *>(table));
}

void XwkResizeHashTable(XwkHashTable *table, int size)
{
    if (!table)
        return;
    unsigned int new_size = SeriesSize(size);
    unsigned int old_size = table->size;
    if (new_size <= old_size)
        return;
    table->buckets = reinterpret_cast<XwkHashEntry **>(XtRealloc(
        reinterpret_cast<char *>(table->buckets), new_size * sizeof(XwkHashEntry *)));
    for (unsigned int b = old_size; b < new_size; b++)
        table->buckets[b] = nullptr;
    table->size = new_size;
    // Buckets from old_size up hold only entries moved there, which stay.
    for (unsigned int b = 0; b < old_size; b++) {
        XwkHashEntry *entry = table->buckets[b];
        while (entry) {
            XwkHashEntry *next = entry->next;
            unsigned int target = entry->hash % new_size;
            if (target != b) {
                entry->next = nullptr;
                XwkHashEntry **tail = &table->buckets[target];
                while (*tail)
                    tail = &(*tail)->next;
                *tail = entry;
                // Kept as it has always been: the bucket's head is set past
                // every moved entry, so an entry that stayed in front of it
                // drops out of the chain while count still includes it.
                table->buckets[b] = next;
            }
            entry = next;
        }
    }
}

void XwkAddHashEntry(XwkHashTable *table, XtPointer key, XtPointer value)
{
    if (!table)
        return;
    XwkHashEntry *entry = PopEntry();
    entry->hash = HashOf(table, key);
    entry->key = key;
    entry->value = value;
    XwkHashEntry **head = &table->buckets[BucketOf(entry->hash, table->size)];
    entry->next = *head;
    *head = entry;
    table->count++;
}

XtPointer XwkGetHashEntryIterate(XwkHashTable *table, XtPointer key, XtPointer *iterator)
{
    if (!table)
        return nullptr;
    XwkHashEntry *entry;
    if (iterator && *iterator)
        entry = static_cast<XwkHashEntry *>(*iterator)->next;
    else
        entry = table->buckets[BucketOf(HashOf(table, key), table->size)];
    for (; entry; entry = entry->next) {
        if (Equal(table, entry->key, key)) {
            if (iterator)
                *iterator = entry;
            return entry->value;
        }
    }
    if (iterator)
        *iterator = nullptr;
    return nullptr;
}

XtPointer XwkRemoveHashEntry(XwkHashTable *table, XtPointer key)
{
    if (!table)
        return nullptr;
    XwkHashEntry **link = &table->buckets[BucketOf(HashOf(table, key), table->size)];
    for (; *link; link = &(*link)->next) {
        if (Equal(table, (*link)->key, key))
            return Release(table, link, *link);
    }
    return nullptr;
}

XtPointer XwkRemoveHashIterator(XwkHashTable *table, XtPointer *iterator)
{
    if (!table || !iterator || !*iterator)
        return nullptr;
    auto *entry = static_cast<XwkHashEntry *>(*iterator);
    XwkHashEntry **link = &table->buckets[BucketOf(entry->hash, table->size)];
    XwkHashEntry *before = nullptr;
    for (; *link; before = *link, link = &(*link)->next) {
        if (*link != entry)
            continue;
        // The iterator steps back to the predecessor (0 at the head), so
        // that iterating on from it continues with the removed entry's
        // successor instead of walking into the pool.
        *iterator = before;
        return Release(table, link, entry);
    }
    return nullptr;
}

unsigned int XwkHashTableCount(XwkHashTable *table)
{
    return table ? table->count : 0;
}

unsigned int XwkHashTableSize(XwkHashTable *table)
{
    return table ? table->size : 0;
}

XtPointer XwkMapHashTable(XwkHashTable *table, XwkHashMapProc proc, XtPointer closure)
{
    if (!table || !proc)
        return nullptr;
    for (unsigned int b = 0; b < table->size; b++) {
        for (XwkHashEntry *entry = table->buckets[b]; entry;) {
            // Read first: the procedure may remove the entry it is given.
            XwkHashEntry *next = entry->next;
            if (proc(entry->key, entry->value, closure))
                return entry->value;
            entry = next;
        }
    }
    return nullptr;
}

} // extern "C"
