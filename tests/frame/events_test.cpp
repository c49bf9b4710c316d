// Raw event filters, the main loop and the shell walks.
#include "xwktest.h"

#include <Xm/DialogS.h>
#include <Xm/LabelG.h>

#include <chrono>

namespace {

std::vector<int> calls;
const int kDataOffset = (int)offsetof(XClientMessageEvent, data);

void record(Widget, XtPointer closure, XEvent *)
{
    calls.push_back((int)(long)closure);
}

void remove_self(Widget w, XtPointer closure, XEvent *)
{
    calls.push_back((int)(long)closure);
    XwkRemoveEventHandler(w, 7, ClientMessage, kDataOffset, remove_self, closure);
}

// Removes the filter (record, 1) of its widget.
void remove_other(Widget w, XtPointer closure, XEvent *)
{
    calls.push_back((int)(long)closure);
    XwkRemoveEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)1L);
}

// Filters on a realized form, which goes at the end of the test.
struct EventHandlers : ::testing::Test {
    Widget shell = xwktest::StartApp();
    Widget w = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, XmNwidth, 50,
                                       XmNheight, 50, NULL);
    void SetUp() override
    {
        XtRealizeWidget(shell);
        calls.clear();
    }
    void TearDown() override
    {
        if (w)
            XtDestroyWidget(w);
        xwktest::Settle();
    }
    // A filter on client messages whose word at offset (the first data word) is value.
    XwkEventHandlerRec *Add(XwkEventHandlerProc proc, long closure, unsigned value = 7,
                            int offset = kDataOffset)
    {
        return XwkAddEventHandler(w, value, ClientMessage, offset, proc, (XtPointer)closure);
    }
    XEvent Message(long data)
    {
        XEvent ev = {};
        ev.xclient.type = ClientMessage;
        ev.xclient.display = XtDisplay(w);
        ev.xclient.window = XtWindow(w);
        ev.xclient.format = 32;
        ev.xclient.data.l[0] = data;
        return ev;
    }
    // The closures of the filters that run on a message with this first data
    // word, retyped as type.
    std::vector<int> Run(long data, int type = ClientMessage)
    {
        XEvent ev = Message(data);
        ev.type = type;
        calls.clear();
        XwkRunEventHandler(&ev);
        return calls;
    }
};

}  // namespace

TEST_F(EventHandlers, MatchByTypeAndWordAtOffset)
{
    ASSERT_NE(Add(record, 1), nullptr);
    EXPECT_EQ(Run(7), std::vector<int>({1}));
    EXPECT_TRUE(Run(8).empty());
    EXPECT_TRUE(Run(7, KeyPress).empty());
    // Out-of-range offsets never match and never read outside the event.
    ASSERT_NE(Add(record, 2, 0, (int)sizeof(XEvent)), nullptr);
    ASSERT_NE(Add(record, 3, 0, -4), nullptr);
    EXPECT_EQ(Run(7), std::vector<int>({1}));
    XEvent ev = Message(7);
    XtDestroyWidget(w);
    w = nullptr;
    xwktest::Settle();
    calls.clear();
    XwkRunEventHandler(&ev);
    EXPECT_TRUE(calls.empty()) << "a dead widget's filters are gone";
}

TEST_F(EventHandlers, DuplicateGivesTheSameRecordAndOneCall)
{
    EXPECT_EQ(Add(record, 5), Add(record, 5));
    EXPECT_EQ(Run(7), std::vector<int>({5}));
    // Removed by hand, the widget's death finds nothing to remove.
    XwkRemoveEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)5L);
    EXPECT_TRUE(Run(7).empty());
}

TEST_F(EventHandlers, RemovalDuringTheWalk)
{
    // Newest first: 3 (removes itself), 2 (removes the record of 1), 1.
    Add(record, 1);
    Add(remove_other, 2);
    Add(remove_self, 3);
    EXPECT_EQ(Run(7), std::vector<int>({3, 2}));
    EXPECT_EQ(Run(7), std::vector<int>({2}));
}

