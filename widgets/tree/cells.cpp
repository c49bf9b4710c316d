// Cells of a list with columns: a row's label parsed into cells, their
// painting and hit test, and the operations on single cells.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/DrawP.h>
#include <Xm/PushB.h>
#include <Xm/RepType.h>
#include <Xm/Text.h>
#include <Xwk/ComboBox.h>

#include <algorithm>
#include <cctype>
#include <cstring>

using namespace xwk::tree;

namespace {

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

// The first word of a cell's editor words holds the block of its row's cells.
XmPrjTreeCellRec *CellBlock(XmPrjTreeCellRec *cell)
{
    return (XmPrjTreeCellRec *)cell->editor[0];
}

// A row's cells stand in one block, in column order, so that a cell is
// found by its number; the block goes with the last element of the list.
void FreeCell(XwkListNode *e)
{
    auto *cell = (XmPrjTreeCellRec *)e->data;
    if (!cell)
        return;
    XtFree(cell->text);
    cell->text = nullptr;
    if (cell->string)
        XmStringFree(cell->string);
    cell->string = nullptr;
    e->data = nullptr;
    if (!e->next)
        XtFree((char *)CellBlock(cell));
}

bool ComboType(int type)
{
    return type == XmCELL_DROP_DOWN_COMBO_BOX || type == XmCELL_DROP_DOWN_LIST;
}

bool TextType(int type)
{
    return type == XmCELL_LABEL || type == XmCELL_EDIT_TEXT || type == XmCELL_PUSH_BUTTON ||
           ComboType(type);
}

char *FirstComboEntry(XmPrjTreeColumnRec *c)
{
    if (!c || !c->comboItems || c->comboCount < 1)
        return nullptr;
    char *text = nullptr;
    XmStringGetLtoR(c->comboItems[0], (XmStringCharSet)XmFONTLIST_DEFAULT_TAG, &text);
    return text;
}

// Sets a cell's text and measures it; the compound string is made when the
// cell is painted.
void SetCellText(Widget w, XwkTreeNode *node, XmPrjTreeCellRec *cell, const char *text)
{
    XtFree(cell->text);
    cell->text = XtNewString(text ? text : "");
    if (cell->string)
        XmStringFree(cell->string);
    cell->string = nullptr;
    MeasureText(w, cell->text, CharsetOf(w, Item(node)), &cell->width, &cell->height);
}

void GrowRow(XwkTreeNode *node, XmPrjTreeCellRec *cell)
{
    XmPrjTreeItem item = Item(node);
    if (cell->width > item->width)
        item->width = cell->width;
    if (cell->height > item->height)
        item->height = cell->height;
}

Widget OwnerOf(Widget w, XwkTreeNode *node)
{
    return IsTree(w) && Alive(w) && M(w).tree && node && Item(node) && OwnNode(w, node) ? w
                                                                                         : nullptr;
}

// After a cell changed: a pass and a full repaint when the row grew
// taller than the rows, else the row alone.
void CellChanged(Widget w, XwkTreeNode *node)
{
    XmPrjTreePart &m = M(w);
    Dimension old = m.rowHeight;
    GrowForItem(w, Item(node));
    GeometryChanged(w);
    if (P(w).dontMove)
        return;
    if (m.rowHeight != old) {
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, true);
    } else if (!Hidden(w, node)) {
        XmPrjTreeUpdateNode(w, node);
    }
}

bool IsActiveCell(Widget w, XwkTreeNode *node, int column)
{
    XmPrjTreePart &m = M(w);
    return m.cellActive && m.cellNodeId == node && m.cellColumn == column;
}

Dimension ComboArrowWidth(Widget view)
{
    XmPrjTreePart &m = M(view);
    if (m.comboArrowWidth)
        return m.comboArrowWidth;
    Widget combo = MakeEditor(view, 1);
    XtResizeWidget(combo, std::max(1, (int)m.rowWidth),
                   std::max(1, (int)m.rowHeight - (P(view).showGrid ? 1 : 0)), 0);
    XtWidgetGeometry geo;
    if (Widget arrow = XwkComboBoxGetArrow(combo)) {
        XtQueryGeometry(arrow, nullptr, &geo);
        m.comboArrowWidth = (geo.request_mode & CWWidth) ? geo.width : arrow->core.width;
    }
    if (!m.comboArrowWidth)
        m.comboArrowWidth = m.rowHeight;
    return m.comboArrowWidth;
}

}  // namespace

