// The tree list's title bar and columns on the screen, driven by real
// input: resizing by the boundary, sorting by a click, scrolling and
// moving columns, and the layout string.
#include "treetest.h"

namespace {

using treetest::AddRow;
using treetest::Part;
using Rows = std::vector<std::string>;

struct Table : treetest::Window {
    Widget title;
    explicit Table(const char *titles = "Name|Size|Type", int columns = 3, int width = 360)
        : Window({{XmNvisualMode, XmTABLE_LIST}, {XmNnumColumns, columns}, {XmNdelimeter, '|'},
                  {XmNtitleString, (XtArgVal)titles}, {XmNuseSort, True}, {XmNshowGrid, True}},
                 width, 220, true, "table"),
          title(Part(tree).titleWidget)
    {
    }
    void Up() { Window::Up(200); }
    Rows Column(int column)
    {
        Rows out;
        for (XmPrjTreeNode n = XmPrjTreeGetFirstNode(tree); n; n = XmPrjTreeGetNextNode(tree, n))
            out.push_back(XmPrjTreeGetColumnLabel(tree, n, column));
        return out;
    }
    std::string Layout()
    {
        return xwktest::Take(XmPrjTreeGetColumnsLayoutString(tree));
    }
    int Boundary(int column) { return ColumnRec(column)->x + 1; }
    XmPrjTreeColumnRec *ColumnRec(int column) { return treetest::Column(tree, column); }
    // A click in the title bar, half way down unless y is given.
    void ClickTitle(int x, int y = -1, int pump_ms = 300)
    {
        xwktest::Click(title, x, y < 0 ? title->core.height / 2 : y);
        xwktest::Pump(pump_ms);
    }
    // Drags with button 1 in the title from x to x + dx.
    void DragTitle(int x, int dx)
    {
        int y = title->core.height / 2;
        xwktest::MoveTo(title, x, y, 50);
        xwktest::Press(title, x, y, 1, 80);
        for (int step = 1; step <= 6; step++)
            xwktest::MoveTo(title, x + dx * step / 6, y, 40);
        xwktest::Release(title, 1, 300);
        xwktest::Settle();
    }
};

void Fill(Widget tree)
{
    const char *rows[] = {"beta|20|text", "alpha|3|image", "gamma|100|text", "delta|7|binary"};
    for (const char *r : rows)
        AddRow(tree, nullptr, r, XmSLAM_UNDEFINED);
}

TEST(TreeColumns, TitleItemsAndColumnOperations)
{
    Table t;
    ASSERT_NE(t.title, nullptr);
    EXPECT_STREQ(XmPrjTreeGetTitleItemLabel(t.tree, 2), "Size");
    EXPECT_EQ(XmPrjTreeGetTitleItemLabel(t.tree, 4), nullptr);
    EXPECT_EQ(XmPrjTreeSetTitleItemWidth(t.tree, 9, 10), 255);
    EXPECT_EQ(XmPrjTreeSetTitleItemWidth(t.tree, 2, 77), 0);
    EXPECT_EQ(XmPrjTreeHideColumn(t.tree, 2), 0);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(t.tree, 2), 0);
    EXPECT_EQ(XmPrjTreeShowColumn(t.tree, 2), 0);
    EXPECT_EQ(XmPrjTreeSetColumnType(t.tree, 3, 42, 0), 255);
    EXPECT_EQ(XmPrjTreeSetColumnType(t.tree, 3, XmCELL_EDIT_TEXT, 7), 0);
    EXPECT_EQ(XmPrjTreeGetColumnType(t.tree, 0), 255);
    unsigned char dir = 9;
    EXPECT_EQ(XmPrjTreeGetSortColumn(t.tree, &dir), 1);
    EXPECT_EQ(dir, XmSORT_ASCENDING);
    EXPECT_EQ(XmPrjTreeSetTitleItemLabel(t.tree, 1, "File"), 0);
    EXPECT_STREQ(XmPrjTreeGetTitleItemLabel(t.tree, 1), "File");
    // An alignment out of range keeps the one before.
    XmPrjTreeSetTitleItem(t.tree, 2, XmCELL_LABEL, 2, (XtPointer) "Size");
    for (int bad : {3, -1})
        XmPrjTreeSetTitleItem(t.tree, 2, XmCELL_LABEL, bad, (XtPointer) "Size");
    EXPECT_EQ(t.ColumnRec(2)->alignment, 2);
    // A column is never narrower than the rows' icon slot.
    Part(t.tree).iconWidth = 24;
    EXPECT_EQ(XmPrjTreeSetTitleItemWidth(t.tree, 2, 5), 0);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(t.tree, 2), 24);
    Part(t.tree).iconWidth = 0;
    // Cells: too many pieces go into the last cell, too few leave empty ones.
    XmPrjTreeNode a = AddRow(t.tree, nullptr, "x|1|a|b|c", XmSLAM_UNDEFINED);
    XmPrjTreeNode b = AddRow(t.tree, nullptr, "|", XmSLAM_UNDEFINED);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(t.tree, a, 3), "a|b|c");
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(t.tree, b, 1), "");
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(t.tree, b, 3), "");
    EXPECT_EQ(XmPrjTreeGetCellType(t.tree, a, 2), XmCELL_LABEL);
    EXPECT_EQ(XmPrjTreeGetCellType(t.tree, a, 3), XmCELL_EDIT_TEXT);
    EXPECT_EQ(XmPrjTreeGetCellType(t.tree, a, 4), 255);
    EXPECT_EQ(XmPrjTreeRenameItem(t.tree, a, nullptr, nullptr), 0);
    EXPECT_EQ(XmPrjTreeRenameItem(t.tree, a, "y  |2|z", nullptr), 1);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(t.tree, a, 1), "y");
}

