// Library-internal: compound strings of text with line breaks.
#ifndef XWK_FRAME_XMSTRING_PRIVATE_H
#define XWK_FRAME_XMSTRING_PRIVATE_H

#include <Xm/Xm.h>

namespace xwk {

// The string XmStringCreateLtoR(text, tag) makes, built line by line around
// one separator kept for the life of the process.  Every break that
// XmStringCreateLtoR finds raises the 8-bit reference count of Motif's cached
// separator without ever lowering it; when the count wraps, Motif drops the
// cached separator unfreed, so texts with many breaks leak 64 bytes every 255
// breaks.  The caller frees the result with XmStringFree.
XmString LinesString(const char *text, XmStringTag tag);

}  // namespace xwk

#endif