TEST_F(EventHandlers, OnlyRealWidgets)
{
    Widget gadget = XmCreateLabelGadget(w, (char *)"g", nullptr, 0);
    EXPECT_EQ(XwkAddEventHandler(gadget, 0, KeyPress, 0, record, nullptr), nullptr);
    EXPECT_EQ(XwkAddEventHandler(nullptr, 0, KeyPress, 0, record, nullptr), nullptr);
    XwkRemoveEventHandler(nullptr, 0, KeyPress, 0, record, nullptr);
    XwkRunEventHandler(nullptr);
}

TEST_F(EventHandlers, RunOnTheEventPathBeforeDispatch)
{
    Add(record, 9, 42);
    XEvent ev = Message(42);
    XSendEvent(XtDisplay(w), XtWindow(w), False, NoEventMask, &ev);
    EXPECT_TRUE(xwktest::PumpUntil([] { return !calls.empty(); }));
    EXPECT_EQ(calls, std::vector<int>({9}));
}

TEST(MainLoop, ReturnsAtOnceWithTheExitFlag)
{
    xwktest::StartApp();
    XwkAppExitFlag = True;
    XwkAppMainLoop(xwkApp);  // would block for an event otherwise
    XwkAppExitFlag = False;
    XtAppSetExitFlag(xwkApp);
    XwkAppMainLoop(xwkApp);
}

TEST(Shells, WalksStopAtTheTopWithoutAMatch)
{
    Widget shell = xwktest::StartApp();
    Widget top = XtVaCreatePopupShell("top", topLevelShellWidgetClass, shell, NULL);
    Widget form = XtVaCreateWidget("f", xmFormWidgetClass, top, NULL);
    Widget button = XtVaCreateWidget("b", xmPushButtonWidgetClass, form, NULL);
    EXPECT_EQ(XwkGetShell(button), top);
    EXPECT_EQ(XwkGetTopLevelShell(button), top);
    EXPECT_EQ(XwkGetWMShell(button), top);
    EXPECT_EQ(XwkGetAppShell(button), shell);
    EXPECT_EQ(XwkGetDialogShell(button), shell) << "no dialog shell: the top of the tree";
    EXPECT_EQ(XwkGetShell(nullptr), nullptr);
    EXPECT_EQ(XwkGetDialogShell(nullptr), nullptr);
    XtDestroyWidget(top);
}

TEST(Shells, ClassValuesGoToExactClassesPopupsIncluded)
{
    Widget shell = xwktest::StartApp();
    Widget form = XtVaCreateWidget("values", xmFormWidgetClass, shell, NULL);
    Widget button = XtVaCreateWidget("b", xmPushButtonWidgetClass, form, NULL);
    Widget popup = XtVaCreatePopupShell("p", topLevelShellWidgetClass, form, NULL);
    Widget inner = XtVaCreateWidget("in", xmPushButtonWidgetClass, popup, NULL);
    Widget nested_form = XtVaCreateWidget("nf", xmFormWidgetClass, form, NULL);
    XtVaCreateWidget("gadget", xmLabelGadgetClass, form, NULL);  // no pop-up list to walk
    WidgetClass classes[] = {xmPushButtonWidgetClass};
    Arg args[1];
    XtSetArg(args[0], XmNwidth, 77);
    XwkSetWidgetClassValues(form, classes, 1, args, 1);
    EXPECT_EQ(button->core.width, 77);
    EXPECT_EQ(inner->core.width, 77);
    EXPECT_NE(nested_form->core.width, 77);
    EXPECT_NE(form->core.width, 77);
    XwkSetWidgetClassValues(nullptr, classes, 1, args, 1);
    XtDestroyWidget(form);
}