namespace xwk::tree {

bool Editable(int type)
{
    return type >= XmCELL_EDIT_TEXT && type <= XmCELL_PUSH_BUTTON;
}

XmPrjTreeCellRec *CellOf(XwkTreeNode *node, int column)
{
    XmPrjTreeItem item = Item(node);
    XmPrjTreeItemExtRec *ext = item ? ExtOf(item) : nullptr;
    if (!ext || !ext->cells || column < 1)
        return nullptr;
    // The block avoids a walk through the list: sorting a large table by
    // an application's comparison looks cells up millions of times.
    if (ext->cellBlock && column <= ext->cellCount) {
        XmPrjTreeCellRec *cell = &ext->cellBlock[column - 1];
        if (cell->column == column)
            return cell;
    }
    for (XwkListNode *e = ext->cells->first; e; e = e->next) {
        auto *cell = (XmPrjTreeCellRec *)e->data;
        if (cell && cell->column == column)
            return cell;
    }
    return nullptr;
}

void ParseCells(Widget w, XwkTreeNode *node, bool first)
{
    XmPrjTreePart &m = M(w);
    if (!m.columns)
        return;
    XmPrjTreeItemExtRec *ext = Ext(node);
    if (first || !ext->cells) {
        if (ext->cells)
            l_destroy(ext->cells);
        ext->cells = l_create(FreeCell, nullptr);
        ext->cellBlock = nullptr;
        ext->cellCount = 0;
        first = true;
    }
    XmPrjTreeItem item = Item(node);
    const char *s = LabelOf(item);
    if (!s)
        s = "";
    const char *charset = CharsetOf(w, item);
    item->width = 0;
    item->height = 0;
    XwkListNode *next = first ? nullptr : ext->cells->first;
    XmPrjTreeCellRec *block = nullptr;
    if (first) {
        block = (XmPrjTreeCellRec *)XtCalloc((Cardinal)m.columns->count, sizeof(XmPrjTreeCellRec));
        ext->cellBlock = block;
        ext->cellCount = (int)m.columns->count;
    }
    int p = 1;
    for (XwkListNode *ce = m.columns->first; ce; ce = ce->next, p++) {
        const char *end = ce->next && m.delimeter ? strchr(s, m.delimeter) : nullptr;
        size_t len = end ? (size_t)(end - s) : strlen(s);
        const char *piece = s;
        s += len;
        if (*s)
            s++;
        while (len && isspace((unsigned char)piece[len - 1]))
            len--;
        XmPrjTreeCellRec *cell;
        if (first) {
            cell = &block[p - 1];
            cell->editor[0] = (XtPointer)block;
            cell->element = l_append(ext->cells, (XtPointer)cell);
        } else {
            if (!next)
                break;
            cell = (XmPrjTreeCellRec *)next->data;
            next = next->next;
        }
        XtFree(cell->text);
        cell->text = nullptr;
        if (cell->string)
            XmStringFree(cell->string);
        cell->string = nullptr;
        if (len > 0 && !cell->combo) {
            cell->text = XtMalloc(len + 1);
            memcpy(cell->text, piece, len);
            cell->text[len] = 0;
        }
        XmPrjTreeColumnRec *column = m.columnsPermuted ? ColumnByNumber(w, p) : ColumnOf(ce);
        if (!column)
            column = ColumnOf(ce);
        if (first) {
            cell->type = column->cellType;
            if (cell->type < 0 || cell->type > XmCELL_PUSH_BUTTON)
                cell->type = XmCELL_LABEL;
        }
        cell->width = cell->height = 0;
        if (ComboType(cell->type)) {
            cell->comboPosition = 1;
            if (!cell->text || !*cell->text) {
                char *entry = FirstComboEntry(column);
                XtFree(cell->text);
                cell->text = entry ? entry : nullptr;
            }
        }
        if (TextType(cell->type)) {
            if (!cell->text)
                cell->text = XtNewString("");
            MeasureText(w, cell->text, charset, &cell->width, &cell->height);
        } else if (cell->icon) {
            cell->width = (Dimension)IconWidth(cell->icon);
            cell->height = (Dimension)IconHeight(cell->icon);
        }
        if (p == 1 && IconOf(item))
            cell->width = (Dimension)(cell->width + IconWidth(IconOf(item)) + m.hPad);
        item->width = std::max(item->width, cell->width);
        item->height = std::max(item->height, cell->height);
        if (first)
            cell->alignment = column->cellAlignment == -1 ? (signed char)column->alignment
                                                          : column->cellAlignment;
        cell->column = p;
        cell->columnRec = column;
        cell->combo = ComboType(cell->type);
    }
    if (!item->height)
        item->height = m.labelHeight;
}

void AccumulateColumnWidths(Widget view)
{
    XmPrjTreePart &m = M(view);
    if (m.columnsPermuted || !m.columns || m.columns->count < 2)
        return;
    for (XwkListNode *e = m.columns->first; e; e = e->next)
        ColumnOf(e)->sum = 0;
    int rows = 0;
    XwkTreeNode *root = m.tree->root;
    for (XwkTreeNode *n = root->first_child; n; n = PreorderNext(n, root)) {
        if (Hidden(view, n))
            continue;
        XmPrjTreeItemExtRec *ext = Item(n) ? ExtOf(Item(n)) : nullptr;
        if (!ext || !ext->cells)
            continue;
        rows++;
        for (XwkListNode *e = ext->cells->first; e; e = e->next) {
            auto *cell = (XmPrjTreeCellRec *)e->data;
            if (cell && cell->columnRec)
                cell->columnRec->sum += cell->width;
        }
    }
    if (!rows)
        return;
    for (XwkListNode *e = m.columns->first; e; e = e->next) {
        XmPrjTreeColumnRec *c = ColumnOf(e);
        int mean = c->sum / rows;
        if (mean > c->width)
            c->width = (Dimension)mean;
    }
}

// The rectangle of a cell on a view, from the columns as last placed;
// false when its column is not on the bar.
bool CellRect(Widget view, XwkTreeNode *node, int column, XRectangle *cell)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    auto &shown = S(view).shown;
    int row = RowOf(view, node);
    for (size_t i = 0; i < shown.size(); i++) {
        if (shown[i].column->number != column)
            continue;
        bool last = i + 1 == shown.size();
        int right = (int)view->core.width - Shadow(view) - v.treeMarginWidth;
        int x = shown[i].x;
        int width = last ? right - x : shown[i + 1].column->x - m.hPad - x;
        width = std::max(0, width);
        int margin = m.titleMargin, ht = v.highlightThickness;
        int left = x - 2 * margin, w = 4 * margin + width;
        if (i == 0) {
            left -= ht;
            w += ht;
        } else {
            w -= ht;
        }
        cell->x = (short)left;
        cell->y = (short)RowY(view, row);
        cell->width = (unsigned short)std::max(1, w);
        cell->height = (unsigned short)std::max(1, (int)m.rowHeight - (v.showGrid ? 1 : 0));
        return true;
    }
    return false;
}

