/**
 * \file
 * \ingroup interapp
 * \brief The family's windows: the windows info property, window states,
 * visibility that follows a parent application, and the busy indication.
 *
 * The applications of a session publish their top-level windows in one
 * property on the root window, "_SMELD_WINDOWS_INFO:<node>:<key>", where
 * node is the host's node name and key the session key (the process id of
 * the session's owner).  Its text is a wire format between applications:
 * a header "%5.5d;" with the number of records, then per record
 * "%s|%8.8lx,%8.8lx,%8.8lx;" of title, window, parent window and process
 * id, and a terminating NUL that is part of the stored length.  A title
 * must not hold "|".  Every read-modify-write of the property runs under
 * XGrabServer, so applications never lose each other's updates.
 *
 * An application that shows the family's windows selects PropertyChangeMask
 * on the root window and hands each PropertyNotify to
 * XwkProcessWindowsInfo, with a cascade button (a menu of the windows) or a
 * tree list (a tree of them).  Choosing an entry raises its window.
 *
 * A child application started with "_SMELD_ROOT_WINDOW" and
 * "_SMELD_PARENT_WINDOW" in its environment follows its parent's
 * "_SMELD_VISIBILITY" property through XwkProcessWindowVisibility: the
 * parent hides, shows or iconifies all its children's windows with one
 * property change.
 */
#ifndef XWK_WINDOWS_H
#define XWK_WINDOWS_H

#include <X11/Intrinsic.h>
#include <X11/Xlib.h>
#include <Xwk/Lists.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/** Window state withdrawn, the value of the ICCCM WM_STATE property. */
#define XWK_WM_WITHDRAWN 0
/** Window state normal. */
#define XWK_WM_NORMAL 1
/** Window state iconic. */
#define XWK_WM_ICONIC 3

/** Action of XwkProcessControlPanel: raise the window and give it the
 * focus. */
#define XWK_PANEL_RAISE 1
/** Action of XwkProcessControlPanel: ask the window to close
 * (WM_DELETE_WINDOW). */
#define XWK_PANEL_CLOSE 2

/** One record of the windows info property, parsed.  Tables of them come
 * from XtCalloc; the title is owned by the record (XtMalloc). */
typedef struct _WindowsInfoRecord {
    /** Points to this record; a record whose first word is not its own
     * address is invalid (an unparsed or freed entry). */
    struct _WindowsInfoRecord *self;
    XwkTreeNode *node;      /**< Its node in the displaying widget's tree, or NULL. */
    XwkTreeNode *item;      /**< Its tree list row when the display is a tree list. */
    Widget pane;            /**< The menu pane that holds \c button. */
    Widget button;          /**< Push or cascade button when the display is a menu. */
    char *title;            /**< The window's title, owned. */
    unsigned long window;   /**< The window's id. */
    unsigned long parent;   /**< The window this one belongs to, or 0. */
    int pid;                /**< The publishing process. */
    int key;                /**< Session key; 0 until the record survived one update. */
    unsigned long seen;     /**< Stamp of the last marking pass that found it. */
} WindowsInfoRecord;

/** Name of the busy selection, "_XWK_BUSY". */
extern char *xwkBusyAtomName;
/** The cursor a busy application shows on its shell; made from the cursor
 * font's watch on first use when the application left it 0. */
extern Cursor xwkWaitCursor;

/* ---- Windows info property ------------------------------------------- */

/**
 * \brief The atom of a session's windows info property,
 * "_SMELD_WINDOWS_INFO:<node>:<key>", node being uname's node name (empty
 * when uname fails).
 * \param w   A widget of the display.
 * \param key The session key.
 * \return The interned atom.
 */
Atom XwkGetWindowsInfoAtom(Widget w, int key);
/**
 * \brief Publishes a window, or gives it a new title.
 *
 * A record with the same window, parent and this process's id is replaced
 * in place; otherwise a record is appended and the count raised.
 *
 * \param w      A widget of the screen whose root holds the property.
 * \param key    The session key.
 * \param title  The title; must not hold "|".  NULL is empty.
 * \param window The window's id.
 * \param parent The window it belongs to, or 0.
 */
void XwkAddWindowProperty(Widget w, int key, const char *title, Window window, Window parent);
/**
 * \brief Removes the first record of a window, whoever published it.
 * \param w      A widget of the screen.
 * \param key    The session key.
 * \param window The window's id.
 */
void XwkDeleteWindowProperty(Widget w, int key, Window window);
/**
 * \brief Deletes a session's whole property.
 * \param w   A widget of the screen.
 * \param key The session key.
 */
void XwkDestroyWindowProperty(Widget w, int key);
/**
 * \brief Parses the text of a windows info property.
 *
 * When the number of records found differs from the header's count, the
 * error box says "Internal error: Invalid property record found!"; the
 * table is used as far as it was parsed, the rest of it is zero.
 *
 * \param w       Parent of the error box.
 * \param text    The property's text.
 * \param records Receives a table of as many records as the header counts
 *                (XtCalloc), NULL for a count of 0.  The caller frees each
 *                title and the table with XtFree.
 * \return The header's count.
 */
