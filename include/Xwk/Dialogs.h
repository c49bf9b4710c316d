/**
 * \file
 * \ingroup forms
 * \brief Message boxes and prompts.
 *
 * condit builds every message window: it shows the text with inline markup
 * (see XwkCreateCompoundLabels) beside the icon of its kind, waits in a
 * loop of its own and returns the number of the button pressed from 1, 0
 * when the window manager closed the box, -1 when no box could be shown or
 * it went away while waiting.  The wrappers XwkShowStdDialog and its
 * siblings pick kind, title and buttons by a dialog type and translate
 * their text:
 *
 * \code
 * if (XwkShowStdDialog(w, NULL, "Save ^bnotes.txt^b?", XWK_DIALOG_QUESTION) == 1)
 *     save();
 * \endcode
 *
 * Only one box is tracked at a time, in xwkConditWidget.  A message given
 * before the toolkit is started is lost without a trace (the result is -1).
 *
 * The prompts inputa .. inpute build a desk at 5 cm, 5 cm, wait for OK or
 * Cancel and return 1 for OK with the fields read into the caller's
 * buffers, 0 for Cancel, the window manager's close or a desk that went
 * away.  A buffer receives at most its length in characters and is
 * zero-ended only when the text is shorter: give length + 1 bytes.
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

/** Message kind of condit: error icon, widget name "xwkError".  Any kind
 * other than 1 to 4 has no icon and the name "xwkMessageDialog". */
#define XWK_KIND_ERROR       1
/** Message kind of condit: information icon, widget name "xwkInformation". */
#define XWK_KIND_INFORMATION 2
/** Message kind of condit: question icon, widget name "xwkQuestion". */
#define XWK_KIND_QUESTION    3
/** Message kind of condit: warning icon, widget name "xwkWarning". */
#define XWK_KIND_WARNING     4

/** Button set of condit (by absolute value): OK and Cancel. */
#define XWK_BUTTONS_OK_CANCEL 0
/** Button set of condit (by absolute value): Yes and No. */
#define XWK_BUTTONS_YES_NO    1
/** Button set of condit (by absolute value): one OK button; so is any value
 * other than 0, 1 and 3. */
#define XWK_BUTTONS_OK        2
/** Button set of condit (by absolute value): the caller's labels (one OK
 * when there are none). */
#define XWK_BUTTONS_LABELS    3

/** Dialog type of the wrappers: error icon, title "Error", one OK. */
#define XWK_DIALOG_ERROR       1
/** Dialog type of the wrappers: information icon, title "Information", one
 * OK; so is any value other than 1, 3, 4 and 5. */
#define XWK_DIALOG_INFORMATION 2
/** Dialog type of the wrappers: no icon, title "Message", one OK. */
#define XWK_DIALOG_MESSAGE     3
/** Dialog type of the wrappers: question icon, title "Question", Yes and
 * No. */
#define XWK_DIALOG_QUESTION    4
/** Dialog type of the wrappers: warning icon, title "Warning", one OK. */
#define XWK_DIALOG_WARNING     5

/** The present message box (the form in its dialog shell), or NULL. */
extern Widget xwkConditWidget;
/** Row column below the text of the latest box, unmanaged and empty, for
 * extra controls of a box built without showing. */
extern Widget xwkConditWorkWidget;
/** When set, the icon of every box instead of its kind's; it stays the
 * caller's.  NULL by default. */
extern XwkIcon *xwkConditIcon;
/** Cursor given to the buttons of a box while condit waits for it. */
extern Cursor xwkDeskTopCursor;

