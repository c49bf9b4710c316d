// Columns of a list with a title bar: the title string parsed into column
// records, where the columns stand on a view, and the operations on title
// items and columns.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"
#include "frame/xmstring_private.h"

#include <Xm/XmP.h>
#include <Xm/PrimitiveP.h>
#include <Xm/RepType.h>
#include <Xm/ScrolledWP.h>
#include <Xwk/Text.h>

#include <algorithm>
#include <cstring>
#include <string>

using namespace xwk::tree;

namespace {

Dimension Shadow(Widget w)
{
    return ((XmManagerWidget)w)->manager.shadow_thickness;
}

void FreeColumn(XwkListNode *e)
{
    auto *c = (XmPrjTreeColumnRec *)e->data;
    if (!c)
        return;
    if (c->xmLabelBold && c->xmLabelBold != c->xmLabel)
        XmStringFree(c->xmLabelBold);
    if (c->xmLabel)
        XmStringFree(c->xmLabel);
    XtFree(c->label);
    XtFree((char *)c->button);
    XtFree((char *)c);
    e->data = nullptr;
}

// Makes the title strings of a column and measures them; the width is
// taken from the string only while the column has none.
void MakeStrings(Widget w, XmPrjTreeColumnRec *c)
{
    XmPrjTreePart &m = M(w);
    if (c->xmLabelBold && c->xmLabelBold != c->xmLabel)
        XmStringFree(c->xmLabelBold);
    if (c->xmLabel)
        XmStringFree(c->xmLabel);
    const char *text = smi18n_gettext(c->label ? c->label : "");
    c->xmLabel = xwk::LinesString(text, (XmStringTag)m.defaultCharSet);
    bool same = !m.selectCharSet || !m.defaultCharSet || !strcmp(m.selectCharSet, m.defaultCharSet);
    c->xmLabelBold = same ? c->xmLabel
                          : xwk::LinesString(text, (XmStringTag)m.selectCharSet);
    Dimension width = 0, height = 0, bw = 0, bh = 0;
    XmStringExtent(TitleFonts(w), c->xmLabel, &width, &height);
    if (c->xmLabelBold != c->xmLabel) {
        XmStringExtent(TitleFonts(w), c->xmLabelBold, &bw, &bh);
        width = std::max(width, bw);
        height = std::max(height, bh);
    }
    if (!c->width)
        c->width = width;
    c->height = height;
}

// Columns start inside the bar's own shadow; without a bar, inside the
// list's.
int BarShadow(Widget view)
{
    Widget tw = P(view).titleWidget;
    return tw ? ((XmPrimitiveWidget)tw)->primitive.shadow_thickness : Shadow(view);
}

int ColumnsStart(Widget view)
{
    XmPrjTreePart &v = P(view);
    return BarShadow(view) + M(view).hPad + v.treeMarginWidth + v.highlightThickness;
}

bool Bad(Widget w)
{
    return !IsTree(w) || !Alive(w) || !M(w).title;
}

XmPrjTreeColumnRec *Find(Widget w, int column)
{
    return Bad(w) ? nullptr : ColumnByNumber(w, column);
}

// The title height follows the tallest column; the scrolled window keeps
// room for it above the rows.
void UpdateTitleHeight(Widget w, bool only_grow)
{
    XmPrjTreePart &m = M(w);
    int highest = 0;
    for (XwkListNode *e = m.columns->first; e; e = e->next)
        highest = std::max(highest, (int)ColumnOf(e)->height);
    int height = highest + 2 * m.titleMargin + 4;
    if (only_grow && height <= m.titleHeight)
        return;
    m.titleHeight = (Dimension)height;
    for (Widget v : Views(w))
        PlaceTitle(v);
}

void TitleChanged(Widget w)
{
    if (!M(w).dontMove)
        RepaintTitles(w);
}

}  // namespace

