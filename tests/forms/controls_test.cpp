// Desk controls driven by real input: what the user clicks and types is
// what Get... reads; sizes and extents follow the controls.
#include "xwktest.h"
#include "boxdriver.h"

#include <Xm/DrawnB.h>

namespace {

using xwktest::Get;

// Each test fills a desk of its own and opens it to work the controls.
class Controls : public ::testing::Test {
protected:
    void SetUp() override
    {
        xwktest::StartApp();
        CreateDesk(nullptr, 1.0f, 1.0f, "Controls", &desk);
    }
    void TearDown() override { CloseDesk(desk); }
    void open()
    {
        OpenDesk(desk);
        xwktest::WaitViewable(desk->buttons[0]);
        xwktest::Settle();
    }
    XwkDeskRec *desk = nullptr;
};

// What a Get... reads into an int.
template <class Item> int Read(void (*get)(Item, int *), Item item)
{
    int value = -99;
    get(item, &value);
    return value;
}

std::string name_of(Widget w)
{
    return w ? XtName(w) : "";
}

}  // namespace

TEST_F(Controls, LabelButtonAndSeparatorRaiseTheExtents)
{
    XwkDeskItem *label = nullptr, *button = nullptr, *line = nullptr, *vertical = nullptr;
    SetLabel(desk, 0.5f, 0.5f, "Two\nlines", &label);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(name_of(label->widget), "xwkLabel");
    EXPECT_EQ(XtParent(label->widget), desk->work);
    EXPECT_EQ(label->width, label->widget->core.width);
    EXPECT_EQ(desk->extent_w, 14 + label->width);
    EXPECT_EQ(desk->extent_h, 14 + label->height);

    SetButton(desk, 4.0f, 2.0f, "Press", &button);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(name_of(button->widget), "xwkButton");
    int inset = Get<Dimension>(button->widget, XmNmarginWidth) +
                Get<Dimension>(button->widget, XmNshadowThickness) +
                Get<Dimension>(button->widget, XmNhighlightThickness);
    EXPECT_EQ(button->width, button->widget->core.width + 2 * inset)
        << "margins count twice";
    EXPECT_EQ(desk->extent_w, 112 + button->width);
    EXPECT_EQ(desk->extent_h, 56 + button->height);

    unsigned short w = desk->extent_w, h = desk->extent_h;
    SetSeparator(desk, 0.0f, 4.0f, 200.0f, 4, &line);
    ASSERT_NE(line, nullptr);
    auto type = [](XwkDeskItem *i) { return Get<unsigned char>(i->widget, XmNseparatorType); };
    auto orientation = [](XwkDeskItem *i) { return Get<unsigned char>(i->widget, XmNorientation); };
    EXPECT_EQ(type(line), XmDOUBLE_LINE);
    EXPECT_EQ(orientation(line), XmHORIZONTAL);
    EXPECT_EQ(Get<unsigned char>(line->widget, XmNrightAttachment), XmATTACH_FORM)
        << "longer than the screen: up to the edge";
    EXPECT_EQ(desk->extent_w, w);
    EXPECT_EQ(desk->extent_h, h);
    SetSeparator(desk, 8.0f, 0.0f, -2.0f, 9, &vertical);
    EXPECT_EQ(type(vertical), XmSHADOW_ETCHED_IN);
    EXPECT_EQ(orientation(vertical), XmVERTICAL);
    EXPECT_EQ(vertical->widget->core.height, 56);
    // Within the screen: the length itself, placed inside the work area's shadow.
    XwkDeskItem *shortline = nullptr;
    SetSeparator(desk, 1.0f, 3.0f, 3.0f, 3, &shortline);
    int work_shadow = Get<Dimension>(desk->work, XmNshadowThickness);
    EXPECT_EQ(shortline->width, 84);
    EXPECT_EQ(Get<int>(shortline->widget, XmNleftOffset), 28 + work_shadow);
    EXPECT_EQ(Get<int>(shortline->widget, XmNtopOffset), 84 + work_shadow);
    EXPECT_EQ(type(shortline), XmSINGLE_LINE);

    open();
    xwktest::ClickCenter(button->widget);
    xwktest::Settle();
    EXPECT_EQ(Read(GetButton, button), 1);
    EXPECT_EQ(Read(GetButton, button), 0) << "read and cleared";
    float wcm = 0, hcm = 0;
    GetDeskItemSize(button, &wcm, &hcm);
    EXPECT_FLOAT_EQ(wcm, button->width / 28.0f);
}

