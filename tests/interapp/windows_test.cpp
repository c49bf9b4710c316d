// The family's windows between real processes: the property's wire format,
// peers publishing at once, a peer killed while published, menu and tree
// list displays, windows gone before they are probed, a parent hiding its
// child application, and busy passed from one application to another.
#include "xwktest.h"

#include <Xm/CascadeB.h>
#include <X11/IntrinsicP.h>
#include <X11/CompositeP.h>
#include <X11/extensions/Xfixes.h>

#include "peers.h"

namespace {

using peers::Peer;
using peers::Table;
using xwktest::MapState;

int Key() { return (int)getpid(); }

Widget app;
std::vector<Widget> displays;

void ForwardRootEvent(Widget, XtPointer, XEvent *event)
{
    for (Widget w : displays)
        XwkProcessWindowsInfo(w, Key(), event);
}

// A shell with a menu bar whose cascade shows the windows as a menu, and a
// tree list that shows them as a tree.
struct Display_ {
    Widget shell, bar, cascade, tree;
    Display_()
    {
        shell = XtVaCreatePopupShell("family", topLevelShellWidgetClass, app, XtNx, 300, XtNy, 10,
                                     NULL);
        Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
        bar = XmCreateMenuBar(form, (char *)"bar", nullptr, 0);
        XtVaSetValues(bar, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                      XmNrightAttachment, XmATTACH_FORM, NULL);
        cascade = XmCreateCascadeButton(bar, (char *)"Windows", nullptr, 0);
        XtManageChild(cascade);
        XtManageChild(bar);
        tree = XmCreateScrolledTreeList(form, (char *)"tree", nullptr, 0);
        XtVaSetValues(XtParent(tree), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, bar,
                      XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                      XmNbottomAttachment, XmATTACH_FORM, XmNwidth, 260, XmNheight, 200, NULL);
        XtManageChild(tree);
        XtPopup(shell, XtGrabNone);
        xwktest::WaitViewable(shell);
        displays.push_back(cascade);
        displays.push_back(tree);
    }
    ~Display_()
    {
        std::erase(displays, cascade);
        std::erase(displays, tree);
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
    Widget Pane(Widget cascade_button) const
    {
        return cascade_button ? xwktest::Get<Widget>(cascade_button, XmNsubMenuId) : nullptr;
    }
    // A pane's managed entries with their labels: "-" for a separator,
    // "title>" for a cascade.
    std::vector<std::pair<std::string, Widget>> Items(Widget pane) const
    {
        std::vector<std::pair<std::string, Widget>> out;
        for (Cardinal i = 0; pane && i < ((CompositeWidget)pane)->composite.num_children; i++) {
            Widget child = ((CompositeWidget)pane)->composite.children[i];
            if (child->core.being_destroyed || !XtIsManaged(child))
                continue;
            std::string label = "-";
            if (XmIsPushButton(child) || XmIsCascadeButton(child)) {
                XmString s = xwktest::Get<XmString>(child, XmNlabelString);
                label = xwktest::Take((char *)XmStringUnparse(s, nullptr, XmCHARSET_TEXT,
                                                              XmCHARSET_TEXT, nullptr, 0,
                                                              XmOUTPUT_ALL));
                XmStringFree(s);
            }
            out.emplace_back(label + (XmIsCascadeButton(child) ? ">" : ""), child);
        }
        return out;
    }
    std::vector<std::string> Entries(Widget pane) const
    {
        std::vector<std::string> out;
        for (auto &item : Items(pane))
            out.push_back(item.first);
        return out;
    }
    Widget Entry(Widget pane, const std::string &label) const
    {
        for (auto &item : Items(pane))
            if (item.first == label)
                return item.second;
        return nullptr;
    }
    // Tree rows as "title" and "  title" for a child, in order.
    std::vector<std::string> Rows() const
    {
        std::vector<std::string> out;
        for (XmPrjTreeNode n = XmPrjTreeGetFirstNode(tree); n; n = XmPrjTreeGetNextNode(tree, n))
            out.push_back(std::string(2 * (XmPrjTreeGetNodeLevel(tree, n) - 1), ' ') +
                          XmPrjTreeGetNameItem(tree, n));
        return out;
    }
};

class Windows : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        app = xwktest::StartApp();
        Display *dpy = XtDisplay(app);
        Window root = DefaultRootWindow(dpy);
        XWindowAttributes a;
        XGetWindowAttributes(dpy, root, &a);
        XSelectInput(dpy, root, a.your_event_mask | PropertyChangeMask);
        XwkAddEventHandler(app, (unsigned)root, PropertyNotify, offsetof(XPropertyEvent, window),
                           ForwardRootEvent, nullptr);
    }
    void SetUp() override { XwkDestroyWindowProperty(app, Key()); }
    Display *dpy() { return XtDisplay(app); }
};

