// The file selection desk on a real server and a real file system: the
// scan into the views, the four representations, filter patterns, refresh,
// navigation by keys and clicks, the dialog with its buttons, selections of
// several files, and files dragged from one desk to another.
#include "xwktest.h"

#include <Xwk/FileSDP.h>
#include <Xwk/PrjTreeP.h>
#include <Xm/DragDrop.h>
#include <Xm/DrawingA.h>
#include <sys/time.h>

#include <map>

using xwktest::Get;

namespace {

XmFileSelectionDeskPart &Part(Widget w) { return ((XmFileSelectionDeskWidget)w)->fsd; }

struct Record {
    int reason;
    std::string path, directory, name;
};
std::vector<Record> records;

std::string Text(const char *s) { return s ? s : ""; }

void Remember(Widget, XtPointer, XtPointer call)
{
    auto *cbs = (FsdCallbackStruct *)call;
    records.push_back({cbs->reason, Text(cbs->path), Text(cbs->directory), Text(cbs->name)});
}

struct Drop {
    int reason;
    unsigned char operation;
    std::string directory;
    std::vector<std::string> files;
};
std::vector<Drop> drops;

void Dropped(Widget, XtPointer, XtPointer call)
{
    auto *c = (FsdTransferDoneCallbackStruct *)call;
    drops.push_back({c->reason, c->operation, c->directory, {c->files, c->files + c->count}});
}

// A plain drop site of another program's kind: it asks for every target
// the desk exports and keeps the texts by their type.
std::map<std::string, std::string> probed;
const char *kProbeTargets[] = {"FILE_NAME", "COMPOUND_TEXT", "_XWK_FILE_NAMES"};

void ProbeValue(Widget w, XtPointer, Atom *, Atom *type, XtPointer value, unsigned long *length,
                int *format)
{
    if (value && *format == 8) {
        char *name = XGetAtomName(XtDisplay(w), *type);
        probed[name] = std::string((char *)value, *length);
        XFree(name);
    }
    XtFree((char *)value);
}

void ProbeDrop(Widget w, XtPointer, XtPointer call)
{
    auto *cbs = (XmDropProcCallbackStruct *)call;
    static XmDropTransferEntryRec entries[3];
    for (int i = 0; i < 3; i++)
        entries[i] = {nullptr, XInternAtom(XtDisplay(w), kProbeTargets[i], False)};
    Arg args[] = {{(String)XmNdropTransfers, (XtArgVal)entries},
                  {(String)XmNnumDropTransfers, 3},
                  {(String)XmNtransferProc, (XtArgVal)ProbeValue}};
    XmDropTransferStart(cbs->dragContext, args, 3);
}

std::string Cwd() { return std::filesystem::current_path().string(); }

// Xt's warnings: the whole text, the widget's name and class in it.
std::vector<std::string> warnings;
void CollectWarning(String message) { warnings.push_back(message ? message : ""); }

// Makes every built-in icon but "DeskExec".
XtPointer IconsButExec(Widget desk, char **data, XtPointer, const char *name)
{
    return std::strcmp(name, "DeskExec") == 0 ? nullptr : XwkIconCreateFromData(desk, data);
}

class Desk : public ::testing::Test {
protected:
    static void SetUpTestSuite() { xwktest::StartApp("XwkFsdTest"); }

    void SetUp() override
    {
        start_ = Cwd();
        dir_ = tmp_.Path();
        for (const char *d : {"alpha", "alpha/inner", "beta", "with space"})
            ASSERT_EQ(mkdir(P(d).c_str(), 0755), 0);
        for (const char *f : {"a.c", "b.c", "notes.txt", "z.h", "run"})
            Touch(f);
        chmod(P("run").c_str(), 0755);
        ASSERT_EQ(symlink("alpha", P("to_alpha").c_str()), 0);
        ASSERT_EQ(symlink("nowhere", P("dangling").c_str()), 0);
        records.clear();
        drops.clear();
        probed.clear();
    }
    void TearDown() override
    {
        for (Widget shell : shells_)
            XtDestroyWidget(shell);
        xwktest::Settle();
        ASSERT_EQ(chdir(start_.c_str()), 0);
    }
    std::string P(const char *name) const { return dir_ + "/" + name; }
    void Touch(const char *name) { std::ofstream(P(name)).flush(); }

