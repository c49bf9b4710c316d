/**
 * \file
 * \ingroup forms
 * \brief Desk forms: a shell with a work area on which controls are placed
 * in centimetres, and an action area of push buttons below it.
 *
 * A client creates a desk, places controls on it with the `Set...`
 * functions, opens it and then polls UseDesk, which runs one event at a
 * time and hands back the number of the button pressed:
 *
 * \code
 * XwkDeskRec *desk = NULL;
 * int button = 0;
 * CreateDesk(NULL, 2.0, 2.0, "Settings|settings#general", &desk);
 * ... controls ...
 * OpenDesk(desk);
 * do
 *     UseDesk(desk, &button);
 * while (button == 0);
 * if (button != -1)
 *     CloseDesk(desk);
 * \endcode
 *
 * **Buttons.** With the default labels the action area shows OK, Cancel
 * and Help: OK gives 1, Cancel gives 2, Help opens the desk's help page and
 * gives no number.  The last button of a desk is always its help button.
 * The window manager's close (`WM_DELETE_WINDOW`) presses the desk's cancel
 * button, also when the desk never had the keyboard focus, so UseDesk then
 * reports the cancel button's number (2 with the default buttons).
 *
 * **Titles.** A title string carries help data: `"Title|page#anchor"`.
 * Only the first '|' splits; without one the whole string is also the help
 * page.  A leading '#' is dropped from the window title (`"#Foo"` shows
 * `Foo`, with anchor `Foo` and no page).  White space is removed from page
 * and anchor.
 *
 * **Units.** Positions and sizes of the interface are in centimetres, at a
 * fixed scale of 28 pixels per centimetre (xwkCmWidth, xwkCmHeight).  Every
 * control is attached to the top and left of the work area at its pixel
 * position; nothing flows.
 *
 * **Controls.** Controls sit on a desk's work area at positions in
 * centimetres from its top left corner.  Each `Set...` call gives back a
 * record by its last argument: NULL when the desk is not valid or memory
 * ran out (no message is shown).  The output pointer may be NULL: the
 * control is made all the same.  The record belongs to the control and is
 * freed when its widget is destroyed; never free it.  `Get...` and
 * `Change...` do nothing on a record whose desk was closed.  Item strings
 * are packed: one buffer of strings each ended by a zero byte, as many as
 * the count says.  Selection numbers are 1-based.  Labels and item texts go
 * through the message catalogue (smi18n_gettext) unless stated otherwise.
 *
 * **By-reference forms.** A lower-case name with a trailing underscore
 * (createdesk_, setlabel_, ...) is the same call with each scalar argument
 * (desk, item, widget, number) passed by pointer; a NULL pointer stands for
 * 0 or NULL.  Strings, arrays, value pointers and outputs are passed as in
 * the plain form.
 */
#ifndef XWK_DESK_H
#define XWK_DESK_H

#include <X11/Intrinsic.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/**
 * \brief A desk: its widgets, its buttons and the last button pressed.
 *
 * Allocated by CreateDesk and freed by CloseDesk (or when its shell is
 * destroyed).  Clients read the widget fields to add their own widgets;
 * the other fields are the desk's own.
 */
typedef struct _XwkDeskRec {
    struct _XwkDeskRec *self;   /**< Validity mark: the record's own address; cleared by CloseDesk. */
    Widget form;                /**< Application shell (first desk of a process), otherwise the form in the desk's shell. */
    Widget panes;               /**< The paned window "xwkPanedWindow" holding work area and action area. */
    Widget work;                /**< The form holding the controls (the work area). */
    Widget action;              /**< The action area form "xwkActionArea", once the desk is open. */
    int result;                 /**< Number of the last button pressed, 0 if none; read and cleared by UseDesk. */
    int cancel_index;           /**< Number of the button labelled Cancel, Close or No; 1 if there is none.  Informational only. */
    Widget *buttons;            /**< The action buttons, owned by the desk (XtFree'd by CloseDesk). */
    int nbuttons;               /**< Number of entries in buttons. */
    unsigned short origin_x,    /**< Desk position, x in pixels. */
                   origin_y;    /**< Desk position, y in pixels. */
    unsigned short extent_w,    /**< Width of the work area showing all controls so far, in pixels. */
                   extent_h;    /**< Height of the work area showing all controls so far, in pixels. */
    char *help;                 /**< Help part of the title until the desk opens, then NULL. */
} XwkDeskRec;

/** Handle of a desk: a pointer to its record. */
typedef XwkDeskRec *XwkDesk;

/** One entry of a callback table for XwkCreateActionArea: the activate
 * callback of one button and its client data. */
typedef struct {
    XtCallbackProc callback;    /**< Activate callback of the button. */
    XtPointer closure;          /**< Client data passed to callback. */
} XwkActionCallbackRec;

struct _XwkDeskItem;  /* a control record, below */

