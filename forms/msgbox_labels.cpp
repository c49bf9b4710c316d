// The markup interpreter of message texts: formatted labels one below the
// other, with font tags, alignment and separator lines.
#include <Xwk/Dialogs.h>
#include <Xwk/Strings.h>

#include "frame/xmstring_private.h"

#include <Xm/XmP.h>
#include <Xm/Label.h>
#include <Xm/Separator.h>

#include <ctype.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

const int kTabWidth = 8;

enum Style { kBold, kItalic, kFixed, kDefault, kStyles };

const char *const kStyleTags[kStyles] = {"BOLD", "ITALIC", "FIXED", XmFONTLIST_DEFAULT_TAG};

int style_of(char command)
{
    switch (command) {
    case 'b': return kBold;
    case 'i': return kItalic;
    case 'f': return kFixed;
    case 'd': return kDefault;
    default: return -1;
    }
}

// Tabs expanded, then appended to *string in the tag.
void add_string(XmString *string, const char *text, const char *tag)
{
    size_t tabs = 0;
    for (const char *p = text; *p; p++)
        tabs += *p == '\t';
    std::vector<char> expanded(strlen(text) + tabs * kTabWidth + 1);
    stpexpan(expanded.data(), text, kTabWidth, (int)expanded.size());
    XmString piece = xwk::LinesString(expanded.data(), (char *)tag);
    if (!*string) {
        *string = piece;
        return;
    }
    XmString joined = XmStringConcat(*string, piece);
    XmStringFree(*string);
    XmStringFree(piece);
    *string = joined;
}

class Builder {
public:
    Builder(Widget form, const char *text) : form_(form), text_(text) {}

    Widget run()
    {
        std::string &b = text_;
        size_t i = 0;
        while (i < b.size()) {
            if (b[i] != '^') {
                i++;
                continue;
            }
            char command = (char)tolower((unsigned char)(i + 1 < b.size() ? b[i + 1] : 0));
            if (!command) {
                b.resize(i);  // a closing '^' has no command: the text ends here
                break;
            }
            if (!known(command)) {
                b.erase(i, 2);  // unknown commands vanish; the text runs on
                continue;
            }
            b[i] = 0;
            apply(command, i);
            i += 2;
        }
        add_string(&string_, pending_text(), tag_);
        make_label();
        return last_;
    }

private:
    static bool known(char c) { return style_of(c) >= 0 || strchr("clrs", c); }

    const char *pending_text() const { return text_.c_str() + pending_; }

    void apply(char command, size_t at)
    {
        int style = style_of(command);
        if (style >= 0) {
            toggle_style(style, at);
            return;
        }
        bool has_pending = *pending_text() != 0;
        if (has_pending)
            add_string(&string_, pending_text(), tag_);
        if (command == 's') {
            if (string_)
                make_label();
            make_separator();
        } else {
            if (has_pending)
                make_label();
            alignment_ = command == 'l' ? XmALIGNMENT_BEGINNING
                       : command == 'r' ? XmALIGNMENT_END
                                        : XmALIGNMENT_CENTER;
        }
        pending_ = at + 2;
    }

    // Styles do not nest: one slot keeps the tag to return to.
    void toggle_style(int style, size_t at)
    {
        if (!on_[style]) {
            on_[style] = true;
            start_[style] = at + 2;
            back_ = tag_;
            tag_ = kStyleTags[style];
            return;
        }
        add_string(&string_, pending_text(), back_);
        add_string(&string_, text_.c_str() + start_[style], tag_);
        on_[style] = false;
        tag_ = back_;
        pending_ = at + 2;
    }

    void attach_below(Arg *args, Cardinal *n)
    {
        XtSetArg(args[*n], XmNleftAttachment, XmATTACH_FORM); (*n)++;
        XtSetArg(args[*n], XmNrightAttachment, XmATTACH_FORM); (*n)++;
        if (last_) {
            XtSetArg(args[*n], XmNtopAttachment, XmATTACH_WIDGET); (*n)++;
            XtSetArg(args[*n], XmNtopWidget, last_); (*n)++;
        } else {
            XtSetArg(args[*n], XmNtopAttachment, XmATTACH_FORM); (*n)++;
        }
    }

    void make_label()
    {
        if (!string_)
            string_ = XmStringCreateLocalized((char *)"");
        Arg args[8];
        Cardinal n = 0;
        XtSetArg(args[n], XmNlabelString, string_); n++;
        XtSetArg(args[n], XmNalignment, alignment_); n++;
        XtSetArg(args[n], XmNtraversalOn, False); n++;
        attach_below(args, &n);
        last_ = XtCreateManagedWidget("xwkConditLabel", xmLabelWidgetClass, form_, args, n);
        XmStringFree(string_);
        string_ = nullptr;
    }

    void make_separator()
    {
        Arg args[6];
        Cardinal n = 0;
        XtSetArg(args[n], XmNseparatorType, XmSHADOW_ETCHED_IN); n++;
        attach_below(args, &n);
        last_ = XtCreateManagedWidget("", xmSeparatorWidgetClass, form_, args, n);
    }

    Widget form_;
    std::string text_;
    size_t pending_ = 0;
    XmString string_ = nullptr;
    const char *tag_ = XmFONTLIST_DEFAULT_TAG;
    const char *back_ = XmFONTLIST_DEFAULT_TAG;
    bool on_[kStyles] = {};
    size_t start_[kStyles] = {};
    unsigned char alignment_ = XmALIGNMENT_CENTER;
    Widget last_ = nullptr;
};

}  // namespace

Widget XwkCreateCompoundLabels(Widget form, const char *text)
{
    if (!form)
        return nullptr;
    return Builder(form, text ? text : "").run();
}