    // A desk in a shell of its own, realized and (when it has a view) scanned.
    Widget MakeDesk(std::vector<Arg> args = {}, int x = 0, bool view = true)
    {
        Widget shell = XtVaAppCreateShell("fsd", "Fsd", topLevelShellWidgetClass,
                                          XtDisplay(xwktest::StartApp()), XmNwidth, 640,
                                          XmNheight, 420, XmNx, x, XmNy, 0, nullptr);
        shells_.push_back(shell);
        args.push_back({(String)XmNdirectory, (XtArgVal)dir_.c_str()});
        Widget desk = XmCreateFileSelectionDesk(shell, (String) "desk", args.data(), args.size());
        XtAddCallback(desk, XmNfileListChangedCallback, Remember, nullptr);
        XtManageChild(desk);
        XtRealizeWidget(shell);
        EXPECT_TRUE(xwktest::WaitViewable(desk));
        EXPECT_TRUE(!view || xwktest::PumpUntil([&] { return Part(desk).item_count > 0; }));
        xwktest::Settle();
        return desk;
    }
    void Represent(Widget desk, unsigned char representation)
    {
        XtVaSetValues(desk, XmNrepresentation, representation, nullptr);
        xwktest::Settle();
    }
    // Asks the desk to show a directory; true once it does.
    bool ShowDirectory(Widget desk, const std::string &path, int timeout_ms = 3000)
    {
        return XmFileSelectionDeskShowDirectory(desk, path.c_str()) &&
               xwktest::PumpUntil([&] { return Shown(desk) == path + "/"; }, timeout_ms);
    }
    std::string Shown(Widget desk)
    {
        return Part(desk).current_dir ? Part(desk).current_dir->path : "";
    }
    int ViewCount(Widget desk)
    {
        Widget view = Part(desk).file_view;
        if (XtIsSubclass(view, xmPrjDeskWidgetClass))
            return XmPrjDeskGetItemsCount(view);
        return XmPrjTreeGetItemsCount(view, nullptr);
    }
    // A point of the view where the item named name lies, found by asking
    // the view what is under each point.
    bool PointOf(Widget desk, Widget view, const char *name, int *x, int *y)
    {
        bool tree = view == Part(desk).dir_tree;
        std::string want = *name ? dir_ + "/" + name + "/" : dir_ + "/";
        // On a row of the detail list only its label takes a click.
        int part = tree ? XmTREE_PART_ROW : XmTREE_PART_LABEL;
        for (int py = 2; py < view->core.height; py += 3)
            for (int px = 2; px < view->core.width; px += 3) {
                XtPointer data = XtIsSubclass(view, xmPrjDeskWidgetClass)
                                     ? XmPrjDeskWhichItem(view, px, py)
                                     : XmPrjTreeWhichItem(part, px, py, view);
                if (data && (tree ? want == ((FsdDirNode *)data)->path
                                  : ((FsdFileItem *)data)->name == std::string(name))) {
                    *x = px;
                    *y = py;
                    return true;
                }
            }
        return false;
    }

    // A directory of count names, hard links of one file made beside it:
    // quick to make and to remove.
    std::string LinkMany(const std::string &where, int count)
    {
        std::string one = where + ".one";
        close(open(one.c_str(), O_CREAT | O_WRONLY, 0644));
        EXPECT_EQ(mkdir(where.c_str(), 0755), 0);
        char name[32];
        for (int i = 0; i < count; i++) {
            snprintf(name, sizeof name, "/f%06d.c", i);
            if (link(one.c_str(), (where + name).c_str()) != 0) {
                ADD_FAILURE() << where + name;
                break;
            }
        }
        return where;
    }
    // Root position of the item named name in a view (or tree) of a desk.
    void RootPointOf(Widget desk, Widget view, const char *name, int *x, int *y)
    {
        // After a drop the views refresh from a timer: wait for the item.
        int px = 0, py = 0;
        ASSERT_TRUE(xwktest::PumpUntil([&] { return PointOf(desk, view, name, &px, &py); }))
            << name;
        xwktest::RootPosition(view, x, y);
        *x += px;
        *y += py;
    }
    // A click on an item of the file view, with Ctrl or Shift (a mask) held.
    void ClickItem(Widget desk, const char *name, unsigned modifiers = 0)
    {
        int x = 0, y = 0;
        ASSERT_TRUE(PointOf(desk, Part(desk).file_view, name, &x, &y)) << name;
        xwktest::ClickWith(Part(desk).file_view, x, y, modifiers);
        xwktest::Settle();
    }
    std::vector<std::string> Selected(Widget desk)
    {
        char **paths = nullptr;
        int count = XmFileSelectionDeskGetSelectedItems(desk, &paths);
        std::vector<std::string> out;
        for (int i = 0; i < count; i++)
            out.push_back(xwktest::Take(paths[i]));
        XtFree((char *)paths);
        std::sort(out.begin(), out.end());
        return out;
    }

