// The folder: pages switched by clicks on tabs, by the arrows, by the popup
// list and by keys; the look of the active tab read from the screen; pages
// added and deleted while the folder stands, also from its own callbacks.
#include "xwktest.h"

#include <Xwk/FolderP.h>
#include <Xwk/ComboBoxP.h>
#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>

namespace {

std::vector<XmFolderCallbackStruct> calls;
std::vector<int> active_during_call;  // XmFolderGetActivePage inside each call
std::function<void(Widget, XmFolderCallbackStruct *)> on_call;

void Record(Widget w, XtPointer, XtPointer data)
{
    auto *cbs = (XmFolderCallbackStruct *)data;
    calls.push_back(*cbs);
    active_during_call.push_back(XmFolderGetActivePage(w));
    if (on_call)
        on_call(w, cbs);
}

void ClearCalls()
{
    calls.clear();
    active_during_call.clear();
}

// Reason, from and to of a change.
using Change = std::tuple<int, int, int>;
Change Of(const XmFolderCallbackStruct &c)
{
    return {c.reason, c.fromId, c.toId};
}

struct Folder {
    xwktest::Warnings log;
    Widget shell = nullptr, folder = nullptr;
    std::vector<Widget> children;  // with autoManage, one a page

    // pages > 0 with autoManage: that many drawing areas, each a page;
    // without it, that many pages added through the API.
    Folder(int pages, bool auto_manage = true, int width = 420, std::vector<Arg> args = {})
    {
        shell = xwktest::Shell("folders", width, 260);
        args.push_back({(String)XmNshadowThickness, 2});
        args.push_back({(String)XmNautoManage, auto_manage});
        folder = XmCreateFolder(shell, (String) "folder", args.data(), (Cardinal)args.size());
        XtAddCallback(folder, XmNchangePageCallback, Record, nullptr);
        for (int i = 1; i <= pages; i++) {
            std::string name = "Page " + std::to_string(i);
            if (auto_manage)
                children.push_back(XtVaCreateManagedWidget(name.c_str(), xmDrawingAreaWidgetClass,
                                                           folder, XmNwidth, 200, XmNheight, 120,
                                                           NULL));
            else
                XmFolderAddPage(folder, (char *)name.c_str(), nullptr);
        }
        xwktest::Show(folder, shell, 0);
        // The shell, not the pages, sets the size from now on.
        XtVaSetValues(shell, XmNwidth, width, XmNheight, 260, NULL);
        XSetInputFocus(XtDisplay(shell), XtWindow(shell), RevertToParent, CurrentTime);
        xwktest::Settle();
        ClearCalls();
        log.texts.clear();
        on_call = nullptr;
    }
    ~Folder()
    {
        on_call = nullptr;
        XtDestroyWidget(shell);
        xwktest::Settle();
    }
    XmFolderPart &part() { return ((XmFolderWidget)folder)->folder; }
    XmFolderPage &page(int n) { return part().pages[n - 1]; }
    int active() { return part().activePage; }
    int id(int n) { return XmFolderGetFolderIdByPageNumber(folder, n); }
    void ClickTab(int n, unsigned button = 1)
    {
        XmFolderPage &p = page(n);
        xwktest::Click(folder, p.x + p.width / 2, p.y + p.height / 2, button);
        xwktest::Settle();
    }
    // Centre of an arrow box: 1 left, 2 right.
    void ArrowCentre(int which, int *x, int *y)
    {
        const XRectangle &r = which == 1 ? part().leftArrow : part().rightArrow;
        *x = r.x + r.width / 2;
        *y = r.y + r.height / 2;
    }
    void ClickArrow(int which, unsigned modifiers = 0)
    {
        int x, y;
        ArrowCentre(which, &x, &y);
        xwktest::ClickWith(folder, x, y, modifiers);
        xwktest::Settle();
    }
    bool Shown(int n)
    {
        Widget child = children[n - 1];
        return XtIsManaged(child) && xwktest::Viewable(child);
    }
};

TEST(Folder, ChildrenArePagesShownByClicksOnTheirTabs)
{
    Folder f(3);
    EXPECT_TRUE(f.Shown(1));
    EXPECT_FALSE(XtIsManaged(f.children[1]));
    EXPECT_EQ(XmFolderGetActivePageWidget(f.folder), f.children[0]);

    f.ClickTab(2);
    EXPECT_EQ(f.active(), 2);
    EXPECT_TRUE(f.Shown(2));
    EXPECT_FALSE(XtIsManaged(f.children[0]));
    // The child of the page fills the frame.
    XmFolderPart &p = f.part();
    EXPECT_EQ(f.children[1]->core.x, 2 + p.marginWidth);
    EXPECT_EQ(f.children[1]->core.y, p.tabAreaHeight + 2);
    EXPECT_EQ(f.children[1]->core.width, f.folder->core.width - 2 * (2 + p.marginWidth));
    // A hidden child was shown: 547 first; then, with autoManage, 10 after the change.
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].reason, XmCR_FOLDER_SHOW_PAGE);
    EXPECT_EQ(calls[0].toId, f.id(2));
    EXPECT_EQ(Of(calls[1]), Change(XmCR_ACTIVATE, f.id(1), f.id(2)));
    EXPECT_EQ(active_during_call[1], f.id(2));

    // Press on one tab, release on another: nothing.
    ClearCalls();
    xwktest::Press(f.folder, f.page(1).x + 5, f.page(1).y + 8, 1, 0);
    xwktest::MoveTo(f.folder, f.page(3).x + 5, f.page(3).y + 5, 0);
    xwktest::Release(f.folder, 1, 0);
    xwktest::Settle();
    EXPECT_EQ(f.active(), 2);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(f.log.texts.empty()) << f.log.texts[0];

    // A child made later is a page; destroying a child deletes its page.
    Widget extra = XtVaCreateManagedWidget("Extra", xmDrawingAreaWidgetClass, f.folder, NULL);
    xwktest::Settle();
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 4);
    EXPECT_FALSE(XtIsManaged(extra));
    int extra_id = XmFolderGetPageWidgetFolderId(extra);
    EXPECT_EQ(XmFolderGetPageWidget(f.folder, extra_id), extra);
    EXPECT_TRUE(XmFolderSetActivePageWidget(extra, False));
    EXPECT_TRUE(XtIsManaged(extra));

    ClearCalls();
    XtDestroyWidget(extra);
    xwktest::Settle();
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 3);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls[0].reason, XmCR_FOLDER_DELETE_PAGE);
    EXPECT_EQ(calls[0].toId, extra_id);
    EXPECT_EQ(f.active(), 3);
    EXPECT_TRUE(f.Shown(3));

    // Labels: the child's name, then a new one set on the child.
    XmString name = XmStringCreate((char *)"Page 1", (char *)XmFONTLIST_DEFAULT_TAG);
    EXPECT_TRUE(XmStringCompare(XmFolderGetPageLabel(f.folder, f.id(1)), name));
    XmStringFree(name);
    XmString other = XmStringCreateLocalized((char *)"A longer label than before");
    Dimension before = f.page(1).tabWidth;
    XtVaSetValues(f.children[0], XmNfolderLabelString, other, NULL);
    EXPECT_TRUE(XmStringCompare(XmFolderGetPageLabel(f.folder, f.id(1)), other));
    EXPECT_GT(f.page(1).tabWidth, before);
    EXPECT_TRUE(XmFolderSetPageLabel(f.folder, f.id(1), other));
    XmStringFree(other);
}

