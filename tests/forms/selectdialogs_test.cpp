// The selection dialogs answered by mouse and keys while they poll their desk.
#include "xwktest.h"

#include <Xwk/PrjTreeP.h>

#include "boxdriver.h"

namespace {

using boxdriver::Step;

// The selection dialog's tree list, once the dialog stands on the screen.
Widget list_up()
{
    Widget tree = boxdriver::form_up()
                      ? xwktest::FindWidgetOfClass(xwkParentWidget, xmPrjTreeWidgetClass)
                      : nullptr;
    return xwktest::Viewable(tree) ? tree : nullptr;
}

void when_up(Step *step, std::function<void(Widget)> action)
{
    boxdriver::when(step, [] { return list_up() != nullptr; }, [action] { action(list_up()); });
}

void click_row(Widget tree, int row, unsigned clicks = 1)
{
    XmPrjTreePart &t = ((XmPrjTreeWidget)tree)->tree;
    int y = t.treeMarginHeight + 2 + row * t.rowHeight + t.rowHeight / 2;
    for (unsigned i = 0; i < clicks; i++)
        xwktest::Click(tree, 30, y);
}

class SelectDialogs : public ::testing::Test {
protected:
    void SetUp() override { xwktest::StartApp(); }
    Step step;
};

char *fruit[] = {(char *)"pear", (char *)"apple", (char *)"plum"};

}  // namespace

TEST_F(SelectDialogs, ItemByDoubleClickByKeysOrNone)
{
    // Sorted: apple, pear, plum; a double click on the second row picks pear.
    when_up(&step, [](Widget tree) { click_row(tree, 1, 2); });
    EXPECT_EQ(XwkSelectItemDialog(xwkTopLevel, "Fruit", "Kind", fruit, 3, True), 1);
    // Down from the first row and Return pick plum, unsorted.
    when_up(&step, [](Widget tree) {
        XSetInputFocus(XtDisplay(tree), XtWindow(XtParent(xwkParentWidget)), RevertToParent,
                       CurrentTime);
        XmProcessTraversal(tree, XmTRAVERSE_CURRENT);
        for (KeySym key : {XK_Down, XK_Down, XK_Return})
            xwktest::PressKey(XtDisplay(tree), key);
    });
    EXPECT_EQ(XwkSelectItemDialog(xwkTopLevel, "Fruit", "Kind", fruit, 3, False), 3);

    // No items give an empty list; Cancel gives 0.
    int rows = -1;
    when_up(&step, [&rows](Widget tree) {
        rows = XmPrjTreeGetItemsCount(tree, nullptr);
        xwktest::ClickCenter(boxdriver::action_button(2));
    });
    EXPECT_EQ(XwkSelectItemDialog(xwkTopLevel, "Fruit", "Kind", nullptr, 2, False), 0);
    EXPECT_EQ(rows, 0);
}

TEST_F(SelectDialogs, ListWithSelectAllButtonAndCountInTitle)
{
    std::string title_before, title_after;
    Step next;
    when_up(&step, [&](Widget tree) {
        title_before = XmPrjTreeGetTitleItemLabel(tree, 1);
        // The title button deselects all; a click picks apple.
        Widget title = ((XmPrjTreeWidget)tree)->tree.titleWidget;
        xwktest::Click(title, 10, title->core.height / 2);
        xwktest::Pump(200);
        click_row(tree, 0);
        // The title counts in the dialog's own loop: OK once it shows one.
        long start = 0;
        boxdriver::when(&next, [tree, &title_after, start]() mutable {
            title_after = XmPrjTreeGetTitleItemLabel(tree, 1);
            return title_after == "Kinds (1 selected)" || ++start > 300;
        }, [] { xwktest::ClickCenter(boxdriver::action_button(1)); });
    });
    XtPointer *list = (XtPointer *)fruit;
    int count = 3;
    ASSERT_TRUE(XwkSelectListDialog(xwkTopLevel, "Fruit", "Kinds", &list, &count, False));
    EXPECT_EQ(title_before, "Kinds (3 selected)");
    EXPECT_EQ(title_after, "Kinds (1 selected)");
    ASSERT_EQ(count, 1);
    EXPECT_EQ((long)list[0], 1);
    XtFree((char *)list);
}
