// Prompts answered by typing and clicking, while they poll their desk.
#include "xwktest.h"

#include <Xm/MwmUtil.h>

#include "boxdriver.h"

// The prompt on screen is xwkParentWidget, the desk form that opened last.
namespace {

using boxdriver::action_button;
using boxdriver::form_up;
using boxdriver::Step;
using boxdriver::when;

std::vector<Widget> texts()
{
    std::vector<Widget> out;
    boxdriver::collect(xwkParentWidget, [](Widget w) { return XmIsText(w); }, &out);
    return out;
}

void type_into(Widget text, const char *what)
{
    xwktest::ClickCenter(text);
    xwktest::TypeText(XtDisplay(text), what);
}

// Types into the text and, once it shows `shows`, presses OK.
void type_then_ok(Step *next, Widget text, const char *what, std::string shows)
{
    type_into(text, what);
    when(next, [text, shows] { return xwktest::TextOf(text) == shows; },
         [] { xwktest::ClickCenter(action_button(1)); });
}

class Prompt : public ::testing::Test {
protected:
    void SetUp() override { xwktest::StartApp(); }
    Step step, next;
};

}  // namespace

TEST_F(Prompt, OneLineTypedAndConfirmed)
{
    char buffer[32] = "old";
    int min_h = 0, max_h = 0, height = 0;  // WMShell keeps its size hints as int
    std::string field_name;
    when(&step, form_up, [&] {
        Widget shell = XtParent(xwkParentWidget);
        XtVaGetValues(shell, XtNminHeight, &min_h, XtNmaxHeight, &max_h, NULL);
        height = shell->core.height;
        Widget text = texts().at(0);
        field_name = XtName(text);
        type_then_ok(&next, text, "er", "older");
    });
    EXPECT_EQ(inputa(xwkTopLevel, nullptr, "Name", buffer, 31), 1);
    EXPECT_STREQ(buffer, "older");
    EXPECT_EQ(field_name, "xwkTextField");
    EXPECT_EQ(min_h, height) << "resized in width only";
    EXPECT_EQ(max_h, height);

    when(&step, form_up, [] { xwktest::ClickCenter(action_button(2)); });
    strcpy(buffer, "keep");
    EXPECT_EQ(inputa(nullptr, nullptr, "Name", buffer, 31), 0);
    EXPECT_STREQ(buffer, "keep");

    int decorations = 0;
    when(&step, form_up, [&] {
        XtVaGetValues(XtParent(xwkParentWidget), XmNmwmDecorations, &decorations, NULL);
        xwktest::SendDeleteWindow(XtParent(xwkParentWidget));
    });
    EXPECT_EQ(inputa(xwkTopLevel, "Closing", "Name", buffer, 31), 0) << "close is Cancel";
    EXPECT_EQ(decorations, MWM_DECOR_ALL);
}

TEST_F(Prompt, HiddenEntryShowsStars)
{
    char buffer[9] = "prefill";
    std::string shown;
    when(&step, form_up, [&] {
        Widget text = texts().at(0);
        type_into(text, "secret");
        when(&next, [text] { return xwktest::TextOf(text).size() == 6; }, [&shown, text] {
            shown = xwktest::TextOf(text);
            xwktest::ClickCenter(action_button(1));
        });
    });
    EXPECT_EQ(inputa(xwkTopLevel, nullptr, "Password", buffer, -8), 1);
    EXPECT_EQ(shown, "******");
    EXPECT_STREQ(buffer, "secret");

    // Deleting takes the hidden text back with the stars.
    when(&step, form_up, [&] {
        Widget text = texts().at(0);
        type_into(text, "abcd");
        xwktest::PressKey(XtDisplay(text), XK_BackSpace);
        xwktest::PressKey(XtDisplay(text), XK_BackSpace);
        xwktest::TypeText(XtDisplay(text), "x");
        when(&next, [text] { return xwktest::TextOf(text) == "***"; },
             [] { xwktest::ClickCenter(action_button(1)); });
    });
    EXPECT_EQ(inputa(xwkTopLevel, nullptr, "Password", buffer, -8), 1);
    EXPECT_STREQ(buffer, "abx");

    // A paste of several characters is refused.
    when(&step, form_up, [&] {
        Widget text = texts().at(0);
        XmTextInsert(text, 0, (char *)"pasted");
        shown = xwktest::TextOf(text);
        xwktest::ClickCenter(action_button(1));
    });
    EXPECT_EQ(inputa(xwkTopLevel, nullptr, "Password", buffer, -8), 1);
    EXPECT_EQ(shown, "");
    EXPECT_STREQ(buffer, "");
}