/**
 * \brief Builds a message box and, by default, waits for its answer.
 *
 * Releases any server, pointer and keyboard grab and raises the parent
 * shell first.  The title and labels go through the message catalogue,
 * the text does not.  A text wider or taller than 80 % of the screen is
 * shown in a scrolled text (at most 15 rows and 60 columns) with the
 * markup markers removed and their letters left.  A label containing
 * "Cancel" or "No" becomes the box's cancel button (Escape); without one,
 * the only button or the second.  The window manager's close answers 0,
 * not the cancel button's number.
 *
 * \param parent         Widget whose shell owns the box; NULL for the shell
 *                       of xwkParentWidget when it is realized and
 *                       managed, else xwkTopLevel.
 * \param title          Window title, or NULL for none (with a negative
 *                       \p default_button: the logo window, a bare
 *                       override shell).
 * \param kind           XWK_KIND_ERROR .. XWK_KIND_WARNING; other values
 *                       show no icon.
 * \param text           The message, with markup; NULL is empty.
 * \param labels         Packed button labels for button set 3.
 * \param nlabels        Number of \p labels (by absolute value).
 * \param default_button Default button, 1-based, clamped to the count.
 *                       Positive: the box is modal and the call waits.
 *                       Negative: the box is modeless and the call returns
 *                       at once, leaving it up for del_condit.  0 waits
 *                       for a modeless box.
 * \param buttons        Button set XWK_BUTTONS_...; negative builds the
 *                       box without showing it (use with a negative
 *                       \p default_button; the caller then fills
 *                       xwkConditWorkWidget and manages xwkConditWidget).
 * \return The number of the button pressed from 1, 0 when the window
 *         manager closed the box, -1 when no box could be shown or it or
 *         its parent was destroyed while waiting.  A call that does not
 *         wait returns -1 (or an answer given while it flushed).
 */
int condit(Widget parent, const char *title, int kind, const char *text, const char *labels,
           int nlabels, int default_button, int buttons);
/**
 * \brief Takes the present box (xwkConditWidget) away, if any.
 *
 * Pops it down, lets the window below repaint and destroys it.
 */
void del_condit(void);
/**
 * \brief Builds labels, one below the other, from text with inline markup.
 *
 * The marker is '^' and the letter after it, in either case, the command:
 *
 * | Command | Effect |
 * |---|---|
 * | `^b` `^i` `^f` | bold, italic, fixed font tag ("BOLD", "ITALIC", "FIXED") on; the same again turns it off |
 * | `^d` | the default font tag on and off likewise |
 * | `^c` `^l` `^r` | ends the label; what follows is centred (the start), left or right aligned |
 * | `^s` | ends the label and adds an etched separator line |
 * | other | the two characters vanish |
 *
 * Styles do not nest: overlapping styles give misordered text.  The render
 * table in use must define the tags for them to show.  Newlines break
 * lines, tabs are expanded to stops of 8 columns; a trailing '^' ends the
 * text.  Each label is a managed "xwkConditLabel" attached left and right,
 * the first to the top of \p form, the others below the previous widget.
 *
 * \param form The form to fill.
 * \param text The text; NULL is empty.
 * \return The last widget created, or NULL when \p form is NULL.
 */
Widget XwkCreateCompoundLabels(Widget form, const char *text);

/**
 * \brief Shows a message box of a dialog type and waits for the answer.
 * \param w     Parent widget, as for condit; may be NULL.
 * \param title Window title, or NULL for the type's own.
 * \param text  The message (translated), with markup.
 * \param type  XWK_DIALOG_ERROR .. XWK_DIALOG_WARNING.
 * \return 1 for OK or Yes; 0 for No and for the window manager's close
 *         (condit's 2 is given as 0); -1 when no box could be shown.
 */
int XwkShowStdDialog(Widget w, const char *title, const char *text, int type);
/**
 * \brief Reports errno: "An error occurred while <operation>", the file
 * name and the system's message.
 * \param w         Parent widget, as for condit; may be NULL.
 * \param title     Window title, or NULL for the type's own.
 * \param operation What was being done, e.g. "reading"; translated.
 * \param file      The file name, shown in bold.
 * \param type      XWK_DIALOG_ERROR .. XWK_DIALOG_WARNING.
 * \return errno as found at the call; 0, without a box, when errno is 0.
 */
int XwkShowErrStrDialog(Widget w, const char *title, const char *operation, const char *file,
                        int type);
/**
 * \brief Shows a printf-formatted message of a dialog type and waits.
 *
 * The format is translated first; the message is cut at 1023 characters.
 *
 * \param w      Parent widget, as for condit; may be NULL.
 * \param title  Window title, or NULL for the type's own.
 * \param type   XWK_DIALOG_ERROR .. XWK_DIALOG_WARNING.
 * \param format printf format of the message, with markup.
 * \param ...    Arguments of \p format.
 */
void XwkShowPrintfDialog(Widget w, const char *title, int type, const char *format, ...)
    __attribute__((format(printf, 4, 5)));
