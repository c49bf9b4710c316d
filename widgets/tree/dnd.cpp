// Drag and drop of the tree list: a column title dragged onto another to
// reorder the columns, text dropped into a cell, and the drop site a clone
// takes over from its mother.
#include "widgets/tree/tree.h"

#include <Xm/XmP.h>
#include <Xm/AtomMgr.h>
#include <Xm/DragDrop.h>
#include <Xm/DragIcon.h>
#include <Xm/Text.h>
#include <X11/Xatom.h>

#include <algorithm>
#include <cstring>
#include <unordered_set>

using namespace xwk::tree;

namespace {

const char kTitleTarget[] = "_XWK_TREE_TITLE_ITEM";

// The pictures of the built-in title drag icon, 16 by 16.
const char *title_drag_colour[] = {
    "16 16 4 1", "  c None", ". c #000000", "+ c #FFFFFF", "@ c #7F7F7F",
    "                ", " ..............  ", " .++++++++++++.@", " .+@@@@@@@@@@+.@",
    " .++++++++++++.@", " ..............@", "  @@@@@@@@@@@@@@", "                ",
    "     ..  ..     ", "    .+.  .+.    ", "   .++....++.   ", "  .++++++++++.  ",
    "   .++....++.   ", "    .+.  .+.    ", "     ..  ..     ", "                "};
const char *title_drag_mono[] = {
    "16 16 2 1", "  c None", ". c #000000",
    "                ", " ..............  ", " .            . ", " .            . ",
    " .            . ", " .............. ", "                ", "                ",
    "     ..  ..     ", "    . .  . .    ", "   .  ....  .   ", "  .          .  ",
    "   .  ....  .   ", "    . .  . .    ", "     ..  ..     ", "                "};

std::unordered_set<Widget> own_drag_icons;

Atom TitleAtom(Widget w)
{
    return XmInternAtom(XtDisplay(w), (String)kTitleTarget, False);
}

Boolean ConvertTitle(Widget dc, Atom *selection, Atom *target, Atom *type, XtPointer *value,
                     unsigned long *length, int *format)
{
    Display *dpy = XtDisplay(dc);
    if (*selection != XmInternAtom(dpy, (String) "_MOTIF_DROP", False))
        return False;
    Atom targets = XmInternAtom(dpy, (String) "TARGETS", False);
    if (*target == targets) {
        auto *atoms = (Atom *)XtMalloc(4 * sizeof(Atom));
        atoms[0] = targets;
        atoms[1] = XmInternAtom(dpy, (String) "MULTIPLE", False);
        atoms[2] = XmInternAtom(dpy, (String) "TIMESTAMP", False);
        atoms[3] = XmInternAtom(dpy, (String)kTitleTarget, False);
        *type = XA_ATOM;
        *value = (XtPointer)atoms;
        *length = 4;
        *format = 32;
        return True;
    }
    if (*target == XmInternAtom(dpy, (String)kTitleTarget, False)) {
        XtPointer column = nullptr;
        XtVaGetValues(dc, XmNclientData, &column, NULL);
        if (!column)
            return False;
        // The record travels as bytes: its size is the host's.
        char *copy = XtMalloc(sizeof(XmPrjTreeColumnRec));
        memcpy(copy, column, sizeof(XmPrjTreeColumnRec));
        *type = *target;
        *value = (XtPointer)copy;
        *length = sizeof(XmPrjTreeColumnRec);
        *format = 8;
        return True;
    }
    if (*target == XmInternAtom(dpy, (String) "DELETE", False)) {
        *type = XmInternAtom(dpy, (String) "NULL", False);
        *value = nullptr;
        *length = 0;
        *format = 8;
        return True;
    }
    return False;
}

XmPrjTreeColumnRec *ColumnUnder(Widget view, int x)
{
    XmPrjTreePart &m = M(view);
    int shadow = ((XmManagerWidget)view)->manager.shadow_thickness;
    for (auto &sh : S(view).shown)
        if (x > sh.column->x + shadow && x < sh.x + sh.width && x < m.title->arrowLeftX)
            return sh.column;
    return nullptr;
}

void FailDrop(Widget dc)
{
    Arg args[2];
    XtSetArg(args[0], XmNtransferStatus, XmTRANSFER_FAILURE);
    XtSetArg(args[1], XmNnumDropTransfers, 0);
    XmDropTransferStart(dc, args, 2);
}

bool Offers(Widget dc, Atom atom)
{
    Atom *targets = nullptr;
    Cardinal count = 0;
    XtVaGetValues(dc, XmNexportTargets, &targets, XmNnumExportTargets, &count, NULL);
    for (Cardinal i = 0; targets && i < count; i++)
        if (targets[i] == atom)
            return true;
    return false;
}

// The move a title drop asked for, done by a zero timer after the
// transfer.  One at a time: a drop ends before the next can begin.
struct PendingMove {
    Widget view = nullptr;
    int dragged = 0, target = 0;
} pending;

void MoveColumn(XtPointer, XtIntervalId *)
{
    Widget view = pending.view;
    pending.view = nullptr;
    if (!view || !IsTree(view) || !Alive(view) || !M(view).title)
        return;
    XmPrjTreePart &m = M(view);
    XmPrjTreeColumnRec *dragged = ColumnByNumber(view, pending.dragged);
    XmPrjTreeColumnRec *target = ColumnByNumber(view, pending.target);
    if (!dragged || !target || dragged == target)
        return;
    XwkListNode *de = dragged->element, *te = target->element;
    XwkListNode *first = m.title->firstColumn;
    if (de->next == te)
        l_replace(m.columns, de, te);
    else
        l_replace(m.columns, te, de);
    if (first == te)
        m.title->firstColumn = de;
    else if (first == de)
        m.title->firstColumn = m.columns->first;
    m.columnsPermuted = True;
    RepaintTitles(view);
    RepaintRows(view);
}

void TitleTransfer(Widget, XtPointer closure, Atom *, Atom *type, XtPointer value,
                   unsigned long *length, int *)
{
    auto view = (Widget)closure;
    if (value && *length == sizeof(XmPrjTreeColumnRec) && IsTree(view) && Alive(view) &&
        *type == TitleAtom(view) && pending.view == view) {
        auto *source = (XmPrjTreeColumnRec *)value;
        if (source->tree == Mother(view) && std::abs(source->number) != pending.target) {
            pending.dragged = std::abs(source->number);
            XSync(XtDisplay(view), False);
            XtAppAddTimeOut(XtWidgetToApplicationContext(view), 0, MoveColumn, nullptr);
        } else {
            pending.view = nullptr;
        }
    }
    XtFree((char *)value);
}

void TitleDrop(Widget title, XtPointer, XtPointer call)
{
    auto *cbs = (XmDropProcCallbackStruct *)call;
    XtPointer data = nullptr;
    XtVaGetValues(title, XmNuserData, &data, NULL);
    auto view = (Widget)data;
    if (!view || !IsTree(view) || !Alive(view) || !M(view).title) {
        FailDrop(cbs->dragContext);
        return;
    }
    XmPrjTreeColumnRec *target = ColumnUnder(view, cbs->x);
    if (cbs->dropAction != XmDROP || !Offers(cbs->dragContext, TitleAtom(view)) || !target ||
        pending.view) {
        FailDrop(cbs->dragContext);
        return;
    }
    pending.view = view;
    pending.target = std::abs(target->number);
    static XmDropTransferEntryRec entry;
    entry.target = TitleAtom(view);
    entry.client_data = (XtPointer)view;
    Arg args[3];
    XtSetArg(args[0], XmNdropTransfers, &entry);
    XtSetArg(args[1], XmNnumDropTransfers, 1);
    XtSetArg(args[2], XmNtransferProc, TitleTransfer);
    XmDropTransferStart(cbs->dragContext, args, 3);
}

struct CellDropRecord {
    Widget view;
    XwkTreeNode *node;
    int column;
    unsigned long stamp;
};

void CellTransfer(Widget transfer, XtPointer closure, Atom *, Atom *type, XtPointer value,
                  unsigned long *length, int *)
{
    auto *rec = (CellDropRecord *)closure;
    if (value && *type == XA_STRING && IsTree(rec->view) && Alive(rec->view) &&
        Live(rec->view, rec->node, rec->stamp)) {
        char *copy = XtMalloc(*length + 1);
        memcpy(copy, value, *length);
        copy[*length] = 0;
        XmPrjTreeSetColumnLabel(rec->view, rec->node, rec->column, copy);
        XtFree(copy);
        XtVaSetValues(transfer, XmNtransferStatus, XmTRANSFER_SUCCESS, NULL);
    }
    XtFree((char *)value);
}

void FreeCellDrop(Widget, XtPointer closure, XtPointer)
{
    XtFree((char *)closure);
}

void CellDrop(Widget w, XtPointer, XtPointer call)
{
    auto *cbs = (XmDropProcCallbackStruct *)call;
    Widget view = w;
    bool ok = IsTree(view) && Alive(view) && (cbs->operation & (XmDROP_MOVE | XmDROP_COPY)) &&
              cbs->dropAction != XmDROP_HELP && Offers(cbs->dragContext, XA_STRING);
    XwkTreeNode *node = nullptr;
    int column = 0, type = XmCELL_NONE;
    if (ok) {
        XRectangle rect;
        HitTest(view, P(view).topRow, cbs->x, cbs->y, true, &node, &column, &type, &rect);
        ok = node && column >= 1 && type == XmCELL_EDIT_TEXT;
        Widget text = P(view).cellTextField;
        if (ok && text && !XmTextGetEditable(text))
            ok = false;
    }
    if (!ok) {
        FailDrop(cbs->dragContext);
        return;
    }
    auto *rec = (CellDropRecord *)XtMalloc(sizeof(CellDropRecord));
    *rec = {view, node, column, Stamp(view)};
    XmDropTransferEntryRec entry = {(XtPointer)rec, XA_STRING};
    Arg args[3];
    XtSetArg(args[0], XmNdropTransfers, &entry);
    XtSetArg(args[1], XmNnumDropTransfers, 1);
    XtSetArg(args[2], XmNtransferProc, CellTransfer);
    Widget transfer = XmDropTransferStart(cbs->dragContext, args, 3);
    if (transfer)
        XtAddCallback(transfer, XmNdestroyCallback, FreeCellDrop, (XtPointer)rec);
    else
        XtFree((char *)rec);
}

}  // namespace

