// Image records and colour reduction: the exact path, the median cut and its
// rules, with no X server.
#include "xwktest.h"

#include <random>

namespace {

struct RGB {
    unsigned char r, g, b;
    bool operator==(const RGB &) const = default;
};
std::ostream &operator<<(std::ostream &os, const RGB &c)
{
    return os << int(c.r) << "," << int(c.g) << "," << int(c.b);
}

XwkImage *MakeRGB(int w, int h, const std::vector<RGB> &pixels)
{
    XwkImage *image = XwkImageNew(w, h);
    for (size_t i = 0; i < pixels.size(); i++) {
        image->data[i * 3] = pixels[i].r;
        image->data[i * 3 + 1] = pixels[i].g;
        image->data[i * 3 + 2] = pixels[i].b;
    }
    return image;
}

RGB MapEntry(const XwkImage *image, int index)
{
    return {image->cmap[index * 3], image->cmap[index * 3 + 1], image->cmap[index * 3 + 2]};
}

unsigned IndexAt(const XwkImage *image, size_t i)
{
    if (image->bytesPerPixel == 2) {
        unsigned short v;
        memcpy(&v, image->data + i * 2, 2);
        return v;
    }
    return image->data[i];
}

// A second, literal median cut: qsort with the six comparators, a linked
// list of boxes kept by falling sum.  The library must match it exactly.
namespace reference {

uint32_t histogram[32768];
int chosen;

int Ch(uint16_t c, char which)
{
    return which == 'r' ? c >> 10 : which == 'g' ? (c >> 5) & 31 : c & 31;
}

const char *kOrders[] = {"rgb", "rbg", "brg", "grb", "gbr", "bgr"};

int Compare(const void *pa, const void *pb)
{
    uint16_t a = *(const uint16_t *)pa, b = *(const uint16_t *)pb;
    for (int k = 0; k < 3; k++) {
        char ch = kOrders[chosen][k];
        if (Ch(a, ch) != Ch(b, ch))
            return Ch(a, ch) < Ch(b, ch) ? -1 : 1;
    }
    return 1;
}

struct Box {
    uint16_t *colors;
    int count;
    int order;
    uint32_t sum;
    Box *next;
};

void Measure(Box *b)
{
    int mn[3] = {31, 31, 31}, mx[3] = {0, 0, 0};
    b->sum = 0;
    for (int i = 0; i < b->count; i++) {
        int v[3] = {Ch(b->colors[i], 'r'), Ch(b->colors[i], 'g'), Ch(b->colors[i], 'b')};
        for (int k = 0; k < 3; k++) {
            if (v[k] < mn[k]) mn[k] = v[k];
            if (v[k] > mx[k]) mx[k] = v[k];
        }
        if (i)
            b->sum += histogram[b->colors[i]];
    }
    int dr = mx[0] - mn[0], dg = mx[1] - mn[1], db = mx[2] - mn[2];
    if (dg < dr)
        b->order = db < dg ? 0 : db < dr ? 1 : 2;
    else
        b->order = db < dg ? (db < dr ? 3 : 4) : 5;
}

void Insert(Box **head, Box *b)
{
    Box **link = head;
    if (b->count >= 2)
        while (*link && !((*link)->sum < b->sum || (*link)->count < 2))
            link = &(*link)->next;
    else
        while (*link)
            link = &(*link)->next;
    b->next = *link;
    *link = b;
}

// Returns the map; fills indexes of each pixel.
std::vector<RGB> Cut(const std::vector<RGB> &pixels, int colors, std::vector<unsigned> *indexes)
{
    memset(histogram, 0, sizeof histogram);
    auto slot = [](RGB p) { return ((p.r & 0xF8) << 7) | ((p.g & 0xF8) << 2) | (p.b >> 3); };
    for (RGB p : pixels)
        histogram[slot(p)]++;
    std::vector<uint16_t> list;
    for (int s = 0; s < 32768; s++)
        if (histogram[s])
            list.push_back((uint16_t)s);
    std::vector<Box> boxes(colors < 1 ? 1 : colors);
    boxes[0] = {list.data(), (int)list.size(), 0, 0, nullptr};
    Measure(&boxes[0]);
    Box *head = &boxes[0];
    int n = 1;
    while (n < colors && head->count >= 2) {
        Box *old = head;
        chosen = old->order;
        qsort(old->colors, old->count, 2, Compare);
        uint32_t half = old->sum / 2, total = 0;
        int u = 0;
        while (u < old->count && total < half)
            total += histogram[old->colors[u++]];
        if (u == old->count) u--;
        if (u == 0) u = 1;
        Box *fresh = &boxes[n++];
        *fresh = {old->colors + u, old->count - u, 0, 0, nullptr};
        old->count = u;
        head = old->next;
        Measure(fresh);
        Insert(&head, fresh);
        Measure(old);
        Insert(&head, old);
    }
    std::vector<RGB> map;
    for (int b = 0; b < n; b++) {
        unsigned long s[3] = {0, 0, 0};
        for (int i = 0; i < boxes[b].count; i++) {
            uint16_t c = boxes[b].colors[i];
            s[0] += Ch(c, 'r') << 3, s[1] += Ch(c, 'g') << 3, s[2] += Ch(c, 'b') << 3;
            histogram[c] = b;
        }
        map.push_back({(unsigned char)(s[0] / boxes[b].count),
                       (unsigned char)(s[1] / boxes[b].count),
                       (unsigned char)(s[2] / boxes[b].count)});
    }
    indexes->clear();
    for (RGB p : pixels)
        indexes->push_back(histogram[slot(p)]);
    return map;
}

}  // namespace reference

}  // namespace

