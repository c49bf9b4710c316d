// Text filters: stpcvt and the small string utilities.
#include <Xwk/Strings.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Cvt(const char *text, int mode)
{
    std::string s(text);
    char *r = stpcvt(s.data(), mode);
    EXPECT_EQ(r, s.data());
    return std::string(r);
}

TEST(Stpcvt, WhiteSpaceBits)
{
    EXPECT_EQ(Cvt(" a b ", 0x01), "ab");
    EXPECT_EQ(Cvt(" a b ", 0x06), "a b");
    EXPECT_EQ(Cvt("a   b", 0x08), "a b");
    EXPECT_EQ(Cvt(" \t a \n b \t", 0x02), "a \n b \t");
    EXPECT_EQ(Cvt(" \t a \n b \t", 0x04), " \t a \n b");
    EXPECT_EQ(Cvt("  a \t\n b  ", 0x08), " a b ");
    EXPECT_EQ(Cvt("  a \t\n b  ", 0x0E), "a b");
    // Reduction is ignored when all white space goes.
    EXPECT_EQ(Cvt("a   b c", 0x09), "abc");
    EXPECT_EQ(Cvt("   ", 0x04), "");
    EXPECT_EQ(Cvt("   ", 0x08), " ");
    EXPECT_EQ(Cvt("", 0x1FF), "");
}

TEST(Stpcvt, QuotedTextStays)
{
    EXPECT_EQ(Cvt(" x = \"a  B\"  'c  d' ", 0x1E | 0x20), "X = \"a  B\" 'c  d'");
    EXPECT_EQ(Cvt("a \"b c\" d", 0x11), "a\"b c\"d");
    // Without the bit, quotes are ordinary characters.
    EXPECT_EQ(Cvt("a \"b c\" d", 0x01), "a\"bc\"d");
    // A single quote does not end a double-quoted text.
    EXPECT_EQ(Cvt("\"it's  x\"  y", 0x18), "\"it's  x\" y");
    // An unterminated quote runs to the end, its blanks included.
    EXPECT_EQ(Cvt("a 'b  ", 0x1C), "a 'b  ");
}

TEST(Stpcvt, CaseMapping)
{
    EXPECT_EQ(Cvt("aBz09_", 0x20), "ABZ09_");
    EXPECT_EQ(Cvt("aBz09_", 0x40), "abz09_");
    std::string lower = "\xA0\xAF\xE0\xEF\x80\x90\xF0\x7F";
    EXPECT_EQ(Cvt(lower.c_str(), 0x20), std::string("\x80\x8F\x90\x9F\x80\x90\xF0\x7F"));
    std::string upper = "\x80\x8F\x90\x9F\xA0\xE0\xF1";
    EXPECT_EQ(Cvt(upper.c_str(), 0x40), std::string("\xA0\xAF\xE0\xEF\xA0\xE0\xF1"));
}

TEST(Stpcvt, ControlAndIdentifierBits)
{
    EXPECT_EQ(Cvt("a\x01" "b\x7F" "c\td", 0x80), "abc\td");
    // A removed control character does not split a run of white space.
    EXPECT_EQ(Cvt("a \x02 b", 0x88), "a b");
    EXPECT_EQ(Cvt("a b\tc!d@e$(f){g}[h].,~/-+i:j", 0x100), "a_b_c_d_e$(f){g}[h].,~/-+i_j");
    // Trailing white space is cut even when it would become '_'.
    EXPECT_EQ(Cvt(" a b  ", 0x10E), "a_b");
    EXPECT_EQ(Cvt("x 'a b!' y", 0x110), "x_'a b!'_y");
}

TEST(Stpcvt, NullAndByReference)
{
    EXPECT_EQ(stpcvt(nullptr, 1), nullptr);
    int mode = 6;
    char text[] = "  p q  ";
    EXPECT_EQ(stpcvt_(text, &mode), text);
    EXPECT_STREQ(text, "p q");
    EXPECT_EQ(stpcvt_(text, nullptr), nullptr);
    EXPECT_EQ(stpcvt_(nullptr, &mode), nullptr);
}

TEST(Stpcvt, HugeInput)
{
    std::string s(1 << 20, ' ');
    s[500000] = 'x';
    EXPECT_EQ(Cvt(s.c_str(), 0x06), "x");
}

}  // namespace