namespace xwk::tree {

void MakeTitleDragIcon(Widget w)
{
    XmPrjTreePart &m = P(w);
    if ((XtPointer)m.titleDragIcon != XmTREE_ICON_DEFAULT)
        return;
    m.titleDragIcon = XwkIconCreateFromData(w, (char **)title_drag_colour);
    if (!m.titleDragIcon)
        m.titleDragIcon = XwkIconCreateFromData(w, (char **)title_drag_mono);
    if (m.titleDragIcon)
        own_drag_icons.insert(w);
}

void FreeTitleDragIcon(Widget w)
{
    if (own_drag_icons.erase(w) && P(w).titleDragIcon)
        XwkIconFree(w, P(w).titleDragIcon);
    P(w).titleDragIcon = nullptr;
}

void RegisterTitleDropSite(Widget view)
{
    Widget title = P(view).titleWidget;
    if (!title)
        return;
    static Atom target;
    target = TitleAtom(view);
    Arg args[6];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdropSiteType, XmDROP_SITE_SIMPLE); n++;
    XtSetArg(args[n], XmNdropSiteOperations, XmDROP_MOVE); n++;
    XtSetArg(args[n], XmNimportTargets, &target); n++;
    XtSetArg(args[n], XmNnumImportTargets, 1); n++;
    XtSetArg(args[n], XmNdropProc, TitleDrop); n++;
    XtSetArg(args[n], XmNanimationStyle, XmDRAG_UNDER_NONE); n++;
    XmDropSiteRegister(title, args, n);
}

