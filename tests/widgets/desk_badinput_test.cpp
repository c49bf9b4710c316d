// The desk list given bad input: empty, missing and very long labels, icons
// of odd sizes or none, a zero-sized desk, items deleted inside their own
// callbacks, and every operation on a widget of another class.
#include "xwktest.h"

#include <Xwk/PrjDeskP.h>

namespace {

// An icon of blue and transparent columns.
XwkIcon *StripedIcon(Widget w, int width, int height)
{
    std::string header = std::to_string(width) + " " + std::to_string(height) + " 2 1";
    std::string row;
    for (int i = 0; i < width; i++)
        row.push_back(i % 2 ? 'x' : ' ');
    std::vector<char *> data{(char *)header.c_str(), (char *)"x c #0000FF", (char *)"  c None"};
    for (int i = 0; i < height; i++)
        data.push_back((char *)row.c_str());
    return XwkIconCreateFromData(w, data.data());
}

// A plain scrolled desk, shown by Up() once the test has filled it.
struct Shown {
    Widget shell, desk;
    Shown(int width, int height)
        : shell(xwktest::Shell("bad", width, height)),
          desk(XmCreateScrolledDeskList(shell, (String) "icons", nullptr, 0))
    {
    }
    void Up() { xwktest::Show(desk, shell, 100); }
    ~Shown()
    {
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
};

TEST(DeskBadInput, OddLabelsAndIcons)
{
    Shown s(300, 200);
    std::string huge(10000, 'W');
    std::vector<XwkIcon *> icons = {StripedIcon(s.desk, 1, 1), StripedIcon(s.desk, 200, 3),
                                    StripedIcon(s.desk, 3, 120), nullptr};
    const char *labels[] = {"", nullptr, huge.c_str(), "\t\n\x01", "\xc3\xa9t\xc3\xa9"};
    for (XwkIcon *icon : icons)
        for (const char *label : labels)
            XmPrjDeskAddItem(s.desk, (char *)label, icon, nullptr);
    s.Up();
    XmPrjDeskPart &d = ((XmPrjDeskWidget)s.desk)->desk;
    EXPECT_EQ(d.maxIconWidth, 200);
    EXPECT_EQ(d.maxIconHeight, 120);
    EXPECT_GE(d.columns, 1);
    // The click gives the keys to the desk; they walk it past the labels of
    // many lines, which are drawn with a line break every few characters.
    xwktest::Click(s.desk, 10, 10);
    xwktest::Pump(50);
    // The cells are far taller than the view, so a page is one row: each
    // Right and each Page_Down moves one item down the single column, and
    // the 30 keys end on the last item.  All queued keys are handled before
    // the check, which a fixed pump does not promise on a busy machine.
    for (int i = 0; i < 30; i++)
        xwktest::PressKey(XtDisplay(s.desk), i % 2 ? XK_Page_Down : XK_Right);
    xwktest::Settle();
    EXPECT_EQ(d.visibleRows, 1);
    EXPECT_EQ(XmPrjDeskGetSelectedItem(s.desk)->index, 19);
    XmPrjDeskRenameItem(s.desk, (char *)"", icons[0], XmPrjDeskGetSelectedItem(s.desk));
    XmPrjDeskDeleteAllItems(s.desk);
    xwktest::Pump(50);
    for (XwkIcon *icon : icons)
        if (icon)
            XwkIconFree(nullptr, icon);
}

TEST(DeskBadInput, ZeroSizedDeskAndPlainParent)
{
    Widget shell = xwktest::Shell("zero", 50, 50);
    Widget desk = XmCreatePrjDesk(shell, (String) "plain", nullptr, 0);
    for (int i = 0; i < 5; i++)
        XmPrjDeskAddItem(desk, (char *)"x", nullptr, nullptr);
    xwktest::Show(desk, shell, 0);
    XtResizeWidget(desk, 1, 1, 0);
    xwktest::Pump(50);
    EXPECT_EQ(((XmPrjDeskWidget)desk)->desk.columns, 1);
    EXPECT_EQ(XmPrjDeskSetOrigins(desk, 0, 3), 0);
    XmPrjDeskScroll(desk, 2);
    XtDestroyWidget(shell);
    xwktest::Settle();

    Shown s(1, 1);
    for (int i = 0; i < 40; i++)
        XmPrjDeskAddItem(s.desk, (char *)"item", nullptr, nullptr);
    s.Up();
    XtResizeWidget(s.desk, 1, 1, 0);
    XmPrjDeskSetItem(s.desk, nullptr);
    XmPrjDeskScroll(s.desk, 2);
    xwktest::Pump(50);
}

int deletions = 0;

TEST(DeskBadInput, DeletingTheCurrentItemInsideItsCallbacks)
{
    for (const char *list : {"selectionChanged", "singleSelectionCallback",
                             "defaultActionCallback", "focusCallback"}) {
        Shown s(300, 200);
        deletions = 0;
        for (int i = 0; i < 6; i++) {
            XmPrjDeskNode n = XmPrjDeskAddItem(s.desk, (char *)"same", nullptr, nullptr);
            XmPrjDeskAddDeleteItemCallback(
                s.desk, n, [](XmPrjDeskNode, XtPointer) { deletions++; }, nullptr);
        }
        auto delete_current = [](Widget w, XtPointer, XtPointer) {
            XmPrjDeskDeleteItem(w, XmPrjDeskGetSelectedItem(w));
        };
        XtAddCallback(s.desk, list, delete_current, nullptr);
        s.Up();
        XmPrjDeskPart &d = ((XmPrjDeskWidget)s.desk)->desk;
        int x = ((XmPrimitiveWidget)s.desk)->primitive.shadow_thickness + 2 + d.cellWidth / 2;
        int y = d.cellHeight - 6;
        xwktest::Click(s.desk, x, y);
        xwktest::Click(s.desk, x, y);
        xwktest::PressKey(XtDisplay(s.desk), XK_Return);
        xwktest::Pump(100);
        EXPECT_GE(deletions, 1) << list;
        EXPECT_EQ(XmPrjDeskGetItemsCount(s.desk), 6 - deletions) << list;
    }
}

TEST(DeskBadInput, OtherWidgetsAreIgnored)
{
    Widget shell = xwktest::Shell("other", 100, 100);
    Widget label = XmCreateLabel(shell, (String) "label", nullptr, 0);
    for (Widget w : {label, (Widget) nullptr}) {
        XtPointer *list = (XtPointer *)1;
        EXPECT_EQ(XmPrjDeskAddItem(w, (char *)"a", nullptr, nullptr), nullptr);
        EXPECT_EQ(XmPrjDeskGetItemsCount(w), -1);
        EXPECT_EQ(XmPrjDeskGetSpecifiedList(w, 0, &list), 0);
        EXPECT_EQ(list, (XtPointer *)1);
        EXPECT_EQ(XmPrjDeskGetSelectedItem(w), nullptr);
        EXPECT_EQ(XmPrjDeskRenameItem(w, (char *)"b", nullptr, nullptr), 0);
        EXPECT_EQ(XmPrjDeskGetOrigins(w, nullptr, nullptr), 0);
        EXPECT_EQ(XmPrjDeskWhichItem(w, 1, 1), nullptr);
        EXPECT_FALSE(XmPrjDeskGetEditable(w));
        XmPrjDeskDeleteAllItems(w);
        XmPrjDeskSetItem(w, nullptr);
        XmPrjDeskSortItems(w);
        XmPrjDeskHighlight(w, nullptr);
        XmPrjDeskUnhighlight(w);
        XmPrjDeskShadowHighlight(w);
        XmPrjDeskScroll(w, 1);
        XmPrjDeskSetEditable(w, True);
    }
    EXPECT_EQ(XmPrjDeskGetClientDataFromItem(nullptr), nullptr);
    EXPECT_EQ(XmPrjDeskGetDeskWidgetFromItem(nullptr), nullptr);
    XtDestroyWidget(shell);
}

}  // namespace
