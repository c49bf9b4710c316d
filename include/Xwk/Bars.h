/**
 * \file
 * \ingroup companions
 * \brief Tool bars, the tip label, short help, table-driven menus and the
 * message area.
 *
 * Three pieces share one idea: a small text says what the pointer is over.
 * The tip label is one pop-up of the process that shows near the pointer
 * after a delay and goes on the next key, click, leave or change of the
 * window layout.  The short help is the text of the label in the message
 * area of the window (XwkCreateMessageArea), found from any widget of that
 * window by the frame's name "xwkMessageArea".  A tool bar is a row of icon
 * buttons that uses both; a menu entry shows its short help while it is
 * armed.
 *
 * Callbacks of tool bar buttons and menu entries do not run inside Motif's
 * button or menu handling: the activation grabs the server and a timer of
 * zero length ungrabs it and calls the application, once the menu is down
 * and its grabs are gone.  The callback gets a copy of the call data,
 * laid out as an XmPushButtonCallbackStruct (reason, event, click_count;
 * for toggles the last field is the new state), whose event is a copy of
 * the activating event that lives during the call.
 */
#ifndef XWK_BARS_H
#define XWK_BARS_H

#include <X11/Intrinsic.h>
#include <Xwk/Graphics.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* ---- Tip label --------------------------------------------------------- */

/** Non-zero (the default) when tips are shown; 0 makes XwkShowTipLabel do
 * nothing, so that neither the timer nor the label is made. */
extern Boolean xwkEnableToolbarTips;
/** 1 (the default) while no tip stands on the screen. */
extern Boolean xwkTipLabelIsHidden;
/** The one tip label of the process, a label named "xwkTipLabel" in an
 * override shell; NULL until the first tip shows and after it is
 * destroyed.  Its resources (colours, render table) come from the
 * application's resources under that name. */
extern Widget xwkTipLabelWidget;
/** Style of the tool bars made from now on: 0 (the default) classic push
 * buttons in a frame with an etched shadow; non-zero flat buttons that rise
 * when the pointer enters, groups divided by separators. */
extern Boolean xwkToolBarNewStyle;

/**
 * \brief Shows a tip for a widget after a delay of 700 ms.
 *
 * A tip already standing goes first.  Nothing is shown when tips are off.
 * When the delay is over the tip shows only if the widget is still on the
 * screen; a widget destroyed meanwhile cancels it.  Below a tool bar
 * button ("xwkToolBarButton") the tip stands centred under the button, or
 * above it at the bottom of the screen; for any other widget it stands
 * just above the pointer.  It stays inside the screen.
 *
 * \param w    The widget; one without a window is ignored.
 * \param text The text, which may have several lines; with a '|' only the
 *             text after the first '|' shows.  It is copied; NULL is
 *             ignored.
 */
void XwkShowTipLabel(Widget w, const char *text);
/**
 * \brief Shows a tip for a widget at once, as XwkShowTipLabel does after
 * its delay.
 * \param w    The widget; one without a window is ignored.
 * \param text The text, as for XwkShowTipLabel.
 */
void XwkShowTipLabelNow(Widget w, const char *text);
/** \brief Takes the tip down and cancels a tip still waiting for its
 * delay. */
void XwkHideTipLabel(void);

/* ---- Short help -------------------------------------------------------- */

/**
 * \brief Shows a text in the message area of a widget's window.
 *
 * The message label is found at each call: the label of the frame or form
 * named "xwkMessageArea" of the widget's shell (the deepest one), or, for
 * an entry of a menu of another shell, of that shell.  The text is cleaned
 * to at most 255 characters: '^' and the character behind it are dropped
 * (markup), a newline becomes a blank and a '|' ends the text.  It passes
 * through smi18n_gettext.  The label is redrawn at once, and only when the
 * text differs.  A label that has no short-help flag yet gets it on.
 *
 * \param w    A widget of the window; NULL or one being destroyed is
 *             ignored, as is a window without a message area.
 * \param text The text; NULL or empty is ignored.
 */
void XwkSetShortHelp(Widget w, const char *text);
/**
 * \brief By-reference form of XwkSetShortHelp.
 * \param w    Address of the widget.
 * \param text The text.
 */