/**
 * \brief Shows a modal box with a toggle, "Disable this message for next
 * time" by default, and waits.
 *
 * XwkShowDialogWithToggleExt with the type's buttons and default button 1.
 *
 * \param w      Parent widget, as for condit; may be NULL.
 * \param title  Window title, or NULL for the type's own.
 * \param text   The message, with markup (not translated).
 * \param toggle Toggle text (translated), or NULL for the default one.
 * \param flag   In: the toggle's initial state; out: its state when the box
 *               was answered.  May be NULL.
 * \param type   XWK_DIALOG_ERROR .. XWK_DIALOG_WARNING.
 * \return True when the first button (OK or Yes) was pressed.
 */
Boolean XwkShowDialogWithToggle(Widget w, const char *title, const char *text,
                                const char *toggle, Boolean *flag, int type);
/**
 * \brief Shows a modal box with a toggle and the caller's buttons, and
 * waits.
 *
 * Waits first until a box already up has gone, so the boxes do not nest.
 * A call made while another one of these waits returns 0 at once.
 *
 * \param w              Parent widget, as for condit; may be NULL.
 * \param title          Window title, or NULL for the type's own.
 * \param text           The message, with markup (not translated).
 * \param toggle         Toggle text (translated), or NULL for "Disable
 *                       this message for next time".
 * \param labels         Packed button labels, used when \p nlabels is not 0.
 * \param nlabels        Number of \p labels; 0 takes the type's buttons.
 * \param default_button Default button, 1-based (sign ignored, 0 is 1).
 * \param flag           In: the toggle's initial state; out: its state
 *                       when the box was answered.  May be NULL.
 * \param type           XWK_DIALOG_ERROR .. XWK_DIALOG_WARNING.
 * \return The number of the button pressed from 1; 0 for the window
 *         manager's close or a nested call; -1 when no box could be built
 *         or it was destroyed while waiting (then \p flag is not written).
 */
int XwkShowDialogWithToggleExt(Widget w, const char *title, const char *text,
                               const char *toggle, const char *labels, int nlabels,
                               int default_button, Boolean *flag, int type);
/**
 * \brief Shows a file message by code, after testing the file.
 *
 * A positive code (and 0) tests the file first and shows the box only when
 * the test fails; a negative code shows it without a test.  Error boxes
 * have the title "Error" and one OK.
 *
 * | Code | Test | Message |
 * |---|---|---|
 * | 0 | the file must not exist | "Already exists the file ...", asks to overwrite |
 * | 1 | the file exists | "Can't find the file ..." |
 * | 2 | the file can be written: a new one is created and removed again, an existing one only opened | "Can't create the file ..." |
 * | 4 | the file is readable | "Can't read the file ..." |
 * | 6 | the file can be created with mode 0600; it is then removed, also when it existed before (kept for compatibility) | "Can't open the file ..." |
 * | 8 | none | "Invalid format of the file ..." |
 * | 10 | none | "Has been changed the file ...", asks to overwrite |
 * | 11 | none | "Not enough memory to load the program ..." |
 *
 * The questions of codes 0 and 10 are warnings with the buttons Overwrite
 * and Cancel; Overwrite removes the file.  Messages are cut at 999 bytes.
 *
 * \param w    Parent widget, as for condit; may be NULL.
 * \param file The file name; NULL is empty.
 * \param code The message code; its sign decides whether the file is
 *             tested.
 * \return 0 when the test passed, for an unknown code, and for code 0 on a
 *         missing file; for error boxes condit's result (1 OK, 0 closed,
 *         -1 failure); for the questions 1 Overwrite (file removed),
 *         2 Cancel, 3 closed, -2 failure.
 */
int err_msg(Widget w, const char *file, int code);
/**
 * \brief By-reference form of err_msg: each scalar argument is passed by
 * pointer.
 * \param w    Points at the parent widget; NULL stands for none.
 * \param file The file name.
 * \param code Points at the message code; NULL stands for 0.
 * \return As err_msg.
 */
int err_msg_(Widget *w, const char *file, int *code);
/** \brief Shows "Insufficient memory!" in an error box and waits. */
void ins_mem(void);
/**
 * \brief Prints "Abort: <text>" on stderr and aborts the process.
 * \param text The reason; NULL is empty.
 */
void botch(const char *text) __attribute__((noreturn));

/* ---- Prompts ----------------------------------------------------------- */

