// Geometry of the tree list: measuring rows, the layout pass, what fits on
// the page, where a row's parts stand, hit tests, graphics contexts and the
// built-in state icons.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace xwk::tree;

namespace {

// Built-in state icons.  Their sizes are fixed; the pictures are ours.
const char *open_colour[] = {
    "9 13 5 1",
    "  c None", ". c #606060604040", "+ c #FFFFFFFFFFFF", "@ c #000000000000",
    "# c #666699999999",
    "@@@@@@@@@", "@+++++++@", "@+#####.@", "@+#####.@", "@+@@@@@.@", "@+#####.@",
    "@+#####.@", "@+#####.@", " @+###.@ ", "  @+#.@  ", "   @.@   ", "    @    ",
    "         "};
const char *open_mono[] = {
    "9 13 2 1", "  c None", "@ c #000000000000",
    "@@@@@@@@@", "@       @", "@       @", "@       @", "@ @@@@@ @", "@       @",
    "@       @", "@       @", " @     @ ", "  @   @  ", "   @ @   ", "    @    ",
    "         "};
const char *closed_colour[] = {
    "13 9 5 1",
    "  c None", ". c #606060604040", "+ c #FFFFFFFFFFFF", "@ c #000000000000",
    "# c #666699999999",
    "@@@@@@@@@    ", "@++++++++@   ", "@+###@###+@  ", "@+###@####+@ ", "@+@@@@@@###.@",
    "@+###@####.@ ", "@+###@###.@  ", "@........@   ", "@@@@@@@@@    "};
const char *closed_mono[] = {
    "13 9 2 1", "  c None", "@ c #000000000000",
    "@@@@@@@@@    ", "@        @   ", "@    @    @  ", "@    @     @ ", "@ @@@@@@@   @",
    "@    @     @ ", "@    @    @  ", "@        @   ", "@@@@@@@@@    "};
const char *fruitless_colour[] = {
    "5 5 3 1", ". c gray60", "+ c gray35", "@ c gray5",
    "...++", ".+++@", ".+++@", ".+++@", "+@@@@"};
const char *fruitless_mono[] = {
    "5 5 2 1", "  c None", "@ c #000000000000",
    " @@@ ", "@@@@@", "@@@@@", "@@@@@", " @@@ "};

XwkIcon *MakeStateIcon(Widget w, const char **colour, const char **mono, const char *name)
{
    XmPrjTreePart &t = P(w);
    XwkIcon *icon = nullptr;
    if (t.createIconProc) {
        icon = t.createIconProc(w, (char **)colour, (char **)mono, name);
    } else {
        icon = XwkIconCreateFromData(w, (char **)colour);
        if (!icon)
            icon = XwkIconCreateFromData(w, (char **)mono);
    }
    if (!icon) {
        char text[128];
        snprintf(text, sizeof text, "Can't create `%s' icon.", name);
        XmeWarning(w, text);
    }
    return icon;
}

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

// The list is a widget, so its screen is read directly.
int ScreenHeight(Widget w)
{
    return HeightOfScreen(w->core.screen);
}

int ScreenWidth(Widget w)
{
    return WidthOfScreen(w->core.screen);
}

Dimension EvenUnderDash(Widget w, int value)
{
    if (M(w).useDashLine && (value & 1))
        value++;
    return (Dimension)value;
}

// The last font looked up, by font list and tag pointer: rows of one list
// nearly always share one.  Xt runs on one thread.
const void *last_list = nullptr;
const char *last_tag = nullptr;
XFontStruct *last_font = nullptr;

XFontStruct *FontOf(Widget w, const char *charset)
{
    XmPrjTreePart &m = M(w);
    if (last_list == m.fontList && last_tag == charset)
        return last_font;
    short index = 0;
    XFontStruct *font = nullptr;
    if (!charset || !_XmFontListSearch(m.fontList, (XmStringCharSet)charset, &index, &font))
        font = nullptr;
    last_list = m.fontList;
    last_tag = charset;
    last_font = font;
    return font;
}

// Widths of the single characters of a core font, as XTextWidth gives
// them; a text's width is their sum.
struct FontWidths {
    const XFontStruct *font = nullptr;
    int width[128] = {};
};
FontWidths widths;

}  // namespace