bool CellAt(Widget view, XwkTreeNode *node, int row_y, int x, int *column, int *cell_type,
            XRectangle *cell)
{
    auto &shown = S(view).shown;
    *column = 0;
    *cell_type = XmCELL_NONE;
    memset(cell, 0, sizeof *cell);
    if (shown.empty())
        LayOutColumns(view);
    for (size_t i = 0; i < shown.size(); i++) {
        bool last = i + 1 == shown.size();
        if (!last && x >= shown[i + 1].column->x)
            continue;
        *column = shown[i].column->number;
        XmPrjTreeCellRec *c = CellOf(node, *column);
        *cell_type = c ? c->type : XmCELL_NONE;
        CellRect(view, node, *column, cell);
        cell->y = (short)row_y;
        return true;
    }
    return false;
}

void PaintCells(Widget view, XwkTreeNode *node, int y, GC text)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    Display *dpy = XtDisplay(view);
    Window win = XtWindow(view);
    auto &shown = S(view).shown;
    XmPrjTreeItem item = Item(node);
    int bottom = (int)view->core.height - Shadow(view) - v.treeMarginHeight;
    int area_left = Shadow(view) + v.treeMarginWidth;
    int area_right = (int)view->core.width - area_left;
    int limit = m.title ? m.title->arrowLeftX - m.titleMargin : area_right;
    for (size_t i = 0; i < shown.size(); i++) {
        XmPrjTreeColumnRec *col = shown[i].column;
        bool last = i + 1 == shown.size();
        int x = shown[i].x;
        if (v.showGrid && v.gridGC && !last)
            XFillRectangle(dpy, win, v.gridGC, x + shown[i].width + m.titleMargin + m.hPad, y, 1,
                           std::max(0, (int)m.rowHeight - 1));
        XmPrjTreeCellRec *cell = CellOf(node, col->number);
        if (!cell)
            continue;
        XRectangle rect;
        CellRect(view, node, col->number, &rect);
        rect.y = (short)y;
        int width = last ? area_right - x : shown[i + 1].column->x - m.hPad - x;
        width = std::max(0, width);
        if (i == 0 && IconOf(item) && m.iconWidth) {
            int indent = LabelX(view, node) + m.hPad - x;
            if (indent > 0) {
                x += indent;
                width = std::max(0, width - indent);
            }
        }
        if (IsActiveCell(view, node, col->number) && XtParent(m.cellActive) == view) {
            PlaceEditor(view, node, rect);
            continue;
        }
        if ((cell->type <= XmCELL_DROP_DOWN_LIST && cell->type != XmCELL_ICON &&
             cell->type != XmCELL_TOGGLE_ICON) &&
            cell->text && !strcmp(cell->text, " "))
            continue;
        if (x >= limit)
            continue;
        if (cell->type == XmCELL_ICON || cell->type == XmCELL_TOGGLE_ICON) {
            if (cell->icon) {
                int ix = cell->alignment == 1 ? x + (width - IconWidth(cell->icon)) / 2 : x;
                DrawIcon(view, cell->icon, ix, y + ((int)m.rowHeight - IconHeight(cell->icon)) / 2,
                         true, x + width);
            }
            continue;
        }
        if (!cell->text)
            continue;
        if (!cell->string)
            cell->string = XmStringCreate(cell->text, (XmStringCharSet)CharsetOf(view, item));
        int tx = x, tw = width;
        if (cell->combo)
            tw = std::max(0, tw - m.titleMargin - ComboArrowWidth(view));
        if (cell->type == XmCELL_PUSH_BUTTON && cell->alignment) {
            tx = rect.x + v.highlightThickness;
            tw = std::max(0, (int)rect.width - 2 * v.highlightThickness);
        }
        int align;
        if (tw < cell->width)
            align = cell->type == XmCELL_EDIT_TEXT ? 2 : 0;
        else if (cell->alignment >= 0)
            align = cell->alignment;
        else if (col->cellAlignment >= 0)
            align = col->cellAlignment;
        else
            align = col->alignment;
        unsigned char xa = align == 1 ? XmALIGNMENT_CENTER
                           : align == 2 ? XmALIGNMENT_END : XmALIGNMENT_BEGINNING;
        int cl = std::max(tx, area_left), cr = std::min(tx + tw, area_right);
        int ct = std::max(y, area_left), cb = std::min(y + (int)m.rowHeight, bottom);
        if (cr > cl && cb > ct) {
            XRectangle clip = {(short)cl, (short)ct, (unsigned short)(cr - cl),
                               (unsigned short)(cb - ct)};
            XmStringDraw(dpy, win, m.fontList, cell->string, text, (Position)tx,
                         (Position)(y + ((int)m.rowHeight - m.vPad - m.labelHeight) / 2),
                         (Dimension)std::max(1, tw), xa, XmSTRING_DIRECTION_L_TO_R, &clip);
        }
        auto *mgr = (XmManagerWidget)view;
        if (cell->combo && width > ComboArrowWidth(view)) {
            int aw = ComboArrowWidth(view);
            XSetForeground(dpy, v.eraseGC, m.titleBackground);
            _XwkComboBoxDrawArrowButton(dpy, win, mgr->manager.top_shadow_GC,
                                        mgr->manager.bottom_shadow_GC, v.eraseGC, 1,
                                        rect.x + rect.width - aw, rect.y, aw, rect.height, False,
                                        True);
            XSetForeground(dpy, v.eraseGC, view->core.background_pixel);
        }
        if (cell->type == XmCELL_PUSH_BUTTON)
            XmeDrawShadows(dpy, win, mgr->manager.top_shadow_GC, mgr->manager.bottom_shadow_GC,
                           rect.x, rect.y, rect.width, rect.height, 1, XmSHADOW_OUT);
    }
}

}  // namespace xwk::tree

