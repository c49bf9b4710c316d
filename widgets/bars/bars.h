// Pieces shared by the tool bar, the menus and the short help.
#ifndef XWK_WIDGETS_BARS_H
#define XWK_WIDGETS_BARS_H

#include <Xwk/Bars.h>
#include <Xm/XmP.h>

// The label of the message area of w's window, or null.
Widget xwk_message_label(Widget w);

// Runs proc(call_widget, closure, copy of the call data) from a timer of
// zero length, with the server grabbed until then.  click_count is the
// third word of the call data (a toggle's new state).  Then after(entry,
// label) runs, each null when the call destroyed it: label is the message
// label whose short help the activation turned off.
void xwk_call_later(Widget entry, Widget call_widget, XtCallbackProc proc, XtPointer closure,
                    const XmAnyCallbackStruct *call, int click_count, Widget label,
                    void (*after)(Widget entry, Widget label));

#endif