namespace xwk::tree {

XmFontList TitleFonts(Widget w)
{
    XmPrjTreePart &m = M(w);
    return m.titleFontList ? m.titleFontList : m.fontList;
}

int ColumnGap(Widget w)
{
    return 2 * M(w).titleMargin + M(w).hPad;
}

XmPrjTreeColumnRec *ColumnByNumber(Widget w, int number)
{
    XmPrjTreePart &m = M(w);
    if (!m.columns || number == 0)
        return nullptr;
    number = std::abs(number);
    for (XwkListNode *e = m.columns->first; e; e = e->next)
        if (std::abs(ColumnOf(e)->number) == number)
            return ColumnOf(e);
    return nullptr;
}

void ParseTitle(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (!m.title)
        m.title = (XmPrjTreeTitleRec *)XtCalloc(1, sizeof(XmPrjTreeTitleRec));
    if (m.columns)
        l_destroy(m.columns);
    m.columns = l_create(FreeColumn, (XtPointer)m.title);
    m.columnsPermuted = False;
    m.sortHasRun = False;
    int count = std::max(1, m.numColumns);
    const char *s = m.titleString ? m.titleString : "";
    for (int i = 1; i <= count; i++) {
        const char *end = i < count ? strchr(s, m.delimeter) : nullptr;
        if (!m.delimeter)
            end = nullptr;
        size_t len = end ? (size_t)(end - s) : strlen(s);
        auto *c = (XmPrjTreeColumnRec *)XtCalloc(1, sizeof(XmPrjTreeColumnRec));
        c->tree = w;
        c->number = i;
        c->label = XtNewString(std::string(s, len).c_str());
        c->itemType = m.titleItemType;
        c->cellType = m.titleItemType;
        c->alignment = m.titleItemAlignment > 2 ? 0 : m.titleItemAlignment;
        c->cellAlignment = -1;
        c->flags = 2;
        c->element = l_append(m.columns, (XtPointer)c);
        MakeStrings(w, c);
        s += len;
        if (*s)
            s++;
    }
    m.title->firstColumn = m.columns->first;
    m.title->laidOut = False;
    UpdateTitleHeight(w, false);
}

void FreeTitle(Widget w)
{
    XmPrjTreePart &m = P(w);
    if (m.columns)
        l_destroy(m.columns);
    m.columns = nullptr;
    XtFree((char *)m.title);
    m.title = nullptr;
}

void LayOutColumns(Widget view)
{
    XmPrjTreePart &m = M(view);
    XmPrjTreePart &v = P(view);
    State &s = S(view);
    s.shown.clear();
    XmPrjTreeTitleRec *t = m.title;
    if (!t || !m.columns)
        return;
    int width = view->core.width;
    int shadow = Shadow(view);
    if (m.useTitleScrolling) {
        t->arrowLeftX = (short)(width - 2 * (shadow + t->arrowWidth + v.highlightThickness) - 1);
        t->arrowRightX = (short)(t->arrowLeftX + t->arrowWidth + shadow);
    } else {
        t->arrowLeftX = t->arrowRightX = (short)(width - shadow - m.hPad);
    }
    int limit = t->arrowLeftX;
    int gap = ColumnGap(view);
    if (!t->firstColumn)
        t->firstColumn = m.columns->first;
    t->canScrollLeft = t->firstColumn != m.columns->first;
    t->canScrollRight = False;
    int x = ColumnsStart(view);
    bool first = true;
    for (XwkListNode *e = t->firstColumn; e; e = e->next) {
        XmPrjTreeColumnRec *c = ColumnOf(e);
        if (c->number < 0)
            continue;
        int content = x;
        if (!first) {
            if (x + gap >= limit) {
                t->canScrollRight = True;
                break;
            }
            content = x + gap;
        }
        c->x = (short)x;
        bool last = true;
        for (XwkListNode *n = e->next; n; n = n->next)
            if (ColumnOf(n)->number > 0)
                last = false;
        int w;
        if (m.columns->count < 2 || m.numColumns < 2) {
            // A lone column has the bar to itself: it has no scroll arrows.
            w = std::max(0, width - BarShadow(view) - content);
        } else if (last) {
            w = std::max(0, limit - content);
            if ((c->flags & 2) && w > 0)
                c->width = (Dimension)w;
        } else {
            w = c->width;
            if (content + w > limit) {
                w = std::max(0, limit - content);
                t->canScrollRight = True;
            }
        }
        s.shown.push_back({c, content, w});
        first = false;
        x = content + w;
        if (t->canScrollRight)
            break;
    }
    t->columnsShown = (int)s.shown.size();
}

bool ScrollToColumn(Widget view, int number)
{
    XmPrjTreePart &m = M(view);
    if (!m.title || !m.columns)
        return false;
    LayOutColumns(view);
    for (auto &sh : S(view).shown)
        if (sh.column->number == number && (sh.x + sh.width <= m.title->arrowLeftX ||
                                            &sh == &S(view).shown.front()))
            return false;
    XmPrjTreeColumnRec *target = ColumnByNumber(view, number);
    if (!target || target->number < 0)
        return false;
    // From the left, the first start from which the columns up to the
    // target fit in the bar.
    int room = m.title->arrowLeftX - ColumnsStart(view);
    XwkListNode *start = m.columns->first;
    for (;;) {
        int sum = 0;
        bool fits = false;
        for (XwkListNode *e = start; e; e = e->next) {
            XmPrjTreeColumnRec *c = ColumnOf(e);
            if (c->number < 0)
                continue;
            sum += c->width + (e == start ? 0 : ColumnGap(view));
            if (c == target) {
                fits = sum <= room || e == start;
                break;
            }
        }
        if (fits || start == target->element)
            break;
        start = start->next;
    }
    if (start == m.title->firstColumn)
        return false;
    m.title->firstColumn = start;
    if (!P(view).dontMove) {
        RepaintTitles(view);
        RepaintRows(view);
    }
    return true;
}

void RepaintRows(Widget w)
{
    if (P(w).dontMove)
        return;
    RepaintAll(w, true);
}

}  // namespace xwk::tree

