// The tree list on the screen: row geometry, the page, what is painted for
// selected, closed and nested rows, read back from the server.
#include "treetest.h"

#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

namespace {

using treetest::AddRow;
using treetest::Part;

bool Warned(const xwktest::Warnings &log, const char *text)
{
    for (auto &w : log.texts)
        if (w.find(text) != std::string::npos)
            return true;
    return false;
}

int Shadow(Widget tree)
{
    return ((XmManagerWidget)tree)->manager.shadow_thickness;
}

// What lies left of the rows: margin, shadow and highlight.
int Borders(Widget tree)
{
    return Part(tree).treeMarginWidth + Shadow(tree) + Part(tree).highlightThickness;
}

// The label of the node begins at x: found there, and not a pixel left.
void ExpectLabelAt(Widget tree, int x, int y, XmPrjTreeNode node)
{
    EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_LABEL, x, y, tree), node) << x;
    EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_LABEL, x - 1, y, tree), nullptr) << x;
}

TEST(TreeGeometry, RowHeightEvenAndPageRule)
{
    treetest::Window s;
    for (int i = 0; i < 30; i++)
        XmPrjTreeAddSimpleItem(s.tree, ("row " + std::to_string(i)).c_str(), nullptr);
    s.Up();
    XmPrjTreePart &t = Part(s.tree);
    ASSERT_GT(t.rowHeight, 0);
    EXPECT_EQ(t.rowHeight % 2, 0);
    EXPECT_NE(XmPrjTreeGetNodeNumber(s.tree, XmPrjTreeGetSelectedItem(s.tree)), 0);
    // A height of exactly n rows has no partial row; one pixel more has.
    int edge = t.treeMarginHeight + Shadow(s.tree), rh = t.rowHeight, x = 40;
    XmPrjTreeNode sixth = XmPrjTreeGetItemByPositionFromParent(s.tree, nullptr, 6);
    for (int extra : {0, 1}) {
        XtResizeWidget(s.tree, s.tree->core.width, rh * 5 - t.vPad + 2 * edge + extra, 0);
        EXPECT_EQ(t.visibleRows, 5);
        EXPECT_EQ((bool)XmPrjTreeItemVisible(s.tree, sixth), extra == 1);
    }
    EXPECT_EQ(xwktest::Get<int>(s.tree, XmNvisibleLines), 5);

    // Finding the row under a point: the offset from the first shown row
    // divided by the row height, truncated toward zero, so the first shown
    // row reaches a row height above the top edge.
    XmPrjTreeSetOrigins(s.tree, -1, 10);
    ASSERT_EQ(t.topRow, 10);
    auto number = [&](int y) {
        return XmPrjTreeGetNodeNumber(s.tree, XmPrjTreeWhichNode(XmTREE_PART_ROW, x, y, s.tree));
    };
    for (auto [y, row] : {std::pair{edge + rh - 1, 11}, {edge + rh, 12}, {edge, 11},
                          {edge - rh + 1, 11}, {edge - rh, 10}, {edge - 2 * rh + 1, 10},
                          {edge - 2 * rh, 9}})
        EXPECT_EQ(number(y), row) << y - edge;
    XmPrjTreeSetOrigins(s.tree, -1, 0);
    EXPECT_EQ(number(edge - rh + 1), 1);
    EXPECT_EQ(number(edge - rh), 0);
}