extern "C" {

int XmPrjTreeSetColumnItem(Widget w, XmPrjTreeNode node, int column, int type, int alignment,
                           XtPointer value)
{
    if (!OwnerOf(w, node) || !M(w).columns)
        return 0;
    XmRepTypeId id = XmRepTypeGetId((String) "cellType");
    if (type < 0 || type > 255 || !XmRepTypeValidValue(id, (unsigned char)type, w))
        return 0;
    if (alignment > 2 || alignment < 0)
        alignment = 0;
    if (type == XmCELL_EDIT_TEXT)
        MakeEditor(w, 0);
    else if (ComboType(type))
        MakeEditor(w, 1);
    else if (type == XmCELL_PUSH_BUTTON)
        MakeEditor(w, 2);
    XmPrjTreeItemExtRec *ext = Ext(node);
    if (!ext->cells)
        ParseCells(w, node, true);
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell)
        return 0;
    cell->type = type;
    cell->alignment = (signed char)alignment;
    cell->combo = ComboType(type);
    XmPrjTreePart &m = M(w);
    bool active = IsActiveCell(w, node, column);
    switch (type) {
    case XmCELL_EDIT_TEXT:
        if (active && XmIsText(m.cellActive)) {
            XmTextSetString(m.cellActive, value ? (char *)value : (char *)"");
            XmTextSetInsertionPosition(m.cellActive, XmTextGetLastPosition(m.cellActive));
        }
        break;
    case XmCELL_ICON:
    case XmCELL_TOGGLE_ICON:
        cell->icon = (XwkIcon *)value;
        cell->width = (Dimension)IconWidth(cell->icon);
        cell->height = (Dimension)IconHeight(cell->icon);
        break;
    case XmCELL_LABEL:
    case XmCELL_PUSH_BUTTON:
        SetCellText(w, node, cell, (const char *)value);
        if (active && XmIsPushButton(m.cellActive)) {
            XmString s = XmStringCreateLocalized(cell->text);
            XtVaSetValues(m.cellActive, XmNlabelString, s, XmNalignment,
                          alignment == 1 ? XmALIGNMENT_CENTER
                          : alignment == 2 ? XmALIGNMENT_END : XmALIGNMENT_BEGINNING, NULL);
            XmStringFree(s);
        }
        break;
    default:
        if (active && m.cellActive == P(XtParent(m.cellActive)).cellComboBox)
            XmTextSetString(XwkComboBoxGetText(m.cellActive), value ? (char *)value : (char *)"");
        break;
    }
    GrowRow(node, cell);
    CellChanged(w, node);
    return 1;
}

