/* Pages of the gallery: each builds its content under parent, the gallery's
 * folder, as one child, and returns it; the child becomes the page. */
#ifndef XWK_DEMO_PAGES_H
#define XWK_DEMO_PAGES_H

#include <X11/Intrinsic.h>

Widget demo_page_frame(Widget parent);
Widget demo_page_colours(Widget parent);
Widget demo_page_companions(Widget parent);
Widget demo_page_treelist(Widget parent);
Widget demo_page_dialogs(Widget parent);
Widget demo_page_process(Widget parent);
Widget demo_page_toolcfg(Widget parent);
Widget demo_page_folder(Widget parent);
Widget demo_page_bars(Widget parent);
Widget demo_page_windows(Widget parent);
Widget demo_page_desklist(Widget parent);
Widget demo_page_tables(Widget parent);
Widget demo_page_filedesk(Widget parent);

#endif
