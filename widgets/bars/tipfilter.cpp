#include <Xwk/Frame.h>

// Sees every event ahead of dispatch and leaves it as it is.
void XwkProcessEventsForTipLabel(XEvent *event)
{
    (void)event;
}