/**
 * \brief Asks for one line of text.
 *
 * The field stretches with the dialog, which can be resized in width only.
 * A negative \p length asks for a password: the field starts empty, shows
 * '*' for each typed character and refuses pasting (more than one
 * character at a time); a typed character is always added at the end, and
 * a deletion removes everything from its start to the end.
 *
 * \param parent Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param title  Title and help data as for CreateDesk; NULL gives
 *               "Prompt" with the help page Interface, anchor Prompt.
 * \param label  Title above the field.
 * \param buffer Initial text (not shown for a password); receives the text
 *               on OK.
 * \param length Maximum number of characters; negative for a password.
 * \return 1 for OK; 0 for Cancel, the window manager's close or a desk
 *         that went away.
 */
int inputa(Widget parent, const char *title, const char *label, char *buffer, int length);
/**
 * \brief Asks for text of several lines.
 *
 * The field stretches to the right and bottom of the dialog, which can be
 * resized freely.
 *
 * \param parent  Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param title   Title and help data as for CreateDesk; NULL gives
 *                "Prompt" with the help page Interface, anchor Prompt.
 * \param label   Title above the field.
 * \param buffer  Initial text; receives the text on OK.
 * \param length  Maximum number of characters.
 * \param columns Width of the field in characters.
 * \param rows    Height of the field in rows.
 * \return 1 for OK; 0 for Cancel, the window manager's close or a desk
 *         that went away.
 */
int inputb(Widget parent, const char *title, const char *label, char *buffer, int length,
           int columns, int rows);
/**
 * \brief Asks for a line of text and, below it, text of several lines.
 * \param parent  Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param title   Title and help data as for CreateDesk (NULL: no title).
 * \param label1  Title above the first field.
 * \param buffer1 Initial text of the first field; receives it on OK.
 * \param length1 Maximum number of characters of the first field.
 * \param label2  Title above the second field.
 * \param buffer2 Initial text of the second field; receives it on OK.
 * \param length2 Maximum number of characters of the second field.
 * \param columns Width of both fields in characters; they stretch to the
 *                right.
 * \param rows    Height of the second field in rows; it stretches to the
 *                bottom.
 * \return 1 for OK; 0 for Cancel, the window manager's close or a desk
 *         that went away.
 */
int inputc(Widget parent, const char *title, const char *label1, char *buffer1, int length1,
           const char *label2, char *buffer2, int length2, int columns, int rows);
/**
 * \brief Asks for one line of text and a yes/no choice by a check box.
 *
 * The dialog can be resized in width only.
 *
 * \param parent Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param title  Title and help data as for CreateDesk (NULL: no title).
 * \param label  Title above the field.
 * \param buffer Initial text; receives the text on OK.
 * \param length Maximum number of characters.
 * \param check  Text of the check box.
 * \param flag   In: initial state of the check box; out, on OK: its state.
 *               May be NULL.
 * \return 1 for OK; 0 for Cancel, the window manager's close or a desk
 *         that went away.
 */
int inputd(Widget parent, const char *title, const char *label, char *buffer, int length,
           const char *check, Boolean *flag);
/**
 * \brief Asks for three texts: two fields, a line, and a third field that
 * stretches to the bottom.
 *
 * Rows and columns of each field are those of SetEditMultiField (a negative
 * value stretches the field to the edge); the third field's rows are
 * negated, and with more than one row its lines wrap.  The work area is
 * sized to about 350 x 200 pixels.
 *
 * \param parent   Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param title    Title and help data as for CreateDesk (NULL: no title).
 * \param label1   Title above the first field.
 * \param buffer1  Initial text of the first field; receives it on OK.
 * \param length1  Maximum number of characters of the first field.
 * \param columns1 Width of the first field in characters.
 * \param rows1    Height of the first field in rows.
 * \param label2   Title above the second field.
 * \param buffer2  Initial text of the second field; receives it on OK.
 * \param length2  Maximum number of characters of the second field.
 * \param columns2 Width of the second field in characters.
 * \param rows2    Height of the second field in rows.
 * \param label3   Title above the third field.
 * \param buffer3  Initial text of the third field; receives it on OK.
 * \param length3  Maximum number of characters of the third field.
 * \param columns3 Width of the third field in characters.
 * \param rows3    Height of the third field in rows.
 * \return 1 for OK; 0 for Cancel, the window manager's close or a desk
 *         that went away.
 */
int inpute(Widget parent, const char *title,
           const char *label1, char *buffer1, int length1, int columns1, int rows1,
           const char *label2, char *buffer2, int length2, int columns2, int rows2,
           const char *label3, char *buffer3, int length3, int columns3, int rows3);