void xwksetshorthelp_(Widget *w, const char *text);
/**
 * \brief The text of the message area of a widget's window.
 * \param w A widget of the window.
 * \return A string from XtMalloc, which the caller frees with XtFree; NULL
 *         when there is no message area.
 */
char *XwkGetShortHelp(Widget w);
/**
 * \brief By-reference form of XwkGetShortHelp: copies the text into a
 * buffer.
 * \param w      Address of the widget.
 * \param buffer Receives the text, at most 255 characters and a zero byte
 *               (give 256 bytes); an empty string when there is no message
 *               area.
 */
void xwkgetshorthelp_(Widget *w, char *buffer);
/**
 * \brief Turns short help of a widget's window on or off.
 *
 * The flag is a one-byte cell in the message label's XmNuserData, made on
 * first use and freed with the label.  It decides whether arming menu
 * entries and entering tool bar buttons change the text;
 * XwkSetShortHelp itself ignores it.
 *
 * \param w    A widget of the window; a window without a message area is
 *             ignored.
 * \param flag True for on.
 */
void XwkSetShortHelpSensitive(Widget w, Boolean flag);
/**
 * \brief Whether short help of a widget's window is on.
 * \param w A widget of the window.
 * \return The flag; False without a message area or before any flag was
 *         set.
 */
Boolean XwkGetShortHelpSensitive(Widget w);

/* ---- Tool bar ---------------------------------------------------------- */

/** XwkToolBarButton.state bit: button 1 is down on the button. */
#define XwkTOOLBAR_PRESSED 2
/** XwkToolBarButton.state bit: the pointer is inside the button. */
#define XwkTOOLBAR_INSIDE 4

/** One entry of a tool bar: a button or, without a picture, a gap.  Made
 * by XwkCreateToolBarButtons, freed by XwkDestroyToolBarButtons. */
typedef struct _XwkToolBarButton {
    Widget widget;              /**< The button, set by XwkCreateToolBarButton; NULL for a gap. */
    XwkIcon *icon;              /**< The picture, borrowed; NULL or one without a pixmap makes a gap. */
    XwkIcon *insensitive_icon;  /**< Drawn instead of icon while insensitive; NULL draws icon. */
    char *help;                 /**< Borrowed text "short help|tip": the part before the first '|' shows in the message area, the part after it in the tip (the whole text without '|'); NULL for none. */
    XtCallbackProc callback;    /**< Called after activation, from a timer; NULL for none. */
    XtPointer closure;          /**< Client data of callback. */
    Widget callback_widget;     /**< Widget passed to callback; NULL passes widget. */
    Boolean sensitive;          /**< 1 when the button reacts; see XwkSetToolBarButtonSensitive. */
    unsigned int state;         /**< XwkTOOLBAR_PRESSED and XwkTOOLBAR_INSIDE bits. */
    unsigned long reserved;     /**< Unused. */
    int reason;                 /**< Reason of the last activation. */
    XEvent *event;              /**< Event pointer of the last activation, as Motif gave it: valid only during that activation. */
    int click_count;            /**< Click count of the last activation. */
} XwkToolBarButton;

/** A tool bar table: the entries of one tool bar. */
typedef struct _XwkToolBar {
    int count;                  /**< Number of entries. */
    XwkToolBarButton **buttons; /**< The entries, owned by the table. */
    int state;                  /**< Set to -1 by XwkCreateToolBar; any other value stops XwkRedrawIcon from filling a pressed button with the select colour. */
} XwkToolBar;

/**
 * \brief Makes a tool bar table.
 *
 * \param count     Number of entries.
 * \param icons     count pictures, borrowed; a NULL entry makes a gap.
 * \param help      count help texts ("short help|tip"), borrowed, or NULL
 *                  for none.
 * \param callbacks count callbacks, or NULL for none.
 * \param closure   Client data of every callback.
 * \return The table, from XtMalloc, with every entry sensitive; free it
 *         with XwkDestroyToolBarButtons.  NULL for a negative count.
 */
XwkToolBar *XwkCreateToolBarButtons(int count, XwkIcon **icons, char **help,
                                    XtCallbackProc *callbacks, XtPointer closure);
