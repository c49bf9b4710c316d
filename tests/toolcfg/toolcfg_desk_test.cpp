// Divisions built into a desk: the controls show the item states, what the
// user clicks and types is read back into the items, values written by name
// follow on the screen, and insensitive options ignore the user.
#include "xwktest.h"

#include "tests/toolcfg/cfgtool.h"

using namespace cfgtest;

namespace {

using xwktest::Take;

Widget ToggleOf(IDECfgItem *item, int i)
{
    return ((XwkToggleItem *)item->control)->toggles[i];
}

void ClickAndSettle(Widget w)
{
    xwktest::ClickCenter(w);
    xwktest::Settle();
}

}  // namespace

TEST(ToolCfgDesk, ControlsShowAndReadBackTheItems)
{
    xwktest::StartApp();
    IDECfgTool *tool = SampleTool();
    IDECfgStringToTool("-O2 -Wall -std=c11 -Ia -Ib -lpthread -oout.o", tool);
    XwkDeskRec *desk = nullptr;
    CreateDesk(nullptr, 1.0f, 1.0f, "Tool options", &desk);
    ASSERT_NE(desk, nullptr);
    float below = IDECfgCreateDivisionControls(desk, tool->divisions[0], 0.5f, 0.5f);
    EXPECT_GT(below, 5.0f);
    IDECfgCreateDivisionControls(desk, tool->divisions[1], 8.0f, 0.5f);
    IDECfgDivision *code = tool->divisions[0], *paths = tool->divisions[1];
    for (int i = 0; i < code->item_count; i++)
        EXPECT_EQ(code->items[i] ? code->items[i]->control == nullptr : false, false) << i;
    OpenDesk(desk);
    xwktest::WaitViewable(desk->buttons[0]);
    xwktest::Settle();

    // What the controls show.
    IDECfgItem *optimize = code->items[0], *warnings = code->items[1], *debug = code->items[2];
    IDECfgItem *standard = code->items[3], *includes = paths->items[0], *libs = paths->items[2];
    EXPECT_TRUE(XmToggleButtonGetState(ToggleOf(optimize, 2)));
    EXPECT_TRUE(XmToggleButtonGetState(ToggleOf(warnings, 0)));
    EXPECT_FALSE(XmToggleButtonGetState(ToggleOf(debug, 0)));
    int selected = 0;
    GetOptionMenu(standard->control, &selected);
    EXPECT_EQ(selected, 2);
    Widget text = ((XwkEditItem *)includes->control)->text;
    EXPECT_EQ(Take(XmTextGetString(text)), "a\nb");
    Widget list = ((XwkListItem *)libs->control)->list;
    EXPECT_TRUE(XmListPosSelected(list, 2));
    EXPECT_FALSE(XmListPosSelected(list, 1));

    // The user changes them.
    ClickAndSettle(ToggleOf(optimize, 1));
    ClickAndSettle(ToggleOf(warnings, 1));
    ClickAndSettle(ToggleOf(debug, 0));
    Position x, y;
    Dimension w, h;
    ASSERT_TRUE(XmListPosToBounds(list, 1, &x, &y, &w, &h));
    xwktest::Click(list, x + w / 2, y + h / 2);
    xwktest::Settle();
    EXPECT_TRUE(XmListPosSelected(list, 1));
    xwktest::ClickCenter(text);
    xwktest::PressKey(XtDisplay(text), XK_End, ControlMask);
    xwktest::PressKey(XtDisplay(text), XK_Return);
    xwktest::TypeText(XtDisplay(text), "my dir");
    xwktest::Settle();
    EXPECT_TRUE(IDECfgReadDivisionControls(code));
    EXPECT_TRUE(IDECfgReadDivisionControls(paths));
    EXPECT_FALSE(IDECfgReadDivisionControls(paths));
    EXPECT_EQ(Take(IDECfgGetToolOptions(tool)),
              "-O1 -Wall -Wextra -g -std=c11 -Ia -Ib -I\"my dir\" -lm -lpthread -oout.o");

    // Values written by name follow on the screen.
    Boolean off = False, on = True;
    EXPECT_TRUE(IDECfgSetValue(tool, "-Wall", &off));
    EXPECT_FALSE(XmToggleButtonGetState(ToggleOf(warnings, 0)));
    EXPECT_TRUE(IDECfgSetValue(tool, "0", &on));
    EXPECT_TRUE(XmToggleButtonGetState(ToggleOf(optimize, 0)));
    EXPECT_FALSE(XmToggleButtonGetState(ToggleOf(optimize, 1)));
    EXPECT_TRUE(IDECfgSetValue(tool, "c99", &on));
    GetOptionMenu(standard->control, &selected);
    EXPECT_EQ(selected, 1);
    EXPECT_TRUE(IDECfgSetValue(tool, "-lm", &off));
    EXPECT_FALSE(XmListPosSelected(list, 1));
    char *output = (char *)"a.out";
    EXPECT_TRUE(IDECfgSetValue(tool, "-o", &output));
    EXPECT_EQ(Take(XmTextGetString(((XwkEditItem *)paths->items[3]->control)->text)), "a.out");

    // Insensitive options ignore clicks and typing, and come back.
    EXPECT_TRUE(IDECfgSetSensitivity(tool, "-g", False));
    EXPECT_TRUE(IDECfgSetSensitivity(tool, "-I", False));
    ClickAndSettle(ToggleOf(debug, 0));
    EXPECT_TRUE(XmToggleButtonGetState(ToggleOf(debug, 0)));
    EXPECT_FALSE(xwktest::Get<Boolean>(text, XmNeditable));
    EXPECT_TRUE(IDECfgSetSensitivity(tool, "-g", True));
    ClickAndSettle(ToggleOf(debug, 0));
    EXPECT_FALSE(XmToggleButtonGetState(ToggleOf(debug, 0)));

    // Controls that go leave their items.
    CloseDesk(desk);
    xwktest::Settle();
    for (IDECfgDivision *d : {code, paths})
        for (int i = 0; i < d->item_count; i++)
            EXPECT_TRUE(!d->items[i] || !d->items[i]->control) << d->name << i;
    IDECfgFreeTool(tool);
}

TEST(ToolCfgDesk, FreeingItemsBeforeTheirControls)
{
    xwktest::StartApp();
    IDECfgTool *tool = SampleTool();
    XwkDeskRec *desk = nullptr;
    CreateDesk(nullptr, 1.0f, 1.0f, "Freed first", &desk);
    IDECfgCreateDivisionControls(desk, tool->divisions[1], 0.5f, 0.5f);
    OpenDesk(desk);
    xwktest::Settle();
    IDECfgFreeTool(tool);
    CloseDesk(desk);
    xwktest::Settle();
}
