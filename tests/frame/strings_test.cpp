// Text filters: stpcvt and the small string utilities.
#include "xwktest.h"

#include <cmath>

namespace {

TEST(Stpcvt, ModeBits)
{
    struct Case { std::string text; int mode; std::string want; } cases[] = {
        // White space: remove all, leading, trailing, reduce runs to one blank.
        {" a b ", 0x01, "ab"}, {" a b ", 0x06, "a b"}, {"a   b", 0x08, "a b"},
        {" \t a \n b \t", 0x02, "a \n b \t"}, {" \t a \n b \t", 0x04, " \t a \n b"},
        {"  a \t\n b  ", 0x08, " a b "}, {"  a \t\n b  ", 0x0E, "a b"},
        // Reduction is ignored when all white space goes.
        {"a   b c", 0x09, "abc"}, {"   ", 0x04, ""}, {"   ", 0x08, " "}, {"", 0x1FF, ""},
        // Quoted text stays; without the bit quotes are ordinary characters.
        {" x = \"a  B\"  'c  d' ", 0x3E, "X = \"a  B\" 'c  d'"},
        {"a \"b c\" d", 0x11, "a\"b c\"d"}, {"a \"b c\" d", 0x01, "a\"bc\"d"},
        // A single quote does not end a double-quoted text.
        {"\"it's  x\"  y", 0x18, "\"it's  x\" y"},
        // An unterminated quote runs to the end, its blanks included.
        {"a 'b  ", 0x1C, "a 'b  "},
        // Case, Latin-1 letters included.
        {"aBz09_", 0x20, "ABZ09_"}, {"aBz09_", 0x40, "abz09_"},
        {"\xA0\xAF\xE0\xEF\x80\x90\xF0\x7F", 0x20, "\x80\x8F\x90\x9F\x80\x90\xF0\x7F"},
        {"\x80\x8F\x90\x9F\xA0\xE0\xF1", 0x40, "\xA0\xAF\xE0\xEF\xA0\xE0\xF1"},
        // Control characters go; a removed one does not split a run of blanks.
        {"a\x01" "b\x7F" "c\td", 0x80, "abc\td"}, {"a \x02 b", 0x88, "a b"},
        // Identifiers; trailing white space is cut even when it would become '_'.
        {"a b\tc!d@e$(f){g}[h].,~/-+i:j", 0x100, "a_b_c_d_e$(f){g}[h].,~/-+i_j"},
        {" a b  ", 0x10E, "a_b"}, {"x 'a b!' y", 0x110, "x_'a b!'_y"},
        {std::string(500000, ' ') + "x" + std::string(548575, ' '), 0x06, "x"},
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        EXPECT_EQ(stpcvt(text.data(), c.mode), text.data());
        EXPECT_EQ(std::string(text.c_str()), c.want) << c.text.substr(0, 20) << " " << c.mode;
    }
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

TEST(Strings, SearchAndTranslate)
{
    EXPECT_EQ(stschind('c', "abcabc"), 2);
    EXPECT_EQ(stschind('z', "abc"), -1);
    EXPECT_EQ(stschind('\0', "abc"), -1);
    EXPECT_EQ(stschind('a', nullptr), -1);

    char text[] = "a-b_c.d";
    EXPECT_EQ(stpxlate(text, "-_.", "+"), text);
    EXPECT_STREQ(text, "a+b c d");
    EXPECT_EQ(stpxlate(nullptr, "a", "b"), nullptr);
    EXPECT_EQ(stpxlate(text, nullptr, "b"), nullptr);
}

TEST(Strings, Stptabfy)
{
    auto tabfy = [](const char *in, int width) {
        std::string s(in);
        stptabfy(s.data(), width);
        return std::string(s.c_str());
    };
    EXPECT_EQ(tabfy("a   b", 4), "a\tb");
    EXPECT_EQ(tabfy("abc d", 4), "abc d");        // a single blank at a stop stays
    EXPECT_EQ(tabfy("        x", 4), "\t\tx");
    EXPECT_EQ(tabfy("a\t   b", 4), "a\t   b");   // the tab resets the column
    EXPECT_EQ(tabfy("a  ", 8), "a  ");           // pending blanks at the end stay
    EXPECT_EQ(tabfy("a   b", 0), "a   b");
    EXPECT_EQ(stptabfy(nullptr, 4), nullptr);
}

TEST(Strings, StpexpanExpandsBoundsAndResumes)
{
    // Input, tab width, buffer size; the text written and the offset of the
    // input left over (-1: none).
    struct Case { std::string in; int width, size; std::string out; long rest; } cases[] = {
        {"a\tb", 4, 64, "a   b", -1}, {"ab\ncd\tx", 4, 64, "ab\ncd  x", -1},
        {"a\tb", 0, 64, "a\tb", -1},
        // A tab that does not fit is left for the next call.
        {"ab\tcd", 4, 4, "ab", 2}, {"\tcd", 4, 64, "    cd", -1}, {"ab\tcd", 4, 5, "ab  ", 3},
        {"abcdef", 8, 5, "abcd", 4}, {"abcd", 8, 5, "abcd", -1}, {"abcdef", 8, 1, "", 0},
        {std::string(100000, '\t'), 8, 1000, std::string(992, ' '), 124},
    };
    for (const Case &c : cases) {
        std::vector<char> out(c.size + 1, 'Z');
        const char *rest = stpexpan(out.data(), c.in.c_str(), c.width, c.size);
        EXPECT_EQ(std::string(out.data(), strnlen(out.data(), c.size)), c.out) << c.in.substr(0, 9);
        EXPECT_EQ(rest ? rest - c.in.c_str() : -1, c.rest) << c.in.substr(0, 9);
        EXPECT_EQ(out[c.size], 'Z') << "written past the bound: " << c.in.substr(0, 9);
    }
    EXPECT_EQ(stpexpan(nullptr, "abcdef", 8, 4), nullptr);
}

TEST(Strings, Stpjust)
{
    char out[16];
    struct Case { const char *text; int width, mode; const char *want; } cases[] = {
        {"ab", 6, 0, "--ab--"}, {"ab", 6, 1, "----ab"}, {"ab", 6, 2, "ab----"},
        {"ab", 5, 0, "-ab--"}, {"abcdefg", 4, 0, "bcde"}, {"abcdefg", 4, 1, "defg"},
        {"abcdefg", 4, 7, "abcd"}, {"abc", -3, 0, ""},
    };
    for (const Case &c : cases)
        EXPECT_STREQ(stpjust(out, c.text, '-', c.width, c.mode), c.want) << c.text << c.mode;

    char same[16] = "xy";
    EXPECT_STREQ(stpjust(same, same, '.', 6, 1), "....xy");

    int width = 4, mode = 0;
    char pad = '*';
    EXPECT_STREQ(stpjust_(out, "a", &pad, &width, &mode), "*a**");
    EXPECT_EQ(stpjust_(out, "a", &pad, nullptr, &mode), nullptr);
    EXPECT_EQ(stpjust(out, nullptr, ' ', 3, 0), nullptr);

    // Only width + 1 bytes are written, however long the input.
    std::string huge(1 << 16, 'q');
    char guarded[8] = "GGGGGGG";
    stpjust(guarded, huge.c_str(), ' ', 5, 0);
    EXPECT_STREQ(guarded, "qqqqq");
    EXPECT_EQ(guarded[6], 'G');
}

TEST(Strings, StrSepAndConcat)
{
    char text[] = "a,b;;c";
    char *p = text;
    std::vector<std::string> fields;
    while (char *field = XwkStrSep(&p, ",;"))
        fields.push_back(field);
    EXPECT_EQ(fields, (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(XwkStrSep(nullptr, ","), nullptr);

    char *s = concat(nullptr, "ab");
    s = concat(s, "cd");
    EXPECT_STREQ(s, "abcd");
    EXPECT_EQ(concat(s, nullptr), s);
    XtFree(s);
    EXPECT_EQ(concat(nullptr, nullptr), nullptr);
}

TEST(Strings, SortStrings)
{
    char a[] = "pear", b[] = "apple", c[] = "Zebra", d[] = "apple2";
    char *list[] = {a, b, c, d};
    XwkSortStrings(list, 4);
    EXPECT_EQ(std::vector<std::string>(list, list + 4),
              (std::vector<std::string>{"Zebra", "apple", "apple2", "pear"}));
    XwkSortStrings(nullptr, 3);
}

TEST(Strings, ReplaceString)
{
    auto replace = [](const char *text, const char *from, const char *to) {
        char *r = XwkReplaceString(text, from, to);
        std::string s = r ? r : "(null)";
        XtFree(r);
        return s;
    };
    EXPECT_EQ(replace("a.b.c", ".", "::"), "a::b::c");
    EXPECT_EQ(replace("abc", "x", "y"), "abc");
    EXPECT_EQ(replace("", "x", "y"), "");
    EXPECT_EQ(replace("aXbX", "X", ""), "ab");
    // The result is searched again: new occurrences are replaced too.
    EXPECT_EQ(replace("aab", "ab", "b"), "b");
    EXPECT_EQ(replace("xaabby", "ab", ""), "xy");
    // Where repeated replacement would never end, one pass is made.
    EXPECT_EQ(replace("a-b", "-", "--"), "a--b");
    EXPECT_EQ(replace("ab", "", "x"), "ab");
    EXPECT_EQ(XwkReplaceString(nullptr, "a", "b"), nullptr);
    EXPECT_EQ(XwkReplaceString("a", nullptr, "b"), nullptr);

    std::string big;
    for (int i = 0; i < 100000; i++) big += "$(X)";
    char *r = XwkReplaceString(big.c_str(), "$(X)", "y");
    EXPECT_EQ(std::string(r), std::string(100000, 'y'));
    XtFree(r);
}

TEST(Numbers, FtoAKeepsItsRendering)
{
    EXPECT_STREQ(XwkFtoA(2.5), "2.500000");
    EXPECT_STREQ(XwkFtoA(1.05), "1.50000");   // leading zeros of the fraction are lost
    EXPECT_STREQ(XwkFtoA(3.0), "3.0");
    EXPECT_STREQ(XwkFtoA(-2.25), "-2.250000");
    EXPECT_STREQ(XwkFtoA(-0.5), "0.500000");   // so is the sign below one
    EXPECT_EQ(XwkFtoA(1.0), XwkFtoA(2.0));      // one static buffer
    EXPECT_STREQ(XwkFtoA(1e300), "9223372036854775807.0");
    EXPECT_STREQ(XwkFtoA(-INFINITY), "-9223372036854775808.0");
    EXPECT_STREQ(XwkFtoA(NAN), "0.0");
}

TEST(Numbers, AtoF)
{
    EXPECT_FLOAT_EQ(XwkAtoF("-1.5e3"), -1.5f);
    EXPECT_FLOAT_EQ(XwkAtoF("  +12.25x"), 12.25f);
    EXPECT_FLOAT_EQ(XwkAtoF(".5"), 0.5f);
    EXPECT_FLOAT_EQ(XwkAtoF("7."), 7.0f);
    EXPECT_FLOAT_EQ(XwkAtoF("abc"), 0.0f);
    EXPECT_FLOAT_EQ(XwkAtoF(nullptr), 0.0f);
    // A value written by XwkFtoA does not come back the same.
    EXPECT_FLOAT_EQ(XwkAtoF(XwkFtoA(1.05)), 1.5f);
    std::string many = "0." + std::string(100, '0') + "1";
    EXPECT_FLOAT_EQ(XwkAtoF(many.c_str()), 0.0f);
}

TEST(Lists, GetEnv)
{
    char e1[] = "PATH=/bin", e2[] = "PA=x", e3[] = "EMPTY=";
    char *env[] = {e1, e2, e3, nullptr};
    EXPECT_STREQ(XwkGetEnv(env, "PA"), "x");
    EXPECT_STREQ(XwkGetEnv(env, "PATH"), "/bin");
    EXPECT_STREQ(XwkGetEnv(env, "EMPTY"), "");
    EXPECT_EQ(XwkGetEnv(env, "P"), nullptr);
    EXPECT_EQ(XwkGetEnv(env, ""), nullptr);
    EXPECT_EQ(XwkGetEnv(nullptr, "PATH"), nullptr);
    EXPECT_EQ(XwkGetEnv(env, nullptr), nullptr);
}

TEST(Lists, ExtractString)
{
    char text[] = "  a = 1 , junk, b=\"x, y\" ,c= \"q\",d=\\\"e,f=\"g";
    char **keys, **values;
    int n = XwkExtractString(text, &keys, &values);
    std::string pairs;
    for (int i = 0; i < n; i++)
        pairs += std::string(keys[i]) + "|" + values[i] + "\n";
    EXPECT_EQ(pairs, "a| 1\nb|x, y\nc| \"q\"\nd|\\\"e\nf|\"g\n");
    EXPECT_GE(keys[0], text);
    EXPECT_LT(keys[0], text + sizeof text);
    XtFree(reinterpret_cast<char *>(keys));
    XtFree(reinterpret_cast<char *>(values));

    char none[] = "  , x ";
    EXPECT_EQ(XwkExtractString(none, &keys, &values), 0);
    EXPECT_EQ(keys, nullptr);
    EXPECT_EQ(XwkExtractString(nullptr, &keys, &values), 0);
    EXPECT_EQ(XwkExtractString(none, nullptr, &values), 0);
}

TEST(Lists, MergeStrings)
{
    char o1[] = "HOME=/h", o2[] = "PATHX=/x", o3[] = "TERM=vt";
    char n1[] = "PATH=/p", n2[] = "TERM=xterm", n3[] = "NEW=1", n4[] = "NEW=2";
    char *old[] = {o1, o2, o3, nullptr};
    char *add[] = {n1, n2, n3, n4, nullptr};
    char **m = XwkMergeStrings(old, add, '=');
    ASSERT_NE(m, nullptr);
    // "PATH" is compared over its own length, so it takes "PATHX=";
    // appended entries are not compared: both NEW stay.
    EXPECT_EQ(std::vector<char *>(m, m + 6), (std::vector<char *>{o1, n1, n2, n3, n4, nullptr}));
    XtFree(reinterpret_cast<char *>(m));

    m = XwkMergeStrings(nullptr, add, '=');
    EXPECT_EQ(m[0], n1);
    EXPECT_EQ(m[4], nullptr);
    XtFree(reinterpret_cast<char *>(m));
    m = XwkMergeStrings(old, nullptr, '=');
    EXPECT_EQ(m[2], o3);
    EXPECT_EQ(m[3], nullptr);
    XtFree(reinterpret_cast<char *>(m));
    EXPECT_EQ(XwkMergeStrings(nullptr, nullptr, '='), nullptr);
}

TEST(Lists, ConvertStringToStringTable)
{
    int count = -1;
    char **t = XwkConvertStringToStringTable("a:b\\:c::d:", ':', &count);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(std::vector<std::string>(t, t + 3), (std::vector<std::string>{"a", "b\\:c", "d"}));
    EXPECT_EQ(t[3], nullptr);
    for (int i = 0; i < count; i++) XtFree(t[i]);
    XtFree(reinterpret_cast<char *>(t));

    t = XwkConvertStringToStringTable(":::", ':', &count);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(t[0], nullptr);
    XtFree(reinterpret_cast<char *>(t));
    EXPECT_EQ(XwkConvertStringToStringTable(nullptr, ':', &count), nullptr);
    EXPECT_EQ(count, 0);
}

}  // namespace
