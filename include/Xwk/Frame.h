/**
 * \file
 * \ingroup frame
 * \brief Application start-up, the event loop, shells and the process
 * globals.
 *
 * An application either calls CreateDesk (Xwk/Desk.h) with xwkTopLevel
 * still NULL, which starts Xt itself, or starts Xt on its own and then calls
 * XwkInitialize(app, shell) before anything that draws, measures in
 * centimetres or shows a message.  It then runs XwkAppMainLoop.
 *
 * Each event of XwkAppProcessEvents passes the tip filter
 * (XwkProcessEventsForTipLabel), then the raw event filters of
 * XwkAddEventHandler, then XtDispatchEvent.  All waits of the library for a
 * window use the same step, so filters work during them.
 *
 * There is one application, one display and one top-level shell per
 * process, and no shut-down call: nothing undoes XwkInitialize.  Everything
 * runs on the thread of the Xt loop, without locks.
 */
#ifndef XWK_FRAME_H
#define XWK_FRAME_H

#include <X11/Intrinsic.h>
#include <X11/Xlib.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* Process globals: one application, one display, one top-level shell. */

/** The application context; set by XwkInitialize (and by CreateDesk when it
 * starts Xt). */
extern XtAppContext xwkApp;
/** The application's top-level shell; NULL until the library is started
 * by XwkInitialize. */
extern Widget xwkTopLevel;
/** Default parent of message boxes: the most recently opened desk.  Set by
 * XwkInitialize, XwkSetParentWidget, OpenDeskExt and CloseDesk. */
extern Widget xwkParentWidget;
/** Display of xwkTopLevel; set by XwkInitialize (NULL for a NULL shell). */
extern Display *xwkDisplay;
/** Pixels per centimetre horizontally: 0 until XwkInitialize, then a
 * fixed 28.0, never measured from the screen. */
extern float xwkCmWidth;
/** Pixels per centimetre vertically: 0 until XwkInitialize, then 28.0. */
extern float xwkCmHeight;
/** The home directory (XwkGetHomeDir at XwkInitializeUser), or NULL.
 * Owned by the library. */
extern char *xwkHOME;
/** Login name of the real user, or NULL when the password entry has none.
 * Set by XwkInitializeUser; owned by the library. */
extern char *xwkUSER;
/** Real user id; set by XwkInitializeUser. */
extern int xwkUID;
/** The user's group ids, primary group first, no duplicates; every group
 * of the system for root.  Set by XwkInitializeUser; owned by the library. */
extern int *xwkGIDs;
/** Number of entries in xwkGIDs. */
extern int xwkNumGIDs;
/** Argument count of the program; set by the client before CreateDesk,
 * which hands it to XtVaAppInitialize. */
extern int xargc;
/** Argument vector of the program; set by the client before CreateDesk.
 * xargv[0] is the application class.  Left NULL, CreateDesk uses the class
 * "XwkApplication". */
extern char **xargv;
/** NULL-ended fallback resources for XtVaAppInitialize in CreateDesk;
 * default NULL.  Set by the client. */
extern String *xwkFallbackResources;
/** When non-zero, XwkAppMainLoop returns.  Set by the client; default 0. */
extern Boolean XwkAppExitFlag;
/** The realize method of Motif's sash class before XwkInitialize replaced
 * it with XwkSashRealizeClassProc. */
extern void (*XwkSashRealizeClassOriginalProc)(Widget, XtValueMask *, XSetWindowAttributes *);
/** The expose method of Motif's label class before XwkInitialize replaced
 * it with XwkLabelExposeClassProc. */
extern void (*XwkLabelExposeClassOriginalProc)(Widget, XEvent *, Region);
/** NULL-ended environment ("NAME=value" strings) for processes started for
 * the client; set by the client, default NULL. */
extern char **xwkEnviron;
/** The library's title banner: a newline, "Xwk GUI Library.", a newline,
 * a rights line and a newline.  Fixed data; do not free or change. */
extern char *XwkVersionString;

/* Slots for the applications; the library never touches them. */