int XmPrjTreeSetColumnLabel(Widget w, XmPrjTreeNode node, int column, const char *text)
{
    if (!OwnerOf(w, node))
        return 0;
    XmPrjTreePart &m = M(w);
    if (!TableMode(w)) {
        XmPrjTreeRenameItem(w, node, text, nullptr);
        return 1;
    }
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell)
        return 0;
    if (cell->type == XmCELL_ICON || cell->type == XmCELL_TOGGLE_ICON) {
        XtFree(cell->text);
        cell->text = XtNewString(text ? text : "");
    } else {
        SetCellText(w, node, cell, text);
        GrowRow(node, cell);
    }
    if (IsActiveCell(w, node, column)) {
        Widget e = m.cellActive;
        if (XmIsText(e)) {
            char *now = XmTextGetString(e);
            if (strcmp(now, cell->text))
                XmTextSetString(e, cell->text);
            XtFree(now);
        } else if (XmIsPushButton(e)) {
            XmString s = XmStringCreateLocalized(cell->text);
            XtVaSetValues(e, XmNlabelString, s, NULL);
            XmStringFree(s);
        }
    }
    CellChanged(w, node);
    return 1;
}

char *XmPrjTreeGetColumnLabel(Widget w, XmPrjTreeNode node, int column)
{
    if (!OwnerOf(w, node))
        return nullptr;
    if (IsActiveCell(w, node, column))
        CommitCell(w);
    if (!TableMode(w))
        return LabelOf(Item(node));
    XmPrjTreeCellRec *cell = CellOf(node, column);
    return cell ? cell->text : nullptr;
}

XwkIcon *XmPrjTreeGetColumnIcon(Widget w, XmPrjTreeNode node, int column)
{
    if (!OwnerOf(w, node))
        return nullptr;
    if (!TableMode(w))
        return IconOf(Item(node));
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell || (cell->type != XmCELL_ICON && cell->type != XmCELL_TOGGLE_ICON))
        return nullptr;
    return cell->icon;
}