TEST(Folder, WithoutAutoManageTheCallbackComesBeforeTheChange)
{
    Folder f(3, false);
    EXPECT_EQ(XmFolderGetActivePageWidget(f.folder), nullptr);
    f.ClickTab(3);
    EXPECT_EQ(f.active(), 3);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].reason, XmCR_ACTIVATE);
    EXPECT_EQ(active_during_call[0], f.id(1));

    ClearCalls();
    EXPECT_TRUE(XmFolderSetActivePage(f.folder, f.id(1), True));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].reason, XmCR_VALUE_CHANGED);
    EXPECT_EQ(active_during_call[0], f.id(3));
    EXPECT_FALSE(XmFolderSetActivePage(f.folder, 0, True));
    EXPECT_FALSE(XmFolderSetActivePage(f.folder, 999, True));
    EXPECT_EQ(calls.size(), 1u);

    // Ctrl+digit of the page shown activates it again, with notification.
    ClearCalls();
    XmProcessTraversal(f.folder, XmTRAVERSE_CURRENT);
    xwktest::PressKey(XtDisplay(f.folder), XK_1, ControlMask);
    xwktest::Settle();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(Of(calls[0]), Change(XmCR_ACTIVATE, f.id(1), f.id(1)));
}

TEST(Folder, KeysChangeThePageAlsoFromInsideIt)
{
    Folder f(0);
    Widget buttons[4];
    for (int i = 0; i < 4; i++)
        buttons[i] = XtVaCreateManagedWidget(("Button " + std::to_string(i + 1)).c_str(),
                                             xmPushButtonWidgetClass, f.folder, NULL);
    xwktest::Settle();
    ASSERT_EQ(XmFolderGetNumPages(f.folder), 4);
    XmProcessTraversal(buttons[0], XmTRAVERSE_CURRENT);
    xwktest::Settle();
    Display *dpy = XtDisplay(f.folder);
    struct {
        KeySym key;
        unsigned mods;
        int page;
    } cases[] = {
        {XK_Next, ControlMask, 2},         // Ctrl+PageDown
        {XK_equal, ControlMask, 3},        // Ctrl+equal
        {XK_Next, ControlMask, 4},
        {XK_Next, ControlMask, 4},         // no wrap at the end
        {XK_minus, ControlMask, 3},        // Ctrl+minus
        {XK_Prior, ControlMask, 2},        // Ctrl+PageUp
        {XK_1, ControlMask, 1},            // Ctrl+digit
        {XK_4, ControlMask, 4},
        {XK_9, ControlMask, 4},            // beyond the pages
        {XK_Tab, ControlMask | ShiftMask | Mod1Mask, 3},
        {XK_Tab, ControlMask | Mod1Mask, 4},
    };
    for (auto &c : cases) {
        xwktest::PressKey(dpy, c.key, c.mods);
        xwktest::Settle();
        EXPECT_EQ(f.active(), c.page) << XKeysymToString(c.key);
        // The focus moves into the page shown.
        Widget focus = XmGetFocusWidget(f.folder);
        EXPECT_EQ(focus, buttons[c.page - 1]) << XKeysymToString(c.key);
    }
    for (auto &c : calls)
        EXPECT_TRUE(c.reason == XmCR_ACTIVATE || c.reason == XmCR_FOLDER_SHOW_PAGE);
    EXPECT_TRUE(f.log.texts.empty()) << f.log.texts[0];
}

