// Tool bars, the tip label and short help, driven by real pointer input.
#include "xwktest.h"

#include <Xm/DrawnBP.h>
#include <Xm/ManagerP.h>

#include <chrono>

namespace {

const unsigned long kTipColour = 0xffff00;
String fallback[] = {(String) "*xwkTipLabel.background: #ffff00", nullptr};

struct Press {
    Widget widget;
    XtPointer closure;
    bool others_could_grab;
};
std::vector<Press> presses;
Widget destroy_in_callback;

void OnPress(Widget w, XtPointer closure, XtPointer)
{
    presses.push_back({w, closure, xwktest::OthersCanGrab()});
    if (destroy_in_callback)
        XtDestroyWidget(destroy_in_callback);
}

Widget App()
{
    return xwktest::StartApp("XwkTest", fallback);
}

XwkIcon *Red()
{
    static XwkIcon *icon = xwktest::SolidIcon(App(), 12, 12, "#ff0000");
    return icon;
}

std::string ShortHelp(Widget w)
{
    return xwktest::Take(XwkGetShortHelp(w));
}

unsigned long RootPixel(int x, int y)
{
    Display *dpy = XtDisplay(App());
    xwktest::Capture c(dpy, DefaultRootWindow(dpy), x, y, 1, 1);
    return c.Pixel(0, 0);
}

// A window with a tool bar of Open, a gap and Save at the top and a
// message area at the bottom.
struct Bar {
    Widget shell, form, toolbar = nullptr, area;
    XwkToolBar *table;
    Bar(bool new_style, int count = 3, XwkIcon **icons = nullptr, int x = 100, int y = 100)
    {
        xwkToolBarNewStyle = new_style;
        shell = XtVaCreatePopupShell("bars", topLevelShellWidgetClass, App(), XtNx, x, XtNy, y,
                                     NULL);
        form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, XmNwidth, 300,
                                       XmNheight, 100, NULL);
        XwkIcon *standard[] = {Red(), nullptr, Red()};
        static char *help[] = {(char *)"Open a file|Open", nullptr, (char *)"Save the file|Save"};
        XtCallbackProc callbacks[] = {OnPress, nullptr, OnPress};
        table = XwkCreateToolBarButtons(count, icons ? icons : standard, help, callbacks, this);
        toolbar = XwkCreateToolBar(form, table);
        if (toolbar)
            XtManageChild(toolbar);
        area = XwkCreateMessageArea(form);
        XtVaSetValues(area, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                      XmNrightAttachment, XmATTACH_FORM, NULL);
        XtPopup(shell, XtGrabNone);
        xwktest::WaitViewable(area);
        xwktest::Settle();
        presses.clear();
    }
    ~Bar()
    {
        xwktest::MovePointer(XtDisplay(shell), 1, 1);
        XtDestroyWidget(shell);
        XwkDestroyToolBarButtons(table);
        xwkToolBarNewStyle = 0;
        destroy_in_callback = nullptr;
        xwktest::Settle();
    }
    Widget button(int i) { return table->buttons[i]->widget; }
    void Enter(int i)
    {
        xwktest::MoveTo(button(i), XtWidth(button(i)) / 2, XtHeight(button(i)) / 2, 0);
    }
};

bool WaitTip(bool shown, int ms = 3000)
{
    return xwktest::PumpUntil([shown] { return xwkTipLabelIsHidden == !shown; }, ms);
}

TEST(Tip, OffMeansNoTimerAndNoLabel)
{
    Bar bar(false);
    xwkEnableToolbarTips = 0;
    bar.Enter(0);
    EXPECT_FALSE(WaitTip(true, 1200));
    EXPECT_EQ(xwkTipLabelWidget, nullptr);
    xwkEnableToolbarTips = 1;
}