/**
 * \brief Frees a tool bar table: its entries, the array and the table.
 *
 * The widgets stay; destroy the tool bar first, or keep the table as long
 * as its buttons live.
 *
 * \param table The table; NULL is ignored.
 */
void XwkDestroyToolBarButtons(XwkToolBar *table);
/**
 * \brief Builds a tool bar from a table.
 *
 * A frame "xwkToolBar" attached left, right and top of a form parent,
 * holding a form with one button per entry from the left; a gap adds 5
 * pixels, or in the new style a vertical separator.  The frame is as high
 * as the buttons.
 *
 * \param parent A form (attachments are set) or any manager.
 * \param table  The table, which must live as long as the tool bar; its
 *               state is set to -1 and each entry's widget is filled in.
 * \return The frame, unmanaged: the caller manages it.  NULL when the
 *         table has no button (no widget is left behind).
 */
Widget XwkCreateToolBar(Widget parent, XwkToolBar *table);
/**
 * \brief Makes one tool bar button: a drawn button "xwkToolBarButton"
 * showing the entry's picture.
 *
 * Entering shows the tip and the short help; button 1 activates; the
 * entry's callback runs from a timer after the button is released.  The
 * button is at least the largest picture plus its shadow and margins.
 *
 * \param parent The parent.
 * \param button The entry; its widget is set.
 * \param max_w  Largest picture width of the tool bar.
 * \param max_h  Largest picture height of the tool bar.
 * \return The button, managed; NULL for a NULL entry or one without a
 *         picture.
 */
Widget XwkCreateToolBarButton(Widget parent, XwkToolBarButton *button, int max_w, int max_h);
/**
 * \brief Makes a tool bar button react or not.
 *
 * Xt's sensitivity stays on: an insensitive button ignores entering and
 * clicks and draws its insensitive_icon when it has one.
 *
 * \param w    The button.
 * \param flag True for sensitive.
 */
void XwkSetToolBarButtonSensitive(Widget w, Boolean flag);
/**
 * \brief Redraws a tool bar button's picture at once.
 * \param w The button; one not realized is ignored.
 */
void XwkRefreshToolBarButton(Widget w);
/**
 * \brief Draws a picture centred in a drawn button: the expose callback of
 * tool bar buttons.
 * \param w         The drawn button.
 * \param closure   An icon to draw, or NULL to draw the button's own entry.
 * \param call_data The callback's data (unused).
 */
void XwkRedrawIcon(Widget w, XtPointer closure, XtPointer call_data);
/**
 * \brief Makes the buttons of a tool bar show their short help in a given
 * message area rather than their own window's.
 * \param toolbar The frame made by XwkCreateToolBar.
 * \param status  A widget of the window whose message area shows the
 *                texts; NULL goes back to the button's own window.
 */
void XwkSetStatusBarForToolBar(Widget toolbar, Widget status);
/** \brief Frees the message area text saved while the pointer is over a
 * tool bar button, without putting it back. */
void XwkToolBarFreeSavedShortHelp(void);

/* ---- Menus ------------------------------------------------------------- */

/** XwkMenu.kind: a menu bar. */
#define XwkMENU_BAR 1
/** XwkMenu.kind: a pull-down menu, with a cascade button when titled. */
#define XwkMENU_PULLDOWN 2
/** XwkMenu.kind: a pop-up menu. */
#define XwkMENU_POPUP 3
/** XwkMenu.kind: an option menu. */
#define XwkMENU_OPTION 4

/** One menu entry.  Entries stand in an array ended by one whose name is
 * NULL. */
