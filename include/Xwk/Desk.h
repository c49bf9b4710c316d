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

struct _XwkDeskItem;  /* a control record, below */

void CreateDesk(Widget parent, float x_cm, float y_cm, const char *title, XwkDeskRec **out);
void OpenDesk(XwkDeskRec *desk);
void OpenDeskExt(XwkDeskRec *desk, const char *labels, int count);
void UseDesk(XwkDeskRec *desk, int *out);
void CloseDesk(XwkDeskRec *desk);
void GetDeskItemSize(struct _XwkDeskItem *item, float *w_cm, float *h_cm);
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
void getdeskitemsize_(struct _XwkDeskItem **item, float *w_cm, float *h_cm);

/* ---- Desk controls ------------------------------------------------------
 *
 * Controls sit on a desk's work area at positions in centimetres.  Each
 * Set... call gives back a record by its last argument (null when the desk
 * is not valid or memory ran out); the record lives as long as the control's
 * widget.  Item strings are packed: one buffer of strings each ended by a
 * zero byte, as many as count says.  Selection numbers are 1-based.
 */

/* The head of every control record. */
typedef struct _XwkDeskItem {
    XwkDeskRec *desk;           /* owner */
    unsigned short width, height;  /* size in pixels, for GetDeskItemSize */
    Widget widget;              /* outermost widget of the control */
    XtTranslations translations;   /* of the main widget at creation */
} XwkDeskItem;

typedef struct {
    XwkDeskItem item;
    int pressed;                /* set by activation, cleared by GetButton */
} XwkButtonItem;

typedef struct {                /* radio box and check box */
    XwkDeskItem item;
    Widget *toggles;            /* owned */
    Widget title;
    int count;
} XwkToggleItem;

typedef struct {
    XwkDeskItem item;
    Widget list;
    Widget title;
    int selected;               /* first entry of the initial selection */
} XwkListItem;

typedef struct {
    XwkDeskItem item;
    Widget pulldown;
    Widget *buttons;            /* owned */
    int count;
    int selected;               /* 1-based, follows activation */
} XwkOptionItem;

typedef struct {
    XwkDeskItem item;
    Widget text;
    Widget title;
    void *value;                /* the client's initial value */
    void *reserved;
    int type;                   /* 1 long, 2 and 3 float, else string; < 0 display only */
    int length;                 /* maximum characters */
    int rows;                   /* as given */
    Pixel background;
} XwkEditItem;

/* Edit field types, by absolute value. */
#define XWK_FIELD_LONG   1
#define XWK_FIELD_FLOAT  2
#define XWK_FIELD_STRING 4

void SetLabel(XwkDeskRec *desk, float x, float y, const char *text, XwkDeskItem **out);
void SetButton(XwkDeskRec *desk, float x, float y, const char *text, XwkDeskItem **out);
void GetButton(XwkDeskItem *item, int *pressed);
/* style 2 etched out, 3 single, 4 double, 5 single dashed, 6 double dashed,
 * other etched in; a negative length is vertical; beyond the screen means
 * up to the edge of the work area. */
void SetSeparator(XwkDeskRec *desk, float x, float y, float length, int style,
                  XwkDeskItem **out);
/* A negative count stretches the frame to the right edge. */
void SetRadioBox(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                 int count, int selected, XwkDeskItem **out);
void GetRadioBox(XwkDeskItem *item, int *selected);
void ChangeRadioBox(XwkDeskItem *item, int selected);
void SetCheckBox(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                 int count, int *states, XwkDeskItem **out);
void GetCheckBox(XwkDeskItem *item, int *states);
void SetOptionMenu(XwkDeskRec *desk, float x, float y, const char *title, int reserved,
                   const char *items, int count, int selected, XwkDeskItem **out);
void GetOptionMenu(XwkDeskItem *item, int *selected);
void SetScrolledList(XwkDeskRec *desk, float x, float y, const char *title, const char *items,
                     int count, int visible, int selected, XwkDeskItem **out);
