// Parameter lists, argument lists and accelerator strings.
#include "xwktest.h"

#include "boxdriver.h"

namespace {

struct Picked {
    int count;
    std::string text;
};

Picked pick(const char *source, int index, int mode = 9999)
{
    std::vector<char> out(strlen(source) + 1, '#');
    int n = GetParameterExt(source, out.data(), index, mode);
    return {n, out.data()};
}

std::vector<std::string> args_of(const char *line)
{
    std::vector<std::string> out;
    char **args = XwkCreateArgList(line);
    if (!args)
        return {"<null>"};
    for (char **a = args; *a; a++)
        out.push_back(*a);
    XwkDestroyArgList(args);
    return out;
}

std::string acc(const char *text)
{
    return xwktest::Take(XwkCreateAcc(text));
}

}  // namespace

TEST(Parameters, FieldsQuotesAndEscapes)
{
    // Silent asks: a negative index never opens a box.
    EXPECT_EQ(pick("a, b;c", -3).count, 3);
    EXPECT_EQ(pick("a, b;c", -3).text, "c");
    EXPECT_EQ(pick("a, b;c", -2).text, "b") << "white space after a separator is skipped";
    EXPECT_EQ(pick("a, b;c", -4).count, 3);
    EXPECT_EQ(pick("x 'y' z", -1).text, "y") << "the quote restarts the field";
    EXPECT_EQ(pick("\"a,b\",c", -1).text, "a,b");
    EXPECT_EQ(pick("\"a,b\",c", -2).text, "c");
    EXPECT_EQ(pick("'',x", -1).text, "");
    EXPECT_EQ(pick("'',x", -2).count, 2);
    EXPECT_EQ(pick("a\\nb\\tc\\,d", -1).text, "a\nb\tc,d");
    EXPECT_EQ(pick("'a,b", -1).text, "a,b") << "an open quote runs to the end";
    EXPECT_EQ(pick("'a,b", -2).count, 1);
    EXPECT_EQ(pick("tail\\", -1).text, "tail");
    EXPECT_EQ(pick("", -1).count, 1);
    EXPECT_EQ(pick("", -1).text, "");
    EXPECT_EQ(pick("'q',r", -1, 16).text, "'q'") << "mode 16: quotes are plain";
    EXPECT_EQ(pick("a,'b,c'", -3, 16).text, "c'");
    std::string huge(100000, 'x');
    huge[50000] = ',';
    EXPECT_EQ(pick(huge.c_str(), -2).text.size(), 49999u);
}

TEST(Parameters, MissingFieldOpensTheErrorBox)
{
    xwktest::StartApp();
    char out[16];
    EXPECT_EQ(GetParameter("a, b;c", out, 3), 3);
    EXPECT_STREQ(out, "c");

    boxdriver::Step step;
    std::string name, title, text;
    auto read_box = [&] {
        boxdriver::when_up(&step, [&] {
            name = XtName(xwkConditWidget);
            title = boxdriver::box_title();
            text = boxdriver::box_text();
            xwktest::ClickCenter(boxdriver::button(1));
        });
    };
    read_box();
    EXPECT_EQ(GetParameter("a, b;c", out, 4), 0);
    EXPECT_TRUE(step.done);
    EXPECT_EQ(name, "xwkError");
    EXPECT_EQ(title, "Error");
    EXPECT_EQ(xwkConditWidget, nullptr);

    // Reading a configuration file, the box names the file and the line.
    static char file[] = "tools.ini";
    xwkConfigFileName = file;
    xwkConfigFileLine = 12;
    read_box();
    EXPECT_EQ(GetParameter("a", out, 2), 0);
    EXPECT_EQ(text, "tools.ini(12):  Not enough one or more parameters.|");
    xwkConfigFileName = nullptr;
    xwkConfigFileLine = 0;
}

TEST(ArgList, WordsQuotesAndBackslashes)
{
    using V = std::vector<std::string>;
    EXPECT_EQ(args_of(nullptr), V{"<null>"});
    EXPECT_EQ(args_of(""), V{""});
    EXPECT_EQ(args_of("   \t "), V{""});
    EXPECT_EQ(args_of("cc -o 'my prog' \"a b\"c"), (V{"cc", "-o", "my prog", "a bc"}));
    EXPECT_EQ(args_of("a\\ b 'it\\'s'"), (V{"a b", "it's"}));
    EXPECT_EQ(args_of("open 'quote"), (V{"open", "quote"}));
    EXPECT_EQ(args_of("end\\"), V{"end"});
    std::string many;
    for (int i = 0; i < 100; i++)
        many += "w" + std::to_string(i) + " ";
    V words = args_of(many.c_str());
    ASSERT_EQ(words.size(), 100u) << "the array grows past its first eight slots";
    EXPECT_EQ(words[99], "w99");
    XwkDestroyArgList(nullptr);
}

TEST(Accelerators, TranslationsAndTexts)
{
    EXPECT_EQ(acc(nullptr), "<null>");
    EXPECT_EQ(acc("none"), "<null>");
    EXPECT_EQ(acc("NoNe"), "<null>");
    EXPECT_EQ(acc("Ctrl-O"), "Ctrl <Key>O");
    EXPECT_EQ(acc("Alt+X"), "Alt <Key>X");
    EXPECT_EQ(acc("F5"), "<Key>F5");
    EXPECT_EQ(acc("-"), " <Key>");
    auto text = [](const char *s) { return xwktest::Take(XwkCreateAccText(s)); };
    EXPECT_EQ(text("Ctrl-O"), "Ctrl-O");
    EXPECT_EQ(text("none"), "<null>");
    EXPECT_EQ(text("None"), "None") << "only exactly \"none\" is nothing";
    EXPECT_EQ(text(nullptr), "<null>");
}