typedef struct _XwkMenuItem {
    char *name;                 /**< Widget name and label text (through smi18n_gettext). */
    WidgetClass *widget_class;  /**< Class of the entry: &xmPushButtonWidgetClass, &xmToggleButtonWidgetClass, &xmSeparatorWidgetClass, &xmCascadeButtonWidgetClass and the like; NULL makes a push button. */
    char mnemonic;              /**< Mnemonic character; 0 for none. */
    char *accelerator;          /**< Accelerator translation ("Ctrl <Key>O", from XwkCreateAcc) or NULL. */
    char *accelerator_text;     /**< Text shown for the accelerator, or NULL. */
    char *short_help;           /**< Text for the message area while the entry is armed, or NULL. */
    int submenu_default;        /**< With a submenu: index (from 0) of its default entry. */
    int insensitive;            /**< 1 creates the entry insensitive. */
    XtCallbackProc callback;    /**< Called after activation (value change for toggles), from a timer; NULL for none. */
    XtPointer closure;          /**< Client data of callback. */
    XtPointer user;             /**< Kept in the entry's XwkMenuButtonRec. */
    struct _XwkMenuItem *submenu; /**< Entries of a cascade's pull-down, or NULL. */
    Widget widget;              /**< The entry, set by XwkCreateMenuItem. */
} XwkMenuItem;

/** A menu description, the argument of XwkCreateMenu. */
typedef struct _XwkMenu {
    int kind;                   /**< XwkMENU_BAR, XwkMENU_PULLDOWN, XwkMENU_POPUP or XwkMENU_OPTION. */
    char *title;                /**< Title of the cascade or option menu, or NULL. */
    char mnemonic;              /**< Mnemonic of the title; 0 for none. */
    long reserved1;             /**< Unused. */
    int default_index;          /**< Option menu: index (from 0) of the entry shown first. */
    long reserved2;             /**< Unused. */
    XwkMenuItem *items;         /**< The entries. */
} XwkMenu;

/** The private record of a menu entry, in its XmNuserData; made by
 * XwkCreateMenuItem and freed with the entry. */
typedef struct _XwkMenuButtonRec {
    XtPointer user;             /**< The item's user word. */
    char *short_help;           /**< Copy of the item's short help, owned; NULL for none. */
    XtCallbackProc callback;    /**< The item's callback. */
    XtPointer closure;          /**< The item's closure. */
    Widget status_bar;          /**< Widget whose message area shows the short help; NULL: the entry's own. */
    Widget widget;              /**< The entry. */
    int reason;                 /**< Reason of the last activation. */
    XEvent *event;              /**< Event pointer of the last activation, as Motif gave it: valid only during that activation. */
    int click_count;            /**< Click count (toggles: new state) of the last activation. */
} XwkMenuButtonRec;

/**
 * \brief Splits a label into text, mnemonic and prefix.
 *
 * A first character '-' or '*' goes to \p prefix and is removed; the first
 * '&' or '_' is removed and the character behind it goes to \p mnemonic
 * ("&File" gives "File" and 'F').
 *
 * \param label    The label; NULL gives NULL.
 * \param mnemonic Receives the mnemonic or 0; may be NULL.
 * \param prefix   Receives '-', '*' or 0; may be NULL.
 * \return The text, from XtMalloc; the caller frees it with XtFree.
 */
char *XwkCreateString(const char *label, char *mnemonic, char *prefix);
/**
 * \brief Removes the first '&' or '_' of a label; a leading '-' or '*'
 * stays.
 * \param label The label; NULL gives NULL.
 * \return The text, from XtMalloc; the caller frees it with XtFree.
 */
char *XwkCreateStringSimple(const char *label);
/**
 * \brief Fills a menu entry from strings.
 *
 * The label gives name and mnemonic (XwkCreateString); a leading '*'
 * makes the entry insensitive, a leading '-' a separator without
 * callback.  Accelerator and short help are converted by XwkCreateAcc,
 * XwkCreateAccText and XwkCreateStringSimple.  The strings are allocated
 * with XtMalloc and nothing in the library frees them.
 *
 * \param item             The entry to fill.
 * \param label            The label; NULL gives a NULL name, which ends
 *                         an array.
 * \param short_help       Short help or NULL.
 * \param accelerator_text Accelerator text ("Ctrl-O") or NULL.
 * \param widget_class     Class of the entry.
 * \param callback         Callback or NULL.
 * \param closure          Client data of the callback.
 * \param user             User word.
 * \param submenu          Entries of a submenu, or NULL.
 */
void XwkPrepareMenuItem(XwkMenuItem *item, const char *label, const char *short_help,
                        const char *accelerator_text, WidgetClass *widget_class,
                        XtCallbackProc callback, XtPointer closure, XtPointer user,
                        XwkMenuItem *submenu);
