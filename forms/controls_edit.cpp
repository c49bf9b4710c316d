// Desk controls: edit fields, single and multi-line, editable or display-only.
#include <Xwk/Desk.h>
#include <Xwk/Frame.h>
#include <Xwk/Graphics.h>
#include <Xwk/Strings.h>
#include <Xwk/Text.h>

#include "forms_private.h"

#include <Xm/XmP.h>
#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>

#include <ctype.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

using namespace xwk_forms;

namespace {

// Arrow keys leave a single-line field for the previous or next one.
XtTranslations arrow_translations()
{
    static XtTranslations parsed;
    if (!parsed)
        parsed = XtParseTranslationTable("#override\n<Key> osfUp:\tprocess-tab(Prev)\n"
                                         "<Key> osfDown:\tprocess-tab(Next)\n");
    return parsed;
}

// The value as the field shows it: at most length characters.
std::string render(const void *value, int type, int length)
{
    if (length < 0)
        length = 0;
    std::string out;
    if (value) {
        switch (abs(type)) {
        case XWK_FIELD_LONG: {
            char buf[32];
            snprintf(buf, sizeof buf, "%ld", *(const long *)value);
            out = buf;
            break;
        }
        case 2:
        case 3:
            out = XwkFtoA(*(const float *)value);
            break;
        default:
            out.assign((const char *)value, strnlen((const char *)value, (size_t)length));
            break;
        }
    }
    if (out.size() > (size_t)length)
        out.resize((size_t)length);
    return out;
}

bool has_title(const char *label)
{
    return label && *label && strcmp(label, " ") != 0;
}

bool has_alnum(const std::string &s)
{
    for (unsigned char c : s)
        if (isalnum(c))
            return true;
    return false;
}

Widget create_display_only(Widget form, const std::string &text)
{
    bool visible = has_alnum(text);
    XmString s = XmStringCreateLocalized((char *)(visible ? text.c_str() : "ABC"));
    Widget label = XtVaCreateWidget(
        "xwkTextLabel", xmDrawnButtonWidgetClass, form, XmNlabelType, XmSTRING,
        XmNlabelString, s, XmNshadowType, XmSHADOW_IN, XmNalignment, XmALIGNMENT_BEGINNING,
        XmNrightAttachment, XmATTACH_FORM, XmNtraversalOn, False, NULL);
    XmStringFree(s);
    // An empty value still sizes the field: the text is there, unseen.
    if (!visible) {
        Pixel background = 0;
        XtVaGetValues(label, XmNbackground, &background, NULL);
        XtVaSetValues(label, XmNforeground, background, NULL);
    }
    return label;
}

Widget create_single_line(Widget form)
{
    Arg args[4];
    Cardinal n = 0;
    XtSetArg(args[n], XmNtopAttachment, XmATTACH_FORM); n++;
    XtSetArg(args[n], XmNbottomAttachment, XmATTACH_FORM); n++;
    XtSetArg(args[n], XmNleftAttachment, XmATTACH_FORM); n++;
    XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM); n++;
    Widget text = XmCreateText(form, (char *)"xwkTextField", args, n);
    XtOverrideTranslations(text, arrow_translations());
    return text;
}

