/*
 * c-smeld_hs: the help server of the Xwk family of applications.
 *
 *   c-smeld_hs [-display D] [-geometry G] [-colormap ID] [-man | FILE] [PAGE] [ANCHOR]
 *
 * One server serves every application on a host.  It writes its process id
 * into the root window's property "_SMELD_HELP_PID", shows the page given
 * on its command line, and then watches the selection "<host>:_SMELD_HELP":
 * whenever an application takes it, the server asks the new owner for the
 * targets "_SMELD_HELP_FILE", "_SMELD_HELP_PAGE" and "_SMELD_HELP_ANCHOR"
 * and shows that page, raising its window.  The window title is
 * "Help - " and the page's title.
 *
 * A help file is plain text in pages:
 *
 *   .page NAME Title of the page
 *   Text of the page, shown as it stands.
 *   .anchor NAME
 *   More text; the page opens scrolled to the line below the anchor.
 *
 * Lines before the first ".page" and lines starting with ".#" are
 * comments.  An empty page name shows the first page.  The file "-man"
 * shows the manual page PAGE instead.
 *
 * SIGTERM ends the server quietly; closing its window ends it too.
 */
#include <Xm/Xm.h>
#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/Protocols.h>
#include <Xm/Text.h>
#include <X11/Shell.h>
#include <X11/Xatom.h>
#include <X11/extensions/Xfixes.h>

#include <ctype.h>
#include <errno.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>
#include <sys/utsname.h>
#include <unistd.h>

enum { kFile, kPage, kAnchor, kParts };

static const char *const target_names[kParts] = {"_SMELD_HELP_FILE", "_SMELD_HELP_PAGE",
                                                 "_SMELD_HELP_ANCHOR"};

static struct {
    XtAppContext app;
    Display *dpy;
    Widget shell;
    Widget text;
    Atom selection;
    Atom pid_atom;
    Atom targets[kParts];
    int fixes_event;
    /* The request being fetched: one string per target. */
    char *part[kParts];
    int received;
} hs;

static String fallback_resources[] = {
    "*renderTable: DEFAULT",
    "*renderTable.DEFAULT.fontName: DejaVu Sans",
    "*renderTable.DEFAULT.fontSize: 10",
    "*renderTable.DEFAULT.fontType: FONT_IS_XFT",
    "*help.renderTable: FIXED",
    "*help.renderTable.FIXED.fontName: DejaVu Sans Mono",
    "*help.renderTable.FIXED.fontSize: 10",
    "*help.renderTable.FIXED.fontType: FONT_IS_XFT",
    "*help.rows: 30",
    "*help.columns: 80",
    NULL,
};

/* ---- Texts ------------------------------------------------------------- */

typedef struct {
    char *data;
    size_t length, size;
} Buffer;

static void append(Buffer *b, const char *s, size_t n)
{
    if (b->length + n + 1 > b->size) {
        size_t size = b->size ? b->size : 4096;
        while (b->length + n + 1 > size)
            size *= 2;
        char *grown = realloc(b->data, size);
        if (!grown)
            return;
        b->data = grown;
        b->size = size;
    }
    memcpy(b->data + b->length, s, n);
    b->length += n;
    b->data[b->length] = '\0';
}

static void append_text(Buffer *b, const char *s)
{
    append(b, s, strlen(s));
}

static char *read_file(const char *path)
{
    FILE *f = fopen(path, "r");
    if (!f)
        return NULL;
    Buffer b = {0};
    char chunk[4096];
    size_t n;
    while ((n = fread(chunk, 1, sizeof chunk, f)) > 0)
        append(&b, chunk, n);
    fclose(f);
    if (!b.data)
        append(&b, "", 0);
    return b.data;
}

/* The word after a dot command ("page", "anchor") at line, or NULL. */
static const char *command_word(const char *line, const char *command, size_t *length)
{
    size_t n = strlen(command);
    if (line[0] != '.' || strncmp(line + 1, command, n) != 0 || !isspace((unsigned char)line[n + 1]))
        return NULL;
    const char *word = line + n + 1;
    while (*word == ' ' || *word == '\t')
        word++;
    *length = strcspn(word, " \t\n");
    return word;
}

static int word_is(const char *word, size_t length, const char *name)
{
    return strlen(name) == length && strncmp(word, name, length) == 0;
}

/*
 * Cuts a page out of a help file.  Fills text with the page, title with its
 * title and *anchor_at with the text offset of the anchor (0 without one).
 * Returns 0 when the page is not there.
 */