namespace xwk::tree {

int PlainTextWidth(XFontStruct *font, const char *text, int length)
{
    if (widths.font != font) {
        for (int c = 0; c < 128; c++) {
            char ch = (char)c;
            widths.width[c] = XTextWidth(font, &ch, 1);
        }
        widths.font = font;
    }
    int sum = 0;
    for (const unsigned char *p = (const unsigned char *)text; length < 0 ? *p : length-- > 0; p++) {
        if (*p < 0x20 || *p >= 0x7f)
            return -1;
        sum += widths.width[*p];
    }
    return sum;
}

void ForgetFonts()
{
    last_list = nullptr;
    last_tag = nullptr;
    last_font = nullptr;
    widths.font = nullptr;
}

int IconWidth(const XwkIcon *icon)
{
    return icon ? (int)icon->attributes.width : 0;
}

int IconHeight(const XwkIcon *icon)
{
    return icon ? (int)icon->attributes.height : 0;
}

void CreateStateIcons(Widget w)
{
    XmPrjTreePart &t = P(w);
    if ((XtPointer)t.openStateIcon == XmTREE_ICON_DEFAULT) {
        t.openStateIcon = MakeStateIcon(w, open_colour, open_mono, "OpenState");
        t.builtinOpen = t.openStateIcon != nullptr;
    }
    if ((XtPointer)t.closedStateIcon == XmTREE_ICON_DEFAULT) {
        t.closedStateIcon = MakeStateIcon(w, closed_colour, closed_mono, "ClosedState");
        t.builtinClosed = t.closedStateIcon != nullptr;
    }
    if ((XtPointer)t.fruitlessStateIcon == XmTREE_ICON_DEFAULT) {
        t.fruitlessStateIcon = MakeStateIcon(w, fruitless_colour, fruitless_mono,
                                             "FruitlessState");
        t.builtinFruitless = t.fruitlessStateIcon != nullptr;
    }
}

void FindFont(Widget view)
{
    XmPrjTreePart &m = M(view);
    XFontStruct *font = FontOf(view, m.defaultCharSet);
    if (!font)
        XmeRenderTableGetDefaultFont(m.fontList, &font);
    if (font) {
        m.labelHeight = (Dimension)(font->ascent + font->descent);
        m.fontWidth = (Dimension)font->max_bounds.width;
    } else {
        XmString s = XmStringCreate((char *)"M", (XmStringCharSet)m.defaultCharSet);
        Dimension w = 0, h = 0;
        XmStringExtent(m.fontList, s, &w, &h);
        XmStringFree(s);
        m.labelHeight = h;
        m.fontWidth = w;
    }
    m.defaultLabelHeight = m.labelHeight;
}

XmString RowString(Widget view, XwkTreeNode *node)
{
    auto &cache = S(Mother(view)).strings;
    auto it = cache.find(node);
    if (it != cache.end())
        return it->second;
    // A few pages' worth; beyond that the cache starts again.
    if (cache.size() >= 512)
        ForgetStrings(view);
    XmString s = MakeItemString(view, Item(node));
    if (s)
        cache.emplace(node, s);
    return s;
}

void ForgetString(Widget w, XwkTreeNode *node)
{
    auto &cache = S(Mother(w)).strings;
    if (cache.empty())
        return;
    auto it = cache.find(node);
    if (it == cache.end())
        return;
    XmStringFree(it->second);
    cache.erase(it);
}

void ForgetStrings(Widget w)
{
    auto &cache = S(Mother(w)).strings;
    for (auto &e : cache)
        XmStringFree(e.second);
    cache.clear();
}

XmString MakeItemString(Widget view, XmPrjTreeItem item)
{
    char *label = LabelOf(item);
    if (!label)
        return nullptr;
    return XmStringCreate(label, (XmStringCharSet)CharsetOf(view, item));
}

// Measures a label as XmStringExtent would.  For a single segment of plain
// text in a core font that is the font's text width and its ascent plus
// descent, which the font gives without building the string; anything
// else is measured through the string itself.
void MeasureText(Widget view, const char *text, const char *charset, Dimension *width,
                 Dimension *height)
{
    XmPrjTreePart &m = M(view);
    *width = *height = 0;
    XFontStruct *font = text && *text ? FontOf(view, charset) : nullptr;
    int plain = font && font->min_byte1 == 0 && font->max_byte1 == 0 ? PlainTextWidth(font, text)
                                                                       : -1;
    if (plain >= 0) {
        *width = (Dimension)plain;
        *height = (Dimension)(font->ascent + font->descent);
    } else if (text) {
        XmString s = XmStringCreate((char *)text, (XmStringCharSet)charset);
        XmStringExtent(m.fontList, s, width, height);
        XmStringFree(s);
    }
    if (!*height)
        *height = m.labelHeight;
}

void MeasureItem(Widget view, XmPrjTreeItem item)
{
    XmPrjTreePart &m = M(view);
    Dimension width = 0, height = 0;
    char *label = LabelOf(item);
    XFontStruct *font = label && *label ? FontOf(view, CharsetOf(view, item)) : nullptr;
    int plain = font && font->min_byte1 == 0 && font->max_byte1 == 0
                    ? PlainTextWidth(font, label)
                    : -1;
    if (plain >= 0) {
        width = (Dimension)plain;
        height = (Dimension)(font->ascent + font->descent);
    } else if (label) {
        XmString s = MakeItemString(view, item);
        XmStringExtent(m.fontList, s, &width, &height);
        XmStringFree(s);
    }
    if (!height)
        height = m.labelHeight;
    item->width = width;
    item->height = height;
}

void GrowForItem(Widget view, XmPrjTreeItem item)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    int width = item->width + 2 * (m.hPad + v.treeMarginWidth + v.highlightThickness);
    if (width > m.rowWidth)
        m.rowWidth = (Dimension)width;
    if (item->height > m.labelHeight)
        m.labelHeight = item->height;
    int height = m.labelHeight + m.vPad + 2 * (m.vFontPad + v.highlightThickness);
    if (height > m.rowHeight)
        m.rowHeight = EvenUnderDash(view, height);
}