TEST(Shells, TransientChildIsCentredAndClamped)
{
    Widget shell = xwktest::StartApp();
    Widget parent = XtVaCreatePopupShell("parent", topLevelShellWidgetClass, shell, XmNx, 100,
                                         XmNy, 120, XmNwidth, 400, XmNheight, 300, NULL);
    XtVaCreateManagedWidget("f", xmFormWidgetClass, parent, XmNwidth, 400, XmNheight, 300, NULL);
    XtPopup(parent, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(parent));
    Widget child = XtVaCreatePopupShell("child", transientShellWidgetClass, shell, XmNwidth, 200,
                                        XmNheight, 100, NULL);
    XwkSetTransientFor(parent, child);
    EXPECT_EQ(xwktest::Get<Widget>(child, XtNtransientFor), parent);
    EXPECT_EQ(child->core.x, 100 + 100);
    EXPECT_EQ(child->core.y, 120 + 100);

    Widget wide = XtVaCreatePopupShell("wide", transientShellWidgetClass, shell, XmNwidth, 700,
                                       XmNheight, 600, NULL);
    XwkSetTransientFor(parent, wide);
    EXPECT_EQ(wide->core.x, 0) << "100 - 150 clamps to 0";
    EXPECT_EQ(wide->core.y, 0);
    for (Widget w : {parent, child, wide})
        XtDestroyWidget(w);
}

TEST(Shells, ForceUpdateWaitsUntilTheShellIsUp)
{
    Widget shell = xwktest::StartApp();
    Widget form = XtVaCreateManagedWidget("fu", xmFormWidgetClass, shell, XmNwidth, 100,
                                          XmNheight, 60, NULL);
    XtRealizeWidget(shell);
    ForceUpdate(form);
    XWindowAttributes a;
    ASSERT_TRUE(XGetWindowAttributes(XtDisplay(shell), XtWindow(shell), &a));
    EXPECT_EQ(a.map_state, IsViewable);
    ForceUpdate(nullptr);
    ForceDestroy(nullptr);
    XtDestroyWidget(form);
}

TEST(Shells, ForceUpdateGivesUpOnAWindowManagerThatNeverMaps)
{
    Widget app = xwktest::StartApp();
    Widget form = XtVaCreateManagedWidget("main", xmFormWidgetClass, app, XmNwidth, 80,
                                          XmNheight, 40, NULL);
    XtRealizeWidget(app);
    ASSERT_TRUE(xwktest::WaitViewable(app));
    // A manager that takes the root's map requests and never answers them.
    Display *manager = XOpenDisplay(DisplayString(XtDisplay(app)));
    ASSERT_NE(manager, nullptr);
    XSelectInput(manager, DefaultRootWindow(manager), SubstructureRedirectMask);
    XSync(manager, False);

    Widget dialog = XmCreateFormDialog(app, (char *)"unmapped", nullptr, 0);
    XtVaSetValues(dialog, XmNwidth, 60, XmNheight, 30, NULL);
    XtManageChild(dialog);
    auto start = std::chrono::steady_clock::now();
    ForceUpdate(dialog);
    auto waited = std::chrono::steady_clock::now() - start;
    XWindowAttributes a;
    ASSERT_TRUE(XGetWindowAttributes(XtDisplay(app), XtWindow(XtParent(dialog)), &a));
    EXPECT_EQ(a.map_state, IsUnmapped) << "the request went to the manager";
    EXPECT_GE(waited, std::chrono::milliseconds(2500)) << "it waited for the manager";
    EXPECT_LT(waited, std::chrono::seconds(6)) << "and gave up after about 3 seconds";
    // The server was not left grabbed: the manager's connection still works.
    XWindowAttributes root;
    EXPECT_TRUE(XGetWindowAttributes(manager, DefaultRootWindow(manager), &root));
    XCloseDisplay(manager);
    XtDestroyWidget(XtParent(dialog));
    XtDestroyWidget(form);
    xwktest::Settle();
}
