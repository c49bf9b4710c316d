// Columns layout strings, sound or not, given to a tree list with columns:
// XmPrjTreeCheckLayoutString and XmPrjTreeSetColumnsLayoutString read them
// as far as they are sound, and the string read back must be one the list
// takes again whole.  A private Xvfb is started at the first input.
#undef _GNU_SOURCE
extern "C" {
#include "tests/support/xvfb.c"
}

#include <Xwk/Xwk.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

namespace {

Widget tree;

void start()
{
    static XwkXvfb server = {-1, -1};
    if (xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "treelayout_fuzz: cannot start Xvfb\n");
        abort();
    }
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    static int argc = 0;
    Display *dpy = XtOpenDisplay(app, nullptr, "treelayout_fuzz", "Fuzz", nullptr, 0, &argc, nullptr);
    if (!dpy)
        abort();
    Widget shell = XtVaAppCreateShell("treelayout_fuzz", "Fuzz", applicationShellWidgetClass, dpy,
                                      XtNwidth, 400, XtNheight, 200, nullptr);
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNvisualMode, XmTABLE_LIST); n++;
    XtSetArg(args[n], XmNnumColumns, 5); n++;
    XtSetArg(args[n], XmNdelimeter, '|'); n++;
    XtSetArg(args[n], XmNtitleString, "Name|Size|Date|Mode|"); n++;
    XtSetArg(args[n], XmNwidth, 400); n++;
    tree = XmCreatePrjTree(shell, (String) "tree", args, n);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (!tree)
        start();
    std::string text(reinterpret_cast<const char *>(data), size);
    text.resize(strlen(text.c_str()));
    std::string copy = text;
    int sound = XmPrjTreeCheckLayoutString(tree, copy.data());
    if (copy != text || sound < 0)
        abort();
    int read = XmPrjTreeSetColumnsLayoutString(tree, text.c_str());
    if (read < 0 || read > 5)
        abort();
    char *layout = XmPrjTreeGetColumnsLayoutString(tree);
    if (!layout)
        abort();
    // Every column stands in it, and the list takes it back whole.  The
    // last column's width follows the bar once it is laid out, so the
    // string is stable from the second round on.
    for (int round = 0; round < 2; round++) {
        std::string before = layout;
        if (XmPrjTreeCheckLayoutString(tree, layout) != 5 ||
            XmPrjTreeSetColumnsLayoutString(tree, layout) != 5) {
            fprintf(stderr, "treelayout_fuzz: [%s] not taken whole\n", before.c_str());
            abort();
        }
        XtFree(layout);
        layout = XmPrjTreeGetColumnsLayoutString(tree);
        if (!layout || (round == 1 && before != layout)) {
            fprintf(stderr, "treelayout_fuzz: [%s] read back as [%s]\n", before.c_str(),
                    layout ? layout : "(null)");
            abort();
        }
    }
    XtFree(layout);
    return 0;
}
