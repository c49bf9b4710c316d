// The file selection desk in a dialog, what is selected or under a point,
// and files dragged out of the desk and dropped on it.
#include "filedesk/filedesk_widget.h"

#include <Xm/AtomMgr.h>
#include <Xm/DialogS.h>
#include <Xm/DragC.h>
#include <Xm/DragDrop.h>
#include <Xm/Protocols.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xwk/Graphics.h>

#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

Atom AtomOf(Widget w, const char *name) { return XmInternAtom(XtDisplay(w), (String)name, False); }

// One trailing "/" off, except from "/" itself when keep_root.
std::string WithoutSlash(const char *path, bool keep_root)
{
    std::string text = path ? path : "";
    if (!text.empty() && text.back() == '/' && !(keep_root && text == "/"))
        text.pop_back();
    return text;
}

// ---- Dialog ----------------------------------------------------------------

void DeskMapped(Widget w, XtPointer, XtPointer)
{
    FsdCheckDirectoryChanged(w);
}

void DestroyShell(Widget w, XtPointer client_data, XtPointer)
{
    Widget shell = static_cast<Widget>(client_data);
    (void)w;
    if (!shell->core.being_destroyed)
        XtDestroyWidget(shell);
}

void DeleteWindow(Widget, XtPointer client_data, XtPointer)
{
    Widget desk = static_cast<Widget>(client_data);
    auto &p = FsdPart(desk);
    if (p.cancel.button)
        XtCallActionProc(p.cancel.button, (String) "ArmAndActivate", nullptr, nullptr, 0);
    else
        FsdActivateButton(desk, 2, nullptr);
}

// ---- Drag source -------------------------------------------------------------

struct DragData {
    Widget desk;
    FsdFileItem *item;
    Widget icon;  // made for this drag, destroyed with the drag context
};

Boolean ConvertDrag(Widget drag_context, Atom *selection, Atom *target, Atom *type, XtPointer *value,
                    unsigned long *length, int *format)
{
    DragData *data = nullptr;
    XtVaGetValues(drag_context, XmNclientData, &data, nullptr);
    if (!data || !data->item || *selection != AtomOf(drag_context, "_MOTIF_DROP"))
        return False;
    Widget w = data->desk;
    FsdFileItem *item = data->item;
    if (*target == AtomOf(w, "TARGETS")) {
        Atom *atoms = reinterpret_cast<Atom *>(XtMalloc(6 * sizeof(Atom)));
        const char *names[] = {"TARGETS", "MULTIPLE", "TIMESTAMP", "COMPOUND_TEXT", "FILE_NAME", "_XWK_FILE_NAMES"};
        for (int i = 0; i < 6; i++)
            atoms[i] = AtomOf(w, names[i]);
        *value = atoms;
        *length = 6;
        *format = 32;
        *type = XA_ATOM;
        return True;
    }
    std::string text;
    if (*target == AtomOf(w, "COMPOUND_TEXT") || *target == AtomOf(w, "FILE_NAME")) {
        text = item->path;
    } else if (*target == AtomOf(w, "_XWK_FILE_NAMES")) {
        char **paths = nullptr;
        int count = XmFileSelectionDeskGetSelectedItemsCount(w) >= 2
                        ? XmFileSelectionDeskGetSelectedItems(w, &paths)
                        : 0;
        if (count >= 2) {
            for (int i = 0; i < count; i++) {
                if (!paths[i])
                    continue;
                if (!text.empty())
                    text += '|';
                text += paths[i][0] ? paths[i] : "/";
            }
        } else {
            text = WithoutSlash(item->path, true);
        }
        for (int i = 0; i < count; i++)
            XtFree(paths[i]);
        XtFree(reinterpret_cast<char *>(paths));
    } else {
        return False;
    }
    char *copy = XtMalloc(Cardinal(text.size() + 1));
    std::memcpy(copy, text.c_str(), text.size() + 1);
    *value = copy;
    *length = text.size();
    *format = 8;
    *type = *target;
    return True;
}