TEST_F(Controls, RadioAndCheckBoxesByClicks)
{
    XwkDeskItem *radio = nullptr, *stretched = nullptr, *bare = nullptr, *bare_menu = nullptr;
    SetRadioBox(desk, 0.5f, 0.5f, "Colour", "Red\0Green\0Blue", 3, 2, &radio);
    ASSERT_NE(radio, nullptr);
    XwkToggleItem *r = (XwkToggleItem *)radio;
    EXPECT_EQ(name_of(radio->widget), "xwkFrame");
    EXPECT_EQ(name_of(r->title), "xwkLabel");
    EXPECT_EQ(name_of(r->toggles[0]), "xwkRadioBox");
    EXPECT_EQ(r->count, 3);
    SetRadioBox(desk, 6.0f, 0.5f, "Wide", "A\0B\0C", -3, 0, &stretched);
    EXPECT_EQ(Get<unsigned char>(stretched->widget, XmNrightAttachment), XmATTACH_FORM);
    EXPECT_EQ(((XwkToggleItem *)stretched)->count, 3);
    // Without item texts the toggles still come, empty, as many as asked.
    SetRadioBox(desk, 0.5f, 4.0f, nullptr, nullptr, 2, 2, &bare);
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(((XwkToggleItem *)bare)->count, 2);
    SetOptionMenu(desk, 6.0f, 4.0f, "None", 0, nullptr, 2, 1, &bare_menu);
    ASSERT_NE(bare_menu, nullptr);
    EXPECT_EQ(name_of(((XwkOptionItem *)bare_menu)->buttons[1]), "");

    XwkDeskItem *single = nullptr, *group = nullptr;
    int initial[] = {1, 0, 1};
    SetCheckBox(desk, 0.5f, 7.5f, "Hidden title", "Alone", 1, nullptr, &single);
    SetCheckBox(desk, 0.5f, 9.0f, "Options", "One\0Two\0Three", 3, initial, &group);
    ASSERT_NE(single, nullptr);
    ASSERT_NE(group, nullptr);
    XwkToggleItem *s = (XwkToggleItem *)single, *g = (XwkToggleItem *)group;
    EXPECT_EQ(s->title, nullptr) << "a lone check box has no frame and no title";
    EXPECT_EQ(XtParent(single->widget), desk->work);
    EXPECT_EQ(name_of(s->toggles[0]), "xwkCheckBox");
    EXPECT_EQ(name_of(group->widget), "xwkFrame");
    EXPECT_NE(g->title, nullptr);
    open();

    EXPECT_EQ(Read(GetRadioBox, bare), 2);
    EXPECT_EQ(Read(GetRadioBox, radio), 2);
    EXPECT_EQ(Read(GetRadioBox, stretched), 0) << "0 leaves all off";
    for (Widget toggle : {r->toggles[2], s->toggles[0], g->toggles[1], g->toggles[2]})
        xwktest::ClickCenter(toggle);
    xwktest::Settle();
    EXPECT_EQ(Read(GetRadioBox, radio), 3);
    EXPECT_FALSE(XmToggleButtonGetState(r->toggles[1]));
    int selected = 1;
    changeradiobox_(&radio, &selected);
    EXPECT_EQ(Read(getradiobox_, &radio), 1);
    std::vector<int> three(3);
    EXPECT_EQ(Read(GetCheckBox, single), 1);
    getcheckbox_(&group, three.data());
    EXPECT_EQ(three, (std::vector<int>{1, 1, 0}));
}

