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

void Remember(Widget, XtPointer, XtPointer call)
{
    auto *cbs = (FsdCallbackStruct *)call;
    records.push_back({cbs->reason, cbs->path ? cbs->path : "", cbs->directory ? cbs->directory : "",
                       cbs->name ? cbs->name : ""});
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
    auto *cbs = (FsdTransferDoneCallbackStruct *)call;
    drops.push_back({cbs->reason, cbs->operation, cbs->directory, {cbs->files, cbs->files + cbs->count}});
}

// A plain drop site of another program's kind: it asks for every target
// the desk exports and keeps the texts by their type.
std::map<std::string, std::string> probed;
const char *kProbeTargets[] = {"FILE_NAME", "COMPOUND_TEXT", "_XWK_FILE_NAMES"};

void ProbeValue(Widget w, XtPointer, Atom *, Atom *type, XtPointer value, unsigned long *length, int *format)
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

int ChildIndex(Widget parent, Widget child)
{
    CompositeWidget cw = (CompositeWidget)parent;
    for (Cardinal i = 0; i < cw->composite.num_children; i++)
        if (cw->composite.children[i] == child)
            return int(i);
    return -1;
}

class Desk : public ::testing::Test {
protected:
    static void SetUpTestSuite() { xwktest::StartApp("XwkFsdTest"); }

    void SetUp() override
    {
        start_ = Cwd();
        char tmpl[] = "/tmp/xwkdeskXXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
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
        std::filesystem::remove_all(dir_);
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
        XmFileSelectionDeskShowDirectory(desk, path.c_str());
        return xwktest::PumpUntil([&] { return Shown(desk) == path + "/"; }, timeout_ms);
    }
    std::string Shown(Widget desk) { return Part(desk).current_dir ? Part(desk).current_dir->path : ""; }
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
        for (int py = 2; py < view->core.height; py += 3)
            for (int px = 2; px < view->core.width; px += 3) {
                // On a row of the detail list only its label takes a click.
                XtPointer data = XtIsSubclass(view, xmPrjDeskWidgetClass)
                                     ? XmPrjDeskWhichItem(view, px, py)
                                     : XmPrjTreeWhichItem(tree ? XmTREE_PART_ROW : XmTREE_PART_LABEL,
                                                          px, py, view);
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
    std::string SelectionText(Widget desk)
    {
        return xwktest::Take(Get<char *>(desk, XmNselectionTextString));
    }

    std::string start_;
    std::string dir_;
    std::vector<Widget> shells_;
};

// ".." + 4 directories (the link to one counts) + 5 files; the dangling link is never shown.
constexpr int kAll = 1 + 4 + 5;

TEST_F(Desk, ScanFillsViewTitleAndTree)
{
    Widget desk = MakeDesk({});
    EXPECT_EQ(Shown(desk), dir_ + "/");
    EXPECT_EQ(Part(desk).item_count, kAll);
    EXPECT_EQ(ViewCount(desk), kAll);
    EXPECT_EQ(Get<int>(desk, XmNitemCount), kAll);
    EXPECT_EQ(xwktest::Take(Get<char *>(desk, XmNdirectory)), dir_ + "/");
    // The tree holds the directory's sub-directories.
    auto node = (XmPrjTreeNode)Part(desk).current_dir->tree_item;
    EXPECT_EQ(XmPrjTreeGetItemsCount(Part(desk).dir_tree, node), 4);  // alpha, beta, with space, to_alpha
    // Scroll bars the tree manages as the desk is realized stand beside it.
    Widget tree = Part(desk).dir_tree;
    for (const char *name : {"treeVertScrollBar", "treeHorizScrollBar"}) {
        Widget bar = XtNameToWidget(XtParent(tree), name);
        if (bar && XtIsManaged(bar)) {
            EXPECT_TRUE(bar->core.x >= tree->core.x + tree->core.width ||
                        bar->core.y >= tree->core.y + tree->core.height) << name;
        }
    }
    // The working directory is left at the directory's "..", as documented;
    // absolute paths the application holds keep working.
    EXPECT_EQ(Cwd(), dir_.substr(0, dir_.rfind('/')));
    EXPECT_EQ(access(P("a.c").c_str(), F_OK), 0);
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records.back().reason, XmCR_OK);
    EXPECT_EQ(records.back().path, dir_ + "/");
}