int IndentSlot(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (m.canSlam && !m.iconWidth)
        return m.stateIconWidth;
    return m.iconWidth;
}

int Lead(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (!m.iconWidth)
        return 0;
    int lead = m.hPad;
    if (m.canSlam)
        lead += m.stateIconWidth + m.hIconPad;
    return lead;
}

// Takes one row into the maxima of a layout pass.  Quiet, it changes
// nothing and answers false where the row would make a warning.
bool VisitRow(Widget view, XwkTreeNode *n, Raw &raw, bool remeasure, bool quiet)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreeItem item = Item(n);
    if (!item)
        return true;
    int screen_h = ScreenHeight(view), screen_w = ScreenWidth(view);
    Raw r = raw;
    bool sound = true;
    auto warn = [&](const char *text) {
        sound = false;
        if (!quiet)
            XmeWarning(view, (char *)text);
    };
    if (n->level > r.deepest)
        r.deepest = n->level;
    if (remeasure)
        MeasureItem(view, item);
    r.row_width = std::max(r.row_width, item->width + 2 * m.hPad);
    r.label_height = std::max(r.label_height, (int)item->height);
    int need = 2 * m.vFontPad + r.label_height;
    if (r.row_height < need) {
        if (need > screen_h)
            warn("Item label height is not reasonable");
        else
            r.row_height = need;
    }
    if (XwkIcon *icon = IconOf(item)) {
        int ih = IconHeight(icon);
        if (r.row_height < ih) {
            if (ih > screen_h)
                warn("Item icon height is not reasonable");
            else
                r.row_height = ih;
        }
        r.icon_width = std::max(r.icon_width, IconWidth(icon));
    }
    if (m.canSlam && m.slamPolicy == XmSLAM_PER_ROW && ExtOf(item)) {
        XmPrjTreeItemExtRec *ext = ExtOf(item);
        int sw = r.state_width, sh = r.row_height;
        for (XwkIcon *i : {ext->openIcon, ext->closedIcon, ext->fruitlessIcon}) {
            sw = std::max(sw, IconWidth(i));
            sh = std::max(sh, IconHeight(i));
        }
        if (sw > screen_w)
            warn("State icon width is not reasonable");
        else
            r.state_width = sw;
        if (sh > screen_h)
            warn("Item state icon height is not reasonable");
        else
            r.row_height = sh;
    }
    if (quiet && !sound)
        return false;
    raw = r;
    return sound;
}

void RowEntered(Widget w, XwkTreeNode *node)
{
    State &s = S(Mother(w));
    if (!s.raw.fresh || Hidden(w, node))
        return;
    // The maxima of the last pass plus this row are what a pass would find
    // now, as long as no warning is involved.
    if (!VisitRow(w, node, s.raw, false, true))
        s.raw.fresh = false;
}

void GeometryChanged(Widget w)
{
    S(Mother(w)).raw.fresh = false;
}

