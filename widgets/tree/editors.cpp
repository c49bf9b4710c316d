// The three cell editors that a view shares among its editable cells: made
// on demand, placed over the active cell, committing their text back when
// the active cell moves on, and the keys that move it.
#include "widgets/tree/tree.h"
#include "frame/XmPrivate.h"

#include <Xm/XmP.h>
#include <Xm/PushB.h>
#include <Xm/Text.h>
#include <Xwk/ComboBox.h>

#include <algorithm>
#include <cstring>

using namespace xwk::tree;

namespace {

const char cell_keys[] =
    "~c <Key>osfUp: TreeCellKbdKey(u)\n"
    "~c <Key>osfDown: TreeCellKbdKey(d)\n"
    "~c ~s ~m ~a<Key>osfLeft: TreeCellKbdKey(l)\n"
    "~c ~s ~m ~a<Key>osfRight: TreeCellKbdKey(r)\n"
    "~c <Key>osfPageUp: TreeCellKbdKey(U)\n"
    "~c <Key>osfPageDown: TreeCellKbdKey(D)\n"
    "c <Key>osfBeginLine: TreeCellKbdKey(t)\n"
    "c <Key>osfEndLine: TreeCellKbdKey(b)\n"
    "s ~m ~a <Key>Tab: TreeCellKbdKey(p)\n"
    "~m ~a <Key>Tab: TreeCellKbdKey(n)\n"
    ":<Key>osfBackSpace: TreeCellKbdKey(0)\n"
    ":<Key>osfDelete: TreeCellKbdKey(1)\n"
    ":<Key>osfInsert: TreeCellKbdKey(2)";

const char text_arrows[] =
    "~c ~s ~m ~a<Key>osfLeft: TreeCellKbdKey(l) backward-character()\n"
    "~c ~s ~m ~a<Key>osfRight: TreeCellKbdKey(r) forward-character()";

const char button_keys[] =
    "<Key>osfUp: TreeCellKbdKey(u)\n"
    "<Key>osfDown: TreeCellKbdKey(d)\n"
    "<Key>osfLeft: TreeCellKbdKey(l)\n"
    "<Key>osfRight: TreeCellKbdKey(r)\n"
    "<Key>osfPageUp: TreeCellKbdKey(U)\n"
    "<Key>osfPageDown: TreeCellKbdKey(D)\n"
    "<Key>osfBeginLine: TreeCellKbdKey(t)\n"
    "<Key>osfEndLine: TreeCellKbdKey(b)\n"
    "s ~m ~a <Key>Tab: TreeCellKbdKey(p)\n"
    "~m ~a <Key>Tab: TreeCellKbdKey(n)";

XtTranslations Parsed(const char *table)
{
    static XtTranslations cell = nullptr, arrows = nullptr, button = nullptr;
    XtTranslations *slot = table == cell_keys ? &cell : table == text_arrows ? &arrows : &button;
    if (!*slot)
        *slot = XtParseTranslationTable(table);
    return *slot;
}

bool IsTextEditor(Widget e)
{
    return e && XmIsText(e);
}

bool IsComboEditor(Widget e)
{
    return e && IsTree(XtParent(e)) && P(XtParent(e)).cellComboBox == e;
}

// Sets an editor's text without its value callbacks seeing it.
void QuietSetText(Widget text, const char *value)
{
    XtCallbackList saved = nullptr;
    XtVaGetValues(text, XmNvalueChangedCallback, &saved, NULL);
    bool had = XtHasCallbacks(text, XmNvalueChangedCallback) == XtCallbackHasSome;
    std::vector<XtCallbackRec> copy;
    for (XtCallbackList c = had ? saved : nullptr; c && c->callback; c++)
        copy.push_back(*c);
    if (had)
        XtRemoveAllCallbacks(text, XmNvalueChangedCallback);
    XmTextSetString(text, (char *)"");
    XmTextSetString(text, (char *)value);
    XmTextSetInsertionPosition(text, XmTextGetLastPosition(text));
    for (auto &c : copy)
        XtAddCallback(text, XmNvalueChangedCallback, c.callback, c.closure);
}

void Commit(Widget w, Widget editor, XwkTreeNode *node, int column)
{
    if (!editor || !node || !Item(node) || editor->core.being_destroyed)
        return;
    char *text = nullptr;
    Widget field = nullptr;
    if (IsTextEditor(editor)) {
        field = editor;
        text = XmTextGetString(editor);
    } else if (IsComboEditor(editor)) {
        int position = 0;
        XtVaGetValues(editor, XmNselectedPosition, &position, NULL);
        if (XmPrjTreeCellRec *cell = CellOf(node, column))
            cell->comboPosition = position;
        field = XwkComboBoxGetText(editor);
        text = field ? XmTextGetString(field) : nullptr;
    }
    if (text) {
        XmPrjTreeSetColumnLabel(w, node, column, text);
        if (field && Alive(w))
            XmTextSetInsertionPosition(field, XmTextGetLastPosition(field));
    }
    XtFree(text);
}

void ArmButton(XtPointer closure, XtIntervalId *)
{
    auto view = (Widget)closure;
    if (!IsTree(view) || !Alive(view))
        return;
    Widget b = P(view).cellPushButton;
    if (b && XtIsManaged(b))
        XtCallActionProc(b, (String) "ArmAndActivate", nullptr, nullptr, 0);
}

// The next shown column after `after` in display order (0: the first).
std::vector<int> DisplayOrder(Widget w)
{
    std::vector<int> order;
    XmPrjTreePart &m = M(w);
    if (!m.columns)
        return order;
    for (XwkListNode *e = m.columns->first; e; e = e->next)
        if (ColumnOf(e)->number > 0)
            order.push_back(ColumnOf(e)->number);
    return order;
}

bool EditableAt(XwkTreeNode *node, int column)
{
    XmPrjTreeCellRec *cell = CellOf(node, column);
    return cell && Editable(cell->type);
}

// The next editable cell from (node, column), along the rows.
bool NextCell(Widget w, XwkTreeNode **node, int *column)
{
    std::vector<int> order = DisplayOrder(w);
    XwkTreeNode *n = *node;
    int c = *column;
    while (n) {
        size_t start = 0;
        if (c > 0) {
            auto it = std::find(order.begin(), order.end(), c);
            start = it == order.end() ? order.size() : (size_t)(it - order.begin()) + 1;
        }
        for (size_t i = start; i < order.size(); i++)
            if (EditableAt(n, order[i])) {
                *node = n;
                *column = order[i];
                return true;
            }
        n = NextRow(w, n);
        c = 0;
    }
    return false;
}

bool PrevCell(Widget w, XwkTreeNode **node, int *column)
{
    std::vector<int> order = DisplayOrder(w);
    XwkTreeNode *n = *node;
    int c = *column;
    while (n) {
        int start = (int)order.size() - 1;
        if (c >= 1 && c <= M(w).numColumns) {
            auto it = std::find(order.begin(), order.end(), c);
            start = it == order.end() ? -1 : (int)(it - order.begin()) - 1;
        }
        for (int i = start; i >= 0; i--)
            if (EditableAt(n, order[i])) {
                *node = n;
                *column = order[i];
                return true;
            }
        n = PrevRow(w, n);
        c = M(w).numColumns + 1;
    }
    return false;
}

bool VerticalCell(Widget w, XwkTreeNode **node, int column, bool down)
{
    for (XwkTreeNode *n = down ? NextRow(w, *node) : PrevRow(w, *node); n;
         n = down ? NextRow(w, n) : PrevRow(w, n))
        if (EditableAt(n, column)) {
            *node = n;
            return true;
        }
    return false;
}

Widget TreeAbove(Widget w)
{
    for (Widget p = w; p; p = XtParent(p))
        if (IsTree(p))
            return p;
    return nullptr;
}

void DeleteRowFromEditor(Widget view, Widget editor, XEvent *event)
{
    XmPrjTreePart &m = M(view);
    XwkTreeNode *node = m.cellNodeId;
    if (!node || !XmIsText(editor) || !XmTextGetEditable(editor))
        return;
    int column = m.cellColumn;
    XmPrjTreeCallbackStruct data{};
    data.reason = XmCR_TREE_DELETE_ITEM;
    data.event = event;
    data.node = node;
    data.part = XmTREE_PART_ROW;
    data.clientData = Item(node)->clientData;
    data.selected = (Item(node)->flags & XmTREE_ITEM_SELECTED) != 0;
    data.column = column;
    data.cellType = XmCELL_NONE;
    data.doit = True;
    if (m.deleteCallback) {
        unsigned long stamp = Stamp(view);
        XtCallCallbackList(Mother(view), m.deleteCallback, (XtPointer)&data);
        if (!Alive(view) || !Live(view, node, stamp))
            return;
    }
    if (!data.doit)
        return;
    XwkTreeNode *target = node;
    if (!VerticalCell(view, &target, column, false))
        VerticalCell(view, &target, column, true);
    if (target != node)
        ActivateCell(view, target, column, nullptr);
    XmPrjTreeDeleteItem(view, node);
}

void PageCell(Widget view, bool down)
{
    XmPrjTreePart &v = P(view);
    XmPrjTreePart &m = M(view);
    int count = RowCount(view);
    int page = std::max(1, v.visibleRows);
    int column = m.cellColumn;
    if (!down && v.topRow == 0) {
        XwkTreeNode *n = NodeAt(view, 0);
        int c = 0;
        if (n && NextCell(view, &n, &c))
            ActivateCell(view, n, c, nullptr);
        return;
    }
    if (down && v.topRow + page >= count) {
        XwkTreeNode *n = NodeAt(view, count - 1);
        int c = m.numColumns + 1;
        ScrollTo(view, true, std::max(0, count - page));
        if (n && PrevCell(view, &n, &c))
            ActivateCell(view, n, c, nullptr);
        return;
    }
    int top = down ? std::min(v.topRow + page, std::max(0, count - page)) : std::max(0, v.topRow - page);
    ScrollTo(view, true, top);
    ConfigureScrollBars(view);
    XwkTreeNode *n = NodeAt(view, top);
    if (n && !EditableAt(n, column))
        VerticalCell(view, &n, column, true);
    if (n && n != m.cellNodeId)
        ActivateCell(view, n, column, nullptr);
}

}  // namespace