    xwktest::TempDir tmp_;
    std::string start_, dir_;
    std::vector<Widget> shells_;
};

// ".." + 4 directories (the link to one counts) + 5 files; the dangling link is never shown.
constexpr int kAll = 1 + 4 + 5;

// The scan fills the view and the tree; a desk without a file view reads
// the directory into its tree alone and counts the sub-directories it shows.
TEST_F(Desk, ScanFillsTheViewAndTheTree)
{
    for (bool view : {true, false}) {
        SCOPED_TRACE(view);
        records.clear();
        Widget desk = MakeDesk({{(String)XmNuseFileDesk, view}}, 0, view);
        Widget tree = Part(desk).dir_tree;
        EXPECT_EQ(Get<Widget>(desk, XmNdirectoryTree), tree);
        EXPECT_EQ(Get<Widget>(desk, XmNfileDesk) != nullptr, view);
        ASSERT_NE(Part(desk).current_dir, nullptr);
        EXPECT_EQ(Shown(desk), dir_ + "/");
        EXPECT_EQ(xwktest::Take(Get<char *>(desk, XmNdirectory)), dir_ + "/");
        auto node = (XmPrjTreeNode)Part(desk).current_dir->tree_item;
        EXPECT_EQ(XmPrjTreeGetItemsCount(tree, node), 4);  // alpha, beta, with space, to_alpha
        if (view) {
            EXPECT_EQ(ViewCount(desk), kAll);
        } else {  // a scan without a view counts the sub-directories it shows
            XmFileSelectionDeskUpdate(desk, 1);
        }
        EXPECT_EQ(Get<int>(desk, XmNitemCount), view ? kAll : 4);
        // Scroll bars the tree manages as the desk is realized stand beside it.
        for (const char *name : {"treeVertScrollBar", "treeHorizScrollBar"}) {
            Widget bar = XtNameToWidget(XtParent(tree), name);
            if (bar && XtIsManaged(bar)) {
                EXPECT_TRUE(bar->core.x >= tree->core.x + tree->core.width ||
                            bar->core.y >= tree->core.y + tree->core.height) << name;
            }
        }
        // The working directory is left at the directory's "..", as
        // documented; absolute paths the application holds keep working.
        EXPECT_EQ(Cwd(), dir_.substr(0, dir_.rfind('/')));
        EXPECT_EQ(access(P("a.c").c_str(), F_OK), 0);
        ASSERT_FALSE(records.empty());
        EXPECT_EQ(records.back().reason, XmCR_OK);
        EXPECT_EQ(records.back().path, dir_ + "/");
    }
}

// A failed icon warns through the widget; an invalid representation is
// name only; colours go to the views and the tree's window tints the form.
TEST_F(Desk, FallbacksAndColours)
{
    XtErrorHandler old = XtAppSetWarningHandler(xwktest::App(), CollectWarning);
    Widget desk = MakeDesk({{(String)XmNcreateIconProc, (XtArgVal)IconsButExec},
                            {(String)XmNrepresentation, 9},
                            {(String)XmNselectionPolicy, XmBROWSE_SELECT}});
    XtAppSetWarningHandler(xwktest::App(), old);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("Can't create DeskExec icon."), std::string::npos);
    EXPECT_NE(warnings[0].find("XmFileSelectionDesk"), std::string::npos) << warnings[0];
    EXPECT_EQ(XmFileSelectionDeskGetRepresentation(desk), XmREPRESENTATION_NAME_ONLY);
    EXPECT_EQ(Get<unsigned char>(Part(desk).file_view, XmNselectionPolicy), XmBROWSE_SELECT);
    // Without a selection row its text reads NULL.
    EXPECT_EQ(Get<char *>(desk, XmNselectionTextString), nullptr);
    Pixel red = xwktest::PixelOf(xwktest::StartApp(), XmNbackground) ^ 0xff0000;
    XtVaSetValues(desk, XmNforeground, red, nullptr);
    EXPECT_EQ(xwktest::PixelOf(Part(desk).dir_tree, XmNforeground), red);
    EXPECT_EQ(xwktest::PixelOf(Part(desk).file_view, XmNforeground), red);
    XrmDatabase db = XtDatabase(XtDisplay(desk));
    XrmPutStringResource(&db, "fsdtint*fsdDirTreeSW.background", "#00ff00");
    Widget shell = XtVaAppCreateShell("fsdtint", "Fsd", topLevelShellWidgetClass, XtDisplay(desk),
                                      nullptr);
    shells_.push_back(shell);
    auto &tinted = Part(XmCreateFileSelectionDesk(shell, (String) "desk", nullptr, 0));
    Pixel tint = tinted.dir_tree_sw->core.background_pixel;
    EXPECT_NE(tint, tinted.left_form->core.background_pixel);
    EXPECT_EQ(tinted.right_sw_form->core.background_pixel, tint);
}

