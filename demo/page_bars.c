/* Tool bars and menus: a menu bar built from a table, a tool bar whose
 * buttons show a tip and short help, and the message area that shows the
 * short help of whatever the pointer rests on. */
#include <Xwk/Xwk.h>
#include <Xm/CascadeB.h>
#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/ToggleB.h>

#include <stdio.h>

#include "pages.h"

static const char *new_xpm[] = {
    "16 16 3 1", "  c None", ". s foreground c black", "w c white",
    "  ........      ", "  .wwwwww..     ", "  .wwwwww.w.    ", "  .wwwwww....   ",
    "  .wwwwwwwww.   ", "  .wwwwwwwww.   ", "  .wwwwwwwww.   ", "  .wwwwwwwww.   ",
    "  .wwwwwwwww.   ", "  .wwwwwwwww.   ", "  .wwwwwwwww.   ", "  .wwwwwwwww.   ",
    "  .wwwwwwwww.   ", "  .wwwwwwwww.   ", "  ...........   ", "                ",
};

static const char *open_xpm[] = {
    "16 16 4 1", "  c None", ". s foreground c black", "y c #e8c040", "o c #b08020",
    "                ", "                ", " .....          ", ".yyyyy.         ",
    ".yyyyyy......   ", ".oooooooooooo.  ", ".oyyyyyyyyyyyo. ", ".oyyyyyyyyyyyo. ",
    ".oyyyyyyyyyyyo. ", ".oyyyyyyyyyyyo. ", ".oyyyyyyyyyyyo. ", ".oooooooooooooo.",
    " .............. ", "                ", "                ", "                ",
};

static const char *save_xpm[] = {
    "16 16 4 1", "  c None", ". s foreground c black", "b c #3060b0", "w c white",
    "                ", " .............. ", " .bbwwwwwwwwbb. ", " .bbwwwwwwwwbb. ",
    " .bbwwwwwwwwbb. ", " .bbwwwwwwwwbb. ", " .bbbbbbbbbbbb. ", " .bbbbbbbbbbbb. ",
    " .bbb......bbb. ", " .bbb.ww..bbbb. ", " .bbb.ww..bbbb. ", " .bbb.ww..bbbb. ",
    " .bbb......bbb. ", " .............. ", "                ", "                ",
};

static const char *find_xpm[] = {
    "16 16 3 1", "  c None", ". s foreground c black", "g c #a0c8e8",
    "                ", "    .....       ", "   .ggggg.      ", "  .ggggggg.     ",
    "  .ggggggg.     ", "  .ggggggg.     ", "  .ggggggg.     ", "   .ggggg.      ",
    "    .....       ", "        ...     ", "         ...    ", "          ...   ",
    "           ...  ", "            ..  ", "                ", "                ",
};

static Widget message_text;

static void say(Widget w, XtPointer closure, XtPointer call_data)
{
    XmPushButtonCallbackStruct *call = (XmPushButtonCallbackStruct *)call_data;
    char line[160];
    (void)w;
    snprintf(line, sizeof line, "%s (click count %d)\n", (const char *)closure, call ? call->click_count : 0);
    XmTextInsert(message_text, XmTextGetLastPosition(message_text), line);
}

static XwkMenuItem file_items[6], edit_items[5], help_items[2], top_items[4];

static void prepare(XwkMenuItem *item, const char *label, const char *help, const char *acc,
                    WidgetClass *wc, const char *said)
{
    XwkPrepareMenuItem(item, label, help, acc, wc, said ? say : NULL, (XtPointer)said, NULL, NULL);
}