void RegisterCellDropSite(Widget view)
{
    Display *dpy = XtDisplay(view);
    Atom targets[3] = {XmInternAtom(dpy, (String) "COMPOUND_TEXT", False), XA_STRING,
                       XmInternAtom(dpy, (String) "TEXT", False)};
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNimportTargets, targets); n++;
    XtSetArg(args[n], XmNnumImportTargets, 3); n++;
    XtSetArg(args[n], XmNdropProc, CellDrop); n++;
    XtSetArg(args[n], XmNanimationStyle, XmDRAG_UNDER_NONE); n++;
    XtSetArg(args[n], XmNdropSiteType, XmDROP_SITE_COMPOSITE); n++;
    XmDropSiteRegister(view, args, n);
}

void CopyDropSite(Widget clone)
{
    Widget mother = P(clone).mother;
    unsigned char type = 0, operations = 0, animation = 0;
    Atom *targets = nullptr;
    Cardinal count = 0;
    XtCallbackProc proc = nullptr;
    Arg args[6];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdropSiteType, &type); n++;
    XtSetArg(args[n], XmNdropSiteOperations, &operations); n++;
    XtSetArg(args[n], XmNimportTargets, &targets); n++;
    XtSetArg(args[n], XmNnumImportTargets, &count); n++;
    XtSetArg(args[n], XmNdropProc, &proc); n++;
    XtSetArg(args[n], XmNanimationStyle, &animation); n++;
    if (!mother || !XmDropSiteRegistered(mother))
        return;
    XmDropSiteRetrieve(mother, args, n);
    if (!operations || !proc)
        return;
    Arg set[6];
    n = 0;
    XtSetArg(set[n], XmNdropSiteType, type); n++;
    XtSetArg(set[n], XmNdropSiteOperations, operations); n++;
    XtSetArg(set[n], XmNimportTargets, targets); n++;
    XtSetArg(set[n], XmNnumImportTargets, count); n++;
    XtSetArg(set[n], XmNdropProc, proc); n++;
    XtSetArg(set[n], XmNanimationStyle, animation); n++;
    XmDropSiteRegister(clone, set, n);
}

