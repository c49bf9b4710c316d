// Shared by the message box sources.
#ifndef XWK_MSGBOX_PRIVATE_H
#define XWK_MSGBOX_PRIVATE_H

#include <Xwk/Graphics.h>

// The icon of a message kind 1 to 4 (error, information, question,
// warning), built at first use; null for other kinds.
XwkIcon *xwk_kind_icon(Widget w, int kind);

// The answer cell of a box, in the box's XmNuserData: -1 until a button or
// the window manager's close answers.  A waiter that sets gone learns there
// that the box was destroyed: the cell goes with the box.
struct XwkConditCell {
    int answer;
    bool *gone;
};

XwkConditCell *xwk_condit_cell(Widget box);
// Whether the box is gone or going; never reads a box already freed.
bool xwk_condit_box_gone(Widget box, const bool *gone);

#endif