int ParsePropertyString(Widget w, const char *text, WindowsInfoRecord **records);
/**
 * \brief Brings a display of the family's windows up to date; call it for
 * each PropertyNotify on the root window.
 *
 * Other properties cost one comparison; an unchanged text costs one read.
 * A cascade button gets a pull-down menu with "Control panel", a separator
 * and a push button per window (a window with children becomes a cascade
 * of its own); a tree list gets a row per window under its parent's row,
 * with the icon found in the userData of the list's parent.  Either widget's
 * userData holds the display's tree (an XwkTree) and must be left alone.
 * When the session's owner (the process of \p key) is gone, a menu display
 * is taken down.
 *
 * \param w     A cascade button or an XmPrjTree widget.
 * \param key   The session key.
 * \param event The event; anything but a PropertyNotify of this session's
 *              property is ignored.
 */
void XwkProcessWindowsInfo(Widget w, int key, XEvent *event);
/**
 * \brief Acts on the window of the tree list's current row.
 *
 * A window whose process or window has gone is removed from the property
 * instead.
 *
 * \param w      The tree list given to XwkProcessWindowsInfo.
 * \param action XWK_PANEL_RAISE or XWK_PANEL_CLOSE; others do nothing.
 */
void XwkProcessControlPanel(Widget w, int action);
/**
 * \brief Sends a client message of format 32 (propagate False, event mask
 * 0) and flushes.
 * \param display The display.
 * \param window  The receiving window.
 * \param type    The message type.
 * \param data0   Word 0 of the data.
 * \param data1   Word 1 of the data.
 */
void XwkSendClientMsg(Display *display, Window window, Atom type, long data0, long data1);
/**
 * \brief Reads two decimal numbers joined by ",", white space ignored.
 * \param text   The text, or NULL.
 * \param first  Receives the first number, 0 when there is none.
 * \param second Receives the second number, 0 when there is none.
 * \return True when the text holds the comma; False otherwise, also for
 *         NULL.
 */
Boolean XwkGetSessionID(const char *text, int *first, int *second);

/* ---- Window state and visibility --------------------------------------- */

/**
 * \brief A shell's window state, the first word of its WM_STATE property.
 * \param shell A shell.
 * \return XWK_WM_WITHDRAWN, XWK_WM_NORMAL or XWK_WM_ICONIC; XWK_WM_NORMAL
 *         when the window has no WM_STATE or is not realized.
 */
int XwkGetWMState(Widget shell);
/**
 * \brief As XwkGetWMState, interning the atom at each call.
 * \param shell A shell.
 * \return The state, XWK_WM_NORMAL without WM_STATE.
 */
int XwkGetWindowState(Widget shell);
/**
 * \brief Asks for a window state: withdraws, maps at the shell's position
 * (as a user-given position), or iconifies.
 * \param shell A realized shell.
 * \param state XWK_WM_WITHDRAWN, XWK_WM_NORMAL or XWK_WM_ICONIC; others do
 *              nothing.
 */
void XwkSetWMState(Widget shell, int state);
/**
 * \brief Hides, shows or iconifies a shell together with its pop-up shells.
 *
 * The state a shell had before it was hidden is remembered: a shell that
 * was iconic when hidden comes back iconic.
 *
 * \param shell A realized shell.
 * \param state XWK_WM_WITHDRAWN, XWK_WM_NORMAL or XWK_WM_ICONIC.
 */
void XwkSetWindowVisibility(Widget shell, int state);
/**
 * \brief XwkSetWindowVisibility for each realized pop-up shell of a shell
 * whose first child is managed.
 * \param shell The shell.
 * \param state The state for its pop-ups.
 */
void SetWMStateForPopupList(Widget shell, int state);
/**
 * \brief Follows the parent application's "_SMELD_VISIBILITY"; call it for
 * each PropertyNotify on the root window.
 *
 * Works only when "_SMELD_ROOT_WINDOW" names this root window and
 * "_SMELD_PARENT_WINDOW" is set; the property (type its own atom, format
 * 32) holds the parent's window id and the wanted state.
 *
 * \param w     A widget of the application; its WM shell follows.
 * \param event The event.
 */
void XwkProcessWindowVisibility(Widget w, XEvent *event);
/**
 * \brief Shows or ends the busy indication, by owning the "_XWK_BUSY"
 * selection.
 *
 * Busy defines xwkWaitCursor on the widget's shell for 3 seconds at most;
 * the application that takes the selection next takes the cursor away
 * from this one.
 *
 * \param w    A widget of the application.
 * \param busy True for busy.
 */
void XwkSetBusyStatus(Widget w, Boolean busy);
/**
 * \brief Clips a rectangle's origin and size to the screen.
 *
 * A negative x or y becomes 0, one beyond the screen's width or height
 * becomes that size; a width or height above the screen's is cut to it.
 *
 * \param w      A widget of the screen.
 * \param x      The x, changed in place; may be NULL.
 * \param y      The y, changed in place; may be NULL.
 * \param width  The width, changed in place; may be NULL.
 * \param height The height, changed in place; may be NULL.
 */
void XwkBoundCoords(Widget w, Position *x, Position *y, Dimension *width, Dimension *height);
/**
 * \brief The window manager's frame of a window: its ancestor just below
 * the root (the window itself when the root is its parent).
 * \param display The display.
 * \param window  The window.
 * \return The frame, or 0 when the walk fails.
 */
Window XwkGetWMWindow(Display *display, Window window);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