TEST(ToolBar, LayoutTipAndShortHelpInBothStyles)
{
    for (bool new_style : {false, true}) {
        SCOPED_TRACE(new_style ? "new style" : "classic");
        Bar bar(new_style);
        Widget b = bar.button(0), second = bar.button(2);
        XmPrimitiveWidget p = (XmPrimitiveWidget)b;
        EXPECT_EQ(bar.table->state, -1);
        EXPECT_EQ(bar.table->buttons[1]->widget, nullptr);
        EXPECT_EQ(XtX(b), 5);
        int least = 2 * (p->primitive.highlight_thickness + p->primitive.shadow_thickness + 4);
        EXPECT_EQ(XtWidth(b), least + 12);
        EXPECT_EQ(XtHeight(b), least + 12);
        // The new style draws a separator for a gap; the classic one leaves nothing.
        Widget sep = xwktest::FindWidgetOfClass(bar.toolbar, xmSeparatorWidgetClass);
        if (new_style) {
            ASSERT_NE(sep, nullptr);
            EXPECT_EQ(XtX(second), XtX(sep) + XtWidth(sep) + 5);
        } else {
            EXPECT_EQ(sep, nullptr);
            EXPECT_EQ(XtX(second), XtX(b) + XtWidth(b) + 5);
        }

        int in = p->primitive.highlight_thickness;
        unsigned long form_top = ((XmManagerWidget)XtParent(b))->manager.top_shadow_color;
        unsigned long button_top = p->primitive.top_shadow_color;
        unsigned long idle = xwktest::Capture(b).Pixel(in, in);
        EXPECT_EQ(idle, new_style ? b->core.background_pixel : button_top);

        auto start = std::chrono::steady_clock::now();
        bar.Enter(0);
        ASSERT_TRUE(WaitTip(true));
        EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(600));
        EXPECT_EQ(ShortHelp(b), "Open a file");
        // Centred below the button, 5 pixels down; the tip text follows the '|'.
        int bx, by;
        xwktest::RootPosition(b, &bx, &by);
        Widget tip = XtParent(xwkTipLabelWidget);
        EXPECT_EQ(XtX(tip), bx + XtWidth(b) / 2);
        EXPECT_EQ(XtY(tip), by + XtHeight(b) + 5);
        EXPECT_EQ(RootPixel(XtX(tip) + 2, XtY(tip) + 2), kTipColour);
        if (new_style) {  // raised in the form's colours while the pointer is inside
            EXPECT_EQ(xwktest::Capture(b).Pixel(in, in), form_top);
        }

        xwktest::MovePointer(XtDisplay(b), bx + 200, by + 60);
        ASSERT_TRUE(WaitTip(false));
        xwktest::Settle();
        EXPECT_NE(RootPixel(XtX(tip) + 2, XtY(tip) + 2), kTipColour);
        EXPECT_EQ(ShortHelp(b), "Ready");
        EXPECT_EQ(xwktest::Capture(b).Pixel(in, in), idle);
    }
}

TEST(ToolBar, KeyOrClickHidesTipAndHelpMayShowElsewhere)
{
    Bar bar(true);
    bar.Enter(2);
    ASSERT_TRUE(WaitTip(true));
    xwktest::PressKey(XtDisplay(bar.shell), XK_Shift_L);
    EXPECT_TRUE(WaitTip(false));
    xwktest::MovePointer(XtDisplay(bar.shell), 1, 1);
    bar.Enter(2);
    ASSERT_TRUE(WaitTip(true));
    xwktest::ClickCenter(bar.button(2));
    ASSERT_TRUE(xwktest::PumpUntil([] { return !presses.empty(); }));
    EXPECT_TRUE(xwkTipLabelIsHidden);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].widget, bar.button(2));
    EXPECT_EQ(presses[0].closure, (XtPointer)&bar);
    EXPECT_TRUE(presses[0].others_could_grab);
    xwktest::Settle();
    EXPECT_EQ(ShortHelp(bar.button(2)), "Save the file");  // the pointer is still inside

    XwkSetToolBarButtonSensitive(bar.button(2), False);
    xwktest::ClickCenter(bar.button(2));
    xwktest::Pump(200);
    EXPECT_TRUE(presses.size() == 1u);

    // The short help may go to the message area of another window.
    Bar other(true, 3, nullptr, 500, 100);
    XwkSetStatusBarForToolBar(bar.toolbar, other.area);
    xwktest::MovePointer(XtDisplay(bar.shell), 1, 1);
    std::string own = ShortHelp(bar.area);
    bar.Enter(0);
    ASSERT_TRUE(WaitTip(true));
    EXPECT_EQ(ShortHelp(other.area), "Open a file");
    EXPECT_EQ(ShortHelp(bar.area), own);
}

TEST(ToolBar, OnlyGapsMakeNoToolBar)
{
    XwkIcon *gaps[] = {nullptr, nullptr};
    Bar empty(true, 2, gaps);
    EXPECT_EQ(empty.toolbar, nullptr);
    EXPECT_EQ(xwktest::FindWidget(empty.form, "xwkToolBar"), nullptr);
}

