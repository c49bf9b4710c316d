/* Pages of the gallery: each builds its content under parent and returns it. */
#ifndef XWK_DEMO_PAGES_H
#define XWK_DEMO_PAGES_H

#include <X11/Intrinsic.h>

Widget demo_page_frame(Widget parent);
Widget demo_page_colours(Widget parent);
Widget demo_page_companions(Widget parent);
Widget demo_page_treelist(Widget parent);
Widget demo_page_dialogs(Widget parent);
Widget demo_page_tables(Widget parent);

#endif