/**
 * \brief Creates a desk, not yet shown.
 *
 * The first desk of a process (xwkTopLevel still NULL) starts Xt with
 * XtVaAppInitialize on xargc and xargv, then calls XwkInitialize; its form
 * is the application shell and \p parent is ignored.  Later desks get a
 * top-level shell below xwkTopLevel when \p parent is NULL, or a primary
 * application modal form dialog on the shell of \p parent; their shell has
 * a border and a title and may be moved and closed, not resized.
 *
 * Destroying the shell of such a desk closes the desk; after the first
 * desk's shell is destroyed, UseDesk gives -1.  The window manager's close
 * presses the desk's cancel button (see UseDesk).
 *
 * \param parent Widget whose shell owns a modal desk, or NULL.
 * \param x_cm   Position of the desk, x in centimetres (not its size).
 * \param y_cm   Position of the desk, y in centimetres.
 * \param title  `"Title|page#anchor"`: the window title (through the
 *               message catalogue, except on the first desk) and help data;
 *               may be NULL.
 * \param out    Receives the desk, or NULL when memory ran out.  Nothing is
 *               done when \p out is NULL.  Free the desk with CloseDesk.
 */
void CreateDesk(Widget parent, float x_cm, float y_cm, const char *title, XwkDeskRec **out);
/**
 * \brief Opens a desk with the default buttons OK, Cancel and Help.
 *
 * The same as OpenDeskExt(desk, NULL, 0).
 *
 * \param desk The desk; an invalid one is ignored.
 */
void OpenDesk(XwkDeskRec *desk);
/**
 * \brief Builds the action area and shows the desk.
 *
 * Sizes the work area to show all controls placed so far (unless the shell
 * has resize handles), shows the desk and waits until its window is up,
 * hands the help data of the title to the help client and makes the desk
 * the default parent of message boxes (xwkParentWidget).  Controls added
 * afterwards do not resize the desk.
 *
 * The buttons are numbered from 1; the last one is always the help button
 * and never gives a number, even when it is the only one.  See
 * XwkCreateActionArea for mnemonics and the default and cancel buttons.
 *
 * \param desk   The desk; an invalid one is ignored.
 * \param labels Packed button labels; NULL or empty (or \p count <= 0)
 *               gives `"&OK"`, `"&Cancel"`, `"&Help"`.
 * \param count  Number of labels.
 */
void OpenDeskExt(XwkDeskRec *desk, const char *labels, int count);
/**
 * \brief Runs one event and reports the button pressed during it.
 *
 * Blocks until an event comes.  The window manager's close
 * (`WM_DELETE_WINDOW`) presses the desk's cancel button, also when the desk
 * never had the keyboard focus, so it reports the cancel button's number
 * (2 with the default buttons).  A desk whose cancel button is its last
 * button (as with the labels OK and Cancel) opens help on close instead and
 * reports 0, as the last button is always the help button.
 *
 * Callbacks run inside this call and may close the desk: test for -1 first
 * and then stop using the desk.
 *
 * \param desk The desk.
 * \param out  Receives the number of the button pressed (from 1), 0 if
 *             none, or -1 when the desk is not valid, was closed or its
 *             shell is being destroyed.  Nothing is done when NULL.
 */
void UseDesk(XwkDeskRec *desk, int *out);
/**
 * \brief Closes a desk: frees its record and destroys its shell.
 *
 * The records of its controls go with their widgets.  xwkParentWidget
 * becomes the parent of the desk's shell.  An invalid or already closed
 * desk is ignored, so closing from a callback and again afterwards is
 * harmless.
 *
 * \param desk The desk; invalid afterwards.
 */
void CloseDesk(XwkDeskRec *desk);
/**
 * \brief Size of a control in centimetres, for placing the next one.
 * \param item Any control record; NULL gives 0 by 0.
 * \param w_cm Receives the width; may be NULL.
 * \param h_cm Receives the height; may be NULL.
 */
void GetDeskItemSize(struct _XwkDeskItem *item, float *w_cm, float *h_cm);
/**
 * \brief Sets xwkParentWidget, the default parent of message boxes.
 *
 * OpenDeskExt and CloseDesk set it too.
 *
 * \param w The new default parent, or NULL for the top level.
 */