void DragFinished(Widget, XtPointer client_data, XtPointer)
{
    auto *data = static_cast<DragData *>(client_data);
    if (data && FsdPart(data->desk).scroll_timer) {
        XtRemoveTimeOut(FsdPart(data->desk).scroll_timer);
        FsdPart(data->desk).scroll_timer = 0;
    }
}

void FreeDragData(Widget, XtPointer client_data, XtPointer)
{
    auto *data = static_cast<DragData *>(client_data);
    if (data->icon)
        XtDestroyWidget(data->icon);
    delete data;
}

// ---- Drop site -----------------------------------------------------------------

struct DropTransfer {
    Widget desk;
    Widget widget;
    unsigned char operation;
    std::string directory;
    int pending;
    bool delete_asked;  // the source is told once to remove what it gave
};

struct PendingOpen {
    Widget desk;
    unsigned char operation;
    std::string directory;
    std::vector<std::string> files;
    XtIntervalId timer;
};

void DeliverOpen(XtPointer client_data, XtIntervalId *)
{
    auto *open = static_cast<PendingOpen *>(client_data);
    Widget w = open->desk;
    auto &p = FsdPart(w);
    if (p.pending_open == open)
        p.pending_open = nullptr;
    std::vector<char *> files;
    for (std::string &file : open->files)
        files.push_back(file.data());
    std::string directory = WithoutSlash(open->directory.c_str(), false);
    FsdTransferDoneCallbackStruct cbs{XmCR_OK, nullptr, open->operation, directory.data(),
                                      files.data(), int(files.size())};
    if (p.transfer_done_callback)
        XtCallCallbackList(w, p.transfer_done_callback, &cbs);
    delete open;
}

void DropOpen(Widget w)
{
    auto &p = FsdPart(w);
    auto *open = static_cast<PendingOpen *>(p.pending_open);
    if (!open)
        return;
    if (open->timer)
        XtRemoveTimeOut(open->timer);
    delete open;
    p.pending_open = nullptr;
}

void TransferValue(Widget transfer, XtPointer client_data, Atom *, Atom *type, XtPointer value,
                   unsigned long *length, int *)
{
    auto *drop = static_cast<DropTransfer *>(client_data);
    Widget w = drop->desk;
    auto &p = FsdPart(w);
    drop->pending--;
    Atom file_names = AtomOf(w, "_XWK_FILE_NAMES");
    Atom file_name = AtomOf(w, "FILE_NAME");
    if (*type == file_names && p.pending_open)
        DropOpen(w);
    p.transfer_target = *type;
    std::vector<std::string> paths;
    if (value && (*type == file_name || *type == file_names)) {
        std::string text(static_cast<char *>(value), *length);
        size_t start = 0;
        while (start <= text.size()) {
            size_t end = *type == file_names ? text.find('|', start) : std::string::npos;
            if (end == std::string::npos)
                end = text.size();
            std::string path = WithoutSlash(text.substr(start, end - start).c_str(), true);
            if (!path.empty() && access(path.c_str(), F_OK) == 0)
                paths.push_back(path);
            start = end + 1;
        }
    }
    if (!paths.empty()) {
        DropOpen(w);
        auto *open = new PendingOpen{w, drop->operation, drop->directory, paths, 0};
        open->timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), 0, DeliverOpen, open);
        p.pending_open = open;
    }
    if (drop->pending <= 0 && p.pending_open && (drop->operation & XmDROP_MOVE) && !drop->delete_asked) {
        drop->delete_asked = true;
        XmDropTransferEntryRec entries[2] = {{drop, AtomOf(w, "DELETE")}, {drop, AtomOf(w, "MOVE")}};
        XmDropTransferAdd(transfer, entries, 2);
    }
    XtFree(static_cast<char *>(value));
}