TEST(ImageRecord, KindFollowsMapSize)
{
    struct {
        XwkImage *image;
        int map_size, bytes_per_pixel;
    } cases[] = {
        {XwkImageNew(4, 3), 0, 3}, {XwkImageNewCmap(4, 3, 256), 256, 1},
        {XwkImageNewCmap(4, 3, 257), 257, 2}};
    for (auto &c : cases) {
        EXPECT_EQ(c.image->cmapSize, c.map_size);
        EXPECT_EQ(c.image->cmap != nullptr, c.map_size > 0);
        EXPECT_EQ(c.image->bytesPerPixel, c.bytes_per_pixel);
        EXPECT_NE(c.image->data, nullptr);
        XwkImageDelete(c.image);
    }

    XwkImage *empty = XwkImageNew(0, 7);
    EXPECT_EQ(empty->data, nullptr);
    EXPECT_EQ(empty->height, 7);
    XwkImageDelete(empty);
    XwkImageDelete(nullptr);
}

TEST(ImageRecord, ToRGBExpandsAMappedImageAndLeavesAnRGBOneAlone)
{
    XwkImage *rgb = XwkImageNew(2, 2);
    EXPECT_EQ(XwkImageToRGB(rgb), rgb);
    XwkImageDelete(rgb);

    XwkImage *mapped = XwkImageNewCmap(2, 1, 2);
    mapped->cmap[3] = 10, mapped->cmap[4] = 20, mapped->cmap[5] = 30;
    mapped->data[0] = 1;
    mapped->data[1] = 0;
    mapped->compressed = 1;
    XwkImage *expanded = XwkImageToRGB(mapped);
    ASSERT_NE(expanded, mapped);
    EXPECT_EQ(mapped->compressed, 0);
    EXPECT_EQ(expanded->bytesPerPixel, 3);
    unsigned char want[] = {10, 20, 30, 0, 0, 0};
    EXPECT_EQ(memcmp(expanded->data, want, 6), 0);
    XwkImageDelete(expanded);
    XwkImageDelete(mapped);
}