TEST_F(Desk, RepresentationsSwitchWithoutSecondRead)
{
    Widget desk = MakeDesk({});
    auto entries = Get<FsdEntry **>(desk, XmNitems);
    ASSERT_NE(entries, nullptr);
    // A file made now is not seen: nothing is read again.
    Touch("later.c");
    for (unsigned char r : {XmREPRESENTATION_DETAIL, XmREPRESENTATION_NAME_ONLY,
                            XmREPRESENTATION_SMALL_ICONS, XmREPRESENTATION_DETAIL,
                            XmREPRESENTATION_LARGE_ICONS}) {
        SCOPED_TRACE(int(r));
        Represent(desk, r);
        Widget view = Part(desk).file_view;
        EXPECT_EQ(XtIsSubclass(view, xmPrjDeskWidgetClass), r != XmREPRESENTATION_DETAIL);
        EXPECT_TRUE(XtIsManaged(XtParent(view)));
        EXPECT_STREQ(XtName(XtParent(view)), "fsdFileDeskSW");
        EXPECT_EQ(ViewCount(desk), kAll);
        EXPECT_EQ(Get<FsdEntry **>(desk, XmNitems), entries);
    }
    // Shown again, the detail list's rows are the entries' items, each
    // item's handle its row; a directory read in between leaves none of them.
    Represent(desk, XmREPRESENTATION_DETAIL);
    Widget list = Part(desk).file_list;
    XmPrjTreeNode first = XmPrjTreeGetFirstNode(list);
    ASSERT_NE(first, nullptr);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(list, first, 1), "..");
    for (XmPrjTreeNode n = first; n; n = XmPrjTreeGetNextNode(list, n))
        EXPECT_EQ(((FsdFileItem *)XmPrjTreeGetClientDataFromNode(n))->handle, n);
    Represent(desk, XmREPRESENTATION_SMALL_ICONS);
    ASSERT_TRUE(ShowDirectory(desk, P("alpha")));
    Represent(desk, XmREPRESENTATION_DETAIL);
    EXPECT_EQ(ViewCount(desk), 2);  // ".." and inner
    FsdDirNode *alpha = Part(desk).current_dir;
    for (XmPrjTreeNode n = XmPrjTreeGetFirstNode(list); n; n = XmPrjTreeGetNextNode(list, n))
        EXPECT_EQ(((FsdFileItem *)XmPrjTreeGetClientDataFromNode(n))->dir, alpha);
}

TEST_F(Desk, PatternsFilterFiles)
{
    Widget desk = MakeDesk({});
    struct Case {
        const char *pattern;
        int files;
    } cases[] = {{"*.c", 2}, {"*.c;*.h", 3}, {"n*", 1}, {"[", 0}, {"*", 5}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.pattern);
        XtVaSetValues(desk, XmNpattern, c.pattern, nullptr);
        xwktest::Settle();
        EXPECT_EQ(Part(desk).item_count, 5 + c.files);
    }
    // A group of the description is chosen by its row.
    XtVaSetValues(desk, XmNpattern, "", XmNpatternsDescription, "Headers|*.h|Texts|*.txt", nullptr);
    int position = -1;
    XtVaSetValues(desk, XmNpatternPosition, 2, nullptr);
    XmFileSDGetFilterPatternString(desk, &position);
    EXPECT_EQ(position, 2);
    EXPECT_EQ(Part(desk).item_count, 5 + 1);
    // Out of range after creation becomes 1, but the pattern kept from above ("*") is shown
    // again and finds its own row, the "All files" group.
    XtVaSetValues(desk, XmNpatternsDescription, "Only|*.c", XmNpatternPosition, 9, nullptr);
    EXPECT_EQ(Get<int>(desk, XmNpatternPosition), 2);
}

TEST_F(Desk, RefreshSeesChangesAndKeepsCurrentItem)
{
    Widget desk = MakeDesk({});
    ClickItem(desk, "b.c");
    Touch("new.c");
    unlink(P("z.h").c_str());
    XmFileSelectionDeskUpdate(desk, 1);
    xwktest::Settle();
    EXPECT_EQ(Part(desk).item_count, kAll);
    XmPrjDeskNode current = XmPrjDeskGetSelectedItem(Part(desk).file_view);
    ASSERT_NE(XmPrjDeskGetClientDataFromItem(current), nullptr);
    EXPECT_STREQ(((FsdFileItem *)XmPrjDeskGetClientDataFromItem(current))->name, "b.c");
    // A directory removed under the desk: no crash, an empty view.
    EXPECT_TRUE(ShowDirectory(desk, P("beta")));
    // The rebuilt tree is in order at every level.
    Widget tree = Part(desk).dir_tree;
    auto level = XmPrjTreeGetParent(tree, (XmPrjTreeNode)Part(desk).current_dir->tree_item);
    std::string names;
    for (int i = 1; i <= 4; i++) {
        XmPrjTreeNode node = XmPrjTreeGetItemByPositionFromParent(tree, level, i);
        names += std::string(XmPrjTreeGetNameItem(tree, node)) + ";";
    }
    EXPECT_EQ(names, "alpha;beta;to_alpha;with space;");
    rmdir(P("beta").c_str());
    XmFileSelectionDeskUpdate(desk, 1);
    xwktest::Settle();
    EXPECT_EQ(Part(desk).item_count, 0);
}