// The size the list asks for: whole rows in the height it has, where a
// height that holds them exactly counts as one row; the width it has while
// it shows rows, the widest row otherwise.
TEST(TreeGeometry, PreferredSizeAndTheAnswerToAQuery)
{
    treetest::Window s({}, 240, 200, false);
    for (const char *label : {"one", "two", "three"})
        XmPrjTreeAddSimpleItem(s.tree, label, nullptr);
    s.Up();
    XmPrjTreePart &t = Part(s.tree);
    int shadow = Shadow(s.tree);
    int border = 2 * (shadow + t.highlightThickness + t.treeMarginHeight);
    int rh = t.rowHeight;
    ASSERT_GT(rh, 0);
    XtWidgetGeometry pref;
    for (auto [height, rows] : {std::pair{3 * rh, 1}, {3 * rh + 1, 3}, {rh / 2, 1}}) {
        XtResizeWidget(s.tree, 200, border + t.vPad + height, 0);
        EXPECT_EQ(XtQueryGeometry(s.tree, nullptr, &pref), XtGeometryAlmost) << height;
        EXPECT_EQ(pref.height, rows * rh + border + t.vPad) << height;
        EXPECT_EQ(pref.width, 200);
    }

    // A request with a mode is taken as it is while rows are shown.
    XtWidgetGeometry intended{};
    intended.request_mode = CWWidth;
    intended.width = 10;
    EXPECT_EQ(XtQueryGeometry(s.tree, &intended, &pref), XtGeometryYes);

    // Without rows: the widest row as the last pass left it.
    XmPrjTreeDeleteAllItems(s.tree);
    EXPECT_EQ(XtQueryGeometry(s.tree, &intended, &pref), XtGeometryAlmost);
    EXPECT_EQ(pref.width, t.rowWidth + 2 * shadow);

    // Asked directly, the size comes after a pass, which over no rows
    // leaves the row height to the pads.
    Dimension gw = 1, gh = 1;
    XmPrjTreeGetPreferedSize(s.tree, &gw, &gh);
    ASSERT_LT(t.rowHeight, rh);
    EXPECT_EQ(gw, t.rowWidth + 2 * shadow);
    // The height by the rule above, over the new row height.
    XtQueryGeometry(s.tree, nullptr, &pref);
    EXPECT_EQ(gh, pref.height);
}

// The label height comes from the rows a pass visits: with none, the row
// height is the pads alone until a row brings a label again.
TEST(TreeGeometry, EmptyListHasNoLabelHeight)
{
    treetest::Window s;
    s.Up();
    XmPrjTreePart &t = Part(s.tree);
    Dimension vpad = 0, fpad = 0, ht = 0;
    XtVaGetValues(s.tree, XmNvPad, &vpad, XmNvFontPad, &fpad, XmNhighlightThickness, &ht, NULL);
    auto even = [&](int v) { return t.useDashLine && (v & 1) ? v + 1 : v; };
    auto row = [&] { return xwktest::Get<Dimension>(s.tree, XmNrowHeight); };
    int pads = even(2 * fpad + 2 * (vpad + ht));
    EXPECT_EQ(row(), pads);
    EXPECT_EQ(t.labelHeight, 0);

    XmPrjTreeNode a = AddRow(s.tree, nullptr, "one", XmSLAM_UNDEFINED);
    XmPrjTreeNode b = AddRow(s.tree, nullptr, "two", XmSLAM_UNDEFINED);
    Dimension label = t.labelHeight;
    ASSERT_GT(label, 0);
    EXPECT_EQ(row(), even(2 * fpad + label + 2 * (vpad + ht)));

    // The batch ends in a pass over no rows.
    XmPrjTreeNode both[] = {a, b};
    XmPrjTreeDeleteItems(s.tree, both, 2);
    EXPECT_EQ(XmPrjTreeGetFirstNode(s.tree), nullptr);
    EXPECT_EQ(row(), pads);

    // A row added the fast way grows the height back without a pass.
    XmPrjTreeAddSimpleItem(s.tree, "three", nullptr);
    EXPECT_EQ(t.labelHeight, label);
    EXPECT_EQ(row(), even(label + vpad + 2 * (fpad + ht)));
}