/**
 * \brief Builds a menu from a description: XwkCreateSubmenu with its
 * fields.
 * \param parent The parent.
 * \param menu   The description; NULL gives NULL.
 * \return As XwkCreateSubmenu.
 */
Widget XwkCreateMenu(Widget parent, XwkMenu *menu);
/**
 * \brief Builds a menu and its entries.
 *
 * A menu bar is "xwkMenuBar"; a pull-down "xwkPulldownMenu" with, when
 * titled, a cascade button named as the title, which becomes the menu
 * bar's help widget for "Help" (ignoring case, also after a first
 * character such as '&'); a pop-up "xwkPopupMenu"; an option menu
 * "xwkOptionMenu" showing the entry at \p default_index.
 *
 * \param parent        Parent of the menu (a menu bar for a titled
 *                      pull-down; the widget it pops up on for a pop-up).
 * \param kind          XwkMENU_BAR to XwkMENU_OPTION.
 * \param title         Title of the cascade or option menu, through
 *                      smi18n_gettext; NULL for none.
 * \param mnemonic      Mnemonic of the title; 0 for none.
 * \param default_index Option menu: index (from 0) of the first entry
 *                      shown.
 * \param items         The entries, ended by a NULL name; NULL for none.
 * \return The row column for a menu bar, a pop-up or an untitled
 *         pull-down; else the cascade button or option menu.  NULL for an
 *         unknown kind.  The row column of a menu bar is left unmanaged
 *         for the caller; pull-down and pop-up panes show when Motif (or
 *         the caller, for a pop-up) posts them.
 */
Widget XwkCreateSubmenu(Widget parent, int kind, const char *title, char mnemonic,
                        int default_index, XwkMenuItem *items);
/**
 * \brief Makes one menu entry, with its submenu when it has one.
 *
 * The entry gets its mnemonic, accelerator, XwkMenuButtonRec (except a
 * plain cascade without submenu), sensitivity, the delayed callback and
 * the short-help arm and disarm callbacks.
 *
 * \param menu The menu row column.
 * \param item The entry; its widget is set.
 * \return The entry widget (the cascade button for a submenu), or NULL.
 */
Widget XwkCreateMenuItem(Widget menu, XwkMenuItem *item);
/**
 * \brief Sets the closure of every entry, descending into submenus; an
 * entry with a submenu does not get it itself.
 * \param items   The entries; NULL is ignored.
 * \param closure The client data.
 */
void XwkMenuItemsSetClosure(XwkMenuItem *items, XtPointer closure);
/**
 * \brief Makes a menu entry show its short help in a given message area.
 * \param entry  The entry.
 * \param status A widget of the window whose message area shows the text;
 *               NULL goes back to the entry's own window.
 */
void XwkSetStatusBarForMenu(Widget entry, Widget status);
/**
 * \brief Makes the message area: a frame "xwkMessageArea" with a label
 * whose first text is "Ready", short help on.
 * \param parent The parent; the caller attaches the frame where it wants.
 * \return The frame, managed.
 */
Widget XwkCreateMessageArea(Widget parent);
/**
 * \brief Arm callback of menu entries: saves the message area's text on
 * the window and shows the entry's short help.
 * \param w         The entry.
 * \param closure   Unused.
 * \param call_data Unused.
 */
void XwkMenuButtonArmCallback(Widget w, XtPointer closure, XtPointer call_data);
/**
 * \brief Disarm callback of menu entries: puts back the text saved by the
 * arm callback.
 * \param w         The entry.
 * \param closure   Unused.
 * \param call_data Unused.
 */
void XwkMenuButtonDisarmCallback(Widget w, XtPointer closure, XtPointer call_data);
/**
 * \brief Destroy callback of menu entries: drops the text saved on the
 * window and frees the entry's XwkMenuButtonRec.
 * \param w         The entry.
 * \param closure   Unused.
 * \param call_data Unused.
 */
void XwkMenuButtonDestroyCallback(Widget w, XtPointer closure, XtPointer call_data);
/**
 * \brief Frees the text saved by an armed menu entry of a widget's window
 * without putting it back.
 * \param w A widget of the window.
 */
void XwkMenuFreeSavedShortHelp(Widget w);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