// Return on a directory descends into it, on ".." climbs back; a click in
// the tree shows its directory once the selection rests; a double click
// on a file is the default action.  Then the keys of both panels: Tab flips
// between view and tree (the focus callback names the tree's directory),
// Ctrl+U swaps the panels, Ctrl+O turns the paned window; the focus stays.
TEST_F(Desk, NavigateByKeysAndClicks)
{
    Widget desk = MakeDesk({});
    Display *dpy = XtDisplay(desk);
    Widget tree = Part(desk).dir_tree;
    ClickItem(desk, "alpha");
    xwktest::PressKey(dpy, XK_Return);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == P("alpha") + "/"; }));
    EXPECT_EQ(Part(desk).item_count, 2);  // "..", inner
    xwktest::PressKey(dpy, XK_Home);
    xwktest::PressKey(dpy, XK_Return);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == dir_ + "/"; }));
    int x = 0, y = 0;
    ASSERT_TRUE(PointOf(desk, tree, "beta", &x, &y));
    xwktest::Click(tree, x, y);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == P("beta") + "/"; }));
    EXPECT_EQ(Part(desk).item_count, 1);
    XtAddCallback(desk, XmNdefaultActionCallback, Remember, nullptr);
    ASSERT_TRUE(ShowDirectory(desk, dir_));
    xwktest::Settle();
    Widget view = Part(desk).file_view;
    ASSERT_TRUE(PointOf(desk, view, "notes.txt", &x, &y));
    records.clear();
    xwktest::Click(view, x, y);
    xwktest::Click(view, x, y);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_DEFAULT_ACTION);
    EXPECT_EQ(records.back().path, P("notes.txt"));

    Widget left = Part(desk).left_form, right = Part(desk).right_form;
    ASSERT_EQ(XmGetFocusWidget(desk), view);
    EXPECT_LT(left->core.x, right->core.x);
    XtAddCallback(desk, XmNfocusCallback, Remember, nullptr);
    records.clear();
    xwktest::PressKey(dpy, XK_Tab);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(XmGetFocusWidget(desk), tree);
    EXPECT_EQ(records.back().reason, XmCR_FOCUS);
    EXPECT_EQ(records.back().path, dir_ + "/");
    EXPECT_EQ(records.back().name, dir_.substr(dir_.rfind('/') + 1));
    xwktest::PressKey(dpy, XK_u, ControlMask);
    xwktest::Settle();
    EXPECT_GT(left->core.x, right->core.x);
    EXPECT_EQ(XmGetFocusWidget(desk), tree);
    xwktest::PressKey(dpy, XK_Tab);
    xwktest::Settle();
    EXPECT_EQ(XmGetFocusWidget(desk), view);
    Widget paned = Part(desk).paned_window;
    auto before = Get<unsigned char>(paned, XmNorientation);
    xwktest::PressKey(dpy, XK_o, ControlMask);
    xwktest::Settle();
    EXPECT_NE(Get<unsigned char>(paned, XmNorientation), before);
    EXPECT_EQ(XmGetFocusWidget(desk), view);
    EXPECT_GT(left->core.y, right->core.y);  // the swapped panels, now one above the other
}