TEST_F(Controls, OptionMenuFollowsTheChoice)
{
    XwkDeskItem *option = nullptr;
    SetOptionMenu(desk, 0.5f, 0.5f, "Size", 0, "Small\0Medium\0Large", 3, 7, &option);
    ASSERT_NE(option, nullptr);
    XwkOptionItem *o = (XwkOptionItem *)option;
    EXPECT_EQ(name_of(option->widget), "xwkOptionMenu");
    EXPECT_EQ(name_of(o->pulldown), "xwkPulldownMenu");
    EXPECT_EQ(name_of(o->buttons[1]), "Medium");
    int selected = 0;
    EXPECT_EQ(Read(GetOptionMenu, option), 3) << "clamped to the count";
    EXPECT_EQ(Get<Widget>(option->widget, XmNmenuHistory), o->buttons[2]);
    open();

    Widget cascade = XmOptionButtonGadget(option->widget);
    xwktest::Click(option->widget, cascade->core.x + cascade->core.width / 2,
                   cascade->core.y + cascade->core.height / 2);
    ASSERT_TRUE(xwktest::WaitViewable(o->buttons[0]));
    // The posted menu starts on the present choice; up twice is the first.
    xwktest::Settle();
    for (KeySym key : {XK_Up, XK_Up, XK_Return})
        xwktest::PressKey(XtDisplay(option->widget), key);
    xwktest::PumpUntil([&] { getoptionmenu_(&option, &selected); return selected == 1; });
    EXPECT_EQ(selected, 1);
}

TEST_F(Controls, ScrolledListsSelectAndScroll)
{
    XwkDeskItem *list = nullptr, *first = nullptr, *last = nullptr, *multi = nullptr;
    const char items[] = "a\0b\0c\0d\0e\0f\0g\0h";
    SetScrolledList(desk, 0.5f, 0.5f, "Letters", items, 8, 3, 7, &list);
    SetScrolledList(desk, 4.0f, 0.5f, nullptr, items, 8, 3, 0, &first);
    SetScrolledList(desk, 7.0f, 0.5f, nullptr, items, 8, 3, 20, &last);
    int flags[8] = {0, 0, 1, 0, 1, 0, 0, 0};
    SetScrolledListExt(desk, 10.0f, 0.5f, nullptr, items, 8, 4, flags, XmMULTIPLE_SELECT, &multi);
    ASSERT_NE(list, nullptr);
    XwkListItem *l = (XwkListItem *)list;
    EXPECT_EQ(name_of(l->list), "xwkScrolledList");
    EXPECT_EQ(name_of(list->widget), "xwkFrame");
    EXPECT_EQ(name_of(l->title), "xwkLabel");
    EXPECT_EQ(flags[0], 1) << "the first entry is clamped in the caller's array";
    EXPECT_GT(desk->extent_h, list->height);
    // A title wider than its list sets the width, of the control and its frame.
    XwkDeskItem *titled = nullptr;
    SetScrolledList(desk, 0.5f, 5.0f, "A title far wider than the list below it", items, 2, 2,
                    1, &titled);
    Widget tl = ((XwkListItem *)titled)->title;
    EXPECT_EQ(titled->width, tl->core.width);
    EXPECT_EQ(titled->widget->core.width, tl->core.width);
    open();
    EXPECT_EQ(titled->widget->core.height, titled->height - tl->core.height)
        << "a widened frame keeps the list's height";

    int pos = 0;
    EXPECT_EQ(Read(GetScrolledList, list), 7);
    int top = Get<int>(l->list, XmNtopItemPosition);
    EXPECT_LE(top, 7);
    EXPECT_GT(top + 3, 7) << "the selection is scrolled into view";
    EXPECT_EQ(Read(getscrolledlist_, &first), 1);
    EXPECT_EQ(Read(GetScrolledList, last), 8);
    int *positions = nullptr, count = 0;
    GetScrolledListExt(multi, &positions, &count);
    EXPECT_EQ(std::vector<int>(positions, positions + count), (std::vector<int>{1, 3, 5}));
    XtFree((char *)positions);

    // A click on the first visible row of the first list.
    Widget lw = ((XwkListItem *)first)->list;
    xwktest::Click(lw, lw->core.width / 2, 6);
    xwktest::Settle();
    EXPECT_EQ(Read(GetScrolledList, first), 1);
    xwktest::PressKey(XtDisplay(lw), XK_Down);
    xwktest::PressKey(XtDisplay(lw), XK_Down);
    xwktest::Settle();
    EXPECT_EQ(Read(GetScrolledList, first), 3);
    changescrolledlist_(&first, &(pos = 2));
    EXPECT_EQ(Read(GetScrolledList, first), 2);
    int more[] = {7, 8, 2};
    ChangeScrolledListExt(multi, more, 2);
    GetScrolledListExt(multi, &positions, &count);
    EXPECT_EQ(count, 5) << "added, not cleared";
    XtFree((char *)positions);
}

