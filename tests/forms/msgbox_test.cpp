// Message boxes answered by real input: clicks, keys and the window
// manager's close, while condit runs its own loop.
#include "xwktest.h"

#include <Xm/DrawnB.h>

#include "boxdriver.h"

namespace {

using boxdriver::Step;
using boxdriver::box_text;
using boxdriver::box_title;
using boxdriver::collect;
using boxdriver::label_text;

// Clicks the n-th button of the box; 0 is the window manager's close.
void click(int n)
{
    if (n)
        xwktest::ClickCenter(boxdriver::button(n));
    else
        xwktest::SendDeleteWindow(XtParent(xwkConditWidget));
}

class MessageBox : public ::testing::Test {
protected:
    void SetUp() override { xwktest::StartApp(); }
    void TearDown() override { EXPECT_EQ(xwkConditWidget, nullptr); }
    // Reads the next box (its text, title, name and button labels), then
    // answers with click(answer).
    void read_box(int answer = 1)
    {
        boxdriver::when_up(&step, [this, answer] {
            text = box_text();
            title = box_title();
            name = XtName(xwkConditWidget);
            std::vector<Widget> row;
            collect(xwkConditWidget, "xwkActionAreaButton", &row);
            buttons.clear();
            for (Widget b : row)
                buttons.push_back(label_text(b));
            click(answer);
        });
    }
    Step step;
    std::string text, title, name;
    std::vector<std::string> buttons;
};

}  // namespace

TEST_F(MessageBox, KindsNamesAndIcons)
{
    // The kind, the box's name, the colour of its picture and how many
    // pixels of it at least; an own icon (all green) replaces the kind's.
    struct Case {
        int kind;
        const char *name;
        unsigned long colour;
        int least;
        bool own;
    } cases[] = {
        {1, "xwkError", 0xD02828, 101, false}, {2, "xwkInformation", 0x2F6FC8, 101, false},
        {3, "xwkQuestion", 0x2E9A62, 101, false}, {4, "xwkWarning", 0xF2C218, 101, false},
        {7, "xwkMessageDialog", 0, 0, false}, {1, "xwkError", 0x00FF00, 64, true},
    };
    for (const Case &c : cases) {
        if (c.own) {
            xwkConditIcon = xwktest::SolidIcon(xwkTopLevel, 8, 8, "#00FF00");
            ASSERT_NE(xwkConditIcon, nullptr);
        }
        std::string name;
        int painted = -1;
        Dimension width = 0;
        boxdriver::when_up(&step, [&] {
            name = XtName(xwkConditWidget);
            Widget icon = xwktest::FindWidgetOfClass(xwkConditWidget, xmDrawnButtonWidgetClass);
            painted = 0;
            // The picture comes with the icon's first expose, which may
            // follow the box's mapping by a little on a busy machine.
            auto count = [&] {
                xwktest::Capture shot(icon);
                painted = shot.Count(c.colour, 0, 0, shot.width(), shot.height());
                return painted >= c.least;
            };
            if (icon) {
                width = icon->core.width;
                c.colour ? (void)xwktest::PumpUntil(count) : (void)count();
            }
            click(1);
        });
        EXPECT_EQ(condit(nullptr, "Kind", c.kind, "A message", nullptr, 0, 1, 2), 1);
        EXPECT_EQ(name, c.name);
        if (c.colour)
            EXPECT_GE(painted, c.least) << c.name << ": the picture is drawn";
        else
            EXPECT_EQ(painted, 0) << "no icon";
        if (c.own) {
            XwkIconFree(xwkTopLevel, xwkConditIcon);
            xwkConditIcon = nullptr;
            EXPECT_EQ(painted, 64);
            EXPECT_EQ(width, 8 + 4);
        }
    }
}

TEST_F(MessageBox, IconsOnTheSecondScreen)
{
    // The error picture once on each screen: each box draws its own screen's.
    Widget pseudo = xwktest::PseudoColorShell();
    XtRealizeWidget(pseudo);
    for (Widget parent : {xwkTopLevel, pseudo, xwkTopLevel}) {
        Screen *screen = nullptr;
        bool drawn = false;
        boxdriver::when_up(&step, [&] {
            Widget icon = xwktest::FindWidgetOfClass(xwkConditWidget, xmDrawnButtonWidgetClass);
            screen = XtScreen(icon);
            // Any pixel other than the background: the picture is there (it
            // comes with the icon's first expose).
            xwktest::PumpUntil([&] {
                xwktest::Capture shot(icon);
                unsigned long background = shot.Pixel(0, 0);
                drawn = shot.Count(background, 0, 0, shot.width(), shot.height()) <
                        shot.width() * shot.height();
                return drawn;
            });
            click(0);  // the test pointer moves on the first screen only
        });
        EXPECT_EQ(condit(parent, "Screens", 1, "Which screen?", nullptr, 0, 1, 2), 0);
        EXPECT_EQ(screen, XtScreen(parent));
        EXPECT_TRUE(drawn);
    }
}