TEST_F(Desk, DialogButtonsAndSelection)
{
    Arg args[] = {{(String)XmNwidth, 700}, {(String)XmNheight, 500},
                  {(String)XmNstyle, XmFILE_SELECTION_USE_ACTION_AREA},
                  {(String)XmNfilterAppearance, XmAPPEARANCE_ABOVE_FILE_DESK},
                  {(String)XmNselectionAppearance, XmAPPEARANCE_UNDER_DESK},
                  {(String)XmNdirectory, (XtArgVal)dir_.c_str()}};
    Widget desk = XmCreateFileSelectionDeskDialog(xwktest::StartApp(), (String) "fsd", args, 6);
    shells_.push_back(XtParent(desk));
    for (const char *callback : {XmNokCallback, XmNcancelCallback, XmNhelpCallback})
        XtAddCallback(desk, callback, Remember, nullptr);
    XtManageChild(desk);
    ASSERT_TRUE(xwktest::WaitViewable(desk));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Part(desk).item_count == kAll; }));
    xwktest::Settle();
    // Title, buttons and rows exist; their synthetic resources read them.
    Widget ok = nullptr, title = nullptr, text = nullptr, filter = nullptr;
    XtVaGetValues(desk, XmNokButton, &ok, XmNtitle, &title, XmNselectionText, &text,
                  XmNfilterText, &filter, nullptr);
    ASSERT_TRUE(ok && title && text && filter);
    EXPECT_EQ(xwktest::Take(Get<char *>(desk, XmNokButtonLabelString)), "OK");
    // The rows are made before the action area; the first button stands
    // off the edge; the shell's minimum height counts the title.
    WidgetList children = ((CompositeWidget)desk)->composite.children;
    WidgetList end = children + ((CompositeWidget)desk)->composite.num_children;
    EXPECT_LT(std::find(children, end, text), std::find(children, end, Part(desk).action_area));
    EXPECT_EQ(Get<int>(ok, XmNleftOffset), 5);
    EXPECT_GT(Get<int>(XtParent(desk), XmNminHeight), ok->core.height + 8);
    // Help gets the desk's call data.
    xwktest::ClickCenter(Get<Widget>(desk, XmNhelpButton));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_HELP);
    EXPECT_EQ(records.back().directory, dir_ + "/");
    records.clear();
    XmString shown = Get<XmString>(title, XmNlabelString);
    char *title_text = (char *)XmStringUnparse(shown, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT,
                                               nullptr, 0, XmOUTPUT_ALL);
    EXPECT_EQ(xwktest::Take(title_text), dir_ + "/   (10) Nodes");
    XmStringFree(shown);
    // A name typed in the selection field, then OK.
    XmTextSetString(text, (char *)"  my file.c ");
    EXPECT_EQ(xwktest::Take(Get<char *>(desk, XmNselectionTextString)), "myfile.c");
    XmTextSetString(text, (char *)"typed.c");
    xwktest::ClickCenter(ok);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_OK);
    EXPECT_EQ(records.back().path, P("typed.c"));
    EXPECT_EQ(records.back().directory, dir_ + "/");
    // The filter field takes a pattern of the user's.
    XmTextSetString(filter, (char *)"*.h");
    XtVaSetValues(filter, XmNeditable, True, nullptr);
    xwktest::ClickCenter(Get<Widget>(desk, XmNfilterButton));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Part(desk).item_count == 6; }));
    // Info switches between the detail table and the icons.
    Widget info = Get<Widget>(desk, XmNinfoButton);
    for (unsigned char r : {XmREPRESENTATION_DETAIL, XmREPRESENTATION_LARGE_ICONS}) {
        xwktest::ClickCenter(info);
        ASSERT_TRUE(xwktest::PumpUntil(
            [&] { return XmFileSelectionDeskGetRepresentation(desk) == r; }));
        EXPECT_EQ(Part(desk).file_view == Part(desk).file_list, r == XmREPRESENTATION_DETAIL);
    }
    // A dialog brought up again reads a directory that changed meanwhile.
    XtUnmanageChild(desk);
    Touch("more.h");
    struct timeval later[2] = {{time(nullptr) + 10, 0}, {time(nullptr) + 10, 0}};
    ASSERT_EQ(utimes(dir_.c_str(), later), 0);
    XtManageChild(desk);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Part(desk).item_count == 7; }));
    // The window manager's close is Cancel.
    records.clear();
    xwktest::SendDeleteWindow(XtParent(desk));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_CANCEL);
    // What lies under a point of the desk.
    Widget view = Part(desk).file_view;
    int x = 0, y = 0;
    ASSERT_TRUE(PointOf(desk, view, "z.h", &x, &y));
    Position vx = 0, vy = 0, dx = 0, dy = 0;
    XtTranslateCoords(view, 0, 0, &vx, &vy);
    XtTranslateCoords(desk, 0, 0, &dx, &dy);
    Widget hit = nullptr;
    char *path = XmFileSelectionDeskGetItemByXY(desk, vx - dx + x, vy - dy + y, True, &hit);
    EXPECT_EQ(hit, view);
    EXPECT_EQ(xwktest::Take(path), P("z.h"));
    EXPECT_TRUE(XmFileSelectionDeskUnhighlight(view));
}