bool LayoutPass(Widget view)
{
    Widget mw = Mother(view);
    XmPrjTreePart &m = P(mw);
    XmPrjTreePart &v = P(view);
    State &s = S(mw);
    Dimension old_width = m.rowWidth, old_height = m.rowHeight;
    int screen_h = ScreenHeight(view), screen_w = ScreenWidth(view);
    bool remeasure = v.flags & XmTREE_FONT_CHANGED;
    if (remeasure) {
        FindFont(view);
        ForgetStrings(view);
    }

    // A pass visits every row only when something but adding rows changed
    // since the last one.
    if (remeasure || !s.raw.fresh) {
        Raw raw;
        bool sound = true;
        if (m.canSlam) {
            if (m.visibleList)
                for (XwkListNode *e = m.visibleList->first; e; e = e->next)
                    sound &= VisitRow(view, (XwkTreeNode *)e->data, raw, remeasure, false);
        } else {
            XwkTreeNode *root = m.tree->root;
            for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root))
                sound &= VisitRow(view, n, raw, remeasure, false);
        }
        raw.fresh = sound;
        s.raw = raw;
    }
    if ((v.flags & XmTREE_COLUMN_WIDTHS) && TableMode(view))
        AccumulateColumnWidths(view);
    int label_height = s.raw.label_height, row_height = s.raw.row_height;
    int row_width = s.raw.row_width, icon_width = s.raw.icon_width;
    int state_width = s.raw.state_width;
    unsigned deepest = s.raw.deepest;
    v.flags &= ~XmTREE_FONT_CHANGED;
    if (m.canSlam && m.slamPolicy == XmSLAM_DEFAULT) {
        int sw = state_width, sh = row_height;
        for (XwkIcon *i : {m.openStateIcon, m.closedStateIcon, m.fruitlessStateIcon}) {
            sw = std::max(sw, IconWidth(i));
            sh = std::max(sh, IconHeight(i));
        }
        if (sw > screen_w)
            XmeWarning(view, (char *)"State icon width is not reasonable");
        else
            state_width = sw;
        if (sh > screen_h)
            XmeWarning(view, (char *)"State icon height is not reasonable");
        else
            row_height = sh;
    }
    // An empty list has no label height until a row brings one: the row
    // height then shrinks to the pads, as it always has.
    m.labelHeight = (Dimension)label_height;
    m.iconWidth = (Dimension)icon_width;
    m.stateIconWidth = (Dimension)state_width;

    int base = 2 * m.vFontPad + label_height;
    if (v.selectedIcon)
        base = std::max(base, IconHeight(v.selectedIcon));
    int height = std::max(base, row_height) + 2 * (m.vPad + v.highlightThickness);
    if (v.showGrid)
        height++;
    height = EvenUnderDash(view, height);
    int width = row_width + 2 * (v.treeMarginWidth + v.highlightThickness) +
                (IndentSlot(view) + m.hIconPad) * (int)deepest + 3 * m.hPad;
    if (m.canSlam && m.iconWidth)
        width += m.hIconPad + m.stateIconWidth;
    m.rowWidth = (Dimension)std::min(width, 0xffff);
    if (height <= screen_h)
        m.rowHeight = (Dimension)height;
    else
        m.rowHeight = old_height;

    if (!RealizedAndManaged(view)) {
        int edge = 2 * (Shadow(view) + v.highlightThickness + v.treeMarginWidth);
        int want_w = m.rowWidth + 2 * Shadow(view);
        int want_h = m.rowHeight + 2 * (Shadow(view) + v.highlightThickness + v.treeMarginHeight);
        if ((view->core.width <= edge && view->core.width < want_w) ||
            (view->core.height <= edge && view->core.height < want_h)) {
            Dimension rw = 0, rh = 0;
            XtGeometryResult r = XtMakeResizeRequest(view, (Dimension)want_w, (Dimension)want_h,
                                                     &rw, &rh);
            if (r == XtGeometryAlmost)
                r = XtMakeResizeRequest(view, rw, rh, nullptr, nullptr);
            if (r == XtGeometryYes && XtClass(view)->core_class.resize)
                (*XtClass(view)->core_class.resize)(view);
            v.flags |= XmTREE_RESIZE_ASKED;
        }
    }
    v.flags &= ~XmTREE_GEOMETRY_STALE;
    return m.rowWidth != old_width || m.rowHeight != old_height;
}

