// Prompts: modal desks that ask for one to three texts, and the verify
// callback that keeps a text field to digits, numbers or names.
#include <Xwk/Desk.h>
#include <Xwk/Dialogs.h>
#include <Xwk/Frame.h>

#include <Xm/XmP.h>
#include <Xm/MwmUtil.h>
#include <Xm/Text.h>

#include <ctype.h>
#include <stdlib.h>
#include <string.h>

#include <string>

namespace {

const char kDefaultTitle[] = "Prompt|Interface#Prompt";
const float kDeskPosition = 5.0f;
const float kFieldX = 0.5f;
const float kFieldY = 0.2f;
const float kTitleAbove = -1.0f;
const int kWideColumns = -35;
const int kExtentMargin = 5;
const unsigned short kThreeFieldsWidth = 350;
const unsigned short kThreeFieldsHeight = 200;

Widget shell_of(XwkDeskRec *desk)
{
    return XtIsApplicationShell(desk->form) ? desk->form : XtParent(desk->form);
}

XwkDeskRec *create_prompt(Widget parent, const char *title)
{
    XwkDeskRec *desk = nullptr;
    CreateDesk(parent, kDeskPosition, kDeskPosition, title, &desk);
    if (!desk)
        return nullptr;
    // Prompts may be moved, resized and closed freely.
    XtVaSetValues(shell_of(desk), XmNmwmDecorations, MWM_DECOR_ALL, XmNmwmFunctions,
                  MWM_FUNC_ALL, NULL);
    return desk;
}

void open_prompt(XwkDeskRec *desk, bool width_only)
{
    desk->extent_w = (unsigned short)(desk->extent_w + kExtentMargin);
    desk->extent_h = (unsigned short)(desk->extent_h + kExtentMargin);
    OpenDesk(desk);
    if (!width_only)
        return;
    Widget shell = shell_of(desk);
    int height = shell->core.height;
    XtVaSetValues(shell, XtNminHeight, height, XtNmaxHeight, height, NULL);
}

// 1 for OK (the desk is closed after read() took the fields), 0 for Cancel
// or a desk that went away.
template <typename Read> int wait_for_answer(XwkDeskRec *desk, Read read)
{
    for (;;) {
        int button = 0;
        UseDesk(desk, &button);
        if (button == -1)
            return 0;
        if (button == 1) {
            read();
            CloseDesk(desk);
            return 1;
        }
        if (button == 2) {
            CloseDesk(desk);
            return 0;
        }
    }
}

float height_cm(XwkDeskItem *item)
{
    float w = 0, h = 0;
    GetDeskItemSize(item, &w, &h);
    return h;
}

Widget text_of(XwkDeskItem *item)
{
    return item ? ((XwkEditItem *)item)->text : nullptr;
}

// The typed text of a hidden entry; the field shows '*' for each character.
struct Hidden {
    char *text = nullptr;
};

void hidden_modify(Widget, XtPointer client_data, XtPointer call_data)
{
    Hidden *hidden = (Hidden *)client_data;
    XmTextVerifyCallbackStruct *cb = (XmTextVerifyCallbackStruct *)call_data;
    size_t have = hidden->text ? strlen(hidden->text) : 0;
    if (!cb->text || !cb->text->ptr || cb->text->length == 0) {
        // A deletion takes everything from its start to the end.
        cb->endPos = (XmTextPosition)have;
        if (hidden->text && (size_t)cb->startPos < have)
            hidden->text[cb->startPos] = 0;
        return;
    }
    if (cb->text->length > 1) {
        cb->doit = False;  // no pasting into a password
        return;
    }
    hidden->text = XtRealloc(hidden->text, (Cardinal)(have + 2));
    hidden->text[have] = 0;
    strncat(hidden->text, cb->text->ptr, 1);
    cb->text->ptr[0] = '*';
}

void hidden_gone(Widget, XtPointer client_data, XtPointer)
{
    Hidden *hidden = (Hidden *)client_data;
    XtFree(hidden->text);
    delete hidden;
}

Hidden *hide_entry(Widget text)
{
    Hidden *hidden = new Hidden;
    XtRemoveAllCallbacks(text, XmNmodifyVerifyCallback);
    XtAddCallback(text, XmNmodifyVerifyCallback, hidden_modify, hidden);
    XtAddCallback(text, XtNdestroyCallback, hidden_gone, hidden);
    return hidden;
}

}  // namespace

int inputa(Widget parent, const char *title, const char *label, char *buffer, int length)
{
    XwkDeskRec *desk = create_prompt(parent, title ? title : kDefaultTitle);
    if (!desk)
        return 0;
    bool hide = length < 0;
    int size = abs(length);
    XwkDeskItem *field = nullptr;
    // A password does not show what it held before.
    SetEditField(desk, kFieldX, kFieldY, label, kTitleAbove, hide ? (void *)"" : buffer,
                 XWK_FIELD_STRING, size, kWideColumns, &field);
    Hidden *hidden = hide && field ? hide_entry(text_of(field)) : nullptr;
    open_prompt(desk, true);
    return wait_for_answer(desk, [&] {
        if (!hidden) {
            GetEditField(field, buffer);
            return;
        }
        if (size > 0)
            buffer[0] = 0;
        if (hidden->text)
            strncpy(buffer, hidden->text, (size_t)size);
    });
}

int inputb(Widget parent, const char *title, const char *label, char *buffer, int length,
           int columns, int rows)
{
    XwkDeskRec *desk = create_prompt(parent, title ? title : kDefaultTitle);
    if (!desk)
        return 0;
    XwkDeskItem *field = nullptr;
    SetEditMultiField(desk, kFieldX, kFieldY, label, kTitleAbove, buffer, XWK_FIELD_STRING,
                      length, -rows, -columns, &field);
    open_prompt(desk, false);
    return wait_for_answer(desk, [&] { GetEditField(field, buffer); });
}