/** Slot for the application's main window; never used by the library. */
extern void *xwkMainWin;
/** Slot for the application's menu bar; never used by the library. */
extern void *xwkMenuBar;
/** Slot for the application's drawing area; never used by the library. */
extern void *xwkDrawingArea;
/** Slot for the application's wait menu; never used by the library. */
extern void *xwkMenuWait;
/** Slot for the application's message area; never used by the library. */
extern void *xwkMessageArea;
/** Slot for the application's colormap; never used by the library. */
extern void *xwkColormap;
/** Slot for the application's largest colormap; never used by the library. */
extern void *xwkMaxCellsColormap;
/** Slot for the application's help file; never used by the library. */
extern void *xwkHelpFile;
/** Slot for the application's help page; never used by the library. */
extern void *xwkHelpPage;
/** Slot for the application's help anchor; never used by the library. */
extern void *xwkHelpAnchor;

/**
 * A raw event filter procedure, registered with XwkAddEventHandler.
 *
 * \param widget  The widget the filter was registered for.
 * \param closure The closure given at registration.
 * \param event   The event, before Xt dispatches it; leave it unchanged.
 */
typedef void (*XwkEventHandlerProc)(Widget widget, XtPointer closure, XEvent *event);

/**
 * \brief A raw event filter: runs when event->type == type and the 32-bit
 * word at byte offset of the event equals value.
 *
 * Kept by the library in one process-wide list, newest first; allocated by
 * XwkAddEventHandler and freed by XwkRemoveEventHandler or when its widget
 * is destroyed.  Never free or change one.
 */
typedef struct _XwkEventHandlerRec {
    Widget widget;                 /**< Owner; passed to proc. */
    unsigned int value;            /**< Value expected in the event's word at offset. */
    int type;                      /**< X event type. */
    int offset;                    /**< Byte offset of the 32-bit word in the XEvent to compare with value. */
    XwkEventHandlerProc proc;      /**< The filter procedure. */
    XtPointer closure;             /**< Passed to proc. */
    struct _XwkEventHandlerRec *next; /**< Next record of the list. */
} XwkEventHandlerRec;

/**
 * \brief Binds the library to an Xt application and its top-level shell.
 *
 * Runs once per process: a second call does nothing, whatever its
 * arguments.  It calls XwkInitializeUser, sets xwkApp, xwkTopLevel,
 * xwkParentWidget and xwkDisplay, fixes xwkCmWidth and xwkCmHeight at 28.0,
 * and replaces the realize method of Motif's sash class and the expose
 * method of its label class by XwkSashRealizeClassProc and
 * XwkLabelExposeClassProc, for every sash and label of the process.  With a
 * shell it also routes Motif's colour allocation through XwkFindColor, sets
 * the drag protocol styles and the drag icons (a prohibition ring, an arrow
 * and a blank source icon), and puts "*TopShadowColor" and
 * "*BottomShadowColor" computed from the shell's background into the
 * screen's resource database.
 *
 * Call it before anything that draws, measures in centimetres or shows a
 * message; CreateDesk calls it when it starts Xt.
 *
 * \param app      The application context.
 * \param toplevel The application's top-level shell.
 */
void XwkInitialize(XtAppContext app, Widget toplevel);
/**
 * \brief Fills the user globals xwkHOME, xwkUSER, xwkUID, xwkGIDs and
 * xwkNumGIDs.
 *
 * Runs once (skipped when xwkGIDs is set); may run before XwkInitialize.
 * The group list starts with the primary group and takes every group of
 * the group file that lists xwkUSER as a member, or every group for root.
 * Without a password entry xwkUSER stays NULL and the list holds the
 * primary group only.
 */
void XwkInitializeUser(void);
/**
 * \brief The user's home directory.
 *
 * $HOME when set.  Otherwise the password entry of $USER, or of the real
 * user when $USER is unset; its directory is also put into the environment
 * as HOME.
 *
 * \return The directory, or NULL when none is found.  The string belongs
 *         to the environment: do not free it.
 */
char *XwkGetHomeDir(void);
/**
 * \brief Tells whether this library serves a client built for version
 * major.minor.
 *
 * \param major Major version the client expects.
 * \param minor Minor version the client expects.
 * \return 1 when \p major equals the library's major version (1) and
 *         \p minor is not above its minor version (0), else 0.
 */
int XwkCheckVersion(int major, int minor);

/**
 * \brief Gets and dispatches exactly one event; blocks until one comes.
 *
 * The event goes to XwkProcessEventsForTipLabel, then XwkRunEventHandler,
 * then XtDispatchEvent; the filters cannot stop the dispatch.
 *
 * \param app The application context.
 */
