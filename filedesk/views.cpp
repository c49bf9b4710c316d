// The file selection desk's views: the directory tree built and opened
// level by level, the scan that fills the file view in one of four
// representations, the patterns of the filter row, the buttons and the
// views' callbacks.
#include "filedesk/filedesk_widget.h"

#include <Xm/Label.h>
#include <Xm/LabelP.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xwk/ComboBox.h>
#include <Xwk/Graphics.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

XwkIcon *Icon(Widget w, int kind) { return FsdIcon(w, kind); }

const FsdPattern *CurrentRow(Widget w)
{
    auto &p = FsdPart(w);
    if (!p.patterns)
        return nullptr;
    int position = p.pattern_position;
    if (position < 0 || position > p.pattern_count)
        position = 0;
    return p.patterns[position];
}

void SetTreeEditable(Widget w, Boolean editable)
{
    if (FsdPart(w).dir_tree)
        XmPrjTreeSetEditable(FsdPart(w).dir_tree, editable);
}

void SetViewEditable(Widget w, Boolean editable)
{
    Widget view = FsdPart(w).file_view;
    if (!view)
        return;
    if (FsdIsDeskView(w))
        XmPrjDeskSetEditable(view, editable);
    else
        XmPrjTreeSetEditable(view, editable);
}

void BusyCursor(Widget w, bool on)
{
    auto &p = FsdPart(w);
    if (!XtIsRealized(w) || !p.use_busy_cursor || !p.busy_cursor)
        return;
    if (on) {
        XDefineCursor(XtDisplay(w), XtWindow(w), p.busy_cursor);
        XSync(XtDisplay(w), False);
    } else {
        XUndefineCursor(XtDisplay(w), XtWindow(w));
    }
}

// ---- Directory tree ------------------------------------------------------

void NodeDeleted(XmPrjTreeNode, XtPointer data)
{
    auto *node = static_cast<FsdDirNode *>(data);
    Widget w = node->desk;
    auto &p = FsdPart(w);
    if (p.current_dir == node)
        p.current_dir = nullptr;
    if (p.selection_text_string && p.selection_text_string == node->path)
        p.selection_text_string = nullptr;
    FsdFreeDirNode(node);
}

XmPrjTreeNode AddTreeNode(Widget w, XmPrjTreeNode parent, FsdDirNode *node, const char *label,
                          int state)
{
    auto &p = FsdPart(w);
    FsdIconKind kind = FsdDirectoryIcon(&node->stat, False, p.use_deny_read_icon, p.use_deny_write_icon);
    XmPrjTreeNode item = XmPrjTreeAddItem(p.dir_tree, parent, label, Icon(w, kind), node, state,
                                          nullptr, nullptr, nullptr);
    node->tree_item = item;
    XmPrjTreeAddDeleteItemCallback(p.dir_tree, item, NodeDeleted, node);
    if (!XwkAccess(&node->stat, 4))
        XmPrjTreeSetSelectable(p.dir_tree, item, False);
    return item;
}

XmPrjTreeNode ChildNamed(Widget w, XmPrjTreeNode parent, const char *name)
{
    return XmPrjTreeFindItemOneLevel(FsdPart(w).dir_tree, parent, name);
}

// Adds the directories read below level (a node's path) that the tree
// lacks; returns the child named want, or NULL.
XmPrjTreeNode AddLevel(Widget w, XmPrjTreeNode level_item, const char *level_path,
                       FsdEntryStore *store, int count, const char *want, bool grow_visibly)
{
    auto &p = FsdPart(w);
    std::string level = level_path;
    if (level.size() > 1 && level.back() == '/')
        level.pop_back();
    XmPrjTreeNode found = nullptr;
    for (int i = 0; i < count; i++) {
        FsdEntry *entry = store->Table()[i];
        const char *name = entry->dirent->d_name;
        XmPrjTreeNode item = ChildNamed(w, level_item, name);
        if (!item) {
            FsdDirNode *node = FsdNewChildNode(w, level.c_str(), entry);
            item = AddTreeNode(w, level_item, node, name,
                               FsdDirNodeState(node, p.scan_dir_on_sub_dirs));
            if (grow_visibly) {
                XmPrjTreeUpdateItem(p.dir_tree, item);
                XFlush(XtDisplay(w));
            }
        }
        if (want && std::strcmp(name, want) == 0)
            found = item;
    }
    store->Clear();
    return found;
}