TEST_F(Windows, WireFormatOfPublishRetitleAndRemove)
{
    const int key = Key();
    // One record as it stands in the property: "title|window,parent,pid;".
    auto rec = [](std::string title, unsigned long window, unsigned long parent) {
        char fields[40];
        snprintf(fields, sizeof fields, "|%8.8lx,%8.8lx,%8.8lx;", window, parent,
                 (unsigned long)getpid());
        return title + fields;
    };
    std::string longer = rec("Longer title", 0x10, 0);
    struct Step {
        const char *what;
        std::function<void()> act;
        std::string text;
    } steps[] = {
        {"empty table",
         [&] {
             XwkAddWindowProperty(app, key, "A", 0x10, 0);
             XwkDeleteWindowProperty(app, key, 0x10);
         },
         "00000;"},
        {"first record", [&] { XwkAddWindowProperty(app, key, "A", 0x10, 0); },
         "00001;" + rec("A", 0x10, 0)},
        {"second record", [&] { XwkAddWindowProperty(app, key, "B;b", 0x20, 0x10); },
         "00002;" + rec("A", 0x10, 0) + rec("B;b", 0x20, 0x10)},
        {"retitle in place", [&] { XwkAddWindowProperty(app, key, "Longer title", 0x10, 0); },
         "00002;" + longer + rec("B;b", 0x20, 0x10)},
        {"same window, other parent", [&] { XwkAddWindowProperty(app, key, "C", 0x20, 0); },
         "00003;" + longer + rec("B;b", 0x20, 0x10) + rec("C", 0x20, 0)},
        {"removal takes the first", [&] { XwkDeleteWindowProperty(app, key, 0x20); },
         "00002;" + longer + rec("C", 0x20, 0)},
        {"removal of the last cuts", [&] { XwkDeleteWindowProperty(app, key, 0x20); },
         "00001;" + longer},
        {"unknown window", [&] { XwkDeleteWindowProperty(app, key, 0x99); }, "00001;" + longer},
        {"a long new title is cut, its fields whole",
         [&] { XwkAddWindowProperty(app, key, std::string(1200, 'x').c_str(), 0x30, 0); },
         "00002;" + longer + rec(std::string(995, 'x'), 0x30, 0)},
    };
    for (auto &s : steps) {
        s.act();
        std::string raw = peers::RawText(app, key);
        ASSERT_FALSE(raw.empty()) << s.what;
        EXPECT_EQ(raw.back(), '\0') << s.what << ": the NUL is part of the stored length";
        EXPECT_EQ(raw.c_str(), s.text) << s.what;
    }
    XwkDestroyWindowProperty(app, key);
    EXPECT_EQ(peers::RawText(app, key), "");
}

TEST_F(Windows, SessionIdAndClientMessage)
{
    struct {
        const char *text;
        Boolean ok;
        int first, second;
    } cases[] = {{"12,34", True, 12, 34},   {" 7 ,\t8 ", True, 7, 8}, {"12", False, 0, 0},
                 {nullptr, False, 0, 0},    {",5", True, 0, 5}};
    for (auto &c : cases) {
        int a = -1, b = -1;
        EXPECT_EQ(XwkGetSessionID(c.text, &a, &b), c.ok) << (c.text ? c.text : "NULL");
        EXPECT_EQ(a, c.first);
        EXPECT_EQ(b, c.second);
    }
    Display_ d;
    static XClientMessageEvent got;
    got = {};
    XtAddEventHandler(d.shell, NoEventMask, True,
                      [](Widget, XtPointer, XEvent *e, Boolean *) {
                          if (e->type == ClientMessage)
                              got = e->xclient;
                      },
                      nullptr);
    Atom type = XInternAtom(dpy(), "XWK_TEST_MESSAGE", False);
    XwkSendClientMsg(dpy(), XtWindow(d.shell), type, 11, 22);
    ASSERT_TRUE(xwktest::PumpUntil([] { return got.type == ClientMessage; }));
    EXPECT_EQ(got.message_type, type);
    EXPECT_EQ(got.format, 32);
    EXPECT_EQ(got.data.l[0], 11);
    EXPECT_EQ(got.data.l[1], 22);
}