TEST(Folder, ArrowsScrollTheTabsAndAResizeKeepsTheRowFull)
{
    Folder f(30, false, 300);
    XmFolderPart &p = f.part();
    EXPECT_FALSE(p.leftArrowShown);
    ASSERT_TRUE(p.rightArrowShown);
    EXPECT_LT(p.visibleTabCount, 30);
    // With the first tab first, only the right arrow shows, at the far right.
    EXPECT_LE(p.rightArrow.x + p.rightArrow.width, (int)f.folder->core.width);
    f.ClickArrow(2);
    EXPECT_EQ(p.topTab, 2);
    EXPECT_EQ(f.active(), 1);
    EXPECT_TRUE(p.leftArrowShown);
    EXPECT_TRUE(calls.empty());

    // The left arrow brings it back.
    f.ClickArrow(1);
    EXPECT_EQ(p.topTab, 1);

    // Shift: the page changes, reason 10.
    f.ClickArrow(2, ShiftMask);
    EXPECT_EQ(f.active(), 2);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].reason, XmCR_ACTIVATE);

    // Held: a step at 250 ms and every 100 ms after; the release adds none.
    // The first tab shown as the release arrives, before the folder sees it.
    static int held;
    auto at_release = [](Widget w, XtPointer, XEvent *, Boolean *) {
        held = ((XmFolderWidget)w)->folder.topTab;
    };
    XtInsertEventHandler(f.folder, ButtonReleaseMask, False, at_release, nullptr, XtListHead);
    int x, y;
    f.ArrowCentre(2, &x, &y);
    xwktest::Press(f.folder, x, y, 1, 650);
    xwktest::Release(f.folder, 1, 0);
    xwktest::Settle();
    EXPECT_GE(held, 1 + 2);
    EXPECT_LE(held, 1 + 6);
    EXPECT_EQ(p.topTab, held);
    EXPECT_EQ(f.active(), 2);

    // A page out of view becomes the first tab, capped by the count of
    // tabs that fitted before the change; the tabs are not fitted again
    // to bring it into view.
    int fitted = p.visibleTabCount;
    XmFolderSetActivePage(f.folder, f.id(30), False);
    xwktest::Settle();
    EXPECT_EQ(p.topTab, 30 - fitted + 1);
    for (int i = 0; i < 30 && p.rightArrowShown; i++)
        f.ClickArrow(2);
    ASSERT_TRUE(p.leftArrowShown);
    EXPECT_FALSE(p.rightArrowShown);
    int top = p.topTab;
    XtVaSetValues(f.shell, XmNwidth, 600, NULL);
    xwktest::Settle();
    EXPECT_LT(p.topTab, top);
    EXPECT_EQ(p.topTab + p.visibleTabCount - 1, 30);

    // Without tabs the page fills the frame from the top margin.
    Widget child = XtVaCreateManagedWidget("content", xmDrawingAreaWidgetClass, f.folder, NULL);
    XtVaSetValues(f.folder, XmNuseTabs, False, NULL);
    XmFolderConfigureChild(child, True);
    xwktest::Settle();
    EXPECT_EQ(child->core.y, 2 + p.marginHeight);
    EXPECT_EQ(child->core.height, f.folder->core.height - 2 * (2 + p.marginHeight));
    EXPECT_EQ(XmFolderGetActivePageWidget(f.folder), child);
}