// Reads a node's sub-directories into the tree when it has none yet and
// selects the named child; True when it read.
}  // namespace

bool FsdDescend(Widget w, FsdDirNode *node, const char *name)
{
    auto &p = FsdPart(w);
    auto item = static_cast<XmPrjTreeNode>(node->tree_item);
    if (!XmPrjTreeFindFirstChild(p.dir_tree, item)) {
        BusyCursor(w, true);
        Boolean editable = XmPrjTreeGetEditable(p.dir_tree);
        XmPrjTreeSetEditable(p.dir_tree, False);
        FsdEntryStore store;
        int count = FsdReadDirectory(node->path, FsdFilterDirectories, nullptr, nullptr, &store);
        XmPrjTreeNode child = AddLevel(w, item, node->path, &store, count, name, false);
        XmPrjTreeSortChildren(p.dir_tree, item);
        XmPrjTreeSetEditable(p.dir_tree, editable);
        XmPrjTreeSetNode(p.dir_tree, child ? child : item);
        BusyCursor(w, false);
        return true;
    }
    XmPrjTreeNode child = name ? ChildNamed(w, item, name) : nullptr;
    if (child) {
        XmPrjTreeSetNode(p.dir_tree, child);
    } else {
        int state = XmPrjTreeGetState(p.dir_tree, item);
        if (state == 1 || state == 2)
            XmPrjTreeChangeState(p.dir_tree, item, 0);
    }
    return false;
}

void FsdBuildTree(Widget w, const char *path)
{
    auto &p = FsdPart(w);
    char *canonical = FsdCanonicalPath(path);
    if (!canonical) {
        FsdBell(w);
        FsdCallCallbacks(w, p.no_match_callback, XmCR_NO_MATCH, nullptr, path, path, nullptr, nullptr);
        canonical = FsdCanonicalPath(".");
        if (!canonical)
            canonical = XtNewString("/");
    }
    Boolean editable = XmPrjTreeGetEditable(p.dir_tree);
    if (editable)
        XmPrjTreeSetEditable(p.dir_tree, False);
    XmPrjTreeNode root = XmPrjTreeGetRoot(p.dir_tree);
    if (!root) {
        struct stat st;
        std::memset(&st, 0, sizeof st);
        bool ok = stat("/", &st) == 0;
        FsdDirNode *node = FsdNewDirNode(w, "/", nullptr, &st);
        auto &icons = p.icons;
        FsdIconKind kind = ok ? FsdDirectoryIcon(&st, False, p.use_deny_read_icon, p.use_deny_write_icon)
                              : (p.use_deny_read_icon ? FSD_ICON_TREE_DIR_DENY_READ : FSD_ICON_TREE_DIR);
        root = XmPrjTreeAddItem(p.dir_tree, nullptr, "/", static_cast<XwkIcon *>(icons[kind]), node,
                                2, nullptr, nullptr, nullptr);
        node->tree_item = root;
        XmPrjTreeAddDeleteItemCallback(p.dir_tree, root, NodeDeleted, node);
    }
    auto *root_node = static_cast<FsdDirNode *>(XmPrjTreeGetClientData(p.dir_tree, root));
    FsdDirNode *target = nullptr;
    if (std::strcmp(canonical, "/") == 0)
        target = root_node;
    // Walk down one component at a time.
    XmPrjTreeNode level_item = root;
    std::string level_path = "/";
    const char *rest = canonical + 1;
    while (*rest) {
        const char *slash = std::strchr(rest, '/');
        std::string component = slash ? std::string(rest, slash) : std::string(rest);
        FsdEntryStore store;
        int count = FsdReadDirectory(level_path.c_str(), FsdFilterDirectories, nullptr, nullptr, &store);
        if (count == 0) {
            FsdCallCallbacks(w, p.no_match_callback, XmCR_NO_MATCH, nullptr, canonical,
                             level_path.c_str(), nullptr, nullptr);
            XmPrjTreeSetEditable(p.dir_tree, editable);
            XtFree(canonical);
            return;
        }
        XmPrjTreeNode next = AddLevel(w, level_item, level_path.c_str(), &store, count,
                                      component.c_str(), false);
        if (!next)
            break;
        level_item = next;
        if (level_path.size() > 1)
            level_path += '/';
        level_path += component;
        rest = slash ? slash + 1 : rest + std::strlen(rest);
        if (!*rest)
            target = static_cast<FsdDirNode *>(XmPrjTreeGetClientData(p.dir_tree, next));
    }
    if (!target)
        target = static_cast<FsdDirNode *>(XmPrjTreeGetClientData(p.dir_tree, level_item));
    p.current_dir = target;
    XtFree(canonical);
    if (!XtIsRealized(p.dir_tree)) {
        XmPrjTreeSortItems(p.dir_tree, False);
        XmPrjTreeSetEditable(p.dir_tree, True);
    }
    if (p.initializing && p.use_file_desk) {
        // The scan follows the selection once the widget is complete.
        XmPrjTreeSetEditable(p.dir_tree, True);
        return;
    }
    XmPrjTreeSetNode(p.dir_tree, static_cast<XmPrjTreeNode>(target->tree_item));
    if (!p.file_view && p.current_dir && FsdDescend(w, p.current_dir, nullptr))
        XmPrjTreeChangeState(p.dir_tree, static_cast<XmPrjTreeNode>(p.current_dir->tree_item), 0);
    XmPrjTreeSetEditable(p.dir_tree, True);
}

