/* The dialogs page: a desk built from the controls, the message boxes of
 * every kind, the markup of their texts and the prompts. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <stdio.h>
#include <string.h>

#include "pages.h"

typedef struct {
    XwkDeskRec *desk;
    XwkDeskItem *name, *count, *notes, *shown, *colour, *options, *size, *list, *button;
} ControlsDesk;

static ControlsDesk controls;
static char name_value[41] = "Xwk";
static long count_value = 42;
static char notes_value[201] = "Fields, lists and boxes\nplaced in centimetres.";
static int option_states[3] = {1, 0, 1};

static const char markup_text[] =
    "^bMarkup^b in message texts\n"
    "^s^lLeft aligned: ^bbold^b, ^iitalic^i and ^ffixed^f pieces.\n"
    "^rRight aligned.^cCentred again, with\ta tab.";

static void report_controls(void)
{
    char name[41] = "", notes[201] = "";
    long count = 0;
    int colour = 0, size = 0, row = 0, states[3] = {0, 0, 0};
    GetEditField(controls.name, name);
    GetEditField(controls.count, &count);
    GetEditField(controls.notes, notes);
    GetRadioBox(controls.colour, &colour);
    GetCheckBox(controls.options, states);
    GetOptionMenu(controls.size, &size);
    GetScrolledList(controls.list, &row);
    name[40] = 0;
    notes[200] = 0;
    XwkShowPrintfDialog(controls.desk->form, "Desk values", XWK_DIALOG_INFORMATION,
                        "Name ^b%s^b, count %ld\nColour %d, options %d%d%d, size %d, row %d\n"
                        "^l%s",
                        name, count, colour, states[0], states[1], states[2], size, row, notes);
}

/* The desk answers through callbacks after its own, so that the page stays
 * usable while it stands: no loop of UseDesk here. */
static void desk_answered(Widget w, XtPointer closure, XtPointer call)
{
    (void)w;
    (void)call;
    if (!controls.desk || controls.desk->self != controls.desk)
        return;
    if ((long)closure == 1)
        report_controls();
    CloseDesk(controls.desk);
    controls.desk = NULL;
}

static void button_control_pressed(Widget w, XtPointer closure, XtPointer call)
{
    int pressed = 0;
    (void)closure;
    (void)call;
    GetButton(controls.button, &pressed);
    if (pressed)
        XwkShowStdDialog(w, NULL, "The ^bButton^b control reports each press once.",
                         XWK_DIALOG_MESSAGE);
}

static void open_controls_desk(void)
{
    XwkDeskRec *desk = NULL;
    float w = 0, h = 0;
    if (controls.desk)
        return;
    CreateDesk(NULL, 16.0f, 9.0f, "Desk controls|dialogs#controls", &desk);
    if (!desk)
        return;
    controls.desk = desk;
    SetLabel(desk, 0.5f, 0.3f, "Every control stands at a position in centimetres.", NULL);
    SetEditField(desk, 0.5f, 1.0f, "Name", 2.5f, name_value, XWK_FIELD_STRING, 40, 20,
                 &controls.name);
    SetEditField(desk, 0.5f, 2.0f, "Count", 2.5f, &count_value, XWK_FIELD_LONG, 8, 8,
                 &controls.count);
    SetEditField(desk, 0.5f, 3.0f, "Shown", 2.5f, (void *)"display only", -XWK_FIELD_STRING, 20,
                 20, &controls.shown);
    SetRadioBox(desk, 0.5f, 4.1f, "Colour", "Red\0Green\0Blue", 3, 2, &controls.colour);
    GetDeskItemSize(controls.colour, &w, &h);
    SetCheckBox(desk, 1.0f + w, 4.1f, "Options", "Wrap lines\0Show tabs\0Keep backups", 3,
                option_states, &controls.options);
    SetOptionMenu(desk, 0.5f, 4.4f + h, "Size", 0, "Small\0Medium\0Large", 3, 2, &controls.size);
    SetSeparator(desk, 0.5f, 5.6f + h, 12.0f, 2, NULL);
    SetScrolledList(desk, 0.5f, 6.0f + h, "Files", "desk.cpp\0controls.cpp\0prompts.cpp\0"
                    "msgbox.cpp\0units.cpp\0actionarea.cpp", 6, 4, 3, &controls.list);
    SetEditMultiField(desk, 5.5f, 6.0f + h, "Notes", -1.0f, notes_value, XWK_FIELD_STRING, 200,
                      4, 24, &controls.notes);
    SetButton(desk, 0.5f, 9.6f + h, "Button", &controls.button);
    XtAddCallback(controls.button->widget, XmNactivateCallback, button_control_pressed, NULL);
    OpenDesk(desk);
    XtAddCallback(desk->buttons[0], XmNactivateCallback, desk_answered, (XtPointer)1);
    XtAddCallback(desk->buttons[1], XmNactivateCallback, desk_answered, (XtPointer)2);
}