TEST(TreeGeometry, UnreasonableRowHeightIsRefused)
{
    treetest::Window s;
    xwktest::Warnings log;
    XmPrjTreeAddSimpleItem(s.tree, "one", nullptr);
    s.Up();
    Dimension before = Part(s.tree).rowHeight;
    XwkIcon tall{};
    tall.attributes.width = 4;
    tall.attributes.height = 30000;
    XmPrjTreeNode node = XmPrjTreeGetFirstNode(s.tree);
    XmPrjTreeSetItemAttributes(s.tree, node, &tall, nullptr, nullptr, nullptr);
    EXPECT_EQ(Part(s.tree).rowHeight, before);
    EXPECT_TRUE(Warned(log, "Item icon height is not reasonable"));
    XmPrjTreeSetItemAttributes(s.tree, node, nullptr, nullptr, nullptr, nullptr);
    // Added the fast way, the tall icon is only seen by the next pass,
    // which refuses it too.
    log.texts.clear();
    XmPrjTreeNode tall_row = XmPrjTreeAddSimpleItemToItem(s.tree, nullptr, "tall", &tall, nullptr);
    xwktest::Settle();
    XmPrjTreeResizeWindow(s.tree, True);
    xwktest::Settle();
    EXPECT_LE(Part(s.tree).rowHeight, HeightOfScreen(XtScreen(s.tree)));
    EXPECT_TRUE(Warned(log, "Item icon height is not reasonable"));
    XmPrjTreeDeleteItem(s.tree, tall_row);
    XmPrjTreeResizeWindow(s.tree, True);
    EXPECT_EQ(Part(s.tree).rowHeight, before);
    // Padding that makes the label taller than the screen: refused alike,
    // and the list still paints.
    auto pad = xwktest::Get<Dimension>(s.tree, XmNvFontPad);
    log.texts.clear();
    XtVaSetValues(s.tree, XmNvFontPad, 20000, NULL);
    xwktest::Settle();
    EXPECT_EQ(Part(s.tree).rowHeight, before);
    EXPECT_TRUE(Warned(log, "Item label height is not reasonable"));
    xwktest::Capture c(s.tree);
    EXPECT_GT(c.Count(xwktest::PixelOf(s.tree, XmNforeground), 0, s.RowTop(0), 60, before), 0);
    XtVaSetValues(s.tree, XmNvFontPad, pad, NULL);
    EXPECT_EQ(Part(s.tree).rowHeight, before);
}

TEST(TreePaint, HighlightMarkComesAndGoesWithoutClearing)
{
    treetest::Window s;
    for (const char *name : {"first", "second", "third", "fourth"})
        XmPrjTreeAddSimpleItem(s.tree, name, nullptr);
    XtVaSetValues(s.tree, XmNclearOnUpdate, False, XmNhighlightThickness, 2, NULL);
    s.Up();
    XmPrjTreePart &t = Part(s.tree);
    Pixel mark = xwktest::PixelOf(s.tree, XmNhighlightColor);
    ASSERT_NE(mark, xwktest::PixelOf(s.tree, XmNbackground));
    // The frame's right edge: no text ever reaches it.
    int edge = s.tree->core.width - Shadow(s.tree) - t.treeMarginWidth - 1;
    auto marks = [&](int row) {
        xwktest::Capture c(s.tree);
        return c.Count(mark, edge - 1, s.RowTop(row), 2, t.rowHeight);
    };
    XmPrjTreeHighlight(s.tree, XmPrjTreeGetItemByPositionFromParent(s.tree, nullptr, 3));
    xwktest::Settle();
    EXPECT_EQ(XmPrjTreeGetHighlightedWidget(s.tree), s.tree);
    EXPECT_GT(marks(2), 4);
    EXPECT_EQ(marks(1), 0);
    XmPrjTreeUnhighlight(s.tree);
    xwktest::Settle();
    EXPECT_EQ(XmPrjTreeGetHighlightedWidget(s.tree), nullptr);
    EXPECT_EQ(marks(2), 0);
}

