// Motif's internal entry points that the library uses.  libXm.so.4 exports
// them, but no installed header declares them.
#ifndef XWK_XMPRIVATE_H
#define XWK_XMPRIVATE_H

#include <X11/Intrinsic.h>

extern "C" {

// --- frame ---
unsigned char _XmGetAudibleWarning(Widget w);
void XmRegisterConverters(void);

}

#endif

// --- companions: paned window and combo box ---
#include <Xm/XmP.h>

extern "C" {

void _XmMoveObject(Widget w, Position x, Position y);
void _XmResizeObject(Widget w, Dimension width, Dimension height, Dimension border_width);
void _XmDrawHighlight(Display *display, Drawable d, GC gc, Position x, Position y, Dimension width,
                      Dimension height, Dimension thickness, int line_style);
void _XmManagerFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmManagerFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params);
Boolean _XmParentProcess(Widget w, XmParentProcessData data);

}

// --- tree list ---
extern "C" {

void _XmSelectColorDefault(Widget w, int offset, XrmValue *value);
void _XmForegroundColorDefault(Widget w, int offset, XrmValue *value);
void _XmBackgroundColorDefault(Widget w, int offset, XrmValue *value);
Boolean _XmFontListSearch(XmFontList fontlist, XmStringCharSet charset, short *index,
                          XFontStruct **font_struct);
Widget _XmFindNextTabGroup(Widget w);
Widget _XmFindPrevTabGroup(Widget w);
void _XmManagerEnter(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmManagerLeave(Widget w, XEvent *event, String *params, Cardinal *num_params);
unsigned char _XmGetFocusPolicy(Widget w);

}

// --- tool bar ---
extern "C" {

void _XmHighlightBorder(Widget w);
void _XmUnhighlightBorder(Widget w);

}

// --- inter-application services: window manager frames ---
#include <Xm/BaseClassP.h>

extern "C" {

XmWidgetExtData _XmGetWidgetExtData(Widget w, unsigned char extType);

}

// --- desk list ---
extern "C" {

void _XmPrimitiveFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveEnter(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveLeave(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveHelp(Widget w, XEvent *event, String *params, Cardinal *num_params);

}
