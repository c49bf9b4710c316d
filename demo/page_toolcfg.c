/* The tool options page: a sample compiler description turned into tool
 * records, its option text both ways, its divisions on a desk, and the
 * colour picker. */
#include <Xwk/Xwk.h>
#include <Xm/DrawingA.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>

#include <string.h>

#include "pages.h"

/* One item of the description: kind, label, prefix, then option label and
 * value pairs ended by NULL. */
typedef struct {
    int kind;
    const char *label, *prefix;
    const char *options[8];
} ItemDescription;

static const ItemDescription code_items[] = {
    {IDECFG_RADIO_BOX, "Optimization", "-O", {"None", "0", "Some", "1", "Full", "2", NULL}},
    {IDECFG_CHECK_GROUP, "Warnings", NULL, {"All", "-Wall", "Extra", "-Wextra", NULL}},
    {IDECFG_TOGGLE, "Debug information", "-g", {NULL}},
    {IDECFG_OPTION_MENU, "Standard", "-std=", {"C99", "c99", "C11", "c11", "C17", "c17", NULL}},
};
static const ItemDescription path_items[] = {
    {IDECFG_EDIT, "Include directories", "-I", {NULL}},
    {IDECFG_EDIT, "Defines", "-D", {NULL}},
    {IDECFG_LIST, "Libraries", NULL, {"Maths", "-lm", "Threads", "-lpthread", "Dynamic loading", "-ldl", NULL}},
};

static IDECfgTool *tool;
static XwkDeskRec *options_desk;
static Widget option_text, swatch;

static char *copy(const char *s)
{
    return s ? XtNewString(s) : NULL;
}

static IDECfgItem *make_item(const ItemDescription *d)
{
    IDECfgItem *head;
    int n = 0, i;
    if (d->kind == IDECFG_TOGGLE) {
        IDECfgToggleItem *t = (IDECfgToggleItem *)XtCalloc(1, sizeof *t);
        t->option = copy(d->prefix);
        t->sensitive = True;
        head = &t->head;
    } else if (d->kind == IDECFG_EDIT) {
        IDECfgEditItem *e = (IDECfgEditItem *)XtCalloc(1, sizeof *e);
        e->prefix = copy(d->prefix);
        e->mode = 2;
        e->value_type = XWK_FIELD_STRING;
        e->sensitive = True;
        head = &e->head;
    } else {
        IDECfgListItem *l = (IDECfgListItem *)XtCalloc(1, sizeof *l);
        while (d->options[n])
            n += 2;
        l->option_count = n / 2;
        l->options = (IDECfgOption **)XtCalloc((Cardinal)(n / 2), sizeof(IDECfgOption *));
        for (i = 0; i < n / 2; i++) {
            IDECfgOption *o = (IDECfgOption *)XtCalloc(1, sizeof *o);
            o->label = copy(d->options[2 * i]);
            o->value = copy(d->options[2 * i + 1]);
            o->sensitive = True;
            l->options[i] = o;
        }
        l->prefix = copy(d->prefix);
        head = &l->head;
    }
    head->kind = d->kind;
    head->label = copy(d->label);
    return head;
}

static IDECfgDivision *make_division(const char *name, const char *macro,
                                     const ItemDescription *items, int count)
{
    IDECfgDivision *d = (IDECfgDivision *)XtCalloc(1, sizeof *d);
    int i;
    d->name = copy(name);
    d->macro = copy(macro);
    d->tool = tool;
    d->item_count = count;
    d->items = (IDECfgItem **)XtCalloc((Cardinal)count, sizeof(IDECfgItem *));
    for (i = 0; i < count; i++)
        d->items[i] = make_item(&items[i]);
    return d;
}

static void make_tool(void)
{
    tool = (IDECfgTool *)XtCalloc(1, sizeof *tool);
    tool->master = tool;
    tool->name = copy("cc");
    tool->exec = copy("/usr/bin/cc");
    tool->options_macro = copy("CFLAGS");
    tool->division_count = 2;
    tool->divisions = (IDECfgDivision **)XtCalloc(2, sizeof(IDECfgDivision *));
    tool->divisions[0] = make_division("Code", "CODEFLAGS", code_items,
                                       (int)(sizeof code_items / sizeof code_items[0]));
    tool->divisions[1] = make_division("Paths", "PATHFLAGS", path_items,
                                       (int)(sizeof path_items / sizeof path_items[0]));
    IDECfgStringToTool("-O2 -Wall -g -std=c11 -Iinclude -DNDEBUG -lm --coverage", tool);
}