int XmPrjTreeSetColumnIcon(Widget w, XmPrjTreeNode node, int column, XwkIcon *icon)
{
    if (!OwnerOf(w, node))
        return 0;
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell || (cell->type != XmCELL_ICON && cell->type != XmCELL_TOGGLE_ICON))
        return 0;
    cell->icon = icon;
    cell->width = (Dimension)IconWidth(icon);
    cell->height = (Dimension)IconHeight(icon);
    GrowRow(node, cell);
    CellChanged(w, node);
    return 1;
}

int XmPrjTreeGetCellType(Widget w, XmPrjTreeNode node, int column)
{
    if (!OwnerOf(w, node))
        return 255;
    XmPrjTreeCellRec *cell = CellOf(node, column);
    return cell ? cell->type : 255;
}

int XmPrjTreeSetCellType(Widget w, XmPrjTreeNode node, int column, int type)
{
    if (!OwnerOf(w, node))
        return 0;
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell || type < 0 || type > XmCELL_PUSH_BUTTON)
        return 0;
    cell->type = type;
    cell->combo = ComboType(type);
    if (!P(w).dontMove && !Hidden(w, node))
        XmPrjTreeUpdateNode(w, node);
    return 1;
}

int XmPrjTreeSetComboBoxItems(Widget w, int column, XmStringTable items, int count)
{
    if (!IsTree(w) || !Alive(w))
        return 0;
    XmPrjTreeColumnRec *c = ColumnByNumber(w, column);
    if (!c)
        return 0;
    if (!ComboType(c->cellType))
        c->cellType = XmCELL_DROP_DOWN_COMBO_BOX;
    c->comboItems = items;
    c->comboCount = items ? std::max(0, count) : 0;
    return 1;
}

XmStringTable XmPrjTreeGetComboBoxItems(Widget w, int column, int *count)
{
    if (count)
        *count = 0;
    if (!IsTree(w) || !Alive(w))
        return nullptr;
    XmPrjTreeColumnRec *c = ColumnByNumber(w, column);
    if (!c)
        return nullptr;
    if (count)
        *count = c->comboCount;
    return c->comboItems;
}

int XmPrjTreeSetColumnComboBoxPosition(Widget w, XmPrjTreeNode node, int column, int position)
{
    if (!OwnerOf(w, node))
        return 0;
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell)
        return 0;
    if (!cell->combo) {
        cell->type = XmCELL_DROP_DOWN_COMBO_BOX;
        cell->combo = True;
    }
    cell->comboPosition = position;
    XmPrjTreeColumnRec *c = cell->columnRec;
    if (position >= 1 && c && c->comboItems && position <= c->comboCount) {
        char *text = nullptr;
        if (XmStringGetLtoR(c->comboItems[position - 1], (XmStringCharSet)XmFONTLIST_DEFAULT_TAG,
                            &text)) {
            XmPrjTreeSetColumnLabel(w, node, column, text);
            XtFree(text);
        }
    }
    return 1;
}

int XmPrjTreeGetColumnComboBoxPosition(Widget w, XmPrjTreeNode node, int column)
{
    if (!OwnerOf(w, node))
        return 0;
    XmPrjTreeCellRec *cell = CellOf(node, column);
    if (!cell)
        return 0;
    if (IsActiveCell(w, node, column))
        CommitCell(w);
    return cell->comboPosition;
}

int XmPrjTreeRenameItem(Widget w, XmPrjTreeNode node, const char *label, XwkIcon *icon)
{
    if (!OwnerOf(w, node) || (!label && !icon) || RowCount(w) == 0)
        return 0;
    XmPrjTreePart &m = M(w);
    Dimension old_w = m.rowWidth, old_h = m.rowHeight;
    if (label) {
        XmPrjTreeItemExtRec *ext = Ext(node);
        char *copy = XtNewString(label);
        XtFree(ext->label);
        ext->label = copy;
        ForgetString(w, node);
    }
    if (icon)
        SetIcon(node, icon);
    XmPrjTreeItem item = Item(node);
    if (TableMode(w))
        ParseCells(w, node, false);
    else
        MeasureItem(w, item);
    GrowForItem(w, Item(node));
    if (icon && IconWidth(icon) > m.iconWidth)
        GeometryChanged(w);
    if (P(w).dontMove)
        return 1;
    if (m.rowWidth == old_w && m.rowHeight == old_h && IconWidth(icon) <= m.iconWidth) {
        if (!Hidden(w, node))
            XmPrjTreeUpdateNode(w, node);
    } else {
        LayoutPass(w);
        ConfigureAllScrollBars(w);
        RepaintAll(w, true);
    }
    return 1;
}

}  // extern "C"