void PreferredSize(Widget view, Dimension *width, Dimension *height)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    int shadow = Shadow(view);
    if (!m.rowHeight) {
        int base = 2 * m.vFontPad + m.labelHeight;
        if (v.selectedIcon)
            base = std::max(base, IconHeight(v.selectedIcon));
        int h = base + 2 * (m.vPad + v.highlightThickness);
        if (v.showGrid)
            h++;
        m.rowHeight = EvenUnderDash(view, h);
    }
    if (!m.rowWidth) {
        int w = view->core.width;
        m.rowWidth = (Dimension)(w > 2 * shadow + 1 ? w - 2 * shadow : w);
    }
    int border = 2 * (shadow + v.highlightThickness + v.treeMarginHeight);
    int rows = v.visibleLines;
    if (!rows) {
        int room = (int)view->core.height - border - m.vPad;
        rows = m.rowHeight ? room / m.rowHeight : 0;
        // An exact division counts as a single row, as it always has.
        if (rows <= 0 || (m.rowHeight && room % m.rowHeight == 0))
            rows = 1;
    }
    *height = (Dimension)(rows * m.rowHeight + border + m.vPad);
    if (RowCount(view) && RealizedAndManaged(view))
        *width = view->core.width;
    else
        *width = (Dimension)(m.rowWidth + 2 * shadow);
}

void ApplyVisibleLines(Widget view)
{
    Dimension width, height;
    PreferredSize(view, &width, &height);
    XtResizeWidget(view, width, height, view->core.border_width);
    if (UnderScrolledWindow(view)) {
        Widget sw = XtParent(view);
        int h = height + M(view).titleHeight;
        if (P(view).hScrollBar && XtIsManaged(P(view).hScrollBar))
            h += P(view).hScrollBar->core.height;
        XtResizeWidget(sw, width, (Dimension)h, sw->core.border_width);
    }
}

void CountVisibleRows(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    if (!m.rowHeight) {
        v.visibleRows = 1;
        return;
    }
    int rows = ((int)view->core.height - 2 * (v.treeMarginHeight + Shadow(view)) + m.vPad) /
               m.rowHeight;
    rows = std::min(rows, RowCount(view));
    v.visibleRows = std::max(rows, 1);
}

bool PartialRow(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    int exact = m.rowHeight * v.visibleRows - m.vPad + 2 * (v.treeMarginHeight + Shadow(view));
    return (int)view->core.height != exact;
}

int PageRows(Widget view)
{
    return P(view).visibleRows + (PartialRow(view) ? 1 : 0);
}

bool RowOnPage(Widget view, int row)
{
    XmPrjTreePart &v = P(view);
    return row >= 0 && row >= v.topRow && row < v.topRow + PageRows(view);
}

int RowY(Widget view, int row)
{
    return P(view).treeMarginHeight + Shadow(view) + (row - P(view).topRow) * M(view).rowHeight;
}

static int Borders(Widget view)
{
    return P(view).treeMarginWidth + Shadow(view) + P(view).highlightThickness;
}

int IconX(Widget view, int level)
{
    XmPrjTreePart &m = M(view);
    return Lead(view) + (IndentSlot(view) + m.hIconPad) * (level - 1) - P(view).xOrigin +
           Borders(view);
}

int LevelX(Widget view, int level)
{
    int slot = IndentSlot(view);
    return Lead(view) + (slot + M(view).hIconPad) * (level - 1) - P(view).xOrigin + slot / 2 +
           Borders(view);
}

int LabelX(Widget view, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(view);
    int level = (int)node->level;
    int x = IconX(view, level);
    XmPrjTreeItem item = Item(node);
    if (m.canSlam && m.slamPolicy == XmSLAM_PER_ROW && item && ItemState(node) == XmSLAM_UNDEFINED &&
        !(ExtOf(item) && ExtOf(item)->fruitlessIcon))
        return x + (level > 1 ? m.hPad : 0);
    int slot = IndentSlot(view);
    return slot ? x + slot + m.hPad : x;
}

int StateIconX(Widget view, int level, int icon_width)
{
    XmPrjTreePart &m = M(view);
    int half = (m.stateIconWidth - icon_width) / 2;
    int x;
    if (!m.iconWidth)
        x = m.hPad + (level - 1) * (m.hIconPad + m.stateIconWidth) + half;
    else if (!m.treeTrunkDrawing)
        x = m.hPad + (level - 1) * (m.hIconPad + m.iconWidth) + half;
    else
        x = m.hPad + half;
    return x - P(view).xOrigin + Borders(view);
}