TEST_F(MessageBox, ShortTextAndButtonsStandCentred)
{
    int top = -1, expected_top = -2, left = -1, expected_left = -2;
    Step grown;
    boxdriver::when_up(&step, [&] {
        // The user makes the box larger: text and buttons follow to the middle.
        Widget shell = XtParent(xwkConditWidget);
        XtVaSetValues(shell, XtNwidth, shell->core.width + 200, XtNheight,
                      shell->core.height + 100, NULL);
        boxdriver::when(&grown, [&] {
            Widget label = xwktest::FindWidget(xwkConditWidget, "xwkConditLabel");
            top = xwktest::Get<int>(label, XmNtopOffset);
            expected_top = ((int)XtParent(label)->core.height - (int)label->core.height) / 2;
            Widget row = XtParent(boxdriver::button(1));
            left = xwktest::Get<int>(row, XmNleftOffset);
            expected_left = ((int)xwkConditWidget->core.width - (int)row->core.width) / 2;
            return top > 0 && left > 0;
        }, [] { click(1); });
    });
    condit(nullptr, "Centred", 4, "One short line", nullptr, 0, 1, 2);
    EXPECT_EQ(top, expected_top);
    EXPECT_EQ(left, expected_left);
}

TEST_F(MessageBox, ButtonSetsAndNumbers)
{
    // The kind, the button set, own labels and their count; the button
    // clicked (0: the window manager's close, which is not the cancel
    // button's number).
    struct Case {
        int kind, set;
        const char *own;
        int count, click;
        std::vector<std::string> labels;
    } cases[] = {
        {2, 0, nullptr, 0, 2, {"  OK  ", "  Cancel  "}},
        {3, 1, nullptr, 0, 1, {"  Yes  ", "  No  "}},
        {2, 3, "One\0Two\0Three", 3, 3, {"One", "Two", "Three"}},
        {2, 2, nullptr, 0, 1, {"  OK  "}},
        {3, 0, nullptr, 0, 0, {"  OK  ", "  Cancel  "}},
    };
    for (const Case &c : cases) {
        read_box(c.click);
        EXPECT_EQ(condit(nullptr, "Set", c.kind, "Which?", c.own, c.count, 1, c.set), c.click);
        EXPECT_EQ(buttons, c.labels) << c.set;
    }

    // All buttons share one width: the widest and a part of it for each
    // character of the longest label (19 here).
    boxdriver::when_up(&step, [&] {
        Widget row = XtParent(boxdriver::button(1));
        XmString s = XmStringCreateLocalized((char *)"A much longer label");
        Widget natural = XtVaCreateWidget("natural", xmPushButtonWidgetClass, row,
                                          XmNlabelString, s, XmNdefaultButtonShadowThickness, 1,
                                          NULL);
        XmStringFree(s);
        int widest = natural->core.width;
        XtDestroyWidget(natural);
        EXPECT_EQ(boxdriver::button(1)->core.width, boxdriver::button(2)->core.width);
        EXPECT_EQ(boxdriver::button(2)->core.width, widest + widest / 19);
        click(1);
    });
    condit(nullptr, "Widths", 2, "x", "A\0A much longer label", 2, 1, 3);
}

