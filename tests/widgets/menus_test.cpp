// Table-driven menus and the message area, chosen by mouse, mnemonic and
// accelerator with real input.
#include "xwktest.h"

#include <Xm/CascadeB.h>

namespace {

struct Choice {
    std::string name;
    int reason, click_count;
    bool had_event, menu_was_down, others_could_grab;
};
std::vector<Choice> choices;
Widget pulldown_of_file;
Widget destroy_in_callback;

void OnChoose(Widget, XtPointer closure, XtPointer call_data)
{
    XmPushButtonCallbackStruct *call = (XmPushButtonCallbackStruct *)call_data;
    choices.push_back({(const char *)closure, call->reason, call->click_count,
                       call->event != nullptr, !xwktest::Viewable(pulldown_of_file),
                       xwktest::OthersCanGrab()});
    if (destroy_in_callback) {
        XtDestroyWidget(destroy_in_callback);  // the bar, and File's pulldown with it
        pulldown_of_file = nullptr;
    }
    destroy_in_callback = nullptr;
}

std::string ShortHelp(Widget w)
{
    return xwktest::Take(XwkGetShortHelp(w));
}

// An entry of a menu table that calls OnChoose with its name.
void Entry(XwkMenuItem *item, const char *label, const char *help, const char *accelerator,
           const char *name, WidgetClass *widget_class = &xmPushButtonWidgetClass)
{
    XwkPrepareMenuItem(item, label, help, accelerator, widget_class, OnChoose, (XtPointer)name,
                       nullptr, nullptr);
}

void Cascade(XwkMenuItem *item, const char *label, XwkMenuItem *submenu)
{
    XwkPrepareMenuItem(item, label, nullptr, nullptr, &xmCascadeButtonWidgetClass, nullptr,
                       nullptr, nullptr, submenu);
}

void FreeItems(XwkMenuItem *items)
{
    for (XwkMenuItem *i = items; i->name; i++) {
        XtFree(i->name);
        XtFree(i->accelerator);
        XtFree(i->accelerator_text);
        XtFree(i->short_help);
    }
}

// File (Open, Save insensitive, separator, Quit), Edit (a toggle and a
// submenu), a plain Help cascade, in a window with a message area.
struct Window {
    XwkMenuItem file[5], more[2], edit[3], about[2], top[5];
    Widget shell, form, bar, area;
    Window()
    {
        Entry(&file[0], "&Open", "Open a file|Open", "Ctrl-o", "open");
        Entry(&file[1], "*&Save", "Save the file", "Ctrl-s", "save");
        Entry(&file[2], "-", nullptr, nullptr, "separator");
        Entry(&file[3], "&Quit", "Leave", "Ctrl-q", "quit");
        Entry(&more[0], "&Deep", "Deep down", nullptr, "deep");
        Entry(&edit[0], "&Wrap", "Wrap lines", "Ctrl-w", "wrap", &xmToggleButtonWidgetClass);
        Cascade(&edit[1], "&More", more);
        Entry(&about[0], "&About", nullptr, nullptr, "about");
        Cascade(&top[0], "&File", file);
        Cascade(&top[1], "&Edit", edit);
        Cascade(&top[2], "&Help", about);
        Cascade(&top[3], "&Plain", nullptr);
        file[4] = more[1] = edit[2] = about[1] = top[4] = {};

        shell = XtVaCreatePopupShell("menus", topLevelShellWidgetClass, xwktest::StartApp(), XtNx,
                                     50, XtNy, 50, NULL);
        form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, XmNwidth, 320, XmNheight,
                                       160, NULL);
        XwkMenu description = {XwkMENU_BAR, nullptr, 0, 0, 0, 0, top};
        bar = XwkCreateMenu(form, &description);
        XtVaSetValues(bar, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                      XmNrightAttachment, XmATTACH_FORM, NULL);
        XtManageChild(bar);
        area = XwkCreateMessageArea(form);
        XtVaSetValues(area, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                      XmNrightAttachment, XmATTACH_FORM, NULL);
        XtPopup(shell, XtGrabNone);
        xwktest::WaitViewable(area);
        XSetInputFocus(XtDisplay(shell), XtWindow(shell), RevertToParent, CurrentTime);
        xwktest::Settle();
        XtVaGetValues(top[0].widget, XmNsubMenuId, &pulldown_of_file, NULL);
        choices.clear();
    }
    ~Window()
    {
        XtDestroyWidget(shell);
        xwktest::Settle();
        for (XwkMenuItem *items : {file, more, edit, about, top})
            FreeItems(items);
    }
    bool WaitChoice() { return xwktest::PumpUntil([] { return !choices.empty(); }); }
    // Opens File with the pointer and rests it on Open, the button held,
    // until the short help of Open shows in the status widget.
    bool PointAtOpen(Widget status)
    {
        xwktest::Press(top[0].widget, 5, 5, 1, 0);
        if (!xwktest::WaitViewable(pulldown_of_file))
            return false;
        xwktest::MoveTo(file[0].widget, 5, 5, 0);
        return xwktest::PumpUntil([&] { return ShortHelp(status) == "Open a file"; });
    }
};