XwkIcon *StateIconOf(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    XmPrjTreeItem item = Item(node);
    if (!m.canSlam || !item)
        return nullptr;
    int state = ItemState(node);
    if (m.slamPolicy == XmSLAM_PER_ROW) {
        XmPrjTreeItemExtRec *ext = ExtOf(item);
        if (!ext)
            return nullptr;
        if (!node->first_child && state != XmSLAM_UNDEFINED)
            return ext->fruitlessIcon;
        return state == XmSLAM_OPEN ? ext->openIcon : ext->closedIcon;
    }
    if (!node->first_child)
        return m.fruitlessStateIcon;
    return state == XmSLAM_OPEN ? m.openStateIcon : m.closedStateIcon;
}

int HitTest(Widget view, int start, int x, int y, bool exact, XwkTreeNode **node, int *column,
            int *cell_type, XRectangle *cell)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    *node = nullptr;
    if (column)
        *column = 0;
    if (cell_type)
        *cell_type = XmCELL_NONE;
    if (cell)
        memset(cell, 0, sizeof *cell);
    int count = RowCount(view);
    if (!count || !m.rowHeight)
        return XmTREE_PART_NOTHING;
    if (v.hScrollBar && v.vScrollBar && XtIsManaged(v.hScrollBar) && XtIsManaged(v.vScrollBar) &&
        x >= (int)view->core.width && y >= (int)view->core.height)
        return XmTREE_PART_NOTHING;
    int offset = y - v.treeMarginHeight - Shadow(view);
    // The quotient truncates toward zero: a point less than a row above
    // the first shown row still finds it, one further up the row above.
    int row = start + offset / (int)m.rowHeight;
    row = std::min(row, start + PageRows(view) - 1);
    if (row >= count) {
        if (exact)
            return XmTREE_PART_NOTHING;
        row = count - 1;
    }
    if (row < 0)
        return XmTREE_PART_NOTHING;
    XwkTreeNode *n = NodeAt(view, row);
    if (!n)
        return XmTREE_PART_NOTHING;
    *node = n;
    int level = (int)n->level;
    if (TableMode(view)) {
        int c = 0, type = XmCELL_NONE;
        XRectangle rect;
        CellAt(view, n, RowY(view, row), x, &c, &type, &rect);
        if (column)
            *column = c;
        if (cell_type)
            *cell_type = type;
        if (cell)
            *cell = rect;
    }
    if (x >= LabelX(view, n))
        return XmTREE_PART_LABEL;
    // The icon's place here leaves out the state icon column that the lead
    // holds in front of item icons: with both, a press there counts as on
    // the icon.  Kept so for compatibility.
    int icon_x = IconX(view, level);
    if (m.canSlam && m.iconWidth)
        icon_x -= m.stateIconWidth + m.hIconPad;
    if (x >= icon_x)
        return m.iconWidth ? XmTREE_PART_ICON : XmTREE_PART_STATE_ICON;
    if (!m.canSlam)
        return XmTREE_PART_INDENT;
    XwkIcon *state = StateIconOf(view, n);
    int iw = IconWidth(state), ih = IconHeight(state);
    int ry = RowY(view, row);
    int sx, sy;
    if (level <= 1) {
        sx = StateIconX(view, level, iw);
        sy = ry + (m.rowHeight - ih) / 2;
    } else {
        // Where the trunk puts it: centred on the joint at the row's middle.
        sx = LevelX(view, level - 1) - iw / 2;
        sy = ry + m.rowHeight / 2 - ih / 2;
    }
    if (m.stateIconWidth && x >= sx && x < sx + iw && y >= sy && y < sy + ih)
        return XmTREE_PART_STATE_ICON;
    return XmTREE_PART_INDENT;
}

static GC MakeGC(Widget view, XtGCMask mask, XGCValues *values)
{
    Display *dpy = XtDisplay(view);
    Screen *screen = XtScreen(view);
    Drawable d = RootWindowOfScreen(screen);
    Pixmap scratch = None;
    if ((int)view->core.depth != DefaultDepthOfScreen(screen)) {
        scratch = XCreatePixmap(dpy, d, 1, 1, view->core.depth);
        d = scratch;
    }
    GC gc = XCreateGC(dpy, d, mask, values);
    if (scratch)
        XFreePixmap(dpy, scratch);
    return gc;
}