Widget create_multi_line(Widget form, Widget title, int rows, int columns, Widget *frame)
{
    Arg fargs[6];
    Cardinal fn = 0;
    XtSetArg(fargs[fn], XmNshadowType, XmSHADOW_OUT); fn++;
    if (title) {
        XtSetArg(fargs[fn], XmNtopAttachment, XmATTACH_WIDGET); fn++;
        XtSetArg(fargs[fn], XmNtopWidget, title); fn++;
    }
    XtSetArg(fargs[fn], XmNleftAttachment, XmATTACH_FORM); fn++;
    XtSetArg(fargs[fn], XmNrightAttachment, XmATTACH_FORM); fn++;
    XtSetArg(fargs[fn], XmNbottomAttachment, XmATTACH_FORM); fn++;
    *frame = XtCreateWidget("xwkFrame", xmFrameWidgetClass, form, fargs, fn);
    Arg args[8];
    Cardinal n = 0;
    XtSetArg(args[n], XmNrows, (short)abs(rows)); n++;
    XtSetArg(args[n], XmNeditMode, XmMULTI_LINE_EDIT); n++;
    XtSetArg(args[n], XmNscrollVertical, True); n++;
    XtSetArg(args[n], XmNscrollHorizontal, columns < 0 && rows < 0); n++;
    XtSetArg(args[n], XmNscrollingPolicy, XmAPPLICATION_DEFINED); n++;
    XtSetArg(args[n], XmNscrollBarDisplayPolicy, XmAS_NEEDED); n++;
    XtSetArg(args[n], XmNspacing, 0); n++;
    return XmCreateScrolledText(*frame, (char *)"xwkText", args, n);
}

// Scroll bars of a multi-line field take the desk's colour and add to its size,
// and so does the frame.
void add_scroll_bars(XwkEditItem *field, Widget frame, int *w, int *h)
{
    Widget window = XtParent(field->text);
    Widget hbar = nullptr, vbar = nullptr;
    XtVaGetValues(window, XmNhorizontalScrollBar, &hbar, XmNverticalScrollBar, &vbar, NULL);
    Pixel background = 0;
    XtVaGetValues(field->item.desk->form, XmNbackground, &background, NULL);
    if (hbar && XtIsManaged(hbar)) {
        XwkSetScrollbarColor(hbar, background);
        *h += hbar->core.height;
    }
    if (vbar && XtIsManaged(vbar)) {
        XwkSetScrollbarColor(vbar, background);
        *w += vbar->core.width;
    }
    // The frame's size counts on top as it stands: its parent form is not
    // managed yet, so the frame has not been laid out and adds nothing
    // unless it was sized before.
    XtManageChild(frame);
    *w += frame->core.width;
    *h += frame->core.height;
}

// Places the title against the field by the gap and sets the control's size.
void arrange(XwkEditItem *field, Widget main, float gap, int g, unsigned short x, int w, int h)
{
    XwkDeskItem *item = &field->item;
    if (!field->title) {
        item->width = (unsigned short)w;
        item->height = (unsigned short)h;
        return;
    }
    Dimension lw = 0, lh = 0;
    XtVaGetValues(field->title, XtNwidth, &lw, XtNheight, &lh, NULL);
    if (gap == 0) {
        XtVaSetValues(main, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_WIDGET,
                      XmNleftWidget, field->title, NULL);
        item->width = (unsigned short)(lw + w);
        item->height = (unsigned short)h;
    } else if (gap < 0) {
        XtVaSetValues(main, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, field->title,
                      XmNleftAttachment, XmATTACH_FORM, NULL);
        item->width = (unsigned short)std::max<int>(w, lw);
        item->height = (unsigned short)(lh + h);
    } else {
        // The desk position counts into the offset as well: kept, the
        // layouts of the applications rely on it.
        XtVaSetValues(main, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                      XmNleftOffset, g + x, NULL);
        item->width = (unsigned short)(w + g);
        item->height = (unsigned short)h;
    }
    if (gap >= 0)
        XtVaSetValues(field->title, XmNtopOffset, (h - lh) / 2, NULL);
}

void cursor_to_end(Widget text)
{
    char *s = XmTextGetString(text);
    XmTextSetInsertionPosition(text, (XmTextPosition)strlen(s ? s : ""));
    XtFree(s);
}

}  // namespace

