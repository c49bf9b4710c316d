#ifndef XWK_DEMO_SCREENSHOT_H
#define XWK_DEMO_SCREENSHOT_H

#include <X11/Xlib.h>

/* Writes the contents of a window as a PNG file; 0 on success. */
int demo_write_png(Display *dpy, Window window, const char *path);

#endif