TEST(TreeColumns, LayoutStringRoundTrip)
{
    Table t("A|B|C|D", 4, 400);
    Fill(t.tree);
    t.Up();
    for (int i = 1; i <= 3; i++)
        XmPrjTreeSetTitleItemWidth(t.tree, i, 40 + 10 * i);
    std::string saved = t.Layout();
    // Another order, another first column, other widths; then the saved
    // string restores all three.
    EXPECT_EQ(XmPrjTreeSetColumnsLayoutString(t.tree, "C:-1,40;A:0,%50;D:1,33;B:2,12"), 4);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(t.tree, 1), 400 / 4 / 25 * 50);
    EXPECT_EQ(t.Layout().substr(0, 7), "C:-1,40");
    EXPECT_EQ(XmPrjTreeSetColumnsLayoutString(t.tree, saved.c_str()), 4);
    EXPECT_EQ(t.Layout(), saved);
    // Read as far as sound: unknown labels skipped, a width left out kept,
    // and an entry without ':' ends it.
    EXPECT_EQ(XmPrjTreeSetColumnsLayoutString(t.tree, "Zed:0,5;B:0,;A:1,%;junk;C:0,1"), 3);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(t.tree, 2), 60);
    std::string copy = "A:0,5;B:1,5;Q:2,3";
    EXPECT_EQ(XmPrjTreeCheckLayoutString(t.tree, copy.data()), 2);
    EXPECT_EQ(copy, "A:0,5;B:1,5;Q:2,3");
    std::string nocomma = "A:0;B:1,5";
    EXPECT_EQ(XmPrjTreeCheckLayoutString(t.tree, nocomma.data()), 0);
    Table single("Only", 1);
    EXPECT_EQ(single.Layout(), "<null>");
    // A lone sortable column reaches the bar's right end, its arrow there.
    XmPrjTreeSetColumnSortable(single.tree, 1, True);
    single.Up();
    XmPrjTreeTitleRec *tr = Part(single.tree).title;
    xwktest::Capture cap(single.title);
    int right = single.title->core.width - 2 - tr->arrowWidth;
    int box = tr->arrowWidth * tr->arrowHeight;
    EXPECT_LT(cap.Count(Part(single.tree).titleBackground, right, tr->arrowY, tr->arrowWidth,
                        tr->arrowHeight),
              box);
}