extern "C" {

int XmPrjTreeSetTitleItem(Widget w, int column, int type, int alignment, XtPointer value)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    c->itemType = type;
    if (alignment >= 0 && alignment <= 2)
        c->alignment = (unsigned char)alignment;
    if (type == XmCELL_ICON || type == XmCELL_TOGGLE_ICON) {
        c->icon = (XwkIcon *)value;
        c->width = (Dimension)IconWidth(c->icon);
        c->height = (Dimension)IconHeight(c->icon);
    } else {
        XtFree(c->label);
        c->label = XtNewString(value ? (char *)value : "");
        MakeStrings(w, c);
    }
    UpdateTitleHeight(w, true);
    TitleChanged(w);
    return 0;
}

int XmPrjTreeSetTitleItemLabel(Widget w, int column, const char *label)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    if (c->itemType != XmCELL_LABEL)
        return 0;
    XtFree(c->label);
    c->label = XtNewString(label ? label : "");
    MakeStrings(w, c);
    UpdateTitleHeight(w, true);
    TitleChanged(w);
    return 0;
}

char *XmPrjTreeGetTitleItemLabel(Widget w, int column)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    return c ? c->label : nullptr;
}

int XmPrjTreeSetTitleItemAlignment(Widget w, int column, int alignment)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    c->alignment = (unsigned char)(alignment > 2 || alignment < 0 ? 0 : alignment);
    TitleChanged(w);
    return 0;
}

int XmPrjTreeSetTitleItemType(Widget w, int column, int type)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    XmRepTypeId id = XmRepTypeGetId((String) "cellType");
    if (type < 0 || type > 255 || !XmRepTypeValidValue(id, (unsigned char)type, w))
        return 255;
    c->itemType = type;
    TitleChanged(w);
    return 0;
}

int XmPrjTreeSetTitleItemWidth(Widget w, int column, int width)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    // Never narrower than the icon slot of the rows.
    c->width = (Dimension)std::clamp(std::max(width, (int)M(w).iconWidth), 0, 0xffff);
    TitleChanged(w);
    RepaintRows(w);
    return 0;
}

int XmPrjTreeGetTitleItemWidth(Widget w, int column)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 0;
    return c->number < 0 ? 0 : c->width;
}