int inputc(Widget parent, const char *title, const char *label1, char *buffer1, int length1,
           const char *label2, char *buffer2, int length2, int columns, int rows)
{
    XwkDeskRec *desk = create_prompt(parent, title);
    if (!desk)
        return 0;
    XwkDeskItem *first = nullptr, *second = nullptr;
    SetEditField(desk, kFieldX, kFieldY, label1, kTitleAbove, buffer1, XWK_FIELD_STRING, length1,
                 -columns, &first);
    SetEditMultiField(desk, kFieldX, height_cm(first) + kFieldY, label2, kTitleAbove, buffer2,
                      XWK_FIELD_STRING, length2, -rows, -columns, &second);
    open_prompt(desk, false);
    return wait_for_answer(desk, [&] {
        GetEditField(first, buffer1);
        GetEditField(second, buffer2);
    });
}

int inputd(Widget parent, const char *title, const char *label, char *buffer, int length,
           const char *check, Boolean *flag)
{
    XwkDeskRec *desk = create_prompt(parent, title);
    if (!desk)
        return 0;
    XwkDeskItem *field = nullptr, *box = nullptr;
    SetEditField(desk, kFieldX, kFieldY, label, kTitleAbove, buffer, XWK_FIELD_STRING, length,
                 kWideColumns, &field);
    int state = flag && *flag;
    std::string item = check ? check : "";
    SetCheckBox(desk, kFieldX, height_cm(field) + 0.4f, nullptr, item.c_str(), 1, &state, &box);
    open_prompt(desk, true);
    return wait_for_answer(desk, [&] {
        GetEditField(field, buffer);
        GetCheckBox(box, &state);
        if (flag)
            *flag = state ? True : False;
    });
}

int inpute(Widget parent, const char *title,
           const char *label1, char *buffer1, int length1, int columns1, int rows1,
           const char *label2, char *buffer2, int length2, int columns2, int rows2,
           const char *label3, char *buffer3, int length3, int columns3, int rows3)
{
    XwkDeskRec *desk = create_prompt(parent, title);
    if (!desk)
        return 0;
    XwkDeskItem *first = nullptr, *second = nullptr, *line = nullptr, *third = nullptr;
    SetEditMultiField(desk, kFieldX, 0.01f, label1, kTitleAbove, buffer1, XWK_FIELD_STRING,
                      length1, rows1, columns1, &first);
    float y1 = height_cm(first) + 0.01f;
    SetEditMultiField(desk, kFieldX, y1, label2, kTitleAbove, buffer2, XWK_FIELD_STRING, length2,
                      rows2, columns2, &second);
    float y2 = height_cm(second) + 0.2f + y1;
    SetSeparator(desk, 0.0f, y2, 100.0f, 1, &line);
    SetEditMultiField(desk, kFieldX, y2 + height_cm(line), label3, kTitleAbove, buffer3,
                      XWK_FIELD_STRING, length3, -rows3, columns3, &third);
    if (rows3 > 1 && third)
        XtVaSetValues(text_of(third), XmNwordWrap, True, NULL);
    desk->extent_w = kThreeFieldsWidth;
    desk->extent_h = kThreeFieldsHeight;
    OpenDesk(desk);
    return wait_for_answer(desk, [&] {
        GetEditField(first, buffer1);
        GetEditField(second, buffer2);
        GetEditField(third, buffer3);
    });
}

char *XwkGetUserText(int mode, Widget parent, const char *initial, const char *label,
                     const char *title)
{
    if (mode != 0 && mode != 1 && mode != 1001)
        return nullptr;
    std::string full;
    if (title) {
        full = title;
        if (full.find('|') == std::string::npos)
            full += "|Interface#Prompt";
    }
    const char *t = title ? full.c_str() : nullptr;
    std::string buffer(mode == 0 ? 4096 : 2048, '\0');
    if (initial)
        strncpy(buffer.data(), initial, buffer.size() - 1);
    int room = (int)buffer.size() - 1;
    int ok = mode == 0      ? inputb(parent, t, label, buffer.data(), room, 50, 10)
             : mode == 1    ? inputa(parent, t, label, buffer.data(), room)
                            : inputa(parent, t, label, buffer.data(), -room);
    if (!ok)
        return nullptr;
    return XtNewString(buffer.c_str());
}

void XwkTextVerifyCallback(Widget, XtPointer flags_closure, XtPointer call_data)
{
    XmTextVerifyCallbackStruct *cb = (XmTextVerifyCallbackStruct *)call_data;
    if (!cb || !cb->text || !cb->text->ptr || cb->text->length <= 0)
        return;
    long flags = (long)flags_closure;
    char *first = cb->text->ptr;
    unsigned char c = (unsigned char)*first;
    if ((flags & XWK_VERIFY_DIGITS) && !isdigit(c))
        cb->doit = False;
    if ((flags & XWK_VERIFY_NUMBER) && !isdigit(c) && c != '.')
        cb->doit = False;
    if ((flags & XWK_VERIFY_HEX) && !isxdigit(c))
        cb->doit = False;
    if (!(flags & (XWK_VERIFY_PATH | XWK_VERIFY_IDENTIFIER)) || c == '\n')
        return;
    if ((flags & XWK_VERIFY_PATH) && c == '/')
        return;
    if (isspace(c) || (ispunct(c) && !strchr("$(){}[].,~-+", c)))
        *first = '_';
}