TEST_F(Controls, EditFieldsReadWhatWasTyped)
{
    long number = 42;
    float ratio = 2.5f;
    char name[16] = "abc";
    XwkDeskItem *nfield = nullptr, *rfield = nullptr, *sfield = nullptr;
    SetEditField(desk, 0.5f, 0.5f, "Number", 0.0f, &number, 1, 8, 10, &nfield);
    SetEditField(desk, 0.5f, 1.5f, "Ratio", 3.0f, &ratio, 2, 12, 10, &rfield);
    SetEditField(desk, 0.5f, 2.5f, "Name", -1.0f, name, 4, 6, 10, &sfield);
    ASSERT_NE(nfield, nullptr);
    XwkEditItem *n = (XwkEditItem *)nfield;
    EXPECT_EQ(name_of(nfield->widget), "xwkForm");
    EXPECT_EQ(name_of(n->text), "xwkTextField");
    EXPECT_EQ(name_of(n->title), "xwkLabel");
    EXPECT_EQ(xwktest::TextOf(n->text), "42");
    EXPECT_EQ(xwktest::TextOf(((XwkEditItem *)rfield)->text), "2.500000");

    // Layout by gap: beside the title, at a distance, or below it.
    EXPECT_EQ(nfield->width, Get<Dimension>(n->title, XtNwidth) + n->text->core.width);
    XwkEditItem *r = (XwkEditItem *)rfield;
    EXPECT_EQ(Get<int>(r->text, XmNleftOffset), 84 + 14) << "the gap plus the desk position";
    EXPECT_EQ(rfield->width, r->text->core.width + 84);
    XwkEditItem *s = (XwkEditItem *)sfield;
    EXPECT_EQ(sfield->height, Get<Dimension>(s->title, XtNheight) + s->text->core.height);
    // Beside the field, the title stands centred on its line; above it, at the top.
    for (XwkEditItem *f : {n, r, s})
        EXPECT_EQ(Get<int>(f->title, XmNtopOffset),
                  f == s ? 0 : (f->text->core.height - Get<Dimension>(f->title, XtNheight)) / 2);
    open();

    long got = 0;
    GetEditField(nfield, &got);
    EXPECT_EQ(got, 42) << "nothing edited";
    xwktest::ClickCenter(n->text);
    Display *dpy = XtDisplay(n->text);
    xwktest::PressKey(dpy, XK_BackSpace);
    xwktest::PressKey(dpy, XK_BackSpace);
    xwktest::TypeText(dpy, "-17");
    xwktest::Settle();
    geteditfield_(&nfield, &got);
    EXPECT_EQ(got, -17);

    xwktest::ClickCenter(s->text);
    xwktest::TypeText(dpy, "defghij");
    xwktest::Settle();
    char out[16];
    memset(out, 'x', sizeof out);
    GetEditField(sfield, out);
    EXPECT_EQ(std::string(out, 6), "abcdef") << "at most the length";
    EXPECT_EQ(out[6], 'x') << "a full string is not ended";

    float fl = 0;
    ChangeEditField(rfield, &(fl = 0.25f));
    GetEditField(rfield, &fl);
    EXPECT_FLOAT_EQ(fl, 0.25f);
    changeeditfield_(&sfield, (void *)"xyz");
    memset(out, 0, sizeof out);
    GetEditField(sfield, out);
    EXPECT_STREQ(out, "xyz");
    EXPECT_EQ(XmTextGetInsertionPosition(s->text), 3) << "cursor at the end";
}