int XmPrjTreeSetTitleItemButton(Widget w, int column, XwkIcon *icon, XmPrjTreeTitleButtonProc proc,
                                XtPointer data)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    int width = c->width;
    if (c->buttonIcon)
        width -= IconWidth(c->buttonIcon) + 4;
    else
        width += M(w).hPad;
    width += (icon ? IconWidth(icon) : 0) + 4;
    c->width = (Dimension)std::max(0, width);
    c->buttonIcon = icon;
    if (!c->button)
        c->button = XtMalloc(sizeof(XmPrjTreeTitleButtonRec));
    auto *b = (XmPrjTreeTitleButtonRec *)c->button;
    b->proc = proc;
    b->data = data;
    int h = (icon ? IconHeight(icon) : 0) + 4;
    if (h > c->height)
        c->height = (Dimension)h;
    UpdateTitleHeight(w, true);
    TitleChanged(w);
    return 0;
}

XwkIcon *XmPrjTreeGetTitleItemButtonIcon(Widget w, int column)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    return c ? c->buttonIcon : nullptr;
}

static int ShowOrHide(Widget w, int column, bool show)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    if ((c->number > 0) == show)
        return 0;
    c->number = -c->number;
    if (!show && M(w).cellColumn == std::abs(c->number) && M(w).cellActive) {
        // The editor of a hidden cell commits and goes.
        Widget editor = M(w).cellActive;
        CommitCell(w);
        M(w).cellActive = nullptr;
        if (XtIsManaged(editor))
            XtUnmanageChild(editor);
        M(w).cellActive = editor;
    }
    if (!P(w).dontMove) {
        RepaintTitles(w);
        RepaintRows(w);
    }
    return 0;
}

int XmPrjTreeHideColumn(Widget w, int column) { return ShowOrHide(w, column, false); }
int XmPrjTreeShowColumn(Widget w, int column) { return ShowOrHide(w, column, true); }

int XmPrjTreeSetColumnType(Widget w, int column, int type, int alignment)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    XmRepTypeId id = XmRepTypeGetId((String) "cellType");
    if (type < 0 || type > 255 || !XmRepTypeValidValue(id, (unsigned char)type, w))
        return 255;
    if (type == XmCELL_EDIT_TEXT)
        MakeEditor(w, 0);
    else if (type == XmCELL_DROP_DOWN_COMBO_BOX || type == XmCELL_DROP_DOWN_LIST)
        MakeEditor(w, 1);
    else if (type == XmCELL_PUSH_BUTTON)
        MakeEditor(w, 2);
    c->cellType = type;
    c->cellAlignment = (signed char)(alignment > 2 || alignment < 0 ? 0 : alignment);
    Widget pb = P(w).cellPushButton;
    if (type == XmCELL_PUSH_BUTTON && pb && M(w).cellActive == pb &&
        M(w).cellColumn == std::abs(c->number)) {
        unsigned char a = alignment == 1 ? XmALIGNMENT_CENTER
                                         : alignment == 2 ? XmALIGNMENT_END : XmALIGNMENT_BEGINNING;
        XtVaSetValues(pb, XmNalignment, a, NULL);
    }
    return 0;
}

int XmPrjTreeGetColumnType(Widget w, int column)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    return c ? c->cellType : 255;
}

int XmPrjTreeSetColumnAdjustable(Widget w, int column, Boolean adjustable)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    c->flags = (unsigned char)(adjustable ? c->flags | 2 : c->flags & ~2);
    return 0;
}

int XmPrjTreeSetColumnSortable(Widget w, int column, Boolean sortable)
{
    XmPrjTreeColumnRec *c = Find(w, column);
    if (!c)
        return 255;
    c->flags = (unsigned char)(sortable ? c->flags | 1 : c->flags & ~1);
    TitleChanged(w);
    return 0;
}

int XmPrjTreeSetAllColumnsSortable(Widget w, Boolean sortable)
{
    if (Bad(w))
        return 255;
    for (XwkListNode *e = M(w).columns->first; e; e = e->next) {
        XmPrjTreeColumnRec *c = ColumnOf(e);
        c->flags = (unsigned char)(sortable ? c->flags | 1 : c->flags & ~1);
    }
    TitleChanged(w);
    return 0;
}

int XmPrjTreeGetSortColumn(Widget w, unsigned char *direction)
{
    if (!IsTree(w) || !M(w).title)
        return -1;
    if (direction)
        *direction = P(w).sortDirection;
    return P(w).sortColumn;
}

}  // extern "C"
