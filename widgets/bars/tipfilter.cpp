#include "bars.h"
#include "tiplabel.h"

#include <Xwk/Frame.h>

// Sees every event ahead of dispatch and leaves it as it is.  A standing
// tip goes on any key, click or leave, and on any change of the window
// layout other than its own.
void XwkProcessEventsForTipLabel(XEvent *event)
{
    if (!event || xwkTipLabelIsHidden || !xwkTipLabelWidget)
        return;
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
    case ButtonPress:
    case ButtonRelease:
    case LeaveNotify:
        XwkHideTipLabel();
        return;
    }
    if (xwk_tip_owns_window(event->xany.window))
        return;
    switch (event->type) {
    case CirculateNotify:
    case ConfigureNotify:
    case DestroyNotify:
    case GravityNotify:
    case MapNotify:
    case UnmapNotify:
        XwkHideTipLabel();
        return;
    }
}