void XwkSetParentWidget(Widget w);
/**
 * \brief Creates a row of push buttons in a form "xwkActionArea".
 *
 * OpenDeskExt uses it for a desk; it also serves outside a desk, with a
 * zeroed record to receive the buttons.  A single button stands at the
 * left; with several, the last one stands apart at the right edge.  All
 * buttons get the width of the widest plus about one character.
 *
 * The first '&' or '_' of a label marks the next character as mnemonic
 * and, lower-cased, as accelerator.  When the parent of \p parent is a
 * bulletin board (as in a desk), a label OK or Yes (any case, before
 * translation) becomes its default button and Cancel, Close or No its
 * cancel button.  Without such labels the first button is default, and
 * with more than two buttons the second is cancel; with at most two the
 * default button is also the cancel button.
 *
 * \param desk      Record that receives buttons, nbuttons and cancel_index
 *                  (its previous buttons array is freed); required.
 * \param parent    Parent of the area, normally the desk's paned window.
 * \param labels    Packed button labels; NULL or empty (or \p count <= 0)
 *                  gives `"&OK"`, `"&Cancel"`, `"&Help"`.
 * \param callbacks Table of \p count activate callbacks, one per button, or
 *                  NULL for the desk's own: button i stores i in the desk's
 *                  result, the last one calls the help callback of panes.
 * \param count     Number of labels.
 * \param closure   XmNuserData of every button; with NULL \p callbacks the
 *                  desk, whose extents and minimum width then take the
 *                  buttons into account.
 * \return The unmanaged area (the caller manages it), or NULL when \p desk
 *         or \p parent is NULL.  The buttons array belongs to the record:
 *         CloseDesk frees it, outside a desk free it with XtFree.
 */
Widget XwkCreateActionArea(XwkDeskRec *desk, Widget parent, const char *labels,
                           XwkActionCallbackRec *callbacks, int count, XtPointer closure);
/**
 * \brief The buttons of the action area of a paned window.
 * \param panes A paned window, such as a desk's panes.
 * \param out   Receives the children of the last form child of \p panes
 *              (the widget's own list: do not free it), or NULL.
 * \return The number of buttons, 0 when \p panes is not a paned window or
 *         holds no form.
 */
int XwkGetActionButtons(Widget panes, WidgetList *out);

/**
 * \brief Centimetres to pixels, at the scale of xwkCmWidth x xwkCmHeight.
 *
 * Rounded and kept in 16 bits: negative or large values wrap around.
 * Before start-up (XwkInitialize) the scale is 0 and so are the results.
 *
 * \param x_cm Horizontal value in centimetres.
 * \param y_cm Vertical value in centimetres.
 * \param x    Receives x_cm in pixels; may be NULL.
 * \param y    Receives y_cm in pixels; may be NULL.
 */
void cm_pix(float x_cm, float y_cm, unsigned short *x, unsigned short *y);
/**
 * \brief Pixels to centimetres, at the scale of xwkCmWidth x xwkCmHeight.
 *
 * Needs the scale set at start-up; 28 pixels give exactly 1.0.
 *
 * \param x    Horizontal value in pixels.
 * \param y    Vertical value in pixels.
 * \param x_cm Receives x in centimetres; may be NULL.
 * \param y_cm Receives y in centimetres; may be NULL.
 */
void pix_cm(unsigned short x, unsigned short y, float *x_cm, float *y_cm);
/**
 * \brief A horizontal length in centimetres as pixels (see cm_pix).
 * \param cm Length in centimetres.
 * \return The length in pixels, rounded, in 16 bits.
 */
unsigned short XwkWidth(float cm);
/**
 * \brief A vertical length in centimetres as pixels (see cm_pix).
 * \param cm Length in centimetres.
 * \return The length in pixels, rounded, in 16 bits.
 */
unsigned short XwkHeight(float cm);

/**
 * \brief By-reference form of CreateDesk: each scalar argument is passed by
 * pointer.
 * \param parent Points at the parent widget or NULL.
 * \param x_cm   Points at the x position in centimetres.
 * \param y_cm   Points at the y position in centimetres.
 * \param title  Title and help data, as for CreateDesk.
 * \param out    Receives the desk, or NULL when memory ran out.
 */
void createdesk_(Widget *parent, float *x_cm, float *y_cm, const char *title, XwkDeskRec **out);
/**
 * \brief By-reference form of OpenDesk: the desk is passed by pointer.
 * \param desk Points at the desk.
 */
void opendesk_(XwkDeskRec **desk);
/**
 * \brief By-reference form of UseDesk: the desk is passed by pointer.
 * \param desk Points at the desk.
 * \param out  Receives the button number, 0 or -1, as for UseDesk.
 */
void usedesk_(XwkDeskRec **desk, int *out);
/**
 * \brief By-reference form of CloseDesk: the desk is passed by pointer.
 * \param desk Points at the desk.
 */
void closedesk_(XwkDeskRec **desk);
/**
 * \brief By-reference form of GetDeskItemSize: the item is passed by
 * pointer.
 * \param item Points at the control record.
 * \param w_cm Receives the width in centimetres.
 * \param h_cm Receives the height in centimetres.
 */
void getdeskitemsize_(struct _XwkDeskItem **item, float *w_cm, float *h_cm);

/* ---- Desk controls ------------------------------------------------------ */

/**
 * \brief The head of every control record.
 *
 * Created by the `Set...` functions, freed with the control's widget.
 */