// Maps and indexes worked out by hand.
TEST(Compress, SmallImagesGiveTheMapsWorkedOutByHand)
{
    std::vector<RGB> blues;  // four blues with counts 4, 1, 1, 4
    for (int b : {0, 0, 0, 0, 80, 160, 240, 240, 240, 240})
        blues.push_back({0, 0, (unsigned char)b});
    const std::vector<RGB> three = {{0, 0, 0}, {255, 255, 255}, {8, 16, 24}};
    // Plain mean of the 5-bit slots shifted up: (0 + 248 + 8) / 3 etc.
    const RGB mean = {(0 + 248 + 8) / 3, (0 + 248 + 16) / 3, (0 + 248 + 24) / 3};
    struct Case {
        const char *name;
        std::vector<RGB> pixels;
        int limit;
        std::vector<RGB> map;
        std::vector<unsigned> indexes;
    } cases[] = {
        {"four colours, a limit of four: all kept, in order of first appearance",
         {{9, 9, 9}, {1, 2, 3}, {9, 9, 9}, {200, 100, 50}, {1, 2, 3}, {7, 7, 7}}, 4,
         {{9, 9, 9}, {1, 2, 3}, {200, 100, 50}, {7, 7, 7}}, {0, 1, 0, 2, 1, 3}},
        {"no colours asked: one entry", three, 0, {mean}, {0, 0, 0}},
        {"one colour asked: one entry", three, 1, {mean}, {0, 0, 0}},
        // The first box's sum leaves out the first colour: 6, so half is 3 and
        // the split falls after the first colour.  Counting every colour (10,
        // half 5) would split after the second.
        {"the box sum leaves out its first colour", blues, 2,
         {{0, 0, 0}, {0, 0, (80 + 160 + 240) / 3}}, {0, 0, 0, 0, 1, 1, 1, 1, 1, 1}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        XwkImage *out = XwkImageCompress(MakeRGB((int)c.pixels.size(), 1, c.pixels), c.limit);
        ASSERT_NE(out, nullptr);
        EXPECT_TRUE(out->compressed);
        EXPECT_EQ(out->bytesPerPixel, 1);
        ASSERT_EQ(out->cmapSize, (int)c.map.size());
        for (int i = 0; i < out->cmapSize; i++)
            EXPECT_EQ(MapEntry(out, i), c.map[i]) << i;
        for (size_t i = 0; i < c.indexes.size(); i++)
            EXPECT_EQ(IndexAt(out, i), c.indexes[i]) << i;
        XwkImageDelete(out);
    }
}

TEST(Compress, AMapBelowTheLimitIsUntouchedAndAtTheLimitRecompressed)
{
    XwkImage *small = XwkImageNewCmap(2, 2, 5);
    small->compressed = 0;
    EXPECT_EQ(XwkImageCompress(small, 6), small);
    EXPECT_EQ(small->compressed, 0);
    XwkImageDelete(small);

    XwkImage *mapped = XwkImageNewCmap(2, 1, 3);
    unsigned char cmap[] = {1, 1, 1, 2, 2, 2, 3, 3, 3};
    memcpy(mapped->cmap, cmap, 9);
    mapped->data[0] = 2;
    mapped->data[1] = 2;
    XwkImage *out = XwkImageCompress(mapped, 3);
    ASSERT_NE(out, mapped);
    ASSERT_EQ(out->cmapSize, 1);
    EXPECT_EQ(MapEntry(out, 0).r, 3);
    XwkImageDelete(out);
}

TEST(Compress, MoreThan256ColoursGiveTwoByteIndexes)
{
    std::vector<RGB> px;
    for (int i = 0; i < 300; i++)
        px.push_back({(unsigned char)i, (unsigned char)(i >> 8), 0});
    XwkImage *out = XwkImageCompress(MakeRGB(300, 1, px), 1000);
    ASSERT_EQ(out->cmapSize, 300);
    EXPECT_EQ(out->bytesPerPixel, 2);
    EXPECT_EQ(IndexAt(out, 299), 299u);
    EXPECT_EQ(MapEntry(out, 299), (RGB{299 & 0xFF, 1, 0}));
    XwkImageDelete(out);
}

TEST(Compress, ZeroSizedImagesTakeTheExactPath)
{
    XwkImage *out = XwkImageCompress(XwkImageNew(0, 0), 16);
    ASSERT_NE(out, nullptr);
    EXPECT_TRUE(out->compressed);
    EXPECT_EQ(out->data, nullptr);
    XwkImageDelete(out);
    out = XwkImageCompress(XwkImageNew(5, 0), 0);
    ASSERT_NE(out, nullptr);
    XwkImageDelete(out);
}

TEST(Compress, BoxesRunOutBeforeTheLimit)
{
    // 40 colours that fall into 3 histogram slots: at most 3 boxes.
    std::vector<RGB> px;
    for (int i = 0; i < 40; i++) {
        int base = (i % 3) * 64;
        px.push_back({(unsigned char)(base + (i & 7)), 0, 0});
    }
    XwkImage *out = XwkImageCompress(MakeRGB(40, 1, px), 10);
    EXPECT_EQ(out->cmapSize, 3);
    XwkImageDelete(out);
}

TEST(Compress, LimitsAbove32768AreCut)
{
    std::vector<RGB> px;
    for (int i = 0; i < 40000; i++)
        px.push_back({(unsigned char)i, (unsigned char)(i >> 8), (unsigned char)(i * 37)});
    XwkImage *out = XwkImageCompress(MakeRGB(200, 200, px), 100000);
    EXPECT_LE(out->cmapSize, 32768);
    EXPECT_GT(out->cmapSize, 256);
    EXPECT_EQ(out->bytesPerPixel, 2);
    for (size_t i = 0; i < px.size(); i++)
        ASSERT_LT(IndexAt(out, i), (unsigned)out->cmapSize);
    XwkImageDelete(out);
}

TEST(Compress, MedianCutMatchesTheLiteralAlgorithm)
{
    std::mt19937 rng(1234);
    for (int round = 0; round < 12; round++) {
        int w = 37 + round * 5, h = 23 + round * 3;
        int limit = round < 4 ? 2 + round : 7 + round * 23;
        std::vector<RGB> px(w * h);
        for (int y = 0; y < h; y++) {
            for (int x = 0; x < w; x++) {
                int noise = (int)(rng() % 40);
                px[y * w + x] = {(unsigned char)(x * 255 / w),
                                 (unsigned char)((y * 200 / h + noise) & 0xFF),
                                 (unsigned char)(rng() % (round + 2) * 37)};
            }
        }
        std::vector<unsigned> want_indexes;
        std::vector<RGB> want_map = reference::Cut(px, limit, &want_indexes);
        XwkImage *out = XwkImageCompress(MakeRGB(w, h, px), limit);
        ASSERT_EQ(out->cmapSize, (int)want_map.size()) << "round " << round;
        for (int i = 0; i < out->cmapSize; i++) {
            ASSERT_EQ(MapEntry(out, i), want_map[i]) << round << " entry " << i;
        }
        for (size_t i = 0; i < px.size(); i++)
            ASSERT_EQ(IndexAt(out, i), want_indexes[i]) << round << " pixel " << i;
        XwkImageDelete(out);
    }
}