void SetEditMultiField(XwkDeskRec *desk, float x_cm, float y_cm, const char *label, float gap,
                       void *value, int type, int length, int rows, int columns,
                       XwkDeskItem **out)
{
    XwkDeskItem *unused = nullptr;
    if (!out)
        out = &unused;  // the control is made all the same
    *out = nullptr;
    XwkEditItem *field = (XwkEditItem *)new_item(desk, sizeof(XwkEditItem));
    if (!field)
        return;
    XwkDeskItem *item = &field->item;
    unsigned short x, y;
    cm_pix(x_cm, y_cm, &x, &y);
    int g = (int)lroundf(gap * xwkCmWidth);
    field->value = value;
    field->type = type;
    field->length = length;
    field->rows = rows;
    int nrows = type < 0 ? 1 : abs(rows);

    Arg args[4];
    Cardinal n = 0;
    attach_at(args, &n, x, y);
    Widget form = item->widget = XtCreateWidget("xwkForm", xmFormWidgetClass, desk->work, args, n);
    if (has_title(label)) {
        XmString s = ltor(label);
        field->title = XtVaCreateManagedWidget(
            "xwkLabel", xmLabelWidgetClass, form, XmNlabelString, s, XmNmarginWidth, 0,
            XmNmarginHeight, 0, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment,
            XmATTACH_FORM, NULL);
        XmStringFree(s);
    }
    std::string text = render(value, type, length);

    Widget frame = nullptr;
    if (type < 0)
        field->text = create_display_only(form, text);
    else if (nrows <= 1)
        field->text = create_single_line(form);
    else
        field->text = create_multi_line(form, field->title, rows, columns, &frame);
    Widget main = frame ? frame : field->text;
    if (type >= 0) {
        XtVaSetValues(field->text, XmNvalue, text.c_str(), XmNmaxLength, length, NULL);
        if (nrows == 1)
            XmTextSetInsertionPosition(field->text, (XmTextPosition)text.size());
    }
    if (columns <= 0)
        XtVaSetValues(form, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset,
                      gap >= 0 ? 0 : (int)x, NULL);
    if (columns == 0 && type >= 0)
        XtVaSetValues(field->text, XmNtraversalOn, False, XmNeditable, False,
                      XmNcursorPositionVisible, False, NULL);
    if (columns != 0 && type >= 0)
        XtVaSetValues(field->text, XmNcolumns, (short)abs(columns), NULL);
    if (rows < 0)
        XtVaSetValues(form, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, (int)x, NULL);

    XtManageChild(field->text);
    XtVaGetValues(field->text, XtNtranslations, &item->translations, XmNbackground,
                  &field->background, NULL);
    Dimension t = 0;
    if (frame)
        XtVaGetValues(frame, XmNshadowThickness, &t, NULL);
    int w = field->text->core.width + 2 * t;
    int h = field->text->core.height + 2 * t;
    if (frame)
        add_scroll_bars(field, frame, &w, &h);
    arrange(field, main, gap, g, x, w, h);
    watch_item(item, form);
    raise_extent(item, x, y);
    *out = item;
    XtManageChild(form);
}

void SetEditField(XwkDeskRec *desk, float x, float y, const char *label, float gap, void *value,
                  int type, int length, int columns, XwkDeskItem **out)
{
    SetEditMultiField(desk, x, y, label, gap, value, type, length, 1, columns, out);
}

void GetEditField(XwkDeskItem *item, void *value)
{
    if (!value || !item_usable(item))
        return;
    XwkEditItem *field = (XwkEditItem *)item;
    if (!XmIsText(field->text))
        return;
    char *text = XmTextGetString(field->text);
    switch (field->type) {
    case 1:
        *(long *)value = strtol(text, nullptr, 10);
        break;
    case 2:
    case 3:
        *(float *)value = (float)strtod(text, nullptr);
        break;
    default:
        // As strncpy: a text of length characters or more is not ended.
        strncpy((char *)value, text, field->length > 0 ? (size_t)field->length : 0);
        break;
    }
    XtFree(text);
}

void ChangeEditField(XwkDeskItem *item, void *value)
{
    if (!item_usable(item))
        return;
    XwkEditItem *field = (XwkEditItem *)item;
    if (!XmIsText(field->text))
        return;
    std::string text = render(value, field->type, field->length);
    XmTextSetString(field->text, (char *)text.c_str());
    if (field->rows == 1 || field->rows == -1)
        cursor_to_end(field->text);
}
