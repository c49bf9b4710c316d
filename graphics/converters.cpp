#include <Xwk/Frame.h>

#include <Xm/XmP.h>

#include "frame/XmPrivate.h"

// Registers the library's type converters once per process.
void XwkSetConverters(void)
{
    static bool done;
    if (done)
        return;
    done = true;
    XmRegisterConverters();
}