void FreeDropTransfer(Widget, XtPointer client_data, XtPointer)
{
    delete static_cast<DropTransfer *>(client_data);
}

void DropProc(Widget site, XtPointer, XtPointer call_data)
{
    auto *cbs = static_cast<XmDropProcCallbackStruct *>(call_data);
    Widget w = XmFindFileSelectionDeskByChild(site);
    Atom *targets = nullptr;
    Cardinal count = 0;
    Widget source = nullptr;
    XtVaGetValues(cbs->dragContext, XmNexportTargets, &targets, XmNnumExportTargets, &count,
                  XmNsourceWidget, &source, nullptr);
    bool want_name = false;
    bool want_names = false;
    if (w) {
        for (Cardinal i = 0; i < count; i++) {
            if (targets[i] == AtomOf(w, "FILE_NAME") && source != site)
                want_name = true;
            if (targets[i] == AtomOf(w, "_XWK_FILE_NAMES"))
                want_names = true;
        }
        if (!source || source == site)
            want_name = want_names = false;
    }
    Arg args[4];
    Cardinal n = 0;
    if (!w || !(want_name || want_names) || !FsdPart(w).transfer_done_callback) {
        XtSetArg(args[n], XmNtransferStatus, XmTRANSFER_FAILURE), n++;
        XtSetArg(args[n], XmNnumDropTransfers, 0), n++;
        XmDropTransferStart(cbs->dragContext, args, n);
        return;
    }
    auto &p = FsdPart(w);
    std::string directory = p.current_dir ? p.current_dir->path : "";
    if (site == p.dir_tree) {
        XtPointer data = XmPrjTreeWhichItem(XmTREE_PART_ROW, cbs->x, cbs->y, site);
        if (data)
            directory = static_cast<FsdDirNode *>(data)->path;
    }
    auto *drop = new DropTransfer{w, site, cbs->operation, directory, 0, false};
    static XmDropTransferEntryRec entries[2];
    int entry_count = 0;
    if (want_name)
        entries[entry_count++] = {drop, AtomOf(w, "FILE_NAME")};
    if (want_names)
        entries[entry_count++] = {drop, AtomOf(w, "_XWK_FILE_NAMES")};
    drop->pending = entry_count;
    XtSetArg(args[n], XmNdropTransfers, entries), n++;
    XtSetArg(args[n], XmNnumDropTransfers, entry_count), n++;
    XtSetArg(args[n], XmNtransferProc, TransferValue), n++;
    Widget transfer = XmDropTransferStart(cbs->dragContext, args, n);
    if (transfer)
        XtAddCallback(transfer, XmNdestroyCallback, FreeDropTransfer, drop);
    else
        delete drop;
}

XtPointer ItemUnder(Widget w, Widget site, int x, int y)
{
    if (site == FsdPart(w).file_desk)
        return XmPrjDeskWhichItem(site, x, y);
    return XmPrjTreeWhichItem(XmTREE_PART_ROW, x, y, site);
}

void HighlightIn(Widget w, Widget site, XtPointer item)
{
    if (site == FsdPart(w).file_desk) {
        auto *file = static_cast<FsdFileItem *>(item);
        XmPrjDeskHighlight(site, static_cast<XmPrjDeskNode>(file->handle));
    } else if (site == FsdPart(w).dir_tree) {
        auto *node = static_cast<FsdDirNode *>(item);
        XmPrjTreeHighlight(site, static_cast<XmPrjTreeNode>(node->tree_item));
    } else {
        auto *file = static_cast<FsdFileItem *>(item);
        XmPrjTreeHighlight(site, static_cast<XmPrjTreeNode>(file->handle));
    }
}

void Unhighlight(Widget w, Widget site)
{
    if (site == FsdPart(w).file_desk)
        XmPrjDeskUnhighlight(site);
    else
        XmPrjTreeUnhighlight(site);
}