TEST(TreePaint, SelectedRowFilledAndClosedChildrenNotDrawn)
{
    treetest::Window s({{XmNcanSlam, True}});
    XtVaSetValues(s.tree, XmNactiveBackground, xwktest::PixelOf(s.tree, XmNforeground), NULL);
    XmPrjTreeNode a = AddRow(s.tree, nullptr, "alpha", XmSLAM_OPEN);
    XmPrjTreeNode a1 = AddRow(s.tree, a, "child");
    AddRow(s.tree, a1, "grand");
    AddRow(s.tree, nullptr, "beta");
    s.Up();
    XmPrjTreePart &t = Part(s.tree);
    Pixel bg = xwktest::PixelOf(s.tree, XmNbackground);
    Pixel fg = xwktest::PixelOf(s.tree, XmNforeground);
    XmPrjTreeSetNode(s.tree, a);
    xwktest::Settle();
    int rh = t.rowHeight;
    xwktest::Capture c(s.tree);
    ASSERT_TRUE(c.ok());
    // Row 0 is selected: its band right of the label is filled.
    int x = s.tree->core.width - 12;
    Pixel p = c.Pixel(x, s.RowTop(0) + rh / 2);
    EXPECT_TRUE(p == t.activeBackground || p == t.inactiveBackground);
    EXPECT_EQ(c.Pixel(x, s.RowTop(1) + rh / 2), bg);
    // Row 2 is "beta": the grandchild stays hidden, so row 3 is empty.
    EXPECT_GT(c.Count(fg, 0, s.RowTop(2), s.tree->core.width, rh), 0);
    EXPECT_EQ(c.Count(fg, 4, s.RowTop(3), s.tree->core.width - 8, rh), 0);
    // Preferred width: the indent of the deepest shown level, here the
    // closed "child" at level 2, with margins, padding and highlight.
    Dimension pw = 0, ph = 0;
    XmPrjTreeGetPreferedSize(s.tree, &pw, &ph);
    ASSERT_EQ(t.iconWidth, 0);
    EXPECT_EQ(t.stateIconWidth, 13);
    EXPECT_EQ(pw, (13 + t.hIconPad) * 2 + 2 * (t.treeMarginWidth + t.hPad + t.highlightThickness));
    XmPrjTreeChangeState(s.tree, a, XmSLAM_CLOSE);
    xwktest::Settle();
    // Two rows left: the third band is empty.
    xwktest::Capture closed(s.tree);
    EXPECT_EQ(closed.Count(fg, 4, s.RowTop(2), s.tree->core.width - 8, rh), 0);
    EXPECT_GT(closed.Count(fg, 0, s.RowTop(1), s.tree->core.width, rh), 0);
}

TEST(TreePaint, TrunkStandsWhereTheLevelsPutIt)
{
    treetest::Window s;
    XtVaSetValues(s.tree, XmNuseDashLine, False, NULL);
    XwkIcon *icon = xwktest::SolidIcon(s.tree, 16, 16, "#0000FF");
    ASSERT_NE(icon, nullptr);
    XmPrjTreeNode a = XmPrjTreeAddSimpleItemToItem(s.tree, nullptr, "top", icon, nullptr);
    XmPrjTreeNode b = XmPrjTreeAddSimpleItemToItem(s.tree, a, "one", icon, nullptr);
    XmPrjTreeAddSimpleItemToItem(s.tree, b, "two", icon, nullptr);
    XmPrjTreeAddSimpleItemToItem(s.tree, a, "three", icon, nullptr);
    s.Up();
    XmPrjTreeSetNode(s.tree, XmPrjTreeGetLastNode(s.tree));
    xwktest::Settle();
    XmPrjTreePart &t = Part(s.tree);
    ASSERT_EQ(t.iconWidth, 16);
    Pixel trunk = t.treeTrunkColor;
    int rh = t.rowHeight;
    xwktest::Capture c(s.tree);
    // The joint of a level is the centre of its slot: lead + slot / 2.
    int x1 = t.hPad + 8 + Borders(s.tree);
    int x2 = x1 + 16 + t.hIconPad;
    // Under "top": through all of row 1 ("one" has a sibling after it),
    // and row 2, and to the middle of row 3 ("three" is the last).  Under
    // "one": only row 2, to its middle, with the horizontal to the icon.
    struct { int x, row, dy; bool on; } px[] = {
        {x1, 1, 1, true}, {x1, 1, rh - 1, true}, {x1, 2, rh / 2, true}, {x1, 3, 1, true},
        {x1, 3, rh - 1, false}, {x2, 2, 1, true}, {x2, 2, rh - 1, false},
        {x2 + 4, 2, rh / 2, true}, {x2, 3, 1, false}};
    for (auto &p : px)
        EXPECT_EQ(c.Pixel(p.x, s.RowTop(p.row) + p.dy) == trunk, p.on)
            << p.x << " " << p.row << "+" << p.dy;
    // The icon itself stands in its slot, at the level's icon x.
    EXPECT_NE(c.Pixel(x2 + 16 + t.hIconPad, s.RowTop(2) + rh / 2),
              xwktest::PixelOf(s.tree, XmNbackground));
    XmPrjTreeDeleteAllItems(s.tree);
    XwkIconFree(s.tree, icon);
}