TEST_F(Windows, PeersPublishAtOnceAndEveryoneSeesTheWholeTable)
{
    Display_ d;
    const int kPeers = 6, kWindows = 20;
    std::vector<std::unique_ptr<Peer>> ps;
    for (int i = 0; i < kPeers; i++)
        ps.push_back(std::make_unique<Peer>(std::vector<std::string>{
            "publish", std::to_string(Key()), std::to_string(kWindows), "P" + std::to_string(i)}));
    for (auto &p : ps)
        ASSERT_EQ(p->Line(), "ready");
    std::vector<peers::Entry> table = Table(app, Key());
    ASSERT_EQ((int)table.size(), kPeers * kWindows / 2);
    std::set<std::string> titles;
    std::set<unsigned long> windows;
    for (auto &e : table) {
        titles.insert(e.title);
        windows.insert(e.window);
        int peer = atoi(e.title.c_str() + 1);
        EXPECT_EQ(e.pid, ps[peer]->pid()) << e.title;
    }
    for (int i = 0; i < kPeers; i++)
        for (int j = 0; j < kWindows; j += 2)
            EXPECT_TRUE(titles.count("P" + std::to_string(i) + "-" + std::to_string(j) + "*"));
    EXPECT_EQ(windows.size(), table.size());

    // Every record is shown; entries a crowd of changes replaced at equal
    // counts may stay beside them.
    auto shows_table = [&](const Display_ &view) {
        std::vector<std::string> rows = view.Rows();
        std::set<std::string> shown(rows.begin(), rows.end());
        return std::includes(shown.begin(), shown.end(), titles.begin(), titles.end());
    };
    ASSERT_TRUE(xwktest::PumpUntil([&] { return shows_table(d); }));

    // A display that joins now shows the table exactly, in the menu too.
    Display_ late;
    XwkAddWindowProperty(app, Key(), "Late", XtWindow(late.shell), 0);
    titles.insert("Late");
    ASSERT_TRUE(xwktest::PumpUntil([&] {
        return shows_table(late) && late.Rows().size() == titles.size() &&
               late.Entries(late.Pane(late.cascade)).size() == titles.size() + 2;
    }));
    EXPECT_EQ(late.Entries(late.Pane(late.cascade))[0], "Control panel");
}

