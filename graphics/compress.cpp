// Colour reduction: an exact map when the picture already has few enough
// colours, otherwise a median cut on a 15-bit histogram.
#include <Xwk/Graphics.h>

#include "graphics/imagepix.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

constexpr int kMaxColors = 0x8000;
constexpr int kSlots = 0x8000;

int slot_of(unsigned rgb)
{
    unsigned r = rgb >> 16, g = (rgb >> 8) & 0xFF, b = rgb & 0xFF;
    return (int)(((r & 0xF8) << 7) | ((g & 0xF8) << 2) | (b >> 3));
}

// Distinct colours in order of first appearance, up to a limit.  Open
// addressing on the 24-bit colour; a slot holds colour + 1 so that 0 is empty.
class ColourIndex {
public:
    explicit ColourIndex(int limit)
    {
        size_t cap = 64;
        while (cap < (size_t)(limit + 1) * 2)
            cap <<= 1;
        keys_.assign(cap, 0);
        values_.assign(cap, 0);
        mask_ = cap - 1;
    }

    // Index of the colour, or -1.
    int Find(unsigned rgb) const
    {
        uint32_t key = rgb + 1;
        for (size_t i = Hash(rgb);; i = (i + 1) & mask_) {
            if (keys_[i] == key)
                return values_[i];
            if (keys_[i] == 0)
                return -1;
        }
    }

    // Adds the colour when new; true if it was new.
    bool Insert(unsigned rgb)
    {
        uint32_t key = rgb + 1;
        size_t i = Hash(rgb);
        for (; keys_[i]; i = (i + 1) & mask_)
            if (keys_[i] == key)
                return false;
        keys_[i] = key;
        values_[i] = (uint16_t)order_.size();
        order_.push_back(rgb);
        return true;
    }

    size_t Count() const { return order_.size(); }
    unsigned Colour(size_t index) const { return order_[index]; }

private:
    size_t Hash(unsigned rgb) const { return (size_t)((rgb * 0x9E3779B1u) >> 8) & mask_; }

    std::vector<uint32_t> keys_;
    std::vector<uint16_t> values_;
    std::vector<unsigned> order_;
    size_t mask_ = 0;
};

struct Box {
    uint16_t *colors;
    int colorCount;
    int order;          // which channel ordering sorts this box
    uint32_t sum;
    Box *prev;
    Box *next;
};

// Sort keys: the 15-bit colour with its channels permuted so that the
// primary channel is the most significant.  Orders are r,g,b  r,b,g  b,r,g
// g,r,b  g,b,r  b,g,r.
uint16_t sort_key(uint16_t c, int order)
{
    unsigned r = c >> 10, g = (c >> 5) & 31, b = c & 31;
    unsigned first, second, third;
    switch (order) {
    case 0: first = r, second = g, third = b; break;
    case 1: first = r, second = b, third = g; break;
    case 2: first = b, second = r, third = g; break;
    case 3: first = g, second = r, third = b; break;
    case 4: first = g, second = b, third = r; break;
    default: first = b, second = g, third = r; break;
    }
    return (uint16_t)(first << 10 | second << 5 | third);
}

int pick_order(int dr, int dg, int db)
{
    if (dg < dr) {
        if (db < dg)
            return 0;
        return db < dr ? 1 : 2;
    }
    if (db < dg)
        return db < dr ? 3 : 4;
    return 5;
}

// The sum leaves out the box's first colour; the split halves that same
// figure.  Deliberate, kept for compatibility of the reduced maps.
void measure(Box *box, const uint32_t *histogram)
{
    int rmin = 31, rmax = 0, gmin = 31, gmax = 0, bmin = 31, bmax = 0;
    uint32_t sum = 0;
    for (int i = 0; i < box->colorCount; i++) {
        uint16_t c = box->colors[i];
        int r = c >> 10, g = (c >> 5) & 31, b = c & 31;
        rmin = std::min(rmin, r), rmax = std::max(rmax, r);
        gmin = std::min(gmin, g), gmax = std::max(gmax, g);
        bmin = std::min(bmin, b), bmax = std::max(bmax, b);
        if (i > 0)
            sum += histogram[c];
    }
    box->sum = sum;
    box->order = pick_order(rmax - rmin, gmax - gmin, bmax - bmin);
}

class BoxList {
public:
    Box *head = nullptr;
    Box *tail = nullptr;

    void Insert(Box *box)
    {
        box->prev = box->next = nullptr;
        if (!head) {
            head = tail = box;
            return;
        }
        if (box->colorCount >= 2) {
            for (Box *at = head; at; at = at->next) {
                if (at->sum < box->sum || at->colorCount < 2) {
                    box->next = at;
                    box->prev = at->prev;
                    if (at->prev)
                        at->prev->next = box;
                    else
                        head = box;
                    at->prev = box;
                    return;
                }
            }
        }
        box->prev = tail;
        tail->next = box;
        tail = box;
    }

    void PopHead()
    {
        Box *box = head;
        head = box->next;
        if (head)
            head->prev = nullptr;
        else
            tail = nullptr;
        box->next = nullptr;
    }
};

void sort_box(Box *box)
{
    int order = box->order;
    std::sort(box->colors, box->colors + box->colorCount,
              [order](uint16_t a, uint16_t b) { return sort_key(a, order) < sort_key(b, order); });
}