TEST_F(Desk, ResourceClassesColoursAndFallbacks)
{
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(xmFileSelectionDeskWidgetClass, &list, &count);
    std::map<std::string, std::string> classes;
    for (Cardinal i = 0; i < count; i++)
        classes[list[i].resource_name] = list[i].resource_class;
    XtFree((char *)list);
    for (auto [name, cls] : {std::pair{"okCallback", "OkCallback"},
                             {"transferDoneCallback", "TransferDoneCallback"},
                             {"deskDirIcon", "DeskDirIcon"}, {"treeRegularIcon", "TreeRegularIcon"},
                             {"activeBackground", "Background"}, {"fullInfoLayoutString", "LayoutString"}})
        EXPECT_EQ(classes[name], cls) << name;
    // A failed icon warns through the widget; an invalid representation is 0.
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
    // Foreground and background go to the views.
    Pixel red = xwktest::PixelOf(xwktest::StartApp(), XmNbackground) ^ 0xff0000;
    XtVaSetValues(desk, XmNforeground, red, nullptr);
    EXPECT_EQ(xwktest::PixelOf(Part(desk).dir_tree, XmNforeground), red);
    EXPECT_EQ(xwktest::PixelOf(Part(desk).file_view, XmNforeground), red);
    // The form of the file view takes the background of the tree's window.
    XrmDatabase db = XtDatabase(XtDisplay(desk));
    XrmPutStringResource(&db, "fsdtint*fsdDirTreeSW.background", "#00ff00");
    Widget shell = XtVaAppCreateShell("fsdtint", "Fsd", topLevelShellWidgetClass, XtDisplay(desk), nullptr);
    shells_.push_back(shell);
    Widget tinted = XmCreateFileSelectionDesk(shell, (String) "desk", nullptr, 0);
    EXPECT_NE(Part(tinted).dir_tree_sw->core.background_pixel, Part(tinted).left_form->core.background_pixel);
    EXPECT_EQ(Part(tinted).right_sw_form->core.background_pixel, Part(tinted).dir_tree_sw->core.background_pixel);
}