TEST(Folder, ThePopupListChoosesAPage)
{
    Folder f(20, false, 420, {{(String)XmNuseMenu, True}});
    XmFolderPart &p = f.part();
    ASSERT_NE(p.folderList, nullptr);
    XwkComboBoxPart &combo = ((XwkComboBoxWidget)p.folderList)->combo;
    EXPECT_EQ(combo.comboBoxType, XwkPOPUP_LIST);
    EXPECT_EQ(combo.itemCount, 20);
    // A page without a label keeps its entry, so that entries stay in page order.
    EXPECT_TRUE(XmFolderSetPageLabel(f.folder, f.id(2), nullptr));
    EXPECT_EQ(XmFolderGetPageLabel(f.folder, f.id(2)), nullptr);
    EXPECT_EQ(combo.itemCount, 20);
    EXPECT_TRUE(XmFolderSetPageLabel(f.folder, f.id(2), nullptr));
    XmString two = XmStringCreate((char *)"Page 2", (char *)XmFONTLIST_DEFAULT_TAG);
    EXPECT_TRUE(XmFolderSetPageLabel(f.folder, f.id(2), two));
    XmStringFree(two);
    EXPECT_EQ(combo.itemCount, 20);

    f.ClickTab(1, 3);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return (combo.flags & XwkCB_LIST_UP) != 0; }));
    EXPECT_EQ(xwktest::Get<int>(combo.list, XmNvisibleItemCount), 15);
    Widget list = combo.list;
    xwktest::Pump(50);
    int row = list->core.height / 15;
    xwktest::Click(list, list->core.width / 2, row * 2 + row / 2);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !(combo.flags & XwkCB_LIST_UP); }));
    xwktest::Settle();
    EXPECT_EQ(f.active(), 3);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back().reason, XmCR_VALUE_CHANGED);
    EXPECT_EQ(calls.back().toId, f.id(3));

    // Ctrl+0 opens it too; Escape closes it without a choice.
    XmProcessTraversal(f.folder, XmTRAVERSE_CURRENT);
    Display *dpy = XtDisplay(f.folder);
    xwktest::PressKey(dpy, XK_0, ControlMask);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return (combo.flags & XwkCB_LIST_UP) != 0; }));
    xwktest::Pump(50);
    xwktest::PressKey(dpy, XK_Escape);
    ASSERT_TRUE(xwktest::PumpUntil([&] { return !(combo.flags & XwkCB_LIST_UP); }));
    EXPECT_EQ(f.active(), 3);
}

