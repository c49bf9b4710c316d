// CRC-32 over polynomial 0x04C11DB7, in its two bit orders.  Both start at 0
// and skip the final inversion, so the values differ from zlib's on purpose.
//
// Each direction works sixteen bytes at a time ("slicing"): table k gives the
// contribution of a byte followed by k zero bytes, so that sixteen lookups
// replace sixteen dependent steps.  Table 0 alone is the classic byte table.
#include <Xwk/Text.h>

#include <array>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

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

inline uint32_t load_le32(const unsigned char *p)
{
    uint32_t v;
    std::memcpy(&v, p, 4);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    v = __builtin_bswap32(v);
#endif
    return v;
}

inline uint32_t load_be32(const unsigned char *p)
{
    return __builtin_bswap32(load_le32(p));
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

uint32_t crc32b_tables(uint32_t crc, const unsigned char *p, size_t length)
{
    for (; length >= 16; p += 16, length -= 16) {
        crc = lsb_word(crc ^ load_le32(p), 12) ^ lsb_word(load_le32(p + 4), 8) ^
              lsb_word(load_le32(p + 8), 4) ^ lsb_word(load_le32(p + 12), 0);
    }
    for (; length != 0; p++, length--)
        crc = (crc >> 8) ^ lsb[0][(crc ^ *p) & 0xff];
    return crc;
}

#if defined(__x86_64__)
// Folding by carry-less multiplication (Intel, "Fast CRC Computation for
// Generic Polynomials Using PCLMULQDQ Instruction", 2009), in the reflected
// domain.  Each constant is x^n mod P for the fold distance n, bit-reflected;
// the last pair is P itself and the Barrett quotient floor(x^64 / P).
#define XWK_CLMUL __attribute__((target("pclmul,sse4.1")))

XWK_CLMUL inline __m128i fold(__m128i acc, __m128i k, __m128i next)
{
    __m128i lo = _mm_clmulepi64_si128(acc, k, 0x00);
    __m128i hi = _mm_clmulepi64_si128(acc, k, 0x11);
    return _mm_xor_si128(_mm_xor_si128(lo, hi), next);
}

XWK_CLMUL inline __m128i load128(const unsigned char *p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
}

// The register after the first length & ~15 bytes, length at least 64.
XWK_CLMUL uint32_t crc32b_clmul(uint32_t crc, const unsigned char *p, size_t length)
{
    const __m128i by512 = _mm_set_epi64x(0x1c6e41596, 0x154442bd4);
    const __m128i by128 = _mm_set_epi64x(0x0ccaa009e, 0x1751997d0);
    const __m128i k5 = _mm_set_epi64x(0, 0x163cd6124);
    const __m128i barrett = _mm_set_epi64x(0x1f7011641, 0x1db710641);
    const __m128i low32 = _mm_setr_epi32(-1, 0, -1, 0);

    __m128i x1 = _mm_xor_si128(load128(p), _mm_cvtsi32_si128(int(crc)));
    __m128i x2 = load128(p + 16);
    __m128i x3 = load128(p + 32);
    __m128i x4 = load128(p + 48);
    p += 64;
    length -= 64;
    for (; length >= 64; p += 64, length -= 64) {
        x1 = fold(x1, by512, load128(p));
        x2 = fold(x2, by512, load128(p + 16));
        x3 = fold(x3, by512, load128(p + 32));
        x4 = fold(x4, by512, load128(p + 48));
    }
    x1 = fold(x1, by128, x2);
    x1 = fold(x1, by128, x3);
    x1 = fold(x1, by128, x4);
    for (; length >= 16; p += 16, length -= 16)
        x1 = fold(x1, by128, load128(p));

    // 128 bits to 64, 64 to 32, then Barrett reduction to the remainder.
    x2 = _mm_clmulepi64_si128(x1, by128, 0x10);
    x1 = _mm_xor_si128(_mm_srli_si128(x1, 8), x2);
    x2 = _mm_srli_si128(x1, 4);
    x1 = _mm_clmulepi64_si128(_mm_and_si128(x1, low32), k5, 0x00);
    x1 = _mm_xor_si128(x1, x2);
    x2 = _mm_clmulepi64_si128(_mm_and_si128(x1, low32), barrett, 0x10);
    x2 = _mm_clmulepi64_si128(_mm_and_si128(x2, low32), barrett, 0x00);
    x1 = _mm_xor_si128(x1, x2);
    return uint32_t(_mm_extract_epi32(x1, 1));
}

bool have_clmul()
{
    static const bool have = __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("sse4.1");
    return have;
}
#endif

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
#if defined(__x86_64__)
    if (length >= 64 && have_clmul()) {
        size_t whole = length & ~size_t(15);
        return crc32b_tables(crc32b_clmul(0, p, whole), p + whole, length - whole);
    }
#endif
    return crc32b_tables(0, p, length);
}