TEST_F(Desk, RepresentationsSwitchWithoutSecondRead)
{
    Widget desk = MakeDesk({});
    auto entries = Get<FsdEntry **>(desk, XmNitems);
    ASSERT_NE(entries, nullptr);
    struct Case {
        unsigned char representation;
        bool desk_list;
    } cases[] = {{XmREPRESENTATION_DETAIL, false},
                 {XmREPRESENTATION_NAME_ONLY, true},
                 {XmREPRESENTATION_SMALL_ICONS, true},
                 {XmREPRESENTATION_DETAIL, false},
                 {XmREPRESENTATION_LARGE_ICONS, true}};
    // A file made now is not seen: nothing is read again.
    Touch("later.c");
    for (const Case &c : cases) {
        SCOPED_TRACE(int(c.representation));
        XtVaSetValues(desk, XmNrepresentation, c.representation, nullptr);
        xwktest::Settle();
        EXPECT_EQ(XmFileSelectionDeskGetRepresentation(desk), c.representation);
        Widget view = Part(desk).file_view;
        EXPECT_EQ(XtIsSubclass(view, xmPrjDeskWidgetClass), c.desk_list);
        EXPECT_TRUE(XtIsManaged(XtParent(view)));
        EXPECT_STREQ(XtName(XtParent(view)), "fsdFileDeskSW");
        EXPECT_EQ(ViewCount(desk), kAll);
        EXPECT_EQ(Get<FsdEntry **>(desk, XmNitems), entries);
    }
    // The detail text of a file: seven fields; the size column groups digits.
    XtVaSetValues(desk, XmNrepresentation, XmREPRESENTATION_DETAIL, nullptr);
    Widget list = Part(desk).file_list;
    XmPrjTreeNode first = XmPrjTreeGetFirstNode(list);
    ASSERT_NE(first, nullptr);
    EXPECT_STREQ(XmPrjTreeGetColumnLabel(list, first, 1), "..");
    // Shown again, the list's rows are the entries' items, each item's
    // handle its row; a directory read in between leaves none of them.
    for (XmPrjTreeNode n = first; n; n = XmPrjTreeGetNextNode(list, n))
        EXPECT_EQ(((FsdFileItem *)XmPrjTreeGetClientDataFromNode(n))->handle, n);
    XtVaSetValues(desk, XmNrepresentation, XmREPRESENTATION_SMALL_ICONS, nullptr);
    ASSERT_TRUE(XmFileSelectionDeskShowDirectory(desk, P("alpha").c_str()));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == P("alpha") + "/"; }));
    xwktest::Settle();
    XtVaSetValues(desk, XmNrepresentation, XmREPRESENTATION_DETAIL, nullptr);
    EXPECT_EQ(ViewCount(desk), 2);  // ".." and inner
    for (XmPrjTreeNode n = XmPrjTreeGetFirstNode(list); n; n = XmPrjTreeGetNextNode(list, n))
        EXPECT_EQ(((FsdFileItem *)XmPrjTreeGetClientDataFromNode(n))->dir, Part(desk).current_dir);
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
        EXPECT_EQ(xwktest::Take(Get<char *>(desk, XmNpattern)), c.pattern);
    }
    // A group of the description is chosen by its row; "All files" comes last.
    XtVaSetValues(desk, XmNpattern, "", XmNpatternsDescription, "Headers|*.h|Texts|*.txt", nullptr);
    int position = -1;
    XtVaSetValues(desk, XmNpatternPosition, 2, nullptr);
    XmFileSDGetFilterPatternString(desk, &position);
    EXPECT_EQ(position, 2);
    EXPECT_EQ(Part(desk).item_count, 5 + 1);
    EXPECT_EQ(Part(desk).pattern_count, 3);
    EXPECT_STREQ(Part(desk).patterns[3]->name, "All files");
    // Out of range after creation reads back as 1.
    XtVaSetValues(desk, XmNpatternsDescription, "Only|*.c", XmNpatternPosition, 9, nullptr);
    EXPECT_EQ(Get<int>(desk, XmNpatternPosition), 2);
}

TEST_F(Desk, RefreshSeesChangesAndKeepsCurrentItem)
{
    Widget desk = MakeDesk({});
    Widget view = Part(desk).file_view;
    XmPrjDeskNode node = XmPrjDeskFindItem(
        view, [](XtPointer data, XtPointer want) { return std::strcmp(((FsdFileItem *)data)->name, (char *)want); },
        (XtPointer) "b.c");
    ASSERT_NE(node, nullptr);
    XmPrjDeskSetItem(view, node);
    Touch("new.c");
    unlink(P("z.h").c_str());
    XmFileSelectionDeskUpdate(desk, 1);
    xwktest::Settle();
    EXPECT_EQ(Part(desk).item_count, kAll);
    auto *current = (FsdFileItem *)XmPrjDeskGetClientDataFromItem(XmPrjDeskGetSelectedItem(view));
    ASSERT_NE(current, nullptr);
    EXPECT_STREQ(current->name, "b.c");
    // A directory removed under the desk: no crash, an empty view.
    std::string gone = P("beta");
    EXPECT_TRUE(ShowDirectory(desk, gone));
    // The rebuilt tree is in order at every level.
    Widget tree = Part(desk).dir_tree;
    auto level = XmPrjTreeGetParent(tree, (XmPrjTreeNode)Part(desk).current_dir->tree_item);
    std::string names;
    for (int i = 1; i <= 4; i++)
        names += std::string(XmPrjTreeGetNameItem(tree, XmPrjTreeGetItemByPositionFromParent(tree, level, i))) + ";";
    EXPECT_EQ(names, "alpha;beta;to_alpha;with space;");
    rmdir(gone.c_str());
    XmFileSelectionDeskUpdate(desk, 1);
    xwktest::Settle();
    EXPECT_EQ(Part(desk).item_count, 0);
}