// Several files picked with Shift and Control in the detail list: the
// selection text follows the click, another representation keeps the
// selection.  Then real drags with button 2 onto another desk's view and
// tree, the desk's own view and a drop site of another kind.
TEST_F(Desk, SelectSeveralAndDragBetweenDesks)
{
    Widget source = MakeDesk({{(String)XmNstyle, XmFILE_SELECTION_USE_ACTION_AREA},
                              {(String)XmNselectionAppearance, XmAPPEARANCE_UNDER_DESK},
                              {(String)XmNselectionPolicy, 1},
                              {(String)XmNrepresentation, XmREPRESENTATION_DETAIL}});
    XtAddCallback(source, XmNtransferDoneCallback, Dropped, nullptr);
    ClickItem(source, "a.c");
    EXPECT_EQ(xwktest::Take(Get<char *>(source, XmNselectionTextString)), P("a.c"));
    ClickItem(source, "notes.txt", ShiftMask);
    EXPECT_EQ(xwktest::Take(Get<char *>(source, XmNselectionTextString)), P("notes.txt"));
    EXPECT_EQ(Selected(source), (std::vector<std::string>{P("a.c"), P("b.c"), P("notes.txt")}));
    ClickItem(source, "b.c", ControlMask);
    EXPECT_EQ(xwktest::Take(Get<char *>(source, XmNselectionTextString)), P("b.c"));
    const std::vector<std::string> both = {P("a.c"), P("notes.txt")};
    EXPECT_EQ(Selected(source), both);
    Represent(source, XmREPRESENTATION_LARGE_ICONS);
    EXPECT_EQ(Selected(source), both);
    Represent(source, XmREPRESENTATION_DETAIL);
    EXPECT_EQ(Selected(source), both);

    Widget target = MakeDesk({}, 660);
    XtAddCallback(target, XmNtransferDoneCallback, Dropped, nullptr);
    ASSERT_TRUE(ShowDirectory(target, P("beta")));
    Widget shell = XtVaAppCreateShell("probe", "Probe", topLevelShellWidgetClass, XtDisplay(source),
                                      XmNx, 960, XmNy, 440, XmNwidth, 200, XmNheight, 100, nullptr);
    shells_.push_back(shell);
    Widget probe = XmCreateDrawingArea(shell, (String) "probe", nullptr, 0);
    XtManageChild(probe);
    XtRealizeWidget(shell);
    ASSERT_TRUE(xwktest::WaitViewable(probe));
    Atom targets[3];
    XInternAtoms(XtDisplay(probe), (char **)kProbeTargets, 3, False, targets);
    Arg site[] = {{(String)XmNimportTargets, (XtArgVal)targets},
                  {(String)XmNnumImportTargets, 3},
                  {(String)XmNdropSiteOperations, XmDROP_MOVE | XmDROP_COPY | XmDROP_LINK},
                  {(String)XmNdropProc, (XtArgVal)ProbeDrop},
                  {(String)XmNanimationStyle, XmDRAG_UNDER_NONE}};
    XmDropSiteRegister(probe, site, 5);
    xwktest::Settle();
    // A file the source still shows but that is gone from the disk.
    unlink(P("z.h").c_str());

    enum Site { kTargetView, kTargetTree, kOwnView, kProbe };
    using Texts = std::map<std::string, std::string>;
    const Texts notes = {{"FILE_NAME", P("notes.txt")}, {"COMPOUND_TEXT", P("notes.txt")},
                         {"_XWK_FILE_NAMES", P("a.c") + "|" + P("notes.txt")}};
    const Texts alpha = {{"FILE_NAME", P("alpha/")}, {"COMPOUND_TEXT", P("alpha/")},
                         {"_XWK_FILE_NAMES", P("alpha")}};
    struct Case {
        const char *item;  // dragged from the source; nullptr: icons, and no item selected
        Site site;
        std::vector<std::string> files;  // what the desk receives
        std::string directory;           // and where
        Texts values;                    // what the probe receives
    } cases[] = {
        {"notes.txt", kTargetView, {P("a.c"), P("notes.txt")}, P("beta"), {}},
        {"notes.txt", kProbe, {}, "", notes},
        {"b.c", kOwnView, {}, "", {}},
        {nullptr, kTargetView, {}, "", {}},
        {"a.c", kTargetView, {P("a.c")}, P("beta"), {}},
        {"alpha", kTargetTree, {P("alpha")}, dir_, {}},  // the tree's row of dir_, above beta
        {"z.h", kTargetView, {}, "", {}},
        {"alpha", kProbe, {}, "", alpha},
    };
    for (const Case &c : cases) {
        if (!c.item) {
            Represent(source, XmREPRESENTATION_LARGE_ICONS);
            ClickItem(source, "notes.txt", ControlMask);
            ClickItem(source, "a.c", ControlMask);
            EXPECT_EQ(XmFileSelectionDeskGetSelectedItemsCount(source), 0);
            continue;
        }
        SCOPED_TRACE(std::string(c.item) + " to " + std::to_string(c.site));
        drops.clear();
        probed.clear();
        int x0 = 0, y0 = 0, x1 = 0, y1 = 0;
        RootPointOf(source, Part(source).file_view, c.item, &x0, &y0);
        if (c.site == kTargetView) {
            RootPointOf(target, Part(target).file_view, "..", &x1, &y1);
        } else if (c.site == kTargetTree) {  // the row brought into view; its middle, off the edge
            Widget tree = Part(target).dir_tree;
            auto beta = (XmPrjTreeNode)Part(target).current_dir->tree_item;
            XmPrjTreeSetTopItem(tree, XmPrjTreeGetParent(tree, beta));
            RootPointOf(target, tree, "", &x1, &y1);
            x1 += 40;
        } else if (c.site == kOwnView) {
            RootPointOf(source, Part(source).file_view, "b.c", &x1, &y1);
        } else {
            xwktest::RootPosition(probe, &x1, &y1);
            x1 += 50;
            y1 += 50;
        }
        xwktest::DragPointer(source, x0, y0, x1, y1);
        if (c.site == kProbe) {
            ASSERT_TRUE(xwktest::PumpUntil([&] { return probed.size() == 3; }));
            EXPECT_EQ(probed, c.values);
            continue;
        }
        if (c.files.empty()) {
            xwktest::Pump(300);
            EXPECT_TRUE(drops.empty());
            continue;
        }
        ASSERT_TRUE(xwktest::PumpUntil([&] { return !drops.empty(); }));
        ASSERT_EQ(drops.size(), 1u);
        EXPECT_EQ(drops[0].reason, XmCR_OK);
        EXPECT_EQ(drops[0].operation, XmDROP_MOVE);
        EXPECT_EQ(drops[0].directory, c.directory);
        EXPECT_EQ(drops[0].files, c.files);
    }
}