TEST(Tip, PlacedAtScreenEdgesAndGoneWithItsTarget)
{
    Display *dpy = XtDisplay(App());
    int sw = WidthOfScreen(XtScreen(App())), sh = HeightOfScreen(XtScreen(App()));
    Bar bar(false, 3, nullptr, 100, sh - 40);
    Widget tip;

    xwktest::MovePointer(dpy, 400, 300);
    XwkShowTipLabelNow(bar.area, "status|two\nlines");
    tip = XtParent(xwkTipLabelWidget);
    EXPECT_EQ(XtX(tip), 400);
    EXPECT_EQ(XtY(tip) + XtHeight(tip) + 5, 300);
    EXPECT_EQ(RootPixel(XtX(tip) + 2, XtY(tip) + 2), kTipColour);
    XmString s = xwktest::Get<XmString>(xwkTipLabelWidget, XmNlabelString);
    char *text = (char *)XmStringUnparse(s, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0,
                                         XmOUTPUT_ALL);
    EXPECT_STREQ(text, "twolines");
    EXPECT_EQ(XmStringLineCount(s), 2);
    XtFree(text);
    XmStringFree(s);

    xwktest::MovePointer(dpy, sw - 2, 300);
    XwkShowTipLabelNow(bar.area, "right edge");
    EXPECT_EQ(XtX(tip), sw - XtWidth(tip) - 1);

    Widget b = bar.button(0);
    int bx, by;
    xwktest::RootPosition(b, &bx, &by);
    XwkShowTipLabelNow(b, "bottom edge");
    EXPECT_EQ(XtY(tip), by + XtHeight(b) + 5 - 1 - (XtHeight(tip) + 10 + XtHeight(b)));
    XwkHideTipLabel();

    // The target goes while the tip waits, or while it shows.
    Widget label = XtVaCreateManagedWidget("plain", xmLabelWidgetClass, bar.form, NULL);
    xwktest::Settle();
    XwkShowTipLabel(label, "waits");
    XtDestroyWidget(label);
    EXPECT_FALSE(WaitTip(true, 1200));

    label = XtVaCreateManagedWidget("plain", xmLabelWidgetClass, bar.form, NULL);
    xwktest::Settle();
    XwkShowTipLabelNow(label, "shows");
    ASSERT_FALSE(xwkTipLabelIsHidden);
    XtDestroyWidget(label);
    xwktest::Settle();
    EXPECT_TRUE(xwkTipLabelIsHidden);
    XwkShowTipLabelNow(bar.button(0), "again");
    EXPECT_FALSE(xwkTipLabelIsHidden);
    XwkHideTipLabel();

    // A button's callback may destroy the whole tool bar.
    destroy_in_callback = bar.toolbar;
    bar.Enter(0);
    xwktest::ClickCenter(bar.button(0));
    ASSERT_TRUE(xwktest::PumpUntil([] { return !presses.empty(); }));
    xwktest::Settle();
    EXPECT_EQ(xwktest::FindWidget(bar.form, "xwkToolBar"), nullptr);
}

TEST(ShortHelp, TextIsCleanedAndShownOnlyWhenNew)
{
    Bar bar(false);
    Widget w = bar.form;
    const struct {
        std::string in, shown;
    } cases[] = {
        {"Save the file|Save", "Save the file"},
        {"^bBold^b text", "Bold text"},
        {"two\nlines", "two lines"},
        {std::string(300, 'x'), std::string(255, 'x')},
        {"", std::string(255, 'x')},  // an empty text changes nothing
    };
    for (auto &c : cases) {
        XwkSetShortHelp(w, c.in.c_str());
        EXPECT_EQ(ShortHelp(w), c.shown);
    }
    char buffer[256];
    xwkgetshorthelp_(&w, buffer);
    EXPECT_EQ(std::string(buffer), std::string(255, 'x'));

    // The same text again leaves the label alone: a mark painted on it
    // stays until a new text redraws it.
    Widget label = xwktest::FindWidgetOfClass(bar.area, xmLabelWidgetClass);
    Display *dpy = XtDisplay(label);
    GC gc = XCreateGC(dpy, XtWindow(label), 0, nullptr);
    XSetForeground(dpy, gc, 0x00ff00);
    XFillRectangle(dpy, XtWindow(label), gc, 0, 0, 2, 2);
    XFreeGC(dpy, gc);
    for (bool same : {true, false}) {
        XwkSetShortHelp(w, same ? std::string(300, 'x').c_str() : "new");
        xwktest::Settle();
        EXPECT_EQ(xwktest::Capture(label).Pixel(0, 0) == 0x00ff00, same);
    }
    XwkSetShortHelp(w, std::string(300, 'x').c_str());

    EXPECT_TRUE(XwkGetShortHelpSensitive(w));
    XwkSetShortHelpSensitive(w, False);
    bar.Enter(0);  // short help off: entering leaves the text
    ASSERT_TRUE(WaitTip(true));
    EXPECT_EQ(ShortHelp(w), std::string(255, 'x'));

    Widget lone = XtVaCreatePopupShell("lone", topLevelShellWidgetClass, App(), NULL);
    EXPECT_EQ(XwkGetShortHelp(lone), nullptr);
    EXPECT_FALSE(XwkGetShortHelpSensitive(lone));
    XtDestroyWidget(lone);
}

}  // namespace
