// Library-internal: sorting arrays that are often in order already.
#ifndef XWK_FRAME_SORT_PRIVATE_H
#define XWK_FRAME_SORT_PRIVATE_H

#include <cstddef>
#include <cstdlib>

namespace xwk {

// qsort, after one pass that finds the array in order already: a list that
// is sorted again after a refill in its own order then costs count - 1
// comparisons.  An array in order is left as a stable sort leaves it.
inline void QsortUnlessOrdered(void *base, size_t count, size_t size,
                               int (*compare)(const void *, const void *))
{
    char *p = static_cast<char *>(base);
    size_t i = 1;
    while (i < count && compare(p + (i - 1) * size, p + i * size) <= 0)
        i++;
    if (i < count)
        qsort(base, count, size, compare);
}

}  // namespace xwk

#endif
