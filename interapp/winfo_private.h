// Shared inside the windows info code: the property read and the parser
// without the error box.
#ifndef XWK_INTERAPP_WINFO_PRIVATE_H
#define XWK_INTERAPP_WINFO_PRIVATE_H

#include <Xwk/Windows.h>

namespace winfo {

// The property's text (free with XFree), or NULL when it is missing or not
// STRING of format 8.  A length that disagrees with the text shows the
// error box; the text is used all the same.  Call it under the grab.
char *ReadProperty(Widget w, Atom atom);
// Parses text into a zeroed table of the header's count (XtCalloc);
// *parsed receives the number of records found.  Returns the count.
int ParseRecords(const char *text, WindowsInfoRecord **records, int *parsed);
// Frees the titles and the table.
void FreeRecords(WindowsInfoRecord *table, int count);

}  // namespace winfo

#endif