static Pixmap HalfTile(Widget view, Pixel fg, Pixel bg)
{
    return XmGetPixmapByDepth(XtScreen(view), (char *)"50_foreground", fg, bg, view->core.depth);
}

void CreateGCs(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    auto *mgr = (XmManagerWidget)view;
    Pixel fg = mgr->manager.foreground, bg = view->core.background_pixel;
    XGCValues values;
    XFontStruct *font = FontOf(view, m.defaultCharSet);
    if (!font)
        XmeRenderTableGetDefaultFont(m.fontList, &font);
    XtGCMask font_mask = font ? GCFont : 0;
    if (font)
        values.font = font->fid;
    values.graphics_exposures = False;
    values.foreground = bg;
    v.eraseGC = MakeGC(view, GCForeground | GCGraphicsExposures, &values);
    v.pixmapGC = MakeGC(view, GCForeground | GCGraphicsExposures, &values);
    values.foreground = fg;
    values.background = bg;
    v.textGC = MakeGC(view, GCForeground | GCBackground | GCGraphicsExposures | font_mask, &values);
    values.foreground = m.activeForeground;
    values.background = m.activeBackground;
    v.activeTextGC =
        MakeGC(view, GCForeground | GCBackground | GCGraphicsExposures | font_mask, &values);
    values.foreground = m.inactiveForeground;
    values.background = m.inactiveBackground;
    v.inactiveTextGC =
        MakeGC(view, GCForeground | GCBackground | GCGraphicsExposures | font_mask, &values);
    values.foreground = m.activeBackground;
    v.activeBackgroundGC = MakeGC(view, GCForeground | GCGraphicsExposures, &values);
    values.foreground = m.inactiveBackground;
    v.inactiveBackgroundGC = MakeGC(view, GCForeground | GCGraphicsExposures, &values);
    values.foreground = mgr->manager.highlight_color;
    values.background = bg;
    XtGCMask mask = GCForeground | GCBackground | GCGraphicsExposures;
    if (mgr->manager.highlight_pixmap != None &&
        mgr->manager.highlight_pixmap != XmUNSPECIFIED_PIXMAP) {
        values.fill_style = FillTiled;
        values.tile = mgr->manager.highlight_pixmap;
        mask |= GCFillStyle | GCTile;
    }
    v.highlightGC = MakeGC(view, mask, &values);
    v.trunkGC = nullptr;
    if (m.treeTrunkDrawing && m.useDashLine) {
        values.foreground = m.treeTrunkColor;
        values.background = bg;
        values.fill_style = FillTiled;
        values.tile = HalfTile(view, m.treeTrunkColor, bg);
        v.trunkGC = MakeGC(view, GCForeground | GCBackground | GCFillStyle | GCTile |
                                     GCGraphicsExposures, &values);
    }
    v.gridGC = nullptr;
    if (v.showGrid) {
        values.foreground = m.gridColor;
        values.background = bg;
        mask = GCForeground | GCBackground | GCGraphicsExposures;
        if (m.useDashLine) {
            values.fill_style = FillTiled;
            values.tile = HalfTile(view, m.gridColor, bg);
            mask |= GCFillStyle | GCTile;
        }
        v.gridGC = MakeGC(view, mask, &values);
    }
}

void FreeGCs(Widget view)
{
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    for (GC *gc : {&v.eraseGC, &v.pixmapGC, &v.activeBackgroundGC, &v.inactiveBackgroundGC,
                   &v.highlightGC, &v.textGC, &v.activeTextGC, &v.inactiveTextGC, &v.trunkGC,
                   &v.gridGC, &v.sashGC, &v.titleTextGC, &v.titleEraseGC, &v.titleShadowGC}) {
        if (*gc)
            XFreeGC(dpy, *gc);
        *gc = nullptr;
    }
}