// Directories of 10,000 and of 200,000 files (the larger on a memory file
// system when there is one), in the detail list and in icons: all shown,
// the end reached by keys scrolls the view and selects the last file.
TEST_F(Desk, ManyFilesShownScrolledAndSelected)
{
    std::string huge = access("/dev/shm", W_OK) == 0 ? "/dev/shm/xwkhuge" : P("huge");
    huge += std::to_string(getpid());
    struct Case {
        std::string directory;
        int files;
        unsigned char representation;
    } cases[] = {{P("big"), 10000, XmREPRESENTATION_DETAIL},
                 {P("big"), 10000, XmREPRESENTATION_SMALL_ICONS},
                 {huge, 200000, XmREPRESENTATION_SMALL_ICONS}};
    Widget desk = MakeDesk({{(String)XmNrepresentation, XmREPRESENTATION_DETAIL}});
    XtAddCallback(desk, XmNsingleSelectionCallback, Remember, nullptr);
    for (const Case &c : cases) {
        SCOPED_TRACE(c.directory + " " + std::to_string(c.representation));
        if (Shown(desk) != c.directory + "/") {
            ASSERT_TRUE(ShowDirectory(desk, LinkMany(c.directory, c.files), 60000));
        }
        Represent(desk, c.representation);
        EXPECT_EQ(Part(desk).item_count, c.files + 1);
        EXPECT_EQ(ViewCount(desk), c.files + 1);
        Widget view = Part(desk).file_view;
        if (c.representation == XmREPRESENTATION_DETAIL)
            ClickItem(desk, "..");  // the keyboard goes to the view, and stays with it
        xwktest::PressKey(XtDisplay(desk), XK_Home, ControlMask);
        xwktest::Settle();
        records.clear();
        xwktest::PressKey(XtDisplay(desk), XK_End, ControlMask);
        ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
        EXPECT_EQ(records.back().reason, XmCR_SINGLE_SELECT);
        char last[32];
        snprintf(last, sizeof last, "/f%06d.c", c.files - 1);
        EXPECT_EQ(records.back().path, c.directory + last);
        int x = 0, y = 0;
        if (XtIsSubclass(view, xmPrjDeskWidgetClass))
            XmPrjDeskGetOrigins(view, &x, &y);
        else
            XmPrjTreeGetOrigins(view, &x, &y);
        EXPECT_GT(x + y, 0);
    }
    // The desk lets them go.
    EXPECT_TRUE(ShowDirectory(desk, dir_, 20000));
    EXPECT_EQ(system(("rm -rf '" + huge + "' '" + huge + ".one'").c_str()), 0);
}

// Root reads and writes everything: the icons are chosen for another user
// and group, set in the library's globals.
TEST_F(Desk, IconsFollowTheUsersPermissions)
{
    ASSERT_EQ(mkdir(P("locked").c_str(), 0700), 0);
    ASSERT_EQ(mkdir(P("open").c_str(), 0777), 0);
    ASSERT_EQ(chmod(P("open").c_str(), 0777), 0);
    xwktest::AnotherUser another_user;
    Widget desk = MakeDesk({{(String)XmNuseDenyWriteIcon, True}});
    Represent(desk, XmREPRESENTATION_DETAIL);
    std::map<std::string, FsdFileItem *> items;
    for (int i = 0; i < Part(desk).entry_count; i++)
        if (FsdFileItem *item = Part(desk).entries[i]->item)
            items[item->name] = item;
    struct Case {
        const char *name;
        const char *large, *small;  // the icon resources of the icon views and of the detail list
    } cases[] = {
        {"locked", XmNdeskDirDenyReadIcon, XmNtreeDirDenyReadIcon},
        {"alpha", XmNdeskDirDenyWriteIcon, XmNtreeDirDenyWriteIcon},
        {"open", XmNdeskDirIcon, XmNtreeDirIcon},
        {"..", XmNdeskDirUpIcon, XmNtreeDirUpIcon},
        {"run", XmNdeskExecIcon, XmNtreeRegularIcon},
        {"a.c", XmNdeskRegularIcon, XmNtreeRegularIcon},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        FsdFileItem *item = items[c.name];
        ASSERT_NE(item, nullptr);
        EXPECT_NE(item->large_icon, nullptr);
        EXPECT_EQ(item->large_icon, Get<XtPointer>(desk, c.large));
        EXPECT_NE(item->small_icon, nullptr);
        EXPECT_EQ(item->small_icon, Get<XtPointer>(desk, c.small));
    }
    // The unreadable directory cannot be chosen in the tree, nor entered
    // from the view.
    XmPrjTreeNode locked = XmPrjTreeFindItemOneLevel(
        Part(desk).dir_tree, (XmPrjTreeNode)Part(desk).current_dir->tree_item, "locked");
    ASSERT_NE(locked, nullptr);
    EXPECT_FALSE(((XmPrjTreeItem)locked->data)->flags & XmTREE_ITEM_SELECTABLE);
    Represent(desk, XmREPRESENTATION_LARGE_ICONS);
    ClickItem(desk, "locked");
    ClickItem(desk, "locked");
    xwktest::Pump(300);
    EXPECT_EQ(Shown(desk), dir_ + "/");
}

}  // namespace