void StartTitleDrag(Widget view, XEvent *event)
{
    XmPrjTreePart &m = M(view);
    if (!m.title || !m.titleDragIcon || !m.columns || m.columns->count < 2 || !event ||
        event->type != ButtonPress)
        return;
    unsigned int others = (Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask) &
                          ~(event->xbutton.button == Button1 ? Button1Mask : Button2Mask);
    if (event->xbutton.state & others)
        return;
    XmPrjTreeColumnRec *column = ColumnUnder(view, event->xbutton.x);
    if (!column)
        return;
    // The drag icon is drawn in one plane, from the picture's shape.
    XwkIcon *picture = m.titleDragIcon;
    Widget icon = nullptr;
    if (picture->mask) {
        Arg ia[5];
        Cardinal k = 0;
        XtSetArg(ia[k], XmNpixmap, picture->mask); k++;
        XtSetArg(ia[k], XmNmask, picture->mask); k++;
        XtSetArg(ia[k], XmNwidth, IconWidth(picture)); k++;
        XtSetArg(ia[k], XmNheight, IconHeight(picture)); k++;
        XtSetArg(ia[k], XmNdepth, 1); k++;
        icon = XmCreateDragIcon(view, (String) "titleDragIcon", ia, k);
    }
    static Atom target;
    target = TitleAtom(view);
    Arg args[6];
    Cardinal n = 0;
    XtSetArg(args[n], XmNexportTargets, &target); n++;
    XtSetArg(args[n], XmNnumExportTargets, 1); n++;
    XtSetArg(args[n], XmNdragOperations, XmDROP_MOVE); n++;
    XtSetArg(args[n], XmNconvertProc, ConvertTitle); n++;
    XtSetArg(args[n], XmNclientData, (XtPointer)column); n++;
    if (icon) {
        XtSetArg(args[n], XmNsourceCursorIcon, icon); n++;
    }
    XmDragStart(view, event, args, n);
}

}  // namespace xwk::tree