static Widget make_menu_bar(Widget form)
{
    static int prepared;
    WidgetClass *push = &xmPushButtonWidgetClass;
    if (!prepared) {
        prepared = 1;
        prepare(&file_items[0], "&New", "Start an empty document", "Ctrl-n", push, "New chosen");
        prepare(&file_items[1], "&Open...", "Open a document", "Ctrl-o", push, "Open chosen");
        prepare(&file_items[2], "*&Save", "Save the document (nothing to save yet)", "Ctrl-s", push, NULL);
        prepare(&file_items[3], "-", NULL, NULL, push, NULL);
        prepare(&file_items[4], "&Close", "Close this page", NULL, push, "Close chosen");
        prepare(&edit_items[0], "&Find...", "Find a text", "Ctrl-f", push, "Find chosen");
        prepare(&edit_items[1], "-", NULL, NULL, push, NULL);
        prepare(&edit_items[2], "&Wrap lines", "Wrap long lines at the window's edge", "Ctrl-w",
                &xmToggleButtonWidgetClass, "Wrap toggled");
        prepare(&edit_items[3], "*&Replace...", "Replace a text (not offered here)", NULL, push, NULL);
        prepare(&help_items[0], "&About", "About the Xwk GUI Library", NULL, push, "About chosen");
        XwkPrepareMenuItem(&top_items[0], "&File", NULL, NULL, &xmCascadeButtonWidgetClass, NULL, NULL,
                           NULL, file_items);
        XwkPrepareMenuItem(&top_items[1], "&Edit", NULL, NULL, &xmCascadeButtonWidgetClass, NULL, NULL,
                           NULL, edit_items);
        XwkPrepareMenuItem(&top_items[2], "&Help", NULL, NULL, &xmCascadeButtonWidgetClass, NULL, NULL,
                           NULL, help_items);
    }
    XwkMenu menu = {XwkMENU_BAR, NULL, 0, 0, 0, 0, top_items};
    Widget bar = XwkCreateMenu(form, &menu);
    XtVaSetValues(bar, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_FORM, NULL);
    XtManageChild(bar);
    return bar;
}

static Widget make_tool_bar(Widget form, Widget below)
{
    static char *help[] = {"Start an empty document|New", "Open a document|Open", NULL,
                           "Save the document|Save", NULL, "Find a text|Find\n(Ctrl+F)"};
    static const char *said[] = {"New pressed", "Open pressed", NULL, "Save pressed", NULL, "Find pressed"};
    /* The table and its icons live as long as the process: a page opened
     * again shares them. */
    static XwkToolBar *table;
    if (!table) {
        const char **data[] = {new_xpm, open_xpm, NULL, save_xpm, NULL, find_xpm};
        XwkIcon *icons[6];
        XtCallbackProc callbacks[6];
        for (int i = 0; i < 6; i++) {
            icons[i] = data[i] ? XwkIconCreateFromData(form, (char **)data[i]) : NULL;
            callbacks[i] = data[i] ? say : NULL;
        }
        table = XwkCreateToolBarButtons(6, icons, help, callbacks, NULL);
    }
    for (int i = 0; i < 6; i++)
        table->buttons[i]->closure = (XtPointer)said[i];
    xwkToolBarNewStyle = 1;
    Widget toolbar = XwkCreateToolBar(form, table);
    xwkToolBarNewStyle = 0;
    XtVaSetValues(toolbar, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, below, NULL);
    XtManageChild(toolbar);
    return toolbar;
}

Widget demo_page_bars(Widget parent)
{
    XrmDatabase db = XtDatabase(XtDisplay(parent));
    XrmPutStringResource(&db, "*xwkTipLabel.background", "#ffffe0");
    Widget form = XtVaCreateManagedWidget("bars", xmFormWidgetClass, parent, XmNwidth, 420, XmNheight,
                                          260, NULL);
    Widget bar = make_menu_bar(form);
    Widget toolbar = make_tool_bar(form, bar);
    Widget area = XwkCreateMessageArea(form);
    XtVaSetValues(area, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNbottomAttachment, XmATTACH_FORM, NULL);
    message_text = XtVaCreateManagedWidget(
        "log", xmTextWidgetClass, form, XmNeditMode, XmMULTI_LINE_EDIT, XmNeditable, False,
        XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, toolbar, XmNleftAttachment, XmATTACH_FORM,
        XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, area,
        NULL);
    XmTextSetString(message_text, "Rest the pointer on a tool bar button for its tip;\n"
                                  "the message area below shows the short help\n"
                                  "of the button or menu entry under the pointer.\n");
    XwkSetShortHelp(area, "Ready");
    return form;
}