TEST(MenuLabels, PrefixesAndMnemonics)
{
    const struct {
        const char *label, *text, *simple;
        char mnemonic, prefix;
    } cases[] = {
        {"&File", "File", "File", 'F', 0},  {"_File", "File", "File", 'F', 0},
        {"*Save", "Save", "*Save", 0, '*'}, {"-", "", "-", 0, '-'},
        {"&", "", "", 0, 0},                {"", "", "", 0, 0},
        {"Sa&ve_as", "Save_as", "Save_as", 'v', 0},
    };
    for (auto &c : cases) {
        SCOPED_TRACE(c.label);
        char mnemonic = 'x', prefix = 'x';
        char *text = XwkCreateString(c.label, &mnemonic, &prefix);
        char *simple = XwkCreateStringSimple(c.label);
        EXPECT_STREQ(text, c.text);
        EXPECT_STREQ(simple, c.simple);
        EXPECT_EQ(mnemonic, c.mnemonic);
        EXPECT_EQ(prefix, c.prefix);
        XtFree(text);
        XtFree(simple);
    }
    EXPECT_EQ(XwkCreateString(nullptr, nullptr, nullptr), nullptr);
}

TEST(Menus, BuiltFromTheTable)
{
    Window win;
    Widget open = win.file[0].widget, save = win.file[1].widget;
    EXPECT_STREQ(XtName(win.bar), "xwkMenuBar");
    EXPECT_STREQ(XtName(open), "Open");
    EXPECT_EQ(xwktest::Get<KeySym>(open, XmNmnemonic), (KeySym)'O');
    EXPECT_TRUE(XtIsSensitive(open));
    EXPECT_FALSE(XtIsSensitive(save));
    EXPECT_EQ(XtClass(win.file[2].widget), xmSeparatorWidgetClass);
    EXPECT_EQ(XtClass(win.edit[0].widget), xmToggleButtonWidgetClass);
    EXPECT_EQ(xwktest::Get<Widget>(win.bar, XmNmenuHelpWidget), win.top[2].widget);
    // A cascade without submenu has no record.
    EXPECT_EQ(xwktest::Get<XtPointer>(win.top[3].widget, XmNuserData), nullptr);
    auto *record = (XwkMenuButtonRec *)xwktest::Get<XtPointer>(open, XmNuserData);
    ASSERT_NE(record, nullptr);
    EXPECT_STREQ(record->short_help, "Open a file|Open");

    XwkMenuItemsSetClosure(win.top, (XtPointer)&win);
    EXPECT_EQ(win.file[3].closure, (XtPointer)&win);
    EXPECT_EQ(win.more[0].closure, (XtPointer)&win);
    EXPECT_EQ(win.top[0].closure, nullptr);
    XwkMenuItemsSetClosure(win.more + 1, nullptr);  // empty: nothing happens

    XwkMenuItem sizes[4];
    const char *names[] = {"Small", "Medium", "Large"};
    for (int i = 0; i < 3; i++)
        Entry(&sizes[i], names[i], nullptr, nullptr, names[i]);
    sizes[3] = {};
    Widget option = XwkCreateSubmenu(win.form, XwkMENU_OPTION, "&Size", 'S', 1, sizes);
    EXPECT_EQ(xwktest::Get<Widget>(option, XmNmenuHistory), sizes[1].widget);
    Widget popup = XwkCreateSubmenu(win.form, XwkMENU_POPUP, nullptr, 0, 0, sizes);
    EXPECT_STREQ(XtName(popup), "xwkPopupMenu");
    EXPECT_EQ(XwkCreateSubmenu(win.form, 7, nullptr, 0, 0, sizes), nullptr);
    FreeItems(sizes);
}

// Armed by the pointer, then disarmed by leaving the menu with the button
// still down; the release far away chooses nothing.
TEST(Menus, ShortHelpInAnotherWindowOrFreedUnseen)
{
    Window win;
    Display *dpy = XtDisplay(win.shell);
    Widget other = XtVaCreatePopupShell("other", topLevelShellWidgetClass, xwktest::StartApp(),
                                        XtNx, 420, XtNy, 50, NULL);
    Widget other_area = XwkCreateMessageArea(other);
    XtPopup(other, XtGrabNone);
    ASSERT_TRUE(xwktest::WaitViewable(other_area));
    const struct {
        Widget status;
        bool free_saved;
        const char *own_armed, *other_armed, *own_after, *other_after;
    } cases[] = {
        {other_area, false, "Ready", "Open a file", "Ready", "Ready"},
        {nullptr, true, "Open a file", "Ready", "Open a file", "Ready"},
    };
    for (auto &c : cases) {
        XwkSetStatusBarForMenu(win.file[0].widget, c.status);
        ASSERT_TRUE(win.PointAtOpen(c.status ? other_area : win.area));
        EXPECT_EQ(ShortHelp(win.area), c.own_armed);
        EXPECT_EQ(ShortHelp(other_area), c.other_armed);
        if (c.free_saved)
            XwkMenuFreeSavedShortHelp(win.form);
        xwktest::MovePointer(dpy, 1, 1);
        xwktest::Pump(200);
        XTestFakeButtonEvent(dpy, 1, False, CurrentTime);
        xwktest::Pump(200);
        xwktest::Settle();
        EXPECT_TRUE(choices.empty());
        EXPECT_EQ(ShortHelp(win.area), c.own_after);
        EXPECT_EQ(ShortHelp(other_area), c.other_after);
    }
    XtDestroyWidget(other);
}

