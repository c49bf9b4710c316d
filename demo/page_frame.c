/* The frame page: what a desk form is made of. */
#include <Xwk/Xwk.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>

#include "pages.h"

static Widget add_label(Widget parent, const char *text, float x_cm, float y_cm, Boolean sensitive)
{
    unsigned short x, y;
    XmString s = XmStringCreateLtoR((char *)text, XmFONTLIST_DEFAULT_TAG);
    cm_pix(x_cm, y_cm, &x, &y);
    Widget w = XtVaCreateManagedWidget("label", xmLabelWidgetClass, parent, XmNlabelString, s,
                                       XmNalignment, XmALIGNMENT_BEGINNING,
                                       XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, y,
                                       XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, x,
                                       XmNsensitive, sensitive, NULL);
    XmStringFree(s);
    return w;
}

Widget demo_page_frame(Widget parent)
{
    Widget form = XtVaCreateManagedWidget("framePage", xmFormWidgetClass, parent, NULL);
    add_label(form, "Controls are placed in centimetres: this label stands at 0.5 cm, 0.5 cm.",
              0.5f, 0.5f, True);
    add_label(form, "An insensitive label is drawn etched.", 0.5f, 1.3f, False);
    add_label(form, "A desk's action area of buttons stands below its work area; the last one is Help.\n"
                    "The Controls desk of the Dialogs page is a desk built from every control.",
              0.5f, 2.1f, True);
    return form;
}