TEST_F(Windows, MenuAndTreeFollowTitlesChildrenAndRaise)
{
    Display_ d;
    Peer p({"family", std::to_string(Key()), "Editor"});
    std::vector<Window> ids = p.Ready();
    ASSERT_EQ(ids.size(), 2u);
    using V = std::vector<std::string>;
    // Each display reads the property when its notice comes: wait for both.
    auto shows = [&](const V &rows, const V &entries) {
        return xwktest::PumpUntil(
            [&] { return d.Rows() == rows && d.Entries(d.Pane(d.cascade)) == entries; });
    };
    ASSERT_TRUE(shows({"Editor", "  Editor-child"}, {"Control panel", "-", "Editor>"}));
    Widget pane = d.Pane(d.cascade);
    EXPECT_EQ(d.Entries(d.Pane(d.Entry(pane, "Editor>"))), (V{"Editor", "-", "Editor-child"}));

    p.Send("retitle\n");
    ASSERT_EQ(p.Line(), "done");
    EXPECT_TRUE(shows({"Editor+", "  Editor+-child"}, {"Control panel", "-", "Editor+>"}));

    // The last child gone, the cascade is a plain entry again.
    p.Send("drop\n");
    ASSERT_EQ(p.Line(), "done");
    ASSERT_TRUE(shows({"Editor+"}, {"Control panel", "-", "Editor+"}));

    // Choosing the entry with the mouse maps the peer's window.
    ASSERT_EQ(MapState(dpy(), ids[0]), IsUnmapped);
    xwktest::ClickCenter(d.cascade);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return XtIsRealized(pane) && XtIsManaged(pane); }));
    xwktest::WaitViewable(d.Entry(pane, "Editor+"));
    xwktest::ClickCenter(d.Entry(pane, "Editor+"));
    EXPECT_TRUE(xwktest::PumpUntil([&] { return MapState(dpy(), ids[0]) == IsViewable; }));

    // "Control panel" takes the session's selection at the time of the
    // click, also from an owner that came after the table's last change.
    Atom session = XwkGetWindowsInfoAtom(app, Key());
    Window other = XCreateSimpleWindow(dpy(), DefaultRootWindow(dpy()), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(dpy(), session, other, CurrentTime);
    ASSERT_EQ(XGetSelectionOwner(dpy(), session), other);
    xwktest::ClickCenter(d.cascade);
    xwktest::WaitViewable(d.Entry(pane, "Control panel"));
    xwktest::ClickCenter(d.Entry(pane, "Control panel"));
    EXPECT_TRUE(xwktest::PumpUntil([&] {
        return XGetSelectionOwner(dpy(), session) == XtWindow(d.cascade);
    }));
    XDestroyWindow(dpy(), other);
}

TEST_F(Windows, ARecordOfWindowZeroIsProbedByPidAndParentsTheParentZeroAfterIt)
{
    Display_ d;
    XwkAddWindowProperty(app, Key(), "Session", 0, 0);
    XwkAddWindowProperty(app, Key(), "Top", XtWindow(d.shell), 0);
    using V = std::vector<std::string>;
    ASSERT_TRUE(xwktest::PumpUntil([&] {
        return d.Rows() == V{"Session", "  Top"} &&
               d.Entries(d.Pane(d.cascade)) == V{"Control panel", "-", "Session>"};
    }));
    XwkAddWindowProperty(app, Key(), "Top 2", XtWindow(d.shell), 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows() == V{"Session", "  Top 2"}; }));
    EXPECT_EQ(Table(app, Key()).size(), 2u) << "a live process keeps its record of window 0";
}

TEST_F(Windows, KilledPeerStaysUntilARaiseMeetsIt)
{
    Display_ d;
    Window mine = XtWindow(d.shell);
    XwkAddWindowProperty(app, Key(), "Mine", mine, 0);
    Peer p({"family", std::to_string(Key()), "Doomed"});
    ASSERT_EQ(p.Ready().size(), 2u);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows().size() == 3; }));
    p.Kill();

    // The next changes find the records dead but leave them: a fresh record
    // knows no session yet.
    XwkAddWindowProperty(app, Key(), "Mine 2", mine, 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows()[0] == "Mine 2"; }));
    XwkAddWindowProperty(app, Key(), "Mine 3", mine, 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows()[0] == "Mine 3"; }));
    EXPECT_EQ(Table(app, Key()).size(), 3u);
    EXPECT_EQ(d.Rows().size(), 3u);

    // The control panel acting on the dead child removes it for everyone.
    XmPrjTreeNode child = XmPrjTreeGetFirstNode(d.tree);
    child = XmPrjTreeGetNextNode(d.tree, XmPrjTreeGetNextNode(d.tree, child));
    ASSERT_STREQ(XmPrjTreeGetNameItem(d.tree, child), "Doomed-child");
    XmPrjTreeSetNode(d.tree, child);
    XwkProcessControlPanel(d.tree, XWK_PANEL_RAISE);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Table(app, Key()).size() == 2; }));
    EXPECT_TRUE(xwktest::PumpUntil([&] {
        return d.Rows().size() == 2 &&
               d.Entries(d.Pane(d.cascade)) ==
                   std::vector<std::string>{"Control panel", "-", "Mine 3", "Doomed"};
    }));
}

