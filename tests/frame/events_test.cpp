// Raw event filters, the main loop and the shell walks.
#include "xwktest.h"

#include <Xm/DialogS.h>
#include <Xm/LabelG.h>

namespace {

std::vector<int> calls;

XEvent client_message(Widget w, long data)
{
    XEvent ev = {};
    ev.xclient.type = ClientMessage;
    ev.xclient.display = XtDisplay(w);
    ev.xclient.window = XtWindow(w);
    ev.xclient.format = 32;
    ev.xclient.data.l[0] = data;
    return ev;
}

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

Widget next_victim_widget;
void remove_other(Widget, XtPointer closure, XEvent *)
{
    calls.push_back((int)(long)closure);
    XwkRemoveEventHandler(next_victim_widget, 7, ClientMessage, kDataOffset, record, (XtPointer)1L);
}

Widget make_widget(const char *name)
{
    Widget shell = xwktest::StartApp();
    Widget w = XtVaCreateManagedWidget(name, xmFormWidgetClass, shell, XmNwidth, 50, XmNheight, 50,
                                       NULL);
    XtRealizeWidget(shell);
    return w;
}

}  // namespace

TEST(EventHandlers, MatchByTypeAndWordAtOffset)
{
    Widget w = make_widget("match");
    calls.clear();
    ASSERT_NE(XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)1L), nullptr);
    XEvent ev = client_message(w, 7);
    XwkRunEventHandler(&ev);
    ev = client_message(w, 8);
    XwkRunEventHandler(&ev);
    ev.type = KeyPress;
    XwkRunEventHandler(&ev);
    EXPECT_EQ(calls, std::vector<int>({1}));
    // Out-of-range offsets never match and never read outside the event.
    ASSERT_NE(XwkAddEventHandler(w, 0, ClientMessage, (int)sizeof(XEvent), record, (XtPointer)2L),
              nullptr);
    ASSERT_NE(XwkAddEventHandler(w, 0, ClientMessage, -4, record, (XtPointer)3L), nullptr);
    calls.clear();
    ev = client_message(w, 7);
    XwkRunEventHandler(&ev);
    EXPECT_EQ(calls, std::vector<int>({1}));
    XtDestroyWidget(w);
    xwktest::Settle();
    calls.clear();
    XwkRunEventHandler(&ev);
    EXPECT_TRUE(calls.empty()) << "a dead widget's filters are gone";
}

TEST(EventHandlers, DuplicateGivesTheSameRecordAndOneCall)
{
    Widget w = make_widget("dup");
    calls.clear();
    XwkEventHandlerRec *a = XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)5L);
    XwkEventHandlerRec *b = XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)5L);
    EXPECT_EQ(a, b);
    XEvent ev = client_message(w, 7);
    XwkRunEventHandler(&ev);
    EXPECT_EQ(calls, std::vector<int>({5}));
    XwkRemoveEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)5L);
    calls.clear();
    XwkRunEventHandler(&ev);
    EXPECT_TRUE(calls.empty());
    // Removed by hand, the widget's death finds nothing to remove.
    XtDestroyWidget(w);
    xwktest::Settle();
}

TEST(EventHandlers, RemovalDuringTheWalk)
{
    Widget w = make_widget("walk");
    calls.clear();
    // Newest first: 3 (removes itself), 2 (removes the record of 1), 1.
    XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, record, (XtPointer)1L);
    next_victim_widget = w;
    XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, remove_other, (XtPointer)2L);
    XwkAddEventHandler(w, 7, ClientMessage, kDataOffset, remove_self, (XtPointer)3L);
    XEvent ev = client_message(w, 7);
    XwkRunEventHandler(&ev);
    EXPECT_EQ(calls, std::vector<int>({3, 2}));
    calls.clear();
    XwkRunEventHandler(&ev);
    EXPECT_EQ(calls, std::vector<int>({2}));
    XtDestroyWidget(w);
    xwktest::Settle();
}

TEST(EventHandlers, OnlyRealWidgets)
{
    Widget w = make_widget("gadgets");
    Widget gadget = XmCreateLabelGadget(w, (char *)"g", nullptr, 0);
    EXPECT_EQ(XwkAddEventHandler(gadget, 0, KeyPress, 0, record, nullptr), nullptr);
    EXPECT_EQ(XwkAddEventHandler(nullptr, 0, KeyPress, 0, record, nullptr), nullptr);
    XwkRemoveEventHandler(nullptr, 0, KeyPress, 0, record, nullptr);
    XwkRunEventHandler(nullptr);
    XtDestroyWidget(w);
}

TEST(EventHandlers, RunOnTheEventPathBeforeDispatch)
{
    Widget w = make_widget("path");
    calls.clear();
    XwkAddEventHandler(w, 42, ClientMessage, kDataOffset, record, (XtPointer)9L);
    XEvent ev = client_message(w, 42);
    XSendEvent(XtDisplay(w), XtWindow(w), False, NoEventMask, &ev);
    EXPECT_TRUE(xwktest::PumpUntil([] { return !calls.empty(); }));
    EXPECT_EQ(calls, std::vector<int>({9}));
    XtDestroyWidget(w);
}

TEST(MainLoop, ReturnsAtOnceWithTheExitFlag)
{
    xwktest::StartApp();
    XwkAppExitFlag = True;
    XwkAppMainLoop(xwkApp);  // would block for an event otherwise
    XwkAppExitFlag = False;
    XtAppSetExitFlag(xwkApp);
    XwkAppMainLoop(xwkApp);
    SUCCEED();
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
    XtDestroyWidget(parent);
    XtDestroyWidget(child);
    XtDestroyWidget(wide);
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
    timespec start, end;
    clock_gettime(CLOCK_MONOTONIC, &start);
    ForceUpdate(dialog);
    clock_gettime(CLOCK_MONOTONIC, &end);
    long waited = (end.tv_sec - start.tv_sec) * 1000 + (end.tv_nsec - start.tv_nsec) / 1000000;
    XWindowAttributes a;
    ASSERT_TRUE(XGetWindowAttributes(XtDisplay(app), XtWindow(XtParent(dialog)), &a));
    EXPECT_EQ(a.map_state, IsUnmapped) << "the request went to the manager";
    EXPECT_GE(waited, 2500) << "it waited for the manager";
    EXPECT_LT(waited, 6000) << "and gave up after about 3 seconds";
    // The server was not left grabbed: the manager's connection still works.
    XWindowAttributes root;
    EXPECT_TRUE(XGetWindowAttributes(manager, DefaultRootWindow(manager), &root));
    XCloseDisplay(manager);
    XtDestroyWidget(XtParent(dialog));
    XtDestroyWidget(form);
    xwktest::Settle();
}
