// Motif's internal entry points that the library uses.  libXm.so.4 exports
// them, but no installed header declares them.
#ifndef XWK_XMPRIVATE_H
#define XWK_XMPRIVATE_H

#include <X11/Intrinsic.h>

extern "C" {

// --- frame ---
unsigned char _XmGetAudibleWarning(Widget w);
void XmRegisterConverters(void);

}

#endif
