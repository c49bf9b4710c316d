// The file selection desk's handlers: selections in the directory tree
// and the file view, the buttons, the filter patterns, and the updates
// applications ask for.
#include "filedesk/filedesk_widget.h"

#include <Xm/Text.h>
#include <Xwk/ComboBox.h>
#include <Xwk/PrjTreeP.h>
#include <Xwk/Strings.h>

#include <cstring>
#include <string>

namespace {

void ScanTimer(XtPointer client_data, XtIntervalId *)
{
    Widget w = static_cast<Widget>(client_data);
    FsdPart(w).select_timer = 0;
    FsdScan(w);
}

void TreeSelection(Widget tree, XtPointer client_data, XtPointer call_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    auto *cbs = static_cast<XmPrjTreeCallbackStruct *>(call_data);
    XtPointer node = cbs ? cbs->clientData : nullptr;
    if (!node)
        XtVaGetValues(tree, XmNselected, &node, nullptr);
    if (!node)
        return;
    if (cbs && cbs->reason != XmCR_TREE_SELECTION_CHANGED)
        p.flags |= FSD_USER_SELECT;
    FsdCancelSelectTimer(w);
    if (p.flags & (FSD_DEFAULT_ACTION | FSD_REBUILD)) {
        FsdScan(w);
        return;
    }
    if (cbs)
        p.saved_tree_event = *cbs;
    else
        std::memset(&p.saved_tree_event, 0, sizeof p.saved_tree_event);
    if (cbs && (cbs->reason == XmCR_ACTIVATE || cbs->reason == XmCR_DEFAULT_ACTION)) {
        FsdScan(w);
        return;
    }
    p.select_timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w), p.repeat_delay, ScanTimer, w);
}

void TreeDefaultAction(Widget tree, XtPointer client_data, XtPointer call_data)
{
    auto *cbs = static_cast<XmPrjTreeCallbackStruct *>(call_data);
    if (cbs && cbs->node && XmPrjTreeFindFirstChild(tree, cbs->node)) {
        int state = XmPrjTreeGetState(tree, cbs->node);
        XmPrjTreeChangeState(tree, cbs->node, state == 1 || state == 2 ? 0 : 1);
        return;
    }
    TreeSelection(tree, client_data, call_data);
}

void CallFocus(Widget w, const char *path, const char *name, struct stat *st)
{
    FsdCallCallbacks(w, FsdPart(w).focus_callback, XmCR_FOCUS, nullptr, path, path, name, st);
}

void TreeFocus(Widget tree, XtPointer client_data, XtPointer)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    if (p.filter.button)
        XtVaSetValues(w, XmNdefaultButton, p.filter.button, nullptr);
    XtPointer data = nullptr;
    XtVaGetValues(tree, XmNselected, &data, nullptr);
    auto *node = static_cast<FsdDirNode *>(data);
    const char *name = node ? XmPrjTreeGetNameItem(tree, static_cast<XmPrjTreeNode>(node->tree_item)) : nullptr;
    CallFocus(w, node ? node->path : nullptr, name, node ? &node->stat : nullptr);
}

FsdFileItem *ItemOfCall(Widget w, XtPointer call_data)
{
    if (!call_data)
        return nullptr;
    if (FsdIsDeskView(w))
        return static_cast<FsdFileItem *>(static_cast<XmPrjDeskCallbackStruct *>(call_data)->userData);
    return static_cast<FsdFileItem *>(static_cast<XmPrjTreeCallbackStruct *>(call_data)->clientData);
}

XEvent *EventOfCall(XtPointer call_data)
{
    return call_data ? static_cast<XmAnyCallbackStruct *>(call_data)->event : nullptr;
}

void SetTextToEnd(Widget text, const char *value)
{
    XmTextSetString(text, const_cast<char *>(value ? value : ""));
    XmTextSetInsertionPosition(text, XmTextGetLastPosition(text));
}