typedef struct _XwkDeskItem {
    XwkDeskRec *desk;           /**< Owner desk; the record is usable while the desk is open. */
    unsigned short width,       /**< Width of the control in pixels, for GetDeskItemSize. */
                   height;      /**< Height of the control in pixels, for GetDeskItemSize. */
    Widget widget;              /**< Outermost widget of the control. */
    XtTranslations translations;   /**< Translations of the main widget at creation; only stored. */
} XwkDeskItem;

/** Record of a push button (SetButton). */
typedef struct {
    XwkDeskItem item;           /**< Common head. */
    int pressed;                /**< Set to 1 by activation, read and cleared by GetButton. */
} XwkButtonItem;

/** Record of a radio box (SetRadioBox) or check box (SetCheckBox). */
typedef struct {
    XwkDeskItem item;           /**< Common head. */
    Widget *toggles;            /**< The toggle buttons, owned by the record. */
    Widget title;               /**< Frame title label, or NULL. */
    int count;                  /**< Number of toggles. */
} XwkToggleItem;

/** Record of a scrolled list (SetScrolledList, SetScrolledListExt). */
typedef struct {
    XwkDeskItem item;           /**< Common head. */
    Widget list;                /**< The XmList. */
    Widget title;               /**< Title label, or NULL. */
    int selected;               /**< First entry of the initial selection, after clamping. */
} XwkListItem;

/** Record of an option menu (SetOptionMenu). */
typedef struct {
    XwkDeskItem item;           /**< Common head. */
    Widget pulldown;            /**< The pulldown menu. */
    Widget *buttons;            /**< One push button per item, owned by the record. */
    int count;                  /**< Number of items. */
    int selected;               /**< Chosen item, 1-based (0 without items); follows activation. */
} XwkOptionItem;

/** Record of an edit field (SetEditField, SetEditMultiField). */
typedef struct {
    XwkDeskItem item;           /**< Common head; its widget is the field's form "xwkForm". */
    Widget text;                /**< The text widget, or the drawn button of a display-only field. */
    Widget title;               /**< Title label, or NULL. */
    void *value;                /**< The client's initial value pointer. */
    void *reserved;             /**< Unused. */
    int type;                   /**< Value type: 1 long, 2 and 3 float, else string; < 0 display only. */
    int length;                 /**< Maximum number of characters. */
    int rows;                   /**< Rows as given to SetEditMultiField (1 for SetEditField). */
    Pixel background;           /**< Background of the text widget at creation. */
} XwkEditItem;

/** Edit field type, by absolute value: the value is a `long`, shown with
 * `"%ld"`. */
#define XWK_FIELD_LONG   1
/** Edit field type, by absolute value: the value is a `float` (3 is a float
 * too). */
#define XWK_FIELD_FLOAT  2
/** Edit field type, by absolute value: the value is a character string
 * (any type other than 1, 2 and 3 is a string). */
#define XWK_FIELD_STRING 4

/**
 * \brief Places a label.
 * \param desk The desk.
 * \param x    Position in centimetres from the left of the work area.
 * \param y    Position in centimetres from the top of the work area.
 * \param text The text; `"\n"` breaks the line.
 * \param out  Receives the record, or NULL on failure; may be NULL.
 */
void SetLabel(XwkDeskRec *desk, float x, float y, const char *text, XwkDeskItem **out);
/**
 * \brief Places a push button, polled with GetButton.
 *
 * The recorded size counts the margins, shadow and highlight once more on
 * top of the widget's own size, as existing layouts rely on it.
 *
 * \param desk The desk.
 * \param x    Position in centimetres from the left of the work area.
 * \param y    Position in centimetres from the top of the work area.
 * \param text The button label; `"\n"` breaks the line.
 * \param out  Receives the record, or NULL on failure; may be NULL.
 */
void SetButton(XwkDeskRec *desk, float x, float y, const char *text, XwkDeskItem **out);
/**
 * \brief Whether a button was pressed since the last call.
 * \param item    A SetButton record.
 * \param pressed Receives 1 if pressed, else 0; the flag is then cleared.
 */
void GetButton(XwkDeskItem *item, int *pressed);
/**
 * \brief Places a separator line.
 *
 * The position is moved by the shadow thickness of the work area.  A
 * separator does not enlarge the desk's extents.
 *
 * \param desk   The desk.
 * \param x      Position in centimetres from the left of the work area.
 * \param y      Position in centimetres from the top of the work area.
 * \param length Length in centimetres; negative for a vertical line.  A
 *               length beyond the screen's size reaches up to the edge of
 *               the work area (right edge at offset x, or bottom edge).
 * \param style  2 etched out, 3 single, 4 double, 5 single dashed,
 *               6 double dashed, any other etched in.
 * \param out    Receives the record, or NULL on failure; may be NULL.
 */
void SetSeparator(XwkDeskRec *desk, float x, float y, float length, int style,
                  XwkDeskItem **out);
