// MD5 message digest after RFC 1321.
#include <Xwk/Text.h>

#include <cstdio>
#include <cstring>

namespace {

inline uint32_t rol(uint32_t x, int s)
{
    return (x << s) | (x >> (32 - s));
}

inline uint32_t load_le32(const unsigned char *p)
{
    uint32_t v;
    std::memcpy(&v, p, 4);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    v = __builtin_bswap32(v);
#endif
    return v;
}

inline void store_le32(unsigned char *p, uint32_t v)
{
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    v = __builtin_bswap32(v);
#endif
    std::memcpy(p, &v, 4);
}

// The four auxiliary functions in forms with fewer operations than the
// textbook ones; the results are the same bit for bit.
inline uint32_t F(uint32_t x, uint32_t y, uint32_t z) { return z ^ (x & (y ^ z)); }
inline uint32_t G(uint32_t x, uint32_t y, uint32_t z) { return y ^ (z & (x ^ y)); }
inline uint32_t H(uint32_t x, uint32_t y, uint32_t z) { return x ^ y ^ z; }
inline uint32_t I(uint32_t x, uint32_t y, uint32_t z) { return y ^ (x | ~z); }

template <uint32_t (*f)(uint32_t, uint32_t, uint32_t)>
inline void step(uint32_t &a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t, int s)
{
    // a, x and t are ready before b: add them first to shorten the chain.
    uint32_t sum = a + x + t;
    a = rol(sum + f(b, c, d), s) + b;
}

// G as the sum of its two disjoint terms; the one without b goes first.
template <>
inline void step<G>(uint32_t &a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, uint32_t t, int s)
{
    uint32_t sum = a + x + t + (c & ~d);
    a = rol(sum + (b & d), s) + b;
}

void transform(uint32_t state[4], const unsigned char *block)
{
    uint32_t X[16];
    for (int i = 0; i < 16; i++)
        X[i] = load_le32(block + 4 * i);
    uint32_t a = state[0], b = state[1], c = state[2], d = state[3];

    step<F>(a, b, c, d, X[0], 0xd76aa478, 7);
    step<F>(d, a, b, c, X[1], 0xe8c7b756, 12);
    step<F>(c, d, a, b, X[2], 0x242070db, 17);
    step<F>(b, c, d, a, X[3], 0xc1bdceee, 22);
    step<F>(a, b, c, d, X[4], 0xf57c0faf, 7);
    step<F>(d, a, b, c, X[5], 0x4787c62a, 12);
    step<F>(c, d, a, b, X[6], 0xa8304613, 17);
    step<F>(b, c, d, a, X[7], 0xfd469501, 22);
    step<F>(a, b, c, d, X[8], 0x698098d8, 7);
    step<F>(d, a, b, c, X[9], 0x8b44f7af, 12);
    step<F>(c, d, a, b, X[10], 0xffff5bb1, 17);
    step<F>(b, c, d, a, X[11], 0x895cd7be, 22);
    step<F>(a, b, c, d, X[12], 0x6b901122, 7);
    step<F>(d, a, b, c, X[13], 0xfd987193, 12);
    step<F>(c, d, a, b, X[14], 0xa679438e, 17);
    step<F>(b, c, d, a, X[15], 0x49b40821, 22);

    step<G>(a, b, c, d, X[1], 0xf61e2562, 5);
    step<G>(d, a, b, c, X[6], 0xc040b340, 9);
    step<G>(c, d, a, b, X[11], 0x265e5a51, 14);
    step<G>(b, c, d, a, X[0], 0xe9b6c7aa, 20);
    step<G>(a, b, c, d, X[5], 0xd62f105d, 5);
    step<G>(d, a, b, c, X[10], 0x02441453, 9);
    step<G>(c, d, a, b, X[15], 0xd8a1e681, 14);
    step<G>(b, c, d, a, X[4], 0xe7d3fbc8, 20);
    step<G>(a, b, c, d, X[9], 0x21e1cde6, 5);
    step<G>(d, a, b, c, X[14], 0xc33707d6, 9);
    step<G>(c, d, a, b, X[3], 0xf4d50d87, 14);
    step<G>(b, c, d, a, X[8], 0x455a14ed, 20);
    step<G>(a, b, c, d, X[13], 0xa9e3e905, 5);
    step<G>(d, a, b, c, X[2], 0xfcefa3f8, 9);
    step<G>(c, d, a, b, X[7], 0x676f02d9, 14);
    step<G>(b, c, d, a, X[12], 0x8d2a4c8a, 20);

    step<H>(a, b, c, d, X[5], 0xfffa3942, 4);
    step<H>(d, a, b, c, X[8], 0x8771f681, 11);
    step<H>(c, d, a, b, X[11], 0x6d9d6122, 16);
    step<H>(b, c, d, a, X[14], 0xfde5380c, 23);
    step<H>(a, b, c, d, X[1], 0xa4beea44, 4);
    step<H>(d, a, b, c, X[4], 0x4bdecfa9, 11);
    step<H>(c, d, a, b, X[7], 0xf6bb4b60, 16);
    step<H>(b, c, d, a, X[10], 0xbebfbc70, 23);
    step<H>(a, b, c, d, X[13], 0x289b7ec6, 4);
    step<H>(d, a, b, c, X[0], 0xeaa127fa, 11);
    step<H>(c, d, a, b, X[3], 0xd4ef3085, 16);
    step<H>(b, c, d, a, X[6], 0x04881d05, 23);
    step<H>(a, b, c, d, X[9], 0xd9d4d039, 4);
    step<H>(d, a, b, c, X[12], 0xe6db99e5, 11);
    step<H>(c, d, a, b, X[15], 0x1fa27cf8, 16);
    step<H>(b, c, d, a, X[2], 0xc4ac5665, 23);

    step<I>(a, b, c, d, X[0], 0xf4292244, 6);
    step<I>(d, a, b, c, X[7], 0x432aff97, 10);
    step<I>(c, d, a, b, X[14], 0xab9423a7, 15);
    step<I>(b, c, d, a, X[5], 0xfc93a039, 21);
    step<I>(a, b, c, d, X[12], 0x655b59c3, 6);
    step<I>(d, a, b, c, X[3], 0x8f0ccc92, 10);
    step<I>(c, d, a, b, X[10], 0xffeff47d, 15);
    step<I>(b, c, d, a, X[1], 0x85845dd1, 21);
    step<I>(a, b, c, d, X[8], 0x6fa87e4f, 6);
    step<I>(d, a, b, c, X[15], 0xfe2ce6e0, 10);
    step<I>(c, d, a, b, X[6], 0xa3014314, 15);
    step<I>(b, c, d, a, X[13], 0x4e0811a1, 21);
    step<I>(a, b, c, d, X[4], 0xf7537e82, 6);
    step<I>(d, a, b, c, X[11], 0xbd3af235, 10);
    step<I>(c, d, a, b, X[2], 0x2ad7d2bb, 15);
    step<I>(b, c, d, a, X[9], 0xeb86d391, 21);

    state[0] += a;
    state[1] += b;
    state[2] += c;
    state[3] += d;
}

void add_total(md5_ctx *ctx, size_t len)
{
    uint64_t total = (uint64_t(ctx->total[1]) << 32 | ctx->total[0]) + len;
    ctx->total[0] = uint32_t(total);
    ctx->total[1] = uint32_t(total >> 32);
}

inline unsigned char *bytes(md5_ctx *ctx)
{
    return reinterpret_cast<unsigned char *>(ctx->buffer);
}

int hex_value(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace

void md5_init_ctx(struct md5_ctx *ctx)
{
    ctx->A = 0x67452301;
    ctx->B = 0xefcdab89;
    ctx->C = 0x98badcfe;
    ctx->D = 0x10325476;
    ctx->total[0] = ctx->total[1] = 0;
    ctx->buflen = 0;
}

void md5_process_block(const void *buffer, size_t len, struct md5_ctx *ctx)
{
    const unsigned char *p = static_cast<const unsigned char *>(buffer);
    size_t blocks = len / 64;
    uint32_t state[4] = {ctx->A, ctx->B, ctx->C, ctx->D};
    for (size_t i = 0; i < blocks; i++)
        transform(state, p + 64 * i);
    ctx->A = state[0];
    ctx->B = state[1];
    ctx->C = state[2];
    ctx->D = state[3];
    add_total(ctx, blocks * 64);
}

void md5_process_bytes(const void *buffer, size_t len, struct md5_ctx *ctx)
{
    const unsigned char *p = static_cast<const unsigned char *>(buffer);
    if (ctx->buflen != 0) {
        size_t take = 64 - ctx->buflen;
        if (take > len)
            take = len;
        std::memcpy(bytes(ctx) + ctx->buflen, p, take);
        ctx->buflen += uint32_t(take);
        p += take;
        len -= take;
        if (ctx->buflen < 64)
            return;
        md5_process_block(bytes(ctx), 64, ctx);
        ctx->buflen = 0;
    }
    size_t whole = len & ~size_t(63);
    if (whole != 0) {
        md5_process_block(p, whole, ctx);
        p += whole;
        len -= whole;
    }
    if (len != 0) {
        std::memcpy(bytes(ctx), p, len);
        ctx->buflen = uint32_t(len);
    }
}

void *md5_read_ctx(const struct md5_ctx *ctx, void *resbuf)
{
    unsigned char *out = static_cast<unsigned char *>(resbuf);
    store_le32(out, ctx->A);
    store_le32(out + 4, ctx->B);
    store_le32(out + 8, ctx->C);
    store_le32(out + 12, ctx->D);
    return resbuf;
}

void *md5_finish_ctx(struct md5_ctx *ctx, void *resbuf)
{
    uint32_t used = ctx->buflen;
    add_total(ctx, used);
    uint64_t bits = (uint64_t(ctx->total[1]) << 32 | ctx->total[0]) << 3;
    size_t size = used < 56 ? 64 : 128;
    unsigned char *buf = bytes(ctx);
    buf[used] = 0x80;
    std::memset(buf + used + 1, 0, size - 8 - used - 1);
    store_le32(buf + size - 8, uint32_t(bits));
    store_le32(buf + size - 4, uint32_t(bits >> 32));
    uint32_t state[4] = {ctx->A, ctx->B, ctx->C, ctx->D};
    transform(state, buf);
    if (size == 128)
        transform(state, buf + 64);
    ctx->A = state[0];
    ctx->B = state[1];
    ctx->C = state[2];
    ctx->D = state[3];
    ctx->buflen = 0;
    return md5_read_ctx(ctx, resbuf);
}

int md5_stream(FILE *stream, void *resblock)
{
    md5_ctx ctx;
    md5_init_ctx(&ctx);
    static constexpr size_t chunk = 32768;
    unsigned char buf[chunk];
    for (;;) {
        size_t n = std::fread(buf, 1, chunk, stream);
        if (n != 0)
            md5_process_bytes(buf, n, &ctx);
        if (n < chunk) {
            if (std::ferror(stream))
                return 1;
            break;
        }
    }
    md5_finish_ctx(&ctx, resblock);
    return 0;
}

void *md5_buffer(const char *buffer, size_t len, void *resblock)
{
    md5_ctx ctx;
    md5_init_ctx(&ctx);
    md5_process_bytes(buffer, len, &ctx);
    return md5_finish_ctx(&ctx, resblock);
}

char *md5_convert_to_hex(const void *digest, char *hex)
{
    static const char digits[] = "0123456789abcdef";
    const unsigned char *d = static_cast<const unsigned char *>(digest);
    for (int i = 0; i < 16; i++) {
        hex[2 * i] = digits[d[i] >> 4];
        hex[2 * i + 1] = digits[d[i] & 15];
    }
    hex[32] = '\0';
    return hex;
}

int md5_convert_to_digest(const char *hex, void *digest)
{
    unsigned char out[16];
    for (int i = 0; i < 16; i++) {
        int hi = hex_value(hex[2 * i]);
        if (hi < 0)
            return -1;
        int lo = hex_value(hex[2 * i + 1]);
        if (lo < 0)
            return -1;
        out[i] = static_cast<unsigned char>(hi << 4 | lo);
    }
    std::memcpy(digest, out, 16);
    return 0;
}
