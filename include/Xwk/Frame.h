/*
 * Xwk/Frame.h - application start-up, the event loop and the process globals.
 *
 * An application either calls CreateDesk (Xwk/Desk.h) with xwkTopLevel still
 * null, which starts Xt itself, or starts Xt on its own and then calls
 * XwkInitialize(app, shell) before anything that draws or measures.
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
extern XtAppContext xwkApp;
extern Widget xwkTopLevel;
extern Widget xwkParentWidget;     /* default parent of message boxes */
extern Display *xwkDisplay;
extern float xwkCmWidth;           /* pixels per centimetre, 28.0 once started */
extern float xwkCmHeight;
extern char *xwkHOME;              /* home directory or NULL */
extern char *xwkUSER;              /* login name or NULL */
extern int xwkUID;
extern int *xwkGIDs;               /* primary group first, no duplicates */
extern int xwkNumGIDs;
extern int xargc;                  /* set by the client before CreateDesk */
extern char **xargv;
extern String *xwkFallbackResources;
extern Boolean XwkAppExitFlag;     /* non-zero: XwkAppMainLoop returns */
extern void (*XwkSashRealizeClassOriginalProc)(Widget, XtValueMask *, XSetWindowAttributes *);
extern void (*XwkLabelExposeClassOriginalProc)(Widget, XEvent *, Region);
extern char **xwkEnviron;          /* environment for started processes */
extern char *XwkVersionString;

/* Slots for the applications; the library never touches them. */
extern void *xwkMainWin;
extern void *xwkMenuBar;
extern void *xwkDrawingArea;
extern void *xwkMenuWait;
extern void *xwkMessageArea;
extern void *xwkColormap;
extern void *xwkMaxCellsColormap;
extern void *xwkHelpFile;
extern void *xwkHelpPage;
extern void *xwkHelpAnchor;

typedef void (*XwkEventHandlerProc)(Widget widget, XtPointer closure, XEvent *event);

/* A raw event filter: runs when event->type == type and the 32-bit word at
 * byte offset of the event equals value. */
typedef struct _XwkEventHandlerRec {
    Widget widget;
    unsigned int value;
    int type;
    int offset;
    XwkEventHandlerProc proc;
    XtPointer closure;
    struct _XwkEventHandlerRec *next;
} XwkEventHandlerRec;

void XwkInitialize(XtAppContext app, Widget toplevel);
void XwkInitializeUser(void);
char *XwkGetHomeDir(void);
int XwkCheckVersion(int major, int minor);

void XwkAppProcessEvents(XtAppContext app);
void XwkAppMainLoop(XtAppContext app);

XwkEventHandlerRec *XwkAddEventHandler(Widget widget, unsigned int value, int type,
                                       int offset, XwkEventHandlerProc proc,
                                       XtPointer closure);
void XwkRemoveEventHandler(Widget widget, unsigned int value, int type, int offset,
                           XwkEventHandlerProc proc, XtPointer closure);
void XwkRunEventHandler(XEvent *event);

Widget XwkGetShell(Widget w);
Widget XwkGetWMShell(Widget w);
Widget XwkGetVendorShell(Widget w);
Widget XwkGetDialogShell(Widget w);
Widget XwkGetTopLevelShell(Widget w);
Widget XwkGetAppShell(Widget w);

void XwkAddDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure);
void XwkRemoveDeleteWindowCallback(Widget shell, XtCallbackProc proc, XtPointer closure);
void XwkSetTransientFor(Widget parent, Widget child);
void XwkSetWidgetClassValues(Widget root, WidgetClass *classes, Cardinal nclasses,
                             ArgList args, Cardinal nargs);
void XwkSetConverters(void);
void ForceUpdate(Widget w);
void ForceDestroy(Widget w);
void XwkBell(Widget w);

/* The two hooks installed on Motif's sash and label classes. */
void XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs);
void _XwkSashRealizeClassProc(Widget sash, XtValueMask *mask, XSetWindowAttributes *attrs);
void XwkLabelExposeClassProc(Widget label, XEvent *event, Region region);

/* Services of other subsystems that the frame calls. */
void XwkProcessEventsForTipLabel(XEvent *event);
Boolean XwkFindColor(Display *display, Colormap colormap, XColor *color);
void XwkSetHelpData(Widget w, const char *file, const char *page, const char *anchor);
Boolean XwkGetHelpData(Widget w, char **file, char **page, char **anchor);
void XwkLoadHelp(Widget w);
void XwkGetWMCoords(Widget shell, Position *x, Position *y);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
