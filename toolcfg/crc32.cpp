// CRC-32 over polynomial 0x04C11DB7, in its two bit orders.  Both start at 0
// and skip the final inversion, so the values differ from zlib's on purpose.
//
// Each direction works sixteen bytes at a time ("slicing"): table k gives the
// contribution of a byte followed by k zero bytes, so that sixteen lookups
// replace sixteen dependent steps.  Table 0 alone is the classic byte table.
#include <Xwk/Text.h>

#include <array>
#include <cstring>

namespace {

constexpr int slices = 16;
using Tables = std::array<std::array<uint32_t, 256>, slices>;

constexpr Tables make_msb_tables()
{
    Tables t{};
    for (uint32_t i = 0; i < 256; i++) {
        uint32_t c = i << 24;
        for (int bit = 0; bit < 8; bit++)
            c = (c & 0x80000000u) ? (c << 1) ^ 0x04C11DB7u : c << 1;
        t[0][i] = c;
    }
    for (int k = 1; k < slices; k++)
        for (uint32_t i = 0; i < 256; i++)
            t[k][i] = (t[k - 1][i] << 8) ^ t[0][t[k - 1][i] >> 24];
    return t;
}

constexpr Tables make_lsb_tables()
{
    Tables t{};
    for (uint32_t i = 0; i < 256; i++) {
        uint32_t c = i;
        for (int bit = 0; bit < 8; bit++)
            c = (c & 1) ? (c >> 1) ^ 0xEDB88320u : c >> 1;
        t[0][i] = c;
    }
    for (int k = 1; k < slices; k++)
        for (uint32_t i = 0; i < 256; i++)
            t[k][i] = (t[k - 1][i] >> 8) ^ t[0][t[k - 1][i] & 0xff];
    return t;
}

constexpr Tables msb = make_msb_tables();
constexpr Tables lsb = make_lsb_tables();

inline uint32_t load_be32(const unsigned char *p)
{
    return uint32_t(p[0]) << 24 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 8 | p[3];
}

inline uint32_t load_le32(const unsigned char *p)
{
    return uint32_t(p[3]) << 24 | uint32_t(p[2]) << 16 | uint32_t(p[1]) << 8 | p[0];
}

// The four bytes of a word as they stand in memory, first byte first, each
// looked up in the table for 'skip' plus its distance from the block's end.
inline uint32_t msb_word(uint32_t w, int skip)
{
    return msb[skip + 3][w >> 24] ^ msb[skip + 2][(w >> 16) & 0xff] ^
           msb[skip + 1][(w >> 8) & 0xff] ^ msb[skip][w & 0xff];
}

inline uint32_t lsb_word(uint32_t w, int skip)
{
    return lsb[skip + 3][w & 0xff] ^ lsb[skip + 2][(w >> 8) & 0xff] ^
           lsb[skip + 1][(w >> 16) & 0xff] ^ lsb[skip][w >> 24];
}

} // namespace

uint32_t crc32(const void *buffer, size_t length)
{
    const unsigned char *p = static_cast<const unsigned char *>(buffer);
    uint32_t crc = 0;
    for (; length >= 16; p += 16, length -= 16) {
        crc = msb_word(crc ^ load_be32(p), 12) ^ msb_word(load_be32(p + 4), 8) ^
              msb_word(load_be32(p + 8), 4) ^ msb_word(load_be32(p + 12), 0);
    }
    for (; length != 0; p++, length--)
        crc = (crc << 8) ^ msb[0][(crc >> 24) ^ *p];
    return crc;
}

uint32_t crc32b(const void *buffer, size_t length)
{
    const unsigned char *p = static_cast<const unsigned char *>(buffer);
    uint32_t crc = 0;
    for (; length >= 16; p += 16, length -= 16) {
        crc = lsb_word(crc ^ load_le32(p), 12) ^ lsb_word(load_le32(p + 4), 8) ^
              lsb_word(load_le32(p + 8), 4) ^ lsb_word(load_le32(p + 12), 0);
    }
    for (; length != 0; p++, length--)
        crc = (crc >> 8) ^ lsb[0][(crc ^ *p) & 0xff];
    return crc;
}
