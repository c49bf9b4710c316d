// MD5 against RFC 1321's test suite and md5sum; CRC-32 in both bit orders
// against a bit-at-a-time computation.
#include "xwktest.h"

#include <dlfcn.h>

namespace {

std::string Hex(const unsigned char digest[16])
{
    char hex[33];
    md5_convert_to_hex(digest, hex);
    return hex;
}

std::string Md5(const std::string &s)
{
    unsigned char digest[16];
    md5_buffer(s.data(), s.size(), digest);
    return Hex(digest);
}

std::vector<unsigned char> Pattern(size_t n, unsigned seed = 1)
{
    std::vector<unsigned char> v(n);
    for (size_t i = 0; i < n; i++) {
        seed = seed * 1103515245u + 12345u;
        v[i] = static_cast<unsigned char>(seed >> 16);
    }
    return v;
}

// CRC-32 a bit at a time: most significant bit first as crc32 takes it, or
// least significant first (the reflected polynomial) as crc32b.
uint32_t SlowCrc(const unsigned char *p, size_t n, bool msb_first)
{
    uint32_t crc = 0;
    for (size_t i = 0; i < n; i++) {
        crc ^= msb_first ? uint32_t(p[i]) << 24 : p[i];
        for (int b = 0; b < 8; b++) {
            if (msb_first)
                crc = (crc & 0x80000000u) ? (crc << 1) ^ 0x04C11DB7u : crc << 1;
            else
                crc = (crc & 1) ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
        }
    }
    return crc;
}

TEST(Md5, Rfc1321Suite)
{
    EXPECT_EQ(Md5(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(Md5("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(Md5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(Md5("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(Md5("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
    EXPECT_EQ(Md5("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    EXPECT_EQ(Md5("1234567890123456789012345678901234567890"
                  "1234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

// Lengths around the padding boundaries (55/56, 63/64, 119/120) checked
// against coreutils md5sum of the same bytes.
TEST(Md5, AgreesWithMd5sumAtPaddingBoundaries)
{
    xwktest::TempDir tmp;
    for (size_t len : {1, 55, 56, 57, 63, 64, 65, 119, 120, 128, 4097}) {
        std::vector<unsigned char> data = Pattern(len, unsigned(len));
        std::string path = tmp.Write("data", std::string(data.begin(), data.end()));
        FILE *p = popen(("md5sum " + path).c_str(), "r");
        ASSERT_TRUE(p);
        char line[128] = "";
        ASSERT_TRUE(std::fgets(line, sizeof line, p));
        pclose(p);
        unsigned char digest[16];
        md5_buffer(reinterpret_cast<const char *>(data.data()), len, digest);
        EXPECT_EQ(Hex(digest), std::string(line, 32)) << "length " << len;
    }
}

TEST(Md5, PiecesStreamAndBlocksGiveTheSameDigest)
{
    std::vector<unsigned char> data = Pattern(10000);
    unsigned char whole[16];
    md5_buffer(reinterpret_cast<const char *>(data.data()), data.size(), whole);

    md5_ctx ctx;
    md5_init_ctx(&ctx);
    size_t pos = 0;
    for (size_t step = 1; pos < data.size(); step = step * 3 % 97 + 1) {
        size_t n = std::min(step, data.size() - pos);
        md5_process_bytes(data.data() + pos, n, &ctx);
        pos += n;
    }
    unsigned char pieces[16];
    EXPECT_EQ(md5_finish_ctx(&ctx, pieces), pieces);
    EXPECT_EQ(Hex(pieces), Hex(whole));

    // Whole blocks first, the tail through the byte path.
    md5_init_ctx(&ctx);
    md5_process_block(data.data(), 9984, &ctx);
    md5_process_bytes(data.data() + 9984, 16, &ctx);
    unsigned char blocks[16];
    md5_finish_ctx(&ctx, blocks);
    EXPECT_EQ(Hex(blocks), Hex(whole));

    FILE *f = tmpfile();
    ASSERT_TRUE(f);
    std::fwrite(data.data(), 1, data.size(), f);
    std::rewind(f);
    unsigned char streamed[16];
    EXPECT_EQ(md5_stream(f, streamed), 0);
    std::fclose(f);
    EXPECT_EQ(Hex(streamed), Hex(whole));
}

TEST(Md5, ReadCtxGivesTheStateWithoutPadding)
{
    md5_ctx ctx;
    md5_init_ctx(&ctx);
    unsigned char state[16];
    md5_read_ctx(&ctx, state);
    EXPECT_EQ(Hex(state), "0123456789abcdeffedcba9876543210");
    md5_process_bytes("abc", 3, &ctx);
    md5_read_ctx(&ctx, state);
    EXPECT_EQ(Hex(state), "0123456789abcdeffedcba9876543210");
}

TEST(Md5, HexConversionBothWays)
{
    unsigned char digest[16];
    ASSERT_EQ(md5_convert_to_digest("900150983CD24FB0d6963f7d28e17f72", digest), 0);
    EXPECT_EQ(Hex(digest), "900150983cd24fb0d6963f7d28e17f72");

    unsigned char untouched[16];
    std::memset(untouched, 0x5a, 16);
    EXPECT_EQ(md5_convert_to_digest("900150983cd24fb0d6963f7d28e17f7", untouched), -1);
    EXPECT_EQ(md5_convert_to_digest("g00150983cd24fb0d6963f7d28e17f72", untouched), -1);
    EXPECT_EQ(md5_convert_to_digest("", untouched), -1);
    EXPECT_EQ(untouched[0], 0x5a);
}

TEST(Crc32, KnownCheckValues)
{
    // CRC-32/POSIX is this CRC with a final inversion.
    EXPECT_EQ(crc32("123456789", 9), ~0x765E7680u);
    EXPECT_EQ(crc32b("123456789", 9), 0x2DFD2D88u);
    EXPECT_EQ(crc32("", 0), 0u);
    EXPECT_EQ(crc32b("", 0), 0u);
    // Start value 0 and no inversion: zero bytes leave the register at 0.
    EXPECT_EQ(crc32("\0\0\0\0\0", 5), 0u);
    EXPECT_EQ(crc32b("\0\0\0\0\0", 5), 0u);
}

// Every length up to 300 and two unaligned starts; then long buffers, which
// take the wide paths, at every start offset within 16 bytes.
TEST(Crc32, AgreesWithABitwiseComputation)
{
    std::vector<unsigned char> data = Pattern(70000, 11);
    std::vector<std::pair<size_t, size_t>> spans = {{3, 101}, {5, 99}};  // start, length
    for (size_t len = 0; len <= 300; len++)
        spans.emplace_back(0, len);
    for (size_t off = 0; off < 16; off++)
        for (size_t len : {1000 + off, 4096 + 3 * off, 65536 + off})
            spans.emplace_back(off, len);
    for (auto [off, len] : spans) {
        const unsigned char *p = data.data() + off;
        ASSERT_EQ(crc32(p, len), SlowCrc(p, len, true)) << off << " " << len;
        ASSERT_EQ(crc32b(p, len), SlowCrc(p, len, false)) << off << " " << len;
    }
}

} // namespace

// zlib has a crc32 of its own that libpng and zlib itself call through the
// global scope: the library must not offer a symbol of that name.
TEST(Crc32, LeavesZlibsSymbolAlone)
{
    void *found = dlsym(RTLD_DEFAULT, "crc32");
    if (found) {
        Dl_info info = {};
        ASSERT_TRUE(dladdr(found, &info));
        EXPECT_EQ(std::strstr(info.dli_fname, "libXwk"), nullptr) << info.dli_fname;
    }
    EXPECT_EQ(crc32("123456789", 9), ~0x765E7680u);
}
