/*
 * xwk-demo: a gallery of what the library offers, one window whose folder
 * holds a page per subsystem.
 *
 * With DISPLAY set it opens its window there and runs until Quit is pressed
 * or the window is closed.  Without one it starts a private Xvfb, shows
 * each page in turn, writes one screenshot per page and prints their paths.
 *
 *   xwk-demo [--screenshot FILE]
 *
 * The screenshots go beside FILE, each named after it and its page:
 * "shots/xwk-demo.png" gives "shots/xwk-demo-desk-forms.png" and so on.
 *
 * A page is a builder in demo/page_<name>.c, declared in pages.h and listed
 * in the table below; its title becomes the label of its tab.
 */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <X11/Shell.h>

#include <ctype.h>
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
    {"Dialogs", demo_page_dialogs},
    {"Colours and images", demo_page_colours},
    {"Combo and panes", demo_page_companions},
    {"Folder", demo_page_folder},
    {"Tool bars and menus", demo_page_bars},
    {"Tree list", demo_page_treelist},
    {"Tables", demo_page_tables},
    {"Desk list", demo_page_desklist},
    {"File selection", demo_page_filedesk},
    {"Processes", demo_page_process},
    {"Family windows", demo_page_windows},
    {"Tool options", demo_page_toolcfg},
};
static const int npages = (int)(sizeof pages / sizeof pages[0]);

/* Scalable anti-aliased fonts (fonts-dejavu-core); the tags are those of
 * the message box markup. */
static String fallback_resources[] = {
    "*renderTable: DEFAULT, BOLD, ITALIC, FIXED",
    "*renderTable.DEFAULT.fontType: FONT_IS_XFT",
    "*renderTable.DEFAULT.fontName: DejaVu Sans",
    "*renderTable.DEFAULT.fontSize: 10",
    "*renderTable.BOLD.fontType: FONT_IS_XFT",
    "*renderTable.BOLD.fontName: DejaVu Sans",
    "*renderTable.BOLD.fontStyle: Bold",
    "*renderTable.BOLD.fontSize: 10",
    "*renderTable.ITALIC.fontType: FONT_IS_XFT",
    "*renderTable.ITALIC.fontName: DejaVu Sans",
    "*renderTable.ITALIC.fontStyle: Oblique",
    "*renderTable.ITALIC.fontSize: 10",
    "*renderTable.FIXED.fontType: FONT_IS_XFT",
    "*renderTable.FIXED.fontName: DejaVu Sans Mono",
    "*renderTable.FIXED.fontSize: 10",
    /* Widgets without a render table of their own (tree lists, folders)
     * take these from the form they stand in. */
    "*labelRenderTable: DEFAULT",
    "*labelRenderTable.DEFAULT.fontType: FONT_IS_XFT",
    "*labelRenderTable.DEFAULT.fontName: DejaVu Sans",
    "*labelRenderTable.DEFAULT.fontSize: 10",
    "*textRenderTable: DEFAULT",
    "*textRenderTable.DEFAULT.fontType: FONT_IS_XFT",
    "*textRenderTable.DEFAULT.fontName: DejaVu Sans",
    "*textRenderTable.DEFAULT.fontSize: 10",
    "*XmFolder.shadowThickness: 2",
    "*XmFolder.marginWidth: 6",
    "*XmFolder.marginHeight: 6",
    NULL,
};

static Widget folder;

static void quit(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)client_data;
    (void)call_data;
    XwkAppExitFlag = True;
}

static Widget build_window(Widget shell)
{
    Widget form = XtVaCreateManagedWidget("main", xmFormWidgetClass, shell, NULL);
    XmString s = XmStringCreateLocalized(
        (char *)"Xwk GUI Library: desk forms, message boxes, widgets and services on Motif.");
    Widget intro = XtVaCreateManagedWidget(
        "intro", xmLabelWidgetClass, form, XmNlabelString, s, XmNalignment, XmALIGNMENT_BEGINNING,
        XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 8, XmNleftAttachment, XmATTACH_FORM,
        XmNleftOffset, 10, NULL);
    XmStringFree(s);
    s = XmStringCreateLocalized((char *)"Quit");
    Widget button = XtVaCreateManagedWidget(
        "quit", xmPushButtonWidgetClass, form, XmNlabelString, s, XmNbottomAttachment,
        XmATTACH_FORM, XmNbottomOffset, 8, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 10,
        NULL);
    XmStringFree(s);
    XtAddCallback(button, XmNactivateCallback, quit, NULL);

    Arg args[1];
    XtSetArg(args[0], XmNuseMenu, True);
    folder = XmCreateFolder(form, "pages", args, 1);
    XtVaSetValues(folder, XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, intro,
                  XmNtopOffset, 4, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 4,
                  XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 4,
                  XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, button,
                  XmNbottomOffset, 4, NULL);
    for (int i = 0; i < npages; i++) {
        Widget page = pages[i].build(folder);
        s = XmStringCreateLocalized((char *)pages[i].title);
        XtVaSetValues(page, XmNfolderLabelString, s, NULL);
        XmStringFree(s);
    }
    XtManageChild(folder);
    return form;
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

/* "dir/name.png" and "Combo and panes" give "dir/name-combo-and-panes.png". */
static void page_path(const char *path, const char *title, char *out, size_t size)
{
    const char *slash = strrchr(path, '/');
    const char *dot = strrchr(path, '.');
    size_t stem = dot && (!slash || dot > slash) ? (size_t)(dot - path) : strlen(path);
    char slug[64];
    size_t n = 0;
    for (const char *c = title; *c && n + 1 < sizeof slug; c++) {
        if (isalnum((unsigned char)*c))
            slug[n++] = (char)tolower((unsigned char)*c);
        else if (n > 0 && slug[n - 1] != '-')
            slug[n++] = '-';
    }
    slug[n] = 0;
    snprintf(out, size, "%.*s-%s%s", (int)stem, path, slug, dot && stem < strlen(path) ? dot : ".png");
}

static int take_screenshots(Widget shell, const char *path)
{
    int rc = 0;
    for (int i = 0; i < npages; i++) {
        char file[PATH_MAX], full[PATH_MAX];
        XmFolderSetActivePage(folder, XmFolderGetFolderIdByPageNumber(folder, i + 1), False);
        settle();
        page_path(path, pages[i].title, file, sizeof file);
        if (demo_write_png(xwkDisplay, XtWindow(shell), file) != 0) {
            fprintf(stderr, "xwk-demo: cannot write %s\n", file);
            rc = 1;
            continue;
        }
        printf("%s\n", realpath(file, full) ? full : file);
    }
    return rc;
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

    /* Help buttons open the help server built beside the gallery. */
    setenv("C_SMELD", XWK_DEMO_HELP_DIR, 0);
    int xc = 1;
    XtAppContext app;
    Widget shell = XtVaAppInitialize(&app, "XwkDemo", NULL, 0, &xc, argv, fallback_resources,
                                     XmNtitle, "Xwk demo", XmNx, 0, XmNy, 0, NULL);
    xargc = 1;
    xargv = argv;
    XwkInitialize(app, shell);
    build_window(shell);
    Atom delete_window = XmInternAtom(XtDisplay(shell), "WM_DELETE_WINDOW", False);
    XmAddWMProtocolCallback(shell, delete_window, quit, NULL);
    XtRealizeWidget(shell);

    int rc = 0;
    if (headless)
        rc = take_screenshots(shell, screenshot);
    else
        XwkAppMainLoop(app);
    XwkIconFreeIconsList();
    if (headless)
        xwk_xvfb_stop(&server);
    return rc;
}