TEST_F(MessageBox, DefaultAndCancelButtonsByKeys)
{
    // Default 9 of two is the second and Return presses it; Escape presses
    // the cancel-like button, found by its label; without one, the second
    // button is the cancel button.
    struct Case {
        const char *resource, *own;
        int count, def, expected;
        KeySym key;
        int answer;
    } cases[] = {
        {XmNdefaultButton, nullptr, 0, 9, 2, XK_Return, 2},
        {XmNcancelButton, "Save\0Discard\0Cancel", 3, 1, 3, XK_Escape, 3},
        {XmNcancelButton, "Save\0Discard", 2, 1, 2, 0, 1},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.resource);
        boxdriver::when_up(&step, [&] {
            Widget button = xwktest::Get<Widget>(xwkConditWidget, c.resource);
            EXPECT_EQ(button, boxdriver::button(c.expected));
            if (!c.key) {
                click(1);
                return;
            }
            // Keys go where the pointer is: over the message, off the buttons.
            xwktest::MoveTo(xwkConditWidget, 5, 5, 0);
            xwktest::PressKey(XtDisplay(xwkConditWidget), c.key);
        });
        EXPECT_EQ(condit(nullptr, "Keys", 3, "Which?", c.own, c.count, c.def, c.own ? 3 : 0),
                  c.answer);
    }
}

TEST_F(MessageBox, DestroyedParentGivesMinusOne)
{
    Widget shell = XtVaAppCreateShell("other", "XwkTest", topLevelShellWidgetClass, xwkDisplay,
                                      XtNwidth, 100, XtNheight, 50, XtNmappedWhenManaged, False,
                                      NULL);
    XtRealizeWidget(shell);
    Boolean parent_mapped = False;
    int min_w = 0, min_h = 0, box_w = -1, box_h = -1;
    boxdriver::when_up(&step, [&] {
        // The parent is made to show; the box cannot shrink below its first size.
        XtVaGetValues(shell, XtNmappedWhenManaged, &parent_mapped, NULL);
        Widget box_shell = XtParent(xwkConditWidget);
        XtVaGetValues(box_shell, XtNminWidth, &min_w, XtNminHeight, &min_h, NULL);
        box_w = box_shell->core.width;
        box_h = box_shell->core.height;
        XtDestroyWidget(shell);
    });
    EXPECT_EQ(condit(shell, "Orphan", 1, "Parent goes", nullptr, 0, 1, 2), -1);
    EXPECT_TRUE(step.done);
    EXPECT_TRUE(parent_mapped);
    EXPECT_EQ(min_w, box_w);
    EXPECT_EQ(min_h, box_h);

    // A box destroyed by the client while it waits.
    boxdriver::when_up(&step, [] { XtDestroyWidget(XtParent(xwkConditWidget)); });
    EXPECT_EQ(condit(nullptr, "Gone", 1, "Box goes", nullptr, 0, 1, 2), -1);
}

TEST_F(MessageBox, ShortTextBecomesLabelsLongTextScrolls)
{
    std::string tall, huge, wide(1000, 'w');
    for (int i = 0; i < 200; i++)
        tall += "^bLine^b " + std::to_string(i) + "\n";
    // Beyond the text kept on the stack: all of it still shows.
    for (int i = 0; i < 2000; i++)
        huge += "row " + std::to_string(i) + " ^^\n";
    // Only lines ended by a newline count towards the width: ended by one,
    // the wide line makes the text scroll, at most 60 columns wide, as many
    // rows as lines.
    struct Case {
        std::string text;
        size_t labels;
        short rows, columns;
    } cases[] = {
        {"Line one\nLine two", 1, 0, 0},
        {tall, 0, 15, 12},  // the longest line, "^bLine^b 199"
        {wide, 1, 0, 0},
        {wide + "\nshort", 0, 2, 60},
        {huge, 0, 15, 11},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.text.substr(0, 20));
        std::vector<Widget> labels;
        std::string shown;
        short rows = 0, columns = 0;
        Pixel text_bg = 1, form_bg = 1;
        boxdriver::when_up(&step, [&] {
            collect(xwkConditWidget, "xwkConditLabel", &labels);
            if (Widget text = xwktest::FindWidgetOfClass(xwkConditWidget, xmTextWidgetClass)) {
                shown = xwktest::TextOf(text);
                XtVaGetValues(text, XmNrows, &rows, XmNcolumns, &columns, XmNbackground, &text_bg,
                              NULL);
                form_bg = XtParent(XtParent(text))->core.background_pixel;
            }
            click(0);  // wide boxes have their buttons beyond the screen's edge
        });
        condit(nullptr, "Text", 2, c.text.c_str(), nullptr, 0, 1, 2);
        EXPECT_EQ(labels.size(), c.labels);
        EXPECT_EQ(rows, c.rows);
        EXPECT_EQ(columns, c.columns);
        EXPECT_EQ(text_bg, form_bg) << "the text takes the box's background";
        if (&c == &cases[1]) {
            EXPECT_EQ(shown.substr(0, 14), "bLineb 0\nbLine") << "markers dropped, letters kept";
        }
        if (&c == &cases[4]) {
            EXPECT_EQ(shown.size(), huge.size() - 2000);
            EXPECT_EQ(shown.substr(shown.size() - 11), "row 1999 ^\n");
        }
    }
}

