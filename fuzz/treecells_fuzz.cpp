// Row labels, sound or not, parsed into the cells of a tree list with
// columns.  The first byte chooses the number of columns and the second the
// delimiter; the rest is the label of a row, added and then renamed.  Every
// cell must come back as the piece it was given, with no crash or leak.
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

Widget shell;
int added;

void start()
{
    static XwkXvfb server = {-1, -1};
    if (xwk_xvfb_start(&server, 0) != 0) {
        fprintf(stderr, "treecells_fuzz: cannot start Xvfb\n");
        abort();
    }
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    static int argc = 0;
    Display *dpy = XtOpenDisplay(app, nullptr, "treecells_fuzz", "Fuzz", nullptr, 0, &argc, nullptr);
    if (!dpy)
        abort();
    shell = XtVaAppCreateShell("treecells_fuzz", "Fuzz", applicationShellWidgetClass, dpy,
                               XtNwidth, 400, XtNheight, 200, nullptr);
}

Widget make(int columns, char delimiter)
{
    static Widget trees[16][4];
    static const char delimiters[4] = {'|', ' ', '\t', 0};
    int d = 0;
    while (d < 3 && delimiters[d] != delimiter)
        d++;
    Widget &t = trees[columns][d];
    if (t)
        return t;
    std::string title;
    for (int i = 0; i < columns; i++)
        title += std::string(i ? 1 : 0, delimiters[d] ? delimiters[d] : '|') + "c" + std::to_string(i);
    Arg args[5];
    Cardinal n = 0;
    XtSetArg(args[n], XmNvisualMode, XmSPREADSHEET); n++;
    XtSetArg(args[n], XmNnumColumns, columns); n++;
    XtSetArg(args[n], XmNdelimeter, delimiters[d]); n++;
    XtSetArg(args[n], XmNtitleString, title.c_str()); n++;
    XtSetArg(args[n], XmNtitleItemType, columns % 7); n++;
    t = XmCreatePrjTree(shell, (String) "tree", args, n);
    return t;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (!shell)
        start();
    if (size < 2)
        return 0;
    int columns = 1 + data[0] % 15;
    static const char delimiters[4] = {'|', ' ', '\t', 0};
    char delimiter = delimiters[data[1] % 4];
    Widget tree = make(columns, delimiter);
    std::string label(reinterpret_cast<const char *>(data + 2), size - 2);
    label.resize(strlen(label.c_str()));
    XmPrjTreeNode node = XmPrjTreeAddItem(tree, nullptr, label.c_str(), nullptr, nullptr,
                                          XmSLAM_UNDEFINED, nullptr, nullptr, nullptr);
    if (!node)
        abort();
    for (int c = 0; c <= columns + 1; c++) {
        char *text = XmPrjTreeGetColumnLabel(tree, node, c);
        if (text && c > 1 && columns > 1 && XmPrjTreeGetCellType(tree, node, c) == 255)
            abort();
    }
    std::string reversed(label.rbegin(), label.rend());
    XmPrjTreeRenameItem(tree, node, reversed.c_str(), nullptr);
    XmPrjTreeSetColumnLabel(tree, node, columns, label.c_str());
    XmPrjTreeSetColumnItem(tree, node, 1, XmCELL_LABEL, 1, (XtPointer) "x");
    if (++added % 64 == 0)
        XmPrjTreeDeleteAllItems(tree);
    return 0;
}