// The item's selected byte follows the view, so that another representation
// shows the same selection.  A tree list's call data tell the state before
// a press, so its row is asked.  An item selected alone, in a single
// selection or by a press without Ctrl or Shift in a multiple one, leaves
// the others unselected, and the view reports no other row.
void FollowSelection(Widget w, FsdFileItem *item, XtPointer call_data)
{
    auto &p = FsdPart(w);
    if (FsdIsDeskView(w)) {
        item->selected = static_cast<XmPrjDeskCallbackStruct *>(call_data)->selected;
    } else {
        XmPrjTreeNode node = static_cast<XmPrjTreeCallbackStruct *>(call_data)->node;
        auto *row = node ? static_cast<XmPrjTreeItem>(node->data) : nullptr;
        item->selected = row && (row->flags & XmTREE_ITEM_SELECTED);
    }
    XEvent *event = EventOfCall(call_data);
    bool alone = p.selection_policy != XmMULTIPLE_SELECT ||
                 (event && event->type == ButtonPress && !(event->xbutton.state & (ControlMask | ShiftMask)));
    if (!alone || !item->selected)
        return;
    for (int i = 0; i < p.entry_count; i++) {
        FsdFileItem *other = p.entries[i]->item;
        if (other && other != item)
            other->selected = False;
    }
}

}  // namespace

void FsdSetDefaultButtonFor(Widget w, FsdFileItem *item)
{
    auto &p = FsdPart(w);
    Widget button = p.ok.button;
    if (item && item->is_dir && p.selection_desk_type != XmSELECT_ONLY_DIRS && p.filter.button)
        button = p.filter.button;
    if (button)
        XtVaSetValues(w, XmNdefaultButton, button, nullptr);
}

void FsdCancelSelectTimer(Widget w)
{
    auto &p = FsdPart(w);
    if (p.select_timer)
        XtRemoveTimeOut(p.select_timer);
    p.select_timer = 0;
}

void FsdSetupTreeCallbacks(Widget w)
{
    auto &p = FsdPart(w);
    XtAddCallback(p.dir_tree, p.use_file_desk ? XmNselectionChanged : XmNactivateCallback,
                  TreeSelection, w);
    XtAddCallback(p.dir_tree, XmNdefaultActionCallback, TreeDefaultAction, w);
    XtAddCallback(p.dir_tree, XmNfocusCallback, TreeFocus, w);
}

// The view's handlers, attached by the scan to whichever view is shown.
void FsdViewSelection(Widget, XtPointer client_data, XtPointer call_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    FsdFileItem *item = ItemOfCall(w, call_data);
    // The current item set by a scan is no change of the selection: the
    // bytes stay for the scan to select again.
    if ((p.flags & FSD_SELECTING_PROGRAMMATICALLY) || !item)
        return;
    FollowSelection(w, item, call_data);
    if (p.selection_text)
        SetTextToEnd(p.selection_text, item->path);
    if (item->dir)
        item->dir->last_item = item;
    FsdCallCallbacks(w, p.single_selection_callback, XmCR_SINGLE_SELECT, EventOfCall(call_data),
                     item->path, item->dir ? item->dir->path : nullptr, item->name, item->stat);
    FsdSetDefaultButtonFor(w, item);
}

void FsdViewDefaultAction(Widget, XtPointer client_data, XtPointer call_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    FsdFileItem *item = ItemOfCall(w, call_data);
    if (!item || !p.current_dir)
        return;
    p.flags |= FSD_DEFAULT_ACTION;
    bool dirs_too = p.selection_desk_type != XmSELECT_ONLY_DIRS;
    if (dirs_too && std::strcmp(item->name, "..") == 0) {
        auto tree_item = static_cast<XmPrjTreeNode>(p.current_dir->tree_item);
        XmPrjTreeNode parent = XmPrjTreeGetParent(p.dir_tree, tree_item);
        if (parent)
            XmPrjTreeSetNode(p.dir_tree, parent);
        p.flags &= ~FSD_DEFAULT_ACTION;
        return;
    }
    if (dirs_too && item->is_dir) {
        if (!XwkAccess(item->stat, 4)) {
            FsdBell(w);
            p.flags &= ~FSD_DEFAULT_ACTION;
            return;
        }
        FsdDirNode *dir = p.current_dir;
        FsdDescend(w, dir, item->name);
        p.flags &= ~FSD_DEFAULT_ACTION;
        return;
    }
    p.flags &= ~FSD_DEFAULT_ACTION;
    XEvent *event = EventOfCall(call_data);
    FsdCallCallbacks(w, p.default_action_callback, XmCR_DEFAULT_ACTION, event, item->path,
                     item->dir ? item->dir->path : nullptr, item->name, item->stat);
    if (p.style == 0 && p.ok.callback && p.ok.button)
        FsdActivateButton(w, 4, event);
}

void FsdViewFocus(Widget, XtPointer client_data, XtPointer call_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    XtPointer data = nullptr;
    XtVaGetValues(p.file_view, XmNselected, &data, nullptr);
    auto *item = static_cast<FsdFileItem *>(data);
    (void)call_data;
    FsdSetDefaultButtonFor(w, item);
    CallFocus(w, item ? item->path : nullptr, item ? item->name : nullptr, item ? item->stat : nullptr);
}