// ---- The file view -------------------------------------------------------

namespace {

struct ViewCallback {
    const char *name;
    XtCallbackProc proc;
};
const ViewCallback kViewCallbacks[] = {
    {XmNselectionChanged, FsdViewSelection},
    {XmNdefaultActionCallback, FsdViewDefaultAction},
    {XmNfocusCallback, FsdViewFocus},
    {XmNstartDragCallback, FsdStartDrag},
};

void DetachView(Widget w, Widget view)
{
    for (const ViewCallback &cb : kViewCallbacks)
        XtRemoveCallback(view, (String)cb.name, cb.proc, w);
    if (FsdPart(w).selection_policy == XmMULTIPLE_SELECT)
        XtRemoveCallback(view, XmNmultipleSelectionCallback, FsdViewSelection, w);
}

void AttachView(Widget w, Widget view)
{
    for (const ViewCallback &cb : kViewCallbacks)
        XtAddCallback(view, (String)cb.name, cb.proc, w);
    if (FsdPart(w).selection_policy == XmMULTIPLE_SELECT)
        XtAddCallback(view, XmNmultipleSelectionCallback, FsdViewSelection, w);
}

Widget DeskOfView(Widget view)
{
    return XmFindFileSelectionDeskByChild(view);
}

FsdFileItem *DeskItem(const void *a)
{
    return static_cast<FsdFileItem *>(XmPrjDeskGetClientDataFromItem(*(XmPrjDeskNode *)a));
}

FsdFileItem *ListItem(const void *a)
{
    return static_cast<FsdFileItem *>(XmPrjTreeGetClientDataFromNode(*(XmPrjTreeNode *)a));
}

int SortDesk(const void *a, const void *b)
{
    return FsdCompareDeskItems(DeskItem(a), DeskItem(b));
}

struct ListFallback {
    const void *a;
    const void *b;
    XmPrjTreeSortProc proc;
};

int CallListFallback(const FsdFileItem *, const FsdFileItem *, void *closure)
{
    auto *fallback = static_cast<ListFallback *>(closure);
    return fallback->proc ? fallback->proc(fallback->a, fallback->b) : 0;
}

int SortList(const void *a, const void *b)
{
    FsdFileItem *ia = ListItem(a);
    FsdFileItem *ib = ListItem(b);
    if (!ia || !ib)
        return 1;
    Widget list = XmPrjTreeGetTreeWidgetFromItem(*(XmPrjTreeNode *)a);
    Widget desk = DeskOfView(list);
    unsigned char direction = 0;
    int column = XmPrjTreeGetSortColumn(list, &direction);
    ListFallback fallback{a, b, desk ? FsdPart(desk).list_sort_proc : XmPrjTreeDefaultSortProc};
    return FsdCompareListItems(ia, ib, column, direction, CallListFallback, &fallback);
}

void HideView(Widget view)
{
    if (!view)
        return;
    Widget sw = XtParent(view);
    if (XtIsManaged(sw))
        XtUnmanageChild(sw);
}

void ClearView(Widget w, Widget view)
{
    // Frozen first: the view then drops its rows without laying out or
    // painting after each.
    if (view == FsdPart(w).file_desk) {
        XmPrjDeskSetEditable(view, False);
        XmPrjDeskDeleteAllItems(view);
    } else {
        XmPrjTreeSetEditable(view, False);
        XmPrjTreeDeleteAllItems(view);
    }
}

Widget CreateList(Widget w)
{
    auto &p = FsdPart(w);
    Arg args[12];
    Cardinal n = 0;
    XtSetArg(args[n], XmNvisualMode, 1), n++;
    XtSetArg(args[n], XmNtitleString, "Name|User|Group|Size|Date|Permissions|Link to"), n++;
    XtSetArg(args[n], XmNnumColumns, 7), n++;
    XtSetArg(args[n], XmNdelimeter, '|'), n++;
    XtSetArg(args[n], XmNcanSlam, 0), n++;
    XtSetArg(args[n], XmNtreeTrunkDrawing, 0), n++;
    XtSetArg(args[n], XmNselectionPolicy, p.selection_policy), n++;
    XtSetArg(args[n], XmNuseSort, 1), n++;
    XtSetArg(args[n], XmNsortColumn, p.sort_column), n++;
    XtSetArg(args[n], XmNsortDirection, p.sort_direction), n++;
    // Both views sit in a scrolled window of the one name "fsdFileDeskSW".
    Widget sw = XtVaCreateManagedWidget(
        "fsdFileDeskSW", xmScrolledWindowWidgetClass, p.right_sw_form, XmNscrollingPolicy,
        XmAPPLICATION_DEFINED, XmNvisualPolicy, XmVARIABLE, XmNscrollBarDisplayPolicy, XmSTATIC,
        XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
        XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNshadowThickness, 0, XmNspacing, 0,
        nullptr);
    Widget list = XtCreateWidget("fsdFileList", xmPrjTreeWidgetClass, sw, args, n);
    XtOverrideTranslations(list, _XmFileSDPanelsTranslts);
    XmPrjTreeSetColumnType(list, 4, XmCELL_LABEL, 2);
    // Widths that show a typical name, owner, size and date whole; a
    // layout string of the application replaces them.
    static const int widths[] = {220, 70, 70, 90, 150, 100, 140};
    for (int column = 1; column <= 7; column++)
        XmPrjTreeSetTitleItemWidth(list, column, widths[column - 1]);
    XmPrjTreeSetAllColumnsSortable(list, True);
    XtVaGetValues(list, XmNsortProc, &p.list_sort_proc, nullptr);
    XtVaSetValues(list, XmNsortProc, SortList, nullptr);
    XtManageChild(list);
    return list;
}

Widget CreateDesk(Widget w)
{
    auto &p = FsdPart(w);
    Arg args[4];
    Cardinal n = 0;
    XtSetArg(args[n], XmNselectionPolicy, p.selection_policy), n++;
    XtSetArg(args[n], XmNsortItems, 0), n++;
    Widget desk = XmCreateScrolledDeskList(p.right_sw_form, (String) "fsdFileDesk", args, n);
    XtVaSetValues(XtParent(desk), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                  XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                  XmATTACH_FORM, XmNshadowThickness, 0, XmNspacing, 0, nullptr);
    XtOverrideTranslations(desk, _XmFileSDPanelsTranslts);
    XtVaGetValues(desk, XmNsortProc, &p.desk_sort_proc, nullptr);
    XtVaSetValues(desk, XmNsortProc, SortDesk, nullptr);
    XtManageChild(desk);
    return desk;
}

// A change of representation leaves the detail list its rows when it is
// hidden: deleting a row per entry costs more than the whole switch may,
// and a switch back finds them ready.  Any read of entries drops them.
bool KeepListRows(Widget w, Widget shown)
{
    auto &p = FsdPart(w);
    auto &state = FsdStateOf(w);
    if (!(p.flags & FSD_SCAN_REPRESENT_ONLY))
        return false;
    if (shown == p.file_list) {
        state.list_rows_kept = true;
        return true;
    }
    return state.list_rows_kept;
}

// The kept rows made ready to be shown as a fresh fill would be: nothing
// selected and the top row first.
void ReuseListRows(Widget w)
{
    Widget list = FsdPart(w).file_list;
    XmPrjTreeSetEditable(list, False);
    XmPrjTreeDeselectAllItems(list);
    XmPrjTreeSetOrigins(list, 0, 0);
}

// Makes the view of the wanted representation the file view, empty, or
// the detail list with its kept rows (*reused).  True when the list was
// just made.
bool PrepareView(Widget w, bool *reused)
{
    auto &p = FsdPart(w);
    auto &state = FsdStateOf(w);
    Widget shown = p.file_view;
    if (p.file_view) {
        DetachView(w, p.file_view);
        SetViewEditable(w, False);
    }
    bool want_list = p.representation == XmREPRESENTATION_DETAIL;
    bool created = false;
    Widget &wanted = want_list ? p.file_list : p.file_desk;
    Widget other = want_list ? p.file_desk : p.file_list;
    bool keep = KeepListRows(w, shown);
    *reused = want_list && keep && state.list_rows_type == p.selection_desk_type;
    if (other) {
        HideView(other);
        if (other != p.file_list || !keep)
            ClearView(w, other);
    }
    if (wanted && *reused) {
        ReuseListRows(w);
    } else if (wanted) {
        ClearView(w, wanted);
    } else {
        wanted = want_list ? CreateList(w) : CreateDesk(w);
        created = want_list;
    }
    state.list_rows_kept = !want_list && keep;
    p.file_view = wanted;
    AttachView(w, wanted);
    FsdRegisterDropSite(w, wanted);
    if (!XtIsManaged(XtParent(wanted)))
        XtManageChild(XtParent(wanted));
    return created;
}

XwkIcon *ItemIcon(Widget w, FsdFileItem *item, bool dot_dot)
{
    auto &p = FsdPart(w);
    bool large = p.representation == XmREPRESENTATION_LARGE_ICONS;
    XtPointer &slot = large ? item->large_icon : item->small_icon;
    if (slot)
        return static_cast<XwkIcon *>(slot);
    Boolean desk_set = large;
    if (dot_dot) {
        slot = p.icons[FsdUpIcon(desk_set)];
    } else if (item->is_dir) {
        slot = p.icons[FsdDirectoryIcon(item->stat, desk_set, p.use_deny_read_icon, p.use_deny_write_icon)];
    } else {
        XtPointer icon = nullptr;
        if (p.get_icon_proc(w, item->stat, item->path, &icon) && icon)
            slot = icon;
    }
    return static_cast<XwkIcon *>(slot);
}

Boolean AcceptFile(FsdFileItem *item, void *closure)
{
    Widget w = static_cast<Widget>(closure);
    auto &p = FsdPart(w);
    XtPointer icon = nullptr;
    if (!p.get_icon_proc(w, item->stat, item->path, &icon) || !icon)
        return False;
    if (p.representation == XmREPRESENTATION_LARGE_ICONS)
        item->large_icon = icon;
    else
        item->small_icon = icon;
    return True;
}

void AddToView(Widget w, FsdFileItem *item, std::string *text)
{
    auto &p = FsdPart(w);
    bool dot_dot = std::strcmp(item->name, "..") == 0;
    XwkIcon *icon = p.representation == XmREPRESENTATION_NAME_ONLY ? nullptr : ItemIcon(w, item, dot_dot);
    if (p.representation == XmREPRESENTATION_DETAIL) {
        text->clear();
        FsdAppendDetailText(item, &p.user_cache, &p.group_cache, text);
        auto node = XmPrjTreeAddItem(p.file_view, nullptr, text->c_str(), icon ? icon : ItemIcon(w, item, dot_dot),
                                     item, 0, nullptr, nullptr, nullptr);
        item->handle = node;
        if ((p.selection_desk_type == XmSELECT_ONLY_FILES && item->is_dir && !dot_dot) ||
            (p.selection_desk_type == XmSELECT_ONLY_DIRS && !item->is_dir))
            XmPrjTreeSetSelectable(p.file_view, node, False);
        return;
    }
    auto node = XmPrjDeskAddItem(p.file_view, item->name, icon, item);
    item->handle = node;
    if ((p.selection_desk_type == XmSELECT_ONLY_FILES && item->is_dir && !dot_dot) ||
        (p.selection_desk_type == XmSELECT_ONLY_DIRS && !item->is_dir))
        XmPrjDeskSetSelectable(p.file_view, node, False);
}

// The items, in the order of the passes, into the file view.  The desk
// list gets them in its own order, so that its sort finds nothing to do;
// the kept rows of the detail list only give their handles back.
void FillView(Widget w, const std::vector<FsdFileItem *> &items, bool reused)
{
    auto &p = FsdPart(w);
    if (reused) {
        Widget list = p.file_view;
        for (XmPrjTreeNode n = XmPrjTreeGetFirstNode(list); n; n = XmPrjTreeGetNextNode(list, n))
            if (auto *item = static_cast<FsdFileItem *>(XmPrjTreeGetClientDataFromNode(n)))
                item->handle = n;
        return;
    }
    std::string text;
    if (!FsdIsDeskView(w)) {
        for (FsdFileItem *item : items)
            AddToView(w, item, &text);
        FsdStateOf(w).list_rows_type = p.selection_desk_type;
        return;
    }
    std::vector<FsdFileItem *> ordered(items);
    std::stable_sort(ordered.begin(), ordered.end(), [](FsdFileItem *a, FsdFileItem *b) {
        return FsdCompareDeskItems(a, b) < 0;
    });
    for (FsdFileItem *item : ordered)
        AddToView(w, item, &text);
}

void SetCurrentInView(Widget w, XtPointer handle)
{
    auto &p = FsdPart(w);
    if (!handle || !p.file_view)
        return;
    if (FsdIsDeskView(w))
        XmPrjDeskSetItem(p.file_view, static_cast<XmPrjDeskNode>(handle));
    else
        XmPrjTreeSetItem(p.file_view, static_cast<XmPrjTreeNode>(handle), False);
}

void SelectInView(Widget w, XtPointer handle)
{
    auto &p = FsdPart(w);
    if (FsdIsDeskView(w))
        XmPrjDeskSelectItem(p.file_view, static_cast<XmPrjDeskNode>(handle));
    else
        XmPrjTreeSelectItem(p.file_view, static_cast<XmPrjTreeNode>(handle));
}

XtPointer ViewSelected(Widget w)
{
    auto &p = FsdPart(w);
    if (!p.file_view)
        return nullptr;
    XtPointer selected = nullptr;
    XtVaGetValues(p.file_view, XmNselected, &selected, nullptr);
    return selected;
}

void ShowTitle(Widget w, const char *text)
{
    auto &p = FsdPart(w);
    XmString string = XmStringCreateLocalized(const_cast<char *>(text));
    XtVaSetValues(p.title_label, XmNlabelString, string, nullptr);
    XmStringFree(string);
}

bool TreePaneClosed(Widget w)
{
    auto &p = FsdPart(w);
    if (!p.paned_window || !p.left_form)
        return false;
    unsigned char orientation = XmVERTICAL;
    XtVaGetValues(p.paned_window, XmNorientation, &orientation, nullptr);
    Dimension size = orientation == XmVERTICAL ? p.left_form->core.height : p.left_form->core.width;
    return size < 3;
}

}  // namespace