TEST_F(Prompt, MultiLineCheckBoxAndSeveralFields)
{
    char notes[64] = "";
    when(&step, form_up, [&] { type_then_ok(&next, texts().at(0), "one\ntwo", "one\ntwo"); });
    EXPECT_EQ(inputb(xwkTopLevel, nullptr, "Notes", notes, 63, 30, 4), 1);
    EXPECT_STREQ(notes, "one\ntwo");

    char a[16] = "", b[16] = "";
    size_t fields = 0;
    when(&step, form_up, [&] {
        std::vector<Widget> t = texts();
        fields = t.size();
        type_into(t.at(0), "first");
        type_then_ok(&next, t.at(1), "second", "second");
    });
    EXPECT_EQ(inputc(xwkTopLevel, "Two", "A", a, 15, "B", b, 15, 20, 3), 1);
    EXPECT_EQ(fields, 2u);
    EXPECT_STREQ(a, "first");
    EXPECT_STREQ(b, "second");

    char name[16] = "n";
    Boolean flag = False;
    when(&step, form_up, [&] {
        Widget toggle = xwktest::FindWidget(xwkParentWidget, "xwkCheckBox");
        ASSERT_NE(toggle, nullptr);
        xwktest::ClickCenter(toggle);
        when(&next, [toggle] { return XmToggleButtonGetState(toggle) == True; },
             [] { xwktest::ClickCenter(action_button(1)); });
    });
    EXPECT_EQ(inputd(xwkTopLevel, "Check", "Name", name, 15, "Also this", &flag), 1);
    EXPECT_TRUE(flag);
    EXPECT_STREQ(name, "n");

    char f1[16] = "1", f2[16] = "2", f3[64] = "";
    Boolean wrap = False;
    when(&step, form_up, [&] {
        std::vector<Widget> t = texts();
        ASSERT_EQ(t.size(), 3u);
        XtVaGetValues(t[2], XmNwordWrap, &wrap, NULL);
        type_then_ok(&next, t[2], "third", "third");
    });
    EXPECT_EQ(inpute(xwkTopLevel, "Three", "One", f1, 15, 10, 1, "Two", f2, 15, 10, 1, "Three", f3,
                     63, 20, 3),
              1);
    EXPECT_STREQ(f1, "1");
    EXPECT_STREQ(f2, "2");
    EXPECT_STREQ(f3, "third");
    EXPECT_TRUE(wrap);
}

TEST_F(Prompt, DestroyedParentEndsThePrompt)
{
    Widget shell = xwktest::Shell("owner", 80, 40);
    XtRealizeWidget(shell);
    char buffer[8] = "";
    when(&step, form_up, [&] { XtDestroyWidget(shell); });
    EXPECT_EQ(inputa(shell, nullptr, "Gone", buffer, 7), 0);
    EXPECT_TRUE(step.done);
}

TEST_F(Prompt, UserTextByMode)
{
    EXPECT_EQ(XwkGetUserText(5, nullptr, "x", "Label", "Title"), nullptr);

    std::string title, page, anchor;
    when(&step, form_up, [&] {
        title = xwktest::Get<char *>(XtParent(xwkParentWidget), XtNtitle);
        char *file = nullptr, *p = nullptr, *a = nullptr;
        if (XwkGetHelpData(xwkParentWidget, &file, &p, &a)) {
            page = p ? p : "";
            anchor = a ? a : "";
        }
        type_then_ok(&next, texts().at(0), "!", "start!");
    });
    EXPECT_EQ(xwktest::Take(XwkGetUserText(1, xwkTopLevel, "start", "Find what", "Find")),
              "start!");
    EXPECT_EQ(title, "Find");
    EXPECT_EQ(page, "Interface");
    EXPECT_EQ(anchor, "Prompt");

    when(&step, form_up, [] { xwktest::ClickCenter(action_button(2)); });
    EXPECT_EQ(XwkGetUserText(0, xwkTopLevel, "text", "Notes", "Own|page"), nullptr);

    when(&step, form_up, [&] { type_then_ok(&next, texts().at(0), "pw", "**"); });
    EXPECT_EQ(xwktest::Take(XwkGetUserText(1001, xwkTopLevel, nullptr, "Password", nullptr)), "pw");
}

TEST_F(Prompt, VerifyCallbackFiltersTheFirstCharacter)
{
    struct Case { long flags; const char *typed, *result; } cases[] = {
        {XWK_VERIFY_DIGITS, "1a2", "12"},
        {XWK_VERIFY_NUMBER, "1.5x", "1.5"},
        {XWK_VERIFY_HEX, "fg1", "f1"},
        {XWK_VERIFY_PATH, "a b/c;d", "a_b/c_d"},
        {XWK_VERIFY_IDENTIFIER, "a b/c(d)", "a_b_c(d)"},
    };
    for (const Case &c : cases) {
        XwkDeskRec *desk = nullptr;
        CreateDesk(nullptr, 1.0f, 1.0f, "Verify", &desk);
        char value[32] = "";
        XwkDeskItem *field = nullptr;
        SetEditField(desk, 0.5f, 0.5f, "Text", 0.0f, value, XWK_FIELD_STRING, 31, 20, &field);
        Widget text = ((XwkEditItem *)field)->text;
        XtAddCallback(text, XmNmodifyVerifyCallback, XwkTextVerifyCallback, (XtPointer)c.flags);
        OpenDesk(desk);
        xwktest::WaitViewable(text);
        type_into(text, c.typed);
        xwktest::Settle();
        EXPECT_EQ(xwktest::TextOf(text), c.result) << c.typed;
        // Only the first character of an insertion is looked at.
        if (c.flags == XWK_VERIFY_DIGITS) {
            XmTextInsert(text, 0, (char *)"1a");
            EXPECT_EQ(xwktest::TextOf(text), std::string("1a") + c.result);
        }
        CloseDesk(desk);
    }
}