TEST(Folder, TheActiveTabStandsHigherAndOpensIntoThePage)
{
    struct {
        bool highlight, non_active;
    } cases[] = {{false, false}, {true, false}, {false, true}};
    for (auto &c : cases) {
        Pixel orange = xwktest::NamedPixel(xwktest::StartApp(), "orange");
        Folder f(3, true, 420,
                 {{(String)XmNuseHighlight, c.highlight},
                  {(String)XmNhighlightNonActive, c.non_active},
                  {(String)XmNfolderHighlightColor, (XtArgVal)orange}});
        f.ClickTab(2);
        XmFolderPart &p = f.part();
        xwktest::Capture cap(f.folder);
        ASSERT_TRUE(cap.ok());
        Pixel top = xwktest::PixelOf(f.folder, XmNtopShadowColor);
        Pixel bg = f.folder->core.background_pixel;
        Pixel select = 0, fg, ts, bs;
        XmGetColors(XtScreen(f.folder), f.folder->core.colormap, bg, &fg, &ts, &bs, &select);
        XmFolderPage &on = f.page(2), &off = f.page(1);
        // Higher by the offset: the active tab's top line lies above the others.
        EXPECT_EQ(on.y + p.activeTabOffset, off.y);
        EXPECT_EQ(cap.Pixel(on.x + on.width / 2, on.y), top);
        EXPECT_EQ(cap.Pixel(off.x + off.width / 2, on.y), bg);
        // Fill of each tab, just inside its shadow.
        EXPECT_EQ(cap.Pixel(on.x + 3, on.y + 3), c.highlight ? orange : bg);
        EXPECT_EQ(cap.Pixel(off.x + 3, off.y + 3), c.non_active ? select : bg);
        // The frame's top line is open under the active tab only.
        int frame_top = p.tabAreaHeight;
        EXPECT_EQ(cap.Pixel(off.x + off.width / 2, frame_top), top);
        EXPECT_NE(cap.Pixel(on.x + on.width / 2, frame_top), top);
        // XmNtabCornerSize changes nothing.
        XtVaSetValues(f.folder, XmNtabCornerSize, 8, NULL);
        xwktest::Settle();
        xwktest::Capture again(f.folder);
        EXPECT_EQ(again.Count(top, 0, 0, f.folder->core.width, p.tabAreaHeight),
                  cap.Count(top, 0, 0, f.folder->core.width, p.tabAreaHeight));
    }
}

TEST(Folder, PagesComeAndGoAtRunTimeAlsoByTheHundred)
{
    Folder f(0, false);
    int a = XmFolderAddPage(f.folder, (char *)"Alpha", nullptr);
    int b = XmFolderAddPage(f.folder, (char *)"Beta", nullptr);
    int c = XmFolderAddPage(f.folder, (char *)"Gamma", nullptr);
    xwktest::Settle();
    EXPECT_EQ(a, 1);
    EXPECT_EQ(c, 3);
    EXPECT_EQ(f.part().visibleTabCount, 3);
    f.ClickTab(2);
    EXPECT_EQ(XmFolderGetActivePage(f.folder), b);

    // The current page deletes itself from the change callback.
    ClearCalls();
    on_call = [&](Widget w, XmFolderCallbackStruct *cbs) {
        if (cbs->reason == XmCR_ACTIVATE) {
            on_call = nullptr;
            XmFolderDeletePage(w, cbs->fromId);
        }
    };
    f.ClickTab(3);
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 2);
    EXPECT_EQ(XmFolderGetPageNumberByFolderId(f.folder, b), 0);
    EXPECT_EQ(XmFolderGetActivePage(f.folder), c);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[1].reason, XmCR_FOLDER_DELETE_PAGE);
    EXPECT_EQ(calls[1].toId, b);

    // A page deleted again from its own deletion callback goes once.
    on_call = [&](Widget w, XmFolderCallbackStruct *cbs) {
        if (cbs->reason == XmCR_FOLDER_DELETE_PAGE)
            XmFolderDeletePage(w, cbs->toId);
    };
    EXPECT_TRUE(XmFolderDeletePage(f.folder, a));
    on_call = nullptr;
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 1);
    EXPECT_FALSE(XmFolderDeletePage(f.folder, a));

    // The last page goes: the window is cleared.
    EXPECT_TRUE(XmFolderDeletePage(f.folder, c));
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 0);
    EXPECT_EQ(XmFolderGetActivePage(f.folder), 0);
    xwktest::Capture cap(f.folder);
    Pixel top = xwktest::PixelOf(f.folder, XmNtopShadowColor);
    EXPECT_EQ(cap.Count(top, 0, 0, f.folder->core.width, f.folder->core.height), 0);

    // FolderGoto(0) with one page and keys with none do nothing.
    XmFolderAddPage(f.folder, (char *)"Again", nullptr);
    xwktest::PressKey(XtDisplay(f.folder), XK_0, ControlMask);
    xwktest::Settle();
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 1);

    // Five hundred pages, then half of them deleted from the front.
    for (int i = 2; i <= 500; i++)
        XmFolderAddPage(f.folder, (char *)("Page " + std::to_string(i)).c_str(), nullptr);
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 500);
    EXPECT_TRUE(XmFolderSetActivePage(f.folder, f.id(500), False));
    xwktest::Settle();
    EXPECT_TRUE(f.part().leftArrowShown);
    xwktest::PressKey(XtDisplay(f.folder), XK_1, ControlMask);
    for (int i = 0; i < 500; i += 2)
        XmFolderDeletePage(f.folder, f.id(1));
    xwktest::Settle();
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 250);

    // Squeezed to one pixel: tabs, arrows and keys still behave.
    XtResizeWidget(f.shell, 1, 1, 0);
    XtResizeWidget(f.folder, 1, 1, 0);
    XmFolderAddPage(f.folder, (char *)"", nullptr);
    XmFolderSetActivePage(f.folder, f.id(3), True);
    XClearArea(XtDisplay(f.folder), XtWindow(f.folder), 0, 0, 0, 0, True);
    xwktest::Click(f.folder, 0, 0);
    xwktest::PressKey(XtDisplay(f.folder), XK_Next, ControlMask);
    xwktest::Settle();
    EXPECT_EQ(XmFolderGetNumPages(f.folder), 251);

    // Made with no size at all: realized, it takes pages.
    Widget zero = XtVaCreateWidget("zero", xmFolderWidgetClass, f.folder, XmNwidth, 0, XmNheight, 0,
                                   XmNuseMenu, True, NULL);
    XtRealizeWidget(zero);
    EXPECT_TRUE(XtIsRealized(zero));
    XmFolderAddPage(zero, (char *)"One", nullptr);
    XmFolderAddPage(zero, (char *)"Two", nullptr);
    EXPECT_TRUE(XmFolderSetActivePage(zero, 2, True));
    XtWidgetGeometry reply = {};
    XtQueryGeometry(zero, nullptr, &reply);
    EXPECT_GE(reply.width, 1);
    EXPECT_TRUE(XmFolderDeletePage(zero, 2));
    XtDestroyWidget(zero);
    xwktest::Settle();
}