namespace xwk::tree {

Widget MakeEditor(Widget view, int kind)
{
    XmPrjTreePart &v = P(view);
    Arg args[6];
    Cardinal n = 0;
    switch (kind) {
    case 0:
        if (!v.cellTextField) {
            // The field fits a row: no room is lost to margins and frame.
            XtSetArg(args[n], XmNeditMode, XmSINGLE_LINE_EDIT); n++;
            XtSetArg(args[n], XmNshadowThickness, 0); n++;
            XtSetArg(args[n], XmNmarginHeight, 0); n++;
            XtSetArg(args[n], XmNhighlightThickness, 1); n++;
            v.cellTextField = XmCreateText(view, (String) "cellTextField", args, n);
            XtOverrideTranslations(v.cellTextField, Parsed(cell_keys));
            XtOverrideTranslations(v.cellTextField, Parsed(text_arrows));
            XtInstallAccelerators(v.cellTextField, view);
        }
        return v.cellTextField;
    case 1:
        if (!v.cellComboBox) {
            XtSetArg(args[n], XmNshadowType, XmSHADOW_IN); n++;
            XtSetArg(args[n], XmNcomboBoxType, XwkDROP_DOWN_COMBO_BOX); n++;
            v.cellComboBox = XwkCreateComboBox(view, (String) "cellComboBox", args, n);
            if (Widget text = XwkComboBoxGetText(v.cellComboBox))
                XtOverrideTranslations(text, Parsed(cell_keys));
            XtInstallAccelerators(v.cellComboBox, view);
        }
        return v.cellComboBox;
    default:
        if (!v.cellPushButton) {
            v.cellPushButton = XmCreatePushButton(view, (String) "cellPushButton", args, n);
            XtOverrideTranslations(v.cellPushButton, Parsed(button_keys));
            XtInstallAccelerators(v.cellPushButton, view);
        }
        return v.cellPushButton;
    }
}

void RaiseCellManage(Widget w)
{
    XmPrjTreePart &m = M(w);
    if (!m.cellActive || !m.cellManageCallback || !m.cellNodeId || !Item(m.cellNodeId))
        return;
    int reason = XtIsManaged(m.cellActive) ? XmCR_TREE_CELL_MANAGED : XmCR_TREE_CELL_UNMANAGED;
    XmPrjTreeCellRec *cell = CellOf(m.cellNodeId, m.cellColumn);
    CallCallbacks(w, m.cellManageCallback, reason, nullptr, m.cellNodeId, XmTREE_PART_CELL,
                  m.cellColumn, cell ? cell->type : XmCELL_NONE);
}

void CommitCell(Widget w)
{
    XmPrjTreePart &m = M(w);
    Widget editor = m.cellActive;
    if (!editor)
        return;
    m.cellActive = nullptr;
    Commit(w, editor, m.cellNodeId, m.cellColumn);
    if (Alive(w) && !editor->core.being_destroyed)
        m.cellActive = editor;
}

bool ActivateCell(Widget view, XwkTreeNode *node, int column, XEvent *event)
{
    XmPrjTreePart &m = M(view);
    bool spreadsheet = m.visualMode == XmSPREADSHEET;
    Widget old = m.cellActive;
    XwkTreeNode *old_node = m.cellNodeId;
    int old_column = m.cellColumn;
    if (old) {
        m.cellActive = nullptr;
        unsigned long stamp = Stamp(view);
        Commit(view, old, old_node, m.cellColumn);
        if (!Alive(view))
            return false;
        if (!Live(view, node, stamp))
            node = nullptr;
    }
    if (!spreadsheet) {
        if (old && (XtParent(old) != view || !node || !EditableAt(node, column))) {
            if (XtIsManaged(old))
                XtUnmanageChild(old);
            if (old_node && Item(old_node))
                UpdateRow(view, old_node);
            old = nullptr;
        }
        m.cellNodeId = nullptr;
        m.cellColumn = 0;
    }
    XmPrjTreeCellRec *cell = node ? CellOf(node, column) : nullptr;
    if (!cell || !Editable(cell->type) || column < 1) {
        m.cellActive = spreadsheet ? old : nullptr;
        if (!spreadsheet)
            XmProcessTraversal(view, XmTRAVERSE_CURRENT);
        return false;
    }
    const char *text = cell->text ? cell->text : "";
    XmProcessTraversal(view, XmTRAVERSE_CURRENT);
    Widget editor;
    XmPrjTreeColumnRec *col = ColumnByNumber(view, column);
    if (cell->type == XmCELL_EDIT_TEXT) {
        editor = MakeEditor(view, 0);
    } else if (cell->type == XmCELL_PUSH_BUTTON) {
        editor = MakeEditor(view, 2);
    } else {
        editor = MakeEditor(view, 1);
    }
    if (old && old != editor && XtIsManaged(old)) {
        // The old cell is noted again for the time, so that change_managed
        // tells the application which cell's editor went away.
        unsigned long stamp = Stamp(view);
        bool noted = old_node && Item(old_node);
        if (noted) {
            m.cellActive = old;
            m.cellNodeId = old_node;
            m.cellColumn = old_column;
        }
        XtUnmanageChild(old);
        if (noted)
            m.cellActive = nullptr;
        if (!Alive(view))
            return false;
        if (!Live(view, node, stamp))
            return false;
        if (old_node && Item(old_node))
            UpdateRow(view, old_node);
    }
    if (cell->type == XmCELL_EDIT_TEXT) {
        QuietSetText(editor, text);
    } else if (cell->type == XmCELL_PUSH_BUTTON) {
        XmString s = XmStringCreateLocalized((char *)text);
        int a = cell->alignment >= 0 ? cell->alignment : col ? col->alignment : 0;
        XtVaSetValues(editor, XmNlabelString, s, XmNalignment,
                      a == 1 ? XmALIGNMENT_CENTER : a == 2 ? XmALIGNMENT_END : XmALIGNMENT_BEGINNING,
                      NULL);
        XmStringFree(s);
    } else {
        unsigned char mode = cell->type == XmCELL_DROP_DOWN_COMBO_BOX ? XwkDROP_DOWN_COMBO_BOX
                                                                      : XwkDROP_DOWN_LIST;
        XtVaSetValues(editor, XmNcomboBoxType, mode, XmNitems, col ? col->comboItems : nullptr,
                      XmNitemCount, col && col->comboItems ? col->comboCount : 0, NULL);
        if (cell->comboPosition >= 1 && col && cell->comboPosition <= col->comboCount)
            XwkComboBoxSelectPos(editor, cell->comboPosition, False);
        if (Widget field = XwkComboBoxGetText(editor))
            QuietSetText(field, text);
    }
    if (old_node && old_node != node && Item(old_node) && !RowOnPage(view, RowOf(view, old_node)))
        UpdateRow(view, old_node);
    ScrollToColumn(view, column);
    MakeVisible(view, node, false, false);
    LayOutColumns(view);
    XRectangle rect{};
    bool placed = false;
    if (RowOnPage(view, RowOf(view, node)) && CellRect(view, node, column, &rect)) {
        XtConfigureWidget(editor, rect.x, rect.y, rect.width, rect.height, 0);
        placed = true;
    } else {
        UpdateRow(view, node);
    }
    m.cellNodeId = node;
    m.cellColumn = column;
    m.cellActive = editor;
    if (XtIsManaged(editor))
        RaiseCellManage(view);
    else
        XtManageChild(editor);
    if (!Alive(view) || m.cellActive != editor)
        return true;
    XmProcessTraversal(editor, XmTRAVERSE_CURRENT);
    if (event && event->type == ButtonPress && placed) {
        int x = event->xbutton.x - rect.x, y = event->xbutton.y - rect.y;
        if (cell->type == XmCELL_EDIT_TEXT) {
            XmTextPosition pos = XmTextXYToPos(editor, (Position)x, (Position)y);
            XmTextSetCursorPosition(editor, pos);
        } else if (cell->type == XmCELL_PUSH_BUTTON) {
            XtAppAddTimeOut(XtWidgetToApplicationContext(view), 0, ArmButton, (XtPointer)view);
        } else {
            XwkComboBoxProcessXY(editor, (Position)x, (Position)y);
        }
    }
    return true;
}

void PlaceEditor(Widget view, XwkTreeNode *, const XRectangle &cell)
{
    XmPrjTreePart &m = M(view);
    Widget e = m.cellActive;
    if (!e || XtParent(e) != view || e->core.being_destroyed)
        return;
    if (e->core.x != cell.x || e->core.y != cell.y || e->core.width != cell.width ||
        e->core.height != cell.height)
        XtConfigureWidget(e, cell.x, cell.y, cell.width, cell.height, 0);
    if (!XtIsManaged(e)) {
        XtManageChild(e);
        if (P(view).hasFocus)
            XmProcessTraversal(e, XmTRAVERSE_CURRENT);
    }
}

void HideEditorOffPage(Widget view)
{
    XmPrjTreePart &m = M(view);
    Widget e = m.cellActive;
    if (!e || XtParent(e) != view || !XtIsManaged(e) || !m.cellNodeId)
        return;
    bool on = !Hidden(view, m.cellNodeId) && RowOnPage(view, RowOf(view, m.cellNodeId));
    bool shown = false;
    for (auto &sh : S(view).shown)
        shown |= sh.column->number == m.cellColumn;
    if (on && shown)
        return;
    m.cellActive = nullptr;
    XmProcessTraversal(view, XmTRAVERSE_CURRENT);
    XtUnmanageChild(e);
    m.cellActive = e;
}

void PlaceFirstCell(Widget view)
{
    XmPrjTreePart &m = M(view);
    if (m.visualMode != XmSPREADSHEET || !TableMode(view) || (m.cellActive && m.cellNodeId))
        return;
    XwkTreeNode *n = m.currentNode ? m.currentNode : NodeAt(view, 0);
    int c = 0;
    if (n && NextCell(view, &n, &c))
        ActivateCell(view, n, c, nullptr);
}

void CellKbdKey(Widget editor, XEvent *event, char letter)
{
    Widget view = TreeAbove(XtParent(editor));
    if (!view || !Alive(view))
        return;
    XmPrjTreePart &m = M(view);
    XwkTreeNode *node = m.cellNodeId;
    int column = m.cellColumn;
    if (!node || !Item(node))
        return;
    XwkTreeNode *n = node;
    int c = column;
    bool found = false;
    Widget text = XmIsText(editor) ? editor : nullptr;
    switch (letter) {
    case 'u':
    case 'd':
        found = VerticalCell(view, &n, c, letter == 'd');
        break;
    case 'l':
        if (text && XmTextGetInsertionPosition(text) != 0)
            return;
        found = PrevCell(view, &n, &c);
        break;
    case 'r':
        if (text && XmTextGetInsertionPosition(text) != XmTextGetLastPosition(text))
            return;
        found = NextCell(view, &n, &c);
        break;
    case 'p':
        found = PrevCell(view, &n, &c);
        if (!found) {
            XmProcessTraversal(view, XmTRAVERSE_PREV_TAB_GROUP);
            return;
        }
        break;
    case 'n':
        found = NextCell(view, &n, &c);
        if (!found) {
            XmProcessTraversal(view, XmTRAVERSE_NEXT_TAB_GROUP);
            return;
        }
        break;
    case 'U':
    case 'D':
        PageCell(view, letter == 'D');
        return;
    case 't':
        n = NodeAt(view, 0);
        c = 0;
        ScrollTo(view, true, 0);
        ConfigureScrollBars(view);
        found = n && NextCell(view, &n, &c);
        break;
    case 'b': {
        int count = RowCount(view);
        n = NodeAt(view, count - 1);
        c = m.numColumns + 1;
        ScrollTo(view, true, std::max(0, count - P(view).visibleRows));
        ConfigureScrollBars(view);
        found = n && PrevCell(view, &n, &c);
        break;
    }
    case '0':
    case '1':
        if (!text)
            return;
        if (XmTextGetLastPosition(text) > 0) {
            XtCallActionProc(text,
                             (String)(letter == '0' ? "delete-previous-character"
                                                    : "delete-next-character"),
                             event, nullptr, 0);
            return;
        }
        DeleteRowFromEditor(view, text, event);
        return;
    case '2':
        CallCallbacks(view, m.insertCallback, XmCR_TREE_INSERT_ITEM, event, node,
                      XmTREE_PART_CELL, column, XmCELL_NONE);
        return;
    default:
        return;
    }
    if (found && (n != node || c != column))
        ActivateCell(view, n, c, nullptr);
}

}  // namespace xwk::tree