static int find_page(const char *file, const char *page, const char *anchor, Buffer *text,
                     Buffer *title, long *anchor_at)
{
    int inside = 0, found = 0;
    *anchor_at = 0;
    for (const char *line = file; *line;) {
        const char *end = strchr(line, '\n');
        size_t n = end ? (size_t)(end - line + 1) : strlen(line);
        size_t wn;
        const char *word = command_word(line, "page", &wn);
        if (word) {
            if (found)
                break;
            inside = !*page || word_is(word, wn, page);
            if (inside) {
                found = 1;
                const char *rest = word + wn;
                while (*rest == ' ' || *rest == '\t')
                    rest++;
                size_t tn = strcspn(rest, "\n");
                if (tn)
                    append(title, rest, tn);
                else
                    append(title, word, wn);
            }
        } else if (inside && (word = command_word(line, "anchor", &wn)) != NULL) {
            if (*anchor && word_is(word, wn, anchor))
                *anchor_at = (long)text->length;
        } else if (inside && strncmp(line, ".#", 2) != 0) {
            append(text, line, n);
        }
        line += n;
    }
    return found;
}

/* A page name safe to hand to the shell: letters, digits and ._+-:. */
static int is_plain_name(const char *s)
{
    if (!*s)
        return 0;
    for (; *s; s++)
        if (!isalnum((unsigned char)*s) && !strchr("._+-:", *s))
            return 0;
    return 1;
}

static void manual_page(const char *page, Buffer *text)
{
    if (!is_plain_name(page)) {
        append_text(text, "No manual page given.\n");
        return;
    }
    char command[512];
    snprintf(command, sizeof command, "MANWIDTH=80 MAN_KEEP_FORMATTING= man -P cat '%s' 2>&1", page);
    FILE *p = popen(command, "r");
    if (!p) {
        append_text(text, strerror(errno));
        return;
    }
    char chunk[4096];
    size_t n;
    while ((n = fread(chunk, 1, sizeof chunk, p)) > 0)
        append(text, chunk, n);
    pclose(p);
    /* Overstrikes of man's bold and underline: "x\bx" shows as "x". */
    size_t out = 0;
    for (size_t i = 0; i < text->length; i++) {
        if (text->data[i] == '\b') {
            if (out)
                out--;
            continue;
        }
        text->data[out++] = text->data[i];
    }
    text->length = out;
    if (text->data)
        text->data[out] = '\0';
}

/* ---- The window -------------------------------------------------------- */

static void show(const char *file, const char *page, const char *anchor)
{
    Buffer text = {0}, title = {0};
    long anchor_at = 0;
    page = page ? page : "";
    anchor = anchor ? anchor : "";
    if (file && strcasecmp(file, "-man") == 0) {
        manual_page(page, &text);
        append_text(&title, page);
    } else if (!file || !*file) {
        append_text(&text, "No help file given.\n");
        append_text(&title, page);
    } else {
        char *content = read_file(file);
        if (!content) {
            append_text(&text, "Can't read ");
            append_text(&text, file);
            append_text(&text, ": ");
            append_text(&text, strerror(errno));
            append_text(&text, "\n");
            append_text(&title, page);
        } else if (!find_page(content, page, anchor, &text, &title, &anchor_at)) {
            append_text(&text, "No page `");
            append_text(&text, page);
            append_text(&text, "' in ");
            append_text(&text, file);
            append_text(&text, ".\n");
            append_text(&title, page);
        }
        free(content);
    }
    Buffer wm_title = {0};
    append_text(&wm_title, "Help - ");
    append_text(&wm_title, title.data ? title.data : "");
    XtVaSetValues(hs.shell, XmNtitle, wm_title.data, XmNiconName, wm_title.data, NULL);
    XmTextSetString(hs.text, text.data ? text.data : "");
    XmTextSetInsertionPosition(hs.text, (XmTextPosition)anchor_at);
    XmTextSetTopCharacter(hs.text, (XmTextPosition)anchor_at);
    XMapRaised(hs.dpy, XtWindow(hs.shell));
    free(text.data);
    free(title.data);
    free(wm_title.data);
}

static void delete_pid_property(void)
{
    Atom type;
    int format;
    unsigned long count, after;
    unsigned char *data = NULL;
    Window root = DefaultRootWindow(hs.dpy);
    XGrabServer(hs.dpy);
    if (XGetWindowProperty(hs.dpy, root, hs.pid_atom, 0, 1, False, hs.pid_atom, &type, &format,
                           &count, &after, &data) == Success &&
        data && format == 32 && count == 1 && *(long *)data == (long)getpid())
        XDeleteProperty(hs.dpy, root, hs.pid_atom);
    XUngrabServer(hs.dpy);
    XFlush(hs.dpy);
    if (data)
        XFree(data);
}

static void quit(Widget w, XtPointer client_data, XtPointer call_data)
{
    (void)w;
    (void)client_data;
    (void)call_data;
    delete_pid_property();
    exit(0);
}