TEST_F(Windows, WindowGoneBeforeTheProbeEndsNobody)
{
    Display_ d;
    Peer p({"orphan", std::to_string(Key()), "Gone"});
    std::vector<Window> ids = p.Ready();
    ASSERT_EQ(ids.size(), 1u);
    // Ids nobody owns, one of them this process's own.
    XwkAddWindowProperty(app, Key(), "Bogus", 0x1fffff0, 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows().size() == 2; }));
    // One more update: the records learn their session.
    XwkAddWindowProperty(app, Key(), "Bogus 2", 0x1fffff0, 0);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return d.Rows()[1] == "Bogus 2"; }));
    XmPrjTreeSetNode(d.tree, XmPrjTreeGetFirstNode(d.tree));
    XwkProcessControlPanel(d.tree, XWK_PANEL_CLOSE);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return Table(app, Key()).size() == 1; }));
    EXPECT_EQ(Table(app, Key())[0].title, "Bogus 2");
    p.Send("retitle\n");  // the peer still answers
    EXPECT_EQ(p.Line(), "done");
    EXPECT_TRUE(p.Running());
}

TEST_F(Windows, ParentHidesAndShowsItsChildApplication)
{
    Display_ d;
    Window root = DefaultRootWindow(dpy());
    Window parent = XtWindow(d.shell);
    Peer child({"child"}, {"_SMELD_ROOT_WINDOW=" + std::to_string(root),
                           "_SMELD_PARENT_WINDOW=" + std::to_string(parent)});
    std::vector<Window> ids = child.Ready();
    ASSERT_EQ(ids.size(), 2u);
    auto both = [&](int s) {
        return MapState(dpy(), ids[0]) == s && MapState(dpy(), ids[1]) == s;
    };
    ASSERT_TRUE(xwktest::PumpUntil([&] { return both(IsViewable); }));
    Atom vis = XInternAtom(dpy(), "_SMELD_VISIBILITY", False);
    auto ask = [&](unsigned long from, long wanted) {
        long data[2] = {(long)from, wanted};
        XChangeProperty(dpy(), root, vis, vis, 32, PropModeReplace, (unsigned char *)data, 2);
        XFlush(dpy());
    };
    ask(parent, XWK_WM_WITHDRAWN);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return both(IsUnmapped); }));
    ask(parent + 1, XWK_WM_NORMAL);  // another parent's children
    xwktest::Pump(300);
    EXPECT_TRUE(both(IsUnmapped));
    ask(parent, XWK_WM_NORMAL);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return both(IsViewable); }));
}

TEST_F(Windows, BusyPassesFromOneApplicationToTheNext)
{
    int event_base, error_base;
    ASSERT_TRUE(XFixesQueryExtension(dpy(), &event_base, &error_base));
    Display_ d;
    Atom busy = XInternAtom(dpy(), "_XWK_BUSY", False);
    int x, y;
    xwktest::RootPosition(d.shell, &x, &y);
    xwktest::MovePointer(dpy(), x + 20, y + 60);
    auto cursor = [&] {
        XFixesCursorImage *img = XFixesGetCursorImage(dpy());
        unsigned long serial = img->cursor_serial;
        XFree(img);
        return serial;
    };
    xwktest::Settle();
    unsigned long idle = cursor();

    XwkSetBusyStatus(d.tree, True);
    EXPECT_EQ(XGetSelectionOwner(dpy(), busy), XtWindow(d.shell));
    EXPECT_NE(cursor(), idle);

    Peer other({"busy"});
    ASSERT_EQ(other.Ready().size(), 1u);
    other.Send("busy\n");
    ASSERT_EQ(other.Line(), "done");
    EXPECT_NE(XGetSelectionOwner(dpy(), busy), XtWindow(d.shell));
    EXPECT_TRUE(xwktest::PumpUntil([&] { return cursor() == idle; }));

    // Busy ends by itself after three seconds.
    XwkSetBusyStatus(d.tree, True);
    EXPECT_NE(cursor(), idle);
    xwktest::Pump(2500);
    EXPECT_NE(cursor(), idle);
    EXPECT_TRUE(xwktest::PumpUntil([&] { return cursor() == idle; }, 1500));
}

}  // namespace
