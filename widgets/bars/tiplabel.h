// The tip label's own windows, for the event filter.
#ifndef XWK_WIDGETS_TIPLABEL_H
#define XWK_WIDGETS_TIPLABEL_H

#include <X11/Xlib.h>

bool xwk_tip_owns_window(Window window);

#endif