static void show_kind(Widget w, XtPointer closure, XtPointer call)
{
    static const char *texts[] = {
        "",
        "Cannot write the file\n^b/tmp/example.txt^b.",
        "The operation finished.",
        "Save the changes to ^bexample.txt^b?",
        "The disk is nearly full.",
    };
    int kind = (int)(long)closure;
    (void)call;
    if (kind >= 1 && kind <= 4) {
        condit(w, kind == 3 ? "Question" : kind == 1 ? "Error" : kind == 2 ? "Information"
                                                                          : "Warning",
               kind, texts[kind], NULL, 0, 1, kind == 3 ? 1 : 2);
        return;
    }
    if (kind == 5)
        XwkShowStdDialog(w, "Markup", markup_text, XWK_DIALOG_MESSAGE);
    if (kind == 6) {
        static Boolean silenced = False;
        XwkShowDialogWithToggle(w, "Tip", "A box can offer to stay silent next time.", NULL,
                                &silenced, XWK_DIALOG_INFORMATION);
    }
    if (kind == 7) {
        char *text = XwkGetUserText(1, w, "world", "Say hello to", "Prompt");
        if (text)
            XwkShowPrintfDialog(w, "Prompt", XWK_DIALOG_INFORMATION, "Hello, ^b%s^b!", text);
        XtFree(text);
    }
    if (kind == 8) {
        char password[17] = "";
        if (inputa(w, "Password|Interface#Prompt", "Password (shown as stars)", password, -16))
            XwkShowPrintfDialog(w, "Password", XWK_DIALOG_INFORMATION,
                                "You typed %d characters.", (int)strlen(password));
    }
    if (kind == 9)
        open_controls_desk();
}

Widget demo_page_dialogs(Widget parent)
{
    static const char *labels[] = {"Error", "Information", "Question", "Warning", "Markup",
                                   "With toggle", "Prompt", "Password", "Controls desk"};
    static const int kinds[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    Widget form = XtVaCreateManagedWidget("dialogsPage", xmFormWidgetClass, parent, NULL);
    XmString s = XmStringCreateLtoR(
        (char *)"Message boxes of each kind, the markup of their texts and the prompts.\n"
                "Controls desk opens a desk built from every kind of desk control.",
        XmFONTLIST_DEFAULT_TAG);
    Widget intro = XtVaCreateManagedWidget(
        "intro", xmLabelWidgetClass, form, XmNlabelString, s, XmNalignment, XmALIGNMENT_BEGINNING,
        XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, XwkHeight(0.3f), XmNleftAttachment,
        XmATTACH_FORM, XmNleftOffset, XwkWidth(0.3f), NULL);
    XmStringFree(s);
    Widget row = XtVaCreateManagedWidget(
        "boxes", xmRowColumnWidgetClass, form, XmNorientation, XmHORIZONTAL, XmNnumColumns, 3,
        XmNpacking, XmPACK_COLUMN, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, intro,
        XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, XwkWidth(0.3f), NULL);
    for (int i = 0; i < (int)(sizeof labels / sizeof labels[0]); i++) {
        Widget b;
        s = XmStringCreateLocalized((char *)labels[i]);
        b = XtVaCreateManagedWidget("box", xmPushButtonWidgetClass, row, XmNlabelString, s, NULL);
        XmStringFree(s);
        XtAddCallback(b, XmNactivateCallback, show_kind, (XtPointer)(long)kinds[i]);
    }
    /* The markup shown in place, as a message box shows it. */
    Widget sample = XtVaCreateManagedWidget(
        "markup", xmFormWidgetClass, form, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, row,
        XmNtopOffset, XwkHeight(0.3f), XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
        XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNbottomOffset, XwkHeight(0.3f),
        NULL);
    XwkCreateCompoundLabels(sample, markup_text);
    return form;
}