/**
 * \brief Places a radio box: a titled frame of toggles, one of them set.
 * \param desk     The desk.
 * \param x        Position in centimetres from the left of the work area.
 * \param y        Position in centimetres from the top of the work area.
 * \param title    Frame title; NULL or empty for none.
 * \param items    Packed item texts.
 * \param count    Number of items; a negative count stretches the frame to
 *                 the right edge of the work area.
 * \param selected Number of the toggle set (1-based); 0 or beyond the
 *                 count sets none.
 * \param out      Receives the record, or NULL on failure; may be NULL.
 */
void SetRadioBox(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                 int count, int selected, XwkDeskItem **out);
/**
 * \brief Reads a radio box.
 * \param item     A SetRadioBox record.
 * \param selected Receives the number of the first set toggle, 0 if none.
 */
void GetRadioBox(XwkDeskItem *item, int *selected);
/**
 * \brief Sets one toggle of a radio box and clears the others, without
 * notification.
 * \param item     A SetRadioBox record.
 * \param selected Number of the toggle to set; 0 clears all.
 */
void ChangeRadioBox(XwkDeskItem *item, int selected);
/**
 * \brief Places a check box: toggles each on or off.
 *
 * With more than one item (or a negative count other than -1) the toggles
 * stand in a titled frame; a single toggle has no frame and shows no title.
 *
 * \param desk   The desk.
 * \param x      Position in centimetres from the left of the work area.
 * \param y      Position in centimetres from the top of the work area.
 * \param title  Frame title; NULL or empty for none.
 * \param items  Packed item texts.
 * \param count  Number of items; a negative count stretches the frame to
 *               the right edge of the work area.
 * \param states \p count initial states, non-zero for on, or NULL for all
 *               off.
 * \param out    Receives the record, or NULL on failure; may be NULL.
 */
void SetCheckBox(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                 int count, int *states, XwkDeskItem **out);
/**
 * \brief Reads a check box.
 * \param item   A SetCheckBox record.
 * \param states Receives one state per toggle, 0 or 1; must hold the
 *               record's count of ints.
 */
void GetCheckBox(XwkDeskItem *item, int *states);
/**
 * \brief Places an option menu.
 *
 * Each item becomes a push button named by its text (not translated, and
 * so also its label unless resources say otherwise).
 *
 * \param desk     The desk.
 * \param x        Position in centimetres from the left of the work area.
 * \param y        Position in centimetres from the top of the work area.
 * \param title    Label shown before the menu.
 * \param reserved Unused.
 * \param items    Packed item texts.
 * \param count    Number of items.
 * \param selected Item shown first, 1-based, clamped to 1 .. count.
 * \param out      Receives the record, or NULL on failure; may be NULL.
 */
void SetOptionMenu(XwkDeskRec *desk, float x, float y, const char *title, int reserved,
                   const char *items, int count, int selected, XwkDeskItem **out);
/**
 * \brief Reads an option menu.
 * \param item     A SetOptionMenu record.
 * \param selected Receives the chosen item, 1-based (0 without items).
 */
void GetOptionMenu(XwkDeskItem *item, int *selected);
/**
 * \brief Places a single-selection scrolled list.
 *
 * SetScrolledListExt with browse selection and \p selected as a position.
 *
 * \param desk     The desk.
 * \param x        Position in centimetres from the left of the work area.
 * \param y        Position in centimetres from the top of the work area.
 * \param title    Title above the list, NULL or empty for none.
 * \param items    Packed item texts (not translated).
 * \param count    Number of items.
 * \param visible  Number of visible rows.
 * \param selected Position selected and scrolled into view, clamped to
 *                 1 .. count (0 selects the first).
 * \param out      Receives the record, or NULL on failure; may be NULL.
 */
void SetScrolledList(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                     int count, int visible, int selected, XwkDeskItem **out);
/**
 * \brief Places a scrolled list with a given selection policy.
 *
 * The first element of \p selected is clamped to 1 .. count in the
 * caller's array, also when it is a flag: with the multiple policies the
 * first item is then always selected.
 *
 * \param desk     The desk.
 * \param x        Position in centimetres from the left of the work area.
 * \param y        Position in centimetres from the top of the work area.
 * \param title    Title above the list (translated), NULL or empty for
 *                 none.
 * \param items    Packed item texts (not translated).
 * \param count    Number of items.
 * \param visible  Number of visible rows (at least 1).
 * \param selected With XmMULTIPLE_SELECT or XmEXTENDED_SELECT, \p count
 *                 flags, non-zero for selected; otherwise its first element
 *                 is the position selected and scrolled into view.  May be
 *                 NULL for no selection.
 * \param policy   XmNselectionPolicy of the list.
 * \param out      Receives the record, or NULL on failure; may be NULL.
 */
void SetScrolledListExt(XwkDeskRec *desk, float x, float y, const char *title,
                        const char *items, int count, int visible, int *selected, int policy,
                        XwkDeskItem **out);