void FsdFreeEntries(Widget w)
{
    auto &p = FsdPart(w);
    if (p.state)
        FsdStateOf(w).store.Clear();
    p.entries = nullptr;
    p.entry_count = 0;
}

void FsdScan(Widget w)
{
    auto &p = FsdPart(w);
    p.flags &= ~(FSD_DEFAULT_ACTION | FSD_REBUILD);
    XtPointer selected = nullptr;
    XtVaGetValues(p.dir_tree, XmNselected, &selected, nullptr);
    auto *node = static_cast<FsdDirNode *>(selected);
    if (!node)
        return;
    if (p.saved_tree_event.reason == XmCR_ACTIVATE && node == p.current_dir && node->file_count)
        return;
    if (p.style == 0 && p.title_label) {
        ShowTitle(w, smi18n_gettext(" Scanning..."));
        if (XtIsRealized(p.title_label)) {
            XtExposeProc expose = XtClass(p.title_label)->core_class.expose;
            if (expose)
                expose(p.title_label, nullptr, nullptr);
            XFlush(XtDisplay(w));
        }
    }
    bool represent_only = p.flags & FSD_SCAN_REPRESENT_ONLY;
    bool refresh = p.flags & FSD_REFRESH;
    if (p.file_view && !node->last_item)
        node->last_item = static_cast<FsdFileItem *>(ViewSelected(w));
    std::string noted;
    if (represent_only && node->last_item && node->last_item->path)
        noted = node->last_item->path;
    bool list_created = false;
    bool reused = false;
    if (p.use_file_desk)
        list_created = PrepareView(w, &reused);
    if (list_created) {
        if (p.full_info_layout && *p.full_info_layout)
            XmPrjTreeSetColumnsLayoutString(p.file_view, p.full_info_layout);
    }
    FsdStatDirectory(node->path, &node->stat);
    p.current_dir = node;
    auto &store = FsdStateOf(w).store;
    if (!represent_only) {
        FsdFreeEntries(w);
        node->file_count = 0;
        p.item_count = 0;
        node->last_item = nullptr;
        node->spare = nullptr;
    }
    BusyCursor(w, true);
    if (!refresh) {
        SetViewEditable(w, False);
        SetTreeEditable(w, False);
    }
    auto tree_item = static_cast<XmPrjTreeNode>(node->tree_item);
    bool had_children = XmPrjTreeFindFirstChild(p.dir_tree, tree_item) != nullptr;
    XtPointer first = nullptr;
    if (!represent_only) {
        bool sort_by_name = !p.file_view || FsdIsDeskView(w);
        int shown = FsdScanDirectory(node, p.file_view != nullptr, CurrentRow(w), sort_by_name,
                                     p.file_view ? AcceptFile : nullptr, w, &store);
        p.entries = store.Table();
        p.entry_count = store.Count();
        node->file_count = shown;
    }
    // The tree learns of new sub-directories; the view gets the items,
    // directories first.
    FsdEntry **table = store.Table();
    int count = store.Count();
    std::vector<FsdEntry *> new_dirs;
    std::vector<FsdFileItem *> items;
    for (int pass = 0; pass < 2; pass++) {
        for (int i = 0; i < count; i++) {
            FsdEntry *entry = table[i];
            bool is_dir = FsdEntryIsDirectory(entry);
            if (is_dir != (pass == 0))
                continue;
            const char *name = entry->dirent->d_name;
            bool dot_dot = std::strcmp(name, "..") == 0;
            if (is_dir && !dot_dot && !represent_only && !ChildNamed(w, tree_item, name))
                new_dirs.push_back(entry);
            if (p.file_view && entry->item)
                items.push_back(entry->item);
        }
    }
    if (p.file_view)
        FillView(w, items, reused);
    for (FsdFileItem *item : items) {
        if (!first)
            first = item->handle;
        if (represent_only && !noted.empty() && noted == item->path) {
            first = item->handle;
            node->last_item = item;
        }
    }
    for (FsdEntry *entry : new_dirs) {
        std::string level = node->path;
        if (level.size() > 1)
            level.pop_back();
        FsdDirNode *child = FsdNewChildNode(w, level.c_str(), entry);
        XmPrjTreeNode item = AddTreeNode(w, tree_item, child, entry->dirent->d_name,
                                         FsdDirNodeState(child, p.scan_dir_on_sub_dirs));
        if (!had_children) {
            XmPrjTreeUpdateItem(p.dir_tree, item);
            XFlush(XtDisplay(w));
        }
    }
    if (!new_dirs.empty())
        XmPrjTreeSortChildren(p.dir_tree, tree_item);
    if (!p.file_view) {
        // Without a view the directories-only read leaves no entries to keep.
        FsdFreeEntries(w);
    }
    if (p.file_view) {
        p.flags |= FSD_SELECTING_PROGRAMMATICALLY;
        if (!refresh)
            SetCurrentInView(w, first);
        p.flags &= ~FSD_SELECTING_PROGRAMMATICALLY;
        // In a multiple selection being current does not select: the new
        // view gets the selection as it was, its current item included.
        bool multiple = p.selection_policy == XmMULTIPLE_SELECT;
        for (int i = 0; i < count; i++) {
            FsdFileItem *item = table[i]->item;
            if (!item)
                continue;
            if (item->selected && (item->handle != first || multiple)) {
                SelectInView(w, item->handle);
            } else if (multiple && represent_only && item->handle == first && !FsdIsDeskView(w)) {
                XmPrjTreeDeselectItem(p.file_view, static_cast<XmPrjTreeNode>(first));
                XmPrjTreeUpdateNode(p.file_view, static_cast<XmPrjTreeNode>(first));
            }
        }
    }
    int state = XmPrjTreeGetState(p.dir_tree, tree_item);
    bool has_children = XmPrjTreeFindFirstChild(p.dir_tree, tree_item) != nullptr;
    auto &saved = p.saved_tree_event;
    bool open_by_event = (saved.reason == XmCR_ACTIVATE && saved.part == 4 && state != 1) ||
                         saved.reason == XmCR_DEFAULT_ACTION;
    if (has_children && open_by_event && (state == 1 || state == 2))
        XmPrjTreeChangeState(p.dir_tree, tree_item, 0);
    // A tree rebuilt while realized took its levels unsorted.
    XmPrjTreeSortItems(p.dir_tree, False);
    if (!refresh)
        SetTreeEditable(w, True);
    p.flags &= ~FSD_USER_SELECT;
    if (p.file_view) {
        if (FsdIsDeskView(w))
            XmPrjDeskSortItems(p.file_view);
        else
            XmPrjTreeSortItems(p.file_view, False);
        if (!refresh)
            SetViewEditable(w, True);
    }
    if (node->file_count)
        p.item_count = node->file_count;
    BusyCursor(w, false);
    XFlush(XtDisplay(w));
    char *label = XmPrjTreeGetNameItem(p.dir_tree, tree_item);
    FsdCallCallbacks(w, p.file_list_changed_callback, XmCR_OK, nullptr, node->path, node->path,
                     label, &node->stat);
    if (p.style == 0) {
        if (p.selection_text && !represent_only) {
            if (!p.shown_directory || std::strcmp(p.shown_directory, node->path) != 0) {
                XtFree(p.shown_directory);
                p.shown_directory = XtNewString(node->path);
                p.selection_text_string = nullptr;
            }
            if (!p.selection_text_string || !*p.selection_text_string)
                p.selection_text_string = node->path;
            XmTextSetString(p.selection_text, p.selection_text_string);
            XmTextSetInsertionPosition(p.selection_text, XmTextGetLastPosition(p.selection_text));
        }
        if (p.title_label) {
            char title[8192];
            snprintf(title, sizeof title, p.title_string ? p.title_string : "%s   (%d) Nodes",
                     node->path, node->file_count);
            ShowTitle(w, title);
        }
    }
    Widget focus = XmGetFocusWidget(w);
    if (focus == p.dir_tree && p.file_view && XtIsManaged(XtParent(p.file_view)) && TreePaneClosed(w))
        XmProcessTraversal(p.file_view, XmTRAVERSE_CURRENT);
}