// The bounds of a pixel value in a band of rows; first (left) is -1 if none.
struct Box {
    int first = -1, second = -1, top = -1, bottom = -1;
};
Box Span(Widget w, unsigned long pixel, int y, int h)
{
    xwktest::Capture c(w);
    Box b;
    for (int yy = y; yy < y + h; yy++)
        for (int x = 0; x < (int)w->core.width; x++)
            if (c.Pixel(x, yy) == pixel) {
                b.first = b.first < 0 ? x : std::min(b.first, x);
                b.second = std::max(b.second, x);
                b.top = b.top < 0 ? yy : b.top;
                b.bottom = yy;
            }
    return b;
}

// Icons of one colour each, on a widget that outlives the lists using them.
struct Probe {
    Widget w = XtVaCreateWidget("probe", xmPrimitiveWidgetClass, xwktest::StartApp(), NULL);
    XwkIcon *red = xwktest::SolidIcon(w, 9, 9, "#FF0000");
    XwkIcon *blue = xwktest::SolidIcon(w, 16, 16, "#0000FF");
    ~Probe() { XwkIconFree(w, red); XwkIconFree(w, blue); XtDestroyWidget(w); }
};

// A nested row's state icon stands centred on the trunk's joint, and a
// press finds it exactly where it is painted.
TEST(TreePaint, StateIconOnTheJointIsWhereItIsFound)
{
    Probe icons;
    ASSERT_TRUE(icons.red && icons.blue);
    treetest::Window w({{XmNcanSlam, True}, {XmNclosedStateIcon, (XtArgVal)icons.red}});
    Widget tree = w.tree;
    XmPrjTreeNode top = AddRow(tree, nullptr, "top", XmSLAM_OPEN);
    XmPrjTreeNode mid = AddRow(tree, top, "mid");
    AddRow(tree, mid, "leaf");
    AddRow(tree, top, "last");
    w.Up();
    XmPrjTreePart &t = Part(tree);
    ASSERT_TRUE(t.treeTrunkDrawing);
    ASSERT_EQ(t.rowHeight % 2, 0);
    int y1 = w.RowTop(1);  // the row of "mid"
    auto [left, right, topy, bottom] = Span(tree, 0xFF0000, y1, t.rowHeight);
    ASSERT_GE(left, 0);
    EXPECT_EQ(bottom - topy + 1, 9);
    // Centred on the joint of level 1 (no item icons: the slot is the
    // state icon column), at the middle of the row; what lies left of the
    // text area's edge is clipped.
    int borders = Borders(tree);
    EXPECT_EQ(right, borders + t.stateIconWidth / 2 - 4 + 8);
    EXPECT_EQ(left, std::max(right - 8, borders + (int)t.hPad));
    EXPECT_EQ(topy, y1 + t.rowHeight / 2 - 4);
    for (int x : {left, right}) {
        EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_STATE_ICON, x, topy, tree), mid);
        EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_STATE_ICON, x, bottom, tree), mid);
        EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_STATE_ICON, x, topy - 1, tree), nullptr);
        EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_STATE_ICON, x, bottom + 1, tree), nullptr);
        EXPECT_EQ(XmPrjTreeWhichNode(XmTREE_PART_INDENT, x, bottom + 1, tree), mid);
    }
}