struct ScrollData {
    Widget desk;
    Widget site;
};
ScrollData scroll_data;

void AutoScroll(XtPointer client_data, XtIntervalId *)
{
    auto *data = static_cast<ScrollData *>(client_data);
    Widget w = data->desk;
    auto &p = FsdPart(w);
    p.scroll_timer = 0;
    Widget site = data->site;
    Window root, child;
    int root_x, root_y, x, y;
    unsigned int mask;
    if (!XQueryPointer(XtDisplay(site), XtWindow(site), &root, &child, &root_x, &root_y, &x, &y, &mask))
        return;
    int direction = 0;
    if (y <= 0)
        direction = 1;
    else if (y >= site->core.height)
        direction = 2;
    else if (x <= 0)
        direction = 4;
    else if (x >= site->core.width)
        direction = 8;
    if (!direction)
        return;
    int ox = 0, oy = 0, nx = 0, ny = 0;
    bool desk_list = site == p.file_desk;
    if (desk_list) {
        XmPrjDeskGetOrigins(site, &ox, &oy);
        XmPrjDeskScroll(site, direction);
        XmPrjDeskGetOrigins(site, &nx, &ny);
    } else {
        XmPrjTreeGetOrigins(site, &ox, &oy);
        XmPrjTreeScroll(site, direction);
        XmPrjTreeGetOrigins(site, &nx, &ny);
    }
    if (ox == nx && oy == ny)
        return;
    XSync(XtDisplay(site), False);
    p.scroll_timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), p.scroll_repeat, AutoScroll, data);
}

void CancelAutoScroll(Widget w)
{
    auto &p = FsdPart(w);
    if (p.scroll_timer)
        XtRemoveTimeOut(p.scroll_timer);
    p.scroll_timer = 0;
}

void DragProc(Widget site, XtPointer, XtPointer call_data)
{
    auto *cbs = static_cast<XmDragProcCallbackStruct *>(call_data);
    Widget w = XmFindFileSelectionDeskByChild(site);
    if (!w) {
        cbs->dropSiteStatus = XmINVALID_DROP_SITE;
        return;
    }
    XFlush(XtDisplay(w));
    Atom *targets = nullptr;
    Cardinal count = 0;
    XtVaGetValues(cbs->dragContext, XmNexportTargets, &targets, XmNnumExportTargets, &count, nullptr);
    bool fitting = false;
    for (Cardinal i = 0; i < count; i++)
        if (targets[i] == AtomOf(w, "FILE_NAME") || targets[i] == AtomOf(w, "_XWK_FILE_NAMES"))
            fitting = true;
    XtPointer item = ItemUnder(w, site, cbs->x, cbs->y);
    auto &p = FsdPart(w);
    switch (cbs->reason) {
    case XmCR_DROP_SITE_LEAVE_MESSAGE: {
        if (item && fitting && cbs->dropSiteStatus == XmVALID_DROP_SITE)
            Unhighlight(w, site);
        Widget sw = XtParent(site);
        if ((cbs->operation == XmDROP_COPY || cbs->operation == XmDROP_LINK) && XmIsScrolledWindow(sw)) {
            Widget vbar = nullptr, hbar = nullptr;
            XtVaGetValues(sw, XmNverticalScrollBar, &vbar, XmNhorizontalScrollBar, &hbar, nullptr);
            Widget bar = vbar && XtIsManaged(vbar) ? vbar : (hbar && XtIsManaged(hbar) ? hbar : nullptr);
            if (bar) {
                int initial = 250, repeat = 50;
                XtVaGetValues(bar, XmNinitialDelay, &initial, XmNrepeatDelay, &repeat, nullptr);
                p.scroll_repeat = (unsigned long)repeat;
                CancelAutoScroll(w);
                scroll_data = {w, site};
                p.scroll_timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), initial, AutoScroll, &scroll_data);
            }
        }
        break;
    }
    case XmCR_DROP_SITE_ENTER_MESSAGE:
        CancelAutoScroll(w);
        [[fallthrough]];
    case XmCR_DROP_SITE_MOTION_MESSAGE: {
        unsigned char operation = XmDROP_NOOP;
        if (item) {
            if (cbs->operations & XmDROP_MOVE)
                operation = XmDROP_MOVE;
            else if (cbs->operations & XmDROP_COPY)
                operation = XmDROP_COPY;
            else if (cbs->operations & XmDROP_LINK)
                operation = XmDROP_LINK;
        }
        cbs->operation = operation;
        bool valid = !(operation == XmDROP_NOOP && item) && !(item && !fitting);
        if (operation == XmDROP_NOOP && !item)
            valid = fitting;
        cbs->dropSiteStatus = valid ? XmVALID_DROP_SITE : XmINVALID_DROP_SITE;
        if (item && fitting && valid)
            HighlightIn(w, site, item);
        else
            Unhighlight(w, site);
        break;
    }
    default:
        CancelAutoScroll(w);
        break;
    }
    cbs->animate = False;
    XFlush(XtDisplay(w));
}

}  // namespace