/**
 * \brief Reads the first selected position of a scrolled list.
 * \param item     A scrolled list record.
 * \param selected Receives the position (1-based), 0 if none is selected.
 */
void GetScrolledList(XwkDeskItem *item, int *selected);
/**
 * \brief Reads all selected positions of a scrolled list.
 * \param item      A scrolled list record.
 * \param positions Receives the positions from XmListGetSelectedPos, or
 *                  NULL if none; the caller frees them with XtFree.
 * \param count     Receives the number of positions.
 */
void GetScrolledListExt(XwkDeskItem *item, int **positions, int *count);
/**
 * \brief Selects a position of a scrolled list, without notification.
 * \param item     A scrolled list record.
 * \param position Position to select (1-based).
 */
void ChangeScrolledList(XwkDeskItem *item, int position);
/**
 * \brief Adds positions to the selection of a scrolled list, without
 * notification and without clearing the present selection.
 * \param item      A scrolled list record.
 * \param positions Positions to select (1-based).
 * \param count     Number of positions; at most the list's item count are
 *                  used.
 */
void ChangeScrolledListExt(XwkDeskItem *item, int *positions, int count);
/**
 * \brief Places a one-line edit field with an optional title.
 *
 * SetEditMultiField with one row.  Up and Down arrows move to the previous
 * or next field.
 *
 * \param desk    The desk.
 * \param x       Position in centimetres from the left of the work area.
 * \param y       Position in centimetres from the top of the work area.
 * \param label   Title; NULL, empty or a single blank for none.
 * \param gap     < 0: title above the field; 0: field right behind the
 *                title; > 0: field at \p gap cm, plus \p x once more, from
 *                the control's left edge (kept for existing layouts).
 * \param value   Initial value, by \p type: `long *`, `float *` or a
 *                string; read at creation only.
 * \param type    XWK_FIELD_LONG, XWK_FIELD_FLOAT or XWK_FIELD_STRING; a
 *                negative type makes a display-only field.
 * \param length  Maximum number of characters.
 * \param columns Width in characters; <= 0 stretches the field to the
 *                right edge of the work area, and 0 also makes it show
 *                only (not editable, no cursor, not in the tab order).
 * \param out     Receives the record, or NULL on failure; may be NULL.
 */
void SetEditField(XwkDeskRec *desk, float x, float y, const char *label, float gap,
                  void *value, int type, int length, int columns, XwkDeskItem **out);
/**
 * \brief Places an edit field of one or several rows with an optional
 * title.
 *
 * Several rows give a scrolled text in a frame.  A display-only field
 * (negative \p type) is a sunken label of one row; an empty value leaves it
 * blank but as wide as "ABC".
 *
 * \param desk    The desk.
 * \param x       Position in centimetres from the left of the work area.
 * \param y       Position in centimetres from the top of the work area.
 * \param label   Title; NULL, empty or a single blank for none.
 * \param gap     < 0: title above the field; 0: field right behind the
 *                title; > 0: field at \p gap cm, plus \p x once more, from
 *                the control's left edge (kept for existing layouts).
 * \param value   Initial value, by \p type: `long *`, `float *` or a
 *                string; read at creation only.
 * \param type    XWK_FIELD_LONG, XWK_FIELD_FLOAT or XWK_FIELD_STRING; a
 *                negative type makes a display-only field.
 * \param length  Maximum number of characters.
 * \param rows    Number of rows; negative also stretches the field to the
 *                bottom edge of the work area, and with negative \p columns
 *                adds a horizontal scroll bar.
 * \param columns Width in characters; <= 0 stretches the field to the
 *                right edge of the work area, and 0 also makes it show
 *                only (not editable, no cursor, not in the tab order).
 * \param out     Receives the record, or NULL on failure; may be NULL.
 */
void SetEditMultiField(XwkDeskRec *desk, float x, float y, const char *label, float gap,
                       void *value, int type, int length, int rows, int columns,
                       XwkDeskItem **out);
/**
 * \brief Reads an edit field into the client's variable.
 *
 * Does nothing for a display-only field.
 *
 * \param item  An edit field record.
 * \param value Receives the text by the field's type: a `long` (strtol), a
 *              `float` (strtod), or at most length characters copied as by
 *              strncpy, which leaves a text of length characters unended:
 *              give a zeroed buffer of length + 1 bytes.
 */
void GetEditField(XwkDeskItem *item, void *value);
/**
 * \brief Shows a new value in an edit field; the cursor of a one-row field
 * goes to the end.
 *
 * Does nothing for a display-only field.
 *
 * \param item  An edit field record.
 * \param value The value by the field's type, as for SetEditField.
 */
void ChangeEditField(XwkDeskItem *item, void *value);

