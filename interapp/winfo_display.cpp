// Displays of the family's windows: a menu under a cascade button or rows
// of a tree list, kept in step with the windows info property.
#include <Xwk/Dialogs.h>
#include <Xwk/PrjTree.h>
#include <Xwk/Text.h>
#include <Xwk/Windows.h>

#include <Xm/CascadeB.h>
#include <Xm/CascadeBG.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Separator.h>
#include <X11/IntrinsicP.h>

#include <signal.h>
#include <string.h>

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "frame/xerrors.h"
#include "interapp/winfo_private.h"
#include "interapp/winfo_text.h"

namespace {

// One per displaying widget, the user word of its tree.
struct WindowsInfoState {
    Widget widget;
    int key = 0;                // the session of the last update
    char *last_text = nullptr;  // the raw property as last parsed (XFree)
    int count = 0;
    WindowsInfoRecord *records = nullptr;
    // Old records still on the display that no later table holds: a window
    // replaced at an equal count keeps its entry.  Their nodes point here.
    std::vector<std::unique_ptr<WindowsInfoRecord>> kept;
};

// Stamps the marking passes; a pass marks the old records it finds.
unsigned long pass_stamp;

bool IsMenuDisplay(Widget w)
{
    return XmIsCascadeButton(w) || XmIsCascadeButtonGadget(w);
}

bool Valid(const WindowsInfoRecord *r)
{
    return r && r->self == r;
}

void ShowInternalError(Widget w, const char *text)
{
    condit(w, "Error", XWK_KIND_ERROR, smi18n_gettext(text), nullptr, 0, 1, XWK_BUTTONS_OK);
}

// The node's record, or NULL; a word that is not a record is reported.
WindowsInfoRecord *RecordOfNode(Widget w, XwkTreeNode *node)
{
    if (!node || !node->data)
        return nullptr;
    WindowsInfoRecord *r = (WindowsInfoRecord *)node->data;
    if (Valid(r))
        return r;
    ShowInternalError(w, "Internal error: Invalid node found!");
    return nullptr;
}

XwkTree *TreeOf(Widget w)
{
    XtPointer data = nullptr;
    XtVaGetValues(w, XmNuserData, &data, NULL);
    return (XwkTree *)data;
}

Widget SubMenuOf(Widget cascade)
{
    Widget sub = nullptr;
    XtVaGetValues(cascade, XmNsubMenuId, &sub, NULL);
    return sub;
}

// Needs the silent error handler: the window may be gone.
bool Alive(Display *dpy, const WindowsInfoRecord *r)
{
    if (kill(r->pid, 0) != 0)
        return false;
    XWindowAttributes a;
    return r->window == 0 || XGetWindowAttributes(dpy, r->window, &a) != 0;
}

void SetLabel(Widget button, const char *title)
{
    XmString s = XmStringCreateLocalized(smi18n_gettext(title));
    XtVaSetValues(button, XmNlabelString, s, NULL);
    XmStringFree(s);
}

void RaiseWindow(Widget button, XtPointer client, XtPointer)
{
    XwkTreeNode *node = (XwkTreeNode *)client;
    WindowsInfoRecord *r = RecordOfNode(button, node);
    if (!r)
        return;
    Display *dpy = XtDisplay(button);
    XErrorHandler previous = XSetErrorHandler(XwkIgnoreXError);
    bool alive = Alive(dpy, r);
    if (alive && r->window)
        XMapRaised(dpy, r->window);
    XSync(dpy, False);
    XSetErrorHandler(previous);
    if (!alive)
        XwkDeleteWindowProperty(button, r->key, r->window);
}

Widget MakePushButton(Widget pane, const char *title, XwkTreeNode *node)
{
    Widget b = XmCreatePushButton(pane, (char *)"window", nullptr, 0);
    SetLabel(b, title);
    XtAddCallback(b, XmNactivateCallback, RaiseWindow, node);
    XtManageChild(b);
    return b;
}

Widget MakePulldown(Widget parent)
{
    Arg args[1];
    XtSetArg(args[0], XmNtearOffModel, XmTEAR_OFF_DISABLED);
    return XmCreatePulldownMenu(parent, (char *)"", args, 1);
}

void DestroyButton(Widget button)
{
    if (!button || button->core.being_destroyed)
        return;
    Widget sub = IsMenuDisplay(button) ? SubMenuOf(button) : nullptr;
    XtDestroyWidget(button);
    if (sub && !sub->core.being_destroyed)
        XtDestroyWidget(sub);
}

// The conversion of a selection that only announces: nothing to give.
Boolean ConvertNothing(Widget, Atom *, Atom *, Atom *, XtPointer *, unsigned long *, int *)
{
    return False;
}

// The partner that reacts to this selection is a separate application.
void TakeControlPanel(Widget, XtPointer client, XtPointer)
{
    Widget cascade = (Widget)client;
    XwkTree *tree = TreeOf(cascade);
    if (!tree || !tree->user)
        return;
    WindowsInfoState *state = (WindowsInfoState *)tree->user;
    // A gadget has no window of its own to own a selection with.
    Widget owner = XtIsWidget(cascade) ? cascade : XtParent(cascade);
    XtOwnSelection(owner, XwkGetWindowsInfoAtom(cascade, state->key),
                   XtLastTimestampProcessed(XtDisplay(cascade)), ConvertNothing, nullptr, nullptr);
}

void BuildSessionMenu(Widget cascade)
{
    Widget menu = MakePulldown(XtParent(cascade));
    Widget panel = XmCreatePushButton(menu, (char *)"controlPanel", nullptr, 0);
    SetLabel(panel, "Control panel");
    XtVaSetValues(panel, XmNmnemonic, (KeySym)'C', NULL);
    XtAddCallback(panel, XmNactivateCallback, TakeControlPanel, cascade);
    XtManageChild(panel);
    XtManageChild(XmCreateSeparator(menu, (char *)"", nullptr, 0));
    XtVaSetValues(cascade, XmNsubMenuId, menu, NULL);
}

// A window that lost its last child looks as it did before it had one.
void RevertToPushButton(WindowsInfoRecord *parent)
{
    if (!parent->button || !IsMenuDisplay(parent->button) ||
        parent->button->core.being_destroyed)
        return;
    DestroyButton(parent->button);
    parent->button = MakePushButton(parent->pane, parent->title, parent->node);
}

// The pane that holds a window's children: its button becomes a cascade
// whose menu starts with an entry that raises the window itself.
Widget ChildPane(WindowsInfoRecord *parent)
{
    if (parent->button && IsMenuDisplay(parent->button))
        return SubMenuOf(parent->button);
    DestroyButton(parent->button);
    Widget sub = MakePulldown(parent->pane);
    Widget cascade = XmCreateCascadeButton(parent->pane, (char *)"windowCascade", nullptr, 0);
    SetLabel(cascade, parent->title);
    XtVaSetValues(cascade, XmNsubMenuId, sub, NULL);
    XtManageChild(cascade);
    parent->button = cascade;
    MakePushButton(sub, parent->title, parent->node);
    XtManageChild(XmCreateSeparator(sub, (char *)"", nullptr, 0));
    return sub;
}

void DestroyNode(XwkTreeNode *node, XwkTree *tree)
{
    WindowsInfoState *state = (WindowsInfoState *)tree->user;
    Widget w = state->widget;
    // The node's own entry goes first: it lives in the parent's cascade
    // menu, which the parent's change back destroys.
    if (WindowsInfoRecord *r = RecordOfNode(w, node)) {
        if (r->item && !w->core.being_destroyed)
            XmPrjTreeDeleteItem(w, r->item);
        DestroyButton(r->button);
        XtFree(r->title);
        memset(r, 0, sizeof *r);
    }
    XwkTreeNode *up = node->parent;
    if (up && up->nchildren == 0) {
        WindowsInfoRecord *parent = RecordOfNode(w, up);
        if (parent)
            RevertToPushButton(parent);
    }
}

void FreeDisplay(WindowsInfoState *state, XwkTree *tree)
{
    t_destroy(tree);
    winfo::FreeRecords(state->records, state->count);
    if (state->last_text)
        XFree(state->last_text);
    delete state;
}

void DisplayDestroyed(Widget w, XtPointer, XtPointer)
{
    XwkTree *tree = TreeOf(w);
    if (!tree)
        return;
    WindowsInfoState *state = (WindowsInfoState *)tree->user;
    XtVaSetValues(w, XmNuserData, nullptr, NULL);
    FreeDisplay(state, tree);
    // The menu lives beside the button: its entries must not outlive the
    // records they raise.
    if (IsMenuDisplay(w)) {
        Widget sub = SubMenuOf(w);
        if (sub && !sub->core.being_destroyed)
            XtDestroyWidget(sub);
    }
}

void TakeDownMenu(Widget cascade)
{
    XwkTree *tree = TreeOf(cascade);
    if (tree) {
        XtRemoveCallback(cascade, XmNdestroyCallback, DisplayDestroyed, nullptr);
        XtVaSetValues(cascade, XmNuserData, nullptr, NULL);
        FreeDisplay((WindowsInfoState *)tree->user, tree);
    }
    Widget sub = SubMenuOf(cascade);
    if (!sub)
        return;
    XtVaSetValues(cascade, XmNsubMenuId, nullptr, NULL);
    XtDestroyWidget(sub);
}

XwkTree *CreateDisplay(Widget w)
{
    WindowsInfoState *state = new WindowsInfoState;
    state->widget = w;
    XwkTree *tree = t_create(XWK_TREE_PREORDER, DestroyNode, state);
    t_tlink(tree, nullptr, nullptr);
    if (IsMenuDisplay(w))
        BuildSessionMenu(w);
    XtVaSetValues(w, XmNuserData, tree, NULL);
    XtRemoveCallback(w, XmNdestroyCallback, DisplayDestroyed, nullptr);
    XtAddCallback(w, XmNdestroyCallback, DisplayDestroyed, nullptr);
    return tree;
}

// ---- Tree list rows -------------------------------------------------------

struct _XwkIcon *ListIcon(Widget list)
{
    XtPointer icon = nullptr;
    Widget parent = XtParent(list);
    if (parent && XtIsSubclass(parent, xmManagerWidgetClass))
        XtVaGetValues(parent, XmNuserData, &icon, NULL);
    return (struct _XwkIcon *)icon;
}

XwkTreeNode *AddRow(Widget list, XwkTreeNode *parent_item, WindowsInfoRecord *r)
{
    return XmPrjTreeAddItem(list, parent_item, r->title, ListIcon(list), (XtPointer)r->node,
                            XmSLAM_OPEN, nullptr, nullptr, nullptr);
}

// ---- One update -----------------------------------------------------------

using Triple = std::tuple<unsigned long, unsigned long, int>;

Triple TripleOf(const WindowsInfoRecord &r)
{
    return {r.window, r.parent, r.pid};
}

// The first valid record of each triple.
std::map<Triple, WindowsInfoRecord *> IndexByTriple(WindowsInfoRecord *table, int count)
{
    std::map<Triple, WindowsInfoRecord *> index;
    for (int i = 0; i < count; i++)
        if (Valid(&table[i]))
            index.emplace(TripleOf(table[i]), &table[i]);
    return index;
}

WindowsInfoRecord *Find(const std::map<Triple, WindowsInfoRecord *> &index,
                        const WindowsInfoRecord &r)
{
    auto it = index.find(TripleOf(r));
    return it == index.end() ? nullptr : it->second;
}

void Relabel(Widget w, WindowsInfoRecord *old, const char *title)
{
    if (old->button)
        SetLabel(old->button, title);
    if (old->item)
        XmPrjTreeRenameItem(w, old->item, title, nullptr);
}

void AddEntry(Widget w, XwkTree *tree, WindowsInfoRecord *r, WindowsInfoRecord *parent)
{
    bool menu = IsMenuDisplay(w);
    XwkTreeNode *up = parent ? parent->node : nullptr;
    r->node = t_tlink(tree, up ? up : tree->root, r);
    if (!r->node)
        return;
    if (!menu) {
        r->item = AddRow(w, up ? parent->item : nullptr, r);
        return;
    }
    r->pane = up ? ChildPane(parent) : SubMenuOf(w);
    if (r->pane)
        r->button = MakePushButton(r->pane, r->title, r->node);
}

void Update(Widget w, int key, XwkTree *tree, char *text, WindowsInfoRecord *records, int count)
{
    WindowsInfoState *state = (WindowsInfoState *)tree->user;
    unsigned long stamp = ++pass_stamp;
    WindowsInfoRecord *old = state->records;
    int old_count = state->count;
    int common = std::min(count, old_count);
    auto old_index = IndexByTriple(old, old_count);

    for (int i = 0; i < common; i++)
        if (WindowsInfoRecord *o = Find(old_index, records[i]))
            o->seen = stamp;
    if (count < old_count)
        for (int j = old_count - 1; j >= 0; j--)
            if (Valid(&old[j]) && old[j].node && old[j].seen != stamp)
                t_delete_node(tree, old[j].node);

    for (int i = 0; i < common; i++) {
        WindowsInfoRecord *r = &records[i], *o = Find(old_index, *r);
        if (!Valid(r) || !Valid(o) || !o->title)
            continue;
        if (strcmp(o->title, r->title) != 0)
            Relabel(w, o, r->title);
        r->key = key;
        r->node = o->node;
        r->pane = o->pane;
        r->button = o->button;
        r->item = o->item;
        o->node = nullptr;  // each old entry goes to one new record
    }

    std::unordered_map<unsigned long, WindowsInfoRecord *> by_window;
    for (int i = count - 1; i >= 0; i--)
        if (Valid(&records[i]))
            by_window[records[i].window] = &records[i];
    for (int i = 0; i < count; i++) {
        WindowsInfoRecord *r = &records[i];
        if (!Valid(r) || r->node || !r->title)
            continue;
        // Parent 0 is looked up like any other id: a published record of
        // window 0 takes the top-level windows after it as its children.
        auto it = by_window.find(r->parent);
        WindowsInfoRecord *parent = it == by_window.end() || it->second == r ? nullptr : it->second;
        AddEntry(w, tree, r, parent);
    }
    for (int i = 0; i < count; i++)
        if (Valid(&records[i]) && records[i].node && records[i].title)
            records[i].node->data = &records[i];

    // Entries the new table does not hold stay shown: their records move
    // out of the old table before it goes.
    std::erase_if(state->kept, [](const auto &r) { return !Valid(r.get()); });
    for (int j = 0; j < old_count; j++) {
        WindowsInfoRecord *o = &old[j];
        if (!Valid(o) || !o->node)
            continue;
        auto copy = std::make_unique<WindowsInfoRecord>(*o);
        copy->self = copy.get();
        copy->node->data = copy.get();
        o->title = nullptr;
        state->kept.push_back(std::move(copy));
    }
    winfo::FreeRecords(old, old_count);
    state->key = key;
    state->last_text = text;
    state->count = count;
    state->records = records;
}

}  // namespace