// Without a trunk every state icon stands in the state column of its
// level, in front of the item icon; a row of "slam_per_row" still
// undefined and without a fruitless icon puts its label where its icon
// would stand.
TEST(TreePaint, ColumnsOfStateIconsIconsAndLabels)
{
    Probe icons;
    ASSERT_TRUE(icons.red && icons.blue);
    {
        treetest::Window w({{XmNcanSlam, True}, {XmNclosedStateIcon, (XtArgVal)icons.red},
                            {XmNtreeTrunkDrawing, False}},
                           260);
        Widget tree = w.tree;
        XmPrjTreeNode top = AddRow(tree, nullptr, "top", XmSLAM_OPEN);
        XmPrjTreeNode mid = XmPrjTreeAddItem(tree, top, "mid", icons.blue, nullptr, XmSLAM_CLOSE,
                                             nullptr, nullptr, nullptr);
        AddRow(tree, mid, "leaf");
        w.Up();
        XmPrjTreePart &t = Part(tree);
        ASSERT_EQ(t.iconWidth, 16);
        int sw = t.stateIconWidth, y1 = w.RowTop(1);
        // The state icon: hPad + (L - 1) * (hIconPad + iconWidth) + half the
        // difference to the widest state icon.
        auto state = Span(tree, 0xFF0000, y1, t.rowHeight);
        EXPECT_EQ(state.first, t.hPad + (t.hIconPad + 16) + (sw - 9) / 2 + Borders(tree));
        // The item icon: the lead (hPad, the state column, hIconPad), then
        // one slot and hIconPad per level.
        auto icon = Span(tree, 0x0000FF, y1, t.rowHeight);
        EXPECT_EQ(icon.first, t.hPad + sw + t.hIconPad + (16 + t.hIconPad) + Borders(tree));
        EXPECT_EQ(icon.second - icon.first + 1, 16);
        // The label begins one slot and hPad further.
        ExpectLabelAt(tree, icon.first + 16 + t.hPad, y1 + 2, mid);
    }
    // Per row, with no fruitless icon anywhere.
    treetest::Window w({{XmNcanSlam, True}, {XmNslamPolicy, XmSLAM_PER_ROW},
                        {XmNfruitlessStateIcon, 0}},
                       260);
    Widget tree = w.tree;
    XmPrjTreeNode p = AddRow(tree, nullptr, "p", XmSLAM_OPEN);
    XmPrjTreeNode u1 = AddRow(tree, nullptr, "u1", XmSLAM_UNDEFINED);
    XmPrjTreeNode u2 = AddRow(tree, p, "u2", XmSLAM_UNDEFINED);
    w.Up();
    XmPrjTreePart &r = Part(tree);
    ASSERT_EQ(r.iconWidth, 0);
    ASSERT_GT(r.stateIconWidth, 0);
    int slot = r.stateIconWidth, borders = Borders(tree);
    // "p" is open: its label follows the slot.
    ExpectLabelAt(tree, borders + slot + r.hPad, w.RowTop(0) + 2, p);
    // "u2" at level 2: the icon x (past the slot and hIconPad), plus hPad.
    ExpectLabelAt(tree, borders + slot + r.hIconPad + r.hPad, w.RowTop(1) + 2, u2);
    // "u1" at level 1: the icon x itself.
    ExpectLabelAt(tree, borders, w.RowTop(2) + 2, u1);
}