int split_point(const Box *box, const uint32_t *histogram)
{
    uint32_t half = box->sum >> 1;
    uint32_t total = 0;
    int u = 0;
    while (u < box->colorCount && total < half)
        total += histogram[box->colors[u++]];
    if (u == box->colorCount)
        u--;
    if (u == 0)
        u = 1;
    return u;
}

template <typename Visit>
void for_each_pixel(const XwkImage *image, Visit visit)
{
    size_t n = xwk::PixelCount(image);
    if (image->cmapSize <= 0) {
        const unsigned char *p = image->data;
        for (size_t i = 0; i < n; i++, p += 3)
            visit(i, (unsigned)p[0] << 16 | (unsigned)p[1] << 8 | p[2]);
        return;
    }
    for (size_t i = 0; i < n; i++)
        visit(i, xwk::PixelRGB(image, i));
}

XwkImage *exact_map(XwkImage *image, const ColourIndex &index)
{
    XwkImage *result = XwkImageNewCmap(image->width, image->height, (int)index.Count());
    for (size_t i = 0; i < index.Count(); i++) {
        unsigned c = index.Colour(i);
        result->cmap[i * 3] = (unsigned char)(c >> 16);
        result->cmap[i * 3 + 1] = (unsigned char)(c >> 8);
        result->cmap[i * 3 + 2] = (unsigned char)c;
    }
    if (xwk::PixelCount(result)) {
        unsigned last = ~0u;
        int last_index = 0;
        for_each_pixel(image, [&](size_t i, unsigned rgb) {
            if (rgb != last) {
                last = rgb;
                last_index = index.Find(rgb);
            }
            xwk::SetMapIndex(result, i, (unsigned)last_index);
        });
    }
    result->compressed = 1;
    return result;
}

XwkImage *median_cut(XwkImage *image, int limit, uint32_t *histogram)
{
    std::vector<uint16_t> colors;
    for (int s = 0; s < kSlots; s++)
        if (histogram[s])
            colors.push_back((uint16_t)s);
    int max_boxes = std::max(limit, 1);
    std::unique_ptr<Box[]> boxes(new Box[max_boxes]);
    int count = 1;
    BoxList list;
    boxes[0] = Box{colors.data(), (int)colors.size(), 0, 0, nullptr, nullptr};
    measure(&boxes[0], histogram);
    list.Insert(&boxes[0]);

    while (count < limit) {
        Box *old = list.head;
        if (old->colorCount < 2)
            break;
        sort_box(old);
        int u = split_point(old, histogram);
        Box *fresh = &boxes[count];
        *fresh = Box{old->colors + u, old->colorCount - u, 0, 0, nullptr, nullptr};
        old->colorCount = u;
        list.PopHead();
        measure(fresh, histogram);
        list.Insert(fresh);
        measure(old, histogram);
        list.Insert(old);
        count++;
    }

    XwkImage *result = XwkImageNewCmap(image->width, image->height, count);
    for (int b = 0; b < count; b++) {
        const Box &box = boxes[b];
        unsigned long r = 0, g = 0, bl = 0;
        for (int i = 0; i < box.colorCount; i++) {
            uint16_t c = box.colors[i];
            r += (c >> 10) << 3;
            g += ((c >> 5) & 31) << 3;
            bl += (c & 31) << 3;
            histogram[c] = (uint32_t)b;
        }
        result->cmap[b * 3] = (unsigned char)(r / box.colorCount);
        result->cmap[b * 3 + 1] = (unsigned char)(g / box.colorCount);
        result->cmap[b * 3 + 2] = (unsigned char)(bl / box.colorCount);
    }
    if (xwk::PixelCount(result)) {
        if (result->bytesPerPixel == 1) {
            unsigned char *out = result->data;
            for_each_pixel(image, [&](size_t i, unsigned rgb) { out[i] = (unsigned char)histogram[slot_of(rgb)]; });
        } else {
            for_each_pixel(image, [&](size_t i, unsigned rgb) {
                xwk::SetMapIndex(result, i, histogram[slot_of(rgb)]);
            });
        }
    }
    result->compressed = 1;
    return result;
}

}  // namespace

XwkImage *XwkImageCompress(XwkImage *image, int colors)
{
    if (!image)
        return nullptr;
    int limit = std::min(colors, kMaxColors);
    if (limit < 0)
        limit = 0;
    if (image->cmapSize > 0 && image->cmapSize < limit)
        return image;

    std::unique_ptr<uint32_t[]> histogram(new uint32_t[kSlots]());
    XwkImage *result;
    {
        ColourIndex index(limit);
        bool counting = true;
        unsigned last = ~0u;
        uint32_t *hist = histogram.get();
        // The table stops once the limit is passed; the histogram goes on.
        for_each_pixel(image, [&](size_t, unsigned rgb) {
            hist[slot_of(rgb)]++;
            if (!counting || rgb == last)
                return;
            last = rgb;
            if (index.Insert(rgb) && index.Count() > (size_t)limit)
                counting = false;
        });
        if (index.Count() <= (size_t)limit)
            result = exact_map(image, index);
        else
            result = nullptr;
    }
    if (!result)
        result = median_cut(image, limit, histogram.get());
    XwkImageDelete(image);
    return result;
}
