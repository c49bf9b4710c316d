// Shared inside the dialog building code: desk validity, control records
// and the small steps every control takes.
#ifndef XWK_FORMS_PRIVATE_H
#define XWK_FORMS_PRIVATE_H

#include <Xwk/Desk.h>

#include <Xm/Xm.h>

#include <string>
#include <vector>

// A desk created and not closed yet.  Never reads a handle it does not know.
bool xwk_desk_is_valid(XwkDeskRec *desk);

namespace xwk_forms {

// Packed strings: each ended by a zero byte, count of them.
std::vector<const char *> unpack(const char *packed, int count);

// A zeroed record of the given size from XtCalloc with its desk stored, or
// null for an invalid desk.  Freed with the widget by watch_item.
XwkDeskItem *new_item(XwkDeskRec *desk, size_t size);
// Frees the record, and the widget arrays named, when widget goes.
void watch_item(XwkDeskItem *item, Widget widget, Widget **owned1 = nullptr);
// The desk's extents grow to show the item at (x, y).
void raise_extent(XwkDeskItem *item, unsigned short x, unsigned short y);
// The item is usable: alive desk.
bool item_usable(XwkDeskItem *item);

// Text through the catalogue with "\n" breaking the line.
XmString ltor(const char *text);
XmString localized(const char *text);

void attach_at(Arg *args, Cardinal *n, unsigned short x, unsigned short y);

}  // namespace xwk_forms

#endif
