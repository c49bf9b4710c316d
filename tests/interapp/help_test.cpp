// The help client: help data found up the widget tree, the server's process
// id on the root window, and the help server c-smeld_hs started, used
// through the selection, found dead and started again.
#include "xwktest.h"

#include "../forms/boxdriver.h"

namespace {

Widget row()
{
    static Widget w;
    if (!w) {
        w = XtVaCreateManagedWidget("row", xmRowColumnWidgetClass, xwktest::StartApp(), NULL);
        XtRealizeWidget(xwktest::StartApp());
    }
    return w;
}

TEST(HelpData, EachAncestorCompletesWhatIsStillUnset)
{
    struct Record {
        const char *file, *page, *anchor;
    };
    const Record none = {nullptr, nullptr, nullptr};
    struct Case {
        Record top, middle, leaf;
        bool found;
        const char *file, *page, *anchor;
    } cases[] = {
        {none, none, {"f", "p", ""}, true, "f", "p", ""},
        {none, {"f", "p", "a"}, none, true, "f", "p", "a"},
        // An anchor with a blank file or page walks on for them.
        {none, {"fm", "pm", "am"}, {"", "", "x"}, true, "fm", "pm", "x"},
        {{"ft", "pt", ""}, none, {"f", "", "x"}, true, "f", "pt", "x"},
        {none, none, {"f", "", "x"}, false, "f", "", "x"},
        {none, none, none, false, nullptr, nullptr, nullptr},
    };
    for (const Case &c : cases) {
        Widget top = XtVaCreateManagedWidget("top", xmFormWidgetClass, row(), NULL);
        Widget middle = XtVaCreateManagedWidget("middle", xmFormWidgetClass, top, NULL);
        Widget leaf = XtVaCreateManagedWidget("leaf", xmPushButtonWidgetClass, middle, NULL);
        const std::pair<Widget, Record> records[] = {
            {top, c.top}, {middle, c.middle}, {leaf, c.leaf}};
        for (const auto &[w, r] : records)
            if (r.file)
                XwkSetHelpData(w, r.file, r.page, r.anchor);
        char *file = nullptr, *page = nullptr, *anchor = nullptr;
        EXPECT_EQ(XwkGetHelpData(leaf, &file, &page, &anchor), c.found) << c.leaf.file;
        EXPECT_STREQ(file, c.file);
        EXPECT_STREQ(page, c.page);
        EXPECT_STREQ(anchor, c.anchor);
        XtDestroyWidget(top);
    }
}

TEST(HelpPID, OnlyOneItemOfItsOwnTypeInFormat32Counts)
{
    Widget w = row();
    Display *dpy = XtDisplay(w);
    const char *name = "_XWK_TEST_HELP_PID";
    Atom own = XInternAtom(dpy, name, False);
    long one[] = {4321}, two[] = {4321, 1};
    struct Case {
        Atom type;
        int format;
        const void *data;
        int count;
        int expected;
    } cases[] = {
        {own, 32, one, 1, 4321},
        {XA_CARDINAL, 32, one, 1, 0},
        {own, 32, two, 2, 0},
        {own, 8, "4321", 4, 0},
        {own, 32, nullptr, 0, 0},  // no property
    };
    for (const Case &c : cases) {
        if (c.data)
            XChangeProperty(dpy, DefaultRootWindow(dpy), own, c.type, c.format, PropModeReplace,
                            (const unsigned char *)c.data, c.count);
        else
            XDeleteProperty(dpy, DefaultRootWindow(dpy), own);
        EXPECT_EQ(XwkGetHelpPIDProperty(w, name), c.expected) << c.format << " " << c.count;
    }
    XDeleteProperty(dpy, DefaultRootWindow(dpy), own);
    EXPECT_EQ(XwkGetHelpPIDProperty(nullptr, name), 0);
}

// The box a help request brings up, answered with OK.
std::string box_of_help(Widget w)
{
    boxdriver::Step step;
    std::string text;
    boxdriver::when_up(&step, [&] {
        text = boxdriver::box_title() + ": " + boxdriver::box_text();
        xwktest::ClickCenter(boxdriver::button(1));
    });
    EXPECT_TRUE(XwkShowHelp(w));
    EXPECT_TRUE(step.done);
    return text;
}

// A help installation in a directory of its own, C_SMELD naming it while it
// stands: the server and one help file, or nothing.
struct HelpDir {
    xwktest::TempDir dir;

