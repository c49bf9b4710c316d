// Short help: the text of the message area of a window, and its flag.
#include "bars.h"

#include <Xwk/Frame.h>
#include <Xwk/Text.h>
#include <Xm/Frame.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>
#include <X11/Shell.h>

#include <string.h>

#include <string>

namespace {

constexpr size_t kShortHelpMax = 255;

bool exactly_label(Widget w)
{
    return XtClass(w) == xmLabelWidgetClass;
}

Widget first_label_child(Widget w)
{
    if (!XtIsComposite(w))
        return nullptr;
    CompositeWidget c = (CompositeWidget)w;
    for (Cardinal i = 0; i < c->composite.num_children; i++)
        if (exactly_label(c->composite.children[i]))
            return c->composite.children[i];
    return nullptr;
}

// A menu of another shell shows its help in the window it belongs to.
Widget shell_for_help(Widget w, Widget shell)
{
    Widget parent = XtParent(w);
    if (!XtIsTransientShell(shell) || !parent || !XmIsRowColumn(parent))
        return shell;
    unsigned char type = XmWORK_AREA;
    XtVaGetValues(parent, XmNrowColumnType, &type, NULL);
    if (type != 0 || !XtParent(shell))
        return shell;
    return XwkGetWMShell(XtParent(shell));
}

char *flag_cell(Widget label)
{
    XtPointer cell = nullptr;
    XtVaGetValues(label, XmNuserData, &cell, NULL);
    return (char *)cell;
}

void free_flag_cell(Widget, XtPointer closure, XtPointer)
{
    XtFree((char *)closure);
}

std::string clean_text(const char *text)
{
    std::string out;
    for (const char *p = text; *p && *p != '|' && out.size() < kShortHelpMax; p++) {
        if (*p == '^') {
            if (!*++p)
                break;
            continue;
        }
        out += *p == '\n' ? ' ' : *p;
    }
    return out;
}

}  // namespace

Widget xwk_message_label(Widget w)
{
    if (!w || w->core.being_destroyed)
        return nullptr;
    Widget shell = XwkGetWMShell(w);
    if (!shell || shell->core.being_destroyed)
        return nullptr;
    if (exactly_label(w) && XtParent(w) && strcmp(XtName(XtParent(w)), "xwkMessageArea") == 0)
        return w;
    shell = shell_for_help(w, shell);
    if (!shell)
        return nullptr;
    Widget hit = nullptr;
    if (strcmp(XtName(w), "xwkMessageArea") == 0)
        hit = w;
    else
        for (Widget found = XtNameToWidget(shell, "*xwkMessageArea"); found;
             found = XtNameToWidget(found, "*xwkMessageArea"))
            hit = found;
    if (!hit || !(XmIsFrame(hit) || XmIsForm(hit)) || !XtIsManaged(hit))
        return nullptr;
    return first_label_child(hit);
}

void XwkSetShortHelpSensitive(Widget w, Boolean flag)
{
    Widget label = xwk_message_label(w);
    if (!label)
        return;
    char *cell = flag_cell(label);
    if (!cell) {
        cell = XtMalloc(1);
        XtVaSetValues(label, XmNuserData, cell, NULL);
        XtAddCallback(label, XtNdestroyCallback, free_flag_cell, cell);
    }
    *cell = flag ? 1 : 0;
}

Boolean XwkGetShortHelpSensitive(Widget w)
{
    Widget label = xwk_message_label(w);
    char *cell = label ? flag_cell(label) : nullptr;
    return cell && *cell;
}

void XwkSetShortHelp(Widget w, const char *text)
{
    if (!w || w->core.being_destroyed || !text || !*text)
        return;
    Widget label = xwk_message_label(w);
    if (!label)
        return;
    std::string clean = clean_text(text);
    XmString s = XmStringCreateLocalized(smi18n_gettext(clean.c_str()));
    if (!flag_cell(label))
        XwkSetShortHelpSensitive(label, True);
    XmString old = nullptr;
    XtVaGetValues(label, XmNlabelString, &old, NULL);
    bool same = old && XmStringCompare(s, old);
    XmStringFree(old);
    if (!same) {
        XtVaSetValues(label, XmNlabelString, s, NULL);
        if (XtWindow(XtParent(label))) {
            XSync(XtDisplay(label), False);
            ForceUpdate(label);
        }
    }
    XmStringFree(s);
}

void xwksetshorthelp_(Widget *w, const char *text)
{
    XwkSetShortHelp(w ? *w : nullptr, text);
}

char *XwkGetShortHelp(Widget w)
{
    Widget label = xwk_message_label(w);
    if (!label)
        return nullptr;
    XmString s = nullptr;
    XtVaGetValues(label, XmNlabelString, &s, NULL);
    char *text = nullptr;
    if (s && !XmStringGetLtoR(s, (XmStringCharSet)XmFONTLIST_DEFAULT_TAG, &text))
        text = nullptr;
    XmStringFree(s);
    return text ? text : XtNewString("");
}

void xwkgetshorthelp_(Widget *w, char *buffer)
{
    if (!buffer)
        return;
    char *text = XwkGetShortHelp(w ? *w : nullptr);
    size_t n = text ? strnlen(text, kShortHelpMax) : 0;
    if (n)
        memcpy(buffer, text, n);
    buffer[n] = 0;
    XtFree(text);
}