TEST_F(MessageBox, ModelessBoxStaysUntilDeleted)
{
    int result = condit(nullptr, "Modeless", 2, "Stays", nullptr, 0, -1, 2);
    EXPECT_EQ(result, -1) << "no answer yet";
    ASSERT_NE(xwkConditWidget, nullptr);
    EXPECT_EQ(xwktest::Get<unsigned char>(xwkConditWidget, XmNdialogStyle), XmDIALOG_MODELESS);
    Widget shell = XtParent(xwkConditWidget);
    bool destroyed = false;
    XtAddCallback(shell, XtNdestroyCallback,
                  [](Widget, XtPointer d, XtPointer) { *(bool *)d = true; }, &destroyed);
    ASSERT_TRUE(xwktest::PumpUntil(boxdriver::box_up));
    del_condit();
    xwktest::Settle();
    EXPECT_TRUE(destroyed);
    del_condit();  // nothing left: no-op

    // The logo: an override shell, no title, no answer.
    EXPECT_EQ(condit(nullptr, nullptr, 2, "^bXwk^b", nullptr, 0, -1, 2), -1);
    ASSERT_NE(xwkConditWidget, nullptr);
    EXPECT_STREQ(XtName(XtParent(xwkConditWidget)), "xwkLogo");
    EXPECT_TRUE(XtIsOverrideShell(XtParent(xwkConditWidget)));
    del_condit();
    xwktest::Settle();
}

TEST_F(MessageBox, MarkupMakesLabelsTagsAndLines)
{
    Widget shell = xwktest::Shell("markup", 300, 200);
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, NULL);
    Widget last = XwkCreateCompoundLabels(
        form, "Centred ^bbold^b here^lLeft^x side^rRight\tT^sAfter ^iit^i^Fmono^f^");
    std::vector<Widget> labels;
    collect(form, "xwkConditLabel", &labels);
    ASSERT_EQ(labels.size(), 4u);
    EXPECT_EQ(last, labels[3]);
    // ^x vanishes, tabs stop every eight columns, a separator keeps the alignment.
    auto align = [](Widget w) { return xwktest::Get<unsigned char>(w, XmNalignment); };
    std::pair<std::string, unsigned char> shown[] = {
        {"Centred bold here", XmALIGNMENT_CENTER}, {"Left side", XmALIGNMENT_BEGINNING},
        {"Right   T", XmALIGNMENT_END}, {"After itmono", XmALIGNMENT_END}};
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(label_text(labels[i]), shown[i].first);
        EXPECT_EQ(align(labels[i]), shown[i].second) << shown[i].first;
    }
    Widget line = xwktest::FindWidgetOfClass(form, xmSeparatorWidgetClass);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(xwktest::Get<Widget>(labels[3], XmNtopWidget), line);

    // Font tags of the pieces.
    XmString s = xwktest::Get<XmString>(labels[3], XmNlabelString);
    XmStringContext context;
    ASSERT_TRUE(XmStringInitContext(&context, s));
    std::vector<std::string> pieces;  // text, then its tag after a '/'
    char *text = nullptr, *tag = nullptr;
    XmStringDirection dir;
    Boolean sep;
    while (XmStringGetNextSegment(context, &text, &tag, &dir, &sep)) {
        if (*text)
            pieces.push_back(text + std::string("/") + tag);
        XtFree(text);
        XtFree(tag);
    }
    XmStringFreeContext(context);
    XmStringFree(s);
    ASSERT_EQ(pieces.size(), 3u);
    EXPECT_EQ(pieces[0].substr(0, 7), "After /");
    EXPECT_EQ(pieces[1], "it/ITALIC");
    EXPECT_EQ(pieces[2], "mono/FIXED");

    // An alignment command with nothing pending keeps the string built so
    // far, which then takes the new alignment.
    Widget one = XwkCreateCompoundLabels(form, "^bB^b^lx\ny");
    EXPECT_EQ(label_text(one), "Bx\ny");
    EXPECT_EQ(align(one), XmALIGNMENT_BEGINNING);

    // A line takes the string built so far along even with nothing pending.
    Widget form2 = XtVaCreateManagedWidget("form2", xmFormWidgetClass, form, NULL);
    Widget after = XwkCreateCompoundLabels(form2, "^bB^b^sX");
    labels.clear();
    collect(form2, "xwkConditLabel", &labels);
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(label_text(labels[0]), "B");
    EXPECT_EQ(label_text(after), "X");
    EXPECT_TRUE(XmIsSeparator(xwktest::Get<Widget>(after, XmNtopWidget)));
    // Styles do not nest: overlapping ones come out of order.
    EXPECT_EQ(label_text(XwkCreateCompoundLabels(form2, "^bA^iB^bC^i")), "ACB");
    XtDestroyWidget(shell);
}