void FsdRegisterDropSite(Widget w, Widget site)
{
    if (XmDropSiteRegistered(site)) {
        Cardinal count = 0;
        XtVaGetValues(site, XmNnumImportTargets, &count, nullptr);
        Arg get[1];
        XtSetArg(get[0], XmNnumImportTargets, &count);
        XmDropSiteRetrieve(site, get, 1);
        if (count)
            return;
        XmDropSiteUnregister(site);
    }
    static Atom targets[2];
    targets[0] = AtomOf(w, "FILE_NAME");
    targets[1] = AtomOf(w, "_XWK_FILE_NAMES");
    Arg args[6];
    Cardinal n = 0;
    XtSetArg(args[n], XmNdropSiteOperations, XmDROP_MOVE | XmDROP_COPY | XmDROP_LINK), n++;
    XtSetArg(args[n], XmNimportTargets, targets), n++;
    XtSetArg(args[n], XmNnumImportTargets, 2), n++;
    XtSetArg(args[n], XmNdragProc, DragProc), n++;
    XtSetArg(args[n], XmNdropProc, DropProc), n++;
    XtSetArg(args[n], XmNdropSiteType, XmDROP_SITE_SIMPLE), n++;
    XmDropSiteRegister(site, args, n);
}

void FsdStartDrag(Widget view, XtPointer client_data, XtPointer call_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    if (view != p.file_view || !call_data)
        return;
    XEvent *event = static_cast<XmAnyCallbackStruct *>(call_data)->event;
    FsdFileItem *item = FsdIsDeskView(w)
                            ? static_cast<FsdFileItem *>(static_cast<XmPrjDeskCallbackStruct *>(call_data)->userData)
                            : static_cast<FsdFileItem *>(static_cast<XmPrjTreeCallbackStruct *>(call_data)->clientData);
    if (!item || !event)
        return;
    int selected = XmFileSelectionDeskGetSelectedItemsCount(w);
    XwkIcon *picture = nullptr;
    if (selected >= 2 && p.drag_icon)
        picture = static_cast<XwkIcon *>(p.drag_icon);
    else
        picture = static_cast<XwkIcon *>(item->large_icon ? item->large_icon : item->small_icon);
    if (!picture)
        return;
    Widget icon = XwkCreateDragIconWidget(view, picture);
    static Atom targets[3];
    targets[0] = AtomOf(w, "COMPOUND_TEXT");
    targets[1] = AtomOf(w, "FILE_NAME");
    targets[2] = AtomOf(w, "_XWK_FILE_NAMES");
    auto *data = new DragData{w, item, icon};
    Screen *screen = XtScreen(w);
    Arg args[10];
    Cardinal n = 0;
    XtSetArg(args[n], XmNexportTargets, targets), n++;
    XtSetArg(args[n], XmNnumExportTargets, 3), n++;
    XtSetArg(args[n], XmNdragOperations, XmDROP_MOVE | XmDROP_COPY | XmDROP_LINK), n++;
    XtSetArg(args[n], XmNconvertProc, ConvertDrag), n++;
    XtSetArg(args[n], XmNclientData, data), n++;
    XtSetArg(args[n], XmNcursorForeground, BlackPixelOfScreen(screen)), n++;
    XtSetArg(args[n], XmNcursorBackground, WhitePixelOfScreen(screen)), n++;
    if (icon)
        XtSetArg(args[n], XmNsourcePixmapIcon, icon), n++;
    Widget context = XmDragStart(view, event, args, n);
    if (!context) {
        FreeDragData(nullptr, data, nullptr);
        return;
    }
    XtAddCallback(context, XmNdragDropFinishCallback, DragFinished, data);
    XtAddCallback(context, XmNdestroyCallback, FreeDragData, data);
}

