// Library-internal pieces of the string services.
#ifndef XWK_FRAME_STRINGS_PRIVATE_H
#define XWK_FRAME_STRINGS_PRIVATE_H

// The library's own empty string.  Some routines tell it from a caller's
// empty text by its address.
extern "C" const char xwkEmptyString[];

#endif