TEST_F(MessageBox, StandardDialogMapsNoToZero)
{
    // The answer (0: the window manager's close), the title given and shown.
    struct Case {
        int kind, answer;
        const char *title, *shown, *name;
        int result;
    } cases[] = {
        {XWK_DIALOG_QUESTION, 1, nullptr, "Question", "xwkQuestion", 1},
        {XWK_DIALOG_QUESTION, 2, nullptr, "Question", "xwkQuestion", 0},
        {XWK_DIALOG_QUESTION, 0, nullptr, "Question", "xwkQuestion", 0},
        {XWK_DIALOG_MESSAGE, 1, "Own title", "Own title", "xwkMessageDialog", 1},
        {XWK_DIALOG_WARNING, 1, nullptr, "Warning", "xwkWarning", 1},
    };
    for (const Case &c : cases) {
        read_box(c.answer);
        EXPECT_EQ(XwkShowStdDialog(nullptr, c.title, "Go on?", c.kind), c.result) << c.shown;
        EXPECT_EQ(name, c.name);
        EXPECT_EQ(title, c.shown);
    }
}

TEST_F(MessageBox, ErrnoPrintfAndMemoryTexts)
{
    errno = 0;
    EXPECT_EQ(XwkShowErrStrDialog(nullptr, nullptr, "reading", "f.txt", XWK_DIALOG_ERROR), 0);
    EXPECT_EQ(xwkConditWidget, nullptr) << "nothing shown";

    read_box();
    errno = ENOENT;
    EXPECT_EQ(XwkShowErrStrDialog(nullptr, nullptr, "reading", "f.txt", XWK_DIALOG_ERROR), ENOENT);
    EXPECT_EQ(text, std::string("An error occurred while reading\nf.txt:\n") + strerror(ENOENT) +
                        ".|");

    read_box();
    XwkShowPrintfDialog(nullptr, "Count", XWK_DIALOG_INFORMATION, "%d items in %s", 3, "box");
    EXPECT_EQ(text, "3 items in box|");

    std::string long_arg(5000, 'z');
    read_box(0);  // wider than the screen
    XwkShowPrintfDialog(nullptr, "Cut", XWK_DIALOG_INFORMATION, "<%s>", long_arg.c_str());
    EXPECT_EQ(text.size(), 1023u + 1) << "1023 characters and the label end";
    EXPECT_EQ(text.substr(0, 3), "<zz");

    read_box();
    ins_mem();
    EXPECT_EQ(text, "Insufficient memory!|");
    EXPECT_EQ(title, "Error");
}