/**
 * \brief Picks one field of a ',' or ';' separated list, quotes active.
 *
 * GetParameterExt with a mode other than 16.
 *
 * \param source      The list.
 * \param destination Receives the field; must hold strlen(source) + 1.
 * \param index       Field number |index| from 1; a negative index asks
 *                    silently.
 * \return The number of fields ended (\p index when reached), or 0 after
 *         the error box of a positive index that was not reached.
 */
int GetParameter(const char *source, char *destination, int index);
/**
 * \brief Picks field number |index| (from 1) of a ',' or ';' separated
 * list.
 *
 * White space after a separator is skipped.  Outside \p mode 16, double
 * and single quotes quote: an opening quote drops what the field held so far, and the
 * closing one ends the string there (what follows it lies behind the zero
 * byte).  A backslash gives a newline before 'n', a tab before 't', else
 * the next character.  A positive index that is not reached opens an error
 * box naming xwkConfigFileName and xwkConfigFileLine when they are set.
 *
 * \param source      The list; NULL gives 0.
 * \param destination Receives the field; must hold strlen(source) + 1.
 * \param index       Field number |index| from 1; a negative index asks
 *                    silently.
 * \param mode        16 takes quotes as plain characters.
 * \return The number of fields ended (\p index when reached), or 0 after
 *         an error box.
 */
int GetParameterExt(const char *source, char *destination, int index, int mode);
/**
 * \brief Splits a command line into words.
 *
 * Words are separated by white space; single and double quotes group and
 * vanish; a backslash makes the next character literal.  An empty string
 * gives one empty word.
 *
 * \param string The command line.
 * \return A malloc'ed NULL-ended array of strdup'ed words, or NULL for a
 *         NULL string or when memory ran out.  Free it with
 *         XwkDestroyArgList.
 */
char **XwkCreateArgList(const char *string);
/**
 * \brief Frees an array of XwkCreateArgList with its words.
 * \param args The array, or NULL.
 */
void XwkDestroyArgList(char **args);
/**
 * \brief Turns an accelerator text into a translation string.
 *
 * The text is split at its first '-' (or, without one, its first '+'):
 * `"Ctrl-O"` gives `"Ctrl <Key>O"`; a text without either gives
 * `"<Key>"` and the text.
 *
 * \param text The accelerator text.
 * \return A string from XtMalloc, which the caller frees with XtFree; NULL
 *         for NULL or "none" in any case.
 */
char *XwkCreateAcc(const char *text);
/**
 * \brief Copies an accelerator text for display.
 * \param text The accelerator text.
 * \return A copy from XtMalloc, which the caller frees with XtFree; NULL
 *         for NULL or exactly "none" (lower case only).
 */
char *XwkCreateAccText(const char *text);
/**
 * \brief Sets the sensitivity of a widget and its descendants by hand.
 *
 * Text widgets (XmText, XmTextField) anywhere in the tree go to
 * XwkSetTextSensitive instead, so their text stays selectable.
 *
 * \param w     The widget.
 * \param state True for sensitive.
 */
void XwkSetSensitive(Widget w, Boolean state);
/**
 * \brief Makes a text widget look disabled while its text stays
 * selectable.
 *
 * Disabling makes it not editable, hides the cursor, and takes the
 * background of its surroundings and the bottom shadow colour as
 * foreground; enabling restores the look saved then.  The widget itself
 * always stays sensitive.
 *
 * \param text  An XmText or XmTextField.
 * \param state True for the normal look, False for the disabled one.
 */
void XwkSetTextSensitive(Widget text, Boolean state);

/**
 * \brief By-reference form of SetLabel: each scalar argument is passed by
 * pointer.
 * \param desk Points at the desk.
 * \param x    Points at the x position in centimetres.
 * \param y    Points at the y position in centimetres.
 * \param text The text.
 * \param out  Receives the record, or NULL.
 */
void setlabel_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out);
/**
 * \brief By-reference form of SetButton: each scalar argument is passed by
 * pointer.
 * \param desk Points at the desk.
 * \param x    Points at the x position in centimetres.
 * \param y    Points at the y position in centimetres.
 * \param text The button label.
 * \param out  Receives the record, or NULL.
 */
void setbutton_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out);
/**
 * \brief By-reference form of GetButton: the item is passed by pointer.
 * \param item    Points at the button record.
 * \param pressed Receives 1 if pressed, else 0.
 */
void getbutton_(XwkDeskItem **item, int *pressed);
/**
 * \brief By-reference form of SetSeparator: each scalar argument is passed
 * by pointer.
 * \param desk   Points at the desk.
 * \param x      Points at the x position in centimetres.
 * \param y      Points at the y position in centimetres.
 * \param length Points at the length in centimetres.
 * \param style  Points at the style.
 * \param out    Receives the record, or NULL.
 */
void setseparator_(XwkDeskRec **desk, float *x, float *y, float *length, int *style,
                   XwkDeskItem **out);