void XwkAppProcessEvents(XtAppContext app);
/**
 * \brief The main loop: runs XwkAppProcessEvents until XwkAppExitFlag or
 * the application context's exit flag is set.
 *
 * Both flags are tested before each event, so with a flag already set the
 * call returns without reading an event.
 *
 * \param app The application context.
 */
void XwkAppMainLoop(XtAppContext app);

/**
 * \brief Registers a raw event filter, run by XwkRunEventHandler before Xt
 * dispatches an event.
 *
 * The filter runs for each event whose type is \p type and whose 32-bit
 * word at byte \p offset equals \p value; an offset whose word does not lie
 * within an XEvent never matches.  Registering the same six values again
 * adds nothing and gives the existing record.  The filter is removed when
 * the widget is destroyed.
 *
 * \param widget  Owner; NULL, a gadget or a plain object gives NULL.
 * \param value   Value expected in the event's word.
 * \param type    X event type.
 * \param offset  Byte offset of the word in the XEvent.
 * \param proc    The filter procedure.
 * \param closure Passed to \p proc.
 * \return The record, owned by the library (never free it), or NULL.
 */
XwkEventHandlerRec *XwkAddEventHandler(Widget widget, unsigned int value, int type,
                                       int offset, XwkEventHandlerProc proc,
                                       XtPointer closure);
/**
 * \brief Removes the first raw event filter registered with these six
 * values; nothing happens when there is none.
 *
 * A filter may remove itself or another filter while filters run; a
 * removed filter does not run again, and its record is freed once the walk
 * is over.
 *
 * \param widget  Owner given at registration.
 * \param value   Value given at registration.
 * \param type    Event type given at registration.
 * \param offset  Offset given at registration.
 * \param proc    Procedure given at registration.
 * \param closure Closure given at registration.
 */
void XwkRemoveEventHandler(Widget widget, unsigned int value, int type, int offset,
                           XwkEventHandlerProc proc, XtPointer closure);
/**
 * \brief Runs every matching raw event filter on one event, newest first.
 *
 * Called by XwkAppProcessEvents.  All matching filters run; the event is
 * not consumed.
 *
 * \param event The event; NULL is ignored.
 */
void XwkRunEventHandler(XEvent *event);

/**
 * \brief The widget or its first ancestor that is a shell
 * (shellWidgetClass).
 *
 * Like all six XwkGet...Shell walks: a NULL widget gives an Xt warning
 * ("Can't find ... widget from null reference") and NULL; when no widget
 * up to the top of the tree is of the class, the topmost widget is
 * returned, not NULL.
 *
 * \param w The widget to start from.
 * \return The shell, the topmost widget, or NULL for a NULL \p w.
 */
Widget XwkGetShell(Widget w);
/**
 * \brief The widget or its first ancestor of wmShellWidgetClass.
 * \param w The widget to start from.
 * \return The shell, the topmost widget when none matches, or NULL for a
 *         NULL \p w (with a warning).
 */
Widget XwkGetWMShell(Widget w);
/**
 * \brief The widget or its first ancestor of vendorShellWidgetClass.
 * \param w The widget to start from.
 * \return The shell, the topmost widget when none matches, or NULL for a
 *         NULL \p w (with a warning).
 */
Widget XwkGetVendorShell(Widget w);
/**
 * \brief The widget or its first ancestor of xmDialogShellWidgetClass.
 * \param w The widget to start from.
 * \return The shell, the topmost widget when none matches (a widget in a
 *         plain top-level window gives the top of its tree), or NULL for a
 *         NULL \p w (with a warning).
 */
Widget XwkGetDialogShell(Widget w);
/**
 * \brief The widget or its first ancestor of topLevelShellWidgetClass.
 * \param w The widget to start from.
 * \return The shell, the topmost widget when none matches, or NULL for a
 *         NULL \p w (with a warning).
 */
Widget XwkGetTopLevelShell(Widget w);
/**
 * \brief The widget or its first ancestor of applicationShellWidgetClass.
 * \param w The widget to start from.
 * \return The shell, the topmost widget when none matches, or NULL for a
 *         NULL \p w (with a warning).
 */
Widget XwkGetAppShell(Widget w);

/**
 * \brief Adds a Motif protocol callback for WM_DELETE_WINDOW under
 * WM_PROTOCOLS: the window manager's close.
 * \param shell   The shell; NULL is ignored.
 * \param proc    Callback, called with Motif's protocol call data.
 * \param closure Client data of the callback.
 */
void XwkAddDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure);
/**
 * \brief Removes a callback added by XwkAddDeleteWindowCallback.
 * \param shell   The shell; NULL is ignored.
 * \param proc    Callback given when it was added.
 * \param closure Client data given when it was added.
 */
void XwkRemoveDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure);
/**
 * \brief Centres a shell on another and makes it transient for it.
 *
 * The parent's position is its window manager frame's (XwkGetWMCoords)
 * when it has one, else its own.  The child is moved by half the
 * difference of the sizes, negative coordinates become 0, and x, y and
 * XtNtransientFor are set on the child in one call.  Nothing is done when
 * the child is transient for the parent already.
 *
 * \param parent The parent shell; NULL is ignored.
 * \param child  The shell to place; NULL is ignored.
 */
void XwkSetTransientFor(Widget parent, Widget child);
/**
 * \brief Sets resource values on every widget below a root whose class is
 * one of a list, pop-ups included.
 *
 * Depth first: a widget's pop-ups, then its children, then the widget.  A
 * class matches only when it is exactly the widget's class (no subclass
 * test); XtSetValues is called once per matching entry.
 *
 * \param root     Top of the walk, itself included; NULL is ignored.
 * \param classes  The classes to match; NULL is ignored.
 * \param nclasses Number of entries in \p classes.
 * \param args     The values to set.
 * \param nargs    Number of entries in \p args.
 */
void XwkSetWidgetClassValues(Widget root, WidgetClass *classes, Cardinal nclasses,
                             ArgList args, Cardinal nargs);
/**
 * \brief Registers the library's resource converters from String, after
 * Motif's own, so that they take precedence.
 *
 * Once per process.  Covers font lists and render tables (the four kinds
 * of each), Pixel through the library's colour search (a full colormap
 * gives the nearest colour instead of a failure) and the select colour.
 * The library never calls it: a client that wants these converters calls
 * it before creating widgets.  It does not need XwkInitialize.
 */
void XwkSetConverters(void);
/**
 * \brief Waits until the shell of a widget is really on the screen.
 *
 * Only when the widget's shell and its top-level shell are both managed
 * (a pop-up shell: popped up), realized and mapped when managed: events,
 * timers and input are processed until the shell is viewable, the
 * top-level shell is known not to be, or 3 seconds have passed.  The
 * server is grabbed during the wait unless a window manager is running.
 * Ends with XmUpdateDisplay of the top-level shell.
 *
 * \param w The widget; NULL, a non-widget or an unmanaged widget is
 *          ignored.
 */
void ForceUpdate(Widget w);
/**
 * \brief Waits until the shell of a widget has left the screen.
 *
 * Only when the shell and its top-level shell are managed and realized:
 * events are processed while the shell is still viewable and the top-level
 * shell is not, for at most 3 seconds.  It returns at once when the
 * top-level shell is viewable: unlike ForceUpdate, this is kept on
 * purpose.  No server grab.  Ends with XmUpdateDisplay of the top-level
 * shell.
 *
 * \param w The widget; NULL, a non-widget or an unmanaged widget is
 *          ignored.
 */
void ForceDestroy(Widget w);
/**
 * \brief Rings the bell (volume 0) if the widget's audible warning is
 * XmBELL.
 * \param w The widget; NULL is ignored.
 */
void XwkBell(Widget w);

/* The two hooks installed on Motif's sash and label classes. */

/**
 * \brief Realize method installed in Motif's sash class by XwkInitialize.
 *
 * A sash whose paned window has XmNsashIndent 0, XmNsashWidth different
 * from XmNsashHeight, XmNseparatorOn false and XmNspacing exactly 6 is
 * realized flat by _XwkSashRealizeClassProc; any other sash by the saved
 * XwkSashRealizeClassOriginalProc.
 *
 * \param sash  The sash.
 * \param mask  Window attribute mask, as for any realize method.
 * \param attrs Window attributes, as for any realize method.
 */
void XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs);
/**
 * \brief Realizes a sash as a flat bar, 6 pixels thick, across the whole
 * paned window.
 *
 * A horizontal paned window gets a 6-pixel-wide sash of its height and a
 * 24 by 16 double-arrow cursor; any other orientation a sash of its width,
 * 6 high, and a 16 by 24 cursor (no cursor when the server's largest is
 * smaller).  The border is 0, and the paned window's track line, once it
 * has one, is drawn 6 pixels wide.  The cursors are made once per process.
 *
 * \param sash  The sash.
 * \param mask  Window attribute mask; CWCursor is added.
 * \param attrs Window attributes; the cursor is stored in them.
 */