static void show_options(void)
{
    char *text = IDECfgGetToolOptions(tool);
    XmTextFieldSetString(option_text, text ? text : (char *)"");
    XtFree(text);
}

static void apply_text(Widget w, XtPointer closure, XtPointer call)
{
    char *text = XmTextFieldGetString(option_text);
    (void)w;
    (void)closure;
    (void)call;
    IDECfgStringToTool(text, tool);
    XtFree(text);
    show_options();
}

static void options_answered(Widget w, XtPointer closure, XtPointer call)
{
    int i;
    (void)w;
    (void)call;
    if (!options_desk || options_desk->self != options_desk)
        return;
    if ((long)closure == 1) {
        for (i = 0; i < tool->division_count; i++)
            IDECfgReadDivisionControls(tool->divisions[i]);
        show_options();
    }
    CloseDesk(options_desk);
    options_desk = NULL;
}

static void open_options(Widget w, XtPointer closure, XtPointer call)
{
    int i;
    (void)w;
    (void)closure;
    (void)call;
    if (options_desk)
        return;
    CreateDesk(NULL, 6.0f, 4.0f, "Compiler options|toolcfg#options", &options_desk);
    if (!options_desk)
        return;
    for (i = 0; i < tool->division_count; i++) {
        SetLabel(options_desk, 0.5f + 9.0f * (float)i, 0.3f, tool->divisions[i]->name, NULL);
        IDECfgCreateDivisionControls(options_desk, tool->divisions[i], 0.5f + 9.0f * (float)i, 1.0f);
    }
    OpenDesk(options_desk);
    XtAddCallback(options_desk->buttons[0], XmNactivateCallback, options_answered, (XtPointer)1);
    XtAddCallback(options_desk->buttons[1], XmNactivateCallback, options_answered, (XtPointer)2);
}

static void choose_colour(Widget w, XtPointer closure, XtPointer call)
{
    XColor colour;
    Colormap colormap = 0;
    (void)closure;
    (void)call;
    XtVaGetValues(swatch, XmNbackground, &colour.pixel, XmNcolormap, &colormap, NULL);
    XQueryColor(XtDisplay(swatch), colormap, &colour);
    if (XwkColorPicker(w, "Colour|colorpicker", NULL, &colour))
        XtVaSetValues(swatch, XmNbackground, colour.pixel, NULL);
}

static Widget button(Widget parent, const char *text, XtCallbackProc proc)
{
    XmString s = XmStringCreateLocalized((char *)text);
    Widget b = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, parent, XmNlabelString,
                                       s, NULL);
    XmStringFree(s);
    XtAddCallback(b, XmNactivateCallback, proc, NULL);
    return b;
}

Widget demo_page_toolcfg(Widget parent)
{
    Widget page = XtVaCreateManagedWidget("toolcfg", xmRowColumnWidgetClass, parent,
                                          XmNorientation, XmVERTICAL, XmNspacing, 8, NULL);
    Widget row;
    XmString s = XmStringCreateLocalized(
        "Tool options of a sample compiler: the text no item claims is kept.");
    XtVaCreateManagedWidget("caption", xmLabelWidgetClass, page, XmNlabelString, s, NULL);
    XmStringFree(s);
    if (!tool)
        make_tool();
    option_text = XtVaCreateManagedWidget("optionText", xmTextFieldWidgetClass, page,
                                          XmNcolumns, 60, NULL);
    row = XtVaCreateManagedWidget("buttons", xmRowColumnWidgetClass, page, XmNorientation,
                                  XmHORIZONTAL, XmNspacing, 8, NULL);
    button(row, "Apply text", apply_text);
    button(row, "Options...", open_options);
    button(row, "Colour...", choose_colour);
    swatch = XtVaCreateManagedWidget("swatch", xmDrawingAreaWidgetClass, row, XmNwidth, 48,
                                     XmNheight, 24, NULL);
    show_options();
    return page;
}