extern "C" {

Boolean XmPrjTreeGotoColumn(Widget w, XmPrjTreeNode node, int column)
{
    if (!IsTree(w) || !Alive(w) || !M(w).title || !node || !Item(node) || !OwnNode(w, node))
        return False;
    if (!M(w).title->laidOut || S(w).shown.empty())
        PaintTitle(w);
    return ActivateCell(w, node, column, nullptr);
}

int XmPrjTreeProcessTraversalCell(Widget w, int direction)
{
    if (!IsTree(w) || !Alive(w))
        return 0;
    XmPrjTreePart &m = M(w);
    XwkTreeNode *n = m.cellNodeId;
    int c = m.cellColumn;
    if (!n || !Item(n))
        return 0;
    bool found;
    switch (direction) {
    case XmTRAVERSE_UP: found = VerticalCell(w, &n, c, false); break;
    case XmTRAVERSE_DOWN: found = VerticalCell(w, &n, c, true); break;
    case XmTRAVERSE_PREV:
    case XmTRAVERSE_LEFT: found = PrevCell(w, &n, &c); break;
    case XmTRAVERSE_NEXT:
    case XmTRAVERSE_RIGHT: found = NextCell(w, &n, &c); break;
    default: return 0;
    }
    if (!found)
        return 0;
    return ActivateCell(w, n, c, nullptr) ? 1 : 0;
}

void XmPrjTreeProcessTraversal(Widget w, Boolean hasFocus)
{
    if (!IsTree(w) || !Alive(w))
        return;
    XmPrjTreePart &v = P(w);
    v.hasFocus = hasFocus;
    auto *mgr = (XmManagerWidget)w;
    if (_XmGetFocusPolicy(w) == XmEXPLICIT && mgr->manager.traversal_on && M(w).currentNode)
        UpdateRow(w, M(w).currentNode);
}

}  // extern "C"
