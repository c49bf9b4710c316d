/*
 * Xwk/Dialogs.h - message boxes and prompts.
 *
 * condit builds every message window: it shows the text with inline markup
 * (see XwkCreateCompoundLabels), waits in a loop of its own and returns the
 * number of the button pressed from 1, 0 when the window manager closed the
 * box, -1 when no box could be shown or it went away while waiting.
 *
 *   if (XwkShowStdDialog(w, NULL, "Save ^bnotes.txt^b?", XWK_DIALOG_QUESTION) == 1)
 *       save();
 *
 * The prompts inputa .. inpute build a desk, wait for OK or Cancel and
 * return 1 for OK with the fields read into the caller's buffers.
 */
#ifndef XWK_DIALOGS_H
#define XWK_DIALOGS_H

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>
#include <Xwk/Graphics.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* ---- Message boxes ----------------------------------------------------- */

/* Message kinds (condit's kind). */
#define XWK_KIND_ERROR       1
#define XWK_KIND_INFORMATION 2
#define XWK_KIND_QUESTION    3
#define XWK_KIND_WARNING     4

/* Button sets (condit's buttons, by absolute value). */
#define XWK_BUTTONS_OK_CANCEL 0
#define XWK_BUTTONS_YES_NO    1
#define XWK_BUTTONS_OK        2
#define XWK_BUTTONS_LABELS    3

/* Dialog types of the wrappers. */
#define XWK_DIALOG_ERROR       1
#define XWK_DIALOG_INFORMATION 2
#define XWK_DIALOG_MESSAGE     3
#define XWK_DIALOG_QUESTION    4
#define XWK_DIALOG_WARNING     5

extern Widget xwkConditWidget;      /* the present box, or NULL */
extern Widget xwkConditWorkWidget;  /* row column below the text for extra controls */
extern XwkIcon *xwkConditIcon;      /* when set, the icon of every box */
extern Cursor xwkDeskTopCursor;     /* given to the buttons of a waiting box */

/* parent: NULL for the present desk or the top level.  labels: packed
 * strings for button set 3.  default_button: 1-based; a negative one makes
 * the box modeless and returns at once (with a null title: the logo
 * window); a negative buttons argument builds the box without showing it. */
int condit(Widget parent, const char *title, int kind, const char *text, const char *labels,
           int nlabels, int default_button, int buttons);
/* Takes the present box away. */
void del_condit(void);
/* Labels for text with the markup ^b bold, ^i italic, ^f fixed, ^d default
 * font (each on and off), ^c ^l ^r centre, left, right alignment from here,
 * ^s a separator line.  Returns the last widget created. */
Widget XwkCreateCompoundLabels(Widget form, const char *text);

/* Yes/No of type 4 gives 1 for Yes, 0 for No and for closing. */
int XwkShowStdDialog(Widget w, const char *title, const char *text, int type);
/* Shows "An error occurred while <operation>" for errno; returns errno, and
 * 0 without a box when errno is 0. */
int XwkShowErrStrDialog(Widget w, const char *title, const char *operation, const char *file,
                        int type);
/* printf into at most 1023 characters. */
void XwkShowPrintfDialog(Widget w, const char *title, int type, const char *format, ...)
    __attribute__((format(printf, 4, 5)));
/* A box with a toggle, "Disable this message for next time" by default,
 * whose state goes to *flag. */
Boolean XwkShowDialogWithToggle(Widget w, const char *title, const char *text,
                                const char *toggle, Boolean *flag, int type);
int XwkShowDialogWithToggleExt(Widget w, const char *title, const char *text,
                               const char *toggle, const char *labels, int nlabels,
                               int default_button, Boolean *flag, int type);
/* File messages by code: 0 exists already (ask), 1 find, 2 create, 4 read,
 * 6 open, 8 invalid format, 10 changed (ask), 11 no memory to load.  A
 * positive code tests the file first and shows a box only on failure. */
int err_msg(Widget w, const char *file, int code);
int err_msg_(Widget *w, const char *file, int *code);
void ins_mem(void);
/* Prints "Abort: <text>" on stderr and aborts. */
void botch(const char *text) __attribute__((noreturn));

/* ---- Prompts ----------------------------------------------------------- */

/* A negative length asks for a password: '*' is shown for each character. */
int inputa(Widget parent, const char *title, const char *label, char *buffer, int length);
int inputb(Widget parent, const char *title, const char *label, char *buffer, int length,
           int columns, int rows);
int inputc(Widget parent, const char *title, const char *label1, char *buffer1, int length1,
           const char *label2, char *buffer2, int length2, int columns, int rows);
int inputd(Widget parent, const char *title, const char *label, char *buffer, int length,
           const char *check, Boolean *flag);
int inpute(Widget parent, const char *title,
           const char *label1, char *buffer1, int length1, int columns1, int rows1,
           const char *label2, char *buffer2, int length2, int columns2, int rows2,
           const char *label3, char *buffer3, int length3, int columns3, int rows3);
/* mode 0 multi-line, 1 one line, 1001 hidden; XtMalloc'ed text or NULL. */
char *XwkGetUserText(int mode, Widget parent, const char *initial, const char *label,
                     const char *title);

/* Flags of XwkTextVerifyCallback, the closure of a modify-verify callback. */
#define XWK_VERIFY_DIGITS      2
#define XWK_VERIFY_NUMBER      4
#define XWK_VERIFY_HEX         8
#define XWK_VERIFY_PATH        16
#define XWK_VERIFY_IDENTIFIER  32
void XwkTextVerifyCallback(Widget w, XtPointer flags, XtPointer call_data);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