void _XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs);
/**
 * \brief Expose method installed in Motif's label class by XwkInitialize.
 *
 * An insensitive label of string type is drawn etched: once in its top
 * shadow colour moved by (1, 1), then in its bottom shadow colour in
 * place.  An armed push button outside pull-down and pop-up menus draws
 * its text moved by (1, 1).  Anything else is drawn by the saved
 * XwkLabelExposeClassOriginalProc.  The label's GCs and text rectangles
 * are restored before return.
 *
 * \param label  The label or label subclass.
 * \param event  The expose event.
 * \param region The region to redraw.
 */
void XwkLabelExposeClassProc(Widget label, XEvent *event, Region region);

/* Services of other subsystems that the frame calls. */

/**
 * \brief The short-help tip's look at every event before dispatch;
 * XwkAppProcessEvents calls it.
 *
 * It leaves the event as it is.  A standing tip (XwkShowTipLabel,
 * Xwk/Bars.h) goes on any key or button press or release and any leave,
 * and on a circulate, configure, destroy, gravity, map or unmap event of
 * any window but its own.
 *
 * \param event The event.
 */
void XwkProcessEventsForTipLabel(XEvent *event);
/**
 * \brief Allocates a colour, or finds the nearest one when the colormap is
 * full.
 *
 * XwkInitialize makes it Motif's colour allocation procedure.  On a
 * TrueColor or DirectColor visual it is XAllocColor.  Otherwise, when
 * XAllocColor fails, the nearest cell of the colormap stands in: its
 * pixel and RGB are written to \p color, without taking the cell (do not
 * free that pixel); black when there is none.
 *
 * \param display  The display; NULL gives False.
 * \param colormap The colormap.
 * \param color    In: the RGB wanted.  Out: pixel and RGB given.  NULL
 *                 gives False.
 * \return True when the colour was really allocated, False when a nearest
 *         colour stands in or on failure.
 */
Boolean XwkFindColor(Display *display, Colormap colormap, XColor *color);
/**
 * \brief Records help data on a widget, replacing any earlier record.
 *
 * The strings are copied; the record goes with the widget.
 *
 * \param w      The widget; NULL or one being destroyed is ignored.
 * \param file   Help file; NULL takes "$(C_SMELD)/c-smeld.help" as found
 *               by XwkFindPath in ".:..", or none.
 * \param page   Help page; NULL is stored as "".
 * \param anchor Anchor in the page; NULL is stored as "".
 */
void XwkSetHelpData(Widget w, const char *file, const char *page, const char *anchor);
/**
 * \brief Finds the help data of a widget, completing it from its
 * ancestors.
 *
 * Walks from the widget up; each record fills the parts still NULL or
 * empty.  The walk stops with True after a record when the anchor is
 * still unset, or when neither file nor page is an empty string.  The
 * outputs point into the records (do not free them) and are set, maybe
 * partly, also when the result is False.
 *
 * \param w      The widget.
 * \param file   Receives the help file or NULL; may be NULL.
 * \param page   Receives the help page or NULL; may be NULL.
 * \param anchor Receives the anchor or NULL; may be NULL.
 * \return True when the walk ended on a record, False when the top was
 *         reached first, no help data exists or \p w is NULL or being
 *         destroyed.
 */
Boolean XwkGetHelpData(Widget w, char **file, char **page, char **anchor);
/**
 * \brief Shows the help of a widget; the help callback of desks.
 *
 * Calls XwkShowHelp (Xwk/Help.h) unless the widget is NULL or being
 * destroyed.
 *
 * \param w The widget whose help data is shown.
 */
void XwkLoadHelp(Widget w);
/**
 * \brief The position of a shell's window manager frame: the window just
 * below the root.
 *
 * Nothing is stored when the shell is NULL or not realized, or when the
 * frame cannot be found (XwkGetWMWindow).  Under a Motif window manager
 * nothing is stored either before the manager has placed the shell, while
 * Motif knows no frame offsets for it.
 *
 * \param shell The shell.
 * \param x     Receives the frame's x; may be NULL.
 * \param y     Receives the frame's y; may be NULL.
 */
void XwkGetWMCoords(Widget shell, Position *x, Position *y);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