TEST(Folder, OperationsOnWrongWidgetsAndUnknownIds)
{
    Folder f(2, false);
    Widget button = XtVaCreateManagedWidget("b", xmPushButtonWidgetClass, f.folder, NULL);
    EXPECT_EQ(XmFolderGetNumPages(f.shell), -1);
    EXPECT_EQ(XmFolderGetTabsHeight(f.shell), 0xFFFF);
    EXPECT_EQ(XmFolderAddPage(f.shell, (char *)"x", nullptr), 0);
    EXPECT_EQ(XmFolderGetActivePage(f.shell), 0);
    EXPECT_FALSE(XmFolderConfigureChild(f.folder, True));
    EXPECT_EQ(XmFolderGetFolderIdByPageNumber(f.folder, 0), 0);
    EXPECT_EQ(XmFolderGetFolderIdByPageNumber(f.folder, 3), 0);
    EXPECT_EQ(XmFolderGetPageWidget(f.folder, 77), nullptr);
    EXPECT_EQ(XmFolderGetPageLabel(f.folder, 77), nullptr);
    EXPECT_FALSE(XmFolderSetPageIcon(f.folder, 77, nullptr));
    EXPECT_FALSE(XmFolderBindWidgetToFolderId(button, 77));

    XmFolderPart &p = f.part();
    EXPECT_EQ(XmFolderGetTabsHeight(f.folder),
              p.maxTabHeight + 2 * p.tabMarginHeight + p.activeTabOffset);
    // Binding: a page takes a child; unbinding counts the pages.
    EXPECT_TRUE(XmFolderBindWidgetToFolderId(button, f.id(2)));
    EXPECT_TRUE(XmFolderBindWidgetToFolderId(button, f.id(2)));
    EXPECT_TRUE(XmFolderBindWidgetToFolderId(button, f.id(1)));
    EXPECT_EQ(XmFolderGetPageWidgetFolderId(button), f.id(1));
    EXPECT_EQ(XmFolderGetActivePageWidget(f.folder), button);
    EXPECT_EQ(XmFolderUnbindWidget(button), 2);
    EXPECT_EQ(XmFolderGetPageWidgetFolderId(button), 0);

    // An icon widens its tab by its width.
    XwkIcon *icon = xwktest::SolidIcon(f.folder, 10, 10, "black");
    ASSERT_NE(icon, nullptr);
    Dimension before = f.page(1).tabWidth;
    EXPECT_TRUE(XmFolderSetPageIcon(f.folder, f.id(1), icon));
    EXPECT_EQ(XmFolderGetPageIcon(f.folder, f.id(1)), icon);
    EXPECT_EQ(f.page(1).tabWidth, before + 10);
    xwktest::Settle();
    XmFolderSetPageIcon(f.folder, f.id(1), nullptr);
    XwkIconFree(f.folder, icon);

    XtVaSetValues(f.folder, XmNuseTabs, False, NULL);
    EXPECT_EQ(XmFolderGetTabsHeight(f.folder), 0);
}

}  // namespace
