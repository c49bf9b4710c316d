// The tool configuration model without a display: option text to items and
// back for every item kind, extra options, clones, references, settings,
// look-ups and the macro table.
#include "xwktest.h"

#include "tests/toolcfg/cfgtool.h"

using namespace cfgtest;

namespace {

using xwktest::Take;

struct Model : ::testing::Test {
    IDECfgTool *tool = SampleTool();
    void TearDown() override { IDECfgFreeTool(tool); }
    std::string Options(IDECfgTool *t = nullptr)
    {
        return Take(IDECfgGetToolOptions(t ? t : tool));
    }
    std::string Parse(const char *text)
    {
        IDECfgStringToTool(text, tool);
        return Options();
    }
    IDECfgEditItem *EditAt(int division, int item)
    {
        return (IDECfgEditItem *)tool->divisions[division]->items[item];
    }
};

TEST_F(Model, OptionTextRoundTripsForEveryKind)
{
    // The text and the options it gives: in item order, the rest behind.
    struct Case { const char *text, *canonical; } cases[] = {
        {"", "<null>"}, {"-O2 -Wall -g", "-O2 -Wall -g"}, {"-g   -Wall -O1", "-O1 -Wall -g"},
        {"-Wextra -pedantic -Wall", "-Wall -Wextra -pedantic"}, {"-std=c11 -O0", "-O0 -std=c11"},
        {"-Ia -I/usr/include -DX=1 -DY", "-Ia -I/usr/include -DX=1 -DY"},
        {"-I\"my dir\" -Ib", "-I\"my dir\" -Ib"}, {"-lpthread -lm", "-lm -lpthread"},
        {"-oout.o --jobs=4", "-oout.o --jobs=4"}, {"CC=gcc -g FOO=bar", "-g CC=gcc FOO=bar"},
        {"--unknown -O2 x", "-O2 --unknown x"}, {"-Wallx -gg", "-Wallx -gg"},
    };
    for (const Case &c : cases) {
        IDECfgUpdateSettings(tool, 16);  // prefixed lists keep states the text does not name
        EXPECT_EQ(Parse(c.text), c.canonical) << c.text;
        std::string again = Options();
        EXPECT_EQ(Parse(again == "<null>" ? "" : again.c_str()), c.canonical) << c.text;
    }
}

TEST_F(Model, RecognisedTextIsClaimedOnceAndTheRestKeptOrDropped)
{
    EXPECT_TRUE(IDECfgStringToTool("--foo -g \"a  b\"", tool));
    EXPECT_STREQ(tool->extra_options, "--foo \"a  b\"");
    EXPECT_EQ(Options(), "-g --foo \"a  b\"");
    EXPECT_FALSE(IDECfgStringToTool("--bar", tool));
    tool->no_extra = True;
    EXPECT_TRUE(IDECfgStringToTool("--foo -g", tool));
    EXPECT_EQ(tool->extra_options, nullptr);
    EXPECT_EQ(Options(), "-g");
    tool->options_override = S("--as-is");
    EXPECT_EQ(Options(), "--as-is");
}

TEST_F(Model, ResetAndPrefixRules)
{
    Parse("-O2 -g -std=c99 -Ia");
    // Without reset, what the text does not name stays.
    IDECfgUpdateStringToTool("-Wall", tool, False);
    EXPECT_EQ(Options(), "-O2 -Wall -g -std=c99 -Ia");
    // With reset, prefixed lists whose prefix is absent keep their states.
    EXPECT_EQ(Parse("-pedantic"), "-O2 -pedantic -std=c99");
    // A prefix followed by white space leaves the options alone too.
    EXPECT_EQ(Parse("-O -g"), "-O2 -g -std=c99 -O");
    // One-character values stand for no option at all: never found, never
    // reset.
    auto *warnings = (IDECfgListItem *)tool->divisions[0]->items[1];
    XtFree(warnings->options[2]->value);
    warnings->options[2]->value = S("x");
    warnings->options[2]->state = True;
    EXPECT_TRUE(IDECfgStringToTool("x -Wall", tool));
    EXPECT_TRUE(warnings->options[2]->state);
    EXPECT_STREQ(tool->extra_options, "x");
}

TEST_F(Model, EditFieldsQuoteSplitAndAssign)
{
    IDECfgEditItem *inc = EditAt(1, 0);
    char *lines = (char *)"one\ntwo dirs\n\nthree,four\nfive;six\n";
    ASSERT_TRUE(IDECfgSetValue(tool, "-I", &lines));
    EXPECT_EQ(Take(IDECfgDivisionToString(tool->divisions[1])),
              "-Ione -I\"two dirs \" -Ithree,four -Ifive -Isix") << "a ';' separates too";
    Parse("-Ione -I\"two dirs\" -Ithree");
    EXPECT_STREQ(inc->value, "one\ntwo dirs\nthree");
    // A lone newline starts the value, so it is a blank behind the prefix.
    lines = (char *)"\n";
    ASSERT_TRUE(IDECfgSetValue(tool, "-I", &lines));
    EXPECT_EQ(Take(IDECfgDivisionToString(tool->divisions[1])), "-I");
    // An unquoted value stops at a quote; the quoted rest of the word goes.
    Parse("-DX=\"a b\" -DY='c' -g");
    EXPECT_STREQ(EditAt(1, 1)->value, "X=\nY=");
    EXPECT_EQ(Options(), "-g -DX= -DY=");
    // A single-value field keeps the last; integer and float fields.
    Parse("-oa.o -ob.o --jobs=12");
    EXPECT_STREQ(EditAt(1, 3)->value, "b.o");
    XtPointer v = nullptr;
    ASSERT_TRUE(IDECfgGetValue(tool, "--jobs=", &v));
    EXPECT_EQ((long)v, 12);
    int jobs = 3;
    ASSERT_TRUE(IDECfgSetValue(tool, "--jobs=", &jobs));
    EXPECT_STREQ(EditAt(1, 4)->value, "3");
    EditAt(1, 4)->value_type = 2;
    float f = 2.75f;
    ASSERT_TRUE(IDECfgSetValue(tool, "--jobs=", &f));
    EXPECT_STREQ(EditAt(1, 4)->value, "2.750000");
    ASSERT_TRUE(IDECfgGetValue(tool, "--jobs=", &v));
    EXPECT_EQ((long)v, 2);
    // Assignments: several values by newline, quotes kept in the token.
    Parse("A=1 -g B='x y' C=\"z\"");
    EXPECT_STREQ(EditAt(2, 0)->value, "A=1\nB='x y'\nC=\"z\"");
}

TEST_F(Model, ValuesByName)
{
    Parse("-O1 -Wextra -g");
    XtPointer v = (XtPointer)1;
    EXPECT_TRUE(IDECfgGetValue(tool, "-O", &v));
    EXPECT_STREQ((char *)v, "1");
    EXPECT_TRUE(IDECfgGetValue(tool, "-Wall", &v));
    EXPECT_EQ(v, nullptr);
    EXPECT_TRUE(IDECfgGetValue(tool, "-Wextra", &v));
    EXPECT_STREQ((char *)v, "-Wextra");
    EXPECT_TRUE(IDECfgGetValue(tool, "-g", &v));
    EXPECT_FALSE(IDECfgGetValue(tool, "-std=", &v));  // prefix without option on
    EXPECT_FALSE(IDECfgGetValue(tool, "--nothing", &v));
    EXPECT_FALSE(IDECfgGetValue(tool, "-I", &v));  // no value yet
    Boolean on = True, off = False;
    EXPECT_TRUE(IDECfgSetValue(tool, "c99", &on));
    EXPECT_TRUE(IDECfgSetValue(tool, "-g", &off));
    EXPECT_EQ(Options(), "-O1 -Wextra -std=c99");
    EXPECT_TRUE(IDECfgSetSensitivity(tool, "-Wall", False));
    EXPECT_FALSE(((IDECfgListItem *)tool->divisions[0]->items[1])->options[0]->sensitive);
    EXPECT_FALSE(IDECfgSetSensitivity(tool, "nothing", False));
}

TEST_F(Model, SavedTwinsTellChangesAndUndo)
{
    Parse("-O2 -g -Ia");
    EXPECT_TRUE(IDECfgToolIsChanged(tool));
    IDECfgUpdateSettings(tool, 4);
    EXPECT_FALSE(IDECfgToolIsChanged(tool));
    Parse("-O1 -Ib");
    EXPECT_TRUE(IDECfgToolIsChanged(tool));
    IDECfgUpdateSettings(tool, 2);
    EXPECT_EQ(Options(), "-O2 -g -Ia");
    IDECfgUpdateSettings(tool, 8 | 16);
    EXPECT_EQ(Options(), "<null>");
    EXPECT_EQ(EditAt(1, 0)->saved_value, nullptr);
    EXPECT_FALSE(IDECfgToolIsChanged(tool));
}

TEST_F(Model, ClonesShareMasterStringsAndOwnTheirStates)
{
    Parse("-O2 -Ia --extra");
    IDECfgTool *clone = IDECfgNewTool(tool);
    EXPECT_EQ(clone->master, tool);
    EXPECT_EQ(clone->name, tool->name);
    EXPECT_EQ(clone->divisions[0]->name, tool->divisions[0]->name);
    EXPECT_EQ(clone->divisions[0]->tool, clone);
    EXPECT_EQ(clone->divisions[0]->items[4], nullptr);
    auto *mine = (IDECfgListItem *)clone->divisions[0]->items[0];
    auto *its = (IDECfgListItem *)tool->divisions[0]->items[0];
    EXPECT_NE(mine, its);
    EXPECT_EQ(mine->options[0]->label, its->options[0]->label);
    EXPECT_NE(clone->exec, tool->exec);
    EXPECT_EQ(Options(clone), "-O2 -Ia --extra");
    IDECfgStringToTool("-g", clone);
    EXPECT_EQ(Options(), "-O2 -Ia --extra");
    EXPECT_EQ(Options(clone), "-O2 -g");
    IDECfgTool *second = IDECfgNewTool(clone);
    EXPECT_EQ(second->master, tool);
    IDECfgFreeTool(second);
    IDECfgFreeTool(clone);
}

TEST_F(Model, ReferencesShareItemsUntilUnlinked)
{
    IDECfgTool *other = IDECfgNewTool(tool);
    IDECfgDivision *code = tool->divisions[0];
    IDECfgFreeDivisionItems(other->divisions[0]);
    other->divisions[0]->reference = code;
    code->ref_count = 1;
    IDECfgStringToTool("-O1", other);
    EXPECT_EQ(Options(), "-O1");
    IDECfgTool *tools[] = {tool, other};
    IDECfgUnlinkReferencesToTool(tool, tools, 2);
    EXPECT_EQ(other->divisions[0]->reference, nullptr);
    EXPECT_EQ(code->ref_count, 1);  // the application's count, left alone
    IDECfgStringToTool("-O2", other);
    EXPECT_EQ(Options(), "-O1");
    EXPECT_EQ(Options(other), "-O2");
    // Disabling clears the reference and copies nothing.
    IDECfgTool *third = IDECfgNewTool(tool);
    IDECfgFreeDivisionItems(third->divisions[0]);
    third->divisions[0]->reference = code;
    IDECfgTool *all[] = {third};
    IDECfgDisableReferencesToTool(tool, all, 1);
    EXPECT_EQ(third->divisions[0]->reference, nullptr);
    EXPECT_EQ(third->divisions[0]->item_count, 0);
    IDECfgFreeTool(third);
    IDECfgFreeTool(other);
}

TEST_F(Model, LookUpsAndDependencies)
{
    IDECfgTool *ld = SampleTool("ld");
    XtFree(ld->std_macro);
    ld->std_macro = S("LD");
    IDECfgTool *tools[] = {tool, ld};
    int position = 0;
    EXPECT_EQ(IDECfgGetDivisionByName(tool, "Paths", &position), tool->divisions[1]);
    EXPECT_EQ(position, 2);
    EXPECT_EQ(IDECfgGetDivisionByName(tool, "paths", &position), nullptr);
    EXPECT_EQ(IDECfgGetToolByName(tools, 2, "ld"), ld);
    EXPECT_EQ(IDECfgGetToolByStdMacro(tools, 2, "LD"), ld);
    EXPECT_EQ(IDECfgGetToolByStdMacro(tools, 2, "XX"), nullptr);
    EXPECT_EQ(IDECfgGetItemByPrefix(tool, "-std="), (IDECfgListItem *)tool->divisions[0]->items[3]);
    EXPECT_EQ(IDECfgGetItemByPrefix(tool, "-I"), nullptr);  // edit fields are not list items
    tool->depend_count = 3;
    tool->depend_names = (char **)XtCalloc(3, sizeof(char *));
    tool->depend_names[0] = S("nosuch");
    tool->depend_names[1] = S("ld");
    tool->depend_names[2] = S("cc");
    IDECfgCollectDependTools(tools, 2);
    EXPECT_EQ(tool->depend_names, nullptr);
    ASSERT_EQ(tool->depend_count, 2);
    EXPECT_EQ(tool->depend_tools[0], ld);
    EXPECT_EQ(tool->depend_tools[1], tool);
    IDECfgFreeTool(ld);
}

TEST_F(Model, MacroTable)
{
    Parse("-O2 -Ia -g --x");
    char **names = nullptr, **values = nullptr;
    int n = IDECfgGetMacrosesForTool(tool, &names, &values);
    const char *want[][2] = {{"cc", "/usr/bin/cc"}, {"CC", "/usr/bin/cc"},
                             {"CFLAGS", "$(CODEFLAGS) $(PATHFLAGS) -O2 -g -Ia --x"},
                             {"CODEFLAGS", "-O2 -g"}, {"PATHFLAGS", "-Ia"},
                             {"LD", "ld"}, {"NOVALUE", nullptr}};
    ASSERT_EQ(n, 7);
    for (int i = 0; i < n; i++) {
        EXPECT_STREQ(names[i], want[i][0]);
        EXPECT_STREQ(values[i], want[i][1]) << names[i];
        XtFree(names[i]);
        XtFree(values[i]);
    }
    XtFree((char *)names);
    XtFree((char *)values);
    EXPECT_EQ(IDECfgGetMacrosesForTool(tool, nullptr, nullptr), 7);
}

TEST(ModelLimits, LongTextsAreCutNotOverrun)
{
    IDECfgTool *tool = SampleTool();
    std::string text;
    for (int i = 0; i < 8000; i++)
        text += "-Idirectory" + std::to_string(i) + " ";
    IDECfgStringToTool(text.c_str(), tool);
    std::string out = Take(IDECfgDivisionToString(tool->divisions[1]));
    EXPECT_EQ(out.size(), 49999u);
    IDECfgFreeTool(tool);
    IDECfgFreeTool(nullptr);
}

}  // namespace