TEST_F(Desk, NavigateByKeysAndClicks)
{
    Widget desk = MakeDesk({});
    Display *dpy = XtDisplay(desk);
    Widget view = Part(desk).file_view;
    // Return on a directory descends into it, on ".." climbs back.
    int x = 0, y = 0;
    ASSERT_TRUE(PointOf(desk, view, "alpha", &x, &y));
    xwktest::Click(view, x, y);
    xwktest::Settle();
    xwktest::PressKey(dpy, XK_Return);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == P("alpha") + "/"; }));
    EXPECT_EQ(Part(desk).item_count, 2);  // "..", inner
    xwktest::PressKey(dpy, XK_Home);
    xwktest::PressKey(dpy, XK_Return);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == dir_ + "/"; }));
    // A click in the directory tree shows that directory once the
    // selection rests.
    Widget tree = Part(desk).dir_tree;
    ASSERT_TRUE(PointOf(desk, tree, "beta", &x, &y));
    xwktest::Click(tree, x, y);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == P("beta") + "/"; }));
    EXPECT_EQ(Part(desk).item_count, 1);
    // A double click on a file is the default action.
    XtAddCallback(desk, XmNdefaultActionCallback, Remember, nullptr);
    XmFileSelectionDeskShowDirectory(desk, dir_.c_str());
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Shown(desk) == dir_ + "/" && Part(desk).item_count == kAll; }));
    xwktest::Settle();
    view = Part(desk).file_view;
    ASSERT_TRUE(PointOf(desk, view, "notes.txt", &x, &y));
    records.clear();
    xwktest::Click(view, x, y);
    xwktest::Click(view, x, y);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_DEFAULT_ACTION);
    EXPECT_EQ(records.back().path, P("notes.txt"));
    // Tab takes the focus to the tree: the focus callback names its directory.
    XtAddCallback(desk, XmNfocusCallback, Remember, nullptr);
    records.clear();
    xwktest::PressKey(dpy, XK_Tab);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_FOCUS);
    EXPECT_EQ(records.back().path, dir_ + "/");
    EXPECT_EQ(records.back().name, dir_.substr(dir_.rfind('/') + 1));
}

TEST_F(Desk, TreeOnlyDesk)
{
    Widget desk = MakeDesk({{(String)XmNuseFileDesk, False}}, 0, false);
    Widget tree = Get<Widget>(desk, XmNdirectoryTree);
    EXPECT_EQ(Get<Widget>(desk, XmNfileDesk), nullptr);
    EXPECT_EQ(Get<Widget>(desk, XmNokButton), nullptr);
    ASSERT_EQ(tree, Part(desk).dir_tree);
    // The directory's node was read and opened, without a view.
    ASSERT_NE(Part(desk).current_dir, nullptr);
    EXPECT_EQ(Shown(desk), dir_ + "/");
    auto node = (XmPrjTreeNode)Part(desk).current_dir->tree_item;
    EXPECT_EQ(XmPrjTreeGetItemsCount(tree, node), 4);
    // A scan without a view counts the sub-directories it shows.
    XmFileSelectionDeskUpdate(desk, 1);
    EXPECT_EQ(Get<int>(desk, XmNitemCount), 4);
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
    EXPECT_LT(ChildIndex(desk, text), ChildIndex(desk, Part(desk).action_area));
    EXPECT_EQ(Get<int>(ok, XmNleftOffset), 5);
    EXPECT_GT(Get<int>(XtParent(desk), XmNminHeight), ok->core.height + 8);
    // Help gets the desk's call data.
    xwktest::ClickCenter(Get<Widget>(desk, XmNhelpButton));
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
    EXPECT_EQ(records.back().reason, XmCR_HELP);
    EXPECT_EQ(records.back().directory, dir_ + "/");
    records.clear();
    XmString shown = Get<XmString>(title, XmNlabelString);
    char *title_text = (char *)XmStringUnparse(shown, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL);
    EXPECT_EQ(std::string(title_text), dir_ + "/   (10) Nodes");
    XtFree(title_text);
    XmStringFree(shown);
    // A name typed in the selection field, then OK.
    XmTextSetString(text, (char *)"  my file.c ");
    EXPECT_EQ(SelectionText(desk), "myfile.c");
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
    xwktest::ClickCenter(info);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return XmFileSelectionDeskGetRepresentation(desk) == XmREPRESENTATION_DETAIL; }));
    EXPECT_EQ(Part(desk).file_view, Part(desk).file_list);
    xwktest::ClickCenter(info);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return XmFileSelectionDeskGetRepresentation(desk) == XmREPRESENTATION_LARGE_ICONS; }));
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
    ASSERT_TRUE(PointOf(desk, view, "z.h", &x, &y)) << view->core.width << "x" << view->core.height << " " << XtName(view);
    Position dx = 0, dy = 0;
    XtTranslateCoords(view, 0, 0, &dx, &dy);
    Position ox = 0, oy = 0;
    XtTranslateCoords(desk, 0, 0, &ox, &oy);
    Widget hit = nullptr;
    char *path = XmFileSelectionDeskGetItemByXY(desk, dx - ox + x, dy - oy + y, True, &hit);
    EXPECT_EQ(hit, view);
    EXPECT_STREQ(path, P("z.h").c_str());
    XtFree(path);
    EXPECT_TRUE(XmFileSelectionDeskUnhighlight(view));
}