static void build_window(void)
{
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, hs.shell, NULL);
    XmString label = XmStringCreateLocalized("Close");
    Widget close = XtVaCreateManagedWidget(
        "close", xmPushButtonWidgetClass, form, XmNlabelString, label, XmNbottomAttachment,
        XmATTACH_FORM, XmNbottomOffset, 6, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 6,
        NULL);
    XmStringFree(label);
    XtAddCallback(close, XmNactivateCallback, quit, NULL);
    Arg args[10];
    int n = 0;
    XtSetArg(args[n], XmNeditable, False), n++;
    XtSetArg(args[n], XmNeditMode, XmMULTI_LINE_EDIT), n++;
    XtSetArg(args[n], XmNcursorPositionVisible, False), n++;
    XtSetArg(args[n], XmNtopAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNleftAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNrightAttachment, XmATTACH_FORM), n++;
    XtSetArg(args[n], XmNbottomAttachment, XmATTACH_WIDGET), n++;
    XtSetArg(args[n], XmNbottomWidget, close), n++;
    XtSetArg(args[n], XmNbottomOffset, 6), n++;
    hs.text = XmCreateScrolledText(form, "help", args, n);
    XtManageChild(hs.text);
    Atom delete_window = XInternAtom(hs.dpy, "WM_DELETE_WINDOW", False);
    XtVaSetValues(hs.shell, XmNdeleteResponse, XmDO_NOTHING, NULL);
    XmAddWMProtocolCallback(hs.shell, delete_window, quit, NULL);
}

/* ---- The selection ------------------------------------------------------ */

static void got_part(Widget w, XtPointer client_data, Atom *selection, Atom *type, XtPointer value,
                     unsigned long *length, int *format)
{
    (void)w;
    (void)selection;
    int i = (int)(long)client_data;
    free(hs.part[i]);
    hs.part[i] = NULL;
    if (value && *format == 8 && *type == hs.targets[i]) {
        hs.part[i] = malloc(*length + 1);
        if (hs.part[i]) {
            memcpy(hs.part[i], value, *length);
            hs.part[i][*length] = '\0';
        }
    }
    XtFree((char *)value);
    if (++hs.received < kParts)
        return;
    show(hs.part[kFile], hs.part[kPage], hs.part[kAnchor]);
}

static void ask_owner(Time time)
{
    hs.received = 0;
    for (int i = 0; i < kParts; i++)
        XtGetSelectionValue(hs.shell, hs.selection, hs.targets[i], got_part, (XtPointer)(long)i,
                            time);
}

static void handle_fixes(XEvent *event)
{
    XFixesSelectionNotifyEvent *e = (XFixesSelectionNotifyEvent *)event;
    if (e->subtype != XFixesSetSelectionOwnerNotify || e->selection != hs.selection)
        return;
    if (e->owner == None || e->owner == XtWindow(hs.shell))
        return;
    ask_owner(e->selection_timestamp);
}

static void write_pid(void)
{
    long pid = (long)getpid();
    XChangeProperty(hs.dpy, DefaultRootWindow(hs.dpy), hs.pid_atom, hs.pid_atom, 32,
                    PropModeReplace, (unsigned char *)&pid, 1);
    XFlush(hs.dpy);
}

static Atom help_selection(void)
{
    struct utsname u;
    char name[sizeof u.nodename + 16];
    if (uname(&u) == 0)
        snprintf(name, sizeof name, "%s:_SMELD_HELP", u.nodename);
    else
        snprintf(name, sizeof name, "_SMELD_HELP");
    return XInternAtom(hs.dpy, name, False);
}

static void terminated(int sig)
{
    (void)sig;
    _exit(0);
}

int main(int argc, char **argv)
{
    signal(SIGTERM, terminated);
    hs.shell = XtVaOpenApplication(&hs.app, "XwkHelp", NULL, 0, &argc, argv, fallback_resources,
                                   applicationShellWidgetClass, XmNtitle, "Help", NULL);
    hs.dpy = XtDisplay(hs.shell);
    const char *args[kParts] = {NULL, NULL, NULL};
    int count = 0;
    for (int i = 1; i < argc; i++) {
        if (strcmp(argv[i], "-colormap") == 0 && i + 1 < argc) {
            /* The asking application's colormap: the page's colours match it. */
            Colormap colormap = (Colormap)strtoul(argv[++i], NULL, 0);
            if (colormap)
                XtVaSetValues(hs.shell, XmNcolormap, colormap, NULL);
        } else if (count < kParts) {
            args[count++] = argv[i];
        }
    }
    hs.pid_atom = XInternAtom(hs.dpy, "_SMELD_HELP_PID", False);
    for (int i = 0; i < kParts; i++)
        hs.targets[i] = XInternAtom(hs.dpy, target_names[i], False);
    hs.selection = help_selection();
    build_window();
    XtRealizeWidget(hs.shell);
    write_pid();

    int fixes_error;
    if (!XFixesQueryExtension(hs.dpy, &hs.fixes_event, &fixes_error)) {
        fprintf(stderr, "c-smeld_hs: the X server lacks the XFIXES extension\n");
        return 1;
    }
    XFixesSelectSelectionInput(hs.dpy, DefaultRootWindow(hs.dpy), hs.selection,
                               XFixesSetSelectionOwnerNotifyMask);
    show(args[kFile], args[kPage], args[kAnchor]);

    for (;;) {
        XEvent event;
        XtAppNextEvent(hs.app, &event);
        if (event.type == hs.fixes_event + XFixesSelectionNotify)
            handle_fixes(&event);
        else
            XtDispatchEvent(&event);
    }
}
