// The silent X error handler: installed around every probe of a window or
// pixmap that another client, or the server, may have destroyed already.
#ifndef XWK_XERRORS_H
#define XWK_XERRORS_H

#include <X11/Xlib.h>

int XwkIgnoreXError(Display *display, XErrorEvent *error);

#endif