TEST_F(Controls, ArrowKeysMoveBetweenFieldsAndTheDeskStillAnswers)
{
    char a[8] = "", b[8] = "";
    XwkDeskItem *fa = nullptr, *fb = nullptr;
    SetEditField(desk, 0.5f, 0.5f, "A", 0.0f, a, 4, 7, 8, &fa);
    SetEditField(desk, 0.5f, 1.5f, "B", 0.0f, b, 4, 7, 8, &fb);
    open();
    Widget ta = ((XwkEditItem *)fa)->text;
    xwktest::ClickCenter(ta);
    Display *dpy = XtDisplay(ta);
    xwktest::PressKey(dpy, XK_Down);
    xwktest::TypeText(dpy, "q");
    xwktest::Settle();
    char got[8] = "";
    GetEditField(fb, got);
    EXPECT_STREQ(got, "q");
    xwktest::PressKey(dpy, XK_Up);
    xwktest::TypeText(dpy, "p");
    xwktest::Settle();
    GetEditField(fa, got);
    EXPECT_STREQ(got, "p");
    xwktest::ClickCenter(desk->buttons[0]);
    EXPECT_EQ(boxdriver::poll_desk(desk), 1);
}

TEST_F(Controls, DisplayOnlyAndMultiLineFields)
{
    XwkDeskItem *empty = nullptr, *shown = nullptr, *multi = nullptr, *fill = nullptr;
    char text[64] = "first line";
    SetEditField(desk, 0.5f, 0.5f, "Empty", 0.0f, (void *)"", -4, 10, 10, &empty);
    SetEditField(desk, 0.5f, 1.5f, "Shown", 0.0f, (void *)"Value 1", -4, 10, 10, &shown);
    SetEditMultiField(desk, 0.5f, 2.5f, "Notes", -1.0f, text, 4, 60, -4, -30, &multi);
    SetEditField(desk, 0.5f, 6.0f, nullptr, 0.0f, (void *)"read only", 4, 20, 0, &fill);
    XwkDeskItem *abc = nullptr;
    SetEditField(desk, 0.5f, 7.5f, nullptr, 0.0f, (void *)"ABC", -4, 10, 10, &abc);
    ASSERT_NE(empty, nullptr);
    XwkEditItem *e = (XwkEditItem *)empty, *sh = (XwkEditItem *)shown;
    EXPECT_TRUE(XmIsDrawnButton(e->text));
    EXPECT_EQ(name_of(e->text), "xwkTextLabel");
    Pixel bg = xwktest::PixelOf(e->text, XmNbackground);
    EXPECT_EQ(xwktest::PixelOf(e->text, XmNforeground), bg) << "invisible text";
    EXPECT_EQ(boxdriver::label_text(e->text), "ABC");
    EXPECT_NE(xwktest::PixelOf(sh->text, XmNforeground), bg);

    XwkEditItem *m = (XwkEditItem *)multi;
    EXPECT_EQ(name_of(m->text), "xwkText");
    EXPECT_EQ(name_of(XtParent(XtParent(m->text))), "xwkFrame");
    EXPECT_TRUE(Get<Boolean>(m->text, XmNscrollHorizontal)) << "rows and columns both negative";
    EXPECT_EQ(Get<unsigned char>(multi->widget, XmNbottomAttachment), XmATTACH_FORM);
    EXPECT_EQ(Get<unsigned char>(multi->widget, XmNrightAttachment), XmATTACH_FORM);

    XwkEditItem *f = (XwkEditItem *)fill;
    EXPECT_FALSE(Get<Boolean>(f->text, XmNeditable)) << "columns 0: a field that only shows";
    open();

    // The empty value draws nothing inside the shadow, yet takes the room of "ABC".
    Widget abc_label = ((XwkEditItem *)abc)->text;
    EXPECT_EQ(e->text->core.width, abc_label->core.width);
    auto inked = [](Widget w) {
        int inset =
            Get<Dimension>(w, XmNshadowThickness) + Get<Dimension>(w, XmNhighlightThickness);
        xwktest::Capture shot(w);
        int inner_w = shot.width() - 2 * inset, inner_h = shot.height() - 2 * inset;
        return inner_w * inner_h -
               shot.Count(w->core.background_pixel, inset, inset, inner_w, inner_h);
    };
    EXPECT_EQ(inked(e->text), 0) << "the stand-in text is not seen";
    EXPECT_GT(inked(abc_label), 20) << "a real value is drawn";

    xwktest::ClickCenter(m->text);
    Display *dpy = XtDisplay(m->text);
    xwktest::PressKey(dpy, XK_End, ControlMask);
    xwktest::TypeText(dpy, "\nsecond");
    xwktest::Settle();
    char got[64] = "";
    GetEditField(multi, got);
    EXPECT_STREQ(got, "first line\nsecond");
}