// Several files picked with Shift and Control in the detail list; the
// selection text follows the click and another representation keeps the
// selection.
// Then a real drag with button 2 onto another desk, its tree, the desk's
// own view and a drop site of another kind.
TEST_F(Desk, SelectSeveralAndDragBetweenDesks)
{
    Widget source = MakeDesk({{(String)XmNstyle, XmFILE_SELECTION_USE_ACTION_AREA},
                              {(String)XmNselectionAppearance, XmAPPEARANCE_UNDER_DESK},
                              {(String)XmNselectionPolicy, 1},
                              {(String)XmNrepresentation, XmREPRESENTATION_DETAIL}});
    XtAddCallback(source, XmNtransferDoneCallback, Dropped, nullptr);
    ClickItem(source, "a.c");
    EXPECT_EQ(SelectionText(source), P("a.c"));
    ClickItem(source, "notes.txt", ShiftMask);
    EXPECT_EQ(SelectionText(source), P("notes.txt"));
    const std::vector<std::string> three = {P("a.c"), P("b.c"), P("notes.txt")};
    EXPECT_EQ(Selected(source), three);
    ClickItem(source, "b.c", ControlMask);
    EXPECT_EQ(SelectionText(source), P("b.c"));
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
    struct Case {
        const char *item;  // dragged from the source; nullptr: icons, and no item selected
        Site site;
        std::vector<std::string> files;  // what the desk receives, relative to dir_
        const char *directory;           // where, relative to dir_; "" is dir_
        std::map<std::string, std::string> values;  // what the probe receives
    } cases[] = {
        {"notes.txt", kTargetView, {"a.c", "notes.txt"}, "beta", {}},
        {"notes.txt", kProbe, {}, nullptr,
         {{"FILE_NAME", "notes.txt"}, {"COMPOUND_TEXT", "notes.txt"}, {"_XWK_FILE_NAMES", "a.c|notes.txt"}}},
        {"b.c", kOwnView, {}, nullptr, {}},
        {nullptr, kTargetView, {}, nullptr, {}},
        {"a.c", kTargetView, {"a.c"}, "beta", {}},
        {"alpha", kTargetTree, {"alpha"}, "", {}},  // the tree's row of dir_, above beta
        {"z.h", kTargetView, {}, nullptr, {}},
        {"alpha", kProbe, {}, nullptr,
         {{"FILE_NAME", "alpha/"}, {"COMPOUND_TEXT", "alpha/"}, {"_XWK_FILE_NAMES", "alpha"}}},
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
        if (c.site == kTargetView)
            RootPointOf(target, Part(target).file_view, "..", &x1, &y1);
        else if (c.site == kTargetTree) {  // the row brought into view; its middle, clear of the edge
            Widget tree = Part(target).dir_tree;
            XmPrjTreeSetTopItem(tree, XmPrjTreeGetParent(tree, (XmPrjTreeNode)Part(target).current_dir->tree_item));
            RootPointOf(target, tree, "", &x1, &y1), x1 += 40;
        }
        else if (c.site == kOwnView)
            RootPointOf(source, Part(source).file_view, "b.c", &x1, &y1);
        else
            xwktest::RootPosition(probe, &x1, &y1), x1 += 50, y1 += 50;
        xwktest::DragPointer(source, x0, y0, x1, y1);
        if (c.site == kProbe) {
            ASSERT_TRUE(xwktest::PumpUntil([&] { return probed.size() == 3; }));
            for (auto &[target_name, value] : c.values) {
                std::string want;
                for (size_t at = 0; at <= value.size();) {
                    size_t bar = std::min(value.find('|', at), value.size());
                    want += (want.empty() ? "" : "|") + P(value.substr(at, bar - at).c_str());
                    at = bar + 1;
                }
                EXPECT_EQ(probed[target_name], want) << target_name;
            }
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
        EXPECT_EQ(drops[0].directory, *c.directory ? P(c.directory) : dir_);
        std::vector<std::string> want;
        for (const std::string &f : c.files)
            want.push_back(P(f.c_str()));
        EXPECT_EQ(drops[0].files, want);
    }
}

// A directory of 10,000 files in the detail list and in icons: all shown,
// the end reached by keys scrolls the view and selects the last file.
TEST_F(Desk, TenThousandFilesShownScrolledAndSelected)
{
    std::string big = LinkMany(P("big"), 10000);
    Widget desk = MakeDesk({{(String)XmNrepresentation, XmREPRESENTATION_DETAIL}});
    XtAddCallback(desk, XmNsingleSelectionCallback, Remember, nullptr);
    ASSERT_TRUE(ShowDirectory(desk, big, 20000));
    for (unsigned char representation : {XmREPRESENTATION_DETAIL, XmREPRESENTATION_SMALL_ICONS}) {
        SCOPED_TRACE(int(representation));
        Represent(desk, representation);
        EXPECT_EQ(Part(desk).item_count, 10001);
        EXPECT_EQ(ViewCount(desk), 10001);
        Widget view = Part(desk).file_view;
        if (representation == XmREPRESENTATION_DETAIL)
            ClickItem(desk, "..");  // the keyboard goes to the view, and stays with it
        xwktest::PressKey(XtDisplay(desk), XK_Home, ControlMask);
        xwktest::Settle();
        records.clear();
        xwktest::PressKey(XtDisplay(desk), XK_End, ControlMask);
        ASSERT_TRUE(xwktest::PumpUntil([&] { return !records.empty(); }));
        EXPECT_EQ(records.back().reason, XmCR_SINGLE_SELECT);
        EXPECT_EQ(records.back().path, big + "/f009999.c");
        int x = 0, y = 0;
        if (XtIsSubclass(view, xmPrjDeskWidgetClass))
            XmPrjDeskGetOrigins(view, &x, &y);
        else
            XmPrjTreeGetOrigins(view, &x, &y);
        EXPECT_GT(x + y, 0);
    }
}

// 200,000 entries: read, shown and let go without a fault.  Made on a
// memory file system when there is one.
TEST_F(Desk, TwoHundredThousandEntries)
{
    std::string base = access("/dev/shm", W_OK) == 0 ? "/dev/shm/xwkhugeXXXXXX" : dir_ + "/hugeXXXXXX";
    std::vector<char> tmpl(base.begin(), base.end());
    tmpl.push_back(0);
    ASSERT_NE(mkdtemp(tmpl.data()), nullptr);
    std::string top = tmpl.data();
    std::string huge = LinkMany(top + "/huge", 200000);
    Widget desk = MakeDesk({});
    XmFileSelectionDeskShowDirectory(desk, huge.c_str());
    EXPECT_TRUE(xwktest::PumpUntil([&] { return Part(desk).item_count == 200001; }, 60000));
    EXPECT_EQ(ViewCount(desk), 200001);
    EXPECT_TRUE(ShowDirectory(desk, dir_, 20000));
    std::string cmd = "rm -rf '" + top + "'";
    EXPECT_EQ(system(cmd.c_str()), 0);
}

// Root reads and writes everything: the icons are chosen for another user
// and group, set in the library's globals.
TEST_F(Desk, IconsFollowTheUsersPermissions)
{
    ASSERT_EQ(mkdir(P("locked").c_str(), 0700), 0);
    ASSERT_EQ(mkdir(P("open").c_str(), 0777), 0);
    ASSERT_EQ(chmod(P("open").c_str(), 0777), 0);
    struct AnotherUser {
        int uid = xwkUID, count = xwkNumGIDs, *gids = xwkGIDs, mine[1] = {4242};
        AnotherUser() { xwkUID = 4242, xwkGIDs = mine, xwkNumGIDs = 1; }
        ~AnotherUser() { xwkUID = uid, xwkGIDs = gids, xwkNumGIDs = count; }
    } another_user;
    Widget desk = MakeDesk({{(String)XmNuseDenyWriteIcon, True}});
    auto item = [&](const char *name) -> FsdFileItem * {
        for (int i = 0; i < Part(desk).entry_count; i++)
            if (FsdFileItem *it = Part(desk).entries[i]->item; it && std::strcmp(it->name, name) == 0)
                return it;
        ADD_FAILURE() << name;
        return nullptr;
    };
    auto icon = [&](const char *resource) {
        EXPECT_NE(Get<XtPointer>(desk, resource), nullptr) << resource;
        return Get<XtPointer>(desk, resource);
    };
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
    Represent(desk, XmREPRESENTATION_DETAIL);
    for (const Case &c : cases) {
        FsdFileItem *it = item(c.name);
        ASSERT_NE(it, nullptr);
        EXPECT_EQ(it->large_icon, icon(c.large)) << c.name;
        EXPECT_EQ(it->small_icon, icon(c.small)) << c.name;
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

// The keys of both panels: Tab flips between view and tree in a desk that
// is a shell's child, Ctrl+U swaps the panels, Ctrl+O turns the paned
// window; the focus stays where it was.
TEST_F(Desk, PanelKeys)
{
    Widget desk = MakeDesk({});
    Display *dpy = XtDisplay(desk);
    Widget left = Part(desk).left_form, right = Part(desk).right_form, paned = Part(desk).paned_window;
    Widget view = Part(desk).file_view, tree = Part(desk).dir_tree;
    ClickItem(desk, "a.c");
    ASSERT_EQ(XmGetFocusWidget(desk), view);
    EXPECT_LT(left->core.x, right->core.x);
    xwktest::PressKey(dpy, XK_Tab);
    xwktest::Settle();
    EXPECT_EQ(XmGetFocusWidget(desk), tree);
    xwktest::PressKey(dpy, XK_u, ControlMask);
    xwktest::Settle();
    EXPECT_GT(left->core.x, right->core.x);
    EXPECT_EQ(XmGetFocusWidget(desk), tree);
    xwktest::PressKey(dpy, XK_Tab);
    xwktest::Settle();
    EXPECT_EQ(XmGetFocusWidget(desk), view);
    auto before = Get<unsigned char>(paned, XmNorientation);
    xwktest::PressKey(dpy, XK_o, ControlMask);
    xwktest::Settle();
    EXPECT_NE(Get<unsigned char>(paned, XmNorientation), before);
    EXPECT_EQ(XmGetFocusWidget(desk), view);
    EXPECT_GT(left->core.y, right->core.y);  // the swapped panels, now one above the other
}

}  // namespace