// Every row shows its item icon, the current row and the others, with a
// mask (composed over the background) and without, with columns and
// without, in core and in Xft fonts: text drawn into a cell must not leave
// its clip on the icon's way.
TEST(TreePaint, ItemIconOnEveryRow)
{
    // The blue square declares a transparent colour it does not use: it
    // gets a mask, and is composed over the background.
    // The others are solid red 9 x 9 squares.
    std::string row16(16, 'x');
    std::vector<const char *> square{"16 16 2 1", "  c None", "x c #0000FF"};
    square.insert(square.end(), 16, row16.c_str());
    struct Case {
        unsigned char mode;
        bool xft, masked;
    } cases[] = {{XmSIMPLE_LIST, false, true}, {XmSIMPLE_LIST, true, false},
                 {XmTABLE_LIST, false, false}, {XmTABLE_LIST, true, true},
                 {XmTABLE_LIST, true, false}};
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << "mode " << int(c.mode) << (c.xft ? ", Xft" : "")
                                        << (c.masked ? ", masked" : ""));
        Widget app = xwktest::StartApp();
        // The shell's text render table, which a list without fonts of its
        // own takes.
        XrmDatabase db = XtDatabase(XtDisplay(app));
        for (const char *line : {"*iconsXft.textRenderTable: DEFAULT",
                                 "*iconsXft.textRenderTable.DEFAULT.fontType: FONT_IS_XFT",
                                 "*iconsXft.textRenderTable.DEFAULT.fontName: DejaVu Sans",
                                 "*iconsXft.textRenderTable.DEFAULT.fontSize: 10"})
            XrmPutLineResource(&db, line);
        Widget shell = xwktest::Shell(c.xft ? "iconsXft" : "icons", 300, 200);
        Widget tree = XtVaCreateWidget("list", xmPrjTreeWidgetClass, shell, XmNvisualMode, c.mode,
                                       XmNnumColumns, 2, XmNdelimeter, '|', XmNtitleString,
                                       "Name|Size", NULL);
        XwkIcon *icon = c.masked ? XwkIconCreateFromData(tree, (char **)square.data())
                                 : xwktest::SolidIcon(tree, 9, 9, "#FF0000");
        ASSERT_NE(icon, nullptr);
        for (const char *row : {"one|1", "two|22", "three|333"})
            XmPrjTreeAddItem(tree, nullptr, row, icon, nullptr, XmSLAM_UNDEFINED, nullptr,
                             nullptr, nullptr);
        xwktest::Show(tree, shell, 0);
        XmPrjTreeSetNode(tree, XmPrjTreeGetItemByPositionFromParent(tree, nullptr, 2));
        xwktest::Pump(150);
        xwktest::Settle();
        XmPrjTreePart &t = Part(tree);
        int top = t.treeMarginHeight + Shadow(tree);
        for (int row = 0; row < 3; row++) {
            auto span =
                Span(tree, c.masked ? 0x0000FF : 0xFF0000, top + row * t.rowHeight, t.rowHeight);
            EXPECT_EQ(span.second - span.first + 1, (int)icon->attributes.width) << "row " << row;
        }
        XtDestroyWidget(shell);
        XwkIconFree(app, icon);
    }
}

const char *masked[] = {"8 8 2 1", "  c None", "x c #FF0000",
                        "xxxxxxxx", "x      x", "x      x", "x      x",
                        "x      x", "x      x", "x      x", "xxxxxxxx"};