TEST_F(Controls, InvalidOrDestroyedDeskGivesNull)
{
    XwkDeskItem *item = (XwkDeskItem *)1;
    SetLabel(nullptr, 0, 0, "x", &item);
    EXPECT_EQ(item, nullptr);
    XwkDeskRec fake = {};
    fake.self = &fake;
    item = (XwkDeskItem *)1;
    SetEditField(&fake, 0, 0, "x", 0, nullptr, 4, 10, 5, &item);
    EXPECT_EQ(item, nullptr) << "a record that only looks valid";
    XwkDeskItem *radio = nullptr;
    SetRadioBox(desk, 0.5f, 0.5f, "R", "x\0y", 2, 1, &radio);
    open();
    // The controls are destroyed with the desk; their records go with them.
    CloseDesk(desk);
    xwktest::Settle();
    item = (XwkDeskItem *)1;
    SetLabel(desk, 0, 0, "late", &item);
    EXPECT_EQ(item, nullptr);
    desk = nullptr;
}

TEST_F(Controls, SensitivityKeepsTextsSelectable)
{
    char value[16] = "keep me";
    XwkDeskItem *field = nullptr, *button = nullptr, *label = nullptr;
    SetEditField(desk, 0.5f, 0.5f, "Text", 0.0f, value, 4, 15, 10, &field);
    SetButton(desk, 0.5f, 2.0f, "Button", &button);
    SetLabel(desk, 4.0f, 2.0f, "Off by itself", &label);
    XtSetSensitive(label->widget, False);
    open();
    Widget text = ((XwkEditItem *)field)->text;
    Pixel fg = xwktest::PixelOf(text, XmNforeground), bg = xwktest::PixelOf(text, XmNbackground);
    Pixel bottom = xwktest::PixelOf(text, XmNbottomShadowColor);

    XwkSetSensitive(desk->work, False);
    EXPECT_FALSE(XtIsSensitive(button->widget));
    EXPECT_TRUE(XtIsSensitive(text)) << "texts stay usable for selection";
    EXPECT_FALSE(Get<Boolean>(text, XmNeditable));
    EXPECT_EQ(xwktest::PixelOf(text, XmNforeground), bottom);
    // The first background up from the form holding the field that differs.
    Widget around = desk->work;
    while (XtParent(around) && around->core.background_pixel == bg)
        around = XtParent(around);
    EXPECT_EQ(xwktest::PixelOf(text, XmNbackground), around->core.background_pixel);

    xwktest::ClickCenter(text);
    xwktest::TypeText(XtDisplay(text), "zz");
    xwktest::Settle();
    char got[16] = "";
    GetEditField(field, got);
    EXPECT_STREQ(got, "keep me");
    // A child that was off by itself learns that its container is off too.
    XtSetSensitive(label->widget, True);
    EXPECT_FALSE(XtIsSensitive(label->widget));

    XwkSetSensitive(desk->work, True);
    EXPECT_TRUE(XtIsSensitive(button->widget));
    EXPECT_TRUE(XtIsSensitive(label->widget));
    EXPECT_TRUE(Get<Boolean>(text, XmNeditable));
    EXPECT_EQ(xwktest::PixelOf(text, XmNforeground), fg);
    EXPECT_EQ(xwktest::PixelOf(text, XmNbackground), bg);
}
