/*
 * xwk-demo: a gallery of what the library offers.
 *
 * With DISPLAY set it opens its windows there and runs until a button of
 * the main desk is pressed.  Without one it starts a private Xvfb, shows
 * its windows, writes a screenshot and prints the file's path.
 *
 *   xwk-demo [--screenshot FILE]
 */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <X11/Shell.h>

#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/select.h>
#include <unistd.h>

#include "pages.h"
#include "screenshot.h"
#include "xvfb.h"

typedef Widget (*PageBuilder)(Widget parent);

static const struct {
    const char *title;
    PageBuilder build;
} pages[] = {
    {"Desk forms", demo_page_frame},
    {"Colours and images", demo_page_colours},
    {"Combo boxes and panes", demo_page_companions},
    {"Dialogs", demo_page_dialogs},
    {"Tree list", demo_page_treelist},
    {"Tables", demo_page_tables},
};
static const int npages = (int)(sizeof pages / sizeof pages[0]);

static String fallback_resources[] = {
    "*renderTable: DEFAULT, BOLD, ITALIC, FIXED",
    "*renderTable.DEFAULT.fontName: -*-helvetica-medium-r-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.DEFAULT.fontType: FONT_IS_FONT",
    "*renderTable.BOLD.fontName: -*-helvetica-bold-r-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.BOLD.fontType: FONT_IS_FONT",
    "*renderTable.ITALIC.fontName: -*-helvetica-medium-o-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.ITALIC.fontType: FONT_IS_FONT",
    "*renderTable.FIXED.fontName: -*-courier-medium-r-*-*-12-*-*-*-*-*-*-*",
    "*renderTable.FIXED.fontType: FONT_IS_FONT",
    NULL,
};

static Widget open_page(int index, Position x, Position y)
{
    Widget shell = XtVaCreatePopupShell("page", topLevelShellWidgetClass, xwkTopLevel,
                                        XtNtitle, pages[index].title, XtNx, x, XtNy, y, NULL);
    pages[index].build(shell);
    XtPopup(shell, XtGrabNone);
    return shell;
}

static void page_button_pressed(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)call_data;
    open_page((int)(long)client_data, 80, 80);
}

static void add_page_buttons(Widget work)
{
    Widget row = XtVaCreateManagedWidget("pages", xmRowColumnWidgetClass, work,
                                         XmNorientation, XmHORIZONTAL,
                                         XmNtopAttachment, XmATTACH_FORM,
                                         XmNtopOffset, XwkHeight(1.5f),
                                         XmNleftAttachment, XmATTACH_FORM,
                                         XmNleftOffset, XwkWidth(0.5f), NULL);
    for (int i = 0; i < npages; i++) {
        XmString s = XmStringCreateLocalized((char *)pages[i].title);
        Widget b = XtVaCreateManagedWidget("page", xmPushButtonWidgetClass, row,
                                           XmNlabelString, s, NULL);
        XmStringFree(s);
        XtAddCallback(b, XmNactivateCallback, page_button_pressed, (XtPointer)(long)i);
    }
}

static void add_intro(XwkDeskRec *desk)
{
    XmString s = XmStringCreateLtoR(
        (char *)"Xwk GUI Library: desk forms, message boxes, widgets and services on Motif.\n"
                "Each button below opens one page of the gallery.",
        XmFONTLIST_DEFAULT_TAG);
    XtVaCreateManagedWidget("intro", xmLabelWidgetClass, desk->work, XmNlabelString, s,
                            XmNalignment, XmALIGNMENT_BEGINNING,
                            XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, XwkHeight(0.3f),
                            XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, XwkWidth(0.5f),
                            NULL);
    XmStringFree(s);
    desk->extent_w = XwkWidth(18.0f);
    desk->extent_h = XwkHeight(3.0f);
}

/* Lets the server draw everything: events until nothing comes for a while. */
static void settle(void)
{
    for (int quiet = 0; quiet < 20;) {
        XSync(xwkDisplay, False);
        if (XtAppPending(xwkApp)) {
            XtAppProcessEvent(xwkApp, XtIMAll);
            quiet = 0;
            continue;
        }
        struct timeval tv = {0, 10000};
        select(0, NULL, NULL, NULL, &tv);
        quiet++;
    }
}

static int take_screenshot(const char *path)
{
    char full[PATH_MAX];
    Window root = DefaultRootWindow(xwkDisplay);
    XSetWindowBackground(xwkDisplay, root, 0x5a6e82);
    XClearWindow(xwkDisplay, root);
    settle();
    if (demo_write_png(xwkDisplay, DefaultRootWindow(xwkDisplay), path) != 0) {
        fprintf(stderr, "xwk-demo: cannot write %s\n", path);
        return 1;
    }
    printf("%s\n", realpath(path, full) ? full : path);
    return 0;
}

int main(int argc, char **argv)
{
    const char *screenshot = "xwk-demo.png";
    XwkXvfb server = {-1, -1};
    int headless = 0;

    for (int i = 1; i < argc; i++)
        if (strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc)
            screenshot = argv[++i];
    const char *display = getenv("DISPLAY");
    if (!display || !*display) {
        if (xwk_xvfb_start(&server, 0) != 0) {
            fprintf(stderr, "xwk-demo: no DISPLAY, and Xvfb could not be started\n");
            return 1;
        }
        headless = 1;
    }

    xargc = 1;
    xargv = argv;
    xwkFallbackResources = fallback_resources;
    XwkDeskRec *desk = NULL;
    CreateDesk(NULL, 2.0f, 2.0f, "Xwk demo|demo#start", &desk);
    if (!desk)
        return 1;
    add_intro(desk);
    add_page_buttons(desk->work);
    OpenDeskExt(desk, "&Quit\0&Help", 2);

    if (headless) {
        static const Position at[][2] = {{60, 220}, {520, 20}, {900, 20}, {480, 250}, {60, 600}};
        for (int i = 0; i < npages; i++)
            open_page(i, at[i % 5][0], at[i % 5][1]);
        int rc = take_screenshot(screenshot);
        xwk_xvfb_stop(&server);
        return rc;
    }
    for (;;) {
        int result = 0;
        UseDesk(desk, &result);
        if (result == -1)
            return 0;
        if (result != 0)
            break;
    }
    CloseDesk(desk);
    return 0;
}
