#include <Xwk/Frame.h>

// Motif's colour allocation procedure.  Plain allocation for now; the
// nearest-cell search on a full colormap belongs here.
Boolean XwkFindColor(Display *display, Colormap colormap, XColor *color)
{
    if (!display || !color)
        return False;
    return XAllocColor(display, colormap, color) != 0;
}