/**
 * \brief By-reference form of SetRadioBox: each scalar argument is passed
 * by pointer.
 * \param desk     Points at the desk.
 * \param x        Points at the x position in centimetres.
 * \param y        Points at the y position in centimetres.
 * \param title    Frame title.
 * \param items    Packed item texts.
 * \param count    Points at the number of items.
 * \param selected Points at the number of the toggle set.
 * \param out      Receives the record, or NULL.
 */
void setradiobox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *selected, XwkDeskItem **out);
/**
 * \brief By-reference form of GetRadioBox: the item is passed by pointer.
 * \param item     Points at the radio box record.
 * \param selected Receives the number of the set toggle, 0 if none.
 */
void getradiobox_(XwkDeskItem **item, int *selected);
/**
 * \brief By-reference form of ChangeRadioBox: each scalar argument is
 * passed by pointer.
 * \param item     Points at the radio box record.
 * \param selected Points at the number of the toggle to set.
 */
void changeradiobox_(XwkDeskItem **item, int *selected);
/**
 * \brief By-reference form of SetCheckBox: each scalar argument is passed
 * by pointer.
 * \param desk   Points at the desk.
 * \param x      Points at the x position in centimetres.
 * \param y      Points at the y position in centimetres.
 * \param title  Frame title.
 * \param items  Packed item texts.
 * \param count  Points at the number of items.
 * \param states Initial states, or NULL.
 * \param out    Receives the record, or NULL.
 */
void setcheckbox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *states, XwkDeskItem **out);
/**
 * \brief By-reference form of GetCheckBox: the item is passed by pointer.
 * \param item   Points at the check box record.
 * \param states Receives one state per toggle.
 */
void getcheckbox_(XwkDeskItem **item, int *states);
/**
 * \brief By-reference form of SetOptionMenu: each scalar argument is passed
 * by pointer.
 * \param desk     Points at the desk.
 * \param x        Points at the x position in centimetres.
 * \param y        Points at the y position in centimetres.
 * \param title    Label shown before the menu.
 * \param reserved Points at an unused value.
 * \param items    Packed item texts.
 * \param count    Points at the number of items.
 * \param selected Points at the item shown first.
 * \param out      Receives the record, or NULL.
 */
void setoptionmenu_(XwkDeskRec **desk, float *x, float *y, const char *title, int *reserved,
                    const char *items, int *count, int *selected, XwkDeskItem **out);
/**
 * \brief By-reference form of GetOptionMenu: the item is passed by pointer.
 * \param item     Points at the option menu record.
 * \param selected Receives the chosen item, 1-based.
 */
void getoptionmenu_(XwkDeskItem **item, int *selected);
/**
 * \brief By-reference form of SetScrolledList: each scalar argument is
 * passed by pointer.
 * \param desk     Points at the desk.
 * \param x        Points at the x position in centimetres.
 * \param y        Points at the y position in centimetres.
 * \param title    Title above the list.
 * \param items    Packed item texts.
 * \param count    Points at the number of items.
 * \param visible  Points at the number of visible rows.
 * \param selected Points at the position selected.
 * \param out      Receives the record, or NULL.
 */
void setscrolledlist_(XwkDeskRec **desk, float *x, float *y, const char *title,
                      const char *items, int *count, int *visible, int *selected,
                      XwkDeskItem **out);
/**
 * \brief By-reference form of GetScrolledList: the item is passed by
 * pointer.
 * \param item     Points at the scrolled list record.
 * \param selected Receives the first selected position, 0 if none.
 */
void getscrolledlist_(XwkDeskItem **item, int *selected);
/**
 * \brief By-reference form of ChangeScrolledList: each scalar argument is
 * passed by pointer.
 * \param item     Points at the scrolled list record.
 * \param position Points at the position to select.
 */
void changescrolledlist_(XwkDeskItem **item, int *position);
/**
 * \brief By-reference form of SetEditField: each scalar argument is passed
 * by pointer.
 * \param desk    Points at the desk.
 * \param x       Points at the x position in centimetres.
 * \param y       Points at the y position in centimetres.
 * \param label   Title, or NULL.
 * \param gap     Points at the gap in centimetres.
 * \param value   Initial value, as for SetEditField.
 * \param type    Points at the value type.
 * \param length  Points at the maximum number of characters.
 * \param columns Points at the width in characters.
 * \param out     Receives the record, or NULL.
 */
void seteditfield_(XwkDeskRec **desk, float *x, float *y, const char *label, float *gap,
                   void *value, int *type, int *length, int *columns, XwkDeskItem **out);
/**
 * \brief By-reference form of GetEditField: the item is passed by pointer.
 * \param item  Points at the edit field record.
 * \param value Receives the value, as for GetEditField.
 */
void geteditfield_(XwkDeskItem **item, void *value);
/**
 * \brief By-reference form of ChangeEditField: the item is passed by
 * pointer.
 * \param item  Points at the edit field record.
 * \param value The new value, as for ChangeEditField.
 */
void changeeditfield_(XwkDeskItem **item, void *value);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