void FsdFreeTransfers(Widget w)
{
    DropOpen(w);
}

void FsdCheckDirectoryChanged(Widget w)
{
    auto &p = FsdPart(w);
    if (!p.current_dir || p.initializing)
        return;
    struct stat st;
    if (!FsdStatDirectory(p.current_dir->path, &st))
        return;
    if (st.st_mtime != p.current_dir->stat.st_mtime || st.st_ctime != p.current_dir->stat.st_ctime)
        XmFileSelectionDeskUpdate(w, 1);
}

extern "C" {

Widget XmCreateFileSelectionDeskDialog(Widget parent, String name, ArgList args, Cardinal count)
{
    std::string shell_name = std::string(name ? name : "") + "_popup";
    std::vector<Arg> shell_args(args, args + count);
    Arg extra;
    XtSetArg(extra, XmNallowShellResize, False);
    shell_args.push_back(extra);
    Widget shell = XmCreateDialogShell(parent, (String)shell_name.c_str(), shell_args.data(),
                                       Cardinal(shell_args.size()));
    std::vector<Arg> desk_args(args, args + count);
    XtSetArg(extra, XmNmarginWidth, 2);
    desk_args.push_back(extra);
    XtSetArg(extra, XmNmarginHeight, 2);
    desk_args.push_back(extra);
    Widget desk = XtCreateWidget(name, xmFileSelectionDeskWidgetClass, shell, desk_args.data(),
                                 Cardinal(desk_args.size()));
    XtAddCallback(desk, XmNmapCallback, DeskMapped, nullptr);
    XtAddCallback(desk, XmNdestroyCallback, DestroyShell, shell);
    Atom protocols = XmInternAtom(XtDisplay(shell), (String) "WM_PROTOCOLS", False);
    Atom delete_window = XmInternAtom(XtDisplay(shell), (String) "WM_DELETE_WINDOW", False);
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
    XmAddProtocolCallback(shell, protocols, delete_window, DeleteWindow, desk);
    return desk;
}

int XmFileSelectionDeskGetSelectedItemsCount(Widget desk)
{
    if (!FsdIsDesk(desk) || !FsdPart(desk).file_view)
        return 0;
    Widget view = FsdPart(desk).file_view;
    return FsdIsDeskView(desk) ? XmPrjDeskGetSelectedItemsCount(view) : XmPrjTreeGetSelectedItemsCount(view);
}

int XmFileSelectionDeskGetSelectedItems(Widget desk, char ***paths)
{
    if (paths)
        *paths = nullptr;
    if (!FsdIsDesk(desk) || !FsdPart(desk).file_view || !paths)
        return 0;
    Widget view = FsdPart(desk).file_view;
    std::vector<FsdFileItem *> items;
    if (FsdIsDeskView(desk)) {
        XmPrjDeskNode *nodes = nullptr;
        int count = XmPrjDeskGetSelectedItems(view, &nodes);
        for (int i = 0; i < count; i++)
            items.push_back(static_cast<FsdFileItem *>(XmPrjDeskGetClientDataFromItem(nodes[i])));
        XtFree(reinterpret_cast<char *>(nodes));
        if (items.empty()) {
            XmPrjDeskNode current = XmPrjDeskGetSelectedItem(view);
            if (current)
                items.push_back(static_cast<FsdFileItem *>(XmPrjDeskGetClientDataFromItem(current)));
        }
    } else {
        XtPointer *list = nullptr;
        int count = XmPrjTreeGetSelectedUserList(view, &list);
        for (int i = 0; i < count; i++)
            items.push_back(static_cast<FsdFileItem *>(list[i]));
        XtFree(reinterpret_cast<char *>(list));
    }
    if (items.empty())
        return 0;
    char **table = reinterpret_cast<char **>(XtCalloc(Cardinal(items.size()), sizeof(char *)));
    int found = 0;
    for (size_t i = 0; i < items.size(); i++) {
        if (!items[i])
            continue;
        // Here "/" loses its slash too, and becomes empty.
        table[i] = XtNewString(WithoutSlash(items[i]->path, false).c_str());
        found++;
    }
    *paths = table;
    return found;
}

char *XmFileSelectionDeskGetItemByXY(Widget desk, int x, int y, Boolean highlight, Widget *widget)
{
    if (widget)
        *widget = nullptr;
    if (!FsdIsDesk(desk))
        return nullptr;
    auto &p = FsdPart(desk);
    Position root_x = 0, root_y = 0;
    XtTranslateCoords(desk, Position(x), Position(y), &root_x, &root_y);
    auto holds = [&](Widget view, int *vx, int *vy) {
        if (!view || !XtIsManaged(view) || !XtIsRealized(view))
            return false;
        Position ox = 0, oy = 0;
        XtTranslateCoords(view, 0, 0, &ox, &oy);
        *vx = root_x - ox;
        *vy = root_y - oy;
        return *vx >= 0 && *vy >= 0 && *vx < view->core.width && *vy < view->core.height;
    };
    int vx = 0, vy = 0;
    if (holds(p.dir_tree, &vx, &vy)) {
        if (widget)
            *widget = p.dir_tree;
        auto *node = static_cast<FsdDirNode *>(XmPrjTreeWhichItem(XmTREE_PART_ROW, vx, vy, p.dir_tree));
        if (!node)
            return nullptr;
        if (highlight)
            XmPrjTreeHighlight(p.dir_tree, static_cast<XmPrjTreeNode>(node->tree_item));
        return XtNewString(WithoutSlash(node->path, true).c_str());
    }
    if (holds(p.file_view, &vx, &vy)) {
        if (widget)
            *widget = p.file_view;
        FsdFileItem *item = nullptr;
        if (FsdIsDeskView(desk)) {
            item = static_cast<FsdFileItem *>(XmPrjDeskWhichItem(p.file_view, vx, vy));
            if (!item) {
                XmPrjDeskNode current = XmPrjDeskGetSelectedItem(p.file_view);
                item = current ? static_cast<FsdFileItem *>(XmPrjDeskGetClientDataFromItem(current)) : nullptr;
            }
        } else {
            item = static_cast<FsdFileItem *>(XmPrjTreeWhichItem(XmTREE_PART_ROW, vx, vy, p.file_view));
        }
        if (!item)
            return nullptr;
        if (highlight)
            HighlightIn(desk, p.file_view, item);
        return XtNewString(WithoutSlash(item->path, true).c_str());
    }
    return nullptr;
}

Boolean XmFileSelectionDeskUnhighlight(Widget view)
{
    Widget desk = XmFindFileSelectionDeskByChild(view);
    if (!desk)
        return False;
    Unhighlight(desk, view);
    return True;
}

}  // extern "C"