TEST(TreeIcons, BuiltInStateIconsAndMaskedIconsComposedOnce)
{
    treetest::Window s({{XmNcanSlam, True}});
    XwkIcon *open = nullptr, *closed = nullptr, *fruitless = nullptr;
    XmPrjTreeGetDefaultItemAttributes(s.tree, &fruitless, &open, &closed);
    ASSERT_TRUE(open && closed && fruitless);
    for (auto [i, w, h] : {std::tuple{open, 9u, 13u}, {closed, 13u, 9u}, {fruitless, 5u, 5u}})
        EXPECT_TRUE(i->attributes.width == w && i->attributes.height == h) << w << "x" << h;
    XwkIcon *icon = XwkIconCreateFromData(s.tree, (char **)masked);
    ASSERT_NE(icon, nullptr);
    ASSERT_NE(icon->mask, None);
    XmPrjTreeAddItem(s.tree, nullptr, "framed", icon, nullptr, XmSLAM_CLOSE, nullptr, nullptr,
                     nullptr);
    EXPECT_EQ(icon->composed, None);
    s.Up();
    Pixmap composed = icon->composed;
    EXPECT_NE(composed, None);
    XmPrjTreeUpdateNode(s.tree, XmPrjTreeGetFirstNode(s.tree));
    xwktest::Settle();
    EXPECT_EQ(icon->composed, composed);
    // The inside of the frame shows the background the icon was composed on.
    XmPrjTreePart &t = Part(s.tree);
    int x = t.hPad + t.stateIconWidth + t.hIconPad + Borders(s.tree) + (t.iconWidth - 8) / 2;
    int y = s.RowTop(0) + (t.rowHeight - 8) / 2;
    xwktest::Capture c(s.tree);
    EXPECT_EQ(c.Pixel(x + 4, y + 4), xwktest::PixelOf(s.tree, XmNbackground));
    EXPECT_NE(c.Pixel(x, y), xwktest::PixelOf(s.tree, XmNbackground));
    XmPrjTreeDeleteAllItems(s.tree);
    XwkIconFree(s.tree, icon);
}

TEST(TreeCreation, ScrolledWindowNamesAndTheSlamPolicyWarning)
{
    Widget shell = xwktest::Shell("names", 200, 200);
    Widget tree = XmCreateScrolledTreeList(shell, nullptr, nullptr, 0);
    EXPECT_STREQ(XtName(XtParent(tree)), "SW");
    EXPECT_FALSE(XtIsManaged(tree));
    Widget named = XmCreateScrolledTreeList(shell, (String) "files", nullptr, 0);
    EXPECT_STREQ(XtName(XtParent(named)), "filesSW");
    EXPECT_NE(xwktest::FindWidget(XtParent(named), "treeVertScrollBar"), nullptr);
    EXPECT_NE(xwktest::FindWidget(XtParent(named), "treeHorizScrollBar"), nullptr);
    using xwktest::Get;
    EXPECT_EQ(Get<unsigned char>(XtParent(named), XmNscrollingPolicy), XmAPPLICATION_DEFINED);
    EXPECT_EQ(Get<unsigned char>(XtParent(named), XmNvisualPolicy), XmVARIABLE);
    EXPECT_EQ(Get<unsigned char>(XtParent(named), XmNscrollBarDisplayPolicy), XmSTATIC);
    EXPECT_EQ(Get<Dimension>(XtParent(named), XmNshadowThickness), 0);
    // A list put by hand into a scrolled window of the application's makes
    // its bars there and is its work window.
    Widget own = XtVaCreateWidget("own", xmScrolledWindowWidgetClass, shell, NULL);
    Widget inner = XmCreatePrjTree(own, (String) "inner", nullptr, 0);
    EXPECT_EQ(Get<unsigned char>(own, XmNscrollBarDisplayPolicy), XmSTATIC);
    EXPECT_EQ(Get<Widget>(own, XmNworkWindow), inner);
    EXPECT_NE(xwktest::FindWidget(own, "treeVertScrollBar"), nullptr);
    XtDestroyWidget(own);
    {
        xwktest::Warnings log;
        XtVaSetValues(named, XmNslamPolicy, XmSLAM_PER_ROW, NULL);
        ASSERT_EQ(log.texts.size(), 1u);
        EXPECT_TRUE(Warned(log, "You can't change slam policy on the fly!"));
    }
    EXPECT_EQ(Get<unsigned char>(named, XmNslamPolicy), XmSLAM_PER_ROW);
    // Destroying the list takes its window along.
    bool gone = false;
    XtAddCallback(XtParent(named), XmNdestroyCallback,
                  [](Widget, XtPointer flag, XtPointer) { *(bool *)flag = true; }, &gone);
    XtDestroyWidget(named);
    EXPECT_TRUE(gone);
    XtDestroyWidget(shell);
}

}  // namespace