/* With policy XmMULTIPLE_SELECT or XmEXTENDED_SELECT, selected holds count
 * flags; otherwise its first element is a position.  It may be null. */
void SetScrolledListExt(XwkDeskRec *desk, float x, float y, const char *title,
                        const char *items, int count, int visible, int *selected, int policy,
                        XwkDeskItem **out);
void GetScrolledList(XwkDeskItem *item, int *selected);
/* *positions comes from XmListGetSelectedPos; the caller frees it. */
void GetScrolledListExt(XwkDeskItem *item, int **positions, int *count);
void ChangeScrolledList(XwkDeskItem *item, int position);
void ChangeScrolledListExt(XwkDeskItem *item, int *positions, int count);
/* gap < 0: title above; 0: title left, field behind it; > 0: field at gap
 * cm.  columns <= 0: stretched to the right edge; 0 also makes it show only. */
void SetEditField(XwkDeskRec *desk, float x, float y, const char *label, float gap,
                  void *value, int type, int length, int columns, XwkDeskItem **out);
/* Negative rows also stretch the field to the bottom edge. */
void SetEditMultiField(XwkDeskRec *desk, float x, float y, const char *label, float gap,
                       void *value, int type, int length, int rows, int columns,
                       XwkDeskItem **out);
void GetEditField(XwkDeskItem *item, void *value);
void ChangeEditField(XwkDeskItem *item, void *value);

/* Field number |index| (from 1) of a ',' or ';' separated list into
 * destination, which must hold the source's length + 1.  Returns the number
 * of fields ended; a positive index that is not reached opens an error box
 * and gives 0.  mode 16 takes quotes as plain characters. */
int GetParameter(const char *source, char *destination, int index);
int GetParameterExt(const char *source, char *destination, int index, int mode);
/* A command line split into a malloc'ed null-ended array of strdup'ed words. */
char **XwkCreateArgList(const char *string);
void XwkDestroyArgList(char **args);
/* "Ctrl-O" gives "Ctrl <Key>O"; null or "none" gives null.  XtMalloc'ed. */
char *XwkCreateAcc(const char *text);
char *XwkCreateAccText(const char *text);
void XwkSetSensitive(Widget w, Boolean state);
/* An insensitive text keeps its text selectable and looks disabled. */
void XwkSetTextSensitive(Widget text, Boolean state);

/* By-reference forms. */
void setlabel_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out);
void setbutton_(XwkDeskRec **desk, float *x, float *y, const char *text, XwkDeskItem **out);
void getbutton_(XwkDeskItem **item, int *pressed);
void setseparator_(XwkDeskRec **desk, float *x, float *y, float *length, int *style,
                   XwkDeskItem **out);
void setradiobox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *selected, XwkDeskItem **out);
void getradiobox_(XwkDeskItem **item, int *selected);
void changeradiobox_(XwkDeskItem **item, int *selected);
void setcheckbox_(XwkDeskRec **desk, float *x, float *y, const char *title, const char *items,
                  int *count, int *states, XwkDeskItem **out);
void getcheckbox_(XwkDeskItem **item, int *states);
void setoptionmenu_(XwkDeskRec **desk, float *x, float *y, const char *title, int *reserved,
                    const char *items, int *count, int *selected, XwkDeskItem **out);
void getoptionmenu_(XwkDeskItem **item, int *selected);
void setscrolledlist_(XwkDeskRec **desk, float *x, float *y, const char *title,
                      const char *items, int *count, int *visible, int *selected,
                      XwkDeskItem **out);
void getscrolledlist_(XwkDeskItem **item, int *selected);
void changescrolledlist_(XwkDeskItem **item, int *position);
void seteditfield_(XwkDeskRec **desk, float *x, float *y, const char *label, float *gap,
                   void *value, int *type, int *length, int *columns, XwkDeskItem **out);
void geteditfield_(XwkDeskItem **item, void *value);
void changeeditfield_(XwkDeskItem **item, void *value);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