TEST_F(MessageBox, ToggleDialogHandsBackTheState)
{
    Boolean flag = False;
    std::string toggle_label;
    boxdriver::when_up(&step, [&] {
        Widget toggle = xwktest::FindWidgetOfClass(xwkConditWorkWidget, xmToggleButtonWidgetClass);
        ASSERT_NE(toggle, nullptr);
        toggle_label = label_text(toggle);
        xwktest::ClickCenter(toggle);
        // The answer comes once the toggle's click has been handled.
        static Step next;
        boxdriver::when(&next, [toggle] { return XmToggleButtonGetState(toggle) == True; },
                        [] { click(1); });
    });
    EXPECT_TRUE(XwkShowDialogWithToggle(nullptr, nullptr, "Note this", nullptr, &flag,
                                        XWK_DIALOG_INFORMATION));
    EXPECT_TRUE(flag);
    EXPECT_EQ(toggle_label, "Disable this message for next time");

    boxdriver::when_up(&step, [] { click(2); });
    EXPECT_EQ(XwkShowDialogWithToggleExt(nullptr, "Own", "Pick", "Remember", "One\0Two", 2, 1,
                                         &flag, XWK_DIALOG_QUESTION),
              2);
    EXPECT_TRUE(flag) << "unchanged when not clicked";

    boxdriver::when_up(&step, [] { click(0); });
    EXPECT_FALSE(XwkShowDialogWithToggle(nullptr, nullptr, "Close", nullptr, &flag,
                                         XWK_DIALOG_INFORMATION));

    // A box that stands already is waited for; a call from inside the
    // waiting gives 0 at once.
    ASSERT_EQ(condit(nullptr, "Standing", 2, "First", nullptr, 0, -1, 2), -1);
    Widget standing = xwkConditWidget;
    ASSERT_NE(standing, nullptr);
    static Step away;
    boxdriver::when_up(&away, [] { del_condit(); });
    int nested = -5;
    std::string text;
    boxdriver::when(&step, [] { return away.done && boxdriver::box_up(); }, [&] {
        nested = XwkShowDialogWithToggle(nullptr, nullptr, "Inner", nullptr, &flag,
                                         XWK_DIALOG_INFORMATION);
        text = box_text();
        click(1);
    });
    EXPECT_TRUE(XwkShowDialogWithToggle(nullptr, nullptr, "Second", nullptr, &flag,
                                        XWK_DIALOG_INFORMATION));
    EXPECT_TRUE(away.done) << "the standing box went first";
    EXPECT_EQ(nested, 0);
    EXPECT_EQ(text, "Second|");
}

TEST_F(MessageBox, FileMessagesByCode)
{
    xwktest::TempDir dir;
    std::string present = dir.Write("present", "data"), missing = dir.Path("missing");

    for (int code : {1, 4, 2, 9})  // 9: no such code
        EXPECT_EQ(err_msg(nullptr, present.c_str(), code), 0) << code;
    EXPECT_EQ(access(present.c_str(), F_OK), 0) << "an existing file stays";
    EXPECT_EQ(err_msg(nullptr, missing.c_str(), 6), 0);
    EXPECT_NE(access(missing.c_str(), F_OK), 0) << "the probe file is gone again";
    std::string probed = dir.Write("probed", "");
    EXPECT_EQ(err_msg(nullptr, probed.c_str(), 6), 0);
    EXPECT_NE(access(probed.c_str(), F_OK), 0) << "code 6 removes even a file that was there";
    EXPECT_EQ(err_msg(nullptr, missing.c_str(), 0), 0) << "nothing to overwrite";
    EXPECT_EQ(xwkConditWidget, nullptr);

    // A negative code shows its box without testing the file.
    for (auto [code, file, verb] : {std::tuple{1, missing, "find"}, {-4, present, "read"},
                                    {-2, present, "create"}, {-6, present, "open"}}) {
        read_box();
        EXPECT_EQ(err_msg(nullptr, file.c_str(), code), 1);
        EXPECT_EQ(text, "Can't " + std::string(verb) + " the file\n`" + file + "'.|");
        EXPECT_EQ(name, "xwkError");
    }
    for (int code : {8, 11}) {
        read_box();
        int code_ref = code;
        Widget none = nullptr;
        EXPECT_EQ(err_msg_(&none, present.c_str(), &code_ref), 1);
        EXPECT_NE(text.find(present), std::string::npos);
    }

    // The questions: keep, closed, overwrite.
    read_box(2);
    EXPECT_EQ(err_msg(nullptr, present.c_str(), 0), 2);
    EXPECT_EQ(name, "xwkWarning");
    EXPECT_EQ(title, "Warning");
    EXPECT_EQ(buttons, (std::vector<std::string>{"Overwrite", "Cancel"}));
    boxdriver::when_up(&step, [] { click(0); });
    EXPECT_EQ(err_msg(nullptr, present.c_str(), 10), 3);
    boxdriver::when_up(&step, [] { click(1); });
    EXPECT_EQ(err_msg(nullptr, present.c_str(), 0), 1);
    EXPECT_NE(access(present.c_str(), F_OK), 0) << "overwrite removes the file";

    // A file name far longer than the message buffer is cut.
    std::string very_long = dir.Path(std::string(4000, 'n'));
    read_box(0);
    EXPECT_EQ(err_msg(nullptr, very_long.c_str(), -8), 0);
    // Cut inside the bold name: a style never switched off shows nothing.
    EXPECT_EQ(text, "Invalid format of the file\n|");
}

TEST(MessageBoxDeath, BotchAborts)
{
    EXPECT_DEATH(botch("broken state"), "Abort: broken state");
}