/**
 * \brief Asks for a text and returns a copy of it.
 * \param mode    0 several lines (inputb, 50 columns, 10 rows, up to 4095
 *                characters); 1 one line (inputa, up to 2047 characters);
 *                1001 one hidden line, a password.  Other modes give NULL
 *                at once.
 * \param parent  Parent widget of the desk, as for CreateDesk; may be NULL.
 * \param initial Initial text, or NULL (never shown for a password).
 * \param label   Title above the field.
 * \param title   Window title; one without '|' gets the help page
 *                Interface, anchor Prompt; NULL gives "Prompt".
 * \return The text from XtMalloc, which the caller frees with XtFree, or
 *         NULL for Cancel or an unknown mode.
 */
char *XwkGetUserText(int mode, Widget parent, const char *initial, const char *label,
                     const char *title);

/** Flag of XwkTextVerifyCallback: digits only. */
#define XWK_VERIFY_DIGITS      2
/** Flag of XwkTextVerifyCallback: digits and the decimal point only. */
#define XWK_VERIFY_NUMBER      4
/** Flag of XwkTextVerifyCallback: hexadecimal digits only. */
#define XWK_VERIFY_HEX         8
/** Flag of XwkTextVerifyCallback: a path; as XWK_VERIFY_IDENTIFIER, but '/'
 * stays. */
#define XWK_VERIFY_PATH        16
/** Flag of XwkTextVerifyCallback: a name; white space and punctuation other
 * than `$(){}[].,~-+` become '_'. */
#define XWK_VERIFY_IDENTIFIER  32
/**
 * \brief Modify-verify callback that keeps a text to digits, numbers or
 * names.
 *
 * Add it as XmNmodifyVerifyCallback with the XWK_VERIFY_ flags, or'ed, as
 * client data.  Only the first character of the inserted text is looked
 * at, so a pasted "1a" passes XWK_VERIFY_DIGITS.  The digit flags refuse
 * the change (doit False); the name flags replace the character in place,
 * and leave a newline alone.
 *
 * \param w         The text widget (not used).
 * \param flags     The XWK_VERIFY_ flags, cast to XtPointer.
 * \param call_data The XmTextVerifyCallbackStruct of the change.
 */
void XwkTextVerifyCallback(Widget w, XtPointer flags, XtPointer call_data);


/**
 * \brief Lets the user pick one item from a list, in a modal dialog.
 *
 * The dialog shows the items in a tree list under a title with the column
 * title; a double click or Return on an item, or OK, picks the selected
 * item.  With \p sort the items are sorted and a click on the title
 * reverses the order.
 *
 * \param widget       Widget whose shell owns the dialog; its window shows
 *                     a watch cursor while the dialog is built.
 * \param title        Title of the dialog, with help data as for CreateDesk.
 * \param column_title Title of the list's column.
 * \param items        The items' texts, copied.
 * \param count        Number of \p items.
 * \param sort         True: the items are shown sorted.
 * \return The number of the item picked, from 1 (its index in \p items
 *         plus 1); 0 for Cancel, the window manager's close or a dialog
 *         that went away.
 */
int XwkSelectItemDialog(Widget widget, const char *title, const char *column_title, char **items,
                        int count, Boolean sort);
/**
 * \brief Lets the user pick several items from a list, in a modal dialog.
 *
 * All items start selected; the button in the column's title selects all
 * or none, and the title tells how many are selected: "%s (%d selected)".
 *
 * \param widget       Widget whose shell owns the dialog.
 * \param title        Title of the dialog, with help data as for CreateDesk.
 * \param column_title Title of the list's column.
 * \param list         In: the items' texts (char **, cast), copied.  Out,
 *                     after OK: an array from XtCalloc of the numbers of the
 *                     items picked (index plus 1, cast to XtPointer), which
 *                     the caller frees with XtFree; NULL if none was picked.
 * \param count        In: the number of items; out, after OK: the number
 *                     picked.
 * \param sort         True: the items are shown sorted.
 * \return True for OK; False for Cancel, the window manager's close or a
 *         dialog that went away (\p list and \p count are left alone).
 */
Boolean XwkSelectListDialog(Widget widget, const char *title, const char *column_title,
                            XtPointer **list, int *count, Boolean sort);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