// ---- Buttons -------------------------------------------------------------

void FsdActivateButton(Widget w, int id, XEvent *event)
{
    auto &p = FsdPart(w);
    FsdDirNode *dir = p.current_dir;
    if (!dir)
        return;
    p.selection_text_string = dir->path;
    FsdFileItem *last = dir->last_item;
    const char *path = last ? last->path : nullptr;
    const char *name = last ? last->name : nullptr;
    struct stat *st = last ? last->stat : nullptr;
    switch (id) {
    case 2:
        return FsdCallCallbacks(w, p.cancel.callback, XmCR_CANCEL, event, path, dir->path, name, st);
    case 17:
        return FsdCallCallbacks(w, p.filter.callback, 47, event, path, dir->path, name, st);
    case 18:
        return FsdCallCallbacks(w, p.info_callback, 48, event, path, dir->path, name, st);
    case 19:
        return FsdCallCallbacks(w, p.new_file.callback, 49, event, path, dir->path, name, st);
    case 7:
        return FsdCallCallbacks(w, reinterpret_cast<XmManagerWidget>(w)->manager.help_callback,
                                XmCR_HELP, event, path, dir->path, name, st);
    default:
        break;
    }
    // OK.
    std::string text;
    bool from_field = p.selection_text && XtIsManaged(p.selection_text);
    if (from_field) {
        char *value = XmTextGetString(p.selection_text);
        text = value;
        XtFree(value);
        if (!text.empty() && text[0] == '~') {
            if (char *expanded = XwkExpandTilde(text.c_str())) {
                text = expanded;
                free(expanded);
            }
        }
        // A relative text names an entry of the shown directory: it is
        // never resolved against the working directory, which scans move.
        if (!text.empty() && text[0] == '/') {
            if (char *canonical = FsdCanonicalPath(text.c_str())) {
                text = canonical;
                XtFree(canonical);
            }
        }
    } else if (path) {
        text = path;
    }
    if (from_field && p.selection_desk_type == XmSELECT_ONLY_FILES) {
        std::string dir_path = dir->path;
        if (dir_path.size() > 1)
            dir_path.pop_back();
        if (text == dir_path) {
            SetTextToEnd(p.selection_text, dir->path);
            return;
        }
        struct stat info;
        if (stat(text.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
            _XmFileSelectionDeskUpdate(w, text.c_str(), 0);
            return;
        }
    }
    if (dir->file_count < 2 && text.empty()) {
        FsdCallCallbacks(w, p.no_match_callback, XmCR_NO_MATCH, event, path, dir->path, name, st);
        return;
    }
    std::string full = path ? path : "";
    std::string entry_name = name ? name : "";
    if (!path || text != path) {
        if (!text.empty() && text[0] == '/') {
            full = text;
        } else {
            std::string base = dir->path;
            if (base.size() > 1)
                base.pop_back();
            full = base + "/" + text;
        }
        entry_name = text;
    }
    FsdCallCallbacks(w, p.ok.callback, XmCR_OK, event, full.c_str(), dir->path, entry_name.c_str(), st);
}

// ---- Patterns ------------------------------------------------------------

void FsdShowPattern(Widget w)
{
    auto &p = FsdPart(w);
    if (!p.patterns)
        return;
    if (p.pattern && *p.pattern)
        p.pattern_position = FsdFindPatternRow(p.patterns, p.pattern_count, p.pattern);
    if (p.pattern_position == 0 && p.filter_text) {
        SetTextToEnd(p.filter_text, p.patterns[0]->text);
        XtVaSetValues(p.filter_text, XmNeditable, True, XmNcursorPositionVisible, True, nullptr);
    }
    if (p.filter_combo && p.pattern_position > 0)
        XtVaSetValues(p.filter_combo, XmNselectedPosition, p.pattern_position, nullptr);
}

namespace {

Boolean RestorePattern(XtPointer client_data)
{
    Widget w = static_cast<Widget>(client_data);
    auto &p = FsdPart(w);
    auto &state = FsdStateOf(w);
    state.restore_work = 0;
    if (p.pattern_position == 0 && state.restore_text && p.patterns && p.patterns[0]->text) {
        XmTextPosition cursor = XmTextGetInsertionPosition(state.restore_text);
        XmTextSetString(state.restore_text, p.patterns[0]->text);
        XmTextSetInsertionPosition(state.restore_text, cursor);
    }
    if (p.filter_combo)
        p.filter_text = XwkComboBoxGetText(p.filter_combo);
    return True;
}

}  // namespace

extern "C" {

int XmFileSDCreateFilterPatternsData(Widget desk, XmString **strings)
{
    if (!FsdIsDesk(desk))
        return 0;
    auto &p = FsdPart(desk);
    FsdFreePatterns(p.patterns, p.pattern_count);
    p.patterns = nullptr;
    p.pattern_count = FsdBuildPatterns(p.patterns_description, p.pattern, &p.patterns, nullptr);
    if (strings)
        *strings = FsdPatternNameStrings(p.patterns, p.pattern_count);
    return p.pattern_count;
}

char *XmFileSDGetFilterPatternString(Widget desk, int *position)
{
    if (!FsdIsDesk(desk))
        return nullptr;
    auto &p = FsdPart(desk);
    if (position)
        *position = p.pattern_position;
    if (!p.patterns || p.pattern_position < 0 || p.pattern_position > p.pattern_count)
        return nullptr;
    return p.patterns[p.pattern_position]->text;
}

void XmFileSDSetRealPattern(Widget desk, char *)
{
    if (!FsdIsDesk(desk))
        return;
    auto &p = FsdPart(desk);
    if (!XtIsRealized(desk) || !XtIsManaged(desk) || !p.filter_text)
        return;
    XtVaSetValues(p.filter_text, XmNeditable, False, XmNcursorPositionVisible, False, nullptr);
    if (p.pattern_position > 0 && p.patterns) {
        XmTextPosition cursor = XmTextGetInsertionPosition(p.filter_text);
        XmTextSetString(p.filter_text, p.patterns[p.pattern_position]->name);
        XmTextSetInsertionPosition(p.filter_text, cursor);
    }
}

void XmFileSDShowNewPattern(Widget desk, Widget combo, Boolean from_combo, XEvent *event)
{
    if (!FsdIsDesk(desk))
        return;
    auto &p = FsdPart(desk);
    if (p.flags & (FSD_DEFAULT_ACTION | FSD_PATTERN_BUSY))
        return;
    if (combo && from_combo) {
        Widget text_widget = XwkComboBoxGetText(combo);
        char *text = XmTextGetString(text_widget);
        int row = FsdFindPatternRow(p.patterns, p.pattern_count, text);
        XtFree(text);
        if (row > 0)
            XtVaSetValues(combo, XmNselectedPosition, row, nullptr);
        if (event && (event->type == KeyPress || event->type == ButtonPress ||
                      event->type == ButtonRelease || event->type == KeyRelease) &&
            (event->xkey.state & ControlMask)) {
            p.pattern_position = row;
            p.flags &= ~FSD_PATTERN_BUSY;
            return;
        }
    }
    std::string text;
    if (combo) {
        Widget text_widget = XwkComboBoxGetText(combo);
        char *value = XmTextGetString(text_widget);
        text = value;
        XtFree(value);
        int row = FsdFindPatternRow(p.patterns, p.pattern_count, text.c_str());
        bool is_name = false;
        for (int i = 1; i <= p.pattern_count; i++)
            if (text == p.patterns[i]->name) {
                row = i;
                is_name = true;
            }
        XtVaSetValues(text_widget, XmNeditable, False, nullptr);
        p.pattern_position = row;
        (void)is_name;
    }
    if (p.pattern_position == 0) {
        int failures = 0;
        if (FsdSetPatternText(p.patterns[0], text.c_str(), &failures)) {
            XtFree(p.pattern);
            p.pattern = XtNewString(text.c_str());
        }
        if (failures)
            FsdBell(desk);
    } else if (p.patterns) {
        const char *row_text = p.patterns[p.pattern_position]->text;
        if (row_text && std::strncmp(row_text, p.pattern, kFsdPatternCompareLength) != 0) {
            XtFree(p.pattern);
            p.pattern = XtNewString(row_text);
        }
    }
    XmFileSelectionDeskUpdate(desk, 1);
    if (p.file_view)
        XmProcessTraversal(p.file_view, XmTRAVERSE_CURRENT);
    p.flags &= ~FSD_PATTERN_BUSY;
}

void XmFileSDRestorePatternAfterComboBox(Widget desk, Widget text)
{
    if (!FsdIsDesk(desk))
        return;
    auto &state = FsdStateOf(desk);
    state.restore_text = text;
    if (!state.restore_work)
        state.restore_work = XtAppAddWorkProc(XtWidgetToApplicationContext(desk), RestorePattern, desk);
}

// ---- Updates -------------------------------------------------------------

void XmFileSelectionDeskUpdate(Widget widget, int mode)
{
    if (!FsdIsDesk(widget))
        return;
    auto &p = FsdPart(widget);
    std::string path = p.current_dir ? p.current_dir->path : (p.directory ? p.directory : ".");
    _XmFileSelectionDeskUpdate(widget, path.c_str(), mode);
}

void _XmFileSelectionDeskUpdate(Widget widget, const char *path, int mode)
{
    if (!FsdIsDesk(widget) || !path)
        return;
    auto &p = FsdPart(widget);
    if (mode == 0) {
        bool keep = p.current_dir && std::strcmp(p.current_dir->path, path) == 0;
        int x = 0;
        int y = 0;
        if (keep)
            XmPrjTreeGetOrigins(p.dir_tree, &x, &y);
        std::string target = path;
        p.flags |= FSD_REBUILD;
        XmPrjTreeSetEditable(p.dir_tree, False);
        XmPrjTreeNode root = XmPrjTreeGetRoot(p.dir_tree);
        if (root)
            XmPrjTreeDeleteChildren(p.dir_tree, root);
        FsdBuildTree(widget, target.c_str());
        if (keep)
            XmPrjTreeSetOrigins(p.dir_tree, x, y);
        XmPrjTreeSetEditable(p.dir_tree, True);
        p.flags &= ~FSD_REBUILD;
        return;
    }
    if (mode != 1)
        return;
    p.flags |= FSD_REFRESH;
    std::memset(&p.saved_tree_event, 0, sizeof p.saved_tree_event);
    int tree_x = 0, tree_y = 0, view_x = 0, view_y = 0;
    XmPrjTreeGetOrigins(p.dir_tree, &tree_x, &tree_y);
    XmPrjTreeSetEditable(p.dir_tree, False);
    Widget view = p.file_view;
    bool desk_view = FsdIsDeskView(widget);
    std::string selected;
    if (view) {
        if (desk_view)
            XmPrjDeskGetOrigins(view, &view_x, &view_y);
        else
            XmPrjTreeGetOrigins(view, &view_x, &view_y);
        XtPointer data = nullptr;
        XtVaGetValues(view, XmNselected, &data, nullptr);
        if (auto *item = static_cast<FsdFileItem *>(data))
            selected = item->path;
        if (desk_view)
            XmPrjDeskSetEditable(view, False);
        else
            XmPrjTreeSetEditable(view, False);
    }
    FsdScan(widget);
    view = p.file_view;
    if (view) {
        XtPointer found = nullptr;
        for (int i = 0; i < FsdStateOf(widget).store.Count() && !selected.empty(); i++) {
            FsdFileItem *item = FsdStateOf(widget).store.Table()[i]->item;
            if (item && selected == item->path) {
                found = item->handle;
                break;
            }
        }
        p.flags |= FSD_SELECTING_PROGRAMMATICALLY;
        if (FsdIsDeskView(widget)) {
            XmPrjDeskSetEditable(view, True);
            if (found)
                XmPrjDeskSetItem(view, static_cast<XmPrjDeskNode>(found));
            XmPrjDeskSetOrigins(view, view_x, view_y);
        } else {
            XmPrjTreeSetEditable(view, True);
            if (found)
                XmPrjTreeSetItem(view, static_cast<XmPrjTreeNode>(found), False);
            XmPrjTreeSetOrigins(view, view_x, view_y);
        }
        p.flags &= ~FSD_SELECTING_PROGRAMMATICALLY;
    }
    XmPrjTreeSetOrigins(p.dir_tree, tree_x, tree_y);
    XmPrjTreeSetEditable(p.dir_tree, True);
    p.flags &= ~FSD_REFRESH;
}

Boolean XmFileSelectionDeskShowDirectory(Widget widget, const char *path)
{
    if (!FsdIsDesk(widget))
        return False;
    if (!path)
        return True;
    std::string text = path;
    if (!text.empty() && text[0] == '~') {
        if (char *expanded = XwkExpandTilde(path)) {
            text = expanded;
            free(expanded);
        }
    }
    if (char *canonical = FsdCanonicalPath(text.c_str())) {
        text = canonical;
        XtFree(canonical);
    } else {
        FsdBell(widget);
    }
    struct stat st;
    if (stat(text.c_str(), &st) == 0 && S_ISDIR(st.st_mode))
        _XmFileSelectionDeskUpdate(widget, text.c_str(), 0);
    else
        FsdBell(widget);
    return True;
}

}  // extern "C"