    explicit HelpDir(bool with_server)
    {
        setenv("C_SMELD", dir.Path().c_str(), 1);
        if (!with_server)
            return;
        EXPECT_EQ(symlink(XWK_HELP_BUILD_DIR "/c-smeld_hs", dir.Path("c-smeld_hs").c_str()), 0);
        dir.Write("c-smeld.help",
                  ".page one Page one\nFirst.\n.page two Page two\nSecond.\n.anchor end\nEnd.\n");
    }
};

TEST(HelpClient, WithoutServerOrHelpFileTheUserIsTold)
{
    Widget w = XtVaCreateManagedWidget("nohelp", xmPushButtonWidgetClass, row(), NULL);
    HelpDir empty(false);
    XwkSetHelpData(w, "anything.help", "page", "");
    EXPECT_EQ(box_of_help(w), "Error: Help system is not available!|");
    EXPECT_EQ(xwkHelpPID, 0);

    HelpDir installed(true);
    XwkSetHelpData(w, "missing.help", "page", "");
    EXPECT_EQ(box_of_help(w), "Error: Help data is not available!|");
    EXPECT_EQ(xwkHelpPID, 0);
}

// True when a window of the help server has the title; the server also
// has unmapped windows of the toolkit's own.
bool has_server_window(Display *dpy, const char *title)
{
    Window root_return, parent, *children = nullptr;
    unsigned int n = 0;
    bool found = false;
    XQueryTree(dpy, DefaultRootWindow(dpy), &root_return, &parent, &children, &n);
    for (unsigned int i = 0; i < n && !found; i++) {
        XClassHint hint = {};
        if (!XGetClassHint(dpy, children[i], &hint))
            continue;
        char *name = nullptr;
        if (std::string(hint.res_class) == "XwkHelp" && XFetchName(dpy, children[i], &name) && name)
            found = std::string(name) == title;
        XFree(name);
        XFree(hint.res_name);
        XFree(hint.res_class);
    }
    XFree(children);
    return found;
}

bool shows(Display *dpy, const char *title)
{
    return xwktest::PumpUntil([&] { return has_server_window(dpy, title); }, 5000);
}

// The server goes as the application ends it: the loop reaps it, and the
// property stays behind with a stale process id.
void end_server(int pid)
{
    ASSERT_EQ(kill(pid, SIGTERM), 0);
    EXPECT_TRUE(xwktest::PumpUntil(
        [&] { return waitpid(pid, nullptr, WNOHANG) < 0 && errno == ECHILD; }, 5000));
}

TEST(HelpClient, TheServerIsStartedUsedAndStartedAgain)
{
    HelpDir installed(true);
    Widget form = XtVaCreateManagedWidget("helped", xmFormWidgetClass, row(), NULL);
    Widget first = XtVaCreateManagedWidget("first", xmPushButtonWidgetClass, form, NULL);
    Widget second = XtVaCreateManagedWidget("second", xmPushButtonWidgetClass, form,
                                            XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget,
                                            first, NULL);
    xwktest::Settle();
    Display *dpy = XtDisplay(form);
    XwkSetHelpData(form, nullptr, "one", nullptr);
    XwkSetHelpData(second, nullptr, "two", "end");
    auto published = [&](int id) {
        return xwktest::PumpUntil(
            [&] { return XwkGetHelpPIDProperty(form, "_SMELD_HELP_PID") == id; });
    };

    xwkHelpPID = 0;
    ASSERT_TRUE(XwkShowHelp(first));
    int pid = xwkHelpPID;
    ASSERT_GT(pid, 0);
    EXPECT_TRUE(shows(dpy, "Help - Page one")) << "the help data on the command line";
    EXPECT_TRUE(published(pid));

    struct Step {
        Widget asking;
        bool forget;  // as an application that did not start the server
        const char *title;
    } steps[] = {
        {second, false, "Help - Page two"},
        {first, true, "Help - Page one"},
        {second, true, "Help - Page two"},
    };
    for (const Step &s : steps) {
        if (s.forget)
            xwkHelpPID = 0;
        ASSERT_TRUE(XwkShowHelp(s.asking));
        EXPECT_EQ(xwkHelpPID, pid) << "the running server is used";
        EXPECT_TRUE(shows(dpy, s.title)) << "through the selection";
    }

    for (bool forget : {false, true}) {
        end_server(pid);
        EXPECT_EQ(XwkGetHelpPIDProperty(form, "_SMELD_HELP_PID"), pid) << "stale";
        if (forget)
            xwkHelpPID = 0;
        ASSERT_TRUE(XwkShowHelp(first));
        EXPECT_NE(xwkHelpPID, pid) << "a dead server is started anew";
        pid = xwkHelpPID;
        EXPECT_TRUE(shows(dpy, "Help - Page one"));
        EXPECT_TRUE(published(pid));
    }
    end_server(pid);

    // A manual page, asked for by an application that then goes: its
    // server goes with it.
    Widget other = XtVaAppCreateShell("other", "XwkTest", applicationShellWidgetClass, dpy, NULL);
    Widget manual = XtVaCreateManagedWidget("manual", xmPushButtonWidgetClass, other, NULL);
    XtRealizeWidget(other);
    XwkSetHelpData(manual, "-Man", "ls", nullptr);
    ASSERT_TRUE(XwkShowHelp(manual));
    pid = xwkHelpPID;
    ASSERT_GT(pid, 0);
    EXPECT_TRUE(shows(dpy, "Help - ls"));
    XtDestroyWidget(other);
    EXPECT_TRUE(xwktest::PumpUntil(
        [&] { return waitpid(pid, nullptr, WNOHANG) < 0 && errno == ECHILD; }, 5000));
}

}  // namespace