TEST(TreeColumns, BoundaryDragResizesAndRepaintsGrid)
{
    Table t;
    Fill(t.tree);
    t.Up();
    // The first column starts inside the bar's shadow.
    XmPrjTreePart &p = Part(t.tree);
    EXPECT_EQ(t.ColumnRec(1)->x, xwktest::Get<Dimension>(t.title, XmNshadowThickness) + p.hPad +
                                     p.treeMarginWidth + p.highlightThickness);
    int before = XmPrjTreeGetTitleItemWidth(t.tree, 1);
    int boundary = t.Boundary(2);
    t.DragTitle(boundary, 30);
    EXPECT_NEAR(XmPrjTreeGetTitleItemWidth(t.tree, 1), before + 30, 2);
    // The grid line between the first two columns moved with the boundary.
    int x = t.ColumnRec(2)->x;
    xwktest::Capture cap(t.tree);
    ASSERT_TRUE(cap.ok());
    int found = -1;
    for (int dx = -2; dx <= 12 && found < 0; dx++)
        if (cap.Count(p.gridColor, x + dx, 2, 1, p.rowHeight * 3) >= p.rowHeight)
            found = x + dx;
    EXPECT_GT(found, boundary + 20);
    // Past the left border it stops; never narrower than twice hPad.
    t.DragTitle(t.Boundary(2), -400);
    EXPECT_EQ(XmPrjTreeGetTitleItemWidth(t.tree, 1), 2 * p.hPad);
}

TEST(TreeColumns, SortClickTogglesDirectionAndArrow)
{
    Table t;
    XmPrjTreeSetAllColumnsSortable(t.tree, True);
    Fill(t.tree);
    t.Up();
    xwktest::MoveTo(t.tree, 40, 60, 100);
    int x = t.ColumnRec(1)->x + 10;
    t.ClickTitle(x);
    EXPECT_EQ(t.Column(1), (Rows{"alpha", "beta", "delta", "gamma"}));
    xwktest::Capture up(t.title);
    xwktest::Pump(600);
    t.ClickTitle(x);
    EXPECT_EQ(t.Column(1), (Rows{"gamma", "delta", "beta", "alpha"}));
    unsigned char dir;
    EXPECT_EQ(XmPrjTreeGetSortColumn(t.tree, &dir), 1);
    EXPECT_EQ(dir, XmSORT_DISCENDING);
    xwktest::Capture down(t.title);
    // The arrow at the column's right end differs between the directions.
    int ax = t.ColumnRec(2)->x - 20, h = t.title->core.height;
    int diff = 0;
    for (int yy = 0; yy < h; yy++)
        for (int xx = ax; xx < ax + 20; xx++)
            diff += up.Pixel(xx, yy) != down.Pixel(xx, yy);
    EXPECT_GT(diff, 4);
    // The arrow is drawn in shadows around the bar's background.
    XmPrjTreeTitleRec *tr = Part(t.tree).title;
    EXPECT_EQ(down.Count(Part(t.tree).titleForeground, t.ColumnRec(2)->x - tr->arrowWidth,
                         tr->arrowY, tr->arrowWidth, tr->arrowHeight),
              0);
    // Another column starts ascending again.
    xwktest::Pump(600);
    t.ClickTitle(t.ColumnRec(2)->x + 12);
    EXPECT_EQ(XmPrjTreeGetSortColumn(t.tree, &dir), 2);
    EXPECT_EQ(dir, XmSORT_ASCENDING);
    EXPECT_EQ(t.Column(2), (Rows{"100", "20", "3", "7"}));
}