TEST(Menus, ChosenByMouseMnemonicAndAccelerator)
{
    const struct {
        const char *what;
        KeySym first;  // none: chosen with the pointer, after its short help
        unsigned first_mods;
        KeySym second;
        const char *chosen;
        int reason;
    } cases[] = {
        {"mouse", 0, 0, 0, "open", XmCR_ACTIVATE},
        {"mnemonic", XK_f, Mod1Mask, XK_o, "open", XmCR_ACTIVATE},
        {"accelerator", XK_o, ControlMask, 0, "open", XmCR_ACTIVATE},
        {"toggle accelerator", XK_w, ControlMask, 0, "wrap", XmCR_VALUE_CHANGED},
        {"insensitive", XK_s, ControlMask, 0, nullptr, 0},
    };
    for (auto &c : cases) {
        SCOPED_TRACE(c.what);
        Window win;
        Display *dpy = XtDisplay(win.shell);
        if (c.first) {
            xwktest::PressKey(dpy, c.first, c.first_mods);
        } else {
            ASSERT_TRUE(win.PointAtOpen(win.area));
            xwktest::Release(win.file[0].widget, 1, 0);
        }
        if (c.second) {
            ASSERT_TRUE(xwktest::WaitViewable(pulldown_of_file));
            EXPECT_TRUE(xwktest::PumpUntil([&] { return ShortHelp(win.area) == "Open a file"; }));
            xwktest::PressKey(dpy, c.second);
        }
        if (!c.chosen) {
            xwktest::Pump(300);
            EXPECT_TRUE(choices.empty());
            continue;
        }
        ASSERT_TRUE(win.WaitChoice());
        EXPECT_EQ(choices[0].name, c.chosen);
        EXPECT_EQ(choices[0].reason, c.reason);
        EXPECT_EQ(choices[0].click_count, 1);  // for the toggle: set
        EXPECT_TRUE(choices[0].had_event);
        EXPECT_TRUE(choices[0].menu_was_down);
        EXPECT_TRUE(choices[0].others_could_grab);
        xwktest::Settle();
        EXPECT_EQ(ShortHelp(win.area), "Ready");
    }
}

TEST(Menus, BadTablesAndCallbacksThatDestroyTheMenu)
{
    Window win;
    const char *labels[] = {"", "&", "-", "*", "_&"};
    const char *accelerators[] = {"Foo-Bar", "Ctrl-", "-", "+", "none", "Shift+Ctrl+Alt-x", ""};
    XwkMenuItem odd[8];
    for (int i = 0; i < 7; i++)
        Entry(&odd[i], labels[i % 5], "", accelerators[i], "odd");
    odd[7] = {};
    Widget menu = XwkCreateSubmenu(win.bar, XwkMENU_PULLDOWN, "Odd", 0, 0, odd);
    ASSERT_NE(menu, nullptr);
    for (int i = 0; i < 7; i++)
        EXPECT_NE(odd[i].widget, nullptr);

    XwkMenuItem sizes[3];
    Entry(&sizes[0], "Small", nullptr, nullptr, "small");
    Entry(&sizes[1], "Large", nullptr, nullptr, "large");
    sizes[2] = {};
    Widget option = XwkCreateSubmenu(win.form, XwkMENU_OPTION, "&Size", 'S', 1, sizes);
    ASSERT_NE(option, nullptr);

    destroy_in_callback = win.bar;
    xwktest::PressKey(XtDisplay(win.shell), XK_q, ControlMask);
    ASSERT_TRUE(win.WaitChoice());
    xwktest::Settle();
    EXPECT_EQ(xwktest::FindWidget(win.form, "xwkMenuBar"), nullptr);
    EXPECT_EQ(ShortHelp(win.area), "Ready");
    EXPECT_TRUE(XwkGetShortHelpSensitive(win.area));
    // The option menu on the same form still works: its pulldown was not
    // the bar's to destroy.
    Widget button = XmOptionButtonGadget(option);
    choices.clear();
    xwktest::Click(option, button->core.x + 5, button->core.y + 5);
    ASSERT_TRUE(xwktest::WaitViewable(sizes[0].widget));
    xwktest::Settle();
    for (KeySym key : {XK_Up, XK_Return})  // from the present choice, Large
        xwktest::PressKey(XtDisplay(option), key);
    ASSERT_TRUE(win.WaitChoice());
    EXPECT_EQ(choices[0].name, "small");
    EXPECT_EQ(xwktest::Get<Widget>(option, XmNmenuHistory), sizes[0].widget);
    FreeItems(odd);
    FreeItems(sizes);
}

}  // namespace
