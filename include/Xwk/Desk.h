/*
 * Xwk/Desk.h - desk forms: a shell with a work area on which controls are
 * placed in centimetres, and an action area of push buttons below it.
 *
 *   XwkDeskRec *desk;
 *   CreateDesk(NULL, 2.0, 2.0, "Settings|settings#general", &desk);
 *   ... controls ...
 *   OpenDesk(desk);
 *   for (;;) { int b; UseDesk(desk, &b); if (b != 0) break; }
 *   if (b != -1) CloseDesk(desk);
 *
 * Title strings carry help data: "Title|page#anchor".
 */
#ifndef XWK_DESK_H
#define XWK_DESK_H

#include <X11/Intrinsic.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

typedef struct _XwkDeskRec {
    struct _XwkDeskRec *self;   /* validity mark: the record's own address */
    Widget form;                /* application shell (first desk) or the form in the shell */
    Widget panes;               /* the paned window "xwkPanedWindow" */
    Widget work;                /* the form holding the controls */
    Widget action;              /* the action area, once open */
    int result;                 /* last button pressed, 0 if none */
    int cancel_index;
    Widget *buttons;            /* action buttons, owned by the desk */
    int nbuttons;
    unsigned short origin_x, origin_y;  /* desk position in pixels */
    unsigned short extent_w, extent_h;  /* work area size showing all controls */
    char *help;                 /* help part of the title until the desk opens */
} XwkDeskRec;

typedef XwkDeskRec *XwkDesk;

/* One entry of a callback table for XwkCreateActionArea. */
typedef struct {
    XtCallbackProc callback;
    XtPointer closure;
} XwkActionCallbackRec;

void CreateDesk(Widget parent, float x_cm, float y_cm, const char *title, XwkDeskRec **out);
void OpenDesk(XwkDeskRec *desk);
void OpenDeskExt(XwkDeskRec *desk, const char *labels, int count);
void UseDesk(XwkDeskRec *desk, int *out);
void CloseDesk(XwkDeskRec *desk);
void GetDeskItemSize(Widget item, float *w_cm, float *h_cm);
void XwkSetParentWidget(Widget w);
Widget XwkCreateActionArea(XwkDeskRec *desk, Widget parent, const char *labels,
                           XwkActionCallbackRec *callbacks, int count, XtPointer closure);
int XwkGetActionButtons(Widget panes, WidgetList *out);

/* Centimetres and pixels at the fixed scale of xwkCmWidth x xwkCmHeight. */
void cm_pix(float x_cm, float y_cm, unsigned short *x, unsigned short *y);
void pix_cm(unsigned short x, unsigned short y, float *x_cm, float *y_cm);
unsigned short XwkWidth(float cm);
unsigned short XwkHeight(float cm);

/* By-reference forms: each scalar input is passed by address. */
void createdesk_(Widget *parent, float *x_cm, float *y_cm, const char *title, XwkDeskRec **out);
void opendesk_(XwkDeskRec **desk);
void usedesk_(XwkDeskRec **desk, int *out);
void closedesk_(XwkDeskRec **desk);
void getdeskitemsize_(Widget *item, float *w_cm, float *h_cm);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