TEST(TreeColumns, ScrollArrowsMoveFirstColumn)
{
    Table t("A|B|C|D|E", 5, 220);
    for (int i = 1; i <= 5; i++)
        XmPrjTreeSetTitleItemWidth(t.tree, i, 90);
    Fill(t.tree);
    t.Up();
    XmPrjTreeTitleRec *title = Part(t.tree).title;
    auto first = [&] { return ((XmPrjTreeColumnRec *)title->firstColumn->data)->number; };
    int arrow_y = title->arrowY + title->arrowHeight / 2;
    int right = title->arrowRightX + title->arrowWidth / 2;
    int left = title->arrowLeftX + title->arrowWidth / 2;
    EXPECT_TRUE(title->canScrollRight);
    EXPECT_FALSE(title->canScrollLeft);
    t.ClickTitle(right, arrow_y, 200);
    EXPECT_EQ(first(), 2);
    EXPECT_TRUE(title->canScrollLeft);
    EXPECT_EQ(t.Layout().substr(0, 7), "A:-1,90");
    // A press on the arrow moves the columns at the release, even away
    // from the arrow.
    xwktest::MoveTo(t.title, left, arrow_y, 50);
    xwktest::Press(t.title, left, arrow_y, 1, 80);
    xwktest::MoveTo(t.title, 20, arrow_y, 80);
    xwktest::Release(t.title, 1, 200);
    EXPECT_EQ(first(), 1);
    // The right arrow moves on while a column follows, though all fit.
    for (int i = 1; i <= 5; i++)
        XmPrjTreeSetTitleItemWidth(t.tree, i, 8);
    EXPECT_FALSE(title->canScrollRight);
    t.ClickTitle(right, arrow_y, 200);
    EXPECT_EQ(first(), 2);
}

TEST(TreeColumns, TitleButtonCallsItsProcAndLosesItsFrame)
{
    static const char *box[] = {"9 9 2 1", "  c None", ". c #000000", ".........", ".       .",
                                ".       .", ".       .", ".       .", ".       .", ".       .",
                                ".       .", "........."};
    using Calls = std::vector<XmPrjTreeCallbackStruct>;
    auto note = [](Widget, XtPointer calls, XtPointer call) {
        ((Calls *)calls)->push_back(*(XmPrjTreeCallbackStruct *)call);
    };
    Calls calls;
    Table t;
    Fill(t.tree);
    XwkIcon *icon = XwkIconCreateFromData(t.tree, (char **)box);
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(XmPrjTreeSetTitleItemButton(t.tree, 2, icon, note, &calls), 0);
    EXPECT_EQ(XmPrjTreeGetTitleItemButtonIcon(t.tree, 2), icon);
    t.Up();
    xwktest::MoveTo(t.tree, 40, 60, 100);
    xwktest::Capture plain(t.title);
    // Inside the button, past the gap at the column's left.
    int x = t.ColumnRec(2)->x + 2 * Part(t.tree).titleMargin + Part(t.tree).hPad + 4;
    int h = t.title->core.height;
    t.ClickTitle(x, h / 2, 200);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].reason, XmCR_TREE_TITLE_ACTIVATE);
    EXPECT_EQ(calls[0].column, 2);
    // The release takes the frame away: the bar is as it was.
    xwktest::Capture after(t.title);
    int diff = 0;
    for (int yy = 0; yy < h; yy++)
        for (int xx = x - 6; xx < x + 16; xx++)
            diff += plain.Pixel(xx, yy) != after.Pixel(xx, yy);
    EXPECT_EQ(diff, 0);
    XtDestroyWidget(t.tree);
    XwkIconFree(t.shell, icon);
}

TEST(TreeColumns, DragTitleOntoAnotherMovesIt)
{
    Table t("A|B|C", 3, 360);
    Fill(t.tree);
    t.Up();
    // A Motif drag with button 2, from the first title onto the third.
    int x = t.ColumnRec(1)->x + 15, rx, ry;
    xwktest::RootPosition(t.title, &rx, &ry);
    treetest::QueuedDrag(XtDisplay(t.title), rx + x, ry + t.title->core.height / 2,
                         t.ColumnRec(3)->x - t.ColumnRec(1)->x, 0, 2);
    xwktest::Pump(2000);
    xwktest::Settle();
    std::string layout = t.Layout();
    EXPECT_EQ(layout.substr(0, 2), "B:") << layout;
    EXPECT_NE(layout.find("A:1"), std::string::npos) << layout;
    // The cells follow their columns.
    XmPrjTreeNode first = XmPrjTreeGetFirstNode(t.tree);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(t.tree, first, 1), "beta");
}

}  // namespace