void XwkProcessWindowsInfo(Widget w, int key, XEvent *event)
{
    if (!w || w->core.being_destroyed || !event || event->type != PropertyNotify)
        return;
    Atom atom = XwkGetWindowsInfoAtom(w, key);
    if (event->xproperty.atom != atom)
        return;
    bool menu = IsMenuDisplay(w);
    if (!menu && !XtIsSubclass(w, xmPrjTreeWidgetClass))
        return;
    if (menu && kill(key, 0) != 0) {
        TakeDownMenu(w);
        return;
    }
    Display *dpy = XtDisplay(w);
    XGrabServer(dpy);
    char *text = winfo::ReadProperty(w, atom);
    XwkTree *tree = text ? TreeOf(w) : nullptr;
    WindowsInfoState *state = tree ? (WindowsInfoState *)tree->user : nullptr;
    if (text && state && state->last_text) {
        bool same = strcmp(state->last_text, text) == 0;
        XFree(state->last_text);
        state->last_text = same ? text : nullptr;
        if (same)
            text = nullptr;
    }
    if (!text || winfo::HeaderCount(text) == 0) {
        if (text)
            XFree(text);
        XUngrabServer(dpy);
        XFlush(dpy);
        return;
    }

    WindowsInfoRecord *records = nullptr;
    int count = ParsePropertyString(w, text, &records);
    XErrorHandler previous = XSetErrorHandler(XwkIgnoreXError);
    // A dead record is removed from the property of its record's key: 0 for
    // a record that has not yet survived an update, so that it stays in
    // this session's table until a raise or the control panel meets it.
    for (int i = 0; i < count; i++)
        if (Valid(&records[i]) && !Alive(dpy, &records[i]))
            XwkDeleteWindowProperty(w, records[i].key, records[i].window);
    XGrabServer(dpy);
    if (!tree)
        tree = CreateDisplay(w);
    Update(w, key, tree, text, records, count);
    XUngrabServer(dpy);
    XSync(dpy, False);
    XSetErrorHandler(previous);
}

void XwkProcessControlPanel(Widget w, int action)
{
    if (!w || !XtIsSubclass(w, xmPrjTreeWidgetClass))
        return;
    XtPointer selected = nullptr;
    XtVaGetValues(w, XmNselected, &selected, NULL);
    WindowsInfoRecord *r = RecordOfNode(w, (XwkTreeNode *)selected);
    if (!r)
        return;
    Display *dpy = XtDisplay(w);
    XErrorHandler previous = XSetErrorHandler(XwkIgnoreXError);
    bool alive = Alive(dpy, r);
    if (alive && r->window) {
        if (action == XWK_PANEL_RAISE) {
            XMapRaised(dpy, r->window);
            XSetInputFocus(dpy, r->window, RevertToParent, CurrentTime);
        } else if (action == XWK_PANEL_CLOSE) {
            XwkSendClientMsg(dpy, r->window, XInternAtom(dpy, "WM_PROTOCOLS", False),
                             (long)XInternAtom(dpy, "WM_DELETE_WINDOW", False), 0);
        }
    }
    XSync(dpy, False);
    XSetErrorHandler(previous);
    if (!alive)
        XwkDeleteWindowProperty(w, r->key, r->window);
}