void UpdateColourGCs(Widget view)
{
    // Colours change in place; trunk and grid come and go with their
    // switches, so those two are made again.
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    auto *mgr = (XmManagerWidget)view;
    Pixel fg = mgr->manager.foreground, bg = view->core.background_pixel;
    XSetForeground(dpy, v.eraseGC, bg);
    XSetForeground(dpy, v.pixmapGC, bg);
    XSetForeground(dpy, v.textGC, fg);
    XSetBackground(dpy, v.textGC, bg);
    XSetForeground(dpy, v.activeTextGC, m.activeForeground);
    XSetBackground(dpy, v.activeTextGC, m.activeBackground);
    XSetForeground(dpy, v.inactiveTextGC, m.inactiveForeground);
    XSetBackground(dpy, v.inactiveTextGC, m.inactiveBackground);
    XSetForeground(dpy, v.activeBackgroundGC, m.activeBackground);
    XSetForeground(dpy, v.inactiveBackgroundGC, m.inactiveBackground);
    XSetForeground(dpy, v.highlightGC, mgr->manager.highlight_color);
    XSetBackground(dpy, v.highlightGC, bg);
    if (v.trunkGC)
        XFreeGC(dpy, v.trunkGC);
    if (v.gridGC)
        XFreeGC(dpy, v.gridGC);
    v.trunkGC = v.gridGC = nullptr;
    XGCValues values;
    values.graphics_exposures = False;
    if (m.treeTrunkDrawing && m.useDashLine) {
        values.foreground = m.treeTrunkColor;
        values.background = bg;
        values.fill_style = FillTiled;
        values.tile = HalfTile(view, m.treeTrunkColor, bg);
        v.trunkGC = MakeGC(view, GCForeground | GCBackground | GCFillStyle | GCTile |
                                     GCGraphicsExposures, &values);
    }
    if (v.showGrid) {
        values.foreground = m.gridColor;
        values.background = bg;
        XtGCMask mask = GCForeground | GCBackground | GCGraphicsExposures;
        if (m.useDashLine) {
            values.fill_style = FillTiled;
            values.tile = HalfTile(view, m.gridColor, bg);
            mask |= GCFillStyle | GCTile;
        }
        v.gridGC = MakeGC(view, mask, &values);
    }
}

}  // namespace xwk::tree

extern "C" {

void XmPrjTreeGetPreferedSize(Widget w, Dimension *width, Dimension *height)
{
    if (width)
        *width = 0;
    if (height)
        *height = 0;
    if (!IsTree(w) || !width || !height)
        return;
    XmPrjTreePart &v = P(w);
    XmPrjTreePart &m = M(w);
    v.flags |= XmTREE_COLUMN_WIDTHS;
    LayoutPass(w);
    Dimension pw, ph;
    PreferredSize(w, &pw, &ph);
    *height = ph;
    int gap = m.hPad + (int)((CompositeWidget)w)->composite.num_children;
    int base = 2 * (v.treeMarginWidth + gap + v.highlightThickness);
    unsigned deepest = 0;
    if (!m.title && m.visibleList && m.visibleList->count) {
        for (XwkListNode *e = m.visibleList->first; e; e = e->next)
            deepest = std::max(deepest, ((XwkTreeNode *)e->data)->level);
        *width = (Dimension)((IndentSlot(w) + m.hIconPad) * (int)deepest + base);
    } else if (m.title && m.columns) {
        int children = (int)((CompositeWidget)w)->composite.num_children;
        int sum = base;
        bool first = true;
        XwkListNode *start = m.title->firstColumn ? m.title->firstColumn : m.columns->first;
        for (XwkListNode *e = start; e; e = e->next) {
            XmPrjTreeColumnRec *c = ColumnOf(e);
            if (c->number < 0)
                continue;
            sum += c->width + gap;
            if (!first)
                sum += gap + children;
            first = false;
        }
        *width = (Dimension)std::min(sum, 0xffff);
    } else {
        *width = pw;
    }
    v.flags &= ~XmTREE_COLUMN_WIDTHS;
}

XmPrjTreeNode XmPrjTreeWhichNode(int mask, int x, int y, Widget w)
{
    if (!IsTree(w) || !Alive(w))
        return nullptr;
    XwkTreeNode *node;
    int part = HitTest(w, P(w).topRow, x, y, true, &node, nullptr, nullptr, nullptr);
    return node && (part & mask) ? node : nullptr;
}

XtPointer XmPrjTreeWhichItem(int mask, int x, int y, Widget w)
{
    XwkTreeNode *node = XmPrjTreeWhichNode(mask, x, y, w);
    return node && Item(node) ? Item(node)->clientData : nullptr;
}

Boolean XwkRectInRegion(XRectangle *stored, int x, int y, int width, int height)
{
    if (!stored)
        return False;
    return x < stored->x + (int)stored->width && stored->x < x + width &&
           y < stored->y + (int)stored->height && stored->y < y + height;
}

}  // extern "C"
